#pragma once

#include <QFile>
#include <QString>

#ifdef Q_OS_LINUX
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace tomvera::test {

// Makes a file or folder read-only for this thread, for an administrator too (who would write anyway).
class SolaLettura
{
public:
    explicit SolaLettura(const QString& percorso)
        : m_percorso(percorso)
        , m_permessi(QFile::permissions(percorso))
    {
        QFile::setPermissions(percorso,
                              QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup
                                  | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther);
#ifdef Q_OS_LINUX
        if (geteuid() == 0) {
            syscall(SYS_capget, &m_testata, m_capacita);
            __user_cap_data_struct ridotte[2] = { m_capacita[0], m_capacita[1] };
            ridotte[0].effective &= ~((1u << CAP_DAC_OVERRIDE) | (1u << CAP_DAC_READ_SEARCH) | (1u << CAP_FOWNER));
            m_ridotte = syscall(SYS_capset, &m_testata, ridotte) == 0;
        }
#endif
    }
    ~SolaLettura()
    {
#ifdef Q_OS_LINUX
        if (m_ridotte)
            syscall(SYS_capset, &m_testata, m_capacita);
#endif
        QFile::setPermissions(m_percorso, m_permessi);
    }

private:
    QString m_percorso;
    QFileDevice::Permissions m_permessi;
#ifdef Q_OS_LINUX
    __user_cap_header_struct m_testata { _LINUX_CAPABILITY_VERSION_3, 0 };
    __user_cap_data_struct m_capacita[2] {};
    bool m_ridotte = false;
#endif
};

} // namespace tomvera::test
