#pragma once

#include <QComboBox>
#include <QTableWidgetItem>

namespace tomvera::aiuti {

// Refills a chooser and puts the current text back (also a text not in the list).
inline void riempi(QComboBox* combo, const QStringList& voci, const QString& testo)
{
    combo->clear();
    combo->addItems(voci);
    combo->setCurrentText(testo);
}

inline QTableWidgetItem* cella(const QString& testo, bool destra = false)
{
    auto* c = new QTableWidgetItem(testo);
    if (destra)
        c->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return c;
}

} // namespace tomvera::aiuti
