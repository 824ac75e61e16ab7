#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace tomvera {

// Every message, question and input box of a screen goes through here, so the logic classes never touch a
// widget and tests can script the answers and check the exact texts.
class Interazione
{
public:
    enum class Icona
    {
        Nessuna,
        Informazione,
        Avviso,
        Critico,
        Domanda
    };
    // The kinds of the transient notice screen.
    enum class TipoAvviso
    {
        Conferma,
        Informazione,
        Errore,
        Domanda,
        InputBox
    };

    virtual ~Interazione() = default;

    // A standard message box with the OK button.
    virtual void messaggio(const QString& testo, const QString& titolo = {}, Icona icona = Icona::Nessuna) = 0;
    // Yes/No question: true for "Sì".
    virtual bool domandaSiNo(const QString& testo, const QString& titolo = {}, Icona icona = Icona::Domanda) = 0;
    // Yes/No/Cancel question: true for "Sì", false for "No", nullopt for "Annulla" (Esc answers that too, so a
    // stray key never picks the answer that throws work away).
    virtual std::optional<bool> domandaSiNoAnnulla(const QString& testo, const QString& titolo = {},
                                                   Icona icona = Icona::Domanda)
    {
        return domandaSiNo(testo, titolo, icona);
    }
    // OK/Cancel question: true for OK.
    virtual bool okAnnulla(const QString& testo, const QString& titolo = {}, Icona icona = Icona::Avviso) = 0;
    // Input box: std::nullopt when cancelled.
    virtual std::optional<QString> inputBox(const QString& testo, const QString& titolo = {},
                                            const QString& predefinito = {})
        = 0;
    virtual std::optional<QString> scegliFileDaAprire(const QString& titolo, const QString& cartella,
                                                      const QString& filtro)
        = 0;
    virtual std::optional<QString> scegliFileDaSalvare(const QString& titolo, const QString& percorso,
                                                       const QString& filtro)
        = 0;
    virtual std::optional<QString> scegliCartella(const QString& titolo, const QString& cartella) = 0;
    // The timed notice (Messaggio): closes by itself after durataMs, or on a click; 0 = no timer.
    virtual void avviso(TipoAvviso tipo, const QString& testo, int durataMs, bool modale) = 0;
    // The "Attendere" notice of the busy archive: shows it if hidden and restarts its closing timer.
    virtual void archivioOccupato(int contatoreErrori) = 0;
};

// "Operazione Effettuata!" for 600 ms: the standard notice after a successful save.
inline void operazioneEffettuata(Interazione& interazione)
{
    interazione.avviso(Interazione::TipoAvviso::Conferma, QStringLiteral("Operazione Effettuata!"), 600, false);
}

} // namespace tomvera
