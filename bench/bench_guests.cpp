// Lookups and completions of the guest card on the full municipality table (11,284 official rows, or as many
// made-up ones when the official files are not at hand) and 20,000 guest cards. Target: each under 5 ms.
#include "foundation/orologio.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "guests/importacodici.h"
#include "guests/schedaanagrafica.h"
#include "guests/tabellecodici.h"
#include "supporto.h"

using namespace tomvera;

namespace {

// The card asks nothing in these lookups: any question is a fault of the benchmark.
struct ArchivioOspiti : bench::ArchivioDiProva
{
    bench::InterazioneMuta interazione;
    Orologio orologio;

    ArchivioOspiti()
    {
        creaVuoto();
        for (const schema::Tabella& t :
             { schema::TabellaAnagrafiche(), schema::TabellaAnagraficheAssociatePrenotazioni(),
               schema::TabellaCodiciComuni() })
            schema::applicaTabella(archivio(), t);
        riempiComuni();
        riempiOspiti();
        // The indexes the name look-ahead needs (TOMVERA_BENCH_SENZA_INDICI=1 measures without them).
        if (qEnvironmentVariableIsEmpty("TOMVERA_BENCH_SENZA_INDICI"))
            for (const char* sql : { "CREATE INDEX IF NOT EXISTS Cognome ON TabellaAnagrafiche (Cognome, Nome)",
                                     "CREATE INDEX IF NOT EXISTS Nome ON TabellaAnagrafiche (Nome, Cognome)",
                                     "CREATE INDEX IF NOT EXISTS RagSociale ON TabellaAnagrafiche (RagSociale)" })
                archivio().comando(QString::fromUtf8(sql));
        archivio().comando(QStringLiteral("ANALYZE"));
    }

    void riempiComuni()
    {
        QList<RigaCodice> righe;
        const QString ufficiale = QStringLiteral(TOMVERA_SORGENTI "/../shared/data/alloggiatiweb_comuni_2025-04.csv");
        if (const EsitoLettura l = leggiCsv(ufficiale); l.celle)
            righe = righeCodici(TabellaCodici::Comuni, *l.celle).value_or(QList<RigaCodice>());
        for (int i = static_cast<int>(righe.size()); i < 11284; ++i)
            righe.append(RigaCodice { QString::number(400000000 + i),
                                      QStringLiteral("COMUNE %1").arg(i, 5, 10, QLatin1Char('0')),
                                      QStringLiteral("P%1").arg(i % 107) });
        scriviRigheCodici(archivio(), TabellaCodici::Comuni, righe);
        // Postal codes as a hotel that filled them in would have them.
        archivio().comando(
            QStringLiteral("UPDATE TabellaCodiciComuni SET Cap = printf('%05d', Indice % 9000 + 10000)"));
    }

    void riempiOspiti()
    {
        Transazione t(archivio());
        for (int i = 0; i < 20000; ++i)
            archivio().comando(
                QStringLiteral("INSERT INTO TabellaAnagrafiche (CodiceAnagrafica, RagSociale, Cognome, Nome) "
                               "VALUES (?, ?, ?, ?)"),
                { QString::number(i + 1), QStringLiteral("COGNOME%1 NOME%2").arg(i).arg(i % 97),
                  QStringLiteral("COGNOME%1").arg(i), QStringLiteral("NOME%1").arg(i % 97) });
        t.commit();
    }
};

ArchivioOspiti& ospiti()
{
    static ArchivioOspiti a;
    return a;
}

void codiceConApostrofo(benchmark::State& stato)
{
    Archivio& a = ospiti().archivio();
    for (auto _ : stato)
        benchmark::DoNotOptimize(CercaCodiceTabella(a, QStringLiteral("L'AQUILA"), QStringLiteral("Comune")));
}

void completaComune(benchmark::State& stato, SchedaAnagrafica::CampoComune campo, const QString& testo)
{
    auto& a = ospiti();
    SchedaAnagrafica scheda(a.archivio(), a.interazione, a.orologio);
    for (auto _ : stato)
        benchmark::DoNotOptimize(scheda.COMUNE_Ricerca(campo, testo));
}

void luogoDiNascita(benchmark::State& stato)
{
    auto& a = ospiti();
    SchedaAnagrafica scheda(a.archivio(), a.interazione, a.orologio);
    for (auto _ : stato)
        benchmark::DoNotOptimize(scheda.proposteLuogo(QStringLiteral("SAN")));
}

void nomeInAnticipo(benchmark::State& stato, SchedaAnagrafica::CampoNome campo, const QString& testo)
{
    auto& a = ospiti();
    SchedaAnagrafica scheda(a.archivio(), a.interazione, a.orologio);
    for (auto _ : stato)
        benchmark::DoNotOptimize(scheda.proposteNome(campo, testo));
}

void prossimoCodice(benchmark::State& stato)
{
    Archivio& a = ospiti().archivio();
    for (auto _ : stato)
        benchmark::DoNotOptimize(ProssimoCodiceAnagrafica(a));
}

} // namespace

BENCHMARK(codiceConApostrofo)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completaComune, cap, SchedaAnagrafica::CampoComune::Cap, QStringLiteral("10500"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completaComune, citta, SchedaAnagrafica::CampoComune::Citta, QStringLiteral("ROMA"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completaComune, inizioCitta, SchedaAnagrafica::CampoComune::Citta, QStringLiteral("SAN G"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(completaComune, provincia, SchedaAnagrafica::CampoComune::Provincia, QStringLiteral("TO"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK(luogoDiNascita)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(nomeInAnticipo, cognome, SchedaAnagrafica::CampoNome::Cognome, QStringLiteral("COGNOME15"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(nomeInAnticipo, ragSociale, SchedaAnagrafica::CampoNome::RagSociale, QStringLiteral("COGNOME15"))
    ->Unit(benchmark::kMillisecond);
BENCHMARK(prossimoCodice)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    return bench::esegui(argc, argv, [] { ospiti(); });
}
