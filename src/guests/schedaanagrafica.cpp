#include "guests/schedaanagrafica.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/routines.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "foundation/sessione.h"
#include "foundation/utenti.h"
#include "guests/controlli.h"
#include "guests/limiticampi.h"
#include "guests/provinceesigle.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

// Upper bound of a prefix search: everything that starts with the text sorts below it.
QString finePrefisso(const QString& testo)
{
    return testo + QChar(0xFFFF);
}

QString testoDataArchivio(const QVariant& v)
{
    const QDate d = dataDaArchivio(v);
    return d.isValid() ? testoData(d) : QString();
}

} // namespace

SchedaAnagrafica::SchedaAnagrafica(Archivio& archivio, Interazione& interazione, const Orologio& orologio)
    : m_archivio(archivio)
    , m_interazione(interazione)
    , m_orologio(orologio)
{
}

SchedaAnagrafica::SchedaAnagrafica(Sessione& sessione, Archivio& archivio)
    : SchedaAnagrafica(archivio, sessione.interazione, sessione.orologio)
{
    const PermessiUtente& p = *sessione.permessi;
    m_soloLettura
        = !utenti::eAmministratore(sessione.UtenteCollegato) && p.soloLettura(&PermessiUtente::AnagraficheSoloLettura);
}

bool SchedaAnagrafica::rifiutaSoloLettura()
{
    if (!m_soloLettura)
        return false;
    m_interazione.messaggio(QStringLiteral("Attenzione, l'utente può solo consultare le anagrafiche!"));
    return true;
}

// Texts that don't fit their fields, and dates that are no dates, are refused before anything is written.
bool SchedaAnagrafica::controllaTesti()
{
    const Anagrafica& d = m_dati;
    static const schema::Tabella tabella = schema::TabellaAnagrafiche();
    const auto lungo = primoTestoTroppoLungo(tabella,
                                             { { QStringLiteral("CodiceAnagrafica"), d.CodiceAnagrafica },
                                               { QStringLiteral("RagSociale"), d.RagSociale },
                                               { QStringLiteral("Nome"), d.Nome },
                                               { QStringLiteral("Cognome"), d.Cognome },
                                               { QStringLiteral("Indirizzo"), d.Indirizzo },
                                               { QStringLiteral("Cap"), d.Cap },
                                               { QStringLiteral("Comune"), d.Comune },
                                               { QStringLiteral("Provincia"), d.Provincia },
                                               { QStringLiteral("Piva"), d.Piva },
                                               { QStringLiteral("CodiceFiscale"), d.CodiceFiscale },
                                               { QStringLiteral("Cellulare"), d.Cellulare },
                                               { QStringLiteral("Telefono"), d.Telefono },
                                               { QStringLiteral("Fax"), d.Fax },
                                               { QStringLiteral("Email"), d.Email },
                                               { QStringLiteral("Web"), d.Web },
                                               { QStringLiteral("TipoDocumento"), d.TipoDocumento },
                                               { QStringLiteral("NroDocumento"), d.NroDocumento },
                                               { QStringLiteral("LuogoNascita"), d.LuogoNascita },
                                               { QStringLiteral("Cittadinanza"), d.Cittadinanza },
                                               { QStringLiteral("Nazione"), d.Nazione },
                                               { QStringLiteral("StatoDiNascita"), d.StatoDiNascita },
                                               { QStringLiteral("LuogoDocumento"), d.LuogoDocumento },
                                               { QStringLiteral("ProvinciaDiNascita"), d.ProvinciaDiNascita },
                                               { QStringLiteral("ResidenzaIstat"), d.ResidenzaIstat } });
    if (lungo) {
        m_interazione.messaggio(messaggioTestoTroppoLungo(*lungo));
        return false;
    }
    for (const QString* data : { &d.DataNascita, &d.DataDocumento }) {
        if (!data->trimmed().isEmpty() && !leggiData(*data)) {
            m_interazione.messaggio(QStringLiteral("La data non è corretta"), QStringLiteral("DATA"),
                                    Interazione::Icona::Critico);
            return false;
        }
    }
    return true;
}

bool SchedaAnagrafica::carica(qint64 indice)
{
    const auto a = caricaAnagrafica(m_archivio, indice);
    if (!a)
        return false;
    m_dati = *a;
    m_originale = m_dati;
    caricaSoggiorni();
    caricaSpiaggia();
    return true;
}

void SchedaAnagrafica::PulisciCampi()
{
    m_dati = Anagrafica();
    m_originale = m_dati;
    m_soggiorni.clear();
    m_spiaggia.clear();
}

void SchedaAnagrafica::Nuovo_Click()
{
    PulisciCampi();
    m_dati.CodiceAnagrafica = ProssimoCodiceAnagrafica(m_archivio);
    // A proposed code alone is nothing to save.
    m_originale = m_dati;
}

bool SchedaAnagrafica::Registra_Click()
{
    if (rifiutaSoloLettura())
        return false;
    Anagrafica& d = m_dati;
    // A text the archive cannot hold, or a write that failed, takes back what the save filled in: no code shows
    // as if saved. The screen's own refusals leave the proposal, as the desk knows it.
    const QString codiceDigitato = d.CodiceAnagrafica;
    const QString nomeDigitato = d.RagSociale;
    const auto annulla = [&] {
        d.CodiceAnagrafica = codiceDigitato;
        d.RagSociale = nomeDigitato;
        return false;
    };
    if (!d.CodiceAnagrafica.isEmpty()) {
        if (!ControllaCodiceAnagrafica(m_archivio, m_interazione, d.CodiceAnagrafica, d.Indice))
            return false;
    } else {
        d.CodiceAnagrafica = ProssimoCodiceAnagrafica(m_archivio);
    }
    if (d.RagSociale.isEmpty() && d.Cognome.isEmpty() && d.Nome.isEmpty()) {
        m_interazione.messaggio(QStringLiteral("Valorizzare i campi obbligatori"));
        return false;
    }
    if (d.RagSociale.isEmpty())
        d.RagSociale = d.Cognome + QLatin1Char(' ') + d.Nome;
    if (!controllaTesti())
        return annulla();
    // An edit to another card's name is refused too: two cards never share a name through this screen.
    const auto omonimo = m_archivio.riga(QStringLiteral("SELECT Indice FROM TabellaAnagrafiche WHERE RagSociale = ?"),
                                         { d.RagSociale });
    if (omonimo && omonimo->value(0).toLongLong() != d.Indice) {
        m_interazione.messaggio(QStringLiteral("La Ragione Sociale è già utilizzata"));
        return false;
    }
    if (!d.CodiceFiscale.isEmpty()) {
        const QString esito = ControllaCodiceFiscale(d.CodiceFiscale);
        if (!esito.isEmpty())
            m_interazione.messaggio(esito);
    }
    if (d.Indice != 0
        && m_archivio.esisteRiga(QStringLiteral("SELECT 1 FROM TabellaAnagrafiche WHERE Indice = ?"), { d.Indice })) {
        if (!m_interazione.domandaSiNo(
                QStringLiteral("Attenzione si stà aggiornando un Anagrafica già esistente. Continuare?")))
            return false;
    } else {
        d.Indice = 0;
    }
    Anagrafica daScrivere = d;
    Transazione transazione(m_archivio);
    if (!transazione.attiva() || !scriviAnagrafica(m_archivio, daScrivere) || !transazione.commit())
        return annulla();
    d.Indice = daScrivere.Indice;
    m_originale = d;
    operazioneEffettuata(m_interazione);
    return true;
}

bool SchedaAnagrafica::Cancella_Click()
{
    if (rifiutaSoloLettura())
        return false;
    if (m_dati.Indice == 0) {
        m_interazione.messaggio(QStringLiteral("Attenzione, selezionare l'anagrafica da cancellare!"));
        return false;
    }
    // Only reservations hold on to a card; documents keep their own copy of the customer.
    if (ClientePresenteInPrenotazioni(m_archivio, m_dati.Indice)) {
        m_interazione.messaggio(
            QStringLiteral("Attenzione il cliente è presente in una o più prenotazioni, impossibile cancellarlo!"));
        return false;
    }
    if (!m_interazione.domandaSiNo(QStringLiteral("Sicuri di cancellare l'anagrafica selezionata?")))
        return false;
    if (!m_archivio.comando(QStringLiteral("DELETE FROM TabellaAnagrafiche WHERE Indice = ?"), { m_dati.Indice }))
        return false;
    PulisciCampi();
    operazioneEffettuata(m_interazione);
    return true;
}

bool SchedaAnagrafica::Fine_Click()
{
    if (!modificata() || m_soloLettura)
        return true;
    if (!m_interazione.domandaSiNo(QStringLiteral("Salvare le modifiche apportate?")))
        return true;
    return Registra_Click();
}

QList<VoceElencoAnagrafiche> SchedaAnagrafica::elenco(const QString& filtro)
{
    const QString f = QLatin1Char('%') + filtro.trimmed() + QLatin1Char('%');
    QList<VoceElencoAnagrafiche> voci;
    const auto righe = m_archivio.righe(
        QStringLiteral("SELECT Indice, CodiceAnagrafica, RagSociale, Comune, DataNascita FROM TabellaAnagrafiche "
                       "WHERE Indice > 0 AND (RagSociale LIKE ? OR CodiceAnagrafica LIKE ? OR Comune LIKE ?) "
                       "ORDER BY RagSociale LIMIT 500"),
        { f, f, f });
    for (const QSqlRecord& r : righe)
        voci.append({ r.value(0).toLongLong(), r.value(1).toString(), r.value(2).toString(), r.value(3).toString(),
                      testoDataArchivio(r.value(4)) });
    return voci;
}

bool SchedaAnagrafica::ControllaEsistenzaAnagrafica()
{
    if (!nuova())
        return false;
    std::optional<QSqlRecord> trovata;
    if (!m_dati.RagSociale.isEmpty())
        trovata = m_archivio.riga(QStringLiteral("SELECT Indice FROM TabellaAnagrafiche WHERE RagSociale = ?"),
                                  { m_dati.RagSociale });
    if (!trovata && !m_dati.Cognome.isEmpty() && !m_dati.Nome.isEmpty())
        trovata
            = m_archivio.riga(QStringLiteral("SELECT Indice FROM TabellaAnagrafiche WHERE Cognome = ? AND Nome = ?"),
                              { m_dati.Cognome, m_dati.Nome });
    if (!trovata)
        return false;
    if (!m_interazione.domandaSiNo(QStringLiteral("Attenzione la scheda cliente già esiste, caricarla?")))
        return false;
    return carica(trovata->value(0).toLongLong());
}

QList<PropostaNome> SchedaAnagrafica::proposteNome(CampoNome campo, const QString& testo)
{
    QString sql;
    switch (campo) {
    case CampoNome::Cognome:
        sql = QStringLiteral(
            "SELECT ifnull(Cognome, '') || ' ' || ifnull(Nome, ''), Indice FROM TabellaAnagrafiche WHERE Cognome >= ? "
            "ORDER BY Cognome, Nome LIMIT 99");
        break;
    case CampoNome::Nome:
        sql = QStringLiteral(
            "SELECT ifnull(Nome, '') || ' ' || ifnull(Cognome, ''), Indice FROM TabellaAnagrafiche WHERE Nome >= ? "
            "ORDER BY Nome, Cognome LIMIT 99");
        break;
    case CampoNome::RagSociale:
        sql = QStringLiteral("SELECT RagSociale, Indice FROM TabellaAnagrafiche WHERE RagSociale >= ? "
                             "ORDER BY RagSociale LIMIT 99");
        break;
    }
    QList<PropostaNome> proposte;
    const auto righe = m_archivio.righe(sql, { testo });
    for (const QSqlRecord& r : righe)
        proposte.append({ r.value(0).toString().trimmed(), r.value(1).toLongLong() });
    return proposte;
}

QList<ComuneProposto> SchedaAnagrafica::comuni(const QString& sql, const QVariantList& parametri)
{
    QList<ComuneProposto> trovati;
    const auto righe = m_archivio.righe(sql, parametri);
    for (const QSqlRecord& r : righe)
        trovati.append({ r.value(0).toString(), r.value(1).toString(), r.value(2).toString() });
    return trovati;
}

QList<ComuneProposto> SchedaAnagrafica::COMUNE_Ricerca(CampoComune campo, const QString& testo)
{
    const QString t = testo.trimmed();
    if (t.isEmpty())
        return {};
    // Nobody lives in a municipality that no longer exists.
    const QString base = QStringLiteral("SELECT Comune, Provincia, Cap FROM TabellaCodiciComuni WHERE ");
    const QString vivi = QStringLiteral(" AND Comune NOT LIKE '%(Val. fino al%'");
    QList<ComuneProposto> trovati;
    switch (campo) {
    case CampoComune::Cap:
        trovati = comuni(base + QStringLiteral("Cap = ?") + vivi + QStringLiteral(" ORDER BY Comune"), { t });
        break;
    case CampoComune::Provincia:
        trovati = comuni(base + QStringLiteral("Provincia = ?") + vivi + QStringLiteral(" ORDER BY Comune"), { t });
        break;
    case CampoComune::Citta:
        trovati = comuni(base + QStringLiteral("Comune = ?") + vivi + QStringLiteral(" ORDER BY Comune"), { t });
        // Part of a name lists the municipalities that begin with it.
        if (trovati.isEmpty())
            trovati = comuni(base + QStringLiteral("Comune >= ? AND Comune < ?") + vivi
                                 + QStringLiteral(" ORDER BY Comune LIMIT 200"),
                             { t, finePrefisso(t) });
        break;
    }
    if (trovati.size() == 1) {
        COMUNE_ConfermaSelezionato(trovati.first());
        return {};
    }
    return trovati;
}

void SchedaAnagrafica::COMUNE_ConfermaSelezionato(const ComuneProposto& scelto)
{
    m_dati.Comune = scelto.comune;
    m_dati.Provincia = scelto.provincia;
    // The official files carry no postal codes: keep the one typed.
    if (!scelto.cap.isEmpty())
        m_dati.Cap = scelto.cap;
}

QList<ComuneProposto> SchedaAnagrafica::proposteLuogo(const QString& testo)
{
    return comuni(QStringLiteral("SELECT Comune, Provincia, Cap FROM TabellaCodiciComuni WHERE Comune >= ? "
                                 "ORDER BY Comune LIMIT 200"),
                  { testo.trimmed() });
}

void SchedaAnagrafica::LuogoNascita_Conferma(const ComuneProposto& scelto)
{
    m_dati.LuogoNascita = scelto.comune;
    m_dati.ProvinciaDiNascita = scelto.provincia;
    if (m_dati.NascitaItalia && m_dati.StatoDiNascita.isEmpty())
        m_dati.StatoDiNascita = QStringLiteral("ITALIA");
}

void SchedaAnagrafica::LuogoDocumento_Conferma(const ComuneProposto& scelto)
{
    m_dati.LuogoDocumento = scelto.comune;
}

QStringList SchedaAnagrafica::proposteStati(const QString& testo)
{
    QStringList stati;
    const auto righe = m_archivio.righe(
        QStringLiteral("SELECT Stato FROM TabellaCodiciStati WHERE Stato >= ? ORDER BY Stato LIMIT 200"),
        { testo.trimmed() });
    for (const QSqlRecord& r : righe)
        stati << r.value(0).toString();
    return stati;
}

QStringList SchedaAnagrafica::proposteDocumenti(const QString& testo)
{
    QStringList documenti;
    const auto righe = m_archivio.righe(
        QStringLiteral(
            "SELECT Documento FROM TabellaCodiciDocumenti WHERE Documento >= ? ORDER BY Documento LIMIT 200"),
        { testo.trimmed() });
    for (const QSqlRecord& r : righe)
        documenti << r.value(0).toString();
    return documenti;
}

void SchedaAnagrafica::ResidenzaItaliana_Click()
{
    m_dati.ResidenzaItaliana = true;
    // A country is no ISTAT province, and the other way round.
    if (!sceltaIstat().contains(m_dati.ResidenzaIstat))
        m_dati.ResidenzaIstat.clear();
}

void SchedaAnagrafica::ResidenzaEstera_Click()
{
    m_dati.ResidenzaItaliana = false;
    if (!sceltaIstat().contains(m_dati.ResidenzaIstat))
        m_dati.ResidenzaIstat.clear();
}

QString SchedaAnagrafica::etichettaIstat() const
{
    return m_dati.ResidenzaItaliana ? QStringLiteral("PROVINCIA") : QStringLiteral("PAESE");
}

QStringList SchedaAnagrafica::sceltaIstat() const
{
    return CaricaComboIstat(!m_dati.ResidenzaItaliana);
}

void SchedaAnagrafica::ProponiIstat_Click()
{
    const ListaIstat lista = m_dati.ResidenzaItaliana ? ListaIstat::Provincia : ListaIstat::Paese;
    const QString origine = m_dati.ResidenzaItaliana ? m_dati.Provincia : m_dati.Nazione;
    const QString voce = VoceIstatPer(lista, origine);
    m_dati.ResidenzaIstat = voce.isEmpty() ? origine : voce;
}

void SchedaAnagrafica::NascitaItalia_Click()
{
    m_dati.NascitaItalia = true;
    m_dati.StatoDiNascita = QStringLiteral("ITALIA");
}

void SchedaAnagrafica::NascitaEstero_Click()
{
    m_dati.NascitaItalia = false;
    m_dati.ProvinciaDiNascita.clear();
}

void SchedaAnagrafica::DocumentoItalia_Click()
{
    m_dati.DocumentoItalia = true;
}

void SchedaAnagrafica::DocumentoEstero_Click()
{
    m_dati.DocumentoItalia = false;
}

void SchedaAnagrafica::CodiceFiscale_KeyUp()
{
    if (m_dati.CodiceFiscale.size() != 16)
        return;
    const QString esito = ControllaCodiceFiscale(m_dati.CodiceFiscale);
    if (!esito.isEmpty())
        m_interazione.messaggio(esito);
}

void SchedaAnagrafica::Piva_LostFocus()
{
    if (!ControllaPartitaIva(m_dati.Piva))
        m_interazione.messaggio(QStringLiteral("Controllare Partita Iva"));
}

void SchedaAnagrafica::DataNascita_LostFocus()
{
    MascheraData(m_dati.DataNascita, m_interazione);
}

void SchedaAnagrafica::DataDocumento_LostFocus()
{
    MascheraData(m_dati.DataDocumento, m_interazione);
    const auto rilascio = leggiData(m_dati.DataDocumento);
    if (!rilascio)
        return;
    const auto nascita = leggiData(m_dati.DataNascita);
    ControllaValiditaDocumento(m_dati.TipoDocumento, *rilascio, nascita.value_or(QDate()), m_orologio.oggi(),
                               m_interazione);
}

QString SchedaAnagrafica::OpenUrl_Click(bool email) const
{
    if (email) {
        const QString indirizzo = m_dati.Email.trimmed();
        return indirizzo.isEmpty() ? QString() : QStringLiteral("mailto:") + indirizzo;
    }
    const QString sito = m_dati.Web.trimmed();
    if (sito.isEmpty())
        return {};
    return sito.contains(QLatin1String("://")) ? sito : QStringLiteral("http://") + sito;
}

void SchedaAnagrafica::caricaSoggiorni()
{
    m_soggiorni.clear();
    if (!schema::tabellaEsiste(m_archivio, QStringLiteral("TabellaAnagraficheAssociatePrenotazioni")))
        return;
    const auto righe = m_archivio.righe(
        QStringLiteral("SELECT Indice, IndicePrenotazioneAssociata, DataArrivo, DataPartenza, NroArrivo, "
                       "NroCameraCliente, TipoTrattamento FROM TabellaAnagraficheAssociatePrenotazioni "
                       "WHERE IndiceCliente = ? AND DataArrivo IS NOT NULL AND DataPartenza IS NOT NULL "
                       "AND NroCameraCliente <> '' ORDER BY DataArrivo DESC"),
        { m_dati.Indice });
    for (const QSqlRecord& r : righe)
        m_soggiorni.append({ r.value(0).toLongLong(), r.value(1).toLongLong(), testoDataArchivio(r.value(2)),
                             testoDataArchivio(r.value(3)), r.value(4).toString(), r.value(5).toString(),
                             r.value(6).toString() });
}

void SchedaAnagrafica::caricaSpiaggia()
{
    m_spiaggia.clear();
    // Empty until the beach is in use.
    if (!schema::tabellaEsiste(m_archivio, QStringLiteral("TabellaPrenotazioniSpiaggia"))
        || !schema::tabellaEsiste(m_archivio, QStringLiteral("TabellaAnagraficheAssociatePrenotazioniSpiaggia")))
        return;
    const auto righe = m_archivio.righe(
        QStringLiteral("SELECT p.Indice, p.NumeroPrenotazione, p.DataPrenotazione, p.Totale, p.TotaleAcconto "
                       "FROM TabellaAnagraficheAssociatePrenotazioniSpiaggia a JOIN TabellaPrenotazioniSpiaggia p "
                       "ON a.IndicePrenotazioneAssociata = p.Indice WHERE a.IndiceCliente = ? "
                       "GROUP BY p.Indice ORDER BY p.DataPrenotazione DESC"),
        { m_dati.Indice });
    for (const QSqlRecord& r : righe)
        m_spiaggia.append({ r.value(0).toLongLong(), r.value(1).toString(), testoDataArchivio(r.value(2)),
                            r.value(3).toDouble(), r.value(4).toDouble() });
}

double SchedaAnagrafica::totaleSpiaggia() const
{
    double totale = 0;
    for (const auto& p : m_spiaggia)
        totale += p.totale;
    return totale;
}

double SchedaAnagrafica::incassatoSpiaggia() const
{
    double totale = 0;
    for (const auto& p : m_spiaggia)
        totale += p.incassato;
    return totale;
}

} // namespace tomvera
