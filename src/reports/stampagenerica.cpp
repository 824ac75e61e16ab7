#include "reports/stampagenerica.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"

#include <QSqlRecord>
#include <algorithm>

namespace tomvera::reports {

namespace {

const QLatin1Char separatore('|');

bool eRigaDiTrattini(const QString& riga)
{
    const QString t = riga.trimmed();
    return t.size() >= 3 && std::all_of(t.begin(), t.end(), [](QChar c) { return c == QLatin1Char('-'); });
}

QStringList celle(const QString& riga)
{
    QStringList esito = riga.split(separatore);
    for (QString& cella : esito)
        cella = cella.trimmed();
    return esito;
}

bool eNumero(const QString& testo)
{
    return leggiNumero(testo).has_value();
}

} // namespace

QStringList righeStampaGenerica(const ContenutoStampa& contenuto, const QDate& dataStampa)
{
    const int colonne = static_cast<int>(std::max<qsizetype>(
        contenuto.titoliColonne.size(),
        contenuto.righe.isEmpty()
            ? 0
            : std::max_element(contenuto.righe.begin(), contenuto.righe.end(),
                               [](const QStringList& a, const QStringList& b) { return a.size() < b.size(); })
                  ->size()));
    QList<int> larghezze(colonne, 0);
    auto misura = [&](const QStringList& riga) {
        for (int c = 0; c < riga.size(); ++c)
            larghezze[c] = std::max(larghezze[c], static_cast<int>(riga[c].size()));
    };
    misura(contenuto.titoliColonne);
    for (const QStringList& riga : contenuto.righe)
        misura(riga);
    auto unisci = [&](const QStringList& riga) {
        QStringList parti;
        for (int c = 0; c < colonne; ++c)
            parti << riga.value(c).leftJustified(larghezze[c]);
        return parti.join(separatore);
    };

    int larghezzaTotale = colonne > 0 ? colonne - 1 : 0;
    for (int l : larghezze)
        larghezzaTotale += l;
    const QString trattini(std::max(larghezzaTotale, 40), QLatin1Char('-'));

    QStringList righe;
    righe << QStringLiteral("Data di Stampa: ") + testoData(dataStampa);
    righe << contenuto.intestazioni;
    if (!contenuto.titoliColonne.isEmpty())
        righe << unisci(contenuto.titoliColonne);
    righe << trattini;
    for (const QStringList& riga : contenuto.righe)
        righe << unisci(riga);
    righe << trattini;
    righe << contenuto.chiusura;
    return righe;
}

bool riempiStampa(Archivio& archivio, const QStringList& righe)
{
    Transazione transazione(archivio);
    if (!archivio.comando(QStringLiteral("DELETE FROM Stampa")))
        return false;
    for (int i = 0; i < righe.size(); ++i) {
        // Descrizione holds 200 characters; the whole line stays in the memo.
        if (!archivio.comando(
                QStringLiteral("INSERT INTO Stampa (Descrizione, IndiceRif, DescrizioneMemo) VALUES (?, ?, ?)"),
                { righe[i].left(200), i + 1, righe[i] }))
            return false;
    }
    return transazione.commit();
}

QStringList leggiStampa(Archivio& archivio)
{
    QStringList righe;
    const auto record
        = archivio.righe(QStringLiteral("SELECT Descrizione, DescrizioneMemo FROM Stampa ORDER BY IndiceRif, Indice"));
    for (const QSqlRecord& r : record) {
        const QString memo = r.value(1).toString();
        righe << (memo.isEmpty() ? r.value(0).toString() : memo);
    }
    return righe;
}

ModelloStampa modelloDaRighe(const QStringList& righe, const QString& titolo)
{
    ModelloStampa modello;
    modello.titolo = titolo;
    int primo = -1;
    int ultimo = -1;
    for (int i = 0; i < righe.size(); ++i) {
        if (eRigaDiTrattini(righe[i])) {
            if (primo < 0)
                primo = i;
            ultimo = i;
        }
    }
    if (primo < 0) {
        modello.testa = righe;
        return modello;
    }
    modello.testa = righe.mid(0, primo);
    if (!modello.testa.isEmpty() && modello.testa.last().contains(separatore)) {
        for (const QString& t : celle(modello.testa.takeLast()))
            modello.colonne.append(ColonnaStampa { t, static_cast<int>(t.size()), false });
    }
    const int fineRighe = ultimo > primo ? ultimo : static_cast<int>(righe.size());
    for (int i = primo + 1; i < fineRighe; ++i) {
        if (!eRigaDiTrattini(righe[i]))
            modello.righe.append(celle(righe[i]));
    }
    modello.piede = righe.mid(fineRighe + 1);

    int numeroColonne = static_cast<int>(modello.colonne.size());
    for (const QStringList& r : modello.righe)
        numeroColonne = std::max(numeroColonne, static_cast<int>(r.size()));
    while (modello.colonne.size() < numeroColonne)
        modello.colonne.append(ColonnaStampa {});
    for (int c = 0; c < numeroColonne; ++c) {
        ColonnaStampa& colonna = modello.colonne[c];
        bool numerica = false;
        bool tutteNumeri = true;
        for (const QStringList& r : modello.righe) {
            const QString cella = r.value(c);
            colonna.caratteri = std::max(colonna.caratteri, static_cast<int>(cella.size()));
            if (cella.isEmpty())
                continue;
            numerica = true;
            tutteNumeri = tutteNumeri && eNumero(cella);
        }
        colonna.aDestra = numerica && tutteNumeri;
    }
    // A single plain column is a list of lines, not a table.
    if (numeroColonne == 1 && modello.colonne.first().titolo.isEmpty())
        modello.colonne.clear();
    return modello;
}

StampantiPredefinite stampantiDelleImpostazioni(const QString& percorsoArchivio, GestioneErrori& errori)
{
    Archivio archivio(percorsoArchivio, errori);
    return archivio.apri() ? CaricaStampantiPredefinite(archivio) : StampantiPredefinite {};
}

} // namespace tomvera::reports
