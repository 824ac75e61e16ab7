#pragma once

#include "rooms/tabelloneregole.h"

#include <QColor>
#include <QImage>
#include <QRectF>

class QPainter;

namespace tomvera {

// A colour value of the archive (red + green * 256 + blue * 65536) as a QColor.
QColor coloreQt(double valore);

// The nine state pictures (three styles by three states), drawn as paths so they stay crisp at any size.
// `area` is the square the picture fills.
void disegnaImmagineCamera(QPainter& painter, const QRectF& area, Grafica grafica, StatoCamera stato);
// The same picture rendered once per size and kept: a board repaints the same few pictures many times.
const QImage& immagineCamera(Grafica grafica, StatoCamera stato, int lato, qreal rapportoPixel);

} // namespace tomvera
