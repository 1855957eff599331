#pragma once

#include "mapdata/county_build.h"
#include "mapdata/vector_file.h"

#include <functional>

namespace vasclip::mapdata {

/// What a layer is, by its columns; names of files are changed too often to go by.
enum class LayerKind {
    Ranges, ///< streets with house numbers of both sides
    Edges, ///< all lines: streets, rails, brooks, borders
    Roads, ///< streets with names, without house numbers
    Lines, ///< lines with no name that is known
    Faces, ///< which place and ZIP code the ground beside an edge is in
    Places, ///< towns with their outlines
    ZipAreas,
    Areas, ///< water and landmarks
    Brooks,
    Houses, ///< points with house number and street
    Unknown
};

[[nodiscard]] LayerKind KindOf(const VectorLayer& layer);

/// In which order layers are read: streets with house numbers before those without, files of a state last.
[[nodiscard]] int OrderOf(LayerKind kind);

/// How one layer is read.
struct LayerJob
{
    CountyBuild& county;
    Account& account;
    QString source; ///< for the account
    QString stateDigits; ///< of the county's FIPS code; rows of other states are passed over
    std::function<bool(double)> step; ///< share read; false stops
};

/// Reads a layer of the census' street files, or one of like columns. @return false if it was stopped
[[nodiscard]] bool ReadTiger(VectorLayer& layer, LayerKind kind, const LayerJob& job);

} // namespace vasclip::mapdata
