#include "statutory/schedine.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/routines.h"
#include "guests/tabellecodici.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSqlRecord>

namespace tomvera {

namespace {

// The grid's columns, in its order (28 and 29 are the screen's own).
constexpr const char* campiRiga
    = "Indice, IndicePrenotazioneAssociata, TipoDiAlloggiato, Cognome, Nome, DataArrivo, DataPartenza, "
      "MaschioFemmina, DataNascita, LuogoNascita, ProvinciaDiNascita, StatoDiNascita, Cittadinanza, Comune, "
      "Provincia, Nazione, Indirizzo, TipoDocumento, NroDocumento, LuogoDocumento, NroCameraCliente, "
      "StatoInvioTelematico, NascitaItalia, NascitaEstero, DocumentoItalia, DocumentoEstero, ResidenzaItaliana, "
      "ResidenzaEstera, CodiceTipoDiAlloggiato";

// Dates and the state to send, shared by the list and its total.
QString predicato(const FiltroSchedine& filtro, QVariantList& parametri)
{
    QString sql;
    if (filtro.dal.isValid()) {
        sql += QStringLiteral(" AND DataArrivo >= ?");
        parametri << dataArchivio(filtro.dal);
    }
    if (filtro.al.isValid()) {
        sql += QStringLiteral(" AND DataArrivo <= ?");
        parametri << dataArchivio(filtro.al);
    }
    if (filtro.soloDaInviare)
        sql += QStringLiteral(" AND (StatoInvioTelematico = '' OR StatoInvioTelematico IS NULL)");
    return sql;
}

// Flags were stored by older versions as text too ("True", "-1").
bool flag(const QVariant& v)
{
    if (v.isNull())
        return false;
    bool numero = false;
    const qlonglong n = v.toLongLong(&numero);
    return numero ? n != 0 : ValoreVero(v.toString().trimmed());
}

QString testo(const QSqlRecord& r, int i)
{
    return r.value(i).toString();
}

bool vuoto(const QString& s)
{
    return s.trimmed().isEmpty();
}

} // namespace

std::optional<std::vector<RigaSchedina>> leggiRigheSchedine(Archivio& archivio, const FiltroSchedine& filtro)
{
    QVariantList parametri;
    QString sql = QStringLiteral("SELECT ") + QLatin1String(campiRiga)
        + QStringLiteral(" FROM TabellaAnagraficheAssociatePrenotazioni WHERE Indice > 0 AND Arrivato = 1");
    if (!filtro.codiceAzienda.isEmpty()) {
        sql += QStringLiteral(" AND CodiceAzienda = ?");
        parametri << filtro.codiceAzienda;
    }
    sql += predicato(filtro, parametri);
    // Indice last only makes equal rows come out the same way every time.
    sql += QStringLiteral(" ORDER BY DataArrivo, IndicePrenotazioneAssociata, val(CodiceTipoDiAlloggiato), "
                          "CapoGruppoFamiglia, OrdinamentoTipoAlloggiato, Indice");
    auto query = archivio.esegui(sql, parametri);
    if (!query)
        return std::nullopt;
    std::vector<RigaSchedina> righe;
    while (query->next()) {
        const QSqlRecord r = query->record();
        RigaSchedina g;
        g.indice = r.value(0).toLongLong();
        g.IndicePrenotazioneAssociata = r.value(1).toLongLong();
        g.Tipodialloggiato = testo(r, 2);
        g.cognome = testo(r, 3);
        g.nome = testo(r, 4);
        g.dataarrivo = dataDaArchivio(r.value(5));
        g.datapartenza = dataDaArchivio(r.value(6));
        g.maschiofemmina = testo(r, 7);
        g.datanascita = dataDaArchivio(r.value(8));
        g.luogonascita = testo(r, 9);
        g.provinciadinascita = testo(r, 10);
        g.statodinascita = testo(r, 11);
        g.cittadinanza = testo(r, 12);
        g.comune = testo(r, 13);
        g.provincia = testo(r, 14);
        g.nazione = testo(r, 15);
        g.indirizzo = testo(r, 16);
        g.tipodocumento = testo(r, 17);
        g.nrodocumento = testo(r, 18);
        g.luogodocumento = testo(r, 19);
        g.nrocameracliente = testo(r, 20);
        g.StatoInvioTelematico = testo(r, 21);
        g.nascitaitalia = flag(r.value(22));
        g.nascitaestero = flag(r.value(23));
        g.documentoitalia = flag(r.value(24));
        g.documentoestero = flag(r.value(25));
        g.residenzaitaliana = flag(r.value(26));
        g.residenzaestera = flag(r.value(27));
        g.CodiceTipodialloggiato = testo(r, 28);
        righe.push_back(std::move(g));
    }
    return righe;
}

std::optional<int> contaRigheSchedine(Archivio& archivio, const FiltroSchedine& filtro)
{
    QVariantList parametri;
    const QString sql
        = QStringLiteral(
              "SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni WHERE Indice > 0 AND Arrivato = 1")
        + predicato(filtro, parametri);
    const QVariant n = archivio.valore(sql, parametri);
    if (!n.isValid())
        return std::nullopt;
    return n.toInt();
}

bool capoAlloggiato(const QString& tipoAlloggiato)
{
    const QString t = tipoAlloggiato.trimmed();
    return t.compare(QLatin1String("OSPITE SINGOLO"), Qt::CaseInsensitive) == 0
        || t.compare(QLatin1String("CAPOFAMIGLIA"), Qt::CaseInsensitive) == 0
        || t.compare(QLatin1String("CAPOGRUPPO"), Qt::CaseInsensitive) == 0;
}

QString ControllaCorrettezzaRiga(const RigaSchedina& r)
{
    if (vuoto(r.Tipodialloggiato))
        return QStringLiteral("Tipo Alloggiato");
    if (vuoto(r.cognome))
        return QStringLiteral("Cognome");
    if (vuoto(r.nome))
        return QStringLiteral("Nome");
    if (!r.dataarrivo.isValid())
        return QStringLiteral("Data Arrivo");
    if (vuoto(r.maschiofemmina))
        return QStringLiteral("Sesso");
    if (!r.datanascita.isValid())
        return QStringLiteral("Data di Nascita");
    if (r.nascitaitalia && vuoto(r.luogonascita))
        return QStringLiteral("Comune di Nascita");
    if (r.nascitaitalia && vuoto(r.provinciadinascita))
        return QStringLiteral("Provincia di Nascita");
    if (vuoto(r.statodinascita))
        return QStringLiteral("Stato di Nascita");
    if (vuoto(r.cittadinanza))
        return QStringLiteral("Cittadinanza");
    if (!capoAlloggiato(r.Tipodialloggiato))
        return QString();
    if (r.residenzaitaliana && vuoto(r.comune))
        return QStringLiteral("Comune di Residenza");
    if (r.residenzaitaliana && vuoto(r.provincia))
        return QStringLiteral("Provincia di Residenza");
    if (vuoto(r.nazione))
        return QStringLiteral("Stato di Residenza");
    if (vuoto(r.tipodocumento))
        return QStringLiteral("Tipo di Documento");
    if (vuoto(r.nrodocumento))
        return QStringLiteral("Numero Documento");
    if (vuoto(r.luogodocumento))
        return QStringLiteral("Luogo Rilascio Documento");
    return QString();
}

QString CodiciArchivio::operator()(TabellaCodici tabella, const QString& nome)
{
    // The old statement closed the name with a blank before the apostrophe; a trailing blank never decides.
    QString chiave = nome;
    while (chiave.endsWith(QLatin1Char(' ')))
        chiave.chop(1);
    if (chiave.isEmpty())
        return QString();
    const QString k = QString::number(static_cast<int>(tabella)) + QLatin1Char('|') + chiave;
    if (const auto noto = m_trovati.constFind(k); noto != m_trovati.constEnd())
        return *noto;
    // The name as given or stored with the blank after it; the first row in the table's order wins.
    const DescrizioneTabellaCodici& d = descrizione(tabella);
    const QVariant trovato = m_archivio.valore(QStringLiteral("SELECT Codice FROM ") + QLatin1String(d.tabella)
                                                   + QStringLiteral(" WHERE ") + QLatin1String(d.campoDescrizione)
                                                   + QStringLiteral(" IN (?, ?) ORDER BY Indice LIMIT 1"),
                                               { chiave, QString(chiave + QLatin1Char(' ')) });
    const QString codice = trovato.isNull() ? QString() : trovato.toString();
    m_trovati.insert(k, codice);
    return codice;
}

QString timbroInvio(const QDateTime& momento)
{
    return QStringLiteral("Creato il ") + momento.date().toString(QStringLiteral("dd/MM/yyyy"))
        + QStringLiteral(" alle ") + momento.time().toString(QStringLiteral("HH:mm:ss"));
}

EsitoEsportazione esportaSchedine(Archivio& archivio, const std::vector<RigaSchedina>& marcate, const QString& cartella,
                                  const QDateTime& adesso)
{
    EsitoEsportazione esito;
    esito.file = tracciato::nomeFile(cartella, adesso.date());
    const QString nessunaTimbrata = QStringLiteral(": nessuna scheda è stata segnata come inviata");

    if (marcate.empty()) {
        esito.stato = EsitoEsportazione::Stato::NessunaRiga;
        esito.messaggio = QStringLiteral("Nessuna riga selezionata");
        if (QFile::exists(esito.file))
            QFile::remove(esito.file);
        return esito;
    }

    CodiciArchivio codici(archivio);
    std::vector<QByteArray> records;
    records.reserve(marcate.size());
    char sesso = '\0';
    for (const RigaSchedina& r : marcate)
        records.push_back(tracciato::record(r, std::ref(codici), sesso));
    const QByteArray contenuto = tracciato::file(records);

    esito.stato = EsitoEsportazione::Stato::FileNonScritto;
    QSaveFile file(esito.file);
    if (!file.open(QIODevice::WriteOnly)) {
        esito.messaggio
            = QStringLiteral("Impossibile creare il file ") + QDir::toNativeSeparators(esito.file) + nessunaTimbrata;
        return esito;
    }
    if (file.write(contenuto) != contenuto.size()) {
        esito.messaggio = QStringLiteral("Errore durante la scrittura del file ") + QDir::toNativeSeparators(esito.file)
            + QStringLiteral(" (") + file.errorString() + QStringLiteral(")") + nessunaTimbrata;
        file.cancelWriting();
        return esito;
    }

    // The stamps wait, uncommitted, until the file is complete and in place.
    Transazione transazione(archivio);
    bool timbrate = transazione.attiva();
    const QString timbro = timbroInvio(adesso);
    if (timbrate) {
        auto update = archivio.prepara(QStringLiteral(
            "UPDATE TabellaAnagraficheAssociatePrenotazioni SET StatoInvioTelematico = ? WHERE Indice = ?"));
        timbrate = update.has_value();
        for (size_t i = 0; timbrate && i < marcate.size(); ++i)
            timbrate = archivio.esegui(*update, { timbro, marcate[i].indice });
    }
    if (!file.commit()) {
        transazione.rollback();
        esito.messaggio = QStringLiteral("Errore durante la scrittura del file ") + QDir::toNativeSeparators(esito.file)
            + QStringLiteral(" (") + file.errorString() + QStringLiteral(")") + nessunaTimbrata;
        return esito;
    }
    esito.esportate = static_cast<int>(marcate.size());
    if (!timbrate || !transazione.commit()) {
        esito.stato = EsitoEsportazione::Stato::NonTimbrate;
        esito.messaggio = QStringLiteral("Il file ") + QDir::toNativeSeparators(esito.file)
            + QStringLiteral(" è stato creato, ma non è stato possibile segnare le schede come inviate");
        return esito;
    }
    esito.stato = EsitoEsportazione::Stato::Esportate;
    esito.messaggio
        = QStringLiteral("Esportate ") + QString::number(esito.esportate) + QStringLiteral(" schede di notifica!");
    return esito;
}

} // namespace tomvera
