#include "controlli.h"
#include "costruttori.h"
#include "reservations/acconti.h"
#include "reservations/ui/accontiwidget.h"
#include "testmain.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

const QString domanda = QStringLiteral("l'acconto digitato non è stato inserito");

using tomvera::test::trova;

// A saved reservation with one deposit of 100 entered through the screen, which stays open on it.
struct Banco
{
    Banco()
    {
        b.archivio().comando(QStringLiteral("INSERT INTO TabellaPrenotazioni (NumeroPrenotazione) VALUES (1)"));
        indice = b.archivio().valore(QStringLiteral("SELECT max(Indice) FROM TabellaPrenotazioni")).toLongLong();
        w = std::make_unique<AccontiWidget>(std::make_unique<SchedaAcconti>(b.archivio(), b.interazione(), b.orologio,
                                                                            SchedaAcconti::Modo::Camere, indice));
        w->show();
        scrivi("Descrizione", QStringLiteral("Caparra"));
        scrivi("Importo", QStringLiteral("100"));
        QTest::mouseClick(trova<QPushButton>(*w, "Ins"), Qt::LeftButton);
    }

    QLineEdit* campo(const char* nome) { return trova<QLineEdit>(*w, nome); }
    void scrivi(const char* nome, const QString& testo)
    {
        QLineEdit* c = campo(nome);
        c->setFocus();
        c->selectAll();
        QTest::keyClicks(c, testo);
    }
    int acconti() { return b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE Tipo = 'Acconto'")); }
    QVariant totaleInTestata()
    {
        return b.archivio().valore(QStringLiteral("SELECT TotaleAcconto FROM TabellaPrenotazioni WHERE Indice = ?"),
                                   { indice });
    }
    QTableWidget* griglia() { return trova<QTableWidget>(*w, "Griglia"); }
    void clicRiga(int riga)
    {
        QTest::mouseClick(griglia()->viewport(), Qt::LeftButton, {},
                          griglia()->visualItemRect(griglia()->item(riga, 3)).center());
    }

    BancoPrenotazioni b;
    qint64 indice = 0;
    std::unique_ptr<AccontiWidget> w;
};

enum class Via
{
    Esci,
    EscFuoriDallaRiga,
    Chiusura
};

void chiudi(Banco& x, Via via)
{
    switch (via) {
    case Via::Esci:
        QTest::mouseClick(trova<QPushButton>(*x.w, "Fine"), Qt::LeftButton);
        break;
    case Via::EscFuoriDallaRiga:
        x.griglia()->setFocus();
        QTest::keyClick(x.griglia(), Qt::Key_Escape);
        break;
    case Via::Chiusura:
        x.w->close(); // the window's close box
        break;
    }
}

} // namespace

Q_DECLARE_METATYPE(Via)

class TestAccontiUi : public QObject
{
    Q_OBJECT
private slots:
    void accontoDigitatoChiestoAllaChiusura_data();
    void accontoDigitatoChiestoAllaChiusura();
    void accontoRifiutatoTieneApertaLaScheda();
    void escNellaRigaLaSvuotaPrimaDiChiudere();
    void rigaRipresaChiedeSoloSeModificata();
    void clicSuUnAltroMovimentoNonPerdeLAcconto();
};

void TestAccontiUi::accontoDigitatoChiestoAllaChiusura_data()
{
    QTest::addColumn<Via>("via");
    QTest::addColumn<int>("risposta"); // 1 Sì, 0 No, -1 Annulla
    const QList<std::pair<const char*, Via>> vie { { "Esci", Via::Esci },
                                                   { "Esc", Via::EscFuoriDallaRiga },
                                                   { "chiusura", Via::Chiusura } };
    for (const auto& [nome, via] : vie) {
        QTest::addRow("%s, Sì", nome) << via << 1;
        QTest::addRow("%s, No", nome) << via << 0;
        QTest::addRow("%s, Annulla", nome) << via << -1;
    }
}

void TestAccontiUi::accontoDigitatoChiestoAllaChiusura()
{
    QFETCH(Via, via);
    QFETCH(int, risposta);
    Banco x;
    x.scrivi("Descrizione", QStringLiteral("Seconda rata"));
    x.scrivi("Importo", QStringLiteral("50"));
    if (risposta == 1)
        x.b.interazione().rispondiSi(domanda);
    else if (risposta == 0)
        x.b.interazione().rispondiNo(domanda);
    else
        x.b.interazione().rispondiAnnullaDomanda(domanda);

    chiudi(x, via);
    QVERIFY2(x.b.interazione().risposteFinite(), "la chiusura non ha chiesto nulla");
    QVERIFY(x.b.interazione().errore().isEmpty());
    if (risposta < 0) {
        // Annulla: back on the screen with the deposit still typed, nothing written.
        QVERIFY(x.w->isVisible());
        QCOMPARE(x.campo("Importo")->text(), QStringLiteral("50"));
        QCOMPARE(x.campo("Descrizione")->text(), QStringLiteral("Seconda rata"));
        QCOMPARE(x.acconti(), 1);
        QVERIFY(x.totaleInTestata().isNull());
        return;
    }
    QVERIFY(!x.w->isVisible());
    // Every close writes the header's total, of what the list holds after the answer.
    QCOMPARE(x.acconti(), risposta == 1 ? 2 : 1);
    QCOMPARE(x.totaleInTestata().toDouble(), risposta == 1 ? 150.0 : 100.0);
}

void TestAccontiUi::accontoRifiutatoTieneApertaLaScheda()
{
    Banco x;
    x.scrivi("Data", QStringLiteral("31/02/2026"));
    x.scrivi("Importo", QStringLiteral("50"));
    x.b.interazione().rispondiSi(domanda);
    chiudi(x, Via::Esci);
    QCOMPARE(x.b.interazione().messaggi(),
             QStringList { QStringLiteral("Attenzione, inserire correttamente una data!") });
    QVERIFY(x.w->isVisible());
    QCOMPARE(x.campo("Data")->text(), QStringLiteral("31/02/2026"));
    QCOMPARE(x.campo("Importo")->text(), QStringLiteral("50"));
    QCOMPARE(x.acconti(), 1);

    // Corrected, the next close inserts it.
    x.scrivi("Data", QStringLiteral("28/02/2026"));
    x.b.interazione().rispondiSi(domanda);
    chiudi(x, Via::Chiusura);
    QVERIFY(!x.w->isVisible());
    QCOMPARE(x.acconti(), 2);
    QCOMPARE(x.totaleInTestata().toDouble(), 150.0);
    QVERIFY(x.b.interazione().errore().isEmpty());
}

void TestAccontiUi::escNellaRigaLaSvuotaPrimaDiChiudere()
{
    Banco x;
    x.scrivi("Importo", QStringLiteral("50"));
    trova<QCheckBox>(*x.w, "EffettuataFatturaRicevuta")->setChecked(true);
    QTest::keyClick(x.campo("Importo"), Qt::Key_Escape);
    QVERIFY(x.w->isVisible());
    QCOMPARE(x.campo("Importo")->text(), QString());
    QCOMPARE(x.campo("Data")->text(), QStringLiteral("01/06/2026"));
    QVERIFY(!trova<QCheckBox>(*x.w, "EffettuataFatturaRicevuta")->isChecked());

    // A row taken back is cleared the same way, from any field of the line.
    x.clicRiga(0);
    QCOMPARE(x.campo("Importo")->text(), QStringLiteral("100,00"));
    QTest::keyClick(x.campo("Data"), Qt::Key_Escape);
    QVERIFY(x.w->isVisible());
    QCOMPARE(x.campo("Descrizione")->text(), QString());
    QCOMPARE(x.w->logica().IndiceMovimento, 0);

    // On a blank line Esc closes, without a question, and the total is written.
    QTest::keyClick(x.campo("Data"), Qt::Key_Escape);
    QVERIFY(!x.w->isVisible());
    QCOMPARE(x.totaleInTestata().toDouble(), 100.0);
    QVERIFY(x.b.interazione().testi().filter(domanda).isEmpty());
    QVERIFY(x.b.interazione().errore().isEmpty());
}

void TestAccontiUi::rigaRipresaChiedeSoloSeModificata()
{
    {
        // Looked at, not changed: nothing to lose.
        Banco x;
        x.clicRiga(0);
        chiudi(x, Via::Esci);
        QVERIFY(!x.w->isVisible());
        QVERIFY(x.b.interazione().testi().filter(domanda).isEmpty());
        QVERIFY(x.b.interazione().errore().isEmpty());
    }
    Banco x;
    x.clicRiga(0);
    x.scrivi("Importo", QStringLiteral("120"));
    x.b.interazione().rispondiSi(domanda);
    x.b.interazione().rispondiSi(QStringLiteral("movimento già esistente"));
    chiudi(x, Via::Esci);
    QVERIFY(x.b.interazione().risposteFinite());
    QVERIFY(!x.w->isVisible());
    QCOMPARE(x.acconti(), 1);
    QCOMPARE(x.totaleInTestata().toDouble(), 120.0);
    QVERIFY(x.b.interazione().errore().isEmpty());
}

// A click on another movement while a deposit is typed but not inserted asks first: Annulla keeps the typed line,
// Sì inserts it and then loads the movement clicked.
void TestAccontiUi::clicSuUnAltroMovimentoNonPerdeLAcconto()
{
    Banco x;
    x.scrivi("Descrizione", QStringLiteral("Saldo parziale"));
    x.scrivi("Importo", QStringLiteral("50"));
    x.b.interazione().rispondiAnnullaDomanda(domanda);
    x.clicRiga(0);
    QCOMPARE(x.campo("Descrizione")->text(), QStringLiteral("Saldo parziale"));
    QCOMPARE(x.acconti(), 1);
    x.b.interazione().rispondiSi(domanda);
    x.clicRiga(0);
    QCOMPARE(x.acconti(), 2);
    QCOMPARE(x.campo("Descrizione")->text(), QStringLiteral("Caparra"));
    QVERIFY(x.b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestAccontiUi)

#include "test_acconti_ui.moc"
