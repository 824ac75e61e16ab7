#include "pricelists/ui/listinocamerewidget.h"

#include "foundation/sessione.h"
#include "pricelists/schermolistinocamere.h"
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
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera::prezzi {

namespace {

// Prezzo, Iva and Giorni read as numbers in the grid (column 0 is the hidden Indice).
const QList<int> colonneNumeriche { 5, 6, 7 };
const QList<int> colonneLarghe { 1, 2 };

QComboBox* sceltaModificabile(const QString& nome, QWidget* genitore)
{
    auto* scelta = new QComboBox(genitore);
    scelta->setObjectName(nome);
    scelta->setEditable(true);
    scelta->setInsertPolicy(QComboBox::NoInsert);
    scelta->setMinimumWidth(200);
    return scelta;
}

QLineEdit* campo(const QString& nome, int larghezza, QWidget* genitore)
{
    auto* c = new QLineEdit(genitore);
    c->setObjectName(nome);
    c->setMaximumWidth(larghezza);
    return c;
}

QPushButton* pulsante(const QString& nome, const QString& testo, QWidget* genitore)
{
    auto* p = new QPushButton(testo, genitore);
    p->setObjectName(nome);
    p->setAutoDefault(false);
    p->setMinimumHeight(30);
    return p;
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
    m_listino = sceltaModificabile(QStringLiteral("Listino"), dati);
    m_codice = sceltaModificabile(QStringLiteral("CodiceTipologia"), dati);
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
    m_ins = pulsante(QStringLiteral("Ins"), QStringLiteral("INSERISCI"), dati);
    m_ins->setStyleSheet(QStringLiteral("font-weight: bold;"));
    auto* nuovo = pulsante(QStringLiteral("Nuovo"), QStringLiteral("NUOVO"), dati);
    m_cancella = pulsante(QStringLiteral("Command15"), QStringLiteral("Cancella"), dati);
    auto* comandi = new QVBoxLayout;
    comandi->addWidget(m_ins);
    comandi->addWidget(nuovo);
    comandi->addWidget(m_cancella);
    comandi->addStretch();
    griglia->addLayout(comandi, 0, 4, 5, 1);
    griglia->setColumnStretch(1, 1);

    // Search.
    auto* ricerca = new QGroupBox(QStringLiteral("RICERCA"), this);
    m_listinoRic = sceltaModificabile(QStringLiteral("ListinoRic"), ricerca);
    m_codiceRic = sceltaModificabile(QStringLiteral("CodiceTipologiaRic"), ricerca);
    m_etichettaCodiceRic = new QLabel(ricerca);
    auto* cerca = pulsante(QStringLiteral("Cerca"), QStringLiteral("CERCA"), ricerca);
    auto* cl = pulsante(QStringLiteral("CL"), QStringLiteral("CANCELLA SELEZIONE"), ricerca);
    auto* grigliaRicerca = new QGridLayout(ricerca);
    grigliaRicerca->addWidget(new QLabel(QStringLiteral("Listino"), ricerca), 0, 0);
    grigliaRicerca->addWidget(m_listinoRic, 0, 1);
    grigliaRicerca->addWidget(m_etichettaCodiceRic, 1, 0);
    grigliaRicerca->addWidget(m_codiceRic, 1, 1);
    grigliaRicerca->addWidget(cerca, 2, 0);
    grigliaRicerca->addWidget(cl, 2, 1);
    grigliaRicerca->setRowStretch(3, 1);

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
    colonna->addWidget(modo);
    colonna->addLayout(rigaCentrale);
    colonna->addWidget(m_griglia, 1);
    colonna->addLayout(piede);

    m_stampa = [this](const reports::ModelloStampa& modello) {
        Sessione& s = m_logica->sessione();
        reports::mostraAnteprimaStampa(modello, s.interazione,
                                       reports::stampantiDelleImpostazioni(s.PercorsoDB, s.errori), this);
    };

    connect(m_prezzoACamera, &QRadioButton::clicked, this, [this] {
        m_logica->PrezzoACamera_Click();
        dallaLogica();
    });
    connect(m_prezzoAPersona, &QRadioButton::clicked, this, [this] {
        m_logica->PrezzoAPersona_Click();
        dallaLogica();
    });
    connect(m_ins, &QPushButton::clicked, this, [this] {
        versoLogica();
        m_logica->Ins_Click();
        dopoComando();
    });
    connect(nuovo, &QPushButton::clicked, this, [this] {
        m_logica->Nuovo_Click();
        dallaLogica();
        m_listino->setFocus();
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
    m_ins->setEnabled(!l.SoloLettura());
    m_cancella->setEnabled(!l.SoloLettura());
}

void ListinoCamereWidget::dopoComando()
{
    dallaLogica();
    mettiFocus(*this, m_logica->Focus);
}

} // namespace tomvera::prezzi
