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
    dopoInserimentoCamera();
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

void SchedaPrenotazione::TrovaPrezzoCamera()
{
    if (!PrezziACamera || numero(PrezzoCamera) != 0)
        return; // a price already typed is never overwritten
    const auto arrivo = leggiData(Arrivo);
    const auto partenza = leggiData(Partenza);
    if (!arrivo || !partenza)
        return;
    prezzi::CalcoloPrezzi calcolo(m_archivio);
    PrezzoCamera
        = formattaNumero(calcolo.CalcolaPrezzoSoggiornoCamera(CodiceTipologia, *arrivo, *partenza, ListinoCamere), 2);
    IvaCamera = formattaNumero(calcolo.TrovaIvaCamera(CodiceTipologia, ListinoCamere), 0, false);
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
