#include "foundation/ui/avvioselezioneutentewidget.h"

#include "foundation/avvio/avvioselezioneutente.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace tomvera {

namespace {

QPushButton* pulsante(QWidget* genitore, const char* nome, const QString& testo)
{
    auto* p = new QPushButton(testo, genitore);
    p->setObjectName(QString::fromLatin1(nome));
    return p;
}

} // namespace

AvvioSelezioneUtenteWidget::AvvioSelezioneUtenteWidget(AvvioSelezioneUtente& logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(logica)
{
    setObjectName(QStringLiteral("F_AvvioSelezioneUtente"));
    m_logica.avanzamentoAggiornamento
        = [this](const QString& riga, int fatti, int totale) { mostraAvanzamento(riga, fatti, totale); };
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    auto* prodotto = new QLabel(AvvioSelezioneUtente::NomeProdotto(), this);
    prodotto->setObjectName(QStringLiteral("Prodotto"));
    QFont grande = prodotto->font();
    grande.setPointSize(grande.pointSize() * 2);
    grande.setBold(true);
    prodotto->setFont(grande);
    prodotto->setAlignment(Qt::AlignCenter);
    m_ver = new QLabel(this);
    m_ver->setObjectName(QStringLiteral("Ver"));
    m_ver->setAlignment(Qt::AlignCenter);

    // Login part.
    m_accesso = new QFrame(this);
    m_accesso->setObjectName(QStringLiteral("FrameAccesso"));
    auto* etichettaUtente = new QLabel(QStringLiteral("Utente"), m_accesso);
    m_utente = new QComboBox(m_accesso);
    m_utente->setObjectName(QStringLiteral("Utente"));
    m_utente->setEditable(false);
    m_utente->setMinimumWidth(220);
    m_utente->installEventFilter(this);
    m_etichettaPassword = new QLabel(QStringLiteral("Password"), m_accesso);
    m_etichettaPassword->setObjectName(QStringLiteral("EtichettaPassword"));
    m_password = new QLineEdit(m_accesso);
    m_password->setObjectName(QStringLiteral("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    m_accedi = pulsante(m_accesso, "Accedi", QStringLiteral("Accedi"));
    m_accedi->setIcon(style()->standardIcon(QStyle::SP_DialogOkButton));
    m_accedi->setDefault(true);
    m_esci = pulsante(m_accesso, "Command1", QStringLiteral("Esci"));
    m_esci->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
    m_esci->setAutoDefault(false);
    m_impostazioni = new QToolButton(m_accesso);
    m_impostazioni->setObjectName(QStringLiteral("Impostazioni"));
    m_impostazioni->setIcon(style()->standardIcon(QStyle::SP_DirIcon));
    m_impostazioni->setToolTip(QStringLiteral("IMPOSTA PERCORSO ARCHIVIO"));
    m_aggiornamento = new QToolButton(m_accesso);
    m_aggiornamento->setObjectName(QStringLiteral("AggiornamentoOnLine"));
    m_aggiornamento->setToolTip(QStringLiteral("SCARICA AGGIORNAMENTI ON LINE"));
    // The online update check is not part of this program yet: no dead button.
    m_aggiornamento->setVisible(false);

    auto* grigliaAccesso = new QGridLayout(m_accesso);
    grigliaAccesso->addWidget(etichettaUtente, 0, 0);
    grigliaAccesso->addWidget(m_utente, 0, 1, 1, 3);
    grigliaAccesso->addWidget(m_etichettaPassword, 1, 0);
    grigliaAccesso->addWidget(m_password, 1, 1, 1, 3);
    grigliaAccesso->addWidget(m_impostazioni, 2, 0);
    grigliaAccesso->addWidget(m_aggiornamento, 2, 1, Qt::AlignLeft);
    grigliaAccesso->addWidget(m_esci, 2, 2);
    grigliaAccesso->addWidget(m_accedi, 2, 3);

    m_errore = new QPlainTextEdit(this);
    m_errore->setObjectName(QStringLiteral("ErroreAvvio"));
    m_errore->setReadOnly(true);
    m_errore->setMinimumHeight(130);
    m_errore->setStyleSheet(QStringLiteral("QPlainTextEdit { color: #c00000; font-weight: bold; }"));
    m_errore->hide();

    // Archive commands, shown by the tall screen.
    m_archivio = new QFrame(this);
    m_archivio->setObjectName(QStringLiteral("FrameArchivio"));
    m_archivio->setFrameShape(QFrame::StyledPanel);
    auto* etichettaPercorso = new QLabel(QStringLiteral("Percorso archivio"), m_archivio);
    m_percorso = new QLineEdit(m_archivio);
    m_percorso->setObjectName(QStringLiteral("PercorsoDataBase"));
    m_percorso->setReadOnly(true);
    auto* command2 = pulsante(m_archivio, "Command2", QStringLiteral("Seleziona Archivio ..."));
    auto* command3 = pulsante(m_archivio, "Command3", QStringLiteral("Imposta Archivio di Default ..."));
    m_command5 = pulsante(m_archivio, "Command5", QStringLiteral("Crea nuovo Archivio in percorso selezionato..."));
    for (QPushButton* p : { command2, command3, m_command5 })
        p->setAutoDefault(false);
    auto* colonnaArchivio = new QVBoxLayout(m_archivio);
    colonnaArchivio->addWidget(etichettaPercorso);
    colonnaArchivio->addWidget(m_percorso);
    colonnaArchivio->addWidget(command2);
    colonnaArchivio->addWidget(command3);
    colonnaArchivio->addWidget(m_command5);

    auto* colonna = new QVBoxLayout(this);
    colonna->setSizeConstraint(QLayout::SetFixedSize);
    colonna->addWidget(prodotto);
    colonna->addWidget(m_ver);
    colonna->addWidget(m_errore);
    colonna->addWidget(m_accesso);
    colonna->addWidget(m_archivio);
    // The layout fixes the size from its contents: the frames set the width.
    for (QWidget* w :
         { static_cast<QWidget*>(m_accesso), static_cast<QWidget*>(m_archivio), static_cast<QWidget*>(m_errore) })
        w->setMinimumWidth(440);

    connect(m_utente, &QComboBox::currentTextChanged, this, [this](const QString& testo) {
        if (m_aggiornando)
            return;
        m_logica.Utente_Click(testo);
        mostra();
    });
    connect(m_password, &QLineEdit::textChanged, this, [this](const QString& testo) {
        if (m_aggiornando)
            return;
        m_logica.Password_Change(testo);
        mostra();
    });
    connect(m_password, &QLineEdit::returnPressed, this, [this] {
        if (m_accedi->isEnabled())
            accedi();
    });
    connect(m_accedi, &QPushButton::clicked, this, &AvvioSelezioneUtenteWidget::accedi);
    connect(m_esci, &QPushButton::clicked, this, &AvvioSelezioneUtenteWidget::reject);
    connect(m_impostazioni, &QToolButton::clicked, this, [this] {
        m_logica.Impostazioni_Click();
        mostra();
    });
    connect(command2, &QPushButton::clicked, this, [this] {
        m_logica.Command2_Click();
        dopoComando();
    });
    connect(command3, &QPushButton::clicked, this, [this] {
        m_logica.Command3_Click();
        dopoComando();
    });
    connect(m_command5, &QPushButton::clicked, this, [this] {
        m_logica.Command5_Click();
        dopoComando();
    });
}

AvvioSelezioneUtenteWidget::~AvvioSelezioneUtenteWidget()
{
    m_logica.avanzamentoAggiornamento = nullptr;
}

void AvvioSelezioneUtenteWidget::mostraAvanzamento(const QString& riga, int fatti, int totale)
{
    // An upgrade of a large archive takes a while: the desk sees it move instead of a frozen screen.
    if (!m_avanzamento) {
        m_avanzamento = new QProgressDialog(this);
        m_avanzamento->setObjectName(QStringLiteral("AggiornamentoArchivio"));
        m_avanzamento->setWindowTitle(QStringLiteral("Aggiornamento archivio alla versione ")
                                      + AvvioSelezioneUtente::VersioneProgramma());
        m_avanzamento->setCancelButton(nullptr);
        m_avanzamento->setMinimumDuration(0);
        m_avanzamento->setAutoClose(false);
        m_avanzamento->setAutoReset(false);
        m_avanzamento->setMinimumWidth(420);
    }
    m_avanzamento->setMaximum(totale);
    m_avanzamento->setValue(fatti);
    if (!riga.isEmpty())
        m_avanzamento->setLabelText(riga);
    if (fatti >= totale && riga.isEmpty()) {
        m_avanzamento->hide();
        return;
    }
    m_avanzamento->show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void AvvioSelezioneUtenteWidget::avvia()
{
    m_logica.Form_Load();
    mostra();
    m_logica.Form_Activate();
    mostra();
    // Centred, its top 200 units (about 13 pixels) above the exact centre.
    if (const QScreen* schermo = screen()) {
        const QRect area = schermo->availableGeometry();
        move(area.center().x() - width() / 2, area.center().y() - height() / 2 - 13);
    }
}

void AvvioSelezioneUtenteWidget::dopoComando()
{
    mostra();
    if (m_logica.Terminato)
        QDialog::reject();
}

void AvvioSelezioneUtenteWidget::mostra()
{
    m_aggiornando = true;
    setWindowTitle(m_logica.Titolo);
    m_ver->setText(m_logica.Ver);
    m_ver->setStyleSheet(m_logica.VerAggiornato ? QStringLiteral("color: #c00000;") : QString());
    if (m_utente->count() != m_logica.Utenti.size() || [&] {
            for (int i = 0; i < m_utente->count(); ++i)
                if (m_utente->itemText(i) != m_logica.Utenti.at(i))
                    return true;
            return false;
        }()) {
        m_utente->clear();
        m_utente->addItems(m_logica.Utenti);
    }
    m_utente->setCurrentIndex(m_utente->findText(m_logica.Utente, Qt::MatchFixedString));
    if (m_password->text() != m_logica.Password)
        m_password->setText(m_logica.Password);
    m_password->setVisible(m_logica.PasswordVisibile);
    m_password->setEnabled(m_logica.PasswordVisibile);
    m_etichettaPassword->setVisible(m_logica.PasswordVisibile);
    m_password->setStyleSheet(
        m_logica.PasswordVisibile
            ? QStringLiteral("QLineEdit { background: #9999ff; lineedit-password-character: 42; }")
            : QStringLiteral("QLineEdit { background: #c0c0c0; lineedit-password-character: 42; }"));
    m_accedi->setEnabled(m_logica.AccediAbilitato);
    m_impostazioni->setEnabled(m_logica.ImpostazioniAbilitato || m_logica.ErroreAvvioVisibile);
    m_aggiornamento->setEnabled(m_logica.AggiornamentoOnLineAbilitato);
    m_errore->setPlainText(m_logica.ErroreAvvio);
    m_errore->setVisible(m_logica.ErroreAvvioVisibile);
    m_accesso->setVisible(true);
    m_utente->setEnabled(!m_logica.ErroreAvvioVisibile);
    m_percorso->setText(m_logica.PercorsoDataBase);
    m_command5->setEnabled(m_logica.Command5Abilitato);
    m_archivio->setVisible(m_logica.Alto);
    m_aggiornando = false;
    // Short or tall at once, not at the next layout pass.
    layout()->activate();
}

void AvvioSelezioneUtenteWidget::accedi()
{
    if (m_logica.Accedi_Click()) {
        accept();
        return;
    }
    mostra();
    if (m_logica.SelezionaPassword) {
        m_password->setFocus();
        m_password->selectAll();
    }
}

void AvvioSelezioneUtenteWidget::reject()
{
    // Escape anywhere does what Command1 does.
    m_logica.Command1_Click();
    QDialog::reject();
}

bool AvvioSelezioneUtenteWidget::eventFilter(QObject* oggetto, QEvent* evento)
{
    if (oggetto == m_utente && evento->type() == QEvent::KeyPress) {
        auto* tasto = static_cast<QKeyEvent*>(evento);
        if (tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter) {
            if (m_password->isVisible())
                m_password->setFocus();
            else if (m_accedi->isEnabled())
                accedi();
            return true;
        }
        // The list moves with the arrows only: typed letters would jump to another user unseen.
        if (!tasto->text().isEmpty() && tasto->text().at(0).isPrint())
            return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

} // namespace tomvera
