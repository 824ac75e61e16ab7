#include "eseguicli.h"

#include <QProcess>

namespace tomvera::test {

EsitoCli eseguiCli(const QString& sottocomando, const QStringList& argomenti)
{
    return eseguiCli(sottocomando, argomenti, QString());
}

EsitoCli eseguiCli(const QString& sottocomando, const QStringList& argomenti, const QString& ingresso)
{
    QProcess processo;
    processo.start(QStringLiteral(TOMVERA_CLI), QStringList { sottocomando } + argomenti);
    if (processo.waitForStarted(30000)) {
        processo.write(ingresso.toUtf8());
        processo.closeWriteChannel();
    }
    // A hang must fail the test, not pass as a silent exit code 0.
    const bool finito = processo.waitForFinished(30000);
    if (!finito) {
        processo.kill();
        processo.waitForFinished(5000);
    }
    return { finito && processo.exitStatus() == QProcess::NormalExit ? processo.exitCode() : -1,
             QString::fromUtf8(processo.readAllStandardOutput()), QString::fromUtf8(processo.readAllStandardError()) };
}

} // namespace tomvera::test
