#include "guests/archiviocodici.h"

#include "foundation/archivio.h"
#include "foundation/interazione.h"
#include "foundation/schema/codici.h"

#include <QFileInfo>
#include <QSqlRecord>

namespace tomvera {

namespace {

QString tabellaSql(TabellaCodici t)
{
    return QLatin1String(descrizione(t).tabella);
}

QString campoDescrizione(TabellaCodici t)
{
    return QLatin1String(descrizione(t).campoDescrizione);
}

// Contains test of one search field; LIKE escapes keep a typed % or _ literal.
void aggiungiFiltro(QString& sql, QVariantList& parametri, const QString& campo, const QString& testo)
{
    const QString t = testo.trimmed();
    if (t.isEmpty())
        return;
    QString escaped = t;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('%'), QLatin1String("\\%"))
        .replace(QLatin1Char('_'), QLatin1String("\\_"));
    sql += QStringLiteral(" AND ") + campo + QStringLiteral(" LIKE ? ESCAPE '\\'");
    parametri << QString(QLatin1Char('%') + escaped + QLatin1Char('%'));
}

} // namespace

ArchivioCodici::ArchivioCodici(Archivio& archivio, Interazione& interazione, QString percorsoArchivioCodici,
                               Ripristino ripristino)
    : m_archivio(archivio)
    , m_interazione(interazione)
    , m_percorsoArchivioCodici(std::move(percorsoArchivioCodici))
    , m_ripristino(std::move(ripristino))
{
}

void ArchivioCodici::selezionaTabella(TabellaCodici tabella)
{
    m_tabella = tabella;
    m_campi = VoceCodice();
    m_ricerca = VoceCodice();
    Command2_Click();
}

bool ArchivioCodici::haProvincia() const
{
    return descrizione(m_tabella).provincia;
}

bool ArchivioCodici::haCapEPrefisso() const
{
    return descrizione(m_tabella).capEPrefisso;
}

QStringList ArchivioCodici::titoliGriglia() const
{
    QStringList titoli { QStringLiteral("Codice"), QLatin1String(descrizione(m_tabella).titoloDescrizione) };
    if (haProvincia())
        titoli << QStringLiteral("Provincia");
    if (haCapEPrefisso())
        titoli << QStringLiteral("Cap") << QStringLiteral("Prefisso Tel.");
    return titoli;
}

void ArchivioCodici::selezionaRiga(int riga)
{
    if (riga >= 0 && riga < m_griglia.size())
        m_campi = m_griglia.at(riga);
}

void ArchivioCodici::Command2_Click()
{
    const QString descr = campoDescrizione(m_tabella);
    QString colonne = QStringLiteral("Indice, Codice, ") + descr;
    colonne += haProvincia() ? QStringLiteral(", Provincia") : QStringLiteral(", ''");
    colonne += haCapEPrefisso() ? QStringLiteral(", Cap, PrefissoTelefonico") : QStringLiteral(", '', ''");
    QString sql = QStringLiteral("SELECT ") + colonne + QStringLiteral(" FROM ") + tabellaSql(m_tabella)
        + QStringLiteral(" WHERE Indice > 0");
    QVariantList parametri;
    aggiungiFiltro(sql, parametri, QStringLiteral("Codice"), m_ricerca.codice);
    aggiungiFiltro(sql, parametri, descr, m_ricerca.descrizione);
    if (haProvincia())
        aggiungiFiltro(sql, parametri, QStringLiteral("Provincia"), m_ricerca.provincia);
    if (haCapEPrefisso()) {
        aggiungiFiltro(sql, parametri, QStringLiteral("Cap"), m_ricerca.cap);
        aggiungiFiltro(sql, parametri, QStringLiteral("PrefissoTelefonico"), m_ricerca.prefissoTelefonico);
    }
    sql += QStringLiteral(" ORDER BY ") + descr;
    m_griglia.clear();
    const auto righe = m_archivio.righe(sql, parametri);
    for (const QSqlRecord& r : righe)
        m_griglia.append({ r.value(0).toLongLong(), r.value(1).toString(), r.value(2).toString(), r.value(3).toString(),
                           r.value(4).toString(), r.value(5).toString() });
}

void ArchivioCodici::CancellaCampiRicerca_Click()
{
    m_ricerca = VoceCodice();
    Command2_Click();
}

void ArchivioCodici::Command17_Click()
{
    m_campi = VoceCodice();
}

bool ArchivioCodici::Ins_Click()
{
    const DescrizioneTabellaCodici& d = descrizione(m_tabella);
    if (m_campi.codice.trimmed().isEmpty() || m_campi.descrizione.trimmed().isEmpty()) {
        m_interazione.messaggio(QStringLiteral("Attenzione, valorizzare i campi"));
        return false;
    }
    const auto altro = m_archivio.riga(QStringLiteral("SELECT Indice FROM ") + tabellaSql(m_tabella)
                                           + QStringLiteral(" WHERE Codice = ? AND Indice <> ?"),
                                       { m_campi.codice, m_campi.indice });
    if (altro) {
        m_interazione.messaggio(QStringLiteral("Il codice inserito è già usato per un altro ") + QLatin1String(d.cosa)
                                + QLatin1Char('!'));
        return false;
    }
    QStringList campi { QStringLiteral("Codice"), campoDescrizione(m_tabella) };
    QVariantList valori { m_campi.codice, m_campi.descrizione };
    if (d.provincia) {
        campi << QStringLiteral("Provincia");
        valori << m_campi.provincia;
    }
    if (d.capEPrefisso) {
        campi << QStringLiteral("Cap") << QStringLiteral("PrefissoTelefonico");
        valori << m_campi.cap << m_campi.prefissoTelefonico;
    }
    const bool esiste = m_campi.indice != 0
        && m_archivio.esisteRiga(QStringLiteral("SELECT 1 FROM ") + tabellaSql(m_tabella)
                                     + QStringLiteral(" WHERE Indice = ?"),
                                 { m_campi.indice });
    bool fatto;
    if (esiste) {
        valori << m_campi.indice;
        fatto = m_archivio.comando(QStringLiteral("UPDATE ") + tabellaSql(m_tabella) + QStringLiteral(" SET ")
                                       + campi.join(QStringLiteral(" = ?, ")) + QStringLiteral(" = ? WHERE Indice = ?"),
                                   valori);
    } else {
        fatto = m_archivio.comando(QStringLiteral("INSERT INTO ") + tabellaSql(m_tabella) + QStringLiteral(" (")
                                       + campi.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (?")
                                       + QStringLiteral(", ?").repeated(static_cast<int>(campi.size()) - 1)
                                       + QLatin1Char(')'),
                                   valori);
        if (fatto)
            m_campi.indice = m_archivio.ultimoIndiceInserito();
    }
    if (!fatto)
        return false;
    operazioneEffettuata(m_interazione);
    Command2_Click();
    return true;
}

bool ArchivioCodici::Command16_Click()
{
    const DescrizioneTabellaCodici& d = descrizione(m_tabella);
    const QString cosa = QLatin1String(d.articolo) + QLatin1Char(' ') + QLatin1String(d.cosa);
    if (m_campi.indice == 0) {
        m_interazione.messaggio(QStringLiteral("Attenzione, selezionare ") + cosa + QStringLiteral(" da cancellare"));
        return false;
    }
    if (!m_interazione.domandaSiNo(QStringLiteral("Attenzione, cancellare ") + cosa + QStringLiteral(" selezionato?")))
        return false;
    if (!m_archivio.comando(QStringLiteral("DELETE FROM ") + tabellaSql(m_tabella)
                                + QStringLiteral(" WHERE Indice = ?"),
                            { m_campi.indice }))
        return false;
    m_campi = VoceCodice();
    operazioneEffettuata(m_interazione);
    Command2_Click();
    return true;
}

void ArchivioCodici::Command3_Click()
{
    // Without the reference archive there is nothing to restore from.
    if (m_percorsoArchivioCodici.isEmpty() || !QFileInfo::exists(m_percorsoArchivioCodici) || !m_ripristino)
        return;
    if (!m_interazione.domandaSiNo(QStringLiteral("Attenzione questa operazione cancellerà tutti i dati presenti e "
                                                  "ripristinerà quelli originali, continuare?")))
        return;
    // The desk sees what the reset did: the rows now in the table, or that it was left as it was.
    const std::optional<int> righe = m_ripristino(m_tabella);
    const QString tabella = QStringLiteral("Tabella ") + QString::fromUtf8(descrizione(m_tabella).diChe);
    if (righe)
        m_interazione.messaggio(QStringLiteral("Procedura terminata\n\n") + tabella + QStringLiteral(": ")
                                + QString::number(*righe) + QStringLiteral(" righe ripristinate"));
    else
        m_interazione.messaggio(QStringLiteral("Ripristino non riuscito: la ") + tabella.toLower()
                                    + QStringLiteral(" è rimasta com'era."),
                                {}, Interazione::Icona::Critico);
    m_campi = VoceCodice();
    Command2_Click();
}

ArchivioCodici::Ripristino ripristinoDaArchivioCodici(Archivio& archivio, GestioneErrori& errori, QString percorso)
{
    return [&archivio, &errori, percorso = std::move(percorso)](TabellaCodici tabella) -> std::optional<int> {
        Archivio riferimento(percorso, errori);
        if (!riferimento.apri())
            return std::nullopt;
        return schema::copiaTabellaCodici(archivio, riferimento, QLatin1String(descrizione(tabella).tabella),
                                          schema::ModoCopiaCodici::Resetta);
    };
}

} // namespace tomvera
