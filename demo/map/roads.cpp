#include "demo/map/roads.h"

#include "demo/map/long_roads.h"
#include "demo/market.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

/// A road from end to end.
struct Road
{
    RoadPiece look; ///< name, kind, city and ZIP
    Line line;
    int firstNumber = 0; ///< 0: without house numbers
    int lastNumber = 0;
    double numbersFrom = 0; ///< feet along the line to the first number
    double feetPerNumber = kFeetPerNumber;
};

constexpr double kReach = 1900; ///< how far a street is led on to the next one

/// The lowest number of a street; a subject may stand before its comps.
int FirstNumber(const Street& street)
{
    int first = street.firstNumber;
    for (const Subject subject : kSubjects) {
        const QString address = SubjectAddress(subject);
        if (address.section(u' ', 1) == street.name)
            first = std::min(first, address.section(u' ', 0, 0).toInt());
    }
    return first;
}

Line Core(const Street& street)
{
    return {OnPlane(MiddleOf(street, FirstNumber(street))), OnPlane(MiddleOf(street, street.lastNumber))};
}

bool IsRail(const Road& road)
{
    return road.look.kind.startsWith(u'R');
}

/// How far it is from a place in a direction to the next road, at most `reach`; nullopt where there is none.
std::optional<double> FeetToNext(const std::vector<Road>& roads, Point from, Point direction, double reach)
{
    constexpr double kOwn = 30; // what is nearer is the road itself
    std::optional<double> nearest;
    const Point to{from.east + direction.east * reach, from.north + direction.north * reach};
    for (const Road& road : roads) {
        for (std::size_t at = 1; at < road.line.size() && !IsRail(road); ++at) {
            const auto meeting = Meet(from, to, road.line[at - 1], road.line[at]);
            if (!meeting || meeting->first * reach < kOwn)
                continue;
            if (!nearest || meeting->first * reach < *nearest)
                nearest = meeting->first * reach;
        }
    }
    return nearest;
}

bool Touch(const Road& one, const Road& other)
{
    for (std::size_t at = 1; at < one.line.size(); ++at) {
        for (std::size_t to = 1; to < other.line.size(); ++to) {
            if (Meet(one.line[at - 1], one.line[at], other.line[to - 1], other.line[to]))
                return true;
        }
    }
    return false;
}

/// Which roads can be driven to from the first one.
std::vector<bool> Reached(const std::vector<Road>& roads)
{
    std::vector<bool> reached(roads.size());
    std::vector<std::size_t> waiting{0};
    reached[0] = true;
    while (!waiting.empty()) {
        const std::size_t at = waiting.back();
        waiting.pop_back();
        for (std::size_t other = 0; other < roads.size(); ++other) {
            if (reached[other] || IsRail(roads[other]) || !Touch(roads[at], roads[other]))
                continue;
            reached[other] = true;
            waiting.push_back(other);
        }
    }
    return reached;
}

Point Direction(Point from, Point to)
{
    const double length = Distance(from, to);
    return {(to.east - from.east) / length, (to.north - from.north) / length};
}

/// Leads the ends of a street on to the next roads.
void LeadOn(const std::vector<Road>& roads, Road& road)
{
    const Point first = road.line.front();
    const Point last = road.line.back();
    const Point ahead = Direction(first, last);
    const Point behind{-ahead.east, -ahead.north};
    if (const auto feet = FeetToNext(roads, last, ahead, kReach))
        road.line.back() = {last.east + ahead.east * *feet, last.north + ahead.north * *feet};
    if (const auto feet = FeetToNext(roads, first, behind, kReach)) {
        road.line.front() = {first.east + behind.east * *feet, first.north + behind.north * *feet};
        road.numbersFrom += *feet;
    }
}

/// Leads a street from its beginning to the nearest road of those that are reached.
void Join(const std::vector<Road>& roads, const std::vector<bool>& reached, Road& road)
{
    const Point start = road.line.front();
    Point best;
    double feet = std::numeric_limits<double>::max();
    for (std::size_t other = 0; other < roads.size(); ++other) {
        if (!reached[other])
            continue;
        const Point foot = NearestOn(roads[other].line, start);
        if (Distance(foot, start) < feet) {
            feet = Distance(foot, start);
            best = foot;
        }
    }
    road.line.insert(road.line.begin(), best);
    road.numbersFrom += feet;
}

/// Side streets from the streets that run east, northward to the next road: the blocks of a town.
void AddSideStreets(const Neighbourhood& place, const std::vector<Road>& own, int& names, std::vector<Road>& roads)
{
    constexpr double kApart = 540;
    constexpr double kLongest = 1700;
    constexpr double kShortest = 300;
    constexpr double kClearance = 210;
    const double lot = place.lotSquareFeet;
    if (lot > 50000)
        return;
    for (const Road& street : own) {
        const Point first = street.line.front();
        const Point ahead = Direction(first, street.line.back());
        if (std::fabs(ahead.east) < std::fabs(ahead.north))
            continue;
        const Point up{-ahead.north, ahead.east};
        const double length = Distance(first, street.line.back());
        for (double along = kApart / 2; along < length; along += kApart) {
            const Point from{first.east + ahead.east * along, first.north + ahead.north * along};
            const auto feet = FeetToNext(roads, from, up, kLongest);
            if (!feet || *feet < kShortest)
                continue;
            const Point middle{from.east + up.east * *feet / 2, from.north + up.north * *feet / 2};
            const bool crowded = std::any_of(roads.begin(), roads.end(), [&](const Road& road) {
                return Distance(NearestOn(road.line, middle), middle) < std::min(kClearance, *feet / 2 - 10);
            });
            if (crowded)
                continue;
            const QString name = SideStreetName(names);
            if (name.isEmpty())
                return;
            ++names;
            Road side;
            side.look = {name, u"S1400"_s, place.city, place.zip, {}, {}, {}};
            side.line = {from, {from.east + up.east * *feet, from.north + up.north * *feet}};
            side.firstNumber = 100;
            side.feetPerNumber = 18;
            side.lastNumber = 100 + static_cast<int>(*feet / side.feetPerNumber) - 1;
            roads.push_back(side);
        }
    }
}

std::vector<Road> AllRoads()
{
    std::vector<Road> roads;
    for (const LongRoad& row : LongRoads())
        roads.push_back({{row.name, row.kind, {}, {}, {}, {}, {}}, row.line, 0, 0, 0, 0});
    const std::size_t firstStreet = roads.size();
    std::vector<std::size_t> firstOf;
    for (const Neighbourhood& place : Town()) {
        firstOf.push_back(roads.size());
        for (const Street& street : place.streets)
            roads.push_back({{street.name, u"S1400"_s, place.city, place.zip, {}, {}, {}},
                             Core(street),
                             FirstNumber(street),
                             street.lastNumber,
                             0,
                             kFeetPerNumber});
    }
    firstOf.push_back(roads.size());
    const std::vector<Road> asBuilt = roads;
    for (std::size_t at = firstStreet; at < roads.size(); ++at)
        LeadOn(asBuilt, roads[at]);
    for (std::size_t at = firstStreet; at < roads.size(); ++at) {
        if (const std::vector<bool> reached = Reached(roads); !reached[at])
            Join(roads, reached, roads[at]);
    }
    int names = 0;
    for (std::size_t at = 0; at < static_cast<std::size_t>(Town().size()); ++at) {
        const std::vector<Road> own(roads.begin() + static_cast<std::ptrdiff_t>(firstOf[at]),
                                    roads.begin() + static_cast<std::ptrdiff_t>(firstOf[at + 1]));
        AddSideStreets(Town()[static_cast<qsizetype>(at)], own, names, roads);
    }
    return roads;
}

/// The numbers of one parity between two distances along a road.
RoadSide SideOf(const Road& road, double from, double to, bool even)
{
    RoadSide side;
    for (int number = road.firstNumber; number <= road.lastNumber; ++number) {
        const double at = road.numbersFrom + (number - road.firstNumber) * road.feetPerNumber;
        if ((number % 2 == 0) != even || at < from || at >= to)
            continue;
        if (side.from == 0)
            side.from = number;
        side.to = number;
    }
    return side;
}

/// A junction on a road.
struct Cut
{
    double along = 0;
    Point at;
};

Point PointAlong(const Road& road, double along)
{
    for (std::size_t at = 1; at < road.line.size(); ++at) {
        const double length = Distance(road.line[at - 1], road.line[at]);
        if (along <= length)
            return Between(road.line[at - 1], road.line[at], along / length);
        along -= length;
    }
    return road.line.back();
}

/// Numbers are spread over the whole of a piece, so where they begin and end a piece does too.
void CutWhereNumbersEnd(const Road& road, std::vector<Cut>& cuts)
{
    if (road.firstNumber == 0)
        return;
    const double last = road.numbersFrom + (road.lastNumber - road.firstNumber + 0.5) * road.feetPerNumber;
    for (const double along : {road.numbersFrom, last})
        cuts.push_back({along, PointAlong(road, along)});
}

std::vector<RoadPiece> Cutting(const Road& road, std::vector<Cut> cuts)
{
    std::sort(cuts.begin(), cuts.end(), [](const Cut& a, const Cut& b) { return a.along < b.along; });
    std::vector<RoadPiece> pieces;
    constexpr double kSame = 1; // two roads that cross a third at one place
    double begun = 0;
    double before = 0;
    RoadPiece piece = road.look;
    piece.line = {road.line.front()};
    const auto end = [&](Point at, double along, bool last) {
        piece.line.push_back(at);
        if (road.firstNumber != 0) {
            const double to = last ? std::numeric_limits<double>::max() : along;
            piece.left = SideOf(road, begun, to, false);
            piece.right = SideOf(road, begun, to, true);
        }
        pieces.push_back(piece);
        piece = road.look;
        piece.line = {at};
        begun = along;
    };
    auto cut = cuts.begin();
    for (std::size_t at = 1; at < road.line.size(); ++at) {
        const double length = Distance(road.line[at - 1], road.line[at]);
        for (; cut != cuts.end() && cut->along <= before + length; ++cut) {
            if (cut->along > begun + kSame)
                end(cut->at, cut->along, false);
        }
        before += length;
        if (at + 1 == road.line.size()) {
            if (before > begun + kSame)
                end(road.line[at], before, true);
        } else if (before > begun) {
            piece.line.push_back(road.line[at]);
        }
    }
    return pieces;
}

} // namespace

std::vector<RoadPiece> Roads()
{
    const std::vector<Road> roads = AllRoads();
    std::vector<std::vector<Cut>> cuts(roads.size());
    for (std::size_t one = 0; one < roads.size(); ++one) {
        for (std::size_t other = one + 1; other < roads.size(); ++other) {
            if (IsRail(roads[one]) || IsRail(roads[other]))
                continue;
            double along = 0;
            for (std::size_t i = 1; i < roads[one].line.size(); ++i) {
                const Line& first = roads[one].line;
                const Line& second = roads[other].line;
                const double length = Distance(first[i - 1], first[i]);
                double otherAlong = 0;
                for (std::size_t k = 1; k < second.size(); ++k) {
                    const double otherLength = Distance(second[k - 1], second[k]);
                    if (const auto meeting = Meet(first[i - 1], first[i], second[k - 1], second[k])) {
                        const Point at = Between(first[i - 1], first[i], meeting->first);
                        cuts[one].push_back({along + length * meeting->first, at});
                        cuts[other].push_back({otherAlong + otherLength * meeting->second, at});
                    }
                    otherAlong += otherLength;
                }
                along += length;
            }
        }
    }
    std::vector<RoadPiece> pieces;
    for (std::size_t at = 0; at < roads.size(); ++at) {
        CutWhereNumbersEnd(roads[at], cuts[at]);
        const std::vector<RoadPiece> cut = Cutting(roads[at], std::move(cuts[at]));
        pieces.insert(pieces.end(), cut.begin(), cut.end());
    }
    return pieces;
}

} // namespace vasclip::demo
