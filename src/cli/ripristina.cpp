#include "comandi.h"
#include "foundation/interazione.h"
#include "foundation/piattaforma.h"
#include "maintenance/backup.h"

#include <QDir>

namespace tomvera::cli {

namespace {

// The command line is the confirmation: the questions of the screen are answered yes, and the last message
// is what the command reports.
class InterazioneConfermata : public Interazione
{
public:
    QString ultimo;
    void messaggio(const QString& testo, const QString&, Icona) override { ultimo = testo; }
    bool domandaSiNo(const QString&, const QString&, Icona) override { return true; }
    bool okAnnulla(const QString&, const QString&, Icona) override { return true; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override
    {
        return QStringLiteral("SI");
    }
    std::optional<QString> scegliFileDaAprire(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliFileDaSalvare(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliCartella(const QString&, const QString&) override { return {}; }
    void avviso(TipoAvviso, const QString&, int, bool) override { }
    void archivioOccupato(int) override { }
};

QString suUnaRiga(QString testo)
{
    testo.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return testo.simplified();
}

} // namespace

int comandoRipristina(const Argomenti& argomenti, Console& console)
{
    const QStringList sconosciuti = argomenti.sconosciuti({ QStringLiteral("archivio"), QStringLiteral("file") });
    if (!sconosciuti.isEmpty())
        return console.errore(QStringLiteral("Opzione sconosciuta: --") + sconosciuti.first());
    const auto archivio = argomenti.valore(QStringLiteral("archivio"));
    if (!archivio || archivio->isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const auto file = argomenti.valore(QStringLiteral("file"));
    if (!file || file->isEmpty())
        return console.errore(QStringLiteral("Indicare il backup da ripristinare con --file FILE"));

    InterazioneConfermata interazione;
    backup::Manutenzione manutenzione(interazione, *archivio, piattaforma::cartellaProgramma(),
                                      [](const QString& percorso) { return backup::archivioOccupato(percorso, 0); });
    if (!manutenzione.RipristinaDb(*file))
        return console.errore(suUnaRiga(interazione.ultimo));
    console.out << suUnaRiga(interazione.ultimo) << Qt::endl;
    console.out << QStringLiteral("Copia di sicurezza: ") << QDir::toNativeSeparators(manutenzione.percorsoCopia())
                << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
