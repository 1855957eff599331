#include "platform/street/geocode_search.h"

#include "platform/street/edge_store.h"
#include "platform/street/geocode_crossing.h"
#include "platform/street/geocode_line.h"
#include "platform/street/geocode_range.h"
#include "platform/street/lookup_writer.h"
#include "platform/street/shape.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr double kLeastName = 0.55; ///< what bears less of the name is another street
constexpr double kPointFeet = 40; ///< an address point stands on the house or its drive
constexpr std::size_t kMostCounties = 64; ///< that a name alone is looked up in
constexpr std::size_t kMostCountiesMisspelt = 8;
constexpr double kCornerFeet = 15; ///< no house stands in the middle of a crossing
constexpr double kTownFeet = 12 * 5280;
constexpr double kLocatedElsewhere = 0.9;
constexpr qint32 kBeyond = 200000; ///< how far over its county's line a post town delivers, in millionths of a degree
constexpr std::size_t kMostMiddles = 4;

/// "10-20" may be a number of two parts, or the first of two; "1020" may be 10-20 without its hyphen.
std::vector<HouseNumber> OtherNumbers(const HouseNumber& number)
{
    std::vector<HouseNumber> others;
    if (number.prefix.endsWith(u'-')) {
        bool isNumber = false;
        const int first = number.prefix.chopped(1).toInt(&isNumber);
        if (isNumber) {
            others.push_back({{}, first, {}});
            others.push_back({{}, first * 100 + number.value, {}});
        }
    } else if (number.prefix.isEmpty() && number.value >= 100) {
        others.push_back({QString::number(number.value / 100) + u'-', number.value % 100, number.suffix});
    }
    return others;
}

bool HasNumbers(const StoredStreet& street)
{
    return !street.houses.empty() || std::any_of(street.edges.begin(), street.edges.end(), [](const StoredEdge& edge) {
               return !edge.left.from.IsEmpty() || !edge.right.from.IsEmpty();
           });
}

double FeetAcross(const Extent& extent)
{
    return PlaneFeet(extent.low, extent.high);
}

} // namespace

QString TownAt(const LookupReader& lookup, Place place, quint32 zip, quint32 city)
{
    if (city != 0)
        return lookup.City(city);
    if (QString town = lookup.CityOfZip(lookup.Zip(zip)); !town.isEmpty())
        return town;
    QString nearest;
    double feet = kTownFeet;
    for (const PlaceSummary& town : lookup.Summary().places) {
        if (town.kind > PlaceKind::Village)
            continue;
        if (const double away = PlaneFeet(town.place, place); away < feet) {
            nearest = CityKey(town.name);
            feet = away;
        }
    }
    return nearest;
}

Search::Search(const EdgeStore& store, const NameIndex& index, const Address& asked)
    : m_store(store)
    , m_index(index)
    , m_asked(asked)
    , m_where(index, asked)
{}

std::vector<Variant> Search::Named(const StreetName& name, const std::vector<quint32>& counties) const
{
    std::vector<Variant> variants;
    for (const NameReading& reading : ReadingsOf(name)) {
        const std::vector<quint32> having = m_index.CountiesOf(reading.name.base);
        for (const quint32 county : having) {
            if (!std::binary_search(counties.begin(), counties.end(), county))
                continue;
            const std::shared_ptr<const LookupReader> lookup = m_store.Lookup(county);
            if (!lookup)
                continue;
            for (StoredStreet& street : lookup->Streets(reading.name.base)) {
                const double score = reading.score * NameScore(reading.name, street.name);
                if (score >= kLeastName)
                    variants.push_back({county, lookup, std::move(street), score});
            }
        }
    }
    return variants;
}

std::vector<Variant> Search::Misspelt(const StreetName& name, const std::vector<quint32>& counties) const
{
    std::vector<Variant> variants;
    for (const quint32 county : counties) {
        const std::shared_ptr<const LookupReader> lookup = m_store.Lookup(county);
        if (!lookup)
            continue;
        for (const SimilarName& similar : lookup->Similar(name.base)) {
            StreetName meant = name;
            meant.base = similar.name;
            for (StoredStreet& street : lookup->Streets(similar.name)) {
                const double score = ErrorScore(similar.errors) * NameScore(meant, street.name);
                if (score >= kLeastName)
                    variants.push_back({county, lookup, std::move(street), score});
            }
        }
    }
    return variants;
}

std::vector<quint32> Search::AnyWith(const StreetName& name) const
{
    std::set<quint32> counties;
    for (const NameReading& reading : ReadingsOf(name)) {
        for (const quint32 county : m_index.CountiesOf(reading.name.base)) {
            const QString state = m_index.State(county);
            if (m_asked.state.isEmpty() || state.isEmpty() || state == m_asked.state)
                counties.insert(county);
            if (counties.size() >= kMostCounties)
                break;
        }
    }
    return {counties.begin(), counties.end()};
}

std::vector<quint32> Search::Neighbours() const
{
    std::vector<Place> middles;
    if (const auto& zip = m_where.Zip())
        middles.push_back(zip->centre);
    for (const KnownPlace& place : m_where.Places()) {
        if (middles.size() < kMostMiddles)
            middles.push_back(place.place);
    }
    std::set<quint32> counties;
    for (const Place middle : middles) {
        const std::vector<quint32> there = m_store.CountiesAt(shape::Widened({middle, middle}, kBeyond));
        counties.insert(there.begin(), there.end());
    }
    for (const quint32 county : m_where.Counties())
        counties.erase(county);
    return {counties.begin(), counties.end()};
}

std::vector<Place> Search::LineOf(const Variant& variant, EdgePosition position) const
{
    const std::shared_ptr<const Cell> cell = m_store.CellAt(variant.county, position.cell);
    return cell && position.index < cell->edges.size() ? cell->edges[position.index].line : std::vector<Place>();
}

Hit Search::HitAt(const Variant& variant, Place place, const QString& number, quint32 zip, quint32 city,
                  double score) const
{
    const LookupReader& lookup = *variant.lookup;
    const QString state = lookup.Summary().state;
    const QString code = lookup.Zip(zip);
    const QString town = TownAt(lookup, place, zip, city);
    const Whereabouts::Agreement agreement = m_where.Of(place, code, town, state);
    Hit hit;
    hit.located = agreement.located;
    hit.candidate.place = place;
    hit.candidate.score = score * agreement.score;
    QString text = number;
    const auto add = [&text](const QString& part, QLatin1StringView mark) {
        if (!part.isEmpty())
            text += text.isEmpty() ? part : QString(mark) + part;
    };
    add(variant.street.name.Text(), " "_L1);
    add(town, ", "_L1);
    add(state, ", "_L1);
    add(code, state.isEmpty() ? ", "_L1 : " "_L1);
    hit.candidate.address = text;
    return hit;
}

void Search::AddHouses(const Variant& variant, const HouseNumber& number, double score, std::vector<Hit>& hits) const
{
    const auto& houses = variant.street.houses;
    const auto first = std::lower_bound(houses.begin(), houses.end(), number.value,
                                        [](const StoredHouse& house, int value) { return house.number.value < value; });
    for (auto house = first; house != houses.end() && house->number.value == number.value; ++house) {
        if (house->number.prefix != number.prefix)
            continue;
        // 101A where 101 is known, or the reverse: the same lot.
        const double part = house->number.suffix == number.suffix                                ? 1
                            : house->number.suffix.isEmpty() || number.suffix.isEmpty() ? 0.95
                                                                                         : 0.85;
        Hit hit = HitAt(variant, house->place, house->number.Text(), house->zip, house->city, score * part);
        hit.candidate.foundBy = FoundBy::Point;
        hit.candidate.uncertaintyFeet = kPointFeet;
        hits.push_back(std::move(hit));
    }
}

void Search::AddRanges(const Variant& variant, const HouseNumber& number, double score, std::vector<Hit>& hits) const
{
    const std::size_t before = hits.size();
    const auto addSide = [&](const StoredEdge& edge, bool left, bool across) {
        const StoredSide& side = left ? edge.left : edge.right;
        const RangeFit fit = FitOf(number, side);
        if (across ? !fit.otherSide : !fit.inside)
            return;
        const std::vector<Place> line = LineOf(variant, edge.position);
        if (line.size() < 2)
            return;
        const double feet = LengthFeet(line);
        const double corner = feet > 0 ? std::min(kCornerFeet / feet, 0.25) : 0;
        const Side stands = left != across ? Side::Left : Side::Right;
        const Place place =
            PlaceBeside(line, std::clamp(fit.share, corner, 1 - corner), stands, kHouseBesideFeet);
        const RangeQuality quality = QualityOf(side, feet);
        Hit hit = HitAt(variant, place, number.Text(), side.zip, side.city,
                        score * (quality.implausible ? 0.95 : 1) * (across ? 0.85 : 1));
        // Of two ranges the narrower tells more.
        hit.candidate.score *= 1 - std::min(0.02, std::abs(side.to.value - side.from.value) / 1e5);
        hit.candidate.foundBy = FoundBy::Range;
        hit.candidate.uncertaintyFeet = quality.uncertaintyFeet * (across ? 2 : 1);
        hit.doubtful = across;
        hits.push_back(std::move(hit));
    };
    for (const bool across : {false, true}) {
        for (const StoredEdge& edge : variant.street.edges) {
            addSide(edge, true, across);
            addSide(edge, false, across);
        }
        if (hits.size() > before)
            return;
    }
}

void Search::AddStreet(const Variant& variant, std::vector<Hit>& hits) const
{
    // The middle of the street where it was said to be: of its edges there, the one nearest to their middle.
    struct Piece
    {
        std::vector<Place> line;
        StoredSide side;
    };
    std::vector<Piece> pieces;
    Extent extent;
    for (const bool sameZip : {true, false}) {
        for (const StoredEdge& edge : variant.street.edges) {
            const StoredSide& side = edge.left.zip != 0 ? edge.left : edge.right;
            if (sameZip && (m_asked.zip.isEmpty() || variant.lookup->Zip(side.zip) != m_asked.zip))
                continue;
            std::vector<Place> line = LineOf(variant, edge.position);
            if (line.size() < 2)
                continue;
            for (const Place place : line)
                extent.Widen(place);
            pieces.push_back({std::move(line), side});
        }
        if (!pieces.empty())
            break;
    }
    Place at;
    StoredSide side;
    if (!pieces.empty()) {
        const Place middle{(extent.low.latitude + extent.high.latitude) / 2,
                           (extent.low.longitude + extent.high.longitude) / 2};
        double nearest = std::numeric_limits<double>::max();
        for (const Piece& piece : pieces) {
            const Foot foot = FootOf(middle, piece.line);
            if (foot.feet < nearest) {
                nearest = foot.feet;
                at = PlaceBeside(piece.line, foot.share, Side::Middle, 0);
                side = piece.side;
            }
        }
    } else if (!variant.street.houses.empty()) {
        for (const StoredHouse& house : variant.street.houses)
            extent.Widen(house.place);
        const StoredHouse& house = variant.street.houses[variant.street.houses.size() / 2];
        at = house.place;
        side.zip = house.zip;
        side.city = house.city;
    } else {
        return;
    }
    Hit hit = HitAt(variant, at, {}, side.zip, side.city, variant.score * (m_asked.number.IsEmpty() ? 1 : 0.7));
    hit.candidate.foundBy = FoundBy::Street;
    hit.candidate.uncertaintyFeet = std::max(100.0, FeetAcross(extent) / 2);
    hits.push_back(std::move(hit));
}

void Search::AddCrossings(const std::vector<Variant>& ones, const std::vector<Variant>& others,
                          std::vector<Hit>& hits) const
{
    const auto lines = [this](const Variant& variant) {
        std::vector<std::vector<Place>> all;
        for (const StoredEdge& edge : variant.street.edges) {
            if (std::vector<Place> line = LineOf(variant, edge.position); line.size() >= 2)
                all.push_back(std::move(line));
        }
        return all;
    };
    for (const Variant& one : ones) {
        for (const Variant& other : others) {
            if (one.county != other.county || one.street.name == other.street.name)
                continue;
            const StoredSide side = one.street.edges.empty() ? StoredSide() : one.street.edges.front().left;
            for (const Place place : Crossings(lines(one), lines(other))) {
                Hit hit = HitAt(one, place, {}, 0, side.city, one.score * other.score);
                const QString name = one.street.name.Text();
                hit.candidate.address.replace(0, name.size(), name + u" & "_s + other.street.name.Text());
                hit.candidate.foundBy = FoundBy::Intersection;
                hit.candidate.uncertaintyFeet = 50;
                hits.push_back(std::move(hit));
            }
        }
    }
}

void Search::AddArea(std::vector<Hit>& hits) const
{
    if (const auto& zip = m_where.Zip(); zip && !m_asked.zip.isEmpty()) {
        Hit hit;
        hit.candidate.place = zip->centre;
        hit.candidate.foundBy = FoundBy::ZipArea;
        hit.candidate.uncertaintyFeet = std::max(1000.0, FeetAcross(zip->extent) / 2);
        hit.candidate.address = m_asked.zip;
        hit.candidate.score = 0.9;
        hits.push_back(std::move(hit));
    }
    for (const KnownPlace& place : m_where.Places()) {
        Hit hit;
        hit.candidate.place = place.place;
        hit.candidate.foundBy = FoundBy::City;
        hit.candidate.uncertaintyFeet = std::max(5280.0, FeetAcross(place.extent) / 2);
        const QString state = m_index.State(place.county);
        hit.candidate.address = place.name + (state.isEmpty() ? QString() : u", "_s + state);
        hit.candidate.score = 0.8 * ErrorScore(place.errors);
        hits.push_back(std::move(hit));
    }
}

bool Search::IsNumberedHere(const std::vector<Variant>& variants) const
{
    return std::any_of(variants.begin(), variants.end(), [this](const Variant& variant) {
        if (NameScore(m_asked.street, variant.street.name) < 1 || variant.street.name.base != m_asked.street.base ||
            !HasNumbers(variant.street))
            return false;
        // The name may come again in another town of the county.
        if (m_asked.zip.isEmpty())
            return true;
        const auto inZip = [&](quint32 zip) { return variant.lookup->Zip(zip) == m_asked.zip; };
        return std::any_of(variant.street.edges.begin(), variant.street.edges.end(),
                           [&](const StoredEdge& edge) { return inZip(edge.left.zip) || inZip(edge.right.zip); }) ||
               std::any_of(variant.street.houses.begin(), variant.street.houses.end(),
                           [&](const StoredHouse& house) { return inZip(house.zip); });
    });
}

std::vector<Hit> Search::HitsOf(const std::vector<Variant>& variants) const
{
    std::vector<Hit> hits;
    if (m_asked.number.IsEmpty()) {
        for (const Variant& variant : variants)
            AddStreet(variant, hits);
        return hits;
    }
    const auto collect = [&](const HouseNumber& number, double part) {
        for (const Variant& variant : variants) {
            std::vector<Hit> houses;
            AddHouses(variant, number, variant.score * part, houses);
            std::vector<Hit> ranges;
            AddRanges(variant, number, variant.score * part, ranges);
            // A house that is known stands for its number; one of the same number far off is another's.
            std::erase_if(ranges, [&houses](const Hit& range) {
                return std::any_of(houses.begin(), houses.end(), [&range](const Hit& house) {
                    return PlaneFeet(house.candidate.place, range.candidate.place) < 2640;
                });
            });
            hits.insert(hits.end(), houses.begin(), houses.end());
            hits.insert(hits.end(), ranges.begin(), ranges.end());
        }
    };
    collect(m_asked.number, 1);
    if (hits.empty()) {
        for (const HouseNumber& other : OtherNumbers(m_asked.number))
            collect(other, 0.93);
    }
    if (hits.empty()) {
        for (const Variant& variant : variants) {
            if (!HasNumbers(variant.street))
                AddStreet(variant, hits);
        }
    }
    return hits;
}

std::vector<Hit> Search::Run()
{
    std::vector<Hit> hits;
    if (m_asked.street.IsEmpty()) {
        AddArea(hits);
        return hits;
    }
    const std::vector<quint32> here = m_where.IsOpen() ? AnyWith(m_asked.street) : m_where.Counties();
    std::vector<Variant> variants = Named(m_asked.street, here);
    if (m_asked.crossing == m_asked.street)
        return hits; // no street crosses itself
    if (!m_asked.crossing.IsEmpty()) {
        std::vector<Variant> others = Named(m_asked.crossing, here);
        if (variants.empty())
            variants = Misspelt(m_asked.street, here);
        if (others.empty())
            others = Misspelt(m_asked.crossing, here);
        AddCrossings(variants, others, hits);
        return hits;
    }
    hits = HitsOf(variants);
    if (IsNumberedHere(variants)) {
        // That street is known with its numbers, so no other is meant.
        std::erase_if(hits, [this](const Hit& hit) {
            return hit.candidate.foundBy == FoundBy::Street && !m_asked.number.IsEmpty();
        });
        const bool own = std::any_of(hits.begin(), hits.end(), [](const Hit& hit) { return hit.candidate.score >= 0.95; });
        if (!own) {
            std::vector<Variant> named = variants;
            std::erase_if(named, [this](const Variant& variant) {
                return NameScore(m_asked.street, variant.street.name) < 1 || variant.street.name.base != m_asked.street.base;
            });
            hits = HitsOf(named);
        }
        return hits;
    }
    if (hits.empty() && !m_where.IsOpen()) {
        // A post town's streets may lie beyond the county line.
        const std::vector<quint32> beyond = Neighbours();
        for (Hit& hit : HitsOf(Named(m_asked.street, beyond))) {
            if (hit.located || hit.candidate.score >= kLocatedElsewhere)
                hits.push_back(std::move(hit));
        }
    }
    if (hits.empty()) {
        std::vector<quint32> near = here;
        if (m_where.IsOpen()) {
            near = m_index.Counties();
            std::erase_if(near, [this](quint32 county) {
                return !m_asked.state.isEmpty() && m_index.State(county) != m_asked.state;
            });
        }
        if (near.size() <= kMostCountiesMisspelt)
            hits = HitsOf(Misspelt(m_asked.street, near));
    }
    return hits;
}

} // namespace vasclip::street
