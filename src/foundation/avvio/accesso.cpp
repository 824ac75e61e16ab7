#include "foundation/avvio/accesso.h"

#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"

namespace tomvera::accesso {

bool amministratore(const Sessione& sessione)
{
    return sessione.permessi->amministratore || utenti::eAmministratore(sessione.UtenteCollegato);
}

bool haDiritto(const Sessione& sessione, const QString& diritto)
{
    if (amministratore(sessione))
        return true;
    for (const CampoDiritto& campo : campiDiritti()) {
        if (diritto.compare(QLatin1String(campo.campo), Qt::CaseInsensitive) == 0)
            return sessione.permessi->puo(campo.diritto);
    }
    return false;
}

} // namespace tomvera::accesso
