#include "foundation/orologio.h"
#include "guests/controlli.h"
#include "guests/nomicomuni.h"
#include "guests/provinceesigle.h"
#include "interazionescriptata.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

class TestCodiceFiscale : public QObject
{
    Q_OBJECT
private slots:
    void codiciPubblicatiValidi_data();
    void codiciPubblicatiValidi();
    void codiciErrati_data();
    void codiciErrati();
    void minuscoleTornanoMaiuscole();
};

void TestCodiceFiscale::codiciPubblicatiValidi_data()
{
    QTest::addColumn<QString>("codice");
    // Examples printed in public references on the Italian tax code.
    QTest::newRow("Mario Rossi") << QStringLiteral("RSSMRA85T10A562S");
    QTest::newRow("Giuseppe Verdi") << QStringLiteral("VRDGPP13R10B293P");
    QTest::newRow("Matteo Moretti") << QStringLiteral("MRTMTT25D09F205Z");
    QTest::newRow("Mario Rossi Roma") << QStringLiteral("RSSMRA80A01H501U");
    // Homocodes swap digits for letters; the check covers letters in those places as well.
    QTest::newRow("omocodia") << QStringLiteral("RSSMRA85T10A56NH");
}

void TestCodiceFiscale::codiciPubblicatiValidi()
{
    QFETCH(QString, codice);
    QString c = codice;
    QCOMPARE(ControllaCodiceFiscale(c), QString());
    QCOMPARE(c, codice);
}

void TestCodiceFiscale::codiciErrati_data()
{
    QTest::addColumn<QString>("codice");
    QTest::addColumn<QString>("messaggio");
    const QString errato = QStringLiteral("Il codice fiscale non è corretto ");
    const QString lunghezza = QStringLiteral("il codice fiscale dovrebbe essere lungo 16 caratteri.");
    QTest::newRow("carattere di controllo") << QStringLiteral("RSSMRA85T10A562T") << errato;
    QTest::newRow("due cifre scambiate") << QStringLiteral("RSSMRA58T10A562S") << errato;
    QTest::newRow("simbolo") << QStringLiteral("RSSMRA85T10A5-2S") << errato;
    QTest::newRow("lettera accentata") << QStringLiteral("RSSMRÀ85T10A562S") << errato;
    QTest::newRow("provvisorio numerico") << QStringLiteral("12345678903") << lunghezza;
    QTest::newRow("troppo lungo") << QStringLiteral("RSSMRA85T10A562SX") << lunghezza;
    QTest::newRow("vuoto") << QString() << QString();
}

void TestCodiceFiscale::codiciErrati()
{
    QFETCH(QString, codice);
    QFETCH(QString, messaggio);
    QCOMPARE(ControllaCodiceFiscale(codice), messaggio);
}

void TestCodiceFiscale::minuscoleTornanoMaiuscole()
{
    QString c = QStringLiteral("rssmra85t10a562s");
    QCOMPARE(ControllaCodiceFiscale(c), QString());
    QCOMPARE(c, QStringLiteral("RSSMRA85T10A562S"));
    // A wrong length is reported as typed.
    QString corto = QStringLiteral("rssmra");
    ControllaCodiceFiscale(corto);
    QCOMPARE(corto, QStringLiteral("rssmra"));
}

TOMVERA_TEST(TestCodiceFiscale)

class TestPartitaIva : public QObject
{
    Q_OBJECT
private slots:
    void numeri_data();
    void numeri();
};

void TestPartitaIva::numeri_data()
{
    QTest::addColumn<QString>("numero");
    QTest::addColumn<bool>("valida");
    // Registered numbers of well-known Italian companies and bodies.
    QTest::newRow("Agenzia delle Entrate") << QStringLiteral("06363391001") << true;
    QTest::newRow("Pirelli") << QStringLiteral("00860340157") << true;
    QTest::newRow("Telecom Italia") << QStringLiteral("00488410010") << true;
    QTest::newRow("spazi attorno") << QStringLiteral("  06363391001 ") << true;
    QTest::newRow("vuota") << QString() << true;
    QTest::newRow("solo spazi") << QStringLiteral("   ") << true;
    QTest::newRow("cifra di controllo") << QStringLiteral("06363391002") << false;
    QTest::newRow("cifre pari scambiate") << QStringLiteral("60363391001") << false;
    QTest::newRow("dieci cifre") << QStringLiteral("0636339100") << false;
    QTest::newRow("con prefisso IT") << QStringLiteral("IT06363391001") << false;
    QTest::newRow("lettera") << QStringLiteral("0636339100A") << false;
    QTest::newRow("spazio interno") << QStringLiteral("06363 91001") << false;
}

void TestPartitaIva::numeri()
{
    QFETCH(QString, numero);
    QFETCH(bool, valida);
    QCOMPARE(ControllaPartitaIva(numero), valida);
}

TOMVERA_TEST(TestPartitaIva)

class TestValiditaDocumento : public QObject
{
    Q_OBJECT
private slots:
    void anniPerTipoEdEta_data();
    void anniPerTipoEdEta();
    void avvisoSoloQuandoScaduto();
};

void TestValiditaDocumento::anniPerTipoEdEta_data()
{
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QDate>("rilascio");
    QTest::addColumn<QDate>("nascita");
    QTest::addColumn<int>("anni"); // 0: no rule applies
    const QDate rilascio(2020, 6, 15);
    QTest::newRow("carta d'identità") << QStringLiteral("C.I.") << rilascio << QDate() << 5;
    QTest::newRow("passaporto ufficiale") << QStringLiteral("PASSAPORTO ORDINARIO") << rilascio << QDate() << 10;
    QTest::newRow("patente, 50 anni") << QStringLiteral("PATENTE DI GUIDA") << rilascio << QDate(1970, 6, 15) << 10;
    // The birthday falls the day after issue: still 50.
    QTest::newRow("patente, 51 domani") << QStringLiteral("Patente") << rilascio << QDate(1969, 6, 16) << 10;
    QTest::newRow("patente, 51 anni") << QStringLiteral("Patente") << rilascio << QDate(1969, 6, 15) << 5;
    QTest::newRow("patente, 70 anni") << QStringLiteral("Patente") << rilascio << QDate(1949, 12, 1) << 5;
    QTest::newRow("patente, 71 anni") << QStringLiteral("Patente") << rilascio << QDate(1949, 1, 1) << 3;
    QTest::newRow("patente senza nascita") << QStringLiteral("Patente") << rilascio << QDate() << 0;
    // The official word is not one of the rule's: no validity is assumed for it.
    QTest::newRow("carta, parola ufficiale") << QStringLiteral("CARTA DI IDENTITA'") << rilascio << QDate() << 0;
    QTest::newRow("porto d'armi") << QStringLiteral("PORTO D'ARMI") << rilascio << QDate() << 0;
}

void TestValiditaDocumento::anniPerTipoEdEta()
{
    QFETCH(QString, tipo);
    QFETCH(QDate, rilascio);
    QFETCH(QDate, nascita);
    QFETCH(int, anni);
    QCOMPARE(anniValiditaDocumento(tipo, rilascio, nascita).value_or(0), anni);
    if (anni > 0)
        QCOMPARE(*scadenzaDocumento(tipo, rilascio, nascita), rilascio.addYears(anni));
}

void TestValiditaDocumento::avvisoSoloQuandoScaduto()
{
    test::InterazioneScriptata interazione;
    const QDate rilascio(2015, 3, 10);
    // Expires on 10/03/2020: valid that very day, expired the day after.
    QVERIFY(ControllaValiditaDocumento(QStringLiteral("C.I."), rilascio, {}, QDate(2020, 3, 10), interazione));
    QVERIFY(interazione.testi().isEmpty());
    QVERIFY(!ControllaValiditaDocumento(QStringLiteral("C.I."), rilascio, {}, QDate(2020, 3, 11), interazione));
    QCOMPARE(interazione.testi(), QStringList { QStringLiteral("Attenzione documento non più valido") });
    // Born 29 February: a licence issued on a leap day expires on 28 February.
    const QDate bisestile(2016, 2, 29);
    QCOMPARE(*scadenzaDocumento(QStringLiteral("Passaporto"), bisestile, {}), QDate(2026, 2, 28));
    interazione.pulisci();
    QVERIFY(ControllaValiditaDocumento(QStringLiteral("Tessera"), rilascio, {}, QDate(2040, 1, 1), interazione));
    QVERIFY(interazione.testi().isEmpty());
}

TOMVERA_TEST(TestValiditaDocumento)

class TestNomiEProvince : public QObject
{
    Q_OBJECT
private slots:
    void nomiComuni_data();
    void nomiComuni();
    void provinceERegioni();
    void listeIstat();
};

void TestNomiEProvince::nomiComuni_data()
{
    QTest::addColumn<QString>("maiuscolo");
    QTest::addColumn<QString>("atteso");
    QTest::newRow("particella in") << QStringLiteral("SAN GIOVANNI IN PERSICETO")
                                   << QStringLiteral("San Giovanni in Persiceto");
    QTest::newRow("e all'inizio") << QStringLiteral("E CASTELLO") << QStringLiteral("E Castello");
    QTest::newRow("e dentro") << QStringLiteral("PESARO E URBINO") << QStringLiteral("Pesaro e Urbino");
    QTest::newRow("apostrofo") << QStringLiteral("L'AQUILA") << QStringLiteral("L'Aquila");
    QTest::newRow("dell'") << QStringLiteral("CASTEL DELL'ALPI") << QStringLiteral("Castel dell'Alpi");
    QTest::newRow("sull'") << QStringLiteral("CASSANO SULL'ADDA") << QStringLiteral("Cassano sull'Adda");
    QTest::newRow("d' ") << QStringLiteral("REGGIO D'EMILIA") << QStringLiteral("Reggio d'Emilia");
    QTest::newRow("accento scritto") << QStringLiteral("AGLIE'") << QStringLiteral("Aglie'");
    QTest::newRow("parola che inizia come particella")
        << QStringLiteral("MONTE DIANO") << QStringLiteral("Monte Diano");
    QTest::newRow("fine validità") << QStringLiteral("ABBADIA ALPINA (Val. fino al 31/12/1983)")
                                   << QStringLiteral("Abbadia Alpina (Val. fino al 31/12/1983)");
}

void TestNomiEProvince::nomiComuni()
{
    QFETCH(QString, maiuscolo);
    QFETCH(QString, atteso);
    QCOMPARE(NomeComuneInMinuscolo(maiuscolo), atteso);
}

void TestNomiEProvince::provinceERegioni()
{
    QCOMPARE(Province_e_Sigle().size(), size_t(110));
    QCOMPARE(TrovaRegione(QStringLiteral("FERRARA")), QStringLiteral("Emilia -Romagna"));
    QCOMPARE(TrovaRegione(QStringLiteral("l'aquila")), QStringLiteral("Abruzzo"));
    QCOMPARE(TrovaRegione(QStringLiteral("Atlantide")), QString());
    QCOMPARE(TrovaProvincia(QStringLiteral("fc")), QStringLiteral("FORLÌ-CESENA"));
    QCOMPARE(TrovaProvincia(QStringLiteral("MB")), QStringLiteral("MONZA E DELLA BRIANZA"));
    QCOMPARE(TrovaProvincia(QStringLiteral("ZZ")), QString());
}

void TestNomiEProvince::listeIstat()
{
    const QStringList paesi = CaricaComboIstat(true);
    QCOMPARE(paesi.size(), 57);
    QCOMPARE(VoceListaIstat(ListaIstat::Paese, 1), QStringLiteral("Austria"));
    QCOMPARE(VoceListaIstat(ListaIstat::Paese, 57), QStringLiteral("Non specificato/apolide"));
    QCOMPARE(VoceListaIstat(ListaIstat::Paese, 58), QString());
    const QStringList province = CaricaComboIstat(false);
    QCOMPARE(province.size(), 110);
    // Italian alphabetical order: accents and apostrophes do not push a name to the end.
    QVERIFY(province.indexOf(QStringLiteral("Forlì-Cesena")) < province.indexOf(QStringLiteral("Frosinone")));
    QVERIFY(province.indexOf(QStringLiteral("L'Aquila")) < province.indexOf(QStringLiteral("La Spezia")));
    QCOMPARE(province.first(), QStringLiteral("Agrigento"));
    QCOMPARE(VoceIstatPer(ListaIstat::Provincia, QStringLiteral("pd")), QStringLiteral("Padova"));
    QCOMPARE(VoceIstatPer(ListaIstat::Paese, QStringLiteral("GERMANIA")), QStringLiteral("Germania"));
    QCOMPARE(VoceIstatPer(ListaIstat::Paese, QStringLiteral("FEDERAZIONE RUSSA")), QStringLiteral("Russia"));
    QCOMPARE(VoceIstatPer(ListaIstat::Paese, QStringLiteral("ATLANTIDE")), QString());
}

TOMVERA_TEST(TestNomiEProvince)

#include "test_controlli.moc"
