#include "archiviotemporaneo.h"
#include "foundation/fpass.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 6, 15), QTime(10, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };

    Banco()
    {
        sessione.PercorsoDB = t.percorso();
        t.archivio().comando(QStringLiteral("INSERT INTO Configurazioni (RagSociale) VALUES ('Hotel')"));
    }
    Archivio& archivio() { return t.archivio(); }
    QString passwordDi(const QString& utente) { return utenti::LeggiPasswordUtente(archivio(), utente); }
    void aggiungi(const QString& nome, const QString& password, const QString& altriCampi = {},
                  const QString& altriValori = {})
    {
        QVERIFY(archivio().comando(QStringLiteral("INSERT INTO TabellaUtenti (Utente, Password") + altriCampi
                                       + QStringLiteral(") VALUES (?, ?") + altriValori + QStringLiteral(")"),
                                   { nome, password }));
    }
};

} // namespace

class TestPassword : public QObject
{
    Q_OBJECT
private slots:
    void cifraturaConSale();
    void limitiELaConferma();
};

void TestPassword::cifraturaConSale()
{
    const QString a = utenti::CifraPassword(QStringLiteral("Segreta1"));
    const QString b = utenti::CifraPassword(QStringLiteral("Segreta1"));
    QVERIFY(a.startsWith(QLatin1String("pbkdf2$")));
    QCOMPARE(a.split(QLatin1Char('$')).size(), 4);
    QVERIFY(a != b); // a fresh salt each time
    QVERIFY(a.size() <= 200); // fits Password of Configurazioni, the narrower field
    QVERIFY(utenti::passwordCifrata(a));
    QVERIFY(utenti::VerificaPassword(QStringLiteral("Segreta1"), a));
    QVERIFY(utenti::VerificaPassword(QStringLiteral("Segreta1"), b));
    QVERIFY(!utenti::VerificaPassword(QStringLiteral("segreta1"), a));
    QVERIFY(!utenti::VerificaPassword(QString(), a));
    // No password stays no password.
    QCOMPARE(utenti::CifraPassword(QString()), QString());
    QVERIFY(utenti::VerificaPassword(QString(), QString()));
    QVERIFY(!utenti::VerificaPassword(QStringLiteral("x"), QString()));
    // Clear text of an old archive: exact comparison, and it isn't mistaken for a hash.
    QVERIFY(!utenti::passwordCifrata(QStringLiteral("pbkdf2$rotta")));
    QVERIFY(utenti::VerificaPassword(QStringLiteral("pbkdf2$rotta"), QStringLiteral("pbkdf2$rotta")));
    QVERIFY(!utenti::VerificaPassword(QStringLiteral("ROSSI"), QStringLiteral("rossi")));
}

void TestPassword::limitiELaConferma()
{
    test::InterazioneScriptata ui;
    auto prova = [&](const char* p, const char* c) {
        ui.pulisci();
        const bool ok = utenti::CorrettezzaPassword(ui, QString::fromUtf8(p), QString::fromUtf8(c));
        return std::make_pair(ok, ui.ultimoTesto());
    };
    QCOMPARE(prova("", ""), std::make_pair(true, QString()));
    QCOMPARE(prova("", "abcd"), std::make_pair(false, QStringLiteral("Attenzione, valorizzare il campo: PASSWORD")));
    QCOMPARE(prova("abcd", ""),
             std::make_pair(false, QStringLiteral("Attenzione, valorizzare il campo: CONFERMA PASSWORD")));
    QCOMPARE(prova("abcd", "abce"),
             std::make_pair(false, QStringLiteral("Attenzione, campo: PASSWORD diverso da: CONFERMA PASSWORD")));
    const QString lunghezza
        = QStringLiteral("Attenzione, la PASSWORD deve avere un numero di caratteri compreso tra 4 e 12");
    QCOMPARE(prova("abc", "abc"), std::make_pair(false, lunghezza));
    QCOMPARE(prova("abcdefghijklm", "abcdefghijklm"), std::make_pair(false, lunghezza));
    QCOMPARE(prova("abcd", "abcd"), std::make_pair(true, QString()));
    QCOMPARE(prova("abcdefghijkl", "abcdefghijkl"), std::make_pair(true, QString()));
    // Characters, not bytes.
    QCOMPARE(prova("àèìòù", "àèìòù"), std::make_pair(true, QString()));
}

class TestAccesso : public QObject
{
    Q_OBJECT
private slots:
    void controlliInOrdine();
    void amministratoreSenzaPassword();
    void passwordInChiaroConvertita();
    void permessiDellUtente();
};

void TestAccesso::controlliInOrdine()
{
    Banco b;
    b.aggiungi(QStringLiteral("Mario"), utenti::CifraPassword(QStringLiteral("mario1")));
    b.aggiungi(QStringLiteral("Luisa"), utenti::CifraPassword(QStringLiteral("luisa1")), QStringLiteral(", NonAttivo"),
               QStringLiteral(", 1"));
    auto& ui = b.t.interazione();
    using E = utenti::EsitoAccesso;

    QCOMPARE(utenti::Accedi(b.sessione, QString(), QString(), QString()), E::UtenteNonSelezionato);
    QCOMPARE(ui.ultimoTesto(), QStringLiteral("Selezionare un utente!"));

    // Not active comes before the password: even the right one doesn't open.
    const QString luisa = b.passwordDi(QStringLiteral("Luisa"));
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Luisa"), QStringLiteral("luisa1"), luisa), E::UtenteNonAttivo);
    QCOMPARE(ui.ultimoTesto(), QStringLiteral("Attenzione, Utente non attivo"));
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Luisa"), QStringLiteral("sbagliata"), luisa),
             E::UtenteNonAttivo);
    QCOMPARE(ui.ultimoTesto(), QStringLiteral("Attenzione, Utente non attivo"));

    const QString mario = b.passwordDi(QStringLiteral("mario")); // names compare without case
    QVERIFY(!mario.isEmpty());
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Mario"), QStringLiteral("MARIO1"), mario), E::PasswordErrata);
    QCOMPARE(ui.ultimoTesto(), QStringLiteral("Password errata!"));
    QVERIFY(b.sessione.UtenteCollegato.isEmpty());

    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Mario"), QStringLiteral("mario1"), mario), E::Riuscito);
    QCOMPARE(b.sessione.UtenteCollegato, QStringLiteral("Mario"));
    QVERIFY(!b.sessione.permessi->amministratore);
    QCOMPARE(ui.messaggi().size(), 4);
}

void TestAccesso::amministratoreSenzaPassword()
{
    Banco b;
    const QString tmp = b.passwordDi(QStringLiteral("AMMINISTRATORE"));
    QVERIFY(!utenti::richiedePassword(tmp));
    QVERIFY(utenti::UtenteAttivo(b.archivio(), QStringLiteral("amministratore")));
    // The archive commands stay enabled with the box empty; a typed text disables them.
    QVERIFY(utenti::ControllaSeAmministratore(QStringLiteral("Amministratore"), QString(), tmp));
    QVERIFY(!utenti::ControllaSeAmministratore(QStringLiteral("Amministratore"), QStringLiteral("x"), tmp));
    QVERIFY(!utenti::ControllaSeAmministratore(QStringLiteral("Mario"), QString(), QString()));
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("AMMINISTRATORE"), QString(), tmp),
             utenti::EsitoAccesso::Riuscito);
    QVERIFY(b.sessione.permessi->amministratore);
    QVERIFY(b.sessione.permessi->puo(&PermessiUtente::Listini));
    QVERIFY(!b.sessione.permessi->soloLettura(&PermessiUtente::ListiniSoloLettura));
    // An archive with no user rows offers the administrator only (added by the login screen).
    QVERIFY(utenti::elencoUtenti(b.archivio()).isEmpty());
}

void TestAccesso::passwordInChiaroConvertita()
{
    Banco b;
    b.aggiungi(QStringLiteral("Anna"), QStringLiteral("anna99"));
    QVERIFY(b.archivio().comando(QStringLiteral("UPDATE Configurazioni SET Password = 'capo'")));
    auto& ui = b.t.interazione();

    // A wrong try converts nothing.
    QString tmp = b.passwordDi(QStringLiteral("Anna"));
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Anna"), QStringLiteral("anna"), tmp),
             utenti::EsitoAccesso::PasswordErrata);
    QCOMPARE(b.passwordDi(QStringLiteral("Anna")), QStringLiteral("anna99"));

    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Anna"), QStringLiteral("anna99"), tmp),
             utenti::EsitoAccesso::Riuscito);
    const QString cifrata = b.passwordDi(QStringLiteral("Anna"));
    QVERIFY(utenti::passwordCifrata(cifrata));
    QVERIFY(utenti::VerificaPassword(QStringLiteral("anna99"), cifrata));

    tmp = b.passwordDi(QStringLiteral("Amministratore"));
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Amministratore"), QStringLiteral("capo"), tmp),
             utenti::EsitoAccesso::Riuscito);
    QVERIFY(utenti::passwordCifrata(b.passwordDi(QStringLiteral("Amministratore"))));
    // The converted password still opens, and only the right one.
    tmp = b.passwordDi(QStringLiteral("Anna"));
    QCOMPARE(utenti::Accedi(b.sessione, QStringLiteral("Anna"), QStringLiteral("anna99"), tmp),
             utenti::EsitoAccesso::Riuscito);
    QCOMPARE(ui.messaggi(), QStringList { QStringLiteral("Password errata!") });
}

void TestAccesso::permessiDellUtente()
{
    Banco b;
    // Sveglie null counts as not granted; Centralino 1 granted; Listini 0.
    b.aggiungi(QStringLiteral("Piero"), QString(),
               QStringLiteral(", Listini, Prenotazioni, PrenotazioniSoloLettura, Centralino, Sveglie"),
               QStringLiteral(", 0, 1, 1, 1, NULL"));
    PermessiUtente p;
    p.Sveglie = true; // left over by the previous user
    p.Listini = true;
    utenti::PermessiUtente(b.archivio(), QStringLiteral("Piero"), p);
    QVERIFY(!p.puo(&PermessiUtente::Listini));
    QVERIFY(p.puo(&PermessiUtente::Prenotazioni));
    QVERIFY(p.soloLettura(&PermessiUtente::PrenotazioniSoloLettura));
    QVERIFY(p.Centralino);
    QVERIFY(!p.Sveglie);
    QVERIFY(!p.Anagrafiche); // a null of the first rights reads as not granted too
}

class TestFPass : public QObject
{
    Q_OBJECT
private slots:
    void passwordGiustaApre();
    void passwordErrataTermina();
};

void TestFPass::passwordGiustaApre()
{
    Banco b;
    QVERIFY(!FPass(b.t.interazione(), FPass::leggiPassword(b.archivio()), {}).richiesta());
    QVERIFY(utenti::salvaPasswordAmministratore(b.archivio(), utenti::CifraPassword(QStringLiteral("chiave"))));
    bool terminato = false;
    FPass f(b.t.interazione(), FPass::leggiPassword(b.archivio()), [&] { terminato = true; });
    QVERIFY(f.richiesta());
    f.Password = QStringLiteral("chiave");
    QVERIFY(f.Ok_Click());
    QVERIFY(!terminato);
    QVERIFY(b.t.interazione().testi().isEmpty());
}

void TestFPass::passwordErrataTermina()
{
    test::InterazioneScriptata ui;
    int terminato = 0;
    FPass f(ui, utenti::CifraPassword(QStringLiteral("chiave")), [&] { ++terminato; });
    f.Password = QStringLiteral("Chiave");
    QVERIFY(!f.Ok_Click());
    QCOMPARE(ui.messaggi(), QStringList { QStringLiteral("PASSWORD ERRATA") });
    QCOMPARE(terminato, 1);
}

TOMVERA_TEST(TestPassword)
TOMVERA_TEST(TestAccesso)
TOMVERA_TEST(TestFPass)

#include "test_utenti.moc"
