#include "statutory/tracciato.h"

#include "guests/tabellecodici.h"

#include <QDir>

namespace tomvera::tracciato {

namespace {

// 0x80..0x9F of Windows-1252; 0 where the code page has a hole.
constexpr char16_t alti[32] = { 0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178 };

char byteWindows1252(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(static_cast<unsigned char>(c));
    for (int i = 0; i < 32; ++i)
        if (alti[i] != 0 && alti[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

QByteArray data(const QDate& d)
{
    return d.isValid() ? d.toString(QStringLiteral("dd/MM/yyyy")).toLatin1() : QByteArray(10, ' ');
}

} // namespace

QByteArray windows1252(const QString& testo)
{
    QByteArray risultato;
    risultato.reserve(testo.size());
    for (const char32_t c : testo.toUcs4())
        risultato.append(byteWindows1252(c));
    return risultato;
}

QByteArray campo(const QString& testo, int larghezza)
{
    QByteArray b = windows1252(testo).left(larghezza);
    if (b.size() < larghezza)
        b.append(QByteArray(larghezza - b.size(), ' '));
    return b;
}

QByteArray giorniPermanenza(const QDate& arrivo, const QDate& partenza)
{
    if (!arrivo.isValid() || !partenza.isValid())
        return QByteArrayLiteral("00");
    const qint64 giorni = arrivo.daysTo(partenza);
    // A departure before the arrival is a typing error, not a negative stay.
    if (giorni <= 0)
        return QByteArrayLiteral("00");
    if (giorni > 30)
        return QByteArrayLiteral("30");
    return QByteArray::number(giorni).rightJustified(2, '0');
}

bool codiceMembro(const QString& codiceTipoAlloggiato)
{
    const QString c = codiceTipoAlloggiato.trimmed();
    return c == QLatin1String("19") || c == QLatin1String("20");
}

QByteArray record(const RigaSchedina& riga, const CercaCodice& cerca, char& sesso)
{
    // With neither flag of a pair set, the file takes Italy (the screen's check does not).
    const bool natoInItalia = riga.nascitaitalia || !riga.nascitaestero;
    const bool documentoItaliano = riga.documentoitalia || !riga.documentoestero;

    const QString codiceTipo = cerca(TabellaCodici::TipoAlloggiato, riga.Tipodialloggiato);
    if (riga.maschiofemmina.trimmed().compare(QLatin1String("Maschio"), Qt::CaseInsensitive) == 0)
        sesso = '1';
    else if (riga.maschiofemmina.trimmed().compare(QLatin1String("Femmina"), Qt::CaseInsensitive) == 0)
        sesso = '2';

    QByteArray r;
    r.reserve(LunghezzaRecord);
    r += campo(codiceTipo, 2);
    r += data(riga.dataarrivo);
    r += giorniPermanenza(riga.dataarrivo, riga.datapartenza);
    r += campo(riga.cognome, 50);
    r += campo(riga.nome, 30);
    r += sesso;
    r += data(riga.datanascita);
    r += natoInItalia ? campo(cerca(TabellaCodici::Comuni, riga.luogonascita), 9) : QByteArray(9, ' ');
    r += natoInItalia ? campo(riga.provinciadinascita, 2) : QByteArray(2, ' ');
    r += campo(cerca(TabellaCodici::Stati, riga.statodinascita), 9);
    r += campo(cerca(TabellaCodici::Stati, riga.cittadinanza), 9);
    if (codiceMembro(codiceTipo)) {
        r += QByteArray(LunghezzaRecord - LunghezzaComune, '\0');
        return r;
    }
    r += campo(cerca(TabellaCodici::Documenti, riga.tipodocumento), 5);
    r += campo(riga.nrodocumento, 20);
    r += campo(cerca(documentoItaliano ? TabellaCodici::Comuni : TabellaCodici::Stati, riga.luogodocumento), 9);
    return r;
}

QByteArray file(const std::vector<QByteArray>& records)
{
    QByteArray f;
    for (size_t i = 0; i < records.size(); ++i) {
        if (i > 0)
            f += "\r\n";
        f += records[i];
    }
    return f;
}

QString nomeFile(const QString& cartella, const QDate& giorno)
{
    return QDir(cartella).filePath(QStringLiteral("Schede Notifica del ") + giorno.toString(QStringLiteral("ddMMyyyy"))
                                   + QStringLiteral(".txt"));
}

} // namespace tomvera::tracciato
