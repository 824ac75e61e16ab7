#include "archiviotemporaneo.h"
#include "foundation/configurazione.h"
#include "foundation/fconfigurazioni.h"
#include "foundation/formati.h"
#include "foundation/orologio.h"
#include "foundation/routines.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/sessione.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

// The two-digit year of the date mask: 00..29 are this century, 30..99 the last one (birth dates are typed
// so). Backup names read their year on their own, always as 20yy.
class TestAnnoADueCifre : public QObject
{
    Q_OBJECT
private slots:
    void mascheraData();
};

void TestAnnoADueCifre::mascheraData()
{
    QCOMPARE(leggiData(QStringLiteral("01/01/29")), std::optional<QDate>(QDate(2029, 1, 1)));
    QCOMPARE(leggiData(QStringLiteral("01/01/30")), std::optional<QDate>(QDate(1930, 1, 1)));
    QCOMPARE(leggiData(QStringLiteral("31/12/99")), std::optional<QDate>(QDate(1999, 12, 31)));
    QCOMPARE(leggiData(QStringLiteral("01/01/00")), std::optional<QDate>(QDate(2000, 1, 1)));
    QString testo = QStringLiteral("010129");
    QCOMPARE(MascheraDataSilenziosa(testo), QStringLiteral("01/01/29"));
    test::InterazioneScriptata interazione;
    testo = QStringLiteral("010130");
    QCOMPARE(MascheraData(testo, interazione), QStringLiteral("01/01/1930"));
    testo = QStringLiteral("01012030");
    QCOMPARE(MascheraData(testo, interazione), QStringLiteral("01/01/2030"));
    QVERIFY(interazione.testi().isEmpty());
}

TOMVERA_TEST(TestAnnoADueCifre)

// How many automatic backups are kept: a week unless the hotel chose a positive number.
class TestBackupDaMantenere : public QObject
{
    Q_OBJECT
private slots:
    void archivioNuovoEAggiornamento();
    void loSchermoProponeUnNumeroPositivo();
};

void TestBackupDaMantenere::archivioNuovoEAggiornamento()
{
    test::ArchivioTemporaneo t;
    // A fresh archive has no settings row yet, and a row written later leaves the field null: both read 7.
    QCOMPARE(configurazione::leggi(t.archivio()).value_or(Configurazione()).NumeroBackupDaMantenere, 7);
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO Configurazioni (RagSociale) VALUES ('Hotel')")));
    QCOMPARE(configurazione::leggi(t.archivio())->NumeroBackupDaMantenere, 7);

    // The upgrade pass turns the old 0 into 7 and keeps a positive choice.
    const auto aggiorna = [&](int valore) {
        t.archivio().comando(QStringLiteral("UPDATE Configurazioni SET NumeroBackupDaMantenere = ?"), { valore });
        CreazioneDB::Percorsi percorsi;
        percorsi.archivio = t.percorso();
        CreazioneDB(percorsi, t.errori()).ValorizzaCampiNulli(t.archivio());
        return t.archivio().valore(QStringLiteral("SELECT NumeroBackupDaMantenere FROM Configurazioni")).toInt();
    };
    QCOMPARE(aggiorna(0), 7);
    QCOMPARE(aggiorna(3), 3);
    QCOMPARE(aggiorna(-2), 7);
}

void TestBackupDaMantenere::loSchermoProponeUnNumeroPositivo()
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 6, 15), QTime(10, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };
    sessione.PercorsoDB = t.percorso();
    sessione.PercorsoProgramma = t.cartella();
    QVERIFY(t.archivio().comando(
        QStringLiteral("INSERT INTO Configurazioni (RagSociale, NumeroBackupDaMantenere) VALUES ('Hotel', 0)")));
    FConfigurazioni schermo(sessione);
    schermo.Form_Load();
    QCOMPARE(schermo.valori.NumeroBackupDaMantenere, 7);
    t.archivio().comando(QStringLiteral("UPDATE Configurazioni SET NumeroBackupDaMantenere = 12"));
    schermo.Form_Load();
    QCOMPARE(schermo.valori.NumeroBackupDaMantenere, 12);
}

TOMVERA_TEST(TestBackupDaMantenere)

#include "test_sicurezzadati.moc"
