#include "foundation/avvio/avvioselezioneutente.h"

#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/interazione.h"
#include "foundation/piattaforma.h"
#include "foundation/routines.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/tabelle.h"
#include "foundation/schema/versione.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tomvera {

namespace {

const QString percorsoFile = QStringLiteral("Percorso.txt");
const QString utenteFile = QStringLiteral("Utente.txt");

// The files the program ships (beach pictures, ArchivioCodici.mdb) lie beside it; tests point elsewhere.
QString cartellaDati()
{
    return qEnvironmentVariable("TOMVERA_DATA_DIR");
}

CreazioneDB::Percorsi percorsiCreazione(const Sessione& sessione)
{
    CreazioneDB::Percorsi percorsi;
    percorsi.archivio = sessione.PercorsoDB;
    percorsi.archivioSky = sessione.PercorsoArchivioSky;
    percorsi.archivioCodici = sessione.PercorsoArchivioCodici;
    if (!cartellaDati().isEmpty())
        percorsi.cartellaImmagini = QDir(cartellaDati()).filePath(QStringLiteral("immagini"));
    return percorsi;
}

} // namespace

QString AvvioSelezioneUtente::VersioneProgramma()
{
    return QStringLiteral("3.9.4");
}

QString AvvioSelezioneUtente::NomeProdotto()
{
    return QStringLiteral("Tomvera");
}

AvvioSelezioneUtente::AvvioSelezioneUtente(Sessione& sessione, ContaUtenti contaUtenti)
    : m_sessione(sessione)
    , m_contaUtenti(std::move(contaUtenti))
{
}

void AvvioSelezioneUtente::Form_Load()
{
    // Parsing never depends on the machine's locale here, so there are no regional settings to repair.
    m_sessione.PercorsoProgramma = piattaforma::cartellaProgramma();
    m_sessione.PercorsoArchivioCodici
        = QDir(cartellaDati().isEmpty() ? QCoreApplication::applicationDirPath() : cartellaDati())
              .filePath(QStringLiteral("ArchivioCodici.mdb"));
    QDir().mkpath(m_sessione.PercorsoProgramma);
    QDir::setCurrent(m_sessione.PercorsoProgramma);
    Titolo = NomeProdotto() + QStringLiteral(" ver. ") + VersioneProgramma();
    Ver = Titolo;
    VerAggiornato = false;
    LetturaPath();
}

void AvvioSelezioneUtente::LetturaPath()
{
    ErroreAvvioVisibile = false;
    ErroreAvvio.clear();
    QDir().mkpath(piattaforma::cartellaArchiviPredefinita());
    m_sessione.PercorsoDB = piattaforma::percorsoArchivioPredefinito();
    m_sessione.PercorsoArchivioSky = piattaforma::percorsoArchivioSkyPredefinito();

    bool daFile = false;
    const QString file = piattaforma::percorsoFileLaterale(percorsoFile);
    if (QFileInfo::exists(file)) {
        const QString riga = piattaforma::leggiPrimaRiga(file);
        if (!riga.isEmpty()) {
            daFile = true;
            m_sessione.PercorsoDB = riga;
            // Cut by the length of "Archivio.mdb", whatever the file is called.
            m_sessione.PercorsoArchivioSky
                = riga.left(std::max(0, int(riga.size()) - 12)) + QStringLiteral("ArchivioSky.mdb");
        }
    }
    const QString errore = Archivio::VerificaArchivio(m_sessione.PercorsoDB);
    PercorsoDataBase = QDir::toNativeSeparators(m_sessione.PercorsoDB);
    if (!errore.isEmpty()) {
        ErroreAvvio = (daFile ? QStringLiteral("ATTENZIONE!!!  ") : QStringLiteral("ATTENZIONE!!!    "))
            + QStringLiteral("PROBLEMI DI ACCESSO AI DATI (Controllare il percorso dell'archivio e verificare che "
                             "sia raggiungibile) ")
            + QStringLiteral("\n\nERRORE: ") + errore;
        ErroreAvvioVisibile = true;
        Utenti.clear(); // the users of an archive chosen before are not this one's
        Command5Abilitato = true;
        AccediAbilitato = false;
        Alto = true;
        return;
    }
    Command5Abilitato = false;
    AccediAbilitato = true;
    const QString percorso = QFileInfo(m_sessione.PercorsoDB).absoluteFilePath();
    CartellaArchivio = QFileInfo(percorso).absolutePath() + QLatin1Char('/');
    PercorsoImmaginiSpiaggia = CartellaArchivio + QStringLiteral("Immagini Spiaggia/");
}

void AvvioSelezioneUtente::Form_Activate()
{
    if (ErroreAvvioVisibile)
        return;
    if (!ControllaCorrettezzaArchivio()) {
        AccediAbilitato = false;
        Utenti.clear();
        // A busy archive is a good one: say so, or the user goes looking for another file.
        m_sessione.interazione.messaggio(m_archivioOccupato
                                             ? GestioneErrori::testoArchivioOccupato()
                                             : QStringLiteral("Attenzione l'archivio selezionato non è corretto!"),
                                         {}, Interazione::Icona::Critico);
        return;
    }
    // Reading is still possible, but no one may work on for hours on saves that never land.
    if (const QString scrittura = Archivio::VerificaScrittura(m_sessione.PercorsoDB); !scrittura.isEmpty())
        m_sessione.interazione.messaggio(QStringLiteral("Attenzione! ") + scrittura, {}, Interazione::Icona::Critico);
    if (ControllaVersione(VersioneProgramma()) == EsitoVersione::Aggiornato) {
        Ver = QStringLiteral("Aggiornamento eseguito alla versione: ") + VersioneProgramma();
        VerAggiornato = true;
    }
    CaricaUtenteSelezionato();
    CaricaUtenti();
    LeggiPasswordUtente();
    ControllaSeAmministratore();
}

bool AvvioSelezioneUtente::ControllaCorrettezzaArchivio()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    const bool corretto = archivio.apri()
        && archivio.esegui(QStringLiteral(" SELECT * FROM TabellaStrutturaCamere where indice > 0 ")).has_value();
    m_archivioOccupato = !corretto && archivio.occupato();
    return corretto;
}

AvvioSelezioneUtente::EsitoVersione AvvioSelezioneUtente::ControllaVersione(const QString& versioneProgramma)
{
    std::optional<QSqlRecord> riga;
    {
        Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
        if (archivio.apri())
            riga = archivio.riga(QStringLiteral("select * from TabellaVersione "));
    }
    if (!riga) {
        if (!aggiornaArchivio())
            return aggiornamentoNonRiuscito();
        // Checked and written under one lock: two desks starting together leave one row.
        Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
        if (archivio.apri())
            schema::ScriviVersione(archivio, versioneProgramma);
        return EsitoVersione::Uguale;
    }
    const double programma = ValoreVersione(versioneProgramma);
    const double archiviata = ValoreVersione(riga->value(QStringLiteral("Versione")).toString());
    if (programma > archiviata) {
        // A failed upgrade keeps the old version number, so the next start tries again.
        if (!aggiornaArchivio())
            return aggiornamentoNonRiuscito();
        Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
        if (!archivio.apri() || !schema::ScriviVersione(archivio, versioneProgramma))
            return aggiornamentoNonRiuscito();
        return EsitoVersione::Aggiornato;
    }
    if (programma < archiviata) {
        m_sessione.interazione.messaggio(
            QStringLiteral("Attenzione, la versione del database è più aggiornata rispetto a quella del programma!\n"
                           "Eseguire l'aggiornamento del programma"),
            {}, Interazione::Icona::Critico);
        AccediAbilitato = false;
        return EsitoVersione::ProgrammaPiuVecchio;
    }
    return EsitoVersione::Uguale;
}

bool AvvioSelezioneUtente::aggiornaArchivio()
{
    // One step per table checked, and the closing steps: enough to move a bar on the screen.
    const int totale = int(schema::tabelleArchivio().size()) + 1;
    int fatti = 0;
    const auto registro = [this, totale, &fatti](const QString& riga) {
        fatti = std::min(fatti + 1, totale);
        if (avanzamentoAggiornamento)
            avanzamentoAggiornamento(riga, fatti, totale);
    };
    if (avanzamentoAggiornamento)
        avanzamentoAggiornamento(QStringLiteral("Aggiornamento dell'archivio in corso..."), 0, totale);
    const bool riuscito = eseguiAggiornamento
        ? eseguiAggiornamento(registro)
        : CreazioneDB(percorsiCreazione(m_sessione), m_sessione.errori, registro).CreaDB_Click();
    if (avanzamentoAggiornamento)
        avanzamentoAggiornamento({}, totale, totale);
    return riuscito;
}

AvvioSelezioneUtente::EsitoVersione AvvioSelezioneUtente::aggiornamentoNonRiuscito()
{
    m_sessione.interazione.messaggio(testoAggiornamentoNonRiuscito(), {}, Interazione::Icona::Critico);
    AccediAbilitato = false;
    return EsitoVersione::AggiornamentoNonRiuscito;
}

void AvvioSelezioneUtente::CaricaUtenteSelezionato()
{
    Utente = piattaforma::leggiPrimaRiga(piattaforma::percorsoFileLaterale(utenteFile));
}

void AvvioSelezioneUtente::SalvaUtenteSelezionato()
{
    piattaforma::scriviRiga(piattaforma::percorsoFileLaterale(utenteFile), Utente);
}

void AvvioSelezioneUtente::CaricaUtenti()
{
    const QString ricordato = Utente;
    Utenti.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Utenti = utenti::elencoUtenti(archivio);
    Utenti << utenti::NomeAmministratore();
    Utente = Utenti.contains(ricordato) && !ricordato.isEmpty() ? ricordato : utenti::NomeAmministratore();
}

void AvvioSelezioneUtente::LeggiPasswordUtente()
{
    Password.clear();
    m_tmpPassword.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri() && !Utente.isEmpty())
        m_tmpPassword = utenti::LeggiPasswordUtente(archivio, Utente);
    PasswordVisibile = utenti::richiedePassword(m_tmpPassword);
}

void AvvioSelezioneUtente::ControllaSeAmministratore()
{
    const bool abilita = utenti::ControllaSeAmministratore(Utente, Password, m_tmpPassword);
    ImpostazioniAbilitato = abilita;
    AggiornamentoOnLineAbilitato = abilita;
    if (!abilita)
        Alto = false;
}

int AvvioSelezioneUtente::UtentiCollegatiDB()
{
    m_sessione.UtentiCollegati = m_contaUtenti ? m_contaUtenti(m_sessione.PercorsoDB) : 0;
    return m_sessione.UtentiCollegati;
}

void AvvioSelezioneUtente::Utente_Click(const QString& utente)
{
    Utente = utente;
    LeggiPasswordUtente();
    SalvaUtenteSelezionato();
    ControllaSeAmministratore();
}

void AvvioSelezioneUtente::Password_Change(const QString& testo)
{
    Password = testo;
    ControllaSeAmministratore();
}

bool AvvioSelezioneUtente::Accedi_Click()
{
    SelezionaPassword = false;
    if (!AccediAbilitato)
        return false;
    switch (utenti::Accedi(m_sessione, Utente, Password, m_tmpPassword)) {
    case utenti::EsitoAccesso::Riuscito:
        UtentiCollegatiDB();
        return true;
    case utenti::EsitoAccesso::PasswordErrata:
        SelezionaPassword = true;
        return false;
    case utenti::EsitoAccesso::UtenteNonSelezionato:
    case utenti::EsitoAccesso::UtenteNonAttivo:
        break;
    }
    return false;
}

void AvvioSelezioneUtente::Command1_Click()
{
    Terminato = true;
}

void AvvioSelezioneUtente::Impostazioni_Click()
{
    if (ImpostazioniAbilitato || ErroreAvvioVisibile)
        Alto = !Alto;
}

void AvvioSelezioneUtente::ricarica()
{
    Form_Load();
    Form_Activate();
}

void AvvioSelezioneUtente::Command2_Click()
{
    const QString cartella = QFileInfo(m_sessione.PercorsoDB).absolutePath();
    const auto scelta = m_sessione.interazione.scegliFileDaAprire(
        QStringLiteral("Find Source File"), QDir(cartella).filePath(QStringLiteral("Archivio.mdb")),
        QStringLiteral("dBase Files (*.mdb)"));
    if (!scelta || scelta->trimmed().isEmpty())
        return;
    piattaforma::scriviRiga(piattaforma::percorsoFileLaterale(percorsoFile), QDir::toNativeSeparators(*scelta));
    m_sessione.PercorsoDB = *scelta;
    ricarica();
}

void AvvioSelezioneUtente::Command3_Click()
{
    m_sessione.PercorsoDB = piattaforma::percorsoArchivioPredefinito();
    m_sessione.PercorsoArchivioSky = piattaforma::percorsoArchivioSkyPredefinito();
    piattaforma::scriviRiga(piattaforma::percorsoFileLaterale(percorsoFile),
                            QDir::toNativeSeparators(m_sessione.PercorsoDB));
    ricarica();
}

void AvvioSelezioneUtente::Command5_Click()
{
    QDir().mkpath(QFileInfo(m_sessione.PercorsoDB).absolutePath());
    if (CreazioneDB(percorsiCreazione(m_sessione), m_sessione.errori).CreaDB_Click()) {
        // A new archive is at this version: no second pass at the next activation.
        Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
        if (archivio.apri() && !archivio.esisteRiga(QStringLiteral("SELECT * FROM TabellaVersione")))
            archivio.comando(QStringLiteral("INSERT INTO TabellaVersione (Versione) VALUES (?)"),
                             { VersioneProgramma() });
    } else {
        m_sessione.interazione.messaggio(QStringLiteral("Impossibile creare l'archivio in ") + PercorsoDataBase, {},
                                         Interazione::Icona::Critico);
    }
    ricarica();
}

} // namespace tomvera
