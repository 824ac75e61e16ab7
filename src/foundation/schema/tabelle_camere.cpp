#include "foundation/schema/costruttoretabella.h"
#include "foundation/schema/tabelle.h"

namespace tomvera::schema {

Tabella TabellaTipologieCamere()
{
    return CostruttoreTabella("TabellaTipologieCamere")
        .contatore()
        .testi({ "NomeTipologia" }, 250)
        .lunghi({ "NroPersone" })
        .memo({ "Note" })
        .doppi({ "Colore" })
        .testi({ "CodiceTipologia" }, 50)
        .primario()
        .unico("SecondaryKey", { "CodiceTipologia" });
}

Tabella TabellaStrutturaCamere()
{
    return CostruttoreTabella("TabellaStrutturaCamere")
        .contatore()
        .testi({ "NroCamera" }, 50)
        .lunghi({ "X", "Y", "NroPiano" })
        .testi({ "CodiceTipologia", "CodiceAzienda" }, 50)
        .primario()
        .indiceSemplice("SecondaryKey", { "NroCamera" });
}

Tabella TabellaGestioneCamere()
{
    return CostruttoreTabella("TabellaGestioneCamere")
        .contatore()
        .testi({ "NroCamera" }, 50)
        .lunghi({ "NroPiano" })
        .testi({ "CodiceTipologia" }, 50)
        .testi({ "Gruppo" }, 250)
        .lunghi({ "Attivo" })
        .primario();
}

Tabella TabellaListinoCamere()
{
    return CostruttoreTabella("TabellaListinoCamere")
        .contatore()
        .testi({ "Listino", "CodiceTipologia", "Dal", "Al" }, 50)
        .doppi({ "Prezzo", "Iva" })
        .lunghi({ "Giorni" })
        .primario();
}

Tabella TabellaListinoCamereAPersona()
{
    return CostruttoreTabella("TabellaListinoCamereAPersona")
        .contatore()
        .testi({ "Listino" }, 50)
        .testi({ "Trattamento" }, 250)
        .testi({ "Dal", "Al" }, 50)
        .doppi({ "Prezzo", "Iva" })
        .lunghi({ "Giorni" })
        .primario();
}

Tabella TabellaListinoAccessori()
{
    return CostruttoreTabella("TabellaListinoAccessori")
        .contatore()
        .testi({ "Tipo", "Descrizione" }, 250)
        .doppi({ "Prezzo", "Iva" })
        .primario();
}

} // namespace tomvera::schema
