// Availability on a large archive: 200 rooms, 100,000 room stays over ten years, 300,000 guest rows.
// Targets: one room test < 0.2 ms; the free-rooms counter < 20 ms; the persons-present counter < 20 ms.
#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/indiciprestazioni.h"
#include "rooms/disponibilita.h"

#include <QCoreApplication>
#include <QDir>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>

using namespace tomvera;

namespace {

constexpr int camere = 200;
constexpr int soggiorni = 100000;
constexpr int ospitiPerSoggiorno = 3;

// The board's usual question: the coming week, with ten years of history behind it and some bookings ahead.
const QDate oggi(2026, 6, 10);
const QDate finePeriodo(2026, 6, 17);

struct ArchivioGrande
{
    QTemporaryDir cartella;
    GestioneErrori errori;
    std::unique_ptr<Archivio> archivio;

    ArchivioGrande()
    {
        // Kept after the run when asked, to study the query plans.
        cartella.setAutoRemove(qEnvironmentVariableIsEmpty("TOMVERA_BENCH_TIENI"));
        if (!cartella.autoRemove())
            std::fprintf(stderr, "Archivio in %s\n", qPrintable(cartella.path()));
        const QString percorso = QDir(cartella.path()).filePath(QStringLiteral("Archivio.mdb"));
        CreazioneDB::Percorsi percorsi;
        percorsi.archivio = percorso;
        CreazioneDB(percorsi, errori).CreaDB_Click();
        archivio = std::make_unique<Archivio>(percorso, errori);
        if (!archivio->apri() || !schema::tabellaEsiste(*archivio, QStringLiteral("TabellaMovimenti"))
            || !schema::tabellaEsiste(*archivio, QStringLiteral("TabellaAnagraficheAssociatePrenotazioni"))) {
            std::fprintf(stderr, "Archivio di prova non creato\n");
            std::exit(EXIT_FAILURE);
        }
        riempi();
        schema::applicaIndiciPrestazioni(*archivio);
        archivio->comando(QStringLiteral("ANALYZE"));
    }

    void riempi()
    {
        QRandomGenerator caso(42);
        Transazione tr(*archivio);
        const QSqlDatabase db = archivio->connessione();
        QSqlQuery camera(db);
        camera.prepare(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, X, Y, NroPiano, CodiceTipologia)"
                                      " VALUES (?, ?, ?, ?, 'DBL')"));
        for (int i = 0; i < camere; ++i) {
            camera.addBindValue(QString::number(100 * (1 + i / 40) + i % 40 + 1));
            camera.addBindValue(i % 10);
            camera.addBindValue((i % 40) / 10);
            camera.addBindValue(1 + i / 40);
            camera.exec();
        }
        QSqlQuery testata(db);
        testata.prepare(QStringLiteral("INSERT INTO TabellaPrenotazioni (Indice, NumeroPrenotazione, DataPrenotazione,"
                                       " PrenotazioneChiusa) VALUES (?, ?, ?, ?)"));
        QSqlQuery movimento(db);
        movimento.prepare(
            QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, NroCamera,"
                           " Dal, Al, PrenotazioneChiusa, Avere) VALUES (?, 'PrenotazioneCamera', ?, ?, ?, ?, 300)"));
        QSqlQuery ospite(db);
        ospite.prepare(
            QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndicePrenotazioneAssociata,"
                           " NroCameraCliente, DataArrivo, DataPartenza, Arrivato, RagSociale)"
                           " VALUES (?, ?, ?, ?, ?, 'Ospite')"));
        // Each room gets consecutive stays from 2017 on, with a gap of a few days now and then.
        const int perCamera = soggiorni / camere;
        qint64 indice = 0;
        for (int c = 0; c < camere; ++c) {
            const QString nro = QString::number(100 * (1 + c / 40) + c % 40 + 1);
            QDate dal = QDate(2017, 1, 1).addDays(caso.bounded(10));
            for (int s = 0; s < perCamera; ++s) {
                ++indice;
                const QDate al = dal.addDays(1 + caso.bounded(14));
                // Many hotels never close old reservations: most of the history stays open.
                const bool chiusa = al < oggi.addDays(-30) && caso.bounded(3) == 0;
                testata.addBindValue(indice);
                testata.addBindValue(indice);
                testata.addBindValue(dataArchivio(dal.addDays(-20)));
                testata.addBindValue(chiusa ? 1 : 0);
                testata.exec();
                movimento.addBindValue(indice);
                movimento.addBindValue(nro);
                movimento.addBindValue(dataArchivio(dal));
                movimento.addBindValue(dataArchivio(al));
                movimento.addBindValue(chiusa ? 1 : 0);
                movimento.exec();
                for (int o = 0; o < ospitiPerSoggiorno; ++o) {
                    ospite.addBindValue(indice);
                    ospite.addBindValue(nro);
                    ospite.addBindValue(dataArchivio(dal));
                    // Now and then a guest is saved without a departure.
                    ospite.addBindValue(caso.bounded(200) == 0 ? QVariant(QMetaType(QMetaType::QString))
                                                               : QVariant(dataArchivio(al)));
                    ospite.addBindValue(dal <= oggi ? 1 : 0);
                    ospite.exec();
                }
                dal = al.addDays(caso.bounded(3) == 0 ? int(caso.bounded(10)) : 0);
            }
        }
        if (!tr.commit()) {
            std::fprintf(stderr, "Archivio di prova non riempito\n");
            std::exit(EXIT_FAILURE);
        }
    }
};

ArchivioGrande& grande()
{
    static ArchivioGrande a;
    return a;
}

void BM_CameraOccupataNelPeriodo(benchmark::State& stato)
{
    Archivio& a = *grande().archivio;
    int i = 0;
    for (auto _ : stato) {
        const QString nro = QString::number(100 * (1 + (i % camere) / 40) + i % 40 + 1);
        benchmark::DoNotOptimize(CameraOccupataNelPeriodo(a, 0, nro, oggi, finePeriodo));
        ++i;
    }
}
BENCHMARK(BM_CameraOccupataNelPeriodo)->Unit(benchmark::kMicrosecond);

void BM_PiuPrenotazioni(benchmark::State& stato)
{
    Archivio& a = *grande().archivio;
    int i = 0;
    for (auto _ : stato) {
        const QString nro = QString::number(100 * (1 + (i % camere) / 40) + i % 40 + 1);
        benchmark::DoNotOptimize(PiuPrenotazioni(a, nro, oggi, finePeriodo));
        ++i;
    }
}
BENCHMARK(BM_PiuPrenotazioni)->Unit(benchmark::kMicrosecond);

void BM_QuantePersoneInCameraPresenti(benchmark::State& stato)
{
    Archivio& a = *grande().archivio;
    int i = 0;
    for (auto _ : stato) {
        const QString nro = QString::number(100 * (1 + (i % camere) / 40) + i % 40 + 1);
        benchmark::DoNotOptimize(QuantePersoneInCameraPresenti(a, nro, oggi, finePeriodo));
        ++i;
    }
}
BENCHMARK(BM_QuantePersoneInCameraPresenti)->Unit(benchmark::kMicrosecond);

// Argument 1: a week beyond every booking, where each room must be proved free (the slow case).
void BM_CaricaQtaDisponibilitaCamere(benchmark::State& stato)
{
    Archivio& a = *grande().archivio;
    const QDate dal = stato.range(0) == 0 ? oggi : QDate(2035, 6, 10);
    const QDate al = dal.addDays(7);
    for (auto _ : stato)
        benchmark::DoNotOptimize(CaricaQtaDisponibilitaCamere(a, dal, al));
    stato.SetLabel(CaricaQtaDisponibilitaCamere(a, dal, al).value_or(QString()).toStdString());
}
BENCHMARK(BM_CaricaQtaDisponibilitaCamere)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_CaricaQtaPersone(benchmark::State& stato)
{
    Archivio& a = *grande().archivio;
    for (auto _ : stato)
        benchmark::DoNotOptimize(CaricaQtaPersone(a, oggi, finePeriodo));
    stato.SetLabel(CaricaQtaPersone(a, oggi, finePeriodo).value_or(QString()).toStdString());
}
BENCHMARK(BM_CaricaQtaPersone)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    grande();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
