#pragma once

#include <QDate>
#include <QString>

namespace tomvera {

class Archivio;

// A realistic demo hotel, the same for the same seed: floors and room types, price lists per room and per
// person, the extras list, guest cards with valid tax codes and documents, and years of reservations
// (seasons, families and groups with their heads, arrival numbers, extras, deposits, some closed).
struct OpzioniDemo
{
    int camere = 30;
    int anni = 1; // years of reservations, the last one being the year of oggi
    quint32 seme = 1;
    QDate oggi; // stays before this day are arrived; invalid = today
};

struct EsitoDemo
{
    bool ok = false;
    int camere = 0;
    int anagrafiche = 0;
    int prenotazioni = 0;
    int ospiti = 0;
    QString errore;
};

EsitoDemo GeneraDemo(Archivio& archivio, const OpzioniDemo& opzioni);

// The 16-character tax code of a person born in Italy (check character included).
QString codiceFiscale(const QString& cognome, const QString& nome, const QDate& nascita, bool femmina,
                      const QString& codiceComune);

} // namespace tomvera
