// The guest registry, the official code tables and the price lists on the main window's menus.
#include "collegamenti.h"
#include "foundation/archivio.h"
#include "foundation/sessione.h"
#include "foundation/ui/finestraavvio.h"
#include "guests/archiviocodici.h"
#include "guests/importacodici.h"
#include "guests/schedaanagrafica.h"
#include "guests/ui/archiviocodiciwidget.h"
#include "guests/ui/schedaanagraficawidget.h"
#include "pricelists/schermolistinoaccessori.h"
#include "pricelists/schermolistinocamere.h"
#include "pricelists/ui/listinoaccessoriwidget.h"
#include "pricelists/ui/listinocamerewidget.h"

namespace tomvera {

void collegaArchivi(FinestraAvvio& finestra, Sessione& sessione, std::function<void(qint64)> apriPrenotazione)
{
    finestra.registraComando(QStringLiteral("Anagrafiche"), [&finestra, &sessione, apriPrenotazione] {
        Archivio archivio(sessione.PercorsoDB, sessione.errori);
        SchedaAnagraficaWidget scheda(std::make_unique<SchedaAnagrafica>(sessione, archivio), &finestra);
        if (apriPrenotazione)
            QObject::connect(&scheda, &SchedaAnagraficaWidget::apriPrenotazione, &scheda, apriPrenotazione);
        scheda.exec();
    });
    finestra.registraComando(QStringLiteral("mConfigurazioneTabelle"), [&finestra, &sessione] {
        Archivio archivio(sessione.PercorsoDB, sessione.errori);
        ArchivioCodiciWidget schermo(
            std::make_unique<ArchivioCodici>(
                archivio, sessione.interazione, sessione.PercorsoArchivioCodici,
                ripristinoDaArchivioCodici(archivio, sessione.errori, sessione.PercorsoArchivioCodici)),
            &finestra);
        schermo.exec();
    });
    finestra.registraComando(QStringLiteral("mImportazioneTabelle"), [&sessione] {
        Archivio archivio(sessione.PercorsoDB, sessione.errori);
        ImportazioneTabelle(archivio, sessione.interazione).mImportazioneTabelle_Click();
    });
    finestra.registraComando(QStringLiteral("mListinoCamere"), [&finestra, &sessione] {
        prezzi::ListinoCamereWidget(std::make_unique<prezzi::SchermoListinoCamere>(sessione), &finestra).exec();
    });
    finestra.registraComando(QStringLiteral("mListinoAccessori"), [&finestra, &sessione] {
        prezzi::ListinoAccessoriWidget(std::make_unique<prezzi::SchermoListinoAccessori>(sessione), &finestra).exec();
    });
}

} // namespace tomvera
