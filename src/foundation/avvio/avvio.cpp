#include "foundation/avvio/avvio.h"

#include "foundation/archivio.h"
#include "foundation/avvio/accesso.h"
#include "foundation/avvio/avvioselezioneutente.h"
#include "foundation/avvio/controlloora.h"
#include "foundation/configurazione.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/piattaforma.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"

#include <QDir>
#include <QFileInfo>

namespace tomvera {

namespace {

Avvio::Comando pulsante(const char* nome, const char* testo, Avvio::Regola regola = Avvio::Regola::Libera,
                        const char* diritto = "")
{
    return { QString::fromUtf8(nome), QString::fromUtf8(testo), {}, regola, QString::fromUtf8(diritto) };
}

Avvio::Comando voce(const char* menu, const char* nome, const char* testo, Avvio::Regola regola = Avvio::Regola::Libera,
                    const char* diritto = "")
{
    return { QString::fromUtf8(nome), QString::fromUtf8(testo), QString::fromUtf8(menu), regola,
             QString::fromUtf8(diritto) };
}

} // namespace

const std::vector<Avvio::Menu>& Avvio::menu()
{
    static const std::vector<Menu> elenco = {
        { QStringLiteral("mFile"), QStringLiteral("File"), Regola::Libera, {} },
        { QStringLiteral("mConfigurazioni"), QStringLiteral("Configurazioni"), Regola::SoloAmministratore, {} },
        { QStringLiteral("mGrafica"), QStringLiteral("Grafica"), Regola::Libera, {} },
        { QStringLiteral("mListini"), QStringLiteral("Listini"), Regola::Diritto, QStringLiteral("Listini") },
        { QStringLiteral("mCreditiDebiti"), QStringLiteral("Pagamenti"), Regola::Diritto,
          QStringLiteral("CreditiDebiti") },
        { QStringLiteral("mStampe"), QStringLiteral("Stampe"), Regola::Libera, {} },
        { QStringLiteral("mUtility"), QStringLiteral("Utility"), Regola::Libera, {} },
    };
    return elenco;
}

const std::vector<Avvio::Comando>& Avvio::comandi()
{
    using R = Regola;
    static const std::vector<Comando> elenco = {
        // The button bar FrameMenu.
        pulsante("Anagrafiche", "Clienti", R::Diritto, "Anagrafiche"),
        pulsante("Command2", "Arr. / Part.", R::Diritto, "ArriviEPartenze"),
        pulsante("Command3", "Planning", R::Diritto, "Planning"),
        pulsante("Command5", "Prenotaz.", R::Diritto, "StoricoPrenotazioni"),
        pulsante("CSpiaggia", "ENTRA NELLA SPIAGGIA", R::Diritto, "Spiaggia"),
        pulsante("Command9", "Sale", R::Diritto, "Sale"),
        pulsante("Command12", "Planning Sale", R::Diritto, "PlanningSale"),
        pulsante("Command10", "Gestione Camere", R::Diritto, "GestioneCamere"),
        pulsante("Command11", "Ristorante", R::Diritto, "PrenotazioniRistorante"),
        pulsante("Command7", "Documenti", R::Diritto, "Documenti"),
        pulsante("Command15", "Centralino", R::Diritto, "Centralino"),
        pulsante("Command4", "Sveglie", R::Diritto, "Sveglie"),
        pulsante("Command8", "Backup", R::SoloAmministratore),
        pulsante("Command14", "GESTIONE SKY", R::SoloAmministratore),
        pulsante("PulsanteAggiornaSky", "AGGIORNA"),
        pulsante("InvioTelematico", "Invio Telematico", R::Diritto, "InvioTelematico"),
        pulsante("Statistiche", "Statistiche", R::Diritto, "Statistiche"),
        pulsante("Fine", "FINE"),
        // Menus.
        voce("mFile", "mCambiaUtente", "Cambia Utente / Disconnetti"),
        voce("mFile", "mFine", "Fine"),
        voce("mConfigurazioni", "mConfigurazioniGenerali", "Configurazioni"),
        voce("mConfigurazioni", "mConfigurazioniCamere", "Configurazione Camere"),
        voce("mConfigurazioni", "mConfigurazioniStampe", "Configurazione Stampe"),
        voce("mConfigurazioni", "mConfigurazioneTabelle", "Configurazione Tabelle"),
        voce("mConfigurazioni", "mConfigurazioniSale", "Definisci Tipologia Sale"),
        voce("mGrafica", "M_Moderno", "Porte Moderne"),
        voce("mGrafica", "M_Classico", "Porte Classiche"),
        voce("mGrafica", "M_Simbolo", "Simboli"),
        voce("mGrafica", "AbilitaGestioneSpiaggia", "Abilita Gestione Spiaggia"),
        voce("mListini", "mListinoCamere", "Listino Camere"),
        voce("mListini", "mListinoAccessori", "Listino Accessori"),
        voce("mListini", "mListinoSale", "Listino Sale"),
        voce("mListini", "mListinoSpiaggia", "Listino Spiaggia"),
        voce("mCreditiDebiti", "mPagamenti", "Crediti/Debiti"),
        voce("mStampe", "mStampaSituazione", "Stampa Situazione", R::Diritto, "StampaSituazione"),
        voce("mStampe", "mStampaIstat", "Stampa Istat", R::Diritto, "StampaIstat"),
        voce("mStampe", "mStampaPianoCamere", "Pulizia e Manutenzione Camere"),
        voce("mStampe", "m_CreditiPerCliente", "Totale Fatture/Ricevute Cliente", R::Diritto, "StampaTotFattRic"),
        voce("mStampe", "mUnisciSeparaPrenotazioni", "Unisci / Separa Prenotazioni"),
        voce("mUtility", "mRaggruppaPrenotazioni", "Raggruppa Prenotazioni"),
        voce("mUtility", "m_Istat_Sitra", "Creazione file ISTAT per sistema SITRA"),
        voce("mUtility", "mImportazioneTabelle", "Importazione Tabelle"),
        voce("mUtility", "mBackup", "Backup Archivio", R::SoloAmministratore),
        voce("mUtility", "mOttimizzazioneArchivio", "Ottimizzazione Archivio", R::SoloAmministratore),
        voce("mUtility", "mAssistenzaRemota", "Assistenza Remota"),
        voce("mUtility", "mInfo", "Info"),
    };
    return elenco;
}

bool Avvio::permesso(Regola regola, const QString& diritto, bool amministratore,
                     const std::function<bool(const QString&)>& haDiritto)
{
    if (amministratore)
        return true;
    switch (regola) {
    case Regola::Libera:
        return true;
    case Regola::SoloAmministratore:
        return false;
    case Regola::Diritto:
        return haDiritto && haDiritto(diritto);
    }
    return false;
}

Avvio::Avvio(Sessione& sessione)
    : impostaOrologio(&piattaforma::impostaDataOraSistema)
    , m_sessione(sessione)
{
}

Avvio::~Avvio() = default;

void Avvio::apriConnessione()
{
    if (m_connessione)
        return;
    m_connessione = std::make_unique<Archivio>(m_sessione.PercorsoDB, m_sessione.errori);
    if (!m_connessione->apri())
        m_connessione.reset();
}

void Avvio::chiudiConnessione()
{
    m_connessione.reset();
    Archivio::chiudiConnessioni(m_sessione.PercorsoDB);
}

bool Avvio::Form_Load()
{
    m_sessione.PercorsoCondiviso = piattaforma::cartellaCondivisa();
    QDir().mkpath(m_sessione.PercorsoCondiviso);
    apriConnessione();
    if (!m_sessione.PercorsoProgramma.isEmpty())
        QDir::setCurrent(m_sessione.PercorsoProgramma);
    CaricaConfigurazione(m_sessione);

    Titolo = AvvioSelezioneUtente::NomeProdotto() + QStringLiteral(" Ver.") + AvvioSelezioneUtente::VersioneProgramma();
    if (piattaforma::percorsoDiRete(m_sessione.PercorsoDB))
        Titolo += QStringLiteral(" (Archivio in rete)");
    Titolo += QStringLiteral(" - (Utente: ") + m_sessione.UtenteCollegato + QLatin1Char(')');

    if (m_sessione.UtentiCollegati > 4) {
        m_sessione.interazione.messaggio(
            QStringLiteral("Attenzione, database occupato da altri utenti, impossibile accedere!"), {},
            Interazione::Icona::Critico);
        chiudiConnessione();
        Terminato = true;
        return false;
    }

    piattaforma::scriviProgrammaInf(m_sessione.PercorsoCondiviso, AvvioSelezioneUtente::VersioneProgramma(),
                                    m_sessione.configurazione->RagSociale,
                                    QDir::toNativeSeparators(m_sessione.PercorsoProgramma));
    const QString cartellaArchivio = QFileInfo(m_sessione.PercorsoDB).absolutePath() + QLatin1Char('/');
    piattaforma::scriviTiporaIni(m_sessione.PercorsoCondiviso, QDir::toNativeSeparators(cartellaArchivio));

    if (contaUtenti)
        UtentiCollegatiOra = QStringLiteral("Utenti collegati: ") + QString::number(contaUtenti(m_sessione.PercorsoDB));
    controlloOra();
    if (Terminato)
        return false;
    if (ControllaSalvataggioAutomatico)
        ControllaSalvataggioAutomatico();
    return true;
}

void Avvio::controlloOra()
{
    const auto server = controlloora::leggiServer(m_sessione.configurazione->NomeServer);
    if (!server)
        return;
    const auto risposta = controlloora::DataEOraAttuali(*server);
    if (!risposta)
        return;
    const auto momento = controlloora::leggiRisposta(*risposta);
    if (!momento)
        return;
    if (controlloora::verificaOrologio(m_sessione.interazione, *momento, m_sessione.orologio.adesso(),
                                       impostaOrologio)) {
        chiudiConnessione();
        Terminato = true;
    }
}

void Avvio::Form_Activate()
{
    if (!m_sessione.PercorsoProgramma.isEmpty())
        QDir::setCurrent(m_sessione.PercorsoProgramma);
    apriConnessione();
}

QStringList Avvio::SettaPermessiUtente() const
{
    const bool amministratore = accesso::amministratore(m_sessione);
    const auto haDiritto = [this](const QString& diritto) { return accesso::haDiritto(m_sessione, diritto); };
    QStringList permessi;
    for (const Menu& m : menu()) {
        if (permesso(m.regola, m.diritto, amministratore, haDiritto))
            permessi << m.nome;
    }
    for (const Comando& c : comandi()) {
        if (permesso(c.regola, c.diritto, amministratore, haDiritto))
            permessi << c.nome;
    }
    return permessi;
}

void Avvio::registraComando(const QString& nome, std::function<void()> azione)
{
    for (auto& [n, a] : m_azioni) {
        if (n == nome) {
            a = std::move(azione);
            return;
        }
    }
    m_azioni.emplace_back(nome, std::move(azione));
}

bool Avvio::comandoRegistrato(const QString& nome) const
{
    for (const auto& [n, a] : m_azioni)
        if (n == nome)
            return bool(a);
    return false;
}

bool Avvio::consentito(const QString& nome) const
{
    const bool amministratore = accesso::amministratore(m_sessione);
    const auto haDiritto = [this](const QString& diritto) { return accesso::haDiritto(m_sessione, diritto); };
    for (const Comando& c : comandi()) {
        if (c.nome != nome)
            continue;
        if (!permesso(c.regola, c.diritto, amministratore, haDiritto))
            return false;
        for (const Menu& m : menu())
            if (m.nome == c.menu && !permesso(m.regola, m.diritto, amministratore, haDiritto))
                return false;
        return true;
    }
    // The board's own controls (floor, dates, selection) are open to whoever sees the board.
    return true;
}

bool Avvio::esegui(const QString& nome)
{
    std::function<void()> azione;
    for (const auto& [n, a] : m_azioni)
        if (n == nome)
            azione = a;
    if (!azione)
        return false;
    if (!consentito(nome)) {
        m_sessione.interazione.messaggio(testoNonAbilitato(), {}, Interazione::Icona::Critico);
        return false;
    }
    azione();
    return true;
}

namespace {
const QString chiaveFinestraRidotta = QStringLiteral("Avvio_FinestraRidotta");
}

bool Avvio::FinestraMassimizzata() const
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return true;
    return Variabili(archivio).LeggiVariabileNumero(chiaveFinestraRidotta) == 0;
}

void Avvio::SalvaFinestraMassimizzata(bool massimizzata)
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Variabili(archivio).SalvaVariabileNumero(chiaveFinestraRidotta, massimizzata ? 0 : 1);
}

int Avvio::intervalloCentralinoMs() const
{
    const double secondi = m_sessione.configurazione->SecondiAggiornamentoCentralino;
    return secondi >= 1 && secondi < 86400 ? int(secondi * 1000) : 60000;
}

void Avvio::Fine_Click()
{
    chiudiConnessione();
    Terminato = true;
}

bool Avvio::mFine_Click()
{
    if (!m_sessione.interazione.domandaSiNo(QStringLiteral("Terminare la sesione di lavoro?")))
        return false;
    chiudiConnessione();
    Terminato = true;
    return true;
}

void Avvio::mCambiaUtente_Click()
{
    chiudiConnessione();
    CambiaUtente = true;
}

} // namespace tomvera
