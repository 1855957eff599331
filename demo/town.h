#pragma once

#include "demo/dice.h"

#include <QString>
#include <QStringList>

namespace vasclip::demo {

/// How far one house number is from the next along a street.
inline constexpr double kFeetPerNumber = 5.5;

/// One street of the made-up town: a straight line along which the house numbers run.
struct Street
{
    QString name;
    int firstNumber = 1;
    int lastNumber = 99;
    double latitude = 0; ///< of the first number, decimal degrees
    double longitude = 0;
    double towards = 0; ///< bearing in degrees, clockwise from north
};

/// What is built in a neighbourhood, as letters of comp types.
struct Neighbourhood
{
    QString name;
    QString city, state, zip, county;
    QString code;  ///< short code of the assessor's office
    QString tract; ///< census tract
    QString floodMap;
    QString builds; ///< letters of FCSRLM
    double priceFactor = 1;
    int firstYear = 1950;
    int lastYear = 2000;
    double lotSquareFeet = 8000;
    QList<Street> streets;
};

struct Place
{
    double latitude = 0;
    double longitude = 0;
};

/// Where the miles of the town are counted from.
[[nodiscard]] Place TownHall();

/// Marlow Falls and the villages around it.
[[nodiscard]] const QList<Neighbourhood>& Town();

/// Where the middle of a street is beside a house number.
[[nodiscard]] Place MiddleOf(const Street& street, double number);

/// Where a house number stands: along its street, even numbers on the right.
[[nodiscard]] Place PlaceOf(const Street& street, int number);

/// Each city of the town once, as the city list keeps them: city, ", ", state, two blanks, ZIP, two blanks,
/// county.
[[nodiscard]] QStringList CityList();

} // namespace vasclip::demo
