#include "credits/pagamenti.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/interazione.h"

#include <array>
#include <cmath>

namespace tomvera {

namespace {

// The fixed month lengths of the due-date rule: February never has 29 days here.
constexpr std::array<int, 12> giorniMese { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };

int giorniDelMese(int mese)
{
    return giorniMese[static_cast<size_t>(qBound(1, mese, 12) - 1)];
}

int divisioneIntera(int a, int b)
{
    return static_cast<int>(std::floor(static_cast<double>(a) / b));
}

// A year typed with two digits, read back as a date does: 00-29 are this century, 30-99 the last one.
int annoDaDueCifre(int anno)
{
    if (anno >= 0 && anno < 30)
        return 2000 + anno;
    if (anno >= 30 && anno < 100)
        return 1900 + anno;
    return anno;
}

// Amounts are equal when they agree to the cent: sums of doubles carry binary noise.
// Differences of cent values carry binary noise (122 + 33.33 - 100 is 55.329999...): the instalment is the
// decimal amount.
double senzaRumore(double valore)
{
    const double v = std::round(valore * 1e9) / 1e9;
    return std::isfinite(v) ? v : valore;
}

bool stessoImporto(double a, double b)
{
    return std::fabs(a - b) < 0.0005;
}

QString taglia(const QString& testo, int lunghezza)
{
    return testo.left(lunghezza);
}

} // namespace

CondizioniPagamento LeggiCondizioniPagamento(Archivio& archivio, const QString& descrizione, bool* trovata)
{
    CondizioniPagamento c;
    c.DescrizionePagamento = descrizione;
    const auto riga = archivio.riga(QStringLiteral("SELECT * FROM TabellaPagamenti WHERE DescrizionePagamento = ?"),
                                    { descrizione });
    if (trovata)
        *trovata = riga.has_value();
    if (!riga)
        return c;
    c.DescrizionePagamento = riga->value(QStringLiteral("DescrizionePagamento")).toString();
    c.Nota = riga->value(QStringLiteral("Nota")).toString();
    c.NumeroDiRate = riga->value(QStringLiteral("NumeroDiRate")).toInt();
    c.GiorniTraRate = riga->value(QStringLiteral("GiorniTraRate")).toInt();
    c.DecorrenzaRate = riga->value(QStringLiteral("DecorrenzaRate")).toString();
    c.MesiTraRate = riga->value(QStringLiteral("MesiTraRate")).toInt();
    c.GiorniDaPrimaRata = riga->value(QStringLiteral("GiorniDaPrimaRata")).toInt();
    c.MesiDaPrimaRata = riga->value(QStringLiteral("MesiDaPrimaRata")).toInt();
    c.RipartizioneIva = riga->value(QStringLiteral("RipartizioneIva")).toString();
    c.SegnaPagato = riga->value(QStringLiteral("SegnaPagato")).toInt() == 1;
    c.InStampaRiba = riga->value(QStringLiteral("InStampaRiba")).toInt() == 1;
    return c;
}

double ArrotondaRata(double valore)
{
    const double centesimi = valore * 100.0;
    if (!std::isfinite(centesimi))
        return valore;
    const double intero = std::floor(centesimi);
    const double resto = centesimi - intero;
    // A half within the binary noise of the product is a true half of the decimal value.
    const double tolleranza = (std::fabs(centesimi) + 1.0) * 1e-12;
    double risultato;
    if (std::fabs(resto - 0.5) <= tolleranza)
        risultato = std::fmod(intero, 2.0) == 0.0 ? intero : intero + 1.0;
    else
        risultato = resto < 0.5 ? intero : intero + 1.0;
    return risultato / 100.0;
}

QDate CalcolaDataScadenza(const QDate& dataDoc, int nroRata, int numeroDiRate, int giorniDaPrimaRata, int giorniTraRate,
                          int mesiTraRate, int mesiDaPrimaRata, const QString& decorrenzaRate)
{
    Q_UNUSED(numeroDiRate)
    if (!dataDoc.isValid())
        return QDate();
    int eccesso = 0;
    auto riporta = [](int& mese, int& anno) {
        const int anni = divisioneIntera(mese - 1, 12);
        anno += anni;
        mese -= anni * 12;
    };
    auto limita = [&eccesso](int& giorno, int mese) {
        if (giorno > giorniDelMese(mese)) {
            if (eccesso == 0)
                eccesso = giorno - giorniDelMese(mese);
            giorno = giorniDelMese(mese);
        }
    };

    int giorno = dataDoc.day();
    int mese = dataDoc.month() + mesiDaPrimaRata;
    int anno = dataDoc.year() % 100;
    riporta(mese, anno);
    limita(giorno, mese);
    QDate data = QDate(annoDaDueCifre(anno), mese, giorno).addDays(giorniDaPrimaRata);

    if (nroRata > 1 && data.isValid()) {
        giorno = data.day();
        mese = data.month() + (nroRata - 1) * mesiTraRate;
        anno = data.year() % 100;
        riporta(mese, anno);
        giorno += eccesso;
        limita(giorno, mese);
        data = QDate(annoDaDueCifre(anno), mese, giorno).addDays(qint64(nroRata - 1) * giorniTraRate);
    }

    if (decorrenzaRate == pagamenti::FineMeseDataFattura && data.isValid())
        data = QDate(annoDaDueCifre(data.year() % 100), data.month(), giorniDelMese(data.month()));
    return data;
}

std::vector<Rata> CalcolaRate(const CondizioniPagamento& c, const QDate& dataDoc, double totale, double imponibile,
                              double valoreProvvigione)
{
    const int n = c.NumeroDiRate;
    double prima = 0, regolare = 0, resto = 0;
    if (n > 1) {
        if (c.RipartizioneIva == pagamenti::IvaSuTutteLeRate) {
            regolare = ArrotondaRata(totale / n);
            prima = regolare;
            resto = senzaRumore(totale - regolare * n);
        } else if (c.RipartizioneIva == pagamenti::PrimaRataSoloIva) {
            prima = senzaRumore(totale - imponibile);
            regolare = ArrotondaRata(imponibile / (n - 1));
            resto = senzaRumore(imponibile - regolare * (n - 1));
        } else if (c.RipartizioneIva == pagamenti::IvaTuttaSullaPrimaRata) {
            regolare = ArrotondaRata(imponibile / n);
            prima = senzaRumore(totale + regolare - imponibile);
            resto = senzaRumore(imponibile - regolare * n);
        }
    } else {
        prima = totale;
    }

    double cPrima = 0, cRegolare = 0, cResto = 0;
    if (totale != 0 && valoreProvvigione != 0) {
        if (n > 1) {
            cPrima = ArrotondaRata(prima * valoreProvvigione / totale);
            cRegolare = ArrotondaRata(valoreProvvigione * regolare / totale);
            cResto = senzaRumore((valoreProvvigione - cPrima) - (n - 1) * cRegolare);
        } else {
            cPrima = valoreProvvigione;
        }
    }

    std::vector<Rata> rate;
    for (int i = 1; i <= n; ++i) {
        Rata r;
        r.numero = i;
        if (i == 1 && i < n) {
            r.importo = prima;
            r.provvigione = cPrima;
        } else if (i > 1 && i < n) {
            r.importo = regolare;
            r.provvigione = cRegolare;
        } else if (i == n && n > 1) {
            r.importo = senzaRumore(regolare + resto);
            r.provvigione = senzaRumore(cRegolare + cResto);
        } else {
            r.importo = prima;
            r.provvigione = cPrima + cResto;
        }
        r.scadenza = CalcolaDataScadenza(dataDoc, i, n, c.GiorniDaPrimaRata, c.GiorniTraRate, c.MesiTraRate,
                                         c.MesiDaPrimaRata, c.DecorrenzaRate);
        rate.push_back(r);
    }
    return rate;
}

Pagamenti::Pagamenti(Archivio& archivio, Interazione* interazione)
    : m_archivio(archivio)
    , m_interazione(interazione)
{
}

bool Pagamenti::CreaScadenze(const DatiScadenze& d)
{
    if (m_archivio.esisteRiga(QStringLiteral("SELECT 1 FROM Pagamenti WHERE TipoDiPagamento = ? AND TipoDoc = ?"
                                             " AND DataDoc = ? AND NroDoc = ?"),
                              { d.TipoDiPagamento, d.TipoDoc, dataArchivio(d.DataDoc), d.NroDoc })) {
        if (m_interazione)
            m_interazione->messaggio(QStringLiteral("ERRORE: il pagamento che si stà registrando esiste già"));
        return false;
    }
    const CondizioniPagamento condizioni = LeggiCondizioniPagamento(m_archivio, d.DescrizionePagamento);
    const std::vector<Rata> rate = CalcolaRate(condizioni, d.DataDoc, d.Totale, d.Imponibile, d.ValoreProvvigione);
    auto inserisci = m_archivio.prepara(QStringLiteral(
        "INSERT INTO Pagamenti (TipoDiPagamento, TipoDoc, DataDoc, NroDoc, CodCliente, DesCliente, ImportoFattura,"
        " DataSaldo, ImportoSaldo, Saldato, Note, DescrizionePagamento, DataScadenzaRata, Agente,"
        " PercentualeProvvigione, ValoreProvvigione, ValoreSaldatoProvvigione, StatoProvvigione, TipoCliFor)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, '', ?, ?, ?, ?, ?, 0, '', '')"));
    if (!inserisci)
        return false;
    const bool saldato = d.Saldato == pagamenti::Saldato;
    for (const Rata& r : rate) {
        if (!m_archivio.esegui(*inserisci,
                               { d.TipoDiPagamento, d.TipoDoc, dataArchivio(d.DataDoc), d.NroDoc,
                                 taglia(d.CodCliente, 50), taglia(d.DesCliente, 200), r.importo,
                                 valoreData(d.DataRiferimento), saldato ? r.importo : 0.0, d.Saldato,
                                 taglia(d.DescrizionePagamento, 50), valoreData(r.scadenza), taglia(d.Agente, 50),
                                 d.PercentualeProvvigione, r.provvigione }))
            return false;
    }
    return aggiornaStati(d.TipoDoc, d.DataDoc, d.NroDoc);
}

bool Pagamenti::aggiornaStati(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    auto gruppi = m_archivio.esegui(
        QStringLiteral("SELECT DataScadenzaRata, Sum(ImportoFattura) AS SommaDiImportoFattura,"
                       " Sum(ImportoSaldo) AS SommaDiImportoSaldo FROM Pagamenti"
                       " WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ? GROUP BY DataScadenzaRata"),
        { tipoDoc, dataArchivio(dataDoc), nroDoc });
    if (!gruppi)
        return false;
    struct Gruppo
    {
        QDate scadenza;
        bool saldato;
    };
    std::vector<Gruppo> elenco;
    QSqlQuery q = std::move(*gruppi);
    while (q.next())
        elenco.push_back({ dataDaArchivio(q.value(0)), stessoImporto(q.value(1).toDouble(), q.value(2).toDouble()) });
    for (const Gruppo& g : elenco) {
        if (!ImpostaStatoDocumento(tipoDoc, dataDoc, nroDoc, g.scadenza,
                                   g.saldato ? pagamenti::Saldato : pagamenti::Credito))
            return false;
    }
    return true;
}

bool Pagamenti::CancellaScadenzeDocumento(const QString& tipoDiPagamento, const QString& tipoDoc, const QDate& dataDoc,
                                          qint64 nroDoc, const QString& comando, bool* ok)
{
    const QVariantList documento { tipoDoc, dataArchivio(dataDoc), nroDoc };
    bool riuscito = true;
    if (comando == pagamenti::Cancella) {
        riuscito = m_archivio.comando(QStringLiteral("DELETE FROM Pagamenti WHERE TipoDiPagamento = ? AND TipoDoc = ?"
                                                     " AND DataDoc = ? AND NroDoc = ?"),
                                      QVariantList { tipoDiPagamento } + documento);
    }
    const QString pagamentiFatti = QStringLiteral(" FROM Pagamenti WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ?"
                                                  " AND (TipoDiPagamento = 'Scadenze' OR TipoDiPagamento IS NULL)");
    bool senzaPagamenti = true;
    if (m_archivio.esisteRiga(QStringLiteral("SELECT 1") + pagamentiFatti, documento)) {
        senzaPagamenti = false;
        riuscito = m_archivio.comando(QStringLiteral("UPDATE Pagamenti SET Saldato = 'Credito' WHERE Indice IN"
                                                     " (SELECT Indice")
                                          + pagamentiFatti + QLatin1Char(')'),
                                      documento)
            && riuscito;
    }
    if (ok)
        *ok = riuscito;
    return senzaPagamenti;
}

bool Pagamenti::ControllaCollegamentiDocumento(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc,
                                               bool senzaControlloCollegamenti)
{
    if (senzaControlloCollegamenti || tipoDoc.trimmed().isEmpty() || nroDoc == 0)
        return false;
    const bool collegati = m_archivio.esisteRiga(
        QStringLiteral("SELECT 1 FROM Pagamenti WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ?"
                       " AND (TipoDiPagamento IS NULL OR TipoDiPagamento <> 'DocumentoNew')"),
        { tipoDoc, dataArchivio(dataDoc), nroDoc });
    if (!collegati || !m_interazione)
        return false;
    return !m_interazione->domandaSiNo(
        QStringLiteral("ATTENZIONE!!!: Ci sono delle operazioni effettuate collegate a questo documento. \n"
                       "Ciò modifica in modo irreversibile i collegamenti esistenti. CONTINUARE ?"));
}

bool Pagamenti::ImpostaStatoScadenza(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc,
                                     const QDate& dataScadenzaRata)
{
    QString sql = QStringLiteral("SELECT Sum(ImportoFattura), Sum(ImportoSaldo) FROM Pagamenti"
                                 " WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ?");
    QVariantList parametri { tipoDoc, dataArchivio(dataDoc), nroDoc };
    if (dataScadenzaRata.isValid()) {
        sql += QStringLiteral(" AND DataScadenzaRata = ?");
        parametri << dataArchivio(dataScadenzaRata);
    }
    const auto somme = m_archivio.riga(sql, parametri);
    if (!somme)
        return false;
    const bool saldato = stessoImporto(somme->value(0).toDouble(), somme->value(1).toDouble());
    return ImpostaStatoDocumento(tipoDoc, dataDoc, nroDoc, dataScadenzaRata,
                                 saldato ? pagamenti::Saldato : pagamenti::Credito);
}

bool Pagamenti::ImpostaStatoDocumento(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc,
                                      const QDate& dataScadenzaRata, const QString& stato)
{
    QString sql = QStringLiteral("UPDATE Pagamenti SET Saldato = ? WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ?");
    QVariantList parametri { stato, tipoDoc, dataArchivio(dataDoc), nroDoc };
    if (dataScadenzaRata.isValid()) {
        sql += QStringLiteral(" AND DataScadenzaRata = ?");
        parametri << dataArchivio(dataScadenzaRata);
    }
    return m_archivio.comando(sql, parametri);
}

bool Pagamenti::AggiornaStatoProvvigioni(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    const QVariantList documento { tipoDoc, dataArchivio(dataDoc), nroDoc };
    // An instalment's commission is settled when an agent's row of the same due date paid exactly it.
    const bool istanze = m_archivio.comando(
        QStringLiteral(
            "UPDATE Pagamenti SET StatoProvvigione = CASE WHEN EXISTS (SELECT 1 FROM Pagamenti a"
            " WHERE a.TipoDiPagamento = 'Agente' AND a.TipoDoc = Pagamenti.TipoDoc AND a.DataDoc = Pagamenti.DataDoc"
            " AND a.NroDoc = Pagamenti.NroDoc AND a.DataScadenzaRata IS Pagamenti.DataScadenzaRata"
            " AND a.Agente = Pagamenti.Agente AND a.ValoreSaldatoProvvigione = Pagamenti.ValoreProvvigione)"
            " THEN 'Saldato' ELSE '' END"
            " WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ? AND TipoDiPagamento = 'DocumentoNew'"
            " AND coalesce(Agente, '') <> ''"),
        documento);
    const bool agenti = m_archivio.comando(
        QStringLiteral("UPDATE Pagamenti SET StatoProvvigione = CASE WHEN EXISTS (SELECT 1 FROM Pagamenti d"
                       " WHERE d.TipoDiPagamento = 'DocumentoNew' AND d.TipoDoc = Pagamenti.TipoDoc"
                       " AND d.DataDoc = Pagamenti.DataDoc AND d.NroDoc = Pagamenti.NroDoc"
                       " AND d.DataScadenzaRata IS Pagamenti.DataScadenzaRata AND d.Agente = Pagamenti.Agente"
                       " AND d.ValoreProvvigione = Pagamenti.ValoreSaldatoProvvigione)"
                       " THEN 'Saldato' ELSE '' END"
                       " WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ? AND TipoDiPagamento = 'Agente'"),
        documento);
    return istanze && agenti;
}

bool Pagamenti::DocumentoSaldato(const QString& tipoDiPagamento, const QString& tipoDoc, const QDate& dataDoc,
                                 qint64 nroDoc)
{
    return !m_archivio.esisteRiga(QStringLiteral("SELECT 1 FROM Pagamenti WHERE TipoDiPagamento = ? AND TipoDoc = ?"
                                                 " AND DataDoc = ? AND NroDoc = ? AND Saldato = 'Credito'"),
                                  { tipoDiPagamento, tipoDoc, dataArchivio(dataDoc), nroDoc });
}

bool Pagamenti::DocumentoSenzaMovimenti(const QString& tipoDoc, const QDate& dataDoc, qint64 nroDoc)
{
    return !m_archivio.esisteRiga(
        QStringLiteral("SELECT 1 FROM Pagamenti WHERE TipoDoc = ? AND DataDoc = ? AND NroDoc = ?"
                       " AND (TipoDiPagamento IS NULL OR TipoDiPagamento NOT IN ('DocumentoNew', 'Agente'))"),
        { tipoDoc, dataArchivio(dataDoc), nroDoc });
}

} // namespace tomvera
