#include "comandi.h"

#include "foundation/archivio.h"
#include "foundation/formati.h"
#include "foundation/gestioneerrori.h"
#include "foundation/schema/definizione.h"
#include "foundation/utenticollegati.h"

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

int Argomenti::ripetizioni(const QString& nome) const
{
    return static_cast<int>(m_nomi.count(nome));
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

QString controllaArgomenti(const Argomenti& argomenti, const QStringList& noti, int posizionali)
{
    if (const QStringList fuori = argomenti.sconosciuti(noti); !fuori.isEmpty())
        return QStringLiteral("Opzione sconosciuta: --") + fuori.first();
    for (const QString& nome : noti)
        if (argomenti.ripetizioni(nome) > 1)
            return QStringLiteral("Opzione ripetuta: --") + nome;
    if (argomenti.posizionali().size() > posizionali)
        return QStringLiteral("Argomento non previsto: ") + argomenti.posizionali().at(posizionali);
    return QString();
}

RegistrazioneScrittura::RegistrazioneScrittura(const QString& percorsoArchivio)
    : m_utenti(std::make_unique<UtentiCollegati>())
{
    m_utenti->registra(percorsoArchivio, UtentiCollegati::nomeMacchina(), QStringLiteral("tomvera-cli"));
}

RegistrazioneScrittura::~RegistrazioneScrittura() = default;

bool RegistrazioneScrittura::registrata() const
{
    return m_utenti->registrato();
}

std::optional<QString> testoRichiesto(const Argomenti& argomenti, const QString& nome)
{
    const auto v = argomenti.valore(nome);
    if (!v || v->trimmed().isEmpty())
        return std::nullopt;
    return v->trimmed();
}

std::optional<QDate> dataRichiesta(const Argomenti& argomenti, const QString& nome, QString& errore)
{
    const auto testo = testoRichiesto(argomenti, nome);
    if (!testo) {
        errore = QStringLiteral("Indicare la data con --") + nome + QStringLiteral(" GG/MM/AAAA");
        return std::nullopt;
    }
    const auto data = leggiData(*testo);
    if (!data || !data->isValid()) {
        errore = QStringLiteral("Data non valida: ") + *testo;
        return std::nullopt;
    }
    return data;
}

QString apriArchivioEsistente(Archivio& archivio, const QStringList& tabelle)
{
    const QString& percorso = archivio.percorso();
    // Never create the file: a missing or foreign file is bad input.
    if (const QString problema = Archivio::VerificaArchivio(percorso); !problema.isEmpty())
        return problema + QStringLiteral(": ") + percorso;
    // A file another user holds beyond the retries is busy, not broken and not missing a table.
    if (!archivio.apri(Archivio::Apertura::Esistente))
        return archivio.occupato() ? GestioneErrori::testoArchivioOccupato()
                                   : QStringLiteral("Errore apertura Archivio: ") + percorso;
    for (const QString& tabella : tabelle) {
        if (!archivio.esisteRiga(
                QStringLiteral("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"),
                { tabella }))
            return archivio.occupato()
                ? GestioneErrori::testoArchivioOccupato()
                : QStringLiteral("L'archivio non contiene la tabella ") + tabella + QStringLiteral(": ") + percorso;
    }
    return QString();
}

} // namespace tomvera::cli
