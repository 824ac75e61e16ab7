#include "archiviotemporaneo.h"
#include "fotografie.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "maintenance/schermobackup.h"
#include "maintenance/ui/backupwidget.h"
#include "testmain.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;

class TestBackupWidget : public QObject
{
    Q_OBJECT
private slots:
    void eseguiECambiaCartella();
};

void TestBackupWidget::eseguiECambiaCartella()
{
    QTemporaryDir casa;
    qputenv("TOMVERA_HOME", casa.path().toUtf8());
    test::ArchivioTemporaneo archivio;
    OrologioFisso orologio(QDateTime(QDate(2026, 11, 16), QTime(9, 0)));
    Sessione sessione(archivio.interazione(), orologio, archivio.errori());
    sessione.PercorsoDB = archivio.percorso();
    auto& interazione = archivio.interazione();

    BackupWidget schermo(std::make_unique<SchermoBackup>(sessione, [](const QString&) { return false; }));
    schermo.show();
    auto* percorso = schermo.findChild<QLabel*>(QStringLiteral("PercorsoBackup"));
    // A fresh archive proposes the platform's backup folder.
    QVERIFY(percorso->text().contains(QStringLiteral("BackupTomvera")));

    const QString cartella = QDir(casa.path()).filePath(QStringLiteral("chiavetta"));
    interazione.rispondiCartella(cartella);
    QTest::mouseClick(schermo.findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
    QCOMPARE(percorso->text(), QDir::toNativeSeparators(cartella + QLatin1Char('/')));
    // Remembered in the archive for the next time, even by a fresh archive with no settings row yet.
    QCOMPARE(configurazione::leggi(archivio.archivio()).value().PercorsoBackup,
             QDir::toNativeSeparators(cartella + QLatin1Char('/')));

    interazione.rispondiSi(QStringLiteral("Eseguo il salvataggio archivio nel percorso indicato?"));
    QTest::mouseClick(schermo.findChild<QPushButton*>(QStringLiteral("BackupSuHd")), Qt::LeftButton);
    QVERIFY2(interazione.errore().isEmpty(), qPrintable(interazione.errore()));
    QCOMPARE(interazione.ultimoTesto(), QStringLiteral("PROCEDURA TERMINATA"));
    QVERIFY(QFile::exists(QDir(cartella).filePath(QStringLiteral("161126.mdb"))));

    test::fotografa(schermo, QStringLiteral("backup"));
    qunsetenv("TOMVERA_HOME");
}

TOMVERA_TEST(TestBackupWidget)

#include "test_backup_ui.moc"
