#include "statutory/schedine.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/gestioneerrori.h"

#include <QDateTime>
#include <QDir>

namespace tomvera::cli {

// The police declaration: --controlla lists what the screen shows with each row's first error; --cartella
// marks every listed row and writes the day's file there.
int comandoSchedine(const Argomenti& argomenti, Console& console)
{
    const QString percorso = testoRichiesto(argomenti, QStringLiteral("archivio")).value_or(QString());
    if (percorso.isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const bool controlla = argomenti.presente(QStringLiteral("controlla"));
    const bool esporta = argomenti.presente(QStringLiteral("cartella"));
    if (controlla == esporta)
        return console.errore(QStringLiteral("Indicare --controlla oppure --cartella CARTELLA"));
    for (const char* interruttore : { "controlla", "tutte" })
        if (!argomenti.valore(QLatin1String(interruttore)).value_or(QString()).isEmpty())
            return console.errore(QStringLiteral("L'opzione --") + QLatin1String(interruttore)
                                  + QStringLiteral(" non prende valori"));
    QString cartella;
    if (esporta) {
        cartella = testoRichiesto(argomenti, QStringLiteral("cartella")).value_or(QString());
        if (cartella.isEmpty())
            return console.errore(QStringLiteral("Indicare la cartella con --cartella CARTELLA"));
        if (!QDir(cartella).exists())
            return console.errore(QStringLiteral("La cartella non esiste: ") + cartella);
    }

    QString errore;
    const auto dal = dataRichiesta(argomenti, QStringLiteral("dal"), errore);
    const auto al = dal ? dataRichiesta(argomenti, QStringLiteral("al"), errore) : std::nullopt;
    if (!dal || !al)
        return console.errore(errore);
    FiltroSchedine filtro;
    filtro.dal = *dal;
    filtro.al = *al;
    filtro.soloDaInviare = !argomenti.presente(QStringLiteral("tutte"));
    const QString azienda = argomenti.valore(QStringLiteral("azienda")).value_or(QString()).trimmed();
    if (argomenti.presente(QStringLiteral("azienda")) && azienda.isEmpty())
        return console.errore(QStringLiteral("Indicare il codice dell'azienda con --azienda CODICE"));

    GestioneErrori errori;
    Archivio archivio(percorso, errori);
    if (const QString problema
        = apriArchivioEsistente(archivio, { QStringLiteral("TabellaAnagraficheAssociatePrenotazioni") });
        !problema.isEmpty())
        return console.errore(problema);
    const auto configurazione = configurazione::leggi(archivio);
    const bool multiAzienda = configurazione && configurazione->MultiAzienda;
    // The company chooser exists only in multi-company mode, as on the screen.
    if (multiAzienda)
        filtro.codiceAzienda = azienda;

    const auto righe = leggiRigheSchedine(archivio, filtro);
    if (!righe)
        return console.errore(QStringLiteral("Impossibile leggere gli ospiti dall'archivio: ") + percorso);

    if (controlla) {
        for (const RigaSchedina& r : *righe) {
            const QString e = ControllaCorrettezzaRiga(r);
            console.out << r.indice << '\t' << r.cognome << '\t' << r.nome << '\t' << (e.isEmpty() ? NessunErrore : e)
                        << '\n';
        }
        console.out.flush();
        return EsitoOk;
    }

    if (multiAzienda && azienda.isEmpty())
        return console.errore(QStringLiteral("ATTENZION!Selezionare Azienda"));
    RegistrazioneScrittura registrazione(percorso);
    const EsitoEsportazione esito = esportaSchedine(archivio, *righe, cartella, QDateTime::currentDateTime());
    switch (esito.stato) {
    case EsitoEsportazione::Stato::Esportate:
        console.out << esito.messaggio << Qt::endl;
        return EsitoOk;
    case EsitoEsportazione::Stato::NessunaRiga:
        console.out << esito.messaggio << Qt::endl;
        return EsitoNegativo;
    case EsitoEsportazione::Stato::FileNonScritto:
    case EsitoEsportazione::Stato::NonTimbrate:
        break;
    }
    return console.errore(esito.messaggio);
}

} // namespace tomvera::cli
