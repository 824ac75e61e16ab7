#include "rooms/ui/finestrecatalogo.h"

#include "foundation/interazione.h"
#include "foundation/sessione.h"
#include "rooms/catalogo.h"
#include "rooms/ui/immaginicamera.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

namespace {

// Distinct, readable colours offered first; "Altro..." opens the full picker.
const char* const tinte[] = { "#e74c3c", "#e67e22", "#f1c40f", "#2ecc71", "#1abc9c", "#3498db", "#9b59b6", "#e84393",
                              "#95a5a6", "#a0522d", "#00838f", "#6d4c41", "#c0ca33", "#5c6bc0", "#f8bbd0", "#b2dfdb" };

double valoreColore(const QColor& c)
{
    return coloreDaRgb(c.red(), c.green(), c.blue());
}

QPushButton* nuovoPulsante(QWidget* genitore, const QString& nome, const QString& testo)
{
    auto* b = new QPushButton(testo, genitore);
    b->setObjectName(nome);
    return b;
}

QString sfondo(const QColor& c)
{
    return QStringLiteral("background: %1; border: 1px solid #444;").arg(c.name());
}

} // namespace

// ---------------------------------------------------------------------------------------------------------

FinestraTipologieCamere::FinestraTipologieCamere(Sessione& sessione, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::make_unique<F_TipologiaCamere>(sessione))
{
    setObjectName(QStringLiteral("F_TipologiaCamere"));
    setWindowTitle(QStringLiteral("Tipologie Camere"));
    resize(760, 520);
    auto* colonna = new QVBoxLayout(this);

    auto* campi = new QFormLayout;
    const auto campo = [this](const QString& nome, int massimo) {
        auto* e = new QLineEdit(this);
        e->setObjectName(nome);
        if (massimo > 0)
            e->setMaxLength(massimo);
        return e;
    };
    m_codice = campo(QStringLiteral("CodiceTipologia"), 50);
    m_persone = campo(QStringLiteral("NroPersone"), 4);
    m_nome = campo(QStringLiteral("NomeTipologia"), 250);
    m_note = campo(QStringLiteral("Note"), 0);
    campi->addRow(QStringLiteral("Codice"), m_codice);
    campi->addRow(QStringLiteral("N° Persone"), m_persone);
    campi->addRow(QStringLiteral("Nome Tipologia"), m_nome);
    auto* rigaColore = new QHBoxLayout;
    m_colore = new QLabel(this);
    m_colore->setObjectName(QStringLiteral("Colore"));
    m_colore->setFixedSize(60, 24);
    rigaColore->addWidget(m_colore);
    for (const char* tinta : tinte) {
        const QColor c(QString::fromLatin1(tinta));
        auto* b = new QPushButton(this);
        b->setObjectName(QStringLiteral("Tinta") + c.name().mid(1));
        b->setFixedSize(22, 22);
        b->setStyleSheet(sfondo(c));
        connect(b, &QPushButton::clicked, this, [this, c] { scegliColore(c); });
        rigaColore->addWidget(b);
    }
    auto* altro = nuovoPulsante(this, QStringLiteral("AltroColore"), QStringLiteral("Altro..."));
    connect(altro, &QPushButton::clicked, this, [this] {
        const QColor c = QColorDialog::getColor(Qt::white, this, QStringLiteral("Colore della tipologia"));
        if (c.isValid())
            scegliColore(c);
    });
    rigaColore->addWidget(altro);
    rigaColore->addStretch();
    campi->addRow(QStringLiteral("Colore"), rigaColore);
    campi->addRow(QStringLiteral("Note"), m_note);
    colonna->addLayout(campi);

    m_griglia = new QTableWidget(0, 5, this);
    m_griglia->setObjectName(QStringLiteral("Griglia"));
    m_griglia->setHorizontalHeaderLabels({ QStringLiteral("Codice"), QStringLiteral("Per."),
                                           QStringLiteral("Nome Tipologia"), QStringLiteral("Colore"),
                                           QStringLiteral("Note") });
    m_griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_griglia->verticalHeader()->hide();
    m_griglia->horizontalHeader()->setStretchLastSection(true);
    m_griglia->setColumnWidth(2, 220);
    colonna->addWidget(m_griglia, 1);
    connect(m_griglia, &QTableWidget::cellDoubleClicked, this, [this](int riga, int) {
        m_logica->Griglia_DblClick(riga);
        caricaDaLogica();
    });

    auto* comandi = new QHBoxLayout;
    auto* nuovo = nuovoPulsante(this, QStringLiteral("Nuovo"), QStringLiteral("Nuovo"));
    auto* registra = nuovoPulsante(this, QStringLiteral("Registra"), QStringLiteral("Registra"));
    auto* cancella = nuovoPulsante(this, QStringLiteral("Command15"), QStringLiteral("Cancella"));
    auto* fine = nuovoPulsante(this, QStringLiteral("Fine"), QStringLiteral("Esci"));
    comandi->addWidget(nuovo);
    comandi->addStretch();
    comandi->addWidget(registra);
    comandi->addWidget(cancella);
    comandi->addWidget(fine);
    colonna->addLayout(comandi);
    connect(nuovo, &QPushButton::clicked, this, [this] {
        m_logica->PulisciCampi();
        caricaDaLogica();
    });
    connect(registra, &QPushButton::clicked, this, [this] {
        copiaInLogica();
        m_logica->Registra_Click();
        caricaDaLogica();
    });
    connect(cancella, &QPushButton::clicked, this, [this] {
        copiaInLogica();
        m_logica->Command15_Click();
        caricaDaLogica();
    });
    connect(fine, &QPushButton::clicked, this, &QDialog::accept);

    m_logica->Form_Load();
    caricaDaLogica();
}

FinestraTipologieCamere::~FinestraTipologieCamere() = default;

void FinestraTipologieCamere::scegliColore(const QColor& colore)
{
    m_logica->Colore = valoreColore(colore);
    m_colore->setStyleSheet(sfondo(colore));
}

void FinestraTipologieCamere::copiaInLogica()
{
    m_logica->CodiceTipologia = m_codice->text();
    m_logica->NroPersone = m_persone->text();
    m_logica->NomeTipologia = m_nome->text();
    m_logica->Note = m_note->text();
}

void FinestraTipologieCamere::caricaDaLogica()
{
    const F_TipologiaCamere& l = *m_logica;
    m_codice->setText(l.CodiceTipologia);
    m_persone->setText(l.NroPersone);
    m_nome->setText(l.NomeTipologia);
    m_note->setText(l.Note);
    m_colore->setStyleSheet(l.Colore ? sfondo(coloreQt(*l.Colore)) : QStringLiteral("border: 1px dashed #888;"));
    m_griglia->setRowCount(static_cast<int>(l.Griglia.size()));
    for (int i = 0; i < l.Griglia.size(); ++i) {
        const TipologiaCamera& t = l.Griglia.at(i);
        m_griglia->setItem(i, 0, new QTableWidgetItem(t.CodiceTipologia));
        m_griglia->setItem(i, 1, new QTableWidgetItem(QString::number(t.NroPersone)));
        m_griglia->setItem(i, 2, new QTableWidgetItem(t.NomeTipologia));
        auto* c = new QTableWidgetItem;
        c->setBackground(coloreQt(t.Colore));
        m_griglia->setItem(i, 3, c);
        m_griglia->setItem(i, 4, new QTableWidgetItem(t.Note));
    }
}

// ---------------------------------------------------------------------------------------------------------

FinestraConfiguraGriglia::FinestraConfiguraGriglia(Sessione& sessione, QWidget* genitore)
    : QDialog(genitore)
    , m_sessione(sessione)
    , m_logica(std::make_unique<F_ConfiguraGriglia>(sessione))
{
    setObjectName(QStringLiteral("F_ConfiguraGriglia"));
    setWindowTitle(QStringLiteral("Configurazione Camere"));
    resize(1100, 640);
    auto* riga = new QHBoxLayout(this);

    // Left: the types to assign.
    auto* sinistra = new QVBoxLayout;
    auto* assegnazione = new QGroupBox(QStringLiteral("ASSEGNAZIONE  TIPOLOGIA «» CAMERA"), this);
    auto* colonnaTipi = new QVBoxLayout(assegnazione);
    m_tipologie = new QTableWidget(0, 2, assegnazione);
    m_tipologie->setObjectName(QStringLiteral("GrigliaTipologie"));
    m_tipologie->setHorizontalHeaderLabels({ QString(), QStringLiteral("Tipologia") });
    m_tipologie->verticalHeader()->hide();
    m_tipologie->setColumnWidth(0, 26);
    m_tipologie->horizontalHeader()->setStretchLastSection(true);
    m_tipologie->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tipologie->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tipologie->setSelectionMode(QAbstractItemView::SingleSelection);
    colonnaTipi->addWidget(m_tipologie);
    sinistra->addWidget(assegnazione, 1);
    auto* selezionata = new QGroupBox(QStringLiteral("TIPOLOGIA  SELEZIONATA"), this);
    auto* rigaSel = new QHBoxLayout(selezionata);
    m_coloreSelezionata = new QLabel(selezionata);
    m_coloreSelezionata->setObjectName(QStringLiteral("ColoreTipologiaSelezionata"));
    m_coloreSelezionata->setFixedSize(24, 24);
    m_nomeSelezionata = new QLabel(selezionata);
    m_nomeSelezionata->setObjectName(QStringLiteral("NomeTipologiaSelezionata"));
    rigaSel->addWidget(m_coloreSelezionata);
    rigaSel->addWidget(m_nomeSelezionata, 1);
    sinistra->addWidget(selezionata);
    auto* rimuovi = nuovoPulsante(this, QStringLiteral("Command1"), QStringLiteral("Rimuovi Tipologia da Griglia"));
    auto* annulla = nuovoPulsante(this, QStringLiteral("AnnullaSelezione"), QStringLiteral("Annulla"));
    auto* definisci = nuovoPulsante(this, QStringLiteral("Command2"), QStringLiteral("Definisci Tipologia Camere ..."));
    sinistra->addWidget(rimuovi);
    sinistra->addWidget(annulla);
    sinistra->addWidget(definisci);
    auto* contenitoreSinistra = new QWidget(this);
    contenitoreSinistra->setLayout(sinistra);
    contenitoreSinistra->setFixedWidth(260);
    riga->addWidget(contenitoreSinistra);

    // Right: floor, size, grid, commands.
    auto* destra = new QVBoxLayout;
    auto* testata = new QHBoxLayout;
    auto* meno = nuovoPulsante(this, QStringLiteral("PianoMeno"), QStringLiteral("◀"));
    auto* piu = nuovoPulsante(this, QStringLiteral("PianoPiu"), QStringLiteral("▶"));
    m_piano = new QLineEdit(this);
    m_piano->setObjectName(QStringLiteral("NroPiano"));
    m_piano->setReadOnly(true);
    m_piano->setAlignment(Qt::AlignCenter);
    m_piano->setFixedWidth(50);
    testata->addWidget(new QLabel(QStringLiteral("Piano"), this));
    testata->addWidget(meno);
    testata->addWidget(m_piano);
    testata->addWidget(piu);
    testata->addSpacing(30);
    m_righe = new QSpinBox(this);
    m_righe->setObjectName(QStringLiteral("Righe"));
    m_righe->setRange(1, 100);
    m_colonne = new QSpinBox(this);
    m_colonne->setObjectName(QStringLiteral("Colonne"));
    m_colonne->setRange(1, 100);
    testata->addWidget(new QLabel(QStringLiteral("Righe"), this));
    testata->addWidget(m_righe);
    testata->addWidget(new QLabel(QStringLiteral("Colonne"), this));
    testata->addWidget(m_colonne);
    auto* ridimensiona = nuovoPulsante(this, QStringLiteral("Command22"), QStringLiteral("Ridimensiona"));
    ridimensiona->setToolTip(QStringLiteral("RIDIMENSIONA STRUTTURA"));
    testata->addWidget(ridimensiona);
    testata->addStretch();
    destra->addLayout(testata);

    m_griglia = new QTableWidget(this);
    m_griglia->setObjectName(QStringLiteral("Griglia"));
    m_griglia->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_griglia->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_griglia->setSelectionMode(QAbstractItemView::SingleSelection);
    QFont grande = m_griglia->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.2);
    grande.setBold(true);
    m_griglia->setFont(grande);
    destra->addWidget(m_griglia, 1);
    auto* comandi = new QHBoxLayout;
    auto* registra = nuovoPulsante(this, QStringLiteral("Registra"), QStringLiteral("Registra"));
    auto* aggiorna = nuovoPulsante(this, QStringLiteral("Aggiorna"), QStringLiteral("Aggiorna"));
    auto* cancella = nuovoPulsante(this, QStringLiteral("Command15"), QStringLiteral("Cancella"));
    cancella->setToolTip(QStringLiteral("CANCELLAZIONE COMPLETA STRUTTURA"));
    auto* fine = nuovoPulsante(this, QStringLiteral("Fine"), QStringLiteral("Esci"));
    comandi->addWidget(registra);
    comandi->addWidget(aggiorna);
    comandi->addStretch();
    comandi->addWidget(cancella);
    comandi->addWidget(fine);
    destra->addLayout(comandi);
    riga->addLayout(destra, 1);

    F_ConfiguraGriglia* l = m_logica.get();
    connect(m_tipologie, &QTableWidget::cellClicked, this, [this, l](int r, int) {
        l->GrigliaTipologie_Click(r);
        caricaDaLogica();
    });
    connect(annulla, &QPushButton::clicked, this, [this, l] {
        l->AnnullaSelezione_Click();
        m_tipologie->clearSelection();
        caricaDaLogica();
    });
    connect(rimuovi, &QPushButton::clicked, this, [this, l] {
        l->Command1_Click(m_griglia->currentRow(), m_griglia->currentColumn());
        caricaDaLogica();
    });
    connect(definisci, &QPushButton::clicked, this, [this, l] {
        FinestraTipologieCamere tipologie(m_sessione, this);
        tipologie.exec();
        l->CaricaCombo();
        caricaDaLogica();
    });
    connect(m_griglia, &QTableWidget::cellClicked, this, [this, l](int r, int c) {
        l->Cella_Click(r, c);
        caricaDaLogica();
    });
    connect(m_griglia, &QTableWidget::cellChanged, this, [this, l](int r, int c) {
        if (m_copiando)
            return;
        l->impostaTestoCella(r, c, m_griglia->item(r, c) ? m_griglia->item(r, c)->text() : QString());
    });
    const auto azione = [this](auto f) {
        return [this, f] {
            f();
            caricaDaLogica();
        };
    };
    connect(meno, &QPushButton::clicked, this, azione([l] { l->PianoMeno_Click(); }));
    connect(piu, &QPushButton::clicked, this, azione([l] { l->PianoPiu_Click(); }));
    connect(registra, &QPushButton::clicked, this, azione([l] { l->Registra_Click(); }));
    connect(aggiorna, &QPushButton::clicked, this, azione([l] { l->Aggiorna_Click(); }));
    connect(cancella, &QPushButton::clicked, this, azione([l] { l->Command15_Click(); }));
    connect(ridimensiona, &QPushButton::clicked, this, azione([this, l] {
                // The size is saved even when the grid looks the same: say so.
                if (l->Command22_Click(QString::number(m_righe->value()), QString::number(m_colonne->value())))
                    operazioneEffettuata(m_sessione.interazione);
            }));
    connect(m_griglia, &QTableWidget::currentCellChanged, this, [this] { abilitaComandi(); });
    connect(fine, &QPushButton::clicked, this, &QDialog::accept);

    m_logica->Form_Load();
    caricaDaLogica();
}

FinestraConfiguraGriglia::~FinestraConfiguraGriglia() = default;

void FinestraConfiguraGriglia::caricaTipologie()
{
    const F_ConfiguraGriglia& l = *m_logica;
    m_tipologie->setRowCount(static_cast<int>(l.GrigliaTipologie.size()));
    for (int i = 0; i < l.GrigliaTipologie.size(); ++i) {
        const TipologiaCamera& t = l.GrigliaTipologie.at(i);
        auto* colore = new QTableWidgetItem;
        colore->setBackground(coloreQt(t.Colore));
        m_tipologie->setItem(i, 0, colore);
        m_tipologie->setItem(i, 1,
                             new QTableWidgetItem(t.NomeTipologia + QStringLiteral(" (") + QString::number(t.NroPersone)
                                                  + QStringLiteral(")")));
    }
    if (l.TipologiaSelezionata >= 0)
        m_tipologie->selectRow(l.TipologiaSelezionata);
}

void FinestraConfiguraGriglia::caricaDaLogica()
{
    m_copiando = true;
    const F_ConfiguraGriglia& l = *m_logica;
    caricaTipologie();
    m_nomeSelezionata->setText(l.NomeTipologiaSelezionata);
    m_coloreSelezionata->setStyleSheet(l.ColoreTipologiaSelezionata ? sfondo(coloreQt(*l.ColoreTipologiaSelezionata))
                                                                    : QStringLiteral("border: 1px dashed #888;"));
    m_piano->setText(QString::number(l.NroPiano));
    m_righe->setValue(l.Righe());
    m_colonne->setValue(l.Colonne());
    m_griglia->setRowCount(l.Righe());
    m_griglia->setColumnCount(l.Colonne());
    for (int r = 0; r < l.Righe(); ++r) {
        for (int c = 0; c < l.Colonne(); ++c) {
            const CellaStruttura& cella = l.cella(r, c);
            auto* item = new QTableWidgetItem(testoCella(cella, l.multiAzienda()));
            item->setTextAlignment(Qt::AlignCenter);
            const auto colore = l.coloreTipologia(cella.CodiceTipologia);
            if (!cella.CodiceTipologia.isEmpty() && colore) {
                const QColor qc = coloreQt(*colore);
                item->setBackground(qc);
                item->setForeground(qc.lightness() < 120 ? Qt::white : Qt::black);
                item->setToolTip(cella.CodiceTipologia);
            }
            m_griglia->setItem(r, c, item);
        }
    }
    m_copiando = false;
    abilitaComandi();
}

void FinestraConfiguraGriglia::abilitaComandi()
{
    // "Annulla" needs a chosen type, "Rimuovi" a cell that has one: otherwise they would do nothing.
    const F_ConfiguraGriglia& l = *m_logica;
    if (auto* annulla = findChild<QPushButton*>(QStringLiteral("AnnullaSelezione")))
        annulla->setEnabled(l.TipologiaSelezionata >= 0);
    const int r = m_griglia->currentRow();
    const int c = m_griglia->currentColumn();
    const bool conTipologia
        = r >= 0 && c >= 0 && r < l.Righe() && c < l.Colonne() && !l.cella(r, c).CodiceTipologia.isEmpty();
    if (auto* rimuovi = findChild<QPushButton*>(QStringLiteral("Command1")))
        rimuovi->setEnabled(conTipologia);
}

} // namespace tomvera
