#include "archivioschedine.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "statutory/schedine.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace tomvera;

namespace {

QByteArray leggiFile(const QString& percorso)
{
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<manca " + percorso.toUtf8() + '>');
}

QByteArray atteso(const char* nome)
{
    return leggiFile(qEnvironmentVariable("TOMVERA_TEST_DIR") + QStringLiteral("/data/") + QLatin1String(nome));
}

QString stato(Archivio& a, qint64 indice)
{
    return a
        .valore(QStringLiteral("SELECT StatoInvioTelematico FROM TabellaAnagraficheAssociatePrenotazioni "
                               "WHERE Indice = ?"),
                { indice })
        .toString();
}

// Only the tables the declaration reads: quicker than a whole archive.
class ArchivioSchedine : public test::ArchivioTemporaneo
{
public:
    ArchivioSchedine()
        : ArchivioTemporaneo(false)
    {
        for (const schema::Tabella& t :
             { schema::TabellaAnagraficheAssociatePrenotazioni(), schema::TabellaCodiciComuni(),
               schema::TabellaCodiciStati(), schema::TabellaCodiciDocumenti(), schema::TabellaCodiciTipoAlloggiato() })
            schema::applicaTabella(archivio(), t);
        ospiti = test::ospitiDiProva(archivio());
    }
    test::OspitiDiProva ospiti;
};

const QDateTime momento(QDate(2026, 3, 6), QTime(9, 41, 7));

FiltroSchedine dal5al6()
{
    FiltroSchedine f;
    f.dal = QDate(2026, 3, 5);
    f.al = QDate(2026, 3, 6);
    return f;
}

std::vector<qint64> indici(const std::vector<RigaSchedina>& righe)
{
    std::vector<qint64> v;
    for (const RigaSchedina& r : righe)
        v.push_back(r.indice);
    return v;
}

} // namespace

class TestEsportazioneSchedine : public QObject
{
    Q_OBJECT
private slots:
    void righeNellOrdineDelloSchermo();
    void fileIdenticoAlTracciato();
    void timbroSoloAFileCompleto();
    void esportazioneVuotaCancellaIlFile();
    void secondaEsportazioneSostituisceLaPrima();
    void cartellaMancanteNonTimbraNulla();
    void ricercaCodiciIgnoraIBianchiFinali();
};

void TestEsportazioneSchedine::righeNellOrdineDelloSchermo()
{
    ArchivioSchedine t;
    const auto& o = t.ospiti;
    FiltroSchedine f = dal5al6();
    auto righe = leggiRigheSchedine(t.archivio(), f);
    QVERIFY(righe);
    QCOMPARE(indici(*righe), (std::vector<qint64> { o.rossiMario, o.rossiLucia, o.rossiZoe, o.muller, o.bianchi }));
    QCOMPARE(contaRigheSchedine(t.archivio(), f), 5);

    f.soloDaInviare = false;
    righe = leggiRigheSchedine(t.archivio(), f);
    QCOMPARE(indici(*righe),
             (std::vector<qint64> { o.rossiMario, o.rossiLucia, o.rossiZoe, o.muller, o.giaInviato, o.bianchi }));

    f.al = QDate();
    QCOMPARE(leggiRigheSchedine(t.archivio(), f)->size(), size_t(7));
    f.dal = QDate(2026, 3, 6);
    f.al = QDate(2026, 3, 6);
    QCOMPARE(indici(*leggiRigheSchedine(t.archivio(), f)), std::vector<qint64> { o.bianchi });

    // The company narrows the list; the total deliberately does not.
    t.archivio().comando(QStringLiteral("UPDATE TabellaAnagraficheAssociatePrenotazioni SET CodiceAzienda = 'B' "
                                        "WHERE Indice = ?"),
                         { o.muller });
    f = dal5al6();
    f.codiceAzienda = QStringLiteral("B");
    QCOMPARE(indici(*leggiRigheSchedine(t.archivio(), f)), std::vector<qint64> { o.muller });
    QCOMPARE(contaRigheSchedine(t.archivio(), f), 5);

    righe = leggiRigheSchedine(t.archivio(), dal5al6());
    const RigaSchedina& r = righe->front();
    QCOMPARE(r.dataarrivo, QDate(2026, 3, 5));
    QCOMPARE(r.luogodocumento, QStringLiteral("L'AQUILA "));
    QVERIFY(r.nascitaitalia && !r.nascitaestero && r.documentoitalia && r.residenzaitaliana);
    QCOMPARE(ControllaCorrettezzaRiga(r), QString());
    QCOMPARE(ControllaCorrettezzaRiga(righe->at(2)), QStringLiteral("Sesso"));
}

void TestEsportazioneSchedine::fileIdenticoAlTracciato()
{
    ArchivioSchedine t;
    QTemporaryDir cartella;
    const auto righe = leggiRigheSchedine(t.archivio(), dal5al6());
    const EsitoEsportazione e = esportaSchedine(t.archivio(), *righe, cartella.path(), momento);
    QCOMPARE(e.stato, EsitoEsportazione::Stato::Esportate);
    QCOMPARE(e.esportate, 5);
    QCOMPARE(e.messaggio, QStringLiteral("Esportate 5 schede di notifica!"));
    QCOMPARE(e.file, QDir(cartella.path()).filePath(QStringLiteral("Schede Notifica del 06032026.txt")));
    QCOMPARE(leggiFile(e.file), atteso("schede_famiglia_e_gruppo.txt"));
    // No temporary file is left behind.
    QCOMPARE(QDir(cartella.path()).entryList(QDir::Files | QDir::Hidden), QStringList { QFileInfo(e.file).fileName() });

    // One marked row: no CR LF at all.
    QTemporaryDir altra;
    const EsitoEsportazione uno = esportaSchedine(t.archivio(), { righe->front() }, altra.path(), momento);
    QCOMPARE(leggiFile(uno.file), atteso("scheda_sola.txt"));
}

void TestEsportazioneSchedine::timbroSoloAFileCompleto()
{
    ArchivioSchedine t;
    const auto& o = t.ospiti;
    QTemporaryDir cartella;
    auto righe = *leggiRigheSchedine(t.archivio(), dal5al6());
    righe.erase(righe.begin() + 1);
    QCOMPARE(esportaSchedine(t.archivio(), righe, cartella.path(), momento).stato, EsitoEsportazione::Stato::Esportate);
    const QString timbro = QStringLiteral("Creato il 06/03/2026 alle 09:41:07");
    QCOMPARE(timbroInvio(momento), timbro);
    for (const qint64 i : { o.rossiMario, o.rossiZoe, o.muller, o.bianchi })
        QCOMPARE(stato(t.archivio(), i), timbro);
    QCOMPARE(stato(t.archivio(), o.rossiLucia), QString());
    QCOMPARE(stato(t.archivio(), o.giaInviato), QStringLiteral("Creato il 01/03/2026 alle 10:00:00"));
    // Sent rows leave the default list.
    QCOMPARE(indici(*leggiRigheSchedine(t.archivio(), dal5al6())), std::vector<qint64> { o.rossiLucia });
}

void TestEsportazioneSchedine::esportazioneVuotaCancellaIlFile()
{
    ArchivioSchedine t;
    QTemporaryDir cartella;
    const auto righe = *leggiRigheSchedine(t.archivio(), dal5al6());
    const QString file = esportaSchedine(t.archivio(), righe, cartella.path(), momento).file;
    QVERIFY(QFile::exists(file));
    const EsitoEsportazione e = esportaSchedine(t.archivio(), {}, cartella.path(), momento);
    QCOMPARE(e.stato, EsitoEsportazione::Stato::NessunaRiga);
    QCOMPARE(e.messaggio, QStringLiteral("Nessuna riga selezionata"));
    QVERIFY(!QFile::exists(file));
    // Another day's file is not touched.
    QFile ieri(tracciato::nomeFile(cartella.path(), QDate(2026, 3, 5)));
    QVERIFY(ieri.open(QIODevice::WriteOnly));
    ieri.close();
    esportaSchedine(t.archivio(), {}, cartella.path(), momento);
    QVERIFY(ieri.exists());
}

void TestEsportazioneSchedine::secondaEsportazioneSostituisceLaPrima()
{
    ArchivioSchedine t;
    QTemporaryDir cartella;
    const auto righe = *leggiRigheSchedine(t.archivio(), dal5al6());
    esportaSchedine(t.archivio(), righe, cartella.path(), momento);
    const EsitoEsportazione e = esportaSchedine(t.archivio(), { righe.front() }, cartella.path(), momento.addSecs(60));
    QCOMPARE(e.stato, EsitoEsportazione::Stato::Esportate);
    QCOMPARE(leggiFile(e.file), atteso("scheda_sola.txt"));
    QCOMPARE(stato(t.archivio(), righe.front().indice), QStringLiteral("Creato il 06/03/2026 alle 09:42:07"));
    QCOMPARE(stato(t.archivio(), righe.back().indice), QStringLiteral("Creato il 06/03/2026 alle 09:41:07"));
}

void TestEsportazioneSchedine::cartellaMancanteNonTimbraNulla()
{
    ArchivioSchedine t;
    QTemporaryDir cartella;
    const QString sparita = QDir(cartella.path()).filePath(QStringLiteral("chiavetta"));
    const auto righe = *leggiRigheSchedine(t.archivio(), dal5al6());
    const EsitoEsportazione e = esportaSchedine(t.archivio(), righe, sparita, momento);
    QCOMPARE(e.stato, EsitoEsportazione::Stato::FileNonScritto);
    QVERIFY(e.messaggio.endsWith(QStringLiteral("nessuna scheda è stata segnata come inviata")));
    QCOMPARE(leggiRigheSchedine(t.archivio(), dal5al6())->size(), righe.size());

    // A locked archive: the file is complete, the rows stay to send, and the user is told.
    {
        QSqlDatabase altra = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("blocco"));
        altra.setDatabaseName(t.percorso());
        QVERIFY(altra.open());
        QSqlQuery(altra).exec(QStringLiteral("BEGIN IMMEDIATE"));
        t.errori().setPausa([](double) {});
        const EsitoEsportazione bloccata = esportaSchedine(t.archivio(), righe, cartella.path(), momento);
        QSqlQuery(altra).exec(QStringLiteral("ROLLBACK"));
        altra.close();
        QCOMPARE(bloccata.stato, EsitoEsportazione::Stato::NonTimbrate);
        QCOMPARE(leggiFile(bloccata.file), atteso("schede_famiglia_e_gruppo.txt"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("blocco"));
    QCOMPARE(leggiRigheSchedine(t.archivio(), dal5al6())->size(), righe.size());
}

void TestEsportazioneSchedine::ricercaCodiciIgnoraIBianchiFinali()
{
    ArchivioSchedine t;
    CodiciArchivio codici(t.archivio());
    QCOMPARE(codici(TabellaCodici::Comuni, QStringLiteral("L'AQUILA ")), QStringLiteral("403066049"));
    QCOMPARE(codici(TabellaCodici::Comuni, QStringLiteral("l'aquila")), QStringLiteral("403066049"));
    QCOMPARE(codici(TabellaCodici::Documenti, QStringLiteral("CARTA DI IDENTITA'  ")), QStringLiteral("IDENT"));
    QCOMPARE(codici(TabellaCodici::Stati, QStringLiteral(" ITALIA")), QString());
    QCOMPARE(codici(TabellaCodici::Stati, QString()), QString());
    // A name stored with a blank after it matches too.
    t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaCodiciStati (Codice, Stato) VALUES ('100000215', 'FRANCIA ')"));
    QCOMPARE(codici(TabellaCodici::Stati, QStringLiteral("Francia")), QStringLiteral("100000215"));
}

TOMVERA_TEST(TestEsportazioneSchedine)

#include "test_schedine.moc"
