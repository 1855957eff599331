#pragma once

#include "demo/drawing/scenery.h"

#include <QPainterPath>

namespace vasclip::demo {

/// The parts a house is put together from, in its own colours and the light of the day.
/// Rectangles and lines are in picture units; y grows downwards.
class Facade
{
public:
    Facade(Scene& scene, const Palette& palette);

    [[nodiscard]] const Palette& Colours() const { return m_palette; }
    [[nodiscard]] Dice& Chance() { return m_scene.dice; }
    [[nodiscard]] Scene& InScene() { return m_scene; }

    /// A wall with its siding, corner boards and the shadow under the eaves; `footing` of base at the bottom.
    void Wall(const QRectF& wall, double footing = 18);
    void Wall(const QRectF& wall, double footing, const QColor& colour, Siding siding);
    /// The triangle of wall under a gable roof.
    void GableWall(double left, double right, double base, double apex);
    /// A roof that slopes towards us: left and right at the eaves, inset at the ridge.
    void Slope(double left, double right, double eaves, double ridge, double inset);
    /// The two edges of a roof whose gable looks at us.
    void GableEdges(double left, double right, double base, double apex, double overhang);
    void Eaves(double left, double right, double y);
    void Chimney(double x, double top, double base, double width = 54);
    /// A gabled dormer standing on a slope.
    void Dormer(double x, double base, double width, double height);

    /// @param across, down  panes of each sash; shutters beside it when asked for
    void Window(const QRectF& frame, int across = 2, int down = 2, bool shutters = false);
    void BayWindow(const QRectF& frame);
    void Door(const QRectF& frame, bool sidelight = false);
    void SlidingDoor(const QRectF& frame);
    void GarageDoor(const QRectF& frame);
    void Steps(double left, double right, double top, double ground);
    /// A roofed porch: posts, rails and floor.
    void Porch(double left, double right, double roof, double floor, double ground, int posts);
    void Balcony(const QRectF& opening);
    void Deck(double left, double right, double floor, double ground);

private:
    void Texture(const QPainterPath& shape, const QRectF& bounds, const QColor& colour, Siding siding);
    void Snow(const QPolygonF& roof, double eaves);

    Scene& m_scene;
    QPainter& m_painter;
    Palette m_palette;
};

} // namespace vasclip::demo
