#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

namespace tomvera {

class Archivio;
struct Sessione;

// The main screen Avvio as a shell: its load sequence, title, rights on menus and buttons, ending.
// The planning board fills its central area and adds its own commands.
class Avvio
{
public:
    enum class Regola
    {
        Libera, // always allowed
        Diritto, // allowed when the user holds `diritto`
        SoloAmministratore
    };

    // A button of the menu bar (menu empty) or a menu item (menu = the top menu's name).
    struct Comando
    {
        QString nome;
        QString testo;
        QString menu;
        Regola regola = Regola::Libera;
        QString diritto;
    };
    struct Menu
    {
        QString nome;
        QString testo;
        Regola regola = Regola::Libera;
        QString diritto;
    };

    static const std::vector<Menu>& menu();
    static const std::vector<Comando>& comandi();
    // The rule of SettaPermessiUtente for one command or menu; the administrator may do everything.
    static bool permesso(Regola regola, const QString& diritto, bool amministratore,
                         const std::function<bool(const QString&)>& haDiritto);

    explicit Avvio(Sessione& sessione);
    ~Avvio();

    // False: the program must end (too many users, or the clock was reset).
    bool Form_Load();
    void Form_Activate();

    // The names of the commands and menus the logged-in user may use.
    QStringList SettaPermessiUtente() const;

    // What a command of the window does (by its control name), registered by the program. Commands run only
    // through esegui, which checks the user's rights here: a hidden button is not the only guard.
    void registraComando(const QString& nome, std::function<void()> azione);
    bool comandoRegistrato(const QString& nome) const;
    // Whether the user may run the command: its own rule and that of the menu it sits in.
    bool consentito(const QString& nome) const;
    // Runs the command; false when it is unknown or the user's rights refuse it (said with a message).
    bool esegui(const QString& nome);
    static QString testoNonAbilitato() { return QStringLiteral("Attenzione, utente non abilitato a questa funzione!"); }

    void Fine_Click();
    bool mFine_Click(); // true when the user confirmed
    void mCambiaUtente_Click();

    // The desk's choice of a maximised main window (the default) or a smaller one, kept in the archive.
    bool FinestraMassimizzata() const;
    void SalvaFinestraMassimizzata(bool massimizzata);

    // TimerCentralino runs every SecondiAggiornamentoCentralino seconds (at least one).
    int intervalloCentralinoMs() const;

    // The persistent connection: released around operations that replace the archive file.
    void chiudiConnessione();
    void apriConnessione();

    QString Titolo;
    QString UtentiCollegatiOra; // "Utenti collegati: N", this run included, for the status bar
    bool Terminato = false;
    bool CambiaUtente = false;

    // The connected-users list of the archive (this run registered before the load).
    std::function<int(const QString& percorso)> contaUtenti;
    // Work of other subsystems, wired by the program: the automatic backup at load.
    std::function<void()> ControllaSalvataggioAutomatico;
    // The clock reset after the time check (replaceable in tests).
    bool (*impostaOrologio)(const QDateTime&) = nullptr;

private:
    void controlloOra();

    Sessione& m_sessione;
    std::unique_ptr<Archivio> m_connessione;
    std::vector<std::pair<QString, std::function<void()>>> m_azioni;
};

} // namespace tomvera
