// The guest entry line of the reservation screen, driven through its controls.
#include "controlli.h"
#include "costruttori.h"
#include "fotografie.h"
#include "foundation/variabili.h"
#include "guests/anagrafiche.h"
#include "reservations/ui/prenotazionewidget.h"
#include "testmain.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlRecord>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

using tomvera::test::trova;

void codici(BancoPrenotazioni& b)
{
    for (const char* stato : { "AUSTRIA", "FRANCIA", "GERMANIA", "ITALIA" })
        b.archivio().comando(QStringLiteral("INSERT INTO TabellaCodiciStati (Codice, Stato) VALUES ('1', ?)"),
                             { QLatin1String(stato) });
    for (const char* documento : { "CARTA DI IDENTITA'", "PASSAPORTO ORDINARIO", "PATENTE DI GUIDA" })
        b.archivio().comando(QStringLiteral("INSERT INTO TabellaCodiciDocumenti (Codice, Documento) VALUES ('1', ?)"),
                             { QLatin1String(documento) });
}

// The screen on the guest tab of a new reservation of room 101, 01/07-08/07, at the desk's smaller size.
std::unique_ptr<PrenotazioneWidget> schermo(BancoPrenotazioni& b)
{
    b.camera(QStringLiteral("101"));
    auto w = std::make_unique<PrenotazioneWidget>(
        b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 8) } }));
    w->resize(1280, 800);
    w->show();
    w->activateWindow();
    if (!QTest::qWaitForWindowActive(w.get()))
        qFatal("finestra non attiva");
    w->schede()->setCurrentIndex(1);
    return w;
}

void scegli(QComboBox* c, const QString& testo)
{
    c->setCurrentText(testo);
    emit c->textActivated(testo);
}

// Keys and clicks, counted, for the family test.
struct Tastiera
{
    int conta = 0;
    void clic(QWidget* w)
    {
        ++conta;
        QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(4, w->height() / 2));
    }
    void tasto(QWidget* w, Qt::Key k)
    {
        ++conta;
        QTest::keyClick(w, k);
    }
    void digita(QWidget* w, const QString& testo, bool libero = false)
    {
        if (!libero)
            conta += static_cast<int>(testo.size());
        QTest::keyClicks(w, testo);
    }
    // A chooser opened with a click and an item picked with another.
    void scegliVoce(QComboBox* c, const QString& testo)
    {
        conta += 2;
        scegli(c, testo);
    }
    // A proposal of the look-ahead: type, arrow onto it, Enter.
    void proposta(QLineEdit* e, const QString& inizio)
    {
        clic(e);
        digita(e, inizio);
        QAbstractItemView* lista = e->completer()->popup();
        if (!lista->isVisible())
            qFatal("nessuna proposta per %s", qPrintable(inizio));
        tasto(lista, Qt::Key_Down);
        tasto(lista, Qt::Key_Return);
        QCoreApplication::processEvents();
        // The offscreen platform leaves the window inactive once a popup has closed.
        e->window()->activateWindow();
        if (!QTest::qWaitForWindowActive(e->window()))
            qFatal("finestra non attiva");
    }
};

} // namespace

class TestClientiPrenotazioneUi : public QObject
{
    Q_OBJECT
private slots:
    void ospiteStranieroRestaStraniero();
    void ogniCampoDellaRigaAndataERitorno();
    void nonAggiornareAnagraficaRicordato();
    void testiTroppoLunghiEDateSbagliate();
    void sceltaDalCognomeCaricaLaScheda();
    void famigliaDiQuattroInPochiTasti();
    void escSvuotaLaRiga();
    void completamentiComeLaScheda();
};

void TestClientiPrenotazioneUi::ospiteStranieroRestaStraniero()
{
    BancoPrenotazioni b;
    codici(b);
    auto w = schermo(b);
    auto& s = *w;
    trova<QLineEdit>(s, "Cognome")->setText(QStringLiteral("Müller"));
    QTest::keyClicks(trova<QLineEdit>(s, "Nome"), QStringLiteral("Hans"));
    trova<QRadioButton>(s, "NascitaEstero")->click();
    QTest::keyClicks(trova<QLineEdit>(s, "DataNascita"), QStringLiteral("12/03/1975"));
    trova<QLineEdit>(s, "StatoDiNascita")->setText(QStringLiteral("GERMANIA"));
    QTest::keyClicks(trova<QLineEdit>(s, "LuogoNascita"), QStringLiteral("Berlin"));
    trova<QLineEdit>(s, "Cittadinanza")->setText(QStringLiteral("GERMANIA"));
    trova<QRadioButton>(s, "ResidenzaEstera")->click();
    trova<QLineEdit>(s, "Nazione")->setText(QStringLiteral("FRANCIA"));
    QTest::keyClicks(trova<QLineEdit>(s, "Indirizzo"), QStringLiteral("Rue de Rivoli 10"));
    trova<QLineEdit>(s, "Cap")->setText(QStringLiteral("75001"));
    trova<QLineEdit>(s, "Citta")->setText(QStringLiteral("Paris"));
    QTest::mouseClick(trova<QPushButton>(s, "ProponiIstat"), Qt::LeftButton);
    QCOMPARE(trova<QLabel>(s, "EtichettaIstat")->text(), QStringLiteral("PAESE"));
    QCOMPARE(trova<QComboBox>(s, "ResidenzaIstat")->currentText(), QStringLiteral("Francia"));
    trova<QLineEdit>(s, "TipoDocumento")->setText(QStringLiteral("PASSAPORTO ORDINARIO"));
    QTest::keyClicks(trova<QLineEdit>(s, "NroDocumento"), QStringLiteral("C01X00T47"));
    trova<QRadioButton>(s, "DocumentoEstero")->click();
    QTest::keyClicks(trova<QLineEdit>(s, "LuogoDocumento"), QStringLiteral("Berlin"));
    QTest::keyClicks(trova<QLineEdit>(s, "Piva"), QStringLiteral("DE811569869"));
    QTest::keyClicks(trova<QLineEdit>(s, "Fax"), QStringLiteral("+49 30 1234"));
    QTest::keyClicks(trova<QLineEdit>(s, "Web"), QStringLiteral("mueller.de"));
    trova<QPlainTextEdit>(s, "NoteCliente")->setPlainText(QStringLiteral("Vegetariano"));
    scegli(trova<QComboBox>(s, "TipoTrattamento"), QStringLiteral("Mezza Pensione"));
    QCOMPARE(trova<QComboBox>(s, "NroCameraCliente")->currentText(), QStringLiteral("101"));
    test::fotografa(s, QStringLiteral("prenotazione_clienti"));
    QTest::mouseClick(trova<QPushButton>(s, "Command4"), Qt::LeftButton);
    QCOMPARE(s.logica().GrigliaAnagrafiche.size(), 1);
    QTest::mouseClick(trova<QPushButton>(s, "Registra"), Qt::LeftButton);
    QVERIFY(s.logica().salvato());

    // The stay row and the new card: every abroad flag as chosen, the ISTAT country, the extra fields.
    for (const char* tabella : { "TabellaAnagraficheAssociatePrenotazioni", "TabellaAnagrafiche" }) {
        const auto r = b.archivio().riga(
            QStringLiteral("SELECT NascitaItalia, NascitaEstero, DocumentoItalia, DocumentoEstero, ResidenzaItaliana, "
                           "ResidenzaEstera, ResidenzaIstat, StatoDiNascita, Cittadinanza, Nazione, Piva, Fax, Web "
                           "FROM ")
            + QLatin1String(tabella));
        QVERIFY(r);
        QCOMPARE(r->value(0).toInt(), 0);
        QCOMPARE(r->value(1).toInt(), 1);
        QCOMPARE(r->value(2).toInt(), 0);
        QCOMPARE(r->value(3).toInt(), 1);
        QCOMPARE(r->value(4).toInt(), 0);
        QCOMPARE(r->value(5).toInt(), 1);
        QCOMPARE(r->value(6).toString(), QStringLiteral("Francia"));
        QCOMPARE(r->value(7).toString(), QStringLiteral("GERMANIA"));
        QCOMPARE(r->value(8).toString(), QStringLiteral("GERMANIA"));
        QCOMPARE(r->value(9).toString(), QStringLiteral("FRANCIA"));
        QCOMPARE(r->value(10).toString(), QStringLiteral("DE811569869"));
        QCOMPARE(r->value(11).toString(), QStringLiteral("+49 30 1234"));
        QCOMPARE(r->value(12).toString(), QStringLiteral("mueller.de"));
    }
    QCOMPARE(b.archivio()
                 .valore(QStringLiteral("SELECT NoteCliente FROM TabellaAnagraficheAssociatePrenotazioni"))
                 .toString(),
             QStringLiteral("Vegetariano"));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT Note FROM TabellaAnagrafiche")).toString(),
             QStringLiteral("Vegetariano"));

    // Back on the line from the list, the options stand as saved.
    auto* clienti = trova<QTableWidget>(s, "GrigliaAnagrafiche");
    QTest::mouseClick(clienti->viewport(), Qt::LeftButton, {}, clienti->visualItemRect(clienti->item(0, 0)).center());
    for (const char* estero : { "NascitaEstero", "DocumentoEstero", "ResidenzaEstera" })
        QVERIFY2(trova<QRadioButton>(s, estero)->isChecked(), estero);
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::ogniCampoDellaRigaAndataERitorno()
{
    BancoPrenotazioni b;
    auto w = schermo(b);
    auto& s = *w;
    // Every text box of the line with a value no other box holds.
    const QList<std::pair<const char*, QString>> testi = {
        { "Cognome", QStringLiteral("Weber") },
        { "Nome", QStringLiteral("Anna") },
        { "RagSociale", QStringLiteral("Weber Anna") },
        { "CodiceFiscale", QStringLiteral("WBRNNA80A41Z112X") },
        { "Piva", QStringLiteral("DE123456789") },
        { "Cellulare", QStringLiteral("+49 170 111") },
        { "Telefono", QStringLiteral("+49 30 222") },
        { "Fax", QStringLiteral("+49 30 333") },
        { "Email", QStringLiteral("anna@weber.de") },
        { "Web", QStringLiteral("weber.de") },
        { "LuogoNascita", QStringLiteral("Linz") },
        { "ProvinciaDiNascita", QStringLiteral("OO") },
        { "StatoDiNascita", QStringLiteral("AUSTRIA") },
        { "Cittadinanza", QStringLiteral("GERMANIA") },
        { "Nazione", QStringLiteral("FRANCIA") },
        { "Indirizzo", QStringLiteral("Rue de Rivoli 10") },
        { "Cap", QStringLiteral("75001") },
        { "Citta", QStringLiteral("Paris") },
        { "Provincia", QStringLiteral("FR") },
        { "TipoDocumento", QStringLiteral("PASSAPORTO ORDINARIO") },
        { "NroDocumento", QStringLiteral("C01X00T47") },
        { "LuogoDocumento", QStringLiteral("Monaco") },
    };
    const QList<std::pair<const char*, QString>> date = {
        { "DataNascita", QStringLiteral("01/01/1980") },
        { "DataDocumento", QStringLiteral("05/05/2020") },
        { "DataArrivo", QStringLiteral("02/07/2026") },
        { "DataPartenza", QStringLiteral("06/07/2026") },
    };
    for (const auto& [nome, valore] : testi + date)
        trova<QLineEdit>(s, nome)->setText(valore);
    QTest::mouseClick(trova<QRadioButton>(s, "Femmina"), Qt::LeftButton);
    for (const char* estero : { "NascitaEstero", "DocumentoEstero", "ResidenzaEstera" })
        trova<QRadioButton>(s, estero)->click();
    trova<QLineEdit>(s, "StatoDiNascita")->setText(QStringLiteral("AUSTRIA"));
    trova<QLineEdit>(s, "Nazione")->setText(QStringLiteral("FRANCIA"));
    trova<QLineEdit>(s, "ProvinciaDiNascita")->setText(QStringLiteral("OO"));
    trova<QComboBox>(s, "ResidenzaIstat")->setCurrentText(QStringLiteral("Francia"));
    trova<QPlainTextEdit>(s, "NoteCliente")->setPlainText(QStringLiteral("Piano basso"));
    scegli(trova<QComboBox>(s, "TipoDiAlloggiato"), QStringLiteral("CAPOGRUPPO"));
    scegli(trova<QComboBox>(s, "TipoTrattamento"), QStringLiteral("Pensione Completa"));
    trova<QComboBox>(s, "TipoTurismo")->setCurrentText(QStringLiteral("Culturale"));
    trova<QComboBox>(s, "MezzoDiTrasporto")->setCurrentText(QStringLiteral("Treno"));
    trova<QLineEdit>(s, "CamereOccupate")->setText(QStringLiteral("2"));
    trova<QLineEdit>(s, "NroArrivo")->setText(QStringLiteral("17"));
    trova<QLineEdit>(s, "PrezzoTrattamento")->setText(QStringLiteral("33,50"));
    trova<QCheckBox>(s, "ClienteIntestatario")->setChecked(true);
    // Typed dates again after the room chooser, which brings its own.
    trova<QLineEdit>(s, "DataArrivo")->setText(QStringLiteral("02/07/2026"));
    trova<QLineEdit>(s, "DataPartenza")->setText(QStringLiteral("06/07/2026"));
    QTest::mouseClick(trova<QPushButton>(s, "Command4"), Qt::LeftButton);
    QCOMPARE(s.logica().GrigliaAnagrafiche.size(), 1);
    QTest::mouseClick(trova<QPushButton>(s, "Registra"), Qt::LeftButton);
    QVERIFY(s.logica().salvato());

    // The archive row, field by field.
    const auto r = b.archivio().riga(QStringLiteral("SELECT * FROM TabellaAnagraficheAssociatePrenotazioni"));
    QVERIFY(r);
    for (const auto& [nome, valore] : testi) {
        const QString campo = qstrcmp(nome, "Citta") == 0 ? QStringLiteral("Comune") : QLatin1String(nome);
        QVERIFY2(r->value(campo).toString() == valore, nome);
    }
    QCOMPARE(r->value(QStringLiteral("DataNascita")).toString(), QStringLiteral("1980-01-01"));
    QCOMPARE(r->value(QStringLiteral("DataDocumento")).toString(), QStringLiteral("2020-05-05"));
    QCOMPARE(r->value(QStringLiteral("DataArrivo")).toString(), QStringLiteral("2026-07-02"));
    QCOMPARE(r->value(QStringLiteral("DataPartenza")).toString(), QStringLiteral("2026-07-06"));
    QCOMPARE(r->value(QStringLiteral("MaschioFemmina")).toString(), QStringLiteral("Femmina"));
    QCOMPARE(r->value(QStringLiteral("NoteCliente")).toString(), QStringLiteral("Piano basso"));
    QCOMPARE(r->value(QStringLiteral("ResidenzaIstat")).toString(), QStringLiteral("Francia"));
    QCOMPARE(r->value(QStringLiteral("TipoDiAlloggiato")).toString(), QStringLiteral("CAPOGRUPPO"));
    QCOMPARE(r->value(QStringLiteral("TipoTrattamento")).toString(), QStringLiteral("Pensione Completa"));
    QCOMPARE(r->value(QStringLiteral("TipoTurismo")).toString(), QStringLiteral("Culturale"));
    QCOMPARE(r->value(QStringLiteral("MezzoDiTrasporto")).toString(), QStringLiteral("Treno"));
    QCOMPARE(r->value(QStringLiteral("CamereOccupate")).toDouble(), 2.0);
    QCOMPARE(r->value(QStringLiteral("NroArrivo")).toInt(), 17);
    QCOMPARE(r->value(QStringLiteral("PrezzoTrattamento")).toDouble(), 33.5);
    QCOMPARE(r->value(QStringLiteral("ClienteIntestatario")).toInt(), 1);
    QCOMPARE(r->value(QStringLiteral("Arrivato")).toInt(), 1);
    QCOMPARE(r->value(QStringLiteral("NroCameraCliente")).toString(), QStringLiteral("101"));
    QCOMPARE(r->value(QStringLiteral("NascitaEstero")).toInt(), 1);
    QCOMPARE(r->value(QStringLiteral("DocumentoEstero")).toInt(), 1);
    QCOMPARE(r->value(QStringLiteral("ResidenzaEstera")).toInt(), 1);

    // And back into the boxes from the list.
    QTest::mouseClick(trova<QPushButton>(s, "Command1"), Qt::LeftButton);
    auto* clienti = trova<QTableWidget>(s, "GrigliaAnagrafiche");
    QTest::mouseClick(clienti->viewport(), Qt::LeftButton, {}, clienti->visualItemRect(clienti->item(0, 0)).center());
    for (const auto& [nome, valore] : testi + date)
        QVERIFY2(trova<QLineEdit>(s, nome)->text() == valore, nome);
    QCOMPARE(trova<QPlainTextEdit>(s, "NoteCliente")->toPlainText(), QStringLiteral("Piano basso"));
    QCOMPARE(trova<QComboBox>(s, "ResidenzaIstat")->currentText(), QStringLiteral("Francia"));
    QCOMPARE(trova<QComboBox>(s, "TipoTurismo")->currentText(), QStringLiteral("Culturale"));
    QCOMPARE(trova<QComboBox>(s, "MezzoDiTrasporto")->currentText(), QStringLiteral("Treno"));
    QCOMPARE(trova<QLineEdit>(s, "CamereOccupate")->text(), QStringLiteral("2,00"));
    QCOMPARE(trova<QLineEdit>(s, "NroArrivo")->text(), QStringLiteral("17"));
    QVERIFY(trova<QCheckBox>(s, "ClienteIntestatario")->isChecked());
    QVERIFY(trova<QCheckBox>(s, "Arrivato")->isChecked());
    for (const char* opzione : { "Femmina", "NascitaEstero", "DocumentoEstero", "ResidenzaEstera" })
        QVERIFY2(trova<QRadioButton>(s, opzione)->isChecked(), opzione);
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::nonAggiornareAnagraficaRicordato()
{
    BancoPrenotazioni b;
    Anagrafica verdi;
    verdi.Cognome = QStringLiteral("Verdi");
    verdi.Nome = QStringLiteral("Ugo");
    verdi.RagSociale = QStringLiteral("Verdi Ugo");
    verdi.Telefono = QStringLiteral("111");
    verdi.CodiceAnagrafica = QStringLiteral("1");
    QVERIFY(scriviAnagrafica(b.archivio(), verdi));
    {
        auto w = schermo(b);
        auto& s = *w;
        QVERIFY(!trova<QCheckBox>(s, "NonModificareDatiCliente")->isChecked());
        QTest::mouseClick(trova<QCheckBox>(s, "NonModificareDatiCliente"), Qt::LeftButton);
        s.logica().CaricaDatiCliente(verdi.Indice);
        s.aggiorna();
        auto* telefono = trova<QLineEdit>(s, "Telefono");
        telefono->setText(QStringLiteral("999"));
        scegli(trova<QComboBox>(s, "TipoTrattamento"), QStringLiteral("Mezza Pensione"));
        QTest::mouseClick(trova<QPushButton>(s, "Command4"), Qt::LeftButton);
        QCOMPARE(s.logica().GrigliaAnagrafiche.size(), 1);
        // The stay has the line as typed, the card stays as it was.
        QCOMPARE(s.logica().GrigliaAnagrafiche.first().testo(QStringLiteral("Telefono")), QStringLiteral("999"));
        QCOMPARE(caricaAnagrafica(b.archivio(), verdi.Indice)->Telefono, QStringLiteral("111"));
        b.interazione().rispondiNo(QStringLiteral("Salvare le modifiche apportate?"));
        w->close();
    }
    // The next opening remembers the choice.
    auto w = schermo(b);
    QVERIFY(trova<QCheckBox>(*w, "NonModificareDatiCliente")->isChecked());
    QVERIFY(w->logica().NonModificareDatiCliente);
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::testiTroppoLunghiEDateSbagliate()
{
    BancoPrenotazioni b;
    auto w = schermo(b);
    auto& s = *w;
    const QString lungo(300, QLatin1Char('x'));
    auto* cognome = trova<QLineEdit>(s, "Cognome");
    QTest::keyClicks(cognome, lungo);
    QCOMPARE(cognome->text().size(), 250);
    cognome->clear();
    QApplication::clipboard()->setText(lungo);
    cognome->setFocus();
    QTest::keySequence(cognome, QKeySequence::Paste);
    QCOMPARE(cognome->text().size(), 250);
    // The sizes come from the table declarations: the short ones too.
    QCOMPARE(trova<QComboBox>(s, "TipoTrattamento")->lineEdit()->maxLength(), 250);
    for (const char* nome : { "Nome", "RagSociale", "Telefono", "Piva", "Web", "Citta", "NroDocumento" })
        QCOMPARE(trova<QLineEdit>(s, nome)->maxLength(), 250);

    cognome->setText(QStringLiteral("Rossi"));
    auto* nascita = trova<QLineEdit>(s, "DataNascita");
    nascita->setFocus();
    QTest::keyClicks(nascita, QStringLiteral("marzo"));
    trova<QLineEdit>(s, "LuogoNascita")->setFocus();
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("La data non è corretta"));
    scegli(trova<QComboBox>(s, "TipoTrattamento"), QStringLiteral("Mezza Pensione"));
    QTest::mouseClick(trova<QPushButton>(s, "Command4"), Qt::LeftButton);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("La data non è corretta"));
    QVERIFY(s.logica().GrigliaAnagrafiche.isEmpty());
    QCOMPARE(nascita->text(), QStringLiteral("marzo"));
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")), 0);

    // Past the widget (a caller of the logic), an overlong surname is refused with a message, not lost.
    nascita->clear();
    s.logica().Cliente.imposta(QStringLiteral("Cognome"), lungo);
    s.logica().Command4_Click();
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("Attenzione, il campo Cognome accetta al massimo 250 caratteri!"));
    QVERIFY(s.logica().GrigliaAnagrafiche.isEmpty());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")), 0);
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::sceltaDalCognomeCaricaLaScheda()
{
    BancoPrenotazioni b;
    Anagrafica marco;
    marco.Cognome = QStringLiteral("Ferraboli");
    marco.Nome = QStringLiteral("Marco");
    marco.RagSociale = QStringLiteral("Ferraboli Marco");
    marco.DataNascita = QStringLiteral("12/03/1980");
    QVERIFY(scriviAnagrafica(b.archivio(), marco));
    auto w = schermo(b);
    auto& s = *w;
    auto* cognome = trova<QLineEdit>(s, "Cognome");
    auto* nome = trova<QLineEdit>(s, "Nome");
    cognome->setFocus();
    QTest::keyClicks(cognome, QStringLiteral("Ferr"));
    QAbstractItemView* lista = cognome->completer()->popup();
    QVERIFY(lista->isVisible());
    QCOMPARE(lista->model()->index(0, 0).data().toString(), QStringLiteral("Ferraboli Marco"));
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualRect(lista->model()->index(0, 0)).center());
    // The card is loaded: each name in its own box, the identity fields with them.
    QTRY_COMPARE(nome->text(), QStringLiteral("Marco"));
    QCOMPARE(cognome->text(), QStringLiteral("Ferraboli"));
    QCOMPARE(trova<QLineEdit>(s, "DataNascita")->text(), QStringLiteral("12/03/1980"));
    QCOMPARE(s.logica().Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong(), marco.Indice);
    QVERIFY(!lista->isVisible());
    // The next click lands in the box aimed at.
    QTest::mouseClick(nome, Qt::LeftButton);
    QTest::keyClick(nome, Qt::Key_End);
    QTest::keyClicks(nome, QStringLiteral(" Luigi"));
    QCOMPARE(nome->text(), QStringLiteral("Marco Luigi"));
    QCOMPARE(cognome->text(), QStringLiteral("Ferraboli"));

    // From the first name, with Tab: loaded, and the focus goes on.
    QTest::mouseClick(trova<QPushButton>(s, "Command1"), Qt::LeftButton);
    nome->setFocus();
    QTest::keyClicks(nome, QStringLiteral("Mar"));
    lista = nome->completer()->popup();
    QVERIFY(lista->isVisible());
    QTest::keyClick(lista, Qt::Key_Down);
    QTest::keyClick(lista, Qt::Key_Tab);
    QTRY_COMPARE(cognome->text(), QStringLiteral("Ferraboli"));
    QCOMPARE(nome->text(), QStringLiteral("Marco"));
    QVERIFY(!nome->hasFocus());
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::famigliaDiQuattroInPochiTasti()
{
    BancoPrenotazioni b;
    codici(b);
    auto w = schermo(b);
    auto& s = *w;
    Tastiera t;
    auto* cognome = trova<QLineEdit>(s, "Cognome");
    auto* nome = trova<QLineEdit>(s, "Nome");
    auto* inserisci = trova<QPushButton>(s, "Command4");

    // The head: German, resident in Germany, with a German passport.
    t.clic(cognome);
    t.digita(cognome, QStringLiteral("Schmidt"), true);
    t.tasto(cognome, Qt::Key_Tab);
    t.digita(nome, QStringLiteral("Hans"), true);
    t.scegliVoce(trova<QComboBox>(s, "TipoDiAlloggiato"), QStringLiteral("CAPOFAMIGLIA"));
    t.scegliVoce(trova<QComboBox>(s, "TipoTrattamento"), QStringLiteral("Mezza Pensione"));
    t.clic(trova<QRadioButton>(s, "NascitaEstero"));
    t.proposta(trova<QLineEdit>(s, "StatoDiNascita"), QStringLiteral("GER"));
    t.clic(trova<QRadioButton>(s, "ResidenzaEstera"));
    t.clic(trova<QPushButton>(s, "ProponiIstat"));
    t.clic(trova<QRadioButton>(s, "DocumentoEstero"));
    t.proposta(trova<QLineEdit>(s, "TipoDocumento"), QStringLiteral("PAS"));
    t.clic(trova<QLineEdit>(s, "NroDocumento"));
    t.digita(trova<QLineEdit>(s, "NroDocumento"), QStringLiteral("C01X00T47"), true);
    t.clic(inserisci);
    QCOMPARE(s.logica().GrigliaAnagrafiche.size(), 1);
    QVERIFY(cognome->hasFocus());

    // The family: surname, Tab, name, and the wife's sex; the rest is proposed from the head.
    const QList<std::tuple<QString, bool>> familiari
        = { { QStringLiteral("Greta"), true }, { QStringLiteral("Jonas"), false }, { QStringLiteral("Lena"), true } };
    for (const auto& [nomeFamiliare, femmina] : familiari) {
        t.digita(cognome, QStringLiteral("Schmidt"), true);
        t.tasto(cognome, Qt::Key_Tab);
        t.digita(nome, nomeFamiliare, true);
        if (femmina)
            t.clic(trova<QRadioButton>(s, "Femmina"));
        t.clic(inserisci);
    }
    QCOMPARE(s.logica().GrigliaAnagrafiche.size(), 4);
    qInfo("famiglia di quattro con capofamiglia straniero: %d tasti e clic oltre a nomi e documento", t.conta);
    QVERIFY(t.conta < 40);

    // What was proposed is what a family needs: same room, dates, board, head, nationality.
    const OspitePrenotazione& capo = s.logica().GrigliaAnagrafiche.at(0);
    QCOMPARE(capo.testo(QStringLiteral("Cittadinanza")), QStringLiteral("GERMANIA"));
    QCOMPARE(capo.testo(QStringLiteral("Nazione")), QStringLiteral("GERMANIA"));
    QCOMPARE(capo.testo(QStringLiteral("ResidenzaIstat")), QStringLiteral("Germania"));
    QCOMPARE(capo.testo(QStringLiteral("TipoDocumento")), QStringLiteral("PASSAPORTO ORDINARIO"));
    for (int i = 1; i < 4; ++i) {
        const OspitePrenotazione& f = s.logica().GrigliaAnagrafiche.at(i);
        QCOMPARE(f.testo(QStringLiteral("TipoDiAlloggiato")), QStringLiteral("FAMILIARE"));
        QCOMPARE(f.testo(QStringLiteral("CapoGruppoFamiglia")), QStringLiteral("Schmidt Hans"));
        QCOMPARE(f.NroCameraCliente(), QStringLiteral("101"));
        QCOMPARE(f.data(QStringLiteral("DataArrivo")), QDate(2026, 7, 1));
        QCOMPARE(f.data(QStringLiteral("DataPartenza")), QDate(2026, 7, 8));
        QCOMPARE(f.testo(QStringLiteral("TipoTrattamento")), QStringLiteral("Mezza Pensione"));
        QCOMPARE(f.testo(QStringLiteral("StatoDiNascita")), QStringLiteral("GERMANIA"));
        QCOMPARE(f.testo(QStringLiteral("Cittadinanza")), QStringLiteral("GERMANIA"));
        QVERIFY(f.valore(QStringLiteral("NascitaEstero")).toBool());
        QVERIFY(f.valore(QStringLiteral("ResidenzaEstera")).toBool());
    }
    QCOMPARE(s.logica().GrigliaAnagrafiche.at(1).testo(QStringLiteral("MaschioFemmina")), QStringLiteral("Femmina"));
    QCOMPARE(s.logica().GrigliaAnagrafiche.at(2).testo(QStringLiteral("MaschioFemmina")), QStringLiteral("Maschio"));

    // The address of the last guest comes back on request, with its side of the border.
    QTest::mouseClick(trova<QPushButton>(s, "Command1"), Qt::LeftButton);
    QVERIFY(trova<QRadioButton>(s, "ResidenzaItaliana")->isChecked());
    QTest::mouseClick(trova<QPushButton>(s, "InserisciUltimiDatiInseriti"), Qt::LeftButton);
    QCOMPARE(trova<QLineEdit>(s, "Nazione")->text(), QStringLiteral("GERMANIA"));
    QVERIFY(trova<QRadioButton>(s, "ResidenzaEstera")->isChecked());
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::escSvuotaLaRiga()
{
    BancoPrenotazioni b;
    auto w = schermo(b);
    auto& s = *w;
    auto* cognome = trova<QLineEdit>(s, "Cognome");
    cognome->setFocus();
    QTest::keyClicks(cognome, QStringLiteral("Rossi"));
    QTest::keyClicks(trova<QLineEdit>(s, "Telefono"), QStringLiteral("051"));
    // Escape on the line takes it back to a new guest; the screen stays.
    QTest::keyClick(trova<QLineEdit>(s, "Telefono"), Qt::Key_Escape);
    QVERIFY(s.isVisible());
    QVERIFY(cognome->text().isEmpty());
    QVERIFY(trova<QLineEdit>(s, "Telefono")->text().isEmpty());
    QVERIFY(cognome->hasFocus());
    // A row taken back for correction is let go the same way, and stays in the list.
    trova<QLineEdit>(s, "Cognome")->setText(QStringLiteral("Rossi"));
    scegli(trova<QComboBox>(s, "TipoTrattamento"), QStringLiteral("Mezza Pensione"));
    QTest::mouseClick(trova<QPushButton>(s, "Command4"), Qt::LeftButton);
    auto* clienti = trova<QTableWidget>(s, "GrigliaAnagrafiche");
    QTest::mouseClick(clienti->viewport(), Qt::LeftButton, {}, clienti->visualItemRect(clienti->item(0, 0)).center());
    QCOMPARE(s.logica().RigaClienteSelezionato, 1);
    QTest::keyClick(clienti, Qt::Key_Escape);
    QCOMPARE(s.logica().RigaClienteSelezionato, 0);
    QVERIFY(cognome->text().isEmpty());
    QCOMPARE(clienti->rowCount(), 1);
    QVERIFY(s.isVisible());
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

void TestClientiPrenotazioneUi::completamentiComeLaScheda()
{
    BancoPrenotazioni b;
    codici(b);
    for (const auto& [codice, comune, cap] :
         { std::tuple { "1", "Abano Terme", "35031" }, { "2", "Padova", "35121" }, { "3", "Monselice", "35043" } })
        b.archivio().comando(QStringLiteral("INSERT INTO TabellaCodiciComuni (Codice, Comune, Provincia, Cap) "
                                            "VALUES (?, ?, 'PD', ?)"),
                             { QLatin1String(codice), QLatin1String(comune), QLatin1String(cap) });
    auto w = schermo(b);
    auto& s = *w;
    // One town for the postal code fills the residence.
    QTest::keyClicks(trova<QLineEdit>(s, "Cap"), QStringLiteral("35031"));
    QCOMPARE(trova<QLineEdit>(s, "Citta")->text(), QStringLiteral("Abano Terme"));
    QCOMPARE(trova<QLineEdit>(s, "Provincia")->text(), QStringLiteral("PD"));
    // Several for the province: the list, and Enter takes the highlighted one.
    trova<QLineEdit>(s, "Provincia")->clear();
    QTest::keyClicks(trova<QLineEdit>(s, "Provincia"), QStringLiteral("PD"));
    auto* lista = trova<QListWidget>(s, "CittaVL");
    QVERIFY(lista->isVisible());
    QCOMPARE(lista->count(), 3);
    lista->setCurrentRow(1);
    QTest::keyClick(trova<QLineEdit>(s, "Provincia"), Qt::Key_Return);
    QVERIFY(!lista->isVisible());
    QCOMPARE(trova<QLineEdit>(s, "Citta")->text(), QStringLiteral("Monselice"));
    QCOMPARE(trova<QLineEdit>(s, "Cap")->text(), QStringLiteral("35043"));
    QTest::mouseClick(trova<QPushButton>(s, "ProponiIstat"), Qt::LeftButton);
    QCOMPARE(trova<QComboBox>(s, "ResidenzaIstat")->currentText(), QStringLiteral("Padova"));
    // The birth place brings its province; documents come from their table.
    auto* luogo = trova<QLineEdit>(s, "LuogoNascita");
    luogo->setFocus();
    QTest::keyClicks(luogo, QStringLiteral("Pad"));
    QVERIFY(luogo->completer()->popup()->isVisible());
    QTest::keyClick(luogo->completer()->popup(), Qt::Key_Down);
    QTest::keyClick(luogo->completer()->popup(), Qt::Key_Return);
    QTRY_COMPARE(luogo->text(), QStringLiteral("Padova"));
    QCOMPARE(trova<QLineEdit>(s, "ProvinciaDiNascita")->text(), QStringLiteral("PD"));
    auto* documento = trova<QLineEdit>(s, "TipoDocumento");
    documento->setFocus();
    QTest::keyClicks(documento, QStringLiteral("PAT"));
    QCOMPARE(documento->completer()->popup()->model()->index(0, 0).data().toString(),
             QStringLiteral("PATENTE DI GUIDA"));
    QVERIFY2(b.interazione().errore().isEmpty(), qPrintable(b.interazione().errore()));
}

TOMVERA_TEST(TestClientiPrenotazioneUi)

#include "test_clienti_ui.moc"
