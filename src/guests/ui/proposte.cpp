#include "guests/ui/proposte.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QStringListModel>
#include <memory>

namespace tomvera {

namespace {

// Tab on a highlighted proposal takes it, as Enter and a click do, and lets the focus move on.
class TabSceglie : public QObject
{
public:
    TabSceglie(QAbstractItemView* lista, QLineEdit* campo, std::function<void(int)> scelto)
        : QObject(lista)
        , m_lista(lista)
        , m_campo(campo)
        , m_scelto(std::move(scelto))
    {
    }

protected:
    bool eventFilter(QObject*, QEvent* evento) override
    {
        if (evento->type() == QEvent::KeyPress) {
            const auto* tasto = static_cast<QKeyEvent*>(evento);
            const QModelIndex corrente = m_lista->currentIndex();
            if ((tasto->key() == Qt::Key_Tab || tasto->key() == Qt::Key_Backtab) && corrente.isValid()
                && m_lista->isVisible()) {
                const int riga = corrente.row();
                const int chiave = tasto->key();
                const Qt::KeyboardModifiers modificatori = tasto->modifiers();
                m_lista->hide();
                QMetaObject::invokeMethod(
                    this,
                    [this, riga, chiave, modificatori] {
                        m_scelto(riga);
                        // Then the Tab does what it does in the field: the focus goes on.
                        QKeyEvent avanti(QEvent::KeyPress, chiave, modificatori);
                        QCoreApplication::sendEvent(m_campo, &avanti);
                    },
                    Qt::QueuedConnection);
                return true;
            }
        }
        return false;
    }

private:
    QAbstractItemView* m_lista;
    QLineEdit* m_campo;
    std::function<void(int)> m_scelto;
};

} // namespace

QCompleter* proposteCampo(QLineEdit* campo, std::function<QStringList(const QString&)> trova,
                          std::function<void(int)> scelto)
{
    auto* modello = new QStringListModel(campo);
    auto* c = new QCompleter(modello, campo);
    // Unfiltered: the rows of the popup are the rows of the model, so a choice maps back to its proposal.
    c->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    c->setMaxVisibleItems(12);
    campo->setCompleter(c);
    // The completer writes the highlighted or chosen proposal into the field as if typed: reopening the list
    // then would swallow the next click or key, and glue what comes next onto the wrong field.
    auto scritta = std::make_shared<QString>();
    QObject::connect(c, qOverload<const QString&>(&QCompleter::highlighted), campo,
                     [scritta](const QString& t) { *scritta = t; });
    QObject::connect(c, qOverload<const QString&>(&QCompleter::activated), campo,
                     [scritta](const QString& t) { *scritta = t; });
    QObject::connect(campo, &QLineEdit::textEdited, campo, [=](const QString& testo) {
        if (testo.trimmed().isEmpty()) {
            c->popup()->hide();
            return;
        }
        if (testo == *scritta)
            return;
        scritta->clear();
        modello->setStringList(trova(testo));
        if (modello->rowCount() > 0)
            c->complete();
        else
            c->popup()->hide();
    });
    QObject::connect(
        c, qOverload<const QModelIndex&>(&QCompleter::activated), campo, [=](const QModelIndex& i) { scelto(i.row()); },
        Qt::QueuedConnection);
    c->popup()->installEventFilter(new TabSceglie(c->popup(), campo, scelto));
    return c;
}

void mostraComuniProposti(QListWidget* lista, QFormLayout* modulo, const QList<ComuneProposto>& trovati)
{
    lista->clear();
    for (const ComuneProposto& c : trovati) {
        auto* voce
            = new QListWidgetItem(c.comune + QStringLiteral(" (") + c.provincia + QStringLiteral(") ") + c.cap, lista);
        voce->setData(Qt::UserRole, QStringList { c.comune, c.provincia, c.cap });
    }
    if (modulo)
        modulo->setRowVisible(lista, !trovati.isEmpty());
    if (!trovati.isEmpty())
        lista->setCurrentRow(0);
}

std::optional<ComuneProposto> comuneSceltoDa(const QListWidget* lista)
{
    const QListWidgetItem* voce = lista->currentItem();
    if (!voce)
        return std::nullopt;
    const QStringList v = voce->data(Qt::UserRole).toStringList();
    return ComuneProposto { v.value(0), v.value(1), v.value(2) };
}

} // namespace tomvera
