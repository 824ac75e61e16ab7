// The price of a 30-night stay across three seasons, under a list of 2,000 rows with nightly and weekly blocks.
// Target: under 0.5 ms from the archive (one query and the greedy rule in memory).
#include "pricelists/calcoloprezzi.h"
#include "supporto.h"

#include <QSqlQuery>

using namespace tomvera;
using namespace tomvera::prezzi;

namespace {

constexpr int righeListino = 2000;
// 20 room types with 100 rows each: every type has its three seasons, the rest are older periods, weekend and
// long-stay blocks that the rule has to look at and refuse.
constexpr int tipologie = 20;

const QDate arrivo(2026, 6, 20);
const QDate partenza(2026, 7, 20); // 30 nights: late June, July, and the first nights after 15/07

QString tipologia(int i)
{
    return QStringLiteral("TIPO%1").arg(i, 2, 10, QLatin1Char('0'));
}

// The rows of one type: three seasons with nightly and weekly blocks first, then filler blocks of 2 to 28
// nights in short periods that never contain the stay.
std::vector<RigaListino> righeDiUnaTipologia(int quante)
{
    std::vector<RigaListino> righe {
        { QStringLiteral("01/06"), QStringLiteral("30/06"), 90, 10, 1 },
        { QStringLiteral("01/06"), QStringLiteral("30/06"), 560, 10, 7 },
        { QStringLiteral("01/07"), QStringLiteral("15/07"), 120, 10, 1 },
        { QStringLiteral("01/07"), QStringLiteral("15/07"), 770, 10, 7 },
        { QStringLiteral("16/07"), QStringLiteral("31/08"), 140, 10, 1 },
        { QStringLiteral("16/07"), QStringLiteral("31/08"), 910, 10, 7 },
    };
    for (int i = static_cast<int>(righe.size()); i < quante; ++i) {
        const int mese = 1 + i % 5; // January to May
        righe.push_back(
            { QStringLiteral("%1/%2").arg(1 + i % 20, 2, 10, QLatin1Char('0')).arg(mese, 2, 10, QLatin1Char('0')),
              QStringLiteral("%1/%2").arg(8 + i % 20, 2, 10, QLatin1Char('0')).arg(mese, 2, 10, QLatin1Char('0')),
              50.0 + i, 10, 2 + i % 27 });
    }
    return righe;
}

struct ArchivioListini : bench::ArchivioDiProva
{
    ArchivioListini()
    {
        crea({ QStringLiteral("TabellaListinoCamere") });
        Transazione tr(archivio());
        QSqlQuery riga(archivio().connessione());
        riga.prepare(QStringLiteral("INSERT INTO TabellaListinoCamere (Listino, CodiceTipologia, Dal, Al, Prezzo, Iva,"
                                    " Giorni) VALUES ('Estate', ?, ?, ?, ?, ?, ?)"));
        for (int t = 0; t < tipologie; ++t) {
            for (const RigaListino& r : righeDiUnaTipologia(righeListino / tipologie)) {
                riga.addBindValue(tipologia(t));
                riga.addBindValue(r.Dal);
                riga.addBindValue(r.Al);
                riga.addBindValue(r.Prezzo);
                riga.addBindValue(r.Iva);
                riga.addBindValue(r.Giorni);
                riga.exec();
            }
        }
        // Another list in the same table, which the query has to skip.
        archivio().comando(QStringLiteral("INSERT INTO TabellaListinoCamere (Listino, CodiceTipologia, Dal, Al, "
                                          "Prezzo, Iva, Giorni) SELECT 'Inverno', CodiceTipologia, Dal, Al, Prezzo, "
                                          "Iva, Giorni FROM TabellaListinoCamere"));
        tr.commit();
    }
};

Archivio& listini()
{
    static ArchivioListini a;
    return a.archivio();
}

// The reservation's way: a new pass, one query for the list and type, the rule in memory.
void BM_SoggiornoDaArchivio(benchmark::State& stato)
{
    Archivio& archivio = listini();
    double prezzo = 0;
    for (auto _ : stato) {
        CalcoloPrezzi calcolo(archivio);
        prezzo = calcolo.CalcolaPrezzoSoggiornoCamera(tipologia(7), arrivo, partenza, QStringLiteral("Estate"));
        benchmark::DoNotOptimize(prezzo);
    }
    // 11 June nights (a week and 4), 15 nights up to 15/07 (two weeks and 1), 4 nights after.
    if (prezzo != 560 + 4 * 90 + 2 * 770 + 120 + 4 * 140)
        stato.SkipWithError("prezzo sbagliato");
}
BENCHMARK(BM_SoggiornoDaArchivio)->Unit(benchmark::kMicrosecond);

// The worst case of the rule alone: all 2,000 rows belong to the type being priced.
void BM_SoggiornoInMemoria2000Righe(benchmark::State& stato)
{
    const RigheListino righe = RigheListino::daRighe(righeDiUnaTipologia(righeListino));
    for (auto _ : stato)
        benchmark::DoNotOptimize(CalcolaPrezzoSoggiorno(righe, arrivo, partenza));
}
BENCHMARK(BM_SoggiornoInMemoria2000Righe)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    return bench::esegui(argc, argv, [] { listini(); });
}
