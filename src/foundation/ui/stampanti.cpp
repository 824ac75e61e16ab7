#include "foundation/ui/stampanti.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace tomvera {

namespace {

bool imposta(QPrinter& stampante, const std::optional<QString>& scelta)
{
    if (!scelta)
        return false;
    stampante.setPrinterName(*scelta);
    return true;
}

} // namespace

bool ImpostaStampanteDocumenti(QPrinter& stampante, const StampantiPredefinite& predefinite)
{
    return imposta(stampante, scegliStampante(QPrinterInfo::availablePrinterNames(), predefinite.prnDocumenti));
}

bool ImpostaStampanteModuli(QPrinter& stampante, const StampantiPredefinite& predefinite)
{
    return imposta(stampante, scegliStampante(QPrinterInfo::availablePrinterNames(), predefinite.prnDocs));
}

bool ImpostaStampantePdf(QPrinter& stampante, const StampantiPredefinite& predefinite)
{
    return imposta(stampante, scegliStampantePdf(QPrinterInfo::availablePrinterNames(), predefinite.prnPdf));
}

} // namespace tomvera
