#pragma once

#include <QtGlobal>
#include <functional>

namespace tomvera {

class Avvio;
class FinestraAvvio;
class UtentiCollegati;
struct Sessione;

// Gives every command of the main window what it does, subsystem by subsystem. A command left out here stays
// hidden on the window. The planning board and the other subsystems add their lines here.
void collegaComandi(FinestraAvvio& finestra, Avvio& avvio, Sessione& sessione);
// Guest card, code tables and price lists. `apriPrenotazione` opens a stored reservation the way the board
// does (the guest card's "Carica Prenotazione Associata").
void collegaArchivi(FinestraAvvio& finestra, Sessione& sessione, std::function<void(qint64)> apriPrenotazione);

} // namespace tomvera
