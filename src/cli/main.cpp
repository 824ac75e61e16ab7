// tomvera-cli: the same core as the GUI, without screens.
#include "comandi.h"

#include <QCoreApplication>

using namespace tomvera::cli;

// Each line: name, usage, function, the options it knows and how many bare words it takes. Unknown
// options, repeated ones and extra words are refused here, the same way for every command.
static const Comando comandi[] = {
    { "crea-archivio", "--archivio PATH", comandoCreaArchivio, "archivio", 0 },
    { "backup", "--archivio PATH --cartella DIR", comandoBackup, "archivio cartella", 0 },
    { "ripristina", "--archivio PATH --file BACKUP", comandoRipristina, "archivio file", 0 },
    { "verifica-codice-fiscale", "CODICE", comandoVerificaCodiceFiscale, "", 1 },
    { "verifica-partita-iva", "NUMERO", comandoVerificaPartitaIva, "", 1 },
    { "importa-codici", "--archivio PATH --tabella comuni|stati|documenti|tipoalloggiato --file FILE [--foglio NOME]",
      comandoImportaCodici, "archivio tabella file foglio", 0 },
    { "crea-archivio-codici", "--archivio PATH --cartella CARTELLA_CSV", comandoCreaArchivioCodici, "archivio cartella",
      0 },
    { "disponibilita",
      "--archivio PATH (--camera N | --articolo CODICE --numero N | --sala CODICE --daora HH.MM --aora HH.MM)"
      " --dal GG/MM/AAAA --al GG/MM/AAAA [--escludi INDICE]",
      comandoDisponibilita, "archivio camera articolo numero sala daora aora dal al escludi", 0 },
    { "prezzo",
      "--archivio PATH --listino NOME (--tipologia CODICE | --trattamento PAROLA) --dal GG/MM/AAAA --al GG/MM/AAAA",
      comandoPrezzo, "archivio listino tipologia trattamento dal al", 0 },
    { "genera-demo", "--archivio PATH [--camere N] [--anni A] [--seme S]", comandoGeneraDemo,
      "archivio camere anni seme", 0 },
    { "tabellone", "--archivio PATH --dal GG/MM/AAAA --al GG/MM/AAAA [--piano N]", comandoTabellone,
      "archivio dal al piano", 0 },
    { "documento-calcola", "--archivio PATH [--sconto1 X] [--sconto2 X] [--sconto-merce X] < righe",
      comandoDocumentoCalcola, "archivio sconto1 sconto2 sconto-merce", 0 },
    { "documento-registra",
      "--archivio PATH --tipo TIPO --data GG/MM/AAAA [--numero N] [--cliente INDICE] [--pagamento NOME] [--pagato]"
      " [--sconto1 X] [--sconto2 X] [--sconto-merce X] < righe",
      comandoDocumentoRegistra, "archivio tipo data numero cliente pagamento pagato sconto1 sconto2 sconto-merce", 0 },
    { "documento-cancella", "--archivio PATH --tipo TIPO --data GG/MM/AAAA --numero N", comandoDocumentoCancella,
      "archivio tipo data numero", 0 },
    { "scadenze", "--archivio PATH --pagamento NOME --data GG/MM/AAAA --totale T --imponibile I", comandoScadenze,
      "archivio pagamento data totale imponibile", 0 },
    { "schedine",
      "--archivio PATH --dal GG/MM/AAAA --al GG/MM/AAAA [--tutte] [--azienda CODICE] (--controlla | --cartella DIR)",
      comandoSchedine, "archivio dal al tutte azienda controlla cartella", 0 },
};

static void uso(QTextStream& flusso)
{
    flusso << "Uso: tomvera-cli COMANDO --archivio PATH [opzioni]" << Qt::endl << "Comandi:" << Qt::endl;
    for (const Comando& c : comandi)
        flusso << "  " << c.nome << ' ' << c.uso << Qt::endl;
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tomvera"));
    Console console;
    QStringList argomenti = app.arguments().mid(1);
    if (argomenti.isEmpty()) {
        // Not what a script meant: the usage is the error.
        uso(console.err);
        return EsitoErrore;
    }
    if (argomenti.size() == 1 && argomenti.first() == QLatin1String("--help")) {
        uso(console.out);
        return EsitoOk;
    }
    const QString nome = argomenti.takeFirst();
    for (const Comando& c : comandi) {
        if (nome != QLatin1String(c.nome))
            continue;
        const Argomenti letti(argomenti);
        if (c.opzioni) {
            const QStringList noti = QString::fromLatin1(c.opzioni).split(QLatin1Char(' '), Qt::SkipEmptyParts);
            if (const QString errore = controllaArgomenti(letti, noti, c.posizionali); !errore.isEmpty())
                return console.errore(errore);
        }
        return c.esegui(letti, console);
    }
    return console.errore(QStringLiteral("Comando sconosciuto: ") + nome);
}
