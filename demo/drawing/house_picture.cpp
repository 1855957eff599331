#include "demo/drawing/house_picture.h"

#include "demo/drawing/houses.h"

#include <QBuffer>
#include <QImageWriter>

#include <algorithm>
#include <array>
#include <cmath>

namespace vasclip::demo {
namespace {

constexpr double kHorizon = 640;

/// Grain, warmth and darker corners: what a lens and a sensor add. One pass over the pixels.
void Develop(QImage& picture, const Air& air, quint32 seed)
{
    const auto curve = [&air](double gain) {
        std::array<quint8, 256> table{};
        for (int i = 0; i < 256; ++i) {
            const double x = i / 255.0;
            const double contrast = x + 0.10 * (x - 0.5) * (1 - std::fabs(2 * x - 1)) * 2;
            table[static_cast<size_t>(i)] =
                static_cast<quint8>(std::clamp(contrast * gain * air.brightness * 255, 0.0, 255.0));
        }
        return table;
    };
    const auto red = curve(1 + 0.07 * air.warmth);
    const auto green = curve(1 + 0.01 * air.warmth);
    const auto blue = curve(1 - 0.11 * air.warmth);

    const int width = picture.width();
    const int height = picture.height();
    QList<int> across(width);
    for (int x = 0; x < width; ++x) {
        const double off = (x - width / 2.0) / (width / 2.0);
        across[x] = static_cast<int>(26 * off * off);
    }
    quint32 state = seed * 2654435761u + 1;
    for (int y = 0; y < height; ++y) {
        const double off = (y - height / 2.0) / (height / 2.0);
        const int down = static_cast<int>(24 * off * off);
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) {
            state = state * 1664525u + 1013904223u;
            const int grain = static_cast<int>((state >> 28) + ((state >> 24) & 15u)) / 3 - 5;
            const int keep = 256 - across[x] - down;
            const QRgb pixel = line[x];
            const int r = red[static_cast<size_t>(qRed(pixel))] * keep / 256 + grain;
            const int g = green[static_cast<size_t>(qGreen(pixel))] * keep / 256 + grain;
            const int b = blue[static_cast<size_t>(qBlue(pixel))] * keep / 256 + grain;
            line[x] = qRgb(std::clamp(r, 0, 255), std::clamp(g, 0, 255), std::clamp(b, 0, 255));
        }
    }
}

/// Plants and things that stand before a house.
void Dress(Scene& scene, const Footprint& house, const Look& look)
{
    Dice& dice = scene.dice;
    Dice garden(look.seed ^ 0x77f1u);
    if (look.design == Design::EmptyLot)
        return;
    for (double x = house.left + 40; x < house.right - 30; x += garden.Real(60, 130)) {
        const bool keepsClear = garden.Chance(0.42);
        if (keepsClear)
            continue;
        const double size = garden.Real(60, 104);
        if (!scene.Paved(x - size / 2, x + size / 2))
            DrawShrub(scene, x, kGround + 8, size);
    }
    const double bed = garden.Real(90, 190);
    if (garden.Chance(0.6) && !scene.Paved(house.left + 36, house.left + 36 + bed))
        DrawFlowers(scene, house.left + 36, house.left + 36 + bed, kGround + 22);
    if (garden.Chance(0.3))
        DrawFence(scene, -40, house.left - 30, kGround + 6, 90, QColor(240, 238, 232));
    if (garden.Chance(0.45)) {
        const double x = garden.Chance(0.5) ? dice.Real(90, 240) : dice.Real(1330, 1500);
        const QColor metal = garden.Chance(0.5) ? QColor(60, 66, 76) : QColor(208, 206, 200);
        DrawMailbox(scene, x, kPavementTop - 4, metal);
    }
}

Look DayAsLook(const Look& look, quint32 salt)
{
    Look other = look;
    other.day = look.day ^ salt;
    return other;
}

template <class Draw>
QImage Shoot(const Look& look, double tilt, double zoom, Draw&& draw)
{
    QImage picture(kPictureWidth, kPictureHeight, QImage::Format_RGB32);
    const Air air = AirOf(look);
    picture.fill(air.skyLow);
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.translate(kPictureWidth / 2.0, kPictureHeight / 2.0);
        painter.rotate(tilt);
        painter.scale(zoom, zoom);
        painter.translate(-kPictureWidth / 2.0, -kPictureHeight / 2.0);
        Scene scene{painter, Dice(look.day ^ 0x9e37u), air, look.season};
        draw(scene);
    }
    Develop(picture, air, look.day);
    return picture;
}

} // namespace

QImage DrawFrontView(const Look& look)
{
    Dice camera(look.day ^ 0xc0ffeeu);
    const double tilt = camera.Real(-0.7, 0.7);
    const double zoom = camera.Real(1.03, 1.16);
    return Shoot(look, tilt, zoom, [&look](Scene& scene) {
        Dice garden(look.seed ^ 0x1111u);
        DrawSky(scene, kHorizon);
        DrawHills(scene, kHorizon);
        DrawLawn(scene, kHorizon + 6, kPavementTop + 40);
        // trees behind the house stand where the house stands, whatever the day
        for (int i = garden.Between(2, 4); i > 0; --i) {
            const double x = garden.Real(60, 1540);
            const double height = garden.Real(330, 560);
            if (garden.Chance(0.35))
                DrawConifer(scene, {x, kGround - garden.Real(40, 110), height});
            else
                DrawTree(scene, {x, kGround - garden.Real(40, 110), height});
        }
        DrawStreetFront(scene, kPavementTop);
        const bool flipped = look.design != Design::EmptyLot && garden.Chance(0.5);
        if (flipped) {
            scene.painter.translate(kPictureWidth, 0);
            scene.painter.scale(-1, 1);
            scene.air.sunX = 1 - scene.air.sunX;
        }
        const Footprint house = DrawHouse(scene, look);
        Dress(scene, house, look);
        const bool leftRoom = house.left > 150;
        if (leftRoom && garden.Chance(0.75))
            DrawTree(scene, {garden.Real(20, house.left - 90), kGround + garden.Real(30, 110),
                             garden.Real(430, 640)});
        if (house.right < 1440 && garden.Chance(0.55))
            DrawConifer(scene, {garden.Real(house.right + 80, 1570), kGround + garden.Real(0, 60),
                                garden.Real(300, 520)});
        if (look.design == Design::EmptyLot)
            DrawTree(scene, {garden.Chance(0.5) ? 120.0 : 1470.0, kGround + 40, garden.Real(480, 640)});
    });
}

QImage DrawRearView(const Look& look)
{
    const Look day = DayAsLook(look, 0x0badu);
    Dice camera(day.day ^ 0xc0ffeeu);
    const double tilt = camera.Real(-0.7, 0.7);
    return Shoot(day, tilt, camera.Real(1.03, 1.1), [&day](Scene& scene) {
        Dice garden(day.seed ^ 0x2222u);
        DrawSky(scene, kHorizon);
        DrawHills(scene, kHorizon);
        DrawLawn(scene, kHorizon + 6, kPictureHeight + 60);
        for (int i = garden.Between(1, 3); i > 0; --i)
            DrawTree(scene, {garden.Real(60, 1540), kGround - garden.Real(50, 110), garden.Real(340, 540)});
        if (day.design == Design::EmptyLot) {
            DrawHouse(scene, day);
            return;
        }
        const QColor fence = garden.Chance(0.5) ? QColor(176, 134, 96) : QColor(238, 236, 230);
        DrawFence(scene, -60, 1660, kGround - 30, 150, fence);
        const Footprint house = DrawHouseRear(scene, day);
        for (double x = house.left + 30; x < house.right; x += garden.Real(150, 300))
            DrawShrub(scene, x, kGround + 6, garden.Real(54, 90));
        const double bed = garden.Real(200, 420);
        DrawFlowers(scene, 140, 140 + bed, kGround + garden.Real(120, 220));
        if (garden.Chance(0.5)) { // a garden shed
            Facade shed(scene, PaletteOf(day));
            const double x = house.left > 300 ? 60 : 1300;
            shed.Wall(QRectF(x, 760, 190, 130), 0, QColor(168, 120, 84), Siding::Board);
            shed.GableWall(x, x + 190, 762, 690);
            shed.GableEdges(x, x + 190, 762, 690, 16);
            shed.Door(QRectF(x + 58, 782, 74, 108));
        }
        DrawTree(scene, {garden.Chance(0.5) ? garden.Real(-20, 90) : garden.Real(1510, 1620), kGround + 120,
                         garden.Real(620, 780)});
    });
}

QImage DrawRoomView(const Look& look, Room room)
{
    const Look day = DayAsLook(look, 0x4004u + static_cast<quint32>(room));
    Dice camera(day.day ^ 0xc0ffeeu);
    const double tilt = camera.Real(-0.7, 0.7);
    return Shoot(day, tilt, camera.Real(1.02, 1.08), [&](Scene& scene) { DrawRoom(scene, day, room); });
}

QImage DrawStreetScene(const Look& look)
{
    const Look day = DayAsLook(look, 0x57e7u);
    Dice camera(day.day ^ 0xc0ffeeu);
    const double tilt = camera.Real(-0.8, 0.8);
    return Shoot(day, tilt, camera.Real(1.03, 1.1), [&day](Scene& scene) {
        QPainter& p = scene.painter;
        Dice street(day.seed ^ 0x3333u);
        const double horizon = 600;
        DrawSky(scene, horizon);
        DrawHills(scene, horizon);
        DrawLawn(scene, horizon + 4, kPictureHeight + 60);
        const double vanish = 800 + street.Real(-90, 90);
        const auto strip = [&](double left, double right, const QColor& colour) {
            p.setPen(Qt::NoPen);
            p.setBrush(colour);
            p.drawPolygon(QPolygonF{QPointF(vanish - 2, horizon + 4), QPointF(vanish + 2, horizon + 4),
                                    QPointF(vanish + right, 1290), QPointF(vanish + left, 1290)});
        };
        const bool snow = scene.season == Season::Winter;
        strip(-1150, -960, snow ? QColor(214, 218, 226) : QColor(196, 192, 184));
        strip(960, 1150, snow ? QColor(214, 218, 226) : QColor(196, 192, 184));
        strip(-800, 800, QColor(206, 204, 198));
        strip(-770, 770, QColor(98, 99, 104));
        for (int i = 0; i < 9; ++i) { // the middle line
            const double near = std::pow(0.72, i);
            const double far = near * 0.86;
            const double top = horizon + 4 + (1290 - horizon) * far;
            const double bottom = horizon + 4 + (1290 - horizon) * near;
            p.setBrush(QColor(236, 206, 96));
            p.drawPolygon(QPolygonF{QPointF(vanish - 9 * far, top), QPointF(vanish + 9 * far, top),
                                    QPointF(vanish + 9 * near, bottom), QPointF(vanish - 9 * near, bottom)});
        }
        // houses and trees, far ones first
        static const QList<Design> homes{Design::Ranch,    Design::TwoStorey, Design::CapeCod,
                                         Design::Bungalow, Design::Farmhouse, Design::SplitLevel};
        for (int row = 5; row >= 0; --row) {
            const double depth = std::pow(0.62, row);
            for (int side = 0; side < 2; ++side) {
                const double sign = side == 0 ? -1 : 1;
                const double ground = horizon + (1290 - horizon) * depth * 0.6;
                const double middle = vanish + sign * 1270 * depth;
                const double scale = depth * 1.3;
                Look neighbour = day;
                neighbour.seed = street.Next();
                neighbour.design = street.Pick(homes);
                neighbour.sizeStep = 0;
                neighbour.garageCars = 1;
                p.save();
                p.translate(middle, ground);
                p.scale(scale * 0.74, scale);
                p.translate(-800, -kGround);
                DrawHouse(scene, neighbour);
                p.restore();
                const double x = vanish + sign * (street.Real(860, 930)) * depth;
                if (street.Chance(0.3))
                    DrawConifer(scene, {x, ground + 60 * depth, street.Real(560, 700) * depth});
                else
                    DrawTree(scene, {x, ground + 60 * depth, street.Real(600, 820) * depth});
            }
            const double pole = vanish + 905 * depth;
            const double foot = horizon + (1290 - horizon) * depth * 0.7;
            p.setPen(QPen(QColor(96, 78, 62), 15 * depth));
            p.drawLine(QPointF(pole, foot), QPointF(pole, foot - 760 * depth));
            p.drawLine(QPointF(pole - 70 * depth, foot - 700 * depth),
                       QPointF(pole + 70 * depth, foot - 700 * depth));
        }
    });
}

QByteArray AsJpeg(const QImage& picture, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(quality);
    if (!writer.write(picture))
        return {};
    return bytes;
}

} // namespace vasclip::demo
