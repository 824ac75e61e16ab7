#pragma once

#include "pricelists/formatilistino.h"
#include "reports/modellostampa.h"

#include <QDialog>
#include <QPushButton>
#include <QStringList>
#include <QTableWidget>
#include <functional>
#include <vector>

class QComboBox;
class QVBoxLayout;
class QWidget;

namespace tomvera {
struct Sessione;
}

namespace tomvera::prezzi {

// What the two price-list screens share on screen: the grid with the hidden Indice in column 0, the choosers
// refilled after each command, the focus a refused command asks for.
// The wide columns share the room left by the others, which take what their texts need.
void preparaGriglia(QTableWidget& griglia, const QStringList& titoli, const QList<int>& colonneNumeriche,
                    const QList<int>& colonneLarghe);
void riempiGriglia(QTableWidget& griglia, const std::vector<RigaGriglia>& righe, const QList<int>& colonneNumeriche);
void riempiScelta(QComboBox& scelta, const QStringList& voci, const QString& testo);
void mettiFocus(QWidget& schermo, const QString& controllo);
// In a price a typed "." is the decimal comma.
void virgolaDecimale(QWidget& campo);

QPushButton* pulsante(const QString& nome, const QString& testo, QWidget* genitore);
// Typed or picked from the list; minimum width only when given.
QComboBox* sceltaModificabile(const QString& nome, QWidget* genitore, int larghezzaMinima = 0);

using StampaListino = std::function<void(const reports::ModelloStampa&)>;
// "Stampa Visualizzati" by default: the preview with the printers of the settings.
StampaListino anteprimaListino(Sessione& sessione, QWidget* schermo);

// The commands both screens show, named as the controls.
struct PulsantiListino
{
    QPushButton* Ins = nullptr;
    QPushButton* Nuovo = nullptr;
    QPushButton* Command15 = nullptr;
    QPushButton* Cerca = nullptr;
    QPushButton* CL = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Fine = nullptr;
};

// Ins, Nuovo and Command15 stacked beside the fields of the row.
QVBoxLayout* creaComandiRiga(QWidget* dati, PulsantiListino& pulsanti);
// Cerca and CL, made after the search fields so the tab order follows them.
void creaComandiRicerca(QWidget* ricerca, PulsantiListino& pulsanti);
// Fields and search side by side, the grid under them, Command1 and Fine at the foot; sopra (optional) goes first.
// Gives the grid.
QTableWidget* impaginaListino(QDialog& schermo, QWidget* sopra, QWidget* dati, QWidget* ricerca,
                              PulsantiListino& pulsanti);

// The commands both screens forward the same way: fields in, command, screen refreshed. Nuovo and the
// screen's own controls are left to the screen. stampa is read at click time, so a later impostaStampa counts.
template <class Schermo>
void collegaComandiListino(QDialog& schermo, Schermo& logica, const PulsantiListino& p, QTableWidget& griglia,
                           std::function<void()> versoLogica, std::function<void(bool)> dallaLogica,
                           const StampaListino& stampa)
{
    const auto comando = [&logica, versoLogica, dallaLogica](auto azione) {
        return [&logica, versoLogica, dallaLogica, azione] {
            versoLogica();
            (logica.*azione)();
            dallaLogica(true);
        };
    };
    QObject::connect(p.Ins, &QPushButton::clicked, &schermo, [&schermo, &logica, versoLogica, dallaLogica] {
        versoLogica();
        logica.Ins_Click();
        dallaLogica(true);
        mettiFocus(schermo, logica.Focus);
    });
    QObject::connect(p.Command15, &QPushButton::clicked, &schermo, comando(&Schermo::Command15_Click));
    QObject::connect(p.Cerca, &QPushButton::clicked, &schermo, comando(&Schermo::Cerca_Click));
    QObject::connect(p.CL, &QPushButton::clicked, &schermo, comando(&Schermo::CL_Click));
    QObject::connect(p.Command1, &QPushButton::clicked, &schermo, [&logica, &stampa] {
        if (const auto modello = logica.Command1_Click())
            stampa(*modello);
    });
    QObject::connect(p.Fine, &QPushButton::clicked, &schermo, &QDialog::accept);
    QObject::connect(&griglia, &QTableWidget::cellClicked, &schermo,
                     [&logica, &griglia, versoLogica, dallaLogica](int riga, int) {
                         versoLogica();
                         logica.Griglia_Click(riga);
                         dallaLogica(false);
                         griglia.selectRow(riga);
                     });
}

} // namespace tomvera::prezzi
