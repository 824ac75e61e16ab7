#include "controlli.h"
#include "costruttori.h"
#include "fotografie.h"
#include "reservations/acconti.h"
#include "reservations/ui/accontiwidget.h"
#include "reservations/ui/collegamentoprenotazioni.h"
#include "reservations/ui/prenotazionewidget.h"
#include "rooms/tabellone.h"
#include "testmain.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

void salva(QWidget& w, const QString& nome)
{
    test::fotografa(w, nome);
}

using tomvera::test::trova;

void scrivi(QWidget& w, const char* nome, const QString& testo)
{
    auto* e = trova<QLineEdit>(w, nome);
    e->setText(testo);
}

void ospite(QWidget& w, const QString& cognome, const QString& nome, const QString& tipo, const QString& nascita)
{
    QTest::mouseClick(trova<QPushButton>(w, "Command1"), Qt::LeftButton);
    scrivi(w, "Cognome", cognome);
    scrivi(w, "Nome", nome);
    scrivi(w, "DataNascita", nascita);
    scrivi(w, "LuogoNascita", QStringLiteral("Bologna"));
    trova<QComboBox>(w, "TipoDiAlloggiato")->setCurrentText(tipo);
    trova<QComboBox>(w, "TipoTrattamento")->setCurrentText(QStringLiteral("Mezza Pensione"));
    auto* camera = trova<QComboBox>(w, "NroCameraCliente");
    camera->setCurrentText(QStringLiteral("101"));
    emit camera->textActivated(QStringLiteral("101"));
    QTest::mouseClick(trova<QPushButton>(w, "Command4"), Qt::LeftButton);
}

} // namespace

class TestPrenotazioneUi : public QObject
{
    Q_OBJECT
private slots:
    void famigliaConMezzaPensioneExtraEAcconto();
};

void TestPrenotazioneUi::famigliaConMezzaPensioneExtraEAcconto()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    b.camera(QStringLiteral("102"), QStringLiteral("SGL"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 90);
    b.archivio().comando(QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) "
                                        "VALUES ('Bar', 'Acqua minerale', 2, 22)"));
    b.sessione.configurazione->PrezzoAggiuntivoMezzaPensione = 25;
    auto logica = std::make_unique<SchedaPrenotazione>(b.sessione, b.archivio());
    logica->Form_Load(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 8) } });
    PrenotazioneWidget w(std::move(logica));
    w.show();
    auto* listino = trova<QComboBox>(w, "ListinoCamere");
    listino->setCurrentText(QStringLiteral("Estate"));
    emit listino->textActivated(QStringLiteral("Estate"));
    auto* camere = trova<QTableWidget>(w, "GrigliaCamerePrenotate");
    QCOMPARE(camere->rowCount(), 1);
    QCOMPARE(camere->item(0, 5)->text(), QStringLiteral("630,00"));
    trova<QPlainTextEdit>(w, "NotePrenotazione")->setPlainText(QStringLiteral("Culla in camera"));
    salva(w, QStringLiteral("prenotazione_camere"));

    w.schede()->setCurrentIndex(1);
    ospite(w, QStringLiteral("Rossi"), QStringLiteral("Mario"), QStringLiteral("CAPOFAMIGLIA"),
           QStringLiteral("12/03/1978"));
    ospite(w, QStringLiteral("Rossi"), QStringLiteral("Anna"), QStringLiteral("FAMILIARE"),
           QStringLiteral("02/05/1980"));
    ospite(w, QStringLiteral("Rossi"), QStringLiteral("Luca"), QStringLiteral("FAMILIARE"),
           QStringLiteral("20/09/2015"));
    auto* clienti = trova<QTableWidget>(w, "GrigliaAnagrafiche");
    QCOMPARE(clienti->rowCount(), 3);
    QCOMPARE(trova<QLabel>(w, "NumeroPersone")->text(), QStringLiteral("N° Persone: 3"));
    // The head line selected, to show its statutory fields.
    QTest::mouseClick(clienti->viewport(), Qt::LeftButton, {}, clienti->visualItemRect(clienti->item(0, 0)).center());
    QCOMPARE(trova<QLineEdit>(w, "Nome")->text(), QStringLiteral("Mario"));
    salva(w, QStringLiteral("prenotazione_clienti_famiglia"));
    QTest::mouseClick(trova<QPushButton>(w, "Command1"), Qt::LeftButton);

    w.schede()->setCurrentIndex(2);
    trova<QComboBox>(w, "Tipo")->setCurrentText(QStringLiteral("Bar"));
    auto* descrizione = trova<QComboBox>(w, "Descrizione");
    QTest::keyClicks(descrizione->lineEdit(), QStringLiteral("A"));
    QCOMPARE(descrizione->count(), 1);
    emit descrizione->activated(0);
    scrivi(w, "Qta", QStringLiteral("3"));
    emit trova<QLineEdit>(w, "Qta")->textEdited(QStringLiteral("3"));
    QCOMPARE(trova<QLineEdit>(w, "Prezzo")->text(), QStringLiteral("6,00"));
    QTest::mouseClick(trova<QPushButton>(w, "Ins"), Qt::LeftButton);
    QCOMPARE(trova<QTableWidget>(w, "RigheArt")->rowCount(), 1);
    // Room 630 + board 3 x 7 x 25 + extra 6.
    QCOMPARE(trova<QLabel>(w, "Totale")->text(), QStringLiteral("Totale: 1.161,00"));

    QTest::mouseClick(trova<QPushButton>(w, "Registra"), Qt::LeftButton);
    QVERIFY(w.logica().salvato());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                    "WHERE CapoGruppoFamiglia = 'Rossi Mario'")),
             3);
    QVERIFY(trova<QPushButton>(w, "Command6")->isEnabled());
    salva(w, QStringLiteral("prenotazione_accessori"));

    AccontiWidget acconti(std::make_unique<SchedaAcconti>(b.archivio(), b.interazione(), b.orologio,
                                                          SchedaAcconti::Modo::Camere, w.logica().Indice));
    acconti.show();
    scrivi(acconti, "Descrizione", QStringLiteral("Caparra bonifico"));
    scrivi(acconti, "Importo", QStringLiteral("300"));
    QTest::mouseClick(trova<QPushButton>(acconti, "Ins"), Qt::LeftButton);
    QCOMPARE(trova<QTableWidget>(acconti, "Griglia")->rowCount(), 1);
    salva(acconti, QStringLiteral("prenotazione_acconti"));
    acconti.accept();
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT TotaleAcconto FROM TabellaPrenotazioni")).toDouble(), 300.0);
    w.logica().Form_Activate();
    w.aggiorna();
    QCOMPARE(trova<QLabel>(w, "TotaleAcconto")->text(), QStringLiteral("Acconti: 300,00"));
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestPrenotazioneUi)

class TestCollegamentoTabellone : public QObject
{
    Q_OBJECT
private slots:
    void tesseraLiberaApreLaSchedaEIlTabelloneSiAggiorna();
};

void TestCollegamentoTabellone::tesseraLiberaApreLaSchedaEIlTabelloneSiAggiorna()
{
    BancoPrenotazioni b;
    b.sessione.PercorsoDB = b.t.percorso();
    b.archivio().comando(
        QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, CodiceTipologia, NroPiano, X, Y) "
                       "VALUES ('101', 'DBL', 1, 0, 0)"));
    Tabellone tabellone(b.sessione);
    tabellone.Form_Load();
    tabellone.NroPiano = 1;
    tabellone.Dal = QDate(2026, 7, 1);
    tabellone.Al = QDate(2026, 7, 4);
    tabellone.Aggiorna_Click();
    const Tessera* tessera = tabellone.tesseraDiCamera(QStringLiteral("101"));
    QVERIFY(tessera);
    QCOMPARE(tessera->stato, StatoCamera::Libera);
    const int numero = tessera->numero;
    collegaPrenotazioni(tabellone, b.sessione, nullptr);

    tabellone.tessera_Click(numero);
    PrenotazioneWidget* w = nullptr;
    for (QWidget* finestra : QApplication::topLevelWidgets()) {
        if (auto* p = qobject_cast<PrenotazioneWidget*>(finestra); p && p->isVisible())
            w = p;
    }
    QVERIFY(w);
    QCOMPARE(w->logica().GrigliaCamerePrenotate.size(), 1);
    QCOMPARE(w->logica().GrigliaCamerePrenotate.first().Al, QDate(2026, 7, 4));
    w->schede()->setCurrentIndex(1);
    ospite(*w, QStringLiteral("Bianchi"), QStringLiteral("Carla"), QStringLiteral("OSPITE SINGOLO"),
           QStringLiteral("01/01/1990"));
    QTest::mouseClick(trova<QPushButton>(*w, "Registra"), Qt::LeftButton);
    const int refreshPrima = tabellone.refreshEseguiti;
    QPointer<PrenotazioneWidget> chiusa(w);
    QTest::mouseClick(trova<QPushButton>(*w, "Fine"), Qt::LeftButton);
    QTRY_VERIFY(chiusa.isNull());
    // Back on the board: refreshed, and the room is taken.
    QCOMPARE(tabellone.refreshEseguiti, refreshPrima + 1);
    QVERIFY(tabellone.tesseraDiCamera(QStringLiteral("101"))->stato != StatoCamera::Libera);
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestCollegamentoTabellone)

#include "test_prenotazione_ui.moc"
