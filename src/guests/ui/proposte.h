#pragma once

#include "guests/schedaanagrafica.h"

#include <QStringList>
#include <functional>
#include <optional>

class QCompleter;
class QFormLayout;
class QLineEdit;
class QListWidget;

namespace tomvera {

// A popup of proposals under a field, refreshed from `trova` as the user types; picking one (click, Enter or
// Tab) calls `scelto` with its row, after the completer has written its text, so the choice has the last word.
QCompleter* proposteCampo(QLineEdit* campo, std::function<QStringList(const QString&)> trova,
                          std::function<void(int)> scelto);

// The towns found for a postal code, name or province, one line "Comune (PR) CAP" each, in the list under the
// residence; the list's row shows only when something was found, with the first town current.
void mostraComuniProposti(QListWidget* lista, QFormLayout* modulo, const QList<ComuneProposto>& trovati);

// The town of the list's current line, if any.
std::optional<ComuneProposto> comuneSceltoDa(const QListWidget* lista);

} // namespace tomvera
