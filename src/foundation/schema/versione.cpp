#include "foundation/schema/versione.h"

#include "foundation/archivio.h"

namespace tomvera::schema {

bool ScriviVersione(Archivio& archivio, const QString& versione)
{
    // The look and the write under one write lock: two programs creating the archive at once would otherwise
    // both find the table empty and both add a row.
    Transazione transazione(archivio);
    const QVariant indice
        = archivio.valore(QStringLiteral("SELECT Indice FROM TabellaVersione ORDER BY Indice LIMIT 1"));
    if (indice.isValid())
        archivio.comando(QStringLiteral("UPDATE TabellaVersione SET Versione = ? WHERE Indice = ?"),
                         { versione, indice });
    else
        archivio.comando(QStringLiteral("INSERT INTO TabellaVersione (Versione) VALUES (?)"), { versione });
    return transazione.commit();
}

QString LeggiVersione(Archivio& archivio)
{
    const QVariant v = archivio.valore(QStringLiteral("SELECT Versione FROM TabellaVersione ORDER BY Indice LIMIT 1"));
    return v.isValid() ? v.toString() : QString();
}

} // namespace tomvera::schema
