#include "foundation/configurazione.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/piattaforma.h"
#include "foundation/sessione.h"

#include <QSqlField>
#include <QSqlRecord>

namespace tomvera {

Configurazione::Configurazione()
    : PercorsoBackup(piattaforma::cartellaBackupPredefinita())
    , PercorsoBackupAutomatico(piattaforma::cartellaBackupPredefinita())
{
}

namespace configurazione {

namespace {

using C = Configurazione;

QString nomeValIva(int k)
{
    return QStringLiteral("ValIva") + QString::number(k);
}

// Booleans of an old archive may hold -1 for true: anything but 0 is true.
bool comeBooleano(const QVariant& v)
{
    return v.toLongLong() != 0;
}

} // namespace

const std::vector<Campo>& campi()
{
    // clang-format off
    static const std::vector<Campo> elenco = {
        {"RagSociale", &C::RagSociale}, {"Indirizzo", &C::Indirizzo}, {"Cap", &C::Cap}, {"Comune", &C::Comune},
        {"Provincia", &C::Provincia}, {"Piva", &C::Piva}, {"CodFis", &C::CodFis}, {"Tel", &C::Tel}, {"Fax", &C::Fax},
        {"VisualizzaIntestazione", &C::VisualizzaIntestazione}, {"VisualizzaLogo", &C::VisualizzaLogo},
        {"NascondiIntestazioneInStampaDocumenti", &C::NascondiIntestazioneInStampaDocumenti, true},
        {"NascondiLogoInStampaDocumenti", &C::NascondiLogoInStampaDocumenti, true},
        {"NascondiRuvo", &C::NascondiRuvo}, {"NascondiDataEdOraDiStampa", &C::NascondiDataEdOraDiStampa},
        {"MessaggioFineDoc", &C::MessaggioFineDoc}, {"MostraMessaggioFineDoc", &C::MostraMessaggioFineDoc},
        {"MessaggioModuloArrivo", &C::MessaggioModuloArrivo},
        {"MostraMessaggioModuloArrivo", &C::MostraMessaggioModuloArrivo},
        {"NascondiFirmeSchedaDiNotifica", &C::NascondiFirmeSchedaDiNotifica},
        {"NascondiFirmeSchedaDiNotificaDichiarante", &C::NascondiFirmeSchedaDiNotificaDichiarante},
        {"StampaModuloArrivoInDupliceCopia", &C::StampaModuloArrivoInDupliceCopia, true},
        {"Banca", &C::Banca}, {"Cab", &C::Cab}, {"Abi", &C::Abi}, {"Cin", &C::Cin}, {"CC", &C::CC},
        {"Iban", &C::Iban}, {"Agenzia", &C::Agenzia},
        {"NomePersonalizzazione", &C::NomePersonalizzazione, true},
        {"UsaImposta", &C::UsaImposta, true},
        {"Percorso", &C::Percorso, false, false},
        {"PercorsoBackup", &C::PercorsoBackup, true},
        {"PercorsoBackupAutomatico", &C::PercorsoBackupAutomatico, true},
        {"PercorsoRicerca", &C::PercorsoRicerca, false, false},
        {"PercorsoSalvataggioImmaginiSpiaggia", &C::PercorsoSalvataggioImmaginiSpiaggia, false, false},
        {"NumeroBackupDaMantenere", &C::NumeroBackupDaMantenere, true},
        {"SalvataggioAutomatico", &C::SalvataggioAutomatico},
        {"prnDocs", &C::prnDocs}, {"prnDocumenti", &C::prnDocumenti}, {"prnPdf", &C::prnPdf},
        {"AbilitaDiagnosticaErrori", &C::AbilitaDiagnosticaErrori, true},
        {"DisabilitaControlloAggiornamenti", &C::DisabilitaControlloAggiornamenti, true},
        {"NomeServer", &C::NomeServer},
        {"MultiAzienda", &C::MultiAzienda},
        {"Righe", &C::Righe, true, false}, {"Colonne", &C::Colonne, true, false},
        {"NroPiani", &C::NroPiani, false, false},
        {"RigheSpiaggia", &C::RigheSpiaggia, true, false}, {"ColonneSpiaggia", &C::ColonneSpiaggia, true, false},
        {"IvaPrenotazioni", &C::IvaPrenotazioni, true}, {"IvaAbbuono", &C::IvaAbbuono, true},
        {"IvaRistorante", &C::IvaRistorante, true}, {"IvaPrenotazioniSale", &C::IvaPrenotazioniSale, true},
        {"IvaSpiaggia", &C::IvaSpiaggia, true}, {"IvaAbbuonoSpiaggia", &C::IvaAbbuonoSpiaggia, true},
        {"IvaSky", &C::IvaSky, true}, {"IvaCentralino", &C::IvaCentralino, true},
        {"PrezzoAggiuntivoPernottamento", &C::PrezzoAggiuntivoPernottamento, true},
        {"PrezzoAggiuntivoPernottamentoeColazione", &C::PrezzoAggiuntivoPernottamentoeColazione, true},
        {"PrezzoAggiuntivoMezzaPensione", &C::PrezzoAggiuntivoMezzaPensione, true},
        {"PrezzoAggiuntivoPensioneCompleta", &C::PrezzoAggiuntivoPensioneCompleta, true},
        {"OraPropostaColazione", &C::OraPropostaColazione, true}, {"OraPropostaPranzo", &C::OraPropostaPranzo, true},
        {"OraPropostaCena", &C::OraPropostaCena, true},
        {"IntervalloSale", &C::IntervalloSale, true},
        {"CheckInDalleOre", &C::CheckInDalleOre, true}, {"CheckOutEntroLeOre", &C::CheckOutEntroLeOre, true},
        {"StagionaleDal", &C::StagionaleDal, true, true, true}, {"StagionaleAl", &C::StagionaleAl, true, true, true},
        {"TipoEsercizio", &C::TipoEsercizio}, {"Stelle", &C::Stelle},
        {"AbilitaGestioneCentralinoTelefonico", &C::AbilitaGestioneCentralinoTelefonico, true},
        {"Centralino", &C::Centralino, true},
        {"CostoAScattoCentralino", &C::CostoAScattoCentralino, true},
        {"CostoAlMinutoCentralino", &C::CostoAlMinutoCentralino, true},
        {"SecondiAggiornamentoCentralino", &C::SecondiAggiornamentoCentralino, true},
        {"UtilizzaTabelladiCorrispondenzaCamere", &C::UtilizzaTabelladiCorrispondenzaCamere, true},
        {"Sky", &C::Sky, true},
        {"CodiceUtente", &C::CodiceUtente}, {"CodiceHotel", &C::CodiceHotel}, {"IDChiaveHotel", &C::IDChiaveHotel},
        {"DNS", &C::DNS},
        {"CheckIn", &C::CheckIn, true}, {"CheckOut", &C::CheckOut, true},
        {"ProceduraManualeSky", &C::ProceduraManualeSky, true},
        {"ProceduraAutomaticaSky", &C::ProceduraAutomaticaSky, true},
        {"IntervalloAggiornamentoAutomaticoSky", &C::IntervalloAggiornamentoAutomaticoSky, true},
    };
    // clang-format on
    return elenco;
}

const QStringList& intervalliSale()
{
    static const QStringList elenco
        = { QStringLiteral("15 Min."), QStringLiteral("30 Min."), QStringLiteral("1 Ora"), QStringLiteral("3 Ore"),
            QStringLiteral("6 Ore"),   QStringLiteral("12 Ore"),  QStringLiteral("24 Ore") };
    return elenco;
}

std::optional<PassoSale> passoIntervalloSale(const QString& intervallo)
{
    static const int numeroSlots[] = { 96, 48, 24, 8, 4, 2, 1 };
    static const char* passi[] = { "0.15", "0.30", "1.00", "3.00", "6.00", "12.00", nullptr };
    const int i = intervalliSale().indexOf(intervallo);
    if (i < 0)
        return std::nullopt;
    PassoSale p { numeroSlots[i], std::nullopt };
    if (passi[i])
        p.passo = QString::fromLatin1(passi[i]);
    return p;
}

void leggiRiga(const QSqlRecord& riga, Configurazione& cfg)
{
    const Configurazione predefinita;
    for (const Campo& campo : campi()) {
        const QString nome = QString::fromLatin1(campo.nome);
        if (riga.indexOf(nome) < 0)
            continue; // an older archive without the field: as a failed read, the value stays
        const QVariant v = riga.value(nome);
        const bool nullo = v.isNull() || (campo.vuotoComeNullo && v.toString().trimmed().isEmpty());
        std::visit(
            [&](auto membro) {
                using T = std::decay_t<decltype(cfg.*membro)>;
                if (nullo) {
                    if (campo.predefinito)
                        cfg.*membro = predefinita.*membro;
                    return;
                }
                if constexpr (std::is_same_v<T, QString>)
                    cfg.*membro = v.toString();
                else if constexpr (std::is_same_v<T, bool>)
                    cfg.*membro = comeBooleano(v);
                else if constexpr (std::is_same_v<T, int>)
                    cfg.*membro = v.toInt();
                else if constexpr (std::is_same_v<T, double>)
                    cfg.*membro = v.toDouble();
                else if constexpr (std::is_same_v<T, QTime>) {
                    const QTime ora = oraDaArchivio(v);
                    if (ora.isValid())
                        cfg.*membro = ora;
                }
            },
            campo.membro);
    }
    for (int k = 0; k < 9; ++k) {
        const QVariant v = riga.value(nomeValIva(k));
        if (!v.isNull())
            cfg.ValIva[static_cast<size_t>(k)] = v.toDouble();
    }
    calcolaValoriDerivati(cfg);
}

void calcolaValoriDerivati(Configurazione& cfg)
{
    cfg.EtichettaImposta = cfg.UsaImposta ? QStringLiteral("Imp") : QStringLiteral("Iva");
    cfg.EtichettaImpostaLunga = cfg.UsaImposta ? QStringLiteral("Imposta") : QStringLiteral("Iva");
    if (const auto passo = passoIntervalloSale(cfg.IntervalloSale)) {
        cfg.SlotsGiornoSale = passo->slotsGiorno;
        // "24 Ore" has no step: the previous one stays
        if (passo->passo)
            cfg.PassoSale = *passo->passo;
    }
}

std::optional<Configurazione> leggi(Archivio& archivio)
{
    const auto riga = archivio.riga(QStringLiteral("SELECT * FROM Configurazioni ORDER BY Indice"));
    if (!riga)
        return std::nullopt;
    Configurazione cfg;
    leggiRiga(*riga, cfg);
    return cfg;
}

bool salva(Archivio& archivio, const Configurazione& cfg)
{
    Transazione transazione(archivio);
    if (!transazione.attiva())
        return false;
    QVariant indice = archivio.valore(QStringLiteral("SELECT min(Indice) FROM Configurazioni"));
    if (indice.isNull()) {
        if (!archivio.comando(QStringLiteral("INSERT INTO Configurazioni (RagSociale) VALUES ('')")))
            return false;
        indice = archivio.ultimoIndiceInserito();
    }
    QStringList assegnazioni;
    QVariantList valori;
    for (const Campo& campo : campi()) {
        if (!campo.delloSchermo)
            continue;
        assegnazioni << QString::fromLatin1(campo.nome) + QStringLiteral(" = ?");
        std::visit(
            [&](auto membro) {
                using T = std::decay_t<decltype(cfg.*membro)>;
                if constexpr (std::is_same_v<T, bool>)
                    valori << (cfg.*membro ? 1 : 0);
                else if constexpr (std::is_same_v<T, QTime>)
                    valori << oraArchivio(cfg.*membro);
                else
                    valori << cfg.*membro;
            },
            campo.membro);
    }
    for (int k = 0; k < 9; ++k) {
        assegnazioni << nomeValIva(k) + QStringLiteral(" = ?");
        valori << cfg.ValIva[static_cast<size_t>(k)];
    }
    valori << indice;
    if (!archivio.comando(QStringLiteral("UPDATE Configurazioni SET ") + assegnazioni.join(QStringLiteral(", "))
                              + QStringLiteral(" WHERE Indice = ?"),
                          valori))
        return false;
    return transazione.commit();
}

} // namespace configurazione

void CaricaConfigurazione(Sessione& sessione)
{
    Archivio archivio(sessione.PercorsoDB, sessione.errori);
    if (!archivio.apri())
        return;
    const auto riga = archivio.riga(QStringLiteral("SELECT * FROM Configurazioni ORDER BY Indice"));
    if (!riga)
        return;
    configurazione::leggiRiga(*riga, *sessione.configurazione);
    sessione.errori.setAbilitaDiagnosticaErrori(sessione.configurazione->AbilitaDiagnosticaErrori);
}

} // namespace tomvera
