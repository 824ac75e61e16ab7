#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVariant>
#include <memory>
#include <optional>

namespace tomvera {

class GestioneErrori;
enum class ProblemaArchivio;
struct Connessione;

// Access to one archive file. Every statement runs through here with bound parameters and the central
// error policy: a busy archive is retried, any other failure skips the statement and the caller goes on.
// Objects on the same file in the same thread share one SQLite connection (and its transaction).
// Writes are refused, never half-run: while a Transazione on the file that could not begin is alive, after a
// statement of the open transaction failed, and on an archive that can't be written.
class Archivio
{
public:
    enum class Apertura
    {
        Esistente, // the file must exist; never created
        Crea // created if missing
    };

    Archivio(const QString& percorso, GestioneErrori& errori);
    ~Archivio();
    Archivio(const Archivio&) = delete;
    Archivio& operator=(const Archivio&) = delete;

    // Opens (or joins) the connection, read-write so a transaction cut short by a crash is rolled back first.
    // A file that can't be opened for a moment is waited for under the policy. False when the file can't be
    // opened as an archive.
    bool apri(Apertura modo = Apertura::Esistente);
    bool aperto() const;
    const QString& percorso() const { return m_percorso; }
    QSqlDatabase connessione() const;
    GestioneErrori& errori() const { return m_errori; }

    // Runs a statement under the error policy. nullopt: the statement was skipped.
    std::optional<QSqlQuery> esegui(const QString& sql, const QVariantList& parametri = {});
    // A write (or DDL) statement: true when it was executed.
    bool comando(const QString& sql, const QVariantList& parametri = {});
    // All rows of a query, read at once.
    QList<QSqlRecord> righe(const QString& sql, const QVariantList& parametri = {});
    std::optional<QSqlRecord> riga(const QString& sql, const QVariantList& parametri = {});
    // First column of the first row; an invalid QVariant when there is no row.
    QVariant valore(const QString& sql, const QVariantList& parametri = {});
    bool esisteRiga(const QString& sql, const QVariantList& parametri = {});

    // A statement prepared once and run many times (bulk writes): prepara() then esegui(query, params).
    // nullopt when the statement can't be prepared.
    std::optional<QSqlQuery> prepara(const QString& sql);
    bool esegui(QSqlQuery& preparata, const QVariantList& parametri);
    qint64 ultimoIndiceInserito() const;
    int righeModificate() const { return m_righeModificate; }

    // Outside the policy: for the schema routines, which skip every error in silence.
    bool comandoSenzaGestione(const QString& sql, const QVariantList& parametri = {});
    QSqlError ultimoErrore() const { return m_ultimoErrore; }

    // Why the last statement through this object was lost, when the user can act on it (busy beyond the
    // retries, read-only archive); Nessuno after a statement that ran.
    ProblemaArchivio problema() const { return m_problema; }
    bool occupato() const;
    // The file or its folder can't be written: known on opening, or at the first write the engine refused.
    bool soloLettura() const;

    // The engine's error number as the policy knows it (busy and cannot-open map to the old numbers).
    static int numeroErrore(const QSqlError& errore);

    // Tests whether the archive at path opens: "" on success, else the message to show. It opens read-write,
    // so a journal left by a crash is rolled back here and the archive is whole for everyone after.
    static QString VerificaArchivio(const QString& percorso);
    // Tests whether the archive at path (the file and the folder its journal goes in) can be written: "" when it
    // can, else the read-only message with the path.
    static QString VerificaScrittura(const QString& percorso);

    // Closes every connection of this thread to the file (before copying, replacing or deleting it).
    static void chiudiConnessioni(const QString& percorso);

private:
    friend class Transazione;
    // Opens the connection for a statement, waiting out a file that can't be opened for a moment.
    bool apriPerIstruzione();
    // Refuses a write that must not run (see the class comment); false when the statement may run.
    bool scritturaRifiutata(const QSqlQuery& query);
    // After a failure: decides between retry (true) and skip, recording the problem the user must know about.
    bool riprova(const QSqlQuery& query);
    void riuscito(const QSqlQuery& query);
    void segnala(ProblemaArchivio problema, bool scrittura);

    QString m_percorso;
    QString m_chiave;
    GestioneErrori& m_errori;
    std::shared_ptr<Connessione> m_connessione;
    QSqlError m_ultimoErrore;
    qint64 m_ultimoIndice = -1;
    int m_righeModificate = 0;
    ProblemaArchivio m_problema;
};

// All or nothing: a multi-table save runs inside one of these. commit() makes it permanent; the destructor
// rolls back anything not committed. A statement skipped by the error policy inside it makes commit() fail.
// Nested transactions join the outer one; an inner one left without commit makes the outer one fail.
// One that could not begin (archive busy or read-only) tells the user once and, while it is alive, every write
// on the file is refused: a save never lands row by row, and no caller has to check attiva() first.
class Transazione
{
public:
    explicit Transazione(Archivio& archivio);
    ~Transazione();
    Transazione(const Transazione&) = delete;
    Transazione& operator=(const Transazione&) = delete;

    bool attiva() const { return m_attiva; }
    bool commit();
    void rollback();

private:
    Archivio& m_archivio;
    QString m_bloccoFile; // set while this failed transaction blocks the file's writes
    bool m_attiva = false;
    bool m_esterna = false;
};

// Registers the old engine's SQL functions on a raw connection handle (done on every connection).
void registraFunzioniJet(const QSqlDatabase& db);

} // namespace tomvera
