#include "documents/corpofattura.h"
#include "documents/fattura.h"
#include "foundation/routines.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

RigaDocumento riga(const char* qta, const char* prezzoIvato, const char* iva, const char* sconto = "",
                   const char* descrizione = "")
{
    RigaDocumento r;
    r.Qta = QString::fromUtf8(qta);
    r.PrezzoIvaInclusa = QString::fromUtf8(prezzoIvato);
    r.Iva = QString::fromUtf8(iva);
    r.ScontoArt = QString::fromUtf8(sconto);
    r.Descrizione = QString::fromUtf8(descrizione);
    return r;
}

// Slot 0 exempt at 0, then 10, 22, 4, and 10 again in slot 4.
const Aliquote aliquote { 0, 10, 22, 4, 10, 0, 0, 0, 0 };

} // namespace

// The 0.51 rounding of documents, the reading and writing of amounts.
class TestArrotonda : public QObject
{
    Q_OBJECT
private slots:
    void regolaDelloZeroCinquantuno()
    {
        QCOMPARE(Arrotonda(10.004, 2), 10.00);
        QCOMPARE(Arrotonda(10.0049, 2), 10.01);
        QCOMPARE(Arrotonda(10.005, 2), 10.01);
        QCOMPARE(Arrotonda(-10.005, 2), -10.00);
        QCOMPARE(Arrotonda(99.99 / 1.22, 2), 81.96);
        // 1.005 and 0.285 sit just below their half cent in binary: the 0.51 still lifts them.
        QCOMPARE(Arrotonda(1.005, 2), 1.01);
        QCOMPARE(Arrotonda(0.285, 2), 0.29);
        // Every x.xx49 reaches the next cent, every x.xx48 stays, whatever the binary form of the value;
        // on the negative side x.xx51 comes back to x.xx exactly.
        for (int c = 0; c < 2000000; c += 13) {
            QCOMPARE(Arrotonda((c + 0.49) / 100.0, 2), (c + 1) / 100.0);
            QCOMPARE(Arrotonda((c + 0.48) / 100.0, 2), c / 100.0);
            QCOMPARE(Arrotonda(-(c + 0.51) / 100.0, 2), -c / 100.0);
        }
    }

    void importiItaliani()
    {
        QCOMPARE(ValoreNumerico(QStringLiteral("1.234,50")), 1234.5);
        QCOMPARE(ValoreNumerico(QStringLiteral("1234,5")), 1234.5);
        QCOMPARE(ValoreNumerico(QStringLiteral("")), 0.0);
        QCOMPARE(ValoreNumerico(QStringLiteral("-0,01")), -0.01);
        QCOMPARE(ValoreNumerico(QStringLiteral("12 pz")), 12.0);
        QCOMPARE(ValoreNumerico(QStringLiteral("pz")), 0.0);
        QVERIFY(!LeggiValore(QStringLiteral("12 pz")));
        QVERIFY(!LeggiValore(QStringLiteral("-")));
        QCOMPARE(LeggiValore(QStringLiteral(" ")), std::optional<double>(0));
        QCOMPARE(FormattaImporto(1234.5), QStringLiteral("1.234,50"));
        QCOMPARE(FormattaImporto(-0.01), QStringLiteral("-0,01"));
        QCOMPARE(FormattaImporto(0), QStringLiteral("0,00"));
    }

    void aliquote()
    {
        QCOMPARE(TrovaIndiceIva(::aliquote, 10), 1); // 10 stands twice: the first slot wins
        QCOMPARE(TrovaIndiceIva(::aliquote, 4), 3);
        QCOMPARE(TrovaIndiceIva(::aliquote, 7), 0);
        QVERIFY(ValidaIva(::aliquote, QString()));
        QVERIFY(ValidaIva(::aliquote, QStringLiteral("0")));
        QVERIFY(ValidaIva(::aliquote, QStringLiteral("22")));
        QVERIFY(!ValidaIva(::aliquote, QStringLiteral("7")));
        QVERIFY(!ValidaIva(::aliquote, QStringLiteral("dieci")));
    }
};

// The grid and the totals of a document.
class TestCalcolaFatt : public QObject
{
    Q_OBJECT
private slots:
    void unaRigaDiEsempio()
    {
        std::vector<RigaDocumento> righe { riga("2", "110", "10") };
        const TotaliDocumento t = CalcolaFatt(righe, aliquote, {});
        QCOMPARE(righe[0].Prezzo, QStringLiteral("100,00"));
        QCOMPARE(righe[0].Totale, QStringLiteral("200,00"));
        QCOMPARE(righe[0].TotaleIvato, QStringLiteral("220,00"));
        QCOMPARE(t.Iva[1], 20.0);
        QCOMPARE(t.Imp[1], 200.0);
        QCOMPARE(t.Imponibile, 200.0);
        QCOMPARE(t.Totale, 220.0);
    }

    void scontiInCascataEMerce()
    {
        std::vector<RigaDocumento> righe { riga("1", "100", "10") };
        ScontiDocumento sconti;
        sconti.ScontoPerc = 10;
        sconti.ScontoPerc2 = 5;
        const TotaliDocumento t = CalcolaFatt(righe, aliquote, sconti);
        QCOMPARE(t.ScontoValIvato, 14.5); // 10 + 90 * 5%, not 15
        QCOMPARE(t.Totale, 85.5);

        // A goods discount comes off the total after VAT and leaves the slots alone.
        std::vector<RigaDocumento> altre { riga("1", "110", "10") };
        ScontiDocumento merce;
        merce.ScontoMerceVal = 5;
        const TotaliDocumento m = CalcolaFatt(altre, aliquote, merce);
        QCOMPARE(m.Totale, 105.0);
        QCOMPARE(m.Iva[1], 10.0);
        QCOMPARE(m.Imp[1], 100.0);
        QCOMPARE(m.Imponibile, 95.0);

        QCOMPARE(NormalizzaScontoPercentuale(120), 100.0);
        QCOMPARE(NormalizzaScontoMerce(5.555), 5.56);
    }

    void slotEAliquoteDoppie()
    {
        // 10% stands in slots 1 and 4: every line goes to slot 1. Slot 0 takes the exempt lines, unrounded.
        std::vector<RigaDocumento> righe { riga("1", "110", "10"), riga("3", "33,3333", "0"),
                                           riga("1", "99,99", "22", "10"), riga("1", "52", "4") };
        const TotaliDocumento t = CalcolaFatt(righe, aliquote, {});
        QCOMPARE(t.Imp[1], 100.0);
        QCOMPARE(t.Imp[4], 0.0);
        QCOMPARE(t.Iva[0], 0.0);
        QCOMPARE(t.Imp[0], 100.0); // 3 * 33.3333 = 99.9999 → 100.00 by the line's rounding
        QCOMPARE(righe[2].TotaleIvato, QStringLiteral("89,99")); // 99.99 - 10% = 89.991
        QCOMPARE(righe[2].Totale, QStringLiteral("73,76")); // 81.96 - 10% = 73.764
        QCOMPARE(t.Iva[2], 16.23); // 89.99 * 22/122 = 16.2277
        QCOMPARE(t.Imp[2], 73.76);
        QCOMPARE(t.Iva[3], 2.0);
        QCOMPARE(t.Totale, 100 + 10 + 100 + 89.99 + 52.0);
    }

    void righeFuoriDaiTotali()
    {
        // A line without a rate is outside the totals; a line without a price with VAT has no net price.
        std::vector<RigaDocumento> righe { riga("1", "100", ""), riga("2", "", "10"), riga("1", "50", "22") };
        const TotaliDocumento t = CalcolaFatt(righe, aliquote, {});
        QCOMPARE(righe[0].Prezzo, QStringLiteral("100,00"));
        QCOMPARE(righe[0].Totale, QString());
        QCOMPARE(righe[1].Prezzo, QString());
        QCOMPARE(righe[1].Totale, QStringLiteral("0,00"));
        QCOMPARE(t.Totale, 50.0);
    }

    void correzioneDellaGriglia()
    {
        std::vector<RigaDocumento> righe { riga("0", "100", "7", "5", "Solo testo"),
                                           riga("1", "10", "22", "0", "Caffè\r\n"), riga("1", "10", "22", "100") };
        righe[0].CodProdotto = QStringLiteral("ART");
        ScontiDocumento sconti;
        sconti.ScontoMerceVal = 2;
        QVERIFY(Controlla_Corpo_Fattura(righe, aliquote, sconti));
        // A quantity of 0 makes a pure text line, even with a rate that is not in the table.
        QCOMPARE(righe[0].Descrizione, QStringLiteral("Solo testo"));
        QVERIFY(righe[0].Qta.isEmpty() && righe[0].PrezzoIvaInclusa.isEmpty() && righe[0].Iva.isEmpty()
                && righe[0].CodProdotto.isEmpty());
        QCOMPARE(righe[1].Descrizione, QStringLiteral("Caffè"));
        QCOMPARE(righe[1].Qta, QStringLiteral("1,00"));
        QCOMPARE(righe[1].PrezzoIvaInclusa, QStringLiteral("10,00"));
        QCOMPARE(righe[1].ScontoArt, QString());
        QCOMPARE(righe[2].ScontoArt, QStringLiteral("100"));
        QCOMPARE(sconti.ScontoMerceDes, QStringLiteral("SCONTO MERCE"));
        CalcolaFatt(righe, aliquote, sconti);
        QCOMPARE(righe[0].Totale, QString());
        QCOMPARE(righe[2].TotaleIvato, QStringLiteral("0,00"));

        std::vector<RigaDocumento> errate { riga("1", "10", "22"), riga("1", "10", "7") };
        QVERIFY(!Controlla_Corpo_Fattura(errate, aliquote, sconti));
        sconti.ScontoMerceVal = 0;
        Controlla_Corpo_Fattura(errate, aliquote, sconti);
        QCOMPARE(sconti.ScontoMerceDes, QString());
    }
};

TOMVERA_TEST(TestArrotonda)
TOMVERA_TEST(TestCalcolaFatt)

#include "test_calcolo.moc"
