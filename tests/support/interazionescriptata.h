#pragma once

#include "foundation/interazione.h"

#include <QStringList>
#include <QVariant>
#include <deque>

namespace tomvera::test {

// Answers questions from a script and records every text shown. A question with no scripted answer, or one
// answered by the script entry of another kind, fails the test (see errore()).
class InterazioneScriptata : public Interazione
{
public:
    enum class Tipo
    {
        SiNo,
        SiNoAnnulla,
        OkAnnulla,
        Input,
        File,
        Cartella
    };

    struct Risposta
    {
        Tipo tipo;
        QVariant valore; // bool for SiNo/OkAnnulla; QString or invalid (cancel) for the others
        QString attesoContiene; // when set, the question's text must contain it
    };

    // Script helpers.
    void rispondiSi(const QString& contiene = {}) { m_risposte.push_back({ Tipo::SiNo, true, contiene }); }
    void rispondiNo(const QString& contiene = {}) { m_risposte.push_back({ Tipo::SiNo, false, contiene }); }
    // "Annulla" to a Yes/No/Cancel question (Sì and No to it are scripted with rispondiSi and rispondiNo).
    void rispondiAnnullaDomanda(const QString& contiene = {})
    {
        m_risposte.push_back({ Tipo::SiNoAnnulla, QVariant(), contiene });
    }
    void rispondiOk(const QString& contiene = {}) { m_risposte.push_back({ Tipo::OkAnnulla, true, contiene }); }
    void rispondiAnnulla(const QString& contiene = {}) { m_risposte.push_back({ Tipo::OkAnnulla, false, contiene }); }
    void rispondiInput(const QString& testo, const QString& contiene = {})
    {
        m_risposte.push_back({ Tipo::Input, testo, contiene });
    }
    void annullaInput(const QString& contiene = {}) { m_risposte.push_back({ Tipo::Input, QVariant(), contiene }); }
    void rispondiFile(const QString& percorso) { m_risposte.push_back({ Tipo::File, percorso, {} }); }
    void rispondiCartella(const QString& percorso) { m_risposte.push_back({ Tipo::Cartella, percorso, {} }); }

    // Every text shown, in order: messages, questions, inputs and notices alike.
    const QStringList& testi() const { return m_testi; }
    QStringList messaggi() const { return m_messaggi; }
    QStringList titoli() const { return m_titoli; }
    QString ultimoTesto() const { return m_testi.isEmpty() ? QString() : m_testi.last(); }
    int avvisiOccupato() const { return m_avvisiOccupato; }
    bool risposteFinite() const { return m_risposte.empty(); }
    // Non-empty when the script went wrong (unexpected question, wrong kind, text mismatch).
    const QString& errore() const { return m_errore; }
    void pulisci()
    {
        m_testi.clear();
        m_messaggi.clear();
        m_titoli.clear();
    }

    void messaggio(const QString& testo, const QString& titolo, Icona) override;
    bool domandaSiNo(const QString& testo, const QString& titolo, Icona) override;
    std::optional<bool> domandaSiNoAnnulla(const QString& testo, const QString& titolo, Icona) override;
    bool okAnnulla(const QString& testo, const QString& titolo, Icona) override;
    std::optional<QString> inputBox(const QString& testo, const QString& titolo, const QString& predefinito) override;
    std::optional<QString> scegliFileDaAprire(const QString& titolo, const QString&, const QString&) override;
    std::optional<QString> scegliFileDaSalvare(const QString& titolo, const QString&, const QString&) override;
    std::optional<QString> scegliCartella(const QString& titolo, const QString&) override;
    void avviso(TipoAvviso tipo, const QString& testo, int durataMs, bool modale) override;
    void archivioOccupato(int contatoreErrori) override;

private:
    QVariant prendi(Tipo tipo, const QString& testo);

    std::deque<Risposta> m_risposte;
    QStringList m_testi;
    QStringList m_messaggi;
    QStringList m_titoli;
    QString m_errore;
    int m_avvisiOccupato = 0;
};

} // namespace tomvera::test
