#include "foundation/archivio.h"

#include "foundation/gestioneerrori.h"

#include <QAtomicInteger>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSqlDriver>
#include <QThread>
#include <QUrl>

namespace tomvera {

// One SQLite connection of this thread to one file, shared by the Archivio objects that use the file.
struct Connessione
{
    QString nome;
    QString percorso;
    int livelloTransazione = 0;
    bool transazioneFallita = false;

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
    , m_errori(errori)
{
}

Archivio::~Archivio() = default;

bool Archivio::apri(Apertura modo)
{
    if (m_connessione)
        return true;
    const QString k = chiave(m_percorso);
    auto& connessioni = connessioniDelThread();
    if (auto esistente = connessioni.value(k).lock()) {
        m_connessione = esistente;
        return true;
    }
    if (modo == Apertura::Esistente && !QFileInfo(m_percorso).isFile())
        return false;

    auto nuova = std::make_shared<Connessione>();
    nuova->nome = nuovoNomeConnessione();
    nuova->percorso = m_percorso;
    QSqlDatabase db = apriConnessione(nuova->nome, m_percorso, modo == Apertura::Crea, false);
    if (!db.isOpen()) {
        m_ultimoErrore = db.lastError();
        return false;
    }
    m_connessione = nuova;
    // The first read proves the file is an archive; a busy file is waited for under the policy.
    for (;;) {
        QSqlQuery prova(db);
        if (prova.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")))
            break;
        m_ultimoErrore = prova.lastError();
        const int numero = numeroErrore(m_ultimoErrore);
        if (!GestioneErrori::erroreDiArchivioOccupato(numero)
            || !m_errori.GestioneErroreDatabase(numero, m_ultimoErrore.text())) {
            m_connessione.reset();
            return false;
        }
    }
    QSqlQuery(db).exec(QStringLiteral("PRAGMA journal_mode=DELETE"));
    connessioni.insert(k, m_connessione);
    return true;
}

bool Archivio::aperto() const
{
    return m_connessione != nullptr;
}

QSqlDatabase Archivio::connessione() const
{
    return m_connessione ? QSqlDatabase::database(m_connessione->nome, false) : QSqlDatabase();
}

int Archivio::numeroErrore(const QSqlError& errore)
{
    bool ok = false;
    const int codice = errore.nativeErrorCode().toInt(&ok) & 0xff;
    if (!ok)
        return 1;
    switch (codice) {
    case 5: // SQLITE_BUSY
    case 6: // SQLITE_LOCKED
        return GestioneErrori::RecordBloccato;
    case 14: // SQLITE_CANTOPEN
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

bool Archivio::preparaEdEsegui(QSqlQuery& query, const QString& sql, const QVariantList& parametri)
{
    query.setForwardOnly(true);
    if (!query.prepare(adattaSql(sql)))
        return false;
    for (const QVariant& p : parametri)
        query.addBindValue(p);
    return query.exec();
}

std::optional<QSqlQuery> Archivio::esegui(const QString& sql, const QVariantList& parametri)
{
    if (!m_connessione && !apri()) {
        // The archive itself can't be reached: the statement is skipped as the policy would.
        m_errori.GestioneErroreDatabase(GestioneErrori::ImpossibileAprireFile, m_ultimoErrore.text());
        return std::nullopt;
    }
    const QSqlDatabase db = connessione();
    for (;;) {
        QSqlQuery query(db);
        if (preparaEdEsegui(query, sql, parametri)) {
            m_ultimoIndice = query.lastInsertId().isValid() ? query.lastInsertId().toLongLong() : -1;
            m_righeModificate = query.numRowsAffected();
            return query;
        }
        m_ultimoErrore = query.lastError();
        query.finish();
        if (!m_errori.GestioneErroreDatabase(numeroErrore(m_ultimoErrore), m_ultimoErrore.text())) {
            if (m_connessione->livelloTransazione > 0)
                m_connessione->transazioneFallita = true;
            return std::nullopt;
        }
    }
}

std::optional<QSqlQuery> Archivio::prepara(const QString& sql)
{
    if (!m_connessione && !apri())
        return std::nullopt;
    for (;;) {
        QSqlQuery query(connessione());
        query.setForwardOnly(true);
        if (query.prepare(adattaSql(sql)))
            return query;
        m_ultimoErrore = query.lastError();
        if (!m_errori.GestioneErroreDatabase(numeroErrore(m_ultimoErrore), m_ultimoErrore.text())) {
            if (m_connessione->livelloTransazione > 0)
                m_connessione->transazioneFallita = true;
            return std::nullopt;
        }
    }
}

bool Archivio::esegui(QSqlQuery& preparata, const QVariantList& parametri)
{
    for (;;) {
        for (int i = 0; i < parametri.size(); ++i)
            preparata.bindValue(i, parametri.at(i));
        if (preparata.exec()) {
            m_ultimoIndice = preparata.lastInsertId().isValid() ? preparata.lastInsertId().toLongLong() : -1;
            m_righeModificate = preparata.numRowsAffected();
            return true;
        }
        m_ultimoErrore = preparata.lastError();
        preparata.finish();
        if (!m_errori.GestioneErroreDatabase(numeroErrore(m_ultimoErrore), m_ultimoErrore.text())) {
            if (m_connessione && m_connessione->livelloTransazione > 0)
                m_connessione->transazioneFallita = true;
            return false;
        }
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
    if (preparaEdEsegui(query, sql, parametri)) {
        m_ultimoIndice = query.lastInsertId().isValid() ? query.lastInsertId().toLongLong() : -1;
        m_righeModificate = query.numRowsAffected();
        return true;
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
        QSqlDatabase db = apriConnessione(nome, percorso, false, true);
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
    if (!m_archivio.aperto() && !m_archivio.apri())
        return;
    Connessione& c = *m_archivio.m_connessione;
    if (c.livelloTransazione > 0) {
        m_esterna = true;
        ++c.livelloTransazione;
        m_attiva = true;
        return;
    }
    // IMMEDIATE takes the write lock now: a busy archive is waited for here, never half-way through a save.
    if (m_archivio.comando(QStringLiteral("BEGIN IMMEDIATE"))) {
        c.livelloTransazione = 1;
        c.transazioneFallita = false;
        m_attiva = true;
    }
}

Transazione::~Transazione()
{
    if (m_attiva)
        rollback();
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
