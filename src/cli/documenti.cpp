#include "comandi.h"
#include "credits/pagamenti.h"
#include "documents/corpofattura.h"
#include "documents/documentonew.h"
#include "documents/fattura.h"
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"

#include <QFile>

namespace tomvera::cli {

namespace {

const QStringList tabelleDocumenti {
    QStringLiteral("Configurazioni"), QStringLiteral("Testate"),          QStringLiteral("Righe"),
    QStringLiteral("Pagamenti"),      QStringLiteral("TabellaPagamenti"), QStringLiteral("TabellaDocumenti")
};

// An amount or percentage option: nullopt when absent; an error when present but not an Italian number.
std::optional<double> importoFacoltativo(const Argomenti& argomenti, const QString& nome, QString& errore)
{
    if (!argomenti.presente(nome))
        return std::nullopt;
    const QString testo = argomenti.valore(nome).value_or(QString()).trimmed();
    const auto valore = testo.isEmpty() ? std::nullopt : LeggiValore(testo);
    if (!valore)
        errore = QStringLiteral("Valore non valido per --") + nome + QStringLiteral(": ") + testo;
    return valore;
}

// The three discount boxes, normalised as the screen does.
bool leggiSconti(const Argomenti& argomenti, ScontiDocumento& sconti, QString& errore)
{
    const auto s1 = importoFacoltativo(argomenti, QStringLiteral("sconto1"), errore);
    const auto s2 = importoFacoltativo(argomenti, QStringLiteral("sconto2"), errore);
    const auto merce = importoFacoltativo(argomenti, QStringLiteral("sconto-merce"), errore);
    if (!errore.isEmpty())
        return false;
    sconti.ScontoPerc = NormalizzaScontoPercentuale(s1.value_or(0));
    sconti.ScontoPerc2 = NormalizzaScontoPercentuale(s2.value_or(0));
    sconti.ScontoMerceVal = NormalizzaScontoMerce(merce.value_or(0));
    return true;
}

// The document lines from stdin: QTA;PREZZO_IVATO;IVA;SCONTO;DESCRIZIONE, one a line. Missing trailing fields
// are empty; a semicolon inside the description belongs to it.
bool leggiRighe(std::vector<RigaDocumento>& righe, QString& errore)
{
    QFile ingresso;
    if (!ingresso.open(stdin, QIODevice::ReadOnly)) {
        errore = QStringLiteral("Impossibile leggere le righe del documento");
        return false;
    }
    QString testo = QString::fromUtf8(ingresso.readAll());
    testo.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QStringList linee = testo.split(QLatin1Char('\n'));
    if (!linee.isEmpty() && linee.last().isEmpty())
        linee.removeLast();
    int n = 0;
    for (const QString& linea : std::as_const(linee)) {
        ++n;
        QStringList campi = linea.split(QLatin1Char(';'));
        while (campi.size() < 5)
            campi << QString();
        const QString descrizione = campi.mid(4).join(QLatin1Char(';'));
        const QString prefisso = QStringLiteral("Riga ") + QString::number(n) + QStringLiteral(": ");
        const QString nomi[] = { QStringLiteral("quantità non valida: "), QStringLiteral("prezzo non valido: "),
                                 QStringLiteral("aliquota non valida: "), QStringLiteral("sconto non valido: ") };
        for (int i = 0; i < 4; ++i) {
            if (!LeggiValore(campi.at(i))) {
                errore = prefisso + nomi[i] + campi.at(i);
                return false;
            }
        }
        if (descrizione.size() > 200) {
            errore = prefisso + QStringLiteral("descrizione oltre 200 caratteri");
            return false;
        }
        RigaDocumento r;
        r.Qta = campi.at(0).trimmed();
        r.PrezzoIvaInclusa = campi.at(1).trimmed();
        r.Iva = campi.at(2).trimmed();
        r.ScontoArt = campi.at(3).trimmed();
        r.Descrizione = descrizione;
        righe.push_back(r);
    }
    return true;
}

QString apriArchivio(Archivio& archivio, const Argomenti& argomenti, const QStringList& tabelle)
{
    if (!testoRichiesto(argomenti, QStringLiteral("archivio")))
        return QStringLiteral("Indicare l'archivio con --archivio PERCORSO");
    return apriArchivioEsistente(archivio, tabelle);
}

Aliquote aliquoteArchivio(Archivio& archivio)
{
    const auto cfg = configurazione::leggi(archivio);
    return cfg ? cfg->ValIva : Aliquote {};
}

std::optional<qint64> interoPositivo(const Argomenti& argomenti, const QString& nome, QString& errore)
{
    const QString testo = argomenti.valore(nome).value_or(QString()).trimmed();
    bool ok = false;
    const qint64 valore = testo.toLongLong(&ok);
    if (!ok || valore <= 0 || valore > 2147483647) {
        errore = QStringLiteral("Valore non valido per --") + nome + QStringLiteral(": ") + testo;
        return std::nullopt;
    }
    return valore;
}

// Everything a document command needs to run the editor's logic without a screen.
struct Ambiente
{
    // Saves run with messages off; nothing should ask, and nobody would answer.
    InterazioneConfermata interazione;
    Orologio orologio;
    GestioneErrori errori;
    Sessione sessione;
    Archivio archivio;

    explicit Ambiente(const QString& percorso)
        : errori(&interazione)
        , sessione(interazione, orologio, errori)
        , archivio(percorso, errori)
    {
    }
};

} // namespace

int comandoDocumentoCalcola(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("sconto1"), QStringLiteral("sconto2"),
                             QStringLiteral("sconto-merce") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);
    QString errore;
    ScontiDocumento sconti;
    if (!leggiSconti(argomenti, sconti, errore))
        return console.errore(errore);
    std::vector<RigaDocumento> righe;
    if (!leggiRighe(righe, errore))
        return console.errore(errore);

    GestioneErrori errori;
    Archivio archivio(argomenti.valore(QStringLiteral("archivio")).value_or(QString()).trimmed(), errori);
    if (const QString problema = apriArchivio(archivio, argomenti, { QStringLiteral("Configurazioni") });
        !problema.isEmpty())
        return console.errore(problema);
    const Aliquote aliquote = aliquoteArchivio(archivio);

    if (!Controlla_Corpo_Fattura(righe, aliquote, sconti)) {
        console.err << QStringLiteral("Ci sono dei valori ") << DocumentoNew_E::ParolaDocumento()
                    << QStringLiteral(" inesatti: Ricontrollare Documento") << Qt::endl;
        return EsitoNegativo;
    }
    const TotaliDocumento t = CalcolaFatt(righe, aliquote, sconti);
    int n = 0;
    for (const RigaDocumento& r : righe) {
        console.out << "riga " << ++n << '\t' << r.Prezzo << '\t' << r.Totale << '\t' << r.TotaleIvato << '\n';
    }
    for (int k = 0; k < 9; ++k)
        console.out << "imp" << k << '\t' << FormattaImporto(t.Imp[static_cast<size_t>(k)]) << '\n';
    for (int k = 1; k < 9; ++k)
        console.out << "iva" << k << '\t' << FormattaImporto(t.Iva[static_cast<size_t>(k)]) << '\n';
    console.out << "imponibile\t" << FormattaImporto(t.Imponibile) << '\n';
    console.out << "totale\t" << FormattaImporto(t.Totale) << '\n';
    console.out << "scontoval\t" << FormattaImporto(t.ScontoVal) << '\n';
    console.out << "scontovalivato\t" << FormattaImporto(t.ScontoValIvato) << Qt::endl;
    return EsitoOk;
}

int comandoDocumentoRegistra(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"),    QStringLiteral("tipo"),    QStringLiteral("data"),
                             QStringLiteral("numero"),      QStringLiteral("cliente"), QStringLiteral("pagamento"),
                             QStringLiteral("pagato"),      QStringLiteral("sconto1"), QStringLiteral("sconto2"),
                             QStringLiteral("sconto-merce") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);
    const auto tipo = testoRichiesto(argomenti, QStringLiteral("tipo"));
    if (!tipo)
        return console.errore(QStringLiteral("Indicare il tipo di documento con --tipo TIPO"));
    if (tipo->size() > 50)
        return console.errore(QStringLiteral("Il tipo di documento supera i 50 caratteri"));
    QString errore;
    const auto data = dataRichiesta(argomenti, QStringLiteral("data"), errore);
    if (!data)
        return console.errore(errore);
    std::optional<qint64> numero, cliente;
    if (argomenti.presente(QStringLiteral("numero"))
        && !(numero = interoPositivo(argomenti, QStringLiteral("numero"), errore)))
        return console.errore(errore);
    if (argomenti.presente(QStringLiteral("cliente"))
        && !(cliente = interoPositivo(argomenti, QStringLiteral("cliente"), errore)))
        return console.errore(errore);
    QString pagamento;
    if (argomenti.presente(QStringLiteral("pagamento"))) {
        const auto p = testoRichiesto(argomenti, QStringLiteral("pagamento"));
        if (!p)
            return console.errore(QStringLiteral("Indicare il pagamento con --pagamento NOME"));
        if (p->size() > 50)
            return console.errore(QStringLiteral("Il pagamento supera i 50 caratteri"));
        pagamento = *p;
    }
    if (const auto v = argomenti.valore(QStringLiteral("pagato")); v && !v->isEmpty())
        return console.errore(QStringLiteral("L'opzione --pagato non vuole un valore: ") + *v);
    ScontiDocumento sconti;
    if (!leggiSconti(argomenti, sconti, errore))
        return console.errore(errore);
    std::vector<RigaDocumento> righe;
    if (!leggiRighe(righe, errore))
        return console.errore(errore);

    Ambiente a(argomenti.valore(QStringLiteral("archivio")).value_or(QString()).trimmed());
    if (const QString problema = apriArchivio(a.archivio, argomenti, tabelleDocumenti); !problema.isEmpty())
        return console.errore(problema);
    const RegistrazioneScrittura registrazione(a.archivio.percorso());
    if (const auto cfg = configurazione::leggi(a.archivio))
        *a.sessione.configurazione = *cfg;

    DocumentoNew_E documento(a.sessione, a.archivio);
    if (cliente && !documento.CaricaIntestatario(*cliente))
        return console.errore(QStringLiteral("Cliente inesistente: ") + QString::number(*cliente));
    TestataDocumento& t = documento.testata;
    t.TipoDoc = *tipo;
    t.DataDoc = *data;
    if (numero) {
        // A number reached by hand: an existing document is read first, so what it holds beyond the lines
        // (references, carriage data) is kept.
        t.NroDoc = *numero;
        const TestataDocumento intestatario = t;
        documento.Aggiorna_Click();
        if (cliente || !documento.DocumentoEsistente) {
            t.CodCliFor = intestatario.CodCliFor;
            t.CodiceCliente = intestatario.CodiceCliente;
            t.RagSociale = intestatario.RagSociale;
            t.Indirizzo = intestatario.Indirizzo;
            t.Cap = intestatario.Cap;
            t.Citta = intestatario.Citta;
            t.Provincia = intestatario.Provincia;
            t.Piva = intestatario.Piva;
            t.CodFis = intestatario.CodFis;
        }
        documento.NumeroProposto = 0;
    } else {
        t.NroDoc = Fattura(a.archivio).ProssimoNumeroDocumento(t.TipoDoc, t.DataDoc) + 1;
        documento.NumeroProposto = t.NroDoc;
    }
    documento.righe = righe;
    if (argomenti.presente(QStringLiteral("pagamento")))
        t.Pagamento = pagamento;
    t.Pagato = argomenti.presente(QStringLiteral("pagato"));
    t.TotalePagato = 0;
    t.sconti = sconti;

    const EsitoDocumento esito = documento.RegistraDocDaEsterno();
    if (!esito.ok()) {
        console.err << esito.messaggio << Qt::endl;
        return EsitoNegativo;
    }
    console.out << t.TipoDoc << '\t' << testoData(t.DataDoc) << '\t' << t.NroDoc << '\t'
                << FormattaImporto(t.totali.Totale) << Qt::endl;
    return EsitoOk;
}

int comandoDocumentoCancella(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("tipo"), QStringLiteral("data"),
                             QStringLiteral("numero") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);
    const auto tipo = testoRichiesto(argomenti, QStringLiteral("tipo"));
    if (!tipo)
        return console.errore(QStringLiteral("Indicare il tipo di documento con --tipo TIPO"));
    QString errore;
    const auto data = dataRichiesta(argomenti, QStringLiteral("data"), errore);
    if (!data)
        return console.errore(errore);
    if (!argomenti.presente(QStringLiteral("numero")))
        return console.errore(QStringLiteral("Indicare il numero del documento con --numero N"));
    const auto numero = interoPositivo(argomenti, QStringLiteral("numero"), errore);
    if (!numero)
        return console.errore(errore);

    Ambiente a(argomenti.valore(QStringLiteral("archivio")).value_or(QString()).trimmed());
    if (const QString problema = apriArchivio(a.archivio, argomenti, tabelleDocumenti); !problema.isEmpty())
        return console.errore(problema);
    const RegistrazioneScrittura registrazione(a.archivio.percorso());
    DocumentoNew_E documento(a.sessione, a.archivio);
    documento.testata.TipoDoc = *tipo;
    documento.testata.DataDoc = *data;
    documento.testata.NroDoc = *numero;
    const EsitoDocumento esito = documento.CancellaDocDaEsterno();
    if (!esito.ok()) {
        console.err << esito.messaggio << Qt::endl;
        return EsitoNegativo;
    }
    return EsitoOk;
}

int comandoScadenze(const Argomenti& argomenti, Console& console)
{
    const QStringList noti { QStringLiteral("archivio"), QStringLiteral("pagamento"), QStringLiteral("data"),
                             QStringLiteral("totale"), QStringLiteral("imponibile") };
    if (const QString errore = controllaArgomenti(argomenti, noti); !errore.isEmpty())
        return console.errore(errore);
    const auto nome = testoRichiesto(argomenti, QStringLiteral("pagamento"));
    if (!nome)
        return console.errore(QStringLiteral("Indicare il pagamento con --pagamento NOME"));
    QString errore;
    const auto data = dataRichiesta(argomenti, QStringLiteral("data"), errore);
    if (!data)
        return console.errore(errore);
    const auto totale = importoFacoltativo(argomenti, QStringLiteral("totale"), errore);
    const auto imponibile = importoFacoltativo(argomenti, QStringLiteral("imponibile"), errore);
    if (!errore.isEmpty())
        return console.errore(errore);
    if (!totale)
        return console.errore(QStringLiteral("Indicare il totale con --totale IMPORTO"));
    if (!imponibile)
        return console.errore(QStringLiteral("Indicare l'imponibile con --imponibile IMPORTO"));

    GestioneErrori errori;
    Archivio archivio(argomenti.valore(QStringLiteral("archivio")).value_or(QString()).trimmed(), errori);
    if (const QString problema = apriArchivio(archivio, argomenti, { QStringLiteral("TabellaPagamenti") });
        !problema.isEmpty())
        return console.errore(problema);
    const CondizioniPagamento condizioni = LeggiCondizioniPagamento(archivio, *nome);
    for (const Rata& r : CalcolaRate(condizioni, *data, *totale, *imponibile))
        console.out << r.numero << '\t' << testoData(r.scadenza) << '\t' << FormattaImporto(r.importo) << '\n';
    console.out.flush();
    return EsitoOk;
}

} // namespace tomvera::cli
