#include "platform/street/street_map.h"

#include "platform/street/geodesy.h"
#include "platform/street/street_through.h"

#include <cmath>

namespace vasclip::street {

namespace {

constexpr qint32 kFailed = -1;
constexpr qint32 kUnsure = -2; // there are candidates, none of them certain

} // namespace

StreetMap::StreetMap(Parts parts) : m_parts(std::move(parts)), m_scene(m_parts.toNative)
{
    if (m_parts.cells) {
        const Extent covered = m_parts.cells->Covered();
        if (!covered.IsEmpty())
            m_centre = {(covered.low.latitude + covered.high.latitude) / 2,
                        (covered.low.longitude + covered.high.longitude) / 2};
    }
    FrameFromScale();
}

StreetMap::~StreetMap() = default;

void StreetMap::SetScale(double feet)
{
    if (!std::isfinite(feet))
        return;
    m_feet = std::clamp(feet, kLeastFeet, kMostFeet);
    FrameFromScale();
    Changed();
}

void StreetMap::DoAction(qint32 action)
{
    m_status = 0;
    switch (action) {
    case action::kGeocode:
        return Geocode(true);
    case action::kFind:
        return Geocode(false);
    case action::kAddPoint:
        return WritePoint(false);
    case action::kWritePoint:
        return WritePoint(true);
    case action::kDeletePoint:
        m_status = m_scene.points.erase(m_id) > 0 ? 0 : kFailed;
        return SceneChanged();
    case action::kLoadPoint:
        return LoadPoint();
    case action::kReverse:
        return Reverse();
    case action::kApplyFeatures:
    case action::kDraw:
        return Changed();
    case action::kApplyAttribute:
        return ApplyAttribute();
    case action::kSetOrigin:
        m_origin = m_place;
        return;
    case action::kPointsInLine:
        return FindPointsInLine();
    case action::kClearLines:
        m_scene.lines.clear();
        return Changed();
    case action::kClearPoints:
        m_scene.points.clear();
        m_scene.highlight.clear();
        return SceneChanged();
    case action::kProject:
        if (IsValid(m_place) && std::isfinite(m_value) && std::isfinite(m_degrees))
            m_place = Project(m_place, std::fmod(360 - m_degrees, 360), m_value);
        else
            m_status = kFailed;
        return;
    case action::kReadCentre:
        m_place = m_centre;
        return;
    case action::kSetCentre:
        return SetCentre();
    case action::kDistance:
        if (IsValid(m_place) && IsValid(m_origin))
            m_value = DistanceFeet(m_origin, m_place);
        else
            m_status = kFailed;
        return;
    default:
        m_status = kFailed;
    }
}

void StreetMap::Geocode(bool onlySure)
{
    m_candidates = m_parts.geocoder ? m_parts.geocoder->Find(m_location) : std::vector<Candidate>();
    if (m_candidates.empty()) {
        m_status = kFailed;
        return;
    }
    // A doubtful place may be looked at, but nothing is put there unasked.
    const Candidate& best = m_candidates.front();
    if (onlySure && !best.sure) {
        m_status = kUnsure;
        return;
    }
    m_place = best.place;
}

void StreetMap::Reverse()
{
    m_candidates = m_parts.geocoder && IsValid(m_place) ? m_parts.geocoder->Near(m_place) : std::vector<Candidate>();
    if (m_candidates.empty()) {
        m_status = kFailed;
        return;
    }
    m_location = m_candidates.front().address;
    if (!m_streetClick || !m_parts.cells)
        return;
    m_scene.highlight = StreetThrough(*m_parts.cells, m_place);
    Changed();
}

void StreetMap::SetStreetClick(bool on)
{
    m_streetClick = on;
    if (on || m_scene.highlight.empty())
        return;
    m_scene.highlight.clear();
    Changed();
}

void StreetMap::LoadPoint()
{
    const auto found = m_scene.points.find(m_id);
    if (found == m_scene.points.end()) {
        m_status = kFailed;
        return;
    }
    m_place = found->second.place;
    m_flags = found->second.flags;
    m_picture = found->second.picture;
    m_text = found->second.text;
}

void StreetMap::WritePoint(bool must)
{
    if ((must && !m_scene.points.contains(m_id)) || !IsValid(m_place)) {
        m_status = kFailed;
        return;
    }
    m_scene.points[m_id] = {m_place, m_flags, m_picture, m_text};
    SceneChanged();
}

void StreetMap::FindPointsInLine()
{
    const auto line = m_scene.lines.find(m_id);
    if (line == m_scene.lines.end()) {
        m_status = kFailed;
        return;
    }
    if (!m_pointFound)
        return;
    // Whoever hears may change the map.
    std::vector<std::pair<QString, qint32>> found;
    for (const qint32 id : m_scene.Within(line->second))
        found.emplace_back(m_scene.points.at(id).text, id);
    for (const auto& [text, id] : found)
        m_pointFound(text, id);
}

void StreetMap::CreateLine(qint32 id, const std::vector<Place>& line, qint32 width, qint32 colour)
{
    m_status = line.size() > 1 && std::all_of(line.begin(), line.end(), IsValid) ? 0 : kFailed;
    if (m_status < 0)
        return;
    m_scene.lines[id] = {line, width, colour};
    Changed();
}

void StreetMap::DestroyLine(qint32 id)
{
    m_status = m_scene.lines.erase(id) > 0 ? 0 : kFailed;
    Changed();
}

void StreetMap::OnPointFound(std::function<void(const QString& text, qint32 id)> heard)
{
    m_pointFound = std::move(heard);
}

void StreetMap::SetMaps(std::shared_ptr<const CellSource> cells, std::shared_ptr<const Geocoder> geocoder)
{
    m_parts.cells = std::move(cells);
    m_parts.geocoder = std::move(geocoder);
    if (m_tiles)
        m_tiles->SetSource(m_parts.cells);
    Changed();
}

} // namespace vasclip::street
