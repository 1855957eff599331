#include "databook/entry_forms.h"

#include "databook/number_text.h"
#include "store/fields.h"
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
         {{"txtAddress"_L1, fields::ADDRESS},
          {"txtCity"_L1, fields::CITY},
          {"txtState"_L1, fields::ST},
          {"txtZip"_L1, fields::ZIP},
          {"txtCounty"_L1, fields::COUNTY},
          {"txtNeighborHd"_L1, fields::NEIGHBORHD}}},
        {"Sale"_L1,
         0,
         {{"txtSellingPr"_L1, fields::SELLINGPR, kNumber, 7},
          {"txtPriceFld"_L1, fields::PRICEFLD},
          {"txtDataSource"_L1, fields::DATASOURCE},
          {"txtVerifySrce"_L1, fields::VERIFYSRCE},
          {"txtSFConcess1"_L1, fields::SFCONCESS1},
          {"txtSFConcess2"_L1, fields::SFCONCESS2},
          {"txtFinanceTyp"_L1, fields::FINANCETYP},
          {"txtSaleDate"_L1, fields::SALEDATE, EntryKind::Date, 0, {}, "imaSaleCal"_L1, "Sale Date"_L1},
          {"txtSaleFld"_L1, fields::SALEFLD},
          {"txtContrkDate"_L1, fields::CONTRKDATE},
          {"txtERCFinal"_L1, fields::ERCFINAL},
          {"txtMktChange"_L1, fields::MKTCHANGE}}},
        {"Site and Dwelling"_L1,
         1,
         {{"txtLocation"_L1, fields::LOCATION},
          {"txtLeaseFee"_L1, fields::LEASEFEE},
          {"txtSite"_L1, fields::SITE},
          {"txtDesignAppl"_L1, fields::DESIGNAPPL},
          {"txtConstrQual"_L1, fields::CONSTRQUAL},
          {"txtYearBuilt"_L1, fields::YEARBUILT, kNumber},
          {"txtAge"_L1, fields::AGE, kNumber, 4},
          {"txtCondition"_L1, fields::CONDITION},
          {"txtIntDecor"_L1, fields::INTDECOR}}},
        {"Rooms"_L1,
         1,
         {{"txtRoomCount"_L1, fields::ROOMCOUNT, kNumber},
          {"txtBedroom"_L1, fields::BEDROOM, kNumber},
          {"txtBath"_L1, fields::BATH, kNumber},
          {"txtGLA"_L1, fields::GLA, kNumber, 5}}},
        {"Features"_L1,
         2,
         {{"txtBasement"_L1, fields::BASEMENT},
          {"txtFinished"_L1, fields::FINISHED},
          {"txtFunctUtil"_L1, fields::FUNCTUTIL},
          {"txtAC"_L1, fields::AC},
          {"txtEnergyEff1"_L1, fields::ENERGYEFF1},
          {"txtEnergyEff2"_L1, fields::ENERGYEFF2},
          {"txtParking"_L1, fields::PARKING},
          {"txtPorchPati1"_L1, fields::PORCHPATI1},
          {"txtPorchPati2"_L1, fields::PORCHPATI2},
          {"txtFireplaces"_L1, fields::FIREPLACES},
          {"txtStorage"_L1, fields::STORAGE},
          {"txtCommonElem"_L1, fields::COMMONELEM}}},
        {"Other"_L1,
         2,
         {{"txtOther1"_L1, fields::OTHER1},
          {"txtOther2"_L1, fields::OTHER2},
          {"txtOtherArea1"_L1, fields::OTHERAREA1},
          {"txtOtherArea2"_L1, fields::OTHERAREA2}}},
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

constexpr Names kNotOnCondo = {fields::ERCFINAL,   fields::FINANCETYP, fields::CONTRKDATE, fields::OTHERAREA1,
                               fields::OTHERAREA2, fields::MKTCHANGE,  fields::INTDECOR};

EntryGroup Descriptions(int column)
{
    return {"Description"_L1,
            column,
            {{"txtDescript1"_L1, fields::DESCRIPT1},
             {"txtDescript2"_L1, fields::DESCRIPT2},
             {"txtDescript3"_L1, fields::DESCRIPT3},
             {"txtDescript4"_L1, fields::DESCRIPT4},
             {"txtDescript5"_L1, fields::DESCRIPT5}}};
}

EntryForm Condo()
{
    EntryForm form{
        "frm_CompMntC"_L1, "Condominium Comparable Description"_L1,
        With(Without(SingleFamily(), kNotOnCondo), {{"Project"_L1,
                                                     1,
                                                     {{"txtProjSize"_L1, fields::PROJSIZE},
                                                      {"txtFloorLocal"_L1, fields::FLOORLOCAL},
                                                      {"txtMonthAsses"_L1, fields::MONTHASSES, kNumber},
                                                      {"txtUtilFurn1"_L1, fields::UTILFURN1},
                                                      {"txtUtilFurn2"_L1, fields::UTILFURN2},
                                                      {"txtUtilFurn3"_L1, fields::UTILFURN3},
                                                      {"txtUtilFurn4"_L1, fields::UTILFURN4},
                                                      {"txtUtilFurn5"_L1, fields::UTILFURN5}}}})};
    form.validation = "frm_CompMntCValidation";
    return form;
}

EntryForm UnitSale()
{
    std::vector<EntryGroup> groups = Without(Without(SingleFamily(), kNotOnCondo),
                                             {fields::ROOMCOUNT, fields::BEDROOM, fields::BATH,
                                              fields::COMMONELEM, fields::FIREPLACES, fields::ENERGYEFF2});
    EntryForm form{"frm_CompMntS"_L1, "1-4 Unit Sale Comparable Description"_L1,
                   With(std::move(groups), {{"Rent"_L1,
                                             1,
                                             {{"txtGrsMoRent"_L1, fields::GRSMORENT, kNumber},
                                              {"txtRentExtra"_L1, fields::RENTEXTRA},
                                              {"txtFurnished"_L1, fields::FURNISHED}}},
                                            {"Units"_L1,
                                             2,
                                             {{"txtUnits_1"_L1, fields::UNITS_1, kNumber},
                                              {"txtVacant_1"_L1, fields::VACANT_1, kNumber},
                                              {"txtRoomCount1"_L1, fields::ROOMCOUNT1, kNumber},
                                              {"txtBedrooms1"_L1, fields::BEDROOMS1, kNumber},
                                              {"txtBaths1"_L1, fields::BATHS1, kNumber},
                                              {"txtUnits_2"_L1, fields::UNITS_2, kNumber},
                                              {"txtVacant_2"_L1, fields::VACANT_2, kNumber},
                                              {"txtRoomCount2"_L1, fields::ROOMCOUNT2, kNumber},
                                              {"txtBedrooms2"_L1, fields::BEDROOMS2, kNumber},
                                              {"txtBaths2"_L1, fields::BATHS2, kNumber},
                                              {"txtUnits_3"_L1, fields::UNITS_3, kNumber},
                                              {"txtVacant_3"_L1, fields::VACANT_3, kNumber},
                                              {"txtRoomCount3"_L1, fields::ROOMCOUNT3, kNumber},
                                              {"txtBedrooms3"_L1, fields::BEDROOMS3, kNumber},
                                              {"txtBaths3"_L1, fields::BATHS3, kNumber},
                                              {"txtUnits_4"_L1, fields::UNITS_4, kNumber},
                                              {"txtVacant_4"_L1, fields::VACANT_4, kNumber},
                                              {"txtRoomCount4"_L1, fields::ROOMCOUNT4, kNumber},
                                              {"txtBedrooms4"_L1, fields::BEDROOMS4, kNumber},
                                              {"txtBaths4"_L1, fields::BATHS4, kNumber}},
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
        With(Only(SingleFamily(),
                  {fields::ADDRESS, fields::CITY, fields::ST, fields::ZIP, fields::COUNTY, fields::NEIGHBORHD,
                   fields::LOCATION, fields::SITE, fields::YEARBUILT, fields::AGE, fields::CONDITION}),
             {{"Rent"_L1,
               0,
               {{"txtLeaseDate"_L1,
                 fields::LEASEDATE,
                 EntryKind::Date,
                 0,
                 {},
                 "imaLeaseCal"_L1,
                 "Lease Date"_L1},
                {"txtRentFld"_L1, fields::RENTFLD},
                {"txtRentConces"_L1, fields::RENTCONCES},
                {"txtNumbUnits"_L1, fields::NUMBUNITS, kNumber},
                {"txtNumVacant"_L1, fields::NUMVACANT, kNumber},
                {"txtDataSource"_L1, fields::DATASOURCE},
                {"txtVerifySrce"_L1, fields::VERIFYSRCE}}},
              {"Units"_L1,
               1,
               {{"txtRoomCount1"_L1, fields::ROOMCOUNT1, kNumber},
                {"txtBedrooms1"_L1, fields::BEDROOMS1, kNumber},
                {"txtBaths1"_L1, fields::BATHS1, kNumber},
                {"txtSqFt_1"_L1, fields::SQFT_1, kNumber},
                {"txtMonthRent"_L1, fields::MONTHRENT, kNumber},
                {"txtRoomCount2"_L1, fields::ROOMCOUNT2, kNumber},
                {"txtBedrooms2"_L1, fields::BEDROOMS2, kNumber},
                {"txtBaths2"_L1, fields::BATHS2, kNumber},
                {"txtSqFt_2"_L1, fields::SQFT_2, kNumber},
                {"txtMonthRent2"_L1, fields::MONTHRENT2, kNumber},
                {"txtRoomCount3"_L1, fields::ROOMCOUNT3, kNumber},
                {"txtBedrooms3"_L1, fields::BEDROOMS3, kNumber},
                {"txtBaths3"_L1, fields::BATHS3, kNumber},
                {"txtSqFt_3"_L1, fields::SQFT_3, kNumber},
                {"txtMonthRent3"_L1, fields::MONTHRENT3, kNumber},
                {"txtRoomCount4"_L1, fields::ROOMCOUNT4, kNumber},
                {"txtBedrooms4"_L1, fields::BEDROOMS4, kNumber},
                {"txtBaths4"_L1, fields::BATHS4, kNumber},
                {"txtSqFt_4"_L1, fields::SQFT_4, kNumber},
                {"txtMonthRent4"_L1, fields::MONTHRENT4, kNumber}},
               {"Rooms"_L1, "Beds"_L1, "Baths"_L1, "Sq. Ft."_L1, "Rent"_L1},
               "Unit"_L1},
              Descriptions(1),
              {"Functional Utility"_L1,
               2,
               {{"txtFuncUtil1"_L1, fields::FUNCUTIL1},
                {"txtFuncUtil2"_L1, fields::FUNCUTIL2},
                {"txtFuncUtil3"_L1, fields::FUNCUTIL3},
                {"txtFuncUtil4"_L1, fields::FUNCUTIL4},
                {"txtFuncUtil5"_L1, fields::FUNCUTIL5},
                {"txtFuncUtil6"_L1, fields::FUNCUTIL6}}},
              {"Utilities and Furniture"_L1,
               2,
               {{"txtUtilFurn1"_L1, fields::UTILFURN1},
                {"txtUtilFurn2"_L1, fields::UTILFURN2},
                {"txtUtilFurn3"_L1, fields::UTILFURN3},
                {"txtUtilFurn4"_L1, fields::UTILFURN4},
                {"txtUtilFurn5"_L1, fields::UTILFURN5},
                {"txtUtilFurn6"_L1, fields::UTILFURN6}}}})};
    form.dateField = fields::LEASEDATE;
    form.validation = "frm_CompMntRValidation";
    form.limitsAtLoad = true;
    form.rentalAge = true;
    return form;
}

EntryForm Land()
{
    return {"frm_CompMntL"_L1, "Land Comparable Description"_L1,
            With(Only(SingleFamily(),
                      {fields::ADDRESS,    fields::CITY,       fields::ST,         fields::ZIP,
                       fields::COUNTY,     fields::NEIGHBORHD, fields::SELLINGPR,  fields::PRICEFLD,
                       fields::DATASOURCE, fields::VERIFYSRCE, fields::SFCONCESS1, fields::SFCONCESS2,
                       fields::FINANCETYP, fields::SALEDATE,   fields::SALEFLD,    fields::CONTRKDATE,
                       fields::ERCFINAL,   fields::MKTCHANGE,  fields::LOCATION,   fields::LEASEFEE,
                       fields::SITE,       fields::OTHER1,     fields::OTHER2}),
                 {{"Land"_L1, 1, {{"txtLandSize"_L1, fields::LANDSIZE}, {"txtRunFt"_L1, fields::RUNFT}}},
                  Descriptions(1)})};
}

EntryForm Manufactured()
{
    return {"frm_CompMntM"_L1, "Manufactured Housing Comparable Description"_L1,
            With(Without(SingleFamily(),
                         {fields::BASEMENT, fields::FINISHED, fields::AC, fields::PARKING, fields::PORCHPATI1,
                          fields::PORCHPATI2, fields::ENERGYEFF1, fields::ENERGYEFF2, fields::LEASEFEE,
                          fields::DATASOURCE, fields::VERIFYSRCE, fields::FUNCTUTIL}),
                 {{"Functional Utility"_L1,
                   2,
                   {{"txtFuncUtil1"_L1, fields::FUNCUTIL1},
                    {"txtFuncUtil2"_L1, fields::FUNCUTIL2},
                    {"txtFuncUtil3"_L1, fields::FUNCUTIL3}}}})};
}

EntryForm PageTwo()
{
    EntryForm form{
        "frm_CompMnt2"_L1,
        "Comparable Description, Page 2"_L1,
        {{"Codes and Maps"_L1,
          0,
          {{"txtCompCode"_L1, fields::COMPCODE},
           {"txtCtsCode"_L1, fields::CTSCODE},
           {"txtStrCode"_L1, fields::STRCODE},
           {"txtCensusTrct"_L1, fields::CENSUSTRCT},
           {"txtTaxMapNum"_L1, fields::TAXMAPNUM},
           {"txtFloodMap"_L1, fields::FLOODMAP},
           {"txtLongitude"_L1, fields::LONGITUDE, kNumber},
           {"txtLatitude"_L1, fields::LATITUDE, kNumber}}},
         {"File"_L1,
          0,
          {{"txtDaysOnMkt"_L1, fields::DAYSONMKT, kNumber},
           {"txtApprsrFile"_L1, fields::APPRSRFILE},
           {"txtPictFileNm"_L1, fields::PICTFILENM},
           {"txtLoadDate"_L1, fields::LOADDATE, EntryKind::Date, 0, {}, "imaLoadCal"_L1, "Load Date"_L1},
           {"txtModifiedDate"_L1, fields::MODIFIEDDATE, EntryKind::ShownOnly}}},
         {"Sale History"_L1,
          1,
          {{"txtSaleHist1"_L1, fields::SALEHIST1},
           {"txtSaleHist2"_L1, fields::SALEHIST2},
           {"txtSaleHist3"_L1, fields::SALEHIST3},
           {"txtSaleHist4"_L1, fields::SALEHIST4}}},
         {"Comments"_L1,
          1,
          {{"txtMiscComm"_L1, fields::MISCCOMM},
           {"txtMiscComm2"_L1, fields::MISCCOMM2},
           {"txtMiscComm3"_L1, fields::MISCCOMM3},
           {"txtNotes"_L1, fields::NOTES, EntryKind::Note}}}}};
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
    return field.kind == EntryKind::Date || WantsNumber(QString(field.field)) || field.field == fields::ADDRESS;
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
