// Availability on a large archive: 200 rooms, 100,000 room stays over ten years, 300,000 guest rows.
// Targets: one room test < 0.2 ms; the free-rooms counter < 20 ms; the persons-present counter < 20 ms.
#include "rooms/disponibilita.h"
#include "supporto.h"

using namespace tomvera;
using bench::numeroCamera;

namespace {

constexpr int camere = 200;
constexpr int perPiano = 40;

// The board's usual question: the coming week, with ten years of history behind it and some bookings ahead.
const QDate oggi(2026, 6, 10);
const QDate finePeriodo(2026, 6, 17);

struct ArchivioGrande : bench::ArchivioDiProva
{
    ArchivioGrande()
    {
        crea({ QStringLiteral("TabellaMovimenti"), QStringLiteral("TabellaAnagraficheAssociatePrenotazioni") });
        bench::OpzioniAlbergo o;
        o.camere = camere;
        o.perPiano = perPiano;
        o.oggi = oggi;
        o.seme = 42;
        o.partenzeMancanti = true;
        bench::riempiAlbergo(archivio(), o);
        ottimizza();
    }
};

Archivio& grande()
{
    static ArchivioGrande a;
    return a.archivio();
}

void BM_CameraOccupataNelPeriodo(benchmark::State& stato)
{
    Archivio& a = grande();
    int i = 0;
    for (auto _ : stato) {
        benchmark::DoNotOptimize(CameraOccupataNelPeriodo(a, 0, numeroCamera(i % camere, perPiano), oggi, finePeriodo));
        ++i;
    }
}
BENCHMARK(BM_CameraOccupataNelPeriodo)->Unit(benchmark::kMicrosecond);

void BM_PiuPrenotazioni(benchmark::State& stato)
{
    Archivio& a = grande();
    int i = 0;
    for (auto _ : stato) {
        benchmark::DoNotOptimize(PiuPrenotazioni(a, numeroCamera(i % camere, perPiano), oggi, finePeriodo));
        ++i;
    }
}
BENCHMARK(BM_PiuPrenotazioni)->Unit(benchmark::kMicrosecond);

void BM_QuantePersoneInCameraPresenti(benchmark::State& stato)
{
    Archivio& a = grande();
    int i = 0;
    for (auto _ : stato) {
        benchmark::DoNotOptimize(
            QuantePersoneInCameraPresenti(a, numeroCamera(i % camere, perPiano), oggi, finePeriodo));
        ++i;
    }
}
BENCHMARK(BM_QuantePersoneInCameraPresenti)->Unit(benchmark::kMicrosecond);

// Argument 1: a week beyond every booking, where each room must be proved free (the slow case).
void BM_CaricaQtaDisponibilitaCamere(benchmark::State& stato)
{
    Archivio& a = grande();
    const QDate dal = stato.range(0) == 0 ? oggi : QDate(2035, 6, 10);
    const QDate al = dal.addDays(7);
    for (auto _ : stato)
        benchmark::DoNotOptimize(CaricaQtaDisponibilitaCamere(a, dal, al));
    stato.SetLabel(CaricaQtaDisponibilitaCamere(a, dal, al).value_or(QString()).toStdString());
}
BENCHMARK(BM_CaricaQtaDisponibilitaCamere)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_CaricaQtaPersone(benchmark::State& stato)
{
    Archivio& a = grande();
    for (auto _ : stato)
        benchmark::DoNotOptimize(CaricaQtaPersone(a, oggi, finePeriodo));
    stato.SetLabel(CaricaQtaPersone(a, oggi, finePeriodo).value_or(QString()).toStdString());
}
BENCHMARK(BM_CaricaQtaPersone)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return bench::esegui(argc, argv, [] { grande(); });
}
