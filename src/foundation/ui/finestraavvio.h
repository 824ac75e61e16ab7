#pragma once

#include <QHash>
#include <QMainWindow>
#include <functional>

class QAction;
class QMenu;
class QPushButton;
class QTimer;
class QVBoxLayout;

namespace tomvera {

class Avvio;

// Avvio, the main window: menus, the button bar FrameMenu, the central area (where the planning board goes)
// and the named timers. A command shows only when a subsystem has registered what it does and the user's
// rights allow it: nothing on this window is ever a dead button.
class FinestraAvvio : public QMainWindow
{
    Q_OBJECT
public:
    explicit FinestraAvvio(Avvio& logica, QWidget* genitore = nullptr);
    ~FinestraAvvio() override;

    // What a command or menu item does (by its control name, e.g. "mBackup", "Command8").
    void registraComando(const QString& nome, std::function<void()> azione);
    bool comandoRegistrato(const QString& nome) const;
    // The planning board (or any central view) takes the central area.
    void impostaAreaCentrale(QWidget* area);
    QWidget* areaCentrale() const { return m_areaCentrale; }
    QTimer* timer(const QString& nome) const { return m_timer.value(nome); }
    QAction* azione(const QString& nome) const;
    QMenu* menu(const QString& nome) const { return m_menu.value(nome); }
    // Enables or disables a button, a menu item or a whole menu by name (the board's add-room mode).
    void abilita(const QString& nome, bool abilitato);
    QPushButton* pulsante(const QString& nome) const;
    void impostaStato(const QString& testo);

    // Load sequence: false when the program must end.
    bool carica();
    // SettaPermessiUtente applied to the controls.
    void SettaPermessiUtente();
    // What "FINE" does: closes the archive and ends the run, no question asked.
    void fine();
    // Shows the window maximised, unless the desk last chose a smaller one.
    void mostra();

signals:
    void attivata(); // each activation, after rights are applied: the board refreshes here
    void cambiaUtente();
    void termina();

protected:
    bool event(QEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    void esegui(const QString& nome);
    void costruisciMenu();
    void costruisciPulsanti();

    Avvio& m_logica;
    QHash<QString, QAction*> m_voci;
    QHash<QString, QMenu*> m_menu;
    QHash<QString, QPushButton*> m_pulsanti;
    QHash<QString, QTimer*> m_timer;
    QWidget* m_frameMenu = nullptr;
    QVBoxLayout* m_colonnaPulsanti = nullptr;
    QWidget* m_areaCentrale = nullptr;
    QPushButton* m_menuPulsante = nullptr;
    bool m_chiusuraConsentita = false;
    bool m_mostrata = false;
};

} // namespace tomvera
