#include "guests/anagrafiche.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

struct CampoTesto
{
    const char* nome;
    QString Anagrafica::*membro;
};

// Text fields in the order of the table; the date, option and ISTAT fields are handled around them.
const CampoTesto campiTesto[] = {
    { "CodiceAnagrafica", &Anagrafica::CodiceAnagrafica },
    { "RagSociale", &Anagrafica::RagSociale },
    { "Nome", &Anagrafica::Nome },
    { "Cognome", &Anagrafica::Cognome },
    { "Indirizzo", &Anagrafica::Indirizzo },
    { "Cap", &Anagrafica::Cap },
    { "Comune", &Anagrafica::Comune },
    { "Provincia", &Anagrafica::Provincia },
    { "Piva", &Anagrafica::Piva },
    { "CodiceFiscale", &Anagrafica::CodiceFiscale },
    { "Cellulare", &Anagrafica::Cellulare },
    { "Telefono", &Anagrafica::Telefono },
    { "Fax", &Anagrafica::Fax },
    { "Email", &Anagrafica::Email },
    { "Web", &Anagrafica::Web },
    { "Note", &Anagrafica::Note },
    { "TipoDocumento", &Anagrafica::TipoDocumento },
    { "NroDocumento", &Anagrafica::NroDocumento },
};

const CampoTesto campiTestoDopoDate[] = {
    { "LuogoNascita", &Anagrafica::LuogoNascita },
    { "Cittadinanza", &Anagrafica::Cittadinanza },
    { "Nazione", &Anagrafica::Nazione },
    { "StatoDiNascita", &Anagrafica::StatoDiNascita },
    { "LuogoDocumento", &Anagrafica::LuogoDocumento },
    { "ProvinciaDiNascita", &Anagrafica::ProvinciaDiNascita },
};

QString testoDataArchivio(const QVariant& v)
{
    const QDate d = dataDaArchivio(v);
    return d.isValid() ? testoData(d) : QString();
}

QVariant dataDaTesto(const QString& testo)
{
    const auto d = leggiData(testo);
    return d ? QVariant(dataArchivio(*d)) : QVariant(QMetaType(QMetaType::QString));
}

} // namespace

bool Anagrafica::operator==(const Anagrafica& a) const
{
    for (const CampoTesto& c : campiTesto)
        if (this->*c.membro != a.*c.membro)
            return false;
    for (const CampoTesto& c : campiTestoDopoDate)
        if (this->*c.membro != a.*c.membro)
            return false;
    return Indice == a.Indice && DataDocumento == a.DataDocumento && DataNascita == a.DataNascita
        && Maschio == a.Maschio && ResidenzaItaliana == a.ResidenzaItaliana && NascitaItalia == a.NascitaItalia
        && DocumentoItalia == a.DocumentoItalia && ResidenzaIstat == a.ResidenzaIstat;
}

std::optional<Anagrafica> caricaAnagrafica(Archivio& archivio, qint64 indice)
{
    const auto r = archivio.riga(QStringLiteral("SELECT * FROM TabellaAnagrafiche WHERE Indice = ?"), { indice });
    if (!r)
        return std::nullopt;
    Anagrafica a;
    a.Indice = r->value(QStringLiteral("Indice")).toLongLong();
    for (const CampoTesto& c : campiTesto)
        a.*c.membro = r->value(QLatin1String(c.nome)).toString();
    for (const CampoTesto& c : campiTestoDopoDate)
        a.*c.membro = r->value(QLatin1String(c.nome)).toString();
    a.DataDocumento = testoDataArchivio(r->value(QStringLiteral("DataDocumento")));
    a.DataNascita = testoDataArchivio(r->value(QStringLiteral("DataNascita")));
    a.Maschio
        = r->value(QStringLiteral("MaschioFemmina")).toString().compare(QLatin1String("Femmina"), Qt::CaseInsensitive)
        != 0;
    // Old rows may hold both flags off: Italian unless the foreign one is set.
    a.ResidenzaItaliana = !r->value(QStringLiteral("ResidenzaEstera")).toBool();
    a.NascitaItalia = !r->value(QStringLiteral("NascitaEstero")).toBool();
    a.DocumentoItalia = !r->value(QStringLiteral("DocumentoEstero")).toBool();
    a.ResidenzaIstat = r->value(QStringLiteral("ResidenzaIstat")).toString();
    return a;
}

bool scriviAnagrafica(Archivio& archivio, Anagrafica& a)
{
    QStringList campi;
    QVariantList valori;
    for (const CampoTesto& c : campiTesto) {
        campi << QLatin1String(c.nome);
        valori << a.*c.membro;
    }
    campi << QStringLiteral("DataDocumento") << QStringLiteral("DataNascita");
    valori << dataDaTesto(a.DataDocumento) << dataDaTesto(a.DataNascita);
    for (const CampoTesto& c : campiTestoDopoDate) {
        campi << QLatin1String(c.nome);
        valori << a.*c.membro;
    }
    campi << QStringLiteral("MaschioFemmina") << QStringLiteral("ResidenzaItaliana")
          << QStringLiteral("ResidenzaEstera") << QStringLiteral("NascitaItalia") << QStringLiteral("NascitaEstero")
          << QStringLiteral("DocumentoItalia") << QStringLiteral("DocumentoEstero") << QStringLiteral("ResidenzaIstat");
    valori << (a.Maschio ? QStringLiteral("Maschio") : QStringLiteral("Femmina")) << int(a.ResidenzaItaliana)
           << int(!a.ResidenzaItaliana) << int(a.NascitaItalia) << int(!a.NascitaItalia) << int(a.DocumentoItalia)
           << int(!a.DocumentoItalia) << a.ResidenzaIstat;

    if (a.Indice == 0) {
        QStringList segnaposto;
        for (int i = 0; i < campi.size(); ++i)
            segnaposto << QStringLiteral("?");
        if (!archivio.comando(QStringLiteral("INSERT INTO TabellaAnagrafiche (") + campi.join(QStringLiteral(", "))
                                  + QStringLiteral(") VALUES (") + segnaposto.join(QStringLiteral(", "))
                                  + QLatin1Char(')'),
                              valori))
            return false;
        a.Indice = archivio.ultimoIndiceInserito();
        return true;
    }
    valori << a.Indice;
    return archivio.comando(QStringLiteral("UPDATE TabellaAnagrafiche SET ") + campi.join(QStringLiteral(" = ?, "))
                                + QStringLiteral(" = ? WHERE Indice = ?"),
                            valori);
}

QString ProssimoCodiceAnagrafica(Archivio& archivio)
{
    // val() reads the leading number of a text, as the old engine did: "A12" is 0, "12B" is 12.
    const QVariant massimo
        = archivio.valore(QStringLiteral("SELECT max(val(CodiceAnagrafica)) FROM TabellaAnagrafiche WHERE Indice > 0"));
    if (massimo.isNull())
        return QStringLiteral("1");
    return QString::number(static_cast<qint64>(massimo.toDouble()) + 1);
}

bool ControllaCodiceAnagrafica(Archivio& archivio, Interazione& interazione, const QString& codice, qint64 indice)
{
    const auto r = archivio.riga(
        QStringLiteral("SELECT Indice, RagSociale FROM TabellaAnagrafiche WHERE CodiceAnagrafica = ?"), { codice });
    if (!r)
        return true;
    if (indice == 0 || r->value(0).toLongLong() != indice) {
        interazione.messaggio(QStringLiteral("Codice anagrafica già utilizzato da: ") + r->value(1).toString());
        return false;
    }
    return true;
}

bool ClientePresenteInPrenotazioni(Archivio& archivio, qint64 indice)
{
    return archivio.esisteRiga(
        QStringLiteral("SELECT 1 FROM TabellaAnagraficheAssociatePrenotazioni WHERE IndiceCliente = ? LIMIT 1"),
        { indice });
}

} // namespace tomvera
