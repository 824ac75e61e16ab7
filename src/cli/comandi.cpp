#include "comandi.h"

#include <cstdio>

namespace tomvera::cli {

Argomenti::Argomenti(const QStringList& argomenti)
{
    for (int i = 0; i < argomenti.size(); ++i) {
        const QString& a = argomenti.at(i);
        if (a.startsWith(QLatin1String("--"))) {
            QString nome = a.mid(2);
            QString valore;
            if (const int uguale = nome.indexOf(QLatin1Char('=')); uguale >= 0) {
                valore = nome.mid(uguale + 1);
                nome = nome.left(uguale);
            } else if (i + 1 < argomenti.size() && !argomenti.at(i + 1).startsWith(QLatin1String("--"))) {
                valore = argomenti.at(++i);
            }
            m_nomi << nome;
            m_valori << valore;
        } else {
            m_posizionali << a;
        }
    }
}

std::optional<QString> Argomenti::valore(const QString& nome) const
{
    const int i = m_nomi.lastIndexOf(nome);
    if (i < 0)
        return std::nullopt;
    return m_valori.at(i);
}

bool Argomenti::presente(const QString& nome) const
{
    return m_nomi.contains(nome);
}

QStringList Argomenti::sconosciuti(const QStringList& noti) const
{
    QStringList fuori;
    for (const QString& n : m_nomi)
        if (!noti.contains(n))
            fuori << n;
    return fuori;
}

Console::Console()
    : out(stdout)
    , err(stderr)
{
    out.setEncoding(QStringConverter::Utf8);
    err.setEncoding(QStringConverter::Utf8);
}

int Console::errore(const QString& testo)
{
    err << testo << Qt::endl;
    return EsitoErrore;
}

} // namespace tomvera::cli
