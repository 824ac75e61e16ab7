#include "foundation/utenti.h"

#include "foundation/archivio.h"
#include "foundation/interazione.h"
#include "foundation/sessione.h"

#include <QCryptographicHash>
#include <QPasswordDigestor>
#include <QRandomGenerator>
#include <QSqlRecord>

namespace tomvera::utenti {

namespace {

constexpr int IterazioniPbkdf2 = 60000;
constexpr int LunghezzaSale = 16;
constexpr int LunghezzaChiave = 32;
const QLatin1String Prefisso("pbkdf2$");

QByteArray derivaChiave(const QString& chiaro, const QByteArray& sale, int iterazioni)
{
    return QPasswordDigestor::deriveKeyPbkdf2(QCryptographicHash::Sha256, chiaro.toUtf8(), sale, iterazioni,
                                              LunghezzaChiave);
}

// Same time whatever the first differing byte.
bool ugualiATempoCostante(const QByteArray& a, const QByteArray& b)
{
    if (a.size() != b.size())
        return false;
    unsigned char diff = 0;
    for (qsizetype i = 0; i < a.size(); ++i)
        diff |= static_cast<unsigned char>(a[i] ^ b[i]);
    return diff == 0;
}

struct Cifrata
{
    int iterazioni = 0;
    QByteArray sale;
    QByteArray chiave;
};

std::optional<Cifrata> leggiCifrata(const QString& memorizzata)
{
    if (!memorizzata.startsWith(Prefisso))
        return std::nullopt;
    const QStringList parti = memorizzata.split(QLatin1Char('$'));
    if (parti.size() != 4)
        return std::nullopt;
    bool ok = false;
    Cifrata c;
    c.iterazioni = parti[1].toInt(&ok);
    c.sale = QByteArray::fromBase64(parti[2].toLatin1());
    c.chiave = QByteArray::fromBase64(parti[3].toLatin1());
    if (!ok || c.iterazioni <= 0 || c.sale.isEmpty() || c.chiave.isEmpty())
        return std::nullopt;
    return c;
}

QString testo(const QVariant& v)
{
    return v.isNull() ? QString() : v.toString();
}

} // namespace

bool eAmministratore(const QString& nome)
{
    return nome.compare(NomeAmministratore(), Qt::CaseInsensitive) == 0;
}

QString CifraPassword(const QString& chiaro)
{
    if (chiaro.isEmpty())
        return {};
    QByteArray sale(LunghezzaSale, Qt::Uninitialized);
    QRandomGenerator::system()->fillRange(reinterpret_cast<quint32*>(sale.data()), LunghezzaSale / 4);
    const QByteArray chiave = derivaChiave(chiaro, sale, IterazioniPbkdf2);
    return Prefisso + QString::number(IterazioniPbkdf2) + QLatin1Char('$') + QString::fromLatin1(sale.toBase64())
        + QLatin1Char('$') + QString::fromLatin1(chiave.toBase64());
}

bool passwordCifrata(const QString& memorizzata)
{
    return leggiCifrata(memorizzata).has_value();
}

bool VerificaPassword(const QString& digitata, const QString& memorizzata)
{
    if (memorizzata.isEmpty())
        return digitata.isEmpty();
    if (const auto c = leggiCifrata(memorizzata))
        return ugualiATempoCostante(derivaChiave(digitata, c->sale, c->iterazioni), c->chiave);
    return digitata == memorizzata; // clear text of an older archive: exact comparison
}

bool richiedePassword(const QString& memorizzata)
{
    return !memorizzata.isEmpty();
}

QString LeggiPasswordUtente(Archivio& archivio, const QString& nome)
{
    if (eAmministratore(nome))
        return testo(archivio.valore(QStringLiteral("SELECT Password FROM Configurazioni WHERE Indice > 0")));
    return testo(archivio.valore(QStringLiteral("SELECT Password FROM TabellaUtenti WHERE Utente = ?"), { nome }));
}

QStringList elencoUtenti(Archivio& archivio)
{
    QStringList nomi;
    const auto righe = archivio.righe(QStringLiteral("SELECT Utente FROM TabellaUtenti ORDER BY Utente"));
    for (const QSqlRecord& r : righe) {
        const QString nome = testo(r.value(0));
        if (!nome.isEmpty())
            nomi << nome;
    }
    return nomi;
}

bool UtenteAttivo(Archivio& archivio, const QString& nome)
{
    if (eAmministratore(nome))
        return true;
    const QVariant v
        = archivio.valore(QStringLiteral("SELECT NonAttivo FROM TabellaUtenti WHERE Utente = ?"), { nome });
    return !(v.isValid() && !v.isNull() && v.toInt() == 1);
}

bool ControllaSeAmministratore(const QString& nome, const QString& digitata, const QString& tmpPassword)
{
    return eAmministratore(nome) && VerificaPassword(digitata, tmpPassword);
}

namespace {

void leggiDiritti(const QSqlRecord& riga, tomvera::PermessiUtente& permessi)
{
    for (const CampoDiritto& c : campiDiritti()) {
        const int i = riga.indexOf(QString::fromLatin1(c.campo));
        if (i < 0)
            continue; // field missing in an older archive: a failed read leaves the value
        const QVariant v = riga.value(i);
        permessi.*c.diritto = !v.isNull() && v.toInt() == 1;
    }
}

} // namespace

void PermessiUtente(Archivio& archivio, const QString& nome, tomvera::PermessiUtente& permessi)
{
    const auto riga = archivio.riga(QStringLiteral("SELECT * FROM TabellaUtenti WHERE Utente = ?"), { nome });
    if (riga)
        leggiDiritti(*riga, permessi);
}

EsitoAccesso Accedi(Sessione& sessione, const QString& nome, const QString& digitata, const QString& tmpPassword)
{
    Interazione& ui = sessione.interazione;
    if (nome.trimmed().isEmpty()) {
        ui.messaggio(QStringLiteral("Selezionare un utente!"));
        return EsitoAccesso::UtenteNonSelezionato;
    }
    Archivio archivio(sessione.PercorsoDB, sessione.errori);
    archivio.apri();
    if (!UtenteAttivo(archivio, nome)) {
        ui.messaggio(QStringLiteral("Attenzione, Utente non attivo"));
        return EsitoAccesso::UtenteNonAttivo;
    }
    if (!VerificaPassword(digitata, tmpPassword)) {
        ui.messaggio(QStringLiteral("Password errata!"));
        return EsitoAccesso::PasswordErrata;
    }
    // An old archive's clear text goes once the user has proved to know it.
    if (!tmpPassword.isEmpty() && !passwordCifrata(tmpPassword)) {
        const QString cifrata = CifraPassword(digitata);
        if (eAmministratore(nome))
            archivio.comando(QStringLiteral("UPDATE Configurazioni SET Password = ? WHERE Indice > 0"), { cifrata });
        else
            archivio.comando(QStringLiteral("UPDATE TabellaUtenti SET Password = ? WHERE Utente = ?"),
                             { cifrata, nome });
    }
    sessione.UtenteCollegato = nome;
    if (eAmministratore(nome))
        sessione.permessi->amministratore = true;
    else {
        sessione.permessi->amministratore = false;
        PermessiUtente(archivio, nome, *sessione.permessi);
    }
    return EsitoAccesso::Riuscito;
}

bool ControllaEsistenzaUtente(Archivio& archivio, const QString& nome, qint64 indiceEscluso)
{
    return archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaUtenti WHERE Utente = ? AND Indice <> ?"),
                               { nome, indiceEscluso });
}

bool CorrettezzaPassword(Interazione& interazione, const QString& password, const QString& conferma)
{
    if (password.isEmpty() && conferma.isEmpty())
        return true;
    QString errore;
    if (password.isEmpty())
        errore = QStringLiteral("Attenzione, valorizzare il campo: PASSWORD");
    else if (conferma.isEmpty())
        errore = QStringLiteral("Attenzione, valorizzare il campo: CONFERMA PASSWORD");
    else if (password != conferma)
        errore = QStringLiteral("Attenzione, campo: PASSWORD diverso da: CONFERMA PASSWORD");
    else if (password.size() < 4 || password.size() > 12)
        errore = QStringLiteral("Attenzione, la PASSWORD deve avere un numero di caratteri compreso tra 4 e 12");
    if (errore.isEmpty())
        return true;
    interazione.messaggio(errore);
    return false;
}

QList<Utente> leggiUtenti(Archivio& archivio)
{
    QList<Utente> elenco;
    const auto righe = archivio.righe(QStringLiteral("SELECT * FROM TabellaUtenti ORDER BY Utente"));
    for (const QSqlRecord& r : righe) {
        Utente u;
        u.Indice = r.value(QStringLiteral("Indice")).toLongLong();
        u.nome = testo(r.value(QStringLiteral("Utente")));
        u.password = testo(r.value(QStringLiteral("Password")));
        u.NonAttivo = r.value(QStringLiteral("NonAttivo")).toInt() == 1;
        leggiDiritti(r, u.diritti);
        elenco << u;
    }
    return elenco;
}

qint64 salvaUtente(Archivio& archivio, const Utente& utente)
{
    QStringList campi { QStringLiteral("Utente"), QStringLiteral("Password") };
    QVariantList valori { utente.nome, utente.password };
    for (const CampoDiritto& c : campiDiritti()) {
        campi << QString::fromLatin1(c.campo);
        valori << (utente.diritti.*c.diritto ? 1 : 0);
    }
    campi.insert(campi.indexOf(QStringLiteral("Sveglie")), QStringLiteral("NonAttivo"));
    valori.insert(campi.indexOf(QStringLiteral("NonAttivo")), utente.NonAttivo ? 1 : 0);
    if (utente.Indice > 0) {
        valori << utente.Indice;
        const bool ok
            = archivio.comando(QStringLiteral("UPDATE TabellaUtenti SET ") + campi.join(QStringLiteral(" = ?, "))
                                   + QStringLiteral(" = ? ") + QStringLiteral("WHERE Indice = ?"),
                               valori);
        return ok && archivio.righeModificate() == 1 ? utente.Indice : 0;
    }
    QStringList segnaposto;
    for (int i = 0; i < campi.size(); ++i)
        segnaposto << QStringLiteral("?");
    if (!archivio.comando(QStringLiteral("INSERT INTO TabellaUtenti (") + campi.join(QStringLiteral(", "))
                              + QStringLiteral(") VALUES (") + segnaposto.join(QStringLiteral(", "))
                              + QStringLiteral(")"),
                          valori))
        return 0;
    return archivio.ultimoIndiceInserito();
}

bool cancellaUtente(Archivio& archivio, qint64 indice)
{
    return archivio.comando(QStringLiteral("DELETE FROM TabellaUtenti WHERE Indice = ?"), { indice });
}

bool salvaPasswordAmministratore(Archivio& archivio, const QString& memorizzata)
{
    if (!archivio.esisteRiga(QStringLiteral("SELECT Indice FROM Configurazioni WHERE Indice > 0"))
        && !archivio.comando(QStringLiteral("INSERT INTO Configurazioni (Password) VALUES ('')")))
        return false;
    return archivio.comando(QStringLiteral("UPDATE Configurazioni SET Password = ? WHERE Indice > 0"), { memorizzata });
}

} // namespace tomvera::utenti
