#pragma once

#include "platform/street/street_map.h"

#include <QString>

#include <functional>

namespace vasclip::map {

/// What people do on the drawn map, as its window tells it. The rules answer through the engine and the controls.
class MapPort
{
public:
    virtual ~MapPort() = default;
    [[nodiscard]] virtual street::StreetMap& Engine() = 0;
    /// The map comes to the screen: its files are opened the first time. @return are there any?
    virtual bool Shown() = 0;
    /// Who is told that the street files are others now.
    virtual void OnOtherMaps(std::function<void()> heard) = 0;
    /// A click on a point, by its `ID`. @return is the address on show that of the point?
    virtual bool PointClicked(qint32 id) = 0;
    /// A point was dragged and let go.
    virtual void PointDropped(qint32 id, street::Place place) = 0;
    /// A click beside all points.
    virtual void GroundClicked(street::Place place) = 0;
    /// How far from the subject a line of the circle's list is, in words.
    [[nodiscard]] virtual QString DistanceOfLine(int line) const = 0;
    virtual void Drawn() = 0; ///< all of the view is on the screen: what of it was missing is known
    virtual void AnchorAllOff() = 0; ///< the right button on cmdAnchor
    /// One step of a spinner, +1 or -1, by its name.
    virtual void Step(const QString& spinner, int step) = 0;
    /// @return false for a key that means nothing on the map
    virtual bool KeyDown(int keyCode, int shift) = 0;
    virtual void KeyUp(int keyCode) = 0;
};

} // namespace vasclip::map
