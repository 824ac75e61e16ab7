#include "pricelists/schermolistino.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "reports/stampagenerica.h"

namespace tomvera::prezzi {

bool puoModificareListini(const Sessione& sessione)
{
    return sessione.permessi->puo(&PermessiUtente::Listini);
}

bool listiniSoloLettura(const Sessione& sessione)
{
    return sessione.permessi->soloLettura(&PermessiUtente::ListiniSoloLettura);
}

void avvisa(Interazione& interazione, const QString& testo)
{
    interazione.messaggio(testo, {}, Interazione::Icona::Avviso);
}

bool controllaPrezzoIva(Sessione& sessione, const QString& prezzo, const QString& iva, QString& focus)
{
    if (valoreDi(prezzo) == 0) {
        avvisa(sessione.interazione, QStringLiteral("Attenzione, inserire un prezzo!"));
        focus = QStringLiteral("Prezzo");
        return false;
    }
    if (valoreDi(iva) == 0) {
        avvisa(sessione.interazione,
               QStringLiteral("Attenzione, inserire ") + sessione.configurazione->EtichettaImpostaLunga
                   + QStringLiteral("!"));
        focus = QStringLiteral("Iva");
        return false;
    }
    return true;
}

std::optional<bool> confermaAggiornamento(Archivio& archivio, Interazione& interazione, const QString& tabella,
                                          qint64 indice)
{
    const bool esiste = indice > 0
        && archivio.esisteRiga(QStringLiteral("SELECT Indice FROM ") + tabella + QStringLiteral(" WHERE Indice = ?"),
                               { indice });
    if (esiste
        && !interazione.domandaSiNo(
            QStringLiteral("Attenzione si stà aggiornando un prezzo già esistente. Continuare?"))) {
        return std::nullopt;
    }
    return esiste;
}

std::optional<bool> cancellaRiga(Sessione& sessione, const QString& tabella, qint64 indice)
{
    Interazione& interazione = sessione.interazione;
    if (indice <= 0) {
        avvisa(interazione, QStringLiteral("Attenzione, selezionare la riga da cancellare"));
        return std::nullopt;
    }
    if (!interazione.domandaSiNo(QStringLiteral("Attenzione, cancellare la riga selezionata?")))
        return std::nullopt;
    Archivio archivio(sessione.PercorsoDB, sessione.errori);
    if (!archivio.apri())
        return std::nullopt;
    const bool fatto
        = archivio.comando(QStringLiteral("DELETE FROM ") + tabella + QStringLiteral(" WHERE Indice = ?"), { indice });
    if (fatto)
        operazioneEffettuata(interazione);
    return fatto;
}

std::optional<reports::ModelloStampa> stampaVisualizzati(Sessione& sessione, const QStringList& intestazioni,
                                                         const QStringList& titoliColonne,
                                                         const std::vector<RigaGriglia>& griglia, const QString& titolo)
{
    reports::ContenutoStampa contenuto;
    contenuto.intestazioni = intestazioni;
    contenuto.titoliColonne = titoliColonne;
    for (const RigaGriglia& riga : griglia)
        contenuto.righe << riga.colonne;
    Archivio archivio(sessione.PercorsoDB, sessione.errori);
    if (!archivio.apri()
        || !reports::riempiStampa(archivio, reports::righeStampaGenerica(contenuto, sessione.orologio.oggi())))
        return std::nullopt;
    return reports::modelloDaRighe(reports::leggiStampa(archivio), titolo);
}

const RigaGriglia* rigaScelta(const std::vector<RigaGriglia>& griglia, int riga)
{
    if (riga < 0 || riga >= static_cast<int>(griglia.size()))
        return nullptr;
    return &griglia[static_cast<size_t>(riga)];
}

QString comeDigitato(QString testo)
{
    return testo.replace(QStringLiteral("''"), QStringLiteral("'"));
}

QString cellaPrezzo(const QVariant& valore)
{
    return valore.isNull() ? QString() : formattaNumero(valore.toDouble(), 2, false);
}

QString cellaIva(const QVariant& valore)
{
    return valore.isNull() ? QString() : testoNumero(valore.toDouble());
}

} // namespace tomvera::prezzi
