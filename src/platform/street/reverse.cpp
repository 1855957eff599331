#include "platform/street/reverse.h"

#include "platform/street/geocode_line.h"
#include "platform/street/geocode_range.h"
#include "platform/street/geocode_search.h"
#include "platform/street/lookup_writer.h"
#include "platform/street/shape.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr double kMicroDegreesPerFoot = 2.75;
constexpr double kHouseFeet = 100; ///< a house that is known this near is the address of the place
constexpr double kElsewhereFeet = 150; ///< a number so much farther than a street without belongs to another
constexpr std::size_t kMostStreets = 4; ///< that are looked up for their numbers

/// A street that passes near the place.
struct Passing
{
    quint32 county = 0;
    QString name;
    double feet = 0;
    bool numbered = false;
    std::vector<Place> line;
    NumberRange left;
    NumberRange right;
};

bool HasNoHouses(RoadClass kind)
{
    return kind == RoadClass::Rail || kind == RoadClass::Path || kind == RoadClass::Ramp;
}

/// Streets with a name, the nearest first; the nearest edge of each with numbers, and without.
std::vector<Passing> StreetsNear(const EdgeStore& store, Place place, double withinFeet)
{
    std::vector<Passing> near;
    const auto by = static_cast<qint32>(std::min(withinFeet, 50000.0) * kMicroDegreesPerFoot * 2);
    const Extent around = shape::Widened({place, place}, by);
    // Beside a county's line the nearest street may be the neighbour's.
    for (const quint32 county : store.CountiesAt(around)) {
        for (const auto& cell : store.CellsNear(county, around)) {
            for (const CellEdge& edge : cell->edges) {
                if (edge.street == 0 || edge.street > cell->streets.size() || HasNoHouses(edge.roadClass))
                    continue;
                if (!shape::ExtentOf(edge.line).Overlaps(around))
                    continue;
                const double feet = FootOf(place, edge.line).feet;
                if (feet > withinFeet)
                    continue;
                const QString& name = cell->streets[edge.street - 1].name;
                const bool numbered = !edge.left.from.isEmpty() || !edge.right.from.isEmpty();
                const auto known = std::find_if(near.begin(), near.end(), [&](const Passing& passing) {
                    return passing.name == name && passing.county == county && passing.numbered == numbered;
                });
                if (known != near.end() && known->feet <= feet)
                    continue;
                Passing passing{county, name, feet, numbered, edge.line, edge.left, edge.right};
                if (known != near.end())
                    *known = std::move(passing);
                else
                    near.push_back(std::move(passing));
            }
        }
    }
    std::sort(near.begin(), near.end(), [](const Passing& one, const Passing& other) {
        return std::tie(one.feet, one.county, one.name, other.numbered) <
               std::tie(other.feet, other.county, other.name, one.numbered);
    });
    return near;
}

QString AddressText(const LookupReader& lookup, const QString& line, Place place, quint32 zip, quint32 city)
{
    QString text = line;
    if (const QString town = TownAt(lookup, place, zip, city); !town.isEmpty())
        text += u", "_s + town;
    const QString state = lookup.Summary().state;
    if (!state.isEmpty())
        text += u", "_s + state;
    if (const QString code = lookup.Zip(zip); !code.isEmpty())
        text += (state.isEmpty() ? u", "_s : u" "_s) + code;
    return text;
}

/// What the tables keep of the edge that passes: its ZIP and town, which the cell does not have.
struct Sides
{
    StoredSide left;
    StoredSide right;
};
Sides SidesOf(const std::vector<StoredStreet>& streets, const StreetName& name,
              const Passing& passing, const EdgeStore& store)
{
    const HouseNumber left = ParseHouseNumber(passing.left.from);
    const HouseNumber right = ParseHouseNumber(passing.right.from);
    for (const StoredStreet& street : streets) {
        if (street.name != name)
            continue;
        for (const StoredEdge& edge : street.edges) {
            if (passing.numbered && (edge.left.from != left && edge.right.from != right))
                continue;
            const auto cell = store.CellAt(passing.county, edge.position.cell);
            if (cell && edge.position.index < cell->edges.size() &&
                cell->edges[edge.position.index].line == passing.line)
                return {edge.left, edge.right};
            if (!passing.numbered)
                break;
        }
    }
    return {};
}

} // namespace

std::vector<Candidate> AddressesNear(const EdgeStore& store, Place place, double withinFeet)
{
    std::vector<Candidate> found;
    const std::vector<Passing> streets = StreetsNear(store, place, withinFeet);
    std::size_t looked = 0;
    bool housed = false;
    bool ranged = false;
    bool named = false;
    double numberFeet = 0;
    double nameFeet = 0;
    Candidate best;
    double bestFeet = kHouseFeet;
    for (const Passing& passing : streets) {
        if (++looked > kMostStreets && ranged && named)
            break;
        const std::shared_ptr<const LookupReader> lookup = store.Lookup(passing.county);
        if (!lookup)
            continue;
        const StreetName name = ParseStreet(passing.name);
        const std::vector<StoredStreet> stored = lookup->Streets(name.base);
        if (looked <= kMostStreets) {
            for (const StoredStreet& street : stored) {
                if (street.name != name)
                    continue;
                for (const StoredHouse& house : street.houses) {
                    const double feet = PlaneFeet(house.place, place);
                    if (feet >= bestFeet)
                        continue;
                    bestFeet = feet;
                    housed = true;
                    best.place = house.place;
                    best.foundBy = FoundBy::Point;
                    best.uncertaintyFeet = feet;
                    best.address = AddressText(*lookup, house.number.Text() + u' ' + name.Text(), house.place, house.zip,
                                               house.city);
                    best.score = 1;
                }
            }
        }
        if (ranged && (named || passing.numbered))
            continue;
        const Sides sides = SidesOf(stored, name, passing, store);
        const Foot foot = FootOf(place, passing.line);
        if (!ranged && passing.numbered) {
            StoredSide left = sides.left;
            StoredSide right = sides.right;
            bool isLeft = foot.side == Side::Left;
            if ((isLeft ? left : right).from.IsEmpty())
                isLeft = !isLeft; // only one side has numbers
            const StoredSide& side = isLeft ? left : right;
            const HouseNumber number = NumberAt(foot.share, side);
            if (!number.IsEmpty()) {
                ranged = true;
                numberFeet = foot.feet;
                Candidate candidate;
                candidate.place = PlaceBeside(passing.line, foot.share, isLeft ? Side::Left : Side::Right, kHouseBesideFeet);
                candidate.foundBy = FoundBy::Range;
                candidate.uncertaintyFeet = QualityOf(side, LengthFeet(passing.line)).uncertaintyFeet + foot.feet;
                candidate.address =
                    AddressText(*lookup, number.Text() + u' ' + name.Text(), candidate.place, side.zip, side.city);
                candidate.score = 1 - std::min(0.5, foot.feet / 2000);
                found.push_back(candidate);
            }
        }
        if (!named) {
            named = true;
            nameFeet = foot.feet;
            const StoredSide& side = sides.left.zip != 0 ? sides.left : sides.right;
            Candidate candidate;
            candidate.place = PlaceBeside(passing.line, foot.share, Side::Middle, 0);
            candidate.foundBy = FoundBy::Street;
            candidate.uncertaintyFeet = foot.feet;
            candidate.address = AddressText(*lookup, name.Text(), candidate.place, side.zip, side.city);
            candidate.score = 0.5;
            found.push_back(candidate);
        }
    }
    // The number comes before the street, unless one stands on a street that has none.
    if (found.size() == 2) {
        const bool own = numberFeet <= nameFeet + kElsewhereFeet;
        if (own != (found.front().foundBy == FoundBy::Range))
            std::swap(found.front(), found.back());
    }
    if (housed)
        found.insert(found.begin(), best);
    return found;
}

} // namespace vasclip::street
