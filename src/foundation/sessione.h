#pragma once

#include <QString>
#include <memory>

namespace tomvera {

class Interazione;
class Orologio;
class GestioneErrori;
struct Configurazione;
struct PermessiUtente;

// The run-time values of one run of the program, handed to every logic class: where the archives are,
// how to talk to the user, what time it is, the error policy, the settings and the logged-in user's rights.
struct Sessione
{
    Sessione(Interazione& interazione, Orologio& orologio, GestioneErrori& errori);
    ~Sessione();

    Interazione& interazione;
    Orologio& orologio;
    GestioneErrori& errori;

    QString PercorsoDB; // Archivio.mdb (or the file the user chose)
    QString PercorsoArchivioSky; // ArchivioSky.mdb beside it
    QString PercorsoArchivioCodici; // ArchivioCodici.mdb (official code tables)
    QString PercorsoProgramma; // the program's folder
    QString PercorsoCondiviso; // the shared side-file folder
    QString UtenteCollegato;
    int UtentiCollegati = 0;

    // Loaded by CaricaConfigurazione and at login; never null after construction.
    std::unique_ptr<Configurazione> configurazione;
    std::unique_ptr<PermessiUtente> permessi;
};

} // namespace tomvera
