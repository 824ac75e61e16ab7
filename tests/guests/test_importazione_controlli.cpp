#include "archivioospiti.h"
#include "eseguicli.h"
#include "guests/importacodici.h"
#include "testmain.h"

#include <QFile>
#include <QTest>

using namespace tomvera;

namespace {

QString scriviFile(const QString& cartella, const QString& nome, const QByteArray& contenuto)
{
    const QString percorso = cartella + QLatin1Char('/') + nome;
    QFile f(percorso);
    f.open(QIODevice::WriteOnly);
    f.write(contenuto);
    return percorso;
}

EsitoRigheCodici controlla(TabellaCodici tabella, const QString& file)
{
    return controllaRigheCodici(tabella, leggiFileCodici(file, {}), file);
}

QByteArray utf16(const QString& testo, bool marca)
{
    QByteArray dati = marca ? QByteArray("\xFF\xFE") : QByteArray();
    return dati + QByteArray(reinterpret_cast<const char*>(testo.utf16()), testo.size() * 2);
}

} // namespace

// An import empties its table: the file is checked whole first, and what it leaves out is said.
class TestControlliImportazione : public QObject
{
    Q_OBJECT
private slots:
    void codifiche();
    void righeScartateConIlMotivo();
    void fileCheNonSostituisconoLaTabella();
    void comandoERiepilogo();
};

void TestControlliImportazione::codifiche()
{
    test::ArchivioOspiti t;
    const QString cartella = t.cartella();
    // Windows-1252 (older downloads) and UTF-8 with or without its mark read the same words.
    const auto descrizione = [&](const char* nome, const QByteArray& dati) {
        const EsitoRigheCodici e = controlla(TabellaCodici::Documenti, scriviFile(cartella, QLatin1String(nome), dati));
        return e.righe ? e.righe->value(0).descrizione : e.errore;
    };
    QCOMPARE(descrizione("cp1252.csv", "Codice,Descrizione\r\nIDENT,IDENTIT\xC0 \x80\r\n"),
             QStringLiteral("IDENTITÀ €"));
    QCOMPARE(descrizione("utf8.csv", "Codice,Descrizione\nIDENT,IDENTIT\xC3\x80 \xE2\x82\xAC\n"),
             QStringLiteral("IDENTITÀ €"));
    QCOMPARE(descrizione("bom.csv",
                         "\xEF\xBB\xBF"
                         "Codice,Descrizione\nIDENT,IDENTIT\xC3\x80\n"),
             QStringLiteral("IDENTITÀ"));

    // UTF-16 with or without its mark, and bytes that are no text in either code page, are refused.
    const QString testo = QStringLiteral("Codice,Descrizione\nIDENT,IDENTITA\n");
    for (const auto& [nome, dati] :
         { std::pair { "utf16.csv", utf16(testo, true) },
           std::pair { "utf16be.csv", QByteArray(QByteArray("\xFE\xFF") + utf16(testo, false)) },
           std::pair { "utf16senzamarca.csv", utf16(testo, false) } }) {
        const EsitoRigheCodici e = controlla(TabellaCodici::Documenti, scriviFile(cartella, QLatin1String(nome), dati));
        QVERIFY(!e.righe);
        QVERIFY2(e.errore.startsWith(QStringLiteral("Il file è in UTF-16 o non è un testo")), qPrintable(e.errore));
    }
    for (const QByteArray& dati :
         { QByteArray("Codice,Descrizione\nIDENT,CARTA\x81\n"), QByteArray("Codice,Descrizione\nIDENT,CARTA\x07\n"),
           QByteArray("\xEF\xBB\xBF"
                      "Codice,Descrizione\nIDENT,CARTA\xC0\n") }) {
        const EsitoRigheCodici e
            = controlla(TabellaCodici::Documenti, scriviFile(cartella, QStringLiteral("x.csv"), dati));
        QVERIFY(!e.righe);
        QVERIFY2(e.errore.startsWith(QStringLiteral("Il file non è un testo valido")), qPrintable(e.errore));
    }
}

void TestControlliImportazione::righeScartateConIlMotivo()
{
    test::ArchivioOspiti t;
    const QByteArray lunga(251, 'A');
    // Line numbers are the file's own: blank lines count.
    const QString file = scriviFile(t.cartella(), QStringLiteral("comuni.csv"),
                                    "Codice,Descrizione,Provincia,DataFineVal\n"
                                    "405028001,ABANO TERME,PD,\n"
                                    "\n"
                                    ",SENZA CODICE,PD,\n"
                                    "405028002,,PD,\n"
                                    "405028003,"
                                        + lunga + ",PD,\n" + QByteArray(251, '9')
                                        + ",TROPPO,PD,\n"
                                          "405028004,LUNGA PROVINCIA,"
                                        + lunga
                                        + ",\n"
                                          ",,,\n"
                                          // The end-of-validity text counts in the name's length.
                                          "405028005,"
                                        + QByteArray(240, 'B')
                                        + ",PD,31/12/1983\n"
                                          "413066049,L'AQUILA,AQ,\n");
    const EsitoRigheCodici e = controlla(TabellaCodici::Comuni, file);
    QVERIFY(e.righe);
    QCOMPARE(e.righe->size(), 2);
    QCOMPARE(e.righe->at(1).descrizione, QStringLiteral("L'AQUILA"));
    QCOMPARE(e.scartate,
             (QStringList { QStringLiteral("riga 4: Codice vuoto"), QStringLiteral("riga 5: Descrizione vuota"),
                            QStringLiteral("riga 6: Descrizione più lunga di 250 caratteri"),
                            QStringLiteral("riga 7: Codice più lungo di 250 caratteri"),
                            QStringLiteral("riga 8: Provincia più lunga di 250 caratteri"),
                            QStringLiteral("riga 9: riga senza Codice né Descrizione"),
                            QStringLiteral("riga 10: Descrizione più lunga di 250 caratteri") }));

    // The menu command says it too, after its own closing word.
    auto& i = t.interazione();
    i.rispondiFile(file);
    i.rispondiInput(QStringLiteral("V_COMUNI"));
    QVERIFY(ImportazioneTabelle(t.archivio(), i).importa(TabellaCodici::Comuni));
    QVERIFY(i.ultimoTesto().startsWith(
        QStringLiteral("Importazione Terminata\n\nRighe scartate: 7\nriga 4: Codice vuoto\n")));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaCodiciComuni")).toInt(), 2);
}

void TestControlliImportazione::fileCheNonSostituisconoLaTabella()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("405028001"), QStringLiteral("Abano Terme"), QStringLiteral("PD"), QStringLiteral("35031"));
    const struct
    {
        const char* contenuto;
        const char* errore;
    } casi[] = {
        { "Codice,Descrizione,Provincia\n", "Nessuna riga valida nel file, la tabella TabellaCodiciComuni" },
        { "Codice,Descrizione,Provincia\n,ROMA,RM\n", "Nessuna riga valida nel file (riga 2: Codice vuoto)" },
        { "405028001,ABANO TERME,PD\n412058091,ROMA,RM\n", "La prima riga non è l'intestazione delle colonne" },
        { "Codice,Descrizione\n412058091,ROMA\n", "Il file non ha le colonne della tabella comuni" },
    };
    auto& i = t.interazione();
    for (const auto& c : casi) {
        const QString file = scriviFile(t.cartella(), QStringLiteral("comuni.csv"), c.contenuto);
        const EsitoRigheCodici e = controlla(TabellaCodici::Comuni, file);
        QVERIFY(!e.righe);
        QVERIFY2(e.errore.startsWith(QString::fromUtf8(c.errore)), qPrintable(e.errore));
        i.rispondiFile(file);
        i.rispondiInput(QStringLiteral("V_COMUNI"));
        QVERIFY(!ImportazioneTabelle(t.archivio(), i).importa(TabellaCodici::Comuni));
        QCOMPARE(i.ultimoTesto(), e.errore);
    }
    QCOMPARE(
        t.archivio().valore(QStringLiteral("SELECT group_concat(Comune || Cap) FROM TabellaCodiciComuni")).toString(),
        QStringLiteral("Abano Terme35031"));
}

void TestControlliImportazione::comandoERiepilogo()
{
    test::ArchivioOspiti t;
    const QString file = scriviFile(t.cartella(), QStringLiteral("documenti.csv"),
                                    "Codice,Descrizione\nIDENT,CARTA DI IDENTITA'\n,PASSAPORTO\nPASOR,\n");
    const auto e = test::eseguiCli(QStringLiteral("importa-codici"),
                                   { QStringLiteral("--archivio"), t.percorso(), QStringLiteral("--tabella"),
                                     QStringLiteral("documenti"), QStringLiteral("--file"), file });
    QCOMPARE(e.codice, 0);
    QCOMPARE(e.out,
             QStringLiteral("riga 3: Codice vuoto\nriga 4: Descrizione vuota\n"
                            "1 righe importate in TabellaCodiciDocumenti\n2 righe scartate\n"));
    QCOMPARE(e.err, QString());
}

TOMVERA_TEST(TestControlliImportazione)

#include "test_importazione_controlli.moc"
