#pragma once

#include <QString>

namespace tomvera {

// The settings of the single row of Configurazioni, as copied into the run by CaricaConfigurazione,
// with the defaults of a fresh archive, plus the run-time values derived from them.
struct Configurazione
{
    bool AbilitaDiagnosticaErrori = false;
    bool MultiAzienda = false;
};

} // namespace tomvera
