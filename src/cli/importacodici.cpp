#include "guests/importacodici.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"
#include "guests/nomicomuni.h"

#include <QDir>
#include <QFileInfo>
#include <tuple>

namespace tomvera::cli {

namespace {

// The file read and checked whole before any archive is opened. Rows left out are listed on stdout.
std::optional<QList<RigaCodice>> leggi(TabellaCodici tabella, const QString& file, const QString& foglio,
                                       Console& console, int& scartate)
{
    const EsitoRigheCodici controllo = controllaRigheCodici(tabella, leggiFileCodici(file, foglio), file);
    if (!controllo.righe) {
        console.errore(controllo.errore);
        return std::nullopt;
    }
    for (const QString& riga : controllo.scartate)
        console.out << riga << Qt::endl;
    scartate = static_cast<int>(controllo.scartate.size());
    return controllo.righe;
}

void riepilogo(Console& console, int scritte, const char* tabella, int scartate)
{
    console.out << scritte << " righe importate in " << tabella << Qt::endl;
    if (scartate > 0)
        console.out << scartate << (scartate == 1 ? " riga scartata" : " righe scartate") << Qt::endl;
}

} // namespace

int comandoImportaCodici(const Argomenti& argomenti, Console& console)
{
    const auto archivio = testoRichiesto(argomenti, QStringLiteral("archivio"));
    const QString nomeTabella = argomenti.valore(QStringLiteral("tabella")).value_or(QString()).trimmed();
    const auto file = testoRichiesto(argomenti, QStringLiteral("file"));
    if (!archivio)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const DescrizioneTabellaCodici* d = descrizionePerNome(nomeTabella);
    if (!d || nomeTabella.compare(QLatin1String(d->parolaCli), Qt::CaseInsensitive) != 0)
        return console.errore(
            QStringLiteral("Indicare la tabella con --tabella comuni|stati|documenti|tipoalloggiato"));
    if (!file)
        return console.errore(QStringLiteral("Indicare il file con --file FILE"));
    if (!QFileInfo(*file).isFile())
        return console.errore(QStringLiteral("File non trovato: ") + *file);
    const QString foglio = testoRichiesto(argomenti, QStringLiteral("foglio")).value_or(QLatin1String(d->foglio));

    int scartate = 0;
    const auto righe = leggi(d->tipo, *file, foglio, console, scartate);
    if (!righe)
        return EsitoErrore;
    GestioneErrori errori;
    Archivio a(*archivio, errori);
    // Never creates an archive: a mistyped path is bad input, not a new file.
    if (const QString problema = apriArchivioEsistente(a, {}); !problema.isEmpty())
        return console.errore(problema);
    const RegistrazioneScrittura registrazione(*archivio);
    schema::applicaTabella(a, definizioneTabellaCodici(d->tipo));
    const auto scritte = scriviRigheCodici(a, d->tipo, *righe);
    if (!scritte)
        return console.errore(
            QStringLiteral("Importazione non riuscita, la tabella è invariata: ")
            + (errori.problema() != ProblemaArchivio::Nessuno ? errori.testoProblema() : QLatin1String(d->tabella)));
    riepilogo(console, *scritte, d->tabella, scartate);
    return EsitoOk;
}

int comandoCreaArchivioCodici(const Argomenti& argomenti, Console& console)
{
    const QString archivio = testoRichiesto(argomenti, QStringLiteral("archivio")).value_or(QString());
    const QString cartella = testoRichiesto(argomenti, QStringLiteral("cartella")).value_or(QString());
    if (archivio.isEmpty() || cartella.isEmpty())
        return console.errore(QStringLiteral("Uso: crea-archivio-codici --archivio PERCORSO --cartella CARTELLA"));
    const QDir dir(cartella);
    // The service's file names: alloggiatiweb_comuni_2025-04.csv and the like; the newest wins.
    const struct
    {
        TabellaCodici tabella;
        const char* modello;
    } file[] = { { TabellaCodici::Comuni, "*comuni*.csv" },
                 { TabellaCodici::Stati, "*stati*.csv" },
                 { TabellaCodici::Documenti, "*documenti*.csv" },
                 { TabellaCodici::TipoAlloggiato, "*alloggiato*.csv" } };
    QList<std::tuple<TabellaCodici, QList<RigaCodice>, int>> tabelle;
    for (const auto& f : file) {
        const QStringList trovati
            = dir.entryList({ QLatin1String(f.modello) }, QDir::Files, QDir::Name | QDir::Reversed);
        if (trovati.isEmpty())
            return console.errore(QStringLiteral("Manca il file ") + QLatin1String(f.modello) + QStringLiteral(" in ")
                                  + cartella);
        int scartate = 0;
        auto righe = leggi(f.tabella, dir.filePath(trovati.first()), {}, console, scartate);
        if (!righe)
            return EsitoErrore;
        // The reference copy shows the municipalities in title case, as the desk types them.
        if (f.tabella == TabellaCodici::Comuni)
            for (RigaCodice& r : *righe)
                r.descrizione = NomeComuneInMinuscolo(r.descrizione);
        tabelle.append({ f.tabella, *righe, scartate });
    }
    GestioneErrori errori;
    Archivio a(archivio, errori);
    if (!a.apri(Archivio::Apertura::Crea) || !preparaArchivioCodici(a))
        return console.errore(QStringLiteral("Impossibile creare l'archivio: ") + archivio);
    for (const auto& [tabella, righe, scartate] : tabelle) {
        const auto scritte = scriviRigheCodici(a, tabella, righe);
        if (!scritte)
            return console.errore(QStringLiteral("Scrittura non riuscita: ")
                                  + QLatin1String(descrizione(tabella).tabella));
        riepilogo(console, *scritte, descrizione(tabella).tabella, scartate);
    }
    return EsitoOk;
}

} // namespace tomvera::cli
