#include "guests/tabellecodici.h"
#include "statutory/schedine.h"
#include "statutory/tracciato.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

// Lookups answer "<table letter>:<name>" for known names, "" for names starting with '?'.
QString cercaFinta(TabellaCodici t, const QString& nome)
{
    if (nome.isEmpty() || nome.startsWith(QLatin1Char('?')))
        return QString();
    if (t == TabellaCodici::TipoAlloggiato)
        return nome == QLatin1String("FAMILIARE")    ? QStringLiteral("19")
            : nome == QLatin1String("MEMBRO GRUPPO") ? QStringLiteral("20")
                                                     : QStringLiteral("16");
    const char lettera = t == TabellaCodici::Comuni ? 'C' : t == TabellaCodici::Stati ? 'S' : 'D';
    return QLatin1Char(lettera) + QLatin1Char(':') + nome;
}

RigaSchedina completa()
{
    RigaSchedina r;
    r.indice = 1;
    r.Tipodialloggiato = QStringLiteral("OSPITE SINGOLO");
    r.cognome = QStringLiteral("Rossi");
    r.nome = QStringLiteral("Mario");
    r.dataarrivo = QDate(2026, 3, 1);
    r.datapartenza = QDate(2026, 3, 4);
    r.maschiofemmina = QStringLiteral("Maschio");
    r.datanascita = QDate(1980, 1, 2);
    r.luogonascita = QStringLiteral("ROMA");
    r.provinciadinascita = QStringLiteral("RM");
    r.statodinascita = QStringLiteral("IT");
    r.cittadinanza = QStringLiteral("FR");
    r.comune = QStringLiteral("Roma");
    r.provincia = QStringLiteral("RM");
    r.nazione = QStringLiteral("ITALIA");
    r.tipodocumento = QStringLiteral("CI");
    r.nrodocumento = QStringLiteral("AX123");
    r.luogodocumento = QStringLiteral("PISA");
    r.nascitaitalia = true;
    r.documentoitalia = true;
    r.residenzaitaliana = true;
    return r;
}

QByteArray registra(const RigaSchedina& r)
{
    char sesso = '\0';
    return tracciato::record(r, cercaFinta, sesso);
}

} // namespace

class TestTracciato : public QObject
{
    Q_OBJECT
private slots:
    void recordDiUnCapoCampoPerCampo();
    void valoriTagliatiERiempiti();
    void lettereAccentateInUnByte();
    void membriSenzaDocumento();
    void nomiSconosciutiLascianoBianchi();
    void sessoRipresoDallaRigaPrecedente();
    void giorniDiPermanenza_data();
    void giorniDiPermanenza();
    void italiaPerDifetto();
    void fileENome();
};

void TestTracciato::recordDiUnCapoCampoPerCampo()
{
    const QByteArray r = registra(completa());
    QCOMPARE(r.size(), 168);
    QCOMPARE(r.mid(0, 2), QByteArray("16"));
    QCOMPARE(r.mid(2, 10), QByteArray("01/03/2026"));
    QCOMPARE(r.mid(12, 2), QByteArray("03"));
    QCOMPARE(r.mid(14, 50), QByteArray("Rossi").leftJustified(50, ' '));
    QCOMPARE(r.mid(64, 30), QByteArray("Mario").leftJustified(30, ' '));
    QCOMPARE(r.mid(94, 1), QByteArray("1"));
    QCOMPARE(r.mid(95, 10), QByteArray("02/01/1980"));
    QCOMPARE(r.mid(105, 9), QByteArray("C:ROMA   "));
    QCOMPARE(r.mid(114, 2), QByteArray("RM"));
    QCOMPARE(r.mid(116, 9), QByteArray("S:IT     "));
    QCOMPARE(r.mid(125, 9), QByteArray("S:FR     "));
    QCOMPARE(r.mid(134, 5), QByteArray("D:CI "));
    QCOMPARE(r.mid(139, 20), QByteArray("AX123").leftJustified(20, ' '));
    QCOMPARE(r.mid(159, 9), QByteArray("C:PISA   "));
    // Residence and address never reach the file.
    QVERIFY(!r.contains("ITALIA"));

    // Abroad: no birth municipality or province, the document place is a state.
    RigaSchedina estero = completa();
    estero.nascitaitalia = false;
    estero.nascitaestero = true;
    estero.documentoitalia = false;
    estero.documentoestero = true;
    estero.luogodocumento = QStringLiteral("FRANCIA");
    const QByteArray e = registra(estero);
    QCOMPARE(e.mid(105, 11), QByteArray(11, ' '));
    QCOMPARE(e.mid(159, 9), QByteArray("S:FRANCIA"));
}

void TestTracciato::valoriTagliatiERiempiti()
{
    RigaSchedina r = completa();
    r.cognome = QString(50, QLatin1Char('A')) + QLatin1Char('Z');
    r.nome = QString(31, QLatin1Char('B'));
    r.nrodocumento = QStringLiteral("123456789012345678901234");
    r.provinciadinascita = QStringLiteral("ROMA");
    r.luogodocumento = QStringLiteral("PORTO SANT'ELPIDIO");
    const QByteArray b = registra(r);
    QCOMPARE(b.size(), 168);
    QCOMPARE(b.mid(14, 50), QByteArray(50, 'A'));
    QCOMPARE(b.mid(64, 30), QByteArray(30, 'B'));
    QCOMPARE(b.mid(114, 2), QByteArray("RO"));
    QCOMPARE(b.mid(139, 20), QByteArray("12345678901234567890"));
    QCOMPARE(b.mid(159, 9), QByteArray("C:PORTO S"));
    QCOMPARE(tracciato::campo(QString(), 3), QByteArray("   "));
}

void TestTracciato::lettereAccentateInUnByte()
{
    RigaSchedina r = completa();
    r.cognome = QString::fromUtf8("Niccolò D’Àlvarez €");
    r.nome = QString::fromUtf8("Zoë 漢");
    const QByteArray b = registra(r);
    QCOMPARE(b.size(), 168);
    QCOMPARE(b.mid(14, 19), QByteArray("Niccol\xF2 D\x92\xC0lvarez \x80"));
    QCOMPARE(b.mid(33, 31), QByteArray(31, ' '));
    // A character the code page lacks is one '?', never two bytes.
    QCOMPARE(b.mid(64, 6), QByteArray("Zo\xEB ? "));
    QCOMPARE(tracciato::windows1252(QString::fromUtf8("😀a")), QByteArray("?a"));
}

void TestTracciato::membriSenzaDocumento()
{
    for (const char* tipo : { "FAMILIARE", "MEMBRO GRUPPO" }) {
        RigaSchedina m = completa();
        m.Tipodialloggiato = QLatin1String(tipo);
        const QByteArray b = registra(m);
        QCOMPARE(b.size(), 168);
        QCOMPARE(b.left(134), registra(completa()).left(134).replace(0, 2, tipo[0] == 'F' ? "19" : "20"));
        QCOMPARE(b.mid(134), QByteArray(34, '\0'));
    }
    // The code decides, not the name: an unknown lodging type is written as a head with a blank code.
    RigaSchedina ignoto = completa();
    ignoto.Tipodialloggiato = QStringLiteral("?OSPITE");
    const QByteArray b = registra(ignoto);
    QCOMPARE(b.left(2), QByteArray("  "));
    QCOMPARE(b.mid(134, 5), QByteArray("D:CI "));
}

void TestTracciato::nomiSconosciutiLascianoBianchi()
{
    RigaSchedina r = completa();
    r.luogonascita = QStringLiteral("?Atlantide");
    r.statodinascita = QStringLiteral("?Utopia");
    r.tipodocumento = QStringLiteral("?Tessera");
    r.luogodocumento = QString();
    const QByteArray b = registra(r);
    QCOMPARE(b.size(), 168);
    QCOMPARE(b.mid(105, 9), QByteArray(9, ' '));
    QCOMPARE(b.mid(116, 9), QByteArray(9, ' '));
    QCOMPARE(b.mid(134, 5), QByteArray(5, ' '));
    QCOMPARE(b.mid(159, 9), QByteArray(9, ' '));
}

void TestTracciato::sessoRipresoDallaRigaPrecedente()
{
    RigaSchedina r = completa();
    char sesso = '\0';
    r.maschiofemmina = QStringLiteral("?");
    QCOMPARE(tracciato::record(r, cercaFinta, sesso).at(94), '\0');
    r.maschiofemmina = QStringLiteral("Femmina");
    QCOMPARE(tracciato::record(r, cercaFinta, sesso).at(94), '2');
    r.maschiofemmina = QString();
    QCOMPARE(tracciato::record(r, cercaFinta, sesso).at(94), '2');
    r.maschiofemmina = QStringLiteral("Maschio");
    QCOMPARE(tracciato::record(r, cercaFinta, sesso).at(94), '1');
    r.maschiofemmina = QStringLiteral("M");
    QCOMPARE(tracciato::record(r, cercaFinta, sesso).at(94), '1');
}

void TestTracciato::giorniDiPermanenza_data()
{
    QTest::addColumn<QDate>("arrivo");
    QTest::addColumn<QDate>("partenza");
    QTest::addColumn<QByteArray>("giorni");
    QTest::newRow("tre notti") << QDate(2026, 3, 1) << QDate(2026, 3, 4) << QByteArray("03");
    QTest::newRow("trenta") << QDate(2026, 3, 1) << QDate(2026, 3, 31) << QByteArray("30");
    QTest::newRow("dall'1 al 31 di 31 giorni") << QDate(2026, 1, 1) << QDate(2026, 2, 1) << QByteArray("30");
    QTest::newRow("1 marzo - 15 aprile") << QDate(2026, 3, 1) << QDate(2026, 4, 15) << QByteArray("30");
    QTest::newRow("stesso giorno") << QDate(2026, 3, 1) << QDate(2026, 3, 1) << QByteArray("00");
    QTest::newRow("senza partenza") << QDate(2026, 3, 1) << QDate() << QByteArray("00");
    QTest::newRow("partenza prima dell'arrivo") << QDate(2026, 3, 5) << QDate(2026, 3, 1) << QByteArray("00");
}

void TestTracciato::giorniDiPermanenza()
{
    QFETCH(QDate, arrivo);
    QFETCH(QDate, partenza);
    QFETCH(QByteArray, giorni);
    RigaSchedina r = completa();
    r.dataarrivo = arrivo;
    r.datapartenza = partenza;
    QCOMPARE(registra(r).mid(12, 2), giorni);
}

void TestTracciato::italiaPerDifetto()
{
    RigaSchedina r = completa();
    r.nascitaitalia = r.nascitaestero = false;
    r.documentoitalia = r.documentoestero = false;
    QByteArray b = registra(r);
    QCOMPARE(b.mid(105, 11), QByteArray("C:ROMA   RM"));
    QCOMPARE(b.mid(159, 9), QByteArray("C:PISA   "));
    // Born in Italy by default with no municipality: blank code, and the check lets it through.
    r.luogonascita.clear();
    r.provinciadinascita.clear();
    b = registra(r);
    QCOMPARE(b.mid(105, 11), QByteArray(11, ' '));
    QCOMPARE(ControllaCorrettezzaRiga(r), QString());
}

void TestTracciato::fileENome()
{
    QCOMPARE(tracciato::file({ QByteArray("a") }), QByteArray("a"));
    QCOMPARE(tracciato::file({ QByteArray("a"), QByteArray("b"), QByteArray("c") }), QByteArray("a\r\nb\r\nc"));
    QCOMPARE(tracciato::file({}), QByteArray());
    QCOMPARE(tracciato::nomeFile(QStringLiteral("/tmp/x"), QDate(2016, 3, 5)),
             QStringLiteral("/tmp/x/Schede Notifica del 05032016.txt"));
}

TOMVERA_TEST(TestTracciato)

class TestControlloSchedine : public QObject
{
    Q_OBJECT
private slots:
    void ordineDeiControlli();
    void membriEFlag();
};

void TestControlloSchedine::ordineDeiControlli()
{
    // Each step empties one more field, from the last checked to the first: the title must always be the
    // earliest broken field's.
    using Guasto = std::pair<const char*, std::function<void(RigaSchedina&)>>;
    const std::vector<Guasto> guasti {
        { "Luogo Rilascio Documento", [](RigaSchedina& r) { r.luogodocumento = QStringLiteral("  "); } },
        { "Numero Documento", [](RigaSchedina& r) { r.nrodocumento.clear(); } },
        { "Tipo di Documento", [](RigaSchedina& r) { r.tipodocumento.clear(); } },
        { "Stato di Residenza", [](RigaSchedina& r) { r.nazione.clear(); } },
        { "Provincia di Residenza", [](RigaSchedina& r) { r.provincia.clear(); } },
        { "Comune di Residenza", [](RigaSchedina& r) { r.comune.clear(); } },
        { "Cittadinanza", [](RigaSchedina& r) { r.cittadinanza.clear(); } },
        { "Stato di Nascita", [](RigaSchedina& r) { r.statodinascita.clear(); } },
        { "Provincia di Nascita", [](RigaSchedina& r) { r.provinciadinascita.clear(); } },
        { "Comune di Nascita", [](RigaSchedina& r) { r.luogonascita.clear(); } },
        { "Data di Nascita", [](RigaSchedina& r) { r.datanascita = QDate(); } },
        { "Sesso", [](RigaSchedina& r) { r.maschiofemmina.clear(); } },
        { "Data Arrivo", [](RigaSchedina& r) { r.dataarrivo = QDate(); } },
        { "Nome", [](RigaSchedina& r) { r.nome.clear(); } },
        { "Cognome", [](RigaSchedina& r) { r.cognome.clear(); } },
        { "Tipo Alloggiato", [](RigaSchedina& r) { r.Tipodialloggiato.clear(); } },
    };
    RigaSchedina r = completa();
    QCOMPARE(ControllaCorrettezzaRiga(r), QString());
    for (const auto& [titolo, guasta] : guasti) {
        guasta(r);
        QCOMPARE(ControllaCorrettezzaRiga(r), QLatin1String(titolo));
    }
}

void TestControlloSchedine::membriEFlag()
{
    RigaSchedina membro = completa();
    membro.Tipodialloggiato = QStringLiteral("FAMILIARE");
    membro.tipodocumento.clear();
    membro.nazione.clear();
    QCOMPARE(ControllaCorrettezzaRiga(membro), QString());
    membro.Tipodialloggiato = QStringLiteral("capogruppo");
    QCOMPARE(ControllaCorrettezzaRiga(membro), QStringLiteral("Stato di Residenza"));

    // Residence and birth place are asked only when the flag says Italy.
    RigaSchedina estero = completa();
    estero.residenzaitaliana = false;
    estero.comune.clear();
    estero.provincia.clear();
    estero.nascitaitalia = false;
    estero.luogonascita.clear();
    QCOMPARE(ControllaCorrettezzaRiga(estero), QString());
}

TOMVERA_TEST(TestControlloSchedine)

#include "test_tracciato.moc"
