#include "rooms/tabellone.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"
#include "rooms/disponibilita.h"

namespace tomvera::cli {

// The board as text: one line per drawn room, then the two counters as the board shows them.
int comandoTabellone(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("dal"), QStringLiteral("al"),
                             QStringLiteral("piano") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);
    const QString percorso = testoRichiesto(argomenti, QStringLiteral("archivio")).value_or(QString());
    if (percorso.isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));

    QString errore;
    const auto dal = dataRichiesta(argomenti, QStringLiteral("dal"), errore);
    const auto al = dal ? dataRichiesta(argomenti, QStringLiteral("al"), errore) : std::nullopt;
    if (!dal || !al)
        return console.errore(errore);
    if (*al <= *dal)
        return console.errore(QStringLiteral("La data --al deve seguire la data --dal"));

    std::optional<int> piano;
    if (argomenti.presente(QStringLiteral("piano"))) {
        bool ok = false;
        const int n = argomenti.valore(QStringLiteral("piano")).value_or(QString()).trimmed().toInt(&ok);
        if (!ok)
            return console.errore(QStringLiteral("Numero di piano non valido per --piano"));
        piano = n;
    }

    GestioneErrori errori;
    Archivio archivio(percorso, errori);
    if (const QString problema
        = apriArchivioEsistente(archivio,
                                { QStringLiteral("TabellaStrutturaCamere"), QStringLiteral("TabellaTipologieCamere"),
                                  QStringLiteral("TabellaMovimenti") });
        !problema.isEmpty())
        return console.errore(problema);

    const auto configurazione = configurazione::leggi(archivio);
    const int righe = configurazione ? configurazione->Righe : 0;
    const int colonne = configurazione ? configurazione->Colonne : 0;
    const QList<int> piani = piano ? QList<int> { *piano } : pianiConCamere(archivio);

    QStringList righeUscita;
    for (const int p : piani) {
        const StatoPiano stato = leggiPiano(archivio, p, *dal, *al, righe, colonne);
        if (!stato.letto)
            return console.errore(QStringLiteral("Impossibile leggere le camere dall'archivio: ") + percorso);
        for (const Tessera& t : stato.tessere)
            righeUscita.append(t.NroCamera + QLatin1Char('\t') + parolaStato(t.stato) + QLatin1Char('\t')
                               + QString::number(t.prenotazioni));
    }
    const auto disponibili = CaricaQtaDisponibilitaCamere(archivio, *dal, *al);
    const auto persone = CaricaQtaPersone(archivio, *dal, *al);
    if (!disponibili || !persone)
        return console.errore(QStringLiteral("Impossibile leggere le prenotazioni dall'archivio: ") + percorso);
    for (const QString& r : righeUscita)
        console.out << r << '\n';
    console.out << *disponibili << '\n' << *persone << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
