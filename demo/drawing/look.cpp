#include "demo/drawing/look.h"

#include "demo/dice.h"

#include <algorithm>

namespace vasclip::demo {

QColor Mix(const QColor& a, const QColor& b, double share)
{
    const auto between = [share](int from, int to) {
        return std::clamp(static_cast<int>(from + (to - from) * share + 0.5), 0, 255);
    };
    return QColor(between(a.red(), b.red()), between(a.green(), b.green()), between(a.blue(), b.blue()),
                  between(a.alpha(), b.alpha()));
}

QColor Lighter(const QColor& colour, double share)
{
    return Mix(colour, QColor(255, 255, 250, colour.alpha()), share);
}

QColor Darker(const QColor& colour, double share)
{
    return Mix(colour, QColor(18, 20, 34, colour.alpha()), share);
}

QColor Faded(QColor colour, double opacity)
{
    colour.setAlpha(std::clamp(static_cast<int>(opacity * 255 + 0.5), 0, 255));
    return colour;
}

Palette PaletteOf(const Look& look)
{
    Dice dice(look.seed);
    static const QList<QColor> walls{
        QColor(238, 234, 222), QColor(226, 215, 190), QColor(176, 190, 166), QColor(142, 163, 178),
        QColor(158, 68, 56),   QColor(236, 214, 150), QColor(186, 172, 154), QColor(172, 178, 180),
        QColor(112, 148, 150), QColor(84, 102, 124),  QColor(206, 158, 124), QColor(222, 224, 226),
        QColor(132, 142, 108), QColor(205, 190, 205), QColor(120, 128, 132), QColor(232, 200, 170)};
    static const QList<QColor> bricks{QColor(156, 84, 66), QColor(172, 106, 82), QColor(138, 76, 66),
                                      QColor(190, 146, 118), QColor(150, 110, 98)};
    static const QList<QColor> stuccos{QColor(236, 224, 200), QColor(228, 196, 160), QColor(240, 234, 224),
                                       QColor(214, 186, 156), QColor(224, 208, 196)};
    static const QList<QColor> roofs{QColor(66, 66, 70), QColor(92, 76, 66),  QColor(84, 92, 104),
                                     QColor(76, 92, 80), QColor(128, 80, 62), QColor(112, 104, 98),
                                     QColor(56, 58, 70), QColor(104, 60, 56)};
    static const QList<QColor> doors{QColor(158, 38, 42), QColor(32, 98, 104), QColor(214, 158, 48),
                                     QColor(36, 52, 92),  QColor(40, 78, 54),  QColor(98, 48, 82),
                                     QColor(136, 84, 48), QColor(28, 28, 32),  QColor(196, 92, 58)};
    Palette colours;
    static const QList<Siding> sidings{Siding::Lap,   Siding::Lap,    Siding::Lap,    Siding::Board,
                                       Siding::Brick, Siding::Stucco, Siding::Shingle};
    colours.siding = look.design == Design::MobileHome ? Siding::Lap : dice.Pick(sidings);
    colours.wall = dice.Pick(colours.siding == Siding::Brick    ? bricks
                             : colours.siding == Siding::Stucco ? stuccos
                                                                : walls);
    colours.roof = dice.Pick(roofs);
    colours.door = dice.Pick(doors);
    const bool darkWall = colours.wall.lightness() < 120;
    colours.trim = darkWall || dice.Chance(0.75) ? QColor(246, 244, 238) : QColor(92, 74, 62);
    colours.shutter = dice.Chance(0.5) ? colours.door : Darker(colours.roof, 0.15);
    colours.base = dice.Chance(0.5) ? QColor(148, 142, 136) : QColor(150, 92, 74);
    return colours;
}

Air AirOf(const Look& look)
{
    Dice dice(look.day);
    Air air;
    air.sunX = dice.Chance(0.5) ? dice.Real(0.05, 0.3) : dice.Real(0.7, 0.95);
    air.sunHeight = dice.Real(0.06, 0.2);
    air.cloudiness = dice.Real(0.1, 0.8);
    switch (look.light) {
    case Daylight::Morning:
        air.skyTop = QColor(104, 158, 214);
        air.skyLow = QColor(250, 226, 204);
        air.haze = QColor(222, 214, 216);
        air.sun = QColor(255, 240, 208);
        air.warmth = 0.25;
        air.sunHeight = dice.Real(0.22, 0.32);
        break;
    case Daylight::Noon:
        air.skyTop = Mix(QColor(58, 122, 204), QColor(76, 148, 214), dice.Real());
        air.skyLow = QColor(196, 224, 244);
        air.haze = QColor(190, 208, 224);
        air.sun = QColor(255, 252, 236);
        air.sunVisible = dice.Chance(0.4);
        break;
    case Daylight::Evening:
        air.skyTop = Mix(QColor(88, 104, 168), QColor(74, 120, 176), dice.Real());
        air.skyLow = Mix(QColor(255, 196, 132), QColor(252, 178, 150), dice.Real());
        air.haze = QColor(214, 176, 168);
        air.sun = QColor(255, 222, 150);
        air.warmth = 0.7;
        air.sunHeight = dice.Real(0.3, 0.4);
        air.brightness = 0.97;
        break;
    case Daylight::Overcast:
        air.skyTop = QColor(158, 170, 184);
        air.skyLow = QColor(220, 226, 230);
        air.haze = QColor(200, 206, 212);
        air.sun = QColor(240, 240, 240);
        air.sunVisible = false;
        air.cloudiness = 1;
        air.warmth = -0.15;
        air.brightness = 0.96;
        break;
    }
    if (look.season == Season::Winter) {
        air.skyTop = Mix(air.skyTop, QColor(150, 178, 210), 0.4);
        air.warmth -= 0.15;
    }
    air.shadow = look.light == Daylight::Evening ? QColor(46, 34, 66) : QColor(26, 34, 58);
    return air;
}

} // namespace vasclip::demo
