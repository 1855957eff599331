#pragma once

#include "app/vasctl/session.h"

#include "platform/street/geocoder.h"

#include <memory>

namespace vasclip::street {
class MapData;
} // namespace vasclip::street

namespace vasclip::vasctl {

/// The word for how an address was found: "house", "range", "intersection", "street", "zip", "city".
[[nodiscard]] QString KindWord(street::FoundBy foundBy);
/// Millionths of a degree as degrees, "44.821500".
[[nodiscard]] QString Degrees(qint32 millionths);
/// A place that is given in degrees; nullopt for what is none, which is told.
[[nodiscard]] std::optional<street::Place> PlaceOf(const Output& out, const QString& latitude,
                                                   const QString& longitude);

/// Where the home's settings say that its street maps are, as the system writes it.
[[nodiscard]] QString MapDirectory(Session& session);
/// What is to be said where there are none.
[[nodiscard]] QString NoMaps(const QString& directory);

// The verbs of 'vasctl map', one file each.
int MapGeocode(Session& session, const Output& out, const QStringList& words);
int MapReverse(Session& session, const Output& out, const QStringList& words);
/// The open report's subject and comps, or records, whose places the Databook then has.
int MapPlace(Session& session, const Output& out, const QStringList& words);
int MapSendProximity(Session& session, const Output& out, const QStringList& words);
int MapAnchor(Session& session, const Output& out, const QStringList& words);
int MapFind(Session& session, const Output& out, const QStringList& words);
int MapPicture(Session& session, const Output& out, const QStringList& words, const QString& file);
/// @param to  what a database is to be: "access", which it is without a word, or "vasclip"
int MapExport(Session& session, const Output& out, const QStringList& words, const QString& to);

} // namespace vasclip::vasctl
