#pragma once

#include "platform/street/map_import.h"

#include <QString>
#include <QStringList>

namespace vasclip::map {

/// The lines of an account: what was taken, what has a remark, what was left out and why.
[[nodiscard]] QStringList ImportLines(const street::ImportResult& result);
/// What the importer says, with the screen's field in place of its option.
[[nodiscard]] QString ForScreen(QString words);
/// What of these problems is a county's, each of which begins with its name; "" for none.
[[nodiscard]] QString FaultOf(const QStringList& problems, const QString& county);

/// What the screen of the maps says.
namespace mapdata_words {

using namespace Qt::Literals::StringLiterals;

inline const QString kCounty = u"County"_s;
inline const QString kState = u"State"_s;
inline const QString kSource = u"Source"_s;
inline const QString kDate = u"Date"_s;
inline const QString kStreets = u"Streets"_s;
inline const QString kHouses = u"Houses"_s;
inline const QString kSize = u"Size"_s;
inline const QString kChecked = u"Verified"_s;
inline const QString kExtent = u"Extent"_s;
inline const QString kNotYet = u"not yet"_s;
inline const QString kWhole = u"whole"_s;
inline const QString kDamagedOne = u"damaged"_s;

inline const QString kMapsIn = u"Street maps in %1"_s;
inline const QString kMapsCount[] = {u"%1 map"_s, u"%1 maps"_s};
inline const QString kStreetsCount[] = {u"%1 street"_s, u"%1 streets"_s};
inline const QString kHousesCount[] = {u"%1 house"_s, u"%1 houses"_s};
inline const QString kNoMaps = u"There are no maps yet"_s;
inline const QString kNoneBeside = u"No new maps wait beside those in use"_s;
inline const QString kBeside = u"New maps wait beside those in use: %1"_s;

inline const QString kChooseFile = u"Street Data"_s;
inline const QString kChooseFolder = u"Folder with Street Data"_s;
inline const QString kFileKinds =
    u"*.zip;*.shp;*.pbf;*.osm;*.csv;*.geojson;*.gpkg|Street data|*.*|All files"_s;

inline const QString kAccount = u"Account of the import"_s;
inline const QString kLineByLine = u"Line by line, as in %1:"_s;
inline const QString kMoreLines = u"... the file has the rest"_s;
inline const QString kKeptIn = u". Line by line in %1"_s;
inline const QString kImported = u"In use now: %1"_s;
inline const QString kImportedBeside = u"Ready beside the maps in use: %1"_s;
inline const QString kStopped = u"Stopped. The maps are as they were"_s;
inline const QString kFailed = u"Nothing was changed: %1"_s;

inline const QString kReading = u"Reading %1"_s;
inline const QString kFaults = u"What is wrong"_s;
inline const QString kNothing = u"Nothing"_s;
inline const QString kNoRecord = u"No record"_s;
inline const QString kNoImport = u"Nothing was imported yet"_s;
inline const QString kAllWhole = u"All maps are whole"_s;
inline const QString kDamaged = u"Damaged or missing: %1. Import these counties again"_s;
inline const QString kVerifyStopped = u"Stopped before all maps were read"_s;

inline const QString kRemoveTitle = u"Remove Map"_s;
inline const QString kRemove = u"The map of %1 is deleted. To have it again it must be imported anew. Remove it?"_s;
inline const QString kRemoved = u"The map of %1 is removed"_s;
inline const QString kNotRemoved = u"The map of %1 was not removed: %2"_s;
inline const QString kGoneAlready = u"it is gone already"_s;

inline const QString kComparing = u"Record %1 of %2"_s;
inline const QString kWouldMove = u"What the new maps would move by more than 300 feet"_s;
inline const QString kHaveMoved = u"What stands more than 300 feet from where the maps have it"_s;
inline const QString kInUse = u"The new maps are in use"_s;
inline const QString kDiscardTitle = u"Discard New Maps"_s;
inline const QString kDiscard = u"The new maps that wait are deleted; those in use stay. Discard them?"_s;
inline const QString kDiscarded = u"The new maps are deleted"_s;

} // namespace mapdata_words

} // namespace vasclip::map
