#include "archiviotemporaneo.h"
#include "foundation/archivio.h"
#include "foundation/utenticollegati.h"
#include "maintenance/backup.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;
using backup::Manutenzione;

namespace {

// A live archive with one known row, a work folder and a switch for "others are in".
struct Banco
{
    test::ArchivioTemporaneo archivio { false };
    QTemporaryDir lavoro;
    bool occupato = false;
    Manutenzione manutenzione { archivio.interazione(), archivio.percorso(), lavoro.path(),
                                [this](const QString&) { return occupato; } };

    Banco()
    {
        archivio.archivio().comando(QStringLiteral("CREATE TABLE Prova (Nome TEXT)"));
        archivio.archivio().comando(QStringLiteral("INSERT INTO Prova VALUES ('originale')"));
    }
    test::InterazioneScriptata& interazione() { return archivio.interazione(); }
};

QString nomeIn(const QString& file)
{
    GestioneErrori errori;
    errori.setPausa([](double) {});
    QString nome;
    {
        Archivio a(file, errori);
        if (a.apri())
            nome = a.valore(QStringLiteral("SELECT Nome FROM Prova")).toString();
    }
    Archivio::chiudiConnessioni(file);
    return nome;
}

void tocca(const QString& percorso)
{
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("x");
}

} // namespace

class TestBackup : public QObject
{
    Q_OBJECT
private slots:
    void nomiDatati();
    void conservazione();
    void copiaELoSalvataggioAutomatico();
    void backupManuale();
    void altriUtentiNellArchivio();
};

void TestBackup::nomiDatati()
{
    QCOMPARE(backup::nomeFileBackup(QDate(2026, 11, 16)), QStringLiteral("161126.mdb"));
    QCOMPARE(backup::nomeFileBackup(QDate(2027, 1, 5)), QStringLiteral("050127.mdb"));
    QCOMPARE(backup::dataDaNomeBackup(QStringLiteral("161126.mdb")), QDate(2026, 11, 16));
    QCOMPARE(backup::dataDaNomeBackup(QStringLiteral("16112026.mdb")), QDate(2026, 11, 16));
    QVERIFY(!backup::dataDaNomeBackup(QStringLiteral("copia.mdb")).isValid());
    QVERIFY(!backup::dataDaNomeBackup(QStringLiteral("311326.mdb")).isValid());
}

void TestBackup::conservazione()
{
    // By date, not by name: 311225 sorts after 010126 as text but is older.
    const QStringList nomi = { QStringLiteral("010126.mdb"), QStringLiteral("020126.mdb"), QStringLiteral("311225.mdb"),
                               QStringLiteral("150126.mdb"), QStringLiteral("301225.mdb") };
    QCOMPARE(backup::backupDaCancellare(nomi, 3),
             (QStringList { QStringLiteral("301225.mdb"), QStringLiteral("311225.mdb") }));
    QVERIFY(backup::backupDaCancellare(nomi, 5).isEmpty());
    // An undated file is never deleted but counts in the list.
    QCOMPARE(backup::backupDaCancellare(nomi + QStringList { QStringLiteral("vecchio.mdb") }, 5),
             QStringList { QStringLiteral("301225.mdb") });
    // Zero keeps nothing that has a date.
    QCOMPARE(backup::backupDaCancellare({ QStringLiteral("vecchio.mdb"), QStringLiteral("010126.mdb") }, 0),
             QStringList { QStringLiteral("010126.mdb") });

    QTemporaryDir cartella;
    for (const QString& n : nomi)
        tocca(QDir(cartella.path()).filePath(n));
    tocca(QDir(cartella.path()).filePath(QStringLiteral("note.txt")));
    QCOMPARE(backup::CancellaFile(cartella.path(), 3).size(), 2);
    QCOMPARE(QDir(cartella.path()).entryList(QDir::Files, QDir::Name),
             (QStringList { QStringLiteral("010126.mdb"), QStringLiteral("020126.mdb"), QStringLiteral("150126.mdb"),
                            QStringLiteral("note.txt") }));
}

void TestBackup::copiaELoSalvataggioAutomatico()
{
    Banco b;
    QTemporaryDir destinazione;
    backup::Impostazioni impostazioni;
    impostazioni.cartellaAutomatica = QDir(destinazione.path()).filePath(QStringLiteral("auto"));
    impostazioni.daMantenere = 2;
    const QDate oggi(2026, 11, 16);

    // Off: nothing.
    QVERIFY(!b.manutenzione.ControllaSalvataggioAutomatico(impostazioni, oggi));
    QVERIFY(!QDir(impostazioni.cartellaAutomatica).exists());

    impostazioni.salvataggioAutomatico = true;
    QDir().mkpath(impostazioni.cartellaAutomatica);
    for (const char* vecchio : { "101126.mdb", "111126.mdb", "121126.mdb" })
        tocca(QDir(impostazioni.cartellaAutomatica).filePath(QLatin1String(vecchio)));
    // Others writing don't stop the automatic pass: the copy is consistent anyway.
    b.occupato = true;
    QVERIFY(b.manutenzione.ControllaSalvataggioAutomatico(impostazioni, oggi));
    const QString fatto = QDir(impostazioni.cartellaAutomatica).filePath(QStringLiteral("161126.mdb"));
    QCOMPARE(nomeIn(fatto), QStringLiteral("originale"));
    QCOMPARE(b.interazione().testi(), QStringList { QStringLiteral("Backup in corso attendere ...") });
    QCOMPARE(QDir(impostazioni.cartellaAutomatica).entryList(QDir::Files, QDir::Name),
             (QStringList { QStringLiteral("121126.mdb"), QStringLiteral("161126.mdb") }));
    QVERIFY(QFile::exists(QDir(b.lavoro.path()).filePath(QStringLiteral("copia.mdb"))));

    // The second start of the day finds the file and does nothing.
    QVERIFY(!b.manutenzione.ControllaSalvataggioAutomatico(impostazioni, oggi));
    QCOMPARE(b.interazione().testi().size(), 1);
}

void TestBackup::backupManuale()
{
    Banco b;
    QTemporaryDir destinazione;
    const QDate oggi(2026, 11, 16);
    const QString file = QDir(destinazione.path()).filePath(QStringLiteral("161126.mdb"));

    b.interazione().rispondiNo(QStringLiteral("Eseguo il salvataggio archivio in: "));
    QVERIFY(b.manutenzione.EseguiBackup(destinazione.path(), oggi, Manutenzione::Origine::Configurazioni).isEmpty());
    QVERIFY(b.interazione().testi().first().endsWith(QDir::toNativeSeparators(file)));
    QVERIFY(!QFile::exists(file));

    b.occupato = true;
    b.interazione().rispondiSi(QStringLiteral("nel percorso indicato?"));
    QVERIFY(b.manutenzione.EseguiBackup(destinazione.path(), oggi, Manutenzione::Origine::SchermoBackup).isEmpty());
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("Database in uso\nChiudere le applicazioni di Tomvera attive e ritentare il Backup"));

    // A later backup of the same day replaces the day's file.
    b.occupato = false;
    tocca(file);
    b.interazione().rispondiSi();
    QCOMPARE(b.manutenzione.EseguiBackup(destinazione.path(), oggi, Manutenzione::Origine::SchermoBackup), file);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("PROCEDURA TERMINATA"));
    QCOMPARE(nomeIn(file), QStringLiteral("originale"));
    b.interazione().rispondiSi();
    b.manutenzione.EseguiBackup(destinazione.path(), oggi, Manutenzione::Origine::Configurazioni);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Backup Eseguito ") + QDir::toNativeSeparators(file));
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestBackup::altriUtentiNellArchivio()
{
    Banco b;
    const QString percorso = b.archivio.percorso();
    QVERIFY(!backup::archivioOccupato(percorso, 0));
    UtentiCollegati io;
    QVERIFY(io.registra(percorso, QStringLiteral("RECEPTION"), QStringLiteral("Amministratore")));
    // This program's own registration is not "others".
    QVERIFY(!backup::archivioOccupato(percorso, 1));
    QVERIFY(backup::archivioOccupato(percorso, 0));
    UtentiCollegati collega;
    QVERIFY(collega.registra(percorso, QStringLiteral("BAR"), QStringLiteral("Lucia")));
    QVERIFY(backup::archivioOccupato(percorso, 1));
    collega.rilascia();
    QVERIFY(!backup::archivioOccupato(percorso, 1));
}

TOMVERA_TEST(TestBackup)

class TestRipristino : public QObject
{
    Q_OBJECT
private slots:
    void rifiuti();
    void ripristinoConCopiaDiSicurezza();
    void ottimizzazione();
};

void TestRipristino::rifiuti()
{
    Banco b;
    QTemporaryDir altrove;
    const QString buono = QDir(altrove.path()).filePath(QStringLiteral("161126.mdb"));
    QVERIFY(backup::copiaCompattata(b.archivio.percorso(), buono));
    auto& i = b.interazione();

    i.rispondiNo(QStringLiteral("un errato ripristino"));
    QVERIFY(!b.manutenzione.RipristinaDb(buono));
    i.rispondiSi();
    i.rispondiInput(QStringLiteral("NO"), QStringLiteral("digitando: SI"));
    QVERIFY(!b.manutenzione.RipristinaDb(buono));
    i.rispondiSi();
    i.annullaInput();
    QVERIFY(!b.manutenzione.RipristinaDb(buono));
    QCOMPARE(i.messaggi().size(), 0);

    // No backup chosen, a missing file, a file that is no archive.
    const auto rifiuta = [&](const QString& file, const QString& messaggio) {
        i.rispondiSi();
        i.rispondiInput(QStringLiteral("si"));
        QVERIFY(!b.manutenzione.RipristinaDb(file));
        QCOMPARE(i.ultimoTesto(), messaggio);
    };
    const QString problemi = QStringLiteral("Problemi nella procedura di ripristino ... ripristino non effettuato");
    rifiuta(QString(), QStringLiteral("Percorso non impostato correttamente"));
    rifiuta(QDir(altrove.path()).filePath(QStringLiteral("manca.mdb")), problemi);
    const QString testo = QDir(altrove.path()).filePath(QStringLiteral("note.mdb"));
    tocca(testo);
    rifiuta(testo, problemi);
    b.occupato = true;
    rifiuta(buono,
            QStringLiteral("IN QUESTO MOMENTO L'ARCHIVIO RISULTA OCCUPATO, \n RITENTARE L'OPERAZIONE DOPO AVER "
                           "RIAVVIATO IL PROGRAMMA"));
    QCOMPARE(nomeIn(b.archivio.percorso()), QStringLiteral("originale"));

    // A destination on another machine is refused before anything is touched.
    for (const char* rete : { "\\\\server\\dati\\Archivio.mdb", "smb://server/dati/Archivio.mdb", "Archivio.mdb" }) {
        Manutenzione inRete(i, QString::fromUtf8(rete), b.lavoro.path(), {});
        i.rispondiSi();
        i.rispondiInput(QStringLiteral("SI"));
        QVERIFY(!inRete.RipristinaDb(buono));
        QCOMPARE(i.ultimoTesto(), QStringLiteral("Cartella di destinazione non valida"));
    }
    QVERIFY2(i.errore().isEmpty(), qPrintable(i.errore()));
    QVERIFY(i.risposteFinite());
}

void TestRipristino::ripristinoConCopiaDiSicurezza()
{
    Banco b;
    QTemporaryDir altrove;
    const QString salvato = QDir(altrove.path()).filePath(QStringLiteral("161126.mdb"));
    QVERIFY(backup::copiaCompattata(b.archivio.percorso(), salvato));
    QVERIFY(b.archivio.archivio().comando(QStringLiteral("UPDATE Prova SET Nome = 'modificato'")));

    b.interazione().rispondiSi();
    b.interazione().rispondiInput(QStringLiteral("Si"));
    QVERIFY(b.manutenzione.RipristinaDb(salvato));
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Procedura terminata, riavviare il programma"));
    QCOMPARE(nomeIn(b.archivio.percorso()), QStringLiteral("originale"));
    QCOMPARE(nomeIn(b.manutenzione.percorsoCopia()), QStringLiteral("modificato"));
    QVERIFY(QFile::exists(salvato));
}

void TestRipristino::ottimizzazione()
{
    Banco b;
    auto& i = b.interazione();
    const QString percorso = b.archivio.percorso();
    i.rispondiInput(QStringLiteral("Confermo"), QStringLiteral("DIGITARE: confermo"));
    QVERIFY(!b.manutenzione.OttimizzazioneArchivio());
    i.rispondiInput(QStringLiteral("confermo"));
    i.rispondiNo(QStringLiteral("CONFERMI L'OTTIMIZZAZIONE DEL DATABASE?"));
    QVERIFY(!b.manutenzione.OttimizzazioneArchivio());

    b.occupato = true;
    i.rispondiInput(QStringLiteral("confermo"));
    i.rispondiSi();
    QVERIFY(!b.manutenzione.OttimizzazioneArchivio());
    QCOMPARE(i.ultimoTesto(),
             QStringLiteral("Attenzione, il DataBase risulta occupato!\n\nChiudere la finestra delle "
                            "configurazioni e ritentare l'operazione."));

    b.occupato = false;
    // Make something to reclaim.
    QVERIFY(b.archivio.archivio().comando(QStringLiteral("CREATE TABLE Grande (x TEXT)")));
    QVERIFY(b.archivio.archivio().comando(
        QStringLiteral("WITH RECURSIVE n(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM n WHERE k < 2000) "
                       "INSERT INTO Grande SELECT hex(randomblob(200)) FROM n")));
    QVERIFY(b.archivio.archivio().comando(QStringLiteral("DROP TABLE Grande")));
    const qint64 prima = QFileInfo(percorso).size();
    i.rispondiInput(QStringLiteral("confermo"));
    i.rispondiSi();
    QVERIFY(b.manutenzione.OttimizzazioneArchivio());
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Ottimizzazione conclusa"));
    QVERIFY(QFileInfo(percorso).size() < prima);
    QCOMPARE(nomeIn(percorso), QStringLiteral("originale"));
    QVERIFY(!QFile::exists(QDir(b.lavoro.path()).filePath(QStringLiteral("vecchio.mdb"))));
    QVERIFY(i.errore().isEmpty());
}

TOMVERA_TEST(TestRipristino)

#include "test_backup.moc"
