#pragma once

#include "foundation/permessi.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tomvera {

class Archivio;
class Interazione;
struct Sessione;

// The built-in administrator (no row in TabellaUtenti, password in Configurazioni) and the named users.
namespace utenti {

inline QString NomeAmministratore()
{
    return QStringLiteral("Amministratore");
}
// "AMMINISTRATORE" in any case is the administrator.
bool eAmministratore(const QString& nome);

// Passwords are stored as "pbkdf2$<iterations>$<salt>$<hash>" (PBKDF2-HMAC-SHA256, base64). An empty
// password stays empty: it means "no password". An older archive may still hold clear text.
QString CifraPassword(const QString& chiaro);
bool passwordCifrata(const QString& memorizzata);
// The typed text against the stored value (hash or clear text; empty matches only empty).
bool VerificaPassword(const QString& digitata, const QString& memorizzata);

// The stored password of a user or of the administrator (the hidden TMPPassword of the login screen).
QString LeggiPasswordUtente(Archivio& archivio, const QString& nome);
bool richiedePassword(const QString& memorizzata);

// The non-empty names of TabellaUtenti in name order, without the administrator.
QStringList elencoUtenti(Archivio& archivio);

// False only when the user's NonAttivo is 1; the administrator and a failed read pass.
bool UtenteAttivo(Archivio& archivio, const QString& nome);

// The administrator's archive commands are enabled only while the typed password matches; never for others.
bool ControllaSeAmministratore(const QString& nome, const QString& digitata, const QString& tmpPassword);

// Reads the user's row into the rights (a right is granted when its field is 1). A failed read, or a null in
// the older rights, leaves the value as it was.
void PermessiUtente(Archivio& archivio, const QString& nome, tomvera::PermessiUtente& permessi);

// The login checks in order, with their messages. On success the user is stored in the session with the
// rights, and a clear-text password found in an old archive is replaced by its hash.
enum class EsitoAccesso
{
    Riuscito,
    UtenteNonSelezionato,
    UtenteNonAttivo,
    PasswordErrata
};
EsitoAccesso Accedi(Sessione& sessione, const QString& nome, const QString& digitata, const QString& tmpPassword);

// A user with that name other than the one of `indiceEscluso` (0 = none).
bool ControllaEsistenzaUtente(Archivio& archivio, const QString& nome, qint64 indiceEscluso = 0);

// Password and confirmation of the settings screen; both empty are accepted (no password, or kept as is).
bool CorrettezzaPassword(Interazione& interazione, const QString& password, const QString& conferma);

// A row of TabellaUtenti as the settings screen edits it.
struct Utente
{
    qint64 Indice = 0; // 0: not yet stored
    QString nome;
    QString password; // as stored
    bool NonAttivo = false;
    tomvera::PermessiUtente diritti;
};
QList<Utente> leggiUtenti(Archivio& archivio);
// Adds (Indice 0) or updates the row by Indice; returns the Indice, 0 when the write failed.
qint64 salvaUtente(Archivio& archivio, const Utente& utente);
bool cancellaUtente(Archivio& archivio, qint64 indice);

// The administrator's password, the field Password of Configurazioni (stored as given).
bool salvaPasswordAmministratore(Archivio& archivio, const QString& memorizzata);

} // namespace utenti
} // namespace tomvera
