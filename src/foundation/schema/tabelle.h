#pragma once

#include "foundation/schema/definizione.h"

#include <QList>

namespace tomvera::schema {

// One routine per table of the archives, named after the table. Each returns the declaration that the
// create-if-missing pass applies: all fields in their order, sizes, zero-length rules, indexes.

// Foundation, settings, users, work tables of the prints
Tabella Configurazioni();
Tabella TabellaVersione();
Tabella Variabili();
Tabella TabellaUtenti();
Tabella Stampa();
Tabella Stampa2();
Tabella TabellaTourOperator();
Tabella ConfigurazioneMultiAzienda();

// Rooms and price lists
Tabella TabellaTipologieCamere();
Tabella TabellaStrutturaCamere();
Tabella TabellaGestioneCamere();
Tabella TabellaListinoCamere();
Tabella TabellaListinoCamereAPersona();
Tabella TabellaListinoAccessori();

// Reservations and guests
Tabella TabellaPrenotazioni();
Tabella TabellaMovimenti();
Tabella TabellaAnagraficheAssociatePrenotazioni();
Tabella TabellaAnagrafiche();
Tabella TabellaCodiciComuni();
Tabella TabellaCodiciStati();
Tabella TabellaCodiciDocumenti();
Tabella TabellaCodiciTipoAlloggiato();

// Documents and payments (the routines keep their historical names: TabellaTestate builds Testate,
// TabellaRighe builds Righe, TabPagamenti builds Pagamenti)
Tabella TabellaTestate();
Tabella TabellaRighe();
Tabella TabellaDocumenti();
Tabella TabellaPagamenti();
Tabella TabPagamenti();

// Restaurant and function rooms
Tabella TabellaPrenotazioniRistorante();
Tabella TabellaPrenotazioniSale();
Tabella TabellaMovimentiSale();
Tabella TabellaRiferimentiPrenotazioneSale();
Tabella TabellaTipologieSale();
Tabella TabellaListinoSale();
Tabella TabellaPastiSale();

// Beach
Tabella TabellaTipologieArticoliSpiaggia();
Tabella TabellaTipologieAttrezzatureSpiaggia();
Tabella TabellaTipologiePacchettiSpiaggia();
Tabella TabellaAssociataTipologiePacchettiSpiaggia();
Tabella TabellaSettoriSpiaggia();
Tabella TabellaStrutturaSpiaggia();
Tabella TabellaListinoSpiaggia();
Tabella TabellaPrenotazioniSpiaggia();
Tabella TabellaMovimentiSpiaggia();
Tabella TabellaAnagraficheAssociatePrenotazioniSpiaggia();

// Statutory forms and in-room services
Tabella TabellaNumerazioneIstat();
Tabella StampaIstatC59G();
Tabella TabellaMovimentiCentralino();
Tabella TabellaCorrispondenzaCamereCentralino();
Tabella TabellaSveglie();

// Pay-TV link, in ArchivioSky.mdb
Tabella TabellaConfigurazioniSky();
Tabella TabellaCamereSky();
Tabella TabellaCheckInSky();
Tabella TabellaCheckOutSky();
Tabella TabellaStatoCamereSky();
Tabella TabellaRigheSky();
// Declared for completeness and never created: the exchange tool reports through the other tables.
Tabella TabellaEsitoOperazioneSky();

// The size of a text field as declared, for the inputs bound to it; 0 for a field with no size (memo, numbers)
// or a name the table doesn't have.
int dimensioneDichiarata(const Tabella& tabella, const QString& campo);

// The tables of Archivio.mdb in the order the creation applies them.
QList<Tabella> tabelleArchivio();
// The tables of ArchivioSky.mdb in the order the creation applies them.
QList<Tabella> tabelleArchivioSky();

} // namespace tomvera::schema
