#include "map/picture_names.h"

#include "common/paths.h"
#include "platform/text/text.h"

#include <array>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Direction
{
    QLatin1StringView suffix;
    qint32 hotSpot;
};
constexpr std::array<Direction, kDirections> kTurns = {{{"LT.BMP"_L1, 3072},
                                                        {"UP.BMP"_L1, 2048},
                                                        {"RT.BMP"_L1, 2304},
                                                        {"RI.BMP"_L1, 256},
                                                        {"RB.BMP"_L1, 768},
                                                        {"DN.BMP"_L1, 512},
                                                        {"LB.BMP"_L1, 1536},
                                                        {"LF.BMP"_L1, 1024}}};
constexpr auto kArrow = "ARROW"_L1;
constexpr auto kAnchor = "ANCHOR"_L1;
constexpr auto kBitmap = ".BMP"_L1;

int DirectionOf(const QString& name)
{
    for (int i = 0; i < kDirections; ++i)
        if (name.endsWith(kTurns[static_cast<std::size_t>(i)].suffix))
            return i + 1;
    return 0;
}

/// Replaces the name behind a path's directory.
QString WithName(const QString& path, const QString& name)
{
    return path.left(path.lastIndexOf(u'\\') + 1) + name;
}

} // namespace

QString BitmapName(const QString& picture)
{
    return picture.mid(picture.lastIndexOf(u'\\') + 1);
}

PictureName ParsePicture(const QString& picture)
{
    const QString name = text::Folded(BitmapName(picture));
    PictureName parts;
    parts.arrow = name.startsWith(kArrow);
    // "REDDOOR.BMP" is a house, whose name only happens to hold a colour.
    for (const auto colour : {"RED"_L1, "BLUE"_L1, "BLACK"_L1}) {
        if (parts.arrow && name.contains(colour)) {
            parts.colour = colour;
            break;
        }
    }
    for (const auto type : {"SUBJECT"_L1, "ALTCOMP"_L1, "COMP"_L1, "RENTAL"_L1, "LISTING"_L1}) {
        const qsizetype at = name.indexOf(type);
        if (at < 0)
            continue;
        parts.type = type;
        qsizetype end = at + type.size();
        while (end < name.size() && name[end].isDigit())
            ++end;
        parts.number = name.mid(at + type.size(), end - at - type.size()).toInt();
        break;
    }
    parts.direction = DirectionOf(name);
    return parts;
}

QString ArrowName(const PictureName& name)
{
    return kArrow + name.colour + (name.number >= 0 ? name.type : QString()) +
           (name.number > 0 ? text::Dec(name.number) : QString()) + DirectionSuffix(name.direction);
}

QString DirectionSuffix(int direction)
{
    return direction < 1 || direction > kDirections ? QString()
                                                    : QString(kTurns[static_cast<std::size_t>(direction - 1)].suffix);
}

qint32 HotSpot(int direction)
{
    const int known = direction < 1 || direction > kDirections ? 1 : direction;
    return kTurns[static_cast<std::size_t>(known - 1)].hotSpot;
}

QString AnchoredForm(const QString& picture)
{
    const QString name = BitmapName(picture).toUpper();
    const qsizetype end = name.indexOf(kBitmap);
    if (name.startsWith(kArrow) || name.contains(kAnchor) || end < 0)
        return picture;
    return WithName(picture, name.left(end) + u"Anchor.bmp"_s);
}

QString FreeForm(const QString& picture)
{
    const QString name = BitmapName(picture).toUpper();
    const qsizetype at = name.indexOf(kAnchor);
    return name.startsWith(kArrow) || at < 0 ? picture : WithName(picture, name.left(at) + u".bmp"_s);
}

QString BitmapPath(const QString& directory, const QString& picture)
{
    return picture.isEmpty() || picture.contains(u'\\') ? picture : common::CkRSlash(directory) + picture;
}

QString ColourWord(int arrowColor)
{
    return arrowColor == 1 ? u"RED"_s : arrowColor == 2 ? u"BLACK"_s : u"BLUE"_s;
}

} // namespace vasclip::map
