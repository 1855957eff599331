#pragma once

#include "map/picture_names.h"

#include <array>
#include <vector>

namespace vasclip::map {

/// A place in the view in pixels, from its upper left corner.
struct Spot
{
    double x = 0, y = 0;
};

/// An upright rectangle of the view; without a width there is none.
struct Tile
{
    double left = 0, top = 0, width = 0, height = 0;
    /// The pixels that both cover.
    [[nodiscard]] double Shared(const Tile& other) const;
    [[nodiscard]] bool Holds(Spot spot) const;
    [[nodiscard]] bool Holds(const Tile& other) const;
    [[nodiscard]] Tile Moved(double x, double y) const { return {left + x, top + y, width, height}; }
};

/// The bitmap of an arrow in one direction.
struct ArrowShape
{
    double width = 0, height = 0; ///< 0: there is no such bitmap
    Spot tip = {};                ///< from the bitmap's upper left corner
    /// What of the bitmap hides something, from its upper left corner: beside its tip it is empty. None: all of it.
    std::vector<Tile> inked = {};
    [[nodiscard]] Tile At(Spot spot) const { return {spot.x - tip.x, spot.y - tip.y, width, height}; }
    /// The pixels that it hides of a tile; the tip stands on the spot.
    [[nodiscard]] double Hides(Spot spot, const Tile& tile) const;
    /// The pixels that it shares with another one.
    [[nodiscard]] double Shared(Spot spot, const ArrowShape& other, Spot otherSpot) const;
};
/// By direction; 1 to 8 stand at 0 to 7.
using ArrowShapes = std::array<ArrowShape, kDirections>;
/// A bitmap of a size, its tip where its direction's hot spot is: at a corner or in the middle of a side.
[[nodiscard]] ArrowShape ShapeOf(int direction, double width, double height);

/// An arrow that is to be given a direction.
struct ArrowToArrange
{
    Spot house; ///< where its tip is
    int direction = 1; ///< 1 to 8, as it is
    bool fixed = false; ///< turned or placed by hand: it stays
    ArrowShapes shapes = {};
};

/// Another layout of the same arrows, as a picture on paper shows them closer together than a wide window.
struct Sheet
{
    std::vector<Spot> spots; ///< of the arrows, in their order
    std::vector<Tile> houses;
    Tile view;
};

/// What came of it.
struct Arrangement
{
    std::vector<int> directions; ///< of each arrow, in their order
    std::vector<int> crowded;    ///< arrows that cover something, or are covered, all the same; by their index
};

/// Chooses directions so that no arrow covers another, or a house that it does not point at. Of all ways it takes the one
/// that leaves most arrows within the view, then the one that turns the fewest of those that are clear as they are, then
/// the one of the smallest turns: one more arrow turns as few of them as it can. Where there is no way it takes one that
/// hides little. The same arrows always come out the same.
/// @param houses     what else must stay in sight; those that the arrows point at are known
/// @param houseSize  side of the square around the house of an arrow
/// @param view       in which an arrow stays if its house does; an empty one has no border
/// @param further    layouts in which the same has to hold
[[nodiscard]] Arrangement Arrange(const std::vector<ArrowToArrange>& arrows, const std::vector<Tile>& houses,
                                  double houseSize, const Tile& view = {}, const std::vector<Sheet>& further = {});

} // namespace vasclip::map
