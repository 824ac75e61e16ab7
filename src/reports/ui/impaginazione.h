#pragma once

#include "reports/modellostampa.h"

#include <QString>

class QPainter;
class QPagedPaintDevice;
class QRectF;

namespace tomvera::reports {

// Lays a list print out on pages: the title and the column titles on every page, the heading on the first,
// the closing lines after the last row, "Pagina n di m" at the foot. Works on any paged device: the printer,
// the preview and the PDF writer alike.
class Impaginazione
{
public:
    explicit Impaginazione(ModelloStampa modello);

    // Splits the rows into pages for the printable area of the painter's device.
    void prepara(QPainter& painter, const QRectF& area);
    int numeroPagine() const { return static_cast<int>(m_pagine.size()); }
    void disegnaPagina(QPainter& painter, const QRectF& area, int pagina) const;

    const ModelloStampa& modello() const { return m_modello; }

private:
    struct Pagina
    {
        int primaRiga = 0;
        int righe = 0;
        bool conTesta = false;
        bool conPiede = false;
    };

    ModelloStampa m_modello;
    QList<Pagina> m_pagine;
};

// The whole print on a device (printer or PDF writer), page after page.
bool stampaSuDispositivo(const ModelloStampa& modello, QPagedPaintDevice& dispositivo);
// The print as a PDF file (A4); false when the file can't be written.
bool esportaPdf(const ModelloStampa& modello, const QString& percorso);

} // namespace tomvera::reports
