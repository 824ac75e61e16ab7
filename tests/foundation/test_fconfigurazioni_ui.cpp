#include "archiviotemporaneo.h"
#include "controlli.h"
#include "fotografie.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "foundation/ui/fconfigurazioniwidget.h"
#include "testmain.h"

#include <QCheckBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <QTimeEdit>

using namespace tomvera;

namespace {

struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 6, 15), QTime(10, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };

    Banco()
    {
        sessione.PercorsoDB = t.percorso();
        sessione.PercorsoProgramma = t.cartella();
    }
    QVariant valore(const char* sql) { return t.archivio().valore(QString::fromLatin1(sql)); }
};

using tomvera::test::trova;

void clic(QWidget& w, const char* nome)
{
    QTest::mouseClick(trova<QPushButton>(w, nome), Qt::LeftButton);
}

} // namespace

class TestFConfigurazioniUi : public QObject
{
    Q_OBJECT
private slots:
    void salvaDalloSchermo();
    void chiusuraConModifiche();
    void utentiDalloSchermo();
    void comandiSenzaGestoreNascosti();
    void cancelloPassword();
    void fotografieDelleSchede();
};

// Esc, ESCI and the close box all ask before dropping edits; an untouched screen closes without a word.
void TestFConfigurazioniUi::chiusuraConModifiche()
{
    Banco b;
    auto& i = b.t.interazione();
    const QString domanda = QStringLiteral("Salvare le modifiche apportate?");
    {
        FConfigurazioniWidget w(b.sessione);
        w.carica();
        w.show();
        QTest::keyClick(&w, Qt::Key_Escape);
        QVERIFY(!w.isVisible());
        QVERIFY(i.testi().isEmpty());
    }
    {
        // Esc, No: the edits are dropped on purpose and nothing is written.
        FConfigurazioniWidget w(b.sessione);
        w.carica();
        w.show();
        trova<QLineEdit>(w, "RagSociale")->setText(QStringLiteral("Hotel Perso"));
        i.rispondiNo(domanda);
        QTest::keyClick(&w, Qt::Key_Escape);
        QVERIFY(!w.isVisible());
        QVERIFY(b.valore("SELECT RagSociale FROM Configurazioni").toString().isEmpty());
    }
    {
        // ESCI, Yes: saved, then closed.
        FConfigurazioniWidget w(b.sessione);
        w.carica();
        w.show();
        trova<QLineEdit>(w, "RagSociale")->setText(QStringLiteral("Hotel Tre Pini"));
        i.rispondiSi(domanda);
        clic(w, "Fine");
        QVERIFY(!w.isVisible());
        QCOMPARE(b.valore("SELECT RagSociale FROM Configurazioni").toString(), QStringLiteral("Hotel Tre Pini"));
    }
    {
        // The close box, Yes, but the save is refused: the screen stays open with the edits on it.
        FConfigurazioniWidget w(b.sessione);
        w.carica();
        w.show();
        trova<QTimeEdit>(w, "CheckInDalleOre")->setTime(QTime(9, 0));
        trova<QTimeEdit>(w, "CheckOutEntroLeOre")->setTime(QTime(11, 0));
        i.rispondiSi(domanda);
        w.close();
        QVERIFY(w.isVisible());
        QVERIFY(i.ultimoTesto().startsWith(QStringLiteral("Attenzione l'ora di check-in")));
        QCOMPARE(trova<QTimeEdit>(w, "CheckInDalleOre")->time(), QTime(9, 0));
        // A typed password alone is an edit too.
        trova<QTimeEdit>(w, "CheckInDalleOre")->setTime(QTime(14, 0));
        clic(w, "Registra");
        trova<QLineEdit>(w, "PasswordProgramma")->setText(QStringLiteral("Segreta1"));
        i.rispondiNo(domanda);
        clic(w, "Fine");
        QVERIFY(!w.isVisible());
    }
    QVERIFY2(i.errore().isEmpty(), qPrintable(i.errore()));
    QVERIFY(i.risposteFinite());
}

void TestFConfigurazioniUi::salvaDalloSchermo()
{
    Banco b;
    FConfigurazioniWidget w(b.sessione);
    w.carica();
    trova<QLineEdit>(w, "RagSociale")->setText(QStringLiteral("Hotel Tre Pini"));
    trova<QDoubleSpinBox>(w, "ValIva2")->setValue(10);
    trova<QDoubleSpinBox>(w, "IvaPrenotazioni")->setValue(10);
    trova<QTimeEdit>(w, "CheckInDalleOre")->setTime(QTime(9, 0));
    trova<QTimeEdit>(w, "CheckOutEntroLeOre")->setTime(QTime(11, 0));
    clic(w, "Registra");
    QCOMPARE(b.t.interazione().ultimoTesto(),
             QStringLiteral("Attenzione l'ora di check-in delle camere deve essere maggiore o uguale a quella del "
                            "check-out!"));
    trova<QTimeEdit>(w, "CheckInDalleOre")->setTime(QTime(14, 0));
    trova<QLineEdit>(w, "PasswordProgramma")->setText(QStringLiteral("Reception"));
    trova<QLineEdit>(w, "ConfermaPasswordProgramma")->setText(QStringLiteral("Reception"));
    clic(w, "Registra");
    QCOMPARE(b.t.interazione().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QCOMPARE(b.valore("SELECT RagSociale FROM Configurazioni").toString(), QStringLiteral("Hotel Tre Pini"));
    QCOMPARE(b.valore("SELECT CheckInDalleOre FROM Configurazioni").toString(), QStringLiteral("14:00:00"));
    QCOMPARE(b.valore("SELECT ValIva2 FROM Configurazioni").toDouble(), 10.0);
    QCOMPARE(b.sessione.configurazione->IvaPrenotazioni, 10.0);
    // The boxes are emptied after the save; the password is set.
    QVERIFY(trova<QLineEdit>(w, "PasswordProgramma")->text().isEmpty());
    QVERIFY(trova<QCheckBox>(w, "RimuoviPasswordProgramma")->isEnabled());
}

void TestFConfigurazioniUi::utentiDalloSchermo()
{
    Banco b;
    FConfigurazioniWidget w(b.sessione);
    w.carica();
    trova<QLineEdit>(w, "Utente")->setText(QStringLiteral("Reception"));
    clic(w, "SelezionaTutti");
    QVERIFY(trova<QCheckBox>(w, "StampaTotFattRic")->isChecked());
    trova<QCheckBox>(w, "Listini")->setChecked(false);
    trova<QLineEdit>(w, "PasswordUtente")->setText(QStringLiteral("abc"));
    trova<QLineEdit>(w, "ConfermaPasswordUtente")->setText(QStringLiteral("abc"));
    clic(w, "Ins");
    QCOMPARE(b.t.interazione().ultimoTesto(),
             QStringLiteral("Attenzione, la PASSWORD deve avere un numero di caratteri compreso tra 4 e 12"));
    // The refused fields stay for correction.
    QCOMPARE(trova<QLineEdit>(w, "Utente")->text(), QStringLiteral("Reception"));
    trova<QLineEdit>(w, "PasswordUtente")->setText(QStringLiteral("abcd"));
    trova<QLineEdit>(w, "ConfermaPasswordUtente")->setText(QStringLiteral("abcd"));
    clic(w, "Ins");
    auto* griglia = trova<QTableWidget>(w, "RigheArt");
    QCOMPARE(griglia->rowCount(), 1);
    QCOMPARE(griglia->item(0, 0)->text(), QStringLiteral("Reception"));
    QVERIFY(trova<QLineEdit>(w, "Utente")->text().isEmpty());
    QCOMPARE(b.valore("SELECT Listini FROM TabellaUtenti").toInt(), 0);
    QCOMPARE(b.valore("SELECT Sveglie FROM TabellaUtenti").toInt(), 1);

    QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {}, griglia->visualItemRect(griglia->item(0, 0)).center());
    QCOMPARE(trova<QLineEdit>(w, "Utente")->text(), QStringLiteral("Reception"));
    QVERIFY(!trova<QCheckBox>(w, "Listini")->isChecked());
    QVERIFY(trova<QCheckBox>(w, "Planning")->isChecked());
    b.t.interazione().rispondiSi(QStringLiteral("cancellare l'utente selezionato"));
    clic(w, "Command16");
    QCOMPARE(griglia->rowCount(), 0);
    QCOMPARE(b.valore("SELECT count(*) FROM TabellaUtenti").toInt(), 0);
}

void TestFConfigurazioniUi::comandiSenzaGestoreNascosti()
{
    Banco b;
    FConfigurazioniWidget w(b.sessione);
    int backup = 0;
    w.logica().EseguiBackup = [&] { ++backup; };
    w.carica();
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    trova<QTabWidget>(w, "Schede")->setCurrentIndex(4);
    QVERIFY(trova<QPushButton>(w, "Backup")->isVisible());
    QVERIFY(!trova<QPushButton>(w, "Command3")->isVisible());
    QVERIFY(!trova<QPushButton>(w, "RipristinaDb")->isVisible());
    clic(w, "Backup");
    QCOMPARE(backup, 1);
}

void TestFConfigurazioniUi::cancelloPassword()
{
    test::InterazioneScriptata ui;
    int terminato = 0;
    const QString memorizzata = utenti::CifraPassword(QStringLiteral("Direzione"));
    FPassWidget giusta(ui, memorizzata, [&] { ++terminato; });
    trova<QLineEdit>(giusta, "Password")->setText(QStringLiteral("Direzione"));
    clic(giusta, "Ok");
    QVERIFY(giusta.aperto());
    QCOMPARE(giusta.result(), int(QDialog::Accepted));

    FPassWidget errata(ui, memorizzata, [&] { ++terminato; });
    QCOMPARE(trova<QLineEdit>(errata, "Password")->echoMode(), QLineEdit::Password);
    trova<QLineEdit>(errata, "Password")->setText(QStringLiteral("direzione"));
    clic(errata, "Ok");
    QVERIFY(!errata.aperto());
    QCOMPARE(ui.messaggi(), QStringList { QStringLiteral("PASSWORD ERRATA") });
    QCOMPARE(terminato, 1);
}

void TestFConfigurazioniUi::fotografieDelleSchede()
{
    Banco b;
    b.t.archivio().comando(QStringLiteral("INSERT INTO TabellaUtenti (Utente, Planning, Prenotazioni) "
                                          "VALUES ('Reception', 1, 1), ('Notte', 1, 0)"));
    b.t.archivio().comando(QStringLiteral("INSERT INTO Righe (DataDoc, NroDoc, TipoDoc, RigaDoc, Iva) "
                                          "VALUES ('2026-06-01', 1, 'Fattura', 1, 10)"));
    FConfigurazioniWidget w(b.sessione);
    auto& l = w.logica();
    // As the program wires them.
    l.EseguiBackup = l.OttimizzazioneArchivio = l.RipristinaBackup = l.ConfigurazioneMultiAzienda = [] {};
    w.carica();
    l.valori.RagSociale = QStringLiteral("Hotel Tre Pini");
    l.valori.Indirizzo = QStringLiteral("Via del Lungomare, 12");
    l.valori.Cap = QStringLiteral("47921");
    l.valori.Comune = QStringLiteral("Rimini");
    l.valori.Provincia = QStringLiteral("RN");
    l.valori.ValIva = { 0, 4, 10, 22, 0, 0, 0, 0, 0 };
    l.valori.IvaPrenotazioni = 10;
    l.valori.MessaggioFineDoc = QStringLiteral("Grazie per averci scelto. Arrivederci!");
    // A logo drawn on the spot, loaded as the user would.
    QImage logo(300, 120, QImage::Format_RGB32);
    logo.fill(QColor(0x1f, 0x4e, 0x79));
    {
        QPainter p(&logo);
        p.setPen(Qt::white);
        p.setFont(QFont(QStringLiteral("Serif"), 26, QFont::Bold));
        p.drawText(logo.rect(), Qt::AlignCenter, QStringLiteral("Tre Pini"));
    }
    const QString fileLogo = QDir(b.t.cartella()).filePath(QStringLiteral("logo.png"));
    QVERIFY(logo.save(fileLogo));
    b.t.interazione().rispondiFile(fileLogo);
    QVERIFY(l.CaricaLogo_Click());
    QVERIFY(l.Registra_Click());
    w.carica();
    w.resize(900, 680);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* schede = trova<QTabWidget>(w, "Schede");
    const char* nomi[]
        = { "intestazione", "banca", "messaggi", "iva", "backup", "sale", "password", "sky", "utenti", "varie" };
    QCOMPARE(schede->count(), 10);
    QVERIFY(!trova<QLabel>(w, "ImmagineLogo")->pixmap().isNull());
    for (int i = 0; i < schede->count(); ++i) {
        schede->setCurrentIndex(i);
        if (i == 8) {
            auto* griglia = trova<QTableWidget>(w, "RigheArt");
            QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {},
                              griglia->visualItemRect(griglia->item(1, 0)).center());
        }
        QTest::qWait(20);
        test::fotografa(w, QStringLiteral("configurazioni_") + QString::fromLatin1(nomi[i]));
    }
}

TOMVERA_TEST(TestFConfigurazioniUi)

#include "test_fconfigurazioni_ui.moc"
