#include "foundation/ricerche.h"

#include "foundation/archivio.h"

namespace tomvera {

namespace {

// The table and field names are this file's own constants, never user text: only the value is bound.
QVariant campo(Archivio& archivio, const char* tabella, const char* chiave, const QVariant& valore, const char* nome)
{
    return archivio.valore(QStringLiteral("SELECT ") + QLatin1String(nome) + QStringLiteral(" FROM ")
                               + QLatin1String(tabella) + QStringLiteral(" WHERE ") + QLatin1String(chiave)
                               + QStringLiteral(" = ? LIMIT 1"),
                           { valore });
}

QString testo(Archivio& archivio, const char* tabella, const char* chiave, const QVariant& valore, const char* nome)
{
    const QVariant v = campo(archivio, tabella, chiave, valore, nome);
    return v.isNull() ? QString() : v.toString();
}

std::optional<double> colore(Archivio& archivio, const char* tabella, const char* chiave, const QString& valore)
{
    const QVariant v = campo(archivio, tabella, chiave, valore, "Colore");
    if (v.isNull())
        return std::nullopt;
    return v.toDouble();
}

bool esiste(Archivio& archivio, const char* tabella, const char* chiave, const QString& valore)
{
    return archivio.esisteRiga(QStringLiteral("SELECT 1 FROM ") + QLatin1String(tabella) + QStringLiteral(" WHERE ")
                                   + QLatin1String(chiave) + QStringLiteral(" = ? LIMIT 1"),
                               { valore });
}

constexpr const char* TipologieCamere = "TabellaTipologieCamere";
constexpr const char* StrutturaCamere = "TabellaStrutturaCamere";
constexpr const char* Articoli = "TabellaTipologieArticoliSpiaggia";
constexpr const char* Settori = "TabellaSettoriSpiaggia";
constexpr const char* Attrezzature = "TabellaTipologieAttrezzatureSpiaggia";
constexpr const char* Pacchetti = "TabellaTipologiePacchettiSpiaggia";

} // namespace

std::optional<double> ColoreTipologiaCamera(Archivio& archivio, const QString& codiceTipologia)
{
    return colore(archivio, TipologieCamere, "CodiceTipologia", codiceTipologia);
}

QString TipologiaDaColore(Archivio& archivio, double c)
{
    return testo(archivio, TipologieCamere, "Colore", c, "CodiceTipologia");
}

QString CodiceTipologiaCamera(Archivio& archivio, const QString& nroCamera)
{
    return testo(archivio, StrutturaCamere, "NroCamera", nroCamera, "CodiceTipologia");
}

QString NomeTipologiaCamera(Archivio& archivio, const QString& codiceTipologia)
{
    return testo(archivio, TipologieCamere, "CodiceTipologia", codiceTipologia, "NomeTipologia");
}

bool EsisteCamera(Archivio& archivio, const QString& nroCamera)
{
    return esiste(archivio, StrutturaCamere, "NroCamera", nroCamera);
}

std::optional<double> ColoreArticoloSpiaggia(Archivio& archivio, const QString& codiceArticolo)
{
    return colore(archivio, Articoli, "CodiceArticolo", codiceArticolo);
}

QString ArticoloDaColore(Archivio& archivio, double c)
{
    return testo(archivio, Articoli, "Colore", c, "CodiceArticolo");
}

QString DescrizioneArticoloSpiaggia(Archivio& archivio, const QString& codiceArticolo)
{
    return testo(archivio, Articoli, "CodiceArticolo", codiceArticolo, "Articolo");
}

QString CodiceArticoloSpiaggia(Archivio& archivio, const QString& articolo)
{
    return testo(archivio, Articoli, "Articolo", articolo, "CodiceArticolo");
}

bool EsisteArticoloSpiaggia(Archivio& archivio, const QString& codiceArticolo)
{
    return esiste(archivio, Articoli, "CodiceArticolo", codiceArticolo);
}

bool ArticoloPrenotabile(Archivio& archivio, const QString& codiceArticolo)
{
    return testo(archivio, Articoli, "CodiceArticolo", codiceArticolo, "Tipo")
               .compare(QLatin1String("Non Prenotabile"), Qt::CaseInsensitive)
        != 0;
}

std::optional<double> ColoreSettoreSpiaggia(Archivio& archivio, const QString& codiceSettore)
{
    return colore(archivio, Settori, "CodiceSettore", codiceSettore);
}

QString SettoreDaColore(Archivio& archivio, double c)
{
    return testo(archivio, Settori, "Colore", c, "CodiceSettore");
}

QString DescrizioneSettoreSpiaggia(Archivio& archivio, const QString& codiceSettore)
{
    return testo(archivio, Settori, "CodiceSettore", codiceSettore, "Settore");
}

QString CodiceSettoreSpiaggia(Archivio& archivio, const QString& settore)
{
    return testo(archivio, Settori, "Settore", settore, "CodiceSettore");
}

bool EsisteSettoreSpiaggia(Archivio& archivio, const QString& codiceSettore)
{
    return esiste(archivio, Settori, "CodiceSettore", codiceSettore);
}

QString DescrizioneAttrezzaturaSpiaggia(Archivio& archivio, const QString& codiceAttrezzatura)
{
    return testo(archivio, Attrezzature, "CodiceAttrezzatura", codiceAttrezzatura, "Attrezzatura");
}

bool EsisteAttrezzaturaSpiaggia(Archivio& archivio, const QString& codiceAttrezzatura)
{
    return esiste(archivio, Attrezzature, "CodiceAttrezzatura", codiceAttrezzatura);
}

QString DescrizionePacchettoSpiaggia(Archivio& archivio, const QString& codicePacchetto)
{
    return testo(archivio, Pacchetti, "CodicePacchetto", codicePacchetto, "Pacchetto");
}

bool EsistePacchettoSpiaggia(Archivio& archivio, const QString& codicePacchetto)
{
    return esiste(archivio, Pacchetti, "CodicePacchetto", codicePacchetto);
}

} // namespace tomvera
