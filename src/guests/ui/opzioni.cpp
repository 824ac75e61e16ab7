#include "guests/ui/opzioni.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QRadioButton>

namespace tomvera {

QRadioButton* opzione(const char* nome, const QString& testo, QWidget* genitore)
{
    auto* r = new QRadioButton(testo, genitore);
    r->setObjectName(QLatin1String(nome));
    return r;
}

QWidget* coppia(QRadioButton* a, QRadioButton* b, QWidget* genitore)
{
    auto* w = new QWidget(genitore);
    w->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* l = new QHBoxLayout(w);
    l->setContentsMargins(0, 0, 0, 0);
    l->addWidget(a);
    l->addWidget(b);
    l->addStretch();
    auto* gruppo = new QButtonGroup(w);
    gruppo->addButton(a);
    gruppo->addButton(b);
    return w;
}

} // namespace tomvera
