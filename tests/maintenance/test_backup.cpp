#include "archiviotemporaneo.h"
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/utenticollegati.h"
#include "maintenance/backup.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;
using backup::Manutenzione;

namespace {

// A live archive with one known row, a work folder and a switch for "others are in".
struct Banco
{
    test::ArchivioTemporaneo archivio;
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
    void laCopiaDiOggiNonSiCancellaMai();
    void nomiDal2029al2031();
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

    QTemporaryDir cartella;
    for (const QString& n : nomi)
        tocca(QDir(cartella.path()).filePath(n));
    tocca(QDir(cartella.path()).filePath(QStringLiteral("note.txt")));
    QCOMPARE(backup::CancellaFile(cartella.path(), 3, QDate(2026, 1, 15)).size(), 2);
    QCOMPARE(QDir(cartella.path()).entryList(QDir::Files, QDir::Name),
             (QStringList { QStringLiteral("010126.mdb"), QStringLiteral("020126.mdb"), QStringLiteral("150126.mdb"),
                            QStringLiteral("note.txt") }));
}

void TestBackup::laCopiaDiOggiNonSiCancellaMai()
{
    const QStringList nomi
        = { QStringLiteral("vecchio.mdb"), QStringLiteral("010126.mdb"), QStringLiteral("020126.mdb") };
    // Zero or less is no longer "delete every dated copy": at least one stays, and never today's.
    for (int zero : { 0, -1 })
        QCOMPARE(backup::backupDaCancellare(nomi, zero, QStringLiteral("020126.mdb")),
                 QStringList { QStringLiteral("010126.mdb") });
    QCOMPARE(backup::numeroDaMantenere(0), 7);
    QCOMPARE(backup::numeroDaMantenere(-4), 7);
    QCOMPARE(backup::numeroDaMantenere(3), 3);
    // A clock set back: today's copy is older than one already in the folder, and still stays.
    QCOMPARE(backup::backupDaCancellare({ QStringLiteral("050126.mdb"), QStringLiteral("010126.mdb") }, 1,
                                        QStringLiteral("010126.mdb")),
             QStringList { QStringLiteral("050126.mdb") });

    // A start with the old setting 0 keeps today's copy and a week's worth in all.
    Banco b;
    QTemporaryDir destinazione;
    Configurazione configurazione;
    configurazione.SalvataggioAutomatico = true;
    configurazione.NumeroBackupDaMantenere = 0;
    configurazione.PercorsoBackupAutomatico = destinazione.path();
    const QDate oggi(2026, 11, 16);
    for (int giorni = 1; giorni <= 10; ++giorni)
        tocca(QDir(destinazione.path()).filePath(backup::nomeFileBackup(oggi.addDays(-giorni))));
    QVERIFY(b.manutenzione.ControllaSalvataggioAutomatico(backup::impostazioniDa(configurazione), oggi));
    const QStringList rimasti = QDir(destinazione.path()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(rimasti.size(), 7);
    QVERIFY(rimasti.contains(QStringLiteral("161126.mdb")));
    QVERIFY(rimasti.contains(QStringLiteral("101126.mdb")));
    QVERIFY(!rimasti.contains(QStringLiteral("091126.mdb")));
    QCOMPARE(nomeIn(QDir(destinazione.path()).filePath(QStringLiteral("161126.mdb"))), QStringLiteral("originale"));
}

void TestBackup::nomiDal2029al2031()
{
    // The date mask reads 30..99 as 19xx; a backup's name is always this century.
    QCOMPARE(backup::dataDaNomeBackup(QStringLiteral("311229.mdb")), QDate(2029, 12, 31));
    QCOMPARE(backup::dataDaNomeBackup(QStringLiteral("010130.mdb")), QDate(2030, 1, 1));
    QCOMPARE(backup::dataDaNomeBackup(QStringLiteral("150631.mdb")), QDate(2031, 6, 15));
    QCOMPARE(backup::nomeFileBackup(QDate(2031, 6, 15)), QStringLiteral("150631.mdb"));
    QCOMPARE(backup::dataDaNomeBackup(backup::nomeFileBackup(QDate(2099, 12, 31))), QDate(2099, 12, 31));

    // A pass in 2031 keeps the newest copies, across the turn of 2030.
    QTemporaryDir cartella;
    for (const char* nome : { "301229.mdb", "311229.mdb", "010130.mdb", "140631.mdb", "150631.mdb" })
        tocca(QDir(cartella.path()).filePath(QLatin1String(nome)));
    QCOMPARE(backup::CancellaFile(cartella.path(), 3, QDate(2031, 6, 15)).size(), 2);
    QCOMPARE(
        QDir(cartella.path()).entryList(QDir::Files, QDir::Name),
        (QStringList { QStringLiteral("010130.mdb"), QStringLiteral("140631.mdb"), QStringLiteral("150631.mdb") }));
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
    void copiaDiSicurezzaDopoUnCrash();
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

    // No backup chosen, a missing file, files that are no archive of ours.
    const auto rifiuta = [&](const QString& file, const QString& messaggio) {
        i.rispondiSi();
        i.rispondiInput(QStringLiteral("si"));
        QVERIFY(!b.manutenzione.RipristinaDb(file));
        QVERIFY2(i.ultimoTesto().startsWith(messaggio), qPrintable(i.ultimoTesto()));
    };
    const QString problemi = QStringLiteral("Problemi nella procedura di ripristino ... ripristino non effettuato");
    rifiuta(QString(), QStringLiteral("Percorso non impostato correttamente"));
    rifiuta(QDir(altrove.path()).filePath(QStringLiteral("manca.mdb")), problemi);
    const QString testo = QDir(altrove.path()).filePath(QStringLiteral("note.mdb"));
    tocca(testo);
    rifiuta(testo, QStringLiteral("Il file non è un archivio di Tomvera: "));
    const QString vuoto = QDir(altrove.path()).filePath(QStringLiteral("vuoto.mdb"));
    QFile(vuoto).open(QIODevice::WriteOnly);
    rifiuta(vuoto, QStringLiteral("Il file è vuoto (0 byte), non è un archivio di Tomvera: "));
    const auto sqlite = [&](const char* nome, const char* tabella) {
        const QString percorso = QDir(altrove.path()).filePath(QLatin1String(nome));
        GestioneErrori errori;
        {
            Archivio a(percorso, errori);
            a.apri(Archivio::Apertura::Crea);
            a.comando(QStringLiteral("CREATE TABLE ") + QLatin1String(tabella) + QStringLiteral(" (x TEXT)"));
        }
        Archivio::chiudiConnessioni(percorso);
        return percorso;
    };
    rifiuta(sqlite("rubrica.mdb", "Contatti"),
            QStringLiteral("Il file non è un archivio di Tomvera (manca la tabella "));
    rifiuta(sqlite("ArchivioSky.mdb", "TabellaCamereSky"), QStringLiteral("Il file è l'archivio della pay-TV"));
    QVERIFY(i.ultimoTesto().endsWith(QStringLiteral("\nRipristino non effettuato")));
    b.occupato = true;
    rifiuta(buono,
            QStringLiteral("IN QUESTO MOMENTO L'ARCHIVIO RISULTA OCCUPATO, \n RITENTARE L'OPERAZIONE DOPO AVER "
                           "RIAVVIATO IL PROGRAMMA"));
    QCOMPARE(nomeIn(b.archivio.percorso()), QStringLiteral("originale"));
    // Nothing was touched: no safety copy either.
    QVERIFY(QDir(b.lavoro.path()).entryList({ QStringLiteral("copia*") }, QDir::Files).isEmpty());

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

    const auto condiviso = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser
        | QFileDevice::WriteUser | QFileDevice::ReadGroup | QFileDevice::WriteGroup;
    QVERIFY(QFile::setPermissions(b.archivio.percorso(), condiviso));
    b.interazione().rispondiSi();
    b.interazione().rispondiInput(QStringLiteral("Si"));
    QVERIFY(b.manutenzione.RipristinaDb(salvato));
#ifndef Q_OS_WIN
    // The restored archive takes the place of the old one, permissions included.
    QCOMPARE(QFile::permissions(b.archivio.percorso()), condiviso);
#endif
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Procedura terminata, riavviare il programma"));
    QCOMPARE(nomeIn(b.archivio.percorso()), QStringLiteral("originale"));
    const QString prima = b.manutenzione.percorsoCopia();
    QVERIFY(QFileInfo(prima).fileName().startsWith(QStringLiteral("copia_")));
    QCOMPARE(QFileInfo(prima).absolutePath(), QFileInfo(b.lavoro.path()).absoluteFilePath());
    QCOMPARE(nomeIn(prima), QStringLiteral("modificato"));
#ifndef Q_OS_WIN
    // The hotel's whole data: readable by its owner only.
    QCOMPARE(QFile::permissions(prima) & ~(QFileDevice::ReadUser | QFileDevice::WriteUser),
             QFileDevice::ReadOwner | QFileDevice::WriteOwner);
#endif
    QVERIFY(QFile::exists(salvato));

    // A second restore, in the same second too, keeps the first safety copy as it was.
    b.interazione().rispondiSi();
    b.interazione().rispondiInput(QStringLiteral("SI"));
    QVERIFY(b.manutenzione.RipristinaDb(salvato));
    QVERIFY(b.manutenzione.percorsoCopia() != prima);
    QCOMPARE(nomeIn(prima), QStringLiteral("modificato"));
    QCOMPARE(nomeIn(b.manutenzione.percorsoCopia()), QStringLiteral("originale"));
    QCOMPARE(QDir(b.lavoro.path()).entryList({ QStringLiteral("copia_*.mdb") }, QDir::Files).size(), 2);
}

void TestRipristino::copiaDiSicurezzaDopoUnCrash()
{
    // The state a crash leaves: pages of an unfinished transaction already in the file, the journal beside it.
    Banco b;
    QTemporaryDir crash;
    const QString archivio = QDir(crash.path()).filePath(QStringLiteral("Archivio.mdb"));
    QVERIFY(backup::copiaCompattata(b.archivio.percorso(), QDir(crash.path()).filePath(QStringLiteral("base.mdb"))));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("crash"));
        db.setDatabaseName(QDir(crash.path()).filePath(QStringLiteral("base.mdb")));
        QVERIFY(db.open());
        QSqlQuery q(db);
        // A tiny cache makes the engine write pages to the file before the commit.
        QVERIFY(q.exec(QStringLiteral("PRAGMA cache_size = 2")));
        QVERIFY(q.exec(QStringLiteral("BEGIN")));
        QVERIFY(q.exec(QStringLiteral("UPDATE Prova SET Nome = 'mai salvato'")));
        QVERIFY(q.exec(QStringLiteral("CREATE TABLE Grande (x TEXT)")));
        QVERIFY(q.exec(QStringLiteral("WITH RECURSIVE n(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM n WHERE k < 3000) "
                                      "INSERT INTO Grande SELECT hex(randomblob(300)) FROM n")));
        QVERIFY(QFile::exists(db.databaseName() + QStringLiteral("-journal")));
        QVERIFY(QFile::copy(db.databaseName(), archivio));
        QVERIFY(QFile::copy(db.databaseName() + QStringLiteral("-journal"), archivio + QStringLiteral("-journal")));
        q.exec(QStringLiteral("ROLLBACK"));
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("crash"));

    QTemporaryDir altrove;
    const QString salvato = QDir(altrove.path()).filePath(QStringLiteral("161126.mdb"));
    QVERIFY(backup::copiaCompattata(b.archivio.percorso(), salvato));
    Manutenzione manutenzione(b.interazione(), archivio, b.lavoro.path(), {});
    b.interazione().rispondiSi();
    b.interazione().rispondiInput(QStringLiteral("SI"));
    QVERIFY(manutenzione.RipristinaDb(salvato));
    // The safety copy holds the last committed state, whole.
    const QString copia = manutenzione.percorsoCopia();
    GestioneErrori errori;
    {
        Archivio a(copia, errori);
        QVERIFY(a.apri());
        QCOMPARE(a.valore(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
        QCOMPARE(a.valore(QStringLiteral("SELECT Nome FROM Prova")).toString(), QStringLiteral("originale"));
        QVERIFY(!a.esisteRiga(QStringLiteral("SELECT 1 FROM sqlite_master WHERE name = 'Grande'")));
    }
    Archivio::chiudiConnessioni(copia);
    QVERIFY(!QFile::exists(archivio + QStringLiteral("-journal")));
    QCOMPARE(nomeIn(archivio), QStringLiteral("originale"));
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
    // Shared with a group of users: the compacted file must stay so.
    const auto condiviso = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser
        | QFileDevice::WriteUser | QFileDevice::ReadGroup | QFileDevice::WriteGroup;
    QVERIFY(QFile::setPermissions(percorso, condiviso));
    i.rispondiInput(QStringLiteral("confermo"));
    i.rispondiSi();
    QVERIFY(b.manutenzione.OttimizzazioneArchivio());
#ifndef Q_OS_WIN
    QCOMPARE(QFile::permissions(percorso), condiviso);
#endif
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Ottimizzazione conclusa"));
    QVERIFY(QFileInfo(percorso).size() < prima);
    QCOMPARE(nomeIn(percorso), QStringLiteral("originale"));
    QVERIFY(!QFile::exists(QDir(b.lavoro.path()).filePath(QStringLiteral("vecchio.mdb"))));
    QVERIFY(i.errore().isEmpty());
}

TOMVERA_TEST(TestRipristino)

#include "test_backup.moc"
