#pragma once

#include <QFormLayout>
#include <QGroupBox>
#include <QString>

// Small layout helpers shared by the files of the settings screen.
namespace tomvera::configurazioniui {

inline QString nomeOggetto(const char* nome)
{
    return QString::fromLatin1(nome);
}

inline QGroupBox* gruppo(const QString& titolo, QLayout* contenuto)
{
    auto* g = new QGroupBox(titolo);
    g->setLayout(contenuto);
    return g;
}

inline QFormLayout* modulo()
{
    auto* f = new QFormLayout;
    f->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    return f;
}

} // namespace tomvera::configurazioniui
