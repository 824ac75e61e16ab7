#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace tomvera {

// The fixed table of the Italian provinces with their regions, in its historical order.
struct ProvinciaItaliana
{
    QString sigla;
    QString provincia;
    QString regione;
};

const std::vector<ProvinciaItaliana>& Province_e_Sigle();

// Region of a province name (any case), or "".
QString TrovaRegione(const QString& provincia);
// Province name in capitals for a two-letter code (any case), or "".
QString TrovaProvincia(const QString& sigla);

// Choices of ResidenzaIstat: the foreign countries ("PAESE") or the province names in alphabetical order
// ("PROVINCIA").
enum class ListaIstat
{
    Paese,
    Provincia
};
QStringList CaricaComboIstat(ListaIstat lista);
QStringList CaricaComboIstat(bool residenzaEstera);
// Entry of a list by 1-based position; "" outside the list.
QString VoceListaIstat(ListaIstat lista, int posizione);
// Entry of the list matching a province code, a province name or a state word; "" when none fits.
QString VoceIstatPer(ListaIstat lista, const QString& testo);

} // namespace tomvera
