#include "mapdata/cover.h"

#include <cmath>

namespace vasclip::mapdata {

namespace {

using street::Place;

constexpr qint32 kSquare = 1000; ///< millionths of a degree, 110 m
constexpr qint32 kNear = 230; ///< 25 m: the two sources are that far apart at most where they mean one street

qint64 Cell(qint64 value)
{
    return value >= 0 ? value / kSquare : (value - kSquare + 1) / kSquare;
}

quint64 KeyOf(qint64 row, qint64 column)
{
    return quint64(static_cast<quint32>(row)) << 32 | static_cast<quint32>(column);
}

double Squeeze(qint32 latitude)
{
    constexpr double kRadian = 3.14159265358979323846 / 180e6;
    return std::cos(latitude * kRadian);
}

} // namespace

void Cover::Add(const street::RoadEdge& road)
{
    if (road.roadClass >= street::RoadClass::Path)
        return;
    for (std::size_t at = 1; at < road.line.size(); ++at) {
        const Step step{road.line[at - 1], road.line[at]};
        const auto low = [](qint32 one, qint32 other) { return Cell(qint64(std::min(one, other)) - 2 * kNear); };
        const auto high = [](qint32 one, qint32 other) { return Cell(qint64(std::max(one, other)) + 2 * kNear); };
        for (qint64 row = low(step.from.latitude, step.to.latitude);
             row <= high(step.from.latitude, step.to.latitude); ++row) {
            for (qint64 column = low(step.from.longitude, step.to.longitude);
                 column <= high(step.from.longitude, step.to.longitude); ++column)
                m_steps[KeyOf(row, column)].push_back(step);
        }
    }
}

bool Cover::IsNear(Place place) const
{
    const auto found = m_steps.constFind(KeyOf(Cell(place.latitude), Cell(place.longitude)));
    if (found == m_steps.cend())
        return false;
    const double squeeze = Squeeze(place.latitude);
    for (const Step& step : *found) {
        const double stepX = (double(step.to.longitude) - step.from.longitude) * squeeze;
        const double stepY = double(step.to.latitude) - step.from.latitude;
        double x = (double(place.longitude) - step.from.longitude) * squeeze;
        double y = double(place.latitude) - step.from.latitude;
        const double length = stepX * stepX + stepY * stepY;
        const double along = length > 0 ? std::clamp((x * stepX + y * stepY) / length, 0.0, 1.0) : 0;
        x -= along * stepX;
        y -= along * stepY;
        if (x * x + y * y <= double(kNear) * kNear)
            return true;
    }
    return false;
}

bool Cover::Covers(const std::vector<Place>& line) const
{
    constexpr int kProbes = 4; ///< on each step, its end included
    for (std::size_t at = 1; at < line.size(); ++at) {
        for (int probe = 1; probe <= kProbes; ++probe) {
            const Place from = line[at - 1];
            const Place to = line[at];
            const Place place{
                static_cast<qint32>(from.latitude + (qint64(to.latitude) - from.latitude) * probe / kProbes),
                static_cast<qint32>(from.longitude + (qint64(to.longitude) - from.longitude) * probe / kProbes)};
            if (!IsNear(place))
                return false;
        }
    }
    return true;
}

} // namespace vasclip::mapdata
