#include "map/arrange_search.h"

#include <algorithm>
#include <limits>

namespace vasclip::map {

namespace {

constexpr double kSame = 0.01; ///< of two prices
constexpr double kHidden = 1e6, kHiddenPixel = 100;
constexpr qint64 kMostWork = 4'000'000; ///< of one search, in looks at a direction
constexpr int kMostPasses = 50;

} // namespace

double PriceOfHidden(double pixels)
{
    return pixels > 0 ? kHidden + kHiddenPixel * pixels : 0;
}

ArrangeSearch::ArrangeSearch(const ArrangeHiding& hiding, const std::vector<std::vector<int>>& choices,
                             const std::vector<OfEachDirection<double>>& own, std::vector<std::size_t> group,
                             std::vector<int>& chosen)
    : m_hiding(hiding)
    , m_choices(choices)
    , m_group(std::move(group))
    , m_chosen(chosen)
    , m_prices(own)
    , m_placed(chosen.size())
{}

void ArrangeSearch::Run()
{
    Improve(); // an end to go on from, whatever the search has time for
    m_best = m_chosen;
    m_least = Whole();
    Branch(0, 0);
    for (const std::size_t arrow : m_group)
        m_chosen[arrow] = m_best[arrow];
}

double ArrangeSearch::PriceOf(std::size_t arrow, int direction) const
{
    double price = m_prices[arrow][AtDirection(direction)];
    for (const std::size_t other : m_group)
        if (other != arrow)
            price += PriceOfHidden(m_hiding.Shared(arrow, direction, other, m_chosen[other]));
    return price;
}

double ArrangeSearch::Whole() const
{
    double own = 0, pairs = 0;
    for (const std::size_t arrow : m_group) {
        own += m_prices[arrow][AtDirection(m_chosen[arrow])];
        pairs += PriceOf(arrow, m_chosen[arrow]) - m_prices[arrow][AtDirection(m_chosen[arrow])];
    }
    return own + pairs / 2;
}

/// Each turns to where it costs least, until none gains by it.
void ArrangeSearch::Improve()
{
    bool turned = true;
    for (int pass = 0; turned && pass < kMostPasses; ++pass) {
        turned = false;
        for (const std::size_t arrow : m_group) {
            double least = PriceOf(arrow, m_chosen[arrow]);
            for (const int direction : m_choices[arrow]) {
                const double price = PriceOf(arrow, direction);
                if (price + kSame < least) {
                    least = price;
                    m_chosen[arrow] = direction;
                    turned = true;
                }
            }
        }
    }
}

/// The one whose second best way costs most more than its best: it has the least choice.
std::size_t ArrangeSearch::Next() const
{
    std::size_t next = m_group.front();
    double most = -1;
    for (const std::size_t arrow : m_group) {
        if (m_placed[arrow])
            continue;
        double best = std::numeric_limits<double>::infinity(), second = best;
        for (const int direction : m_choices[arrow]) {
            const double price = m_prices[arrow][AtDirection(direction)];
            second = std::min(second, std::max(best, price));
            best = std::min(best, price);
        }
        if (const double regret = second - best; regret > most) {
            most = regret;
            next = arrow;
        }
    }
    return next;
}

/// What those that have no direction yet cost at least.
double ArrangeSearch::AtLeast() const
{
    double sum = 0;
    for (const std::size_t arrow : m_group) {
        if (m_placed[arrow])
            continue;
        double best = std::numeric_limits<double>::infinity();
        for (const int direction : m_choices[arrow])
            best = std::min(best, m_prices[arrow][AtDirection(direction)]);
        sum += best;
    }
    return sum;
}

void ArrangeSearch::Branch(std::size_t depth, double price)
{
    if (depth == m_group.size()) {
        m_least = price;
        m_best = m_chosen;
        return;
    }
    const std::size_t arrow = Next();
    std::vector<int> order = m_choices[arrow];
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return m_prices[arrow][AtDirection(a)] < m_prices[arrow][AtDirection(b)];
    });
    m_placed[arrow] = true;
    for (const int direction : order) {
        m_work += static_cast<qint64>(m_group.size() * kDirections);
        const double now = price + m_prices[arrow][AtDirection(direction)];
        if (m_work > kMostWork || now + kSame >= m_least)
            break; // the others cost more
        Weigh(arrow, direction, 1);
        if (now + AtLeast() + kSame < m_least) {
            m_chosen[arrow] = direction;
            Branch(depth + 1, now);
        }
        Weigh(arrow, direction, -1);
    }
    m_placed[arrow] = false;
}

/// Adds what a direction costs the arrows that have none yet, or takes it away again.
void ArrangeSearch::Weigh(std::size_t arrow, int direction, double sign)
{
    for (const std::size_t other : m_group)
        if (!m_placed[other])
            for (const int turned : m_choices[other])
                m_prices[other][AtDirection(turned)] +=
                    sign * PriceOfHidden(m_hiding.Shared(arrow, direction, other, turned));
}

} // namespace vasclip::map
