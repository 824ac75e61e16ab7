#include "guests/nomicomuni.h"

#include "foundation/archivio.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

const char* const particelle[]
    = { "di ",   "a ",    "al ",  "da ",  "in ",  "con ", "su ",  "per ",   "tra ", "fra ",  "nei ",   "nel ", "della ",
        "dall'", "sull'", "dal ", "del ", "dei ", "e ",   "all'", "degli ", "d'",   "dell'", "delle ", "sul " };

bool iniziaConParticella(const QString& resto)
{
    for (const char* p : particelle)
        if (resto.startsWith(QLatin1String(p)))
            return true;
    return false;
}

} // namespace

QString NomeComuneInMinuscolo(const QString& nome)
{
    // The end-of-validity note is ours, already written as it should read.
    const int nota = nome.indexOf(QLatin1String(" (Val. fino al "));
    QString s = (nota >= 0 ? nome.left(nota) : nome).toLower();
    if (s.isEmpty())
        return nome;
    s[0] = s.at(0).toUpper();
    for (int i = 0; i + 1 < s.size(); ++i) {
        const QChar c = s.at(i);
        if (c != QLatin1Char(' ') && c != QLatin1Char('\''))
            continue;
        if (!iniziaConParticella(s.mid(i + 1)))
            s[i + 1] = s.at(i + 1).toUpper();
    }
    return nota >= 0 ? s + nome.mid(nota) : s;
}

std::optional<int> TrasformaNomiComuni(Archivio& archivioCodici)
{
    const auto righe = archivioCodici.righe(QStringLiteral("SELECT Indice, Comune FROM TabellaCodiciComuni"));
    Transazione transazione(archivioCodici);
    int cambiate = 0;
    for (const QSqlRecord& r : righe) {
        const QString nome = r.value(1).toString();
        const QString nuovo = NomeComuneInMinuscolo(nome);
        if (nuovo == nome)
            continue;
        if (!archivioCodici.comando(QStringLiteral("UPDATE TabellaCodiciComuni SET Comune = ? WHERE Indice = ?"),
                                    { nuovo, r.value(0) }))
            return std::nullopt;
        ++cambiate;
    }
    if (!transazione.commit())
        return std::nullopt;
    return cambiate;
}

} // namespace tomvera
