#include "pricelists/calcoloprezzi.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "pricelists/tabellelistino.h"

#include <QSqlQuery>
#include <algorithm>

namespace tomvera::prezzi {

namespace {

// "GG/MM" as the screen accepts it: one or two digits each, blanks allowed in front, a date once "/" and a year
// are added. A leap year lets "29/02" through; whether it exists in the year being priced is decided later.
// Read by hand: this runs for every row of every list a reservation loads.
bool leggiGiornoMese(const QString& testo, int& giorno, int& mese)
{
    qsizetype i = 0;
    const qsizetype n = testo.size();
    while (i < n && testo[i].isSpace())
        ++i;
    auto numero = [&](int& valore) {
        const qsizetype inizio = i;
        valore = 0;
        while (i < n && i - inizio < 2 && testo[i] >= QLatin1Char('0') && testo[i] <= QLatin1Char('9'))
            valore = valore * 10 + (testo[i++].unicode() - '0');
        return i > inizio;
    };
    if (!numero(giorno) || i >= n || testo[i] != QLatin1Char('/'))
        return false;
    ++i;
    if (!numero(mese) || i != n)
        return false;
    return QDate(2000, mese, giorno).isValid();
}

// The period of a row for the year of the night being priced, as Julian days. A period whose end does not
// come after its start (Dal equal to Al included) runs into the next year.
bool periodo(const RigheListino::Riga& r, int anno, qint64& inizio, qint64& fine)
{
    if (r.meseDal == 0 || r.meseAl == 0)
        return false;
    const QDate s(anno, r.meseDal, r.giornoDal);
    const bool dentroLAnno = r.meseAl > r.meseDal || (r.meseAl == r.meseDal && r.giornoAl > r.giornoDal);
    const QDate e(dentroLAnno ? anno : anno + 1, r.meseAl, r.giornoAl);
    if (!s.isValid() || !e.isValid())
        return false;
    inizio = s.toJulianDay();
    fine = e.toJulianDay();
    return true;
}

RigheListino::Riga preparaRiga(const RigaListino& riga)
{
    RigheListino::Riga r;
    r.Prezzo = riga.Prezzo;
    r.Giorni = std::max(1, riga.Giorni);
    if (!leggiGiornoMese(riga.Dal, r.giornoDal, r.meseDal) || !leggiGiornoMese(riga.Al, r.giornoAl, r.meseAl))
        r.giornoDal = r.meseDal = r.giornoAl = r.meseAl = 0;
    return r;
}

} // namespace

RigheListino RigheListino::daRighe(const std::vector<RigaListino>& righeInOrdine)
{
    RigheListino esito;
    if (!righeInOrdine.empty())
        esito.ivaPrimaRiga = righeInOrdine.front().Iva;
    for (const RigaListino& riga : righeInOrdine) {
        if (!riga.Dal.isEmpty() && !riga.Al.isEmpty())
            esito.periodi.push_back(preparaRiga(riga));
        else if (riga.Dal.isEmpty() && riga.Al.isEmpty())
            esito.predefinite.push_back(preparaRiga(riga));
    }
    // Stable: rows of equal length keep the archive's order, and the first that qualifies wins.
    std::stable_sort(esito.periodi.begin(), esito.periodi.end(),
                     [](const Riga& a, const Riga& b) { return a.Giorni > b.Giorni; });
    std::stable_sort(esito.predefinite.begin(), esito.predefinite.end(),
                     [](const Riga& a, const Riga& b) { return a.Giorni < b.Giorni; });
    return esito;
}

std::optional<Periodo> periodoPerData(const QString& Dal, const QString& Al, const QDate& data)
{
    RigaListino riga;
    riga.Dal = Dal;
    riga.Al = Al;
    qint64 inizio = 0;
    qint64 fine = 0;
    if (!data.isValid() || !periodo(preparaRiga(riga), data.year(), inizio, fine))
        return std::nullopt;
    return Periodo { QDate::fromJulianDay(inizio), QDate::fromJulianDay(fine) };
}

EsitoBlocco TrovaPrezzoBlocco(const RigheListino& righe, const QDate& data, qint64 notti)
{
    const qint64 giorno = data.toJulianDay();
    const int anno = data.year();
    // Only blocks that fit into the nights left; the rows are longest first.
    auto riga = std::partition_point(righe.periodi.begin(), righe.periodi.end(),
                                     [notti](const RigheListino::Riga& r) { return r.Giorni > notti; });
    for (; riga != righe.periodi.end(); ++riga) {
        qint64 inizio = 0;
        qint64 fine = 0;
        if (!periodo(*riga, anno, inizio, fine))
            continue;
        // The block's last night may be the night of Al itself.
        if (giorno >= inizio && giorno + riga->Giorni <= fine + 1)
            return { riga->Prezzo, data.addDays(riga->Giorni), true };
    }
    if (!righe.predefinite.empty()) {
        const auto& predefinita = righe.predefinite.front();
        return { predefinita.Prezzo, data.addDays(predefinita.Giorni), true };
    }
    return { 0, data.addDays(1), false };
}

PrezzoSoggiorno CalcolaPrezzoSoggiorno(const RigheListino& righe, const QDate& arrivo, const QDate& partenza)
{
    PrezzoSoggiorno esito;
    if (!arrivo.isValid() || !partenza.isValid())
        return esito;
    for (QDate d = arrivo; d < partenza;) {
        const EsitoBlocco blocco = TrovaPrezzoBlocco(righe, d, d.daysTo(partenza));
        esito.prezzo += blocco.prezzo;
        esito.completo = esito.completo && blocco.conPrezzo;
        d = blocco.DataProssimoBlocco;
    }
    return esito;
}

const QStringList& paroleTrattamento()
{
    static const QStringList parole { QStringLiteral("Pensione Completa"), QStringLiteral("Mezza Pensione"),
                                      QStringLiteral("Pernottamento e Colazione"), QStringLiteral("Pernottamento") };
    return parole;
}

double PrezzoTrattamentoACamera(const QString& TipoTrattamento, const Configurazione& c)
{
    if (TipoTrattamento == QLatin1String("Pernottamento"))
        return c.PrezzoAggiuntivoPernottamento;
    if (TipoTrattamento == QLatin1String("Pernottamento e Colazione"))
        return c.PrezzoAggiuntivoPernottamentoeColazione;
    if (TipoTrattamento == QLatin1String("Mezza Pensione"))
        return c.PrezzoAggiuntivoMezzaPensione;
    if (TipoTrattamento == QLatin1String("Pensione Completa"))
        return c.PrezzoAggiuntivoPensioneCompleta;
    return 0;
}

double CalcolaTotalePrezzoTrattamento(const QString& TipoTrattamento, double PrezzoTrattamento, const QDate& DataArrivo,
                                      const QDate& DataPartenza)
{
    if (!paroleTrattamento().contains(TipoTrattamento))
        return 0;
    if (DataArrivo.isValid() && DataPartenza.isValid()) {
        if (DataArrivo >= DataPartenza)
            return 0;
        return PrezzoTrattamento * static_cast<double>(DataArrivo.daysTo(DataPartenza));
    }
    return PrezzoTrattamento;
}

RigheListino caricaRigheListino(Archivio& archivio, TipoListino tipo, const QString& Listino, const QString& chiave)
{
    const TabellaListino& t = tabellaListino(tipo);
    // The price-list screen stores the key with its apostrophes doubled: both spellings are the same key.
    QString raddoppiata = chiave;
    raddoppiata.replace(QLatin1Char('\''), QStringLiteral("''"));
    const bool dueForme = raddoppiata != chiave;
    const QString sql = QStringLiteral("SELECT Dal, Al, Prezzo, Iva, Giorni FROM ") + t.tabella
        + QStringLiteral(" WHERE Listino = ? AND (") + t.campoChiave + QStringLiteral(" = ?")
        + (dueForme ? QStringLiteral(" OR ") + t.campoChiave + QStringLiteral(" = ?") : QString())
        + QStringLiteral(") ORDER BY Indice");
    QVariantList parametri { Listino, chiave };
    if (dueForme)
        parametri << raddoppiata;
    std::vector<RigaListino> lette;
    double ivaPrimaRiga = 0;
    auto query = archivio.prepara(sql);
    if (!query || !archivio.esegui(*query, parametri))
        return {};
    for (bool prima = true; query->next(); prima = false) {
        if (prima)
            ivaPrimaRiga = query->value(3).toDouble();
        const QVariant dal = query->value(0);
        const QVariant al = query->value(1);
        // A null end matches neither "Dal <> ''" nor "Dal = ''": such a row never prices.
        if (dal.isNull() || al.isNull())
            continue;
        lette.push_back({ dal.toString(), al.toString(), query->value(2).toDouble(), query->value(3).toDouble(),
                          query->value(4).toInt() });
    }
    RigheListino esito = RigheListino::daRighe(lette);
    esito.ivaPrimaRiga = ivaPrimaRiga;
    return esito;
}

CalcoloPrezzi::CalcoloPrezzi(Archivio& archivio)
    : m_archivio(archivio)
{
}

const RigheListino& CalcoloPrezzi::righe(TipoListino tipo, const QString& Listino, const QString& chiave)
{
    const QString chiaveCache = QString::number(static_cast<int>(tipo)) + QChar(0x1f) + Listino + QChar(0x1f) + chiave;
    auto trovata = m_caricate.find(chiaveCache);
    if (trovata == m_caricate.end())
        trovata = m_caricate.insert(chiaveCache, caricaRigheListino(m_archivio, tipo, Listino, chiave));
    return trovata.value();
}

double CalcoloPrezzi::calcola(TipoListino tipo, const QString& chiave, const QDate& arrivo, const QDate& partenza,
                              const QString& Listino)
{
    // No stay, no query.
    if (!arrivo.isValid() || !partenza.isValid() || partenza <= arrivo)
        return 0;
    const PrezzoSoggiorno esito = CalcolaPrezzoSoggiorno(righe(tipo, Listino, chiave), arrivo, partenza);
    if (!esito.completo)
        ListinoCompleto = false;
    return esito.prezzo;
}

double CalcoloPrezzi::CalcolaPrezzoSoggiornoCamera(const QString& CodiceTipologia, const QDate& arrivo,
                                                   const QDate& partenza, const QString& Listino)
{
    return calcola(TipoListino::ACamera, CodiceTipologia, arrivo, partenza, Listino);
}

double CalcoloPrezzi::CalcolaPrezzoSoggiornoPersona(const QString& Trattamento, const QDate& arrivo,
                                                    const QDate& partenza, const QString& Listino)
{
    return calcola(TipoListino::APersona, Trattamento, arrivo, partenza, Listino);
}

EsitoBlocco CalcoloPrezzi::TrovaPrezzoBloccoCamera(const QDate& data, qint64 notti, const QString& CodiceTipologia,
                                                   const QString& Listino)
{
    const EsitoBlocco esito = TrovaPrezzoBlocco(righe(TipoListino::ACamera, Listino, CodiceTipologia), data, notti);
    if (!esito.conPrezzo)
        ListinoCompleto = false;
    return esito;
}

EsitoBlocco CalcoloPrezzi::TrovaPrezzoBloccoPersona(const QDate& data, qint64 notti, const QString& Trattamento,
                                                    const QString& Listino)
{
    const EsitoBlocco esito = TrovaPrezzoBlocco(righe(TipoListino::APersona, Listino, Trattamento), data, notti);
    if (!esito.conPrezzo)
        ListinoCompleto = false;
    return esito;
}

double CalcoloPrezzi::TrovaIvaCamera(const QString& CodiceTipologia, const QString& Listino)
{
    return righe(TipoListino::ACamera, Listino, CodiceTipologia).ivaPrimaRiga;
}

double CalcoloPrezzi::PrezzoTrattamentoAPersona(const QString& TipoTrattamento, const QDate& DataArrivo,
                                                const QDate& DataPartenza, const QString& ListinoTrattamenti)
{
    if (ListinoTrattamenti.isEmpty() || TipoTrattamento.isEmpty())
        return 0;
    return CalcolaPrezzoSoggiornoPersona(TipoTrattamento, DataArrivo, DataPartenza, ListinoTrattamenti);
}

} // namespace tomvera::prezzi
