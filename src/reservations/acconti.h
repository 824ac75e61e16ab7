#pragma once

#include <QDate>
#include <QList>
#include <QString>

namespace tomvera {

class Archivio;
class Interazione;
class Orologio;

// F_Acconti: the deposits of a saved reservation, written at once (they survive the reservation's rewrite).
// One screen for the three kinds of reservation; the mode picks the tables.
class SchedaAcconti
{
public:
    enum class Modo
    {
        Camere,
        Sale,
        Spiaggia
    };

    struct Riga
    {
        qint64 Indice = 0;
        QDate Data;
        QString Descrizione;
        double Dare = 0;
        bool EffettuataFatturaRicevuta = false;
    };

    SchedaAcconti(Archivio& archivio, Interazione& interazione, const Orologio& orologio, Modo modo,
                  qint64 IndicePrenotazione);

    // The entry line.
    qint64 IndiceMovimento = 0; // the row clicked, 0 for a new one
    QString Data, Descrizione, Importo;
    bool FR = false; // "F/R*"

    const QList<Riga>& righe() const { return m_righe; }
    double totale() const;

    void Aggiorna_Click();
    // False when the deposit was refused or the update not confirmed: the entry line keeps it.
    bool Ins_Click();
    void Cancella_Click();
    void Command6_Click(); // all receipted
    void Command1_Click(); // none receipted
    void Righe_Click(int riga);
    void PulisciCampi();
    // On closing: the sum goes to TotaleAcconto of the header.
    void RegistraTotaleAcconto();

    // The entry line shows something other than a blank new deposit (typed, or a row taken back).
    bool rigaOccupata() const;
    // The entry line differs from what it was last cleared to or loaded from: a deposit not yet inserted.
    bool rigaModificata() const;
    // Every way of closing the screen goes through here. A deposit typed but not inserted is asked about
    // (Annulla keeps the screen open); when the screen may close the total is written. True to close.
    bool Fine_Click();

    static QString notaPiede()
    {
        return QStringLiteral("* F/R = E' stata Eseguita la Ricevuta o Fattura dell'Acconto");
    }

private:
    void ImpostaAccontoFatturato(bool fatturato);
    void ricordaRiga();
    QString tabellaMovimenti() const;
    QString tabellaTestate() const;

    Archivio& m_archivio;
    Interazione& m_interazione;
    const Orologio& m_orologio;
    Modo m_modo;
    qint64 m_indicePrenotazione;
    QList<Riga> m_righe;
    // The entry line as last cleared or loaded.
    QString m_dataBase, m_descrizioneBase, m_importoBase;
    bool m_frBase = false;
};

// F_ListaPrenotazioni: the stays of one room that meet a period, one line per guest, payer first.
struct VoceListaPrenotazioni
{
    qint64 IndicePrenotazione = 0;
    int NumeroPrenotazione = 0;
    QDate DataPrenotazione;
    QString Cliente;
    QDate Dal, Al;
};
QList<VoceListaPrenotazioni> caricaListaPrenotazioni(Archivio& archivio, const QString& nroCamera, const QDate& dal,
                                                     const QDate& al);

} // namespace tomvera
