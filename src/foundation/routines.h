#pragma once

#include "foundation/interazione.h"

#include <QDate>
#include <QString>

namespace tomvera {

// The small text, date and number routines every screen shares. Dates are day first, numbers Italian.

// Normalises a typed date: "010206" and "01022006" get their slashes, a valid date comes back as
// dd/MM/yyyy. An invalid, non-empty text shows "La data non è corretta" and is left as typed.
QString MascheraData(QString& testo, Interazione& interazione);
// The same with no message: an invalid text is emptied, a valid one keeps the form it has once masked
// ("010206" gives "01/02/06").
QString MascheraDataSilenziosa(QString& testo);
// A time typed with a point: "9" -> "9.00", "9.5" -> "09.50", "0930" -> "09.30"; anything else that is not a
// valid time gives "".
QString MascheraOra(const QString& testo);

// "###,###,###,##0.00"
QString FormattaValuta(double valore);
// n decimals, n from 0 to 8; any other n gives "".
QString FormattaDecimali(double valore, int decimali);
// The system's rounding: floor(x * 10^n + 0.51) / 10^n. The 0.51 is deliberate and decides the cents.
double Arrotonda(double valore, int decimali);
// A loosely typed amount ("1.234,565", "-12", "1,2,3") rounded by Arrotonda and formatted.
QString ArrotondaEFormatta(const QString& testo, int decimali);

// Doubles every single quote: for text placed between quotes in the old style, and for the few places that
// still build a LIKE pattern by hand.
QString RaddoppiaApici(const QString& testo);
QString TogliApici(const QString& testo);
// "TRUE", "VERO", "SI", "-1" in any case.
bool ValoreVero(const QString& testo);
// Versions compare as numbers with the points as group marks: "3.9.4" is 394, "" is 0.
double ValoreVersione(const QString& testo);
// "gennaio" .. "dicembre" -> 1 .. 12, anything else 0.
int NumeroDelMese(const QString& nome);
// The last day of a month as a date (invalid for a month outside 1..12).
QDate UltimoGiornoMese(int mese, int anno);
// Whole years from nascita to data (the age on that day).
int CalcolaEta(const QDate& nascita, const QDate& data);

// Writes one key of an ini side file as the platform's private-profile call did: the rest of the file is kept
// as it is, a missing key is added at the end of its section, a missing section at the end of the file, a
// missing file is created. Section and key names match in any case. False when the file can't be written.
bool ScriviValoreIni(const QString& file, const QString& sezione, const QString& chiave, const QString& valore);

// The transient notice: kind "Conferma", "Informazione", "Errore", "Domanda" or "InputBox", closed by its
// timer after durataMs (0: no timer) or by a click. It returns nothing: real questions use the message box.
void Messaggio(Interazione& interazione, Interazione::TipoAvviso tipo, const QString& testo, int durataMs = 0,
               bool modale = false);
void Messaggio(Interazione& interazione, const QString& tipo, const QString& testo, int durataMs = 0,
               bool modale = false);

} // namespace tomvera
