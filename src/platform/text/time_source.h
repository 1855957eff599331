#pragma once

#include <QDateTime>

namespace vasclip::text {

/// What time it is, for whoever stands below the ports: the program hands its clock down, a test one that stands.
class TimeSource
{
public:
    virtual ~TimeSource() = default;
    [[nodiscard]] virtual QDateTime Now() const = 0;
    [[nodiscard]] QDate Today() const { return Now().date(); }
};

} // namespace vasclip::text
