#include "rooms/disponibilita.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"

namespace tomvera::cli {

int comandoDisponibilita(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("camera"), QStringLiteral("articolo"),
                             QStringLiteral("numero"),   QStringLiteral("sala"),   QStringLiteral("daora"),
                             QStringLiteral("aora"),     QStringLiteral("dal"),    QStringLiteral("al"),
                             QStringLiteral("escludi") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);

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

    QString errore;
    const auto dal = dataRichiesta(argomenti, QStringLiteral("dal"), errore);
    const auto al = dal ? dataRichiesta(argomenti, QStringLiteral("al"), errore) : std::nullopt;
    if (!dal || !al)
        return console.errore(errore);
    if (*al < *dal)
        return console.errore(QStringLiteral("La data --al precede la data --dal"));
    const QDate date[2] = { *dal, *al };

    qint64 escludi = 0;
    if (argomenti.presente(QStringLiteral("escludi"))) {
        bool ok = false;
        escludi = argomenti.valore(QStringLiteral("escludi")).value_or(QString()).trimmed().toLongLong(&ok);
        if (!ok || escludi < 0)
            return console.errore(QStringLiteral("Indice di prenotazione non valido per --escludi"));
    }

    GestioneErrori errori;
    Archivio archivio(*percorso, errori);
    const QString tabella = camera ? QStringLiteral("TabellaMovimenti")
        : articolo                 ? QStringLiteral("TabellaMovimentiSpiaggia")
                                   : QStringLiteral("TabellaMovimentiSale");
    if (const QString problema = apriArchivioEsistente(archivio, { tabella }); !problema.isEmpty())
        return console.errore(problema);

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
