// The guest card's widget: every field through its control, closing paths, rights, dead buttons, overlong
// texts and the name look-ahead.
#include "archivioospiti.h"
#include "controlli.h"
#include "fotografie.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"
#include "guests/schedaanagrafica.h"
#include "guests/ui/elencoanagrafichewidget.h"
#include "guests/ui/schedaanagraficawidget.h"
#include "testmain.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

using namespace tomvera;

namespace {

using tomvera::test::trova;

// Every text box of the card and a value no other box holds.
const QList<std::pair<const char*, QString>>& valoriCampi()
{
    static const QList<std::pair<const char*, QString>> valori = {
        { "CodiceAnagrafica", QStringLiteral("77") },
        { "RagSociale", QStringLiteral("Weber Anna GmbH") },
        { "Cognome", QStringLiteral("Weber") },
        { "Nome", QStringLiteral("Anna") },
        { "Indirizzo", QStringLiteral("Rue de Rivoli 10") },
        { "Cap", QStringLiteral("75001") },
        { "Citta", QStringLiteral("Paris") },
        { "Provincia", QStringLiteral("FR") },
        { "Piva", QStringLiteral("DE123456789") },
        { "CodiceFiscale", QStringLiteral("WBRNNA80A41Z112X") },
        { "Cellulare", QStringLiteral("+49 170 111") },
        { "Telefono", QStringLiteral("+49 30 222") },
        { "Fax", QStringLiteral("+49 30 333") },
        { "Email", QStringLiteral("anna@weber.de") },
        { "Web", QStringLiteral("weber.de") },
        { "TipoDocumento", QStringLiteral("PASSAPORTO ORDINARIO") },
        { "NroDocumento", QStringLiteral("C01X00T47") },
        { "DataDocumento", QStringLiteral("05/05/2020") },
        { "DataNascita", QStringLiteral("01/01/1980") },
        { "LuogoNascita", QStringLiteral("Berlin") },
        { "Cittadinanza", QStringLiteral("GERMANIA") },
        { "Nazione", QStringLiteral("FRANCIA") },
        { "StatoDiNascita", QStringLiteral("AUSTRIA") },
        { "LuogoDocumento", QStringLiteral("Monaco") },
        { "ProvinciaDiNascita", QStringLiteral("BE") },
    };
    return valori;
}

void scrivi(QWidget& w, const char* nome, const QString& testo)
{
    auto* e = trova<QLineEdit>(w, nome);
    e->setFocus();
    e->selectAll();
    QTest::keyClicks(e, testo);
}

// Answers the modal dialog that opens next with `azione`.
void allaProssimaFinestra(std::function<void(QWidget&)> azione)
{
    QTimer::singleShot(0, [azione] {
        QTRY_VERIFY(QApplication::activeModalWidget());
        azione(*QApplication::activeModalWidget());
    });
}

} // namespace

class TestSchedaAnagraficaWidget : public QObject
{
    Q_OBJECT
private slots:
    void ogniCampoAndataERitorno();
    void chiusuraEdEsc();
    void utenteInSolaLettura();
    void cercaECaricaPrenotazione();
    void testiTroppoLunghiEDateSbagliate();
    void validitaDellaCartaDIdentita();
    void sceltaDalCognomePassaIlFuoco();
};

void TestSchedaAnagraficaWidget::ogniCampoAndataERitorno()
{
    test::ArchivioOspiti t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* schede = trova<QTabWidget>(w, "Schede");
    for (const auto& [nome, valore] : valoriCampi()) {
        // Each box is typed on its own tab, as a user would.
        auto* e = trova<QLineEdit>(w, nome);
        for (int i = 0; i < schede->count(); ++i) {
            if (schede->widget(i)->isAncestorOf(e))
                schede->setCurrentIndex(i);
        }
        e->setText(valore);
    }
    QTest::mouseClick(trova<QRadioButton>(w, "Femmina"), Qt::LeftButton);
    schede->setCurrentIndex(1);
    trova<QRadioButton>(w, "NascitaEstero")->click();
    trova<QLineEdit>(w, "StatoDiNascita")->setText(QStringLiteral("AUSTRIA"));
    schede->setCurrentIndex(3);
    trova<QRadioButton>(w, "DocumentoEstero")->click();
    schede->setCurrentIndex(2);
    trova<QRadioButton>(w, "ResidenzaEstera")->click();
    trova<QComboBox>(w, "ResidenzaIstat")->setCurrentText(QStringLiteral("Francia"));
    schede->setCurrentIndex(4);
    trova<QPlainTextEdit>(w, "Note")->setPlainText(QStringLiteral("Allergica\nalle noci"));
    trova<QLineEdit>(w, "ProvinciaDiNascita")->setText(QStringLiteral("BE"));
    QTest::mouseClick(trova<QPushButton>(w, "Registra"), Qt::LeftButton);
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));

    const qint64 indice = w.logica().dati().Indice;
    const auto salvata = caricaAnagrafica(t.archivio(), indice);
    QVERIFY(salvata);
    const QHash<QString, QString> archivio = {
        { QStringLiteral("CodiceAnagrafica"), salvata->CodiceAnagrafica },
        { QStringLiteral("RagSociale"), salvata->RagSociale },
        { QStringLiteral("Cognome"), salvata->Cognome },
        { QStringLiteral("Nome"), salvata->Nome },
        { QStringLiteral("Indirizzo"), salvata->Indirizzo },
        { QStringLiteral("Cap"), salvata->Cap },
        { QStringLiteral("Citta"), salvata->Comune },
        { QStringLiteral("Provincia"), salvata->Provincia },
        { QStringLiteral("Piva"), salvata->Piva },
        { QStringLiteral("CodiceFiscale"), salvata->CodiceFiscale },
        { QStringLiteral("Cellulare"), salvata->Cellulare },
        { QStringLiteral("Telefono"), salvata->Telefono },
        { QStringLiteral("Fax"), salvata->Fax },
        { QStringLiteral("Email"), salvata->Email },
        { QStringLiteral("Web"), salvata->Web },
        { QStringLiteral("TipoDocumento"), salvata->TipoDocumento },
        { QStringLiteral("NroDocumento"), salvata->NroDocumento },
        { QStringLiteral("DataDocumento"), salvata->DataDocumento },
        { QStringLiteral("DataNascita"), salvata->DataNascita },
        { QStringLiteral("LuogoNascita"), salvata->LuogoNascita },
        { QStringLiteral("Cittadinanza"), salvata->Cittadinanza },
        { QStringLiteral("Nazione"), salvata->Nazione },
        { QStringLiteral("StatoDiNascita"), salvata->StatoDiNascita },
        { QStringLiteral("LuogoDocumento"), salvata->LuogoDocumento },
        { QStringLiteral("ProvinciaDiNascita"), salvata->ProvinciaDiNascita },
    };
    for (const auto& [nome, valore] : valoriCampi())
        QVERIFY2(archivio.value(QLatin1String(nome)) == valore, nome);
    QCOMPARE(salvata->Note, QStringLiteral("Allergica\nalle noci"));
    QCOMPARE(salvata->ResidenzaIstat, QStringLiteral("Francia"));
    QVERIFY(!salvata->Maschio);
    QVERIFY(!salvata->NascitaItalia);
    QVERIFY(!salvata->DocumentoItalia);
    QVERIFY(!salvata->ResidenzaItaliana);

    // And back: a fresh card shows every stored value in its own box.
    SchedaAnagraficaWidget altra(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    QVERIFY(altra.logica().carica(indice));
    altra.aggiorna();
    for (const auto& [nome, valore] : valoriCampi())
        QVERIFY2(trova<QLineEdit>(altra, nome)->text() == valore, nome);
    QCOMPARE(trova<QPlainTextEdit>(altra, "Note")->toPlainText(), QStringLiteral("Allergica\nalle noci"));
    QCOMPARE(trova<QComboBox>(altra, "ResidenzaIstat")->currentText(), QStringLiteral("Francia"));
    for (const char* estero : { "Femmina", "NascitaEstero", "DocumentoEstero", "ResidenzaEstera" })
        QVERIFY2(trova<QRadioButton>(altra, estero)->isChecked(), estero);
    QVERIFY(t.interazione().errore().isEmpty());
}

void TestSchedaAnagraficaWidget::chiusuraEdEsc()
{
    test::ArchivioOspiti t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    const auto conta
        = [&t] { return t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(); };
    {
        // Nothing typed: Escape closes without a question.
        SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTest::keyClick(trova<QLineEdit>(w, "Cognome"), Qt::Key_Escape);
        QVERIFY(!w.isVisible());
        QVERIFY(t.interazione().testi().isEmpty());
    }
    {
        // Typed, Escape, "No": closes, nothing written.
        SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
        w.show();
        scrivi(w, "Cognome", QStringLiteral("Neri"));
        t.interazione().rispondiNo(QStringLiteral("Salvare le modifiche apportate?"));
        QTest::keyClick(trova<QLineEdit>(w, "Cognome"), Qt::Key_Escape);
        QVERIFY(!w.isVisible());
        QCOMPARE(conta(), 0);
    }
    {
        // Typed, Escape, "Sì": saved, then closed.
        SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
        w.show();
        scrivi(w, "Cognome", QStringLiteral("Neri"));
        scrivi(w, "Nome", QStringLiteral("Paolo"));
        t.interazione().rispondiSi(QStringLiteral("Salvare le modifiche apportate?"));
        QTest::keyClick(trova<QLineEdit>(w, "Nome"), Qt::Key_Escape);
        QVERIFY(!w.isVisible());
        QCOMPARE(conta(), 1);
    }
    {
        // "Esci" with a save that is refused: the card stays open with what was typed.
        SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
        w.show();
        trova<QTabWidget>(w, "Schede")->setCurrentIndex(0);
        scrivi(w, "Telefono", QStringLiteral("051 123"));
        t.interazione().rispondiSi(QStringLiteral("Salvare le modifiche apportate?"));
        QTest::mouseClick(trova<QPushButton>(w, "Fine"), Qt::LeftButton);
        QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Valorizzare i campi obbligatori"));
        QVERIFY(w.isVisible());
        QCOMPARE(trova<QLineEdit>(w, "Telefono")->text(), QStringLiteral("051 123"));
        // Escape on the open list of towns only closes the list.
        t.comune(QStringLiteral("1"), QStringLiteral("Padova"), QStringLiteral("PD"));
        t.comune(QStringLiteral("2"), QStringLiteral("Abano Terme"), QStringLiteral("PD"));
        trova<QTabWidget>(w, "Schede")->setCurrentIndex(2);
        scrivi(w, "Provincia", QStringLiteral("PD"));
        QVERIFY(trova<QListWidget>(w, "CittaVL")->isVisible());
        QTest::keyClick(trova<QLineEdit>(w, "Provincia"), Qt::Key_Escape);
        QVERIFY(!trova<QListWidget>(w, "CittaVL")->isVisible());
        QVERIFY(w.isVisible());
        t.interazione().rispondiNo(QStringLiteral("Salvare le modifiche apportate?"));
        w.close();
        QVERIFY(!w.isVisible());
    }
    QVERIFY2(t.interazione().errore().isEmpty(), qPrintable(t.interazione().errore()));
    QVERIFY(t.interazione().risposteFinite());
}

void TestSchedaAnagraficaWidget::utenteInSolaLettura()
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    Sessione sessione(t.interazione(), orologio, t.errori());
    sessione.PercorsoDB = t.percorso();
    utenti::Utente lucia;
    lucia.nome = QStringLiteral("Lucia");
    lucia.diritti.Anagrafiche = true;
    lucia.diritti.AnagraficheSoloLettura = true;
    QVERIFY(utenti::salvaUtente(t.archivio(), lucia) > 0);
    QCOMPARE(utenti::Accedi(sessione, QStringLiteral("Lucia"), QString(), QString()), utenti::EsitoAccesso::Riuscito);
    Anagrafica esistente;
    esistente.Cognome = QStringLiteral("Verdi");
    esistente.Nome = QStringLiteral("Ugo");
    esistente.RagSociale = QStringLiteral("Verdi Ugo");
    QVERIFY(scriviAnagrafica(t.archivio(), esistente));
    const QString rifiuto = QStringLiteral("Attenzione, l'utente può solo consultare le anagrafiche!");

    // The commands themselves refuse, whatever the screen shows.
    SchedaAnagrafica scheda(sessione, t.archivio());
    QVERIFY(scheda.soloLettura());
    scheda.dati().Cognome = QStringLiteral("Bianchi");
    QVERIFY(!scheda.Registra_Click());
    QCOMPARE(t.interazione().ultimoTesto(), rifiuto);
    QVERIFY(scheda.carica(esistente.Indice));
    scheda.dati().Telefono = QStringLiteral("333");
    QVERIFY(!scheda.Registra_Click());
    QVERIFY(!scheda.Cancella_Click());
    QCOMPARE(t.interazione().ultimoTesto(), rifiuto);
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(), 1);
    QVERIFY(t.archivio().valore(QStringLiteral("SELECT Telefono FROM TabellaAnagrafiche")).toString().isEmpty());

    // Through the widget as well; leaving does not offer a save it would refuse.
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(sessione, t.archivio()));
    w.show();
    scrivi(w, "Cognome", QStringLiteral("Rossi"));
    QTest::mouseClick(trova<QPushButton>(w, "Registra"), Qt::LeftButton);
    QCOMPARE(t.interazione().ultimoTesto(), rifiuto);
    QTest::keyClick(trova<QLineEdit>(w, "Cognome"), Qt::Key_Escape);
    QVERIFY(!w.isVisible());
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(), 1);

    // The administrator is never limited.
    sessione.UtenteCollegato = QStringLiteral("Amministratore");
    QVERIFY(!SchedaAnagrafica(sessione, t.archivio()).soloLettura());
    QVERIFY(t.interazione().errore().isEmpty());
}

void TestSchedaAnagraficaWidget::cercaECaricaPrenotazione()
{
    test::ArchivioOspiti t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    t.ospite(QStringLiteral("Bianchi"), QStringLiteral("Carla"), QStringLiteral("1"));
    const qint64 gialli = t.ospite(QStringLiteral("Gialli"), QStringLiteral("Luca"), QStringLiteral("2"));
    t.archivio().comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndiceCliente, "
                                        "IndicePrenotazioneAssociata, DataArrivo, DataPartenza, NroCameraCliente) "
                                        "VALUES (?, 41, '2026-06-01', '2026-06-05', '104')"),
                         { gialli });
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    QList<qint64> aperte;
    connect(&w, &SchedaAnagraficaWidget::apriPrenotazione, &w, [&aperte](qint64 i) { aperte << i; });
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QVERIFY(!trova<QPushButton>(w, "CaricaPrenotazioneSpiaggia")->isVisible());
    QVERIFY(trova<QPushButton>(w, "CaricaPrenotazione")->isVisible());

    // "Cerca": the list, narrowed by typing, Enter takes the highlighted card.
    allaProssimaFinestra([](QWidget& elenco) {
        QCOMPARE(elenco.objectName(), QStringLiteral("F_ElencoAnagrafiche"));
        QCOMPARE(trova<QTableWidget>(elenco, "Griglia")->rowCount(), 2);
        QTest::keyClicks(trova<QLineEdit>(elenco, "Ricerca"), QStringLiteral("gial"));
        QCOMPARE(trova<QTableWidget>(elenco, "Griglia")->rowCount(), 1);
        QTest::keyClick(trova<QLineEdit>(elenco, "Ricerca"), Qt::Key_Return);
    });
    QTest::mouseClick(trova<QPushButton>(w, "Command2"), Qt::LeftButton);
    QCOMPARE(trova<QLineEdit>(w, "Cognome")->text(), QStringLiteral("Gialli"));
    auto* soggiorni = trova<QTableWidget>(w, "GrigliaAnagrafiche");
    QCOMPARE(soggiorni->rowCount(), 1);

    // "Carica Prenotazione Associata": without a stay chosen it says so, with one it opens its reservation.
    soggiorni->setCurrentCell(-1, -1);
    QTest::mouseClick(trova<QPushButton>(w, "CaricaPrenotazione"), Qt::LeftButton);
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Attenzione, selezionare la prenotazione da caricare!"));
    QVERIFY(aperte.isEmpty());
    soggiorni->setCurrentCell(0, 2);
    QTest::mouseClick(trova<QPushButton>(w, "CaricaPrenotazione"), Qt::LeftButton);
    QCOMPARE(aperte, QList<qint64> { 41 });

    // Typed on the card, "Cerca" first asks about the changes; "No" keeps the list going.
    scrivi(w, "Nome", QStringLiteral("Luca Maria"));
    t.interazione().rispondiNo(QStringLiteral("Salvare le modifiche apportate?"));
    allaProssimaFinestra(
        [](QWidget& elenco) { QTest::mouseClick(trova<QPushButton>(elenco, "Fine"), Qt::LeftButton); });
    QTest::mouseClick(trova<QPushButton>(w, "Command2"), Qt::LeftButton);

    // Opened where nobody can open a reservation, the button is not there at all.
    SchedaAnagraficaWidget sola(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    sola.show();
    QVERIFY(!trova<QPushButton>(sola, "CaricaPrenotazione")->isVisible());
    QVERIFY2(t.interazione().errore().isEmpty(), qPrintable(t.interazione().errore()));
}

void TestSchedaAnagraficaWidget::testiTroppoLunghiEDateSbagliate()
{
    test::ArchivioOspiti t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    const QString lungo(300, QLatin1Char('x'));
    // Typed or pasted, a surname stops at the field's size.
    auto* cognome = trova<QLineEdit>(w, "Cognome");
    QTest::keyClicks(cognome, lungo);
    QCOMPARE(cognome->text().size(), 250);
    cognome->clear();
    QApplication::clipboard()->setText(lungo);
    cognome->setFocus();
    QTest::keySequence(cognome, QKeySequence::Paste);
    QCOMPARE(cognome->text().size(), 250);
    for (const char* nome : { "Nome", "RagSociale", "Telefono", "Email", "NroDocumento", "LuogoNascita" })
        QCOMPARE(trova<QLineEdit>(w, nome)->maxLength(), 250);

    // A birth date that is no date: told on leaving, refused at save, nothing shows as saved.
    cognome->setText(QStringLiteral("Rossi"));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(1);
    scrivi(w, "DataNascita", QStringLiteral("marzo"));
    trova<QLineEdit>(w, "LuogoNascita")->setFocus();
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("La data non è corretta"));
    QTest::mouseClick(trova<QPushButton>(w, "Registra"), Qt::LeftButton);
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("La data non è corretta"));
    QVERIFY(trova<QLineEdit>(w, "CodiceAnagrafica")->text().isEmpty());
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(), 0);

    // The logic refuses an overlong text too (a caller without the widget), and shows no code.
    SchedaAnagrafica scheda(t.archivio(), t.interazione(), orologio);
    scheda.dati().Cognome = lungo;
    QVERIFY(!scheda.Registra_Click());
    QCOMPARE(t.interazione().ultimoTesto(),
             QStringLiteral("Attenzione, il campo RagSociale accetta al massimo 250 caratteri!"));
    QVERIFY(scheda.dati().CodiceAnagrafica.isEmpty());
    QVERIFY(scheda.dati().RagSociale.isEmpty());
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(), 0);
    QVERIFY(t.interazione().errore().isEmpty());
}

void TestSchedaAnagraficaWidget::validitaDellaCartaDIdentita()
{
    test::ArchivioOspiti t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(3);
    // The official word has no validity rule: an issue of 2019 passes without a warning.
    scrivi(w, "TipoDocumento", QStringLiteral("CARTA DI IDENTITA'"));
    scrivi(w, "DataDocumento", QStringLiteral("01/02/2019"));
    trova<QLineEdit>(w, "LuogoDocumento")->setFocus();
    QVERIFY(t.interazione().testi().isEmpty());
    // "C.I." is five years.
    scrivi(w, "TipoDocumento", QStringLiteral("C.I."));
    scrivi(w, "DataDocumento", QStringLiteral("01/03/2019"));
    trova<QLineEdit>(w, "LuogoDocumento")->setFocus();
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Attenzione documento non più valido"));
}

void TestSchedaAnagraficaWidget::sceltaDalCognomePassaIlFuoco()
{
    test::ArchivioOspiti t;
    OrologioFisso orologio(QDateTime(QDate(2026, 7, 1), QTime(9, 0)));
    t.ospite(QStringLiteral("Ferraboli"), QStringLiteral("Marco"));
    t.ospite(QStringLiteral("Ferrari"), QStringLiteral("Enzo"));
    SchedaAnagraficaWidget w(std::make_unique<SchedaAnagrafica>(t.archivio(), t.interazione(), orologio));
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* cognome = trova<QLineEdit>(w, "Cognome");
    auto* nome = trova<QLineEdit>(w, "Nome");
    cognome->setFocus();
    QTest::keyClicks(cognome, QStringLiteral("Ferr"));
    QAbstractItemView* lista = cognome->completer()->popup();
    QVERIFY(lista->isVisible());
    // A click on the proposal loads the card: surname and name each in its own box.
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualRect(lista->model()->index(0, 0)).center());
    QTRY_COMPARE(nome->text(), QStringLiteral("Marco"));
    QCOMPARE(cognome->text(), QStringLiteral("Ferraboli"));
    QVERIFY(!lista->isVisible());
    // The next click goes where it is aimed.
    QTest::mouseClick(nome, Qt::LeftButton);
    QTest::keyClick(nome, Qt::Key_End);
    QTest::keyClicks(nome, QStringLiteral(" Luigi"));
    QCOMPARE(nome->text(), QStringLiteral("Marco Luigi"));
    QCOMPARE(cognome->text(), QStringLiteral("Ferraboli"));

    // Tab on a highlighted proposal takes it and moves on.
    QVERIFY(w.logica().carica(0) == false);
    w.logica().PulisciCampi();
    w.aggiorna();
    cognome->setFocus();
    QTest::keyClicks(cognome, QStringLiteral("Ferra"));
    QVERIFY(lista->isVisible());
    QTest::keyClick(lista, Qt::Key_Down);
    QTest::keyClick(lista, Qt::Key_Down);
    QTest::keyClick(lista, Qt::Key_Tab);
    QTRY_COMPARE(cognome->text(), QStringLiteral("Ferrari"));
    QCOMPARE(nome->text(), QStringLiteral("Enzo"));
    QVERIFY(!cognome->hasFocus());
    QVERIFY(t.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestSchedaAnagraficaWidget)

#include "test_schedaui_chiusura.moc"
