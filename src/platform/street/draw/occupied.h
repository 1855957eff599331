#pragma once

#include <QRectF>

#include <vector>

namespace vasclip::street::draw {

/// The boxes of a picture where something is written already, found by a grid.
class Occupied
{
public:
    /// @param side  of a square of the grid, about a label's height
    Occupied(const QRectF& sheet, double side);

    [[nodiscard]] bool IsFree(const QRectF& box) const;
    /// Free, and whole on the sheet.
    [[nodiscard]] bool IsFree(const std::vector<QRectF>& boxes) const;
    void Take(const QRectF& box);
    void Take(const std::vector<QRectF>& boxes);

private:
    struct Squares
    {
        int left, top, right, bottom;
    };
    [[nodiscard]] Squares Under(const QRectF& box) const;

    QRectF m_sheet;
    double m_side;
    int m_columns;
    int m_rows;
    std::vector<std::vector<QRectF>> m_squares;
};

} // namespace vasclip::street::draw
