#pragma once

#include <QString>
#include <functional>

namespace tomvera {

class Interazione;

// Why the archive refused a statement, when the reason is one the user can act on.
enum class ProblemaArchivio
{
    Nessuno,
    Occupato, // still locked by another user after every retry
    SolaLettura // the file or its folder can't be written
};

// The central policy for failed archive statements: retry while the archive is busy, otherwise skip the
// statement and go on. The counter is run-wide and reset only by an ignored unknown error.
class GestioneErrori
{
public:
    // Error numbers of the old engine that mean "the archive is busy".
    static constexpr int OggettoNonImpostato = 91;
    static constexpr int ImpossibileAprireFile = 3051;
    static constexpr int RecordBloccato = 3260;
    static constexpr int AperturaEsclusiva = 3356;

    using FunzionePausa = std::function<void(double secondi)>;
    using FunzioneTermina = std::function<void()>;

    explicit GestioneErrori(Interazione* interazione = nullptr);

    // True: execute the failed statement again. False: go on with the next statement.
    bool GestioneErroreDatabase(int numero, const QString& descrizione);

    static bool erroreDiArchivioOccupato(int numero);

    // The one text for an archive that stayed busy, on screens and on the command line alike.
    static QString testoArchivioOccupato();
    static QString testoSolaLettura(const QString& percorso);

    // Called by the archive layer when a statement is lost to a busy or read-only archive. Remembered (for the
    // command line, which reports it on exit) and, when `avvisa` is set, told to the user once until the
    // archive answers again.
    void segnalaProblema(ProblemaArchivio problema, const QString& percorso, bool avvisa);
    void archivioRisponde() { m_problemaDetto = false; }
    // The last such problem of the run; Nessuno if none happened.
    ProblemaArchivio problema() const { return m_problema; }
    QString testoProblema() const;
    void dimenticaProblema() { m_problema = ProblemaArchivio::Nessuno; }

    int contatore() const { return m_contatore; }
    bool abilitaDiagnosticaErrori() const { return m_diagnostica; }
    void setAbilitaDiagnosticaErrori(bool attiva) { m_diagnostica = attiva; }
    void setInterazione(Interazione* interazione) { m_interazione = interazione; }
    void setPausa(FunzionePausa pausa) { m_pausa = std::move(pausa); }
    void setTermina(FunzioneTermina termina) { m_termina = std::move(termina); }
    void azzera() { m_contatore = 0; }

private:
    Interazione* m_interazione;
    FunzionePausa m_pausa;
    FunzioneTermina m_termina;
    int m_contatore = 0;
    bool m_diagnostica = false;
    ProblemaArchivio m_problema = ProblemaArchivio::Nessuno;
    QString m_percorsoProblema;
    bool m_problemaDetto = false;
};

// Waits the given time while the event loop keeps running (timers may fire meanwhile).
void Pausa(double secondi);

} // namespace tomvera
