#pragma once

#include "foundation/stampanti.h"

class QPrinter;

namespace tomvera {

// Point a printer at the one chosen in the settings. False (and the printer left as it was) when that
// printer isn't installed on this machine; the PDF one falls back to "PDFCreator".
bool ImpostaStampanteDocumenti(QPrinter& stampante, const StampantiPredefinite& predefinite);
bool ImpostaStampanteModuli(QPrinter& stampante, const StampantiPredefinite& predefinite);
bool ImpostaStampantePdf(QPrinter& stampante, const StampantiPredefinite& predefinite);

} // namespace tomvera
