#pragma once

#include <QDate>
#include <QList>
#include <QPoint>
#include <QRectF>
#include <QString>
#include <optional>

// The pure rules of the planning board: tile state, labels, geometry, style colours, the day strip.
namespace tomvera {

enum class StatoCamera
{
    Libera,
    Occupata,
    PiuPrenotazioni
};

// "Camera Libera", "Camera Occupata", "CameraPiuPrenotazioni".
QString parolaStato(StatoCamera stato);
// A tile's state from the number of open room rows overlapping the period.
StatoCamera statoDaPrenotazioni(int prenotazioni);

enum class Grafica
{
    Moderno = 0,
    Classico = 1,
    Simbolo = 2
};
Grafica graficaDaNumero(double valore);

// Tiles beyond this number are drawn but keep no data and can't be used.
constexpr int MassimoTessere = 1000;

struct Tessera
{
    int numero = 0; // 1, 2, ... in drawing order
    QString NroCamera;
    StatoCamera stato = StatoCamera::Libera;
    int x = 0, y = 0;
    QString CodiceAzienda;
    QString CodiceTipologia;
    std::optional<double> ColoreTipologia;
    int posti = 0; // NroPersone of the type
    int personePresenti = 0;
    int prenotazioni = 0; // overlapping open room rows
    bool usabile() const { return numero >= 1 && numero <= MassimoTessere; }
};

QString tooltipTessera(const Tessera& tessera);
// The room number, with the marks of the last clicked tile.
QString didascaliaNumero(const Tessera& tessera, bool segnata);

// The places label. A free room shows its places; a room in use shows the persons present against the places
// only for a one-night period, when the label has a border and a colour.
struct EtichettaPosti
{
    QString testo;
    bool bordo = false;
    int colore = 0; // colour value: 255 nobody present, 32768 full, 32896 otherwise (meaningful with bordo)
};
EtichettaPosti etichettaPosti(const Tessera& tessera, const QDate& dal, const QDate& al);

// Square tiles on Righe x Colonne cells (0 counts as 1), the largest that fit, centred horizontally.
struct Geometria
{
    int righe = 1, colonne = 1;
    double lato = 0;
    double sinistra = 0, alto = 0;
    QRectF riquadro(int x, int y) const;
    // The cell under a point, or (-1, -1).
    QPoint cellaIn(const QPointF& punto) const;
};
Geometria Parametri_Click(double larghezza, double altezza, int righe, int colonne, double margine = 8);

// Colours of the style for the frames, the strip shapes and OGGI; whether the menu bar shows.
struct ColoriStile
{
    int sfondoFrame;
    int forme;
    int terzaForma;
    int command6;
    bool barraMenu;
};
ColoriStile coloriStile(Grafica grafica);

// Title with the refresh time: "        (Refresh: x s)".
QString titoloConRefresh(const QString& titolo, double secondi);

// Day strip.
struct MezzaGiornata
{
    qint64 prenotazione = 0; // 0: free
    bool arrivati = false;
    QString didascalia; // ">" arrival, "." departure, "" otherwise
};
struct GiornoStriscia
{
    QDate data;
    MezzaGiornata mattina, pomeriggio;
};
struct MeseStriscia
{
    QString nome;
    int primo = 0; // index of its first day
    int giorni = 0;
};
struct MovimentoStriscia
{
    QDate dal, al;
    qint64 prenotazione = 0;
    bool arrivati = false;
};
// How many days the strip holds for a screen width in pixels: one per 490 twips (about 33 px), plus 4.
int giorniStriscia(int larghezzaPixel);
QList<GiornoStriscia> compilaStriscia(const QDate& primo, int giorni, const QList<MovimentoStriscia>& movimenti);
QList<MeseStriscia> mesiStriscia(const QList<GiornoStriscia>& giorni);

// Selected rooms of the multiple selection: a row conflicts when the room is the same and the periods touch.
struct CameraSelezionata
{
    QString NroCamera;
    QDate Arrivo, Partenza;
};
bool CameraGiaSelezionata(const QList<CameraSelezionata>& griglia, const QString& nroCamera, const QDate& dal,
                          const QDate& al);
constexpr int MassimoCamereSelezionate = 100;

} // namespace tomvera
