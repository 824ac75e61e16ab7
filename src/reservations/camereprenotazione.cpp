// The room list of F_Prenotazione: entry line, checks, prices per room or per person.
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"
#include "pricelists/calcoloprezzi.h"
#include "reservations/schedaprenotazione.h"
#include "rooms/disponibilita.h"

#include <cmath>

namespace tomvera {

namespace {

double numero(const QString& testo)
{
    return leggiNumero(testo).value_or(0);
}

} // namespace

double SchedaPrenotazione::TotaleCamerePrenotate() const
{
    double totale = 0;
    for (const RigaCamera& r : GrigliaCamerePrenotate)
        totale += r.Avere;
    return totale;
}

void SchedaPrenotazione::rinumeraCamere()
{
    for (int i = 0; i < GrigliaCamerePrenotate.size(); ++i)
        GrigliaCamerePrenotate[i].IndiceRiga = i + 1;
}

void SchedaPrenotazione::Command7_Click()
{
    if (multiAzienda() && !NC.isEmpty() && !CodiceAzienda.isEmpty()) {
        const QString aziendaCamera
            = m_archivio
                  .valore(QStringLiteral("SELECT CodiceAzienda FROM TabellaStrutturaCamere WHERE NroCamera = ?"),
                          { NC })
                  .toString();
        if (aziendaCamera.compare(CodiceAzienda, Qt::CaseInsensitive) != 0) {
            interazione().messaggio(QStringLiteral("OPERAZIONE NON POSSIBILE!\n\nCamera associata all'azienda ")
                                    + aziendaCamera);
            return;
        }
    }
    const auto arrivo = leggiData(Arrivo);
    const auto partenza = leggiData(Partenza);
    if (NC.trimmed().isEmpty() || !arrivo || !partenza) {
        interazione().messaggio(QStringLiteral("Selezionare correttamente i campi"));
        return;
    }
    if (*arrivo >= *partenza) {
        interazione().messaggio(QStringLiteral("Valorizzare correttamente le date"));
        return;
    }
    if (!ControllaNumero(PrezzoCamera, QStringLiteral("Prezzo"))
        || !ControllaNumero(IvaCamera, m_sessione.configurazione->EtichettaImpostaLunga))
        return;
    if (!m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaStrutturaCamere WHERE NroCamera = ?"), { NC })
        && !interazione().domandaSiNo(
            QStringLiteral("Attenzione la camera selezionata non esiste, continuare comunque?")))
        return;
    bool impegnata = CameraOccupataNelPeriodo(m_archivio, Indice, NC, *arrivo, *partenza);
    for (const RigaCamera& r : std::as_const(GrigliaCamerePrenotate))
        impegnata = impegnata || IntersezioneCamere(r.NroCamera, r.Dal, r.Al, NC, *arrivo, *partenza);
    if (impegnata) {
        interazione().messaggio(QStringLiteral("Attenzione il periodo è già impegnato da una prenotazione"));
        return;
    }

    // The price the list gives for what the line holds now (new dates, new type), unless typed by hand.
    if (PrezziACamera && (m_prezzoDaListino || numero(PrezzoCamera) == 0))
        TrovaPrezzoCamera();

    RigaCamera riga;
    riga.NroCamera = NC.trimmed();
    riga.CodiceTipologiaCamera = CodiceTipologia;
    riga.Dal = *arrivo;
    riga.Al = *partenza;
    riga.Avere = PrezziAPersona ? 0 : numero(PrezzoCamera);
    riga.Iva = numero(IvaCamera);
    if (riga.Iva == 0)
        riga.Iva = valoreIvaPrenotazioni();
    if (IndiceRigaCamere > 0 && IndiceRigaCamere <= GrigliaCamerePrenotate.size())
        GrigliaCamerePrenotate.insert(IndiceRigaCamere - 1, riga);
    else
        GrigliaCamerePrenotate.append(riga);
    rinumeraCamere();
    if (m_rigaRipresa)
        spostaOspitiCamera(*m_rigaRipresa, riga);
    dopoInserimentoCamera();
}

void SchedaPrenotazione::spostaOspitiCamera(const RigaCamera& prima, const RigaCamera& dopo)
{
    if (prima.Dal == dopo.Dal && prima.Al == dopo.Al && prima.NroCamera == dopo.NroCamera)
        return;
    // Only the guests that still carry the room's old stay: one with dates of their own stays as typed.
    QList<int> daSpostare;
    for (int i = 0; i < GrigliaAnagrafiche.size(); ++i) {
        const OspitePrenotazione& o = GrigliaAnagrafiche.at(i);
        if (o.NroCameraCliente().compare(prima.NroCamera, Qt::CaseInsensitive) == 0
            && o.data(QStringLiteral("DataArrivo")) == prima.Dal && o.data(QStringLiteral("DataPartenza")) == prima.Al)
            daSpostare << i;
    }
    if (daSpostare.isEmpty())
        return;
    const QString quanti = daSpostare.size() == 1 ? QStringLiteral("l'ospite registrato")
                                                  : QStringLiteral("i %1 ospiti registrati").arg(daSpostare.size());
    if (!interazione().domandaSiNo(
            QStringLiteral("Attenzione, la camera ") + dopo.NroCamera + QStringLiteral(" è ora prenotata dal ")
            + testoData(dopo.Dal) + QStringLiteral(" al ") + testoData(dopo.Al) + QStringLiteral(".\nSpostare anche ")
            + quanti + QStringLiteral(" nella camera ") + prima.NroCamera + QStringLiteral(" dal ")
            + testoData(prima.Dal) + QStringLiteral(" al ") + testoData(prima.Al) + QStringLiteral("?")))
        return;
    for (int i : std::as_const(daSpostare)) {
        OspitePrenotazione& o = GrigliaAnagrafiche[i];
        o.imposta(QStringLiteral("NroCameraCliente"), dopo.NroCamera);
        o.imposta(QStringLiteral("DataArrivo"), dopo.Dal);
        o.imposta(QStringLiteral("DataPartenza"), dopo.Al);
        ricalcolaTrattamento(o);
    }
}

void SchedaPrenotazione::ricalcolaTrattamento(OspitePrenotazione& ospite) const
{
    const QString tipo = ospite.testo(QStringLiteral("TipoTrattamento"));
    const QDate arrivo = ospite.data(QStringLiteral("DataArrivo"));
    const QDate partenza = ospite.data(QStringLiteral("DataPartenza"));
    if (PrezziACamera) {
        // The board's addition is a price per day: the nights change, the price stays.
        const double prezzo = ospite.valore(QStringLiteral("PrezzoTrattamento")).toDouble();
        ospite.imposta(QStringLiteral("TotalePrezzoTrattamento"),
                       prezzi::CalcolaTotalePrezzoTrattamento(tipo, prezzo, arrivo, partenza));
    } else if (!ListinoTrattamenti.isEmpty() && !tipo.isEmpty()) {
        const double prezzo = prezzi::CalcoloPrezzi(m_archivio)
                                  .CalcolaPrezzoSoggiornoPersona(tipo, arrivo, partenza, ListinoTrattamenti);
        ospite.imposta(QStringLiteral("PrezzoTrattamento"), prezzo);
        ospite.imposta(QStringLiteral("TotalePrezzoTrattamento"), prezzo);
    }
}

void SchedaPrenotazione::dopoInserimentoCamera()
{
    GrigliaCamerePrenotate_Escape();
    if (RigaClienteSelezionato == 0)
        Command1_Click();
    if (GrigliaCamerePrenotate.size() == 1)
        NroCameraCliente_Click(GrigliaCamerePrenotate.first().NroCamera);
    m_modificato = true;
    CalcolaTotale_Click();
}

void SchedaPrenotazione::GrigliaCamerePrenotate_DblClick(int riga)
{
    if (riga < 0 || riga >= GrigliaCamerePrenotate.size())
        return;
    const RigaCamera r = GrigliaCamerePrenotate.at(riga);
    NC = r.NroCamera;
    CodiceTipologia = r.CodiceTipologiaCamera;
    Arrivo = r.Dal.isValid() ? testoData(r.Dal) : QString();
    Partenza = r.Al.isValid() ? testoData(r.Al) : QString();
    PrezzoCamera = PrezziAPersona ? QString() : formattaNumero(r.Avere, 2);
    IvaCamera = formattaNumero(r.Iva, 0, false);
    IndiceRigaCamere = r.IndiceRiga;
    m_rigaRipresa = r;
    m_prezzoDaListino = false;
    if (PrezziACamera && r.Dal.isValid() && r.Al.isValid()) {
        // A price equal to the list's was the list's: it follows new dates. Anything else was typed and stays.
        const double listino = prezzi::CalcoloPrezzi(m_archivio)
                                   .CalcolaPrezzoSoggiornoCamera(r.CodiceTipologiaCamera, r.Dal, r.Al, ListinoCamere);
        m_prezzoDaListino = std::abs(listino - r.Avere) < 0.005;
    }
    // Taken back: the row lives only in the entry line until it is inserted again.
    GrigliaCamerePrenotate.removeAt(riga);
    rinumeraCamere();
    m_modificato = true;
    CalcolaTotale_Click();
}

void SchedaPrenotazione::GrigliaCamerePrenotate_Escape()
{
    NC.clear();
    CodiceTipologia.clear();
    Arrivo.clear();
    Partenza.clear();
    PrezzoCamera.clear();
    IvaCamera.clear();
    IndiceRigaCamere = 0;
    m_rigaRipresa.reset();
    m_prezzoDaListino = false;
}

void SchedaPrenotazione::NC_LostFocus()
{
    if (!NC.isEmpty()) {
        const QString tipo = m_archivio
                                 .valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaStrutturaCamere "
                                                        "WHERE NroCamera = ?"),
                                         { NC })
                                 .toString();
        if (!tipo.isEmpty())
            CodiceTipologia = tipo;
    }
    TrovaPrezzoCamera();
}

void SchedaPrenotazione::CodiceTipologia_Click(const QString& tipo)
{
    CodiceTipologia = tipo;
    TrovaPrezzoCamera();
}

void SchedaPrenotazione::PrezzoCamera_Change()
{
    m_prezzoDaListino = false;
}

void SchedaPrenotazione::TrovaPrezzoCamera()
{
    if (!PrezziACamera || (numero(PrezzoCamera) != 0 && !m_prezzoDaListino))
        return; // a price typed by hand is never overwritten
    const auto arrivo = leggiData(Arrivo);
    const auto partenza = leggiData(Partenza);
    if (!arrivo || !partenza)
        return;
    prezzi::CalcoloPrezzi calcolo(m_archivio);
    PrezzoCamera
        = formattaNumero(calcolo.CalcolaPrezzoSoggiornoCamera(CodiceTipologia, *arrivo, *partenza, ListinoCamere), 2);
    IvaCamera = formattaNumero(calcolo.TrovaIvaCamera(CodiceTipologia, ListinoCamere), 0, false);
    m_prezzoDaListino = true;
}

void SchedaPrenotazione::AggiornaPrezziCamere()
{
    prezzi::CalcoloPrezzi calcolo(m_archivio);
    calcolo.ListinoCompleto = true;
    for (RigaCamera& r : GrigliaCamerePrenotate) {
        r.Avere = calcolo.CalcolaPrezzoSoggiornoCamera(r.CodiceTipologiaCamera, r.Dal, r.Al, ListinoCamere);
        r.Iva = calcolo.TrovaIvaCamera(r.CodiceTipologiaCamera, ListinoCamere);
        if (r.Iva == 0)
            r.Iva = valoreIvaPrenotazioni();
    }
    Label10 = calcolo.ListinoCompleto
        ? QString()
        : QStringLiteral("ATTENZIONE! - IL LISTINO PREZZI NON E' COMPLETO PER IL PERIODO SELEZIONATO");
}

void SchedaPrenotazione::AggiornaPrezzi_Click()
{
    if (!PrezziACamera)
        return;
    AggiornaPrezziCamere();
    m_modificato = true;
    CalcolaTotale_Click();
}

void SchedaPrenotazione::ListinoCamere_Click(const QString& listino)
{
    ListinoCamere = listino;
    Variabili(m_archivio).SalvaVariabileStringa(chiavi::F_Prenotazione_ListinoCamere, listino);
    AggiornaPrezzi_Click();
}

void SchedaPrenotazione::ListinoTrattamenti_Click(const QString& listino)
{
    ListinoTrattamenti = listino;
    Variabili(m_archivio).SalvaVariabileStringa(chiavi::F_Prenotazione_ListinoTrattamenti, listino);
    CalcolaTrattamento();
}

void SchedaPrenotazione::SettaListinoPrezzi()
{
    Variabili v(m_archivio);
    v.SalvaVariabileBooleana(chiavi::F_Prenotazione_PrezziACamera, PrezziACamera);
    v.SalvaVariabileBooleana(chiavi::F_Prenotazione_PrezziAPersona, PrezziAPersona);
    if (PrezziACamera) {
        if (Indice == 0)
            AggiornaPrezziCamere();
    } else {
        // Per person the whole amount is in the guests' treatments: room prices are emptied.
        for (RigaCamera& r : GrigliaCamerePrenotate)
            r.Avere = 0;
        PrezzoCamera.clear();
        Label10.clear();
    }
    m_modificato = true;
    CalcolaTotale_Click();
}

void SchedaPrenotazione::PrezziACamera_Click()
{
    PrezziACamera = true;
    PrezziAPersona = false;
    SettaListinoPrezzi();
}

void SchedaPrenotazione::PrezziAPersona_Click()
{
    PrezziACamera = false;
    PrezziAPersona = true;
    SettaListinoPrezzi();
}

} // namespace tomvera
