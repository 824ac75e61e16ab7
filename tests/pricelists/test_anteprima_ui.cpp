#include "foundation/stampanti.h"
#include "interazionescriptata.h"
#include "reports/ui/anteprimastampa.h"
#include "testmain.h"

#include <QGuiApplication>
#include <QPrintPreviewDialog>
#include <QScreen>
#include <QTest>

using namespace tomvera;
using namespace tomvera::reports;

// The print preview opens inside the screen, whatever its size: the bottom of the page and the window's own
// bottom edge stay reachable on a laptop.
class TestAnteprimaUi : public QObject
{
    Q_OBJECT
private slots:
    void dentroLoSchermo();
};

void TestAnteprimaUi::dentroLoSchermo()
{
    for (const QRect& disponibile :
         { QRect(0, 0, 1280, 770), QRect(0, 0, 1600, 1000), QRect(0, 30, 1024, 738), QRect(1920, 0, 1280, 800) }) {
        const QRect r = geometriaAnteprima(disponibile);
        QVERIFY2(disponibile.contains(r), qPrintable(QStringLiteral("%1x%2").arg(r.width()).arg(r.height())));
        // Room for the title bar above, and most of the height used.
        QVERIFY(r.top() - disponibile.top() >= 30);
        QVERIFY(r.height() >= disponibile.height() * 8 / 10);
        QVERIFY(r.width() >= r.height() * 8 / 10);
    }
    // The real dialog takes that place on its screen.
    test::InterazioneScriptata interazione;
    StampantiPredefinite stampanti;
    ModelloStampa modello;
    modello.titolo = QStringLiteral("Prova");
    modello.righe = { { QStringLiteral("una riga") } };
    AnteprimaStampa anteprima(modello, interazione, stampanti);
    const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
    QCOMPARE(anteprima.dialogo().geometry(), geometriaAnteprima(schermo));
}

TOMVERA_TEST(TestAnteprimaUi)

#include "test_anteprima_ui.moc"
