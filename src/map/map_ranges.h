#pragma once

#include <QString>

#include <optional>

namespace vasclip::map {

/// Which points of the map a type of arrow occupies.
struct MapRange
{
    qint32 first = 0;
    qint32 count = 0;
    bool operator==(const MapRange&) const = default;
};

/// The points of "SUBJECT", "COMP", "ALTCOMP", "RENTAL" or "LISTING" by the text that keeps them
/// ("SUBJECT|1W1_|COMP|2W3_"); nothing for a type that was never placed.
[[nodiscard]] std::optional<MapRange> RangeOf(const QString& ranges, const QString& type);

/// The group of a type as it stands in that text: "|COMP|2W3_", the subject's without its first bar.
[[nodiscard]] QString RangeText(const QString& type, MapRange range);

} // namespace vasclip::map
