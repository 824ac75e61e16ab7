#include "archiviotemporaneo.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "testmain.h"

#include <QSqlRecord>
#include <QTest>

using namespace tomvera;

namespace {

// A fresh archive with the settings tables and a session pointing at it.
struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 6, 15), QTime(10, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };

    Banco() { sessione.PercorsoDB = t.percorso(); }
    Archivio& archivio() { return t.archivio(); }
};

} // namespace

class TestConfigurazione : public QObject
{
    Q_OBJECT
private slots:
    void rigaVuotaDaIValoriPredefiniti();
    void senzaRigaNienteCambia();
    void intervalliSale();
    void salvataEPoiRiletta();
};

void TestConfigurazione::rigaVuotaDaIValoriPredefiniti()
{
    Banco b;
    QVERIFY(b.archivio().comando(QStringLiteral("INSERT INTO Configurazioni (StagionaleDal) VALUES ('')")));
    // Stale run values must be replaced by the defaults of the null fields.
    b.sessione.configurazione->IvaPrenotazioni = 22;
    b.sessione.configurazione->IntervalloSale = QStringLiteral("3 Ore");
    b.sessione.configurazione->RagSociale = QStringLiteral("vecchia");
    CaricaConfigurazione(b.sessione);
    const Configurazione& c = *b.sessione.configurazione;
    QCOMPARE(c.IvaPrenotazioni, 0.0);
    QCOMPARE(c.StagionaleDal, QStringLiteral("01/06"));
    QCOMPARE(c.StagionaleAl, QStringLiteral("15/09"));
    QCOMPARE(c.IntervalloSale, QStringLiteral("1 Ora"));
    QCOMPARE(c.SlotsGiornoSale, 24);
    QCOMPARE(c.PassoSale, QStringLiteral("1.00"));
    QCOMPARE(c.CheckInDalleOre, QTime(12, 0));
    QCOMPARE(c.CheckOutEntroLeOre, QTime(12, 0));
    QCOMPARE(c.OraPropostaCena, QTime(0, 0));
    QCOMPARE(c.SecondiAggiornamentoCentralino, 60.0);
    QCOMPARE(c.IntervalloAggiornamentoAutomaticoSky, 60);
    QCOMPARE(c.NumeroBackupDaMantenere, 7);
    QCOMPARE(c.EtichettaImposta, QStringLiteral("Iva"));
    QCOMPARE(c.EtichettaImpostaLunga, QStringLiteral("Iva"));
    QVERIFY(!c.PercorsoBackup.isEmpty());
    // A field with no default keeps what the run had.
    QCOMPARE(c.RagSociale, QStringLiteral("vecchia"));
}

void TestConfigurazione::senzaRigaNienteCambia()
{
    Banco b;
    b.sessione.configurazione->IvaPrenotazioni = 10;
    b.t.errori().setAbilitaDiagnosticaErrori(true);
    CaricaConfigurazione(b.sessione);
    QCOMPARE(b.sessione.configurazione->IvaPrenotazioni, 10.0);
    QVERIFY(b.t.errori().abilitaDiagnosticaErrori());
}

void TestConfigurazione::intervalliSale()
{
    Configurazione c;
    const std::pair<const char*, std::pair<int, const char*>> attesi[] = { { "15 Min.", { 96, "0.15" } },
                                                                           { "30 Min.", { 48, "0.30" } },
                                                                           { "3 Ore", { 8, "3.00" } },
                                                                           { "6 Ore", { 4, "6.00" } },
                                                                           { "12 Ore", { 2, "12.00" } } };
    for (const auto& a : attesi) {
        c.IntervalloSale = QString::fromLatin1(a.first);
        configurazione::calcolaValoriDerivati(c);
        QCOMPARE(c.SlotsGiornoSale, a.second.first);
        QCOMPARE(c.PassoSale, QString::fromLatin1(a.second.second));
    }
    // "24 Ore" has no step: the previous one stays.
    c.IntervalloSale = QStringLiteral("24 Ore");
    configurazione::calcolaValoriDerivati(c);
    QCOMPARE(c.SlotsGiornoSale, 1);
    QCOMPARE(c.PassoSale, QStringLiteral("12.00"));
    c.UsaImposta = true;
    configurazione::calcolaValoriDerivati(c);
    QCOMPARE(c.EtichettaImposta, QStringLiteral("Imp"));
    QCOMPARE(c.EtichettaImpostaLunga, QStringLiteral("Imposta"));
}

void TestConfigurazione::salvataEPoiRiletta()
{
    Banco b;
    Configurazione c;
    c.RagSociale = QStringLiteral("Hotel Bellavista d'Italia");
    c.MessaggioFineDoc = QStringLiteral("Grazie e arrivederci\nLa Direzione");
    c.UsaImposta = true;
    c.AbilitaDiagnosticaErrori = true;
    c.ValIva = { 0, 4, 10, 22, 0, 0, 0, 0, 0 };
    c.IvaPrenotazioni = 10;
    c.CheckInDalleOre = QTime(14, 30);
    c.CheckOutEntroLeOre = QTime(10, 0);
    c.IntervalloSale = QStringLiteral("30 Min.");
    c.NumeroBackupDaMantenere = 7;
    c.SalvataggioAutomatico = true;
    c.Righe = 9; // not the screen's: never written by it
    QVERIFY(configurazione::salva(b.archivio(), c));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT count(*) FROM Configurazioni")).toInt(), 1);
    // Saving again updates the one row.
    c.Tel = QStringLiteral("0541 123456");
    QVERIFY(configurazione::salva(b.archivio(), c));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT count(*) FROM Configurazioni")).toInt(), 1);
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT CheckInDalleOre FROM Configurazioni")).toString(),
             QStringLiteral("14:30:00"));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT UsaImposta FROM Configurazioni")).toInt(), 1);
    QVERIFY(b.archivio().valore(QStringLiteral("SELECT Righe FROM Configurazioni")).isNull());

    CaricaConfigurazione(b.sessione);
    const Configurazione& r = *b.sessione.configurazione;
    QCOMPARE(r.RagSociale, c.RagSociale);
    QCOMPARE(r.MessaggioFineDoc, c.MessaggioFineDoc);
    QCOMPARE(r.Tel, c.Tel);
    QCOMPARE(r.ValIva, c.ValIva);
    QCOMPARE(r.IvaPrenotazioni, 10.0);
    QCOMPARE(r.CheckInDalleOre, QTime(14, 30));
    QCOMPARE(r.SlotsGiornoSale, 48);
    QCOMPARE(r.PassoSale, QStringLiteral("0.30"));
    QCOMPARE(r.EtichettaImpostaLunga, QStringLiteral("Imposta"));
    QCOMPARE(r.NumeroBackupDaMantenere, 7);
    QVERIFY(r.SalvataggioAutomatico);
    QCOMPARE(r.Righe, 0);
    QVERIFY(b.t.errori().abilitaDiagnosticaErrori());
}

TOMVERA_TEST(TestConfigurazione)

#include "test_impostazioni.moc"
