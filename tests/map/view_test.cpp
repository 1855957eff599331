#include "map/map_test.h"
#include "map/street_click.h"
#include "map/view.h"

#include <cmath>

namespace vasclip::map {

namespace {

class View : public MapTest
{
protected:
    void Pin(qint32 id, Place place)
    {
        control.pins[id] = {place, 0, QString(), QString()};
        desk.state.g_MapPointCount = std::max(desk.state.g_MapPointCount, id + 1);
    }
    [[nodiscard]] bool Scaled() const { return !control.log.filter(u"Scale="_s).isEmpty(); }
};

TEST_F(View, ShowsPointsWithAMarginByTheirWidth)
{
    Pin(1, {32'000'000, -86'000'000});
    Pin(2, {32'001'000, -86'010'000});
    zoomtopoints(desk, 1, 2, true);
    EXPECT_EQ(control.centre, (Place{32'000'500, -86'005'000}));
    // 10000 millionths are 3652 feet: the cosine counts as 1.
    EXPECT_DOUBLE_EQ(control.Scale(), 3652 * 1.4);
}

TEST_F(View, ShowsTallPointsByTheirHeight)
{
    Pin(1, {32'000'000, -86'000'000});
    Pin(2, {32'010'000, -86'001'000});
    zoomtopoints(desk, 1, 2, true);
    EXPECT_DOUBLE_EQ(control.Scale(), 3652 * 800.0 / 600.0 * 1.4);
}

TEST_F(View, OnePointZoomsAllTheWayIn)
{
    Pin(1, {32'000'000, -86'000'000});
    zoomtopoints(desk, 1, 1, true);
    EXPECT_DOUBLE_EQ(control.Scale(), 800.0 / 600.0 * 1.4);
    EXPECT_EQ(control.centre, (Place{32'000'000, -86'000'000}));
}

TEST_F(View, TwoPointsAboveEachOtherLeaveTheScale)
{
    Pin(1, {32'000'000, -86'000'000});
    Pin(2, {32'010'000, -86'000'000});
    zoomtopoints(desk, 1, 2, true);
    EXPECT_FALSE(Scaled());
    EXPECT_EQ(control.centre, (Place{32'005'000, -86'000'000}));
}

TEST_F(View, AboveSixtyDegreesTheWidthIsNothing)
{
    Pin(1, {61'000'000, -150'000'000});
    Pin(2, {61'010'000, -150'500'000});
    zoomtopoints(desk, 1, 2, true);
    EXPECT_FALSE(Scaled());
    Pin(2, {61'000'000, -150'500'000});
    zoomtopoints(desk, 1, 2, true);
    EXPECT_DOUBLE_EQ(control.Scale(), 800.0 / 600.0 * 1.4);
}

TEST_F(View, PointsThatAreNotThereDoNotCount)
{
    zoomtopoints(desk, 1, 5, false);
    EXPECT_FALSE(control.log.contains(u"Action 217"_s));
    Pin(3, {32'000'000, -86'000'000});
    Pin(9, {40'000'000, -80'000'000});
    desk.state.g_MapPointCount = 4;
    zoomtopoints(desk, 1, 9, true); // no more than are counted
    EXPECT_EQ(control.centre, (Place{32'000'000, -86'000'000}));
    zoomtopoints(desk, 1, 9, false);
    EXPECT_EQ(control.centre, (Place{36'000'000, -83'000'000}));
}

TEST_F(View, AViewWithoutASizeIsOnlyCentred)
{
    control.width = control.height = 0;
    Pin(1, {32'000'000, -86'000'000});
    Pin(2, {32'001'000, -86'010'000});
    zoomtopoints(desk, 1, 2, true);
    EXPECT_FALSE(Scaled());
}

TEST_F(View, ZoomsByATenth)
{
    control.SetScale(1000);
    control.centre = kOak;
    control.log.clear();
    cmdin_Click(desk);
    EXPECT_EQ(control.log, (QStringList{u"Action 216"_s, u"Action 217"_s, u"Scale=900"_s}));
    cmdout_Click(desk);
    EXPECT_DOUBLE_EQ(control.Scale(), 990);
    EXPECT_EQ(control.centre, kOak);
}

TEST_F(View, DetailStepsDownAndRound)
{
    globals.mapDetail = 0; // counts as 3
    QStringList captions;
    QStringList applied;
    for (int i = 0; i < 4; ++i) {
        control.log.clear();
        cmdDetail_Click(desk);
        captions << tab.cmdDetail.Caption();
        applied << control.log.filter(u"7/"_s).join(u' ');
    }
    EXPECT_EQ(captions, (QStringList{u"2"_s, u"1"_s, u"3"_s, u"2"_s}));
    EXPECT_EQ(applied, (QStringList{u"7/10=0 7/1=-1"_s, u"7/10=0 7/1=0"_s, u"7/10=-1 7/1=-1"_s, u"7/10=0 7/1=-1"_s}));
    EXPECT_EQ(globals.mapDetail, 2);
    globals.mapDetail = 0;
    control.log.clear();
    ApplyMapDetail(desk);
    EXPECT_EQ(control.log.filter(u"7/"_s).join(u' '), u"7/10=-1 7/1=-1"_s);
    EXPECT_EQ(tab.cmdDetail.Caption(), u"3"_s);
}

TEST_F(View, IsConfiguredInOrder)
{
    tab.ckbLabelStreets.SetValue(true);
    globals.mapDetail = 1;
    ConfigureMap(desk);
    EXPECT_EQ(control.log.filter(u"/"_s),
              (QStringList{u"11/10=0"_s, u"18/12=8"_s, u"18/13=8"_s, u"21/13=16777215"_s, u"21/1=16711680"_s,
                           u"21/2=1"_s, u"21/3=1"_s, u"7/10=0"_s, u"7/1=0"_s}));
    EXPECT_TRUE(control.streetClick);
    control.attributeStatus = -7;
    ApplyAttribute(desk, 11, 10, 0);
    EXPECT_EQ(doubles.prompter.Last().text, u"Failed with error -7"_s);
}

TEST_F(View, SpinnersStepAndTellTheirNumber)
{
    EXPECT_EQ(tab.spnFontSize.ToolTipText(), u"FontSize="_s);
    spnFontSize_Change(desk, 1);
    EXPECT_EQ(tab.txtfontsize.Text(), u"9"_s);
    EXPECT_EQ(tab.spnFontSize.ToolTipText(), u"FontSize=9"_s);
    spnFontSize_Change(desk, 1);
    EXPECT_EQ(tab.spnFontSize.ToolTipText(), u"FontSize=10"_s);
    tab.txtwidth.SetText(u"2"_s);
    spnWidth_Change(desk, -1);
    spnWidth_Change(desk, -1);
    EXPECT_EQ(tab.txtwidth.Text(), u"1"_s); // not below 1
    EXPECT_EQ(tab.spnWidth.ToolTipText(), u"Street Width=1"_s);
    tab.txtwidth.SetText(u"99999999999999"_s);
    spnWidth_Change(desk, 1);
    EXPECT_EQ(tab.txtwidth.Text(), u"999"_s);
}

TEST_F(View, FontAndWidthReachEveryKindOfStreet)
{
    tab.txtfontsize.SetText(u"11"_s);
    txtfontsize_Change(desk);
    EXPECT_EQ(control.log.filter(u"/"_s),
              (QStringList{u"7/12=11"_s, u"7/13=11"_s, u"4/12=11"_s, u"4/13=11"_s, u"5/12=11"_s, u"5/13=11"_s,
                           u"6/12=11"_s, u"6/13=11"_s}));
    control.log.clear();
    tab.txtwidth.SetText(u"3"_s);
    txtwidth_Change(desk);
    EXPECT_EQ(control.log.filter(u"/"_s), (QStringList{u"7/3=3"_s, u"4/3=3"_s, u"5/3=3"_s, u"6/3=3"_s}));
    control.log.clear();
    tab.txtwidth.SetText(u"x"_s);
    txtwidth_Change(desk);
    EXPECT_EQ(control.log, QStringList());
}

TEST_F(View, ClearingEmptiesPointsAndResults)
{
    Pin(1, kOak);
    desk.state.g_MapResult(1) = 1;
    desk.state.g_MapSelectedID = 1;
    desk.state.g_MapRanges = u"SUBJECT|1W1_"_s;
    ClearMap(desk);
    EXPECT_TRUE(control.pins.empty());
    EXPECT_EQ(desk.state.g_MapResult(1), 0);
    EXPECT_EQ(desk.state.g_MapPointCount, 0);
    EXPECT_EQ(desk.state.g_MapSelectedID, 0);
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_"_s); // the callers' business
}

TEST_F(View, TheMapFilesAreLookedFor)
{
    globals.cellData = u"C:\\VAS2000\\maps"_s;
    EXPECT_FALSE(TestMapFiles(desk));
    EXPECT_EQ(doubles.prompter.Last().title, u"Map files missing"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"The mapping files are missing (or partially missing) from "
                                            "C:\\VAS2000\\maps\\ -  Please reinstall the mapping program."_s);
    EXPECT_FALSE(desk.state.inUse);
    home.Put(u"C:\\VAS2000\\maps\\F1"_s);
    EXPECT_FALSE(TestMapFiles(desk, {u"F1: it was made for another version"_s}));
    EXPECT_EQ(doubles.prompter.Last().text, u"The mapping files are missing (or partially missing) from "
                                            "C:\\VAS2000\\maps\\ -  Please reinstall the mapping program.\n\n"
                                            "F1: it was made for another version"_s);
    EXPECT_FALSE(desk.state.inUse) << "nothing can be found with it";
    doubles.prompter.Forget();
    EXPECT_TRUE(TestMapFiles(desk));
    EXPECT_TRUE(desk.state.inUse);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(View, ItsBoxesAreKeptFromRunToRun)
{
    globals.radius = 1;
    globals.freeze = 2; // on for 1 alone
    globals.labelStreets = true;
    ReadMapSettings(desk);
    EXPECT_TRUE(tab.ckbRadius.Value());
    EXPECT_FALSE(tab.ckbFreeze.Value());
    EXPECT_TRUE(tab.ckbLabelStreets.Value());
    tab.ckbRadius.SetValue(false);
    tab.ckbFreeze.SetValue(true);
    KeepMapSettings(desk);
    tab.ckbArrange.SetValue(true);
    KeepMapSettings(desk);
    EXPECT_EQ(globals.radius, 0);
    EXPECT_EQ(globals.freeze, 1);
    EXPECT_EQ(globals.arrangeArrows, 1);
    tab.ckbArrange.SetValue(false);
    ReadMapSettings(desk);
    EXPECT_TRUE(tab.ckbArrange.Value());
}

TEST_F(View, WhatCannotBeReadStandsUnderTheMap)
{
    ShowMapProblems(desk, {u"Autauga: the file is missing"_s, u"Elmore: it is damaged"_s});
    EXPECT_EQ(tab.lblMapNote.Caption(), u"Missing on the map: Autauga: the file is missing; Elmore: it is damaged. "
                                        "Import these counties again with Map Data"_s);
    ShowMapProblems(desk, {});
    EXPECT_EQ(tab.lblMapNote.Caption(), QString());
}

// Clicks on streets.

TEST_F(View, AClickNamesTheStreet)
{
    tab.ckbLabelStreets.SetValue(true);
    control.streetAt = u"114 N Oak St, Prattville, AL"_s;
    StreetClick(desk, kOak);
    control.streetAt = u"0 Elm Ave, Prattville, AL"_s;
    StreetClick(desk, kOak);
    control.streetAt = u"0-12 Ash Ave, Prattville, AL"_s; // no number, but a nought leads it
    StreetClick(desk, kOak);
    EXPECT_EQ(Pins(), (QStringList{u"2 streetarrow.bmp 'N Oak St' 8C52"_s, u"3 streetarrow.bmp 'Elm Ave' 8C52"_s,
                                   u"4 streetarrow.bmp 'Ash Ave' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    EXPECT_EQ(control.pins[2].place, kOak);
}

TEST_F(View, AClickWithoutAStreetSetsNothing)
{
    control.streetAt = u"114 N Oak St"_s;
    StreetClick(desk, kOak); // switched off
    tab.ckbLabelStreets.SetValue(true);
    control.streetAt = QString();
    StreetClick(desk, kOak);
    EXPECT_TRUE(control.pins.empty());
    ckbLabelStreets_Click(desk);
    EXPECT_TRUE(control.streetClick);
}

} // namespace

} // namespace vasclip::map
