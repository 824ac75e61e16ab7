#pragma once

#include "guests/schedaanagrafica.h"

#include <QDialog>
#include <functional>

class QLineEdit;
class QTableWidget;

namespace tomvera {

// The guest list of "Cerca": a filter, the matching cards, and the chosen one's Indice.
class ElencoAnagraficheWidget : public QDialog
{
    Q_OBJECT
public:
    using Ricerca = std::function<QList<VoceElencoAnagrafiche>(const QString&)>;
    explicit ElencoAnagraficheWidget(Ricerca ricerca, QWidget* genitore = nullptr);

    qint64 scelta() const { return m_scelta; }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void aggiorna();
    void conferma();

    Ricerca m_ricerca;
    QList<VoceElencoAnagrafiche> m_voci;
    QLineEdit* m_filtro;
    QTableWidget* m_griglia;
    qint64 m_scelta = 0;
};

} // namespace tomvera
