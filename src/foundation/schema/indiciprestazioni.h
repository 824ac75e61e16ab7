#pragma once

namespace tomvera {

class Archivio;

namespace schema {

// Indexes the old engine never had, for the queries that run on every refresh of the board (availability,
// persons present). Create-if-missing; an index whose table or field is missing is skipped in silence.
void applicaIndiciPrestazioni(Archivio& archivio);

} // namespace schema
} // namespace tomvera
