// Every command of the program as a desk meets it: the main window wired like tomvera, on a demo hotel. A click
// that neither shows anything, nor opens a window, nor changes what the screen shows is a dead button.
#include "collegamenti.h"
#include "eseguicli.h"
#include "fotografie.h"
#include "foundation/archivio.h"
#include "foundation/avvio/avvio.h"
#include "foundation/configurazione.h"
#include "foundation/gestioneerrori.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/versione.h"
#include "foundation/sessione.h"
#include "foundation/ui/finestraavvio.h"
#include "reservations/demo.h"
#include "rooms/tabellone.h"
#include "rooms/ui/pannellotabellone.h"
#include "rooms/ui/vistatabellone.h"
#include "testmain.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

using namespace tomvera;

namespace {

// Answers every question with No and cancels every choice, so a walk never saves or deletes by itself; it
// counts what was shown.
class Registro : public Interazione
{
public:
    QStringList testi;
    void messaggio(const QString& testo, const QString&, Icona) override { testi << testo; }
    bool domandaSiNo(const QString& testo, const QString&, Icona) override
    {
        testi << testo;
        return false;
    }
    bool okAnnulla(const QString& testo, const QString&, Icona) override
    {
        testi << testo;
        return false;
    }
    std::optional<QString> inputBox(const QString& testo, const QString&, const QString&) override
    {
        testi << testo;
        return std::nullopt;
    }
    std::optional<QString> scegliFileDaAprire(const QString& titolo, const QString&, const QString&) override
    {
        testi << titolo;
        return std::nullopt;
    }
    std::optional<QString> scegliFileDaSalvare(const QString& titolo, const QString&, const QString&) override
    {
        testi << titolo;
        return std::nullopt;
    }
    std::optional<QString> scegliCartella(const QString& titolo, const QString&) override
    {
        testi << titolo;
        return std::nullopt;
    }
    void avviso(TipoAvviso, const QString& testo, int, bool) override { testi << testo; }
    void archivioOccupato(int) override { testi << QStringLiteral("archivio occupato"); }
};

// A button that belongs to a composite control (spin box arrows, calendar, tab scrolling) is not a command.
bool parteDiControllo(const QWidget* w)
{
    for (const QWidget* p = w->parentWidget(); p; p = p->parentWidget()) {
        if (qobject_cast<const QAbstractSpinBox*>(p) || qobject_cast<const QCalendarWidget*>(p)
            || qobject_cast<const QTabBar*>(p) || qobject_cast<const QScrollBar*>(p)
            || qobject_cast<const QComboBox*>(p))
            return true;
    }
    return false;
}

// Our own screens are walked; Qt's (file, colour, print dialogs, menus) are only closed.
bool schermoNostro(const QWidget* w)
{
    return QByteArray(w->metaObject()->className()).startsWith("tomvera::");
}

QString nomeSchermo(const QWidget* w)
{
    return w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className()) : w->objectName();
}

QString nomeComando(const QObject* o, const QString& testo)
{
    return o->objectName().isEmpty() ? testo : o->objectName();
}

// Commands that hand the screen over to another one and wait there; their own tests follow them through.
const QStringList& nonDaCliccare()
{
    static const QStringList elenco = {
        QStringLiteral("F_Prenotazione/AggiungiCamera"), // the board takes over to pick the room
    };
    return elenco;
}

class Camminatore : public QObject
{
    Q_OBJECT
public:
    Camminatore(Registro& registro, std::function<QString()> statoNascosto)
        : m_registro(registro)
        , m_statoNascosto(std::move(statoNascosto))
    {
        for (const char* schema : { "http", "https", "mailto", "file" })
            QDesktopServices::setUrlHandler(QLatin1String(schema), this, "apriUrl");
    }
    ~Camminatore() override
    {
        for (const char* schema : { "http", "https", "mailto", "file" })
            QDesktopServices::unsetUrlHandler(QLatin1String(schema));
    }

    QStringList morti; // "screen/command" with no effect
    QStringList provati;
    QStringList schermi; // every screen walked

    // Clicks and tells whether anything happened. Windows that open meanwhile are walked when they are ours
    // (up to two screens deep), then closed; `chiusoPrima` says a walked screen closed itself before its end.
    bool prova(QWidget* osservato, const std::function<void()>& clic, int livello, bool* chiusoPrima = nullptr)
    {
        if (QWidget* f = QApplication::focusWidget())
            f->clearFocus();
        QCoreApplication::processEvents();
        const int testi = m_registro.testi.size();
        const int url = m_url;
        QSet<QWidget*> prima;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible())
                prima.insert(w);
        QPointer<QWidget> guardato(osservato);
        const bool visibile = osservato->isVisible();
        const QImage immagine = osservato->grab().toImage();
        const QString titolo = osservato->window()->windowTitle();
        const QString nascosto = m_statoNascosto() + spunte(osservato);
        bool finestre = false;

        const auto scandisci = [&](QTimer* guardia) {
            // Walking one window may close and delete others: hold them by guarded pointers.
            QList<QPointer<QWidget>> finestreAperte;
            for (QWidget* w : QApplication::topLevelWidgets())
                finestreAperte << w;
            for (const QPointer<QWidget>& w : std::as_const(finestreAperte)) {
                if (!w || !w->isVisible() || prima.contains(w))
                    continue;
                prima.insert(w);
                finestre = true;
                if (guardia)
                    guardia->stop();
                QPointer<QWidget> nuova(w);
                if (livello < 2 && schermoNostro(w)) {
                    const bool finito = cammina(w, livello + 1);
                    if (!finito && chiusoPrima)
                        *chiusoPrima = true;
                }
                if (nuova && nuova->isVisible())
                    chiudi(nuova);
                if (guardia)
                    guardia->start();
            }
        };
        QTimer guardia;
        guardia.setInterval(15);
        connect(&guardia, &QTimer::timeout, this, [&] { scandisci(&guardia); });
        guardia.start();
        clic();
        guardia.stop();
        QCoreApplication::processEvents();
        scandisci(nullptr);

        if (finestre || m_registro.testi.size() != testi || m_url != url)
            return true;
        if (!guardato || guardato->isVisible() != visibile)
            return true;
        if (guardato->window()->windowTitle() != titolo || m_statoNascosto() + spunte(guardato) != nascosto)
            return true;
        return guardato->grab().toImage() != immagine;
    }

    // Walks the enabled buttons of a screen, tab after tab, and the items of its menus. False when the screen
    // closed before every command was tried.
    bool cammina(QWidget* schermo, int livello)
    {
        const QString nome = nomeSchermo(schermo);
        if (!schermi.contains(nome))
            schermi << nome;
        QPointer<QWidget> vivo(schermo);
        QSet<QString> schede;
        for (;;) {
            if (!vivo || !vivo->isVisible())
                return false;
            riempiCampi(schermo);
            QAbstractButton* pulsante = nullptr;
            QString chiave;
            for (QAbstractButton* b : schermo->findChildren<QAbstractButton*>()) {
                if (!qobject_cast<QPushButton*>(b) && !qobject_cast<QToolButton*>(b))
                    continue;
                if (!b->isVisible() || !b->isEnabled() || parteDiControllo(b) || b->window() != schermo)
                    continue;
                const QString k = nome + QLatin1Char('/') + nomeComando(b, b->text());
                if (m_fatti.contains(k) || k.endsWith(QLatin1Char('/')) || nonDaCliccare().contains(k))
                    continue;
                pulsante = b;
                chiave = k;
                break;
            }
            if (!pulsante) {
                if (prossimaScheda(schermo, schede))
                    continue;
                break;
            }
            m_fatti.insert(chiave);
            provati << chiave;
            QPointer<QAbstractButton> p(pulsante);
            if (!prova(
                    schermo,
                    [p] {
                        if (p)
                            p->click();
                    },
                    livello))
                morti << chiave;
        }
        // The screen's menus, when it has them.
        for (QMenuBar* barra : schermo->findChildren<QMenuBar*>()) {
            for (QAction* voce : voci(barra)) {
                if (!vivo || !vivo->isVisible())
                    return false;
                const QString k = nome + QLatin1Char('/') + nomeComando(voce, voce->text());
                if (m_fatti.contains(k))
                    continue;
                m_fatti.insert(k);
                provati << k;
                QPointer<QAction> a(voce);
                if (!prova(
                        schermo,
                        [a] {
                            if (a)
                                a->trigger();
                        },
                        livello))
                    morti << k;
            }
        }
        return true;
    }

    // Ticks of menu items are state too, though no screenshot shows them.
    static QString spunte(QWidget* w)
    {
        QString s;
        for (QAction* a : w->window()->findChildren<QAction*>())
            if (a->isCheckable())
                s += a->isChecked() ? QLatin1Char('1') : QLatin1Char('0');
        return s;
    }

    static QList<QAction*> voci(QMenuBar* barra)
    {
        QList<QAction*> elenco;
        for (QAction* m : barra->actions()) {
            if (!m->isVisible() || !m->isEnabled() || !m->menu())
                continue;
            for (QAction* v : m->menu()->actions())
                if (v->isVisible() && v->isEnabled() && !v->isSeparator() && !v->menu())
                    elenco << v;
        }
        return elenco;
    }

    bool fatto(const QString& chiave) const { return m_fatti.contains(chiave); }
    void segnaFatto(const QString& chiave)
    {
        m_fatti.insert(chiave);
        provati << chiave;
    }

public slots:
    void apriUrl(const QUrl&) { ++m_url; }

private:
    // Empty fields get a value, so "Nuovo", "Cerca" and the like have something to act on; the value changes
    // from one click to the next, so a search repeated by the next button is a new search.
    void riempiCampi(QWidget* schermo)
    {
        const QString valore = QString::number(1 + (m_giro++ % 2));
        for (QLineEdit* e : schermo->findChildren<QLineEdit*>()) {
            auto* combo = qobject_cast<QComboBox*>(e->parentWidget());
            if (parteDiControllo(e) && !(combo && combo->isEditable()))
                continue;
            const bool nostro
                = e->text().isEmpty() || e->text() == QLatin1String("1") || e->text() == QLatin1String("2");
            if (e->isVisible() && e->isEnabled() && !e->isReadOnly() && nostro && e->echoMode() == QLineEdit::Normal)
                e->setText(valore);
        }
    }

    static bool prossimaScheda(QWidget* schermo, QSet<QString>& viste)
    {
        for (QTabWidget* t : schermo->findChildren<QTabWidget*>()) {
            if (!t->isVisible())
                continue;
            for (int i = 0; i < t->count(); ++i) {
                const QString k = t->objectName() + QLatin1Char('#') + QString::number(i);
                if (viste.contains(k) || !t->isTabEnabled(i))
                    continue;
                viste.insert(k);
                if (t->currentIndex() == i)
                    continue;
                t->setCurrentIndex(i);
                return true;
            }
        }
        return false;
    }

    static void chiudi(QWidget* w)
    {
        // Forced: a screen's own closing question was already tried by its buttons.
        if (auto* d = qobject_cast<QDialog*>(w))
            d->QDialog::done(QDialog::Rejected);
        else
            w->close();
        if (w->isVisible())
            w->hide();
        QCoreApplication::processEvents();
    }

    Registro& m_registro;
    std::function<QString()> m_statoNascosto;
    QSet<QString> m_fatti;
    int m_url = 0;
    int m_giro = 0;
};

struct Programma
{
    QTemporaryDir casa;
    Registro interazione;
    OrologioFisso orologio { QDateTime(QDate(2026, 7, 15), QTime(10, 0)) };
    GestioneErrori errori { &interazione };
    Sessione sessione { interazione, orologio, errori };

    Programma()
    {
        qputenv("TOMVERA_HOME", casa.path().toUtf8());
        errori.setPausa([](double) {});
        sessione.PercorsoDB = casa.filePath(QStringLiteral("Archivio.mdb"));
        sessione.PercorsoArchivioSky = casa.filePath(QStringLiteral("ArchivioSky.mdb"));
        sessione.PercorsoArchivioCodici = QStringLiteral(TOMVERA_ARCHIVIO_CODICI);
        sessione.PercorsoProgramma = casa.filePath(QStringLiteral("Programma"));
        sessione.UtenteCollegato = QStringLiteral("Amministratore");
        sessione.permessi->amministratore = true;
        CreazioneDB::Percorsi percorsi;
        percorsi.archivio = sessione.PercorsoDB;
        percorsi.archivioCodici = sessione.PercorsoArchivioCodici;
        CreazioneDB(percorsi, errori).CreaDB_Click();
        Archivio archivio(sessione.PercorsoDB, errori);
        archivio.apri();
        schema::ScriviVersione(archivio);
        OpzioniDemo opzioni;
        opzioni.camere = 12;
        opzioni.oggi = orologio.oggi();
        GeneraDemo(archivio, opzioni);
        CaricaConfigurazione(sessione);
    }
    ~Programma()
    {
        Archivio::chiudiConnessioni(sessione.PercorsoDB);
        qunsetenv("TOMVERA_HOME");
    }
};

QList<QAction*> vociFinestra(FinestraAvvio& finestra)
{
    QList<QAction*> elenco;
    for (QAction* m : finestra.menuBar()->actions()) {
        if (!m->isVisible() || !m->isEnabled() || !m->menu())
            continue;
        for (QAction* v : m->menu()->actions())
            if (v->isVisible() && v->isEnabled() && !v->isSeparator() && !v->menu())
                elenco << v;
    }
    return elenco;
}

} // namespace

class TestComandiFinestra : public QObject
{
    Q_OBJECT
private slots:
    void nessunPulsanteMorto();
    void escComeEsci();
    void demoConCodiciUfficiali();
};

void TestComandiFinestra::nessunPulsanteMorto()
{
    Programma p;
    Avvio avvio(p.sessione);
    FinestraAvvio finestra(avvio);
    collegaComandi(finestra, avvio, p.sessione);
    QVERIFY(finestra.carica());
    finestra.resize(1280, 800);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&finestra));
    auto* pannello = finestra.findChild<PannelloTabellone*>();
    QVERIFY(pannello);
    QTest::qWait(100);
    auto* tabellone = finestra.findChild<Tabellone*>();
    QVERIFY(tabellone);
    tabellone->Aggiorna_Click();
    test::fotografa(finestra, QStringLiteral("avvio_comandi"));

    // A refresh that redraws the same tiles is still a refresh.
    Camminatore c(p.interazione, [tabellone] { return QString::number(tabellone->refreshEseguiti); });
    // The commands that end the run are tried last.
    const QStringList ultimi = { QStringLiteral("Avvio/Menu"), QStringLiteral("Avvio/mCambiaUtente"),
                                 QStringLiteral("Avvio/mFine"), QStringLiteral("Avvio/Fine") };
    const auto provaConRiaperture = [&](const QString& chiave, const std::function<void()>& clic) {
        c.segnaFatto(chiave);
        bool effetto = false;
        // A screen closed by one of its buttons is opened again to try the rest.
        for (int volta = 0; volta < 40; ++volta) {
            bool chiusoPrima = false;
            const int prima = c.provati.size();
            effetto = c.prova(&finestra, clic, 0, &chiusoPrima) || effetto;
            if (!chiusoPrima || c.provati.size() == prima)
                break;
        }
        if (!effetto)
            c.morti << chiave;
    };

    QList<QPointer<QAbstractButton>> pulsanti;
    for (QAbstractButton* b : finestra.findChildren<QAbstractButton*>())
        if ((qobject_cast<QPushButton*>(b) || qobject_cast<QToolButton*>(b)) && !parteDiControllo(b))
            pulsanti << b;
    QList<QPointer<QAction>> voci;
    for (QAction* a : vociFinestra(finestra))
        voci << a;
    for (const QPointer<QAbstractButton>& b : pulsanti) {
        if (!b || !b->isVisible() || !b->isEnabled())
            continue;
        const QString chiave = QStringLiteral("Avvio/") + nomeComando(b, b->text());
        if (c.fatto(chiave) || ultimi.contains(chiave))
            continue;
        provaConRiaperture(chiave, [b] {
            if (b)
                b->click();
        });
    }
    for (const QPointer<QAction>& a : voci) {
        if (!a || !a->isVisible() || !a->isEnabled())
            continue;
        const QString chiave = QStringLiteral("Avvio/") + nomeComando(a, a->text());
        if (c.fatto(chiave) || ultimi.contains(chiave))
            continue;
        provaConRiaperture(chiave, [a] {
            if (a)
                a->trigger();
        });
    }
    // The reservation screens open from the tiles: a free one today, one with a stay, one with several.
    const QDate oggi = p.orologio.oggi();
    const struct
    {
        StatoCamera stato;
        QDate dal, al;
    } casi[] = { { StatoCamera::Libera, oggi, oggi.addDays(1) },
                 { StatoCamera::Occupata, oggi.addDays(-10), oggi.addDays(-9) },
                 { StatoCamera::PiuPrenotazioni, oggi.addDays(-60), oggi.addDays(-1) } };
    for (const auto& caso : casi) {
        int numero = 0;
        for (int giorno = 0; giorno < 30 && numero == 0; ++giorno) {
            tabellone->Dal = caso.dal.addDays(-giorno);
            tabellone->Al = caso.al.addDays(-giorno);
            tabellone->Aggiorna_Click();
            for (const Tessera& t : tabellone->tessere())
                if (t.stato == caso.stato && numero == 0)
                    numero = t.numero;
        }
        QVERIFY2(numero > 0, "nessuna camera nello stato cercato");
        VistaTabellone* vista = pannello->vista();
        const QPoint punto = vista->riquadroTessera(numero).center().toPoint();
        provaConRiaperture(QStringLiteral("Avvio/tessera %1 stato %2").arg(numero).arg(int(caso.stato)),
                           [vista, punto] { QTest::mouseClick(vista, Qt::LeftButton, {}, punto); });
    }
    // The button bar folds away and comes back.
    QPushButton* menu = finestra.pulsante(QStringLiteral("Menu"));
    provaConRiaperture(QStringLiteral("Avvio/Menu"), [menu] { menu->click(); });
    provaConRiaperture(QStringLiteral("Avvio/Menu di nuovo"), [menu] { menu->click(); });
    QVERIFY(finestra.findChild<QWidget*>(QStringLiteral("FrameMenu"))->isVisible());
    // "Fine" of the File menu asks first (answered No here): the window stays.
    QAction* mFine = finestra.azione(QStringLiteral("mFine"));
    provaConRiaperture(QStringLiteral("Avvio/mFine"), [mFine] { mFine->trigger(); });
    QVERIFY(finestra.isVisible());

    // Screens the walk must have reached, whatever else is added later.
    for (const char* schermo : { "F_Configurazioni", "F_ConfiguraGriglia", "F_TipologiaCamere", "F_ArchivioCodici",
                                 "F_Prenotazione", "F_SchedaAnagrafica", "F_ListinoCamere", "Backup" })
        QVERIFY2(c.schermi.contains(QLatin1String(schermo)), qPrintable(c.schermi.join(QStringLiteral(", "))));
    // The names case of the reference code archive is a command of the settings screen.
    QVERIFY(c.provati.contains(QStringLiteral("F_Configurazioni/TrasformaInMaiuscole")));

    // Commands that may show nothing on the walk's unchanged reservation (prices and totals already right, no
    // neighbour at the list's end), and commands whose effect lies outside the program's windows.
    const QStringList attesi
        = { QStringLiteral("F_Prenotazione/AggiornaPrezzi"), QStringLiteral("F_Prenotazione/CalcolaTotale"),
            QStringLiteral("F_Prenotazione/Avanti"), QStringLiteral("F_Prenotazione/Indietro"),
            // Reloads the floor from the archive, which nobody changed during the walk.
            QStringLiteral("F_ConfiguraGriglia/Aggiorna"),
            // Hands the folder to the system's file manager, an outside program.
            QStringLiteral("Backup/ApriCartella") };
    QStringList morti;
    for (const QString& m : std::as_const(c.morti))
        if (!attesi.contains(m))
            morti << m;
    qInfo("%d comandi provati su %d schermi", int(c.provati.size()), int(c.schermi.size()));
    if (qEnvironmentVariableIsSet("TOMVERA_ELENCO_COMANDI"))
        qInfo("%s", qPrintable(c.provati.join(QLatin1Char('\n'))));
    QVERIFY2(morti.isEmpty(),
             qPrintable(QStringLiteral("Pulsanti senza effetto: ") + morti.join(QStringLiteral(", "))));
}

// Esc on a screen goes the way of its own exit button: the same question, the same outcome. Each screen is
// opened twice with a field edited, once left by Esc and once by its "Esci".
void TestComandiFinestra::escComeEsci()
{
    Programma p;
    Avvio avvio(p.sessione);
    FinestraAvvio finestra(avvio);
    collegaComandi(finestra, avvio, p.sessione);
    QVERIFY(finestra.carica());
    finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&finestra));

    struct Esito
    {
        QString schermo;
        bool chiuso = false;
        QStringList testi;
    };
    const auto esci = [&](const QString& comando, bool conEsc) {
        Esito esito;
        QTimer::singleShot(50, [&] {
            auto* schermo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!schermo)
                return;
            esito.schermo = nomeSchermo(schermo);
            for (QLineEdit* e : schermo->findChildren<QLineEdit*>()) {
                if (e->isVisible() && e->isEnabled() && !e->isReadOnly() && !parteDiControllo(e)
                    && e->echoMode() == QLineEdit::Normal) {
                    e->setText(e->text() + QStringLiteral("7"));
                    break;
                }
            }
            const int prima = p.interazione.testi.size();
            if (conEsc) {
                QTest::keyClick(schermo, Qt::Key_Escape);
            } else {
                for (QPushButton* b : schermo->findChildren<QPushButton*>()) {
                    const QString t = b->text().toLower();
                    if (b->isVisible() && (t == QLatin1String("esci") || t == QLatin1String("chiudi"))) {
                        b->click();
                        break;
                    }
                }
            }
            esito.chiuso = !schermo->isVisible();
            esito.testi = p.interazione.testi.mid(prima);
            if (schermo->isVisible())
                schermo->QDialog::done(QDialog::Rejected);
        });
        finestra.azione(comando) ? finestra.azione(comando)->trigger() : finestra.pulsante(comando)->click();
        QTest::qWait(80);
        return esito;
    };
    for (const char* comando : { "mConfigurazioniGenerali", "mConfigurazioniCamere", "mConfigurazioneTabelle",
                                 "mListinoCamere", "mListinoAccessori", "mBackup", "Anagrafiche" }) {
        const QString nome = QLatin1String(comando);
        const Esito conEsc = esci(nome, true);
        const Esito conEsci = esci(nome, false);
        QVERIFY2(!conEsc.schermo.isEmpty(), comando);
        const QString dove = conEsc.schermo + QStringLiteral(": ") + conEsc.testi.join(QLatin1Char('|'))
            + QStringLiteral(" / ") + conEsci.testi.join(QLatin1Char('|'));
        QVERIFY2(conEsc.chiuso == conEsci.chiuso, qPrintable(dove));
        QVERIFY2(conEsc.testi == conEsci.testi, qPrintable(dove));
    }
    // The settings with an edit: asked both ways (answered No here, so the edit is dropped and the screen goes).
    const Esito impostazioni = esci(QStringLiteral("mConfigurazioniGenerali"), true);
    QCOMPARE(impostazioni.testi, QStringList { QStringLiteral("Salvare le modifiche apportate?") });
    QVERIFY(impostazioni.chiuso);
}

// The official code tables ship with the sources: the demo hotel of any build has them, so birth places and
// documents have their lookups.
void TestComandiFinestra::demoConCodiciUfficiali()
{
    QTemporaryDir cartella;
    const QString archivio = cartella.filePath(QStringLiteral("Archivio.mdb"));
    const test::EsitoCli esito
        = test::eseguiCli(QStringLiteral("genera-demo"),
                          { QStringLiteral("--archivio"), archivio, QStringLiteral("--camere"), QStringLiteral("6") });
    QCOMPARE(esito.codice, 0);
    GestioneErrori errori;
    {
        Archivio a(archivio, errori);
        QVERIFY(a.apri());
        for (const char* tabella :
             { "TabellaCodiciComuni", "TabellaCodiciStati", "TabellaCodiciDocumenti", "TabellaCodiciTipoAlloggiato" })
            QVERIFY2(a.valore(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabella)).toInt() > 0, tabella);
        QCOMPARE(a.valore(QStringLiteral("SELECT Codice FROM TabellaCodiciStati WHERE Stato = 'ITALIA'")).toString(),
                 QStringLiteral("100000100"));
    }
    Archivio::chiudiConnessioni(archivio);
}

TOMVERA_TEST(TestComandiFinestra)

#include "test_comandi_ui.moc"
