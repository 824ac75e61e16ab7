#pragma once

#include <QList>
#include <QString>
#include <optional>
#include <vector>

namespace tomvera {

class Archivio;
struct Sessione;

// Colours are stored as the old engine's colour value: red + green * 256 + blue * 65536.
inline int coloreDaRgb(int rosso, int verde, int blu)
{
    return (rosso & 0xFF) | ((verde & 0xFF) << 8) | ((blu & 0xFF) << 16);
}
inline int rossoDi(double colore)
{
    return static_cast<int>(static_cast<qint64>(colore) & 0xFF);
}
inline int verdeDi(double colore)
{
    return static_cast<int>((static_cast<qint64>(colore) >> 8) & 0xFF);
}
inline int bluDi(double colore)
{
    return static_cast<int>((static_cast<qint64>(colore) >> 16) & 0xFF);
}

struct TipologiaCamera
{
    qint64 Indice = 0;
    QString CodiceTipologia;
    int NroPersone = 0;
    QString NomeTipologia;
    double Colore = 0;
    QString Note;
};

// All types, by name (the order of the screens' lists).
QList<TipologiaCamera> caricaTipologie(Archivio& archivio);

// The screen of the room types: fields, the grid of the existing types, save and delete.
class F_TipologiaCamere
{
public:
    explicit F_TipologiaCamere(Sessione& sessione);

    // Fields as typed.
    QString CodiceTipologia;
    QString NroPersone;
    QString NomeTipologia;
    std::optional<double> Colore;
    QString Note;
    // The row loaded with a double click (0: a new type).
    qint64 IndiceSelezionato = 0;

    QList<TipologiaCamera> Griglia;

    void Form_Load();
    void Griglia_DblClick(int riga);
    void PulisciCampi();
    void PulisciGriglia();
    // True when the type was saved.
    bool Registra_Click();
    // The delete of the loaded type.
    bool Command15_Click();
    // True when another type (not `escludi`) already has the colour; shows the message.
    bool ControllaEsistenzaColore(double colore, qint64 escludi);

private:
    void caricaGriglia();

    Sessione& m_sessione;
};

// One cell of a floor's layout: empty when it has no number.
struct CellaStruttura
{
    QString NroCamera;
    QString CodiceTipologia;
    QString CodiceAzienda;
    bool vuota() const { return NroCamera.trimmed().isEmpty(); }
};

// The text of a cell as the operator sees and types it: in multi-company mode the company code and the number
// are kept together, "CODICE»NUMERO".
QString testoCella(const CellaStruttura& cella, bool multiAzienda);
void leggiTestoCella(const QString& testo, bool multiAzienda, CellaStruttura& cella);

// "Configurazione Camere": the rooms of one floor on the global grid of Righe x Colonne cells.
class F_ConfiguraGriglia
{
public:
    explicit F_ConfiguraGriglia(Sessione& sessione);

    int Righe() const { return m_righe; }
    int Colonne() const { return m_colonne; }
    int NroPiano = 0;
    bool multiAzienda() const;

    // Row-major, Righe x Colonne.
    const CellaStruttura& cella(int riga, int colonna) const;
    void impostaTestoCella(int riga, int colonna, const QString& testo);
    bool modificata() const { return m_modificata; }

    QList<TipologiaCamera> GrigliaTipologie;
    int TipologiaSelezionata = -1; // row of GrigliaTipologie, -1 none
    QString NomeTipologiaSelezionata = QStringLiteral("Nessuna tipologia selezionata");
    std::optional<double> ColoreTipologiaSelezionata;
    // The colour of a type code, for tinting a cell.
    std::optional<double> coloreTipologia(const QString& codice) const;

    void Form_Load();
    void CaricaCombo(); // the list of types
    void GrigliaTipologie_Click(int riga);
    void AnnullaSelezione_Click();
    // A click on a cell with a type selected gives the cell that type.
    void Cella_Click(int riga, int colonna);
    void Command1_Click(int riga, int colonna); // removes the type from the cell
    void PianoMeno_Click();
    void PianoPiu_Click();
    void cambiaPiano(int piano);
    void Aggiorna_Click();
    bool Registra_Click();
    bool Command15_Click();
    // Saves a new grid size; false on bad values.
    bool Command22_Click(const QString& righe, const QString& colonne);

private:
    bool registraPiano();
    void PulisciGriglia();
    void dimensiona(int righe, int colonne);
    bool ControlloEsistenzaCamera(const QString& nroCamera);

    Sessione& m_sessione;
    int m_righe = 1;
    int m_colonne = 1;
    std::vector<CellaStruttura> m_celle;
    bool m_modificata = false;
};

} // namespace tomvera
