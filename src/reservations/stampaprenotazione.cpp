// The reservation print of F_Prenotazione: rooms, guests, extras and totals through the work table Stampa2.
#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"
#include "reservations/schedaprenotazione.h"

#include <QSqlRecord>

namespace tomvera {

namespace {

const QString regola(90, QLatin1Char('-'));

// A column heading: the title padded to the column's width, closed by the bar.
QString testata(const QString& titolo, int larghezza)
{
    return titolo.leftJustified(larghezza - 1) + QLatin1Char('|');
}

QString importo(double valore)
{
    return formattaNumero(valore, 2);
}

QString testoIva(double iva)
{
    return formattaNumero(iva, iva == static_cast<qint64>(iva) ? 0 : 2, false);
}

void titolo(QList<RigaStampa2>& righe, const QString& testo)
{
    righe.append({ { testo }, true });
    righe.append({ { regola }, false });
}

bool eTestata(const RigaStampa2& riga)
{
    return !riga.Des.isEmpty() && riga.Des.first().endsWith(QLatin1Char('|'));
}

// A cell under its heading: amounts and counts to the right, text and room numbers to the left, cut to the
// column.
QString cellaAllineata(const QString& testo, const QString& intestazione)
{
    const int spazio = static_cast<int>(intestazione.size()) - 1;
    const bool codice = intestazione.startsWith(QLatin1String("COD."))
        || intestazione.startsWith(QLatin1String("CAMERA")) || intestazione.startsWith(QLatin1String("N.C."));
    const bool numero = !codice && !testo.contains(QLatin1Char('/')) && leggiNumero(testo).has_value();
    const QString t = testo.left(spazio);
    return (numero ? t.rightJustified(spazio) : t.leftJustified(spazio)) + QLatin1Char('|');
}

} // namespace

void SchedaPrenotazione::StampaNote_Click(bool spuntato)
{
    StampaNote = spuntato;
    Variabili(m_archivio).SalvaVariabileBooleana(chiavi::F_Prenotazione_StampaNote, spuntato);
}

QList<RigaStampa2> SchedaPrenotazione::righeStampa(bool prezziAPersona) const
{
    const QString parolaIva = m_sessione.configurazione->EtichettaImposta.toUpper();
    QList<RigaStampa2> righe;

    titolo(righe, QStringLiteral("CAMERE PRENOTATE"));
    RigaStampa2 testaCamere { { testata(QStringLiteral("COD."), 7), testata(QStringLiteral("TIPOLOGIA"), 12),
                                testata(QStringLiteral("DAL"), 11), testata(QStringLiteral("AL"), 11),
                                testata(QStringLiteral("NOTTI"), 7) },
                              true };
    if (!prezziAPersona)
        testaCamere.Des << testata(QStringLiteral("PREZZO"), 14) << testata(parolaIva, 6);
    righe.append(testaCamere);
    for (const RigaCamera& c : GrigliaCamerePrenotate) {
        RigaStampa2 r { { c.NroCamera, c.CodiceTipologiaCamera, testoData(c.Dal), testoData(c.Al),
                          QString::number(c.Dal.isValid() && c.Al.isValid() ? c.Dal.daysTo(c.Al) : 0) },
                        false };
        if (!prezziAPersona)
            r.Des << importo(c.Avere) << testoIva(c.Iva);
        righe.append(r);
    }

    titolo(righe, QStringLiteral("CLIENTI ASSOCIATI PRENOTAZIONE"));
    RigaStampa2 testaClienti { { testata(QStringLiteral("RAG.SOCIALE"), 26), testata(QStringLiteral("CAMERA"), 7),
                                 testata(QStringLiteral("ARRIVO"), 11), testata(QStringLiteral("PARTENZA"), 11),
                                 testata(QStringLiteral("TRATTAMENTO"), 26) },
                               true };
    testaClienti.Des << (prezziAPersona ? testata(QStringLiteral("PREZZO"), 14)
                                        : testata(QStringLiteral("TELEFONO"), 16));
    righe.append(testaClienti);
    for (const OspitePrenotazione& o : GrigliaAnagrafiche) {
        if (o.RagSociale().trimmed().isEmpty())
            continue;
        const QDate arrivo = o.data(QStringLiteral("DataArrivo"));
        const QDate partenza = o.data(QStringLiteral("DataPartenza"));
        RigaStampa2 r { { o.RagSociale(), o.NroCameraCliente(), arrivo.isValid() ? testoData(arrivo) : QString(),
                          partenza.isValid() ? testoData(partenza) : QString(),
                          o.testo(QStringLiteral("TipoTrattamento")) },
                        false };
        if (prezziAPersona) {
            r.Des << importo(o.valore(QStringLiteral("TotalePrezzoTrattamento")).toDouble());
        } else {
            const QString telefono = o.testo(QStringLiteral("Telefono"));
            r.Des << (telefono.isEmpty() ? o.testo(QStringLiteral("Cellulare")) : telefono);
        }
        // The holder of the reservation stands out.
        const QVariant intestatario = o.valore(QStringLiteral("ClienteIntestatario"));
        r.Grassetto = intestatario.toInt() != 0 || intestatario.toBool();
        if (r.Grassetto)
            r.Des << QStringLiteral("Cliente Intestatario");
        righe.append(r);
    }

    double totaleAccessori = 0;
    if (!m_accessori.isEmpty()) {
        titolo(righe, QStringLiteral("ACCESSORI"));
        righe.append(
            { { testata(QStringLiteral("DATA"), 11), testata(QStringLiteral("TIPO"), 15),
                testata(QStringLiteral("DESCRIZIONE"), 30), testata(QStringLiteral("QTA"), 6),
                testata(QStringLiteral("IMPORTO"), 14), testata(parolaIva, 6), testata(QStringLiteral("N.C."), 7) },
              true });
        for (const RigaAccessorio& a : m_accessori) {
            totaleAccessori += a.Avere;
            righe.append({ { a.Data.isValid() ? testoData(a.Data) : QString(), a.TipoAccessorio, a.Descrizione,
                             formattaNumero(a.Qta, a.Qta == static_cast<qint64>(a.Qta) ? 0 : 2, false),
                             importo(a.Avere), testoIva(a.Iva), a.NroCamera },
                           false });
        }
    }

    titolo(righe, QStringLiteral("TOTALI"));
    const double abbuono = leggiNumero(Abbuono).value_or(0);
    const double trattamenti = TotalePrezzoTrattamento();
    const double totale = (prezziAPersona ? 0 : TotaleCamerePrenotate()) + trattamenti + totaleAccessori - abbuono;
    const double acconti = leggiNumero(TotaleAcconto).value_or(0);
    if (!prezziAPersona)
        righe.append({ { QStringLiteral("Totale Camere"), importo(TotaleCamerePrenotate()) }, false });
    righe.append({ { QStringLiteral("Totale Trattamenti"), importo(trattamenti) }, false });
    righe.append({ { QStringLiteral("Totale Accessori"), importo(totaleAccessori) }, false });
    righe.append({ { QStringLiteral("Abbuono"), importo(abbuono) }, false });
    righe.append({ { QStringLiteral("TOTALE"), importo(totale) }, true });
    righe.append({ { QStringLiteral("Acconti"), importo(acconti) }, false });
    righe.append({ { QStringLiteral("DA SALDARE"), importo(totale - acconti) }, true });

    if (StampaNote && !NotePrenotazione.trimmed().isEmpty()) {
        titolo(righe, QStringLiteral("NOTE PRENOTAZIONE"));
        for (const QString& linea : NotePrenotazione.split(QLatin1Char('\n')))
            righe.append({ { linea }, false });
    }
    return righe;
}

bool SchedaPrenotazione::riempiStampa2(const QList<RigaStampa2>& righe)
{
    // The work table is shared by every station: emptied and filled in one step.
    Transazione transazione(m_archivio);
    if (!transazione.attiva() || !m_archivio.comando(QStringLiteral("DELETE FROM Stampa2")))
        return false;
    for (int i = 0; i < righe.size(); ++i) {
        QVariantList valori;
        for (int d = 0; d < 9; ++d) {
            if (d >= righe[i].Des.size()) {
                valori << QVariant();
                continue;
            }
            // An empty cell is an empty text, not a null: the columns after it keep their place.
            QString cella = righe[i].Des[d].left(250);
            if (cella.isNull())
                cella = QLatin1String("");
            valori << cella;
        }
        valori << i + 1 << (righe[i].Grassetto ? 1 : 0);
        if (!m_archivio.comando(QStringLiteral("INSERT INTO Stampa2 (Des1, Des2, Des3, Des4, Des5, Des6, Des7, Des8, "
                                               "Des9, IndiceRif, Grassetto) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                                valori))
            return false;
    }
    return transazione.commit();
}

bool SchedaPrenotazione::PreparaStampa()
{
    return riempiStampa2(righeStampa(false));
}

bool SchedaPrenotazione::PreparaStampaPrezziAPersona()
{
    return riempiStampa2(righeStampa(true));
}

std::optional<reports::ModelloStampa> SchedaPrenotazione::Anteprima_Click()
{
    CalcolaTotale_Click();
    if (!(PrezziAPersona ? PreparaStampaPrezziAPersona() : PreparaStampa()))
        return std::nullopt;

    reports::ModelloStampa modello;
    modello.titolo = QStringLiteral("PRENOTAZIONE N° ") + NumeroPrenotazione.trimmed() + QStringLiteral(" del ")
        + DataPrenotazione;
    modello.testa << QStringLiteral("Data di Stampa: ") + testoData(m_sessione.orologio.oggi());
    for (const OspitePrenotazione& o : GrigliaAnagrafiche) {
        if (o.valore(QStringLiteral("ClienteIntestatario")).toInt() != 0)
            modello.testa << QStringLiteral("Intestatario: ") + o.RagSociale();
    }
    if (!Stato.isEmpty())
        modello.testa << QStringLiteral("Stato: ") + Stato;
    if (!TourOperator.isEmpty())
        modello.testa << QStringLiteral("Tour Operator: ") + TourOperator;
    modello.testa << (PrezziAPersona ? QStringLiteral("Prezzi a persona, listino ") + ListinoTrattamenti
                                     : QStringLiteral("Prezzi a camera, listino ") + ListinoCamere);

    // What the table holds now is what prints: each row under the widths of the heading above it.
    QStringList intestazioni;
    const auto righe = m_archivio.righe(QStringLiteral("SELECT Des1, Des2, Des3, Des4, Des5, Des6, Des7, Des8, Des9, "
                                                       "Grassetto FROM Stampa2 ORDER BY IndiceRif, Indice"));
    for (const QSqlRecord& record : righe) {
        RigaStampa2 riga;
        int usate = 0;
        for (int d = 0; d < 9; ++d) {
            riga.Des << record.value(d).toString();
            if (!record.value(d).isNull())
                usate = d + 1;
        }
        riga.Des = riga.Des.mid(0, usate);
        riga.Grassetto = record.value(9).toInt() != 0;
        QString linea;
        if (eTestata(riga)) {
            intestazioni = riga.Des;
            linea = intestazioni.join(QString());
        } else if (riga.Des.size() == 1) {
            intestazioni.clear(); // a title, a rule or a line of the notes
            linea = riga.Des.first();
        } else if (intestazioni.isEmpty()) {
            linea = riga.Des.value(0).leftJustified(30) + riga.Des.value(1).rightJustified(16);
        } else {
            // A cell past the headings (the holder's mark) is for the table only: the bold row says it on paper.
            for (int c = 0; c < riga.Des.size() && c < intestazioni.size(); ++c)
                linea += cellaAllineata(riga.Des[c], intestazioni[c]);
        }
        modello.righe << QStringList { linea };
        modello.grassetto << riga.Grassetto;
    }
    return modello;
}

} // namespace tomvera
