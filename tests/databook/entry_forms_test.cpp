#include "databook/comp_types.h"
#include "databook/entry_forms.h"
#include "store/schema.h"

#include <gtest/gtest.h>

#include <QSet>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

QStringList FieldsOf(const EntryForm& form)
{
    QStringList fields;
    for (const EntryGroup& group : form.groups)
        for (const EntryField& row : group.fields)
            fields << QString(row.field);
    return fields;
}

QSet<QString> SetOf(const QString& names)
{
    const QStringList list = names.split(u' ');
    return {list.begin(), list.end()};
}

QSet<QString> SetOf(QLatin1StringView screen)
{
    const QStringList list = FieldsOf(*FindEntryForm(screen));
    return {list.begin(), list.end()};
}

const QString kSingleFamily =
    u"ADDRESS CITY ST ZIP COUNTY NEIGHBORHD SELLINGPR SALEDATE AGE GLA ERCFINAL CONTRKDATE FINANCETYP "
    "OTHERAREA1 OTHERAREA2 BATH BEDROOM ROOMCOUNT OTHER1 OTHER2 ENERGYEFF1 ENERGYEFF2 FIREPLACES PORCHPATI1 "
    "PORCHPATI2 LEASEFEE PARKING COMMONELEM AC FINISHED FUNCTUTIL DESIGNAPPL SITE SFCONCESS1 SFCONCESS2 "
    "CONDITION YEARBUILT STORAGE BASEMENT LOCATION CONSTRQUAL DATASOURCE VERIFYSRCE PRICEFLD SALEFLD "
    "INTDECOR MKTCHANGE"_s;
const QString kNotOnCondo = u"ERCFINAL FINANCETYP CONTRKDATE OTHERAREA1 OTHERAREA2 MKTCHANGE INTDECOR"_s;
const QString kUnits = u"ROOMCOUNT1 ROOMCOUNT2 ROOMCOUNT3 ROOMCOUNT4 BEDROOMS1 BEDROOMS2 BEDROOMS3 BEDROOMS4 "
                       "BATHS1 BATHS2 BATHS3 BATHS4"_s;

TEST(EntryForms, SingleFamilyHasItsFields)
{
    EXPECT_EQ(SetOf("frm_CompMnt1"_L1), SetOf(kSingleFamily));
}

TEST(EntryForms, ItsBoxesHaveTheirNamesAndLimits)
{
    const std::tuple<const char*, const char*, int> rows[] = {
        {"txtAddress", "ADDRESS", 0},
        {"txtCity", "CITY", 0},
        {"txtState", "ST", 0},
        {"txtZip", "ZIP", 0},
        {"txtCounty", "COUNTY", 0},
        {"txtNeighborHd", "NEIGHBORHD", 0},
        {"txtSellingPr", "SELLINGPR", 7},
        {"txtSaleDate", "SALEDATE", 0},
        {"txtAge", "AGE", 4},
        {"txtGLA", "GLA", 5},
        {"txtERCFinal", "ERCFINAL", 0},
        {"txtContrkDate", "CONTRKDATE", 0},
        {"txtFinanceTyp", "FINANCETYP", 0},
        {"txtOtherArea1", "OTHERAREA1", 0},
        {"txtOtherArea2", "OTHERAREA2", 0},
    };
    for (const auto& [control, field, limit] : rows) {
        int found = 0;
        for (const EntryGroup& group : FindEntryForm("frm_CompMnt1"_L1)->groups)
            for (const EntryField& row : group.fields)
                if (row.control == QLatin1StringView(control)) {
                    ++found;
                    EXPECT_EQ(row.field, QLatin1StringView(field));
                    EXPECT_EQ(row.limit, limit) << control;
                }
        EXPECT_EQ(found, 1) << control;
    }
    EXPECT_EQ(FindEntryForm("frm_CompMnt1"_L1)->caption, "Single Family Comparable Description"_L1);
}

TEST(EntryForms, EveryOtherFormDiffersByWhatItAddsAndLacks)
{
    struct Row
    {
        QLatin1StringView screen;
        QString adds, lacks;
    };
    const Row rows[] = {
        {"frm_CompMntC"_L1,
         u"PROJSIZE FLOORLOCAL MONTHASSES UTILFURN1 UTILFURN2 UTILFURN3 UTILFURN4 UTILFURN5"_s, kNotOnCondo},
        {"frm_CompMntS"_L1,
         u"GRSMORENT RENTEXTRA FURNISHED UNITS_1 UNITS_2 UNITS_3 UNITS_4 VACANT_1 VACANT_2 VACANT_3 VACANT_4 "_s +
             kUnits,
         u"ROOMCOUNT BEDROOM BATH COMMONELEM FIREPLACES ENERGYEFF2 "_s + kNotOnCondo},
        {"frm_CompMntM"_L1, u"FUNCUTIL1 FUNCUTIL2 FUNCUTIL3"_s,
         u"BASEMENT FINISHED AC PARKING PORCHPATI1 PORCHPATI2 ENERGYEFF1 ENERGYEFF2 LEASEFEE DATASOURCE "
         "VERIFYSRCE FUNCTUTIL"_s},
    };
    for (const Row& row : rows)
        EXPECT_EQ(SetOf(row.screen), SetOf(kSingleFamily) - SetOf(row.lacks) + SetOf(row.adds))
            << row.screen.data();
}

TEST(EntryForms, LandHasNoRoomsAndNoDwelling)
{
    const QSet<QString> land = SetOf("frm_CompMntL"_L1);
    EXPECT_TRUE(
        land.contains(SetOf(u"LANDSIZE RUNFT DESCRIPT1 DESCRIPT2 DESCRIPT3 DESCRIPT4 DESCRIPT5 SELLINGPR "
                            "SALEDATE SITE"_s)));
    EXPECT_FALSE(
        land.intersects(SetOf(u"GLA AGE YEARBUILT ROOMCOUNT BEDROOM BATH BASEMENT FINISHED AC PARKING "
                              "CONDITION CONSTRQUAL DESIGNAPPL FUNCTUTIL FIREPLACES"_s)));
}

TEST(EntryForms, TheLeaseDatePlaysTheSaleDatesPartOnRentals)
{
    const QSet<QString> rental = SetOf("frm_CompMntR"_L1);
    EXPECT_TRUE(rental.contains(SetOf(
        u"LEASEDATE MONTHRENT MONTHRENT2 MONTHRENT3 MONTHRENT4 NUMBUNITS NUMVACANT RENTCONCES RENTFLD "
        "SQFT_1 SQFT_2 SQFT_3 SQFT_4 FUNCUTIL1 FUNCUTIL2 FUNCUTIL3 FUNCUTIL4 FUNCUTIL5 FUNCUTIL6 UTILFURN1 "
        "UTILFURN2 UTILFURN3 UTILFURN4 UTILFURN5 UTILFURN6 DESCRIPT1 DESCRIPT2 DESCRIPT3 DESCRIPT4 "
        "DESCRIPT5 "_s +
        kUnits)));
    EXPECT_FALSE(rental.intersects(SetOf(u"SELLINGPR SALEDATE PRICEFLD GLA"_s)));
    for (const EntryForm& form : EntryForms())
        EXPECT_EQ(form.dateField == "LEASEDATE"_L1, form.screen == "frm_CompMntR"_L1) << form.screen.data();
}

TEST(EntryForms, PageTwoHasItsFields)
{
    EXPECT_EQ(SetOf("frm_CompMnt2"_L1),
              SetOf(u"COMPCODE CTSCODE STRCODE CENSUSTRCT TAXMAPNUM FLOODMAP DAYSONMKT APPRSRFILE PICTFILENM "
                    "MISCCOMM MISCCOMM2 MISCCOMM3 SALEHIST1 SALEHIST2 SALEHIST3 SALEHIST4 LONGITUDE LATITUDE "
                    "MODIFIEDDATE LOADDATE NOTES"_s));
    EXPECT_EQ(&SecondPage(), FindEntryForm("frm_CompMnt2"_L1));
}

TEST(EntryForms, EveryTypeHasItsFormAndEveryBoxAFieldOfItsOwn)
{
    EXPECT_EQ(EntryForms().size(), 7u);
    for (const CompType& type : CompTypes())
        EXPECT_NE(FindEntryForm(type.entryForm), nullptr) << type.entryForm.data();
    EXPECT_EQ(FindEntryForm("frm_CompMntX"_L1), nullptr);
    for (const EntryForm& form : EntryForms()) {
        QSet<QString> controls;
        const QStringList fields = FieldsOf(form);
        EXPECT_EQ(QSet<QString>(fields.begin(), fields.end()).size(), fields.size()) << form.screen.data();
        for (const EntryGroup& group : form.groups) {
            EXPECT_TRUE(group.heads.empty() || group.fields.size() % group.heads.size() == 0);
            for (std::size_t i = 0; i < group.fields.size(); ++i) {
                const EntryField& row = group.fields[i];
                controls.insert(QString(row.control).toUpper());
                const store::CompsColumn* column = store::FindCompsColumn(QString(row.field));
                ASSERT_NE(column, nullptr) << row.field.data();
                EXPECT_LE(row.limit, column->size) << row.field.data();
                EXPECT_FALSE(EntryLabel(group, i).isEmpty()) << row.field.data();
                EXPECT_EQ(row.kind == EntryKind::Date, !row.calendar.isEmpty()) << row.field.data();
            }
        }
        EXPECT_EQ(controls.size(), fields.size()) << form.screen.data();
    }
}

TEST(EntryForms, ThreeFormsHaveAValidationAndTwoTakeTheirLimitsThere)
{
    for (const EntryForm& form : EntryForms()) {
        const QString name = form.screen == "frm_CompMntC"_L1   ? u"frm_CompMntCValidation"_s
                             : form.screen == "frm_CompMntS"_L1 ? u"frm_CompmntSValidation"_s
                             : form.screen == "frm_CompMntR"_L1 ? u"frm_CompMntRValidation"_s
                                                                : QString();
        EXPECT_EQ(QString::fromLatin1(form.validation), name) << form.screen.data();
        EXPECT_EQ(form.limitsAtLoad, !name.isEmpty() && form.screen != "frm_CompMntC"_L1)
            << form.screen.data();
    }
}

TEST(EntryForms, LabelsOfATableNameItsLine)
{
    const EntryForm& form = *FindEntryForm("frm_CompMntS"_L1);
    for (const EntryGroup& group : form.groups)
        if (!group.heads.empty())
            for (std::size_t i = 0; i < group.fields.size(); ++i)
                if (group.fields[i].field == "BATHS3"_L1) {
                    EXPECT_EQ(EntryLabel(group, i), u"Unit 3 Baths"_s);
                    return;
                }
    FAIL() << "no table of units";
}

} // namespace
} // namespace vasclip::databook
