#include "foundation/permessi.h"

namespace tomvera {

using P = PermessiUtente;

const std::vector<DescrizioneDiritto>& dirittiUtente()
{
    // clang-format off
    static const std::vector<DescrizioneDiritto> elenco = {
        {"Anagrafiche", &P::Anagrafiche, QStringLiteral("Anagrafiche"), "AnagraficheSoloLettura", &P::AnagraficheSoloLettura},
        {"ArriviEPartenze", &P::ArriviEPartenze, QStringLiteral("Arrivi e Partenze")},
        {"Planning", &P::Planning, QStringLiteral("Planning")},
        {"Prenotazioni", &P::Prenotazioni, QStringLiteral("Prenotazioni"), "PrenotazioniSoloLettura", &P::PrenotazioniSoloLettura},
        {"Spiaggia", &P::Spiaggia, QStringLiteral("Spiaggia"), "SpiaggiaSoloLettura", &P::SpiaggiaSoloLettura},
        {"Sale", &P::Sale, QStringLiteral("Sale"), "SaleSoloLettura", &P::SaleSoloLettura},
        {"PlanningSale", &P::PlanningSale, QStringLiteral("Planning Sale")},
        {"GestioneCamere", &P::GestioneCamere, QStringLiteral("Gestione Camere")},
        {"PrenotazioniRistorante", &P::PrenotazioniRistorante, QStringLiteral("Prenotazioni Ristorante")},
        {"Documenti", &P::Documenti, QStringLiteral("Documenti"), "DocumentiSoloLettura", &P::DocumentiSoloLettura},
        {"CreditiDebiti", &P::CreditiDebiti, QStringLiteral("Crediti / Debiti"), "CreditiDebitiSoloLettura", &P::CreditiDebitiSoloLettura},
        {"Listini", &P::Listini, QStringLiteral("Listini"), "ListiniSoloLettura", &P::ListiniSoloLettura},
        {"InvioTelematico", &P::InvioTelematico, QStringLiteral("Invio Telematico")},
        {"StoricoPrenotazioni", &P::StoricoPrenotazioni, QStringLiteral("Storico Prenotazioni")},
        {"StampaIstat", &P::StampaIstat, QStringLiteral("Stampa Istat")},
        {"StampaSituazione", &P::StampaSituazione, QStringLiteral("Stampa Situazione")},
        {"Statistiche", &P::Statistiche, QStringLiteral("Statistiche")},
        {"Sveglie", &P::Sveglie, QStringLiteral("Sveglie")},
        {"Centralino", &P::Centralino, QStringLiteral("Centralino")},
        {"StampaTotFattRic", &P::StampaTotFattRic, QStringLiteral("Stampa Totale Ric/Fatt per Cliente")},
    };
    // clang-format on
    return elenco;
}

const std::vector<CampoDiritto>& campiDiritti()
{
    static const std::vector<CampoDiritto> elenco = {
        { "Anagrafiche", &P::Anagrafiche, false },
        { "ArriviEPartenze", &P::ArriviEPartenze, false },
        { "Planning", &P::Planning, false },
        { "Prenotazioni", &P::Prenotazioni, false },
        { "Spiaggia", &P::Spiaggia, false },
        { "Sale", &P::Sale, false },
        { "GestioneCamere", &P::GestioneCamere, false },
        { "PrenotazioniRistorante", &P::PrenotazioniRistorante, false },
        { "Documenti", &P::Documenti, false },
        { "CreditiDebiti", &P::CreditiDebiti, false },
        { "Listini", &P::Listini, false },
        { "InvioTelematico", &P::InvioTelematico, false },
        { "PlanningSale", &P::PlanningSale, false },
        { "AnagraficheSoloLettura", &P::AnagraficheSoloLettura, false },
        { "PrenotazioniSoloLettura", &P::PrenotazioniSoloLettura, false },
        { "SpiaggiaSoloLettura", &P::SpiaggiaSoloLettura, false },
        { "CreditiDebitiSoloLettura", &P::CreditiDebitiSoloLettura, false },
        { "ListiniSoloLettura", &P::ListiniSoloLettura, false },
        { "DocumentiSoloLettura", &P::DocumentiSoloLettura, false },
        { "SaleSoloLettura", &P::SaleSoloLettura, false },
        { "StoricoPrenotazioni", &P::StoricoPrenotazioni, false },
        { "StampaIstat", &P::StampaIstat, false },
        { "StampaSituazione", &P::StampaSituazione, false },
        { "Statistiche", &P::Statistiche, false },
        { "Sveglie", &P::Sveglie, true },
        { "Centralino", &P::Centralino, true },
        { "StampaTotFattRic", &P::StampaTotFattRic, true },
    };
    return elenco;
}

} // namespace tomvera
