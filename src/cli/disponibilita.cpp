#include "rooms/disponibilita.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"

namespace tomvera::cli {

namespace {

std::optional<QString> testoRichiesto(const Argomenti& argomenti, const QString& nome)
{
    const auto v = argomenti.valore(nome);
    if (!v || v->trimmed().isEmpty())
        return std::nullopt;
    return v->trimmed();
}

} // namespace

int comandoDisponibilita(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("camera"), QStringLiteral("articolo"),
                             QStringLiteral("numero"),   QStringLiteral("sala"),   QStringLiteral("daora"),
                             QStringLiteral("aora"),     QStringLiteral("dal"),    QStringLiteral("al"),
                             QStringLiteral("escludi") };
    if (const QStringList fuori = argomenti.sconosciuti(noti); !fuori.isEmpty())
        return console.errore(QStringLiteral("Opzione sconosciuta: --") + fuori.first());
    if (!argomenti.posizionali().isEmpty())
        return console.errore(QStringLiteral("Argomento non previsto: ") + argomenti.posizionali().first());

    const auto percorso = testoRichiesto(argomenti, QStringLiteral("archivio"));
    if (!percorso)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));

    const bool camera = argomenti.presente(QStringLiteral("camera"));
    const bool articolo = argomenti.presente(QStringLiteral("articolo"));
    const bool sala = argomenti.presente(QStringLiteral("sala"));
    if (int(camera) + int(articolo) + int(sala) != 1)
        return console.errore(QStringLiteral("Indicare una sola risorsa: --camera N, --articolo CODICE --numero N"
                                             " oppure --sala CODICE --daora HH.MM --aora HH.MM"));

    const QString nomeRisorsa = camera ? QStringLiteral("camera")
        : articolo                     ? QStringLiteral("articolo")
                                       : QStringLiteral("sala");
    const auto codice = testoRichiesto(argomenti, nomeRisorsa);
    if (!codice)
        return console.errore(QStringLiteral("Indicare un valore per --") + nomeRisorsa);
    std::optional<QString> numero;
    if (articolo) {
        numero = testoRichiesto(argomenti, QStringLiteral("numero"));
        if (!numero)
            return console.errore(QStringLiteral("Indicare il numero dell'articolo con --numero N"));
    }
    std::optional<QString> daOra;
    std::optional<QString> aOra;
    if (sala) {
        daOra = testoRichiesto(argomenti, QStringLiteral("daora"));
        aOra = testoRichiesto(argomenti, QStringLiteral("aora"));
        if (!daOra || !aOra)
            return console.errore(QStringLiteral("Indicare le ore con --daora HH.MM e --aora HH.MM"));
        for (const QString& ora : { *daOra, *aOra }) {
            if (!leggiOra(ora))
                return console.errore(QStringLiteral("Ora non valida (formato HH.MM): ") + ora);
        }
    } else if (argomenti.presente(QStringLiteral("daora")) || argomenti.presente(QStringLiteral("aora"))) {
        return console.errore(QStringLiteral("Le ore --daora e --aora valgono solo per le sale"));
    }
    if (!articolo && argomenti.presente(QStringLiteral("numero")))
        return console.errore(QStringLiteral("Il numero --numero vale solo per gli articoli della spiaggia"));

    QDate date[2];
    const QString nomiDate[2] = { QStringLiteral("dal"), QStringLiteral("al") };
    for (int i = 0; i < 2; ++i) {
        const auto testo = testoRichiesto(argomenti, nomiDate[i]);
        if (!testo)
            return console.errore(QStringLiteral("Indicare la data con --") + nomiDate[i]
                                  + QStringLiteral(" GG/MM/AAAA"));
        const auto data = leggiData(*testo);
        if (!data || !data->isValid())
            return console.errore(QStringLiteral("Data non valida: ") + *testo);
        date[i] = *data;
    }
    if (date[1] < date[0])
        return console.errore(QStringLiteral("La data --al precede la data --dal"));

    qint64 escludi = 0;
    if (argomenti.presente(QStringLiteral("escludi"))) {
        bool ok = false;
        escludi = argomenti.valore(QStringLiteral("escludi")).value_or(QString()).trimmed().toLongLong(&ok);
        if (!ok || escludi < 0)
            return console.errore(QStringLiteral("Indice di prenotazione non valido per --escludi"));
    }

    // Never create the file: a missing or foreign file is bad input.
    if (const QString problema = Archivio::VerificaArchivio(*percorso); !problema.isEmpty())
        return console.errore(problema + QStringLiteral(": ") + *percorso);
    GestioneErrori errori;
    Archivio archivio(*percorso, errori);
    if (!archivio.apri(Archivio::Apertura::Esistente))
        return console.errore(QStringLiteral("Errore apertura Archivio: ") + *percorso);
    const QString tabella = camera ? QStringLiteral("TabellaMovimenti")
        : articolo                 ? QStringLiteral("TabellaMovimentiSpiaggia")
                                   : QStringLiteral("TabellaMovimentiSale");
    if (!schema::tabellaEsiste(archivio, tabella))
        return console.errore(QStringLiteral("L'archivio non contiene la tabella ") + tabella + QStringLiteral(": ")
                              + *percorso);

    std::optional<bool> occupata;
    if (camera)
        occupata = interrogaCamera(archivio, escludi, *codice, date[0], date[1]);
    else if (articolo)
        occupata = interrogaArticolo(archivio, escludi, *numero, *codice, date[0], date[1]);
    else
        occupata = interrogaSala(archivio, escludi, *codice, date[0], date[1], *daOra, *aOra);
    if (!occupata)
        return console.errore(QStringLiteral("Impossibile leggere le prenotazioni dall'archivio: ") + *percorso);
    console.out << (*occupata ? "occupata" : "libera") << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
