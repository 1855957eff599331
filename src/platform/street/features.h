#pragma once

#include "platform/street/types.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace vasclip::street {

/// What a line of traffic is, the widest first. Drawing and the levels of the cells go by this order.
enum class RoadClass : quint8 {
    Motorway, ///< limited access
    Highway, ///< a US or state highway, a trunk or primary road
    Arterial, ///< a secondary road, a county road
    Collector, ///< a tertiary road
    Local,
    Ramp,
    Service, ///< an alley, a drive, a car park's way
    Track, ///< unpaved, four-wheel
    Path, ///< on foot, by bicycle
    Rail
};

enum class AreaKind : quint8 { Water, Park, Forest, Cemetery, School, Airport, Builtup };

enum class PlaceKind : quint8 {
    City,
    Town,
    Village,
    Hamlet,
    Suburb,
    Street ///< the name of a street without a line, among its houses: for the eye alone
};

/// House numbers along one side of an edge as the source writes them, in the direction of its line; "from" may
/// exceed "to". Both empty: the source gives none for this side.
struct NumberRange
{
    QString from;
    QString to;
    QString zip; ///< five digits or ""
    QString city; ///< as the source names it or ""
};

/// One edge of the street network.
struct RoadEdge
{
    QString name; ///< the whole name as the source writes it, "" for none
    QStringList otherNames; ///< "US Hwy 31", "Co Rd 4", an old name
    RoadClass roadClass = RoadClass::Local;
    std::vector<Place> line; ///< at least two places
    NumberRange left;
    NumberRange right;
    bool hidden = false; ///< here for its numbers alone, its road is drawn by another line
};

/// One house as an address collection has it.
struct AddressPoint
{
    QString number; ///< "12", "12 1/2", "12-34", "N65W1234"
    QString street; ///< the whole name
    QString unit;
    QString city;
    QString zip;
    Place place;
};

/// A surface; the first ring is the outside of the first part. Rings are filled by the even-odd rule.
struct MapArea
{
    AreaKind kind = AreaKind::Water;
    QString name;
    std::vector<std::vector<Place>> rings;
};

/// A brook or canal that is drawn as a line.
struct WaterLine
{
    QString name;
    std::vector<Place> line;
};

struct PlaceName
{
    QString name;
    PlaceKind kind = PlaceKind::Town;
    qint64 population = 0; ///< 0: not known
    Place place;
    std::vector<std::vector<Place>> outline; ///< rings, empty where the source has a point alone
};

/// A ZIP code with the ground it covers.
struct ZipArea
{
    QString zip;
    std::vector<std::vector<Place>> rings;
};

} // namespace vasclip::street
