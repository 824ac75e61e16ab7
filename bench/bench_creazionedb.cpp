// Archive creation and upgrade. Every start with an older archive runs the whole pass, and so does every test
// that makes a fresh archive. Targets: a new archive < 1 s; a pass over an up-to-date archive < 0.5 s;
// the repair of 100,000 guest rows from an old version < 3 s (most of it writing the journal).
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/creazionedb.h"
#include "supporto.h"

#include <QDir>
#include <QTemporaryDir>

using namespace tomvera;

namespace {

CreazioneDB::Percorsi percorsi(const QString& archivio)
{
    CreazioneDB::Percorsi p;
    p.archivio = archivio;
    return p;
}

void BM_CreaArchivioNuovo(benchmark::State& stato)
{
    GestioneErrori errori;
    for (auto _ : stato) {
        stato.PauseTiming();
        QTemporaryDir cartella;
        const QString archivio = QDir(cartella.path()).filePath(QStringLiteral("Archivio.mdb"));
        stato.ResumeTiming();
        CreazioneDB(percorsi(archivio), errori).CreaDB_Click();
        stato.PauseTiming();
        Archivio::chiudiConnessioni(archivio);
        stato.ResumeTiming();
    }
}
BENCHMARK(BM_CreaArchivioNuovo)->Unit(benchmark::kMillisecond);

void BM_RipassoArchivioAggiornato(benchmark::State& stato)
{
    QTemporaryDir cartella;
    const QString archivio = QDir(cartella.path()).filePath(QStringLiteral("Archivio.mdb"));
    GestioneErrori errori;
    CreazioneDB(percorsi(archivio), errori).CreaDB_Click();
    for (auto _ : stato)
        CreazioneDB(percorsi(archivio), errori).CreaDB_Click();
    Archivio::chiudiConnessioni(archivio);
}
BENCHMARK(BM_RipassoArchivioAggiornato)->Unit(benchmark::kMillisecond);

void BM_ValorizzaCampiNulli(benchmark::State& stato)
{
    QTemporaryDir cartella;
    const QString percorso = QDir(cartella.path()).filePath(QStringLiteral("Archivio.mdb"));
    GestioneErrori errori;
    CreazioneDB creazione(percorsi(percorso), errori);
    creazione.CreaDB_Click();
    {
        Archivio archivio(percorso, errori);
        archivio.apri();
        Transazione transazione(archivio);
        for (int i = 0; i < 100000; ++i)
            archivio.comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni "
                                            "(IndicePrenotazioneAssociata, NroArrivo, TipoDiAlloggiato) "
                                            "VALUES (?, ?, 'OSPITE SINGOLO')"),
                             { i / 3, i % 2 });
        transazione.commit();
    }
    Archivio archivio(percorso, errori);
    archivio.apri();
    for (auto _ : stato) {
        stato.PauseTiming();
        // The state of an archive written by a version without these fields.
        archivio.comando(QStringLiteral("UPDATE TabellaAnagraficheAssociatePrenotazioni SET Arrivato = NULL, "
                                        "IndiceRiga = NULL, CodiceTipoDiAlloggiato = NULL, ResidenzaIstat = NULL"));
        stato.ResumeTiming();
        creazione.ValorizzaCampiNulli(archivio);
    }
}
BENCHMARK(BM_ValorizzaCampiNulli)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv)
{
    return bench::esegui(argc, argv);
}
