#include "supporto.h"

#include "foundation/formati.h"
#include "foundation/schema/creazionedb.h"
#include "foundation/schema/definizione.h"
#include "foundation/schema/indiciprestazioni.h"

#include <QDir>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <cstdio>
#include <cstdlib>

namespace tomvera::bench {

void interrompi(const QString& motivo)
{
    std::fprintf(stderr, "%s\n", qPrintable(motivo));
    std::exit(EXIT_FAILURE);
}

void InterazioneMuta::messaggio(const QString& testo, const QString&, Icona)
{
    std::fprintf(stderr, "messaggio inatteso: %s\n", qPrintable(testo));
}

ArchivioDiProva::ArchivioDiProva()
    : m_percorso(QDir(m_cartella.path()).filePath(QStringLiteral("Archivio.mdb")))
{
    m_cartella.setAutoRemove(qEnvironmentVariableIsEmpty("TOMVERA_BENCH_TIENI"));
    if (!m_cartella.autoRemove())
        std::fprintf(stderr, "Archivio in %s\n", qPrintable(m_cartella.path()));
}

void ArchivioDiProva::crea(const QStringList& tabelleNecessarie)
{
    CreazioneDB::Percorsi percorsi;
    percorsi.archivio = m_percorso;
    CreazioneDB(percorsi, errori).CreaDB_Click();
    m_archivio = std::make_unique<Archivio>(m_percorso, errori);
    if (!m_archivio->apri())
        interrompi(QStringLiteral("Archivio di prova non creato"));
    for (const QString& tabella : tabelleNecessarie)
        if (!schema::tabellaEsiste(*m_archivio, tabella))
            interrompi(QStringLiteral("Archivio di prova non creato: manca ") + tabella);
}

void ArchivioDiProva::creaVuoto()
{
    m_archivio = std::make_unique<Archivio>(m_percorso, errori);
    if (!m_archivio->apri(Archivio::Apertura::Crea))
        interrompi(QStringLiteral("Archivio di prova non creato"));
}

void ArchivioDiProva::ottimizza()
{
    schema::applicaIndiciPrestazioni(*m_archivio);
    m_archivio->comando(QStringLiteral("ANALYZE"));
}

QString numeroCamera(int i, int perPiano)
{
    return QString::number(100 * (1 + i / perPiano) + i % perPiano + 1);
}

void riempiAlbergo(Archivio& archivio, const OpzioniAlbergo& o)
{
    QRandomGenerator caso(o.seme);
    Transazione tr(archivio);
    const QSqlDatabase db = archivio.connessione();
    QSqlQuery camera(db);
    camera.prepare(QStringLiteral("INSERT INTO TabellaStrutturaCamere (NroCamera, X, Y, NroPiano, CodiceTipologia)"
                                  " VALUES (?, ?, ?, ?, ?)"));
    for (int i = 0; i < o.camere; ++i) {
        camera.addBindValue(numeroCamera(i, o.perPiano));
        camera.addBindValue(i % 10);
        camera.addBindValue((i % o.perPiano) / 10);
        camera.addBindValue(1 + i / o.perPiano);
        camera.addBindValue(o.tipologie.at(i % o.tipologie.size()));
        camera.exec();
    }
    QSqlQuery testata(db);
    testata.prepare(QStringLiteral("INSERT INTO TabellaPrenotazioni (Indice, NumeroPrenotazione, DataPrenotazione,"
                                   " PrenotazioneChiusa) VALUES (?, ?, ?, ?)"));
    QSqlQuery movimento(db);
    movimento.prepare(
        QStringLiteral("INSERT INTO TabellaMovimenti (IndicePrenotazioneAssociata, Tipo, NroCamera,"
                       " Dal, Al, PrenotazioneChiusa, Avere) VALUES (?, 'PrenotazioneCamera', ?, ?, ?, ?, 300)"));
    QSqlQuery ospite(db);
    ospite.prepare(QStringLiteral("INSERT INTO TabellaAnagraficheAssociatePrenotazioni (IndicePrenotazioneAssociata,"
                                  " NroCameraCliente, DataArrivo, DataPartenza, Arrivato, RagSociale, IndiceRiga)"
                                  " VALUES (?, ?, ?, ?, ?, 'Ospite', ?)"));
    // The draws come in a fixed order: the same options give the same archive, run after run.
    qint64 indice = 0;
    for (int c = 0; c < o.camere; ++c) {
        const QString nro = numeroCamera(c, o.perPiano);
        QDate dal = QDate(2017, 1, 1).addDays(caso.bounded(10));
        for (int s = 0; s < o.soggiorni / o.camere; ++s) {
            ++indice;
            const QDate al = dal.addDays(1 + caso.bounded(14));
            // Many hotels never close old reservations: most of the history stays open.
            const bool chiusa = al < o.oggi.addDays(-30) && caso.bounded(3) == 0;
            testata.addBindValue(indice);
            testata.addBindValue(indice);
            testata.addBindValue(dataArchivio(dal.addDays(-20)));
            testata.addBindValue(chiusa ? 1 : 0);
            testata.exec();
            movimento.addBindValue(indice);
            movimento.addBindValue(nro);
            movimento.addBindValue(dataArchivio(dal));
            movimento.addBindValue(dataArchivio(al));
            movimento.addBindValue(chiusa ? 1 : 0);
            movimento.exec();
            for (int n = 0; n < o.ospitiPerSoggiorno; ++n) {
                ospite.addBindValue(indice);
                ospite.addBindValue(nro);
                ospite.addBindValue(dataArchivio(dal));
                ospite.addBindValue(o.partenzeMancanti && caso.bounded(200) == 0
                                        ? QVariant(QMetaType(QMetaType::QString))
                                        : QVariant(dataArchivio(al)));
                ospite.addBindValue(dal <= o.oggi ? 1 : 0);
                ospite.addBindValue(n + 1);
                ospite.exec();
            }
            const bool sovrapposto = o.sovrapposizioni && caso.bounded(50) == 0;
            dal = sovrapposto ? al.addDays(-1) : al.addDays(caso.bounded(3) == 0 ? int(caso.bounded(10)) : 0);
        }
    }
    if (!tr.commit())
        interrompi(QStringLiteral("Archivio di prova non riempito"));
}

} // namespace tomvera::bench
