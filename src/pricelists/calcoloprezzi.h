#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace tomvera {

class Archivio;
struct Configurazione;

namespace prezzi {

// Which of the two room price lists: per room (keyed by room type) or per person (keyed by board word).
enum class TipoListino
{
    ACamera,
    APersona
};

// One row of a price list: Giorni nights cost Prezzo when the block starts inside the period Dal..Al ("GG/MM",
// no year). Both empty: a default row of its list.
struct RigaListino
{
    QString Dal;
    QString Al;
    double Prezzo = 0;
    double Iva = 0;
    int Giorni = 0;
};

// The rows of one list and one key, read once and ready for pricing: the period rows longest block first and
// the default rows shortest first, rows of equal length in the archive's order.
struct RigheListino
{
    // A row made ready for pricing: the period read into day and month once, so that no text is parsed per
    // block. Giorni is at least 1 (a 0 from an outside edit would never move the position).
    struct Riga
    {
        double Prezzo = 0;
        int Giorni = 1;
        int giornoDal = 0, meseDal = 0, giornoAl = 0, meseAl = 0; // 0: not a day/month
    };
    std::vector<Riga> periodi;
    std::vector<Riga> predefinite;
    double ivaPrimaRiga = 0; // VAT of the first row in the archive's order, whatever its period

    // Builds the two sequences from rows in the archive's order (rows with only one end of the period set
    // belong to neither, as in the old queries).
    static RigheListino daRighe(const std::vector<RigaListino>& righeInOrdine);
};

// The price of one block starting at `data` with `notti` nights still to price.
struct EsitoBlocco
{
    double prezzo = 0;
    QDate DataProssimoBlocco; // first night after the block
    bool conPrezzo = true; // false: no row priced this night (it costs 0 and the position moves one day)
};

struct PrezzoSoggiorno
{
    double prezzo = 0;
    bool completo = true; // false when at least one night had no price
};

// The period of a row made into dates for the year of `data`; nullopt when the row has no period or one of its
// ends is not a date in that year (a "29/02" outside leap years).
struct Periodo
{
    QDate inizio;
    QDate fine; // last night of the period
};
std::optional<Periodo> periodoPerData(const QString& Dal, const QString& Al, const QDate& data);

// The greedy block rule: the longest period row that fits both the nights left and its period, else the
// shortest default row (unconditional, it may run past the departure), else a night at 0.
EsitoBlocco TrovaPrezzoBlocco(const RigheListino& righe, const QDate& data, qint64 notti);

// The stay from arrival (included) to departure (excluded), cut into blocks from the first night.
PrezzoSoggiorno CalcolaPrezzoSoggiorno(const RigheListino& righe, const QDate& arrivo, const QDate& partenza);

// Treatments on a stay priced per room: the addition per guest and night of the settings.
double PrezzoTrattamentoACamera(const QString& TipoTrattamento, const Configurazione& configurazione);
// The guest's total of a per-room stay: price times nights (1 night when a date is missing), 0 for other words
// and for a stay whose arrival is not before its departure.
double CalcolaTotalePrezzoTrattamento(const QString& TipoTrattamento, double PrezzoTrattamento, const QDate& DataArrivo,
                                      const QDate& DataPartenza);

// The board words of the per-person lists, in the order the choosers show them.
const QStringList& paroleTrattamento();

// Reads the rows of one list for one key in a single query.
RigheListino caricaRigheListino(Archivio& archivio, TipoListino tipo, const QString& Listino, const QString& chiave);

// The pricing routines over the archive, for one pass (a reservation's rooms, a command): each list and key
// is read once and kept for the life of the object, so create a new one when the lists may have changed.
class CalcoloPrezzi
{
public:
    explicit CalcoloPrezzi(Archivio& archivio);

    double CalcolaPrezzoSoggiornoCamera(const QString& CodiceTipologia, const QDate& arrivo, const QDate& partenza,
                                        const QString& Listino);
    double CalcolaPrezzoSoggiornoPersona(const QString& Trattamento, const QDate& arrivo, const QDate& partenza,
                                         const QString& Listino);
    EsitoBlocco TrovaPrezzoBloccoCamera(const QDate& data, qint64 notti, const QString& CodiceTipologia,
                                        const QString& Listino);
    EsitoBlocco TrovaPrezzoBloccoPersona(const QDate& data, qint64 notti, const QString& Trattamento,
                                         const QString& Listino);
    double TrovaIvaCamera(const QString& CodiceTipologia, const QString& Listino);

    // Per-person stay: the list price of the whole stay of one guest; 0 when the list or the word is empty.
    double PrezzoTrattamentoAPersona(const QString& TipoTrattamento, const QDate& DataArrivo, const QDate& DataPartenza,
                                     const QString& ListinoTrattamenti);

    // Set true by the caller before a pass; turned false by any night without a price.
    bool ListinoCompleto = true;

private:
    const RigheListino& righe(TipoListino tipo, const QString& Listino, const QString& chiave);
    double calcola(TipoListino tipo, const QString& chiave, const QDate& arrivo, const QDate& partenza,
                   const QString& Listino);

    Archivio& m_archivio;
    QHash<QString, RigheListino> m_caricate;
};

} // namespace prezzi
} // namespace tomvera
