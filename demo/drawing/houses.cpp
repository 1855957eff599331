#include "demo/drawing/houses.h"

#include <QLinearGradient>

namespace vasclip::demo {
namespace {

/// What a house is drawn with: its parts, and dice that depend on the house alone.
struct Site
{
    Scene& scene;
    Facade parts;
    Dice plan;
    const Look& look;
    double scale; ///< of widths

    [[nodiscard]] double Wide(double width) const { return width * scale; }
};

void Walk(Site& site, double x, double width, double top, double bottom)
{
    site.scene.paved.append({x - width / 2, x + width / 2});
    QPolygonF path;
    path << QPointF(x - width / 2, top) << QPointF(x + width / 2, top) << QPointF(x + width * 0.9, bottom)
         << QPointF(x - width * 0.7, bottom);
    site.scene.painter.setPen(QPen(QColor(120, 114, 106, 120), 2));
    site.scene.painter.setBrush(QColor(204, 198, 188));
    site.scene.painter.drawPolygon(path);
}

void Foot(Site& site, double left, double right)
{
    QLinearGradient soft(0, kGround - 6, 0, kGround + 30);
    soft.setColorAt(0, Faded(site.scene.air.shadow, 0.45));
    soft.setColorAt(1, Faded(site.scene.air.shadow, 0));
    const double shift = site.scene.SunLeft() ? 40 : -40;
    site.scene.painter.fillRect(QRectF(left + qMin(0.0, shift), kGround - 6, right - left + qAbs(shift), 36),
                                soft);
}

double GarageWidth(const Site& site)
{
    return site.look.garageCars == 0   ? 0
           : site.look.garageCars == 1 ? 190
           : site.look.garageCars == 2 ? 300
                                       : 420;
}

void GarageDoors(Site& site, double left, double width, double top)
{
    const int doors = site.look.garageCars == 3 ? 2 : 1;
    const double each = (width - 40 - (doors - 1) * 24) / doors;
    for (int i = 0; i < doors; ++i)
        site.parts.GarageDoor(QRectF(left + 20 + i * (each + 24), top, each, kGround - top));
}

Footprint Ranch(Site& site)
{
    const double garage = GarageWidth(site);
    const double main = site.Wide(620);
    const double left = 800 - (main + garage) / 2;
    const double right = left + main + garage;
    const double eaves = 618;
    const double ridge = 488;
    Facade& f = site.parts;
    if (garage > 0)
        DrawDrive(site.scene, right - garage + 14, right - 14, kGround, kPavementTop);
    const double door = left + main * 0.46;
    Walk(site, door + 42, 80, kGround, kPavementTop);
    Foot(site, left, right);
    if (site.look.fireplace)
        f.Chimney(left + main * 0.2, ridge - 56, eaves - 50);
    f.Slope(left - 30, right + 30, eaves, ridge, 120);
    f.Wall(QRectF(left, eaves + 10, main + garage, kGround - eaves - 10));
    const bool wing = site.plan.Chance(0.6);
    f.Window(QRectF(left + main * 0.69, 668, site.Wide(104), 92), 2, 2, true);
    if (garage > 0)
        GarageDoors(site, right - garage, garage, 676);
    f.Door(QRectF(door, 664, 84, kGround - 664 - 20), site.plan.Chance(0.5));
    f.Steps(door - 20, door + 120, kGround - 22, kGround);
    if (wing) {
        const double wide = main * 0.4;
        f.Wall(QRectF(left - 26, eaves + 4, wide, kGround - eaves - 4));
        f.GableWall(left - 26, left - 26 + wide, eaves + 6, eaves - 108);
        f.GableEdges(left - 26, left - 26 + wide, eaves + 6, eaves - 108, 26);
        if (site.plan.Chance(0.5))
            f.BayWindow(QRectF(left + wide * 0.2 - 26, 676, wide * 0.6, 96));
        else
            f.Window(QRectF(left + wide * 0.22 - 26, 668, wide * 0.56, 98), 3, 2, true);
    } else {
        f.Window(QRectF(left + main * 0.12, 668, main * 0.22, 98), 3, 2, true);
    }
    return {left - 30, right + 30, ridge};
}

Footprint TwoStorey(Site& site)
{
    const double garage = GarageWidth(site);
    const double main = site.Wide(520);
    const double left = 800 - (main + garage) / 2;
    const double right = left + main;
    const double eaves = 430;
    const double ridge = 306;
    Facade& f = site.parts;
    const double middle = left + main / 2;
    Walk(site, middle, 84, kGround, kPavementTop);
    if (garage > 0) {
        DrawDrive(site.scene, right + 14, right + garage - 10, kGround, kPavementTop);
        Foot(site, right, right + garage);
        f.Slope(right - 10, right + garage + 26, 636, 548, 60);
        f.Wall(QRectF(right, 644, garage, kGround - 644));
        GarageDoors(site, right, garage, 688);
    }
    Foot(site, left, right);
    if (site.look.fireplace)
        f.Chimney(left - 44, ridge - 30, kGround, 60);
    f.Slope(left - 30, right + 30, eaves, ridge, site.plan.Chance(0.5) ? 120 : 24);
    f.Wall(QRectF(left, eaves + 10, main, kGround - eaves - 10));
    const bool twoTone = site.plan.Chance(0.35);
    if (twoTone)
        f.Wall(QRectF(left, 640, main, kGround - 640), 18, QColor(160, 98, 78), Siding::Brick);
    const double w = site.Wide(78);
    for (int i = 0; i < 2; ++i) {
        const double x = i == 0 ? left + main * 0.2 : right - main * 0.2;
        f.Window(QRectF(x - w / 2, 486, w, 108), 2, 4, true);
        f.Window(QRectF(x - w / 2, 674, w, 112), 2, 4, true);
    }
    f.Window(QRectF(middle - w / 2, 486, w, 100), 2, 4, site.plan.Chance(0.4));
    f.Door(QRectF(middle - 42, 668, 84, kGround - 690), false);
    f.Steps(middle - 80, middle + 80, kGround - 24, kGround);
    if (site.plan.Chance(0.6)) {
        const double roof = 648;
        f.Porch(middle - 110, middle + 110, roof + 4, kGround - 24, kGround - 16, 2);
        f.GableWall(middle - 116, middle + 116, roof + 2, roof - 62);
        f.GableEdges(middle - 116, middle + 116, roof + 2, roof - 62, 18);
        f.Steps(middle - 80, middle + 80, kGround - 24, kGround);
    }
    return {left - 44, right + garage + 26, ridge};
}

Footprint CapeCod(Site& site)
{
    const double garage = qMin(GarageWidth(site), 300.0);
    const double main = site.Wide(600);
    const double left = 800 - (main + garage) / 2;
    const double right = left + main;
    const double eaves = 616;
    const double ridge = 392;
    Facade& f = site.parts;
    const double middle = left + main / 2;
    Walk(site, middle, 78, kGround, kPavementTop);
    if (garage > 0) {
        DrawDrive(site.scene, right + 14, right + garage - 10, kGround, kPavementTop);
        Foot(site, right, right + garage);
        f.Slope(right - 10, right + garage + 24, 660, 566, 40);
        f.Wall(QRectF(right, 668, garage, kGround - 668));
        GarageDoors(site, right, garage, 700);
    }
    Foot(site, left, right);
    f.Chimney(middle - 27, ridge - 62, ridge + 30);
    f.Slope(left - 28, right + 28, eaves, ridge, 34);
    const int dormers = site.plan.Between(2, 3);
    for (int i = 0; i < dormers; ++i)
        f.Dormer(left + main * (i + 0.5) / dormers - 62, eaves - 40, 124, 104);
    f.Wall(QRectF(left, eaves + 10, main, kGround - eaves - 10));
    const double w = site.Wide(80);
    for (const double share : {0.16, 0.34, 0.66, 0.84})
        f.Window(QRectF(left + main * share - w / 2 + (share < 0.5 ? -8 : 8), 668, w * 0.9, 106), 2, 4,
                 share < 0.2 || share > 0.8 || main > 560);
    f.Door(QRectF(middle - 42, 662, 84, kGround - 684));
    f.Steps(middle - 74, middle + 74, kGround - 24, kGround);
    return {left - 28, right + garage + 24, ridge};
}

Footprint SplitLevel(Site& site)
{
    const double low = site.Wide(440);
    const double high = site.Wide(430);
    const double left = 800 - (low + high) / 2;
    const double joint = left + low;
    const double right = joint + high;
    Facade& f = site.parts;
    const bool garage = site.look.garageCars > 0;
    if (garage)
        DrawDrive(site.scene, joint + 26, right - 26, kGround, kPavementTop);
    Walk(site, joint - 90, 78, kGround, kPavementTop);
    Foot(site, left, right);
    if (site.look.fireplace)
        f.Chimney(left + 60, 430, 560);
    f.Slope(left - 28, joint + 20, 606, 494, 70);
    f.Wall(QRectF(left, 616, low, kGround - 616), 40);
    f.Window(QRectF(left + low * 0.12, 660, low * 0.38, 96), 3, 1, true);
    f.Door(QRectF(joint - 132, 652, 82, kGround - 652 - 22));
    f.Steps(joint - 160, joint - 24, kGround - 24, kGround);
    f.Slope(joint - 26, right + 28, 476, 372, 74);
    f.Wall(QRectF(joint, 486, high, 176), 0);
    f.Wall(QRectF(joint, 656, high, kGround - 656), 14, Lighter(f.Colours().base, 0.25), Siding::Brick);
    f.Window(QRectF(joint + high * 0.14, 528, high * 0.24, 92), 2, 2, true);
    f.Window(QRectF(joint + high * 0.62, 528, high * 0.24, 92), 2, 2, true);
    if (garage)
        GarageDoors(site, joint + 30, high - 60, 690);
    else
        f.Window(QRectF(joint + high * 0.3, 700, high * 0.4, 78), 3, 1);
    return {left - 28, right + 28, 372};
}

Footprint Bungalow(Site& site)
{
    const double main = site.Wide(640);
    const double left = 800 - main / 2;
    const double right = left + main;
    Facade& f = site.parts;
    if (site.look.garageCars > 0) { // stands behind, at the end of the drive
        const double x = right + 60;
        DrawDrive(site.scene, x + 8, x + 200, kGround - 26, kPavementTop);
        f.Wall(QRectF(x, 660, 210, kGround - 26 - 660), 0);
        f.GableWall(x, x + 210, 662, 590);
        f.GableEdges(x, x + 210, 662, 590, 18);
        f.GarageDoor(QRectF(x + 34, 690, 142, kGround - 26 - 690));
    }
    const double middle = left + main * (site.plan.Chance(0.5) ? 0.36 : 0.5);
    Walk(site, middle, 96, kGround, kPavementTop);
    Foot(site, left, right);
    if (site.look.fireplace)
        f.Chimney(right - 60, 430, kGround - 160, 58);
    // the main roof looks at us, the porch has a gable of its own
    f.Wall(QRectF(left, 600, main, kGround - 600), 34);
    f.GableWall(left, right, 602, 410);
    f.Window(QRectF(800 - 80, 486, 160, 82), 3, 2);
    f.GableEdges(left, right, 602, 410, 46);
    f.Door(QRectF(middle - 44, 660, 88, kGround - 660 - 44));
    f.Window(QRectF(left + main * 0.08, 668, main * 0.14, 92), 1, 2);
    f.Window(QRectF(right - main * 0.34, 662, main * 0.24, 100), 3, 2);
    const double from = left - 10;
    const double to = middle + (middle - left) + 10;
    f.Slope(from - 30, qMin(to, right) + 30, 640, 574, 60);
    f.Porch(from, qMin(to, right), 650, kGround - 44, kGround - 4, 4);
    f.Steps(middle - 70, middle + 70, kGround - 46, kGround);
    return {left - 56, right + (site.look.garageCars > 0 ? 290 : 56), 400};
}

Footprint Farmhouse(Site& site)
{
    const double wing = site.Wide(400);
    const double tower = site.Wide(330);
    const double garage = site.look.garageCars > 1 ? 280 : 0;
    const double left = 800 - (wing + tower + garage) / 2;
    const double joint = left + tower;
    const double right = joint + wing;
    Facade& f = site.parts;
    if (garage > 0) {
        DrawDrive(site.scene, right + 14, right + garage - 12, kGround, kPavementTop);
        Foot(site, right, right + garage);
        f.Slope(right - 10, right + garage + 24, 640, 560, 40);
        f.Wall(QRectF(right, 648, garage, kGround - 648));
        GarageDoors(site, right, garage, 690);
    }
    const double door = joint + wing * 0.3;
    Walk(site, door, 84, kGround, kPavementTop);
    Foot(site, left, right);
    if (site.look.fireplace)
        f.Chimney(right - 110, 296, 420);
    f.Slope(joint - 60, right + 28, 440, 330, 30);
    f.Wall(QRectF(joint, 450, wing, kGround - 450), 26);
    f.Window(QRectF(joint + wing * 0.16, 494, wing * 0.2, 98), 2, 2);
    f.Window(QRectF(joint + wing * 0.6, 494, wing * 0.2, 98), 2, 2);
    f.Window(QRectF(joint + wing * 0.62, 686, wing * 0.22, 96), 2, 2);
    f.Door(QRectF(door - 42, 680, 84, kGround - 680 - 40));
    f.Slope(joint - 10, right + 26, 660, 604, 20);
    f.Porch(joint + 4, right + 4, 668, kGround - 40, kGround - 4, 5);
    f.Steps(door - 64, door + 64, kGround - 42, kGround);
    f.Wall(QRectF(left, 400, tower, kGround - 400), 26);
    f.GableWall(left, joint, 402, 236);
    f.GableEdges(left, joint, 402, 236, 26);
    f.Window(QRectF(left + tower * 0.38, 320, tower * 0.24, 64), 2, 2);
    f.Window(QRectF(left + tower * 0.2, 470, tower * 0.24, 112), 2, 2);
    f.Window(QRectF(left + tower * 0.56, 470, tower * 0.24, 112), 2, 2);
    f.Window(QRectF(left + tower * 0.2, 664, tower * 0.24, 116), 2, 2);
    f.Window(QRectF(left + tower * 0.56, 664, tower * 0.24, 116), 2, 2);
    return {left - 28, right + garage + 26, 236};
}

Footprint Townhouses(Site& site)
{
    const int units = site.plan.Between(3, 4);
    const double each = site.Wide(units == 3 ? 310 : 250);
    const double left = 800 - each * units / 2;
    Facade& f = site.parts;
    static const QList<QColor> doors{QColor(158, 38, 42), QColor(32, 98, 104), QColor(214, 158, 48),
                                     QColor(36, 52, 92)};
    Foot(site, left, left + each * units);
    f.Slope(left - 26, left + each * units + 26, 440, 340, 30);
    for (int i = 0; i < units; ++i) {
        const double x = left + each * i;
        const bool forward = i % 2 == 0;
        const QColor wall =
            Mix(f.Colours().wall, i % 2 == 0 ? QColor(190, 120, 96) : QColor(220, 216, 206), 0.5);
        DrawDrive(site.scene, x + each * 0.48, x + each * 0.94, kGround, kPavementTop);
        Walk(site, x + each * 0.22, 60, kGround, kPavementTop);
        f.Wall(QRectF(x, 450, each, kGround - 450), 16, wall, forward ? Siding::Brick : Siding::Lap);
        if (forward) {
            f.GableWall(x, x + each, 452, 340);
            f.GableEdges(x, x + each, 452, 340, 12);
        }
        f.Window(QRectF(x + each * 0.14, 500, each * 0.22, 98), 2, 2);
        f.Window(QRectF(x + each * 0.6, 500, each * 0.24, 98), 2, 2);
        f.GarageDoor(QRectF(x + each * 0.5, 690, each * 0.42, kGround - 690));
        f.Door(QRectF(x + each * 0.1, 678, each * 0.25, kGround - 678 - 16));
        f.Steps(x + each * 0.06, x + each * 0.4, kGround - 18, kGround);
        f.Slope(x + each * 0.03, x + each * 0.97, 656, 632, 12);
    }
    return {left - 30, left + each * units + 30, 340};
}

Footprint CondoBlock(Site& site)
{
    const int bays = site.plan.Between(4, 5);
    const double each = site.Wide(220);
    const double width = each * bays;
    const double left = 800 - width / 2;
    Facade& f = site.parts;
    Foot(site, left, left + width);
    Walk(site, 800, 120, kGround, kPavementTop);
    const bool flat = site.plan.Chance(0.5);
    if (!flat)
        f.Slope(left - 26, left + width + 26, 326, 246, 110);
    f.Wall(QRectF(left, 326, width, kGround - 326), 24);
    if (flat)
        f.Eaves(left - 14, left + width + 14, 318);
    for (int floor = 0; floor < 3; ++floor) {
        const double top = 350 + floor * 156;
        for (int bay = 0; bay < bays; ++bay) {
            const double x = left + each * bay;
            const bool entry = floor == 2 && bay == bays / 2;
            if (entry) {
                f.Door(QRectF(x + each * 0.2, top + 26, each * 0.3, kGround - top - 30));
                f.Door(QRectF(x + each * 0.54, top + 26, each * 0.3, kGround - top - 30));
                f.Slope(x + each * 0.02, x + each * 0.98, top + 8, top - 22, 24);
            } else if (bay % 2 == (bays / 2 + 1) % 2) {
                f.Balcony(QRectF(x + each * 0.1, top, each * 0.8, 126));
            } else {
                f.Window(QRectF(x + each * 0.24, top + 18, each * 0.52, 92), 2, 1);
            }
        }
        if (floor < 2)
            f.Eaves(left, left + width, top + 138);
    }
    return {left - 30, left + width + 30, 250};
}

Footprint Duplex(Site& site)
{
    const double each = site.Wide(430);
    const double left = 800 - each;
    const double right = 800 + each;
    Facade& f = site.parts;
    const bool garages = site.look.garageCars > 0;
    for (int side = 0; side < 2; ++side) {
        const double sign = side == 0 ? -1 : 1;
        if (garages)
            DrawDrive(site.scene, 800 + sign * each * 0.76 - 84, 800 + sign * each * 0.76 + 84, kGround,
                      kPavementTop);
        Walk(site, 800 + sign * each * 0.2, 66, kGround, kPavementTop);
    }
    Foot(site, left, right);
    f.Slope(left - 28, right + 28, 600, 478, 90);
    f.Wall(QRectF(left, 610, each * 2, kGround - 610));
    for (int side = 0; side < 2; ++side) {
        const double sign = side == 0 ? -1 : 1;
        const double bay = 800 + sign * each * 0.76;
        f.Wall(QRectF(bay - each * 0.25, 604, each * 0.5, kGround - 604));
        f.GableWall(bay - each * 0.25, bay + each * 0.25, 606, 506);
        f.GableEdges(bay - each * 0.25, bay + each * 0.25, 606, 506, 20);
        if (garages)
            f.GarageDoor(QRectF(bay - 84, 690, 168, kGround - 690));
        else
            f.Window(QRectF(bay - 66, 670, 132, 100), 3, 2, true);
        f.Door(QRectF(800 + sign * each * 0.2 - 40, 672, 80, kGround - 672 - 20));
        f.Window(QRectF(800 + sign * each * 0.4 - 28, 680, 56, 90), 1, 2);
        f.Steps(800 + sign * each * 0.2 - 60, 800 + sign * each * 0.2 + 60, kGround - 22, kGround);
    }
    return {left - 30, right + 30, 478};
}

Footprint Fourplex(Site& site)
{
    const double width = site.Wide(860);
    const double left = 800 - width / 2;
    const double right = left + width;
    Facade& f = site.parts;
    Walk(site, 800, 100, kGround, kPavementTop);
    Foot(site, left, right);
    f.Slope(left - 28, right + 28, 420, 316, site.plan.Chance(0.5) ? 130 : 30);
    f.Wall(QRectF(left, 430, width, kGround - 430));
    for (int floor = 0; floor < 2; ++floor) {
        const double top = 470 + floor * 190;
        for (const double share : {0.1, 0.3, 0.7, 0.9}) {
            const bool outer = share < 0.2 || share > 0.8;
            const double x = left + width * share;
            if (floor == 0 && !outer)
                f.Balcony(QRectF(x - 74, top - 8, 148, 128));
            else
                f.Window(QRectF(x - 48, top, 96, 104), 2, 2, outer);
        }
    }
    // the common stair
    f.Wall(QRectF(800 - 96, 424, 192, kGround - 424), 18, Darker(f.Colours().wall, 0.16), Siding::Board);
    f.GableWall(800 - 96, 800 + 96, 426, 344);
    f.GableEdges(800 - 96, 800 + 96, 426, 344, 18);
    f.Window(QRectF(800 - 34, 478, 68, 104), 2, 3);
    f.Door(QRectF(800 - 74, 680, 68, kGround - 698));
    f.Door(QRectF(800 + 8, 680, 68, kGround - 698));
    f.Slope(800 - 120, 800 + 120, 664, 632, 16);
    f.Steps(800 - 100, 800 + 100, kGround - 20, kGround);
    return {left - 30, right + 30, 316};
}

Footprint MobileHome(Site& site)
{
    const double width = site.Wide(940);
    const double left = 800 - width / 2;
    const double right = left + width;
    Facade& f = site.parts;
    DrawDrive(site.scene, right - 240, right - 60, kGround, kPavementTop);
    Foot(site, left, right);
    f.Slope(left - 16, right + 16, 628, 572, 14);
    f.Wall(QRectF(left, 638, width, 150), 0);
    const QRectF band(left, 700, width, 34);
    site.scene.painter.fillRect(band, Faded(f.Colours().shutter, 0.55));
    f.Wall(QRectF(left + 6, 784, width - 12, kGround - 784), 0, Darker(f.Colours().wall, 0.3), Siding::Board);
    for (const double share : {0.1, 0.26, 0.62, 0.86})
        f.Window(QRectF(left + width * share - 46, 662, 92, 74), 2, 1, site.look.sizeStep > 0);
    const double door = left + width * 0.44;
    f.Door(QRectF(door - 38, 654, 76, 132));
    f.Deck(door - 130, door + 120, 790, kGround);
    f.Steps(door - 46, door + 46, 790, kGround + 6);
    if (site.plan.Chance(0.6)) { // a carport
        site.scene.painter.fillRect(QRectF(right - 210, 640, 230, 150), Faded(site.scene.air.shadow, 0.3));
        f.Eaves(right - 240, right + 40, 628);
        site.scene.painter.fillRect(QRectF(right + 22, 640, 12, kGround - 640), QColor(232, 230, 224));
        site.scene.painter.fillRect(QRectF(right - 232, 640, 12, kGround - 640), QColor(232, 230, 224));
    }
    return {left - 20, right + 60, 572};
}

Footprint EmptyLot(Site& site)
{
    QPainter& p = site.scene.painter;
    Dice& dice = site.scene.dice;
    const QColor weed = site.scene.season == Season::Winter ? QColor(176, 164, 140) : QColor(166, 168, 92);
    for (int i = 0; i < 520; ++i) {
        const double depth = dice.Real();
        const double y = kGround - 150 + depth * 320;
        const double x = dice.Real(20, 1580);
        const double tall = 12 + depth * 40;
        p.setPen(QPen(Mix(weed, QColor(96, 120, 60), dice.Real()), 1.4 + depth * 1.6));
        for (int blade = -1; blade < 2; ++blade)
            p.drawLine(QPointF(x, y), QPointF(x + blade * tall * 0.4, y - tall * dice.Real(0.6, 1)));
    }
    // corner stakes with ribbons, and a sign
    for (const double x : {220.0, 1390.0}) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(206, 178, 132));
        p.drawRect(QRectF(x, 792, 12, 110));
        p.setBrush(QColor(240, 90, 150));
        p.drawRect(QRectF(x - 6, 796, 40, 12));
    }
    const double x = 620 + site.plan.Real(0, 360);
    DrawGroundShadow(site.scene, x + 60, 930, 160);
    p.setPen(QPen(QColor(230, 228, 222), 12));
    p.drawLine(QPointF(x, 930), QPointF(x, 690));
    p.drawLine(QPointF(x - 6, 704), QPointF(x + 150, 704));
    p.setPen(QPen(QColor(80, 84, 92), 2));
    const QColor board = site.plan.Chance(0.5) ? QColor(28, 84, 142) : QColor(176, 40, 46);
    p.setBrush(board);
    p.drawRect(QRectF(x + 20, 722, 118, 84));
    p.fillRect(QRectF(x + 28, 732, 102, 22), QColor(248, 246, 240));
    p.fillRect(QRectF(x + 36, 766, 86, 8), QColor(248, 246, 240, 200));
    p.fillRect(QRectF(x + 44, 782, 70, 8), QColor(248, 246, 240, 160));
    return {260, 1340, 600};
}

} // namespace

Footprint DrawHouse(Scene& scene, const Look& look)
{
    Site site{scene, Facade(scene, PaletteOf(look)), Dice(look.seed ^ 0x51a7u), look,
              0.9 + 0.1 * look.sizeStep};
    switch (look.design) {
    case Design::Ranch:
        return Ranch(site);
    case Design::TwoStorey:
        return TwoStorey(site);
    case Design::CapeCod:
        return CapeCod(site);
    case Design::SplitLevel:
        return SplitLevel(site);
    case Design::Bungalow:
        return Bungalow(site);
    case Design::Farmhouse:
        return Farmhouse(site);
    case Design::Townhouses:
        return Townhouses(site);
    case Design::CondoBlock:
        return CondoBlock(site);
    case Design::Duplex:
        return Duplex(site);
    case Design::Fourplex:
        return Fourplex(site);
    case Design::MobileHome:
        return MobileHome(site);
    case Design::EmptyLot:
        return EmptyLot(site);
    }
    return {};
}

Footprint DrawHouseRear(Scene& scene, const Look& look)
{
    Site site{scene, Facade(scene, PaletteOf(look)), Dice(look.seed ^ 0x3c55u), look,
              0.9 + 0.1 * look.sizeStep};
    Facade& f = site.parts;
    const bool tall = look.design == Design::TwoStorey || look.design == Design::Farmhouse ||
                      look.design == Design::Townhouses || look.design == Design::CondoBlock ||
                      look.design == Design::Fourplex;
    const double width = site.Wide(tall ? 660 : 780);
    const double left = 800 - width / 2;
    const double right = left + width;
    const double eaves = tall ? 436 : 616;
    const double ridge = eaves - (look.design == Design::CapeCod ? 210 : 122);
    Foot(site, left, right);
    if (look.fireplace)
        f.Chimney(right - 150, ridge - 40, eaves);
    f.Slope(left - 28, right + 28, eaves, ridge, 60);
    f.Wall(QRectF(left, eaves + 10, width, kGround - eaves - 10), 26);
    if (tall)
        for (const double share : {0.14, 0.38, 0.62, 0.86})
            f.Window(QRectF(left + width * share - 40, 490, 80, 100), 2, 2);
    f.Window(QRectF(left + width * 0.1, 676, width * 0.16, 92), 2, 2);
    f.Window(QRectF(left + width * 0.78, 672, width * 0.13, 80), 2, 1);
    f.SlidingDoor(QRectF(left + width * 0.4, 656, width * 0.26, kGround - 656 - 40));
    f.Deck(left + width * 0.28, left + width * 0.74, kGround - 38, kGround);
    f.Steps(left + width * 0.46, left + width * 0.58, kGround - 44, kGround + 8);
    return {left - 30, right + 30, ridge};
}

} // namespace vasclip::demo
