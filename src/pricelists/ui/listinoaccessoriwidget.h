#pragma once

#include "pricelists/ui/griglialistino.h"

#include <QDialog>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace tomvera::prezzi {

class SchermoListinoAccessori;

// F_ListinoAccessori on screen.
class ListinoAccessoriWidget : public QDialog
{
    Q_OBJECT
public:
    using Stampa = StampaListino;

    ListinoAccessoriWidget(std::unique_ptr<SchermoListinoAccessori> logica, QWidget* genitore = nullptr);
    ~ListinoAccessoriWidget() override;

    SchermoListinoAccessori& logica() { return *m_logica; }
    void impostaStampa(Stampa stampa) { m_stampa = std::move(stampa); }

private:
    void versoLogica();
    void dallaLogica(bool conGriglia = true);

    std::unique_ptr<SchermoListinoAccessori> m_logica;
    Stampa m_stampa;
    QComboBox* m_tipo;
    QLineEdit* m_descrizione;
    QLineEdit* m_prezzo;
    QLineEdit* m_iva;
    QLabel* m_etichettaIva;
    QComboBox* m_tipoRic;
    QTableWidget* m_griglia;
    PulsantiListino m_pulsanti;
};

} // namespace tomvera::prezzi
