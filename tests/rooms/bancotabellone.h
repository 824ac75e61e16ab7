#pragma once

#include "archiviotemporaneo.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "righeprova.h"
#include "rooms/catalogo.h"

namespace tomvera::test {

// A fresh archive with a session around it (administrator, clock on 10 June 2026), and one-line builders for
// types and rooms.
class BancoTabellone
{
public:
    explicit BancoTabellone(int numeroRighe = 4, int numeroColonne = 5)
        : orologio(QDateTime(QDate(2026, 6, 10), QTime(9, 0)))
        , sessione(t.interazione(), orologio, t.errori())
        , righeProva(t.archivio())
    {
        sessione.PercorsoDB = t.percorso();
        sessione.configurazione->Righe = numeroRighe;
        sessione.configurazione->Colonne = numeroColonne;
        sessione.permessi->amministratore = true;
        sessione.UtenteCollegato = QStringLiteral("Reception");
    }

    Archivio& archivio() { return t.archivio(); }
    InterazioneScriptata& interazione() { return t.interazione(); }

    bool tipologia(const QString& codice, int persone, double colore, const QString& nome = {})
    {
        return t.archivio().comando(QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NroPersone,"
                                                   " NomeTipologia, Colore) VALUES (?, ?, ?, ?)"),
                                    { codice, persone, nome.isEmpty() ? codice : nome, colore });
    }

    bool camera(const QString& nro, int piano, int x, int y, const QString& tipo = {}, const QString& azienda = {})
    {
        return t.archivio().comando(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, X, Y, NroPiano,"
                                                   " CodiceTipologia, CodiceAzienda) VALUES (?, ?, ?, ?, ?, ?)"),
                                    { nro, x, y, piano, tipo, azienda });
    }

    // A reservation of one room with `ospiti` arrived guests named in order.
    qint64 soggiorno(const QString& nro, const QDate& dal, const QDate& al, const QStringList& ospiti = {},
                     bool chiusa = false)
    {
        const qint64 p = righeProva.prenotazione(chiusa);
        righeProva.movimentoCamera(p, nro, dal, al, chiusa);
        int indice = 0;
        for (const QString& nome : ospiti)
            t.archivio().comando(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni"
                                                " (IndicePrenotazioneAssociata, NroCameraCliente, DataArrivo,"
                                                " DataPartenza, Arrivato, RagSociale, IndiceRiga)"
                                                " VALUES (?, ?, ?, ?, 1, ?, ?)"),
                                 { p, nro, dataArchivio(dal), dataArchivio(al), nome, ++indice });
        return p;
    }

    ArchivioTemporaneo t;
    OrologioFisso orologio;
    Sessione sessione;
    RigheProva righeProva;
};

} // namespace tomvera::test
