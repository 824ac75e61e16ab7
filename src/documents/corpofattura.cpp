#include "documents/corpofattura.h"

#include "foundation/routines.h"

namespace tomvera {

namespace {

// The number of decimals of quantities and prices: two small settings of the screen, 2 in this archive.
constexpr int decimaliQuantita = 2;
constexpr int decimaliPrezzi = 2;

bool vuoto(const QString& testo)
{
    return testo.trimmed().isEmpty();
}

bool finisceConACapo(const QString& testo)
{
    return testo.endsWith(QLatin1Char('\r')) || testo.endsWith(QLatin1Char('\n'));
}

// A line break typed at the end (or start) of a description is not part of it.
void togliACapo(QString& testo)
{
    while (finisceConACapo(testo))
        testo.chop(1);
    if (testo.startsWith(QLatin1Char('\r')) || testo.startsWith(QLatin1Char('\n')))
        testo.remove(0, 1);
}

void normalizza(QString& cella, int decimali)
{
    if (!vuoto(cella))
        cella = FormattaDecimali(ValoreNumerico(cella), decimali);
}

} // namespace

double NormalizzaScontoPercentuale(double valore)
{
    return valore > 100 ? 100 : valore;
}

double NormalizzaScontoMerce(double valore)
{
    return ValoreNumerico(FormattaDecimali(valore, decimaliPrezzi));
}

bool Controlla_Corpo_Fattura(std::vector<RigaDocumento>& righe, const Aliquote& aliquote, ScontiDocumento& sconti)
{
    bool valoriCorretti = true;
    for (RigaDocumento& r : righe) {
        if (ValoreNumerico(r.Qta) == 0) {
            // A text line: only the description (and the article index) survive.
            for (QString* cella :
                 { &r.CodProdotto, &r.CodArt, &r.Qta, &r.Prezzo, &r.PrezzoIvaInclusa, &r.ScontoArt, &r.Iva, &r.Totale,
                   &r.TotaleIvato, &r.Matricola, &r.ChiMovimenta, &r.Gruppo, &r.Reparto, &r.NroStampe })
                cella->clear();
            continue;
        }
        togliACapo(r.Descrizione);
        togliACapo(r.CodProdotto);
        if (!ValidaIva(aliquote, r.Iva))
            valoriCorretti = false;
        normalizza(r.Qta, decimaliQuantita);
        normalizza(r.Prezzo, decimaliPrezzi);
        normalizza(r.PrezzoIvaInclusa, decimaliPrezzi);
        if (!vuoto(r.Totale))
            r.Totale = FormattaImporto(ValoreNumerico(r.Totale));
        if (!vuoto(r.TotaleIvato))
            r.TotaleIvato = FormattaImporto(ValoreNumerico(r.TotaleIvato));
        const double sconto = ValoreNumerico(r.ScontoArt);
        if (sconto == 0)
            r.ScontoArt.clear();
        else if (sconto == 100)
            r.ScontoArt = QStringLiteral("100");
    }
    if (sconti.ScontoMerceDes.isEmpty() && sconti.ScontoMerceVal > 0)
        sconti.ScontoMerceDes = QStringLiteral("SCONTO MERCE");
    else if (!sconti.ScontoMerceDes.isEmpty() && sconti.ScontoMerceVal == 0)
        sconti.ScontoMerceDes.clear();
    return valoriCorretti;
}

TotaliDocumento CalcolaFatt(std::vector<RigaDocumento>& righe, const Aliquote& aliquote, const ScontiDocumento& sconti)
{
    std::array<double, 9> sommaNetti {}, sommaIvati {}, scontoNetto {}, scontoIvato {};
    const double p1 = sconti.ScontoPerc;
    const double p2 = sconti.ScontoPerc2;

    for (RigaDocumento& r : righe) {
        const double aliquota = ValoreNumerico(r.Iva);
        if (!vuoto(r.PrezzoIvaInclusa)) {
            const double lordo = ValoreNumerico(r.PrezzoIvaInclusa);
            r.Prezzo = FormattaDecimali(Arrotonda(lordo / (1 + aliquota / 100), 2), 2);
        } else {
            // No price with VAT, no net price.
            r.Prezzo.clear();
        }
        if (vuoto(r.Iva))
            continue; // outside the totals
        const size_t k = static_cast<size_t>(TrovaIndiceIva(aliquote, aliquota));
        const double q = ValoreNumerico(r.Qta);
        const double s = ValoreNumerico(r.ScontoArt);
        const double prezzo = ValoreNumerico(r.Prezzo);
        const double netto = Arrotonda(prezzo * q - prezzo * q * s / 100, 2);
        sommaNetti[k] += netto;
        r.Totale = FormattaImporto(netto);
        const double lordo = ValoreNumerico(r.PrezzoIvaInclusa);
        const double ivato = Arrotonda(lordo * q - lordo * q * s / 100, 2);
        sommaIvati[k] += ivato;
        r.TotaleIvato = FormattaImporto(ivato);
    }

    // The two discounts in cascade; only the sum of both is rounded.
    for (size_t k = 0; k < 9; ++k) {
        scontoNetto[k] = sommaNetti[k] * p1 / 100;
        scontoNetto[k] = Arrotonda(scontoNetto[k] + (sommaNetti[k] - scontoNetto[k]) * p2 / 100, 2);
        scontoIvato[k] = sommaIvati[k] * p1 / 100;
        scontoIvato[k] = Arrotonda(scontoIvato[k] + (sommaIvati[k] - scontoIvato[k]) * p2 / 100, 2);
    }

    TotaliDocumento t;
    // Slot 0 is exempt whatever its rate, and its taxable is the plain gross, not rounded.
    t.Iva[0] = 0;
    t.Imp[0] = sommaIvati[0] - scontoIvato[0];
    double sommaIva = 0;
    double sommaImp = t.Imp[0];
    for (size_t k = 1; k < 9; ++k) {
        const double lordo = sommaIvati[k] - scontoIvato[k];
        t.Iva[k] = Arrotonda(lordo * (1 - 1 / (1 + aliquote[k] / 100)), 2);
        t.Imp[k] = Arrotonda(lordo - t.Iva[k], 2);
        sommaIva += t.Iva[k];
        sommaImp += t.Imp[k];
    }
    // The goods discount comes off the total after VAT and leaves the slots alone, so the taxable total
    // bears all of it.
    t.Totale = Arrotonda(sommaIva + sommaImp - sconti.ScontoMerceVal, 2);
    t.Imponibile = Arrotonda(t.Totale - sommaIva, 2);
    double netti = 0, ivati = 0;
    for (size_t k = 0; k < 9; ++k) {
        netti += scontoNetto[k];
        ivati += scontoIvato[k];
    }
    t.ScontoVal = Arrotonda(netti, 2);
    t.ScontoValIvato = Arrotonda(ivati, 2);
    return t;
}

} // namespace tomvera
