#pragma once

#include "foundation/stampanti.h"
#include "reports/modellostampa.h"

#include <QDate>

namespace tomvera {

class Archivio;
class GestioneErrori;

namespace reports {

// The generic list print through the work table Stampa: the table is emptied and filled with "Data di Stampa: "
// and the date, the heading lines, the column titles, a line of dashes, one line per row with the cells joined
// by "|", and a closing line of dashes; the print is then made from what the table holds. The table is shared
// by every user of the archive, so the fill is one transaction.
struct ContenutoStampa
{
    QStringList intestazioni; // heading lines after the date
    QStringList titoliColonne;
    QList<QStringList> righe;
    QStringList chiusura; // lines after the closing dashes
};

// The lines as they go into the table, each cell padded to its column so the text reads as a table too.
QStringList righeStampaGenerica(const ContenutoStampa& contenuto, const QDate& dataStampa);

// Empties Stampa and writes the lines in order of IndiceRif. False when the archive refused the write.
bool riempiStampa(Archivio& archivio, const QStringList& righe);
// The lines of Stampa in order of IndiceRif.
QStringList leggiStampa(Archivio& archivio);

// Reads the table back into a print: the lines before the first dashes are the heading (the last of them, when
// it has "|", the column titles), the lines between the dashes the rows, the lines after them the closing.
ModelloStampa modelloDaRighe(const QStringList& righe, const QString& titolo);

// The printers chosen in the settings, read when a print starts (empty names when the archive can't be read).
StampantiPredefinite stampantiDelleImpostazioni(const QString& percorsoArchivio, GestioneErrori& errori);

} // namespace reports
} // namespace tomvera
