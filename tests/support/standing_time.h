#pragma once

#include "platform/text/time_source.h"

namespace vasclip::tests {

/// A moment that stands until a test moves it.
class StandingTime : public text::TimeSource
{
public:
    [[nodiscard]] QDateTime Now() const override { return now; }
    QDateTime now{QDate(2024, 5, 17), QTime(10, 30)};
};

/// For engines of tests in which the time does not matter.
inline const text::TimeSource& SomeTime()
{
    static const StandingTime time;
    return time;
}

} // namespace vasclip::tests
