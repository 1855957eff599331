#include "formsbook/fields.h"

#include <span>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

namespace {

using enum LineKind;

/// A row with this mark is read and never sent: TRUEFALSE is none of the marks that a send knows.
constexpr auto kReadOnly = "R"_L1;

constexpr Field kPlace[] = {
    {"ADDRESS"_L1, "Address"_L1},
    // The second address line of a comp is read as NEIGHBORHD; the name of a neighborhood must not land there.
    {"NEIGHBORHD"_L1, "City, state, ZIP"_L1, Text, false, kReadOnly, "CITYSTZIP"_L1},
    {"PROXIMITY"_L1, "Proximity to subject"_L1},
};

constexpr Field kSale[] = {
    {"PRICEFLD"_L1, "Sale price"_L1},
    {"PRICEGLA"_L1, "Price / living area"_L1},
    {"DATASOURCE"_L1, "Data source"_L1},
    {"VERIFYSRCE"_L1, "Verification source"_L1},
    {"SFCONCESS1"_L1, "Financing concessions"_L1, Text, true},
    {"SFCONCESS2"_L1, "Sale concessions"_L1, Text, true},
    {"SALEFLD"_L1, "Date of sale / time"_L1, Text, true},
    // Not SALEDATE: that field is never sent, so reading the empty cell would blank it.
    {""_L1, "Date of closing"_L1},
};

constexpr Field kListing[] = {
    {"SELLINGPR"_L1, "List price"_L1},
    {"PRICEGLA"_L1, "Price / living area"_L1},
    {"DATASOURCE"_L1, "Data source"_L1},
    {"VERIFYSRCE"_L1, "Verification source"_L1},
    {"DAYSONMKT"_L1, "Days on market"_L1},
    {"SALEHIST1"_L1, "Listing history"_L1},
    {"SFCONCESS1"_L1, "Financing offered"_L1, Text, true},
};

constexpr Field kRent[] = {
    {"LEASEDATE"_L1, "Date lease begins"_L1},
    {"RENTFLD"_L1, "Monthly rent"_L1},
    {"MONTHRENT"_L1, "Rent, unit 1"_L1},
    {"GRSMORENT"_L1, "Gross monthly rent"_L1},
    {"DATASOURCE"_L1, "Data source"_L1},
    {"VERIFYSRCE"_L1, "Verification source"_L1},
    {"RENTCONCES"_L1, "Rent concessions"_L1, Text, true},
    {"RENTEXTRA"_L1, "Extras"_L1, Text, true},
    {"FURNISHED"_L1, "Furnished"_L1, Check, false, "1"_L1},
    {"LOCATION"_L1, "Location / view"_L1, Text, true},
    {"DESIGNAPPL"_L1, "Design and appeal"_L1, Text, true},
    {"YEARBUILT"_L1, "Year built"_L1, Text, true},
    {"CONDITION"_L1, "Condition"_L1, Text, true},
    {"GLA"_L1, "Living area"_L1, Text, true},
    {"ROOMCOUNT"_L1, "Total rooms"_L1},
    {"BEDBATH"_L1, "Bedrooms / baths"_L1, Text, true},
    {"BASEMENT"_L1, "Basement"_L1, Text, true},
    {"AC"_L1, "Heating / cooling"_L1, Text, true},
    {"PARKING"_L1, "Garage / carport"_L1, Text, true},
    {"UTILFURN1"_L1, "Utilities furnished"_L1, Check, false, "0"_L1},
    {"UTILFURN2"_L1, "Appliances"_L1},
};

constexpr Field kSiteLines[] = {
    {"LOCATION"_L1, "Location"_L1, Text, true},
    {"LEASEFEE"_L1, "Leasehold / fee simple"_L1, Text, true},
    {"SITE"_L1, "Site"_L1, Text, true},
};

constexpr Field kHouse[] = {
    {"DESIGNAPPL"_L1, "Design (style)"_L1, Text, true},
    {"CONSTRQUAL"_L1, "Quality of construction"_L1, Text, true},
    {"YEARBUILT"_L1, "Year built"_L1, Text, true},
    {"CONDITION"_L1, "Condition"_L1, Text, true},
    {"ROOMCOUNT"_L1, "Total rooms"_L1},
    {"BEDROOM"_L1, "Bedrooms"_L1},
    {"BATH"_L1, "Baths"_L1, Text, true},
    {"GLA"_L1, "Gross living area"_L1, Text, true},
    {"BASEMENT"_L1, "Basement"_L1, Text, true},
    {"FINISHED"_L1, "Rooms below grade"_L1, Text, true},
    {"FUNCTUTIL"_L1, "Functional utility"_L1, Text, true},
    {"AC"_L1, "Heating / cooling"_L1, Text, true},
    {"ENERGYEFF1"_L1, "Energy efficient items"_L1, Text, true},
    {"PARKING"_L1, "Garage / carport"_L1, Text, true},
    {"PORCHPATI1"_L1, "Porch / patio / deck"_L1, Text, true},
    {"PORCHPATI2"_L1, "Pool, fence"_L1, Text, true},
    {"FIREPLACES"_L1, "Fireplaces"_L1, Text, true},
    {"STORAGE"_L1, "Storage building"_L1, Check, false, "0"_L1},
    {"INTDECOR"_L1, "Interior"_L1, Text, true},
    {"OTHER1"_L1, "Other"_L1, Text, true},
    {"OTHER2"_L1, "Other"_L1, Text, true},
};

constexpr Field kCondo[] = {
    {"MONTHASSES"_L1, "Monthly assessment"_L1, Text, true},
    {"COMMONELEM"_L1, "Common elements"_L1, Text, true},
    {"PROJSIZE"_L1, "Project size / type"_L1, Text, true},
    {"FLOORLOCAL"_L1, "Floor location"_L1, Text, true},
    {"DESIGNAPPL"_L1, "Design (style)"_L1, Text, true},
    {"CONSTRQUAL"_L1, "Quality of construction"_L1, Text, true},
    {"YEARBUILT"_L1, "Year built"_L1, Text, true},
    {"CONDITION"_L1, "Condition"_L1, Text, true},
    {"ROOMCOUNT"_L1, "Total rooms"_L1},
    {"BEDBATH"_L1, "Bedrooms / baths"_L1, Text, true},
    {"GLA"_L1, "Gross living area"_L1, Text, true},
    {"FUNCTUTIL"_L1, "Functional utility"_L1, Text, true},
    {"AC"_L1, "Heating / cooling"_L1, Text, true},
    {"ENERGYEFF1"_L1, "Energy efficient items"_L1, Text, true},
    {"PARKING"_L1, "Parking"_L1, Text, true},
    {"PORCHPATI1"_L1, "Balcony / patio"_L1, Text, true},
    {"FIREPLACES"_L1, "Fireplaces"_L1, Text, true},
    {"STORAGE"_L1, "Storage unit"_L1, Check, false, "1"_L1},
    {"UTILFURN1"_L1, "Utilities included"_L1},
    {"OTHER1"_L1, "Other"_L1, Text, true},
    {"OTHER2"_L1, "Other"_L1, Text, true},
};

constexpr Field kIncome[] = {
    {"DESIGNAPPL"_L1, "Design (style)"_L1, Text, true},
    {"CONSTRQUAL"_L1, "Quality of construction"_L1, Text, true},
    {"YEARBUILT"_L1, "Year built"_L1, Text, true},
    {"CONDITION"_L1, "Condition"_L1, Text, true},
    {"GLA"_L1, "Gross building area"_L1, Text, true},
    {"NUMBUNITS"_L1, "Number of units"_L1, Text, true},
    {"NUMVACANT"_L1, "Vacant units"_L1},
    {"ROOMCOUNT1"_L1, "Unit 1: rooms"_L1},
    {"BEDROOMS1"_L1, "Unit 1: bedrooms"_L1},
    {"BATHS1"_L1, "Unit 1: baths"_L1},
    {"MONTHRENT"_L1, "Unit 1: rent"_L1},
    {"ROOMCOUNT2"_L1, "Unit 2: rooms"_L1},
    {"BEDROOMS2"_L1, "Unit 2: bedrooms"_L1},
    {"BATHS2"_L1, "Unit 2: baths"_L1},
    {"MONTHRENT2"_L1, "Unit 2: rent"_L1},
    {"GRSMORENT"_L1, "Gross monthly rent"_L1, Text, true},
    {"BASEMENT"_L1, "Basement"_L1, Text, true},
    {"AC"_L1, "Heating / cooling"_L1, Text, true},
    {"PARKING"_L1, "Parking"_L1, Text, true},
    {"STORAGE"_L1, "Storage"_L1, Check, false, "0"_L1},
    {"OTHER1"_L1, "Other"_L1, Text, true},
};

constexpr Field kLand[] = {
    {"LANDSIZE"_L1, "Size of tract"_L1, Text, true}, {"RUNFT"_L1, "Front feet"_L1, Text, true},
    {"DESCRIPT1"_L1, "Topography"_L1, Text, true},   {"DESCRIPT2"_L1, "Access"_L1, Text, true},
    {"DESCRIPT3"_L1, "Utilities"_L1, Text, true},    {"DESCRIPT4"_L1, "Zoning"_L1, Text, true},
    {"DESCRIPT5"_L1, "Improvements"_L1, Text, true}, {"CENSUSTRCT"_L1, "Census tract"_L1},
    {"TAXMAPNUM"_L1, "Tax map number"_L1},           {"FLOODMAP"_L1, "Flood map"_L1},
    {"FINANCETYP"_L1, "Financing"_L1, Text, true},   {"STORAGE"_L1, "Outbuildings"_L1, Check, false, "0"_L1},
    {"OTHER1"_L1, "Other"_L1, Text, true},           {"OTHER2"_L1, "Other"_L1, Text, true},
};

constexpr Field kMobile[] = {
    {"DESIGNAPPL"_L1, "Make and model"_L1, Text, true},
    {"CONSTRQUAL"_L1, "Quality of construction"_L1, Text, true},
    {"YEARBUILT"_L1, "Year built"_L1, Text, true},
    {"CONDITION"_L1, "Condition"_L1, Text, true},
    {"ROOMCOUNT"_L1, "Total rooms"_L1},
    {"BEDBATH"_L1, "Bedrooms / baths"_L1, Text, true},
    {"GLA"_L1, "Living area"_L1, Text, true},
    {"FUNCTUTIL"_L1, "Functional utility"_L1, Text, true},
    {"AC"_L1, "Heating / cooling"_L1, Text, true},
    {"PARKING"_L1, "Carport"_L1, Text, true},
    {"PORCHPATI1"_L1, "Porch / skirting"_L1, Text, true},
    {"STORAGE"_L1, "Shed"_L1, Check, false, "1"_L1},
    {"OTHERAREA1"_L1, "Additions"_L1, Text, true},
    {"OTHER1"_L1, "Other"_L1, Text, true},
};

constexpr Field kShort[] = {
    {"DESIGNAPPL"_L1, "Design (style)"_L1, Text, true}, {"YEARBUILT"_L1, "Year built"_L1, Text, true},
    {"CONDITION"_L1, "Condition"_L1, Text, true},       {"ROOMCOUNT"_L1, "Total rooms"_L1},
    {"BEDBATH"_L1, "Bedrooms / baths"_L1, Text, true},  {"GLA"_L1, "Living area"_L1, Text, true},
    {"BASEMENT"_L1, "Basement"_L1, Text, true},         {"PARKING"_L1, "Garage / carport"_L1, Text, true},
    {"STORAGE"_L1, "Storage"_L1, Check, false, "0"_L1}, {"OTHER1"_L1, "Other"_L1, Text, true},
};

constexpr Field kTotals[] = {
    {""_L1, "Net adjustment"_L1, NetAdjust},
    {""_L1, "Adjusted price"_L1, Adjusted},
    {""_L1, "Adjusted price / area"_L1, AdjustedUnit},
};

std::span<const Field> Dwelling(Family family)
{
    switch (family) {
    case Family::House:
        return kHouse;
    case Family::Condo:
        return kCondo;
    case Family::Income:
        return kIncome;
    case Family::Land:
        return kLand;
    case Family::Mobile:
        return kMobile;
    case Family::Short:
        break;
    }
    return kShort;
}

} // namespace

QLatin1StringView GroupWord(Group group)
{
    switch (group) {
    case Group::Sale:
        return "SALE"_L1;
    case Group::Alt:
        return "ALT"_L1;
    case Group::Rent:
        return "RENT"_L1;
    case Group::List:
        break;
    }
    return "LIST"_L1;
}

QLatin1StringView GroupNoun(Group group)
{
    switch (group) {
    case Group::Sale:
        return "Comparable"_L1;
    case Group::Alt:
        return "Alternate"_L1;
    case Group::Rent:
        return "Rental"_L1;
    case Group::List:
        break;
    }
    return "Listing"_L1;
}

QList<int> PageBases(Group group)
{
    if (group == Group::Sale || group == Group::Rent)
        return {1, 4, 7};
    return {1, 4};
}

QList<Field> GridFields(Family family, Group group)
{
    QList<Field> fields;
    const auto add = [&fields](std::span<const Field> more) {
        for (const Field& field : more)
            fields.append(field);
    };
    add(kPlace);
    if (group == Group::Rent) {
        add(kRent);
    } else {
        add(group == Group::List ? std::span<const Field>(kListing) : std::span<const Field>(kSale));
        add(kSiteLines);
        add(Dwelling(family));
    }
    add(kTotals);
    return fields;
}

} // namespace vasclip::formsbook
