#pragma once

#include "statutory/tracciato.h"

#include <QDate>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <optional>
#include <vector>

namespace tomvera {

class Archivio;

// Which arrived guests the declaration screen lists.
struct FiltroSchedine
{
    QDate dal; // invalid: no lower limit
    QDate al; // invalid: no upper limit
    bool soloDaInviare = true; // "VISUALIZZA SOLO DA INVIARE"; false: "VISUALIZZA TUTTE"
    QString codiceAzienda; // only in multi-company mode; empty: every company
};

// The rows in the screen's (and the file's) order: by arrival, reservation, numeric lodging code, then each
// head's members behind it. nullopt when the archive could not be read.
std::optional<std::vector<RigaSchedina>> leggiRigheSchedine(Archivio& archivio, const FiltroSchedine& filtro);
// The screen's total: the same dates and state, every company.
std::optional<int> contaRigheSchedine(Archivio& archivio, const FiltroSchedine& filtro);

inline const QString NessunErrore = QStringLiteral("Nessun Errore");
// The title of the first field that stops the row from being declared, in the screen's order, or "" when the
// row is complete. Document and residence are asked of heads only.
QString ControllaCorrettezzaRiga(const RigaSchedina& riga);
bool capoAlloggiato(const QString& tipoAlloggiato);

// The code tables of the archive, each name looked up once per export. A name matches whatever the case and
// whatever blanks follow it.
class CodiciArchivio
{
public:
    explicit CodiciArchivio(Archivio& archivio)
        : m_archivio(archivio)
    {
    }
    QString operator()(TabellaCodici tabella, const QString& nome);

private:
    Archivio& m_archivio;
    QHash<QString, QString> m_trovati;
};

// "Creato il 05/03/2016 alle 09:41:07"
QString timbroInvio(const QDateTime& momento);

struct EsitoEsportazione
{
    enum class Stato
    {
        Esportate, // file written and every row stamped
        NessunaRiga, // nothing marked: the day's file is gone
        FileNonScritto, // nothing written in place, nothing stamped
        NonTimbrate // the file is in place but the rows could not be stamped
    };
    Stato stato = Stato::NessunaRiga;
    int esportate = 0;
    QString file;
    QString messaggio; // what to tell the user
};

// Writes the marked rows, in the order given, to the day's file in `cartella` (replacing one of the same
// day) and stamps them as sent. The file is written under a temporary name and put in place only when
// complete; the stamps are one transaction committed only once the file is in place, so a failure while
// writing stamps nothing.
EsitoEsportazione esportaSchedine(Archivio& archivio, const std::vector<RigaSchedina>& marcate, const QString& cartella,
                                  const QDateTime& adesso);

} // namespace tomvera
