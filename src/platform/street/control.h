#pragma once

#include "platform/street/types.h"

#include <QString>

#include <functional>
#include <vector>

namespace vasclip::street {

/// The street map's members and numbered actions: all that a rule may ask of it.
///
/// Coordinates are millionths of a degree, the longitude negative west of Greenwich; lengths are feet on the
/// globe. Each action leaves its result in `status`, negative for a failure; none of them throws.
class StreetControl
{
public:
    virtual ~StreetControl() = default;

    [[nodiscard]] virtual qint32 ID() const = 0;
    virtual void SetID(qint32 id) = 0;
    [[nodiscard]] virtual QString Location() const = 0;
    virtual void SetLocation(const QString& location) = 0;
    [[nodiscard]] virtual qint32 Latitude() const = 0;
    virtual void SetLatitude(qint32 latitude) = 0;
    [[nodiscard]] virtual qint32 Longitude() const = 0;
    virtual void SetLongitude(qint32 longitude) = 0;
    [[nodiscard]] virtual qint32 Flags() const = 0;
    virtual void SetFlags(qint32 flags) = 0;
    /// Of a point: the full drive path of its bitmap, "" for none.
    [[nodiscard]] virtual QString Picture() const = 0;
    virtual void SetPicture(const QString& picture) = 0;
    [[nodiscard]] virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;
    [[nodiscard]] virtual qint32 Status() const = 0;
    [[nodiscard]] virtual double Value() const = 0;
    virtual void SetValue(double value) = 0;
    /// Degrees from north, growing towards the west.
    [[nodiscard]] virtual double DValue() const = 0;
    virtual void SetDValue(double degrees) = 0;
    virtual void SetFeature(qint32 feature) = 0;
    virtual void SetAttribute(qint32 attribute) = 0;
    /// Width of the view in feet.
    [[nodiscard]] virtual double Scale() const = 0;
    virtual void SetScale(double feet) = 0;
    /// Size of the control on the screen in pixels.
    [[nodiscard]] virtual double Width() const = 0;
    [[nodiscard]] virtual double Height() const = 0;
    virtual void SetStreetClick(bool on) = 0;

    /// Does one of the operations of `Action`; an unknown number sets `status` to -1.
    virtual void DoAction(qint32 action) = 0;
    virtual void CreateLine(qint32 id, const std::vector<Place>& line, qint32 width, qint32 colour) = 0;
    virtual void DestroyLine(qint32 id) = 0;
    /// Draws what has changed at once.
    virtual void Refresh() = 0;
    /// Action 17: the map as it stands, laid out for `width` x `height` and saved as a JPEG (a drive path).
    /// @param quality  of the JPEG, 1 to 100
    /// @return false, with a negative `status`, where it can't be drawn or stored
    virtual bool DrawTo(const QString& file, int width, int height, int quality) = 0;

    /// Hears of each point that action 27 finds: its text and its `ID`.
    virtual void OnPointFound(std::function<void(const QString& text, qint32 id)> heard) = 0;
};

/// The operations that `DoAction` knows.
namespace action {
inline constexpr qint32 kGeocode = 1;
inline constexpr qint32 kFind = 2;
inline constexpr qint32 kAddPoint = 3;
inline constexpr qint32 kWritePoint = 4;
inline constexpr qint32 kDeletePoint = 5;
inline constexpr qint32 kLoadPoint = 6;
inline constexpr qint32 kReverse = 7;
inline constexpr qint32 kApplyFeatures = 13;
inline constexpr qint32 kDraw = 17;
inline constexpr qint32 kApplyAttribute = 22;
inline constexpr qint32 kSetOrigin = 23;
inline constexpr qint32 kPointsInLine = 27;
inline constexpr qint32 kClearLines = 36;
inline constexpr qint32 kClearPoints = 37;
inline constexpr qint32 kProject = 48;
inline constexpr qint32 kReadCentre = 216;
inline constexpr qint32 kSetCentre = 217;
inline constexpr qint32 kDistance = 236;
} // namespace action

} // namespace vasclip::street
