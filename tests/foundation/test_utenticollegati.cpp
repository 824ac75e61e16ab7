#include "foundation/utenticollegati.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;

class TestUtentiCollegati : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void dueRegistrazioniNelloStessoProcesso();
    void processoUccisoSparisceSubito();

private:
    std::unique_ptr<QTemporaryDir> m_cartella;
    QString m_archivio;
};

void TestUtentiCollegati::init()
{
    m_cartella = std::make_unique<QTemporaryDir>();
    m_archivio = QDir(m_cartella->path()).filePath(QStringLiteral("Archivio.mdb"));
}

void TestUtentiCollegati::dueRegistrazioniNelloStessoProcesso()
{
    QCOMPARE(UtentiCollegati::percorsoFileBlocchi(m_archivio),
             QDir(m_cartella->path()).filePath(QStringLiteral("Archivio.ldb")));
    // No lock file yet: nobody, and reading doesn't create it.
    QCOMPARE(UtentiCollegatiDB(m_archivio), 0);
    QVERIFY(!QFile::exists(UtentiCollegati::percorsoFileBlocchi(m_archivio)));

    UtentiCollegati reception;
    UtentiCollegati ufficio;
    QVERIFY(reception.registra(m_archivio, QStringLiteral("RECEPTION"), QStringLiteral("Mario")));
    QVERIFY(ufficio.registra(m_archivio, QStringLiteral("UFFICIO"), QStringLiteral("Anna")));
    QCOMPARE(reception.posizione(), 0);
    QCOMPARE(ufficio.posizione(), 1);

    auto elenco = UtentiCollegati::elenco(m_archivio);
    QCOMPARE(elenco.size(), 2);
    QCOMPARE(elenco.at(0).macchina, QStringLiteral("RECEPTION"));
    QCOMPARE(elenco.at(0).utente, QStringLiteral("Mario"));
    QCOMPARE(elenco.at(1).macchina, QStringLiteral("UFFICIO"));
    QCOMPARE(elenco.at(1).utente, QStringLiteral("Anna"));

    // A freed slot is no longer listed and is the next one taken.
    reception.rilascia();
    QVERIFY(!reception.registrato());
    elenco = UtentiCollegati::elenco(m_archivio);
    QCOMPARE(elenco.size(), 1);
    QCOMPARE(elenco.at(0).utente, QStringLiteral("Anna"));
    UtentiCollegati cucina;
    QVERIFY(cucina.registra(m_archivio, QStringLiteral("CUCINA"), QStringLiteral("Luca")));
    QCOMPARE(cucina.posizione(), 0);
    QCOMPARE(UtentiCollegatiDB(m_archivio), 2);

    // Registering again moves the registration, it doesn't add one. Names are cut at 32 bytes, never inside
    // a character ('è' is two bytes).
    QVERIFY(cucina.registra(m_archivio, QStringLiteral("  PC-Niccolò  "), QString(40, QChar(0x00E8))));
    QCOMPARE(UtentiCollegatiDB(m_archivio), 2);
    QCOMPARE(UtentiCollegati::elenco(m_archivio).at(0).macchina, QStringLiteral("PC-Niccolò"));
    QCOMPARE(UtentiCollegati::elenco(m_archivio).at(0).utente, QString(16, QChar(0x00E8)));
}

void TestUtentiCollegati::processoUccisoSparisceSubito()
{
    UtentiCollegati qui;
    QVERIFY(qui.registra(m_archivio, QStringLiteral("RECEPTION"), QStringLiteral("Mario")));

    QProcess altro;
    altro.start(QStringLiteral(TOMVERA_AIUTANTE),
                { QStringLiteral("registra"), m_archivio, QStringLiteral("SALA"), QStringLiteral("Giulia") });
    QVERIFY(altro.waitForStarted());
    QVERIFY(altro.waitForReadyRead(10000));
    QCOMPARE(altro.readLine().trimmed(), QByteArray("registrato 1"));

    auto elenco = UtentiCollegati::elenco(m_archivio);
    QCOMPARE(elenco.size(), 2);
    QCOMPARE(elenco.at(1).macchina, QStringLiteral("SALA"));
    QCOMPARE(elenco.at(1).utente, QStringLiteral("Giulia"));

    // SIGKILL (TerminateProcess on Windows): no clean-up runs, the system drops the lock.
    altro.kill();
    QVERIFY(altro.waitForFinished(10000));
    elenco = UtentiCollegati::elenco(m_archivio);
    QCOMPARE(elenco.size(), 1);
    QCOMPARE(elenco.at(0).utente, QStringLiteral("Mario"));

    // Its slot, names still written in it, is free for the next user.
    UtentiCollegati dopo;
    QVERIFY(dopo.registra(m_archivio, QStringLiteral("BAR"), QStringLiteral("Paolo")));
    QCOMPARE(dopo.posizione(), 1);
    QCOMPARE(UtentiCollegati::elenco(m_archivio).at(1).utente, QStringLiteral("Paolo"));
}

TOMVERA_TEST(TestUtentiCollegati)

#include "test_utenticollegati.moc"
