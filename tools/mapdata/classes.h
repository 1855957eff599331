#pragma once

#include "platform/street/features.h"

#include <optional>

namespace vasclip::mapdata {

/// The class of a TIGER/Line feature; nullopt where it is no way for anybody.
/// @param mtfcc  "S1400", "R1011"; "" counts as a local street
[[nodiscard]] std::optional<street::RoadClass> ClassOfMtfcc(const QString& mtfcc);
/// A class by a road's name where that says more: "US Hwy 31" is a highway, whatever its code is.
[[nodiscard]] street::RoadClass ClassByName(street::RoadClass roadClass, const QString& name);
/// The class of an OpenStreetMap way by its "highway" or "railway"; nullopt for what is none or not yet built.
[[nodiscard]] std::optional<street::RoadClass> ClassOfHighway(const QString& highway);
[[nodiscard]] std::optional<street::RoadClass> ClassOfRailway(const QString& railway);

/// Kinds of surfaces by their MTFCC: lakes, parks, cemeteries, airports; nullopt for others.
[[nodiscard]] std::optional<street::AreaKind> AreaOfMtfcc(const QString& mtfcc);

} // namespace vasclip::mapdata
