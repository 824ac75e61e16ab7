#include "foundation/formati.h"

#include <QRegularExpression>
#include <cmath>

namespace tomvera {

namespace {

int annoDaDueCifre(int anno)
{
    // The old runtime's window: 00-29 is this century, 30-99 the last one.
    return anno < 30 ? 2000 + anno : 1900 + anno;
}

} // namespace

std::optional<QDate> leggiData(const QString& testo)
{
    const QString t = testo.trimmed();
    if (t.isEmpty())
        return std::nullopt;

    static const QRegularExpression iso(
        QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})(?:[ T]\\d{1,2}:\\d{2}(?::\\d{2}(?:\\.\\d+)?)?)?$"));
    if (const auto m = iso.match(t); m.hasMatch()) {
        const QDate d(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
        return d.isValid() ? std::optional<QDate>(d) : std::nullopt;
    }

    static const QRegularExpression italiana(
        QStringLiteral("^(\\d{1,2})([/.-])(\\d{1,2})\\2(\\d{2}|\\d{4})(?: \\d{1,2}[:.]\\d{2}(?:[:.]\\d{2})?)?$"));
    const auto m = italiana.match(t);
    if (!m.hasMatch())
        return std::nullopt;
    int anno = m.captured(4).toInt();
    if (m.captured(4).size() == 2)
        anno = annoDaDueCifre(anno);
    const QDate d(anno, m.captured(3).toInt(), m.captured(1).toInt());
    if (!d.isValid() || anno < 100)
        return std::nullopt;
    return d;
}

QString testoData(const QDate& data)
{
    return data.isValid() ? data.toString(QStringLiteral("dd/MM/yyyy")) : QString();
}

std::optional<QTime> leggiOra(const QString& testo)
{
    static const QRegularExpression ora(QStringLiteral("^(\\d{1,2})[.:](\\d{2})(?:[.:](\\d{2}))?$"));
    const auto m = ora.match(testo.trimmed());
    if (!m.hasMatch())
        return std::nullopt;
    const QTime t(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).isEmpty() ? 0 : m.captured(3).toInt());
    if (!t.isValid())
        return std::nullopt;
    return t;
}

QString dataArchivio(const QDate& data)
{
    return data.isValid() ? data.toString(QStringLiteral("yyyy-MM-dd")) : QString();
}

QString oraArchivio(const QTime& ora)
{
    return ora.isValid() ? ora.toString(QStringLiteral("HH:mm:ss")) : QString();
}

QDate dataDaArchivio(const QVariant& valore)
{
    if (valore.isNull())
        return {};
    if (valore.userType() == QMetaType::QDate)
        return valore.toDate();
    if (valore.userType() == QMetaType::QDateTime)
        return valore.toDateTime().date();
    const QString t = valore.toString();
    return QDate::fromString(t.left(10), QStringLiteral("yyyy-MM-dd"));
}

QTime oraDaArchivio(const QVariant& valore)
{
    if (valore.isNull())
        return {};
    const QString t = valore.toString();
    if (t.size() >= 19)
        return QTime::fromString(t.mid(11, 8), QStringLiteral("HH:mm:ss"));
    return QTime::fromString(t, QStringLiteral("HH:mm:ss"));
}

QVariant valoreData(const QDate& data)
{
    return data.isValid() ? QVariant(dataArchivio(data)) : QVariant(QMetaType(QMetaType::QString));
}

std::optional<double> leggiNumero(const QString& testo)
{
    QString t = testo.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    t.remove(QLatin1Char('.'));
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    static const QRegularExpression numero(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)$"));
    if (!numero.match(t).hasMatch())
        return std::nullopt;
    bool ok = false;
    const double v = t.toDouble(&ok);
    return ok ? std::optional<double>(v) : std::nullopt;
}

QString formattaNumero(double valore, int decimali, bool raggruppa)
{
    if (!std::isfinite(valore))
        return QString();
    decimali = qBound(0, decimali, 15);
    const double scala = std::pow(10.0, decimali);
    // Halves away from zero, with a little slack for values like 2.675 that binary can't hold exactly.
    double assoluto = std::floor(std::fabs(valore) * scala * (1.0 + 1e-15) + 0.5) / scala;
    const bool negativo = valore < 0 && assoluto != 0.0;
    QString cifre = QString::number(assoluto, 'f', decimali);
    QString intera = cifre;
    QString frazione;
    if (const int punto = cifre.indexOf(QLatin1Char('.')); punto >= 0) {
        intera = cifre.left(punto);
        frazione = cifre.mid(punto + 1);
    }
    if (raggruppa) {
        for (int i = intera.size() - 3; i > 0; i -= 3)
            intera.insert(i, QLatin1Char('.'));
    }
    QString risultato = negativo ? QStringLiteral("-") + intera : intera;
    if (decimali > 0)
        risultato += QLatin1Char(',') + frazione;
    return risultato;
}

} // namespace tomvera
