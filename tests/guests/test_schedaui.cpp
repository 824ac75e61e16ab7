#include "archivioospiti.h"
#include "controlli.h"
#include "fotografie.h"
#include "foundation/orologio.h"
#include "guests/archiviocodici.h"
#include "guests/schedaanagrafica.h"
#include "guests/ui/archiviocodiciwidget.h"
#include "guests/ui/schedaanagraficawidget.h"
#include "testmain.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

using namespace tomvera;

namespace {

void salva(QWidget& w, const QString& nome)
{
    test::fotografa(w, nome);
}

using tomvera::test::trova;

} // namespace

class TestSchedaAnagraficaUi : public QObject
{
    Q_OBJECT
private slots:
    void nuovaSchedaDaCapEComune();
    void archivioCodici();
};

void TestSchedaAnagraficaUi::nuovaSchedaDaCapEComune()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("405028001"), QStringLiteral("Abano Terme"), QStringLiteral("PD"), QStringLiteral("35031"));
    t.comune(QStringLiteral("405028060"), QStringLiteral("Padova"), QStringLiteral("PD"), QStringLiteral("35121"));
    t.comune(QStringLiteral("405028058"), QStringLiteral("Montegrotto Terme"), QStringLiteral("PD"),
             QStringLiteral("35036"));
    t.comune(QStringLiteral("405028057"), QStringLiteral("Monselice"), QStringLiteral("PD"), QStringLiteral("35043"));
    const qint64 ospite = t.ospite(QStringLiteral("Gialli"), QStringLiteral("Luca"), QStringLiteral("1"));
    t.archivio().comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndiceCliente, "
                                        "IndicePrenotazioneAssociata, DataArrivo, DataPartenza, NroArrivo, "
                                        "NroCameraCliente, TipoTrattamento) VALUES "
                                        "(?, 41, '2026-06-01', '2026-06-05', 12, '104', 'MEZZA PENSIONE')"),
                         { ospite });
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    // As in the program, where the board opens the stays' reservations.
    connect(&w, &SchedaAnagraficaWidget::apriPrenotazione, &w, [](qint64) {});
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));

    QTest::mouseClick(trova<QPushButton>(w, "Nuovo"), Qt::LeftButton);
    QCOMPARE(trova<QLineEdit>(w, "CodiceAnagrafica")->text(), QStringLiteral("2"));
    QTest::keyClicks(trova<QLineEdit>(w, "Cognome"), QStringLiteral("Rossi"));
    QTest::keyClicks(trova<QLineEdit>(w, "Nome"), QStringLiteral("Maria"));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(2);
    QTest::keyClicks(trova<QLineEdit>(w, "Provincia"), QStringLiteral("PD"));
    auto* lista = trova<QListWidget>(w, "CittaVL");
    QVERIFY(lista->isVisible());
    QCOMPARE(lista->count(), 4);
    salva(w, QStringLiteral("scheda_anagrafica_comuni_proposti"));
    QTest::keyClick(trova<QLineEdit>(w, "Provincia"), Qt::Key_Escape);
    QVERIFY(!lista->isVisible());
    QVERIFY(w.isVisible());
    // Arrow into the list, Enter confirms the highlighted municipality.
    QTest::keyClick(trova<QLineEdit>(w, "Provincia"), Qt::Key_Backspace);
    QTest::keyClicks(trova<QLineEdit>(w, "Provincia"), QStringLiteral("D"));
    QVERIFY(lista->isVisible());
    QTest::keyClick(trova<QLineEdit>(w, "Provincia"), Qt::Key_Down);
    QTest::keyClick(lista, Qt::Key_Down);
    QTest::keyClick(lista, Qt::Key_Return);
    QVERIFY(!lista->isVisible());
    QCOMPARE(trova<QLineEdit>(w, "Citta")->text(), QStringLiteral("Monselice"));
    QCOMPARE(trova<QLineEdit>(w, "Cap")->text(), QStringLiteral("35043"));
    trova<QLineEdit>(w, "Cap")->clear();

    trova<QLineEdit>(w, "Provincia")->clear();
    QTest::keyClicks(trova<QLineEdit>(w, "Cap"), QStringLiteral("35031"));
    QCOMPARE(trova<QLineEdit>(w, "Citta")->text(), QStringLiteral("Abano Terme"));
    QCOMPARE(trova<QLineEdit>(w, "Provincia")->text(), QStringLiteral("PD"));
    QTest::mouseClick(trova<QPushButton>(w, "ProponiIstat"), Qt::LeftButton);
    QCOMPARE(trova<QLabel>(w, "EtichettaIstat")->text(), QStringLiteral("PROVINCIA"));
    QTest::keyClicks(trova<QLineEdit>(w, "Indirizzo"), QStringLiteral("Via Roma 1"));
    salva(w, QStringLiteral("scheda_anagrafica_residenza"));

    trova<QTabWidget>(w, "Schede")->setCurrentIndex(0);
    QTest::mouseClick(trova<QRadioButton>(w, "Femmina"), Qt::LeftButton);
    QTest::keyClicks(trova<QLineEdit>(w, "CodiceFiscale"), QStringLiteral("rssmra85t10a562s"));
    QCOMPARE(trova<QLineEdit>(w, "CodiceFiscale")->text(), QStringLiteral("RSSMRA85T10A562S"));
    QTest::keyClicks(trova<QLineEdit>(w, "Email"), QStringLiteral("maria.rossi@example.it"));
    salva(w, QStringLiteral("scheda_anagrafica_anagrafici"));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(1);
    QTest::keyClicks(trova<QLineEdit>(w, "DataNascita"), QStringLiteral("10121985"));
    auto* luogo = trova<QLineEdit>(w, "LuogoNascita");
    luogo->setFocus();
    QCOMPARE(trova<QLineEdit>(w, "DataNascita")->text(), QStringLiteral("10/12/1985"));
    // The birth place is picked from the proposals and brings its province.
    QTest::keyClicks(luogo, QStringLiteral("Monte"));
    QVERIFY(luogo->completer()->popup()->isVisible());
    QTest::keyClick(luogo->completer()->popup(), Qt::Key_Down);
    QTest::keyClick(luogo->completer()->popup(), Qt::Key_Return);
    QTRY_COMPARE(luogo->text(), QStringLiteral("Montegrotto Terme"));
    QCOMPARE(trova<QLineEdit>(w, "ProvinciaDiNascita")->text(), QStringLiteral("PD"));
    QCOMPARE(trova<QLineEdit>(w, "StatoDiNascita")->text(), QStringLiteral("ITALIA"));
    salva(w, QStringLiteral("scheda_anagrafica_nascita"));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(3);
    QTest::keyClicks(trova<QLineEdit>(w, "TipoDocumento"), QStringLiteral("CARTA DI IDENTITA'"));
    QTest::keyClicks(trova<QLineEdit>(w, "NroDocumento"), QStringLiteral("CA12345AB"));
    salva(w, QStringLiteral("scheda_anagrafica_documento"));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(4);
    salva(w, QStringLiteral("scheda_anagrafica_note"));

    QTest::mouseClick(trova<QPushButton>(w, "Registra"), Qt::LeftButton);
    QVERIFY2(t.interazione().errore().isEmpty(), qPrintable(t.interazione().errore()));
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    const auto salvata = caricaAnagrafica(t.archivio(), w.logica().dati().Indice);
    QVERIFY(salvata);
    QCOMPARE(salvata->RagSociale, QStringLiteral("Rossi Maria"));
    QCOMPARE(salvata->Comune, QStringLiteral("Abano Terme"));
    QCOMPARE(salvata->ResidenzaIstat, QStringLiteral("Padova"));
    QCOMPARE(salvata->DataNascita, QStringLiteral("10/12/1985"));
    QVERIFY(!salvata->Maschio);

    // An existing guest with a stay: the list under the tabs.
    QVERIFY(w.logica().carica(ospite));
    w.aggiorna();
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(0);
    QCOMPARE(trova<QTableWidget>(w, "GrigliaAnagrafiche")->rowCount(), 1);
    salva(w, QStringLiteral("scheda_anagrafica_soggiorni"));
}

void TestSchedaAnagraficaUi::archivioCodici()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("405028001"), QStringLiteral("Abano Terme"), QStringLiteral("PD"), QStringLiteral("35031"));
    t.comune(QStringLiteral("413066049"), QStringLiteral("L'Aquila"), QStringLiteral("AQ"), QStringLiteral("67100"));
    ArchivioCodiciWidget w(std::make_unique<ArchivioCodici>(t.archivio(), t.interazione(), QString(), nullptr));
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* griglia = trova<QTableWidget>(w, "Griglia");
    QCOMPARE(griglia->rowCount(), 2);
    QCOMPARE(griglia->horizontalHeaderItem(4)->text(), QStringLiteral("Prefisso Tel."));
    QTest::keyClicks(trova<QLineEdit>(w, "DescrizioneRic"), QStringLiteral("aquila"));
    QTest::mouseClick(trova<QPushButton>(w, "Command2"), Qt::LeftButton);
    QCOMPARE(griglia->rowCount(), 1);
    salva(w, QStringLiteral("archivio_codici_comuni"));

    QTest::mouseClick(trova<QRadioButton>(w, "Documenti"), Qt::LeftButton);
    QVERIFY(!trova<QLineEdit>(w, "Provincia")->isVisible());
    QCOMPARE(griglia->columnCount(), 2);
    QTest::keyClicks(trova<QLineEdit>(w, "Codice"), QStringLiteral("PASOR"));
    QTest::keyClicks(trova<QLineEdit>(w, "Descrizione"), QStringLiteral("PASSAPORTO ORDINARIO"));
    QTest::mouseClick(trova<QPushButton>(w, "Ins"), Qt::LeftButton);
    QCOMPARE(griglia->rowCount(), 1);
    QCOMPARE(griglia->item(0, 1)->text(), QStringLiteral("PASSAPORTO ORDINARIO"));
    salva(w, QStringLiteral("archivio_codici_documenti"));
    QVERIFY(t.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestSchedaAnagraficaUi)

#include "test_schedaui.moc"
