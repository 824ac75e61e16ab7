#include "foundation/ui/fconfigurazioniaiuti.h"
#include "foundation/ui/fconfigurazioniwidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>
#include <QTimeEdit>
#include <QVBoxLayout>

// The tabs of the settings screen and the bindings of their controls to the settings.
namespace tomvera {

using namespace configurazioniui;

namespace {

// A double-clicked line edit: the backup folder opens its folder choice this way.
class CampoDoppioClic : public QLineEdit
{
public:
    std::function<void()> doppioClic;

protected:
    void mouseDoubleClickEvent(QMouseEvent* e) override
    {
        QLineEdit::mouseDoubleClickEvent(e);
        if (doppioClic)
            doppioClic();
    }
};

const QLocale italiano(QLocale::Italian, QLocale::Italy);

} // namespace

QPushButton* FConfigurazioniWidget::pulsante(const char* nome, const QString& testo)
{
    auto* p = new QPushButton(testo);
    p->setObjectName(nomeOggetto(nome));
    p->setAutoDefault(false);
    return p;
}

QLineEdit* FConfigurazioniWidget::testo(QFormLayout* f, const char* nome, const QString& etichetta,
                                        QString Configurazione::*campo)
{
    auto* e = new QLineEdit;
    e->setObjectName(nomeOggetto(nome));
    f->addRow(etichetta, e);
    m_dentro.push_back([this, e, campo] { e->setText(m_logica.valori.*campo); });
    m_fuori.push_back([this, e, campo] { m_logica.valori.*campo = e->text().trimmed(); });
    return e;
}

QCheckBox* FConfigurazioniWidget::spunta(const char* nome, const QString& etichetta, bool Configurazione::*campo)
{
    auto* c = new QCheckBox(etichetta);
    c->setObjectName(nomeOggetto(nome));
    m_dentro.push_back([this, c, campo] { c->setChecked(m_logica.valori.*campo); });
    m_fuori.push_back([this, c, campo] { m_logica.valori.*campo = c->isChecked(); });
    return c;
}

QDoubleSpinBox* FConfigurazioniWidget::numero(QFormLayout* f, const char* nome, const QString& etichetta,
                                              double Configurazione::*campo, double massimo)
{
    auto* n = new QDoubleSpinBox;
    n->setObjectName(nomeOggetto(nome));
    n->setLocale(italiano);
    n->setDecimals(2);
    n->setRange(0, massimo);
    n->setGroupSeparatorShown(true);
    n->setMaximumWidth(140);
    f->addRow(etichetta, n);
    m_dentro.push_back([this, n, campo] { n->setValue(m_logica.valori.*campo); });
    m_fuori.push_back([this, n, campo] { m_logica.valori.*campo = n->value(); });
    return n;
}

void FConfigurazioniWidget::intero(QFormLayout* f, const char* nome, const QString& etichetta,
                                   int Configurazione::*campo, int massimo, int minimo)
{
    auto* n = new QSpinBox;
    n->setObjectName(nomeOggetto(nome));
    n->setRange(minimo, massimo);
    n->setMaximumWidth(140);
    f->addRow(etichetta, n);
    m_dentro.push_back([this, n, campo] { n->setValue(m_logica.valori.*campo); });
    m_fuori.push_back([this, n, campo] { m_logica.valori.*campo = n->value(); });
}

void FConfigurazioniWidget::ora(QFormLayout* f, const char* nome, const QString& etichetta,
                                QTime Configurazione::*campo)
{
    auto* o = new QTimeEdit;
    o->setObjectName(nomeOggetto(nome));
    o->setDisplayFormat(QStringLiteral("HH.mm"));
    o->setMaximumWidth(140);
    f->addRow(etichetta, o);
    m_dentro.push_back([this, o, campo] { o->setTime(m_logica.valori.*campo); });
    m_fuori.push_back([this, o, campo] { m_logica.valori.*campo = o->time(); });
}

QWidget* FConfigurazioniWidget::schedaIntestazione()
{
    auto* pagina = new QWidget;
    auto* griglia = new QGridLayout(pagina);
    auto* f = modulo();
    testo(f, "RagSociale", QStringLiteral("Ragione sociale"), &Configurazione::RagSociale);
    testo(f, "Indirizzo", QStringLiteral("Indirizzo"), &Configurazione::Indirizzo);
    testo(f, "Cap", QStringLiteral("Cap"), &Configurazione::Cap)->setMaximumWidth(100);
    testo(f, "Comune", QStringLiteral("Comune"), &Configurazione::Comune);
    testo(f, "Provincia", QStringLiteral("Provincia"), &Configurazione::Provincia)->setMaximumWidth(60);
    testo(f, "Piva", QStringLiteral("Partita Iva"), &Configurazione::Piva);
    testo(f, "CodFis", QStringLiteral("Codice fiscale"), &Configurazione::CodFis);
    testo(f, "Tel", QStringLiteral("Telefono"), &Configurazione::Tel);
    testo(f, "Fax", QStringLiteral("Fax"), &Configurazione::Fax);
    testo(f, "TipoEsercizio", QStringLiteral("Tipo esercizio"), &Configurazione::TipoEsercizio);
    testo(f, "Stelle", QStringLiteral("Stelle"), &Configurazione::Stelle)->setMaximumWidth(60);
    griglia->addWidget(gruppo(QStringLiteral("DATI STRUTTURA"), f), 0, 0, 2, 1);

    auto* logo = new QVBoxLayout;
    m_logo = new QLabel;
    m_logo->setObjectName(QStringLiteral("ImmagineLogo"));
    m_logo->setFixedSize(220, 120);
    m_logo->setAlignment(Qt::AlignCenter);
    m_logo->setFrameShape(QFrame::StyledPanel);
    logo->addWidget(m_logo, 0, Qt::AlignHCenter);
    auto* comandiLogo = new QHBoxLayout;
    auto* carica = pulsante("CaricaLogo", QStringLiteral("Carica Logo..."));
    auto* rimuovi = pulsante("RimuoviLogo", QStringLiteral("Rimuovi Logo"));
    comandiLogo->addWidget(carica);
    comandiLogo->addWidget(rimuovi);
    logo->addLayout(comandiLogo);
    griglia->addWidget(gruppo(QStringLiteral("LOGO"), logo), 0, 1);
    connect(carica, &QPushButton::clicked, this, [this] {
        if (m_logica.CaricaLogo_Click())
            mostraLogo();
    });
    connect(rimuovi, &QPushButton::clicked, this, [this] {
        m_logica.RimuoviLogo_Click();
        mostraLogo();
    });

    auto* opzioni = new QVBoxLayout;
    opzioni->addWidget(spunta("VisualizzaIntestazione", QStringLiteral("Visualizza intestazione"),
                              &Configurazione::VisualizzaIntestazione));
    opzioni->addWidget(spunta("VisualizzaLogo", QStringLiteral("Visualizza logo"), &Configurazione::VisualizzaLogo));
    opzioni->addWidget(spunta("NascondiIntestazioneInStampaDocumenti",
                              QStringLiteral("Nascondi intestazione in stampa documenti"),
                              &Configurazione::NascondiIntestazioneInStampaDocumenti));
    opzioni->addWidget(spunta("NascondiLogoInStampaDocumenti", QStringLiteral("Nascondi logo in stampa documenti"),
                              &Configurazione::NascondiLogoInStampaDocumenti));
    opzioni->addWidget(spunta("NascondiRuvo", QStringLiteral("Nascondi riga del produttore in stampa"),
                              &Configurazione::NascondiRuvo));
    auto* personalizzazione = modulo();
    testo(personalizzazione, "NomePersonalizzazione", QStringLiteral("Stampe personalizzate"),
          &Configurazione::NomePersonalizzazione);
    opzioni->addLayout(personalizzazione);
    griglia->addWidget(gruppo(QStringLiteral("OPZIONI DI STAMPA"), opzioni), 1, 1);
    griglia->setRowStretch(2, 1);
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaBanca()
{
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);
    auto* f = modulo();
    testo(f, "Banca", QStringLiteral("Banca"), &Configurazione::Banca);
    testo(f, "Agenzia", QStringLiteral("Agenzia"), &Configurazione::Agenzia);
    testo(f, "Abi", QStringLiteral("ABI"), &Configurazione::Abi)->setMaximumWidth(120);
    testo(f, "Cab", QStringLiteral("CAB"), &Configurazione::Cab)->setMaximumWidth(120);
    testo(f, "Cin", QStringLiteral("CIN"), &Configurazione::Cin)->setMaximumWidth(60);
    testo(f, "CC", QStringLiteral("Conto corrente"), &Configurazione::CC);
    testo(f, "Iban", QStringLiteral("IBAN"), &Configurazione::Iban);
    v->addWidget(gruppo(QStringLiteral("COORDINATE BANCARIE"), f));
    v->addStretch();
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaMessaggi()
{
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);
    auto areaTesto = [this](const char* nome, QString Configurazione::*campo) {
        auto* t = new QPlainTextEdit;
        t->setObjectName(nomeOggetto(nome));
        t->setMaximumHeight(110);
        m_dentro.push_back([this, t, campo] { t->setPlainText(m_logica.valori.*campo); });
        m_fuori.push_back([this, t, campo] { m_logica.valori.*campo = t->toPlainText(); });
        return t;
    };
    auto* fineDoc = new QVBoxLayout;
    fineDoc->addWidget(areaTesto("MessaggioFineDoc", &Configurazione::MessaggioFineDoc));
    auto* r1 = new QHBoxLayout;
    r1->addWidget(
        spunta("MostraMessaggioFineDoc", QStringLiteral("Mostra in stampa"), &Configurazione::MostraMessaggioFineDoc));
    r1->addWidget(spunta("NascondiDataEdOraDiStampa", QStringLiteral("Nascondi data ed ora di stampa"),
                         &Configurazione::NascondiDataEdOraDiStampa));
    r1->addStretch();
    fineDoc->addLayout(r1);
    v->addWidget(gruppo(QStringLiteral("Messaggio fine documenti"), fineDoc));

    auto* scheda = new QVBoxLayout;
    scheda->addWidget(areaTesto("MessaggioModuloArrivo", &Configurazione::MessaggioModuloArrivo));
    auto* r2 = new QGridLayout;
    r2->addWidget(spunta("MostraMessaggioModuloArrivo", QStringLiteral("Mostra in stampa"),
                         &Configurazione::MostraMessaggioModuloArrivo),
                  0, 0);
    r2->addWidget(spunta("NascondiFirmeSchedaDiNotifica", QStringLiteral("Nascondi firme"),
                         &Configurazione::NascondiFirmeSchedaDiNotifica),
                  0, 1);
    r2->addWidget(spunta("NascondiFirmeSchedaDiNotificaDichiarante", QStringLiteral("Solo firma del dichiarante"),
                         &Configurazione::NascondiFirmeSchedaDiNotificaDichiarante),
                  1, 0);
    r2->addWidget(spunta("StampaModuloArrivoInDupliceCopia", QStringLiteral("Stampa in duplice copia"),
                         &Configurazione::StampaModuloArrivoInDupliceCopia),
                  1, 1);
    scheda->addLayout(r2);
    v->addWidget(gruppo(QStringLiteral("MESSAGGIO SCHEDA DI NOTIFICA"), scheda));
    v->addStretch();
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaIva()
{
    auto* pagina = new QWidget;
    auto* griglia = new QGridLayout(pagina);
    auto* tabella = modulo();
    for (size_t k = 0; k < 9; ++k) {
        auto* n = new QDoubleSpinBox;
        n->setObjectName(QStringLiteral("ValIva") + QString::number(k));
        n->setLocale(italiano);
        n->setDecimals(2);
        n->setRange(0, 99.99);
        n->setSuffix(QStringLiteral(" %"));
        n->setMaximumWidth(120);
        tabella->addRow(QStringLiteral("Aliquota %1").arg(k), n);
        m_valIva[k] = n;
        m_dentro.push_back([this, n, k] { n->setValue(m_logica.valori.ValIva[k]); });
        m_fuori.push_back([this, n, k] { m_logica.valori.ValIva[k] = n->value(); });
    }
    auto* nota = new QLabel(QStringLiteral("Le aliquote usate da documenti o listini sono bloccate."));
    nota->setObjectName(QStringLiteral("NotaIveBloccate"));
    nota->setWordWrap(true);
    tabella->addRow(nota);
    griglia->addWidget(gruppo(QStringLiteral("TABELLA ALIQUOTE"), tabella), 0, 0, 2, 1);

    auto* predefinite = modulo();
    numero(predefinite, "IvaPrenotazioni", QStringLiteral("Iva prenotazioni"), &Configurazione::IvaPrenotazioni, 99.99);
    numero(predefinite, "IvaAbbuono", QStringLiteral("Iva abbuono"), &Configurazione::IvaAbbuono, 99.99);
    numero(predefinite, "IvaSky", QStringLiteral("Iva Sky"), &Configurazione::IvaSky, 99.99);
    numero(predefinite, "IvaCentralino", QStringLiteral("Iva centralino"), &Configurazione::IvaCentralino, 99.99);
    griglia->addWidget(gruppo(QStringLiteral("ALIQUOTE PREDEFINITE"), predefinite), 0, 1);

    auto* dicitura = new QVBoxLayout;
    auto* imposta = new QRadioButton(QStringLiteral("Utilizza dicitura IMPOSTA"));
    imposta->setObjectName(QStringLiteral("UtilizzaImposta"));
    auto* iva = new QRadioButton(QStringLiteral("Utilizza dicitura IVA"));
    iva->setObjectName(QStringLiteral("UtilizzaIva"));
    dicitura->addWidget(imposta);
    dicitura->addWidget(iva);
    m_dentro.push_back([this, imposta, iva] {
        imposta->setChecked(m_logica.valori.UsaImposta);
        iva->setChecked(!m_logica.valori.UsaImposta);
    });
    m_fuori.push_back([this, imposta] { m_logica.valori.UsaImposta = imposta->isChecked(); });
    dicitura->addSpacing(12);
    dicitura->addWidget(spunta("AbilitaDiagnosticaErrori", QStringLiteral("Abilita Diagnostica Errori"),
                               &Configurazione::AbilitaDiagnosticaErrori));
    griglia->addWidget(gruppo(QStringLiteral("DICITURA E DIAGNOSTICA"), dicitura), 1, 1);
    griglia->setRowStretch(2, 1);
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaBackup()
{
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);
    auto cartella = [this](const char* nome, QString Configurazione::*campo) {
        auto* e = new CampoDoppioClic;
        e->setObjectName(nomeOggetto(nome));
        m_dentro.push_back([this, e, campo] { e->setText(m_logica.valori.*campo); });
        m_fuori.push_back([this, e, campo] { m_logica.valori.*campo = e->text().trimmed(); });
        // Leaving the field with another folder asks whether to keep it.
        connect(e, &QLineEdit::editingFinished, this, [this, e, campo] {
            if (!e->isModified())
                return;
            e->setModified(false);
            QString valore = e->text().trimmed();
            m_logica.ControllaCartellaBackup(valore);
            m_logica.valori.*campo = valore;
            e->setText(valore);
        });
        return e;
    };
    auto* manuale = modulo();
    auto* percorso = cartella("PercorsoBackup", &Configurazione::PercorsoBackup);
    percorso->setToolTip(QStringLiteral("Doppio clic per scegliere la cartella"));
    percorso->doppioClic = [this, percorso] {
        m_logica.PercorsoBackup_DblClick();
        percorso->setText(m_logica.valori.PercorsoBackup);
    };
    m_percorsoBackup = percorso;
    manuale->addRow(QStringLiteral("Cartella"), percorso);
    auto* comandi = new QHBoxLayout;
    auto* backup = pulsante("Backup", QStringLiteral("Esegui Backup Archivio"));
    auto* ripristina = pulsante("RipristinaDb", QStringLiteral("Ripristina Backup..."));
    comandi->addWidget(backup);
    comandi->addWidget(ripristina);
    comandi->addStretch();
    manuale->addRow(comandi);
    m_comandiEsterni.push_back({ backup, &m_logica.EseguiBackup });
    m_comandiEsterni.push_back({ ripristina, &m_logica.RipristinaBackup });
    v->addWidget(gruppo(QStringLiteral("PERCORSO BACKUP MANUALE"), manuale));

    auto* automatico = modulo();
    m_percorsoBackupAutomatico = cartella("PercorsoBackupAutomatico", &Configurazione::PercorsoBackupAutomatico);
    automatico->addRow(QStringLiteral("Cartella"), m_percorsoBackupAutomatico);
    automatico->addRow(spunta("SalvataggioAutomatico", QStringLiteral("Backup automatico all'avvio (uno al giorno)"),
                              &Configurazione::SalvataggioAutomatico));
    intero(automatico, "NumeroBackupDaMantenere", QStringLiteral("Numero di backup da mantenere"),
           &Configurazione::NumeroBackupDaMantenere, 999, 1);
    v->addWidget(gruppo(QStringLiteral("BACKUP AUTOMATICO"), automatico));

    auto* ottimizza = new QHBoxLayout;
    auto* command3 = pulsante("Command3", QStringLiteral("Ottimizzazione Archivio"));
    ottimizza->addWidget(command3);
    ottimizza->addStretch();
    m_comandiEsterni.push_back({ command3, &m_logica.OttimizzazioneArchivio });
    m_gruppoOttimizzazione = gruppo(QStringLiteral("OTTIMIZZAZIONE ARCHIVI"), ottimizza);
    v->addWidget(m_gruppoOttimizzazione);
    v->addStretch();
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaSaleRistorante()
{
    auto* pagina = new QWidget;
    auto* griglia = new QGridLayout(pagina);
    auto* sale = modulo();
    auto* intervallo = new QComboBox;
    intervallo->setObjectName(QStringLiteral("IntervalloSale"));
    intervallo->addItems(configurazione::intervalliSale());
    intervallo->setMaximumWidth(140);
    sale->addRow(QStringLiteral("Intervallo sale"), intervallo);
    m_dentro.push_back([this, intervallo] { intervallo->setCurrentText(m_logica.valori.IntervalloSale); });
    m_fuori.push_back([this, intervallo] { m_logica.valori.IntervalloSale = intervallo->currentText(); });
    ora(sale, "OraPropostaColazione", QStringLiteral("Ora proposta colazione"), &Configurazione::OraPropostaColazione);
    ora(sale, "OraPropostaPranzo", QStringLiteral("Ora proposta pranzo"), &Configurazione::OraPropostaPranzo);
    ora(sale, "OraPropostaCena", QStringLiteral("Ora proposta cena"), &Configurazione::OraPropostaCena);
    numero(sale, "IvaRistorante", QStringLiteral("Iva ristorante"), &Configurazione::IvaRistorante, 99.99);
    numero(sale, "IvaPrenotazioniSale", QStringLiteral("Iva prenotazioni sale"), &Configurazione::IvaPrenotazioniSale,
           99.99);
    griglia->addWidget(gruppo(QStringLiteral("PARAMETRI SALE / RISTORANTE"), sale), 0, 0);

    auto* spiaggia = modulo();
    numero(spiaggia, "IvaSpiaggia", QStringLiteral("Iva spiaggia"), &Configurazione::IvaSpiaggia, 99.99);
    numero(spiaggia, "IvaAbbuonoSpiaggia", QStringLiteral("Iva abbuono spiaggia"), &Configurazione::IvaAbbuonoSpiaggia,
           99.99);
    testo(spiaggia, "StagionaleDal", QStringLiteral("Stagione dal (gg/mm)"), &Configurazione::StagionaleDal)
        ->setMaximumWidth(80);
    testo(spiaggia, "StagionaleAl", QStringLiteral("Stagione al (gg/mm)"), &Configurazione::StagionaleAl)
        ->setMaximumWidth(80);
    griglia->addWidget(gruppo(QStringLiteral("PARAMETRI SPIAGGIA"), spiaggia), 0, 1);

    auto* trattamenti = modulo();
    numero(trattamenti, "PrezzoAggiuntivoPernottamento", QStringLiteral("Pernottamento"),
           &Configurazione::PrezzoAggiuntivoPernottamento);
    numero(trattamenti, "PrezzoAggiuntivoPernottamentoeColazione", QStringLiteral("Pernottamento e colazione"),
           &Configurazione::PrezzoAggiuntivoPernottamentoeColazione);
    numero(trattamenti, "PrezzoAggiuntivoMezzaPensione", QStringLiteral("Mezza pensione"),
           &Configurazione::PrezzoAggiuntivoMezzaPensione);
    numero(trattamenti, "PrezzoAggiuntivoPensioneCompleta", QStringLiteral("Pensione completa"),
           &Configurazione::PrezzoAggiuntivoPensioneCompleta);
    griglia->addWidget(gruppo(QStringLiteral("PREZZI AGGIUNTIVI TRATTAMENTI"), trattamenti), 1, 0);
    griglia->setRowStretch(2, 1);
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaPassword()
{
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);
    auto* f = modulo();
    m_statoPassword = new QLabel;
    m_statoPassword->setObjectName(QStringLiteral("StatoPassword"));
    f->addRow(m_statoPassword);
    m_passwordProgramma = new QLineEdit;
    m_passwordProgramma->setObjectName(QStringLiteral("PasswordProgramma"));
    m_passwordProgramma->setEchoMode(QLineEdit::Password);
    m_confermaPasswordProgramma = new QLineEdit;
    m_confermaPasswordProgramma->setObjectName(QStringLiteral("ConfermaPasswordProgramma"));
    m_confermaPasswordProgramma->setEchoMode(QLineEdit::Password);
    f->addRow(QStringLiteral("Password Programma"), m_passwordProgramma);
    f->addRow(QStringLiteral("Conferma Password"), m_confermaPasswordProgramma);
    m_rimuoviPasswordProgramma = new QCheckBox(QStringLiteral("Nessuna password (accesso libero)"));
    m_rimuoviPasswordProgramma->setObjectName(QStringLiteral("RimuoviPasswordProgramma"));
    f->addRow(m_rimuoviPasswordProgramma);
    auto* nota = new QLabel(QStringLiteral("Da 4 a 12 caratteri. Lasciare vuoti i campi per non modificarla. "
                                           "La password protegge le configurazioni e l'accesso come Amministratore."));
    nota->setWordWrap(true);
    f->addRow(nota);
    connect(m_rimuoviPasswordProgramma, &QCheckBox::toggled, this, [this](bool si) {
        m_passwordProgramma->setEnabled(!si);
        m_confermaPasswordProgramma->setEnabled(!si);
    });
    v->addWidget(gruppo(QStringLiteral("PASSWORD AMMINISTRATORE"), f));
    v->addStretch();
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaSky()
{
    auto* pagina = new QWidget;
    auto* v = new QVBoxLayout(pagina);
    v->addWidget(spunta("Sky", QStringLiteral("Abilita Gestione \"Camera con Sky\""), &Configurazione::Sky));
    auto* connessione = modulo();
    testo(connessione, "CodiceUtente", QStringLiteral("Codice utente"), &Configurazione::CodiceUtente);
    testo(connessione, "CodiceHotel", QStringLiteral("Codice hotel"), &Configurazione::CodiceHotel);
    testo(connessione, "IDChiaveHotel", QStringLiteral("ID chiave hotel"), &Configurazione::IDChiaveHotel);
    testo(connessione, "DNS", QStringLiteral("DNS"), &Configurazione::DNS);
    v->addWidget(gruppo(QStringLiteral("PARAMETRI CONNESSIONE"), connessione));
    auto* vari = modulo();
    ora(vari, "CheckIn", QStringLiteral("Check-in"), &Configurazione::CheckIn);
    ora(vari, "CheckOut", QStringLiteral("Check-out"), &Configurazione::CheckOut);
    auto* manuale = new QRadioButton(QStringLiteral("Procedura manuale"));
    manuale->setObjectName(QStringLiteral("ProceduraManualeSky"));
    auto* automatica = new QRadioButton(QStringLiteral("Procedura automatica"));
    automatica->setObjectName(QStringLiteral("ProceduraAutomaticaSky"));
    vari->addRow(manuale);
    vari->addRow(automatica);
    m_dentro.push_back([this, manuale, automatica] {
        manuale->setChecked(m_logica.valori.ProceduraManualeSky);
        automatica->setChecked(m_logica.valori.ProceduraAutomaticaSky);
    });
    m_fuori.push_back([this, manuale, automatica] {
        m_logica.valori.ProceduraManualeSky = manuale->isChecked();
        m_logica.valori.ProceduraAutomaticaSky = automatica->isChecked();
    });
    intero(vari, "IntervalloAggiornamentoAutomaticoSky", QStringLiteral("Aggiornamento automatico ogni (minuti)"),
           &Configurazione::IntervalloAggiornamentoAutomaticoSky, 1440);
    v->addWidget(gruppo(QStringLiteral("PARAMETRI VARI"), vari));
    v->addStretch();
    return pagina;
}

QWidget* FConfigurazioniWidget::schedaVarie()
{
    auto* pagina = new QWidget;
    auto* griglia = new QGridLayout(pagina);
    auto* arrivi = modulo();
    ora(arrivi, "CheckInDalleOre", QStringLiteral("Check-In dalle ore:"), &Configurazione::CheckInDalleOre);
    ora(arrivi, "CheckOutEntroLeOre", QStringLiteral("Check-Out entro le ore:"), &Configurazione::CheckOutEntroLeOre);
    griglia->addWidget(gruppo(QStringLiteral("ARRIVI  E  PARTENZE"), arrivi), 0, 0);

    auto* aggiornamenti = modulo();
    aggiornamenti->addRow(spunta("DisabilitaControlloAggiornamenti",
                                 QStringLiteral("Disabilita Controllo Aggiornamenti Software"),
                                 &Configurazione::DisabilitaControlloAggiornamenti));
    testo(aggiornamenti, "NomeServer", QStringLiteral("Server ora esatta"), &Configurazione::NomeServer)
        ->setPlaceholderText(QStringLiteral("nessun controllo dell'ora"));
    griglia->addWidget(gruppo(QStringLiteral("AGGIORNAMENTI  SOFTWARE"), aggiornamenti), 0, 1);

    auto* centralino = modulo();
    centralino->addRow(spunta("AbilitaGestioneCentralinoTelefonico", QStringLiteral("Abilita gestione centralino"),
                              &Configurazione::AbilitaGestioneCentralinoTelefonico));
    testo(centralino, "Centralino", QStringLiteral("Modello centralino"), &Configurazione::Centralino);
    numero(centralino, "CostoAScattoCentralino", QStringLiteral("Costo a scatto"),
           &Configurazione::CostoAScattoCentralino);
    numero(centralino, "CostoAlMinutoCentralino", QStringLiteral("Costo al minuto"),
           &Configurazione::CostoAlMinutoCentralino);
    numero(centralino, "SecondiAggiornamentoCentralino", QStringLiteral("Lettura ogni (secondi)"),
           &Configurazione::SecondiAggiornamentoCentralino, 86400);
    centralino->addRow(spunta("UtilizzaTabelladiCorrispondenzaCamere",
                              QStringLiteral("Utilizza tabella di corrispondenza camere"),
                              &Configurazione::UtilizzaTabelladiCorrispondenzaCamere));
    griglia->addWidget(gruppo(QStringLiteral("CENTRALINO TELEFONICO"), centralino), 1, 0);

    auto* stampanti = modulo();
    auto scelta = [this, stampanti](const char* nome, const QString& etichetta, QString Configurazione::*campo) {
        auto* c = new QComboBox;
        c->setObjectName(nomeOggetto(nome));
        c->setEditable(false);
        c->setMinimumWidth(240);
        stampanti->addRow(etichetta, c);
        m_dentro.push_back([this, c, campo] {
            c->clear();
            c->addItem(QString());
            c->addItems(m_logica.stampanti);
            const QString attuale = m_logica.valori.*campo;
            if (!attuale.isEmpty() && c->findText(attuale) < 0)
                c->addItem(attuale); // kept even when not installed on this machine
            c->setCurrentText(attuale);
        });
        m_fuori.push_back([this, c, campo] { m_logica.valori.*campo = c->currentText(); });
    };
    scelta("prnDocs", QStringLiteral("Stampante documenti"), &Configurazione::prnDocs);
    scelta("prnDocumenti", QStringLiteral("Stampante moduli"), &Configurazione::prnDocumenti);
    scelta("prnPdf", QStringLiteral("Stampante PDF"), &Configurazione::prnPdf);
    griglia->addWidget(gruppo(QStringLiteral("STAMPANTI PREDEFINITE"), stampanti), 1, 1);

    auto* rete = new QGridLayout;
    const std::tuple<const char*, const char*, bool FConfigurazioni::*, QString> voci[] = {
        { "MostraIpPrivato", "Mostra IP privato", &FConfigurazioni::MostraIpPrivato, FConfigurazioni::ipPrivato() },
        { "MostraIpPubblico", "Mostra IP pubblico", &FConfigurazioni::MostraIpPubblico,
          QStringLiteral("non disponibile") },
        { "MostraNome", "Mostra nome computer", &FConfigurazioni::MostraNome, FConfigurazioni::nomeComputer() },
    };
    int r = 0;
    for (const auto& [nome, etichetta, campo, valore] : voci) {
        auto* c = new QCheckBox(QString::fromUtf8(etichetta));
        c->setObjectName(nomeOggetto(nome));
        auto* l = new QLabel(valore);
        l->setObjectName(nomeOggetto(nome) + QStringLiteral("Valore"));
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        rete->addWidget(c, r, 0);
        rete->addWidget(l, r++, 1);
        m_dentro.push_back([this, c, l, campo = campo] {
            QSignalBlocker blocco(c);
            c->setChecked(m_logica.*campo);
            l->setVisible(m_logica.*campo);
        });
        connect(c, &QCheckBox::toggled, this, [this, l, campo = campo](bool si) {
            m_logica.*campo = si;
            l->setVisible(si);
            m_logica.SalvaSceltaRete();
        });
    }
    rete->setColumnStretch(1, 1);
    griglia->addWidget(gruppo(QStringLiteral("RETE"), rete), 2, 0, 1, 2);

    auto* aziende = new QHBoxLayout;
    aziende->addWidget(spunta("MultiAzienda", QStringLiteral("Abilita Multi Azienda"), &Configurazione::MultiAzienda));
    auto* configuraAziende = pulsante("ConfigurazioneMultiAzienda", QStringLiteral("Configurazione Multi Azienda"));
    aziende->addWidget(configuraAziende);
    aziende->addStretch();
    m_comandiEsterni.push_back({ configuraAziende, &m_logica.ConfigurazioneMultiAzienda });
    auto* maiuscole = pulsante("TrasformaInMaiuscole", QStringLiteral("Trasforma in Maiuscole"));
    aziende->addWidget(maiuscole);
    m_comandiEsterni.push_back({ maiuscole, &m_logica.TrasformaInMaiuscole });
    griglia->addWidget(gruppo(QStringLiteral("MULTI AZIENDA"), aziende), 3, 0, 1, 2);
    griglia->setRowStretch(4, 1);
    return pagina;
}

} // namespace tomvera
