#include "rooms/ui/immaginicamera.h"

#include "rooms/catalogo.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>

namespace tomvera {

QColor coloreQt(double valore)
{
    return QColor(rossoDi(valore), verdeDi(valore), bluDi(valore));
}

namespace {

// Points of the picture in a unit square, scaled to the area.
struct Scala
{
    QRectF a;
    QPointF p(double x, double y) const { return { a.left() + x * a.width(), a.top() + y * a.height() }; }
    QRectF r(double x, double y, double w, double h) const
    {
        return { a.left() + x * a.width(), a.top() + y * a.height(), w * a.width(), h * a.height() };
    }
    double l(double v) const { return v * a.width(); }
};

void ombra(QPainter& p, const Scala& s, double larghezza)
{
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 45));
    p.drawEllipse(s.r(0.5 - larghezza / 2, 0.9, larghezza, 0.07));
}

// Flat door in a slim frame; a second door behind it for a room booked more than once.
void porteModerne(QPainter& p, const Scala& s, StatoCamera stato)
{
    static const QColor anta[] = { QColor(0x58, 0xb8, 0x7f), QColor(0xc8, 0x4b, 0x3f), QColor(0xe8, 0x8a, 0x2e) };
    const QColor colore = anta[static_cast<int>(stato)];
    ombra(p, s, 0.7);
    if (stato == StatoCamera::PiuPrenotazioni) {
        p.setPen(Qt::NoPen);
        p.setBrush(colore.darker(150));
        p.drawRoundedRect(s.r(0.3, 0.05, 0.52, 0.82), s.l(0.03), s.l(0.03));
    }
    // Frame.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x4a, 0x55, 0x62));
    p.drawRoundedRect(s.r(0.2, 0.1, 0.56, 0.82), s.l(0.035), s.l(0.035));
    // Leaf with a light gradient, so the flat colour reads as a surface.
    const QRectF foglia = s.r(0.24, 0.14, 0.48, 0.78);
    QLinearGradient sfumatura(foglia.topLeft(), foglia.bottomRight());
    sfumatura.setColorAt(0, colore.lighter(118));
    sfumatura.setColorAt(1, colore.darker(108));
    p.setBrush(sfumatura);
    p.drawRect(foglia);
    // Glass strip and handle.
    p.setBrush(QColor(255, 255, 255, 70));
    p.drawRect(s.r(0.30, 0.20, 0.06, 0.64));
    p.setBrush(QColor(0xf2, 0xf4, 0xf5));
    p.drawRoundedRect(s.r(0.63, 0.60, 0.045, 0.10), s.l(0.02), s.l(0.02));
    if (stato != StatoCamera::Libera) {
        // The "do not disturb" hanger, below the number's plate.
        const QRectF cartello = s.r(0.56, 0.71, 0.14, 0.15);
        p.setBrush(Qt::white);
        p.drawRoundedRect(cartello, s.l(0.015), s.l(0.015));
        p.setBrush(colore.darker(130));
        p.drawEllipse(QRectF(cartello.center() - QPointF(s.l(0.035), s.l(0.035)), QSizeF(s.l(0.07), s.l(0.07))));
    }
}

QPainterPath arco(const QRectF& r)
{
    // A round-topped door outline.
    QPainterPath percorso;
    const double raggio = r.width() / 2;
    percorso.moveTo(r.left(), r.bottom());
    percorso.lineTo(r.left(), r.top() + raggio);
    percorso.arcTo(QRectF(r.left(), r.top(), r.width(), r.width()), 180, -180);
    percorso.lineTo(r.right(), r.bottom());
    percorso.closeSubpath();
    return percorso;
}

// Wooden panelled door under a stone arch: ajar with a lit room when free, shut when in use.
void porteClassiche(QPainter& p, const Scala& s, StatoCamera stato)
{
    ombra(p, s, 0.74);
    const QRectF vano = s.r(0.2, 0.06, 0.6, 0.86);
    p.setPen(QPen(QColor(0x8d, 0x84, 0x78), s.l(0.05)));
    p.setBrush(QColor(0x3d, 0x2b, 0x1f));
    p.drawPath(arco(vano));
    const QColor legno = stato == StatoCamera::Libera ? QColor(0xc4, 0x9a, 0x6c) : QColor(0x7b, 0x4a, 0x2a);
    p.setPen(QPen(legno.darker(160), s.l(0.012)));
    if (stato == StatoCamera::Libera) {
        // Warm light of the room through the open door.
        QRadialGradient luce(s.p(0.6, 0.5), s.l(0.45));
        luce.setColorAt(0, QColor(0xfc, 0xe8, 0x9a));
        luce.setColorAt(1, QColor(0xd9, 0x9a, 0x3a));
        p.save();
        p.setPen(Qt::NoPen);
        p.setBrush(luce);
        p.drawPath(arco(vano.adjusted(s.l(0.02), s.l(0.02), -s.l(0.02), 0)));
        p.restore();
        // The leaf swung inwards: narrower, in perspective on the left hinge.
        QPainterPath foglia;
        foglia.moveTo(s.p(0.22, 0.92));
        foglia.lineTo(s.p(0.22, 0.36));
        foglia.quadTo(s.p(0.26, 0.14), s.p(0.40, 0.10));
        foglia.lineTo(s.p(0.40, 0.86));
        foglia.closeSubpath();
        p.setBrush(legno);
        p.drawPath(foglia);
        p.setBrush(legno.darker(115));
        p.drawRect(s.r(0.26, 0.40, 0.10, 0.16));
        p.drawRect(s.r(0.26, 0.62, 0.10, 0.18));
        return;
    }
    p.setBrush(legno);
    p.drawPath(arco(vano.adjusted(s.l(0.02), s.l(0.02), -s.l(0.02), 0)));
    p.setBrush(legno.darker(118));
    p.drawRoundedRect(s.r(0.27, 0.34, 0.19, 0.22), s.l(0.015), s.l(0.015));
    p.drawRoundedRect(s.r(0.54, 0.34, 0.19, 0.22), s.l(0.015), s.l(0.015));
    p.drawRoundedRect(s.r(0.27, 0.62, 0.19, 0.24), s.l(0.015), s.l(0.015));
    p.drawRoundedRect(s.r(0.54, 0.62, 0.19, 0.24), s.l(0.015), s.l(0.015));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xd4, 0xac, 0x0d));
    p.drawEllipse(s.r(0.66, 0.55, 0.05, 0.05));
    if (stato == StatoCamera::PiuPrenotazioni) {
        // A red plaque across the door: more than one reservation.
        p.setBrush(QColor(0xc0, 0x1c, 0x1c));
        p.drawRoundedRect(s.r(0.24, 0.57, 0.52, 0.06), s.l(0.01), s.l(0.01));
        p.setBrush(Qt::white);
        p.drawEllipse(s.r(0.45, 0.585, 0.03, 0.03));
        p.drawEllipse(s.r(0.52, 0.585, 0.03, 0.03));
    }
}

// Traffic-sign symbols: a green tick, a red bar, two overlapping discs with an exclamation mark.
void simboli(QPainter& p, const Scala& s, StatoCamera stato)
{
    const QRectF disco = s.r(0.2, 0.3, 0.6, 0.6);
    p.setPen(Qt::NoPen);
    if (stato == StatoCamera::PiuPrenotazioni) {
        p.setBrush(QColor(0xa9, 0x32, 0x26));
        p.drawEllipse(disco.translated(s.l(0.08), -s.l(0.08)));
    }
    static const QColor fondo[] = { QColor(0x27, 0xae, 0x60), QColor(0xc0, 0x39, 0x2b), QColor(0xe6, 0x7e, 0x22) };
    p.setBrush(fondo[static_cast<int>(stato)]);
    p.setPen(QPen(Qt::white, s.l(0.025)));
    p.drawEllipse(disco);
    p.setBrush(Qt::white);
    p.setPen(Qt::NoPen);
    switch (stato) {
    case StatoCamera::Libera: {
        QPainterPath spunta;
        spunta.moveTo(s.p(0.33, 0.61));
        spunta.lineTo(s.p(0.45, 0.73));
        spunta.lineTo(s.p(0.68, 0.48));
        p.strokePath(spunta, QPen(Qt::white, s.l(0.07), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        break;
    }
    case StatoCamera::Occupata:
        p.drawRoundedRect(s.r(0.31, 0.56, 0.38, 0.08), s.l(0.02), s.l(0.02));
        break;
    case StatoCamera::PiuPrenotazioni:
        p.drawRoundedRect(s.r(0.465, 0.42, 0.07, 0.24), s.l(0.03), s.l(0.03));
        p.drawEllipse(s.r(0.465, 0.70, 0.07, 0.07));
        break;
    }
}

} // namespace

void disegnaImmagineCamera(QPainter& painter, const QRectF& area, Grafica grafica, StatoCamera stato)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    const Scala s { area };
    switch (grafica) {
    case Grafica::Moderno:
        porteModerne(painter, s, stato);
        break;
    case Grafica::Classico:
        porteClassiche(painter, s, stato);
        break;
    case Grafica::Simbolo:
        simboli(painter, s, stato);
        break;
    }
    painter.restore();
}

const QImage& immagineCamera(Grafica grafica, StatoCamera stato, int lato, qreal rapportoPixel)
{
    static QHash<quint64, QImage> cache;
    const int pixel = std::max(1, static_cast<int>(lato * rapportoPixel));
    const quint64 chiave
        = (static_cast<quint64>(grafica) << 40) | (static_cast<quint64>(stato) << 32) | static_cast<quint32>(pixel);
    auto trovata = cache.constFind(chiave);
    if (trovata != cache.constEnd())
        return *trovata;
    // A resize leaves older sizes behind: keep the cache small.
    if (cache.size() > 60)
        cache.clear();
    QImage immagine(pixel, pixel, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    {
        QPainter p(&immagine);
        disegnaImmagineCamera(p, QRectF(0, 0, pixel, pixel), grafica, stato);
    }
    immagine.setDevicePixelRatio(rapportoPixel);
    return *cache.insert(chiave, immagine);
}

} // namespace tomvera
