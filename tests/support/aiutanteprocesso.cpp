// A second program on the same archive, for the tests that need another process:
//   aiutante blocca <archivio> <millisecondi>       holds a write lock on the archive, then lets it go
//   aiutante registra <archivio> <macchina> <utente> registers as a connected user and waits to be killed
// Each step is announced on stdout, so the test knows when to act.
#include "foundation/utenticollegati.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTextStream>
#include <QThread>

namespace {

void annuncia(const QString& riga)
{
    QTextStream out(stdout);
    out << riga << Qt::endl;
}

int blocca(const QString& archivio, int millisecondi)
{
    int esito = 1;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("aiutante"));
        db.setDatabaseName(archivio);
        if (db.open()) {
            QSqlQuery q(db);
            if (q.exec(QStringLiteral("BEGIN EXCLUSIVE"))) {
                annuncia(QStringLiteral("bloccato"));
                QThread::msleep(static_cast<unsigned long>(millisecondi));
                q.exec(QStringLiteral("COMMIT"));
                annuncia(QStringLiteral("sbloccato"));
                esito = 0;
            }
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("aiutante"));
    return esito;
}

int registra(const QString& archivio, const QString& macchina, const QString& utente)
{
    tomvera::UtentiCollegati utenti;
    if (!utenti.registra(archivio, macchina, utente))
        return 1;
    annuncia(QStringLiteral("registrato ") + QString::number(utenti.posizione()));
    // Never outlives a test that forgot it.
    QThread::sleep(60);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() == 4 && a.at(1) == QLatin1String("blocca"))
        return blocca(a.at(2), a.at(3).toInt());
    if (a.size() == 5 && a.at(1) == QLatin1String("registra"))
        return registra(a.at(2), a.at(3), a.at(4));
    QTextStream(stderr) << "uso: aiutante blocca|registra ..." << Qt::endl;
    return 2;
}
