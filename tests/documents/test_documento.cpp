#include "archiviotemporaneo.h"
#include "documents/documentonew.h"
#include "documents/fattura.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "testmain.h"

#include <QSqlField>
#include <QTest>

using namespace tomvera;

namespace {

const QString fattura = QStringLiteral("Fattura");
const QString accompagnatoria = QStringLiteral("Fattura Accompagnatoria");
const QString ricevuta = QStringLiteral("Ricevuta Fiscale");

RigaDocumento riga(const QString& qta, const QString& prezzoIvato, const QString& iva, const QString& descrizione)
{
    RigaDocumento r;
    r.Qta = qta;
    r.PrezzoIvaInclusa = prezzoIvato;
    r.Iva = iva;
    r.Descrizione = descrizione;
    return r;
}

// An archive with the standard numbering group, a three-instalment term and the rates 0, 10, 22, 4.
struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 3, 15), QTime(9, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };

    Banco()
    {
        sessione.configurazione->ValIva = { 0, 10, 22, 4, 0, 0, 0, 0, 0 };
        t.archivio().comando(QStringLiteral("INSERT INTO TabellaDocumenti (TipoDoc, IndiceGruppo, Gruppo) VALUES"
                                            " ('Fattura', 1, 'Fatturazione'),"
                                            " ('Fattura Accompagnatoria', 2, 'Fatturazione')"));
        t.archivio().comando(QStringLiteral(
            "INSERT INTO TabellaPagamenti (DescrizionePagamento, NumeroDiRate, GiorniTraRate, DecorrenzaRate,"
            " MesiTraRate, GiorniDaPrimaRata, MesiDaPrimaRata, RipartizioneIva, SegnaPagato) VALUES"
            " ('3 rate mensili', 3, 0, 'Fine mese data fattura', 1, 0, 1, 'Iva su tutte le rate', 0)"));
    }

    // A header written straight into the archive, as another desk or an old archive left it.
    void testata(const QString& tipo, const char* data, int numero)
    {
        QVERIFY(t.archivio().comando(QStringLiteral("INSERT INTO Testate (TipoDoc, DataDoc, NroDoc) VALUES (?, ?, ?)"),
                                     { tipo, dataArchivio(*leggiData(QString::fromLatin1(data))), numero }));
    }

    // Saves a document with messages off, as the billing screens do.
    DocumentoNew_E nuovo(const QString& tipo, const QDate& data, std::vector<RigaDocumento> righe)
    {
        DocumentoNew_E d(sessione, t.archivio());
        d.testata.TipoDoc = tipo;
        d.testata.DataDoc = data;
        d.testata.NroDoc = Fattura(t.archivio()).ProssimoNumeroDocumento(tipo, data) + 1;
        d.NumeroProposto = d.testata.NroDoc;
        d.testata.Pagamento = QStringLiteral("3 rate mensili");
        d.righe = std::move(righe);
        return d;
    }

    // Every row of the document tables, to prove that nothing moved.
    QStringList contenuto()
    {
        QStringList v;
        for (const char* tabella : { "Testate", "Righe", "Pagamenti" }) {
            for (const QSqlRecord& r : t.archivio().righe(
                     QStringLiteral("SELECT * FROM %1 ORDER BY 1, 2, 3, 4").arg(QLatin1String(tabella)))) {
                QStringList campi;
                for (int i = 0; i < r.count(); ++i)
                    campi << r.value(i).toString();
                v << QLatin1String(tabella) + QLatin1Char(':') + campi.join(QLatin1Char('|'));
            }
        }
        return v;
    }

    int conta(const QString& sql, const QVariantList& parametri = {})
    {
        return t.archivio().valore(sql, parametri).toInt();
    }
};

} // namespace

// Numbers by type, group and year.
class TestNumerazione : public QObject
{
    Q_OBJECT
private slots:
    void lineeDiNumerazione()
    {
        Banco b;
        b.testata(fattura, "31/12/2025", 1);
        b.testata(fattura, "20/12/2025", 9);
        b.testata(fattura, "01/01/2026", 1);
        b.testata(accompagnatoria, "05/01/2026", 2);
        b.testata(fattura, "06/01/2026", 3);
        b.testata(fattura, "10/02/2026", 5); // 4 was deleted: never filled again
        b.testata(ricevuta, "01/03/2026", 7);
        Fattura f(b.t.archivio());
        QCOMPARE(f.ProssimoNumeroDocumento(fattura, QDate(2026, 3, 15)), 5);
        QCOMPARE(f.ProssimoNumeroDocumento(accompagnatoria, QDate(2026, 3, 15)), 5);
        QCOMPARE(f.ProssimoNumeroDocumento(ricevuta, QDate(2026, 3, 15)), 7);
        QCOMPARE(f.ProssimoNumeroDocumento(QStringLiteral("Preventivo"), QDate(2026, 3, 15)), 0);
        QCOMPARE(f.ProssimoNumeroDocumento(fattura, QDate(2025, 6, 1)), 9);
        QCOMPARE(f.ProssimoNumeroDocumento(accompagnatoria, QDate(2027, 1, 1)), 0);

        // The date in the message is the one asked about.
        QCOMPARE(f.ControllaNumeroInGruppo(accompagnatoria, QDate(2026, 3, 20), 3),
                 QStringLiteral(" Esiste già il documento Fattura con data 20/03/2026 e con numero 3 \n"
                                " (questi documenti sono stati configurati per seguire la stessa numerazione)"));
        QCOMPARE(f.ControllaNumeroInGruppo(fattura, QDate(2026, 3, 20), 3), QString());
        QCOMPARE(f.ControllaNumeroInGruppo(accompagnatoria, QDate(2025, 3, 20), 3), QString());
        QCOMPARE(f.ControllaNumeroInGruppo(ricevuta, QDate(2026, 3, 20), 1), QString());

        QCOMPARE(f.TrovaTipoDocConNumero(fattura, QDate(2026, 1, 1), 2), accompagnatoria);
        QCOMPARE(f.TrovaTipoDocConNumero(fattura, QDate(2026, 1, 1), 3), fattura);
        QCOMPARE(f.TrovaTipoDocConNumero(fattura, QDate(2026, 1, 1), 4), fattura);
        QCOMPARE(f.TrovaDataDocConNumero(fattura, 2, QDate(2026, 7, 1)), QDate(2026, 1, 5));
        QCOMPARE(f.TrovaDataDocConNumero(fattura, 4, QDate(2026, 7, 1)), QDate(2026, 7, 1));
        QCOMPARE(f.ControllaNumeriDoppiDocE(fattura, QDate(2026, 12, 1), 5), QDate(2026, 2, 10));
        QCOMPARE(f.ControllaNumeriDoppiDocE(fattura, QDate(2026, 12, 1), 2), QDate());
    }
};

// Saving and deleting as the editor does.
class TestRegistraDocumento : public QObject
{
    Q_OBJECT
private slots:
    void nuovoDocumentoRinumerato()
    {
        Banco b;
        DocumentoNew_E d(b.sessione, b.t.archivio());
        d.testata.TipoDoc = fattura;
        d.Nuovo_Click();
        QCOMPARE(d.testata.DataDoc, QDate(2026, 3, 15));
        QCOMPARE(d.testata.NroDoc, 1);
        QCOMPARE(d.NumeroProposto, 1);
        d.testata.Pagamento = QStringLiteral("3 rate mensili");
        // Another desk saves number 1 meanwhile, in the group's other type.
        auto altro = b.nuovo(accompagnatoria, QDate(2026, 3, 14), { riga("1", "10", "10", "x") });
        QVERIFY(altro.RegistraDocDaEsterno().ok());

        d.righe = { riga("2", "110", "10", "Camera"), riga("1", "99,99", "22", "Extra"), riga("0", "", "", "Nota") };
        QVERIFY(d.Registra_Click().ok());
        QCOMPARE(d.testata.NroDoc, 2);
        QVERIFY(d.NroDocRinumerato);
        QCOMPARE(d.NumeroProposto, 0);
        QVERIFY(d.DocumentoEsistente);
        QCOMPARE(b.t.interazione().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));

        const auto h = b.t.archivio().riga(QStringLiteral("SELECT * FROM Testate WHERE NroDoc = 2"));
        QVERIFY(h);
        QCOMPARE(h->value(QStringLiteral("totale")).toDouble(), 319.99);
        QCOMPARE(h->value(QStringLiteral("imponibile")).toDouble(), 281.96);
        // Iva0 holds slot 1's VAT: the archive has always stored it so.
        QCOMPARE(h->value(QStringLiteral("iva0")).toDouble(), 20.0);
        QCOMPARE(h->value(QStringLiteral("iva1")).toDouble(), 20.0);
        QCOMPARE(h->value(QStringLiteral("Imp0")).toDouble(), 0.0);
        QCOMPARE(h->value(QStringLiteral("Nome")).toString(), QStringLiteral(" "));
        QCOMPARE(h->value(QStringLiteral("PrezziIvaInclusa")).toInt(), 1);
        QCOMPARE(h->value(QStringLiteral("TotaleNonPagato")).toDouble(), 319.99);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Righe WHERE NroDoc = 2")), 3);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE NroDoc = 2")), 3);
        // The group's other type has instalments too; a receipt of its own number line as well.
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE NroDoc = 1")), 3);
        auto nota = b.nuovo(QStringLiteral("Nota Credito"), QDate(2026, 3, 15), { riga("1", "10", "10", "x") });
        QVERIFY(nota.RegistraDocDaEsterno().ok());
        QCOMPARE(nota.testata.NroDoc, 1);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE TipoDoc = 'Nota Credito'")), 0);
        QVERIFY(b.t.interazione().errore().isEmpty());
    }

    void rifiuti()
    {
        Banco b;
        b.testata(fattura, "01/03/2026", 3);
        const QStringList prima = b.contenuto();
        DocumentoNew_E d(b.sessione, b.t.archivio());
        d.testata.TipoDoc = accompagnatoria;
        d.testata.DataDoc = QDate(2026, 3, 20);
        d.testata.NroDoc = 3;
        d.righe = { riga("1", "10", "10", "x") };
        const EsitoDocumento gruppo = d.Registra_Click();
        QCOMPARE(gruppo.tipo, EsitoDocumento::Tipo::Rifiutato);
        QVERIFY(gruppo.messaggio.startsWith(QStringLiteral("Attenzione! Operazione non possibile ...\n Esiste già il "
                                                           "documento Fattura con data 20/03/2026 e con numero 3")));
        QCOMPARE(b.t.interazione().ultimoTesto(), gruppo.messaggio);

        d.testata.NroDoc = 4;
        d.righe = { riga("1", "10", "10", "x"), riga("1", "10", "7", "aliquota sconosciuta") };
        const EsitoDocumento iva = d.Registra_Click();
        QCOMPARE(iva.tipo, EsitoDocumento::Tipo::Rifiutato);
        QCOMPARE(iva.messaggio, QStringLiteral("Ci sono dei valori Documento inesatti: Ricontrollare Documento"));
        QCOMPARE(b.t.interazione().ultimoTesto(), iva.messaggio);
        QCOMPARE(b.contenuto(), prima);
        QVERIFY(b.t.interazione().errore().isEmpty());
    }

    void sostituzioneEAggiornamento()
    {
        Banco b;
        auto vecchio = b.nuovo(fattura, QDate(2026, 2, 10), { riga("1", "100", "10", "vecchio") });
        QVERIFY(vecchio.RegistraDocDaEsterno().ok());
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti")), 3);
        const QStringList prima = b.contenuto();

        DocumentoNew_E d(b.sessione, b.t.archivio());
        d.testata.TipoDoc = fattura;
        d.testata.DataDoc = QDate(2026, 3, 15);
        d.testata.NroDoc = 1;
        d.testata.Pagamento = QStringLiteral("3 rate mensili");
        d.righe = { riga("1", "50", "10", "nuovo") };
        b.t.interazione().rispondiNo(
            QStringLiteral("ATTENZIONE: Si stà sostituendo un documento già esistente (Fattura del 10/02/2026 n.ro 1)."
                           " CONTINUARE?"));
        QCOMPARE(d.Registra_Click().tipo, EsitoDocumento::Tipo::Annullato);
        QCOMPARE(b.contenuto(), prima);

        b.t.interazione().rispondiSi(QStringLiteral("Si stà sostituendo"));
        QVERIFY(d.Registra_Click().ok());
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Testate")), 1);
        QCOMPARE(b.t.archivio().valore(QStringLiteral("SELECT DataDoc FROM Testate")).toString(),
                 QStringLiteral("2026-03-15"));
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Righe WHERE DataDoc = '2026-02-10'")), 0);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE DataDoc = '2026-02-10'")), 0);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE DataDoc = '2026-03-15'")), 3);

        // Saving it again asks, and rebuilds lines and instalments.
        d.righe.push_back(riga("2", "10", "22", "altro"));
        b.t.interazione().rispondiSi(
            QStringLiteral("Attenzione si stà aggiornando un Documento già esistente. Continuare?"));
        QVERIFY(d.Registra_Click().ok());
        QCOMPARE(d.testata.totali.Totale, 70.0);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Righe")), 2);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti")), 3);
        QCOMPARE(b.t.archivio().valore(QStringLiteral("SELECT sum(ImportoFattura) FROM Pagamenti")).toDouble(), 70.0);
        QVERIFY(b.t.interazione().risposteFinite());
        QVERIFY(b.t.interazione().errore().isEmpty());
    }

    void salvataggioInterrottoNonLasciaTracce()
    {
        Banco b;
        auto d = b.nuovo(fattura, QDate(2026, 3, 15), { riga("1", "100", "10", "prima") });
        QVERIFY(d.RegistraDocDaEsterno().ok());
        const QStringList prima = b.contenuto();
        // The archive refuses the instalments: header and lines were already rewritten by then.
        QVERIFY(b.t.archivio().comando(QStringLiteral(
            "CREATE TRIGGER guasto BEFORE INSERT ON Pagamenti BEGIN SELECT RAISE(ABORT, 'disco pieno'); END")));
        d.righe = { riga("3", "20", "22", "dopo"), riga("1", "5", "10", "altro") };
        d.testata.RagSociale = QStringLiteral("Cambiato");
        const EsitoDocumento esito = d.RegistraDocDaEsterno();
        QCOMPARE(esito.tipo, EsitoDocumento::Tipo::Errore);
        QCOMPARE(b.contenuto(), prima);

        auto nuovo = b.nuovo(fattura, QDate(2026, 3, 15), { riga("1", "100", "10", "mai scritto") });
        QCOMPARE(nuovo.RegistraDocDaEsterno().tipo, EsitoDocumento::Tipo::Errore);
        QCOMPARE(nuovo.testata.NroDoc, 2);
        QCOMPARE(nuovo.NumeroProposto, 2);
        QCOMPARE(b.contenuto(), prima);
    }

    void pagatoEcancellazione()
    {
        Banco b;
        auto d = b.nuovo(ricevuta, QDate(2026, 3, 15), { riga("1", "100", "10", "x") });
        d.testata.Pagato = true;
        QVERIFY(d.RegistraDocDaEsterno().ok());
        QCOMPARE(d.testata.TotalePagato, 100.0);
        QCOMPARE(d.testata.TotaleNonPagato, 0.0);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE Saldato = 'Saldato'")), 3);

        d.MessaggiAbilitati = true;
        b.t.interazione().rispondiSi(QStringLiteral("Cancella in modo definitivo"));
        b.t.interazione().rispondiNo(QStringLiteral("Premere Si per cancellare"));
        QCOMPARE(d.Cancella_Click().tipo, EsitoDocumento::Tipo::Annullato);
        QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM Testate")), 1);
        b.t.interazione().rispondiSi();
        b.t.interazione().rispondiSi();
        QVERIFY(d.Cancella_Click().ok());
        for (const char* tabella : { "Testate", "Righe", "Pagamenti" })
            QCOMPARE(b.conta(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabella)), 0);
        QCOMPARE(d.CancellaDocDaEsterno().messaggio, QStringLiteral("Documento inesistente"));
        QVERIFY(b.t.interazione().risposteFinite());
        QVERIFY(b.t.interazione().errore().isEmpty());
    }

    void fatturata()
    {
        Banco b;
        auto d = b.nuovo(QStringLiteral("D.D.T."), QDate(2026, 3, 15), { riga("1", "10", "10", "x") });
        QVERIFY(d.RegistraDocDaEsterno().ok());
        QVERIFY(d.RegistraComeFatturata());
        QCOMPARE(b.t.archivio().valore(QStringLiteral("SELECT BoFatturata FROM Testate")).toString(),
                 QStringLiteral("si"));
        // A later save keeps the mark.
        QVERIFY(d.RegistraDocDaEsterno().ok());
        QCOMPARE(b.t.archivio().valore(QStringLiteral("SELECT BoFatturata FROM Testate")).toString(),
                 QStringLiteral("si"));
    }
};

TOMVERA_TEST(TestNumerazione)
TOMVERA_TEST(TestRegistraDocumento)

#include "test_documento.moc"
