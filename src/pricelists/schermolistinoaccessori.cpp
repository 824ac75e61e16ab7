#include "pricelists/schermolistinoaccessori.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/routines.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "foundation/sessione.h"
#include "pricelists/schermolistino.h"

#include <QSqlRecord>
#include <algorithm>
#include <tuple>

namespace tomvera::prezzi {

SchermoListinoAccessori::SchermoListinoAccessori(Sessione& sessione)
    : m_sessione(sessione)
{
}

QStringList SchermoListinoAccessori::TitoliColonne() const
{
    return { QStringLiteral("Tipo"), QStringLiteral("Descrizione"), QStringLiteral("Prezzo"),
             m_sessione.configurazione->EtichettaImposta };
}

bool SchermoListinoAccessori::SoloLettura() const
{
    return listiniSoloLettura(m_sessione);
}

bool SchermoListinoAccessori::ControllaPermessoModifica()
{
    if (puoModificareListini(m_sessione) && !SoloLettura())
        return true;
    avvisa(m_sessione.interazione,
           QStringLiteral("Attenzione, l'utente collegato non è abilitato a modificare i listini!"));
    return false;
}

void SchermoListinoAccessori::Form_Load()
{
    caricaGriglia();
    caricaElenco();
}

bool SchermoListinoAccessori::Ins_Click()
{
    Focus.clear();
    if (!ControllaPermessoModifica())
        return false;
    if (Descrizione.isEmpty()) {
        avvisa(m_sessione.interazione, QStringLiteral("Attenzione, inserire una descrizione!"));
        Focus = QStringLiteral("Descrizione");
        return false;
    }
    // Stored with apostrophes doubled: a text that then exceeds its field would be refused by the engine and
    // the row lost without a word.
    const schema::Tabella tabella = schema::TabellaListinoAccessori();
    for (const auto& [campo, valore, genere] :
         { std::tuple { "Tipo", &Tipo, "lungo" }, std::tuple { "Descrizione", &Descrizione, "lunga" } }) {
        const QString nome = QLatin1String(campo);
        const auto definito = std::find_if(tabella.campi.cbegin(), tabella.campi.cend(),
                                           [&](const schema::Campo& c) { return c.nome == nome; });
        if (definito != tabella.campi.cend() && RaddoppiaApici(*valore).size() > definito->dimensione) {
            avvisa(m_sessione.interazione,
                   QStringLiteral("Attenzione, ") + nome + QStringLiteral(" più ") + QLatin1String(genere)
                       + QStringLiteral(" di ") + QString::number(definito->dimensione)
                       + QStringLiteral(" caratteri!"));
            Focus = nome;
            return false;
        }
    }
    if (!controllaPrezzoIva(m_sessione, Prezzo, Iva, Focus))
        return false;
    const double prezzo = valoreDi(Prezzo);
    const double iva = valoreDi(Iva);

    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    const std::optional<bool> aggiorna
        = confermaAggiornamento(archivio, m_sessione.interazione, QStringLiteral("TabellaListinoAccessori"), Indice);
    if (!aggiorna)
        return false;
    const bool esiste = *aggiorna;
    // Group and text are stored with their apostrophes doubled, as the extras have always been.
    const QVariantList valori { RaddoppiaApici(Tipo), RaddoppiaApici(Descrizione), prezzo, iva };
    const bool scritto = esiste
        ? archivio.comando(QStringLiteral("UPDATE TabellaListinoAccessori SET Tipo = ?, Descrizione = ?, Prezzo = ?, "
                                          "Iva = ? WHERE Indice = ?"),
                           valori + QVariantList { Indice })
        : archivio.comando(
            QStringLiteral("INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) VALUES (?, ?, ?, ?)"),
            valori);
    if (scritto)
        pulisciCampi();
    caricaGriglia();
    caricaElenco();
    return scritto;
}

void SchermoListinoAccessori::Nuovo_Click()
{
    pulisciCampi();
}

bool SchermoListinoAccessori::Command15_Click()
{
    if (!ControllaPermessoModifica())
        return false;
    // Movements that point at the row keep their own copies of text and amount.
    const std::optional<bool> cancellata = cancellaRiga(m_sessione, QStringLiteral("TabellaListinoAccessori"), Indice);
    if (!cancellata)
        return false;
    const bool fatto = *cancellata;
    if (fatto)
        pulisciCampi();
    caricaGriglia();
    caricaElenco();
    return fatto;
}

void SchermoListinoAccessori::Cerca_Click()
{
    caricaGriglia();
}

void SchermoListinoAccessori::CL_Click()
{
    TipoRic.clear();
    caricaGriglia();
}

std::optional<reports::ModelloStampa> SchermoListinoAccessori::Command1_Click()
{
    return stampaVisualizzati(m_sessione, {}, TitoliColonne(), Griglia, QStringLiteral("LISTINO ACCESSORI"));
}

void SchermoListinoAccessori::Griglia_Click(int riga)
{
    const RigaGriglia* r = rigaScelta(Griglia, riga);
    if (!r)
        return;
    Indice = r->Indice;
    Tipo = comeDigitato(r->colonne.value(0));
    Descrizione = comeDigitato(r->colonne.value(1));
    Prezzo = r->colonne.value(2);
    Iva = r->colonne.value(3);
}

void SchermoListinoAccessori::pulisciCampi()
{
    Indice = 0;
    Tipo.clear();
    Descrizione.clear();
    Prezzo.clear();
    Iva.clear();
}

void SchermoListinoAccessori::caricaGriglia()
{
    Griglia.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    QString sql = QStringLiteral("SELECT Indice, Tipo, Descrizione, Prezzo, Iva FROM TabellaListinoAccessori "
                                 "WHERE Indice > 0");
    QVariantList parametri;
    if (!TipoRic.isEmpty()) {
        sql += QStringLiteral(" AND (Tipo = ? OR Tipo = ?)");
        parametri << TipoRic << RaddoppiaApici(TipoRic);
    }
    sql += QStringLiteral(" ORDER BY Tipo, Descrizione, Indice");
    for (const QSqlRecord& r : archivio.righe(sql, parametri)) {
        RigaGriglia riga;
        riga.Indice = r.value(0).toLongLong();
        riga.colonne = { r.value(1).toString(), r.value(2).toString(), cellaPrezzo(r.value(3)), cellaIva(r.value(4)) };
        Griglia.push_back(riga);
    }
}

void SchermoListinoAccessori::caricaElenco()
{
    ElencoTipi.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    for (const QSqlRecord& r :
         archivio.righe(QStringLiteral("SELECT Tipo FROM TabellaListinoAccessori GROUP BY Tipo ORDER BY Tipo DESC")))
        ElencoTipi << r.value(0).toString();
}

} // namespace tomvera::prezzi
