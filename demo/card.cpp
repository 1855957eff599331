#include "demo/card.h"

#include "demo/dice.h"
#include "demo/drawing/house_picture.h"

#include <QDataStream>
#include <QIODevice>
#include <QTransform>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

constexpr int kHouses = 20;
constexpr int kOfAHouse = kCardPictures / kHouses;
constexpr int kWidth = 800;
constexpr int kHeight = 600;

enum Tag : quint16 { Make = 0x10f, Orientation = 0x112, Compression = 0x103, ThumbAt = 0x201, ThumbLength = 0x202 };
enum Type : quint16 { Ascii = 2, Short = 3, Long = 4 };

void Entry(QDataStream& out, Tag tag, Type type, quint32 count, quint32 value)
{
    out << quint16(tag) << quint16(type) << count << value; // little-endian: a short stands first in its four
}

/// "Exif\0\0" and a TIFF structure: the maker and the orientation, then the small picture.
QByteArray Exif(int orientation, const QByteArray& thumbnail)
{
    const QByteArray make("Demo Camera\0", 12);
    constexpr quint32 kFirst = 8;
    constexpr quint32 kSecond = kFirst + 2 + 2 * 12 + 4;
    constexpr quint32 kMakeAt = kSecond + 2 + 3 * 12 + 4;
    const quint32 thumbAt = kMakeAt + static_cast<quint32>(make.size());
    QByteArray bytes("Exif\0\0", 6);
    QDataStream out(&bytes, QIODevice::Append);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("II", 2);
    out << quint16(42) << kFirst;
    out << quint16(2);
    Entry(out, Make, Ascii, static_cast<quint32>(make.size()), kMakeAt);
    Entry(out, Orientation, Short, 1, static_cast<quint32>(orientation));
    out << kSecond;
    out << quint16(3);
    Entry(out, Compression, Short, 1, 6);
    Entry(out, ThumbAt, Long, 1, thumbAt);
    Entry(out, ThumbLength, Long, 1, static_cast<quint32>(thumbnail.size()));
    out << quint32(0);
    out.writeRawData(make.constData(), static_cast<int>(make.size()));
    out.writeRawData(thumbnail.constData(), static_cast<int>(thumbnail.size()));
    return bytes;
}

/// As the camera held it.
QImage Stored(const QImage& upright, int orientation)
{
    const int degrees = orientation == 3 ? 180 : orientation == 6 ? -90 : orientation == 8 ? 90 : 0;
    return degrees == 0 ? upright : upright.transformed(QTransform().rotate(degrees));
}

Look HouseOf(int house, Dice& dice)
{
    Look look;
    look.seed = dice.Next();
    look.day = dice.Next();
    look.design = static_cast<Design>(house % (static_cast<int>(Design::EmptyLot) + 1));
    look.season = dice.Chance(0.3) ? Season::Autumn : Season::Summer;
    look.light = dice.Pick(QList<Daylight>{Daylight::Morning, Daylight::Noon, Daylight::Overcast});
    look.garageCars = dice.Between(1, 3);
    look.sizeStep = dice.Below(3);
    look.fireplace = dice.Chance(0.5);
    return look;
}

/// One step of the walk: a part of what was drawn, broad or high.
QImage Seen(const QImage& drawn, bool high, Dice& dice)
{
    const int percent = dice.Between(62, 100);
    QSize part = drawn.size() * percent / 100;
    if (high)
        part.setWidth(part.height() * kHeight / kWidth);
    const QPoint corner(dice.Below(drawn.width() - part.width() + 1), dice.Below(drawn.height() - part.height() + 1));
    return drawn.copy(QRect(corner, part))
        .scaled(high ? QSize(kHeight, kWidth) : QSize(kWidth, kHeight), Qt::IgnoreAspectRatio,
                Qt::SmoothTransformation);
}

} // namespace

QByteArray CameraJpeg(const QImage& upright, int orientation)
{
    const QImage stored = Stored(upright, orientation);
    const QImage small = stored.scaled(160, 120, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const QByteArray exif = Exif(orientation, AsJpeg(small, 70));
    QByteArray jpeg = AsJpeg(stored, 78);
    QByteArray segment("\xff\xe1", 2);
    const auto length = static_cast<quint16>(exif.size() + 2);
    segment.append(static_cast<char>(length >> 8)).append(static_cast<char>(length & 0xff));
    return jpeg.insert(2, segment + exif);
}

void MakeCard(const files::Disk& disk, const QString& directory, const std::function<void(int done)>& progress)
{
    Dice dice(2024);
    int number = 0;
    for (int house = 0; house < kHouses; ++house) {
        const Look look = HouseOf(house, dice);
        const QImage drawn = house % 3 == 1 ? DrawRearView(look) : house % 3 == 2 ? DrawStreetScene(look) : DrawFrontView(look);
        for (int i = 0; i < kOfAHouse; ++i) {
            // Held upright, on its right side, on its left side, and once upside down.
            const int orientation = i == 3 || i == 7 ? 6 : i == 5 ? 8 : i == 9 && house % 4 == 0 ? 3 : 1;
            const bool high = orientation == 6 || orientation == 8;
            const QByteArray bytes = CameraJpeg(Seen(drawn, high, dice), orientation);
            disk.WriteWhole(directory + u"DSCN%1.JPG"_s.arg(1001 + number), bytes);
            progress(++number);
        }
    }
}

} // namespace vasclip::demo
