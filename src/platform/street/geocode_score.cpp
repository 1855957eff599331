#include "platform/street/geocode_score.h"

#include "platform/street/geocode_line.h"

#include <algorithm>

namespace vasclip::street {

using namespace Qt::StringLiterals;

namespace {

constexpr double kFeetPerMile = 5280;
/// How far around a town's middle people give its name as theirs.
constexpr double kTownReach = 10 * kFeetPerMile;
constexpr double kCityReach = 25 * kFeetPerMile;
constexpr qint64 kCityPeople = 200000;
constexpr qint32 kBorder = 30000; // two miles beyond an outline

double DirectionScore(const StreetName& asked, const StreetName& street)
{
    if (asked.before == street.before && asked.behind == street.behind)
        return 1;
    const bool askedAny = asked.before != Direction::None || asked.behind != Direction::None;
    const bool streetAny = street.before != Direction::None || street.behind != Direction::None;
    if (!askedAny)
        return 0.94;
    if (!streetAny)
        return 0.92;
    const Direction one = asked.before != Direction::None ? asked.before : asked.behind;
    const Direction other = street.before != Direction::None ? street.before : street.behind;
    if (one == other) // behind instead of before, or one of two
        return asked.before == street.before || asked.behind == street.behind ? 0.93 : 0.95;
    return DirectionsMeet(one, other) ? 0.8 : 0.7;
}

bool EndsWithType(const QString& base, StreetType& type, QString& rest)
{
    const qsizetype blank = base.lastIndexOf(u' ');
    if (blank <= 0)
        return false;
    type = TypeOf(QStringView(base).sliced(blank + 1));
    rest = base.left(blank);
    return type != 0;
}

Extent Grown(Extent extent, qint32 by)
{
    extent.low.latitude -= by;
    extent.low.longitude -= by;
    extent.high.latitude += by;
    extent.high.longitude += by;
    return extent;
}

} // namespace

double NameScore(const StreetName& asked, const StreetName& street)
{
    double score = DirectionScore(asked, street);
    if (asked.type != street.type)
        score *= asked.type == 0 ? 0.95 : street.type == 0 ? 0.9 : 0.86;
    return score;
}

double ErrorScore(int errors)
{
    return errors == 0 ? 1 : errors == 1 ? 0.9 : 0.78;
}

std::vector<NameReading> ReadingsOf(const StreetName& asked)
{
    std::vector<NameReading> readings{{asked, 1}};
    const auto add = [&readings](const QString& base, StreetType type, const StreetName& like, double score) {
        StreetName name = like;
        name.base = base;
        name.type = type;
        name.typeFirst = false;
        readings.push_back({name, score});
    };
    for (const QString& other : OtherBases(asked.base))
        add(other, asked.type, asked, 0.98);
    if (asked.type != 0 && !asked.typeFirst)
        add(asked.base + u' ' + TypeWhole(asked.type), 0, asked, 0.97);
    if (asked.typeFirst)
        add(TypeWhole(asked.type) + u' ' + asked.base, 0, asked, 0.97);
    StreetType type = 0;
    QString rest;
    if (asked.type == 0 && EndsWithType(asked.base, type, rest))
        add(rest, type, asked, 0.97);
    else if (asked.type != 0 && EndsWithType(asked.base, type, rest))
        add(rest, type, asked, 0.93);
    // "North Shore" of a street that a source calls "Northshore", and "West" of "West St".
    if (asked.before != Direction::None) {
        static constexpr const char16_t* kWhole[] = {u"",      u"NORTH",     u"NORTHEAST", u"EAST",     u"SOUTHEAST",
                                                     u"SOUTH", u"SOUTHWEST", u"WEST",      u"NORTHWEST"};
        StreetName bare = asked;
        bare.before = Direction::None;
        add(QString::fromUtf16(kWhole[static_cast<int>(asked.before)]) + asked.base, asked.type, bare, 0.95);
    }
    return readings;
}

Whereabouts::Whereabouts(const NameIndex& index, const Address& asked)
    : m_asked(asked)
{
    if (!asked.zip.isEmpty())
        m_zip = index.Zip(asked.zip);
    if (m_zip)
        m_counties = m_zip->counties;
    if (!asked.city.isEmpty()) {
        const auto inState = [&](const KnownPlace& place) {
            const QString state = index.State(place.county);
            return asked.state.isEmpty() || state.isEmpty() || state == asked.state;
        };
        const auto keep = [&](std::vector<KnownPlace> places) {
            std::erase_if(places, [&](const KnownPlace& place) { return !inState(place); });
            return places;
        };
        m_places = keep(index.Places(asked.city));
        if (m_places.empty()) {
            m_places = keep(index.SimilarPlaces(asked.city));
            if (!m_places.empty()) {
                m_cityMisspelt = true;
                const int least = m_places.front().errors;
                std::erase_if(m_places, [least](const KnownPlace& place) { return place.errors > least; });
            }
        }
        for (const KnownPlace& place : m_places)
            m_counties.push_back(place.county);
    }
    std::sort(m_counties.begin(), m_counties.end());
    m_counties.erase(std::unique(m_counties.begin(), m_counties.end()), m_counties.end());
}

bool Whereabouts::NearCity(Place place) const
{
    return std::any_of(m_places.begin(), m_places.end(), [place](const KnownPlace& city) {
        return Grown(city.extent, kBorder).Contains(place) ||
               PlaneFeet(city.place, place) <= (city.population >= kCityPeople ? kCityReach : kTownReach);
    });
}

Whereabouts::Agreement Whereabouts::Of(Place place, const QString& zip, const QString& city,
                                       const QString& state) const
{
    Agreement agreement;
    if (!m_asked.state.isEmpty() && !state.isEmpty() && state != m_asked.state)
        agreement.score *= 0.6;
    bool zipDiffers = false;
    if (!m_asked.zip.isEmpty()) {
        if (zip == m_asked.zip) {
            agreement.located = true;
        } else if (!m_zip) {
            agreement.score *= 0.96;
        } else if (Grown(m_zip->extent, kBorder / 3).Contains(place)) {
            agreement.score *= zip.isEmpty() ? 0.98 : 0.95;
            agreement.located = zip.isEmpty();
        } else {
            zipDiffers = true;
            agreement.score *= PlaneFeet(m_zip->centre, place) < kTownReach ? 0.9 : 0.75;
        }
    }
    if (!m_asked.city.isEmpty()) {
        if (city == m_asked.city) {
            agreement.located = agreement.located || !zipDiffers;
        } else if (m_places.empty()) {
            agreement.score *= agreement.located ? 0.98 : 0.93;
        } else if (NearCity(place)) {
            agreement.score *= m_cityMisspelt ? 0.97 : 0.99;
            agreement.located = agreement.located || (!zipDiffers && !m_cityMisspelt);
        } else {
            // A post town may be far off, so a ZIP that agrees counts for more.
            agreement.score *= agreement.located ? 0.93 : 0.75;
        }
    }
    return agreement;
}

} // namespace vasclip::street
