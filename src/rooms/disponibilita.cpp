#include "rooms/disponibilita.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"

#include <QTime>
#include <algorithm>

namespace tomvera {

namespace {

// Dates are stored as yyyy-MM-dd text, so they compare as text and the indexes on Dal and Al stay usable.
// A unary plus keeps a comparison out of the index choice without changing its meaning: each branch of an
// overlap is then searched by its bounded side (a departure after the request, an arrival from its start on),
// never by "arrived before", which is the whole history of the hotel.

// A room is held by nights: both ends strict.
const QString periodoCamera
    = QStringLiteral("((+Dal < ? AND Al > ?) OR (+Dal < ? AND Al > ?) OR (Dal >= ? AND +Al <= ?))");
// Beach items and function rooms are held by whole days: both ends count.
const QString periodoChiuso
    = QStringLiteral("((Dal <= ? AND Al >= ?) OR (Dal <= ? AND Al >= ?) OR (Dal >= ? AND Al <= ?))");

QVariantList parametriPeriodo(const QDate& dal, const QDate& al)
{
    const QString f = dataArchivio(dal);
    const QString t = dataArchivio(al);
    return { f, f, t, t, f, t };
}

// The guest's stay meets the period in one of three ways, by which of its dates are known. Each way carries
// `filtro` so that every branch of the OR can use an index on its own.
// With no departure date any known arrival qualifies, as the clauses have always read.
// The five ways, each a condition of its own; `%1` is the filter that leads every branch.
const QStringList& ramiPresenza()
{
    static const QStringList rami = {
        QStringLiteral("%1 +DataArrivo < ? AND DataPartenza > ?"),
        QStringLiteral("%1 +DataArrivo < ? AND DataPartenza > ?"),
        QStringLiteral("%1 DataArrivo >= ? AND +DataPartenza <= ?"),
        QStringLiteral("%1 DataPartenza IS NULL AND +DataArrivo IS NOT NULL"
                       " AND (+DataArrivo < ? OR +DataArrivo < ? OR +DataArrivo >= ?)"),
        QStringLiteral("%1 +DataArrivo IS NULL AND DataPartenza > ? AND (+DataPartenza > ? OR +DataPartenza <= ?)"),
    };
    return rami;
}

QString casiPresenza(const QString& filtro)
{
    QStringList casi;
    for (const QString& ramo : ramiPresenza())
        casi << QLatin1Char('(') + ramo.arg(filtro) + QLatin1Char(')');
    return QLatin1Char('(') + casi.join(QStringLiteral(" OR ")) + QLatin1Char(')');
}

QVariantList parametriPresenza(const QVariantList& primi, const QDate& dal, const QDate& al)
{
    const QString f = dataArchivio(dal);
    const QString t = dataArchivio(al);
    QVariantList p;
    // Every branch repeats the leading parameters of its filter.
    const QList<QVariantList> rami = { { f, f }, { t, t }, { f, t }, { f, t, f }, { f, t, t } };
    for (const QVariantList& ramo : rami)
        p << primi << ramo;
    return p;
}

bool dateValide(const QDate& dal, const QDate& al)
{
    return dal.isValid() && al.isValid();
}

// The hour test. A row end of 0.00 means the end of its day; the request's end of 0.00 stays midnight.
bool oreInConflitto(const QTime& r1, const QTime& r2, const QTime& b1, const QTime& b2)
{
    const bool fineGiorno = b2 == QTime(0, 0);
    return (b1 < r1 && (fineGiorno || b2 > r1)) || (b1 < r2 && (fineGiorno || b2 > r2)) || (b1 >= r1 && b2 <= r2);
}

bool codiciUguali(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

std::optional<bool> esiste(Archivio& archivio, const QString& sql, const QVariantList& parametri)
{
    auto query = archivio.esegui(sql, parametri);
    if (!query)
        return std::nullopt;
    return query->next();
}

} // namespace

std::optional<bool> interrogaCamera(Archivio& archivio, qint64 escludi, const QString& nroCamera, const QDate& dal,
                                    const QDate& al)
{
    if (!dateValide(dal, al))
        return std::nullopt;
    QString sql = QStringLiteral("SELECT 1 FROM TabellaMovimenti WHERE Tipo = 'PrenotazioneCamera' AND NroCamera = ?");
    QVariantList p { nroCamera };
    if (escludi != 0) {
        sql += QStringLiteral(" AND IndicePrenotazioneAssociata <> ?");
        p << escludi;
    }
    sql += QStringLiteral(" AND ") + periodoCamera + QStringLiteral(" AND PrenotazioneChiusa = 0 LIMIT 1");
    return esiste(archivio, sql, p + parametriPeriodo(dal, al));
}

std::optional<bool> interrogaArticolo(Archivio& archivio, qint64 escludi, const QString& numero,
                                      const QString& codiceArticolo, const QDate& dal, const QDate& al)
{
    if (!dateValide(dal, al))
        return std::nullopt;
    QString sql = QStringLiteral("SELECT 1 FROM TabellaMovimentiSpiaggia WHERE Tipo = 'PrenotazioneArticolo'"
                                 " AND Numero = ? AND CodiceArticolo = ?");
    QVariantList p { numero, codiceArticolo };
    if (escludi != 0) {
        sql += QStringLiteral(" AND IndicePrenotazioneAssociata <> ?");
        p << escludi;
    }
    sql += QStringLiteral(" AND ") + periodoChiuso + QStringLiteral(" LIMIT 1");
    return esiste(archivio, sql, p + parametriPeriodo(dal, al));
}

std::optional<bool> interrogaSala(Archivio& archivio, qint64 escludi, const QString& codiceTipologia, const QDate& dal,
                                  const QDate& al, const QString& daOra, const QString& aOra)
{
    if (!dateValide(dal, al))
        return std::nullopt;
    QString sql = QStringLiteral(
        "SELECT DaOra, AOra FROM TabellaMovimentiSale WHERE Tipo = 'PrenotazioneSala' AND CodiceTipologia = ?");
    QVariantList p { codiceTipologia };
    if (escludi != 0) {
        sql += QStringLiteral(" AND IndicePrenotazioneAssociata <> ?");
        p << escludi;
    }
    sql += QStringLiteral(" AND ") + periodoChiuso;
    auto query = archivio.esegui(sql, p + parametriPeriodo(dal, al));
    if (!query)
        return std::nullopt;
    if (!query->next())
        return false;
    const auto r1 = leggiOra(daOra);
    const auto r2 = leggiOra(aOra);
    // Without a usable request hour, sharing a day is enough.
    if (!r1 || !r2)
        return true;
    do {
        const QTime b1 = oraDaArchivio(query->value(0));
        const QTime b2 = oraDaArchivio(query->value(1));
        // A row without hours holds the whole day.
        if (!b1.isValid() || !b2.isValid())
            return true;
        if (oreInConflitto(*r1, *r2, b1, b2))
            return true;
    } while (query->next());
    return false;
}

bool CameraOccupataNelPeriodo(Archivio& archivio, qint64 escludi, const QString& nroCamera, const QDate& dal,
                              const QDate& al)
{
    return interrogaCamera(archivio, escludi, nroCamera, dal, al).value_or(false);
}

bool ArticoloOccupatoNelPeriodo(Archivio& archivio, qint64 escludi, const QString& numero,
                                const QString& codiceArticolo, const QDate& dal, const QDate& al)
{
    return interrogaArticolo(archivio, escludi, numero, codiceArticolo, dal, al).value_or(false);
}

bool SalaOccupataNelPeriodo(Archivio& archivio, qint64 escludi, const QString& codiceTipologia, const QDate& dal,
                            const QDate& al, const QString& daOra, const QString& aOra)
{
    return interrogaSala(archivio, escludi, codiceTipologia, dal, al, daOra, aOra).value_or(false);
}

bool IntersezioneCamere(const QString& codiceA, const QDate& dalA, const QDate& alA, const QString& codiceB,
                        const QDate& dalB, const QDate& alB)
{
    if (!codiciUguali(codiceA, codiceB))
        return false;
    const bool libera = (dalA >= dalB || alA <= dalB) && (dalA >= alB || alA <= alB) && (dalA < dalB || alA > alB);
    return !libera;
}

bool IntersezioneArticoli(const QString& codiceA, const QString& numeroA, const QDate& dalA, const QDate& alA,
                          const QString& codiceB, const QString& numeroB, const QDate& dalB, const QDate& alB)
{
    if (!codiciUguali(codiceA, codiceB) || !codiciUguali(numeroA, numeroB))
        return false;
    const bool fuori = dalB < dalA || dalB > alA;
    const bool libero = fuori && dalB != dalA && (dalA <= dalB || dalA > alB);
    return !libero;
}

bool IntersezioneSale(const QString& codiceA, const QDate& dalA, const QDate& alA, const QString& daOraA,
                      const QString& aOraA, const QString& codiceB, const QDate& dalB, const QDate& alB,
                      const QString& daOraB, const QString& aOraB)
{
    if (!codiciUguali(codiceA, codiceB))
        return false;
    const bool giorniLiberi = (dalA > dalB || alA < dalB) && (dalA > alB || alA < alB) && (dalA < dalB || alA > alB);
    if (giorniLiberi)
        return false;
    const auto r1 = leggiOra(daOraA);
    const auto r2 = leggiOra(aOraA);
    const auto b1 = leggiOra(daOraB);
    const auto b2 = leggiOra(aOraB);
    if (!r1 || !r2 || !b1 || !b2)
        return true;
    return oreInConflitto(*r1, *r2, *b1, *b2);
}

PrenotazioniCamera PiuPrenotazioni(Archivio& archivio, const QString& nroCamera, const QDate& dal, const QDate& al)
{
    PrenotazioniCamera esito;
    if (!dateValide(dal, al))
        return esito;
    const QString sql = QStringLiteral("SELECT count(*), min(IndicePrenotazioneAssociata) FROM TabellaMovimenti"
                                       " WHERE Tipo = 'PrenotazioneCamera' AND NroCamera = ? AND ")
        + periodoCamera + QStringLiteral(" AND PrenotazioneChiusa = 0");
    const auto riga = archivio.riga(sql, QVariantList { nroCamera } + parametriPeriodo(dal, al));
    if (!riga)
        return esito;
    esito.righe = riga->value(0).toInt();
    esito.piuPrenotazioni = esito.righe > 1;
    if (esito.righe == 1)
        esito.indicePrenotazione = riga->value(1).toLongLong();
    return esito;
}

QString QuantePersoneInCameraPresenti(Archivio& archivio, const QString& nroCamera, const QDate& dal, const QDate& al)
{
    if (!dateValide(dal, al))
        return QStringLiteral("0");
    const QString sql = QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni"
                                       " INNER JOIN TabellaPrenotazioni ON"
                                       " TabellaAnagraficheAssociatePrenotazioni.IndicePrenotazioneAssociata"
                                       " = TabellaPrenotazioni.Indice"
                                       " WHERE TabellaPrenotazioni.PrenotazioneChiusa = 0 AND ")
        + casiPresenza(QStringLiteral("NroCameraCliente = ? AND"));
    const QVariant n = archivio.valore(sql, parametriPresenza({ nroCamera }, dal, al));
    return QString::number(n.toInt());
}

std::optional<QHash<QString, int>> PersonePresentiPerCamera(Archivio& archivio, int piano, const QDate& dal,
                                                            const QDate& al)
{
    QHash<QString, int> persone;
    if (!dateValide(dal, al))
        return persone;
    // The per-room count widened to the floor's rooms and grouped: one statement per refresh instead of one per
    // occupied tile. An OR over a set of rooms would walk every guest the floor ever had, so the ways become
    // indexed searches joined by UNION ALL. The first two ways share one search from the earlier of the two
    // dates by departure; the ways exclude each other (by the dates' order and by which are null), so no guest
    // is counted twice.
    const QString f = dataArchivio(dal);
    const QString t = dataArchivio(al);
    const QString primo = std::min(f, t);
    const QString filtro = QStringLiteral("SELECT NroCameraCliente, IndicePrenotazioneAssociata"
                                          " FROM TabellaAnagraficheAssociatePrenotazioni WHERE NroCameraCliente IN"
                                          " (SELECT NroCamera FROM TabellaStrutturaCamere WHERE NroPiano = ?) AND ");
    const QString rami = filtro
        + QStringLiteral("DataPartenza > ? AND ((+DataArrivo < ? AND +DataPartenza > ?)"
                         " OR (+DataArrivo < ? AND +DataPartenza > ?)) UNION ALL ")
        + filtro + QStringLiteral("DataArrivo >= ? AND +DataPartenza <= ? UNION ALL ") + filtro
        + QStringLiteral("DataPartenza IS NULL AND +DataArrivo IS NOT NULL"
                         " AND (+DataArrivo < ? OR +DataArrivo < ? OR +DataArrivo >= ?) UNION ALL ")
        + filtro
        + QStringLiteral("+DataArrivo IS NULL AND DataPartenza > ? AND (+DataPartenza > ? OR +DataPartenza <= ?)");
    // CROSS JOIN keeps the guests found above as the outer loop.
    const QString sql
        = QStringLiteral("SELECT g.NroCameraCliente, count(*) FROM (") + rami
        + QStringLiteral(
              ") AS g CROSS JOIN TabellaPrenotazioni ON TabellaPrenotazioni.Indice = g.IndicePrenotazioneAssociata"
              " WHERE TabellaPrenotazioni.PrenotazioneChiusa = 0 GROUP BY g.NroCameraCliente");
    auto query = archivio.esegui(sql, { piano, primo, f, f, t, t, piano, f, t, piano, f, t, f, piano, f, t, t });
    if (!query)
        return std::nullopt;
    // NOCASE groups "12a" with "12A" already; the key is folded the same way for the look-up.
    while (query->next())
        persone[query->value(0).toString().toLower()] += query->value(1).toInt();
    return persone;
}

bool PersoneArrivate(Archivio& archivio, const QString& nroCamera, qint64 indicePrenotazione)
{
    return archivio.esisteRiga(QStringLiteral("SELECT 1 FROM TabellaAnagraficheAssociatePrenotazioni"
                                              " WHERE IndicePrenotazioneAssociata = ? AND NroCameraCliente = ?"
                                              " AND Arrivato = 1 LIMIT 1"),
                               { indicePrenotazione, nroCamera });
}

std::optional<int> contaCamereDisponibili(Archivio& archivio, const QDate& dal, const QDate& al)
{
    if (!dateValide(dal, al))
        return std::nullopt;
    // A room without a number is tested as the empty number, as it always was.
    const QString sql = QStringLiteral("SELECT count(*) FROM TabellaStrutturaCamere AS s WHERE s.Indice > 0"
                                       " AND NOT EXISTS (SELECT 1 FROM TabellaMovimenti"
                                       " WHERE Tipo = 'PrenotazioneCamera' AND NroCamera = coalesce(s.NroCamera, '')"
                                       " AND PrenotazioneChiusa = 0 AND ")
        + periodoCamera + QLatin1Char(')');
    const QVariant n = archivio.valore(sql, parametriPeriodo(dal, al));
    if (!n.isValid())
        return std::nullopt;
    return n.toInt();
}

std::optional<int> contaPersonePresenti(Archivio& archivio, const QDate& dal, const QDate& al)
{
    if (!dateValide(dal, al))
        return std::nullopt;
    // The three ways are disjoint on which dates are null, so one count equals the sum of three. The unary
    // plus keeps the key range out of the plan, which must go through the date indexes.
    const QString sql = QStringLiteral("SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni"
                                       " WHERE +Indice > 0 AND ")
        + casiPresenza(QStringLiteral("Arrivato = 1 AND"));
    const QVariant n = archivio.valore(sql, parametriPresenza({}, dal, al));
    if (!n.isValid())
        return std::nullopt;
    return n.toInt();
}

std::optional<QString> CaricaQtaDisponibilitaCamere(Archivio& archivio, const QDate& dal, const QDate& al)
{
    const auto n = contaCamereDisponibili(archivio, dal, al);
    if (!n)
        return std::nullopt;
    return QStringLiteral("Camere Disponibili: ") + QString::number(*n);
}

std::optional<QString> CaricaQtaPersone(Archivio& archivio, const QDate& dal, const QDate& al)
{
    const auto n = contaPersonePresenti(archivio, dal, al);
    if (!n)
        return std::nullopt;
    return QStringLiteral("Persone Presenti: ") + QString::number(*n);
}

} // namespace tomvera
