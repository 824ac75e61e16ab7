// The tab "DATI CLIENTI" of F_Prenotazione.
#include "foundation/formati.h"
#include "pricelists/calcoloprezzi.h"
#include "reservations/regoleospiti.h"
#include "reservations/schedaprenotazione.h"
#include "reservations/ui/aiuti.h"
#include "reservations/ui/prenotazionewidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace tomvera {

namespace {

using aiuti::riempi;

// Visible columns of the guest list: field and title.
const QList<std::pair<const char*, const char*>>& colonneClienti()
{
    static const QList<std::pair<const char*, const char*>> colonne = {
        { "DataArrivo", "Data Arrivo" },
        { "DataPartenza", "Data Partenza" },
        { "NroArrivo", "Nro Arr." },
        { "RagSociale", "Ragione Sociale" },
        { "Nome", "Nome" },
        { "Cognome", "Cognome" },
        { "Cellulare", "Cellulare" },
        { "Telefono", "Telefono" },
        { "NroCameraCliente", "N° Cam." },
        { "ClienteIntestatario", "X" },
        { "TipoTrattamento", "Trattamento" },
        { "PrezzoTrattamento", "Prezzo Trattamento" },
        { "TotalePrezzoTrattamento", "Totale Prezzo Trattamento" },
        { "TipoDiAlloggiato", "Tipo Alloggiato" },
    };
    return colonne;
}

QComboBox* scelta(const QString& nome, QWidget* genitore, bool modificabile = false)
{
    auto* c = new QComboBox(genitore);
    c->setObjectName(nome);
    c->setEditable(modificabile);
    return c;
}

QString testoCella(const OspitePrenotazione& o, const QString& campo)
{
    const QVariant v = o.valore(campo);
    if (campo.startsWith(QLatin1String("Data"))) {
        const QDate d = o.data(campo);
        return d.isValid() ? testoData(d) : QString();
    }
    if (campo.contains(QLatin1String("Prezzo")))
        return formattaNumero(v.toDouble(), 2);
    if (campo == QLatin1String("NroArrivo"))
        return v.toInt() == 0 ? QString() : QString::number(v.toInt());
    if (campo == QLatin1String("ClienteIntestatario"))
        return v.toInt() == 1 ? QStringLiteral("X") : QString();
    return v.toString();
}

} // namespace

QLineEdit* PrenotazioneWidget::campoCliente(const QString& nome, QWidget* genitore)
{
    auto* c = new QLineEdit(genitore);
    // The residence town is the field Comune, shown as Citta as on the guest card.
    c->setObjectName(nome == QLatin1String("Comune") ? QStringLiteral("Citta") : nome);
    m_campiCliente.insert(nome, c);
    return c;
}

QWidget* PrenotazioneWidget::creaSchedaClienti()
{
    auto* scheda = new QWidget(this);
    auto* v = new QVBoxLayout(scheda);
    auto* g = new QGridLayout;
    int riga = 0, colonna = 0;
    const auto aggiungi = [&](const QString& etichetta, QWidget* w, int larghezza = 1) {
        g->addWidget(new QLabel(etichetta, scheda), riga, colonna);
        g->addWidget(w, riga, colonna + 1, 1, larghezza);
        colonna += 1 + larghezza;
        if (colonna >= 8) {
            colonna = 0;
            ++riga;
        }
    };
    aggiungi(QStringLiteral("Ragione Sociale"), campoCliente(QStringLiteral("RagSociale"), scheda), 3);
    aggiungi(QStringLiteral("Cognome"), campoCliente(QStringLiteral("Cognome"), scheda));
    aggiungi(QStringLiteral("Nome"), campoCliente(QStringLiteral("Nome"), scheda));
    m_maschio = new QRadioButton(QStringLiteral("Maschio"), scheda);
    m_maschio->setObjectName(QStringLiteral("Maschio"));
    m_femmina = new QRadioButton(QStringLiteral("Femmina"), scheda);
    m_femmina->setObjectName(QStringLiteral("Femmina"));
    auto* sesso = new QHBoxLayout;
    sesso->addWidget(m_maschio);
    sesso->addWidget(m_femmina);
    g->addLayout(sesso, riga, colonna, 1, 2);
    colonna = 0;
    ++riga;
    for (const auto& [campo, etichetta] : { std::pair { "DataNascita", "Data di Nascita" },
                                            { "LuogoNascita", "Luogo di Nascita" },
                                            { "ProvinciaDiNascita", "Prov. Nascita" },
                                            { "StatoDiNascita", "Stato di Nascita" },
                                            { "Cittadinanza", "Cittadinanza" },
                                            { "CodiceFiscale", "Codice Fiscale" },
                                            { "Indirizzo", "Indirizzo" },
                                            { "Cap", "Cap" },
                                            { "Comune", "Città" },
                                            { "Provincia", "Provincia" },
                                            { "Nazione", "Nazione" },
                                            { "TipoDocumento", "Tipo Documento" },
                                            { "NroDocumento", "N° Documento" },
                                            { "DataDocumento", "Data Documento" },
                                            { "LuogoDocumento", "Luogo Documento" },
                                            { "Cellulare", "Cellulare" },
                                            { "Telefono", "Telefono" },
                                            { "Email", "Email" } })
        aggiungi(QString::fromUtf8(etichetta), campoCliente(QLatin1String(campo), scheda));
    if (colonna != 0) {
        colonna = 0;
        ++riga;
    }
    m_nroCameraCliente = scelta(QStringLiteral("NroCameraCliente"), scheda);
    aggiungi(QStringLiteral("N° Camera"), m_nroCameraCliente);
    aggiungi(QStringLiteral("Data Arrivo"), campoCliente(QStringLiteral("DataArrivo"), scheda));
    aggiungi(QStringLiteral("Data Partenza"), campoCliente(QStringLiteral("DataPartenza"), scheda));
    m_tipoTrattamento = scelta(QStringLiteral("TipoTrattamento"), scheda, true);
    aggiungi(QStringLiteral("Trattamento"), m_tipoTrattamento);
    aggiungi(QStringLiteral("Prezzo Trattamento"), campoCliente(QStringLiteral("PrezzoTrattamento"), scheda));
    m_tipoAlloggiato = scelta(QStringLiteral("TipoDiAlloggiato"), scheda);
    m_tipoAlloggiato->addItems(tipoalloggiato::tutti());
    aggiungi(QStringLiteral("Tipo Alloggiato"), m_tipoAlloggiato);
    m_capoGruppo = scelta(QStringLiteral("CapoGruppoFamiglia"), scheda);
    g->addWidget(m_etichettaCapo = new QLabel(QStringLiteral("Capogruppo / Capofamiglia"), scheda), riga, colonna);
    g->addWidget(m_capoGruppo, riga, colonna + 1);
    colonna += 2;
    aggiungi(QStringLiteral("N° Arrivo"), campoCliente(QStringLiteral("NroArrivo"), scheda));
    m_tipoTurismo = scelta(QStringLiteral("TipoTurismo"), scheda);
    m_tipoTurismo->addItems(QStringList(QString()) + paroleTipoTurismo());
    aggiungi(QStringLiteral("Tipo Turismo"), m_tipoTurismo);
    m_mezzoTrasporto = scelta(QStringLiteral("MezzoDiTrasporto"), scheda);
    m_mezzoTrasporto->addItems(QStringList(QString()) + paroleMezzoDiTrasporto());
    aggiungi(QStringLiteral("Mezzo di Trasporto"), m_mezzoTrasporto);
    aggiungi(QStringLiteral("Camere Occupate"), campoCliente(QStringLiteral("CamereOccupate"), scheda));
    v->addLayout(g);

    auto* spunte = new QHBoxLayout;
    m_arrivato = new QCheckBox(QStringLiteral("ARRIVATO"), scheda);
    m_arrivato->setObjectName(QStringLiteral("Arrivato"));
    m_arrivato->setToolTip(QStringLiteral("CLIENTE ARRIVATO (CHECK-IN)"));
    m_intestatario = new QCheckBox(QStringLiteral("Intestatario per Ricevuta / Fattura"), scheda);
    m_intestatario->setObjectName(QStringLiteral("ClienteIntestatario"));
    m_nonModificare = new QCheckBox(QStringLiteral("Non Aggiornare Anagrafica"), scheda);
    m_nonModificare->setObjectName(QStringLiteral("NonModificareDatiCliente"));
    for (QCheckBox* c : { m_arrivato, m_intestatario, m_nonModificare })
        spunte->addWidget(c);
    spunte->addStretch(1);
    v->addLayout(spunte);

    auto* comandi = new QHBoxLayout;
    const auto bottone = [&](const char* nome, const char* testo) {
        auto* b = new QPushButton(QString::fromUtf8(testo), scheda);
        b->setObjectName(QLatin1String(nome));
        comandi->addWidget(b);
        return b;
    };
    m_inserisciCliente = bottone("Command4", "INSERISCI e/o MODIFICA CLIENTE NELLA PRENOTAZIONE");
    m_inserisciCliente->setStyleSheet(QStringLiteral("background: #e05050; color: white; font-weight: bold"));
    m_rimuoviCliente = bottone("Command10", "RIMUOVI CLIENTE DALLA PRENOTAZIONE");
    auto* nuovo = bottone("Command1", "NUOVO CLIENTE");
    auto* apriScheda = bottone("Command14", "APRI SCHEDA CLIENTE");
    comandi->addStretch(1);
    v->addLayout(comandi);
    comandi = new QHBoxLayout;
    auto* proponi = bottone("Command13", "PROPONI NUMERO DI ARRIVO");
    auto* cancellaNro = bottone("CancellaNroArrivo", "CANCELLA NUMERO DI ARRIVO");
    auto* trattamento = bottone("Command18", "CALCOLA TRATTAMENTO");
    m_ultimiDati = bottone("InserisciUltimiDatiInseriti", "inserisci ultimi dati inseriti »");
    comandi->addStretch(1);
    v->addLayout(comandi);

    m_clienti = new QTableWidget(0, colonneClienti().size(), scheda);
    m_clienti->setObjectName(QStringLiteral("GrigliaAnagrafiche"));
    QStringList titoli;
    for (const auto& c : colonneClienti())
        titoli << QString::fromUtf8(c.second);
    m_clienti->setHorizontalHeaderLabels(titoli);
    m_clienti->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_clienti->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_clienti->verticalHeader()->setVisible(false);
    m_clienti->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_clienti->installEventFilter(this);
    v->addWidget(m_clienti, 1);
    m_numeroPersone = new QLabel(scheda);
    m_numeroPersone->setObjectName(QStringLiteral("NumeroPersone"));
    v->addWidget(m_numeroPersone);

    connect(m_inserisciCliente, &QPushButton::clicked, this,
            [this] { comando([this] { m_logica->Command4_Click(); }); });
    connect(m_rimuoviCliente, &QPushButton::clicked, this,
            [this] { comando([this] { m_logica->Command10_Click(); }); });
    connect(nuovo, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Command1_Click(); }); });
    connect(apriScheda, &QPushButton::clicked, this, [this] {
        leggiClienti();
        emit apriSchedaCliente(m_logica->Cliente.valore(QStringLiteral("IndiceCliente")).toLongLong());
    });
    // Leaving the name of a guest typed by hand: the registry may already know it. Queued, so that a card
    // chosen from the look-ahead is loaded first.
    connect(m_campiCliente.value(QStringLiteral("Nome")), &QLineEdit::editingFinished, this, [this] {
        if (!m_campiCliente.value(QStringLiteral("Nome"))->isModified())
            return;
        m_campiCliente.value(QStringLiteral("Nome"))->setModified(false);
        QMetaObject::invokeMethod(
            this, [this] { comando([this] { m_logica->ControllaEsistenzaAnagrafica(); }); }, Qt::QueuedConnection);
    });
    connect(proponi, &QPushButton::clicked, this, [this] { comando([this] { m_logica->Command13_Click(); }); });
    connect(cancellaNro, &QPushButton::clicked, this,
            [this] { comando([this] { m_logica->CancellaNroArrivo_Click(); }); });
    connect(trattamento, &QPushButton::clicked, this, [this] { comando([this] { m_logica->CalcolaTrattamento(); }); });
    connect(m_ultimiDati, &QPushButton::clicked, this,
            [this] { comando([this] { m_logica->InserisciUltimiDatiInseriti_Click(); }); });
    connect(m_clienti, &QTableWidget::cellClicked, this,
            [this](int r, int) { comando([this, r] { m_logica->SelezioneNormaleCliente(r); }); });
    connect(m_arrivato, &QCheckBox::clicked, this,
            [this](bool s) { comando([this, s] { m_logica->Arrivato_MouseUp(s); }); });
    connect(m_nroCameraCliente, &QComboBox::textActivated, this,
            [this](const QString& c) { comando([this, c] { m_logica->NroCameraCliente_Click(c); }); });
    connect(m_tipoTrattamento, &QComboBox::textActivated, this,
            [this](const QString& t) { comando([this, t] { m_logica->TipoTrattamento_Click(t); }); });
    connect(m_tipoAlloggiato, &QComboBox::textActivated, this,
            [this](const QString& t) { comando([this, t] { m_logica->TipoDiAlloggiato_Click(t); }); });
    connect(m_nonModificare, &QCheckBox::clicked, this, [this] { leggiClienti(); });
    QLineEdit* nroArrivo = m_campiCliente.value(QStringLiteral("NroArrivo"));
    connect(nroArrivo, &QLineEdit::textEdited, this, [this, nroArrivo] {
        leggiClienti();
        nroArrivo->setStyleSheet(m_logica->ControllaEsistenzaNroArrivo() ? QStringLiteral("background: #ffb0b0")
                                                                         : QString());
    });
    for (const char* campoData : { "DataArrivo", "DataPartenza" }) {
        QLineEdit* e = m_campiCliente.value(QLatin1String(campoData));
        connect(e, &QLineEdit::editingFinished, this, [this, e] {
            if (const auto d = leggiData(e->text()))
                e->setText(testoData(*d));
            comando([this] { m_logica->CalcolaTrattamento(); });
        });
    }
    // Name look-ahead: choosing a card loads it into the entry line.
    for (const char* nome : { "RagSociale", "Cognome", "Nome" }) {
        QLineEdit* e = m_campiCliente.value(QLatin1String(nome));
        auto* modello = new QStringListModel(e);
        auto* completa = new QCompleter(modello, e);
        completa->setCaseSensitivity(Qt::CaseInsensitive);
        e->setCompleter(completa);
        auto proposte = std::make_shared<QList<SchedaPrenotazione::PropostaCliente>>();
        connect(e, &QLineEdit::textEdited, this, [this, modello, proposte, nome](const QString& testo) {
            if (testo.size() < 2)
                return;
            *proposte = m_logica->proposteCliente(QLatin1String(nome), testo);
            QStringList voci;
            for (const auto& p : std::as_const(*proposte))
                voci << p.testo;
            modello->setStringList(voci);
        });
        connect(
            completa, qOverload<const QString&>(&QCompleter::activated), this, [this, proposte](const QString& scelto) {
                for (const auto& p : std::as_const(*proposte)) {
                    if (p.testo == scelto) {
                        const qint64 indice = p.indice;
                        // After the completer has written its text into the field.
                        QMetaObject::invokeMethod(
                            this, [this, indice] { comando([this, indice] { m_logica->CaricaDatiCliente(indice); }); },
                            Qt::QueuedConnection);
                        break;
                    }
                }
            });
    }
    return scheda;
}

void PrenotazioneWidget::leggiClienti()
{
    SchedaPrenotazione& l = *m_logica;
    for (auto it = m_campiCliente.cbegin(); it != m_campiCliente.cend(); ++it)
        l.Cliente.imposta(it.key(), it.value()->text());
    l.Cliente.imposta(QStringLiteral("NroCameraCliente"), m_nroCameraCliente->currentText());
    l.Cliente.imposta(QStringLiteral("TipoTrattamento"), m_tipoTrattamento->currentText());
    l.Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), m_tipoAlloggiato->currentText());
    l.Cliente.imposta(QStringLiteral("CapoGruppoFamiglia"),
                      tipoalloggiato::capo(m_tipoAlloggiato->currentText()) ? QString() : m_capoGruppo->currentText());
    l.Cliente.imposta(QStringLiteral("TipoTurismo"), m_tipoTurismo->currentText());
    l.Cliente.imposta(QStringLiteral("MezzoDiTrasporto"), m_mezzoTrasporto->currentText());
    l.Cliente.imposta(QStringLiteral("Arrivato"), m_arrivato->isChecked() ? 1 : 0);
    l.Cliente.imposta(QStringLiteral("ClienteIntestatario"), m_intestatario->isChecked() ? 1 : 0);
    l.Maschio = m_maschio->isChecked();
    l.Femmina = m_femmina->isChecked();
    l.NonModificareDatiCliente = m_nonModificare->isChecked();
}

void PrenotazioneWidget::aggiornaClienti()
{
    SchedaPrenotazione& l = *m_logica;
    for (auto it = m_campiCliente.cbegin(); it != m_campiCliente.cend(); ++it)
        it.value()->setText(l.Cliente.testo(it.key()));
    riempi(m_nroCameraCliente, QStringList(QString()) + l.sceltaCamere(), l.Cliente.NroCameraCliente());
    riempi(m_tipoTrattamento, prezzi::paroleTrattamento(), l.Cliente.testo(QStringLiteral("TipoTrattamento")));
    m_tipoAlloggiato->setCurrentText(l.Cliente.testo(QStringLiteral("TipoDiAlloggiato")));
    const bool seguace = tipoalloggiato::seguace(l.Cliente.testo(QStringLiteral("TipoDiAlloggiato")));
    riempi(m_capoGruppo, l.capiDisponibili(), l.Cliente.testo(QStringLiteral("CapoGruppoFamiglia")));
    m_capoGruppo->setVisible(seguace);
    m_etichettaCapo->setVisible(seguace);
    m_tipoTurismo->setEnabled(!seguace);
    m_mezzoTrasporto->setEnabled(!seguace);
    m_campiCliente.value(QStringLiteral("CamereOccupate"))->setEnabled(!seguace);
    m_tipoTurismo->setCurrentText(l.Cliente.testo(QStringLiteral("TipoTurismo")));
    m_mezzoTrasporto->setCurrentText(l.Cliente.testo(QStringLiteral("MezzoDiTrasporto")));
    m_arrivato->setChecked(l.Cliente.valore(QStringLiteral("Arrivato")).toInt() == 1);
    m_intestatario->setChecked(l.Cliente.valore(QStringLiteral("ClienteIntestatario")).toInt() == 1);
    m_maschio->setChecked(l.Maschio);
    m_femmina->setChecked(l.Femmina);
    m_nonModificare->setChecked(l.NonModificareDatiCliente);
    m_ultimiDati->setVisible(l.InserisciUltimiDatiInseritiVisibile);
    // The statutory fields of the chosen type stand out; the insert button turns grey once they are complete.
    const QStringList obbligatori = campiObbligatori(l.Cliente);
    for (auto it = m_campiCliente.cbegin(); it != m_campiCliente.cend(); ++it) {
        if (it.key() != QLatin1String("NroArrivo"))
            it.value()->setStyleSheet(obbligatori.contains(it.key()) ? QStringLiteral("background: #fff3b0")
                                                                     : QString());
    }
    m_inserisciCliente->setStyleSheet(ControllaRegole(l.Cliente)
                                          ? QStringLiteral("background: #a0a0a0; color: white; font-weight: bold")
                                          : QStringLiteral("background: #e05050; color: white; font-weight: bold"));

    m_clienti->setRowCount(l.GrigliaAnagrafiche.size());
    for (int r = 0; r < l.GrigliaAnagrafiche.size(); ++r) {
        const OspitePrenotazione& o = l.GrigliaAnagrafiche.at(r);
        for (int c = 0; c < colonneClienti().size(); ++c) {
            auto* item = new QTableWidgetItem(testoCella(o, QLatin1String(colonneClienti().at(c).first)));
            if (o.Arrivato())
                item->setBackground(QColor(0xc8, 0xe6, 0xc9));
            m_clienti->setItem(r, c, item);
        }
    }
    if (l.RigaClienteSelezionato > 0)
        m_clienti->selectRow(l.RigaClienteSelezionato - 1);
    else
        m_clienti->clearSelection();
    m_numeroPersone->setText(l.NumeroPersone);
}

} // namespace tomvera
