#include "rooms/tabellone.h"

#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"
#include "rooms/disponibilita.h"

namespace tomvera::cli {

namespace {

std::optional<QDate> dataArgomento(const Argomenti& argomenti, const QString& nome, Console& console, int& esito)
{
    const QString testo = argomenti.valore(nome).value_or(QString()).trimmed();
    if (testo.isEmpty()) {
        esito = console.errore(QStringLiteral("Indicare la data con --") + nome + QStringLiteral(" GG/MM/AAAA"));
        return std::nullopt;
    }
    const auto data = leggiData(testo);
    if (!data || !data->isValid()) {
        esito = console.errore(QStringLiteral("Data non valida: ") + testo);
        return std::nullopt;
    }
    return data;
}

} // namespace

// The board as text: one line per drawn room, then the two counters as the board shows them.
int comandoTabellone(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("dal"), QStringLiteral("al"),
                             QStringLiteral("piano") };
    if (const QStringList fuori = argomenti.sconosciuti(noti); !fuori.isEmpty())
        return console.errore(QStringLiteral("Opzione sconosciuta: --") + fuori.first());
    if (!argomenti.posizionali().isEmpty())
        return console.errore(QStringLiteral("Argomento non previsto: ") + argomenti.posizionali().first());
    const QString percorso = argomenti.valore(QStringLiteral("archivio")).value_or(QString()).trimmed();
    if (percorso.isEmpty())
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));

    int esito = EsitoOk;
    const auto dal = dataArgomento(argomenti, QStringLiteral("dal"), console, esito);
    if (!dal)
        return esito;
    const auto al = dataArgomento(argomenti, QStringLiteral("al"), console, esito);
    if (!al)
        return esito;
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

    // Never create the file: a missing or foreign file is bad input.
    if (const QString problema = Archivio::VerificaArchivio(percorso); !problema.isEmpty())
        return console.errore(problema + QStringLiteral(": ") + percorso);
    GestioneErrori errori;
    Archivio archivio(percorso, errori);
    if (!archivio.apri(Archivio::Apertura::Esistente))
        return console.errore(QStringLiteral("Errore apertura Archivio: ") + percorso);
    for (const char* tabella : { "TabellaStrutturaCamere", "TabellaTipologieCamere", "TabellaMovimenti" })
        if (!schema::tabellaEsiste(archivio, QString::fromLatin1(tabella)))
            return console.errore(QStringLiteral("L'archivio non contiene la tabella ") + QString::fromLatin1(tabella)
                                  + QStringLiteral(": ") + percorso);

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
