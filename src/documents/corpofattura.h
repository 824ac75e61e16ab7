#pragma once

#include "documents/fattura.h"

#include <QString>
#include <array>
#include <vector>

namespace tomvera {

// One row of the line grid RigheFatt, as the texts of its cells: the rules tell a blank cell from a 0.
// The comments give the grid's column.
struct RigaDocumento
{
    QString Indice; // 3, the article's index
    QString CodProdotto; // 4
    QString CodArt; // 5, line kind (hidden)
    QString Descrizione; // 6
    QString Qta; // 7
    QString Prezzo; // 8, net unit price: derived
    QString PrezzoIvaInclusa; // 9, unit price with VAT: what the user types
    QString Iva; // 10, rate in percent
    QString ScontoArt; // 11
    QString Totale; // 12, derived
    QString TotaleIvato; // 13, derived
    QString Matricola; // 14
    QString ChiMovimenta; // 15
    QString Gruppo; // 16
    QString Reparto; // 17
    QString NroStampe; // 18
};

// The document-wide discounts as they stand in their boxes once normalised.
struct ScontiDocumento
{
    double ScontoPerc = 0; // first discount %
    double ScontoPerc2 = 0; // second discount %, on what the first leaves
    double ScontoMerceVal = 0; // goods discount, off the total after VAT
    QString ScontoMerceDes;
};

// The totals of the document as CalcolaFatt leaves them in the boxes.
struct TotaliDocumento
{
    std::array<double, 9> Imp {}; // taxable of each slot (slot 0 unrounded)
    std::array<double, 9> Iva {}; // VAT of each slot (slot 0 always 0)
    double Imponibile = 0;
    double Totale = 0;
    double ScontoVal = 0; // the discounts on the net sums
    double ScontoValIvato = 0; // the discounts on the gross sums
};

// The normalisation of the discount boxes: a value above 100 becomes 100, 0 stays out (0 here).
double NormalizzaScontoPercentuale(double valore);
// The goods discount box: reformatted with the decimals of the prices.
double NormalizzaScontoMerce(double valore);

// Tidies and validates the grid before a save: quantity-0 rows become pure text lines, stray line breaks
// are dropped, numbers are reformatted, and every rate must be one of the table. False when a row is wrong.
bool Controlla_Corpo_Fattura(std::vector<RigaDocumento>& righe, const Aliquote& aliquote, ScontiDocumento& sconti);

// Recomputes the derived cells of every row and the totals. Prices include VAT: each slot's VAT is taken out
// of its gross sum after the two discounts, and the goods discount comes off the total at the end.
TotaliDocumento CalcolaFatt(std::vector<RigaDocumento>& righe, const Aliquote& aliquote, const ScontiDocumento& sconti);

} // namespace tomvera
