#include "guests/tabellecodici.h"

#include "foundation/archivio.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "guests/provinceesigle.h"

namespace tomvera {

namespace {

const DescrizioneTabellaCodici descrizioni[] = {
    { TabellaCodici::Comuni, "TabellaCodiciComuni", "Comune", "Comune", "comuni", "Comune", "comune", "il", "V_COMUNI",
      "dei comuni", true, true },
    { TabellaCodici::Stati, "TabellaCodiciStati", "Stato", "Stato", "stati", "Stato", "stato", "lo", "V_STATI",
      "degli stati", true, false },
    { TabellaCodici::Documenti, "TabellaCodiciDocumenti", "Documento", "Documento", "documenti", "Documento",
      "documento", "il", "T_TIPO_DOC", "dei documenti", false, false },
    { TabellaCodici::TipoAlloggiato, "TabellaCodiciTipoAlloggiato", "TipoAlloggiato", "Tipo Alloggiato",
      "tipoalloggiato", "Tipologia Alloggiato", "tipo alloggiato", "il", "Foglio1", "dei tipi di alloggiato", false,
      false },
};

} // namespace

const DescrizioneTabellaCodici& descrizione(TabellaCodici tabella)
{
    return descrizioni[static_cast<int>(tabella)];
}

const std::array<TabellaCodici, 4>& tutteLeTabelleCodici()
{
    static const std::array<TabellaCodici, 4> tutte
        = { TabellaCodici::Comuni, TabellaCodici::Stati, TabellaCodici::Documenti, TabellaCodici::TipoAlloggiato };
    return tutte;
}

const DescrizioneTabellaCodici* descrizionePerNome(const QString& nome)
{
    const QString n = nome.trimmed();
    for (const DescrizioneTabellaCodici& d : descrizioni) {
        if (n.compare(QLatin1String(d.parolaCli), Qt::CaseInsensitive) == 0
            || n.compare(QLatin1String(d.nomeLookup), Qt::CaseInsensitive) == 0
            || n.compare(QLatin1String(d.tabella), Qt::CaseInsensitive) == 0)
            return &d;
    }
    return nullptr;
}

schema::Tabella definizioneTabellaCodici(TabellaCodici tabella)
{
    switch (tabella) {
    case TabellaCodici::Comuni:
        return schema::TabellaCodiciComuni();
    case TabellaCodici::Stati:
        return schema::TabellaCodiciStati();
    case TabellaCodici::Documenti:
        return schema::TabellaCodiciDocumenti();
    case TabellaCodici::TipoAlloggiato:
        break;
    }
    return schema::TabellaCodiciTipoAlloggiato();
}

schema::Tabella definizioneRegioni()
{
    using namespace schema;
    Tabella t;
    t.nome = QStringLiteral("Regioni");
    t.campi << contatore() << testo(QStringLiteral("regione"), 250) << testo(QStringLiteral("Provincia"), 250)
            << testo(QStringLiteral("NomeProvincia"), 250);
    t.indici << indice(QStringLiteral("PrimaryKey"), { QStringLiteral("Indice") }, true, true)
             << indice(QStringLiteral("regione"), { QStringLiteral("regione") });
    return t;
}

QString CercaCodiceTabella(Archivio& archivio, const QString& parola, TabellaCodici tabella)
{
    const DescrizioneTabellaCodici& d = descrizione(tabella);
    const QVariant codice
        = archivio.valore(QStringLiteral("SELECT Codice FROM ") + QLatin1String(d.tabella) + QStringLiteral(" WHERE ")
                              + QLatin1String(d.campoDescrizione) + QStringLiteral(" = ? ORDER BY Indice LIMIT 1"),
                          { parola });
    return codice.isNull() ? QString() : codice.toString();
}

QString CercaCodiceTabella(Archivio& archivio, const QString& parola, const QString& nomeTabella)
{
    const DescrizioneTabellaCodici* d = descrizionePerNome(nomeTabella);
    return d ? CercaCodiceTabella(archivio, parola, d->tipo) : QString();
}

bool preparaArchivioCodici(Archivio& archivio)
{
    if (!archivio.aperto() && !archivio.apri(Archivio::Apertura::Crea))
        return false;
    // Tables and provinces together: the reference archive is never left with its tables but no provinces.
    Transazione transazione(archivio);
    for (TabellaCodici t : tutteLeTabelleCodici())
        schema::applicaTabella(archivio, definizioneTabellaCodici(t));
    schema::applicaTabella(archivio, definizioneRegioni());
    if (archivio.valore(QStringLiteral("SELECT count(*) FROM Regioni")).toInt() == 0) {
        for (const ProvinciaItaliana& p : Province_e_Sigle())
            archivio.comando(QStringLiteral("INSERT INTO Regioni (regione, Provincia, NomeProvincia) VALUES (?, ?, ?)"),
                             { p.regione, p.sigla, p.provincia });
    }
    return transazione.commit();
}

} // namespace tomvera
