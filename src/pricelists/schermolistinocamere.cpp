#include "pricelists/schermolistinocamere.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/routines.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"
#include "pricelists/formatilistino.h"
#include "pricelists/schermolistino.h"
#include "pricelists/tabellelistino.h"

#include <QSqlRecord>

namespace tomvera::prezzi {

SchermoListinoCamere::SchermoListinoCamere(Sessione& sessione)
    : m_sessione(sessione)
{
}

QString SchermoListinoCamere::Separatore()
{
    return QString(48, QLatin1Char('-'));
}

QString SchermoListinoCamere::Caption() const
{
    return PrezzoAPersona ? QStringLiteral("TIPO DI LISTINO: Prezzo a Persona")
                          : QStringLiteral("TIPO DI LISTINO: Prezzo a Camera");
}

QString SchermoListinoCamere::EtichettaCodice() const
{
    return PrezzoAPersona ? QStringLiteral("Trattamento / Tipo") : QStringLiteral("Codice Tipologia");
}

QStringList SchermoListinoCamere::TitoliColonne() const
{
    return { QStringLiteral("Listino"),
             PrezzoAPersona ? QStringLiteral("Trattamento / Tipo") : QStringLiteral("Cod. Tipologia (Camera)"),
             QStringLiteral("Dal (gg/mm)"),
             QStringLiteral("Al (gg/mm)"),
             QStringLiteral("Prezzo"),
             m_sessione.configurazione->EtichettaImposta,
             QStringLiteral("Giorni") };
}

bool SchermoListinoCamere::SoloLettura() const
{
    return listiniSoloLettura(m_sessione);
}

void SchermoListinoCamere::Form_Load()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri()) {
        Variabili variabili(archivio);
        PrezzoACamera = variabili.LeggiVariabileBooleana(chiavi::F_ListinoCamere_PrezzoACamera);
        PrezzoAPersona = variabili.LeggiVariabileBooleana(chiavi::F_ListinoCamere_PrezzoAPersona);
    }
    // Never chosen (or both set by an outside edit): per room.
    if (PrezzoACamera == PrezzoAPersona) {
        PrezzoACamera = true;
        PrezzoAPersona = false;
    }
    caricaGriglia();
    caricaElenchi();
}

void SchermoListinoCamere::PrezzoACamera_Click()
{
    PrezzoACamera = true;
    PrezzoAPersona = false;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri()) {
        Variabili variabili(archivio);
        variabili.SalvaVariabileBooleana(chiavi::F_ListinoCamere_PrezzoACamera, true);
        variabili.SalvaVariabileBooleana(chiavi::F_ListinoCamere_PrezzoAPersona, false);
    }
    pulisciCampi();
    caricaGriglia();
    caricaElenchi();
}

void SchermoListinoCamere::PrezzoAPersona_Click()
{
    PrezzoACamera = false;
    PrezzoAPersona = true;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri()) {
        Variabili variabili(archivio);
        variabili.SalvaVariabileBooleana(chiavi::F_ListinoCamere_PrezzoACamera, false);
        variabili.SalvaVariabileBooleana(chiavi::F_ListinoCamere_PrezzoAPersona, true);
    }
    pulisciCampi();
    caricaGriglia();
    caricaElenchi();
}

bool SchermoListinoCamere::Ins_Click()
{
    Interazione& interazione = m_sessione.interazione;
    Focus.clear();
    if (!puoModificareListini(m_sessione) || SoloLettura())
        return false;
    if (Listino.isEmpty()) {
        avvisa(interazione, QStringLiteral("Attenzione, inserire un listino!"));
        Focus = QStringLiteral("Listino");
        return false;
    }
    if (CodiceTipologia.isEmpty()) {
        avvisa(interazione, QStringLiteral("Attenzione, inserire un codice tipologia!"));
        Focus = QStringLiteral("CodiceTipologia");
        return false;
    }
    if (!controllaPrezzoIva(m_sessione, Prezzo, Iva, Focus))
        return false;
    const double prezzo = valoreDi(Prezzo);
    const double iva = valoreDi(Iva);
    if (!Dal.isEmpty() || !Al.isEmpty()) {
        const int anno = m_sessione.orologio.oggi().year();
        if (!giornoMeseValido(Dal, anno) || !giornoMeseValido(Al, anno)) {
            avvisa(interazione, QStringLiteral("Attenzione, inserire correttamente le date : formato GG/MM "));
            Focus = Dal.isEmpty() || !giornoMeseValido(Dal, anno) ? QStringLiteral("Dal") : QStringLiteral("Al");
            return false;
        }
    }

    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    const TabellaListino& t = tabellaListino(tipo());
    const std::optional<bool> aggiorna = confermaAggiornamento(archivio, interazione, t.tabella, Indice);
    if (!aggiorna)
        return false;
    const bool esiste = *aggiorna;
    if (valoreDi(Giorni) < 1)
        Giorni = QStringLiteral("1");
    const int giorni = static_cast<int>(valoreDi(Giorni));
    // The key goes in with its apostrophes doubled, as the lists have always stored it.
    const QVariantList valori { Listino, RaddoppiaApici(CodiceTipologia), Dal, Al, prezzo, iva, giorni };
    bool scritto = false;
    if (esiste) {
        scritto = archivio.comando(QStringLiteral("UPDATE ") + t.tabella + QStringLiteral(" SET Listino = ?, ")
                                       + t.campoChiave
                                       + QStringLiteral(" = ?, Dal = ?, Al = ?, Prezzo = ?, Iva = ?, Giorni = ? "
                                                        "WHERE Indice = ?"),
                                   valori + QVariantList { Indice });
    } else {
        scritto = archivio.comando(QStringLiteral("INSERT INTO ") + t.tabella + QStringLiteral(" (Listino, ")
                                       + t.campoChiave
                                       + QStringLiteral(", Dal, Al, Prezzo, Iva, Giorni) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                                   valori);
    }
    caricaGriglia();
    caricaElenchi();
    return scritto;
}

void SchermoListinoCamere::Nuovo_Click()
{
    pulisciCampi();
}

bool SchermoListinoCamere::Command15_Click()
{
    if (!puoModificareListini(m_sessione) || SoloLettura())
        return false;
    const std::optional<bool> cancellata = cancellaRiga(m_sessione, tabellaListino(tipo()).tabella, Indice);
    if (!cancellata)
        return false;
    const bool fatto = *cancellata;
    if (fatto)
        pulisciCampi();
    caricaGriglia();
    caricaElenchi();
    return fatto;
}

void SchermoListinoCamere::Cerca_Click()
{
    caricaGriglia();
}

void SchermoListinoCamere::CL_Click()
{
    ListinoRic.clear();
    CodiceTipologiaRic.clear();
    caricaGriglia();
}

std::optional<reports::ModelloStampa> SchermoListinoCamere::Command1_Click()
{
    return stampaVisualizzati(m_sessione, { Caption() }, TitoliColonne(), Griglia,
                              QStringLiteral("LISTINO PREZZI CAMERE"));
}

void SchermoListinoCamere::Griglia_Click(int riga)
{
    const RigaGriglia* r = rigaScelta(Griglia, riga);
    if (!r)
        return;
    Indice = r->Indice;
    Listino = r->colonne.value(0);
    CodiceTipologia = comeDigitato(r->colonne.value(1));
    Dal = r->colonne.value(2);
    Al = r->colonne.value(3);
    Prezzo = r->colonne.value(4);
    Iva = r->colonne.value(5);
    Giorni = r->colonne.value(6);
}

void SchermoListinoCamere::CodiceTipologia_LostFocus()
{
    if (CodiceTipologia == Separatore())
        CodiceTipologia.clear();
}

void SchermoListinoCamere::Prezzo_Invio()
{
    if (Iva.isEmpty())
        Iva = testoNumero(m_sessione.configurazione->IvaPrenotazioni);
    Focus = QStringLiteral("Iva");
}

QString SchermoListinoCamere::TastoPrezzo(const QString& testo)
{
    return testo == QLatin1String(".") ? QStringLiteral(",") : testo;
}

void SchermoListinoCamere::pulisciCampi()
{
    Indice = 0;
    Listino.clear();
    CodiceTipologia.clear();
    Dal.clear();
    Al.clear();
    Prezzo.clear();
    Iva.clear();
    Giorni.clear();
}

void SchermoListinoCamere::caricaGriglia()
{
    Griglia.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    const TabellaListino& t = tabellaListino(tipo());
    QString sql = QStringLiteral("SELECT Indice, Listino, ") + t.campoChiave
        + QStringLiteral(", Dal, Al, Prezzo, Iva, Giorni FROM ") + t.tabella + QStringLiteral(" WHERE Indice > 0");
    QVariantList parametri;
    if (!ListinoRic.isEmpty()) {
        sql += QStringLiteral(" AND Listino = ?");
        parametri << ListinoRic;
    }
    if (!CodiceTipologiaRic.isEmpty()) {
        // Keys are stored with doubled apostrophes: a search typed plainly still finds them.
        sql += QStringLiteral(" AND (") + t.campoChiave + QStringLiteral(" = ? OR ") + t.campoChiave
            + QStringLiteral(" = ?)");
        parametri << CodiceTipologiaRic << RaddoppiaApici(CodiceTipologiaRic);
    }
    sql += QStringLiteral(" ORDER BY Listino, Indice");
    for (const QSqlRecord& r : archivio.righe(sql, parametri)) {
        RigaGriglia riga;
        riga.Indice = r.value(0).toLongLong();
        riga.colonne = { r.value(1).toString(),
                         r.value(2).toString(),
                         r.value(3).toString(),
                         r.value(4).toString(),
                         cellaPrezzo(r.value(5)),
                         cellaIva(r.value(6)),
                         r.value(7).isNull() ? QString() : QString::number(r.value(7).toLongLong()) };
        Griglia.push_back(riga);
    }
}

void SchermoListinoCamere::caricaElenchi()
{
    ElencoListini.clear();
    ElencoCodici.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    const TabellaListino& t = tabellaListino(tipo());
    for (const QSqlRecord& r : archivio.righe(QStringLiteral("SELECT Listino FROM ") + t.tabella
                                              + QStringLiteral(" GROUP BY Listino ORDER BY Listino DESC")))
        ElencoListini << r.value(0).toString();

    if (PrezzoACamera) {
        for (const QSqlRecord& r : archivio.righe(
                 QStringLiteral("SELECT CodiceTipologia FROM TabellaTipologieCamere ORDER BY CodiceTipologia DESC")))
            ElencoCodici << r.value(0).toString();
        return;
    }
    ElencoCodici = paroleTrattamento();
    QStringList altre;
    for (const QSqlRecord& r : archivio.righe(QStringLiteral(
             "SELECT Trattamento FROM TabellaListinoCamereAPersona GROUP BY Trattamento ORDER BY Trattamento DESC"))) {
        const QString parola = r.value(0).toString();
        if (!parola.isEmpty() && !paroleTrattamento().contains(parola, Qt::CaseInsensitive))
            altre << parola;
    }
    if (!altre.isEmpty())
        ElencoCodici << Separatore() << altre;
}

} // namespace tomvera::prezzi
