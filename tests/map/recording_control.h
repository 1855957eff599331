#pragma once

#include "platform/street/control.h"
#include "platform/street/geodesy.h"

#include <QMap>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <map>

namespace vasclip::test {

using namespace Qt::StringLiterals;

using street::Place;

/// A point as it lies on the map.
struct Pin
{
    Place place;
    qint32 flags = 0;
    QString picture, text;
};

/// A street map without streets: addresses are found by a table, points are kept, distances and projections are the
/// globe's own. Every set of a member and every action is recorded in order.
class RecordingControl final : public street::StreetControl
{
public:
    QMap<QString, Place> addresses;  ///< by the address in capitals
    std::map<qint32, Pin> pins;
    std::map<qint32, std::vector<Place>> lines;
    QStringList log;                 ///< "ID=1", "Action 6", "Scale=840", ...
    Place centre;
    Place origin;
    QString streetAt;                ///< what a reverse look-up finds
    double width = 800, height = 600;
    bool streetClick = false;
    int refreshes = 0;
    int lookUps = 0;
    QStringList drawn;
    bool canDraw = true;
    qint32 attributeStatus = 0;      ///< of action 22
    QList<qint32> protectedPins;     ///< that can't be written back
    std::function<void(const QString& file)> onDraw;
    std::function<void()> onGeocode;
    std::function<double(Place)> distance; ///< in place of the globe's

    [[nodiscard]] QStringList Actions() const { return log.filter(u"Action"_s); }

    qint32 ID() const override { return m_id; }
    void SetID(qint32 id) override { Set(u"ID"_s, m_id, id); }
    QString Location() const override { return m_location; }
    void SetLocation(const QString& location) override
    {
        m_location = location;
        log << u"Location="_s + location;
    }
    qint32 Latitude() const override { return m_place.latitude; }
    void SetLatitude(qint32 latitude) override { Set(u"Latitude"_s, m_place.latitude, latitude); }
    qint32 Longitude() const override { return m_place.longitude; }
    void SetLongitude(qint32 longitude) override { Set(u"Longitude"_s, m_place.longitude, longitude); }
    qint32 Flags() const override { return m_flags; }
    void SetFlags(qint32 flags) override
    {
        m_flags = flags;
        log << u"Flags="_s + QString::number(flags, 16).toUpper();
    }
    QString Picture() const override { return m_picture; }
    void SetPicture(const QString& picture) override
    {
        m_picture = picture;
        log << u"Picture="_s + picture;
    }
    QString Text() const override { return m_text; }
    void SetText(const QString& text) override
    {
        m_text = text;
        log << u"Text="_s + text;
    }
    qint32 Status() const override { return m_status; }
    double Value() const override { return m_value; }
    void SetValue(double value) override { Set(u"Value"_s, m_value, value); }
    double DValue() const override { return m_degrees; }
    void SetDValue(double degrees) override { Set(u"DValue"_s, m_degrees, degrees); }
    void SetFeature(qint32 feature) override { Set(u"Feature"_s, m_feature, feature); }
    void SetAttribute(qint32 attribute) override { Set(u"Attribute"_s, m_attribute, attribute); }
    double Scale() const override { return m_scale; }
    void SetScale(double feet) override { Set(u"Scale"_s, m_scale, feet); }
    double Width() const override { return width; }
    double Height() const override { return height; }
    void SetStreetClick(bool on) override { streetClick = on; }

    void DoAction(qint32 action) override
    {
        namespace a = street::action;
        log << u"Action "_s + QString::number(action);
        m_status = 0;
        switch (action) {
        case a::kGeocode:
            ++lookUps;
            if (onGeocode)
                onGeocode();
            [[fallthrough]];
        case a::kFind:
            return Find();
        case a::kAddPoint:
            if (std::abs(m_place.latitude) > 90'000'000 || std::abs(m_place.longitude) > 180'000'000) {
                m_status = -1; // no place on the globe
                return;
            }
            pins[m_id] = {m_place, m_flags, m_picture, m_text};
            return;
        case a::kWritePoint:
            if (!pins.contains(m_id) || protectedPins.contains(m_id))
                m_status = -1;
            else
                pins[m_id] = {m_place, m_flags, m_picture, m_text};
            return;
        case a::kDeletePoint:
            m_status = pins.erase(m_id) > 0 ? 0 : -1;
            return;
        case a::kLoadPoint:
            return Load();
        case a::kReverse:
            m_location = streetAt;
            m_status = streetAt.isEmpty() ? -1 : 0;
            return;
        case a::kApplyAttribute:
            log << u"%1/%2=%3"_s.arg(m_feature).arg(m_attribute).arg(Shown(m_value));
            m_status = attributeStatus;
            return;
        case a::kSetOrigin:
            origin = m_place;
            return;
        case a::kPointsInLine:
            return FindWithin();
        case a::kClearLines:
            lines.clear();
            return;
        case a::kClearPoints:
            pins.clear();
            return;
        case a::kProject:
            m_place = street::Project(m_place, std::fmod(360 - m_degrees, 360), m_value);
            return;
        case a::kReadCentre:
            m_place = centre;
            return;
        case a::kSetCentre:
            centre = m_place;
            return;
        case a::kDistance:
            m_value = distance ? distance(m_place) : street::DistanceFeet(origin, m_place);
            return;
        default:
            m_status = -1;
        }
    }
    void CreateLine(qint32 id, const std::vector<Place>& line, qint32 lineWidth, qint32 colour) override
    {
        lines[id] = line;
        log << u"CreateLine %1 of %2, width %3, colour %4"_s.arg(id)
                   .arg(line.size())
                   .arg(lineWidth)
                   .arg(colour, 0, 16);
    }
    void DestroyLine(qint32 id) override
    {
        lines.erase(id);
        log << u"DestroyLine %1"_s.arg(id);
    }
    void Refresh() override
    {
        ++refreshes;
        log << u"Refresh"_s;
    }
    bool DrawTo(const QString& file, int w, int h, int quality) override
    {
        log << u"DrawTo %1 %2x%3, %4"_s.arg(file).arg(w).arg(h).arg(quality);
        m_status = canDraw ? 0 : -1;
        if (canDraw && onDraw)
            onDraw(file);
        return canDraw;
    }
    void OnPointFound(std::function<void(const QString& text, qint32 id)> heard) override { m_heard = std::move(heard); }

private:
    template <class T>
    void Set(const QString& name, T& member, T value)
    {
        member = value;
        log << name + u'=' + Shown(value);
    }
    static QString Shown(qint32 value) { return QString::number(value); }
    static QString Shown(double value) { return QString::number(value, 'g', 12); }
    void Find()
    {
        const auto found = addresses.constFind(m_location.toUpper());
        m_status = found == addresses.cend() ? -1 : 0;
        if (m_status == 0)
            m_place = *found;
    }
    void Load()
    {
        const auto found = pins.find(m_id);
        m_status = found == pins.end() ? -1 : 0;
        if (m_status < 0)
            return;
        m_place = found->second.place;
        m_flags = found->second.flags;
        m_picture = found->second.picture;
        m_text = found->second.text;
    }
    void FindWithin()
    {
        const auto line = lines.find(m_id);
        if (line == lines.end() || !m_heard) {
            m_status = -1;
            return;
        }
        street::Extent around;
        for (const Place& place : line->second)
            around.Widen(place);
        const double radius = street::DistanceFeet(line->second.front(),
                                                   {(around.low.latitude + around.high.latitude) / 2,
                                                    (around.low.longitude + around.high.longitude) / 2});
        const Place middle{(around.low.latitude + around.high.latitude) / 2,
                           (around.low.longitude + around.high.longitude) / 2};
        for (const auto& [id, pin] : pins)
            if (street::DistanceFeet(middle, pin.place) <= radius)
                m_heard(pin.text, id);
    }

    std::function<void(const QString& text, qint32 id)> m_heard;
    qint32 m_id = 0, m_flags = 0, m_status = 0, m_feature = 0, m_attribute = 0;
    Place m_place;
    QString m_location, m_picture, m_text;
    double m_value = 0, m_degrees = 0, m_scale = 0;
};

} // namespace vasclip::test
