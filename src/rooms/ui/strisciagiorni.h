#pragma once

#include <QWidget>

namespace tomvera {

class Tabellone;

// The day strip under the board: month headers, one column a day with its morning and afternoon halves
// coloured by the reservations of the marked room. Clicking two days chooses Dal and Al.
class StrisciaGiorni : public QWidget
{
    Q_OBJECT
public:
    explicit StrisciaGiorni(Tabellone& tabellone, QWidget* genitore = nullptr);

    int giornoIn(const QPointF& punto) const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;

private:
    double larghezzaGiorno() const;

    Tabellone& m_tabellone;
};

} // namespace tomvera
