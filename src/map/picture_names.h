#pragma once

#include <QString>

namespace vasclip::map {

/// Directions of an arrow in the order in which turning goes through them.
inline constexpr int kDirections = 8;

/// What the name of a point's bitmap tells; it is the only place where a placed point's type, number, colour and
/// direction stand.
struct PictureName
{
    bool arrow = false; ///< begins with "ARROW"
    QString colour;     ///< of an arrow: "RED", "BLUE", "BLACK" or ""
    QString type;       ///< "SUBJECT", "ALTCOMP", "COMP", "RENTAL", "LISTING" or ""
    int number = -1;    ///< -1 without a type, 0 without a number
    int direction = 0;  ///< 1 to 8, 0 for none
};

/// @param picture  a name or a full drive path; the directory does not count
[[nodiscard]] PictureName ParsePicture(const QString& picture);

/// The name of a bitmap without its directory.
[[nodiscard]] QString BitmapName(const QString& picture);

/// "ARROW" + colour + type + number + direction; a part that the name lacks is left out.
[[nodiscard]] QString ArrowName(const PictureName& name);

/// "LT.BMP" for 1; "" for 0.
[[nodiscard]] QString DirectionSuffix(int direction);
/// Bits for a point's flags: where in the bitmap its tip is. That of no direction is the first one's.
[[nodiscard]] qint32 HotSpot(int direction);

/// The bitmap of a point that is anchored: an arrow's own, "REDDOORAnchor.bmp" for "reddoor.bmp".
[[nodiscard]] QString AnchoredForm(const QString& picture);
/// The reverse: "REDDOOR.bmp".
[[nodiscard]] QString FreeForm(const QString& picture);

/// A name without a directory gets the directory of the bitmaps; "" stays.
[[nodiscard]] QString BitmapPath(const QString& directory, const QString& picture);

/// The word for an ARROWCOLOR setting: "BLUE", "RED", "BLACK".
[[nodiscard]] QString ColourWord(int arrowColor);

} // namespace vasclip::map
