// Extras and totals of F_Prenotazione.
#include "foundation/formati.h"
#include "foundation/schema/tabelle.h"
#include "reservations/schedaprenotazione.h"
#include "reservations/ui/aiuti.h"
#include "reservations/ui/prenotazionewidget.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

using aiuti::cella;
using aiuti::riempi;

namespace {

// The extras' description: typing proposes the list's items, and opening the list shows them all (of the
// chosen group) before anything is typed.
class SceltaDescrizione : public QComboBox
{
public:
    explicit SceltaDescrizione(QWidget* genitore)
        : QComboBox(genitore)
    {
        setObjectName(QStringLiteral("Descrizione"));
        setEditable(true);
    }
    std::function<void()> primaDiAprire;
    void showPopup() override
    {
        if (primaDiAprire)
            primaDiAprire();
        QComboBox::showPopup();
    }
};

} // namespace

QWidget* PrenotazioneWidget::creaSchedaAccessori()
{
    auto* scheda = new QWidget(this);
    auto* v = new QVBoxLayout(scheda);
    auto* g = new QGridLayout;
    const auto linea = [scheda](const char* nome, int larghezza) {
        auto* e = new QLineEdit(scheda);
        e->setObjectName(QLatin1String(nome));
        e->setMaximumWidth(larghezza);
        return e;
    };
    const auto scelta = [scheda](const char* nome, bool modificabile) {
        auto* c = new QComboBox(scheda);
        c->setObjectName(QLatin1String(nome));
        c->setEditable(modificabile);
        c->setMinimumWidth(120);
        return c;
    };
    m_dataArt = linea("Data", 100);
    m_tipoArt = new aiuti::SceltaPigra(
        QStringLiteral("Tipo"), [this] { return m_logica->sceltaTipoAccessorio(); }, scheda);
    m_tipoArt->setEditable(true);
    m_tipoArt->setMinimumWidth(120);
    auto* descrizione = new SceltaDescrizione(scheda);
    m_descrizioneArt = descrizione;
    m_descrizioneArt->setMinimumWidth(240);
    const schema::Tabella movimenti = schema::TabellaMovimenti();
    m_tipoArt->lineEdit()->setMaxLength(schema::dimensioneDichiarata(movimenti, QStringLiteral("TipoAccessorio")));
    m_descrizioneArt->lineEdit()->setMaxLength(schema::dimensioneDichiarata(movimenti, QStringLiteral("Descrizione")));
    m_qta = linea("Qta", 60);
    m_prezzoUnitario = linea("PrezzoUnitario", 90);
    m_prezzoArt = linea("Prezzo", 90);
    m_ivaArt = linea("Iva", 50);
    m_nroCameraArt = scelta("NroCamera", false);
    m_nroCameraArt->setMinimumWidth(70);
    auto* ins = new QPushButton(QStringLiteral("INSERISCI"), scheda);
    ins->setObjectName(QStringLiteral("Ins"));
    m_etichettaIvaArt = new QLabel(m_logica->EtichettaImposta(), scheda);
    m_etichettaIvaArt->setObjectName(QStringLiteral("EtichettaIvaAccessorio"));
    const QList<std::pair<QLabel*, QWidget*>> voci
        = { { new QLabel(QStringLiteral("Data"), scheda), m_dataArt },
            { new QLabel(QStringLiteral("Tipo"), scheda), m_tipoArt },
            { new QLabel(QStringLiteral("Descrizione"), scheda), m_descrizioneArt },
            { new QLabel(QStringLiteral("Qtà"), scheda), m_qta },
            { new QLabel(QStringLiteral("Prezzo Unit."), scheda), m_prezzoUnitario },
            { new QLabel(QStringLiteral("Prezzo"), scheda), m_prezzoArt },
            { m_etichettaIvaArt, m_ivaArt },
            { new QLabel(QStringLiteral("N.C."), scheda), m_nroCameraArt } };
    int colonna = 0;
    for (const auto& [etichetta, w] : voci) {
        g->addWidget(etichetta, 0, colonna);
        g->addWidget(w, 1, colonna++);
    }
    for (QWidget* w :
         { static_cast<QWidget*>(m_tipoArt->lineEdit()), static_cast<QWidget*>(m_descrizioneArt->lineEdit()),
           static_cast<QWidget*>(m_qta), static_cast<QWidget*>(m_prezzoUnitario), static_cast<QWidget*>(m_prezzoArt),
           static_cast<QWidget*>(m_ivaArt) })
        w->installEventFilter(this);
    g->addWidget(ins, 1, colonna);
    g->setColumnStretch(colonna + 1, 1);
    v->addLayout(g);

    auto* filtro = new QHBoxLayout;
    m_tipoSel = scelta("TipoSel", false);
    filtro->addWidget(new QLabel(QStringLiteral("Selezione Tipo:"), scheda));
    filtro->addWidget(m_tipoSel);
    filtro->addStretch(1);
    v->addLayout(filtro);

    m_righeArt = new QTableWidget(0, 11, scheda);
    m_righeArt->setObjectName(QStringLiteral("RigheArt"));
    m_righeArt->setHorizontalHeaderLabels(
        { QStringLiteral("Indice"), QStringLiteral("N°"), QString(), QString(), QStringLiteral("Data"),
          QStringLiteral("Tipo"), QStringLiteral("Descrizione"), QStringLiteral("Qtà"), QStringLiteral("Prezzo"),
          m_logica->EtichettaImposta(), QStringLiteral("N.C.") });
    for (int c : { 0, 2, 3 })
        m_righeArt->setColumnHidden(c, true);
    m_righeArt->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_righeArt->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_righeArt->verticalHeader()->setVisible(false);
    m_righeArt->horizontalHeader()->setSectionResizeMode(6, QHeaderView::Stretch);
    m_righeArt->installEventFilter(this);
    v->addWidget(m_righeArt, 1);

    auto* totali = new QHBoxLayout;
    m_abbuono = linea("Abbuono", 100);
    auto* calcola = new QPushButton(QStringLiteral("Calcola Totale"), scheda);
    calcola->setObjectName(QStringLiteral("CalcolaTotale"));
    totali->addWidget(new QLabel(QStringLiteral("Abbuono"), scheda));
    totali->addWidget(m_abbuono);
    totali->addWidget(calcola);
    totali->addStretch(1);
    v->addLayout(totali);

    connect(ins, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Ins_Click(); }); });
    connect(calcola, &QPushButton::clicked, this, [this] { comando([this] { m_logica->CalcolaTotale_Click(); }); });
    connect(m_righeArt, &QTableWidget::cellDoubleClicked, this,
            [this](int r, int) { comando([this, r] { m_logica->RigheArt_DblClick(r); }); });
    connect(m_tipoSel, &QComboBox::textActivated, this,
            [this](const QString& t) { comando([this, t] { m_logica->TipoSel = t; }); });
    for (QLineEdit* e : { m_qta, m_prezzoUnitario })
        connect(e, &QLineEdit::textEdited, this, [this] { comando([this] { m_logica->Qta_Change(); }); });
    connect(m_abbuono, &QLineEdit::editingFinished, this, [this] {
        if (m_abbuono->isModified())
            comando([this] { m_logica->Abbuono_Change(m_abbuono->text()); });
    });
    const auto proponi = [this](const QString& testo) {
        leggiAccessori();
        m_aggiornando = true;
        m_descrizioneArt->clear();
        for (const auto& voce : m_logica->proposteDescrizione(testo))
            m_descrizioneArt->addItem(voce.descrizione, voce.indice);
        m_descrizioneArt->setEditText(testo);
        m_aggiornando = false;
    };
    connect(m_descrizioneArt->lineEdit(), &QLineEdit::textEdited, this, proponi);
    // Opened with nothing typed: the whole list of the group.
    descrizione->primaDiAprire = [this, proponi] {
        const QString testo = m_descrizioneArt->currentText();
        proponi(m_logica->Accessorio.IndiceAccessorio > 0 ? QString() : testo);
        m_descrizioneArt->setEditText(testo);
    };
    // Tab or a click elsewhere after a completed text: the item's price comes along as on a click.
    connect(m_descrizioneArt->lineEdit(), &QLineEdit::editingFinished, this,
            [this] { comando([this] { m_logica->Descrizione_LostFocus(); }); });
    connect(m_dataArt, &QLineEdit::editingFinished, this, [this] { controllaData(m_dataArt); });
    connect(m_qta, &QLineEdit::editingFinished, this, [this] { controllaNumero(m_qta, QStringLiteral("Qtà")); });
    connect(m_prezzoUnitario, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_prezzoUnitario, QStringLiteral("Prezzo Unitario")); });
    connect(m_prezzoArt, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_prezzoArt, QStringLiteral("Prezzo")); });
    connect(m_ivaArt, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_ivaArt, m_logica->EtichettaImpostaLunga()); });
    connect(m_abbuono, &QLineEdit::editingFinished, this,
            [this] { controllaNumero(m_abbuono, QStringLiteral("Abbuono")); });
    connect(m_descrizioneArt, qOverload<int>(&QComboBox::activated), this, [this](int i) {
        const qint64 indice = m_descrizioneArt->itemData(i).toLongLong();
        if (indice > 0)
            comando([this, indice] { m_logica->Descrizione_Click(indice); });
    });
    return scheda;
}

void PrenotazioneWidget::leggiAccessori()
{
    InserimentoAccessorio& a = m_logica->Accessorio;
    a.Data = m_dataArt->text();
    a.Tipo = m_tipoArt->currentText();
    a.Descrizione = m_descrizioneArt->currentText();
    a.Qta = m_qta->text();
    a.PrezzoUnitario = m_prezzoUnitario->text();
    a.Prezzo = m_prezzoArt->text();
    a.Iva = m_ivaArt->text();
    a.NroCamera = m_nroCameraArt->currentText();
    m_logica->Abbuono = m_abbuono->text();
}

void PrenotazioneWidget::aggiornaAccessori()
{
    SchedaPrenotazione& l = *m_logica;
    const InserimentoAccessorio& a = l.Accessorio;
    m_dataArt->setText(a.Data);
    m_tipoArt->imposta(a.Tipo);
    m_descrizioneArt->setEditText(a.Descrizione);
    m_qta->setText(a.Qta);
    m_prezzoUnitario->setText(a.PrezzoUnitario);
    m_prezzoArt->setText(a.Prezzo);
    m_ivaArt->setText(a.Iva);
    // The line's room stays a choice even when it is not (or no longer) in the room list: never lost on a save.
    QStringList camere = QStringList(QString()) + l.sceltaCamere();
    if (!camere.contains(a.NroCamera))
        camere << a.NroCamera;
    riempi(m_nroCameraArt, camere, a.NroCamera);
    riempi(m_tipoSel, QStringList(QString()) + l.sceltaTipoSel(), l.TipoSel);
    m_abbuono->setText(l.Abbuono);
    const QList<int> righe = l.RigheArt();
    m_righeArt->setRowCount(righe.size());
    for (int r = 0; r < righe.size(); ++r) {
        const RigaAccessorio& x = l.accessori().at(righe.at(r));
        m_righeArt->setItem(r, 1, cella(QString::number(x.IndiceRiga)));
        m_righeArt->setItem(r, 4, cella(x.Data.isValid() ? testoData(x.Data) : QString()));
        m_righeArt->setItem(r, 5, cella(x.TipoAccessorio));
        m_righeArt->setItem(r, 6, cella(x.Descrizione));
        m_righeArt->setItem(r, 7, cella(formattaNumero(x.Qta, x.Qta == static_cast<qint64>(x.Qta) ? 0 : 2), true));
        m_righeArt->setItem(r, 8, cella(formattaNumero(x.Avere, 2), true));
        m_righeArt->setItem(r, 9, cella(formattaNumero(x.Iva, 0, false), true));
        m_righeArt->setItem(r, 10, cella(x.NroCamera));
    }
}

} // namespace tomvera
