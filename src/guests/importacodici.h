#pragma once

#include "guests/tabellecodici.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace tomvera {

class Archivio;
class Interazione;

// A sheet read as text cells, header row included.
using Celle = QList<QStringList>;

struct EsitoLettura
{
    std::optional<Celle> celle;
    QString errore; // Italian, when celle is empty
    QList<int> righeFile; // the line (or sheet row) of each cell row, from 1, for the messages
};

// The official CSV: comma separated (semicolon accepted), header row, optional double quotes.
EsitoLettura leggiCsv(const QString& percorso);
// An Excel 97-2003 sheet by name (any case). Dates come out as yyyy-MM-dd, whole numbers without decimals.
EsitoLettura leggiFoglioXls(const QString& percorso, const QString& foglio);
// By the file's extension: .xls through the sheet, anything else as CSV.
EsitoLettura leggiFileCodici(const QString& percorso, const QString& foglio);

struct RigaCodice
{
    QString codice;
    QString descrizione;
    QString provincia;
};

// The official columns by position (the first row is the header): code, description, province, end of validity.
// Ceased municipalities get " (Val. fino al dd/MM/yyyy)"; the lodging types take the words the reservations know.
// nullopt when the sheet has fewer columns than the table needs.
std::optional<QList<RigaCodice>> righeCodici(TabellaCodici tabella, const Celle& celle);
QString parolaTipoAlloggiato(const QString& descrizione);

struct EsitoRigheCodici
{
    std::optional<QList<RigaCodice>> righe; // nullopt: the file must not replace the table, see errore
    QString errore;
    QStringList scartate; // one line per row left out, with its reason: "riga 12: Codice vuoto"
};

// Everything checked before the table is touched: the reading, the header, the columns, each row (empty code
// or description, a field longer than the table takes). Rows that fail are reported and left out; a file with
// no valid row is refused.
EsitoRigheCodici controllaRigheCodici(TabellaCodici tabella, const EsitoLettura& lettura, const QString& file);
// The report of the rows left out, for the end-of-import message (empty when none).
QString testoScartate(const QStringList& scartate);

// Empties the table and writes the rows, all or nothing. Returns the rows written, nullopt on failure.
std::optional<int> scriviRigheCodici(Archivio& archivio, TabellaCodici tabella, const QList<RigaCodice>& righe);

// The menu command that reloads the four tables from the official spreadsheets, one confirmation each.
class ImportazioneTabelle
{
public:
    ImportazioneTabelle(Archivio& archivio, Interazione& interazione);
    void mImportazioneTabelle_Click();
    // One table: file chooser, sheet name, import. False when cancelled or failed.
    bool importa(TabellaCodici tabella);

private:
    Archivio& m_archivio;
    Interazione& m_interazione;
};

} // namespace tomvera
