#pragma once

#include "foundation/fconfigurazioni.h"
#include "foundation/fpass.h"

#include <QDialog>
#include <functional>
#include <vector>

class QCheckBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTableWidget;

namespace tomvera {

struct Sessione;

// F_Configurazioni: one tab per group of settings. Controls carry the names of the fields they edit.
class FConfigurazioniWidget : public QDialog
{
    Q_OBJECT
public:
    explicit FConfigurazioniWidget(Sessione& sessione, QWidget* genitore = nullptr);

    FConfigurazioni& logica() { return m_logica; }
    // Reads the archive and fills every control; hides the commands nobody handles.
    void carica();

    // The settings gate, then the screen. `termina` ends the program after a wrong password.
    static void apri(Sessione& sessione, QWidget* genitore, const std::function<void(FConfigurazioni&)>& collega,
                     std::function<void()> termina);

protected:
    void reject() override;

private:
    void chiudiSeConsentito();
    QWidget* schedaIntestazione();
    QWidget* schedaBanca();
    QWidget* schedaMessaggi();
    QWidget* schedaIva();
    QWidget* schedaBackup();
    QWidget* schedaSaleRistorante();
    QWidget* schedaPassword();
    QWidget* schedaSky();
    QWidget* schedaUtenti();
    QWidget* schedaVarie();

    // Bindings between a control and a field of the settings.
    QLineEdit* testo(QFormLayout* f, const char* nome, const QString& etichetta, QString Configurazione::*campo);
    QCheckBox* spunta(const char* nome, const QString& etichetta, bool Configurazione::*campo);
    QDoubleSpinBox* numero(QFormLayout* f, const char* nome, const QString& etichetta, double Configurazione::*campo,
                           double massimo = 99999999.99);
    void intero(QFormLayout* f, const char* nome, const QString& etichetta, int Configurazione::*campo, int massimo,
                int minimo = 0);
    void ora(QFormLayout* f, const char* nome, const QString& etichetta, QTime Configurazione::*campo);
    QPushButton* pulsante(const char* nome, const QString& testo);

    void versoControlli();
    void daiControlli();
    void mostraLogo();
    void utenteVersoControlli();
    void utenteDaiControlli();
    void aggiornaGrigliaUtenti();
    void aggiornaIve();

    FConfigurazioni m_logica;
    std::vector<std::function<void()>> m_dentro; // logic -> controls
    std::vector<std::function<void()>> m_fuori; // controls -> logic

    QTabWidget* m_schede = nullptr;
    QLabel* m_logo = nullptr;
    std::array<QDoubleSpinBox*, 9> m_valIva {};
    QWidget* m_gruppoOttimizzazione = nullptr;
    QLineEdit* m_percorsoBackup = nullptr;
    QLineEdit* m_percorsoBackupAutomatico = nullptr;
    QLabel* m_statoPassword = nullptr;
    QLineEdit* m_passwordProgramma = nullptr;
    QLineEdit* m_confermaPasswordProgramma = nullptr;
    QCheckBox* m_rimuoviPasswordProgramma = nullptr;
    QLineEdit* m_utente = nullptr;
    QLineEdit* m_passwordUtente = nullptr;
    QLineEdit* m_confermaPasswordUtente = nullptr;
    QCheckBox* m_rimuoviPasswordUtente = nullptr;
    QCheckBox* m_nonAttivo = nullptr;
    std::vector<std::pair<QCheckBox*, PermessiUtente::Diritto>> m_diritti;
    QTableWidget* m_righeArt = nullptr;
    std::vector<std::pair<QPushButton*, std::function<void()>*>> m_comandiEsterni;
};

// F_Pass: the password box of the settings gate.
class FPassWidget : public QDialog
{
    Q_OBJECT
public:
    FPassWidget(Interazione& interazione, const QString& memorizzata, std::function<void()> termina,
                QWidget* genitore = nullptr);
    // True when the right password was typed.
    bool aperto() const { return m_aperto; }

    // The gate of the configuration screens (settings, room grid, beach): true when there is no password
    // or the right one was typed. A wrong one calls `termina`.
    static bool consenti(Sessione& sessione, QWidget* genitore, std::function<void()> termina);

private:
    FPass m_logica;
    QLineEdit* m_password = nullptr;
    bool m_aperto = false;
};

} // namespace tomvera
