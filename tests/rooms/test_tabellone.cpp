#include "bancotabellone.h"
#include "foundation/variabili.h"
#include "rooms/disponibilita.h"
#include "rooms/tabellone.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace tomvera;
using test::giugno;

// Pure rules: no archive.
class TestRegoleTabellone : public QObject
{
    Q_OBJECT
private slots:
    void geometriaQuadrataECentrata();
    void etichettaPostiUnaNotte();
    void selezioneMultiplaSovrapposta();
    void strisciaCambioTurno();
    void titoloETooltip();
};

void TestRegoleTabellone::geometriaQuadrataECentrata()
{
    // 784 / 5 = 156.8 wide, 584 / 4 = 146 high: the side is the smaller, the grid centred horizontally.
    const Geometria g = Parametri_Click(800, 600, 4, 5);
    QCOMPARE(g.lato, 146.0);
    QCOMPARE(g.sinistra, (800 - 146.0 * 5) / 2);
    QCOMPARE(g.riquadro(1, 2), QRectF(g.sinistra + 146, 8 + 292, 146, 146));
    QCOMPARE(g.cellaIn(g.riquadro(4, 3).center()), QPoint(4, 3));
    QCOMPARE(g.cellaIn(QPointF(g.sinistra - 1, 20)), QPoint(-1, -1));
    // A grid never sized counts as one cell.
    const Geometria zero = Parametri_Click(400, 300, 0, 0);
    QCOMPARE(zero.righe, 1);
    QCOMPARE(zero.colonne, 1);
    QCOMPARE(zero.lato, 284.0);
    QVERIFY(Parametri_Click(10, 10, 3, 3).lato <= 0.0);
}

void TestRegoleTabellone::etichettaPostiUnaNotte()
{
    Tessera t;
    t.posti = 3;
    QCOMPARE(etichettaPosti(t, giugno(10), giugno(11)).testo, QStringLiteral(" 3 "));
    QVERIFY(!etichettaPosti(t, giugno(10), giugno(11)).bordo);
    t.stato = StatoCamera::Occupata;
    t.personePresenti = 0;
    EtichettaPosti e = etichettaPosti(t, giugno(10), giugno(11));
    QCOMPARE(e.testo, QStringLiteral(" 0 | 3 "));
    QVERIFY(e.bordo);
    QCOMPARE(e.colore, 255);
    t.personePresenti = 3;
    QCOMPARE(etichettaPosti(t, giugno(10), giugno(11)).colore, 32768);
    t.personePresenti = 2;
    QCOMPARE(etichettaPosti(t, giugno(10), giugno(11)).colore, 32896);
    // Longer periods show the places only.
    e = etichettaPosti(t, giugno(10), giugno(12));
    QCOMPARE(e.testo, QStringLiteral(" 3 "));
    QVERIFY(!e.bordo);
}

void TestRegoleTabellone::selezioneMultiplaSovrapposta()
{
    const QList<CameraSelezionata> griglia = { { QStringLiteral("101"), giugno(10), giugno(12) } };
    QVERIFY(CameraGiaSelezionata(griglia, QStringLiteral("101"), giugno(11), giugno(13)));
    // Touching ends count: the same room can't be picked twice for a changeover.
    QVERIFY(CameraGiaSelezionata(griglia, QStringLiteral("101"), giugno(12), giugno(14)));
    QVERIFY(!CameraGiaSelezionata(griglia, QStringLiteral("101"), giugno(13), giugno(14)));
    QVERIFY(!CameraGiaSelezionata(griglia, QStringLiteral("102"), giugno(10), giugno(12)));
}

void TestRegoleTabellone::strisciaCambioTurno()
{
    const QList<MovimentoStriscia> movimenti
        = { { giugno(10), giugno(12), 1, true }, { giugno(12), giugno(14), 2, false } };
    const QList<GiornoStriscia> s = compilaStriscia(giugno(9), 6, movimenti);
    QCOMPARE(s.size(), 6);
    QCOMPARE(s.at(0).pomeriggio.prenotazione, 0);
    QCOMPARE(s.at(1).mattina.prenotazione, 0);
    QCOMPARE(s.at(1).pomeriggio.prenotazione, 1);
    QCOMPARE(s.at(1).pomeriggio.didascalia, QStringLiteral(">"));
    // Changeover: the morning is the leaving stay, the afternoon the arriving one.
    QCOMPARE(s.at(3).mattina.prenotazione, 1);
    QVERIFY(s.at(3).mattina.arrivati);
    QCOMPARE(s.at(3).mattina.didascalia, QStringLiteral("."));
    QCOMPARE(s.at(3).pomeriggio.prenotazione, 2);
    QVERIFY(!s.at(3).pomeriggio.arrivati);
    QCOMPARE(s.at(5).mattina.prenotazione, 2);
    QCOMPARE(s.at(5).pomeriggio.prenotazione, 0);

    const QList<MeseStriscia> mesi = mesiStriscia(compilaStriscia(QDate(2026, 6, 29), 4, {}));
    QCOMPARE(mesi.size(), 2);
    QCOMPARE(mesi.at(0).nome, QStringLiteral("Giugno 2026"));
    QCOMPARE(mesi.at(0).giorni, 2);
    QCOMPARE(mesi.at(1).primo, 2);
}

void TestRegoleTabellone::titoloETooltip()
{
    QCOMPARE(titoloConRefresh(QStringLiteral("Tomvera"), 0.0123), QStringLiteral("Tomvera        (Refresh: 0,01 s)"));
    Tessera t;
    t.stato = StatoCamera::PiuPrenotazioni;
    t.prenotazioni = 3;
    QCOMPARE(tooltipTessera(t), QStringLiteral("CameraPiuPrenotazioni (3)"));
    t.stato = StatoCamera::Occupata;
    QCOMPARE(tooltipTessera(t), QStringLiteral("Camera Occupata"));
    t.NroCamera = QStringLiteral("101");
    QCOMPARE(didascaliaNumero(t, true), QStringLiteral("»101«"));
}

TOMVERA_TEST(TestRegoleTabellone)

// The board on a real archive.
class TestTabellone : public QObject
{
    Q_OBJECT
private slots:
    void statiDelleTessere();
    void camereFuoriGrigliaETipologie();
    void contatoriSuTuttoLAlbergo();
    void oltreMilleTessere();
    void segnaSopravviveAlRefresh();
    void clickSuTessere();
    void selezioneMultipla();
    void aggiuntaCamera();
    void frecceUnSoloRefresh();
    void pianiEScelteRicordate();
    void strisciaSceltaDate();
    void informazioniCamera();
    void personePresentiRaggruppate();
};

namespace {

std::unique_ptr<Tabellone> tabellone(test::BancoTabellone& b, const QDate& dal, const QDate& al, int piano = 1)
{
    auto t = std::make_unique<Tabellone>(b.sessione);
    t->Form_Load();
    t->Dal = dal;
    t->Al = al;
    t->NroPiano = piano;
    t->Aggiorna_Click();
    return t;
}

StatoCamera stato(const Tabellone& t, const QString& camera)
{
    const Tessera* tessera = t.tesseraDiCamera(camera);
    return tessera ? tessera->stato : StatoCamera::Libera;
}

} // namespace

void TestTabellone::statiDelleTessere()
{
    test::BancoTabellone b;
    for (int i = 0; i < 5; ++i)
        QVERIFY(b.camera(QString::number(101 + i), 1, i, 0));
    b.soggiorno(QStringLiteral("102"), giugno(8), giugno(12));
    b.soggiorno(QStringLiteral("103"), giugno(8), giugno(11));
    b.soggiorno(QStringLiteral("103"), giugno(10), giugno(14));
    b.soggiorno(QStringLiteral("104"), giugno(8), giugno(14), {}, true);
    // 105: one stay leaves on the 10th, the next arrives that day.
    b.soggiorno(QStringLiteral("105"), giugno(5), giugno(10));
    b.soggiorno(QStringLiteral("105"), giugno(10), giugno(13));

    auto t = tabellone(b, giugno(10), giugno(11));
    QCOMPARE(stato(*t, QStringLiteral("101")), StatoCamera::Libera);
    QCOMPARE(stato(*t, QStringLiteral("102")), StatoCamera::Occupata);
    QCOMPARE(stato(*t, QStringLiteral("103")), StatoCamera::PiuPrenotazioni);
    QCOMPARE(t->tesseraDiCamera(QStringLiteral("103"))->prenotazioni, 2);
    QCOMPARE(stato(*t, QStringLiteral("104")), StatoCamera::Libera);
    QCOMPARE(stato(*t, QStringLiteral("105")), StatoCamera::Occupata);
    // The day before the changeover only the leaving stay holds it; the last night of both is the 9th.
    t->Dal = giugno(9);
    t->Al = giugno(10);
    t->Aggiorna_Click();
    QCOMPARE(stato(*t, QStringLiteral("105")), StatoCamera::Occupata);
    QCOMPARE(stato(*t, QStringLiteral("103")), StatoCamera::Occupata);
    // A period covering both stays is a double booking of the tile.
    t->Al = giugno(12);
    t->Aggiorna_Click();
    QCOMPARE(stato(*t, QStringLiteral("105")), StatoCamera::PiuPrenotazioni);
}

void TestTabellone::camereFuoriGrigliaETipologie()
{
    test::BancoTabellone b(2, 3);
    QVERIFY(b.tipologia(QStringLiteral("DOP"), 2, coloreDaRgb(200, 10, 10)));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, QStringLiteral("dop")));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 3, 0)); // X = Colonne
    QVERIFY(b.camera(QStringLiteral("103"), 1, 0, 2)); // Y = Righe
    QVERIFY(b.camera(QStringLiteral("104"), 1, 2, 1, QStringLiteral("XXX")));
    auto t = tabellone(b, giugno(10), giugno(11));
    QCOMPARE(t->tessere().size(), size_t(2));
    const Tessera* a = t->tessera(1);
    QCOMPARE(a->NroCamera, QStringLiteral("101"));
    QCOMPARE(a->ColoreTipologia.value_or(-1), double(coloreDaRgb(200, 10, 10)));
    QCOMPARE(a->posti, 2);
    // An unknown type leaves the tile without colour and places.
    QVERIFY(!t->tessera(2)->ColoreTipologia);
    QCOMPARE(t->tessera(2)->posti, 0);
    // A floor with no rooms draws nothing, the counters still cover the hotel (four rooms, all free).
    t->NroPiano = 7;
    t->Aggiorna_Click();
    QVERIFY(t->tessere().empty());
    QCOMPARE(t->CamereDisponibili, QStringLiteral("Camere Disponibili: 4"));
}

void TestTabellone::contatoriSuTuttoLAlbergo()
{
    test::BancoTabellone b;
    b.sessione.configurazione->MultiAzienda = true;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, {}, QStringLiteral("A")));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 1, 0, {}, QStringLiteral("B")));
    QVERIFY(b.camera(QStringLiteral("201"), 2, 0, 0, {}, QStringLiteral("B")));
    QVERIFY(b.camera(QStringLiteral("202"), 2, 1, 0, {}, QStringLiteral("A")));
    b.soggiorno(QStringLiteral("102"), giugno(9), giugno(12), { QStringLiteral("Rossi"), QStringLiteral("Bianchi") });
    b.soggiorno(QStringLiteral("201"), giugno(10), giugno(11), { QStringLiteral("Verdi") });

    auto t = tabellone(b, giugno(10), giugno(11));
    t->CodiceAzienda_Click(QStringLiteral("A"));
    QCOMPARE(t->tessere().size(), size_t(1));
    QCOMPARE(t->tessera(1)->NroCamera, QStringLiteral("101"));
    // Whatever the board shows, the counters are the whole hotel.
    QCOMPARE(t->CamereDisponibili, QStringLiteral("Camere Disponibili: 2"));
    QCOMPARE(t->PersonePresenti, QStringLiteral("Persone Presenti: 3"));
    t->CodiceAzienda_Click(QString());
    QCOMPARE(t->tessere().size(), size_t(2));
    const Tessera* occupata = t->tesseraDiCamera(QStringLiteral("102"));
    QCOMPARE(occupata->personePresenti, 2);
    QCOMPARE(occupata->CodiceAzienda, QStringLiteral("B"));
}

void TestTabellone::oltreMilleTessere()
{
    test::BancoTabellone b(40, 30);
    {
        Transazione tr(b.archivio());
        for (int i = 0; i < 1001; ++i)
            QVERIFY(b.camera(QString::number(1000 + i), 1, i % 30, i / 30));
        QVERIFY(tr.commit());
    }
    auto t = tabellone(b, giugno(10), giugno(11));
    QCOMPARE(t->tessere().size(), size_t(1001));
    QVERIFY(t->tessera(1000)->usabile());
    QVERIFY(!t->tessera(1001)->usabile());
    int richieste = 0;
    t->apriPrenotazione = [&](const RichiestaPrenotazione&) { ++richieste; };
    t->Camera_Click(1000);
    QCOMPARE(richieste, 1);
    t->Camera_Click(1001);
    QCOMPARE(richieste, 1);
    QCOMPARE(t->tesseraSegnata(), 1000);
}

void TestTabellone::segnaSopravviveAlRefresh()
{
    test::BancoTabellone b;
    b.sessione.permessi->amministratore = false; // a click marks even without the right to book
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 1, 0));
    QVERIFY(b.camera(QStringLiteral("201"), 2, 0, 0));
    auto t = tabellone(b, giugno(10), giugno(11));
    t->apriPrenotazione = [](const RichiestaPrenotazione&) { QFAIL("no right to book"); };
    t->Camera_Click(2);
    QCOMPARE(t->tesseraSegnata(), 2);
    t->Aggiorna_Click();
    QCOMPARE(t->tesseraSegnata(), 2);
    QCOMPARE(didascaliaNumero(*t->tessera(2), t->tesseraSegnata() == 2), QStringLiteral("»102«"));
    // Another floor has no such room; coming back finds the mark again.
    t->UpDown1_Click(true);
    QCOMPARE(t->NroPiano, 2);
    QCOMPARE(t->tesseraSegnata(), 0);
    t->UpDown1_Click(false);
    QCOMPARE(t->tesseraSegnata(), 2);
    t->SegnaClick(0, 0);
    t->Aggiorna_Click();
    QCOMPARE(t->tesseraSegnata(), 0);
}

void TestTabellone::clickSuTessere()
{
    test::BancoTabellone b;
    QVERIFY(b.tipologia(QStringLiteral("SIN"), 1, 255));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, QStringLiteral("SIN")));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 1, 0));
    QVERIFY(b.camera(QStringLiteral("103"), 1, 2, 0));
    const qint64 unica = b.soggiorno(QStringLiteral("102"), giugno(9), giugno(12));
    b.soggiorno(QStringLiteral("103"), giugno(9), giugno(12));
    b.soggiorno(QStringLiteral("103"), giugno(10), giugno(11));
    auto t = tabellone(b, giugno(10), giugno(11));
    std::optional<RichiestaPrenotazione> richiesta;
    QString lista;
    t->apriPrenotazione = [&](const RichiestaPrenotazione& r) { richiesta = r; };
    t->apriListaPrenotazioni = [&](const QString& camera, const QDate& dal, const QDate& al) {
        lista = camera + QLatin1Char(' ') + testoData(dal) + QLatin1Char(' ') + testoData(al);
    };

    t->tessera_Click(1);
    QVERIFY(richiesta);
    QCOMPARE(richiesta->tipo, RichiestaPrenotazione::Tipo::Nuova);
    QCOMPARE(richiesta->camere.size(), 1);
    QCOMPARE(richiesta->camere.first().NroCamera, QStringLiteral("101"));
    QCOMPARE(richiesta->camere.first().Arrivo, giugno(10));
    QCOMPARE(richiesta->camere.first().Partenza, giugno(11));
    QCOMPARE(richiesta->CodiceTipologia, QStringLiteral("SIN"));

    richiesta.reset();
    t->tessera_Click(2);
    QCOMPARE(richiesta->tipo, RichiestaPrenotazione::Tipo::Esistente);
    QCOMPARE(richiesta->IndicePrenotazioneDaAprire, unica);

    richiesta.reset();
    t->tessera_Click(3);
    QVERIFY(!richiesta);
    QCOMPARE(lista, QStringLiteral("103 10/06/2026 11/06/2026"));

    // Without the right the click only marks the tile.
    b.sessione.permessi->amministratore = false;
    t->tessera_Click(1);
    QVERIFY(!richiesta);
    QCOMPARE(t->tesseraSegnata(), 1);
    b.sessione.permessi->Prenotazioni = true;
    t->Dal = QDate();
    t->tessera_Click(1);
    QVERIFY(!richiesta);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Attenzione, impostare correttamente le date!"));
}

void TestTabellone::selezioneMultipla()
{
    test::BancoTabellone b;
    b.sessione.configurazione->MultiAzienda = true;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, {}, QStringLiteral("A")));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 1, 0, {}, QStringLiteral("A")));
    QVERIFY(b.camera(QStringLiteral("103"), 1, 2, 0, {}, QStringLiteral("B")));
    QVERIFY(b.camera(QStringLiteral("104"), 1, 3, 0, {}, QStringLiteral("A")));
    b.soggiorno(QStringLiteral("104"), giugno(10), giugno(11));
    auto t = tabellone(b, giugno(10), giugno(12));
    std::optional<RichiestaPrenotazione> richiesta;
    t->apriPrenotazione = [&](const RichiestaPrenotazione& r) { richiesta = r; };

    t->PrenotazioneMultipla_Click();
    QCOMPARE(t->modo(), Tabellone::Modo::Multipla);
    QVERIFY(!t->PrenotazioneAbilitata());
    t->Camera_Click(1);
    // The first room narrows the board to its company.
    QCOMPARE(t->CodiceAzienda, QStringLiteral("A"));
    QCOMPARE(t->tessere().size(), size_t(3));
    QVERIFY(t->PrenotazioneAbilitata());
    const int di102 = t->tesseraDiCamera(QStringLiteral("102"))->numero;
    t->Camera_Click(di102);
    QCOMPARE(t->Griglia.size(), 2);
    // The same room again over overlapping dates.
    t->Al = giugno(13);
    t->Camera_Click(di102);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Attenzione camera già selezionata!"));
    QCOMPARE(t->Griglia.size(), 2);
    t->CameraOccupata_Click(t->tesseraDiCamera(QStringLiteral("104"))->numero);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Attenzione camera occupata!"));
    QVERIFY(!richiesta);

    t->Prenotazione_Click();
    QVERIFY(richiesta);
    QCOMPARE(richiesta->camere.size(), 2);
    QCOMPARE(richiesta->camere.at(1).NroCamera, QStringLiteral("102"));
    QCOMPARE(richiesta->camere.at(1).Partenza, giugno(12));
    QCOMPARE(richiesta->CodiceAzienda, QStringLiteral("A"));
    QCOMPARE(t->modo(), Tabellone::Modo::Normale);
    QVERIFY(t->Griglia.isEmpty());

    // At most 100 rooms in one selection.
    t->PrenotazioneMultipla_Click();
    for (int i = 0; i < MassimoCamereSelezionate; ++i)
        t->Griglia.append({ QStringLiteral("X%1").arg(i), giugno(1), giugno(2) });
    t->Camera_Click(1);
    QCOMPARE(t->Griglia.size(), MassimoCamereSelezionate);
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("Attenzione, non è possibile selezionare più di 100 camere!"));
    // "Annulla" drops the selection and closes the multiple mode with its panel.
    t->AnnullaPrenotazioneMultipla_Click();
    QVERIFY(t->Griglia.isEmpty());
    QCOMPARE(t->modo(), Tabellone::Modo::Normale);
}

void TestTabellone::aggiuntaCamera()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 1, 0));
    b.soggiorno(QStringLiteral("102"), giugno(10), giugno(11));
    auto t = tabellone(b, giugno(10), giugno(11));
    std::optional<RichiestaPrenotazione> richiesta;
    t->apriPrenotazione = [&](const RichiestaPrenotazione& r) { richiesta = r; };
    t->AbilitaDisabilita(QStringLiteral("abilita aggiuntacamere"));
    QCOMPARE(t->modo(), Tabellone::Modo::AggiuntaCamera);
    t->PrenotazioneMultipla_Click();
    QCOMPARE(t->modo(), Tabellone::Modo::AggiuntaCamera);
    t->CameraOccupata_Click(2);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Attenzione camera occupata!"));
    QVERIFY(!richiesta);
    t->Camera_Click(1);
    QCOMPARE(richiesta->tipo, RichiestaPrenotazione::Tipo::AggiungiCamera);
    QCOMPARE(richiesta->camere.first().NroCamera, QStringLiteral("101"));
    QCOMPARE(t->modo(), Tabellone::Modo::Normale);
    QVERIFY(Tabellone::controlliAggiuntaCamera().contains(QStringLiteral("mConfigurazioni")));
}

void TestTabellone::frecceUnSoloRefresh()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    auto t = tabellone(b, giugno(10), giugno(11));
    const int prima = t->refreshEseguiti;
    t->PiuArrivo_Click();
    // Dal reaching Al pushes Al on.
    QCOMPARE(t->Dal, giugno(11));
    QCOMPARE(t->Al, giugno(12));
    QCOMPARE(t->TimerAggiorna.interval(), 400);
    t->PiuPartenza_Click();
    t->PiuPartenza_Click();
    t->MenoPartenza_Click();
    QCOMPARE(t->TimerAggiorna.interval(), 600);
    QCOMPARE(t->Al, giugno(13));
    QVERIFY(t->TimerAggiorna.isActive());
    QCOMPARE(t->refreshEseguiti, prima);
    QTRY_COMPARE_WITH_TIMEOUT(t->refreshEseguiti, prima + 1, 2000);
    QTest::qWait(700);
    QCOMPARE(t->refreshEseguiti, prima + 1);
    QVERIFY(t->Titolo.startsWith(QStringLiteral("Tomvera        (Refresh: ")));
    QVERIFY(t->Titolo.endsWith(QStringLiteral(" s)")));
    // Al moved back onto Dal pulls Dal back.
    t->MenoPartenza_Click();
    t->MenoPartenza_Click();
    QCOMPARE(t->Al, giugno(11));
    QCOMPARE(t->Dal, giugno(10));
    t->Command6_Click();
    QCOMPARE(t->Dal, giugno(10));
    QCOMPARE(t->Al, giugno(11));
    QVERIFY(!t->TimerAggiorna.isActive());
}

void TestTabellone::pianiEScelteRicordate()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(b.camera(QStringLiteral("301"), 3, 0, 0));
    auto t = tabellone(b, giugno(10), giugno(11));
    QVERIFY(t->TrovaPiano(true));
    QCOMPARE(t->NroPiano, 3);
    QVERIFY(!t->TrovaPiano(true));
    QCOMPARE(t->NroPiano, 3);
    t->NroPiano = 1;
    t->UpDown1_Click(true);
    t->M_Classico_Click();
    t->AbilitaGestioneSpiaggia_Click();
    Tabellone nuovo(b.sessione);
    nuovo.Form_Load();
    QCOMPARE(nuovo.NroPiano, 3);
    QCOMPARE(nuovo.grafica(), Grafica::Classico);
    QVERIFY(nuovo.AbilitaGestioneSpiaggia);
    QCOMPARE(nuovo.Dal, giugno(10));
    QCOMPARE(nuovo.Al, giugno(11));
    QCOMPARE(Variabili(b.archivio()).LeggiVariabileNumero(chiavi::Avvio_Grafica), 1.0);
}

void TestTabellone::strisciaSceltaDate()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    const qint64 p = b.soggiorno(QStringLiteral("101"), giugno(11), giugno(13), { QStringLiteral("Rossi") });
    b.soggiorno(QStringLiteral("101"), giugno(13), giugno(14));
    auto t = tabellone(b, giugno(10), giugno(11));
    t->InizializzaCompontenti(330); // 10 + 4 days
    QCOMPARE(t->giorniDellaStriscia(), 14);
    t->MostraCalendario_Click(true);
    QCOMPARE(t->Striscia.size(), 14);
    QCOMPARE(t->Striscia.first().data, giugno(8)); // from two days before the period
    QCOMPARE(t->Striscia.at(3).pomeriggio.prenotazione, 0); // nothing marked yet
    t->Camera_Click(1);
    QCOMPARE(t->Striscia.at(3).pomeriggio.prenotazione, p);
    QVERIFY(t->Striscia.at(3).pomeriggio.arrivati);
    QCOMPARE(t->Striscia.at(5).mattina.prenotazione, p);
    QVERIFY(t->Striscia.at(5).pomeriggio.prenotazione != p);
    QVERIFY(!t->Striscia.at(5).pomeriggio.arrivati);

    const int prima = t->refreshEseguiti;
    t->giorno_Click(4);
    QCOMPARE(t->Dal, giugno(12));
    QCOMPARE(t->Al, giugno(13));
    QVERIFY(t->SelezionaAlVisibile);
    QCOMPARE(t->refreshEseguiti, prima);
    t->giorno_Click(7);
    QCOMPARE(t->Al, giugno(15));
    QVERIFY(!t->SelezionaAlVisibile);
    QCOMPARE(t->refreshEseguiti, prima + 1);
}

void TestTabellone::informazioniCamera()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(b.camera(QStringLiteral("102"), 1, 1, 0));
    b.soggiorno(QStringLiteral("101"), giugno(9), giugno(12), { QStringLiteral("Zeta"), QStringLiteral("Alfa") });
    b.soggiorno(QStringLiteral("102"), giugno(9), giugno(11), { QStringLiteral("Neri") });
    b.soggiorno(QStringLiteral("102"), giugno(11), giugno(12), { QStringLiteral("Blu") });
    auto t = tabellone(b, giugno(10), giugno(12));
    QCOMPARE(t->CaricaInfoCamera(QStringLiteral("101"), true),
             QStringLiteral("  Dal : 09/06/2026 Al : 12/06/2026  \n  - Zeta\n  - Alfa"));
    Variabili(b.archivio()).SalvaVariabileBooleana(chiavi::F_Prenotazione_OrdinaperCliente, true);
    QCOMPARE(t->CaricaInfoCamera(QStringLiteral("101"), true),
             QStringLiteral("  Dal : 09/06/2026 Al : 12/06/2026  \n  - Alfa\n  - Zeta"));
    QCOMPARE(t->CaricaInfoCamera(QStringLiteral("102"), false),
             QStringLiteral(" Dal : 09/06/2026 Al : 11/06/2026\n  - Neri\n Dal : 11/06/2026 Al : 12/06/2026\n  - Blu"));

    // Hovering shows it only with INF. ticked; leaving hides it after TimerInfoCamera.
    t->Camera_MouseMove(1);
    QVERIFY(!t->InfoCameraVisibile);
    t->InformazioniCamera_Click(true);
    t->Camera_MouseMove(1);
    QVERIFY(t->InfoCameraVisibile);
    QCOMPARE(t->tesseraEvidenziata, 1);
    t->fuoriTessere_MouseMove();
    QVERIFY(t->TimerInfoCamera.isActive());
    QTRY_VERIFY_WITH_TIMEOUT(!t->InfoCameraVisibile, 2000);
    QCOMPARE(t->tesseraEvidenziata, 0);
}

// The floor's one grouped read must give every tile what the per-room count gives, whatever the data: guests
// with missing dates, closed reservations, other floors, room numbers in another case.
void TestTabellone::personePresentiRaggruppate()
{
    test::BancoTabellone b(4, 10);
    QRandomGenerator caso(20260610);
    QStringList camere;
    for (int piano = 1; piano <= 2; ++piano)
        for (int i = 0; i < 12; ++i) {
            const QString nro = QString::number(piano * 100 + i) + (i % 5 == 0 ? QStringLiteral("b") : QString());
            camere << nro;
            QVERIFY(b.camera(nro, piano, i % 10, i / 10));
        }
    const auto giorno = [&] { return giugno(1).addDays(caso.bounded(40)); };
    for (int n = 0; n < 150; ++n) {
        const QString camera = camere.at(caso.bounded(camere.size()));
        const QDate dal = giorno();
        const QDate al = dal.addDays(1 + caso.bounded(6));
        const qint64 p = b.righeProva.prenotazione(caso.bounded(8) == 0);
        QVERIFY(b.righeProva.movimentoCamera(p, camera, dal, al));
        for (int o = caso.bounded(4); o >= 0; --o) {
            QDate arrivo = dal, partenza = al;
            const int buco = caso.bounded(10);
            if (buco == 0)
                arrivo = QDate();
            else if (buco == 1)
                partenza = QDate();
            const QString scritta = caso.bounded(3) == 0 ? camera.toUpper() : camera;
            QVERIFY(b.righeProva.ospite(p, scritta, arrivo, partenza, caso.bounded(3) - 1));
        }
    }
    for (int prova = 0; prova < 12; ++prova) {
        const QDate dal = giorno();
        const QDate al = dal.addDays(prova % 2 == 0 ? 1 : 1 + caso.bounded(7));
        for (int piano = 1; piano <= 2; ++piano) {
            const auto gruppi = PersonePresentiPerCamera(b.archivio(), piano, dal, al);
            QVERIFY(gruppi);
            const StatoPiano stato = leggiPiano(b.archivio(), piano, dal, al, 4, 10);
            QVERIFY(stato.letto);
            for (const QString& camera : camere) {
                if (!camera.startsWith(QString::number(piano)))
                    continue;
                const int attesi = QuantePersoneInCameraPresenti(b.archivio(), camera, dal, al).toInt();
                QCOMPARE(gruppi->value(camera.toLower()), attesi);
                const Tessera* t = nullptr;
                for (const Tessera& x : stato.tessere)
                    if (x.NroCamera == camera)
                        t = &x;
                QVERIFY(t);
                QCOMPARE(t->personePresenti, t->stato == StatoCamera::Libera ? 0 : attesi);
            }
        }
    }
}

TOMVERA_TEST(TestTabellone)

#include "test_tabellone.moc"
