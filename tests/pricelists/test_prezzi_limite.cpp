#include "archiviotemporaneo.h"
#include "foundation/formati.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "pricelists/calcoloprezzi.h"
#include "pricelists/schermolistinoaccessori.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using namespace tomvera::prezzi;

namespace {

QDate g(const char* testo)
{
    return *leggiData(QString::fromLatin1(testo));
}

RigaListino riga(const char* dal, const char* al, double prezzo, int giorni = 1)
{
    return { QString::fromLatin1(dal), QString::fromLatin1(al), prezzo, 10, giorni };
}

} // namespace

// Stays that are only partly priced, and rows that are neither a period nor a default.
class TestPrezziParziali : public QObject
{
    Q_OBJECT
private slots:
    void soloLUltimaNotteHaUnPrezzo();
    void unSoloEstremoNonERigaPredefinita();
};

void TestPrezziParziali::soloLUltimaNotteHaUnPrezzo()
{
    // The season opens on the last night of the stay: the nights before it have no price.
    const auto righe = RigheListino::daRighe({ riga("03/07", "31/08", 120) });
    const PrezzoSoggiorno esito = CalcolaPrezzoSoggiorno(righe, g("01/07/2026"), g("04/07/2026"));
    QCOMPARE(esito.prezzo, 120.0);
    QVERIFY(!esito.completo);

    // The same through the archive, as the reservation screen asks it.
    test::ArchivioTemporaneo t;
    QVERIFY(t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaListinoCamere (Listino, CodiceTipologia, Dal, Al, Prezzo, Iva, Giorni) "
                       "VALUES ('Base', 'DBL', '03/07', '31/08', 120, 10, 1)")));
    CalcoloPrezzi calcolo(t.archivio());
    calcolo.ListinoCompleto = true;
    QCOMPARE(calcolo.CalcolaPrezzoSoggiornoCamera(QStringLiteral("DBL"), g("01/07/2026"), g("04/07/2026"),
                                                  QStringLiteral("Base")),
             120.0);
    QVERIFY(!calcolo.ListinoCompleto);
}

void TestPrezziParziali::unSoloEstremoNonERigaPredefinita()
{
    // Either end missing: the row prices nothing, on its own or beside a period.
    for (const RigaListino& mezza : { riga("", "15/08", 99), riga("01/08", "", 99) }) {
        const PrezzoSoggiorno sola
            = CalcolaPrezzoSoggiorno(RigheListino::daRighe({ mezza }), g("02/08/2026"), g("04/08/2026"));
        QCOMPARE(sola.prezzo, 0.0);
        QVERIFY(!sola.completo);
        const PrezzoSoggiorno misto = CalcolaPrezzoSoggiorno(
            RigheListino::daRighe({ mezza, riga("03/08", "31/08", 150) }), g("02/08/2026"), g("04/08/2026"));
        QCOMPARE(misto.prezzo, 150.0);
        QVERIFY(!misto.completo);
    }
    // A true default row (both ends empty) still prices.
    QVERIFY(
        CalcolaPrezzoSoggiorno(RigheListino::daRighe({ riga("", "", 70) }), g("02/08/2026"), g("04/08/2026")).completo);
}

TOMVERA_TEST(TestPrezziParziali)

// A text that would not fit its field is refused with the field and its limit, not lost by the engine.
class TestAccessoriCampiLunghi : public QObject
{
    Q_OBJECT
private slots:
    void testoOltreIlCampo();
};

void TestAccessoriCampiLunghi::testoOltreIlCampo()
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 5, 10), QTime(9, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };
    sessione.PercorsoDB = t.percorso();
    sessione.UtenteCollegato = QStringLiteral("Amministratore");
    sessione.permessi->amministratore = true;
    SchermoListinoAccessori s(sessione);
    s.Form_Load();
    s.Tipo = QStringLiteral("Bar");
    s.Prezzo = QStringLiteral("2");
    s.Iva = QStringLiteral("10");
    // 240 characters, but each apostrophe is stored doubled: 260.
    s.Descrizione = QString(220, QLatin1Char('a')) + QString(20, QLatin1Char('\''));
    QVERIFY(!s.Ins_Click());
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Attenzione, Descrizione più lunga di 250 caratteri!"));
    QCOMPARE(s.Focus, QStringLiteral("Descrizione"));
    s.Descrizione = QStringLiteral("Acqua");
    s.Tipo = QString(251, QLatin1Char('b'));
    QVERIFY(!s.Ins_Click());
    QCOMPARE(t.interazione().ultimoTesto(), QStringLiteral("Attenzione, Tipo più lungo di 250 caratteri!"));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaListinoAccessori")).toInt(), 0);
    // At the limit it is stored.
    s.Tipo = QString(250, QLatin1Char('b'));
    QVERIFY(s.Ins_Click());
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaListinoAccessori")).toInt(), 1);
    QVERIFY(t.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestAccessoriCampiLunghi)

#include "test_prezzi_limite.moc"
