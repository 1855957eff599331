#include "map/sureness.h"

#include "map/flags.h"
#include "map/map_addresses.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "map/placed_for.h"
#include "map/selection.h"
#include "platform/street/geodesy.h"
#include "platform/text/text.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using street::FoundBy;

namespace {

constexpr double kSamePlaceFeet = 3; ///< what rounding to millionths of a degree can move

QString WordsOf(FoundBy foundBy)
{
    switch (foundBy) {
    case FoundBy::Point:
        return u"by its house"_s;
    case FoundBy::Range:
        return u"by the street's house numbers"_s;
    case FoundBy::Intersection:
        return u"by its crossing"_s;
    case FoundBy::Street:
        return u"by its street alone"_s;
    case FoundBy::ZipArea:
        return u"by its ZIP code alone"_s;
    case FoundBy::City:
        break;
    }
    return u"by its city alone"_s;
}

/// The whole address that a point was looked up by.
QString AskedFor(MapDesk& desk, const MapPoint& point)
{
    if (IsSubjectPoint(desk, point))
        return SubjectMapAddress(desk);
    const QString address = PointAddress(desk, point);
    const std::optional<store::Record> record = FindComp(desk, address);
    if (record)
        return RecordMapAddress(desk, address, *record);
    const std::optional<link::SlotRef> slot = SlotOf(point);
    const CityParts parts = slot ? BoxesOf(desk, *slot) : CityParts{};
    return address + u", "_s + parts.city + u", "_s + parts.state;
}

} // namespace

QString SurenessOf(MapDesk& desk, const MapPoint& point)
{
    if (point.flags & flag::kAnchored)
        return messages::kSetByHand;
    if (!desk.geocoder)
        return {};
    for (const street::Candidate& candidate : desk.geocoder->Find(AskedFor(desk, point)))
        if (street::DistanceFeet(candidate.place, point.place) <= kSamePlaceFeet)
            return messages::kWithinFeet.arg(WordsOf(candidate.foundBy),
                                             text::Dec(text::ToInt32(candidate.uncertaintyFeet)));
    return {}; // it was placed by other streets, or by hand
}

QString ProximitySureness(MapDesk& desk, const QString& address)
{
    const qint32 selected = desk.state.g_MapSelectedID;
    const qint32 subject = FindSubjectPoint(desk);
    const std::optional<MapPoint> from = subject >= 1 ? LoadPoint(desk, subject) : std::nullopt;
    const std::optional<MapPoint> to = selected > 0 ? LoadPoint(desk, selected) : std::nullopt;
    if (!from || !to || selected == subject || !StandsFor(desk, *from) || !StandsFor(desk, *to) ||
        text::Folded(PointAddress(desk, *to)) != text::Folded(address))
        return {};
    const auto words = [&](const MapPoint& point) {
        const QString known = SurenessOf(desk, point);
        return known.isEmpty() ? messages::kNotKnown : known;
    };
    return messages::kSureness.arg(words(*from), words(*to));
}

} // namespace vasclip::map
