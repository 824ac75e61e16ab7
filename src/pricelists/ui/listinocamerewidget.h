#pragma once

#include "pricelists/ui/griglialistino.h"

#include <QDialog>
#include <memory>

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTableWidget;

namespace tomvera::prezzi {

class SchermoListinoCamere;

// F_ListinoCamere on screen: copies the fields into the logic, forwards the commands, shows the result.
class ListinoCamereWidget : public QDialog
{
    Q_OBJECT
public:
    using Stampa = StampaListino;

    ListinoCamereWidget(std::unique_ptr<SchermoListinoCamere> logica, QWidget* genitore = nullptr);
    ~ListinoCamereWidget() override;

    SchermoListinoCamere& logica() { return *m_logica; }
    // Where "Stampa Visualizzati" goes: the preview by default.
    void impostaStampa(Stampa stampa) { m_stampa = std::move(stampa); }

private:
    void versoLogica();
    void dallaLogica(bool conGriglia = true);

    std::unique_ptr<SchermoListinoCamere> m_logica;
    Stampa m_stampa;
    QRadioButton* m_prezzoACamera;
    QRadioButton* m_prezzoAPersona;
    QLabel* m_tipoListino;
    QLabel* m_etichettaCodice;
    QLabel* m_etichettaCodiceRic;
    QComboBox* m_listino;
    QComboBox* m_codice;
    QLineEdit* m_dal;
    QLineEdit* m_al;
    QLineEdit* m_prezzo;
    QLineEdit* m_iva;
    QLabel* m_etichettaIva;
    QLineEdit* m_giorni;
    QComboBox* m_listinoRic;
    QComboBox* m_codiceRic;
    QTableWidget* m_griglia;
    PulsantiListino m_pulsanti;
};

} // namespace tomvera::prezzi
