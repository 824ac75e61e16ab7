#pragma once

#include <QString>

#include <functional>

namespace tomvera {

class Archivio;
class GestioneErrori;

// Creates a new archive or brings an older one up to this version: every table, field and index that is
// missing is added, in a fixed order, and nothing that exists is changed. Running it twice changes nothing.
class CreazioneDB
{
public:
    using Registro = std::function<void(const QString& riga)>;

    struct Percorsi
    {
        QString archivio; // Archivio.mdb
        QString archivioSky; // ArchivioSky.mdb; empty = beside the archive
        QString archivioCodici; // ArchivioCodici.mdb; step skipped when missing
        QString cartellaImmagini; // the beach pictures shipped with the program
    };

    CreazioneDB(Percorsi percorsi, GestioneErrori& errori, Registro registro = {});

    // The whole creation; the last log line is "COMANDO ESEGUITO". False when the file can't be created.
    bool CreaDB_Click();

    void ValorizzaCampiNulli(Archivio& archivio);
    void AumentaDimensioneCampi(Archivio& archivio);
    void CreaArticoliSpiaggia(Archivio& archivio);
    bool CreaArchivioSky();

private:
    void scrivi(const QString& riga);

    Percorsi m_percorsi;
    GestioneErrori& m_errori;
    Registro m_registro;
};

} // namespace tomvera
