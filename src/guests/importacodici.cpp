#include "guests/importacodici.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/schema/definizione.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>
#include <cmath>
#include <freexl.h>

namespace tomvera {

namespace {

QStringList dividiRigaCsv(const QString& riga, QChar separatore)
{
    QStringList campi;
    QString campo;
    bool virgolette = false;
    for (int i = 0; i < riga.size(); ++i) {
        const QChar c = riga.at(i);
        if (virgolette) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < riga.size() && riga.at(i + 1) == QLatin1Char('"')) {
                    campo += c;
                    ++i;
                } else {
                    virgolette = false;
                }
            } else {
                campo += c;
            }
        } else if (c == QLatin1Char('"') && campo.isEmpty()) {
            virgolette = true;
        } else if (c == separatore) {
            campi << campo.trimmed();
            campo.clear();
        } else {
            campo += c;
        }
    }
    campi << campo.trimmed();
    return campi;
}

QString testoNumero(double v)
{
    // Codes stored as numbers in a sheet (16, 405028001) read as whole numbers.
    if (std::isfinite(v) && std::floor(v) == v && std::fabs(v) < 1e15)
        return QString::number(static_cast<qint64>(v));
    return QString::number(v, 'g', 15);
}

// The bytes 0x80..0x9F of Windows-1252; 0 where the code page leaves them undefined.
constexpr char16_t windows1252[32]
    = { 0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178 };

bool controlloNonAmmesso(char16_t c)
{
    return c < 0x20 && c != u'\t' && c != u'\r' && c != u'\n';
}

std::optional<QString> daWindows1252(const QByteArray& dati)
{
    QString testo;
    testo.reserve(dati.size());
    for (const char byte : dati) {
        const auto b = static_cast<unsigned char>(byte);
        char16_t c = b;
        if (b >= 0x80 && b < 0xA0)
            c = windows1252[b - 0x80];
        if (c == 0 || controlloNonAmmesso(c))
            return std::nullopt;
        testo += QChar(c);
    }
    return testo;
}

// UTF-8 (with or without its mark) or, for older downloads, Windows-1252. UTF-16 and binary files are refused:
// read byte by byte they give a few rows of garbage that would replace a whole table.
std::optional<QString> decodificaTesto(const QByteArray& dati, const QString& percorso, QString& errore)
{
    if (dati.startsWith("\xFF\xFE") || dati.startsWith("\xFE\xFF") || dati.contains('\0')) {
        errore = QStringLiteral("Il file è in UTF-16 o non è un testo: salvarlo come CSV UTF-8 o Windows-1252: ")
            + percorso;
        return std::nullopt;
    }
    const bool marcaUtf8 = dati.startsWith("\xEF\xBB\xBF");
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString testo = utf8.decode(marcaUtf8 ? dati.mid(3) : dati);
    if (!utf8.hasError()) {
        if (std::none_of(testo.cbegin(), testo.cend(), [](QChar c) { return controlloNonAmmesso(c.unicode()); }))
            return testo;
    } else if (!marcaUtf8) {
        if (auto windows = daWindows1252(dati))
            return windows;
    }
    errore = QStringLiteral("Il file non è un testo valido (né UTF-8 né Windows-1252): ") + percorso;
    return std::nullopt;
}

struct ChiudiXls
{
    const void* handle = nullptr;
    ~ChiudiXls()
    {
        if (handle)
            freexl_close(handle);
    }
};

} // namespace

EsitoLettura leggiCsv(const QString& percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        return { std::nullopt, QStringLiteral("Impossibile aprire il file: ") + percorso, {} };
    QString errore;
    const auto testo = decodificaTesto(file.readAll(), percorso, errore);
    if (!testo)
        return { std::nullopt, errore, {} };
    const QStringList righe = testo->split(QLatin1Char('\n'));
    Celle celle;
    QList<int> numeri;
    QChar separatore = QLatin1Char(',');
    bool prima = true;
    for (int n = 0; n < righe.size(); ++n) {
        QString riga = righe.at(n);
        if (riga.endsWith(QLatin1Char('\r')))
            riga.chop(1);
        if (riga.trimmed().isEmpty())
            continue;
        if (prima && riga.count(QLatin1Char(';')) > riga.count(QLatin1Char(',')))
            separatore = QLatin1Char(';');
        prima = false;
        celle << dividiRigaCsv(riga, separatore);
        numeri << n + 1;
    }
    if (celle.isEmpty())
        return { std::nullopt, QStringLiteral("Il file è vuoto: ") + percorso, {} };
    return { celle, {}, numeri };
}

EsitoLettura leggiFoglioXls(const QString& percorso, const QString& foglio)
{
    ChiudiXls xls;
    if (freexl_open(QFile::encodeName(percorso).constData(), &xls.handle) != FREEXL_OK)
        return { std::nullopt, QStringLiteral("Impossibile leggere il file Excel: ") + percorso, {} };
    unsigned int fogli = 0;
    if (freexl_get_info(xls.handle, FREEXL_BIFF_SHEET_COUNT, &fogli) != FREEXL_OK)
        return { std::nullopt, QStringLiteral("Impossibile leggere il file Excel: ") + percorso, {} };
    // The old reader took "name$"; accept the name with or without the dollar.
    QString cercato = foglio.trimmed();
    if (cercato.endsWith(QLatin1Char('$')))
        cercato.chop(1);
    int trovato = -1;
    for (unsigned int i = 0; i < fogli && trovato < 0; ++i) {
        const char* nome = nullptr;
        if (freexl_get_worksheet_name(xls.handle, static_cast<unsigned short>(i), &nome) == FREEXL_OK && nome
            && QString::fromUtf8(nome).compare(cercato, Qt::CaseInsensitive) == 0)
            trovato = static_cast<int>(i);
    }
    if (trovato < 0)
        return { std::nullopt, QStringLiteral("Foglio non trovato nel file Excel: ") + cercato, {} };
    unsigned int righe = 0;
    unsigned short colonne = 0;
    if (freexl_select_active_worksheet(xls.handle, static_cast<unsigned short>(trovato)) != FREEXL_OK
        || freexl_worksheet_dimensions(xls.handle, &righe, &colonne) != FREEXL_OK)
        return { std::nullopt, QStringLiteral("Impossibile leggere il foglio: ") + cercato, {} };
    Celle celle;
    QList<int> numeri;
    for (unsigned int r = 0; r < righe; ++r) {
        QStringList riga;
        bool vuota = true;
        for (unsigned short c = 0; c < colonne; ++c) {
            FreeXL_CellValue cella;
            QString testo;
            if (freexl_get_cell_value(xls.handle, r, c, &cella) == FREEXL_OK) {
                switch (cella.type) {
                case FREEXL_CELL_INT:
                    testo = QString::number(cella.value.int_value);
                    break;
                case FREEXL_CELL_DOUBLE:
                    testo = testoNumero(cella.value.double_value);
                    break;
                case FREEXL_CELL_TEXT:
                case FREEXL_CELL_SST_TEXT:
                case FREEXL_CELL_DATE:
                case FREEXL_CELL_DATETIME:
                case FREEXL_CELL_TIME:
                    testo = QString::fromUtf8(cella.value.text_value).trimmed();
                    break;
                default:
                    break;
                }
            }
            vuota = vuota && testo.isEmpty();
            riga << testo;
        }
        if (!vuota) {
            celle << riga;
            numeri << static_cast<int>(r) + 1;
        }
    }
    if (celle.isEmpty())
        return { std::nullopt, QStringLiteral("Il foglio è vuoto: ") + cercato, {} };
    return { celle, {}, numeri };
}

EsitoLettura leggiFileCodici(const QString& percorso, const QString& foglio)
{
    if (QFileInfo(percorso).suffix().compare(QLatin1String("xls"), Qt::CaseInsensitive) == 0)
        return leggiFoglioXls(percorso, foglio);
    return leggiCsv(percorso);
}

QString parolaTipoAlloggiato(const QString& descrizione)
{
    // The service writes two of the words in two parts; the reservations know them as one.
    const QString d = descrizione.simplified().toUpper();
    if (d == QLatin1String("CAPO FAMIGLIA"))
        return QStringLiteral("CAPOFAMIGLIA");
    if (d == QLatin1String("CAPO GRUPPO"))
        return QStringLiteral("CAPOGRUPPO");
    if (d == QLatin1String("MEMBRO DI GRUPPO"))
        return QStringLiteral("MEMBRO GRUPPO");
    return descrizione.simplified();
}

std::optional<QList<RigaCodice>> righeCodici(TabellaCodici tabella, const Celle& celle)
{
    const DescrizioneTabellaCodici& d = descrizione(tabella);
    const int colonneMinime = d.provincia ? 3 : 2;
    if (celle.isEmpty() || celle.first().size() < colonneMinime)
        return std::nullopt;
    QList<RigaCodice> righe;
    for (int i = 1; i < celle.size(); ++i) {
        const QStringList& c = celle.at(i);
        auto cella = [&](int n) { return n < c.size() ? c.at(n).trimmed() : QString(); };
        RigaCodice r { cella(0), cella(1), d.provincia ? cella(2) : QString() };
        if (tabella == TabellaCodici::Comuni && !r.descrizione.isEmpty()) {
            const QString fine = cella(3);
            if (!fine.isEmpty()) {
                const auto data = leggiData(fine);
                r.descrizione
                    += QStringLiteral(" (Val. fino al ") + (data ? testoData(*data) : fine) + QLatin1Char(')');
            }
        } else if (tabella == TabellaCodici::TipoAlloggiato) {
            r.descrizione = parolaTipoAlloggiato(r.descrizione);
        }
        righe << r;
    }
    return righe;
}

EsitoRigheCodici controllaRigheCodici(TabellaCodici tabella, const EsitoLettura& lettura, const QString& file)
{
    EsitoRigheCodici esito;
    if (!lettura.celle) {
        esito.errore = lettura.errore;
        return esito;
    }
    const Celle& celle = *lettura.celle;
    const DescrizioneTabellaCodici& d = descrizione(tabella);
    // The first row names the columns; a file without it would lose its first code to the header's place.
    if (!celle.first().value(0).trimmed().startsWith(QLatin1String("cod"), Qt::CaseInsensitive)) {
        esito.errore = QStringLiteral("La prima riga non è l'intestazione delle colonne (Codice, Descrizione")
            + (d.provincia ? QStringLiteral(", Provincia") : QString()) + QStringLiteral("): ") + file;
        return esito;
    }
    const auto righe = righeCodici(tabella, celle);
    if (!righe) {
        esito.errore = QStringLiteral("Il file non ha le colonne della tabella ") + QLatin1String(d.parolaCli)
            + QStringLiteral(": ") + file;
        return esito;
    }
    const schema::Tabella definizione = definizioneTabellaCodici(tabella);
    const auto dimensione = [&](const QString& campo) {
        for (const schema::Campo& c : definizione.campi)
            if (c.nome.compare(campo, Qt::CaseInsensitive) == 0)
                return c.dimensione;
        return 0;
    };
    const int maxCodice = dimensione(QStringLiteral("Codice"));
    const int maxDescrizione = dimensione(QLatin1String(d.campoDescrizione));
    const int maxProvincia = d.provincia ? dimensione(QStringLiteral("Provincia")) : 0;
    QList<RigaCodice> valide;
    for (int i = 0; i < righe->size(); ++i) {
        const RigaCodice& r = righe->at(i);
        QString motivo;
        if (r.codice.isEmpty() && r.descrizione.isEmpty())
            motivo = QStringLiteral("riga senza Codice né Descrizione");
        else if (r.codice.isEmpty())
            motivo = QStringLiteral("Codice vuoto");
        else if (r.descrizione.isEmpty())
            motivo = QStringLiteral("Descrizione vuota");
        else if (maxCodice > 0 && r.codice.size() > maxCodice)
            motivo = QStringLiteral("Codice più lungo di %1 caratteri").arg(maxCodice);
        else if (maxDescrizione > 0 && r.descrizione.size() > maxDescrizione)
            motivo = QStringLiteral("Descrizione più lunga di %1 caratteri").arg(maxDescrizione);
        else if (maxProvincia > 0 && r.provincia.size() > maxProvincia)
            motivo = QStringLiteral("Provincia più lunga di %1 caratteri").arg(maxProvincia);
        if (motivo.isEmpty()) {
            valide << r;
            continue;
        }
        // The rows after the header, as the file numbers its lines.
        const int riga = i + 1 < lettura.righeFile.size() ? lettura.righeFile.at(i + 1) : i + 2;
        esito.scartate << QStringLiteral("riga %1: %2").arg(riga).arg(motivo);
    }
    if (valide.isEmpty()) {
        // Emptying a table for nothing is never what the user asked.
        esito.errore = QStringLiteral("Nessuna riga valida nel file")
            + (esito.scartate.isEmpty() ? QString() : QStringLiteral(" (") + esito.scartate.first() + QLatin1Char(')'))
            + QStringLiteral(", la tabella ") + QLatin1String(d.tabella) + QStringLiteral(" non è stata modificata: ")
            + file;
        return esito;
    }
    esito.righe = valide;
    return esito;
}

std::optional<int> scriviRigheCodici(Archivio& archivio, TabellaCodici tabella, const QList<RigaCodice>& righe)
{
    const DescrizioneTabellaCodici& d = descrizione(tabella);
    const QString nome = QLatin1String(d.tabella);
    Transazione transazione(archivio);
    if (!archivio.comando(QStringLiteral("DELETE FROM ") + nome))
        return std::nullopt;
    QString insert
        = QStringLiteral("INSERT INTO ") + nome + QStringLiteral(" (Codice, ") + QLatin1String(d.campoDescrizione);
    // The official files carry no postal code or dialling prefix: those fields are left empty, not null.
    if (d.capEPrefisso)
        insert += QStringLiteral(", Provincia, Cap, PrefissoTelefonico) VALUES (?, ?, ?, '', '')");
    else if (d.provincia)
        insert += QStringLiteral(", Provincia) VALUES (?, ?, ?)");
    else
        insert += QStringLiteral(") VALUES (?, ?)");
    for (const RigaCodice& r : righe) {
        QVariantList valori { r.codice, r.descrizione };
        if (d.provincia)
            valori << r.provincia;
        if (!archivio.comando(insert, valori))
            return std::nullopt;
    }
    if (!transazione.commit())
        return std::nullopt;
    return static_cast<int>(righe.size());
}

QString testoScartate(const QStringList& scartate)
{
    if (scartate.isEmpty())
        return QString();
    constexpr int mostrate = 20;
    QString testo = QStringLiteral("\n\nRighe scartate: ") + QString::number(scartate.size());
    for (int i = 0; i < scartate.size() && i < mostrate; ++i)
        testo += QLatin1Char('\n') + scartate.at(i);
    if (scartate.size() > mostrate)
        testo += QStringLiteral("\n...");
    return testo;
}

ImportazioneTabelle::ImportazioneTabelle(Archivio& archivio, Interazione& interazione)
    : m_archivio(archivio)
    , m_interazione(interazione)
{
}

void ImportazioneTabelle::mImportazioneTabelle_Click()
{
    if (!m_interazione.domandaSiNo(QStringLiteral("Attenzione, procedere con l'importazione?")))
        return;
    const struct
    {
        TabellaCodici tabella;
        const char* domanda;
    } passi[] = {
        { TabellaCodici::Documenti, "Attenzione, reimportare la tabella delle tipologie dei documenti?" },
        { TabellaCodici::Stati, "Attenzione, reimportare la tabella degli stati?" },
        { TabellaCodici::Comuni, "Attenzione, reimportare la tabella dei comuni?" },
        { TabellaCodici::TipoAlloggiato, "Attenzione, reimportare la tabella delle tipologie dei tipi di alloggiato?" },
    };
    for (const auto& p : passi) {
        if (m_interazione.domandaSiNo(QString::fromUtf8(p.domanda)))
            importa(p.tabella);
    }
}

bool ImportazioneTabelle::importa(TabellaCodici tabella)
{
    const DescrizioneTabellaCodici& d = descrizione(tabella);
    m_interazione.messaggio(QStringLiteral("Selezionare il file xls..."), {}, Interazione::Icona::Informazione);
    const auto file = m_interazione.scegliFileDaAprire(QStringLiteral("Selezionare il file xls contenente la tabella ")
                                                           + QLatin1String(d.diChe),
                                                       {}, QStringLiteral("dBase Files (*.xls);;File CSV (*.csv)"));
    std::optional<QString> foglio;
    if (file && !file->isEmpty())
        foglio = m_interazione.inputBox(QStringLiteral("Digitare il nome del foglio da importare:"), {},
                                        QLatin1String(d.foglio));
    if (!file || file->isEmpty() || !foglio || foglio->trimmed().isEmpty()) {
        m_interazione.messaggio(QStringLiteral("Importazione annullata"));
        return false;
    }
    const EsitoRigheCodici controllo = controllaRigheCodici(tabella, leggiFileCodici(*file, *foglio), *file);
    // A sheet that can't be read, or has nothing to put in the table, leaves the table as it was.
    if (!controllo.righe) {
        m_interazione.messaggio(controllo.errore, {}, Interazione::Icona::Critico);
        return false;
    }
    if (!scriviRigheCodici(m_archivio, tabella, *controllo.righe))
        return false;
    m_interazione.messaggio(QStringLiteral("Importazione Terminata") + testoScartate(controllo.scartate));
    return true;
}

} // namespace tomvera
