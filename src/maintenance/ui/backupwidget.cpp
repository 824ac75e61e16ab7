#include "maintenance/ui/backupwidget.h"

#include "maintenance/schermobackup.h"

#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace tomvera {

BackupWidget::BackupWidget(std::unique_ptr<SchermoBackup> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
    , m_percorso(new QLabel(this))
{
    setObjectName(QStringLiteral("Backup"));
    setWindowTitle(QStringLiteral("Backup Archivio"));
    auto* titolo = new QLabel(QStringLiteral("CARTELLA DI BACKUP"), this);
    QFont grassetto = titolo->font();
    grassetto.setBold(true);
    titolo->setFont(grassetto);
    m_percorso->setObjectName(QStringLiteral("PercorsoBackup"));
    m_percorso->setFrameShape(QFrame::StyledPanel);
    m_percorso->setMinimumWidth(360);
    m_percorso->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* esegui = new QPushButton(QStringLiteral("Esegui"), this);
    esegui->setObjectName(QStringLiteral("BackupSuHd"));
    esegui->setDefault(true);
    auto* cambia = new QPushButton(QStringLiteral("Cambia cartella..."), this);
    cambia->setObjectName(QStringLiteral("Command1"));
    auto* apri = new QPushButton(QStringLiteral("Apri cartella"), this);
    apri->setObjectName(QStringLiteral("ApriCartella"));
    auto* ripristina = new QPushButton(QStringLiteral("Ripristina Backup..."), this);
    ripristina->setObjectName(QStringLiteral("RipristinaDb"));
    auto* chiudi = new QPushButton(QStringLiteral("Chiudi"), this);
    chiudi->setObjectName(QStringLiteral("Esci"));

    auto* griglia = new QGridLayout(this);
    griglia->addWidget(titolo, 0, 0, 1, 3);
    griglia->addWidget(m_percorso, 1, 0, 1, 3);
    griglia->addWidget(cambia, 2, 0);
    griglia->addWidget(apri, 2, 1);
    griglia->addWidget(ripristina, 2, 2);
    griglia->addWidget(esegui, 3, 0, 1, 2);
    griglia->addWidget(chiudi, 3, 2);

    connect(esegui, &QPushButton::clicked, this, [this] { m_logica->BackupSuHd_Click(); });
    connect(cambia, &QPushButton::clicked, this, [this] {
        if (m_logica->Command1_Click())
            aggiorna();
    });
    connect(apri, &QPushButton::clicked, this, [this] { m_logica->ApriCartella_Click(); });
    connect(ripristina, &QPushButton::clicked, this, [this] {
        if (m_logica->RipristinaDb_Click())
            done(Ripristinato);
    });
    connect(chiudi, &QPushButton::clicked, this, &QDialog::accept);

    m_logica->Form_Load();
    aggiorna();
}

BackupWidget::~BackupWidget() = default;

void BackupWidget::aggiorna()
{
    m_percorso->setText(QDir::toNativeSeparators(m_logica->PercorsoBackup));
}

} // namespace tomvera
