#pragma once

#include <QDateTime>
#include <QString>

namespace tomvera::piattaforma {

// The folders and side files the program expects on a Windows front-desk PC, mapped to the natural places of
// the system it runs on. With the environment variable TOMVERA_HOME set, every folder lives under it (tests,
// demos, a portable install): Documenti/, ZRShared/, BackupTomvera/, Programma/.

// The user's documents folder.
QString cartellaDocumenti();
// Documents + "Archivi Tomvera": where a fresh archive goes.
QString cartellaArchiviPredefinita();
QString percorsoArchivioPredefinito(); // .../Archivi Tomvera/Archivio.mdb
QString percorsoArchivioSkyPredefinito();
// What c:\ZRShared stands for: the folder read by the update and report-layout tools.
QString cartellaCondivisa();
// What c:\BackupTomvera\ stands for (with a trailing separator, as the stored setting has it).
QString cartellaBackupPredefinita();
// A folder stored in the archive by a Windows install ("c:\BackupTomvera\") means the backup folder here.
QString percorsoLocale(const QString& percorsoMemorizzato);

// The program's folder: Percorso.txt, Utente.txt and the work copies (copia.mdb, compatto.mdb) live here.
// On Linux an installed program's folder is read-only, so the per-user configuration folder stands in for it.
QString cartellaProgramma();
QString percorsoFileLaterale(const QString& nome);

// One-line side files: first line, trimmed; empty when missing or unreadable.
QString leggiPrimaRiga(const QString& percorso);
bool scriviRiga(const QString& percorso, const QString& testo);

// The two ini files of the shared folder, deleted and rewritten at each start.
bool scriviProgrammaInf(const QString& cartella, const QString& versione, const QString& ragioneSociale,
                        const QString& percorsoProgramma);
bool scriviTiporaIni(const QString& cartella, const QString& cartellaArchivio);

// A new empty file that only its owner may read and write (0600 on POSIX), for copies that hold the whole
// hotel's data. False when the file exists already or can't be created.
bool creaFilePrivato(const QString& percorso);

// A path that is not on this machine (UNC, smb:// and the like): restores refuse it, and the main window's
// title says "(Archivio in rete)".
bool percorsoDiRete(const QString& percorso);
// Absolute and local: the only kind of destination a restore accepts.
bool percorsoLocaleAssoluto(const QString& percorso);

// Opens a web address or a folder with the desktop's default handler.
bool apriIndirizzo(const QString& indirizzo);
bool apriCartella(const QString& cartella);

// Setting the machine's clock needs rights a front-desk user doesn't have: false means access denied.
bool impostaDataOraSistema(const QDateTime& momento);

} // namespace tomvera::piattaforma
