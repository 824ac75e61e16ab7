#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/versione.h"

namespace tomvera::cli {

int comandoCreaArchivio(const Argomenti& argomenti, Console& console)
{
    if (const QString errore = controllaArgomenti(argomenti, { QStringLiteral("archivio") }); !errore.isEmpty())
        return console.errore(errore);
    const auto percorso = testoRichiesto(argomenti, QStringLiteral("archivio"));
    if (!percorso)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));

    // Both files are checked before anything is written: a foreign file is never turned into an archive.
    const QString sky = CreazioneDB::percorsoSkyAccanto(*percorso);
    for (const QString& file : { *percorso, sky }) {
        const QString problema = CreazioneDB::verificaFileArchivio(file);
        if (!problema.isEmpty())
            return console.errore(problema);
    }

    const RegistrazioneScrittura registrazione(*percorso);
    GestioneErrori errori;
    CreazioneDB::Percorsi percorsi;
    percorsi.archivio = *percorso;
    percorsi.archivioSky = sky;
    CreazioneDB creazione(percorsi, errori, [&](const QString& riga) { console.out << riga << Qt::endl; });
    if (!creazione.CreaDB_Click())
        return console.errore(errori.problema() != ProblemaArchivio::Nessuno
                                  ? errori.testoProblema()
                                  : QStringLiteral("Impossibile creare l'archivio: ") + *percorso);

    Archivio archivio(*percorso, errori);
    if (!archivio.apri() || !schema::ScriviVersione(archivio))
        return console.errore(errori.problema() != ProblemaArchivio::Nessuno
                                  ? errori.testoProblema()
                                  : QStringLiteral("Impossibile registrare la versione nell'archivio: ") + *percorso);
    return EsitoOk;
}

} // namespace tomvera::cli
