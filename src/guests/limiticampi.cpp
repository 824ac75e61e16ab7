#include "guests/limiticampi.h"

#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"

namespace tomvera {

int dimensioneCampoAnagrafica(const QString& campo)
{
    static const schema::Tabella tabella = schema::TabellaAnagrafiche();
    return schema::dimensioneDichiarata(tabella, campo);
}

std::optional<TestoTroppoLungo> primoTestoTroppoLungo(const schema::Tabella& tabella,
                                                      const QList<std::pair<QString, QString>>& testi)
{
    for (const auto& [campo, testo] : testi) {
        const int dimensione = schema::dimensioneDichiarata(tabella, campo);
        if (dimensione > 0 && testo.size() > dimensione)
            return TestoTroppoLungo { campo, dimensione };
    }
    return std::nullopt;
}

QString messaggioTestoTroppoLungo(const TestoTroppoLungo& t)
{
    return QStringLiteral("Attenzione, il campo ") + t.campo + QStringLiteral(" accetta al massimo ")
        + QString::number(t.dimensione) + QStringLiteral(" caratteri!");
}

} // namespace tomvera
