#include "foundation/stampanti.h"

#include "foundation/archivio.h"

#include <QSqlRecord>

namespace tomvera {

StampantiPredefinite CaricaStampantiPredefinite(Archivio& archivio)
{
    StampantiPredefinite s;
    const auto riga = archivio.riga(QStringLiteral("SELECT prnDocs, prnDocumenti, prnPdf FROM Configurazioni"));
    if (!riga)
        return s;
    auto testo = [&](const char* campo) {
        const QVariant v = riga->value(QLatin1String(campo));
        return v.isNull() ? QString() : v.toString();
    };
    s.prnDocs = testo("prnDocs");
    s.prnDocumenti = testo("prnDocumenti");
    s.prnPdf = testo("prnPdf");
    return s;
}

std::optional<QString> scegliStampante(const QStringList& installate, const QString& nome)
{
    if (nome.isEmpty() || !installate.contains(nome))
        return std::nullopt;
    return nome;
}

std::optional<QString> scegliStampantePdf(const QStringList& installate, const QString& nome)
{
    if (auto scelta = scegliStampante(installate, nome))
        return scelta;
    return scegliStampante(installate, QStringLiteral("PDFCreator"));
}

} // namespace tomvera
