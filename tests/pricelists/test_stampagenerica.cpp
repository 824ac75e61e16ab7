#include "archiviotemporaneo.h"
#include "reports/stampagenerica.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using namespace tomvera::reports;

// The generic list print through the work table Stampa.
class TestStampaGenerica : public QObject
{
    Q_OBJECT
private slots:
    void righeDellaTabella();
    void andataERitornoDallArchivio();
};

void TestStampaGenerica::righeDellaTabella()
{
    ContenutoStampa c;
    c.intestazioni = { QStringLiteral("Sveglie del: 10/05/2026") };
    c.titoliColonne = { QStringLiteral("Camera"), QStringLiteral("Ora") };
    c.righe = { { QStringLiteral("101"), QStringLiteral("7.30") }, { QStringLiteral("1204"), QStringLiteral("6.00") } };
    c.chiusura = { QStringLiteral("TOTALE: 2") };
    const QStringList righe = righeStampaGenerica(c, QDate(2026, 5, 10));
    const QString trattini(40, QLatin1Char('-'));
    // Cells padded to their column, so the table also reads in a fixed font.
    QCOMPARE(righe,
             QStringList({ "Data di Stampa: 10/05/2026", "Sveglie del: 10/05/2026", "Camera|Ora ", trattini,
                           "101   |7.30", "1204  |6.00", trattini, "TOTALE: 2" }));

    const ModelloStampa m = modelloDaRighe(righe, QStringLiteral("SVEGLIE"));
    QCOMPARE(m.testa, QStringList({ "Data di Stampa: 10/05/2026", "Sveglie del: 10/05/2026" }));
    QCOMPARE(m.colonne.size(), 2);
    QCOMPARE(m.colonne[0].titolo, QStringLiteral("Camera"));
    QVERIFY(m.colonne[0].aDestra); // room numbers are numbers
    QCOMPARE(m.righe, QList<QStringList>({ { "101", "7.30" }, { "1204", "6.00" } }));
    QCOMPARE(m.piede, QStringList { "TOTALE: 2" });

    // An empty list still prints its heading and both rules.
    const ModelloStampa vuoto = modelloDaRighe(righeStampaGenerica({}, QDate(2026, 5, 10)), QStringLiteral("X"));
    QCOMPARE(vuoto.testa, QStringList { "Data di Stampa: 10/05/2026" });
    QVERIFY(vuoto.righe.isEmpty());
}

void TestStampaGenerica::andataERitornoDallArchivio()
{
    test::ArchivioTemporaneo t;
    const QString lunga = QString(150, QLatin1Char('a')) + QLatin1Char('|') + QString(120, QLatin1Char('b'));
    QVERIFY(riempiStampa(t.archivio(), { QStringLiteral("vecchia stampa") }));
    // Each print starts from an empty table; a line longer than Descrizione survives whole.
    QVERIFY(riempiStampa(t.archivio(), { QStringLiteral("uno"), lunga, QStringLiteral("tre") }));
    QCOMPARE(leggiStampa(t.archivio()), QStringList({ "uno", lunga, "tre" }));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT max(length(Descrizione)) FROM Stampa")).toInt(), 200);
}

TOMVERA_TEST(TestStampaGenerica)

#include "test_stampagenerica.moc"
