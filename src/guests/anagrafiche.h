#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

namespace tomvera {

class Archivio;
class Interazione;

// One row of TabellaAnagrafiche as the card shows it. Dates are kept as typed; only a real date is stored.
struct Anagrafica
{
    qint64 Indice = 0;
    QString CodiceAnagrafica, RagSociale, Nome, Cognome;
    QString Indirizzo, Cap, Comune, Provincia;
    QString Piva, CodiceFiscale;
    QString Cellulare, Telefono, Fax, Email, Web;
    QString Note;
    QString TipoDocumento, NroDocumento, DataDocumento;
    QString DataNascita, LuogoNascita;
    QString Cittadinanza, Nazione, StatoDiNascita;
    QString LuogoDocumento, ProvinciaDiNascita;
    bool Maschio = true; // MaschioFemmina: "Maschio" or "Femmina"
    bool ResidenzaItaliana = true; // ResidenzaEstera is the other one
    bool NascitaItalia = true;
    bool DocumentoItalia = true;
    QString ResidenzaIstat;

    bool operator==(const Anagrafica& altra) const;
};

std::optional<Anagrafica> caricaAnagrafica(Archivio& archivio, qint64 indice);
// Writes every field in the order of the table: a new row when Indice is 0 (Indice takes the new value),
// else an update of that row. False when the archive refused the write.
bool scriviAnagrafica(Archivio& archivio, Anagrafica& anagrafica);

// Next free code: the largest numeric code plus one ("1" on an empty table); codes that are no number count 0.
QString ProssimoCodiceAnagrafica(Archivio& archivio);
// False, after "Codice anagrafica già utilizzato da: <name>", when another card holds the code.
bool ControllaCodiceAnagrafica(Archivio& archivio, Interazione& interazione, const QString& codice, qint64 indice);
// Guard of the delete: the guest stands on at least one reservation.
bool ClientePresenteInPrenotazioni(Archivio& archivio, qint64 indice);

} // namespace tomvera
