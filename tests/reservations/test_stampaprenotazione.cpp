// The reservation print: the rows of Stampa2, cell by cell, in both price modes.
#include "costruttori.h"
#include "testmain.h"

#include <QSqlRecord>
#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

const QString trattini(90, QLatin1Char('-'));

QList<RigaStampa2> letteDaStampa2(Archivio& archivio)
{
    QList<RigaStampa2> righe;
    for (const QSqlRecord& r : archivio.righe(QStringLiteral("SELECT Des1, Des2, Des3, Des4, Des5, Des6, Des7, Des8, "
                                                             "Des9, Grassetto FROM Stampa2 ORDER BY IndiceRif"))) {
        RigaStampa2 riga;
        int usate = 0;
        for (int d = 0; d < 9; ++d) {
            riga.Des << r.value(d).toString();
            if (!r.value(d).isNull())
                usate = d + 1;
        }
        riga.Des = riga.Des.mid(0, usate);
        riga.Grassetto = r.value(9).toInt() == 1;
        righe << riga;
    }
    return righe;
}

// Room 101 on 23-26/11/2026, two guests at half board (the holder with a phone), a coffee, an abatement, a note.
std::unique_ptr<SchedaPrenotazione> prenotazione(BancoPrenotazioni& b, bool aPersona)
{
    b.camera(QStringLiteral("101"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 100);
    b.listinoPersona(QStringLiteral("Base"), QStringLiteral("Mezza Pensione"), 60);
    b.sessione.configurazione->PrezzoAggiuntivoMezzaPensione = 25;
    auto s = b.scheda();
    s->ListinoCamere_Click(QStringLiteral("Estate"));
    if (aPersona) {
        s->PrezziAPersona_Click();
        s->ListinoTrattamenti_Click(QStringLiteral("Base"));
    }
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("23/11/2026"),
                                       QStringLiteral("26/11/2026"));
    for (const char* nome : { "Mario", "Anna" }) {
        s->Command1_Click();
        s->Cliente.imposta(QStringLiteral("Cognome"), QStringLiteral("Rossi"));
        s->Cliente.imposta(QStringLiteral("Nome"), QLatin1String(nome));
        s->Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), QStringLiteral("OSPITE SINGOLO"));
        s->Cliente.imposta(QStringLiteral("TipoTrattamento"), QStringLiteral("Mezza Pensione"));
        if (QLatin1String(nome) == QLatin1String("Mario")) {
            s->Cliente.imposta(QStringLiteral("Telefono"), QStringLiteral("0541 123456"));
            s->Cliente.imposta(QStringLiteral("ClienteIntestatario"), 1);
        }
        s->NroCameraCliente_Click(QStringLiteral("101"));
        s->Command4_Click();
    }
    s->Accessorio.Data = QStringLiteral("24/11/2026");
    s->Accessorio.Tipo = QStringLiteral("Bar");
    s->Accessorio.Descrizione = QStringLiteral("Caffè");
    s->Accessorio.Qta = QStringLiteral("2");
    s->Accessorio.Prezzo = QStringLiteral("3");
    s->Accessorio.Iva = QStringLiteral("22");
    s->Accessorio.NroCamera = QStringLiteral("101");
    s->Ins_Click();
    s->Abbuono_Change(QStringLiteral("5"));
    s->NotePrenotazione = QStringLiteral("Culla in camera");
    s->StampaNote_Click(true);
    return s;
}

} // namespace

class TestStampaPrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void prezziACamera();
    void prezziAPersona();
    void lungaOltreIlCampoEStampaPrecedenteSvuotata();
};

void TestStampaPrenotazione::prezziACamera()
{
    BancoPrenotazioni b;
    auto s = prenotazione(b, false);
    QVERIFY(s->PreparaStampa());
    const QList<RigaStampa2> attese {
        { { "CAMERE PRENOTATE" }, true },
        { { trattini }, false },
        { { "COD.  |", "TIPOLOGIA  |", "DAL       |", "AL        |", "NOTTI |", "PREZZO       |", "IVA  |" }, true },
        { { "101", "DBL", "23/11/2026", "26/11/2026", "3", "300,00", "10" }, false },
        { { "CLIENTI ASSOCIATI PRENOTAZIONE" }, true },
        { { trattini }, false },
        { { "RAG.SOCIALE              |", "CAMERA|", "ARRIVO    |", "PARTENZA  |", "TRATTAMENTO              |",
            "TELEFONO       |" },
          true },
        { { "Rossi Mario", "101", "23/11/2026", "26/11/2026", "Mezza Pensione", "0541 123456", "Cliente Intestatario" },
          true },
        { { "Rossi Anna", "101", "23/11/2026", "26/11/2026", "Mezza Pensione", "" }, false },
        { { "ACCESSORI" }, true },
        { { trattini }, false },
        { { "DATA      |", "TIPO          |", "DESCRIZIONE                  |", "QTA  |", "IMPORTO      |", "IVA  |",
            "N.C.  |" },
          true },
        { { "24/11/2026", "Bar", "Caffè", "2", "3,00", "22", "101" }, false },
        { { "TOTALI" }, true },
        { { trattini }, false },
        { { "Totale Camere", "300,00" }, false },
        { { "Totale Trattamenti", "150,00" }, false },
        { { "Totale Accessori", "3,00" }, false },
        { { "Abbuono", "5,00" }, false },
        { { "TOTALE", "448,00" }, true },
        { { "Acconti", "0,00" }, false },
        { { "DA SALDARE", "448,00" }, true },
        { { "NOTE PRENOTAZIONE" }, true },
        { { trattini }, false },
        { { "Culla in camera" }, false },
    };
    const QList<RigaStampa2> lette = letteDaStampa2(b.archivio());
    QCOMPARE(lette.size(), attese.size());
    for (int i = 0; i < attese.size(); ++i) {
        QCOMPARE(lette[i].Des, attese[i].Des);
        QCOMPARE(lette[i].Grassetto, attese[i].Grassetto);
    }

    // The print made from the table: every row under its heading, the screen's header on top.
    const auto modello = s->Anteprima_Click();
    QVERIFY(modello);
    QCOMPARE(modello->titolo, QStringLiteral("PRENOTAZIONE N° 1 del 01/06/2026"));
    QCOMPARE(modello->righe.size(), attese.size());
    QCOMPARE(modello->righe[3].first(),
             QStringLiteral("101   |DBL        |23/11/2026|26/11/2026|     3|       300,00|   10|"));
    QCOMPARE(modello->righe[15].first(),
             QStringLiteral("Totale Camere") + QString(27, QLatin1Char(' ')) + QStringLiteral("300,00"));
    QVERIFY(modello->grassetto[7] && !modello->grassetto[8]);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestStampaPrenotazione::prezziAPersona()
{
    BancoPrenotazioni b;
    auto s = prenotazione(b, true);
    s->StampaNote_Click(false);
    QVERIFY(s->Anteprima_Click());
    const QList<RigaStampa2> lette = letteDaStampa2(b.archivio());
    // No room prices in this mode; each guest's stay price instead of the phone.
    QCOMPARE(lette[2].Des, QStringList({ "COD.  |", "TIPOLOGIA  |", "DAL       |", "AL        |", "NOTTI |" }));
    QCOMPARE(lette[3].Des, QStringList({ "101", "DBL", "23/11/2026", "26/11/2026", "3" }));
    QCOMPARE(lette[6].Des.last(), QStringLiteral("PREZZO       |"));
    QCOMPARE(lette[7].Des,
             QStringList({ "Rossi Mario", "101", "23/11/2026", "26/11/2026", "Mezza Pensione", "180,00",
                           "Cliente Intestatario" }));
    QCOMPARE(lette[15].Des, QStringList({ "Totale Trattamenti", "360,00" }));
    QCOMPARE(lette[18].Des, QStringList({ "TOTALE", "358,00" }));
    QCOMPARE(lette.last().Des, QStringList({ "DA SALDARE", "358,00" }));
}

void TestStampaPrenotazione::lungaOltreIlCampoEStampaPrecedenteSvuotata()
{
    BancoPrenotazioni b;
    b.archivio().comando(QStringLiteral("INSERT INTO Stampa2 (Des1, IndiceRif) VALUES ('di un altra stampa', 1)"));
    auto s = prenotazione(b, false);
    s->NotePrenotazione = QString(300, QLatin1Char('n'));
    QVERIFY(s->PreparaStampa());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Stampa2 WHERE Des1 = 'di un altra stampa'")), 0);
    // A cell longer than its field is cut, not lost with the whole print.
    QCOMPARE(b.conta(QStringLiteral("SELECT max(length(Des1)) FROM Stampa2")), 250);
}

TOMVERA_TEST(TestStampaPrenotazione)

#include "test_stampaprenotazione.moc"
