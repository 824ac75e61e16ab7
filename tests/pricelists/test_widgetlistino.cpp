#include "archiviotemporaneo.h"
#include "controlli.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "foundation/stampanti.h"
#include "pricelists/schermolistinoaccessori.h"
#include "pricelists/schermolistinocamere.h"
#include "pricelists/ui/listinoaccessoriwidget.h"
#include "pricelists/ui/listinocamerewidget.h"
#include "reports/ui/anteprimastampa.h"
#include "reports/ui/impaginazione.h"
#include "testmain.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

using namespace tomvera;
using namespace tomvera::prezzi;

namespace {

struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 5, 10), QTime(9, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };

    Banco()
    {
        sessione.PercorsoDB = t.percorso();
        sessione.UtenteCollegato = QStringLiteral("Amministratore");
        sessione.permessi->amministratore = true;
        sessione.configurazione->IvaPrenotazioni = 10;
    }
};

using tomvera::test::trova;

void clicca(QWidget& w, const char* nome)
{
    QTest::mouseClick(trova<QAbstractButton>(w, nome), Qt::LeftButton);
}

void scrivi(QWidget& w, const char* nome, const QString& testo)
{
    if (auto* scelta = w.findChild<QComboBox*>(QString::fromLatin1(nome))) {
        scelta->setEditText(testo);
        return;
    }
    auto* campo = trova<QLineEdit>(w, nome);
    campo->clear();
    // Typed key by key where the test keyboard can (plain ASCII), so the key handling is exercised.
    const bool ascii = std::all_of(testo.begin(), testo.end(), [](QChar c) { return c.unicode() < 128; });
    if (ascii)
        QTest::keyClicks(campo, testo);
    else
        campo->setText(testo);
}

// With TOMVERA_SCREENSHOTS set, the screens are saved there for the docs.
void fotografa(QWidget& w, const QString& nome)
{
    const QString cartella = qEnvironmentVariable("TOMVERA_SCREENSHOTS");
    if (cartella.isEmpty())
        return;
    w.show();
    QCoreApplication::processEvents();
    QVERIFY(w.grab().save(QDir(cartella).filePath(nome + QStringLiteral(".png"))));
}

// The first page of a print, as it comes out on A4 at screen resolution.
void fotografaStampa(const reports::ModelloStampa& modello, const QString& nome)
{
    const QString cartella = qEnvironmentVariable("TOMVERA_SCREENSHOTS");
    if (cartella.isEmpty())
        return;
    QImage pagina(794, 1123, QImage::Format_RGB32);
    pagina.fill(Qt::white);
    QPainter painter(&pagina);
    reports::Impaginazione impaginazione(modello);
    const QRectF area(57, 57, 680, 1009);
    impaginazione.prepara(painter, area);
    impaginazione.disegnaPagina(painter, area, 0);
    painter.end();
    QVERIFY(pagina.save(QDir(cartella).filePath(nome + QStringLiteral(".png"))));
}

} // namespace

class TestWidgetListinoCamere : public QObject
{
    Q_OBJECT
private slots:
    void inserimentoModoEStampa();
};

void TestWidgetListinoCamere::inserimentoModoEStampa()
{
    Banco b;
    QVERIFY(b.t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NomeTipologia) VALUES "
                       "('DOPPIA', 'Doppia'), ('SINGOLA', 'Singola'), ('SUITE', 'Suite')")));
    ListinoCamereWidget w(std::make_unique<SchermoListinoCamere>(b.sessione));
    QVERIFY(trova<QRadioButton>(w, "PrezzoACamera")->isChecked());
    QCOMPARE(trova<QComboBox>(w, "CodiceTipologia")->count(), 3);

    // A refused row: the message, nothing written.
    clicca(w, "Ins");
    QCOMPARE(b.t.interazione().ultimoTesto(), QStringLiteral("Attenzione, inserire un listino!"));

    struct Riga
    {
        const char *listino, *codice, *dal, *al, *prezzo, *giorni;
    };
    const Riga righe[] {
        { "Estate 2026", "DOPPIA", "01/06", "30/06", "95.5", "1" },
        { "Estate 2026", "DOPPIA", "01/06", "30/06", "600", "7" },
        { "Estate 2026", "DOPPIA", "01/07", "31/08", "130", "1" },
        { "Estate 2026", "DOPPIA", "01/07", "31/08", "840", "7" },
        { "Estate 2026", "SINGOLA", "01/06", "31/08", "75", "1" },
        { "Estate 2026", "SUITE", "", "", "220", "1" },
        { "Natale", "DOPPIA", "20/12", "06/01", "110", "1" },
        { "Natale", "SUITE", "20/12", "06/01", "1450", "7" },
    };
    for (const Riga& r : righe) {
        clicca(w, "Nuovo");
        scrivi(w, "Listino", QString::fromLatin1(r.listino));
        scrivi(w, "CodiceTipologia", QString::fromLatin1(r.codice));
        scrivi(w, "Dal", QString::fromLatin1(r.dal));
        scrivi(w, "Al", QString::fromLatin1(r.al));
        scrivi(w, "Prezzo", QString::fromLatin1(r.prezzo));
        // Enter in Prezzo brings the reservations' VAT.
        QTest::keyClick(trova<QLineEdit>(w, "Prezzo"), Qt::Key_Return);
        scrivi(w, "Giorni", QString::fromLatin1(r.giorni));
        clicca(w, "Ins");
    }
    auto* griglia = trova<QTableWidget>(w, "Griglia");
    QCOMPARE(griglia->rowCount(), 8);
    QVERIFY(griglia->isColumnHidden(0));
    QCOMPARE(griglia->horizontalHeaderItem(6)->text(), QStringLiteral("Iva"));
    // "." typed in a price is the decimal comma.
    QCOMPARE(griglia->item(0, 5)->text(), QStringLiteral("95,50"));
    QCOMPARE(griglia->item(0, 6)->text(), QStringLiteral("10"));
    QCOMPARE(b.t.interazione().testi().size(), 1);

    // A grid click loads the row for an update.
    griglia->setCurrentCell(1, 1);
    emit griglia->cellClicked(1, 1);
    QCOMPARE(trova<QLineEdit>(w, "Giorni")->text(), QStringLiteral("7"));
    QCOMPARE(w.logica().Indice, griglia->item(1, 0)->text().toLongLong());

    reports::ModelloStampa stampato;
    w.impostaStampa([&](const reports::ModelloStampa& m) { stampato = m; });
    clicca(w, "Command1");
    QCOMPARE(stampato.righe.size(), 8);
    QCOMPARE(stampato.colonne.size(), 7);
    fotografa(w, QStringLiteral("listino_camere"));
    fotografaStampa(stampato, QStringLiteral("stampa_listino_camere"));

    // The other mode works on the per-person list and says so.
    clicca(w, "PrezzoAPersona");
    QCOMPARE(trova<QLabel>(w, "TipoListino")->text(), QStringLiteral("TIPO DI LISTINO: Prezzo a Persona"));
    QCOMPARE(griglia->rowCount(), 0);
    QCOMPARE(trova<QComboBox>(w, "CodiceTipologia")->itemText(0), QStringLiteral("Pensione Completa"));
    // A word of the hotel's own shows after the separator.
    scrivi(w, "Listino", QStringLiteral("Estate 2026"));
    scrivi(w, "CodiceTipologia", QStringLiteral("Mezza Pensione"));
    scrivi(w, "Prezzo", QStringLiteral("78"));
    QTest::keyClick(trova<QLineEdit>(w, "Prezzo"), Qt::Key_Return);
    clicca(w, "Ins");
    scrivi(w, "CodiceTipologia", QStringLiteral("Mezza Pensione Bambini"));
    scrivi(w, "Prezzo", QStringLiteral("39"));
    clicca(w, "Ins");
    QCOMPARE(trova<QComboBox>(w, "CodiceTipologia")->itemText(4), QString(48, QLatin1Char('-')));
    QCOMPARE(griglia->rowCount(), 2);
    fotografa(w, QStringLiteral("listino_camere_a_persona"));
}

TOMVERA_TEST(TestWidgetListinoCamere)

class TestWidgetListinoAccessori : public QObject
{
    Q_OBJECT
private slots:
    void inserimentoERicerca();
};

void TestWidgetListinoAccessori::inserimentoERicerca()
{
    Banco b;
    ListinoAccessoriWidget w(std::make_unique<SchermoListinoAccessori>(b.sessione));
    const QStringList voci[] {
        { "Bar", "Caffè espresso", "1,20", "10" },     { "Bar", "Acqua minerale 0,5 l", "1,50", "10" },
        { "Bar", "Aperitivo della casa", "5", "10" },  { "Minibar", "Succo di frutta", "2,50", "10" },
        { "Minibar", "Birra", "3,50", "22" },          { "Servizi", "Garage (a notte)", "15", "22" },
        { "Servizi", "Lavanderia - capo", "4", "22" }, { "Servizi", "Culla", "10", "10" },
    };
    for (const QStringList& v : voci) {
        scrivi(w, "Tipo", v[0]);
        scrivi(w, "Descrizione", v[1]);
        scrivi(w, "Prezzo", v[2]);
        scrivi(w, "Iva", v[3]);
        clicca(w, "Ins");
        // Saved rows leave the fields empty for the next one.
        QVERIFY(trova<QLineEdit>(w, "Descrizione")->text().isEmpty());
    }
    auto* griglia = trova<QTableWidget>(w, "Griglia");
    QCOMPARE(griglia->rowCount(), 8);
    QCOMPARE(griglia->item(0, 2)->text(), QStringLiteral("Acqua minerale 0,5 l"));
    QCOMPARE(trova<QComboBox>(w, "TipoRic")->count(), 3);

    scrivi(w, "TipoRic", QStringLiteral("Servizi"));
    clicca(w, "Cerca");
    QCOMPARE(griglia->rowCount(), 3);
    clicca(w, "CL");
    QCOMPARE(griglia->rowCount(), 8);
    fotografa(w, QStringLiteral("listino_accessori"));

    clicca(w, "Command15");
    QCOMPARE(b.t.interazione().ultimoTesto(), QStringLiteral("Attenzione, selezionare la riga da cancellare"));
}

TOMVERA_TEST(TestWidgetListinoAccessori)

// The list template on paper: page layout, PDF and the preview's PDF button.
class TestStampaElenco : public QObject
{
    Q_OBJECT
private slots:
    void impaginazioneEPdf();
};

void TestStampaElenco::impaginazioneEPdf()
{
    reports::ModelloStampa m;
    m.titolo = QStringLiteral("LISTINO ACCESSORI");
    m.testa = { QStringLiteral("Data di Stampa: 10/05/2026") };
    m.colonne = { { QStringLiteral("Descrizione"), 30, false }, { QStringLiteral("Prezzo"), 8, true } };
    for (int i = 0; i < 150; ++i)
        m.righe.append({ QStringLiteral("Voce %1").arg(i), QStringLiteral("%1,00").arg(i) });
    m.piede = { QStringLiteral("TOTALE: 150") };

    // 150 rows don't fit on one A4 page; every row is drawn once.
    QImage pagina(794, 1123, QImage::Format_RGB32);
    pagina.fill(Qt::white);
    QPainter painter(&pagina);
    reports::Impaginazione impaginazione(m);
    const QRectF area(40, 40, 714, 1043);
    impaginazione.prepara(painter, area);
    QVERIFY(impaginazione.numeroPagine() >= 3);
    impaginazione.disegnaPagina(painter, area, 0);
    painter.end();

    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("listino.pdf"));
    Banco b;
    b.t.interazione().rispondiFile(pdf);
    reports::AnteprimaStampa anteprima(m, b.t.interazione(), StampantiPredefinite {});
    auto* salva = anteprima.dialogo().findChild<QAction*>(QStringLiteral("SalvaPdf"));
    QVERIFY(salva);
    salva->trigger();
    QFile file(pdf);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.read(5) == "%PDF-");
    QVERIFY(b.t.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestStampaElenco)

#include "test_widgetlistino.moc"
