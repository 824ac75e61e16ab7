#include "maintenance/schermobackup.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/piattaforma.h"
#include "foundation/sessione.h"

#include <QDir>

namespace tomvera {

SchermoBackup::SchermoBackup(Sessione& sessione, backup::Manutenzione::ArchivioOccupato occupato)
    : m_sessione(sessione)
    , m_manutenzione(sessione.interazione, sessione.PercorsoDB, piattaforma::cartellaProgramma(), std::move(occupato))
{
}

void SchermoBackup::Form_Load()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    PercorsoBackup = archivio.apri() ? backup::leggiImpostazioni(archivio).cartellaManuale
                                     : piattaforma::cartellaBackupPredefinita();
}

QString SchermoBackup::BackupSuHd_Click()
{
    return m_manutenzione.EseguiBackup(PercorsoBackup, m_sessione.orologio.oggi(),
                                       backup::Manutenzione::Origine::SchermoBackup);
}

bool SchermoBackup::Command1_Click()
{
    const auto scelta = m_sessione.interazione.scegliCartella(QStringLiteral("Backup"), PercorsoBackup);
    if (!scelta || scelta->trimmed().isEmpty())
        return false;
    QString cartella = QDir::cleanPath(*scelta);
    if (!cartella.endsWith(QLatin1Char('/')))
        cartella += QLatin1Char('/');
    PercorsoBackup = QDir::toNativeSeparators(cartella);
    // Remembered for everybody, as the settings screen does (which also adds the row to a fresh archive).
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri()) {
        Configurazione valori = configurazione::leggi(archivio).value_or(Configurazione());
        valori.PercorsoBackup = PercorsoBackup;
        if (configurazione::salva(archivio, valori))
            m_sessione.configurazione->PercorsoBackup = PercorsoBackup;
    }
    return true;
}

void SchermoBackup::ApriCartella_Click()
{
    QDir().mkpath(PercorsoBackup);
    piattaforma::apriCartella(PercorsoBackup);
}

bool SchermoBackup::RipristinaDb_Click()
{
    const auto scelta = m_sessione.interazione.scegliFileDaAprire(QStringLiteral("Ripristina Backup"), PercorsoBackup,
                                                                  QStringLiteral("Backup Tomvera (*.mdb)"));
    if (!scelta || scelta->trimmed().isEmpty())
        return false;
    return m_manutenzione.RipristinaDb(*scelta);
}

} // namespace tomvera
