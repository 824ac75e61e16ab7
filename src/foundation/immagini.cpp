#include "foundation/immagini.h"

#include "foundation/archivio.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>

namespace tomvera {

namespace {

constexpr qint64 Pezzo = 2048;

// Table and field names go into the SQL text: only plain identifiers are accepted.
bool identificatore(const QString& nome)
{
    static const QRegularExpression re(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return re.match(nome).hasMatch();
}

bool rigaValida(const RigaImmagine& riga)
{
    return identificatore(riga.tabella) && identificatore(riga.campo) && identificatore(riga.campoChiave);
}

void cediAlCicloEventi()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

} // namespace

std::optional<QByteArray> leggiFileImmagine(const QString& percorsoFile)
{
    QFile file(percorsoFile);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const qint64 dimensione = file.size();
    QByteArray dati;
    dati.reserve(dimensione);
    qint64 daLeggere = dimensione % Pezzo;
    if (daLeggere == 0)
        daLeggere = Pezzo;
    while (dati.size() < dimensione) {
        const QByteArray pezzo = file.read(daLeggere);
        if (pezzo.size() != daLeggere)
            return std::nullopt; // the file changed under us
        dati += pezzo;
        cediAlCicloEventi();
        daLeggere = Pezzo;
    }
    return dati;
}

bool SalvaImmagine(Archivio& archivio, const RigaImmagine& riga, const QString& percorsoFile, ModoImmagine modo)
{
    if (!rigaValida(riga))
        return false;
    const auto dati = leggiFileImmagine(percorsoFile);
    if (!dati)
        return false;
    if (modo == ModoImmagine::Edit) {
        if (!archivio.comando(QStringLiteral("UPDATE ") + riga.tabella + QStringLiteral(" SET ") + riga.campo
                                  + QStringLiteral(" = ? WHERE ") + riga.campoChiave + QStringLiteral(" = ?"),
                              { *dati, riga.chiave }))
            return false;
        return archivio.righeModificate() > 0;
    }
    if (riga.chiave.isValid())
        return archivio.comando(QStringLiteral("INSERT INTO ") + riga.tabella + QStringLiteral(" (") + riga.campoChiave
                                    + QStringLiteral(", ") + riga.campo + QStringLiteral(") VALUES (?, ?)"),
                                { riga.chiave, *dati });
    return archivio.comando(QStringLiteral("INSERT INTO ") + riga.tabella + QStringLiteral(" (") + riga.campo
                                + QStringLiteral(") VALUES (?)"),
                            { *dati });
}

QString CaricaImmagine(Archivio& archivio, const RigaImmagine& riga, const QString& cartellaProgramma)
{
    if (!rigaValida(riga))
        return QString();
    const auto record
        = archivio.riga(QStringLiteral("SELECT ") + riga.campo + QStringLiteral(" FROM ") + riga.tabella
                            + QStringLiteral(" WHERE ") + riga.campoChiave + QStringLiteral(" = ? LIMIT 1"),
                        { riga.chiave });
    if (!record)
        return QString();
    const QByteArray dati = record->value(0).toByteArray();
    if (dati.isEmpty())
        return QString();

    const QString percorso = QDir(cartellaProgramma).filePath(QStringLiteral("img_temp.bin"));
    // Written aside and renamed, so a picture still open from the last call is never half overwritten.
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    qint64 posizione = 0;
    qint64 quanti = dati.size() % Pezzo;
    if (quanti == 0)
        quanti = Pezzo;
    while (posizione < dati.size()) {
        if (file.write(dati.constData() + posizione, quanti) != quanti)
            return QString();
        posizione += quanti;
        cediAlCicloEventi();
        quanti = Pezzo;
    }
    return file.commit() ? percorso : QString();
}

} // namespace tomvera
