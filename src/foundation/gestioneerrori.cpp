#include "foundation/gestioneerrori.h"

#include "foundation/interazione.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <cstdlib>

namespace tomvera {

GestioneErrori::GestioneErrori(Interazione* interazione)
    : m_interazione(interazione)
    , m_pausa(&Pausa)
    , m_termina([] { std::_Exit(EXIT_FAILURE); })
{
}

bool GestioneErrori::erroreDiArchivioOccupato(int numero)
{
    return numero == OggettoNonImpostato || numero == ImpossibileAprireFile || numero == RecordBloccato
        || numero == AperturaEsclusiva;
}

QString GestioneErrori::testoArchivioOccupato()
{
    return QStringLiteral("Archivio occupato da un altro utente: riprovare più tardi.");
}

QString GestioneErrori::testoSolaLettura(const QString& percorso)
{
    return QStringLiteral("Archivio in sola lettura, le modifiche non possono essere salvate (controllare i permessi "
                          "del file e della cartella): ")
        + QDir::toNativeSeparators(percorso);
}

void GestioneErrori::segnalaProblema(ProblemaArchivio problema, const QString& percorso, bool avvisa)
{
    m_problema = problema;
    m_percorsoProblema = percorso;
    if (!avvisa || m_problemaDetto || !m_interazione || problema == ProblemaArchivio::Nessuno)
        return;
    // One notice per lost save: the statements that follow it in the same save fail for the same reason.
    m_problemaDetto = true;
    m_interazione->messaggio(testoProblema(), {}, Interazione::Icona::Critico);
}

QString GestioneErrori::testoProblema() const
{
    switch (m_problema) {
    case ProblemaArchivio::Occupato:
        return testoArchivioOccupato();
    case ProblemaArchivio::SolaLettura:
        return testoSolaLettura(m_percorsoProblema);
    case ProblemaArchivio::Nessuno:
        break;
    }
    return QString();
}

bool GestioneErrori::GestioneErroreDatabase(int numero, const QString& descrizione)
{
    ++m_contatore;
    if (m_contatore > 10000) {
        m_termina();
        return false;
    }
    if (m_contatore >= 100)
        return false;

    if (erroreDiArchivioOccupato(numero)) {
        QCoreApplication::processEvents();
        if (m_interazione)
            m_interazione->archivioOccupato(m_contatore);
        m_pausa(0.03);
        return true;
    }

    if (!m_diagnostica) {
        m_contatore = 0;
        return false;
    }

    if (!m_interazione)
        return false;
    const QString testo = QStringLiteral("  -- Messaggi di Errore Attivo (in Config->Utility) --  \n")
        + QString::number(numero) + QLatin1Char(' ') + descrizione + QStringLiteral("\nRipetere Stessa Istruzione ?");
    return m_interazione->okAnnulla(testo, {}, Interazione::Icona::Critico);
}

void Pausa(double secondi)
{
    QElapsedTimer tempo;
    tempo.start();
    const qint64 limite = qint64(secondi * 1000.0);
    while (tempo.elapsed() < limite) {
        if (QCoreApplication::instance())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
}

} // namespace tomvera
