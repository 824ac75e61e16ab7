#include "foundation/routines.h"
#include "interazionescriptata.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;

namespace {

struct Caso
{
    const char* testo;
    const char* atteso;
};

// The scripted interaction, also remembering the icon of each message.
class InterazioneConIcone : public test::InterazioneScriptata
{
public:
    void messaggio(const QString& testo, const QString& titolo, Icona icona) override
    {
        icone << icona;
        InterazioneScriptata::messaggio(testo, titolo, icona);
    }
    QList<Icona> icone;
};

} // namespace

class TestRoutines : public QObject
{
    Q_OBJECT
private slots:
    void mascheraData();
    void mascheraOra();
    void arrotonda();
    void arrotondaEFormatta();
    void formattaDecimali();
    void apiciEValori();
    void dateDelCalendario();
    void fileIni();
};

void TestRoutines::mascheraData()
{
    const Caso valide[] = { { "010206", "01/02/2006" },
                            { "01022006", "01/02/2006" },
                            { "1/2/06", "01/02/2006" },
                            { "15-08-2026", "15/08/2026" },
                            { "", "" } };
    for (const Caso& c : valide) {
        InterazioneConIcone interazione;
        QString testo = QString::fromUtf8(c.testo);
        QCOMPARE(MascheraData(testo, interazione), QString::fromUtf8(c.atteso));
        QCOMPARE(testo, QString::fromUtf8(c.atteso));
        QVERIFY2(interazione.testi().isEmpty(), c.testo);
    }
    // Refused: the message, and the text stays as typed.
    for (const char* sbagliata : { "310206", "domani", "0102206" }) {
        InterazioneConIcone interazione;
        QString testo = QString::fromUtf8(sbagliata);
        QCOMPARE(MascheraData(testo, interazione), QString::fromUtf8(sbagliata));
        QCOMPARE(interazione.messaggi(), QStringList { QStringLiteral("La data non è corretta") });
        QCOMPARE(interazione.titoli(), QStringList { QStringLiteral("DATA") });
        QCOMPARE(interazione.icone, QList<Interazione::Icona> { Interazione::Icona::Critico });
    }
    // The silent one keeps a masked date as it is and empties what isn't a date.
    const Caso silenziose[] = { { "010206", "01/02/06" },
                                { "01022006", "01/02/2006" },
                                { "1/2/2006", "1/2/2006" },
                                { "32/01/2006", "" },
                                { "abc", "" } };
    for (const Caso& c : silenziose) {
        QString testo = QString::fromUtf8(c.testo);
        QCOMPARE(MascheraDataSilenziosa(testo), QString::fromUtf8(c.atteso));
        QCOMPARE(testo, QString::fromUtf8(c.atteso));
    }
}

void TestRoutines::mascheraOra()
{
    const Caso casi[] = { { "9", "9.00" },     { "9.5", "09.50" },   { "930", "" },     { "0930", "09.30" },
                          { "9.30", "09.30" }, { "12.45", "12.45" }, { "23", "23.00" }, { "24", "" },
                          { "2360", "" },      { "09.300", "" },     { "", "" },        { "ab", "" } };
    for (const Caso& c : casi)
        QVERIFY2(MascheraOra(QString::fromUtf8(c.testo)) == QString::fromUtf8(c.atteso), c.testo);
}

void TestRoutines::arrotonda()
{
    // The 0.51 addend: .004 goes down, .0049 already goes up, and negatives floor towards minus infinity.
    QCOMPARE(Arrotonda(10.004, 2), 10.00);
    QCOMPARE(Arrotonda(10.0049, 2), 10.01);
    QCOMPARE(Arrotonda(10.005, 2), 10.01);
    QCOMPARE(Arrotonda(-10.005, 2), -10.00);
    QCOMPARE(Arrotonda(-10.006, 2), -10.01);
    QCOMPARE(Arrotonda(99.99 / 1.22, 2), 81.96);
    QCOMPARE(Arrotonda(2.49, 0), 3.0);
    QCOMPARE(Arrotonda(1234.0, -1), 1230.0);
}

void TestRoutines::arrotondaEFormatta()
{
    struct
    {
        const char* testo;
        int decimali;
        const char* atteso;
    } const casi[] = {
        { "1.234,565", 2, "1.234,57" }, // the point is dropped, the comma kept
        { "1,2,5", 2, "1,25" }, // a second comma is dropped
        { "-12,5", 0, "-12" },
        { "--3", 1, "3,0" }, // each minus flips the sign, wherever it stands
        { "7-", 0, "-7" },
        { "", 2, "0,00" },
        { "abc", 2, "0,00" },
        { "€ 1 000,5", 2, "1.000,50" },
        { "0,1", 9, "0,100000000" },
        { "0,1", 12, "0,1000000000" }, // past nine, always ten decimals
        { "1234567890,1", 2, "1.234.567.890,10" },
    };
    for (const auto& c : casi)
        QVERIFY2(ArrotondaEFormatta(QString::fromUtf8(c.testo), c.decimali) == QString::fromUtf8(c.atteso), c.testo);
}

void TestRoutines::formattaDecimali()
{
    QCOMPARE(FormattaValuta(-1234567.891), QStringLiteral("-1.234.567,89"));
    QCOMPARE(FormattaDecimali(1234.5, 0), QStringLiteral("1.235"));
    QCOMPARE(FormattaDecimali(1.5, 8), QStringLiteral("1,50000000"));
    QCOMPARE(FormattaDecimali(1.5, 9), QString());
    QCOMPARE(FormattaDecimali(1.5, -1), QString());
}

void TestRoutines::apiciEValori()
{
    QCOMPARE(RaddoppiaApici(QStringLiteral("D'Annunzio")), QStringLiteral("D''Annunzio"));
    QCOMPARE(RaddoppiaApici(QStringLiteral("''")), QStringLiteral("''''"));
    QCOMPARE(TogliApici(QStringLiteral("l'albergo dell'isola'")), QStringLiteral("lalbergo dellisola"));

    for (const char* vero : { "TRUE", "true", "Vero", "si", "-1" })
        QVERIFY2(ValoreVero(QString::fromUtf8(vero)), vero);
    for (const char* falso : { "", "1", "no", "FALSE", "sì", " si" })
        QVERIFY2(!ValoreVero(QString::fromUtf8(falso)), falso);

    QCOMPARE(ValoreVersione(QStringLiteral("3.9.4")), 394.0);
    QCOMPARE(ValoreVersione(QStringLiteral("3.10.0")), 3100.0);
    QCOMPARE(ValoreVersione(QString()), 0.0);
    QCOMPARE(ValoreVersione(QStringLiteral("versione")), 0.0);
}

void TestRoutines::dateDelCalendario()
{
    QCOMPARE(NumeroDelMese(QStringLiteral("gennaio")), 1);
    QCOMPARE(NumeroDelMese(QStringLiteral("dicembre")), 12);
    QCOMPARE(NumeroDelMese(QStringLiteral("january")), 0);

    QCOMPARE(UltimoGiornoMese(2, 2024), QDate(2024, 2, 29));
    QCOMPARE(UltimoGiornoMese(2, 2100), QDate(2100, 2, 28));
    QCOMPARE(UltimoGiornoMese(4, 2026), QDate(2026, 4, 30));
    QVERIFY(!UltimoGiornoMese(13, 2026).isValid());

    QCOMPARE(CalcolaEta(QDate(1980, 6, 15), QDate(2026, 6, 14)), 45);
    QCOMPARE(CalcolaEta(QDate(1980, 6, 15), QDate(2026, 6, 15)), 46);
    // Born on 29 February: a year older only from 1 March in common years.
    QCOMPARE(CalcolaEta(QDate(2000, 2, 29), QDate(2025, 2, 28)), 24);
    QCOMPARE(CalcolaEta(QDate(2000, 2, 29), QDate(2025, 3, 1)), 25);
}

void TestRoutines::fileIni()
{
    QTemporaryDir cartella;
    const QString file = QDir(cartella.path()).filePath(QStringLiteral("Tipora.ini"));
    QVERIFY(ScriviValoreIni(file, QStringLiteral("Config"), QStringLiteral("NomeDB"), QStringLiteral("Stampe.mdb")));
    {
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Append));
        f.write("; a hand-written note\n\n[Altro]\nchiave = vecchia\n");
    }
    // Replaced in place whatever the case, added at the end of its section, a new section at the end.
    QVERIFY(ScriviValoreIni(file, QStringLiteral("altro"), QStringLiteral("CHIAVE"), QStringLiteral("nuova")));
    QVERIFY(ScriviValoreIni(file, QStringLiteral("Config"), QStringLiteral("PercorsoDB"), QStringLiteral("C:\\Dati")));
    QVERIFY(ScriviValoreIni(file, QStringLiteral("Terza"), QStringLiteral("x"), QString()));
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(f.readAll()).remove(QLatin1Char('\r')),
             QStringLiteral("[Config]\nNomeDB=Stampe.mdb\n; a hand-written note\nPercorsoDB=C:\\Dati\n\n"
                            "[Altro]\nCHIAVE=nuova\n[Terza]\nx=\n"));
}

TOMVERA_TEST(TestRoutines)

#include "test_routines.moc"
