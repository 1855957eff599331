#pragma once

#include <QImage>
#include <QPainter>
#include <QString>
#include <QStringList>

#include <optional>

namespace vasclip::street::draw {

/// A point's picture as its file name has it: "ARROWBLUECOMP1LT.BMP", "reddoor.bmp", "REDDOORAnchor.bmp".
struct Mark
{
    enum class Kind : quint8 { Arrow, House, RedDoor, RedDot, RedPin, GreenPin, StreetArrow };

    Kind kind = Kind::Arrow;
    int colour = 0; ///< of arrows: blue, red, black
    QString caption; ///< of arrows: "COMP 1", "" for one with no type
    int across = 0; ///< of arrows, where the tip is: -1 left, 0 middle, 1 right
    int down = 0; ///< -1 top, 0 middle, 1 bottom
    bool anchored = false;
};

/// What a file name without its directory, in any case, stands for; nothing where it is no picture of the map's own.
[[nodiscard]] std::optional<Mark> ReadMark(const QString& fileName);

/// Where a mark's place lies in its picture, from 0 to 1 in both directions: an arrow's tip, a pin's, a house's middle.
[[nodiscard]] QPointF HotSpot(const Mark& mark);

/// The mark as a picture, with its alpha. @param ratio  pixels that 1/96 inch takes
/// @param seeThrough  streets show through the caption's field. @param dark  and these are a dark map's
[[nodiscard]] QImage DrawMark(const Mark& mark, double ratio, bool seeThrough, bool dark = false);

/// The file names of all marks.
[[nodiscard]] QStringList MarkNames();

/// Writes the marks that a directory lacks as bitmaps. A bitmap of ours says so in its header.
/// @return what could not be written
[[nodiscard]] QStringList WriteMarks(const QString& nativeDirectory);

/// Copies the bitmaps that a directory lacks from the folder that the program is delivered with.
/// @return what could not be copied; nothing where the folder itself is missing
[[nodiscard]] QStringList DeliverMarks(const QString& delivered, const QString& nativeDirectory);

/// Is a bitmap our own drawing? Then it may be drawn anew at any size; another's is shown as it is.
[[nodiscard]] bool IsOwnBitmap(const QString& nativeFile);

} // namespace vasclip::street::draw
