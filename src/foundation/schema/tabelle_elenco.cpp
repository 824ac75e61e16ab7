#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

QList<Tabella> tabelleArchivio()
{
    // The order of creation: later tables were appended as the program grew, and an upgrade follows it too.
    return { Configurazioni(),
             TabellaVersione(),
             Stampa(),
             Variabili(),
             TabellaAnagrafiche(),
             TabellaStrutturaCamere(),
             TabellaTipologieCamere(),
             TabellaListinoCamere(),
             TabellaListinoAccessori(),
             TabellaPrenotazioni(),
             TabellaMovimenti(),
             TabellaAnagraficheAssociatePrenotazioni(),
             Stampa2(),
             TabellaTestate(),
             TabellaRighe(),
             TabellaPagamenti(),
             TabPagamenti(),
             TabellaDocumenti(),
             TabellaPrenotazioniRistorante(),
             TabellaPrenotazioniSale(),
             TabellaMovimentiSale(),
             TabellaTipologieSale(),
             TabellaListinoSale(),
             TabellaRiferimentiPrenotazioneSale(),
             TabellaPastiSale(),
             TabellaNumerazioneIstat(),
             StampaIstatC59G(),
             TabellaListinoSpiaggia(),
             TabellaTipologieAttrezzatureSpiaggia(),
             TabellaSettoriSpiaggia(),
             TabellaStrutturaSpiaggia(),
             TabellaTipologieArticoliSpiaggia(),
             TabellaTipologiePacchettiSpiaggia(),
             TabellaAssociataTipologiePacchettiSpiaggia(),
             TabellaPrenotazioniSpiaggia(),
             TabellaMovimentiSpiaggia(),
             TabellaAnagraficheAssociatePrenotazioniSpiaggia(),
             TabellaCodiciComuni(),
             TabellaCodiciDocumenti(),
             TabellaCodiciTipoAlloggiato(),
             TabellaCodiciStati(),
             TabellaUtenti(),
             TabellaTourOperator(),
             TabellaListinoCamereAPersona(),
             TabellaSveglie(),
             TabellaMovimentiCentralino(),
             TabellaGestioneCamere(),
             TabellaCorrispondenzaCamereCentralino(),
             ConfigurazioneMultiAzienda() };
}

int dimensioneDichiarata(const Tabella& tabella, const QString& campo)
{
    for (const Campo& c : tabella.campi) {
        if (c.nome.compare(campo, Qt::CaseInsensitive) == 0)
            return c.tipo == Tipo::Testo ? c.dimensione : 0;
    }
    return 0;
}

QList<Tabella> tabelleArchivioSky()
{
    return { TabellaRigheSky(),          TabellaCheckOutSky(),    TabellaCheckInSky(),
             TabellaConfigurazioniSky(), TabellaStatoCamereSky(), TabellaCamereSky() };
}

} // namespace tomvera::schema
