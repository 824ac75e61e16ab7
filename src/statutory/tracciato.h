#pragma once

#include "guests/tabellecodici.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <functional>
#include <vector>

namespace tomvera {

// One guest row of the declaration screen, as read from the archive (the grid's columns).
struct RigaSchedina
{
    qint64 indice = 0;
    qint64 IndicePrenotazioneAssociata = 0;
    QString Tipodialloggiato;
    QString cognome;
    QString nome;
    QDate dataarrivo;
    QDate datapartenza;
    QString maschiofemmina;
    QDate datanascita;
    QString luogonascita;
    QString provinciadinascita;
    QString statodinascita;
    QString cittadinanza;
    QString comune;
    QString provincia;
    QString nazione;
    QString indirizzo;
    QString tipodocumento;
    QString nrodocumento;
    QString luogodocumento;
    QString nrocameracliente;
    QString StatoInvioTelematico;
    bool nascitaitalia = false;
    bool nascitaestero = false;
    bool documentoitalia = false;
    bool documentoestero = false;
    bool residenzaitaliana = false;
    bool residenzaestera = false;
    QString CodiceTipodialloggiato;
};

// The official code of a name in one of the code tables ("" when unknown).
using CercaCodice = std::function<QString(TabellaCodici, const QString&)>;

namespace tracciato {

constexpr int LunghezzaRecord = 168;
// Positions 1-134 are common to heads and members; a member's 135-168 are bytes of value 0.
constexpr int LunghezzaComune = 134;

// The system's 8-bit code page (Windows-1252 on every platform): one byte per character, '?' for a character
// the code page lacks.
QByteArray windows1252(const QString& testo);
// The text in the code page, cut at the right or filled with blanks to exactly `larghezza` bytes.
QByteArray campo(const QString& testo, int larghezza);

// Days of stay: departure less arrival, at most 30; "00" when either date is missing.
QByteArray giorniPermanenza(const QDate& arrivo, const QDate& partenza);

// A member's record carries no document: its lodging code is 19 (family member) or 20 (group member).
bool codiceMembro(const QString& codiceTipoAlloggiato);

// The record of one row. `sesso` is the sex byte of the previous record of the same file ('\0' before the
// first): a row that is neither "Maschio" nor "Femmina" keeps it, as the police file has always done.
QByteArray record(const RigaSchedina& riga, const CercaCodice& cerca, char& sesso);

// Records separated by CR LF, nothing after the last.
QByteArray file(const std::vector<QByteArray>& records);

// "<cartella>/Schede Notifica del ddmmyyyy.txt"
QString nomeFile(const QString& cartella, const QDate& giorno);

} // namespace tracciato
} // namespace tomvera
