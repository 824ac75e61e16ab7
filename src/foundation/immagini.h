#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <optional>

namespace tomvera {

class Archivio;

// Pictures kept in long binary fields (the hotel logo, the beach pictures). The bytes stored are exactly the
// file's bytes, and a picture read back is written to img_temp.bin in the program's folder, from where the
// caller loads it.

// Where a picture lives: one field of the row whose campoChiave equals chiave.
struct RigaImmagine
{
    QString tabella;
    QString campo;
    QString campoChiave = QStringLiteral("Indice");
    QVariant chiave;
};

enum class ModoImmagine
{
    AddNew, // a new row: the picture and, when chiave is set, the key field
    Edit // the existing row of chiave
};

// The whole file, read in the old order (the remainder of 2048 first, then the full 2048-byte pieces) and
// yielding to the event loop between pieces, so a large file doesn't freeze the screens' timers.
std::optional<QByteArray> leggiFileImmagine(const QString& percorsoFile);

// False when the file can't be read or the archive refused the write; nothing is written then.
bool SalvaImmagine(Archivio& archivio, const RigaImmagine& riga, const QString& percorsoFile, ModoImmagine modo);

// The path of img_temp.bin in cartellaProgramma, or "" when there is no such row, the field is empty or the
// file can't be written.
QString CaricaImmagine(Archivio& archivio, const RigaImmagine& riga, const QString& cartellaProgramma);

} // namespace tomvera
