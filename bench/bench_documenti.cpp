// Documents: the totals of a 1,000-line document (target under 2 ms), the save of a 200-line invoice with
// 12 instalments (under 30 ms), and the next number of a numbering line with 100,000 documents in the archive
// (under 0.5 ms).
#include "documents/corpofattura.h"
#include "documents/documentonew.h"
#include "documents/fattura.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "supporto.h"

#include <QSqlQuery>

using namespace tomvera;

namespace {

const Aliquote aliquote { 0, 10, 22, 4, 5, 0, 0, 0, 0 };

// Lines as a desk types them: rooms, extras at several rates, some discounts, a text line now and then.
std::vector<RigaDocumento> righe(int quante)
{
    static const char* iva[] = { "10", "22", "4", "0", "5" };
    std::vector<RigaDocumento> v;
    for (int i = 0; i < quante; ++i) {
        RigaDocumento r;
        r.Descrizione = QStringLiteral("Riga %1").arg(i);
        if (i % 25 != 24) {
            r.Qta = QString::number(1 + i % 4);
            r.PrezzoIvaInclusa = FormattaImporto(12.5 + (i * 37 % 1000) / 7.0);
            r.Iva = QString::fromLatin1(iva[i % 5]);
            if (i % 3 == 0)
                r.ScontoArt = QStringLiteral("10");
        }
        v.push_back(r);
    }
    return v;
}

void BM_CalcolaFatt1000Righe(benchmark::State& stato)
{
    std::vector<RigaDocumento> grid = righe(1000);
    ScontiDocumento sconti;
    sconti.ScontoPerc = 10;
    sconti.ScontoPerc2 = 5;
    sconti.ScontoMerceVal = 3;
    TotaliDocumento t;
    for (auto _ : stato) {
        t = CalcolaFatt(grid, aliquote, sconti);
        benchmark::DoNotOptimize(t);
    }
    if (t.Totale <= 0)
        stato.SkipWithError("totale sbagliato");
}
BENCHMARK(BM_CalcolaFatt1000Righe)->Unit(benchmark::kMicrosecond);

struct ArchivioDocumenti : bench::ArchivioDiProva
{
    bench::InterazioneMuta interazione;
    OrologioFisso orologio { QDateTime(QDate(2026, 6, 30), QTime(12, 0)) };
    Sessione sessione { interazione, orologio, errori };

    // 100,000 headers over ten years: invoices and the group's carriage invoices sharing one line, fiscal
    // receipts on their own, a few other types.
    ArchivioDocumenti()
    {
        crea({ QStringLiteral("Testate"), QStringLiteral("Righe"), QStringLiteral("Pagamenti") });
        sessione.configurazione->ValIva = aliquote;
        archivio().comando(QStringLiteral("INSERT INTO TabellaDocumenti (TipoDoc, IndiceGruppo, Gruppo) VALUES"
                                          " ('Fattura', 1, 'Fatturazione'), ('Fattura Accompagnatoria', 2,"
                                          " 'Fatturazione')"));
        archivio().comando(QStringLiteral(
            "INSERT INTO TabellaPagamenti (DescrizionePagamento, NumeroDiRate, GiorniTraRate, DecorrenzaRate,"
            " MesiTraRate, GiorniDaPrimaRata, MesiDaPrimaRata, RipartizioneIva) VALUES"
            " ('Dodici rate', 12, 0, 'Fine mese data fattura', 1, 0, 1, 'Iva su tutte le rate')"));
        Transazione tr(archivio());
        QSqlQuery q(archivio().connessione());
        q.prepare(QStringLiteral("INSERT INTO Testate (TipoDoc, DataDoc, NroDoc, RagSociale, totale) VALUES (?, ?, ?,"
                                 " 'Cliente', 100)"));
        static const char* tipi[] = { "Fattura", "Fattura Accompagnatoria", "Ricevuta Fiscale", "Preventivo" };
        const int perAnno = 10000;
        for (int anno = 2017; anno <= 2026; ++anno) {
            int linea = 0, ricevute = 0, preventivi = 0;
            for (int i = 0; i < perAnno; ++i) {
                const int t = i % 10 < 4 ? 0 : i % 10 < 5 ? 1 : i % 10 < 9 ? 2 : 3;
                const int numero = t < 2 ? ++linea : t == 2 ? ++ricevute : ++preventivi;
                q.addBindValue(QString::fromLatin1(tipi[t]));
                q.addBindValue(dataArchivio(QDate(anno, 1, 1).addDays(i * 365 / perAnno)));
                q.addBindValue(numero);
                if (!q.exec())
                    bench::interrompi(QStringLiteral("Testate non riempita"));
            }
        }
        if (!tr.commit())
            bench::interrompi(QStringLiteral("Testate non riempita"));
        ottimizza();
    }
};

ArchivioDocumenti& documenti()
{
    static ArchivioDocumenti a;
    return a;
}

void BM_ProssimoNumeroDocumento100000(benchmark::State& stato)
{
    Fattura f(documenti().archivio());
    qint64 numero = 0;
    for (auto _ : stato) {
        numero = f.ProssimoNumeroDocumento(QStringLiteral("Fattura Accompagnatoria"), QDate(2026, 6, 30));
        benchmark::DoNotOptimize(numero);
    }
    if (numero < 5000)
        stato.SkipWithError("numero sbagliato");
}
BENCHMARK(BM_ProssimoNumeroDocumento100000)->Unit(benchmark::kMicrosecond);

// A new invoice each time: number taken in the transaction, header, 200 lines, 12 instalments, one commit.
void BM_RegistraFattura200Righe12Rate(benchmark::State& stato)
{
    ArchivioDocumenti& a = documenti();
    const std::vector<RigaDocumento> grid = righe(200);
    for (auto _ : stato) {
        DocumentoNew_E d(a.sessione, a.archivio());
        d.testata.TipoDoc = QStringLiteral("Fattura");
        d.testata.DataDoc = QDate(2026, 6, 30);
        d.NumeroProposto = d.testata.NroDoc = 1;
        d.testata.Pagamento = QStringLiteral("Dodici rate");
        d.testata.RagSociale = QStringLiteral("Rossi Viaggi Srl");
        d.righe = grid;
        if (!d.RegistraDocDaEsterno().ok()) {
            stato.SkipWithError("documento non registrato");
            break;
        }
    }
}
BENCHMARK(BM_RegistraFattura200Righe12Rate)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return bench::esegui(argc, argv, [] { documenti(); });
}
