// What the benchmarks share: a fresh archive in a temporary folder, a hotel with years of history in it, an
// interaction nobody answers, and the start of the run.
#pragma once

#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "foundation/interazione.h"

#include <QCoreApplication>
#include <QDate>
#include <QStringList>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace tomvera::bench {

// A benchmark on a half-made archive measures nothing: say why and stop.
[[noreturn]] void interrompi(const QString& motivo);

// Nobody sits at a benchmark: a message is printed as a fault, questions get the answer given.
class InterazioneMuta : public Interazione
{
public:
    explicit InterazioneMuta(bool risposta = false)
        : m_risposta(risposta)
    {
    }
    void messaggio(const QString& testo, const QString&, Icona) override;
    bool domandaSiNo(const QString&, const QString&, Icona) override { return m_risposta; }
    bool okAnnulla(const QString&, const QString&, Icona) override { return m_risposta; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliFileDaAprire(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliFileDaSalvare(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> scegliCartella(const QString&, const QString&) override { return {}; }
    void avviso(TipoAvviso, const QString&, int, bool) override { }
    void archivioOccupato(int) override { }

private:
    bool m_risposta;
};

// Archivio.mdb in a temporary folder, kept after the run with TOMVERA_BENCH_TIENI=1 to study the query plans.
class ArchivioDiProva
{
public:
    ArchivioDiProva();

    // The whole archive by the real creation routine; stops the run if one of the tables is missing.
    void crea(const QStringList& tabelleNecessarie);
    // An empty archive, for the benchmarks that declare only the tables they look at.
    void creaVuoto();
    // The indexes the large archives rely on, and fresh statistics for the planner.
    void ottimizza();

    QString percorso() const { return m_percorso; }
    Archivio& archivio() { return *m_archivio; }
    GestioneErrori errori;

private:
    QTemporaryDir m_cartella;
    QString m_percorso;
    std::unique_ptr<Archivio> m_archivio;
};

// A hotel with years of room stays: rooms numbered by floor (101, 102 ... 201 ...), consecutive stays per room
// from 2017 on, a gap now and then, guests on every stay. The same seed gives the same archive.
struct OpzioniAlbergo
{
    int camere = 200;
    int perPiano = 40;
    int soggiorni = 100000;
    int ospitiPerSoggiorno = 3;
    QDate oggi;
    quint32 seme = 42;
    // The rooms take these types in turn.
    QStringList tipologie { QStringLiteral("DBL") };
    // One guest in 200 saved without a departure.
    bool partenzeMancanti = false;
    // One stay in 50 starting the day before the previous one ends.
    bool sovrapposizioni = false;
};

QString numeroCamera(int i, int perPiano);
void riempiAlbergo(Archivio& archivio, const OpzioniAlbergo& opzioni);

// Runs the benchmarks of the command line; prepara builds the data first, so its minutes are not charged to
// the first benchmark.
template <typename Applicazione = QCoreApplication>
int esegui(int argc, char** argv, const std::function<void()>& prepara = {})
{
    Applicazione app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    if (prepara)
        prepara();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace tomvera::bench
