#include "archiviotemporaneo.h"
#include "eseguicli.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

// The totals block of documento-calcola, from the given values in order.
QString totali(const QStringList& valori)
{
    static const QStringList nomi { "imp0", "imp1", "imp2", "imp3",       "imp4",   "imp5",      "imp6",
                                    "imp7", "imp8", "iva1", "iva2",       "iva3",   "iva4",      "iva5",
                                    "iva6", "iva7", "iva8", "imponibile", "totale", "scontoval", "scontovalivato" };
    QString testo;
    for (int i = 0; i < nomi.size(); ++i)
        testo += nomi.at(i) + QLatin1Char('\t') + valori.value(i, QStringLiteral("0,00")) + QLatin1Char('\n');
    return testo;
}

} // namespace

// The document commands, run on the real program.
class TestComandiDocumenti : public QObject
{
    Q_OBJECT
private:
    std::unique_ptr<test::ArchivioTemporaneo> m_t;
    QStringList archivio() const { return { QStringLiteral("--archivio"), m_t->percorso() }; }
    int conta(const QString& sql) { return m_t->archivio().valore(sql).toInt(); }

private slots:
    void init()
    {
        m_t = std::make_unique<test::ArchivioTemporaneo>();
        QVERIFY(m_t->archivio().comando(
            QStringLiteral("INSERT INTO Configurazioni (RagSociale, ValIva0, ValIva1, ValIva2, ValIva3, ValIva4)"
                           " VALUES ('Hotel', 0, 10, 22, 4, 10)")));
        QVERIFY(m_t->archivio().comando(QStringLiteral(
            "INSERT INTO TabellaPagamenti (DescrizionePagamento, NumeroDiRate, GiorniTraRate, DecorrenzaRate,"
            " MesiTraRate, GiorniDaPrimaRata, MesiDaPrimaRata, RipartizioneIva) VALUES"
            " ('Tre rate', 3, 0, 'Fine mese data fattura', 1, 0, 1, 'Iva tutta sulla 1° rata')")));
        QVERIFY(m_t->archivio().comando(QStringLiteral(
            "INSERT INTO TabellaDocumenti (TipoDoc, IndiceGruppo, Gruppo) VALUES ('Fattura', 1, 'Fatturazione'),"
            " ('Fattura Accompagnatoria', 2, 'Fatturazione')")));
        QVERIFY(m_t->archivio().comando(
            QStringLiteral("INSERT INTO TabellaAnagrafiche (CodiceAnagrafica, RagSociale, Indirizzo, Comune, Provincia)"
                           " VALUES ('C0001', 'Rossi Viaggi Srl', 'Via Roma 1', 'Rimini', 'RN')")));
    }
    void cleanup() { m_t.reset(); }

    void calcola()
    {
        const auto e = test::eseguiCli(
            QStringLiteral("documento-calcola"),
            archivio() + QStringList { "--sconto1", "10", "--sconto2", "5", "--sconto-merce", "1.000,5" },
            QStringLiteral("2;110;10;;Camera doppia\n"
                           "1;99,99;22;10;Minibar; bibite\n"
                           "0;50;22;;Soggiorno dal 1 al 3\n"
                           "3;;10;;Senza prezzo\n"
                           "1;1.234,50;;;Fuori dai totali\n"
                           "1;12,5;0;;Esente\n"));
        QCOMPARE(e.err, QString());
        QCOMPARE(e.codice, 0);
        // Slot 1: 220 less 10% and 5% = 188.10; slot 2: 89.99 less 13.05 = 76.94; slot 0: 12.50 less 1.81.
        // The goods discount of 1,000.50 takes the total below zero.
        QCOMPARE(e.out,
                 QStringLiteral("riga 1\t100,00\t200,00\t220,00\n"
                                "riga 2\t81,96\t73,76\t89,99\n"
                                "riga 3\t\t\t\n"
                                "riga 4\t\t0,00\t0,00\n"
                                "riga 5\t1.234,50\t\t\n"
                                "riga 6\t12,50\t12,50\t12,50\n")
                     + totali({ "10,69", "171,00", "63,07", "0,00",    "0,00",    "0,00",  "0,00",
                                "0,00",  "0,00",   "17,10", "13,87",   "0,00",    "0,00",  "0,00",
                                "0,00",  "0,00",   "0,00",  "-755,74", "-724,77", "41,51", "46,76" }));
    }

    void calcolaRifiutaERespinge()
    {
        const auto rifiuto = test::eseguiCli(QStringLiteral("documento-calcola"), archivio(),
                                             QStringLiteral("1;10;10;;ok\n1;10;7;;sette per cento\n"));
        QCOMPARE(rifiuto.codice, 1);
        QCOMPARE(rifiuto.out, QString());
        QCOMPARE(rifiuto.err, QStringLiteral("Ci sono dei valori Documento inesatti: Ricontrollare Documento\n"));

        const QList<QPair<QStringList, QString>> errati {
            { QStringList { "--sconto1", "dieci" }, "1;10;10;;x\n" },
            { QStringList { "--sconto-merce" }, "1;10;10;;x\n" },
            { QStringList { "--ignota", "1" }, "1;10;10;;x\n" },
            { QStringList(), "uno;10;10;;x\n" },
            { QStringList(), "1;10 euro;10;;x\n" },
            { QStringList(), "1;10;10;;" + QString(201, QLatin1Char('x')) + "\n" },
        };
        for (const auto& caso : errati) {
            const auto e = test::eseguiCli(QStringLiteral("documento-calcola"), archivio() + caso.first, caso.second);
            QVERIFY2(e.codice == 2, qPrintable(caso.second));
            QCOMPARE(e.err.count(QLatin1Char('\n')), 1);
            QCOMPARE(e.out, QString());
        }
        const auto senzaArchivio = test::eseguiCli(QStringLiteral("documento-calcola"),
                                                   { "--archivio", m_t->cartella() + "/manca.mdb" }, "1;1;10;;x\n");
        QCOMPARE(senzaArchivio.codice, 2);
    }

    void registraNumeraESostituisce()
    {
        const QString righe = QStringLiteral("2;110;10;;Camera\n1;12;22;;Colazione\n");
        const QStringList base = archivio() + QStringList { "--tipo", "Fattura", "--data", "31/01/2026" };
        auto e = test::eseguiCli(QStringLiteral("documento-registra"),
                                 base + QStringList { "--cliente", "1", "--pagamento", "Tre rate" }, righe);
        QCOMPARE(e.err, QString());
        QCOMPARE(e.out, QStringLiteral("Fattura\t31/01/2026\t1\t232,00\n"));
        QCOMPARE(e.codice, 0);
        e = test::eseguiCli(QStringLiteral("documento-registra"),
                            archivio() + QStringList { "--tipo", "Fattura Accompagnatoria", "--data", "02/02/2026" },
                            righe);
        QCOMPARE(e.out, QStringLiteral("Fattura Accompagnatoria\t02/02/2026\t2\t232,00\n"));

        const auto h = m_t->archivio().riga(QStringLiteral("SELECT * FROM Testate WHERE NroDoc = 1"));
        QVERIFY(h);
        QCOMPARE(h->value(QStringLiteral("RagSociale")).toString(), QStringLiteral("Rossi Viaggi Srl"));
        QCOMPARE(h->value(QStringLiteral("CodCliFor")).toInt(), 1);
        QCOMPARE(h->value(QStringLiteral("CodiceCliente")).toString(), QStringLiteral("C0001"));
        // Iva tutta sulla 1° rata: R = 209.84 / 3 = 69.95, first = 232 + 69.95 - 209.84, last a cent short.
        QStringList rate;
        for (const QSqlRecord& r : m_t->archivio().righe(QStringLiteral(
                 "SELECT DataScadenzaRata, ImportoFattura, DesCliente FROM Pagamenti WHERE NroDoc = 1 ORDER BY 1")))
            rate << r.value(0).toString() + QLatin1Char(' ') + QString::number(r.value(1).toDouble()) + QLatin1Char(' ')
                    + r.value(2).toString();
        QCOMPARE(rate,
                 (QStringList { "2026-02-28 92.11 Rossi Viaggi Srl", "2026-03-31 69.95 Rossi Viaggi Srl",
                                "2026-04-30 69.94 Rossi Viaggi Srl" }));

        // A number by hand that another type of the group holds: refused, nothing written.
        e = test::eseguiCli(
            QStringLiteral("documento-registra"),
            archivio() + QStringList { "--tipo", "Fattura Accompagnatoria", "--data", "05/02/2026", "--numero", "1" },
            righe);
        QCOMPARE(e.codice, 1);
        QVERIFY(e.err.contains(QStringLiteral("Esiste già il documento Fattura con data 05/02/2026 e con numero 1")));
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Testate")), 2);

        // The same type and number under another date of the year: the older one is replaced.
        e = test::eseguiCli(QStringLiteral("documento-registra"),
                            archivio()
                                + QStringList { "--tipo", "Fattura", "--data", "10/02/2026", "--numero", "1",
                                                "--pagato", "--sconto-merce", "2" },
                            QStringLiteral("1;50;10;;Solo una notte\n"));
        QCOMPARE(e.out, QStringLiteral("Fattura\t10/02/2026\t1\t48,00\n"));
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Testate WHERE TipoDoc = 'Fattura'")), 1);
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Righe WHERE DataDoc = '2026-01-31'")), 0);
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE DataDoc = '2026-01-31'")), 0);
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Pagamenti WHERE DataDoc = '2026-02-10'"
                                      " AND Saldato = 'Saldato'")),
                 1);

        // An existing triple is updated in place.
        e = test::eseguiCli(QStringLiteral("documento-registra"),
                            archivio() + QStringList { "--tipo", "Fattura", "--data", "10/02/2026", "--numero", "1" },
                            QStringLiteral("2;50;10;;Due notti\n"));
        QCOMPARE(e.out, QStringLiteral("Fattura\t10/02/2026\t1\t100,00\n"));
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Righe WHERE DataDoc = '2026-02-10'")), 1);

        // A new document after all this: the next of the line.
        e = test::eseguiCli(QStringLiteral("documento-registra"), base, righe);
        QCOMPARE(e.out, QStringLiteral("Fattura\t31/01/2026\t3\t232,00\n"));
    }

    void registraInputErrato()
    {
        const QList<QStringList> errati {
            { "--data", "31/01/2026" },
            { "--tipo", "Fattura", "--data", "31/02/2026" },
            { "--tipo", "Fattura", "--data", "31/01/2026", "--numero", "0" },
            { "--tipo", "Fattura", "--data", "31/01/2026", "--numero", "tre" },
            { "--tipo", "Fattura", "--data", "31/01/2026", "--cliente", "99" },
            { "--tipo", QString(51, QLatin1Char('F')), "--data", "31/01/2026" },
            { "--tipo", "Fattura", "--data", "31/01/2026", "--pagamento", QString(51, QLatin1Char('p')) },
        };
        for (const QStringList& argomenti : errati) {
            const auto e = test::eseguiCli(QStringLiteral("documento-registra"), archivio() + argomenti,
                                           QStringLiteral("1;10;10;;x\n"));
            QVERIFY2(e.codice == 2, qPrintable(argomenti.join(QLatin1Char(' '))));
            QCOMPARE(e.err.count(QLatin1Char('\n')), 1);
        }
        const auto iva = test::eseguiCli(QStringLiteral("documento-registra"),
                                         archivio() + QStringList { "--tipo", "Fattura", "--data", "31/01/2026" },
                                         QStringLiteral("1;10;8;;x\n"));
        QCOMPARE(iva.codice, 1);
        QVERIFY(iva.err.startsWith(QStringLiteral("Ci sono dei valori")));
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Testate")), 0);
    }

    void cancella()
    {
        auto e = test::eseguiCli(QStringLiteral("documento-registra"),
                                 archivio() + QStringList { "--tipo", "Ricevuta Fiscale", "--data", "01/03/2026" },
                                 QStringLiteral("1;10;10;;x\n"));
        QCOMPARE(e.codice, 0);
        const QStringList chiave { "--tipo", "Ricevuta Fiscale", "--data", "01/03/2026", "--numero", "1" };
        e = test::eseguiCli(QStringLiteral("documento-cancella"), archivio() + chiave);
        QCOMPARE(e.err, QString());
        QCOMPARE(e.codice, 0);
        for (const char* tabella : { "Testate", "Righe", "Pagamenti" })
            QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabella)), 0);
        e = test::eseguiCli(QStringLiteral("documento-cancella"), archivio() + chiave);
        QCOMPARE(e.codice, 1);
        QCOMPARE(e.err, QStringLiteral("Documento inesistente\n"));
        e = test::eseguiCli(QStringLiteral("documento-cancella"),
                            archivio() + QStringList { "--tipo", "Fattura", "--data", "01/03/2026" });
        QCOMPARE(e.codice, 2);
    }

    void scadenze()
    {
        auto e = test::eseguiCli(QStringLiteral("scadenze"),
                                 archivio()
                                     + QStringList { "--pagamento", "Tre rate", "--data", "31/01/2016", "--totale",
                                                     "1.220,00", "--imponibile", "1000" });
        QCOMPARE(e.err, QString());
        QCOMPARE(e.out, QStringLiteral("1\t28/02/2016\t553,33\n2\t31/03/2016\t333,33\n3\t30/04/2016\t333,34\n"));
        QCOMPARE(e.codice, 0);
        // A term that is not in the table: one instalment at the document date, with February's 28 days.
        e = test::eseguiCli(QStringLiteral("scadenze"),
                            archivio()
                                + QStringList { "--pagamento", "Contanti", "--data", "29/02/2016", "--totale", "-0,01",
                                                "--imponibile", "0" });
        QCOMPARE(e.out, QStringLiteral("1\t28/02/2016\t-0,01\n"));
        e = test::eseguiCli(QStringLiteral("scadenze"),
                            archivio()
                                + QStringList { "--pagamento", "Tre rate", "--data", "31/01/2016", "--totale", "cento",
                                                "--imponibile", "1" });
        QCOMPARE(e.codice, 2);
        QCOMPARE(e.out, QString());
        QCOMPARE(conta(QStringLiteral("SELECT count(*) FROM Pagamenti")), 0);
    }
};

TOMVERA_TEST(TestComandiDocumenti)

#include "test_cli_documenti.moc"
