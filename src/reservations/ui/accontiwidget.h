#pragma once

#include "reservations/acconti.h"

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QTableWidget;

namespace tomvera {

// F_Acconti: the deposits of one reservation. Esci, Esc and the close box all go through Fine_Click, which asks
// about a deposit typed but not inserted and writes the sum into the header.
class AccontiWidget : public QDialog
{
    Q_OBJECT
public:
    explicit AccontiWidget(std::unique_ptr<SchedaAcconti> logica, QWidget* genitore = nullptr);
    ~AccontiWidget() override;

    SchedaAcconti& logica() { return *m_logica; }

protected:
    void done(int esito) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void leggi();
    void aggiorna();

    std::unique_ptr<SchedaAcconti> m_logica;
    QLineEdit *m_data, *m_descrizione, *m_importo;
    QCheckBox* m_fr;
    QTableWidget* m_righe;
};

// F_ListaPrenotazioni: the reservations of a room in the period; the chosen one's Indice, 0 when none.
qint64 scegliPrenotazione(const QList<VoceListaPrenotazioni>& voci, const QString& nroCamera, QWidget* genitore);

} // namespace tomvera
