#pragma once

#include "guests/schedaanagrafica.h"
#include "reports/modellostampa.h"
#include "reservations/prenotazione.h"
#include "rooms/tabelloneregole.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace tomvera {

class Archivio;
class Interazione;
struct Sessione;

// The extras entry line: the fields above RigheArt.
struct InserimentoAccessorio
{
    QString Data, Tipo, Descrizione, Qta, PrezzoUnitario, Prezzo, Iva, NroCamera;
    qint64 IndiceAccessorio = 0;
    int IndiceRiga = 0; // position of a line taken back for correction, 0 otherwise
};

// Which commands the logged-in user may use on this screen.
struct AbilitazioniPrenotazione
{
    bool Registra = true, Cancella = true, Command4 = true, Command10 = true, Command6 = true;
    bool Command2 = true; // documents
    bool Command11 = true; // the board
};

// One row of the work table Stampa2 as the reservation print fills it: Des1..Des9 and the bold flag.
struct RigaStampa2
{
    QStringList Des; // up to nine texts
    bool Grassetto = false;
    bool operator==(const RigaStampa2& altra) const { return Des == altra.Des && Grassetto == altra.Grassetto; }
};

// F_Prenotazione, "Scheda di Prenotazione": a whole reservation held as values (header fields as typed, the
// room list, the extras, the guests) and written by Registra_Click in one transaction.
class SchedaPrenotazione
{
public:
    SchedaPrenotazione(Sessione& sessione, Archivio& archivio);

    // Opening: rooms from the board (CamereDaPrenotare) and/or a stored reservation (IndicePrenotazioneDaAprire).
    void Form_Load(qint64 IndicePrenotazioneDaAprire = 0, const QList<CameraSelezionata>& CamereDaPrenotare = {});
    // Run by the screen on activation: the totals of a saved reservation from the archive.
    void Form_Activate();

    // Header as typed.
    qint64 Indice = 0;
    QString NumeroPrenotazione, DataPrenotazione, NotePrenotazione;
    QString ListinoCamere, ListinoTrattamenti;
    QString Stato, Abbuono = QStringLiteral("0,00");
    QString RiferimentoDoc, RiferimentoData, RiferimentoNumero;
    QString CodiceTourOperator, TourOperator, CodiceAzienda;
    bool Saldato = false, PrezziACamera = true, PrezziAPersona = false, PrenotazioneChiusa = false;
    // Totals as shown.
    QString TotaleAcconto = QStringLiteral("0,00"), Totale = QStringLiteral("0,00");
    double TotaleCamerePrenotate() const;
    double TotalePrezzoTrattamento() const;

    // Set by the callers that save without any dialogue (merging of reservations, tour operators).
    bool SalvataggioSilenzioso = false;
    // Set by save and delete: the board reloads on its next activation.
    bool AggiornaPlanning = false;
    bool modificato() const { return m_modificato; }
    void segnaModificato() { m_modificato = true; }
    bool salvato() const { return m_salvato; }
    bool nuova() const { return Indice == 0; }

    // Room list and its entry line.
    QList<RigaCamera> GrigliaCamerePrenotate;
    QString NC, CodiceTipologia, Arrivo, Partenza, PrezzoCamera, IvaCamera;
    int IndiceRigaCamere = 0;
    void Command7_Click();
    void GrigliaCamerePrenotate_DblClick(int riga); // 0-based
    void GrigliaCamerePrenotate_Escape();
    // Leaving NC, the type, Arrivo or Partenza in the per-room mode.
    void TrovaPrezzoCamera();
    void NC_LostFocus(); // also fills the type from the room
    void CodiceTipologia_Click(const QString& tipo); // the type chosen: the list's price follows it
    void PrezzoCamera_Change(); // a price typed by hand is never overwritten by the list
    QString Label10; // the warning of an incomplete price list, empty when hidden
    void AggiornaPrezzi_Click();
    void ListinoCamere_Click(const QString& listino);
    void PrezziACamera_Click();
    void PrezziAPersona_Click();
    void ListinoTrattamenti_Click(const QString& listino);

    // Commands of the header.
    bool Registra_Click();
    bool Cancella_Click(); // true: the screen closes
    // True: the screen may close. With changes it asks "Salvare le modifiche apportate?": Sì saves (and the
    // screen stays open when the save did not go through), No drops them, Annulla stays.
    bool Fine_Click();
    // The user may save and delete: false (after the message) for a user without the reservations right or with
    // the read-only one.
    bool ControllaPermessoModifica();
    void Avanti_Click();
    void Indietro_Click();
    void PrenotazioneChiusa_Click(bool spuntata);
    void Saldato_Click(bool spuntato)
    {
        Saldato = spuntato;
        m_modificato = true;
    }
    // False (after the message) on a reservation not yet saved: the deposits need its Indice.
    bool Command6_Click();
    AbilitazioniPrenotazione SettaPermessiUtente() const;

    // Choosers: read when the list is opened, not at every opening of a reservation (some scan the whole
    // archive).
    QStringList CaricaStato();
    QStringList sceltaListiniCamere();
    QStringList sceltaListiniTrattamenti();
    QStringList sceltaTipologie();
    QStringList sceltaTourOperator();
    // A tour operator chosen by name: its code comes along.
    void TourOperator_Click(const QString& ragioneSociale);
    QStringList sceltaCamere(); // CaricaComboCamereAssociate: the rooms of the list

    // Guests (the tab "DATI CLIENTI").
    QList<OspitePrenotazione> GrigliaAnagrafiche;
    OspitePrenotazione Cliente; // the entry line, by field name (Comune is the field "Citta")
    bool Maschio = true, Femmina = false, NonModificareDatiCliente = false;
    int RigaClienteSelezionato = 0; // 1-based, 0: new
    QString NumeroPersone = QStringLiteral("N° Persone: 0");
    bool InserisciUltimiDatiInseritiVisibile = false;
    void Command4_Click();
    void Command10_Click();
    void Command1_Click(); // PulisciCampiCliente
    void Command13_Click();
    void CancellaNroArrivo_Click();
    int CalcolaNroArrivo();
    // A hit means the number is taken this year: the field shows the warning colour, nothing is refused.
    bool ControllaEsistenzaNroArrivo();
    void Arrivato_MouseUp(bool spuntato);
    void CalcolaTrattamento();
    void TipoTrattamento_Click(const QString& tipo);
    void TipoDiAlloggiato_Click(const QString& tipo);
    void SelezioneNormaleCliente(int riga); // 0-based
    void NroCameraCliente_Click(const QString& camera);
    void InserisciUltimiDatiInseriti_Click();
    void NonModificareDatiCliente_Click(bool spuntato); // remembered for the next opening
    // Leaving a date of the line: 6 or 8 digits get their slashes, text that is no date is reported.
    void DataCliente_LostFocus(const QString& campo);
    // Italy/abroad of birth, document and residence, as on the guest card.
    void NascitaItalia_Click();
    void NascitaEstero_Click();
    void DocumentoItalia_Click();
    void DocumentoEstero_Click();
    void ResidenzaItaliana_Click();
    void ResidenzaEstera_Click();
    QString etichettaIstat() const; // "PROVINCIA" or "PAESE"
    QStringList sceltaIstat() const;
    void ProponiIstat_Click();
    // The guest card's completions: residence by postal code, town or province (one hit fills the line and
    // returns empty), birth and document place, states, document words.
    QList<ComuneProposto> COMUNE_Ricerca(SchedaAnagrafica::CampoComune campo, const QString& testo);
    void COMUNE_ConfermaSelezionato(const ComuneProposto& scelto);
    QList<ComuneProposto> proposteLuogo(const QString& testo);
    void LuogoNascita_Conferma(const ComuneProposto& scelto);
    void LuogoDocumento_Conferma(const ComuneProposto& scelto);
    QStringList proposteStati(const QString& testo);
    QStringList proposteDocumenti(const QString& testo);
    // A state of birth chosen: the citizenship still at its default follows it.
    void StatoDiNascita_Conferma(const QString& stato);
    // Loads a card of the registry into the entry line.
    bool CaricaDatiCliente(qint64 indiceCliente);
    // On leaving the name fields of a guest not taken from the registry: offers to load the card of the same name.
    // True when loaded.
    bool ControllaEsistenzaAnagrafica();
    // Look-ahead on the name fields, as on the guest card: up to 99 cards at and after the text.
    struct PropostaCliente
    {
        QString testo;
        qint64 indice = 0;
    };
    QList<PropostaCliente> proposteCliente(const QString& campo, const QString& testo);
    QStringList capiDisponibili() const; // CaricaCapoGruppoFamiglia for the entry line's type

    // Extras and totals.
    const QList<RigaAccessorio>& accessori() const { return m_accessori; }
    QString TipoSel; // narrows the list shown, never the list saved
    QList<int> RigheArt() const; // positions in accessori() of the rows shown
    InserimentoAccessorio Accessorio;
    void Ins_Click();
    void Qta_Change(); // also on a change of PrezzoUnitario: Prezzo is their product
    void RigheArt_DblClick(int riga); // row of RigheArt()
    void RigheArt_Escape();
    void CalcolaTotale_Click();
    void calcolatotali();
    void Abbuono_Change(const QString& testo);
    QStringList sceltaTipoAccessorio();
    QStringList sceltaTipoSel();
    struct VoceListino
    {
        qint64 indice = 0;
        QString descrizione;
    };
    QList<VoceListino> proposteDescrizione(const QString& testo);
    void Descrizione_Click(qint64 indiceAccessorio);
    // Leaving the description: a text that names an item of the list (typed whole or completed) takes its price
    // and VAT as a click on the item would.
    void Descrizione_LostFocus();

    // Printing ("Stampa"): Stampa2 is filled from what the screen holds, then read back into the print.
    bool StampaNote = false; // the notes go on the print too; remembered
    void StampaNote_Click(bool spuntato);
    QList<RigaStampa2> righeStampa(bool prezziAPersona) const;
    bool PreparaStampa();
    bool PreparaStampaPrezziAPersona();
    std::optional<reports::ModelloStampa> Anteprima_Click();

    // Text typed where a number belongs is refused with a message, never read as 0. Empty passes.
    bool ControllaNumero(const QString& testo, const QString& campo);
    // Leaving a date field: 6 or 8 digits get their slashes, text that is no date is reported.
    void Data_LostFocus(QString& testo);

    Interazione& interazione();
    Sessione& sessione() { return m_sessione; }
    bool multiAzienda() const;
    // The tax word of the settings ("Iva", or "Imp"/"Imposta" with UsaImposta): short for titles, long for
    // messages.
    QString EtichettaImposta() const;
    QString EtichettaImpostaLunga() const;

private:
    void PulisciCampi();
    void AggiornaPrenotazione_Click();
    void CaricaPrenotazione();
    bool ControllaEsistenzaNumeroPrenotazione();
    bool ControllaCampi();
    bool TrovataIntersezione();
    void rinumeraCamere();
    void dopoInserimentoCamera();
    void AggiornaPrezziCamere();
    void spostaOspitiCamera(const RigaCamera& prima, const RigaCamera& dopo);
    void ricalcolaTrattamento(OspitePrenotazione& ospite) const;
    bool riempiStampa2(const QList<RigaStampa2>& righe);
    void SettaListinoPrezzi();
    void leggiVariabili();
    void vaiA(const QString& sql, const QVariantList& parametri);
    bool AggiungiCliente();
    bool controllaTestiCliente();
    void proponiProssimoOspite(const OspitePrenotazione& inserito);
    void CalcolaTotalePrezzoTrattamentoGrigliaAnagrafiche();
    void PulisciCampiAccessori();
    void applicaCheckInSky(QList<RigaCamera>& camere);
    QString codiceTipoAlloggiato(const QString& tipo);
    double valoreIvaPrenotazioni() const;

    Sessione& m_sessione;
    Archivio& m_archivio;
    ArchivioPrenotazioni m_prenotazioni;
    QList<RigaAccessorio> m_accessori;
    OspitePrenotazione m_ultimoIndirizzo;
    QString m_tipoTrattamentoRicordato, m_tipoAlloggiatoRicordato;
    bool m_modificato = false;
    bool m_salvato = false;
    std::optional<RigaCamera> m_rigaRipresa; // the room row taken back into the entry line, as it was
    bool m_prezzoDaListino = false; // the entry line's price came from the list, not from the keyboard
};

} // namespace tomvera
