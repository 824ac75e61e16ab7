#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tomvera::reports {

// A list print described by values: a title, heading lines, the columns and the rows, closing lines. Every
// list of the system prints through one of these; the page layout is the renderer's business.
struct ColonnaStampa
{
    QString titolo;
    int caratteri = 0; // the widest text of the column, for the share of the page it gets
    bool aDestra = false; // amounts and counts
};

struct ModelloStampa
{
    QString titolo;
    QStringList testa; // under the title, first page only ("Data di Stampa: ...")
    QList<ColonnaStampa> colonne; // empty: the rows are plain lines
    QList<QStringList> righe;
    QList<bool> grassetto; // per row, when set: a bold row (the titles of a print in sections)
    QStringList piede; // after the rows ("TOTALE: ...")
    bool orizzontale = false;
};

} // namespace tomvera::reports
