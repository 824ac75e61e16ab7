#include "foundation/ui/attendere.h"

#include "foundation/interazione.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyle>

namespace tomvera {

Attendere::Attendere(QWidget* genitore)
    : QDialog(genitore, Qt::Dialog | Qt::WindowStaysOnTopHint)
    , m_etichetta(new QLabel(QStringLiteral("Attendere... Database Occupato"), this))
{
    setObjectName(QStringLiteral("Attendere"));
    setWindowTitle(QStringLiteral("Avviso dal Database"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_etichetta);
    m_timerRefresh.setInterval(100);
    m_timerAttesa.setInterval(222);
    m_timerAttesa.setSingleShot(true);
    connect(&m_timerRefresh, &QTimer::timeout, this, [this] {
        m_etichetta->setText(QStringLiteral("Attendere... Database Occupato  //") + QString::number(m_contatore)
                             + QStringLiteral("//"));
        m_etichetta->repaint();
    });
    connect(&m_timerAttesa, &QTimer::timeout, this, [this] {
        m_timerRefresh.stop();
        hide();
    });
}

void Attendere::segnala(int contatore)
{
    m_contatore = contatore;
    m_timerAttesa.stop();
    m_timerAttesa.start();
    if (!isVisible()) {
        m_timerRefresh.start();
        show();
    }
}

MessaggioBox::MessaggioBox(int tipo, const QString& testo, int durataMs, QWidget* genitore)
    : QDialog(genitore)
{
    using T = Interazione::TipoAvviso;
    setObjectName(QStringLiteral("MessaggioBox"));
    setWindowTitle(QStringLiteral("Tomvera"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QHBoxLayout(this);
    auto* icona = new QLabel(this);
    QStyle::StandardPixmap pixmap = QStyle::SP_MessageBoxInformation;
    switch (T(tipo)) {
    case T::Conferma:
        pixmap = QStyle::SP_DialogApplyButton;
        break;
    case T::Errore:
        pixmap = QStyle::SP_MessageBoxCritical;
        break;
    case T::Domanda:
        pixmap = QStyle::SP_MessageBoxQuestion;
        break;
    default:
        break;
    }
    if (T(tipo) != T::InputBox) {
        icona->setPixmap(style()->standardIcon(pixmap).pixmap(32, 32));
        layout->addWidget(icona);
    }
    auto* scritta = new QLabel(testo, this);
    scritta->setObjectName(QStringLiteral("Scritta"));
    scritta->setWordWrap(true);
    if (T(tipo) == T::Informazione)
        scritta->setStyleSheet(QStringLiteral("background-color: #FFFFC0;"));
    layout->addWidget(scritta, 1);
    for (QWidget* w : findChildren<QWidget*>())
        w->installEventFilter(this);
    if (durataMs > 0)
        QTimer::singleShot(durataMs, this, &QDialog::close);
}

void MessaggioBox::mousePressEvent(QMouseEvent*)
{
    close();
}

bool MessaggioBox::eventFilter(QObject* oggetto, QEvent* evento)
{
    if (evento->type() == QEvent::MouseButtonPress) {
        close();
        return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

} // namespace tomvera
