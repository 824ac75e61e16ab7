#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/routines.h"
#include "foundation/schema/definizione.h"
#include "pricelists/calcoloprezzi.h"
#include "pricelists/tabellelistino.h"

namespace tomvera::cli {

// The price of a stay as the reservation screen computes it: the amount, then "completo" or "incompleto".
int comandoPrezzo(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"),    QStringLiteral("listino"), QStringLiteral("tipologia"),
                             QStringLiteral("trattamento"), QStringLiteral("dal"),     QStringLiteral("al") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);

    const auto percorso = testoRichiesto(argomenti, QStringLiteral("archivio"));
    if (!percorso)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    // Blanks around a name typed on the command line are not part of it.
    const auto listino = testoRichiesto(argomenti, QStringLiteral("listino"));
    if (!listino)
        return console.errore(QStringLiteral("Indicare il listino con --listino NOME"));

    const bool perTipologia = argomenti.presente(QStringLiteral("tipologia"));
    const bool perTrattamento = argomenti.presente(QStringLiteral("trattamento"));
    if (perTipologia == perTrattamento)
        return console.errore(
            QStringLiteral("Indicare una sola chiave: --tipologia CODICE oppure --trattamento PAROLA"));
    const QString nomeChiave = perTipologia ? QStringLiteral("tipologia") : QStringLiteral("trattamento");
    const auto chiave = testoRichiesto(argomenti, nomeChiave);
    if (!chiave)
        return console.errore(QStringLiteral("Indicare un valore per --") + nomeChiave);

    QString errore;
    const auto dal = dataRichiesta(argomenti, QStringLiteral("dal"), errore);
    const auto al = dal ? dataRichiesta(argomenti, QStringLiteral("al"), errore) : std::nullopt;
    if (!dal || !al)
        return console.errore(errore);
    if (*al < *dal)
        return console.errore(QStringLiteral("La data --al precede la data --dal"));
    const QDate date[2] = { *dal, *al };

    GestioneErrori errori;
    Archivio archivio(*percorso, errori);
    const auto tipo = perTipologia ? prezzi::TipoListino::ACamera : prezzi::TipoListino::APersona;
    if (const QString problema = apriArchivioEsistente(archivio, { prezzi::tabellaListino(tipo).tabella });
        !problema.isEmpty())
        return console.errore(problema);

    prezzi::CalcoloPrezzi calcolo(archivio);
    calcolo.ListinoCompleto = true;
    const double prezzo = perTipologia ? calcolo.CalcolaPrezzoSoggiornoCamera(*chiave, date[0], date[1], *listino)
                                       : calcolo.CalcolaPrezzoSoggiornoPersona(*chiave, date[0], date[1], *listino);
    console.out << FormattaValuta(prezzo) << Qt::endl;
    console.out << (calcolo.ListinoCompleto ? "completo" : "incompleto") << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
