#pragma once

#include "map/map_desk.h"

#include <functional>

namespace vasclip::map {

/// A record whose place on the maps is another one.
struct MovedRecord
{
    QString key;
    street::Place from;
    street::Place to;
    double feet = 0;
    bool gone = false; ///< it is not found at all: it keeps the place that it has, and an arrow can't be placed anew
};

/// What other maps make of the Databook.
struct MoveTally
{
    QList<MovedRecord> moved; ///< the farthest first, those that are gone at the end
    qint64 seen = 0, of = 0; ///< records; seen is less after a stop
    qint64 anchored = 0; ///< they never move
    qint64 stay = 0;
    qint64 unplaced = 0; ///< without an address, or with no place before
};

/// From how far on a move is worth a word.
inline constexpr double kMoveFeet = 300;

/// Which records would stand more than 300 feet from where they stand, placed on other maps. A record stands at its
/// stored place, or without one where `before` finds it.
/// @param before  nullptr: stored places alone
/// @param goesOn  told how many are seen of how many; false stops
[[nodiscard]] MoveTally CompareMaps(MapDesk& desk, const street::Geocoder* before, const street::Geocoder& after,
                                    const std::function<bool(qint64, qint64)>& goesOn = {});

/// "764 LAUREL HILL RD: 1,234 feet, from 44.821500 -120.954200 to 44.8249 -120.9542".
[[nodiscard]] QString WordsOf(const MovedRecord& record);
/// The sums, in a sentence.
[[nodiscard]] QString WordsOf(const MoveTally& tally);

} // namespace vasclip::map
