#include "reservations/prenotazione.h"
#include "reservations/regoleospiti.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

// The next arrival number takes the guests on screen into account, not only the archive's rows.
class TestProssimoNumeroArrivo : public QObject
{
    Q_OBJECT
private slots:
    void schermoEArchivio();
};

void TestProssimoNumeroArrivo::schermoEArchivio()
{
    const auto conNumeri = [](std::initializer_list<int> numeri) {
        QList<OspitePrenotazione> righe;
        for (int n : numeri) {
            OspitePrenotazione o;
            o.imposta(QStringLiteral("NroArrivo"), n);
            righe << o;
        }
        return righe;
    };
    QCOMPARE(prossimoNroArrivo(4, {}), 5);
    // One above the archive's highest on screen already: the next is above that one.
    QCOMPARE(prossimoNroArrivo(4, conNumeri({ 5 })), 6);
    QCOMPARE(prossimoNroArrivo(4, conNumeri({ 0, 9, 2 })), 10);
    // Lower numbers on screen change nothing.
    QCOMPARE(prossimoNroArrivo(4, conNumeri({ 3, 4 })), 5);
    QCOMPARE(prossimoNroArrivo(0, conNumeri({ 0 })), 1);
}

TOMVERA_TEST(TestProssimoNumeroArrivo)

#include "test_numeroarrivo.moc"
