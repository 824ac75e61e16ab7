#include "pricelists/ui/listinoaccessoriwidget.h"

#include "foundation/schema/tabelle.h"
#include "pricelists/schermolistinoaccessori.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace tomvera::prezzi {

namespace {

// Prezzo and the VAT (column 0 is the hidden Indice).
const QList<int> colonneNumeriche { 3, 4 };
const QList<int> colonneLarghe { 1, 2 };

} // namespace

ListinoAccessoriWidget::ListinoAccessoriWidget(std::unique_ptr<SchermoListinoAccessori> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_ListinoAccessori"));
    setWindowTitle(QStringLiteral("Listino Accessori"));
    resize(860, 600);

    auto* dati = new QGroupBox(QStringLiteral("ACCESSORIO"), this);
    m_tipo = sceltaModificabile(QStringLiteral("Tipo"), dati);
    m_descrizione = new QLineEdit(dati);
    m_descrizione->setObjectName(QStringLiteral("Descrizione"));
    m_prezzo = new QLineEdit(dati);
    m_prezzo->setObjectName(QStringLiteral("Prezzo"));
    m_prezzo->setMaximumWidth(110);
    m_prezzo->setAlignment(Qt::AlignRight);
    m_iva = new QLineEdit(dati);
    m_iva->setObjectName(QStringLiteral("Iva"));
    m_iva->setMaximumWidth(60);
    m_iva->setAlignment(Qt::AlignRight);
    m_etichettaIva = new QLabel(dati);
    // The group and the text take the size of their fields, so an overlong text can't be typed or pasted.
    const schema::Tabella tabella = schema::TabellaListinoAccessori();
    m_tipo->lineEdit()->setMaxLength(schema::dimensioneDichiarata(tabella, QStringLiteral("Tipo")));
    m_descrizione->setMaxLength(schema::dimensioneDichiarata(tabella, QStringLiteral("Descrizione")));
    auto* griglia = new QGridLayout(dati);
    griglia->addWidget(new QLabel(QStringLiteral("Tipo"), dati), 0, 0);
    griglia->addWidget(m_tipo, 0, 1, 1, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Descrizione"), dati), 1, 0);
    griglia->addWidget(m_descrizione, 1, 1, 1, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Prezzo"), dati), 2, 0);
    griglia->addWidget(m_prezzo, 2, 1);
    griglia->addWidget(m_etichettaIva, 2, 2, Qt::AlignRight);
    griglia->addWidget(m_iva, 2, 3);
    griglia->addLayout(creaComandiRiga(dati, m_pulsanti), 0, 4, 4, 1);
    griglia->setColumnStretch(1, 1);

    auto* ricerca = new QGroupBox(QStringLiteral("RICERCA"), this);
    m_tipoRic = sceltaModificabile(QStringLiteral("TipoRic"), ricerca, 180);
    creaComandiRicerca(ricerca, m_pulsanti);
    auto* grigliaRicerca = new QGridLayout(ricerca);
    grigliaRicerca->addWidget(new QLabel(QStringLiteral("Tipo"), ricerca), 0, 0);
    grigliaRicerca->addWidget(m_tipoRic, 0, 1);
    grigliaRicerca->addWidget(m_pulsanti.Cerca, 1, 0);
    grigliaRicerca->addWidget(m_pulsanti.CL, 1, 1);
    grigliaRicerca->setRowStretch(2, 1);

    m_griglia = impaginaListino(*this, nullptr, dati, ricerca, m_pulsanti);
    m_stampa = anteprimaListino(m_logica->sessione(), this);

    collegaComandiListino(
        *this, *m_logica, m_pulsanti, *m_griglia, [this] { versoLogica(); },
        [this](bool conGriglia) { dallaLogica(conGriglia); }, m_stampa);
    connect(m_pulsanti.Nuovo, &QPushButton::clicked, this, [this] {
        m_logica->Nuovo_Click();
        dallaLogica(false);
        m_tipo->setFocus();
    });
    virgolaDecimale(*m_prezzo);

    m_logica->Form_Load();
    dallaLogica();
}

ListinoAccessoriWidget::~ListinoAccessoriWidget() = default;

void ListinoAccessoriWidget::versoLogica()
{
    SchermoListinoAccessori& l = *m_logica;
    l.Tipo = m_tipo->currentText();
    l.Descrizione = m_descrizione->text();
    l.Prezzo = m_prezzo->text();
    l.Iva = m_iva->text();
    l.TipoRic = m_tipoRic->currentText();
}

void ListinoAccessoriWidget::dallaLogica(bool conGriglia)
{
    const SchermoListinoAccessori& l = *m_logica;
    const QStringList titoli = l.TitoliColonne();
    m_etichettaIva->setText(titoli.at(3));
    riempiScelta(*m_tipo, l.ElencoTipi, l.Tipo);
    riempiScelta(*m_tipoRic, l.ElencoTipi, l.TipoRic);
    m_descrizione->setText(l.Descrizione);
    m_prezzo->setText(l.Prezzo);
    m_iva->setText(l.Iva);
    if (conGriglia) {
        preparaGriglia(*m_griglia, titoli, colonneNumeriche, colonneLarghe);
        riempiGriglia(*m_griglia, l.Griglia, colonneNumeriche);
    }
    m_pulsanti.Ins->setEnabled(!l.SoloLettura());
    m_pulsanti.Command15->setEnabled(!l.SoloLettura());
}

} // namespace tomvera::prezzi
