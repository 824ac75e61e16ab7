#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace tomvera {

struct Sessione;

// The first screen, F_AvvioSelezioneUtente: finds the archive, brings it to the program's version and logs a
// user in. The widget shows these values and forwards the clicks; nothing here touches a widget.
class AvvioSelezioneUtente
{
public:
    static QString VersioneProgramma(); // "3.9.4"
    static QString NomeProdotto(); // "Tomvera"
    static constexpr int AltezzaBassa = 3000; // the short screen, in the old units (twips)
    static constexpr int AltezzaAlta = 6180; // with the archive commands

    enum class EsitoVersione
    {
        Uguale,
        Aggiornato,
        ProgrammaPiuVecchio,
        AggiornamentoNonRiuscito // the version row is left as it was, login is off
    };

    // contaUtenti: the connected-users count of the archive (UtentiCollegatiDB).
    using ContaUtenti = std::function<int(const QString& percorso)>;

    AvvioSelezioneUtente(Sessione& sessione, ContaUtenti contaUtenti);

    // Load and activation sequences; the widget runs Form_Activate only while ErroreAvvio is hidden.
    void Form_Load();
    void Form_Activate();
    void LetturaPath();
    bool ControllaCorrettezzaArchivio();
    EsitoVersione ControllaVersione(const QString& versioneProgramma);
    void CaricaUtenteSelezionato();
    void SalvaUtenteSelezionato();
    void CaricaUtenti();
    void LeggiPasswordUtente();
    void ControllaSeAmministratore();
    int UtentiCollegatiDB();

    // Events and commands.
    void Utente_Click(const QString& utente);
    void Password_Change(const QString& testo);
    bool Accedi_Click(); // true: the user is in, Avvio takes over
    void Command1_Click(); // ends the program (also Escape)
    void Impostazioni_Click(); // short / tall
    void Command2_Click(); // choose another archive
    void Command3_Click(); // back to the default archive
    void Command5_Click(); // create the archive at PercorsoDB

    // The upgrade of the archive, step by step: each step's line, the steps done and their expected number.
    std::function<void(const QString& riga, int fatti, int totale)> avanzamentoAggiornamento;
    // The upgrade itself (the archive creation); replaceable in tests. True when it went through.
    std::function<bool(const std::function<void(const QString&)>& registro)> eseguiAggiornamento;
    static QString testoAggiornamentoNonRiuscito()
    {
        return QStringLiteral("Attenzione, l'aggiornamento dell'archivio non è riuscito: l'archivio è rimasto alla "
                              "versione precedente.\nChiudere gli altri programmi che lo usano e riavviare.");
    }

    // State shown by the screen.
    QString Titolo;
    QString Ver;
    bool VerAggiornato = false; // "Aggiornamento eseguito ..." in dark red
    QString PercorsoDataBase;
    QString ErroreAvvio;
    bool ErroreAvvioVisibile = false;
    bool AccediAbilitato = true;
    bool Command5Abilitato = false;
    bool ImpostazioniAbilitato = true;
    bool AggiornamentoOnLineAbilitato = true;
    bool Alto = false;
    QStringList Utenti;
    QString Utente;
    QString Password;
    bool PasswordVisibile = false;
    bool SelezionaPassword = false; // after "Password errata!": focus on the box with its text selected
    bool Terminato = false; // Command1 / Escape

    QString CartellaArchivio;
    QString PercorsoImmaginiSpiaggia;

private:
    void ricarica();
    bool aggiornaArchivio();
    EsitoVersione aggiornamentoNonRiuscito();
    bool m_archivioOccupato = false; // the archive check failed only because another user held the file

    Sessione& m_sessione;
    ContaUtenti m_contaUtenti;
    QString m_tmpPassword; // the stored password of the selected user (a hash, or empty)
};

} // namespace tomvera
