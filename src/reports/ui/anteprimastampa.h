#pragma once

#include "reports/modellostampa.h"

#include <QPrinter>
#include <QRect>
#include <memory>

class QPrintPreviewDialog;
class QWidget;

namespace tomvera {

class Interazione;
struct StampantiPredefinite;

namespace reports {

// The print preview of a list: zoom and pages as Qt offers them, the print button on the forms printer of the
// settings, and "Salva PDF..." for a file. Owns the printer, which must outlive the dialog.
class AnteprimaStampa
{
public:
    AnteprimaStampa(ModelloStampa modello, Interazione& interazione, const StampantiPredefinite& stampanti,
                    QWidget* parent = nullptr);
    ~AnteprimaStampa();

    QPrintPreviewDialog& dialogo() { return *m_dialogo; }
    int exec();
    void salvaPdf();

private:
    ModelloStampa m_modello;
    Interazione& m_interazione;
    QPrinter m_stampante;
    std::unique_ptr<QPrintPreviewDialog> m_dialogo;
};

// Where the preview opens inside the screen's free area: as tall as the area allows less room for the window's
// frame, a page's width plus the tool bar, centred; the bottom is always on screen.
QRect geometriaAnteprima(const QRect& disponibile);

// Shows the preview and waits for it to close.
void mostraAnteprimaStampa(const ModelloStampa& modello, Interazione& interazione,
                           const StampantiPredefinite& stampanti, QWidget* parent);

} // namespace reports
} // namespace tomvera
