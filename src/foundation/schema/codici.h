#pragma once

#include <QString>
#include <optional>

namespace tomvera {

class Archivio;

namespace schema {

// How a code table is copied from the reference archive ArchivioCodici.mdb:
// Resetta empties the table and copies every row; Importa copies only into an empty table (the seeding of a
// new archive) and leaves a table with rows as it is.
enum class ModoCopiaCodici
{
    Resetta,
    Importa
};

// One routine per code table. All or nothing: the rows copied (0 when Importa found rows already there), or
// nullopt when either archive or table can't be read or a row is refused, in which case nothing changed.
std::optional<int> CopiaCodiciComuni(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo);
std::optional<int> CopiaCodiciStati(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo);
std::optional<int> CopiaCodiciDocumenti(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo);
std::optional<int> CopiaCodiciTipoAlloggiato(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo);

// The copy itself, by table name: every field the two tables share, Indice excepted, row by row in the
// reference's order. Errors are never shown: the caller decides what to say.
std::optional<int> copiaTabellaCodici(Archivio& archivio, Archivio& riferimento, const QString& tabella,
                                      ModoCopiaCodici modo);

} // namespace schema
} // namespace tomvera
