#pragma once

#include <QDialog>

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressDialog;
class QPushButton;
class QToolButton;

namespace tomvera {

class AvvioSelezioneUtente;

// F_AvvioSelezioneUtente: the small first screen. Accepted when a user has logged in; rejected on
// Command1 or Escape.
class AvvioSelezioneUtenteWidget : public QDialog
{
    Q_OBJECT
public:
    explicit AvvioSelezioneUtenteWidget(AvvioSelezioneUtente& logica, QWidget* genitore = nullptr);
    ~AvvioSelezioneUtenteWidget() override;

    // Runs the load sequence and, when the archive was found, the activation.
    void avvia();

protected:
    void reject() override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void mostra();
    void accedi();
    void dopoComando();
    void mostraAvanzamento(const QString& riga, int fatti, int totale);

    AvvioSelezioneUtente& m_logica;
    QLabel* m_ver;
    QComboBox* m_utente;
    QLabel* m_etichettaPassword;
    QLineEdit* m_password;
    QPushButton* m_accedi;
    QPushButton* m_esci;
    QToolButton* m_impostazioni;
    QToolButton* m_aggiornamento;
    QPlainTextEdit* m_errore;
    QFrame* m_accesso;
    QFrame* m_archivio;
    QLineEdit* m_percorso;
    QPushButton* m_command5;
    QProgressDialog* m_avanzamento = nullptr;
    bool m_aggiornando = false;
};

} // namespace tomvera
