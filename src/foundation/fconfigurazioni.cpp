#include "foundation/fconfigurazioni.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/immagini.h"
#include "foundation/interazione.h"
#include "foundation/piattaforma.h"
#include "foundation/schema/definizione.h"
#include "foundation/sessione.h"
#include "foundation/variabili.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHostInfo>
#include <QNetworkInterface>
#include <QSqlRecord>
#include <cmath>
#include <variant>

namespace tomvera {

namespace aliquote {

namespace {

QString percentuale(double v)
{
    return formattaNumero(v, std::fmod(v, 1.0) == 0 ? 0 : 2, false) + QLatin1Char('%');
}

// Where a VAT percentage is stored row by row: document lines, reservation and beach rows, price lists.
const char* const TabelleConIva[] = { "Righe",
                                      "TabellaMovimenti",
                                      "TabellaMovimentiSpiaggia",
                                      "TabellaMovimentiSale",
                                      "TabellaListinoCamere",
                                      "TabellaListinoCamereAPersona",
                                      "TabellaListinoAccessori",
                                      "TabellaListinoSale",
                                      "TabellaListinoSpiaggia" };

} // namespace

bool stessaAliquota(double a, double b)
{
    return std::llround(a * 100) == std::llround(b * 100);
}

UsoAliquote leggiUso(Archivio& archivio)
{
    UsoAliquote uso;
    for (const char* t : TabelleConIva) {
        const QString tabella = QString::fromLatin1(t);
        if (!schema::campiEsistenti(archivio, tabella).contains(QStringLiteral("Iva"), Qt::CaseInsensitive))
            continue;
        const auto righe = archivio.righe(QStringLiteral("SELECT DISTINCT Iva FROM ") + tabella
                                          + QStringLiteral(" WHERE Iva IS NOT NULL AND Iva <> 0"));
        for (const QSqlRecord& r : righe)
            uso.aliquoteUsate << r.value(0).toDouble();
    }
    const QStringList campiTestate = schema::campiEsistenti(archivio, QStringLiteral("Testate"));
    for (int k = 0; k < 9; ++k) {
        const QString imp = QStringLiteral("Imp") + QString::number(k);
        if (!campiTestate.contains(imp, Qt::CaseInsensitive))
            continue;
        uso.slotUsati[static_cast<size_t>(k)]
            = archivio.esisteRiga(QStringLiteral("SELECT 1 FROM Testate WHERE ") + imp + QStringLiteral(" <> 0"));
    }
    return uso;
}

std::array<bool, 9> slotBloccati(const std::array<double, 9>& aliquote, const UsoAliquote& uso)
{
    std::array<bool, 9> bloccati {};
    for (size_t k = 0; k < 9; ++k) {
        bloccati[k] = uso.slotUsati[k];
        if (aliquote[k] == 0)
            continue;
        for (double usata : uso.aliquoteUsate)
            if (stessaAliquota(usata, aliquote[k]))
                bloccati[k] = true;
    }
    return bloccati;
}

QString controlla(const Configurazione& c, const std::array<double, 9>& memorizzate,
                  const std::array<bool, 9>& bloccati)
{
    const QString iva = c.UsaImposta ? QStringLiteral("Imposta") : QStringLiteral("Iva");
    const std::pair<const char*, double> predefinite[] = {
        { "Prenotazioni", c.IvaPrenotazioni },
        { "Abbuono", c.IvaAbbuono },
        { "Ristorante", c.IvaRistorante },
        { "Prenotazioni Sale", c.IvaPrenotazioniSale },
        { "Spiaggia", c.IvaSpiaggia },
        { "Abbuono Spiaggia", c.IvaAbbuonoSpiaggia },
        { "Sky", c.IvaSky },
        { "Centralino", c.IvaCentralino },
    };
    auto fuoriScala = [](double v) { return !(v >= 0 && v < 100); };
    for (size_t k = 0; k < 9; ++k)
        if (fuoriScala(c.ValIva[k]))
            return QStringLiteral("Attenzione, le aliquote ") + iva
                + QStringLiteral(" devono essere comprese tra 0 e 99,99!");
    for (const auto& p : predefinite)
        if (fuoriScala(p.second))
            return QStringLiteral("Attenzione, le aliquote ") + iva
                + QStringLiteral(" devono essere comprese tra 0 e 99,99!");
    for (size_t k = 0; k < 9; ++k)
        if (bloccati[k] && !stessaAliquota(c.ValIva[k], memorizzate[k]))
            return QStringLiteral("Attenzione, l'aliquota ") + iva + QLatin1Char(' ') + percentuale(memorizzate[k])
                + QStringLiteral(" è utilizzata da documenti o listini e non può essere modificata!");
    for (size_t k = 0; k < 9; ++k)
        for (size_t j = k + 1; j < 9; ++j)
            if (c.ValIva[k] != 0 && stessaAliquota(c.ValIva[k], c.ValIva[j]))
                return QStringLiteral("Attenzione, l'aliquota ") + iva + QLatin1Char(' ') + percentuale(c.ValIva[k])
                    + QStringLiteral(" è inserita più volte nella tabella!");
    // Documents accept only rates of the table: a default outside it would give lines they refuse.
    for (const auto& p : predefinite) {
        if (p.second == 0)
            continue;
        bool presente = false;
        for (double v : c.ValIva)
            presente = presente || stessaAliquota(v, p.second);
        if (!presente)
            return QStringLiteral("Attenzione, l'aliquota ") + iva + QLatin1Char(' ') + QString::fromUtf8(p.first)
                + QStringLiteral(" (") + percentuale(p.second)
                + QStringLiteral(") non è presente nella tabella delle aliquote!");
    }
    return {};
}

} // namespace aliquote

FConfigurazioni::FConfigurazioni(Sessione& sessione)
    : m_sessione(sessione)
{
}

void FConfigurazioni::Form_Load()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    archivio.apri();
    valori = configurazione::leggi(archivio).value_or(Configurazione());
    // Zero would leave the automatic pass nothing to keep: propose the default instead.
    if (valori.NumeroBackupDaMantenere <= 0)
        valori.NumeroBackupDaMantenere = Configurazione::BackupDaMantenerePredefiniti;
    m_ivaMemorizzate = valori.ValIva;
    CaricaLogo(archivio);
    Variabili variabili(archivio);
    MostraIpPrivato = variabili.LeggiVariabileNumero(chiavi::F_Configurazioni_MostraIpPrivato) != 0;
    MostraIpPubblico = variabili.LeggiVariabileNumero(chiavi::F_Configurazioni_MostraIpPubblico) != 0;
    MostraNome = variabili.LeggiVariabileNumero(chiavi::F_Configurazioni_MostraNome) != 0;
    CaricaPasswordAmministratore(archivio);
    BloccaIveInUso();
    CaricaUtenti();
    PulisciCampiUtente();
    memorizzaStato();
}

QString FConfigurazioni::cartellaProgramma() const
{
    return m_sessione.PercorsoProgramma.isEmpty() ? piattaforma::cartellaProgramma() : m_sessione.PercorsoProgramma;
}

void FConfigurazioni::CaricaLogo(Archivio& archivio)
{
    Logo.clear();
    m_fileLogo.clear();
    m_logoModificato = false;
    const QVariant indice = archivio.valore(QStringLiteral("SELECT min(Indice) FROM Configurazioni"));
    if (indice.isNull())
        return;
    const QString file = CaricaImmagine(
        archivio, { QStringLiteral("Configurazioni"), QStringLiteral("Logo"), QStringLiteral("Indice"), indice },
        cartellaProgramma());
    if (file.isEmpty())
        return;
    QFile f(file);
    if (f.open(QIODevice::ReadOnly))
        Logo = f.readAll();
}

void FConfigurazioni::CaricaPasswordAmministratore(Archivio& archivio)
{
    m_passwordAmministratore = utenti::LeggiPasswordUtente(archivio, utenti::NomeAmministratore());
    PasswordProgramma.clear();
    ConfermaPasswordProgramma.clear();
    RimuoviPasswordProgramma = false;
}

void FConfigurazioni::BloccaIveInUso()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    m_bloccate = aliquote::slotBloccati(m_ivaMemorizzate, aliquote::leggiUso(archivio));
}

bool FConfigurazioni::ControlloIve()
{
    const QString errore = aliquote::controlla(valori, m_ivaMemorizzate, m_bloccate);
    if (errore.isEmpty())
        return true;
    m_sessione.interazione.messaggio(errore, {}, Interazione::Icona::Avviso);
    return false;
}

bool FConfigurazioni::Registra_Click()
{
    Interazione& ui = m_sessione.interazione;
    if (valori.CheckInDalleOre < valori.CheckOutEntroLeOre) {
        ui.messaggio(QStringLiteral(
            "Attenzione l'ora di check-in delle camere deve essere maggiore o uguale a quella del check-out!"));
        return false;
    }
    // Another machine may have used a rate since the screen opened.
    BloccaIveInUso();
    if (!ControlloIve())
        return false;
    QString nuovaPassword = m_passwordAmministratore;
    if (RimuoviPasswordProgramma)
        nuovaPassword.clear();
    else if (!PasswordProgramma.isEmpty() || !ConfermaPasswordProgramma.isEmpty()) {
        if (!utenti::CorrettezzaPassword(ui, PasswordProgramma, ConfermaPasswordProgramma))
            return false;
        nuovaPassword = utenti::CifraPassword(PasswordProgramma);
    }

    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    {
        Transazione transazione(archivio);
        bool ok = configurazione::salva(archivio, valori);
        if (ok && nuovaPassword != m_passwordAmministratore)
            ok = utenti::salvaPasswordAmministratore(archivio, nuovaPassword);
        if (ok && m_logoModificato) {
            const QVariant indice = archivio.valore(QStringLiteral("SELECT min(Indice) FROM Configurazioni"));
            if (m_fileLogo.isEmpty())
                ok = archivio.comando(QStringLiteral("UPDATE Configurazioni SET Logo = NULL WHERE Indice = ?"),
                                      { indice });
            else
                ok = SalvaImmagine(
                    archivio,
                    { QStringLiteral("Configurazioni"), QStringLiteral("Logo"), QStringLiteral("Indice"), indice },
                    m_fileLogo, ModoImmagine::Edit);
        }
        if (!ok || !transazione.commit()) {
            ui.messaggio(QStringLiteral("Attenzione, impossibile salvare le configurazioni!"), {},
                         Interazione::Icona::Critico);
            return false;
        }
    }
    m_passwordAmministratore = nuovaPassword;
    m_ivaMemorizzate = valori.ValIva;
    m_logoModificato = false;
    m_fileLogo.clear();
    PasswordProgramma.clear();
    ConfermaPasswordProgramma.clear();
    RimuoviPasswordProgramma = false;
    SalvaConfigurazioneSky();
    if (dopoSalvataggio)
        dopoSalvataggio();
    CaricaConfigurazione(m_sessione);
    configurazione::calcolaValoriDerivati(valori);
    BloccaIveInUso();
    memorizzaStato();
    operazioneEffettuata(ui);
    return true;
}

void FConfigurazioni::memorizzaStato()
{
    m_valoriMemorizzati = valori;
}

bool FConfigurazioni::modificato() const
{
    if (m_logoModificato || RimuoviPasswordProgramma || !PasswordProgramma.isEmpty()
        || !ConfermaPasswordProgramma.isEmpty() || valori.ValIva != m_valoriMemorizzati.ValIva)
        return true;
    for (const configurazione::Campo& campo : configurazione::campi()) {
        if (!campo.delloSchermo)
            continue;
        const bool diverso
            = std::visit([&](auto membro) { return !(valori.*membro == m_valoriMemorizzati.*membro); }, campo.membro);
        if (diverso)
            return true;
    }
    return false;
}

bool FConfigurazioni::Fine_Click()
{
    if (!modificato())
        return true;
    if (!m_sessione.interazione.domandaSiNo(QStringLiteral("Salvare le modifiche apportate?")))
        return true;
    return Registra_Click();
}

bool FConfigurazioni::SalvaConfigurazioneSky()
{
    // The pay-TV tool reads its connection data from its own archive, beside the main one.
    const QString percorso = m_sessione.PercorsoArchivioSky;
    if (percorso.isEmpty() || !QFileInfo::exists(percorso))
        return false;
    Archivio sky(percorso, m_sessione.errori);
    if (!sky.apri() || !schema::tabellaEsiste(sky, QStringLiteral("TabellaConfigurazioniSky")))
        return false;
    const QVariantList dati { valori.CodiceUtente, valori.CodiceHotel, valori.IDChiaveHotel, valori.DNS };
    const QVariant indice = sky.valore(QStringLiteral("SELECT min(Indice) FROM TabellaConfigurazioniSky"));
    if (indice.isNull())
        return sky.comando(QStringLiteral("INSERT INTO TabellaConfigurazioniSky (CodiceUtente, CodiceHotel, "
                                          "IDChiaveHotel, DNS) VALUES (?, ?, ?, ?)"),
                           dati);
    return sky.comando(QStringLiteral("UPDATE TabellaConfigurazioniSky SET CodiceUtente = ?, CodiceHotel = ?, "
                                      "IDChiaveHotel = ?, DNS = ? WHERE Indice = ?"),
                       dati + QVariantList { indice });
}

bool FConfigurazioni::ControllaCartellaBackup(QString& cartella)
{
    const QString predefinita = piattaforma::cartellaBackupPredefinita();
    auto normalizza = [](const QString& p) { return QDir::cleanPath(piattaforma::percorsoLocale(p)); };
    if (normalizza(cartella) == normalizza(predefinita))
        return true;
    QString senzaSeparatore = QDir::toNativeSeparators(predefinita);
    if (senzaSeparatore.endsWith(QDir::separator()))
        senzaSeparatore.chop(1);
    const QString domanda = QStringLiteral("Attenzione è consigliato utilizzare la cartella di backup automatico ")
        + QStringLiteral(" predefinita (") + senzaSeparatore + QDir::separator()
        + QStringLiteral("), Continuare ugualmente?");
    if (m_sessione.interazione.domandaSiNo(domanda, {}, Interazione::Icona::Avviso))
        return true;
    cartella = predefinita;
    return false;
}

void FConfigurazioni::PercorsoBackup_DblClick()
{
    const auto scelta = m_sessione.interazione.scegliCartella(QStringLiteral("PERCORSO BACKUP MANUALE"),
                                                              piattaforma::percorsoLocale(valori.PercorsoBackup));
    if (!scelta || scelta->isEmpty())
        return;
    QString cartella = *scelta;
    if (!cartella.endsWith(QLatin1Char('/')) && !cartella.endsWith(QDir::separator()))
        cartella += QDir::separator();
    ControllaCartellaBackup(cartella);
    valori.PercorsoBackup = cartella;
}

void FConfigurazioni::SalvaSceltaRete()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    Variabili variabili(archivio);
    variabili.SalvaVariabileNumero(chiavi::F_Configurazioni_MostraIpPrivato, MostraIpPrivato ? 1 : 0);
    variabili.SalvaVariabileNumero(chiavi::F_Configurazioni_MostraIpPubblico, MostraIpPubblico ? 1 : 0);
    variabili.SalvaVariabileNumero(chiavi::F_Configurazioni_MostraNome, MostraNome ? 1 : 0);
}

QString FConfigurazioni::ipPrivato()
{
    const auto indirizzi = QNetworkInterface::allAddresses();
    for (const QHostAddress& a : indirizzi)
        if (a.protocol() == QAbstractSocket::IPv4Protocol && !a.isLoopback())
            return a.toString();
    return QStringLiteral("127.0.0.1");
}

QString FConfigurazioni::nomeComputer()
{
    return QHostInfo::localHostName();
}

bool FConfigurazioni::CaricaLogo_Click()
{
    const auto file = m_sessione.interazione.scegliFileDaAprire(
        QStringLiteral("Logo"), QDir::homePath(), QStringLiteral("Immagini (*.bmp *.jpg *.jpeg *.gif *.png)"));
    if (!file || file->isEmpty())
        return false;
    const auto dati = leggiFileImmagine(*file);
    if (!dati) {
        m_sessione.interazione.messaggio(QStringLiteral("Impossibile leggere il file: ") + *file, {},
                                         Interazione::Icona::Critico);
        return false;
    }
    // Stored at the next save, from the file, as every picture of the archive.
    Logo = *dati;
    m_fileLogo = *file;
    m_logoModificato = true;
    return true;
}

void FConfigurazioni::RimuoviLogo_Click()
{
    Logo.clear();
    m_fileLogo.clear();
    m_logoModificato = true;
}

// Users ----------------------------------------------------------------------------------------------------

void FConfigurazioni::CaricaUtenti()
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    archivio.apri();
    RigheArt.clear();
    for (const utenti::Utente& u : utenti::leggiUtenti(archivio))
        if (!u.nome.isEmpty())
            RigheArt << u;
    rigaSelezionata = -1;
}

void FConfigurazioni::PulisciGrigliaUtente()
{
    RigheArt.clear();
    rigaSelezionata = -1;
}

void FConfigurazioni::PulisciCampiUtente()
{
    utente = utenti::Utente();
    m_passwordUtente.clear();
    PasswordUtente.clear();
    ConfermaPasswordUtente.clear();
    RimuoviPasswordUtente = false;
    rigaSelezionata = -1;
}

void FConfigurazioni::RigheArt_Click(int riga)
{
    if (riga < 0 || riga >= RigheArt.size())
        return;
    PulisciCampiUtente();
    utente = RigheArt.at(riga);
    m_passwordUtente = utente.password;
    rigaSelezionata = riga;
}

void FConfigurazioni::SelezionaTutti_Click()
{
    // Every function, with its save: ticking the read-only companions too would take the saves away.
    for (const DescrizioneDiritto& d : dirittiUtente()) {
        utente.diritti.*d.diritto = true;
        if (d.soloLettura)
            utente.diritti.*d.soloLettura = false;
    }
}

void FConfigurazioni::DeselezionaTutti_Click()
{
    for (const CampoDiritto& c : campiDiritti())
        utente.diritti.*c.diritto = false;
}

bool FConfigurazioni::Ins_Click()
{
    Interazione& ui = m_sessione.interazione;
    const QString nome = utente.nome.trimmed();
    if (nome.isEmpty()) {
        ui.messaggio(QStringLiteral("Attenzione un nome all'utente"));
        return false;
    }
    if (utenti::eAmministratore(nome)) {
        ui.messaggio(QStringLiteral("Attenzione l'utente amministratore già esiste, impossibile crearne un'altro!"));
        return false;
    }
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    if (utenti::ControllaEsistenzaUtente(archivio, nome, utente.Indice)) {
        ui.messaggio(QStringLiteral("Attenzione, utente già esistente"));
        return false;
    }
    if (!RimuoviPasswordUtente && !utenti::CorrettezzaPassword(ui, PasswordUtente, ConfermaPasswordUtente))
        return false;

    utenti::Utente daSalvare = utente;
    daSalvare.nome = nome;
    if (RimuoviPasswordUtente)
        daSalvare.password.clear();
    else if (!PasswordUtente.isEmpty())
        daSalvare.password = utenti::CifraPassword(PasswordUtente);
    else
        daSalvare.password = m_passwordUtente; // both boxes empty: the stored password stays
    if (utenti::salvaUtente(archivio, daSalvare) == 0) {
        ui.messaggio(QStringLiteral("Attenzione, impossibile salvare l'utente!"), {}, Interazione::Icona::Critico);
        return false;
    }
    CaricaUtenti();
    PulisciCampiUtente();
    operazioneEffettuata(ui);
    return true;
}

bool FConfigurazioni::Command16_Click()
{
    Interazione& ui = m_sessione.interazione;
    if (utente.Indice <= 0) {
        ui.messaggio(QStringLiteral("Attenzione, selezionare l'utente da cancellare"));
        return false;
    }
    if (!ui.domandaSiNo(QStringLiteral("Attenzione, sicuri di voler cancellare l'utente selezionato?")))
        return false;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri() || !utenti::cancellaUtente(archivio, utente.Indice))
        return false;
    CaricaUtenti();
    PulisciCampiUtente();
    operazioneEffettuata(ui);
    return true;
}

} // namespace tomvera
