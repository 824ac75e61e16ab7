#include "pricelists/formatilistino.h"

#include "foundation/formati.h"

#include <cmath>

namespace tomvera::prezzi {

double valoreDi(const QString& testo)
{
    return leggiNumero(testo).value_or(0);
}

QString testoNumero(double valore)
{
    QString testo = formattaNumero(valore, 6, false);
    while (testo.contains(QLatin1Char(',')) && (testo.endsWith(QLatin1Char('0')) || testo.endsWith(QLatin1Char(','))))
        testo.chop(1);
    return testo;
}

bool giornoMeseValido(const QString& testo, int anno)
{
    return leggiData(testo + QLatin1Char('/') + QString::number(anno)).has_value();
}

} // namespace tomvera::prezzi
