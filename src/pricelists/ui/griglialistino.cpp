#include "pricelists/ui/griglialistino.h"

#include "foundation/sessione.h"
#include "reports/stampagenerica.h"
#include "reports/ui/anteprimastampa.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>

namespace tomvera::prezzi {

void preparaGriglia(QTableWidget& griglia, const QStringList& titoli, const QList<int>& colonneNumeriche,
                    const QList<int>& colonneLarghe)
{
    griglia.setColumnCount(static_cast<int>(titoli.size()) + 1);
    griglia.setHorizontalHeaderLabels(QStringList { QStringLiteral("Indice") } + titoli);
    griglia.setColumnHidden(0, true);
    griglia.setSelectionBehavior(QAbstractItemView::SelectRows);
    griglia.setSelectionMode(QAbstractItemView::SingleSelection);
    griglia.setEditTriggers(QAbstractItemView::NoEditTriggers);
    griglia.setAlternatingRowColors(true);
    griglia.verticalHeader()->setVisible(false);
    griglia.verticalHeader()->setDefaultSectionSize(griglia.fontMetrics().height() + 8);
    griglia.horizontalHeader()->setStretchLastSection(false);
    griglia.horizontalHeader()->setHighlightSections(false);
    griglia.setStyleSheet(QStringLiteral("QTableWidget::item:selected { background: #f6d365; color: black; }"));
    for (int c = 1; c <= titoli.size(); ++c) {
        const bool numerica = colonneNumeriche.contains(c);
        griglia.horizontalHeader()->setSectionResizeMode(
            c, colonneLarghe.contains(c) ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
        if (auto* titolo = griglia.horizontalHeaderItem(c))
            titolo->setTextAlignment(numerica ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    }
}

void riempiGriglia(QTableWidget& griglia, const std::vector<RigaGriglia>& righe, const QList<int>& colonneNumeriche)
{
    griglia.clearSelection();
    griglia.setRowCount(static_cast<int>(righe.size()));
    for (int r = 0; r < static_cast<int>(righe.size()); ++r) {
        const RigaGriglia& riga = righe[static_cast<size_t>(r)];
        griglia.setItem(r, 0, new QTableWidgetItem(QString::number(riga.Indice)));
        for (int c = 0; c < riga.colonne.size() && c + 1 < griglia.columnCount(); ++c) {
            auto* cella = new QTableWidgetItem(riga.colonne[c]);
            if (colonneNumeriche.contains(c + 1))
                cella->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            griglia.setItem(r, c + 1, cella);
        }
    }
}

void riempiScelta(QComboBox& scelta, const QStringList& voci, const QString& testo)
{
    const QSignalBlocker blocco(scelta);
    scelta.clear();
    scelta.addItems(voci);
    scelta.setCurrentIndex(-1);
    scelta.setEditText(testo);
}

void mettiFocus(QWidget& schermo, const QString& controllo)
{
    if (controllo.isEmpty())
        return;
    if (auto* w = schermo.findChild<QWidget*>(controllo))
        w->setFocus();
}

void virgolaDecimale(QWidget& campo)
{
    auto* testo = qobject_cast<QLineEdit*>(&campo);
    if (!testo)
        return;
    QObject::connect(testo, &QLineEdit::textEdited, testo, [testo](const QString& t) {
        if (!t.contains(QLatin1Char('.')))
            return;
        const int cursore = testo->cursorPosition();
        QString corretto = t;
        corretto.replace(QLatin1Char('.'), QLatin1Char(','));
        testo->setText(corretto);
        testo->setCursorPosition(cursore);
    });
}

QPushButton* pulsante(const QString& nome, const QString& testo, QWidget* genitore)
{
    auto* p = new QPushButton(testo, genitore);
    p->setObjectName(nome);
    p->setAutoDefault(false);
    p->setMinimumHeight(30);
    return p;
}

QComboBox* sceltaModificabile(const QString& nome, QWidget* genitore, int larghezzaMinima)
{
    auto* scelta = new QComboBox(genitore);
    scelta->setObjectName(nome);
    scelta->setEditable(true);
    scelta->setInsertPolicy(QComboBox::NoInsert);
    if (larghezzaMinima > 0)
        scelta->setMinimumWidth(larghezzaMinima);
    return scelta;
}

StampaListino anteprimaListino(Sessione& sessione, QWidget* schermo)
{
    return [&sessione, schermo](const reports::ModelloStampa& modello) {
        reports::mostraAnteprimaStampa(modello, sessione.interazione,
                                       reports::stampantiDelleImpostazioni(sessione.PercorsoDB, sessione.errori),
                                       schermo);
    };
}

QVBoxLayout* creaComandiRiga(QWidget* dati, PulsantiListino& pulsanti)
{
    pulsanti.Ins = pulsante(QStringLiteral("Ins"), QStringLiteral("INSERISCI"), dati);
    pulsanti.Ins->setStyleSheet(QStringLiteral("font-weight: bold;"));
    pulsanti.Nuovo = pulsante(QStringLiteral("Nuovo"), QStringLiteral("NUOVO"), dati);
    pulsanti.Command15 = pulsante(QStringLiteral("Command15"), QStringLiteral("Cancella"), dati);
    auto* comandi = new QVBoxLayout;
    comandi->addWidget(pulsanti.Ins);
    comandi->addWidget(pulsanti.Nuovo);
    comandi->addWidget(pulsanti.Command15);
    comandi->addStretch();
    return comandi;
}

void creaComandiRicerca(QWidget* ricerca, PulsantiListino& pulsanti)
{
    pulsanti.Cerca = pulsante(QStringLiteral("Cerca"), QStringLiteral("CERCA"), ricerca);
    pulsanti.CL = pulsante(QStringLiteral("CL"), QStringLiteral("CANCELLA SELEZIONE"), ricerca);
}

QTableWidget* impaginaListino(QDialog& schermo, QWidget* sopra, QWidget* dati, QWidget* ricerca,
                              PulsantiListino& pulsanti)
{
    auto* rigaCentrale = new QHBoxLayout;
    rigaCentrale->addWidget(dati, 3);
    rigaCentrale->addWidget(ricerca, 2);

    auto* griglia = new QTableWidget(&schermo);
    griglia->setObjectName(QStringLiteral("Griglia"));

    pulsanti.Command1 = pulsante(QStringLiteral("Command1"), QStringLiteral("Stampa Visualizzati"), &schermo);
    pulsanti.Fine = pulsante(QStringLiteral("Fine"), QStringLiteral("Esci"), &schermo);
    auto* piede = new QHBoxLayout;
    piede->addWidget(pulsanti.Command1);
    piede->addStretch();
    piede->addWidget(pulsanti.Fine);

    auto* colonna = new QVBoxLayout(&schermo);
    if (sopra)
        colonna->addWidget(sopra);
    colonna->addLayout(rigaCentrale);
    colonna->addWidget(griglia, 1);
    colonna->addLayout(piede);
    return griglia;
}

} // namespace tomvera::prezzi
