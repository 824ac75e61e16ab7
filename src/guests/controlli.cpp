#include "guests/controlli.h"

#include "foundation/interazione.h"
#include "foundation/routines.h"

#include <array>

namespace tomvera {

namespace {

// Values of the characters in odd positions (1, 3, ... 15): digits and letters share the table.
constexpr std::array<int, 26> valoriDispari
    = { 1, 0, 5, 7, 9, 13, 15, 17, 19, 21, 2, 4, 18, 20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23 };

// 0..25 for 0-9 and A-Z (digits map onto A-J), -1 for anything else.
int posizione(QChar c)
{
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9')
        return u - u'0';
    if (u >= u'A' && u <= u'Z')
        return u - u'A';
    return -1;
}

bool contiene(const QString& testo, const char* parola)
{
    return testo.contains(QLatin1String(parola), Qt::CaseInsensitive);
}

} // namespace

QString ControllaCodiceFiscale(QString& codice)
{
    if (codice.isEmpty())
        return {};
    if (codice.size() != 16)
        return QStringLiteral("il codice fiscale dovrebbe essere lungo 16 caratteri.");
    codice = codice.toUpper();
    const QString errato = QStringLiteral("Il codice fiscale non è corretto ");
    int somma = 0;
    for (int i = 0; i < 15; ++i) {
        const int p = posizione(codice.at(i));
        if (p < 0)
            return errato;
        // Positions count from 1: index 0 is odd.
        somma += (i % 2 == 0) ? valoriDispari[static_cast<size_t>(p)] : p;
    }
    const QChar atteso(u'A' + somma % 26);
    return codice.at(15) == atteso ? QString() : errato;
}

bool ControllaPartitaIva(const QString& partitaIva)
{
    const QString p = partitaIva.trimmed();
    if (p.isEmpty())
        return true;
    if (p.size() != 11)
        return false;
    int somma = 0;
    for (int i = 0; i < 10; ++i) {
        const char16_t u = p.at(i).unicode();
        if (u < u'0' || u > u'9')
            return false;
        int cifra = u - u'0';
        if (i % 2 == 1) {
            cifra *= 2;
            if (cifra > 9)
                cifra -= 9;
        }
        somma += cifra;
    }
    const char16_t ultima = p.at(10).unicode();
    if (ultima < u'0' || ultima > u'9')
        return false;
    return (10 - somma % 10) % 10 == ultima - u'0';
}

std::optional<int> anniValiditaDocumento(const QString& tipoDocumento, const QDate& rilascio, const QDate& nascita)
{
    // Only the words of the table count: the chooser's text decides, so "CARTA DI IDENTITA'" has no rule.
    if (contiene(tipoDocumento, "C.I."))
        return 5;
    if (contiene(tipoDocumento, "Patente")) {
        if (!nascita.isValid() || !rilascio.isValid())
            return std::nullopt;
        const int eta = CalcolaEta(nascita, rilascio);
        if (eta <= 50)
            return 10;
        if (eta <= 70)
            return 5;
        return 3;
    }
    if (contiene(tipoDocumento, "Passaporto"))
        return 10;
    return std::nullopt;
}

std::optional<QDate> scadenzaDocumento(const QString& tipoDocumento, const QDate& rilascio, const QDate& nascita)
{
    if (!rilascio.isValid())
        return std::nullopt;
    const auto anni = anniValiditaDocumento(tipoDocumento, rilascio, nascita);
    if (!anni)
        return std::nullopt;
    return rilascio.addYears(*anni);
}

bool ControllaValiditaDocumento(const QString& tipoDocumento, const QDate& rilascio, const QDate& nascita,
                                const QDate& oggi, Interazione& interazione)
{
    const auto scadenza = scadenzaDocumento(tipoDocumento, rilascio, nascita);
    if (scadenza && *scadenza < oggi) {
        interazione.messaggio(QStringLiteral("Attenzione documento non più valido"));
        return false;
    }
    return true;
}

} // namespace tomvera
