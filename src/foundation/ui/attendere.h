#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;

namespace tomvera {

// "Avviso dal Database": stays up while the archive is busy and closes once it has been free for one
// whole TimerAttesa period (each busy retry restarts that timer).
class Attendere : public QDialog
{
    Q_OBJECT
public:
    explicit Attendere(QWidget* genitore = nullptr);
    void segnala(int contatore);

private:
    QLabel* m_etichetta;
    QTimer m_timerRefresh;
    QTimer m_timerAttesa;
    int m_contatore = 0;
};

// MessaggioBox: the transient notice of the kinds Conferma, Informazione, Errore, Domanda, InputBox.
class MessaggioBox : public QDialog
{
    Q_OBJECT
public:
    MessaggioBox(int tipo, const QString& testo, int durataMs, QWidget* genitore = nullptr);

protected:
    void mousePressEvent(QMouseEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
};

} // namespace tomvera
