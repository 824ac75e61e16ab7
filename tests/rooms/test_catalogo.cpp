#include "altroutente.h"
#include "bancotabellone.h"
#include "rooms/catalogo.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

class TestTipologieCamere : public QObject
{
    Q_OBJECT
private slots:
    void validazioneInOrdine();
    void coloreUnicoEAggiornamento();
    void cancellazioneProtetta();
};

void TestTipologieCamere::validazioneInOrdine()
{
    test::BancoTabellone b;
    F_TipologiaCamere f(b.sessione);
    f.Form_Load();
    const QStringList attesi = {
        QStringLiteral("Attenzione, inserire il n° di persone!"),
        QStringLiteral("Attenzione, inserire un codice tipologia!"),
        QStringLiteral("Attenzione, inserire un nome!"),
        QStringLiteral("Attenzione, associare un colore alla tipologia!"),
    };
    QVERIFY(!f.Registra_Click());
    f.NroPersone = QStringLiteral("2");
    QVERIFY(!f.Registra_Click());
    f.CodiceTipologia = QStringLiteral("DOP");
    QVERIFY(!f.Registra_Click());
    f.NomeTipologia = QStringLiteral("Doppia");
    QVERIFY(!f.Registra_Click());
    QCOMPARE(b.interazione().testi(), attesi);
    f.Colore = coloreDaRgb(10, 200, 10);
    QVERIFY(f.Registra_Click());
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QCOMPARE(f.Griglia.size(), 1);
    QCOMPARE(f.Griglia.first().NomeTipologia, QStringLiteral("Doppia"));
    QCOMPARE(f.CodiceTipologia, QString()); // fields cleared for the next one
}

void TestTipologieCamere::coloreUnicoEAggiornamento()
{
    test::BancoTabellone b;
    QVERIFY(b.tipologia(QStringLiteral("SIN"), 1, 100, QStringLiteral("Singola")));
    QVERIFY(b.tipologia(QStringLiteral("DOP"), 2, 200, QStringLiteral("Doppia")));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, QStringLiteral("DOP")));
    F_TipologiaCamere f(b.sessione);
    f.Form_Load();
    QCOMPARE(f.Griglia.at(0).CodiceTipologia, QStringLiteral("DOP")); // by name
    f.CodiceTipologia = QStringLiteral("TRI");
    f.NroPersone = QStringLiteral("3");
    f.NomeTipologia = QStringLiteral("Tripla");
    f.Colore = 100;
    QVERIFY(!f.Registra_Click());
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("Il colore selezionato è già stato usato per una tipologia!"));
    f.Colore = 300;
    f.CodiceTipologia = QStringLiteral("sin");
    QVERIFY(!f.Registra_Click());
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Attenzione, il codice tipologia è già stato usato!"));

    // Editing a type keeps its own colour and, renamed, takes its rooms along.
    f.Griglia_DblClick(0);
    f.CodiceTipologia = QStringLiteral("DBL");
    b.interazione().rispondiSi(QStringLiteral("tipologia già esistente"));
    QVERIFY(f.Registra_Click());
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaStrutturaCamere")).toString(),
             QStringLiteral("DBL"));
    f.Griglia_DblClick(0);
    b.interazione().rispondiNo();
    QVERIFY(!f.Registra_Click());
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestTipologieCamere::cancellazioneProtetta()
{
    test::BancoTabellone b;
    QVERIFY(b.tipologia(QStringLiteral("DOP"), 2, 200, QStringLiteral("Doppia")));
    QVERIFY(b.tipologia(QStringLiteral("SIN"), 1, 100, QStringLiteral("Singola")));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, QStringLiteral("DOP")));
    F_TipologiaCamere f(b.sessione);
    f.Form_Load();
    QVERIFY(!f.Command15_Click());
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("Attenzione, selezionare la tipologia di camera da cancellare"));
    f.Griglia_DblClick(0);
    QVERIFY(!f.Command15_Click());
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("Attenzione, impossibile cancellare la camera in quanto è presente nella configurazione"));
    f.Griglia_DblClick(1);
    b.interazione().rispondiSi(QStringLiteral("cancellare la tipologia di camera selezionata?"));
    QVERIFY(f.Command15_Click());
    QCOMPARE(f.Griglia.size(), 1);
    QCOMPARE(b.interazione().ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
}

TOMVERA_TEST(TestTipologieCamere)

class TestConfiguraGriglia : public QObject
{
    Q_OBJECT
private slots:
    void registraPianoENumeriRipetuti();
    void camereFuoriGriglia();
    void cancellazioneTotale();
    void tipologieEAziende();
};

namespace {

QStringList camere(Archivio& a, int piano)
{
    QStringList elenco;
    for (const QSqlRecord& r : a.righe(QStringLiteral("SELECT NroCamera, X, Y, CodiceTipologia FROM"
                                                      " TabellaStrutturaCamere WHERE NroPiano = ? ORDER BY Y, X"),
                                       { piano }))
        elenco.append(QStringLiteral("%1@%2,%3:%4")
                          .arg(r.value(0).toString())
                          .arg(r.value(1).toInt())
                          .arg(r.value(2).toInt())
                          .arg(r.value(3).toString()));
    return elenco;
}

} // namespace

void TestConfiguraGriglia::registraPianoENumeriRipetuti()
{
    test::BancoTabellone b(2, 3);
    QVERIFY(b.camera(QStringLiteral("201"), 2, 0, 0));
    F_ConfiguraGriglia f(b.sessione);
    f.NroPiano = 1;
    f.Form_Load();
    f.impostaTestoCella(0, 0, QStringLiteral("101"));
    f.impostaTestoCella(0, 2, QStringLiteral(" 101 "));
    f.impostaTestoCella(1, 1, QStringLiteral("201"));
    f.impostaTestoCella(1, 2, QStringLiteral("102"));
    QVERIFY(f.modificata());
    b.interazione().rispondiNo(QStringLiteral("Salvare la configurazione delle Camere?"));
    QVERIFY(!f.Registra_Click());
    QVERIFY(camere(b.archivio(), 1).isEmpty());

    b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
    QVERIFY(f.Registra_Click());
    QCOMPARE(b.interazione().testi().mid(2),
             (QStringList { QStringLiteral("La Camera N° 101 è ripetuta in più di un posto!"),
                            QStringLiteral("La Camera N° 201 è ripetuta in più di un posto!"),
                            QStringLiteral("Operazione Effettuata!") }));
    QCOMPARE(camere(b.archivio(), 1), (QStringList { QStringLiteral("101@0,0:"), QStringLiteral("102@2,1:") }));
    QVERIFY(!f.modificata());
    QCOMPARE(f.cella(0, 2).NroCamera, QString()); // the refused cell is gone after the reload

    // Saving again rewrites the floor instead of adding to it.
    f.impostaTestoCella(0, 0, QString());
    b.interazione().rispondiSi();
    QVERIFY(f.Registra_Click());
    QCOMPARE(camere(b.archivio(), 1), (QStringList { QStringLiteral("102@2,1:") }));
}

void TestConfiguraGriglia::camereFuoriGriglia()
{
    test::BancoTabellone b(3, 3);
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(b.camera(QStringLiteral("109"), 1, 2, 2));
    F_ConfiguraGriglia f(b.sessione);
    f.NroPiano = 1;
    f.Form_Load();
    QVERIFY(f.Command22_Click(QStringLiteral("2"), QStringLiteral("2")));
    QCOMPARE(b.interazione().ultimoTesto(),
             QStringLiteral("C'E' LA CamerA 109 CONFIGURATA CHE NON E' POSSIBILE VISUALIZZARE"));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT Righe || 'x' || Colonne FROM Configurazioni")).toString(),
             QStringLiteral("2x2"));
    QCOMPARE(b.sessione.configurazione->Righe, 2);
    // Saving the visible part never drops the room outside it.
    b.interazione().rispondiSi();
    QVERIFY(f.Registra_Click());
    QCOMPARE(camere(b.archivio(), 1), (QStringList { QStringLiteral("101@0,0:"), QStringLiteral("109@2,2:") }));
    QVERIFY(!f.Command22_Click(QStringLiteral("0"), QStringLiteral("3")));
    QVERIFY(!f.Command22_Click(QStringLiteral("tre"), QStringLiteral("3")));
    QCOMPARE(f.Righe(), 2);
}

void TestConfiguraGriglia::cancellazioneTotale()
{
    test::BancoTabellone b;
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    QVERIFY(b.camera(QStringLiteral("201"), 2, 0, 0));
    F_ConfiguraGriglia f(b.sessione);
    f.Form_Load();
    const auto contaCamere
        = [&] { return b.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaStrutturaCamere")).toInt(); };
    b.interazione().rispondiAnnulla(QStringLiteral("CANCELLERA' COMPLETAMENTE LA STRUTTURA"));
    QVERIFY(!f.Command15_Click());
    b.interazione().rispondiOk();
    b.interazione().rispondiInput(QStringLiteral("Confermo"),
                                  QStringLiteral("PER EFFETTUARE L'OPERAZIONE DI"
                                                 " CANCELLAZIONE: confermo"));
    QVERIFY(!f.Command15_Click());
    b.interazione().rispondiOk();
    b.interazione().annullaInput();
    QVERIFY(!f.Command15_Click());
    QCOMPARE(contaCamere(), 2);
    b.interazione().rispondiOk();
    b.interazione().rispondiInput(QStringLiteral("confermo"));
    QVERIFY(f.Command15_Click());
    QCOMPARE(contaCamere(), 0);
    QVERIFY(b.interazione().errore().isEmpty());
}

void TestConfiguraGriglia::tipologieEAziende()
{
    test::BancoTabellone b(1, 3);
    b.sessione.configurazione->MultiAzienda = true;
    QVERIFY(b.tipologia(QStringLiteral("DOP"), 2, 200, QStringLiteral("Doppia")));
    F_ConfiguraGriglia f(b.sessione);
    f.NroPiano = 1;
    f.Form_Load();
    QCOMPARE(f.NomeTipologiaSelezionata, QStringLiteral("Nessuna tipologia selezionata"));
    f.Cella_Click(0, 0); // no type chosen: nothing
    QCOMPARE(f.cella(0, 0).CodiceTipologia, QString());
    f.GrigliaTipologie_Click(0);
    QCOMPARE(f.NomeTipologiaSelezionata, QStringLiteral("Doppia"));
    f.Cella_Click(0, 0);
    f.Cella_Click(0, 1);
    f.Command1_Click(0, 1);
    f.impostaTestoCella(0, 0, QStringLiteral("HOT»101"));
    QCOMPARE(testoCella(f.cella(0, 0), true), QStringLiteral("HOT»101"));
    f.AnnullaSelezione_Click();
    QVERIFY(!f.ColoreTipologiaSelezionata);
    b.interazione().rispondiSi();
    QVERIFY(f.Registra_Click());
    const auto r = b.archivio().riga(
        QStringLiteral("SELECT NroCamera, CodiceAzienda, CodiceTipologia FROM TabellaStrutturaCamere"));
    QVERIFY(r);
    QCOMPARE(r->value(0).toString(), QStringLiteral("101"));
    QCOMPARE(r->value(1).toString(), QStringLiteral("HOT"));
    QCOMPARE(r->value(2).toString(), QStringLiteral("DOP"));
    // Changing floor with unsaved edits offers the save first.
    f.impostaTestoCella(0, 2, QStringLiteral("103"));
    b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
    f.PianoPiu_Click();
    QCOMPARE(f.NroPiano, 2);
    QCOMPARE(b.archivio()
                 .valore(QStringLiteral("SELECT NroPiano FROM TabellaStrutturaCamere WHERE NroCamera = '103'"))
                 .toInt(),
             1);
    // A save that was wanted but refused keeps the floor and the edits on screen.
    const QString lungo(60, QLatin1Char('9'));
    f.impostaTestoCella(0, 1, lungo);
    b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
    f.PianoMeno_Click();
    QCOMPARE(f.NroPiano, 2);
    QCOMPARE(f.cella(0, 1).NroCamera, lungo);
    QVERIFY(b.interazione().messaggi().last().contains(QStringLiteral("supera i 50 caratteri")));
}

TOMVERA_TEST(TestConfiguraGriglia)

// Another desk is saving: each save here must land whole later or not at all, and say why it didn't.
class TestCatalogoArchivioOccupato : public QObject
{
    Q_OBJECT
private slots:
    void tipologia();
    void piano();
};

void TestCatalogoArchivioOccupato::tipologia()
{
    test::BancoTabellone b;
    QVERIFY(b.tipologia(QStringLiteral("SIN"), 1, 100, QStringLiteral("Singola")));
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0, QStringLiteral("SIN")));
    b.sessione.errori.setPausa([](double) {});
    F_TipologiaCamere f(b.sessione);
    f.Form_Load();
    f.Griglia_DblClick(0);
    f.CodiceTipologia = QStringLiteral("SGL"); // a renamed code moves its rooms along: two tables
    b.interazione().rispondiSi(QStringLiteral("aggiornando una tipologia"));
    {
        test::AltroUtente altro(b.archivio().percorso());
        test::InterazioneCheRilascia utente(altro);
        b.sessione.errori.setInterazione(&utente);
        QVERIFY(!f.Registra_Click());
        QCOMPARE(utente.messaggi(), QStringList { GestioneErrori::testoArchivioOccupato() });
        b.sessione.errori.setInterazione(&b.interazione());
    }
    QVERIFY(!b.interazione().testi().contains(QStringLiteral("Operazione Effettuata!")));
    QCOMPARE(b.archivio().valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaTipologieCamere")).toString(),
             QStringLiteral("SIN"));
    QCOMPARE(camere(b.archivio(), 1), QStringList { QStringLiteral("101@0,0:SIN") });
    // What the user typed is still there for the next try.
    QCOMPARE(f.CodiceTipologia, QStringLiteral("SGL"));
    b.interazione().rispondiSi(QStringLiteral("aggiornando una tipologia"));
    QVERIFY(f.Registra_Click());
    QCOMPARE(camere(b.archivio(), 1), QStringList { QStringLiteral("101@0,0:SGL") });
}

void TestCatalogoArchivioOccupato::piano()
{
    test::BancoTabellone b(2, 3);
    QVERIFY(b.camera(QStringLiteral("101"), 1, 0, 0));
    b.sessione.errori.setPausa([](double) {});
    F_ConfiguraGriglia f(b.sessione);
    f.NroPiano = 1;
    f.Form_Load();
    f.impostaTestoCella(0, 0, QString());
    f.impostaTestoCella(0, 1, QStringLiteral("102"));
    f.impostaTestoCella(1, 2, QStringLiteral("103"));
    b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
    {
        test::AltroUtente altro(b.archivio().percorso());
        test::InterazioneCheRilascia utente(altro);
        b.sessione.errori.setInterazione(&utente);
        QVERIFY(!f.Registra_Click());
        QCOMPARE(utente.messaggi(), QStringList { GestioneErrori::testoArchivioOccupato() });
        b.sessione.errori.setInterazione(&b.interazione());
    }
    QCOMPARE(camere(b.archivio(), 1), QStringList { QStringLiteral("101@0,0:") });
    QVERIFY(f.modificata());
    b.interazione().rispondiSi(QStringLiteral("Salvare la configurazione delle Camere?"));
    QVERIFY(f.Registra_Click());
    QCOMPARE(camere(b.archivio(), 1), (QStringList { QStringLiteral("102@1,0:"), QStringLiteral("103@2,1:") }));
}

TOMVERA_TEST(TestCatalogoArchivioOccupato)

#include "test_catalogo.moc"
