#include "foundation/archivio.h"

#include "foundation/gestioneerrori.h"

#include <QAtomicInteger>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QSqlDriver>
#include <QSqlResult>
#include <QTemporaryFile>
#include <QThread>
#include <QUrl>
#include <sqlite3.h>

namespace tomvera {

// One SQLite connection of this thread to one file, shared by the Archivio objects that use the file.
struct Connessione
{
    QString nome;
    QString percorso;
    int livelloTransazione = 0;
    bool transazioneFallita = false;
    bool soloLettura = false;

    ~Connessione()
    {
        {
            QSqlDatabase db = QSqlDatabase::database(nome, false);
            if (db.isOpen())
                db.close();
        }
        QSqlDatabase::removeDatabase(nome);
    }
};

namespace {

QString chiave(const QString& percorso)
{
    const QFileInfo info(percorso);
    const QString canonico = info.canonicalFilePath();
    return canonico.isEmpty() ? info.absoluteFilePath() : canonico;
}

QHash<QString, std::weak_ptr<Connessione>>& connessioniDelThread()
{
    thread_local QHash<QString, std::weak_ptr<Connessione>> connessioni;
    return connessioni;
}

// Failed transactions alive in this thread, per file: their file takes no writes until they end.
QHash<QString, int>& blocchiDelThread()
{
    thread_local QHash<QString, int> blocchi;
    return blocchi;
}

// Files this thread has opened: one of them missing now is a share that dropped, worth waiting for.
QSet<QString>& fileGiaAperti()
{
    thread_local QSet<QString> aperti;
    return aperti;
}

bool fileBloccato(const QString& chiaveFile)
{
    return blocchiDelThread().value(chiaveFile) > 0;
}

sqlite3* handleDi(const QSqlDatabase& db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.constData());
}

// A prepared statement that may change the file. Unknown statements count as writes.
bool modifica(const QSqlQuery& query)
{
    const QVariant handle = query.result() ? query.result()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0)
        return true;
    sqlite3_stmt* istruzione = *static_cast<sqlite3_stmt* const*>(handle.constData());
    return istruzione == nullptr || sqlite3_stmt_readonly(istruzione) == 0;
}

int codiceMotore(const QSqlError& errore)
{
    bool ok = false;
    const int codice = errore.nativeErrorCode().toInt(&ok);
    return ok ? codice & 0xff : -1;
}

// A real write test (the permission bits say nothing on shares and for administrators): the file opens for
// writing and a file can be made beside it, where the engine puts its journal.
bool fileScrivibile(const QString& percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    file.close();
    return true;
}

bool cartellaScrivibile(const QString& percorso)
{
    QTemporaryFile prova(QFileInfo(percorso).absoluteDir().filePath(QStringLiteral(".tomvera-prova-XXXXXX")));
    return prova.open();
}

QString nuovoNomeConnessione()
{
    static QAtomicInteger<quint64> progressivo;
    return QStringLiteral("tomvera-") + QString::number(++progressivo);
}

// Opens a raw connection: busy surfaces at once (no engine timeout), so the error policy decides.
QSqlDatabase apriConnessione(const QString& nome, const QString& percorso, bool crea, bool solaLettura)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nome);
    QUrl url = QUrl::fromLocalFile(QFileInfo(percorso).absoluteFilePath());
    url.setQuery(QStringLiteral("mode=")
                 + (solaLettura ? QStringLiteral("ro")
                        : crea  ? QStringLiteral("rwc")
                                : QStringLiteral("rw")));
    db.setDatabaseName(url.toString(QUrl::FullyEncoded));
    db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=0")
                         + (solaLettura ? QStringLiteral(";QSQLITE_OPEN_READONLY") : QString()));
    if (db.open())
        registraFunzioniJet(db);
    return db;
}

} // namespace

Archivio::Archivio(const QString& percorso, GestioneErrori& errori)
    : m_percorso(percorso)
    , m_chiave(chiave(percorso))
    , m_errori(errori)
    , m_problema(ProblemaArchivio::Nessuno)
{
}

Archivio::~Archivio() = default;

bool Archivio::apri(Apertura modo)
{
    if (m_connessione)
        return true;
    auto& connessioni = connessioniDelThread();
    if (auto esistente = connessioni.value(m_chiave).lock()) {
        m_connessione = esistente;
        return true;
    }
    // A file missing or unreadable for a moment (a network drop) is waited for like a busy one.
    for (;;) {
        if (modo == Apertura::Esistente && !QFileInfo(m_percorso).isFile()) {
            if (!fileGiaAperti().contains(m_chiave)) {
                m_ultimoErrore = QSqlError(QStringLiteral("Archivio non trovato"), m_percorso);
                return false;
            }
            m_ultimoErrore = QSqlError(QStringLiteral("Archivio non trovato"), m_percorso, QSqlError::ConnectionError,
                                       QString::number(SQLITE_CANTOPEN));
        } else {
            auto nuova = std::make_shared<Connessione>();
            nuova->nome = nuovoNomeConnessione();
            nuova->percorso = m_percorso;
            QSqlDatabase db = apriConnessione(nuova->nome, m_percorso, modo == Apertura::Crea, false);
            if (db.isOpen()) {
                // The first read proves the file is an archive and rolls back a journal left by a crash.
                QSqlQuery prova(db);
                if (prova.exec(QStringLiteral("SELECT count(*) FROM sqlite_master"))) {
                    prova.finish();
                    QSqlQuery(db).exec(QStringLiteral("PRAGMA journal_mode=DELETE"));
                    nuova->soloLettura = sqlite3_db_readonly(handleDi(db), "main") == 1;
                    m_connessione = nuova;
                    connessioni.insert(m_chiave, m_connessione);
                    fileGiaAperti().insert(m_chiave);
                    m_problema = ProblemaArchivio::Nessuno;
                    return true;
                }
                m_ultimoErrore = prova.lastError();
            } else {
                m_ultimoErrore = db.lastError();
            }
        }
        // Not a file of ours, or a lock that outlasted the retries: not an archive for now.
        const int numero = numeroErrore(m_ultimoErrore);
        if (!GestioneErrori::erroreDiArchivioOccupato(numero)
            || !m_errori.GestioneErroreDatabase(numero, m_ultimoErrore.text())) {
            if (numero == GestioneErrori::RecordBloccato || numero == GestioneErrori::AperturaEsclusiva)
                segnala(ProblemaArchivio::Occupato, false);
            else if (codiceMotore(m_ultimoErrore) == SQLITE_READONLY)
                segnala(ProblemaArchivio::SolaLettura, false);
            return false;
        }
    }
}

bool Archivio::aperto() const
{
    return m_connessione != nullptr;
}

QSqlDatabase Archivio::connessione() const
{
    return m_connessione ? QSqlDatabase::database(m_connessione->nome, false) : QSqlDatabase();
}

bool Archivio::occupato() const
{
    return m_problema == ProblemaArchivio::Occupato;
}

bool Archivio::soloLettura() const
{
    return m_connessione && m_connessione->soloLettura;
}

int Archivio::numeroErrore(const QSqlError& errore)
{
    const int codice = codiceMotore(errore);
    if (codice < 0)
        return 1;
    switch (codice) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return GestioneErrori::RecordBloccato;
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR: // a share that drops for a moment
        return GestioneErrori::ImpossibileAprireFile;
    default:
        return codice;
    }
}

// isnull and left are keywords of SQLite and can't be function names: old-style calls are renamed.
static QString adattaSql(const QString& sql)
{
    if (!sql.contains(QLatin1String("isnull"), Qt::CaseInsensitive)
        && !sql.contains(QLatin1String("left"), Qt::CaseInsensitive))
        return sql;
    static const QRegularExpression chiamata(QStringLiteral("(^|[^A-Za-z0-9_.])(isnull|left)\\s*\\("),
                                             QRegularExpression::CaseInsensitiveOption);
    QString adattata = sql;
    adattata.replace(chiamata, QStringLiteral("\\1jet_\\2("));
    return adattata;
}

void Archivio::segnala(ProblemaArchivio problema, bool scrittura)
{
    m_problema = problema;
    m_errori.segnalaProblema(problema, m_percorso, scrittura);
}

bool Archivio::scritturaRifiutata(const QSqlQuery& query)
{
    if (!modifica(query))
        return false;
    Connessione& c = *m_connessione;
    const bool transazioneFallita = c.livelloTransazione > 0 && c.transazioneFallita;
    if (!transazioneFallita && !fileBloccato(m_chiave) && !c.soloLettura)
        return false;
    m_ultimoErrore = QSqlError(QStringLiteral("Scrittura rifiutata"),
                               c.soloLettura ? QStringLiteral("archivio in sola lettura")
                                             : QStringLiteral("salvataggio non iniziato o già fallito"),
                               QSqlError::TransactionError);
    // The user hears of a failed save from the failure itself; a read-only archive is said at each save.
    if (c.soloLettura && !transazioneFallita)
        segnala(ProblemaArchivio::SolaLettura, true);
    if (c.livelloTransazione > 0)
        c.transazioneFallita = true;
    return true;
}

bool Archivio::riprova(const QSqlQuery& query)
{
    const int codice = codiceMotore(m_ultimoErrore);
    const bool scrittura = modifica(query);
    Connessione& c = *m_connessione;
    // The engine can't make its journal: a folder that can't be written is no reason to wait.
    if (codice == SQLITE_READONLY || (codice == SQLITE_CANTOPEN && scrittura && !cartellaScrivibile(m_percorso))) {
        c.soloLettura = true;
        segnala(ProblemaArchivio::SolaLettura, true);
    } else {
        const int numero = numeroErrore(m_ultimoErrore);
        if (m_errori.GestioneErroreDatabase(numero, m_ultimoErrore.text()))
            return true;
        if (GestioneErrori::erroreDiArchivioOccupato(numero))
            segnala(ProblemaArchivio::Occupato, scrittura);
    }
    if (c.livelloTransazione > 0)
        c.transazioneFallita = true;
    return false;
}

void Archivio::riuscito(const QSqlQuery& query)
{
    m_ultimoIndice = query.lastInsertId().isValid() ? query.lastInsertId().toLongLong() : -1;
    m_righeModificate = query.numRowsAffected();
    m_problema = ProblemaArchivio::Nessuno;
    m_errori.archivioRisponde();
}

bool Archivio::apriPerIstruzione()
{
    // The archive itself can't be reached: waited for as the policy says, then the statement is skipped.
    while (!m_connessione && !apri()) {
        if (!GestioneErrori::erroreDiArchivioOccupato(numeroErrore(m_ultimoErrore))
            || !m_errori.GestioneErroreDatabase(GestioneErrori::ImpossibileAprireFile, m_ultimoErrore.text()))
            return false;
    }
    return true;
}

std::optional<QSqlQuery> Archivio::esegui(const QString& sql, const QVariantList& parametri)
{
    if (!apriPerIstruzione())
        return std::nullopt;
    const QSqlDatabase db = connessione();
    for (;;) {
        QSqlQuery query(db);
        query.setForwardOnly(true);
        if (query.prepare(adattaSql(sql))) {
            if (scritturaRifiutata(query))
                return std::nullopt;
            for (const QVariant& p : parametri)
                query.addBindValue(p);
            if (query.exec()) {
                riuscito(query);
                return query;
            }
        }
        m_ultimoErrore = query.lastError();
        if (!riprova(query))
            return std::nullopt;
        query.finish();
    }
}

std::optional<QSqlQuery> Archivio::prepara(const QString& sql)
{
    if (!apriPerIstruzione())
        return std::nullopt;
    for (;;) {
        QSqlQuery query(connessione());
        query.setForwardOnly(true);
        if (query.prepare(adattaSql(sql)))
            return query;
        m_ultimoErrore = query.lastError();
        if (!riprova(query))
            return std::nullopt;
    }
}

bool Archivio::esegui(QSqlQuery& preparata, const QVariantList& parametri)
{
    if (!m_connessione || scritturaRifiutata(preparata))
        return false;
    for (;;) {
        for (int i = 0; i < parametri.size(); ++i)
            preparata.bindValue(i, parametri.at(i));
        if (preparata.exec()) {
            riuscito(preparata);
            return true;
        }
        m_ultimoErrore = preparata.lastError();
        preparata.finish();
        if (!riprova(preparata))
            return false;
    }
}

bool Archivio::comando(const QString& sql, const QVariantList& parametri)
{
    return esegui(sql, parametri).has_value();
}

QList<QSqlRecord> Archivio::righe(const QString& sql, const QVariantList& parametri)
{
    QList<QSqlRecord> risultato;
    auto query = esegui(sql, parametri);
    if (!query)
        return risultato;
    while (query->next())
        risultato.append(query->record());
    return risultato;
}

std::optional<QSqlRecord> Archivio::riga(const QString& sql, const QVariantList& parametri)
{
    auto query = esegui(sql, parametri);
    if (!query || !query->next())
        return std::nullopt;
    return query->record();
}

QVariant Archivio::valore(const QString& sql, const QVariantList& parametri)
{
    auto query = esegui(sql, parametri);
    if (!query || !query->next())
        return QVariant();
    return query->value(0);
}

bool Archivio::esisteRiga(const QString& sql, const QVariantList& parametri)
{
    auto query = esegui(sql, parametri);
    return query && query->next();
}

qint64 Archivio::ultimoIndiceInserito() const
{
    return m_ultimoIndice;
}

bool Archivio::comandoSenzaGestione(const QString& sql, const QVariantList& parametri)
{
    if (!m_connessione && !apri())
        return false;
    QSqlQuery query(connessione());
    query.setForwardOnly(true);
    if (query.prepare(adattaSql(sql))) {
        if (scritturaRifiutata(query))
            return false;
        for (const QVariant& p : parametri)
            query.addBindValue(p);
        if (query.exec()) {
            riuscito(query);
            return true;
        }
    }
    m_ultimoErrore = query.lastError();
    return false;
}

QString Archivio::VerificaArchivio(const QString& percorso)
{
    if (!QFileInfo(percorso).isFile())
        return QStringLiteral("Archivio non trovato");
    const QString nome = nuovoNomeConnessione();
    bool ok = false;
    {
        // Read-write: the first read rolls back a journal a crash left behind. Read-only, the engine would
        // refuse the file until someone else opened it for writing.
        QSqlDatabase db = apriConnessione(nome, percorso, false, false);
        if (db.isOpen()) {
            QSqlQuery prova(db);
            ok = prova.exec(QStringLiteral("SELECT count(*) FROM sqlite_master"));
            // A file locked by a writer is still an archive.
            if (!ok)
                ok = numeroErrore(prova.lastError()) == GestioneErrori::RecordBloccato;
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(nome);
    return ok ? QString() : QStringLiteral("Errore apertura Archivio");
}

QString Archivio::VerificaScrittura(const QString& percorso)
{
    if (fileScrivibile(percorso) && cartellaScrivibile(percorso))
        return QString();
    return GestioneErrori::testoSolaLettura(QFileInfo(percorso).absoluteFilePath());
}

void Archivio::chiudiConnessioni(const QString& percorso)
{
    auto& connessioni = connessioniDelThread();
    const auto connessione = connessioni.take(chiave(percorso)).lock();
    if (connessione) {
        QSqlDatabase db = QSqlDatabase::database(connessione->nome, false);
        if (db.isOpen())
            db.close();
    }
}

Transazione::Transazione(Archivio& archivio)
    : m_archivio(archivio)
{
    const QString& file = m_archivio.m_chiave;
    // Inside a save that already failed, or on an archive that can't be reached or written, nothing begins.
    if (!fileBloccato(file) && m_archivio.apriPerIstruzione()) {
        Connessione& c = *m_archivio.m_connessione;
        if (c.livelloTransazione > 0) {
            m_esterna = true;
            ++c.livelloTransazione;
            m_attiva = true;
            return;
        }
        if (c.soloLettura) {
            m_archivio.segnala(ProblemaArchivio::SolaLettura, true);
        } else if (m_archivio.comando(QStringLiteral("BEGIN IMMEDIATE"))) {
            // IMMEDIATE takes the write lock now: a busy archive is waited for here, never half-way through.
            c.livelloTransazione = 1;
            c.transazioneFallita = false;
            m_attiva = true;
            return;
        }
    }
    // The write lock stayed with another user: this save is lost, and the user must hear it.
    if (m_archivio.problema() != ProblemaArchivio::Nessuno)
        m_archivio.segnala(m_archivio.problema(), true);
    m_bloccoFile = file;
    ++blocchiDelThread()[m_bloccoFile];
}

Transazione::~Transazione()
{
    if (m_attiva)
        rollback();
    if (!m_bloccoFile.isEmpty()) {
        auto& blocchi = blocchiDelThread();
        if (--blocchi[m_bloccoFile] <= 0)
            blocchi.remove(m_bloccoFile);
    }
}

bool Transazione::commit()
{
    if (!m_attiva)
        return false;
    Connessione& c = *m_archivio.m_connessione;
    if (m_esterna) {
        --c.livelloTransazione;
        m_attiva = false;
        return !c.transazioneFallita;
    }
    if (c.transazioneFallita) {
        rollback();
        return false;
    }
    if (!m_archivio.comando(QStringLiteral("COMMIT"))) {
        if (m_archivio.problema() != ProblemaArchivio::Nessuno)
            m_archivio.segnala(m_archivio.problema(), true);
        rollback();
        return false;
    }
    c.livelloTransazione = 0;
    m_attiva = false;
    return true;
}

void Transazione::rollback()
{
    if (!m_attiva)
        return;
    Connessione& c = *m_archivio.m_connessione;
    m_attiva = false;
    if (m_esterna) {
        --c.livelloTransazione;
        c.transazioneFallita = true;
        return;
    }
    QSqlQuery(m_archivio.connessione()).exec(QStringLiteral("ROLLBACK"));
    c.livelloTransazione = 0;
    c.transazioneFallita = false;
}

} // namespace tomvera
