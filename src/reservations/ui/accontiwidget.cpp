#include "reservations/ui/accontiwidget.h"

#include "foundation/formati.h"
#include "reservations/ui/aiuti.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

using aiuti::cella;

AccontiWidget::AccontiWidget(std::unique_ptr<SchedaAcconti> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_Acconti"));
    setWindowTitle(QStringLiteral("Acconti"));
    auto* v = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    m_data = new QLineEdit(this);
    m_data->setObjectName(QStringLiteral("Data"));
    m_descrizione = new QLineEdit(this);
    m_descrizione->setObjectName(QStringLiteral("Descrizione"));
    m_descrizione->setMaxLength(250); // TabellaMovimenti.Descrizione
    m_importo = new QLineEdit(this);
    m_importo->setObjectName(QStringLiteral("Importo"));
    m_fr = new QCheckBox(QStringLiteral("F/R*"), this);
    m_fr->setObjectName(QStringLiteral("EffettuataFatturaRicevuta"));
    g->addWidget(new QLabel(QStringLiteral("Data"), this), 0, 0);
    g->addWidget(m_data, 1, 0);
    g->addWidget(new QLabel(QStringLiteral("Descrizione"), this), 0, 1);
    g->addWidget(m_descrizione, 1, 1);
    g->addWidget(new QLabel(QStringLiteral("Importo"), this), 0, 2);
    g->addWidget(m_importo, 1, 2);
    g->addWidget(m_fr, 1, 3);
    g->setColumnStretch(1, 1);
    v->addLayout(g);

    auto* comandi = new QHBoxLayout;
    const auto bottone = [this, comandi](const char* nome, const char* testo) {
        auto* b = new QPushButton(QString::fromUtf8(testo), this);
        b->setObjectName(QLatin1String(nome));
        comandi->addWidget(b);
        return b;
    };
    auto* ins = bottone("Ins", "Inserisci / Modifica");
    auto* cancella = bottone("Cancella", "Elimina");
    auto* tutti = bottone("Command6", "Tutti Fatturati");
    auto* nessuno = bottone("Command1", "Tutti NON Fatturati");
    comandi->addStretch(1);
    auto* esci = bottone("Fine", "Esci");
    v->addLayout(comandi);

    m_righe = new QTableWidget(0, 6, this);
    m_righe->setObjectName(QStringLiteral("Griglia"));
    m_righe->setHorizontalHeaderLabels({ QString(), QString(), QStringLiteral("Data"), QStringLiteral("Descrizione"),
                                         QStringLiteral("Importo"), QStringLiteral("F/R*") });
    m_righe->setColumnHidden(0, true);
    m_righe->setColumnHidden(1, true);
    m_righe->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_righe->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_righe->verticalHeader()->setVisible(false);
    m_righe->horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);
    v->addWidget(m_righe, 1);
    v->addWidget(new QLabel(SchedaAcconti::notaPiede(), this));

    const auto esegui = [this](auto azione) {
        leggi();
        ((*m_logica).*azione)();
        aggiorna();
    };
    connect(ins, &QPushButton::clicked, this, [esegui] { esegui(&SchedaAcconti::Ins_Click); });
    connect(cancella, &QPushButton::clicked, this, [esegui] { esegui(&SchedaAcconti::Cancella_Click); });
    connect(tutti, &QPushButton::clicked, this, [esegui] { esegui(&SchedaAcconti::Command6_Click); });
    connect(nessuno, &QPushButton::clicked, this, [esegui] { esegui(&SchedaAcconti::Command1_Click); });
    connect(esci, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_righe, &QTableWidget::cellClicked, this, [this](int r, int) {
        leggi();
        m_logica->Righe_Click(r);
        aggiorna();
    });
    for (QWidget* campo : std::initializer_list<QWidget*> { m_data, m_descrizione, m_importo, m_fr })
        campo->installEventFilter(this);
    m_logica->Aggiorna_Click();
    aggiorna();
    resize(640, 420);
}

AccontiWidget::~AccontiWidget() = default;

void AccontiWidget::done(int esito)
{
    leggi();
    if (!m_logica->Fine_Click()) {
        aggiorna();
        return;
    }
    QDialog::done(esito);
}

bool AccontiWidget::eventFilter(QObject* oggetto, QEvent* evento)
{
    // Esc in the entry line first clears it; only on a blank line does it reach the dialog and close.
    if (evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape) {
        leggi();
        if (m_logica->rigaOccupata()) {
            m_logica->PulisciCampi();
            aggiorna();
            m_righe->clearSelection();
            return true;
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

void AccontiWidget::leggi()
{
    m_logica->Data = m_data->text();
    m_logica->Descrizione = m_descrizione->text();
    m_logica->Importo = m_importo->text();
    m_logica->FR = m_fr->isChecked();
}

void AccontiWidget::aggiorna()
{
    m_data->setText(m_logica->Data);
    m_descrizione->setText(m_logica->Descrizione);
    m_importo->setText(m_logica->Importo);
    m_fr->setChecked(m_logica->FR);
    const auto& righe = m_logica->righe();
    m_righe->setRowCount(righe.size());
    for (int r = 0; r < righe.size(); ++r) {
        const SchedaAcconti::Riga& x = righe.at(r);
        m_righe->setItem(r, 0, cella(QString::number(x.Indice)));
        m_righe->setItem(r, 2, cella(x.Data.isValid() ? testoData(x.Data) : QString()));
        m_righe->setItem(r, 3, cella(x.Descrizione));
        m_righe->setItem(r, 4, cella(formattaNumero(x.Dare, 2), true));
        m_righe->setItem(r, 5, cella(x.EffettuataFatturaRicevuta ? QStringLiteral("X") : QString()));
    }
}

qint64 scegliPrenotazione(const QList<VoceListaPrenotazioni>& voci, const QString& nroCamera, QWidget* genitore)
{
    QDialog finestra(genitore);
    finestra.setObjectName(QStringLiteral("F_ListaPrenotazioni"));
    finestra.setWindowTitle(QStringLiteral("Prenotazioni della camera ") + nroCamera);
    auto* v = new QVBoxLayout(&finestra);
    auto* griglia = new QTableWidget(voci.size(), 3, &finestra);
    griglia->setObjectName(QStringLiteral("Griglia"));
    griglia->setHorizontalHeaderLabels(
        { QStringLiteral("Nro Pren."), QStringLiteral("Data"), QStringLiteral("Cliente") });
    griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia->verticalHeader()->setVisible(false);
    griglia->horizontalHeader()->setStretchLastSection(true);
    for (int r = 0; r < voci.size(); ++r) {
        const VoceListaPrenotazioni& x = voci.at(r);
        griglia->setItem(r, 0, cella(QString::number(x.NumeroPrenotazione), true));
        griglia->setItem(r, 1, cella(x.DataPrenotazione.isValid() ? testoData(x.DataPrenotazione) : QString()));
        griglia->setItem(r, 2, cella(x.Cliente));
    }
    v->addWidget(griglia);
    auto* bottoni = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, &finestra);
    v->addWidget(bottoni);
    QObject::connect(bottoni, &QDialogButtonBox::accepted, &finestra, &QDialog::accept);
    QObject::connect(bottoni, &QDialogButtonBox::rejected, &finestra, &QDialog::reject);
    QObject::connect(griglia, &QTableWidget::cellDoubleClicked, &finestra, &QDialog::accept);
    finestra.resize(460, 300);
    if (voci.isEmpty() || finestra.exec() != QDialog::Accepted || griglia->currentRow() < 0)
        return 0;
    return voci.at(griglia->currentRow()).IndicePrenotazione;
}

} // namespace tomvera
