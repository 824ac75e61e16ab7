#include "rooms/ui/vistatabellone.h"

#include "rooms/tabellone.h"
#include "rooms/ui/immaginicamera.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

namespace tomvera {

namespace {

const QColor coloreNumeroLibero(0, 0, 0); // the system's button text
const QColor coloreNumeroInUso(192, 0, 0);
const QColor coloreEvidenziato(0x1e, 0x88, 0xe5);

QFont carattere(Grafica grafica, double pixel, bool grassetto)
{
    QFont f(grafica == Grafica::Classico ? QStringLiteral("Courier") : QStringLiteral("Arial"));
    if (grafica == Grafica::Classico)
        f.setStyleHint(QFont::TypeWriter);
    f.setPixelSize(std::max(7, static_cast<int>(pixel)));
    f.setBold(grassetto);
    return f;
}

} // namespace

VistaTabellone::VistaTabellone(Tabellone& tabellone, QWidget* genitore)
    : QWidget(genitore)
    , m_tabellone(tabellone)
{
    setObjectName(QStringLiteral("Frame1"));
    setMouseTracking(true);
    setMinimumSize(200, 150);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(&m_tabellone, &Tabellone::aggiornato, this, [this] { repaint(); });
    connect(&m_tabellone, &Tabellone::statoCambiato, this, qOverload<>(&QWidget::update));
}

Geometria VistaTabellone::geometria() const
{
    return Parametri_Click(width(), height(), m_tabellone.Righe(), m_tabellone.Colonne());
}

QRectF VistaTabellone::riquadroTessera(int numero) const
{
    const Tessera* t = m_tabellone.tessera(numero);
    return t ? geometria().riquadro(t->x, t->y) : QRectF();
}

int VistaTabellone::tesseraIn(const QPointF& punto) const
{
    const QPoint cella = geometria().cellaIn(punto);
    if (cella.x() < 0)
        return 0;
    // Two rooms saved on one cell: the later one is drawn on top and takes the click.
    int trovata = 0;
    for (const Tessera& t : m_tabellone.tessere())
        if (t.x == cella.x() && t.y == cella.y())
            trovata = t.numero;
    return trovata;
}

void VistaTabellone::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    disegna(painter);
}

void VistaTabellone::disegna(QPainter& painter) const
{
    const ColoriStile colori = coloriStile(m_tabellone.grafica());
    painter.fillRect(rect(), coloreQt(colori.sfondoFrame));
    const Geometria g = geometria();
    if (g.lato < 4)
        return;
    for (const Tessera& t : m_tabellone.tessere())
        disegnaTessera(painter, t, g.riquadro(t.x, t.y));
    if (const Tessera* t = m_tabellone.tessera(m_tabellone.tesseraEvidenziata)) {
        // The hover highlight: four lines on the tile's edges.
        const QRectF r = g.riquadro(t->x, t->y).adjusted(1.5, 1.5, -1.5, -1.5);
        painter.setPen(QPen(coloreEvidenziato, 3));
        painter.drawLine(r.topLeft(), r.topRight());
        painter.drawLine(r.topRight(), r.bottomRight());
        painter.drawLine(r.bottomRight(), r.bottomLeft());
        painter.drawLine(r.bottomLeft(), r.topLeft());
    }
}

void VistaTabellone::disegnaTessera(QPainter& painter, const Tessera& t, const QRectF& cella) const
{
    const double lato = cella.width();
    const QRectF tessera = cella.adjusted(lato * 0.03, lato * 0.03, -lato * 0.03, -lato * 0.03);
    const double s = tessera.width();
    const Grafica grafica = m_tabellone.grafica();
    painter.setRenderHint(QPainter::Antialiasing, true);

    painter.setPen(QPen(QColor(0x7f, 0x8c, 0x8d), 1));
    painter.setBrush(QColor(0xfb, 0xfa, 0xf7));
    painter.drawRoundedRect(tessera, s * 0.05, s * 0.05);

    // The band of the room type's colour, with the places and the company.
    const QRectF fascia(tessera.left(), tessera.bottom() - s * 0.22, s, s * 0.22);
    QPainterPath percorsoFascia;
    percorsoFascia.addRoundedRect(fascia, s * 0.05, s * 0.05);
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.ColoreTipologia ? coloreQt(*t.ColoreTipologia) : QColor(0xd5, 0xd8, 0xdc));
    painter.drawPath(percorsoFascia);

    const QRectF immagine(tessera.left() + s * 0.1, tessera.top() + s * 0.01, s * 0.8, s * 0.8);
    const qreal rapporto = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    painter.drawImage(immagine.topLeft(), immagineCamera(grafica, t.stato, static_cast<int>(s * 0.8), rapporto));
    if (!t.usabile())
        return;

    // Room number on a plate, where each style puts it.
    const bool segnata = t.numero == m_tabellone.tesseraSegnata();
    const QString numero = didascaliaNumero(t, segnata);
    const QFont fNumero = carattere(grafica, s * 0.17, true);
    painter.setFont(fNumero);
    const QFontMetricsF mNumero(fNumero);
    const double larghezzaNumero = mNumero.horizontalAdvance(numero) + s * 0.06;
    const double altezzaNumero = mNumero.height();
    double alto = tessera.top() + s / 2.7;
    if (grafica == Grafica::Classico)
        alto = tessera.top() + s / 5.2;
    else if (grafica == Grafica::Simbolo)
        alto = tessera.top() + s * 0.05;
    const QRectF targa(tessera.center().x() - larghezzaNumero / 2, alto, larghezzaNumero, altezzaNumero);
    painter.setBrush(QColor(255, 255, 255, segnata ? 250 : 215));
    painter.setPen(segnata ? QPen(coloreEvidenziato, 2) : QPen(QColor(0, 0, 0, 60), 1));
    painter.drawRoundedRect(targa, s * 0.03, s * 0.03);
    painter.setPen(t.stato == StatoCamera::Libera ? coloreNumeroLibero : coloreNumeroInUso);
    painter.drawText(targa, Qt::AlignCenter, numero);

    // Places (and persons present for a one-night period).
    const EtichettaPosti posti = etichettaPosti(t, m_tabellone.Dal, m_tabellone.Al);
    const QFont fPosti = carattere(Grafica::Moderno, s * 0.13, posti.bordo);
    painter.setFont(fPosti);
    const QFontMetricsF mPosti(fPosti);
    const double lPosti = mPosti.horizontalAdvance(posti.testo) + 2;
    const QRectF rPosti(fascia.right() - lPosti - s * 0.04, fascia.center().y() - mPosti.height() / 2, lPosti,
                        mPosti.height());
    if (posti.bordo) {
        painter.setBrush(Qt::white);
        painter.setPen(QPen(coloreQt(posti.colore), 1.5));
        painter.drawRect(rPosti);
        painter.setPen(coloreQt(posti.colore));
    } else {
        painter.setPen(Qt::black);
        painter.setBrush(QColor(255, 255, 255, 190));
        painter.drawRoundedRect(rPosti, 2, 2);
        painter.setPen(Qt::black);
    }
    painter.drawText(rPosti, Qt::AlignCenter, posti.testo);

    if (m_tabellone.multiAzienda() && !t.CodiceAzienda.isEmpty()) {
        painter.setFont(carattere(Grafica::Moderno, s * 0.11, false));
        const QRectF rAzienda(fascia.left() + s * 0.04, fascia.top(), fascia.width() - lPosti - s * 0.1,
                              fascia.height());
        painter.setPen(Qt::black);
        painter.drawText(rAzienda, Qt::AlignVCenter | Qt::AlignLeft,
                         QFontMetricsF(painter.font()).elidedText(t.CodiceAzienda, Qt::ElideRight, rAzienda.width()));
    }

    // Rooms already picked for a multiple reservation.
    for (const CameraSelezionata& c : m_tabellone.Griglia) {
        if (QString::compare(c.NroCamera, t.NroCamera, Qt::CaseInsensitive) == 0) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(QColor(0x00, 0x80, 0xff), 2.5, Qt::DashLine));
            painter.drawRoundedRect(tessera.adjusted(2, 2, -2, -2), s * 0.05, s * 0.05);
            break;
        }
    }
}

void VistaTabellone::mousePressEvent(QMouseEvent* evento)
{
    if (evento->button() != Qt::LeftButton)
        return;
    const int numero = tesseraIn(evento->position());
    if (numero > 0)
        m_tabellone.tessera_Click(numero);
}

void VistaTabellone::mouseMoveEvent(QMouseEvent* evento)
{
    const int numero = tesseraIn(evento->position());
    if (numero > 0)
        m_tabellone.Camera_MouseMove(numero);
    else
        m_tabellone.fuoriTessere_MouseMove();
}

void VistaTabellone::leaveEvent(QEvent*)
{
    m_tabellone.fuoriTessere_MouseMove();
}

bool VistaTabellone::event(QEvent* evento)
{
    if (evento->type() == QEvent::ToolTip) {
        auto* aiuto = static_cast<QHelpEvent*>(evento);
        const Tessera* t = m_tabellone.tessera(tesseraIn(aiuto->pos()));
        if (t)
            QToolTip::showText(aiuto->globalPos(), tooltipTessera(*t), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(evento);
}

} // namespace tomvera
