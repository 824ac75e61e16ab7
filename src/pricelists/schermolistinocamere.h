#pragma once

#include "pricelists/calcoloprezzi.h"
#include "pricelists/formatilistino.h"
#include "reports/modellostampa.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace tomvera {

struct Sessione;

namespace prezzi {

// F_ListinoCamere: the room price lists, per room (keyed by room type) or per person (keyed by board word).
// The fields hold the texts as typed; the commands validate, write and reload grid and choosers.
class SchermoListinoCamere
{
public:
    explicit SchermoListinoCamere(Sessione& sessione);

    // Fields.
    bool PrezzoACamera = true;
    bool PrezzoAPersona = false;
    QString Listino;
    QString CodiceTipologia;
    QString Dal;
    QString Al;
    QString Prezzo;
    QString Iva;
    QString Giorni;
    QString ListinoRic;
    QString CodiceTipologiaRic;
    qint64 Indice = 0; // the row loaded from the grid; 0 for a new one

    // Shown state, refreshed by the commands.
    std::vector<RigaGriglia> Griglia;
    QStringList ElencoListini;
    QStringList ElencoCodici; // room types, or the board words with the separator and the other words
    QString Focus; // the control a refused command leaves the focus on

    TipoListino tipo() const { return PrezzoAPersona ? TipoListino::APersona : TipoListino::ACamera; }
    QString Caption() const;
    QString EtichettaCodice() const;
    QStringList TitoliColonne() const; // the shown columns, Indice excluded
    // Save and delete are off for a read-only user.
    bool SoloLettura() const;

    void Form_Load();
    void PrezzoACamera_Click();
    void PrezzoAPersona_Click();
    // True when a row was written.
    bool Ins_Click();
    void Nuovo_Click();
    bool Command15_Click();
    void Cerca_Click();
    void CL_Click();
    // Fills Stampa with the rows shown and gives the print read back from it; nullopt when the table refused.
    std::optional<reports::ModelloStampa> Command1_Click();
    void Griglia_Click(int riga);
    // Leaving the key field with the separator line in it empties it.
    void CodiceTipologia_LostFocus();
    // Enter in Prezzo: on to Iva, filled with the reservations' VAT when empty.
    void Prezzo_Invio();
    // In Prezzo a typed "." is a decimal comma.
    static QString TastoPrezzo(const QString& testo);

    static QString Separatore();

    Sessione& sessione() { return m_sessione; }

private:
    void caricaGriglia();
    void caricaElenchi();
    void pulisciCampi();

    Sessione& m_sessione;
};

} // namespace prezzi
} // namespace tomvera
