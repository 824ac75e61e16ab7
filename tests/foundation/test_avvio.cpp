#include "altroutente.h"
#include "archiviotemporaneo.h"
#include "foundation/archivio.h"
#include "foundation/avvio/avvio.h"
#include "foundation/avvio/avvioselezioneutente.h"
#include "foundation/avvio/controlloora.h"
#include "foundation/configurazione.h"
#include "foundation/gestioneerrori.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/piattaforma.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"
#include "foundation/utenticollegati.h"
#include "solalettura.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <memory>

using namespace tomvera;

namespace {

// A whole run rooted in a temporary TOMVERA_HOME: documents, shared folder, program folder.
struct Ambiente
{
    QTemporaryDir casa;
    test::InterazioneScriptata interazione;
    OrologioFisso orologio { QDateTime(QDate(2026, 11, 16), QTime(10, 0)) };
    GestioneErrori errori { &interazione };
    Sessione sessione { interazione, orologio, errori };
    int collegati = 0;
    AvvioSelezioneUtente avvio { sessione, [this](const QString&) { return collegati; } };

    Ambiente()
    {
        qputenv("TOMVERA_HOME", casa.path().toUtf8());
        errori.setPausa([](double) {});
    }
    ~Ambiente()
    {
        Archivio::chiudiConnessioni(sessione.PercorsoDB);
        qunsetenv("TOMVERA_HOME");
    }
    void creaArchivio(const QString& percorso)
    {
        QDir().mkpath(QFileInfo(percorso).absolutePath());
        CreazioneDB::Percorsi percorsi;
        percorsi.archivio = percorso;
        CreazioneDB(percorsi, errori).CreaDB_Click();
    }
    void scriviPercorso(const QString& riga)
    {
        piattaforma::scriviRiga(piattaforma::percorsoFileLaterale(QStringLiteral("Percorso.txt")), riga);
    }
    bool esegui(const QString& sql, const QVariantList& parametri = {})
    {
        Archivio archivio(sessione.PercorsoDB, errori);
        return archivio.apri() && archivio.comando(sql, parametri);
    }
    // A fresh archive may not have the settings row yet: the settings screen adds it on its first save.
    bool impostaConfigurazione(const QString& campo, const QVariant& valore)
    {
        return esegui(QStringLiteral("INSERT INTO Configurazioni (") + campo
                          + QStringLiteral(") SELECT ? WHERE NOT EXISTS (SELECT 1 FROM Configurazioni)"),
                      { valore })
            && esegui(QStringLiteral("UPDATE Configurazioni SET ") + campo + QStringLiteral(" = ?"), { valore });
    }
    QVariant valore(const QString& sql)
    {
        Archivio archivio(sessione.PercorsoDB, errori);
        return archivio.apri() ? archivio.valore(sql) : QVariant();
    }
    void avvia()
    {
        avvio.Form_Load();
        avvio.Form_Activate();
    }
};

// Answers one daytime request with a fixed line, like a public time host.
class ServerDaytime : public QTcpServer
{
public:
    explicit ServerDaytime(QByteArray risposta)
        : m_risposta(std::move(risposta))
    {
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* presa = nextPendingConnection()) {
                presa->write(m_risposta);
                presa->disconnectFromHost();
                connect(presa, &QTcpSocket::disconnected, presa, &QObject::deleteLater);
            }
        });
        listen(QHostAddress::LocalHost, 0);
    }
    QString indirizzo() const { return QStringLiteral("127.0.0.1:") + QString::number(serverPort()); }

private:
    QByteArray m_risposta;
};

} // namespace

class TestAvvioSelezioneUtente : public QObject
{
    Q_OBJECT
private slots:
    void primoAvvioECreazioneArchivio();
    void percorsoDaFileConDueSpazi();
    void archivioNonCorretto();
    void confrontoVersioni();
    void utentiEAccesso();
    void comandiArchivio();
    void dopoUnCrashSiEntra();
    void archivioOccupatoNonENonCorretto();
    void archivioInSolaLetturaDetto();
};

void TestAvvioSelezioneUtente::primoAvvioECreazioneArchivio()
{
    Ambiente a;
    a.avvia();
    QVERIFY(a.avvio.ErroreAvvioVisibile);
    QCOMPARE(a.avvio.ErroreAvvio,
             QStringLiteral("ATTENZIONE!!!    PROBLEMI DI ACCESSO AI DATI (Controllare il percorso dell'archivio e "
                            "verificare che sia raggiungibile) \n\nERRORE: Archivio non trovato"));
    QVERIFY(!a.avvio.AccediAbilitato);
    QVERIFY(a.avvio.Command5Abilitato);
    QVERIFY(a.avvio.Alto);
    const QString predefinito = QDir(a.casa.path()).filePath(QStringLiteral("Documenti/Archivi Tomvera/Archivio.mdb"));
    QCOMPARE(a.sessione.PercorsoDB, predefinito);
    QCOMPARE(a.avvio.Titolo, QStringLiteral("Tomvera ver. 3.9.4"));
    QVERIFY(a.interazione.testi().isEmpty());

    a.avvio.Command5_Click();
    QVERIFY2(a.interazione.errore().isEmpty(), qPrintable(a.interazione.errore()));
    QVERIFY(QFile::exists(predefinito));
    QVERIFY(!a.avvio.ErroreAvvioVisibile);
    QVERIFY(a.avvio.AccediAbilitato);
    QCOMPARE(a.avvio.Utenti, QStringList { QStringLiteral("Amministratore") });
    QCOMPARE(a.avvio.Utente, QStringLiteral("Amministratore"));
    QVERIFY(!a.avvio.PasswordVisibile);
    // The fresh archive carries the program's version, so the next start finds nothing to upgrade.
    QCOMPARE(a.valore(QStringLiteral("SELECT Versione FROM TabellaVersione")).toString(), QStringLiteral("3.9.4"));
    // No password: the archive commands stay open to the administrator.
    QVERIFY(a.avvio.ImpostazioniAbilitato);

    a.collegati = 2;
    QVERIFY(a.avvio.Accedi_Click());
    QCOMPARE(a.sessione.UtenteCollegato, QStringLiteral("Amministratore"));
    QCOMPARE(a.sessione.UtentiCollegati, 2);
    QVERIFY(a.interazione.testi().isEmpty());
}

void TestAvvioSelezioneUtente::dopoUnCrashSiEntra()
{
    Ambiente a;
    const QString percorso = piattaforma::percorsoArchivioPredefinito();
    a.creaArchivio(percorso);
    a.sessione.PercorsoDB = percorso;
    for (const char* tabella : { "Prenotazioni", "Ospiti" })
        QVERIFY(a.esegui(QStringLiteral("CREATE TABLE ") + QLatin1String(tabella)
                         + QStringLiteral(" (giro INTEGER, riga INTEGER, nota TEXT)")));
    QVERIFY(a.esegui(QStringLiteral("CREATE TABLE Stato (giro INTEGER)")));
    QVERIFY(a.esegui(QStringLiteral("INSERT INTO Stato VALUES (0)")));
    Archivio::chiudiConnessioni(percorso);

    // Another desk dies half-way through a save.
    QProcess scrittore;
    scrittore.start(QStringLiteral(TOMVERA_AIUTANTE), { QStringLiteral("interrompi"), percorso });
    QVERIFY(scrittore.waitForStarted());
    QVERIFY(scrittore.waitForReadyRead(20000));
    scrittore.kill();
    scrittore.waitForFinished();
    QVERIFY(QFile::exists(percorso + QStringLiteral("-journal")));

    a.avvia();
    QVERIFY2(!a.avvio.ErroreAvvioVisibile, qPrintable(a.avvio.ErroreAvvio));
    QVERIFY(a.avvio.AccediAbilitato);
    QVERIFY(a.interazione.testi().isEmpty());
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM Ospiti")).toInt(), 0);
}

void TestAvvioSelezioneUtente::archivioOccupatoNonENonCorretto()
{
    Ambiente a;
    const QString percorso = piattaforma::percorsoArchivioPredefinito();
    a.creaArchivio(percorso);
    Archivio::chiudiConnessioni(percorso);
    {
        test::AltroUtente altro(percorso, true);
        a.avvia();
    }
    QVERIFY(!a.avvio.ErroreAvvioVisibile);
    QVERIFY(!a.avvio.AccediAbilitato);
    QCOMPARE(a.interazione.messaggi(), QStringList { GestioneErrori::testoArchivioOccupato() });
}

void TestAvvioSelezioneUtente::archivioInSolaLetturaDetto()
{
    Ambiente a;
    const QString percorso = piattaforma::percorsoArchivioPredefinito();
    a.creaArchivio(percorso);
    a.sessione.PercorsoDB = percorso;
    QVERIFY(a.esegui(QStringLiteral("INSERT INTO TabellaVersione (Versione) VALUES ('3.9.4')")));
    Archivio::chiudiConnessioni(percorso);
    test::SolaLettura protetto(percorso);
    a.avvia();
    // The user may still look, but knows before the first save that nothing will be kept.
    QVERIFY(a.avvio.AccediAbilitato);
    QCOMPARE(a.interazione.messaggi(),
             QStringList { QStringLiteral("Attenzione! ") + GestioneErrori::testoSolaLettura(percorso) });
}

void TestAvvioSelezioneUtente::percorsoDaFileConDueSpazi()
{
    Ambiente a;
    const QString altrove = QDir(a.casa.path()).filePath(QStringLiteral("rete/Hotel.mdb"));
    a.scriviPercorso(QStringLiteral("  ") + altrove + QStringLiteral("  "));
    a.avvia();
    QCOMPARE(a.sessione.PercorsoDB, altrove);
    // Cut by twelve characters whatever the name: "Hotel.mdb" has nine, so three of the folder go too.
    QCOMPARE(a.sessione.PercorsoArchivioSky, altrove.left(altrove.size() - 12) + QStringLiteral("ArchivioSky.mdb"));
    QVERIFY(a.avvio.ErroreAvvio.startsWith(QStringLiteral("ATTENZIONE!!!  PROBLEMI DI ACCESSO AI DATI")));
    QCOMPARE(a.avvio.PercorsoDataBase, QDir::toNativeSeparators(altrove));

    // An empty line keeps the default path and its four blanks.
    Ambiente b;
    b.scriviPercorso(QString());
    b.avvia();
    QVERIFY(b.avvio.ErroreAvvio.startsWith(QStringLiteral("ATTENZIONE!!!    PROBLEMI")));
}

void TestAvvioSelezioneUtente::archivioNonCorretto()
{
    Ambiente a;
    const QString estraneo = QDir(a.casa.path()).filePath(QStringLiteral("estraneo.mdb"));
    {
        Archivio archivio(estraneo, a.errori);
        QVERIFY(archivio.apri(Archivio::Apertura::Crea));
        QVERIFY(archivio.comando(QStringLiteral("CREATE TABLE Altro (x INTEGER)")));
    }
    Archivio::chiudiConnessioni(estraneo);
    a.scriviPercorso(estraneo);
    a.avvia();
    QVERIFY(!a.avvio.ErroreAvvioVisibile);
    QVERIFY(!a.avvio.AccediAbilitato);
    QCOMPARE(a.interazione.messaggi(),
             QStringList { QStringLiteral("Attenzione l'archivio selezionato non è corretto!") });
    QVERIFY(a.avvio.Utenti.isEmpty());
}

void TestAvvioSelezioneUtente::confrontoVersioni()
{
    Ambiente a;
    a.creaArchivio(piattaforma::percorsoArchivioPredefinito());
    a.avvia();
    QVERIFY(!a.avvio.VerAggiornato);

    // Older archive, and an upgrade that does not go through: the old number stays, so the next start tries
    // again; no "upgraded" label, no login on a half-upgraded archive.
    QVERIFY(a.esegui(QStringLiteral("UPDATE TabellaVersione SET Versione = '3.9.3'")));
    a.avvio.eseguiAggiornamento = [](const std::function<void(const QString&)>& registro) {
        registro(QStringLiteral("Controllo Tabella TabellaUtenti Effettuato"));
        return false;
    };
    a.avvia();
    QVERIFY(!a.avvio.VerAggiornato);
    QVERIFY(!a.avvio.Ver.startsWith(QStringLiteral("Aggiornamento eseguito")));
    QVERIFY(!a.avvio.AccediAbilitato);
    QCOMPARE(a.interazione.ultimoTesto(), AvvioSelezioneUtente::testoAggiornamentoNonRiuscito());
    QCOMPARE(a.valore(QStringLiteral("SELECT Versione FROM TabellaVersione")).toString(), QStringLiteral("3.9.3"));
    QVERIFY(a.esegui(QStringLiteral("DELETE FROM TabellaVersione")));
    a.avvia();
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaVersione")).toInt(), 0);
    QVERIFY(a.esegui(QStringLiteral("INSERT INTO TabellaVersione (Versione) VALUES ('3.9.3')")));
    a.avvio.eseguiAggiornamento = nullptr;

    // The real upgrade: version stored, the label says so, every step reported on the way.
    QList<int> passi;
    int totale = 0;
    a.avvio.avanzamentoAggiornamento = [&](const QString&, int fatti, int di) {
        passi << fatti;
        totale = di;
    };
    a.avvia();
    QVERIFY(a.avvio.VerAggiornato);
    QVERIFY(a.avvio.AccediAbilitato);
    QVERIFY(passi.size() > 20);
    QVERIFY(std::is_sorted(passi.begin(), passi.end()));
    QCOMPARE(passi.last(), totale);
    a.avvio.avanzamentoAggiornamento = nullptr;
    QCOMPARE(a.avvio.Ver, QStringLiteral("Aggiornamento eseguito alla versione: 3.9.4"));
    QCOMPARE(a.valore(QStringLiteral("SELECT Versione FROM TabellaVersione")).toString(), QStringLiteral("3.9.4"));
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaVersione")).toInt(), 1);

    // "3.10" is 310, below 394: the numbers compare, not the texts.
    QVERIFY(a.esegui(QStringLiteral("UPDATE TabellaVersione SET Versione = '3.10'")));
    a.avvia();
    QVERIFY(a.avvio.VerAggiornato);

    // An empty table is upgraded and gets its row, without the "upgraded" label.
    QVERIFY(a.esegui(QStringLiteral("DELETE FROM TabellaVersione")));
    a.avvia();
    QVERIFY(!a.avvio.VerAggiornato);
    QCOMPARE(a.valore(QStringLiteral("SELECT Versione FROM TabellaVersione")).toString(), QStringLiteral("3.9.4"));

    // Newer archive: no login.
    QVERIFY(a.esegui(QStringLiteral("UPDATE TabellaVersione SET Versione = '4.0.0'")));
    a.avvia();
    QVERIFY(!a.avvio.AccediAbilitato);
    QCOMPARE(a.interazione.ultimoTesto(),
             QStringLiteral("Attenzione, la versione del database è più aggiornata rispetto a quella del programma!\n"
                            "Eseguire l'aggiornamento del programma"));
    QVERIFY(!a.avvio.Accedi_Click());
}

void TestAvvioSelezioneUtente::utentiEAccesso()
{
    Ambiente a;
    a.creaArchivio(piattaforma::percorsoArchivioPredefinito());
    a.sessione.PercorsoDB = piattaforma::percorsoArchivioPredefinito();
    {
        Archivio archivio(a.sessione.PercorsoDB, a.errori);
        QVERIFY(archivio.apri());
        utenti::Utente mario;
        mario.nome = QStringLiteral("Mario");
        mario.password = utenti::CifraPassword(QStringLiteral("segreta"));
        mario.diritti.Anagrafiche = true;
        QVERIFY(utenti::salvaUtente(archivio, mario) > 0);
        utenti::Utente bruno;
        bruno.nome = QStringLiteral("Bruno");
        bruno.NonAttivo = true;
        QVERIFY(utenti::salvaUtente(archivio, bruno) > 0);
        QVERIFY(archivio.comando(QStringLiteral("INSERT INTO TabellaUtenti (Utente) VALUES ('')")));
    }
    // The last user comes back from Utente.txt.
    piattaforma::scriviRiga(piattaforma::percorsoFileLaterale(QStringLiteral("Utente.txt")), QStringLiteral("Mario"));
    a.avvia();
    QCOMPARE(a.avvio.Utenti,
             (QStringList { QStringLiteral("Bruno"), QStringLiteral("Mario"), QStringLiteral("Amministratore") }));
    QCOMPARE(a.avvio.Utente, QStringLiteral("Mario"));
    QVERIFY(a.avvio.PasswordVisibile);
    QVERIFY(!a.avvio.ImpostazioniAbilitato);

    a.avvio.Password_Change(QStringLiteral("sbagliata"));
    QVERIFY(!a.avvio.Accedi_Click());
    QCOMPARE(a.interazione.ultimoTesto(), QStringLiteral("Password errata!"));
    QVERIFY(a.avvio.SelezionaPassword);
    a.avvio.Password_Change(QStringLiteral("segreta"));
    QVERIFY(a.avvio.Accedi_Click());
    QVERIFY(a.sessione.permessi->Anagrafiche);
    QVERIFY(!a.sessione.permessi->Listini);

    // Selecting a user rewrites Utente.txt; an inactive one can't log in.
    a.avvio.Utente_Click(QStringLiteral("Bruno"));
    QCOMPARE(piattaforma::leggiPrimaRiga(piattaforma::percorsoFileLaterale(QStringLiteral("Utente.txt"))),
             QStringLiteral("Bruno"));
    QVERIFY(!a.avvio.PasswordVisibile);
    QVERIFY(!a.avvio.Accedi_Click());
    QCOMPARE(a.interazione.ultimoTesto(), QStringLiteral("Attenzione, Utente non attivo"));

    // A remembered user who no longer exists falls back to the administrator.
    piattaforma::scriviRiga(piattaforma::percorsoFileLaterale(QStringLiteral("Utente.txt")), QStringLiteral("Gino"));
    a.avvia();
    QCOMPARE(a.avvio.Utente, QStringLiteral("Amministratore"));

    // The administrator's password opens the archive commands only while it is typed right.
    {
        Archivio archivio(a.sessione.PercorsoDB, a.errori);
        QVERIFY(archivio.apri());
        QVERIFY(utenti::salvaPasswordAmministratore(archivio, utenti::CifraPassword(QStringLiteral("capo"))));
    }
    a.avvia();
    QVERIFY(a.avvio.PasswordVisibile);
    QVERIFY(!a.avvio.ImpostazioniAbilitato);
    a.avvio.Password_Change(QStringLiteral("capo"));
    QVERIFY(a.avvio.ImpostazioniAbilitato);
    a.avvio.Impostazioni_Click();
    QVERIFY(a.avvio.Alto);
    a.avvio.Password_Change(QStringLiteral("cap"));
    QVERIFY(!a.avvio.ImpostazioniAbilitato);
    QVERIFY(!a.avvio.Alto);
}

void TestAvvioSelezioneUtente::comandiArchivio()
{
    Ambiente a;
    const QString altro = QDir(a.casa.path()).filePath(QStringLiteral("altro/Archivio.mdb"));
    a.creaArchivio(altro);
    a.avvia();
    QVERIFY(a.avvio.ErroreAvvioVisibile);

    a.interazione.rispondiFile(altro);
    a.avvio.Command2_Click();
    QVERIFY(!a.avvio.ErroreAvvioVisibile);
    QCOMPARE(a.sessione.PercorsoDB, altro);
    const QString percorsoTxt = piattaforma::percorsoFileLaterale(QStringLiteral("Percorso.txt"));
    QCOMPARE(piattaforma::leggiPrimaRiga(percorsoTxt), QDir::toNativeSeparators(altro));

    // Cancelling the dialog changes nothing.
    a.interazione.rispondiFile(QString());
    a.avvio.Command2_Click();
    QCOMPARE(piattaforma::leggiPrimaRiga(percorsoTxt), QDir::toNativeSeparators(altro));

    a.avvio.Command3_Click();
    QCOMPARE(a.sessione.PercorsoDB, piattaforma::percorsoArchivioPredefinito());
    QCOMPARE(piattaforma::leggiPrimaRiga(percorsoTxt),
             QDir::toNativeSeparators(piattaforma::percorsoArchivioPredefinito()));
    QVERIFY(a.avvio.ErroreAvvioVisibile);

    a.avvio.Command1_Click();
    QVERIFY(a.avvio.Terminato);
}

TOMVERA_TEST(TestAvvioSelezioneUtente)

class TestAvvio : public QObject
{
    Q_OBJECT
private slots:
    void titoloEFileLaterali();
    void troppiUtenti();
    void permessiDeiComandi();
    void comandiControllatiDallaLogica();
    void fine();
};

namespace {

struct AmbienteAvvio : Ambiente
{
    AmbienteAvvio()
    {
        creaArchivio(piattaforma::percorsoArchivioPredefinito());
        avvia();
        sessione.PercorsoProgramma = QDir(casa.path()).filePath(QStringLiteral("Programma"));
    }
};

} // namespace

void TestAvvio::titoloEFileLaterali()
{
    AmbienteAvvio a;
    QVERIFY(a.impostaConfigurazione(QStringLiteral("RagSociale"), QStringLiteral("Hotel Miramare")));
    QVERIFY(a.avvio.Accedi_Click());
    Avvio avvio(a.sessione);
    QVERIFY(avvio.Form_Load());
    QCOMPARE(avvio.Titolo, QStringLiteral("Tomvera Ver.3.9.4 - (Utente: Amministratore)"));
    QCOMPARE(a.sessione.configurazione->RagSociale, QStringLiteral("Hotel Miramare"));

    const QString condivisa = QDir(a.casa.path()).filePath(QStringLiteral("ZRShared"));
    QCOMPARE(a.sessione.PercorsoCondiviso, condivisa);
    QSettings inf(QDir(condivisa).filePath(QStringLiteral("Programma.inf")), QSettings::IniFormat);
    QCOMPARE(inf.value(QStringLiteral("Programma/Versione")).toString(), QStringLiteral("3.9.4"));
    QCOMPARE(inf.value(QStringLiteral("Programma/RagioneSociale")).toString(), QStringLiteral("Hotel Miramare"));
    QSettings tipora(QDir(condivisa).filePath(QStringLiteral("Tipora.ini")), QSettings::IniFormat);
    QCOMPARE(tipora.value(QStringLiteral("Config/NomeDB")).toString(), QStringLiteral("Stampe.mdb"));
    QVERIFY(tipora.value(QStringLiteral("Config/PercorsoDB")).toString().endsWith(QStringLiteral("Archivi Tomvera/")));

    // A path on another machine says so in the title.
    a.sessione.PercorsoDB = QStringLiteral("\\\\server\\dati\\Archivio.mdb");
    Avvio inRete(a.sessione);
    inRete.Form_Load();
    QCOMPARE(inRete.Titolo, QStringLiteral("Tomvera Ver.3.9.4 (Archivio in rete) - (Utente: Amministratore)"));
}

void TestAvvio::troppiUtenti()
{
    AmbienteAvvio a;
    {
        // Two programs on one archive: each counts the other.
        UtentiCollegati primo, secondo;
        QVERIFY(primo.registra(a.sessione.PercorsoDB, QStringLiteral("RECEPTION"), QStringLiteral("Amministratore")));
        QVERIFY(secondo.registra(a.sessione.PercorsoDB, QStringLiteral("BAR"), QStringLiteral("Lucia")));
        QVERIFY(a.avvio.Accedi_Click());
        Avvio avvio(a.sessione);
        avvio.contaUtenti = &UtentiCollegatiDB;
        QVERIFY(avvio.Form_Load());
        QCOMPARE(avvio.UtentiCollegatiOra, QStringLiteral("Utenti collegati: 2"));
    }
    a.collegati = 4;
    QVERIFY(a.avvio.Accedi_Click());
    QVERIFY(Avvio(a.sessione).Form_Load());
    QVERIFY(a.interazione.testi().isEmpty());

    a.collegati = 5;
    QVERIFY(a.avvio.Accedi_Click());
    Avvio avvio(a.sessione);
    QVERIFY(!avvio.Form_Load());
    QVERIFY(avvio.Terminato);
    QCOMPARE(a.interazione.ultimoTesto(),
             QStringLiteral("Attenzione, database occupato da altri utenti, impossibile accedere!"));
}

void TestAvvio::permessiDeiComandi()
{
    AmbienteAvvio a;
    {
        Archivio archivio(a.sessione.PercorsoDB, a.errori);
        QVERIFY(archivio.apri());
        utenti::Utente lucia;
        lucia.nome = QStringLiteral("Lucia");
        lucia.diritti.Anagrafiche = true;
        lucia.diritti.StampaIstat = true;
        QVERIFY(utenti::salvaUtente(archivio, lucia) > 0);
    }
    a.avvia();
    a.avvio.Utente_Click(QStringLiteral("Lucia"));
    QVERIFY(a.avvio.Accedi_Click());
    const QStringList lucia = Avvio(a.sessione).SettaPermessiUtente();
    for (const char* visto : { "Anagrafiche", "mStampaIstat", "mStampe", "mFile", "mCambiaUtente", "Fine", "mInfo" })
        QVERIFY2(lucia.contains(QLatin1String(visto)), visto);
    for (const char* nascosto : { "mListini", "mCreditiDebiti", "Command2", "mStampaSituazione", "mConfigurazioni",
                                  "mBackup", "mOttimizzazioneArchivio", "Command8", "Command14", "Command15" })
        QVERIFY2(!lucia.contains(QLatin1String(nascosto)), nascosto);

    // Changing user applies the new rights: the administrator sees everything.
    a.avvia();
    a.avvio.Utente_Click(QStringLiteral("AMMINISTRATORE"));
    QVERIFY(a.avvio.Accedi_Click());
    const QStringList amministratore = Avvio(a.sessione).SettaPermessiUtente();
    QCOMPARE(amministratore.size(), int(Avvio::menu().size() + Avvio::comandi().size()));
}

// A limited user who reaches a command by another path than its button (a shortcut, a stale menu, a script) is
// refused by the logic itself: by the command's own right and by the menu it sits in.
void TestAvvio::comandiControllatiDallaLogica()
{
    AmbienteAvvio a;
    {
        Archivio archivio(a.sessione.PercorsoDB, a.errori);
        QVERIFY(archivio.apri());
        utenti::Utente marco;
        marco.nome = QStringLiteral("Marco");
        marco.diritti.Anagrafiche = true;
        QVERIFY(utenti::salvaUtente(archivio, marco) > 0);
    }
    a.avvia();
    a.avvio.Utente_Click(QStringLiteral("Marco"));
    QVERIFY(a.avvio.Accedi_Click());
    Avvio avvio(a.sessione);
    QStringList eseguiti;
    for (const Avvio::Comando& c : Avvio::comandi())
        avvio.registraComando(c.nome, [&eseguiti, nome = c.nome] { eseguiti << nome; });
    a.interazione.pulisci();
    // Its own right, a right of its menu, administrator only, administrator-only menu with a free item.
    for (const char* rifiutato :
         { "Command2", "mListinoCamere", "mPagamenti", "Command8", "mBackup", "mConfigurazioniGenerali",
           "mConfigurazioniCamere", "mConfigurazioneTabelle", "mStampaSituazione", "m_CreditiPerCliente" }) {
        QVERIFY2(!avvio.esegui(QLatin1String(rifiutato)), rifiutato);
        QCOMPARE(a.interazione.ultimoTesto(), Avvio::testoNonAbilitato());
    }
    QVERIFY(eseguiti.isEmpty());
    for (const char* aperto : { "Anagrafiche", "mInfo", "mStampaPianoCamere", "M_Classico", "Fine" })
        QVERIFY2(avvio.esegui(QLatin1String(aperto)), aperto);
    QCOMPARE(eseguiti.size(), 5);
    // Whatever SettaPermessiUtente shows is what esegui lets through.
    const QStringList visibili = avvio.SettaPermessiUtente();
    for (const Avvio::Comando& c : Avvio::comandi())
        QCOMPARE(avvio.consentito(c.nome),
                 visibili.contains(c.nome) && (c.menu.isEmpty() || visibili.contains(c.menu)));
    // An unregistered command does nothing and says nothing.
    Avvio vuoto(a.sessione);
    a.interazione.pulisci();
    QVERIFY(!vuoto.esegui(QStringLiteral("Anagrafiche")));
    QVERIFY(a.interazione.testi().isEmpty());
}

void TestAvvio::fine()
{
    AmbienteAvvio a;
    QVERIFY(a.avvio.Accedi_Click());
    Avvio avvio(a.sessione);
    QVERIFY(avvio.Form_Load());
    a.interazione.rispondiNo(QStringLiteral("Terminare la sesione di lavoro?"));
    QVERIFY(!avvio.mFine_Click());
    QVERIFY(!avvio.Terminato);
    a.interazione.rispondiSi(QStringLiteral("Terminare la sesione di lavoro?"));
    QVERIFY(avvio.mFine_Click());
    QVERIFY(avvio.Terminato);
    QVERIFY(a.interazione.errore().isEmpty());

    Avvio cambio(a.sessione);
    cambio.mCambiaUtente_Click();
    QVERIFY(cambio.CambiaUtente);
    QVERIFY(!cambio.Terminato);
}

TOMVERA_TEST(TestAvvio)

class TestControlloOra : public QObject
{
    Q_OBJECT
private slots:
    void rispostaEConfronto();
    void domandeDiReimpostazione();
    void serverDaytimeLocale();
    void controlloAllaPartenza();
};

void TestControlloOra::rispostaEConfronto()
{
    using namespace controlloora;
    QCOMPARE(leggiRisposta(QStringLiteral("Tue Mar 16 12:34:56 2004\r\n")),
             std::optional<QDateTime>(QDateTime(QDate(2004, 3, 16), QTime(12, 34))));
    QCOMPARE(leggiRisposta(QStringLiteral("Sun Nov  1 08:05:00 2026\n"))->date(), QDate(2026, 11, 1));
    QVERIFY(!leggiRisposta(QStringLiteral("60000 23-02-25 10:00:00 00 0 0")).has_value());
    QVERIFY(!leggiRisposta(QStringLiteral("Tue Xyz 16 12:34:56 2004")).has_value());
    QVERIFY(!leggiRisposta(QString()).has_value());

    const QDateTime sistema(QDate(2026, 11, 16), QTime(10, 0));
    QVERIFY(!ConfrontaDataEOra(QDateTime(sistema.date(), QTime(10, 10)), sistema).oraErrata);
    QVERIFY(ConfrontaDataEOra(QDateTime(sistema.date(), QTime(10, 11)), sistema).oraErrata);
    QVERIFY(ConfrontaDataEOra(QDateTime(sistema.date(), QTime(9, 49)), sistema).oraErrata);
    // Across midnight the minutes still count as minutes apart; the date is the other question.
    const auto notte
        = ConfrontaDataEOra(QDateTime(QDate(2026, 11, 17), QTime(0, 3)), QDateTime(QDate(2026, 11, 16), QTime(23, 58)));
    QVERIFY(!notte.oraErrata);
    QVERIFY(notte.dataErrata);

    QCOMPARE(leggiServer(QStringLiteral(" time.example.org ")).value().porta, quint16(13));
    QCOMPARE(leggiServer(QStringLiteral("127.0.0.1:1313")).value().porta, quint16(1313));
    QCOMPARE(leggiServer(QStringLiteral("127.0.0.1:1313")).value().host, QStringLiteral("127.0.0.1"));
    QVERIFY(!leggiServer(QString()).has_value());
    QVERIFY(!leggiServer(QStringLiteral("host:porta")).has_value());
}

void TestControlloOra::domandeDiReimpostazione()
{
    using namespace controlloora;
    const QDateTime sistema(QDate(2026, 11, 16), QTime(10, 0));
    const QString domandaOra = QStringLiteral("Attenzione l'ora di sistema non è corretta e questo potrebbe \n"
                                              " causare dei malfunzionamenti al programma, Reimpostarla?");
    const QString domandaData = QStringLiteral("Attenzione la data di sistema non è corretta e questo potrebbe\n"
                                               " causare dei malfunzionamenti al programma, Reimpostarla?");
    {
        // Both wrong, the user agrees, the system refuses.
        test::InterazioneScriptata i;
        i.rispondiSi(QStringLiteral("ora di sistema"));
        i.rispondiSi(QStringLiteral("data di sistema"));
        QVERIFY(!verificaOrologio(i, QDateTime(QDate(2026, 11, 17), QTime(12, 0)), sistema,
                                  [](const QDateTime&) { return false; }));
        QCOMPARE(i.testi(),
                 (QStringList { domandaOra, domandaData,
                                QStringLiteral("Attenzione impossibile modificare data e ora: Accesso "
                                               "Negato,\n modificarle manualmente") }));
    }
    {
        // The clock is set: the program must restart.
        test::InterazioneScriptata i;
        i.rispondiSi(QStringLiteral("ora di sistema"));
        QVERIFY(verificaOrologio(i, QDateTime(sistema.date(), QTime(11, 0)), sistema,
                                 [](const QDateTime&) { return true; }));
        QCOMPARE(i.ultimoTesto(), QStringLiteral("Riavviare il programma!"));
    }
    {
        // Declined, or right to within ten minutes: nothing more.
        test::InterazioneScriptata i;
        i.rispondiNo(QStringLiteral("ora di sistema"));
        QVERIFY(!verificaOrologio(i, QDateTime(sistema.date(), QTime(11, 0)), sistema, nullptr));
        QVERIFY(!verificaOrologio(i, QDateTime(sistema.date(), QTime(10, 9)), sistema, nullptr));
        QCOMPARE(i.testi().size(), 1);
        QVERIFY(i.errore().isEmpty());
    }
}

void TestControlloOra::serverDaytimeLocale()
{
    ServerDaytime server("Tue Mar 16 12:34:56 2004\r\n");
    QVERIFY(server.isListening());
    const auto risposta = controlloora::DataEOraAttuali(*controlloora::leggiServer(server.indirizzo()));
    QCOMPARE(risposta, std::optional<QString>(QStringLiteral("Tue Mar 16 12:34:56 2004\r\n")));

    // Nobody listening: no answer, no message.
    const quint16 porta = server.serverPort();
    server.close();
    QVERIFY(!controlloora::DataEOraAttuali({ QStringLiteral("127.0.0.1"), porta }, 1000).has_value());
}

void TestControlloOra::controlloAllaPartenza()
{
    AmbienteAvvio a;
    ServerDaytime server("Mon Nov 16 11:30:00 2026\r\n");
    QVERIFY(a.impostaConfigurazione(QStringLiteral("NomeServer"), server.indirizzo()));
    QVERIFY(a.avvio.Accedi_Click());
    a.interazione.rispondiNo(QStringLiteral("ora di sistema"));
    Avvio avvio(a.sessione);
    QVERIFY(avvio.Form_Load());
    QVERIFY2(a.interazione.errore().isEmpty(), qPrintable(a.interazione.errore()));
    QVERIFY(a.interazione.risposteFinite());

    // Agreeing when the clock can be set ends the run.
    a.interazione.rispondiSi(QStringLiteral("ora di sistema"));
    Avvio reimposta(a.sessione);
    reimposta.impostaOrologio = [](const QDateTime&) { return true; };
    QVERIFY(!reimposta.Form_Load());
    QVERIFY(reimposta.Terminato);
    QCOMPARE(a.interazione.ultimoTesto(), QStringLiteral("Riavviare il programma!"));
}

TOMVERA_TEST(TestControlloOra)

class TestPiattaforma : public QObject
{
    Q_OBJECT
private slots:
    void cartelle();
};

void TestPiattaforma::cartelle()
{
    QTemporaryDir casa;
    qputenv("TOMVERA_HOME", casa.path().toUtf8());
    QCOMPARE(piattaforma::cartellaArchiviPredefinita(),
             QDir(casa.path()).filePath(QStringLiteral("Documenti/Archivi Tomvera")));
    const QString backup = piattaforma::cartellaBackupPredefinita();
    QVERIFY(backup.endsWith(QLatin1Char('/')));
    // A folder saved by a Windows install still means the backup folder here.
    QCOMPARE(piattaforma::percorsoLocale(QStringLiteral("c:\\BackupTomvera\\")), backup);
    QCOMPARE(piattaforma::percorsoLocale(QStringLiteral("C:\\BACKUPTOMVERA\\Automatici")),
             backup + QStringLiteral("Automatici"));
    QCOMPARE(piattaforma::percorsoLocale(QStringLiteral("/srv/backup")), QStringLiteral("/srv/backup"));
    QVERIFY(piattaforma::percorsoFileLaterale(QStringLiteral("Utente.txt")).startsWith(casa.path()));
    QVERIFY(piattaforma::leggiPrimaRiga(QDir(casa.path()).filePath(QStringLiteral("manca.txt"))).isEmpty());
    qunsetenv("TOMVERA_HOME");
}

TOMVERA_TEST(TestPiattaforma)

#include "test_avvio.moc"
