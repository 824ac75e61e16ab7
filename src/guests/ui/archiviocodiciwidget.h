#pragma once

#include <QDialog>
#include <memory>

class QLabel;
class QLineEdit;
class QTableWidget;

namespace tomvera {

class ArchivioCodici;

// F_ArchivioCodici, "Configurazione Tabelle": the four code tables, one at a time.
class ArchivioCodiciWidget : public QDialog
{
    Q_OBJECT
public:
    explicit ArchivioCodiciWidget(std::unique_ptr<ArchivioCodici> logica, QWidget* genitore = nullptr);
    ~ArchivioCodiciWidget() override;

    ArchivioCodici& logica() { return *m_logica; }

private:
    void leggi();
    void aggiorna();

    std::unique_ptr<ArchivioCodici> m_logica;
    QLineEdit *m_codice, *m_descrizione, *m_provincia, *m_cap, *m_prefisso;
    QLineEdit *m_codiceRic, *m_descrizioneRic, *m_provinciaRic, *m_capRic, *m_prefissoRic;
    QLabel *m_etichettaDescrizione, *m_etichettaProvincia, *m_etichettaCap, *m_etichettaPrefisso;
    QTableWidget* m_griglia;
};

} // namespace tomvera
