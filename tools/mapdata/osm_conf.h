#pragma once

namespace vasclip::mapdata {

/// Which tags GDAL gives of an OpenStreetMap file; its own choice leaves addresses out. The list of closed ways has to
/// end with the longest word: GDAL 3.6 passes over longer ones than its last.
inline constexpr char kOsmConf[] = R"(closed_ways_are_polygons=aeroway,amenity,boundary,building,landuse,leisure,natural,place,tourism,public_transport=platform
attribute_name_laundering=no
[points]
osm_id=yes
attributes=name,place,population,addr:housenumber,addr:street,addr:place,addr:unit,addr:city,addr:postcode
[lines]
osm_id=yes
attributes=name,highway,ref,alt_name,old_name,name_1,natural,waterway,railway,service,tunnel,area,usage
[multipolygons]
osm_id=yes
osm_way_id=yes
attributes=name,natural,water,waterway,landuse,leisure,amenity,aeroway,boundary,admin_level,border_type,postal_code,ref,place,population,building,addr:housenumber,addr:street,addr:place,addr:unit,addr:city,addr:postcode
[multilinestrings]
osm_id=yes
attributes=name
[other_relations]
osm_id=yes
attributes=name
)";

} // namespace vasclip::mapdata
