#pragma once

#include <QString>

namespace vasclip::link {

/// Distance and direction of a comp from the subject; the map implements it.
class ProximitySource
{
public:
    virtual ~ProximitySource() = default;
    [[nodiscard]] virtual QString CalcTheDistance(const QString& key) = 0;  ///< miles as text, "" if unknown
    [[nodiscard]] virtual QString GetDirection(const QString& address) = 0; ///< compass name, "" if unknown
};

} // namespace vasclip::link
