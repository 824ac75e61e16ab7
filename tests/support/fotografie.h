#pragma once

#include <QDir>
#include <QTest>
#include <QWidget>

namespace tomvera::test {

// Screenshots for the README are taken only on request: TOMVERA_SCREENSHOTS names the folder
// (e.g. docs/screenshots). A normal test run never writes into the sources.
inline void fotografa(QWidget& finestra, const QString& nome)
{
    const QString cartella = qEnvironmentVariable("TOMVERA_SCREENSHOTS");
    if (cartella.isEmpty())
        return;
    QDir().mkpath(cartella);
    // Let pending layouts settle before the picture.
    QTest::qWait(50);
    finestra.grab().save(QDir(cartella).filePath(nome + QStringLiteral(".png")));
}

} // namespace tomvera::test
