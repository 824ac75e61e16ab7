#include "comandi.h"

#include "foundation/gestioneerrori.h"
#include "foundation/schema/creazionedb.h"

#include <QFileInfo>

namespace tomvera::cli {

int comandoCreaArchivio(const Argomenti& argomenti, Console& console)
{
    const auto percorso = argomenti.valore(QStringLiteral("archivio"));
    if (!percorso || percorso->isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    GestioneErrori errori;
    CreazioneDB::Percorsi percorsi;
    percorsi.archivio = *percorso;
    CreazioneDB creazione(percorsi, errori, [&](const QString& riga) { console.out << riga << Qt::endl; });
    if (!creazione.CreaDB_Click())
        return console.errore(QStringLiteral("Impossibile creare l'archivio: ") + *percorso);
    return EsitoOk;
}

} // namespace tomvera::cli
