#include "archivioospiti.h"
#include "eseguicli.h"
#include "guests/tabellecodici.h"
#include "testmain.h"

#include <QFile>
#include <QTest>

using namespace tomvera;

class TestComandiCodici : public QObject
{
    Q_OBJECT
private slots:
    void verificaCodiceFiscale_data();
    void verificaCodiceFiscale();
    void verificaPartitaIva();
    void importaCodici();
    void importaCodiciInputErrato_data();
    void importaCodiciInputErrato();
};

void TestComandiCodici::verificaCodiceFiscale_data()
{
    QTest::addColumn<QString>("codice");
    QTest::addColumn<int>("esito");
    QTest::addColumn<QString>("uscita");
    QTest::newRow("buono, minuscolo") << QStringLiteral("rssmra85t10a562s") << 0
                                      << QStringLiteral("RSSMRA85T10A562S\n");
    QTest::newRow("carattere errato") << QStringLiteral("RSSMRA85T10A562T") << 1
                                      << QStringLiteral("RSSMRA85T10A562T\nIl codice fiscale non è corretto \n");
    QTest::newRow("corto") << QStringLiteral("rssmra") << 1
                           << QStringLiteral("RSSMRA\nil codice fiscale dovrebbe essere lungo 16 caratteri.\n");
}

void TestComandiCodici::verificaCodiceFiscale()
{
    QFETCH(QString, codice);
    QFETCH(int, esito);
    QFETCH(QString, uscita);
    const auto e = test::eseguiCli(QStringLiteral("verifica-codice-fiscale"), { codice });
    QCOMPARE(e.codice, esito);
    QCOMPARE(e.out, uscita);
    QCOMPARE(e.err, QString());
}

void TestComandiCodici::verificaPartitaIva()
{
    auto e = test::eseguiCli(QStringLiteral("verifica-partita-iva"), { QStringLiteral("06363391001") });
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out, QString());
    e = test::eseguiCli(QStringLiteral("verifica-partita-iva"), { QStringLiteral("06363391002") });
    QCOMPARE(e.codice, 1);
    QCOMPARE(e.out, QStringLiteral("Controllare Partita Iva\n"));
    e = test::eseguiCli(QStringLiteral("verifica-partita-iva"));
    QCOMPARE(e.codice, 2);
    QVERIFY(!e.err.isEmpty());
}

void TestComandiCodici::importaCodici()
{
    test::ArchivioOspiti t;
    const QString csv = t.cartella() + QStringLiteral("/documenti.csv");
    QFile f(csv);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("Codice,Descrizione\r\nIDENT,CARTA DI IDENTITA'\r\nPASOR,PASSAPORTO ORDINARIO\r\n");
    f.close();
    auto e = test::eseguiCli(QStringLiteral("importa-codici"),
                             { QStringLiteral("--archivio"), t.percorso(), QStringLiteral("--tabella"),
                               QStringLiteral("documenti"), QStringLiteral("--file"), csv });
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out, QStringLiteral("2 righe importate in TabellaCodiciDocumenti\n"));
    e = test::eseguiCli(QStringLiteral("importa-codici"),
                        { QStringLiteral("--archivio"), t.percorso(), QStringLiteral("--tabella"),
                          QStringLiteral("tipoalloggiato"), QStringLiteral("--file"),
                          qEnvironmentVariable("TOMVERA_TEST_DIR") + QStringLiteral("/data/codici_ufficiali.xls") });
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out, QStringLiteral("5 righe importate in TabellaCodiciTipoAlloggiato\n"));
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("CAPOGRUPPO"), QStringLiteral("Tipo Alloggiato")),
             QStringLiteral("18"));
}

void TestComandiCodici::importaCodiciInputErrato_data()
{
    QTest::addColumn<QStringList>("argomenti");
    const QString xls = qEnvironmentVariable("TOMVERA_TEST_DIR") + QStringLiteral("/data/codici_ufficiali.xls");
    QTest::newRow("tabella sconosciuta") << QStringList { QStringLiteral("--tabella"), QStringLiteral("regioni"),
                                                          QStringLiteral("--file"), xls };
    QTest::newRow("file mancante") << QStringList { QStringLiteral("--tabella"), QStringLiteral("comuni"),
                                                    QStringLiteral("--file"), QStringLiteral("/non/esiste.csv") };
    QTest::newRow("foglio mancante") << QStringList { QStringLiteral("--tabella"), QStringLiteral("comuni"),
                                                      QStringLiteral("--file"),    xls,
                                                      QStringLiteral("--foglio"),  QStringLiteral("V_STATI") };
    // The lodging-type sheet has two columns: too few for the municipalities.
    QTest::newRow("colonne insufficienti")
        << QStringList { QStringLiteral("--tabella"), QStringLiteral("comuni"), QStringLiteral("--file"), xls,
                         QStringLiteral("--foglio"),  QStringLiteral("Foglio1") };
    QTest::newRow("opzione sconosciuta") << QStringList { QStringLiteral("--tabella"), QStringLiteral("comuni"),
                                                          QStringLiteral("--file"), xls, QStringLiteral("--svuota") };
}

void TestComandiCodici::importaCodiciInputErrato()
{
    QFETCH(QStringList, argomenti);
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("405028001"), QStringLiteral("Abano Terme"), QStringLiteral("PD"), QStringLiteral("35031"));
    const auto e = test::eseguiCli(QStringLiteral("importa-codici"),
                                   QStringList { QStringLiteral("--archivio"), t.percorso() } + argomenti);
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.out, QString());
    QCOMPARE(e.err.count(QLatin1Char('\n')), 1);
    // Nothing written: the table keeps its row and its postal code.
    QCOMPARE(
        t.archivio().valore(QStringLiteral("SELECT group_concat(Comune || Cap) FROM TabellaCodiciComuni")).toString(),
        QStringLiteral("Abano Terme35031"));
}

TOMVERA_TEST(TestComandiCodici)

#include "test_cli_codici.moc"
