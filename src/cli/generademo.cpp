#include "comandi.h"
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/versione.h"
#include "reservations/demo.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <limits>

namespace tomvera::cli {

namespace {

std::optional<int> intero(const Argomenti& argomenti, const QString& nome, int predefinito, int minimo, int massimo)
{
    const auto testo = argomenti.valore(nome);
    if (!testo)
        return predefinito;
    bool ok = false;
    const int valore = testo->toInt(&ok);
    if (!ok || valore < minimo || valore > massimo)
        return std::nullopt;
    return valore;
}

} // namespace

int comandoGeneraDemo(const Argomenti& argomenti, Console& console)
{
    const auto percorso = testoRichiesto(argomenti, QStringLiteral("archivio"));
    if (!percorso)
        return console.errore(QStringLiteral("Indicare l'archivio con --archivio PERCORSO"));
    const auto camere = intero(argomenti, QStringLiteral("camere"), 30, 1, 1000);
    if (!camere)
        return console.errore(QStringLiteral("Numero di camere non valido (da 1 a 1000)"));
    const auto anni = intero(argomenti, QStringLiteral("anni"), 1, 1, 30);
    if (!anni)
        return console.errore(QStringLiteral("Numero di anni non valido (da 1 a 30)"));
    const auto seme = intero(argomenti, QStringLiteral("seme"), 1, 0, std::numeric_limits<int>::max());
    if (!seme)
        return console.errore(QStringLiteral("Seme non valido: indicare un numero intero positivo"));

    const QString sky = CreazioneDB::percorsoSkyAccanto(*percorso);
    for (const QString& file : { *percorso, sky }) {
        const QString problema = CreazioneDB::verificaFileArchivio(file);
        if (!problema.isEmpty())
            return console.errore(problema);
    }

    GestioneErrori errori;
    // A hotel's archive is refused before anything is written to it, schema upgrade included.
    if (QFileInfo(*percorso).size() > 0) {
        Archivio esistente(*percorso, errori);
        if (!esistente.apri(Archivio::Apertura::Esistente))
            return console.errore(QStringLiteral("Errore apertura Archivio: ") + *percorso);
        for (const char* tabella : { "TabellaStrutturaCamere", "TabellaPrenotazioni" }) {
            const QString nome = QLatin1String(tabella);
            if (schema::tabellaEsiste(esistente, nome)
                && esistente.esisteRiga(QStringLiteral("SELECT 1 FROM ") + nome + QStringLiteral(" LIMIT 1")))
                return console.errore(
                    QStringLiteral("L'archivio contiene già camere o prenotazioni: usare un archivio nuovo: ")
                    + *percorso);
        }
    }

    const RegistrazioneScrittura registrazione(*percorso);
    QElapsedTimer tempo;
    tempo.start();
    CreazioneDB::Percorsi percorsi;
    percorsi.archivio = *percorso;
    percorsi.archivioSky = sky;
    if (!CreazioneDB(percorsi, errori).CreaDB_Click())
        return console.errore(errori.problema() != ProblemaArchivio::Nessuno
                                  ? errori.testoProblema()
                                  : QStringLiteral("Impossibile creare l'archivio: ") + *percorso);
    Archivio archivio(*percorso, errori);
    if (!archivio.apri() || !schema::ScriviVersione(archivio))
        return console.errore(errori.problema() != ProblemaArchivio::Nessuno
                                  ? errori.testoProblema()
                                  : QStringLiteral("Impossibile aprire l'archivio: ") + *percorso);

    OpzioniDemo opzioni;
    opzioni.camere = *camere;
    opzioni.anni = *anni;
    opzioni.seme = quint32(*seme);
    const EsitoDemo esito = GeneraDemo(archivio, opzioni);
    if (!esito.ok)
        return console.errore(esito.errore);
    console.out << "Camere: " << esito.camere << Qt::endl
                << "Anagrafiche: " << esito.anagrafiche << Qt::endl
                << "Prenotazioni: " << esito.prenotazioni << Qt::endl
                << "Ospiti: " << esito.ospiti << Qt::endl
                << "Tempo: " << QString::number(tempo.elapsed() / 1000.0, 'f', 1) << " s" << Qt::endl;
    return EsitoOk;
}

} // namespace tomvera::cli
