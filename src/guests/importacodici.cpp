#include "guests/importacodici.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
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
        return { std::nullopt, QStringLiteral("Impossibile aprire il file: ") + percorso };
    const QByteArray dati = file.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString testo = utf8.decode(dati);
    if (utf8.hasError())
        testo = QString::fromLatin1(dati); // older downloads are in the Windows code page
    if (testo.startsWith(QChar(0xFEFF)))
        testo.remove(0, 1);
    QStringList righe = testo.split(QLatin1Char('\n'));
    Celle celle;
    QChar separatore = QLatin1Char(',');
    bool prima = true;
    for (QString riga : righe) {
        if (riga.endsWith(QLatin1Char('\r')))
            riga.chop(1);
        if (riga.trimmed().isEmpty())
            continue;
        if (prima && riga.count(QLatin1Char(';')) > riga.count(QLatin1Char(',')))
            separatore = QLatin1Char(';');
        prima = false;
        celle << dividiRigaCsv(riga, separatore);
    }
    if (celle.isEmpty())
        return { std::nullopt, QStringLiteral("Il file è vuoto: ") + percorso };
    return { celle, {} };
}

EsitoLettura leggiFoglioXls(const QString& percorso, const QString& foglio)
{
    ChiudiXls xls;
    if (freexl_open(QFile::encodeName(percorso).constData(), &xls.handle) != FREEXL_OK)
        return { std::nullopt, QStringLiteral("Impossibile leggere il file Excel: ") + percorso };
    unsigned int fogli = 0;
    if (freexl_get_info(xls.handle, FREEXL_BIFF_SHEET_COUNT, &fogli) != FREEXL_OK)
        return { std::nullopt, QStringLiteral("Impossibile leggere il file Excel: ") + percorso };
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
        return { std::nullopt, QStringLiteral("Foglio non trovato nel file Excel: ") + cercato };
    unsigned int righe = 0;
    unsigned short colonne = 0;
    if (freexl_select_active_worksheet(xls.handle, static_cast<unsigned short>(trovato)) != FREEXL_OK
        || freexl_worksheet_dimensions(xls.handle, &righe, &colonne) != FREEXL_OK)
        return { std::nullopt, QStringLiteral("Impossibile leggere il foglio: ") + cercato };
    Celle celle;
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
        if (!vuota)
            celle << riga;
    }
    if (celle.isEmpty())
        return { std::nullopt, QStringLiteral("Il foglio è vuoto: ") + cercato };
    return { celle, {} };
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
        if (r.codice.isEmpty() && r.descrizione.isEmpty())
            continue;
        if (tabella == TabellaCodici::Comuni) {
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
    const EsitoLettura lettura = leggiFileCodici(*file, *foglio);
    std::optional<QList<RigaCodice>> righe;
    if (lettura.celle)
        righe = righeCodici(tabella, *lettura.celle);
    // A sheet that can't be read leaves the table as it was.
    if (!righe) {
        m_interazione.messaggio(lettura.errore.isEmpty() ? QStringLiteral("Il foglio non ha le colonne attese")
                                                         : lettura.errore,
                                {}, Interazione::Icona::Critico);
        return false;
    }
    if (!scriviRigheCodici(m_archivio, tabella, *righe))
        return false;
    m_interazione.messaggio(QStringLiteral("Importazione Terminata"));
    return true;
}

} // namespace tomvera
