#include "reservations/prenotazione.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

const QStringList campiDataOspite = { QStringLiteral("DataArrivo"), QStringLiteral("DataPartenza"),
                                      QStringLiteral("DataDocumento"), QStringLiteral("DataNascita") };

QVariant nulloSeVuoto(const QDate& d)
{
    return valoreData(d);
}

// A date field of the guest as it goes to the archive: a QDate or a typed text; Null when it is no date.
QVariant dataPerArchivio(const QVariant& v)
{
    if (v.userType() == QMetaType::QDate)
        return valoreData(v.toDate());
    if (const auto d = leggiData(v.toString()))
        return valoreData(*d);
    return QVariant(QMetaType(QMetaType::QString));
}

} // namespace

QDate OspitePrenotazione::data(const QString& campo) const
{
    const QVariant v = campi.value(campo);
    if (v.userType() == QMetaType::QDate)
        return v.toDate();
    if (const auto d = leggiData(v.toString()))
        return *d;
    return {};
}

bool OspitePrenotazione::Arrivato() const
{
    const QVariant v = campi.value(QStringLiteral("Arrivato"));
    if (v.isNull() || !v.isValid())
        return NroArrivo() != 0;
    return v.toInt() == 1;
}

const QStringList& campiOspitePrenotazione()
{
    static const QStringList campi = { QStringLiteral("NroArrivo"),
                                       QStringLiteral("DataArrivo"),
                                       QStringLiteral("CodiceAnagrafica"),
                                       QStringLiteral("RagSociale"),
                                       QStringLiteral("Nome"),
                                       QStringLiteral("Cognome"),
                                       QStringLiteral("Indirizzo"),
                                       QStringLiteral("Cap"),
                                       QStringLiteral("Comune"),
                                       QStringLiteral("Provincia"),
                                       QStringLiteral("Piva"),
                                       QStringLiteral("CodiceFiscale"),
                                       QStringLiteral("Cellulare"),
                                       QStringLiteral("Telefono"),
                                       QStringLiteral("Fax"),
                                       QStringLiteral("NoteCliente"),
                                       QStringLiteral("TipoDocumento"),
                                       QStringLiteral("NroDocumento"),
                                       QStringLiteral("DataDocumento"),
                                       QStringLiteral("IndiceCliente"),
                                       QStringLiteral("NroCameraCliente"),
                                       QStringLiteral("DataNascita"),
                                       QStringLiteral("LuogoNascita"),
                                       QStringLiteral("Cittadinanza"),
                                       QStringLiteral("DataPartenza"),
                                       QStringLiteral("ClienteIntestatario"),
                                       QStringLiteral("TipoTrattamento"),
                                       QStringLiteral("Nazione"),
                                       QStringLiteral("PrezzoTrattamento"),
                                       QStringLiteral("TotalePrezzoTrattamento"),
                                       QStringLiteral("IndiceRiga"),
                                       QStringLiteral("TipoDiAlloggiato"),
                                       QStringLiteral("StatoDiNascita"),
                                       QStringLiteral("LuogoDocumento"),
                                       QStringLiteral("ProvinciaDiNascita"),
                                       QStringLiteral("MaschioFemmina"),
                                       QStringLiteral("Arrivato"),
                                       QStringLiteral("StatoInvioTelematico"),
                                       QStringLiteral("ResidenzaItaliana"),
                                       QStringLiteral("ResidenzaEstera"),
                                       QStringLiteral("NascitaItalia"),
                                       QStringLiteral("NascitaEstero"),
                                       QStringLiteral("DocumentoItalia"),
                                       QStringLiteral("DocumentoEstero"),
                                       QStringLiteral("CodiceTipoDiAlloggiato"),
                                       QStringLiteral("CapoGruppoFamiglia"),
                                       QStringLiteral("OrdinamentoTipoAlloggiato"),
                                       QStringLiteral("ResidenzaIstat"),
                                       QStringLiteral("Email"),
                                       QStringLiteral("Web"),
                                       QStringLiteral("CamereOccupate"),
                                       QStringLiteral("TipoTurismo"),
                                       QStringLiteral("MezzoDiTrasporto") };
    return campi;
}

ArchivioPrenotazioni::ArchivioPrenotazioni(Archivio& archivio)
    : m_archivio(archivio)
{
}

bool ArchivioPrenotazioni::esiste(qint64 indice)
{
    return indice > 0
        && m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni WHERE Indice = ?"), { indice });
}

std::optional<Prenotazione> ArchivioPrenotazioni::carica(qint64 indice)
{
    const auto r = m_archivio.riga(QStringLiteral("SELECT * FROM TabellaPrenotazioni WHERE Indice = ?"), { indice });
    if (!r)
        return std::nullopt;
    Prenotazione p;
    p.Indice = indice;
    p.NumeroPrenotazione = r->value(QStringLiteral("NumeroPrenotazione")).toInt();
    p.DataPrenotazione = dataDaArchivio(r->value(QStringLiteral("DataPrenotazione")));
    p.NotePrenotazione = r->value(QStringLiteral("NotePrenotazione")).toString();
    p.ListinoCamere = r->value(QStringLiteral("ListinoCamere")).toString();
    p.TotaleAcconto = r->value(QStringLiteral("TotaleAcconto")).toDouble();
    p.Totale = r->value(QStringLiteral("Totale")).toDouble();
    p.Abbuono = r->value(QStringLiteral("Abbuono")).toDouble();
    p.Stato = r->value(QStringLiteral("Stato")).toString();
    p.Saldato = r->value(QStringLiteral("Saldato")).toInt() == 1;
    p.RiferimentoDoc = r->value(QStringLiteral("RiferimentoDoc")).toString();
    p.RiferimentoData = dataDaArchivio(r->value(QStringLiteral("RiferimentoData")));
    p.RiferimentoNumero = r->value(QStringLiteral("RiferimentoNumero")).toString();
    p.CodiceTourOperator = r->value(QStringLiteral("CodiceTourOperator")).toString();
    p.TourOperator = r->value(QStringLiteral("TourOperator")).toString();
    p.PrezziAPersona = r->value(QStringLiteral("PrezziAPersona")).toInt() != 0;
    // Both flags false reads as per room.
    p.PrezziACamera = r->value(QStringLiteral("PrezziACamera")).toInt() != 0 || !p.PrezziAPersona;
    p.PrenotazioneChiusa = r->value(QStringLiteral("PrenotazioneChiusa")).toInt() == 1;
    p.CodiceAzienda = r->value(QStringLiteral("CodiceAzienda")).toString();
    p.camere = caricaCamere(indice);
    p.accessori = caricaAccessori(indice);
    p.ospiti = caricaOspiti(indice);
    return p;
}

QList<RigaCamera> ArchivioPrenotazioni::caricaCamere(qint64 indice)
{
    QList<RigaCamera> camere;
    const auto righe
        = m_archivio.righe(QStringLiteral("SELECT * FROM TabellaMovimenti WHERE IndicePrenotazioneAssociata = ? "
                                          "AND Tipo = 'PrenotazioneCamera' ORDER BY IndiceRiga"),
                           { indice });
    for (const QSqlRecord& r : righe) {
        RigaCamera c;
        c.IndiceRiga = r.value(QStringLiteral("IndiceRiga")).toInt();
        c.NroCamera = r.value(QStringLiteral("NroCamera")).toString();
        c.CodiceTipologiaCamera = r.value(QStringLiteral("CodiceTipologiaCamera")).toString();
        c.Dal = dataDaArchivio(r.value(QStringLiteral("Dal")));
        c.Al = dataDaArchivio(r.value(QStringLiteral("Al")));
        c.Avere = r.value(QStringLiteral("Avere")).toDouble();
        c.Iva = r.value(QStringLiteral("Iva")).toDouble();
        c.Listino = r.value(QStringLiteral("Listino")).toString();
        c.CheckInSky = r.value(QStringLiteral("CheckInSky")).toInt();
        c.CheckOutSky = r.value(QStringLiteral("CheckOutSky")).toInt();
        camere.append(c);
    }
    return camere;
}

QList<RigaAccessorio> ArchivioPrenotazioni::caricaAccessori(qint64 indice)
{
    QList<RigaAccessorio> accessori;
    const auto righe
        = m_archivio.righe(QStringLiteral("SELECT * FROM TabellaMovimenti WHERE IndicePrenotazioneAssociata = ? "
                                          "AND Tipo = 'Accessori' ORDER BY IndiceRiga, Indice"),
                           { indice });
    for (const QSqlRecord& r : righe) {
        RigaAccessorio a;
        a.IndiceRiga = r.value(QStringLiteral("IndiceRiga")).toInt();
        a.IndiceAccessorio = r.value(QStringLiteral("IndiceAccessorio")).toLongLong();
        a.Data = dataDaArchivio(r.value(QStringLiteral("Data")));
        a.TipoAccessorio = r.value(QStringLiteral("TipoAccessorio")).toString();
        a.Descrizione = r.value(QStringLiteral("Descrizione")).toString();
        a.Qta = r.value(QStringLiteral("Qta")).toDouble();
        a.Avere = r.value(QStringLiteral("Avere")).toDouble();
        a.Iva = r.value(QStringLiteral("Iva")).toDouble();
        a.NroCamera = r.value(QStringLiteral("NroCamera")).toString();
        accessori.append(a);
    }
    return accessori;
}

QList<Acconto> ArchivioPrenotazioni::caricaAcconti(qint64 indice)
{
    QList<Acconto> acconti;
    const auto righe
        = m_archivio.righe(QStringLiteral("SELECT * FROM TabellaMovimenti WHERE IndicePrenotazioneAssociata = ? "
                                          "AND Tipo = 'Acconto' ORDER BY Data, Indice"),
                           { indice });
    for (const QSqlRecord& r : righe) {
        Acconto a;
        a.Indice = r.value(QStringLiteral("Indice")).toLongLong();
        a.Data = dataDaArchivio(r.value(QStringLiteral("Data")));
        a.Descrizione = r.value(QStringLiteral("Descrizione")).toString();
        a.Dare = r.value(QStringLiteral("Dare")).toDouble();
        a.EffettuataFatturaRicevuta = r.value(QStringLiteral("EffettuataFatturaRicevuta")).toInt() != 0;
        acconti.append(a);
    }
    return acconti;
}

QList<OspitePrenotazione> ArchivioPrenotazioni::caricaOspiti(qint64 indice)
{
    QList<OspitePrenotazione> ospiti;
    const auto righe = m_archivio.righe(
        QStringLiteral("SELECT * FROM TabellaAnagraficheAssociatePrenotazioni WHERE IndicePrenotazioneAssociata = ? "
                       "ORDER BY IndiceRiga, Indice"),
        { indice });
    for (const QSqlRecord& r : righe) {
        OspitePrenotazione o;
        for (int i = 0; i < r.count(); ++i)
            o.campi.insert(r.fieldName(i), r.value(i));
        for (const QString& c : campiDataOspite)
            o.campi.insert(c, dataDaArchivio(r.value(c)));
        ospiti.append(o);
    }
    return ospiti;
}

bool ArchivioPrenotazioni::salva(Prenotazione& p, bool multiAzienda)
{
    Transazione transazione(m_archivio);
    if (!transazione.attiva())
        return false;

    const QVariantList intestazione = { p.NumeroPrenotazione,
                                        nulloSeVuoto(p.DataPrenotazione),
                                        p.NotePrenotazione,
                                        p.ListinoCamere,
                                        p.TotaleAcconto,
                                        p.Totale,
                                        p.Abbuono,
                                        p.Stato,
                                        p.TourOperator,
                                        p.CodiceTourOperator,
                                        p.Saldato ? 1 : 0,
                                        nulloSeVuoto(p.RiferimentoData),
                                        p.RiferimentoNumero,
                                        p.RiferimentoDoc,
                                        p.PrezziACamera ? 1 : 0,
                                        p.PrezziAPersona ? 1 : 0,
                                        p.PrenotazioneChiusa ? 1 : 0,
                                        p.CodiceAzienda.left(50) };
    qint64 indice = p.Indice;
    if (esiste(indice)) {
        QVariantList parametri = intestazione;
        parametri << indice;
        if (!m_archivio.comando(
                QStringLiteral("UPDATE TabellaPrenotazioni SET NumeroPrenotazione = ?, DataPrenotazione = ?, "
                               "NotePrenotazione = ?, ListinoCamere = ?, TotaleAcconto = ?, Totale = ?, Abbuono = ?, "
                               "Stato = ?, TourOperator = ?, CodiceTourOperator = ?, Saldato = ?, RiferimentoData = ?, "
                               "RiferimentoNumero = ?, RiferimentoDoc = ?, PrezziACamera = ?, PrezziAPersona = ?, "
                               "PrenotazioneChiusa = ?, CodiceAzienda = ? WHERE Indice = ?"),
                parametri))
            return false;
    } else {
        if (!m_archivio.comando(
                QStringLiteral(
                    "INSERT INTO TabellaPrenotazioni (NumeroPrenotazione, DataPrenotazione, NotePrenotazione, "
                    "ListinoCamere, TotaleAcconto, Totale, Abbuono, Stato, TourOperator, CodiceTourOperator, "
                    "Saldato, RiferimentoData, RiferimentoNumero, RiferimentoDoc, PrezziACamera, "
                    "PrezziAPersona, PrenotazioneChiusa, CodiceAzienda) "
                    "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                intestazione))
            return false;
        indice = m_archivio.ultimoIndiceInserito();
    }

    m_archivio.comando(QStringLiteral("DELETE FROM TabellaMovimenti WHERE IndicePrenotazioneAssociata = ? "
                                      "AND Tipo IN ('PrenotazioneCamera', 'Accessori')"),
                       { indice });
    for (const RigaCamera& c : p.camere) {
        m_archivio.comando(
            QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, Listino, "
                           "PrenotazioneChiusa, IndiceRiga, NroCamera, CodiceTipologiaCamera, Dal, Al, "
                           "Avere, Iva, CheckInSky, CheckOutSky) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            { indice, tipomovimento::PrenotazioneCamera, c.Listino, p.PrenotazioneChiusa ? 1 : 0, c.IndiceRiga,
              c.NroCamera, c.CodiceTipologiaCamera, valoreData(c.Dal), valoreData(c.Al), c.Avere, c.Iva, c.CheckInSky,
              c.CheckOutSky });
    }
    for (const RigaAccessorio& a : p.accessori) {
        m_archivio.comando(
            QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, IndiceRiga, "
                           "IndiceAccessorio, Data, TipoAccessorio, Descrizione, Qta, Avere, Iva, NroCamera) "
                           "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            { indice, tipomovimento::Accessori, a.IndiceRiga, a.IndiceAccessorio, valoreData(a.Data), a.TipoAccessorio,
              a.Descrizione, a.Qta, a.Avere, a.Iva, a.NroCamera });
    }

    m_archivio.comando(
        QStringLiteral("DELETE FROM TabellaAnagraficheAssociatePrenotazioni WHERE IndicePrenotazioneAssociata = ?"),
        { indice });
    QStringList campi = campiOspitePrenotazione();
    if (multiAzienda)
        campi << QStringLiteral("CodiceAzienda");
    QString segnaposti = QStringLiteral("?");
    for (int i = 0; i < campi.size(); ++i)
        segnaposti += QStringLiteral(", ?");
    const QString inserimento
        = QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndicePrenotazioneAssociata, ")
        + campi.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") + segnaposti + QLatin1Char(')');
    for (const OspitePrenotazione& o : p.ospiti) {
        QVariantList valori { indice };
        for (const QString& c : campi) {
            QVariant v = o.valore(c);
            if (campiDataOspite.contains(c))
                v = dataPerArchivio(v);
            else if (c == QLatin1String("Email") || c == QLatin1String("Web"))
                v = v.toString().left(200);
            else if (c == QLatin1String("TipoTurismo") || c == QLatin1String("MezzoDiTrasporto"))
                v = v.toString().left(100);
            else if (c == QLatin1String("CodiceAzienda"))
                v = p.CodiceAzienda.left(50);
            valori << v;
        }
        m_archivio.comando(inserimento, valori);
    }

    if (!transazione.commit())
        return false;
    p.Indice = indice;
    return true;
}

bool ArchivioPrenotazioni::elimina(qint64 indice)
{
    Transazione transazione(m_archivio);
    if (!transazione.attiva())
        return false;
    m_archivio.comando(QStringLiteral("DELETE FROM TabellaPrenotazioni WHERE Indice = ?"), { indice });
    m_archivio.comando(QStringLiteral("DELETE FROM TabellaMovimenti WHERE IndicePrenotazioneAssociata = ?"),
                       { indice });
    m_archivio.comando(
        QStringLiteral("DELETE FROM TabellaAnagraficheAssociatePrenotazioni WHERE IndicePrenotazioneAssociata = ?"),
        { indice });
    return transazione.commit();
}

int ArchivioPrenotazioni::CalcolaNumeroPrenotazione(const QDate& oggi)
{
    const QString inizio = dataArchivio(QDate(oggi.year(), 1, 1));
    const QString fine = dataArchivio(QDate(oggi.year() + 1, 1, 1));
    const QVariant ultimo = m_archivio.valore(
        QStringLiteral("SELECT NumeroPrenotazione FROM TabellaPrenotazioni WHERE NumeroPrenotazione > 0 "
                       "AND DataPrenotazione >= ? AND DataPrenotazione < ? ORDER BY NumeroPrenotazione DESC LIMIT 1"),
        { inizio, fine });
    return ultimo.isValid() ? ultimo.toInt() + 1 : 1;
}

bool ArchivioPrenotazioni::numeroDisponibile(qint64 indice, int numero, const QDate& dataPrenotazione)
{
    const QVariant memorizzato = m_archivio.valore(
        QStringLiteral("SELECT NumeroPrenotazione FROM TabellaPrenotazioni WHERE Indice = ?"), { indice });
    if (memorizzato.isValid() && memorizzato.toInt() == numero)
        return true;
    const int anno = dataPrenotazione.isValid() ? dataPrenotazione.year() : 0;
    return !m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni WHERE NumeroPrenotazione = ? "
                                                 "AND DataPrenotazione >= ? AND DataPrenotazione < ?"),
                                  { numero, dataArchivio(QDate(anno, 1, 1)), dataArchivio(QDate(anno + 1, 1, 1)) });
}

TotaliMovimenti ArchivioPrenotazioni::totali(qint64 indice)
{
    TotaliMovimenti t;
    const auto r = m_archivio.riga(QStringLiteral("SELECT SUM(Dare) AS SommaDare, SUM(Avere) AS SommaAvere "
                                                  "FROM TabellaMovimenti WHERE IndicePrenotazioneAssociata = ?"),
                                   { indice });
    if (r) {
        t.SommaDare = r->value(0).toDouble();
        t.SommaAvere = r->value(1).toDouble();
    }
    return t;
}

} // namespace tomvera
