#pragma once

#include <QDate>
#include <QString>
#include <optional>

namespace tomvera {

class Interazione;

// Identity checks shared by every screen that holds a tax code, a VAT number or a document.

// Check character of the Italian tax code. Upper-cases the code in place when it has 16 characters.
// Returns "" when good, otherwise the message to show (the screens only warn).
QString ControllaCodiceFiscale(QString& codice);

// Italian VAT number: 11 digits with the check digit. Blanks around are ignored; empty is good.
bool ControllaPartitaIva(const QString& partitaIva);

// Years of validity of a document by its type ("C.I.", "Patente", "Passaporto" contained in the text, any case);
// nullopt for a type with no known validity, or a driving licence without a valid birth date.
std::optional<int> anniValiditaDocumento(const QString& tipoDocumento, const QDate& rilascio, const QDate& nascita);

// The day the document stops being valid: same day and month, that many years later.
std::optional<QDate> scadenzaDocumento(const QString& tipoDocumento, const QDate& rilascio, const QDate& nascita);

// Warns "Attenzione documento non più valido" when the document expired before today. False when expired.
bool ControllaValiditaDocumento(const QString& tipoDocumento, const QDate& rilascio, const QDate& nascita,
                                const QDate& oggi, Interazione& interazione);

} // namespace tomvera
