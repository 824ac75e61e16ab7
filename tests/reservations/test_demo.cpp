#include "archiviotemporaneo.h"
#include "guests/controlli.h"
#include "reservations/demo.h"
#include "rooms/disponibilita.h"
#include "testmain.h"

#include <QSqlRecord>
#include <QTest>

using namespace tomvera;

class TestDemo : public QObject
{
    Q_OBJECT
private slots:
    void codiceFiscaleCalcolato();
    void alberghettoCoerente();
};

void TestDemo::codiceFiscaleCalcolato()
{
    // Worked example of the tax code rules (surname, name, date, sex, municipality, check character).
    QCOMPARE(codiceFiscale(QStringLiteral("Rossi"), QStringLiteral("Mario"), QDate(1980, 1, 1), false,
                           QStringLiteral("H501")),
             QStringLiteral("RSSMRA80A01H501U"));
    QString f = codiceFiscale(QStringLiteral("D'Angelo"), QStringLiteral("Giulia"), QDate(1975, 12, 31), true,
                              QStringLiteral("F205"));
    QCOMPARE(f.left(11), QStringLiteral("DNGGLI75T71"));
    QVERIFY(ControllaCodiceFiscale(f).isEmpty());
}

void TestDemo::alberghettoCoerente()
{
    test::ArchivioTemporaneo t;
    OpzioniDemo opzioni;
    opzioni.oggi = QDate(2026, 8, 10);
    opzioni.seme = 7;
    const EsitoDemo esito = GeneraDemo(t.archivio(), opzioni);
    QVERIFY2(esito.ok, qPrintable(esito.errore));
    QCOMPARE(esito.camere, 30);
    QVERIFY(esito.prenotazioni > 300);
    Archivio& a = t.archivio();

    // Same seed, same hotel.
    test::ArchivioTemporaneo t2;
    QCOMPARE(GeneraDemo(t2.archivio(), opzioni).prenotazioni, esito.prenotazioni);
    // A second run on a filled archive is refused and changes nothing.
    QVERIFY(!GeneraDemo(a, opzioni).ok);
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")).toInt(), esito.prenotazioni);

    // No room is booked twice for the same night by open reservations.
    const auto camere
        = a.righe(QStringLiteral("SELECT IndicePrenotazioneAssociata, NroCamera, Dal, Al FROM TabellaMovimenti "
                                 "WHERE Tipo = 'PrenotazioneCamera' AND PrenotazioneChiusa = 0"));
    for (const QSqlRecord& r : camere) {
        QVERIFY2(!CameraOccupataNelPeriodo(a, r.value(0).toLongLong(), r.value(1).toString(),
                                           QDate::fromString(r.value(2).toString(), Qt::ISODate),
                                           QDate::fromString(r.value(3).toString(), Qt::ISODate)),
                 qPrintable(r.value(1).toString()));
    }
    // Numbers are unique within a year, arrival numbers too.
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM (SELECT NumeroPrenotazione, substr(DataPrenotazione, 1, 4) "
                                     "FROM TabellaPrenotazioni GROUP BY 1, 2 HAVING count(*) > 1)"))
                 .toInt(),
             0);
    QCOMPARE(
        a.valore(QStringLiteral(
                     "SELECT count(*) FROM (SELECT NroArrivo, substr(DataArrivo, 1, 4) FROM "
                     "TabellaAnagraficheAssociatePrenotazioni WHERE NroArrivo > 0 GROUP BY 1, 2 HAVING count(*) > 1)"))
            .toInt(),
        0);
    // Every member has a head with the same arrival date in the same reservation.
    QCOMPARE(a.valore(QStringLiteral(
                          "SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni m WHERE m.TipoDiAlloggiato IN "
                          "('FAMILIARE', 'MEMBRO GRUPPO') AND NOT EXISTS (SELECT 1 FROM "
                          "TabellaAnagraficheAssociatePrenotazioni c WHERE c.IndicePrenotazioneAssociata = "
                          "m.IndicePrenotazioneAssociata AND c.DataArrivo = m.DataArrivo AND c.TipoDiAlloggiato IN "
                          "('CAPOFAMIGLIA', 'CAPOGRUPPO') AND c.RagSociale = m.CapoGruppoFamiglia)"))
                 .toInt(),
             0);
    // Every Italian guest card carries a tax code that passes the check.
    const auto codici
        = a.righe(QStringLiteral("SELECT CodiceFiscale FROM TabellaAnagrafiche WHERE Nazione = 'ITALIA'"));
    QVERIFY(!codici.isEmpty());
    for (const QSqlRecord& r : codici) {
        QString codice = r.value(0).toString();
        QVERIFY2(ControllaCodiceFiscale(codice).isEmpty(), qPrintable(codice));
    }
    // Guests arrived only for stays begun by "today".
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni WHERE Arrivato = 1 "
                                     "AND DataArrivo > '2026-08-10'"))
                 .toInt(),
             0);
}

TOMVERA_TEST(TestDemo)
#include "test_demo.moc"
