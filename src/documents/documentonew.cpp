#include "documents/documentonew.h"

#include "credits/pagamenti.h"
#include "documents/fattura.h"
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/routines.h"
#include "foundation/sessione.h"

#include <QSqlQuery>

namespace tomvera {

namespace {

const QString chiaveDocumento = QStringLiteral(" WHERE DataDoc = ? AND NroDoc = ? AND TipoDoc = ?");

QVariantList chiave(const QDate& data, qint64 numero, const QString& tipo)
{
    return { dataArchivio(data), numero, tipo };
}

bool vuoto(const QString& testo)
{
    return testo.trimmed().isEmpty();
}

// A stored number as the grid shows it: Italian, without trailing zeros ("10", "4,5").
QString testoNumero(double valore)
{
    return QString::number(valore, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
}

QString testoDecimali(double valore)
{
    return FormattaDecimali(valore, 2);
}

QVariant numeroDaCella(const QString& cella)
{
    return ValoreNumerico(cella);
}

} // namespace

const std::vector<CampoTestata>& campiAltriTestata()
{
    static const std::vector<CampoTestata> campi {
        { "RifDataDoc", 50 },
        { "RifTipoDoc", 50 },
        { "RifNroDoc", 50 },
        { "BoTrasporto", 10 },
        { "BoDataTrasporto", 50 },
        { "BoOraTrasporto", 50 },
        { "BoCausale", 50 },
        { "BoDestRagSociale", 200 },
        { "BoDestIndirizzo", 50 },
        { "BoDestCap", 50 },
        { "BoDestCitta", 50 },
        { "BoDestPr", 50 },
        { "BoVettRagSociale", 50 },
        { "BoVettIndirizzo", 50 },
        { "BoVettCap", 50 },
        { "BoVettCitta", 50 },
        { "BoVettPr", 50 },
        { "BoAspetto", 50 },
        { "BoNrColli", 50 },
        { "BoPeso", 50 },
        { "BoPorto", 50 },
        { "BoFatturata", 50 },
        { "BoTrasportoAMezzo", 50 },
        { "NonStamparePrezziDoc", 0 },
        { "NonStampareQuantitaDoc", 0 },
        { "StampaTotaleSuDDT", 0 },
        { "StampaPrezziSuDDT", 0 },
        { "StampaTotaleQta", 0 },
    };
    return campi;
}

bool CreaRate(const QString& tipoDoc)
{
    return tipoDoc.left(7) == tipodoc::Fattura || tipoDoc.left(16) == tipodoc::RicevutaFiscale;
}

DocumentoNew_E::DocumentoNew_E(Sessione& sessione, Archivio& archivio)
    : m_sessione(sessione)
    , m_archivio(archivio)
{
}

void DocumentoNew_E::mostra(const QString& testo)
{
    if (MessaggiAbilitati)
        m_sessione.interazione.messaggio(testo, {}, Interazione::Icona::Critico);
}

void DocumentoNew_E::Nuovo_Click()
{
    if (DocumentoModificato && MessaggiAbilitati
        && m_sessione.interazione.domandaSiNo(QStringLiteral("Salvare Modifiche Documento?")))
        Registra_Click();
    const QString tipo = testata.TipoDoc;
    testata = TestataDocumento();
    testata.TipoDoc = tipo;
    testata.DataDoc = m_sessione.orologio.oggi();
    testata.NroDoc = Fattura(m_archivio).ProssimoNumeroDocumento(tipo, testata.DataDoc) + 1;
    Aggiorna_Click();
    NumeroProposto = testata.NroDoc;
    NroDocRinumerato = false;
    DocumentoModificato = false;
}

void DocumentoNew_E::TipoDoc_Change(const QString& tipo)
{
    testata.TipoDoc = tipo;
    NumeroProposto = 0;
    DocumentoModificato = true;
}

bool DocumentoNew_E::Aggiorna_Click()
{
    const QDate data = testata.DataDoc;
    const qint64 numero = testata.NroDoc;
    const QString tipo = testata.TipoDoc;
    const bool pagato = testata.Pagato;
    testata = TestataDocumento();
    testata.DataDoc = data;
    testata.NroDoc = numero;
    testata.TipoDoc = tipo;
    righe.clear();

    const auto r
        = m_archivio.riga(QStringLiteral("SELECT * FROM Testate") + chiaveDocumento, chiave(data, numero, tipo));
    DocumentoEsistente = r.has_value();
    if (!r)
        return false;
    auto t = [&](const char* campo) { return r->value(QLatin1String(campo)).toString(); };
    auto d = [&](const char* campo) { return r->value(QLatin1String(campo)).toDouble(); };
    testata.TipoDoc = t("TipoDoc");
    testata.CodiceAzienda = t("CodiceAzienda");
    testata.IndiceDocumentoCollegato = r->value(QStringLiteral("IndiceDocumentoCollegato")).toLongLong();
    testata.CodCliFor = r->value(QStringLiteral("CodCliFor")).toLongLong();
    testata.CodiceCliente = t("CodiceCliente");
    testata.Titolo = t("Titolo");
    testata.RagSociale = t("RagSociale");
    testata.Indirizzo = t("Indirizzo");
    testata.Cap = t("Cap");
    testata.Citta = t("Citta");
    testata.Provincia = t("Provincia");
    testata.Piva = t("Piva");
    testata.CodFis = t("CodFis");
    testata.CliForVar1 = t("CliForVar1");
    testata.Pagamento = t("Pagamento");
    testata.banca = t("banca");
    testata.cab = t("cab");
    testata.abi = t("abi");
    testata.agenzia = t("agenzia");
    testata.Cin = t("Cin");
    testata.NroCC = t("NroCC");
    testata.Iban = t("Iban");
    testata.Annotazioni = t("Annotazioni");
    for (const CampoTestata& c : campiAltriTestata())
        testata.altri.insert(QLatin1String(c.nome), r->value(QLatin1String(c.nome)));
    testata.sconti.ScontoPerc = d("ScontoPerc");
    testata.sconti.ScontoPerc2 = d("ScontoPerc2");
    testata.sconti.ScontoMerceVal = d("ScontoMerceVal");
    testata.sconti.ScontoMerceDes = t("ScontoMerceDes");
    for (int k = 0; k < 9; ++k) {
        testata.totali.Imp[static_cast<size_t>(k)] = d(qPrintable(QStringLiteral("Imp%1").arg(k)));
        testata.totali.Iva[static_cast<size_t>(k)] = d(qPrintable(QStringLiteral("iva%1").arg(k)));
    }
    // Iva0 holds slot 1's VAT; slot 0's own VAT is always nothing.
    testata.totali.Iva[0] = 0;
    testata.totali.Imponibile = d("imponibile");
    testata.totali.Totale = d("totale");
    testata.totali.ScontoVal = d("ScontoVal");
    testata.totali.ScontoValIvato = d("ScontoValIvato");
    testata.TotalePagato = d("TotalePagato");
    testata.TotaleNonPagato = d("TotaleNonPagato");
    testata.Pagato = pagato || (testata.TotalePagato != 0 && testata.TotaleNonPagato == 0);

    const QList<QSqlRecord> lette = m_archivio.righe(QStringLiteral("SELECT * FROM Righe") + chiaveDocumento
                                                         + QStringLiteral(" ORDER BY RigaDoc"),
                                                     chiave(data, numero, tipo));
    for (const QSqlRecord& l : lette) {
        auto lt = [&](const char* campo) { return l.value(QLatin1String(campo)).toString(); };
        auto ld = [&](const char* campo) { return l.value(QLatin1String(campo)).toDouble(); };
        RigaDocumento riga;
        const qint64 indice = l.value(QStringLiteral("Indice")).toLongLong();
        riga.Indice = indice != 0 ? QString::number(indice) : QString();
        riga.CodProdotto = lt("CodProdotto");
        riga.CodArt = lt("CodArt");
        riga.Descrizione = lt("Descrizione");
        riga.Matricola = lt("Matricola");
        riga.ChiMovimenta = lt("ChiMovimenta");
        riga.Gruppo = lt("Gruppo");
        riga.Reparto = lt("Reparto");
        const double qta = ld("Qta");
        const bool testo = qta == 0 && ld("PrezzoIvaInclusa") == 0 && ld("Iva") == 0;
        if (!testo) {
            riga.Qta = testoDecimali(qta);
            riga.PrezzoIvaInclusa = testoDecimali(ld("PrezzoIvaInclusa"));
            riga.Prezzo = testoDecimali(ld("Prezzo"));
            riga.Iva = testoNumero(ld("Iva"));
            if (ld("ScontoArt") != 0)
                riga.ScontoArt = testoNumero(ld("ScontoArt"));
            riga.Totale = FormattaImporto(ld("Totale"));
            riga.TotaleIvato = FormattaImporto(ld("TotaleIvato"));
            if (ld("NroStampe") != 0)
                riga.NroStampe = testoNumero(ld("NroStampe"));
        }
        righe.push_back(riga);
    }
    return true;
}

bool DocumentoNew_E::CaricaIntestatario(qint64 indiceAnagrafica)
{
    const auto r
        = m_archivio.riga(QStringLiteral("SELECT * FROM TabellaAnagrafiche WHERE Indice = ?"), { indiceAnagrafica });
    if (!r)
        return false;
    auto t = [&](const char* campo) { return r->value(QLatin1String(campo)).toString().trimmed(); };
    QString nome = t("RagSociale");
    if (nome.isEmpty())
        nome = QString(t("Cognome") + QLatin1Char(' ') + t("Nome")).trimmed();
    testata.CodCliFor = indiceAnagrafica;
    testata.CodiceCliente = t("CodiceAnagrafica");
    testata.RagSociale = nome;
    testata.Indirizzo = t("Indirizzo");
    testata.Cap = t("Cap");
    testata.Citta = t("Comune");
    testata.Provincia = t("Provincia");
    testata.Piva = t("Piva");
    testata.CodFis = t("CodiceFiscale");
    DocumentoModificato = true;
    return true;
}

void DocumentoNew_E::CalcolaFatt()
{
    testata.totali = tomvera::CalcolaFatt(righe, m_sessione.configurazione->ValIva, testata.sconti);
}

bool DocumentoNew_E::Controlla_Corpo_Fattura()
{
    return tomvera::Controlla_Corpo_Fattura(righe, m_sessione.configurazione->ValIva, testata.sconti);
}

DocumentoNew_E::Situazione DocumentoNew_E::situazione(QDate& dataDaSostituire)
{
    const TestataDocumento& t = testata;
    if (m_archivio.esisteRiga(QStringLiteral("SELECT 1 FROM Testate") + chiaveDocumento,
                              chiave(t.DataDoc, t.NroDoc, t.TipoDoc)))
        return Situazione::Aggiorna;
    dataDaSostituire = Fattura(m_archivio).ControllaNumeriDoppiDocE(t.TipoDoc, t.DataDoc, t.NroDoc);
    return dataDaSostituire.isValid() ? Situazione::Sostituisce : Situazione::Nuovo;
}

EsitoDocumento DocumentoNew_E::Registra_Click()
{
    using T = EsitoDocumento::Tipo;
    Interazione& interazione = m_sessione.interazione;
    Fattura fattura(m_archivio);
    Pagamenti pagamenti(m_archivio, MessaggiAbilitati ? &interazione : nullptr);

    if (NumeroProposto == 0) {
        const QString doppio = fattura.ControllaNumeroInGruppo(testata.TipoDoc, testata.DataDoc, testata.NroDoc);
        if (!doppio.isEmpty()) {
            const QString testo = QStringLiteral("Attenzione! Operazione non possibile ...\n") + doppio;
            mostra(testo);
            return { T::Rifiutato, testo };
        }
    }
    if (DocumentoEsistente
        && pagamenti.ControllaCollegamentiDocumento(testata.TipoDoc, testata.DataDoc, testata.NroDoc,
                                                    !MessaggiAbilitati))
        return { T::Annullato, {} };
    if (!Controlla_Corpo_Fattura()) {
        const QString testo = QStringLiteral("Ci sono dei valori ") + ParolaDocumento()
            + QStringLiteral(" inesatti: Ricontrollare Documento");
        mostra(testo);
        return { T::Rifiutato, testo };
    }
    CalcolaFatt();

    // A number fixed by hand may meet another document: the user is asked before the archive is locked, so
    // nobody else waits on an open question. A proposed number is the next of its line and meets nothing.
    if (NumeroProposto == 0 && MessaggiAbilitati) {
        QDate altraData;
        switch (situazione(altraData)) {
        case Situazione::Sostituisce:
            if (!interazione.domandaSiNo(QStringLiteral("ATTENZIONE: Si stà sostituendo un documento già esistente (")
                                         + testata.TipoDoc + QStringLiteral(" del ") + testoData(altraData)
                                         + QStringLiteral(" n.ro ") + QString::number(testata.NroDoc)
                                         + QStringLiteral("). CONTINUARE?")))
                return { T::Annullato, {} };
            break;
        case Situazione::Aggiorna:
            if (!interazione.domandaSiNo(
                    QStringLiteral("Attenzione si stà aggiornando un Documento già esistente. Continuare?")))
                return { T::Annullato, {} };
            break;
        case Situazione::Nuovo:
            break;
        }
    }

    const QString nonRegistrato = QStringLiteral("Errore di archivio: il documento non è stato registrato");
    Transazione transazione(m_archivio);
    if (!transazione.attiva()) {
        mostra(nonRegistrato);
        return { T::Errore, nonRegistrato };
    }
    // The number of a new document is the next of its line now, inside the write lock.
    const qint64 numeroMostrato = testata.NroDoc;
    bool rinumerato = false;
    if (NumeroProposto != 0) {
        const qint64 prossimo = fattura.ProssimoNumeroDocumento(testata.TipoDoc, testata.DataDoc) + 1;
        if (testata.NroDoc != prossimo) {
            testata.NroDoc = prossimo;
            rinumerato = true;
        }
    }
    if (righe.empty())
        righe.push_back(RigaDocumento());

    QDate altraData;
    const Situazione s = situazione(altraData);
    const bool scritto = (s != Situazione::Sostituisce || eliminaDocumento(altraData))
        && scriviTestata(s != Situazione::Aggiorna) && scriviRighe() && (!CreaRate(testata.TipoDoc) || scriviRate());
    if (!scritto || !transazione.commit()) {
        transazione.rollback();
        testata.NroDoc = numeroMostrato;
        mostra(nonRegistrato);
        return { T::Errore, nonRegistrato };
    }
    NroDocRinumerato = rinumerato;
    NumeroProposto = 0;
    const bool pagato = testata.Pagato;
    Aggiorna_Click();
    testata.Pagato = pagato;
    DocumentoModificato = false;
    if (MessaggiAbilitati)
        operazioneEffettuata(interazione);
    return { T::Eseguito, {} };
}

bool DocumentoNew_E::eliminaDocumento(const QDate& dataDoc)
{
    const QVariantList k = chiave(dataDoc, testata.NroDoc, testata.TipoDoc);
    bool ok = m_archivio.comando(QStringLiteral("DELETE FROM Testate") + chiaveDocumento, k)
        && m_archivio.comando(QStringLiteral("DELETE FROM Righe") + chiaveDocumento, k);
    if (!ok)
        return false;
    Pagamenti(m_archivio, nullptr)
        .CancellaScadenzeDocumento(pagamenti::DocumentoNew, testata.TipoDoc, dataDoc, testata.NroDoc,
                                   pagamenti::Cancella, &ok);
    return ok;
}

bool DocumentoNew_E::scriviTestata(bool nuova)
{
    TestataDocumento& t = testata;
    const TotaliDocumento& tot = t.totali;
    QStringList campi;
    QVariantList valori;
    auto metti = [&](const QString& campo, const QVariant& valore) {
        campi << campo;
        valori << valore;
    };
    auto testo
        = [&](const QString& campo, const QString& valore, int dimensione) { metti(campo, valore.left(dimensione)); };
    metti(QStringLiteral("DataDoc"), dataArchivio(t.DataDoc));
    metti(QStringLiteral("NroDoc"), t.NroDoc);
    testo(QStringLiteral("TipoDoc"), t.TipoDoc, 50);
    if (m_sessione.configurazione->MultiAzienda)
        testo(QStringLiteral("CodiceAzienda"), t.CodiceAzienda, 50);
    metti(QStringLiteral("IndiceDocumentoCollegato"), t.IndiceDocumentoCollegato);
    metti(QStringLiteral("CodCliFor"), t.CodCliFor);
    testo(QStringLiteral("CodiceCliente"), t.CodiceCliente, 200);
    testo(QStringLiteral("Titolo"), t.Titolo, 20);
    testo(QStringLiteral("RagSociale"), t.RagSociale, 200);
    metti(QStringLiteral("Nome"), QStringLiteral(" "));
    metti(QStringLiteral("Cognome"), QStringLiteral(" "));
    testo(QStringLiteral("Indirizzo"), t.Indirizzo, 50);
    testo(QStringLiteral("Cap"), t.Cap, 50);
    testo(QStringLiteral("Citta"), t.Citta, 50);
    testo(QStringLiteral("Provincia"), t.Provincia, 50);
    testo(QStringLiteral("Piva"), t.Piva, 50);
    testo(QStringLiteral("CodFis"), t.CodFis, 50);
    testo(QStringLiteral("CliForVar1"), t.CliForVar1, 200);
    testo(QStringLiteral("Pagamento"), t.Pagamento, 50);
    testo(QStringLiteral("banca"), t.banca, 50);
    testo(QStringLiteral("cab"), t.cab, 50);
    testo(QStringLiteral("abi"), t.abi, 50);
    testo(QStringLiteral("agenzia"), t.agenzia, 50);
    testo(QStringLiteral("Cin"), t.Cin, 50);
    testo(QStringLiteral("NroCC"), t.NroCC, 50);
    testo(QStringLiteral("Iban"), t.Iban, 50);
    testo(QStringLiteral("Annotazioni"), t.Annotazioni, 200);
    metti(QStringLiteral("imponibile"), tot.Imponibile);
    metti(QStringLiteral("totale"), tot.Totale);
    // Iva0 is filled from slot 1, as the archive has always stored it; Imp0 is the true slot 0.
    metti(QStringLiteral("iva0"), tot.Iva[1]);
    for (size_t k = 1; k < 9; ++k)
        metti(QStringLiteral("iva%1").arg(k), tot.Iva[k]);
    for (size_t k = 0; k < 9; ++k)
        metti(QStringLiteral("Imp%1").arg(k), tot.Imp[k]);
    metti(QStringLiteral("NroDecEuro"), 2);
    for (const CampoTestata& c : campiAltriTestata()) {
        const QVariant v = t.altri.value(QLatin1String(c.nome));
        if (c.dimensione == 0)
            metti(QLatin1String(c.nome), v.toBool() ? 1 : 0);
        else
            testo(QLatin1String(c.nome), v.toString(), c.dimensione);
    }
    testo(QStringLiteral("ScontoMerceDes"), t.sconti.ScontoMerceDes, 50);
    metti(QStringLiteral("ScontoMerceVal"), t.sconti.ScontoMerceVal);
    metti(QStringLiteral("ScontoPerc"), t.sconti.ScontoPerc);
    metti(QStringLiteral("ScontoPerc2"), t.sconti.ScontoPerc2);
    metti(QStringLiteral("ScontoVal"), tot.ScontoVal);
    metti(QStringLiteral("ScontoValIvato"), tot.ScontoValIvato);
    metti(QStringLiteral("PrezziIvaInclusa"), 1);

    double pagato = t.Pagato ? tot.Totale : t.TotalePagato;
    if (tot.Totale < pagato)
        pagato = tot.Totale;
    if (pagato < 0)
        pagato = 0;
    t.TotalePagato = pagato;
    t.TotaleNonPagato = tot.Totale - pagato;
    metti(QStringLiteral("TotalePagato"), t.TotalePagato);
    metti(QStringLiteral("TotaleNonPagato"), t.TotaleNonPagato);

    if (nuova) {
        QStringList segnaposti;
        for (int i = 0; i < campi.size(); ++i)
            segnaposti << QStringLiteral("?");
        return m_archivio.comando(QStringLiteral("INSERT INTO Testate (") + campi.join(QStringLiteral(", "))
                                      + QStringLiteral(") VALUES (") + segnaposti.join(QStringLiteral(", "))
                                      + QLatin1Char(')'),
                                  valori);
    }
    QStringList assegnazioni;
    for (const QString& c : campi)
        assegnazioni << c + QStringLiteral(" = ?");
    return m_archivio.comando(QStringLiteral("UPDATE Testate SET ") + assegnazioni.join(QStringLiteral(", "))
                                  + chiaveDocumento,
                              valori + chiave(t.DataDoc, t.NroDoc, t.TipoDoc));
}

bool DocumentoNew_E::scriviRighe()
{
    const TestataDocumento& t = testata;
    const QVariantList k = chiave(t.DataDoc, t.NroDoc, t.TipoDoc);
    if (!m_archivio.comando(QStringLiteral("DELETE FROM Righe") + chiaveDocumento, k))
        return false;
    auto inserisci = m_archivio.prepara(QStringLiteral(
        "INSERT INTO Righe (NroDoc, DataDoc, TipoDoc, RigaDoc, Qta, Descrizione, Prezzo, Iva, Totale, CodProdotto,"
        " Matricola, ChiMovimenta, ScontoArt, Indice, CodArt, Reparto, Gruppo, PrezzoIvaInclusa, NroStampe,"
        " TotaleIvato) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    if (!inserisci)
        return false;
    int numeroRiga = 0;
    for (RigaDocumento& r : righe) {
        ++numeroRiga;
        // A line with an article moves stock for this document unless the grid says who; a line without one
        // names nobody when the grid names this very document.
        QString chiMovimenta = r.ChiMovimenta;
        if (!vuoto(r.CodProdotto)) {
            if (vuoto(chiMovimenta)) {
                chiMovimenta = t.TipoDoc;
                r.ChiMovimenta = t.TipoDoc;
            }
        } else if (chiMovimenta == t.TipoDoc) {
            chiMovimenta.clear();
        }
        if (!m_archivio.esegui(*inserisci,
                               { t.NroDoc,
                                 dataArchivio(t.DataDoc),
                                 t.TipoDoc.left(50),
                                 numeroRiga,
                                 numeroDaCella(r.Qta),
                                 r.Descrizione.left(200),
                                 numeroDaCella(r.Prezzo),
                                 numeroDaCella(r.Iva),
                                 numeroDaCella(r.Totale),
                                 r.CodProdotto.left(50),
                                 r.Matricola.left(50),
                                 chiMovimenta.left(50),
                                 numeroDaCella(r.ScontoArt),
                                 r.Indice.toLongLong(),
                                 r.CodArt.left(50),
                                 r.Reparto.left(50),
                                 r.Gruppo.left(50),
                                 numeroDaCella(r.PrezzoIvaInclusa),
                                 numeroDaCella(r.NroStampe),
                                 numeroDaCella(r.TotaleIvato) }))
            return false;
    }
    return true;
}

bool DocumentoNew_E::scriviRate()
{
    const TestataDocumento& t = testata;
    Pagamenti pagamenti(m_archivio, nullptr);
    bool ok = true;
    // Payments already made on the document keep it from being written as paid again.
    const bool senzaPagamenti = pagamenti.CancellaScadenzeDocumento(pagamenti::DocumentoNew, t.TipoDoc, t.DataDoc,
                                                                    t.NroDoc, pagamenti::Cancella, &ok);
    if (!ok)
        return false;
    DatiScadenze d;
    d.TipoDiPagamento = pagamenti::DocumentoNew;
    d.TipoDoc = t.TipoDoc;
    d.DataDoc = t.DataDoc;
    d.NroDoc = t.NroDoc;
    d.CodCliente = QString::number(t.CodCliFor);
    d.DesCliente = t.RagSociale;
    d.Totale = t.totali.Totale;
    d.Imponibile = t.totali.Imponibile;
    d.DataRiferimento = t.DataDoc;
    d.Saldato = t.Pagato && senzaPagamenti ? pagamenti::Saldato : pagamenti::Credito;
    d.DescrizionePagamento = t.Pagamento;
    return pagamenti.CreaScadenze(d) && pagamenti.AggiornaStatoProvvigioni(t.TipoDoc, t.DataDoc, t.NroDoc);
}

EsitoDocumento DocumentoNew_E::Cancella_Click()
{
    using T = EsitoDocumento::Tipo;
    Interazione& interazione = m_sessione.interazione;
    const TestataDocumento& t = testata;
    const QVariantList k = chiave(t.DataDoc, t.NroDoc, t.TipoDoc);
    if (!m_archivio.esisteRiga(QStringLiteral("SELECT 1 FROM Testate") + chiaveDocumento, k)) {
        const QString testo = QStringLiteral("Documento inesistente");
        mostra(testo);
        return { T::Rifiutato, testo };
    }
    if (MessaggiAbilitati) {
        if (Pagamenti(m_archivio, &interazione).ControllaCollegamentiDocumento(t.TipoDoc, t.DataDoc, t.NroDoc))
            return { T::Annullato, {} };
        if (!interazione.domandaSiNo(
                QStringLiteral("Attenzione L'operazione Cancella in modo definitivo il Documento Continuare?")))
            return { T::Annullato, {} };
        if (t.TipoDoc != tipodoc::OrdineDaCliente && t.TipoDoc != tipodoc::OrdineAFornitore
            && !interazione.domandaSiNo(QStringLiteral("Premere Si per cancellare")))
            return { T::Annullato, {} };
    }
    const QString nonCancellato = QStringLiteral("Errore di archivio: il documento non è stato cancellato");
    Transazione transazione(m_archivio);
    if (!transazione.attiva() || !eliminaDocumento(t.DataDoc) || !transazione.commit()) {
        transazione.rollback();
        mostra(nonCancellato);
        return { T::Errore, nonCancellato };
    }
    DocumentoEsistente = false;
    DocumentoModificato = false;
    return { T::Eseguito, {} };
}

EsitoDocumento DocumentoNew_E::RegistraDocDaEsterno()
{
    const bool prima = MessaggiAbilitati;
    MessaggiAbilitati = false;
    const EsitoDocumento esito = Registra_Click();
    MessaggiAbilitati = prima;
    return esito;
}

EsitoDocumento DocumentoNew_E::CancellaDocDaEsterno()
{
    const bool prima = MessaggiAbilitati;
    MessaggiAbilitati = false;
    const EsitoDocumento esito = Cancella_Click();
    MessaggiAbilitati = prima;
    return esito;
}

bool DocumentoNew_E::RegistraComeFatturata()
{
    const TestataDocumento& t = testata;
    const bool ok = m_archivio.comando(QStringLiteral("UPDATE Testate SET BoFatturata = 'si'") + chiaveDocumento,
                                       chiave(t.DataDoc, t.NroDoc, t.TipoDoc));
    if (ok)
        testata.altri.insert(QStringLiteral("BoFatturata"), QStringLiteral("si"));
    return ok;
}

} // namespace tomvera
