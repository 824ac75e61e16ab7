#pragma once

#include <QString>
#include <functional>

namespace tomvera {

class Archivio;
class Interazione;

// The gate of the configuration screens: with an administrator's password set, it must be typed first.
// A wrong one ends the program, on purpose: nobody gets a second try at the settings of a running desk.
class FPass
{
public:
    using Termina = std::function<void()>;

    FPass(Interazione& interazione, QString passwordMemorizzata, Termina termina);

    // Reads Password of Configurazioni: the stored value (empty = no gate).
    static QString leggiPassword(Archivio& archivio);

    bool richiesta() const { return !m_memorizzata.isEmpty(); }

    QString Password; // the typed text
    // True: the way is open. False: "PASSWORD ERRATA" was shown and the program is ending.
    bool Ok_Click();

private:
    Interazione& m_interazione;
    QString m_memorizzata;
    Termina m_termina;
};

} // namespace tomvera
