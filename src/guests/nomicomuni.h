#pragma once

#include <QString>
#include <optional>

namespace tomvera {

class Archivio;

// A municipality name in capitals rewritten in title case: "SAN GIOVANNI IN PERSICETO" -> "San Giovanni in
// Persiceto". Particles after a blank or an apostrophe stay lower case; a trailing " (Val. fino al ...)" is kept.
QString NomeComuneInMinuscolo(const QString& nome);

// "Trasforma in Maiuscole": rewrites every Comune of TabellaCodiciComuni in the given archive (the reference
// ArchivioCodici.mdb) in title case, all or nothing. Returns the rows rewritten, nullopt on failure.
std::optional<int> TrasformaNomiComuni(Archivio& archivioCodici);

} // namespace tomvera
