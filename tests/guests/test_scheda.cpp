#include "archivioospiti.h"
#include "foundation/orologio.h"
#include "guests/schedaanagrafica.h"
#include "testmain.h"

#include <QTest>

using namespace tomvera;

namespace {

struct Scheda
{
    test::ArchivioOspiti t;
    OrologioFisso orologio { QDateTime(QDate(2026, 7, 1), QTime(10, 0)) };
    SchedaAnagrafica s { t.archivio(), t.interazione(), orologio };
    test::InterazioneScriptata& i = t.interazione();
};

} // namespace

class TestSchedaAnagrafica : public QObject
{
    Q_OBJECT
private slots:
    void prossimoCodiceConCodiciNonNumerici();
    void registraNellOrdineStabilito();
    void aggiornamentoEDoppioni();
    void cancellaSoloSeNonInPrenotazioni();
    void schedaGiaEsistente();
    void completamentoComuni();
    void nascitaResidenzaEIstat();
    void controlliSuiCampi();
};

void TestSchedaAnagrafica::prossimoCodiceConCodiciNonNumerici()
{
    test::ArchivioOspiti t;
    QCOMPARE(ProssimoCodiceAnagrafica(t.archivio()), QStringLiteral("1"));
    t.ospite(QStringLiteral("Alfa"), QStringLiteral("A"), QStringLiteral("A12"));
    // "A12" counts as 0.
    QCOMPARE(ProssimoCodiceAnagrafica(t.archivio()), QStringLiteral("1"));
    t.ospite(QStringLiteral("Beta"), QStringLiteral("B"), QStringLiteral("9"));
    t.ospite(QStringLiteral("Gamma"), QStringLiteral("G"), QStringLiteral("10"));
    t.ospite(QStringLiteral("Delta"), QStringLiteral("D"), QStringLiteral("2"));
    // Numeric order, not text order: "9" < "10".
    QCOMPARE(ProssimoCodiceAnagrafica(t.archivio()), QStringLiteral("11"));
    t.ospite(QStringLiteral("Epsilon"), QStringLiteral("E"), QStringLiteral("25bis"));
    QCOMPARE(ProssimoCodiceAnagrafica(t.archivio()), QStringLiteral("26"));
}

void TestSchedaAnagrafica::registraNellOrdineStabilito()
{
    Scheda f;
    const qint64 rossi = f.t.ospite(QStringLiteral("Rossi"), QStringLiteral("Mario"), QStringLiteral("7"));
    // A duplicate code is reported before the missing names.
    f.s.dati().CodiceAnagrafica = QStringLiteral("7");
    QVERIFY(!f.s.Registra_Click());
    QCOMPARE(f.i.testi(), QStringList { QStringLiteral("Codice anagrafica già utilizzato da: Rossi Mario") });
    f.s.dati().CodiceAnagrafica.clear();
    QVERIFY(!f.s.Registra_Click());
    QCOMPARE(f.i.ultimoTesto(), QStringLiteral("Valorizzare i campi obbligatori"));
    QCOMPARE(f.s.dati().CodiceAnagrafica, QStringLiteral("8"));

    f.s.dati().Cognome = QStringLiteral("rossi");
    f.s.dati().Nome = QStringLiteral("mario");
    QVERIFY(!f.s.Registra_Click());
    QCOMPARE(f.i.ultimoTesto(), QStringLiteral("La Ragione Sociale è già utilizzata"));

    f.s.PulisciCampi();
    f.i.pulisci();
    Anagrafica& d = f.s.dati();
    d.Cognome = QStringLiteral("Bianchi");
    d.Nome = QStringLiteral("Anna");
    d.Maschio = false;
    d.DataNascita = QStringLiteral("3/4/1980");
    d.DataDocumento = QStringLiteral("non so");
    d.CodiceFiscale = QStringLiteral("bncnna80d43h501x");
    d.ResidenzaItaliana = false;
    // A date that is no date is refused, not stored empty: the text typed is not lost.
    QVERIFY(!f.s.Registra_Click());
    QCOMPARE(f.i.testi(), QStringList { QStringLiteral("La data non è corretta") });
    QCOMPARE(f.t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(), 1);
    QCOMPARE(f.s.dati().DataDocumento, QStringLiteral("non so"));
    f.i.pulisci();
    f.s.dati().DataDocumento.clear();
    QVERIFY(f.s.Registra_Click());
    QVERIFY(f.s.dati().Indice > rossi);
    QCOMPARE(
        f.i.testi(),
        QStringList({ QStringLiteral("Il codice fiscale non è corretto "), QStringLiteral("Operazione Effettuata!") }));
    const auto letta = caricaAnagrafica(f.t.archivio(), f.s.dati().Indice);
    QVERIFY(letta);
    QCOMPARE(letta->RagSociale, QStringLiteral("Bianchi Anna"));
    QCOMPARE(letta->CodiceAnagrafica, QStringLiteral("8"));
    QCOMPARE(letta->CodiceFiscale, QStringLiteral("BNCNNA80D43H501X"));
    QCOMPARE(letta->DataNascita, QStringLiteral("03/04/1980"));
    QCOMPARE(letta->DataDocumento, QString());
    QVERIFY(!letta->Maschio);
    QVERIFY(!letta->ResidenzaItaliana);
    QCOMPARE(f.t.archivio()
                 .valore(QStringLiteral("SELECT MaschioFemmina || ResidenzaEstera || ResidenzaItaliana || "
                                        "ifnull(DataDocumento, 'null') || DataNascita FROM "
                                        "TabellaAnagrafiche WHERE Indice = ?"),
                         { f.s.dati().Indice })
                 .toString(),
             QStringLiteral("Femmina10null1980-04-03"));
}

void TestSchedaAnagrafica::aggiornamentoEDoppioni()
{
    Scheda f;
    f.t.ospite(QStringLiteral("Verdi"), QStringLiteral("Giuseppe"), QStringLiteral("1"));
    const qint64 neri = f.t.ospite(QStringLiteral("Neri"), QStringLiteral("Paola"), QStringLiteral("2"));
    QVERIFY(f.s.carica(neri));
    // Renaming a card to another card's name is refused as well.
    f.s.dati().RagSociale = QStringLiteral("VERDI GIUSEPPE");
    QVERIFY(!f.s.Registra_Click());
    QCOMPARE(f.i.ultimoTesto(), QStringLiteral("La Ragione Sociale è già utilizzata"));
    f.s.dati().RagSociale = QStringLiteral("Neri Paola Srl");
    f.s.dati().Email = QStringLiteral("paola@example.it");
    f.i.rispondiNo(QStringLiteral("si stà aggiornando un Anagrafica già esistente"));
    QVERIFY(!f.s.Registra_Click());
    QCOMPARE(caricaAnagrafica(f.t.archivio(), neri)->RagSociale, QStringLiteral("Neri Paola"));
    f.i.rispondiSi(QStringLiteral("Attenzione si stà aggiornando un Anagrafica già esistente. Continuare?"));
    QVERIFY(f.s.Registra_Click());
    QCOMPARE(*caricaAnagrafica(f.t.archivio(), neri), f.s.dati());
    QCOMPARE(f.t.archivio().valore(QStringLiteral("SELECT count(*) FROM TabellaAnagrafiche")).toInt(), 2);
    QVERIFY(f.i.errore().isEmpty());
}

void TestSchedaAnagrafica::cancellaSoloSeNonInPrenotazioni()
{
    Scheda f;
    QVERIFY(!f.s.Cancella_Click());
    QCOMPARE(f.i.ultimoTesto(), QStringLiteral("Attenzione, selezionare l'anagrafica da cancellare!"));
    const qint64 ospite = f.t.ospite(QStringLiteral("Gialli"), QStringLiteral("Luca"));
    f.t.archivio().comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndiceCliente, "
                                          "DataArrivo, DataPartenza, NroCameraCliente, TipoTrattamento) VALUES "
                                          "(?, '2026-06-01', '2026-06-05', '12', 'BB')"),
                           { ospite });
    QVERIFY(f.s.carica(ospite));
    QCOMPARE(f.s.soggiorni().size(), 1);
    QCOMPARE(f.s.soggiorni().first().dataArrivo, QStringLiteral("01/06/2026"));
    QVERIFY(f.s.prenotazioniSpiaggia().isEmpty());
    QVERIFY(!f.s.Cancella_Click());
    QCOMPARE(f.i.ultimoTesto(),
             QStringLiteral("Attenzione il cliente è presente in una o più prenotazioni, impossibile cancellarlo!"));

    // A card used only in documents can go.
    const qint64 cliente = f.t.ospite(QStringLiteral("Blu"), QStringLiteral("Srl"));
    QVERIFY(f.s.carica(cliente));
    f.i.rispondiSi(QStringLiteral("Sicuri di cancellare l'anagrafica selezionata?"));
    QVERIFY(f.s.Cancella_Click());
    QCOMPARE(f.i.ultimoTesto(), QStringLiteral("Operazione Effettuata!"));
    QCOMPARE(f.s.dati(), Anagrafica());
    QVERIFY(!caricaAnagrafica(f.t.archivio(), cliente));
    QVERIFY(caricaAnagrafica(f.t.archivio(), ospite));
}

void TestSchedaAnagrafica::schedaGiaEsistente()
{
    Scheda f;
    const qint64 dallo = f.t.ospite(QStringLiteral("D'Angelo"), QStringLiteral("Rita"));
    for (const char* c : { "Dante", "Dallo", "Zeta" })
        f.t.ospite(QString::fromUtf8(c), QStringLiteral("X"));
    const auto proposte = f.s.proposteNome(SchedaAnagrafica::CampoNome::Cognome, QStringLiteral("d'a"));
    // At and after the text: the apostrophe sorts before the letters.
    QCOMPARE(proposte.size(), 4);
    QCOMPARE(proposte.first().testo, QStringLiteral("D'Angelo Rita"));
    QCOMPARE(proposte.first().indice, dallo);
    QCOMPARE(f.s.proposteNome(SchedaAnagrafica::CampoNome::RagSociale, QStringLiteral("zz")).size(), 0);

    f.s.dati().Cognome = QStringLiteral("d'angelo");
    f.s.dati().Nome = QStringLiteral("RITA");
    f.i.rispondiNo(QStringLiteral("Attenzione la scheda cliente già esiste, caricarla?"));
    QVERIFY(!f.s.ControllaEsistenzaAnagrafica());
    QVERIFY(f.s.nuova());
    f.i.rispondiSi(QStringLiteral("Attenzione la scheda cliente già esiste, caricarla?"));
    QVERIFY(f.s.ControllaEsistenzaAnagrafica());
    QCOMPARE(f.s.dati().Indice, dallo);
    // A loaded card is not asked about.
    QVERIFY(!f.s.ControllaEsistenzaAnagrafica());
    QVERIFY(f.i.errore().isEmpty());
}

void TestSchedaAnagrafica::completamentoComuni()
{
    Scheda f;
    f.t.comune(QStringLiteral("1"), QStringLiteral("Padova"), QStringLiteral("PD"), QStringLiteral("35100"));
    f.t.comune(QStringLiteral("2"), QStringLiteral("Abano Terme"), QStringLiteral("PD"), QStringLiteral("35031"));
    f.t.comune(QStringLiteral("3"), QStringLiteral("Montegrotto Terme"), QStringLiteral("PD"), QStringLiteral("35036"));
    f.t.comune(QStringLiteral("4"), QStringLiteral("Torreglia"), QStringLiteral("PD"), QStringLiteral("35038"));
    f.t.comune(QStringLiteral("5"), QStringLiteral("Teolo"), QStringLiteral("PD"), QStringLiteral("35037"));
    f.t.comune(QStringLiteral("6"), QStringLiteral("Teolo Vecchio (Val. fino al 01/01/1950)"), QStringLiteral("PD"),
               QStringLiteral("35037"));
    f.t.comune(QStringLiteral("7"), QStringLiteral("Reggio nell'Emilia"), QStringLiteral("RE"));

    QVERIFY(f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Cap, QStringLiteral("35031")).isEmpty());
    QCOMPARE(f.s.dati().Comune, QStringLiteral("Abano Terme"));
    QCOMPARE(f.s.dati().Provincia, QStringLiteral("PD"));
    // A ceased municipality is no residence.
    QVERIFY(f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Cap, QStringLiteral("35037")).isEmpty());
    QCOMPARE(f.s.dati().Comune, QStringLiteral("Teolo"));

    const auto provincia = f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Provincia, QStringLiteral("pd"));
    QCOMPARE(provincia.size(), 5);
    QCOMPARE(provincia.first().comune, QStringLiteral("Abano Terme"));
    f.s.COMUNE_ConfermaSelezionato(provincia.at(1));
    QCOMPARE(f.s.dati().Cap, QStringLiteral("35036"));

    // The whole name fills; a beginning lists; the official rows without postal code keep the one typed.
    f.s.dati().Cap = QStringLiteral("42121");
    QVERIFY(f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Citta, QStringLiteral("reggio nell'emilia")).isEmpty());
    QCOMPARE(f.s.dati().Provincia, QStringLiteral("RE"));
    QCOMPARE(f.s.dati().Cap, QStringLiteral("42121"));
    QCOMPARE(f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Citta, QStringLiteral("T")).size(), 2);
    QVERIFY(f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Cap, QStringLiteral("99999")).isEmpty());
    QVERIFY(f.s.COMUNE_Ricerca(SchedaAnagrafica::CampoComune::Citta, QString()).isEmpty());

    // Birth places include the ceased ones.
    const auto luoghi = f.s.proposteLuogo(QStringLiteral("Teolo"));
    QCOMPARE(luoghi.size(), 3);
    f.s.LuogoNascita_Conferma(luoghi.at(1));
    QCOMPARE(f.s.dati().LuogoNascita, QStringLiteral("Teolo Vecchio (Val. fino al 01/01/1950)"));
    QCOMPARE(f.s.dati().ProvinciaDiNascita, QStringLiteral("PD"));
    QCOMPARE(f.s.dati().StatoDiNascita, QStringLiteral("ITALIA"));
}

void TestSchedaAnagrafica::nascitaResidenzaEIstat()
{
    Scheda f;
    Anagrafica& d = f.s.dati();
    QCOMPARE(f.s.etichettaIstat(), QStringLiteral("PROVINCIA"));
    QCOMPARE(f.s.sceltaIstat().size(), 110);
    d.Provincia = QStringLiteral("fc");
    f.s.ProponiIstat_Click();
    QCOMPARE(d.ResidenzaIstat, QStringLiteral("Forlì-Cesena"));
    f.s.ResidenzaEstera_Click();
    QCOMPARE(f.s.etichettaIstat(), QStringLiteral("PAESE"));
    QCOMPARE(d.ResidenzaIstat, QString());
    QCOMPARE(f.s.sceltaIstat().size(), 57);
    d.Nazione = QStringLiteral("STATI UNITI D'AMERICA");
    f.s.ProponiIstat_Click();
    QCOMPARE(d.ResidenzaIstat, QStringLiteral("Stati Uniti d'America"));

    d.ProvinciaDiNascita = QStringLiteral("PD");
    f.s.NascitaEstero_Click();
    QVERIFY(!d.NascitaItalia);
    QCOMPARE(d.ProvinciaDiNascita, QString());
    f.s.NascitaItalia_Click();
    QCOMPARE(d.StatoDiNascita, QStringLiteral("ITALIA"));
}

void TestSchedaAnagrafica::controlliSuiCampi()
{
    Scheda f;
    Anagrafica& d = f.s.dati();
    d.CodiceFiscale = QStringLiteral("rssmra85t10a562");
    f.s.CodiceFiscale_KeyUp();
    QVERIFY(f.i.testi().isEmpty()); // not yet 16 characters
    d.CodiceFiscale += QLatin1Char('s');
    f.s.CodiceFiscale_KeyUp();
    QCOMPARE(d.CodiceFiscale, QStringLiteral("RSSMRA85T10A562S"));
    QVERIFY(f.i.testi().isEmpty());
    d.Piva = QStringLiteral("12345678901");
    f.s.Piva_LostFocus();
    QCOMPARE(f.i.ultimoTesto(), QStringLiteral("Controllare Partita Iva"));

    f.i.pulisci();
    d.TipoDocumento = QStringLiteral("PATENTE DI GUIDA");
    d.DataNascita = QStringLiteral("01/01/1950");
    d.DataDocumento = QStringLiteral("02/07/2022"); // holder aged 72: three years
    f.s.DataDocumento_LostFocus();
    QCOMPARE(f.i.testi(), QStringList { QStringLiteral("Attenzione documento non più valido") });
    f.i.pulisci();
    d.DataNascita = QStringLiteral("01/01/1990");
    f.s.DataDocumento_LostFocus();
    QVERIFY(f.i.testi().isEmpty());

    d.Web = QStringLiteral("www.hotel.it");
    d.Email = QStringLiteral(" info@hotel.it ");
    QCOMPARE(f.s.OpenUrl_Click(false), QStringLiteral("http://www.hotel.it"));
    QCOMPARE(f.s.OpenUrl_Click(true), QStringLiteral("mailto:info@hotel.it"));
}

TOMVERA_TEST(TestSchedaAnagrafica)

#include "test_scheda.moc"
