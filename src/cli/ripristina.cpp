#include "comandi.h"
#include "foundation/interazione.h"
#include "foundation/piattaforma.h"
#include "maintenance/backup.h"

#include <QDir>
#include <QFileInfo>

namespace tomvera::cli {

namespace {

QString suUnaRiga(QString testo)
{
    testo.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return testo.simplified();
}

} // namespace

int comandoRipristina(const Argomenti& argomenti, Console& console)
{
    const auto indicato = testoRichiesto(argomenti, QStringLiteral("archivio"));
    if (!indicato)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const auto file = testoRichiesto(argomenti, QStringLiteral("file"));
    if (!file)
        return console.errore(QStringLiteral("Indicare il backup da ripristinare con --file FILE"));
    // A path typed on the command line is relative to where the command runs; the restore itself only takes a
    // local absolute path, as the screen does.
    const QString archivio
        = piattaforma::percorsoDiRete(*indicato) ? *indicato : QFileInfo(*indicato).absoluteFilePath();
    const QString scelto = piattaforma::percorsoDiRete(*file) ? *file : QFileInfo(*file).absoluteFilePath();

    // A file that can't be restored is refused before anything, the lock file beside the archive included.
    if (!QFileInfo(scelto).isFile())
        return console.errore(QStringLiteral("File non trovato: ") + scelto);
    if (const QString estraneo = backup::verificaArchivioTomvera(scelto); !estraneo.isEmpty())
        return console.errore(estraneo);

    // Registered first: a program or a command that comes in now finds us, and anyone already in is another.
    const RegistrazioneScrittura registrazione(archivio);
    const int propri = registrazione.registrata() ? 1 : 0;
    InterazioneConfermata interazione(QStringLiteral("SI"));
    backup::Manutenzione manutenzione(
        interazione, archivio, piattaforma::cartellaProgramma(),
        [propri](const QString& percorso) { return backup::archivioOccupato(percorso, propri); });
    if (!manutenzione.RipristinaDb(scelto))
        return console.errore(suUnaRiga(interazione.ultimo));
    console.out << suUnaRiga(interazione.ultimo) << Qt::endl;
    // No archive was there before: nothing to keep.
    if (!manutenzione.percorsoCopia().isEmpty())
        console.out << QStringLiteral("Copia di sicurezza: ") << QDir::toNativeSeparators(manutenzione.percorsoCopia())
                    << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
