#include "archivioschedine.h"
#include "eseguicli.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;

namespace {

QByteArray leggiFile(const QString& percorso)
{
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList periodo()
{
    return { QStringLiteral("--dal"), QStringLiteral("05/03/2026"), QStringLiteral("--al"),
             QStringLiteral("06/03/2026") };
}

} // namespace

class TestComandoSchedine : public QObject
{
    Q_OBJECT
private slots:
    void controllaElencaLeRighe();
    void esportaETimbra();
    void multiAzienda();
    void argomentiErrati();
};

void TestComandoSchedine::controllaElencaLeRighe()
{
    test::ArchivioTemporaneo t;
    const auto o = test::ospitiDiProva(t.archivio());
    const auto riga
        = [](qint64 i, const char* testo) -> QString { return QString::number(i) + QString::fromUtf8(testo); };
    const QStringList argomenti = QStringList { QStringLiteral("--archivio"), t.percorso() } + periodo()
        + QStringList { QStringLiteral("--controlla") };
    auto e = test::eseguiCli(QStringLiteral("schedine"), argomenti);
    QCOMPARE(e.err, QString());
    QCOMPARE(e.codice, 0);
    QCOMPARE(
        e.out,
        QStringList({ riga(o.rossiMario, "\tRossi\tMario\tNessun Errore"),
                      riga(o.rossiLucia, "\tRossi\tLucia\tNessun Errore"), riga(o.rossiZoe, "\tRossi\tZoè\tSesso"),
                      riga(o.muller, "\tMüller-Lüdenscheidt von Hohenzollern-Sigmaringen-XY\tJürgen\tNessun Errore"),
                      riga(o.bianchi, "\tBianchi\tAnna\tNessun Errore") })
                .join(QLatin1Char('\n'))
            + QLatin1Char('\n'));

    e = test::eseguiCli(QStringLiteral("schedine"), argomenti + QStringList { QStringLiteral("--tutte") });
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out.count(QLatin1Char('\n')), 6);
    QVERIFY(e.out.contains(riga(o.giaInviato, "\tVerdi\tPaolo\tNessun Errore\n")));
    // Nothing was written.
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                                "WHERE StatoInvioTelematico <> ''")),
             QVariant(1));
}

void TestComandoSchedine::esportaETimbra()
{
    test::ArchivioTemporaneo t;
    test::ospitiDiProva(t.archivio());
    QTemporaryDir cartella;
    const QString file
        = QDir(cartella.path())
              .filePath(QStringLiteral("Schede Notifica del ")
                        + QDate::currentDate().toString(QStringLiteral("ddMMyyyy")) + QStringLiteral(".txt"));
    const QStringList argomenti = QStringList { QStringLiteral("--archivio"), t.percorso() } + periodo()
        + QStringList { QStringLiteral("--cartella"), cartella.path() };
    auto e = test::eseguiCli(QStringLiteral("schedine"), argomenti);
    QCOMPARE(e.err, QString());
    QCOMPARE(e.out, QStringLiteral("Esportate 5 schede di notifica!\n"));
    QCOMPARE(e.codice, 0);
    QCOMPARE(
        leggiFile(file),
        leggiFile(qEnvironmentVariable("TOMVERA_TEST_DIR") + QStringLiteral("/data/schede_famiglia_e_gruppo.txt")));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                                "WHERE StatoInvioTelematico LIKE 'Creato il % alle __:__:__'")),
             QVariant(6));

    // All sent: nothing listed, and the day's file goes.
    e = test::eseguiCli(QStringLiteral("schedine"), argomenti);
    QCOMPARE(e.out, QStringLiteral("Nessuna riga selezionata\n"));
    QCOMPARE(e.codice, 1);
    QVERIFY(!QFile::exists(file));
}

void TestComandoSchedine::multiAzienda()
{
    test::ArchivioTemporaneo t;
    const auto o = test::ospitiDiProva(t.archivio());
    t.archivio().comando(QStringLiteral("INSERT INTO Configurazioni (RagSociale) SELECT '' "
                                        "WHERE NOT EXISTS (SELECT 1 FROM Configurazioni)"));
    t.archivio().comando(QStringLiteral("UPDATE Configurazioni SET MultiAzienda = 1"));
    t.archivio().comando(QStringLiteral("UPDATE TabellaAnagraficheAssociatePrenotazioni SET CodiceAzienda = 'B' "
                                        "WHERE Indice = ?"),
                         { o.bianchi });
    QTemporaryDir cartella;
    const QStringList base = QStringList { QStringLiteral("--archivio"), t.percorso() } + periodo();
    auto e = test::eseguiCli(QStringLiteral("schedine"),
                             base + QStringList { QStringLiteral("--cartella"), cartella.path() });
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.err, QStringLiteral("ATTENZION!Selezionare Azienda\n"));
    QVERIFY(QDir(cartella.path()).isEmpty());

    e = test::eseguiCli(
        QStringLiteral("schedine"),
        base + QStringList { QStringLiteral("--azienda"), QStringLiteral("B"), QStringLiteral("--controlla") });
    QCOMPARE(e.out, QString::number(o.bianchi) + QStringLiteral("\tBianchi\tAnna\tNessun Errore\n"));
    e = test::eseguiCli(QStringLiteral("schedine"),
                        base
                            + QStringList { QStringLiteral("--azienda"), QStringLiteral("B"),
                                            QStringLiteral("--cartella"), cartella.path() });
    QCOMPARE(e.out, QStringLiteral("Esportate 1 schede di notifica!\n"));
    QCOMPARE(e.codice, 0);
}

void TestComandoSchedine::argomentiErrati()
{
    test::ArchivioTemporaneo t;
    QTemporaryDir cartella;
    const QStringList base = QStringList { QStringLiteral("--archivio"), t.percorso() } + periodo();
    const QList<QStringList> errati {
        base,
        base + QStringList { QStringLiteral("--controlla"), QStringLiteral("--cartella"), cartella.path() },
        base + QStringList { QStringLiteral("--cartella"), QDir(cartella.path()).filePath(QStringLiteral("no")) },
        base + QStringList { QStringLiteral("--controlla"), QStringLiteral("--sconosciuta") },
        base + QStringList { QStringLiteral("--controlla"), QStringLiteral("--tutte"), QStringLiteral("--tutte") },
        base + QStringList { QStringLiteral("--controlla"), QStringLiteral("--tutte=si") },
        { QStringLiteral("--archivio"), t.percorso(), QStringLiteral("--dal"), QStringLiteral("31/02/2026"),
          QStringLiteral("--al"), QStringLiteral("06/03/2026"), QStringLiteral("--controlla") },
        QStringList { QStringLiteral("--archivio"), QDir(cartella.path()).filePath(QStringLiteral("manca.mdb")) }
            + periodo() + QStringList { QStringLiteral("--controlla") },
    };
    for (const QStringList& a : errati) {
        const auto e = test::eseguiCli(QStringLiteral("schedine"), a);
        QVERIFY2(e.codice == 2, qPrintable(a.join(QLatin1Char(' '))));
        QVERIFY(!e.err.isEmpty());
        QCOMPARE(e.out, QString());
    }
    QVERIFY(QDir(cartella.path()).isEmpty());
}

TOMVERA_TEST(TestComandoSchedine)

#include "test_cli_schedine.moc"
