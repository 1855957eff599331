#pragma once

#include "map/arrange_hiding.h"

namespace vasclip::map {

/// What it costs that pixels are hidden: more than all turns of all arrows.
[[nodiscard]] double PriceOfHidden(double pixels);

/// Finds the cheapest way of a group of arrows that can be in each other's way, by branch and bound. A group that is too
/// large for that gets the best way that was found in its time, which is a count of steps.
class ArrangeSearch
{
public:
    /// @param choices  the directions of each arrow, and what each of them costs by itself
    /// @param chosen   of all arrows; those of the group are chosen anew
    ArrangeSearch(const ArrangeHiding& hiding, const std::vector<std::vector<int>>& choices,
                  const std::vector<OfEachDirection<double>>& own, std::vector<std::size_t> group,
                  std::vector<int>& chosen);
    void Run();

private:
    [[nodiscard]] double PriceOf(std::size_t arrow, int direction) const;
    [[nodiscard]] double Whole() const;
    void Improve();
    [[nodiscard]] std::size_t Next() const;
    [[nodiscard]] double AtLeast() const;
    void Branch(std::size_t depth, double price);
    void Weigh(std::size_t arrow, int direction, double sign);

    const ArrangeHiding& m_hiding;
    const std::vector<std::vector<int>>& m_choices;
    std::vector<std::size_t> m_group;
    std::vector<int>& m_chosen;
    std::vector<OfEachDirection<double>> m_prices; ///< with what the directions that are chosen add
    std::vector<bool> m_placed;
    std::vector<int> m_best;
    double m_least = 0;
    qint64 m_work = 0;
};

} // namespace vasclip::map
