// tomvera: the first screen, then the main window, until the user ends or changes user.
#include "collegamenti.h"
#include "foundation/avvio/avvio.h"
#include "foundation/avvio/avvioselezioneutente.h"
#include "foundation/gestioneerrori.h"
#include "foundation/orologio.h"
#include "foundation/sessione.h"
#include "foundation/ui/avvioselezioneutentewidget.h"
#include "foundation/ui/finestraavvio.h"
#include "foundation/ui/interazioneqt.h"
#include "foundation/utenticollegati.h"

#include <QApplication>
#include <QEventLoop>

using namespace tomvera;

namespace {

enum class Esito
{
    Fine,
    CambiaUtente
};

Esito unaSessione(InterazioneQt& interazione, Orologio& orologio, GestioneErrori& errori)
{
    Sessione sessione(interazione, orologio, errori);
    AvvioSelezioneUtente primo(sessione, &UtentiCollegatiDB);
    AvvioSelezioneUtenteWidget schermo(primo);
    interazione.setGenitore(&schermo);
    schermo.avvia();
    if (schermo.exec() != QDialog::Accepted)
        return Esito::Fine;

    // From here on this run counts among the archive's users.
    UtentiCollegati registrazione;
    registrazione.registra(sessione.PercorsoDB, UtentiCollegati::nomeMacchina(), sessione.UtenteCollegato);

    Avvio avvio(sessione);
    avvio.contaUtenti = &UtentiCollegatiDB;
    FinestraAvvio finestra(avvio);
    interazione.setGenitore(&finestra);
    collegaComandi(finestra, avvio, sessione);
    if (!finestra.carica())
        return Esito::Fine;
    QEventLoop ciclo;
    QObject::connect(&finestra, &FinestraAvvio::termina, &ciclo, &QEventLoop::quit);
    QObject::connect(&finestra, &FinestraAvvio::cambiaUtente, &ciclo, &QEventLoop::quit);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &ciclo, &QEventLoop::quit);
    finestra.mostra();
    ciclo.exec();
    interazione.setGenitore(nullptr);
    return avvio.CambiaUtente && !avvio.Terminato ? Esito::CambiaUtente : Esito::Fine;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tomvera"));
    // Between the first screen and the main window no window is open: that is not the end.
    QApplication::setQuitOnLastWindowClosed(false);
    InterazioneQt interazione;
    Orologio orologio;
    GestioneErrori errori(&interazione);
    while (unaSessione(interazione, orologio, errori) == Esito::CambiaUtente) { }
    return 0;
}
