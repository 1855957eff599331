#pragma once

#include "platform/street/features.h"

#include <QColor>
#include <QString>

#include <array>

namespace vasclip::street::draw {

inline constexpr std::size_t kRoadClasses = static_cast<std::size_t>(RoadClass::Rail) + 1;
/// 7 points: what can still be read on paper. Nothing is written smaller.
inline constexpr double kSmallestText = 7 * 96.0 / 72;

/// What the user has chosen about a group of roads.
struct RoadLook
{
    double text = 8; ///< points
    double width = 1; ///< 1 as the map has it, each step a quarter wider
    bool shown = true;
    bool named = true;
};

/// How a map is to look.
struct Look
{
    bool dark = false;
    RoadLook motorways;
    RoadLook highways;
    RoadLook arterials; ///< and collectors
    RoadLook streets; ///< and what is less
    bool furniture = true; ///< scale bar, north and credit
    QString credit; ///< whose data it is, "" for nobody who asks to be named

    [[nodiscard]] const RoadLook& Of(RoadClass roadClass) const;
    friend bool operator==(const Look&, const Look&);
};

struct RoadInk
{
    QColor fill;
    QColor casing;
    QColor text;
};

/// The colours of a map.
struct Palette
{
    QColor land;
    std::array<QColor, 7> areas; ///< by AreaKind
    QColor waterEdge;
    std::array<RoadInk, kRoadClasses> roads;
    QColor waterText;
    QColor areaText;
    QColor placeText;
    QColor quietText; ///< hamlets, house numbers
    QColor houses;
    QColor halo;
    QColor furniture;
    QColor furnitureBack;
};

[[nodiscard]] const Palette& PaletteOf(bool dark);

/// How wide a road is drawn, in pixels of 1/96 inch, where such a pixel covers `metres`; 0: not at all.
[[nodiscard]] double RoadWidth(RoadClass roadClass, double metres, const Look& look);

/// What cells a map of so many metres a pixel is drawn from.
[[nodiscard]] bool ShowsStreets(double metres);
[[nodiscard]] bool ShowsTown(double metres);

} // namespace vasclip::street::draw
