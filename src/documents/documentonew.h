#pragma once

#include "documents/corpofattura.h"

#include <QDate>
#include <QString>
#include <QVariantHash>
#include <vector>

namespace tomvera {

class Archivio;
struct Sessione;

// The header of a document as the editor holds it. Carriage data, references and print flags travel by
// field name in `altri` (see campiAltriTestata()): the editor reads them back as it found them.
struct TestataDocumento
{
    QDate DataDoc;
    qint64 NroDoc = 0;
    QString TipoDoc;

    QString CodiceAzienda;
    qint64 IndiceDocumentoCollegato = 0;
    qint64 CodCliFor = 0; // the holder's Indice in TabellaAnagrafiche
    QString CodiceCliente;
    QString Titolo;
    QString RagSociale;
    QString Indirizzo, Cap, Citta, Provincia, Piva, CodFis, CliForVar1;
    QString Pagamento;
    QString banca, cab, abi, agenzia, Cin, NroCC, Iban;
    QString Annotazioni;
    QVariantHash altri;

    ScontiDocumento sconti;
    bool Pagato = false;
    TotaliDocumento totali;
    double TotalePagato = 0;
    double TotaleNonPagato = 0;
};

// The header fields kept in TestataDocumento::altri, with their sizes (0: a flag).
struct CampoTestata
{
    const char* nome;
    int dimensione;
};
const std::vector<CampoTestata>& campiAltriTestata();

// What a save or a delete came to. `messaggio` holds the refusal's text even when messages are off, so a
// caller without a screen can tell it.
struct EsitoDocumento
{
    enum class Tipo
    {
        Eseguito,
        Rifiutato, // the system said no: a check failed
        Annullato, // the user answered no
        Errore // the archive could not be written; nothing was
    };
    Tipo tipo = Tipo::Eseguito;
    QString messaggio;
    bool ok() const { return tipo == Tipo::Eseguito; }
};

// Type words with a meaning of their own.
namespace tipodoc {
inline const QString Fattura = QStringLiteral("Fattura");
inline const QString FatturaAccompagnatoria = QStringLiteral("Fattura Accompagnatoria");
inline const QString RicevutaFiscale = QStringLiteral("Ricevuta Fiscale");
inline const QString OrdineDaCliente = QStringLiteral("Ordine da Cliente");
inline const QString OrdineAFornitore = QStringLiteral("Ordine a Fornitore");
} // namespace tipodoc

// Invoices and fiscal receipts split their total into instalments; no other type does.
bool CreaRate(const QString& tipoDoc);

// The logic of the document editor: the document on screen as values, its save and its delete.
// A save writes header, lines and instalments in one transaction; a new document takes its number inside
// that transaction, so two desks saving at once get consecutive numbers.
class DocumentoNew_E
{
public:
    DocumentoNew_E(Sessione& sessione, Archivio& archivio);

    TestataDocumento testata;
    std::vector<RigaDocumento> righe; // the grid's rows 1 .. rows-1

    // Not 0 from Nuovo_Click until the next save or a change of type: the document is new and its number
    // is only proposed.
    qint64 NumeroProposto = 0;
    bool MessaggiAbilitati = true;
    bool DocumentoEsistente = false;
    bool DocumentoModificato = false;
    // Set when a save gave the document another number than the one shown (the box turns light yellow).
    bool NroDocRinumerato = false;
    static constexpr unsigned ColoreRinumerato = 0x80FFFF;

    // The word of this form in the refusal of a wrong grid.
    static QString ParolaDocumento() { return QStringLiteral("Documento"); }

    // A new document: today's date, the next number of the type's line, an empty form.
    void Nuovo_Click();
    void TipoDoc_Change(const QString& tipo);
    // Loads the document of the triple on screen; an empty form when it doesn't exist.
    bool Aggiorna_Click();
    // The holder's data from a card of TabellaAnagrafiche; false when there is no such card.
    bool CaricaIntestatario(qint64 indiceAnagrafica);

    void CalcolaFatt();
    bool Controlla_Corpo_Fattura();

    EsitoDocumento Registra_Click();
    EsitoDocumento Cancella_Click();
    // The same save and delete for a screen that bills: every message off.
    EsitoDocumento RegistraDocDaEsterno();
    EsitoDocumento CancellaDocDaEsterno();
    // Marks a delivery note as invoiced.
    bool RegistraComeFatturata();

private:
    enum class Situazione
    {
        Nuovo,
        Sostituisce,
        Aggiorna
    };
    Situazione situazione(QDate& dataDaSostituire);
    bool eliminaDocumento(const QDate& dataDoc);
    bool scriviTestata(bool nuova);
    bool scriviRighe();
    bool scriviRate();
    void mostra(const QString& testo);

    Sessione& m_sessione;
    Archivio& m_archivio;
};

} // namespace tomvera
