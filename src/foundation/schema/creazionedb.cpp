#include "foundation/schema/creazionedb.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/codici.h"
#include "foundation/schema/indiciprestazioni.h"
#include "foundation/schema/tabelle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tomvera {

namespace {

struct ArticoloSpiaggia
{
    const char* codice;
    const char* articolo;
    double colore;
    const char* libero;
    const char* occupato;
    const char* tipo;
    double altezzaLibero, larghezzaLibero, altezzaOccupato, larghezzaOccupato;
};

const ArticoloSpiaggia articoliIniziali[] = {
    { "01", "Ombrellone", 12615680, "01libero.gif", "01occupato.gif", "Prenotabile", 1, 1, 0.9, 0.9 },
    { "02", "Ombrellone Hawaiano", 65535, "02libero.gif", "02occupato.gif", "Prenotabile", 2, 2, 1.8, 1.8 },
    { "03", "Cabina", 33023, "03libero.jpg", "03occupato.jpg", "Prenotabile", 1, 1, 1, 1 },
    { "Pass", "Passerella", 8421504, "Passlibero.gif", "Passoccupato.gif", "Non Prenotabile", 1, 1, 1, 1 },
    { "Stab", "Stabilimento", 16384, "Stablibero.gif", "Staboccupato.gif", "Non Prenotabile", 2, 4, 2, 4 },
};

bool fileSQLite(const QString& percorso)
{
    QFile f(percorso);
    static const QByteArray intestazione("SQLite format 3", 16);
    return f.open(QIODevice::ReadOnly) && f.read(intestazione.size()) == intestazione;
}

QString cartellaProgramma()
{
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QDir::currentPath();
}

// The pictures shipped with the program: beside it, or in the shared data of an installation.
QString cartellaImmaginiInstallate()
{
    const QDir programma(cartellaProgramma());
    for (const char* candidata : { "immagini", "data/immagini", "../share/tomvera/immagini" }) {
        if (programma.exists(QLatin1String(candidata)))
            return QDir::cleanPath(programma.filePath(QLatin1String(candidata)));
    }
    return programma.filePath(QStringLiteral("immagini"));
}

} // namespace

CreazioneDB::CreazioneDB(Percorsi percorsi, GestioneErrori& errori, Registro registro)
    : m_percorsi(std::move(percorsi))
    , m_errori(errori)
    , m_registro(std::move(registro))
{
    if (m_percorsi.archivioSky.isEmpty())
        m_percorsi.archivioSky = percorsoSkyAccanto(m_percorsi.archivio);
    if (m_percorsi.archivioCodici.isEmpty())
        m_percorsi.archivioCodici = QDir(cartellaProgramma()).filePath(QStringLiteral("ArchivioCodici.mdb"));
    if (m_percorsi.cartellaImmagini.isEmpty())
        m_percorsi.cartellaImmagini = cartellaImmaginiInstallate();
}

QString CreazioneDB::percorsoSkyAccanto(const QString& archivio)
{
    return QFileInfo(archivio).absoluteDir().filePath(QStringLiteral("ArchivioSky.mdb"));
}

QString CreazioneDB::cartellaImmaginiSpiaggia(const QString& archivio)
{
    return QFileInfo(archivio).absoluteDir().filePath(QStringLiteral("Immagini Spiaggia"));
}

QString CreazioneDB::verificaFileArchivio(const QString& percorso)
{
    const QFileInfo file(percorso);
    const QFileInfo cartella(file.absolutePath());
    if (!cartella.isDir())
        return QStringLiteral("La cartella dell'archivio non esiste: ") + file.absolutePath();
    // The engine writes its journal beside the file, so the folder must be writable even for an existing one.
    if (!cartella.isWritable())
        return QStringLiteral("La cartella dell'archivio non è scrivibile: ") + file.absolutePath();
    if (!file.exists())
        return QString();
    if (!file.isFile())
        return QStringLiteral("Il percorso indicato non è un file: ") + percorso;
    if (!file.isWritable())
        return QStringLiteral("Il file dell'archivio non è scrivibile: ") + percorso;
    // An empty file is what the engine itself makes of a new archive.
    if (file.size() == 0)
        return QString();
    if (!file.isReadable())
        return QStringLiteral("Impossibile leggere il file: ") + percorso;
    if (!fileSQLite(percorso))
        return QStringLiteral("Il file non è un archivio: ") + percorso;
    return QString();
}

void CreazioneDB::scrivi(const QString& riga)
{
    if (m_registro)
        m_registro(riga);
}

void CreazioneDB::applica(Archivio& archivio, const schema::Tabella& tabella)
{
    {
        // One table at a time: an interrupted run leaves each table whole or as it was.
        Transazione transazione(archivio);
        schema::applicaTabella(archivio, tabella);
        transazione.commit();
    }
    const QString nome = tabella.nomeNelRegistro.isEmpty() ? tabella.nome : tabella.nomeNelRegistro;
    scrivi(QStringLiteral("Controllo Tabella ") + nome + QStringLiteral(" Effettuato"));
}

bool CreazioneDB::CreaDB_Click()
{
    if (!verificaFileArchivio(m_percorsi.archivio).isEmpty())
        return false;
    Archivio archivio(m_percorsi.archivio, m_errori);
    if (!archivio.apri(Archivio::Apertura::Crea))
        return false;

    {
        // One commit for the whole pass instead of one per table: a run cut short repeats it from the top.
        Transazione tutte(archivio);
        for (const schema::Tabella& tabella : schema::tabelleArchivio())
            applica(archivio, tabella);
        // Tables that could not be written (a locked or read-only file) are no upgrade at all.
        if (!tutte.commit())
            return false;
    }
    ValorizzaCampiNulli(archivio);
    CreaArchivioSky();
    copiaCodici(archivio);
    CreaArticoliSpiaggia(archivio);
    AumentaDimensioneCampi(archivio);
    {
        Transazione indici(archivio);
        schema::applicaIndiciPrestazioni(archivio);
        indici.commit();
    }
    scrivi(QStringLiteral("COMANDO ESEGUITO"));
    return true;
}

void CreazioneDB::ValorizzaCampiNulli(Archivio& archivio)
{
    // Each step touches only the rows whose field is still null, so a second run changes nothing. One commit
    // for all steps: a failed step is skipped and doesn't undo the others.
    Transazione transazione(archivio);
    const QString ospiti = QStringLiteral("TabellaAnagraficheAssociatePrenotazioni");

    // Documents that predate the split count as paid.
    archivio.comandoSenzaGestione(
        QStringLiteral("UPDATE Testate SET "
                       "TotalePagato = CASE WHEN TotalePagato IS NULL "
                       "  THEN coalesce(Totale, 0) - coalesce(TotaleNonPagato, 0) ELSE TotalePagato END, "
                       "TotaleNonPagato = CASE WHEN TotaleNonPagato IS NULL "
                       "  THEN CASE WHEN TotalePagato IS NULL THEN 0 ELSE coalesce(Totale, 0) - TotalePagato END "
                       "  ELSE TotaleNonPagato END "
                       "WHERE TotalePagato IS NULL OR TotaleNonPagato IS NULL"));

    const QString residenza = QStringLiteral(
        " SET ResidenzaIstat = CASE WHEN coalesce(ResidenzaItaliana, 0) <> 0 THEN coalesce(Provincia, '') "
        "ELSE coalesce(Nazione, '') END WHERE ResidenzaIstat IS NULL");
    archivio.comandoSenzaGestione(QStringLiteral("UPDATE TabellaAnagrafiche") + residenza);
    archivio.comandoSenzaGestione(QStringLiteral("UPDATE ") + ospiti + residenza);

    archivio.comandoSenzaGestione(QStringLiteral(
        "UPDATE Configurazioni SET NascondiFirmeSchedaDiNotificaDichiarante = "
        "coalesce(NascondiFirmeSchedaDiNotifica, 0) WHERE NascondiFirmeSchedaDiNotificaDichiarante IS NULL"));
    archivio.comandoSenzaGestione(
        QStringLiteral("UPDATE Configurazioni SET MessaggioModuloArrivo = coalesce(MessaggioFineDoc, ''), "
                       "MostraMessaggioModuloArrivo = coalesce(MostraMessaggioFineDoc, 0) "
                       "WHERE MessaggioModuloArrivo IS NULL"));

    // The guests of a reservation keep the order in which they were entered.
    archivio.comandoSenzaGestione(
        QStringLiteral("UPDATE ") + ospiti
        + QStringLiteral(" SET IndiceRiga = (SELECT count(*) FROM TabellaAnagraficheAssociatePrenotazioni AS a "
                         "WHERE a.IndicePrenotazioneAssociata IS "
                         "TabellaAnagraficheAssociatePrenotazioni.IndicePrenotazioneAssociata "
                         "AND a.Indice <= TabellaAnagraficheAssociatePrenotazioni.Indice) WHERE IndiceRiga IS NULL"));

    archivio.comandoSenzaGestione(
        QStringLiteral("UPDATE TabellaListinoSale SET Giorno = ? WHERE Giorno = '' OR Giorno IS NULL"),
        { QStringLiteral("<Tutti>") });
    archivio.comandoSenzaGestione(QStringLiteral("UPDATE TabellaPrenotazioni SET Saldato = CASE WHEN Stato = ? "
                                                 "THEN 1 ELSE 0 END WHERE Indice > 0 AND Saldato IS NULL"),
                                  { QStringLiteral("Saldato") });

    const QString arrivato = QStringLiteral(
        " SET Arrivato = CASE WHEN coalesce(NroArrivo, 0) <> 0 THEN 1 ELSE 0 END WHERE Arrivato IS NULL");
    archivio.comandoSenzaGestione(QStringLiteral("UPDATE ") + ospiti + arrivato);
    archivio.comandoSenzaGestione(QStringLiteral("UPDATE TabellaPrenotazioniRistorante") + arrivato);

    // An unknown word gets an empty code, as the lookup gives it.
    archivio.comandoSenzaGestione(
        QStringLiteral("UPDATE ") + ospiti
        + QStringLiteral(
            " SET CodiceTipoDiAlloggiato = coalesce((SELECT c.Codice FROM TabellaCodiciTipoAlloggiato AS c "
            "WHERE c.TipoAlloggiato = trim(TabellaAnagraficheAssociatePrenotazioni.TipoDiAlloggiato) "
            "ORDER BY c.Indice LIMIT 1), '') WHERE CodiceTipoDiAlloggiato IS NULL"));

    archivio.comandoSenzaGestione(QStringLiteral(
        "UPDATE TabellaPrenotazioni SET PrenotazioneChiusa = 0 WHERE Indice > 0 AND PrenotazioneChiusa IS NULL"));
    // Zero kept no automatic backup at all: an unset or non-positive number becomes a week's worth.
    archivio.comandoSenzaGestione(
        QStringLiteral("UPDATE Configurazioni SET NumeroBackupDaMantenere = ? "
                       "WHERE NumeroBackupDaMantenere IS NULL OR NumeroBackupDaMantenere <= 0"),
        { Configurazione::BackupDaMantenerePredefiniti });
    archivio.comandoSenzaGestione(QStringLiteral("UPDATE TabellaMovimenti SET PrenotazioneChiusa = 0 "
                                                 "WHERE Indice > 0 AND PrenotazioneChiusa IS NULL AND Tipo = ?"),
                                  { QStringLiteral("PrenotazioneCamera") });
    transazione.commit();
}

bool CreazioneDB::CreaArchivioSky()
{
    if (!verificaFileArchivio(m_percorsi.archivioSky).isEmpty())
        return false;
    Archivio sky(m_percorsi.archivioSky, m_errori);
    if (!sky.apri(Archivio::Apertura::Crea))
        return false;
    Transazione tutte(sky);
    for (const schema::Tabella& tabella : schema::tabelleArchivioSky())
        applica(sky, tabella);
    tutte.commit();
    return true;
}

void CreazioneDB::copiaCodici(Archivio& archivio)
{
    const QFileInfo file(m_percorsi.archivioCodici);
    // The reference may sit in a read-only program folder: it is only read.
    if (!file.isFile() || !fileSQLite(file.filePath()))
        return;
    Archivio riferimento(file.filePath(), m_errori);
    if (!riferimento.apri(Archivio::Apertura::Esistente))
        return;
    using schema::ModoCopiaCodici;
    schema::CopiaCodiciComuni(archivio, riferimento, ModoCopiaCodici::Importa);
    schema::CopiaCodiciStati(archivio, riferimento, ModoCopiaCodici::Importa);
    schema::CopiaCodiciTipoAlloggiato(archivio, riferimento, ModoCopiaCodici::Importa);
    schema::CopiaCodiciDocumenti(archivio, riferimento, ModoCopiaCodici::Importa);
}

void CreazioneDB::CreaArticoliSpiaggia(Archivio& archivio)
{
    copiaImmaginiSpiaggia();
    QSqlQuery presenti(archivio.connessione());
    if (!presenti.exec(QStringLiteral("SELECT 1 FROM TabellaTipologieArticoliSpiaggia WHERE Indice > 0 LIMIT 1"))
        || presenti.next())
        return;
    presenti.finish();

    Transazione transazione(archivio);
    bool ok = true;
    for (const ArticoloSpiaggia& a : articoliIniziali) {
        ok = ok
            && archivio.comandoSenzaGestione(
                QStringLiteral("INSERT INTO TabellaTipologieArticoliSpiaggia (CodiceArticolo, Articolo, Colore, "
                               "PercorsoImmagineArticoloLibero, PercorsoImmagineArticoloOccupato, Tipo, "
                               "AltezzaArticoloLibero, LarghezzaArticoloLibero, AltezzaArticoloOccupato, "
                               "LarghezzaArticoloOccupato) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                { QLatin1String(a.codice), QLatin1String(a.articolo), a.colore, QLatin1String(a.libero),
                  QLatin1String(a.occupato), QLatin1String(a.tipo), a.altezzaLibero, a.larghezzaLibero,
                  a.altezzaOccupato, a.larghezzaOccupato });
    }
    if (ok)
        transazione.commit();
}

void CreazioneDB::copiaImmaginiSpiaggia()
{
    // The map loads the pictures from beside the archive; the shipped ones are put there once, and a picture
    // the user replaced is never overwritten.
    const QDir origine(m_percorsi.cartellaImmagini);
    if (!origine.exists())
        return;
    const QString destinazione = cartellaImmaginiSpiaggia(m_percorsi.archivio);
    for (const ArticoloSpiaggia& a : articoliIniziali) {
        for (const char* nome : { a.libero, a.occupato }) {
            const QString sorgente = origine.filePath(QLatin1String(nome));
            const QString copia = QDir(destinazione).filePath(QLatin1String(nome));
            if (!QFileInfo::exists(sorgente) || QFileInfo::exists(copia))
                continue;
            if (QDir().mkpath(destinazione))
                QFile::copy(sorgente, copia);
        }
    }
}

void CreazioneDB::AumentaDimensioneCampi(Archivio& archivio)
{
    for (const char* campo : { "Centralino", "Linea", "NumeroTelefono", "Stato", "Tipo" })
        schema::allargaCampoTesto(archivio, QStringLiteral("TabellaMovimentiCentralino"), QLatin1String(campo), 250);
}

} // namespace tomvera
