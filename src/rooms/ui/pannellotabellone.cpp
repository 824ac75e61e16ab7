#include "rooms/ui/pannellotabellone.h"

#include "rooms/tabellone.h"
#include "rooms/ui/immaginicamera.h"
#include "rooms/ui/strisciagiorni.h"
#include "rooms/ui/vistatabellone.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tomvera {

PannelloTabellone::PannelloTabellone(Tabellone& tabellone, QWidget* genitore)
    : QWidget(genitore)
    , m_tabellone(tabellone)
{
    setObjectName(QStringLiteral("PannelloTabellone"));
    setAutoFillBackground(true);
    auto* colonna = new QVBoxLayout(this);
    colonna->setContentsMargins(4, 4, 4, 4);
    colonna->setSpacing(4);

    // Period, floor and options.
    auto* periodo = new QWidget(this);
    periodo->setObjectName(QStringLiteral("FInfo"));
    auto* riga = new QHBoxLayout(periodo);
    riga->setContentsMargins(0, 0, 0, 0);
    riga->setSpacing(3);
    const auto campoData = [this](const QString& nome) {
        auto* d = new QDateEdit(this);
        d->setObjectName(nome);
        d->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        d->setCalendarPopup(true);
        d->setMinimumWidth(110);
        return d;
    };
    m_dal = campoData(QStringLiteral("Dal"));
    m_al = campoData(QStringLiteral("Al"));
    riga->addWidget(new QLabel(QStringLiteral("Dal"), this));
    riga->addWidget(freccia(QStringLiteral("MenoArrivo"), Qt::LeftArrow));
    riga->addWidget(m_dal);
    riga->addWidget(freccia(QStringLiteral("PiuArrivo"), Qt::RightArrow));
    riga->addSpacing(8);
    riga->addWidget(new QLabel(QStringLiteral("Al"), this));
    riga->addWidget(freccia(QStringLiteral("MenoPartenza"), Qt::LeftArrow));
    riga->addWidget(m_al);
    riga->addWidget(freccia(QStringLiteral("PiuPartenza"), Qt::RightArrow));
    riga->addSpacing(8);
    m_oggi = pulsante(QStringLiteral("Command6"), QStringLiteral("OGGI"));
    riga->addWidget(m_oggi);
    riga->addWidget(pulsante(QStringLiteral("Aggiorna"), QStringLiteral("AGGIORNA")));
    riga->addSpacing(12);
    riga->addWidget(new QLabel(QStringLiteral("Piano"), this));
    m_piano = new QLineEdit(this);
    m_piano->setObjectName(QStringLiteral("NroPiano"));
    m_piano->setReadOnly(true);
    m_piano->setAlignment(Qt::AlignCenter);
    m_piano->setFixedWidth(40);
    riga->addWidget(m_piano);
    auto* upDown = new QWidget(this);
    upDown->setObjectName(QStringLiteral("UpDown1"));
    auto* frecce = new QVBoxLayout(upDown);
    frecce->setContentsMargins(0, 0, 0, 0);
    frecce->setSpacing(0);
    QToolButton* su = freccia(QStringLiteral("UpDown1Piu"), Qt::UpArrow);
    QToolButton* giu = freccia(QStringLiteral("UpDown1Meno"), Qt::DownArrow);
    su->setFixedHeight(13);
    giu->setFixedHeight(13);
    su->setToolTip(QStringLiteral("Piano superiore"));
    giu->setToolTip(QStringLiteral("Piano inferiore"));
    frecce->addWidget(su);
    frecce->addWidget(giu);
    riga->addWidget(upDown);
    m_etichettaAzienda = new QLabel(QStringLiteral("Azienda"), this);
    riga->addWidget(m_etichettaAzienda);
    m_azienda = new QComboBox(this);
    m_azienda->setObjectName(QStringLiteral("CodiceAzienda"));
    m_azienda->setMinimumWidth(110);
    riga->addWidget(m_azienda);
    riga->addStretch();
    m_informazioni = new QCheckBox(QStringLiteral(" INF."), this);
    m_informazioni->setObjectName(QStringLiteral("InformazioniCamera"));
    m_calendario = new QCheckBox(QStringLiteral("CAL."), this);
    m_calendario->setObjectName(QStringLiteral("MostraCalendario"));
    m_multipla = pulsante(QStringLiteral("PrenotazioneMultipla"), QStringLiteral("P.M."));
    m_multipla->setCheckable(true);
    m_multipla->setToolTip(QStringLiteral("Prenotazione multipla: selezionare più camere sul tabellone, poi "
                                          "\"Prenota\" per una sola prenotazione"));
    m_informazioni->setToolTip(QStringLiteral("Informazioni camera: al passaggio del mouse su una camera mostra "
                                              "periodi e ospiti"));
    m_calendario->setToolTip(QStringLiteral("Calendario: mostra i giorni della camera selezionata e permette di "
                                            "scegliere le date con due clic"));
    riga->addWidget(m_informazioni);
    riga->addWidget(m_calendario);
    riga->addWidget(m_multipla);
    colonna->addWidget(periodo);

    // Counters and the hint of the two-click choice.
    auto* contatori = new QHBoxLayout;
    m_disponibili = new QLabel(this);
    m_disponibili->setObjectName(QStringLiteral("CamereDisponibili"));
    m_presenti = new QLabel(this);
    m_presenti->setObjectName(QStringLiteral("PersonePresenti"));
    m_selezionaAl = new QLabel(Tabellone::testoSelezionaAl(), this);
    m_selezionaAl->setObjectName(QStringLiteral("SelezionaAl"));
    m_selezionaAl->setStyleSheet(QStringLiteral("color: #0b5394; font-weight: bold;"));
    QFont grassetto = m_disponibili->font();
    grassetto.setBold(true);
    grassetto.setPointSizeF(grassetto.pointSizeF() * 1.15);
    m_disponibili->setFont(grassetto);
    m_presenti->setFont(grassetto);
    contatori->addWidget(m_disponibili);
    contatori->addSpacing(24);
    contatori->addWidget(m_presenti);
    contatori->addStretch();
    contatori->addWidget(m_selezionaAl);
    colonna->addLayout(contatori);

    // Add-room banner.
    m_frameAggiungi = new QWidget(this);
    m_frameAggiungi->setObjectName(QStringLiteral("FrameAggiungiCamera"));
    m_frameAggiungi->setStyleSheet(
        QStringLiteral("#FrameAggiungiCamera { background: #fff2cc; border: 1px solid #e0a800; }"));
    auto* banner = new QHBoxLayout(m_frameAggiungi);
    auto* testoAggiungi
        = new QLabel(QStringLiteral("SELEZIONARE LA CAMERA DA AGGIUNGERE ALLA PRENOTAZIONE"), m_frameAggiungi);
    testoAggiungi->setStyleSheet(QStringLiteral("font-weight: bold;"));
    banner->addWidget(testoAggiungi);
    banner->addStretch();
    auto* chiudi = new QPushButton(QStringLiteral("CHIUDI"), m_frameAggiungi);
    chiudi->setObjectName(QStringLiteral("Command13"));
    banner->addWidget(chiudi);
    colonna->addWidget(m_frameAggiungi);

    // Tiles and, beside them, the multiple selection.
    auto* centro = new QHBoxLayout;
    m_vista = new VistaTabellone(m_tabellone, this);
    m_vista->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    centro->addWidget(m_vista, 1);
    m_frameMultipla = new QWidget(this);
    m_frameMultipla->setObjectName(QStringLiteral("FramePrenotazioneMultipla"));
    m_frameMultipla->setFixedWidth(250);
    auto* multipla = new QVBoxLayout(m_frameMultipla);
    multipla->setContentsMargins(0, 0, 0, 0);
    m_griglia = new QTableWidget(0, 3, m_frameMultipla);
    m_griglia->setObjectName(QStringLiteral("Griglia"));
    m_griglia->setHorizontalHeaderLabels(
        { QStringLiteral("N° Camera"), QStringLiteral("Arrivo"), QStringLiteral("Partenza") });
    m_griglia->verticalHeader()->hide();
    m_griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_griglia->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_griglia->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    multipla->addWidget(m_griglia);
    auto* comandiMultipla = new QHBoxLayout;
    m_prenota = new QPushButton(QStringLiteral("Prenota"), m_frameMultipla);
    m_prenota->setObjectName(QStringLiteral("Prenotazione"));
    auto* annulla = new QPushButton(QStringLiteral("Annulla"), m_frameMultipla);
    annulla->setObjectName(QStringLiteral("AnnullaPrenotazioneMultipla"));
    comandiMultipla->addWidget(m_prenota);
    comandiMultipla->addWidget(annulla);
    multipla->addLayout(comandiMultipla);
    centro->addWidget(m_frameMultipla);
    colonna->addLayout(centro, 1);

    // An archive without rooms yet: one line on where they are made.
    m_suggerimento = new QLabel(QStringLiteral("Nessuna camera in archivio: crearle dal menù Configurazioni, "
                                               "\"Configurazione Camere\"."),
                                this);
    m_suggerimento->setObjectName(QStringLiteral("SuggerimentoCamere"));
    m_suggerimento->setAlignment(Qt::AlignCenter);
    m_suggerimento->setStyleSheet(QStringLiteral("QLabel { font-size: 13pt; font-weight: bold; color: #0b5394; }"));
    m_suggerimento->hide();
    colonna->insertWidget(colonna->indexOf(m_frameAggiungi) + 1, m_suggerimento);

    m_striscia = new StrisciaGiorni(m_tabellone, this);
    colonna->addWidget(m_striscia);

    m_info = new QLabel(m_vista);
    m_info->setObjectName(QStringLiteral("FrameInfoCamera"));
    m_info->setStyleSheet(QStringLiteral("background: #ffffe1; border: 1px solid #555; padding: 4px;"));
    m_info->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_info->hide();

    // Clicks go to the logic.
    Tabellone* t = &m_tabellone;
    const auto collega = [this](const QString& nome, auto azione) {
        if (auto* b = findChild<QAbstractButton*>(nome))
            connect(b, &QAbstractButton::clicked, this, azione);
    };
    collega(QStringLiteral("MenoArrivo"), [t] { t->MenoArrivo_Click(); });
    collega(QStringLiteral("PiuArrivo"), [t] { t->PiuArrivo_Click(); });
    collega(QStringLiteral("MenoPartenza"), [t] { t->MenoPartenza_Click(); });
    collega(QStringLiteral("PiuPartenza"), [t] { t->PiuPartenza_Click(); });
    collega(QStringLiteral("Command6"), [t] { t->Command6_Click(); });
    collega(QStringLiteral("Aggiorna"), [t] { t->Aggiorna_Click(); });
    collega(QStringLiteral("UpDown1Piu"), [t] { t->UpDown1_Click(true); });
    collega(QStringLiteral("UpDown1Meno"), [t] { t->UpDown1_Click(false); });
    collega(QStringLiteral("PrenotazioneMultipla"), [t] { t->PrenotazioneMultipla_Click(); });
    collega(QStringLiteral("Prenotazione"), [t] { t->Prenotazione_Click(); });
    collega(QStringLiteral("AnnullaPrenotazioneMultipla"), [t] { t->AnnullaPrenotazioneMultipla_Click(); });
    collega(QStringLiteral("Command13"), [t] { t->AbilitaDisabilita(QStringLiteral("disabilita aggiuntacamere")); });
    connect(m_informazioni, &QCheckBox::toggled, this, [this](bool v) {
        if (!m_copiando)
            m_tabellone.InformazioniCamera_Click(v);
    });
    connect(m_calendario, &QCheckBox::toggled, this, [this](bool v) {
        if (!m_copiando)
            m_tabellone.MostraCalendario_Click(v);
    });
    connect(m_dal, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        if (!m_copiando)
            m_tabellone.Dal_Change(d);
    });
    connect(m_al, &QDateEdit::dateChanged, this, [this](const QDate& d) {
        if (!m_copiando)
            m_tabellone.Al_Change(d);
    });
    connect(m_azienda, &QComboBox::activated, this,
            [this](int i) { m_tabellone.CodiceAzienda_Click(i <= 0 ? QString() : m_azienda->itemText(i)); });
    connect(&m_tabellone, &Tabellone::aggiornato, this, &PannelloTabellone::aggiornaControlli);
    connect(&m_tabellone, &Tabellone::statoCambiato, this, &PannelloTabellone::aggiornaControlli);
    aggiornaControlli();
}

QPushButton* PannelloTabellone::pulsante(const QString& nome, const QString& testo)
{
    auto* b = new QPushButton(testo, this);
    b->setObjectName(nome);
    b->setMinimumHeight(26);
    return b;
}

QToolButton* PannelloTabellone::freccia(const QString& nome, Qt::ArrowType direzione)
{
    auto* b = new QToolButton(this);
    b->setObjectName(nome);
    b->setArrowType(direzione);
    b->setAutoRaise(false);
    return b;
}

void PannelloTabellone::applicaStile()
{
    const ColoriStile colori = coloriStile(m_tabellone.grafica());
    QPalette tavolozza = palette();
    tavolozza.setColor(QPalette::Window, coloreQt(colori.sfondoFrame));
    setPalette(tavolozza);
    const QColor oggi = coloreQt(colori.command6);
    m_oggi->setStyleSheet(
        QStringLiteral("QPushButton { background: %1; font-weight: bold; padding: 2px 10px; }").arg(oggi.name()));
}

void PannelloTabellone::aggiornaControlli()
{
    m_copiando = true;
    const Tabellone& t = m_tabellone;
    m_dal->setDate(t.Dal);
    m_al->setDate(t.Al);
    m_piano->setText(QString::number(t.NroPiano));
    const bool multi = t.multiAzienda();
    m_azienda->setVisible(multi);
    m_etichettaAzienda->setVisible(multi);
    if (multi) {
        QStringList voci = { QString() };
        voci += t.Aziende;
        QStringList attuali;
        for (int i = 0; i < m_azienda->count(); ++i)
            attuali.append(m_azienda->itemText(i));
        if (attuali != voci) {
            m_azienda->clear();
            m_azienda->addItems(voci);
        }
        m_azienda->setCurrentIndex(std::max(0, static_cast<int>(voci.indexOf(t.CodiceAzienda))));
    }
    m_informazioni->setChecked(t.InformazioniCamera);
    m_calendario->setChecked(t.MostraCalendario);
    m_disponibili->setText(t.CamereDisponibili);
    m_presenti->setText(t.PersonePresenti);
    m_selezionaAl->setVisible(t.SelezionaAlVisibile);
    m_striscia->setVisible(t.MostraCalendario);

    const bool multipla = t.modo() == Tabellone::Modo::Multipla;
    const bool aggiunta = t.modo() == Tabellone::Modo::AggiuntaCamera;
    m_multipla->setChecked(multipla);
    m_multipla->setEnabled(!aggiunta);
    m_frameMultipla->setVisible(multipla);
    m_frameAggiungi->setVisible(aggiunta);
    m_griglia->setRowCount(static_cast<int>(t.Griglia.size()));
    for (int i = 0; i < t.Griglia.size(); ++i) {
        const CameraSelezionata& c = t.Griglia.at(i);
        m_griglia->setItem(i, 0, new QTableWidgetItem(c.NroCamera));
        m_griglia->setItem(i, 1, new QTableWidgetItem(c.Arrivo.toString(QStringLiteral("dd/MM/yyyy"))));
        m_griglia->setItem(i, 2, new QTableWidgetItem(c.Partenza.toString(QStringLiteral("dd/MM/yyyy"))));
    }
    m_prenota->setEnabled(t.PrenotazioneAbilitata());
    m_prenota->setStyleSheet(t.PrenotazioneAbilitata() ? QStringLiteral("QPushButton { background: #ffff80; }")
                                                       : QString());
    applicaStile();
    m_suggerimento->setVisible(t.NessunaCamera);
    m_info->setText(t.InfoCamera);
    m_info->setVisible(t.InfoCameraVisibile && !t.InfoCamera.isEmpty());
    if (m_info->isVisible())
        posizionaInfo();
    m_copiando = false;
    // The counters change width: lay out now, so a grab or the next paint shows them whole.
    layout()->activate();
    emit titoloCambiato(t.Titolo);
}

void PannelloTabellone::posizionaInfo()
{
    m_info->adjustSize();
    const QRectF tessera = m_vista->riquadroTessera(m_tabellone.tesseraEvidenziata);
    if (tessera.isNull())
        return;
    // Beside the tile, on the side with room, and never off the board.
    QPoint punto(static_cast<int>(tessera.right()) + 4, static_cast<int>(tessera.top()));
    if (punto.x() + m_info->width() > m_vista->width())
        punto.setX(static_cast<int>(tessera.left()) - m_info->width() - 4);
    punto.setX(std::clamp(punto.x(), 0, std::max(0, m_vista->width() - m_info->width())));
    punto.setY(std::clamp(punto.y(), 0, std::max(0, m_vista->height() - m_info->height())));
    m_info->move(punto);
    m_info->raise();
}

void PannelloTabellone::resizeEvent(QResizeEvent* evento)
{
    QWidget::resizeEvent(evento);
    // The strip holds as many days as the screen is wide; a resize rebuilds the board.
    m_tabellone.InizializzaCompontenti(width());
    m_tabellone.daRicostruire = true;
}

} // namespace tomvera
