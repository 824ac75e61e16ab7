#pragma once

#include "foundation/gestioneerrori.h"
#include "interazionescriptata.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

namespace tomvera::test {

// Another user's save in progress: a second connection holding the write lock (others may still read) until
// registra() or rilascia().
class AltroUtente
{
public:
    // esclusivo: a save at its commit, which keeps the readers out too.
    explicit AltroUtente(const QString& percorso, bool esclusivo = false)
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_nome);
        db.setDatabaseName(percorso);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
        QVERIFY(db.open());
        QVERIFY(QSqlQuery(db).exec(esclusivo ? QStringLiteral("BEGIN EXCLUSIVE") : QStringLiteral("BEGIN IMMEDIATE")));
    }
    AltroUtente(const AltroUtente&) = delete;
    AltroUtente& operator=(const AltroUtente&) = delete;
    ~AltroUtente() { rilascia(); }

    // The other user's save lands and the lock goes.
    void registra(const QString& sql)
    {
        QSqlDatabase db = QSqlDatabase::database(m_nome, false);
        QVERIFY(QSqlQuery(db).exec(sql));
        QVERIFY(QSqlQuery(db).exec(QStringLiteral("COMMIT")));
    }

    void rilascia()
    {
        if (!QSqlDatabase::contains(m_nome))
            return;
        {
            QSqlDatabase db = QSqlDatabase::database(m_nome, false);
            QSqlQuery(db).exec(QStringLiteral("ROLLBACK"));
            db.close();
        }
        QSqlDatabase::removeDatabase(m_nome);
    }

private:
    QString m_nome = QStringLiteral("altro-utente");
};

// The other user finishes the moment this one is told the archive is busy: a save that carried on regardless
// would then land row by row. Install it as the error policy's interaction.
class InterazioneCheRilascia : public InterazioneScriptata
{
public:
    explicit InterazioneCheRilascia(AltroUtente& altro)
        : m_altro(altro)
    {
    }
    void messaggio(const QString& testo, const QString& titolo, Icona icona) override
    {
        InterazioneScriptata::messaggio(testo, titolo, icona);
        if (testo == GestioneErrori::testoArchivioOccupato())
            m_altro.rilascia();
    }

private:
    AltroUtente& m_altro;
};

} // namespace tomvera::test
