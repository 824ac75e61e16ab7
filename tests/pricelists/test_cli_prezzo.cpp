#include "archiviotemporaneo.h"
#include "eseguicli.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace tomvera;

// The contract of "tomvera-cli prezzo", run on the real program.
class TestComandoPrezzo : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void risposte_data();
    void risposte();
    void inputErrato_data();
    void inputErrato();

private:
    std::unique_ptr<test::ArchivioTemporaneo> m_t;
};

void TestComandoPrezzo::initTestCase()
{
    m_t = std::make_unique<test::ArchivioTemporaneo>();
    QVERIFY(m_t->archivio().comando(QStringLiteral(
        "INSERT INTO TabellaListinoCamere (Listino, CodiceTipologia, Dal, Al, Prezzo, Iva, Giorni) VALUES "
        "('Estate', 'DOPPIA', '01/06', '30/09', 90.5, 10, 1), ('Estate', 'DOPPIA', '01/06', '30/09', 560, 10, 7)")));
    QVERIFY(m_t->archivio().comando(QStringLiteral(
        "INSERT INTO TabellaListinoCamereAPersona (Listino, Trattamento, Dal, Al, Prezzo, Iva, Giorni) VALUES "
        "('Base', 'Mezza Pensione', '', '', 617283.945, 10, 1)")));
}

void TestComandoPrezzo::risposte_data()
{
    QTest::addColumn<QStringList>("chiave");
    QTest::addColumn<QString>("dal");
    QTest::addColumn<QString>("al");
    QTest::addColumn<QString>("uscita");
    const QStringList doppia { "--listino", "Estate", "--tipologia", "doppia" };
    QTest::newRow("settimana e due notti") << doppia << "01/06/2026"
                                           << "10/06/2026"
                                           << "741,00\ncompleto\n";
    QTest::newRow("fine stagione") << doppia << "28/09/2026"
                                   << "03/10/2026"
                                   << "271,50\nincompleto\n";
    QTest::newRow("a persona, migliaia") << QStringList { "--listino", "Base", "--trattamento", "Mezza Pensione" }
                                         << "01/01/2026"
                                         << "03/01/2026"
                                         << "1.234.567,89\ncompleto\n";
    QTest::newRow("listino sconosciuto") << QStringList { "--listino", "Inverno", "--tipologia", "DOPPIA" }
                                         << "01/01/2026"
                                         << "02/01/2026"
                                         << "0,00\nincompleto\n";
}

void TestComandoPrezzo::risposte()
{
    QFETCH(QStringList, chiave);
    QFETCH(QString, dal);
    QFETCH(QString, al);
    QFETCH(QString, uscita);
    const auto e = test::eseguiCli(QStringLiteral("prezzo"),
                                   QStringList { "--archivio", m_t->percorso() } + chiave
                                       + QStringList { "--dal", dal, "--al", al });
    QCOMPARE(e.err, QString());
    QCOMPARE(e.out, uscita);
    QCOMPARE(e.codice, 0);
}

void TestComandoPrezzo::inputErrato_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("messaggio");
    const QString a = m_t->percorso();
    const QStringList date { "--dal", "01/06/2026", "--al", "05/06/2026" };
    QTest::newRow("due chiavi") << QStringList { "--archivio",  a,        "--listino",     "Estate",
                                                 "--tipologia", "DOPPIA", "--trattamento", "Pernottamento" }
            + date << "Indicare una sola chiave: --tipologia CODICE oppure --trattamento PAROLA\n";
    QTest::newRow("data impossibile") << QStringList { "--archivio", a,       "--listino",  "Estate", "--tipologia",
                                                       "DOPPIA",     "--dal", "31/02/2026", "--al",   "05/03/2026" }
                                      << "Data non valida: 31/02/2026\n";
    QTest::newRow("al prima di dal") << QStringList { "--archivio", a,       "--listino",  "Estate", "--tipologia",
                                                      "DOPPIA",     "--dal", "05/06/2026", "--al",   "01/06/2026" }
                                     << "La data --al precede la data --dal\n";
    QTest::newRow("opzione sconosciuta") << QStringList { "--archivio",  a,        "--listino", "Estate",
                                                          "--tipologia", "DOPPIA", "--notti",   "3" }
            + date << "Opzione sconosciuta: --notti\n";
    const QString mancante = QDir(m_t->cartella()).filePath(QStringLiteral("Altro.mdb"));
    QTest::newRow("archivio mancante") << QStringList { "--archivio", mancante,      "--listino",
                                                        "Estate",     "--tipologia", "DOPPIA" }
            + date << "Archivio non trovato: " + mancante + "\n";
}

void TestComandoPrezzo::inputErrato()
{
    QFETCH(QStringList, argomenti);
    QFETCH(QString, messaggio);
    const auto e = test::eseguiCli(QStringLiteral("prezzo"), argomenti);
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.out, QString());
    QCOMPARE(e.err, messaggio);
    // Bad input never creates an archive.
    QVERIFY(!QFile::exists(QDir(m_t->cartella()).filePath(QStringLiteral("Altro.mdb"))));
}

TOMVERA_TEST(TestComandoPrezzo)

#include "test_cli_prezzo.moc"
