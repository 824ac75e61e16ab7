#include "foundation/schema/definizione.h"

#include "foundation/archivio.h"

#include <QRegularExpression>
#include <QSqlQuery>

namespace tomvera::schema {

namespace {

QString q(const QString& nome)
{
    return QLatin1Char('"') + QString(nome).replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

Campo campo(const QString& nome, Tipo tipo)
{
    Campo c;
    c.nome = nome;
    c.tipo = tipo;
    return c;
}

// SQLite index names are global to the file; the old engine's are per table.
QString nomeIndice(const QString& tabella, const QString& indice)
{
    return tabella + QLatin1Char('_') + indice;
}

} // namespace

Campo contatore(const QString& nome)
{
    return campo(nome, Tipo::Contatore);
}
Campo lungo(const QString& nome)
{
    return campo(nome, Tipo::Long);
}
Campo intero(const QString& nome)
{
    return campo(nome, Tipo::Intero);
}
Campo byte(const QString& nome)
{
    return campo(nome, Tipo::Byte);
}
Campo booleano(const QString& nome)
{
    return campo(nome, Tipo::Booleano);
}
Campo doppio(const QString& nome)
{
    return campo(nome, Tipo::Double);
}
Campo singolo(const QString& nome)
{
    return campo(nome, Tipo::Single);
}
Campo valuta(const QString& nome)
{
    return campo(nome, Tipo::Valuta);
}
Campo dataOra(const QString& nome)
{
    return campo(nome, Tipo::DataOra);
}
Campo binario(const QString& nome)
{
    return campo(nome, Tipo::Binario);
}

Campo testo(const QString& nome, int dimensione, bool zeroAmmessa, bool richiesto)
{
    Campo c = campo(nome, Tipo::Testo);
    c.dimensione = dimensione;
    c.zeroAmmessa = zeroAmmessa;
    c.richiesto = richiesto;
    return c;
}

Campo memo(const QString& nome, bool zeroAmmessa)
{
    Campo c = campo(nome, Tipo::Memo);
    c.zeroAmmessa = zeroAmmessa;
    return c;
}

Indice indice(const QString& nome, const QStringList& campi, bool unico, bool primario)
{
    return Indice { nome, campi, unico || primario, primario };
}

QString definizioneColonna(const Campo& c)
{
    QString def = q(c.nome) + QLatin1Char(' ');
    switch (c.tipo) {
    case Tipo::Contatore:
        return def + QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    case Tipo::Long:
    case Tipo::Intero:
    case Tipo::Byte:
    case Tipo::Booleano:
        def += QStringLiteral("INTEGER");
        break;
    case Tipo::Double:
    case Tipo::Single:
    case Tipo::Valuta:
        def += QStringLiteral("REAL");
        break;
    case Tipo::DataOra:
        def += QStringLiteral("TEXT");
        break;
    case Tipo::Testo:
        def += QStringLiteral("TEXT COLLATE NOCASE CHECK (length(%1) <= %2)").arg(q(c.nome)).arg(c.dimensione);
        break;
    case Tipo::Memo:
        def += QStringLiteral("TEXT COLLATE NOCASE");
        break;
    case Tipo::Binario:
        def += QStringLiteral("BLOB");
        break;
    }
    if ((c.tipo == Tipo::Testo || c.tipo == Tipo::Memo) && !c.zeroAmmessa)
        def += QStringLiteral(" CHECK (%1 <> '')").arg(q(c.nome));
    if (c.richiesto)
        def += QStringLiteral(" CHECK (%1 IS NOT NULL)").arg(q(c.nome));
    return def;
}

bool tabellaEsiste(Archivio& archivio, const QString& tabella)
{
    QSqlQuery query(archivio.connessione());
    query.prepare(QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"));
    query.addBindValue(tabella);
    return query.exec() && query.next();
}

QStringList campiEsistenti(Archivio& archivio, const QString& tabella)
{
    QStringList campi;
    QSqlQuery query(archivio.connessione());
    if (!query.exec(QStringLiteral("PRAGMA table_info(") + q(tabella) + QLatin1Char(')')))
        return campi;
    while (query.next())
        campi << query.value(1).toString();
    return campi;
}

bool applicaTabella(Archivio& archivio, const Tabella& tabella)
{
    if (!archivio.aperto() && !archivio.apri(Archivio::Apertura::Crea))
        return false;

    if (!tabellaEsiste(archivio, tabella.nome)) {
        QStringList colonne;
        for (const Campo& c : tabella.campi)
            colonne << definizioneColonna(c);
        archivio.comandoSenzaGestione(QStringLiteral("CREATE TABLE ") + q(tabella.nome) + QStringLiteral(" (")
                                      + colonne.join(QStringLiteral(", ")) + QLatin1Char(')'));
    } else {
        QStringList presenti = campiEsistenti(archivio, tabella.nome);
        for (QString& p : presenti)
            p = p.toLower();
        for (const Campo& c : tabella.campi) {
            if (presenti.contains(c.nome.toLower()))
                continue;
            // A counter can't be added to a table that exists: it arrives as a plain Long.
            Campo aggiunto = c;
            if (aggiunto.tipo == Tipo::Contatore)
                aggiunto.tipo = Tipo::Long;
            archivio.comandoSenzaGestione(QStringLiteral("ALTER TABLE ") + q(tabella.nome)
                                          + QStringLiteral(" ADD COLUMN ") + definizioneColonna(aggiunto));
        }
    }

    for (const Indice& i : tabella.indici) {
        // The counter is already the table's own key.
        if (i.primario && i.campi.size() == 1 && !tabella.campi.isEmpty()
            && tabella.campi.first().tipo == Tipo::Contatore
            && tabella.campi.first().nome.compare(i.campi.first(), Qt::CaseInsensitive) == 0)
            continue;
        QStringList colonne;
        for (const QString& c : i.campi)
            colonne << q(c);
        archivio.comandoSenzaGestione(QStringLiteral("CREATE ") + (i.unico ? QStringLiteral("UNIQUE ") : QString())
                                      + QStringLiteral("INDEX IF NOT EXISTS ") + q(nomeIndice(tabella.nome, i.nome))
                                      + QStringLiteral(" ON ") + q(tabella.nome) + QStringLiteral(" (")
                                      + colonne.join(QStringLiteral(", ")) + QLatin1Char(')'));
    }
    return true;
}

bool allargaCampoTesto(Archivio& archivio, const QString& tabella, const QString& campo, int dimensione)
{
    if (!archivio.aperto() && !archivio.apri())
        return false;
    QSqlDatabase db = archivio.connessione();
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"));
    query.addBindValue(tabella);
    if (!query.exec() || !query.next())
        return false;
    const QString sql = query.value(0).toString();
    query.finish();
    const QRegularExpression limite(
        QStringLiteral("CHECK \\(length\\(\"%1\"\\) <= (\\d+)\\)").arg(QRegularExpression::escape(campo)),
        QRegularExpression::CaseInsensitiveOption);
    const auto trovato = limite.match(sql);
    if (!trovato.hasMatch())
        return false;
    if (trovato.captured(1).toInt() >= dimensione)
        return true;
    QString nuovo = sql;
    nuovo.replace(trovato.capturedStart(1), trovato.capturedLength(1), QString::number(dimensione));

    // Loosening a CHECK leaves every stored row valid, so the definition is rewritten in place (the
    // documented way for such changes) instead of copying the whole table.
    Transazione transazione(archivio);
    if (!transazione.attiva())
        return false;
    QSqlQuery modifica(db);
    const int versione = [&] {
        QSqlQuery v(db);
        return v.exec(QStringLiteral("PRAGMA schema_version")) && v.next() ? v.value(0).toInt() : 0;
    }();
    bool ok = modifica.exec(QStringLiteral("PRAGMA writable_schema = ON"));
    modifica.prepare(
        QStringLiteral("UPDATE sqlite_master SET sql = ? WHERE type = 'table' AND name = ? COLLATE NOCASE"));
    modifica.addBindValue(nuovo);
    modifica.addBindValue(tabella);
    ok = ok && modifica.exec();
    ok = ok && QSqlQuery(db).exec(QStringLiteral("PRAGMA schema_version = ") + QString::number(versione + 1));
    QSqlQuery(db).exec(QStringLiteral("PRAGMA writable_schema = OFF"));
    if (!ok)
        return false;
    return transazione.commit();
}

} // namespace tomvera::schema
