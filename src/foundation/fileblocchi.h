#pragma once

#include <QByteArray>
#include <QString>

namespace tomvera::dettaglio {

// A shared file with byte-range locks, the platform layer of the connected-users list. Locks never wait, and
// belong to this open of the file: a second open in the same process is another owner (Linux: open file
// description locks; Windows: LockFileEx, per handle). They vanish when the file is closed or the process dies.
class FileBlocchi
{
public:
    FileBlocchi() = default;
    ~FileBlocchi();
    FileBlocchi(const FileBlocchi&) = delete;
    FileBlocchi& operator=(const FileBlocchi&) = delete;

    // scrittura: read-write, created if missing; otherwise read-only, and only if the file exists.
    bool apri(const QString& percorso, bool scrittura);
    void chiudi();
    bool aperto() const { return m_maniglia != -1; }

    // Exclusive lock on one byte; false at once if anyone holds it.
    bool blocca(qint64 posizione);
    // Whether another owner (another process, or another open in this one) holds a lock on the byte.
    bool bloccato(qint64 posizione);

    bool scrivi(qint64 posizione, const QByteArray& dati);
    QByteArray leggi(qint64 posizione, int quanti);

private:
    qintptr m_maniglia = -1; // file descriptor or HANDLE
};

} // namespace tomvera::dettaglio
