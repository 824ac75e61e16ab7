#include "foundation/piattaforma.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTextStream>
#include <QUrl>

namespace tomvera::piattaforma {

namespace {

QString radice()
{
    return qEnvironmentVariable("TOMVERA_HOME");
}

QString sottocartellaRadice(const QString& nome)
{
    return QDir(radice()).filePath(nome);
}

QString conSeparatore(const QString& cartella)
{
    return cartella.endsWith(QLatin1Char('/')) ? cartella : cartella + QLatin1Char('/');
}

bool scriviTesto(const QString& percorso, const QString& testo)
{
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    file.write(testo.toUtf8());
    return file.commit();
}

} // namespace

QString cartellaDocumenti()
{
    if (!radice().isEmpty())
        return sottocartellaRadice(QStringLiteral("Documenti"));
    const QString documenti = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return documenti.isEmpty() ? QDir::homePath() : documenti;
}

QString cartellaArchiviPredefinita()
{
    return QDir(cartellaDocumenti()).filePath(QStringLiteral("Archivi Tomvera"));
}

QString percorsoArchivioPredefinito()
{
    return QDir(cartellaArchiviPredefinita()).filePath(QStringLiteral("Archivio.mdb"));
}

QString percorsoArchivioSkyPredefinito()
{
    return QDir(cartellaArchiviPredefinita()).filePath(QStringLiteral("ArchivioSky.mdb"));
}

QString cartellaCondivisa()
{
    if (!radice().isEmpty())
        return sottocartellaRadice(QStringLiteral("ZRShared"));
#ifdef Q_OS_WIN
    return QStringLiteral("C:/ZRShared");
#else
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Tomvera/ZRShared"));
#endif
}

QString cartellaBackupPredefinita()
{
    if (!radice().isEmpty())
        return conSeparatore(sottocartellaRadice(QStringLiteral("BackupTomvera")));
#ifdef Q_OS_WIN
    return QStringLiteral("C:/BackupTomvera/");
#else
    return conSeparatore(QDir(cartellaDocumenti()).filePath(QStringLiteral("BackupTomvera")));
#endif
}

QString percorsoLocale(const QString& percorsoMemorizzato)
{
    const QString p = percorsoMemorizzato.trimmed();
    static const QString windows = QStringLiteral("c:\\BackupTomvera");
    if (p.isEmpty())
        return cartellaBackupPredefinita();
#ifndef Q_OS_WIN
    if (p.startsWith(windows, Qt::CaseInsensitive)) {
        QString resto = p.mid(windows.size());
        resto.replace(QLatin1Char('\\'), QLatin1Char('/'));
        while (resto.startsWith(QLatin1Char('/')))
            resto.remove(0, 1);
        return resto.isEmpty() ? cartellaBackupPredefinita() : cartellaBackupPredefinita() + resto;
    }
#endif
    return p;
}

QString cartellaProgramma()
{
    if (!radice().isEmpty())
        return sottocartellaRadice(QStringLiteral("Programma"));
    const QString eseguibile = QCoreApplication::applicationDirPath();
#ifdef Q_OS_WIN
    return eseguibile;
#else
    if (!eseguibile.isEmpty() && QFileInfo(eseguibile).isWritable())
        return eseguibile;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Tomvera"));
#endif
}

QString percorsoFileLaterale(const QString& nome)
{
    const QString cartella = cartellaProgramma();
    QDir().mkpath(cartella);
    return QDir(cartella).filePath(nome);
}

QString leggiPrimaRiga(const QString& percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QTextStream flusso(&file);
    return flusso.readLine().trimmed();
}

bool scriviRiga(const QString& percorso, const QString& testo)
{
    return scriviTesto(percorso, testo + QLatin1Char('\n'));
}

bool scriviProgrammaInf(const QString& cartella, const QString& versione, const QString& ragioneSociale,
                        const QString& percorsoProgramma)
{
    QDir().mkpath(cartella);
    const QString percorso = QDir(cartella).filePath(QStringLiteral("Programma.inf"));
    QFile::remove(percorso);
    return scriviTesto(percorso,
                       QStringLiteral("[Programma]\nProgramma=Tomvera\nVersione=") + versione
                           + QStringLiteral("\nRagioneSociale=") + ragioneSociale + QStringLiteral("\nPercorso=")
                           + percorsoProgramma + QLatin1Char('\n'));
}

bool scriviTiporaIni(const QString& cartella, const QString& cartellaArchivio)
{
    QDir().mkpath(cartella);
    const QString percorso = QDir(cartella).filePath(QStringLiteral("Tipora.ini"));
    QFile::remove(percorso);
    return scriviTesto(
        percorso, QStringLiteral("[Config]\nNomeDB=Stampe.mdb\nPercorsoDB=") + cartellaArchivio + QLatin1Char('\n'));
}

bool creaFilePrivato(const QString& percorso)
{
    // Created with its permissions in one step: no moment in which others could open it.
    QFile file(percorso);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

bool percorsoDiRete(const QString& percorso)
{
    const QString p = percorso.trimmed();
    if (p.startsWith(QLatin1String("\\\\")) || p.startsWith(QLatin1String("//")))
        return true;
    // smb://, nfs://, file://host/...: anything with a scheme is not a plain local file
    const int schema = p.indexOf(QLatin1String("://"));
    return schema > 1;
}

bool percorsoLocaleAssoluto(const QString& percorso)
{
    const QString p = percorso.trimmed();
    if (p.isEmpty() || percorsoDiRete(p))
        return false;
#ifdef Q_OS_WIN
    return p.size() > 2 && p.at(1) == QLatin1Char(':');
#else
    return QDir::isAbsolutePath(p);
#endif
}

bool apriIndirizzo(const QString& indirizzo)
{
#ifdef Q_OS_WIN
    return QProcess::startDetached(QStringLiteral("explorer.exe"), { indirizzo });
#elif defined(Q_OS_MACOS)
    return QProcess::startDetached(QStringLiteral("open"), { indirizzo });
#else
    return QProcess::startDetached(QStringLiteral("xdg-open"), { indirizzo });
#endif
}

bool apriCartella(const QString& cartella)
{
    return apriIndirizzo(QUrl::fromLocalFile(cartella).toString());
}

bool impostaDataOraSistema(const QDateTime&)
{
    // Only an administrator may move the clock, and a hotel's PC keeps it with NTP anyway.
    return false;
}

} // namespace tomvera::piattaforma
