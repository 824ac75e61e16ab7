// The old engine's SQL functions, so that old-style statements (datevalue('31/12/2006'), val(NroCamera),
// format(x,'0.00'), first(...)) run unchanged on SQLite.
#include "foundation/archivio.h"
#include "foundation/formati.h"

#include <QSqlDriver>
#include <cmath>
#include <sqlite3.h>

namespace tomvera {

namespace {

QString testo(sqlite3_value* v)
{
    const auto* dati = static_cast<const char16_t*>(sqlite3_value_text16(v));
    if (!dati)
        return QString();
    return QString::fromUtf16(dati, sqlite3_value_bytes16(v) / 2);
}

void risultatoTesto(sqlite3_context* ctx, const QString& s)
{
    const QByteArray utf8 = s.toUtf8();
    sqlite3_result_text(ctx, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

bool nullo(sqlite3_value* v)
{
    return sqlite3_value_type(v) == SQLITE_NULL;
}

std::optional<QDate> dataDaValore(sqlite3_value* v)
{
    if (nullo(v))
        return std::nullopt;
    return leggiData(testo(v));
}

void datevalue(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    const auto d = dataDaValore(argv[0]);
    if (!d)
        return sqlite3_result_error(ctx, "Tipo di dati non corrispondente nell'espressione (datevalue)", -1);
    risultatoTesto(ctx, dataArchivio(*d));
}

void timevalue(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    QString t = testo(argv[0]).trimmed();
    if (t.size() >= 16 && t.at(4) == QLatin1Char('-'))
        t = t.mid(11);
    const auto ora = leggiOra(t);
    if (!ora)
        return sqlite3_result_error(ctx, "Tipo di dati non corrispondente nell'espressione (timevalue)", -1);
    risultatoTesto(ctx, oraArchivio(*ora));
}

// VB's Val: leading number only, point as the decimal separator, blanks ignored, 0 when nothing reads.
double valoreVal(const QString& s)
{
    QString cifre;
    bool punto = false;
    bool esponente = false;
    int i = 0;
    auto salta = [&] {
        while (i < s.size() && (s.at(i) == QLatin1Char(' ') || s.at(i) == QLatin1Char('\t')))
            ++i;
    };
    salta();
    if (i < s.size() && (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+')))
        cifre += s.at(i++);
    for (; i < s.size(); ++i) {
        const QChar c = s.at(i);
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t'))
            continue;
        if (c.isDigit() && c.unicode() < 128)
            cifre += c;
        else if (c == QLatin1Char('.') && !punto && !esponente) {
            punto = true;
            cifre += c;
        } else if ((c == QLatin1Char('e') || c == QLatin1Char('E')) && !esponente && !cifre.isEmpty()) {
            esponente = true;
            cifre += c;
            if (i + 1 < s.size() && (s.at(i + 1) == QLatin1Char('-') || s.at(i + 1) == QLatin1Char('+')))
                cifre += s.at(++i);
        } else
            break;
    }
    bool ok = false;
    double v = cifre.toDouble(&ok);
    while (!ok && !cifre.isEmpty()) {
        cifre.chop(1);
        v = cifre.toDouble(&ok);
    }
    return ok ? v : 0.0;
}

void val(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    if (sqlite3_value_type(argv[0]) == SQLITE_INTEGER)
        return sqlite3_result_int64(ctx, sqlite3_value_int64(argv[0]));
    const double v
        = sqlite3_value_type(argv[0]) == SQLITE_FLOAT ? sqlite3_value_double(argv[0]) : valoreVal(testo(argv[0]));
    if (std::floor(v) == v && std::fabs(v) < 9e15)
        sqlite3_result_int64(ctx, qint64(v));
    else
        sqlite3_result_double(ctx, v);
}

QString formattaDataJet(const QDateTime& momento, const QString& modello)
{
    // Tokens of the old Format: d dd m mm mmm mmmm yy yyyy h hh n nn s ss; "mm" right after an hour is minutes.
    static const char* const mesi[] = { "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
                                        "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre" };
    QString out;
    bool dopoOra = false;
    int i = 0;
    const QString m = modello;
    while (i < m.size()) {
        const QChar c = m.at(i).toLower();
        int n = 1;
        while (i + n < m.size() && m.at(i + n).toLower() == c)
            ++n;
        const QDate d = momento.date();
        const QTime t = momento.time();
        if (c == QLatin1Char('d')) {
            out += n >= 2 ? QStringLiteral("%1").arg(d.day(), 2, 10, QLatin1Char('0')) : QString::number(d.day());
            dopoOra = false;
        } else if (c == QLatin1Char('m')) {
            if (dopoOra && n <= 2)
                out += n == 2 ? QStringLiteral("%1").arg(t.minute(), 2, 10, QLatin1Char('0'))
                              : QString::number(t.minute());
            else if (n >= 4)
                out += QString::fromLatin1(mesi[d.month() - 1]);
            else if (n == 3)
                out += QString::fromLatin1(mesi[d.month() - 1]).left(3);
            else
                out += n == 2 ? QStringLiteral("%1").arg(d.month(), 2, 10, QLatin1Char('0'))
                              : QString::number(d.month());
            dopoOra = false;
        } else if (c == QLatin1Char('y')) {
            out += n >= 3 ? QString::number(d.year())
                          : QStringLiteral("%1").arg(d.year() % 100, 2, 10, QLatin1Char('0'));
            dopoOra = false;
        } else if (c == QLatin1Char('h')) {
            out += n >= 2 ? QStringLiteral("%1").arg(t.hour(), 2, 10, QLatin1Char('0')) : QString::number(t.hour());
            dopoOra = true;
        } else if (c == QLatin1Char('n')) {
            out += n >= 2 ? QStringLiteral("%1").arg(t.minute(), 2, 10, QLatin1Char('0')) : QString::number(t.minute());
        } else if (c == QLatin1Char('s')) {
            out += n >= 2 ? QStringLiteral("%1").arg(t.second(), 2, 10, QLatin1Char('0')) : QString::number(t.second());
        } else {
            out += QString(n, m.at(i));
        }
        i += n;
    }
    return out;
}

QString formattaNumeroJet(double v, const QString& modello)
{
    const int punto = modello.indexOf(QLatin1Char('.'));
    int decimali = 0;
    if (punto >= 0) {
        for (int i = punto + 1;
             i < modello.size() && (modello.at(i) == QLatin1Char('0') || modello.at(i) == QLatin1Char('#')); ++i)
            ++decimali;
    }
    const bool raggruppa = modello.contains(QLatin1Char(','));
    QString s = formattaNumero(v, decimali, raggruppa);
    // "#" alone prints nothing for zero, "0" prints the zero.
    const QString intero = punto >= 0 ? modello.left(punto) : modello;
    if (!intero.contains(QLatin1Char('0')) && s.startsWith(QLatin1String("0")))
        s.remove(0, 1);
    return s;
}

void format(sqlite3_context* ctx, int argc, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    if (argc < 2 || nullo(argv[1]))
        return risultatoTesto(ctx, testo(argv[0]));
    const QString modello = testo(argv[1]);
    const bool numerico = !modello.isEmpty()
        && std::all_of(modello.begin(), modello.end(), [](QChar c) { return QStringLiteral("0#.,").contains(c); });
    const int tipo = sqlite3_value_type(argv[0]);
    if (numerico) {
        double v = 0;
        if (tipo == SQLITE_INTEGER || tipo == SQLITE_FLOAT)
            v = sqlite3_value_double(argv[0]);
        else if (auto n = leggiNumero(testo(argv[0])))
            v = *n;
        else
            return risultatoTesto(ctx, testo(argv[0]));
        return risultatoTesto(ctx, formattaNumeroJet(v, modello));
    }
    const QString t = testo(argv[0]).trimmed();
    QDateTime momento;
    if (const auto d = leggiData(t)) {
        momento = QDateTime(*d, QTime(0, 0));
        if (t.size() >= 16 && t.at(4) == QLatin1Char('-'))
            momento.setTime(oraDaArchivio(t));
    } else if (const auto o = leggiOra(t)) {
        momento = QDateTime(QDate(1899, 12, 30), *o);
    } else {
        return risultatoTesto(ctx, t);
    }
    risultatoTesto(ctx, formattaDataJet(momento, modello));
}

void isnull(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    sqlite3_result_int(ctx, nullo(argv[0]) ? 1 : 0);
}

void trim(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    QString s = testo(argv[0]);
    int inizio = 0;
    int fine = s.size();
    while (inizio < fine && s.at(inizio) == QLatin1Char(' '))
        ++inizio;
    while (fine > inizio && s.at(fine - 1) == QLatin1Char(' '))
        --fine;
    risultatoTesto(ctx, s.mid(inizio, fine - inizio));
}

void left(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    risultatoTesto(ctx, testo(argv[0]).left(qMax(0, sqlite3_value_int(argv[1]))));
}

void ucase(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    if (nullo(argv[0]))
        return sqlite3_result_null(ctx);
    risultatoTesto(ctx, testo(argv[0]).toUpper());
}

void parteData(sqlite3_context* ctx, sqlite3_value* v, bool anno)
{
    if (nullo(v))
        return sqlite3_result_null(ctx);
    const auto d = dataDaValore(v);
    if (!d)
        return sqlite3_result_error(ctx, "Tipo di dati non corrispondente nell'espressione", -1);
    sqlite3_result_int(ctx, anno ? d->year() : d->month());
}

void year(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    parteData(ctx, argv[0], true);
}

void month(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    parteData(ctx, argv[0], false);
}

// first()/last(): the value of the first or last row of the group, as the old engine read them.
struct StatoAggregato
{
    sqlite3_value* valore;
    bool visto;
};

void aggregatoPasso(sqlite3_context* ctx, sqlite3_value* v, bool ultimo)
{
    auto* stato = static_cast<StatoAggregato*>(sqlite3_aggregate_context(ctx, sizeof(StatoAggregato)));
    if (!stato)
        return;
    if (stato->visto && !ultimo)
        return;
    if (stato->valore)
        sqlite3_value_free(stato->valore);
    stato->valore = sqlite3_value_dup(v);
    stato->visto = true;
}

void firstPasso(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    aggregatoPasso(ctx, argv[0], false);
}

void lastPasso(sqlite3_context* ctx, int, sqlite3_value** argv)
{
    aggregatoPasso(ctx, argv[0], true);
}

void aggregatoFine(sqlite3_context* ctx)
{
    auto* stato = static_cast<StatoAggregato*>(sqlite3_aggregate_context(ctx, 0));
    if (!stato || !stato->valore)
        return sqlite3_result_null(ctx);
    sqlite3_result_value(ctx, stato->valore);
    sqlite3_value_free(stato->valore);
    stato->valore = nullptr;
}

} // namespace

void registraFunzioniJet(const QSqlDatabase& db)
{
    const QVariant handle = db.driver()->handle();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return;
    sqlite3* h = *static_cast<sqlite3* const*>(handle.constData());
    if (!h)
        return;
    const int flag = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function_v2(h, "datevalue", 1, flag, nullptr, datevalue, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "timevalue", 1, flag, nullptr, timevalue, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "val", 1, flag, nullptr, val, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "format", 2, flag, nullptr, format, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "format", 1, flag, nullptr, format, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "jet_isnull", 1, flag, nullptr, isnull, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "trim", 1, flag, nullptr, trim, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "jet_left", 2, flag, nullptr, left, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "ucase", 1, flag, nullptr, ucase, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "year", 1, flag, nullptr, year, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "month", 1, flag, nullptr, month, nullptr, nullptr, nullptr);
    sqlite3_create_function_v2(h, "first", 1, SQLITE_UTF8, nullptr, nullptr, firstPasso, aggregatoFine, nullptr);
    sqlite3_create_function_v2(h, "last", 1, SQLITE_UTF8, nullptr, nullptr, lastPasso, aggregatoFine, nullptr);
}

} // namespace tomvera
