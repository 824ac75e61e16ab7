// Saves that can't land must not land in part, and must not vanish without a word.
#include "altroutente.h"
#include "archiviotemporaneo.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/versione.h"
#include "solalettura.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QTest>

using namespace tomvera;
using test::AltroUtente;
using test::SolaLettura;

namespace {

const QString Occupato = QStringLiteral("Archivio occupato da un altro utente: riprovare più tardi.");

void preparaTabelle(Archivio& archivio)
{
    QVERIFY(archivio.comando(QStringLiteral("CREATE TABLE a (x TEXT CHECK (length(x) <= 3))")));
    QVERIFY(archivio.comando(QStringLiteral("CREATE TABLE b (y TEXT)")));
}

int righe(Archivio& archivio)
{
    return archivio.valore(QStringLiteral("SELECT (SELECT count(*) FROM a) + (SELECT count(*) FROM b)")).toInt();
}

} // namespace

class TestScrittureSicure : public QObject
{
    Q_OBJECT
private slots:
    void transazioniAnnidate();
    void dopoUnaIstruzioneSaltataNonSiScrive();
    void transazioneNonIniziataRifiutaLeScritture();
    void archivioOccupatoNovantanoveTentativi();
    void fileIrraggiungibilePerUnAttimo();
    void archivioInSolaLettura();
    void cartellaInSolaLettura();
    void rigaDiComandoSuArchivioOccupato();
    void versioneLettaEScrittaSottoUnSoloBlocco();
    void unaSolaVersioneConQuattroCreazioniInsieme();
};

void TestScrittureSicure::transazioniAnnidate()
{
    test::ArchivioTemporaneo t(false);
    Archivio& a = t.archivio();
    preparaTabelle(a);
    {
        Transazione esterna(a);
        QVERIFY(a.comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
        {
            Transazione interna(a);
            QVERIFY(interna.attiva());
            QVERIFY(a.comando(QStringLiteral("INSERT INTO b VALUES ('due')")));
        } // left without commit: its part is missing, so the whole save is
        QVERIFY(!esterna.commit());
    }
    QCOMPARE(righe(a), 0);
    {
        Transazione esterna(a);
        QVERIFY(a.comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
        {
            Transazione interna(a);
            QVERIFY(a.comando(QStringLiteral("INSERT INTO b VALUES ('due')")));
            QVERIFY(interna.commit());
        }
        // The inner commit is not yet permanent: the outer one decides.
        QCOMPARE(QFile::exists(t.percorso() + QStringLiteral("-journal")), true);
        QVERIFY(esterna.commit());
    }
    QCOMPARE(righe(a), 2);
}

void TestScrittureSicure::dopoUnaIstruzioneSaltataNonSiScrive()
{
    test::ArchivioTemporaneo t(false);
    Archivio& a = t.archivio();
    preparaTabelle(a);
    {
        Transazione tr(a);
        QVERIFY(!a.comando(QStringLiteral("INSERT INTO a VALUES ('troppo')")));
        // The save is already lost: what follows is refused, another Archivio on the file included.
        QVERIFY(!a.comando(QStringLiteral("INSERT INTO b VALUES ('dopo')")));
        Archivio altro(t.percorso(), t.errori());
        QVERIFY(!altro.comando(QStringLiteral("INSERT INTO b VALUES ('dopo')")));
        auto preparata = a.prepara(QStringLiteral("INSERT INTO b VALUES (?)"));
        QVERIFY(preparata);
        QVERIFY(!a.esegui(*preparata, { QStringLiteral("dopo") }));
        // Reads still answer.
        QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM b")).toInt(), 0);
        QVERIFY(!tr.commit());
    }
    QCOMPARE(righe(a), 0);
    // A failure the user can't act on is the caller's to tell.
    QVERIFY(t.interazione().testi().isEmpty());
    QVERIFY(a.comando(QStringLiteral("INSERT INTO b VALUES ('poi')")));
}

void TestScrittureSicure::transazioneNonIniziataRifiutaLeScritture()
{
    test::ArchivioTemporaneo t(false);
    Archivio& a = t.archivio();
    preparaTabelle(a);
    t.errori().setPausa([](double) {});
    {
        auto altro = std::make_unique<AltroUtente>(t.percorso());
        Transazione tr(a);
        QVERIFY(!tr.attiva());
        QCOMPARE(t.interazione().messaggi(), QStringList { Occupato });
        altro.reset(); // the other user is done: a write now would go through row by row

        QVERIFY(!a.comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
        Archivio stessoFile(t.percorso(), t.errori());
        QVERIFY(!stessoFile.comando(QStringLiteral("INSERT INTO b VALUES ('due')")));
        QVERIFY(!stessoFile.comandoSenzaGestione(QStringLiteral("CREATE TABLE c (z)")));
        // A nested save inside the failed one doesn't begin either.
        Transazione interna(a);
        QVERIFY(!interna.attiva());
        QVERIFY(!a.comando(QStringLiteral("INSERT INTO a VALUES ('tre')")));
        QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM a")).toInt(), 0);
        QVERIFY(!tr.commit());
        // Told once, not once per refused row.
        QCOMPARE(t.interazione().messaggi().size(), 1);
    }
    QCOMPARE(righe(a), 0);
    QVERIFY(!schema::tabellaEsiste(a, QStringLiteral("c")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
}

void TestScrittureSicure::archivioOccupatoNovantanoveTentativi()
{
    test::ArchivioTemporaneo t(false);
    Archivio& a = t.archivio();
    preparaTabelle(a);
    int pause = 0;
    t.errori().setPausa([&](double secondi) {
        QCOMPARE(secondi, 0.03);
        ++pause;
    });
    {
        AltroUtente altro(t.percorso());
        QVERIFY(!a.comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
        QCOMPARE(pause, 99);
        QCOMPARE(t.interazione().avvisiOccupato(), 99);
        QVERIFY(a.occupato());
        QCOMPARE(t.errori().problema(), ProblemaArchivio::Occupato);
        QCOMPARE(t.errori().testoProblema(), Occupato);
        QCOMPARE(t.interazione().messaggi(), QStringList { Occupato });
        // Past the ceiling the next one is skipped at once, and the user already knows.
        QVERIFY(!a.comando(QStringLiteral("INSERT INTO a VALUES ('due')")));
        QCOMPARE(pause, 99);
        QCOMPARE(t.interazione().messaggi().size(), 1);
        // Reading goes on while the other user saves.
        QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM a")).toInt(), 0);
        QVERIFY(!a.occupato());
    }
    QVERIFY(a.comando(QStringLiteral("INSERT INTO a VALUES ('tre')")));
    QCOMPARE(righe(a), 1);

    // A lock that ends within the retries costs no statement and no message.
    test::ArchivioTemporaneo u(false);
    preparaTabelle(u.archivio());
    auto altro = std::make_unique<AltroUtente>(u.percorso());
    int attese = 0;
    u.errori().setPausa([&](double) {
        if (++attese == 98)
            altro.reset();
    });
    QVERIFY(u.archivio().comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
    QCOMPARE(attese, 98);
    QVERIFY(u.interazione().messaggi().isEmpty());
    QCOMPARE(u.errori().problema(), ProblemaArchivio::Nessuno);
}

void TestScrittureSicure::fileIrraggiungibilePerUnAttimo()
{
    test::ArchivioTemporaneo t(false);
    preparaTabelle(t.archivio());
    Archivio::chiudiConnessioni(t.percorso());
    const QString via = t.percorso() + QStringLiteral(".via");
    QVERIFY(QFile::rename(t.percorso(), via));
    int pause = 0;
    t.errori().setPausa([&](double) {
        if (++pause == 3)
            QFile::rename(via, t.percorso()); // the share is back
    });
    Archivio archivio(t.percorso(), t.errori());
    QVERIFY(archivio.comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
    QCOMPARE(pause, 3);
    QCOMPARE(t.interazione().avvisiOccupato(), 3);
    QCOMPARE(righe(archivio), 1);
}

void TestScrittureSicure::archivioInSolaLettura()
{
    test::ArchivioTemporaneo t(false);
    preparaTabelle(t.archivio());
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO b VALUES ('prima')")));
    Archivio::chiudiConnessioni(t.percorso());
    int pause = 0;
    t.errori().setPausa([&](double) { ++pause; });
    const QString atteso = GestioneErrori::testoSolaLettura(t.percorso());
    QVERIFY(atteso.contains(QDir::toNativeSeparators(t.percorso())));
    {
        SolaLettura protetto(t.percorso());
        QCOMPARE(Archivio::VerificaScrittura(t.percorso()), atteso);
        QCOMPARE(Archivio::VerificaArchivio(t.percorso()), QString());

        Archivio archivio(t.percorso(), t.errori());
        QVERIFY(archivio.apri());
        QVERIFY(archivio.soloLettura());
        QCOMPARE(archivio.valore(QStringLiteral("SELECT y FROM b")).toString(), QStringLiteral("prima"));
        // A single write and a whole save: refused, and said, each time the user tries.
        QVERIFY(!archivio.comando(QStringLiteral("UPDATE b SET y = 'dopo'")));
        QCOMPARE(t.interazione().messaggi(), QStringList { atteso });
        QCOMPARE(archivio.problema(), ProblemaArchivio::SolaLettura);
        QCOMPARE(archivio.valore(QStringLiteral("SELECT count(*) FROM b")).toInt(), 1);
        {
            Transazione tr(archivio);
            QVERIFY(!tr.attiva());
            QVERIFY(!archivio.comando(QStringLiteral("INSERT INTO b VALUES ('x')")));
        }
        QCOMPARE(t.interazione().messaggi(), (QStringList { atteso, atteso }));
        QCOMPARE(pause, 0);
    }
    Archivio::chiudiConnessioni(t.percorso());
    QCOMPARE(Archivio::VerificaScrittura(t.percorso()), QString());
    Archivio archivio(t.percorso(), t.errori());
    QVERIFY(archivio.comando(QStringLiteral("UPDATE b SET y = 'dopo'")));
    QVERIFY(!archivio.soloLettura());
}

void TestScrittureSicure::cartellaInSolaLettura()
{
#ifndef Q_OS_UNIX
    QSKIP("a folder can't be made read-only for its owner here");
#endif
    test::ArchivioTemporaneo t(false);
    preparaTabelle(t.archivio());
    Archivio::chiudiConnessioni(t.percorso());
    int pause = 0;
    t.errori().setPausa([&](double) { ++pause; });
    SolaLettura protetto(t.cartella());
    QCOMPARE(Archivio::VerificaScrittura(t.percorso()), GestioneErrori::testoSolaLettura(t.percorso()));
    Archivio archivio(t.percorso(), t.errori());
    // The file itself is writable, the journal beside it can't be made: no waiting, no half save.
    {
        Transazione tr(archivio);
        archivio.comando(QStringLiteral("INSERT INTO a VALUES ('uno')"));
        archivio.comando(QStringLiteral("INSERT INTO b VALUES ('due')"));
        QVERIFY(!tr.commit());
    }
    QCOMPARE(pause, 0);
    QCOMPARE(t.interazione().messaggi(), QStringList { GestioneErrori::testoSolaLettura(t.percorso()) });
    QCOMPARE(righe(archivio), 0);
}

void TestScrittureSicure::rigaDiComandoSuArchivioOccupato()
{
    test::ArchivioTemporaneo t(false);
    QVERIFY(t.archivio().comando(QStringLiteral("CREATE TABLE TabellaStrutturaCamere (x)")));
    Archivio::chiudiConnessioni(t.percorso());
    QProcess altro;
    altro.start(QStringLiteral(TOMVERA_AIUTANTE), { QStringLiteral("blocca"), t.percorso(), QStringLiteral("30000") });
    QVERIFY(altro.waitForStarted());
    QVERIFY(altro.waitForReadyRead(10000));
    QCOMPARE(altro.readLine().trimmed(), QByteArray("bloccato"));

    // A reader and a creation, each after its retries: busy, not broken, not missing, not impossible.
    QProcess lettore;
    lettore.start(QStringLiteral(TOMVERA_CLI),
                  { QStringLiteral("tabellone"), QStringLiteral("--archivio"), t.percorso(), QStringLiteral("--dal"),
                    QStringLiteral("01/06/2026"), QStringLiteral("--al"), QStringLiteral("10/06/2026") });
    QProcess creazione;
    creazione.start(QStringLiteral(TOMVERA_CLI),
                    { QStringLiteral("crea-archivio"), QStringLiteral("--archivio"), t.percorso() });
    for (QProcess* p : { &lettore, &creazione }) {
        QVERIFY(p->waitForFinished(60000));
        QCOMPARE(p->exitCode(), 2);
        QCOMPARE(QString::fromUtf8(p->readAllStandardError()).trimmed(), Occupato);
    }
    altro.kill();
    altro.waitForFinished();
}

void TestScrittureSicure::versioneLettaEScrittaSottoUnSoloBlocco()
{
    test::ArchivioTemporaneo t(false);
    QVERIFY(t.archivio().comando(
        QStringLiteral("CREATE TABLE TabellaVersione (Indice INTEGER PRIMARY KEY AUTOINCREMENT, Versione TEXT)")));
    // Another program creating the same archive writes its row while this one waits for the lock.
    AltroUtente altro(t.percorso());
    bool fatto = false;
    t.errori().setPausa([&](double) {
        if (!std::exchange(fatto, true))
            altro.registra(QStringLiteral("INSERT INTO TabellaVersione (Versione) VALUES ('3.9.3')"));
    });
    QVERIFY(schema::ScriviVersione(t.archivio()));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaVersione")).toInt(), 1);
    QCOMPARE(schema::LeggiVersione(t.archivio()), schema::versioneProgramma());
}

void TestScrittureSicure::unaSolaVersioneConQuattroCreazioniInsieme()
{
    test::ArchivioTemporaneo t(false);
    Archivio::chiudiConnessioni(t.percorso());
    QFile::remove(t.percorso());
    std::vector<std::unique_ptr<QProcess>> creazioni;
    for (int i = 0; i < 4; ++i) {
        creazioni.push_back(std::make_unique<QProcess>());
        creazioni.back()->start(QStringLiteral(TOMVERA_CLI),
                                { QStringLiteral("crea-archivio"), QStringLiteral("--archivio"), t.percorso() });
    }
    for (auto& p : creazioni) {
        QVERIFY(p->waitForFinished(120000));
        // Each one either made the archive or said the archive was busy.
        const QString errore = QString::fromUtf8(p->readAllStandardError()).trimmed();
        QVERIFY2(p->exitCode() == 0 || errore == Occupato, qPrintable(errore));
    }
    Archivio archivio(t.percorso(), t.errori());
    QCOMPARE(archivio.valore(QStringLiteral("SELECT count(*) FROM TabellaVersione")).toInt(), 1);
    QCOMPARE(schema::LeggiVersione(archivio), schema::versioneProgramma());
}

TOMVERA_TEST(TestScrittureSicure)
#include "test_scritture.moc"
