#include "foundation/schema/indiciprestazioni.h"

#include "foundation/archivio.h"

namespace tomvera::schema {

namespace {

struct IndicePrestazioni
{
    const char* nome;
    const char* tabella;
    const char* campi;
};

// Equality fields first, then the period: the overlap clauses are then answered from the index alone.
const IndicePrestazioni indici[] = {
    // Room availability, the board's counters and the choice among several reservations of a room: stays
    // still running after a day by their departure, stays starting from a day by their arrival.
    { "TabellaMovimenti_CameraPartenza", "TabellaMovimenti",
      "NroCamera, Tipo, PrenotazioneChiusa, Al, Dal, IndicePrenotazioneAssociata" },
    { "TabellaMovimenti_CameraArrivo", "TabellaMovimenti",
      "NroCamera, Tipo, PrenotazioneChiusa, Dal, Al, IndicePrenotazioneAssociata" },
    { "TabellaMovimentiSpiaggia_PeriodoArticolo", "TabellaMovimentiSpiaggia",
      "Numero, CodiceArticolo, Tipo, Dal, Al, IndicePrenotazioneAssociata" },
    { "TabellaMovimentiSale_PeriodoSala", "TabellaMovimentiSale",
      "CodiceTipologia, Tipo, Dal, Al, IndicePrenotazioneAssociata" },
    // Persons present: the same two ways in, by departure and by arrival.
    { "TabellaAnagraficheAssociatePrenotazioni_ArrivatoPartenza", "TabellaAnagraficheAssociatePrenotazioni",
      "Arrivato, DataPartenza, DataArrivo" },
    { "TabellaAnagraficheAssociatePrenotazioni_ArrivatoArrivo", "TabellaAnagraficheAssociatePrenotazioni",
      "Arrivato, DataArrivo, DataPartenza" },
    // Persons present in one room, asked for every occupied tile.
    { "TabellaAnagraficheAssociatePrenotazioni_CameraPartenza", "TabellaAnagraficheAssociatePrenotazioni",
      "NroCameraCliente, DataPartenza, DataArrivo" },
    { "TabellaAnagraficheAssociatePrenotazioni_CameraArrivo", "TabellaAnagraficheAssociatePrenotazioni",
      "NroCameraCliente, DataArrivo, DataPartenza" },
    // The stays of a guest card, and the guard before deleting a card.
    { "TabellaAnagraficheAssociatePrenotazioni_Cliente", "TabellaAnagraficheAssociatePrenotazioni", "IndiceCliente" },
    // Name look-ahead on the guest card and on the reservation's guest line.
    { "TabellaAnagrafiche_CognomeNome", "TabellaAnagrafiche", "Cognome, Nome" },
    { "TabellaAnagrafiche_NomeCognome", "TabellaAnagrafiche", "Nome, Cognome" },
    { "TabellaAnagrafiche_RagSociale", "TabellaAnagrafiche", "RagSociale" },
    // A stay is priced from the rows of one list and key, read in one query.
    { "TabellaListinoCamere_ListinoTipologia", "TabellaListinoCamere", "Listino, CodiceTipologia" },
    { "TabellaListinoCamereAPersona_ListinoTrattamento", "TabellaListinoCamereAPersona", "Listino, Trattamento" },
    // The next number of a numbering line: the highest number of each type in one year.
    { "Testate_TipoDataNumero", "Testate", "TipoDoc, DataDoc, NroDoc" },
};

} // namespace

void applicaIndiciPrestazioni(Archivio& archivio)
{
    for (const IndicePrestazioni& i : indici) {
        archivio.comandoSenzaGestione(
            QStringLiteral("CREATE INDEX IF NOT EXISTS %1 ON %2 (%3)")
                .arg(QLatin1String(i.nome), QLatin1String(i.tabella), QLatin1String(i.campi)));
    }
}

} // namespace tomvera::schema
