#include "maintenance/backup.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/orologio.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tomvera::cli {

int comandoBackup(const Argomenti& argomenti, Console& console)
{
    const auto archivio = testoRichiesto(argomenti, QStringLiteral("archivio"));
    if (!archivio)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const auto cartella = testoRichiesto(argomenti, QStringLiteral("cartella"));
    if (!cartella)
        return console.errore(QStringLiteral("Indicare la cartella di backup con --cartella CARTELLA"));
    // An empty or foreign file would make a backup of nothing under today's name, over a good one.
    if (const QString errore = backup::verificaArchivioTomvera(*archivio); !errore.isEmpty())
        return console.errore(errore);
    if (QFileInfo(*cartella).exists() && !QFileInfo(*cartella).isDir())
        return console.errore(QStringLiteral("La cartella di backup non è una cartella: ") + *cartella);

    // The copy is consistent even while others write, so, like the automatic pass, it doesn't wait for them.
    const Orologio orologio;
    const QString lavoro
        = QDir(QDir::tempPath())
              .filePath(QStringLiteral("tomvera-backup-") + QString::number(QCoreApplication::applicationPid()));
    bool occupato = false;
    const QString fatto
        = backup::EseguiCopiaBackup(*archivio, *cartella, backup::nomeFileBackup(orologio.oggi()), lavoro, &occupato);
    QDir(lavoro).removeRecursively();
    if (occupato)
        return console.errore(QStringLiteral("Backup non eseguito: ") + GestioneErrori::testoArchivioOccupato());
    if (fatto.isEmpty())
        return console.errore(QStringLiteral("Backup non eseguito: impossibile scrivere in ") + *cartella);
    console.out << QDir::toNativeSeparators(fatto) << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
