#include "archiviotemporaneo.h"
#include "foundation/immagini.h"
#include "foundation/ricerche.h"
#include "foundation/routines.h"
#include "foundation/schema/definizione.h"
#include "foundation/stampanti.h"
#include "foundation/variabili.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

using namespace tomvera;
using namespace tomvera::schema;

namespace {

// Pictures live in long binary fields; a table of the test's own keeps these tests apart from any screen's.
void creaTabellaImmagini(Archivio& a)
{
    QVERIFY(applicaTabella(
        a, Tabella { QStringLiteral("ProvaImmagini"), { contatore(), binario(QStringLiteral("Immagine")) }, {}, {} }));
}

QString scriviFile(const QString& cartella, const QByteArray& contenuto)
{
    const QString percorso = QDir(cartella).filePath(QStringLiteral("immagine.gif"));
    QFile f(percorso);
    if (f.open(QIODevice::WriteOnly))
        f.write(contenuto);
    return percorso;
}

} // namespace

class TestVariabili : public QObject
{
    Q_OBJECT
private slots:
    void predefinitiERifiuti();
    void salvaAggiornaETieneGliAltriCampi();
};

void TestVariabili::predefinitiERifiuti()
{
    test::ArchivioTemporaneo t;
    Variabili v(t.archivio());
    QCOMPARE(v.LeggiVariabileBooleana(chiavi::F_Prenotazione_Duplice), false);
    QCOMPARE(v.LeggiVariabileNumero(chiavi::F_Avvio_NroPiano), 0.0);
    QCOMPARE(v.LeggiVariabileStringa(chiavi::F_StampaIstat_Referente), QString());

    // Too long for the field: refused whole, nothing half written.
    QVERIFY(!v.SalvaVariabileStringa(QString(51, QLatin1Char('k')), QStringLiteral("x")));
    QVERIFY(!v.SalvaVariabileStringa(chiavi::DocumentoNew_TipoArt, QString(201, QLatin1Char('v'))));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Variabili")).toInt(), 0);

    // No table at all (a damaged archive): the same defaults, and the policy swallows the error.
    test::ArchivioTemporaneo vuoto(false);
    Variabili senza(vuoto.archivio());
    QCOMPARE(senza.LeggiVariabileNumero(chiavi::F_Avvio_NroPiano), 0.0);
    QVERIFY(!senza.SalvaVariabileNumero(chiavi::F_Avvio_NroPiano, 2));
}

void TestVariabili::salvaAggiornaETieneGliAltriCampi()
{
    test::ArchivioTemporaneo t;
    Variabili v(t.archivio());
    QVERIFY(v.SalvaVariabileNumero(chiavi::F_Avvio_NroPiano, 2));
    QVERIFY(v.SalvaVariabileNumero(chiavi::F_Avvio_NroPiano, 3.5));
    QCOMPARE(v.LeggiVariabileNumero(chiavi::F_Avvio_NroPiano), 3.5);

    // One key, three kinds: writing one leaves the others as they were.
    const QString k = chiavi::F_ImportazioneCentralinoTelefonico_SoloNonAddebit;
    QVERIFY(v.SalvaVariabileBooleana(k, true));
    QVERIFY(v.SalvaVariabileStringa(k, QStringLiteral("dell'Hotel")));
    QVERIFY(v.SalvaVariabileNumero(k, -1));
    QCOMPARE(v.LeggiVariabileBooleana(k), true);
    QCOMPARE(v.LeggiVariabileStringa(k), QStringLiteral("dell'Hotel"));
    QVERIFY(v.SalvaVariabileBooleana(k, false));
    QCOMPARE(v.LeggiVariabileBooleana(k), false);
    QCOMPARE(v.LeggiVariabileNumero(k), -1.0);

    // The key is found whatever its case and stays one row; an empty text is stored as "", not null.
    QCOMPARE(v.LeggiVariabileNumero(QStringLiteral("f_avvio_nropiano")), 3.5);
    QVERIFY(v.SalvaVariabileStringa(chiavi::F_StampaSistuazione_StampaNote, QString()));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Variabili")).toInt(), 3);
    QCOMPARE(t.archivio()
                 .valore(QStringLiteral("SELECT count(*) FROM Variabili WHERE ValoreStringa = '' AND NomeVar = ?"),
                         { QStringLiteral("F_StampaSistuazione_StampaNote") })
                 .toInt(),
             1);
}

TOMVERA_TEST(TestVariabili)

class TestRicerche : public QObject
{
    Q_OBJECT
private slots:
    void camere();
    void spiaggia();
};

void TestRicerche::camere()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NomeTipologia, Colore) "
                                     "VALUES ('DBL', 'Doppia', 255), ('SGL', 'Singola', 0)")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, CodiceTipologia) "
                                     "VALUES ('101', 'DBL'), ('102', '')")));

    QCOMPARE(ColoreTipologiaCamera(a, QStringLiteral("dbl")), std::optional<double>(255));
    // Black is a colour, not "missing".
    QCOMPARE(ColoreTipologiaCamera(a, QStringLiteral("SGL")), std::optional<double>(0));
    QCOMPARE(ColoreTipologiaCamera(a, QStringLiteral("TRP")), std::nullopt);
    QCOMPARE(TipologiaDaColore(a, 255), QStringLiteral("DBL"));
    QCOMPARE(NomeTipologiaCamera(a, QStringLiteral("SGL")), QStringLiteral("Singola"));
    QCOMPARE(CodiceTipologiaCamera(a, QStringLiteral("101")), QStringLiteral("DBL"));
    QVERIFY(EsisteCamera(a, QStringLiteral("102")));
    QVERIFY(!EsisteCamera(a, QStringLiteral("10")));

    // A name with apostrophes, placed between quotes the old way: RaddoppiaApici keeps it whole.
    const QString nome = QStringLiteral("Vista sull'Isola d'Elba");
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NomeTipologia) "
                                     "VALUES ('VIS', ?)"),
                      { nome }));
    QCOMPARE(a.valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaTipologieCamere WHERE NomeTipologia = '")
                      + RaddoppiaApici(nome) + QStringLiteral("'"))
                 .toString(),
             QStringLiteral("VIS"));
    QVERIFY(t.interazione().testi().isEmpty());
}

void TestRicerche::spiaggia()
{
    test::ArchivioTemporaneo t;
    Archivio& a = t.archivio();
    QVERIFY(a.comando(
        QStringLiteral("INSERT INTO TabellaTipologieArticoliSpiaggia (CodiceArticolo, Articolo, Colore, Tipo) "
                       "VALUES ('T1', 'Tenda', 111, 'Prenotabile'), "
                       "('Sc', 'Scogliera', 222, 'Non Prenotabile')")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaSettoriSpiaggia (CodiceSettore, Settore, Colore) "
                                     "VALUES ('A', 'Prima fila', 65280)")));
    QVERIFY(
        a.comando(QStringLiteral("INSERT INTO TabellaTipologieAttrezzatureSpiaggia (CodiceAttrezzatura, Attrezzatura) "
                                 "VALUES ('LET', 'Lettino')")));
    QVERIFY(a.comando(QStringLiteral("INSERT INTO TabellaTipologiePacchettiSpiaggia (CodicePacchetto, Pacchetto) "
                                     "VALUES ('P1', 'Ombrellone e due lettini')")));

    QCOMPARE(ColoreArticoloSpiaggia(a, QStringLiteral("t1")), std::optional<double>(111));
    QCOMPARE(ArticoloDaColore(a, 222), QStringLiteral("Sc"));
    QCOMPARE(CodiceArticoloSpiaggia(a, QStringLiteral("scogliera")), QStringLiteral("Sc"));
    QVERIFY(ArticoloPrenotabile(a, QStringLiteral("T1")));
    QVERIFY(!ArticoloPrenotabile(a, QStringLiteral("Sc")));
    QCOMPARE(SettoreDaColore(a, 65280), QStringLiteral("A"));
    QCOMPARE(DescrizioneSettoreSpiaggia(a, QStringLiteral("a")), QStringLiteral("Prima fila"));
    QCOMPARE(DescrizioneAttrezzaturaSpiaggia(a, QStringLiteral("LET")), QStringLiteral("Lettino"));
    QVERIFY(EsistePacchettoSpiaggia(a, QStringLiteral("p1")));
    QVERIFY(!EsisteSettoreSpiaggia(a, QStringLiteral("B")));
    QCOMPARE(DescrizionePacchettoSpiaggia(a, QStringLiteral("P2")), QString());
}

TOMVERA_TEST(TestRicerche)

class TestImmaginiEStampanti : public QObject
{
    Q_OBJECT
private slots:
    void immagineTornaUgualeAlFile();
    void immagineMancanteOVuota();
    void stampantiPredefinite();
};

void TestImmaginiEStampanti::immagineTornaUgualeAlFile()
{
    test::ArchivioTemporaneo t;
    creaTabellaImmagini(t.archivio());
    const QString cartellaProgramma = QDir(t.cartella()).filePath(QStringLiteral("programma"));
    QVERIFY(QDir().mkpath(cartellaProgramma));
    // Shorter than a piece, exactly one, a remainder and several: the pieces' order must not show.
    for (const int dimensione : { 100, 2048, 2048 * 3 + 517 }) {
        QByteArray contenuto(dimensione, '\0');
        for (char& c : contenuto)
            c = static_cast<char>(QRandomGenerator::global()->bounded(256));
        const RigaImmagine riga { QStringLiteral("ProvaImmagini"), QStringLiteral("Immagine"), QStringLiteral("Indice"),
                                  dimensione };
        QVERIFY(SalvaImmagine(t.archivio(), riga, scriviFile(t.cartella(), contenuto), ModoImmagine::AddNew));
        const QString letto = CaricaImmagine(t.archivio(), riga, cartellaProgramma);
        QCOMPARE(letto, QDir(cartellaProgramma).filePath(QStringLiteral("img_temp.bin")));
        QFile f(letto);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), contenuto);
    }
}

void TestImmaginiEStampanti::immagineMancanteOVuota()
{
    test::ArchivioTemporaneo t;
    creaTabellaImmagini(t.archivio());
    RigaImmagine riga { QStringLiteral("ProvaImmagini"), QStringLiteral("Immagine"), QStringLiteral("Indice"), 7 };
    const QString file = scriviFile(t.cartella(), "BM");
    // No row to edit, no file to read, no row to load; a field name that isn't a plain name never reaches the SQL.
    QVERIFY(!SalvaImmagine(t.archivio(), riga, file, ModoImmagine::Edit));
    QVERIFY(!SalvaImmagine(t.archivio(), riga, file + QStringLiteral("x"), ModoImmagine::AddNew));
    QCOMPARE(CaricaImmagine(t.archivio(), riga, t.cartella()), QString());
    RigaImmagine cattiva = riga;
    cattiva.campo = QStringLiteral("Immagine = NULL; --");
    QVERIFY(!SalvaImmagine(t.archivio(), cattiva, file, ModoImmagine::AddNew));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM ProvaImmagini")).toInt(), 0);

    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO ProvaImmagini (Indice) VALUES (7)")));
    QVERIFY(SalvaImmagine(t.archivio(), riga, scriviFile(t.cartella(), QByteArray()), ModoImmagine::Edit));
    QCOMPARE(CaricaImmagine(t.archivio(), riga, t.cartella()), QString());
    QVERIFY(SalvaImmagine(t.archivio(), riga, scriviFile(t.cartella(), "BM"), ModoImmagine::Edit));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT Immagine FROM ProvaImmagini")).toByteArray(), QByteArray("BM"));
}

void TestImmaginiEStampanti::stampantiPredefinite()
{
    test::ArchivioTemporaneo t;
    // A fresh archive names no printer.
    QCOMPARE(CaricaStampantiPredefinite(t.archivio()).prnPdf, QString());
    QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO Configurazioni DEFAULT VALUES")));
    QVERIFY(t.archivio().comando(QStringLiteral("UPDATE Configurazioni SET prnDocs = 'Moduli A5', "
                                                "prnDocumenti = 'Laser Reception', prnPdf = NULL")));
    const StampantiPredefinite s = CaricaStampantiPredefinite(t.archivio());
    QCOMPARE(s.prnDocs, QStringLiteral("Moduli A5"));
    QCOMPARE(s.prnDocumenti, QStringLiteral("Laser Reception"));
    QVERIFY(s.prnPdf.isEmpty());

    const QStringList installate { QStringLiteral("Laser Reception"), QStringLiteral("PDFCreator") };
    QCOMPARE(scegliStampante(installate, QStringLiteral("Laser Reception")), QStringLiteral("Laser Reception"));
    // Device names compare exactly, as the system lists them.
    QCOMPARE(scegliStampante(installate, QStringLiteral("laser reception")), std::nullopt);
    QCOMPARE(scegliStampante(installate, QString()), std::nullopt);
    QCOMPARE(scegliStampantePdf(installate, QStringLiteral("Microsoft Print to PDF")), QStringLiteral("PDFCreator"));
    QCOMPARE(scegliStampantePdf({ QStringLiteral("Laser Reception") }, QString()), std::nullopt);
}

TOMVERA_TEST(TestImmaginiEStampanti)

#include "test_variabili.moc"
