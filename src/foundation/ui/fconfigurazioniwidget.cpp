#include "foundation/ui/fconfigurazioniwidget.h"

#include "foundation/archivio.h"
#include "foundation/sessione.h"
#include "foundation/ui/fconfigurazioniaiuti.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

using namespace configurazioniui;

FConfigurazioniWidget::FConfigurazioniWidget(Sessione& sessione, QWidget* genitore)
    : QDialog(genitore)
    , m_logica(sessione)
{
    setObjectName(QStringLiteral("F_Configurazioni"));
    setWindowTitle(QStringLiteral("Configurazioni"));
    auto* principale = new QVBoxLayout(this);
    m_schede = new QTabWidget;
    m_schede->setObjectName(QStringLiteral("Schede"));
    m_schede->addTab(schedaIntestazione(), QStringLiteral("Intestazione"));
    m_schede->addTab(schedaBanca(), QStringLiteral("Coordinate bancarie"));
    m_schede->addTab(schedaMessaggi(), QStringLiteral("Messaggi"));
    m_schede->addTab(schedaIva(), QStringLiteral("Iva"));
    m_schede->addTab(schedaBackup(), QStringLiteral("Backup"));
    m_schede->addTab(schedaSaleRistorante(), QStringLiteral("Sale, Ristorante, Spiaggia"));
    m_schede->addTab(schedaPassword(), QStringLiteral("Password"));
    m_schede->addTab(schedaSky(), QStringLiteral("Sky"));
    m_schede->addTab(schedaUtenti(), QStringLiteral("Utenti"));
    m_schede->addTab(schedaVarie(), QStringLiteral("Varie"));
    principale->addWidget(m_schede);

    auto* piede = new QHBoxLayout;
    piede->addStretch();
    auto* registra = pulsante("Registra", QStringLiteral("SALVA"));
    auto* fine = pulsante("Fine", QStringLiteral("ESCI"));
    piede->addWidget(registra);
    piede->addWidget(fine);
    principale->addLayout(piede);
    connect(registra, &QPushButton::clicked, this, [this] {
        daiControlli();
        m_logica.Registra_Click();
        versoControlli();
    });
    connect(fine, &QPushButton::clicked, this, &FConfigurazioniWidget::chiudiSeConsentito);
    resize(860, 640);
}

QWidget* FConfigurazioniWidget::schedaUtenti()
{
    auto* pagina = new QWidget;
    auto* h = new QHBoxLayout(pagina);
    auto* parametri = new QVBoxLayout;
    auto* f = modulo();
    m_utente = new QLineEdit;
    m_utente->setObjectName(QStringLiteral("Utente"));
    m_utente->setMaxLength(250);
    m_passwordUtente = new QLineEdit;
    m_passwordUtente->setObjectName(QStringLiteral("PasswordUtente"));
    m_passwordUtente->setEchoMode(QLineEdit::Password);
    m_confermaPasswordUtente = new QLineEdit;
    m_confermaPasswordUtente->setObjectName(QStringLiteral("ConfermaPasswordUtente"));
    m_confermaPasswordUtente->setEchoMode(QLineEdit::Password);
    f->addRow(QStringLiteral("UTENTE"), m_utente);
    f->addRow(QStringLiteral("PASSWORD"), m_passwordUtente);
    f->addRow(QStringLiteral("CONFERMA PASSWORD"), m_confermaPasswordUtente);
    m_rimuoviPasswordUtente = new QCheckBox(QStringLiteral("Nessuna password"));
    m_rimuoviPasswordUtente->setObjectName(QStringLiteral("RimuoviPasswordUtente"));
    m_nonAttivo = new QCheckBox(QStringLiteral("UTENTE NON ATTIVO"));
    m_nonAttivo->setObjectName(QStringLiteral("NonAttivo"));
    auto* opzioni = new QHBoxLayout;
    opzioni->addWidget(m_rimuoviPasswordUtente);
    opzioni->addWidget(m_nonAttivo);
    f->addRow(opzioni);
    parametri->addLayout(f);
    connect(m_rimuoviPasswordUtente, &QCheckBox::toggled, this, [this](bool si) {
        m_passwordUtente->setEnabled(!si);
        m_confermaPasswordUtente->setEnabled(!si);
    });

    auto* diritti = new QGridLayout;
    diritti->setVerticalSpacing(2);
    int riga = 0;
    for (const DescrizioneDiritto& d : dirittiUtente()) {
        auto* c = new QCheckBox(d.etichetta);
        c->setObjectName(nomeOggetto(d.campo));
        diritti->addWidget(c, riga, 0);
        m_diritti.push_back({ c, d.diritto });
        if (d.campoSoloLettura) {
            auto* s = new QCheckBox(QStringLiteral("Solo Lettura"));
            s->setObjectName(nomeOggetto(d.campoSoloLettura));
            diritti->addWidget(s, riga, 1);
            m_diritti.push_back({ s, d.soloLettura });
        }
        ++riga;
    }
    parametri->addLayout(diritti);
    auto* tutti = new QHBoxLayout;
    auto* seleziona = pulsante("SelezionaTutti", QStringLiteral("SELEZIONA TUTTI"));
    auto* deseleziona = pulsante("DeselezionaTutti", QStringLiteral("DESELEZIONA TUTTI"));
    tutti->addWidget(seleziona);
    tutti->addWidget(deseleziona);
    parametri->addLayout(tutti);
    auto* comandi = new QHBoxLayout;
    auto* nuovo = pulsante("Nuovo", QStringLiteral("NUOVO"));
    auto* ins = pulsante("Ins", QStringLiteral("REGISTRA"));
    comandi->addWidget(nuovo);
    comandi->addWidget(ins);
    parametri->addLayout(comandi);
    parametri->addStretch();
    h->addWidget(gruppo(QStringLiteral("PARAMETRI UTENTE"), parametri), 3);

    auto* lista = new QVBoxLayout;
    m_righeArt = new QTableWidget(0, 2);
    m_righeArt->setObjectName(QStringLiteral("RigheArt"));
    m_righeArt->setHorizontalHeaderLabels({ QStringLiteral("Utente"), QStringLiteral("Stato") });
    m_righeArt->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_righeArt->verticalHeader()->hide();
    m_righeArt->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_righeArt->setSelectionMode(QAbstractItemView::SingleSelection);
    m_righeArt->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lista->addWidget(m_righeArt);
    auto* elimina = pulsante("Command16", QStringLiteral("ELIMINA UTENTE SELEZIONATO"));
    lista->addWidget(elimina);
    h->addWidget(gruppo(QStringLiteral("LISTA UTENTI"), lista), 2);

    connect(seleziona, &QPushButton::clicked, this, [this] {
        utenteDaiControlli();
        m_logica.SelezionaTutti_Click();
        utenteVersoControlli();
    });
    connect(deseleziona, &QPushButton::clicked, this, [this] {
        utenteDaiControlli();
        m_logica.DeselezionaTutti_Click();
        utenteVersoControlli();
    });
    connect(nuovo, &QPushButton::clicked, this, [this] {
        m_logica.PulisciCampiUtente();
        utenteVersoControlli();
        m_righeArt->clearSelection();
        m_utente->setFocus();
    });
    connect(ins, &QPushButton::clicked, this, [this] {
        utenteDaiControlli();
        if (m_logica.Ins_Click())
            aggiornaGrigliaUtenti();
        utenteVersoControlli();
    });
    connect(elimina, &QPushButton::clicked, this, [this] {
        if (m_logica.Command16_Click())
            aggiornaGrigliaUtenti();
        utenteVersoControlli();
    });
    connect(m_righeArt, &QTableWidget::cellClicked, this, [this](int r, int) {
        m_logica.RigheArt_Click(r);
        utenteVersoControlli();
    });
    return pagina;
}

void FConfigurazioniWidget::carica()
{
    m_logica.stampanti = QPrinterInfo::availablePrinterNames();
    m_logica.Form_Load();
    m_gruppoOttimizzazione->setVisible(static_cast<bool>(m_logica.OttimizzazioneArchivio));
    for (auto& [pulsante, comando] : m_comandiEsterni) {
        pulsante->setVisible(static_cast<bool>(*comando));
        disconnect(pulsante, &QPushButton::clicked, this, nullptr);
        connect(pulsante, &QPushButton::clicked, this, [this, comando = comando] {
            // The handler sees the values on screen, saved or not; they stay on screen after it.
            daiControlli();
            (*comando)();
            versoControlli();
        });
    }
    versoControlli();
    // What the controls hold now is the saved state: a value the controls round counts as unchanged.
    daiControlli();
    m_logica.memorizzaStato();
}

void FConfigurazioniWidget::chiudiSeConsentito()
{
    daiControlli();
    if (m_logica.Fine_Click())
        QDialog::accept();
    else
        versoControlli();
}

void FConfigurazioniWidget::reject()
{
    // Esc and the close box go the way of ESCI: edits are never dropped without the question.
    chiudiSeConsentito();
}

void FConfigurazioniWidget::versoControlli()
{
    for (auto& f : m_dentro)
        f();
    mostraLogo();
    aggiornaIve();
    m_passwordProgramma->setText(m_logica.PasswordProgramma);
    m_confermaPasswordProgramma->setText(m_logica.ConfermaPasswordProgramma);
    m_rimuoviPasswordProgramma->setChecked(m_logica.RimuoviPasswordProgramma);
    m_rimuoviPasswordProgramma->setEnabled(m_logica.passwordAmministratorePresente());
    m_statoPassword->setText(m_logica.passwordAmministratorePresente()
                                 ? QStringLiteral("La password dell'Amministratore è impostata.")
                                 : QStringLiteral("Nessuna password: le configurazioni sono aperte a tutti."));
    aggiornaGrigliaUtenti();
    utenteVersoControlli();
}

void FConfigurazioniWidget::daiControlli()
{
    for (auto& f : m_fuori)
        f();
    m_logica.PasswordProgramma = m_passwordProgramma->text();
    m_logica.ConfermaPasswordProgramma = m_confermaPasswordProgramma->text();
    m_logica.RimuoviPasswordProgramma = m_rimuoviPasswordProgramma->isChecked();
}

void FConfigurazioniWidget::mostraLogo()
{
    // Nothing to remove without a logo: the button says so by being off.
    if (auto* rimuovi = findChild<QPushButton*>(QStringLiteral("RimuoviLogo")))
        rimuovi->setEnabled(!m_logica.Logo.isEmpty());
    QPixmap immagine;
    if (!m_logica.Logo.isEmpty() && immagine.loadFromData(m_logica.Logo))
        m_logo->setPixmap(immagine.scaled(m_logo->size() - QSize(8, 8), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    else {
        m_logo->setPixmap(QPixmap());
        m_logo->setText(m_logica.Logo.isEmpty() ? QStringLiteral("(nessun logo)")
                                                : QStringLiteral("(immagine non leggibile)"));
    }
}

void FConfigurazioniWidget::aggiornaIve()
{
    const auto& bloccate = m_logica.iveBloccate();
    for (size_t k = 0; k < 9; ++k) {
        m_valIva[k]->setReadOnly(bloccate[k]);
        m_valIva[k]->setButtonSymbols(bloccate[k] ? QAbstractSpinBox::NoButtons : QAbstractSpinBox::UpDownArrows);
        m_valIva[k]->setToolTip(bloccate[k] ? QStringLiteral("Aliquota in uso in documenti o listini") : QString());
        m_valIva[k]->setStyleSheet(bloccate[k] ? QStringLiteral("background: #e8e8e8;") : QString());
    }
}

void FConfigurazioniWidget::aggiornaGrigliaUtenti()
{
    m_righeArt->setRowCount(0);
    for (const utenti::Utente& u : m_logica.RigheArt) {
        const int r = m_righeArt->rowCount();
        m_righeArt->insertRow(r);
        m_righeArt->setItem(r, 0, new QTableWidgetItem(u.nome));
        m_righeArt->setItem(
            r, 1, new QTableWidgetItem(u.NonAttivo ? QStringLiteral("Non attivo") : QStringLiteral("Attivo")));
    }
    if (m_logica.rigaSelezionata >= 0)
        m_righeArt->selectRow(m_logica.rigaSelezionata);
}

void FConfigurazioniWidget::utenteVersoControlli()
{
    const utenti::Utente& u = m_logica.utente;
    m_utente->setText(u.nome);
    m_passwordUtente->setText(m_logica.PasswordUtente);
    m_confermaPasswordUtente->setText(m_logica.ConfermaPasswordUtente);
    m_passwordUtente->setPlaceholderText(m_logica.utenteHaPassword() ? QStringLiteral("(invariata)") : QString());
    m_confermaPasswordUtente->setPlaceholderText(m_passwordUtente->placeholderText());
    m_rimuoviPasswordUtente->setChecked(m_logica.RimuoviPasswordUtente);
    m_rimuoviPasswordUtente->setEnabled(m_logica.utenteHaPassword());
    m_nonAttivo->setChecked(u.NonAttivo);
    for (auto& [casella, diritto] : m_diritti)
        casella->setChecked(u.diritti.*diritto);
}

void FConfigurazioniWidget::utenteDaiControlli()
{
    utenti::Utente& u = m_logica.utente;
    u.nome = m_utente->text();
    m_logica.PasswordUtente = m_passwordUtente->text();
    m_logica.ConfermaPasswordUtente = m_confermaPasswordUtente->text();
    m_logica.RimuoviPasswordUtente = m_rimuoviPasswordUtente->isChecked();
    u.NonAttivo = m_nonAttivo->isChecked();
    for (auto& [casella, diritto] : m_diritti)
        u.diritti.*diritto = casella->isChecked();
}

void FConfigurazioniWidget::apri(Sessione& sessione, QWidget* genitore,
                                 const std::function<void(FConfigurazioni&)>& collega, std::function<void()> termina)
{
    if (!FPassWidget::consenti(sessione, genitore, std::move(termina)))
        return;
    FConfigurazioniWidget schermo(sessione, genitore);
    if (collega)
        collega(schermo.logica());
    schermo.carica();
    schermo.exec();
}

bool FPassWidget::consenti(Sessione& sessione, QWidget* genitore, std::function<void()> termina)
{
    QString memorizzata;
    {
        Archivio archivio(sessione.PercorsoDB, sessione.errori);
        if (archivio.apri())
            memorizzata = FPass::leggiPassword(archivio);
    }
    if (memorizzata.isEmpty())
        return true;
    FPassWidget pass(sessione.interazione, memorizzata, std::move(termina), genitore);
    pass.exec();
    return pass.aperto();
}

FPassWidget::FPassWidget(Interazione& interazione, const QString& memorizzata, std::function<void()> termina,
                         QWidget* genitore)
    : QDialog(genitore)
    , m_logica(interazione, memorizzata, std::move(termina))
{
    setObjectName(QStringLiteral("F_Pass"));
    setWindowTitle(QStringLiteral("Password"));
    auto* v = new QVBoxLayout(this);
    v->addWidget(new QLabel(QStringLiteral("Inserire la password dell'Amministratore:")));
    m_password = new QLineEdit;
    m_password->setObjectName(QStringLiteral("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    v->addWidget(m_password);
    auto* comandi = new QHBoxLayout;
    comandi->addStretch();
    auto* ok = new QPushButton(QStringLiteral("OK"));
    ok->setObjectName(QStringLiteral("Ok"));
    ok->setDefault(true);
    auto* annulla = new QPushButton(QStringLiteral("Annulla"));
    annulla->setObjectName(QStringLiteral("Annulla"));
    comandi->addWidget(ok);
    comandi->addWidget(annulla);
    v->addLayout(comandi);
    connect(ok, &QPushButton::clicked, this, [this] {
        m_logica.Password = m_password->text();
        m_aperto = m_logica.Ok_Click();
        if (m_aperto)
            accept();
        else
            reject();
    });
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);
}

} // namespace tomvera
