#include "map/map_ranges.h"
#include "map/map_test.h"
#include "map/picture_names.h"
#include "map/street_click.h"

namespace vasclip::map {

namespace {

QString Told(const QString& picture)
{
    const PictureName name = ParsePicture(picture);
    return u"%1|%2|%3|%4|%5"_s.arg(name.arrow ? u"arrow"_s : u"house"_s, name.colour, name.type)
        .arg(name.number)
        .arg(name.direction);
}

TEST(PictureNames, TellTypeColourNumberAndDirection)
{
    EXPECT_EQ(Told(u"ARROWBLUECOMP1LT.BMP"_s), u"arrow|BLUE|COMP|1|1"_s);
    EXPECT_EQ(Told(u"C:\\COMP RED\\arrows\\ArrowBlackAltComp6lf.bmp"_s), u"arrow|BLACK|ALTCOMP|6|8"_s);
    EXPECT_EQ(Told(u"ARROWREDSUBJECTLT.BMP"_s), u"arrow|RED|SUBJECT|0|1"_s);
    EXPECT_EQ(Told(u"ARROWREDLT.BMP"_s), u"arrow|RED||-1|1"_s);
    EXPECT_EQ(Told(u"ARROWBLUERENTAL9DN.BMP"_s), u"arrow|BLUE|RENTAL|9|6"_s);
    EXPECT_EQ(Told(u"ARROWBLUELISTING12RB.BMP"_s), u"arrow|BLUE|LISTING|12|5"_s);
    EXPECT_EQ(Told(u"ARROWBLUECOMP2.BMP"_s), u"arrow|BLUE|COMP|2|0"_s);
}

TEST(PictureNames, AHouseHasNoColour)
{
    // "REDDOOR" and "REDDOT" hold the word by chance.
    EXPECT_EQ(Told(u"reddoor.bmp"_s), u"house|||-1|0"_s);
    EXPECT_EQ(Told(u"C:\\ARROWS\\REDDOT.BMP"_s), u"house|||-1|0"_s);
    EXPECT_EQ(Told(u"comp.bmp"_s), u"house||COMP|0|0"_s);
    EXPECT_EQ(Told(QString()), u"house|||-1|0"_s);
}

TEST(PictureNames, EveryDirectionHasItsSuffixAndHotSpot)
{
    const QList<std::pair<QString, int>> table = {{u"LT.BMP"_s, 3072}, {u"UP.BMP"_s, 2048}, {u"RT.BMP"_s, 2304},
                                                  {u"RI.BMP"_s, 256},  {u"RB.BMP"_s, 768},  {u"DN.BMP"_s, 512},
                                                  {u"LB.BMP"_s, 1536}, {u"LF.BMP"_s, 1024}};
    for (int code = 1; code <= kDirections; ++code) {
        EXPECT_EQ(DirectionSuffix(code), table[code - 1].first);
        EXPECT_EQ(HotSpot(code), table[code - 1].second);
        EXPECT_EQ(ParsePicture(u"ARROWREDCOMP3"_s + DirectionSuffix(code)).direction, code);
    }
    EXPECT_EQ(HotSpot(0), 3072);
    EXPECT_EQ(HotSpot(9), 3072);
    EXPECT_EQ(DirectionSuffix(0), QString());
}

TEST(PictureNames, AreBuiltFromWhatTheyTell)
{
    for (const QString& name : {u"ARROWBLUECOMP1LT.BMP"_s, u"ARROWREDSUBJECTUP.BMP"_s, u"ARROWBLACKLF.BMP"_s,
                                u"ARROWREDALTCOMP6DN.BMP"_s})
        EXPECT_EQ(ArrowName(ParsePicture(name)), name);
    EXPECT_EQ(ColourWord(0), u"BLUE"_s);
    EXPECT_EQ(ColourWord(1), u"RED"_s);
    EXPECT_EQ(ColourWord(2), u"BLACK"_s);
}

TEST(PictureNames, TheAnchoredFormAndBack)
{
    EXPECT_EQ(AnchoredForm(u"reddoor.bmp"_s), u"REDDOORAnchor.bmp"_s);
    EXPECT_EQ(AnchoredForm(u"REDDOORAnchor.bmp"_s), u"REDDOORAnchor.bmp"_s);
    EXPECT_EQ(AnchoredForm(u"ARROWBLUECOMP1LT.BMP"_s), u"ARROWBLUECOMP1LT.BMP"_s);
    EXPECT_EQ(AnchoredForm(u"C:\\Anchor\\arrows\\comp.bmp"_s), u"C:\\Anchor\\arrows\\COMPAnchor.bmp"_s);
    EXPECT_EQ(FreeForm(u"REDDOORAnchor.bmp"_s), u"REDDOOR.bmp"_s);
    EXPECT_EQ(FreeForm(u"C:\\Anchor\\reddooranchor.bmp"_s), u"C:\\Anchor\\REDDOOR.bmp"_s);
    EXPECT_EQ(FreeForm(u"comp.bmp"_s), u"comp.bmp"_s);
    EXPECT_EQ(FreeForm(u"ARROWBLUECOMP1LT.BMP"_s), u"ARROWBLUECOMP1LT.BMP"_s);
}

TEST(PictureNames, OneWithoutADirectoryGetsTheBitmaps)
{
    EXPECT_EQ(BitmapPath(u"C:\\arrows"_s, u"comp.bmp"_s), u"C:\\arrows\\comp.bmp"_s);
    EXPECT_EQ(BitmapPath(u"C:\\arrows\\"_s, u"D:\\own\\comp.bmp"_s), u"D:\\own\\comp.bmp"_s);
    EXPECT_EQ(BitmapPath(u"C:\\arrows\\"_s, QString()), QString());
}

TEST(MapRanges, AreReadByTheirMarker)
{
    const QString ranges = u"SUBJECT|1W1_|ALTCOMP|2W3_|RENTAL|5W2_|COMP|7W9_"_s;
    EXPECT_EQ(RangeOf(ranges, u"SUBJECT"_s), (MapRange{1, 1}));
    EXPECT_EQ(RangeOf(ranges, u"COMP"_s), (MapRange{7, 9}));
    EXPECT_EQ(RangeOf(ranges, u"altcomp"_s), (MapRange{2, 3}));
    EXPECT_EQ(RangeOf(ranges, u"RENTAL"_s), (MapRange{5, 2}));
    EXPECT_EQ(RangeOf(ranges, u"LISTING"_s), std::nullopt);
    EXPECT_EQ(RangeOf(QString(), u"SUBJECT"_s), std::nullopt);
    EXPECT_EQ(RangeOf(u"|COMP|12"_s, u"COMP"_s), (MapRange{12, 0})); // cut off
}

TEST(MapRanges, AreWrittenAsGroups)
{
    EXPECT_EQ(RangeText(u"SUBJECT"_s, {1, 1}), u"SUBJECT|1W1_"_s);
    EXPECT_EQ(RangeText(u"COMP"_s, {2, 3}), u"|COMP|2W3_"_s);
}

TEST(MapResultsTest, HasAPlaceForEachArrowAndNoMore)
{
    MapResults results;
    results(0) = 1;
    results(101) = 1;
    EXPECT_EQ(results(101), 1);
    try {
        results(102) = 1;
        FAIL() << "no bounds error";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), 9);
    }
    results.Clear();
    EXPECT_EQ(results(0), 0);
    EXPECT_EQ(results(101), 0);
}

TEST(StreetNames, LoseAHouseNumberThatLeadsThem)
{
    EXPECT_EQ(Strip1stNums(QString()), QString());
    EXPECT_EQ(Strip1stNums(u"BROADWAY"_s), u"BROADWAY"_s);
    EXPECT_EQ(Strip1stNums(u"114 OAK ST"_s), u"OAK ST"_s);
    EXPECT_EQ(Strip1stNums(u"12TH ST"_s), u"12TH ST"_s);
    EXPECT_EQ(Strip1stNums(u"N65W1234 MAIN"_s), u"N65W1234 MAIN"_s);
    EXPECT_EQ(Strip1stNums(u"12 34 MAIN"_s), u"34 MAIN"_s); // one word alone
}

} // namespace

} // namespace vasclip::map
