#include "archivioospiti.h"
#include "guests/archiviocodici.h"
#include "guests/importacodici.h"
#include "guests/nomicomuni.h"
#include "guests/tabellecodici.h"
#include "testmain.h"

#include <QFile>
#include <QSqlRecord>
#include <QTest>

using namespace tomvera;

namespace {

QString fixtureXls()
{
    return qEnvironmentVariable("TOMVERA_TEST_DIR") + QStringLiteral("/data/codici_ufficiali.xls");
}

QString scriviFile(const QString& cartella, const QString& nome, const QByteArray& contenuto)
{
    const QString percorso = cartella + QLatin1Char('/') + nome;
    QFile f(percorso);
    f.open(QIODevice::WriteOnly);
    f.write(contenuto);
    return percorso;
}

QStringList colonna(Archivio& archivio, const QString& sql)
{
    QStringList valori;
    const auto righe = archivio.righe(sql);
    for (const QSqlRecord& r : righe)
        valori << r.value(0).toString();
    return valori;
}

} // namespace

class TestImportazioneCodici : public QObject
{
    Q_OBJECT
private slots:
    void foglioExcel();
    void foglioMancanteLasciaLaTabella();
    void fileCsvUfficiale();
    void comandoDelMenu();
};

void TestImportazioneCodici::foglioExcel()
{
    const EsitoLettura comuni = leggiFoglioXls(fixtureXls(), QStringLiteral("v_comuni"));
    QVERIFY2(comuni.celle, qPrintable(comuni.errore));
    const auto righe = righeCodici(TabellaCodici::Comuni, *comuni.celle);
    QVERIFY(righe);
    QCOMPARE(righe->size(), 4);
    // Numeric cells come back as whole codes, date cells as the end-of-validity note.
    QCOMPARE(righe->at(0).codice, QStringLiteral("405028001"));
    QCOMPARE(righe->at(1).descrizione, QStringLiteral("ABBADIA ALPINA (Val. fino al 31/12/1983)"));
    QCOMPARE(righe->at(2).descrizione, QStringLiteral("L'AQUILA"));
    QCOMPARE(righe->at(2).provincia, QStringLiteral("AQ"));

    test::ArchivioOspiti t;
    const EsitoLettura tipi = leggiFileCodici(fixtureXls(), QStringLiteral("Foglio1"));
    QVERIFY(tipi.celle);
    QCOMPARE(scriviRigheCodici(t.archivio(), TabellaCodici::TipoAlloggiato,
                               *righeCodici(TabellaCodici::TipoAlloggiato, *tipi.celle)),
             std::optional<int>(5));
    QCOMPARE(colonna(t.archivio(),
                     QStringLiteral("SELECT Codice || '=' || TipoAlloggiato FROM TabellaCodiciTipoAlloggiato "
                                    "ORDER BY Codice")),
             QStringList({ QStringLiteral("16=OSPITE SINGOLO"), QStringLiteral("17=CAPOFAMIGLIA"),
                           QStringLiteral("18=CAPOGRUPPO"), QStringLiteral("19=FAMILIARE"),
                           QStringLiteral("20=MEMBRO GRUPPO") }));
}

void TestImportazioneCodici::foglioMancanteLasciaLaTabella()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("405028001"), QStringLiteral("ABANO TERME"), QStringLiteral("PD"), QStringLiteral("35031"));
    const EsitoLettura lettura = leggiFoglioXls(fixtureXls(), QStringLiteral("V_STATI"));
    QVERIFY(!lettura.celle);
    QCOMPARE(lettura.errore, QStringLiteral("Foglio non trovato nel file Excel: V_STATI"));
    QVERIFY(!leggiFoglioXls(QStringLiteral("/nessuna/cartella/x.xls"), QStringLiteral("V_COMUNI")).celle);
    // A sheet with too few columns for the table is refused before anything is emptied.
    Celle poche { { QStringLiteral("Codice"), QStringLiteral("Descrizione") },
                  { QStringLiteral("1"), QStringLiteral("X") } };
    QVERIFY(!righeCodici(TabellaCodici::Comuni, poche));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaCodiciComuni")).toInt(), 1);
}

void TestImportazioneCodici::fileCsvUfficiale()
{
    test::ArchivioOspiti t;
    const QString csv = scriviFile(t.cartella(), QStringLiteral("comuni.csv"),
                                   "Codice,Descrizione,Provincia,DataFineVal\r\n"
                                   "405028001,ABANO TERME,PD,\r\n"
                                   "401001501,ABBADIA ALPINA,TO,31/12/1983 00:00:00\r\n"
                                   "\r\n"
                                   "413066049,L'AQUILA,AQ,\r\n");
    const EsitoLettura lettura = leggiFileCodici(csv, {});
    QVERIFY(lettura.celle);
    const auto righe = righeCodici(TabellaCodici::Comuni, *lettura.celle);
    QCOMPARE(scriviRigheCodici(t.archivio(), TabellaCodici::Comuni, *righe), std::optional<int>(3));
    QCOMPARE(colonna(t.archivio(), QStringLiteral("SELECT Comune FROM TabellaCodiciComuni ORDER BY Comune")),
             QStringList({ QStringLiteral("ABANO TERME"), QStringLiteral("ABBADIA ALPINA (Val. fino al 31/12/1983)"),
                           QStringLiteral("L'AQUILA") }));
    // Postal codes are not in the official file.
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaCodiciComuni WHERE Cap <> ''")).toInt(),
             0);

    // Semicolons and quotes, as a spreadsheet saves them; the second import replaces the first.
    const QString stati = scriviFile(t.cartella(), QStringLiteral("stati.csv"),
                                     "Codice;Descrizione;Provincia;DataFineVal\n"
                                     "100000100;ITALIA;ES;\n"
                                     "100000216;\"BOSNIA; ERZEGOVINA\";ES;\n");
    const auto righeStati = righeCodici(TabellaCodici::Stati, *leggiCsv(stati).celle);
    QVERIFY(righeStati);
    QCOMPARE(righeStati->at(1).descrizione, QStringLiteral("BOSNIA; ERZEGOVINA"));
    QCOMPARE(scriviRigheCodici(t.archivio(), TabellaCodici::Stati, *righeStati), std::optional<int>(2));
    QCOMPARE(scriviRigheCodici(t.archivio(), TabellaCodici::Stati, righeStati->mid(0, 1)), std::optional<int>(1));
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("Italia"), QStringLiteral("Stato")),
             QStringLiteral("100000100"));

    // The reference copy is shown in title case; lookups do not mind.
    QCOMPARE(TrasformaNomiComuni(t.archivio()), std::optional<int>(3));
    QCOMPARE(colonna(t.archivio(), QStringLiteral("SELECT Comune FROM TabellaCodiciComuni ORDER BY Comune")).last(),
             QStringLiteral("L'Aquila"));
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("L'AQUILA"), TabellaCodici::Comuni),
             QStringLiteral("413066049"));
}

void TestImportazioneCodici::comandoDelMenu()
{
    test::ArchivioOspiti t;
    auto& i = t.interazione();
    i.rispondiSi(QStringLiteral("procedere con l'importazione"));
    i.rispondiNo(QStringLiteral("tipologie dei documenti"));
    i.rispondiNo(QStringLiteral("degli stati"));
    i.rispondiSi(QStringLiteral("dei comuni"));
    i.rispondiFile(fixtureXls());
    i.rispondiInput(QStringLiteral("V_COMUNI"), QStringLiteral("nome del foglio"));
    i.rispondiSi(QStringLiteral("tipi di alloggiato"));
    i.rispondiFile(fixtureXls());
    i.annullaInput();
    ImportazioneTabelle(t.archivio(), i).mImportazioneTabelle_Click();
    QVERIFY2(i.errore().isEmpty(), qPrintable(i.errore()));
    QVERIFY(i.risposteFinite());
    QVERIFY(i.testi().contains(QStringLiteral("Importazione Terminata")));
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Importazione annullata"));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaCodiciComuni")).toInt(), 4);
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaCodiciTipoAlloggiato")).toInt(), 0);
}

TOMVERA_TEST(TestImportazioneCodici)

class TestTabelleCodici : public QObject
{
    Q_OBJECT
private slots:
    void cercaCodiceConApostrofo();
    void archivioDiRiferimento();
    void schermataSalvaECancella();
    void schermataRicercaERipristino();
    void ripristinoDalRiferimento();
};

void TestTabelleCodici::cercaCodiceConApostrofo()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("413066049"), QStringLiteral("L'Aquila"), QStringLiteral("AQ"));
    t.comune(QStringLiteral("403015146"), QStringLiteral("Sant'Angelo Lodigiano"), QStringLiteral("LO"));
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("L'AQUILA"), QStringLiteral("Comune")),
             QStringLiteral("413066049"));
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("Sant'Angelo Lodigiano"), TabellaCodici::Comuni),
             QStringLiteral("403015146"));
    // A word no longer in the table, or an unknown table, gives no code.
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("L'Aquila'"), QStringLiteral("Comune")), QString());
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("L'Aquila"), QStringLiteral("Provincia")), QString());
    QVERIFY(t.interazione().testi().isEmpty());
}

void TestTabelleCodici::archivioDiRiferimento()
{
    test::ArchivioTemporaneo t(false, QStringLiteral("ArchivioCodici.mdb"));
    QVERIFY(preparaArchivioCodici(t.archivio()));
    QVERIFY(preparaArchivioCodici(t.archivio())); // a second run adds nothing
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Regioni")).toInt(), 110);
    QCOMPARE(colonna(t.archivio(), QStringLiteral("SELECT Provincia FROM Regioni WHERE regione = 'Umbria'")),
             QStringList({ QStringLiteral("PG"), QStringLiteral("TR") }));
    for (TabellaCodici tab : tutteLeTabelleCodici())
        QVERIFY(schema::tabellaEsiste(t.archivio(), QLatin1String(descrizione(tab).tabella)));
}

void TestTabelleCodici::schermataSalvaECancella()
{
    test::ArchivioOspiti t;
    auto& i = t.interazione();
    ArchivioCodici s(t.archivio(), i, {}, {});
    s.selezionaTabella(TabellaCodici::Stati);
    QCOMPARE(s.titoliGriglia(),
             QStringList({ QStringLiteral("Codice"), QStringLiteral("Stato"), QStringLiteral("Provincia") }));
    s.campi().codice = QStringLiteral("100000216");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Attenzione, valorizzare i campi"));
    s.campi().descrizione = QStringLiteral("GERMANIA");
    s.campi().provincia = QStringLiteral("ES");
    QVERIFY(s.Ins_Click());
    QCOMPARE(s.griglia().size(), 1);
    s.Command17_Click();
    s.campi().codice = QStringLiteral("100000216");
    s.campi().descrizione = QStringLiteral("AUSTRIA");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Il codice inserito è già usato per un altro stato!"));
    // Saving the selected row again under its own code is an edit, not a clash.
    s.selezionaRiga(0);
    s.campi().descrizione = QStringLiteral("GERMANIA FEDERALE");
    QVERIFY(s.Ins_Click());
    QCOMPARE(s.griglia().size(), 1);
    QCOMPARE(s.griglia().first().descrizione, QStringLiteral("GERMANIA FEDERALE"));

    s.Command17_Click();
    QVERIFY(!s.Command16_Click());
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Attenzione, selezionare lo stato da cancellare"));
    s.selezionaRiga(0);
    i.rispondiNo(QStringLiteral("Attenzione, cancellare lo stato selezionato?"));
    QVERIFY(!s.Command16_Click());
    i.rispondiSi(QStringLiteral("Attenzione, cancellare lo stato selezionato?"));
    QVERIFY(s.Command16_Click());
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QVERIFY(s.griglia().isEmpty());

    s.selezionaTabella(TabellaCodici::TipoAlloggiato);
    QVERIFY(!s.Command16_Click());
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Attenzione, selezionare il tipo alloggiato da cancellare"));
    QVERIFY(i.errore().isEmpty());
}

void TestTabelleCodici::schermataRicercaERipristino()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("1"), QStringLiteral("Roma"), QStringLiteral("RM"), QStringLiteral("00100"));
    t.comune(QStringLiteral("2"), QStringLiteral("Romagnano Sesia"), QStringLiteral("NO"));
    t.comune(QStringLiteral("3"), QStringLiteral("Cento_Croci"), QStringLiteral("GE"));
    auto& i = t.interazione();
    int ripristini = 0;
    const QString riferimento = scriviFile(t.cartella(), QStringLiteral("ArchivioCodici.mdb"), "x");
    ArchivioCodici s(t.archivio(), i, riferimento, [&](TabellaCodici) -> std::optional<int> {
        ++ripristini;
        return ripristini == 1 ? std::optional<int>(7) : std::nullopt;
    });
    s.selezionaTabella(TabellaCodici::Comuni);
    QCOMPARE(s.griglia().size(), 3);
    s.ricerca().descrizione = QStringLiteral("ROMA");
    s.Command2_Click();
    QCOMPARE(s.griglia().size(), 2);
    s.ricerca().provincia = QStringLiteral("rm");
    s.Command2_Click();
    QCOMPARE(s.griglia().size(), 1);
    QCOMPARE(s.griglia().first().cap, QStringLiteral("00100"));
    // A typed underscore is a character, not a wildcard.
    s.CancellaCampiRicerca_Click();
    s.ricerca().descrizione = QStringLiteral("o_C");
    s.Command2_Click();
    QCOMPARE(s.griglia().size(), 1);

    i.rispondiNo(QStringLiteral("ripristinerà quelli originali"));
    s.Command3_Click();
    QCOMPARE(ripristini, 0);
    i.rispondiSi(QStringLiteral("ripristinerà quelli originali"));
    s.Command3_Click();
    QCOMPARE(ripristini, 1);
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Procedura terminata\n\nTabella dei comuni: 7 righe ripristinate"));
    // A reset that failed says so: the desk must not believe the table was restored.
    i.rispondiSi(QStringLiteral("ripristinerà quelli originali"));
    s.Command3_Click();
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Ripristino non riuscito: la tabella dei comuni è rimasta com'era."));
    // Without the reference archive the command does nothing at all.
    ArchivioCodici senza(t.archivio(), i, t.cartella() + QStringLiteral("/manca.mdb"),
                         [&](TabellaCodici) -> std::optional<int> { return ++ripristini; });
    i.pulisci();
    senza.Command3_Click();
    QVERIFY(i.testi().isEmpty());
    QVERIFY(i.errore().isEmpty());
}

void TestTabelleCodici::ripristinoDalRiferimento()
{
    test::ArchivioOspiti t;
    const QString percorso = t.cartella() + QStringLiteral("/ArchivioCodici.mdb");
    {
        Archivio riferimento(percorso, t.errori());
        QVERIFY(riferimento.apri(Archivio::Apertura::Crea));
        QVERIFY(preparaArchivioCodici(riferimento));
        QVERIFY(scriviRigheCodici(riferimento, TabellaCodici::Documenti,
                                  { { QStringLiteral("IDENT"), QStringLiteral("CARTA DI IDENTITA'"), {} },
                                    { QStringLiteral("PASOR"), QStringLiteral("PASSAPORTO ORDINARIO"), {} } }));
    }
    t.archivio().comando(QStringLiteral("INSERT INTO TabellaCodiciDocumenti (Codice, Documento) VALUES ('X', 'Mio')"));
    auto& i = t.interazione();
    ArchivioCodici s(t.archivio(), i, percorso, ripristinoDaArchivioCodici(t.archivio(), t.errori(), percorso));
    s.selezionaTabella(TabellaCodici::Documenti);
    QCOMPARE(s.griglia().size(), 1);
    i.rispondiSi(QStringLiteral("ripristinerà quelli originali"));
    s.Command3_Click();
    QCOMPARE(i.ultimoTesto(), QStringLiteral("Procedura terminata\n\nTabella dei documenti: 2 righe ripristinate"));
    QCOMPARE(s.griglia().size(), 2);
    QCOMPARE(s.griglia().first().descrizione, QStringLiteral("CARTA DI IDENTITA'"));
    QCOMPARE(CercaCodiceTabella(t.archivio(), QStringLiteral("passaporto ordinario"), QStringLiteral("Documento")),
             QStringLiteral("PASOR"));
}

TOMVERA_TEST(TestTabelleCodici)

#include "test_codici.moc"
