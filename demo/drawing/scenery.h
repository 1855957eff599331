#pragma once

#include "demo/dice.h"
#include "demo/drawing/look.h"

#include <QPainter>

#include <utility>

namespace vasclip::demo {

inline constexpr int kPictureWidth = 1600;
inline constexpr int kPictureHeight = 1200;

/// What every part of a picture is drawn with.
struct Scene
{
    QPainter& painter;
    Dice dice;
    Air air;
    Season season;
    QList<std::pair<double, double>> paved = {}; ///< from left to right, where nothing may grow

    /// True if the light comes from the left.
    [[nodiscard]] bool SunLeft() const { return air.sunX < 0.5; }
    [[nodiscard]] bool Paved(double left, double right) const;
};

void DrawSky(Scene& scene, double horizon);
/// Hills and a far line of trees up to the horizon.
void DrawHills(Scene& scene, double horizon);
/// Grass (or snow) from `top` to `bottom`, with its mowing stripes.
void DrawLawn(Scene& scene, double top, double bottom);
/// Pavement, kerb and road below `top`.
void DrawStreetFront(Scene& scene, double top);
/// A drive from the width [left, right] at `top`, widening to the pavement at `bottom`.
void DrawDrive(Scene& scene, double left, double right, double top, double bottom);
/// Where a tree stands and how tall it is. Written in braces, its values are drawn from dice in their order.
struct Plant
{
    double x, ground, height;
};

/// A leafy tree.
void DrawTree(Scene& scene, const Plant& plant);
void DrawConifer(Scene& scene, const Plant& plant);
void DrawShrub(Scene& scene, double x, double ground, double size);
void DrawFlowers(Scene& scene, double left, double right, double ground);
void DrawFence(Scene& scene, double left, double right, double ground, double height, const QColor& colour);
/// The soft shadow of something `width` wide that stands on (x, ground).
void DrawGroundShadow(Scene& scene, double x, double ground, double width);
void DrawMailbox(Scene& scene, double x, double ground, const QColor& colour);

} // namespace vasclip::demo
