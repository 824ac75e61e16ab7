#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace tomvera {

class Archivio;

// The printers chosen in the settings (Configurazioni): documents, forms (arrival cards, lists) and the PDF
// printer. Null fields read as "".
struct StampantiPredefinite
{
    QString prnDocumenti; // invoices, receipts and the other fiscal documents
    QString prnDocs; // forms: notification cards, arrival lists
    QString prnPdf;
};

StampantiPredefinite CaricaStampantiPredefinite(Archivio& archivio);

// The printer among those installed whose name equals nome exactly; none for an empty name.
std::optional<QString> scegliStampante(const QStringList& installate, const QString& nome);
// The same, falling back to the "PDFCreator" device when the chosen one isn't installed.
std::optional<QString> scegliStampantePdf(const QStringList& installate, const QString& nome);

} // namespace tomvera
