#pragma once

#include <QString>

namespace tomvera {

// The rights of the logged-in user (all granted to "Amministratore").
struct PermessiUtente
{
    bool amministratore = false;
};

} // namespace tomvera
