#pragma once

#include <QWidget>

namespace tomvera::test {

// A control of a screen by its objectName; a missing one ends the test at once, naming it.
template <typename T> T* trova(QWidget& w, const char* nome)
{
    T* c = w.findChild<T*>(QLatin1String(nome));
    if (!c)
        qFatal("controllo mancante: %s", nome);
    return c;
}

} // namespace tomvera::test
