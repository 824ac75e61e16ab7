#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/routines.h"
#include "foundation/schema/definizione.h"
#include "pricelists/calcoloprezzi.h"
#include "pricelists/tabellelistino.h"

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

// The price of a stay as the reservation screen computes it: the amount, then "completo" or "incompleto".
int comandoPrezzo(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"),    QStringLiteral("listino"), QStringLiteral("tipologia"),
                             QStringLiteral("trattamento"), QStringLiteral("dal"),     QStringLiteral("al") };
    if (const QStringList fuori = argomenti.sconosciuti(noti); !fuori.isEmpty())
        return console.errore(QStringLiteral("Opzione sconosciuta: --") + fuori.first());
    if (!argomenti.posizionali().isEmpty())
        return console.errore(QStringLiteral("Argomento non previsto: ") + argomenti.posizionali().first());

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

    QDate date[2];
    const QString nomiDate[2] = { QStringLiteral("dal"), QStringLiteral("al") };
    for (int i = 0; i < 2; ++i) {
        const auto testo = testoRichiesto(argomenti, nomiDate[i]);
        if (!testo)
            return console.errore(QStringLiteral("Indicare la data con --") + nomiDate[i]
                                  + QStringLiteral(" GG/MM/AAAA"));
        const auto data = leggiData(*testo);
        if (!data)
            return console.errore(QStringLiteral("Data non valida: ") + *testo);
        date[i] = *data;
    }
    if (date[1] < date[0])
        return console.errore(QStringLiteral("La data --al precede la data --dal"));

    if (const QString problema = Archivio::VerificaArchivio(*percorso); !problema.isEmpty())
        return console.errore(problema + QStringLiteral(": ") + *percorso);
    GestioneErrori errori;
    Archivio archivio(*percorso, errori);
    if (!archivio.apri(Archivio::Apertura::Esistente))
        return console.errore(QStringLiteral("Errore apertura Archivio: ") + *percorso);
    const auto tipo = perTipologia ? prezzi::TipoListino::ACamera : prezzi::TipoListino::APersona;
    const QString tabella = prezzi::tabellaListino(tipo).tabella;
    if (!schema::tabellaEsiste(archivio, tabella))
        return console.errore(QStringLiteral("L'archivio non contiene la tabella ") + tabella + QStringLiteral(": ")
                              + *percorso);

    prezzi::CalcoloPrezzi calcolo(archivio);
    calcolo.ListinoCompleto = true;
    const double prezzo = perTipologia ? calcolo.CalcolaPrezzoSoggiornoCamera(*chiave, date[0], date[1], *listino)
                                       : calcolo.CalcolaPrezzoSoggiornoPersona(*chiave, date[0], date[1], *listino);
    console.out << FormattaValuta(prezzo) << Qt::endl;
    console.out << (calcolo.ListinoCompleto ? "completo" : "incompleto") << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
