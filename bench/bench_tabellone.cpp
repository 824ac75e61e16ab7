// The planning board's full refresh on a large archive: 200 rooms on 4 floors of 50, 100,000 room stays,
// 300,000 guest rows. One refresh = tiles of a 50-room floor (rooms, types, movements, persons present), both
// counters over the hotel, and the drawing of the tiles into an image. Target: under 30 ms.
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "rooms/catalogo.h"
#include "rooms/disponibilita.h"
#include "rooms/tabellone.h"
#include "rooms/ui/vistatabellone.h"
#include "supporto.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

using namespace tomvera;

namespace {

const QDate oggi(2026, 6, 10);

struct AlbergoGrande : bench::ArchivioDiProva
{
    bench::InterazioneMuta interazione;
    OrologioFisso orologio { QDateTime(oggi, QTime(9, 0)) };
    std::unique_ptr<Sessione> sessione;

    AlbergoGrande()
    {
        crea({ QStringLiteral("TabellaStrutturaCamere") });
        const QStringList tipi { QStringLiteral("SIN"), QStringLiteral("DOP"), QStringLiteral("TRI"),
                                 QStringLiteral("SUI") };
        for (int t = 0; t < tipi.size(); ++t)
            archivio().comando(QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NomeTipologia,"
                                              " NroPersone, Colore) VALUES (?, ?, ?, ?)"),
                               { tipi.at(t), tipi.at(t), t + 1, coloreDaRgb(60 * t, 200 - 40 * t, 120) });
        // Four floors of 50, and an overbooking here and there.
        bench::OpzioniAlbergo o;
        o.perPiano = 50;
        o.oggi = oggi;
        o.seme = 7;
        o.tipologie = tipi;
        o.sovrapposizioni = true;
        bench::riempiAlbergo(archivio(), o);
        ottimizza();
        sessione = std::make_unique<Sessione>(interazione, orologio, errori);
        sessione->PercorsoDB = percorso();
        sessione->configurazione->Righe = 5;
        sessione->configurazione->Colonne = 10;
        sessione->permessi->amministratore = true;
    }
};

AlbergoGrande& albergo()
{
    static AlbergoGrande a;
    return a;
}
// Argument: nights of the period (1: the usual day, 7: the coming week).
void BM_AggiornaTabellone(benchmark::State& stato)
{
    Tabellone logica(*albergo().sessione);
    logica.Form_Load();
    logica.NroPiano = 2;
    logica.Dal = oggi;
    logica.Al = oggi.addDays(stato.range(0));
    VistaTabellone vista(logica);
    vista.resize(1280, 760);
    QImage immagine(vista.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : stato) {
        logica.Aggiorna_Click();
        QPainter painter(&immagine);
        vista.disegna(painter);
    }
    const QString etichetta = QString::number(logica.tessere().size()) + QStringLiteral(" tessere, ")
        + logica.CamereDisponibili + QStringLiteral(", ") + logica.PersonePresenti;
    stato.SetLabel(etichetta.toStdString());
}
BENCHMARK(BM_AggiornaTabellone)->Arg(1)->Arg(7)->Unit(benchmark::kMillisecond);

// The parts of a refresh: the floor's tiles, and the two counters over the hotel.
void BM_LeggiPiano(benchmark::State& stato)
{
    Archivio& a = albergo().archivio();
    for (auto _ : stato)
        benchmark::DoNotOptimize(leggiPiano(a, 2, oggi, oggi.addDays(1), 5, 10));
}
BENCHMARK(BM_LeggiPiano)->Unit(benchmark::kMillisecond);

void BM_Contatori(benchmark::State& stato)
{
    Archivio& a = albergo().archivio();
    for (auto _ : stato) {
        benchmark::DoNotOptimize(CaricaQtaDisponibilitaCamere(a, oggi, oggi.addDays(1)));
        benchmark::DoNotOptimize(CaricaQtaPersone(a, oggi, oggi.addDays(1)));
    }
}
BENCHMARK(BM_Contatori)->Unit(benchmark::kMillisecond);

// The drawing alone, for the three styles.
void BM_DisegnoTessere(benchmark::State& stato)
{
    Tabellone logica(*albergo().sessione);
    logica.Form_Load();
    logica.NroPiano = 2;
    logica.Dal = oggi;
    logica.Al = oggi.addDays(1);
    if (stato.range(0) == 1)
        logica.M_Classico_Click();
    else if (stato.range(0) == 2)
        logica.M_Simbolo_Click();
    else
        logica.M_Moderno_Click();
    VistaTabellone vista(logica);
    vista.resize(1280, 760);
    QImage immagine(vista.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : stato) {
        QPainter painter(&immagine);
        vista.disegna(painter);
    }
}
BENCHMARK(BM_DisegnoTessere)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return bench::esegui<QApplication>(argc, argv, [] { albergo(); });
}
