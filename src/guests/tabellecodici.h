#pragma once

#include <QString>
#include <array>

namespace tomvera {

class Archivio;

namespace schema {
struct Tabella;
}

// The four tables of official codes of the guest declaration.
enum class TabellaCodici
{
    Comuni,
    Stati,
    Documenti,
    TipoAlloggiato
};

struct DescrizioneTabellaCodici
{
    TabellaCodici tipo;
    const char* tabella; // "TabellaCodiciComuni"
    const char* campoDescrizione; // "Comune"
    const char* nomeLookup; // the name CercaCodiceTabella takes: "Comune", "Stato", "Documento", "Tipo Alloggiato"
    const char* parolaCli; // "comuni", "stati", "documenti", "tipoalloggiato"
    const char* titoloDescrizione; // grid title of the description column
    const char* cosa; // "comune", "stato", ... in the screen's messages
    const char* articolo; // "il" / "lo"
    const char* foglio; // default sheet of the official spreadsheet
    const char* diChe; // "dei comuni", in the file chooser's title
    bool provincia;
    bool capEPrefisso;
};

const DescrizioneTabellaCodici& descrizione(TabellaCodici tabella);
const std::array<TabellaCodici, 4>& tutteLeTabelleCodici();
// By the word of the command line ("comuni") or the lookup name ("Comune"), any case.
const DescrizioneTabellaCodici* descrizionePerNome(const QString& nome);

// Declaration of a code table and of the region table of the reference archive.
schema::Tabella definizioneTabellaCodici(TabellaCodici tabella);
schema::Tabella definizioneRegioni();

// Official code of a word ("" when not found, or when the table name is unknown).
QString CercaCodiceTabella(Archivio& archivio, const QString& parola, const QString& nomeTabella);
QString CercaCodiceTabella(Archivio& archivio, const QString& parola, TabellaCodici tabella);

// The reference archive ArchivioCodici.mdb: the four tables and Regioni (filled from the province table
// when empty). False when the archive can't be reached.
bool preparaArchivioCodici(Archivio& archivio);

} // namespace tomvera
