#pragma once

#include "foundation/archivio.h"
#include "foundation/gestioneerrori.h"
#include "interazionescriptata.h"

#include <QTemporaryDir>
#include <memory>

namespace tomvera::test {

// A fresh archive file in a temporary folder, with a scripted interaction and its own error policy.
// With crea = true the whole schema is applied by the real creation routine.
class ArchivioTemporaneo
{
public:
    explicit ArchivioTemporaneo(bool crea = true, const QString& nomeFile = QStringLiteral("Archivio.mdb"));
    ~ArchivioTemporaneo();

    QString percorso() const { return m_percorso; }
    QString cartella() const { return m_cartella.path(); }
    Archivio& archivio() { return *m_archivio; }
    GestioneErrori& errori() { return m_errori; }
    InterazioneScriptata& interazione() { return m_interazione; }

private:
    QTemporaryDir m_cartella;
    QString m_percorso;
    InterazioneScriptata m_interazione;
    GestioneErrori m_errori;
    std::unique_ptr<Archivio> m_archivio;
};

} // namespace tomvera::test
