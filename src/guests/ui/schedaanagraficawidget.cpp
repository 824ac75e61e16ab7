#include "guests/ui/schedaanagraficawidget.h"

#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "guests/limiticampi.h"
#include "guests/schedaanagrafica.h"
#include "guests/ui/elencoanagrafichewidget.h"
#include "guests/ui/opzioni.h"
#include "guests/ui/proposte.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QCompleter>
#include <QDesktopServices>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QTabWidget>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace tomvera {

namespace {

QPushButton* pulsante(const char* nome, const QString& testo, QWidget* genitore)
{
    auto* p = new QPushButton(testo, genitore);
    p->setObjectName(QLatin1String(nome));
    p->setAutoDefault(false);
    return p;
}

QTableWidget* griglia(const char* nome, const QStringList& titoli, QWidget* genitore)
{
    auto* t = new QTableWidget(0, static_cast<int>(titoli.size()), genitore);
    t->setObjectName(QLatin1String(nome));
    t->setHorizontalHeaderLabels(titoli);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->verticalHeader()->hide();
    t->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    t->horizontalHeader()->setStretchLastSection(true);
    return t;
}

const auto proposte = proposteCampo;

} // namespace

SchedaAnagraficaWidget::SchedaAnagraficaWidget(std::unique_ptr<SchedaAnagrafica> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_SchedaAnagrafica"));
    setWindowTitle(QStringLiteral("Scheda Anagrafica"));

    auto* testa = new QFormLayout;
    m_codice = campo("CodiceAnagrafica", this);
    m_codice->setMaximumWidth(120);
    m_ragSociale = campo("RagSociale", this);
    m_cognome = campo("Cognome", this);
    m_nome = campo("Nome", this);
    testa->addRow(QStringLiteral("Codice"), m_codice);
    testa->addRow(QStringLiteral("Ragione Sociale"), m_ragSociale);
    testa->addRow(QStringLiteral("Cognome"), m_cognome);
    testa->addRow(QStringLiteral("Nome"), m_nome);

    m_schede = new QTabWidget(this);
    m_schede->setObjectName(QStringLiteral("Schede"));

    auto* anagrafici = new QWidget(m_schede);
    auto* fa = new QFormLayout(anagrafici);
    m_maschio = opzione("Maschio", QStringLiteral("Maschio"), anagrafici);
    m_femmina = opzione("Femmina", QStringLiteral("Femmina"), anagrafici);
    fa->addRow(QStringLiteral("Sesso"), coppia(m_maschio, m_femmina, anagrafici));
    m_codiceFiscale = campo("CodiceFiscale", anagrafici);
    m_codiceFiscale->setMaxLength(16);
    m_piva = campo("Piva", anagrafici);
    m_cittadinanza = campo("Cittadinanza", anagrafici);
    m_cellulare = campo("Cellulare", anagrafici);
    m_telefono = campo("Telefono", anagrafici);
    m_fax = campo("Fax", anagrafici);
    m_email = campo("Email", anagrafici);
    m_web = campo("Web", anagrafici);
    fa->addRow(QStringLiteral("Codice Fiscale"), m_codiceFiscale);
    fa->addRow(QStringLiteral("Partita Iva"), m_piva);
    fa->addRow(QStringLiteral("Cittadinanza"), m_cittadinanza);
    fa->addRow(QStringLiteral("Cellulare"), m_cellulare);
    fa->addRow(QStringLiteral("Telefono"), m_telefono);
    fa->addRow(QStringLiteral("Fax"), m_fax);
    auto* apriEmail = pulsante("OpenUrlEmail", QStringLiteral("Scrivi"), anagrafici);
    auto* apriWeb = pulsante("OpenUrl", QStringLiteral("Apri"), anagrafici);
    auto* rigaEmail = new QHBoxLayout;
    rigaEmail->addWidget(m_email);
    rigaEmail->addWidget(apriEmail);
    auto* rigaWeb = new QHBoxLayout;
    rigaWeb->addWidget(m_web);
    rigaWeb->addWidget(apriWeb);
    fa->addRow(QStringLiteral("Email"), rigaEmail);
    fa->addRow(QStringLiteral("Web"), rigaWeb);
    m_schede->addTab(anagrafici, QStringLiteral("ANAGRAFICI"));

    auto* nascita = new QWidget(m_schede);
    auto* fn = new QFormLayout(nascita);
    m_dataNascita = campo("DataNascita", nascita);
    m_dataNascita->setPlaceholderText(QStringLiteral("GG/MM/AAAA"));
    m_nascItalia = opzione("NascitaItalia", QStringLiteral("Italia"), nascita);
    m_nascEstero = opzione("NascitaEstero", QStringLiteral("Estero"), nascita);
    m_luogoNascita = campo("LuogoNascita", nascita);
    m_provinciaNascita = campo("ProvinciaDiNascita", nascita);
    m_statoNascita = campo("StatoDiNascita", nascita);
    fn->addRow(QStringLiteral("Data di Nascita"), m_dataNascita);
    fn->addRow(QStringLiteral("Nato in"), coppia(m_nascItalia, m_nascEstero, nascita));
    fn->addRow(QStringLiteral("Luogo di Nascita"), m_luogoNascita);
    fn->addRow(QStringLiteral("Provincia di Nascita"), m_provinciaNascita);
    fn->addRow(QStringLiteral("Stato di Nascita"), m_statoNascita);
    m_schede->addTab(nascita, QStringLiteral("NASCITA"));

    auto* residenza = new QWidget(m_schede);
    auto* fr = new QFormLayout(residenza);
    m_resItaliana = opzione("ResidenzaItaliana", QStringLiteral("Italiana"), residenza);
    m_resEstera = opzione("ResidenzaEstera", QStringLiteral("Estera"), residenza);
    m_indirizzo = campo("Indirizzo", residenza);
    m_cap = campo("Cap", residenza);
    m_cap->setMaximumWidth(90);
    m_citta = campo("Citta", residenza);
    m_provincia = campo("Provincia", residenza);
    m_provincia->setMaximumWidth(60);
    m_cittaVL = new QListWidget(residenza);
    m_cittaVL->setObjectName(QStringLiteral("CittaVL"));
    m_cittaVL->setMaximumHeight(140);
    m_nazione = campo("Nazione", residenza);
    m_etichettaIstat = new QLabel(residenza);
    m_etichettaIstat->setObjectName(QStringLiteral("EtichettaIstat"));
    m_residenzaIstat = new QComboBox(residenza);
    m_residenzaIstat->setObjectName(QStringLiteral("ResidenzaIstat"));
    auto* proponi = pulsante("ProponiIstat",
                             QStringLiteral("PROPONI PAESE ESTERO O PROVINCIA ITALIANA DI RESIDENZA PER MODULO ISTAT"),
                             residenza);
    auto* rigaCap = new QHBoxLayout;
    rigaCap->addWidget(m_cap);
    rigaCap->addWidget(new QLabel(QStringLiteral("Città"), residenza));
    rigaCap->addWidget(m_citta, 1);
    rigaCap->addWidget(new QLabel(QStringLiteral("Prov."), residenza));
    rigaCap->addWidget(m_provincia);
    fr->addRow(QStringLiteral("Residenza"), coppia(m_resItaliana, m_resEstera, residenza));
    fr->addRow(QStringLiteral("Indirizzo"), m_indirizzo);
    fr->addRow(QStringLiteral("Cap"), rigaCap);
    fr->addRow(QString(), m_cittaVL);
    fr->setRowVisible(m_cittaVL, false);
    m_moduloResidenza = fr;
    fr->addRow(QStringLiteral("Nazione"), m_nazione);
    fr->addRow(m_etichettaIstat, m_residenzaIstat);
    fr->addRow(QString(), proponi);
    m_schede->addTab(residenza, QStringLiteral("RESIDENZA"));

    auto* documento = new QWidget(m_schede);
    auto* fd = new QFormLayout(documento);
    m_tipoDocumento = campo("TipoDocumento", documento);
    m_nroDocumento = campo("NroDocumento", documento);
    m_dataDocumento = campo("DataDocumento", documento);
    m_dataDocumento->setPlaceholderText(QStringLiteral("GG/MM/AAAA"));
    m_docItalia = opzione("DocumentoItalia", QStringLiteral("Italia"), documento);
    m_docEstero = opzione("DocumentoEstero", QStringLiteral("Estero"), documento);
    m_luogoDocumento = campo("LuogoDocumento", documento);
    fd->addRow(QStringLiteral("Tipo Documento"), m_tipoDocumento);
    fd->addRow(QStringLiteral("Numero"), m_nroDocumento);
    fd->addRow(QStringLiteral("Data di Rilascio"), m_dataDocumento);
    fd->addRow(QStringLiteral("Rilasciato in"), coppia(m_docItalia, m_docEstero, documento));
    fd->addRow(QStringLiteral("Luogo di Rilascio"), m_luogoDocumento);
    m_schede->addTab(documento, QStringLiteral("DOCUMENTO"));

    m_note = new QPlainTextEdit(m_schede);
    m_note->setObjectName(QStringLiteral("Note"));
    m_schede->addTab(m_note, QStringLiteral("NOTE"));

    auto* boxSoggiorni = new QGroupBox(QStringLiteral("Soggiorni"), this);
    auto* ls = new QVBoxLayout(boxSoggiorni);
    m_soggiorni = griglia("GrigliaAnagrafiche",
                          { QStringLiteral("Indice"), QStringLiteral("IndicePrenotazioneAssociata"),
                            QStringLiteral("Data Arrivo"), QStringLiteral("Data Part."), QStringLiteral("Nro Arrivo"),
                            QStringLiteral("N° Camera"), QStringLiteral("Tipo Trattamento") },
                          boxSoggiorni);
    m_soggiorni->hideColumn(0);
    m_soggiorni->hideColumn(1);
    auto* caricaPren = pulsante("CaricaPrenotazione", QStringLiteral("Carica Prenotazione Associata"), boxSoggiorni);
    m_caricaPrenotazione = caricaPren;
    ls->addWidget(m_soggiorni);
    ls->addWidget(caricaPren);
    auto* boxSpiaggia = new QGroupBox(QStringLiteral("Spiaggia"), this);
    auto* lsp = new QVBoxLayout(boxSpiaggia);
    m_spiaggia = griglia("GrigliaSpiaggia",
                         { QStringLiteral("Indice"), QStringLiteral("Nro"), QStringLiteral("Data"),
                           QStringLiteral("Totale"), QStringLiteral("Incassato") },
                         boxSpiaggia);
    m_spiaggia->hideColumn(0);
    m_totaliSpiaggia = new QLabel(boxSpiaggia);
    m_totaliSpiaggia->setObjectName(QStringLiteral("TotaliSpiaggia"));
    auto* caricaSpiaggia
        = pulsante("CaricaPrenotazioneSpiaggia", QStringLiteral("Carica Prenotazione Spiaggia"), boxSpiaggia);
    lsp->addWidget(m_spiaggia);
    lsp->addWidget(m_totaliSpiaggia);
    lsp->addWidget(caricaSpiaggia);
    // The beach reservations have no screen yet.
    caricaSpiaggia->hide();

    auto* comandi = new QVBoxLayout;
    auto* nuovo = pulsante("Nuovo", QStringLiteral("Nuovo"), this);
    auto* registra = pulsante("Registra", QStringLiteral("Registra"), this);
    auto* cancella = pulsante("Cancella", QStringLiteral("Elimina"), this);
    auto* cerca = pulsante("Command2", QStringLiteral("Cerca"), this);
    auto* fine = pulsante("Fine", QStringLiteral("Esci"), this);
    for (QPushButton* p : { nuovo, registra, cancella, cerca })
        comandi->addWidget(p);
    comandi->addStretch();
    comandi->addWidget(fine);

    auto* sinistra = new QVBoxLayout;
    sinistra->addLayout(testa);
    sinistra->addWidget(m_schede, 1);
    auto* liste = new QHBoxLayout;
    liste->addWidget(boxSoggiorni, 3);
    liste->addWidget(boxSpiaggia, 2);
    sinistra->addLayout(liste);
    auto* tutto = new QHBoxLayout(this);
    tutto->addLayout(sinistra, 1);
    tutto->addLayout(comandi);
    resize(980, 660);

    connect(nuovo, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Nuovo_Click(); }); });
    connect(registra, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Registra_Click(); }); });
    connect(cancella, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Cancella_Click(); }); });
    connect(cerca, &QPushButton::clicked, this, &SchedaAnagraficaWidget::cerca);
    connect(fine, &QPushButton::clicked, this, &SchedaAnagraficaWidget::reject);
    connect(apriWeb, &QPushButton::clicked, this, [this] {
        leggi();
        if (const QString url = m_logica->OpenUrl_Click(false); !url.isEmpty())
            QDesktopServices::openUrl(QUrl(url));
    });
    connect(apriEmail, &QPushButton::clicked, this, [this] {
        leggi();
        if (const QString url = m_logica->OpenUrl_Click(true); !url.isEmpty())
            QDesktopServices::openUrl(QUrl(url));
    });
    connect(proponi, &QPushButton::clicked, this, [this] { comando([this] { m_logica->ProponiIstat_Click(); }); });
    connect(caricaPren, &QPushButton::clicked, this, &SchedaAnagraficaWidget::caricaPrenotazione);
    connect(m_soggiorni, &QTableWidget::cellDoubleClicked, this, &SchedaAnagraficaWidget::caricaPrenotazione);

    auto opzioneCliccata = [this](QRadioButton* r, void (SchedaAnagrafica::*azione)()) {
        connect(r, &QRadioButton::clicked, this,
                [this, azione] { comando([this, azione] { ((*m_logica).*azione)(); }); });
    };
    opzioneCliccata(m_resItaliana, &SchedaAnagrafica::ResidenzaItaliana_Click);
    opzioneCliccata(m_resEstera, &SchedaAnagrafica::ResidenzaEstera_Click);
    opzioneCliccata(m_nascItalia, &SchedaAnagrafica::NascitaItalia_Click);
    opzioneCliccata(m_nascEstero, &SchedaAnagrafica::NascitaEstero_Click);
    opzioneCliccata(m_docItalia, &SchedaAnagrafica::DocumentoItalia_Click);
    opzioneCliccata(m_docEstero, &SchedaAnagrafica::DocumentoEstero_Click);

    connect(m_codiceFiscale, &QLineEdit::textEdited, this, [this] {
        if (m_codiceFiscale->text().size() == 16)
            comando([this] { m_logica->CodiceFiscale_KeyUp(); });
    });
    connect(m_piva, &QLineEdit::editingFinished, this, [this] {
        if (m_piva->isModified())
            comando([this] { m_logica->Piva_LostFocus(); });
        m_piva->setModified(false);
    });
    connect(m_dataDocumento, &QLineEdit::editingFinished, this, [this] {
        if (m_dataDocumento->isModified())
            comando([this] { m_logica->DataDocumento_LostFocus(); });
        m_dataDocumento->setModified(false);
    });
    connect(m_dataNascita, &QLineEdit::editingFinished, this, [this] {
        if (m_dataNascita->isModified())
            comando([this] { m_logica->DataNascita_LostFocus(); });
        m_dataNascita->setModified(false);
    });
    for (QLineEdit* e : { m_cognome, m_nome, m_ragSociale }) {
        connect(e, &QLineEdit::editingFinished, this, [this, e] {
            if (e->isModified() && m_logica->nuova())
                comando([this] { m_logica->ControllaEsistenzaAnagrafica(); });
            e->setModified(false);
        });
        proposte(
            e,
            [this, e](const QString& testo) {
                const auto campo = e == m_cognome ? SchedaAnagrafica::CampoNome::Cognome
                    : e == m_nome                 ? SchedaAnagrafica::CampoNome::Nome
                                                  : SchedaAnagrafica::CampoNome::RagSociale;
                QStringList voci;
                m_indiciNomi.clear();
                for (const PropostaNome& p : m_logica->proposteNome(campo, testo)) {
                    voci << p.testo;
                    m_indiciNomi << p.indice;
                }
                return voci;
            },
            [this](int riga) {
                if (riga >= 0 && riga < m_indiciNomi.size())
                    comando([this, indice = m_indiciNomi.at(riga)] { m_logica->carica(indice); });
            });
    }

    for (QLineEdit* e : { m_cap, m_citta, m_provincia }) {
        connect(e, &QLineEdit::textEdited, this, [this, e] { cercaComune(e); });
        e->installEventFilter(this);
    }
    m_cittaVL->installEventFilter(this);
    connect(m_cittaVL, &QListWidget::itemDoubleClicked, this, [this] { confermaComune(); });

    // Birth and document places, states and document words come from the code tables.
    auto luoghi = std::make_shared<QList<ComuneProposto>>();
    auto elencoLuoghi = [this, luoghi](const QString& testo) {
        *luoghi = m_logica->proposteLuogo(testo);
        QStringList voci;
        for (const ComuneProposto& c : *luoghi)
            voci << c.comune + QStringLiteral(" (") + c.provincia + QLatin1Char(')');
        return voci;
    };
    proposte(m_luogoNascita, elencoLuoghi, [this, luoghi](int r) {
        if (r >= 0 && r < luoghi->size())
            comando([this, c = luoghi->at(r)] { m_logica->LuogoNascita_Conferma(c); });
    });
    proposte(m_luogoDocumento, elencoLuoghi, [this, luoghi](int r) {
        if (r >= 0 && r < luoghi->size())
            comando([this, c = luoghi->at(r)] { m_logica->LuogoDocumento_Conferma(c); });
    });
    for (QLineEdit* e : { m_cittadinanza, m_nazione, m_statoNascita })
        proposte(
            e, [this](const QString& t) { return m_logica->proposteStati(t); }, [](int) {});
    proposte(
        m_tipoDocumento, [this](const QString& t) { return m_logica->proposteDocumenti(t); }, [](int) {});

    aggiorna();
}

SchedaAnagraficaWidget::~SchedaAnagraficaWidget()
{
    // The logic goes before the controls: a field that loses the focus on the way must not reach it.
    for (QObject* figlio : findChildren<QObject*>()) {
        figlio->removeEventFilter(this);
        QObject::disconnect(figlio, nullptr, this, nullptr);
    }
    m_logica.reset();
}

QLineEdit* SchedaAnagraficaWidget::campo(const char* nome, QWidget* genitore)
{
    auto* e = new QLineEdit(genitore);
    e->setObjectName(QLatin1String(nome));
    // The residence town is the field Comune.
    const QString campoTabella = qstrcmp(nome, "Citta") == 0 ? QStringLiteral("Comune") : QLatin1String(nome);
    if (const int massimo = dimensioneCampoAnagrafica(campoTabella); massimo > 0)
        e->setMaxLength(massimo);
    return e;
}

void SchedaAnagraficaWidget::reject()
{
    leggi();
    if (m_logica->Fine_Click())
        QDialog::reject();
    else
        aggiorna();
}

void SchedaAnagraficaWidget::showEvent(QShowEvent* evento)
{
    // Shown only when the caller can open a reservation: never a button that does nothing.
    m_caricaPrenotazione->setVisible(
        isSignalConnected(QMetaMethod::fromSignal(&SchedaAnagraficaWidget::apriPrenotazione)));
    QDialog::showEvent(evento);
}

void SchedaAnagraficaWidget::cerca()
{
    leggi();
    // Loading another card would drop what was typed on this one.
    if (!m_logica->Fine_Click()) {
        aggiorna();
        return;
    }
    ElencoAnagraficheWidget elenco([this](const QString& filtro) { return m_logica->elenco(filtro); }, this);
    if (elenco.exec() == QDialog::Accepted && elenco.scelta() > 0)
        m_logica->carica(elenco.scelta());
    aggiorna();
}

void SchedaAnagraficaWidget::caricaPrenotazione()
{
    const int r = m_soggiorni->currentRow();
    if (r < 0 || r >= m_logica->soggiorni().size()) {
        m_logica->interazione().messaggio(QStringLiteral("Attenzione, selezionare la prenotazione da caricare!"));
        return;
    }
    emit apriPrenotazione(m_logica->soggiorni().at(r).indicePrenotazioneAssociata);
    // The stay may have changed there.
    if (!m_logica->nuova() && !m_logica->modificata()) {
        m_logica->carica(m_logica->dati().Indice);
        aggiorna();
    }
}

void SchedaAnagraficaWidget::comando(const std::function<void()>& azione)
{
    leggi();
    azione();
    aggiorna();
}

void SchedaAnagraficaWidget::cercaComune(QLineEdit* sorgente)
{
    leggi();
    const auto campo = sorgente == m_cap ? SchedaAnagrafica::CampoComune::Cap
        : sorgente == m_citta            ? SchedaAnagrafica::CampoComune::Citta
                                         : SchedaAnagrafica::CampoComune::Provincia;
    const QList<ComuneProposto> trovati = m_logica->COMUNE_Ricerca(campo, sorgente->text());
    mostraComuniProposti(m_cittaVL, m_moduloResidenza, trovati);
    const int cursore = sorgente->cursorPosition();
    aggiorna();
    sorgente->setCursorPosition(qMin(cursore, static_cast<int>(sorgente->text().size())));
}

void SchedaAnagraficaWidget::confermaComune()
{
    const std::optional<ComuneProposto> scelto = comuneSceltoDa(m_cittaVL);
    if (!scelto)
        return;
    comando([this, c = *scelto] { m_logica->COMUNE_ConfermaSelezionato(c); });
    nascondiProposti();
    m_indirizzo->setFocus();
}

void SchedaAnagraficaWidget::nascondiProposti()
{
    m_moduloResidenza->setRowVisible(m_cittaVL, false);
}

bool SchedaAnagraficaWidget::eventFilter(QObject* oggetto, QEvent* evento)
{
    if (evento->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent*>(evento)->key();
        if (oggetto == m_cittaVL) {
            if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter) {
                confermaComune();
                return true;
            }
            if (tasto == Qt::Key_Escape) {
                nascondiProposti();
                return true;
            }
        } else if (m_cittaVL->isVisible()) {
            // From the field, the arrow enters the list and Escape closes it.
            if (tasto == Qt::Key_Down) {
                m_cittaVL->setFocus();
                return true;
            }
            if (tasto == Qt::Key_Escape) {
                nascondiProposti();
                return true;
            }
            if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter) {
                confermaComune();
                return true;
            }
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

} // namespace tomvera
