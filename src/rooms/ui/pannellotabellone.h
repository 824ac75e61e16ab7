#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QToolButton;

namespace tomvera {

class StrisciaGiorni;
class Tabellone;
class VistaTabellone;

// The central area of Avvio: period and floor controls, counters, the tiles, the multiple selection, the
// add-room banner, the information frame and the day strip. It copies the board's state in and forwards
// every click; all decisions are in Tabellone.
class PannelloTabellone : public QWidget
{
    Q_OBJECT
public:
    explicit PannelloTabellone(Tabellone& tabellone, QWidget* genitore = nullptr);

    VistaTabellone* vista() const { return m_vista; }
    StrisciaGiorni* striscia() const { return m_striscia; }
    // Copies the board's state into the controls.
    void aggiornaControlli();

signals:
    void titoloCambiato(const QString& titolo);

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    QPushButton* pulsante(const QString& nome, const QString& testo);
    QToolButton* freccia(const QString& nome, Qt::ArrowType direzione);
    void posizionaInfo();
    void applicaStile();

    Tabellone& m_tabellone;
    VistaTabellone* m_vista = nullptr;
    StrisciaGiorni* m_striscia = nullptr;
    QDateEdit* m_dal = nullptr;
    QDateEdit* m_al = nullptr;
    QLineEdit* m_piano = nullptr;
    QComboBox* m_azienda = nullptr;
    QLabel* m_etichettaAzienda = nullptr;
    QCheckBox* m_informazioni = nullptr;
    QCheckBox* m_calendario = nullptr;
    QPushButton* m_multipla = nullptr;
    QPushButton* m_oggi = nullptr;
    QLabel* m_disponibili = nullptr;
    QLabel* m_presenti = nullptr;
    QLabel* m_selezionaAl = nullptr;
    QWidget* m_frameMultipla = nullptr;
    QTableWidget* m_griglia = nullptr;
    QPushButton* m_prenota = nullptr;
    QWidget* m_frameAggiungi = nullptr;
    QLabel* m_info = nullptr;
    QLabel* m_suggerimento = nullptr;
    bool m_copiando = false;
};

} // namespace tomvera
