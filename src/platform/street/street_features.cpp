#include "platform/street/street_map.h"

#include <cmath>

namespace vasclip::street {

namespace {

// What the map can be told about, and what about it.
constexpr qint32 kMotorways = 4;
constexpr qint32 kHighways = 5;
constexpr qint32 kArterials = 6;
constexpr qint32 kStreets = 7;
constexpr qint32 kRails = 11;
constexpr qint32 kPoints = 18;
constexpr qint32 kHighlight = 21;

constexpr qint32 kShown = 1;
constexpr qint32 kStyle = 2;
constexpr qint32 kWidth = 3;
constexpr qint32 kNamed = 10;
constexpr qint32 kTextSize = 12;
constexpr qint32 kTextColour = 13; // of the highlight; elsewhere the size of a text that is pointed at

constexpr double kMostText = 40; // points
constexpr double kMostWidth = 20;
constexpr double kWhite = 0xFFFFFF;

} // namespace

void StreetMap::ApplyAttribute()
{
    draw::Look look = m_look;
    draw::RoadLook* road = m_feature == kMotorways   ? &look.motorways
                           : m_feature == kHighways  ? &look.highways
                           : m_feature == kArterials ? &look.arterials
                           : m_feature == kStreets   ? &look.streets
                                                     : nullptr;
    const bool size = m_attribute == kTextSize || m_attribute == kTextColour;
    m_status = -1;
    if (!std::isfinite(m_value))
        return;
    if (road != nullptr && size && m_value >= 1)
        road->text = std::min(m_value, kMostText);
    else if (road != nullptr && m_attribute == kWidth && m_value >= 1)
        road->width = std::min(m_value, kMostWidth);
    else if (road != nullptr && m_attribute == kShown)
        road->shown = m_value != 0;
    else if (road != nullptr && m_attribute == kNamed)
        road->named = m_value != 0;
    else if (m_feature == kPoints && size && m_value >= 1)
        m_scene.labelPoints = std::min(m_value, kMostText);
    else if (m_feature == kHighlight && m_attribute == kShown && m_value >= 0 && m_value <= kWhite)
        m_scene.highlightColour = static_cast<qint32>(m_value); // it is shown by a click alone
    else if (m_feature == kHighlight && m_attribute == kWidth && m_value >= 1)
        m_scene.highlightWidth = std::min(m_value, kMostWidth);
    else if ((m_feature == kRails && m_attribute == kNamed) || // rails bear no names as it is
             (m_feature == kHighlight && (m_attribute == kStyle || m_attribute == kTextColour)))
        m_status = 0; // nothing of the map is drawn by it
    else
        return;
    m_status = 0;
    m_look = look;
    Changed();
}

} // namespace vasclip::street
