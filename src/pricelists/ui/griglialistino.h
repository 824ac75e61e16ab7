#pragma once

#include "pricelists/formatilistino.h"

#include <QStringList>
#include <functional>
#include <vector>

class QComboBox;
class QTableWidget;
class QWidget;

namespace tomvera::prezzi {

// What the two price-list screens share on screen: the grid with the hidden Indice in column 0, the choosers
// refilled after each command, the focus a refused command asks for.
// The wide columns share the room left by the others, which take what their texts need.
void preparaGriglia(QTableWidget& griglia, const QStringList& titoli, const QList<int>& colonneNumeriche,
                    const QList<int>& colonneLarghe);
void riempiGriglia(QTableWidget& griglia, const std::vector<RigaGriglia>& righe, const QList<int>& colonneNumeriche);
void riempiScelta(QComboBox& scelta, const QStringList& voci, const QString& testo);
void mettiFocus(QWidget& schermo, const QString& controllo);
// In a price a typed "." is the decimal comma.
void virgolaDecimale(QWidget& campo);

} // namespace tomvera::prezzi
