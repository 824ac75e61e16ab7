#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella TabellaTipologieArticoliSpiaggia()
{
    return CostruttoreTabella("TabellaTipologieArticoliSpiaggia")
        .contatore()
        .testi({ "Articolo" }, 250)
        .doppi({ "Colore" })
        .testi({ "CodiceArticolo" }, 50)
        .testi({ "PercorsoImmagineArticoloLibero", "PercorsoImmagineArticoloOccupato" }, 250)
        .doppi({ "AltezzaArticoloLibero", "LarghezzaArticoloLibero", "AltezzaArticoloOccupato",
                 "LarghezzaArticoloOccupato" })
        .testi({ "Tipo" }, 250)
        .primario()
        .unico("SecondaryKey", { "CodiceArticolo" });
}

Tabella TabellaSettoriSpiaggia()
{
    return CostruttoreTabella("TabellaSettoriSpiaggia")
        .contatore()
        .testi({ "Settore" }, 250)
        .memo({ "Note" })
        .doppi({ "Colore" })
        .testi({ "CodiceSettore" }, 50)
        .primario()
        .unico("SecondaryKey", { "CodiceSettore" });
}

Tabella TabellaTipologieAttrezzatureSpiaggia()
{
    return CostruttoreTabella("TabellaTipologieAttrezzatureSpiaggia")
        .contatore()
        .testi({ "Attrezzatura" }, 250)
        .memo({ "Note" })
        .testi({ "CodiceAttrezzatura" }, 50)
        .doppi({ "Qta" })
        .primario()
        .unico("SecondaryKey", { "CodiceAttrezzatura" });
}

Tabella TabellaTipologiePacchettiSpiaggia()
{
    return CostruttoreTabella("TabellaTipologiePacchettiSpiaggia")
        .contatore()
        .testi({ "CodicePacchetto" }, 50)
        .testi({ "Pacchetto" }, 250)
        .primario()
        .unico("SecondaryKey", { "CodicePacchetto" });
}

Tabella TabellaAssociataTipologiePacchettiSpiaggia()
{
    return CostruttoreTabella("TabellaAssociataTipologiePacchettiSpiaggia")
        .contatore()
        .lunghi({ "IndiceRiga", "IndiceAssociato" })
        .testi({ "CodicePacchetto", "Codice" }, 50)
        .testi({ "Descrizione" }, 250)
        .doppi({ "Qta" })
        .testi({ "Tipo" }, 250)
        .primario();
}

Tabella TabellaStrutturaSpiaggia()
{
    return CostruttoreTabella("TabellaStrutturaSpiaggia")
        .contatore()
        .testi({ "Numero", "CodiceArticolo" }, 50)
        .doppi({ "ColoreArticolo" })
        .lunghi({ "X", "Y" })
        .testi({ "CodiceSettore" }, 50)
        .doppi({ "ColoreSettore" })
        .primario();
}

Tabella TabellaListinoSpiaggia()
{
    return CostruttoreTabella("TabellaListinoSpiaggia")
        .contatore()
        .testi({ "Listino", "Codice" }, 50)
        .testi({ "Descrizione" }, 250)
        .date({ "Dal", "Al" })
        .doppi({ "Prezzo", "Iva" })
        .testi({ "Giorni", "Settore" }, 50)
        .testi({ "Tipo" }, 250)
        .primario();
}

Tabella TabellaPrenotazioniSpiaggia()
{
    return CostruttoreTabella("TabellaPrenotazioniSpiaggia")
        .contatore()
        .lunghi({ "NumeroPrenotazione" })
        .date({ "DataPrenotazione" })
        .memo({ "NotePrenotazione" })
        .testi({ "ListinoArticoli" }, 50)
        .doppi({ "TotaleAcconto", "Totale", "Abbuono" })
        .testi({ "Stato" }, 50)
        .lunghi({ "Saldato" })
        .testi({ "Riferimento" }, 250)
        .primario()
        .unico("IndicePrenotazione", { "NumeroPrenotazione", "DataPrenotazione" });
}

Tabella TabellaMovimentiSpiaggia()
{
    return CostruttoreTabella("TabellaMovimentiSpiaggia")
        .contatore()
        .lunghi({ "IndicePrenotazioneAssociata" })
        .testi({ "Tipo", "Descrizione" }, 250)
        .testi({ "Numero" }, 50)
        .date({ "Dal", "Al" })
        .doppi({ "Qta", "Iva", "Dare", "Avere" })
        .date({ "Data" })
        .testi({ "CodiceArticolo", "Listino" }, 50)
        .lunghi({ "IndiceRiga" })
        .booleani({ "Giornaliero", "Periodo", "Stagionale" })
        .doppi({ "PrezzoUnitario" })
        .testi({ "CodiceArticoloRiferimento", "NumeroArticoloRiferimento" }, 50)
        .date({ "DalRiferimento", "AlRiferimento" })
        .lunghi({ "IndiceTab" })
        .testi({ "Settore" }, 250)
        .booleani({ "EffettuataFatturaRicevuta" })
        .primario()
        .indiceSemplice("SecondaryKey", { "IndicePrenotazioneAssociata" });
}

Tabella TabellaAnagraficheAssociatePrenotazioniSpiaggia()
{
    // The guest registry's twin without stay data; sizes as in the room reservations' copy.
    return CostruttoreTabella("TabellaAnagraficheAssociatePrenotazioniSpiaggia")
        .contatore()
        .lunghi({ "IndicePrenotazioneAssociata" })
        .testi({ "CodiceAnagrafica", "RagSociale", "Nome", "Cognome", "Indirizzo", "Cap", "Comune", "Provincia", "Piva",
                 "CodiceFiscale", "Cellulare", "Telefono", "Fax" },
               250)
        .memo({ "NoteCliente" })
        .lunghi({ "IndiceCliente", "ClienteIntestatario", "IndiceRiga" })
        .testi({ "MaschioFemmina" }, 50)
        .primario()
        .indiceSemplice("SecondaryKey", { "IndicePrenotazioneAssociata" });
}

} // namespace tomvera::schema
