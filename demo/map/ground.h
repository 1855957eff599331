#pragma once

#include "demo/map/plane.h"

namespace vasclip::demo {

/// A surface of the map, or a town or ZIP code with its ground.
struct Patch
{
    QString name;
    QString kind; ///< of a surface, code of the census' features
    Line ring;
    Point middle;
};

/// River, lake, parks, woods, schools, a cemetery, an airfield.
[[nodiscard]] std::vector<Patch> Surfaces();
/// Each city around its houses; its middle lies in the neighbourhood that stands first.
[[nodiscard]] std::vector<Patch> Cities();
[[nodiscard]] std::vector<Patch> ZipAreas();

} // namespace vasclip::demo
