#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella TabellaPrenotazioni()
{
    return CostruttoreTabella("TabellaPrenotazioni")
        .contatore()
        .lunghi({ "NumeroPrenotazione" })
        .date({ "DataPrenotazione" })
        .memo({ "NotePrenotazione" })
        .testi({ "ListinoCamere" }, 50)
        .doppi({ "TotaleAcconto", "Totale", "Abbuono" })
        .testi({ "Stato" }, 50)
        .lunghi({ "Saldato" })
        .testi({ "RiferimentoDoc" }, 250)
        .date({ "RiferimentoData" })
        .testi({ "RiferimentoNumero" }, 250)
        .testi({ "CodiceTourOperator" }, 50)
        .testi({ "TourOperator" }, 250)
        .booleani({ "PrezziACamera", "PrezziAPersona" })
        .lunghi({ "PrenotazioneChiusa" })
        .testi({ "CodiceAzienda" }, 50)
        .primario()
        .unico("IndicePrenotazione", { "NumeroPrenotazione", "DataPrenotazione" });
}

Tabella TabellaMovimenti()
{
    return CostruttoreTabella("TabellaMovimenti")
        .contatore()
        .lunghi({ "IndicePrenotazioneAssociata" })
        .testi({ "Tipo", "Descrizione" }, 250)
        .testi({ "NroCamera" }, 50)
        .date({ "Dal", "Al" })
        .doppi({ "Qta", "Iva", "Dare", "Avere" })
        .date({ "Data" })
        .testi({ "CodiceTipologiaCamera" }, 50)
        .lunghi({ "IndiceAccessorio" })
        .testi({ "TipoAccessorio" }, 250)
        .testi({ "Listino" }, 50)
        .lunghi({ "IndiceRiga", "CheckInSky", "CheckOutSky", "PrenotazioneChiusa" })
        .booleani({ "EffettuataFatturaRicevuta" })
        .primario()
        .indiceSemplice("SecondaryKey", { "IndicePrenotazioneAssociata" })
        .indiceSemplice("TerzaKey", { "NroCamera" });
}

Tabella TabellaAnagraficheAssociatePrenotazioni()
{
    return CostruttoreTabella("TabellaAnagraficheAssociatePrenotazioni")
        .contatore()
        .lunghi({ "IndicePrenotazioneAssociata", "NroArrivo" })
        .date({ "DataArrivo" })
        .testi({ "CodiceAnagrafica", "RagSociale", "Nome", "Cognome", "Indirizzo", "Cap", "Comune", "Provincia", "Piva",
                 "CodiceFiscale", "Cellulare", "Telefono", "Fax" },
               250)
        .memo({ "NoteCliente" })
        .testi({ "TipoDocumento", "NroDocumento" }, 250)
        .date({ "DataDocumento" })
        .lunghi({ "IndiceCliente" })
        .testi({ "NroCameraCliente" }, 50)
        .date({ "DataNascita" })
        .testi({ "LuogoNascita", "Cittadinanza" }, 250)
        .date({ "DataPartenza" })
        .lunghi({ "ClienteIntestatario" })
        .testi({ "TipoTrattamento", "Nazione" }, 250)
        .doppi({ "PrezzoTrattamento", "TotalePrezzoTrattamento" })
        .lunghi({ "IndiceRiga" })
        .testi({ "TipoDiAlloggiato", "StatoDiNascita", "LuogoDocumento", "ProvinciaDiNascita" }, 250)
        .testi({ "MaschioFemmina" }, 50)
        .lunghi({ "Arrivato" })
        .testi({ "StatoInvioTelematico" }, 250)
        .booleani({ "ResidenzaItaliana", "ResidenzaEstera", "NascitaItalia", "NascitaEstero", "DocumentoItalia",
                    "DocumentoEstero" })
        .testi({ "CodiceTipoDiAlloggiato", "CapoGruppoFamiglia" }, 250)
        .lunghi({ "OrdinamentoTipoAlloggiato" })
        .memo({ "PersoneAssociate" })
        .testi({ "ResidenzaIstat" }, 250)
        .testi({ "CodiceAzienda" }, 50)
        .testi({ "Email", "Web" }, 250)
        .doppi({ "CamereOccupate" })
        .testi({ "TipoTurismo", "MezzoDiTrasporto" }, 100)
        .primario()
        .indiceSemplice("SecondaryKey", { "IndicePrenotazioneAssociata" })
        .indiceSemplice("TerzaKey", { "NroCameraCliente" });
}

Tabella TabellaAnagrafiche()
{
    return CostruttoreTabella("TabellaAnagrafiche")
        .contatore()
        .testi({ "CodiceAnagrafica", "RagSociale", "Nome", "Cognome", "Indirizzo", "Cap", "Comune", "Provincia", "Piva",
                 "CodiceFiscale", "Cellulare", "Telefono", "Fax", "Email", "Web" },
               250)
        .memo({ "Note" })
        .testi({ "TipoDocumento", "NroDocumento" }, 250)
        .date({ "DataDocumento", "DataNascita" })
        .testi({ "LuogoNascita", "Cittadinanza", "Nazione", "StatoDiNascita", "LuogoDocumento", "ProvinciaDiNascita" },
               250)
        .testi({ "MaschioFemmina" }, 50)
        .booleani({ "ResidenzaItaliana", "ResidenzaEstera", "NascitaItalia", "NascitaEstero", "DocumentoItalia",
                    "DocumentoEstero" })
        .testi({ "ResidenzaIstat" }, 250)
        .primario()
        .unico("SecondaryKey", { "CodiceAnagrafica" });
}

// The code tables are looked up by their word and, for the municipalities, completed by postal code and
// province: those fields carry an index too.
Tabella TabellaCodiciComuni()
{
    return CostruttoreTabella("TabellaCodiciComuni")
        .contatore()
        .testi({ "Codice", "Comune", "Provincia", "Cap" }, 250)
        .testi({ "PrefissoTelefonico" }, 50)
        .primario()
        .indiceSemplice("Comune", { "Comune" })
        .indiceSemplice("Cap", { "Cap" })
        .indiceSemplice("Provincia", { "Provincia" });
}

Tabella TabellaCodiciStati()
{
    return CostruttoreTabella("TabellaCodiciStati")
        .contatore()
        .testi({ "Codice", "Stato", "Provincia" }, 250)
        .primario()
        .indiceSemplice("Stato", { "Stato" });
}

Tabella TabellaCodiciDocumenti()
{
    return CostruttoreTabella("TabellaCodiciDocumenti")
        .contatore()
        .testi({ "Codice", "Documento" }, 250)
        .primario()
        .indiceSemplice("Documento", { "Documento" });
}

Tabella TabellaCodiciTipoAlloggiato()
{
    return CostruttoreTabella("TabellaCodiciTipoAlloggiato")
        .contatore()
        .testi({ "Codice", "TipoAlloggiato" }, 250)
        .primario()
        .indiceSemplice("TipoAlloggiato", { "TipoAlloggiato" });
}

} // namespace tomvera::schema
