#pragma once

#include "guests/anagrafiche.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tomvera {

class Archivio;
class Interazione;
class Orologio;
struct Sessione;

// A municipality offered by the completion of the residence, birth or document place.
struct ComuneProposto
{
    QString comune;
    QString provincia;
    QString cap;
    bool operator==(const ComuneProposto& altro) const
    {
        return comune == altro.comune && provincia == altro.provincia && cap == altro.cap;
    }
};

// A card offered by the name look-ahead.
struct PropostaNome
{
    QString testo; // "Cognome Nome", "Nome Cognome" or the RagSociale, by the field typed in
    qint64 indice = 0;
};

// One stay of the guest (GrigliaAnagrafiche).
struct SoggiornoOspite
{
    qint64 indice = 0;
    qint64 indicePrenotazioneAssociata = 0;
    QString dataArrivo, dataPartenza; // dd/MM/yyyy
    QString nroArrivo, nroCamera, tipoTrattamento;
};

// One beach reservation of the guest (GrigliaSpiaggia).
struct PrenotazioneSpiaggiaOspite
{
    qint64 indice = 0;
    QString numero, dataPrenotazione;
    double totale = 0, incassato = 0;
};

// A line of the guest list that "Cerca" opens.
struct VoceElencoAnagrafiche
{
    qint64 indice = 0;
    QString codice, ragSociale, comune, dataNascita;
};

// F_SchedaAnagrafica, "Scheda Anagrafica": the guest and customer card.
class SchedaAnagrafica
{
public:
    enum class CampoNome
    {
        Cognome,
        Nome,
        RagSociale
    };
    enum class CampoComune
    {
        Cap,
        Citta,
        Provincia
    };

    // No user rights: the tools and the read-only look-ups.
    SchedaAnagrafica(Archivio& archivio, Interazione& interazione, const Orologio& orologio);
    // The screen of a logged-in user: AnagraficheSoloLettura refuses save and delete.
    SchedaAnagrafica(Sessione& sessione, Archivio& archivio);

    bool soloLettura() const { return m_soloLettura; }
    Interazione& interazione() { return m_interazione; }
    // Something typed since the card was loaded, cleared or saved.
    bool modificata() const { return !(m_dati == m_originale); }

    Anagrafica& dati() { return m_dati; }
    const Anagrafica& dati() const { return m_dati; }
    bool nuova() const { return m_dati.Indice == 0; }

    // Shows a card with its stays and beach reservations. False when no such card.
    bool carica(qint64 indice);
    void PulisciCampi();

    void Nuovo_Click();
    bool Registra_Click();
    bool Cancella_Click();
    // Esci and Escape: with unsaved changes asks "Salvare le modifiche apportate?" and saves on Yes. True when
    // the card may close.
    bool Fine_Click();
    // The guest list of "Cerca": cards whose name, code or town contain the text, by name.
    QList<VoceElencoAnagrafiche> elenco(const QString& filtro);

    // On leaving the name fields of a new card: offers to load a card with the same name. True when loaded.
    bool ControllaEsistenzaAnagrafica();
    // Up to 99 cards at and after the text, in the order of the field typed in.
    QList<PropostaNome> proposteNome(CampoNome campo, const QString& testo);

    // Residence completion: exactly one hit fills Citta, Provincia and Cap and returns empty; several are
    // returned for the list CittaVL.
    QList<ComuneProposto> COMUNE_Ricerca(CampoComune campo, const QString& testo);
    void COMUNE_ConfermaSelezionato(const ComuneProposto& scelto);

    // Birth and document place: up to 200 municipalities at and after the text.
    QList<ComuneProposto> proposteLuogo(const QString& testo);
    void LuogoNascita_Conferma(const ComuneProposto& scelto);
    void LuogoDocumento_Conferma(const ComuneProposto& scelto);
    // State words and document words at and after the text, up to 200.
    QStringList proposteStati(const QString& testo);
    QStringList proposteDocumenti(const QString& testo);

    void ResidenzaItaliana_Click();
    void ResidenzaEstera_Click();
    QString etichettaIstat() const;
    QStringList sceltaIstat() const;
    void ProponiIstat_Click();
    void NascitaItalia_Click();
    void NascitaEstero_Click();
    void DocumentoItalia_Click();
    void DocumentoEstero_Click();

    // Run on key release in CodiceFiscale: the check once the code has 16 characters.
    void CodiceFiscale_KeyUp();
    void Piva_LostFocus();
    // Dates get their slashes ("010280" -> "01/02/1980"); a wrong one is reported.
    void DataNascita_LostFocus();
    void DataDocumento_LostFocus();

    // What OpenUrl opens: the site in the browser, or a mail to the address. Empty when the field is.
    QString OpenUrl_Click(bool email) const;

    const QList<SoggiornoOspite>& soggiorni() const { return m_soggiorni; }
    const QList<PrenotazioneSpiaggiaOspite>& prenotazioniSpiaggia() const { return m_spiaggia; }
    double totaleSpiaggia() const;
    double incassatoSpiaggia() const;

private:
    void caricaSoggiorni();
    void caricaSpiaggia();
    QList<ComuneProposto> comuni(const QString& sql, const QVariantList& parametri);

    bool rifiutaSoloLettura();
    bool controllaTesti();

    Archivio& m_archivio;
    Interazione& m_interazione;
    const Orologio& m_orologio;
    bool m_soloLettura = false;
    Anagrafica m_dati;
    Anagrafica m_originale; // as loaded or saved: what "modified" compares with
    QList<SoggiornoOspite> m_soggiorni;
    QList<PrenotazioneSpiaggiaOspite> m_spiaggia;
};

} // namespace tomvera
