#pragma once

#include "map/arrange.h"

namespace vasclip::map {

/// A value for each direction; 1 to 8 stand at 0 to 7.
template <class Value>
using OfEachDirection = std::array<Value, kDirections>;
[[nodiscard]] constexpr std::size_t AtDirection(int direction)
{
    return static_cast<std::size_t>(direction - 1);
}

/// What arrows hide of each other and of the houses, by their directions, in all sheets together; in pixels.
class ArrangeHiding
{
public:
    ArrangeHiding(const std::vector<ArrowToArrange>& arrows, const std::vector<Sheet>& sheets, double houseSize);
    [[nodiscard]] double Shared(std::size_t one, int direction, std::size_t other, int otherDirection) const
    {
        return m_shared[Index(one, direction, other, otherDirection)];
    }
    [[nodiscard]] double Houses(std::size_t arrow, int direction) const
    {
        return m_houses[arrow][AtDirection(direction)];
    }
    /// Would it leave a view in which its house is?
    [[nodiscard]] bool Leaves(std::size_t arrow, int direction) const
    {
        return m_leaves[arrow][AtDirection(direction)];
    }

private:
    [[nodiscard]] std::size_t Index(std::size_t one, int direction, std::size_t other, int otherDirection) const
    {
        return ((one * kDirections + AtDirection(direction)) * m_size + other) * kDirections +
               AtDirection(otherDirection);
    }
    void Add(const std::vector<ArrowToArrange>& arrows, const Sheet& sheet, double houseSize);
    void AddPair(const std::vector<ArrowToArrange>& arrows, const Sheet& sheet, std::size_t one, int direction,
                 std::size_t other);

    std::size_t m_size;
    std::vector<double> m_shared;
    std::vector<OfEachDirection<double>> m_houses;
    std::vector<OfEachDirection<bool>> m_leaves;
};

} // namespace vasclip::map
