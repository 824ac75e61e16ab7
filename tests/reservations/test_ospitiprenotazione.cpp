#include "costruttori.h"
#include "reservations/acconti.h"
#include "reservations/regoleospiti.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;
using test::BancoPrenotazioni;

namespace {

const QString capofamiglia = QStringLiteral("CAPOFAMIGLIA");
const QString familiare = QStringLiteral("FAMILIARE");

std::unique_ptr<SchedaPrenotazione> conCamera(BancoPrenotazioni& b)
{
    b.camera(QStringLiteral("101"));
    return b.scheda(0, { { QStringLiteral("101"), QDate(2026, 7, 1), QDate(2026, 7, 4) } });
}

} // namespace

class TestOspitiPrenotazione : public QObject
{
    Q_OBJECT
private slots:
    void controlliDellInserimentoInOrdine();
    void capoFamigliaEFamiliari();
    void intestatarioUnicoEArrivato();
    void numeriDiArrivoNellAnno();
    void regoleDeiDatiObbligatori();
    void schedeInSolaLetturaNonSiAggiornano();
};

void TestOspitiPrenotazione::controlliDellInserimentoInOrdine()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    s->Command1_Click();
    s->Command4_Click();
    s->Cliente.imposta(QStringLiteral("Cognome"), QStringLiteral("Rossi"));
    s->Maschio = false;
    s->Command4_Click();
    s->Maschio = true;
    s->Cliente.imposta(QStringLiteral("TipoTrattamento"), QString());
    s->Command4_Click();
    s->Cliente.imposta(QStringLiteral("TipoTrattamento"), QStringLiteral("Pernottamento"));
    s->Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), QString());
    s->Command4_Click();
    s->Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), capofamiglia);
    s->Cliente.imposta(QStringLiteral("Arrivato"), 1);
    s->Cliente.imposta(QStringLiteral("NroCameraCliente"), QString());
    s->Command4_Click();
    s->Cliente.imposta(QStringLiteral("NroCameraCliente"), QStringLiteral("101"));
    s->Cliente.imposta(QStringLiteral("DataArrivo"), QStringLiteral("04/07/2026"));
    s->Cliente.imposta(QStringLiteral("DataPartenza"), QStringLiteral("04/07/2026"));
    s->Command4_Click();
    QCOMPARE(b.interazione().messaggi(),
             QStringList({ QStringLiteral("Attenzione selezionare un cliente!"),
                           QStringLiteral("Attenzione selezionare il sesso del cliente!"),
                           QStringLiteral("Attenzione selezionare il tipo di trattamento!"),
                           QStringLiteral("Attenzione selezionare il tipo di alloggiato!"),
                           QStringLiteral("Attenzione inserire correttamente le date ed il n° di camera del cliente"),
                           QStringLiteral("Attenzione inserire correttamente le date") }));
    QVERIFY(s->GrigliaAnagrafiche.isEmpty());
    // A guest not yet arrived stands without dates; the name is made from surname and first name.
    s->Cliente.imposta(QStringLiteral("Arrivato"), 0);
    s->Cliente.imposta(QStringLiteral("Nome"), QStringLiteral("Mario"));
    s->Command4_Click();
    QCOMPARE(s->GrigliaAnagrafiche.size(), 1);
    QCOMPARE(s->GrigliaAnagrafiche.first().RagSociale(), QStringLiteral("Rossi Mario"));
    QCOMPARE(s->NumeroPersone, QStringLiteral("N° Persone: 1"));
    // A second card of the same name is refused: it must be picked from the registry.
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), capofamiglia);
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Il cliente è già in archivio, selezionarlo dall'elenco"));
    QCOMPARE(s->GrigliaAnagrafiche.size(), 1);
    // Which the name fields offer on leaving them: the card comes back with its registry index.
    b.interazione().rispondiSi(QStringLiteral("Attenzione la scheda cliente già esiste, caricarla?"));
    QVERIFY(s->ControllaEsistenzaAnagrafica());
    QVERIFY(s->Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong() > 0);
    s->Command4_Click();
    QCOMPARE(s->GrigliaAnagrafiche.size(), 2);
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")), 1);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestOspitiPrenotazione::capoFamigliaEFamiliari()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Anna"), familiare);
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Attenzione, impossibile inserire un FAMILIARE in quanto non esiste nessun CAPOFAMIGLIA "
                            "con la stessa data di arrivo nella prenotazione!"));
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), capofamiglia);
    QCOMPARE(s->GrigliaAnagrafiche.first().testo(QStringLiteral("CapoGruppoFamiglia")), QStringLiteral("Rossi Mario"));
    QCOMPARE(s->GrigliaAnagrafiche.first().valore(QStringLiteral("OrdinamentoTipoAlloggiato")).toInt(), 1);
    // Another arrival date than the head's is refused, even inside the same stay.
    s->Command1_Click();
    s->Cliente.imposta(QStringLiteral("Cognome"), QStringLiteral("Rossi"));
    s->Cliente.imposta(QStringLiteral("Nome"), QStringLiteral("Anna"));
    s->Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), familiare);
    s->Cliente.imposta(QStringLiteral("TipoTrattamento"), QStringLiteral("Pernottamento"));
    s->Cliente.imposta(QStringLiteral("DataArrivo"), QStringLiteral("02/07/2026"));
    s->Command4_Click();
    QCOMPARE(s->GrigliaAnagrafiche.size(), 1);
    QCOMPARE(s->capiDisponibili(), QStringList(QStringLiteral("Rossi Mario")));
    s->Cliente.imposta(QStringLiteral("DataArrivo"), QStringLiteral("01/07/2026"));
    s->Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"), QStringLiteral("Rossi Mario"));
    s->Command4_Click();
    QCOMPARE(s->GrigliaAnagrafiche.size(), 2);
    QCOMPARE(s->GrigliaAnagrafiche.at(1).valore(QStringLiteral("OrdinamentoTipoAlloggiato")).toInt(), 2);

    // The head can be neither renamed nor removed while a member names it.
    s->SelezioneNormaleCliente(0);
    s->Cliente.imposta(QStringLiteral("RagSociale"), QStringLiteral("Rossi Mario Luigi"));
    s->Command4_Click();
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Impossibile modificare l'anagrafica in quanto ha delle anagrafiche già associate!"));
    s->SelezioneNormaleCliente(0);
    b.interazione().rispondiSi(QStringLiteral("eliminare il cliente"));
    s->Command10_Click();
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Impossibile cancellare il CAPOFAMIGLIA in quanto ha dei FAMILIARI associati!"));
    QCOMPARE(s->GrigliaAnagrafiche.size(), 2);
    // Member first, then the head.
    s->SelezioneNormaleCliente(1);
    b.interazione().rispondiSi(QStringLiteral("eliminare il cliente"));
    s->Command10_Click();
    s->SelezioneNormaleCliente(0);
    b.interazione().rispondiSi(QStringLiteral("eliminare il cliente"));
    s->Command10_Click();
    QVERIFY(s->GrigliaAnagrafiche.isEmpty());
    QCOMPARE(s->NumeroPersone, QStringLiteral("N° Persone: 0"));
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestOspitiPrenotazione::intestatarioUnicoEArrivato()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), capofamiglia);
    s->SelezioneNormaleCliente(0);
    s->Cliente.imposta(QStringLiteral("ClienteIntestatario"), 1);
    s->Command4_Click();
    s->Command1_Click();
    s->Cliente.imposta(QStringLiteral("Cognome"), QStringLiteral("Rossi"));
    s->Cliente.imposta(QStringLiteral("Nome"), QStringLiteral("Anna"));
    s->Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), familiare);
    s->Cliente.imposta(QStringLiteral("TipoTrattamento"), QStringLiteral("Pernottamento"));
    s->Femmina = true;
    s->Maschio = false;
    s->NroCameraCliente_Click(QStringLiteral("101"));
    s->Cliente.imposta(QStringLiteral("ClienteIntestatario"), 1);
    s->Command13_Click();
    QCOMPARE(s->Cliente.testo(QStringLiteral("NroArrivo")), QStringLiteral("1"));
    // The number can't be left without the arrival.
    s->Arrivato_MouseUp(false);
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Attenzione operazione non possibile in quanto al cliente è già stato associato un N° di "
                            "Arrivo!"));
    QCOMPARE(s->Cliente.valore(QStringLiteral("Arrivato")).toInt(), 1);
    s->Command4_Click();
    QCOMPARE(s->GrigliaAnagrafiche.at(0).valore(QStringLiteral("ClienteIntestatario")).toInt(), 0);
    QCOMPARE(s->GrigliaAnagrafiche.at(1).valore(QStringLiteral("ClienteIntestatario")).toInt(), 1);
    QCOMPARE(s->GrigliaAnagrafiche.at(1).valore(QStringLiteral("Arrivato")).toInt(), 1);
    QCOMPARE(s->GrigliaAnagrafiche.at(1).testo(QStringLiteral("MaschioFemmina")), QStringLiteral("Femmina"));
    QVERIFY(s->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni "
                                    "WHERE Arrivato = 1 AND NroArrivo = 1 AND DataArrivo = '2026-07-01' "
                                    "AND CapoGruppoFamiglia = 'Rossi Mario' AND IndiceRiga = 2")),
             1);
}

void TestOspitiPrenotazione::numeriDiArrivoNellAnno()
{
    BancoPrenotazioni b;
    b.camera(QStringLiteral("102"));
    // Stored arrivals: number 7 last year, number 4 this year.
    for (const auto& [numero, data] :
         { std::pair { 7, QStringLiteral("2025-12-30") }, std::pair { 4, QStringLiteral("2026-05-02") } })
        b.archivio().comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni "
                                            "(IndicePrenotazioneAssociata, NroArrivo, DataArrivo, RagSociale) "
                                            "VALUES (99, ?, ?, 'Altro')"),
                             { numero, data });
    auto s = conCamera(b);
    QCOMPARE(s->CalcolaNroArrivo(), 5);
    // The list on screen counts as well.
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), capofamiglia);
    s->SelezioneNormaleCliente(0);
    s->Cliente.imposta(QStringLiteral("NroArrivo"), QStringLiteral("9"));
    s->Command4_Click();
    QCOMPARE(s->CalcolaNroArrivo(), 10);
    // Asked again on a guest that has a number: No keeps it.
    s->SelezioneNormaleCliente(0);
    b.interazione().rispondiNo(QStringLiteral("già associato un numero di arrivo"));
    s->Command13_Click();
    QCOMPARE(s->Cliente.testo(QStringLiteral("NroArrivo")), QStringLiteral("9"));
    s->Cliente.imposta(QStringLiteral("NroArrivo"), QStringLiteral("4"));
    QVERIFY(s->ControllaEsistenzaNroArrivo());
    s->Cliente.imposta(QStringLiteral("NroArrivo"), QStringLiteral("7"));
    QVERIFY(!s->ControllaEsistenzaNroArrivo());
    // On the 1st of January the count restarts from the new year's rows.
    b.orologio.imposta(QDateTime(QDate(2027, 1, 1), QTime(8, 0)));
    auto capodanno = b.scheda();
    QCOMPARE(capodanno->CalcolaNroArrivo(), 1);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestOspitiPrenotazione::regoleDeiDatiObbligatori()
{
    OspitePrenotazione o;
    o.imposta(QStringLiteral("TipoDiAlloggiato"), familiare);
    for (const char* campo : { "Cognome", "Nome", "Cittadinanza" })
        o.imposta(QLatin1String(campo), QStringLiteral("x"));
    o.imposta(QStringLiteral("MaschioFemmina"), QStringLiteral("Maschio"));
    o.imposta(QStringLiteral("DataArrivo"), QDate(2026, 7, 1));
    o.imposta(QStringLiteral("DataNascita"), QStringLiteral("02/03/1980"));
    o.imposta(QStringLiteral("StatoDiNascita"), QStringLiteral("Germania"));
    QVERIFY(ControllaRegole(o));
    // Born in Italy: the birth place is needed.
    o.imposta(QStringLiteral("StatoDiNascita"), QStringLiteral("italia"));
    QVERIFY(!ControllaRegole(o));
    o.imposta(QStringLiteral("LuogoNascita"), QStringLiteral("Roma"));
    QVERIFY(ControllaRegole(o));
    // A head needs the document and the birth province too.
    o.imposta(QStringLiteral("TipoDiAlloggiato"), capofamiglia);
    QVERIFY(!ControllaRegole(o));
    QVERIFY(campiObbligatori(o).contains(QStringLiteral("ProvinciaDiNascita")));
}

void TestOspitiPrenotazione::schedeInSolaLetturaNonSiAggiornano()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Verdi"), QStringLiteral("Ugo"), capofamiglia);
    const qint64 verdi = s->GrigliaAnagrafiche.first().valore(QStringLiteral("IndiceCliente")).toLongLong();
    QVERIFY(verdi > 0);
    // A user who may only read the registry books the guest as typed; the card keeps what it had.
    b.sessione.permessi->amministratore = false;
    b.sessione.UtenteCollegato = QStringLiteral("Lucia");
    b.sessione.permessi->Prenotazioni = true;
    b.sessione.permessi->AnagraficheSoloLettura = true;
    s->SelezioneNormaleCliente(0);
    s->Cliente.imposta(QStringLiteral("Telefono"), QStringLiteral("333 1234"));
    s->Command4_Click();
    QCOMPARE(s->GrigliaAnagrafiche.first().testo(QStringLiteral("Telefono")), QStringLiteral("333 1234"));
    QVERIFY(b.archivio()
                .valore(QStringLiteral("SELECT Telefono FROM TabellaAnagrafiche WHERE Indice = ?"), { verdi })
                .toString()
                .isEmpty());
    QVERIFY(b.interazione().errore().isEmpty());
}

TOMVERA_TEST(TestOspitiPrenotazione)

class TestAccessoriEAcconti : public QObject
{
    Q_OBJECT
private slots:
    void righeEControlli();
    void selezioneTipoSoloVista();
    void accontiETotaliDallArchivio();
    void listaPrenotazioniDellaCamera();
};

void TestAccessoriEAcconti::righeEControlli()
{
    BancoPrenotazioni b;
    b.archivio().comando(QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) "
                                        "VALUES ('Bar', 'Caffè', 1.5, 22)"));
    auto s = conCamera(b);
    s->Accessorio.Data = QStringLiteral("xx");
    s->Ins_Click();
    s->Accessorio.Data = QStringLiteral("02/07/2026");
    s->Ins_Click();
    s->Accessorio.Iva = QStringLiteral("22");
    s->Ins_Click();
    QCOMPARE(b.interazione().messaggi(),
             QStringList({ QStringLiteral("Valorizzare correttamente la data"), QStringLiteral("Valorizzare campo Iva"),
                           QStringLiteral("Valorizzare campo Qtà") }));
    s->Accessorio.Tipo = QStringLiteral("Bar");
    const auto voci = s->proposteDescrizione(QStringLiteral("Ca"));
    QCOMPARE(voci.size(), 1);
    s->Descrizione_Click(voci.first().indice);
    s->Accessorio.Qta = QStringLiteral("4");
    s->Qta_Change();
    QCOMPARE(s->Accessorio.Prezzo, QStringLiteral("6,00"));
    s->Ins_Click();
    QCOMPARE(s->accessori().size(), 1);
    QCOMPARE(s->accessori().first().Avere, 6.0);
    QCOMPARE(s->Totale, QStringLiteral("6,00"));
    // Taken back and put again in its place with an overtyped amount.
    s->RigheArt_DblClick(0);
    QVERIFY(s->accessori().isEmpty());
    s->Accessorio.Prezzo = QStringLiteral("5");
    s->Ins_Click();
    QCOMPARE(s->accessori().first().IndiceRiga, 1);
    QCOMPARE(s->Totale, QStringLiteral("5,00"));
}

void TestAccessoriEAcconti::selezioneTipoSoloVista()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    for (const char* tipo : { "Bar", "Minibar", "Bar" }) {
        s->Accessorio.Tipo = QLatin1String(tipo);
        s->Accessorio.Descrizione = QStringLiteral("Voce");
        s->Accessorio.Qta = QStringLiteral("1");
        s->Accessorio.Prezzo = QStringLiteral("10");
        s->Accessorio.Iva = QStringLiteral("22");
        s->Ins_Click();
    }
    s->TipoSel = QStringLiteral("Minibar");
    QCOMPARE(s->RigheArt(), QList<int>({ 1 }));
    QCOMPARE(s->sceltaTipoSel(), QStringList({ QStringLiteral("Bar"), QStringLiteral("Minibar") }));
    // A line taken back from the narrowed view goes back to its own place in the full list.
    s->RigheArt_DblClick(0);
    s->Ins_Click();
    QCOMPARE(s->accessori().at(1).TipoAccessorio, QStringLiteral("Minibar"));
    b.interazione().rispondiSi(QStringLiteral("non ci sono clienti"));
    QVERIFY(s->Registra_Click());
    // Every extra is saved, whatever the view shows.
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE Tipo = 'Accessori'")), 3);
}

void TestAccessoriEAcconti::accontiETotaliDallArchivio()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    QVERIFY(!s->Command6_Click());
    QCOMPARE(b.interazione().messaggi().last(),
             QStringLiteral("Attenzione! Prima di inserire un acconto è necessario registrare la prenotazione."));
    BancoPrenotazioni::inserisciCamera(*s, QStringLiteral("101"), QStringLiteral("10/07/2026"),
                                       QStringLiteral("12/07/2026"), QStringLiteral("200"));
    b.interazione().rispondiSi(QStringLiteral("non ci sono clienti"));
    s->Abbuono = QStringLiteral("20");
    QVERIFY(s->Registra_Click());
    // The header keeps the total of what was saved, abatement included.
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT Totale FROM TabellaPrenotazioni")).toDouble(), 180.0);
    QVERIFY(s->Command6_Click());

    SchedaAcconti a(b.archivio(), b.interazione(), b.orologio, SchedaAcconti::Modo::Camere, s->Indice);
    a.Ins_Click();
    QCOMPARE(b.interazione().messaggi().last(), QStringLiteral("Attenzione, valorizzare l'importo!"));
    a.Importo = QStringLiteral("100");
    a.Data = QStringLiteral("35/06/2026");
    a.Ins_Click();
    QCOMPARE(b.interazione().messaggi().last(), QStringLiteral("Attenzione, inserire correttamente una data!"));
    a.Data = QStringLiteral("01/06/2026");
    a.Ins_Click();
    a.Importo = QStringLiteral("-30"); // a refund is accepted
    a.Ins_Click();
    QCOMPARE(a.righe().size(), 2);
    QCOMPARE(a.totale(), 70.0);
    // Correcting a row asks first.
    a.Righe_Click(0);
    a.Importo = QStringLiteral("150");
    b.interazione().rispondiSi(QStringLiteral("movimento già esistente"));
    a.Ins_Click();
    QCOMPARE(a.totale(), 120.0);
    b.interazione().rispondiSi(QStringLiteral("come Fatturati"));
    a.Command6_Click();
    QVERIFY(a.righe().first().EffettuataFatturaRicevuta);
    a.RegistraTotaleAcconto();
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT TotaleAcconto FROM TabellaPrenotazioni")).toDouble(), 120.0);

    // The screen reads the totals back: deposits apart, the room minus the abatement.
    s->Form_Activate();
    QCOMPARE(s->TotaleAcconto, QStringLiteral("120,00"));
    QCOMPARE(s->Totale, QStringLiteral("180,00"));
    // Deposits survive the reservation's rewrite.
    b.interazione().rispondiSi(QStringLiteral("non ci sono clienti"));
    b.interazione().rispondiSi(QStringLiteral("già esistente"));
    QVERIFY(s->Registra_Click());
    QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM TabellaMovimenti WHERE Tipo = 'Acconto'")), 2);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestAccessoriEAcconti::listaPrenotazioniDellaCamera()
{
    BancoPrenotazioni b;
    auto s = conCamera(b);
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Mario"), capofamiglia);
    s->SelezioneNormaleCliente(0);
    s->Cliente.imposta(QStringLiteral("ClienteIntestatario"), 1);
    s->Command4_Click();
    BancoPrenotazioni::inserisciOspite(*s, QStringLiteral("Rossi"), QStringLiteral("Anna"), familiare);
    QVERIFY(s->Registra_Click());
    const auto voci
        = caricaListaPrenotazioni(b.archivio(), QStringLiteral("101"), QDate(2026, 7, 3), QDate(2026, 7, 10));
    QCOMPARE(voci.size(), 2);
    QCOMPARE(voci.first().Cliente, QStringLiteral("Rossi Mario")); // the payer first
    QCOMPARE(voci.first().IndicePrenotazione, s->Indice);
    // A stay that leaves on the first day of the period does not meet it.
    QVERIFY(
        caricaListaPrenotazioni(b.archivio(), QStringLiteral("101"), QDate(2026, 7, 4), QDate(2026, 7, 6)).isEmpty());
}

TOMVERA_TEST(TestAccessoriEAcconti)

#include "test_ospitiprenotazione.moc"
