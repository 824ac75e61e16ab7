#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <optional>

namespace tomvera {

class Archivio;

// Whether a room, a beach item or a function room is taken in a period, and the board's counters.
//
// The three resources follow different rules on purpose:
// - a room is booked by nights: Dal inclusive, Al exclusive, so a departure day may be the next arrival day;
// - a beach item is booked by whole days: both ends count, touching periods conflict;
// - a function room is booked by days (both ends) and then by hours, where a row ending at 0.00 runs to the
//   end of its day (the request's own 0.00 end gets no such reading).
// Only rooms ignore closed reservations. `escludi` is the reservation being edited (0 = none).
// An invalid date makes the query fail, and a failed query answers "free", as the archive routines always did.

// Archive tests.
bool CameraOccupataNelPeriodo(Archivio& archivio, qint64 escludi, const QString& nroCamera, const QDate& dal,
                              const QDate& al);
bool ArticoloOccupatoNelPeriodo(Archivio& archivio, qint64 escludi, const QString& numero,
                                const QString& codiceArticolo, const QDate& dal, const QDate& al);
// Hours as typed, "HH.MM": an hour that isn't a time makes any day overlap a conflict.
bool SalaOccupataNelPeriodo(Archivio& archivio, qint64 escludi, const QString& codiceTipologia, const QDate& dal,
                            const QDate& al, const QString& daOra, const QString& aOra);

// The same tests with the failure visible (nullopt: the archive did not answer), for callers that must not
// mistake a failure for a free resource.
std::optional<bool> interrogaCamera(Archivio& archivio, qint64 escludi, const QString& nroCamera, const QDate& dal,
                                    const QDate& al);
std::optional<bool> interrogaArticolo(Archivio& archivio, qint64 escludi, const QString& numero,
                                      const QString& codiceArticolo, const QDate& dal, const QDate& al);
std::optional<bool> interrogaSala(Archivio& archivio, qint64 escludi, const QString& codiceTipologia, const QDate& dal,
                                  const QDate& al, const QString& daOra, const QString& aOra);

// In-memory twins, for rows of a reservation not saved yet. Codes compare as the archive does (case aside);
// different codes never conflict.
// Rooms and beach items: A is the stored row, B the request, with the rule of the archive query.
bool IntersezioneCamere(const QString& codiceA, const QDate& dalA, const QDate& alA, const QString& codiceB,
                        const QDate& dalB, const QDate& alB);
bool IntersezioneArticoli(const QString& codiceA, const QString& numeroA, const QDate& dalA, const QDate& alA,
                          const QString& codiceB, const QString& numeroB, const QDate& dalB, const QDate& alB);
// Days as closed ranges; then the hour test with A's hours as the request and B's as the row (B's 0.00 end is
// the end of the day).
bool IntersezioneSale(const QString& codiceA, const QDate& dalA, const QDate& alA, const QString& daOraA,
                      const QString& aOraA, const QString& codiceB, const QDate& dalB, const QDate& alB,
                      const QString& daOraB, const QString& aOraB);

// Room rows of open reservations that conflict with the period, counted row by row (a reservation with two
// rows for the room counts twice).
struct PrenotazioniCamera
{
    bool piuPrenotazioni = false; // two or more rows
    int righe = 0;
    qint64 indicePrenotazione = 0; // the reservation of the only row, when there is exactly one
};
PrenotazioniCamera PiuPrenotazioni(Archivio& archivio, const QString& nroCamera, const QDate& dal, const QDate& al);

// Guests of open reservations staying in the room in the board's period, arrived or not, as text; "0" for
// invalid dates.
QString QuantePersoneInCameraPresenti(Archivio& archivio, const QString& nroCamera, const QDate& dal, const QDate& al);
// The same count for every room of a floor in one grouped read (the board's tiles): room number in lower case ->
// persons present; rooms with nobody are absent. None when the archive did not answer.
std::optional<QHash<QString, int>> PersonePresentiPerCamera(Archivio& archivio, int piano, const QDate& dal,
                                                            const QDate& al);
// Whether a guest of the reservation in that room is marked arrived.
bool PersoneArrivate(Archivio& archivio, const QString& nroCamera, qint64 indicePrenotazione);

// The board's counters. nullopt (invalid dates, or the archive did not answer): keep the former caption.
std::optional<int> contaCamereDisponibili(Archivio& archivio, const QDate& dal, const QDate& al);
std::optional<int> contaPersonePresenti(Archivio& archivio, const QDate& dal, const QDate& al);
// "Camere Disponibili: " and the count of rooms of every floor (and company) free in the period.
std::optional<QString> CaricaQtaDisponibilitaCamere(Archivio& archivio, const QDate& dal, const QDate& al);
// "Persone Presenti: " and the count of arrived guests whose stay meets the period.
std::optional<QString> CaricaQtaPersone(Archivio& archivio, const QDate& dal, const QDate& al);

} // namespace tomvera
