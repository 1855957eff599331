#include "platform/street/cell_grid.h"

#include <algorithm>

namespace vasclip::street::grid {

namespace {

constexpr qint32 kLow = -90'000'000;
constexpr qint32 kLeft = -180'000'000;
constexpr int kColumnBits = 15;
constexpr int kLevelBit = 29;
constexpr quint32 kColumnMask = (1U << kColumnBits) - 1;
constexpr quint32 kRowMask = (1U << (kLevelBit - kColumnBits)) - 1;

/// 1.8, 15 and 117 km from south to north.
constexpr int ShiftOf(Level level)
{
    switch (level) {
    case Level::Streets:
        return 14;
    case Level::Town:
        return 17;
    case Level::Region:
        return 20;
    }
    return 20;
}

quint32 Row(Level level, qint32 latitude)
{
    return static_cast<quint32>(std::clamp(latitude, kLow, -kLow) - kLow) >> ShiftOf(level);
}

quint32 Column(Level level, qint32 longitude)
{
    return static_cast<quint32>(std::clamp(longitude, kLeft, -kLeft) - kLeft) >> ShiftOf(level);
}

quint32 Number(Level level, quint32 row, quint32 column)
{
    return static_cast<quint32>(level) << kLevelBit | row << kColumnBits | column;
}

} // namespace

qint32 Size(Level level)
{
    return 1 << ShiftOf(level);
}

quint32 IdAt(Level level, Place place)
{
    return Number(level, Row(level, place.latitude), Column(level, place.longitude));
}

std::optional<Level> LevelOf(quint32 id)
{
    const quint32 level = id >> kLevelBit;
    if (level > static_cast<quint32>(Level::Region))
        return std::nullopt;
    return static_cast<Level>(level);
}

Extent ExtentOf(quint32 id)
{
    const Level level = LevelOf(id).value_or(Level::Region);
    const int shift = ShiftOf(level);
    const qint64 latitude = (qint64((id >> kColumnBits) & kRowMask) << shift) + kLow;
    const qint64 longitude = (qint64(id & kColumnMask) << shift) + kLeft;
    const qint64 size = Size(level) - 1;
    Extent extent;
    extent.low = {static_cast<qint32>(latitude), static_cast<qint32>(longitude)};
    extent.high = {static_cast<qint32>(latitude + size), static_cast<qint32>(longitude + size)};
    return extent;
}

std::vector<Run> Touching(Level level, const Extent& extent)
{
    std::vector<Run> runs;
    if (extent.IsEmpty() || extent.low.longitude > extent.high.longitude)
        return runs;
    const quint32 left = Column(level, extent.low.longitude);
    const quint32 right = Column(level, extent.high.longitude);
    const quint32 top = Row(level, extent.high.latitude);
    for (quint32 row = Row(level, extent.low.latitude); row <= top; ++row)
        runs.push_back({Number(level, row, left), Number(level, row, right)});
    return runs;
}

std::vector<quint32> Along(Level level, const std::vector<Place>& line)
{
    std::vector<quint32> ids;
    if (line.size() == 1)
        ids.push_back(IdAt(level, line.front()));
    for (std::size_t at = 1; at < line.size(); ++at) {
        Extent step;
        step.Widen(line[at - 1]);
        step.Widen(line[at]);
        for (const Run& run : Touching(level, step)) {
            for (quint32 id = run.first; id <= run.last; ++id) {
                if (ids.empty() || ids.back() != id)
                    ids.push_back(id);
            }
        }
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    return ids;
}

bool IsOnEarth(Place place)
{
    return place.latitude >= kLow && place.latitude <= -kLow && place.longitude >= kLeft &&
           place.longitude <= -kLeft;
}

} // namespace vasclip::street::grid
