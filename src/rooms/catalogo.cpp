#include "rooms/catalogo.h"

#include "foundation/archivio.h"
#include "foundation/configurazione.h"
#include "foundation/interazione.h"
#include "foundation/sessione.h"

#include <QSqlRecord>
#include <algorithm>

namespace tomvera {

namespace {

const QString separatoreAzienda = QStringLiteral("»");
constexpr int massimoLato = 100; // rows or columns: the board numbers at most 1000 tiles a floor anyway

TipologiaCamera tipologiaDaRiga(const QSqlRecord& r)
{
    TipologiaCamera t;
    t.Indice = r.value(QStringLiteral("Indice")).toLongLong();
    t.CodiceTipologia = r.value(QStringLiteral("CodiceTipologia")).toString();
    t.NroPersone = r.value(QStringLiteral("NroPersone")).toInt();
    t.NomeTipologia = r.value(QStringLiteral("NomeTipologia")).toString();
    t.Colore = r.value(QStringLiteral("Colore")).toDouble();
    t.Note = r.value(QStringLiteral("Note")).toString();
    return t;
}

int almenoUno(int n)
{
    return n > 0 ? n : 1;
}

} // namespace

QList<TipologiaCamera> caricaTipologie(Archivio& archivio)
{
    QList<TipologiaCamera> tipologie;
    const auto righe
        = archivio.righe(QStringLiteral("SELECT Indice, CodiceTipologia, NroPersone, NomeTipologia, Colore,"
                                        " Note FROM TabellaTipologieCamere ORDER BY NomeTipologia"));
    for (const QSqlRecord& r : righe)
        tipologie.append(tipologiaDaRiga(r));
    return tipologie;
}

// ---------------------------------------------------------------------------------------------------------
// Room types

F_TipologiaCamere::F_TipologiaCamere(Sessione& sessione)
    : m_sessione(sessione)
{
}

void F_TipologiaCamere::Form_Load()
{
    PulisciCampi();
    caricaGriglia();
}

void F_TipologiaCamere::caricaGriglia()
{
    PulisciGriglia();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        Griglia = caricaTipologie(archivio);
}

void F_TipologiaCamere::PulisciGriglia()
{
    Griglia.clear();
}

void F_TipologiaCamere::PulisciCampi()
{
    CodiceTipologia.clear();
    NroPersone.clear();
    NomeTipologia.clear();
    Colore.reset();
    Note.clear();
    IndiceSelezionato = 0;
}

void F_TipologiaCamere::Griglia_DblClick(int riga)
{
    if (riga < 0 || riga >= Griglia.size())
        return;
    const TipologiaCamera& t = Griglia.at(riga);
    IndiceSelezionato = t.Indice;
    CodiceTipologia = t.CodiceTipologia;
    NroPersone = QString::number(t.NroPersone);
    NomeTipologia = t.NomeTipologia;
    Colore = t.Colore;
    Note = t.Note;
}

bool F_TipologiaCamere::ControllaEsistenzaColore(double colore, qint64 escludi)
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    // The board finds a room's type from its colour, so two types may never share one.
    const bool usato = archivio.esisteRiga(
        QStringLiteral("SELECT 1 FROM TabellaTipologieCamere WHERE Indice > 0 AND Colore = ? AND Indice <> ?"),
        { colore, escludi });
    if (usato)
        m_sessione.interazione.messaggio(QStringLiteral("Il colore selezionato è già stato usato per una tipologia!"));
    return usato;
}

bool F_TipologiaCamere::Registra_Click()
{
    Interazione& ui = m_sessione.interazione;
    bool numeroValido = false;
    const int persone = NroPersone.trimmed().toInt(&numeroValido);
    if (NroPersone.trimmed().isEmpty() || !numeroValido || persone < 0) {
        ui.messaggio(QStringLiteral("Attenzione, inserire il n° di persone!"));
        return false;
    }
    const QString codice = CodiceTipologia.trimmed();
    if (codice.isEmpty()) {
        ui.messaggio(QStringLiteral("Attenzione, inserire un codice tipologia!"));
        return false;
    }
    if (NomeTipologia.trimmed().isEmpty()) {
        ui.messaggio(QStringLiteral("Attenzione, inserire un nome!"));
        return false;
    }
    if (!Colore) {
        ui.messaggio(QStringLiteral("Attenzione, associare un colore alla tipologia!"));
        return false;
    }
    if (IndiceSelezionato > 0
        && !ui.domandaSiNo(QStringLiteral("Attenzione si stà aggiornando una tipologia già esistente. Continuare?")))
        return false;
    if (ControllaEsistenzaColore(*Colore, IndiceSelezionato))
        return false;

    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    // The code is the unique key rooms point at: refuse a duplicate before the engine does.
    if (archivio.esisteRiga(
            QStringLiteral("SELECT 1 FROM TabellaTipologieCamere WHERE CodiceTipologia = ? AND Indice <> ?"),
            { codice, IndiceSelezionato })) {
        ui.messaggio(QStringLiteral("Attenzione, il codice tipologia è già stato usato!"));
        return false;
    }

    Transazione transazione(archivio);
    const QVariantList valori = { codice, persone, NomeTipologia.trimmed(), *Colore, Note };
    if (IndiceSelezionato > 0) {
        const QString vecchioCodice
            = archivio
                  .valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaTipologieCamere WHERE Indice = ?"),
                          { IndiceSelezionato })
                  .toString();
        archivio.comando(QStringLiteral("UPDATE TabellaTipologieCamere SET CodiceTipologia = ?, NroPersone = ?,"
                                        " NomeTipologia = ?, Colore = ?, Note = ? WHERE Indice = ?"),
                         valori + QVariantList { IndiceSelezionato });
        // A renamed code takes its rooms along, or they would lose their type.
        if (!vecchioCodice.isEmpty() && vecchioCodice != codice)
            archivio.comando(
                QStringLiteral("UPDATE TabellaStrutturaCamere SET CodiceTipologia = ? WHERE CodiceTipologia = ?"),
                { codice, vecchioCodice });
    } else {
        archivio.comando(QStringLiteral("INSERT INTO TabellaTipologieCamere (CodiceTipologia, NroPersone,"
                                        " NomeTipologia, Colore, Note) VALUES (?, ?, ?, ?, ?)"),
                         valori);
    }
    if (!transazione.commit())
        return false;
    operazioneEffettuata(ui);
    PulisciCampi();
    caricaGriglia();
    return true;
}

bool F_TipologiaCamere::Command15_Click()
{
    Interazione& ui = m_sessione.interazione;
    if (IndiceSelezionato <= 0) {
        ui.messaggio(QStringLiteral("Attenzione, selezionare la tipologia di camera da cancellare"));
        return false;
    }
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    const QString codice
        = archivio
              .valore(QStringLiteral("SELECT CodiceTipologia FROM TabellaTipologieCamere WHERE Indice = ?"),
                      { IndiceSelezionato })
              .toString();
    if (archivio.esisteRiga(QStringLiteral("SELECT 1 FROM TabellaStrutturaCamere WHERE CodiceTipologia = ?"),
                            { codice })) {
        ui.messaggio(
            QStringLiteral("Attenzione, impossibile cancellare la camera in quanto è presente nella configurazione"));
        return false;
    }
    if (!ui.domandaSiNo(QStringLiteral("Attenzione, cancellare la tipologia di camera selezionata?")))
        return false;
    if (!archivio.comando(QStringLiteral("DELETE FROM TabellaTipologieCamere WHERE Indice = ?"), { IndiceSelezionato }))
        return false;
    operazioneEffettuata(ui);
    PulisciCampi();
    caricaGriglia();
    return true;
}

// ---------------------------------------------------------------------------------------------------------
// Layout

QString testoCella(const CellaStruttura& cella, bool multiAzienda)
{
    if (multiAzienda && !cella.CodiceAzienda.isEmpty())
        return cella.CodiceAzienda + separatoreAzienda + cella.NroCamera;
    return cella.NroCamera;
}

void leggiTestoCella(const QString& testo, bool multiAzienda, CellaStruttura& cella)
{
    const int pos = testo.indexOf(separatoreAzienda);
    if (multiAzienda && pos >= 0) {
        cella.CodiceAzienda = testo.left(pos).trimmed();
        cella.NroCamera = testo.mid(pos + separatoreAzienda.size()).trimmed();
    } else {
        cella.NroCamera = (pos >= 0 ? testo.mid(pos + separatoreAzienda.size()) : testo).trimmed();
        if (!multiAzienda)
            cella.CodiceAzienda.clear();
    }
}

F_ConfiguraGriglia::F_ConfiguraGriglia(Sessione& sessione)
    : m_sessione(sessione)
{
    dimensiona(m_sessione.configurazione->Righe, m_sessione.configurazione->Colonne);
}

bool F_ConfiguraGriglia::multiAzienda() const
{
    return m_sessione.configurazione->MultiAzienda;
}

void F_ConfiguraGriglia::dimensiona(int righe, int colonne)
{
    m_righe = std::clamp(almenoUno(righe), 1, massimoLato);
    m_colonne = std::clamp(almenoUno(colonne), 1, massimoLato);
    m_celle.assign(static_cast<size_t>(m_righe * m_colonne), CellaStruttura {});
}

const CellaStruttura& F_ConfiguraGriglia::cella(int riga, int colonna) const
{
    static const CellaStruttura fuori;
    if (riga < 0 || riga >= m_righe || colonna < 0 || colonna >= m_colonne)
        return fuori;
    return m_celle[static_cast<size_t>(riga * m_colonne + colonna)];
}

void F_ConfiguraGriglia::impostaTestoCella(int riga, int colonna, const QString& testo)
{
    if (riga < 0 || riga >= m_righe || colonna < 0 || colonna >= m_colonne)
        return;
    CellaStruttura& c = m_celle[static_cast<size_t>(riga * m_colonne + colonna)];
    const CellaStruttura prima = c;
    leggiTestoCella(testo, multiAzienda(), c);
    if (c.NroCamera != prima.NroCamera || c.CodiceAzienda != prima.CodiceAzienda)
        m_modificata = true;
}

std::optional<double> F_ConfiguraGriglia::coloreTipologia(const QString& codice) const
{
    for (const TipologiaCamera& t : GrigliaTipologie)
        if (QString::compare(t.CodiceTipologia, codice, Qt::CaseInsensitive) == 0)
            return t.Colore;
    return std::nullopt;
}

void F_ConfiguraGriglia::Form_Load()
{
    CaricaCombo();
    AnnullaSelezione_Click();
    Aggiorna_Click();
}

void F_ConfiguraGriglia::CaricaCombo()
{
    GrigliaTipologie.clear();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (archivio.apri())
        GrigliaTipologie = caricaTipologie(archivio);
    if (TipologiaSelezionata >= GrigliaTipologie.size())
        AnnullaSelezione_Click();
}

void F_ConfiguraGriglia::GrigliaTipologie_Click(int riga)
{
    if (riga < 0 || riga >= GrigliaTipologie.size())
        return;
    TipologiaSelezionata = riga;
    NomeTipologiaSelezionata = GrigliaTipologie.at(riga).NomeTipologia;
    ColoreTipologiaSelezionata = GrigliaTipologie.at(riga).Colore;
}

void F_ConfiguraGriglia::AnnullaSelezione_Click()
{
    TipologiaSelezionata = -1;
    NomeTipologiaSelezionata = QStringLiteral("Nessuna tipologia selezionata");
    ColoreTipologiaSelezionata.reset();
}

void F_ConfiguraGriglia::Cella_Click(int riga, int colonna)
{
    if (TipologiaSelezionata < 0 || riga < 0 || riga >= m_righe || colonna < 0 || colonna >= m_colonne)
        return;
    CellaStruttura& c = m_celle[static_cast<size_t>(riga * m_colonne + colonna)];
    const QString codice = GrigliaTipologie.at(TipologiaSelezionata).CodiceTipologia;
    if (c.CodiceTipologia != codice) {
        c.CodiceTipologia = codice;
        m_modificata = true;
    }
}

void F_ConfiguraGriglia::Command1_Click(int riga, int colonna)
{
    if (riga < 0 || riga >= m_righe || colonna < 0 || colonna >= m_colonne)
        return;
    CellaStruttura& c = m_celle[static_cast<size_t>(riga * m_colonne + colonna)];
    if (!c.CodiceTipologia.isEmpty()) {
        c.CodiceTipologia.clear();
        m_modificata = true;
    }
}

void F_ConfiguraGriglia::PianoMeno_Click()
{
    cambiaPiano(NroPiano - 1);
}

void F_ConfiguraGriglia::PianoPiu_Click()
{
    cambiaPiano(NroPiano + 1);
}

void F_ConfiguraGriglia::cambiaPiano(int piano)
{
    if (piano < -99 || piano > 999 || piano == NroPiano)
        return;
    // Moving away from unsaved work offers the save first, so a floor's edits are never dropped unseen; a save
    // that was wanted but failed (busy archive, a refused cell) keeps the floor and its edits on screen.
    if (m_modificata && m_sessione.interazione.domandaSiNo(QStringLiteral("Salvare la configurazione delle Camere?"))
        && !registraPiano())
        return;
    NroPiano = piano;
    Aggiorna_Click();
}

void F_ConfiguraGriglia::PulisciGriglia()
{
    std::fill(m_celle.begin(), m_celle.end(), CellaStruttura {});
    m_modificata = false;
}

void F_ConfiguraGriglia::Aggiorna_Click()
{
    PulisciGriglia();
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return;
    const auto righe = archivio.righe(QStringLiteral("SELECT NroCamera, X, Y, CodiceTipologia, CodiceAzienda"
                                                     " FROM TabellaStrutturaCamere WHERE NroPiano = ? ORDER BY Indice"),
                                      { NroPiano });
    for (const QSqlRecord& r : righe) {
        const int x = r.value(QStringLiteral("X")).toInt();
        const int y = r.value(QStringLiteral("Y")).toInt();
        const QString numero = r.value(QStringLiteral("NroCamera")).toString();
        if (x < 0 || y < 0 || x >= m_colonne || y >= m_righe) {
            m_sessione.interazione.messaggio(QStringLiteral("C'E' LA CamerA ") + numero
                                             + QStringLiteral(" CONFIGURATA CHE NON E' POSSIBILE VISUALIZZARE"));
            continue;
        }
        CellaStruttura& c = m_celle[static_cast<size_t>(y * m_colonne + x)];
        c.NroCamera = numero;
        c.CodiceTipologia = r.value(QStringLiteral("CodiceTipologia")).toString();
        c.CodiceAzienda = r.value(QStringLiteral("CodiceAzienda")).toString();
    }
}

bool F_ConfiguraGriglia::ControlloEsistenzaCamera(const QString& nroCamera)
{
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    return archivio.esisteRiga(QStringLiteral("SELECT 1 FROM TabellaStrutturaCamere WHERE NroCamera = ?"),
                               { nroCamera });
}

bool F_ConfiguraGriglia::Registra_Click()
{
    if (!m_sessione.interazione.domandaSiNo(QStringLiteral("Salvare la configurazione delle Camere?")))
        return false;
    return registraPiano();
}

bool F_ConfiguraGriglia::registraPiano()
{
    Interazione& ui = m_sessione.interazione;
    // The archive refuses longer texts: say which cell, instead of losing the whole floor to a failed save.
    for (const CellaStruttura& c : m_celle) {
        if (c.NroCamera.trimmed().size() > 50 || c.CodiceAzienda.trimmed().size() > 50) {
            ui.messaggio(QStringLiteral("Attenzione, il numero della camera ") + c.NroCamera.trimmed().left(20)
                         + QStringLiteral("... supera i 50 caratteri!"));
            return false;
        }
    }
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    // The whole floor or nothing. Rooms placed outside the current grid are not shown here, so they are kept.
    Transazione transazione(archivio);
    if (!archivio.comando(
            QStringLiteral(
                "DELETE FROM TabellaStrutturaCamere WHERE NroPiano = ? AND X >= 0 AND X < ? AND Y >= 0 AND Y < ?"),
            { NroPiano, m_colonne, m_righe }))
        return false;
    const bool conAzienda = multiAzienda();
    for (int y = 0; y < m_righe; ++y) {
        for (int x = 0; x < m_colonne; ++x) {
            const CellaStruttura& c = m_celle[static_cast<size_t>(y * m_colonne + x)];
            if (c.vuota())
                continue;
            const QString numero = c.NroCamera.trimmed();
            // Joins the open transaction, so numbers written earlier in this walk count too.
            if (ControlloEsistenzaCamera(numero)) {
                ui.messaggio(QStringLiteral("La Camera N° ") + numero
                             + QStringLiteral(" è ripetuta in più di un posto!"));
                continue;
            }
            archivio.comando(
                QStringLiteral("INSERT INTO TabellaStrutturaCamere (Y, X, NroCamera, CodiceAzienda,"
                               " NroPiano, CodiceTipologia) VALUES (?, ?, ?, ?, ?, ?)"),
                { y, x, numero, conAzienda ? c.CodiceAzienda.trimmed() : QString(), NroPiano, c.CodiceTipologia });
        }
    }
    if (!transazione.commit())
        return false;
    Aggiorna_Click();
    operazioneEffettuata(ui);
    return true;
}

bool F_ConfiguraGriglia::Command15_Click()
{
    Interazione& ui = m_sessione.interazione;
    if (!ui.okAnnulla(
            QStringLiteral("ATTENZIONE! QUESTO COMANDO CANCELLERA' COMPLETAMENTE LA STRUTTURA DELLE CAMERE!")))
        return false;
    const auto parola = ui.inputBox(QStringLiteral("PER EFFETTUARE L'OPERAZIONE DI CANCELLAZIONE: confermo"));
    if (!parola || *parola != QLatin1String("confermo"))
        return false;
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri() || !archivio.comando(QStringLiteral("DELETE FROM TabellaStrutturaCamere")))
        return false;
    Aggiorna_Click();
    return true;
}

bool F_ConfiguraGriglia::Command22_Click(const QString& righe, const QString& colonne)
{
    bool okRighe = false;
    bool okColonne = false;
    const int r = righe.trimmed().toInt(&okRighe);
    const int c = colonne.trimmed().toInt(&okColonne);
    if (!okRighe || !okColonne || r < 1 || c < 1 || r > massimoLato || c > massimoLato) {
        m_sessione.interazione.messaggio(QStringLiteral("Attenzione, inserire un numero di righe e di colonne"
                                                        " compreso tra 1 e ")
                                         + QString::number(massimoLato) + QStringLiteral("!"));
        return false;
    }
    Archivio archivio(m_sessione.PercorsoDB, m_sessione.errori);
    if (!archivio.apri())
        return false;
    // A new archive has no settings row yet: the size is its first value.
    Transazione transazione(archivio);
    archivio.comando(QStringLiteral("INSERT INTO Configurazioni (Righe, Colonne) SELECT ?, ?"
                                    " WHERE NOT EXISTS (SELECT 1 FROM Configurazioni)"),
                     { r, c });
    archivio.comando(QStringLiteral("UPDATE Configurazioni SET Righe = ?, Colonne = ?"), { r, c });
    if (!transazione.commit())
        return false;
    m_sessione.configurazione->Righe = r;
    m_sessione.configurazione->Colonne = c;
    dimensiona(r, c);
    Aggiorna_Click();
    return true;
}

} // namespace tomvera
