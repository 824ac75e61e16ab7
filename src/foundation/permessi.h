#pragma once

#include <QString>
#include <vector>

namespace tomvera {

// The rights of the logged-in user, one per field of TabellaUtenti with the field's name. For
// "Amministratore" every test passes whatever the fields hold: ask through puo() and soloLettura().
struct PermessiUtente
{
    bool amministratore = false;

    bool Anagrafiche = false;
    bool ArriviEPartenze = false;
    bool Planning = false;
    bool Prenotazioni = false;
    bool Spiaggia = false;
    bool Sale = false;
    bool GestioneCamere = false;
    bool PrenotazioniRistorante = false;
    bool Documenti = false;
    bool CreditiDebiti = false;
    bool Listini = false;
    bool InvioTelematico = false;
    bool PlanningSale = false;
    bool AnagraficheSoloLettura = false;
    bool PrenotazioniSoloLettura = false;
    bool SpiaggiaSoloLettura = false;
    bool CreditiDebitiSoloLettura = false;
    bool ListiniSoloLettura = false;
    bool DocumentiSoloLettura = false;
    bool SaleSoloLettura = false;
    bool StoricoPrenotazioni = false;
    bool StampaIstat = false;
    bool StampaSituazione = false;
    bool Statistiche = false;
    bool Sveglie = false;
    bool Centralino = false;
    bool StampaTotFattRic = false;

    using Diritto = bool PermessiUtente::*;

    // The function opens for this user.
    bool puo(Diritto diritto) const { return amministratore || this->*diritto; }
    // The function opens without its save and delete commands.
    bool soloLettura(Diritto companion) const { return !amministratore && this->*companion; }
};

// A right as the settings screen shows it: field of TabellaUtenti, label, and its read-only companion.
struct DescrizioneDiritto
{
    const char* campo;
    PermessiUtente::Diritto diritto;
    QString etichetta;
    const char* campoSoloLettura = nullptr;
    PermessiUtente::Diritto soloLettura = nullptr;
};

// In the order of the screen's labels.
const std::vector<DescrizioneDiritto>& dirittiUtente();

// The fields of TabellaUtenti that hold rights, in the table's order (NonAttivo excluded).
struct CampoDiritto
{
    const char* campo;
    PermessiUtente::Diritto diritto;
    bool nulloNegato; // the latest rights: a null reads as not granted
};
const std::vector<CampoDiritto>& campiDiritti();

} // namespace tomvera
