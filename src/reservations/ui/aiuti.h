#pragma once

#include <QComboBox>
#include <QTableWidgetItem>
#include <functional>

namespace tomvera::aiuti {

// Refills a chooser and puts the current text back (also a text not in the list).
inline void riempi(QComboBox* combo, const QStringList& voci, const QString& testo)
{
    combo->clear();
    combo->addItems(voci);
    combo->setCurrentText(testo);
}

// A chooser that reads its list only when opened: the lists can take a scan of the whole archive. Until
// then it holds the current text alone.
class SceltaPigra : public QComboBox
{
public:
    SceltaPigra(const QString& nome, std::function<QStringList()> fornitore, QWidget* genitore)
        : QComboBox(genitore)
        , m_fornitore(std::move(fornitore))
    {
        setObjectName(nome);
    }
    void imposta(const QString& testo)
    {
        clear();
        if (!isEditable())
            addItem(testo);
        setCurrentText(testo);
    }
    void showPopup() override
    {
        riempi(this, m_fornitore(), currentText());
        QComboBox::showPopup();
    }

private:
    std::function<QStringList()> m_fornitore;
};

inline QTableWidgetItem* cella(const QString& testo, bool destra = false)
{
    auto* c = new QTableWidgetItem(testo);
    if (destra)
        c->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return c;
}

} // namespace tomvera::aiuti
