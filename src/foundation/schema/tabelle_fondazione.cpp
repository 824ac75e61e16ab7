#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella Configurazioni()
{
    return CostruttoreTabella("Configurazioni")
        .contatore()
        // Hotel identity and documents
        .testi({ "RagSociale", "Indirizzo", "Cap", "Comune", "Provincia", "Piva", "CodFis", "Tel", "Fax" }, 200)
        .binari({ "Logo" })
        .lunghi({ "VisualizzaIntestazione", "VisualizzaLogo", "NascondiIntestazioneInStampaDocumenti",
                  "NascondiLogoInStampaDocumenti", "NascondiRuvo", "NascondiDataEdOraDiStampa" })
        .memo({ "MessaggioFineDoc" })
        .lunghi({ "MostraMessaggioFineDoc" })
        .memo({ "MessaggioModuloArrivo" })
        .lunghi({ "MostraMessaggioModuloArrivo", "NascondiFirmeSchedaDiNotifica",
                  "NascondiFirmeSchedaDiNotificaDichiarante", "StampaModuloArrivoInDupliceCopia" })
        .testi({ "Banca", "Cab", "Abi", "Cin", "CC", "Iban", "Agenzia", "NomePersonalizzazione" }, 250)
        .booleani({ "UsaImposta" })
        .doppi({ "ValIva0", "ValIva1", "ValIva2", "ValIva3", "ValIva4", "ValIva5", "ValIva6", "ValIva7", "ValIva8" })
        // Paths and printers
        .testi({ "Percorso", "PercorsoBackup" }, 200)
        .testi({ "PercorsoBackupAutomatico", "PercorsoRicerca", "PercorsoSalvataggioImmaginiSpiaggia" }, 250)
        .lunghi({ "NumeroBackupDaMantenere", "SalvataggioAutomatico" })
        .testi({ "prnDocs", "prnDocumenti", "prnPdf" }, 250)
        .testi({ "Password" }, 200)
        .lunghi({ "AbilitaDiagnosticaErrori", "DisabilitaControlloAggiornamenti" })
        .testi({ "NomeServer" }, 250)
        .booleani({ "MultiAzienda" })
        // Layout
        .lunghi({ "Righe", "Colonne", "NroPiani", "RigheSpiaggia", "ColonneSpiaggia" })
        // Rates and times
        .doppi({ "IvaPrenotazioni", "IvaAbbuono", "IvaRistorante", "IvaPrenotazioniSale", "IvaSpiaggia",
                 "IvaAbbuonoSpiaggia", "IvaSky", "IvaCentralino", "PrezzoAggiuntivoPernottamento",
                 "PrezzoAggiuntivoPernottamentoeColazione", "PrezzoAggiuntivoMezzaPensione",
                 "PrezzoAggiuntivoPensioneCompleta" })
        .date({ "OraPropostaColazione", "OraPropostaPranzo", "OraPropostaCena" })
        .testi({ "IntervalloSale" }, 250)
        .date({ "CheckInDalleOre", "CheckOutEntroLeOre" })
        .testi({ "StagionaleDal", "StagionaleAl" }, 50)
        // Statutory and in-room services
        .testi({ "TipoEsercizio", "Stelle" }, 250)
        .lunghi({ "AbilitaGestioneCentralinoTelefonico" })
        .testi({ "Centralino" }, 250)
        .doppi({ "CostoAScattoCentralino", "CostoAlMinutoCentralino", "SecondiAggiornamentoCentralino" })
        .lunghi({ "UtilizzaTabelladiCorrispondenzaCamere", "Sky" })
        .testi({ "CodiceUtente", "CodiceHotel", "IDChiaveHotel", "DNS" }, 250)
        .date({ "CheckIn", "CheckOut" })
        .booleani({ "ProceduraManualeSky", "ProceduraAutomaticaSky" })
        .lunghi({ "IntervalloAggiornamentoAutomaticoSky" })
        .primario();
}

Tabella TabellaVersione()
{
    return CostruttoreTabella("TabellaVersione").contatore().testi({ "Versione" }, 200).primario();
}

Tabella Variabili()
{
    // The key is the variable's name; the store has no counter.
    return CostruttoreTabella("Variabili")
        .campo(testo(QStringLiteral("NomeVar"), 50, false, true))
        .testi({ "ValoreStringa" }, 200)
        .booleani({ "ValoreBoolean" })
        .doppi({ "ValoreNumerico" })
        .primario("NomeVarInd", { "NomeVar" });
}

Tabella TabellaUtenti()
{
    return CostruttoreTabella("TabellaUtenti")
        .contatore()
        .testi({ "Utente", "Password" }, 250)
        .lunghi({ "Anagrafiche",
                  "ArriviEPartenze",
                  "Planning",
                  "Prenotazioni",
                  "Spiaggia",
                  "Sale",
                  "GestioneCamere",
                  "PrenotazioniRistorante",
                  "Documenti",
                  "CreditiDebiti",
                  "Listini",
                  "InvioTelematico",
                  "PlanningSale",
                  "AnagraficheSoloLettura",
                  "PrenotazioniSoloLettura",
                  "SpiaggiaSoloLettura",
                  "CreditiDebitiSoloLettura",
                  "ListiniSoloLettura",
                  "DocumentiSoloLettura",
                  "SaleSoloLettura",
                  "StoricoPrenotazioni",
                  "StampaIstat",
                  "StampaSituazione",
                  "Statistiche",
                  "NonAttivo",
                  "Sveglie",
                  "Centralino",
                  "StampaTotFattRic" })
        .primario();
}

Tabella Stampa()
{
    return CostruttoreTabella("Stampa")
        .contatore()
        .testi({ "Descrizione" }, 200)
        .lunghi({ "IndiceRif" })
        .memo({ "DescrizioneMemo" })
        .primario("Primario")
        .indiceSemplice("Secondario", { "IndiceRif" });
}

Tabella Stampa2()
{
    CostruttoreTabella t("Stampa2");
    t.contatore()
        .testi({ "Des1", "Des2", "Des3", "Des4", "Des5", "Des6" }, 250)
        .lunghi({ "IndiceRif", "Grassetto" })
        .testi({ "Des7", "Des8", "Des9" }, 250);
    // Arrivals and departures of each day came first; the nights were added after them.
    for (int giorno = 1; giorno <= 31; ++giorno) {
        const QString g = QStringLiteral("G%1").arg(giorno, 2, 10, QLatin1Char('0'));
        t.campo(testo(g + QLatin1Char('A'), 250)).campo(testo(g + QLatin1Char('P'), 250));
    }
    for (int giorno = 1; giorno <= 31; ++giorno)
        t.campo(testo(QStringLiteral("G%1N").arg(giorno, 2, 10, QLatin1Char('0')), 250));
    t.testi({ "G31AT", "G31PT", "G31NT", "G31AGP", "G31PGP", "G31NGP" }, 250);
    return t.primario();
}

Tabella TabellaTourOperator()
{
    return CostruttoreTabella("TabellaTourOperator")
        .contatore()
        .testi({ "Codice" }, 50)
        .testi({ "RagSociale", "Indirizzo", "Cap", "Citta", "Provincia", "Piva", "CodiceFiscale", "Telefono", "Fax",
                 "Web", "Email" },
               250)
        .memo({ "Note" })
        .primario()
        .unico("SecondaryKey", { "Codice" });
}

Tabella ConfigurazioneMultiAzienda()
{
    return CostruttoreTabella("ConfigurazioneMultiAzienda")
        .contatore()
        .testi({ "CodiceAzienda" }, 50)
        .testi({ "RagSociale", "Indirizzo", "Cap", "Comune", "Provincia", "Piva", "CodFis", "Tel", "Fax" }, 200)
        .lunghi({ "VisualizzaIntestazione", "VisualizzaLogo", "NascondiIntestazioneInStampaDocumenti",
                  "NascondiLogoInStampaDocumenti" })
        .testi({ "Banca", "Cab", "Abi", "Cin", "CC", "Iban", "Agenzia" }, 250)
        .binari({ "Logo" })
        .booleani({ "Attivo" })
        .primario()
        .unico("SecondaryKey", { "CodiceAzienda" });
}

} // namespace tomvera::schema
