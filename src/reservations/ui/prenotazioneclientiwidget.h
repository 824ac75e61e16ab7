#pragma once

#include <QHash>
#include <QWidget>
#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace tomvera {

class SchedaPrenotazione;
struct AbilitazioniPrenotazione;

// The tab "DATI CLIENTI" of F_Prenotazione: the guest entry line (a whole guest card plus the data of the
// stay) and the guest list. Commands run through the screen's `comando`, which copies every control into the
// logic class first and everything back after.
class PrenotazioneClientiWidget : public QWidget
{
    Q_OBJECT
public:
    using Comando = std::function<void(const std::function<void()>&)>;
    PrenotazioneClientiWidget(SchedaPrenotazione& logica, Comando comando, QWidget* genitore);
    ~PrenotazioneClientiWidget() override;

    void leggi(); // controls -> logic
    void aggiorna(); // logic -> controls
    void applicaPermessi(const AbilitazioniPrenotazione& abilitazioni);
    // The screen is going: a field that loses the focus on the way must not reach its logic any more.
    void scollega();

signals:
    void apriSchedaCliente(qint64 indiceCliente); // Command14

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    QLineEdit* campo(const QString& nome, QWidget* genitore);
    void collegaNomi();
    void collegaCompletamenti();
    void cercaComune(QLineEdit* sorgente);
    void confermaComune();
    void nascondiComuni();
    bool rigaVuota() const;

    SchedaPrenotazione& m_logica;
    Comando m_comando;
    QHash<QString, QLineEdit*> m_campi; // by field name (Comune shows as "Citta")
    QPlainTextEdit* m_note;
    QComboBox *m_nroCamera, *m_tipoTrattamento, *m_tipoAlloggiato, *m_capoGruppo;
    QComboBox *m_tipoTurismo, *m_mezzoTrasporto, *m_residenzaIstat;
    QLabel *m_etichettaCapo, *m_etichettaIstat, *m_numeroPersone;
    QRadioButton *m_maschio, *m_femmina, *m_nascItalia, *m_nascEstero, *m_docItalia, *m_docEstero;
    QRadioButton *m_resItaliana, *m_resEstera;
    QCheckBox *m_arrivato, *m_intestatario, *m_nonModificare;
    QListWidget* m_cittaVL;
    QTableWidget* m_clienti;
    QPushButton *m_inserisci, *m_rimuovi, *m_ultimiDati;
    bool m_aggiornando = false;
};

} // namespace tomvera
