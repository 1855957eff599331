#include "platform/street/draw/canvas.h"

#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vasclip::street::draw {

namespace {

/// A pixel's four parts times a share of 255, as QPainter rounds it.
quint32 Share(quint32 pixel, quint32 share)
{
    constexpr quint32 kTwo = 0x00ff00ff;
    quint32 low = (pixel & kTwo) * share;
    low = ((low + ((low >> 8U) & kTwo) + 0x00800080U) >> 8U) & kTwo;
    quint32 high = ((pixel >> 8U) & kTwo) * share;
    high = (high + ((high >> 8U) & kTwo) + 0x00800080U) & ~kTwo;
    return low | high;
}

/// Lays a premultiplied colour over pixels. @param cover  of 255
void Lay(quint32* first, quint32* last, quint32 colour, quint32 cover)
{
    const quint32 source = cover == 255 ? colour : Share(colour, cover);
    const quint32 rest = 255 - (source >> 24U);
    if (rest == 0)
        std::fill(first, last, source);
    else
        for (; first != last; ++first)
            *first = source + Share(*first, rest);
}

/// Adds the places along a curve but its first, near enough that no eye tells them from it.
void AddCurve(std::vector<QPointF>& points, QPointF from, QPointF one, QPointF two, QPointF to, double tolerance)
{
    // By how far the curve leaves its chord at most.
    const QPointF bend = from - 2 * one + two;
    const QPointF other = one - 2 * two + to;
    const double most = std::max(std::hypot(bend.x(), bend.y()), std::hypot(other.x(), other.y())) * 0.75;
    const int steps = std::clamp(static_cast<int>(std::ceil(std::sqrt(most / tolerance))), 1, 64);
    for (int i = 1; i < steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        const double u = 1 - t;
        points.push_back(u * u * u * from + 3 * u * u * t * one + 3 * u * t * t * two + t * t * t * to);
    }
    points.push_back(to);
}

} // namespace

Outline::Outline(const QPainterPath& path, double tolerance)
    : m_oddEven(path.fillRule() == Qt::OddEvenFill)
{
    const int count = path.elementCount();
    m_points.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.type == QPainterPath::MoveToElement && i > 0)
            m_ends.push_back(m_points.size());
        if (element.type == QPainterPath::CurveToElement && i + 2 < count) {
            AddCurve(m_points, m_points.back(), element, path.elementAt(i + 1), path.elementAt(i + 2), tolerance);
            i += 2;
        } else {
            m_points.emplace_back(element.x, element.y);
        }
    }
    m_ends.push_back(m_points.size());
}

/// How much of each pixel lies within an outline, by what its sides leave to their right: of each step of a side, each
/// row that it runs through keeps by how much the cover changes at the pixel and at the one behind it. Summed up along
/// the row that is the cover itself.
class Canvas::Rasterizer
{
public:
    Rasterizer(int width, int height)
        : m_width(width)
        , m_height(height)
        , m_stride(static_cast<std::size_t>(width) + 2)
        , m_rows(kBand)
        , m_changes(m_stride * kBand, 0.0F)
    {
    }

    /// @param rings  where each ring ends among the points
    void Fill(const std::vector<QPointF>& points, const std::vector<std::size_t>& rings, bool oddEven, QImage& image,
              quint32 colour)
    {
        if (points.empty())
            return;
        const auto [high, low] = std::minmax_element(points.begin(), points.end(),
                                                     [](QPointF one, QPointF other) { return one.y() < other.y(); });
        const int top = static_cast<int>(std::clamp(high->y(), 0.0, static_cast<double>(m_height)));
        const int bottom = static_cast<int>(std::ceil(std::clamp(low->y(), 0.0, static_cast<double>(m_height))));
        for (m_from = top; m_from < bottom; m_from = m_to) {
            m_to = std::min(m_from + kBand, bottom);
            std::size_t begin = 0;
            for (const std::size_t end : rings) {
                for (std::size_t i = begin; i + 1 < end; ++i)
                    Side(points[i], points[i + 1]);
                if (end > begin)
                    Side(points[end - 1], points[begin]);
                begin = end;
            }
            for (int row = m_from; row < m_to; ++row)
                FillRow(reinterpret_cast<quint32*>(image.scanLine(row)), row, colour, oddEven);
        }
    }

    std::vector<QPointF> room; ///< for whoever needs some points

private:
    static constexpr int kBand = 64; ///< rows at a time: so many stay in the processor's cache

    struct Row
    {
        int first = 1 << 30; ///< pixel that a side has touched
        int last = -1;
    };

    void Side(QPointF from, QPointF to)
    {
        if (from.y() == to.y())
            return;
        const double direction = from.y() < to.y() ? 1 : -1;
        if (direction < 0)
            std::swap(from, to);
        if (to.y() <= m_from || from.y() >= m_to)
            return;
        const double slope = (to.x() - from.x()) / (to.y() - from.y());
        if (from.y() < m_from)
            from = {from.x() + (m_from - from.y()) * slope, static_cast<double>(m_from)};
        if (to.y() > m_to)
            to = {to.x() - (to.y() - m_to) * slope, static_cast<double>(m_to)};
        double x = from.x();
        double y = from.y();
        while (y < to.y()) {
            const int row = static_cast<int>(y);
            const double end = std::min(row + 1.0, to.y());
            const double next = end == to.y() ? to.x() : x + (end - y) * slope;
            Step(row, x, next, (end - y) * direction);
            x = next;
            y = end;
        }
    }

    /// Part of a side within one row of pixels. @param rise  how much of the row, with the side's direction
    void Step(int row, double from, double to, double rise)
    {
        const double width = m_width;
        double left = std::min(from, to);
        double right = std::max(from, to);
        if (left >= width)
            return; // nothing of the picture lies to its right
        if (left < 0 || right > width) {
            // What is left of the picture covers it from its edge on; what is right of it, not at all.
            const double across = right - left;
            if (left < 0) {
                const double out = right <= 0 ? 1 : -left / across;
                Add(row, 0, 0, rise * out);
                rise -= rise * out;
                if (right <= 0)
                    return;
                left = 0;
            }
            if (right > width) {
                rise *= (width - left) / (right - left);
                right = width;
            }
        }
        const int first = static_cast<int>(left);
        const int last = static_cast<int>(right);
        if (first == last) {
            Add(row, first, (left + right) / 2 - first, rise);
            return;
        }
        const double each = rise / (right - left);
        Add(row, first, (left - first + 1) / 2, each * (first + 1 - left));
        for (int x = first + 1; x < last; ++x)
            Add(row, x, 0.5, each);
        if (right > last)
            Add(row, last, (right - last) / 2, each * (right - last));
    }

    /// @param at  where in the pixel the side is, from its left
    void Add(int row, int x, double at, double rise)
    {
        Row& touched = RowOf(row);
        touched.first = std::min(touched.first, x);
        touched.last = std::max(touched.last, x + 1);
        float* const change = ChangesOf(row) + x;
        change[0] += static_cast<float>(rise * (1 - at));
        change[1] += static_cast<float>(rise * at);
    }

    void FillRow(quint32* line, int row, quint32 colour, bool oddEven)
    {
        Row& touched = RowOf(row);
        float* const changes = ChangesOf(row);
        const int end = std::min(touched.last + 1, m_width);
        float sum = 0;
        for (int x = touched.first; x < end;) {
            sum += std::exchange(changes[x], 0.0F);
            int behind = x + 1;
            while (behind < end && changes[behind] == 0)
                ++behind;
            if (behind == end)
                behind = m_width; // what ends right of the picture goes on to its edge
            float cover = std::abs(sum);
            if (oddEven) {
                cover = std::fmod(cover, 2.0F);
                cover = cover > 1 ? 2 - cover : cover;
            }
            if (const auto share = static_cast<quint32>(std::min(cover, 1.0F) * 255 + 0.5F); share > 0)
                Lay(line + x, line + behind, colour, share);
            x = behind;
        }
        touched = {};
    }

    Row& RowOf(int row) { return m_rows[static_cast<std::size_t>(row - m_from)]; }
    float* ChangesOf(int row) { return m_changes.data() + m_stride * static_cast<std::size_t>(row - m_from); }

    const int m_width;
    const int m_height;
    const std::size_t m_stride;
    int m_from = 0; ///< the rows in hand
    int m_to = 0;
    std::vector<Row> m_rows;
    std::vector<float> m_changes; ///< nought but for the rows in hand; what is right of the picture is never read
};

Canvas::Canvas(QImage& image)
    : m_image(image)
    , m_rasterizer(std::make_unique<Rasterizer>(image.width(), image.height()))
{
}

Canvas::~Canvas() = default;

void Canvas::Fill(const QPainterPath& path, const QColor& colour)
{
    constexpr double kUnseen = 0.03; // of a pixel
    Fill(Outline(path, kUnseen), QTransform(), colour);
}

void Canvas::Fill(const Outline& outline, const QTransform& where, const QColor& colour)
{
    std::vector<QPointF>& moved = m_rasterizer->room;
    if (!where.isIdentity()) {
        moved.resize(outline.m_points.size());
        std::transform(outline.m_points.begin(), outline.m_points.end(), moved.begin(),
                       [&where](QPointF point) { return where.map(point); });
    }
    m_rasterizer->Fill(where.isIdentity() ? outline.m_points : moved, outline.m_ends, outline.m_oddEven, m_image,
                       qPremultiply(colour.rgba()));
}

void Canvas::Stroke(const std::vector<QPainterPath>& lines, const QPen& pen)
{
    const QPainterPathStroker stroker(pen);
    for (const QPainterPath& line : lines) {
        QPainterPath area = stroker.createStroke(line);
        area.setFillRule(Qt::WindingFill);
        Fill(area, pen.color());
    }
}

} // namespace vasclip::street::draw
