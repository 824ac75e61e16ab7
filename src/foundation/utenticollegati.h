#pragma once

#include <QList>
#include <QString>
#include <memory>

namespace tomvera {

namespace dettaglio {
class FileBlocchi;
}

// Who is using an archive. Beside the archive stands a lock file named after it ("Archivio.mdb" ->
// "Archivio.ldb", the name the old engine used), made of fixed slots of 64 bytes: the machine name (32 bytes)
// and the user name (32 bytes), UTF-8, padded with zeros. A running program holds an operating-system lock on
// one byte of its own slot (beyond the names, so that other machines can still read them) for as long as it
// is registered. The list is the slots whose byte is locked: the system drops the lock of a process that dies
// or of a machine that loses the network, so a crashed program disappears at once, with no clean-up. Names
// left in a free slot are ignored.
struct Collegato
{
    int posizione = 0; // the slot
    QString macchina;
    QString utente;
};

class UtentiCollegati
{
public:
    static constexpr int NumeroPosizioni = 255;
    static constexpr int DimensionePosizione = 64;
    static constexpr int DimensioneNome = 32;

    UtentiCollegati();
    ~UtentiCollegati();
    UtentiCollegati(const UtentiCollegati&) = delete;
    UtentiCollegati& operator=(const UtentiCollegati&) = delete;

    // Takes the first free slot of the archive's lock file, creating the file if needed. Each registration is
    // one user, even two in the same process. False when the file can't be written or every slot is taken.
    bool registra(const QString& percorsoArchivio, const QString& macchina, const QString& utente);
    // Frees the slot (also done by the destructor and, for a killed process, by the system).
    void rilascia();
    bool registrato() const { return m_posizione >= 0; }
    int posizione() const { return m_posizione; }

    // The registrations alive now, this process's own included, in slot order. No lock file: nobody.
    static QList<Collegato> elenco(const QString& percorsoArchivio);
    static QString percorsoFileBlocchi(const QString& percorsoArchivio);
    static QString nomeMacchina();

private:
    std::unique_ptr<dettaglio::FileBlocchi> m_file;
    int m_posizione = -1;
};

// The count of users connected to the archive, read at login: more than 4 refuses the start.
int UtentiCollegatiDB(const QString& percorsoArchivio);

} // namespace tomvera
