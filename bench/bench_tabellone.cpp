// The planning board's full refresh on a large archive: 200 rooms on 4 floors of 50, 100,000 room stays,
// 300,000 guest rows. One refresh = tiles of a 50-room floor (rooms, types, movements, persons present), both
// counters over the hotel, and the drawing of the tiles into an image. Target: under 30 ms.
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/indiciprestazioni.h"
#include "foundation/sessione.h"
#include "rooms/catalogo.h"
#include "rooms/disponibilita.h"
#include "rooms/tabellone.h"
#include "rooms/ui/vistatabellone.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>

using namespace tomvera;

namespace {

constexpr int camere = 200;
constexpr int perPiano = 50;
constexpr int soggiorni = 100000;
constexpr int ospitiPerSoggiorno = 3;
const QDate oggi(2026, 6, 10);

QString numeroCamera(int i)
{
    return QString::number(100 * (1 + i / perPiano) + i % perPiano + 1);
}

// Nobody to answer in a benchmark.
class InterazioneMuta : public Interazione
{
public:
    void messaggio(const QString&, const QString&, Icona) override { }
    bool domandaSiNo(const QString&, const QString&, Icona) override { return false; }
    bool okAnnulla(const QString&, const QString&, Icona) override { return false; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliFileDaAprire(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliFileDaSalvare(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliCartella(const QString&, const QString&) override { return {}; }
    void avviso(TipoAvviso, const QString&, int, bool) override { }
    void archivioOccupato(int) override { }
};

struct AlbergoGrande
{
    QTemporaryDir cartella;
    InterazioneMuta interazione;
    OrologioFisso orologio { QDateTime(oggi, QTime(9, 0)) };
    GestioneErrori errori;
    std::unique_ptr<Archivio> archivio;
    std::unique_ptr<Sessione> sessione;

    AlbergoGrande()
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
        if (!archivio->apri() || !schema::tabellaEsiste(*archivio, QStringLiteral("TabellaStrutturaCamere"))) {
            std::fprintf(stderr, "Archivio di prova non creato\n");
            std::exit(EXIT_FAILURE);
        }
        riempi();
        schema::applicaIndiciPrestazioni(*archivio);
        archivio->comando(QStringLiteral("ANALYZE"));
        sessione = std::make_unique<Sessione>(interazione, orologio, errori);
        sessione->PercorsoDB = percorso;
        sessione->configurazione->Righe = 5;
        sessione->configurazione->Colonne = 10;
        sessione->permessi->amministratore = true;
    }

    void riempi()
    {
        QRandomGenerator caso(7);
        Transazione tr(*archivio);
        const QSqlDatabase db = archivio->connessione();
        const char* tipi[] = { "SIN", "DOP", "TRI", "SUI" };
        for (int t = 0; t < 4; ++t)
            archivio->comando(QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NomeTipologia,"
                                             " NroPersone, Colore) VALUES (?, ?, ?, ?)"),
                              { QString::fromLatin1(tipi[t]), QString::fromLatin1(tipi[t]), t + 1,
                                coloreDaRgb(60 * t, 200 - 40 * t, 120) });
        QSqlQuery camera(db);
        camera.prepare(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, X, Y, NroPiano, CodiceTipologia)"
                                      " VALUES (?, ?, ?, ?, ?)"));
        for (int i = 0; i < camere; ++i) {
            camera.addBindValue(numeroCamera(i));
            camera.addBindValue(i % 10);
            camera.addBindValue((i % perPiano) / 10);
            camera.addBindValue(1 + i / perPiano);
            camera.addBindValue(QString::fromLatin1(tipi[i % 4]));
            camera.exec();
        }
        QSqlQuery testata(db);
        testata.prepare(QStringLiteral("INSERT INTO TabellaPrenotazioni (Indice, NumeroPrenotazione, DataPrenotazione,"
                                       " PrenotazioneChiusa) VALUES (?, ?, ?, ?)"));
        QSqlQuery movimento(db);
        movimento.prepare(QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, NroCamera,"
                                         " Dal, Al, PrenotazioneChiusa) VALUES (?, 'PrenotazioneCamera', ?, ?, ?, ?)"));
        QSqlQuery ospite(db);
        ospite.prepare(
            QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndicePrenotazioneAssociata,"
                           " NroCameraCliente, DataArrivo, DataPartenza, Arrivato, RagSociale, IndiceRiga)"
                           " VALUES (?, ?, ?, ?, ?, 'Ospite', ?)"));
        // Consecutive stays per room from 2017, a gap now and then, and an overbooking here and there.
        qint64 indice = 0;
        for (int c = 0; c < camere; ++c) {
            const QString nro = numeroCamera(c);
            QDate dal = QDate(2017, 1, 1).addDays(caso.bounded(10));
            for (int s = 0; s < soggiorni / camere; ++s) {
                ++indice;
                const QDate al = dal.addDays(1 + caso.bounded(14));
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
                    ospite.addBindValue(dataArchivio(al));
                    ospite.addBindValue(dal <= oggi ? 1 : 0);
                    ospite.addBindValue(o + 1);
                    ospite.exec();
                }
                const bool sovrapposto = caso.bounded(50) == 0;
                dal = sovrapposto ? al.addDays(-1) : al.addDays(caso.bounded(3) == 0 ? int(caso.bounded(10)) : 0);
            }
        }
        if (!tr.commit()) {
            std::fprintf(stderr, "Archivio di prova non riempito\n");
            std::exit(EXIT_FAILURE);
        }
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
    Archivio& a = *albergo().archivio;
    for (auto _ : stato)
        benchmark::DoNotOptimize(leggiPiano(a, 2, oggi, oggi.addDays(1), 5, 10));
}
BENCHMARK(BM_LeggiPiano)->Unit(benchmark::kMillisecond);

void BM_Contatori(benchmark::State& stato)
{
    Archivio& a = *albergo().archivio;
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
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    albergo();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
