#include "maintenance/backup.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"
#include "foundation/piattaforma.h"
#include "foundation/utenticollegati.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <sqlite3.h>

namespace tomvera::backup {

namespace {

const QString nomeCopia = QStringLiteral("copia.mdb");

void rimuoviSilenzioso(const QString& percorso)
{
    QFile::remove(percorso);
}

// A file left behind by an interrupted writer would be replayed into whatever file takes the archive's place.
void rimuoviGiornale(const QString& percorsoDB)
{
    QFile::remove(percorsoDB + QStringLiteral("-journal"));
}

// The tables of an SQLite file, read without writing to it (empty when it doesn't open as a database).
// A file left with a crash's journal can only be read by a connection allowed to roll that journal back.
QStringList tabelleDi(const QString& percorso, bool& occupato)
{
    occupato = false;
    QStringList tabelle;
    const QByteArray nome = QFileInfo(percorso).absoluteFilePath().toUtf8();
    for (const int modo : { SQLITE_OPEN_READONLY, SQLITE_OPEN_READWRITE }) {
        sqlite3* db = nullptr;
        int esito = sqlite3_open_v2(nome.constData(), &db, modo, nullptr);
        if (esito == SQLITE_OK) {
            sqlite3_busy_timeout(db, 2000);
            sqlite3_stmt* istruzione = nullptr;
            esito = sqlite3_prepare_v2(db, "SELECT name FROM sqlite_master WHERE type = 'table'", -1, &istruzione,
                                       nullptr);
            while (esito == SQLITE_OK && sqlite3_step(istruzione) == SQLITE_ROW)
                tabelle << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(istruzione, 0)));
            if (esito == SQLITE_OK)
                esito = sqlite3_finalize(istruzione);
            else
                sqlite3_finalize(istruzione);
        }
        sqlite3_close(db);
        occupato = (esito & 0xff) == SQLITE_BUSY || (esito & 0xff) == SQLITE_LOCKED;
        if (esito == SQLITE_OK || (esito & 0xff) != SQLITE_READONLY)
            break;
        tabelle.clear();
    }
    return tabelle;
}

bool intestazioneSQLite(const QString& percorso)
{
    QFile f(percorso);
    static const QByteArray intestazione("SQLite format 3", 16);
    return f.open(QIODevice::ReadOnly) && f.read(intestazione.size()) == intestazione;
}

} // namespace

QString nomeFileBackup(const QDate& giorno)
{
    return giorno.toString(QStringLiteral("ddMMyy")) + QStringLiteral(".mdb");
}

QDate dataDaNomeBackup(const QString& nomeFile)
{
    const QString testo = nomeFile.left(nomeFile.size() - 4);
    static const QRegularExpression cifre(QStringLiteral("^(\\d{2})(\\d{2})(\\d{2}|\\d{4})$"));
    if (const auto m = cifre.match(testo); m.hasMatch()) {
        // A backup is never older than the program: two digits of year are this century, also from 2030 on,
        // where the date mask would read 19xx and the retention pass would delete the newest copies first.
        int anno = m.captured(3).toInt();
        if (m.captured(3).size() == 2)
            anno += 2000;
        return QDate(anno, m.captured(2).toInt(), m.captured(1).toInt());
    }
    const auto data = leggiData(testo);
    return data ? *data : QDate();
}

int numeroDaMantenere(int impostato)
{
    return impostato > 0 ? impostato : Configurazione::BackupDaMantenerePredefiniti;
}

QStringList backupDaCancellare(const QStringList& nomiFile, int daMantenere, const QString& protetto)
{
    QStringList lista = nomiFile;
    QStringList daCancellare;
    const QDate sentinella(3000, 1, 1);
    while (lista.size() > std::max(daMantenere, 1)) {
        QDate piuVecchia = sentinella;
        int indice = -1;
        for (int i = 0; i < lista.size(); ++i) {
            if (!protetto.isEmpty() && lista.at(i).compare(protetto, Qt::CaseInsensitive) == 0)
                continue;
            const QDate data = dataDaNomeBackup(lista.at(i));
            if (data.isValid() && data < piuVecchia) {
                piuVecchia = data;
                indice = i;
            }
        }
        if (indice < 0)
            break;
        daCancellare << lista.takeAt(indice);
    }
    return daCancellare;
}

QString verificaArchivioTomvera(const QString& percorso)
{
    const QFileInfo file(percorso);
    const QString nome = QDir::toNativeSeparators(file.absoluteFilePath());
    if (!file.isFile())
        return QStringLiteral("File non trovato: ") + nome;
    if (file.size() == 0)
        return QStringLiteral("Il file è vuoto (0 byte), non è un archivio di Tomvera: ") + nome;
    if (!intestazioneSQLite(percorso))
        return QStringLiteral("Il file non è un archivio di Tomvera: ") + nome;
    bool occupato = false;
    const QStringList tabelle = tabelleDi(percorso, occupato);
    // A database held by a writer can't be looked into now: the copy that follows waits for it, or says busy.
    if (occupato)
        return QString();
    const auto contiene
        = [&](const char* tabella) { return tabelle.contains(QLatin1String(tabella), Qt::CaseInsensitive); };
    if (!contiene("TabellaVersione") && contiene("TabellaCamereSky"))
        return QStringLiteral("Il file è l'archivio della pay-TV (ArchivioSky), non un archivio di Tomvera: ") + nome;
    for (const char* chiave : { "TabellaVersione", "Configurazioni", "TabellaStrutturaCamere", "TabellaPrenotazioni" })
        if (!contiene(chiave))
            return QStringLiteral("Il file non è un archivio di Tomvera (manca la tabella ") + QLatin1String(chiave)
                + QStringLiteral("): ") + nome;
    return QString();
}

bool copiaCompattata(const QString& sorgente, const QString& destinazione, QString* errore, bool privata,
                     bool* occupato)
{
    if (occupato)
        *occupato = false;
    if (!QFileInfo(sorgente).isFile()) {
        if (errore)
            *errore = QStringLiteral("Archivio non trovato");
        return false;
    }
    // An empty file made beforehand keeps its owner-only permissions through the copy.
    if (privata && !piattaforma::creaFilePrivato(destinazione)) {
        if (errore)
            *errore = QStringLiteral("Impossibile creare il file ") + QDir::toNativeSeparators(destinazione);
        return false;
    }
    sqlite3* db = nullptr;
    const QByteArray percorso = QFileInfo(sorgente).absoluteFilePath().toUtf8();
    // Read-write, so that a journal left by a crash is rolled back before the copy reads the pages: the copy
    // then holds committed data only. A file that can't be written is opened read-only by the engine itself.
    int esito = sqlite3_open_v2(percorso.constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    if (esito == SQLITE_OK) {
        // A writer committing at this moment holds the file for milliseconds: wait for it.
        sqlite3_busy_timeout(db, 5000);
        sqlite3_stmt* istruzione = nullptr;
        esito = sqlite3_prepare_v2(db, "VACUUM INTO ?", -1, &istruzione, nullptr);
        if (esito == SQLITE_OK) {
            const QByteArray dest = QFileInfo(destinazione).absoluteFilePath().toUtf8();
            sqlite3_bind_text(istruzione, 1, dest.constData(), int(dest.size()), SQLITE_TRANSIENT);
            esito = sqlite3_step(istruzione);
            if (esito == SQLITE_DONE)
                esito = SQLITE_OK;
        }
        sqlite3_finalize(istruzione);
    }
    if (esito != SQLITE_OK && errore)
        *errore = QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(esito));
    if (occupato)
        *occupato = (esito & 0xff) == SQLITE_BUSY || (esito & 0xff) == SQLITE_LOCKED;
    sqlite3_close(db);
    if (esito != SQLITE_OK)
        rimuoviSilenzioso(destinazione);
    return esito == SQLITE_OK;
}

bool spostaFile(const QString& da, const QString& a)
{
    if (QFile::rename(da, a))
        return true;
    if (!QFile::copy(da, a))
        return false;
    QFile::remove(da);
    return true;
}

QString EseguiCopiaBackup(const QString& percorsoDB, const QString& cartella, const QString& nomeFile,
                          const QString& cartellaLavoro, bool* occupato)
{
    QDir().mkpath(cartellaLavoro);
    const QString copia = QDir(cartellaLavoro).filePath(nomeCopia);
    rimuoviSilenzioso(copia);
    if (!copiaCompattata(percorsoDB, copia, nullptr, false, occupato))
        return {};
    QDir().mkpath(cartella);
    const QString destinazione = QDir(cartella).filePath(nomeFile);
    // Written beside its final name first, so a full disk never leaves half a backup under a date.
    const QString provvisorio = destinazione + QStringLiteral(".tmp");
    rimuoviSilenzioso(provvisorio);
    if (!QFile::copy(copia, provvisorio))
        return {};
    rimuoviSilenzioso(destinazione);
    if (!QFile::rename(provvisorio, destinazione)) {
        rimuoviSilenzioso(provvisorio);
        return {};
    }
    return destinazione;
}

QStringList CancellaFile(const QString& cartella, int daMantenere, const QDate& oggi)
{
    const QDir dir(cartella);
    const QStringList nomi = dir.entryList({ QStringLiteral("*.mdb") }, QDir::Files, QDir::Name);
    const QStringList daCancellare = backupDaCancellare(nomi, daMantenere, nomeFileBackup(oggi));
    QStringList cancellati;
    for (const QString& nome : daCancellare) {
        if (QFile::remove(dir.filePath(nome)))
            cancellati << nome;
    }
    return cancellati;
}

Impostazioni impostazioniDa(const Configurazione& configurazione)
{
    Impostazioni impostazioni;
    impostazioni.salvataggioAutomatico = configurazione.SalvataggioAutomatico;
    impostazioni.cartellaAutomatica = piattaforma::percorsoLocale(configurazione.PercorsoBackupAutomatico);
    impostazioni.cartellaManuale = piattaforma::percorsoLocale(configurazione.PercorsoBackup);
    impostazioni.daMantenere = numeroDaMantenere(configurazione.NumeroBackupDaMantenere);
    return impostazioni;
}

Impostazioni leggiImpostazioni(Archivio& archivio)
{
    return impostazioniDa(configurazione::leggi(archivio).value_or(Configurazione()));
}

bool archivioOccupato(const QString& percorsoDB, int propri)
{
    return UtentiCollegatiDB(percorsoDB) > propri;
}

Manutenzione::Manutenzione(Interazione& interazione, QString percorsoDB, QString cartellaLavoro,
                           ArchivioOccupato occupato)
    : m_interazione(interazione)
    , m_percorsoDB(std::move(percorsoDB))
    , m_cartellaLavoro(std::move(cartellaLavoro))
    , m_occupato(std::move(occupato))
{
}

QString Manutenzione::percorsoCopia() const
{
    return m_ultimaCopia;
}

QString Manutenzione::nuovaCopiaDiSicurezza() const
{
    // Dated to the second, and never the name of an earlier one: a second restore keeps the first's copy.
    const QString base
        = QStringLiteral("copia_") + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_HHmmss"));
    const QDir cartella(m_cartellaLavoro);
    QString nome = cartella.filePath(base + QStringLiteral(".mdb"));
    for (int n = 2; QFileInfo::exists(nome); ++n)
        nome = cartella.filePath(base + QLatin1Char('_') + QString::number(n) + QStringLiteral(".mdb"));
    return nome;
}

bool Manutenzione::ControllaSalvataggioAutomatico(const Impostazioni& impostazioni, const QDate& oggi)
{
    if (!impostazioni.salvataggioAutomatico)
        return false;
    const QString nome = nomeFileBackup(oggi);
    if (QFileInfo::exists(QDir(impostazioni.cartellaAutomatica).filePath(nome)))
        return false;
    m_interazione.avviso(Interazione::TipoAvviso::Informazione, QStringLiteral("Backup in corso attendere ..."), 600,
                         false);
    QCoreApplication::processEvents();
    const bool fatto
        = !EseguiCopiaBackup(m_percorsoDB, impostazioni.cartellaAutomatica, nome, m_cartellaLavoro).isEmpty();
    CancellaFile(impostazioni.cartellaAutomatica, impostazioni.daMantenere, oggi);
    return fatto;
}

QString Manutenzione::EseguiBackup(const QString& cartella, const QDate& oggi, Origine origine)
{
    const QString nome = nomeFileBackup(oggi);
    const QString domanda = origine == Origine::Configurazioni
        ? QStringLiteral("Eseguo il salvataggio archivio in: ")
            + QDir::toNativeSeparators(QDir(cartella).filePath(nome))
        : QStringLiteral("Eseguo il salvataggio archivio nel percorso indicato?");
    if (!m_interazione.domandaSiNo(domanda))
        return {};
    const QString inUso
        = QStringLiteral("Database in uso\nChiudere le applicazioni di Tomvera attive e ritentare il Backup");
    if (m_occupato && m_occupato(m_percorsoDB)) {
        m_interazione.messaggio(inUso, {}, Interazione::Icona::Avviso);
        return {};
    }
    bool occupato = false;
    const QString fatto = EseguiCopiaBackup(m_percorsoDB, cartella, nome, m_cartellaLavoro, &occupato);
    if (occupato) {
        m_interazione.messaggio(inUso, {}, Interazione::Icona::Avviso);
        return {};
    }
    if (fatto.isEmpty()) {
        m_interazione.messaggio(QStringLiteral("Attenzione, backup non eseguito: impossibile scrivere in ")
                                    + QDir::toNativeSeparators(cartella),
                                {}, Interazione::Icona::Critico);
        return {};
    }
    if (origine == Origine::Configurazioni)
        m_interazione.messaggio(QStringLiteral("Backup Eseguito ") + QDir::toNativeSeparators(fatto));
    else
        m_interazione.messaggio(QStringLiteral("PROCEDURA TERMINATA"));
    return fatto;
}

bool Manutenzione::RipristinaDb(const QString& fileBackup)
{
    if (!m_interazione.domandaSiNo(
            QStringLiteral("Attenzione: un errato ripristino potrebbe causare la perdita di tutti i dati, continuare?"),
            {}, Interazione::Icona::Avviso))
        return false;
    const auto risposta
        = m_interazione.inputBox(QStringLiteral("Confermare l'operazione di ripristino archivio digitando: SI"));
    if (!risposta || risposta->trimmed().toUpper() != QLatin1String("SI"))
        return false;
    if (!piattaforma::percorsoLocaleAssoluto(m_percorsoDB)) {
        m_interazione.messaggio(QStringLiteral("Cartella di destinazione non valida"), {}, Interazione::Icona::Avviso);
        return false;
    }
    if (fileBackup.trimmed().isEmpty()) {
        m_interazione.messaggio(QStringLiteral("Percorso non impostato correttamente"), {}, Interazione::Icona::Avviso);
        return false;
    }
    const QString problemi = QStringLiteral("Problemi nella procedura di ripristino ... ripristino non effettuato");
    if (!QFileInfo(fileBackup).isFile()) {
        m_interazione.messaggio(problemi, {}, Interazione::Icona::Critico);
        return false;
    }
    // Another program's file, or an empty one, would replace the hotel's data with nothing.
    if (const QString estraneo = verificaArchivioTomvera(fileBackup); !estraneo.isEmpty()) {
        m_interazione.messaggio(estraneo + QStringLiteral("\nRipristino non effettuato"), {},
                                Interazione::Icona::Critico);
        return false;
    }
    const QString testoOccupato = QStringLiteral("IN QUESTO MOMENTO L'ARCHIVIO RISULTA OCCUPATO, \n"
                                                 " RITENTARE L'OPERAZIONE DOPO AVER RIAVVIATO IL PROGRAMMA");
    if (m_occupato && m_occupato(m_percorsoDB)) {
        m_interazione.messaggio(testoOccupato, {}, Interazione::Icona::Avviso);
        return false;
    }
    Archivio::chiudiConnessioni(m_percorsoDB);
    QDir().mkpath(m_cartellaLavoro);
    const bool esisteArchivio = QFileInfo::exists(m_percorsoDB);
    const QFileDevice::Permissions permessi = QFile::permissions(m_percorsoDB);
    // The safety copy goes through the engine, after it has rolled back whatever a crash left half written.
    QString copia;
    if (esisteArchivio) {
        copia = nuovaCopiaDiSicurezza();
        bool occupato = false;
        if (!copiaCompattata(m_percorsoDB, copia, nullptr, true, &occupato)) {
            // Someone is writing this very moment, registered or not: the same answer as for a user inside.
            m_interazione.messaggio(occupato ? testoOccupato : problemi, {}, Interazione::Icona::Critico);
            return false;
        }
        m_ultimaCopia = copia;
    }
    const QString provvisorio = m_percorsoDB + QStringLiteral(".ripristino");
    rimuoviSilenzioso(provvisorio);
    if (!copiaCompattata(fileBackup, provvisorio)) {
        m_interazione.messaggio(problemi, {}, Interazione::Icona::Critico);
        return false;
    }
    rimuoviSilenzioso(m_percorsoDB);
    rimuoviGiornale(m_percorsoDB);
    if (!QFile::rename(provvisorio, m_percorsoDB)) {
        if (esisteArchivio && !QFileInfo::exists(m_percorsoDB))
            copiaCompattata(copia, m_percorsoDB);
        rimuoviSilenzioso(provvisorio);
        m_interazione.messaggio(problemi, {}, Interazione::Icona::Critico);
        return false;
    }
    if (esisteArchivio)
        QFile::setPermissions(m_percorsoDB, permessi);
    m_interazione.messaggio(QStringLiteral("Procedura terminata, riavviare il programma"));
    return true;
}

bool Manutenzione::OttimizzazioneArchivio()
{
    const auto parola = m_interazione.inputBox(QStringLiteral("PER EFFETTUARE L'OPERAZIONE DIGITARE: confermo"));
    if (!parola || *parola != QLatin1String("confermo"))
        return false;
    if (!m_interazione.domandaSiNo(QStringLiteral("CONFERMI L'OTTIMIZZAZIONE DEL DATABASE?")))
        return false;
    if (m_occupato && m_occupato(m_percorsoDB)) {
        m_interazione.messaggio(QStringLiteral("Attenzione, il DataBase risulta occupato!\n\n"
                                               "Chiudere la finestra delle configurazioni e ritentare l'operazione."),
                                {}, Interazione::Icona::Avviso);
        return false;
    }
    const QString impossibile = QStringLiteral("ATTENZIONE!   Ottimizzazione Impossibile.     La base-dati è occupata "
                                               "da un'altra applicazione.");
    QDir().mkpath(m_cartellaLavoro);
    const QString compatto = QDir(m_cartellaLavoro).filePath(QStringLiteral("compatto.mdb"));
    const QString vecchio = QDir(m_cartellaLavoro).filePath(QStringLiteral("vecchio.mdb"));
    rimuoviSilenzioso(compatto);
    Archivio::chiudiConnessioni(m_percorsoDB);
    // The new file takes the old one's permissions: a folder shared by a group of users stays shared.
    const QFileDevice::Permissions permessi = QFile::permissions(m_percorsoDB);
    if (!copiaCompattata(m_percorsoDB, compatto)) {
        m_interazione.messaggio(impossibile, {}, Interazione::Icona::Critico);
        return false;
    }
    rimuoviSilenzioso(vecchio);
    if (!spostaFile(m_percorsoDB, vecchio)) {
        rimuoviSilenzioso(compatto);
        m_interazione.messaggio(impossibile, {}, Interazione::Icona::Critico);
        return false;
    }
    rimuoviGiornale(m_percorsoDB);
    if (!spostaFile(compatto, m_percorsoDB)) {
        spostaFile(vecchio, m_percorsoDB);
        m_interazione.messaggio(impossibile, {}, Interazione::Icona::Critico);
        return false;
    }
    QFile::setPermissions(m_percorsoDB, permessi);
    rimuoviSilenzioso(vecchio);
    m_interazione.messaggio(QStringLiteral("Ottimizzazione conclusa"));
    return true;
}

} // namespace tomvera::backup
