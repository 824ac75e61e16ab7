#include "pricelists/ui/listinoaccessoriwidget.h"

#include "foundation/sessione.h"
#include "pricelists/schermolistinoaccessori.h"
#include "pricelists/ui/griglialistino.h"
#include "reports/stampagenerica.h"
#include "reports/ui/anteprimastampa.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera::prezzi {

namespace {

// Prezzo and the VAT (column 0 is the hidden Indice).
const QList<int> colonneNumeriche { 3, 4 };
const QList<int> colonneLarghe { 1, 2 };

QPushButton* pulsante(const QString& nome, const QString& testo, QWidget* genitore)
{
    auto* p = new QPushButton(testo, genitore);
    p->setObjectName(nome);
    p->setAutoDefault(false);
    p->setMinimumHeight(30);
    return p;
}

} // namespace

ListinoAccessoriWidget::ListinoAccessoriWidget(std::unique_ptr<SchermoListinoAccessori> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_ListinoAccessori"));
    setWindowTitle(QStringLiteral("Listino Accessori"));
    resize(860, 600);

    auto* dati = new QGroupBox(QStringLiteral("ACCESSORIO"), this);
    m_tipo = new QComboBox(dati);
    m_tipo->setObjectName(QStringLiteral("Tipo"));
    m_tipo->setEditable(true);
    m_tipo->setInsertPolicy(QComboBox::NoInsert);
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
    auto* griglia = new QGridLayout(dati);
    griglia->addWidget(new QLabel(QStringLiteral("Tipo"), dati), 0, 0);
    griglia->addWidget(m_tipo, 0, 1, 1, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Descrizione"), dati), 1, 0);
    griglia->addWidget(m_descrizione, 1, 1, 1, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Prezzo"), dati), 2, 0);
    griglia->addWidget(m_prezzo, 2, 1);
    griglia->addWidget(m_etichettaIva, 2, 2, Qt::AlignRight);
    griglia->addWidget(m_iva, 2, 3);
    m_ins = pulsante(QStringLiteral("Ins"), QStringLiteral("INSERISCI"), dati);
    m_ins->setStyleSheet(QStringLiteral("font-weight: bold;"));
    auto* nuovo = pulsante(QStringLiteral("Nuovo"), QStringLiteral("NUOVO"), dati);
    m_cancella = pulsante(QStringLiteral("Command15"), QStringLiteral("Cancella"), dati);
    auto* comandi = new QVBoxLayout;
    comandi->addWidget(m_ins);
    comandi->addWidget(nuovo);
    comandi->addWidget(m_cancella);
    comandi->addStretch();
    griglia->addLayout(comandi, 0, 4, 4, 1);
    griglia->setColumnStretch(1, 1);

    auto* ricerca = new QGroupBox(QStringLiteral("RICERCA"), this);
    m_tipoRic = new QComboBox(ricerca);
    m_tipoRic->setObjectName(QStringLiteral("TipoRic"));
    m_tipoRic->setEditable(true);
    m_tipoRic->setInsertPolicy(QComboBox::NoInsert);
    m_tipoRic->setMinimumWidth(180);
    auto* cerca = pulsante(QStringLiteral("Cerca"), QStringLiteral("CERCA"), ricerca);
    auto* cl = pulsante(QStringLiteral("CL"), QStringLiteral("CANCELLA SELEZIONE"), ricerca);
    auto* grigliaRicerca = new QGridLayout(ricerca);
    grigliaRicerca->addWidget(new QLabel(QStringLiteral("Tipo"), ricerca), 0, 0);
    grigliaRicerca->addWidget(m_tipoRic, 0, 1);
    grigliaRicerca->addWidget(cerca, 1, 0);
    grigliaRicerca->addWidget(cl, 1, 1);
    grigliaRicerca->setRowStretch(2, 1);

    auto* rigaCentrale = new QHBoxLayout;
    rigaCentrale->addWidget(dati, 3);
    rigaCentrale->addWidget(ricerca, 2);

    m_griglia = new QTableWidget(this);
    m_griglia->setObjectName(QStringLiteral("Griglia"));

    auto* stampa = pulsante(QStringLiteral("Command1"), QStringLiteral("Stampa Visualizzati"), this);
    auto* fine = pulsante(QStringLiteral("Fine"), QStringLiteral("Esci"), this);
    auto* piede = new QHBoxLayout;
    piede->addWidget(stampa);
    piede->addStretch();
    piede->addWidget(fine);

    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(rigaCentrale);
    colonna->addWidget(m_griglia, 1);
    colonna->addLayout(piede);

    m_stampa = [this](const reports::ModelloStampa& modello) {
        Sessione& s = m_logica->sessione();
        reports::mostraAnteprimaStampa(modello, s.interazione,
                                       reports::stampantiDelleImpostazioni(s.PercorsoDB, s.errori), this);
    };

    connect(m_ins, &QPushButton::clicked, this, [this] {
        versoLogica();
        m_logica->Ins_Click();
        dallaLogica();
        mettiFocus(*this, m_logica->Focus);
    });
    connect(nuovo, &QPushButton::clicked, this, [this] {
        m_logica->Nuovo_Click();
        dallaLogica(false);
        m_tipo->setFocus();
    });
    connect(m_cancella, &QPushButton::clicked, this, [this] {
        versoLogica();
        m_logica->Command15_Click();
        dallaLogica();
    });
    connect(cerca, &QPushButton::clicked, this, [this] {
        versoLogica();
        m_logica->Cerca_Click();
        dallaLogica();
    });
    connect(cl, &QPushButton::clicked, this, [this] {
        versoLogica();
        m_logica->CL_Click();
        dallaLogica();
    });
    connect(stampa, &QPushButton::clicked, this, [this] {
        if (const auto modello = m_logica->Command1_Click())
            m_stampa(*modello);
    });
    connect(fine, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_griglia, &QTableWidget::cellClicked, this, [this](int riga, int) {
        versoLogica();
        m_logica->Griglia_Click(riga);
        dallaLogica(false);
        m_griglia->selectRow(riga);
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
    m_ins->setEnabled(!l.SoloLettura());
    m_cancella->setEnabled(!l.SoloLettura());
}

} // namespace tomvera::prezzi
