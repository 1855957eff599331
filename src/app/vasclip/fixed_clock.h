#pragma once

#include "forms/system_ports.h"

namespace vasclip::app {

/// The machine's clock, or always the same minute of a given day: pictures that are taken again look the
/// same.
class FixedClock : public forms::SystemClock
{
public:
    /// @param today  an invalid one leaves the clock to the machine
    explicit FixedClock(QDate today)
        : m_today(today)
    {}
    [[nodiscard]] QDateTime Now() const override
    {
        return m_today.isValid() ? QDateTime(m_today, QTime(9, 41)) : SystemClock::Now();
    }

private:
    QDate m_today;
};

} // namespace vasclip::app
