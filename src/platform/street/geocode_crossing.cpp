#include "platform/street/geocode_crossing.h"

#include "platform/street/geocode_line.h"

#include <algorithm>
#include <set>

namespace vasclip::street {

namespace {

constexpr double kRoadFeet = 60;
constexpr double kJunctionFeet = 300;

std::vector<Place> Shared(const std::vector<std::vector<Place>>& one, const std::vector<std::vector<Place>>& other)
{
    std::set<std::pair<qint32, qint32>> places;
    for (const std::vector<Place>& line : one) {
        for (const Place place : line)
            places.emplace(place.latitude, place.longitude);
    }
    std::vector<Place> shared;
    for (const std::vector<Place>& line : other) {
        for (const Place place : line) {
            if (places.contains({place.latitude, place.longitude}))
                shared.push_back(place);
        }
    }
    return shared;
}

void AddEndsNear(const std::vector<std::vector<Place>>& ending, const std::vector<std::vector<Place>>& passing,
                 std::vector<Place>& found)
{
    for (const std::vector<Place>& line : ending) {
        for (const Place end : {line.front(), line.back()}) {
            const bool meets = std::any_of(passing.begin(), passing.end(), [end](const std::vector<Place>& other) {
                return FootOf(end, other).feet <= kRoadFeet;
            });
            if (meets)
                found.push_back(end);
        }
    }
}

} // namespace

std::vector<Place> Crossings(const std::vector<std::vector<Place>>& one, const std::vector<std::vector<Place>>& other)
{
    std::vector<Place> all = Shared(one, other);
    if (all.empty()) {
        AddEndsNear(one, other, all);
        AddEndsNear(other, one, all);
    }
    std::vector<Place> apart;
    for (const Place place : all) {
        const bool known = std::any_of(apart.begin(), apart.end(), [place](Place before) {
            return PlaneFeet(before, place) <= kJunctionFeet;
        });
        if (!known)
            apart.push_back(place);
    }
    return apart;
}

} // namespace vasclip::street
