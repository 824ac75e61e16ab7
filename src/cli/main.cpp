// tomvera-cli: the same core as the GUI, without screens.
#include "comandi.h"

#include <QCoreApplication>

using namespace tomvera::cli;

static const Comando comandi[] = {
    { "crea-archivio", "--archivio PATH", comandoCreaArchivio },
    { "backup", "--archivio PATH --cartella DIR", comandoBackup },
    { "ripristina", "--archivio PATH --file BACKUP", comandoRipristina },
    { "verifica-codice-fiscale", "CODICE", comandoVerificaCodiceFiscale },
    { "verifica-partita-iva", "NUMERO", comandoVerificaPartitaIva },
    { "importa-codici", "--archivio PATH --tabella comuni|stati|documenti|tipoalloggiato --file FILE [--foglio NOME]",
      comandoImportaCodici },
    { "crea-archivio-codici", "--archivio PATH --cartella CARTELLA_CSV", comandoCreaArchivioCodici },
    { "disponibilita",
      "--archivio PATH (--camera N | --articolo CODICE --numero N | --sala CODICE --daora HH.MM --aora HH.MM)"
      " --dal GG/MM/AAAA --al GG/MM/AAAA [--escludi INDICE]",
      comandoDisponibilita },
    { "prezzo",
      "--archivio PATH --listino NOME (--tipologia CODICE | --trattamento PAROLA) --dal GG/MM/AAAA --al GG/MM/AAAA",
      comandoPrezzo },
    { "genera-demo", "--archivio PATH [--camere N] [--anni A] [--seme S]", comandoGeneraDemo },
    { "tabellone", "--archivio PATH --dal GG/MM/AAAA --al GG/MM/AAAA [--piano N]", comandoTabellone },
    { "documento-calcola", "--archivio PATH [--sconto1 X] [--sconto2 X] [--sconto-merce X] < righe",
      comandoDocumentoCalcola },
    { "documento-registra",
      "--archivio PATH --tipo TIPO --data GG/MM/AAAA [--numero N] [--cliente INDICE] [--pagamento NOME] [--pagato]"
      " [--sconto1 X] [--sconto2 X] [--sconto-merce X] < righe",
      comandoDocumentoRegistra },
    { "documento-cancella", "--archivio PATH --tipo TIPO --data GG/MM/AAAA --numero N", comandoDocumentoCancella },
    { "scadenze", "--archivio PATH --pagamento NOME --data GG/MM/AAAA --totale T --imponibile I", comandoScadenze },
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
