// The tab "DATI CLIENTI" of F_Prenotazione: the guest list and its entry line.
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/routines.h"
#include "foundation/schema/tabelle.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"
#include "foundation/variabili.h"
#include "guests/anagrafiche.h"
#include "guests/limiticampi.h"
#include "guests/provinceesigle.h"
#include "guests/schedaanagrafica.h"
#include "guests/tabellecodici.h"
#include "pricelists/calcoloprezzi.h"
#include "reservations/regoleospiti.h"
#include "reservations/schedaprenotazione.h"

namespace tomvera {

namespace {

const QStringList campiData = { QStringLiteral("DataArrivo"), QStringLiteral("DataPartenza"),
                                QStringLiteral("DataDocumento"), QStringLiteral("DataNascita") };
const QStringList campiInteri
    = { QStringLiteral("NroArrivo"), QStringLiteral("IndiceCliente"), QStringLiteral("ClienteIntestatario"),
        QStringLiteral("Arrivato"),  QStringLiteral("IndiceRiga"),    QStringLiteral("OrdinamentoTipoAlloggiato") };
const QStringList campiImporto = { QStringLiteral("PrezzoTrattamento"), QStringLiteral("TotalePrezzoTrattamento"),
                                   QStringLiteral("CamereOccupate") };
const QStringList campiBooleani
    = { QStringLiteral("ResidenzaItaliana"), QStringLiteral("ResidenzaEstera"), QStringLiteral("NascitaItalia"),
        QStringLiteral("NascitaEstero"),     QStringLiteral("DocumentoItalia"), QStringLiteral("DocumentoEstero") };

// The fields a card and a guest row share, card field -> row field.
const QList<std::pair<QString Anagrafica::*, const char*>>& campiScheda()
{
    static const QList<std::pair<QString Anagrafica::*, const char*>> campi
        = { { &Anagrafica::CodiceAnagrafica, "CodiceAnagrafica" },
            { &Anagrafica::RagSociale, "RagSociale" },
            { &Anagrafica::Nome, "Nome" },
            { &Anagrafica::Cognome, "Cognome" },
            { &Anagrafica::Indirizzo, "Indirizzo" },
            { &Anagrafica::Cap, "Cap" },
            { &Anagrafica::Comune, "Comune" },
            { &Anagrafica::Provincia, "Provincia" },
            { &Anagrafica::Piva, "Piva" },
            { &Anagrafica::CodiceFiscale, "CodiceFiscale" },
            { &Anagrafica::Cellulare, "Cellulare" },
            { &Anagrafica::Telefono, "Telefono" },
            { &Anagrafica::Fax, "Fax" },
            { &Anagrafica::Email, "Email" },
            { &Anagrafica::Web, "Web" },
            { &Anagrafica::Note, "NoteCliente" },
            { &Anagrafica::TipoDocumento, "TipoDocumento" },
            { &Anagrafica::NroDocumento, "NroDocumento" },
            { &Anagrafica::DataDocumento, "DataDocumento" },
            { &Anagrafica::DataNascita, "DataNascita" },
            { &Anagrafica::LuogoNascita, "LuogoNascita" },
            { &Anagrafica::Cittadinanza, "Cittadinanza" },
            { &Anagrafica::Nazione, "Nazione" },
            { &Anagrafica::StatoDiNascita, "StatoDiNascita" },
            { &Anagrafica::LuogoDocumento, "LuogoDocumento" },
            { &Anagrafica::ProvinciaDiNascita, "ProvinciaDiNascita" },
            { &Anagrafica::ResidenzaIstat, "ResidenzaIstat" } };
    return campi;
}

bool vero(const QVariant& v)
{
    if (v.userType() == QMetaType::Bool)
        return v.toBool();
    const QString t = v.toString().trimmed().toLower();
    return t == QLatin1String("1") || t == QLatin1String("-1") || t == QLatin1String("true")
        || t == QLatin1String("vero");
}

// A row value as the entry line shows it: dates day first, amounts the Italian way.
QVariant testoPerInserimento(const QString& campo, const QVariant& v)
{
    if (campiData.contains(campo)) {
        const QDate d = v.userType() == QMetaType::QDate ? v.toDate() : leggiData(v.toString()).value_or(QDate());
        return d.isValid() ? testoData(d) : QString();
    }
    if (campiImporto.contains(campo))
        return formattaNumero(v.toDouble(), 2);
    if (campiBooleani.contains(campo))
        return vero(v);
    if (campiInteri.contains(campo))
        return v.toInt() == 0 && campo == QLatin1String("NroArrivo") ? QString() : QString::number(v.toLongLong());
    return v.toString();
}

// An entry line value as the row keeps it.
QVariant valorePerRiga(const QString& campo, const QVariant& v)
{
    if (campiData.contains(campo)) {
        const QDate d = v.userType() == QMetaType::QDate ? v.toDate() : leggiData(v.toString()).value_or(QDate());
        return d.isValid() ? QVariant(d) : QVariant(QMetaType(QMetaType::QDate));
    }
    if (campiImporto.contains(campo))
        return v.userType() == QMetaType::Double ? v.toDouble() : leggiNumero(v.toString()).value_or(0);
    if (campiBooleani.contains(campo))
        return vero(v);
    if (campiInteri.contains(campo))
        return static_cast<qint64>(leggiNumero(v.toString()).value_or(0));
    return v.toString();
}

} // namespace

double SchedaPrenotazione::TotalePrezzoTrattamento() const
{
    double totale = 0;
    for (const OspitePrenotazione& o : GrigliaAnagrafiche)
        totale += o.valore(QStringLiteral("TotalePrezzoTrattamento")).toDouble();
    return totale;
}

void SchedaPrenotazione::CalcolaTotalePrezzoTrattamentoGrigliaAnagrafiche()
{
    CalcolaTotale_Click();
}

void SchedaPrenotazione::Command1_Click()
{
    Cliente = OspitePrenotazione();
    Cliente.imposta(QStringLiteral("TipoTrattamento"), m_tipoTrattamentoRicordato);
    Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), m_tipoAlloggiatoRicordato);
    for (const char* campo : { "Nazione", "StatoDiNascita", "Cittadinanza" })
        Cliente.imposta(QLatin1String(campo), QStringLiteral("ITALIA"));
    for (const char* campo : { "ResidenzaItaliana", "NascitaItalia", "DocumentoItalia" })
        Cliente.imposta(QLatin1String(campo), true);
    for (const char* campo : { "ResidenzaEstera", "NascitaEstero", "DocumentoEstero" })
        Cliente.imposta(QLatin1String(campo), false);
    Cliente.imposta(QStringLiteral("Arrivato"), 0);
    Cliente.imposta(QStringLiteral("ClienteIntestatario"), 0);
    Maschio = true;
    Femmina = false;
    RigaClienteSelezionato = 0;
}

void SchedaPrenotazione::TipoTrattamento_Click(const QString& tipo)
{
    Cliente.imposta(QStringLiteral("TipoTrattamento"), tipo);
    m_tipoTrattamentoRicordato = tipo;
    Variabili(m_archivio).SalvaVariabileStringa(chiavi::F_Prenotazione_TipoTrattamento, tipo);
    CalcolaTrattamento();
}

void SchedaPrenotazione::TipoDiAlloggiato_Click(const QString& tipo)
{
    Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), tipo);
    m_tipoAlloggiatoRicordato = tipo;
    Variabili(m_archivio).SalvaVariabileStringa(chiavi::F_Prenotazione_TipoDiAlloggiato, tipo);
    if (tipoalloggiato::capo(tipo))
        Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"), QString());
}

QStringList SchedaPrenotazione::capiDisponibili() const
{
    return CaricaCapoGruppoFamiglia(GrigliaAnagrafiche, Cliente.testo(QStringLiteral("TipoDiAlloggiato")));
}

QString SchedaPrenotazione::codiceTipoAlloggiato(const QString& tipo)
{
    if (!m_sessione.PercorsoArchivioCodici.isEmpty()) {
        Archivio codici(m_sessione.PercorsoArchivioCodici, m_sessione.errori);
        if (codici.apri()) {
            const QString codice = CercaCodiceTabella(codici, tipo, TabellaCodici::TipoAlloggiato);
            if (!codice.isEmpty())
                return codice;
        }
    }
    return tipoalloggiato::codiceUfficiale(tipo);
}

bool SchedaPrenotazione::AggiungiCliente()
{
    const qint64 indiceCliente = Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong();
    const QVariant altro = m_archivio.valore(
        QStringLiteral("SELECT Indice FROM TabellaAnagrafiche WHERE RagSociale = ? AND Indice <> ?"),
        { Cliente.RagSociale(), indiceCliente });
    if (altro.isValid()) {
        interazione().messaggio(QStringLiteral("Il cliente è già in archivio, selezionarlo dall'elenco"));
        return false;
    }
    const auto esistente = indiceCliente > 0 ? caricaAnagrafica(m_archivio, indiceCliente) : std::nullopt;
    // A user who may only read the registry books the guest as typed, like "Non Aggiornare Anagrafica".
    const PermessiUtente& permessi = *m_sessione.permessi;
    const bool schedeInSolaLettura = !utenti::eAmministratore(m_sessione.UtenteCollegato)
        && permessi.soloLettura(&PermessiUtente::AnagraficheSoloLettura);
    if (esistente && (NonModificareDatiCliente || schedeInSolaLettura))
        return true;
    Anagrafica scheda = esistente.value_or(Anagrafica());
    for (const auto& [campoScheda, campoRiga] : campiScheda())
        scheda.*campoScheda = Cliente.testo(QLatin1String(campoRiga));
    scheda.Maschio = !Femmina;
    scheda.ResidenzaItaliana = vero(Cliente.valore(QStringLiteral("ResidenzaItaliana")));
    scheda.NascitaItalia = vero(Cliente.valore(QStringLiteral("NascitaItalia")));
    scheda.DocumentoItalia = vero(Cliente.valore(QStringLiteral("DocumentoItalia")));
    if (!scriviAnagrafica(m_archivio, scheda))
        return false;
    Cliente.imposta(QStringLiteral("IndiceCliente"), scheda.Indice);
    return true;
}

void SchedaPrenotazione::Command4_Click()
{
    const QString tipo = Cliente.testo(QStringLiteral("TipoDiAlloggiato"));
    if (Cliente.RagSociale().trimmed().isEmpty() && Cliente.testo(QStringLiteral("Cognome")).trimmed().isEmpty()) {
        interazione().messaggio(QStringLiteral("Attenzione selezionare un cliente!"));
        return;
    }
    if (!Maschio && !Femmina) {
        interazione().messaggio(QStringLiteral("Attenzione selezionare il sesso del cliente!"));
        return;
    }
    if (Cliente.testo(QStringLiteral("TipoTrattamento")).isEmpty()) {
        interazione().messaggio(QStringLiteral("Attenzione selezionare il tipo di trattamento!"));
        return;
    }
    if (tipo.isEmpty()) {
        interazione().messaggio(QStringLiteral("Attenzione selezionare il tipo di alloggiato!"));
        return;
    }
    const QDate arrivo = Cliente.data(QStringLiteral("DataArrivo"));
    const QDate partenza = Cliente.data(QStringLiteral("DataPartenza"));
    if (vero(Cliente.valore(QStringLiteral("Arrivato")))) {
        if (!arrivo.isValid() || !partenza.isValid() || Cliente.NroCameraCliente().isEmpty()) {
            interazione().messaggio(
                QStringLiteral("Attenzione inserire correttamente le date ed il n° di camera del cliente"));
            return;
        }
        if (arrivo >= partenza) {
            interazione().messaggio(QStringLiteral("Attenzione inserire correttamente le date"));
            return;
        }
    }
    if (!controllaTestiCliente())
        return;
    const bool ragSocialeDigitata = !Cliente.RagSociale().trimmed().isEmpty();
    if (!ragSocialeDigitata)
        Cliente.imposta(QStringLiteral("RagSociale"),
                        QString(Cliente.testo(QStringLiteral("Cognome")) + QLatin1Char(' ')
                                + Cliente.testo(QStringLiteral("Nome"))));
    // A refusal from here on leaves the line as typed: the composed name would make it a different guest.
    const auto annullaNome = [&] {
        if (!ragSocialeDigitata)
            Cliente.imposta(QStringLiteral("RagSociale"), QString());
    };
    if (Cliente.RagSociale().size() > dimensioneCampoAnagrafica(QStringLiteral("RagSociale"))) {
        interazione().messaggio(messaggioTestoTroppoLungo(
            { QStringLiteral("RagSociale"), dimensioneCampoAnagrafica(QStringLiteral("RagSociale")) }));
        annullaNome();
        return;
    }
    if (tipoalloggiato::seguace(tipo)) {
        const auto capo = ControllaEsistenzaCapogruppoFamiglia(
            GrigliaAnagrafiche, tipo,
            arrivo.isValid() ? testoData(arrivo) : Cliente.testo(QStringLiteral("DataArrivo")));
        if (!capo) {
            interazione().messaggio(QStringLiteral("Attenzione, impossibile inserire un ") + tipo
                                    + QStringLiteral(" in quanto non esiste nessun ") + tipoalloggiato::tipoCapo(tipo)
                                    + QStringLiteral(" con la stessa data di arrivo nella prenotazione!"));
            annullaNome();
            return;
        }
        // A member left without a head chosen belongs to the one that arrives with it.
        if (Cliente.testo(QStringLiteral("CapoGruppoFamiglia")).isEmpty())
            Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"), *capo);
    }
    const int selezionata = RigaClienteSelezionato - 1;
    if (selezionata >= 0 && selezionata < GrigliaAnagrafiche.size()) {
        const OspitePrenotazione& vecchia = GrigliaAnagrafiche.at(selezionata);
        const QString vecchioTipo = vecchia.testo(QStringLiteral("TipoDiAlloggiato"));
        if (tipoalloggiato::capo(vecchioTipo) && (vecchioTipo != tipo || vecchia.RagSociale() != Cliente.RagSociale())
            && ControllaAnagraficheAssociate(GrigliaAnagrafiche, vecchia.RagSociale(), selezionata)) {
            interazione().messaggio(
                QStringLiteral("Impossibile modificare l'anagrafica in quanto ha delle anagrafiche già associate!"));
            annullaNome();
            return;
        }
    }
    const qint64 indiceCliente = Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong();
    const QString codice = Cliente.testo(QStringLiteral("CodiceAnagrafica"));
    if (!codice.isEmpty()) {
        if (!ControllaCodiceAnagrafica(m_archivio, interazione(), codice, indiceCliente)) {
            annullaNome();
            return;
        }
    } else {
        Cliente.imposta(QStringLiteral("CodiceAnagrafica"), ProssimoCodiceAnagrafica(m_archivio));
    }
    if (!AggiungiCliente()) {
        annullaNome();
        if (codice.isEmpty())
            Cliente.imposta(QStringLiteral("CodiceAnagrafica"), QString());
        return;
    }
    if (tipoalloggiato::capo(tipo))
        Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"), Cliente.RagSociale());

    OspitePrenotazione riga;
    for (const QString& campo : campiOspitePrenotazione())
        riga.imposta(campo, valorePerRiga(campo, Cliente.valore(campo)));
    if (riga.NroArrivo() != 0)
        riga.imposta(QStringLiteral("Arrivato"), 1);
    riga.imposta(QStringLiteral("Arrivato"), vero(riga.valore(QStringLiteral("Arrivato"))) ? 1 : 0);
    const double prezzo = riga.valore(QStringLiteral("PrezzoTrattamento")).toDouble();
    riga.imposta(QStringLiteral("TotalePrezzoTrattamento"),
                 PrezziACamera ? prezzi::CalcolaTotalePrezzoTrattamento(riga.testo(QStringLiteral("TipoTrattamento")),
                                                                        prezzo, arrivo, partenza)
                               : prezzo);
    riga.imposta(QStringLiteral("MaschioFemmina"), Femmina ? QStringLiteral("Femmina") : QStringLiteral("Maschio"));
    riga.imposta(QStringLiteral("CodiceTipoDiAlloggiato"), codiceTipoAlloggiato(tipo));
    riga.imposta(QStringLiteral("OrdinamentoTipoAlloggiato"), tipoalloggiato::ordinamento(tipo));
    const bool intestatario = vero(riga.valore(QStringLiteral("ClienteIntestatario")));
    if (intestatario) {
        for (OspitePrenotazione& o : GrigliaAnagrafiche)
            o.imposta(QStringLiteral("ClienteIntestatario"), 0);
    }
    riga.imposta(QStringLiteral("ClienteIntestatario"), intestatario ? 1 : 0);
    if (selezionata >= 0 && selezionata < GrigliaAnagrafiche.size())
        GrigliaAnagrafiche[selezionata] = riga;
    else
        GrigliaAnagrafiche.append(riga);
    for (int i = 0; i < GrigliaAnagrafiche.size(); ++i)
        GrigliaAnagrafiche[i].imposta(QStringLiteral("IndiceRiga"), i + 1);

    m_ultimoIndirizzo = Cliente;
    InserisciUltimiDatiInseritiVisibile = true;
    const OspitePrenotazione inserito = Cliente;
    Command1_Click();
    proponiProssimoOspite(inserito);
    CalcolaTotalePrezzoTrattamentoGrigliaAnagrafiche();
    NumeroPersone = testoNumeroPersone(GrigliaAnagrafiche);
    m_modificato = true;
}

void SchedaPrenotazione::Command10_Click()
{
    const int riga = RigaClienteSelezionato - 1;
    if (riga < 0 || riga >= GrigliaAnagrafiche.size()) {
        interazione().messaggio(QStringLiteral("Selezionare il cliente da cancellare!"));
        return;
    }
    if (!interazione().domandaSiNo(QStringLiteral("Attenzione eliminare il cliente selezionato dalla prenotazione?")))
        return;
    const OspitePrenotazione& o = GrigliaAnagrafiche.at(riga);
    const QString tipo = o.testo(QStringLiteral("TipoDiAlloggiato"));
    if (tipoalloggiato::capo(tipo) && ControllaAnagraficheAssociate(GrigliaAnagrafiche, o.RagSociale(), riga)) {
        if (tipo == tipoalloggiato::Capogruppo)
            interazione().messaggio(
                QStringLiteral("Impossibile cancellare il CAPOGRUPPO in quanto ha dei MEMBRI GRUPPO associati!"));
        else
            interazione().messaggio(
                QStringLiteral("Impossibile cancellare il CAPOFAMIGLIA in quanto ha dei FAMILIARI associati!"));
        return;
    }
    GrigliaAnagrafiche.removeAt(riga);
    for (int i = 0; i < GrigliaAnagrafiche.size(); ++i)
        GrigliaAnagrafiche[i].imposta(QStringLiteral("IndiceRiga"), i + 1);
    Command1_Click();
    CalcolaTotalePrezzoTrattamentoGrigliaAnagrafiche();
    NumeroPersone = testoNumeroPersone(GrigliaAnagrafiche);
    m_modificato = true;
}

void SchedaPrenotazione::SelezioneNormaleCliente(int riga)
{
    if (riga < 0 || riga >= GrigliaAnagrafiche.size())
        return;
    const OspitePrenotazione& o = GrigliaAnagrafiche.at(riga);
    Cliente = OspitePrenotazione();
    for (auto it = o.campi.cbegin(); it != o.campi.cend(); ++it)
        Cliente.imposta(it.key(), testoPerInserimento(it.key(), it.value()));
    Femmina = o.testo(QStringLiteral("MaschioFemmina")) == QLatin1String("Femmina");
    Maschio = !Femmina;
    RigaClienteSelezionato = riga + 1;
}

int SchedaPrenotazione::CalcolaNroArrivo()
{
    const int anno = m_sessione.orologio.oggi().year();
    QString sql = QStringLiteral("SELECT MAX(NroArrivo) FROM TabellaAnagraficheAssociatePrenotazioni "
                                 "WHERE NroArrivo > 0 AND DataArrivo >= ? AND DataArrivo < ? "
                                 "AND IndicePrenotazioneAssociata <> ?");
    QVariantList parametri = { dataArchivio(QDate(anno, 1, 1)), dataArchivio(QDate(anno + 1, 1, 1)), Indice };
    if (multiAzienda()) {
        sql += QStringLiteral(" AND CodiceAzienda = ?");
        parametri << CodiceAzienda;
    }
    return prossimoNroArrivo(m_archivio.valore(sql, parametri).toInt(), GrigliaAnagrafiche);
}

void SchedaPrenotazione::Command13_Click()
{
    if (Cliente.NroArrivo() != 0
        && !interazione().domandaSiNo(QStringLiteral("Attenzione al cliente è già associato un numero di arrivo, "
                                                     "reimpostare il numero precedentemente associato?")))
        return;
    Cliente.imposta(QStringLiteral("NroArrivo"), QString::number(CalcolaNroArrivo()));
}

void SchedaPrenotazione::CancellaNroArrivo_Click()
{
    Cliente.imposta(QStringLiteral("NroArrivo"), QString());
}

bool SchedaPrenotazione::ControllaEsistenzaNroArrivo()
{
    const int numeroArrivo = Cliente.NroArrivo();
    if (numeroArrivo <= 0)
        return false;
    const int anno = m_sessione.orologio.oggi().year();
    return m_archivio.esisteRiga(
        QStringLiteral("SELECT Indice FROM TabellaAnagraficheAssociatePrenotazioni "
                       "WHERE NroArrivo = ? AND DataArrivo >= ? AND DataArrivo < ?"),
        { numeroArrivo, dataArchivio(QDate(anno, 1, 1)), dataArchivio(QDate(anno + 1, 1, 1)) });
}

void SchedaPrenotazione::Arrivato_MouseUp(bool spuntato)
{
    if (!spuntato && Cliente.NroArrivo() != 0) {
        interazione().messaggio(QStringLiteral("Attenzione operazione non possibile in quanto al cliente è già stato "
                                               "associato un N° di Arrivo!"));
        spuntato = true;
    }
    Cliente.imposta(QStringLiteral("Arrivato"), spuntato ? 1 : 0);
}

void SchedaPrenotazione::CalcolaTrattamento()
{
    const QString tipo = Cliente.testo(QStringLiteral("TipoTrattamento"));
    const QDate arrivo = Cliente.data(QStringLiteral("DataArrivo"));
    const QDate partenza = Cliente.data(QStringLiteral("DataPartenza"));
    double prezzo = 0, totale = 0;
    if (PrezziACamera) {
        prezzo = prezzi::PrezzoTrattamentoACamera(tipo, *m_sessione.configurazione);
        totale = prezzi::CalcolaTotalePrezzoTrattamento(tipo, prezzo, arrivo, partenza);
    } else if (!ListinoTrattamenti.isEmpty() && !tipo.isEmpty()) {
        prezzo = prezzi::CalcoloPrezzi(m_archivio)
                     .CalcolaPrezzoSoggiornoPersona(tipo, arrivo, partenza, ListinoTrattamenti);
        totale = prezzo;
    }
    Cliente.imposta(QStringLiteral("PrezzoTrattamento"), formattaNumero(prezzo, 2));
    Cliente.imposta(QStringLiteral("TotalePrezzoTrattamento"), formattaNumero(totale, 2));
}

void SchedaPrenotazione::NroCameraCliente_Click(const QString& camera)
{
    Cliente.imposta(QStringLiteral("NroCameraCliente"), camera);
    for (const RigaCamera& r : std::as_const(GrigliaCamerePrenotate)) {
        if (r.NroCamera == camera) {
            Cliente.imposta(QStringLiteral("DataArrivo"), testoData(r.Dal));
            Cliente.imposta(QStringLiteral("DataPartenza"), testoData(r.Al));
            break;
        }
    }
    CalcolaTrattamento();
}

void SchedaPrenotazione::InserisciUltimiDatiInseriti_Click()
{
    for (const char* campo : { "Indirizzo", "Cap", "Comune", "Provincia", "Nazione" })
        Cliente.imposta(QLatin1String(campo), m_ultimoIndirizzo.testo(QLatin1String(campo)));
    // The address brings its side: an address abroad is no Italian residence.
    for (const char* campo : { "ResidenzaItaliana", "ResidenzaEstera" })
        Cliente.imposta(QLatin1String(campo), vero(m_ultimoIndirizzo.valore(QLatin1String(campo))));
    Cliente.imposta(QStringLiteral("ResidenzaIstat"), m_ultimoIndirizzo.testo(QStringLiteral("ResidenzaIstat")));
}

// The next guest of a reservation usually shares the room, the dates and the board of the last one, and after
// a head come its family or group: the line is proposed so.
void SchedaPrenotazione::proponiProssimoOspite(const OspitePrenotazione& inserito)
{
    for (const char* campo : { "NroCameraCliente", "DataArrivo", "DataPartenza", "TipoTrattamento" })
        Cliente.imposta(QLatin1String(campo), inserito.valore(QLatin1String(campo)));
    const QString tipo = inserito.testo(QStringLiteral("TipoDiAlloggiato"));
    if (tipoalloggiato::capo(tipo) && tipo != tipoalloggiato::OspiteSingolo)
        Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"), inserito.RagSociale());
    // A family or group shares its nationality and residence more often than not; Italian defaults would
    // declare a foreign family's members as Italians.
    if (tipo != tipoalloggiato::OspiteSingolo) {
        for (const char* campo : { "NascitaItalia", "NascitaEstero", "StatoDiNascita", "Cittadinanza",
                                   "ResidenzaItaliana", "ResidenzaEstera", "Nazione", "ResidenzaIstat" })
            Cliente.imposta(QLatin1String(campo), inserito.valore(QLatin1String(campo)));
    }
    if (tipo == tipoalloggiato::Capofamiglia || tipo == tipoalloggiato::Capogruppo) {
        Cliente.imposta(QStringLiteral("TipoDiAlloggiato"),
                        tipo == tipoalloggiato::Capofamiglia ? tipoalloggiato::Familiare
                                                             : tipoalloggiato::MembroGruppo);
    } else if (tipoalloggiato::seguace(tipo)) {
        Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), tipo);
        Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"), inserito.testo(QStringLiteral("CapoGruppoFamiglia")));
    }
    CalcolaTrattamento();
}

bool SchedaPrenotazione::controllaTestiCliente()
{
    static const schema::Tabella tabella = schema::TabellaAnagraficheAssociatePrenotazioni();
    QList<std::pair<QString, QString>> testi;
    for (const QString& campo : campiOspitePrenotazione())
        testi.append({ campo, Cliente.testo(campo) });
    if (const auto lungo = primoTestoTroppoLungo(tabella, testi)) {
        interazione().messaggio(messaggioTestoTroppoLungo(*lungo));
        return false;
    }
    for (const char* campo : { "DataNascita", "DataDocumento", "DataArrivo", "DataPartenza" }) {
        const QString testo = Cliente.testo(QLatin1String(campo)).trimmed();
        if (!testo.isEmpty() && !leggiData(testo)) {
            interazione().messaggio(QStringLiteral("La data non è corretta"), QStringLiteral("DATA"),
                                    Interazione::Icona::Critico);
            return false;
        }
    }
    return true;
}

void SchedaPrenotazione::DataCliente_LostFocus(const QString& campo)
{
    QString testo = Cliente.testo(campo).trimmed();
    MascheraData(testo, interazione());
    Cliente.imposta(campo, testo);
}

void SchedaPrenotazione::NonModificareDatiCliente_Click(bool spuntato)
{
    NonModificareDatiCliente = spuntato;
    Variabili(m_archivio).SalvaVariabileNumero(chiavi::F_Prenotazione_NonModificareDatiCliente, spuntato ? 1 : 0);
}

namespace {

void coppia(OspitePrenotazione& o, const char* primo, const char* secondo, bool valorePrimo)
{
    o.imposta(QLatin1String(primo), valorePrimo);
    o.imposta(QLatin1String(secondo), !valorePrimo);
}

bool residenzaItaliana(const OspitePrenotazione& o)
{
    return !vero(o.valore(QStringLiteral("ResidenzaEstera")));
}

} // namespace

void SchedaPrenotazione::NascitaItalia_Click()
{
    coppia(Cliente, "NascitaItalia", "NascitaEstero", true);
    Cliente.imposta(QStringLiteral("StatoDiNascita"), QStringLiteral("ITALIA"));
}

void SchedaPrenotazione::NascitaEstero_Click()
{
    coppia(Cliente, "NascitaItalia", "NascitaEstero", false);
    Cliente.imposta(QStringLiteral("ProvinciaDiNascita"), QString());
    // The Italian default is no foreign state.
    if (Cliente.testo(QStringLiteral("StatoDiNascita")).compare(QLatin1String("ITALIA"), Qt::CaseInsensitive) == 0)
        Cliente.imposta(QStringLiteral("StatoDiNascita"), QString());
}

void SchedaPrenotazione::DocumentoItalia_Click()
{
    coppia(Cliente, "DocumentoItalia", "DocumentoEstero", true);
}

void SchedaPrenotazione::DocumentoEstero_Click()
{
    coppia(Cliente, "DocumentoItalia", "DocumentoEstero", false);
}

void SchedaPrenotazione::ResidenzaItaliana_Click()
{
    coppia(Cliente, "ResidenzaItaliana", "ResidenzaEstera", true);
    if (!sceltaIstat().contains(Cliente.testo(QStringLiteral("ResidenzaIstat"))))
        Cliente.imposta(QStringLiteral("ResidenzaIstat"), QString());
}

void SchedaPrenotazione::ResidenzaEstera_Click()
{
    coppia(Cliente, "ResidenzaItaliana", "ResidenzaEstera", false);
    // Abroad, the Italian default goes; a foreign citizen most likely lives in his own country.
    if (Cliente.testo(QStringLiteral("Nazione")).compare(QLatin1String("ITALIA"), Qt::CaseInsensitive) == 0
        || Cliente.testo(QStringLiteral("Nazione")).isEmpty()) {
        const QString cittadinanza = Cliente.testo(QStringLiteral("Cittadinanza"));
        Cliente.imposta(QStringLiteral("Nazione"),
                        cittadinanza.compare(QLatin1String("ITALIA"), Qt::CaseInsensitive) == 0 ? QString()
                                                                                                : cittadinanza);
    }
    if (!sceltaIstat().contains(Cliente.testo(QStringLiteral("ResidenzaIstat"))))
        Cliente.imposta(QStringLiteral("ResidenzaIstat"), QString());
}

QString SchedaPrenotazione::etichettaIstat() const
{
    return residenzaItaliana(Cliente) ? QStringLiteral("PROVINCIA") : QStringLiteral("PAESE");
}

QStringList SchedaPrenotazione::sceltaIstat() const
{
    return CaricaComboIstat(!residenzaItaliana(Cliente));
}

void SchedaPrenotazione::ProponiIstat_Click()
{
    const bool italiana = residenzaItaliana(Cliente);
    const QString origine = Cliente.testo(italiana ? QStringLiteral("Provincia") : QStringLiteral("Nazione"));
    const QString voce = VoceIstatPer(italiana ? ListaIstat::Provincia : ListaIstat::Paese, origine);
    Cliente.imposta(QStringLiteral("ResidenzaIstat"), voce.isEmpty() ? origine : voce);
}

QList<ComuneProposto> SchedaPrenotazione::COMUNE_Ricerca(SchedaAnagrafica::CampoComune campo, const QString& testo)
{
    SchedaAnagrafica scheda(m_archivio, interazione(), m_sessione.orologio);
    scheda.dati().Cap = Cliente.testo(QStringLiteral("Cap"));
    const QList<ComuneProposto> trovati = scheda.COMUNE_Ricerca(campo, testo);
    // One hit was taken by the card's own routine.
    if (trovati.isEmpty() && !scheda.dati().Comune.isEmpty())
        COMUNE_ConfermaSelezionato({ scheda.dati().Comune, scheda.dati().Provincia, scheda.dati().Cap });
    return trovati;
}

void SchedaPrenotazione::COMUNE_ConfermaSelezionato(const ComuneProposto& scelto)
{
    Cliente.imposta(QStringLiteral("Comune"), scelto.comune);
    Cliente.imposta(QStringLiteral("Provincia"), scelto.provincia);
    if (!scelto.cap.isEmpty())
        Cliente.imposta(QStringLiteral("Cap"), scelto.cap);
}

QList<ComuneProposto> SchedaPrenotazione::proposteLuogo(const QString& testo)
{
    return SchedaAnagrafica(m_archivio, interazione(), m_sessione.orologio).proposteLuogo(testo);
}

void SchedaPrenotazione::LuogoNascita_Conferma(const ComuneProposto& scelto)
{
    Cliente.imposta(QStringLiteral("LuogoNascita"), scelto.comune);
    Cliente.imposta(QStringLiteral("ProvinciaDiNascita"), scelto.provincia);
    if (!vero(Cliente.valore(QStringLiteral("NascitaEstero")))
        && Cliente.testo(QStringLiteral("StatoDiNascita")).isEmpty())
        Cliente.imposta(QStringLiteral("StatoDiNascita"), QStringLiteral("ITALIA"));
}

void SchedaPrenotazione::LuogoDocumento_Conferma(const ComuneProposto& scelto)
{
    Cliente.imposta(QStringLiteral("LuogoDocumento"), scelto.comune);
}

QStringList SchedaPrenotazione::proposteStati(const QString& testo)
{
    return SchedaAnagrafica(m_archivio, interazione(), m_sessione.orologio).proposteStati(testo);
}

void SchedaPrenotazione::StatoDiNascita_Conferma(const QString& stato)
{
    Cliente.imposta(QStringLiteral("StatoDiNascita"), stato);
    const QString cittadinanza = Cliente.testo(QStringLiteral("Cittadinanza"));
    if (cittadinanza.isEmpty() || cittadinanza.compare(QLatin1String("ITALIA"), Qt::CaseInsensitive) == 0)
        Cliente.imposta(QStringLiteral("Cittadinanza"), stato);
}

QStringList SchedaPrenotazione::proposteDocumenti(const QString& testo)
{
    return SchedaAnagrafica(m_archivio, interazione(), m_sessione.orologio).proposteDocumenti(testo);
}

bool SchedaPrenotazione::CaricaDatiCliente(qint64 indiceCliente)
{
    const auto scheda = caricaAnagrafica(m_archivio, indiceCliente);
    if (!scheda)
        return false;
    for (const auto& [campoScheda, campoRiga] : campiScheda())
        Cliente.imposta(QLatin1String(campoRiga), (*scheda).*campoScheda);
    Cliente.imposta(QStringLiteral("IndiceCliente"), QString::number(scheda->Indice));
    Cliente.imposta(QStringLiteral("ResidenzaItaliana"), scheda->ResidenzaItaliana);
    Cliente.imposta(QStringLiteral("ResidenzaEstera"), !scheda->ResidenzaItaliana);
    Cliente.imposta(QStringLiteral("NascitaItalia"), scheda->NascitaItalia);
    Cliente.imposta(QStringLiteral("NascitaEstero"), !scheda->NascitaItalia);
    Cliente.imposta(QStringLiteral("DocumentoItalia"), scheda->DocumentoItalia);
    Cliente.imposta(QStringLiteral("DocumentoEstero"), !scheda->DocumentoItalia);
    Maschio = scheda->Maschio;
    Femmina = !scheda->Maschio;
    return true;
}

bool SchedaPrenotazione::ControllaEsistenzaAnagrafica()
{
    if (Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong() > 0)
        return false;
    QVariant trovata;
    if (!Cliente.RagSociale().isEmpty())
        trovata = m_archivio.valore(QStringLiteral("SELECT Indice FROM TabellaAnagrafiche WHERE RagSociale = ?"),
                                    { Cliente.RagSociale() });
    const QString cognome = Cliente.testo(QStringLiteral("Cognome"));
    const QString nome = Cliente.testo(QStringLiteral("Nome"));
    if (!trovata.isValid() && !cognome.isEmpty() && !nome.isEmpty())
        trovata = m_archivio.valore(
            QStringLiteral("SELECT Indice FROM TabellaAnagrafiche WHERE Cognome = ? AND Nome = ?"), { cognome, nome });
    if (!trovata.isValid()
        || !interazione().domandaSiNo(QStringLiteral("Attenzione la scheda cliente già esiste, caricarla?")))
        return false;
    return CaricaDatiCliente(trovata.toLongLong());
}

QList<SchedaPrenotazione::PropostaCliente> SchedaPrenotazione::proposteCliente(const QString& campo,
                                                                               const QString& testo)
{
    SchedaAnagrafica scheda(m_archivio, interazione(), m_sessione.orologio);
    const auto tipo = campo == QLatin1String("Cognome") ? SchedaAnagrafica::CampoNome::Cognome
        : campo == QLatin1String("Nome")                ? SchedaAnagrafica::CampoNome::Nome
                                                        : SchedaAnagrafica::CampoNome::RagSociale;
    QList<PropostaCliente> proposte;
    for (const PropostaNome& p : scheda.proposteNome(tipo, testo))
        proposte.append({ p.testo, p.indice });
    return proposte;
}

} // namespace tomvera
