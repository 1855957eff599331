#pragma once

#include <QColor>
#include <QString>

namespace vasclip::demo {

enum class Season { Spring, Summer, Autumn, Winter };
enum class Daylight { Morning, Noon, Evening, Overcast };

/// What stands on the lot.
enum class Design {
    Ranch,
    TwoStorey,
    CapeCod,
    SplitLevel,
    Bungalow,
    Farmhouse,
    Townhouses,
    CondoBlock,
    Duplex,
    Fourplex,
    MobileHome,
    EmptyLot
};

enum class Siding { Lap, Board, Brick, Stucco, Shingle };

/// All that a picture of a property depends on; the same look gives the same house from front, rear and
/// street.
struct Look
{
    quint32 seed = 1; ///< of the house: its design's details and colours
    quint32 day = 1;  ///< of the day: sky, trees, grain
    Design design = Design::Ranch;
    Season season = Season::Summer;
    Daylight light = Daylight::Noon;
    int garageCars = 2; ///< 0 to 3
    int sizeStep = 1;   ///< 0 small, 1 middle, 2 large
    bool fireplace = false;
};

/// The colours of one house.
struct Palette
{
    QColor wall, trim, roof, door, shutter, base;
    Siding siding = Siding::Lap;
};

/// The colours of one day.
struct Air
{
    QColor skyTop, skyLow, haze, sun, shadow;
    double sunX = 0;        ///< 0 left to 1 right
    double sunHeight = 0.3; ///< of the picture's height, from above
    bool sunVisible = true;
    double cloudiness = 0.4; ///< 0 to 1
    double warmth = 0;       ///< -1 cold to 1 golden
    double brightness = 1;
};

[[nodiscard]] Palette PaletteOf(const Look& look);
[[nodiscard]] Air AirOf(const Look& look);

/// `share` 0 is `a`, 1 is `b`.
[[nodiscard]] QColor Mix(const QColor& a, const QColor& b, double share);
[[nodiscard]] QColor Lighter(const QColor& colour, double share); ///< towards white
[[nodiscard]] QColor Darker(const QColor& colour, double share);  ///< towards a bluish black
[[nodiscard]] QColor Faded(QColor colour, double opacity);        ///< 0 to 1

} // namespace vasclip::demo
