// The planning board's full refresh on a large archive: 200 rooms on 4 floors of 50, 100,000 room stays,
// 300,000 guest rows. One refresh = tiles of a 50-room floor (rooms, types, movements, persons present in one
// grouped read), both counters over the hotel, and the drawing of the tiles into an image. Target: under 8 ms.
// For comparison, the same refresh done the old way: every routine opens its own connection and runs the
// original statements (datevalue on every row, one query per occupied tile and per room of the hotel).
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
#include <QSqlRecord>
#include <thread>

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

// The old engine's statements: dates as dd/MM/yyyy texts through datevalue, "select *", string-built criteria.
QString dataVecchia(const QDate& d)
{
    return QStringLiteral("datevalue('") + d.toString(QStringLiteral("dd/MM/yyyy")) + QStringLiteral("')");
}

QString clausolaCamera(const QDate& dal, const QDate& al)
{
    const QString f = dataVecchia(dal);
    const QString t = dataVecchia(al);
    return QStringLiteral(" and ((datevalue(Dal) < %1 and datevalue(Al) > %1) or (datevalue(Dal) < %2 and"
                          " datevalue(Al) > %2) or (datevalue(Dal) >= %1 and datevalue(Al) <= %2))")
        .arg(f, t);
}

QString casiOspite(const QDate& dal, const QDate& al)
{
    const QString f = dataVecchia(dal);
    const QString t = dataVecchia(al);
    return QStringLiteral(
               " and ((((datevalue(DataArrivo) < %1 and datevalue(DataPartenza) > %1) or (datevalue(DataArrivo) < %2"
               " and datevalue(DataPartenza) > %2) or (datevalue(DataArrivo) >= %1 and datevalue(DataPartenza) <= "
               "%2)) and not isnull(DataArrivo) and not isnull(DataPartenza)) or ((datevalue(DataArrivo) < %1 or"
               " datevalue(DataArrivo) < %2 or datevalue(DataArrivo) >= %1) and isnull(DataPartenza) and not"
               " isnull(DataArrivo)) or (datevalue(DataPartenza) > %1 and (datevalue(DataPartenza) > %2 or"
               " datevalue(DataPartenza) <= %2) and isnull(DataArrivo) and not isnull(DataPartenza)))")
        .arg(f, t);
}

// One routine = one connection, opened and closed around its statements.
template <typename Corpo> void routine(const QString& percorso, GestioneErrori& errori, Corpo corpo)
{
    {
        Archivio a(percorso, errori);
        if (!a.apri())
            bench::interrompi(QStringLiteral("archivio non apribile"));
        corpo(a);
    }
    Archivio::chiudiConnessioni(percorso);
}

// AggiornaGriglia_Click, QuantePersoneInCameraPresenti per occupied tile, CaricaQtaDisponibilitaCamere and
// CaricaQtaPersone as first written. Returns the occupied tiles, to check it did the work.
int refreshLetterale(const QString& percorso, GestioneErrori& errori, int piano, const QDate& dal, const QDate& al)
{
    const QString periodo = clausolaCamera(dal, al);
    int occupate = 0;
    QStringList inUso;
    routine(percorso, errori, [&](Archivio& a) {
        a.righe(QStringLiteral("select * from tabellastrutturaCamere "));
        a.righe(QStringLiteral("select * from tabellatipologieCamere "));
        const auto camere = a.righe(QStringLiteral("select * from TabellaStrutturaCamere where nropiano = ")
                                    + QString::number(piano));
        const auto movimenti = a.righe(
            QStringLiteral(
                " SELECT * FROM TabellaMovimenti where tipo = 'PrenotazioneCamera' and prenotazionechiusa = 0 ")
            + periodo);
        for (const QSqlRecord& camera : camere) {
            const QString nro = camera.value(QStringLiteral("NroCamera")).toString();
            // FindFirst / FindNext on the movements read above.
            int trovati = 0;
            for (const QSqlRecord& m : movimenti)
                if (trovati < 2
                    && m.value(QStringLiteral("NroCamera")).toString().compare(nro, Qt::CaseInsensitive) == 0)
                    ++trovati;
            if (trovati == 0)
                continue;
            ++occupate;
            if (trovati > 1)
                a.righe(QStringLiteral(" SELECT * FROM TabellaMovimenti where tipo = 'PrenotazioneCamera' and"
                                       " prenotazionechiusa = 0 and NroCamera = '")
                        + nro + QLatin1Char('\'') + periodo);
            inUso << nro;
        }
    });
    // QuantePersoneInCameraPresenti, drawn tile by tile, each with its own connection. (Our layer shares one
    // connection per thread, so these run after the board's read instead of inside it: same statements, same
    // opens and closes.)
    for (const QString& nro : std::as_const(inUso))
        routine(percorso, errori, [&](Archivio& b) {
            b.righe(QStringLiteral("SELECT * FROM TabellaAnagraficheAssociatePrenotazioni INNER JOIN"
                                   " TabellaPrenotazioni ON"
                                   " TabellaAnagraficheAssociatePrenotazioni.indiceprenotazioneassociata ="
                                   " TabellaPrenotazioni.indice WHERE NroCameraCliente = '")
                    + nro + QStringLiteral("' and TabellaPrenotazioni.PrenotazioneChiusa = 0 ") + casiOspite(dal, al));
        });
    routine(percorso, errori, [&](Archivio& a) {
        for (const QSqlRecord& camera :
             a.righe(QStringLiteral("select * from TabellaStrutturaCamere where indice > 0")))
            a.righe(QStringLiteral(" SELECT * FROM TabellaMovimenti where tipo = 'PrenotazioneCamera' ")
                    + QStringLiteral(" and nrocamera = '") + camera.value(QStringLiteral("NroCamera")).toString()
                    + QStringLiteral("' and PrenotazioneChiusa = 0 ") + periodo);
    });
    routine(percorso, errori, [&](Archivio& a) {
        const QString f = dataVecchia(dal);
        const QString t = dataVecchia(al);
        const QString base = QStringLiteral(
            " select * from TabellaAnagraficheAssociatePrenotazioni where indice > 0 and arrivato = 1 ");
        a.righe(base
                + QStringLiteral(" and ((datevalue(DataArrivo) < %1 and datevalue(DataPartenza) > %1) or"
                                 " (datevalue(DataArrivo) < %2 and datevalue(DataPartenza) > %2) or"
                                 " (datevalue(DataArrivo) >= %1 and datevalue(DataPartenza) <= %2)) and not"
                                 " isnull(DataArrivo) and not isnull(DataPartenza)")
                      .arg(f, t));
        a.righe(base
                + QStringLiteral(" and (datevalue(DataArrivo) < %1 or datevalue(DataArrivo) < %2 or"
                                 " datevalue(DataArrivo) >= %1) and isnull(DataPartenza) and not isnull(DataArrivo)")
                      .arg(f, t));
        a.righe(base
                + QStringLiteral(" and datevalue(DataPartenza) > %1 and (datevalue(DataPartenza) > %2 or"
                                 " datevalue(DataPartenza) <= %2) and isnull(DataArrivo) and not isnull(DataPartenza)")
                      .arg(f, t));
    });
    return occupate;
}

// The same floor and drawing as BM_AggiornaTabellone, read the old way.
void BM_AggiornaTabelloneLetterale(benchmark::State& stato)
{
    AlbergoGrande& a = albergo();
    Tabellone logica(*a.sessione);
    logica.Form_Load();
    logica.NroPiano = 2;
    logica.Dal = oggi;
    logica.Al = oggi.addDays(stato.range(0));
    logica.Aggiorna_Click();
    VistaTabellone vista(logica);
    vista.resize(1280, 760);
    QImage immagine(vista.size(), QImage::Format_ARGB32_Premultiplied);
    int occupate = 0;
    for (auto _ : stato) {
        // Its own thread: the connections it opens and closes are not the ones the other benchmarks share.
        std::thread lavoro([&] { occupate = refreshLetterale(a.percorso(), a.errori, 2, logica.Dal, logica.Al); });
        lavoro.join();
        QPainter painter(&immagine);
        vista.disegna(painter);
    }
    stato.SetLabel(std::to_string(occupate) + " tessere occupate");
}
BENCHMARK(BM_AggiornaTabelloneLetterale)->Arg(1)->Arg(7)->Unit(benchmark::kMillisecond);

// The parts of a refresh: the floor's tiles, and the two counters over the hotel.
void BM_LeggiPiano(benchmark::State& stato)
{
    Archivio& a = albergo().archivio();
    for (auto _ : stato)
        benchmark::DoNotOptimize(leggiPiano(a, 2, oggi, oggi.addDays(1), 5, 10));
}
BENCHMARK(BM_LeggiPiano)->Unit(benchmark::kMillisecond);

// Persons present of the floor's occupied tiles: one grouped read, and the former query per tile.
void BM_PersonePerPiano(benchmark::State& stato)
{
    Archivio& a = albergo().archivio();
    for (auto _ : stato)
        benchmark::DoNotOptimize(PersonePresentiPerCamera(a, 2, oggi, oggi.addDays(stato.range(0))));
}
BENCHMARK(BM_PersonePerPiano)->Arg(1)->Arg(7)->Unit(benchmark::kMillisecond);

void BM_PersonePerTessera(benchmark::State& stato)
{
    Archivio& a = albergo().archivio();
    const QDate al = oggi.addDays(stato.range(0));
    QStringList occupate;
    for (const Tessera& t : leggiPiano(a, 2, oggi, al, 5, 10).tessere)
        if (t.stato != StatoCamera::Libera)
            occupate << t.NroCamera;
    for (auto _ : stato)
        for (const QString& camera : std::as_const(occupate))
            benchmark::DoNotOptimize(QuantePersoneInCameraPresenti(a, camera, oggi, al));
}
BENCHMARK(BM_PersonePerTessera)->Arg(1)->Arg(7)->Unit(benchmark::kMillisecond);

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
