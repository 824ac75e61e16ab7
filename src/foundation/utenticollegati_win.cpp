// The lock file on Windows.
#include <QtGlobal>

#ifdef Q_OS_WIN

#include "foundation/fileblocchi.h"

#include <QDir>
#include <windows.h>

namespace tomvera::dettaglio {

namespace {

HANDLE maniglia(qintptr m)
{
    return reinterpret_cast<HANDLE>(m);
}

OVERLAPPED aPosizione(qint64 posizione)
{
    OVERLAPPED ov = {};
    ov.Offset = static_cast<DWORD>(static_cast<quint64>(posizione) & 0xffffffffu);
    ov.OffsetHigh = static_cast<DWORD>(static_cast<quint64>(posizione) >> 32);
    return ov;
}

} // namespace

FileBlocchi::~FileBlocchi()
{
    chiudi();
}

bool FileBlocchi::apri(const QString& percorso, bool scrittura)
{
    chiudi();
    // Everyone shares the file: the other front desks open it at the same time.
    const HANDLE h = ::CreateFileW(reinterpret_cast<const wchar_t*>(QDir::toNativeSeparators(percorso).utf16()),
                                   GENERIC_READ | (scrittura ? GENERIC_WRITE : 0),
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   scrittura ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    m_maniglia = reinterpret_cast<qintptr>(h);
    return true;
}

void FileBlocchi::chiudi()
{
    if (m_maniglia != -1)
        ::CloseHandle(maniglia(m_maniglia));
    m_maniglia = -1;
}

bool FileBlocchi::blocca(qint64 posizione)
{
    if (!aperto())
        return false;
    OVERLAPPED ov = aPosizione(posizione);
    return ::LockFileEx(maniglia(m_maniglia), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &ov);
}

bool FileBlocchi::bloccato(qint64 posizione)
{
    if (!aperto())
        return false;
    // Windows can't ask who holds a lock: try a shared one and give it back at once.
    OVERLAPPED ov = aPosizione(posizione);
    if (!::LockFileEx(maniglia(m_maniglia), LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &ov))
        return true;
    OVERLAPPED ov2 = aPosizione(posizione);
    ::UnlockFileEx(maniglia(m_maniglia), 0, 1, 0, &ov2);
    return false;
}

bool FileBlocchi::scrivi(qint64 posizione, const QByteArray& dati)
{
    if (!aperto())
        return false;
    OVERLAPPED ov = aPosizione(posizione);
    DWORD scritti = 0;
    return ::WriteFile(maniglia(m_maniglia), dati.constData(), static_cast<DWORD>(dati.size()), &scritti, &ov)
        && scritti == static_cast<DWORD>(dati.size());
}

QByteArray FileBlocchi::leggi(qint64 posizione, int quanti)
{
    if (!aperto() || quanti <= 0)
        return QByteArray();
    QByteArray dati(quanti, '\0');
    OVERLAPPED ov = aPosizione(posizione);
    DWORD letti = 0;
    if (!::ReadFile(maniglia(m_maniglia), dati.data(), static_cast<DWORD>(quanti), &letti, &ov))
        letti = 0;
    dati.resize(static_cast<int>(letti));
    return dati;
}

} // namespace tomvera::dettaglio

#endif
