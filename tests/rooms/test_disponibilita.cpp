#include "archiviotemporaneo.h"
#include "righeprova.h"
#include "rooms/disponibilita.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using test::giugno;

// Each case stores one row under its own code and asks both the archive query and its in-memory twin,
// which must agree with each other and with the expected answer.
class TestPeriodi : public QObject
{
    Q_OBJECT
private slots:
    void camere();
    void articoli();
    void sale();
};

namespace {

struct CasoPeriodo
{
    int dalRiga, alRiga, dal, al;
    bool atteso;
};

QString codiceCaso(int i)
{
    return QStringLiteral("C") + QString::number(i);
}

} // namespace

void TestPeriodi::camere()
{
    // Row 10-15: the departure day is the next arrival day; zero nights collide only on an inner day.
    const QList<CasoPeriodo> casi = {
        { 10, 15, 15, 20, false }, { 10, 15, 5, 10, false },  { 10, 15, 14, 16, true },  { 10, 15, 9, 11, true },
        { 10, 15, 11, 13, true },  { 10, 15, 1, 30, true },   { 10, 15, 10, 10, false }, { 10, 15, 12, 12, true },
        { 10, 15, 10, 15, true },  { 10, 15, 15, 15, false }, { 12, 12, 10, 15, true },  { 10, 15, 15, 10, false },
    };
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    for (int i = 0; i < casi.size(); ++i) {
        const CasoPeriodo& c = casi.at(i);
        QVERIFY(r.movimentoCamera(p, codiceCaso(i), giugno(c.dalRiga), giugno(c.alRiga)));
        const bool archivio = CameraOccupataNelPeriodo(t.archivio(), 0, codiceCaso(i), giugno(c.dal), giugno(c.al));
        const bool memoria = IntersezioneCamere(codiceCaso(i), giugno(c.dalRiga), giugno(c.alRiga), codiceCaso(i),
                                                giugno(c.dal), giugno(c.al));
        QVERIFY2(archivio == c.atteso && memoria == c.atteso, qPrintable(QStringLiteral("caso %1").arg(i)));
    }
    QVERIFY(!IntersezioneCamere(QStringLiteral("101"), giugno(10), giugno(15), QStringLiteral("102"), giugno(10),
                                giugno(15)));
}

void TestPeriodi::articoli()
{
    // Whole days: touching by one day is a conflict.
    const QList<CasoPeriodo> casi = {
        { 10, 15, 15, 20, true }, { 10, 15, 5, 10, true },  { 10, 15, 16, 20, false },
        { 10, 15, 5, 9, false },  { 10, 15, 10, 10, true }, { 10, 15, 15, 15, true },
        { 10, 15, 1, 30, true },  { 12, 12, 12, 12, true }, { 12, 12, 13, 14, false },
    };
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    const auto numero = QStringLiteral("7");
    for (int i = 0; i < casi.size(); ++i) {
        const CasoPeriodo& c = casi.at(i);
        QVERIFY(r.articolo(p, numero, codiceCaso(i), giugno(c.dalRiga), giugno(c.alRiga)));
        const bool archivio
            = ArticoloOccupatoNelPeriodo(t.archivio(), 0, numero, codiceCaso(i), giugno(c.dal), giugno(c.al));
        const bool memoria = IntersezioneArticoli(codiceCaso(i), numero, giugno(c.dalRiga), giugno(c.alRiga),
                                                  codiceCaso(i), numero, giugno(c.dal), giugno(c.al));
        QVERIFY2(archivio == c.atteso && memoria == c.atteso, qPrintable(QStringLiteral("caso %1").arg(i)));
    }
    // Both the number and the code identify the item, whole.
    QVERIFY(!ArticoloOccupatoNelPeriodo(t.archivio(), 0, QStringLiteral("8"), codiceCaso(0), giugno(10), giugno(15)));
    QVERIFY(!ArticoloOccupatoNelPeriodo(t.archivio(), 0, numero, QStringLiteral("C"), giugno(10), giugno(15)));
    QVERIFY(!IntersezioneArticoli(codiceCaso(0), numero, giugno(10), giugno(15), codiceCaso(0), QStringLiteral("8"),
                                  giugno(10), giugno(15)));
}

void TestPeriodi::sale()
{
    struct Caso
    {
        int dalRiga, alRiga;
        const char *daRiga, *aRiga;
        int dal, al;
        const char *da, *a;
        bool atteso;
    };
    const QList<Caso> casi = {
        // A row ending at 0.00 runs to the end of its day...
        { 10, 10, "10.00", "0.00", 10, 10, "18.00", "20.00", true },
        // ...and, compared as it stands, also "ends before" any request: it holds its whole day.
        { 10, 10, "10.00", "0.00", 10, 10, "6.00", "8.00", true },
        // The request's own 0.00 end is midnight at its start: a later row in the evening goes unseen.
        { 10, 10, "20.00", "22.00", 10, 10, "18.00", "0.00", false },
        { 10, 10, "9.00", "12.00", 10, 10, "12.00", "14.00", false },
        { 10, 10, "9.00", "12.00", 11, 11, "9.00", "12.00", false },
        { 10, 11, "9.00", "12.00", 11, 12, "11.00", "13.00", true },
        { 10, 11, "9.00", "12.00", 11, 12, "7.00", "9.00", false },
        { 10, 10, "14.00", "16.00", 10, 10, "9.00", "15.00", true },
        { 10, 10, "14.00", "16.00", 10, 10, "15.00", "15.30", true },
        { 10, 10, "14.00", "16.00", 10, 10, "13.00", "17.00", true },
        { 10, 10, "14.00", "16.00", 10, 10, "14.00", "16.00", true },
        // A row saved without hours holds the day; a request without usable hours collides with any row of it.
        { 10, 10, "", "", 10, 10, "22.00", "23.00", true },
        { 10, 10, "9.00", "10.00", 10, 10, "", "", true },
        { 10, 10, "9.00", "10.00", 10, 10, "sera", "23.00", true },
        { 10, 10, "9.00", "10.00", 11, 11, "", "", false },
    };
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    auto s = [](const char* testo) { return QString::fromLatin1(testo); };
    for (int i = 0; i < casi.size(); ++i) {
        const Caso& c = casi.at(i);
        QVERIFY(r.sala(p, codiceCaso(i), giugno(c.dalRiga), giugno(c.alRiga), s(c.daRiga), s(c.aRiga)));
        const bool archivio
            = SalaOccupataNelPeriodo(t.archivio(), 0, codiceCaso(i), giugno(c.dal), giugno(c.al), s(c.da), s(c.a));
        // A holds the request, B the row.
        const bool memoria
            = IntersezioneSale(codiceCaso(i), giugno(c.dal), giugno(c.al), s(c.da), s(c.a), codiceCaso(i),
                               giugno(c.dalRiga), giugno(c.alRiga), s(c.daRiga), s(c.aRiga));
        QVERIFY2(archivio == c.atteso && memoria == c.atteso, qPrintable(QStringLiteral("caso %1").arg(i)));
    }
    QVERIFY(!IntersezioneSale(codiceCaso(0), giugno(10), giugno(10), {}, {}, codiceCaso(1), giugno(10), giugno(10), {},
                              {}));
}

class TestPrenotazioniChiuseEdEsclusione : public QObject
{
    Q_OBJECT
private slots:
    void soloLeCamereIgnoranoLeChiuse();
    void righeEDateNonValide();
    void piuPrenotazioni();
};

void TestPrenotazioniChiuseEdEsclusione::soloLeCamereIgnoranoLeChiuse()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    Archivio& a = t.archivio();
    const qint64 aperta = r.prenotazione();
    const qint64 chiusa = r.prenotazione(true);
    QVERIFY(r.movimentoCamera(aperta, QStringLiteral("101"), giugno(10), giugno(15)));
    QVERIFY(r.movimentoCamera(chiusa, QStringLiteral("102"), giugno(10), giugno(15), true));
    QVERIFY(r.articolo(chiusa, QStringLiteral("12"), QStringLiteral("OMB"), giugno(10), giugno(15)));
    QVERIFY(r.sala(chiusa, QStringLiteral("CONGRESSI"), giugno(10), giugno(10), QStringLiteral("9.00"),
                   QStringLiteral("12.00")));
    QVERIFY(!CameraOccupataNelPeriodo(a, 0, QStringLiteral("102"), giugno(11), giugno(12)));
    QVERIFY(ArticoloOccupatoNelPeriodo(a, 0, QStringLiteral("12"), QStringLiteral("OMB"), giugno(11), giugno(12)));
    QVERIFY(SalaOccupataNelPeriodo(a, 0, QStringLiteral("CONGRESSI"), giugno(10), giugno(10), QStringLiteral("10.00"),
                                   QStringLiteral("11.00")));
    // The reservation being edited doesn't collide with itself; with 0 or another index it does.
    QVERIFY(!CameraOccupataNelPeriodo(a, aperta, QStringLiteral("101"), giugno(11), giugno(12)));
    QVERIFY(CameraOccupataNelPeriodo(a, 0, QStringLiteral("101"), giugno(11), giugno(12)));
    QVERIFY(CameraOccupataNelPeriodo(a, chiusa, QStringLiteral("101"), giugno(11), giugno(12)));
    QVERIFY(
        !ArticoloOccupatoNelPeriodo(a, chiusa, QStringLiteral("12"), QStringLiteral("OMB"), giugno(11), giugno(12)));
    QVERIFY(!SalaOccupataNelPeriodo(a, chiusa, QStringLiteral("CONGRESSI"), giugno(10), giugno(10),
                                    QStringLiteral("10.00"), QStringLiteral("11.00")));
}

void TestPrenotazioniChiuseEdEsclusione::righeEDateNonValide()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    Archivio& a = t.archivio();
    const qint64 p = r.prenotazione();
    QVERIFY(r.movimentoCamera(p, QStringLiteral("101"), QDate(), giugno(15)));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("102"), giugno(20), giugno(25), false, QStringLiteral("Accessori")));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("A1"), giugno(10), giugno(15)));
    // A null date matches nothing, and extras charged to a room never hold it.
    QVERIFY(!CameraOccupataNelPeriodo(a, 0, QStringLiteral("101"), giugno(1), giugno(30)));
    QVERIFY(!CameraOccupataNelPeriodo(a, 0, QStringLiteral("102"), giugno(21), giugno(23)));
    // Room numbers compare as the archive's text does.
    QVERIFY(CameraOccupataNelPeriodo(a, 0, QStringLiteral("a1"), giugno(11), giugno(12)));
    // An invalid request date is a failed query: false, and visibly failed where asked.
    QVERIFY(!CameraOccupataNelPeriodo(a, 0, QStringLiteral("A1"), QDate(), giugno(12)));
    QVERIFY(!interrogaCamera(a, 0, QStringLiteral("A1"), giugno(11), QDate()).has_value());
    QCOMPARE(interrogaCamera(a, 0, QStringLiteral("A1"), giugno(11), giugno(12)), std::optional<bool>(true));
}

void TestPrenotazioniChiuseEdEsclusione::piuPrenotazioni()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const auto camera = QStringLiteral("101");
    PrenotazioniCamera esito = PiuPrenotazioni(t.archivio(), camera, giugno(10), giugno(20));
    QVERIFY(!esito.piuPrenotazioni);
    QCOMPARE(esito.righe, 0);

    const qint64 prima = r.prenotazione();
    const qint64 seconda = r.prenotazione();
    QVERIFY(r.movimentoCamera(prima, camera, giugno(10), giugno(14)));
    QVERIFY(r.movimentoCamera(r.prenotazione(true), camera, giugno(12), giugno(16), true));
    QVERIFY(r.movimentoCamera(seconda, camera, giugno(20), giugno(22)));
    esito = PiuPrenotazioni(t.archivio(), camera, giugno(10), giugno(20));
    QVERIFY(!esito.piuPrenotazioni);
    QCOMPARE(esito.righe, 1);
    QCOMPARE(esito.indicePrenotazione, prima);

    QVERIFY(r.movimentoCamera(seconda, camera, giugno(14), giugno(18)));
    esito = PiuPrenotazioni(t.archivio(), camera, giugno(10), giugno(20));
    QVERIFY(esito.piuPrenotazioni);
    QCOMPARE(esito.righe, 2);
    QCOMPARE(esito.indicePrenotazione, 0);
}

class TestContatori : public QObject
{
    Q_OBJECT
private slots:
    void camereDisponibiliSuPiuPiani();
    void personePresenti();
    void personeInCamera();
};

void TestContatori::camereDisponibiliSuPiuPiani()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    for (const auto& [camera, piano] :
         { std::pair { "101", 1 }, { "102", 1 }, { "201", 2 }, { "202", 2 }, { "301", 3 } })
        QVERIFY(r.camera(QString::fromLatin1(camera), piano));
    const qint64 p = r.prenotazione();
    QVERIFY(r.movimentoCamera(p, QStringLiteral("101"), giugno(8), giugno(12)));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("201"), giugno(14), giugno(16)));
    QVERIFY(r.movimentoCamera(r.prenotazione(true), QStringLiteral("202"), giugno(10), giugno(15), true));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("301"), giugno(5), giugno(10)));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("102"), giugno(11), giugno(12), false, QStringLiteral("Accessori")));
    // A booked room that isn't in the structure changes nothing.
    QVERIFY(r.movimentoCamera(p, QStringLiteral("401"), giugno(10), giugno(15)));
    auto didascalia = [&](const QDate& dal, const QDate& al) {
        return CaricaQtaDisponibilitaCamere(t.archivio(), dal, al).value_or(QStringLiteral("(invariata)"));
    };
    QCOMPARE(didascalia(giugno(10), giugno(15)), QStringLiteral("Camere Disponibili: 3"));
    QCOMPARE(didascalia(giugno(12), giugno(14)), QStringLiteral("Camere Disponibili: 5"));
    QCOMPARE(didascalia(giugno(1), giugno(30)), QStringLiteral("Camere Disponibili: 2"));
    QCOMPARE(didascalia(QDate(), giugno(15)), QStringLiteral("(invariata)"));
}

void TestContatori::personePresenti()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    const auto c = QStringLiteral("101");
    QVERIFY(r.ospite(p, c, giugno(8), giugno(12))); // across the start
    QVERIFY(r.ospite(p, c, giugno(14), giugno(20))); // across the end
    QVERIFY(r.ospite(r.prenotazione(true), c, giugno(10), giugno(15))); // inside; closed ones count too
    QVERIFY(r.ospite(p, c, giugno(5), giugno(10))); // leaves on the first day
    QVERIFY(r.ospite(p, c, giugno(15), giugno(18))); // arrives on the last day
    QVERIFY(r.ospite(p, c, giugno(11), giugno(13), 0)); // not arrived
    QVERIFY(r.ospite(p, c, giugno(11), giugno(13), -1)); // flag never set
    // No departure: any known arrival counts, even one years after the period.
    QVERIFY(r.ospite(p, c, QDate(2030, 1, 1), QDate()));
    // No arrival: counts when leaving after the first day.
    QVERIFY(r.ospite(p, c, QDate(), giugno(11)));
    QVERIFY(r.ospite(p, c, QDate(), giugno(10)));
    QVERIFY(r.ospite(p, c, QDate(), QDate()));
    QCOMPARE(CaricaQtaPersone(t.archivio(), giugno(10), giugno(15)),
             std::optional<QString>(QStringLiteral("Persone Presenti: 5")));
    QVERIFY(!CaricaQtaPersone(t.archivio(), giugno(10), QDate()));
}

void TestContatori::personeInCamera()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    Archivio& a = t.archivio();
    const qint64 p = r.prenotazione();
    QVERIFY(r.ospite(p, QStringLiteral("101"), giugno(10), giugno(15), 0)); // not arrived yet: still counted
    QVERIFY(r.ospite(p, QStringLiteral("101"), giugno(10), QDate(), 1));
    QVERIFY(r.ospite(p, QStringLiteral("101"), giugno(15), giugno(16), 1));
    QVERIFY(r.ospite(p, QStringLiteral("102"), giugno(10), giugno(15), 1));
    QVERIFY(r.ospite(r.prenotazione(true), QStringLiteral("101"), giugno(10), giugno(15), 1));
    QCOMPARE(QuantePersoneInCameraPresenti(a, QStringLiteral("101"), giugno(11), giugno(14)), QStringLiteral("2"));
    QCOMPARE(QuantePersoneInCameraPresenti(a, QStringLiteral("101"), QDate(), giugno(14)), QStringLiteral("0"));

    QVERIFY(PersoneArrivate(a, QStringLiteral("101"), p));
    QVERIFY(!PersoneArrivate(a, QStringLiteral("103"), p));
    const qint64 inAttesa = r.prenotazione();
    QVERIFY(r.ospite(inAttesa, QStringLiteral("104"), giugno(10), giugno(15), 0));
    QVERIFY(!PersoneArrivate(a, QStringLiteral("104"), inAttesa));
}

TOMVERA_TEST(TestPeriodi)
TOMVERA_TEST(TestPrenotazioniChiuseEdEsclusione)
TOMVERA_TEST(TestContatori)

#include "test_disponibilita.moc"
