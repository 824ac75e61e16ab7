#pragma once

#include "pricelists/formatilistino.h"
#include "reports/modellostampa.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace tomvera {

struct Sessione;

namespace prezzi {

// F_ListinoAccessori ("Listino Accessori"): the services and consumptions charged on a reservation, grouped by
// a free word.
class SchermoListinoAccessori
{
public:
    explicit SchermoListinoAccessori(Sessione& sessione);

    QString Tipo;
    QString Descrizione;
    QString Prezzo;
    QString Iva;
    QString TipoRic;
    qint64 Indice = 0; // the row loaded from the grid; 0 for a new one

    std::vector<RigaGriglia> Griglia;
    QStringList ElencoTipi;
    QString Focus;

    QStringList TitoliColonne() const;
    bool SoloLettura() const;
    // Save and delete: false (after the message) for a user without the price-list right or with the
    // read-only one.
    bool ControllaPermessoModifica();

    void Form_Load();
    bool Ins_Click();
    void Nuovo_Click();
    bool Command15_Click();
    void Cerca_Click();
    void CL_Click();
    std::optional<reports::ModelloStampa> Command1_Click();
    void Griglia_Click(int riga);

    Sessione& sessione() { return m_sessione; }

private:
    void caricaGriglia();
    void caricaElenco();
    void pulisciCampi();

    Sessione& m_sessione;
};

} // namespace prezzi
} // namespace tomvera
