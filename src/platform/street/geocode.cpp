#include "platform/street/geocode.h"

#include "platform/street/geocode_line.h"
#include "platform/street/geocode_search.h"
#include "platform/street/reverse.h"

#include <algorithm>

namespace vasclip::street {

namespace {

constexpr double kSureScore = 0.81;
constexpr double kSureLead = 0.05; ///< before the next that lies elsewhere
constexpr double kSamePlaceFeet = 150;

bool Before(const Hit& one, const Hit& other)
{
    const Candidate& first = one.candidate;
    const Candidate& second = other.candidate;
    if (first.score != second.score)
        return first.score > second.score;
    return std::tie(first.foundBy, first.uncertaintyFeet, first.address, first.place.latitude, first.place.longitude) <
           std::tie(second.foundBy, second.uncertaintyFeet, second.address, second.place.latitude, second.place.longitude);
}

/// The best of those that are one place under one name.
std::vector<Hit> Distinct(std::vector<Hit> hits)
{
    std::sort(hits.begin(), hits.end(), Before);
    std::vector<Hit> distinct;
    for (Hit& hit : hits) {
        const bool known = std::any_of(distinct.begin(), distinct.end(), [&hit](const Hit& better) {
            const double feet = PlaneFeet(better.candidate.place, hit.candidate.place);
            return feet < 30 || (feet < kSamePlaceFeet && better.candidate.address == hit.candidate.address);
        });
        if (!known)
            distinct.push_back(std::move(hit));
    }
    return distinct;
}

/// A careful person would place it without a question: a house or a crossing, in the town or ZIP that was asked for, and
/// nothing else nearly as good.
bool IsSure(const std::vector<Hit>& hits)
{
    const Hit& best = hits.front();
    const FoundBy by = best.candidate.foundBy;
    if (by != FoundBy::Point && by != FoundBy::Range && by != FoundBy::Intersection)
        return false;
    if (!best.located || best.doubtful || best.candidate.score < kSureScore)
        return false;
    return hits.size() < 2 || best.candidate.score - hits[1].candidate.score >= kSureLead ||
           PlaneFeet(best.candidate.place, hits[1].candidate.place) < kSamePlaceFeet;
}

} // namespace

std::vector<Candidate> MapGeocoder::Find(const QString& address, int limit) const
{
    const NameIndex* index = m_store.Index();
    if (index == nullptr || limit <= 0)
        return {};
    const IsPlace isPlace = [index](const QString& name) { return !index->Places(name).empty(); };
    Address asked = ParseAddress(address, isPlace);
    std::vector<Hit> hits = Search(m_store, *index, asked).Run();
    if (hits.empty()) {
        // A place's name may be part of a street's: "Old Prattville Hwy" with no comma.
        const Address other = ParseAddress(address);
        if (other.Text() != asked.Text()) {
            asked = other;
            hits = Search(m_store, *index, asked).Run();
        }
    }
    if (hits.empty())
        return {};
    hits = Distinct(std::move(hits));
    hits.front().candidate.sure = IsSure(hits);
    std::vector<Candidate> candidates;
    for (const Hit& hit : hits) {
        if (candidates.size() == static_cast<std::size_t>(limit))
            break;
        candidates.push_back(hit.candidate);
    }
    return candidates;
}

std::vector<Candidate> MapGeocoder::Near(Place place, double withinFeet) const
{
    return AddressesNear(m_store, place, withinFeet);
}

} // namespace vasclip::street
