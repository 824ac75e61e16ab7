#pragma once

#include <QDialog>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QRadioButton;
class QTabWidget;
class QTableWidget;
class QCompleter;
class QFormLayout;

namespace tomvera {

class SchedaAnagrafica;

// F_SchedaAnagrafica: copies the card in and out of the logic class and forwards the commands.
class SchedaAnagraficaWidget : public QDialog
{
    Q_OBJECT
public:
    explicit SchedaAnagraficaWidget(std::unique_ptr<SchedaAnagrafica> logica, QWidget* genitore = nullptr);
    ~SchedaAnagraficaWidget() override;

    SchedaAnagrafica& logica() { return *m_logica; }
    // Logic -> controls, after a load done from outside.
    void aggiorna();

signals:
    // CaricaPrenotazione: the stay chosen in the list. The button shows only when someone opens it.
    void apriPrenotazione(qint64 indicePrenotazione);

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void reject() override; // Escape, the close box and "Esci" go through Fine_Click

private:
    QLineEdit* campo(const char* nome, QWidget* genitore);
    void leggi();
    void comando(const std::function<void()>& azione);
    void cercaComune(QLineEdit* sorgente);
    void confermaComune();
    void nascondiProposti();
    void proponiNomi(QLineEdit* sorgente);
    void aggiornaIstat();
    void cerca(); // Command2: the guest list, then the chosen card
    void caricaPrenotazione();

    std::unique_ptr<SchedaAnagrafica> m_logica;
    bool m_aggiornando = false;
    QTabWidget* m_schede;
    QLineEdit *m_codice, *m_ragSociale, *m_cognome, *m_nome;
    QLineEdit *m_indirizzo, *m_cap, *m_citta, *m_provincia, *m_piva, *m_codiceFiscale;
    QLineEdit *m_cellulare, *m_telefono, *m_fax, *m_email, *m_web, *m_cittadinanza, *m_nazione;
    QLineEdit *m_tipoDocumento, *m_nroDocumento, *m_dataDocumento, *m_luogoDocumento;
    QLineEdit *m_dataNascita, *m_luogoNascita, *m_provinciaNascita, *m_statoNascita;
    QRadioButton *m_maschio, *m_femmina, *m_resItaliana, *m_resEstera, *m_nascItalia, *m_nascEstero;
    QRadioButton *m_docItalia, *m_docEstero;
    QLabel* m_etichettaIstat;
    QComboBox* m_residenzaIstat;
    QListWidget* m_cittaVL;
    QFormLayout* m_moduloResidenza;
    QPlainTextEdit* m_note;
    QTableWidget *m_soggiorni, *m_spiaggia;
    QLabel* m_totaliSpiaggia;
    class QPushButton* m_caricaPrenotazione;
    QCompleter* m_completaNomi;
    QList<qint64> m_indiciNomi;
};

} // namespace tomvera
