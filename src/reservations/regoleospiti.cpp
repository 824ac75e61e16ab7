#include "reservations/regoleospiti.h"

#include "foundation/formati.h"
#include "reservations/prenotazione.h"

namespace tomvera {

namespace tipoalloggiato {

const QStringList& tutti()
{
    static const QStringList tipi = { OspiteSingolo, Capofamiglia, Capogruppo, Familiare, MembroGruppo };
    return tipi;
}

bool capo(const QString& tipo)
{
    return tipo == OspiteSingolo || tipo == Capofamiglia || tipo == Capogruppo;
}

bool seguace(const QString& tipo)
{
    return tipo == Familiare || tipo == MembroGruppo;
}

QString tipoCapo(const QString& tipo)
{
    if (tipo == Familiare)
        return Capofamiglia;
    if (tipo == MembroGruppo)
        return Capogruppo;
    return {};
}

int ordinamento(const QString& tipo)
{
    return capo(tipo) ? 1 : 2;
}

QString codiceUfficiale(const QString& tipo)
{
    static const QStringList codici = { QStringLiteral("16"), QStringLiteral("17"), QStringLiteral("18"),
                                        QStringLiteral("19"), QStringLiteral("20") };
    const int i = tutti().indexOf(tipo);
    return i >= 0 ? codici.at(i) : QString();
}

} // namespace tipoalloggiato

const QStringList& paroleTipoTurismo()
{
    static const QStringList parole
        = { QStringLiteral("Affari"),          QStringLiteral("Balneare"),  QStringLiteral("Cicloturismo"),
            QStringLiteral("Congressuale"),    QStringLiteral("Culturale"), QStringLiteral("Enogastronomico"),
            QStringLiteral("Fieristico"),      QStringLiteral("Fitness"),   QStringLiteral("Lavoratore"),
            QStringLiteral("Montagna estiva"), QStringLiteral("Nautico"),   QStringLiteral("Parchi Tematici"),
            QStringLiteral("Parchi/Natura"),   QStringLiteral("Religioso"), QStringLiteral("Sci/Sport invernali"),
            QStringLiteral("Scolastico"),      QStringLiteral("Sociale"),   QStringLiteral("Sportivo"),
            QStringLiteral("Termale"),         QStringLiteral("Altro") };
    return parole;
}

const QStringList& paroleMezzoDiTrasporto()
{
    // "Roulette/Camper" is the word the archives hold.
    static const QStringList parole
        = { QStringLiteral("Aereo"), QStringLiteral("Auto"),       QStringLiteral("Autobus"),
            QStringLiteral("Barca"), QStringLiteral("Bicicletta"), QStringLiteral("Fly & Drive"),
            QStringLiteral("Moto"),  QStringLiteral("Nave"),       QStringLiteral("Roulette/Camper"),
            QStringLiteral("Treno"), QStringLiteral("Altro") };
    return parole;
}

namespace {

// Dates compare as dates when they are, else as typed.
bool stessaData(const QString& a, const QString& b)
{
    const auto da = leggiData(a);
    const auto db = leggiData(b);
    if (da && db)
        return *da == *db;
    return a.trimmed() == b.trimmed();
}

QString testoData(const OspitePrenotazione& o, const QString& campo)
{
    const QDate d = o.data(campo);
    return d.isValid() ? tomvera::testoData(d) : o.testo(campo);
}

} // namespace

std::optional<QString> ControllaEsistenzaCapogruppoFamiglia(const QList<OspitePrenotazione>& righe, const QString& tipo,
                                                            const QString& dataArrivo)
{
    const QString richiesto = tipoalloggiato::tipoCapo(tipo);
    for (const OspitePrenotazione& r : righe) {
        if (r.testo(QStringLiteral("TipoDiAlloggiato")).compare(richiesto, Qt::CaseInsensitive) == 0
            && stessaData(testoData(r, QStringLiteral("DataArrivo")), dataArrivo))
            return r.RagSociale();
    }
    return std::nullopt;
}

bool ControllaAnagraficheAssociate(const QList<OspitePrenotazione>& righe, const QString& nomeCapo, int esclusa)
{
    if (nomeCapo.isEmpty())
        return false;
    for (int i = 0; i < righe.size(); ++i) {
        if (i != esclusa && righe.at(i).testo(QStringLiteral("CapoGruppoFamiglia")) == nomeCapo)
            return true;
    }
    return false;
}

QStringList CaricaCapoGruppoFamiglia(const QList<OspitePrenotazione>& righe, const QString& tipo)
{
    QStringList nomi;
    const QString richiesto = tipoalloggiato::tipoCapo(tipo);
    if (richiesto.isEmpty())
        return nomi;
    for (const OspitePrenotazione& r : righe) {
        if (r.testo(QStringLiteral("TipoDiAlloggiato")) == richiesto)
            nomi << r.RagSociale();
    }
    return nomi;
}

QStringList campiObbligatori(const OspitePrenotazione& o)
{
    const QString tipo = o.testo(QStringLiteral("TipoDiAlloggiato"));
    QStringList campi = { QStringLiteral("TipoDiAlloggiato"), QStringLiteral("DataArrivo"),
                          QStringLiteral("Cognome"),          QStringLiteral("Nome"),
                          QStringLiteral("MaschioFemmina"),   QStringLiteral("DataNascita"),
                          QStringLiteral("StatoDiNascita"),   QStringLiteral("Cittadinanza") };
    const bool natoInItalia = o.testo(QStringLiteral("StatoDiNascita")).toUpper() == QStringLiteral("ITALIA");
    if (natoInItalia)
        campi << QStringLiteral("LuogoNascita");
    if (tipoalloggiato::seguace(tipo))
        return campi;
    campi << QStringLiteral("Nazione") << QStringLiteral("TipoDocumento") << QStringLiteral("NroDocumento")
          << QStringLiteral("LuogoDocumento");
    if (natoInItalia)
        campi << QStringLiteral("ProvinciaDiNascita");
    if (o.testo(QStringLiteral("Nazione")).toUpper() == QStringLiteral("ITALIA"))
        campi << QStringLiteral("Comune") << QStringLiteral("Provincia");
    return campi;
}

bool ControllaRegole(const OspitePrenotazione& o)
{
    for (const QString& campo : campiObbligatori(o)) {
        if (campo == QLatin1String("DataArrivo") || campo == QLatin1String("DataNascita")) {
            if (!o.data(campo).isValid())
                return false;
        } else if (o.testo(campo).trimmed().isEmpty()) {
            return false;
        }
    }
    return true;
}

int prossimoNroArrivo(int ultimoInArchivio, const QList<OspitePrenotazione>& righe)
{
    int numero = ultimoInArchivio + 1;
    int massimo = 0;
    for (const OspitePrenotazione& r : righe)
        massimo = qMax(massimo, r.NroArrivo());
    if (massimo >= numero)
        numero = massimo + 1;
    return numero;
}

QString testoNumeroPersone(const QList<OspitePrenotazione>& righe)
{
    int conta = 0;
    for (const OspitePrenotazione& r : righe) {
        if (!r.RagSociale().trimmed().isEmpty())
            ++conta;
    }
    return QStringLiteral("N° Persone: ") + QString::number(conta);
}

} // namespace tomvera
