// The tab "DATI CLIENTI" of F_Prenotazione.
#include "reservations/ui/prenotazioneclientiwidget.h"

#include "foundation/formati.h"
#include "foundation/schema/tabelle.h"
#include "guests/limiticampi.h"
#include "guests/ui/opzioni.h"
#include "guests/ui/proposte.h"
#include "pricelists/calcoloprezzi.h"
#include "reservations/regoleospiti.h"
#include "reservations/schedaprenotazione.h"
#include "reservations/ui/aiuti.h"
#include "reservations/ui/prenotazionewidget.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace tomvera {

namespace {

using aiuti::riempi;

// Visible columns of the guest list: field and title.
const QList<std::pair<const char*, const char*>>& colonneClienti()
{
    static const QList<std::pair<const char*, const char*>> colonne = {
        { "DataArrivo", "Data Arrivo" },
        { "DataPartenza", "Data Partenza" },
        { "NroArrivo", "Nro Arr." },
        { "RagSociale", "Ragione Sociale" },
        { "Nome", "Nome" },
        { "Cognome", "Cognome" },
        { "Cellulare", "Cellulare" },
        { "Telefono", "Telefono" },
        { "NroCameraCliente", "N° Cam." },
        { "ClienteIntestatario", "X" },
        { "TipoTrattamento", "Trattamento" },
        { "PrezzoTrattamento", "Prezzo Trattamento" },
        { "TotalePrezzoTrattamento", "Totale Prezzo Trattamento" },
        { "TipoDiAlloggiato", "Tipo Alloggiato" },
    };
    return colonne;
}

const QStringList& campiData()
{
    static const QStringList campi = { QStringLiteral("DataNascita"), QStringLiteral("DataDocumento"),
                                       QStringLiteral("DataArrivo"), QStringLiteral("DataPartenza") };
    return campi;
}

QComboBox* scelta(const QString& nome, QWidget* genitore, bool modificabile = false)
{
    auto* c = new QComboBox(genitore);
    c->setObjectName(nome);
    c->setEditable(modificabile);
    // Long words (the ISTAT countries) must not widen the line past the screen.
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    c->setMinimumContentsLength(8);
    return c;
}

QFormLayout* modulo(QGroupBox* box)
{
    auto* f = new QFormLayout(box);
    f->setContentsMargins(6, 4, 6, 4);
    f->setVerticalSpacing(3);
    f->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return f;
}

QString testoCella(const OspitePrenotazione& o, const QString& campo)
{
    const QVariant v = o.valore(campo);
    if (campo.startsWith(QLatin1String("Data"))) {
        const QDate d = o.data(campo);
        return d.isValid() ? testoData(d) : QString();
    }
    if (campo.contains(QLatin1String("Prezzo")))
        return formattaNumero(v.toDouble(), 2);
    if (campo == QLatin1String("NroArrivo"))
        return v.toInt() == 0 ? QString() : QString::number(v.toInt());
    if (campo == QLatin1String("ClienteIntestatario"))
        return v.toInt() == 1 ? QStringLiteral("X") : QString();
    return v.toString();
}

bool spuntato(const OspitePrenotazione& o, const char* campo)
{
    const QVariant v = o.valore(QLatin1String(campo));
    if (v.userType() == QMetaType::Bool)
        return v.toBool();
    const QString t = v.toString().trimmed().toLower();
    return t == QLatin1String("1") || t == QLatin1String("-1") || t == QLatin1String("true");
}

// The size a text of the line may have: the stay row and the guest card both take it.
int dimensione(const QString& campo)
{
    static const schema::Tabella righe = schema::TabellaAnagraficheAssociatePrenotazioni();
    const int riga = schema::dimensioneDichiarata(righe, campo);
    const int scheda = dimensioneCampoAnagrafica(campo);
    if (riga > 0 && scheda > 0)
        return qMin(riga, scheda);
    return qMax(riga, scheda);
}

} // namespace

// The screen builds the panel and forwards to it.
QWidget* PrenotazioneWidget::creaSchedaClienti()
{
    m_pannelloClienti = new PrenotazioneClientiWidget(
        *m_logica, [this](const std::function<void()>& azione) { comando(azione); }, this);
    connect(m_pannelloClienti, &PrenotazioneClientiWidget::apriSchedaCliente, this,
            &PrenotazioneWidget::apriSchedaCliente);
    return m_pannelloClienti;
}

void PrenotazioneWidget::leggiClienti()
{
    m_pannelloClienti->leggi();
}

void PrenotazioneWidget::aggiornaClienti()
{
    m_pannelloClienti->aggiorna();
}

void PrenotazioneWidget::applicaPermessiClienti(const AbilitazioniPrenotazione& abilitazioni)
{
    m_pannelloClienti->applicaPermessi(abilitazioni);
}

void PrenotazioneWidget::scollegaClienti()
{
    m_pannelloClienti->scollega();
}

PrenotazioneClientiWidget::PrenotazioneClientiWidget(SchedaPrenotazione& logica, Comando comando, QWidget* genitore)
    : QWidget(genitore)
    , m_logica(logica)
    , m_comando(std::move(comando))
{
    setObjectName(QStringLiteral("DatiClienti"));
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(4, 4, 4, 4);
    v->setSpacing(4);
    auto* riquadri = new QHBoxLayout;
    riquadri->setSpacing(6);

    // Created in the order Tab walks them: name, birth, residence, document, then the stay.
    auto* cliente = new QGroupBox(QStringLiteral("Cliente"), this);
    auto* fc = modulo(cliente);
    fc->addRow(QStringLiteral("Cognome"), campo(QStringLiteral("Cognome"), cliente));
    fc->addRow(QStringLiteral("Nome"), campo(QStringLiteral("Nome"), cliente));
    m_maschio = opzione("Maschio", QStringLiteral("Maschio"), cliente);
    m_femmina = opzione("Femmina", QStringLiteral("Femmina"), cliente);
    fc->addRow(QStringLiteral("Sesso"), coppia(m_maschio, m_femmina, cliente));
    fc->addRow(QStringLiteral("Rag. Sociale"), campo(QStringLiteral("RagSociale"), cliente));
    fc->addRow(QStringLiteral("Cod. Fiscale"), campo(QStringLiteral("CodiceFiscale"), cliente));
    fc->addRow(QStringLiteral("Partita Iva"), campo(QStringLiteral("Piva"), cliente));
    fc->addRow(QStringLiteral("Cellulare"), campo(QStringLiteral("Cellulare"), cliente));
    fc->addRow(QStringLiteral("Telefono"), campo(QStringLiteral("Telefono"), cliente));
    fc->addRow(QStringLiteral("Fax"), campo(QStringLiteral("Fax"), cliente));
    riquadri->addWidget(cliente, 4);

    auto* colonnaNascita = new QVBoxLayout;
    auto* nascita = new QGroupBox(QStringLiteral("Nascita"), this);
    auto* fn = modulo(nascita);
    fn->addRow(QStringLiteral("Data"), campo(QStringLiteral("DataNascita"), nascita));
    m_nascItalia = opzione("NascitaItalia", QStringLiteral("Italia"), nascita);
    m_nascEstero = opzione("NascitaEstero", QStringLiteral("Estero"), nascita);
    fn->addRow(QStringLiteral("Nato in"), coppia(m_nascItalia, m_nascEstero, nascita));
    fn->addRow(QStringLiteral("Stato"), campo(QStringLiteral("StatoDiNascita"), nascita));
    fn->addRow(QStringLiteral("Luogo"), campo(QStringLiteral("LuogoNascita"), nascita));
    fn->addRow(QStringLiteral("Provincia"), campo(QStringLiteral("ProvinciaDiNascita"), nascita));
    fn->addRow(QStringLiteral("Cittadinanza"), campo(QStringLiteral("Cittadinanza"), nascita));
    colonnaNascita->addWidget(nascita);
    auto* contatti = new QGroupBox(QStringLiteral("Contatti"), this);
    auto* fk = modulo(contatti);
    fk->addRow(QStringLiteral("Email"), campo(QStringLiteral("Email"), contatti));
    fk->addRow(QStringLiteral("Web"), campo(QStringLiteral("Web"), contatti));
    colonnaNascita->addWidget(contatti);
    riquadri->addLayout(colonnaNascita, 4);

    auto* residenza = new QGroupBox(QStringLiteral("Residenza"), this);
    auto* fr = modulo(residenza);
    m_resItaliana = opzione("ResidenzaItaliana", QStringLiteral("Italiana"), residenza);
    m_resEstera = opzione("ResidenzaEstera", QStringLiteral("Estera"), residenza);
    fr->addRow(QStringLiteral("Residenza"), coppia(m_resItaliana, m_resEstera, residenza));
    fr->addRow(QStringLiteral("Nazione"), campo(QStringLiteral("Nazione"), residenza));
    fr->addRow(QStringLiteral("Indirizzo"), campo(QStringLiteral("Indirizzo"), residenza));
    auto* rigaCap = new QHBoxLayout;
    rigaCap->addWidget(campo(QStringLiteral("Cap"), residenza), 2);
    rigaCap->addWidget(new QLabel(QStringLiteral("Prov."), residenza));
    rigaCap->addWidget(campo(QStringLiteral("Provincia"), residenza), 1);
    fr->addRow(QStringLiteral("Cap"), rigaCap);
    fr->addRow(QStringLiteral("Città"), campo(QStringLiteral("Comune"), residenza));
    m_cittaVL = new QListWidget(residenza);
    m_cittaVL->setObjectName(QStringLiteral("CittaVL"));
    m_cittaVL->setMaximumHeight(90);
    fr->addRow(QString(), m_cittaVL);
    fr->setRowVisible(m_cittaVL, false);
    m_etichettaIstat = new QLabel(residenza);
    m_etichettaIstat->setObjectName(QStringLiteral("EtichettaIstat"));
    m_residenzaIstat = scelta(QStringLiteral("ResidenzaIstat"), residenza);
    auto* proponi = new QPushButton(QStringLiteral("»"), residenza);
    proponi->setObjectName(QStringLiteral("ProponiIstat"));
    proponi->setToolTip(QStringLiteral("PROPONI PAESE ESTERO O PROVINCIA ITALIANA DI RESIDENZA PER MODULO ISTAT"));
    proponi->setMaximumWidth(28);
    auto* rigaIstat = new QHBoxLayout;
    rigaIstat->addWidget(m_residenzaIstat, 1);
    rigaIstat->addWidget(proponi);
    fr->addRow(m_etichettaIstat, rigaIstat);
    m_ultimiDati = new QPushButton(QStringLiteral("inserisci ultimi dati inseriti »"), residenza);
    m_ultimiDati->setObjectName(QStringLiteral("InserisciUltimiDatiInseriti"));
    fr->addRow(QString(), m_ultimiDati);
    riquadri->addWidget(residenza, 5);

    auto* documento = new QGroupBox(QStringLiteral("Documento"), this);
    auto* fd = modulo(documento);
    fd->addRow(QStringLiteral("Tipo"), campo(QStringLiteral("TipoDocumento"), documento));
    fd->addRow(QStringLiteral("Numero"), campo(QStringLiteral("NroDocumento"), documento));
    fd->addRow(QStringLiteral("Rilascio"), campo(QStringLiteral("DataDocumento"), documento));
    m_docItalia = opzione("DocumentoItalia", QStringLiteral("Italia"), documento);
    m_docEstero = opzione("DocumentoEstero", QStringLiteral("Estero"), documento);
    fd->addRow(QStringLiteral("Rilasciato in"), coppia(m_docItalia, m_docEstero, documento));
    fd->addRow(QStringLiteral("Luogo"), campo(QStringLiteral("LuogoDocumento"), documento));
    m_note = new QPlainTextEdit(documento);
    m_note->setObjectName(QStringLiteral("NoteCliente"));
    m_note->setTabChangesFocus(true);
    m_note->setMaximumHeight(46);
    fd->addRow(QStringLiteral("Note"), m_note);
    riquadri->addWidget(documento, 4);

    auto* soggiorno = new QGroupBox(QStringLiteral("Soggiorno"), this);
    auto* fs = modulo(soggiorno);
    m_tipoAlloggiato = scelta(QStringLiteral("TipoDiAlloggiato"), soggiorno);
    m_tipoAlloggiato->addItems(tipoalloggiato::tutti());
    fs->addRow(QStringLiteral("Alloggiato"), m_tipoAlloggiato);
    m_capoGruppo = scelta(QStringLiteral("CapoGruppoFamiglia"), soggiorno);
    m_etichettaCapo = new QLabel(QStringLiteral("Capo"), soggiorno);
    m_etichettaCapo->setObjectName(QStringLiteral("EtichettaCapo"));
    fs->addRow(m_etichettaCapo, m_capoGruppo);
    m_nroCamera = scelta(QStringLiteral("NroCameraCliente"), soggiorno);
    fs->addRow(QStringLiteral("N° Camera"), m_nroCamera);
    auto* date = new QHBoxLayout;
    date->addWidget(campo(QStringLiteral("DataArrivo"), soggiorno));
    date->addWidget(campo(QStringLiteral("DataPartenza"), soggiorno));
    fs->addRow(QStringLiteral("Arr. / Part."), date);
    m_tipoTrattamento = scelta(QStringLiteral("TipoTrattamento"), soggiorno, true);
    m_tipoTrattamento->lineEdit()->setMaxLength(dimensione(QStringLiteral("TipoTrattamento")));
    fs->addRow(QStringLiteral("Trattamento"), m_tipoTrattamento);
    fs->addRow(QStringLiteral("Prezzo Tratt."), campo(QStringLiteral("PrezzoTrattamento"), soggiorno));
    fs->addRow(QStringLiteral("N° Arrivo"), campo(QStringLiteral("NroArrivo"), soggiorno));
    m_tipoTurismo = scelta(QStringLiteral("TipoTurismo"), soggiorno);
    m_tipoTurismo->addItems(QStringList(QString()) + paroleTipoTurismo());
    fs->addRow(QStringLiteral("Turismo"), m_tipoTurismo);
    m_mezzoTrasporto = scelta(QStringLiteral("MezzoDiTrasporto"), soggiorno);
    m_mezzoTrasporto->addItems(QStringList(QString()) + paroleMezzoDiTrasporto());
    fs->addRow(QStringLiteral("Trasporto"), m_mezzoTrasporto);
    fs->addRow(QStringLiteral("Camere Occ."), campo(QStringLiteral("CamereOccupate"), soggiorno));
    riquadri->addWidget(soggiorno, 6);
    v->addLayout(riquadri);

    // Amounts and numbers refuse what is none.
    m_campi.value(QStringLiteral("PrezzoTrattamento"))
        ->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.]{0,12}(,[0-9]{0,2})?")), this));
    for (const char* numero : { "NroArrivo", "CamereOccupate" })
        m_campi.value(QLatin1String(numero))
            ->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,9}")), this));
    for (const QString& campoData : campiData()) {
        m_campi.value(campoData)->setMaxLength(10);
        m_campi.value(campoData)->setMinimumWidth(
            m_campi.value(campoData)->fontMetrics().horizontalAdvance(QStringLiteral("00/00/00000")) + 8);
        m_campi.value(campoData)->setPlaceholderText(QStringLiteral("GG/MM/AAAA"));
    }

    // Two rows of commands, so the line fits a 1280-pixel screen: the guest's, then the stay's with the boxes.
    auto* comandi = new QHBoxLayout;
    auto* spunte = new QHBoxLayout;
    const auto bottone = [this](QHBoxLayout* riga, const char* nome, const char* testo) {
        auto* b = new QPushButton(QString::fromUtf8(testo), this);
        b->setObjectName(QLatin1String(nome));
        // Enter in a field must not press a button by accident.
        b->setAutoDefault(false);
        riga->addWidget(b);
        return b;
    };
    m_inserisci = bottone(comandi, "Command4", "INSERISCI e/o MODIFICA CLIENTE NELLA PRENOTAZIONE");
    m_rimuovi = bottone(comandi, "Command10", "RIMUOVI CLIENTE DALLA PRENOTAZIONE");
    auto* nuovo = bottone(comandi, "Command1", "NUOVO CLIENTE");
    auto* apriScheda = bottone(comandi, "Command14", "APRI SCHEDA CLIENTE");
    comandi->addStretch(1);
    m_arrivato = new QCheckBox(QStringLiteral("ARRIVATO"), this);
    m_arrivato->setObjectName(QStringLiteral("Arrivato"));
    m_arrivato->setToolTip(QStringLiteral("CLIENTE ARRIVATO (CHECK-IN)"));
    m_intestatario = new QCheckBox(QStringLiteral("Intestatario per Ricevuta / Fattura"), this);
    m_intestatario->setObjectName(QStringLiteral("ClienteIntestatario"));
    m_nonModificare = new QCheckBox(QStringLiteral("Non Aggiornare Anagrafica"), this);
    m_nonModificare->setObjectName(QStringLiteral("NonModificareDatiCliente"));
    for (QCheckBox* c : { m_arrivato, m_intestatario, m_nonModificare })
        spunte->addWidget(c);
    spunte->addStretch(1);
    auto* proponiNro = bottone(spunte, "Command13", "PROPONI NUMERO DI ARRIVO");
    auto* cancellaNro = bottone(spunte, "CancellaNroArrivo", "CANCELLA NUMERO DI ARRIVO");
    auto* trattamento = bottone(spunte, "Command18", "CALCOLA TRATTAMENTO");
    for (QPushButton* b : { proponi, m_ultimiDati })
        b->setAutoDefault(false);
    v->addLayout(spunte);
    v->addLayout(comandi);

    m_clienti = new QTableWidget(0, static_cast<int>(colonneClienti().size()), this);
    m_clienti->setObjectName(QStringLiteral("GrigliaAnagrafiche"));
    QStringList titoli;
    for (const auto& c : colonneClienti())
        titoli << QString::fromUtf8(c.second);
    m_clienti->setHorizontalHeaderLabels(titoli);
    m_clienti->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_clienti->setSelectionMode(QAbstractItemView::SingleSelection);
    m_clienti->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_clienti->verticalHeader()->setVisible(false);
    m_clienti->verticalHeader()->setDefaultSectionSize(22);
    m_clienti->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_clienti->setMinimumHeight(90);
    v->addWidget(m_clienti, 1);
    m_numeroPersone = new QLabel(this);
    m_numeroPersone->setObjectName(QStringLiteral("NumeroPersone"));
    v->addWidget(m_numeroPersone);

    const auto esegui = [this](auto azione) {
        // The logic by pointer: GCC gives a third-level lambda the wrong `this`.
        SchedaPrenotazione* scheda = &m_logica;
        return [this, scheda, azione] { m_comando([scheda, azione] { azione(*scheda); }); };
    };
    connect(m_inserisci, &QPushButton::clicked, this, [this] {
        const int prima = static_cast<int>(m_logica.GrigliaAnagrafiche.size());
        const bool modifica = m_logica.RigaClienteSelezionato > 0;
        m_comando([this] { m_logica.Command4_Click(); });
        // Inserted: the next guest starts from the surname.
        if (m_logica.GrigliaAnagrafiche.size() > prima || (modifica && m_logica.RigaClienteSelezionato == 0))
            m_campi.value(QStringLiteral("Cognome"))->setFocus();
    });
    connect(m_rimuovi, &QPushButton::clicked, this, esegui([](SchedaPrenotazione& l) { l.Command10_Click(); }));
    connect(nuovo, &QPushButton::clicked, this, [this] {
        m_comando([this] { m_logica.Command1_Click(); });
        nascondiComuni();
        m_campi.value(QStringLiteral("Cognome"))->setFocus();
    });
    connect(apriScheda, &QPushButton::clicked, this, [this] {
        leggi();
        emit apriSchedaCliente(m_logica.Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong());
    });
    connect(proponiNro, &QPushButton::clicked, this, esegui([](SchedaPrenotazione& l) { l.Command13_Click(); }));
    connect(cancellaNro, &QPushButton::clicked, this,
            esegui([](SchedaPrenotazione& l) { l.CancellaNroArrivo_Click(); }));
    connect(trattamento, &QPushButton::clicked, this, esegui([](SchedaPrenotazione& l) { l.CalcolaTrattamento(); }));
    connect(m_ultimiDati, &QPushButton::clicked, this,
            esegui([](SchedaPrenotazione& l) { l.InserisciUltimiDatiInseriti_Click(); }));
    connect(proponi, &QPushButton::clicked, this, esegui([](SchedaPrenotazione& l) { l.ProponiIstat_Click(); }));
    connect(m_clienti, &QTableWidget::cellClicked, this,
            [this](int r, int) { m_comando([this, r] { m_logica.SelezioneNormaleCliente(r); }); });
    connect(m_arrivato, &QCheckBox::clicked, this,
            [this](bool s) { m_comando([this, s] { m_logica.Arrivato_MouseUp(s); }); });
    connect(m_nonModificare, &QCheckBox::clicked, this,
            [this](bool s) { m_comando([this, s] { m_logica.NonModificareDatiCliente_Click(s); }); });
    connect(m_nroCamera, &QComboBox::textActivated, this,
            [this](const QString& c) { m_comando([this, c] { m_logica.NroCameraCliente_Click(c); }); });
    connect(m_tipoTrattamento, &QComboBox::textActivated, this,
            [this](const QString& t) { m_comando([this, t] { m_logica.TipoTrattamento_Click(t); }); });
    connect(m_tipoAlloggiato, &QComboBox::textActivated, this,
            [this](const QString& t) { m_comando([this, t] { m_logica.TipoDiAlloggiato_Click(t); }); });
    const auto opzioneCliccata = [this](QRadioButton* r, void (SchedaPrenotazione::*azione)()) {
        connect(r, &QRadioButton::clicked, this,
                [this, scheda = &m_logica, azione] { m_comando([scheda, azione] { (scheda->*azione)(); }); });
    };
    opzioneCliccata(m_nascItalia, &SchedaPrenotazione::NascitaItalia_Click);
    opzioneCliccata(m_nascEstero, &SchedaPrenotazione::NascitaEstero_Click);
    opzioneCliccata(m_docItalia, &SchedaPrenotazione::DocumentoItalia_Click);
    opzioneCliccata(m_docEstero, &SchedaPrenotazione::DocumentoEstero_Click);
    opzioneCliccata(m_resItaliana, &SchedaPrenotazione::ResidenzaItaliana_Click);
    opzioneCliccata(m_resEstera, &SchedaPrenotazione::ResidenzaEstera_Click);

    QLineEdit* nroArrivo = m_campi.value(QStringLiteral("NroArrivo"));
    connect(nroArrivo, &QLineEdit::textEdited, this, [this, nroArrivo] {
        leggi();
        nroArrivo->setStyleSheet(m_logica.ControllaEsistenzaNroArrivo() ? QStringLiteral("background: #ffb0b0")
                                                                        : QString());
    });
    for (const QString& nome : campiData()) {
        QLineEdit* e = m_campi.value(nome);
        connect(e, &QLineEdit::editingFinished, this, [this, e, nome] {
            if (!e->isModified())
                return;
            e->setModified(false);
            const bool dellaStanza = nome == QLatin1String("DataArrivo") || nome == QLatin1String("DataPartenza");
            m_comando([this, nome, dellaStanza] {
                m_logica.DataCliente_LostFocus(nome);
                if (dellaStanza)
                    m_logica.CalcolaTrattamento();
            });
        });
    }
    collegaNomi();
    collegaCompletamenti();

    // Escape and Enter in the line are the panel's: see eventFilter.
    for (QWidget* w : findChildren<QWidget*>()) {
        if (qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) || qobject_cast<QAbstractButton*>(w)
            || qobject_cast<QPlainTextEdit*>(w) || w == m_clienti || w == m_cittaVL)
            w->installEventFilter(this);
    }
}

PrenotazioneClientiWidget::~PrenotazioneClientiWidget()
{
    scollega();
}

void PrenotazioneClientiWidget::scollega()
{
    m_comando = [](const std::function<void()>&) {};
    for (QObject* figlio : findChildren<QObject*>()) {
        figlio->removeEventFilter(this);
        QObject::disconnect(figlio, nullptr, this, nullptr);
    }
}

QLineEdit* PrenotazioneClientiWidget::campo(const QString& nome, QWidget* genitore)
{
    auto* c = new QLineEdit(genitore);
    // The residence town is the field Comune, shown as Citta as on the guest card.
    c->setObjectName(nome == QLatin1String("Comune") ? QStringLiteral("Citta") : nome);
    if (const int massimo = dimensione(nome); massimo > 0)
        c->setMaxLength(massimo);
    m_campi.insert(nome, c);
    return c;
}

// Name look-ahead, as on the guest card: picking a name loads its card into the line.
void PrenotazioneClientiWidget::collegaNomi()
{
    for (const char* nome : { "RagSociale", "Cognome", "Nome" }) {
        QLineEdit* e = m_campi.value(QLatin1String(nome));
        auto indici = std::make_shared<QList<qint64>>();
        proposteCampo(
            e,
            [this, nome, indici](const QString& testo) {
                QStringList voci;
                indici->clear();
                for (const auto& p : m_logica.proposteCliente(QLatin1String(nome), testo)) {
                    voci << p.testo;
                    indici->append(p.indice);
                }
                return voci;
            },
            [this, e, indici](int riga) {
                if (riga < 0 || riga >= indici->size())
                    return;
                const qint64 indice = indici->at(riga);
                m_comando([this, indice] { m_logica.CaricaDatiCliente(indice); });
                // The card is loaded: the name typed is its name, nothing left to check on leaving.
                e->setModified(false);
            });
    }
    // Leaving the name of a guest typed by hand: the registry may already know it. Queued, so that a card
    // chosen from the look-ahead is loaded first.
    QLineEdit* nome = m_campi.value(QStringLiteral("Nome"));
    connect(nome, &QLineEdit::editingFinished, this, [this, nome] {
        if (!nome->isModified())
            return;
        nome->setModified(false);
        QMetaObject::invokeMethod(
            this, [this] { m_comando([this] { m_logica.ControllaEsistenzaAnagrafica(); }); }, Qt::QueuedConnection);
    });
}

// The guest card's completions: towns by postal code, name or province; places, states and documents.
void PrenotazioneClientiWidget::collegaCompletamenti()
{
    for (const char* nome : { "Cap", "Comune", "Provincia" }) {
        QLineEdit* e = m_campi.value(QLatin1String(nome));
        connect(e, &QLineEdit::textEdited, this, [this, e] { cercaComune(e); });
    }
    connect(m_cittaVL, &QListWidget::itemDoubleClicked, this, [this] { confermaComune(); });

    auto luoghi = std::make_shared<QList<ComuneProposto>>();
    auto elencoLuoghi = [this, luoghi](const QString& testo) {
        *luoghi = m_logica.proposteLuogo(testo);
        QStringList voci;
        for (const ComuneProposto& c : std::as_const(*luoghi))
            voci << c.comune + QStringLiteral(" (") + c.provincia + QLatin1Char(')');
        return voci;
    };
    proposteCampo(m_campi.value(QStringLiteral("LuogoNascita")), elencoLuoghi, [this, luoghi](int r) {
        if (r >= 0 && r < luoghi->size())
            m_comando([this, c = luoghi->at(r)] { m_logica.LuogoNascita_Conferma(c); });
    });
    proposteCampo(m_campi.value(QStringLiteral("LuogoDocumento")), elencoLuoghi, [this, luoghi](int r) {
        if (r >= 0 && r < luoghi->size())
            m_comando([this, c = luoghi->at(r)] { m_logica.LuogoDocumento_Conferma(c); });
    });
    auto stati = std::make_shared<QStringList>();
    proposteCampo(
        m_campi.value(QStringLiteral("StatoDiNascita")),
        [this, stati](const QString& t) {
            *stati = m_logica.proposteStati(t);
            return *stati;
        },
        [this, stati](int r) {
            if (r >= 0 && r < stati->size())
                m_comando([this, s = stati->at(r)] { m_logica.StatoDiNascita_Conferma(s); });
        });
    for (const char* stato : { "Cittadinanza", "Nazione" })
        proposteCampo(
            m_campi.value(QLatin1String(stato)), [this](const QString& t) { return m_logica.proposteStati(t); },
            [](int) {});
    proposteCampo(
        m_campi.value(QStringLiteral("TipoDocumento")),
        [this](const QString& t) { return m_logica.proposteDocumenti(t); }, [](int) {});
}

void PrenotazioneClientiWidget::cercaComune(QLineEdit* sorgente)
{
    leggi();
    const auto campo = sorgente == m_campi.value(QStringLiteral("Cap")) ? SchedaAnagrafica::CampoComune::Cap
        : sorgente == m_campi.value(QStringLiteral("Comune"))           ? SchedaAnagrafica::CampoComune::Citta
                                                                        : SchedaAnagrafica::CampoComune::Provincia;
    const QList<ComuneProposto> trovati = m_logica.COMUNE_Ricerca(campo, sorgente->text());
    mostraComuniProposti(m_cittaVL, qobject_cast<QFormLayout*>(m_cittaVL->parentWidget()->layout()), trovati);
    const int cursore = sorgente->cursorPosition();
    aggiorna();
    sorgente->setCursorPosition(qMin(cursore, static_cast<int>(sorgente->text().size())));
}

void PrenotazioneClientiWidget::confermaComune()
{
    const std::optional<ComuneProposto> scelto = comuneSceltoDa(m_cittaVL);
    if (!scelto)
        return;
    m_comando([this, c = *scelto] { m_logica.COMUNE_ConfermaSelezionato(c); });
    nascondiComuni();
    m_campi.value(QStringLiteral("Indirizzo"))->setFocus();
}

void PrenotazioneClientiWidget::nascondiComuni()
{
    if (auto* f = qobject_cast<QFormLayout*>(m_cittaVL->parentWidget()->layout()))
        f->setRowVisible(m_cittaVL, false);
}

bool PrenotazioneClientiWidget::rigaVuota() const
{
    if (m_logica.RigaClienteSelezionato > 0)
        return false;
    for (const char* nome : { "Cognome", "Nome", "RagSociale" }) {
        if (!m_campi.value(QLatin1String(nome))->text().trimmed().isEmpty())
            return false;
    }
    return true;
}

bool PrenotazioneClientiWidget::eventFilter(QObject* oggetto, QEvent* evento)
{
    if (evento->type() != QEvent::KeyPress)
        return QWidget::eventFilter(oggetto, evento);
    const int tasto = static_cast<QKeyEvent*>(evento)->key();
    const bool invio = tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
    if (m_cittaVL->isVisible()) {
        if (invio) {
            confermaComune();
            return true;
        }
        if (tasto == Qt::Key_Escape) {
            nascondiComuni();
            return true;
        }
        if (tasto == Qt::Key_Down && oggetto != m_cittaVL) {
            m_cittaVL->setFocus();
            return true;
        }
    }
    // Escape takes the line back to a new guest; only on an empty line does it reach the screen, which asks
    // before closing.
    if (tasto == Qt::Key_Escape && !rigaVuota()) {
        m_comando([this] { m_logica.Command1_Click(); });
        m_clienti->clearSelection();
        m_campi.value(QStringLiteral("Cognome"))->setFocus();
        return true;
    }
    // Enter in a field would press the screen's default button (a save, a delete).
    if (invio && std::find(m_campi.cbegin(), m_campi.cend(), oggetto) != m_campi.cend())
        return true;
    return QWidget::eventFilter(oggetto, evento);
}

void PrenotazioneClientiWidget::applicaPermessi(const AbilitazioniPrenotazione& a)
{
    m_inserisci->setEnabled(a.Command4);
    m_rimuovi->setEnabled(a.Command10);
}

void PrenotazioneClientiWidget::leggi()
{
    if (m_aggiornando)
        return;
    SchedaPrenotazione& l = m_logica;
    for (auto it = m_campi.cbegin(); it != m_campi.cend(); ++it)
        l.Cliente.imposta(it.key(), it.value()->text());
    l.Cliente.imposta(QStringLiteral("NoteCliente"), m_note->toPlainText());
    l.Cliente.imposta(QStringLiteral("NroCameraCliente"), m_nroCamera->currentText());
    l.Cliente.imposta(QStringLiteral("TipoTrattamento"), m_tipoTrattamento->currentText());
    l.Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), m_tipoAlloggiato->currentText());
    l.Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"),
                      tipoalloggiato::capo(m_tipoAlloggiato->currentText()) ? QString() : m_capoGruppo->currentText());
    l.Cliente.imposta(QStringLiteral("TipoTurismo"), m_tipoTurismo->currentText());
    l.Cliente.imposta(QStringLiteral("MezzoDiTrasporto"), m_mezzoTrasporto->currentText());
    l.Cliente.imposta(QStringLiteral("ResidenzaIstat"), m_residenzaIstat->currentText());
    l.Cliente.imposta(QStringLiteral("Arrivato"), m_arrivato->isChecked() ? 1 : 0);
    l.Cliente.imposta(QStringLiteral("ClienteIntestatario"), m_intestatario->isChecked() ? 1 : 0);
    l.Cliente.imposta(QStringLiteral("NascitaItalia"), !m_nascEstero->isChecked());
    l.Cliente.imposta(QStringLiteral("NascitaEstero"), m_nascEstero->isChecked());
    l.Cliente.imposta(QStringLiteral("DocumentoItalia"), !m_docEstero->isChecked());
    l.Cliente.imposta(QStringLiteral("DocumentoEstero"), m_docEstero->isChecked());
    l.Cliente.imposta(QStringLiteral("ResidenzaItaliana"), !m_resEstera->isChecked());
    l.Cliente.imposta(QStringLiteral("ResidenzaEstera"), m_resEstera->isChecked());
    l.Maschio = m_maschio->isChecked();
    l.Femmina = m_femmina->isChecked();
    l.NonModificareDatiCliente = m_nonModificare->isChecked();
}

void PrenotazioneClientiWidget::aggiorna()
{
    m_aggiornando = true;
    SchedaPrenotazione& l = m_logica;
    for (auto it = m_campi.cbegin(); it != m_campi.cend(); ++it) {
        const QString testo = l.Cliente.testo(it.key());
        // Unchanged text keeps the cursor where the user is typing.
        if (it.value()->text() != testo)
            it.value()->setText(testo);
    }
    if (m_note->toPlainText() != l.Cliente.testo(QStringLiteral("NoteCliente")))
        m_note->setPlainText(l.Cliente.testo(QStringLiteral("NoteCliente")));
    riempi(m_nroCamera, QStringList(QString()) + l.sceltaCamere(), l.Cliente.NroCameraCliente());
    riempi(m_tipoTrattamento, prezzi::paroleTrattamento(), l.Cliente.testo(QStringLiteral("TipoTrattamento")));
    m_tipoAlloggiato->setCurrentText(l.Cliente.testo(QStringLiteral("TipoDiAlloggiato")));
    const bool seguace = tipoalloggiato::seguace(l.Cliente.testo(QStringLiteral("TipoDiAlloggiato")));
    riempi(m_capoGruppo, l.capiDisponibili(), l.Cliente.testo(QStringLiteral("CapoGruppoFamiglia")));
    m_capoGruppo->setVisible(seguace);
    m_etichettaCapo->setVisible(seguace);
    // Occupied rooms, tourism and transport belong to the heads and single guests.
    m_tipoTurismo->setEnabled(!seguace);
    m_mezzoTrasporto->setEnabled(!seguace);
    m_campi.value(QStringLiteral("CamereOccupate"))->setEnabled(!seguace);
    m_tipoTurismo->setCurrentText(l.Cliente.testo(QStringLiteral("TipoTurismo")));
    m_mezzoTrasporto->setCurrentText(l.Cliente.testo(QStringLiteral("MezzoDiTrasporto")));
    m_arrivato->setChecked(l.Cliente.valore(QStringLiteral("Arrivato")).toInt() == 1);
    m_intestatario->setChecked(l.Cliente.valore(QStringLiteral("ClienteIntestatario")).toInt() == 1);
    m_maschio->setChecked(l.Maschio);
    m_femmina->setChecked(l.Femmina);
    (spuntato(l.Cliente, "NascitaEstero") ? m_nascEstero : m_nascItalia)->setChecked(true);
    (spuntato(l.Cliente, "DocumentoEstero") ? m_docEstero : m_docItalia)->setChecked(true);
    (spuntato(l.Cliente, "ResidenzaEstera") ? m_resEstera : m_resItaliana)->setChecked(true);
    m_etichettaIstat->setText(l.etichettaIstat());
    const QString istat = l.Cliente.testo(QStringLiteral("ResidenzaIstat"));
    QStringList voci = QStringList(QString()) + l.sceltaIstat();
    // A value from an older list still shows as it is stored.
    if (!istat.isEmpty() && !voci.contains(istat))
        voci << istat;
    if (m_residenzaIstat->count() != voci.size() || m_residenzaIstat->itemText(1) != voci.value(1)) {
        m_residenzaIstat->clear();
        m_residenzaIstat->addItems(voci);
    }
    m_residenzaIstat->setCurrentIndex(m_residenzaIstat->findText(istat));
    m_nonModificare->setChecked(l.NonModificareDatiCliente);
    m_ultimiDati->setVisible(l.InserisciUltimiDatiInseritiVisibile);
    // The statutory fields of the chosen type stand out; the insert button turns grey once they are complete.
    const QStringList obbligatori = campiObbligatori(l.Cliente);
    for (auto it = m_campi.cbegin(); it != m_campi.cend(); ++it) {
        if (it.key() != QLatin1String("NroArrivo"))
            it.value()->setStyleSheet(obbligatori.contains(it.key()) ? QStringLiteral("background: #fff3b0")
                                                                     : QString());
    }
    m_inserisci->setStyleSheet(ControllaRegole(l.Cliente)
                                   ? QStringLiteral("background: #a0a0a0; color: white; font-weight: bold")
                                   : QStringLiteral("background: #e05050; color: white; font-weight: bold"));

    m_clienti->setRowCount(static_cast<int>(l.GrigliaAnagrafiche.size()));
    for (int r = 0; r < l.GrigliaAnagrafiche.size(); ++r) {
        const OspitePrenotazione& o = l.GrigliaAnagrafiche.at(r);
        for (int c = 0; c < colonneClienti().size(); ++c) {
            auto* item = new QTableWidgetItem(testoCella(o, QLatin1String(colonneClienti().at(c).first)));
            if (o.Arrivato())
                item->setBackground(QColor(0xc8, 0xe6, 0xc9));
            m_clienti->setItem(r, c, item);
        }
    }
    if (l.RigaClienteSelezionato > 0)
        m_clienti->selectRow(l.RigaClienteSelezionato - 1);
    else
        m_clienti->clearSelection();
    m_numeroPersone->setText(l.NumeroPersone);
    m_aggiornando = false;
}

} // namespace tomvera
