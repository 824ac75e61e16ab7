#pragma once

#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace tomvera {

struct Sessione;
class F_ConfiguraGriglia;
class F_TipologiaCamere;

// F_TipologiaCamere: the room types with their colour and capacity.
class FinestraTipologieCamere : public QDialog
{
    Q_OBJECT
public:
    explicit FinestraTipologieCamere(Sessione& sessione, QWidget* genitore = nullptr);
    ~FinestraTipologieCamere() override;

    F_TipologiaCamere& logica() { return *m_logica; }
    void caricaDaLogica();
    // The colour chosen with the swatches (or the picker).
    void scegliColore(const QColor& colore);

private:
    void copiaInLogica();

    std::unique_ptr<F_TipologiaCamere> m_logica;
    QLineEdit* m_codice = nullptr;
    QLineEdit* m_persone = nullptr;
    QLineEdit* m_nome = nullptr;
    QLineEdit* m_note = nullptr;
    QLabel* m_colore = nullptr;
    QTableWidget* m_griglia = nullptr;
};

// F_ConfiguraGriglia, "Configurazione Camere": the rooms of each floor on the grid.
class FinestraConfiguraGriglia : public QDialog
{
    Q_OBJECT
public:
    explicit FinestraConfiguraGriglia(Sessione& sessione, QWidget* genitore = nullptr);
    ~FinestraConfiguraGriglia() override;

    F_ConfiguraGriglia& logica() { return *m_logica; }
    void caricaDaLogica();

private:
    void caricaTipologie();
    void abilitaComandi();

    Sessione& m_sessione;
    std::unique_ptr<F_ConfiguraGriglia> m_logica;
    QTableWidget* m_tipologie = nullptr;
    QLabel* m_nomeSelezionata = nullptr;
    QLabel* m_coloreSelezionata = nullptr;
    QLineEdit* m_piano = nullptr;
    QSpinBox* m_righe = nullptr;
    QSpinBox* m_colonne = nullptr;
    QTableWidget* m_griglia = nullptr;
    bool m_copiando = false;
};

} // namespace tomvera
