#include "demo/market_types.h"

#include "platform/text/text.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

QString Grouped(int number)
{
    QString digits = QString::number(number);
    for (qsizetype at = digits.size() - 3; at > 0; at -= 3)
        digits.insert(at, u',');
    return digits;
}

QString OneOf(Dice& dice, std::initializer_list<const char*> texts)
{
    return QString::fromLatin1(*(texts.begin() + dice.Below(static_cast<int>(texts.size()))));
}

QString GarageText(int cars)
{
    return cars == 0 ? u"None"_s : u"%1 Car Garage"_s.arg(cars);
}

void PutRooms(Draft& draft, int bedrooms, double baths)
{
    draft.Put("ROOMCOUNT", bedrooms + draft.dice.Between(2, 4));
    draft.Put("BEDROOM", bedrooms);
    draft.Put("BATH", QString::number(baths));
}

double Baths(Dice& dice, int bedrooms)
{
    return std::clamp(1 + 0.5 * dice.Below(bedrooms + 1), 1.0, 4.5);
}

void PutUnits(Draft& draft, int units, bool rents)
{
    static const char* const names[4][7] = {
        {"UNITS_1", "VACANT_1", "SQFT_1", "ROOMCOUNT1", "BEDROOMS1", "BATHS1", "MONTHRENT"},
        {"UNITS_2", "VACANT_2", "SQFT_2", "ROOMCOUNT2", "BEDROOMS2", "BATHS2", "MONTHRENT2"},
        {"UNITS_3", "VACANT_3", "SQFT_3", "ROOMCOUNT3", "BEDROOMS3", "BATHS3", "MONTHRENT3"},
        {"UNITS_4", "VACANT_4", "SQFT_4", "ROOMCOUNT4", "BEDROOMS4", "BATHS4", "MONTHRENT4"}};
    int vacant = 0;
    int rent = 0;
    int area = 0;
    for (int i = 0; i < units; ++i) {
        const int bedrooms = draft.dice.Between(1, 3);
        const int squareFeet = 420 + bedrooms * 210 + draft.dice.Below(18) * 10;
        const bool empty = draft.dice.Chance(0.08);
        const int monthly = static_cast<int>((520 + squareFeet * 0.72) * draft.place.priceFactor *
                                             draft.dice.Real(0.93, 1.08) / 5) *
                            5;
        draft.Put(names[i][0], 1);
        draft.Put(names[i][1], empty ? 1 : 0);
        draft.Put(names[i][2], squareFeet);
        draft.Put(names[i][3], bedrooms + 2);
        draft.Put(names[i][4], bedrooms);
        draft.Put(names[i][5], bedrooms > 2 ? 2 : 1);
        if (rents)
            draft.Put(names[i][6], monthly);
        vacant += empty ? 1 : 0;
        rent += monthly;
        area += squareFeet;
    }
    draft.Put("NUMBUNITS", units);
    draft.Put("NUMVACANT", vacant);
    draft.Put("GRSMORENT", rent);
    draft.Put("GLA", area);
}

} // namespace

void Draft::PutPrice(double price, int gla)
{
    const int rounded = static_cast<int>(price / 500 + 0.5) * 500;
    Put("SELLINGPR", rounded);
    Put("PRICEFLD", Grouped(rounded));
    Put("PRICEGLA",
        gla > 0 && rounded > 0 ? text::Format(static_cast<double>(rounded) / gla, u"###.##"_s) : u"0"_s);
}

double Draft::Market(double perSquareFoot)
{
    const double monthsBack = static_cast<double>(sale.daysTo(DemoToday())) / 30.4;
    const double age = std::min(sale.year() - year, 90);
    const double worn =
        1 - 0.0032 * age + (age > 75 ? 0.05 : 0); // the very old ones are kept for their charm
    return perSquareFoot * place.priceFactor * worn * std::pow(0.9965, monthsBack) *
           std::exp(0.06 * dice.Bell());
}

void Draft::PutSite(double squareFeet)
{
    if (squareFeet > 43560)
        Put("SITE", u"%1 ac"_s.arg(squareFeet / 43560, 0, 'f', 2));
    else
        Put("SITE", Grouped(static_cast<int>(squareFeet / 10) * 10) + u" sf"_s);
}

void Draft::PutConditionAndUtility()
{
    const int age = sale.year() - year;
    Put("CONDITION", age < 12 ? OneOf(dice, {"Good", "Very Good", "Good"})
                              : OneOf(dice, {"Average", "Average", "Good", "Avg/Good", "Fair/Avg"}));
    Put("CONSTRQUAL", place.priceFactor > 1.15 ? OneOf(dice, {"Good", "Good", "Avg/Good"})
                                               : OneOf(dice, {"Average", "Average", "Avg/Good"}));
    Put("FUNCTUTIL", OneOf(dice, {"Average", "Average", "Typical", "Good"}));
    Put("LOCATION", OneOf(dice, {"Suburban", "Residential", "Average", "Suburban/Avg"}));
    Put("LEASEFEE", "Fee Simple");
}

void PutSingleFamily(Draft& draft)
{
    Dice& dice = draft.dice;
    struct Style
    {
        Design design;
        const char* text;
        const char* stories;
        int from, to; ///< years it was built in
        double size;
    };
    static const Style styles[] = {{Design::Farmhouse, "Farmhouse", "2", 1880, 1930, 1.1},
                                   {Design::Bungalow, "Bungalow", "1.5", 1904, 1946, 0.85},
                                   {Design::CapeCod, "Cape Cod", "1.5", 1928, 1975, 0.9},
                                   {Design::Ranch, "Ranch", "1", 1948, 2023, 0.95},
                                   {Design::SplitLevel, "Split Level", "2", 1958, 1990, 1.05},
                                   {Design::TwoStorey, "Colonial", "2", 1905, 2023, 1.25}};
    const Style* style = &styles[0];
    do {
        style = &styles[dice.Below(6)];
    } while (draft.year < style->from || draft.year > style->to);

    const int gla = static_cast<int>(std::clamp((1620 + 430 * dice.Bell() + (draft.year - 1960) * 5) *
                                                    style->size * std::sqrt(draft.place.priceFactor),
                                                720.0, 4400.0));
    const int bedrooms = std::clamp(1 + gla / 620 + dice.Below(2), 2, 5);
    const double baths = Baths(dice, bedrooms);
    const int cars = draft.year < 1930   ? dice.Below(2)
                     : draft.year < 1965 ? dice.Below(3)
                                         : dice.Between(1, 3);
    const bool fireplace = dice.Chance(0.55);
    const bool basement = draft.year < 1985 && dice.Chance(0.55);
    const double lot = draft.place.lotSquareFeet * dice.Real(0.7, 1.5);
    const double price = 52000 * draft.place.priceFactor + draft.Market(168) * gla + cars * 11000 +
                         baths * 6500 + (fireplace ? 4500 : 0) + (basement ? 14000 : 0) + lot * 1.1;

    draft.Put("GLA", gla);
    draft.PutPrice(price, gla);
    PutRooms(draft, bedrooms, baths);
    draft.PutSite(lot);
    draft.PutConditionAndUtility();
    draft.Put("DESIGNAPPL", QString::fromLatin1(style->text) + OneOf(dice, {"/Avg", "/Good", "/Average"}));
    draft.Put("STRCODE", style->stories);
    draft.Put("CTSCODE", OneOf(dice, {"T", "C", "T"}));
    draft.Put("BASEMENT", basement ? OneOf(dice, {"Full", "Partial", "900 sf"}) : u"Crawl Space"_s);
    draft.Put("FINISHED", basement && dice.Chance(0.5)
                              ? OneOf(dice, {"50% Finished", "Rec Room", "75% Finished"})
                              : u"None"_s);
    draft.Put("AC", draft.year > 1990 ? OneOf(dice, {"FWA/CAC", "Heat Pump"})
                                      : OneOf(dice, {"FWA/None", "FWA/CAC", "HWBB/None"}));
    draft.Put("ENERGYEFF1", OneOf(dice, {"Typical", "Dbl Pane Windows", "Solar Panels", "Ins. Doors"}));
    draft.Put("ENERGYEFF2", OneOf(dice, {"None", "Ceiling Fans", "None"}));
    draft.Put("PARKING", GarageText(cars));
    draft.Put("PORCHPATI1", OneOf(dice, {"Porch/Deck", "Covered Porch", "Porch/Patio", "Deck"}));
    draft.Put("PORCHPATI2", OneOf(dice, {"Fence", "None", "Fence", "Fence/Pool"}));
    draft.Put("FIREPLACES",
              fireplace ? OneOf(dice, {"1 Fireplace", "1 Fireplace", "2 Fireplaces"}) : u"None"_s);
    draft.PutTick("STORAGE", dice.Chance(0.5));
    draft.Put("INTDECOR", OneOf(dice, {"Average", "Updated", "Good"}));
    draft.Put("OTHER1", OneOf(dice, {"None", "Sprinklers", "Workshop"}));
    draft.Put("OTHER2", OneOf(dice, {"None", "Hot Tub", "None"}));
    draft.Put("OTHERAREA1", dice.Chance(0.2) ? "Sunroom" : "None");
    draft.Put("FINANCETYP", OneOf(dice, {"Conventional", "FHA", "VA", "Cash"}));
    draft.Put("MKTCHANGE", OneOf(dice, {"Stable", "Increasing", "Stable"}));
    draft.comp.look.design = style->design;
    draft.comp.look.garageCars = cars;
    draft.comp.look.fireplace = fireplace;
    draft.comp.look.sizeStep = gla < 1250 ? 0 : gla < 2100 ? 1 : 2;
}

void PutCondo(Draft& draft)
{
    Dice& dice = draft.dice;
    draft.year = std::max(draft.year, 1958); // nobody here split older houses
    const bool town = dice.Chance(0.45);
    const int gla = std::clamp(static_cast<int>(1020 + 230 * dice.Bell()), 520, 2100);
    const int bedrooms = std::clamp(gla / 480, 1, 3);
    const double baths = Baths(dice, bedrooms);
    const int project = dice.Between(3, 24) * (town ? 4 : 6);
    draft.Put("GLA", gla);
    draft.PutPrice(21000 + draft.Market(186) * gla, gla);
    PutRooms(draft, bedrooms, baths);
    draft.PutConditionAndUtility();
    draft.Put("SITE", "Common");
    draft.Put("DESIGNAPPL", town ? "Townhouse/Avg" : "Garden Flat/Avg");
    draft.Put("STRCODE", town ? "2" : "1");
    draft.Put("CTSCODE", "C");
    draft.Put("BASEMENT", "None");
    draft.Put("FINISHED", "None");
    draft.Put("AC", OneOf(dice, {"FWA/CAC", "Elec BB/Wall", "Heat Pump"}));
    draft.Put("ENERGYEFF1", OneOf(dice, {"Dbl Pane Windows", "Typical"}));
    draft.Put("PARKING", town ? u"1 Car Garage"_s : OneOf(dice, {"1 Assigned", "2 Assigned", "Carport"}));
    draft.Put("PORCHPATI1", town ? "Patio" : "Balcony");
    draft.Put("FIREPLACES", OneOf(dice, {"None", "1 Fireplace", "None"}));
    draft.PutTick("STORAGE", dice.Chance(0.6));
    draft.Put("COMMONELEM", OneOf(dice, {"Clubhouse/Pool", "Landscaping", "Clubhouse", "Pool/Court"}));
    draft.Put("PROJSIZE", u"%1 Units"_s.arg(project));
    draft.Put("FLOORLOCAL", town ? u"1-2"_s : OneOf(dice, {"1st Floor", "2nd Floor", "3rd Floor"}));
    draft.Put("MONTHASSES", dice.Between(36, 98) * 5);
    draft.Put("UTILFURN1", "Water/Sewer");
    draft.Put("UTILFURN2", "Garbage");
    draft.comp.look.design = town ? Design::Townhouses : Design::CondoBlock;
    draft.comp.look.garageCars = town ? 1 : 0;
    draft.comp.look.sizeStep = dice.Below(3);
}

void PutUnitSale(Draft& draft)
{
    Dice& dice = draft.dice;
    const int units = dice.Between(2, 4);
    PutUnits(draft, units, true);
    const int area = draft.comp.fields.value(u"GLA"_s).toInt();
    const int rent = draft.comp.fields.value(u"GRSMORENT"_s).toInt();
    const double byRent =
        rent * dice.Real(112, 134); // one after the other: operands have no order of their own
    const double byArea = draft.Market(118) * area;
    draft.PutPrice((byRent + byArea) / 2 + 30000, area);
    draft.PutSite(draft.place.lotSquareFeet * dice.Real(0.9, 1.6));
    draft.PutConditionAndUtility();
    draft.Put("DESIGNAPPL", units == 2 ? "Duplex/Avg" : units == 3 ? "Triplex/Avg" : "Fourplex/Avg");
    draft.Put("STRCODE", units == 2 ? "1" : "2");
    draft.Put("CTSCODE", "T");
    draft.Put("BASEMENT", OneOf(dice, {"None", "Crawl Space", "Full"}));
    draft.Put("AC", OneOf(dice, {"Elec BB/None", "FWA/None", "Wall Heat"}));
    draft.Put("PARKING", units == 2 ? "2 Garages" : "Open Parking");
    draft.Put("PORCHPATI1", OneOf(dice, {"Stoops", "Porches", "Balconies"}));
    draft.Put("RENTEXTRA", OneOf(dice, {"Coin laundry", "None", "Storage lockers"}));
    draft.PutTick("FURNISHED", dice.Chance(0.3));
    draft.PutTick("STORAGE", dice.Chance(0.4));
    draft.comp.look.design = units == 2 ? Design::Duplex : Design::Fourplex;
    draft.comp.look.garageCars = units == 2 ? 1 : 0;
}

void PutUnitRental(Draft& draft)
{
    Dice& dice = draft.dice;
    const int units = dice.Between(1, 4);
    PutUnits(draft, units, true);
    draft.comp.fields.remove(u"GLA"_s);
    draft.Put("PRICEGLA", "0");
    draft.Put("LEASEDATE", DateText(draft.sale));
    draft.Put("RENTFLD", Grouped(draft.comp.fields.value(u"MONTHRENT"_s).toInt()));
    draft.Put("RENTCONCES", OneOf(dice, {"None", "None", "First month free"}));
    draft.Put("FUNCUTIL1", OneOf(dice, {"Average", "Typical"}));
    draft.PutTick("UTILFURN1", dice.Chance(0.7));
    draft.Put("UTILFURN2", OneOf(dice, {"Range/Refrig", "Range/Refrig/Dishw", "None"}));
    draft.Put("UTILFURN3", OneOf(dice, {"None", "Heat"}));
    draft.PutTick("FURNISHED", dice.Chance(0.2));
    draft.Put("AC", OneOf(dice, {"Elec BB/None", "FWA/None", "Wall Heat"}));
    draft.Put("PARKING", OneOf(dice, {"Open Parking", "1 Car Garage", "Street"}));
    draft.Put("DESCRIPT1", u"%1 unit%2 built %3"_s.arg(units).arg(units == 1 ? u"" : u"s").arg(draft.year));
    draft.Put("DESCRIPT2",
              OneOf(dice, {"Walk to bus line", "Near schools", "Off-street parking", "Fenced yard"}));
    draft.Put("LOCATION", OneOf(dice, {"Suburban", "Residential", "Average"}));
    draft.Put("CONDITION", OneOf(dice, {"Average", "Good", "Avg/Good"}));
    draft.Put("DESIGNAPPL", units == 1 ? "Single/Avg" : units == 2 ? "Duplex/Avg" : "Fourplex/Avg");
    draft.comp.look.design = units == 1 ? Design::Ranch : units == 2 ? Design::Duplex : Design::Fourplex;
    draft.comp.look.garageCars = units == 1 ? 1 : 0;
    draft.comp.look.sizeStep = 0;
}

void PutLand(Draft& draft)
{
    Dice& dice = draft.dice;
    const double acres = std::exp(dice.Real(std::log(0.3), std::log(22)));
    const int front = static_cast<int>(std::sqrt(acres * 43560) * dice.Real(0.6, 1.1) / 5) * 5;
    draft.comp.fields.remove(u"YEARBUILT"_s);
    draft.Put("LANDSIZE", QString::number(acres, 'f', 2));
    draft.Put("RUNFT", u"%1 ft"_s.arg(front));
    draft.Put("SITE", u"%1 ac"_s.arg(acres, 0, 'f', 2));
    draft.PutPrice((26000 + 34000 * std::pow(acres, 0.62)) * (0.5 + draft.place.priceFactor / 2) *
                       std::exp(0.08 * dice.Bell()),
                   0);
    draft.Put("LOCATION", OneOf(dice, {"Rural", "Rural/Avg", "Rural/Good"}));
    draft.Put("LEASEFEE", "Fee Simple");
    draft.Put("DESCRIPT1",
              OneOf(dice, {"Level, open", "Gently sloping", "Rolling, part treed", "Level pasture"}));
    draft.Put("DESCRIPT2", OneOf(dice, {"Gravel access", "Paved access", "Easement access"}));
    draft.Put("DESCRIPT3", OneOf(dice, {"Power at street", "Power, well drilled", "None"}));
    draft.Put("DESCRIPT4", OneOf(dice, {"RR-5", "EFU", "RR-10", "AR"}));
    draft.Put("DESCRIPT5", OneOf(dice, {"None", "Septic approved", "Fenced", "Old barn"}));
    draft.PutTick("STORAGE", dice.Chance(0.2));
    draft.comp.look.design = Design::EmptyLot;
}

void PutManufactured(Draft& draft)
{
    Dice& dice = draft.dice;
    draft.year = std::max(draft.year, 1976);
    const bool wide = dice.Chance(0.7);
    const int width = wide ? 27 : 14;
    const int length = dice.Between(11, 17) * 4;
    const int gla = width * length;
    const int bedrooms = wide ? dice.Between(2, 4) : 2;
    draft.Put("GLA", gla);
    draft.PutPrice(24000 + draft.Market(102) * gla, gla);
    PutRooms(draft, bedrooms, bedrooms > 2 ? 2 : 1);
    draft.PutSite(draft.place.lotSquareFeet * dice.Real(0.8, 1.4));
    draft.Put("CONDITION", OneOf(dice, {"Average", "Good", "Avg/Good"}));
    draft.Put("CONSTRQUAL", "Average");
    draft.Put("LOCATION", OneOf(dice, {"Average", "Suburban"}));
    draft.Put("DESIGNAPPL", wide ? "Double Wide/Avg" : "Single Wide/Avg");
    draft.Put("STRCODE", "1");
    draft.Put("CTSCODE", "C");
    draft.Put("FUNCUTIL1", u"%1 x %2 ft"_s.arg(width).arg(length));
    draft.Put("FUNCUTIL2", OneOf(dice, {"Block skirting", "Vinyl skirting"}));
    draft.Put("FUNCUTIL3", OneOf(dice, {"Tied down", "On foundation"}));
    draft.Put("FIREPLACES", OneOf(dice, {"None", "Wood stove"}));
    draft.PutTick("STORAGE", dice.Chance(0.5));
    draft.Put("PARKING", OneOf(dice, {"Carport", "Open Parking"}));
    draft.Put("PORCHPATI1", OneOf(dice, {"Deck", "Steps", "Covered Deck"}));
    draft.Put("AC", OneOf(dice, {"FWA/None", "Heat Pump", "FWA/CAC"}));
    draft.Put("FUNCTUTIL", "Average");
    draft.Put("OTHER1", OneOf(dice, {"Fence", "None"}));
    draft.Put("FINANCETYP", OneOf(dice, {"Conventional", "Cash", "Chattel"}));
    draft.comp.look.design = Design::MobileHome;
    draft.comp.look.sizeStep = length > 56 ? 2 : length > 50 ? 1 : 0;
}

} // namespace vasclip::demo
