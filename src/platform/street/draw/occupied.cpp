#include "platform/street/draw/occupied.h"

#include <algorithm>
#include <cmath>

namespace vasclip::street::draw {

Occupied::Occupied(const QRectF& sheet, double side)
    : m_sheet(sheet), m_side(side), m_columns(static_cast<int>(std::ceil(sheet.width() / side)) + 1),
      m_rows(static_cast<int>(std::ceil(sheet.height() / side)) + 1),
      m_squares(static_cast<size_t>(m_columns) * static_cast<size_t>(m_rows))
{
}

bool Occupied::IsFree(const QRectF& box) const
{
    const Squares under = Under(box);
    for (int row = under.top; row <= under.bottom; ++row) {
        for (int column = under.left; column <= under.right; ++column) {
            const auto& taken = m_squares[static_cast<size_t>(row * m_columns + column)];
            if (std::any_of(taken.begin(), taken.end(), [&box](const QRectF& one) { return one.intersects(box); }))
                return false;
        }
    }
    return true;
}

bool Occupied::IsFree(const std::vector<QRectF>& boxes) const
{
    return std::all_of(boxes.begin(), boxes.end(),
                       [this](const QRectF& box) { return m_sheet.contains(box) && IsFree(box); });
}

void Occupied::Take(const QRectF& box)
{
    const Squares under = Under(box);
    for (int row = under.top; row <= under.bottom; ++row) {
        for (int column = under.left; column <= under.right; ++column)
            m_squares[static_cast<size_t>(row * m_columns + column)].push_back(box);
    }
}

void Occupied::Take(const std::vector<QRectF>& boxes)
{
    for (const QRectF& box : boxes)
        Take(box);
}

Occupied::Squares Occupied::Under(const QRectF& box) const
{
    const auto square = [this](double at, int count) {
        return static_cast<int>(std::clamp(std::floor(at / m_side), 0.0, count - 1.0));
    };
    return {square(box.left() - m_sheet.left(), m_columns), square(box.top() - m_sheet.top(), m_rows),
            square(box.right() - m_sheet.left(), m_columns), square(box.bottom() - m_sheet.top(), m_rows)};
}

} // namespace vasclip::street::draw
