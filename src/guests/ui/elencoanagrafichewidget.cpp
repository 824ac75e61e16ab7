#include "guests/ui/elencoanagrafichewidget.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

ElencoAnagraficheWidget::ElencoAnagraficheWidget(Ricerca ricerca, QWidget* genitore)
    : QDialog(genitore)
    , m_ricerca(std::move(ricerca))
{
    setObjectName(QStringLiteral("F_ElencoAnagrafiche"));
    setWindowTitle(QStringLiteral("Elenco Anagrafiche"));
    auto* colonna = new QVBoxLayout(this);
    auto* riga = new QHBoxLayout;
    m_filtro = new QLineEdit(this);
    m_filtro->setObjectName(QStringLiteral("Ricerca"));
    m_filtro->setPlaceholderText(QStringLiteral("Nome, codice o città"));
    riga->addWidget(new QLabel(QStringLiteral("Cerca"), this));
    riga->addWidget(m_filtro, 1);
    colonna->addLayout(riga);
    m_griglia = new QTableWidget(0, 4, this);
    m_griglia->setObjectName(QStringLiteral("Griglia"));
    m_griglia->setHorizontalHeaderLabels({ QStringLiteral("Codice"), QStringLiteral("Ragione Sociale"),
                                           QStringLiteral("Città"), QStringLiteral("Data di Nascita") });
    m_griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_griglia->setSelectionMode(QAbstractItemView::SingleSelection);
    m_griglia->verticalHeader()->hide();
    m_griglia->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_griglia->horizontalHeader()->setStretchLastSection(true);
    colonna->addWidget(m_griglia, 1);
    auto* comandi = new QHBoxLayout;
    auto* seleziona = new QPushButton(QStringLiteral("Seleziona"), this);
    seleziona->setObjectName(QStringLiteral("Seleziona"));
    auto* esci = new QPushButton(QStringLiteral("Esci"), this);
    esci->setObjectName(QStringLiteral("Fine"));
    for (QPushButton* p : { seleziona, esci })
        p->setAutoDefault(false);
    comandi->addStretch(1);
    comandi->addWidget(seleziona);
    comandi->addWidget(esci);
    colonna->addLayout(comandi);
    resize(720, 480);

    connect(m_filtro, &QLineEdit::textEdited, this, &ElencoAnagraficheWidget::aggiorna);
    connect(m_griglia, &QTableWidget::cellDoubleClicked, this, &ElencoAnagraficheWidget::conferma);
    connect(seleziona, &QPushButton::clicked, this, &ElencoAnagraficheWidget::conferma);
    connect(esci, &QPushButton::clicked, this, &QDialog::reject);
    m_filtro->installEventFilter(this);
    m_griglia->installEventFilter(this);
    aggiorna();
}

void ElencoAnagraficheWidget::aggiorna()
{
    m_voci = m_ricerca(m_filtro->text());
    m_griglia->setRowCount(static_cast<int>(m_voci.size()));
    for (int r = 0; r < m_voci.size(); ++r) {
        const VoceElencoAnagrafiche& v = m_voci.at(r);
        const QStringList celle { v.codice, v.ragSociale, v.comune, v.dataNascita };
        for (int c = 0; c < celle.size(); ++c)
            m_griglia->setItem(r, c, new QTableWidgetItem(celle.at(c)));
    }
    if (!m_voci.isEmpty())
        m_griglia->selectRow(0);
}

void ElencoAnagraficheWidget::conferma()
{
    const int r = m_griglia->currentRow();
    if (r < 0 || r >= m_voci.size())
        return;
    m_scelta = m_voci.at(r).indice;
    accept();
}

bool ElencoAnagraficheWidget::eventFilter(QObject* oggetto, QEvent* evento)
{
    if (evento->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent*>(evento)->key();
        if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter) {
            conferma();
            return true;
        }
        // From the filter the arrows move through the list.
        if (oggetto == m_filtro && (tasto == Qt::Key_Down || tasto == Qt::Key_Up)) {
            const int r
                = qBound(0, m_griglia->currentRow() + (tasto == Qt::Key_Down ? 1 : -1), m_griglia->rowCount() - 1);
            m_griglia->selectRow(r);
            return true;
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

} // namespace tomvera
