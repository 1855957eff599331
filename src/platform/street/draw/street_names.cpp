#include "platform/street/draw/labels.h"
#include "platform/street/draw/stretches.h"

#include <algorithm>
#include <map>
#include <optional>

namespace vasclip::street::draw {

namespace {

constexpr double kApart = 620; // pixels of 1/96 inch between two names of a street
constexpr size_t kFewEdges = 700; // on a whole sheet
constexpr double kLeastRoom = 24; // a stretch that is shorter bears no name

QString Digits(const QString& text)
{
    QString digits;
    for (const QChar letter : text) {
        if (letter.isDigit())
            digits += letter;
    }
    return digits;
}

/// A name that says what the shield says: "US Hwy 31" with "US 31".
bool SaysTheShield(const QString& name, const QString& shield)
{
    const QString digits = Digits(shield);
    return !digits.isEmpty() && Digits(name) == digits;
}

/// The piece of a step within a box.
std::optional<std::pair<QPointF, QPointF>> Clip(QPointF from, QPointF to, const QRectF& box)
{
    double begin = 0;
    double end = 1;
    const QPointF step = to - from;
    for (const auto& [start, along, low, high] :
         {std::tuple(from.x(), step.x(), box.left(), box.right()), std::tuple(from.y(), step.y(), box.top(), box.bottom())}) {
        if (along == 0) {
            if (start < low || start > high)
                return std::nullopt;
            continue;
        }
        const double one = (low - start) / along;
        const double other = (high - start) / along;
        begin = std::max(begin, std::min(one, other));
        end = std::min(end, std::max(one, other));
    }
    if (begin >= end)
        return std::nullopt;
    return std::pair(begin > 0 ? from + step * begin : from, end < 1 ? from + step * end : to);
}

/// What of a line lies within a box: a county road would else have its names out of sight.
void AddWithin(const std::vector<QPointF>& line, const QRectF& box, std::vector<Walk>& walks)
{
    std::vector<QPointF> inside;
    for (size_t i = 1; i < line.size(); ++i) {
        const auto piece = Clip(line[i - 1], line[i], box);
        if (piece && (inside.empty() || inside.back() != piece->first)) {
            if (inside.size() > 1)
                walks.emplace_back(std::exchange(inside, {}));
            inside = {piece->first};
        }
        if (piece)
            inside.push_back(piece->second);
    }
    if (inside.size() > 1)
        walks.emplace_back(std::move(inside));
}

} // namespace

void LabelSheet::FindStreets()
{
    struct Found
    {
        RoadClass roadClass = RoadClass::Path;
        std::vector<const std::vector<Place>*> edges;
    };
    // In the order of names: the same ground gives the same picture, whatever cells it came from.
    std::map<std::pair<QString, QString>, Found> found;
    const double metres = m_projection.Metres();
    for (const Content::Edge& seen : m_content.edges) {
        const quint32 index = seen.edge->street;
        if (index == 0 || index > seen.cell->streets.size() || seen.edge->hidden ||
            RoadWidth(seen.edge->roadClass, metres, m_look) <= 0 || seen.edge->roadClass == RoadClass::Rail)
            continue;
        const CellStreet& street = seen.cell->streets[index - 1];
        Found& one = found[{street.name, street.shield}];
        one.roadClass = std::min(one.roadClass, seen.edge->roadClass);
        one.edges.push_back(&seen.edge->line);
    }
    for (const auto& [names, one] : found)
        m_streets.push_back({names.first, names.second, one.roadClass, Join(one.edges, m_projection)});
    std::stable_sort(m_streets.begin(), m_streets.end(),
                     [](const Street& a, const Street& b) { return a.roadClass < b.roadClass; });
}

void LabelSheet::WriteStreets()
{
    for (const Street& street : m_streets) {
        if (!street.name.isEmpty() && m_look.Of(street.roadClass).named &&
            !(street.roadClass == RoadClass::Ramp || SaysTheShield(street.name, street.shield)))
            WriteStreet(street);
    }
}

void LabelSheet::WriteStreet(const Street& street)
{
    const double metres = m_projection.Metres();
    const bool least = street.roadClass > RoadClass::Ramp;
    // Names of small streets need streets that are more than a hair.
    const double local = m_content.edges.size() < kFewEdges ? 14 : 6; // where hardly any are, there is room for all names
    if (metres > (least ? 2.2 : street.roadClass >= RoadClass::Local ? local : 40))
        return;
    const bool great = street.roadClass <= RoadClass::Arterial;
    const double size = Points(m_look.Of(street.roadClass).text + (great ? 0.5 : 0) - (least ? 1 : 0));
    const QColor ink = m_palette.roads.at(static_cast<size_t>(street.roadClass)).text;
    const QRectF reach = m_projection.Sheet().adjusted(-kApart, -kApart, kApart, kApart);
    std::vector<Walk> walks;
    for (const auto& line : street.lines)
        AddWithin(line, reach, walks);
    // The longest stretch gets the name first; shorter ones near it go without.
    std::stable_sort(walks.begin(), walks.end(),
                     [](const Walk& a, const Walk& b) { return a.Length() > b.Length(); });
    for (const Walk& walk : walks) {
        if (walk.Length() > m_projection.Px(kLeastRoom))
            Repeat(walk, street.name, Face::Regular, size, m_projection.Px(kApart), ink);
    }
}

} // namespace vasclip::street::draw
