#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella TabellaNumerazioneIstat()
{
    return CostruttoreTabella("TabellaNumerazioneIstat")
        .contatore()
        .testi({ "Numero" }, 50)
        .date({ "Data" })
        .testi({ "CodiceAzienda" }, 50)
        .primario();
}

Tabella StampaIstatC59G()
{
    CostruttoreTabella t("StampaIstatC59G");
    t.contatore();
    for (int riga = 1; riga <= 80; ++riga)
        t.campo(memo(QStringLiteral("R%1").arg(riga)));
    return t.primario("Primario");
}

Tabella TabellaMovimentiCentralino()
{
    // Tipo, Linea, NumeroTelefono, Centralino and Stato are widened to 250 after creation.
    return CostruttoreTabella("TabellaMovimentiCentralino")
        .contatore()
        .testi({ "NroCamera" }, 50)
        .testi({ "Tipo" }, 4)
        .testi({ "Linea" }, 1)
        .testi({ "NumeroTelefono" }, 20)
        .date({ "Data", "Ora", "Durata" })
        .doppi({ "Scatti" })
        .testi({ "AddebitatoA" }, 250)
        .testi({ "Centralino", "Stato" }, 50)
        .testi({ "IndiceMovimentoCentralino" }, 250)
        .doppi({ "Importo" })
        .lunghi({ "IndicePrenotazioneAssociata" })
        .primario();
}

Tabella TabellaCorrispondenzaCamereCentralino()
{
    return CostruttoreTabella("TabellaCorrispondenzaCamereCentralino")
        .contatore()
        .testi({ "NroCamera", "CorrispondenzaCentralino" }, 50)
        .primario();
}

Tabella TabellaSveglie()
{
    return CostruttoreTabella("TabellaSveglie")
        .contatore()
        .testi({ "NumeroCamera" }, 50)
        .date({ "Dal", "Al", "Ora" })
        .memo({ "Note" })
        .primario();
}

Tabella TabellaConfigurazioniSky()
{
    return CostruttoreTabella("TabellaConfigurazioniSky")
        .contatore()
        .testi({ "CodiceUtente", "CodiceHotel", "IDChiaveHotel", "operazione" }, 250)
        .date({ "checkin", "checkout" })
        .testi({ "StatoApplicazione" }, 250)
        .date({ "Ora" })
        .testi({ "DNS" }, 250)
        .primario();
}

Tabella TabellaCamereSky()
{
    return CostruttoreTabella("TabellaCamereSky")
        .contatore()
        .testi({ "camera" }, 250)
        .memo({ "NoteCamera" })
        .primario();
}

Tabella TabellaCheckInSky()
{
    return CostruttoreTabella("TabellaCheckInSky")
        .contatore()
        .testi({ "camera" }, 250)
        .date({ "data" })
        .testi({ "esito" }, 250)
        .date({ "ora" })
        .primario();
}

Tabella TabellaCheckOutSky()
{
    return CostruttoreTabella("TabellaCheckOutSky")
        .contatore()
        .testi({ "camera" }, 250)
        .date({ "data" })
        .testi({ "esito" }, 250)
        .date({ "ora" })
        .primario();
}

Tabella TabellaStatoCamereSky()
{
    return CostruttoreTabella("TabellaStatoCamereSky")
        .contatore()
        .testi({ "camera" }, 250)
        .date({ "data", "ora" })
        .testi({ "Stato" }, 250)
        .primario();
}

Tabella TabellaRigheSky()
{
    return CostruttoreTabella("TabellaRigheSky")
        .contatore()
        .testi({ "descrizione_evento", "data_acquisto" }, 250)
        .date({ "data", "ora" })
        .testi({ "tipo_evento", "costo", "descr_camera", "stato" }, 250)
        .primario();
}

Tabella TabellaEsitoOperazioneSky()
{
    return CostruttoreTabella("TabellaEsitoOperazioneSky").contatore().testi({ "Esito", "Errore" }, 250).primario();
}

} // namespace tomvera::schema
