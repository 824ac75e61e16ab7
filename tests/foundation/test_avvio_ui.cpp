#include "fotografie.h"
#include "foundation/archivio.h"
#include "foundation/avvio/avvio.h"
#include "foundation/avvio/avvioselezioneutente.h"
#include "foundation/gestioneerrori.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/piattaforma.h"
#include "foundation/sessione.h"
#include "foundation/ui/avvioselezioneutentewidget.h"
#include "foundation/ui/finestraavvio.h"
#include "foundation/utenti.h"
#include "interazionescriptata.h"
#include "testmain.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;

namespace {

void fotografa(QWidget& w, const char* nome)
{
    test::fotografa(w, QString::fromLatin1(nome));
}

struct Banco
{
    QTemporaryDir casa;
    test::InterazioneScriptata interazione;
    OrologioFisso orologio { QDateTime(QDate(2026, 11, 16), QTime(10, 0)) };
    GestioneErrori errori { &interazione };
    Sessione sessione { interazione, orologio, errori };
    AvvioSelezioneUtente logica { sessione, [](const QString&) { return 1; } };
    AvvioSelezioneUtenteWidget schermo { logica };

    Banco()
    {
        qputenv("TOMVERA_HOME", casa.path().toUtf8());
        errori.setPausa([](double) {});
    }
    ~Banco()
    {
        Archivio::chiudiConnessioni(sessione.PercorsoDB);
        qunsetenv("TOMVERA_HOME");
    }
    template <typename T> T* trova(const char* nome) { return schermo.findChild<T*>(QLatin1String(nome)); }
};

} // namespace

class TestAvvioSelezioneUtenteWidget : public QObject
{
    Q_OBJECT
private slots:
    void primoAvvioCreaEAccede();
    void passwordErrataEdEscape();
    void aggiornamentoConAvanzamento();
};

void TestAvvioSelezioneUtenteWidget::primoAvvioCreaEAccede()
{
    Banco b;
    b.schermo.avvia();
    b.schermo.show();
    auto* errore = b.trova<QPlainTextEdit>("ErroreAvvio");
    QVERIFY(errore->isVisible());
    QVERIFY(errore->toPlainText().endsWith(QStringLiteral("ERRORE: Archivio non trovato")));
    QVERIFY(!b.trova<QPushButton>("Accedi")->isEnabled());
    QVERIFY(b.trova<QPushButton>("Command5")->isVisible());
    QCOMPARE(b.trova<QLineEdit>("PercorsoDataBase")->text(),
             QDir::toNativeSeparators(piattaforma::percorsoArchivioPredefinito()));
    QCOMPARE(b.schermo.windowTitle(), QStringLiteral("Tomvera ver. 3.9.4"));
    fotografa(b.schermo, "avvio_archivio_non_trovato");

    QTest::mouseClick(b.trova<QPushButton>("Command5"), Qt::LeftButton);
    QVERIFY2(b.interazione.errore().isEmpty(), qPrintable(b.interazione.errore()));
    QVERIFY(!errore->isVisible());
    auto* utente = b.trova<QComboBox>("Utente");
    QCOMPARE(utente->currentText(), QStringLiteral("Amministratore"));
    QVERIFY(!b.trova<QLineEdit>("Password")->isVisible());
    QVERIFY(b.trova<QPushButton>("Accedi")->isEnabled());
    // The archive commands fold away with the settings button.
    QTest::mouseClick(b.trova<QWidget>("Impostazioni"), Qt::LeftButton);
    QVERIFY(!b.trova<QWidget>("FrameArchivio")->isVisible());
    fotografa(b.schermo, "avvio_accesso");

    QTest::mouseClick(b.trova<QPushButton>("Accedi"), Qt::LeftButton);
    QCOMPARE(b.schermo.result(), int(QDialog::Accepted));
    QCOMPARE(b.sessione.UtenteCollegato, QStringLiteral("Amministratore"));
    QVERIFY(b.interazione.testi().isEmpty());
}

void TestAvvioSelezioneUtenteWidget::passwordErrataEdEscape()
{
    Banco b;
    b.schermo.avvia();
    b.schermo.show();
    QTest::mouseClick(b.trova<QPushButton>("Command5"), Qt::LeftButton);
    {
        Archivio archivio(b.sessione.PercorsoDB, b.errori);
        QVERIFY(archivio.apri());
        utenti::Utente anna;
        anna.nome = QStringLiteral("Anna");
        anna.password = utenti::CifraPassword(QStringLiteral("mare2026"));
        QVERIFY(utenti::salvaUtente(archivio, anna) > 0);
    }
    b.schermo.avvia();
    auto* utente = b.trova<QComboBox>("Utente");
    utente->setCurrentText(QStringLiteral("Anna"));
    auto* password = b.trova<QLineEdit>("Password");
    QVERIFY(password->isVisible());
    QCOMPARE(password->echoMode(), QLineEdit::Password);
    QTest::keyClicks(password, QStringLiteral("mare"));
    QTest::keyClick(password, Qt::Key_Return);
    QCOMPARE(b.interazione.ultimoTesto(), QStringLiteral("Password errata!"));
    QCOMPARE(password->selectedText(), QStringLiteral("mare"));
    QVERIFY(b.schermo.isVisible());

    QTest::keyClick(&b.schermo, Qt::Key_Escape);
    QCOMPARE(b.schermo.result(), int(QDialog::Rejected));
    QVERIFY(b.logica.Terminato);
}

// The upgrade of an older archive shows its steps while it runs, and the label claims success only after one.
void TestAvvioSelezioneUtenteWidget::aggiornamentoConAvanzamento()
{
    Banco b;
    b.schermo.avvia();
    b.schermo.show();
    QTest::mouseClick(b.trova<QPushButton>("Command5"), Qt::LeftButton);
    const auto versione = [&](const char* v) {
        Archivio archivio(b.sessione.PercorsoDB, b.errori);
        QVERIFY(archivio.apri());
        QVERIFY(archivio.comando(QStringLiteral("UPDATE TabellaVersione SET Versione = ?"), { QLatin1String(v) }));
    };
    versione("3.9.3");
    QStringList visti;
    bool riesce = false;
    b.logica.eseguiAggiornamento = [&](const std::function<void(const QString&)>& registro) {
        for (const char* riga : { "Controllo Tabella TabellaUtenti Effettuato", "COMANDO ESEGUITO" }) {
            registro(QLatin1String(riga));
            auto* barra = b.schermo.findChild<QProgressDialog*>(QStringLiteral("AggiornamentoArchivio"));
            if (barra && barra->isVisible())
                visti << barra->labelText() + QLatin1Char('|') + QString::number(barra->value());
        }
        return riesce;
    };
    b.schermo.avvia();
    QCOMPARE(visti,
             (QStringList { QStringLiteral("Controllo Tabella TabellaUtenti Effettuato|1"),
                            QStringLiteral("COMANDO ESEGUITO|2") }));
    QVERIFY(!b.trova<QLabel>("Ver")->text().startsWith(QStringLiteral("Aggiornamento eseguito")));
    QVERIFY(!b.trova<QPushButton>("Accedi")->isEnabled());
    QCOMPARE(b.interazione.ultimoTesto(), AvvioSelezioneUtente::testoAggiornamentoNonRiuscito());
    // Done: the bar goes away and the label says so.
    riesce = true;
    b.schermo.avvia();
    QVERIFY(!b.schermo.findChild<QProgressDialog*>(QStringLiteral("AggiornamentoArchivio"))->isVisible());
    QCOMPARE(b.trova<QLabel>("Ver")->text(), QStringLiteral("Aggiornamento eseguito alla versione: 3.9.4"));
    QVERIFY(b.trova<QPushButton>("Accedi")->isEnabled());
}

TOMVERA_TEST(TestAvvioSelezioneUtenteWidget)

class TestFinestraAvvio : public QObject
{
    Q_OBJECT
private slots:
    void comandiSecondoIDiritti();
    void fotografia();
};

void TestFinestraAvvio::comandiSecondoIDiritti()
{
    Banco b;
    b.schermo.avvia();
    b.logica.Command5_Click();
    {
        Archivio archivio(b.sessione.PercorsoDB, b.errori);
        QVERIFY(archivio.apri());
        utenti::Utente sara;
        sara.nome = QStringLiteral("Sara");
        sara.diritti.CreditiDebiti = true;
        QVERIFY(utenti::salvaUtente(archivio, sara) > 0);
    }
    b.logica.Form_Activate();
    b.logica.Utente_Click(QStringLiteral("Sara"));
    QVERIFY(b.logica.Accedi_Click());

    Avvio avvio(b.sessione);
    FinestraAvvio finestra(avvio);
    bool backup = false;
    for (const char* nome : { "mBackup", "Command8", "mPagamenti", "mListinoCamere" })
        finestra.registraComando(QLatin1String(nome), [&backup] { backup = true; });
    QVERIFY(finestra.carica());
    finestra.show();
    QCOMPARE(finestra.windowTitle(), QStringLiteral("Tomvera Ver.3.9.4 - (Utente: Sara)"));

    const auto menuVisibile = [&](const char* nome) {
        for (QAction* a : finestra.menuBar()->actions())
            if (a->objectName() == QLatin1String(nome))
                return a->isVisible();
        return false;
    };
    // Without the price-list right there is no "Listini"; a registered right shows its menu.
    QVERIFY(!menuVisibile("mListini"));
    QVERIFY(menuVisibile("mCreditiDebiti"));
    QVERIFY(finestra.azione(QStringLiteral("mPagamenti"))->isVisible());
    QVERIFY(!menuVisibile("mConfigurazioni"));
    QVERIFY(!finestra.azione(QStringLiteral("mBackup"))->isVisible());
    QVERIFY(!finestra.pulsante(QStringLiteral("Command8"))->isVisible());
    QVERIFY(finestra.pulsante(QStringLiteral("Fine"))->isVisible());
    // Nothing registered, nothing shown: not even to those with the right.
    QVERIFY(!finestra.pulsante(QStringLiteral("Command7"))->isVisible());

    // The administrator sees what is built.
    b.logica.Form_Activate();
    b.logica.Utente_Click(QStringLiteral("Amministratore"));
    QVERIFY(b.logica.Accedi_Click());
    finestra.SettaPermessiUtente();
    QVERIFY(menuVisibile("mListini"));
    QVERIFY(finestra.pulsante(QStringLiteral("Command8"))->isVisible());
    QTest::mouseClick(finestra.pulsante(QStringLiteral("Command8")), Qt::LeftButton);
    QVERIFY(backup);

    // The "Menù" button folds the button bar away and back.
    QTest::mouseClick(finestra.pulsante(QStringLiteral("Menu")), Qt::LeftButton);
    QVERIFY(!finestra.findChild<QWidget*>(QStringLiteral("FrameMenu"))->isVisible());
    QTest::mouseClick(finestra.pulsante(QStringLiteral("Menu")), Qt::LeftButton);
    QVERIFY(finestra.findChild<QWidget*>(QStringLiteral("FrameMenu"))->isVisible());

    // "Fine" ends with no question.
    bool terminata = false;
    connect(&finestra, &FinestraAvvio::termina, this, [&terminata] { terminata = true; });
    QTest::mouseClick(finestra.pulsante(QStringLiteral("Fine")), Qt::LeftButton);
    QVERIFY(terminata);
    QVERIFY(avvio.Terminato);
    QVERIFY(b.interazione.testi().isEmpty());
}

// The window as the administrator finds it, with the commands the program has today.
void TestFinestraAvvio::fotografia()
{
    Banco b;
    b.schermo.avvia();
    b.logica.Command5_Click();
    QVERIFY(b.logica.Accedi_Click());
    Avvio avvio(b.sessione);
    FinestraAvvio finestra(avvio);
    for (const char* nome : { "mBackup", "Command8", "mOttimizzazioneArchivio", "mInfo", "mConfigurazioniGenerali" })
        finestra.registraComando(QLatin1String(nome), [] {});
    avvio.contaUtenti = [](const QString&) { return 1; };
    QVERIFY(finestra.carica());
    finestra.show();
    fotografa(finestra, "avvio_finestra_principale");
}

TOMVERA_TEST(TestFinestraAvvio)

#include "test_avvio_ui.moc"
