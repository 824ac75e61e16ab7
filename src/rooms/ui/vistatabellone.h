#pragma once

#include "rooms/tabelloneregole.h"

#include <QWidget>

namespace tomvera {

class Tabellone;

// All tiles of the floor, drawn by this one widget: a floor of hundreds of rooms costs one paint, not
// thousands of child controls. Clicks and hovering go to the board's logic by tile number.
class VistaTabellone : public QWidget
{
    Q_OBJECT
public:
    explicit VistaTabellone(Tabellone& tabellone, QWidget* genitore = nullptr);

    Geometria geometria() const;
    // The tile under a point (0: none).
    int tesseraIn(const QPointF& punto) const;
    QRectF riquadroTessera(int numero) const;
    // The whole drawing, for the widget and for renders into images.
    void disegna(QPainter& painter) const;

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void leaveEvent(QEvent* evento) override;
    bool event(QEvent* evento) override;

private:
    void disegnaTessera(QPainter& painter, const Tessera& tessera, const QRectF& cella) const;

    Tabellone& m_tabellone;
};

} // namespace tomvera
