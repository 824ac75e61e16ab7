// The code tables are replaced whole or not at all, also when another user holds the archive.
#include "altroutente.h"
#include "archivioospiti.h"
#include "guests/importacodici.h"
#include "guests/tabellecodici.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

class TestCodiciArchivioOccupato : public QObject
{
    Q_OBJECT
private slots:
    void importazioneNonTocca();
    void archivioDiRiferimentoNonTocca();
};

void TestCodiciArchivioOccupato::importazioneNonTocca()
{
    test::ArchivioOspiti t;
    t.comune(QStringLiteral("405028001"), QStringLiteral("ABANO TERME"), QStringLiteral("PD"));
    t.errori().setPausa([](double) {});
    const QList<RigaCodice> nuove { { QStringLiteral("1"), QStringLiteral("UNO"), QStringLiteral("AA") },
                                    { QStringLiteral("2"), QStringLiteral("DUE"), QStringLiteral("BB") } };
    test::AltroUtente altro(t.percorso());
    test::InterazioneCheRilascia utente(altro);
    t.errori().setInterazione(&utente);

    QCOMPARE(scriviRigheCodici(t.archivio(), TabellaCodici::Comuni, nuove), std::nullopt);
    QCOMPARE(utente.messaggi(), QStringList { GestioneErrori::testoArchivioOccupato() });
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT group_concat(Comune) FROM TabellaCodiciComuni")).toString(),
             QStringLiteral("ABANO TERME"));
    // The other user is gone: the same import goes through.
    QCOMPARE(scriviRigheCodici(t.archivio(), TabellaCodici::Comuni, nuove), std::optional<int>(2));
}

void TestCodiciArchivioOccupato::archivioDiRiferimentoNonTocca()
{
    test::ArchivioTemporaneo t(false, QStringLiteral("ArchivioCodici.mdb"));
    QVERIFY(t.archivio().comando(QStringLiteral("CREATE TABLE Altro (x)")));
    t.errori().setPausa([](double) {});
    {
        test::AltroUtente altro(t.percorso());
        test::InterazioneCheRilascia utente(altro);
        t.errori().setInterazione(&utente);
        QVERIFY(!preparaArchivioCodici(t.archivio()));
        QCOMPARE(utente.messaggi(), QStringList { GestioneErrori::testoArchivioOccupato() });
        t.errori().setInterazione(&t.interazione());
    }
    // No table half made, no province list without its tables.
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type = 'table'")).toInt(), 1);
    QVERIFY(preparaArchivioCodici(t.archivio()));
    QCOMPARE(t.archivio().valore(QStringLiteral("SELECT count(*) FROM Regioni")).toInt(), 110);
}

TOMVERA_TEST(TestCodiciArchivioOccupato)
#include "test_codicioccupato.moc"
