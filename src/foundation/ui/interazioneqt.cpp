#include "foundation/ui/interazioneqt.h"

#include "foundation/ui/attendere.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace tomvera {

namespace {

QMessageBox::Icon iconaQt(Interazione::Icona icona)
{
    switch (icona) {
    case Interazione::Icona::Informazione:
        return QMessageBox::Information;
    case Interazione::Icona::Avviso:
        return QMessageBox::Warning;
    case Interazione::Icona::Critico:
        return QMessageBox::Critical;
    case Interazione::Icona::Domanda:
        return QMessageBox::Question;
    case Interazione::Icona::Nessuna:
        break;
    }
    return QMessageBox::NoIcon;
}

QString titoloOProdotto(const QString& titolo)
{
    return titolo.isEmpty() ? QStringLiteral("Tomvera") : titolo;
}

} // namespace

InterazioneQt::InterazioneQt(QWidget* genitore)
    : m_genitore(genitore)
{
}

InterazioneQt::~InterazioneQt()
{
    delete m_attendere;
}

void InterazioneQt::messaggio(const QString& testo, const QString& titolo, Icona icona)
{
    QMessageBox box(iconaQt(icona), titoloOProdotto(titolo), testo, QMessageBox::Ok, m_genitore);
    box.exec();
}

bool InterazioneQt::domandaSiNo(const QString& testo, const QString& titolo, Icona icona)
{
    QMessageBox box(iconaQt(icona), titoloOProdotto(titolo), testo, QMessageBox::Yes | QMessageBox::No, m_genitore);
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Sì"));
    return box.exec() == QMessageBox::Yes;
}

std::optional<bool> InterazioneQt::domandaSiNoAnnulla(const QString& testo, const QString& titolo, Icona icona)
{
    QMessageBox box(iconaQt(icona), titoloOProdotto(titolo), testo,
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, m_genitore);
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Sì"));
    box.button(QMessageBox::Cancel)->setText(QStringLiteral("Annulla"));
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::Cancel);
    const int risposta = box.exec();
    if (risposta == QMessageBox::Yes)
        return true;
    if (risposta == QMessageBox::No)
        return false;
    return std::nullopt;
}

bool InterazioneQt::okAnnulla(const QString& testo, const QString& titolo, Icona icona)
{
    QMessageBox box(iconaQt(icona), titoloOProdotto(titolo), testo, QMessageBox::Ok | QMessageBox::Cancel, m_genitore);
    box.button(QMessageBox::Cancel)->setText(QStringLiteral("Annulla"));
    return box.exec() == QMessageBox::Ok;
}

std::optional<QString> InterazioneQt::inputBox(const QString& testo, const QString& titolo, const QString& predefinito)
{
    bool ok = false;
    const QString valore
        = QInputDialog::getText(m_genitore, titoloOProdotto(titolo), testo, QLineEdit::Normal, predefinito, &ok);
    if (!ok)
        return std::nullopt;
    return valore;
}

std::optional<QString> InterazioneQt::scegliFileDaAprire(const QString& titolo, const QString& cartella,
                                                         const QString& filtro)
{
    const QString f = QFileDialog::getOpenFileName(m_genitore, titolo, cartella, filtro);
    return f.isEmpty() ? std::nullopt : std::optional<QString>(f);
}

std::optional<QString> InterazioneQt::scegliFileDaSalvare(const QString& titolo, const QString& percorso,
                                                          const QString& filtro)
{
    const QString f = QFileDialog::getSaveFileName(m_genitore, titolo, percorso, filtro);
    return f.isEmpty() ? std::nullopt : std::optional<QString>(f);
}

std::optional<QString> InterazioneQt::scegliCartella(const QString& titolo, const QString& cartella)
{
    const QString f = QFileDialog::getExistingDirectory(m_genitore, titolo, cartella);
    return f.isEmpty() ? std::nullopt : std::optional<QString>(f);
}

void InterazioneQt::avviso(TipoAvviso tipo, const QString& testo, int durataMs, bool modale)
{
    auto* box = new MessaggioBox(int(tipo), testo, durataMs, m_genitore);
    if (modale)
        box->exec();
    else
        box->show();
}

void InterazioneQt::archivioOccupato(int contatoreErrori)
{
    if (!m_attendere)
        m_attendere = new Attendere(m_genitore);
    m_attendere->segnala(contatoreErrori);
}

} // namespace tomvera
