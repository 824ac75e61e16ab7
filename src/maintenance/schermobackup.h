#pragma once

#include "maintenance/backup.h"

#include <QString>

namespace tomvera {

struct Sessione;

// The screen Backup: the manual backup folder, "Esegui", change folder, open folder.
class SchermoBackup
{
public:
    SchermoBackup(Sessione& sessione, backup::Manutenzione::ArchivioOccupato occupato);

    void Form_Load();
    QString BackupSuHd_Click(); // the backup written, or empty
    bool Command1_Click(); // true when the folder changed
    void ApriCartella_Click();
    // "Ripristina Backup...": choose a backup and put it in place of the archive. True: the program must restart.
    bool RipristinaDb_Click();

    QString PercorsoBackup;
    backup::Manutenzione& manutenzione() { return m_manutenzione; }

private:
    Sessione& m_sessione;
    backup::Manutenzione m_manutenzione;
};

} // namespace tomvera
