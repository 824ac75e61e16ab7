#include "documents/fattura.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/routines.h"

#include <QSqlQuery>
#include <cmath>

namespace tomvera {

namespace {

// The bounds of a calendar year as stored dates: from the first day included to the next year's excluded.
QVariantList annoDi(const QDate& data)
{
    return { dataArchivio(QDate(data.year(), 1, 1)), dataArchivio(QDate(data.year() + 1, 1, 1)) };
}

// Reads digits with the Italian separators from the start of the text; stops at the first other character.
// Returns false when no digit was found.
bool leggiCifre(const QString& testo, double& valore, bool& tutto)
{
    const QChar* c = testo.constData();
    const QChar* fine = c + testo.size();
    while (c != fine && c->isSpace())
        ++c;
    bool negativo = false;
    if (c != fine && (*c == QLatin1Char('-') || *c == QLatin1Char('+'))) {
        negativo = *c == QLatin1Char('-');
        ++c;
    }
    // Integer and decimal digits are gathered as text and converted once, so "0,1" is exactly 0.1.
    char buffer[64];
    int n = 0;
    bool cifre = false;
    bool decimali = false;
    for (; c != fine; ++c) {
        const ushort u = c->unicode();
        if (u >= '0' && u <= '9') {
            if (n < 60)
                buffer[n++] = static_cast<char>(u);
            cifre = true;
        } else if (u == '.' && !decimali) {
            continue; // grouping point
        } else if (u == ',' && !decimali) {
            decimali = true;
            if (n < 60)
                buffer[n++] = '.';
        } else {
            break;
        }
    }
    while (c != fine && c->isSpace())
        ++c;
    tutto = c == fine;
    if (!cifre) {
        valore = 0;
        return false;
    }
    // Not strtod: it follows the process locale, and an Italian one wants a comma.
    valore = QByteArray::fromRawData(buffer, n).toDouble();
    if (negativo)
        valore = -valore;
    return true;
}

} // namespace

QString FormattaImporto(double valore)
{
    return FormattaValuta(valore);
}

double ValoreNumerico(const QString& testo)
{
    double valore = 0;
    bool tutto = false;
    leggiCifre(testo, valore, tutto);
    return std::isfinite(valore) ? valore : 0.0;
}

std::optional<double> LeggiValore(const QString& testo)
{
    if (testo.trimmed().isEmpty())
        return 0.0;
    double valore = 0;
    bool tutto = false;
    if (!leggiCifre(testo, valore, tutto) || !tutto || !std::isfinite(valore))
        return std::nullopt;
    return valore;
}

int TrovaIndiceIva(const Aliquote& aliquote, double aliquota)
{
    for (size_t k = 0; k < aliquote.size(); ++k) {
        if (aliquote[k] == aliquota)
            return static_cast<int>(k);
    }
    return 0;
}

bool ValidaIva(const Aliquote& aliquote, const QString& testo)
{
    const QString t = testo.trimmed();
    if (t.isEmpty())
        return true;
    const auto valore = LeggiValore(t);
    if (!valore)
        return false;
    if (*valore == 0)
        return true;
    for (double a : aliquote) {
        if (a == *valore)
            return true;
    }
    return false;
}

Fattura::Fattura(Archivio& archivio)
    : m_archivio(archivio)
{
}

QString Fattura::gruppo(const QString& tipoDoc)
{
    const QVariant g = m_archivio.valore(
        QStringLiteral("SELECT Gruppo FROM TabellaDocumenti WHERE TipoDoc = ? ORDER BY Indice LIMIT 1"), { tipoDoc });
    return g.isValid() ? g.toString() : QString();
}

QStringList Fattura::altriTipiDelGruppo(const QString& tipoDoc)
{
    QStringList tipi;
    auto q = m_archivio.esegui(
        QStringLiteral("SELECT TipoDoc FROM TabellaDocumenti WHERE Gruppo = (SELECT Gruppo FROM TabellaDocumenti"
                       " WHERE TipoDoc = ? ORDER BY Indice LIMIT 1) AND TipoDoc <> ? ORDER BY IndiceGruppo, Indice"),
        { tipoDoc, tipoDoc });
    if (!q)
        return tipi;
    QSqlQuery r = std::move(*q);
    while (r.next())
        tipi << r.value(0).toString();
    return tipi;
}

qint64 Fattura::ProssimoNumeroDocumento(const QString& tipoDoc, const QDate& dataDoc)
{
    if (!dataDoc.isValid())
        return 0;
    // The type itself and every type of its group; one index range per type.
    const QVariant massimo = m_archivio.valore(
        QStringLiteral("SELECT max(NroDoc) FROM Testate WHERE DataDoc >= ? AND DataDoc < ? AND TipoDoc IN"
                       " (SELECT ? UNION SELECT TipoDoc FROM TabellaDocumenti WHERE Gruppo ="
                       " (SELECT Gruppo FROM TabellaDocumenti WHERE TipoDoc = ? ORDER BY Indice LIMIT 1))"),
        annoDi(dataDoc) + QVariantList { tipoDoc, tipoDoc });
    return massimo.isNull() ? 0 : massimo.toLongLong();
}

std::optional<QDate> Fattura::dataConNumero(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    const QVariant data
        = m_archivio.valore(QStringLiteral("SELECT DataDoc FROM Testate WHERE TipoDoc = ? AND NroDoc = ?"
                                           " AND DataDoc >= ? AND DataDoc < ? ORDER BY DataDoc LIMIT 1"),
                            QVariantList { tipoDoc, nroDoc } + annoDi(dataDoc));
    if (!data.isValid())
        return std::nullopt;
    return dataDaArchivio(data);
}

QString Fattura::ControllaNumeroInGruppo(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    if (!dataDoc.isValid())
        return QString();
    for (const QString& altro : altriTipiDelGruppo(tipoDoc)) {
        if (dataConNumero(altro, dataDoc, nroDoc)) {
            // The date in the message is the one asked about, not the one found.
            return QStringLiteral(" Esiste già il documento ") + altro + QStringLiteral(" con data ")
                + testoData(dataDoc) + QStringLiteral(" e con numero ") + QString::number(nroDoc)
                + QStringLiteral(" \n (questi documenti sono stati configurati per seguire la stessa numerazione)");
        }
    }
    return QString();
}

QString Fattura::TrovaTipoDocConNumero(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    if (!dataDoc.isValid() || dataConNumero(tipoDoc, dataDoc, nroDoc))
        return tipoDoc;
    for (const QString& altro : altriTipiDelGruppo(tipoDoc)) {
        if (dataConNumero(altro, dataDoc, nroDoc))
            return altro;
    }
    return tipoDoc;
}

QDate Fattura::TrovaDataDocConNumero(const QString& tipoDoc, qint64 nroDoc, const QDate& dataDoc)
{
    if (!dataDoc.isValid())
        return dataDoc;
    if (const auto propria = dataConNumero(tipoDoc, dataDoc, nroDoc))
        return *propria;
    for (const QString& altro : altriTipiDelGruppo(tipoDoc)) {
        if (const auto trovata = dataConNumero(altro, dataDoc, nroDoc))
            return *trovata;
    }
    return dataDoc;
}

QDate Fattura::ControllaNumeriDoppiDocE(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    if (!dataDoc.isValid())
        return QDate();
    return dataConNumero(tipoDoc, dataDoc, nroDoc).value_or(QDate());
}

} // namespace tomvera
