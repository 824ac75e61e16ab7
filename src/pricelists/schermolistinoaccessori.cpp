#include "pricelists/schermolistinoaccessori.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/routines.h"
#include "foundation/sessione.h"
#include "reports/stampagenerica.h"

#include <QSqlRecord>

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

bool SchermoListinoAccessori::puoModificare() const
{
    return m_sessione.permessi->puo(&PermessiUtente::Listini);
}

bool SchermoListinoAccessori::SoloLettura() const
{
    return m_sessione.permessi->soloLettura(&PermessiUtente::ListiniSoloLettura);
}

void SchermoListinoAccessori::Form_Load()
{
    caricaGriglia();
    caricaElenco();
}

bool SchermoListinoAccessori::Ins_Click()
{
    Interazione& interazione = m_sessione.interazione;
    Focus.clear();
    if (!puoModificare() || SoloLettura())
        return false;
    if (Descrizione.isEmpty()) {
        interazione.messaggio(QStringLiteral("Attenzione, inserire una descrizione!"), {}, Interazione::Icona::Avviso);
        Focus = QStringLiteral("Descrizione");
        return false;
    }
    const double prezzo = valoreDi(Prezzo);
    if (prezzo == 0) {
        interazione.messaggio(QStringLiteral("Attenzione, inserire un prezzo!"), {}, Interazione::Icona::Avviso);
        Focus = QStringLiteral("Prezzo");
        return false;
    }
    const double iva = valoreDi(Iva);
    if (iva == 0) {
        interazione.messaggio(QStringLiteral("Attenzione, inserire ") + m_sessione.configurazione->EtichettaImpostaLunga
                                  + QStringLiteral("!"),
                              {}, Interazione::Icona::Avviso);
        Focus = QStringLiteral("Iva");
        return false;
    }

    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    const bool esiste = Indice > 0
        && archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaListinoAccessori WHERE Indice = ?"),
                               { Indice });
    if (esiste
        && !interazione.domandaSiNo(
            QStringLiteral("Attenzione si stà aggiornando un prezzo già esistente. Continuare?"))) {
        return false;
    }
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
    Interazione& interazione = m_sessione.interazione;
    if (!puoModificare() || SoloLettura())
        return false;
    if (Indice <= 0) {
        interazione.messaggio(QStringLiteral("Attenzione, selezionare la riga da cancellare"), {},
                              Interazione::Icona::Avviso);
        return false;
    }
    if (!interazione.domandaSiNo(QStringLiteral("Attenzione, cancellare la riga selezionata?")))
        return false;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    // Movements that point at the row keep their own copies of text and amount.
    const bool fatto
        = archivio.comando(QStringLiteral("DELETE FROM TabellaListinoAccessori WHERE Indice = ?"), { Indice });
    if (fatto) {
        operazioneEffettuata(interazione);
        pulisciCampi();
    }
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
    reports::ContenutoStampa contenuto;
    contenuto.titoliColonne = TitoliColonne();
    for (const RigaGriglia& riga : Griglia)
        contenuto.righe << riga.colonne;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri()
        || !reports::riempiStampa(archivio, reports::righeStampaGenerica(contenuto, m_sessione.orologio.oggi())))
        return std::nullopt;
    return reports::modelloDaRighe(reports::leggiStampa(archivio), QStringLiteral("LISTINO ACCESSORI"));
}

void SchermoListinoAccessori::Griglia_Click(int riga)
{
    if (riga < 0 || riga >= static_cast<int>(Griglia.size()))
        return;
    const RigaGriglia& r = Griglia[static_cast<size_t>(riga)];
    const auto comeDigitato = [](QString testo) { return testo.replace(QStringLiteral("''"), QStringLiteral("'")); };
    Indice = r.Indice;
    Tipo = comeDigitato(r.colonne.value(0));
    Descrizione = comeDigitato(r.colonne.value(1));
    Prezzo = r.colonne.value(2);
    Iva = r.colonne.value(3);
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
        riga.colonne = { r.value(1).toString(), r.value(2).toString(),
                         r.value(3).isNull() ? QString() : formattaNumero(r.value(3).toDouble(), 2, false),
                         r.value(4).isNull() ? QString() : testoNumero(r.value(4).toDouble()) };
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
