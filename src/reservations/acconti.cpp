#include "reservations/acconti.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"

#include <QSqlRecord>

namespace tomvera {

SchedaAcconti::SchedaAcconti(Archivio& archivio, Interazione& interazione, const Orologio& orologio, Modo modo,
                             qint64 IndicePrenotazione)
    : m_archivio(archivio)
    , m_interazione(interazione)
    , m_orologio(orologio)
    , m_modo(modo)
    , m_indicePrenotazione(IndicePrenotazione)
{
    PulisciCampi();
}

QString SchedaAcconti::tabellaMovimenti() const
{
    switch (m_modo) {
    case Modo::Sale:
        return QStringLiteral("TabellaMovimentiSale");
    case Modo::Spiaggia:
        return QStringLiteral("TabellaMovimentiSpiaggia");
    case Modo::Camere:
        break;
    }
    return QStringLiteral("TabellaMovimenti");
}

QString SchedaAcconti::tabellaTestate() const
{
    switch (m_modo) {
    case Modo::Sale:
        return QStringLiteral("TabellaPrenotazioniSale");
    case Modo::Spiaggia:
        return QStringLiteral("TabellaPrenotazioniSpiaggia");
    case Modo::Camere:
        break;
    }
    return QStringLiteral("TabellaPrenotazioni");
}

double SchedaAcconti::totale() const
{
    double somma = 0;
    for (const Riga& r : m_righe)
        somma += r.Dare;
    return somma;
}

void SchedaAcconti::PulisciCampi()
{
    IndiceMovimento = 0;
    Data = testoData(m_orologio.oggi());
    Descrizione.clear();
    Importo.clear();
    FR = false;
    ricordaRiga();
}

void SchedaAcconti::ricordaRiga()
{
    m_dataBase = Data;
    m_descrizioneBase = Descrizione;
    m_importoBase = Importo;
    m_frBase = FR;
}

bool SchedaAcconti::rigaOccupata() const
{
    return IndiceMovimento != 0 || Data.trimmed() != testoData(m_orologio.oggi()) || !Descrizione.trimmed().isEmpty()
        || !Importo.trimmed().isEmpty() || FR;
}

bool SchedaAcconti::rigaModificata() const
{
    return Data.trimmed() != m_dataBase.trimmed() || Descrizione.trimmed() != m_descrizioneBase.trimmed()
        || Importo.trimmed() != m_importoBase.trimmed() || FR != m_frBase;
}

bool SchedaAcconti::Fine_Click()
{
    if (rigaModificata()) {
        const std::optional<bool> inserire = m_interazione.domandaSiNoAnnulla(
            QStringLiteral("Attenzione, l'acconto digitato non è stato inserito. Inserirlo prima di uscire?"));
        if (!inserire)
            return false;
        // A refused deposit keeps the screen open on it, with the refusal shown.
        if (*inserire && !Ins_Click())
            return false;
    }
    RegistraTotaleAcconto();
    return true;
}

void SchedaAcconti::Aggiorna_Click()
{
    m_righe.clear();
    const auto righe = m_archivio.righe(
        QStringLiteral("SELECT Indice, Data, Descrizione, Dare, EffettuataFatturaRicevuta FROM ") + tabellaMovimenti()
            + QStringLiteral(" WHERE Tipo = 'Acconto' AND IndicePrenotazioneAssociata = ? ORDER BY Data DESC"),
        { m_indicePrenotazione });
    for (const QSqlRecord& r : righe) {
        Riga riga;
        riga.Indice = r.value(0).toLongLong();
        riga.Data = dataDaArchivio(r.value(1));
        riga.Descrizione = r.value(2).toString();
        riga.Dare = r.value(3).toDouble();
        riga.EffettuataFatturaRicevuta = r.value(4).toInt() != 0;
        m_righe.append(riga);
    }
}

bool SchedaAcconti::Ins_Click()
{
    const double importo = leggiNumero(Importo).value_or(0);
    if (importo == 0) {
        m_interazione.messaggio(QStringLiteral("Attenzione, valorizzare l'importo!"));
        return false;
    }
    const auto data = leggiData(Data);
    if (!data) {
        m_interazione.messaggio(QStringLiteral("Attenzione, inserire correttamente una data!"));
        return false;
    }
    const bool esiste = IndiceMovimento > 0
        && m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM ") + tabellaMovimenti()
                                     + QStringLiteral(" WHERE Indice = ?"),
                                 { IndiceMovimento });
    bool scritto = false;
    if (esiste) {
        if (!m_interazione.domandaSiNo(
                QStringLiteral("Attenzione si stà aggiornando un movimento già esistente. Continuare?")))
            return false;
        scritto = m_archivio.comando(
            QStringLiteral("UPDATE ") + tabellaMovimenti()
                + QStringLiteral(" SET Data = ?, Descrizione = ?, Dare = ?, IndicePrenotazioneAssociata = ?, "
                                 "EffettuataFatturaRicevuta = ?, Tipo = 'Acconto' WHERE Indice = ?"),
            { dataArchivio(*data), Descrizione, importo, m_indicePrenotazione, FR ? 1 : 0, IndiceMovimento });
    } else {
        scritto = m_archivio.comando(
            QStringLiteral("INSERT INTO ") + tabellaMovimenti()
                + QStringLiteral(" (Data, Descrizione, Dare, IndicePrenotazioneAssociata, "
                                 "EffettuataFatturaRicevuta, Tipo) VALUES (?, ?, ?, ?, ?, 'Acconto')"),
            { dataArchivio(*data), Descrizione, importo, m_indicePrenotazione, FR ? 1 : 0 });
    }
    // A write the archive refused keeps the deposit on the line, to be tried again.
    if (!scritto)
        return false;
    PulisciCampi();
    Aggiorna_Click();
    return true;
}

void SchedaAcconti::Cancella_Click()
{
    if (IndiceMovimento == 0) {
        m_interazione.messaggio(QStringLiteral("Attenzione, selezionare il movimento da cancellare!"));
        return;
    }
    if (!m_interazione.domandaSiNo(QStringLiteral("Attenzione, cancellare il movimento selezionato?")))
        return;
    // Only a deposit of this reservation: a stale selection must never reach another row.
    if (m_archivio.comando(
            QStringLiteral("DELETE FROM ") + tabellaMovimenti()
                + QStringLiteral(" WHERE Indice = ? AND Tipo = 'Acconto' AND IndicePrenotazioneAssociata = ?"),
            { IndiceMovimento, m_indicePrenotazione }))
        operazioneEffettuata(m_interazione);
    PulisciCampi();
    Aggiorna_Click();
}

void SchedaAcconti::ImpostaAccontoFatturato(bool fatturato)
{
    m_archivio.comando(QStringLiteral("UPDATE ") + tabellaMovimenti()
                           + QStringLiteral(" SET EffettuataFatturaRicevuta = ? WHERE Tipo = 'Acconto' "
                                            "AND IndicePrenotazioneAssociata = ?"),
                       { fatturato ? 1 : 0, m_indicePrenotazione });
    Aggiorna_Click();
}

void SchedaAcconti::Command6_Click()
{
    if (m_interazione.domandaSiNo(QStringLiteral("Attenzione settare tutti i movimenti come Fatturati?")))
        ImpostaAccontoFatturato(true);
}

void SchedaAcconti::Command1_Click()
{
    if (m_interazione.domandaSiNo(QStringLiteral("Attenzione settare tutti i movimenti come NON Fatturati?")))
        ImpostaAccontoFatturato(false);
}

void SchedaAcconti::Righe_Click(int riga)
{
    if (riga < 0 || riga >= m_righe.size())
        return;
    // Loading a row over a deposit typed but not inserted would drop it without a word.
    const qint64 scelto = m_righe.at(riga).Indice;
    if (rigaModificata() && scelto != IndiceMovimento) {
        const std::optional<bool> inserire = m_interazione.domandaSiNoAnnulla(
            QStringLiteral("Attenzione, l'acconto digitato non è stato inserito. Inserirlo prima di passare ad un "
                           "altro movimento?"));
        if (!inserire || (*inserire && !Ins_Click()))
            return;
        if (*inserire) {
            // The insert reloaded the list: find the chosen movement again by its key.
            riga = -1;
            for (int i = 0; i < m_righe.size(); ++i)
                if (m_righe.at(i).Indice == scelto)
                    riga = i;
            if (riga < 0)
                return;
        }
    }
    const Riga& r = m_righe.at(riga);
    IndiceMovimento = r.Indice;
    Data = r.Data.isValid() ? testoData(r.Data) : QString();
    Descrizione = r.Descrizione;
    Importo = formattaNumero(r.Dare, 2);
    FR = r.EffettuataFatturaRicevuta;
    ricordaRiga();
}

void SchedaAcconti::RegistraTotaleAcconto()
{
    m_archivio.comando(QStringLiteral("UPDATE ") + tabellaTestate()
                           + QStringLiteral(" SET TotaleAcconto = ? WHERE Indice = ?"),
                       { totale(), m_indicePrenotazione });
}

QList<VoceListaPrenotazioni> caricaListaPrenotazioni(Archivio& archivio, const QString& nroCamera, const QDate& dal,
                                                     const QDate& al)
{
    QList<VoceListaPrenotazioni> voci;
    if (!dal.isValid() || !al.isValid())
        return voci;
    const QString f = dataArchivio(dal);
    const QString t = dataArchivio(al);
    // The strict room rule: a stay that leaves on the first day, or arrives on the last, does not meet the period.
    const auto righe = archivio.righe(
        QStringLiteral("SELECT m.IndicePrenotazioneAssociata, p.NumeroPrenotazione, p.DataPrenotazione, a.RagSociale, "
                       "m.Dal, m.Al FROM TabellaMovimenti m "
                       "INNER JOIN TabellaPrenotazioni p ON p.Indice = m.IndicePrenotazioneAssociata "
                       "LEFT JOIN TabellaAnagraficheAssociatePrenotazioni a "
                       "ON a.IndicePrenotazioneAssociata = m.IndicePrenotazioneAssociata "
                       "WHERE m.Tipo = 'PrenotazioneCamera' AND m.NroCamera = ? "
                       "AND ((m.Dal < ? AND m.Al > ?) OR (m.Dal < ? AND m.Al > ?) OR (m.Dal >= ? AND m.Al <= ?)) "
                       "ORDER BY p.NumeroPrenotazione, a.ClienteIntestatario DESC"),
        { nroCamera, f, f, t, t, f, t });
    for (const QSqlRecord& r : righe) {
        VoceListaPrenotazioni v;
        v.IndicePrenotazione = r.value(0).toLongLong();
        v.NumeroPrenotazione = r.value(1).toInt();
        v.DataPrenotazione = dataDaArchivio(r.value(2));
        v.Cliente = r.value(3).toString();
        v.Dal = dataDaArchivio(r.value(4));
        v.Al = dataDaArchivio(r.value(5));
        voci.append(v);
    }
    return voci;
}

} // namespace tomvera
