#include "foundation/variabili.h"

#include "foundation/archivio.h"

namespace tomvera {

QVariant Variabili::leggi(const QString& campo, const QString& chiave)
{
    return m_archivio.valore(QStringLiteral("SELECT ") + campo + QStringLiteral(" FROM Variabili WHERE NomeVar = ?"),
                             { chiave });
}

bool Variabili::salva(const QString& campo, const QString& chiave, const QVariant& valore)
{
    // NomeVar is NOCASE and unique, so the conflict target matches a key the way the old Seek did.
    return m_archivio.comando(QStringLiteral("INSERT INTO Variabili (NomeVar, ") + campo
                                  + QStringLiteral(") VALUES (?, ?) ON CONFLICT (NomeVar) DO UPDATE SET ") + campo
                                  + QStringLiteral(" = excluded.") + campo,
                              { chiave, valore });
}

bool Variabili::LeggiVariabileBooleana(const QString& chiave)
{
    const QVariant v = leggi(QStringLiteral("ValoreBoolean"), chiave);
    return !v.isNull() && v.toLongLong() != 0;
}

double Variabili::LeggiVariabileNumero(const QString& chiave)
{
    const QVariant v = leggi(QStringLiteral("ValoreNumerico"), chiave);
    return v.isNull() ? 0.0 : v.toDouble();
}

QString Variabili::LeggiVariabileStringa(const QString& chiave)
{
    const QVariant v = leggi(QStringLiteral("ValoreStringa"), chiave);
    return v.isNull() ? QString() : v.toString();
}

bool Variabili::SalvaVariabileBooleana(const QString& chiave, bool valore)
{
    return salva(QStringLiteral("ValoreBoolean"), chiave, valore ? 1 : 0);
}

bool Variabili::SalvaVariabileNumero(const QString& chiave, double valore)
{
    return salva(QStringLiteral("ValoreNumerico"), chiave, valore);
}

bool Variabili::SalvaVariabileStringa(const QString& chiave, const QString& valore)
{
    // ValoreStringa allows zero length: an empty choice is stored as "", never as null.
    return salva(QStringLiteral("ValoreStringa"), chiave, valore.isNull() ? QStringLiteral("") : valore);
}

} // namespace tomvera
