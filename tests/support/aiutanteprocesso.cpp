// A second program on the same archive, for the tests that need another process:
//   aiutante blocca <archivio> <millisecondi>       holds a write lock on the archive, then lets it go
//   aiutante registra <archivio> <macchina> <utente> registers as a connected user and waits to be killed
//   aiutante scrivi <archivio>                       saves in a loop through the archive layer, until killed
//   aiutante interrompi <archivio>                   stops half-way through a save and waits to be killed
// Each step is announced on stdout, so the test knows when to act.
#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
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

// One save of the crash test: the same round number lands in two tables and in the counter, or nowhere.
bool salva(tomvera::Archivio& archivio, bool aMeta)
{
    tomvera::Transazione transazione(archivio);
    const int giro = archivio.valore(QStringLiteral("SELECT giro FROM Stato")).toInt() + 1;
    const QString nota(200, QLatin1Char('x'));
    for (const char* tabella : { "Prenotazioni", "Ospiti" }) {
        for (int riga = 0; riga < 50 * (aMeta ? 10 : 1); ++riga)
            archivio.comando(QStringLiteral("INSERT INTO ") + QLatin1String(tabella)
                                 + QStringLiteral(" (giro, riga, nota) VALUES (?, ?, ?)"),
                             { giro, riga, nota });
        if (aMeta) {
            annuncia(QStringLiteral("a metà"));
            QThread::sleep(60);
        }
    }
    archivio.comando(QStringLiteral("UPDATE Stato SET giro = ?"), { giro });
    return transazione.commit();
}

int scrivi(const QString& percorso, bool aMeta)
{
    tomvera::GestioneErrori errori;
    tomvera::Archivio archivio(percorso, errori);
    if (!archivio.apri())
        return 1;
    // A small page cache spills into the file before the commit, as a large save does: a kill then leaves a
    // journal the next opening must play back.
    archivio.comando(QStringLiteral("PRAGMA cache_size = 5"));
    if (aMeta)
        return salva(archivio, true) ? 0 : 1;
    for (bool primo = true;; primo = false) {
        if (!salva(archivio, false))
            return 1;
        if (primo)
            annuncia(QStringLiteral("pronto"));
    }
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
    if (a.size() == 3 && (a.at(1) == QLatin1String("scrivi") || a.at(1) == QLatin1String("interrompi")))
        return scrivi(a.at(2), a.at(1) == QLatin1String("interrompi"));
    QTextStream(stderr) << "uso: aiutante blocca|registra|scrivi|interrompi ..." << Qt::endl;
    return 2;
}
