#include "map/arrange_hiding.h"

namespace vasclip::map {

namespace {

/// Of the ground around the tip of another arrow: what only grazes it leaves it in sight.
constexpr double kGrazed = 0.25;

/// Of the houses of other arrows, and of what else must stay in sight.
double HousesUnder(const ArrowShape& shape, std::size_t arrow, const Sheet& sheet, double houseSize)
{
    double hidden = 0;
    const auto add = [&](const Tile& house, double grazed) {
        if (house.Holds(sheet.spots[arrow])) // it points at that one as well
            return;
        const double pixels = shape.Hides(sheet.spots[arrow], house);
        if (pixels > grazed * house.width * house.height)
            hidden += pixels;
    };
    for (std::size_t other = 0; other < sheet.spots.size(); ++other)
        if (other != arrow)
            add({sheet.spots[other].x - houseSize / 2, sheet.spots[other].y - houseSize / 2, houseSize, houseSize},
                kGrazed);
    for (const Tile& house : sheet.houses)
        add(house, 0);
    return hidden;
}

} // namespace

ArrangeHiding::ArrangeHiding(const std::vector<ArrowToArrange>& arrows, const std::vector<Sheet>& sheets,
                             double houseSize)
    : m_size(arrows.size())
    , m_shared(m_size * m_size * kDirections * kDirections)
    , m_houses(m_size)
    , m_leaves(m_size)
{
    for (const Sheet& sheet : sheets)
        Add(arrows, sheet, houseSize);
}

void ArrangeHiding::Add(const std::vector<ArrowToArrange>& arrows, const Sheet& sheet, double houseSize)
{
    for (std::size_t one = 0; one < m_size; ++one) {
        for (int direction = 1; direction <= kDirections; ++direction) {
            const ArrowShape& shape = arrows[one].shapes[AtDirection(direction)];
            m_houses[one][AtDirection(direction)] += HousesUnder(shape, one, sheet, houseSize);
            if (sheet.view.width > 0 && sheet.view.Holds(sheet.spots[one]) &&
                !sheet.view.Holds(shape.At(sheet.spots[one])))
                m_leaves[one][AtDirection(direction)] = true;
            for (std::size_t other = 0; other < one; ++other)
                AddPair(arrows, sheet, one, direction, other);
        }
    }
}

void ArrangeHiding::AddPair(const std::vector<ArrowToArrange>& arrows, const Sheet& sheet, std::size_t one,
                            int direction, std::size_t other)
{
    for (int otherDirection = 1; otherDirection <= kDirections; ++otherDirection) {
        const double shared = arrows[one].shapes[AtDirection(direction)].Shared(
            sheet.spots[one], arrows[other].shapes[AtDirection(otherDirection)], sheet.spots[other]);
        m_shared[Index(one, direction, other, otherDirection)] += shared;
        m_shared[Index(other, otherDirection, one, direction)] += shared;
    }
}

} // namespace vasclip::map
