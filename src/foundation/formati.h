#pragma once

#include <QDate>
#include <QString>
#include <QTime>
#include <QVariant>
#include <optional>

namespace tomvera {

// Dates, times and numbers always read and write as under Italian settings (day first, comma decimals,
// point grouping), whatever the machine's locale.

// A date typed by the user or found in old-style SQL: d/m/y with '/', '-' or '.', two- or four-digit year,
// or the stored form yyyy-mm-dd (with or without a time).
std::optional<QDate> leggiData(const QString& testo);
// The default text form of a date: dd/MM/yyyy.
QString testoData(const QDate& data);
// A time written with a point or a colon: "9.30", "09:30", "09:30:15".
std::optional<QTime> leggiOra(const QString& testo);

// Stored format of the archive.
QString dataArchivio(const QDate& data);
QString oraArchivio(const QTime& ora);
// Null or unreadable values give an invalid date or time.
QDate dataDaArchivio(const QVariant& valore);
QTime oraDaArchivio(const QVariant& valore);
// The value to bind for a date field: null for an invalid date.
QVariant valoreData(const QDate& data);

// A number typed the Italian way: "1.234,56", "-3", "0,5". Grouping points are ignored.
std::optional<double> leggiNumero(const QString& testo);
// Number formatted as "###,###,###,##0" plus decimals, Italian separators, halves away from zero.
QString formattaNumero(double valore, int decimali, bool raggruppa = true);

} // namespace tomvera
