// The reservation screen on a demo hotel of 200 rooms and ten years: opening a reservation of 10 rooms and
// 40 guests (target < 20 ms) and saving it without dialogues (< 50 ms); the demo itself (< 60 s).
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "reservations/demo.h"
#include "reservations/prenotazione.h"
#include "reservations/schedaprenotazione.h"
#include "supporto.h"

#include <QElapsedTimer>
#include <cstdio>

using namespace tomvera;

namespace {

const QDate oggi(2026, 6, 10);

struct Albergo : bench::ArchivioDiProva
{
    // Questions are answered yes, so a save goes through; any message is a fault here.
    bench::InterazioneMuta interazione { true };
    OrologioFisso orologio { QDateTime(oggi, QTime(10, 0)) };
    std::unique_ptr<Sessione> sessione;
    qint64 grande = 0; // the reservation of 10 rooms and 40 guests
    double secondiDemo = 0;

    Albergo()
    {
        crea({});
        QElapsedTimer tempo;
        tempo.start();
        OpzioniDemo opzioni;
        opzioni.camere = 200;
        opzioni.anni = 10;
        opzioni.oggi = oggi;
        const EsitoDemo esito = GeneraDemo(archivio(), opzioni);
        secondiDemo = tempo.elapsed() / 1000.0;
        if (!esito.ok)
            bench::interrompi(QStringLiteral("Demo non generata: ") + esito.errore);
        std::fprintf(stderr, "genera-demo 200 camere x 10 anni: %.1f s, %d prenotazioni, %d ospiti\n", secondiDemo,
                     esito.prenotazioni, esito.ospiti);
        ottimizza();
        sessione = std::make_unique<Sessione>(interazione, orologio, errori);
        sessione->permessi->amministratore = true;
        creaGrande();
    }
    // Ten rooms far in the future (free), four guests each.
    void creaGrande()
    {
        Prenotazione p;
        p.NumeroPrenotazione = 99999;
        p.DataPrenotazione = oggi;
        const auto camere = archivio().righe(QStringLiteral("SELECT NroCamera, CodiceTipologia FROM "
                                                            "TabellaStrutturaCamere ORDER BY Indice LIMIT 10"));
        int riga = 0;
        for (const auto& c : camere) {
            RigaCamera r;
            r.IndiceRiga = ++riga;
            r.NroCamera = c.value(0).toString();
            r.CodiceTipologiaCamera = c.value(1).toString();
            r.Dal = QDate(2040, 8, 1);
            r.Al = QDate(2040, 8, 15);
            r.Avere = 1400;
            r.Iva = 10;
            p.camere.append(r);
            for (int i = 0; i < 4; ++i) {
                OspitePrenotazione o;
                o.imposta(QStringLiteral("RagSociale"), QStringLiteral("Ospite %1-%2").arg(riga).arg(i));
                o.imposta(QStringLiteral("Cognome"), QStringLiteral("Ospite"));
                o.imposta(QStringLiteral("NroCameraCliente"), r.NroCamera);
                o.imposta(QStringLiteral("DataArrivo"), r.Dal);
                o.imposta(QStringLiteral("DataPartenza"), r.Al);
                o.imposta(QStringLiteral("TipoDiAlloggiato"),
                          i == 0 ? QStringLiteral("CAPOFAMIGLIA") : QStringLiteral("FAMILIARE"));
                o.imposta(QStringLiteral("TipoTrattamento"), QStringLiteral("Mezza Pensione"));
                p.ospiti.append(o);
            }
        }
        if (!ArchivioPrenotazioni(archivio()).salva(p))
            bench::interrompi(QStringLiteral("Prenotazione grande non salvata"));
        grande = p.Indice;
    }
};

Albergo& albergo()
{
    static Albergo a;
    return a;
}

void BM_ApriPrenotazione(benchmark::State& stato)
{
    Albergo& a = albergo();
    for (auto _ : stato) {
        SchedaPrenotazione scheda(*a.sessione, a.archivio());
        scheda.Form_Load(a.grande);
        benchmark::DoNotOptimize(scheda.GrigliaAnagrafiche.size());
    }
}
BENCHMARK(BM_ApriPrenotazione)->Unit(benchmark::kMillisecond);

void BM_RegistraPrenotazione(benchmark::State& stato)
{
    Albergo& a = albergo();
    SchedaPrenotazione scheda(*a.sessione, a.archivio());
    scheda.Form_Load(a.grande);
    scheda.SalvataggioSilenzioso = true;
    for (auto _ : stato) {
        if (!scheda.Registra_Click())
            stato.SkipWithError("salvataggio rifiutato");
    }
}
BENCHMARK(BM_RegistraPrenotazione)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return bench::esegui(argc, argv, [] { albergo(); });
}
