#pragma once

#include <QString>

namespace vasclip::link {

/// Distance and direction of a comp from the subject; the map implements it.
class ProximitySource
{
public:
    virtual ~ProximitySource() = default;
    /// Address and proximity of the point selected on the map, as its boxes have them; "" without one.
    [[nodiscard]] virtual QString ShownAddress() const = 0;
    [[nodiscard]] virtual QString ShownProximity() const = 0;
    [[nodiscard]] virtual QString CalcTheDistance(const QString& key) = 0;  ///< miles as text, "" if unknown
    [[nodiscard]] virtual QString GetDirection(const QString& address) = 0; ///< compass name, "" if unknown
};

} // namespace vasclip::link
