#include "guests/provinceesigle.h"

#include <QCollator>
#include <QHash>
#include <algorithm>

namespace tomvera {

namespace {

struct Regione
{
    const char* nome;
    const char* province; // "TO Torino|VC Vercelli|..."
};

// Ferrara's region keeps its historical spelling "Emilia -Romagna".
const Regione regioni[] = {
    { "Piemonte", "TO Torino|VC Vercelli|NO Novara|CN Cuneo|AT Asti|AL Alessandria|BI Biella|VB Verbano-Cusio-Ossola" },
    { "Valle d'Aosta", "AO Aosta" },
    { "Lombardia",
      "VA Varese|CO Como|SO Sondrio|MI Milano|BG Bergamo|BS Brescia|PV Pavia|CR Cremona|MN Mantova|"
      "LC Lecco|LO Lodi|MB Monza e della Brianza" },
    { "Trentino Alto Adige", "BZ Bolzano|TN Trento" },
    { "Veneto", "VR Verona|VI Vicenza|BL Belluno|TV Treviso|VE Venezia|PD Padova|RO Rovigo" },
    { "Friuli Venezia Giulia", "UD Udine|GO Gorizia|TS Trieste|PN Pordenone" },
    { "Liguria", "IM Imperia|SV Savona|GE Genova|SP La Spezia" },
    { "Emilia Romagna",
      "PC Piacenza|PR Parma|RE Reggio nell'Emilia|MO Modena|BO Bologna|RA Ravenna|"
      "FC Forlì-Cesena|RN Rimini" },
    { "Emilia -Romagna", "FE Ferrara" },
    { "Toscana",
      "MS Massa-Carrara|LU Lucca|PT Pistoia|FI Firenze|LI Livorno|PI Pisa|AR Arezzo|SI Siena|"
      "GR Grosseto|PO Prato" },
    { "Umbria", "PG Perugia|TR Terni" },
    { "Marche", "PU Pesaro e Urbino|AN Ancona|MC Macerata|AP Ascoli Piceno|FM Fermo" },
    { "Lazio", "VT Viterbo|RI Rieti|RM Roma|LT Latina|FR Frosinone" },
    { "Abruzzo", "AQ L'Aquila|TE Teramo|PE Pescara|CH Chieti" },
    { "Molise", "CB Campobasso|IS Isernia" },
    { "Campania", "CE Caserta|BN Benevento|NA Napoli|AV Avellino|SA Salerno" },
    { "Puglia", "FG Foggia|BA Bari|TA Taranto|BR Brindisi|LE Lecce|BT Barletta-Andria-Trani" },
    { "Basilicata", "PZ Potenza|MT Matera" },
    { "Calabria", "CS Cosenza|CZ Catanzaro|RC Reggio di Calabria|KR Crotone|VV Vibo Valentia" },
    { "Sicilia",
      "TP Trapani|PA Palermo|ME Messina|AG Agrigento|CL Caltanissetta|EN Enna|CT Catania|RG Ragusa|"
      "SR Siracusa" },
    { "Sardegna",
      "SS Sassari|NU Nuoro|CA Cagliari|OR Oristano|OT Olbia-Tempio|OG Ogliastra|VS Medio Campidano|"
      "CI Carbonia-Iglesias" },
};

const char* const paesi[] = { "Austria",
                              "Belgio",
                              "Bulgaria",
                              "Cipro",
                              "Danimarca",
                              "Estonia",
                              "Finlandia",
                              "Francia",
                              "Germania",
                              "Grecia",
                              "Irlanda",
                              "Lettonia",
                              "Lituania",
                              "Lussemburgo",
                              "Malta",
                              "Paesi Bassi",
                              "Polonia",
                              "Portogallo",
                              "Regno Unito",
                              "Rep. Ceca",
                              "Romania",
                              "Slovacchia",
                              "Slovenia",
                              "Spagna",
                              "Svezia",
                              "Ungheria",
                              "Islanda",
                              "Norvegia",
                              "Svizzera e Liechtenstein",
                              "Croazia",
                              "Russia",
                              "Turchia",
                              "Ucraina",
                              "Altri paesi europei",
                              "Canada",
                              "Stati Uniti d'America",
                              "Altri paesi o territori nord-americani",
                              "Argentina",
                              "Brasile",
                              "Messico",
                              "Venezuela",
                              "Altri paesi centro e sud-americani",
                              "Cina",
                              "Corea del Sud",
                              "Giappone",
                              "India",
                              "Israele",
                              "Altri paesi Asia occidentale",
                              "Altri paesi asiatici",
                              "Sud Africa",
                              "Egitto",
                              "Altri paesi Africa mediterranea",
                              "Altri paesi africani",
                              "Australia",
                              "Nuova Zelanda",
                              "Altri paesi o territori dell'Oceania",
                              "Non specificato/apolide" };

// Official state words that differ from the ISTAT entry.
const char* const sinonimiPaesi[][2] = {
    { "REPUBBLICA CECA", "Rep. Ceca" },
    { "CECA, REPUBBLICA", "Rep. Ceca" },
    { "CECHIA", "Rep. Ceca" },
    { "SVIZZERA", "Svizzera e Liechtenstein" },
    { "LIECHTENSTEIN", "Svizzera e Liechtenstein" },
    { "FEDERAZIONE RUSSA", "Russia" },
    { "RUSSIA", "Russia" },
    { "SUDAFRICA", "Sud Africa" },
    { "SUD AFRICA", "Sud Africa" },
    { "REPUBBLICA SUDAFRICANA", "Sud Africa" },
    { "COREA DEL SUD", "Corea del Sud" },
    { "COREA, REPUBBLICA", "Corea del Sud" },
    { "COREA (REPUBBLICA DI)", "Corea del Sud" },
    { "STATI UNITI", "Stati Uniti d'America" },
    { "OLANDA", "Paesi Bassi" },
    { "GRAN BRETAGNA", "Regno Unito" },
    { "CINA REPUBBLICA POPOLARE", "Cina" },
    { "APOLIDE", "Non specificato/apolide" },
};

} // namespace

const std::vector<ProvinciaItaliana>& Province_e_Sigle()
{
    static const std::vector<ProvinciaItaliana> tabella = [] {
        std::vector<ProvinciaItaliana> t;
        for (const Regione& r : regioni) {
            const QStringList voci = QString::fromUtf8(r.province).split(QLatin1Char('|'));
            for (const QString& v : voci)
                t.push_back({ v.left(2), v.mid(3), QString::fromUtf8(r.nome) });
        }
        return t;
    }();
    return tabella;
}

QString TrovaRegione(const QString& provincia)
{
    for (const ProvinciaItaliana& p : Province_e_Sigle())
        if (p.provincia.compare(provincia, Qt::CaseInsensitive) == 0)
            return p.regione;
    return {};
}

QString TrovaProvincia(const QString& sigla)
{
    for (const ProvinciaItaliana& p : Province_e_Sigle())
        if (p.sigla.compare(sigla.trimmed(), Qt::CaseInsensitive) == 0)
            return p.provincia.toUpper();
    return {};
}

QStringList CaricaComboIstat(ListaIstat lista)
{
    static const QStringList listaPaesi = [] {
        QStringList l;
        for (const char* p : paesi)
            l << QString::fromUtf8(p);
        return l;
    }();
    static const QStringList listaProvince = [] {
        QStringList l;
        for (const ProvinciaItaliana& p : Province_e_Sigle())
            l << p.provincia;
        QCollator collator { QLocale(QLocale::Italian, QLocale::Italy) };
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        std::sort(l.begin(), l.end(), [&](const QString& a, const QString& b) { return collator.compare(a, b) < 0; });
        return l;
    }();
    return lista == ListaIstat::Paese ? listaPaesi : listaProvince;
}

QStringList CaricaComboIstat(bool residenzaEstera)
{
    return CaricaComboIstat(residenzaEstera ? ListaIstat::Paese : ListaIstat::Provincia);
}

QString VoceListaIstat(ListaIstat lista, int posizione)
{
    const QStringList voci = CaricaComboIstat(lista);
    return posizione >= 1 && posizione <= voci.size() ? voci.at(posizione - 1) : QString();
}

QString VoceIstatPer(ListaIstat lista, const QString& testo)
{
    const QString t = testo.trimmed();
    if (t.isEmpty())
        return {};
    const QStringList voci = CaricaComboIstat(lista);
    for (const QString& v : voci)
        if (v.compare(t, Qt::CaseInsensitive) == 0)
            return v;
    if (lista == ListaIstat::Provincia) {
        const QString nome = TrovaProvincia(t);
        for (const QString& v : voci)
            if (!nome.isEmpty() && v.compare(nome, Qt::CaseInsensitive) == 0)
                return v;
        return {};
    }
    for (const auto& s : sinonimiPaesi)
        if (t.compare(QLatin1String(s[0]), Qt::CaseInsensitive) == 0)
            return QString::fromUtf8(s[1]);
    return {};
}

} // namespace tomvera
