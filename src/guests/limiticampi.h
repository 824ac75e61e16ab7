#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace tomvera {

namespace schema {
struct Tabella;
}

// Size limits of the text fields, as the table declarations set them: the inputs take them as their maximum
// length and the saves check them, so an overlong text is refused with a message instead of failing at the
// archive.

// Declared size of a text field; 0 for a memo, a field of another type or an unknown one.
int dimensioneTesto(const schema::Tabella& tabella, const QString& campo);
// Size of a field of TabellaAnagrafiche.
int dimensioneCampoAnagrafica(const QString& campo);

// A text that does not fit its field.
struct TestoTroppoLungo
{
    QString campo;
    int dimensione = 0;
};
// The first of the (field, text) pairs that is longer than its field of `tabella`.
std::optional<TestoTroppoLungo> primoTestoTroppoLungo(const schema::Tabella& tabella,
                                                      const QList<std::pair<QString, QString>>& testi);
// "Attenzione, il campo <campo> accetta al massimo <n> caratteri!"
QString messaggioTestoTroppoLungo(const TestoTroppoLungo& t);

} // namespace tomvera
