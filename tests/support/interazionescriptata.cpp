#include "interazionescriptata.h"

namespace tomvera::test {

QVariant InterazioneScriptata::prendi(Tipo tipo, const QString& testo)
{
    if (m_risposte.empty()) {
        if (m_errore.isEmpty())
            m_errore = QStringLiteral("domanda inattesa: ") + testo;
        return QVariant();
    }
    Risposta r = m_risposte.front();
    m_risposte.pop_front();
    const bool compatibile = r.tipo == tipo || (tipo == Tipo::SiNoAnnulla && r.tipo == Tipo::SiNo);
    if (!compatibile && m_errore.isEmpty())
        m_errore = QStringLiteral("risposta di altro tipo per: ") + testo;
    if (!r.attesoContiene.isEmpty() && !testo.contains(r.attesoContiene) && m_errore.isEmpty())
        m_errore = QStringLiteral("la risposta per \"") + r.attesoContiene + QStringLiteral("\" e' andata a: ") + testo;
    return r.valore;
}

void InterazioneScriptata::messaggio(const QString& testo, const QString& titolo, Icona)
{
    m_testi << testo;
    m_messaggi << testo;
    m_titoli << titolo;
}

bool InterazioneScriptata::domandaSiNo(const QString& testo, const QString& titolo, Icona)
{
    m_testi << testo;
    m_titoli << titolo;
    return prendi(Tipo::SiNo, testo).toBool();
}

std::optional<bool> InterazioneScriptata::domandaSiNoAnnulla(const QString& testo, const QString& titolo, Icona)
{
    m_testi << testo;
    m_titoli << titolo;
    const QVariant v = prendi(Tipo::SiNoAnnulla, testo);
    return v.isValid() ? std::optional<bool>(v.toBool()) : std::nullopt;
}

bool InterazioneScriptata::okAnnulla(const QString& testo, const QString& titolo, Icona)
{
    m_testi << testo;
    m_titoli << titolo;
    return prendi(Tipo::OkAnnulla, testo).toBool();
}

std::optional<QString> InterazioneScriptata::inputBox(const QString& testo, const QString& titolo, const QString&)
{
    m_testi << testo;
    m_titoli << titolo;
    const QVariant v = prendi(Tipo::Input, testo);
    if (!v.isValid())
        return std::nullopt;
    return v.toString();
}

std::optional<QString> InterazioneScriptata::scegliFileDaAprire(const QString& titolo, const QString&, const QString&)
{
    const QVariant v = prendi(Tipo::File, titolo);
    return v.isValid() ? std::optional<QString>(v.toString()) : std::nullopt;
}

std::optional<QString> InterazioneScriptata::scegliFileDaSalvare(const QString& titolo, const QString&, const QString&)
{
    const QVariant v = prendi(Tipo::File, titolo);
    return v.isValid() ? std::optional<QString>(v.toString()) : std::nullopt;
}

std::optional<QString> InterazioneScriptata::scegliCartella(const QString& titolo, const QString&)
{
    const QVariant v = prendi(Tipo::Cartella, titolo);
    return v.isValid() ? std::optional<QString>(v.toString()) : std::nullopt;
}

void InterazioneScriptata::avviso(TipoAvviso, const QString& testo, int, bool)
{
    m_testi << testo;
}

void InterazioneScriptata::archivioOccupato(int)
{
    ++m_avvisiOccupato;
}

} // namespace tomvera::test
