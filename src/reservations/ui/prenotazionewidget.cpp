#include "reservations/ui/prenotazionewidget.h"

#include "foundation/formati.h"
#include "foundation/schema/tabelle.h"
#include "foundation/sessione.h"
#include "reports/stampagenerica.h"
#include "reports/ui/anteprimastampa.h"
#include "reservations/schedaprenotazione.h"
#include "reservations/ui/aiuti.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

namespace {

QLineEdit* campo(const QString& nome, QWidget* genitore, int larghezza = 0)
{
    auto* c = new QLineEdit(genitore);
    c->setObjectName(nome);
    if (larghezza > 0)
        c->setMaximumWidth(larghezza);
    return c;
}

QPushButton* bottone(const QString& nome, const QString& testo, QWidget* genitore)
{
    auto* b = new QPushButton(testo, genitore);
    b->setObjectName(nome);
    return b;
}

using aiuti::cella;
using aiuti::riempi;

QString testoIva(double iva)
{
    return formattaNumero(iva, iva == static_cast<qint64>(iva) ? 0 : 2, false);
}

// An input bound to a stored text takes the field's size: an overlong text can be neither typed nor pasted.
void limita(QLineEdit* campo, const schema::Tabella& tabella, const char* nomeCampo)
{
    if (const int dimensione = schema::dimensioneDichiarata(tabella, QLatin1String(nomeCampo)); dimensione > 0)
        campo->setMaxLength(dimensione);
}

} // namespace

PrenotazioneWidget::PrenotazioneWidget(std::unique_ptr<SchedaPrenotazione> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_Prenotazione"));
    setWindowTitle(QStringLiteral("Scheda di Prenotazione"));
    auto* principale = new QVBoxLayout(this);

    auto* testa = new QGroupBox(this);
    auto* gt = new QGridLayout(testa);
    m_numero = campo(QStringLiteral("NumeroPrenotazione"), testa, 90);
    m_data = campo(QStringLiteral("DataPrenotazione"), testa, 110);
    m_stato = new aiuti::SceltaPigra(
        QStringLiteral("Stato"), [this] { return m_logica->CaricaStato(); }, testa);
    m_stato->setEditable(true);
    m_stato->setMinimumWidth(140);
    m_saldato = new QCheckBox(QStringLiteral("Saldato"), testa);
    m_saldato->setObjectName(QStringLiteral("Saldato"));
    m_chiusa = new QCheckBox(QStringLiteral("Prenotazione Chiusa"), testa);
    m_chiusa->setObjectName(QStringLiteral("PrenotazioneChiusa"));
    m_aCamera = new QRadioButton(QStringLiteral("Prezzi a Camera"), testa);
    m_aCamera->setObjectName(QStringLiteral("PrezziACamera"));
    m_aPersona = new QRadioButton(QStringLiteral("Prezzi a Persona"), testa);
    m_aPersona->setObjectName(QStringLiteral("PrezziAPersona"));
    m_listinoCamere = new aiuti::SceltaPigra(
        QStringLiteral("ListinoCamere"), [this] { return m_logica->sceltaListiniCamere(); }, testa);
    m_listinoCamere->setMinimumWidth(140);
    m_listinoTrattamenti = new aiuti::SceltaPigra(
        QStringLiteral("ListinoTrattamenti"), [this] { return m_logica->sceltaListiniTrattamenti(); }, testa);
    m_listinoTrattamenti->setMinimumWidth(140);
    m_codiceAzienda = campo(QStringLiteral("CodiceAzienda"), testa, 120);
    m_tourOperator = new aiuti::SceltaPigra(
        QStringLiteral("TourOperator"), [this] { return m_logica->sceltaTourOperator(); }, testa);
    m_tourOperator->setEditable(true);
    m_tourOperator->setMinimumWidth(220);
    m_codiceTourOperator = campo(QStringLiteral("CodiceTourOperator"), testa, 120);
    // The document made from the reservation, written by the documents: shown, not typed.
    m_riferimento = new QLabel(testa);
    m_riferimento->setObjectName(QStringLiteral("RiferimentoDocumento"));
    gt->addWidget(new QLabel(QStringLiteral("N° Prenotazione"), testa), 0, 0);
    gt->addWidget(m_numero, 0, 1);
    gt->addWidget(new QLabel(QStringLiteral("Data"), testa), 0, 2);
    gt->addWidget(m_data, 0, 3);
    gt->addWidget(new QLabel(QStringLiteral("Stato"), testa), 0, 4);
    gt->addWidget(m_stato, 0, 5);
    gt->addWidget(m_saldato, 0, 6);
    gt->addWidget(m_chiusa, 0, 7);
    gt->addWidget(m_aCamera, 1, 0, 1, 2);
    gt->addWidget(m_listinoCamere, 1, 2, 1, 2);
    gt->addWidget(m_aPersona, 1, 4);
    gt->addWidget(m_listinoTrattamenti, 1, 5);
    gt->addWidget(m_codiceAzienda, 1, 6);
    gt->addWidget(new QLabel(QStringLiteral("Tour Operator"), testa), 2, 0);
    gt->addWidget(m_tourOperator, 2, 1, 1, 3);
    gt->addWidget(new QLabel(QStringLiteral("Cod. T.O."), testa), 2, 4);
    gt->addWidget(m_codiceTourOperator, 2, 5);
    gt->addWidget(m_riferimento, 2, 6, 1, 2);
    gt->setColumnStretch(8, 1);
    principale->addWidget(testa);

    m_schede = new QTabWidget(this);
    m_schede->setObjectName(QStringLiteral("Schede"));
    m_schede->addTab(creaSchedaCamere(), QStringLiteral("DATI PRENOTAZIONE"));
    m_schede->addTab(creaSchedaClienti(), QStringLiteral("DATI CLIENTI"));
    m_schede->addTab(creaSchedaAccessori(), QStringLiteral("ACCESSORI E TOTALI"));
    principale->addWidget(m_schede, 1);

    auto* piede = new QHBoxLayout;
    auto* indietro = bottone(QStringLiteral("Indietro"), QStringLiteral("<"), this);
    auto* avanti = bottone(QStringLiteral("Avanti"), QStringLiteral(">"), this);
    m_registra = bottone(QStringLiteral("Registra"), QStringLiteral("Registra"), this);
    m_cancella = bottone(QStringLiteral("Cancella"), QStringLiteral("Elimina"), this);
    m_acconti = bottone(QStringLiteral("Command6"), QStringLiteral("Acconti »"), this);
    m_documento = bottone(QStringLiteral("Command2"), QStringLiteral("Crea Fattura / Ricevuta"), this);
    m_documento->setEnabled(false); // the documents subsystem is not wired yet
    m_planning = bottone(QStringLiteral("Command11"), QStringLiteral("Planning"), this);
    auto* fine = bottone(QStringLiteral("Fine"), QStringLiteral("Esci"), this);
    m_anteprima = bottone(QStringLiteral("Anteprima"), QStringLiteral("Stampa"), this);
    m_stampaNote = new QCheckBox(QStringLiteral("Stampa Note"), this);
    m_stampaNote->setObjectName(QStringLiteral("StampaNote"));
    m_totaleAcconto = new QLabel(this);
    m_totaleAcconto->setObjectName(QStringLiteral("TotaleAcconto"));
    m_totale = new QLabel(this);
    m_totale->setObjectName(QStringLiteral("Totale"));
    m_totale->setStyleSheet(QStringLiteral("font-weight: bold"));
    m_totale->setMinimumWidth(220);
    m_totaleAcconto->setMinimumWidth(160);
    for (QWidget* w : { static_cast<QWidget*>(indietro), static_cast<QWidget*>(avanti) })
        piede->addWidget(w);
    piede->addWidget(m_totaleAcconto);
    piede->addWidget(m_totale);
    piede->addStretch(1);
    piede->addWidget(m_stampaNote);
    for (QPushButton* b : { m_anteprima, m_registra, m_cancella, m_acconti, m_documento, m_planning, fine })
        piede->addWidget(b);
    principale->addLayout(piede);

    m_stampa = [this](const reports::ModelloStampa& modello) {
        Sessione& s = m_logica->sessione();
        reports::mostraAnteprimaStampa(modello, s.interazione,
                                       reports::stampantiDelleImpostazioni(s.PercorsoDB, s.errori), this);
    };
    connect(m_anteprima, &QPushButton::clicked, this, [this] {
        leggi();
        const auto modello = m_logica->Anteprima_Click();
        aggiorna();
        if (modello && m_stampa)
            m_stampa(*modello);
    });
    connect(m_stampaNote, &QCheckBox::clicked, this, [this](bool s) { m_logica->StampaNote_Click(s); });

    connect(m_registra, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Registra_Click(); }); });
    connect(m_cancella, &QPushButton::clicked, this, [this] {
        leggi();
        if (m_logica->Cancella_Click())
            QDialog::accept();
        else
            aggiorna();
    });
    connect(avanti, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Avanti_Click(); }); });
    connect(indietro, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Indietro_Click(); }); });
    connect(fine, &QPushButton::clicked, this, &PrenotazioneWidget::reject);
    connect(m_planning, &QPushButton::clicked, this, [this] {
        // Back to the board only once the screen has really closed (the question may keep it open).
        reject();
        if (!isVisible())
            emit tornaAlPlanning();
    });
    connect(m_acconti, &QPushButton::clicked, this, [this] {
        leggi();
        if (m_logica->Command6_Click())
            emit apriAcconti(m_logica->Indice);
        m_logica->Form_Activate();
        aggiorna();
    });
    connect(m_saldato, &QCheckBox::clicked, this,
            [this](bool s) { comando([this, s] { m_logica->Saldato_Click(s); }); });
    connect(m_chiusa, &QCheckBox::clicked, this,
            [this](bool s) { comando([this, s] { m_logica->PrenotazioneChiusa_Click(s); }); });
    connect(m_aCamera, &QRadioButton::clicked, this, [this] { comando([this] { m_logica->PrezziACamera_Click(); }); });
    connect(m_aPersona, &QRadioButton::clicked, this,
            [this] { comando([this] { m_logica->PrezziAPersona_Click(); }); });
    connect(m_listinoCamere, &QComboBox::textActivated, this,
            [this](const QString& l) { comando([this, l] { m_logica->ListinoCamere_Click(l); }); });
    connect(m_listinoTrattamenti, &QComboBox::textActivated, this,
            [this](const QString& l) { comando([this, l] { m_logica->ListinoTrattamenti_Click(l); }); });
    for (QLineEdit* e : { m_numero, m_data })
        connect(e, &QLineEdit::textEdited, this, [this] { m_logica->segnaModificato(); });
    connect(m_data, &QLineEdit::editingFinished, this, [this] { controllaData(m_data); });
    connect(m_numero, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_numero, QStringLiteral("N° Prenotazione")); });
    const schema::Tabella prenotazioni = schema::TabellaPrenotazioni();
    limita(m_stato->lineEdit(), prenotazioni, "Stato");
    limita(m_codiceAzienda, prenotazioni, "CodiceAzienda");
    limita(m_tourOperator->lineEdit(), prenotazioni, "TourOperator");
    limita(m_codiceTourOperator, prenotazioni, "CodiceTourOperator");
    connect(m_tourOperator, &QComboBox::textActivated, this,
            [this](const QString& t) { comando([this, t] { m_logica->TourOperator_Click(t); }); });
    connect(m_tourOperator, &QComboBox::editTextChanged, this, [this] {
        if (!m_aggiornando)
            m_logica->segnaModificato();
    });
    connect(m_codiceTourOperator, &QLineEdit::textEdited, this, [this] { m_logica->segnaModificato(); });
    connect(m_stato, &QComboBox::editTextChanged, this, [this] {
        if (!m_aggiornando)
            m_logica->segnaModificato();
    });

    m_codiceAzienda->setVisible(m_logica->multiAzienda());
    // Enter must never press a button it was not aimed at (the first one would be Registra or Elimina).
    for (QPushButton* b : findChildren<QPushButton*>()) {
        b->setAutoDefault(false);
        b->setDefault(false);
    }
    resize(1180, 720);
    aggiorna();
    applicaPermessi();
}

PrenotazioneWidget::~PrenotazioneWidget()
{
    // The lists go after the logic: they must not reach the filter once it is gone.
    for (QWidget* w : { static_cast<QWidget*>(m_camere), static_cast<QWidget*>(m_righeArt) })
        w->removeEventFilter(this);
    scollegaClienti();
    // Nor may a field that loses its focus while the screen is torn down reach the logic.
    for (QWidget* w : findChildren<QWidget*>())
        w->disconnect(this);
}

QWidget* PrenotazioneWidget::creaSchedaCamere()
{
    auto* scheda = new QWidget(this);
    auto* v = new QVBoxLayout(scheda);
    auto* riga = new QHBoxLayout;
    m_nc = campo(QStringLiteral("NC"), scheda, 80);
    m_codiceTipologia = new aiuti::SceltaPigra(
        QStringLiteral("CodiceTipologia"), [this] { return m_logica->sceltaTipologie(); }, scheda);
    m_codiceTipologia->setEditable(true);
    m_arrivo = campo(QStringLiteral("Arrivo"), scheda, 100);
    m_partenza = campo(QStringLiteral("Partenza"), scheda, 100);
    m_prezzoCamera = campo(QStringLiteral("PrezzoCamera"), scheda, 100);
    m_ivaCamera = campo(QStringLiteral("IvaCamera"), scheda, 50);
    auto* inserisci = bottone(QStringLiteral("Command7"), QStringLiteral(">>  INSERISCI"), scheda);
    auto* aggiungi
        = bottone(QStringLiteral("AggiungiCamera"), QStringLiteral("SELEZIONA LA CAMERA DA AGGIUNGERE"), scheda);
    const schema::Tabella movimenti = schema::TabellaMovimenti();
    limita(m_nc, movimenti, "NroCamera");
    limita(m_codiceTipologia->lineEdit(), movimenti, "CodiceTipologiaCamera");
    m_etichettaPrezzo = new QLabel(QStringLiteral("Prezzo"), scheda);
    m_etichettaPrezzo->setObjectName(QStringLiteral("EtichettaPrezzoCamera"));
    m_etichettaIvaCamera = new QLabel(m_logica->EtichettaImposta(), scheda);
    const QList<std::pair<QLabel*, QWidget*>> voci
        = { { new QLabel(QStringLiteral("N°C."), scheda), m_nc },
            { new QLabel(QStringLiteral("Cod. Tipologia"), scheda), m_codiceTipologia },
            { new QLabel(QStringLiteral("Data Arr."), scheda), m_arrivo },
            { new QLabel(QStringLiteral("Data Part."), scheda), m_partenza },
            { m_etichettaPrezzo, m_prezzoCamera },
            { m_etichettaIvaCamera, m_ivaCamera } };
    for (const auto& [etichetta, w] : voci) {
        riga->addWidget(etichetta);
        riga->addWidget(w);
        w->installEventFilter(this);
    }
    m_codiceTipologia->lineEdit()->installEventFilter(this);
    riga->addWidget(inserisci);
    riga->addStretch(1);
    v->addLayout(riga);

    auto* prezzi = new QHBoxLayout;
    m_aggiornaPrezzi = bottone(QStringLiteral("AggiornaPrezzi"), QStringLiteral("Aggiorna Prezzi  >>"), scheda);
    m_aggiornaPrezzi->setToolTip(QStringLiteral("AGGIORNA PREZZI DA LISTINO"));
    m_label10 = new QLabel(scheda);
    m_label10->setObjectName(QStringLiteral("Label10"));
    m_label10->setStyleSheet(QStringLiteral("color: #c00000; font-weight: bold"));
    prezzi->addWidget(m_aggiornaPrezzi);
    prezzi->addWidget(aggiungi);
    prezzi->addWidget(m_label10, 1);
    v->addLayout(prezzi);

    m_camere = new QTableWidget(0, 7, scheda);
    m_camere->setObjectName(QStringLiteral("GrigliaCamerePrenotate"));
    m_camere->setHorizontalHeaderLabels({ QStringLiteral("IndiceRiga"), QStringLiteral("N°C."),
                                          QStringLiteral("Cod. Tipologia"), QStringLiteral("Data Arr."),
                                          QStringLiteral("Data Part."), QStringLiteral("Prezzo"),
                                          m_logica->EtichettaImposta() });
    m_camere->setColumnHidden(0, true);
    m_camere->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_camere->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_camere->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_camere->horizontalHeader()->setMinimumSectionSize(90);
    m_camere->verticalHeader()->setVisible(false);
    m_camere->installEventFilter(this);
    v->addWidget(m_camere, 1);

    v->addWidget(new QLabel(QStringLiteral("Note Prenotazione"), scheda));
    m_note = new QPlainTextEdit(scheda);
    m_note->setObjectName(QStringLiteral("NotePrenotazione"));
    m_note->setMaximumHeight(80);
    v->addWidget(m_note);

    connect(inserisci, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Command7_Click(); }); });
    connect(m_aggiornaPrezzi, &QPushButton::clicked, this,
            [this] { comando([this] { m_logica->AggiornaPrezzi_Click(); }); });
    connect(aggiungi, &QPushButton::clicked, this, [this] {
        leggi();
        emit aggiungiCamera();
    });
    connect(m_camere, &QTableWidget::cellDoubleClicked, this,
            [this](int r, int) { comando([this, r] { m_logica->GrigliaCamerePrenotate_DblClick(r); }); });
    connect(m_nc, &QLineEdit::editingFinished, this, [this] { comando([this] { m_logica->NC_LostFocus(); }); });
    for (QLineEdit* e : { m_arrivo, m_partenza }) {
        connect(e, &QLineEdit::editingFinished, this, [this, e] {
            controllaData(e);
            comando([this] { m_logica->TrovaPrezzoCamera(); });
        });
    }
    connect(m_codiceTipologia, &QComboBox::textActivated, this,
            [this](const QString& t) { comando([this, t] { m_logica->CodiceTipologia_Click(t); }); });
    connect(m_codiceTipologia->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        const QString t = m_codiceTipologia->currentText();
        comando([this, t] { m_logica->CodiceTipologia_Click(t); });
    });
    connect(m_prezzoCamera, &QLineEdit::textEdited, this, [this] { m_logica->PrezzoCamera_Change(); });
    connect(m_prezzoCamera, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_prezzoCamera, QStringLiteral("Prezzo")); });
    connect(m_ivaCamera, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_ivaCamera, m_logica->EtichettaImpostaLunga()); });
    return scheda;
}

bool PrenotazioneWidget::escapeInRiga(QObject* oggetto)
{
    const auto dentro = [oggetto](std::initializer_list<QWidget*> campi) {
        for (QWidget* c : campi) {
            if (oggetto == c || (c && c->isAncestorOf(qobject_cast<QWidget*>(oggetto))))
                return true;
        }
        return false;
    };
    const auto pieno = [](std::initializer_list<QString> testi) {
        for (const QString& t : testi) {
            if (!t.trimmed().isEmpty())
                return true;
        }
        return false;
    };
    if (dentro({ m_nc, m_codiceTipologia, m_arrivo, m_partenza, m_prezzoCamera, m_ivaCamera })) {
        if (!pieno({ m_nc->text(), m_codiceTipologia->currentText(), m_arrivo->text(), m_partenza->text(),
                     m_prezzoCamera->text(), m_ivaCamera->text() }))
            return false;
        comando([this] { m_logica->GrigliaCamerePrenotate_Escape(); });
        return true;
    }
    if (dentro({ m_tipoArt, m_descrizioneArt, m_qta, m_prezzoUnitario, m_prezzoArt, m_ivaArt })) {
        if (!pieno({ m_tipoArt->currentText(), m_descrizioneArt->currentText(), m_qta->text(), m_prezzoUnitario->text(),
                     m_prezzoArt->text(), m_ivaArt->text() }))
            return false;
        comando([this] { m_logica->RigheArt_Escape(); });
        return true;
    }
    return false;
}

void PrenotazioneWidget::controllaData(QLineEdit* campo)
{
    // The message box takes the focus: the field must not check itself again meanwhile.
    if (m_aggiornando || campo->property("controllato").toString() == campo->text())
        return;
    QString testo = campo->text();
    m_logica->Data_LostFocus(testo);
    campo->setText(testo);
    campo->setProperty("controllato", testo);
}

void PrenotazioneWidget::controllaNumero(QLineEdit* campo, const QString& nome)
{
    if (m_aggiornando || campo->property("controllato").toString() == campo->text())
        return;
    campo->setProperty("controllato", campo->text());
    m_logica->ControllaNumero(campo->text(), nome);
}

bool PrenotazioneWidget::eventFilter(QObject* oggetto, QEvent* evento)
{
    if (evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape
        && escapeInRiga(oggetto))
        return true;
    if (evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape) {
        if (oggetto == m_camere) {
            comando([this] { m_logica->GrigliaCamerePrenotate_Escape(); });
            m_camere->clearSelection();
            return true;
        }
        if (oggetto == m_righeArt) {
            comando([this] { m_logica->RigheArt_Escape(); });
            return true;
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

void PrenotazioneWidget::showEvent(QShowEvent* evento)
{
    m_logica->Form_Activate();
    aggiorna();
    QDialog::showEvent(evento);
}

void PrenotazioneWidget::reject()
{
    leggi();
    if (m_logica->Fine_Click())
        QDialog::reject();
    else
        aggiorna();
}

void PrenotazioneWidget::comando(const std::function<void()>& azione)
{
    if (m_aggiornando)
        return;
    leggi();
    azione();
    aggiorna();
}

void PrenotazioneWidget::applicaPermessi()
{
    const AbilitazioniPrenotazione a = m_logica->SettaPermessiUtente();
    m_registra->setEnabled(a.Registra);
    m_cancella->setEnabled(a.Cancella);
    m_acconti->setEnabled(a.Command6);
    applicaPermessiClienti(a);
    m_planning->setEnabled(a.Command11);
}

void PrenotazioneWidget::leggi()
{
    SchedaPrenotazione& l = *m_logica;
    l.NumeroPrenotazione = m_numero->text();
    l.DataPrenotazione = m_data->text();
    l.Stato = m_stato->currentText();
    if (l.NotePrenotazione != m_note->toPlainText())
        l.segnaModificato();
    l.NotePrenotazione = m_note->toPlainText();
    l.CodiceAzienda = m_codiceAzienda->text();
    l.TourOperator = m_tourOperator->currentText();
    l.CodiceTourOperator = m_codiceTourOperator->text();
    l.NC = m_nc->text();
    l.CodiceTipologia = m_codiceTipologia->currentText();
    l.Arrivo = m_arrivo->text();
    l.Partenza = m_partenza->text();
    l.PrezzoCamera = m_prezzoCamera->text();
    l.IvaCamera = m_ivaCamera->text();
    leggiClienti();
    leggiAccessori();
}

void PrenotazioneWidget::aggiorna()
{
    m_aggiornando = true;
    aggiornaIntestazione();
    aggiornaCamere();
    aggiornaClienti();
    aggiornaAccessori();
    m_aggiornando = false;
}

void PrenotazioneWidget::aggiornaIntestazione()
{
    SchedaPrenotazione& l = *m_logica;
    m_numero->setText(l.NumeroPrenotazione);
    m_data->setText(l.DataPrenotazione);
    m_stato->imposta(l.Stato);
    m_saldato->setChecked(l.Saldato);
    m_saldato->setStyleSheet(l.Saldato ? QStringLiteral("background: #b6e3b6") : QString());
    m_chiusa->setChecked(l.PrenotazioneChiusa);
    m_aCamera->setChecked(l.PrezziACamera);
    m_aPersona->setChecked(l.PrezziAPersona);
    m_listinoCamere->imposta(l.ListinoCamere);
    m_listinoTrattamenti->imposta(l.ListinoTrattamenti);
    m_listinoCamere->setVisible(l.PrezziACamera);
    m_listinoTrattamenti->setVisible(l.PrezziAPersona);
    m_aggiornaPrezzi->setEnabled(l.PrezziACamera);
    m_prezzoCamera->setVisible(l.PrezziACamera);
    m_etichettaPrezzo->setVisible(l.PrezziACamera);
    m_stampaNote->setChecked(l.StampaNote);
    m_note->setPlainText(l.NotePrenotazione);
    m_codiceAzienda->setText(l.CodiceAzienda);
    m_tourOperator->imposta(l.TourOperator);
    m_codiceTourOperator->setText(l.CodiceTourOperator);
    const bool documento = !l.RiferimentoDoc.isEmpty() || !l.RiferimentoNumero.isEmpty();
    m_riferimento->setText(
        documento ? l.RiferimentoDoc + QStringLiteral(" N° ") + l.RiferimentoNumero
                + (l.RiferimentoData.isEmpty() ? QString() : QStringLiteral(" del ") + l.RiferimentoData)
                  : QString());
    m_riferimento->setVisible(documento);
    m_totaleAcconto->setText(QStringLiteral("Acconti: ") + l.TotaleAcconto);
    m_totale->setText(QStringLiteral("Totale: ") + l.Totale);
    m_acconti->setEnabled(m_logica->SettaPermessiUtente().Command6 && l.Indice > 0);
    setWindowTitle(QStringLiteral("Scheda di Prenotazione")
                   + (l.Indice > 0 ? QStringLiteral(" N° ") + l.NumeroPrenotazione : QString()));
}

void PrenotazioneWidget::aggiornaCamere()
{
    SchedaPrenotazione& l = *m_logica;
    m_nc->setText(l.NC);
    m_codiceTipologia->imposta(l.CodiceTipologia);
    m_arrivo->setText(l.Arrivo);
    m_partenza->setText(l.Partenza);
    m_prezzoCamera->setText(l.PrezzoCamera);
    m_ivaCamera->setText(l.IvaCamera);
    m_label10->setText(l.Label10);
    m_label10->setVisible(!l.Label10.isEmpty());
    m_camere->setRowCount(l.GrigliaCamerePrenotate.size());
    for (int r = 0; r < l.GrigliaCamerePrenotate.size(); ++r) {
        const RigaCamera& c = l.GrigliaCamerePrenotate.at(r);
        m_camere->setItem(r, 0, cella(QString::number(c.IndiceRiga)));
        m_camere->setItem(r, 1, cella(c.NroCamera));
        m_camere->setItem(r, 2, cella(c.CodiceTipologiaCamera));
        m_camere->setItem(r, 3, cella(testoData(c.Dal)));
        m_camere->setItem(r, 4, cella(testoData(c.Al)));
        m_camere->setItem(r, 5, cella(l.PrezziAPersona ? QString() : formattaNumero(c.Avere, 2), true));
        m_camere->setItem(r, 6, cella(testoIva(c.Iva), true));
    }
    // Per-room and per-person stays read differently at a glance.
    m_camere->horizontalHeader()->setStyleSheet(l.PrezziAPersona
                                                    ? QStringLiteral("QHeaderView::section { background: #fde9c8 }")
                                                    : QStringLiteral("QHeaderView::section { background: #dbe8f7 }"));
}

} // namespace tomvera
