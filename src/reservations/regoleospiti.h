#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace tomvera {

struct OspitePrenotazione;

// Lodging types of the guest declaration: three heads (a head stands for itself) and two followers that need a
// head of the matching type with the same arrival date.
namespace tipoalloggiato {
inline const QString OspiteSingolo = QStringLiteral("OSPITE SINGOLO");
inline const QString Capofamiglia = QStringLiteral("CAPOFAMIGLIA");
inline const QString Capogruppo = QStringLiteral("CAPOGRUPPO");
inline const QString Familiare = QStringLiteral("FAMILIARE");
inline const QString MembroGruppo = QStringLiteral("MEMBRO GRUPPO");

const QStringList& tutti();
bool capo(const QString& tipo);
bool seguace(const QString& tipo);
// The head type a follower needs ("" for the heads).
QString tipoCapo(const QString& tipo);
// 1 for the heads, 2 for the others.
int ordinamento(const QString& tipo);
// The official code, used when the code table can't be read.
QString codiceUfficiale(const QString& tipo);
} // namespace tipoalloggiato

const QStringList& paroleTipoTurismo();
const QStringList& paroleMezzoDiTrasporto();

// The name of the first row with the head type the follower needs and the same arrival date; nullopt when none.
std::optional<QString> ControllaEsistenzaCapogruppoFamiglia(const QList<OspitePrenotazione>& righe, const QString& tipo,
                                                            const QString& dataArrivo);
// A row other than `esclusa` (0-based, -1 none) names `nomeCapo` as its head.
bool ControllaAnagraficheAssociate(const QList<OspitePrenotazione>& righe, const QString& nomeCapo, int esclusa);
// The heads a follower can choose: names of the rows of the head type it needs.
QStringList CaricaCapoGruppoFamiglia(const QList<OspitePrenotazione>& righe, const QString& tipo);
// Whether the statutory data of the lodging type are complete (the rule of the required fields).
bool ControllaRegole(const OspitePrenotazione& ospite);
// The fields ControllaRegole wants set for this guest, for the colours of the entry line.
QStringList campiObbligatori(const OspitePrenotazione& ospite);
// The arrival number to propose: after the archive's last (`ultimoInArchivio`, 0 none) and after every number
// already on the list.
int prossimoNroArrivo(int ultimoInArchivio, const QList<OspitePrenotazione>& righe);
// "N° Persone: " and the rows that have a name.
QString testoNumeroPersone(const QList<OspitePrenotazione>& righe);

} // namespace tomvera
