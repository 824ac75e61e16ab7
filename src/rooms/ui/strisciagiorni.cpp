#include "rooms/ui/strisciagiorni.h"

#include "rooms/tabellone.h"
#include "rooms/ui/immaginicamera.h"

#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

namespace tomvera {

namespace {

constexpr int altezzaMese = 18;
constexpr int altezzaGiorno = 30;
constexpr int altezzaStato = 28;

const QColor coloreArrivati(0xc0, 0x39, 0x2b);
const QColor colorePrenotati(0xf3, 0x9c, 0x12);

} // namespace

StrisciaGiorni::StrisciaGiorni(Tabellone& tabellone, QWidget* genitore)
    : QWidget(genitore)
    , m_tabellone(tabellone)
{
    setObjectName(QStringLiteral("StrisciaGiorni"));
    setFixedHeight(altezzaMese + altezzaGiorno + altezzaStato + 2);
    connect(&m_tabellone, &Tabellone::aggiornato, this, qOverload<>(&QWidget::update));
    connect(&m_tabellone, &Tabellone::statoCambiato, this, qOverload<>(&QWidget::update));
}

QSize StrisciaGiorni::sizeHint() const
{
    return { 800, altezzaMese + altezzaGiorno + altezzaStato + 2 };
}

double StrisciaGiorni::larghezzaGiorno() const
{
    const int giorni = static_cast<int>(m_tabellone.Striscia.size());
    return giorni > 0 ? static_cast<double>(width()) / giorni : 0;
}

int StrisciaGiorni::giornoIn(const QPointF& punto) const
{
    const double l = larghezzaGiorno();
    if (l <= 0 || punto.y() < altezzaMese)
        return -1;
    const int i = static_cast<int>(punto.x() / l);
    return i >= 0 && i < m_tabellone.Striscia.size() ? i : -1;
}

void StrisciaGiorni::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    const ColoriStile colori = coloriStile(m_tabellone.grafica());
    p.fillRect(rect(), coloreQt(colori.sfondoFrame));
    const double l = larghezzaGiorno();
    if (l <= 0)
        return;
    QFont f = font();
    f.setPixelSize(11);
    p.setFont(f);

    for (const MeseStriscia& m : m_tabellone.Mesi) {
        const QRectF r(m.primo * l, 0, m.giorni * l, altezzaMese);
        p.fillRect(r.adjusted(0.5, 0.5, -0.5, -0.5), coloreQt(colori.terzaForma));
        p.setPen(Qt::white);
        p.drawText(r.adjusted(4, 0, -2, 0), Qt::AlignVCenter | Qt::AlignLeft, m.nome);
    }

    const QLocale italiano(QLocale::Italian, QLocale::Italy);
    for (int i = 0; i < m_tabellone.Striscia.size(); ++i) {
        const GiornoStriscia& g = m_tabellone.Striscia.at(i);
        const QRectF giorno(i * l, altezzaMese, l, altezzaGiorno);
        const bool nelPeriodo = g.data >= m_tabellone.Dal && g.data < m_tabellone.Al;
        const bool festivo = g.data.dayOfWeek() >= 6;
        QColor fondo = coloreQt(colori.forme);
        if (nelPeriodo)
            fondo = QColor(0x1e, 0x88, 0xe5);
        else if (festivo)
            fondo = fondo.darker(125);
        p.fillRect(giorno.adjusted(0.5, 0.5, -0.5, -0.5), fondo);
        p.setPen(Qt::white);
        f.setBold(true);
        f.setPixelSize(11);
        p.setFont(f);
        p.drawText(giorno.adjusted(0, 1, 0, -altezzaGiorno / 2.0), Qt::AlignCenter, QString::number(g.data.day()));
        f.setBold(false);
        f.setPixelSize(9);
        p.setFont(f);
        p.drawText(giorno.adjusted(0, altezzaGiorno / 2.0 - 1, 0, 0), Qt::AlignCenter,
                   italiano.dayName(g.data.dayOfWeek(), QLocale::ShortFormat).left(3));

        // StatoAM and StatoPM.
        const double y = altezzaMese + altezzaGiorno;
        const MezzaGiornata* mezze[] = { &g.mattina, &g.pomeriggio };
        for (int h = 0; h < 2; ++h) {
            const MezzaGiornata& m = *mezze[h];
            const QRectF r(i * l + h * l / 2, y, l / 2, altezzaStato);
            QColor c = Qt::white;
            if (m.prenotazione != 0)
                c = m.arrivati ? coloreArrivati : colorePrenotati;
            p.fillRect(r.adjusted(0.5, 0.5, -0.5, -0.5), c);
            if (!m.didascalia.isEmpty()) {
                QFont fd = f;
                fd.setBold(true);
                fd.setPixelSize(11);
                p.setFont(fd);
                p.setPen(m.prenotazione != 0 ? Qt::white : Qt::black);
                p.drawText(r, Qt::AlignCenter, m.didascalia);
            }
        }
        p.setPen(QColor(0, 0, 0, 50));
        p.drawLine(QPointF(i * l, y), QPointF(i * l, y + altezzaStato));
    }
}

void StrisciaGiorni::mousePressEvent(QMouseEvent* evento)
{
    const int i = giornoIn(evento->position());
    if (i >= 0)
        m_tabellone.giorno_Click(i);
}

} // namespace tomvera
