#include "maintenance/backup.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/orologio.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tomvera::cli {

int comandoBackup(const Argomenti& argomenti, Console& console)
{
    const QStringList sconosciuti = argomenti.sconosciuti({ QStringLiteral("archivio"), QStringLiteral("cartella") });
    if (!sconosciuti.isEmpty())
        return console.errore(QStringLiteral("Opzione sconosciuta: --") + sconosciuti.first());
    const auto archivio = argomenti.valore(QStringLiteral("archivio"));
    if (!archivio || archivio->isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const auto cartella = argomenti.valore(QStringLiteral("cartella"));
    if (!cartella || cartella->isEmpty())
        return console.errore(QStringLiteral("Indicare la cartella di backup con --cartella CARTELLA"));
    if (const QString errore = Archivio::VerificaArchivio(*archivio); !errore.isEmpty())
        return console.errore(errore + QStringLiteral(": ") + *archivio);
    if (QFileInfo(*cartella).exists() && !QFileInfo(*cartella).isDir())
        return console.errore(QStringLiteral("La cartella di backup non è una cartella: ") + *cartella);

    // The copy is consistent even while others write, so, like the automatic pass, it doesn't wait for them.
    const Orologio orologio;
    const QString lavoro
        = QDir(QDir::tempPath())
              .filePath(QStringLiteral("tomvera-backup-") + QString::number(QCoreApplication::applicationPid()));
    const QString fatto
        = backup::EseguiCopiaBackup(*archivio, *cartella, backup::nomeFileBackup(orologio.oggi()), lavoro);
    QDir(lavoro).removeRecursively();
    if (fatto.isEmpty())
        return console.errore(QStringLiteral("Backup non eseguito: impossibile scrivere in ") + *cartella);
    console.out << QDir::toNativeSeparators(fatto) << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
