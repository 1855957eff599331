#include "platform/street/draw/placed_text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vasclip::street::draw {

namespace {

constexpr double kHalfTurn = 180;
constexpr double kSharpest = 22; // degrees between two letters
constexpr double kMostBent = 70; // degrees over a whole text
constexpr double kBoxLetters = 3; // letters a box: a slanted text blocks little beside it

double Degrees(QPointF step)
{
    return std::atan2(step.y(), step.x()) * kHalfTurn / std::numbers::pi;
}

double Turn(double from, double to)
{
    return std::remainder(to - from, 2 * kHalfTurn);
}

/// The box of a letter's advance, halo included.
QRectF BoxOf(const QTransform& where, double advance)
{
    return where.mapRect(QRectF(0, -0.78, advance, 1.0)).adjusted(-1, -1, 1, 1);
}

void AddBoxes(PlacedText& text, const std::vector<double>& advances)
{
    QRectF box;
    double letters = 0;
    for (size_t i = 0; i < text.letters.size(); ++i) {
        box |= BoxOf(text.letters[i].where, advances[i]);
        if (++letters == kBoxLetters || i + 1 == text.letters.size()) {
            text.boxes.push_back(box);
            box = {};
            letters = 0;
        }
    }
}

} // namespace

Walk::Walk(std::vector<QPointF> points) : m_points(std::move(points))
{
    m_at.reserve(m_points.size());
    double at = 0;
    for (size_t i = 0; i < m_points.size(); ++i) {
        if (i > 0)
            at += std::hypot(m_points[i].x() - m_points[i - 1].x(), m_points[i].y() - m_points[i - 1].y());
        m_at.push_back(at);
    }
}

QPointF Walk::At(double distance) const
{
    const auto after = std::upper_bound(m_at.begin() + 1, m_at.end() - 1, distance);
    const auto index = static_cast<size_t>(after - m_at.begin());
    const double step = m_at[index] - m_at[index - 1];
    const double share = step > 0 ? (distance - m_at[index - 1]) / step : 0;
    return m_points[index - 1] + (m_points[index] - m_points[index - 1]) * share;
}

PlacedText OnTheLevel(const TextRun& run, double size, QPointF middle)
{
    PlacedText placed;
    std::vector<double> advances;
    // The base line stands on a whole pixel: level letters are as sharp as they can be.
    const QPointF start(std::round(middle.x() - run.width * size / 2), std::round(middle.y() + kHalfCapital * size));
    for (const TextRun::Letter& letter : run.letters) {
        placed.letters.push_back(
            {letter.glyph, QTransform(size, 0, 0, size, start.x() + letter.x * size, start.y())});
        advances.push_back(letter.advance);
    }
    AddBoxes(placed, advances);
    return placed;
}

std::optional<PlacedText> Along(const Walk& walk, const TextRun& run, double size, double distance, double beside)
{
    const double length = run.width * size;
    const double begin = distance - length / 2;
    if (begin < 0 || begin + length > walk.Length())
        return std::nullopt;
    const QPointF chord = walk.At(begin + length) - walk.At(begin);
    // From left to right; straight up and down from below to above, as on a book's back.
    const bool backward = chord.x() < -1e-3 || (std::abs(chord.x()) <= 1e-3 && chord.y() > 0);
    PlacedText placed;
    std::vector<double> advances;
    double first = 0;
    double last = 0;
    for (const TextRun::Letter& letter : run.letters) {
        const double from = backward ? begin + length - letter.x * size : begin + letter.x * size;
        const double to = backward ? from - letter.advance * size : from + letter.advance * size;
        const QPointF here = walk.At(from);
        const QPointF step = walk.At(to) - here;
        const double angle = letter.advance > 0 ? Degrees(step) : last;
        if (placed.letters.empty())
            first = angle;
        else if (std::abs(Turn(last, angle)) > kSharpest || std::abs(Turn(first, angle)) > kMostBent)
            return std::nullopt;
        last = angle;
        QTransform where;
        where.translate(here.x(), here.y());
        where.rotate(angle);
        where.scale(size, size);
        where.translate(0, kHalfCapital + beside / size);
        placed.letters.push_back({letter.glyph, where});
        advances.push_back(letter.advance);
    }
    AddBoxes(placed, advances);
    return placed;
}

void Write(QPainter& painter, const PlacedText& text, const QColor& ink, const QColor& halo)
{
    // Each letter for itself, as the roads are; no halo covers a letter.
    if (halo.alpha() > 0)
        for (const PlacedText::Letter& letter : text.letters)
            painter.fillPath(letter.where.map(letter.glyph->halo), halo);
    for (const PlacedText::Letter& letter : text.letters)
        painter.fillPath(letter.where.map(letter.glyph->shape), ink);
}

void Write(Canvas& canvas, const PlacedText& text, const QColor& ink, const QColor& halo)
{
    if (halo.alpha() > 0)
        for (const PlacedText::Letter& letter : text.letters)
            canvas.Fill(letter.glyph->filledHalo, letter.where, halo);
    for (const PlacedText::Letter& letter : text.letters)
        canvas.Fill(letter.glyph->filledShape, letter.where, ink);
}

} // namespace vasclip::street::draw
