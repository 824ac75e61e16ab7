#include "testmain.h"

#include <QMap>
#include <QTest>
#include <QTextStream>

#ifdef TOMVERA_TEST_GUI
#include <QApplication>
using Applicazione = QApplication;
#else
#include <QCoreApplication>
using Applicazione = QCoreApplication;
#endif

namespace tomvera::test {

static QMap<QString, FabbricaTest>& registro()
{
    static QMap<QString, FabbricaTest> r;
    return r;
}

Registrazione::Registrazione(const char* nome, FabbricaTest fabbrica)
{
    registro().insert(QString::fromLatin1(nome), std::move(fabbrica));
}

} // namespace tomvera::test

// Usage: test_<subsystem> [Class [QTest options]]; with no class every class runs.
int main(int argc, char** argv)
{
    Applicazione app(argc, argv);
    auto& registro = tomvera::test::registro();
    QStringList argomenti = app.arguments();
    const QString programma = argomenti.takeFirst();
    QStringList classi;
    if (!argomenti.isEmpty() && registro.contains(argomenti.first()))
        classi << argomenti.takeFirst();
    else
        classi = registro.keys();
    int fallimenti = 0;
    for (const QString& nome : classi) {
        auto oggetto = registro.value(nome)();
        QStringList args { programma };
        args << argomenti;
        fallimenti += QTest::qExec(oggetto.get(), args);
    }
    return fallimenti == 0 ? 0 : 1;
}
