#include "archiviotemporaneo.h"
#include "foundation/schema/definizione.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

class TestArchivio : public QObject
{
    Q_OBJECT
private slots:
    void testiSenzaMaiuscoleEDimensioni();
    void funzioniJet();
    void transazioneTuttoONiente();
};

void TestArchivio::testiSenzaMaiuscoleEDimensioni()
{
    test::ArchivioTemporaneo t(false);
    schema::Tabella tab { QStringLiteral("Prova"),
                          { schema::contatore(), schema::testo(QStringLiteral("Nome"), 5, false),
                            schema::doppio(QStringLiteral("Importo")) },
                          { schema::indice(QStringLiteral("SecondaryKey"), { QStringLiteral("Nome") }, true) },
                          {} };
    QVERIFY(schema::applicaTabella(t.archivio(), tab));
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES (?)"), { QStringLiteral("Rossi") }));
    QVERIFY(t.archivio().esisteRiga(QStringLiteral("SELECT * FROM Prova WHERE Nome = ?"), { QStringLiteral("ROSSI") }));
    // Too long, empty, and a duplicate differing only by case are all refused.
    QVERIFY(
        !t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES (?)"), { QStringLiteral("Bianchi") }));
    QVERIFY(!t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('')")));
    QVERIFY(!t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES ('rossi')")));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Prova")).toInt(), 1);
    QVERIFY(schema::allargaCampoTesto(t.archivio(), QStringLiteral("Prova"), QStringLiteral("Nome"), 10));
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO Prova (Nome) VALUES (?)"), { QStringLiteral("Bianchi") }));
}

void TestArchivio::funzioniJet()
{
    test::ArchivioTemporaneo t(false);
    auto v = [&](const char* sql) { return t.archivio().valore(QString::fromUtf8(sql)); };
    QCOMPARE(v("SELECT datevalue('15/06/2026')").toString(), QStringLiteral("2026-06-15"));
    QCOMPARE(v("SELECT datevalue('2026-06-15 10:20:00') < datevalue('16/6/26')").toInt(), 1);
    QCOMPARE(v("SELECT val('12abc')").toInt(), 12);
    QCOMPARE(v("SELECT val(' 1 2.5x')").toDouble(), 12.5);
    QCOMPARE(v("SELECT val('')").toInt(), 0);
    QCOMPARE(v("SELECT format(1234.565, '###,##0.00')").toString(), QStringLiteral("1.234,57"));
    QCOMPARE(v("SELECT format(3.5, '#')").toString(), QStringLiteral("4"));
    QCOMPARE(v("SELECT format('09:05:00', 'HH.MM')").toString(), QStringLiteral("09.05"));
    QCOMPARE(v("SELECT format('2026-03-01', 'dd/mm/yyyy')").toString(), QStringLiteral("01/03/2026"));
    QCOMPARE(v("SELECT isnull(NULL) + isnull(0)").toInt(), 1);
    QCOMPARE(v("SELECT trim('  a b  ')").toString(), QStringLiteral("a b"));
    QCOMPARE(v("SELECT left('Ombrellone', 4) || ucase('x')").toString(), QStringLiteral("OmbrX"));
    QCOMPARE(v("SELECT year('2026-03-01') * 100 + month('01/12/2025')").toInt(), 202612);
    QCOMPARE(v("SELECT timevalue('9.30')").toString(), QStringLiteral("09:30:00"));
    QVERIFY(t.archivio().comando(QStringLiteral("CREATE TABLE r (g INTEGER, x TEXT)")));
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO r VALUES (1,'a'),(1,'b'),(2,'c')")));
    QCOMPARE(v("SELECT group_concat(f) FROM (SELECT first(x) || last(x) AS f FROM r GROUP BY g ORDER BY g)").toString(),
             QStringLiteral("ab,cc"));
    // A non-date in datevalue is a statement error: skipped, not a crash.
    QVERIFY(!t.archivio().valore(QStringLiteral("SELECT datevalue('abc')")).isValid());
}

void TestArchivio::transazioneTuttoONiente()
{
    test::ArchivioTemporaneo t(false);
    QVERIFY(t.archivio().comando(QStringLiteral("CREATE TABLE a (x TEXT CHECK (length(x) <= 3))")));
    {
        Transazione tr(t.archivio());
        QVERIFY(tr.attiva());
        QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO a VALUES ('uno')")));
        // Skipped by the policy: the whole save must not land.
        QVERIFY(!t.archivio().comando(QStringLiteral("INSERT INTO a VALUES ('troppo')")));
        QVERIFY(!tr.commit());
    }
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM a")).toInt(), 0);
    {
        Transazione tr(t.archivio());
        QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO a VALUES ('due')")));
    } // no commit: rolled back
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM a")).toInt(), 0);
    {
        Transazione tr(t.archivio());
        QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO a VALUES ('tre')")));
        QVERIFY(tr.commit());
    }
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM a")).toInt(), 1);
}

TOMVERA_TEST(TestArchivio)
#include "test_archivio.moc"
