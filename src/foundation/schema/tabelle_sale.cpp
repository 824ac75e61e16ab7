#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella TabellaPrenotazioniRistorante()
{
    return CostruttoreTabella("TabellaPrenotazioniRistorante")
        .contatore()
        .date({ "Data" })
        .lunghi({ "IndiceCliente" })
        .testi({ "RagSociale" }, 250)
        .doppi({ "NroPersone" })
        .date({ "Ora" })
        .testi({ "Tipo", "Stato", "TipoPrenotazione" }, 250)
        .doppi({ "Prezzo" })
        .lunghi({ "NroPrenotazione" })
        .testi({ "CodiceAnagrafica" }, 250)
        .testi({ "NroCameraDaAddebitare" }, 50)
        .lunghi({ "IndicePrenotazioneDaAddebitare", "IndiceMovimentoCreato", "IndiceClientePrenotazione" })
        .testi({ "NroCamera" }, 50)
        .lunghi({ "IndicePrenotazioneCamera", "NroArrivo" })
        .testi({ "TipoTrattamento" }, 250)
        .lunghi({ "Arrivato" })
        .primario();
}

Tabella TabellaPrenotazioniSale()
{
    return CostruttoreTabella("TabellaPrenotazioniSale")
        .contatore()
        .lunghi({ "NumeroPrenotazione" })
        .date({ "DataPrenotazione" })
        .memo({ "NotePrenotazione" })
        .doppi({ "TotaleAcconto", "Totale", "Abbuono" })
        .testi({ "Stato" }, 50)
        .lunghi({ "IndiceCliente" })
        .testi({ "CodiceAnagrafica", "RagSociale", "Nome", "Cognome", "Indirizzo", "Cap", "Comune", "Provincia", "Piva",
                 "CodiceFiscale" },
               250)
        .memo({ "NoteCliente" })
        .testi({ "CodiceAzienda" }, 50)
        .primario()
        .unico("IndicePrenotazione", { "NumeroPrenotazione", "DataPrenotazione" });
}

Tabella TabellaMovimentiSale()
{
    // The old layout declared Listino twice; the second declaration never made a field.
    return CostruttoreTabella("TabellaMovimentiSale")
        .contatore()
        .lunghi({ "IndicePrenotazioneAssociata" })
        .testi({ "Tipo" }, 250)
        .testi({ "Listino" }, 50)
        .lunghi({ "NroPersoneSala" })
        .testi({ "Evento", "Descrizione" }, 250)
        .testi({ "CodiceTipologia" }, 50)
        .date({ "Dal", "Al", "DaOra", "AOra" })
        .doppi({ "Qta", "Iva", "Dare", "Avere" })
        .date({ "Data" })
        .lunghi({ "IndiceAccessorio" })
        .testi({ "TipoAccessorio" }, 250)
        .lunghi({ "IndiceRiga", "NroPersonePrenotazioneSala" })
        .doppi({ "Colazioni", "PrezzoColazione", "Pranzi", "PrezzoPranzo", "Cene", "PrezzoCena" })
        .booleani({ "EffettuataFatturaRicevuta" })
        .primario()
        .indiceSemplice("SecondaryKey", { "IndicePrenotazioneAssociata" })
        .indiceSemplice("TerzaKey", { "CodiceTipologia" });
}

Tabella TabellaRiferimentiPrenotazioneSale()
{
    return CostruttoreTabella("TabellaRiferimentiPrenotazioneSale")
        .contatore()
        .lunghi({ "IndicePrenotazioneAssociata", "IndiceRiga" })
        .testi({ "Contatto", "Telefono" }, 250)
        .primario();
}

Tabella TabellaTipologieSale()
{
    return CostruttoreTabella("TabellaTipologieSale")
        .contatore()
        .testi({ "NomeTipologia" }, 250)
        .lunghi({ "NroPersone" })
        .memo({ "Note" })
        .doppi({ "Colore" })
        .testi({ "CodiceTipologia", "CodiceAzienda" }, 50)
        .primario()
        .unico("SecondaryKey", { "CodiceTipologia" });
}

Tabella TabellaListinoSale()
{
    return CostruttoreTabella("TabellaListinoSale")
        .contatore()
        .testi({ "Listino", "CodiceTipologia" }, 50)
        .testi({ "Evento", "Giorno" }, 250)
        .testi({ "Dal", "Al" }, 50)
        .doppi({ "Prezzo", "Iva" })
        .primario();
}

Tabella TabellaPastiSale()
{
    return CostruttoreTabella("TabellaPastiSale")
        .contatore()
        .testi({ "Listino" }, 50)
        .testi({ "Evento" }, 250)
        .doppi({ "Colazione", "Pranzo", "Cena" })
        .primario();
}

} // namespace tomvera::schema
