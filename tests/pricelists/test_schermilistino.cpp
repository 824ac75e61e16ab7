#include "archiviotemporaneo.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"
#include "pricelists/schermolistinoaccessori.h"
#include "pricelists/schermolistinocamere.h"
#include "reports/stampagenerica.h"
#include "testmain.h"

#include <QSqlRecord>
#include <QTest>

using namespace tomvera;
using namespace tomvera::prezzi;

namespace {

// A session on a fresh archive, logged in as the administrator, on 10/05/2026.
struct Banco
{
    test::ArchivioTemporaneo t;
    OrologioFisso orologio { QDateTime(QDate(2026, 5, 10), QTime(9, 0)) };
    Sessione sessione { t.interazione(), orologio, t.errori() };

    Banco()
    {
        sessione.PercorsoDB = t.percorso();
        sessione.UtenteCollegato = QStringLiteral("Amministratore");
        sessione.permessi->amministratore = true;
        sessione.configurazione->IvaPrenotazioni = 10;
    }
    test::InterazioneScriptata& io() { return t.interazione(); }
    QList<QSqlRecord> righe(const QString& sql) { return t.archivio().righe(sql); }
};

void compila(SchermoListinoCamere& s, const QString& listino, const QString& codice, const QString& dal,
             const QString& al, const QString& prezzo, const QString& iva, const QString& giorni)
{
    s.Listino = listino;
    s.CodiceTipologia = codice;
    s.Dal = dal;
    s.Al = al;
    s.Prezzo = prezzo;
    s.Iva = iva;
    s.Giorni = giorni;
}

} // namespace

class TestSchermoListinoCamere : public QObject
{
    Q_OBJECT
private slots:
    void controlliInOrdine();
    void dateDelPeriodo();
    void scritturaEAggiornamento();
    void modoRicordatoEParoleDiTrattamento();
    void ricercaCancellazioneEStampa();
    void dirittiUtente();
};

void TestSchermoListinoCamere::controlliInOrdine()
{
    Banco b;
    SchermoListinoCamere s(b.sessione);
    s.Form_Load();
    struct Caso
    {
        QStringList campi; // Listino, codice, prezzo, iva
        QString messaggio;
        QString focus;
    };
    const QList<Caso> casi {
        { { "", "", "", "" }, "Attenzione, inserire un listino!", "Listino" },
        { { "Estate", "", "", "" }, "Attenzione, inserire un codice tipologia!", "CodiceTipologia" },
        { { "Estate", "DOPPIA", "0,00", "" }, "Attenzione, inserire un prezzo!", "Prezzo" },
        { { "Estate", "DOPPIA", "abc", "10" }, "Attenzione, inserire un prezzo!", "Prezzo" },
        { { "Estate", "DOPPIA", "90", "" }, "Attenzione, inserire Iva!", "Iva" },
    };
    for (const Caso& c : casi) {
        b.io().pulisci();
        compila(s, c.campi[0], c.campi[1], QString(), QString(), c.campi[2], c.campi[3], QString());
        QVERIFY(!s.Ins_Click());
        QCOMPARE(b.io().testi(), QStringList { c.messaggio });
        QCOMPARE(s.Focus, c.focus);
    }
    // The VAT word follows the settings.
    b.sessione.configurazione->EtichettaImpostaLunga = QStringLiteral("Imposta");
    b.io().pulisci();
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.io().ultimoTesto(), QStringLiteral("Attenzione, inserire Imposta!"));
    QVERIFY(b.righe(QStringLiteral("SELECT * FROM TabellaListinoCamere")).isEmpty());
}

void TestSchermoListinoCamere::dateDelPeriodo()
{
    Banco b;
    SchermoListinoCamere s(b.sessione);
    s.Form_Load();
    const QString errore = QStringLiteral("Attenzione, inserire correttamente le date : formato GG/MM ");
    const QList<QStringList> rifiutate {
        { "01/06", "" }, { "", "30/06" }, { "31/06", "30/09" }, { "01/06/2026", "30/06" }, { "29/02", "31/03" }
    };
    for (const QStringList& periodo : rifiutate) {
        b.io().pulisci();
        compila(s, "Estate", "DOPPIA", periodo[0], periodo[1], "90", "10", "1");
        QVERIFY2(!s.Ins_Click(), qPrintable(periodo.join(QLatin1Char(' '))));
        QCOMPARE(b.io().testi(), QStringList { errore });
    }
    QCOMPARE(s.Focus, QStringLiteral("Dal"));
    // 29/02 passes when the current year is a leap year; a period across the new year passes as it is.
    b.orologio.imposta(QDateTime(QDate(2028, 1, 3), QTime(9, 0)));
    for (const QStringList& periodo :
         QList<QStringList> { { "29/02", "31/03" }, { "20/12", "10/01" }, { "1/6", "1/6" } }) {
        s.Nuovo_Click();
        compila(s, "Estate", "DOPPIA", periodo[0], periodo[1], "90", "10", "1");
        QVERIFY(s.Ins_Click());
    }
    QCOMPARE(b.righe(QStringLiteral("SELECT * FROM TabellaListinoCamere")).size(), 3);
}

void TestSchermoListinoCamere::scritturaEAggiornamento()
{
    Banco b;
    SchermoListinoCamere s(b.sessione);
    s.Form_Load();
    compila(s, "Estate", "Vista sull'orto", "01/06", "30/06", "1.250,5", "10", "");
    QVERIFY(s.Ins_Click());
    auto righe = b.righe(QStringLiteral("SELECT Listino, CodiceTipologia, Dal, Al, Prezzo, Iva, Giorni "
                                        "FROM TabellaListinoCamere"));
    QCOMPARE(righe.size(), 1);
    // The key goes in doubled on purpose; Giorni left empty is one night.
    QCOMPARE(righe[0].value(1).toString(), QStringLiteral("Vista sull''orto"));
    QCOMPARE(righe[0].value(4).toDouble(), 1250.5);
    QCOMPARE(righe[0].value(6).toInt(), 1);
    QCOMPARE(s.Giorni, QStringLiteral("1"));
    QCOMPARE(s.Griglia.size(), size_t(1));
    QCOMPARE(s.Griglia[0].colonne,
             QStringList({ "Estate", "Vista sull''orto", "01/06", "30/06", "1250,50", "10", "1" }));
    QCOMPARE(s.ElencoListini, QStringList { "Estate" });

    // A row picked in the grid is updated after the question; No leaves it as it was.
    s.Griglia_Click(0);
    QCOMPARE(s.CodiceTipologia, QStringLiteral("Vista sull'orto"));
    s.Prezzo = QStringLiteral("99");
    b.io().rispondiNo(QStringLiteral("si stà aggiornando"));
    QVERIFY(!s.Ins_Click());
    b.io().rispondiSi(QStringLiteral("Attenzione si stà aggiornando un prezzo già esistente. Continuare?"));
    s.Giorni = QStringLiteral("0");
    QVERIFY(s.Ins_Click());
    QVERIFY(b.io().errore().isEmpty());
    righe = b.righe(QStringLiteral("SELECT CodiceTipologia, Prezzo, Giorni FROM TabellaListinoCamere"));
    QCOMPARE(righe.size(), 1);
    QCOMPARE(righe[0].value(0).toString(), QStringLiteral("Vista sull''orto"));
    QCOMPARE(righe[0].value(1).toDouble(), 99.0);
    QCOMPARE(righe[0].value(2).toInt(), 1);
}

void TestSchermoListinoCamere::modoRicordatoEParoleDiTrattamento()
{
    Banco b;
    {
        SchermoListinoCamere s(b.sessione);
        s.Form_Load();
        QVERIFY(s.PrezzoACamera);
        QCOMPARE(s.Caption(), QStringLiteral("TIPO DI LISTINO: Prezzo a Camera"));
        QCOMPARE(s.EtichettaCodice(), QStringLiteral("Codice Tipologia"));
        s.PrezzoAPersona_Click();
    }
    Variabili v(b.t.archivio());
    QVERIFY(v.LeggiVariabileBooleana(QStringLiteral("F_ListinoCamere_PrezzoAPersona")));
    QVERIFY(!v.LeggiVariabileBooleana(QStringLiteral("F_ListinoCamere_PrezzoACamera")));

    SchermoListinoCamere s(b.sessione);
    s.Form_Load();
    QVERIFY(s.PrezzoAPersona && !s.PrezzoACamera);
    QCOMPARE(s.Caption(), QStringLiteral("TIPO DI LISTINO: Prezzo a Persona"));
    QCOMPARE(s.TitoliColonne().at(1), QStringLiteral("Trattamento / Tipo"));
    const QStringList fisse { "Pensione Completa", "Mezza Pensione", "Pernottamento e Colazione", "Pernottamento" };
    // No separator until a fifth word exists.
    QCOMPARE(s.ElencoCodici, fisse);
    compila(s, "Base", "Mezza Pensione", "", "", "70", "10", "1");
    QVERIFY(s.Ins_Click());
    compila(s, "Base", "All inclusive", "", "", "95", "10", "1");
    QVERIFY(s.Ins_Click());
    compila(s, "Base", "Bed & Bike", "", "", "45", "10", "1");
    QVERIFY(s.Ins_Click());
    const QStringList attese = fisse + QStringList({ QString(48, QLatin1Char('-')), "Bed & Bike", "All inclusive" });
    QCOMPARE(s.ElencoCodici, attese);
    QCOMPARE(b.righe(QStringLiteral("SELECT * FROM TabellaListinoCamereAPersona")).size(), 3);
    QVERIFY(b.righe(QStringLiteral("SELECT * FROM TabellaListinoCamere")).isEmpty());
    // The separator is no word.
    s.CodiceTipologia = SchermoListinoCamere::Separatore();
    s.CodiceTipologia_LostFocus();
    QVERIFY(s.CodiceTipologia.isEmpty());
}

void TestSchermoListinoCamere::ricercaCancellazioneEStampa()
{
    Banco b;
    QVERIFY(b.t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NomeTipologia) VALUES "
                       "('DOPPIA', 'Doppia'), ('SINGOLA', 'Singola')")));
    SchermoListinoCamere s(b.sessione);
    s.Form_Load();
    QCOMPARE(s.ElencoCodici, QStringList({ "SINGOLA", "DOPPIA" }));
    compila(s, "Estate", "DOPPIA", "01/06", "30/09", "90", "10", "1");
    QVERIFY(s.Ins_Click());
    compila(s, "Inverno", "L'attico", "", "", "120", "10", "1");
    QVERIFY(s.Ins_Click());
    compila(s, "Estate", "SINGOLA", "", "", "55", "10", "7");
    QVERIFY(s.Ins_Click());
    QCOMPARE(s.ElencoListini, QStringList({ "Inverno", "Estate" }));

    s.CodiceTipologiaRic = QStringLiteral("L'attico");
    s.Cerca_Click();
    QCOMPARE(s.Griglia.size(), size_t(1));
    s.CodiceTipologiaRic.clear();
    s.ListinoRic = QStringLiteral("estate");
    s.Cerca_Click();
    QCOMPARE(s.Griglia.size(), size_t(2));
    s.CL_Click();
    QCOMPARE(s.Griglia.size(), size_t(3));

    const auto stampa = s.Command1_Click();
    QVERIFY(stampa);
    const QStringList righe = reports::leggiStampa(b.t.archivio());
    QCOMPARE(righe.first(), QStringLiteral("Data di Stampa: 10/05/2026"));
    QCOMPARE(righe.at(1), QStringLiteral("TIPO DI LISTINO: Prezzo a Camera"));
    QVERIFY(righe.at(2).startsWith(QStringLiteral("Listino|Cod. Tipologia (Camera)|Dal (gg/mm)")));
    QCOMPARE(stampa->righe.size(), 3);
    QCOMPARE(stampa->righe.first(), QStringList({ "Estate", "DOPPIA", "01/06", "30/09", "90,00", "10", "1" }));

    b.io().pulisci();
    s.Nuovo_Click();
    QVERIFY(!s.Command15_Click());
    QCOMPARE(b.io().testi(), QStringList { "Attenzione, selezionare la riga da cancellare" });
    s.Griglia_Click(0);
    b.io().rispondiNo(QStringLiteral("Attenzione, cancellare la riga selezionata?"));
    QVERIFY(!s.Command15_Click());
    b.io().rispondiSi(QStringLiteral("Attenzione, cancellare la riga selezionata?"));
    QVERIFY(s.Command15_Click());
    QCOMPARE(b.io().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QCOMPARE(s.Griglia.size(), size_t(2));
    QVERIFY(b.io().errore().isEmpty());
}

void TestSchermoListinoCamere::dirittiUtente()
{
    Banco b;
    b.sessione.permessi->amministratore = false;
    b.sessione.UtenteCollegato = QStringLiteral("Mario");
    SchermoListinoCamere s(b.sessione);
    s.Form_Load();
    // Without the right nothing happens at all, not even a message.
    compila(s, "", "", "", "", "", "", "");
    QVERIFY(!s.Ins_Click());
    QVERIFY(b.io().testi().isEmpty());
    b.sessione.permessi->Listini = true;
    b.sessione.permessi->ListiniSoloLettura = true;
    QVERIFY(s.SoloLettura());
    compila(s, "Estate", "DOPPIA", "", "", "90", "10", "1");
    QVERIFY(!s.Ins_Click());
    b.sessione.permessi->ListiniSoloLettura = false;
    QVERIFY(s.Ins_Click());
}

TOMVERA_TEST(TestSchermoListinoCamere)

class TestSchermoListinoAccessori : public QObject
{
    Q_OBJECT
private slots:
    void controlliScritturaERicerca();
    void rifiutiEStampa();
    void dirittiUtente();
};

void TestSchermoListinoAccessori::controlliScritturaERicerca()
{
    Banco b;
    SchermoListinoAccessori s(b.sessione);
    s.Form_Load();
    QVERIFY(!s.Ins_Click());
    s.Descrizione = QStringLiteral("Caffe' espresso");
    s.Prezzo = QStringLiteral("0");
    QVERIFY(!s.Ins_Click());
    s.Prezzo = QStringLiteral("1,2");
    QVERIFY(!s.Ins_Click());
    QCOMPARE(b.io().testi(),
             QStringList({ "Attenzione, inserire una descrizione!", "Attenzione, inserire un prezzo!",
                           "Attenzione, inserire Iva!" }));
    QCOMPARE(s.Focus, QStringLiteral("Iva"));

    // An empty group is accepted, texts go in with apostrophes doubled, and the fields are cleared.
    s.Iva = QStringLiteral("22");
    QVERIFY(s.Ins_Click());
    QVERIFY(s.Descrizione.isEmpty() && s.Prezzo.isEmpty());
    QCOMPARE(s.Griglia.at(0).colonne, QStringList({ "", "Caffe'' espresso", "1,20", "22" }));
    QVERIFY(b.t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) VALUES "
                       "('Bar', 'Acqua', 1, 22), ('L''''orto', 'Cesto di frutta', 8, 10)")));
    s.TipoRic = QStringLiteral("L'orto");
    s.Cerca_Click();
    QCOMPARE(s.Griglia.size(), size_t(1));
    s.CL_Click();
    QCOMPARE(s.Griglia.size(), size_t(3));

    // Updating asks first; the text picked from the grid is doubled once again, not twice.
    s.Griglia_Click(0);
    s.Prezzo = QStringLiteral("1,3");
    b.io().rispondiSi(QStringLiteral("Attenzione si stà aggiornando un prezzo già esistente. Continuare?"));
    QVERIFY(s.Ins_Click());
    QCOMPARE(b.t.archivio()
                 .valore(QStringLiteral("SELECT Descrizione FROM TabellaListinoAccessori WHERE Prezzo = 1.3"))
                 .toString(),
             QStringLiteral("Caffe'' espresso"));
    s.Griglia_Click(2);
    b.io().rispondiSi(QStringLiteral("Attenzione, cancellare la riga selezionata?"));
    QVERIFY(s.Command15_Click());
    QCOMPARE(b.io().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QCOMPARE(s.Griglia.size(), size_t(2));
    QVERIFY(b.io().errore().isEmpty());
}

// A "no" leaves archive and fields as they were; the print has no heading between date and titles.
void TestSchermoListinoAccessori::rifiutiEStampa()
{
    Banco b;
    QVERIFY(b.t.archivio().comando(
        QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) VALUES "
                       "('Bar', 'Acqua', 1, 22), ('Bar', 'Caffe''''', 1.2, 10)")));
    SchermoListinoAccessori s(b.sessione);
    s.Form_Load();
    s.Griglia_Click(2);
    s.Griglia_Click(-1);
    QCOMPARE(s.Indice, qint64(0));
    QVERIFY(!s.Command15_Click());
    QCOMPARE(b.io().testi(), QStringList { "Attenzione, selezionare la riga da cancellare" });

    s.Griglia_Click(1);
    QCOMPARE(s.Descrizione, QStringLiteral("Caffe'"));
    s.Prezzo = QStringLiteral("1,5");
    b.io().rispondiNo(QStringLiteral("si stà aggiornando"));
    QVERIFY(!s.Ins_Click());
    QCOMPARE(s.Prezzo, QStringLiteral("1,5"));
    b.io().rispondiNo(QStringLiteral("cancellare la riga selezionata"));
    QVERIFY(!s.Command15_Click());
    QVERIFY(s.Indice > 0);
    QCOMPARE(b.t.archivio().valore(QStringLiteral("SELECT SUM(Prezzo) FROM TabellaListinoAccessori")).toDouble(), 2.2);

    const auto stampa = s.Command1_Click();
    QVERIFY(stampa);
    QCOMPARE(stampa->titolo, QStringLiteral("LISTINO ACCESSORI"));
    QCOMPARE(stampa->righe.size(), 2);
    const QStringList righe = reports::leggiStampa(b.t.archivio());
    QCOMPARE(righe.first(), QStringLiteral("Data di Stampa: 10/05/2026"));
    QVERIFY(righe.at(1).startsWith(QStringLiteral("Tipo")));
    QVERIFY(b.io().errore().isEmpty());
}

void TestSchermoListinoAccessori::dirittiUtente()
{
    Banco b;
    QVERIFY(b.t.archivio().comando(QStringLiteral(
        "INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) VALUES ('Bar', 'Acqua', 1, 22)")));
    b.sessione.permessi->amministratore = false;
    b.sessione.UtenteCollegato = QStringLiteral("Mario");
    b.sessione.permessi->Listini = true;
    b.sessione.permessi->ListiniSoloLettura = true;
    const QString negato = QStringLiteral("Attenzione, l'utente collegato non è abilitato a modificare i listini!");
    SchermoListinoAccessori s(b.sessione);
    s.Form_Load();
    s.Tipo = QStringLiteral("Bar");
    s.Descrizione = QStringLiteral("Tè");
    s.Prezzo = QStringLiteral("2");
    s.Iva = QStringLiteral("22");
    QVERIFY(!s.Ins_Click());
    s.Griglia_Click(0);
    QVERIFY(!s.Command15_Click());
    QCOMPARE(b.io().testi(), QStringList({ negato, negato }));
    b.sessione.permessi->ListiniSoloLettura = false;
    b.sessione.permessi->Listini = false;
    QVERIFY(!s.Command15_Click());
    QCOMPARE(b.t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaListinoAccessori")).toInt(), 1);
    b.sessione.permessi->Listini = true;
    s.Griglia_Click(0);
    b.io().rispondiSi(QStringLiteral("cancellare la riga selezionata"));
    QVERIFY(s.Command15_Click());
    QVERIFY(b.io().errore().isEmpty());
}

TOMVERA_TEST(TestSchermoListinoAccessori)

#include "test_schermilistino.moc"
