// tomvera-cli: the same core as the GUI, without screens.
#include "comandi.h"

#include <QCoreApplication>

using namespace tomvera::cli;

static const Comando comandi[] = {
    {"crea-archivio", "--archivio PATH", comandoCreaArchivio},
};

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tomvera"));
    Console console;
    QStringList argomenti = app.arguments().mid(1);
    if (argomenti.isEmpty() || argomenti.first() == QLatin1String("--help")) {
        console.out << "Uso: tomvera-cli COMANDO --archivio PATH [opzioni]" << Qt::endl << "Comandi:" << Qt::endl;
        for (const Comando& c : comandi)
            console.out << "  " << c.nome << ' ' << c.uso << Qt::endl;
        return argomenti.isEmpty() ? EsitoErrore : EsitoOk;
    }
    const QString nome = argomenti.takeFirst();
    for (const Comando& c : comandi) {
        if (nome == QLatin1String(c.nome))
            return c.esegui(Argomenti(argomenti), console);
    }
    return console.errore(QStringLiteral("Comando sconosciuto: ") + nome);
}
