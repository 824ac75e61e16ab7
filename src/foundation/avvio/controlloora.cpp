#include "foundation/avvio/controlloora.h"

#include "foundation/interazione.h"

#include <QEventLoop>
#include <QTcpSocket>
#include <QTimer>
#include <cstdlib>

namespace tomvera::controlloora {

std::optional<Server> leggiServer(const QString& impostazione)
{
    const QString testo = impostazione.trimmed();
    if (testo.isEmpty())
        return std::nullopt;
    Server server;
    server.host = testo;
    const int duePunti = testo.lastIndexOf(QLatin1Char(':'));
    // A bare IPv6 address has several colons and no port.
    if (duePunti > 0 && testo.indexOf(QLatin1Char(':')) == duePunti) {
        bool ok = false;
        const uint porta = testo.mid(duePunti + 1).toUInt(&ok);
        if (!ok || porta == 0 || porta > 65535)
            return std::nullopt;
        server.host = testo.left(duePunti).trimmed();
        server.porta = static_cast<quint16>(porta);
    }
    if (server.host.isEmpty())
        return std::nullopt;
    return server;
}

int TrovaMeseInglese(const QString& nome)
{
    static const char* const mesi[]
        = { "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec" };
    for (int i = 0; i < 12; ++i) {
        if (nome.compare(QLatin1String(mesi[i]), Qt::CaseInsensitive) == 0)
            return i + 1;
    }
    return 0;
}

std::optional<QDateTime> leggiRisposta(const QString& risposta)
{
    // The reply ends with CR LF: the year is the four characters before them.
    QString testo = risposta;
    while (!testo.isEmpty() && testo.back().isSpace())
        testo.chop(1);
    if (testo.size() < 20)
        return std::nullopt;
    bool okAnno = false, okGiorno = false, okOra = false, okMinuto = false;
    const int anno = testo.right(4).toInt(&okAnno);
    const int mese = TrovaMeseInglese(testo.mid(4, 3));
    const int giorno = testo.mid(8, 2).trimmed().toInt(&okGiorno);
    const int ora = testo.mid(11, 2).toInt(&okOra);
    const int minuto = testo.mid(14, 2).toInt(&okMinuto);
    if (!okAnno || !okGiorno || !okOra || !okMinuto || mese == 0)
        return std::nullopt;
    const QDate data(anno, mese, giorno);
    const QTime tempo(ora, minuto);
    if (!data.isValid() || !tempo.isValid())
        return std::nullopt;
    return QDateTime(data, tempo);
}

Confronto ConfrontaDataEOra(const QDateTime& server, const QDateTime& sistema)
{
    Confronto esito;
    // Minutes only: the reply's seconds are not read.
    const int minutiServer = server.time().hour() * 60 + server.time().minute();
    const int minutiSistema = sistema.time().hour() * 60 + sistema.time().minute();
    int differenza = std::abs(minutiServer - minutiSistema);
    differenza = std::min(differenza, 24 * 60 - differenza); // 23.58 and 00.03 are five minutes apart
    esito.oraErrata = differenza > 10;
    esito.dataErrata = server.date() != sistema.date();
    return esito;
}

std::optional<QString> DataEOraAttuali(const Server& server, int attesaMs)
{
    QTcpSocket presa;
    QEventLoop ciclo;
    QTimer scadenza;
    scadenza.setSingleShot(true);
    QByteArray ricevuto;
    bool errore = false;
    QObject::connect(&scadenza, &QTimer::timeout, &ciclo, &QEventLoop::quit);
    QObject::connect(&presa, &QTcpSocket::readyRead, &ciclo, [&] {
        ricevuto += presa.readAll();
        if (ricevuto.contains('\n'))
            ciclo.quit();
    });
    QObject::connect(&presa, &QTcpSocket::disconnected, &ciclo, &QEventLoop::quit);
    QObject::connect(&presa, &QTcpSocket::errorOccurred, &ciclo, [&](QAbstractSocket::SocketError e) {
        // The server closing after its line is the normal end of the exchange.
        if (e != QAbstractSocket::RemoteHostClosedError)
            errore = true;
        ciclo.quit();
    });
    presa.connectToHost(server.host, server.porta);
    scadenza.start(attesaMs);
    ciclo.exec(QEventLoop::ExcludeUserInputEvents);
    ricevuto += presa.readAll();
    presa.abort();
    if (ricevuto.isEmpty() || (errore && !ricevuto.contains('\n')))
        return std::nullopt;
    return QString::fromLatin1(ricevuto);
}

bool verificaOrologio(Interazione& interazione, const QDateTime& server, const QDateTime& sistema,
                      ImpostaOrologio imposta)
{
    const Confronto confronto = ConfrontaDataEOra(server, sistema);
    bool impostato = false;
    bool negato = false;
    auto prova = [&](const QDateTime& momento) {
        if (imposta && imposta(momento))
            impostato = true;
        else
            negato = true;
    };
    if (confronto.oraErrata
        && interazione.domandaSiNo(QStringLiteral("Attenzione l'ora di sistema non è corretta e questo potrebbe \n"
                                                  " causare dei malfunzionamenti al programma, Reimpostarla?"))) {
        prova(QDateTime(sistema.date(), server.time()));
    }
    if (confronto.dataErrata
        && interazione.domandaSiNo(QStringLiteral("Attenzione la data di sistema non è corretta e questo potrebbe\n"
                                                  " causare dei malfunzionamenti al programma, Reimpostarla?"))) {
        prova(server);
    }
    if (negato) {
        interazione.messaggio(QStringLiteral("Attenzione impossibile modificare data e ora: Accesso Negato,\n"
                                             " modificarle manualmente"),
                              {}, Interazione::Icona::Critico);
    }
    if (impostato)
        interazione.messaggio(QStringLiteral("Riavviare il programma!"));
    return impostato;
}

} // namespace tomvera::controlloora
