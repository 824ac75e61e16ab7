#include "rooms/tabelloneregole.h"

#include "foundation/formati.h"

#include <QLocale>
#include <QPoint>
#include <algorithm>
#include <cmath>

namespace tomvera {

QString parolaStato(StatoCamera stato)
{
    switch (stato) {
    case StatoCamera::Libera:
        return QStringLiteral("Camera Libera");
    case StatoCamera::Occupata:
        return QStringLiteral("Camera Occupata");
    case StatoCamera::PiuPrenotazioni:
        return QStringLiteral("CameraPiuPrenotazioni");
    }
    return {};
}

StatoCamera statoDaPrenotazioni(int prenotazioni)
{
    if (prenotazioni <= 0)
        return StatoCamera::Libera;
    return prenotazioni == 1 ? StatoCamera::Occupata : StatoCamera::PiuPrenotazioni;
}

Grafica graficaDaNumero(double valore)
{
    const int n = static_cast<int>(valore);
    if (n == 1)
        return Grafica::Classico;
    if (n == 2)
        return Grafica::Simbolo;
    return Grafica::Moderno;
}

QString tooltipTessera(const Tessera& tessera)
{
    QString testo = parolaStato(tessera.stato);
    if (tessera.stato == StatoCamera::PiuPrenotazioni)
        testo += QStringLiteral(" (") + QString::number(tessera.prenotazioni) + QStringLiteral(")");
    return testo;
}

QString didascaliaNumero(const Tessera& tessera, bool segnata)
{
    return segnata ? QStringLiteral("»") + tessera.NroCamera + QStringLiteral("«") : tessera.NroCamera;
}

EtichettaPosti etichettaPosti(const Tessera& tessera, const QDate& dal, const QDate& al)
{
    EtichettaPosti e;
    const QString posti = QString::number(tessera.posti);
    if (tessera.stato == StatoCamera::Libera || !dal.isValid() || !al.isValid() || al != dal.addDays(1)) {
        e.testo = QStringLiteral(" ") + posti + QStringLiteral(" ");
        return e;
    }
    e.testo = QStringLiteral(" ") + QString::number(tessera.personePresenti) + QStringLiteral(" | ") + posti
        + QStringLiteral(" ");
    e.bordo = true;
    if (tessera.personePresenti == 0)
        e.colore = 255;
    else if (tessera.personePresenti == tessera.posti)
        e.colore = 32768;
    else
        e.colore = 32896;
    return e;
}

QRectF Geometria::riquadro(int x, int y) const
{
    return QRectF(sinistra + x * lato, alto + y * lato, lato, lato);
}

QPoint Geometria::cellaIn(const QPointF& punto) const
{
    if (lato <= 0)
        return { -1, -1 };
    const double cx = (punto.x() - sinistra) / lato;
    const double cy = (punto.y() - alto) / lato;
    if (cx < 0 || cy < 0 || cx >= colonne || cy >= righe)
        return { -1, -1 };
    return { static_cast<int>(cx), static_cast<int>(cy) };
}

Geometria Parametri_Click(double larghezza, double altezza, int righe, int colonne, double margine)
{
    Geometria g;
    g.righe = righe > 0 ? righe : 1;
    g.colonne = colonne > 0 ? colonne : 1;
    const double w = std::max(0.0, larghezza - 2 * margine);
    const double h = std::max(0.0, altezza - 2 * margine);
    g.lato = std::min(w / g.colonne, h / g.righe);
    g.sinistra = (larghezza - g.lato * g.colonne) / 2;
    g.alto = margine;
    return g;
}

ColoriStile coloriStile(Grafica grafica)
{
    if (grafica == Grafica::Classico)
        return { 11844288, 5526870, 3618873, 10926794, false };
    return { 13091260, 9009003, 7891041, 13680829, true };
}

QString titoloConRefresh(const QString& titolo, double secondi)
{
    const double arrotondati = std::round(secondi * 100) / 100;
    return titolo + QStringLiteral("        (Refresh: ") + formattaNumero(arrotondati, 2, false)
        + QStringLiteral(" s)");
}

int giorniStriscia(int larghezzaPixel)
{
    // 490 twips at 15 twips a pixel.
    return std::max(0, larghezzaPixel) * 15 / 490 + 4;
}

QList<GiornoStriscia> compilaStriscia(const QDate& primo, int giorni, const QList<MovimentoStriscia>& movimenti)
{
    QList<GiornoStriscia> striscia;
    if (!primo.isValid())
        return striscia;
    for (int i = 0; i < giorni; ++i)
        striscia.append(GiornoStriscia { primo.addDays(i), {}, {} });
    // Movements come ordered by arrival: on a changeover day the morning keeps the leaving stay and the
    // afternoon takes the arriving one.
    for (const MovimentoStriscia& m : movimenti) {
        if (!m.dal.isValid() || !m.al.isValid())
            continue;
        for (GiornoStriscia& g : striscia) {
            if (g.data >= m.dal && g.data < m.al) {
                g.pomeriggio.prenotazione = m.prenotazione;
                g.pomeriggio.arrivati = m.arrivati;
                g.pomeriggio.didascalia = g.data == m.dal ? QStringLiteral(">") : QString();
            }
            if (g.data > m.dal && g.data <= m.al) {
                g.mattina.prenotazione = m.prenotazione;
                g.mattina.arrivati = m.arrivati;
                g.mattina.didascalia = g.data == m.al ? QStringLiteral(".") : QString();
            }
        }
    }
    return striscia;
}

QList<MeseStriscia> mesiStriscia(const QList<GiornoStriscia>& giorni)
{
    QList<MeseStriscia> mesi;
    const QLocale italiano(QLocale::Italian, QLocale::Italy);
    for (int i = 0; i < giorni.size(); ++i) {
        const QDate d = giorni.at(i).data;
        if (mesi.isEmpty() || i == 0 || d.day() == 1) {
            QString nome = italiano.standaloneMonthName(d.month(), QLocale::LongFormat);
            if (!nome.isEmpty())
                nome[0] = nome[0].toUpper();
            mesi.append(MeseStriscia { nome + QStringLiteral(" ") + QString::number(d.year()), i, 0 });
        }
        ++mesi.last().giorni;
    }
    return mesi;
}

bool CameraGiaSelezionata(const QList<CameraSelezionata>& griglia, const QString& nroCamera, const QDate& dal,
                          const QDate& al)
{
    for (const CameraSelezionata& c : griglia)
        if (QString::compare(c.NroCamera, nroCamera, Qt::CaseInsensitive) == 0 && dal <= c.Partenza && al >= c.Arrivo)
            return true;
    return false;
}

} // namespace tomvera
