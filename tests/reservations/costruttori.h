#pragma once

#include "archiviotemporaneo.h"
#include "foundation/configurazione.h"
#include "foundation/orologio.h"
#include "foundation/permessi.h"
#include "foundation/sessione.h"
#include "reservations/schedaprenotazione.h"

#include <QDateTime>

namespace tomvera::test {

// A fresh archive with a session standing on 2026-06-01, an administrator logged in, and builders for the
// rooms, price lists and guests a reservation needs.
class BancoPrenotazioni
{
public:
    BancoPrenotazioni()
        : orologio(QDateTime(QDate(2026, 6, 1), QTime(9, 0)))
        , sessione(t.interazione(), orologio, t.errori())
    {
        sessione.permessi->amministratore = true;
        sessione.configurazione->IvaPrenotazioni = 10;
    }

    Archivio& archivio() { return t.archivio(); }
    InterazioneScriptata& interazione() { return t.interazione(); }

    void camera(const QString& nro, const QString& tipo = QStringLiteral("DBL"))
    {
        archivio().comando(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, CodiceTipologia, NroPiano) "
                                          "VALUES (?, ?, 1)"),
                           { nro, tipo });
    }
    void listinoCamera(const QString& listino, const QString& tipo, double prezzo, int giorni = 1, double iva = 10)
    {
        archivio().comando(
            QStringLiteral("INSERT INTO TabellaListinoCamere (Listino, CodiceTipologia, Dal, Al, Prezzo, "
                           "Iva, Giorni) VALUES (?, ?, '', '', ?, ?, ?)"),
            { listino, tipo, prezzo, iva, giorni });
    }
    void listinoPersona(const QString& listino, const QString& trattamento, double prezzo)
    {
        archivio().comando(QStringLiteral("INSERT INTO TabellaListinoCamereAPersona (Listino, Trattamento, Dal, Al, "
                                          "Prezzo, Iva, Giorni) VALUES (?, ?, '', '', ?, 10, 1)"),
                           { listino, trattamento, prezzo });
    }

    std::unique_ptr<SchedaPrenotazione> scheda(qint64 indice = 0, const QList<CameraSelezionata>& camere = {})
    {
        auto s = std::make_unique<SchedaPrenotazione>(sessione, archivio());
        s->Form_Load(indice, camere);
        return s;
    }

    // Fills the room entry line and inserts it.
    static void inserisciCamera(SchedaPrenotazione& s, const QString& nc, const QString& arrivo,
                                const QString& partenza, const QString& prezzo = {})
    {
        s.NC = nc;
        s.NC_LostFocus();
        s.Arrivo = arrivo;
        s.Partenza = partenza;
        s.PrezzoCamera = prezzo;
        s.TrovaPrezzoCamera();
        s.Command7_Click();
    }

    // Fills the guest entry line and inserts it.
    static void inserisciOspite(SchedaPrenotazione& s, const QString& cognome, const QString& nome, const QString& tipo,
                                const QString& camera = QStringLiteral("101"))
    {
        s.Command1_Click();
        s.Cliente.imposta(QStringLiteral("Cognome"), cognome);
        s.Cliente.imposta(QStringLiteral("Nome"), nome);
        s.Cliente.imposta(QStringLiteral("TipoDiAlloggiato"), tipo);
        s.Cliente.imposta(QStringLiteral("TipoTrattamento"), QStringLiteral("Mezza Pensione"));
        s.NroCameraCliente_Click(camera);
        s.Command4_Click();
    }

    int conta(const QString& sql) { return archivio().valore(sql).toInt(); }

    ArchivioTemporaneo t;
    OrologioFisso orologio;
    Sessione sessione;
};

} // namespace tomvera::test
