// The reservation screen driven as the desk drives it: keys, clicks, the closing paths, rights, the extras
// line, the print.
#include "controlli.h"
#include "costruttori.h"
#include "fotografie.h"
#include "foundation/configurazione.h"
#include "foundation/stampanti.h"
#include "reports/ui/anteprimastampa.h"
#include "reservations/ui/prenotazionewidget.h"
#include "rooms/tabellone.h"
#include "testmain.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

using tomvera::test::trova;

// Types into a field as the desk does and leaves it.
void digita(QLineEdit* campo, const QString& testo)
{
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, testo);
    emit campo->editingFinished();
}

void clicca(QWidget& w, const char* nome)
{
    QTest::mouseClick(trova<QPushButton>(w, nome), Qt::LeftButton);
}

void limitaUtente(BancoPrenotazioni& b, bool soloLettura)
{
    b.sessione.permessi->amministratore = false;
    b.sessione.UtenteCollegato = QStringLiteral("Reception");
    b.sessione.permessi->Prenotazioni = true;
    b.sessione.permessi->PrenotazioniSoloLettura = soloLettura;
    b.sessione.permessi->Planning = true;
}

// Room 101 (DBL, three places) on 23-26/11/2026 with three guests at half board, saved.
qint64 prenotazioneSalvata(BancoPrenotazioni& b, bool aPersona = false)
{
    b.camera(QStringLiteral("101"));
    b.archivio().comando(
        QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NroPersone) VALUES ('DBL', 3)"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 100);
    b.listinoPersona(QStringLiteral("Base"), QStringLiteral("Mezza Pensione"), 60);
    b.sessione.configurazione->PrezzoAggiuntivoMezzaPensione = 25;
    auto s = b.scheda();
    s->ListinoCamere_Click(QStringLiteral("Estate"));
    if (aPersona) {
        s->PrezziAPersona_Click();
        s->ListinoTrattamenti_Click(QStringLiteral("Base"));
    }
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("23/11/2026"),
                                       QStringLiteral("26/11/2026"));
    for (const char* nome : { "Mario", "Anna", "Luca" })
        BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QLatin1String(nome),
                                           QStringLiteral("OSPITE SINGOLO"));
    if (!s->Registra_Click())
        qFatal("prenotazione di prova non salvata");
    return s->Indice;
}

std::unique_ptr<PrenotazioneWidget> apri(BancoPrenotazioni& b, qint64 indice = 0)
{
    auto w = std::make_unique<PrenotazioneWidget>(b.scheda(indice));
    w->show();
    return w;
}

int prenotazioni(BancoPrenotazioni& b)
{
    return b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni"));
}

} // namespace

// --- Closing paths ----------------------------------------------------------------------------------------

class TestChiusuraPrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void senzaModificheChiudeSenzaDomanda_data();
    void senzaModificheChiudeSenzaDomanda();
    void conModificheChiede_data();
    void conModificheChiede();
    void salvataggioNonRiuscitoTieneAperto();
    void escNellaRigaLaPulisceSenzaChiudere();
    void eliminaChiudeLaScheda();
};

namespace {

enum class Via
{
    Esc,
    Esci,
    Chiusura
};

void chiudi(PrenotazioneWidget& w, Via via)
{
    switch (via) {
    case Via::Esc: {
        // From a header field: the key reaches the dialog as it does at the desk.
        QLineEdit* numero = trova<QLineEdit>(w, "NumeroPrenotazione");
        numero->setFocus();
        QTest::keyClick(numero, Qt::Key_Escape);
        break;
    }
    case Via::Esci:
        clicca(w, "Fine");
        break;
    case Via::Chiusura:
        w.close();
        break;
    }
}

void aggiungiVie()
{
    QTest::addColumn<int>("via");
}

} // namespace

void TestChiusuraPrenotazione::senzaModificheChiudeSenzaDomanda_data()
{
    aggiungiVie();
    QTest::newRow("Esc") << static_cast<int>(Via::Esc);
    QTest::newRow("Esci") << static_cast<int>(Via::Esci);
    QTest::newRow("chiusura finestra") << static_cast<int>(Via::Chiusura);
}

void TestChiusuraPrenotazione::senzaModificheChiudeSenzaDomanda()
{
    QFETCH(int, via);
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    b.interazione().pulisci();
    auto w = apri(b, indice);
    chiudi(*w, static_cast<Via>(via));
    QVERIFY(!w->isVisible());
    QVERIFY(b.interazione().testi().isEmpty());
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestChiusuraPrenotazione::conModificheChiede_data()
{
    aggiungiVie();
    QTest::addColumn<QString>("risposta");
    for (const auto& [nome, via] : { std::pair { "Esc", Via::Esc }, std::pair { "Esci", Via::Esci },
                                     std::pair { "chiusura finestra", Via::Chiusura } }) {
        for (const char* risposta : { "Sì", "No", "Annulla" })
            QTest::addRow("%s, %s", nome, risposta) << static_cast<int>(via) << QString::fromUtf8(risposta);
    }
}

void TestChiusuraPrenotazione::conModificheChiede()
{
    QFETCH(int, via);
    QFETCH(QString, risposta);
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    auto w = apri(b, indice);
    trova<QPlainTextEdit>(*w, "NotePrenotazione")->setPlainText(QStringLiteral("Arrivo in tarda serata"));
    const QString domanda = QStringLiteral("Salvare le modifiche apportate?");
    if (risposta == QStringLiteral("Sì")) {
        b.interazione().rispondiSi(domanda);
        b.interazione().rispondiSi(QStringLiteral("prenotazione già esistente"));
    } else if (risposta == QStringLiteral("No")) {
        b.interazione().rispondiNo(domanda);
    } else {
        b.interazione().rispondiAnnullaDomanda(domanda);
    }
    chiudi(*w, static_cast<Via>(via));
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
    QVERIFY(b.interazione().risposteFinite());
    QCOMPARE(w->isVisible(), risposta == QStringLiteral("Annulla"));
    const QString note
        = b.archivio().valore(QStringLiteral("SELECT NotePrenotazione FROM TabellaPrenotazioni")).toString();
    QCOMPARE(note == QStringLiteral("Arrivo in tarda serata"), risposta == QStringLiteral("Sì"));
    if (risposta == QStringLiteral("Annulla")) // the typing is still there
        QCOMPARE(trova<QPlainTextEdit>(*w, "NotePrenotazione")->toPlainText(),
                 QStringLiteral("Arrivo in tarda serata"));
}

void TestChiusuraPrenotazione::salvataggioNonRiuscitoTieneAperto()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto w = apri(b);
    // A new reservation with no room yet: "Sì" tries the save, which refuses, and the screen stays.
    digita(trova<QLineEdit>(*w, "NC"), QStringLiteral("101"));
    trova<QPlainTextEdit>(*w, "NotePrenotazione")->setPlainText(QStringLiteral("Da confermare"));
    b.interazione().rispondiSi(QStringLiteral("Salvare le modifiche apportate?"));
    w->close();
    QVERIFY(w->isVisible());
    QCOMPARE(b.interazione().messaggi().last(), QStringLiteral("Attenzione inserire almeno una camera"));
    QCOMPARE(prenotazioni(b), 0);
}

void TestChiusuraPrenotazione::escNellaRigaLaPulisceSenzaChiudere()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    b.archivio().comando(QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) "
                                        "VALUES ('Bar', 'Caffè', 1.5, 22)"));
    b.interazione().pulisci();
    auto w = apri(b, indice);
    QLineEdit* nc = trova<QLineEdit>(*w, "NC");
    digita(nc, QStringLiteral("102"));
    QTest::keyClick(nc, Qt::Key_Escape);
    QVERIFY(w->isVisible());
    QVERIFY(nc->text().isEmpty());

    // A row taken back and abandoned with Esc is gone from the list, so closing now asks.
    auto* camere = trova<QTableWidget>(*w, "GrigliaCamerePrenotate");
    emit camere->cellDoubleClicked(0, 1);
    QCOMPARE(nc->text(), QStringLiteral("101"));
    QTest::keyClick(trova<QLineEdit>(*w, "Arrivo"), Qt::Key_Escape);
    QVERIFY(w->isVisible());
    QVERIFY(nc->text().isEmpty());
    QCOMPARE(camere->rowCount(), 0);

    w->schede()->setCurrentIndex(2);
    QLineEdit* qta = trova<QLineEdit>(*w, "Qta");
    digita(qta, QStringLiteral("2"));
    QTest::keyClick(qta, Qt::Key_Escape);
    QVERIFY(w->isVisible());
    QVERIFY(qta->text().isEmpty());
    QVERIFY(b.interazione().testi().isEmpty());

    // With the lines empty, Esc is the screen's Esc again.
    b.interazione().rispondiAnnullaDomanda(QStringLiteral("Salvare le modifiche apportate?"));
    QTest::keyClick(qta, Qt::Key_Escape);
    QVERIFY(w->isVisible());
    QVERIFY(b.interazione().risposteFinite());
}

void TestChiusuraPrenotazione::eliminaChiudeLaScheda()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    auto w = apri(b, indice);
    b.interazione().rispondiSi(QStringLiteral("cancellerà la prenotazione"));
    b.interazione().rispondiSi(QStringLiteral("Attenzione cancellare la prenotazione?"));
    clicca(*w, "Cancella");
    QVERIFY(!w->isVisible());
    QCOMPARE(w->result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(prenotazioni(b), 0);
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestChiusuraPrenotazione)

// --- Rights --------------------------------------------------------------------------------------------------

class TestPermessiPrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void utenteInSolaLetturaNonSalvaDaNessunaVia();
    void utenteSenzaPrenotazioniNonCancella();
};

void TestPermessiPrenotazione::utenteInSolaLetturaNonSalvaDaNessunaVia()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    limitaUtente(b, true);
    const QString negato
        = QStringLiteral("Attenzione, l'utente collegato non è abilitato a modificare le prenotazioni!");

    // The commands called directly, as a button that slipped through would.
    auto s = b.scheda(indice);
    s->NotePrenotazione = QStringLiteral("cambiata");
    s->segnaModificato();
    QVERIFY(!s->Registra_Click());
    QCOMPARE(b.interazione().messaggi().last(), negato);
    QVERIFY(!s->Command6_Click());

    // On screen: the buttons are off, Enter presses nothing, and closing drops the edits without the question.
    auto w = apri(b, indice);
    QVERIFY(!trova<QPushButton>(*w, "Registra")->isEnabled());
    QVERIFY(!trova<QPushButton>(*w, "Cancella")->isEnabled());
    trova<QPlainTextEdit>(*w, "NotePrenotazione")->setPlainText(QStringLiteral("cambiata"));
    QLineEdit* numero = trova<QLineEdit>(*w, "NumeroPrenotazione");
    numero->setFocus();
    QTest::keyClick(numero, Qt::Key_Return);
    QVERIFY(w->isVisible());
    b.interazione().pulisci();
    w->close();
    QVERIFY(!w->isVisible());
    QVERIFY(b.interazione().testi().isEmpty());
    QVERIFY(b.archivio().valore(QStringLiteral("SELECT NotePrenotazione FROM TabellaPrenotazioni")).toString()
            != QStringLiteral("cambiata"));
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestPermessiPrenotazione::utenteSenzaPrenotazioniNonCancella()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    limitaUtente(b, false);
    b.sessione.permessi->Prenotazioni = false;
    auto s = b.scheda(indice);
    QVERIFY(!s->Cancella_Click());
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Attenzione, l'utente collegato non è abilitato a modificare le prenotazioni!"));
    QCOMPARE(prenotazioni(b), 1);
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestPermessiPrenotazione)

// --- Rooms: dates that move, types chosen late, bad input ----------------------------------------------------

class TestCamerePrenotazioneUi : public QObject
{
    Q_OBJECT
private slots:
    void dateSpostateSpostanoGliOspiti_data();
    void dateSpostateSpostanoGliOspiti();
    void ospitiLasciatiSeLaRispostaENo();
    void tipologiaSceltaDopoLaCameraDaIlPrezzo();
    void prezzoScrittoAManoResta();
    void testiCheNonSonoNumeriODate();
    void aPersonaNessunPrezzoOrfano();
};

void TestCamerePrenotazioneUi::dateSpostateSpostanoGliOspiti_data()
{
    QTest::addColumn<bool>("aPersona");
    QTest::addColumn<double>("prezzoCamera"); // after the move: 4 nights
    QTest::addColumn<double>("trattamento"); // each guest, after the move
    QTest::newRow("prezzi a camera") << false << 400.0 << 100.0; // 4 x 100; 4 x 25 half board
    QTest::newRow("prezzi a persona") << true << 0.0 << 240.0; // 4 x 60 from the per-person list
}

void TestCamerePrenotazioneUi::dateSpostateSpostanoGliOspiti()
{
    QFETCH(bool, aPersona);
    QFETCH(double, prezzoCamera);
    QFETCH(double, trattamento);
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b, aPersona);
    auto w = apri(b, indice);

    emit trova<QTableWidget>(*w, "GrigliaCamerePrenotate")->cellDoubleClicked(0, 1);
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("27/11/2026"));
    b.interazione().rispondiSi(QStringLiteral("Spostare anche i 3 ospiti registrati nella camera 101 dal 23/11/2026 "
                                              "al 26/11/2026?"));
    clicca(*w, "Command7");
    QVERIFY(b.interazione().testi().last().startsWith(
        QStringLiteral("Attenzione, la camera 101 è ora prenotata dal 23/11/2026 al 27/11/2026.")));
    b.interazione().rispondiSi(QStringLiteral("prenotazione già esistente"));
    clicca(*w, "Registra");
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));

    QCOMPARE(b.archivio()
                 .valore(QStringLiteral("SELECT Avere FROM TabellaMovimenti WHERE Tipo = 'PrenotazioneCamera'"))
                 .toDouble(),
             prezzoCamera);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                    "WHERE DataArrivo = '2026-11-23' AND DataPartenza = '2026-11-27'")),
             3);
    QCOMPARE(
        b.archivio()
            .valore(QStringLiteral("SELECT sum(TotalePrezzoTrattamento) FROM TabellaAnagraficheAssociatePrenotazioni"))
            .toDouble(),
        3 * trattamento);

    // The board on the added night: three persons in three places, not "0 | 3".
    b.sessione.PercorsoDB = b.t.percorso();
    b.archivio().comando(QStringLiteral("UPDATE TabellaStrutturaCamere SET X = 0, Y = 0"));
    Tabellone tabellone(b.sessione);
    tabellone.Form_Load();
    tabellone.NroPiano = 1;
    tabellone.Dal = QDate(2026, 11, 26);
    tabellone.Al = QDate(2026, 11, 27);
    tabellone.Aggiorna_Click();
    const Tessera* tessera = tabellone.tesseraDiCamera(QStringLiteral("101"));
    QVERIFY(tessera);
    QCOMPARE(etichettaPosti(*tessera, tabellone.Dal, tabellone.Al).testo, QStringLiteral(" 3 | 3 "));
}

void TestCamerePrenotazioneUi::ospitiLasciatiSeLaRispostaENo()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    auto w = apri(b, indice);
    emit trova<QTableWidget>(*w, "GrigliaCamerePrenotate")->cellDoubleClicked(0, 1);
    digita(trova<QLineEdit>(*w, "Arrivo"), QStringLiteral("22/11/2026"));
    b.interazione().rispondiNo(QStringLiteral("Spostare anche"));
    clicca(*w, "Command7");
    for (const OspitePrenotazione& o : w->logica().GrigliaAnagrafiche)
        QCOMPARE(o.data(QStringLiteral("DataArrivo")), QDate(2026, 11, 23));
    QCOMPARE(w->logica().GrigliaCamerePrenotate.first().Avere, 400.0);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestCamerePrenotazioneUi::tipologiaSceltaDopoLaCameraDaIlPrezzo()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"), QStringLiteral("SGL"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("SGL"), 70);
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 100);
    b.archivio().comando(
        QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia) VALUES ('DBL'), ('SGL')"));
    auto w = apri(b);
    w->logica().ListinoCamere_Click(QStringLiteral("Estate"));
    w->aggiorna();
    // A room the catalogue doesn't know: no type, so no price yet.
    digita(trova<QLineEdit>(*w, "NC"), QStringLiteral("999"));
    digita(trova<QLineEdit>(*w, "Arrivo"), QStringLiteral("01/07/2026"));
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("03/07/2026"));
    QLineEdit* prezzo = trova<QLineEdit>(*w, "PrezzoCamera");
    QCOMPARE(prezzo->text(), QStringLiteral("0,00"));
    auto* tipo = trova<QComboBox>(*w, "CodiceTipologia");
    tipo->showPopup();
    tipo->hidePopup();
    const int dbl = tipo->findText(QStringLiteral("DBL"));
    QVERIFY(dbl >= 0);
    tipo->setCurrentIndex(dbl);
    emit tipo->textActivated(QStringLiteral("DBL"));
    QCOMPARE(prezzo->text(), QStringLiteral("200,00"));

    // A room of the catalogue fills its own type and price; another type chosen then reprices.
    digita(trova<QLineEdit>(*w, "NC"), QStringLiteral("101"));
    QCOMPARE(tipo->currentText(), QStringLiteral("SGL"));
    QCOMPARE(prezzo->text(), QStringLiteral("140,00"));
    tipo->setCurrentText(QStringLiteral("DBL"));
    emit tipo->textActivated(QStringLiteral("DBL"));
    QCOMPARE(prezzo->text(), QStringLiteral("200,00"));
    clicca(*w, "Command7");
    QCOMPARE(w->logica().GrigliaCamerePrenotate.first().Avere, 200.0);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestCamerePrenotazioneUi::prezzoScrittoAManoResta()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 100);
    auto w = apri(b);
    w->logica().ListinoCamere_Click(QStringLiteral("Estate"));
    w->aggiorna();
    digita(trova<QLineEdit>(*w, "NC"), QStringLiteral("101"));
    digita(trova<QLineEdit>(*w, "Arrivo"), QStringLiteral("01/07/2026"));
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("03/07/2026"));
    QLineEdit* prezzo = trova<QLineEdit>(*w, "PrezzoCamera");
    QCOMPARE(prezzo->text(), QStringLiteral("200,00"));
    digita(prezzo, QStringLiteral("150"));
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("04/07/2026"));
    QCOMPARE(prezzo->text(), QStringLiteral("150"));
    clicca(*w, "Command7");
    QCOMPARE(w->logica().GrigliaCamerePrenotate.first().Avere, 150.0);
    // Taken back with a price of its own and moved: the price stays as typed.
    emit trova<QTableWidget>(*w, "GrigliaCamerePrenotate")->cellDoubleClicked(0, 1);
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("05/07/2026"));
    clicca(*w, "Command7");
    QCOMPARE(w->logica().GrigliaCamerePrenotate.first().Avere, 150.0);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestCamerePrenotazioneUi::testiCheNonSonoNumeriODate()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto w = apri(b);
    // Inputs carry the size of their stored field.
    QCOMPARE(trova<QLineEdit>(*w, "NC")->maxLength(), 50);
    QCOMPARE(trova<QComboBox>(*w, "Stato")->lineEdit()->maxLength(), 50);
    QCOMPARE(trova<QComboBox>(*w, "TourOperator")->lineEdit()->maxLength(), 250);
    QCOMPARE(trova<QLineEdit>(*w, "CodiceTourOperator")->maxLength(), 50);
    QCOMPARE(trova<QComboBox>(*w, "CodiceTipologia")->lineEdit()->maxLength(), 50);
    QCOMPARE(trova<QComboBox>(*w, "Descrizione")->lineEdit()->maxLength(), 250);
    QCOMPARE(trova<QComboBox>(*w, "Tipo")->lineEdit()->maxLength(), 250);
    QLineEdit* stato = trova<QComboBox>(*w, "Stato")->lineEdit();
    stato->setFocus();
    QTest::keyClicks(stato, QString(60, QLatin1Char('x')));
    QCOMPARE(stato->text().size(), 50);

    digita(trova<QLineEdit>(*w, "DataPrenotazione"), QStringLiteral("marzo"));
    QCOMPARE(b.interazione().messaggi().last(), QStringLiteral("La data non è corretta"));

    digita(trova<QLineEdit>(*w, "NC"), QStringLiteral("101"));
    digita(trova<QLineEdit>(*w, "Arrivo"), QStringLiteral("010726"));
    QCOMPARE(trova<QLineEdit>(*w, "Arrivo")->text(), QStringLiteral("01/07/2026"));
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("03/07/2026"));
    digita(trova<QLineEdit>(*w, "PrezzoCamera"), QStringLiteral("cento"));
    QVERIFY(b.interazione().messaggi().last().contains(QStringLiteral("\"cento\" non è valido")));
    clicca(*w, "Command7");
    QVERIFY(w->logica().GrigliaCamerePrenotate.isEmpty());
    digita(trova<QLineEdit>(*w, "PrezzoCamera"), QStringLiteral("100"));
    clicca(*w, "Command7");
    QCOMPARE(w->logica().GrigliaCamerePrenotate.size(), 1);

    digita(trova<QLineEdit>(*w, "DataPrenotazione"), QStringLiteral("01/06/2026"));
    digita(trova<QLineEdit>(*w, "NumeroPrenotazione"), QStringLiteral("1182CAR"));
    b.interazione().rispondiSi(QStringLiteral("non ci sono clienti"));
    clicca(*w, "Registra");
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Attenzione, il numero di prenotazione deve essere un numero intero maggiore di zero: "
                            "\"1182CAR\" non è valido."));
    QCOMPARE(prenotazioni(b), 0);
    digita(trova<QLineEdit>(*w, "NumeroPrenotazione"), QStringLiteral("1182"));
    clicca(*w, "Registra");
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT NumeroPrenotazione FROM TabellaPrenotazioni")).toInt(), 1182);
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestCamerePrenotazioneUi::aPersonaNessunPrezzoOrfano()
{
    BancoPrenotazioni b;
    auto w = apri(b);
    auto* etichetta = trova<QLabel>(*w, "EtichettaPrezzoCamera");
    QVERIFY(etichetta->isVisible());
    QTest::mouseClick(trova<QRadioButton>(*w, "PrezziAPersona"), Qt::LeftButton);
    QVERIFY(w->logica().PrezziAPersona);
    QVERIFY(!trova<QLineEdit>(*w, "PrezzoCamera")->isVisible());
    QVERIFY(!etichetta->isVisible());
    QTest::mouseClick(trova<QRadioButton>(*w, "PrezziACamera"), Qt::LeftButton);
    QVERIFY(etichetta->isVisible());
}

TOMVERA_TEST(TestCamerePrenotazioneUi)

// --- Extras -----------------------------------------------------------------------------------------------------

class TestAccessoriPrenotazioneUi : public QObject
{
    Q_OBJECT
private slots:
    void prezzoDalListinoConTab();
    void listaVisibileAllApertura();
    void prezzoZeroChiedeConferma();
    void parolaDellImposta();
};

namespace {

void listinoAccessori(BancoPrenotazioni& b)
{
    b.archivio().comando(QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) VALUES "
                                        "('Servizi', 'Parcheggio', 12, 22), ('Servizi', 'Culla', 8, 10), "
                                        "('Bar', 'Caffè', 1.5, 22)"));
}

} // namespace

void TestAccessoriPrenotazioneUi::prezzoDalListinoConTab()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    listinoAccessori(b);
    auto w = apri(b, indice);
    w->schede()->setCurrentIndex(2);
    QApplication::setActiveWindow(w.get());
    trova<QComboBox>(*w, "Tipo")->setCurrentText(QStringLiteral("Servizi"));
    auto* descrizione = trova<QComboBox>(*w, "Descrizione");
    QLineEdit* testo = descrizione->lineEdit();
    testo->setFocus();
    QTest::keyClicks(testo, QStringLiteral("Parch"));
    // The suggestion accepted: the whole text of the item, then Tab.
    testo->setText(QStringLiteral("Parcheggio"));
    QTest::keyClick(testo, Qt::Key_Tab);
    if (testo->hasFocus()) // no focus chain offscreen: leave the field as Tab would
        emit testo->editingFinished();
    QCOMPARE(trova<QLineEdit>(*w, "PrezzoUnitario")->text(), QStringLiteral("12,00"));
    QCOMPARE(trova<QLineEdit>(*w, "Prezzo")->text(), QStringLiteral("12,00"));
    QCOMPARE(trova<QLineEdit>(*w, "Iva")->text(), QStringLiteral("22"));
    clicca(*w, "Ins");
    QCOMPARE(w->logica().accessori().size(), 1);
    QCOMPARE(w->logica().accessori().first().Avere, 12.0);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestAccessoriPrenotazioneUi::listaVisibileAllApertura()
{
    BancoPrenotazioni b;
    listinoAccessori(b);
    auto w = apri(b);
    w->schede()->setCurrentIndex(2);
    trova<QComboBox>(*w, "Tipo")->setCurrentText(QStringLiteral("Servizi"));
    auto* descrizione = trova<QComboBox>(*w, "Descrizione");
    descrizione->showPopup();
    QCOMPARE(descrizione->count(), 2);
    descrizione->hidePopup();
    // Chosen with a click: price and VAT come along.
    emit descrizione->activated(descrizione->findText(QStringLiteral("Culla")));
    QCOMPARE(trova<QLineEdit>(*w, "Prezzo")->text(), QStringLiteral("8,00"));
    QCOMPARE(trova<QLineEdit>(*w, "Iva")->text(), QStringLiteral("10"));
}

void TestAccessoriPrenotazioneUi::prezzoZeroChiedeConferma()
{
    BancoPrenotazioni b;
    auto w = apri(b);
    w->schede()->setCurrentIndex(2);
    trova<QComboBox>(*w, "Descrizione")->setEditText(QStringLiteral("Omaggio di benvenuto"));
    digita(trova<QLineEdit>(*w, "Qta"), QStringLiteral("1"));
    digita(trova<QLineEdit>(*w, "Iva"), QStringLiteral("22"));
    b.interazione().rispondiNo(QStringLiteral("ha prezzo 0,00"));
    clicca(*w, "Ins");
    QVERIFY(w->logica().accessori().isEmpty());
    b.interazione().rispondiSi(QStringLiteral("ha prezzo 0,00"));
    clicca(*w, "Ins");
    QCOMPARE(w->logica().accessori().size(), 1);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestAccessoriPrenotazioneUi::parolaDellImposta()
{
    BancoPrenotazioni b;
    b.sessione.configurazione->UsaImposta = true;
    configurazione::calcolaValoriDerivati(*b.sessione.configurazione);
    auto w = apri(b);
    auto* righe = trova<QTableWidget>(*w, "RigheArt");
    QCOMPARE(righe->horizontalHeaderItem(9)->text(), QStringLiteral("Imp"));
    QCOMPARE(trova<QLabel>(*w, "EtichettaIvaAccessorio")->text(), QStringLiteral("Imp"));
    QCOMPARE(trova<QTableWidget>(*w, "GrigliaCamerePrenotate")->horizontalHeaderItem(6)->text(), QStringLiteral("Imp"));
    w->schede()->setCurrentIndex(2);
    trova<QComboBox>(*w, "Descrizione")->setEditText(QStringLiteral("Culla"));
    digita(trova<QLineEdit>(*w, "Qta"), QStringLiteral("1"));
    digita(trova<QLineEdit>(*w, "Prezzo"), QStringLiteral("8"));
    clicca(*w, "Ins");
    QCOMPARE(b.interazione().messaggi().last(), QStringLiteral("Valorizzare campo Imposta"));
}

TOMVERA_TEST(TestAccessoriPrenotazioneUi)

// --- Every field through its widget and back ------------------------------------------------------------------

class TestCampiPrenotazioneUi : public QObject
{
    Q_OBJECT
private slots:
    void ogniCampoFaIlGiroCompleto();
};

void TestCampiPrenotazioneUi::ogniCampoFaIlGiroCompleto()
{
    BancoPrenotazioni b;
    b.sessione.configurazione->MultiAzienda = true;
    b.camera(QStringLiteral("101"));
    b.camera(QStringLiteral("102"), QStringLiteral("SGL"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 100);
    b.listinoCamera(QStringLiteral("Inverno"), QStringLiteral("DBL"), 80);
    auto w = apri(b);
    digita(trova<QLineEdit>(*w, "NumeroPrenotazione"), QStringLiteral("77"));
    digita(trova<QLineEdit>(*w, "DataPrenotazione"), QStringLiteral("15/05/2026"));
    trova<QComboBox>(*w, "Stato")->setEditText(QStringLiteral("Confermata"));
    QTest::mouseClick(trova<QCheckBox>(*w, "Saldato"), Qt::LeftButton);
    b.interazione().rispondiOk(QStringLiteral("riaffittare"));
    QTest::mouseClick(trova<QCheckBox>(*w, "PrenotazioneChiusa"), Qt::LeftButton);
    auto* listino = trova<QComboBox>(*w, "ListinoCamere");
    listino->showPopup();
    listino->hidePopup();
    listino->setCurrentText(QStringLiteral("Inverno"));
    emit listino->textActivated(QStringLiteral("Inverno"));
    trova<QPlainTextEdit>(*w, "NotePrenotazione")->setPlainText(QStringLiteral("Culla in camera\nArrivo alle 22"));
    digita(trova<QLineEdit>(*w, "CodiceAzienda"), QStringLiteral("HOTEL2"));
    b.archivio().comando(
        QStringLiteral("INSERT INTO TabellaTourOperator (Codice, RagSociale) VALUES ('ALP', 'Alpitour Viaggi')"));
    auto* tourOperator = trova<QComboBox>(*w, "TourOperator");
    tourOperator->showPopup();
    tourOperator->hidePopup();
    tourOperator->setCurrentIndex(tourOperator->findText(QStringLiteral("Alpitour Viaggi")));
    emit tourOperator->textActivated(QStringLiteral("Alpitour Viaggi"));
    QCOMPARE(trova<QLineEdit>(*w, "CodiceTourOperator")->text(), QStringLiteral("ALP"));

    digita(trova<QLineEdit>(*w, "NC"), QStringLiteral("102"));
    digita(trova<QLineEdit>(*w, "Arrivo"), QStringLiteral("10/08/2026"));
    digita(trova<QLineEdit>(*w, "Partenza"), QStringLiteral("12/08/2026"));
    digita(trova<QLineEdit>(*w, "PrezzoCamera"), QStringLiteral("155,50"));
    digita(trova<QLineEdit>(*w, "IvaCamera"), QStringLiteral("5"));
    b.archivio().comando(QStringLiteral("UPDATE TabellaStrutturaCamere SET CodiceAzienda = 'HOTEL2'"));
    clicca(*w, "Command7");

    w->schede()->setCurrentIndex(2);
    digita(trova<QLineEdit>(*w, "Data"), QStringLiteral("11/08/2026"));
    trova<QComboBox>(*w, "Tipo")->setEditText(QStringLiteral("Minibar"));
    trova<QComboBox>(*w, "Descrizione")->setEditText(QStringLiteral("Acqua e bibite"));
    digita(trova<QLineEdit>(*w, "Qta"), QStringLiteral("3"));
    digita(trova<QLineEdit>(*w, "PrezzoUnitario"), QStringLiteral("2,5"));
    emit trova<QLineEdit>(*w, "PrezzoUnitario")->textEdited(QStringLiteral("2,5"));
    digita(trova<QLineEdit>(*w, "Iva"), QStringLiteral("22"));
    auto* cameraArt = trova<QComboBox>(*w, "NroCamera");
    cameraArt->setCurrentIndex(cameraArt->findText(QStringLiteral("102")));
    clicca(*w, "Ins");
    digita(trova<QLineEdit>(*w, "Abbuono"), QStringLiteral("10,50"));

    b.interazione().rispondiSi(QStringLiteral("non ci sono clienti"));
    clicca(*w, "Registra");
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
    const qint64 indice = w->logica().Indice;
    QVERIFY(indice > 0);

    // A second screen on the stored reservation shows every value as typed.
    auto x = apri(b, indice);
    QCOMPARE(trova<QLineEdit>(*x, "NumeroPrenotazione")->text(), QStringLiteral("77"));
    QCOMPARE(trova<QLineEdit>(*x, "DataPrenotazione")->text(), QStringLiteral("15/05/2026"));
    QCOMPARE(trova<QComboBox>(*x, "Stato")->currentText(), QStringLiteral("Confermata"));
    QVERIFY(trova<QCheckBox>(*x, "Saldato")->isChecked());
    QVERIFY(trova<QCheckBox>(*x, "PrenotazioneChiusa")->isChecked());
    QVERIFY(trova<QRadioButton>(*x, "PrezziACamera")->isChecked());
    QCOMPARE(trova<QComboBox>(*x, "ListinoCamere")->currentText(), QStringLiteral("Inverno"));
    QCOMPARE(trova<QPlainTextEdit>(*x, "NotePrenotazione")->toPlainText(),
             QStringLiteral("Culla in camera\nArrivo alle 22"));
    QCOMPARE(trova<QLineEdit>(*x, "CodiceAzienda")->text(), QStringLiteral("HOTEL2"));
    QCOMPARE(trova<QComboBox>(*x, "TourOperator")->currentText(), QStringLiteral("Alpitour Viaggi"));
    QCOMPARE(trova<QLineEdit>(*x, "CodiceTourOperator")->text(), QStringLiteral("ALP"));
    QVERIFY(!trova<QLabel>(*x, "RiferimentoDocumento")->isVisible());
    QCOMPARE(trova<QLineEdit>(*x, "Abbuono")->text(), QStringLiteral("10,50"));
    auto* camere = trova<QTableWidget>(*x, "GrigliaCamerePrenotate");
    QCOMPARE(camere->rowCount(), 1);
    const QStringList attesaCamera { QStringLiteral("1"),          QStringLiteral("102"),
                                     QStringLiteral("SGL"),        QStringLiteral("10/08/2026"),
                                     QStringLiteral("12/08/2026"), QStringLiteral("155,50"),
                                     QStringLiteral("5") };
    for (int c = 0; c < attesaCamera.size(); ++c)
        QCOMPARE(camere->item(0, c)->text(), attesaCamera[c]);
    // Taken back into the entry line, the row shows the same values there.
    emit camere->cellDoubleClicked(0, 1);
    QCOMPARE(trova<QLineEdit>(*x, "NC")->text(), QStringLiteral("102"));
    QCOMPARE(trova<QComboBox>(*x, "CodiceTipologia")->currentText(), QStringLiteral("SGL"));
    QCOMPARE(trova<QLineEdit>(*x, "Arrivo")->text(), QStringLiteral("10/08/2026"));
    QCOMPARE(trova<QLineEdit>(*x, "Partenza")->text(), QStringLiteral("12/08/2026"));
    QCOMPARE(trova<QLineEdit>(*x, "PrezzoCamera")->text(), QStringLiteral("155,50"));
    QCOMPARE(trova<QLineEdit>(*x, "IvaCamera")->text(), QStringLiteral("5"));

    auto* righe = trova<QTableWidget>(*x, "RigheArt");
    QCOMPARE(righe->rowCount(), 1);
    const QList<std::pair<int, QString>> attesaAccessorio {
        { 4, QStringLiteral("11/08/2026") }, { 5, QStringLiteral("Minibar") }, { 6, QStringLiteral("Acqua e bibite") },
        { 7, QStringLiteral("3") },          { 8, QStringLiteral("7,50") },    { 9, QStringLiteral("22") },
        { 10, QStringLiteral("102") }
    };
    for (const auto& [colonna, testo] : attesaAccessorio)
        QCOMPARE(righe->item(0, colonna)->text(), testo);
    emit righe->cellDoubleClicked(0, 6);
    QCOMPARE(trova<QLineEdit>(*x, "Data")->text(), QStringLiteral("11/08/2026"));
    QCOMPARE(trova<QComboBox>(*x, "Tipo")->currentText(), QStringLiteral("Minibar"));
    QCOMPARE(trova<QComboBox>(*x, "Descrizione")->currentText(), QStringLiteral("Acqua e bibite"));
    QCOMPARE(trova<QLineEdit>(*x, "Qta")->text(), QStringLiteral("3"));
    QCOMPARE(trova<QLineEdit>(*x, "PrezzoUnitario")->text(), QStringLiteral("2,50"));
    QCOMPARE(trova<QLineEdit>(*x, "Prezzo")->text(), QStringLiteral("7,50"));
    QCOMPARE(trova<QLineEdit>(*x, "Iva")->text(), QStringLiteral("22"));
    QCOMPARE(trova<QComboBox>(*x, "NroCamera")->currentText(), QStringLiteral("102"));
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestCampiPrenotazioneUi)

// --- Print ----------------------------------------------------------------------------------------------------------

class TestStampaPrenotazioneUi : public QObject
{
    Q_OBJECT
private slots:
    void stampaDallaSchedaEAnteprima();
};

void TestStampaPrenotazioneUi::stampaDallaSchedaEAnteprima()
{
    BancoPrenotazioni b;
    const qint64 indice = prenotazioneSalvata(b);
    b.archivio().comando(QStringLiteral(
        "UPDATE TabellaAnagraficheAssociatePrenotazioni SET ClienteIntestatario = 1 WHERE Nome = 'Mario'"));
    auto w = apri(b, indice);
    std::optional<reports::ModelloStampa> stampato;
    w->impostaStampa([&stampato](const reports::ModelloStampa& m) { stampato = m; });
    clicca(*w, "Anteprima");
    QVERIFY(stampato);
    QCOMPARE(stampato->titolo, QStringLiteral("PRENOTAZIONE N° 1 del 01/06/2026"));
    QVERIFY(stampato->testa.contains(QStringLiteral("Intestatario: Rossi Mario")));
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Stampa2")), stampato->righe.size());
    QVERIFY(b.interazione().errore().isEmpty());

    if (qEnvironmentVariableIsEmpty("TOMVERA_SCREENSHOTS"))
        return;
    reports::AnteprimaStampa anteprima(*stampato, b.interazione(), {});
    anteprima.dialogo().resize(1280, 800);
    anteprima.dialogo().show();
    test::fotografa(anteprima.dialogo(), QStringLiteral("prenotazione_stampa"));
    anteprima.dialogo().close();
}

TOMVERA_TEST(TestStampaPrenotazioneUi)

#include "test_scheda_ui.moc"
