#pragma once

#include "foundation/interazione.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <memory>
#include <optional>

namespace tomvera {
class Archivio;
class UtentiCollegati;
} // namespace tomvera

namespace tomvera::cli {

// Exit codes of every subcommand.
constexpr int EsitoOk = 0;
constexpr int EsitoNegativo = 1; // the command ran and answered "no" (a check that failed)
constexpr int EsitoErrore = 2; // bad arguments, unreadable archive, bad date: nothing written

// The arguments of one subcommand: "--nome valore" pairs and bare words.
class Argomenti
{
public:
    explicit Argomenti(const QStringList& argomenti);
    std::optional<QString> valore(const QString& nome) const;
    bool presente(const QString& nome) const;
    int ripetizioni(const QString& nome) const;
    const QStringList& posizionali() const { return m_posizionali; }
    // Options given but not among the known ones (reported as an error).
    QStringList sconosciuti(const QStringList& noti) const;

private:
    QStringList m_nomi;
    QStringList m_valori;
    QStringList m_posizionali;
};

struct Console
{
    QTextStream out;
    QTextStream err;
    Console();
    // One clear Italian line on stderr; returns EsitoErrore.
    int errore(const QString& testo);
};

// Checks shared by the commands. Each returns the Italian error line, empty when all is in order.

// Unknown or repeated options, or more bare words than `posizionali`.
QString controllaArgomenti(const Argomenti& argomenti, const QStringList& noti, int posizionali = 0);
// The trimmed value of an option; nullopt when missing or blank.
std::optional<QString> testoRichiesto(const Argomenti& argomenti, const QString& nome);
// A required date option, day first.
std::optional<QDate> dataRichiesta(const Argomenti& argomenti, const QString& nome, QString& errore);
// Opens an archive that must exist (never creating it) and hold the given tables.
QString apriArchivioEsistente(Archivio& archivio, const QStringList& tabelle);

using FunzioneComando = int (*)(const Argomenti&, Console&);

struct Comando
{
    const char* nome;
    const char* uso;
    FunzioneComando esegui;
    const char* opzioni = nullptr; // the known options, blank separated; null: the command checks them itself
    int posizionali = 0;
};

// A command that writes an archive registers in its connected-users list for as long as it runs, so that a
// restore or a compaction started meanwhile finds the archive busy. Registration is best effort: a folder
// where the list can't be written can't take the archive's journal either, and the write reports that.
class RegistrazioneScrittura
{
public:
    explicit RegistrazioneScrittura(const QString& percorsoArchivio);
    ~RegistrazioneScrittura();
    RegistrazioneScrittura(const RegistrazioneScrittura&) = delete;
    RegistrazioneScrittura& operator=(const RegistrazioneScrittura&) = delete;
    bool registrata() const;

private:
    std::unique_ptr<UtentiCollegati> m_utenti;
};

// Each subcommand lives in its own file and is listed in main.cpp.
int comandoCreaArchivio(const Argomenti&, Console&);
int comandoBackup(const Argomenti&, Console&);
int comandoRipristina(const Argomenti&, Console&);
int comandoVerificaCodiceFiscale(const Argomenti&, Console&);
int comandoVerificaPartitaIva(const Argomenti&, Console&);
int comandoImportaCodici(const Argomenti&, Console&);
int comandoCreaArchivioCodici(const Argomenti&, Console&);
int comandoDisponibilita(const Argomenti&, Console&);
int comandoPrezzo(const Argomenti&, Console&);
int comandoGeneraDemo(const Argomenti&, Console&);
int comandoTabellone(const Argomenti&, Console&);
int comandoDocumentoCalcola(const Argomenti&, Console&);
int comandoDocumentoRegistra(const Argomenti&, Console&);
int comandoDocumentoCancella(const Argomenti&, Console&);
int comandoScadenze(const Argomenti&, Console&);
int comandoSchedine(const Argomenti&, Console&);

// The command line is the confirmation: every question of the screens is answered yes, an input box with the
// given word, and the last message is kept for the command to report.
class InterazioneConfermata : public Interazione
{
public:
    explicit InterazioneConfermata(std::optional<QString> rispostaInput = std::nullopt)
        : m_rispostaInput(std::move(rispostaInput))
    {
    }
    QString ultimo;
    void messaggio(const QString& testo, const QString&, Icona) override { ultimo = testo; }
    bool domandaSiNo(const QString&, const QString&, Icona) override { return true; }
    bool okAnnulla(const QString&, const QString&, Icona) override { return true; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override { return m_rispostaInput; }
    std::optional<QString> scegliFileDaAprire(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliFileDaSalvare(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliCartella(const QString&, const QString&) override { return {}; }
    void avviso(TipoAvviso, const QString&, int, bool) override { }
    void archivioOccupato(int) override { }

private:
    std::optional<QString> m_rispostaInput;
};

} // namespace tomvera::cli
