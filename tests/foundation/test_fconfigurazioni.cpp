#include "archiviotemporaneo.h"
#include "foundation/fconfigurazioni.h"
#include "foundation/orologio.h"
#include "foundation/piattaforma.h"
#include "foundation/sessione.h"
#include "testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlRecord>
#include <QTest>

using namespace tomvera;

namespace {

struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 6, 15), QTime(10, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };
    FConfigurazioni schermo { sessione };

    Banco()
    {
        sessione.PercorsoDB = t.percorso();
        sessione.PercorsoProgramma = t.cartella();
        schermo.Form_Load();
    }
    Archivio& archivio() { return t.archivio(); }
    test::InterazioneScriptata& ui() { return t.interazione(); }
    int utenti() { return archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaUtenti")).toInt(); }
};

} // namespace

class TestFConfigurazioni : public QObject
{
    Q_OBJECT
private slots:
    void salvaERicaricaLaSessione();
    void checkInPrimaDelCheckOutRifiutato();
    void passwordAmministratore();
    void cartellaBackupDiversaDallaPredefinita();
    void logo();
};

void TestFConfigurazioni::salvaERicaricaLaSessione()
{
    Banco b;
    b.schermo.valori.RagSociale = QStringLiteral("Hotel Miramare");
    b.schermo.valori.IntervalloSale = QStringLiteral("15 Min.");
    b.schermo.valori.CodiceHotel = QStringLiteral("H-042");
    b.schermo.valori.DNS = QStringLiteral("sky.example.it");
    b.sessione.PercorsoArchivioSky = QDir(b.t.cartella()).filePath(QStringLiteral("ArchivioSky.mdb"));
    QVERIFY(QFileInfo::exists(b.sessione.PercorsoArchivioSky));
    QVERIFY(b.schermo.Registra_Click());
    // The pay-TV tool reads its connection data from its own archive.
    {
        Archivio sky(b.sessione.PercorsoArchivioSky, b.t.errori());
        QVERIFY(sky.apri());
        const auto riga = sky.riga(QStringLiteral("SELECT CodiceHotel, DNS FROM TabellaConfigurazioniSky"));
        QVERIFY(riga);
        QCOMPARE(riga->value(0).toString(), QStringLiteral("H-042"));
        QCOMPARE(riga->value(1).toString(), QStringLiteral("sky.example.it"));
    }
    QCOMPARE(b.ui().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QCOMPARE(b.sessione.configurazione->RagSociale, QStringLiteral("Hotel Miramare"));
    QCOMPARE(b.sessione.configurazione->SlotsGiornoSale, 96);
    b.schermo.MostraNome = true;
    b.schermo.SalvaSceltaRete();
    // Another opening of the screen shows what was saved.
    FConfigurazioni altro(b.sessione);
    altro.Form_Load();
    QCOMPARE(altro.valori.RagSociale, QStringLiteral("Hotel Miramare"));
    QVERIFY(altro.MostraNome && !altro.MostraIpPrivato);
}

void TestFConfigurazioni::checkInPrimaDelCheckOutRifiutato()
{
    Banco b;
    b.schermo.valori.RagSociale = QStringLiteral("non salvato");
    b.schermo.valori.CheckInDalleOre = QTime(9, 0);
    b.schermo.valori.CheckOutEntroLeOre = QTime(10, 0);
    QVERIFY(!b.schermo.Registra_Click());
    QCOMPARE(b.ui().messaggi(),
             QStringList { QStringLiteral("Attenzione l'ora di check-in delle camere deve essere maggiore o uguale a "
                                          "quella del check-out!") });
    QVERIFY(b.archivio().valore(QStringLiteral("SELECT count(*) FROM Configurazioni")).toInt() == 0);
    // Equal hours are fine.
    b.schermo.valori.CheckInDalleOre = QTime(10, 0);
    QVERIFY(b.schermo.Registra_Click());
}

void TestFConfigurazioni::passwordAmministratore()
{
    Banco b;
    QVERIFY(!b.schermo.passwordAmministratorePresente());
    b.schermo.PasswordProgramma = QStringLiteral("abc");
    b.schermo.ConfermaPasswordProgramma = QStringLiteral("abc");
    QVERIFY(!b.schermo.Registra_Click());
    QCOMPARE(b.ui().ultimoTesto(),
             QStringLiteral("Attenzione, la PASSWORD deve avere un numero di caratteri compreso tra 4 e 12"));

    b.schermo.PasswordProgramma = b.schermo.ConfermaPasswordProgramma = QStringLiteral("Direzione");
    QVERIFY(b.schermo.Registra_Click());
    const auto memorizzata
        = [&] { return utenti::LeggiPasswordUtente(b.archivio(), QStringLiteral("Amministratore")); };
    QVERIFY(utenti::VerificaPassword(QStringLiteral("Direzione"), memorizzata()));
    QVERIFY(b.schermo.PasswordProgramma.isEmpty());

    // Empty boxes keep the password through later saves.
    b.schermo.valori.Tel = QStringLiteral("0541 1");
    QVERIFY(b.schermo.Registra_Click());
    QVERIFY(utenti::VerificaPassword(QStringLiteral("Direzione"), memorizzata()));

    b.schermo.RimuoviPasswordProgramma = true;
    QVERIFY(b.schermo.Registra_Click());
    QVERIFY(memorizzata().isEmpty());
    QVERIFY(!b.schermo.passwordAmministratorePresente());
}

void TestFConfigurazioni::cartellaBackupDiversaDallaPredefinita()
{
    Banco b;
    QString cartella = piattaforma::cartellaBackupPredefinita();
    QVERIFY(b.schermo.ControllaCartellaBackup(cartella)); // the default asks nothing
    QVERIFY(b.ui().testi().isEmpty());

    QString predefinita = QDir::toNativeSeparators(piattaforma::cartellaBackupPredefinita());
    predefinita.chop(1);
    const QString domanda = QStringLiteral("Attenzione è consigliato utilizzare la cartella di backup automatico  "
                                           "predefinita (")
        + predefinita + QDir::separator() + QStringLiteral("), Continuare ugualmente?");
    cartella = QStringLiteral("/mnt/chiavetta/");
    b.ui().rispondiNo();
    QVERIFY(!b.schermo.ControllaCartellaBackup(cartella));
    QCOMPARE(cartella, piattaforma::cartellaBackupPredefinita());
    QCOMPARE(b.ui().ultimoTesto(), domanda);

    b.ui().rispondiCartella(QStringLiteral("/mnt/chiavetta"));
    b.ui().rispondiSi(QStringLiteral("Continuare ugualmente?"));
    b.schermo.PercorsoBackup_DblClick();
    QCOMPARE(b.schermo.valori.PercorsoBackup, QStringLiteral("/mnt/chiavetta/"));
    QVERIFY2(b.ui().errore().isEmpty(), qPrintable(b.ui().errore()));
}

void TestFConfigurazioni::logo()
{
    Banco b;
    const QString file = QDir(b.t.cartella()).filePath(QStringLiteral("logo.png"));
    QFile f(file);
    QVERIFY(f.open(QIODevice::WriteOnly));
    static const char dati[] = "\x89PNG\r\n\x1a\n\0\0 finto";
    const QByteArray byte(dati, sizeof dati - 1);
    f.write(byte);
    f.close();
    b.ui().rispondiFile(file);
    QVERIFY(b.schermo.CaricaLogo_Click());
    QVERIFY(b.schermo.Registra_Click());
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT Logo FROM Configurazioni")).toByteArray(), byte);
    FConfigurazioni riaperto(b.sessione);
    riaperto.Form_Load();
    QCOMPARE(riaperto.Logo, byte);
    b.schermo.RimuoviLogo_Click();
    QVERIFY(b.schermo.Registra_Click());
    QVERIFY(b.archivio().valore(QStringLiteral("SELECT Logo FROM Configurazioni")).isNull());
}

class TestAliquoteIva : public QObject
{
    Q_OBJECT
private slots:
    void regoleDelleAliquote();
    void aliquotaInUsoBloccata();
};

void TestAliquoteIva::regoleDelleAliquote()
{
    Configurazione c;
    c.ValIva = { 0, 4, 10, 22, 0, 0, 0, 0, 0 };
    const std::array<bool, 9> liberi {};
    QCOMPARE(aliquote::controlla(c, c.ValIva, liberi), QString());
    c.IvaPrenotazioni = 10;
    QCOMPARE(aliquote::controlla(c, c.ValIva, liberi), QString());
    c.IvaRistorante = 5;
    QCOMPARE(aliquote::controlla(c, c.ValIva, liberi),
             QStringLiteral("Attenzione, l'aliquota Iva Ristorante (5%) non è presente nella tabella delle aliquote!"));
    c.IvaRistorante = 0;
    c.ValIva[5] = 22;
    QCOMPARE(aliquote::controlla(c, c.ValIva, liberi),
             QStringLiteral("Attenzione, l'aliquota Iva 22% è inserita più volte nella tabella!"));
    c.ValIva[5] = 100;
    c.UsaImposta = true;
    QCOMPARE(aliquote::controlla(c, c.ValIva, liberi),
             QStringLiteral("Attenzione, le aliquote Imposta devono essere comprese tra 0 e 99,99!"));
}

void TestAliquoteIva::aliquotaInUsoBloccata()
{
    Banco b;
    b.schermo.valori.ValIva = { 0, 4, 10, 22, 5, 0, 0, 0, 0 };
    QVERIFY(b.schermo.Registra_Click());
    QCOMPARE(b.schermo.iveBloccate(), (std::array<bool, 9> {}));
    // 10% on a document line, 22% on a price list, slot 4 amounts in a stored header.
    QVERIFY(b.archivio().comando(QStringLiteral("INSERT INTO Righe (DataDoc, NroDoc, TipoDoc, RigaDoc, Iva) "
                                                "VALUES ('2026-06-01', 1, 'Fattura', 1, 10)")));
    QVERIFY(b.archivio().comando(QStringLiteral("INSERT INTO TabellaListinoCamere (Listino, Iva) VALUES ('A', 22.0)")));
    QVERIFY(b.archivio().comando(QStringLiteral("INSERT INTO Testate (DataDoc, NroDoc, TipoDoc, Imp4) "
                                                "VALUES ('2026-06-01', 1, 'Fattura', 81.97)")));
    b.schermo.Form_Load();
    const auto bloccate = b.schermo.iveBloccate();
    QCOMPARE(bloccate, (std::array<bool, 9> { false, false, true, true, true, false, false, false, false }));

    b.schermo.valori.ValIva[2] = 11;
    QVERIFY(!b.schermo.Registra_Click());
    QCOMPARE(b.ui().ultimoTesto(),
             QStringLiteral("Attenzione, l'aliquota Iva 10% è utilizzata da documenti o listini "
                            "e non può essere modificata!"));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT ValIva2 FROM Configurazioni")).toDouble(), 10.0);
    // A free slot can still change.
    b.schermo.valori.ValIva[2] = 10;
    b.schermo.valori.ValIva[1] = 5.5;
    QVERIFY(b.schermo.Registra_Click());
}

class TestUtentiConfigurazioni : public QObject
{
    Q_OBJECT
private slots:
    void messaggiInOrdine();
    void registraModificaCancella();
};

void TestUtentiConfigurazioni::messaggiInOrdine()
{
    Banco b;
    auto& s = b.schermo;
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.ui().ultimoTesto(), QStringLiteral("Attenzione un nome all'utente"));
    s.utente.nome = QStringLiteral("  ");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.ui().ultimoTesto(), QStringLiteral("Attenzione un nome all'utente"));
    s.utente.nome = QStringLiteral("amministratore");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.ui().ultimoTesto(),
             QStringLiteral("Attenzione l'utente amministratore già esiste, impossibile crearne un'altro!"));
    s.utente.nome = QStringLiteral("Giulia");
    s.PasswordUtente = QStringLiteral("giulia1");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.ui().ultimoTesto(), QStringLiteral("Attenzione, valorizzare il campo: CONFERMA PASSWORD"));
    s.ConfermaPasswordUtente = QStringLiteral("giulia1");
    QVERIFY(s.Ins_Click());
    QCOMPARE(b.utenti(), 1);
    // The same name in another case is the same user.
    s.utente.nome = QStringLiteral("GIULIA");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.ui().ultimoTesto(), QStringLiteral("Attenzione, utente già esistente"));
    QCOMPARE(b.utenti(), 1);

    s.PulisciCampiUtente();
    QVERIFY(!s.Command16_Click());
    QCOMPARE(b.ui().ultimoTesto(), QStringLiteral("Attenzione, selezionare l'utente da cancellare"));
}

void TestUtentiConfigurazioni::registraModificaCancella()
{
    Banco b;
    auto& s = b.schermo;
    s.utente.nome = QStringLiteral("Carlo");
    s.utente.diritti.DocumentiSoloLettura = true;
    s.SelezionaTutti_Click();
    QVERIFY(!s.utente.diritti.DocumentiSoloLettura); // all rights means with their saves
    s.utente.diritti.Listini = false;
    QVERIFY(s.Ins_Click()); // no password: both boxes empty
    QCOMPARE(s.RigheArt.size(), 1);
    QVERIFY(s.utente.nome.isEmpty()); // fields cleared after the save
    QVERIFY(utenti::LeggiPasswordUtente(b.archivio(), QStringLiteral("Carlo")).isEmpty());

    s.RigheArt_Click(0);
    QCOMPARE(s.utente.nome, QStringLiteral("Carlo"));
    QVERIFY(s.utente.diritti.Sveglie && s.utente.diritti.StampaTotFattRic && !s.utente.diritti.Listini);
    s.PasswordUtente = s.ConfermaPasswordUtente = QStringLiteral("carlo123");
    s.utente.NonAttivo = true;
    QVERIFY(s.Ins_Click());
    QCOMPARE(b.utenti(), 1); // updated in place, not added

    s.RigheArt_Click(0);
    QVERIFY(s.utenteHaPassword());
    QVERIFY(s.utente.NonAttivo);
    s.utente.nome = QStringLiteral("Carlo Rossi"); // renaming keeps the stored password
    s.DeselezionaTutti_Click();
    QVERIFY(s.Ins_Click());
    const QString memorizzata = utenti::LeggiPasswordUtente(b.archivio(), QStringLiteral("Carlo Rossi"));
    QVERIFY(utenti::VerificaPassword(QStringLiteral("carlo123"), memorizzata));
    PermessiUtente p;
    p.Planning = true;
    utenti::PermessiUtente(b.archivio(), QStringLiteral("Carlo Rossi"), p);
    QVERIFY(!p.Planning);

    s.RigheArt_Click(0);
    b.ui().rispondiNo(QStringLiteral("sicuri di voler cancellare"));
    QVERIFY(!s.Command16_Click());
    QCOMPARE(b.utenti(), 1);
    b.ui().rispondiSi(QStringLiteral("Attenzione, sicuri di voler cancellare l'utente selezionato?"));
    QVERIFY(s.Command16_Click());
    QCOMPARE(b.utenti(), 0);
    QVERIFY(s.RigheArt.isEmpty());
    QVERIFY2(b.ui().errore().isEmpty(), qPrintable(b.ui().errore()));
}

TOMVERA_TEST(TestFConfigurazioni)
TOMVERA_TEST(TestAliquoteIva)
TOMVERA_TEST(TestUtentiConfigurazioni)

#include "test_fconfigurazioni.moc"
