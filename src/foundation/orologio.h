#pragma once

#include <QDate>
#include <QDateTime>

namespace tomvera {

// "Today" and "now" come from here, so numbering by year and defaults are testable.
class Orologio
{
public:
    virtual ~Orologio() = default;
    virtual QDateTime adesso() const { return QDateTime::currentDateTime(); }
    QDate oggi() const { return adesso().date(); }
};

// A clock that stands still at a chosen moment (tests, demo data).
class OrologioFisso : public Orologio
{
public:
    explicit OrologioFisso(QDateTime momento)
        : m_momento(std::move(momento))
    {
    }
    QDateTime adesso() const override { return m_momento; }
    void imposta(const QDateTime& momento) { m_momento = momento; }

private:
    QDateTime m_momento;
};

} // namespace tomvera
