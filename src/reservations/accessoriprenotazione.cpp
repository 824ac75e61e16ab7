// Extras and totals of F_Prenotazione.
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/routines.h"
#include "foundation/sessione.h"
#include "pricelists/schermolistino.h"
#include "reservations/schedaprenotazione.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

double numero(const QString& testo)
{
    return leggiNumero(testo).value_or(0);
}

} // namespace

QList<int> SchedaPrenotazione::RigheArt() const
{
    QList<int> righe;
    for (int i = 0; i < m_accessori.size(); ++i) {
        if (TipoSel.isEmpty() || m_accessori.at(i).TipoAccessorio.compare(TipoSel, Qt::CaseInsensitive) == 0)
            righe << i;
    }
    return righe;
}

void SchedaPrenotazione::PulisciCampiAccessori()
{
    Accessorio = InserimentoAccessorio();
    Accessorio.Data = testoData(m_sessione.orologio.oggi());
}

void SchedaPrenotazione::Qta_Change()
{
    Accessorio.Prezzo = formattaNumero(numero(Accessorio.Qta) * numero(Accessorio.PrezzoUnitario), 2);
}

void SchedaPrenotazione::Ins_Click()
{
    const auto data = leggiData(Accessorio.Data);
    if (!data) {
        interazione().messaggio(QStringLiteral("Valorizzare correttamente la data"));
        return;
    }
    const QString parolaIva = m_sessione.configurazione->EtichettaImpostaLunga;
    if (!ControllaNumero(Accessorio.Qta, QStringLiteral("Qtà"))
        || !ControllaNumero(Accessorio.PrezzoUnitario, QStringLiteral("Prezzo Unitario"))
        || !ControllaNumero(Accessorio.Prezzo, QStringLiteral("Prezzo")) || !ControllaNumero(Accessorio.Iva, parolaIva))
        return;
    if (numero(Accessorio.Iva) == 0) {
        interazione().messaggio(QStringLiteral("Valorizzare campo ") + parolaIva);
        return;
    }
    if (numero(Accessorio.Qta) == 0) {
        interazione().messaggio(QStringLiteral("Valorizzare campo Qtà"));
        return;
    }
    // A line at 0,00 is most often a price that never arrived from the list: only on purpose.
    if (numero(Accessorio.Prezzo) == 0
        && !interazione().domandaSiNo(QStringLiteral("Attenzione, l'accessorio \"") + Accessorio.Descrizione
                                      + QStringLiteral("\" ha prezzo 0,00. Inserirlo comunque?")))
        return;
    RigaAccessorio riga;
    riga.IndiceAccessorio = Accessorio.IndiceAccessorio;
    riga.Data = *data;
    riga.TipoAccessorio = Accessorio.Tipo;
    riga.Descrizione = Accessorio.Descrizione;
    riga.Qta = numero(Accessorio.Qta);
    riga.Avere = numero(Accessorio.Prezzo);
    riga.Iva = numero(Accessorio.Iva);
    riga.NroCamera = Accessorio.NroCamera;
    if (Accessorio.IndiceRiga > 0 && Accessorio.IndiceRiga <= m_accessori.size())
        m_accessori.insert(Accessorio.IndiceRiga - 1, riga);
    else
        m_accessori.append(riga);
    for (int i = 0; i < m_accessori.size(); ++i)
        m_accessori[i].IndiceRiga = i + 1;
    PulisciCampiAccessori();
    m_modificato = true;
    CalcolaTotale_Click();
}

void SchedaPrenotazione::RigheArt_DblClick(int riga)
{
    const QList<int> visibili = RigheArt();
    if (riga < 0 || riga >= visibili.size())
        return;
    const int posizione = visibili.at(riga);
    const RigaAccessorio a = m_accessori.at(posizione);
    Accessorio = InserimentoAccessorio();
    Accessorio.Data = a.Data.isValid() ? testoData(a.Data) : QString();
    Accessorio.Tipo = a.TipoAccessorio;
    Accessorio.Descrizione = a.Descrizione;
    Accessorio.Qta = formattaNumero(a.Qta, a.Qta == static_cast<qint64>(a.Qta) ? 0 : 2, false);
    Accessorio.Prezzo = formattaNumero(a.Avere, 2);
    Accessorio.PrezzoUnitario = a.Qta != 0 ? formattaNumero(a.Avere / a.Qta, 2) : QString();
    Accessorio.Iva = formattaNumero(a.Iva, 0, false);
    Accessorio.NroCamera = a.NroCamera;
    Accessorio.IndiceAccessorio = a.IndiceAccessorio;
    Accessorio.IndiceRiga = posizione + 1;
    m_accessori.removeAt(posizione);
    for (int i = 0; i < m_accessori.size(); ++i)
        m_accessori[i].IndiceRiga = i + 1;
    m_modificato = true;
    CalcolaTotale_Click();
}

void SchedaPrenotazione::RigheArt_Escape()
{
    PulisciCampiAccessori();
}

void SchedaPrenotazione::CalcolaTotale_Click()
{
    // Every extra counts, also those TipoSel hides: they are saved all the same.
    double extra = 0;
    for (const RigaAccessorio& a : std::as_const(m_accessori))
        extra += a.Avere;
    Totale = formattaNumero(TotaleCamerePrenotate() + extra - numero(Abbuono) + TotalePrezzoTrattamento(), 2);
}

void SchedaPrenotazione::calcolatotali()
{
    if (Indice == 0)
        return;
    const auto r = m_archivio.riga(QStringLiteral("SELECT COUNT(*), SUM(Dare), SUM(Avere) FROM TabellaMovimenti "
                                                  "WHERE IndicePrenotazioneAssociata = ?"),
                                   { Indice });
    if (!r)
        return;
    TotaleAcconto = r->value(1).isNull() ? QStringLiteral("0,00") : formattaNumero(r->value(1).toDouble(), 2);
    if (r->value(0).toInt() == 0) {
        Totale = QStringLiteral("0,00");
        return;
    }
    Totale = formattaNumero(r->value(2).toDouble() - numero(Abbuono) + TotalePrezzoTrattamento(), 2);
}

void SchedaPrenotazione::Abbuono_Change(const QString& testo)
{
    Abbuono = testo;
    m_modificato = true;
    CalcolaTotale_Click();
}

QStringList SchedaPrenotazione::sceltaTipoAccessorio()
{
    QStringList tipi;
    const auto aggiungi = [&tipi](const QList<QSqlRecord>& righe) {
        for (const QSqlRecord& r : righe) {
            const QString t = r.value(0).toString();
            if (!t.isEmpty() && !tipi.contains(t, Qt::CaseInsensitive))
                tipi << t;
        }
    };
    aggiungi(m_archivio.righe(QStringLiteral("SELECT Tipo FROM TabellaListinoAccessori GROUP BY Tipo ORDER BY Tipo")));
    aggiungi(m_archivio.righe(QStringLiteral("SELECT TipoAccessorio FROM TabellaMovimenti WHERE Tipo = 'Accessori' "
                                             "GROUP BY TipoAccessorio ORDER BY TipoAccessorio")));
    tipi.sort(Qt::CaseInsensitive);
    return tipi;
}

QStringList SchedaPrenotazione::sceltaTipoSel()
{
    // From the list held, so that lines not saved yet can be picked too.
    QStringList tipi;
    for (const RigaAccessorio& a : std::as_const(m_accessori)) {
        if (!a.TipoAccessorio.isEmpty() && !tipi.contains(a.TipoAccessorio, Qt::CaseInsensitive))
            tipi << a.TipoAccessorio;
    }
    tipi.sort(Qt::CaseInsensitive);
    return tipi;
}

QList<SchedaPrenotazione::VoceListino> SchedaPrenotazione::proposteDescrizione(const QString& testo)
{
    QList<VoceListino> voci;
    const auto righe = m_archivio.righe(QStringLiteral("SELECT Indice, Descrizione FROM TabellaListinoAccessori "
                                                       "WHERE Descrizione >= ? AND Tipo = ? ORDER BY Descrizione DESC"),
                                        { testo, Accessorio.Tipo });
    for (const QSqlRecord& r : righe)
        voci.append({ r.value(0).toLongLong(), prezzi::comeDigitato(r.value(1).toString()) });
    return voci;
}

void SchedaPrenotazione::Descrizione_LostFocus()
{
    const QString testo = Accessorio.Descrizione.trimmed();
    if (testo.isEmpty())
        return;
    // The list keeps its texts with apostrophes doubled; the group narrows the match when one is chosen.
    QString sql
        = QStringLiteral("SELECT Indice FROM TabellaListinoAccessori WHERE (Descrizione = ? OR Descrizione = ?)");
    QVariantList parametri { testo, RaddoppiaApici(testo) };
    if (!Accessorio.Tipo.isEmpty()) {
        sql += QStringLiteral(" AND (Tipo = ? OR Tipo = ?)");
        parametri << Accessorio.Tipo << RaddoppiaApici(Accessorio.Tipo);
    }
    const QVariant indice = m_archivio.valore(sql + QStringLiteral(" ORDER BY Indice LIMIT 1"), parametri);
    if (!indice.isValid() || indice.isNull())
        return;
    // The same item already taken keeps a price the user has changed since.
    if (indice.toLongLong() == Accessorio.IndiceAccessorio && numero(Accessorio.Prezzo) != 0)
        return;
    Descrizione_Click(indice.toLongLong());
}

void SchedaPrenotazione::Descrizione_Click(qint64 indiceAccessorio)
{
    const auto r = m_archivio.riga(QStringLiteral("SELECT * FROM TabellaListinoAccessori WHERE Indice = ?"),
                                   { indiceAccessorio });
    if (!r)
        return;
    Accessorio.IndiceAccessorio = indiceAccessorio;
    Accessorio.Descrizione = prezzi::comeDigitato(r->value(QStringLiteral("Descrizione")).toString());
    if (Accessorio.Tipo.isEmpty())
        Accessorio.Tipo = prezzi::comeDigitato(r->value(QStringLiteral("Tipo")).toString());
    Accessorio.PrezzoUnitario = formattaNumero(r->value(QStringLiteral("Prezzo")).toDouble(), 2);
    Accessorio.Iva = formattaNumero(r->value(QStringLiteral("Iva")).toDouble(), 0, false);
    if (numero(Accessorio.Qta) == 0)
        Accessorio.Qta = QStringLiteral("1");
    Qta_Change();
}

} // namespace tomvera
