#pragma once

#include <QObject>

namespace tomvera {

class FinestraAvvio;
class PannelloTabellone;
struct Sessione;
class Tabellone;

// Puts the planning board into the main window: its central area, the Grafica menu, the rooms' configuration,
// the beach switch, the title with the refresh time, the refresh on activation and the add-room mode, which
// disables the window's menus while a room is being chosen.
class TabelloneAvvio : public QObject
{
    Q_OBJECT
public:
    TabelloneAvvio(FinestraAvvio& finestra, Sessione& sessione);
    ~TabelloneAvvio() override;

    Tabellone& logica() { return *m_tabellone; }
    PannelloTabellone* pannello() const { return m_pannello; }
    // Menus and buttons that follow the board's state (style ticks, beach, add-room mode).
    void applicaAllaFinestra();
    // The web page of "Assistenza Remota": Variabili key Avvio_IndirizzoAssistenzaRemota, else the maker's.
    static QString indirizzoAssistenzaRemota(Sessione& sessione);

private:
    FinestraAvvio& m_finestra;
    Sessione& m_sessione;
    Tabellone* m_tabellone = nullptr;
    PannelloTabellone* m_pannello = nullptr;
    QString m_titoloFinestra;
};

} // namespace tomvera
