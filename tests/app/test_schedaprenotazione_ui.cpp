// From the guest card of the main window to the reservation of a stay, through the board's own door.
#include "collegamenti.h"
#include "foundation/archivio.h"
#include "foundation/avvio/avvio.h"
#include "foundation/configurazione.h"
#include "foundation/gestioneerrori.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/versione.h"
#include "foundation/sessione.h"
#include "foundation/ui/finestraavvio.h"
#include "guests/ui/schedaanagraficawidget.h"
#include "interazionescriptata.h"
#include "reservations/demo.h"
#include "reservations/schedaprenotazione.h"
#include "reservations/ui/prenotazionewidget.h"
#include "testmain.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace tomvera;

class TestSchedaVersoPrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void caricaPrenotazioneAssociataDalMenu();
};

void TestSchedaVersoPrenotazione::caricaPrenotazioneAssociataDalMenu()
{
    QTemporaryDir casa;
    qputenv("TOMVERA_HOME", casa.path().toUtf8());
    test::InterazioneScriptata interazione;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 15), QTime(10, 0)));
    GestioneErrori errori(&interazione);
    Sessione sessione(interazione, orologio, errori);
    sessione.PercorsoDB = casa.filePath(QStringLiteral("Archivio.mdb"));
    sessione.UtenteCollegato = QStringLiteral("Amministratore");
    sessione.permessi->amministratore = true;
    CreazioneDB::Percorsi percorsi;
    percorsi.archivio = sessione.PercorsoDB;
    CreazioneDB(percorsi, errori).CreaDB_Click();
    qint64 ospite = 0, prenotazione = 0;
    {
        Archivio archivio(sessione.PercorsoDB, errori);
        QVERIFY(archivio.apri());
        schema::ScriviVersione(archivio);
        OpzioniDemo opzioni;
        opzioni.camere = 6;
        opzioni.oggi = orologio.oggi();
        GeneraDemo(archivio, opzioni);
        const auto riga = archivio.riga(
            QStringLiteral("SELECT IndiceCliente FROM TabellaAnagraficheAssociatePrenotazioni "
                           "WHERE IndiceCliente > 0 AND NroCameraCliente <> '' AND DataArrivo IS NOT NULL "
                           "AND DataPartenza IS NOT NULL ORDER BY Indice LIMIT 1"));
        QVERIFY(riga);
        ospite = riga->value(0).toLongLong();
    }
    CaricaConfigurazione(sessione);
    Avvio avvio(sessione);
    FinestraAvvio finestra(avvio);
    collegaComandi(finestra, avvio, sessione);
    QVERIFY(finestra.carica());
    finestra.show();
    QVERIFY(QTest::qWaitForWindowExposed(&finestra));

    qint64 indiceAperta = 0;
    bool provato = false;
    QTimer::singleShot(0, [&] {
        auto* scheda = qobject_cast<SchedaAnagraficaWidget*>(QApplication::activeModalWidget());
        QVERIFY(scheda);
        // The card of a guest with a stay, as "Cerca" would load it.
        QVERIFY(scheda->logica().carica(ospite));
        scheda->aggiorna();
        auto* carica = scheda->findChild<QPushButton*>(QStringLiteral("CaricaPrenotazione"));
        QVERIFY(carica && carica->isVisible());
        // Its newest stay, first in the list.
        QVERIFY(!scheda->logica().soggiorni().isEmpty());
        prenotazione = scheda->logica().soggiorni().first().indicePrenotazioneAssociata;
        scheda->findChild<QTableWidget*>(QStringLiteral("GrigliaAnagrafiche"))->setCurrentCell(0, 2);
        QTest::mouseClick(carica, Qt::LeftButton);
        PrenotazioneWidget* aperta = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (auto* p = qobject_cast<PrenotazioneWidget*>(w); p && p->isVisible())
                aperta = p;
        }
        QVERIFY(aperta);
        indiceAperta = aperta->logica().Indice;
        QPointer<PrenotazioneWidget> chiusa(aperta);
        aperta->close();
        QTRY_VERIFY(chiusa.isNull());
        QTest::mouseClick(scheda->findChild<QPushButton*>(QStringLiteral("Fine")), Qt::LeftButton);
        provato = true;
    });
    // The card is modal: it runs inside the click.
    finestra.findChild<QPushButton*>(QStringLiteral("Anagrafiche"))->click();
    QVERIFY(provato);
    QVERIFY(prenotazione > 0);
    QCOMPARE(indiceAperta, prenotazione);
    QVERIFY2(interazione.errore().isEmpty(), qPrintable(interazione.errore()));
    Archivio::chiudiConnessioni(sessione.PercorsoDB);
    qunsetenv("TOMVERA_HOME");
}

TOMVERA_TEST(TestSchedaVersoPrenotazione)

#include "test_schedaprenotazione_ui.moc"
