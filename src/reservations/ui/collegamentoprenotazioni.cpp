#include "reservations/ui/collegamentoprenotazioni.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/sessione.h"
#include "guests/schedaanagrafica.h"
#include "guests/ui/schedaanagraficawidget.h"
#include "reservations/acconti.h"
#include "reservations/schedaprenotazione.h"
#include "reservations/ui/accontiwidget.h"
#include "reservations/ui/prenotazionewidget.h"
#include "rooms/tabellone.h"

#include <QPointer>
#include <QTimer>
#include <memory>

namespace tomvera {

namespace {

struct Collegamento
{
    Tabellone& tabellone;
    Sessione& sessione;
    QWidget* finestra;
    QPointer<PrenotazioneWidget> aperta; // the screen waiting for a room from the board

    void apri(const RichiestaPrenotazione& richiesta);
    void aggiungiCamera(const RichiestaPrenotazione& richiesta);
    void lista(const QString& nroCamera, const QDate& dal, const QDate& al);
};

void Collegamento::apri(const RichiestaPrenotazione& richiesta)
{
    if (richiesta.tipo == RichiestaPrenotazione::Tipo::AggiungiCamera) {
        aggiungiCamera(richiesta);
        return;
    }
    auto archivio = std::make_shared<Archivio>(sessione.PercorsoDB, sessione.errori);
    if (!archivio->apri())
        return;
    auto logica = std::make_unique<SchedaPrenotazione>(sessione, *archivio);
    logica->CodiceAzienda = richiesta.CodiceAzienda;
    if (richiesta.tipo == RichiestaPrenotazione::Tipo::Esistente)
        logica->Form_Load(richiesta.IndicePrenotazioneDaAprire);
    else
        logica->Form_Load(0, richiesta.camere);
    auto* widget = new PrenotazioneWidget(std::move(logica), finestra);
    widget->setAttribute(Qt::WA_DeleteOnClose);
    widget->setWindowModality(Qt::ApplicationModal);
    Tabellone* tabelloneP = &tabellone;
    Sessione* sessioneP = &sessione;
    // The archive lives as long as the screen: the connection's functor goes with the widget.
    QObject::connect(widget, &QDialog::finished, widget, [widget, tabelloneP, archivio](int) {
        if (widget->logica().AggiornaPlanning)
            tabelloneP->Aggiorna_Click();
    });
    QObject::connect(widget, &PrenotazioneWidget::apriAcconti, widget, [widget, sessioneP, archivio](qint64 indice) {
        AccontiWidget acconti(std::make_unique<SchedaAcconti>(*archivio, sessioneP->interazione, sessioneP->orologio,
                                                              SchedaAcconti::Modo::Camere, indice),
                              widget);
        acconti.exec();
    });
    QObject::connect(widget, &PrenotazioneWidget::apriSchedaCliente, widget,
                     [widget, sessioneP, archivio](qint64 indiceCliente) {
                         auto scheda = std::make_unique<SchedaAnagrafica>(*sessioneP, *archivio);
                         if (indiceCliente > 0)
                             scheda->carica(indiceCliente);
                         SchedaAnagraficaWidget finestraScheda(std::move(scheda), widget);
                         finestraScheda.exec();
                         // The card may have changed: the entry line takes it again.
                         if (indiceCliente > 0 && widget->logica().CaricaDatiCliente(indiceCliente))
                             widget->aggiorna();
                     });
    QObject::connect(widget, &PrenotazioneWidget::aggiungiCamera, widget, [this, widget] {
        aperta = widget;
        widget->hide();
        widget->setWindowModality(Qt::NonModal);
        tabellone.AbilitaDisabilita(QStringLiteral("abilita aggiuntacamere"));
    });
    // The add-room mode left without a room: the screen comes back as it was. Queued, so that a tile click,
    // which also ends the mode, first hands its room over.
    QObject::connect(&tabellone, &Tabellone::statoCambiato, widget, [this, widget] {
        QTimer::singleShot(0, widget, [this, widget] {
            if (aperta == widget && tabellone.modo() != Tabellone::Modo::AggiuntaCamera) {
                aperta.clear();
                widget->setWindowModality(Qt::ApplicationModal);
                widget->show();
                widget->raise();
            }
        });
    });
    widget->show();
}

void Collegamento::aggiungiCamera(const RichiestaPrenotazione& richiesta)
{
    if (!aperta || richiesta.camere.isEmpty())
        return;
    PrenotazioneWidget* widget = aperta;
    aperta.clear();
    SchedaPrenotazione& l = widget->logica();
    const CameraSelezionata& c = richiesta.camere.first();
    l.NC = c.NroCamera;
    l.CodiceTipologia = richiesta.CodiceTipologia;
    l.Arrivo = testoData(c.Arrivo);
    l.Partenza = testoData(c.Partenza);
    l.PrezzoCamera.clear();
    l.TrovaPrezzoCamera();
    widget->aggiorna();
    widget->setWindowModality(Qt::ApplicationModal);
    widget->show();
    widget->raise();
}

void Collegamento::lista(const QString& nroCamera, const QDate& dal, const QDate& al)
{
    QList<VoceListaPrenotazioni> voci;
    {
        Archivio archivio(sessione.PercorsoDB, sessione.errori);
        if (!archivio.apri())
            return;
        voci = caricaListaPrenotazioni(archivio, nroCamera, dal, al);
    }
    if (const qint64 indice = scegliPrenotazione(voci, nroCamera, finestra)) {
        RichiestaPrenotazione richiesta;
        richiesta.tipo = RichiestaPrenotazione::Tipo::Esistente;
        richiesta.IndicePrenotazioneDaAprire = indice;
        apri(richiesta);
    }
}

} // namespace

void collegaPrenotazioni(Tabellone& tabellone, Sessione& sessione, QWidget* finestra)
{
    auto collegamento = std::make_shared<Collegamento>(Collegamento { tabellone, sessione, finestra, {} });
    tabellone.apriPrenotazione = [collegamento](const RichiestaPrenotazione& r) { collegamento->apri(r); };
    tabellone.apriListaPrenotazioni = [collegamento](const QString& camera, const QDate& dal, const QDate& al) {
        collegamento->lista(camera, dal, al);
    };
}

} // namespace tomvera
