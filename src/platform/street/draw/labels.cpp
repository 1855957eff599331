#include "platform/street/draw/labels.h"

#include <algorithm>
#include <cmath>

namespace vasclip::street::draw {

namespace {

constexpr double kSquare = 24; // about a label's height

} // namespace

LabelSheet::LabelSheet(Canvas& canvas, const Projection& projection, const Content& content, const Look& look,
                       const std::vector<QRectF>& kept)
    : m_canvas(canvas), m_projection(projection), m_content(content), m_look(look),
      m_palette(PaletteOf(look.dark)), m_occupied(projection.Sheet(), projection.Px(kSquare))
{
    m_occupied.Take(kept);
}

void LabelSheet::WriteAll()
{
    FindStreets();
    WritePlaces(true);
    WriteShields();
    WriteBrooks();
    WriteStreets();
    WriteAreas();
    WritePlaces(false);
    WriteHouses();
    WriteRanges();
}

bool LabelSheet::WriteAlong(const Walk& walk, const QString& text, Face face, double size, double distance,
                            double beside, const QColor& ink)
{
    const auto placed = Along(walk, Run(text, face), size, distance, beside);
    if (!placed || !m_occupied.IsFree(placed->boxes))
        return false;
    Write(m_canvas, *placed, ink, m_palette.halo);
    Note(text, *placed, size);
    return true;
}

bool LabelSheet::WriteLevel(const QString& text, Face face, double size, QPointF middle, const QColor& ink)
{
    const PlacedText placed = OnTheLevel(Run(text, face), size, middle);
    if (!m_occupied.IsFree(placed.boxes))
        return false;
    Write(m_canvas, placed, ink, m_palette.halo);
    Note(text, placed, size);
    return true;
}

void LabelSheet::Repeat(const Walk& walk, const QString& text, Face face, double size, double apart,
                        const QColor& ink)
{
    const double length = walk.Length();
    const int parts = std::max(1, static_cast<int>(length / apart));
    const double part = length / parts;
    for (int i = 0; i < parts; ++i) {
        // From the middle of a part outwards, to where there is room.
        for (const double shift : {0.0, 0.12, -0.12, 0.25, -0.25, 0.38, -0.38}) {
            const double at = (i + 0.5 + shift) * part;
            // A text whose middle is out of sight is not wholly in it: most names of a map close in need not be set.
            if (!m_projection.Sheet().contains(walk.At(at)))
                continue;
            if (length < Run(text, face).width * size)
                return;
            if (!IsNear(text, walk.At(at), apart * 0.5) && WriteAlong(walk, text, face, size, at, 0, ink))
                break;
        }
    }
}

bool LabelSheet::IsNear(const QString& text, QPointF place, double distance) const
{
    const auto known = m_places.constFind(text);
    return known != m_places.cend() && std::any_of(known->begin(), known->end(), [&](QPointF one) {
               return std::hypot(one.x() - place.x(), one.y() - place.y()) < distance;
           });
}

void LabelSheet::Note(const QString& text, const PlacedText& placed, double size)
{
    m_occupied.Take(placed.boxes);
    QRectF box;
    for (const QRectF& one : placed.boxes)
        box |= one;
    m_places[text].push_back(box.center());
    m_written.push_back({text, box, size});
}

const TextRun& LabelSheet::Run(const QString& text, Face face)
{
    TextRun& run = m_runs[{text, face}];
    if (run.letters.empty())
        run = Letters(text, face);
    return run;
}

double LabelSheet::Points(double points) const
{
    return m_projection.Px(std::max(points * 96 / 72, kSmallestText));
}

} // namespace vasclip::street::draw
