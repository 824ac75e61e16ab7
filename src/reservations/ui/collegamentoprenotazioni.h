#pragma once

class QWidget;

namespace tomvera {

struct Sessione;
class Tabellone;

// Gives the board's tile clicks their screens: a free tile (or the multiple selection) opens a new
// F_Prenotazione, an occupied one opens its reservation, a room with several reservations opens
// F_ListaPrenotazioni first, and in add-room mode the chosen room goes into the open reservation. The board
// refreshes when a screen closes after a save or a delete.
void collegaPrenotazioni(Tabellone& tabellone, Sessione& sessione, QWidget* finestra);

} // namespace tomvera
