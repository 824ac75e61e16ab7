#include "foundation/schema/versione.h"

#include "foundation/archivio.h"

namespace tomvera::schema {

bool ScriviVersione(Archivio& archivio, const QString& versione)
{
    const QVariant indice
        = archivio.valore(QStringLiteral("SELECT Indice FROM TabellaVersione ORDER BY Indice LIMIT 1"));
    if (indice.isValid())
        return archivio.comando(QStringLiteral("UPDATE TabellaVersione SET Versione = ? WHERE Indice = ?"),
                                { versione, indice });
    return archivio.comando(QStringLiteral("INSERT INTO TabellaVersione (Versione) VALUES (?)"), { versione });
}

QString LeggiVersione(Archivio& archivio)
{
    const QVariant v = archivio.valore(QStringLiteral("SELECT Versione FROM TabellaVersione ORDER BY Indice LIMIT 1"));
    return v.isValid() ? v.toString() : QString();
}

} // namespace tomvera::schema
