#include "archiviotemporaneo.h"
#include "eseguicli.h"
#include "foundation/utenticollegati.h"
#include "maintenance/backup.h"
#include "testmain.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

using namespace tomvera;

namespace {

QByteArray impronta(const QString& percorso)
{
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha256);
}

// A hotel's archive with one room, and what its folder holds: an error must leave both as they were.
struct Albergo
{
    test::ArchivioTemporaneo t;
    Albergo()
    {
        t.archivio().comando(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera) VALUES ('101')"));
        t.archivio().comando(QStringLiteral("INSERT INTO TabellaCodiciDocumenti (Codice, Documento) "
                                            "VALUES ('IDENT', 'CARTA DI IDENTITA''')"));
        Archivio::chiudiConnessioni(t.percorso());
    }
    QString percorso() const { return t.percorso(); }
    QString file(const QString& nome) const { return QDir(t.cartella()).filePath(nome); }
    QStringList contenuto() const { return QDir(t.cartella()).entryList(QDir::Files, QDir::Name); }
};

// TOMVERA_HOME roots the program's folder (where restores leave their safety copies) in a temporary one.
struct CasaTemporanea
{
    QTemporaryDir casa;
    QByteArray prima = qgetenv("TOMVERA_HOME");
    CasaTemporanea() { qputenv("TOMVERA_HOME", casa.path().toUtf8()); }
    ~CasaTemporanea()
    {
        if (prima.isEmpty())
            qunsetenv("TOMVERA_HOME");
        else
            qputenv("TOMVERA_HOME", prima);
    }
};

} // namespace

class TestContrattoCli : public QObject
{
    Q_OBJECT
private slots:
    void senzaArgomenti();
    void erroriSenzaScritture_data();
    void erroriSenzaScritture();
    void backupEdErrori();
    void ripristinoControUnComandoInCorso();
    void ripristinoConPercorsoRelativo();
    void archivioBloccatoDaUnoScrittore();
    void unComandoCheScriveSiRegistra();
};

void TestContrattoCli::senzaArgomenti()
{
    const auto e = test::eseguiCli(QStringLiteral("--help"));
    QCOMPARE(e.codice, 0);
    QVERIFY(e.out.startsWith(QStringLiteral("Uso: tomvera-cli")));
    // With nothing at all the usage is the error: on stderr, exit 2.
    QProcess nudo;
    nudo.start(QStringLiteral(TOMVERA_CLI), {});
    QVERIFY(nudo.waitForFinished(30000));
    QCOMPARE(nudo.exitCode(), 2);
    QVERIFY(nudo.readAllStandardOutput().isEmpty());
    QVERIFY(nudo.readAllStandardError().startsWith("Uso: tomvera-cli"));
}

void TestContrattoCli::erroriSenzaScritture_data()
{
    QTest::addColumn<QString>("comando");
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("errore"); // the start of the one line on stderr
    // "@A" stands for the archive, "@" + name for a file beside it.
    const QStringList archivio { QStringLiteral("--archivio"), QStringLiteral("@A") };
    const QStringList date { QStringLiteral("--dal"), QStringLiteral("01/07/2026"), QStringLiteral("--al"),
                             QStringLiteral("05/07/2026") };
    const struct
    {
        const char* comando;
        QStringList validi;
    } comandi[] = {
        { "crea-archivio", archivio },
        { "backup", archivio + QStringList { QStringLiteral("--cartella"), QStringLiteral("@copie") } },
        { "ripristina", archivio + QStringList { QStringLiteral("--file"), QStringLiteral("@Archivio.mdb") } },
        { "importa-codici",
          archivio
              + QStringList { QStringLiteral("--tabella"), QStringLiteral("documenti"), QStringLiteral("--file"),
                              QStringLiteral("@documenti.csv") } },
        { "crea-archivio-codici", archivio + QStringList { QStringLiteral("--cartella"), QStringLiteral("@csv") } },
        { "disponibilita", archivio + QStringList { QStringLiteral("--camera"), QStringLiteral("101") } + date },
        { "prezzo",
          archivio
              + QStringList { QStringLiteral("--listino"), QStringLiteral("Base"), QStringLiteral("--tipologia"),
                              QStringLiteral("DBL") }
              + date },
        { "genera-demo", archivio },
        { "tabellone", archivio + date },
        { "verifica-codice-fiscale", { QStringLiteral("RSSMRA85T10A562S") } },
        { "verifica-partita-iva", { QStringLiteral("06363391001") } },
    };
    for (const auto& c : comandi) {
        const QString nome = QLatin1String(c.comando);
        QTest::addRow("%s opzione sconosciuta", c.comando)
            << nome << c.validi + QStringList { QStringLiteral("--svuota"), QStringLiteral("1") }
            << QStringLiteral("Opzione sconosciuta: --svuota");
        QTest::addRow("%s parola in più", c.comando) << nome << c.validi + QStringList { QStringLiteral("avanti") }
                                                     << QStringLiteral("Argomento non previsto: avanti");
    }
    QTest::newRow("archivio ripetuto") << QStringLiteral("tabellone") << archivio + archivio + date
                                       << QStringLiteral("Opzione ripetuta: --archivio");
    QTest::newRow("codice fiscale vuoto") << QStringLiteral("verifica-codice-fiscale") << QStringList { QString() }
                                          << QStringLiteral("Il codice fiscale è vuoto");
    QTest::newRow("partita iva vuota") << QStringLiteral("verifica-partita-iva") << QStringList { QStringLiteral(" ") }
                                       << QStringLiteral("La partita IVA è vuota");
    QTest::newRow("demo su un archivio con camere")
        << QStringLiteral("genera-demo") << archivio << QStringLiteral("L'archivio contiene già camere o prenotazioni");
    QTest::newRow("backup di un file vuoto")
        << QStringLiteral("backup")
        << QStringList { QStringLiteral("--archivio"), QStringLiteral("@vuoto.mdb"), QStringLiteral("--cartella"),
                         QStringLiteral("@copie") }
        << QStringLiteral("Il file è vuoto (0 byte)");
    QTest::newRow("importazione di sola intestazione")
        << QStringLiteral("importa-codici")
        << archivio
            + QStringList { QStringLiteral("--tabella"), QStringLiteral("documenti"), QStringLiteral("--file"),
                            QStringLiteral("@intestazione.csv") }
        << QStringLiteral("Nessuna riga valida nel file, la tabella TabellaCodiciDocumenti non è stata modificata");
    QTest::newRow("importazione in UTF-16") << QStringLiteral("importa-codici")
                                            << archivio
            + QStringList { QStringLiteral("--tabella"), QStringLiteral("documenti"), QStringLiteral("--file"),
                            QStringLiteral("@utf16.csv") }
                                            << QStringLiteral("Il file è in UTF-16 o non è un testo");
    QTest::newRow("importazione con codici vuoti")
        << QStringLiteral("importa-codici")
        << archivio
            + QStringList { QStringLiteral("--tabella"), QStringLiteral("documenti"), QStringLiteral("--file"),
                            QStringLiteral("@senzacodici.csv") }
        << QStringLiteral("Nessuna riga valida nel file (riga 2: Codice vuoto)");
    QTest::newRow("ripristino di un altro programma")
        << QStringLiteral("ripristina")
        << archivio + QStringList { QStringLiteral("--file"), QStringLiteral("@vuoto.mdb") }
        << QStringLiteral("Il file è vuoto (0 byte)");
}

void TestContrattoCli::erroriSenzaScritture()
{
    QFETCH(QString, comando);
    QFETCH(QStringList, argomenti);
    QFETCH(QString, errore);
    Albergo a;
    CasaTemporanea casa;
    QFile(a.file(QStringLiteral("vuoto.mdb"))).open(QIODevice::WriteOnly);
    const auto scrivi = [&](const char* nome, const QByteArray& dati) {
        QFile f(a.file(QLatin1String(nome)));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(dati);
    };
    scrivi("documenti.csv", "Codice,Descrizione\nPASOR,PASSAPORTO ORDINARIO\n");
    scrivi("intestazione.csv", "Codice,Descrizione\r\n");
    scrivi("senzacodici.csv", "Codice,Descrizione\n,PASSAPORTO\n");
    const QString utf16 = QStringLiteral("Codice,Descrizione\nPASOR,PASSAPORTO\n");
    scrivi("utf16.csv",
           QByteArray("\xFF\xFE") + QByteArray(reinterpret_cast<const char*>(utf16.utf16()), utf16.size() * 2));
    for (QString& argomento : argomenti) {
        if (argomento == QLatin1String("@A"))
            argomento = a.percorso();
        else if (argomento.startsWith(QLatin1Char('@')))
            argomento = a.file(argomento.mid(1));
    }
    const QByteArray prima = impronta(a.percorso());
    const QStringList file = a.contenuto();

    const auto e = test::eseguiCli(comando, argomenti);
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.out, QString());
    QVERIFY2(e.err.startsWith(errore), qPrintable(e.err));
    QCOMPARE(e.err.count(QLatin1Char('\n')), 1);
    QCOMPARE(impronta(a.percorso()), prima);
    QCOMPARE(a.contenuto(), file);
    QVERIFY(QDir(casa.casa.path()).entryList(QDir::Files | QDir::NoDotAndDotDot).isEmpty());
}

void TestContrattoCli::backupEdErrori()
{
    Albergo a;
    const QString cartella = a.file(QStringLiteral("copie"));
    const auto e
        = test::eseguiCli(QStringLiteral("backup"),
                          { QStringLiteral("--archivio"), a.percorso(), QStringLiteral("--cartella"), cartella });
    QCOMPARE(e.codice, 0);
    const QString fatto = e.out.trimmed();
    QCOMPARE(QFileInfo(fatto).absolutePath(), QFileInfo(cartella).absoluteFilePath());
    QCOMPARE(backup::dataDaNomeBackup(QFileInfo(fatto).fileName()), QDate::currentDate());
    QVERIFY(backup::verificaArchivioTomvera(fatto).isEmpty());
    // A folder that is a file can't take it.
    const auto f
        = test::eseguiCli(QStringLiteral("backup"),
                          { QStringLiteral("--archivio"), a.percorso(), QStringLiteral("--cartella"), a.percorso() });
    QCOMPARE(f.codice, 2);
    QCOMPARE(f.err.count(QLatin1Char('\n')), 1);
}

void TestContrattoCli::ripristinoControUnComandoInCorso()
{
    Albergo a;
    CasaTemporanea casa;
    const QString salvato = a.file(QStringLiteral("161126.mdb"));
    QVERIFY(backup::copiaCompattata(a.percorso(), salvato));
    const QStringList argomenti { QStringLiteral("--archivio"), a.percorso(), QStringLiteral("--file"), salvato };

    // Another program (or command) registered in the archive: the restore must not pull it from under it.
    QProcess altro;
    altro.start(QStringLiteral(TOMVERA_AIUTANTE),
                { QStringLiteral("registra"), a.percorso(), QStringLiteral("BAR"), QStringLiteral("tomvera-cli") });
    QVERIFY(altro.waitForReadyRead(10000));
    QVERIFY(altro.readLine().startsWith("registrato"));
    const QByteArray prima = impronta(a.percorso());
    auto e = test::eseguiCli(QStringLiteral("ripristina"), argomenti);
    QCOMPARE(e.codice, 2);
    QCOMPARE(e.err,
             QStringLiteral("IN QUESTO MOMENTO L'ARCHIVIO RISULTA OCCUPATO, RITENTARE L'OPERAZIONE DOPO AVER "
                            "RIAVVIATO IL PROGRAMMA\n"));
    QCOMPARE(impronta(a.percorso()), prima);
    altro.kill();
    QVERIFY(altro.waitForFinished(10000));

    e = test::eseguiCli(QStringLiteral("ripristina"), argomenti);
    QCOMPARE(e.codice, 0);
    const QStringList righe = e.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(righe.size(), 2);
    QCOMPARE(righe.at(0), QStringLiteral("Procedura terminata, riavviare il programma"));
    QVERIFY(righe.at(1).startsWith(QStringLiteral("Copia di sicurezza: ")));
    QVERIFY(QFile::exists(righe.at(1).mid(20)));
    QVERIFY(QFileInfo(righe.at(1).mid(20)).fileName().startsWith(QStringLiteral("copia_")));
    // The command's own registration is gone with it.
    QCOMPARE(UtentiCollegatiDB(a.percorso()), 0);
}

void TestContrattoCli::ripristinoConPercorsoRelativo()
{
    Albergo a;
    CasaTemporanea casa;
    QVERIFY(backup::copiaCompattata(a.percorso(), a.file(QStringLiteral("161126.mdb"))));
    const QString qui = QDir::currentPath();
    QDir::setCurrent(a.t.cartella());
    const auto e = test::eseguiCli(QStringLiteral("ripristina"),
                                   { QStringLiteral("--archivio"), QStringLiteral("Archivio.mdb"),
                                     QStringLiteral("--file"), QStringLiteral("./161126.mdb") });
    QDir::setCurrent(qui);
    QVERIFY2(e.codice == 0, qPrintable(e.err));
}

void TestContrattoCli::archivioBloccatoDaUnoScrittore()
{
    // A writer that holds the archive beyond the wait (not registered, as an older program): busy, said as such.
    Albergo a;
    CasaTemporanea casa;
    const QString salvato = a.file(QStringLiteral("161126.mdb"));
    QVERIFY(backup::copiaCompattata(a.percorso(), salvato));
    QProcess scrittore;
    scrittore.start(QStringLiteral(TOMVERA_AIUTANTE),
                    { QStringLiteral("blocca"), a.percorso(), QStringLiteral("20000") });
    QVERIFY(scrittore.waitForReadyRead(10000));
    QCOMPARE(scrittore.readLine().trimmed(), QByteArray("bloccato"));
    auto e = test::eseguiCli(
        QStringLiteral("backup"),
        { QStringLiteral("--archivio"), a.percorso(), QStringLiteral("--cartella"), a.file(QStringLiteral("copie")) });
    QCOMPARE(e.codice, 2);
    QVERIFY2(e.err.startsWith(QStringLiteral("Backup non eseguito: Archivio occupato")), qPrintable(e.err));
    e = test::eseguiCli(QStringLiteral("ripristina"),
                        { QStringLiteral("--archivio"), a.percorso(), QStringLiteral("--file"), salvato });
    QCOMPARE(e.codice, 2);
    QVERIFY2(e.err.startsWith(QStringLiteral("IN QUESTO MOMENTO L'ARCHIVIO RISULTA OCCUPATO")), qPrintable(e.err));
    scrittore.kill();
    scrittore.waitForFinished(10000);
    QVERIFY(!QDir(a.file(QStringLiteral("copie"))).exists()
            || QDir(a.file(QStringLiteral("copie"))).isEmpty(QDir::Files | QDir::NoDotAndDotDot));
}

void TestContrattoCli::unComandoCheScriveSiRegistra()
{
    QTemporaryDir cartella;
    const QString archivio = QDir(cartella.path()).filePath(QStringLiteral("Archivio.mdb"));
    QProcess demo;
    demo.start(QStringLiteral(TOMVERA_CLI),
               { QStringLiteral("genera-demo"), QStringLiteral("--archivio"), archivio, QStringLiteral("--camere"),
                 QStringLiteral("300"), QStringLiteral("--anni"), QStringLiteral("5") });
    QVERIFY(demo.waitForStarted());
    bool visto = false;
    QElapsedTimer tempo;
    tempo.start();
    while (!visto && demo.state() == QProcess::Running && tempo.elapsed() < 30000) {
        for (const Collegato& c : UtentiCollegati::elenco(archivio))
            visto = visto || c.utente == QLatin1String("tomvera-cli");
        QThread::msleep(2);
    }
    demo.kill();
    demo.waitForFinished(10000);
    QVERIFY(visto);
}

TOMVERA_TEST(TestContrattoCli)

#include "test_cli_contratto.moc"
