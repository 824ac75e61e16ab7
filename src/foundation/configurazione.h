#pragma once

#include <QString>
#include <QStringList>
#include <QTime>
#include <array>
#include <optional>
#include <variant>
#include <vector>

class QSqlRecord;

namespace tomvera {

class Archivio;
struct Sessione;

// The settings of the single row of Configurazioni, as copied into the run by CaricaConfigurazione,
// with the defaults of a fresh archive, plus the run-time values derived from them.
// The administrator's password and the logo are not here: they are read where they are needed.
struct Configurazione
{
    bool AbilitaDiagnosticaErrori = false;
    bool MultiAzienda = false;

    // Hotel identity and documents.
    QString RagSociale, Indirizzo, Cap, Comune, Provincia, Piva, CodFis, Tel, Fax;
    bool VisualizzaIntestazione = false;
    bool VisualizzaLogo = false;
    bool NascondiIntestazioneInStampaDocumenti = false;
    bool NascondiLogoInStampaDocumenti = false;
    bool NascondiRuvo = false;
    bool NascondiDataEdOraDiStampa = false;
    QString MessaggioFineDoc;
    bool MostraMessaggioFineDoc = false;
    QString MessaggioModuloArrivo;
    bool MostraMessaggioModuloArrivo = false;
    bool NascondiFirmeSchedaDiNotifica = false;
    bool NascondiFirmeSchedaDiNotificaDichiarante = false;
    bool StampaModuloArrivoInDupliceCopia = false;
    QString Banca, Cab, Abi, Cin, CC, Iban, Agenzia;
    QString NomePersonalizzazione;
    bool UsaImposta = false;
    std::array<double, 9> ValIva {}; // ValIva0 .. ValIva8

    // Paths and printers.
    QString Percorso;
    QString PercorsoBackup; // default: the platform's backup folder
    QString PercorsoBackupAutomatico;
    QString PercorsoRicerca;
    QString PercorsoSalvataggioImmaginiSpiaggia;
    // Dated backups kept by the automatic pass; a week unless the hotel chose otherwise.
    static constexpr int BackupDaMantenerePredefiniti = 7;
    int NumeroBackupDaMantenere = BackupDaMantenerePredefiniti;
    bool SalvataggioAutomatico = false;
    QString prnDocs, prnDocumenti, prnPdf;
    bool DisabilitaControlloAggiornamenti = false;
    QString NomeServer; // the daytime host of the clock check

    // Layout.
    int Righe = 0, Colonne = 0, NroPiani = 0, RigheSpiaggia = 0, ColonneSpiaggia = 0;

    // Rates and times.
    double IvaPrenotazioni = 0, IvaAbbuono = 0, IvaRistorante = 0, IvaPrenotazioniSale = 0;
    double IvaSpiaggia = 0, IvaAbbuonoSpiaggia = 0, IvaSky = 0, IvaCentralino = 0;
    double PrezzoAggiuntivoPernottamento = 0;
    double PrezzoAggiuntivoPernottamentoeColazione = 0;
    double PrezzoAggiuntivoMezzaPensione = 0;
    double PrezzoAggiuntivoPensioneCompleta = 0;
    QTime OraPropostaColazione { 0, 0 }, OraPropostaPranzo { 0, 0 }, OraPropostaCena { 0, 0 };
    QString IntervalloSale = QStringLiteral("1 Ora");
    QTime CheckInDalleOre { 12, 0 }, CheckOutEntroLeOre { 12, 0 };
    QString StagionaleDal = QStringLiteral("01/06");
    QString StagionaleAl = QStringLiteral("15/09");

    // Statutory and in-room services.
    QString TipoEsercizio, Stelle;
    bool AbilitaGestioneCentralinoTelefonico = false;
    QString Centralino;
    double CostoAScattoCentralino = 0, CostoAlMinutoCentralino = 0;
    double SecondiAggiornamentoCentralino = 60;
    bool UtilizzaTabelladiCorrispondenzaCamere = false;
    bool Sky = false;
    QString CodiceUtente, CodiceHotel, IDChiaveHotel, DNS;
    QTime CheckIn { 12, 0 }, CheckOut { 12, 0 };
    bool ProceduraManualeSky = false;
    bool ProceduraAutomaticaSky = false;
    int IntervalloAggiornamentoAutomaticoSky = 60;

    // Run-time values worked out from the fields above.
    QString EtichettaImposta = QStringLiteral("Iva");
    QString EtichettaImpostaLunga = QStringLiteral("Iva");
    int SlotsGiornoSale = 24;
    QString PassoSale = QStringLiteral("1.00");

    Configurazione();
};

namespace configurazione {

// One field of the row: its name and where it lives in the struct. `predefinito` false: a null leaves the
// value as it was. `delloSchermo` false: the settings screen doesn't own it (room grid, last folders ...).
struct Campo
{
    using Membro = std::variant<QString Configurazione::*, bool Configurazione::*, int Configurazione::*,
                                double Configurazione::*, QTime Configurazione::*>;
    const char* nome;
    Membro membro;
    bool predefinito = false;
    bool delloSchermo = true;
    bool vuotoComeNullo = false;
};

// Every field of the row in the order of the settings tables (ValIva0..8 are handled apart).
const std::vector<Campo>& campi();

// The seven steps of the function-room planner: slots per day and step ("0.15" is fifteen minutes);
// "24 Ore" has one slot and no step. nullopt for an unknown text.
struct PassoSale
{
    int slotsGiorno;
    std::optional<QString> passo;
};
std::optional<PassoSale> passoIntervalloSale(const QString& intervallo);
const QStringList& intervalliSale();

// Copies a row into the struct: a null field takes its default (or stays as it was when it has none).
void leggiRiga(const QSqlRecord& riga, Configurazione& configurazione);
// The labels and the planner step, from UsaImposta and IntervalloSale.
void calcolaValoriDerivati(Configurazione& configurazione);

// Reads the row; nullopt when there is no row (or it can't be read).
std::optional<Configurazione> leggi(Archivio& archivio);

// Writes the fields the settings screen owns (inserting the row when missing), in one transaction.
bool salva(Archivio& archivio, const Configurazione& configurazione);

} // namespace configurazione

// At each start of the main screen and after a save of the settings: the row into the session's run values,
// and the diagnostics switch into the error policy. With no row nothing is loaded.
void CaricaConfigurazione(Sessione& sessione);

} // namespace tomvera
