#include "archiviotemporaneo.h"
#include "righeprova.h"
#include "rooms/disponibilita.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using test::giugno;

class TestCamere : public QObject
{
    Q_OBJECT
private slots:
    void confiniStretti();
    void chiuseEdEsclusione();
    void righeEDateNonValide();
    void piuPrenotazioni();
};

void TestCamere::confiniStretti()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    QVERIFY(r.movimentoCamera(p, QStringLiteral("101"), giugno(10), giugno(15)));
    // Extras charged to the room on other days never hold it.
    QVERIFY(r.movimentoCamera(p, QStringLiteral("101"), giugno(20), giugno(25), false, QStringLiteral("Accessori")));
    auto occupata = [&](const QDate& dal, const QDate& al, const QString& camera = QStringLiteral("101")) {
        return CameraOccupataNelPeriodo(t.archivio(), 0, camera, dal, al);
    };
    // Departure day of one stay is the arrival day of the next.
    QVERIFY(!occupata(giugno(15), giugno(20)));
    QVERIFY(!occupata(giugno(5), giugno(10)));
    QVERIFY(occupata(giugno(14), giugno(16)));
    QVERIFY(occupata(giugno(9), giugno(11)));
    QVERIFY(occupata(giugno(11), giugno(13)));
    QVERIFY(occupata(giugno(1), giugno(30)));
    // Zero nights: free on the arrival day, taken on an inner day.
    QVERIFY(!occupata(giugno(10), giugno(10)));
    QVERIFY(occupata(giugno(12), giugno(12)));
    QVERIFY(!occupata(giugno(21), giugno(23)));
    QVERIFY(!occupata(giugno(11), giugno(13), QStringLiteral("102")));
}

void TestCamere::chiuseEdEsclusione()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 aperta = r.prenotazione();
    const qint64 chiusa = r.prenotazione(true);
    QVERIFY(r.movimentoCamera(aperta, QStringLiteral("101"), giugno(10), giugno(15)));
    QVERIFY(r.movimentoCamera(chiusa, QStringLiteral("102"), giugno(10), giugno(15), true));
    QVERIFY(!CameraOccupataNelPeriodo(t.archivio(), 0, QStringLiteral("102"), giugno(11), giugno(12)));
    // The reservation being edited doesn't collide with itself, but does with 0 and with another index.
    QVERIFY(!CameraOccupataNelPeriodo(t.archivio(), aperta, QStringLiteral("101"), giugno(11), giugno(12)));
    QVERIFY(CameraOccupataNelPeriodo(t.archivio(), 0, QStringLiteral("101"), giugno(11), giugno(12)));
    QVERIFY(CameraOccupataNelPeriodo(t.archivio(), chiusa, QStringLiteral("101"), giugno(11), giugno(12)));
}

void TestCamere::righeEDateNonValide()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    QVERIFY(r.movimentoCamera(p, QStringLiteral("101"), QDate(), giugno(15)));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("102"), giugno(10), giugno(15)));
    // A row with a null date matches nothing.
    QVERIFY(!CameraOccupataNelPeriodo(t.archivio(), 0, QStringLiteral("101"), giugno(1), giugno(30)));
    // Room numbers compare as the archive's text does.
    QVERIFY(r.movimentoCamera(p, QStringLiteral("A1"), giugno(10), giugno(15)));
    QVERIFY(CameraOccupataNelPeriodo(t.archivio(), 0, QStringLiteral("a1"), giugno(11), giugno(12)));
    // An invalid request date is a failed query: false, and visibly failed where asked.
    QVERIFY(!CameraOccupataNelPeriodo(t.archivio(), 0, QStringLiteral("102"), QDate(), giugno(12)));
    QVERIFY(!interrogaCamera(t.archivio(), 0, QStringLiteral("102"), giugno(11), QDate()).has_value());
    QCOMPARE(interrogaCamera(t.archivio(), 0, QStringLiteral("102"), giugno(11), giugno(12)), std::optional<bool>(true));
}

void TestCamere::piuPrenotazioni()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const auto camera = QStringLiteral("101");
    PrenotazioniCamera esito = PiuPrenotazioni(t.archivio(), camera, giugno(10), giugno(20));
    QVERIFY(!esito.piuPrenotazioni);
    QCOMPARE(esito.righe, 0);
    QCOMPARE(esito.indicePrenotazione, 0);

    const qint64 prima = r.prenotazione();
    const qint64 seconda = r.prenotazione();
    const qint64 chiusa = r.prenotazione(true);
    QVERIFY(r.movimentoCamera(prima, camera, giugno(10), giugno(14)));
    QVERIFY(r.movimentoCamera(chiusa, camera, giugno(12), giugno(16), true));
    // Touching stays don't count.
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

class TestSpiaggiaESale : public QObject
{
    Q_OBJECT
private slots:
    void spiaggiaGiorniInteri();
    void saleOre();
    void saleSenzaOreOOreNonValide();
};

void TestSpiaggiaESale::spiaggiaGiorniInteri()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione(true); // closed: still holds the item
    QVERIFY(r.articolo(p, QStringLiteral("12"), QStringLiteral("OMB"), giugno(10), giugno(15)));
    auto occupato = [&](const QDate& dal, const QDate& al, const QString& numero = QStringLiteral("12"),
                        const QString& codice = QStringLiteral("OMB"), qint64 escludi = 0) {
        return ArticoloOccupatoNelPeriodo(t.archivio(), escludi, numero, codice, dal, al);
    };
    QVERIFY(occupato(giugno(15), giugno(20)));
    QVERIFY(occupato(giugno(5), giugno(10)));
    QVERIFY(occupato(giugno(10), giugno(10)));
    QVERIFY(!occupato(giugno(16), giugno(20)));
    QVERIFY(!occupato(giugno(5), giugno(9)));
    // Both the number and the code identify the item.
    QVERIFY(!occupato(giugno(11), giugno(12), QStringLiteral("13")));
    QVERIFY(!occupato(giugno(11), giugno(12), QStringLiteral("12"), QStringLiteral("LET")));
    QVERIFY(!occupato(giugno(11), giugno(12), QStringLiteral("12"), QStringLiteral("OMB"), p));
    QVERIFY(occupato(giugno(11), giugno(12), QStringLiteral("12"), QStringLiteral("OMB"), p + 1));
}

void TestSpiaggiaESale::saleOre()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione(true);
    QVERIFY(r.sala(p, QStringLiteral("CONGRESSI"), giugno(10), giugno(10), QStringLiteral("10.00"), QStringLiteral("0.00")));
    QVERIFY(r.sala(p, QStringLiteral("RIUNIONI"), giugno(10), giugno(11), QStringLiteral("9.00"), QStringLiteral("12.00")));
    auto occupata = [&](const QString& sala, const QDate& dal, const QDate& al, const char* da, const char* a,
                        qint64 escludi = 0) {
        return SalaOccupataNelPeriodo(t.archivio(), escludi, sala, dal, al, QString::fromLatin1(da),
                                      QString::fromLatin1(a));
    };
    const auto congressi = QStringLiteral("CONGRESSI");
    const auto riunioni = QStringLiteral("RIUNIONI");
    // A row ending at 0.00 runs to the end of its day.
    QVERIFY(occupata(congressi, giugno(10), giugno(10), "18.00", "20.00"));
    QVERIFY(occupata(congressi, giugno(10), giugno(10), "8.00", "11.00"));
    // Compared as it stands, that 0.00 also "ends before" any request: the row holds its whole day.
    QVERIFY(occupata(congressi, giugno(10), giugno(10), "6.00", "8.00"));
    QVERIFY(!occupata(congressi, giugno(11), giugno(11), "18.00", "20.00"));
    QVERIFY(!occupata(congressi, giugno(10), giugno(10), "18.00", "20.00", p));
    // Back to back bookings share an hour without colliding; days touch by both ends.
    QVERIFY(!occupata(riunioni, giugno(10), giugno(10), "12.00", "14.00"));
    QVERIFY(!occupata(riunioni, giugno(11), giugno(12), "7.00", "9.00"));
    QVERIFY(occupata(riunioni, giugno(11), giugno(12), "11.00", "13.00"));
    QVERIFY(occupata(riunioni, giugno(11), giugno(12), "9.30", "10.00"));
    QVERIFY(occupata(riunioni, giugno(11), giugno(12), "8.00", "13.00"));
    // The request's own 0.00 end is midnight at its start: a later row inside the evening goes unseen.
    QVERIFY(r.sala(p, QStringLiteral("TERRAZZA"), giugno(10), giugno(10), QStringLiteral("20.00"), QStringLiteral("22.00")));
    QVERIFY(!occupata(QStringLiteral("TERRAZZA"), giugno(10), giugno(10), "18.00", "0.00"));
    QVERIFY(occupata(QStringLiteral("TERRAZZA"), giugno(10), giugno(10), "18.00", "21.00"));
}

void TestSpiaggiaESale::saleSenzaOreOOreNonValide()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    QVERIFY(r.sala(p, QStringLiteral("GIARDINO"), giugno(10), giugno(10), {}, {}));
    QVERIFY(r.sala(p, QStringLiteral("SALONE"), giugno(10), giugno(10), QStringLiteral("9.00"), QStringLiteral("10.00")));
    const auto giardino = QStringLiteral("GIARDINO");
    const auto salone = QStringLiteral("SALONE");
    // A row saved without hours holds the whole day.
    QVERIFY(SalaOccupataNelPeriodo(t.archivio(), 0, giardino, giugno(10), giugno(10), QStringLiteral("22.00"),
                                   QStringLiteral("23.00")));
    // A request without usable hours collides with any row of the day, and with nothing on a free day.
    QVERIFY(SalaOccupataNelPeriodo(t.archivio(), 0, salone, giugno(10), giugno(10), QStringLiteral("sera"),
                                   QStringLiteral("23.00")));
    QVERIFY(SalaOccupataNelPeriodo(t.archivio(), 0, salone, giugno(10), giugno(10), {}, {}));
    QVERIFY(!SalaOccupataNelPeriodo(t.archivio(), 0, salone, giugno(11), giugno(11), {}, {}));
    QVERIFY(!SalaOccupataNelPeriodo(t.archivio(), 0, salone, giugno(10), giugno(10), QStringLiteral("10.00"),
                                    QStringLiteral("11.00")));
}

class TestContatori : public QObject
{
    Q_OBJECT
private slots:
    void camereDisponibiliSuPiuPiani();
    void personePresenti();
    void personeInCamera();
    void dateNonValide();
};

void TestContatori::camereDisponibiliSuPiuPiani()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    for (const auto& [camera, piano] : {std::pair{"101", 1}, {"102", 1}, {"201", 2}, {"202", 2}, {"301", 3}})
        QVERIFY(r.camera(QString::fromLatin1(camera), piano));
    const qint64 p = r.prenotazione();
    const qint64 chiusa = r.prenotazione(true);
    QVERIFY(r.movimentoCamera(p, QStringLiteral("101"), giugno(8), giugno(12)));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("201"), giugno(14), giugno(16)));
    QVERIFY(r.movimentoCamera(chiusa, QStringLiteral("202"), giugno(10), giugno(15), true));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("301"), giugno(5), giugno(10)));
    QVERIFY(r.movimentoCamera(p, QStringLiteral("102"), giugno(11), giugno(12), false, QStringLiteral("Accessori")));
    // A booked room on a floor that isn't in the structure changes nothing.
    QVERIFY(r.movimentoCamera(p, QStringLiteral("401"), giugno(10), giugno(15)));
    QCOMPARE(CaricaQtaDisponibilitaCamere(t.archivio(), giugno(10), giugno(15)),
             std::optional<QString>(QStringLiteral("Camere Disponibili: 3")));
    QCOMPARE(CaricaQtaDisponibilitaCamere(t.archivio(), giugno(12), giugno(14)),
             std::optional<QString>(QStringLiteral("Camere Disponibili: 5")));
    QCOMPARE(CaricaQtaDisponibilitaCamere(t.archivio(), giugno(1), giugno(30)),
             std::optional<QString>(QStringLiteral("Camere Disponibili: 2")));
}

void TestContatori::personePresenti()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    const qint64 chiusa = r.prenotazione(true);
    const auto c = QStringLiteral("101");
    QVERIFY(r.ospite(p, c, giugno(8), giugno(12))); // across the start
    QVERIFY(r.ospite(p, c, giugno(14), giugno(20))); // across the end
    QVERIFY(r.ospite(chiusa, c, giugno(10), giugno(15))); // inside; closed reservations count too
    QVERIFY(r.ospite(p, c, giugno(5), giugno(10))); // leaves on the first day: out
    QVERIFY(r.ospite(p, c, giugno(15), giugno(18))); // arrives on the last day: out
    QVERIFY(r.ospite(p, c, giugno(11), giugno(13), 0)); // not arrived
    QVERIFY(r.ospite(p, c, giugno(11), giugno(13), -1)); // flag never set
    // No departure: any known arrival counts, even one long after the period.
    QVERIFY(r.ospite(p, c, QDate(2030, 1, 1), QDate()));
    // No arrival: counts when leaving after the first day.
    QVERIFY(r.ospite(p, c, QDate(), giugno(11)));
    QVERIFY(r.ospite(p, c, QDate(), giugno(10)));
    QVERIFY(r.ospite(p, c, QDate(), QDate()));
    QCOMPARE(CaricaQtaPersone(t.archivio(), giugno(10), giugno(15)),
             std::optional<QString>(QStringLiteral("Persone Presenti: 5")));
}

void TestContatori::personeInCamera()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    const qint64 p = r.prenotazione();
    const qint64 chiusa = r.prenotazione(true);
    QVERIFY(r.ospite(p, QStringLiteral("101"), giugno(10), giugno(15), 0)); // not arrived yet: still counted
    QVERIFY(r.ospite(p, QStringLiteral("101"), giugno(10), QDate(), 1));
    QVERIFY(r.ospite(p, QStringLiteral("101"), giugno(15), giugno(16), 1));
    QVERIFY(r.ospite(p, QStringLiteral("102"), giugno(10), giugno(15), 1));
    QVERIFY(r.ospite(chiusa, QStringLiteral("101"), giugno(10), giugno(15), 1));
    QCOMPARE(QuantePersoneInCameraPresenti(t.archivio(), QStringLiteral("101"), giugno(11), giugno(14)),
             QStringLiteral("2"));
    QCOMPARE(QuantePersoneInCameraPresenti(t.archivio(), QStringLiteral("103"), giugno(11), giugno(14)),
             QStringLiteral("0"));
    QCOMPARE(QuantePersoneInCameraPresenti(t.archivio(), QStringLiteral("101"), QDate(), giugno(14)),
             QStringLiteral("0"));

    QVERIFY(!PersoneArrivate(t.archivio(), QStringLiteral("101"), p + 10));
    QVERIFY(PersoneArrivate(t.archivio(), QStringLiteral("101"), p));
    QVERIFY(!PersoneArrivate(t.archivio(), QStringLiteral("103"), p));
    const qint64 inAttesa = r.prenotazione();
    QVERIFY(r.ospite(inAttesa, QStringLiteral("104"), giugno(10), giugno(15), 0));
    QVERIFY(!PersoneArrivate(t.archivio(), QStringLiteral("104"), inAttesa));
}

void TestContatori::dateNonValide()
{
    test::ArchivioTemporaneo t;
    test::RigheProva r(t.archivio());
    QVERIFY(r.camera(QStringLiteral("101"), 1));
    // The board keeps its former captions.
    QVERIFY(!CaricaQtaDisponibilitaCamere(t.archivio(), QDate(), giugno(15)));
    QVERIFY(!CaricaQtaPersone(t.archivio(), giugno(10), QDate()));
    QCOMPARE(CaricaQtaDisponibilitaCamere(t.archivio(), giugno(10), giugno(15)),
             std::optional<QString>(QStringLiteral("Camere Disponibili: 1")));
    QCOMPARE(CaricaQtaPersone(t.archivio(), giugno(10), giugno(15)),
             std::optional<QString>(QStringLiteral("Persone Presenti: 0")));
}

TOMVERA_TEST(TestCamere)
TOMVERA_TEST(TestSpiaggiaESale)
TOMVERA_TEST(TestContatori)

#include "test_disponibilita.moc"
