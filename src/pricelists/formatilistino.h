#pragma once

#include <QString>
#include <QStringList>

namespace tomvera::prezzi {

// A row of a price-list grid: the hidden Indice and the texts of the shown columns.
struct RigaGriglia
{
    qint64 Indice = 0;
    QStringList colonne;
};

// The value of a typed number, Italian style; 0 when the text is not a number (the old Val of an empty box).
double valoreDi(const QString& testo);
// A number with the decimals it has and no grouping: 10 -> "10", 5.5 -> "5,5".
QString testoNumero(double valore);
// "GG/MM" that makes a date with "/" and the year (so "29/02" only in a leap year).
bool giornoMeseValido(const QString& testo, int anno);

} // namespace tomvera::prezzi
