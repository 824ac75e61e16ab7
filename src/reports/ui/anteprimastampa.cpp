#include "reports/ui/anteprimastampa.h"

#include "foundation/interazione.h"
#include "foundation/ui/stampanti.h"
#include "reports/ui/impaginazione.h"

#include <QAction>
#include <QDir>
#include <QGuiApplication>
#include <QPrintPreviewDialog>
#include <QScreen>
#include <QToolBar>
#include <algorithm>

namespace tomvera::reports {

AnteprimaStampa::AnteprimaStampa(ModelloStampa modello, Interazione& interazione, const StampantiPredefinite& stampanti,
                                 QWidget* parent)
    : m_modello(std::move(modello))
    , m_interazione(interazione)
    , m_stampante(QPrinter::HighResolution)
{
    // Lists go to the forms printer; the system's default when that one isn't installed here.
    ImpostaStampanteModuli(m_stampante, stampanti);
    m_dialogo = std::make_unique<QPrintPreviewDialog>(&m_stampante, parent);
    m_dialogo->setWindowTitle(QStringLiteral("Anteprima di stampa - ") + m_modello.titolo);
    const QScreen* schermo = parent && parent->screen() ? parent->screen() : QGuiApplication::primaryScreen();
    if (schermo)
        m_dialogo->setGeometry(geometriaAnteprima(schermo->availableGeometry()));
    QObject::connect(m_dialogo.get(), &QPrintPreviewDialog::paintRequested, m_dialogo.get(),
                     [this](QPrinter* p) { stampaSuDispositivo(m_modello, *p); });
    if (auto* barra = m_dialogo->findChild<QToolBar*>()) {
        barra->addSeparator();
        QAction* pdf = barra->addAction(QStringLiteral("Salva PDF..."));
        pdf->setObjectName(QStringLiteral("SalvaPdf"));
        QObject::connect(pdf, &QAction::triggered, m_dialogo.get(), [this] { salvaPdf(); });
    }
}

AnteprimaStampa::~AnteprimaStampa() = default;

QRect geometriaAnteprima(const QRect& disponibile)
{
    // Title bar and frame are outside the geometry set here.
    constexpr int cornice = 40;
    const int altezza = std::max(200, disponibile.height() - 2 * cornice);
    const int larghezza = std::min(std::max(200, disponibile.width() - 2 * cornice), altezza * 9 / 10);
    QRect r(0, 0, larghezza, altezza);
    r.moveCenter(disponibile.center());
    r.moveTop(disponibile.top() + cornice);
    return r;
}

int AnteprimaStampa::exec()
{
    return m_dialogo->exec();
}

void AnteprimaStampa::salvaPdf()
{
    const auto percorso = m_interazione.scegliFileDaSalvare(
        QStringLiteral("Salva PDF"), QDir::home().filePath(m_modello.titolo + QStringLiteral(".pdf")),
        QStringLiteral("Documenti PDF (*.pdf)"));
    if (!percorso || percorso->isEmpty())
        return;
    if (!esportaPdf(m_modello, *percorso))
        m_interazione.messaggio(QStringLiteral("Attenzione, impossibile scrivere il file ") + *percorso,
                                QStringLiteral("Attenzione"), Interazione::Icona::Avviso);
}

void mostraAnteprimaStampa(const ModelloStampa& modello, Interazione& interazione,
                           const StampantiPredefinite& stampanti, QWidget* parent)
{
    AnteprimaStampa anteprima(modello, interazione, stampanti, parent);
    anteprima.exec();
}

} // namespace tomvera::reports
