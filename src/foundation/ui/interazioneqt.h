#pragma once

#include "foundation/interazione.h"

#include <QPointer>

class QWidget;

namespace tomvera {

class Attendere;

// The real dialogs: message boxes, input boxes, file dialogs, the timed notice and the "Attendere" notice.
class InterazioneQt : public Interazione
{
public:
    explicit InterazioneQt(QWidget* genitore = nullptr);
    ~InterazioneQt() override;

    void setGenitore(QWidget* genitore) { m_genitore = genitore; }

    void messaggio(const QString& testo, const QString& titolo, Icona icona) override;
    bool domandaSiNo(const QString& testo, const QString& titolo, Icona icona) override;
    std::optional<bool> domandaSiNoAnnulla(const QString& testo, const QString& titolo, Icona icona) override;
    bool okAnnulla(const QString& testo, const QString& titolo, Icona icona) override;
    std::optional<QString> inputBox(const QString& testo, const QString& titolo, const QString& predefinito) override;
    std::optional<QString> scegliFileDaAprire(const QString& titolo, const QString& cartella,
                                              const QString& filtro) override;
    std::optional<QString> scegliFileDaSalvare(const QString& titolo, const QString& percorso,
                                               const QString& filtro) override;
    std::optional<QString> scegliCartella(const QString& titolo, const QString& cartella) override;
    void avviso(TipoAvviso tipo, const QString& testo, int durataMs, bool modale) override;
    void archivioOccupato(int contatoreErrori) override;

private:
    QPointer<QWidget> m_genitore;
    QPointer<Attendere> m_attendere;
};

} // namespace tomvera
