#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace tomvera {

class Interazione;

// The check of the machine's clock against a daytime server (TCP, one line such as
// "Tue Mar 16 12:34:56 2004"). The host is the setting NomeServer, "host" or "host:porta"; empty = no check.
namespace controlloora {

constexpr quint16 PortaDaytime = 13;

struct Server
{
    QString host;
    quint16 porta = PortaDaytime;
};
// nullopt for an empty or unusable setting.
std::optional<Server> leggiServer(const QString& impostazione);

// Month number of a three-letter English name ("Mar" -> 3), 0 if unknown.
int TrovaMeseInglese(const QString& nome);

// The reply cut by position as the daytime layout has it; nullopt when it isn't one.
std::optional<QDateTime> leggiRisposta(const QString& risposta);

struct Confronto
{
    bool oraErrata = false; // more than 10 minutes apart
    bool dataErrata = false;
};
Confronto ConfrontaDataEOra(const QDateTime& server, const QDateTime& sistema);

// Reads the server's reply, keeping the event loop alive; nullopt when unreachable (silent by design).
std::optional<QString> DataEOraAttuali(const Server& server, int attesaMs = 3000);

// Asks to reset the clock when it is wrong. True: the clock was changed and the program must end.
using ImpostaOrologio = bool (*)(const QDateTime&);
bool verificaOrologio(Interazione& interazione, const QDateTime& server, const QDateTime& sistema,
                      ImpostaOrologio imposta);

} // namespace controlloora
} // namespace tomvera
