#include "reservations/schedaprenotazione.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/routines.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"
#include "foundation/variabili.h"
#include "pricelists/calcoloprezzi.h"
#include "reservations/regoleospiti.h"
#include "rooms/disponibilita.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

double numero(const QString& testo)
{
    return leggiNumero(testo).value_or(0);
}

QString importo(double valore)
{
    return formattaNumero(valore, 2);
}

} // namespace

SchedaPrenotazione::SchedaPrenotazione(Sessione& sessione, Archivio& archivio)
    : m_sessione(sessione)
    , m_archivio(archivio)
    , m_prenotazioni(archivio)
{
}

Interazione& SchedaPrenotazione::interazione()
{
    return m_sessione.interazione;
}

bool SchedaPrenotazione::multiAzienda() const
{
    return m_sessione.configurazione->MultiAzienda;
}

QString SchedaPrenotazione::EtichettaImposta() const
{
    return m_sessione.configurazione->EtichettaImposta;
}

QString SchedaPrenotazione::EtichettaImpostaLunga() const
{
    return m_sessione.configurazione->EtichettaImpostaLunga;
}

double SchedaPrenotazione::valoreIvaPrenotazioni() const
{
    return m_sessione.configurazione->IvaPrenotazioni;
}

void SchedaPrenotazione::leggiVariabili()
{
    Variabili v(m_archivio);
    ListinoCamere = v.LeggiVariabileStringa(chiavi::F_Prenotazione_ListinoCamere);
    ListinoTrattamenti = v.LeggiVariabileStringa(chiavi::F_Prenotazione_ListinoTrattamenti);
    // A null text would bind as NULL and match no list, not even the one without a name.
    if (ListinoCamere.isNull())
        ListinoCamere = QLatin1String("");
    if (ListinoTrattamenti.isNull())
        ListinoTrattamenti = QLatin1String("");
    m_tipoTrattamentoRicordato = v.LeggiVariabileStringa(chiavi::F_Prenotazione_TipoTrattamento);
    m_tipoAlloggiatoRicordato = v.LeggiVariabileStringa(chiavi::F_Prenotazione_TipoDiAlloggiato);
    if (m_tipoAlloggiatoRicordato.isEmpty())
        m_tipoAlloggiatoRicordato = QStringLiteral("OSPITE SINGOLO");
    NonModificareDatiCliente = v.LeggiVariabileNumero(chiavi::F_Prenotazione_NonModificareDatiCliente) != 0;
    StampaNote = v.LeggiVariabileBooleana(chiavi::F_Prenotazione_StampaNote);
    PrezziACamera = v.LeggiVariabileBooleana(chiavi::F_Prenotazione_PrezziACamera);
    PrezziAPersona = v.LeggiVariabileBooleana(chiavi::F_Prenotazione_PrezziAPersona);
    if (!PrezziACamera && !PrezziAPersona)
        PrezziACamera = true;
    if (PrezziACamera && PrezziAPersona)
        PrezziAPersona = false;
}

void SchedaPrenotazione::Form_Load(qint64 IndicePrenotazioneDaAprire, const QList<CameraSelezionata>& CamereDaPrenotare)
{
    const QDate oggi = m_sessione.orologio.oggi();
    DataPrenotazione = testoData(oggi);
    leggiVariabili();
    PulisciCampiAccessori();

    // The board's rooms, read until the first empty one.
    int posizione = 0;
    for (const CameraSelezionata& c : CamereDaPrenotare) {
        if (c.NroCamera.isEmpty())
            break;
        RigaCamera r;
        r.IndiceRiga = ++posizione;
        r.NroCamera = c.NroCamera;
        r.CodiceTipologiaCamera = m_archivio
                                      .valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaStrutturaCamere "
                                                             "WHERE NroCamera = ?"),
                                              { c.NroCamera })
                                      .toString();
        r.Dal = c.Arrivo;
        r.Al = c.Partenza;
        GrigliaCamerePrenotate.append(r);
    }
    if (!GrigliaCamerePrenotate.isEmpty() && PrezziACamera)
        AggiornaPrezzi_Click();

    NumeroPrenotazione = QString::number(m_prenotazioni.CalcolaNumeroPrenotazione(oggi));
    if (IndicePrenotazioneDaAprire > 0) {
        Indice = IndicePrenotazioneDaAprire;
        AggiornaPrenotazione_Click();
    }
    Command1_Click();
    if (Indice == 0 && GrigliaCamerePrenotate.size() == 1)
        NroCameraCliente_Click(GrigliaCamerePrenotate.first().NroCamera);
    m_modificato = false;
}

void SchedaPrenotazione::Form_Activate()
{
    if (Indice > 0)
        calcolatotali();
}

void SchedaPrenotazione::PulisciCampi()
{
    Indice = 0;
    NumeroPrenotazione.clear();
    DataPrenotazione.clear();
    NotePrenotazione.clear();
    Stato.clear();
    Abbuono = QStringLiteral("0,00");
    RiferimentoDoc.clear();
    RiferimentoData.clear();
    RiferimentoNumero.clear();
    CodiceTourOperator.clear();
    TourOperator.clear();
    Saldato = false;
    PrenotazioneChiusa = false;
    TotaleAcconto = QStringLiteral("0,00");
    Totale = QStringLiteral("0,00");
    GrigliaCamerePrenotate.clear();
    GrigliaAnagrafiche.clear();
    m_accessori.clear();
    TipoSel.clear();
    GrigliaCamerePrenotate_Escape();
    PulisciCampiAccessori();
    Command1_Click();
}

void SchedaPrenotazione::AggiornaPrenotazione_Click()
{
    CaricaPrenotazione();
    CalcolaTotalePrezzoTrattamentoGrigliaAnagrafiche();
    NumeroPersone = testoNumeroPersone(GrigliaAnagrafiche);
    calcolatotali();
}

void SchedaPrenotazione::CaricaPrenotazione()
{
    const auto p = m_prenotazioni.carica(Indice);
    if (!p)
        return;
    // ListinoCamere, Totale and TotaleAcconto are not read back: the chooser keeps the remembered list and the
    // totals are recomputed from the movements.
    DataPrenotazione = p->DataPrenotazione.isValid() ? testoData(p->DataPrenotazione) : QString();
    NumeroPrenotazione = QString::number(p->NumeroPrenotazione);
    NotePrenotazione = p->NotePrenotazione;
    Abbuono = importo(p->Abbuono);
    Stato = p->Stato;
    Saldato = p->Saldato;
    RiferimentoData = p->RiferimentoData.isValid() ? testoData(p->RiferimentoData) : QString();
    RiferimentoNumero = p->RiferimentoNumero;
    RiferimentoDoc = p->RiferimentoDoc;
    CodiceTourOperator = p->CodiceTourOperator;
    TourOperator = p->TourOperator;
    PrezziACamera = p->PrezziACamera;
    PrezziAPersona = !p->PrezziACamera && p->PrezziAPersona;
    PrenotazioneChiusa = p->PrenotazioneChiusa;
    CodiceAzienda = p->CodiceAzienda;
    GrigliaCamerePrenotate = p->camere;
    m_accessori = p->accessori;
    GrigliaAnagrafiche = p->ospiti;
}

// --- Numbering and saving ---------------------------------------------------------------------------------

bool SchedaPrenotazione::ControllaEsistenzaNumeroPrenotazione()
{
    const int numeroPren = static_cast<int>(numero(NumeroPrenotazione));
    const QDate data = leggiData(DataPrenotazione).value_or(QDate());
    if (m_prenotazioni.numeroDisponibile(Indice, numeroPren, data))
        return true;
    interazione().messaggio(QStringLiteral("Il numero di prenotazione è già utilizzato: utilizzarne uno libero"));
    return false;
}

bool SchedaPrenotazione::ControllaCampi()
{
    if (!leggiData(DataPrenotazione)) {
        interazione().messaggio(QStringLiteral("Attenzione valorizzare correttamente la data di prenotazione"));
        return false;
    }
    return ControllaNumero(Abbuono, QStringLiteral("Abbuono"));
}

bool SchedaPrenotazione::ControllaNumero(const QString& testo, const QString& campo)
{
    if (testo.trimmed().isEmpty() || leggiNumero(testo.trimmed()))
        return true;
    interazione().messaggio(QStringLiteral("Attenzione, il campo ") + campo
                            + QStringLiteral(" deve contenere un numero: \"") + testo.trimmed()
                            + QStringLiteral("\" non è valido."));
    return false;
}

void SchedaPrenotazione::Data_LostFocus(QString& testo)
{
    testo = testo.trimmed();
    MascheraData(testo, interazione());
}

bool SchedaPrenotazione::ControllaPermessoModifica()
{
    if (SettaPermessiUtente().Registra)
        return true;
    interazione().messaggio(
        QStringLiteral("Attenzione, l'utente collegato non è abilitato a modificare le prenotazioni!"), {},
        Interazione::Icona::Avviso);
    return false;
}

bool SchedaPrenotazione::TrovataIntersezione()
{
    for (const RigaCamera& r : std::as_const(GrigliaCamerePrenotate)) {
        // A test that did not answer stops the save too: better no save than a double booking.
        const auto impegnata = interrogaCamera(m_archivio, Indice, r.NroCamera, r.Dal, r.Al);
        if (!impegnata && r.Dal.isValid() && r.Al.isValid() && r.Dal < r.Al)
            return true;
        if (impegnata.value_or(false)) {
            interazione().messaggio(QStringLiteral("Attenzione la camera ") + r.NroCamera
                                    + QStringLiteral(" è già impegnata nel periodo selezionato"));
            return true;
        }
    }
    return false;
}

void SchedaPrenotazione::applicaCheckInSky(QList<RigaCamera>& camere)
{
    if (!m_sessione.configurazione->Sky || m_sessione.PercorsoArchivioSky.isEmpty())
        return;
    QStringList arrivati;
    for (const OspitePrenotazione& o : std::as_const(GrigliaAnagrafiche)) {
        if (o.NroArrivo() != 0 && !o.NroCameraCliente().isEmpty())
            arrivati << o.NroCameraCliente();
    }
    if (arrivati.isEmpty())
        return;
    // The pay-TV rooms are listed in the link's own archive.
    Archivio sky(m_sessione.PercorsoArchivioSky, m_sessione.errori);
    if (!sky.apri())
        return;
    for (const QString& camera : std::as_const(arrivati)) {
        if (!sky.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaCamereSky WHERE camera = ?"), { camera }))
            continue;
        for (RigaCamera& c : camere) {
            if (c.NroCamera.compare(camera, Qt::CaseInsensitive) == 0) {
                c.CheckInSky = 1;
                c.CheckOutSky = 0;
            }
        }
    }
}

bool SchedaPrenotazione::Registra_Click()
{
    m_salvato = false;
    if (!ControllaPermessoModifica())
        return false;
    // A number with letters in it would be stored as 0: refused before anything is looked up.
    const QString numeroTesto = NumeroPrenotazione.trimmed();
    bool intero = false;
    const int numeroPren = numeroTesto.toInt(&intero);
    if (!intero || numeroPren <= 0) {
        interazione().messaggio(QStringLiteral("Attenzione, il numero di prenotazione deve essere un numero intero "
                                               "maggiore di zero: \"")
                                + numeroTesto + QStringLiteral("\" non è valido."));
        return false;
    }
    if (!ControllaEsistenzaNumeroPrenotazione() || !ControllaCampi() || TrovataIntersezione())
        return false;
    if (GrigliaCamerePrenotate.isEmpty()) {
        interazione().messaggio(QStringLiteral("Attenzione inserire almeno una camera"));
        return false;
    }
    // Rows without a name are dropped; a reservation with no guest at all needs a confirmation.
    QList<OspitePrenotazione> ospiti;
    for (const OspitePrenotazione& o : std::as_const(GrigliaAnagrafiche)) {
        if (!o.RagSociale().trimmed().isEmpty())
            ospiti.append(o);
    }
    if (ospiti.isEmpty()
        && !interazione().domandaSiNo(
            QStringLiteral("Attenzione non ci sono clienti associati alla prenotazione, continuare?")))
        return false;
    GrigliaAnagrafiche = ospiti;

    AggiornaPlanning = true;
    if (m_prenotazioni.esiste(Indice) && !SalvataggioSilenzioso
        && !interazione().domandaSiNo(
            QStringLiteral("Attenzione si stà aggiornando una prenotazione già esistente. Continuare?")))
        return false;

    // The stored total is the one of what is being saved, whatever the screen showed last.
    CalcolaTotale_Click();
    Prenotazione p;
    p.Indice = Indice;
    p.NumeroPrenotazione = static_cast<int>(numero(NumeroPrenotazione));
    p.DataPrenotazione = leggiData(DataPrenotazione).value_or(QDate());
    p.NotePrenotazione = NotePrenotazione;
    p.ListinoCamere = ListinoCamere;
    p.TotaleAcconto = numero(TotaleAcconto);
    p.Totale = numero(Totale);
    p.Abbuono = numero(Abbuono);
    p.Stato = Stato;
    p.TourOperator = TourOperator;
    p.CodiceTourOperator = CodiceTourOperator;
    p.Saldato = Saldato;
    p.RiferimentoData = leggiData(RiferimentoData).value_or(QDate());
    p.RiferimentoNumero = RiferimentoNumero;
    p.RiferimentoDoc = RiferimentoDoc;
    p.PrezziACamera = PrezziACamera;
    p.PrezziAPersona = PrezziAPersona;
    p.PrenotazioneChiusa = PrenotazioneChiusa;
    p.CodiceAzienda = CodiceAzienda;
    p.camere = GrigliaCamerePrenotate;
    for (RigaCamera& c : p.camere) {
        c.Listino = ListinoCamere;
        c.CheckInSky = 0;
        c.CheckOutSky = 0;
    }
    applicaCheckInSky(p.camere);
    // The full list of extras, whatever TipoSel shows.
    p.accessori = m_accessori;
    p.ospiti = GrigliaAnagrafiche;
    for (int i = 0; i < p.ospiti.size(); ++i)
        p.ospiti[i].imposta(QStringLiteral("IndiceRiga"), i + 1);
    if (!m_prenotazioni.salva(p, multiAzienda()))
        return false; // the error policy has spoken; the archive is as before

    Indice = p.Indice;
    GrigliaCamerePrenotate.clear();
    AggiornaPrenotazione_Click();
    Command1_Click();
    m_modificato = false;
    m_salvato = true;
    if (!SalvataggioSilenzioso)
        operazioneEffettuata(interazione());
    return true;
}

bool SchedaPrenotazione::Cancella_Click()
{
    if (!ControllaPermessoModifica())
        return false;
    if (Indice == 0) {
        interazione().messaggio(QStringLiteral("Attenzione nessuna prenotazione da cancellare!"));
        return false;
    }
    if (!interazione().domandaSiNo(QStringLiteral("Attenzione questa operazione cancellerà la prenotazione e tutti "
                                                  "i movimenti associati. Continuare?")))
        return false;
    AggiornaPlanning = true;
    if (m_prenotazioni.esiste(Indice)
        && !interazione().domandaSiNo(QStringLiteral("Attenzione cancellare la prenotazione?")))
        return false;
    if (!m_prenotazioni.elimina(Indice))
        return false;
    operazioneEffettuata(interazione());
    return true;
}

bool SchedaPrenotazione::Fine_Click()
{
    if (!m_modificato || !SettaPermessiUtente().Registra)
        return true;
    const std::optional<bool> salvare
        = interazione().domandaSiNoAnnulla(QStringLiteral("Salvare le modifiche apportate?"));
    if (!salvare)
        return false;
    if (!*salvare)
        return true;
    return Registra_Click();
}

void SchedaPrenotazione::vaiA(const QString& sql, const QVariantList& parametri)
{
    const QVariant trovato = m_archivio.valore(sql, parametri);
    if (!trovato.isValid())
        return;
    PulisciCampi();
    Indice = trovato.toLongLong();
    AggiornaPrenotazione_Click();
    m_modificato = false;
}

void SchedaPrenotazione::Avanti_Click()
{
    if (Indice == 0)
        vaiA(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni WHERE Indice > 0 ORDER BY Indice DESC LIMIT 1"),
             {});
    else
        vaiA(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni WHERE Indice > ? ORDER BY Indice LIMIT 1"),
             { Indice });
}

void SchedaPrenotazione::Indietro_Click()
{
    if (Indice == 0)
        vaiA(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni WHERE Indice > 0 ORDER BY Indice DESC LIMIT 1"),
             {});
    else
        vaiA(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni WHERE Indice < ? ORDER BY Indice DESC LIMIT 1"),
             { Indice });
}

void SchedaPrenotazione::PrenotazioneChiusa_Click(bool spuntata)
{
    PrenotazioneChiusa = spuntata
        && interazione().okAnnulla(QStringLiteral("Attenzione chiudere la prenotazione solo se si intende riaffittare "
                                                  "le camere per lo stesso periodo!"));
    m_modificato = true;
}

bool SchedaPrenotazione::Command6_Click()
{
    if (!ControllaPermessoModifica())
        return false;
    if (Indice > 0)
        return true;
    interazione().messaggio(
        QStringLiteral("Attenzione! Prima di inserire un acconto è necessario registrare la prenotazione."));
    return false;
}

AbilitazioniPrenotazione SchedaPrenotazione::SettaPermessiUtente() const
{
    AbilitazioniPrenotazione a;
    const PermessiUtente& p = *m_sessione.permessi;
    if (p.amministratore || utenti::eAmministratore(m_sessione.UtenteCollegato))
        return a;
    const bool scrive = p.Prenotazioni && !p.PrenotazioniSoloLettura;
    a.Registra = a.Cancella = a.Command4 = a.Command10 = a.Command6 = scrive;
    a.Command2 = p.Documenti;
    a.Command11 = p.Planning;
    return a;
}

QStringList SchedaPrenotazione::CaricaStato()
{
    QStringList stati;
    const auto righe
        = m_archivio.righe(QStringLiteral("SELECT Stato FROM TabellaPrenotazioni GROUP BY Stato ORDER BY Stato DESC"));
    for (const QSqlRecord& r : righe) {
        const QString s = r.value(0).toString();
        if (!s.isEmpty() && s.compare(QStringLiteral("Saldato"), Qt::CaseInsensitive) != 0)
            stati << s;
    }
    return stati;
}

namespace {

QStringList colonna(Archivio& archivio, const QString& sql)
{
    QStringList valori;
    for (const QSqlRecord& r : archivio.righe(sql))
        valori << r.value(0).toString();
    return valori;
}

} // namespace

QStringList SchedaPrenotazione::sceltaListiniCamere()
{
    return colonna(m_archivio,
                   QStringLiteral("SELECT Listino FROM TabellaListinoCamere GROUP BY Listino ORDER BY Listino"));
}

QStringList SchedaPrenotazione::sceltaListiniTrattamenti()
{
    return colonna(m_archivio,
                   QStringLiteral("SELECT Listino FROM TabellaListinoCamereAPersona GROUP BY Listino "
                                  "ORDER BY Listino DESC"));
}

QStringList SchedaPrenotazione::sceltaTipologie()
{
    return colonna(m_archivio,
                   QStringLiteral("SELECT CodiceTipologia FROM TabellaTipologieCamere "
                                  "GROUP BY CodiceTipologia ORDER BY CodiceTipologia"));
}

QStringList SchedaPrenotazione::sceltaTourOperator()
{
    return colonna(m_archivio,
                   QStringLiteral("SELECT RagSociale FROM TabellaTourOperator WHERE RagSociale <> '' "
                                  "GROUP BY RagSociale ORDER BY RagSociale"));
}

void SchedaPrenotazione::TourOperator_Click(const QString& ragioneSociale)
{
    TourOperator = ragioneSociale;
    const QVariant codice = m_archivio.valore(
        QStringLiteral("SELECT Codice FROM TabellaTourOperator WHERE RagSociale = ? ORDER BY Indice LIMIT 1"),
        { ragioneSociale });
    if (codice.isValid())
        CodiceTourOperator = codice.toString();
    m_modificato = true;
}

QStringList SchedaPrenotazione::sceltaCamere()
{
    QStringList camere;
    for (const RigaCamera& r : std::as_const(GrigliaCamerePrenotate)) {
        if (!camere.contains(r.NroCamera))
            camere << r.NroCamera;
    }
    return camere;
}

} // namespace tomvera
