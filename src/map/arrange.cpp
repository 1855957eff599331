#include "map/arrange.h"

#include "map/arrange_hiding.h"
#include "map/arrange_search.h"

#include <algorithm>

namespace vasclip::map {

namespace {

constexpr qint32 kLeftBit = 0x400, kTopBit = 0x800, kRightBit = 0x100, kBottomBit = 0x200;
constexpr double kTouching = 0.01; ///< pixels; edges may meet

// What a direction costs by itself; whatever it hides weighs more than all turns together.
constexpr double kOutOfView = 3000;
constexpr double kTurnedClear = 100; ///< and a unit for each step that an arrow is turned by

int Known(int direction)
{
    return direction < 1 || direction > kDirections ? 1 : direction;
}

/// All arrows of a view.
class Arranger
{
public:
    Arranger(const std::vector<ArrowToArrange>& arrows, const std::vector<Sheet>& sheets, double houseSize)
        : m_arrows(arrows)
        , m_hiding(arrows, sheets, houseSize)
    {
        for (const ArrowToArrange& arrow : arrows)
            m_chosen.push_back(Known(arrow.direction));
        for (std::size_t i = 0; i < arrows.size(); ++i)
            Weigh(i);
    }
    Arrangement Run()
    {
        for (std::vector<std::size_t>& group : Groups())
            ArrangeSearch(m_hiding, m_choices, m_own, std::move(group), m_chosen).Run();
        Arrangement result{.directions = m_chosen, .crowded = {}};
        for (std::size_t i = 0; i < m_arrows.size(); ++i) {
            if (m_arrows[i].fixed)
                result.directions[i] = m_arrows[i].direction;
            if (IsCrowded(i))
                result.crowded.push_back(static_cast<int>(i));
        }
        return result;
    }

private:
    /// The directions of an arrow, a small turn first, and what each of them costs by itself.
    void Weigh(std::size_t arrow)
    {
        const int now = m_chosen[arrow];
        const bool clear = !IsCrowded(arrow) && !m_hiding.Leaves(arrow, now);
        const auto turn = [now](int direction) {
            const int apart = std::abs(direction - now);
            return std::min(apart, kDirections - apart);
        };
        std::vector<int>& choices = m_choices.emplace_back();
        OfEachDirection<double>& own = m_own.emplace_back();
        for (int direction = 1; direction <= kDirections; ++direction) {
            const bool drawn = m_arrows[arrow].shapes[AtDirection(direction)].width > 0;
            if (direction == now || (drawn && !m_arrows[arrow].fixed))
                choices.push_back(direction);
            own[AtDirection(direction)] = PriceOfHidden(m_hiding.Houses(arrow, direction)) +
                                          (m_hiding.Leaves(arrow, direction) ? kOutOfView : 0) +
                                          (direction != now && clear ? kTurnedClear : 0) + turn(direction);
        }
        std::stable_sort(choices.begin(), choices.end(), [&](int a, int b) { return turn(a) < turn(b); });
    }
    [[nodiscard]] bool IsCrowded(std::size_t arrow) const
    {
        if (m_hiding.Houses(arrow, m_chosen[arrow]) > 0)
            return true;
        for (std::size_t other = 0; other < m_arrows.size(); ++other)
            if (other != arrow && m_hiding.Shared(arrow, m_chosen[arrow], other, m_chosen[other]) > 0)
                return true;
        return false;
    }
    [[nodiscard]] bool CanMeet(std::size_t one, std::size_t other) const
    {
        for (const int direction : m_choices[one])
            for (const int otherDirection : m_choices[other])
                if (m_hiding.Shared(one, direction, other, otherDirection) > 0)
                    return true;
        return false;
    }
    /// Arrows that can be in each other's way, each group for itself.
    [[nodiscard]] std::vector<std::vector<std::size_t>> Groups() const
    {
        std::vector<std::vector<std::size_t>> groups;
        std::vector<bool> taken(m_arrows.size());
        for (std::size_t first = 0; first < m_arrows.size(); ++first) {
            if (taken[first])
                continue;
            taken[first] = true;
            std::vector<std::size_t>& group = groups.emplace_back(1, first);
            for (std::size_t at = 0; at < group.size(); ++at) {
                for (std::size_t other = 0; other < m_arrows.size(); ++other) {
                    if (!taken[other] && CanMeet(group[at], other)) {
                        taken[other] = true;
                        group.push_back(other);
                    }
                }
            }
            std::sort(group.begin(), group.end());
        }
        return groups;
    }

    const std::vector<ArrowToArrange>& m_arrows;
    ArrangeHiding m_hiding;
    std::vector<int> m_chosen;
    std::vector<std::vector<int>> m_choices;
    std::vector<OfEachDirection<double>> m_own;
};

} // namespace

double ArrowShape::Hides(Spot spot, const Tile& tile) const
{
    const double whole = At(spot).Shared(tile);
    if (whole <= 0 || inked.empty())
        return whole;
    double hidden = 0;
    for (const Tile& part : inked)
        hidden += part.Moved(spot.x - tip.x, spot.y - tip.y).Shared(tile);
    return hidden;
}

double ArrowShape::Shared(Spot spot, const ArrowShape& other, Spot otherSpot) const
{
    const double whole = Hides(spot, other.At(otherSpot));
    if (whole <= 0 || other.inked.empty())
        return whole;
    double shared = 0;
    for (const Tile& part : other.inked)
        shared += Hides(spot, part.Moved(otherSpot.x - other.tip.x, otherSpot.y - other.tip.y));
    return shared;
}

double Tile::Shared(const Tile& other) const
{
    const double across = std::min(left + width, other.left + other.width) - std::max(left, other.left);
    const double down = std::min(top + height, other.top + other.height) - std::max(top, other.top);
    return across > kTouching && down > kTouching ? across * down : 0;
}

bool Tile::Holds(Spot spot) const
{
    return spot.x >= left && spot.x <= left + width && spot.y >= top && spot.y <= top + height;
}

bool Tile::Holds(const Tile& other) const
{
    return Holds(Spot{other.left, other.top}) && Holds(Spot{other.left + other.width, other.top + other.height});
}

ArrowShape ShapeOf(int direction, double width, double height)
{
    const qint32 spot = HotSpot(direction);
    const double x = spot & kLeftBit ? 0 : spot & kRightBit ? width : width / 2;
    const double y = spot & kTopBit ? 0 : spot & kBottomBit ? height : height / 2;
    return {.width = width, .height = height, .tip = {x, y}};
}

Arrangement Arrange(const std::vector<ArrowToArrange>& arrows, const std::vector<Tile>& houses, double houseSize,
                    const Tile& view, const std::vector<Sheet>& further)
{
    std::vector<Sheet> sheets{{.spots = {}, .houses = houses, .view = view}};
    for (const ArrowToArrange& arrow : arrows)
        sheets.front().spots.push_back(arrow.house);
    sheets.insert(sheets.end(), further.begin(), further.end());
    return Arranger(arrows, sheets, houseSize).Run();
}

} // namespace vasclip::map
