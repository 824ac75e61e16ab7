#include "archiviotemporaneo.h"
#include "eseguicli.h"
#include "righeprova.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace tomvera;
using test::giugno;

class TestComandoDisponibilita : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void risposte_data();
    void risposte();
    void inputErrato_data();
    void inputErrato();
    void archivioInesistenteNonCreato();

private:
    std::unique_ptr<test::ArchivioTemporaneo> m_t;
    qint64 m_prenotazione = 0;
};

void TestComandoDisponibilita::initTestCase()
{
    m_t = std::make_unique<test::ArchivioTemporaneo>();
    test::RigheProva r(m_t->archivio());
    m_prenotazione = r.prenotazione();
    QVERIFY(m_prenotazione > 0);
    QVERIFY(r.movimentoCamera(m_prenotazione, QStringLiteral("101"), giugno(10), giugno(15)));
    QVERIFY(r.articolo(m_prenotazione, QStringLiteral("12"), QStringLiteral("OMB"), giugno(10), giugno(15)));
    QVERIFY(r.sala(m_prenotazione, QStringLiteral("CONGRESSI"), giugno(10), giugno(10), QStringLiteral("9.00"),
                   QStringLiteral("12.00")));
}

void TestComandoDisponibilita::cleanupTestCase()
{
    m_t.reset();
}

void TestComandoDisponibilita::risposte_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("risposta");
    const QString indice = QString::number(m_prenotazione);
    auto riga = [](const char* nome, const QString& argomenti, const char* risposta) {
        QTest::newRow(nome) << argomenti.split(QLatin1Char(' ')) << QString::fromLatin1(risposta);
    };
    riga("camera libera alla partenza", QStringLiteral("--camera 101 --dal 15/06/2026 --al 20/06/2026"), "libera");
    riga("camera occupata", QStringLiteral("--camera 101 --dal 14/06/2026 --al 16/06/2026"), "occupata");
    riga("camera esclusa", QStringLiteral("--camera 101 --dal 14/06/2026 --al 16/06/2026 --escludi ") + indice,
         "libera");
    riga("articolo a contatto", QStringLiteral("--articolo OMB --numero 12 --dal 15/06/2026 --al 20/06/2026"),
         "occupata");
    riga("articolo altro numero", QStringLiteral("--articolo OMB --numero 13 --dal 15/06/2026 --al 20/06/2026"),
         "libera");
    riga("sala stessa ora",
         QStringLiteral("--sala CONGRESSI --daora 11.00 --aora 13.00 --dal 10/06/2026 --al 10/06/2026"), "occupata");
    riga("sala dopo", QStringLiteral("--sala CONGRESSI --daora 12.00 --aora 14.00 --dal 10/06/2026 --al 10/06/2026"),
         "libera");
}

void TestComandoDisponibilita::risposte()
{
    QFETCH(QStringList, argomenti);
    QFETCH(QString, risposta);
    const auto e = test::eseguiCli(QStringLiteral("disponibilita"),
                                   QStringList { QStringLiteral("--archivio"), m_t->percorso() } + argomenti);
    QCOMPARE(e.err, QString());
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out, risposta + QLatin1Char('\n'));
}

void TestComandoDisponibilita::inputErrato_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("messaggio");
    auto riga = [this](const char* nome, const QString& argomenti, const char* messaggio) {
        QTest::newRow(nome) << (QStringList { QStringLiteral("--archivio"), m_t->percorso() }
                                + argomenti.split(QLatin1Char(' '), Qt::SkipEmptyParts))
                            << QString::fromUtf8(messaggio);
    };
    riga("data impossibile", QStringLiteral("--camera 101 --dal 31/02/2026 --al 20/06/2026"),
         "Data non valida: 31/02/2026");
    riga("data mancante", QStringLiteral("--camera 101 --dal 15/06/2026"), "Indicare la data con --al GG/MM/AAAA");
    riga("periodo rovesciato", QStringLiteral("--camera 101 --dal 20/06/2026 --al 15/06/2026"),
         "La data --al precede la data --dal");
    riga("nessuna risorsa", QStringLiteral("--dal 15/06/2026 --al 20/06/2026"), "Indicare una sola risorsa");
    riga("due risorse", QStringLiteral("--camera 101 --sala CONGRESSI --dal 15/06/2026 --al 20/06/2026"),
         "Indicare una sola risorsa");
    riga("articolo senza numero", QStringLiteral("--articolo OMB --dal 15/06/2026 --al 20/06/2026"),
         "Indicare il numero dell'articolo");
    riga("sala senza ore", QStringLiteral("--sala CONGRESSI --dal 10/06/2026 --al 10/06/2026"), "Indicare le ore");
    riga("ora sbagliata",
         QStringLiteral("--sala CONGRESSI --daora 25.00 --aora 26.00 --dal 10/06/2026 --al 10/06/2026"),
         "Ora non valida (formato HH.MM): 25.00");
    riga("opzione sconosciuta", QStringLiteral("--camera 101 --dal 15/06/2026 --al 20/06/2026 --piano 1"),
         "Opzione sconosciuta: --piano");
    riga("esclusione non numerica", QStringLiteral("--camera 101 --dal 15/06/2026 --al 20/06/2026 --escludi abc"),
         "Indice di prenotazione non valido per --escludi");
}

void TestComandoDisponibilita::inputErrato()
{
    QFETCH(QStringList, argomenti);
    QFETCH(QString, messaggio);
    const auto e = test::eseguiCli(QStringLiteral("disponibilita"), argomenti);
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.out, QString());
    QVERIFY2(e.err.startsWith(messaggio), qPrintable(e.err));
    QCOMPARE(e.err.count(QLatin1Char('\n')), 1);
}

void TestComandoDisponibilita::archivioInesistenteNonCreato()
{
    const QStringList periodo { QStringLiteral("--camera"),   QStringLiteral("101"),  QStringLiteral("--dal"),
                                QStringLiteral("15/06/2026"), QStringLiteral("--al"), QStringLiteral("20/06/2026") };
    const QString mancante = QDir(m_t->cartella()).filePath(QStringLiteral("Mancante.mdb"));
    auto e = test::eseguiCli(QStringLiteral("disponibilita"),
                             QStringList { QStringLiteral("--archivio"), mancante } + periodo);
    QCOMPARE(e.codice, 2);
    QVERIFY(e.err.startsWith(QStringLiteral("Archivio non trovato")));
    QVERIFY(!QFile::exists(mancante));

    // Not an archive at all, and an archive without the movements.
    const QString testo = QDir(m_t->cartella()).filePath(QStringLiteral("Note.mdb"));
    QFile f(testo);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("questo non e' un archivio, solo una nota lasciata qui per sbaglio\n");
    f.close();
    e = test::eseguiCli(QStringLiteral("disponibilita"), QStringList { QStringLiteral("--archivio"), testo } + periodo);
    QCOMPARE(e.codice, 2);
    QVERIFY(e.err.startsWith(QStringLiteral("Errore apertura Archivio")));
    QCOMPARE(e.out, QString());

    test::ArchivioTemporaneo vuoto(false, QStringLiteral("Vuoto.mdb"));
    QVERIFY(vuoto.archivio().comando(QStringLiteral("CREATE TABLE Altro (x INTEGER)")));
    e = test::eseguiCli(QStringLiteral("disponibilita"),
                        QStringList { QStringLiteral("--archivio"), vuoto.percorso() } + periodo);
    QCOMPARE(e.codice, 2);
    QVERIFY2(e.err.startsWith(QStringLiteral("L'archivio non contiene la tabella TabellaMovimenti")),
             qPrintable(e.err));

    e = test::eseguiCli(QStringLiteral("disponibilita"), periodo);
    QCOMPARE(e.codice, 2);
    QVERIFY(e.err.startsWith(QStringLiteral("Indicare l'archivio")));
}

TOMVERA_TEST(TestComandoDisponibilita)

#include "test_cli_disponibilita.moc"
