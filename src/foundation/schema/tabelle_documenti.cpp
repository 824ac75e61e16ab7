#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella TabellaTestate()
{
    return CostruttoreTabella("Testate")
        .date({ "DataDoc" })
        .lunghi({ "NroDoc" })
        .testi({ "TipoDoc" }, 50)
        .testi({ "RagSociale" }, 255)
        .testi({ "Nome", "Cognome", "Indirizzo", "Cap", "Citta", "Provincia", "Piva", "CodFis", "Pagamento", "banca",
                 "cab", "abi", "agenzia" },
               50)
        .doppi({ "imponibile", "totale", "iva0", "iva1", "iva2", "iva3", "iva5" })
        .testi({ "Annotazioni" }, 200)
        .testi({ "RifDataDoc", "RifTipoDoc", "RifNroDoc", "NroCC" }, 50)
        .doppi({ "iva4" })
        .testi({ "BoTrasporto" }, 10)
        .testi({ "BoDataTrasporto", "BoOraTrasporto", "BoCausale", "BoDestIndirizzo", "BoDestCap", "BoDestCitta",
                 "BoDestPr", "BoVettRagSociale", "BoVettIndirizzo", "BoVettCap", "BoVettCitta", "BoVettPr", "BoAspetto",
                 "BoNrColli", "BoPeso", "BoPorto", "BoFatturata" },
               50)
        .booleani({ "NonStamparePrezziDoc" })
        .testi({ "BoTrasportoAMezzo" }, 50)
        .doppi({ "Imp0", "Imp1", "Imp2", "Imp3", "Imp4", "Imp5" })
        .memo({ "RiOggetto", "RiNota" })
        .doppi({ "RiCompenso", "RiRivalsa", "RiIva", "RiTotale", "RiRitenuta", "RiNetto" })
        .booleani({ "RiPrivato" })
        .doppi({ "RiContributo", "SpeseTrasporto" })
        .testi({ "Cin" }, 50)
        .doppi({ "ScontoPerc", "ScontoVal", "SpeseVarie" })
        .testi({ "InfoTel", "InfoCell", "InfoFax", "InfoEmail", "InfoWeb" }, 50)
        .memo({ "InfoNote" })
        .interi({ "NroDecEuro" })
        .doppi({ "ScontoPerc2" })
        .testi({ "Agente" }, 50)
        .testi({ "DescrizioneAgente" }, 200)
        .doppi({ "PercentualeProvvigione" })
        .testi({ "var1", "var2", "var3", "var4", "Documento", "LocalitaNascita", "ProvincaNasciata", "Sesso" }, 50)
        .date({ "DataNascita" })
        .testi({ "TipoCliFor", "Codice" }, 50)
        .lunghi({ "CodCliFor" })
        .testi({ "Iban" }, 50)
        .booleani({ "NonStampareQuantitaDoc", "StampaTotaleSuDDT" })
        .testi({ "CliForVar1", "Targa", "Modello", "Mezzo", "Proprietario", "ScontoMerceDes" }, 200)
        .doppi({ "ScontoMerceVal" })
        .testi({ "RagSocialeXXL", "BoDestRagSociale" }, 255)
        .doppi({ "RiProvvigioni" })
        .booleani({ "RiEnasarcoSN" })
        .doppi({ "RiEnasarco", "RiDaPagare", "RiPercIva", "RiPercEna", "RiPercRit", "RiMaxEnasarco" })
        .booleani({ "RiEsenteIva" })
        .testi({ "RiAnnoDiRiferimento" }, 200)
        .booleani({ "RiBaStampata" })
        // The counter stands late in the layout; the document's key is its triple.
        .contatore()
        .date({ "RiDataDiRiferimento" })
        .lunghi({ "CalcolaRitenuta" })
        .doppi({ "PercentualeRitenuta", "ValoreRitenuta", "ScontoValIvato", "SpeseTrasportoIvato" })
        .lunghi({ "PrezziIvaInclusa" })
        .booleani({ "StampaPrezziSuDDT" })
        .testi({ "CodiceCliente" }, 200)
        .testi({ "Listino" }, 50)
        .lunghi({ "Evaso" })
        .booleani({ "StampaTotaleQta" })
        .lunghi({ "IndiceDocumentoCollegato" })
        .testi({ "Titolo" }, 20)
        .doppi({ "iva6", "iva7", "iva8", "Imp6", "Imp7", "Imp8", "TotalePagato", "TotaleNonPagato" })
        .testi({ "CodiceAzienda" }, 50)
        .primario("Primario", { "DataDoc", "NroDoc", "TipoDoc" })
        .indiceSemplice("NroDocind", { "NroDoc" })
        .indiceSemplice("VettoreInd", { "BoVettRagSociale" })
        .indiceSemplice("RagSociale_ind", { "RagSociale" })
        .indiceSemplice("RifDataDoc_ind", { "RifDataDoc" })
        .indiceSemplice("RifTipoDoc_ind", { "RifTipoDoc" })
        .indiceSemplice("RifNroDoc_ind", { "RifNroDoc" })
        .indiceSemplice("IndiceDocumentoCollegato_ind", { "IndiceDocumentoCollegato" });
}

Tabella TabellaRighe()
{
    return CostruttoreTabella("Righe")
        .lunghi({ "NroDoc" })
        .date({ "DataDoc" })
        .testi({ "TipoDoc" }, 50)
        .lunghi({ "RigaDoc" })
        .doppi({ "Qta" })
        .testi({ "Descrizione" }, 200)
        .doppi({ "Prezzo", "Iva", "Totale" })
        .testi({ "um", "CodProdotto", "Matricola", "ChiMovimenta" }, 50)
        .doppi({ "ScontoArt" })
        // Here Indice points at an article; the row's own counter is IndiceRiga.
        .lunghi({ "Indice" })
        .testi({ "CodArt", "Reparto", "Gruppo" }, 50)
        .doppi({ "PrezzoIvaInclusa", "NroStampe" })
        .testi({ "Vuoto" }, 1)
        .contatore("IndiceRiga")
        .testi({ "Stato" }, 20)
        .doppi({ "TotaleIvato" })
        .lunghi({ "Evaso" })
        .testi({ "TeC1", "TeC2", "TeC3" }, 200)
        .primario("Primario", { "DataDoc", "NroDoc", "TipoDoc", "RigaDoc" })
        .indiceSemplice("Descrizione_ind", { "Descrizione" });
}

Tabella TabellaDocumenti()
{
    return CostruttoreTabella("TabellaDocumenti")
        .contatore()
        .testi({ "TipoDoc" }, 200)
        .lunghi({ "IndiceGruppo" })
        .testi({ "Gruppo" }, 200)
        .primario("IndiceInd");
}

Tabella TabellaPagamenti()
{
    // Payment terms are keyed by their name; the table has no counter.
    return CostruttoreTabella("TabellaPagamenti")
        .testi({ "DescrizionePagamento" }, 50)
        .testi({ "Nota" }, 200)
        .lunghi({ "NumeroDiRate", "GiorniTraRate" })
        .testi({ "DecorrenzaRate" }, 50)
        .lunghi({ "MesiTraRate", "GiorniDaPrimaRata", "MesiDaPrimaRata" })
        .testi({ "RipartizioneIva" }, 50)
        .lunghi({ "SegnaPagato", "InStampaRiba" })
        .primario("Descrizione_ind", { "DescrizionePagamento" });
}

Tabella TabPagamenti()
{
    // The old layout also asked for an index Descrizione_ind on a field Descrizione that this table never had:
    // it was never created, and is left out.
    return CostruttoreTabella("Pagamenti")
        .contatore()
        .testi({ "TipoDiPagamento", "TipoDoc" }, 50)
        .date({ "DataDoc" })
        .lunghi({ "NroDoc" })
        .testi({ "CodCliente" }, 50)
        .testi({ "DesCliente" }, 200)
        .doppi({ "ImportoFattura" })
        .date({ "DataSaldo" })
        .doppi({ "ImportoSaldo" })
        .testi({ "Saldato" }, 50)
        .testi({ "Note" }, 200)
        .testi({ "DescrizionePagamento" }, 50)
        .date({ "DataScadenzaRata" })
        .testi({ "Agente" }, 50)
        .doppi({ "PercentualeProvvigione", "ValoreProvvigione", "ValoreSaldatoProvvigione" })
        .testi({ "StatoProvvigione" }, 50)
        .testi({ "Vuoto" }, 1)
        .testi({ "TipoCliFor" }, 50)
        .primario("Primario", { "DataDoc", "NroDoc", "TipoDoc", "Indice" })
        .indiceSemplice("DesCliente_ind", { "DesCliente" });
}

} // namespace tomvera::schema
