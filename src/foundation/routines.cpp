#include "foundation/routines.h"

#include "foundation/formati.h"

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
#include <array>
#include <cmath>
#include <optional>

namespace tomvera {

namespace {

bool soloCifre(const QString& testo)
{
    if (testo.isEmpty())
        return false;
    for (const QChar c : testo) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return true;
}

// The masks "##/##/##" and "##/##/####" of a date typed without separators. Only digits are masked: the old
// runtime left any other text as it was.
QString applicaMascheraData(const QString& testo)
{
    if (!soloCifre(testo) || (testo.size() != 6 && testo.size() != 8))
        return testo;
    return testo.left(2) + QLatin1Char('/') + testo.mid(2, 2) + QLatin1Char('/') + testo.mid(4);
}

bool oraValida(const QString& testo)
{
    return leggiOra(testo).has_value();
}

} // namespace

QString MascheraData(QString& testo, Interazione& interazione)
{
    const QString mascherato = leggiData(testo) ? testo : applicaMascheraData(testo);
    if (const auto data = leggiData(mascherato)) {
        testo = testoData(*data);
        return testo;
    }
    if (!testo.isEmpty())
        interazione.messaggio(QStringLiteral("La data non è corretta"), QStringLiteral("DATA"),
                              Interazione::Icona::Critico);
    return testo;
}

QString MascheraDataSilenziosa(QString& testo)
{
    const QString mascherato = leggiData(testo) ? testo : applicaMascheraData(testo);
    testo = leggiData(mascherato) ? mascherato : QString();
    return testo;
}

QString MascheraOra(const QString& testo)
{
    if (testo.size() >= 6)
        return QString();
    if (testo.size() <= 2) {
        const QString ora = testo + QStringLiteral(".00");
        return oraValida(ora) ? ora : QString();
    }
    static const QRegularExpression unaCifraDueDecimali(QStringLiteral("^\\d\\.\\d\\d$"));
    static const QRegularExpression unaCifraUnDecimale(QStringLiteral("^\\d\\.\\d$"));
    QString ora = testo;
    if (unaCifraDueDecimali.match(ora).hasMatch())
        ora.prepend(QLatin1Char('0'));
    else if (unaCifraUnDecimale.match(ora).hasMatch())
        ora = QLatin1Char('0') + ora + QLatin1Char('0');
    if (ora.size() == 4)
        ora = ora.left(2) + QLatin1Char('.') + ora.right(2);
    return oraValida(ora) ? ora : QString();
}

QString FormattaValuta(double valore)
{
    return formattaNumero(valore, 2);
}

QString FormattaDecimali(double valore, int decimali)
{
    if (decimali < 0 || decimali > 8)
        return QString();
    return formattaNumero(valore, decimali);
}

double Arrotonda(double valore, int decimali)
{
    const double scala = std::pow(10.0, decimali);
    const double scalato = valore * scala;
    if (!std::isfinite(scalato) || scala == 0.0)
        return valore;
    // Amounts are decimal: 10.0049 * 100 is 1000.49, not the 1000.4899999999999 of binary arithmetic, and
    // 1000.49 + 0.51 must reach 1001 or the 0.51 rule loses its cent. A sum that falls short of the next whole
    // number by binary noise only (far below any digit a user types) is that whole number.
    const double spostato = scalato + 0.51;
    double intero = std::floor(spostato);
    if ((intero + 1.0) - spostato <= (std::fabs(scalato) + 1.0) * 1e-14)
        intero += 1.0;
    return intero / scala;
}

QString ArrotondaEFormatta(const QString& testo, int decimali)
{
    QString cifre;
    bool virgola = false;
    bool negativo = false;
    for (const QChar c : testo) {
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
            cifre += c;
        } else if (c == QLatin1Char(',')) {
            if (!virgola)
                cifre += QLatin1Char('.');
            virgola = true;
        } else if (c == QLatin1Char('-')) {
            negativo = !negativo;
        }
    }
    double valore = 0.0;
    if (!cifre.isEmpty()) {
        bool ok = false;
        valore = cifre.toDouble(&ok);
        if (!ok || !std::isfinite(valore))
            valore = 0.0;
        if (negativo)
            valore = -valore;
    }
    const int mostrati = decimali > 9 ? 10 : qMax(decimali, 0);
    return formattaNumero(Arrotonda(valore, decimali), mostrati);
}

QString RaddoppiaApici(const QString& testo)
{
    QString risultato = testo;
    risultato.replace(QLatin1Char('\''), QStringLiteral("''"));
    return risultato;
}

QString TogliApici(const QString& testo)
{
    QString risultato = testo;
    risultato.remove(QLatin1Char('\''));
    return risultato;
}

bool ValoreVero(const QString& testo)
{
    const QString t = testo.toUpper();
    return t == QLatin1String("TRUE") || t == QLatin1String("VERO") || t == QLatin1String("SI")
        || t == QLatin1String("-1");
}

double ValoreVersione(const QString& testo)
{
    QString t = testo.trimmed();
    if (t.isEmpty())
        return 0.0;
    return leggiNumero(t).value_or(0.0);
}

int NumeroDelMese(const QString& nome)
{
    static const std::array<const char*, 12> mesi
        = { "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
            "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre" };
    const QString n = nome.toLower();
    for (int i = 0; i < 12; ++i) {
        if (n == QLatin1String(mesi[static_cast<size_t>(i)]))
            return i + 1;
    }
    return 0;
}

QDate UltimoGiornoMese(int mese, int anno)
{
    for (int giorno = 31; giorno >= 28; --giorno) {
        const QDate d(anno, mese, giorno);
        if (d.isValid())
            return d;
    }
    return QDate();
}

int CalcolaEta(const QDate& nascita, const QDate& data)
{
    if (!nascita.isValid() || !data.isValid())
        return 0;
    int eta = data.year() - nascita.year() - 1;
    if (data.month() > nascita.month() || (data.month() == nascita.month() && data.day() >= nascita.day()))
        ++eta;
    return eta;
}

bool ScriviValoreIni(const QString& file, const QString& sezione, const QString& chiave, const QString& valore)
{
    // Bytes, not text: the other lines go back exactly as they were, whatever their encoding.
    QByteArray contenuto;
    {
        QFile esistente(file);
        if (esistente.exists() && !esistente.open(QIODevice::ReadOnly))
            return false;
        if (esistente.isOpen())
            contenuto = esistente.readAll();
    }
    // A new file gets the platform's line ends; an existing one keeps its own.
#ifdef Q_OS_WIN
    const bool crlf = !contenuto.contains('\n') || contenuto.contains("\r\n");
#else
    const bool crlf = contenuto.contains("\r\n");
#endif
    const QByteArray fineRiga = crlf ? QByteArray("\r\n") : QByteArray("\n");
    QList<QByteArray> righe = contenuto.split('\n');
    if (!righe.isEmpty() && righe.last().isEmpty())
        righe.removeLast();
    for (QByteArray& r : righe) {
        if (r.endsWith('\r'))
            r.chop(1);
    }

    const QByteArray nomeSezione = sezione.trimmed().toLocal8Bit();
    const QByteArray nomeChiave = chiave.trimmed().toLocal8Bit();
    const QByteArray nuova = nomeChiave + '=' + valore.toLocal8Bit();
    auto intestazione = [](const QByteArray& riga) -> std::optional<QByteArray> {
        const QByteArray t = riga.trimmed();
        if (t.startsWith('[') && t.endsWith(']'))
            return t.mid(1, t.size() - 2).trimmed();
        return std::nullopt;
    };

    qsizetype inizio = -1;
    for (qsizetype i = 0; i < righe.size(); ++i) {
        const auto nome = intestazione(righe.at(i));
        if (nome && nome->compare(nomeSezione, Qt::CaseInsensitive) == 0) {
            inizio = i;
            break;
        }
    }
    if (inizio < 0) {
        righe << '[' + nomeSezione + ']' << nuova;
    } else {
        qsizetype fine = inizio + 1;
        bool scritta = false;
        for (; fine < righe.size() && !intestazione(righe.at(fine)); ++fine) {
            const QByteArray& r = righe.at(fine);
            const qsizetype uguale = r.indexOf('=');
            if (uguale > 0 && r.left(uguale).trimmed().compare(nomeChiave, Qt::CaseInsensitive) == 0) {
                righe[fine] = nuova;
                scritta = true;
                break;
            }
        }
        if (!scritta) {
            // After the section's last non-blank line, so the blank line before the next section stays.
            qsizetype dove = fine;
            while (dove > inizio + 1 && righe.at(dove - 1).trimmed().isEmpty())
                --dove;
            righe.insert(dove, nuova);
        }
    }

    QSaveFile uscita(file);
    if (!uscita.open(QIODevice::WriteOnly))
        return false;
    for (const QByteArray& r : righe)
        uscita.write(r + fineRiga);
    return uscita.commit();
}

void Messaggio(Interazione& interazione, Interazione::TipoAvviso tipo, const QString& testo, int durataMs, bool modale)
{
    interazione.avviso(tipo, testo, qMax(durataMs, 0), modale);
}

void Messaggio(Interazione& interazione, const QString& tipo, const QString& testo, int durataMs, bool modale)
{
    using T = Interazione::TipoAvviso;
    T t = T::Informazione;
    if (tipo == QLatin1String("Conferma"))
        t = T::Conferma;
    else if (tipo == QLatin1String("Errore"))
        t = T::Errore;
    else if (tipo == QLatin1String("Domanda"))
        t = T::Domanda;
    else if (tipo == QLatin1String("InputBox"))
        t = T::InputBox;
    Messaggio(interazione, t, testo, durataMs, modale);
}

} // namespace tomvera
