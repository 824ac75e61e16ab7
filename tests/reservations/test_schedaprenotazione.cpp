#include "costruttori.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "reservations/acconti.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

const QString famiglia = QStringLiteral("CAPOFAMIGLIA");

} // namespace

class TestRegistraPrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void nuovaDalTabelloneSiRegistraESiRiapre();
    void rifiutiNellOrdineSenzaScrivere();
    void numeroGiaUsatoNelloStessoAnno();
    void conflittoScopertoAlSalvataggio();
    void senzaClientiChiedeConferma();
    void salvataggioFallitoLasciaLArchivioComEra();
    void cancellaChiedeDueVolte();
    void esciChiedeDiSalvare();
    void scorrimentoEStati();
    void aziendaEPayTv();
};

void TestRegistraPrenotazione::nuovaDalTabelloneSiRegistraESiRiapre()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    b.listinoCamera(QStringLiteral(""), QStringLiteral("DBL"), 80); // the list without a name
    auto s = b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    QCOMPARE(s->NumeroPrenotazione, QStringLiteral("1"));
    QCOMPARE(s->GrigliaCamerePrenotate.size(), 1);
    QCOMPARE(s->GrigliaCamerePrenotate.first().Avere, 240.0);
    // One room: the guest line takes it with its dates.
    QCOMPARE(s->Cliente.NroCameraCliente(), QStringLiteral("101"));
    QCOMPARE(s->Cliente.testo(QStringLiteral("DataArrivo")), QStringLiteral("01/07/2026"));
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    QVERIFY(s->Registra_Click());
    QCOMPARE(b.interazione().testi().last(), QStringLiteral("Operazione Effettuata!"));
    QVERIFY(s->Indice > 0);
    QVERIFY(s->AggiornaPlanning);
    QVERIFY(!s->modificato());

    auto riaperta = b.scheda(s->Indice);
    QCOMPARE(riaperta->GrigliaAnagrafiche.size(), 1);
    QCOMPARE(riaperta->GrigliaAnagrafiche.first().RagSociale(), QStringLiteral("Rossi Mario"));
    QCOMPARE(riaperta->GrigliaCamerePrenotate.first().Al, QDate(2026, 7, 4));
    // Change a date and save again: the existing reservation is rewritten after the question.
    riaperta->GrigliaCamerePrenotate_DblClick(0);
    riaperta->Partenza = QStringLiteral("05/07/2026");
    // The guest carried the room's dates: asked, and moved with the list's price for the longer stay.
    b.interazione().rispondiSi(QStringLiteral("Spostare anche l'ospite registrato nella camera 101"));
    riaperta->Command7_Click();
    b.interazione().rispondiSi(QStringLiteral("già esistente"));
    QVERIFY(riaperta->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE Al = '2026-07-05' AND Avere = 320")),
             1);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                    "WHERE DataPartenza = '2026-07-05'")),
             1);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 1);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestRegistraPrenotazione::rifiutiNellOrdineSenzaScrivere()
{
    BancoPrenotazioni b;
    auto s = b.scheda();
    s->DataPrenotazione = QStringLiteral("31/02/2026");
    QVERIFY(!s->Registra_Click());
    s->DataPrenotazione = QStringLiteral("01/06/2026");
    QVERIFY(!s->Registra_Click());
    QCOMPARE(b.interazione().messaggi(),
             QStringList({ QStringLiteral("Attenzione valorizzare correttamente la data di prenotazione"),
                           QStringLiteral("Attenzione inserire almeno una camera") }));
    QVERIFY(!s->salvato());
    QVERIFY(!s->AggiornaPlanning);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 0);
}

void TestRegistraPrenotazione::numeroGiaUsatoNelloStessoAnno()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    b.camera(QStringLiteral("102"));
    auto prima = b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    BancoPrenotazioni::inserisciOspite(*prima, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    QVERIFY(prima->Registra_Click());

    auto seconda = b.scheda(0, { { QStringLiteral("102"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    QCOMPARE(seconda->NumeroPrenotazione, QStringLiteral("2"));
    BancoPrenotazioni::inserisciOspite(*seconda, QStringLiteral("Bianchi"), QStringLiteral("Anna"), famiglia,
                                       QStringLiteral("102"));
    seconda->NumeroPrenotazione = QStringLiteral("1");
    b.interazione().pulisci();
    QVERIFY(!seconda->Registra_Click());
    QCOMPARE(b.interazione().messaggi(),
             QStringList(QStringLiteral("Il numero di prenotazione è già utilizzato: utilizzarne uno libero")));
    // The same number dated last year is free.
    seconda->DataPrenotazione = QStringLiteral("20/12/2025");
    QVERIFY(seconda->Registra_Click());
    // A reservation that keeps its number is not tested against itself.
    b.interazione().rispondiSi();
    QVERIFY(prima->Registra_Click());
}

void TestRegistraPrenotazione::conflittoScopertoAlSalvataggio()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto qui = b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    BancoPrenotazioni::inserisciOspite(*qui, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    qui->NumeroPrenotazione = QStringLiteral("2"); // both screens proposed 1
    // Another desk books the room meanwhile.
    auto altrove = b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 3), QDate(2026, 7, 6) } });
    BancoPrenotazioni::inserisciOspite(*altrove, QStringLiteral("Verdi"), QStringLiteral("Luca"), famiglia);
    QVERIFY(altrove->Registra_Click());
    b.interazione().pulisci();
    QVERIFY(!qui->Registra_Click());
    QCOMPARE(b.interazione().messaggi(),
             QStringList(QStringLiteral("Attenzione la camera 101 è già impegnata nel periodo selezionato")));
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 1);
    // Closing the other reservation frees the room.
    b.interazione().rispondiOk();
    altrove->PrenotazioneChiusa_Click(true);
    b.interazione().rispondiSi();
    QVERIFY(altrove->Registra_Click());
    QVERIFY(qui->Registra_Click());
}

void TestRegistraPrenotazione::senzaClientiChiedeConferma()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto s = b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    const QString domanda = QStringLiteral("Attenzione non ci sono clienti associati alla prenotazione, continuare?");
    b.interazione().rispondiNo(domanda);
    QVERIFY(!s->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 0);
    b.interazione().rispondiSi(domanda);
    QVERIFY(s->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 1);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni")), 0);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestRegistraPrenotazione::salvataggioFallitoLasciaLArchivioComEra()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto s = b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    QVERIFY(s->Registra_Click());
    const auto prima = b.archivio().righe(QStringLiteral("SELECT * FROM TabellaMovimenti ORDER BY Indice"));
    // A room number longer than its field: the archive refuses the row in the middle of the rewrite.
    b.interazione().rispondiSi(QStringLiteral("non esiste"));
    BancoPrenotazioni::inserisciCamera(*s, QString(60, QLatin1Char('9')), QStringLiteral("10/07/2026"),
                                       QStringLiteral("12/07/2026"), QStringLiteral("50"));
    s->Stato = QStringLiteral("Cambiata");
    b.interazione().rispondiSi(QStringLiteral("già esistente"));
    QVERIFY(!s->Registra_Click());
    QVERIFY(!s->salvato());
    QVERIFY(s->modificato());
    const auto dopo = b.archivio().righe(QStringLiteral("SELECT * FROM TabellaMovimenti ORDER BY Indice"));
    QCOMPARE(dopo.size(), prima.size());
    for (int i = 0; i < prima.size(); ++i)
        QCOMPARE(dopo.at(i), prima.at(i));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT Stato FROM TabellaPrenotazioni")).toString(), QString());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni")), 1);
}

void TestRegistraPrenotazione::cancellaChiedeDueVolte()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto s = b.scheda();
    QVERIFY(!s->Cancella_Click());
    QCOMPARE(b.interazione().messaggi().last(), QStringLiteral("Attenzione nessuna prenotazione da cancellare!"));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("03/07/2026"), QStringLiteral("100"));
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    QVERIFY(s->Registra_Click());
    SchedaAcconti acconti(b.archivio(), b.interazione(), b.orologio, SchedaAcconti::Modo::Camere, s->Indice);
    acconti.Importo = QStringLiteral("50");
    acconti.Ins_Click();

    b.interazione().rispondiSi(QStringLiteral("tutti i movimenti associati"));
    b.interazione().rispondiNo(QStringLiteral("Attenzione cancellare la prenotazione?"));
    QVERIFY(!s->Cancella_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 1);
    b.interazione().rispondiSi(QStringLiteral("tutti i movimenti associati"));
    b.interazione().rispondiSi(QStringLiteral("Attenzione cancellare la prenotazione?"));
    QVERIFY(s->Cancella_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaPrenotazioni")), 0);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti")), 0);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni")), 0);
    // The guest card stays in the registry.
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")), 1);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestRegistraPrenotazione::esciChiedeDiSalvare()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto s = b.scheda();
    QVERIFY(s->Fine_Click()); // nothing changed, no question
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("03/07/2026"));
    b.interazione().rispondiSi(QStringLiteral("Salvare le modifiche apportate?"));
    b.interazione().rispondiNo(QStringLiteral("non ci sono clienti"));
    QVERIFY(!s->Fine_Click()); // the save did not complete: the screen stays
    // A user without the right to save is not asked.
    b.sessione.permessi->amministratore = false;
    b.sessione.permessi->Prenotazioni = true;
    b.sessione.permessi->PrenotazioniSoloLettura = true;
    QVERIFY(!s->SettaPermessiUtente().Registra);
    QVERIFY(s->Fine_Click());
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestRegistraPrenotazione::scorrimentoEStati()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    QList<qint64> indici;
    for (const QString& stato :
         { QStringLiteral("Confermata"), QStringLiteral("Saldato"), QStringLiteral("Opzione") }) {
        auto s = b.scheda(0,
                          { { QStringLiteral("101"), QDate(2026, 7, 1).addDays(10 * indici.size()),
                              QDate(2026, 7, 3).addDays(10 * indici.size()) } });
        BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QString::number(indici.size()), famiglia);
        s->Stato = stato;
        QVERIFY(s->Registra_Click());
        indici << s->Indice;
    }
    // "Saldato" lives in its own flag, never among the words offered.
    auto s = b.scheda();
    QCOMPARE(s->CaricaStato(), QStringList({ QStringLiteral("Opzione"), QStringLiteral("Confermata") }));
    s->Avanti_Click(); // a new screen goes to the newest
    QCOMPARE(s->Indice, indici.at(2));
    s->Indietro_Click();
    QCOMPARE(s->Indice, indici.at(1));
    QCOMPARE(s->GrigliaCamerePrenotate.first().Dal, QDate(2026, 7, 11));
    QVERIFY(!s->modificato());
    s->Indietro_Click();
    s->Indietro_Click(); // nothing before the first: the screen stays
    QCOMPARE(s->Indice, indici.at(0));
    s->Avanti_Click();
    s->Avanti_Click();
    s->Avanti_Click();
    QCOMPARE(s->Indice, indici.at(2));
}

void TestRegistraPrenotazione::aziendaEPayTv()
{
    BancoPrenotazioni b;
    b.sessione.configurazione->MultiAzienda = true;
    b.sessione.configurazione->Sky = true;
    b.archivio().comando(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, CodiceTipologia, NroPiano, "
                                        "CodiceAzienda) VALUES ('101', 'DBL', 1, 'Mare'), ('201', 'DBL', 2, 'Monti')"));
    // The pay-TV rooms are listed in the link's own archive.
    b.sessione.PercorsoArchivioSky = b.t.cartella() + QStringLiteral("/ArchivioSky.mdb");
    {
        Archivio sky(b.sessione.PercorsoArchivioSky, b.t.errori());
        QVERIFY(sky.apri(Archivio::Apertura::Crea));
        for (const auto& tabella : schema::tabelleArchivioSky())
            schema::applicaTabella(sky, tabella);
        QVERIFY(sky.comando(QStringLiteral("INSERT INTO TabellaCamereSky (camera) VALUES ('101')")));
    }
    auto s = b.scheda();
    s->CodiceAzienda = QStringLiteral("Mare");
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("201"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("03/07/2026"));
    QCOMPARE(b.interazione().messaggi(),
             QStringList(QStringLiteral("OPERAZIONE NON POSSIBILE!\n\nCamera associata all'azienda Monti")));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("03/07/2026"));
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    QVERIFY(s->Registra_Click());
    // No arrival yet: the pay-TV room stays closed.
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE CheckInSky = 1")), 0);
    s->SelezioneNormaleCliente(0);
    s->Command13_Click();
    s->Command4_Click();
    b.interazione().rispondiSi(QStringLiteral("già esistente"));
    QVERIFY(s->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE CheckInSky = 1 AND CheckOutSky = 0 "
                                    "AND NroCamera = '101'")),
             1);
    // The guest row carries the reservation's company.
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                    "WHERE CodiceAzienda = 'Mare'")),
             1);
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestRegistraPrenotazione)

class TestCamerePrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void controlliDellaRigaInOrdine();
    void doppioClicEdEscape();
    void prezziACameraEAPersona();
};

void TestCamerePrenotazione::controlliDellaRigaInOrdine()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    auto s = b.scheda();
    BancoPrenotazioni::inserisciCamera(*s, QString(), QStringLiteral("01/07/2026"), QStringLiteral("03/07/2026"));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("03/07/2026"),
                                       QStringLiteral("03/07/2026"));
    b.interazione().rispondiNo(QStringLiteral("non esiste"));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("999"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("03/07/2026"));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("03/07/2026"));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("02/07/2026"),
                                       QStringLiteral("05/07/2026"));
    QCOMPARE(b.interazione().messaggi(),
             QStringList({ QStringLiteral("Selezionare correttamente i campi"),
                           QStringLiteral("Valorizzare correttamente le date"),
                           QStringLiteral("Attenzione il periodo è già impegnato da una prenotazione") }));
    // Departure equal to the next arrival is no overlap.
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("03/07/2026"),
                                       QStringLiteral("05/07/2026"));
    QCOMPARE(s->GrigliaCamerePrenotate.size(), 2);
    QCOMPARE(s->GrigliaCamerePrenotate.at(1).IndiceRiga, 2);
    QCOMPARE(s->GrigliaCamerePrenotate.at(1).Iva, 10.0); // no VAT in the list: the setting's
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestCamerePrenotazione::doppioClicEdEscape()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    b.camera(QStringLiteral("102"));
    auto s = b.scheda(0,
                      { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) },
                        { QStringLiteral("102"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
    s->GrigliaCamerePrenotate_DblClick(0);
    QCOMPARE(s->NC, QStringLiteral("101"));
    QCOMPARE(s->IndiceRigaCamere, 1);
    QCOMPARE(s->GrigliaCamerePrenotate.size(), 1);
    s->Partenza = QStringLiteral("06/07/2026");
    s->Command7_Click();
    // Back in its place, renumbered.
    QCOMPARE(s->GrigliaCamerePrenotate.first().NroCamera, QStringLiteral("101"));
    QCOMPARE(s->GrigliaCamerePrenotate.first().Al, QDate(2026, 7, 6));
    QCOMPARE(s->GrigliaCamerePrenotate.at(1).IndiceRiga, 2);
    // Taken back and abandoned: the row is gone, and the save writes the reservation without it.
    s->GrigliaCamerePrenotate_DblClick(1);
    s->GrigliaCamerePrenotate_Escape();
    QVERIFY(s->NC.isEmpty());
    b.interazione().rispondiSi(QStringLiteral("non ci sono clienti"));
    QVERIFY(s->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE Tipo = 'PrenotazioneCamera'")), 1);
}

void TestCamerePrenotazione::prezziACameraEAPersona()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("101"));
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 70, 1, 10);
    b.listinoCamera(QStringLiteral("Estate"), QStringLiteral("DBL"), 420, 7, 10);
    b.listinoPersona(QStringLiteral("Persone"), QStringLiteral("Mezza Pensione"), 55);
    b.sessione.configurazione->PrezzoAggiuntivoMezzaPensione = 20;
    auto s = b.scheda();
    s->ListinoCamere_Click(QStringLiteral("Estate"));
    // Default rows only: the shortest one prices every night.
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("01/07/2026"),
                                       QStringLiteral("04/07/2026"));
    QCOMPARE(s->GrigliaCamerePrenotate.first().Avere, 210.0);
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), famiglia);
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Anna"),
                                       QStringLiteral("FAMILIARE"));
    // Per room: the board is 20 a guest a night on top of the room.
    QCOMPARE(s->TotalePrezzoTrattamento(), 120.0);
    QCOMPARE(s->Totale, QStringLiteral("330,00"));
    s->Abbuono_Change(QStringLiteral("30"));
    QCOMPARE(s->Totale, QStringLiteral("300,00"));

    // Per person: room prices emptied, a new guest priced from the per-person list for the whole stay.
    s->PrezziAPersona_Click();
    QCOMPARE(s->GrigliaCamerePrenotate.first().Avere, 0.0);
    s->ListinoTrattamenti_Click(QStringLiteral("Persone"));
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Luca"),
                                       QStringLiteral("FAMILIARE"));
    QCOMPARE(s->GrigliaAnagrafiche.last().valore(QStringLiteral("TotalePrezzoTrattamento")).toDouble(), 165.0);
    // Guests entered per room keep their totals until entered again.
    QCOMPARE(s->TotalePrezzoTrattamento(), 285.0);
    QCOMPARE(s->Totale, QStringLiteral("255,00"));

    // The mode is remembered for the next reservation.
    auto nuova = b.scheda();
    QVERIFY(nuova->PrezziAPersona);
    QCOMPARE(nuova->ListinoCamere, QStringLiteral("Estate"));
}

TOMVERA_TEST(TestCamerePrenotazione)

#include "test_schedaprenotazione.moc"
