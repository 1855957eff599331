#pragma once

#include "platform/street/map_data.h"

#include <QTemporaryDir>

#include <memory>

namespace vasclip::street::test {

/// The edges of an ADDRFEAT shapefile, read without GDAL; `path` has no extension. Empty where it can't be read.
[[nodiscard]] std::vector<RoadEdge> ReadAddrFeat(const QString& path);

/// Counties in a directory of their own, open.
struct SamplePack
{
    QTemporaryDir directory;
    std::unique_ptr<MapData> maps;

    /// Adds a county and opens the directory anew. @return false where it can't be written
    bool Put(const QString& county, const QString& state, const std::vector<RoadEdge>& edges,
             const std::vector<AddressPoint>& houses, const std::vector<PlaceName>& places);
};
/// @param county  five digits; @return null with a test failure where it can't be written
[[nodiscard]] std::unique_ptr<SamplePack> MakePack(const QString& county, const QString& state,
                                                   const std::vector<RoadEdge>& edges,
                                                   const std::vector<AddressPoint>& houses = {},
                                                   const std::vector<PlaceName>& places = {});

} // namespace vasclip::street::test
