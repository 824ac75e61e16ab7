#pragma once

#include "foundation/chiavivariabili.h"

#include <QString>
#include <QVariant>

namespace tomvera {

class Archivio;

// Remembered screen choices, table Variabili: one row per key, shared by every user and machine. A key holds
// one kind of value; writing one kind leaves the other two fields of the row as they are. A key never saved
// (or an archive that can't be read) gives false, 0 or "".
class Variabili
{
public:
    explicit Variabili(Archivio& archivio)
        : m_archivio(archivio)
    {
    }

    bool LeggiVariabileBooleana(const QString& chiave);
    double LeggiVariabileNumero(const QString& chiave);
    QString LeggiVariabileStringa(const QString& chiave);

    // Insert or update in one statement, so two front desks saving the same key never collide.
    // False when the archive refused the write (skipped by the error policy).
    bool SalvaVariabileBooleana(const QString& chiave, bool valore);
    bool SalvaVariabileNumero(const QString& chiave, double valore);
    bool SalvaVariabileStringa(const QString& chiave, const QString& valore);

private:
    QVariant leggi(const QString& campo, const QString& chiave);
    bool salva(const QString& campo, const QString& chiave, const QVariant& valore);

    Archivio& m_archivio;
};

} // namespace tomvera
