#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

namespace tomvera {

class Archivio;
class Interazione;
struct Configurazione;

// Dated copies of the archive: one file a day per folder, named ddMMyy.mdb, e.g. 161126.mdb.
namespace backup {

QString nomeFileBackup(const QDate& giorno);
// The day a backup's name stands for; invalid when the name is no date. Two digits of year are 20yy.
QDate dataDaNomeBackup(const QString& nomeFile);
// The number of copies the retention pass keeps for a setting: a setting below one means the default.
int numeroDaMantenere(int impostato);
// The files to delete so that `daMantenere` (at least one) remain: the oldest dated ones first. Undated names
// and `protetto` (today's copy) are never deleted but still count, as in the folder's list.
QStringList backupDaCancellare(const QStringList& nomiFile, int daMantenere, const QString& protetto = {});

// A consistent compacted copy of a live archive (SQLite's VACUUM INTO), safe while others write, made after
// rolling back a journal left by a crash. The destination must not exist; `privata` creates it readable by
// the owner only. False with the engine's message in `errore`.
// `occupato` tells a copy refused because another program held the archive beyond the wait.
bool copiaCompattata(const QString& sorgente, const QString& destinazione, QString* errore = nullptr,
                     bool privata = false, bool* occupato = nullptr);
// "" when the file is an archive of this program, else the Italian reason: missing, empty, not a database,
// another program's database (the pay-TV archive included), or without the key tables.
QString verificaArchivioTomvera(const QString& percorso);
// Moves a file, also across file systems.
bool spostaFile(const QString& da, const QString& a);

// Steps of a backup: copy to copia.mdb in the work folder, then into the folder under today's name.
// Returns the path of the backup, empty when it could not be written.
QString EseguiCopiaBackup(const QString& percorsoDB, const QString& cartella, const QString& nomeFile,
                          const QString& cartellaLavoro, bool* occupato = nullptr);

// Holds the folder to `daMantenere` backups, never deleting the copy of `oggi`; returns the files deleted.
QStringList CancellaFile(const QString& cartella, int daMantenere, const QDate& oggi);

struct Impostazioni
{
    bool salvataggioAutomatico = false;
    QString cartellaAutomatica;
    QString cartellaManuale;
    int daMantenere = 7;
};

// The backup settings of the run, or of the archive's Configurazioni row (defaults when unreadable).
Impostazioni impostazioniDa(const Configurazione& configurazione);
Impostazioni leggiImpostazioni(Archivio& archivio);

// ArchivioOccupato: the connected-users list names more users than the `propri` of this process.
bool archivioOccupato(const QString& percorsoDB, int propri);

// The backup and restore commands, for one archive and the program's work folder.
class Manutenzione
{
public:
    // True when other users are in the archive: busy for backup, restore and compaction.
    using ArchivioOccupato = std::function<bool(const QString& percorso)>;

    Manutenzione(Interazione& interazione, QString percorsoDB, QString cartellaLavoro, ArchivioOccupato occupato);

    // The automatic pass at start: one backup a day, then the old ones beyond the number to keep go.
    // True when a backup was written.
    bool ControllaSalvataggioAutomatico(const Impostazioni& impostazioni, const QDate& oggi);

    // The manual backup: from the settings screen (asks naming the file, ends with "Backup Eseguito") or from
    // the screen Backup (asks about "the folder shown", ends with "PROCEDURA TERMINATA").
    enum class Origine
    {
        Configurazioni,
        SchermoBackup
    };
    QString EseguiBackup(const QString& cartella, const QDate& oggi, Origine origine);

    // Restores a backup over the archive, keeping the live data as a dated safety copy
    // (copia_yyyyMMdd_HHmmss.mdb in the work folder). True: the program must restart.
    bool RipristinaDb(const QString& fileBackup);

    // "Ottimizzazione Archivio": compacts the live archive in place.
    bool OttimizzazioneArchivio();

    // The safety copy made by the last restore; empty before one.
    QString percorsoCopia() const;

private:
    QString nuovaCopiaDiSicurezza() const;

    Interazione& m_interazione;
    QString m_percorsoDB;
    QString m_cartellaLavoro;
    ArchivioOccupato m_occupato;
    QString m_ultimaCopia;
};

} // namespace backup
} // namespace tomvera
