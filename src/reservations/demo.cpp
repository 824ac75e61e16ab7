#include "reservations/demo.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/variabili.h"

#include <QSqlQuery>
#include <array>
#include <cmath>
#include <random>

namespace tomvera {

namespace {

struct Comune
{
    const char* nome;
    const char* provincia;
    const char* codice; // cadastral code, the one inside the tax code
    const char* cap;
};

const std::array<Comune, 12> comuni = { { { "ROMA", "RM", "H501", "00185" },
                                          { "MILANO", "MI", "F205", "20121" },
                                          { "NAPOLI", "NA", "F839", "80133" },
                                          { "TORINO", "TO", "L219", "10121" },
                                          { "FIRENZE", "FI", "D612", "50123" },
                                          { "BOLOGNA", "BO", "A944", "40121" },
                                          { "BARI", "BA", "A662", "70121" },
                                          { "PALERMO", "PA", "G273", "90133" },
                                          { "VENEZIA", "VE", "L736", "30124" },
                                          { "GENOVA", "GE", "D969", "16121" },
                                          { "VERONA", "VR", "L781", "37121" },
                                          { "PADOVA", "PD", "G224", "35122" } } };

const std::array<const char*, 30> cognomi
    = { "Rossi",    "Russo",   "Ferrari",  "Esposito", "Bianchi",  "Romano",   "Colombo", "Ricci",
        "Marino",   "Greco",   "Bruno",    "Gallo",    "Conti",    "De Luca",  "Mancini", "Costa",
        "Giordano", "Rizzo",   "Lombardi", "Moretti",  "D'Angelo", "Barbieri", "Fontana", "Santoro",
        "Mariani",  "Rinaldi", "Caruso",   "Ferrara",  "Galli",    "Martini" };
const std::array<const char*, 14> nomiMaschili
    = { "Marco",   "Giuseppe", "Luca",    "Andrea", "Francesco", "Alessandro", "Matteo",
        "Lorenzo", "Davide",   "Stefano", "Paolo",  "Giovanni",  "Nicola",     "Roberto" };
const std::array<const char*, 14> nomiFemminili
    = { "Giulia", "Francesca", "Sara",      "Chiara",   "Anna",   "Maria",      "Laura",
        "Elena",  "Martina",   "Valentina", "Federica", "Silvia", "Alessandra", "Paola" };
const std::array<const char*, 6> vie
    = { "Via Roma", "Via Garibaldi", "Corso Italia", "Via Mazzini", "Via Verdi", "Piazza Dante" };

struct Straniero
{
    const char* stato;
    const char* cognome;
    const char* nome;
    bool femmina;
};

const std::array<Straniero, 8> stranieri = { { { "GERMANIA", "Müller", "Hans", false },
                                               { "GERMANIA", "Schmidt", "Anke", true },
                                               { "FRANCIA", "Martin", "Claire", true },
                                               { "FRANCIA", "Bernard", "Luc", false },
                                               { "AUSTRIA", "Gruber", "Stefan", false },
                                               { "SVIZZERA", "Keller", "Ursula", true },
                                               { "PAESI BASSI", "de Vries", "Jan", false },
                                               { "REGNO UNITO", "Smith", "Emily", true } } };

struct Tipologia
{
    const char* codice;
    const char* nome;
    int persone;
    double colore;
    double prezzoNotteBassa; // the season multipliers apply to this
};

const std::array<Tipologia, 5> tipologie = { { { "SGL", "Singola", 1, 12632256, 60 },
                                               { "DBL", "Doppia", 2, 16744576, 90 },
                                               { "TRP", "Tripla", 3, 8454016, 120 },
                                               { "QDP", "Quadrupla", 4, 16761024, 145 },
                                               { "SUI", "Suite", 2, 8421631, 190 } } };

struct Stagione
{
    const char* dal;
    const char* al;
    double fattore;
};

const std::array<Stagione, 5> stagioni = { { { "01/01", "31/05", 1.0 },
                                             { "01/06", "15/07", 1.3 },
                                             { "16/07", "31/08", 1.7 },
                                             { "01/09", "30/09", 1.3 },
                                             { "01/10", "31/12", 1.0 } } };

const std::array<const char*, 4> trattamenti
    = { "Pernottamento", "Pernottamento e Colazione", "Mezza Pensione", "Pensione Completa" };

QString lettereCodice(const QString& testo)
{
    QString consonanti;
    QString vocali;
    for (QChar c : testo.toUpper()) {
        if (c < QLatin1Char('A') || c > QLatin1Char('Z'))
            continue;
        if (QStringLiteral("AEIOU").contains(c))
            vocali += c;
        else
            consonanti += c;
    }
    return consonanti + QLatin1Char('|') + vocali;
}

QString treLettere(const QString& consonanti, const QString& vocali)
{
    return QString(consonanti + vocali + QStringLiteral("XXX")).left(3);
}

} // namespace

QString codiceFiscale(const QString& cognome, const QString& nome, const QDate& nascita, bool femmina,
                      const QString& codiceComune)
{
    const QStringList c = lettereCodice(cognome).split(QLatin1Char('|'));
    const QStringList n = lettereCodice(nome).split(QLatin1Char('|'));
    QString codice = treLettere(c.at(0), c.at(1));
    if (n.at(0).size() >= 4)
        codice += QString(n.at(0).at(0)) + n.at(0).at(2) + n.at(0).at(3);
    else
        codice += treLettere(n.at(0), n.at(1));
    codice += QStringLiteral("%1").arg(nascita.year() % 100, 2, 10, QLatin1Char('0'));
    codice += QStringLiteral("ABCDEHLMPRST").at(nascita.month() - 1);
    codice += QStringLiteral("%1").arg(nascita.day() + (femmina ? 40 : 0), 2, 10, QLatin1Char('0'));
    codice += codiceComune.toUpper();
    static const int dispari[36]
        = { 1, 0, 5, 7, 9, 13, 15, 17, 19, 21, // 0-9
            1, 0, 5, 7, 9, 13, 15, 17, 19, 21, 2, 4, 18, 20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23 };
    int somma = 0;
    for (int i = 0; i < 15; ++i) {
        const QChar ch = codice.at(i);
        const int k = ch.isDigit() ? ch.digitValue() : 10 + (ch.unicode() - 'A');
        if (i % 2 == 0)
            somma += dispari[k];
        else
            somma += ch.isDigit() ? ch.digitValue() : ch.unicode() - 'A';
    }
    codice += QChar(QLatin1Char('A').unicode() + somma % 26);
    return codice;
}

namespace {

class Generatore
{
public:
    Generatore(Archivio& archivio, const OpzioniDemo& opzioni)
        : m_archivio(archivio)
        , m_opzioni(opzioni)
        , m_caso(opzioni.seme)
    {
        m_oggi = opzioni.oggi.isValid() ? opzioni.oggi : QDate::currentDate();
    }

    EsitoDemo genera();

private:
    int tra(int minimo, int massimo) { return std::uniform_int_distribution<int>(minimo, massimo)(m_caso); }
    bool probabile(double p) { return std::uniform_real_distribution<double>(0, 1)(m_caso) < p; }
    bool inserisci(const QString& sql, const QVariantList& valori);
    bool struttura();
    bool listini();
    bool anagrafiche();
    bool prenotazioni();
    double prezzoNotte(int tipologia, const QDate& giorno) const;

    Archivio& m_archivio;
    OpzioniDemo m_opzioni;
    std::mt19937 m_caso;
    QDate m_oggi;
    EsitoDemo m_esito;

    struct Camera
    {
        QString numero;
        int tipologia;
    };
    QList<Camera> m_camere;

    struct Persona
    {
        qint64 indice;
        QVariantHash campi;
    };
    QList<Persona> m_persone;
    QHash<QString, std::optional<QSqlQuery>> m_preparate;
};

bool Generatore::inserisci(const QString& sql, const QVariantList& valori)
{
    auto& preparata = m_preparate[sql];
    if (!preparata)
        preparata = m_archivio.prepara(sql);
    return preparata && m_archivio.esegui(*preparata, valori);
}

double Generatore::prezzoNotte(int tipologia, const QDate& giorno) const
{
    for (const Stagione& s : stagioni) {
        const QDate dal(giorno.year(), QString::fromLatin1(s.dal).mid(3, 2).toInt(),
                        QString::fromLatin1(s.dal).left(2).toInt());
        const QDate al(giorno.year(), QString::fromLatin1(s.al).mid(3, 2).toInt(),
                       QString::fromLatin1(s.al).left(2).toInt());
        if (giorno >= dal && giorno <= al)
            return tipologie[tipologia].prezzoNotteBassa * s.fattore;
    }
    return tipologie[tipologia].prezzoNotteBassa;
}

bool Generatore::struttura()
{
    const int camere = qMax(1, m_opzioni.camere);
    const int piani = camere <= 60 ? qMin(3, camere) : (camere + 49) / 50;
    const int perPiano = (camere + piani - 1) / piani;
    // A grid about twice as wide as tall keeps the board's square tiles large.
    const int colonne = qMin(perPiano, qMax(1, int(std::ceil(std::sqrt(perPiano * 2.0)))));
    const int righe = (perPiano + colonne - 1) / colonne;

    if (!m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM Configurazioni")))
        m_archivio.comando(QStringLiteral("INSERT INTO Configurazioni (RagSociale) VALUES ('')"));
    if (!m_archivio.comando(
            QStringLiteral("UPDATE Configurazioni SET RagSociale = ?, Indirizzo = ?, Cap = ?, Comune = ?, "
                           "Provincia = ?, Piva = ?, Tel = ?, Righe = ?, Colonne = ?, NroPiani = ?, "
                           "IvaPrenotazioni = 10, IvaRistorante = 10, ValIva0 = 0, ValIva1 = 10, "
                           "ValIva2 = 22, ValIva3 = 4"),
            { QStringLiteral("Hotel Belvedere"), QStringLiteral("Lungomare Marconi 12"), QStringLiteral("47921"),
              QStringLiteral("Rimini"), QStringLiteral("RN"), QStringLiteral("01234567897"),
              QStringLiteral("0541 123456"), righe, colonne, piani }))
        return false;

    for (const Tipologia& t : tipologie) {
        if (!inserisci(QStringLiteral("INSERT INTO TabellaTipologieCamere (NomeTipologia, NroPersone, Note, Colore, "
                                      "CodiceTipologia) VALUES (?, ?, '', ?, ?)"),
                       { QString::fromUtf8(t.nome), t.persone, t.colore, QString::fromLatin1(t.codice) }))
            return false;
    }
    int fatte = 0;
    for (int piano = 1; piano <= piani && fatte < camere; ++piano) {
        for (int i = 0; i < perPiano && fatte < camere; ++i, ++fatte) {
            // Mostly doubles, a few of every other kind.
            const int scelta = tra(0, 99);
            const int tipologia = scelta < 12 ? 0 : scelta < 70 ? 1 : scelta < 85 ? 2 : scelta < 95 ? 3 : 4;
            const QString numero = QString::number(piano * 100 + i + 1);
            if (!inserisci(
                    QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, X, Y, NroPiano, CodiceTipologia, "
                                   "CodiceAzienda) VALUES (?, ?, ?, ?, ?, '')"),
                    { numero, i % colonne, i / colonne, piano, QString::fromLatin1(tipologie[tipologia].codice) }))
                return false;
            m_camere.append({ numero, tipologia });
        }
    }
    m_esito.camere = m_camere.size();
    return true;
}

bool Generatore::listini()
{
    const QString listino = QStringLiteral("Listino Ufficiale");
    for (const Tipologia& t : tipologie) {
        for (const Stagione& s : stagioni) {
            const double notte = t.prezzoNotteBassa * s.fattore;
            for (int giorni : { 1, 7 }) {
                const double prezzo = giorni == 1 ? notte : std::round(notte * 6.0);
                if (!inserisci(
                        QStringLiteral("INSERT INTO TabellaListinoCamere (Listino, CodiceTipologia, Dal, Al, Prezzo, "
                                       "Iva, Giorni) VALUES (?, ?, ?, ?, ?, 10, ?)"),
                        { listino, QString::fromLatin1(t.codice), QString::fromLatin1(s.dal), QString::fromLatin1(s.al),
                          prezzo, giorni }))
                    return false;
            }
        }
    }
    const double supplemento[] = { 0, 8, 25, 40 };
    for (int k = 0; k < 4; ++k) {
        for (const Stagione& s : stagioni) {
            if (!inserisci(
                    QStringLiteral("INSERT INTO TabellaListinoCamereAPersona (Listino, Trattamento, Dal, Al, Prezzo, "
                                   "Iva, Giorni) VALUES (?, ?, ?, ?, ?, 10, 1)"),
                    { QStringLiteral("Listino a Persona"), QString::fromLatin1(trattamenti[size_t(k)]),
                      QString::fromLatin1(s.dal), QString::fromLatin1(s.al),
                      std::round(40 * s.fattore) + supplemento[k] }))
                return false;
        }
    }
    // The reservation screen proposes these lists from the start.
    Variabili variabili(m_archivio);
    if (!variabili.SalvaVariabileStringa(QStringLiteral("F_Prenotazione_ListinoCamere"), listino)
        || !variabili.SalvaVariabileStringa(QStringLiteral("F_Prenotazione_ListinoTrattamenti"),
                                            QStringLiteral("Listino a Persona")))
        return false;
    struct Voce
    {
        const char* tipo;
        const char* descrizione;
        double prezzo;
        double iva;
    };
    const Voce voci[] = { { "Bar", "Acqua minerale", 2.0, 10 },
                          { "Bar", "Caffè", 1.2, 10 },
                          { "Bar", "Bibita", 3.0, 10 },
                          { "Bar", "Cocktail", 7.5, 22 },
                          { "Servizi", "Parcheggio", 10.0, 22 },
                          { "Servizi", "Lavanderia", 15.0, 22 },
                          { "Servizi", "Culla", 8.0, 10 },
                          { "Servizi", "Animale domestico", 12.0, 10 },
                          { "Ristorante", "Pranzo extra", 25.0, 10 },
                          { "Ristorante", "Cena extra", 30.0, 10 },
                          { "Benessere", "Massaggio", 45.0, 22 },
                          { "Benessere", "Ingresso SPA", 20.0, 22 } };
    for (const Voce& v : voci) {
        if (!inserisci(QStringLiteral(
                           "INSERT INTO TabellaListinoAccessori (Tipo, Descrizione, Prezzo, Iva) VALUES (?, ?, ?, ?)"),
                       { QString::fromUtf8(v.tipo), QString::fromUtf8(v.descrizione), v.prezzo, v.iva }))
            return false;
    }
    return true;
}

bool Generatore::anagrafiche()
{
    // Enough cards that regular guests come back now and then.
    const int quante = qBound(50, m_opzioni.camere * 12 * m_opzioni.anni, 20000);
    for (int i = 0; i < quante; ++i) {
        QVariantHash c;
        const bool estero = probabile(0.15);
        bool femmina = probabile(0.5);
        QString cognome;
        QString nome;
        if (estero) {
            const Straniero& s = stranieri[size_t(tra(0, int(stranieri.size()) - 1))];
            cognome = QString::fromUtf8(s.cognome);
            nome = QString::fromUtf8(s.nome);
            femmina = s.femmina;
            c.insert(QStringLiteral("Nazione"), QString::fromUtf8(s.stato));
            c.insert(QStringLiteral("Cittadinanza"), QString::fromUtf8(s.stato));
            c.insert(QStringLiteral("StatoDiNascita"), QString::fromUtf8(s.stato));
            c.insert(QStringLiteral("LuogoNascita"), QString());
            c.insert(QStringLiteral("ResidenzaIstat"), QString::fromUtf8(s.stato));
            c.insert(QStringLiteral("TipoDocumento"), QStringLiteral("PASSAPORTO ORDINARIO"));
            c.insert(QStringLiteral("NroDocumento"), QStringLiteral("P%1").arg(tra(1000000, 9999999)));
            c.insert(QStringLiteral("LuogoDocumento"), QString::fromUtf8(s.stato));
        } else {
            cognome = QString::fromUtf8(cognomi[size_t(tra(0, int(cognomi.size()) - 1))]);
            nome = femmina ? QString::fromUtf8(nomiFemminili[size_t(tra(0, int(nomiFemminili.size()) - 1))])
                           : QString::fromUtf8(nomiMaschili[size_t(tra(0, int(nomiMaschili.size()) - 1))]);
            const Comune& nascita = comuni[size_t(tra(0, int(comuni.size()) - 1))];
            const Comune& residenza = probabile(0.7) ? nascita : comuni[size_t(tra(0, int(comuni.size()) - 1))];
            c.insert(QStringLiteral("Indirizzo"),
                     QStringLiteral("%1 %2").arg(QString::fromLatin1(vie[size_t(tra(0, 5))])).arg(tra(1, 120)));
            c.insert(QStringLiteral("Cap"), QString::fromLatin1(residenza.cap));
            c.insert(QStringLiteral("Comune"), QString::fromLatin1(residenza.nome));
            c.insert(QStringLiteral("Provincia"), QString::fromLatin1(residenza.provincia));
            c.insert(QStringLiteral("Nazione"), QStringLiteral("ITALIA"));
            c.insert(QStringLiteral("Cittadinanza"), QStringLiteral("ITALIA"));
            c.insert(QStringLiteral("StatoDiNascita"), QStringLiteral("ITALIA"));
            c.insert(QStringLiteral("LuogoNascita"), QString::fromLatin1(nascita.nome));
            c.insert(QStringLiteral("ProvinciaDiNascita"), QString::fromLatin1(nascita.provincia));
            c.insert(QStringLiteral("ResidenzaIstat"), QString::fromLatin1(residenza.provincia));
            c.insert(QStringLiteral("TipoDocumento"), QStringLiteral("CARTA DI IDENTITA'"));
            c.insert(QStringLiteral("NroDocumento"),
                     QString(QStringLiteral("CA%1").arg(tra(10000, 99999)) + QStringLiteral("AB")));
            c.insert(QStringLiteral("LuogoDocumento"), QString::fromLatin1(residenza.nome));
            c.insert(QStringLiteral("CodiceNascita"), QString::fromLatin1(nascita.codice));
        }
        const QDate nascitaData = m_oggi.addYears(-tra(18, 80)).addDays(-tra(0, 364));
        const QDate rilascio = m_oggi.addYears(-tra(0, 9)).addDays(-tra(0, 364));
        c.insert(QStringLiteral("CodiceAnagrafica"), QString::number(i + 1));
        c.insert(QStringLiteral("RagSociale"), QString(cognome + QLatin1Char(' ') + nome));
        c.insert(QStringLiteral("Nome"), nome);
        c.insert(QStringLiteral("Cognome"), cognome);
        c.insert(QStringLiteral("CodiceFiscale"),
                 estero ? QString()
                        : codiceFiscale(cognome, nome, nascitaData, femmina,
                                        c.value(QStringLiteral("CodiceNascita")).toString()));
        c.remove(QStringLiteral("CodiceNascita"));
        c.insert(QStringLiteral("Cellulare"), QStringLiteral("3%1").arg(tra(100000000, 999999999)));
        c.insert(QStringLiteral("DataNascita"), dataArchivio(nascitaData));
        c.insert(QStringLiteral("DataDocumento"), dataArchivio(rilascio));
        c.insert(QStringLiteral("MaschioFemmina"), femmina ? QStringLiteral("Femmina") : QStringLiteral("Maschio"));
        c.insert(QStringLiteral("ResidenzaItaliana"), estero ? 0 : 1);
        c.insert(QStringLiteral("ResidenzaEstera"), estero ? 1 : 0);
        c.insert(QStringLiteral("NascitaItalia"), estero ? 0 : 1);
        c.insert(QStringLiteral("NascitaEstero"), estero ? 1 : 0);
        c.insert(QStringLiteral("DocumentoItalia"), estero ? 0 : 1);
        c.insert(QStringLiteral("DocumentoEstero"), estero ? 1 : 0);

        const QStringList campi = c.keys();
        QString segnaposti;
        QVariantList valori;
        QStringList ordinati = campi;
        ordinati.sort();
        for (const QString& k : ordinati) {
            segnaposti += segnaposti.isEmpty() ? QStringLiteral("?") : QStringLiteral(", ?");
            valori << c.value(k);
        }
        if (!inserisci(QStringLiteral("INSERT INTO TabellaAnagrafiche (") + ordinati.join(QStringLiteral(", "))
                           + QStringLiteral(") VALUES (") + segnaposti + QLatin1Char(')'),
                       valori))
            return false;
        m_persone.append({ m_archivio.ultimoIndiceInserito(), c });
    }
    m_esito.anagrafiche = m_persone.size();
    return true;
}

bool Generatore::prenotazioni()
{
    const int primoAnno = m_oggi.year() - m_opzioni.anni + 1;
    const QDate inizio(primoAnno, 1, 1);
    const QDate fine(m_oggi.year(), 12, 31);
    // Each room gets a run of stays; the next free day of every room moves on as stays are placed.
    QList<QDate> libera;
    for (int i = 0; i < m_camere.size(); ++i)
        libera.append(inizio.addDays(tra(0, 10)));
    QHash<int, int> numeroPerAnno;
    QHash<int, int> arrivoPerAnno;

    const QString insTestata = QStringLiteral(
        "INSERT INTO TabellaPrenotazioni (NumeroPrenotazione, DataPrenotazione, NotePrenotazione, ListinoCamere, "
        "TotaleAcconto, Totale, Abbuono, Stato, Saldato, TourOperator, CodiceTourOperator, PrezziACamera, "
        "PrezziAPersona, "
        "PrenotazioneChiusa, CodiceAzienda, RiferimentoDoc, RiferimentoNumero) "
        "VALUES (?, ?, ?, 'Listino Ufficiale', ?, ?, 0, ?, ?, '', '', 1, 0, ?, '', '', '')");
    const QString insCamera
        = QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, Listino, "
                         "PrenotazioneChiusa, IndiceRiga, NroCamera, "
                         "CodiceTipologiaCamera, Dal, Al, Avere, Iva, CheckInSky, CheckOutSky) "
                         "VALUES (?, 'PrenotazioneCamera', 'Listino Ufficiale', ?, ?, ?, ?, ?, ?, ?, 10, 0, 0)");
    const QString insAccessorio
        = QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, IndiceRiga, "
                         "IndiceAccessorio, Data, TipoAccessorio, "
                         "Descrizione, Qta, Avere, Iva, NroCamera) VALUES (?, 'Accessori', ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    const QString insAcconto = QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, Data, "
                                              "Descrizione, Dare, EffettuataFatturaRicevuta) "
                                              "VALUES (?, 'Acconto', ?, ?, ?, 0)");
    QStringList campiOspite = { QStringLiteral("IndicePrenotazioneAssociata"),
                                QStringLiteral("NroArrivo"),
                                QStringLiteral("DataArrivo"),
                                QStringLiteral("DataPartenza"),
                                QStringLiteral("IndiceCliente"),
                                QStringLiteral("NroCameraCliente"),
                                QStringLiteral("ClienteIntestatario"),
                                QStringLiteral("TipoTrattamento"),
                                QStringLiteral("PrezzoTrattamento"),
                                QStringLiteral("TotalePrezzoTrattamento"),
                                QStringLiteral("IndiceRiga"),
                                QStringLiteral("TipoDiAlloggiato"),
                                QStringLiteral("CodiceTipoDiAlloggiato"),
                                QStringLiteral("CapoGruppoFamiglia"),
                                QStringLiteral("OrdinamentoTipoAlloggiato"),
                                QStringLiteral("Arrivato"),
                                QStringLiteral("StatoInvioTelematico"),
                                QStringLiteral("CamereOccupate"),
                                QStringLiteral("TipoTurismo"),
                                QStringLiteral("MezzoDiTrasporto"),
                                QStringLiteral("Email"),
                                QStringLiteral("Web"),
                                QStringLiteral("Telefono"),
                                QStringLiteral("Fax"),
                                QStringLiteral("Piva"),
                                QStringLiteral("NoteCliente"),
                                QStringLiteral("CodiceAzienda") };
    const QStringList copiati = { QStringLiteral("CodiceAnagrafica"),
                                  QStringLiteral("RagSociale"),
                                  QStringLiteral("Nome"),
                                  QStringLiteral("Cognome"),
                                  QStringLiteral("Indirizzo"),
                                  QStringLiteral("Cap"),
                                  QStringLiteral("Comune"),
                                  QStringLiteral("Provincia"),
                                  QStringLiteral("CodiceFiscale"),
                                  QStringLiteral("Cellulare"),
                                  QStringLiteral("TipoDocumento"),
                                  QStringLiteral("NroDocumento"),
                                  QStringLiteral("DataDocumento"),
                                  QStringLiteral("DataNascita"),
                                  QStringLiteral("LuogoNascita"),
                                  QStringLiteral("Cittadinanza"),
                                  QStringLiteral("Nazione"),
                                  QStringLiteral("StatoDiNascita"),
                                  QStringLiteral("LuogoDocumento"),
                                  QStringLiteral("ProvinciaDiNascita"),
                                  QStringLiteral("MaschioFemmina"),
                                  QStringLiteral("ResidenzaItaliana"),
                                  QStringLiteral("ResidenzaEstera"),
                                  QStringLiteral("NascitaItalia"),
                                  QStringLiteral("NascitaEstero"),
                                  QStringLiteral("DocumentoItalia"),
                                  QStringLiteral("DocumentoEstero"),
                                  QStringLiteral("ResidenzaIstat") };
    campiOspite << copiati;
    QString segnaposti;
    for (int i = 0; i < campiOspite.size(); ++i)
        segnaposti += i == 0 ? QStringLiteral("?") : QStringLiteral(", ?");
    const QString insOspite = QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (")
        + campiOspite.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") + segnaposti + QLatin1Char(')');

    const char* const stati[] = { "Confermata", "Confermata", "Confermata", "Opzione", "Telefonica", "Web" };
    const char* const turismo[] = { "Vacanza", "Affari", "Congressi", "Cultura", "Terme" };
    const char* const trasporti[] = { "Auto", "Treno", "Aereo", "Pullman", "Moto" };
    const struct
    {
        const char* tipo;
        const char* descrizione;
        double prezzo;
        double iva;
        int indice;
    } extra[] = { { "Bar", "Acqua minerale", 2.0, 10, 1 },  { "Bar", "Caffè", 1.2, 10, 2 },
                  { "Bar", "Bibita", 3.0, 10, 3 },          { "Servizi", "Parcheggio", 10.0, 22, 5 },
                  { "Servizi", "Lavanderia", 15.0, 22, 6 }, { "Ristorante", "Cena extra", 30.0, 10, 10 } };

    for (;;) {
        // The room whose calendar is furthest behind gets the next stay.
        int stanza = -1;
        for (int i = 0; i < m_camere.size(); ++i)
            if (libera.at(i) <= fine && (stanza < 0 || libera.at(i) < libera.at(stanza)))
                stanza = i;
        if (stanza < 0)
            break;
        QDate arrivo = libera.at(stanza);
        const int mese = arrivo.month();
        const bool alta = mese >= 6 && mese <= 9;
        // Quiet months leave longer gaps between stays.
        if (!probabile(alta ? 0.88 : 0.55)) {
            libera[stanza] = arrivo.addDays(tra(1, alta ? 2 : 6));
            continue;
        }
        const int notti = alta ? tra(3, 14) : tra(1, 5);
        const QDate partenza = arrivo.addDays(notti);

        // A group takes several rooms for the same nights; a family one room with several people.
        QList<int> stanze { stanza };
        const bool gruppo = probabile(0.06);
        if (gruppo) {
            for (int i = 0; i < m_camere.size() && stanze.size() < 4; ++i)
                if (i != stanza && libera.at(i) <= arrivo)
                    stanze.append(i);
        }
        for (int i : stanze)
            libera[i] = partenza.addDays(probabile(0.3) ? 0 : tra(0, 2));

        const QDate dataPrenotazione = qMax(inizio, arrivo.addDays(-tra(1, 90)));
        const int anno = dataPrenotazione.year();
        const int numero = ++numeroPerAnno[anno];
        const bool passata = partenza <= m_oggi;
        const bool iniziata = arrivo <= m_oggi;
        const bool chiusa = passata && probabile(0.05);
        const bool saldata = passata && probabile(0.9);

        double totale = 0;
        QList<double> prezzi;
        for (int i : stanze) {
            double prezzo = 0;
            for (QDate g = arrivo; g < partenza; g = g.addDays(1))
                prezzo += prezzoNotte(m_camere.at(i).tipologia, g);
            prezzo = std::round(prezzo);
            prezzi.append(prezzo);
            totale += prezzo;
        }
        const bool acconto = probabile(0.35);
        const double importoAcconto = acconto ? std::round(totale * 0.3) : 0.0;
        if (!inserisci(insTestata,
                       { numero, dataArchivio(dataPrenotazione), QString(), importoAcconto, totale,
                         saldata ? QStringLiteral("Saldato") : QString::fromLatin1(stati[tra(0, 5)]), saldata ? 1 : 0,
                         chiusa ? 1 : 0 }))
            return false;
        const qint64 indice = m_archivio.ultimoIndiceInserito();
        ++m_esito.prenotazioni;

        for (int k = 0; k < stanze.size(); ++k) {
            const Camera& cam = m_camere.at(stanze.at(k));
            if (!inserisci(insCamera,
                           { indice, chiusa ? 1 : 0, k + 1, cam.numero,
                             QString::fromLatin1(tipologie[cam.tipologia].codice), dataArchivio(arrivo),
                             dataArchivio(partenza), prezzi.at(k) }))
                return false;
        }
        if (acconto
            && !inserisci(
                insAcconto,
                { indice, dataArchivio(dataPrenotazione), QStringLiteral("Acconto caparra"), importoAcconto }))
            return false;
        if (iniziata && probabile(0.6)) {
            const int righe = tra(1, 3);
            for (int r = 0; r < righe; ++r) {
                const auto& e = extra[tra(0, 5)];
                const int qta = tra(1, 3);
                if (!inserisci(insAccessorio,
                               { indice, r + 1, e.indice, dataArchivio(arrivo.addDays(tra(0, notti - 1))),
                                 QString::fromUtf8(e.tipo), QString::fromUtf8(e.descrizione), qta, e.prezzo * qta,
                                 e.iva, m_camere.at(stanza).numero }))
                    return false;
            }
        }

        // Guests: one head per reservation, the others attached to it.
        const QString trattamento = QString::fromLatin1(trattamenti[size_t(tra(0, 3))]);
        int riga = 0;
        QString capo;
        for (int k = 0; k < stanze.size(); ++k) {
            const Camera& cam = m_camere.at(stanze.at(k));
            const int persone = qMax(1, tipologie[cam.tipologia].persone - (probabile(0.3) ? 1 : 0));
            for (int p = 0; p < persone; ++p) {
                const Persona& persona = m_persone.at(tra(0, int(m_persone.size()) - 1));
                ++riga;
                QString tipo;
                QString codiceTipo;
                if (riga == 1) {
                    tipo = gruppo     ? QStringLiteral("CAPOGRUPPO")
                        : persone > 1 ? QStringLiteral("CAPOFAMIGLIA")
                                      : QStringLiteral("OSPITE SINGOLO");
                    codiceTipo = gruppo ? QStringLiteral("18")
                        : persone > 1   ? QStringLiteral("17")
                                        : QStringLiteral("16");
                    capo = persona.campi.value(QStringLiteral("RagSociale")).toString();
                } else {
                    tipo = gruppo ? QStringLiteral("MEMBRO GRUPPO") : QStringLiteral("FAMILIARE");
                    codiceTipo = gruppo ? QStringLiteral("20") : QStringLiteral("19");
                }
                const int nroArrivo = iniziata ? ++arrivoPerAnno[arrivo.year()] : 0;
                QVariantList valori { indice,
                                      nroArrivo,
                                      dataArchivio(arrivo),
                                      dataArchivio(partenza),
                                      persona.indice,
                                      cam.numero,
                                      riga == 1 ? 1 : 0,
                                      trattamento,
                                      0.0,
                                      0.0,
                                      riga,
                                      tipo,
                                      codiceTipo,
                                      capo,
                                      riga == 1 ? 1 : 2,
                                      iniziata ? 1 : 0,
                                      QString(),
                                      riga == 1 ? double(stanze.size()) : 0.0,
                                      riga == 1 ? QString::fromLatin1(turismo[tra(0, 4)]) : QString(),
                                      riga == 1 ? QString::fromLatin1(trasporti[tra(0, 4)]) : QString(),
                                      QString(),
                                      QString(),
                                      QString(),
                                      QString(),
                                      QString(),
                                      QString(),
                                      QString() };
                for (const QString& c : copiati)
                    valori << persona.campi.value(c);
                if (!inserisci(insOspite, valori))
                    return false;
                ++m_esito.ospiti;
            }
        }
    }
    return true;
}

EsitoDemo Generatore::genera()
{
    Transazione transazione(m_archivio);
    if (!transazione.attiva()) {
        m_esito.errore = QStringLiteral("Archivio occupato: impossibile generare i dati dimostrativi");
        return m_esito;
    }
    if (m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaStrutturaCamere"))
        || m_archivio.esisteRiga(QStringLiteral("SELECT Indice FROM TabellaPrenotazioni"))) {
        m_esito.errore = QStringLiteral("L'archivio contiene già camere o prenotazioni: usare un archivio nuovo");
        return m_esito;
    }
    if (!struttura() || !listini() || !anagrafiche() || !prenotazioni() || !transazione.commit()) {
        if (m_esito.errore.isEmpty())
            m_esito.errore = QStringLiteral("Errore durante la scrittura dei dati dimostrativi: ")
                + m_archivio.ultimoErrore().text();
        m_esito = EsitoDemo { false, 0, 0, 0, 0, m_esito.errore };
        return m_esito;
    }
    m_esito.ok = true;
    return m_esito;
}

} // namespace

EsitoDemo GeneraDemo(Archivio& archivio, const OpzioniDemo& opzioni)
{
    return Generatore(archivio, opzioni).genera();
}

} // namespace tomvera
