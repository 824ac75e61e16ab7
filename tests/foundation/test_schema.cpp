#include "archiviotemporaneo.h"
#include "comandi.h"
#include "foundation/schema/codici.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/tabelle.h"
#include "foundation/schema/versione.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTest>

using namespace tomvera;

namespace {

CreazioneDB::Percorsi percorsiPer(const QString& archivio)
{
    CreazioneDB::Percorsi p;
    p.archivio = archivio;
    p.cartellaImmagini = qEnvironmentVariable("TOMVERA_DATA_DIR") + QStringLiteral("/immagini");
    p.archivioCodici = QFileInfo(archivio).absoluteDir().filePath(QStringLiteral("nessuno.mdb"));
    return p;
}

QStringList crea(test::ArchivioTemporaneo& t)
{
    QStringList registro;
    CreazioneDB(percorsiPer(t.percorso()), t.errori(), [&](const QString& r) { registro << r; }).CreaDB_Click();
    return registro;
}

QStringList nomiTabelle(Archivio& a)
{
    QStringList nomi;
    for (const QSqlRecord& r : a.righe(QStringLiteral(
             "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name")))
        nomi << r.value(0).toString();
    return nomi;
}

// Column definitions as stored: the text between the outer brackets of CREATE TABLE, split at top level.
// A column added later is appended to the same text, so a set comparison ignores the order of fields.
QSet<QString> definizioniColonne(Archivio& a, const QString& tabella)
{
    const QString sql
        = a.valore(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?"), { tabella })
              .toString();
    const QString corpo = sql.mid(sql.indexOf(QLatin1Char('(')) + 1).chopped(1);
    QSet<QString> definizioni;
    int profondita = 0;
    QString corrente;
    for (const QChar c : corpo) {
        if (c == QLatin1Char('('))
            ++profondita;
        else if (c == QLatin1Char(')'))
            --profondita;
        if (c == QLatin1Char(',') && profondita == 0) {
            definizioni << corrente.trimmed();
            corrente.clear();
        } else {
            corrente += c;
        }
    }
    definizioni << corrente.trimmed();
    return definizioni;
}

QStringList indici(Archivio& a)
{
    QStringList elenco;
    for (const QSqlRecord& r : a.righe(QStringLiteral("SELECT tbl_name || ': ' || sql FROM sqlite_master WHERE type = "
                                                      "'index' AND sql IS NOT NULL ORDER BY name")))
        elenco << r.value(0).toString();
    return elenco;
}

// Everything an archive holds: each object's definition and every row of every table.
QStringList contenuto(Archivio& a)
{
    QStringList tutto;
    for (const QSqlRecord& r : a.righe(QStringLiteral("SELECT type, name, sql FROM sqlite_master ORDER BY name")))
        tutto << r.value(0).toString() + QLatin1Char(' ') + r.value(1).toString() + QLatin1Char(' ')
                + r.value(2).toString();
    for (const QString& tabella : nomiTabelle(a)) {
        for (const QSqlRecord& r : a.righe(QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid").arg(tabella))) {
            QStringList valori;
            for (int i = 0; i < r.count(); ++i)
                valori << (r.isNull(i) ? QStringLiteral("<null>") : r.value(i).toString());
            tutto << tabella + QStringLiteral(": ") + valori.join(QLatin1Char('|'));
        }
    }
    return tutto;
}

schema::Tabella senzaCampi(schema::Tabella t, const QStringList& campi)
{
    t.campi.erase(
        std::remove_if(t.campi.begin(), t.campi.end(), [&](const schema::Campo& c) { return campi.contains(c.nome); }),
        t.campi.end());
    return t;
}

} // namespace

class TestCreazioneArchivio : public QObject
{
    Q_OBJECT
private slots:
    void registroDelleTabelle();
    void creareDueVolteNonCambiaNulla();
    void archivioVecchioPortatoAlloSchemaNuovo();
    void archivioSkyAccanto();
};

void TestCreazioneArchivio::registroDelleTabelle()
{
    test::ArchivioTemporaneo t(false);
    const QStringList registro = crea(t);
    const int tabelle = schema::tabelleArchivio().size() + schema::tabelleArchivioSky().size();
    QCOMPARE(registro.size(), tabelle + 1);
    QCOMPARE(registro.first(), QStringLiteral("Controllo Tabella Configurazioni Effettuato"));
    QCOMPARE(registro.at(1), QStringLiteral("Controllo Tabella Versione Effettuato"));
    QVERIFY(registro.contains(QStringLiteral("Controllo Tabella Anagrafiche Effettuato")));
    QVERIFY(registro.contains(QStringLiteral("Controllo Tabella Testate Effettuato")));
    QVERIFY(registro.contains(QStringLiteral("Controllo Tabella RigheSky Effettuato")));
    QCOMPARE(registro.last(), QStringLiteral("COMANDO ESEGUITO"));
    // Every declared table of the main archive is there, and the pay-TV tables are not.
    QStringList attese;
    for (const schema::Tabella& tab : schema::tabelleArchivio())
        attese << tab.nome;
    attese.sort(Qt::CaseInsensitive);
    QStringList presenti = nomiTabelle(t.archivio());
    presenti.sort(Qt::CaseInsensitive);
    QCOMPARE(presenti, attese);
}

void TestCreazioneArchivio::creareDueVolteNonCambiaNulla()
{
    test::ArchivioTemporaneo t(false);
    crea(t);
    // Some user data, including a widened exchange field, must survive a second run untouched.
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO TabellaMovimentiCentralino (Linea, Stato) VALUES (?, ?)"),
                                 { QStringLiteral("L12"), QStringLiteral("Addebitato") }));
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO TabellaPrenotazioni (NumeroPrenotazione, Stato, "
                                                "Saldato, PrenotazioneChiusa) VALUES (1, 'Saldato', 0, 1)")));
    Archivio sky(CreazioneDB::percorsoSkyAccanto(t.percorso()), t.errori());
    QVERIFY(sky.apri());
    const QStringList prima = contenuto(t.archivio());
    const QStringList primaSky = contenuto(sky);
    const QStringList registro = crea(t);
    QCOMPARE(registro.last(), QStringLiteral("COMANDO ESEGUITO"));
    QCOMPARE(contenuto(t.archivio()), prima);
    QCOMPARE(contenuto(sky), primaSky);
}

void TestCreazioneArchivio::archivioVecchioPortatoAlloSchemaNuovo()
{
    test::ArchivioTemporaneo vecchio(false);
    Archivio& a = vecchio.archivio();
    // An older archive: a few tables, some of them without the fields added since.
    QVERIFY(schema::applicaTabella(a,
                                   senzaCampi(schema::TabellaPrenotazioni(),
                                              { QStringLiteral("Saldato"), QStringLiteral("PrenotazioneChiusa"),
                                                QStringLiteral("CodiceAzienda") })));
    QVERIFY(schema::applicaTabella(
        a,
        senzaCampi(schema::TabellaAnagraficheAssociatePrenotazioni(),
                   { QStringLiteral("Arrivato"), QStringLiteral("IndiceRiga"), QStringLiteral("ResidenzaIstat"),
                     QStringLiteral("CodiceTipoDiAlloggiato"), QStringLiteral("TipoTurismo") })));
    QVERIFY(schema::applicaTabella(
        a,
        senzaCampi(schema::TabellaTestate(), { QStringLiteral("TotalePagato"), QStringLiteral("TotaleNonPagato") })));
    QVERIFY(schema::applicaTabella(a, schema::TabellaMovimentiCentralino()));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaPrenotazioni (NumeroPrenotazione, Stato) VALUES "
                                     "(1, 'saldato'), (2, 'Confermata')")));
    QVERIFY(a.comando(QStringLiteral(
        "INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndicePrenotazioneAssociata, NroArrivo, Provincia, "
        "Nazione, ResidenzaItaliana) VALUES (1, 7, 'RN', 'Italia', 1), (1, 0, 'RN', 'Italia', 1), "
        "(2, 0, '', 'Germania', 0)")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO Testate (DataDoc, NroDoc, TipoDoc, totale) "
                                     "VALUES ('2025-07-01', 1, 'Fattura', 120.5)")));

    crea(vecchio);

    test::ArchivioTemporaneo nuovo(false);
    crea(nuovo);
    QCOMPARE(nomiTabelle(a), nomiTabelle(nuovo.archivio()));
    for (const QString& tabella : nomiTabelle(a))
        QCOMPARE(definizioniColonne(a, tabella), definizioniColonne(nuovo.archivio(), tabella));
    QCOMPARE(indici(a), indici(nuovo.archivio()));

    // The rows that predate the new fields got their values.
    QCOMPARE(a.valore(QStringLiteral("SELECT group_concat(Saldato || '/' || PrenotazioneChiusa) FROM "
                                     "(SELECT * FROM TabellaPrenotazioni ORDER BY Indice)"))
                 .toString(),
             QStringLiteral("1/0,0/0"));
    QCOMPARE(a.valore(QStringLiteral("SELECT group_concat(Arrivato || '/' || IndiceRiga || '/' || ResidenzaIstat) "
                                     "FROM (SELECT * FROM TabellaAnagraficheAssociatePrenotazioni ORDER BY Indice)"))
                 .toString(),
             QStringLiteral("1/1/RN,0/2/RN,0/1/Germania"));
    QCOMPARE(a.valore(QStringLiteral("SELECT TotalePagato || '/' || TotaleNonPagato FROM Testate")).toString(),
             QStringLiteral("120.5/0.0"));
    // The exchange fields created narrow are widened.
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaMovimentiCentralino (Linea) VALUES (?)"),
                      { QString(250, QLatin1Char('x')) }));
}

void TestCreazioneArchivio::archivioSkyAccanto()
{
    test::ArchivioTemporaneo t(false);
    crea(t);
    const QString sky = QDir(t.cartella()).filePath(QStringLiteral("ArchivioSky.mdb"));
    QVERIFY(QFileInfo::exists(sky));
    Archivio archivioSky(sky, t.errori());
    QVERIFY(archivioSky.apri());
    QStringList presenti = nomiTabelle(archivioSky);
    presenti.sort();
    QCOMPARE(presenti,
             QStringList({ QStringLiteral("TabellaCamereSky"), QStringLiteral("TabellaCheckInSky"),
                           QStringLiteral("TabellaCheckOutSky"), QStringLiteral("TabellaConfigurazioniSky"),
                           QStringLiteral("TabellaRigheSky"), QStringLiteral("TabellaStatoCamereSky") }));
}

TOMVERA_TEST(TestCreazioneArchivio)

class TestRiparazioniESemi : public QObject
{
    Q_OBJECT
private slots:
    void valorizzaSoloLeRigheNulle();
    void articoliSpiaggiaSoloInTabellaVuota();
    void testiTroppoLunghiOVuotiRifiutati();
    void codiciDallArchivioDiRiferimento();
};

void TestRiparazioniESemi::valorizzaSoloLeRigheNulle()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaCodiciTipoAlloggiato (Codice, TipoAlloggiato) VALUES "
                                     "('16', 'OSPITE SINGOLO'), ('19', 'FAMILIARE')")));
    // Null rows next to rows whose values are already set, and some set to the opposite of the rule.
    QVERIFY(a.comando(QStringLiteral(
        "INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndicePrenotazioneAssociata, NroArrivo, Arrivato, "
        "IndiceRiga, TipoDiAlloggiato, CodiceTipoDiAlloggiato) VALUES "
        "(5, 3, NULL, NULL, 'familiare', NULL), (5, 3, 0, 9, 'OSPITE SINGOLO', 'X'), "
        "(5, 0, NULL, NULL, 'sconosciuto', NULL)")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaListinoSale (Giorno) VALUES (''), (NULL), ('Lunedì')")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaMovimenti (Tipo, PrenotazioneChiusa) VALUES "
                                     "('PrenotazioneCamera', NULL), ('Accessori', NULL), ('PrenotazioneCamera', 1)")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO Testate (DataDoc, NroDoc, TipoDoc, Totale, TotalePagato, "
                                     "TotaleNonPagato) VALUES ('2025-01-01', 1, 'Fattura', 100, 30, NULL), "
                                     "('2025-01-01', 2, 'Fattura', 100, NULL, 20), "
                                     "('2025-01-01', 3, 'Fattura', 100, 10, 10)")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO Configurazioni (MessaggioFineDoc, MostraMessaggioFineDoc, "
                                     "NascondiFirmeSchedaDiNotifica) VALUES ('Grazie', 1, 1)")));

    CreazioneDB creazione(percorsiPer(t.percorso()), t.errori());
    creazione.ValorizzaCampiNulli(a);

    auto elenco = [&](const char* sql) { return a.valore(QString::fromUtf8(sql)).toString(); };
    QCOMPARE(elenco("SELECT group_concat(Arrivato || '/' || IndiceRiga || '/' || CodiceTipoDiAlloggiato) FROM "
                    "(SELECT * FROM TabellaAnagraficheAssociatePrenotazioni ORDER BY Indice)"),
             QStringLiteral("1/1/19,0/9/X,0/3/"));
    QCOMPARE(elenco("SELECT group_concat(Giorno) FROM (SELECT * FROM TabellaListinoSale ORDER BY Indice)"),
             QStringLiteral("<Tutti>,<Tutti>,Lunedì"));
    // Only room rows are opened; extras keep their null.
    QCOMPARE(elenco("SELECT group_concat(coalesce(PrenotazioneChiusa, 'n')) FROM "
                    "(SELECT * FROM TabellaMovimenti ORDER BY Indice)"),
             QStringLiteral("0,n,1"));
    // The missing half of a document's split follows from its total; a complete split is left alone.
    QCOMPARE(elenco("SELECT group_concat(TotalePagato || '/' || TotaleNonPagato) FROM "
                    "(SELECT * FROM Testate ORDER BY NroDoc)"),
             QStringLiteral("30.0/70.0,80.0/20.0,10.0/10.0"));
    QCOMPARE(elenco("SELECT MessaggioModuloArrivo || '/' || MostraMessaggioModuloArrivo || '/' || "
                    "NascondiFirmeSchedaDiNotificaDichiarante FROM Configurazioni"),
             QStringLiteral("Grazie/1/1"));

    const QStringList dopo = contenuto(a);
    creazione.ValorizzaCampiNulli(a);
    QCOMPARE(contenuto(a), dopo);
}

void TestRiparazioniESemi::articoliSpiaggiaSoloInTabellaVuota()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    const QString articoli = QStringLiteral("SELECT group_concat(CodiceArticolo || ':' || Articolo || ':' || Colore "
                                            "|| ':' || PercorsoImmagineArticoloOccupato || ':' || Tipo || ':' || "
                                            "AltezzaArticoloOccupato, ';') FROM "
                                            "(SELECT * FROM TabellaTipologieArticoliSpiaggia ORDER BY Indice)");
    const QString attesi = QStringLiteral("01:Ombrellone:12615680.0:01occupato.gif:Prenotabile:0.9;"
                                          "02:Ombrellone Hawaiano:65535.0:02occupato.gif:Prenotabile:1.8;"
                                          "03:Cabina:33023.0:03occupato.jpg:Prenotabile:1.0;"
                                          "Pass:Passerella:8421504.0:Passoccupato.gif:Non Prenotabile:1.0;"
                                          "Stab:Stabilimento:16384.0:Staboccupato.gif:Non Prenotabile:2.0");
    QCOMPARE(a.valore(articoli).toString(), attesi);
    // The shipped pictures were put where the map looks for them.
    const QDir immagini(CreazioneDB::cartellaImmaginiSpiaggia(t.percorso()));
    QVERIFY(QFileInfo(immagini.filePath(QStringLiteral("03libero.jpg"))).size() > 0);
    QVERIFY(QFileInfo(immagini.filePath(QStringLiteral("Staboccupato.gif"))).size() > 0);

    CreazioneDB creazione(percorsiPer(t.percorso()), t.errori());
    QVERIFY(a.comando(QStringLiteral("DELETE FROM TabellaTipologieArticoliSpiaggia")));
    creazione.CreaArticoliSpiaggia(a);
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaTipologieArticoliSpiaggia")).toInt(), 5);

    // A user's own item alone is kept alone.
    QVERIFY(a.comando(QStringLiteral("DELETE FROM TabellaTipologieArticoliSpiaggia")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaTipologieArticoliSpiaggia (CodiceArticolo) VALUES ('L')")));
    creazione.CreaArticoliSpiaggia(a);
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaTipologieArticoliSpiaggia")).toInt(), 1);
}

void TestRiparazioniESemi::testiTroppoLunghiOVuotiRifiutati()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    const QString anagrafica = QStringLiteral("INSERT INTO TabellaAnagrafiche (CodiceAnagrafica, MaschioFemmina) "
                                              "VALUES (?, ?)");
    QVERIFY(a.comando(anagrafica, { QString(250, QLatin1Char('1')), QStringLiteral("Maschio") }));
    QVERIFY(!a.comando(anagrafica, { QString(251, QLatin1Char('2')), QStringLiteral("Maschio") }));
    QVERIFY(!a.comando(anagrafica, { QStringLiteral("3"), QString(51, QLatin1Char('F')) }));
    // Zero length is allowed where nothing says otherwise, but a code stays unique whatever its case.
    QVERIFY(a.comando(anagrafica, { QStringLiteral("Ab"), QString() }));
    QVERIFY(!a.comando(anagrafica, { QStringLiteral("aB"), QString() }));

    const QString variabile = QStringLiteral("INSERT INTO Variabili (NomeVar, ValoreStringa) VALUES (?, ?)");
    QVERIFY(!a.comando(variabile, { QString(), QStringLiteral("x") }));
    QVERIFY(!a.comando(variabile, { QVariant(QMetaType::fromType<QString>()), QStringLiteral("x") }));
    QVERIFY(a.comando(variabile, { QStringLiteral("Avvio_Grafica"), QString() }));

    // The document key: no two headers with the same triple, and no header without it.
    const QString testata = QStringLiteral("INSERT INTO Testate (DataDoc, NroDoc, TipoDoc) VALUES (?, ?, ?)");
    QVERIFY(a.comando(testata, { QStringLiteral("2026-01-02"), 1, QStringLiteral("Fattura") }));
    QVERIFY(!a.comando(testata, { QStringLiteral("2026-01-02"), 1, QStringLiteral("FATTURA") }));
    QVERIFY(!a.comando(testata, { QVariant(), 2, QStringLiteral("Fattura") }));
    QVERIFY(a.comando(testata, { QStringLiteral("2026-01-02"), 1, QStringLiteral("Ricevuta Fiscale") }));
}

void TestRiparazioniESemi::codiciDallArchivioDiRiferimento()
{
    test::ArchivioTemporaneo riferimento(false, QStringLiteral("ArchivioCodici.mdb"));
    QVERIFY(schema::applicaTabella(riferimento.archivio(), schema::TabellaCodiciStati()));
    QVERIFY(riferimento.archivio().comando(QStringLiteral("INSERT INTO TabellaCodiciStati (Codice, Stato, Provincia) "
                                                          "VALUES ('100000216', 'GERMANIA', 'D'), "
                                                          "('100000100', 'ITALIA', 'I')")));

    // A new archive is seeded from the reference when the file is there.
    test::ArchivioTemporaneo t(false);
    CreazioneDB::Percorsi p = percorsiPer(t.percorso());
    p.archivioCodici = riferimento.percorso();
    QVERIFY(CreazioneDB(p, t.errori()).CreaDB_Click());
    Archivio& a = t.archivio();
    const QString stati = QStringLiteral("SELECT group_concat(Codice || ':' || Stato || ':' || Provincia) FROM "
                                         "(SELECT * FROM TabellaCodiciStati ORDER BY Indice)");
    QCOMPARE(a.valore(stati).toString(), QStringLiteral("100000216:GERMANIA:D,100000100:ITALIA:I"));

    // Importa leaves a table with rows alone; Resetta replaces its rows.
    QVERIFY(a.comando(QStringLiteral("DELETE FROM TabellaCodiciStati WHERE Stato = 'ITALIA'")));
    QCOMPARE(schema::CopiaCodiciStati(a, riferimento.archivio(), schema::ModoCopiaCodici::Importa), 0);
    QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaCodiciStati")).toInt(), 1);
    QCOMPARE(schema::CopiaCodiciStati(a, riferimento.archivio(), schema::ModoCopiaCodici::Resetta), 2);
    QCOMPARE(a.valore(stati).toString(), QStringLiteral("100000216:GERMANIA:D,100000100:ITALIA:I"));
    // A reference without the table changes nothing.
    QCOMPARE(schema::CopiaCodiciComuni(a, riferimento.archivio(), schema::ModoCopiaCodici::Resetta), std::nullopt);
}

TOMVERA_TEST(TestRiparazioniESemi)

class TestComandoCreaArchivio : public QObject
{
    Q_OBJECT
private slots:
    void creaEScriveLaVersione();
    void rifiutaFileEstraneiECartelleMancanti();
};

void TestComandoCreaArchivio::creaEScriveLaVersione()
{
    QTemporaryDir cartella;
    const QString percorso = cartella.filePath(QStringLiteral("Archivio.mdb"));
    cli::Console console;
    QCOMPARE(cli::comandoCreaArchivio(cli::Argomenti({ QStringLiteral("--archivio"), percorso }), console),
             cli::EsitoOk);
    QCOMPARE(cli::comandoCreaArchivio(cli::Argomenti({ QStringLiteral("--archivio"), percorso }), console),
             cli::EsitoOk);
    QVERIFY(QFileInfo::exists(cartella.filePath(QStringLiteral("ArchivioSky.mdb"))));
    {
        GestioneErrori errori;
        Archivio a(percorso, errori);
        QVERIFY(a.apri());
        QCOMPARE(a.valore(QStringLiteral("SELECT count(*) FROM TabellaVersione")).toInt(), 1);
        QCOMPARE(schema::LeggiVersione(a), QStringLiteral("3.9.4"));
    }
    Archivio::chiudiConnessioni(percorso);
}

void TestComandoCreaArchivio::rifiutaFileEstraneiECartelleMancanti()
{
    QTemporaryDir cartella;
    const QString estraneo = cartella.filePath(QStringLiteral("Archivio.mdb"));
    const QByteArray testo("Lettera al fornitore: non un archivio.\n");
    {
        QFile f(estraneo);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(testo);
    }
    QCOMPARE(CreazioneDB::verificaFileArchivio(estraneo), QStringLiteral("Il file non è un archivio: ") + estraneo);
    cli::Console console;
    QCOMPARE(cli::comandoCreaArchivio(cli::Argomenti({ QStringLiteral("--archivio"), estraneo }), console),
             cli::EsitoErrore);
    {
        QFile f(estraneo);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), testo);
    }
    QVERIFY(!QFileInfo::exists(cartella.filePath(QStringLiteral("ArchivioSky.mdb"))));

    // A foreign ArchivioSky.mdb beside a new archive stops the command before the archive is made.
    QTemporaryDir altra;
    QFile sky(altra.filePath(QStringLiteral("ArchivioSky.mdb")));
    QVERIFY(sky.open(QIODevice::WriteOnly));
    sky.write(testo);
    sky.close();
    QCOMPARE(
        cli::comandoCreaArchivio(
            cli::Argomenti({ QStringLiteral("--archivio"), altra.filePath(QStringLiteral("Archivio.mdb")) }), console),
        cli::EsitoErrore);
    QVERIFY(!QFileInfo::exists(altra.filePath(QStringLiteral("Archivio.mdb"))));

    const QString senzaCartella = cartella.filePath(QStringLiteral("manca/Archivio.mdb"));
    QVERIFY(CreazioneDB::verificaFileArchivio(senzaCartella)
                .startsWith(QStringLiteral("La cartella dell'archivio non esiste: ")));
    QCOMPARE(cli::comandoCreaArchivio(cli::Argomenti({ QStringLiteral("--archivio"), senzaCartella }), console),
             cli::EsitoErrore);
    QCOMPARE(cli::comandoCreaArchivio(cli::Argomenti({ QStringLiteral("--archivio") }), console), cli::EsitoErrore);
}

TOMVERA_TEST(TestComandoCreaArchivio)

#include "test_schema.moc"
