#include "bancotabellone.h"
#include "fotografie.h"
#include "foundation/avvio/avvio.h"
#include "foundation/ui/finestraavvio.h"
#include "foundation/utenti.h"
#include "rooms/tabellone.h"
#include "rooms/ui/finestrecatalogo.h"
#include "rooms/ui/pannellotabellone.h"
#include "rooms/ui/strisciagiorni.h"
#include "rooms/ui/tabelloneavvio.h"
#include "rooms/ui/vistatabellone.h"
#include "testmain.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDateEdit>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace tomvera;
using test::giugno;

namespace {

// Screenshots go where TOMVERA_SCREENSHOTS points (docs/screenshots when run by hand); nowhere otherwise.
void fotografa(QWidget& w, const QString& nome)
{
    test::fotografa(w, nome);
}

QPoint centro(VistaTabellone& vista, int numero)
{
    return vista.riquadroTessera(numero).center().toPoint();
}

} // namespace

class TestPannelloTabellone : public QObject
{
    Q_OBJECT
private slots:
    void clickETemporizzatori();
    void selezioneMultiplaEStriscia();
};

void TestPannelloTabellone::clickETemporizzatori()
{
    test::BancoTabellone b(2, 3);
    QVERIFY(b.tipologia(QStringLiteral("DOP"), 2, coloreDaRgb(52, 152, 219)));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, QStringLiteral("DOP")));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 2, 1, QStringLiteral("DOP")));
    b.soggiorno(QStringLiteral("102"), giugno(10), giugno(12), { QStringLiteral("Rossi") });
    Tabellone logica(b.sessione);
    logica.Form_Load();
    logica.NroPiano = 1;
    PannelloTabellone pannello(logica);
    pannello.resize(900, 600);
    pannello.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pannello));
    logica.Aggiorna_Click();
    QCOMPARE(pannello.findChild<QLabel*>(QStringLiteral("CamereDisponibili"))->text(),
             QStringLiteral("Camere Disponibili: 1"));
    QCOMPARE(pannello.findChild<QLabel*>(QStringLiteral("PersonePresenti"))->text(),
             QStringLiteral("Persone Presenti: 1"));

    std::optional<RichiestaPrenotazione> richiesta;
    logica.apriPrenotazione = [&](const RichiestaPrenotazione& r) { richiesta = r; };
    VistaTabellone& vista = *pannello.vista();
    QCOMPARE(vista.tesseraIn(centro(vista, 2)), 2);
    QCOMPARE(vista.tesseraIn(QPointF(1, 1)), 0);
    QTest::mouseClick(&vista, Qt::LeftButton, {}, centro(vista, 1));
    QVERIFY(richiesta);
    QCOMPARE(richiesta->camere.first().NroCamera, QStringLiteral("101"));
    QCOMPARE(logica.tesseraSegnata(), 1);
    QTest::mouseClick(&vista, Qt::LeftButton, {}, centro(vista, 2));
    QCOMPARE(richiesta->tipo, RichiestaPrenotazione::Tipo::Esistente);

    // Three arrow clicks, one refresh.
    const int prima = logica.refreshEseguiti;
    for (int i = 0; i < 3; ++i)
        QTest::mouseClick(pannello.findChild<QToolButton*>(QStringLiteral("PiuPartenza")), Qt::LeftButton);
    QCOMPARE(pannello.findChild<QDateEdit*>(QStringLiteral("Al"))->date(), giugno(14));
    QCOMPARE(logica.refreshEseguiti, prima);
    QTRY_COMPARE_WITH_TIMEOUT(logica.refreshEseguiti, prima + 1, 3000);

    // Typing a date that reaches the other moves it.
    pannello.findChild<QDateEdit*>(QStringLiteral("Dal"))->setDate(giugno(20));
    QCOMPARE(logica.Al, giugno(21));
    QCOMPARE(pannello.findChild<QDateEdit*>(QStringLiteral("Al"))->date(), giugno(21));
    QTRY_COMPARE_WITH_TIMEOUT(logica.refreshEseguiti, prima + 2, 3000);
    QTest::mouseClick(pannello.findChild<QPushButton*>(QStringLiteral("Command6")), Qt::LeftButton);
    QCOMPARE(logica.Dal, giugno(10));
    QVERIFY(!vista.grab().isNull());
}

void TestPannelloTabellone::selezioneMultiplaEStriscia()
{
    test::BancoTabellone b(1, 4);
    for (int i = 0; i < 4; ++i)
        QVERIFY(b.camera(QString::number(101 + i), 1, i, 0));
    b.soggiorno(QStringLiteral("101"), giugno(11), giugno(13));
    Tabellone logica(b.sessione);
    logica.Form_Load();
    logica.NroPiano = 1;
    PannelloTabellone pannello(logica);
    pannello.resize(900, 500);
    pannello.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pannello));
    logica.Aggiorna_Click();

    auto* multipla = pannello.findChild<QPushButton*>(QStringLiteral("PrenotazioneMultipla"));
    auto* frame = pannello.findChild<QWidget*>(QStringLiteral("FramePrenotazioneMultipla"));
    QVERIFY(!frame->isVisible());
    QTest::mouseClick(multipla, Qt::LeftButton);
    QVERIFY(frame->isVisible());
    auto* prenota = pannello.findChild<QPushButton*>(QStringLiteral("Prenotazione"));
    QVERIFY(!prenota->isEnabled());
    VistaTabellone& vista = *pannello.vista();
    QTest::mouseClick(&vista, Qt::LeftButton, {}, centro(vista, 2));
    QTest::mouseClick(&vista, Qt::LeftButton, {}, centro(vista, 3));
    auto* griglia = pannello.findChild<QTableWidget*>(QStringLiteral("Griglia"));
    QCOMPARE(griglia->rowCount(), 2);
    QCOMPARE(griglia->item(1, 0)->text(), QStringLiteral("103"));
    QCOMPARE(griglia->item(1, 1)->text(), QStringLiteral("10/06/2026"));
    QVERIFY(prenota->isEnabled());

    // The strip: two clicks on days choose the period.
    pannello.findChild<QCheckBox*>(QStringLiteral("MostraCalendario"))->setChecked(true);
    StrisciaGiorni& striscia = *pannello.striscia();
    QVERIFY(striscia.isVisible());
    QVERIFY(logica.Striscia.size() > 10);
    const double giorno = static_cast<double>(striscia.width()) / logica.Striscia.size();
    QTest::mouseClick(&striscia, Qt::LeftButton, {}, QPoint(static_cast<int>(giorno * 2.5), 40));
    QVERIFY(pannello.findChild<QLabel*>(QStringLiteral("SelezionaAl"))->isVisible());
    QTest::mouseClick(&striscia, Qt::LeftButton, {}, QPoint(static_cast<int>(giorno * 5.5), 40));
    QCOMPARE(logica.Dal, giugno(10));
    QCOMPARE(logica.Al, giugno(13));
    QVERIFY(!pannello.findChild<QLabel*>(QStringLiteral("SelezionaAl"))->isVisible());
}

TOMVERA_TEST(TestPannelloTabellone)

// The two catalogue screens driven by their controls.
class TestFinestreCatalogo : public QObject
{
    Q_OBJECT
private slots:
    void tipologieDaiControlli();
    void grigliaDaiControlli();
};

void TestFinestreCatalogo::tipologieDaiControlli()
{
    test::BancoTabellone b;
    FinestraTipologieCamere f(b.sessione);
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    QTest::keyClicks(f.findChild<QLineEdit*>(QStringLiteral("CodiceTipologia")), QStringLiteral("DOP"));
    QTest::keyClicks(f.findChild<QLineEdit*>(QStringLiteral("NroPersone")), QStringLiteral("2"));
    QTest::keyClicks(f.findChild<QLineEdit*>(QStringLiteral("NomeTipologia")), QStringLiteral("Doppia"));
    auto* registra = f.findChild<QPushButton*>(QStringLiteral("Registra"));
    QTest::mouseClick(registra, Qt::LeftButton);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Attenzione, associare un colore alla tipologia!"));
    QTest::mouseClick(f.findChild<QPushButton*>(QStringLiteral("Tinta2ecc71")), Qt::LeftButton);
    QTest::mouseClick(registra, Qt::LeftButton);
    auto* griglia = f.findChild<QTableWidget*>(QStringLiteral("Griglia"));
    QCOMPARE(griglia->rowCount(), 1);
    QCOMPARE(griglia->item(0, 2)->text(), QStringLiteral("Doppia"));
    QCOMPARE(griglia->item(0, 3)->background().color(), QColor(0x2e, 0xcc, 0x71));
    QCOMPARE(f.findChild<QLineEdit*>(QStringLiteral("CodiceTipologia"))->text(), QString());
}

void TestFinestreCatalogo::grigliaDaiControlli()
{
    test::BancoTabellone b(2, 2);
    QVERIFY(b.tipologia(QStringLiteral("SUI"), 4, coloreDaRgb(0xaf, 0x7a, 0xc5), QStringLiteral("Suite")));
    FinestraConfiguraGriglia f(b.sessione);
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    QCOMPARE(f.windowTitle(), QStringLiteral("Configurazione Camere"));
    auto* tipi = f.findChild<QTableWidget*>(QStringLiteral("GrigliaTipologie"));
    auto* griglia = f.findChild<QTableWidget*>(QStringLiteral("Griglia"));
    QCOMPARE(griglia->rowCount(), 2);
    QTest::mouseClick(tipi->viewport(), Qt::LeftButton, {}, tipi->visualItemRect(tipi->item(0, 1)).center());
    QCOMPARE(f.findChild<QLabel*>(QStringLiteral("NomeTipologiaSelezionata"))->text(), QStringLiteral("Suite"));
    QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {}, griglia->visualItemRect(griglia->item(1, 1)).center());
    QCOMPARE(griglia->item(1, 1)->background().color(), QColor(0xaf, 0x7a, 0xc5));
    griglia->item(1, 1)->setText(QStringLiteral("12"));
    b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
    QTest::mouseClick(f.findChild<QPushButton*>(QStringLiteral("Registra")), Qt::LeftButton);
    const auto r
        = b.archivio().riga(QStringLiteral("SELECT NroCamera, X, Y, CodiceTipologia FROM TabellaStrutturaCamere"));
    QVERIFY(r);
    QCOMPARE(r->value(0).toString(), QStringLiteral("12"));
    QCOMPARE(r->value(1).toInt(), 1);
    QCOMPARE(r->value(2).toInt(), 1);
    QCOMPARE(r->value(3).toString(), QStringLiteral("SUI"));
    QCOMPARE(f.findChild<QPushButton*>(QStringLiteral("Command15"))->toolTip(),
             QStringLiteral("CANCELLAZIONE COMPLETA STRUTTURA"));
}

TOMVERA_TEST(TestFinestreCatalogo)

// The board inside the main window: menus, rights, beach switch, add-room mode.
class TestTabelloneAvvio : public QObject
{
    Q_OBJECT
private slots:
    void dirittiEMenu();
    void aiutiDellaScrivania();
    void cancelloConfigurazioneCamere();
    void finestraMassimizzataRicordata();
};

void TestTabelloneAvvio::dirittiEMenu()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    b.sessione.permessi->amministratore = false;
    b.sessione.permessi->Spiaggia = true;
    Avvio avvio(b.sessione);
    FinestraAvvio finestra(avvio);
    TabelloneAvvio tabellone(finestra, b.sessione);
    finestra.registraComando(QStringLiteral("CSpiaggia"), [] {});
    finestra.registraComando(QStringLiteral("mListinoSpiaggia"), [] {});
    finestra.SettaPermessiUtente();
    tabellone.applicaAllaFinestra();

    // Configuration is the administrator's: hidden with its menu for anyone else.
    QVERIFY(!finestra.findChild<QMenu*>(QStringLiteral("mConfigurazioni"))->menuAction()->isVisible());
    QVERIFY(finestra.azione(QStringLiteral("M_Moderno"))->isVisible());
    // Beach management off: its button stays hidden even with the right.
    QVERIFY(!finestra.pulsante(QStringLiteral("CSpiaggia"))->isVisibleTo(&finestra));
    finestra.azione(QStringLiteral("AbilitaGestioneSpiaggia"))->trigger();
    QVERIFY(finestra.pulsante(QStringLiteral("CSpiaggia"))->isVisibleTo(&finestra));
    QVERIFY(finestra.azione(QStringLiteral("AbilitaGestioneSpiaggia"))->isChecked());
    b.sessione.permessi->Spiaggia = false;
    finestra.SettaPermessiUtente();
    tabellone.applicaAllaFinestra();
    QVERIFY(!finestra.pulsante(QStringLiteral("CSpiaggia"))->isVisibleTo(&finestra));

    finestra.azione(QStringLiteral("M_Simbolo"))->trigger();
    QCOMPARE(tabellone.logica().grafica(), Grafica::Simbolo);
    QVERIFY(finestra.azione(QStringLiteral("M_Simbolo"))->isChecked());
    QVERIFY(!finestra.azione(QStringLiteral("M_Moderno"))->isChecked());

    // While a room is added to an open reservation the window's menus rest.
    tabellone.logica().AbilitaDisabilita(QStringLiteral("abilita aggiuntacamere"));
    QVERIFY(!finestra.findChild<QMenu*>(QStringLiteral("mFile"))->menuAction()->isEnabled());
    QVERIFY(!finestra.pulsante(QStringLiteral("Menu"))->isEnabled());
    QVERIFY(finestra.findChild<QWidget*>(QStringLiteral("FrameAggiungiCamera"))->isVisibleTo(&finestra));
    QTest::mouseClick(finestra.findChild<QPushButton*>(QStringLiteral("Command13")), Qt::LeftButton);
    QVERIFY(finestra.findChild<QMenu*>(QStringLiteral("mFile"))->menuAction()->isEnabled());

    b.sessione.permessi->amministratore = true;
    finestra.SettaPermessiUtente();
    QVERIFY(finestra.azione(QStringLiteral("mConfigurazioniCamere"))->isVisible());
    QVERIFY(finestra.findChild<QMenu*>(QStringLiteral("mConfigurazioni"))->menuAction()->isVisible());
}

// What a new receptionist meets: the short buttons explain themselves, "Annulla" closes the multiple selection,
// "Menù" never turns into a blank button, and an archive without rooms says where they are made.
void TestTabelloneAvvio::aiutiDellaScrivania()
{
    test::BancoTabellone b(2, 3);
    Avvio avvio(b.sessione);
    FinestraAvvio finestra(avvio);
    // Owned by the window, as in the program: the board outlives the window's widgets.
    auto& tabellone = *new TabelloneAvvio(finestra, b.sessione);
    finestra.resize(1280, 800);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&finestra));
    tabellone.logica().Aggiorna_Click();
    for (const char* nome : { "PrenotazioneMultipla", "InformazioniCamera", "MostraCalendario" })
        QVERIFY2(!finestra.findChild<QAbstractButton*>(QLatin1String(nome))->toolTip().isEmpty(), nome);

    auto* suggerimento = finestra.findChild<QLabel*>(QStringLiteral("SuggerimentoCamere"));
    QVERIFY(suggerimento->isVisible());
    QVERIFY(suggerimento->text().contains(QStringLiteral("Configurazione Camere")));
    fotografa(finestra, QStringLiteral("avvio_archivio_vuoto"));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    tabellone.logica().Aggiorna_Click();
    QVERIFY(!suggerimento->isVisible());

    auto* multipla = finestra.findChild<QPushButton*>(QStringLiteral("PrenotazioneMultipla"));
    auto* frame = finestra.findChild<QWidget*>(QStringLiteral("FramePrenotazioneMultipla"));
    QTest::mouseClick(multipla, Qt::LeftButton);
    QVERIFY(frame->isVisible());
    QTest::mouseClick(finestra.findChild<QPushButton*>(QStringLiteral("AnnullaPrenotazioneMultipla")), Qt::LeftButton);
    QVERIFY(!frame->isVisible());
    QVERIFY(!multipla->isChecked());

    QPushButton* menu = finestra.pulsante(QStringLiteral("Menu"));
    auto* barra = finestra.findChild<QWidget*>(QStringLiteral("FrameMenu"));
    const int larghezza = menu->width();
    QTest::mouseClick(menu, Qt::LeftButton);
    QVERIFY(!barra->isVisible());
    QVERIFY(menu->text().startsWith(QStringLiteral("Menù")));
    QVERIFY(menu->width() >= larghezza);
    QTest::mouseClick(menu, Qt::LeftButton);
    QVERIFY(barra->isVisible());
    QCOMPARE(menu->text(), QStringLiteral("Menù"));
}

// The rooms' layout is behind the administrator's password like the settings: a wrong one ends the run and
// the screen never opens.
void TestTabelloneAvvio::cancelloConfigurazioneCamere()
{
    test::BancoTabellone b;
    QVERIFY(b.archivio().comando(QStringLiteral("INSERT INTO Configurazioni (RagSociale) VALUES ('Hotel')")));
    QVERIFY(utenti::salvaPasswordAmministratore(b.archivio(), utenti::CifraPassword(QStringLiteral("Chiave9"))));
    Avvio avvio(b.sessione);
    FinestraAvvio finestra(avvio);

    new TabelloneAvvio(finestra, b.sessione);
    QStringList aperte;
    const auto rispondi = [&](const QString& password) {
        QTimer::singleShot(0, [&, password] {
            QWidget* modale = QApplication::activeModalWidget();
            aperte << (modale ? modale->objectName() : QString());
            if (!modale || modale->objectName() != QLatin1String("F_Pass"))
                return;
            modale->findChild<QLineEdit*>(QStringLiteral("Password"))->setText(password);
            // The screen behind the gate, if it opens, is closed by the next turn.
            QTimer::singleShot(0, [&] {
                QWidget* dopo = QApplication::activeModalWidget();
                aperte << (dopo ? dopo->objectName() : QString());
                if (auto* d = qobject_cast<QDialog*>(dopo))
                    d->done(QDialog::Rejected);
            });
            QTest::mouseClick(modale->findChild<QPushButton*>(QStringLiteral("Ok")), Qt::LeftButton);
        });
    };
    finestra.show();
    rispondi(QStringLiteral("Chiave9"));
    finestra.azione(QStringLiteral("mConfigurazioniCamere"))->trigger();
    QTest::qWait(30); // the scripted answers run out while the test's locals are alive
    QCOMPARE(aperte, (QStringList { QStringLiteral("F_Pass"), QStringLiteral("F_ConfiguraGriglia") }));
    QVERIFY(!avvio.Terminato);
    aperte.clear();
    rispondi(QStringLiteral("sbagliata"));
    finestra.azione(QStringLiteral("mConfigurazioniCamere"))->trigger();
    QTest::qWait(30);
    QCOMPARE(aperte.first(), QStringLiteral("F_Pass"));
    QVERIFY(!aperte.contains(QStringLiteral("F_ConfiguraGriglia")));
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("PASSWORD ERRATA"));
    QVERIFY(avvio.Terminato);
}

// The main window opens maximised, keeps the desk's choice of a smaller one, and the tiles use the room.
void TestTabelloneAvvio::finestraMassimizzataRicordata()
{
    test::BancoTabellone b(3, 5);
    for (int i = 0; i < 15; ++i)
        QVERIFY(b.camera(QString::number(101 + i), 1, i % 5, i / 5));
    {
        Avvio avvio(b.sessione);
        FinestraAvvio finestra(avvio);
        // Owned by the window, as in the program: the board outlives the window's widgets.
        new TabelloneAvvio(finestra, b.sessione);
        finestra.mostra();
        QVERIFY(QTest::qWaitForWindowExposed(&finestra));
        QVERIFY(finestra.isMaximized());
        finestra.showNormal();
        QVERIFY(!finestra.isMaximized());
    }
    Avvio avvio(b.sessione);
    QVERIFY(!avvio.FinestraMassimizzata());
    FinestraAvvio finestra(avvio);
    // Owned by the window, as in the program: the board outlives the window's widgets.
    auto& tabellone = *new TabelloneAvvio(finestra, b.sessione);
    finestra.mostra();
    QVERIFY(!finestra.isMaximized());
    finestra.showMaximized();
    QVERIFY(avvio.FinestraMassimizzata());

    // Tiles fill the board: at 1280x800 and 1600x1000 the grid takes most of the frame's height or width.
    for (const QSize dimensione : { QSize(1280, 800), QSize(1600, 1000) }) {
        finestra.showNormal();
        finestra.resize(dimensione);
        QTest::qWait(20);
        tabellone.logica().daRicostruire = true;
        tabellone.logica().Aggiorna_Click();
        VistaTabellone& vista = *tabellone.pannello()->vista();
        QRectF tessere;
        for (int n = 1; n <= 15; ++n)
            tessere = tessere.united(vista.riquadroTessera(n));
        QVERIFY2(tessere.height() >= vista.height() * 0.7 || tessere.width() >= vista.width() * 0.7,
                 qPrintable(QStringLiteral("%1x%2 in %3x%4")
                                .arg(tessere.width())
                                .arg(tessere.height())
                                .arg(vista.width())
                                .arg(vista.height())));
        fotografa(finestra, QStringLiteral("avvio_%1x%2").arg(dimensione.width()).arg(dimensione.height()));
    }
}

TOMVERA_TEST(TestTabelloneAvvio)

// A new hotel set up through the screens' logic: 4 types, 3 floors of 10 rooms, then the board.
class TestNuovoAlbergo : public QObject
{
    Q_OBJECT
private slots:
    void configuraEGuarda();
};

void TestNuovoAlbergo::configuraEGuarda()
{
    test::BancoTabellone b(3, 5);
    b.sessione.configurazione->Righe = 0; // a new archive: the size is chosen on the screen
    b.sessione.configurazione->Colonne = 0;
    {
        FinestraTipologieCamere tipologie(b.sessione);
        F_TipologiaCamere& f = tipologie.logica();
        const struct
        {
            const char* codice;
            int persone;
            const char* nome;
            QColor colore;
        } tipi[] = { { "SIN", 1, "Singola", QColor(0x5d, 0xad, 0xe2) },
                     { "DOP", 2, "Doppia", QColor(0x58, 0xd6, 0x8d) },
                     { "TRI", 3, "Tripla", QColor(0xf5, 0xb0, 0x41) },
                     { "SUI", 4, "Suite", QColor(0xaf, 0x7a, 0xc5) } };
        for (const auto& t : tipi) {
            f.CodiceTipologia = QString::fromLatin1(t.codice);
            f.NroPersone = QString::number(t.persone);
            f.NomeTipologia = QString::fromLatin1(t.nome);
            f.Colore = coloreDaRgb(t.colore.red(), t.colore.green(), t.colore.blue());
            QVERIFY(f.Registra_Click());
        }
        f.Griglia_DblClick(1);
        tipologie.caricaDaLogica();
        tipologie.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tipologie));
        fotografa(tipologie, QStringLiteral("tipologie_camere"));
    }
    {
        FinestraConfiguraGriglia configura(b.sessione);
        F_ConfiguraGriglia& f = configura.logica();
        QVERIFY(f.Command22_Click(QStringLiteral("2"), QStringLiteral("5")));
        const char* codiciPiano[] = { "SIN", "DOP", "DOP", "TRI", "SUI", "DOP", "DOP", "TRI", "SIN", "DOP" };
        for (int piano = 1; piano <= 3; ++piano) {
            f.cambiaPiano(piano);
            for (int i = 0; i < 10; ++i) {
                f.GrigliaTipologie_Click(
                    static_cast<int>(std::find_if(f.GrigliaTipologie.cbegin(), f.GrigliaTipologie.cend(),
                                                  [&](const TipologiaCamera& t) {
                                                      return t.CodiceTipologia == QString::fromLatin1(codiciPiano[i]);
                                                  })
                                     - f.GrigliaTipologie.cbegin()));
                f.Cella_Click(i / 5, i % 5);
                f.impostaTestoCella(i / 5, i % 5, QString::number(piano * 100 + i + 1));
            }
            b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
            QVERIFY(f.Registra_Click());
        }
        f.GrigliaTipologie_Click(0);
        configura.caricaDaLogica();
        configura.show();
        QVERIFY(QTest::qWaitForWindowExposed(&configura));
        fotografa(configura, QStringLiteral("configurazione_camere"));
    }
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaStrutturaCamere")).toInt(), 30);
    QVERIFY(b.interazione().errore().isEmpty());

    // Guests of a normal June day.
    const QString nomi[] = { QStringLiteral("Rossi Mario"), QStringLiteral("Bianchi Anna"),
                             QStringLiteral("Esposito Luca"), QStringLiteral("Romano Giulia") };
    b.soggiorno(QStringLiteral("101"), giugno(8), giugno(12), { nomi[0] });
    b.soggiorno(QStringLiteral("102"), giugno(10), giugno(11), { nomi[1], nomi[2] });
    b.soggiorno(QStringLiteral("104"), giugno(9), giugno(14), { nomi[3] });
    b.soggiorno(QStringLiteral("105"), giugno(10), giugno(11));
    b.soggiorno(QStringLiteral("105"), giugno(7), giugno(12));
    b.soggiorno(QStringLiteral("107"), giugno(12), giugno(15));
    b.soggiorno(QStringLiteral("203"), giugno(10), giugno(17), { nomi[0], nomi[1] });
    b.soggiorno(QStringLiteral("301"), giugno(5), giugno(11));

    Tabellone logica(b.sessione);
    logica.Form_Load();
    QCOMPARE(logica.NroPiano, 1);
    PannelloTabellone pannello(logica);
    pannello.resize(1180, 760);
    pannello.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pannello));
    logica.Aggiorna_Click();
    QCOMPARE(logica.tessere().size(), size_t(10));
    QCOMPARE(logica.CamereDisponibili, QStringLiteral("Camere Disponibili: 24"));
    QCOMPARE(logica.tesseraDiCamera(QStringLiteral("105"))->stato, StatoCamera::PiuPrenotazioni);
    QCOMPARE(logica.tesseraDiCamera(QStringLiteral("102"))->personePresenti, 2);
    logica.tessera_Click(logica.tesseraDiCamera(QStringLiteral("104"))->numero);
    logica.InformazioniCamera_Click(true);
    logica.Camera_MouseMove(logica.tesseraDiCamera(QStringLiteral("102"))->numero);
    fotografa(pannello, QStringLiteral("tabellone_moderno"));
    logica.InformazioniCamera_Click(false);

    logica.M_Classico_Click();
    fotografa(pannello, QStringLiteral("tabellone_classico"));
    logica.M_Simbolo_Click();
    fotografa(pannello, QStringLiteral("tabellone_simboli"));
    logica.M_Moderno_Click();

    logica.UpDown1_Click(true);
    QCOMPARE(logica.NroPiano, 2);
    QCOMPARE(logica.tesseraSegnata(), 0);
    logica.tessera_Click(logica.tesseraDiCamera(QStringLiteral("203"))->numero);
    logica.MostraCalendario_Click(true);
    logica.PiuArrivo_Click();
    logica.PiuPartenza_Click();
    QTRY_VERIFY_WITH_TIMEOUT(!logica.TimerAggiorna.isActive(), 3000);
    QCOMPARE(logica.Dal, giugno(11));
    QCOMPARE(logica.Al, giugno(13));
    QCOMPARE(logica.tesseraDiCamera(QStringLiteral("203"))->stato, StatoCamera::Occupata);
    fotografa(pannello, QStringLiteral("tabellone_calendario"));

    // The same hotel in the main window, as the desk sees it after logging in.
    Avvio avvio(b.sessione);
    FinestraAvvio finestra(avvio);
    TabelloneAvvio collegato(finestra, b.sessione);
    finestra.setWindowTitle(QStringLiteral("Tomvera"));
    finestra.resize(1366, 768);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&finestra));
    QTRY_VERIFY_WITH_TIMEOUT(collegato.logica().refreshEseguiti > 0, 3000);
    QCOMPARE(collegato.logica().NroPiano, 2); // the floor chosen last time
    QVERIFY(finestra.windowTitle().startsWith(QStringLiteral("Tomvera        (Refresh: ")));
    fotografa(finestra, QStringLiteral("avvio_tabellone"));
}

TOMVERA_TEST(TestNuovoAlbergo)

#include "test_tabellone_ui.moc"
