#pragma once

#include <QString>
#include <QStringList>

namespace tomvera::test {

// What the command-line program answered: exit code (-1 when it crashed, hung or never started), stdout, stderr.
struct EsitoCli
{
    int codice;
    QString out;
    QString err;
};

// Runs the real tomvera-cli, so the tests check the contract as a script would see it.
EsitoCli eseguiCli(const QString& sottocomando, const QStringList& argomenti = {});
// The same, with the given text on the program's standard input.
EsitoCli eseguiCli(const QString& sottocomando, const QStringList& argomenti, const QString& ingresso);

} // namespace tomvera::test
