// Copy of the card between the logic class and the controls.
#include "foundation/formati.h"
#include "guests/schedaanagrafica.h"
#include "guests/ui/schedaanagraficawidget.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>

namespace tomvera {

void SchedaAnagraficaWidget::leggi()
{
    if (m_aggiornando)
        return;
    Anagrafica& d = m_logica->dati();
    d.CodiceAnagrafica = m_codice->text().trimmed();
    d.RagSociale = m_ragSociale->text().trimmed();
    d.Cognome = m_cognome->text().trimmed();
    d.Nome = m_nome->text().trimmed();
    d.Indirizzo = m_indirizzo->text();
    d.Cap = m_cap->text().trimmed();
    d.Comune = m_citta->text().trimmed();
    d.Provincia = m_provincia->text().trimmed();
    d.Piva = m_piva->text().trimmed();
    d.CodiceFiscale = m_codiceFiscale->text().trimmed();
    d.Cellulare = m_cellulare->text();
    d.Telefono = m_telefono->text();
    d.Fax = m_fax->text();
    d.Email = m_email->text().trimmed();
    d.Web = m_web->text().trimmed();
    d.Note = m_note->toPlainText();
    d.TipoDocumento = m_tipoDocumento->text().trimmed();
    d.NroDocumento = m_nroDocumento->text().trimmed();
    d.DataDocumento = m_dataDocumento->text().trimmed();
    d.DataNascita = m_dataNascita->text().trimmed();
    d.LuogoNascita = m_luogoNascita->text().trimmed();
    d.Cittadinanza = m_cittadinanza->text().trimmed();
    d.Nazione = m_nazione->text().trimmed();
    d.StatoDiNascita = m_statoNascita->text().trimmed();
    d.LuogoDocumento = m_luogoDocumento->text().trimmed();
    d.ProvinciaDiNascita = m_provinciaNascita->text().trimmed();
    d.Maschio = !m_femmina->isChecked();
    d.ResidenzaItaliana = !m_resEstera->isChecked();
    d.NascitaItalia = !m_nascEstero->isChecked();
    d.DocumentoItalia = !m_docEstero->isChecked();
    d.ResidenzaIstat = m_residenzaIstat->currentText();
}

void SchedaAnagraficaWidget::aggiorna()
{
    m_aggiornando = true;
    const Anagrafica& d = m_logica->dati();
    const std::pair<QLineEdit*, const QString*> testi[] = {
        { m_codice, &d.CodiceAnagrafica },
        { m_ragSociale, &d.RagSociale },
        { m_cognome, &d.Cognome },
        { m_nome, &d.Nome },
        { m_indirizzo, &d.Indirizzo },
        { m_cap, &d.Cap },
        { m_citta, &d.Comune },
        { m_provincia, &d.Provincia },
        { m_piva, &d.Piva },
        { m_codiceFiscale, &d.CodiceFiscale },
        { m_cellulare, &d.Cellulare },
        { m_telefono, &d.Telefono },
        { m_fax, &d.Fax },
        { m_email, &d.Email },
        { m_web, &d.Web },
        { m_tipoDocumento, &d.TipoDocumento },
        { m_nroDocumento, &d.NroDocumento },
        { m_dataDocumento, &d.DataDocumento },
        { m_dataNascita, &d.DataNascita },
        { m_luogoNascita, &d.LuogoNascita },
        { m_cittadinanza, &d.Cittadinanza },
        { m_nazione, &d.Nazione },
        { m_statoNascita, &d.StatoDiNascita },
        { m_luogoDocumento, &d.LuogoDocumento },
        { m_provinciaNascita, &d.ProvinciaDiNascita },
    };
    for (const auto& [controllo, valore] : testi) {
        if (controllo->text() != *valore)
            controllo->setText(*valore);
    }
    if (m_note->toPlainText() != d.Note)
        m_note->setPlainText(d.Note);
    (d.Maschio ? m_maschio : m_femmina)->setChecked(true);
    (d.ResidenzaItaliana ? m_resItaliana : m_resEstera)->setChecked(true);
    (d.NascitaItalia ? m_nascItalia : m_nascEstero)->setChecked(true);
    (d.DocumentoItalia ? m_docItalia : m_docEstero)->setChecked(true);
    aggiornaIstat();

    m_soggiorni->setRowCount(0);
    for (const SoggiornoOspite& s : m_logica->soggiorni()) {
        const int r = m_soggiorni->rowCount();
        m_soggiorni->insertRow(r);
        const QStringList celle { QString::number(s.indice),
                                  QString::number(s.indicePrenotazioneAssociata),
                                  s.dataArrivo,
                                  s.dataPartenza,
                                  s.nroArrivo,
                                  s.nroCamera,
                                  s.tipoTrattamento };
        for (int c = 0; c < celle.size(); ++c)
            m_soggiorni->setItem(r, c, new QTableWidgetItem(celle.at(c)));
    }
    m_spiaggia->setRowCount(0);
    for (const PrenotazioneSpiaggiaOspite& p : m_logica->prenotazioniSpiaggia()) {
        const int r = m_spiaggia->rowCount();
        m_spiaggia->insertRow(r);
        const QStringList celle { QString::number(p.indice), p.numero, p.dataPrenotazione, formattaNumero(p.totale, 2),
                                  formattaNumero(p.incassato, 2) };
        for (int c = 0; c < celle.size(); ++c)
            m_spiaggia->setItem(r, c, new QTableWidgetItem(celle.at(c)));
    }
    const double totale = m_logica->totaleSpiaggia();
    const double incassato = m_logica->incassatoSpiaggia();
    m_totaliSpiaggia->setText(QStringLiteral("TOTALE: ") + formattaNumero(totale, 2) + QStringLiteral("   INCASSATO: ")
                              + formattaNumero(incassato, 2) + QStringLiteral("   DA INCASSARE: ")
                              + formattaNumero(totale - incassato, 2));
    m_aggiornando = false;
}

void SchedaAnagraficaWidget::aggiornaIstat()
{
    m_etichettaIstat->setText(m_logica->etichettaIstat());
    const QStringList scelte = m_logica->sceltaIstat();
    const QString valore = m_logica->dati().ResidenzaIstat;
    m_residenzaIstat->clear();
    m_residenzaIstat->addItem(QString());
    m_residenzaIstat->addItems(scelte);
    // A value from an older list still shows as it is stored.
    if (!valore.isEmpty() && !scelte.contains(valore))
        m_residenzaIstat->addItem(valore);
    m_residenzaIstat->setCurrentText(valore);
    m_residenzaIstat->setCurrentIndex(m_residenzaIstat->findText(valore));
}

} // namespace tomvera
