#include "reports/ui/impaginazione.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>

namespace tomvera::reports {

namespace {

struct Caratteri
{
    QFont titolo;
    QFont testo;
    QFont grassetto;
    QFont piccolo;
    QFont fisso;
};

Caratteri caratteri()
{
    Caratteri c;
    c.testo = QFont(QStringLiteral("DejaVu Sans"), 9);
    c.titolo = c.testo;
    c.titolo.setPointSizeF(13);
    c.titolo.setBold(true);
    c.grassetto = c.testo;
    c.grassetto.setBold(true);
    c.piccolo = c.testo;
    c.piccolo.setPointSizeF(7.5);
    c.fisso = QFont(QStringLiteral("DejaVu Sans Mono"), 8);
    c.fisso.setStyleHint(QFont::Monospace);
    return c;
}

struct Misure
{
    double mm = 1;
    double titolo = 0;
    double testo = 0;
    double riga = 0;
    double intestazione = 0;
    double piede = 0;
};

Misure misure(QPainter& painter, const Caratteri& c)
{
    Misure m;
    QPaintDevice* d = painter.device();
    m.mm = d->logicalDpiY() / 25.4;
    m.titolo = QFontMetricsF(c.titolo, d).height() + 2 * m.mm;
    m.testo = QFontMetricsF(c.testo, d).height() * 1.2;
    m.riga = QFontMetricsF(c.testo, d).height() * 1.45;
    m.intestazione = QFontMetricsF(c.grassetto, d).height() * 1.6;
    m.piede = QFontMetricsF(c.piccolo, d).height() + 3 * m.mm;
    return m;
}

QList<double> larghezzeColonne(const ModelloStampa& modello, double larghezza)
{
    QList<double> pesi;
    double totale = 0;
    for (const ColonnaStampa& c : modello.colonne) {
        const double peso
            = std::max<double>({ static_cast<double>(c.caratteri), static_cast<double>(c.titolo.size()), 3.0 }) + 2;
        pesi << peso;
        totale += peso;
    }
    for (double& p : pesi)
        p = p / totale * larghezza;
    return pesi;
}

} // namespace

Impaginazione::Impaginazione(ModelloStampa modello)
    : m_modello(std::move(modello))
{
}

void Impaginazione::prepara(QPainter& painter, const QRectF& area)
{
    const Caratteri c = caratteri();
    const Misure m = misure(painter, c);
    const double intestazioneColonne = m_modello.colonne.isEmpty() ? 0 : m.intestazione;
    const double testa = m_modello.testa.size() * m.testo + 2 * m.mm;
    const double piede = m_modello.piede.isEmpty() ? 0 : m_modello.piede.size() * m.testo + 2 * m.mm;
    const double utile = area.height() - m.piede;

    m_pagine.clear();
    int riga = 0;
    const int totale = static_cast<int>(m_modello.righe.size());
    do {
        Pagina p;
        p.primaRiga = riga;
        p.conTesta = m_pagine.isEmpty();
        double spazio = utile - m.titolo - intestazioneColonne - (p.conTesta ? testa : 0);
        const int entrano = std::max(1, static_cast<int>(spazio / m.riga));
        p.righe = std::min(entrano, totale - riga);
        riga += p.righe;
        spazio -= p.righe * m.riga;
        p.conPiede = riga >= totale && spazio >= piede;
        m_pagine << p;
    } while (riga < totale);
    if (!m_pagine.last().conPiede) {
        Pagina solo;
        solo.primaRiga = totale;
        solo.conPiede = true;
        m_pagine << solo;
    }
}

void Impaginazione::disegnaPagina(QPainter& painter, const QRectF& area, int pagina) const
{
    if (pagina < 0 || pagina >= m_pagine.size())
        return;
    const Caratteri c = caratteri();
    const Misure m = misure(painter, c);
    const Pagina& p = m_pagine[pagina];
    const QColor grigioLinea(170, 170, 170);
    double y = area.top();

    painter.setPen(Qt::black);
    painter.setFont(c.titolo);
    painter.drawText(QRectF(area.left(), y, area.width(), m.titolo), Qt::AlignLeft | Qt::AlignTop, m_modello.titolo);
    y += m.titolo;
    painter.setPen(QPen(Qt::black, 0.4 * m.mm));
    painter.drawLine(QPointF(area.left(), y - m.mm), QPointF(area.right(), y - m.mm));
    y += m.mm;

    painter.setFont(c.testo);
    if (p.conTesta) {
        for (const QString& t : m_modello.testa) {
            painter.drawText(QRectF(area.left(), y, area.width(), m.testo), Qt::AlignLeft | Qt::AlignVCenter, t);
            y += m.testo;
        }
        y += 2 * m.mm;
    }

    const QList<double> larghezze = larghezzeColonne(m_modello, area.width());
    const double margineCella = 1.5 * m.mm;
    auto disegnaCelle = [&](const QStringList& celle, double altezza) {
        double x = area.left();
        for (int col = 0; col < larghezze.size(); ++col) {
            const QRectF cella(x + margineCella, y, larghezze[col] - 2 * margineCella, altezza);
            const Qt::Alignment allineamento
                = (m_modello.colonne[col].aDestra ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
            const QString testo
                = painter.fontMetrics().elidedText(celle.value(col), Qt::ElideRight, static_cast<int>(cella.width()));
            painter.drawText(cella, allineamento, testo);
            x += larghezze[col];
        }
    };

    if (!m_modello.colonne.isEmpty()) {
        painter.fillRect(QRectF(area.left(), y, area.width(), m.intestazione), QColor(222, 226, 232));
        painter.setFont(c.grassetto);
        QStringList titoli;
        for (const ColonnaStampa& col : m_modello.colonne)
            titoli << col.titolo;
        disegnaCelle(titoli, m.intestazione);
        y += m.intestazione;
        painter.setPen(QPen(Qt::black, 0.3 * m.mm));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    }

    painter.setFont(m_modello.colonne.isEmpty() ? c.fisso : c.testo);
    for (int i = 0; i < p.righe; ++i) {
        const QStringList& riga = m_modello.righe[p.primaRiga + i];
        if ((p.primaRiga + i) % 2 == 1)
            painter.fillRect(QRectF(area.left(), y, area.width(), m.riga), QColor(244, 246, 248));
        painter.setPen(Qt::black);
        if (m_modello.colonne.isEmpty()) {
            QFont carattere = c.fisso;
            carattere.setBold(m_modello.grassetto.value(p.primaRiga + i));
            painter.setFont(carattere);
        }
        if (m_modello.colonne.isEmpty())
            painter.drawText(QRectF(area.left(), y, area.width(), m.riga), Qt::AlignLeft | Qt::AlignVCenter,
                             riga.join(QStringLiteral(" | ")));
        else
            disegnaCelle(riga, m.riga);
        y += m.riga;
        painter.setPen(QPen(grigioLinea, 0.1 * m.mm));
        painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
    }

    painter.setPen(Qt::black);
    if (p.conPiede && !m_modello.piede.isEmpty()) {
        y += 2 * m.mm;
        painter.setFont(c.grassetto);
        for (const QString& t : m_modello.piede) {
            painter.drawText(QRectF(area.left(), y, area.width(), m.testo), Qt::AlignLeft | Qt::AlignVCenter, t);
            y += m.testo;
        }
    }

    painter.setFont(c.piccolo);
    painter.setPen(QColor(90, 90, 90));
    const QRectF piede(area.left(), area.bottom() - m.piede + 2 * m.mm, area.width(), m.piede - 2 * m.mm);
    painter.drawText(piede, Qt::AlignRight | Qt::AlignBottom,
                     QStringLiteral("Pagina %1 di %2").arg(pagina + 1).arg(m_pagine.size()));
}

bool stampaSuDispositivo(const ModelloStampa& modello, QPagedPaintDevice& dispositivo)
{
    QPageLayout layout = dispositivo.pageLayout();
    layout.setOrientation(modello.orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
    layout.setMargins(QMarginsF(15, 15, 15, 15));
    layout.setUnits(QPageLayout::Millimeter);
    dispositivo.setPageLayout(layout);

    QPainter painter;
    if (!painter.begin(&dispositivo))
        return false;
    const QRectF area(QPointF(0, 0), QSizeF(dispositivo.width(), dispositivo.height()));
    Impaginazione impaginazione(modello);
    impaginazione.prepara(painter, area);
    for (int pagina = 0; pagina < impaginazione.numeroPagine(); ++pagina) {
        if (pagina > 0 && !dispositivo.newPage())
            return false;
        impaginazione.disegnaPagina(painter, area, pagina);
    }
    return painter.end();
}

bool esportaPdf(const ModelloStampa& modello, const QString& percorso)
{
    QPdfWriter pdf(percorso);
    pdf.setResolution(300);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setTitle(modello.titolo);
    pdf.setCreator(QStringLiteral("Tomvera"));
    return stampaSuDispositivo(modello, pdf);
}

} // namespace tomvera::reports
