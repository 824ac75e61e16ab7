#pragma once

#include <QString>

namespace tomvera {

struct Sessione;

// Rights looked up by the name of their field in TabellaUtenti, as the command tables of Avvio name them.
namespace accesso {

bool amministratore(const Sessione& sessione);
// The administrator holds every right; an unknown name is never granted to others.
bool haDiritto(const Sessione& sessione, const QString& diritto);

} // namespace accesso
} // namespace tomvera
