#pragma once

#include <QString>
#include <optional>

namespace tomvera {

class Archivio;

// Single-row lookups of the catalogues: one field of the row whose key equals the value, or the empty value
// ("" or std::nullopt) when there is no such row or the archive can't be read. Keys compare without regard
// to case, as everywhere in the archive.

// Rooms: TabellaTipologieCamere and TabellaStrutturaCamere.
std::optional<double> ColoreTipologiaCamera(Archivio& archivio, const QString& codiceTipologia);
// The board finds a tile's room type from its colour: the colour is unique among types.
QString TipologiaDaColore(Archivio& archivio, double colore);
// The type of a room, by its number.
QString CodiceTipologiaCamera(Archivio& archivio, const QString& nroCamera);
QString NomeTipologiaCamera(Archivio& archivio, const QString& codiceTipologia);
bool EsisteCamera(Archivio& archivio, const QString& nroCamera);

// Beach items: TabellaTipologieArticoliSpiaggia.
std::optional<double> ColoreArticoloSpiaggia(Archivio& archivio, const QString& codiceArticolo);
QString ArticoloDaColore(Archivio& archivio, double colore); // CodiceArticolo
QString DescrizioneArticoloSpiaggia(Archivio& archivio, const QString& codiceArticolo); // Articolo
QString CodiceArticoloSpiaggia(Archivio& archivio, const QString& articolo); // by name
bool EsisteArticoloSpiaggia(Archivio& archivio, const QString& codiceArticolo);
// False only for an item whose Tipo is "Non Prenotabile" (scenery: walkways, the bathing establishment).
bool ArticoloPrenotabile(Archivio& archivio, const QString& codiceArticolo);

// Beach sectors: TabellaSettoriSpiaggia.
std::optional<double> ColoreSettoreSpiaggia(Archivio& archivio, const QString& codiceSettore);
QString SettoreDaColore(Archivio& archivio, double colore); // CodiceSettore
QString DescrizioneSettoreSpiaggia(Archivio& archivio, const QString& codiceSettore); // Settore
QString CodiceSettoreSpiaggia(Archivio& archivio, const QString& settore); // by name
bool EsisteSettoreSpiaggia(Archivio& archivio, const QString& codiceSettore);

// Beach equipment: TabellaTipologieAttrezzatureSpiaggia.
QString DescrizioneAttrezzaturaSpiaggia(Archivio& archivio, const QString& codiceAttrezzatura); // Attrezzatura
bool EsisteAttrezzaturaSpiaggia(Archivio& archivio, const QString& codiceAttrezzatura);

// Beach packages: TabellaTipologiePacchettiSpiaggia.
QString DescrizionePacchettoSpiaggia(Archivio& archivio, const QString& codicePacchetto); // Pacchetto
bool EsistePacchettoSpiaggia(Archivio& archivio, const QString& codicePacchetto);

} // namespace tomvera
