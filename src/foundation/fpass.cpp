#include "foundation/fpass.h"

#include "foundation/archivio.h"
#include "foundation/interazione.h"
#include "foundation/utenti.h"

namespace tomvera {

FPass::FPass(Interazione& interazione, QString passwordMemorizzata, Termina termina)
    : m_interazione(interazione)
    , m_memorizzata(std::move(passwordMemorizzata))
    , m_termina(std::move(termina))
{
}

QString FPass::leggiPassword(Archivio& archivio)
{
    const QVariant v = archivio.valore(QStringLiteral("SELECT Password FROM Configurazioni ORDER BY Indice"));
    return v.isNull() ? QString() : v.toString();
}

bool FPass::Ok_Click()
{
    if (utenti::VerificaPassword(Password, m_memorizzata))
        return true;
    m_interazione.messaggio(QStringLiteral("PASSWORD ERRATA"), {}, Interazione::Icona::Critico);
    if (m_termina)
        m_termina();
    return false;
}

} // namespace tomvera
