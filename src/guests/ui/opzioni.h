#pragma once

#include <QString>

class QRadioButton;
class QWidget;

namespace tomvera {

// A radio button named after its control, as the guest card and the reservation's guest line build them.
QRadioButton* opzione(const char* nome, const QString& testo, QWidget* genitore);

// Two exclusive options side by side (Italia/Estero); each pair is a group of its own.
QWidget* coppia(QRadioButton* a, QRadioButton* b, QWidget* genitore);

} // namespace tomvera
