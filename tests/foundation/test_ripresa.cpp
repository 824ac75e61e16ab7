// A program killed while it saves must leave an archive that the next start opens, whole, with no half save.
// TOMVERA_UCCISIONI sets how many kills the random pass makes (scripts/prova-crash.sh runs many).
#include "archiviotemporaneo.h"
#include "testmain.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

using namespace tomvera;

namespace {

void preparaTabelle(Archivio& archivio)
{
    for (const char* tabella : { "Prenotazioni", "Ospiti" })
        QVERIFY(archivio.comando(QStringLiteral("CREATE TABLE ") + QLatin1String(tabella)
                                 + QStringLiteral(" (giro INTEGER, riga INTEGER, nota TEXT)")));
    QVERIFY(archivio.comando(QStringLiteral("CREATE TABLE Stato (giro INTEGER)")));
    QVERIFY(archivio.comando(QStringLiteral("INSERT INTO Stato VALUES (0)")));
}

bool avviaScrittore(QProcess& scrittore, const QString& comando, const QString& percorso, const QByteArray& annuncio)
{
    scrittore.start(QStringLiteral(TOMVERA_AIUTANTE), { comando, percorso });
    if (!scrittore.waitForStarted() || !scrittore.waitForReadyRead(20000))
        return false;
    return scrittore.readLine().trimmed() == annuncio;
}

// A journal the engine must play back: its header is complete (a journal still being written starts with zeros).
bool giornaleDaRipristinare(const QString& percorso)
{
    QFile giornale(percorso + QStringLiteral("-journal"));
    return giornale.open(QIODevice::ReadOnly) && giornale.read(8) == QByteArray::fromHex("d9d505f920a163d7");
}

void uccidi(QProcess& scrittore)
{
    scrittore.kill(); // SIGKILL: no destructor, no rollback, the journal stays where it is
    scrittore.waitForFinished(10000);
}

// What the next start sees: the archive check passes, the file is whole, every save is all or nothing.
// Returns the rounds saved.
int controllaArchivio(const QString& percorso)
{
    // The start-up check comes first, before anything else has opened the file for writing.
    const QString verifica = Archivio::VerificaArchivio(percorso);
    if (!verifica.isEmpty()) {
        QTest::qFail(qPrintable(QStringLiteral("controllo di avvio: ") + verifica), __FILE__, __LINE__);
        return -1;
    }
    if (giornaleDaRipristinare(percorso)) {
        QTest::qFail("il salvataggio interrotto non è stato annullato dal controllo", __FILE__, __LINE__);
        return -1;
    }
    GestioneErrori errori;
    Archivio archivio(percorso, errori);
    if (!archivio.apri() || archivio.soloLettura()) {
        QTest::qFail("l'archivio non si apre in scrittura", __FILE__, __LINE__);
        return -1;
    }
    const QString integrita = archivio.valore(QStringLiteral("PRAGMA integrity_check")).toString();
    const int giro = archivio.valore(QStringLiteral("SELECT giro FROM Stato")).toInt();
    const int prenotazioni = archivio.valore(QStringLiteral("SELECT count(*) FROM Prenotazioni")).toInt();
    const int ospiti = archivio.valore(QStringLiteral("SELECT count(*) FROM Ospiti")).toInt();
    const int ultimo = archivio.valore(QStringLiteral("SELECT coalesce(max(giro), 0) FROM Ospiti")).toInt();
    if (integrita != QLatin1String("ok") || prenotazioni != giro * 50 || ospiti != giro * 50 || ultimo != giro) {
        QTest::qFail(qPrintable(QStringLiteral("archivio rovinato: %1, giro %2, prenotazioni %3, ospiti %4")
                                    .arg(integrita)
                                    .arg(giro)
                                    .arg(prenotazioni)
                                    .arg(ospiti)),
                     __FILE__, __LINE__);
        return -1;
    }
    // And it takes the next save.
    if (!archivio.comando(QStringLiteral("UPDATE Stato SET giro = giro"))) {
        QTest::qFail("l'archivio non accetta scritture", __FILE__, __LINE__);
        return -1;
    }
    return giro;
}

} // namespace

class TestRipresaDopoCrash : public QObject
{
    Q_OBJECT
private slots:
    void uccisoAMetaSalvataggio();
    void uccisoInMomentiCasuali();
};

void TestRipresaDopoCrash::uccisoAMetaSalvataggio()
{
    test::ArchivioTemporaneo t(false);
    preparaTabelle(t.archivio());
    Archivio::chiudiConnessioni(t.percorso());

    QProcess scrittore;
    QVERIFY(avviaScrittore(scrittore, QStringLiteral("interrompi"), t.percorso(), QByteArrayLiteral("a metà")));
    uccidi(scrittore);
    // The case that locked the program out: a journal left beside the archive by a dead writer.
    QVERIFY(giornaleDaRipristinare(t.percorso()));
    QCOMPARE(controllaArchivio(t.percorso()), 0);
}

void TestRipresaDopoCrash::uccisoInMomentiCasuali()
{
    const int uccisioni
        = qEnvironmentVariableIsSet("TOMVERA_UCCISIONI") ? qEnvironmentVariableIntValue("TOMVERA_UCCISIONI") : 10;
    test::ArchivioTemporaneo t(false);
    preparaTabelle(t.archivio());
    Archivio::chiudiConnessioni(t.percorso());

    int giriPrecedenti = 0;
    int conGiornale = 0;
    for (int i = 0; i < uccisioni; ++i) {
        QProcess scrittore;
        QVERIFY2(avviaScrittore(scrittore, QStringLiteral("scrivi"), t.percorso(), QByteArrayLiteral("pronto")),
                 qPrintable(QString::fromUtf8(scrittore.readAllStandardError())));
        QTest::qSleep(static_cast<int>(QRandomGenerator::global()->bounded(40)));
        uccidi(scrittore);
        if (giornaleDaRipristinare(t.percorso()))
            ++conGiornale;
        const int giri = controllaArchivio(t.percorso());
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("dopo l'uccisione n. %1").arg(i + 1)));
        // Committed saves survive the kill.
        QVERIFY(giri > giriPrecedenti);
        giriPrecedenti = giri;
    }
    qInfo("%d uccisioni, %d a salvataggio in corso", uccisioni, conGiornale);
}

TOMVERA_TEST(TestRipresaDopoCrash)
#include "test_ripresa.moc"
