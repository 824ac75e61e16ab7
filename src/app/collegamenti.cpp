#include "collegamenti.h"

#include "foundation/archivio.h"
#include "foundation/avvio/avvio.h"
#include "foundation/avvio/avvioselezioneutente.h"
#include "foundation/configurazione.h"
#include "foundation/interazione.h"
#include "foundation/orologio.h"
#include "foundation/piattaforma.h"
#include "foundation/sessione.h"
#include "foundation/ui/fconfigurazioniwidget.h"
#include "foundation/ui/finestraavvio.h"
#include "guests/nomicomuni.h"
#include "maintenance/backup.h"
#include "maintenance/schermobackup.h"
#include "maintenance/ui/backupwidget.h"
#include "reservations/ui/collegamentoprenotazioni.h"
#include "rooms/tabellone.h"
#include "rooms/ui/tabelloneavvio.h"

#include <QApplication>
#include <QDialog>
#include <QFileInfo>

namespace tomvera {

namespace {

// This program holds one registration in the connected-users list: anyone beyond it is another user.
bool altriNellArchivio(const QString& percorso)
{
    return backup::archivioOccupato(percorso, 1);
}

backup::Manutenzione manutenzione(Sessione& sessione)
{
    return backup::Manutenzione(sessione.interazione, sessione.PercorsoDB, piattaforma::cartellaProgramma(),
                                &altriNellArchivio);
}

void collegaManutenzione(FinestraAvvio& finestra, Avvio& avvio, Sessione& sessione)
{
    const auto apriBackup = [&finestra, &avvio, &sessione] {
        BackupWidget schermo(std::make_unique<SchermoBackup>(sessione, &altriNellArchivio), &finestra);
        // The archive under this run was replaced: nothing more may be written with the old state.
        if (schermo.exec() == BackupWidget::Ripristinato)
            finestra.fine();
    };
    finestra.registraComando(QStringLiteral("Command8"), apriBackup);
    finestra.registraComando(QStringLiteral("mBackup"), apriBackup);
    finestra.registraComando(QStringLiteral("mOttimizzazioneArchivio"), [&avvio, &sessione] {
        // The window's own connection would keep the old file open under the new one.
        avvio.chiudiConnessione();
        manutenzione(sessione).OttimizzazioneArchivio();
        avvio.apriConnessione();
    });
    avvio.ControllaSalvataggioAutomatico = [&sessione] {
        manutenzione(sessione).ControllaSalvataggioAutomatico(backup::impostazioniDa(*sessione.configurazione),
                                                              sessione.orologio.oggi());
    };
}

// The municipalities of the reference archive (ArchivioCodici.mdb), not of the hotel's own archive.
void trasformaInMaiuscole(Sessione& sessione)
{
    Interazione& ui = sessione.interazione;
    if (!QFileInfo::exists(sessione.PercorsoArchivioCodici)) {
        ui.messaggio(QStringLiteral("Archivio dei codici non trovato: ") + sessione.PercorsoArchivioCodici, {},
                     Interazione::Icona::Critico);
        return;
    }
    Archivio codici(sessione.PercorsoArchivioCodici, sessione.errori);
    if (!codici.apri() || !TrasformaNomiComuni(codici)) {
        ui.messaggio(QStringLiteral("Trasformazione non riuscita: i nomi dei comuni sono rimasti com'erano."), {},
                     Interazione::Icona::Critico);
        return;
    }
    ui.messaggio(QStringLiteral("PROCEDURA TERMINATA"));
}

void collegaConfigurazioni(FinestraAvvio& finestra, Avvio& avvio, Sessione& sessione)
{
    finestra.registraComando(QStringLiteral("mConfigurazioniGenerali"), [&finestra, &avvio, &sessione] {
        const auto collega = [&finestra, &avvio, &sessione](FConfigurazioni& configurazioni) {
            configurazioni.EseguiBackup = [&sessione] {
                manutenzione(sessione).EseguiBackup(backup::impostazioniDa(*sessione.configurazione).cartellaManuale,
                                                    sessione.orologio.oggi(),
                                                    backup::Manutenzione::Origine::Configurazioni);
            };
            configurazioni.OttimizzazioneArchivio = [&avvio, &sessione] {
                avvio.chiudiConnessione();
                manutenzione(sessione).OttimizzazioneArchivio();
                avvio.apriConnessione();
            };
            configurazioni.TrasformaInMaiuscole = [&sessione] { trasformaInMaiuscole(sessione); };
            configurazioni.RipristinaBackup = [&finestra, &sessione] {
                SchermoBackup schermo(sessione, &altriNellArchivio);
                schermo.Form_Load();
                if (!schermo.RipristinaDb_Click())
                    return;
                // The settings screen goes too: the restored archive is read by the next run.
                // Closed without the unsaved-changes question: nothing may be written to the restored archive.
                if (auto* impostazioni = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                    impostazioni->done(QDialog::Rejected);
                finestra.fine();
            };
        };
        FConfigurazioniWidget::apri(sessione, &finestra, collega, [&finestra] { finestra.fine(); });
        finestra.setWindowTitle(avvio.Titolo);
    });
}

void collegaInformazioni(FinestraAvvio& finestra, Sessione& sessione)
{
    finestra.registraComando(QStringLiteral("mInfo"), [&sessione] {
        sessione.interazione.messaggio(
            AvvioSelezioneUtente::NomeProdotto() + QStringLiteral(" ver. ") + AvvioSelezioneUtente::VersioneProgramma()
                + QStringLiteral("\nGestione alberghiera\n\nArchivio: ") + sessione.PercorsoDB,
            QStringLiteral("Info"), Interazione::Icona::Informazione);
    });
}

} // namespace

void collegaComandi(FinestraAvvio& finestra, Avvio& avvio, Sessione& sessione)
{
    collegaManutenzione(finestra, avvio, sessione);
    collegaConfigurazioni(finestra, avvio, sessione);
    collegaInformazioni(finestra, sessione);
    // The planning board fills the central area; the window owns it.
    auto* tabellone = new TabelloneAvvio(finestra, sessione);
    // Clicks on the tiles open the reservation screens; the board refreshes when they close.
    collegaPrenotazioni(tabellone->logica(), sessione, &finestra);
    // Other screens open a reservation through the board's own door, so the board refreshes after it too.
    Tabellone* logicaTabellone = &tabellone->logica();
    collegaArchivi(finestra, sessione, [logicaTabellone](qint64 indice) {
        if (!logicaTabellone->apriPrenotazione)
            return;
        RichiestaPrenotazione richiesta;
        richiesta.tipo = RichiestaPrenotazione::Tipo::Esistente;
        richiesta.IndicePrenotazioneDaAprire = indice;
        logicaTabellone->apriPrenotazione(richiesta);
    });
}

} // namespace tomvera
