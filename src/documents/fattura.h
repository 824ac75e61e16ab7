#pragma once

#include <QDate>
#include <QString>
#include <array>
#include <optional>

namespace tomvera {

class Archivio;

// The nine VAT rates ValIva0..ValIva8: a slot is a position in this array.
using Aliquote = std::array<double, 9>;

// "###,###,###,##0.00", Italian separators.
QString FormattaImporto(double valore);
// An Italian number as the screens read it: "1.234,50" is 1234.5, empty text is 0, and text that is not a
// number gives what its leading number says (as the old Val did), 0 when there is none.
double ValoreNumerico(const QString& testo);
// Strict reading for input from outside: nullopt for text that is not an Italian number; empty text is 0.
std::optional<double> LeggiValore(const QString& testo);

// The first slot whose rate equals the value exactly (a rate that stands twice always falls in its first
// slot); 0 when no slot has it.
int TrovaIndiceIva(const Aliquote& aliquote, double aliquota);
// A rate typed in a line passes when it is empty, 0, or one of the nine rates.
bool ValidaIva(const Aliquote& aliquote, const QString& testo);

// The numbering of documents. A type in a group of TabellaDocumenti shares one ascending line of numbers with
// the other types of the group; each calendar year starts again at 1. Nothing is stored: the next number is
// always derived from Testate.
class Fattura
{
public:
    explicit Fattura(Archivio& archivio);

    // The highest number used so far in the type's line in the year of dataDoc, 0 if none. The caller adds 1.
    qint64 ProssimoNumeroDocumento(const QString& tipoDoc, const QDate& dataDoc);
    // Empty, or the message that another type of the group already holds the number in that year.
    QString ControllaNumeroInGruppo(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);
    // The type of the group that holds the number in that year; the given type when nobody does.
    QString TrovaTipoDocConNumero(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);
    // The date of the document of the line that holds the number in that year; the given date if nobody does.
    QDate TrovaDataDocConNumero(const QString& tipoDoc, qint64 nroDoc, const QDate& dataDoc);
    // The date of the document of the same type and year with that number; invalid when there is none.
    QDate ControllaNumeriDoppiDocE(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);

    // The group of a type ("" when it numbers by itself).
    QString gruppo(const QString& tipoDoc);

private:
    // The other types of the type's group, in their order in the group.
    QStringList altriTipiDelGruppo(const QString& tipoDoc);
    std::optional<QDate> dataConNumero(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);

    Archivio& m_archivio;
};

} // namespace tomvera
