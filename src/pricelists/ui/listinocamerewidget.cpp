#include "pricelists/ui/listinocamerewidget.h"

#include "pricelists/schermolistinocamere.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace tomvera::prezzi {

namespace {

// Prezzo, Iva and Giorni read as numbers in the grid (column 0 is the hidden Indice).
const QList<int> colonneNumeriche { 5, 6, 7 };
const QList<int> colonneLarghe { 1, 2 };

const int larghezzaScelte = 200;

QLineEdit* campo(const QString& nome, int larghezza, QWidget* genitore)
{
    auto* c = new QLineEdit(genitore);
    c->setObjectName(nome);
    c->setMaximumWidth(larghezza);
    return c;
}

} // namespace

ListinoCamereWidget::ListinoCamereWidget(std::unique_ptr<SchermoListinoCamere> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_ListinoCamere"));
    setWindowTitle(QStringLiteral("Listino Prezzi Camere"));
    resize(1000, 680);

    // Mode.
    auto* modo = new QGroupBox(QStringLiteral("TIPO DI LISTINO"), this);
    m_prezzoACamera = new QRadioButton(QStringLiteral("PREZZO A CAMERA"), modo);
    m_prezzoACamera->setObjectName(QStringLiteral("PrezzoACamera"));
    m_prezzoAPersona = new QRadioButton(QStringLiteral("PREZZO A PERSONA"), modo);
    m_prezzoAPersona->setObjectName(QStringLiteral("PrezzoAPersona"));
    m_tipoListino = new QLabel(modo);
    m_tipoListino->setObjectName(QStringLiteral("TipoListino"));
    m_tipoListino->setStyleSheet(QStringLiteral("font-weight: bold; color: #1f4e79;"));
    auto* rigaModo = new QHBoxLayout(modo);
    rigaModo->addWidget(m_prezzoACamera);
    rigaModo->addWidget(m_prezzoAPersona);
    rigaModo->addStretch();
    rigaModo->addWidget(m_tipoListino);

    // The row being entered.
    auto* dati = new QGroupBox(QStringLiteral("PREZZO"), this);
    m_listino = sceltaModificabile(QStringLiteral("Listino"), dati, larghezzaScelte);
    m_codice = sceltaModificabile(QStringLiteral("CodiceTipologia"), dati, larghezzaScelte);
    m_dal = campo(QStringLiteral("Dal"), 70, dati);
    m_al = campo(QStringLiteral("Al"), 70, dati);
    m_dal->setPlaceholderText(QStringLiteral("GG/MM"));
    m_al->setPlaceholderText(QStringLiteral("GG/MM"));
    m_prezzo = campo(QStringLiteral("Prezzo"), 110, dati);
    m_prezzo->setAlignment(Qt::AlignRight);
    m_iva = campo(QStringLiteral("Iva"), 60, dati);
    m_iva->setAlignment(Qt::AlignRight);
    m_giorni = campo(QStringLiteral("Giorni"), 60, dati);
    m_giorni->setAlignment(Qt::AlignRight);
    m_etichettaCodice = new QLabel(dati);
    m_etichettaIva = new QLabel(dati);
    auto* griglia = new QGridLayout(dati);
    griglia->addWidget(new QLabel(QStringLiteral("Listino"), dati), 0, 0);
    griglia->addWidget(m_listino, 0, 1, 1, 3);
    griglia->addWidget(m_etichettaCodice, 1, 0);
    griglia->addWidget(m_codice, 1, 1, 1, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Dal (gg/mm)"), dati), 2, 0);
    griglia->addWidget(m_dal, 2, 1);
    griglia->addWidget(new QLabel(QStringLiteral("Al (gg/mm)"), dati), 2, 2, Qt::AlignRight);
    griglia->addWidget(m_al, 2, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Prezzo"), dati), 3, 0);
    griglia->addWidget(m_prezzo, 3, 1);
    griglia->addWidget(m_etichettaIva, 3, 2, Qt::AlignRight);
    griglia->addWidget(m_iva, 3, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Giorni"), dati), 4, 0);
    griglia->addWidget(m_giorni, 4, 1);
    griglia->addLayout(creaComandiRiga(dati, m_pulsanti), 0, 4, 5, 1);
    griglia->setColumnStretch(1, 1);

    // Search.
    auto* ricerca = new QGroupBox(QStringLiteral("RICERCA"), this);
    m_listinoRic = sceltaModificabile(QStringLiteral("ListinoRic"), ricerca, larghezzaScelte);
    m_codiceRic = sceltaModificabile(QStringLiteral("CodiceTipologiaRic"), ricerca, larghezzaScelte);
    m_etichettaCodiceRic = new QLabel(ricerca);
    creaComandiRicerca(ricerca, m_pulsanti);
    auto* grigliaRicerca = new QGridLayout(ricerca);
    grigliaRicerca->addWidget(new QLabel(QStringLiteral("Listino"), ricerca), 0, 0);
    grigliaRicerca->addWidget(m_listinoRic, 0, 1);
    grigliaRicerca->addWidget(m_etichettaCodiceRic, 1, 0);
    grigliaRicerca->addWidget(m_codiceRic, 1, 1);
    grigliaRicerca->addWidget(m_pulsanti.Cerca, 2, 0);
    grigliaRicerca->addWidget(m_pulsanti.CL, 2, 1);
    grigliaRicerca->setRowStretch(3, 1);

    m_griglia = impaginaListino(*this, modo, dati, ricerca, m_pulsanti);
    m_stampa = anteprimaListino(m_logica->sessione(), this);

    connect(m_prezzoACamera, &QRadioButton::clicked, this, [this] {
        m_logica->PrezzoACamera_Click();
        dallaLogica();
    });
    connect(m_prezzoAPersona, &QRadioButton::clicked, this, [this] {
        m_logica->PrezzoAPersona_Click();
        dallaLogica();
    });
    collegaComandiListino(
        *this, *m_logica, m_pulsanti, *m_griglia, [this] { versoLogica(); },
        [this](bool conGriglia) { dallaLogica(conGriglia); }, m_stampa);
    connect(m_pulsanti.Nuovo, &QPushButton::clicked, this, [this] {
        m_logica->Nuovo_Click();
        dallaLogica();
        m_listino->setFocus();
    });
    connect(m_codice->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        m_logica->CodiceTipologia = m_codice->currentText();
        m_logica->CodiceTipologia_LostFocus();
        m_codice->setEditText(m_logica->CodiceTipologia);
    });
    virgolaDecimale(*m_prezzo);
    connect(m_prezzo, &QLineEdit::returnPressed, this, [this] {
        versoLogica();
        m_logica->Prezzo_Invio();
        m_iva->setText(m_logica->Iva);
        mettiFocus(*this, m_logica->Focus);
    });

    m_logica->Form_Load();
    dallaLogica();
}

ListinoCamereWidget::~ListinoCamereWidget() = default;

void ListinoCamereWidget::versoLogica()
{
    SchermoListinoCamere& l = *m_logica;
    l.Listino = m_listino->currentText();
    l.CodiceTipologia = m_codice->currentText();
    l.Dal = m_dal->text();
    l.Al = m_al->text();
    l.Prezzo = m_prezzo->text();
    l.Iva = m_iva->text();
    l.Giorni = m_giorni->text();
    l.ListinoRic = m_listinoRic->currentText();
    l.CodiceTipologiaRic = m_codiceRic->currentText();
}

void ListinoCamereWidget::dallaLogica(bool conGriglia)
{
    const SchermoListinoCamere& l = *m_logica;
    {
        const QSignalBlocker b1(m_prezzoACamera);
        const QSignalBlocker b2(m_prezzoAPersona);
        m_prezzoACamera->setChecked(l.PrezzoACamera);
        m_prezzoAPersona->setChecked(l.PrezzoAPersona);
    }
    m_tipoListino->setText(l.Caption());
    m_etichettaCodice->setText(l.EtichettaCodice());
    m_etichettaCodiceRic->setText(l.EtichettaCodice());
    const QStringList titoli = l.TitoliColonne();
    m_etichettaIva->setText(titoli.at(5));
    riempiScelta(*m_listino, l.ElencoListini, l.Listino);
    riempiScelta(*m_codice, l.ElencoCodici, l.CodiceTipologia);
    riempiScelta(*m_listinoRic, l.ElencoListini, l.ListinoRic);
    riempiScelta(*m_codiceRic, l.ElencoCodici, l.CodiceTipologiaRic);
    m_dal->setText(l.Dal);
    m_al->setText(l.Al);
    m_prezzo->setText(l.Prezzo);
    m_iva->setText(l.Iva);
    m_giorni->setText(l.Giorni);
    if (conGriglia) {
        preparaGriglia(*m_griglia, titoli, colonneNumeriche, colonneLarghe);
        riempiGriglia(*m_griglia, l.Griglia, colonneNumeriche);
    }
    m_pulsanti.Ins->setEnabled(!l.SoloLettura());
    m_pulsanti.Command15->setEnabled(!l.SoloLettura());
}

} // namespace tomvera::prezzi
