#pragma once

#include <QString>
#include <functional>

namespace tomvera {

class Archivio;
class GestioneErrori;

namespace schema {
struct Tabella;
}

// Creates a new archive or brings an older one up to this version: every table, field and index that is
// missing is added, in a fixed order, and nothing that exists is changed. Running it twice changes nothing.
// Errors inside are skipped in silence: an upgrade that can't add a field leaves it missing.
class CreazioneDB
{
public:
    using Registro = std::function<void(const QString& riga)>;

    struct Percorsi
    {
        QString archivio; // Archivio.mdb
        QString archivioSky; // ArchivioSky.mdb; empty = beside the archive
        QString archivioCodici; // ArchivioCodici.mdb; empty = in the program's folder; step skipped when missing
        QString cartellaImmagini; // the beach pictures shipped; empty = "immagini" beside the program (or share)
    };

    CreazioneDB(Percorsi percorsi, GestioneErrori& errori, Registro registro = {});

    // The whole creation; the last log line is "COMANDO ESEGUITO". False when the file can't be created or
    // is not an archive (a foreign file is never touched).
    bool CreaDB_Click();

    void ValorizzaCampiNulli(Archivio& archivio);
    void AumentaDimensioneCampi(Archivio& archivio);
    void CreaArticoliSpiaggia(Archivio& archivio);
    bool CreaArchivioSky();

    // "" when the path can hold an archive (missing, empty, or already an SQLite file); else the reason.
    static QString verificaFileArchivio(const QString& percorso);
    // ArchivioSky.mdb in the folder of the given archive.
    static QString percorsoSkyAccanto(const QString& archivio);
    // Folder of the beach pictures beside an archive, where the map looks for them.
    static QString cartellaImmaginiSpiaggia(const QString& archivio);

private:
    void scrivi(const QString& riga);
    void applica(Archivio& archivio, const schema::Tabella& tabella);
    void copiaImmaginiSpiaggia();
    void copiaCodici(Archivio& archivio);

    Percorsi m_percorsi;
    GestioneErrori& m_errori;
    Registro m_registro;
};

} // namespace tomvera
