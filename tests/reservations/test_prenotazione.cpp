#include "archiviotemporaneo.h"
#include "reservations/prenotazione.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

Prenotazione famiglia(int numero, const QDate& data)
{
    Prenotazione p;
    p.NumeroPrenotazione = numero;
    p.DataPrenotazione = data;
    p.Stato = QStringLiteral("Confermata");
    p.camere = {
        RigaCamera { 1,
                     QStringLiteral("101"),
                     QStringLiteral("DBL"),
                     QDate(2026, 6, 10),
                     QDate(2026, 6, 15),
                     500,
                     10,
                     {},
                     0,
                     0 },
        RigaCamera {
            2, QStringLiteral("102"), QStringLiteral("SGL"), QDate(2026, 6, 10), QDate(2026, 6, 12), 120, 10, {}, 0, 0 }
    };
    RigaAccessorio bibite;
    bibite.IndiceRiga = 1;
    bibite.Descrizione = QStringLiteral("Bibite");
    bibite.Qta = 2;
    bibite.Avere = 6;
    bibite.Data = QDate(2026, 6, 11);
    p.accessori = { bibite };
    OspitePrenotazione capo;
    capo.imposta(QStringLiteral("RagSociale"), QStringLiteral("Rossi Mario"));
    capo.imposta(QStringLiteral("NroCameraCliente"), QStringLiteral("101"));
    capo.imposta(QStringLiteral("NroArrivo"), 3);
    capo.imposta(QStringLiteral("DataNascita"), QStringLiteral("01/02/1970"));
    capo.imposta(QStringLiteral("Email"), QString(250, QLatin1Char('m')));
    p.ospiti = { capo };
    return p;
}

} // namespace

class TestArchivioPrenotazioni : public QObject
{
    Q_OBJECT
private slots:
    void salvaERicarica();
    void riscritturaLasciaGliAcconti();
    void numerazionePerAnno();
    void salvataggioFallitoNonToccaNulla();
};

void TestArchivioPrenotazioni::salvaERicarica()
{
    test::ArchivioTemporaneo t;
    ArchivioPrenotazioni archivio(t.archivio());
    Prenotazione p = famiglia(1, QDate(2026, 5, 2));
    QVERIFY(archivio.salva(p));
    QVERIFY(p.Indice > 0);
    const auto letta = archivio.carica(p.Indice);
    QVERIFY(letta);
    QCOMPARE(letta->camere.size(), 2);
    QCOMPARE(letta->camere.at(0).Dal, QDate(2026, 6, 10));
    QCOMPARE(letta->accessori.at(0).Avere, 6.0);
    QCOMPARE(letta->ospiti.size(), 1);
    const OspitePrenotazione& o = letta->ospiti.first();
    QCOMPARE(o.data(QStringLiteral("DataNascita")), QDate(1970, 2, 1));
    QCOMPARE(o.testo(QStringLiteral("Email")).size(), 200);
    QVERIFY(o.Arrivato()); // null flag, arrival number set
    QCOMPARE(archivio.totali(p.Indice).SommaAvere, 626.0);
    QVERIFY(archivio.elimina(p.Indice));
    QVERIFY(!archivio.carica(p.Indice));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaMovimenti")).toInt(), 0);
}

void TestArchivioPrenotazioni::riscritturaLasciaGliAcconti()
{
    test::ArchivioTemporaneo t;
    ArchivioPrenotazioni archivio(t.archivio());
    Prenotazione p = famiglia(1, QDate(2026, 5, 2));
    QVERIFY(archivio.salva(p));
    QVERIFY(t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, Dare, Data) "
                       "VALUES (?, 'Acconto', 100, '2026-05-02')"),
        { p.Indice }));
    p.camere.removeLast();
    p.PrenotazioneChiusa = true;
    QVERIFY(archivio.salva(p));
    QCOMPARE(archivio.caricaCamere(p.Indice).size(), 1);
    QCOMPARE(archivio.caricaAcconti(p.Indice).size(), 1);
    QCOMPARE(
        t.archivio()
            .valore(QStringLiteral("SELECT PrenotazioneChiusa FROM TabellaMovimenti WHERE Tipo = 'PrenotazioneCamera'"))
            .toInt(),
        1);
    QCOMPARE(archivio.totali(p.Indice).SommaDare, 100.0);
}

void TestArchivioPrenotazioni::numerazionePerAnno()
{
    test::ArchivioTemporaneo t;
    ArchivioPrenotazioni archivio(t.archivio());
    QCOMPARE(archivio.CalcolaNumeroPrenotazione(QDate(2026, 3, 1)), 1);
    Prenotazione a = famiglia(7, QDate(2025, 12, 31));
    QVERIFY(archivio.salva(a));
    QCOMPARE(archivio.CalcolaNumeroPrenotazione(QDate(2026, 3, 1)), 1);
    QCOMPARE(archivio.CalcolaNumeroPrenotazione(QDate(2025, 3, 1)), 8);
    // The same number in another year is free; in the same year only for the reservation that holds it.
    QVERIFY(archivio.numeroDisponibile(0, 7, QDate(2026, 1, 1)));
    QVERIFY(!archivio.numeroDisponibile(0, 7, QDate(2025, 1, 1)));
    QVERIFY(archivio.numeroDisponibile(a.Indice, 7, QDate(2025, 12, 31)));
}

void TestArchivioPrenotazioni::salvataggioFallitoNonToccaNulla()
{
    test::ArchivioTemporaneo t;
    ArchivioPrenotazioni archivio(t.archivio());
    Prenotazione p = famiglia(1, QDate(2026, 5, 2));
    QVERIFY(archivio.salva(p));
    const auto prima = archivio.carica(p.Indice);
    // A room number too long for its field fails in the middle of the rewrite.
    p.camere.append(
        RigaCamera { 3, QString(60, QLatin1Char('9')), {}, QDate(2026, 7, 1), QDate(2026, 7, 2), 1, 10, {}, 0, 0 });
    p.Stato = QStringLiteral("Cambiata");
    QVERIFY(!archivio.salva(p));
    const auto dopo = archivio.carica(p.Indice);
    QCOMPARE(dopo->Stato, prima->Stato);
    QCOMPARE(dopo->camere.size(), 2);
    QCOMPARE(dopo->ospiti.size(), 1);
}

TOMVERA_TEST(TestArchivioPrenotazioni)
#include "test_prenotazione.moc"
