#pragma once

#include "foundation/archivio.h"
#include "foundation/formati.h"

#include <QDate>
#include <QTime>

namespace tomvera::test {

// One line per row of the tables the availability queries read. Each returns false when the insert failed.
class RigheProva
{
public:
    explicit RigheProva(Archivio& archivio)
        : m_archivio(archivio)
    {
    }

    // A reservation header; returns its Indice (0 on failure).
    qint64 prenotazione(bool chiusa = false)
    {
        ++m_numero;
        if (!m_archivio.comando(QStringLiteral("INSERT INTO TabellaPrenotazioni (NumeroPrenotazione, DataPrenotazione,"
                                               " PrenotazioneChiusa) VALUES (?, ?, ?)"),
                                { m_numero, QStringLiteral("2026-01-01"), chiusa ? 1 : 0 }))
            return 0;
        return m_archivio.ultimoIndiceInserito();
    }

    bool camera(const QString& nro, int piano, int x = 0, int y = 0)
    {
        return m_archivio.comando(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, X, Y, NroPiano)"
                                                 " VALUES (?, ?, ?, ?)"),
                                  { nro, x, y, piano });
    }

    bool movimentoCamera(qint64 prenotazione, const QString& nro, const QDate& dal, const QDate& al,
                         bool chiusa = false, const QString& tipo = QStringLiteral("PrenotazioneCamera"))
    {
        return m_archivio.comando(QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo,"
                                                 " NroCamera, Dal, Al, PrenotazioneChiusa) VALUES (?, ?, ?, ?, ?, ?)"),
                                  { prenotazione, tipo, nro, valoreData(dal), valoreData(al), chiusa ? 1 : 0 });
    }

    bool articolo(qint64 prenotazione, const QString& numero, const QString& codice, const QDate& dal, const QDate& al,
                  const QString& tipo = QStringLiteral("PrenotazioneArticolo"))
    {
        return m_archivio.comando(QStringLiteral("INSERT INTO TabellaMovimentiSpiaggia (IndicePrenotazioneAssociata,"
                                                 " Tipo, Numero, CodiceArticolo, Dal, Al) VALUES (?, ?, ?, ?, ?, ?)"),
                                  { prenotazione, tipo, numero, codice, valoreData(dal), valoreData(al) });
    }

    // Hours as "HH.MM"; an empty text stores no hour.
    bool sala(qint64 prenotazione, const QString& codice, const QDate& dal, const QDate& al, const QString& daOra,
              const QString& aOra)
    {
        return m_archivio.comando(
            QStringLiteral("INSERT INTO TabellaMovimentiSale (IndicePrenotazioneAssociata, Tipo,"
                           " CodiceTipologia, Dal, Al, DaOra, AOra) VALUES (?, ?, ?, ?, ?, ?, ?)"),
            { prenotazione, QStringLiteral("PrenotazioneSala"), codice, valoreData(dal), valoreData(al), ora(daOra),
              ora(aOra) });
    }

    // arrivato: 1, 0, or -1 for a null flag.
    bool ospite(qint64 prenotazione, const QString& camera, const QDate& arrivo, const QDate& partenza,
                int arrivato = 1)
    {
        return m_archivio.comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni"
                                                 " (IndicePrenotazioneAssociata, NroCameraCliente, DataArrivo,"
                                                 " DataPartenza, Arrivato) VALUES (?, ?, ?, ?, ?)"),
                                  { prenotazione, camera, valoreData(arrivo), valoreData(partenza),
                                    arrivato < 0 ? QVariant(QMetaType(QMetaType::Int)) : QVariant(arrivato) });
    }

private:
    static QVariant ora(const QString& testo)
    {
        const auto t = leggiOra(testo);
        return t ? QVariant(oraArchivio(*t)) : QVariant(QMetaType(QMetaType::QString));
    }

    Archivio& m_archivio;
    int m_numero = 0;
};

inline QDate giugno(int giorno)
{
    return QDate(2026, 6, giorno);
}

} // namespace tomvera::test
