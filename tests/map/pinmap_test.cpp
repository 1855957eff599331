#include "map/flags.h"
#include "map/map_addresses.h"
#include "map/map_test.h"
#include "map/pinmap.h"
#include "store/change.h"

namespace vasclip::map {

namespace {

using Pinmap = MapTest;

TEST_F(Pinmap, CentresOnAnAddressThatIsFound)
{
    Street(u"12 OAK ST"_s, kOak);
    MapCenterOnAddress(desk, u"12 Oak St, Prattville, AL"_s);
    EXPECT_EQ(control.centre, kOak);
    EXPECT_EQ(control.log, (QStringList{u"Location=12 Oak St, Prattville, AL"_s, u"Action 2"_s, u"Action 217"_s}));
}

TEST_F(Pinmap, AnAddressThatIsNotFoundMovesNothing)
{
    MapCenterOnAddress(desk, u"1 Nowhere, Prattville, AL"_s);
    EXPECT_FALSE(control.log.contains(u"Action 217"_s));
    control.addresses[u"SOUTH"_s] = {-33'000'000, 18'000'000}; // a latitude that is not above 0 is no hit
    MapCenterOnAddress(desk, u"south"_s);
    EXPECT_FALSE(control.log.contains(u"Action 217"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Pinmap, CentresOnDegrees)
{
    MapCenterOnLatLong(desk, u"32.46"_s, u"-86.47"_s);
    EXPECT_EQ(control.centre, kOak);
    control.log.clear();
    MapCenterOnLatLong(desk, u""_s, u"-86.47"_s);
    EXPECT_EQ(control.log, QStringList());
}

TEST_F(Pinmap, PlacesAnArrowAtItsAddressWithoutText)
{
    AddTown(u"12 Oak St"_s);
    Street(u"12 OAK ST"_s, kOak);
    QList<RecordLocation> found;
    EXPECT_TRUE(MapPlaceAddrPoint(desk, 3, u"12 Oak St, Prattville, AL"_s,
                                  {u"COMP #2"_s, u"ARROWBLUECOMP2LT.BMP"_s, flag::kFree}, found));
    EXPECT_EQ(control.log, (QStringList{u"ID=3"_s, u"Location=12 OAK ST, PRATTVILLE, AL"_s, u"Action 1"_s,
                                        u"Flags=8C52"_s, u"Picture="_s + kArrows + u"ARROWBLUECOMP2LT.BMP"_s,
                                        u"Text="_s, u"Action 3"_s}));
    EXPECT_EQ(desk.state.g_MapPointCount, 0); // the caller counts
    ASSERT_TRUE(SaveLocations(desk, found));
    EXPECT_EQ(Location(u"12 OAK ST"_s), u"32.46 -86.47 0"_s);
}

TEST_F(Pinmap, AHouseKeepsItsText)
{
    Street(u"12 OAK ST"_s, kOak);
    globals.transparent = u"1"_s;
    QList<RecordLocation> found;
    EXPECT_TRUE(MapPlaceAddrPoint(desk, 3, u"12 OAK ST, PRATTVILLE, AL"_s,
                                  {u"12 OAK ST"_s, u"comp.bmp"_s, flag::kAnchored}, found));
    EXPECT_EQ(Pins(), QStringList{u"3 comp.bmp '12 OAK ST' 9C62"_s});
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(found[0].anchored);
}

TEST_F(Pinmap, WhatIsNotFoundIsNotPlaced)
{
    control.SetLatitude(kOak.latitude); // left by a look-up before
    control.SetLongitude(kOak.longitude);
    QList<RecordLocation> found;
    EXPECT_FALSE(MapPlaceAddrPoint(desk, 3, u"1 NOWHERE, PRATTVILLE, AL"_s, {}, found));
    EXPECT_FALSE(MapPlaceAddrPoint(desk, 3, u" , PRATTVILLE, AL"_s, {}, found)); // no street to look for
    EXPECT_TRUE(control.pins.empty());
    EXPECT_TRUE(found.isEmpty());
    EXPECT_EQ(control.lookUps, 1);
}

TEST_F(Pinmap, PlacesAtAPlaceAndCounts)
{
    desk.state.g_MapPointCount = 40;
    MapPlaceLatLongPoint(desk, 40, kOak, {u"COMP #1"_s, u"ARROWBLUECOMP1LT.BMP"_s, flag::kFree});
    MapPlaceLatLongPoint(desk, 41, kOak, {u"SUBJECT"_s, u"ARROWBLUESUBJECTLT.BMP"_s, flag::kFree});
    MapPlaceLatLongPoint(desk, 42, kOak, {u"COMP #1"_s, u"COMP.BMP"_s, flag::kFree});
    EXPECT_EQ(Pins(), (QStringList{u"40 ARROWBLUECOMP1LT.BMP '' 8C52"_s,
                                   u"41 ARROWBLUESUBJECTLT.BMP 'SUBJECT' 8C52"_s, u"42 COMP.BMP 'COMP #1' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapPointCount, 43);
}

TEST_F(Pinmap, PlacesAtAStoredPlace)
{
    PlaceAnchoredPoint(desk, 2, u"32.46"_s, u"-86.47"_s, {u"COMP #1"_s, u"ARROWREDCOMP1UP.BMP"_s, flag::kAnchored});
    PlaceAnchoredPoint(desk, 3, u"32.46"_s, u"-86.47"_s, {u"12 OAK ST"_s, u"comp.bmp"_s, flag::kAnchored});
    PlaceAnchoredPoint(desk, 4, u"32.46"_s, u"-86.47"_s, {u"12 OAK ST"_s, QString(), flag::kFree});
    globals.transparent = u"1"_s;
    PlaceAnchoredPoint(desk, 5, u"32.46"_s, u"-86.47"_s, {u"12 OAK ST"_s, u"reddoor.bmp"_s, flag::kFree});
    EXPECT_EQ(Pins(), (QStringList{u"2 ARROWREDCOMP1UP.BMP '' 8862"_s, u"3 COMPAnchor.bmp '12 OAK ST' 8C62"_s,
                                   u"4  '12 OAK ST' 60C50"_s, u"5 reddoor.bmp '12 OAK ST' 9C52"_s}));
    EXPECT_EQ(control.pins[2].place, kOak);
}

TEST_F(Pinmap, FindsPointsByCaptionAndPicture)
{
    desk.state.g_MapPointCount = 5;
    control.pins[2] = {kOak, 0, kArrows + u"ARROWBLUECOMP1LT.BMP"_s, QString()};
    control.pins[4] = {kOak, 0, kArrows + u"comp.bmp"_s, u" 12 OAK ST "_s};
    EXPECT_EQ(FindMapPoint(desk, FindBy::Caption, u"12 oak st"_s), 4);
    EXPECT_EQ(FindMapPoint(desk, FindBy::Caption, u"12 OAK"_s), -1);
    EXPECT_EQ(FindMapPoint(desk, FindBy::Picture, u"COMP1"_s), 2);
    EXPECT_EQ(FindMapPoint(desk, FindBy::Picture, u"VAS2000"_s), -1); // the directory is no name
    EXPECT_EQ(FindSubjectPoint(desk), -1);
    control.pins[1] = {kOak, 0, kArrows + u"ARROWBLUESUBJECTLT.BMP"_s, QString()};
    EXPECT_EQ(FindSubjectPoint(desk), 1);
    control.pins[5] = {kOak, 0, kArrows + u"comp.bmp"_s, u"SUBJECT"_s}; // by its caption first
    EXPECT_EQ(FindSubjectPoint(desk), 5);
    control.pins[6] = {kOak, 0, kArrows + u"comp.bmp"_s, u"BEYOND"_s}; // past the count
    EXPECT_EQ(FindMapPoint(desk, FindBy::Caption, u"BEYOND"_s), -1);
}

TEST_F(Pinmap, ACompsPictureMustCarryTheNumber)
{
    desk.state.g_MapPointCount = 3;
    control.pins[1] = {kOak, 0, u"SUBJECTCOMP1.BMP"_s, QString()};
    control.pins[2] = {kOak, 0, u"SUBJECTCOMP2.BMP"_s, QString()};
    EXPECT_EQ(FindMapPoint(desk, FindBy::Picture, u"SUBJECT"_s, 2), 2);
    EXPECT_EQ(FindMapPoint(desk, FindBy::Picture, u"SUBJECT"_s), 1);
}

TEST_F(Pinmap, FindsAPointByItsAddress)
{
    desk.state.g_MapPointCount = 1;
    control.pins[1] = {kOak, 0, QString(), QString()};
    control.SetLocation(u"12 OAK ST "_s);
    EXPECT_EQ(FindMapPoint(desk, FindBy::Address, u"OAK ST,"_s), 1);
    EXPECT_EQ(FindMapPoint(desk, FindBy::Address, u"ELM"_s), -1);
}

TEST_F(Pinmap, AFoundPlaceGivesWayToAnAnchor)
{
    AddTown(u"12 Oak St"_s, Anchor(u"33"_s, u"-87"_s));
    ASSERT_TRUE(SaveLocations(desk, {FoundAt(u"12 oak st"_s, kOak)}));
    EXPECT_EQ(Location(u"12 OAK ST"_s), u"33 -87 1"_s);
    ASSERT_TRUE(SaveLocations(desk, {AnchoredAt(u"12 oak st"_s, kOak)}));
    EXPECT_EQ(Location(u"12 OAK ST"_s), u"32.46 -86.47 1"_s);
    SaveRecordLocation(desk, Forgotten(u"12 OAK ST"_s));
    EXPECT_EQ(Location(u"12 OAK ST"_s), u"  0"_s);
}

TEST_F(Pinmap, StoringIsAChangeWithWordsAndLeavesTheCursor)
{
    AddTown(u"12 Oak St"_s);
    AddTown(u"99 Elm St"_s);
    ASSERT_TRUE(store::FindRecord(doubles.Get(), sources.datDatabook, u"99 ELM ST"_s, u"CENTRALKEY"_s));
    QStringList steps;
    sources.datDatabook.Watch([&](const store::Step& step) { steps << step.words + u'|' + step.key.trimmed(); });
    ASSERT_TRUE(SaveLocations(desk, {FoundAt(u"12 OAK ST"_s, kOak), FoundAt(u"1 NOBODYS"_s, kOak)}));
    EXPECT_EQ(steps, QStringList{u"Place 12 OAK ST on the map|12 OAK ST"_s});
    ASSERT_TRUE(SaveLocations(desk, {FoundAt(u"12 OAK ST"_s, kOak)})); // it reads so already
    EXPECT_EQ(steps.size(), 1);
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"CENTRALKEY"_s), u"99 ELM ST"_s);
}

TEST_F(Pinmap, StoresAllOrNothing)
{
    AddTown(u"12 Oak St"_s);
    AddTown(u"14 Oak St"_s);
    sources.datDatabook.Watch([](const store::Step& step) {
        if (step.key.startsWith(u"14"_s))
            throw RuntimeError(61, u"Disk full"_s);
    });
    doubles.prompter.AnswerAlways(forms::Answer::Abort);
    EXPECT_FALSE(SaveLocations(desk, {FoundAt(u"12 OAK ST"_s, kOak), FoundAt(u"14 OAK ST"_s, kOak)}));
    EXPECT_EQ(Location(u"12 OAK ST"_s), u"  "_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
}

TEST_F(Pinmap, DegreesAndMillionths)
{
    EXPECT_EQ(DegreesText(32'461'235), u"32.461235"_s);
    EXPECT_EQ(DegreesText(-86'000'000), u"-86"_s);
    EXPECT_EQ(DegreesText(0), u"0"_s);
    EXPECT_EQ(DegreesText(-1), u"-0.000001"_s);
    EXPECT_EQ(Millionths(u"-122.4194155"_s), -122'419'416);
    EXPECT_EQ(Millionths(u"32.461235"_s), 32'461'235);
    EXPECT_EQ(Millionths(QString()), 0);
}

TEST_F(Pinmap, AddressTextsLeaveTheZipOut)
{
    Subject(u" 1 Main St "_s);
    AddTown(u"12 Oak St"_s);
    const auto record = FindComp(desk, u"12 oak st"_s);
    ASSERT_TRUE(record);
    globals.ignoreZipCodes = true;
    EXPECT_EQ(SubjectMapAddress(desk), u"1 Main St, Prattville,AL"_s);
    EXPECT_EQ(RecordCityStateZip(desk, *record), u"PRATTVILLE, AL"_s);
    globals.ignoreZipCodes = false;
    EXPECT_EQ(SubjectMapAddress(desk), u"1 Main St, Prattville,AL 36067"_s);
    EXPECT_EQ(RecordCityStateZip(desk, *record), u"PRATTVILLE, AL 36067"_s);
    EXPECT_EQ(RecordMapAddress(desk, u"12 OAK ST"_s, *record), u"12 OAK ST,PRATTVILLE, AL 36067"_s);
}

} // namespace

} // namespace vasclip::map
