#include "guests/ui/archiviocodiciwidget.h"

#include "guests/archiviocodici.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

namespace {

QLineEdit* campo(const char* nome, QWidget* genitore)
{
    auto* e = new QLineEdit(genitore);
    e->setObjectName(QLatin1String(nome));
    return e;
}

QPushButton* pulsante(const char* nome, const QString& testo, QWidget* genitore)
{
    auto* p = new QPushButton(testo, genitore);
    p->setObjectName(QLatin1String(nome));
    p->setAutoDefault(false);
    return p;
}

} // namespace

ArchivioCodiciWidget::ArchivioCodiciWidget(std::unique_ptr<ArchivioCodici> logica, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(std::move(logica))
{
    setObjectName(QStringLiteral("F_ArchivioCodici"));
    setWindowTitle(QStringLiteral("Configurazione Tabelle"));

    auto* opzioni = new QHBoxLayout;
    auto* gruppo = new QButtonGroup(this);
    const struct
    {
        const char* nome;
        const char* testo;
        TabellaCodici tabella;
    } tabelle[] = { { "Comuni", "COMUNI", TabellaCodici::Comuni },
                    { "Stati", "STATI", TabellaCodici::Stati },
                    { "TipoAlloggiato", "TIPO ALLOGGIATO", TabellaCodici::TipoAlloggiato },
                    { "Documenti", "DOCUMENTI", TabellaCodici::Documenti } };
    for (const auto& t : tabelle) {
        auto* r = new QRadioButton(QString::fromUtf8(t.testo), this);
        r->setObjectName(QLatin1String(t.nome));
        r->setChecked(t.tabella == m_logica->tabella());
        gruppo->addButton(r);
        opzioni->addWidget(r);
        connect(r, &QRadioButton::clicked, this, [this, tabella = t.tabella] {
            m_logica->selezionaTabella(tabella);
            aggiorna();
        });
    }
    opzioni->addStretch();

    auto* campi = new QGridLayout;
    m_codice = campo("Codice", this);
    m_descrizione = campo("Descrizione", this);
    m_provincia = campo("Provincia", this);
    m_cap = campo("Cap", this);
    m_prefisso = campo("PrefissoTelefonico", this);
    m_codiceRic = campo("CodiceRic", this);
    m_descrizioneRic = campo("DescrizioneRic", this);
    m_provinciaRic = campo("ProvinciaRic", this);
    m_capRic = campo("CapRic", this);
    m_prefissoRic = campo("PrefissoTelefonicoRic", this);
    m_etichettaDescrizione = new QLabel(this);
    m_etichettaProvincia = new QLabel(QStringLiteral("Provincia"), this);
    m_etichettaCap = new QLabel(QStringLiteral("Cap"), this);
    m_etichettaPrefisso = new QLabel(QStringLiteral("Prefisso Tel."), this);
    campi->addWidget(new QLabel(QStringLiteral("Codice"), this), 0, 0);
    campi->addWidget(m_etichettaDescrizione, 0, 1);
    campi->addWidget(m_etichettaProvincia, 0, 2);
    campi->addWidget(m_etichettaCap, 0, 3);
    campi->addWidget(m_etichettaPrefisso, 0, 4);
    const QList<QLineEdit*> valori { m_codice, m_descrizione, m_provincia, m_cap, m_prefisso };
    const QList<QLineEdit*> ricerca { m_codiceRic, m_descrizioneRic, m_provinciaRic, m_capRic, m_prefissoRic };
    for (int c = 0; c < valori.size(); ++c) {
        campi->addWidget(valori.at(c), 1, c);
        campi->addWidget(ricerca.at(c), 3, c);
        ricerca.at(c)->setPlaceholderText(QStringLiteral("contiene..."));
    }
    campi->addWidget(new QLabel(QStringLiteral("Ricerca"), this), 2, 0);
    campi->setColumnStretch(1, 3);

    m_griglia = new QTableWidget(this);
    m_griglia->setObjectName(QStringLiteral("Griglia"));
    m_griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_griglia->setSelectionMode(QAbstractItemView::SingleSelection);
    m_griglia->verticalHeader()->hide();

    auto* comandi = new QHBoxLayout;
    auto* ins = pulsante("Ins", QStringLiteral("REGISTRA"), this);
    auto* nuovo = pulsante("Command17", QStringLiteral("NUOVO"), this);
    auto* elimina = pulsante("Command16", QStringLiteral("ELIMINA"), this);
    auto* cerca = pulsante("Command2", QStringLiteral("CERCA"), this);
    auto* pulisci = pulsante("CancellaCampiRicerca", QStringLiteral("Pulisci Ricerca"), this);
    auto* reimposta = pulsante("Command3", QStringLiteral("Reimposta Dati di Default"), this);
    auto* fine = pulsante("Fine", QStringLiteral("Esci"), this);
    for (QPushButton* p : { ins, nuovo, elimina, cerca, pulisci, reimposta })
        comandi->addWidget(p);
    comandi->addStretch();
    comandi->addWidget(fine);

    auto* tutto = new QVBoxLayout(this);
    tutto->addLayout(opzioni);
    tutto->addLayout(campi);
    tutto->addWidget(m_griglia, 1);
    tutto->addLayout(comandi);
    resize(860, 560);

    auto esegui = [this](auto azione) {
        return [this, azione] {
            leggi();
            azione();
            aggiorna();
        };
    };
    connect(ins, &QPushButton::clicked, this, esegui([this] { m_logica->Ins_Click(); }));
    connect(nuovo, &QPushButton::clicked, this, esegui([this] { m_logica->Command17_Click(); }));
    connect(elimina, &QPushButton::clicked, this, esegui([this] { m_logica->Command16_Click(); }));
    connect(cerca, &QPushButton::clicked, this, esegui([this] { m_logica->Command2_Click(); }));
    connect(pulisci, &QPushButton::clicked, this, esegui([this] { m_logica->CancellaCampiRicerca_Click(); }));
    connect(reimposta, &QPushButton::clicked, this, esegui([this] { m_logica->Command3_Click(); }));
    for (QLineEdit* e : ricerca)
        connect(e, &QLineEdit::returnPressed, this, esegui([this] { m_logica->Command2_Click(); }));
    connect(fine, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_griglia, &QTableWidget::cellClicked, this, [this](int riga) {
        m_logica->selezionaRiga(riga);
        aggiorna();
    });

    m_logica->selezionaTabella(m_logica->tabella());
    aggiorna();
}

ArchivioCodiciWidget::~ArchivioCodiciWidget() = default;

void ArchivioCodiciWidget::leggi()
{
    VoceCodice& c = m_logica->campi();
    c.codice = m_codice->text().trimmed();
    c.descrizione = m_descrizione->text().trimmed();
    c.provincia = m_provincia->text().trimmed();
    c.cap = m_cap->text().trimmed();
    c.prefissoTelefonico = m_prefisso->text().trimmed();
    VoceCodice& r = m_logica->ricerca();
    r.codice = m_codiceRic->text();
    r.descrizione = m_descrizioneRic->text();
    r.provincia = m_provinciaRic->text();
    r.cap = m_capRic->text();
    r.prefissoTelefonico = m_prefissoRic->text();
}

void ArchivioCodiciWidget::aggiorna()
{
    const QStringList titoli = m_logica->titoliGriglia();
    const bool provincia = m_logica->haProvincia();
    const bool cap = m_logica->haCapEPrefisso();
    m_etichettaDescrizione->setText(titoli.at(1));
    for (QWidget* w : { static_cast<QWidget*>(m_provincia), static_cast<QWidget*>(m_provinciaRic),
                        static_cast<QWidget*>(m_etichettaProvincia) })
        w->setVisible(provincia);
    for (QWidget* w : { static_cast<QWidget*>(m_cap), static_cast<QWidget*>(m_capRic),
                        static_cast<QWidget*>(m_etichettaCap), static_cast<QWidget*>(m_prefisso),
                        static_cast<QWidget*>(m_prefissoRic), static_cast<QWidget*>(m_etichettaPrefisso) })
        w->setVisible(cap);

    const VoceCodice& c = m_logica->campi();
    m_codice->setText(c.codice);
    m_descrizione->setText(c.descrizione);
    m_provincia->setText(c.provincia);
    m_cap->setText(c.cap);
    m_prefisso->setText(c.prefissoTelefonico);
    const VoceCodice& r = m_logica->ricerca();
    m_codiceRic->setText(r.codice);
    m_descrizioneRic->setText(r.descrizione);
    m_provinciaRic->setText(r.provincia);
    m_capRic->setText(r.cap);
    m_prefissoRic->setText(r.prefissoTelefonico);

    const auto& righe = m_logica->griglia();
    m_griglia->setUpdatesEnabled(false);
    m_griglia->clear();
    m_griglia->setColumnCount(static_cast<int>(titoli.size()));
    m_griglia->setHorizontalHeaderLabels(titoli);
    // The description takes the room; codes and provinces are short.
    for (int col = 0; col < titoli.size(); ++col)
        m_griglia->horizontalHeader()->setSectionResizeMode(
            col, col == 1 ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    m_griglia->setRowCount(static_cast<int>(righe.size()));
    int selezionata = -1;
    for (int i = 0; i < righe.size(); ++i) {
        const VoceCodice& v = righe.at(i);
        const QStringList celle { v.codice, v.descrizione, v.provincia, v.cap, v.prefissoTelefonico };
        for (int col = 0; col < titoli.size(); ++col)
            m_griglia->setItem(i, col, new QTableWidgetItem(celle.at(col)));
        if (v.indice == c.indice && c.indice != 0)
            selezionata = i;
    }
    m_griglia->setUpdatesEnabled(true);
    if (selezionata >= 0)
        m_griglia->selectRow(selezionata);
}

} // namespace tomvera
