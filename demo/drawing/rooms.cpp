#include "demo/drawing/rooms.h"

#include "demo/drawing/houses.h"

namespace vasclip::demo {
namespace {

/// The wall opposite the door; the others run from its corners to the picture's.
constexpr QRectF kBack(330, 250, 940, 560);
constexpr double kFloor = 810;

void Fill(Scene& scene, const QPolygonF& shape, const QColor& colour)
{
    scene.painter.setPen(Qt::NoPen);
    scene.painter.setBrush(colour);
    scene.painter.drawPolygon(shape);
}

/// A block with a lit top, a darker front and a thin edge.
void Block(Scene& scene, const QRectF& front, double depth, const QColor& colour)
{
    Fill(scene,
         {QPointF(front.left(), front.top()), QPointF(front.right(), front.top()),
          QPointF(front.right() - depth, front.top() - depth * 0.5), QPointF(front.left() + depth, front.top() - depth * 0.5)},
         Lighter(colour, 0.25));
    scene.painter.setPen(QPen(Darker(colour, 0.3), 2));
    scene.painter.setBrush(colour);
    scene.painter.drawRect(front);
}

struct Surfaces
{
    QColor wall, floor, ceiling;
    int boards; ///< lines that run away from us
    int rows;   ///< lines across; 0 for none
};

void Shell(Scene& scene, const Surfaces& is)
{
    const double right = kPictureWidth + 80;
    const double bottom = kPictureHeight + 80;
    Fill(scene, {QPointF(-80, -80), QPointF(right, -80), kBack.topRight(), kBack.topLeft()}, is.ceiling);
    Fill(scene, {QPointF(-80, bottom), QPointF(right, bottom), kBack.bottomRight(), kBack.bottomLeft()}, is.floor);
    Fill(scene, {QPointF(-80, -80), kBack.topLeft(), kBack.bottomLeft(), QPointF(-80, bottom)}, Darker(is.wall, 0.12));
    Fill(scene, {QPointF(right, -80), kBack.topRight(), kBack.bottomRight(), QPointF(right, bottom)},
         Darker(is.wall, scene.SunLeft() ? 0.02 : 0.2));
    scene.painter.fillRect(kBack, is.wall);
    QPainter& p = scene.painter;
    p.setPen(QPen(Darker(is.floor, 0.16), 2));
    for (int i = 1; i < is.boards; ++i) {
        const double part = static_cast<double>(i) / is.boards;
        p.drawLine(QPointF(kBack.left() + part * kBack.width(), kFloor), QPointF(-80 + part * (right + 80), bottom));
    }
    for (int i = 1; i <= is.rows; ++i) {
        const double near = static_cast<double>(i) * i / (is.rows * is.rows);
        const double y = kFloor + near * (bottom - kFloor);
        p.drawLine(QPointF(kBack.left() - near * (kBack.left() + 80), y),
                   QPointF(kBack.right() + near * (right - kBack.right()), y));
    }
    p.setPen(QPen(QColor(246, 245, 240), 12)); // the skirting
    p.drawLine(kBack.bottomLeft(), kBack.bottomRight());
}

void WindowOut(Scene& scene, const QRectF& frame)
{
    QPainter& p = scene.painter;
    QLinearGradient sky(frame.topLeft(), frame.bottomLeft());
    sky.setColorAt(0, scene.air.skyTop);
    sky.setColorAt(0.6, Lighter(scene.air.skyLow, 0.3));
    sky.setColorAt(0.62, QColor(120, 158, 96));
    sky.setColorAt(1, QColor(94, 140, 78));
    p.fillRect(frame, sky);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(250, 249, 246), 14));
    p.drawRect(frame);
    p.setPen(QPen(QColor(250, 249, 246), 7));
    p.drawLine(QPointF(frame.center().x(), frame.top()), QPointF(frame.center().x(), frame.bottom()));
    p.drawLine(QPointF(frame.left(), frame.center().y()), QPointF(frame.right(), frame.center().y()));
    // the light that falls through it
    const double slant = scene.SunLeft() ? 220 : -220;
    Fill(scene,
         {QPointF(frame.left() + slant * 0.5, kFloor + 60), QPointF(frame.right() + slant * 0.5, kFloor + 60),
          QPointF(frame.right() + slant, kFloor + 250), QPointF(frame.left() + slant, kFloor + 250)},
         Faded(QColor(255, 250, 226), 0.22));
}

void Row(Scene& scene, const QRectF& front, int doors, const QColor& colour)
{
    const double width = front.width() / doors;
    for (int i = 0; i < doors; ++i) {
        const QRectF door(front.left() + i * width, front.top(), width, front.height());
        scene.painter.setPen(QPen(Darker(colour, 0.25), 2));
        scene.painter.setBrush(colour);
        scene.painter.drawRect(door);
        scene.painter.setPen(QPen(Darker(colour, 0.15), 2));
        scene.painter.drawRect(door.adjusted(14, 14, -14, -14));
        scene.painter.fillRect(QRectF(door.right() - 26, door.center().y() - 18, 6, 36), QColor(120, 122, 126));
    }
}

void Kitchen(Scene& scene, const Palette& palette)
{
    const QColor front = Mix(palette.trim, QColor(226, 220, 206), 0.4);
    Shell(scene, {Lighter(palette.wall, 0.55), QColor(182, 142, 100), QColor(248, 247, 243), 18, 0});
    WindowOut(scene, QRectF(690, 330, 240, 210));
    Row(scene, QRectF(340, 300, 330, 200), 3, front);
    Row(scene, QRectF(950, 300, 310, 200), 3, front);
    Row(scene, QRectF(340, 630, 760, 190), 6, front);
    Block(scene, QRectF(332, 606, 776, 26), 30, QColor(84, 86, 92));
    Block(scene, QRectF(1110, 420, 156, 402), 0, QColor(206, 209, 212)); // the refrigerator
    scene.painter.fillRect(QRectF(1122, 520, 8, 120), QColor(130, 134, 140));
    Block(scene, QRectF(540, 640, 170, 176), 0, QColor(60, 62, 66)); // the range
    scene.painter.fillRect(QRectF(560, 680, 130, 96), QColor(28, 30, 34));
    Block(scene, QRectF(420, 930, 760, 190), 80, Mix(front, QColor(70, 96, 112), 0.6)); // the island
    Block(scene, QRectF(396, 900, 808, 34), 96, QColor(222, 218, 208));
}

void LivingRoom(Scene& scene, const Palette& palette)
{
    const QColor sofa = Mix(palette.shutter, QColor(120, 132, 146), 0.5);
    Shell(scene, {Lighter(palette.wall, 0.65), QColor(164, 118, 80), QColor(250, 249, 246), 22, 0});
    WindowOut(scene, QRectF(400, 340, 300, 270));
    Block(scene, QRectF(860, 470, 300, 350), 0, QColor(188, 178, 166)); // the fireplace
    scene.painter.fillRect(QRectF(920, 600, 180, 220), QColor(40, 34, 32));
    Block(scene, QRectF(836, 446, 348, 30), 14, QColor(246, 244, 238));
    scene.painter.fillRect(QRectF(930, 290, 160, 120), Mix(palette.door, QColor(240, 236, 224), 0.5));
    Fill(scene, {QPointF(470, 880), QPointF(1120, 880), QPointF(1240, 1090), QPointF(350, 1090)},
         Mix(palette.door, QColor(214, 204, 188), 0.7));
    Block(scene, QRectF(340, 690, 460, 110), 0, sofa);
    Block(scene, QRectF(320, 780, 500, 110), 24, Darker(sofa, 0.1));
    Block(scene, QRectF(300, 730, 70, 160), 10, Darker(sofa, 0.05));
    Block(scene, QRectF(770, 730, 70, 160), 10, Darker(sofa, 0.05));
    Block(scene, QRectF(640, 960, 320, 50), 60, QColor(120, 84, 54));
}

void MainBath(Scene& scene, const Palette& palette)
{
    Shell(scene, {Mix(palette.wall, QColor(226, 238, 240), 0.75), QColor(206, 210, 212), QColor(250, 250, 250), 14, 8});
    WindowOut(scene, QRectF(1010, 330, 180, 180));
    Row(scene, QRectF(380, 650, 460, 170), 4, QColor(236, 234, 228));
    Block(scene, QRectF(368, 622, 484, 30), 26, QColor(248, 248, 246));
    scene.painter.fillRect(QRectF(420, 340, 380, 220), QColor(198, 214, 220)); // the mirror
    scene.painter.setPen(QPen(QColor(150, 156, 160), 8));
    scene.painter.setBrush(Qt::NoBrush);
    scene.painter.drawRect(QRectF(420, 340, 380, 220));
    Block(scene, QRectF(900, 690, 380, 190), 60, QColor(250, 250, 248)); // the tub
    Block(scene, QRectF(640, 920, 300, 60), 50, Mix(palette.door, QColor(200, 206, 210), 0.7));
}

void Basement(Scene& scene, const Palette& palette)
{
    Shell(scene, {QColor(186, 184, 178), QColor(150, 150, 148), QColor(168, 148, 122), 0, 0});
    for (int i = 0; i <= 8; ++i) { // the joists, towards us as the ceiling's edges run
        const double share = i / 8.0;
        const double far = kBack.left() + share * (kBack.width() - 24);
        const double near = -80 + share * (kPictureWidth + 110);
        Fill(scene, {QPointF(far, kBack.top()), QPointF(far + 24, kBack.top()), QPointF(near + 50, -80), QPointF(near, -80)},
             QColor(132, 104, 76));
    }
    WindowOut(scene, QRectF(720, 280, 190, 80));
    Block(scene, QRectF(400, 480, 170, 340), 0, QColor(214, 216, 218)); // the furnace
    Block(scene, QRectF(430, 330, 60, 150), 0, QColor(176, 180, 184));
    Block(scene, QRectF(620, 560, 120, 260), 0, Mix(palette.base, QColor(232, 232, 228), 0.8)); // the water heater
    Block(scene, QRectF(1000, 660, 140, 160), 10, QColor(244, 244, 244));
    Block(scene, QRectF(1150, 660, 140, 160), 10, QColor(238, 238, 240));
}

void GarageInterior(Scene& scene, const Palette& palette)
{
    Shell(scene, {QColor(222, 220, 214), QColor(170, 170, 168), QColor(236, 235, 230), 0, 3});
    Row(scene, QRectF(440, 360, 720, 450), 4, Lighter(palette.door, 0.55));
    for (const QRectF& box : {QRectF(352, 610, 78, 70), QRectF(340, 680, 96, 140), QRectF(250, 800, 130, 110)})
        Block(scene, box, 10, QColor(178, 142, 100));
    Block(scene, QRectF(1290, 640, 260, 40), 30, QColor(150, 112, 76)); // the bench
    Block(scene, QRectF(1310, 680, 30, 230), 0, QColor(120, 88, 60));
    Block(scene, QRectF(1500, 680, 30, 260), 0, QColor(120, 88, 60));
    Fill(scene, {QPointF(760, 960), QPointF(900, 950), QPointF(930, 990), QPointF(770, 1004)},
         Faded(QColor(70, 70, 72), 0.25)); // where the car drips
}

void Deck(Scene& scene)
{
    DrawSky(scene, 620);
    DrawHills(scene, 620);
    DrawLawn(scene, 626, kPictureHeight);
    DrawTree(scene, {250, 800, 520});
    DrawConifer(scene, {1320, 780, 460});
    DrawTree(scene, {1080, 720, 300});
    DrawFence(scene, -60, 1660, 800, 110, QColor(176, 134, 96));
    QPainter& p = scene.painter;
    const QColor wood(186, 150, 112);
    Fill(scene, {QPointF(-80, 1000), QPointF(1680, 1000), QPointF(1680, 1290), QPointF(-80, 1290)}, wood);
    p.setPen(QPen(Darker(wood, 0.25), 3));
    for (int i = -12; i <= 12; ++i)
        p.drawLine(QPointF(800 + i * 74, 1000), QPointF(800 + i * 150, 1290));
    for (double x = -40; x < 1660; x += 44)
        p.fillRect(QRectF(x, 830, 12, 176), QColor(244, 243, 238));
    p.fillRect(QRectF(-80, 812, 1760, 24), QColor(250, 249, 245));
    p.fillRect(QRectF(-80, 984, 1760, 20), QColor(238, 237, 231));
}

} // namespace

void DrawRoom(Scene& scene, const Look& look, Room room)
{
    const Palette palette = PaletteOf(look);
    switch (room) {
    case Room::Kitchen:
        return Kitchen(scene, palette);
    case Room::LivingRoom:
        return LivingRoom(scene, palette);
    case Room::MainBath:
        return MainBath(scene, palette);
    case Room::Basement:
        return Basement(scene, palette);
    case Room::GarageInterior:
        return GarageInterior(scene, palette);
    case Room::Deck:
        return Deck(scene);
    }
}

} // namespace vasclip::demo
