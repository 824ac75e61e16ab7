#pragma once

#include "rooms/tabelloneregole.h"

#include <QDate>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

namespace tomvera {

class Archivio;
struct Sessione;

// What a click on a tile asks of the reservation screens.
struct RichiestaPrenotazione
{
    enum class Tipo
    {
        Nuova, // a new F_Prenotazione for the rooms
        AggiungiCamera, // the open F_Prenotazione gets one more room
        Esistente // F_Prenotazione loads IndicePrenotazioneDaAprire
    };
    Tipo tipo = Tipo::Nuova;
    QList<CameraSelezionata> camere;
    QString CodiceTipologia; // of the first room
    QString CodiceAzienda;
    qint64 IndicePrenotazioneDaAprire = 0;
};

// The rooms of one floor, read once per refresh: what the board draws and the CLI lists.
struct StatoPiano
{
    std::vector<Tessera> tessere;
    bool letto = false; // false: the archive did not answer
};
// Tiles of the floor in table order, rooms outside Righe x Colonne and of other companies left out.
StatoPiano leggiPiano(Archivio& archivio, int piano, const QDate& dal, const QDate& al, int righe, int colonne,
                      const QString& codiceAzienda = {});
// The floors that hold rooms, ascending.
QList<int> pianiConCamere(Archivio& archivio);

// The planning board of Avvio, without widgets: period, floor, company filter, tiles as values, the marked
// tile, the multiple selection, the add-room mode and the day strip. The widgets copy from here and forward
// clicks; the reservation screens are reached through the callbacks.
class Tabellone : public QObject
{
    Q_OBJECT
public:
    enum class Modo
    {
        Normale,
        Multipla,
        AggiuntaCamera
    };

    explicit Tabellone(Sessione& sessione, QObject* genitore = nullptr);
    ~Tabellone() override;

    // Reads the remembered choices (floor, style, strip, beach) and sets today's period.
    void Form_Load();

    // Period and floor.
    QDate Dal, Al;
    int NroPiano = 0;
    QString CodiceAzienda; // company filter, multi-company mode only; empty = all
    QStringList Aziende; // CaricaComboMultiAzienda
    bool multiAzienda() const;
    int Righe() const;
    int Colonne() const;

    // Options.
    Grafica grafica() const { return m_grafica; }
    bool MostraCalendario = false;
    bool InformazioniCamera = false;
    bool AbilitaGestioneSpiaggia = false;

    // Results of the last refresh.
    const std::vector<Tessera>& tessere() const { return m_tessere; }
    const Tessera* tessera(int numero) const;
    const Tessera* tesseraDiCamera(const QString& nroCamera) const;
    QString CamereDisponibili; // "Camere Disponibili: n"
    QString PersonePresenti; // "Persone Presenti: n"
    bool NessunaCamera = false; // the archive has no rooms at all yet
    QString TitoloBase;
    QString Titolo;
    double secondiRefresh = 0;
    int refreshEseguiti = 0;
    bool daRicostruire = true;

    // The marked tile (0: none) and its room, kept across refreshes.
    int tesseraSegnata() const { return m_segnata; }
    QString cameraSegnata() const { return m_cameraSegnata; }
    void SegnaClick(int numero, int modo);

    // Commands.
    void Aggiorna_Click();
    void AggiornaGriglia_Click();
    void CaricaComboMultiAzienda();
    void CodiceAzienda_Click(const QString& codice);
    void Command6_Click(); // OGGI
    void MenoArrivo_Click();
    void PiuArrivo_Click();
    void MenoPartenza_Click();
    void PiuPartenza_Click();
    // A date typed in the fields: keeps Al after Dal and refreshes shortly.
    void Dal_Change(const QDate& data);
    void Al_Change(const QDate& data);
    // Next (true) or previous floor that has rooms; false when there is none.
    bool TrovaPiano(bool su);
    void UpDown1_Click(bool su);
    void M_Moderno_Click();
    void M_Classico_Click();
    void M_Simbolo_Click();
    void AbilitaGestioneSpiaggia_Click();
    void MostraCalendario_Click(bool attivo);
    void InformazioniCamera_Click(bool attivo);

    // Tiles.
    void Camera_Click(int numero);
    void CameraOccupata_Click(int numero);
    void CameraPiuPrenotazioni_Click(int numero);
    void tessera_Click(int numero); // by the tile's state
    // Hover: fills the information text and shows it until TimerInfoCamera fires.
    void Camera_MouseMove(int numero);
    void fuoriTessere_MouseMove(); // the pointer left the tiles: hide shortly
    QString CaricaInfoCamera(const QString& nroCamera, bool singola);
    bool InfoCameraVisibile = false;
    QString InfoCamera;
    int tesseraEvidenziata = 0;

    // Multiple selection.
    Modo modo() const { return m_modo; }
    QList<CameraSelezionata> Griglia;
    void PrenotazioneMultipla_Click();
    void Prenotazione_Click();
    void AnnullaPrenotazioneMultipla_Click();
    bool PrenotazioneAbilitata() const { return m_modo == Modo::Multipla && !Griglia.isEmpty(); }

    // Add-room mode: "abilita aggiuntacamere" / "disabilita aggiuntacamere".
    void AbilitaDisabilita(const QString& comando);
    // Controls disabled while a room is being added to an open reservation.
    static const QStringList& controlliAggiuntaCamera();

    // Day strip.
    void InizializzaCompontenti(int larghezzaSchermo);
    void CreaCalendario_Click();
    void CompilaCampiCalendario_Click();
    void giorno_Click(int indice);
    QList<GiornoStriscia> Striscia;
    QList<MeseStriscia> Mesi;
    int giorniDellaStriscia() const { return m_giorniStriscia; }
    bool SelezionaAlVisibile = false;
    static QString testoSelezionaAl() { return QStringLiteral("Seleziona A Data ..."); }

    // The deferred refreshes: a run of arrow clicks costs one refresh.
    QTimer TimerAggiorna;
    QTimer Timer1;
    QTimer TimerInfoCamera;

    // Where the tile clicks lead (the reservation screens set these).
    std::function<void(const RichiestaPrenotazione&)> apriPrenotazione;
    std::function<void(const QString& nroCamera, const QDate& dal, const QDate& al)> apriListaPrenotazioni;
    // The open reservation was told which room to add (add-room mode ends).
    std::function<void()> aggiuntaCameraTerminata;

signals:
    void aggiornato(); // after every refresh: the widgets copy the state
    void statoCambiato(); // mode, selection, hints, information frame

private:
    bool puoPrenotare() const;
    bool dateValide() const;
    void avviaTimerAggiorna();
    void salvaGrafica(Grafica grafica);
    void cliccaOccupata(int numero);

    Sessione& m_sessione;
    std::vector<Tessera> m_tessere;
    Grafica m_grafica = Grafica::Moderno;
    int m_segnata = 0;
    QString m_cameraSegnata;
    Modo m_modo = Modo::Normale;
    int m_giorniStriscia = 0;
    bool m_primoTimerAggiorna = true;
};

} // namespace tomvera
