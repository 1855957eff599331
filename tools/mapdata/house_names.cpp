#include "mapdata/house_names.h"

#include "platform/street/address_parser.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace vasclip::mapdata {

namespace {

using street::AddressPoint;
using street::Place;

constexpr qint32 kSquare = 8'000; ///< of a degree's millionths: a name again after some 800 m
constexpr std::size_t kFewest = 2; ///< a house alone may as well be a mistake
constexpr std::size_t kTown = 20;

/// The middle one by its latitude and by its longitude: houses far off move it little.
Place Middle(const std::vector<Place>& houses)
{
    const auto middle = [](std::vector<qint32> of) {
        const auto at = of.begin() + static_cast<std::ptrdiff_t>(of.size() / 2);
        std::nth_element(of.begin(), at, of.end());
        return *at;
    };
    std::vector<qint32> latitudes;
    std::vector<qint32> longitudes;
    for (const Place house : houses) {
        latitudes.push_back(house.latitude);
        longitudes.push_back(house.longitude);
    }
    return {middle(std::move(latitudes)), middle(std::move(longitudes))};
}

/// "N PLEASANT ST" as a map has it, "N Pleasant St"; a name that has small letters stays as it is written.
QString AsOnAMap(const QString& name)
{
    if (name != name.toUpper())
        return name;
    QString text = name;
    qsizetype start = 0;
    for (qsizetype at = 0; at <= text.size(); ++at) {
        if (at < text.size() && text.at(at).isLetterOrNumber())
            continue;
        const QStringView word = QStringView(name).sliced(start, at - start);
        static constexpr QStringView kShort[] = {u"NE", u"NW", u"SE", u"SW", u"US", u"VT", u"CR"};
        if (std::find(std::begin(kShort), std::end(kShort), word) == std::end(kShort)) {
            for (qsizetype letter = start + 1; letter < at; ++letter)
                text[letter] = text.at(letter).toLower();
        }
        start = at + 1;
    }
    return text;
}

} // namespace

std::vector<street::PlaceName> NamesOfHouses(const std::vector<AddressPoint>& houses, const QSet<QString>& lines,
                                             const QSet<QString>& places)
{
    QSet<QString> drawn;
    for (const QString& line : lines)
        drawn.insert(street::ParseStreet(line).Text());
    QSet<QString> known;
    for (const QString& place : places)
        known.insert(place.toUpper());
    QHash<QString, bool> hasLine; // names come again and again
    std::map<std::tuple<QString, qint32, qint32>, std::vector<Place>> streets; ///< by name and square
    std::map<QString, std::vector<Place>> towns;
    for (const AddressPoint& house : houses) {
        auto line = hasLine.constFind(house.street);
        if (line == hasLine.cend())
            line = hasLine.insert(house.street, drawn.contains(street::ParseStreet(house.street).Text()));
        if (!*line)
            streets[{house.street, house.place.latitude / kSquare, house.place.longitude / kSquare}].push_back(house.place);
        if (!house.city.isEmpty() && !known.contains(house.city.toUpper()))
            towns[house.city].push_back(house.place);
    }
    std::vector<street::PlaceName> names;
    for (const auto& [at, along] : streets) {
        if (along.size() >= kFewest)
            names.push_back({AsOnAMap(std::get<QString>(at)), street::PlaceKind::Street, 0, Middle(along), {}});
    }
    for (const auto& [town, in] : towns) {
        if (in.size() >= kTown)
            names.push_back({AsOnAMap(town), street::PlaceKind::Town, 0, Middle(in), {}});
    }
    return names;
}

} // namespace vasclip::mapdata
