#pragma once

#include "pricelists/formatilistino.h"
#include "reports/modellostampa.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <vector>

namespace tomvera {

class Archivio;
class Interazione;
struct Sessione;

namespace prezzi {

// The commands the room and the extras price lists run the same way; each screen keeps its own fields,
// validation order and statements around them.

bool puoModificareListini(const Sessione& sessione);
bool listiniSoloLettura(const Sessione& sessione);

void avvisa(Interazione& interazione, const QString& testo);

// Prezzo first, then the VAT: false after the warning, with Focus on the refused field.
bool controllaPrezzoIva(Sessione& sessione, const QString& prezzo, const QString& iva, QString& focus);

// Whether the loaded row is still in the table; nullopt when the user does not want to overwrite it.
std::optional<bool> confermaAggiornamento(Archivio& archivio, Interazione& interazione, const QString& tabella,
                                          qint64 indice);

// Asks and deletes the selected row. nullopt when nothing was tried (no row, answered no, archive closed),
// otherwise whether the delete went through ("Operazione effettuata" already shown).
std::optional<bool> cancellaRiga(Sessione& sessione, const QString& tabella, qint64 indice);

// The rows shown, through the work table Stampa; nullopt when the table refused.
std::optional<reports::ModelloStampa> stampaVisualizzati(Sessione& sessione, const QStringList& intestazioni,
                                                         const QStringList& titoliColonne,
                                                         const std::vector<RigaGriglia>& griglia,
                                                         const QString& titolo);

// The grid row clicked, or nullptr outside the grid.
const RigaGriglia* rigaScelta(const std::vector<RigaGriglia>& griglia, int riga);
// A stored text with its doubled apostrophes undone, so saving it again doubles them once, not twice.
QString comeDigitato(QString testo);

// Grid cells of the stored amounts: empty for a missing value.
QString cellaPrezzo(const QVariant& valore);
QString cellaIva(const QVariant& valore);

} // namespace prezzi
} // namespace tomvera
