#pragma once

#include <QStringList>
#include <functional>

class QCompleter;
class QLineEdit;

namespace tomvera {

// A popup of proposals under a field, refreshed from `trova` as the user types; picking one (click, Enter or
// Tab) calls `scelto` with its row, after the completer has written its text, so the choice has the last word.
QCompleter* proposteCampo(QLineEdit* campo, std::function<QStringList(const QString&)> trova,
                          std::function<void(int)> scelto);

} // namespace tomvera
