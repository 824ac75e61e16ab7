#include "foundation/sessione.h"

#include "foundation/configurazione.h"
#include "foundation/permessi.h"

namespace tomvera {

Sessione::Sessione(Interazione& i, Orologio& o, GestioneErrori& e)
    : interazione(i)
    , orologio(o)
    , errori(e)
    , configurazione(std::make_unique<Configurazione>())
    , permessi(std::make_unique<PermessiUtente>())
{
}

Sessione::~Sessione() = default;

} // namespace tomvera
