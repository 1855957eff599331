#include "demo/town.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

struct NeighbourhoodRow
{
    const char16_t* name;
    const char16_t* city;
    const char16_t* zip;
    const char16_t* code;
    const char16_t* tract;
    const char16_t* builds;
    double priceFactor;
    int firstYear, lastYear;
    double lot;
    double north, east; ///< miles from the town hall
    std::array<const char16_t*, 7> streets;
};

constexpr NeighbourhoodRow kRows[] = {
    {u"Old Town",
     u"Marlow Falls",
     u"97991",
     u"OT",
     u"9901.01",
     u"FSR",
     1.06,
     1888,
     1936,
     5200,
     0.2,
     0.1,
     {u"Oak St", u"Maple St", u"Chandler St", u"Mill St", u"Church St", u"Court St", u"2nd St"}},
    {u"Riverside",
     u"Marlow Falls",
     u"97991",
     u"RS",
     u"9901.02",
     u"FCR",
     1.17,
     1906,
     1962,
     6400,
     -0.3,
     0.9,
     {u"River Rd", u"Ferry St", u"Heron Ln", u"Willow Walk", u"Cascade Ave", u"Towpath Ln", nullptr}},
    {u"Foundry District",
     u"Marlow Falls",
     u"97991",
     u"FD",
     u"9902.01",
     u"FSR",
     0.83,
     1898,
     1958,
     4600,
     0.7,
     -0.4,
     {u"Foundry St", u"Ironwood Ave", u"Depot St", u"10th St", u"12th St", u"Bellows Ave", nullptr}},
    {u"College Heights",
     u"Marlow Falls",
     u"97992",
     u"CH",
     u"9902.02",
     u"FCSR",
     1.2,
     1946,
     1978,
     8800,
     0.9,
     -1.4,
     {u"Juniper Dr", u"Scholars Ln", u"Laurel Hill Rd", u"Observatory Dr", u"Prospect Ter", u"Quadrangle Ct",
      nullptr}},
    {u"Orchard Park",
     u"Marlow Falls",
     u"97992",
     u"OP",
     u"9903.01",
     u"FSR",
     0.95,
     1953,
     1974,
     9600,
     -0.8,
     -1.3,
     {u"Pippin St", u"Gravenstein Ave", u"Bartlett Ave", u"Orchard Loop", u"Quince Ct", u"Seckel St",
      nullptr}},
    {u"Meadowlark",
     u"Marlow Falls",
     u"97993",
     u"ML",
     u"9903.02",
     u"FC",
     1.02,
     1971,
     1996,
     9200,
     1.5,
     0.8,
     {u"Meadowlark Ln", u"Bobolink Ct", u"Finch Dr", u"Wren Way", u"Plover Pl", u"Kestrel Dr", nullptr}},
    {u"Whispering Falls Estates",
     u"Marlow Falls",
     u"97993",
     u"WF",
     u"9904.00",
     u"F",
     1.42,
     2001,
     2023,
     15400,
     2.2,
     1.7,
     {u"Northwest Whispering Falls Dr", u"Sundial Ridge Dr", u"Copper Kettle Way", u"Summit Crest Dr",
      u"Upper Observatory Overlook Lane", nullptr, nullptr}},
    {u"Lakeview Commons",
     u"Marlow Falls",
     u"97993",
     u"LC",
     u"9904.00",
     u"C",
     1.1,
     1986,
     2016,
     2600,
     1.2,
     1.9,
     {u"Lakeview Commons Dr", u"Boathouse Ct", u"Marina Way", u"Regatta Ln", nullptr, nullptr, nullptr}},
    {u"North Marlow",
     u"North Marlow",
     u"97998",
     u"NM",
     u"9905.00",
     u"FSR",
     0.97,
     1924,
     1988,
     10800,
     4.1,
     0.2,
     {u"Station Rd", u"Creamery Rd", u"Elm Arch Ave", u"Schoolhouse Rd", u"Parish Ln", nullptr, nullptr}},
    {u"Tannery Bend",
     u"Tannery Bend",
     u"97994",
     u"TB",
     u"9906.00",
     u"FRL",
     0.8,
     1908,
     1986,
     13600,
     -4.4,
     2.1,
     {u"Tanner Rd", u"Bridge St", u"Hide House Ln", u"Oxbow Rd", u"Gristle Creek Rd", nullptr, nullptr}},
    {u"Hollins Mill",
     u"Hollins Mill",
     u"97995",
     u"HM",
     u"9907.00",
     u"FSL",
     0.88,
     1912,
     2004,
     14800,
     -1.6,
     -5.2,
     {u"Millrace Rd", u"Cooper St", u"Grist Stone Rd", u"Sawyer Ln", u"Weir St", nullptr, nullptr}},
    {u"Granite Park",
     u"Quarry Gap",
     u"97996",
     u"GP",
     u"9908.00",
     u"M",
     0.72,
     1976,
     2019,
     5600,
     2.6,
     -4.6,
     {u"Slate Loop", u"Granite Park Dr", u"Pumice Ct", u"Feldspar Way", u"Basalt Ct", nullptr, nullptr}},
    {u"Saint Verena",
     u"Saint Verena",
     u"97997",
     u"SV",
     u"9909.00",
     u"FC",
     1.11,
     1968,
     2014,
     9900,
     -3.1,
     4.8,
     {u"Côte du Moulin", u"Café Terrace Ln", u"Señora Alvarado Way", u"Rue des Peupliers", u"Überlin Ct",
      u"Père Marquette Dr", nullptr}},
    {u"Antelope Flat",
     u"Quarry Gap",
     u"97996",
     u"AF",
     u"9910.00",
     u"LM",
     0.62,
     1979,
     2012,
     96000,
     6.3,
     -3.4,
     {u"County Road 14", u"Old Quarry Rd", u"Antelope Flat Rd", u"Upper Hollins Creek Rd", u"Sage Hen Rd",
      u"Lower Obsidian Escarpment Rd", nullptr}},
};

constexpr double kTownHallLatitude = 44.8215;
constexpr double kTownHallLongitude = -120.9542;
constexpr double kMilesPerDegree = 69.0;

double LongitudeShrink(double latitude)
{
    return std::cos(latitude * 3.14159265358979 / 180);
}

QString Text(const char16_t* text)
{
    return QString::fromUtf16(text);
}

QList<Neighbourhood> BuildTown()
{
    Dice dice(97990);
    QList<Neighbourhood> town;
    for (const NeighbourhoodRow& row : kRows) {
        Neighbourhood place;
        place.name = Text(row.name);
        place.city = Text(row.city);
        place.state = u"OR"_s;
        place.zip = Text(row.zip);
        place.county = u"Calder"_s;
        place.code = Text(row.code);
        place.tract = Text(row.tract);
        place.floodMap = u"41990C0%1%2"_s.arg(dice.Between(120, 480)).arg(dice.Chance(0.5) ? u'D' : u'E');
        place.builds = Text(row.builds);
        place.priceFactor = row.priceFactor;
        place.firstYear = row.firstYear;
        place.lastYear = row.lastYear;
        place.lotSquareFeet = row.lot;
        int n = 0;
        for (const char16_t* name : row.streets) {
            if (name == nullptr)
                break;
            Street street;
            street.name = Text(name);
            const bool rural = row.lot > 50000;
            street.firstNumber = rural ? dice.Between(10, 60) * 100 : dice.Between(1, 12) * 100;
            if (street.name.size() > 27) // together exactly as long as an address may be
                street.firstNumber = street.name.size() == 29 ? 12000 : dice.Between(1, 5) * 100;
            street.lastNumber = street.firstNumber + (rural ? 1800 : dice.Between(2, 5) * 100 - 1);
            const double north = row.north + (n - 3) * 0.11;
            const double east = row.east + dice.Real(-0.25, 0.25);
            street.latitude = kTownHallLatitude + north / kMilesPerDegree;
            street.longitude =
                kTownHallLongitude + east / (kMilesPerDegree * LongitudeShrink(kTownHallLatitude));
            street.towards = (n % 2 == 0 ? 88 : 2) + dice.Real(-6, 6);
            place.streets.append(street);
            ++n;
        }
        town.append(place);
    }
    return town;
}

/// @param feet  to the right of the street's middle
Place Beside(const Street& street, double number, double feet)
{
    const double along = (number - street.firstNumber) * kFeetPerNumber / 5280;
    const double aside = feet / 5280;
    const double bearing = street.towards * 3.14159265358979 / 180;
    const double north = along * std::cos(bearing) - aside * std::sin(bearing);
    const double east = along * std::sin(bearing) + aside * std::cos(bearing);
    return {street.latitude + north / kMilesPerDegree,
            street.longitude + east / (kMilesPerDegree * LongitudeShrink(street.latitude))};
}

} // namespace

const QList<Neighbourhood>& Town()
{
    static const QList<Neighbourhood> town = BuildTown();
    return town;
}

Place TownHall()
{
    return {kTownHallLatitude, kTownHallLongitude};
}

Place PlaceOf(const Street& street, int number)
{
    return Beside(street, number, number % 2 == 0 ? 60.0 : -60.0);
}

Place MiddleOf(const Street& street, double number)
{
    return Beside(street, number, 0);
}

QStringList CityList()
{
    QStringList cities;
    for (const Neighbourhood& place : Town()) {
        const QString entry =
            place.city + u", "_s + place.state + u"  "_s + place.zip + u"  "_s + place.county;
        if (!cities.contains(entry))
            cities.append(entry);
    }
    return cities;
}

} // namespace vasclip::demo
