#include "guests/importacodici.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"
#include "guests/nomicomuni.h"

#include <QDir>
#include <QFileInfo>

namespace tomvera::cli {

namespace {

std::optional<QList<RigaCodice>> leggi(TabellaCodici tabella, const QString& file, const QString& foglio,
                                       Console& console)
{
    const EsitoLettura lettura = leggiFileCodici(file, foglio);
    if (!lettura.celle) {
        console.errore(lettura.errore);
        return std::nullopt;
    }
    auto righe = righeCodici(tabella, *lettura.celle);
    if (!righe)
        console.errore(QStringLiteral("Il file non ha le colonne della tabella ")
                       + QLatin1String(descrizione(tabella).parolaCli) + QStringLiteral(": ") + file);
    return righe;
}

} // namespace

int comandoImportaCodici(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("tabella"), QStringLiteral("file"),
                             QStringLiteral("foglio") };
    if (const QStringList fuori = argomenti.sconosciuti(noti); !fuori.isEmpty())
        return console.errore(QStringLiteral("Opzione sconosciuta: --") + fuori.first());
    const QString archivio = argomenti.valore(QStringLiteral("archivio")).value_or(QString());
    const QString nomeTabella = argomenti.valore(QStringLiteral("tabella")).value_or(QString());
    const QString file = argomenti.valore(QStringLiteral("file")).value_or(QString());
    if (archivio.isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const DescrizioneTabellaCodici* d = descrizionePerNome(nomeTabella);
    if (!d || nomeTabella.compare(QLatin1String(d->parolaCli), Qt::CaseInsensitive) != 0)
        return console.errore(
            QStringLiteral("Indicare la tabella con --tabella comuni|stati|documenti|tipoalloggiato"));
    if (file.isEmpty())
        return console.errore(QStringLiteral("Indicare il file con --file FILE"));
    if (!QFileInfo::exists(file))
        return console.errore(QStringLiteral("File non trovato: ") + file);
    const QString foglio = argomenti.valore(QStringLiteral("foglio")).value_or(QLatin1String(d->foglio));

    const auto righe = leggi(d->tipo, file, foglio, console);
    if (!righe)
        return EsitoErrore;
    GestioneErrori errori;
    Archivio a(archivio, errori);
    if (!a.apri(Archivio::Apertura::Crea))
        return console.errore(QStringLiteral("Impossibile aprire l'archivio: ") + archivio);
    schema::applicaTabella(a, definizioneTabellaCodici(d->tipo));
    const auto scritte = scriviRigheCodici(a, d->tipo, *righe);
    if (!scritte)
        return console.errore(QStringLiteral("Importazione non riuscita, la tabella è invariata: ")
                              + QLatin1String(d->tabella));
    console.out << *scritte << " righe importate in " << d->tabella << Qt::endl;
    return EsitoOk;
}

int comandoCreaArchivioCodici(const Argomenti& argomenti, Console& console)
{
    const QString archivio = argomenti.valore(QStringLiteral("archivio")).value_or(QString());
    const QString cartella = argomenti.valore(QStringLiteral("cartella")).value_or(QString());
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
    QList<QPair<TabellaCodici, QList<RigaCodice>>> tabelle;
    for (const auto& f : file) {
        const QStringList trovati
            = dir.entryList({ QLatin1String(f.modello) }, QDir::Files, QDir::Name | QDir::Reversed);
        if (trovati.isEmpty())
            return console.errore(QStringLiteral("Manca il file ") + QLatin1String(f.modello) + QStringLiteral(" in ")
                                  + cartella);
        auto righe = leggi(f.tabella, dir.filePath(trovati.first()), {}, console);
        if (!righe)
            return EsitoErrore;
        // The reference copy shows the municipalities in title case, as the desk types them.
        if (f.tabella == TabellaCodici::Comuni)
            for (RigaCodice& r : *righe)
                r.descrizione = NomeComuneInMinuscolo(r.descrizione);
        tabelle.append({ f.tabella, *righe });
    }
    GestioneErrori errori;
    Archivio a(archivio, errori);
    if (!a.apri(Archivio::Apertura::Crea) || !preparaArchivioCodici(a))
        return console.errore(QStringLiteral("Impossibile creare l'archivio: ") + archivio);
    for (const auto& [tabella, righe] : tabelle) {
        const auto scritte = scriviRigheCodici(a, tabella, righe);
        if (!scritte)
            return console.errore(QStringLiteral("Scrittura non riuscita: ")
                                  + QLatin1String(descrizione(tabella).tabella));
        console.out << *scritte << " righe importate in " << descrizione(tabella).tabella << Qt::endl;
    }
    return EsitoOk;
}

} // namespace tomvera::cli
