#include "foundation/utenticollegati.h"

#include "foundation/fileblocchi.h"

#include <QDir>
#include <QFileInfo>
#include <QStringView>
#include <QSysInfo>

namespace tomvera {

namespace {

// The lock bytes stand far past the names: on Windows a locked range can't be read by anyone else.
constexpr qint64 InizioBlocchi = qint64(1) << 30;

qint64 byteDiBlocco(int posizione)
{
    return InizioBlocchi + posizione;
}

qint64 inizioPosizione(int posizione)
{
    return qint64(posizione) * UtentiCollegati::DimensionePosizione;
}

// UTF-8, cut on a character boundary, padded with zeros to the field's size.
QByteArray campoNome(const QString& nome)
{
    QByteArray campo;
    const QString pulito = nome.trimmed();
    for (qsizetype i = 0; i < pulito.size();) {
        const qsizetype lunghezza = pulito.at(i).isHighSurrogate() && i + 1 < pulito.size() ? 2 : 1;
        const QByteArray carattere = QStringView(pulito).mid(i, lunghezza).toUtf8();
        if (campo.size() + carattere.size() > UtentiCollegati::DimensioneNome)
            break;
        campo += carattere;
        i += lunghezza;
    }
    campo.append(UtentiCollegati::DimensioneNome - campo.size(), '\0');
    return campo;
}

QString nomeDaCampo(const QByteArray& campo)
{
    const qsizetype fine = campo.indexOf('\0');
    return QString::fromUtf8(fine < 0 ? campo : campo.left(fine));
}

} // namespace

UtentiCollegati::UtentiCollegati() = default;

UtentiCollegati::~UtentiCollegati()
{
    rilascia();
}

QString UtentiCollegati::percorsoFileBlocchi(const QString& percorsoArchivio)
{
    const QFileInfo info(percorsoArchivio);
    return info.dir().filePath(info.completeBaseName() + QStringLiteral(".ldb"));
}

QString UtentiCollegati::nomeMacchina()
{
    return QSysInfo::machineHostName();
}

bool UtentiCollegati::registra(const QString& percorsoArchivio, const QString& macchina, const QString& utente)
{
    rilascia();
    auto file = std::make_unique<dettaglio::FileBlocchi>();
    if (!file->apri(percorsoFileBlocchi(percorsoArchivio), true))
        return false;
    for (int i = 0; i < NumeroPosizioni; ++i) {
        if (!file->blocca(byteDiBlocco(i)))
            continue;
        if (!file->scrivi(inizioPosizione(i), campoNome(macchina) + campoNome(utente)))
            return false; // closing the file gives the slot back
        m_file = std::move(file);
        m_posizione = i;
        return true;
    }
    return false;
}

void UtentiCollegati::rilascia()
{
    if (!m_file)
        return;
    // Names first, then the lock: a reader never sees a live slot without its names.
    m_file->scrivi(inizioPosizione(m_posizione), QByteArray(DimensionePosizione, '\0'));
    m_file->chiudi();
    m_file.reset();
    m_posizione = -1;
}

QList<Collegato> UtentiCollegati::elenco(const QString& percorsoArchivio)
{
    QList<Collegato> collegati;
    dettaglio::FileBlocchi file;
    if (!file.apri(percorsoFileBlocchi(percorsoArchivio), false))
        return collegati;
    for (int i = 0; i < NumeroPosizioni; ++i) {
        if (!file.bloccato(byteDiBlocco(i)))
            continue;
        const QByteArray dati
            = file.leggi(inizioPosizione(i), DimensionePosizione).leftJustified(DimensionePosizione, '\0', true);
        collegati.append({ i, nomeDaCampo(dati.left(DimensioneNome)), nomeDaCampo(dati.mid(DimensioneNome)) });
    }
    return collegati;
}

int UtentiCollegatiDB(const QString& percorsoArchivio)
{
    return static_cast<int>(UtentiCollegati::elenco(percorsoArchivio).size());
}

} // namespace tomvera
