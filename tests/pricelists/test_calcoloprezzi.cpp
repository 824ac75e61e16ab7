#include "archiviotemporaneo.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "pricelists/calcoloprezzi.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using namespace tomvera::prezzi;

namespace {

QDate g(const char* testo)
{
    return *leggiData(QString::fromLatin1(testo));
}

RigaListino riga(const char* dal, const char* al, double prezzo, int giorni, double iva = 10)
{
    return { QString::fromLatin1(dal), QString::fromLatin1(al), prezzo, iva, giorni };
}

PrezzoSoggiorno prezzo(const std::vector<RigaListino>& righe, const char* arrivo, const char* partenza)
{
    return CalcolaPrezzoSoggiorno(RigheListino::daRighe(righe), g(arrivo), g(partenza));
}

} // namespace

// The greedy block rule over rows already loaded.
class TestRegolaBlocchi : public QObject
{
    Q_OBJECT
private slots:
    void blocchiDiUnaESetteNotti_data();
    void blocchiDiUnaESetteNotti();
    void stagioniDentroIlSoggiorno();
    void periodoCheFiniscePrimaDellaPartenza();
    void periodoACavalloDellAnno();
    void dalUgualeAlCopreUnAnno();
    void righePredefinite();
    void nottiSenzaPrezzo();
    void giorniUgualiInPeriodiSovrapposti();
    void ventinoveFebbraio();
    void righeMalformateNonBloccanoIlCalcolo();
};

void TestRegolaBlocchi::blocchiDiUnaESetteNotti_data()
{
    QTest::addColumn<bool>("predefinite");
    QTest::addColumn<QString>("partenza");
    QTest::addColumn<double>("atteso");
    for (const bool predefinite : { false, true }) {
        const char* tipo = predefinite ? "predefinite" : "periodo";
        // 6 nights: the weekly row doesn't fit, six nightly blocks.
        QTest::addRow("%s 6 notti", tipo) << predefinite << QStringLiteral("07/07/2026") << 6 * 55.0;
        QTest::addRow("%s 7 notti", tipo)
            << predefinite << QStringLiteral("08/07/2026") << (predefinite ? 7 * 55.0 : 320.0);
        // 9 nights: one week and two nights.
        QTest::addRow("%s 9 notti", tipo)
            << predefinite << QStringLiteral("10/07/2026") << (predefinite ? 9 * 55.0 : 320.0 + 2 * 55.0);
    }
}

void TestRegolaBlocchi::blocchiDiUnaESetteNotti()
{
    QFETCH(bool, predefinite);
    QFETCH(QString, partenza);
    QFETCH(double, atteso);
    // Default rows are taken shortest first and unconditionally, so their weekly row never wins over the
    // nightly one; period rows take the longest block that fits.
    const char* dal = predefinite ? "" : "01/01";
    const char* al = predefinite ? "" : "31/12";
    const std::vector<RigaListino> righe { riga(dal, al, 320, 7), riga(dal, al, 55, 1) };
    const PrezzoSoggiorno esito
        = CalcolaPrezzoSoggiorno(RigheListino::daRighe(righe), g("01/07/2026"), *leggiData(partenza));
    QCOMPARE(esito.prezzo, atteso);
    QVERIFY(esito.completo);
}

void TestRegolaBlocchi::stagioniDentroIlSoggiorno()
{
    const std::vector<RigaListino> righe {
        riga("01/06", "30/06", 80, 1),
        riga("01/06", "30/06", 500, 7),
        riga("01/07", "31/08", 120, 1),
        riga("01/07", "31/08", 700, 7),
    };
    // The June week can't run into July: nightly June blocks, then the July week, then July nights.
    QCOMPARE(prezzo(righe, "28/06/2026", "12/07/2026").prezzo, 3 * 80.0 + 700 + 4 * 120.0);
    // Nine nights from 27/06: four June nights, then five July nights (no July week fits in five).
    QCOMPARE(prezzo(righe, "27/06/2026", "06/07/2026").prezzo, 4 * 80.0 + 5 * 120.0);
    // A block is priced by the season of the night it starts on.
    const EsitoBlocco blocco = TrovaPrezzoBlocco(RigheListino::daRighe(righe), g("01/07/2026"), 9);
    QCOMPARE(blocco.prezzo, 700.0);
    QCOMPARE(blocco.DataProssimoBlocco, g("08/07/2026"));
}

void TestRegolaBlocchi::periodoCheFiniscePrimaDellaPartenza()
{
    // Al is the last night of the period: a week from 01/06 ends with the night of 07/06.
    const std::vector<RigaListino> righe { riga("01/06", "07/06", 500, 7), riga("01/06", "30/06", 90, 1) };
    QCOMPARE(prezzo(righe, "01/06/2026", "08/06/2026").prezzo, 500.0);
    QCOMPARE(prezzo(righe, "02/06/2026", "09/06/2026").prezzo, 7 * 90.0);
    // The departure night is never charged.
    QCOMPARE(prezzo(righe, "01/06/2026", "02/06/2026").prezzo, 90.0);
}

void TestRegolaBlocchi::periodoACavalloDellAnno()
{
    const std::vector<RigaListino> notte { riga("20/12", "10/01", 100, 1) };
    // Priced in December the period runs into the next January...
    QCOMPARE(prezzo(notte, "28/12/2025", "30/12/2025").prezzo, 200.0);
    // ...priced in January it belongs to the coming December, so January nights have no price.
    const PrezzoSoggiorno gennaio = prezzo(notte, "05/01/2026", "07/01/2026");
    QCOMPARE(gennaio.prezzo, 0.0);
    QVERIFY(!gennaio.completo);
    // A block that starts on 31/12 runs across the new year; a position of 01/01 does not match any more.
    const PrezzoSoggiorno daSola = prezzo(notte, "31/12/2025", "05/01/2026");
    QCOMPARE(daSola.prezzo, 100.0);
    QVERIFY(!daSola.completo);
    const std::vector<RigaListino> conBlocco { riga("20/12", "10/01", 420, 5), riga("20/12", "10/01", 100, 1) };
    const PrezzoSoggiorno cinque = prezzo(conBlocco, "31/12/2025", "05/01/2026");
    QCOMPARE(cinque.prezzo, 420.0);
    QVERIFY(cinque.completo);

    const auto dicembre = periodoPerData(QStringLiteral("20/12"), QStringLiteral("10/01"), g("28/12/2025"));
    QVERIFY(dicembre);
    QCOMPARE(dicembre->inizio, g("20/12/2025"));
    QCOMPARE(dicembre->fine, g("10/01/2026"));
}

void TestRegolaBlocchi::dalUgualeAlCopreUnAnno()
{
    const auto periodo = periodoPerData(QStringLiteral("15/03"), QStringLiteral("15/03"), g("20/03/2026"));
    QVERIFY(periodo);
    QCOMPARE(periodo->inizio, g("15/03/2026"));
    QCOMPARE(periodo->fine, g("15/03/2027"));
    const std::vector<RigaListino> righe { riga("15/03", "15/03", 70, 1) };
    QCOMPARE(prezzo(righe, "20/03/2026", "23/03/2026").prezzo, 210.0);
    QVERIFY(prezzo(righe, "20/12/2026", "05/01/2027").completo == false); // January is before 15/03 of its year
    QCOMPARE(prezzo(righe, "10/03/2026", "12/03/2026").prezzo, 0.0);
}

void TestRegolaBlocchi::righePredefinite()
{
    // A weekly default as the only default charges a full week for a single night.
    const std::vector<RigaListino> settimana { riga("", "", 350, 7) };
    QCOMPARE(prezzo(settimana, "01/07/2026", "02/07/2026").prezzo, 350.0);
    QCOMPARE(prezzo(settimana, "01/07/2026", "09/07/2026").prezzo, 700.0);
    // A period row that qualifies comes before any default; outside it the default prices.
    const std::vector<RigaListino> misto { riga("", "", 60, 1), riga("01/08", "31/08", 150, 1) };
    QCOMPARE(prezzo(misto, "30/07/2026", "03/08/2026").prezzo, 2 * 60.0 + 2 * 150.0);
    // A row with only one end of its period is neither a period row nor a default.
    const PrezzoSoggiorno mezzo = prezzo({ riga("01/08", "", 99, 1) }, "02/08/2026", "03/08/2026");
    QCOMPARE(mezzo.prezzo, 0.0);
    QVERIFY(!mezzo.completo);
}

void TestRegolaBlocchi::nottiSenzaPrezzo()
{
    const std::vector<RigaListino> giugno { riga("01/06", "30/06", 80, 1), riga("01/06", "30/06", 450, 7) };
    // The nights after June cost 0 one at a time, and the flag says so.
    const PrezzoSoggiorno esito = prezzo(giugno, "29/06/2026", "03/07/2026");
    QCOMPARE(esito.prezzo, 160.0);
    QVERIFY(!esito.completo);
    const EsitoBlocco vuoto = TrovaPrezzoBlocco(RigheListino::daRighe(giugno), g("01/07/2026"), 7);
    QVERIFY(!vuoto.conPrezzo);
    QCOMPARE(vuoto.DataProssimoBlocco, g("02/07/2026"));
    // No stay, no price and no warning.
    for (const char* partenza : { "29/06/2026", "20/06/2026" }) {
        const PrezzoSoggiorno nessuno = prezzo({}, "29/06/2026", partenza);
        QCOMPARE(nessuno.prezzo, 0.0);
        QVERIFY(nessuno.completo);
    }
}

void TestRegolaBlocchi::giorniUgualiInPeriodiSovrapposti()
{
    const RigaListino estate = riga("01/06", "31/08", 100, 1);
    const RigaListino luglio = riga("15/06", "15/07", 90, 1);
    // The archive's order decides, whatever the periods.
    QCOMPARE(prezzo({ estate, luglio }, "20/06/2026", "21/06/2026").prezzo, 100.0);
    QCOMPARE(prezzo({ luglio, estate }, "20/06/2026", "21/06/2026").prezzo, 90.0);
    // Outside the first row's period the next one of equal length takes over.
    QCOMPARE(prezzo({ luglio, estate }, "10/08/2026", "11/08/2026").prezzo, 100.0);
    // A longer block still comes first, wherever it stands in the archive.
    QCOMPARE(prezzo({ luglio, estate, riga("01/06", "31/08", 560, 7) }, "20/06/2026", "27/06/2026").prezzo, 560.0);
}

void TestRegolaBlocchi::ventinoveFebbraio()
{
    const std::vector<RigaListino> righe { riga("01/02", "29/02", 50, 1), riga("", "", 30, 1) };
    QCOMPARE(prezzo(righe, "28/02/2028", "01/03/2028").prezzo, 100.0);
    // In other years the period has no end date: the row doesn't apply and the default prices.
    QCOMPARE(prezzo(righe, "27/02/2027", "01/03/2027").prezzo, 60.0);
    QVERIFY(!periodoPerData(QStringLiteral("01/02"), QStringLiteral("29/02"), g("10/02/2027")));
    // A period starting on 29/02 runs to the next 28/02 in a leap year only.
    QCOMPARE(prezzo({ riga("29/02", "28/02", 40, 1) }, "29/02/2028", "01/03/2028").prezzo, 40.0);
    QVERIFY(!prezzo({ riga("29/02", "28/02", 40, 1) }, "01/03/2027", "02/03/2027").completo);
}

void TestRegolaBlocchi::righeMalformateNonBloccanoIlCalcolo()
{
    // Giorni 0 (an outside edit) would never move the position: it counts as one night.
    QCOMPARE(prezzo({ riga("", "", 45, 0) }, "01/07/2026", "04/07/2026").prezzo, 135.0);
    // A period that doesn't read as day/month never qualifies.
    const PrezzoSoggiorno esito = prezzo({ riga("1 giugno", "30/06", 80, 1) }, "10/06/2026", "11/06/2026");
    QCOMPARE(esito.prezzo, 0.0);
    QVERIFY(!esito.completo);
}

TOMVERA_TEST(TestRegolaBlocchi)

// Prices read from the archive: one query per list and key, the per-person list, VAT and treatments.
class TestCalcoloPrezziArchivio : public QObject
{
    Q_OBJECT
private slots:
    void prezziACameraEIva();
    void prezziAPersona();
    void trattamentiACamera();
};

namespace {

void inserisci(Archivio& a, const QString& tabella, const QString& chiave, const QVariantList& valori)
{
    QVERIFY(a.comando(QStringLiteral("INSERT INTO ") + tabella + QStringLiteral(" (Listino, ") + chiave
                          + QStringLiteral(", Dal, Al, Prezzo, Iva, Giorni) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                      valori));
}

} // namespace

void TestCalcoloPrezziArchivio::prezziACameraEIva()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    const QString tab = QStringLiteral("TabellaListinoCamere");
    const QString chiave = QStringLiteral("CodiceTipologia");
    inserisci(a, tab, chiave, { "Estate", "DOPPIA", "01/06", "31/08", 90.0, 10.0, 1 });
    inserisci(a, tab, chiave, { "Estate", "DOPPIA", "01/06", "31/08", 560.0, 10.0, 7 });
    inserisci(a, tab, chiave, { "Estate", "SINGOLA", "", "", 50.0, 22.0, 1 });
    inserisci(a, tab, chiave, { "Inverno", "DOPPIA", "", "", 70.0, 5.0, 1 });
    // The screen stores an apostrophe doubled; the reservation asks with the type as it is.
    inserisci(a, tab, chiave, { "Estate", "Vista sull''orto", "", "", 65.0, 10.0, 1 });

    CalcoloPrezzi calcolo(a);
    calcolo.ListinoCompleto = true;
    QCOMPARE(calcolo.CalcolaPrezzoSoggiornoCamera(QStringLiteral("doppia"), g("01/07/2026"), g("10/07/2026"),
                                                  QStringLiteral("estate")),
             560.0 + 2 * 90.0);
    QVERIFY(calcolo.ListinoCompleto);
    QCOMPARE(calcolo.CalcolaPrezzoSoggiornoCamera(QStringLiteral("Vista sull'orto"), g("01/07/2026"), g("03/07/2026"),
                                                  QStringLiteral("Estate")),
             130.0);
    QCOMPARE(calcolo.TrovaIvaCamera(QStringLiteral("DOPPIA"), QStringLiteral("Inverno")), 5.0);
    QCOMPARE(calcolo.TrovaIvaCamera(QStringLiteral("SINGOLA"), QStringLiteral("Estate")), 22.0);
    QCOMPARE(calcolo.TrovaIvaCamera(QStringLiteral("SUITE"), QStringLiteral("Estate")), 0.0);
    QVERIFY(calcolo.ListinoCompleto);
    // A September night of the summer list has no row: 0 and the flag goes down for the whole pass.
    QCOMPARE(calcolo.CalcolaPrezzoSoggiornoCamera(QStringLiteral("DOPPIA"), g("30/08/2026"), g("02/09/2026"),
                                                  QStringLiteral("Estate")),
             180.0);
    QVERIFY(!calcolo.ListinoCompleto);
    const EsitoBlocco blocco
        = calcolo.TrovaPrezzoBloccoCamera(g("01/07/2026"), 8, QStringLiteral("DOPPIA"), QStringLiteral("Estate"));
    QCOMPARE(blocco.prezzo, 560.0);
    QCOMPARE(blocco.DataProssimoBlocco, g("08/07/2026"));
}

void TestCalcoloPrezziArchivio::prezziAPersona()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    const QString tab = QStringLiteral("TabellaListinoCamereAPersona");
    const QString chiave = QStringLiteral("Trattamento");
    inserisci(a, tab, chiave, { "Base", "Mezza Pensione", "01/06", "30/09", 65.0, 10.0, 1 });
    inserisci(a, tab, chiave, { "Base", "Mezza Pensione", "01/06", "30/09", 420.0, 10.0, 7 });
    inserisci(a, tab, chiave, { "Base", "Pensione Completa", "", "", 85.0, 10.0, 1 });

    CalcoloPrezzi calcolo(a);
    // The list price of the whole stay of one guest.
    QCOMPARE(calcolo.PrezzoTrattamentoAPersona(QStringLiteral("Mezza Pensione"), g("10/06/2026"), g("18/06/2026"),
                                               QStringLiteral("Base")),
             420.0 + 65.0);
    QCOMPARE(calcolo.CalcolaPrezzoSoggiornoPersona(QStringLiteral("Pensione Completa"), g("10/06/2026"),
                                                   g("13/06/2026"), QStringLiteral("Base")),
             255.0);
    QVERIFY(calcolo.ListinoCompleto);
    // No list or no word: nothing to price.
    QCOMPARE(calcolo.PrezzoTrattamentoAPersona(QStringLiteral("Mezza Pensione"), g("10/06/2026"), g("18/06/2026"),
                                               QString()),
             0.0);
}

void TestCalcoloPrezziArchivio::trattamentiACamera()
{
    Configurazione c;
    c.PrezzoAggiuntivoPernottamento = 0;
    c.PrezzoAggiuntivoPernottamentoeColazione = 8;
    c.PrezzoAggiuntivoMezzaPensione = 25;
    c.PrezzoAggiuntivoPensioneCompleta = 40;
    QCOMPARE(PrezzoTrattamentoACamera(QStringLiteral("Mezza Pensione"), c), 25.0);
    QCOMPARE(CalcolaTotalePrezzoTrattamento(QStringLiteral("Pensione Completa"), 40, g("01/07/2026"), g("05/07/2026")),
             160.0);
    // A missing date counts one night; a stay that doesn't move forward costs nothing.
    QCOMPARE(CalcolaTotalePrezzoTrattamento(QStringLiteral("Pensione Completa"), 40, QDate(), g("05/07/2026")), 40.0);
    QCOMPARE(CalcolaTotalePrezzoTrattamento(QStringLiteral("Pensione Completa"), 40, g("05/07/2026"), g("05/07/2026")),
             0.0);
    QCOMPARE(CalcolaTotalePrezzoTrattamento(QStringLiteral("Altro"), 40, g("01/07/2026"), g("05/07/2026")), 0.0);
}

TOMVERA_TEST(TestCalcoloPrezziArchivio)

#include "test_calcoloprezzi.moc"
