#include "link/comp2kel.h"

#include "desk_test.h"

namespace vasclip::link {
namespace {

const QString kColumnsText =
    u"Select Comp2Kel.FORMTYPE, Comp2Kel.FORMNAME, Comp2Kel.FIELDNAME, Comp2Kel.ROW, "
    "Comp2Kel.CELL, Comp2Kel.COMPTYPE, Comp2Kel.COMP, Comp2Kel.OFFSET, Comp2Kel.PREEVAL, "
    "Comp2Kel.TRUEFALSE from Comp2Kel WHERE Comp2Kel.FORMTYPE = 'UA5'"_s;

TEST(Queries, AreTheirTexts)
{
    EXPECT_EQ(FilterComp2KelQuery(u"UA5"_s, u"4"_s, u"SALE"_s),
              kColumnsText + u" AND Comp2Kel.COMP='4' AND Comp2Kel.COMPTYPE='SALE';"_s);
    EXPECT_EQ(FilterAltComp2KelQuery(u"UA5"_s, u"4"_s, u"PAGE2"_s),
              kColumnsText + u" AND Comp2Kel.COMP='4' AND Comp2Kel.FORMNAME='PAGE2';"_s);
    EXPECT_EQ(FilterComp2KelProximityQuery(u"UA5"_s, u"4"_s, u"SALE"_s),
              kColumnsText +
                  u" AND Comp2Kel.COMP='4' AND Comp2Kel.COMPTYPE='SALE' AND Comp2Kel.FIELDNAME='PROXIMITY' "
                  "AND Comp2Kel.COMP='4';"_s);
    EXPECT_EQ(
        AddressRowsQuery(u"UA5"_s),
        u"Select * from Comp2Kel WHERE Comp2Kel.FORMTYPE = 'UA5' AND (Comp2Kel.FIELDNAME = 'ADDRESS' OR "
        "Comp2Kel.FIELDNAME = 'NEIGHBORHD' OR Comp2Kel.FIELDNAME = 'APPRSRFILE' OR Comp2Kel.FIELDNAME = "
        "'COUNTY' OR Comp2Kel.FIELDNAME = 'CITY' OR Comp2Kel.FIELDNAME = 'ST' OR Comp2Kel.FIELDNAME = 'ZIP') "
        "ORDER BY Comp2Kel.COMP, COMPTYPE, FIELDNAME"_s);
}

TEST(Queries, PasteValuesAsTheyAre)
{
    EXPECT_TRUE(FilterComp2KelQuery(u"U'A"_s, u"1"_s, u"SALE"_s).contains(u"FORMTYPE = 'U'A' AND"_s));
}

class Mapping : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        Map({u"UA5"_s, u"PAGE2"_s, u"GLA"_s, u"12"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE2"_s, u"PROXIMITY"_s, u"5"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        Map({u"UA5"_s, u"ALTP"_s, u"GLA"_s, u"1"_s, u"1"_s, u"ALT"_s, u"4"_s, u"1"_s});
        Map({u"704"_s, u"PAGE1"_s, u"GLA"_s, u"1"_s, u"1"_s, u"SALE"_s, u"4"_s, u"1"_s});
    }
    store::DataSource& Source() { return sources.datComp2Kel_CURRENT; }
};

TEST_F(Mapping, FilterStandsOnTheLastRow)
{
    FilterComp2Kel(Source(), u"UA5"_s, u"4"_s, u"SALE"_s);
    EXPECT_EQ(Source().Recordset().RecordCount(), 2);
    EXPECT_EQ(GetComp2KelData(Source(), u"FIELDNAME"_s), u"PROXIMITY"_s);
    EXPECT_EQ(GetComp2KelData(Source(), u"preeval"_s), u""_s);
    EXPECT_THROW((void)GetComp2KelData(Source(), u"NOSUCH"_s), RuntimeError);
}

TEST_F(Mapping, FilterWithoutRowsIsEmpty)
{
    FilterComp2Kel(Source(), u"UA5"_s, u"7"_s, u"SALE"_s);
    EXPECT_TRUE(ReadMappingRows(Source()).isEmpty());
    EXPECT_THROW(FilterAltComp2Kel(Source(), u"UA5"_s, u"7"_s, u"ALTP"_s), RuntimeError);
}

TEST_F(Mapping, FilterByPageAndByProximity)
{
    FilterAltComp2Kel(Source(), u"UA5"_s, u"4"_s, u"ALTP"_s);
    EXPECT_EQ(Source().Recordset().RecordCount(), 1);
    FilterComp2KelProximity(Source(), u"UA5"_s, u"4"_s, u"SALE"_s);
    const QList<MappingRow> rows = ReadMappingRows(Source());
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].fieldName, u"PROXIMITY"_s);
    EXPECT_EQ(rows[0].RowCell(), u"5|3"_s);
}

TEST_F(Mapping, RowsComeInTableOrderAndTrimmed)
{
    Map({u"UA5"_s, u" PAGE2 "_s, u" YEARBUILT "_s, u" 7 "_s, u"3"_s, u"SALE"_s, u"4"_s, u" 2"_s});
    FilterComp2Kel(Source(), u"UA5"_s, u"4"_s, u"SALE"_s);
    const QList<MappingRow> rows = ReadMappingRows(Source());
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].fieldName, u"GLA"_s);
    EXPECT_EQ(rows[2].fieldName, u"YEARBUILT"_s);
    EXPECT_EQ(rows[2].formName, u"PAGE2"_s);
    EXPECT_EQ(rows[2].RowCell(), u"7|3"_s);
    EXPECT_EQ(rows[2].offset, u"2"_s);
}

TEST_F(Mapping, AValueWithAQuoteIsASyntaxError)
{
    EXPECT_THROW(FilterComp2Kel(Source(), u"U'A"_s, u"4"_s, u"SALE"_s), RuntimeError);
    EXPECT_EQ(engine.OpenDatabase(kMapping)
                  ->OpenRecordset(u"Comp2Kel"_s, engine::RecordsetType::Table)
                  ->RecordCount(),
              4);
}

} // namespace
} // namespace vasclip::link
