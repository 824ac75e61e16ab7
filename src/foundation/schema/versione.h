#pragma once

#include <QString>

namespace tomvera {

class Archivio;

namespace schema {

// The program version written into TabellaVersione after a creation or an upgrade.
inline const QString versioneProgramma()
{
    return QStringLiteral("3.9.4");
}

// Stores the version in the table's one row: the first row is updated, or the row is added when the table is
// empty. False when the statement could not run.
bool ScriviVersione(Archivio& archivio, const QString& versione = versioneProgramma());

// The stored version; empty when the table has no row (or is missing).
QString LeggiVersione(Archivio& archivio);

} // namespace schema
} // namespace tomvera
