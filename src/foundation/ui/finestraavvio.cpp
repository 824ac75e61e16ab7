#include "foundation/ui/finestraavvio.h"

#include "foundation/avvio/avvio.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

namespace tomvera {

namespace {

struct DefinizioneTimer
{
    const char* nome;
    int intervallo;
    bool singolo;
};

// All start disabled; the board and the services start them.
const DefinizioneTimer timerAvvio[] = {
    { "TimerAggiorna", 400, true },
    { "Timer1", 50, true },
    { "Timer2", 150, false },
    { "TimerInfoCamera", 200, true },
    { "TimerCentralino", 60000, false },
    { "TimerControllaAggiornamentiOnLine", 100, true },
    { "TimerSky", 60000, false },
};

} // namespace

FinestraAvvio::FinestraAvvio(Avvio& logica, QWidget* genitore)
    : QMainWindow(genitore)
    , m_logica(logica)
{
    setObjectName(QStringLiteral("Avvio"));
    resize(1100, 720);

    auto* centrale = new QWidget(this);
    auto* riga = new QHBoxLayout(centrale);
    riga->setContentsMargins(6, 6, 6, 6);
    auto* colonna = new QVBoxLayout;
    m_menuPulsante = new QPushButton(QStringLiteral("Menù"), centrale);
    m_menuPulsante->setObjectName(QStringLiteral("Menu"));
    colonna->addWidget(m_menuPulsante);
    m_frameMenu = new QWidget(centrale);
    m_frameMenu->setObjectName(QStringLiteral("FrameMenu"));
    m_colonnaPulsanti = new QVBoxLayout(m_frameMenu);
    m_colonnaPulsanti->setContentsMargins(0, 0, 0, 0);
    colonna->addWidget(m_frameMenu);
    colonna->addStretch();
    riga->addLayout(colonna);
    // Until the planning board takes it, the central area shows the program and its version.
    auto* segnaposto = new QLabel(centrale);
    segnaposto->setText(
        QStringLiteral("<div style='color:#8a8178'><p style='font-size:28pt; font-weight:bold'>Tomvera</p>"
                       "<p style='font-size:12pt'>Gestione alberghiera</p></div>"));
    segnaposto->setAlignment(Qt::AlignCenter);
    segnaposto->setStyleSheet(QStringLiteral("QLabel { background: #c7c1bc; border-radius: 6px; }"));
    m_areaCentrale = segnaposto;
    m_areaCentrale->setObjectName(QStringLiteral("Frame1"));
    m_areaCentrale->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    riga->addWidget(m_areaCentrale, 1);
    setCentralWidget(centrale);

    costruisciMenu();
    costruisciPulsanti();

    for (const DefinizioneTimer& t : timerAvvio) {
        auto* timer = new QTimer(this);
        timer->setObjectName(QString::fromLatin1(t.nome));
        timer->setInterval(t.intervallo);
        timer->setSingleShot(t.singolo);
        m_timer.insert(timer->objectName(), timer);
    }

    // Folding the button bar away leaves a labelled button the size of the others, so the way back is plain.
    m_menuPulsante->setMinimumSize(150, 34);
    m_menuPulsante->setToolTip(QStringLiteral("Nasconde la barra dei pulsanti"));
    connect(m_menuPulsante, &QPushButton::clicked, this, [this] {
        const bool mostra = m_frameMenu->isHidden();
        m_frameMenu->setVisible(mostra);
        m_menuPulsante->setText(mostra ? QStringLiteral("Menù") : QStringLiteral("Menù ▸"));
        m_menuPulsante->setToolTip(mostra ? QStringLiteral("Nasconde la barra dei pulsanti")
                                          : QStringLiteral("Mostra la barra dei pulsanti"));
    });
    registraComando(QStringLiteral("Fine"), [this] { fine(); });
    registraComando(QStringLiteral("mFine"), [this] {
        if (!m_logica.mFine_Click())
            return;
        m_chiusuraConsentita = true;
        emit termina();
        close();
    });
    registraComando(QStringLiteral("mCambiaUtente"), [this] {
        m_logica.mCambiaUtente_Click();
        m_chiusuraConsentita = true;
        emit cambiaUtente();
        close();
    });
    SettaPermessiUtente();
}

FinestraAvvio::~FinestraAvvio() = default;

void FinestraAvvio::fine()
{
    m_logica.Fine_Click();
    m_chiusuraConsentita = true;
    emit termina();
    close();
}

void FinestraAvvio::mostra()
{
    if (m_logica.FinestraMassimizzata())
        showMaximized();
    else
        showNormal();
    m_mostrata = true;
}

void FinestraAvvio::changeEvent(QEvent* evento)
{
    QMainWindow::changeEvent(evento);
    // The desk's own choice (not a minimise) is remembered for the next start.
    if (evento->type() == QEvent::WindowStateChange && m_mostrata && !isMinimized()) {
        const auto prima = static_cast<QWindowStateChangeEvent*>(evento)->oldState();
        if (bool(prima & Qt::WindowMaximized) != isMaximized())
            m_logica.SalvaFinestraMassimizzata(isMaximized());
    }
}

void FinestraAvvio::costruisciMenu()
{
    for (const Avvio::Menu& m : Avvio::menu()) {
        QMenu* menu = menuBar()->addMenu(m.testo);
        menu->setObjectName(m.nome);
        menu->menuAction()->setObjectName(m.nome);
        m_menu.insert(m.nome, menu);
    }
    for (const Avvio::Comando& c : Avvio::comandi()) {
        if (c.menu.isEmpty())
            continue;
        QAction* voce = m_menu.value(c.menu)->addAction(c.testo);
        voce->setObjectName(c.nome);
        m_voci.insert(c.nome, voce);
        connect(voce, &QAction::triggered, this, [this, nome = c.nome] { esegui(nome); });
    }
}

void FinestraAvvio::costruisciPulsanti()
{
    for (const Avvio::Comando& c : Avvio::comandi()) {
        if (!c.menu.isEmpty())
            continue;
        auto* p = new QPushButton(c.testo, m_frameMenu);
        p->setObjectName(c.nome);
        p->setMinimumSize(150, 34);
        m_colonnaPulsanti->addWidget(p);
        m_pulsanti.insert(c.nome, p);
        connect(p, &QPushButton::clicked, this, [this, nome = c.nome] { esegui(nome); });
    }
}

void FinestraAvvio::registraComando(const QString& nome, std::function<void()> azione)
{
    m_logica.registraComando(nome, std::move(azione));
}

bool FinestraAvvio::comandoRegistrato(const QString& nome) const
{
    return m_logica.comandoRegistrato(nome);
}

void FinestraAvvio::impostaAreaCentrale(QWidget* area)
{
    auto* riga = static_cast<QHBoxLayout*>(centralWidget()->layout());
    riga->replaceWidget(m_areaCentrale, area);
    m_areaCentrale->deleteLater();
    m_areaCentrale = area;
    m_areaCentrale->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QAction* FinestraAvvio::azione(const QString& nome) const
{
    return m_voci.value(nome);
}

void FinestraAvvio::abilita(const QString& nome, bool abilitato)
{
    if (QPushButton* p = pulsante(nome))
        p->setEnabled(abilitato);
    if (QAction* a = m_voci.value(nome))
        a->setEnabled(abilitato);
    if (QMenu* m = m_menu.value(nome))
        m->menuAction()->setEnabled(abilitato);
}

QPushButton* FinestraAvvio::pulsante(const QString& nome) const
{
    if (nome == QLatin1String("Menu"))
        return m_menuPulsante;
    return m_pulsanti.value(nome);
}

void FinestraAvvio::impostaStato(const QString& testo)
{
    statusBar()->showMessage(testo);
}

bool FinestraAvvio::carica()
{
    const bool continua = m_logica.Form_Load();
    setWindowTitle(m_logica.Titolo);
    if (!m_logica.UtentiCollegatiOra.isEmpty())
        impostaStato(m_logica.UtentiCollegatiOra);
    m_timer.value(QStringLiteral("TimerCentralino"))->setInterval(m_logica.intervalloCentralinoMs());
    SettaPermessiUtente();
    return continua;
}

void FinestraAvvio::SettaPermessiUtente()
{
    const QStringList permessi = m_logica.SettaPermessiUtente();
    for (auto it = m_pulsanti.cbegin(); it != m_pulsanti.cend(); ++it)
        it.value()->setVisible(comandoRegistrato(it.key()) && permessi.contains(it.key()));
    for (auto it = m_voci.cbegin(); it != m_voci.cend(); ++it)
        it.value()->setVisible(comandoRegistrato(it.key()) && permessi.contains(it.key()));
    // A menu left with nothing to offer disappears with its items.
    for (auto it = m_menu.cbegin(); it != m_menu.cend(); ++it) {
        bool qualcosa = false;
        for (const QAction* voce : it.value()->actions())
            qualcosa = qualcosa || voce->isVisible();
        it.value()->menuAction()->setVisible(qualcosa && permessi.contains(it.key()));
    }
}

void FinestraAvvio::esegui(const QString& nome)
{
    m_logica.esegui(nome);
}

bool FinestraAvvio::event(QEvent* evento)
{
    if (evento->type() == QEvent::WindowActivate) {
        m_logica.Form_Activate();
        SettaPermessiUtente();
        emit attivata();
    } else if (evento->type() == QEvent::Show) {
        // Without a window manager (or when focus stays elsewhere) no activation arrives: the first show
        // still has to load the board.
        QTimer::singleShot(0, this, [this] {
            if (!isActiveWindow()) {
                m_logica.Form_Activate();
                SettaPermessiUtente();
                emit attivata();
            }
        });
    }
    return QMainWindow::event(evento);
}

void FinestraAvvio::closeEvent(QCloseEvent* evento)
{
    // The window's own close box asks like "Fine" of the File menu.
    if (!m_chiusuraConsentita) {
        evento->ignore();
        esegui(QStringLiteral("mFine"));
        return;
    }
    QMainWindow::closeEvent(evento);
}

} // namespace tomvera
