#pragma once

#include "archiviotemporaneo.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/tabelle.h"
#include "guests/anagrafiche.h"

namespace tomvera::test {

// A fresh archive with every table of the registry, and one-line builders for cards and code rows.
class ArchivioOspiti : public ArchivioTemporaneo
{
public:
    // The registry's own tables only: quicker than the whole creation, which has its own tests.
    ArchivioOspiti()
        : ArchivioTemporaneo(false)
    {
        Transazione transazione(archivio());
        for (const schema::Tabella& t :
             { schema::TabellaAnagrafiche(), schema::TabellaAnagraficheAssociatePrenotazioni(),
               schema::TabellaCodiciComuni(), schema::TabellaCodiciStati(), schema::TabellaCodiciDocumenti(),
               schema::TabellaCodiciTipoAlloggiato() })
            schema::applicaTabella(archivio(), t);
        transazione.commit();
    }

    qint64 ospite(const QString& cognome, const QString& nome, const QString& codice = {})
    {
        Anagrafica a;
        a.Cognome = cognome;
        a.Nome = nome;
        a.RagSociale = cognome + QLatin1Char(' ') + nome;
        a.CodiceAnagrafica = codice;
        scriviAnagrafica(archivio(), a);
        return a.Indice;
    }

    void comune(const QString& codice, const QString& nome, const QString& provincia, const QString& cap = {})
    {
        archivio().comando(
            QStringLiteral("INSERT INTO TabellaCodiciComuni (Codice, Comune, Provincia, Cap) VALUES (?, ?, ?, ?)"),
            { codice, nome, provincia, cap });
    }
};

} // namespace tomvera::test
