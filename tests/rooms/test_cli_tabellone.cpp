#include "bancotabellone.h"
#include "eseguicli.h"
#include "testmain.h"

#include <QFile>
#include <QTest>

using namespace tomvera;
using test::giugno;

class TestComandoTabellone : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void righeDelPiano();
    void tuttiIPiani();
    void inputErrato_data();
    void inputErrato();

private:
    std::unique_ptr<test::BancoTabellone> m_b;
};

void TestComandoTabellone::initTestCase()
{
    m_b = std::make_unique<test::BancoTabellone>();
    Archivio& a = m_b->archivio();
    QVERIFY(a.comando(QStringLiteral("INSERT INTO Configurazioni (Righe, Colonne) VALUES (2, 3)")));
    // Table order is the board's order, not the number's.
    QVERIFY(m_b->camera(QStringLiteral("103"), 1, 2, 0));
    QVERIFY(m_b->camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(m_b->camera(QStringLiteral("102"), 1, 1, 0));
    QVERIFY(m_b->camera(QStringLiteral("104"), 1, 3, 0)); // outside the grid: not listed, still counted
    QVERIFY(m_b->camera(QStringLiteral("201"), 2, 0, 1));
    m_b->soggiorno(QStringLiteral("101"), giugno(9), giugno(12),
                   { QStringLiteral("Rossi"), QStringLiteral("Bianchi") });
    m_b->soggiorno(QStringLiteral("102"), giugno(9), giugno(11));
    m_b->soggiorno(QStringLiteral("102"), giugno(10), giugno(12));
    m_b->soggiorno(QStringLiteral("103"), giugno(9), giugno(11), {}, true);
    m_b->soggiorno(QStringLiteral("201"), giugno(12), giugno(14));
}

void TestComandoTabellone::cleanupTestCase()
{
    m_b.reset();
}

void TestComandoTabellone::righeDelPiano()
{
    const auto e = test::eseguiCli(QStringLiteral("tabellone"),
                                   { QStringLiteral("--archivio"), m_b->t.percorso(), QStringLiteral("--dal"),
                                     QStringLiteral("10/06/2026"), QStringLiteral("--al"), QStringLiteral("11/06/2026"),
                                     QStringLiteral("--piano"), QStringLiteral("1") });
    QCOMPARE(e.err, QString());
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out,
             QStringLiteral("103\tCamera Libera\t0\n"
                            "101\tCamera Occupata\t1\n"
                            "102\tCameraPiuPrenotazioni\t2\n"
                            "Camere Disponibili: 3\n"
                            "Persone Presenti: 2\n"));
}

void TestComandoTabellone::tuttiIPiani()
{
    // The 201 stay starts on the period's end: free by the strict rule.
    const auto e
        = test::eseguiCli(QStringLiteral("tabellone"),
                          { QStringLiteral("--archivio"), m_b->t.percorso(), QStringLiteral("--dal"),
                            QStringLiteral("11/06/2026"), QStringLiteral("--al"), QStringLiteral("12/06/2026") });
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out,
             QStringLiteral("103\tCamera Libera\t0\n"
                            "101\tCamera Occupata\t1\n"
                            "102\tCamera Occupata\t1\n"
                            "201\tCamera Libera\t0\n"
                            "Camere Disponibili: 3\n"
                            "Persone Presenti: 2\n"));
}

void TestComandoTabellone::inputErrato_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("errore");
    const QString archivio = m_b->t.percorso();
    const auto riga = [&](const char* nome, const QString& argomenti, const QString& errore) {
        QStringList lista = argomenti.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        lista.replaceInStrings(QStringLiteral("ARCH"), archivio);
        QTest::newRow(nome) << lista << errore;
    };
    riga("senza archivio", QStringLiteral("--dal 10/06/2026 --al 11/06/2026"),
         QStringLiteral("Indicare l'archivio con --archivio PERCORSO\n"));
    riga("data errata", QStringLiteral("--archivio ARCH --dal 31/02/2026 --al 11/06/2026"),
         QStringLiteral("Data non valida: 31/02/2026\n"));
    riga("senza al", QStringLiteral("--archivio ARCH --dal 10/06/2026"),
         QStringLiteral("Indicare la data con --al GG/MM/AAAA\n"));
    riga("al non dopo dal", QStringLiteral("--archivio ARCH --dal 10/06/2026 --al 10/06/2026"),
         QStringLiteral("La data --al deve seguire la data --dal\n"));
    riga("piano errato", QStringLiteral("--archivio ARCH --dal 10/06/2026 --al 11/06/2026 --piano uno"),
         QStringLiteral("Numero di piano non valido per --piano\n"));
    riga("opzione ignota", QStringLiteral("--archivio ARCH --dal 10/06/2026 --al 11/06/2026 --azienda A"),
         QStringLiteral("Opzione sconosciuta: --azienda\n"));
}

void TestComandoTabellone::inputErrato()
{
    QFETCH(QStringList, argomenti);
    QFETCH(QString, errore);
    const auto e = test::eseguiCli(QStringLiteral("tabellone"), argomenti);
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.err, errore);
    QCOMPARE(e.out, QString());
    // A missing archive is an error and is never created.
    const QString mancante = m_b->t.cartella() + QStringLiteral("/Mancante.mdb");
    const auto m
        = test::eseguiCli(QStringLiteral("tabellone"),
                          { QStringLiteral("--archivio"), mancante, QStringLiteral("--dal"),
                            QStringLiteral("10/06/2026"), QStringLiteral("--al"), QStringLiteral("11/06/2026") });
    QCOMPARE(m.codice, 2);
    QVERIFY(!QFile::exists(mancante));
}

TOMVERA_TEST(TestComandoTabellone)

#include "test_cli_tabellone.moc"
