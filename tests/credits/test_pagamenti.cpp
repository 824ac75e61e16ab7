#include "archiviotemporaneo.h"
#include "credits/pagamenti.h"
#include "foundation/formati.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

QDate d(const char* testo)
{
    return *leggiData(QString::fromLatin1(testo));
}

CondizioniPagamento termine(int rate, const QString& ripartizione, int mesiDaPrima = 0, int mesiTra = 1,
                            const QString& decorrenza = pagamenti::DataFattura)
{
    CondizioniPagamento c;
    c.NumeroDiRate = rate;
    c.RipartizioneIva = ripartizione;
    c.MesiDaPrimaRata = mesiDaPrima;
    c.MesiTraRate = mesiTra;
    c.DecorrenzaRate = decorrenza;
    return c;
}

QList<double> importi(const std::vector<Rata>& rate)
{
    QList<double> v;
    for (const Rata& r : rate)
        v << r.importo;
    return v;
}

} // namespace

// The pure rules: rounding of instalments, due dates, amounts and commissions.
class TestRate : public QObject
{
    Q_OBJECT
private slots:
    void arrotondaRataAlPari()
    {
        QCOMPARE(ArrotondaRata(100.0 / 3), 33.33);
        QCOMPARE(ArrotondaRata(0.125), 0.12);
        QCOMPARE(ArrotondaRata(0.375), 0.38);
        QCOMPARE(ArrotondaRata(-0.125), -0.12);
        QCOMPARE(ArrotondaRata(0.126), 0.13);
        // Binary halves: 1.005 and 2.675 are stored just below the half, yet their decimals are a tie.
        QCOMPARE(ArrotondaRata(1.005), 1.00);
        QCOMPARE(ArrotondaRata(1.015), 1.02);
        QCOMPARE(ArrotondaRata(2.675), 2.68);
        QCOMPARE(ArrotondaRata(100.01 / 2), 50.00);
        QCOMPARE(ArrotondaRata(100.03 / 2), 50.02);
        // Every tie up to 10,000.00: the even cent, whatever the binary form of the quotient.
        for (int centesimi = 0; centesimi < 1000000; centesimi += 7) {
            const double atteso = (centesimi % 2 == 0 ? centesimi : centesimi + 1) / 100.0;
            QCOMPARE(ArrotondaRata((2.0 * centesimi + 1) / 200.0), atteso);
        }
    }

    void dateDiScadenza()
    {
        // 31 January with a month to the first instalment: February has 28 days even in 2016, and the day cut
        // off comes back on the next instalment.
        QCOMPARE(CalcolaDataScadenza(d("31/01/2016"), 1, 3, 0, 0, 1, 1, pagamenti::DataFattura), d("28/02/2016"));
        QCOMPARE(CalcolaDataScadenza(d("31/01/2016"), 2, 3, 0, 0, 1, 1, pagamenti::DataFattura), d("31/03/2016"));
        QCOMPARE(CalcolaDataScadenza(d("31/01/2016"), 3, 3, 0, 0, 1, 1, pagamenti::DataFattura), d("30/04/2016"));
        QCOMPARE(CalcolaDataScadenza(d("29/02/2016"), 1, 1, 0, 0, 0, 0, pagamenti::DataFattura), d("28/02/2016"));
        QCOMPARE(CalcolaDataScadenza(d("29/02/2016"), 1, 1, 0, 0, 0, 0, pagamenti::FineMeseDataFattura),
                 d("28/02/2016"));
        // Days first, end of month last.
        QCOMPARE(CalcolaDataScadenza(d("15/03/2026"), 1, 1, 30, 0, 0, 0, pagamenti::FineMeseDataFattura),
                 d("30/04/2026"));
        QCOMPARE(CalcolaDataScadenza(d("15/03/2026"), 3, 3, 30, 30, 0, 0, pagamenti::DataFattura), d("13/06/2026"));
        // Months carry into the year.
        QCOMPARE(CalcolaDataScadenza(d("15/11/2026"), 3, 3, 0, 0, 2, 1, pagamenti::DataFattura), d("15/04/2027"));
        QCOMPARE(CalcolaDataScadenza(d("31/12/2026"), 2, 2, 0, 0, 2, 0, pagamenti::FineMeseDataFattura),
                 d("28/02/2027"));
        // Two-digit years read back in the 1930-2029 window.
        QCOMPARE(CalcolaDataScadenza(d("15/12/2029"), 1, 1, 0, 0, 0, 1, pagamenti::DataFattura), d("15/01/1930"));
    }

    void importiDelleRate()
    {
        const QDate oggi = d("10/05/2026");
        QCOMPARE(importi(CalcolaRate(termine(3, pagamenti::IvaSuTutteLeRate), oggi, 100, 80)),
                 (QList<double> { 33.33, 33.33, 33.34 }));
        QCOMPARE(importi(CalcolaRate(termine(3, pagamenti::PrimaRataSoloIva), oggi, 122, 100)),
                 (QList<double> { 22, 50, 50 }));
        QCOMPARE(importi(CalcolaRate(termine(3, pagamenti::IvaTuttaSullaPrimaRata), oggi, 122, 100)),
                 (QList<double> { 55.33, 33.33, 33.34 }));
        // The last instalment takes the remainder, which may be negative by a cent.
        const auto conResto = importi(CalcolaRate(termine(3, pagamenti::IvaSuTutteLeRate), oggi, 0.05, 0.05));
        QCOMPARE(conResto.size(), 3);
        QCOMPARE(conResto.at(0), 0.02);
        QVERIFY(qAbs(conResto.at(2) - 0.01) < 1e-9);
        // An unknown split leaves all but the last at 0; no instalments at all for N <= 0.
        QCOMPARE(importi(CalcolaRate(termine(2, QStringLiteral("boh")), oggi, 100, 80)), (QList<double> { 0, 0 }));
        QVERIFY(CalcolaRate(termine(0, pagamenti::IvaSuTutteLeRate), oggi, 100, 80).empty());
        const auto una = CalcolaRate(CondizioniPagamento(), oggi, 99.99, 81.96);
        QCOMPARE(una.size(), size_t(1));
        QCOMPARE(una.front().importo, 99.99);
        QCOMPARE(una.front().scadenza, oggi);
    }

    void provvigioni()
    {
        const auto rate = CalcolaRate(termine(3, pagamenti::IvaSuTutteLeRate), d("10/05/2026"), 100, 80, 10);
        QCOMPARE(rate.at(0).provvigione, 3.33);
        QCOMPARE(rate.at(1).provvigione, 3.33);
        QVERIFY(qAbs(rate.at(2).provvigione - 3.34) < 1e-9);
        QCOMPARE(CalcolaRate(termine(3, pagamenti::IvaSuTutteLeRate), d("10/05/2026"), 0, 0, 10).at(0).provvigione,
                 0.0);
        QCOMPARE(CalcolaRate(CondizioniPagamento(), d("10/05/2026"), 100, 80, 10).at(0).provvigione, 10.0);
    }
};

// The routines over the archive: rows, states and the warnings about payments.
class TestScadenzeArchivio : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<test::ArchivioTemporaneo> m_t;
    const QDate m_data = QDate(2026, 3, 15);

    DatiScadenze fattura(double totale, const QString& termine, const QString& saldato = pagamenti::Credito)
    {
        DatiScadenze s;
        s.TipoDoc = QStringLiteral("Fattura");
        s.DataDoc = m_data;
        s.NroDoc = 7;
        s.CodCliente = QStringLiteral("12");
        s.DesCliente = QStringLiteral("Rossi");
        s.Totale = totale;
        s.Imponibile = totale / 1.1;
        s.DataRiferimento = m_data;
        s.Saldato = saldato;
        s.DescrizionePagamento = termine;
        return s;
    }
    QStringList stati()
    {
        QStringList v;
        for (const QSqlRecord& r : m_t->archivio().righe(
                 QStringLiteral("SELECT TipoDiPagamento, Saldato FROM Pagamenti ORDER BY DataScadenzaRata, Indice")))
            v << r.value(0).toString() + QLatin1Char(':') + r.value(1).toString();
        return v;
    }
    void paga(const QString& scadenza, double importo)
    {
        QVERIFY(m_t->archivio().comando(
            QStringLiteral("INSERT INTO Pagamenti (TipoDiPagamento, TipoDoc, DataDoc, NroDoc, ImportoFattura,"
                           " ImportoSaldo, Saldato, DataScadenzaRata) VALUES ('Scadenze', 'Fattura', ?, 7, 0, ?,"
                           " 'Credito', ?)"),
            { dataArchivio(m_data), importo, scadenza }));
    }

private slots:
    void init()
    {
        m_t = std::make_unique<test::ArchivioTemporaneo>();
        QVERIFY(m_t->archivio().comando(QStringLiteral(
            "INSERT INTO TabellaPagamenti (DescrizionePagamento, NumeroDiRate, GiorniTraRate, DecorrenzaRate,"
            " MesiTraRate, GiorniDaPrimaRata, MesiDaPrimaRata, RipartizioneIva, SegnaPagato) VALUES"
            " ('30-60 FM', 2, 30, 'Fine mese data fattura', 0, 30, 0, 'Iva su tutte le rate', 0)")));
    }
    void cleanup() { m_t.reset(); }

    void righeScritteEStati()
    {
        Pagamenti p(m_t->archivio(), &m_t->interazione());
        QVERIFY(p.CreaScadenze(fattura(100.01, QStringLiteral("30-60 FM"))));
        const auto righe = m_t->archivio().righe(
            QStringLiteral("SELECT ImportoFattura, DataScadenzaRata, Saldato, CodCliente, DescrizionePagamento"
                           " FROM Pagamenti ORDER BY DataScadenzaRata"));
        QCOMPARE(righe.size(), 2);
        QCOMPARE(righe.at(0).value(0).toDouble(), 50.00);
        QCOMPARE(righe.at(1).value(0).toDouble(), 50.01);
        QCOMPARE(righe.at(0).value(1).toString(), QStringLiteral("2026-04-30"));
        QCOMPARE(righe.at(1).value(1).toString(), QStringLiteral("2026-05-31"));
        QCOMPARE(righe.at(0).value(2).toString(), QStringLiteral("Credito"));
        QCOMPARE(righe.at(0).value(3).toString(), QStringLiteral("12"));

        // The same rows again: refused, nothing added.
        QVERIFY(!p.CreaScadenze(fattura(100.01, QStringLiteral("30-60 FM"))));
        QCOMPARE(m_t->interazione().ultimoTesto(),
                 QStringLiteral("ERRORE: il pagamento che si stà registrando esiste già"));
        QCOMPARE(m_t->archivio().valore(QStringLiteral("SELECT count(*) FROM Pagamenti")).toInt(), 2);

        // A paid document: every instalment settled by its own amount.
        QVERIFY(p.CancellaScadenzeDocumento(pagamenti::DocumentoNew, QStringLiteral("Fattura"), m_data, 7,
                                            pagamenti::Cancella));
        QVERIFY(p.CreaScadenze(fattura(100, QStringLiteral("30-60 FM"), pagamenti::Saldato)));
        QCOMPARE(stati(), (QStringList { "DocumentoNew:Saldato", "DocumentoNew:Saldato" }));
        QVERIFY(p.DocumentoSaldato(pagamenti::DocumentoNew, QStringLiteral("Fattura"), m_data, 7));
    }

    void termineCancellato()
    {
        Pagamenti p(m_t->archivio(), nullptr);
        QVERIFY(p.CreaScadenze(fattura(99.99, QStringLiteral("Non più in tabella"))));
        const auto r = m_t->archivio().riga(QStringLiteral("SELECT ImportoFattura, DataScadenzaRata FROM Pagamenti"));
        QVERIFY(r);
        QCOMPARE(m_t->archivio().valore(QStringLiteral("SELECT count(*) FROM Pagamenti")).toInt(), 1);
        QCOMPARE(r->value(0).toDouble(), 99.99);
        QCOMPARE(r->value(1).toString(), dataArchivio(m_data));
    }

    void pagamentiParzialiERisalvataggio()
    {
        Pagamenti p(m_t->archivio(), &m_t->interazione());
        QVERIFY(p.CreaScadenze(fattura(200, QStringLiteral("30-60 FM"))));
        QVERIFY(p.DocumentoSenzaMovimenti(QStringLiteral("Fattura"), m_data, 7));
        // 30 + 70 settle the first instalment of 100 exactly; 33.33 + 66.67 with binary noise too.
        paga(QStringLiteral("2026-04-30"), 30);
        paga(QStringLiteral("2026-04-30"), 70);
        QVERIFY(p.ImpostaStatoScadenza(QStringLiteral("Fattura"), m_data, 7, QDate(2026, 4, 30)));
        QCOMPARE(
            stati(),
            (QStringList { "DocumentoNew:Saldato", "Scadenze:Saldato", "Scadenze:Saldato", "DocumentoNew:Credito" }));
        QVERIFY(!p.DocumentoSaldato(pagamenti::DocumentoNew, QStringLiteral("Fattura"), m_data, 7));
        QVERIFY(!p.DocumentoSenzaMovimenti(QStringLiteral("Fattura"), m_data, 7));

        // Saving the document again: the instalments are made anew, the payments stay and count again.
        QVERIFY(!p.CancellaScadenzeDocumento(pagamenti::DocumentoNew, QStringLiteral("Fattura"), m_data, 7,
                                             pagamenti::Cancella));
        QCOMPARE(stati(), (QStringList { "Scadenze:Credito", "Scadenze:Credito" }));
        QVERIFY(p.CreaScadenze(fattura(200, QStringLiteral("30-60 FM"))));
        QCOMPARE(
            stati(),
            (QStringList { "Scadenze:Saldato", "Scadenze:Saldato", "DocumentoNew:Saldato", "DocumentoNew:Credito" }));

        // Before changing such a document the user is warned; "no" stops.
        m_t->interazione().rispondiNo(QStringLiteral("Ci sono delle operazioni effettuate collegate"));
        QVERIFY(p.ControllaCollegamentiDocumento(QStringLiteral("Fattura"), m_data, 7));
        m_t->interazione().rispondiSi();
        QVERIFY(!p.ControllaCollegamentiDocumento(QStringLiteral("Fattura"), m_data, 7));
        QVERIFY(!p.ControllaCollegamentiDocumento(QStringLiteral("Fattura"), m_data, 7, true));
        QVERIFY(m_t->interazione().errore().isEmpty());
        QVERIFY(m_t->interazione().risposteFinite());
    }

    void provvigioniSaldate()
    {
        Pagamenti p(m_t->archivio(), nullptr);
        DatiScadenze s = fattura(100, QStringLiteral("30-60 FM"));
        s.Agente = QStringLiteral("Bianchi");
        s.ValoreProvvigione = 10;
        QVERIFY(p.CreaScadenze(s));
        QVERIFY(m_t->archivio().comando(QStringLiteral(
            "INSERT INTO Pagamenti (TipoDiPagamento, TipoDoc, DataDoc, NroDoc, Agente, ValoreSaldatoProvvigione,"
            " DataScadenzaRata) VALUES ('Agente', 'Fattura', '2026-03-15', 7, 'Bianchi', 5, '2026-04-30')")));
        QVERIFY(p.AggiornaStatoProvvigioni(QStringLiteral("Fattura"), m_data, 7));
        QStringList v;
        for (const QSqlRecord& r : m_t->archivio().righe(QStringLiteral(
                 "SELECT TipoDiPagamento, StatoProvvigione FROM Pagamenti ORDER BY DataScadenzaRata, Indice")))
            v << r.value(0).toString() + QLatin1Char(':') + r.value(1).toString();
        QCOMPARE(v, (QStringList { "DocumentoNew:Saldato", "Agente:Saldato", "DocumentoNew:" }));
    }
};

TOMVERA_TEST(TestRate)
TOMVERA_TEST(TestScadenzeArchivio)

#include "test_pagamenti.moc"
