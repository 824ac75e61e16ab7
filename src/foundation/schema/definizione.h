#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace tomvera {

class Archivio;

namespace schema {

// Field types of the old engine and how they are stored:
// Contatore -> INTEGER PRIMARY KEY AUTOINCREMENT; Long, Intero, Byte, Booleano -> INTEGER (flags 0/1);
// Double, Single, Valuta -> REAL; DataOra -> TEXT (yyyy-MM-dd, yyyy-MM-dd HH:mm:ss or HH:mm:ss);
// Testo, Memo -> TEXT COLLATE NOCASE; Binario -> BLOB.
enum class Tipo
{
    Contatore,
    Long,
    Intero,
    Byte,
    Booleano,
    Double,
    Single,
    Valuta,
    DataOra,
    Testo,
    Memo,
    Binario
};

struct Campo
{
    QString nome;
    Tipo tipo = Tipo::Testo;
    int dimensione = 0; // Testo only: the engine refuses a longer value
    bool zeroAmmessa = true; // false: the empty text is refused
    bool richiesto = false; // true: null is refused
};

struct Indice
{
    QString nome;
    QStringList campi;
    bool unico = false;
    bool primario = false;
};

struct Tabella
{
    QString nome;
    QList<Campo> campi;
    QList<Indice> indici;
    // The name in the log line "Controllo Tabella <nome> Effettuato", when it differs from the table's.
    QString nomeNelRegistro;
};

// Short builders, so that a table reads like its definition.
Campo contatore(const QString& nome = QStringLiteral("Indice"));
Campo testo(const QString& nome, int dimensione, bool zeroAmmessa = true, bool richiesto = false);
Campo memo(const QString& nome, bool zeroAmmessa = true);
Campo lungo(const QString& nome);
Campo intero(const QString& nome);
Campo byte(const QString& nome);
Campo booleano(const QString& nome);
Campo doppio(const QString& nome);
Campo singolo(const QString& nome);
Campo valuta(const QString& nome);
Campo dataOra(const QString& nome);
Campo binario(const QString& nome);
Indice indice(const QString& nome, const QStringList& campi, bool unico = false, bool primario = false);

// The column definition as created in the archive (type, collation and checks).
QString definizioneColonna(const Campo& campo);

// Create-if-missing: the table whole when it is missing, otherwise each missing field (appended at the end)
// and each missing index. An existing field keeps its type and size. Errors are skipped in silence.
// Returns false only when the archive could not be reached.
bool applicaTabella(Archivio& archivio, const Tabella& tabella);

// Widens a text field's size limit (never narrows it). Existing rows are untouched.
bool allargaCampoTesto(Archivio& archivio, const QString& tabella, const QString& campo, int dimensione);

// Names of the fields of a table as they stand in the archive (empty if the table is missing).
QStringList campiEsistenti(Archivio& archivio, const QString& tabella);
bool tabellaEsiste(Archivio& archivio, const QString& tabella);

} // namespace schema
} // namespace tomvera
