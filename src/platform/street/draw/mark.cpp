#include "platform/street/draw/mark.h"

#include "platform/street/draw/placed_text.h"

#include <QPainterPath>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

// All lengths in pixels of 1/96 inch.
constexpr double kText = 8.5 * 96 / 72;
constexpr double kHeight = 22; // of a caption's field
constexpr double kSide = 7;
constexpr double kTip = 13; // how far a tip stands out straight, and
constexpr double kSlant = 10; // how far in each direction when it stands out of a corner
constexpr double kRim = 1.5;

struct Type
{
    QString name;
    QString word;
    bool numbered;
};

const std::array<QString, 3> kColours{u"BLUE"_s, u"RED"_s, u"BLACK"_s};
constexpr std::array<QRgb, 3> kInks{0xff1c4fa8, 0xffbc1f2c, 0xff26272b};
constexpr std::array<QRgb, 3> kInksOnDark{0xff8fbcff, 0xffff9a92, 0xffe4e8ee}; // where the streets show through
// ALTCOMP before COMP, which it holds.
const std::array<Type, 5> kTypes{{{u"SUBJECT"_s, u"SUBJECT"_s, false},
                                  {u"ALTCOMP"_s, u"ALT"_s, true},
                                  {u"COMP"_s, u"COMP"_s, true},
                                  {u"RENTAL"_s, u"RENT"_s, true},
                                  {u"LISTING"_s, u"LIST"_s, true}}};

struct Direction
{
    QString code;
    int across;
    int down;
};

const std::array<Direction, 8> kDirections{{{u"LT"_s, -1, -1},
                                            {u"UP"_s, 0, -1},
                                            {u"RT"_s, 1, -1},
                                            {u"RI"_s, 1, 0},
                                            {u"RB"_s, 1, 1},
                                            {u"DN"_s, 0, 1},
                                            {u"LB"_s, -1, 1},
                                            {u"LF"_s, -1, 0}}};

struct Sign
{
    QString name; ///< as its file is written
    Mark::Kind kind;
};

const std::array<Sign, 6> kSigns{{{u"comp"_s, Mark::Kind::House},
                                  {u"reddoor"_s, Mark::Kind::RedDoor},
                                  {u"reddot"_s, Mark::Kind::RedDot},
                                  {u"pinred"_s, Mark::Kind::RedPin},
                                  {u"pingreen"_s, Mark::Kind::GreenPin},
                                  {u"streetarrow"_s, Mark::Kind::StreetArrow}}};

std::optional<Mark> ReadArrow(QString name)
{
    Mark mark;
    const auto cut = [&name](const QString& begin) {
        if (!name.startsWith(begin))
            return false;
        name.remove(0, begin.size());
        return true;
    };
    if (!cut(u"ARROW"_s))
        return std::nullopt;
    const auto colour = std::find_if(kColours.begin(), kColours.end(), cut);
    const auto direction = std::find_if(kDirections.begin(), kDirections.end(),
                                        [&name](const Direction& one) { return name.endsWith(one.code); });
    if (colour == kColours.end() || direction == kDirections.end())
        return std::nullopt;
    name.chop(2);
    mark.colour = static_cast<int>(colour - kColours.begin());
    mark.across = direction->across;
    mark.down = direction->down;
    if (name.isEmpty())
        return mark;
    const auto type = std::find_if(kTypes.begin(), kTypes.end(), [&cut](const Type& one) { return cut(one.name); });
    if (type == kTypes.end())
        return std::nullopt;
    mark.caption = type->word;
    if (name.isEmpty())
        return mark;
    if (!type->numbered || name.size() != 1 || name[0] < u'1' || name[0] > u'9')
        return std::nullopt;
    mark.caption += u' ' + name;
    return mark;
}

QSizeF FieldOf(const Mark& mark)
{
    const double width = mark.caption.isEmpty() ? 0 : Letters(mark.caption, Face::Bold).width * kText + 2 * kSide;
    return {std::ceil(std::max(width, kHeight)), kHeight};
}

QSizeF SizeOf(const Mark& mark)
{
    switch (mark.kind) {
    case Mark::Kind::Arrow: {
        const QSizeF field = FieldOf(mark);
        if (mark.across != 0 && mark.down != 0)
            return field + QSizeF(kSlant, kSlant);
        return field + (mark.across != 0 ? QSizeF(kTip, 0) : QSizeF(0, kTip));
    }
    case Mark::Kind::House:
    case Mark::Kind::RedDoor:
        return {26, 24};
    case Mark::Kind::RedDot:
        return {16, 16};
    case Mark::Kind::RedPin:
    case Mark::Kind::GreenPin:
        return {20, 28};
    case Mark::Kind::StreetArrow:
        return {22, 16};
    }
    return {};
}

/// The field of a caption with the tip that stands out of it.
QPainterPath ArrowOutline(const Mark& mark, const QRectF& all, const QRectF& field)
{
    QPainterPath outline;
    outline.addRoundedRect(field, 4, 4);
    const QPointF tip(mark.across < 0 ? all.left() : mark.across > 0 ? all.right() : all.center().x(),
                      mark.down < 0 ? all.top() : mark.down > 0 ? all.bottom() : all.center().y());
    QPolygonF wedge;
    if (mark.across != 0 && mark.down != 0) {
        const QPointF corner(mark.across < 0 ? field.left() : field.right(),
                             mark.down < 0 ? field.top() : field.bottom());
        wedge << tip << corner + QPointF(-mark.across * 13, -mark.down * 2.0)
              << corner + QPointF(-mark.across * 2.0, -mark.down * 13);
    } else {
        const QPointF root = mark.across != 0
                                 ? QPointF(mark.across < 0 ? field.left() + 1 : field.right() - 1, all.center().y())
                                 : QPointF(all.center().x(), mark.down < 0 ? field.top() + 1 : field.bottom() - 1);
        const QPointF half = mark.across != 0 ? QPointF(0, 7) : QPointF(7, 0);
        wedge << tip << root + half << root - half;
    }
    QPainterPath point;
    point.addPolygon(wedge);
    point.closeSubpath();
    return outline.united(point);
}

/// @param dark  counts where the streets show through
void PaintArrow(QPainter& painter, const Mark& mark, const QSizeF& size, bool seeThrough, bool dark)
{
    const QColor ink = QColor::fromRgb((seeThrough && dark ? kInksOnDark : kInks).at(static_cast<size_t>(mark.colour)));
    const int shade = dark ? 0 : 255;
    const QRectF all = QRectF(QPointF(0, 0), size).adjusted(kRim / 2, kRim / 2, -kRim / 2, -kRim / 2);
    const double stand = mark.across != 0 && mark.down != 0 ? kSlant : kTip;
    const QRectF field = all.adjusted(mark.across < 0 ? stand : 0, mark.down < 0 ? stand : 0,
                                      mark.across > 0 ? -stand : 0, mark.down > 0 ? -stand : 0);
    const QPainterPath outline = ArrowOutline(mark, all, field);
    // The rim is light so that a dark arrow stands out on a dark map as well.
    painter.fillPath(outline, seeThrough ? QColor(shade, shade, shade, 110) : ink);
    painter.strokePath(outline, QPen(seeThrough ? ink : QColor(Qt::white), kRim, Qt::SolidLine, Qt::RoundCap,
                                     Qt::MiterJoin));
    if (mark.caption.isEmpty()) {
        painter.setBrush(seeThrough ? ink : QColor(Qt::white));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(field.center(), 4, 4);
        return;
    }
    Write(painter, OnTheLevel(Letters(mark.caption, Face::Bold), kText, field.center()),
          seeThrough ? ink : QColor(Qt::white), seeThrough ? QColor(shade, shade, shade, 230) : QColor(0, 0, 0, 0));
}

void PaintHouse(QPainter& painter, bool redDoor)
{
    const QColor line(0x2b, 0x2f, 0x38);
    QPainterPath house(QPointF(13, 2));
    house.lineTo(24, 11.5);
    house.lineTo(21, 11.5);
    house.lineTo(21, 22);
    house.lineTo(5, 22);
    house.lineTo(5, 11.5);
    house.lineTo(2, 11.5);
    house.closeSubpath();
    painter.strokePath(house, QPen(QColor(255, 255, 255, 220), 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(house, redDoor ? QColor(0xff, 0xf3, 0xd0) : QColor(0xff, 0xff, 0xff));
    painter.strokePath(house, QPen(line, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillRect(QRectF(10.5, 14, 5, 8), redDoor ? QColor(0xc8, 0x1e, 0x2c) : QColor(0x6d, 0x73, 0x80));
}

void PaintPin(QPainter& painter, const QColor& colour)
{
    QPainterPath pin(QPointF(10, 27));
    pin.cubicTo(9, 19, 2, 17, 2, 10);
    pin.cubicTo(2, 5.5, 5.5, 2, 10, 2);
    pin.cubicTo(14.5, 2, 18, 5.5, 18, 10);
    pin.cubicTo(18, 17, 11, 19, 10, 27);
    painter.fillPath(pin, colour);
    painter.strokePath(pin, QPen(Qt::white, kRim));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(10, 10), 3, 3);
}

void PaintStreetArrow(QPainter& painter)
{
    QPainterPath arrow(QPointF(1.5, 8));
    arrow.lineTo(9, 1.5);
    arrow.lineTo(9, 5);
    arrow.lineTo(20.5, 5);
    arrow.lineTo(20.5, 11);
    arrow.lineTo(9, 11);
    arrow.lineTo(9, 14.5);
    arrow.closeSubpath();
    painter.fillPath(arrow, QColor(0x1d, 0x6b, 0x3c));
    painter.strokePath(arrow, QPen(Qt::white, 1.2));
}

/// A small anchor at the lower right, on a white field.
void PaintAnchor(QPainter& painter, const QSizeF& size)
{
    painter.save();
    painter.translate(size.width() - 11, size.height() - 11);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(0, 0, 11, 11));
    QPainterPath anchor(QPointF(5.5, 3.2));
    anchor.lineTo(5.5, 9.2);
    anchor.moveTo(2.3, 6.4);
    anchor.quadTo(2.7, 9.2, 5.5, 9.2);
    anchor.quadTo(8.3, 9.2, 8.7, 6.4);
    anchor.moveTo(3.9, 4.3);
    anchor.lineTo(7.1, 4.3);
    anchor.addEllipse(QPointF(5.5, 2.3), 0.9, 0.9);
    painter.strokePath(anchor, QPen(QColor(0x1c, 0x4f, 0xa8), 1.1));
    painter.restore();
}

} // namespace

std::optional<Mark> ReadMark(const QString& fileName)
{
    QString name = fileName.toUpper();
    if (!name.endsWith(u".BMP"_s))
        return std::nullopt;
    name.chop(4);
    if (name.startsWith(u"ARROW"_s))
        return ReadArrow(name);
    Mark mark;
    if (name.endsWith(u"ANCHOR"_s)) {
        mark.anchored = true;
        name.chop(6);
    }
    for (const Sign& sign : kSigns) {
        if (name == sign.name.toUpper()) {
            mark.kind = sign.kind;
            return mark;
        }
    }
    return std::nullopt;
}

QPointF HotSpot(const Mark& mark)
{
    switch (mark.kind) {
    case Mark::Kind::Arrow:
        return {(mark.across + 1) / 2.0, (mark.down + 1) / 2.0};
    case Mark::Kind::RedPin:
    case Mark::Kind::GreenPin:
        return {0.5, 1};
    case Mark::Kind::StreetArrow:
        return {0, 0.5};
    default:
        return {0.5, 0.5};
    }
}

QImage DrawMark(const Mark& mark, double ratio, bool seeThrough, bool dark)
{
    const QSizeF size = SizeOf(mark);
    QImage image((size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(image.width() / size.width(), image.height() / size.height());
    switch (mark.kind) {
    case Mark::Kind::Arrow:
        PaintArrow(painter, mark, size, seeThrough, dark);
        break;
    case Mark::Kind::House:
    case Mark::Kind::RedDoor:
        PaintHouse(painter, mark.kind == Mark::Kind::RedDoor);
        break;
    case Mark::Kind::RedDot:
        painter.setPen(QPen(Qt::white, kRim));
        painter.setBrush(QColor(0xe0, 0x1b, 0x24));
        painter.drawEllipse(QPointF(8, 8), 6.5, 6.5);
        break;
    case Mark::Kind::RedPin:
        PaintPin(painter, QColor(0xc8, 0x1e, 0x2c));
        break;
    case Mark::Kind::GreenPin:
        PaintPin(painter, QColor(0x1d, 0x7a, 0x3c));
        break;
    case Mark::Kind::StreetArrow:
        PaintStreetArrow(painter);
        break;
    }
    if (mark.anchored)
        PaintAnchor(painter, size);
    return image;
}

QStringList MarkNames()
{
    QStringList names;
    for (const QString& colour : kColours) {
        QStringList captions{QString()};
        for (const Type& type : kTypes) {
            captions << type.name;
            for (int number = 1; number <= 9 && type.numbered; ++number)
                captions << type.name + QString::number(number);
        }
        for (const QString& caption : std::as_const(captions)) {
            for (const Direction& direction : kDirections)
                names << u"ARROW"_s + colour + caption + direction.code + u".BMP"_s;
        }
    }
    for (const Sign& sign : kSigns)
        names << sign.name + u".bmp"_s << sign.name.toUpper() + u"Anchor.bmp"_s;
    return names;
}

} // namespace vasclip::street::draw
