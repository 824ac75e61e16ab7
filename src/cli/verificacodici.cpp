#include "comandi.h"
#include "guests/controlli.h"

namespace tomvera::cli {

int comandoVerificaCodiceFiscale(const Argomenti& argomenti, Console& console)
{
    if (argomenti.posizionali().size() != 1)
        return console.errore(QStringLiteral("Indicare un solo codice fiscale: verifica-codice-fiscale CODICE"));
    QString codice = argomenti.posizionali().first();
    if (codice.trimmed().isEmpty())
        return console.errore(QStringLiteral("Il codice fiscale è vuoto: verifica-codice-fiscale CODICE"));
    const QString esito = ControllaCodiceFiscale(codice);
    console.out << codice.toUpper() << Qt::endl;
    if (esito.isEmpty())
        return EsitoOk;
    console.out << esito << Qt::endl;
    return EsitoNegativo;
}

int comandoVerificaPartitaIva(const Argomenti& argomenti, Console& console)
{
    if (argomenti.posizionali().size() != 1)
        return console.errore(QStringLiteral("Indicare una sola partita IVA: verifica-partita-iva NUMERO"));
    if (argomenti.posizionali().first().trimmed().isEmpty())
        return console.errore(QStringLiteral("La partita IVA è vuota: verifica-partita-iva NUMERO"));
    if (ControllaPartitaIva(argomenti.posizionali().first()))
        return EsitoOk;
    console.out << "Controllare Partita Iva" << Qt::endl;
    return EsitoNegativo;
}

} // namespace tomvera::cli
