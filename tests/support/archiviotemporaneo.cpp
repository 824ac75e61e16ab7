#include "archiviotemporaneo.h"

#include "foundation/schema/creazionedb.h"

#include <QDir>

namespace tomvera::test {

ArchivioTemporaneo::ArchivioTemporaneo(bool crea, const QString& nomeFile)
    : m_percorso(QDir(m_cartella.path()).filePath(nomeFile))
    , m_errori(&m_interazione)
{
    m_errori.setPausa([](double) {});
    if (crea) {
        CreazioneDB::Percorsi percorsi;
        percorsi.archivio = m_percorso;
        percorsi.cartellaImmagini = qEnvironmentVariable("TOMVERA_DATA_DIR") + QStringLiteral("/immagini");
        CreazioneDB(percorsi, m_errori).CreaDB_Click();
    }
    m_archivio = std::make_unique<Archivio>(m_percorso, m_errori);
    m_archivio->apri(Archivio::Apertura::Crea);
}

ArchivioTemporaneo::~ArchivioTemporaneo()
{
    m_archivio.reset();
    Archivio::chiudiConnessioni(m_percorso);
}

} // namespace tomvera::test
