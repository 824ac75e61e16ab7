#pragma once

#include <QDialog>
#include <memory>

class QLabel;

namespace tomvera {

class SchermoBackup;
struct Sessione;

// The screen Backup: shows the manual backup folder and runs the backup there.
class BackupWidget : public QDialog
{
    Q_OBJECT
public:
    // The dialog's result after a restore: the program must end.
    static constexpr int Ripristinato = 2;

    BackupWidget(std::unique_ptr<SchermoBackup> logica, QWidget* genitore = nullptr);
    ~BackupWidget() override;

private:
    void aggiorna();

    std::unique_ptr<SchermoBackup> m_logica;
    QLabel* m_percorso;
};

} // namespace tomvera
