#pragma once

#include "guests/tabellecodici.h"

#include <QList>
#include <QString>
#include <functional>
#include <optional>

namespace tomvera {

class Archivio;
class GestioneErrori;
class Interazione;

// One row of the grid of F_ArchivioCodici.
struct VoceCodice
{
    qint64 indice = 0;
    QString codice, descrizione, provincia, cap, prefissoTelefonico;
};

// F_ArchivioCodici, "Configurazione Tabelle": hand edits of the four official code tables.
class ArchivioCodici
{
public:
    // Restores one table from the reference archive (mode "Resetta"): the rows copied, none when it could not.
    using Ripristino = std::function<std::optional<int>(TabellaCodici)>;

    ArchivioCodici(Archivio& archivio, Interazione& interazione, QString percorsoArchivioCodici, Ripristino ripristino);

    TabellaCodici tabella() const { return m_tabella; }
    // The options Comuni, Stati, TipoAlloggiato, Documenti: clears fields and search, lists the table.
    void selezionaTabella(TabellaCodici tabella);
    bool haProvincia() const;
    bool haCapEPrefisso() const;
    QStringList titoliGriglia() const;

    VoceCodice& campi() { return m_campi; }
    VoceCodice& ricerca() { return m_ricerca; }
    const QList<VoceCodice>& griglia() const { return m_griglia; }
    void selezionaRiga(int riga);

    void Command2_Click(); // CERCA
    void CancellaCampiRicerca_Click();
    void Command17_Click(); // NUOVO
    bool Ins_Click(); // REGISTRA
    bool Command16_Click(); // ELIMINA
    void Command3_Click(); // Reimposta Dati di Default

private:
    Archivio& m_archivio;
    Interazione& m_interazione;
    QString m_percorsoArchivioCodici;
    Ripristino m_ripristino;
    TabellaCodici m_tabella = TabellaCodici::Comuni;
    VoceCodice m_campi;
    VoceCodice m_ricerca;
    QList<VoceCodice> m_griglia;
};

// The restore of the screen's command: the table emptied and copied again from ArchivioCodici.mdb at path.
ArchivioCodici::Ripristino ripristinoDaArchivioCodici(Archivio& archivio, GestioneErrori& errori, QString percorso);

} // namespace tomvera
