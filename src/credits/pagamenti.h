#pragma once

#include <QDate>
#include <QString>
#include <vector>

namespace tomvera {

class Archivio;
class Interazione;

// Payment terms, instalments and the small routines that keep the rows of Pagamenti consistent.
namespace pagamenti {

// Row kinds of Pagamenti.TipoDiPagamento.
inline const QString DocumentoNew = QStringLiteral("DocumentoNew");
inline const QString Scadenze = QStringLiteral("Scadenze");
inline const QString Agente = QStringLiteral("Agente");
inline const QString Manuale = QStringLiteral("Manuale");
// Row states.
inline const QString Saldato = QStringLiteral("Saldato");
inline const QString Credito = QStringLiteral("Credito");
// Words of DecorrenzaRate and RipartizioneIva.
inline const QString DataFattura = QStringLiteral("Data fattura");
inline const QString FineMeseDataFattura = QStringLiteral("Fine mese data fattura");
inline const QString IvaSuTutteLeRate = QStringLiteral("Iva su tutte le rate");
inline const QString PrimaRataSoloIva = QStringLiteral("1° rata solo Iva");
inline const QString IvaTuttaSullaPrimaRata = QStringLiteral("Iva tutta sulla 1° rata");
// The command word of CancellaScadenzeDocumento.
inline const QString Cancella = QStringLiteral("CANCELLA");

} // namespace pagamenti

// One row of TabellaPagamenti. A term missing from the table splits nothing: one instalment at the date.
struct CondizioniPagamento
{
    QString DescrizionePagamento;
    QString Nota;
    int NumeroDiRate = 1;
    int GiorniTraRate = 0;
    QString DecorrenzaRate = pagamenti::DataFattura;
    int MesiTraRate = 0;
    int GiorniDaPrimaRata = 0;
    int MesiDaPrimaRata = 0;
    QString RipartizioneIva;
    bool SegnaPagato = false;
    bool InStampaRiba = false;
};

// The term by name; the single-instalment default (with the name kept) when the table doesn't have it.
CondizioniPagamento LeggiCondizioniPagamento(Archivio& archivio, const QString& descrizione, bool* trovata = nullptr);

// Instalments round half-cents to the even cent, on the decimal value the division stands for: 0.125 gives
// 0.12 and 1.005 (stored in binary as 1.00499...) gives 1.00. Documents use Arrotonda instead.
double ArrotondaRata(double valore);

// The due date of instalment nroRata (from 1). Months have a fixed length with a 28-day February, years are
// read back from two digits (00-29 is 20xx, 30-99 is 19xx) and a day clipped at a month's end is given back
// to the following instalments.
QDate CalcolaDataScadenza(const QDate& dataDoc, int nroRata, int numeroDiRate, int giorniDaPrimaRata, int giorniTraRate,
                          int mesiTraRate, int mesiDaPrimaRata, const QString& decorrenzaRate);

struct Rata
{
    int numero = 0; // from 1
    QDate scadenza;
    double importo = 0;
    double provvigione = 0;
};

// The instalments of a total under a term, with the commission split alongside. No rows when N <= 0.
std::vector<Rata> CalcolaRate(const CondizioniPagamento& condizioni, const QDate& dataDoc, double totale,
                              double imponibile, double valoreProvvigione = 0);

// What CreaScadenze writes besides the amounts.
struct DatiScadenze
{
    QString TipoDiPagamento = pagamenti::DocumentoNew;
    QString TipoDoc;
    QDate DataDoc;
    qint64 NroDoc = 0;
    QString CodCliente;
    QString DesCliente;
    double Totale = 0;
    double Imponibile = 0;
    QDate DataRiferimento;
    QString Saldato = pagamenti::Credito;
    QString DescrizionePagamento;
    QString Agente;
    double PercentualeProvvigione = 0;
    double ValoreProvvigione = 0;
};

// The routines over the archive. They join the caller's transaction when there is one; false means a
// statement failed (inside a transaction the save then rolls back whole).
class Pagamenti
{
public:
    // interazione may be null: then nothing is shown and every question is taken as "yes".
    Pagamenti(Archivio& archivio, Interazione* interazione);

    // Writes the instalment rows and settles their states. False when rows of this kind already exist for
    // the document ("ERRORE: il pagamento che si stà registrando esiste già") or a write failed.
    bool CreaScadenze(const DatiScadenze& dati);
    // With "CANCELLA" deletes the document's rows of the kind; payments made on it go back to "Credito".
    // True when the document has no payments: only then may new rows be written as paid.
    bool CancellaScadenzeDocumento(const QString& tipoDiPagamento, const QString& tipoDoc, const QDate& dataDoc,
                                   qint64 nroDoc, const QString& comando, bool* ok = nullptr);
    // True to stop: the document has rows other than its instalments and the user said no.
    bool ControllaCollegamentiDocumento(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc,
                                        bool senzaControlloCollegamenti = false);
    // "Saldato" when the instalment's payments equal its amount, else "Credito". An invalid due date sets
    // the state on every row of the document.
    bool ImpostaStatoScadenza(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc,
                              const QDate& dataScadenzaRata);
    // Writes the given state on the rows of one instalment (all rows of the document for an invalid date).
    bool ImpostaStatoDocumento(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc,
                               const QDate& dataScadenzaRata, const QString& stato);
    bool AggiornaStatoProvvigioni(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);
    bool DocumentoSaldato(const QString& tipoDiPagamento, const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);
    bool DocumentoSenzaMovimenti(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);

private:
    bool aggiornaStati(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc);

    Archivio& m_archivio;
    Interazione* m_interazione;
};

} // namespace tomvera
