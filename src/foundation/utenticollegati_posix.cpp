// The lock file on Linux and the other POSIX systems.
#include <QtGlobal>

#ifndef Q_OS_WIN

#include "foundation/fileblocchi.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tomvera::dettaglio {

namespace {

// Open file description locks belong to the open, not to the process: a second registration in the same
// process then counts as another user, and closing an unrelated descriptor of the file (as classic POSIX locks
// would) can't drop our slot.
#ifdef F_OFD_SETLK
constexpr int ImpostaBlocco = F_OFD_SETLK;
constexpr int LeggiBlocco = F_OFD_GETLK;
#else
constexpr int ImpostaBlocco = F_SETLK;
constexpr int LeggiBlocco = F_GETLK;
#endif

struct flock bloccoSuByte(qint64 posizione)
{
    struct flock fl = {};
    fl.l_type = F_WRLCK;
    fl.l_whence = SEEK_SET;
    fl.l_start = static_cast<off_t>(posizione);
    fl.l_len = 1;
    fl.l_pid = 0; // required by the open file description calls
    return fl;
}

int descrittore(qintptr maniglia)
{
    return static_cast<int>(maniglia);
}

} // namespace

FileBlocchi::~FileBlocchi()
{
    chiudi();
}

bool FileBlocchi::apri(const QString& percorso, bool scrittura)
{
    chiudi();
    const QByteArray nome = QFile::encodeName(percorso);
    const int flag = scrittura ? (O_RDWR | O_CREAT | O_CLOEXEC) : (O_RDONLY | O_CLOEXEC);
    int fd;
    do {
        fd = ::open(nome.constData(), flag, 0666);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return false;
    m_maniglia = fd;
    return true;
}

void FileBlocchi::chiudi()
{
    if (m_maniglia != -1)
        ::close(descrittore(m_maniglia));
    m_maniglia = -1;
}

bool FileBlocchi::blocca(qint64 posizione)
{
    if (!aperto())
        return false;
    struct flock fl = bloccoSuByte(posizione);
    return ::fcntl(descrittore(m_maniglia), ImpostaBlocco, &fl) == 0;
}

bool FileBlocchi::bloccato(qint64 posizione)
{
    if (!aperto())
        return false;
    struct flock fl = bloccoSuByte(posizione);
    if (::fcntl(descrittore(m_maniglia), LeggiBlocco, &fl) != 0)
        return false;
    return fl.l_type != F_UNLCK;
}

bool FileBlocchi::scrivi(qint64 posizione, const QByteArray& dati)
{
    if (!aperto())
        return false;
    const ssize_t scritti = ::pwrite(descrittore(m_maniglia), dati.constData(), static_cast<size_t>(dati.size()),
                                     static_cast<off_t>(posizione));
    return scritti == static_cast<ssize_t>(dati.size());
}

QByteArray FileBlocchi::leggi(qint64 posizione, int quanti)
{
    if (!aperto() || quanti <= 0)
        return QByteArray();
    QByteArray dati(quanti, '\0');
    const ssize_t letti
        = ::pread(descrittore(m_maniglia), dati.data(), static_cast<size_t>(quanti), static_cast<off_t>(posizione));
    dati.resize(letti > 0 ? static_cast<int>(letti) : 0);
    return dati;
}

} // namespace tomvera::dettaglio

#endif
