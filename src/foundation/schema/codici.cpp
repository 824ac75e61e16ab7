#include "foundation/schema/codici.h"

#include "foundation/archivio.h"
#include "foundation/schema/definizione.h"

#include <QSqlQuery>

namespace tomvera::schema {

namespace {

QString virgolette(const QString& nome)
{
    return QLatin1Char('"') + nome + QLatin1Char('"');
}

} // namespace

std::optional<int> copiaTabellaCodici(Archivio& archivio, Archivio& riferimento, const QString& tabella,
                                      ModoCopiaCodici modo)
{
    if ((!archivio.aperto() && !archivio.apri()) || (!riferimento.aperto() && !riferimento.apri()))
        return std::nullopt;
    if (!tabellaEsiste(archivio, tabella) || !tabellaEsiste(riferimento, tabella))
        return std::nullopt;

    QStringList destinazione = campiEsistenti(archivio, tabella);
    QStringList campi;
    for (const QString& c : campiEsistenti(riferimento, tabella)) {
        if (c.compare(QLatin1String("Indice"), Qt::CaseInsensitive) != 0
            && destinazione.contains(c, Qt::CaseInsensitive))
            campi << c;
    }
    if (campi.isEmpty())
        return std::nullopt;

    QStringList colonne;
    for (const QString& c : campi)
        colonne << virgolette(c);
    const QString elenco = colonne.join(QStringLiteral(", "));

    // Read first, so that a reference that can't be read leaves the table untouched.
    QList<QVariantList> righe;
    {
        QSqlQuery lettura(riferimento.connessione());
        lettura.setForwardOnly(true);
        if (!lettura.exec(QStringLiteral("SELECT ") + elenco + QStringLiteral(" FROM ") + virgolette(tabella)
                          + QStringLiteral(" WHERE Indice > 0 ORDER BY Indice")))
            return std::nullopt;
        while (lettura.next()) {
            QVariantList valori;
            for (int i = 0; i < campi.size(); ++i)
                valori << lettura.value(i);
            righe << valori;
        }
    }

    Transazione transazione(archivio);
    if (!transazione.attiva())
        return std::nullopt;
    if (modo == ModoCopiaCodici::Importa) {
        QSqlQuery presenti(archivio.connessione());
        if (!presenti.exec(QStringLiteral("SELECT 1 FROM ") + virgolette(tabella) + QStringLiteral(" LIMIT 1")))
            return std::nullopt;
        if (presenti.next())
            return 0;
    } else if (!archivio.comandoSenzaGestione(QStringLiteral("DELETE FROM ") + virgolette(tabella))) {
        return std::nullopt;
    }

    const QString inserimento = QStringLiteral("INSERT INTO ") + virgolette(tabella) + QStringLiteral(" (") + elenco
        + QStringLiteral(") VALUES (") + QStringList(campi.size(), QStringLiteral("?")).join(QStringLiteral(", "))
        + QLatin1Char(')');
    for (const QVariantList& valori : righe) {
        if (!archivio.comandoSenzaGestione(inserimento, valori))
            return std::nullopt;
    }
    if (!transazione.commit())
        return std::nullopt;
    return static_cast<int>(righe.size());
}

std::optional<int> CopiaCodiciComuni(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo)
{
    return copiaTabellaCodici(archivio, riferimento, QStringLiteral("TabellaCodiciComuni"), modo);
}

std::optional<int> CopiaCodiciStati(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo)
{
    return copiaTabellaCodici(archivio, riferimento, QStringLiteral("TabellaCodiciStati"), modo);
}

std::optional<int> CopiaCodiciDocumenti(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo)
{
    return copiaTabellaCodici(archivio, riferimento, QStringLiteral("TabellaCodiciDocumenti"), modo);
}

std::optional<int> CopiaCodiciTipoAlloggiato(Archivio& archivio, Archivio& riferimento, ModoCopiaCodici modo)
{
    return copiaTabellaCodici(archivio, riferimento, QStringLiteral("TabellaCodiciTipoAlloggiato"), modo);
}

} // namespace tomvera::schema
