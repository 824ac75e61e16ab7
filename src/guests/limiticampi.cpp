#include "guests/limiticampi.h"

#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"

namespace tomvera {

int dimensioneTesto(const schema::Tabella& tabella, const QString& campo)
{
    for (const schema::Campo& c : tabella.campi) {
        if (c.nome.compare(campo, Qt::CaseInsensitive) == 0)
            return c.tipo == schema::Tipo::Testo ? c.dimensione : 0;
    }
    return 0;
}

int dimensioneCampoAnagrafica(const QString& campo)
{
    static const schema::Tabella tabella = schema::TabellaAnagrafiche();
    return dimensioneTesto(tabella, campo);
}

std::optional<TestoTroppoLungo> primoTestoTroppoLungo(const schema::Tabella& tabella,
                                                      const QList<std::pair<QString, QString>>& testi)
{
    for (const auto& [campo, testo] : testi) {
        const int dimensione = dimensioneTesto(tabella, campo);
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
