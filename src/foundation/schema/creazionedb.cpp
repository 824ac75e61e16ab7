#include "foundation/schema/creazionedb.h"

#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"

namespace tomvera {

CreazioneDB::CreazioneDB(Percorsi percorsi, GestioneErrori& errori, Registro registro)
    : m_percorsi(std::move(percorsi))
    , m_errori(errori)
    , m_registro(std::move(registro))
{
}

void CreazioneDB::scrivi(const QString& riga)
{
    if (m_registro)
        m_registro(riga);
}

bool CreazioneDB::CreaDB_Click()
{
    Archivio archivio(m_percorsi.archivio, m_errori);
    if (!archivio.apri(Archivio::Apertura::Crea))
        return false;
    scrivi(QStringLiteral("COMANDO ESEGUITO"));
    return true;
}

void CreazioneDB::ValorizzaCampiNulli(Archivio&) { }
void CreazioneDB::AumentaDimensioneCampi(Archivio&) { }
void CreazioneDB::CreaArticoliSpiaggia(Archivio&) { }
bool CreazioneDB::CreaArchivioSky() { return true; }

} // namespace tomvera
