#include "rooms/ui/tabelloneavvio.h"

#include "foundation/archivio.h"
#include "foundation/interazione.h"
#include "foundation/sessione.h"
#include "foundation/ui/fconfigurazioniwidget.h"
#include "foundation/ui/finestraavvio.h"
#include "foundation/variabili.h"
#include "rooms/tabellone.h"
#include "rooms/ui/finestrecatalogo.h"
#include "rooms/ui/immaginicamera.h"
#include "rooms/ui/pannellotabellone.h"

#include <QAction>
#include <QDesktopServices>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

namespace tomvera {

TabelloneAvvio::TabelloneAvvio(FinestraAvvio& finestra, Sessione& sessione)
    : QObject(&finestra)
    , m_finestra(finestra)
    , m_sessione(sessione)
    , m_tabellone(new Tabellone(sessione, this))
{
    m_tabellone->Form_Load();
    m_pannello = new PannelloTabellone(*m_tabellone, &finestra);
    finestra.impostaAreaCentrale(m_pannello);

    Tabellone* t = m_tabellone;
    finestra.registraComando(QStringLiteral("M_Moderno"), [t] { t->M_Moderno_Click(); });
    finestra.registraComando(QStringLiteral("M_Classico"), [t] { t->M_Classico_Click(); });
    finestra.registraComando(QStringLiteral("M_Simbolo"), [t] { t->M_Simbolo_Click(); });
    finestra.registraComando(QStringLiteral("AbilitaGestioneSpiaggia"), [this, t] {
        t->AbilitaGestioneSpiaggia_Click();
        m_finestra.SettaPermessiUtente();
        applicaAllaFinestra();
    });
    finestra.registraComando(QStringLiteral("mConfigurazioniCamere"), [this, t] {
        // The rooms' layout is a setting: the administrator's password guards it like the settings screen.
        if (!FPassWidget::consenti(m_sessione, &m_finestra, [this] { m_finestra.fine(); }))
            return;
        FinestraConfiguraGriglia configurazione(m_sessione, &m_finestra);
        configurazione.exec();
        t->daRicostruire = true;
        t->Aggiorna_Click();
    });
    finestra.registraComando(QStringLiteral("mAssistenzaRemota"), [this] {
        if (!QDesktopServices::openUrl(QUrl(indirizzoAssistenzaRemota(m_sessione))))
            m_sessione.interazione.messaggio(QStringLiteral("Impossibile aprire la pagina dell'assistenza remota: ")
                                             + indirizzoAssistenzaRemota(m_sessione));
    });
    for (const char* nome : { "M_Moderno", "M_Classico", "M_Simbolo", "AbilitaGestioneSpiaggia" })
        if (QAction* a = finestra.azione(QString::fromLatin1(nome)))
            a->setCheckable(true);

    connect(m_pannello, &PannelloTabellone::titoloCambiato, this, [this](const QString& titolo) {
        if (!m_titoloFinestra.isEmpty())
            m_finestra.setWindowTitle(titolo);
    });
    connect(t, &Tabellone::statoCambiato, this, &TabelloneAvvio::applicaAllaFinestra);
    // Every return from another screen refreshes the board, shortly, once.
    connect(&finestra, &FinestraAvvio::attivata, this, [this, t] {
        if (m_titoloFinestra.isEmpty()) {
            m_titoloFinestra = m_finestra.windowTitle();
            t->TitoloBase = m_titoloFinestra;
        }
        applicaAllaFinestra();
        t->Timer1.start();
    });
}

TabelloneAvvio::~TabelloneAvvio() = default;

QString TabelloneAvvio::indirizzoAssistenzaRemota(Sessione& sessione)
{
    // A reseller may point the desk at its own support page; the maker's is the default.
    Archivio archivio(sessione.PercorsoDB, sessione.errori);
    const QString salvato = archivio.apri()
        ? Variabili(archivio).LeggiVariabileStringa(QStringLiteral("Avvio_IndirizzoAssistenzaRemota")).trimmed()
        : QString();
    return salvato.isEmpty() ? QStringLiteral("https://www.tomvera.it/assistenza-remota") : salvato;
}

void TabelloneAvvio::applicaAllaFinestra()
{
    const Tabellone& t = *m_tabellone;
    const struct
    {
        const char* nome;
        Grafica grafica;
    } stili[]
        = { { "M_Moderno", Grafica::Moderno }, { "M_Classico", Grafica::Classico }, { "M_Simbolo", Grafica::Simbolo } };
    for (const auto& s : stili)
        if (QAction* a = m_finestra.azione(QString::fromLatin1(s.nome)))
            a->setChecked(t.grafica() == s.grafica);
    if (QAction* a = m_finestra.azione(QStringLiteral("AbilitaGestioneSpiaggia")))
        a->setChecked(t.AbilitaGestioneSpiaggia);
    // Without beach management its entry points stay out of sight, whatever the rights say.
    if (!t.AbilitaGestioneSpiaggia) {
        if (QPushButton* b = m_finestra.pulsante(QStringLiteral("CSpiaggia")))
            b->setVisible(false);
        if (QAction* a = m_finestra.azione(QStringLiteral("mListinoSpiaggia")))
            a->setVisible(false);
    }
    // The style's frame colour reaches the button column too, so the window reads as one surface.
    if (QWidget* centrale = m_finestra.centralWidget()) {
        QPalette tavolozza = centrale->palette();
        tavolozza.setColor(QPalette::Window, coloreQt(coloriStile(t.grafica()).sfondoFrame));
        centrale->setPalette(tavolozza);
        centrale->setAutoFillBackground(true);
    }
    const bool libero = t.modo() != Tabellone::Modo::AggiuntaCamera;
    for (const QString& nome : Tabellone::controlliAggiuntaCamera()) {
        if (QPushButton* b = m_finestra.pulsante(nome))
            b->setEnabled(libero);
        if (auto* m = m_finestra.findChild<QMenu*>(nome))
            m->menuAction()->setEnabled(libero);
    }
}

} // namespace tomvera
