#include "rooms/tabellone.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"
#include "rooms/disponibilita.h"

#include <QElapsedTimer>
#include <QHash>
#include <QSqlRecord>
#include <algorithm>

namespace tomvera {

namespace {

// A room is held by nights: a stay ending on the first day or starting on the last one doesn't meet it.
const QString periodoCamera
    = QStringLiteral("((Dal < ? AND Al > ?) OR (Dal < ? AND Al > ?) OR (Dal >= ? AND Al <= ?))");

QVariantList parametriPeriodo(const QDate& dal, const QDate& al)
{
    const QString f = dataArchivio(dal);
    const QString t = dataArchivio(al);
    return { f, f, t, t, f, t };
}

struct TipoCamera
{
    double colore = 0;
    int posti = 0;
};

} // namespace

StatoPiano leggiPiano(Archivio& archivio, int piano, const QDate& dal, const QDate& al, int righe, int colonne,
                      const QString& codiceAzienda)
{
    StatoPiano stato;
    if (righe <= 0)
        righe = 1;
    if (colonne <= 0)
        colonne = 1;

    QHash<QString, TipoCamera> tipi;
    auto righeTipi
        = archivio.esegui(QStringLiteral("SELECT CodiceTipologia, Colore, NroPersone FROM TabellaTipologieCamere"));
    if (!righeTipi)
        return stato;
    for (QSqlQuery& q = *righeTipi; q.next();)
        tipi.insert(q.value(0).toString().toLower(), TipoCamera { q.value(1).toDouble(), q.value(2).toInt() });

    // One read of the movements of the floor's rooms: the count per room gives free, occupied or several.
    QHash<QString, int> prenotazioni;
    if (dal.isValid() && al.isValid()) {
        // An OR would walk every stay the floor ever had: the ways of meeting the period become two searches on
        // the room's indexes, by departure from the earlier date and by arrival, which exclude each other.
        const QString filtro = QStringLiteral(
            "SELECT NroCamera FROM TabellaMovimenti WHERE Tipo = 'PrenotazioneCamera' AND PrenotazioneChiusa = 0"
            " AND NroCamera IN (SELECT NroCamera FROM TabellaStrutturaCamere WHERE NroPiano = ?) AND ");
        const QString f = dataArchivio(dal);
        const QString t = dataArchivio(al);
        auto righeMov = archivio.esegui(
            QStringLiteral("SELECT NroCamera, count(*) FROM (") + filtro
                + QStringLiteral("Al > ? AND ((+Dal < ? AND +Al > ?) OR (+Dal < ? AND +Al > ?)) UNION ALL ") + filtro
                + QStringLiteral("Dal >= ? AND +Al <= ?) GROUP BY NroCamera"),
            { piano, std::min(f, t), f, f, t, t, piano, f, t });
        if (!righeMov)
            return stato;
        for (QSqlQuery& q = *righeMov; q.next();)
            prenotazioni[q.value(0).toString().toLower()] += q.value(1).toInt();
    }

    auto camere = archivio.esegui(QStringLiteral("SELECT NroCamera, X, Y, CodiceAzienda, CodiceTipologia"
                                                 " FROM TabellaStrutturaCamere WHERE NroPiano = ? ORDER BY Indice"),
                                  { piano });
    if (!camere)
        return stato;
    int numero = 0;
    for (QSqlQuery& q = *camere; q.next();) {
        Tessera t;
        t.NroCamera = q.value(0).toString();
        t.x = q.value(1).toInt();
        t.y = q.value(2).toInt();
        t.CodiceAzienda = q.value(3).toString();
        t.CodiceTipologia = q.value(4).toString();
        if (t.y >= righe || t.x >= colonne || t.x < 0 || t.y < 0)
            continue;
        if (!codiceAzienda.isEmpty() && QString::compare(t.CodiceAzienda, codiceAzienda, Qt::CaseInsensitive) != 0)
            continue;
        t.numero = ++numero;
        t.prenotazioni = prenotazioni.value(t.NroCamera.toLower());
        t.stato = statoDaPrenotazioni(t.prenotazioni);
        const auto tipo = tipi.constFind(t.CodiceTipologia.toLower());
        if (!t.CodiceTipologia.isEmpty() && tipo != tipi.constEnd()) {
            t.ColoreTipologia = tipo->colore;
            t.posti = tipo->posti;
        }
        stato.tessere.push_back(std::move(t));
    }
    // Persons present for the whole floor at once; a free room shows none by definition.
    const bool occupate = std::any_of(stato.tessere.begin(), stato.tessere.end(),
                                      [](const Tessera& t) { return t.stato != StatoCamera::Libera; });
    if (occupate) {
        const auto persone = PersonePresentiPerCamera(archivio, piano, dal, al);
        if (!persone)
            return stato;
        for (Tessera& t : stato.tessere)
            if (t.stato != StatoCamera::Libera)
                t.personePresenti = persone->value(t.NroCamera.toLower());
    }
    stato.letto = true;
    return stato;
}

QList<int> pianiConCamere(Archivio& archivio)
{
    QList<int> piani;
    for (const QSqlRecord& r :
         archivio.righe(QStringLiteral("SELECT DISTINCT NroPiano FROM TabellaStrutturaCamere ORDER BY NroPiano")))
        piani.append(r.value(0).toInt());
    return piani;
}

// ---------------------------------------------------------------------------------------------------------

Tabellone::Tabellone(Sessione& sessione, QObject* genitore)
    : QObject(genitore)
    , m_sessione(sessione)
{
    TimerAggiorna.setObjectName(QStringLiteral("TimerAggiorna"));
    TimerAggiorna.setSingleShot(true);
    TimerAggiorna.setInterval(400);
    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setSingleShot(true);
    Timer1.setInterval(50);
    TimerInfoCamera.setObjectName(QStringLiteral("TimerInfoCamera"));
    TimerInfoCamera.setSingleShot(true);
    TimerInfoCamera.setInterval(200);
    connect(&TimerAggiorna, &QTimer::timeout, this, &Tabellone::Aggiorna_Click);
    connect(&Timer1, &QTimer::timeout, this, &Tabellone::Aggiorna_Click);
    connect(&TimerInfoCamera, &QTimer::timeout, this, [this] {
        InfoCameraVisibile = false;
        tesseraEvidenziata = 0;
        emit statoCambiato();
    });
    TitoloBase = QStringLiteral("Tomvera");
    Titolo = TitoloBase;
}

Tabellone::~Tabellone() = default;

bool Tabellone::multiAzienda() const
{
    return m_sessione.configurazione->MultiAzienda;
}

int Tabellone::Righe() const
{
    return m_sessione.configurazione->Righe > 0 ? m_sessione.configurazione->Righe : 1;
}

int Tabellone::Colonne() const
{
    return m_sessione.configurazione->Colonne > 0 ? m_sessione.configurazione->Colonne : 1;
}

void Tabellone::Form_Load()
{
    Dal = m_sessione.orologio.oggi();
    Al = Dal.addDays(1);
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri()) {
        Variabili variabili(archivio);
        NroPiano = static_cast<int>(variabili.LeggiVariabileNumero(chiavi::F_Avvio_NroPiano));
        m_grafica = graficaDaNumero(variabili.LeggiVariabileNumero(chiavi::Avvio_Grafica));
        MostraCalendario = variabili.LeggiVariabileNumero(chiavi::F_Avvio_MostraCalendario) != 0;
        InformazioniCamera = variabili.LeggiVariabileNumero(chiavi::Avvio_InformazioniCamera) != 0;
        AbilitaGestioneSpiaggia = variabili.LeggiVariabileBooleana(chiavi::Avvio_AbilitaGestioneSpiaggia);
        // A remembered floor that no longer has rooms falls back to the first one that does.
        const QList<int> piani = pianiConCamere(archivio);
        if (!piani.isEmpty() && !piani.contains(NroPiano))
            NroPiano = piani.first();
    }
    CaricaComboMultiAzienda();
    daRicostruire = true;
}

const Tessera* Tabellone::tessera(int numero) const
{
    if (numero < 1 || numero > static_cast<int>(m_tessere.size()))
        return nullptr;
    return &m_tessere[static_cast<size_t>(numero - 1)];
}

const Tessera* Tabellone::tesseraDiCamera(const QString& nroCamera) const
{
    for (const Tessera& t : m_tessere)
        if (QString::compare(t.NroCamera, nroCamera, Qt::CaseInsensitive) == 0)
            return &t;
    return nullptr;
}

bool Tabellone::dateValide() const
{
    return Dal.isValid() && Al.isValid();
}

bool Tabellone::puoPrenotare() const
{
    return m_sessione.permessi->puo(&PermessiUtente::Prenotazioni);
}

void Tabellone::Aggiorna_Click()
{
    QElapsedTimer tempo;
    tempo.start();
    TimerAggiorna.stop();
    Timer1.stop();
    SelezionaAlVisibile = false;
    if (MostraCalendario)
        CreaCalendario_Click();
    AggiornaGriglia_Click();
    // The widgets redraw here, so the figure in the title includes the drawing.
    emit aggiornato();
    daRicostruire = false;
    ++refreshEseguiti;
    secondiRefresh = static_cast<double>(tempo.nsecsElapsed()) / 1e9;
    Titolo = titoloConRefresh(TitoloBase, secondiRefresh);
    emit statoCambiato();
}

void Tabellone::AggiornaGriglia_Click()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri()) {
        m_tessere.clear();
        return;
    }
    StatoPiano piano
        = leggiPiano(archivio, NroPiano, Dal, Al, Righe(), Colonne(), multiAzienda() ? CodiceAzienda : QString());
    // A floor that could not be read shows nothing rather than another period's state.
    m_tessere = piano.letto ? std::move(piano.tessere) : std::vector<Tessera> {};
    if (m_tessere.empty())
        NessunaCamera = !archivio.esisteRiga(QStringLiteral("SELECT 1 FROM TabellaStrutturaCamere LIMIT 1"));
    else
        NessunaCamera = false;
    if (const auto s = CaricaQtaDisponibilitaCamere(archivio, Dal, Al))
        CamereDisponibili = *s;
    if (const auto s = CaricaQtaPersone(archivio, Dal, Al))
        PersonePresenti = *s;
    SegnaClick(0, 2);
}

void Tabellone::SegnaClick(int numero, int modo)
{
    if (modo == 0) {
        m_segnata = 0;
        m_cameraSegnata.clear();
        return;
    }
    if (modo == 1) {
        const Tessera* t = tessera(numero);
        m_segnata = t ? numero : 0;
        m_cameraSegnata = t ? t->NroCamera : QString();
        return;
    }
    // After a refresh the tile numbers may have moved: the mark follows the room.
    const Tessera* t = m_cameraSegnata.isEmpty() ? nullptr : tesseraDiCamera(m_cameraSegnata);
    m_segnata = t ? t->numero : 0;
}

void Tabellone::CaricaComboMultiAzienda()
{
    Aziende.clear();
    if (!multiAzienda())
        return;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    for (const QSqlRecord& r : archivio.righe(QStringLiteral(
             "SELECT CodiceAzienda FROM ConfigurazioneMultiAzienda WHERE Attivo <> 0 ORDER BY CodiceAzienda")))
        Aziende.append(r.value(0).toString());
}

void Tabellone::CodiceAzienda_Click(const QString& codice)
{
    CodiceAzienda = codice;
    Aggiorna_Click();
}

void Tabellone::Command6_Click()
{
    Dal = m_sessione.orologio.oggi();
    Al = Dal.addDays(1);
    Aggiorna_Click();
}

void Tabellone::avviaTimerAggiorna()
{
    // Restarting the one-shot timer on every click folds a run of clicks into one refresh.
    TimerAggiorna.stop();
    TimerAggiorna.setInterval(m_primoTimerAggiorna ? 400 : 600);
    m_primoTimerAggiorna = false;
    TimerAggiorna.start();
    emit statoCambiato();
}

void Tabellone::MenoArrivo_Click()
{
    if (!dateValide())
        return;
    Dal = Dal.addDays(-1);
    avviaTimerAggiorna();
}

void Tabellone::PiuArrivo_Click()
{
    if (!dateValide())
        return;
    Dal = Dal.addDays(1);
    if (Al <= Dal)
        Al = Dal.addDays(1);
    avviaTimerAggiorna();
}

void Tabellone::MenoPartenza_Click()
{
    if (!dateValide())
        return;
    Al = Al.addDays(-1);
    if (Al <= Dal)
        Dal = Al.addDays(-1);
    avviaTimerAggiorna();
}

void Tabellone::PiuPartenza_Click()
{
    if (!dateValide())
        return;
    Al = Al.addDays(1);
    avviaTimerAggiorna();
}

void Tabellone::Dal_Change(const QDate& data)
{
    if (!data.isValid() || data == Dal)
        return;
    Dal = data;
    if (Al.isValid() && Al <= Dal)
        Al = Dal.addDays(1);
    Timer1.start();
    emit statoCambiato();
}

void Tabellone::Al_Change(const QDate& data)
{
    if (!data.isValid() || data == Al)
        return;
    Al = data;
    if (Dal.isValid() && Al <= Dal)
        Dal = Al.addDays(-1);
    Timer1.start();
    emit statoCambiato();
}

bool Tabellone::TrovaPiano(bool su)
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    const QVariant piano = su ? archivio.valore(QStringLiteral("SELECT NroPiano FROM TabellaStrutturaCamere"
                                                               " WHERE NroPiano > ? ORDER BY NroPiano LIMIT 1"),
                                                { NroPiano })
                              : archivio.valore(QStringLiteral("SELECT NroPiano FROM TabellaStrutturaCamere"
                                                               " WHERE NroPiano < ? ORDER BY NroPiano DESC LIMIT 1"),
                                                { NroPiano });
    if (!piano.isValid() || piano.isNull())
        return false;
    NroPiano = piano.toInt();
    return true;
}

void Tabellone::UpDown1_Click(bool su)
{
    if (!TrovaPiano(su))
        return;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Variabili(archivio).SalvaVariabileNumero(chiavi::F_Avvio_NroPiano, NroPiano);
    Aggiorna_Click();
}

void Tabellone::salvaGrafica(Grafica grafica)
{
    m_grafica = grafica;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Variabili(archivio).SalvaVariabileNumero(chiavi::Avvio_Grafica, static_cast<int>(grafica));
    Aggiorna_Click();
}

void Tabellone::M_Moderno_Click()
{
    salvaGrafica(Grafica::Moderno);
}

void Tabellone::M_Classico_Click()
{
    salvaGrafica(Grafica::Classico);
}

void Tabellone::M_Simbolo_Click()
{
    salvaGrafica(Grafica::Simbolo);
}

void Tabellone::AbilitaGestioneSpiaggia_Click()
{
    AbilitaGestioneSpiaggia = !AbilitaGestioneSpiaggia;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Variabili(archivio).SalvaVariabileBooleana(chiavi::Avvio_AbilitaGestioneSpiaggia, AbilitaGestioneSpiaggia);
    emit statoCambiato();
}

void Tabellone::MostraCalendario_Click(bool attivo)
{
    MostraCalendario = attivo;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Variabili(archivio).SalvaVariabileNumero(chiavi::F_Avvio_MostraCalendario, attivo ? 1 : 0);
    if (!attivo) {
        Striscia.clear();
        Mesi.clear();
    }
    // The strip takes height from the tiles.
    daRicostruire = true;
    Aggiorna_Click();
}

void Tabellone::InformazioniCamera_Click(bool attivo)
{
    InformazioniCamera = attivo;
    if (!attivo) {
        InfoCameraVisibile = false;
        tesseraEvidenziata = 0;
    }
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Variabili(archivio).SalvaVariabileNumero(chiavi::Avvio_InformazioniCamera, attivo ? 1 : 0);
    emit statoCambiato();
}

// ---------------------------------------------------------------------------------------------------------
// Tiles

void Tabellone::tessera_Click(int numero)
{
    const Tessera* t = tessera(numero);
    if (!t)
        return;
    if (t->stato == StatoCamera::Libera)
        Camera_Click(numero);
    else if (t->stato == StatoCamera::Occupata)
        CameraOccupata_Click(numero);
    else
        CameraPiuPrenotazioni_Click(numero);
}

void Tabellone::Camera_Click(int numero)
{
    const Tessera* t = tessera(numero);
    if (!t || !t->usabile())
        return;
    const Tessera camera = *t;
    SegnaClick(numero, 1);
    if (MostraCalendario)
        CreaCalendario_Click();
    emit statoCambiato();
    if (!puoPrenotare())
        return;
    Interazione& ui = m_sessione.interazione;
    if (!dateValide() || Al <= Dal) {
        ui.messaggio(QStringLiteral("Attenzione, impostare correttamente le date!"));
        return;
    }
    RichiestaPrenotazione richiesta;
    richiesta.camere = { CameraSelezionata { camera.NroCamera, Dal, Al } };
    richiesta.CodiceTipologia = camera.CodiceTipologia;
    richiesta.CodiceAzienda = multiAzienda() ? camera.CodiceAzienda : QString();

    if (m_modo == Modo::AggiuntaCamera) {
        AbilitaDisabilita(QStringLiteral("disabilita aggiuntacamere"));
        richiesta.tipo = RichiestaPrenotazione::Tipo::AggiungiCamera;
        if (apriPrenotazione)
            apriPrenotazione(richiesta);
        if (aggiuntaCameraTerminata)
            aggiuntaCameraTerminata();
        return;
    }
    if (m_modo == Modo::Multipla) {
        if (tomvera::CameraGiaSelezionata(Griglia, camera.NroCamera, Dal, Al)) {
            ui.messaggio(QStringLiteral("Attenzione camera già selezionata!"));
            return;
        }
        if (Griglia.size() >= MassimoCamereSelezionate) {
            ui.messaggio(QStringLiteral("Attenzione, non è possibile selezionare più di ")
                         + QString::number(MassimoCamereSelezionate) + QStringLiteral(" camere!"));
            return;
        }
        Griglia.append(richiesta.camere.first());
        // One reservation belongs to one company: the board narrows to the company of the chosen room.
        if (multiAzienda() && QString::compare(camera.CodiceAzienda, CodiceAzienda, Qt::CaseInsensitive) != 0) {
            CodiceAzienda = camera.CodiceAzienda;
            Aggiorna_Click();
        }
        emit statoCambiato();
        return;
    }
    richiesta.tipo = RichiestaPrenotazione::Tipo::Nuova;
    if (apriPrenotazione)
        apriPrenotazione(richiesta);
}

void Tabellone::CameraOccupata_Click(int numero)
{
    cliccaOccupata(numero);
}

void Tabellone::CameraPiuPrenotazioni_Click(int numero)
{
    cliccaOccupata(numero);
}

void Tabellone::cliccaOccupata(int numero)
{
    const Tessera* t = tessera(numero);
    if (!t || !t->usabile())
        return;
    const QString camera = t->NroCamera;
    SegnaClick(numero, 1);
    if (MostraCalendario)
        CreaCalendario_Click();
    emit statoCambiato();
    if (!puoPrenotare())
        return;
    Interazione& ui = m_sessione.interazione;
    // A room in use can't join a new reservation, neither in a selection nor added to an open one.
    if (m_modo != Modo::Normale) {
        ui.messaggio(QStringLiteral("Attenzione camera occupata!"));
        return;
    }
    if (!dateValide()) {
        ui.messaggio(QStringLiteral("Attenzione, impostare correttamente le date!"));
        return;
    }
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    const PrenotazioniCamera p = PiuPrenotazioni(archivio, camera, Dal, Al);
    if (p.piuPrenotazioni) {
        if (apriListaPrenotazioni)
            apriListaPrenotazioni(camera, Dal, Al);
    } else if (p.righe == 1) {
        RichiestaPrenotazione richiesta;
        richiesta.tipo = RichiestaPrenotazione::Tipo::Esistente;
        richiesta.IndicePrenotazioneDaAprire = p.indicePrenotazione;
        richiesta.camere = { CameraSelezionata { camera, Dal, Al } };
        if (apriPrenotazione)
            apriPrenotazione(richiesta);
    } else {
        // Freed by another desk since the last refresh: show the truth first.
        Aggiorna_Click();
    }
}

void Tabellone::Camera_MouseMove(int numero)
{
    if (!InformazioniCamera)
        return;
    const Tessera* t = tessera(numero);
    if (!t) {
        fuoriTessere_MouseMove();
        return;
    }
    TimerInfoCamera.stop();
    if (tesseraEvidenziata == numero && InfoCameraVisibile)
        return;
    tesseraEvidenziata = numero;
    InfoCamera = t->stato == StatoCamera::Libera ? QString()
                                                 : CaricaInfoCamera(t->NroCamera, t->stato == StatoCamera::Occupata);
    InfoCameraVisibile = !InfoCamera.isEmpty();
    emit statoCambiato();
}

void Tabellone::fuoriTessere_MouseMove()
{
    if (tesseraEvidenziata != 0 && !TimerInfoCamera.isActive())
        TimerInfoCamera.start();
}

QString Tabellone::CaricaInfoCamera(const QString& nroCamera, bool singola)
{
    if (!dateValide())
        return {};
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return {};
    const QString ordine = Variabili(archivio).LeggiVariabileBooleana(chiavi::F_Prenotazione_OrdinaperCliente)
        ? QStringLiteral("RagSociale")
        : QStringLiteral("IndiceRiga");
    const auto movimenti = archivio.righe(
        QStringLiteral("SELECT Dal, Al, IndicePrenotazioneAssociata FROM TabellaMovimenti"
                       " WHERE Tipo = 'PrenotazioneCamera' AND NroCamera = ? AND PrenotazioneChiusa = 0 AND ")
            + periodoCamera + QStringLiteral(" ORDER BY Dal"),
        QVariantList { nroCamera } + parametriPeriodo(Dal, Al));
    const auto ospiti = [&](const QSqlRecord& movimento) -> QString {
        QString righe;
        for (const QSqlRecord& o : archivio.righe(QStringLiteral("SELECT RagSociale FROM"
                                                                 " TabellaAnagraficheAssociatePrenotazioni WHERE"
                                                                 " IndicePrenotazioneAssociata = ? AND"
                                                                 " NroCameraCliente = ? ORDER BY ")
                                                      + ordine,
                                                  { movimento.value(2), nroCamera }))
            righe += QStringLiteral("\n  - ") + o.value(0).toString();
        return righe;
    };
    const auto periodo = [](const QSqlRecord& m) -> QString {
        return QStringLiteral("Dal : ") + testoData(dataDaArchivio(m.value(0))) + QStringLiteral(" Al : ")
            + testoData(dataDaArchivio(m.value(1)));
    };
    if (movimenti.isEmpty())
        return {};
    if (singola)
        return QStringLiteral("  ") + periodo(movimenti.first()) + QStringLiteral("  ") + ospiti(movimenti.first());
    QString testo;
    for (int i = 0; i < movimenti.size(); ++i) {
        if (i == 9) {
            testo += QStringLiteral("\n   ......");
            break;
        }
        if (i > 0)
            testo += QLatin1Char('\n');
        testo += QStringLiteral(" ") + periodo(movimenti.at(i)) + ospiti(movimenti.at(i));
    }
    return testo;
}

// ---------------------------------------------------------------------------------------------------------
// Multiple selection and add-room mode

void Tabellone::PrenotazioneMultipla_Click()
{
    if (m_modo == Modo::AggiuntaCamera)
        return;
    m_modo = m_modo == Modo::Multipla ? Modo::Normale : Modo::Multipla;
    Griglia.clear();
    emit statoCambiato();
}

void Tabellone::AnnullaPrenotazioneMultipla_Click()
{
    // Cancelling drops the selection and leaves the multiple mode with its panel.
    Griglia.clear();
    if (m_modo == Modo::Multipla)
        m_modo = Modo::Normale;
    emit statoCambiato();
}

void Tabellone::Prenotazione_Click()
{
    if (!PrenotazioneAbilitata())
        return;
    RichiestaPrenotazione richiesta;
    richiesta.tipo = RichiestaPrenotazione::Tipo::Nuova;
    richiesta.camere = Griglia;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri()) {
        if (const auto r = archivio.riga(QStringLiteral("SELECT CodiceTipologia, CodiceAzienda FROM"
                                                        " TabellaStrutturaCamere WHERE NroCamera = ?"),
                                         { Griglia.first().NroCamera })) {
            richiesta.CodiceTipologia = r->value(0).toString();
            richiesta.CodiceAzienda = multiAzienda() ? r->value(1).toString() : QString();
        }
    }
    Griglia.clear();
    m_modo = Modo::Normale;
    emit statoCambiato();
    if (apriPrenotazione)
        apriPrenotazione(richiesta);
}

const QStringList& Tabellone::controlliAggiuntaCamera()
{
    static const QStringList nomi = {
        QStringLiteral("Menu"),
        QStringLiteral("PrenotazioneMultipla"),
        QStringLiteral("mFile"),
        QStringLiteral("mConfigurazioni"),
        QStringLiteral("mListini"),
        QStringLiteral("mCreditiDebiti"),
        QStringLiteral("mUtility"),
        QStringLiteral("mStampe"),
        QStringLiteral("AggiornamentoOnLine"),
    };
    return nomi;
}

void Tabellone::AbilitaDisabilita(const QString& comando)
{
    const QString c = comando.trimmed().toLower();
    if (c == QLatin1String("abilita aggiuntacamere")) {
        Griglia.clear();
        m_modo = Modo::AggiuntaCamera;
    } else if (c == QLatin1String("disabilita aggiuntacamere")) {
        if (m_modo == Modo::AggiuntaCamera)
            m_modo = Modo::Normale;
    } else {
        return;
    }
    emit statoCambiato();
}

// ---------------------------------------------------------------------------------------------------------
// Day strip

void Tabellone::InizializzaCompontenti(int larghezzaSchermo)
{
    m_giorniStriscia = giorniStriscia(larghezzaSchermo);
}

void Tabellone::CreaCalendario_Click()
{
    if (!MostraCalendario) {
        Striscia.clear();
        Mesi.clear();
        return;
    }
    if (m_giorniStriscia <= 0)
        InizializzaCompontenti(1024);
    CompilaCampiCalendario_Click();
}

void Tabellone::CompilaCampiCalendario_Click()
{
    QList<MovimentoStriscia> movimenti;
    // Two days before the period, so the stays that end in it show where they began.
    const QDate primo = Dal.isValid() ? Dal.addDays(-2) : QDate();
    const QDate ultimo = primo.isValid() ? primo.addDays(m_giorniStriscia) : QDate();
    if (!m_cameraSegnata.isEmpty() && primo.isValid()) {
        Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
        if (archivio.apri()) {
            const auto righe = archivio.righe(
                QStringLiteral("SELECT Dal, Al, IndicePrenotazioneAssociata FROM TabellaMovimenti"
                               " WHERE Tipo = 'PrenotazioneCamera' AND PrenotazioneChiusa = 0 AND NroCamera = ? AND ")
                    + periodoCamera + QStringLiteral(" ORDER BY Dal"),
                QVariantList { m_cameraSegnata } + parametriPeriodo(primo.addDays(-1), ultimo));
            for (const QSqlRecord& r : righe) {
                const qint64 indice = r.value(2).toLongLong();
                movimenti.append(MovimentoStriscia { dataDaArchivio(r.value(0)), dataDaArchivio(r.value(1)), indice,
                                                     PersoneArrivate(archivio, m_cameraSegnata, indice) });
            }
        }
    }
    Striscia = compilaStriscia(primo, m_giorniStriscia, movimenti);
    Mesi = mesiStriscia(Striscia);
}

void Tabellone::giorno_Click(int indice)
{
    if (indice < 0 || indice >= Striscia.size())
        return;
    const QDate giorno = Striscia.at(indice).data;
    if (SelezionaAlVisibile && giorno > Dal) {
        Al = giorno;
        SelezionaAlVisibile = false;
        Aggiorna_Click();
        return;
    }
    // First click, or a day not after the start: it becomes the new start.
    Dal = giorno;
    if (!Al.isValid() || Al <= Dal)
        Al = Dal.addDays(1);
    SelezionaAlVisibile = true;
    emit statoCambiato();
}

} // namespace tomvera
