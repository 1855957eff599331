#include "databook/entry_forms.h"

#include "databook/number_text.h"
#include "store/schema.h"

#include <algorithm>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

using Names = std::initializer_list<QLatin1StringView>;
constexpr auto kNumber = EntryKind::Number;

std::vector<EntryGroup> SingleFamily()
{
    return {
        {"Property"_L1,
         0,
         {{"txtAddress"_L1, "ADDRESS"_L1},
          {"txtCity"_L1, "CITY"_L1},
          {"txtState"_L1, "ST"_L1},
          {"txtZip"_L1, "ZIP"_L1},
          {"txtCounty"_L1, "COUNTY"_L1},
          {"txtNeighborHd"_L1, "NEIGHBORHD"_L1}}},
        {"Sale"_L1,
         0,
         {{"txtSellingPr"_L1, "SELLINGPR"_L1, kNumber, 7},
          {"txtPriceFld"_L1, "PRICEFLD"_L1},
          {"txtDataSource"_L1, "DATASOURCE"_L1},
          {"txtVerifySrce"_L1, "VERIFYSRCE"_L1},
          {"txtSFConcess1"_L1, "SFCONCESS1"_L1},
          {"txtSFConcess2"_L1, "SFCONCESS2"_L1},
          {"txtFinanceTyp"_L1, "FINANCETYP"_L1},
          {"txtSaleDate"_L1, "SALEDATE"_L1, EntryKind::Date, 0, {}, "imaSaleCal"_L1, "Sale Date"_L1},
          {"txtSaleFld"_L1, "SALEFLD"_L1},
          {"txtContrkDate"_L1, "CONTRKDATE"_L1},
          {"txtERCFinal"_L1, "ERCFINAL"_L1},
          {"txtMktChange"_L1, "MKTCHANGE"_L1}}},
        {"Site and Dwelling"_L1,
         1,
         {{"txtLocation"_L1, "LOCATION"_L1},
          {"txtLeaseFee"_L1, "LEASEFEE"_L1},
          {"txtSite"_L1, "SITE"_L1},
          {"txtDesignAppl"_L1, "DESIGNAPPL"_L1},
          {"txtConstrQual"_L1, "CONSTRQUAL"_L1},
          {"txtYearBuilt"_L1, "YEARBUILT"_L1, kNumber},
          {"txtAge"_L1, "AGE"_L1, kNumber, 4},
          {"txtCondition"_L1, "CONDITION"_L1},
          {"txtIntDecor"_L1, "INTDECOR"_L1}}},
        {"Rooms"_L1,
         1,
         {{"txtRoomCount"_L1, "ROOMCOUNT"_L1, kNumber},
          {"txtBedroom"_L1, "BEDROOM"_L1, kNumber},
          {"txtBath"_L1, "BATH"_L1, kNumber},
          {"txtGLA"_L1, "GLA"_L1, kNumber, 5}}},
        {"Features"_L1,
         2,
         {{"txtBasement"_L1, "BASEMENT"_L1},
          {"txtFinished"_L1, "FINISHED"_L1},
          {"txtFunctUtil"_L1, "FUNCTUTIL"_L1},
          {"txtAC"_L1, "AC"_L1},
          {"txtEnergyEff1"_L1, "ENERGYEFF1"_L1},
          {"txtEnergyEff2"_L1, "ENERGYEFF2"_L1},
          {"txtParking"_L1, "PARKING"_L1},
          {"txtPorchPati1"_L1, "PORCHPATI1"_L1},
          {"txtPorchPati2"_L1, "PORCHPATI2"_L1},
          {"txtFireplaces"_L1, "FIREPLACES"_L1},
          {"txtStorage"_L1, "STORAGE"_L1},
          {"txtCommonElem"_L1, "COMMONELEM"_L1}}},
        {"Other"_L1,
         2,
         {{"txtOther1"_L1, "OTHER1"_L1},
          {"txtOther2"_L1, "OTHER2"_L1},
          {"txtOtherArea1"_L1, "OTHERAREA1"_L1},
          {"txtOtherArea2"_L1, "OTHERAREA2"_L1}}},
    };
}

/// The same groups without some fields; a group that loses all of them goes.
std::vector<EntryGroup> Without(std::vector<EntryGroup> groups, Names fields)
{
    for (EntryGroup& group : groups)
        std::erase_if(group.fields, [&](const EntryField& row) {
            return std::find(fields.begin(), fields.end(), row.field) != fields.end();
        });
    std::erase_if(groups, [](const EntryGroup& group) { return group.fields.empty(); });
    return groups;
}

/// The same groups with only some fields.
std::vector<EntryGroup> Only(std::vector<EntryGroup> groups, Names fields)
{
    for (EntryGroup& group : groups)
        std::erase_if(group.fields, [&](const EntryField& row) {
            return std::find(fields.begin(), fields.end(), row.field) == fields.end();
        });
    std::erase_if(groups, [](const EntryGroup& group) { return group.fields.empty(); });
    return groups;
}

/// The same groups with others, each behind those of its column.
std::vector<EntryGroup> With(std::vector<EntryGroup> groups, std::initializer_list<EntryGroup> added)
{
    groups.insert(groups.end(), added);
    std::stable_sort(groups.begin(), groups.end(), [](const EntryGroup& left, const EntryGroup& right) {
        return left.column < right.column;
    });
    return groups;
}

constexpr Names kNotOnCondo = {"ERCFINAL"_L1,   "FINANCETYP"_L1, "CONTRKDATE"_L1, "OTHERAREA1"_L1,
                               "OTHERAREA2"_L1, "MKTCHANGE"_L1,  "INTDECOR"_L1};

EntryGroup Descriptions(int column)
{
    return {"Description"_L1,
            column,
            {{"txtDescript1"_L1, "DESCRIPT1"_L1},
             {"txtDescript2"_L1, "DESCRIPT2"_L1},
             {"txtDescript3"_L1, "DESCRIPT3"_L1},
             {"txtDescript4"_L1, "DESCRIPT4"_L1},
             {"txtDescript5"_L1, "DESCRIPT5"_L1}}};
}

EntryForm Condo()
{
    EntryForm form{
        "frm_CompMntC"_L1, "Condominium Comparable Description"_L1,
        With(Without(SingleFamily(), kNotOnCondo), {{"Project"_L1,
                                                     1,
                                                     {{"txtProjSize"_L1, "PROJSIZE"_L1},
                                                      {"txtFloorLocal"_L1, "FLOORLOCAL"_L1},
                                                      {"txtMonthAsses"_L1, "MONTHASSES"_L1, kNumber},
                                                      {"txtUtilFurn1"_L1, "UTILFURN1"_L1},
                                                      {"txtUtilFurn2"_L1, "UTILFURN2"_L1},
                                                      {"txtUtilFurn3"_L1, "UTILFURN3"_L1},
                                                      {"txtUtilFurn4"_L1, "UTILFURN4"_L1},
                                                      {"txtUtilFurn5"_L1, "UTILFURN5"_L1}}}})};
    form.validation = "frm_CompMntCValidation";
    return form;
}

EntryForm UnitSale()
{
    std::vector<EntryGroup> groups =
        Without(Without(SingleFamily(), kNotOnCondo),
                {"ROOMCOUNT"_L1, "BEDROOM"_L1, "BATH"_L1, "COMMONELEM"_L1, "FIREPLACES"_L1, "ENERGYEFF2"_L1});
    EntryForm form{
        "frm_CompMntS"_L1, "1-4 Unit Sale Comparable Description"_L1,
        With(
            std::move(groups),
            {{"Rent"_L1,
              1,
              {{"txtGrsMoRent"_L1, "GRSMORENT"_L1, kNumber},
               {"txtRentExtra"_L1, "RENTEXTRA"_L1},
               {"txtFurnished"_L1, "FURNISHED"_L1}}},
             {"Units"_L1,
              2,
              {{"txtUnits_1"_L1, "UNITS_1"_L1, kNumber},       {"txtVacant_1"_L1, "VACANT_1"_L1, kNumber},
               {"txtRoomCount1"_L1, "ROOMCOUNT1"_L1, kNumber}, {"txtBedrooms1"_L1, "BEDROOMS1"_L1, kNumber},
               {"txtBaths1"_L1, "BATHS1"_L1, kNumber},         {"txtUnits_2"_L1, "UNITS_2"_L1, kNumber},
               {"txtVacant_2"_L1, "VACANT_2"_L1, kNumber},     {"txtRoomCount2"_L1, "ROOMCOUNT2"_L1, kNumber},
               {"txtBedrooms2"_L1, "BEDROOMS2"_L1, kNumber},   {"txtBaths2"_L1, "BATHS2"_L1, kNumber},
               {"txtUnits_3"_L1, "UNITS_3"_L1, kNumber},       {"txtVacant_3"_L1, "VACANT_3"_L1, kNumber},
               {"txtRoomCount3"_L1, "ROOMCOUNT3"_L1, kNumber}, {"txtBedrooms3"_L1, "BEDROOMS3"_L1, kNumber},
               {"txtBaths3"_L1, "BATHS3"_L1, kNumber},         {"txtUnits_4"_L1, "UNITS_4"_L1, kNumber},
               {"txtVacant_4"_L1, "VACANT_4"_L1, kNumber},     {"txtRoomCount4"_L1, "ROOMCOUNT4"_L1, kNumber},
               {"txtBedrooms4"_L1, "BEDROOMS4"_L1, kNumber},   {"txtBaths4"_L1, "BATHS4"_L1, kNumber}},
              {"Units"_L1, "Vacant"_L1, "Rooms"_L1, "Beds"_L1, "Baths"_L1},
              "Unit"_L1}})};
    form.validation = "frm_CompmntSValidation";
    form.limitsAtLoad = true;
    return form;
}

EntryForm UnitRental()
{
    EntryForm form{
        "frm_CompMntR"_L1, "1-4 Unit Rental Comparable Description"_L1,
        With(
            Only(SingleFamily(), {"ADDRESS"_L1, "CITY"_L1, "ST"_L1, "ZIP"_L1, "COUNTY"_L1, "NEIGHBORHD"_L1,
                                  "LOCATION"_L1, "SITE"_L1, "YEARBUILT"_L1, "AGE"_L1, "CONDITION"_L1}),
            {{"Rent"_L1,
              0,
              {{"txtLeaseDate"_L1, "LEASEDATE"_L1, EntryKind::Date, 0, {}, "imaLeaseCal"_L1, "Lease Date"_L1},
               {"txtRentFld"_L1, "RENTFLD"_L1},
               {"txtRentConces"_L1, "RENTCONCES"_L1},
               {"txtNumbUnits"_L1, "NUMBUNITS"_L1, kNumber},
               {"txtNumVacant"_L1, "NUMVACANT"_L1, kNumber},
               {"txtDataSource"_L1, "DATASOURCE"_L1},
               {"txtVerifySrce"_L1, "VERIFYSRCE"_L1}}},
             {"Units"_L1,
              1,
              {{"txtRoomCount1"_L1, "ROOMCOUNT1"_L1, kNumber},
               {"txtBedrooms1"_L1, "BEDROOMS1"_L1, kNumber},
               {"txtBaths1"_L1, "BATHS1"_L1, kNumber},
               {"txtSqFt_1"_L1, "SQFT_1"_L1, kNumber},
               {"txtMonthRent"_L1, "MONTHRENT"_L1, kNumber},
               {"txtRoomCount2"_L1, "ROOMCOUNT2"_L1, kNumber},
               {"txtBedrooms2"_L1, "BEDROOMS2"_L1, kNumber},
               {"txtBaths2"_L1, "BATHS2"_L1, kNumber},
               {"txtSqFt_2"_L1, "SQFT_2"_L1, kNumber},
               {"txtMonthRent2"_L1, "MONTHRENT2"_L1, kNumber},
               {"txtRoomCount3"_L1, "ROOMCOUNT3"_L1, kNumber},
               {"txtBedrooms3"_L1, "BEDROOMS3"_L1, kNumber},
               {"txtBaths3"_L1, "BATHS3"_L1, kNumber},
               {"txtSqFt_3"_L1, "SQFT_3"_L1, kNumber},
               {"txtMonthRent3"_L1, "MONTHRENT3"_L1, kNumber},
               {"txtRoomCount4"_L1, "ROOMCOUNT4"_L1, kNumber},
               {"txtBedrooms4"_L1, "BEDROOMS4"_L1, kNumber},
               {"txtBaths4"_L1, "BATHS4"_L1, kNumber},
               {"txtSqFt_4"_L1, "SQFT_4"_L1, kNumber},
               {"txtMonthRent4"_L1, "MONTHRENT4"_L1, kNumber}},
              {"Rooms"_L1, "Beds"_L1, "Baths"_L1, "Sq. Ft."_L1, "Rent"_L1},
              "Unit"_L1},
             Descriptions(1),
             {"Functional Utility"_L1,
              2,
              {{"txtFuncUtil1"_L1, "FUNCUTIL1"_L1},
               {"txtFuncUtil2"_L1, "FUNCUTIL2"_L1},
               {"txtFuncUtil3"_L1, "FUNCUTIL3"_L1},
               {"txtFuncUtil4"_L1, "FUNCUTIL4"_L1},
               {"txtFuncUtil5"_L1, "FUNCUTIL5"_L1},
               {"txtFuncUtil6"_L1, "FUNCUTIL6"_L1}}},
             {"Utilities and Furniture"_L1,
              2,
              {{"txtUtilFurn1"_L1, "UTILFURN1"_L1},
               {"txtUtilFurn2"_L1, "UTILFURN2"_L1},
               {"txtUtilFurn3"_L1, "UTILFURN3"_L1},
               {"txtUtilFurn4"_L1, "UTILFURN4"_L1},
               {"txtUtilFurn5"_L1, "UTILFURN5"_L1},
               {"txtUtilFurn6"_L1, "UTILFURN6"_L1}}}})};
    form.dateField = "LEASEDATE"_L1;
    form.validation = "frm_CompMntRValidation";
    form.limitsAtLoad = true;
    form.rentalAge = true;
    return form;
}

EntryForm Land()
{
    return {"frm_CompMntL"_L1, "Land Comparable Description"_L1,
            With(Only(SingleFamily(),
                      {"ADDRESS"_L1,    "CITY"_L1,       "ST"_L1,         "ZIP"_L1,        "COUNTY"_L1,
                       "NEIGHBORHD"_L1, "SELLINGPR"_L1,  "PRICEFLD"_L1,   "DATASOURCE"_L1, "VERIFYSRCE"_L1,
                       "SFCONCESS1"_L1, "SFCONCESS2"_L1, "FINANCETYP"_L1, "SALEDATE"_L1,   "SALEFLD"_L1,
                       "CONTRKDATE"_L1, "ERCFINAL"_L1,   "MKTCHANGE"_L1,  "LOCATION"_L1,   "LEASEFEE"_L1,
                       "SITE"_L1,       "OTHER1"_L1,     "OTHER2"_L1}),
                 {{"Land"_L1, 1, {{"txtLandSize"_L1, "LANDSIZE"_L1}, {"txtRunFt"_L1, "RUNFT"_L1}}},
                  Descriptions(1)})};
}

EntryForm Manufactured()
{
    return {"frm_CompMntM"_L1, "Manufactured Housing Comparable Description"_L1,
            With(Without(SingleFamily(), {"BASEMENT"_L1, "FINISHED"_L1, "AC"_L1, "PARKING"_L1,
                                          "PORCHPATI1"_L1, "PORCHPATI2"_L1, "ENERGYEFF1"_L1, "ENERGYEFF2"_L1,
                                          "LEASEFEE"_L1, "DATASOURCE"_L1, "VERIFYSRCE"_L1, "FUNCTUTIL"_L1}),
                 {{"Functional Utility"_L1,
                   2,
                   {{"txtFuncUtil1"_L1, "FUNCUTIL1"_L1},
                    {"txtFuncUtil2"_L1, "FUNCUTIL2"_L1},
                    {"txtFuncUtil3"_L1, "FUNCUTIL3"_L1}}}})};
}

EntryForm PageTwo()
{
    EntryForm form{
        "frm_CompMnt2"_L1,
        "Comparable Description, Page 2"_L1,
        {{"Codes and Maps"_L1,
          0,
          {{"txtCompCode"_L1, "COMPCODE"_L1},
           {"txtCtsCode"_L1, "CTSCODE"_L1},
           {"txtStrCode"_L1, "STRCODE"_L1},
           {"txtCensusTrct"_L1, "CENSUSTRCT"_L1},
           {"txtTaxMapNum"_L1, "TAXMAPNUM"_L1},
           {"txtFloodMap"_L1, "FLOODMAP"_L1},
           {"txtLongitude"_L1, "LONGITUDE"_L1, kNumber},
           {"txtLatitude"_L1, "LATITUDE"_L1, kNumber}}},
         {"File"_L1,
          0,
          {{"txtDaysOnMkt"_L1, "DAYSONMKT"_L1, kNumber},
           {"txtApprsrFile"_L1, "APPRSRFILE"_L1},
           {"txtPictFileNm"_L1, "PICTFILENM"_L1},
           {"txtLoadDate"_L1, "LOADDATE"_L1, EntryKind::Date, 0, {}, "imaLoadCal"_L1, "Load Date"_L1},
           {"txtModifiedDate"_L1, "MODIFIEDDATE"_L1, EntryKind::ShownOnly}}},
         {"Sale History"_L1,
          1,
          {{"txtSaleHist1"_L1, "SALEHIST1"_L1},
           {"txtSaleHist2"_L1, "SALEHIST2"_L1},
           {"txtSaleHist3"_L1, "SALEHIST3"_L1},
           {"txtSaleHist4"_L1, "SALEHIST4"_L1}}},
         {"Comments"_L1,
          1,
          {{"txtMiscComm"_L1, "MISCCOMM"_L1},
           {"txtMiscComm2"_L1, "MISCCOMM2"_L1},
           {"txtMiscComm3"_L1, "MISCCOMM3"_L1},
           {"txtNotes"_L1, "NOTES"_L1, EntryKind::Note}}}}};
    form.secondPage = true;
    return form;
}

} // namespace

const std::vector<EntryForm>& EntryForms()
{
    static const std::vector<EntryForm> kForms = {
        {"frm_CompMnt1"_L1, "Single Family Comparable Description"_L1, SingleFamily()},
        Condo(),
        UnitSale(),
        UnitRental(),
        Land(),
        Manufactured(),
        PageTwo()};
    return kForms;
}

const EntryForm* FindEntryForm(QLatin1StringView screen)
{
    for (const EntryForm& form : EntryForms())
        if (form.screen == screen)
            return &form;
    return nullptr;
}

const EntryForm& SecondPage()
{
    return EntryForms().back();
}

bool HasNote(const EntryField& field)
{
    return field.kind == EntryKind::Date || WantsNumber(QString(field.field));
}

QString EntryLabel(const EntryGroup& group, std::size_t index)
{
    if (!group.heads.empty())
        return u"%1 %2 %3"_s.arg(group.lineName)
            .arg(index / group.heads.size() + 1)
            .arg(group.heads[index % group.heads.size()]);
    const EntryField& field = group.fields[index];
    if (!field.label.isEmpty())
        return QString(field.label);
    const store::CompsColumn* column = store::FindCompsColumn(QString(field.field));
    return QString(column == nullptr ? field.field : column->heading);
}

} // namespace vasclip::databook
