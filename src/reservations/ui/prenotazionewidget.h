#pragma once

#include "reports/modellostampa.h"

#include <QDialog>
#include <QHash>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTableWidget;

namespace tomvera {

class SchedaPrenotazione;
class PrenotazioneClientiWidget;
struct AbilitazioniPrenotazione;
namespace aiuti {
class SceltaPigra;
}

// F_Prenotazione, "Scheda di Prenotazione": copies the reservation in and out of the logic class and forwards
// the commands. Three tabs: the rooms, the guests ("DATI CLIENTI"), the extras.
class PrenotazioneWidget : public QDialog
{
    Q_OBJECT
public:
    explicit PrenotazioneWidget(std::unique_ptr<SchedaPrenotazione> logica, QWidget* genitore = nullptr);
    ~PrenotazioneWidget() override;

    SchedaPrenotazione& logica() { return *m_logica; }
    // Logic -> controls, after a change made from outside (a room added from the board).
    void aggiorna();
    QTabWidget* schede() const { return m_schede; }
    // Where "Stampa" sends the print: the preview of the report module unless a caller (a test) says otherwise.
    using Stampa = std::function<void(const reports::ModelloStampa&)>;
    void impostaStampa(Stampa stampa) { m_stampa = std::move(stampa); }

signals:
    void apriAcconti(qint64 indicePrenotazione); // Command6
    void aggiungiCamera(); // AggiungiCamera: the board in selection mode
    void tornaAlPlanning(); // Command11
    void apriSchedaCliente(qint64 indiceCliente); // Command14

protected:
    void reject() override; // Escape and the close box go through Fine_Click
    void showEvent(QShowEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    QWidget* creaSchedaCamere();
    QWidget* creaSchedaClienti();
    QWidget* creaSchedaAccessori();
    void leggi();
    void leggiClienti();
    void leggiAccessori();
    void aggiornaCamere();
    void aggiornaClienti();
    void aggiornaAccessori();
    void aggiornaIntestazione();
    void comando(const std::function<void()>& azione);
    void applicaPermessi();
    // Esc in an entry line with something typed clears that line instead of closing the screen.
    bool escapeInRiga(QObject* oggetto);
    void controllaData(QLineEdit* campo);
    void controllaNumero(QLineEdit* campo, const QString& nome);
    void applicaPermessiClienti(const AbilitazioniPrenotazione& abilitazioni);
    void scollegaClienti();

    std::unique_ptr<SchedaPrenotazione> m_logica;
    bool m_aggiornando = false;
    QTabWidget* m_schede = nullptr;

    // Header.
    QLineEdit *m_numero, *m_data, *m_codiceAzienda;
    aiuti::SceltaPigra *m_stato, *m_listinoCamere, *m_listinoTrattamenti, *m_tourOperator;
    QLineEdit* m_codiceTourOperator;
    QLabel* m_riferimento;
    QCheckBox *m_saldato, *m_chiusa;
    QRadioButton *m_aCamera, *m_aPersona;
    QPlainTextEdit* m_note;
    QLabel *m_totale, *m_totaleAcconto;
    QLineEdit* m_abbuono;
    QPushButton *m_registra, *m_cancella, *m_acconti, *m_planning, *m_documento, *m_anteprima;
    QCheckBox* m_stampaNote;
    Stampa m_stampa;

    // Rooms.
    QLineEdit *m_nc, *m_arrivo, *m_partenza, *m_prezzoCamera, *m_ivaCamera;
    aiuti::SceltaPigra* m_codiceTipologia;
    QLabel* m_label10;
    QLabel *m_etichettaPrezzo, *m_etichettaIvaCamera;
    QTableWidget* m_camere;
    QPushButton* m_aggiornaPrezzi;

    // Guests: the tab "DATI CLIENTI" is a panel of its own.
    PrenotazioneClientiWidget* m_pannelloClienti = nullptr;

    // Extras.
    QLineEdit *m_dataArt, *m_qta, *m_prezzoUnitario, *m_prezzoArt, *m_ivaArt;
    aiuti::SceltaPigra* m_tipoArt;
    QComboBox *m_descrizioneArt, *m_nroCameraArt, *m_tipoSel;
    QTableWidget* m_righeArt;
    QLabel* m_etichettaIvaArt;
};

} // namespace tomvera
