#include "archiviotemporaneo.h"
#include "testmain.h"

#include <QProcess>
#include <QTest>

using namespace tomvera;

namespace {

const QString TestataDiagnostica = QStringLiteral("  -- Messaggi di Errore Attivo (in Config->Utility) --  ");

// Remembers the icon of each OK/Cancel question.
class InterazioneConIcone : public test::InterazioneScriptata
{
public:
    bool okAnnulla(const QString& testo, const QString& titolo, Icona icona) override
    {
        icone << icona;
        return InterazioneScriptata::okAnnulla(testo, titolo, icona);
    }
    QList<Icona> icone;
};

void preparaTabella(Archivio& archivio)
{
    QVERIFY(archivio.comando(QStringLiteral("CREATE TABLE Prova (Indice INTEGER PRIMARY KEY, Nome TEXT "
                                            "CHECK (length(Nome) <= 5))")));
    QVERIFY(archivio.comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('prima')")));
}

} // namespace

class TestGestioneErrori : public QObject
{
    Q_OBJECT
private slots:
    void archivioOccupatoDaUnAltroProcesso();
    void dalCentesimoErroreSiSaltaInSilenzio();
    void oltreDiecimilaErroriIlProgrammaTermina();
    void erroreSconosciutoSenzaDiagnostica();
    void erroreSconosciutoConDiagnostica();
};

void TestGestioneErrori::archivioOccupatoDaUnAltroProcesso()
{
    test::ArchivioTemporaneo t(false);
    preparaTabella(t.archivio());
    t.errori().setPausa(&Pausa); // the real 0.03 s wait: the lock must outlast a few retries

    QProcess altro;
    altro.start(QStringLiteral(TOMVERA_AIUTANTE), { QStringLiteral("blocca"), t.percorso(), QStringLiteral("300") });
    QVERIFY(altro.waitForStarted());
    QVERIFY(altro.waitForReadyRead(10000));
    QCOMPARE(altro.readLine().trimmed(), QByteArray("bloccato"));

    QVERIFY(
        t.archivio().comando(QStringLiteral("UPDATE Prova SET Nome = ? WHERE Indice = 1"), { QStringLiteral("dopo") }));

    // The retries yield to the event loop, which may already have seen the other program end.
    if (altro.state() != QProcess::NotRunning)
        QVERIFY(altro.waitForFinished(10000));
    QCOMPARE(altro.exitStatus(), QProcess::NormalExit);
    QCOMPARE(altro.exitCode(), 0);
    QVERIFY(t.interazione().avvisiOccupato() >= 1);
    // Well under the ceiling: the statement went through, not skipped.
    QVERIFY(t.errori().contatore() < 100);
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT Nome FROM Prova WHERE Indice = 1")).toString(),
             QStringLiteral("dopo"));
    QVERIFY(t.interazione().testi().isEmpty());
}

void TestGestioneErrori::dalCentesimoErroreSiSaltaInSilenzio()
{
    test::ArchivioTemporaneo t(false);
    preparaTabella(t.archivio());
    GestioneErrori& errori = t.errori();
    errori.setAbilitaDiagnosticaErrori(true);
    for (int i = 1; i <= 99; ++i)
        QVERIFY(errori.GestioneErroreDatabase(GestioneErrori::RecordBloccato, QStringLiteral("bloccato")));
    QCOMPARE(t.interazione().avvisiOccupato(), 99);

    // The 100th, busy or not, is skipped with no notice and no question, and so is every one after it.
    QVERIFY(!errori.GestioneErroreDatabase(GestioneErrori::RecordBloccato, QStringLiteral("bloccato")));
    QVERIFY(!t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('troppo lungo')")));
    QVERIFY(!errori.GestioneErroreDatabase(GestioneErrori::AperturaEsclusiva, QString()));
    QCOMPARE(t.interazione().avvisiOccupato(), 99);
    QVERIFY(t.interazione().testi().isEmpty());
    QVERIFY2(t.interazione().errore().isEmpty(), qPrintable(t.interazione().errore()));
    QCOMPARE(errori.contatore(), 102);
    // The statements that work still work.
    QVERIFY(t.archivio().comando(QStringLiteral("UPDATE Prova SET Nome = 'b'")));
}

void TestGestioneErrori::oltreDiecimilaErroriIlProgrammaTermina()
{
    test::InterazioneScriptata interazione;
    GestioneErrori errori(&interazione);
    errori.setPausa([](double) {});
    int terminazioni = 0;
    errori.setTermina([&] { ++terminazioni; });
    for (int i = 1; i <= 10000; ++i)
        errori.GestioneErroreDatabase(GestioneErrori::RecordBloccato, QString());
    QCOMPARE(terminazioni, 0);
    QVERIFY(!errori.GestioneErroreDatabase(GestioneErrori::RecordBloccato, QString()));
    QCOMPARE(terminazioni, 1);
}

void TestGestioneErrori::erroreSconosciutoSenzaDiagnostica()
{
    test::ArchivioTemporaneo t(false);
    preparaTabella(t.archivio());
    for (int i = 0; i < 50; ++i)
        t.errori().GestioneErroreDatabase(GestioneErrori::RecordBloccato, QString());
    QCOMPARE(t.errori().contatore(), 50);

    QVERIFY(!t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('troppo lungo')")));
    QCOMPARE(t.errori().contatore(), 0);
    QVERIFY(t.interazione().testi().isEmpty());
    // Nothing half-done, and the archive goes on working.
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Prova")).toInt(), 1);
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('corto')")));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Prova")).toInt(), 2);
}

void TestGestioneErrori::erroreSconosciutoConDiagnostica()
{
    InterazioneConIcone interazione;
    test::ArchivioTemporaneo t(false);
    preparaTabella(t.archivio());
    t.errori().setInterazione(&interazione);
    t.errori().setAbilitaDiagnosticaErrori(true);

    // OK repeats the statement (which fails again), Cancel skips it.
    interazione.rispondiOk();
    interazione.rispondiAnnulla();
    QVERIFY(!t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('troppo lungo')")));
    QVERIFY2(interazione.errore().isEmpty(), qPrintable(interazione.errore()));
    QVERIFY(interazione.risposteFinite());

    const QSqlError errore = t.archivio().ultimoErrore();
    const QString atteso = TestataDiagnostica + QLatin1Char('\n') + QString::number(Archivio::numeroErrore(errore))
        + QLatin1Char(' ') + errore.text() + QStringLiteral("\nRipetere Stessa Istruzione ?");
    QCOMPARE(interazione.testi(), (QStringList { atteso, atteso }));
    QCOMPARE(interazione.icone,
             (QList<Interazione::Icona> { Interazione::Icona::Critico, Interazione::Icona::Critico }));
    // Not reset here: only an ignored error resets the counter.
    QCOMPARE(t.errori().contatore(), 2);
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Prova")).toInt(), 1);
}

TOMVERA_TEST(TestGestioneErrori)

#include "test_gestioneerrori.moc"
