#pragma once

#include "foundation/configurazione.h"
#include "foundation/utenti.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>

namespace tomvera {

class Archivio;
struct Sessione;

// VAT rates: a rate that documents or price lists use can't change under them.
namespace aliquote {

// Two rates are the same when they agree to the cent of a percent.
bool stessaAliquota(double a, double b);

// What the archive holds: the rates found on document lines, reservation rows and price lists, and the
// slots that stored document headers use (their amounts are kept by slot position).
struct UsoAliquote
{
    QList<double> aliquoteUsate;
    std::array<bool, 9> slotUsati {};
};
UsoAliquote leggiUso(Archivio& archivio);

// A slot is locked when a stored document uses it, or when its rate (not 0) is in use.
std::array<bool, 9> slotBloccati(const std::array<double, 9>& aliquote, const UsoAliquote& uso);

// The checks of a save, in order; the first failure's message, or empty when all pass.
// `memorizzate` are the rates as stored, `bloccati` the locked slots.
QString controlla(const Configurazione& nuova, const std::array<double, 9>& memorizzate,
                  const std::array<bool, 9>& bloccati);

} // namespace aliquote

// The settings screen: the one row of Configurazioni, the administrator's password, the logo, the VAT
// table with its locks, and the users with their rights. The widget copies the values in and out.
class FConfigurazioni
{
public:
    explicit FConfigurazioni(Sessione& sessione);

    // Commands that live in other parts of the program; a command with no handler isn't offered.
    std::function<void()> EseguiBackup; // "Esegui Backup Archivio"
    std::function<void()> OttimizzazioneArchivio; // Command3
    std::function<void()> RipristinaBackup; // "Ripristina Backup..."
    std::function<void()> ConfigurazioneMultiAzienda;
    std::function<void()> TrasformaInMaiuscole;
    std::function<void()> dopoSalvataggio; // e.g. the multi-company copy of the letterhead

    // Reads everything: the row (defaults where null), the logo, the password state, the locks, the users.
    void Form_Load();

    // Settings --------------------------------------------------------------------------------------------
    Configurazione valori;
    QByteArray Logo;
    // The administrator's password: the boxes stay empty; both empty keep the stored one.
    QString PasswordProgramma, ConfermaPasswordProgramma;
    bool RimuoviPasswordProgramma = false;
    bool passwordAmministratorePresente() const { return !m_passwordAmministratore.isEmpty(); }
    // Printers of the system, for the three choices (filled by the widget: the logic has no printer access).
    QStringList stampanti;

    const std::array<bool, 9>& iveBloccate() const { return m_bloccate; }
    void BloccaIveInUso();
    bool ControlloIve();

    // Check-in/out order, VAT checks, password, then one write; reloads the run's settings.
    bool Registra_Click();
    // Whether the settings on screen differ from those read or last saved (values, logo, a typed password).
    bool modificato() const;
    // The values as they stand count as the saved ones (after the screen has shown them).
    void memorizzaStato();
    // ESCI, Esc and the close box: true when the screen may close. Unsaved changes are asked about first;
    // on Yes the screen closes only if the save went through.
    bool Fine_Click();

    // Leaving a backup folder field: a folder other than the default asks for confirmation; on No the
    // default comes back. True when the value stays.
    bool ControllaCartellaBackup(QString& cartella);
    // Double click on PercorsoBackup: the folder choice.
    void PercorsoBackup_DblClick();

    // The network labels of the screen; the choice is remembered for every user in Variabili.
    bool MostraIpPrivato = false, MostraIpPubblico = false, MostraNome = false;
    void SalvaSceltaRete();
    static QString ipPrivato(); // the first IPv4 address that isn't loopback
    static QString nomeComputer();

    bool CaricaLogo_Click();
    void RimuoviLogo_Click();

    // Users ---------------------------------------------------------------------------------------------
    QList<utenti::Utente> RigheArt; // "LISTA UTENTI"
    int rigaSelezionata = -1;
    utenti::Utente utente; // the fields being edited; Indice 0 = new
    QString PasswordUtente, ConfermaPasswordUtente;
    bool RimuoviPasswordUtente = false;
    bool utenteHaPassword() const { return !m_passwordUtente.isEmpty(); }

    void RigheArt_Click(int riga);
    bool Ins_Click(); // "REGISTRA"
    bool Command16_Click(); // "ELIMINA UTENTE SELEZIONATO"
    void SelezionaTutti_Click();
    void DeselezionaTutti_Click();
    void PulisciCampiUtente();
    void PulisciGrigliaUtente();
    void CaricaUtenti();

private:
    void CaricaPasswordAmministratore(Archivio& archivio);
    void CaricaLogo(Archivio& archivio);
    QString cartellaProgramma() const;
    bool SalvaConfigurazioneSky();

    Sessione& m_sessione;
    QString m_passwordAmministratore; // as stored
    QString m_passwordUtente; // as stored, of the selected user
    std::array<double, 9> m_ivaMemorizzate {};
    Configurazione m_valoriMemorizzati;
    std::array<bool, 9> m_bloccate {};
    bool m_logoModificato = false;
    QString m_fileLogo; // the picture chosen, written at the next save
};

} // namespace tomvera
