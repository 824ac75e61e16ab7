#pragma once

#include "pricelists/calcoloprezzi.h"

#include <QString>

namespace tomvera::prezzi {

// The two room price lists differ only in their table and key field.
struct TabellaListino
{
    QString tabella;
    QString campoChiave;
};

inline const TabellaListino& tabellaListino(TipoListino tipo)
{
    static const TabellaListino aCamera { QStringLiteral("TabellaListinoCamere"), QStringLiteral("CodiceTipologia") };
    static const TabellaListino aPersona { QStringLiteral("TabellaListinoCamereAPersona"),
                                           QStringLiteral("Trattamento") };
    return tipo == TipoListino::ACamera ? aCamera : aPersona;
}

} // namespace tomvera::prezzi
