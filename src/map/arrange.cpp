#include "map/arrange.h"

#include <algorithm>
#include <numeric>

namespace vasclip::map {

namespace {

constexpr qint32 kLeftBit = 0x400, kTopBit = 0x800, kRightBit = 0x100, kBottomBit = 0x200;
constexpr int kMostTries = 200'000; ///< of the search for a way out; a view has some dozens of arrows
constexpr int kMostPasses = 50;
constexpr double kTouching = 0.01; ///< pixels; edges may meet

class Search
{
public:
    Search(const std::vector<ArrowToArrange>& arrows, std::vector<Sheet> sheets, double houseSize)
        : m_arrows(arrows)
        , m_sheets(std::move(sheets))
        , m_houseSize(houseSize)
        , m_chosen(arrows.size())
    {
        for (std::size_t i = 0; i < arrows.size(); ++i) {
            m_chosen[i] = Known(arrows[i].direction);
            m_choices.push_back(ChoicesOf(i));
            std::array<double, kDirections>& under = m_under.emplace_back();
            for (int direction = 1; direction <= kDirections; ++direction)
                under[At(direction)] = HousesUnder(i, direction);
        }
        SetOrder();
    }

    Arrangement Run()
    {
        const std::vector<int> before = m_chosen;
        if (!Assign(0)) {
            m_chosen = before;
            Improve();
        }
        Arrangement result{.directions = m_chosen, .crowded = {}};
        for (std::size_t i = 0; i < m_arrows.size(); ++i) {
            if (m_arrows[i].fixed)
                result.directions[i] = m_arrows[i].direction;
            if (Cost(i) > 0)
                result.crowded.push_back(static_cast<int>(i));
        }
        return result;
    }

private:
    static int Known(int direction) { return direction < 1 || direction > kDirections ? 1 : direction; }
    static std::size_t At(int direction) { return static_cast<std::size_t>(direction - 1); }

    [[nodiscard]] Tile TileOf(const Sheet& sheet, std::size_t arrow, int direction) const
    {
        return m_arrows[arrow].shapes[At(direction)].At(sheet.spots[arrow]);
    }
    /// The pixels that two arrows share.
    [[nodiscard]] double Shared(std::size_t one, int direction, std::size_t other, int otherDirection) const
    {
        double shared = 0;
        for (const Sheet& sheet : m_sheets)
            shared += TileOf(sheet, one, direction).Shared(TileOf(sheet, other, otherDirection));
        return shared;
    }
    [[nodiscard]] Tile HouseOf(const Sheet& sheet, std::size_t arrow) const
    {
        const Spot spot = sheet.spots[arrow];
        return {spot.x - m_houseSize / 2, spot.y - m_houseSize / 2, m_houseSize, m_houseSize};
    }

    /// Pixels of houses that an arrow would cover.
    [[nodiscard]] double HousesUnder(std::size_t arrow, int direction) const
    {
        double covered = 0;
        for (const Sheet& sheet : m_sheets) {
            const Tile tile = TileOf(sheet, arrow, direction);
            const auto add = [&](const Tile& house) {
                if (!house.Holds(sheet.spots[arrow])) // it points at that one as well
                    covered += tile.Shared(house);
            };
            for (std::size_t other = 0; other < m_arrows.size(); ++other)
                if (other != arrow)
                    add(HouseOf(sheet, other));
            for (const Tile& house : sheet.houses)
                add(house);
        }
        return covered;
    }

    [[nodiscard]] bool LeavesView(std::size_t arrow, int direction) const
    {
        return std::any_of(m_sheets.begin(), m_sheets.end(), [&](const Sheet& sheet) {
            return sheet.view.width > 0 && sheet.view.Holds(sheet.spots[arrow]) &&
                   !sheet.view.Holds(TileOf(sheet, arrow, direction));
        });
    }

    /// The directions of an arrow, the best first: within the view, as it is, a small turn.
    [[nodiscard]] std::vector<int> ChoicesOf(std::size_t arrow) const
    {
        const int now = Known(m_arrows[arrow].direction);
        if (m_arrows[arrow].fixed)
            return {now};
        std::vector<int> choices;
        for (int direction = 1; direction <= kDirections; ++direction)
            if (m_arrows[arrow].shapes[At(direction)].width > 0 || direction == now)
                choices.push_back(direction);
        const auto turn = [now](int direction) {
            const int apart = std::abs(direction - now);
            return std::min(apart, kDirections - apart);
        };
        std::stable_sort(choices.begin(), choices.end(), [&](int a, int b) {
            const bool outA = LeavesView(arrow, a), outB = LeavesView(arrow, b);
            return outA != outB ? outB : turn(a) < turn(b);
        });
        return choices;
    }

    /// Those that stay come first, then those that are clear as they are: the others have to give way.
    void SetOrder()
    {
        m_order.resize(m_arrows.size());
        std::iota(m_order.begin(), m_order.end(), std::size_t{0});
        std::vector<int> rank(m_arrows.size());
        for (std::size_t i = 0; i < m_arrows.size(); ++i) {
            const bool clear = Cost(i) <= 0 && !LeavesView(i, m_chosen[i]);
            rank[i] = m_arrows[i].fixed ? 0 : clear ? 1 : 2;
        }
        std::stable_sort(m_order.begin(), m_order.end(),
                         [&](std::size_t a, std::size_t b) { return rank[a] < rank[b]; });
    }

    /// Finds directions for the arrows from `depth` of the order on. @return false if there are none, or none in time
    bool Assign(std::size_t depth)
    {
        if (depth == m_order.size())
            return true;
        const std::size_t arrow = m_order[depth];
        for (const int direction : m_choices[arrow]) {
            if (++m_tries > kMostTries)
                return false;
            if (!Fits(depth, arrow, direction))
                continue;
            m_chosen[arrow] = direction;
            if (Assign(depth + 1))
                return true;
        }
        m_chosen[arrow] = Known(m_arrows[arrow].direction);
        return false;
    }

    [[nodiscard]] bool Fits(std::size_t depth, std::size_t arrow, int direction) const
    {
        if (m_arrows[arrow].fixed) // whatever it covers, nothing can be done about it
            return true;
        if (m_under[arrow][At(direction)] > 0)
            return false;
        for (std::size_t before = 0; before < depth; ++before)
            if (Shared(arrow, direction, m_order[before], m_chosen[m_order[before]]) > 0)
                return false;
        return true;
    }

    [[nodiscard]] double CostOf(std::size_t arrow, int direction) const
    {
        double cost = m_under[arrow][At(direction)];
        for (std::size_t other = 0; other < m_arrows.size(); ++other)
            if (other != arrow)
                cost += Shared(arrow, direction, other, m_chosen[other]);
        return cost;
    }
    [[nodiscard]] double Cost(std::size_t arrow) const { return CostOf(arrow, m_chosen[arrow]); }

    /// Where not all can be clear: each turns to where it covers least, until none gains by it.
    void Improve()
    {
        for (int pass = 0; pass < kMostPasses; ++pass) {
            bool turned = false;
            for (const std::size_t arrow : m_order) {
                double least = Cost(arrow);
                for (const int direction : m_choices[arrow]) {
                    const double cost = CostOf(arrow, direction);
                    if (cost + kTouching < least) {
                        least = cost;
                        m_chosen[arrow] = direction;
                        turned = true;
                    }
                }
            }
            if (!turned)
                return;
        }
    }

    const std::vector<ArrowToArrange>& m_arrows;
    std::vector<Sheet> m_sheets;
    double m_houseSize;
    std::vector<int> m_chosen;
    std::vector<std::vector<int>> m_choices;
    std::vector<std::array<double, kDirections>> m_under; ///< pixels of houses, by direction
    std::vector<std::size_t> m_order;
    int m_tries = 0;
};

} // namespace

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
    return Search(arrows, std::move(sheets), houseSize).Run();
}

} // namespace vasclip::map
