#include "demo/drawing/scenery.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace vasclip::demo {
namespace {

/// A round white cloud puff, drawn once and scaled.
const QImage& Puff()
{
    static const QImage puff = [] {
        QImage image(192, 192, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QRadialGradient glow(96, 96, 96);
        glow.setColorAt(0, QColor(255, 255, 255, 150));
        glow.setColorAt(0.5, QColor(255, 255, 255, 84));
        glow.setColorAt(1, QColor(255, 255, 255, 0));
        painter.setPen(Qt::NoPen);
        painter.setBrush(glow);
        painter.drawEllipse(0, 0, 192, 192);
        return image;
    }();
    return puff;
}

void DrawCloud(Scene& scene, const QPointF& at, double width)
{
    const int puffs = scene.dice.Between(9, 16);
    for (int i = 0; i < puffs; ++i) {
        const double along = scene.dice.Real(-0.5, 0.5);
        const double lift = (0.25 - along * along) * width * 0.5;
        const double size = width * scene.dice.Real(0.22, 0.42) * (1.1 - std::fabs(along));
        const QRectF place(at.x() + along * width - size / 2, at.y() - scene.dice.Real() * lift - size * 0.36,
                           size, size * 0.72);
        scene.painter.drawImage(place, Puff());
    }
}

QColor GrassColour(const Scene& scene)
{
    switch (scene.season) {
    case Season::Spring:
        return QColor(122, 170, 72);
    case Season::Summer:
        return QColor(98, 146, 62);
    case Season::Autumn:
        return QColor(136, 146, 72);
    case Season::Winter:
        return QColor(232, 238, 246);
    }
    return {};
}

/// The base colour of a tree's leaves.
QColor LeafColour(Scene& scene)
{
    static const QList<QColor> spring{QColor(136, 176, 78), QColor(118, 166, 84), QColor(238, 186, 200),
                                      QColor(246, 222, 228)};
    static const QList<QColor> summer{QColor(66, 116, 54), QColor(84, 132, 58), QColor(58, 104, 64),
                                      QColor(100, 138, 66)};
    static const QList<QColor> autumn{QColor(204, 112, 42), QColor(216, 158, 52), QColor(170, 62, 44),
                                      QColor(188, 140, 60), QColor(120, 128, 58)};
    switch (scene.season) {
    case Season::Spring:
        return scene.dice.Pick(spring);
    case Season::Summer:
        return scene.dice.Pick(summer);
    case Season::Autumn:
        return scene.dice.Pick(autumn);
    case Season::Winter:
        return QColor(112, 100, 92);
    }
    return {};
}

void DrawBranches(Scene& scene, QPointF from, double angle, double length, double thickness, int depth,
                  const QColor& colour)
{
    const QPointF to(from.x() + std::cos(angle) * length, from.y() - std::sin(angle) * length);
    scene.painter.setPen(QPen(colour, thickness, Qt::SolidLine, Qt::RoundCap));
    scene.painter.drawLine(from, to);
    if (depth == 0)
        return;
    const int forks = depth > 2 ? 3 : 2;
    for (int i = 0; i < forks; ++i) {
        const double turn = (i - (forks - 1) / 2.0) * 0.62 + scene.dice.Real(-0.22, 0.22);
        DrawBranches(scene, to, angle + turn, length * scene.dice.Real(0.62, 0.82), thickness * 0.62,
                     depth - 1, colour);
    }
}

} // namespace

bool Scene::Paved(double left, double right) const
{
    for (const auto& [from, to] : paved)
        if (left < to && from < right)
            return true;
    return false;
}

void DrawSky(Scene& scene, double horizon)
{
    QPainter& p = scene.painter;
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, scene.air.skyTop);
    sky.setColorAt(0.65, Mix(scene.air.skyTop, scene.air.skyLow, 0.6));
    sky.setColorAt(1, scene.air.skyLow);
    p.fillRect(QRectF(-80, -80, kPictureWidth + 160, horizon + 120), sky);

    if (scene.air.sunVisible) {
        const QPointF sun(scene.air.sunX * kPictureWidth, scene.air.sunHeight * kPictureHeight);
        QRadialGradient glow(sun, 420);
        glow.setColorAt(0, Faded(scene.air.sun, 0.95));
        glow.setColorAt(0.09, Faded(scene.air.sun, 0.9));
        glow.setColorAt(0.13, Faded(scene.air.sun, 0.42));
        glow.setColorAt(1, Faded(scene.air.sun, 0));
        p.fillRect(QRectF(sun.x() - 420, sun.y() - 420, 840, 840), glow);
    }
    p.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const int clouds = static_cast<int>(scene.air.cloudiness * 7);
    for (int i = 0; i < clouds; ++i) {
        p.setOpacity(scene.dice.Real(0.45, 0.95));
        const QPointF at{scene.dice.Real(0, kPictureWidth), scene.dice.Real(50, horizon - 170)};
        DrawCloud(scene, at, scene.dice.Real(240, 560));
    }
    p.setOpacity(1);
}

void DrawHills(Scene& scene, double horizon)
{
    QPainter& p = scene.painter;
    const QColor green = scene.season == Season::Winter   ? QColor(150, 164, 180)
                         : scene.season == Season::Autumn ? QColor(140, 124, 76)
                                                          : QColor(84, 122, 84);
    p.setPen(Qt::NoPen);
    for (int layer = 0; layer < 3; ++layer) {
        const double top = horizon - 150 + layer * 46;
        const double a = scene.dice.Real(0, 6.28);
        const double b = scene.dice.Real(0, 6.28);
        const double c = scene.dice.Real(0, 6.28);
        const double swing = 62 - layer * 15;
        QPolygonF hill;
        hill << QPointF(-80, horizon + 60);
        for (int x = -80; x <= kPictureWidth + 80; x += 20) {
            const double y = top + std::sin(x / 310.0 + a) * swing + std::sin(x / 127.0 + b) * swing * 0.35 +
                             std::sin(x / 41.0 + c) * 5;
            hill << QPointF(x, y);
        }
        hill << QPointF(kPictureWidth + 80, horizon + 60);
        QLinearGradient fill(0, top - swing, 0, horizon);
        const QColor body = Mix(scene.air.haze, green, 0.25 + layer * 0.24);
        fill.setColorAt(0, body);
        fill.setColorAt(1, Mix(body, scene.air.haze, 0.35));
        p.setBrush(fill);
        p.drawPolygon(hill);
    }
    // the far line of trees
    p.setBrush(Qt::NoBrush);
    for (double x = -40; x < kPictureWidth + 40; x += scene.dice.Real(16, 38)) {
        const double height = scene.dice.Real(22, 74);
        const QColor tone = Mix(scene.air.haze, Darker(green, scene.dice.Real(0.1, 0.4)), 0.72);
        p.setPen(Qt::NoPen);
        p.setBrush(tone);
        if (scene.dice.Chance(0.4)) {
            QPolygonF fir;
            fir << QPointF(x - height * 0.24, horizon + 14) << QPointF(x, horizon - height * 1.2)
                << QPointF(x + height * 0.24, horizon + 14);
            p.drawPolygon(fir);
        } else {
            p.drawEllipse(QPointF(x, horizon - height * 0.35), height * 0.52, height * 0.6);
        }
    }
}

void DrawLawn(Scene& scene, double top, double bottom)
{
    QPainter& p = scene.painter;
    const QColor grass = GrassColour(scene);
    const bool snow = scene.season == Season::Winter;
    QLinearGradient fill(0, top, 0, bottom);
    fill.setColorAt(0, Mix(grass, scene.air.haze, 0.22));
    fill.setColorAt(0.35, grass);
    fill.setColorAt(1, snow ? Mix(grass, QColor(196, 210, 230), 0.5) : Darker(grass, 0.16));
    p.fillRect(QRectF(-80, top, kPictureWidth + 160, bottom - top), fill);

    p.setPen(Qt::NoPen);
    if (!snow && scene.dice.Chance(0.6)) {
        const double vanish = kPictureWidth / 2.0 + scene.dice.Real(-300, 300);
        p.setBrush(Faded(Lighter(grass, 0.4), 0.16));
        for (int i = -14; i < 15; i += 2) {
            QPolygonF stripe;
            stripe << QPointF(vanish + i * 62, top) << QPointF(vanish + (i + 1) * 62, top)
                   << QPointF(vanish + (i + 1) * 128, bottom) << QPointF(vanish + i * 128, bottom);
            p.drawPolygon(stripe);
        }
    }
    // uneven ground: long soft patches, then blades
    for (int i = 0; i < 26; ++i) {
        const double y = scene.dice.Real(top + 8, bottom);
        const double depth = (y - top) / (bottom - top);
        p.setBrush(Faded(scene.dice.Chance(0.5) ? Darker(grass, 0.5) : Lighter(grass, 0.5), 0.07));
        const QPointF middle(scene.dice.Real(0, kPictureWidth), y);
        p.drawEllipse(middle, scene.dice.Real(60, 260), 5 + depth * 24);
    }
    p.setRenderHint(QPainter::Antialiasing, false);
    const QColor blades[4] = {Faded(Darker(grass, 0.35), 0.5), Faded(Lighter(grass, 0.35), 0.5),
                              Faded(Mix(grass, QColor(200, 190, 90), 0.4), 0.5),
                              Faded(Darker(grass, 0.2), 0.6)};
    QVector<QLineF> strokes;
    for (const QColor& blade : blades) {
        strokes.clear();
        for (int i = 0; i < (snow ? 90 : 620); ++i) {
            const double depth = std::sqrt(scene.dice.Real());
            const double y = top + depth * (bottom - top);
            const double x = scene.dice.Real(-20, kPictureWidth + 20);
            strokes << QLineF(x, y, x + scene.dice.Real(-4, 4) * depth, y - 2 - depth * 9);
        }
        p.setPen(QPen(snow ? Faded(QColor(176, 190, 214), 0.5) : blade, 1));
        p.drawLines(strokes);
    }
    if (scene.season == Season::Autumn) {
        static const QList<QColor> fallen{QColor(206, 120, 40), QColor(224, 170, 60), QColor(168, 70, 40)};
        for (int i = 0; i < 420; ++i) {
            const double depth = scene.dice.Real();
            const double y = top + depth * (bottom - top);
            const QColor colour = scene.dice.Pick(fallen);
            p.fillRect(QRectF(scene.dice.Real(0, kPictureWidth), y, 2 + depth * 5, 2 + depth * 3), colour);
        }
    }
    p.setRenderHint(QPainter::Antialiasing, true);
}

void DrawStreetFront(Scene& scene, double top)
{
    QPainter& p = scene.painter;
    const bool snow = scene.season == Season::Winter;
    const QColor walk = snow ? QColor(208, 212, 220) : QColor(190, 186, 178);
    p.fillRect(QRectF(-80, top, kPictureWidth + 160, 34), walk);
    p.setPen(QPen(Faded(QColor(90, 88, 86), 0.5), 2));
    for (int x = -60; x < kPictureWidth + 60; x += 128)
        p.drawLine(QPointF(x + (x - 800) * 0.00, top), QPointF(x + (x - 800) * 0.06, top + 34));
    const QColor strip = Darker(GrassColour(scene), 0.12);
    p.fillRect(QRectF(-80, top + 34, kPictureWidth + 160, 20), strip);
    p.fillRect(QRectF(-80, top + 54, kPictureWidth + 160, 14), Lighter(walk, 0.2));
    p.fillRect(QRectF(-80, top + 68, kPictureWidth + 160, 5), Darker(walk, 0.5));
    QLinearGradient tar(0, top + 72, 0, kPictureHeight);
    tar.setColorAt(0, QColor(86, 87, 92));
    tar.setColorAt(1, QColor(112, 112, 116));
    p.fillRect(QRectF(-80, top + 72, kPictureWidth + 160, kPictureHeight - top + 20), tar);
    p.setRenderHint(QPainter::Antialiasing, false);
    for (int i = 0; i < 380; ++i) {
        const int light = scene.dice.Between(70, 150);
        p.fillRect(QRectF{scene.dice.Real(0, kPictureWidth), scene.dice.Real(top + 76, kPictureHeight), 4, 2},
                   QColor(light, light, light + 4, 120));
    }
    p.setRenderHint(QPainter::Antialiasing, true);
    if (scene.dice.Chance(0.5)) { // a mended crack
        QPainterPath crack(QPointF(scene.dice.Real(0, 700), top + 90));
        for (int i = 0; i < 5; ++i)
            crack.lineTo(crack.currentPosition() +
                         QPointF{scene.dice.Real(60, 200), scene.dice.Real(-8, 20)});
        p.setPen(QPen(QColor(58, 58, 62), 4));
        p.setBrush(Qt::NoBrush);
        p.drawPath(crack);
    }
}

void DrawDrive(Scene& scene, double left, double right, double top, double bottom)
{
    QPainter& p = scene.painter;
    const double spread = (right - left) * 0.16;
    scene.paved.append({left - spread, right + spread});
    QPolygonF drive;
    drive << QPointF(left, top) << QPointF(right, top) << QPointF(right + spread, bottom)
          << QPointF(left - spread, bottom);
    const bool tarred = scene.dice.Chance(0.3);
    const QColor slab = tarred ? QColor(98, 98, 102) : QColor(200, 196, 188);
    QLinearGradient fill(0, top, 0, bottom);
    fill.setColorAt(0, Darker(slab, 0.14));
    fill.setColorAt(1, Lighter(slab, 0.08));
    p.setPen(QPen(Faded(Darker(slab, 0.5), 0.5), 3));
    p.setBrush(fill);
    p.drawPolygon(drive);
    p.setPen(QPen(Faded(Darker(slab, 0.4), 0.6), 2));
    if (!tarred) {
        p.drawLine(QPointF((left + right) / 2, top), QPointF((left + right) / 2, bottom));
        p.drawLine(QPointF(left - spread * 0.4, top + (bottom - top) * 0.4),
                   QPointF(right + spread * 0.4, top + (bottom - top) * 0.4));
    }
    p.setPen(Qt::NoPen);
    p.setBrush(Faded(QColor(40, 36, 34), 0.12));
    p.drawEllipse(QPointF((left + right) / 2 + 20, top + (bottom - top) * 0.55), 30, 10);
    if (scene.season == Season::Winter) {
        p.setBrush(Faded(QColor(236, 242, 250), 0.7));
        for (int i = 0; i < 7; ++i) {
            const QPointF middle{scene.dice.Real(left, right), scene.dice.Real(top + 20, bottom)};
            p.drawEllipse(middle, scene.dice.Real(20, 70), 7);
        }
    }
}

void DrawGroundShadow(Scene& scene, double x, double ground, double width)
{
    QPainter& p = scene.painter;
    const double away = scene.SunLeft() ? 0.42 : -0.42;
    p.setPen(Qt::NoPen);
    const double depth = scene.air.sunVisible || scene.air.cloudiness < 1 ? 0.2 : 0.1;
    p.setBrush(Faded(scene.air.shadow, depth));
    p.drawEllipse(QPointF(x + away * width * 0.6, ground + width * 0.05), width * 0.72, width * 0.1);
    p.drawEllipse(QPointF(x + away * width * 0.4, ground + width * 0.035), width * 0.5, width * 0.07);
}

void DrawTree(Scene& scene, const Plant& plant)
{
    const auto& [x, ground, height] = plant;
    QPainter& p = scene.painter;
    DrawGroundShadow(scene, x, ground, height * 0.7);
    const QColor bark = scene.dice.Chance(0.2) ? QColor(206, 200, 190) : QColor(92, 74, 60);
    if (scene.season == Season::Winter) {
        DrawBranches(scene, QPointF(x, ground), 1.5708 + scene.dice.Real(-0.06, 0.06), height * 0.3,
                     height * 0.05, 5, Mix(bark, scene.air.haze, 0.15));
        return;
    }
    const QColor leaf = LeafColour(scene);
    const double half = height * 0.03;
    QPolygonF trunk;
    trunk << QPointF(x - half * 1.5, ground + 4) << QPointF(x - half * 0.8, ground - height * 0.5)
          << QPointF(x + half * 0.8, ground - height * 0.5) << QPointF(x + half * 1.5, ground + 4);
    QLinearGradient wood(x - half, 0, x + half, 0);
    wood.setColorAt(scene.SunLeft() ? 0 : 1, Lighter(bark, 0.2));
    wood.setColorAt(scene.SunLeft() ? 1 : 0, Darker(bark, 0.45));
    p.setPen(Qt::NoPen);
    p.setBrush(wood);
    p.drawPolygon(trunk);

    const QPointF heart(x, ground - height * 0.66);
    const double wide = height * scene.dice.Real(0.3, 0.4);
    const double tall = height * 0.36;
    const double sunSide = scene.SunLeft() ? -1 : 1;
    const QColor tones[4] = {Darker(leaf, 0.52), Darker(leaf, 0.26), leaf,
                             Mix(Lighter(leaf, 0.26), scene.air.sun, 0.12)};
    const int counts[4] = {110, 120, 190, 130};
    for (int pass = 0; pass < 4; ++pass) {
        p.setBrush(tones[pass]);
        const double shift = (pass - 1) * 0.13;
        for (int i = 0; i < counts[pass]; ++i) {
            const double turn = scene.dice.Real(0, 6.2832);
            const double out = std::sqrt(scene.dice.Real()) * (pass == 3 ? 0.74 : pass == 0 ? 1.0 : 0.93);
            const double ragged = 0.86 + 0.14 * std::sin(turn * 5 + x);
            const QPointF at(heart.x() + std::cos(turn) * out * wide * ragged + sunSide * shift * wide * 0.8,
                             heart.y() + std::sin(turn) * out * tall * ragged - shift * tall);
            const double size = height * (pass == 0 ? scene.dice.Real(0.03, 0.062)
                                                    : scene.dice.Real(0.013, 0.042) - pass * 0.003);
            p.drawEllipse(at, size, size * 0.82);
        }
    }
}

void DrawConifer(Scene& scene, const Plant& plant)
{
    const auto& [x, ground, height] = plant;
    QPainter& p = scene.painter;
    DrawGroundShadow(scene, x, ground, height * 0.4);
    const QColor needle = Mix(QColor(44, 82, 62), QColor(58, 92, 88), scene.dice.Real());
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(84, 66, 54));
    p.drawRect(QRectF(x - height * 0.018, ground - height * 0.14, height * 0.036, height * 0.14));
    const int tiers = 9;
    for (int tier = 0; tier < tiers; ++tier) {
        const double share = static_cast<double>(tier) / tiers;
        const double top = ground - height * (0.28 + share * 0.72);
        const double base = top + height * 0.22;
        const double half = height * 0.24 * (1.04 - share);
        for (int side = 0; side < 2; ++side) {
            const bool lit = (side == 0) == scene.SunLeft();
            const double sign = side == 0 ? -1 : 1;
            QPolygonF bough;
            bough << QPointF(x, top);
            for (int i = 1; i <= 5; ++i) {
                const double reach = half * i / 5;
                bough << QPointF(x + sign * reach, base - (5 - i) * height * 0.02 + (i % 2) * height * 0.012);
            }
            for (int i = 4; i >= 0; --i)
                bough << QPointF(x + sign * half * i / 5,
                                 base + height * 0.014 - (i % 2) * height * 0.022 + scene.dice.Real(0, 3));
            const QColor tone = lit ? Mix(Lighter(needle, 0.14), scene.air.sun, 0.08) : Darker(needle, 0.3);
            p.setBrush(Mix(tone, Lighter(tone, 0.2), share * 0.5));
            p.drawPolygon(bough);
            if (scene.season == Season::Winter) {
                p.setPen(
                    QPen(Faded(QColor(244, 248, 255), 0.85), height * 0.014, Qt::SolidLine, Qt::RoundCap));
                p.drawLine(QPointF(x + sign * half * 0.35, top + (base - top) * 0.42),
                           QPointF(x + sign * half * 0.86, base - height * 0.02));
                p.setPen(Qt::NoPen);
            }
        }
    }
}

void DrawShrub(Scene& scene, double x, double ground, double size)
{
    QPainter& p = scene.painter;
    QColor leaf = scene.season == Season::Winter ? QColor(112, 124, 110) : QColor(66, 106, 58);
    leaf = Mix(leaf, QColor(112, 138, 60), scene.dice.Real(0, 0.6));
    p.setPen(Qt::NoPen);
    p.setBrush(Faded(scene.air.shadow, 0.25));
    p.drawEllipse(QPointF(x, ground + size * 0.05), size * 0.62, size * 0.11);
    const double sunSide = scene.SunLeft() ? -1 : 1;
    const QColor tones[3] = {Darker(leaf, 0.45), leaf, Lighter(leaf, 0.22)};
    for (int pass = 0; pass < 3; ++pass) {
        p.setBrush(tones[pass]);
        for (int i = 0; i < 16; ++i) {
            const double turn = scene.dice.Real(0, 3.1416);
            const double out = std::sqrt(scene.dice.Real()) * (pass == 2 ? 0.72 : 0.95);
            const QSizeF leaves{scene.dice.Real(0.07, 0.17), scene.dice.Real(0.07, 0.14)};
            p.drawEllipse(
                QPointF(x + std::cos(turn) * out * size * 0.46 + sunSide * pass * size * 0.05,
                        ground - size * 0.1 - std::sin(turn) * out * size * 0.56 - pass * size * 0.03),
                size * leaves.width(), size * leaves.height());
        }
    }
    if (scene.season == Season::Winter) {
        p.setBrush(Faded(QColor(246, 250, 255), 0.9));
        p.drawEllipse(QPointF(x, ground - size * 0.58), size * 0.34, size * 0.1);
    }
}

void DrawFlowers(Scene& scene, double left, double right, double ground)
{
    if (scene.season == Season::Winter)
        return;
    static const QList<QColor> blooms{QColor(232, 84, 104),  QColor(248, 214, 86), QColor(244, 244, 250),
                                      QColor(176, 116, 204), QColor(244, 140, 66), QColor(228, 60, 60)};
    QPainter& p = scene.painter;
    const QColor first = scene.dice.Pick(blooms);
    const QColor second = scene.dice.Pick(blooms);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(84, 64, 50));
    p.drawRoundedRect(QRectF(left, ground - 5, right - left, 12), 6, 6);
    for (double x = left; x < right; x += 7) {
        p.setBrush(Mix(QColor(74, 120, 60), QColor(120, 150, 70), scene.dice.Real()));
        p.drawEllipse(QPointF(x, ground - scene.dice.Real(2, 10)), 6, 6);
        p.setBrush(scene.dice.Chance(0.5) ? first : second);
        const QPointF bloom{x + scene.dice.Real(-3, 3), ground - scene.dice.Real(6, 20)};
        p.drawEllipse(bloom, 4.2, 4.2);
        p.setBrush(Lighter(first, 0.6));
        p.drawEllipse(bloom, 1.4, 1.4);
    }
}

void DrawFence(Scene& scene, double left, double right, double ground, double height, const QColor& colour)
{
    QPainter& p = scene.painter;
    p.setPen(QPen(Darker(colour, 0.35), 1));
    p.setBrush(Darker(colour, 0.1));
    p.drawRect(QRectF(left, ground - height * 0.8, right - left, height * 0.09));
    p.drawRect(QRectF(left, ground - height * 0.32, right - left, height * 0.09));
    const double width = height * 0.17;
    for (double x = left; x + width <= right; x += width * 1.5) {
        QPolygonF picket;
        picket << QPointF(x, ground) << QPointF(x, ground - height * 0.92)
               << QPointF(x + width / 2, ground - height) << QPointF(x + width, ground - height * 0.92)
               << QPointF(x + width, ground);
        p.setBrush(Mix(colour, scene.air.shadow, scene.dice.Real(0, 0.1)));
        p.drawPolygon(picket);
    }
}

void DrawMailbox(Scene& scene, double x, double ground, const QColor& colour)
{
    QPainter& p = scene.painter;
    DrawGroundShadow(scene, x, ground, 60);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(120, 92, 70));
    p.drawRect(QRectF(x - 5, ground - 84, 10, 86));
    p.setBrush(colour);
    QPainterPath box;
    box.moveTo(x - 30, ground - 82);
    box.lineTo(x - 30, ground - 102);
    box.arcTo(QRectF(x - 30, ground - 118, 60, 34), 180, -180);
    box.lineTo(x + 30, ground - 82);
    box.closeSubpath();
    p.drawPath(box);
    p.setBrush(Lighter(colour, 0.3));
    p.drawRoundedRect(QRectF(x - 26, ground - 112, 40, 6), 3, 3);
    p.setBrush(QColor(206, 48, 44));
    p.drawRect(QRectF(x + 20, ground - 124, 4, 24));
    p.drawRect(QRectF(x + 20, ground - 124, 14, 8));
}

} // namespace vasclip::demo
