#include "platform/street/geocode.h"
#include "platform/street/geocode_line.h"
#include "platform/street/geocode_range.h"
#include "platform/street/geodesy.h"

#include "platform/street/sample_pack.h"

#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

// A degree is 1,000,000; a line of 3,000 north is about 1,094 feet long.
constexpr Place kMiddle{32460000, -86460000};

Place At(qint32 north, qint32 east)
{
    return {kMiddle.latitude + north, kMiddle.longitude + east};
}

RoadEdge Road(const char* name, Place from, Place to, NumberRange left = {}, NumberRange right = {})
{
    RoadEdge edge;
    edge.name = QString::fromUtf8(name);
    edge.line = {from, to};
    edge.left = std::move(left);
    edge.right = std::move(right);
    return edge;
}

NumberRange Range(const char* from, const char* to, const char* zip = "36067")
{
    return {QString::fromUtf8(from), QString::fromUtf8(to), QString::fromUtf8(zip), {}};
}

const std::vector<PlaceName>& Towns()
{
    static const std::vector<PlaceName> towns{{u"Prattville"_s, PlaceKind::City, 33000, kMiddle, {}},
                                              {u"Elmore"_s, PlaceKind::Town, 900, At(400000, 0), {}}};
    return towns;
}

/// A town whose streets run north from a line of crossings, each with a peculiarity of its own.
class AGeocoder : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        std::vector<RoadEdge> edges{
            Road("N Main St", At(0, 0), At(3000, 0), Range("101", "199"), Range("100", "198")),
            Road("S Main St", At(0, 0), At(-3000, 0), Range("101", "199"), Range("100", "198")),
            Road("E Third Ave", At(0, 0), At(0, 5000)),
            Road("Back St", At(0, 1000), At(3000, 1000), Range("299", "201"), Range("298", "200")),
            Road("Half St", At(0, 2000), At(3000, 2000), Range("1", "99"), {}),
            Road("Mixed Ln", At(0, 3000), At(3000, 3000), Range("10", "49"), {}),
            Road("Letter Ct", At(0, 4000), At(3000, 4000), Range("101A", "199B"), {}),
            Road("Crowded Way", At(0, 5000), At(300, 5000), Range("1", "99"), {}),
            Road("State Rte 14", At(9000, 0), At(9000, 9000), Range("1701", "1899"), Range("1700", "1898")),
            Road("Autauga County 40", At(12000, 0), At(12000, 9000), Range("2001", "2099"), {}),
            Road("56th Ave", At(0, -1000), At(3000, -1000), Range("12-01", "12-99"), {}),
            Road("Maple Dr", At(0, -2000), At(3000, -2000), Range("N65W1200", "N65W1298"), {}),
            Road("Nameless Rd", At(0, -3000), At(3000, -3000)),
            Road("Fuller Rd", At(0, -4000), At(3000, -4000), Range("1501", "1599"), {}),
            Road("Twin St", At(0, -5000), At(3000, -5000), Range("1", "99"), {}),
            Road("Twin Ct", At(0, -6000), At(3000, -6000), Range("1", "99"), {}),
            Road("Whitetail Ct", At(0, -7000), At(3000, -7000), Range("101", "199"), {}),
            Road("Gin Shop Hill Rd", At(0, -8000), At(3000, -8000), Range("701", "799"), {}),
            Road("Town Rd", At(0, -9000), At(3000, -9000), Range("1", "99"), {}),
            Road("Town Rd", At(400000, 0), At(403000, 0), Range("1", "99", "36025"), {}),
        };
        edges.push_back(Road("Memorial Dr", At(15000, 0), At(15000, 9000), Range("501", "599"), {}));
        edges.back().otherNames = {u"US Hwy 31"_s};
        const std::vector<AddressPoint> houses{
            {u"151"_s, u"North Main Street"_s, {}, u"Prattville"_s, u"36067"_s, At(1700, -300)},
            {u"12 1/2"_s, u"Point Pl"_s, {}, u"Prattville"_s, u"36067"_s, At(100, 8000)},
            {u"14"_s, u"Point Pl"_s, {}, u"Prattville"_s, u"36067"_s, At(200, 8000)}};
        s_pack = test::MakePack(u"01001"_s, u"AL"_s, edges, houses, Towns());
    }
    static void TearDownTestSuite() { s_pack.reset(); }

    static std::vector<Candidate> Find(const char* address, int limit = 10)
    {
        return MapGeocoder(*s_pack->maps).Find(QString::fromUtf8(address), limit);
    }
    static std::string Best(const char* address)
    {
        const std::vector<Candidate> found = Find(address);
        return found.empty() ? "" : (found[0].sure ? "" : "? ") + found[0].address.toStdString();
    }

    static inline std::unique_ptr<test::SamplePack> s_pack;
};

TEST_F(AGeocoder, PlacesAHouseBesideItsStreetOnItsSide)
{
    const std::vector<Candidate> odd = Find("125 N Main St, Prattville, AL 36067");
    ASSERT_FALSE(odd.empty());
    EXPECT_EQ(odd[0].foundBy, FoundBy::Range);
    EXPECT_TRUE(odd[0].sure);
    EXPECT_EQ(odd[0].address, u"125 N MAIN ST, PRATTVILLE, AL 36067"_s);
    EXPECT_LT(odd[0].place.longitude, kMiddle.longitude) << "left of a line that runs north";
    const Place foot{odd[0].place.latitude, kMiddle.longitude};
    EXPECT_NEAR(DistanceFeet(foot, odd[0].place), 25, 0.5);
    EXPECT_NEAR(odd[0].place.latitude - kMiddle.latitude, 3000 * 24 / 98, 2);
    const std::vector<Candidate> even = Find("124 N Main St, Prattville, AL 36067");
    ASSERT_FALSE(even.empty());
    EXPECT_GT(even[0].place.longitude, kMiddle.longitude);
}

TEST_F(AGeocoder, PrefersAHouseThatIsKnown)
{
    const std::vector<Candidate> found = Find("151 N Main St, Prattville, AL 36067");
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found[0].foundBy, FoundBy::Point);
    EXPECT_EQ(found[0].place, At(1700, -300));
    for (std::size_t at = 1; at < found.size(); ++at)
        EXPECT_TRUE(found[at].address.startsWith(u"151 S MAIN"_s)) << "no range beside the house";
    EXPECT_LT(found[0].uncertaintyFeet, 50);
    EXPECT_EQ(Best("12 1/2 Point Place, Prattville, AL"), "12 1/2 POINT PL, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("13 Point Pl, Prattville, AL"), "") << "the collection has no such number";
}

TEST_F(AGeocoder, ReadsRangesOfEveryKind)
{
    const std::vector<Candidate> back = Find("295 Back St, Prattville, AL");
    ASSERT_EQ(back.size(), 1u);
    EXPECT_NEAR(back[0].place.latitude - kMiddle.latitude, 3000 * 4 / 98, 2) << "it counts backwards";
    EXPECT_EQ(Best("15 Mixed Ln, Prattville, AL"), "15 MIXED LN, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("16 Mixed Ln, Prattville, AL"), "16 MIXED LN, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("151 Letter Ct, Prattville, AL"), "151 LETTER CT, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("12-35 56th Avenue, Prattville, AL"), "12-35 56TH AVE, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("1235 56th Avenue, Prattville, AL"), "12-35 56TH AVE, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("13-35 56th Ave, Prattville, AL"), "") << "another block";
    EXPECT_EQ(Best("N65W1234 Maple Drive, Prattville, AL"), "N65W1234 MAPLE DR, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("1234 Maple Drive, Prattville, AL"), "") << "the grid is part of the number";
}

TEST_F(AGeocoder, ReadsNumberedRoadsUnderTheirUsualNames)
{
    for (const char* road : {"State Route 14", "AL 14", "AL-14", "Alabama Hwy 14", "Highway 14", "SR 14", "State Hwy 14"})
        EXPECT_EQ(Best((std::string("1803 ") + road + ", Prattville, AL 36067").c_str()),
                  "1803 STATE HWY 14, PRATTVILLE, AL 36067")
            << road;
    for (const char* road : {"County Road 40", "Co Rd 40", "CR 40", "Autauga County 40", "County Hwy 40"})
        EXPECT_EQ(Best((std::string("2033 ") + road + ", Prattville, AL 36067").c_str()),
                  "2033 CO RD 40, PRATTVILLE, AL 36067")
            << road;
    for (const char* road : {"US Hwy 31", "US-31", "U.S. Highway 31", "us 31"})
        EXPECT_EQ(Best((std::string("533 ") + road + ", Prattville, AL 36067").c_str()),
                  "533 US HWY 31, PRATTVILLE, AL 36067")
            << road;
    EXPECT_EQ(Best("1803 US Hwy 82, Prattville, AL 36067"), "");
    EXPECT_EQ(Best("1803 State Route 15, Prattville, AL 36067"), "") << "another number is another road";
}

TEST_F(AGeocoder, TakesWhatPeopleWrite)
{
    const std::string house = "125 N MAIN ST, PRATTVILLE, AL 36067";
    for (const char* text : {"125 north main street prattville alabama", "125 N. MAIN ST., PRATTVILLE AL 36067-1234",
                             "125 n main st apt 4, prattville, al", "125 N Main St, 36067", "125 N Main, Prattville, AL",
                             "125 n main st #7 prattville al 36067", "  125   N  Main  St ,Prattville,AL"})
        EXPECT_EQ(Best(text), house) << text;
    EXPECT_EQ(Best("715 Gin Shop Hill, Prattville, AL"), "715 GIN SHOP HILL RD, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("1555 Fuller St, Prattville, AL"), "1555 FULLER RD, PRATTVILLE, AL 36067") << "the wrong suffix";
    EXPECT_EQ(Best("151 Whitetial Ct, Prattville, AL"), "151 WHITETAIL CT, PRATTVILLE, AL 36067");
    EXPECT_EQ(Best("151 Whitail Ct, Prattville, AL"), "? 151 WHITETAIL CT, PRATTVILLE, AL 36067") << "two errors";
    EXPECT_EQ(Best("125 N Main St, Pratville, AL"), "? 125 N MAIN ST, PRATTVILLE, AL 36067") << "the town misspelt";
    EXPECT_EQ(Best("125 N Main St, Pratville, AL 36067"), house);
}

TEST_F(AGeocoder, AsksWhereItIsNotSure)
{
    const std::vector<Candidate> both = Find("125 Main St, Prattville, AL");
    ASSERT_EQ(both.size(), 2u) << "north and south";
    EXPECT_FALSE(both[0].sure);
    EXPECT_EQ(Find("125 Main St, Prattville, AL", 1).size(), 1u);
    EXPECT_TRUE(Find("125 Main St, Prattville, AL", 0).empty());
    const std::vector<Candidate> east = Find("125 E Main St, Prattville, AL");
    ASSERT_FALSE(east.empty());
    EXPECT_FALSE(east[0].sure);
    const std::vector<Candidate> twins = Find("5 Twin Ln, Prattville, AL");
    ASSERT_EQ(twins.size(), 2u) << "street and court";
    EXPECT_FALSE(twins[0].sure);
    EXPECT_TRUE(Find("5 Twin Ct, Prattville, AL")[0].sure);
    const std::vector<Candidate> towns = Find("5 Town Rd, AL");
    ASSERT_EQ(towns.size(), 2u);
    EXPECT_FALSE(towns[0].sure);
    EXPECT_EQ(Best("5 Town Rd, Elmore, AL"), "5 TOWN RD, ELMORE, AL 36025");
    EXPECT_EQ(Best("5 Town Rd, 36067"), "5 TOWN RD, PRATTVILLE, AL 36067");
    const std::vector<Candidate> bare = Find("125 N Main St");
    ASSERT_FALSE(bare.empty());
    EXPECT_FALSE(bare[0].sure) << "no one said in which town";
    const std::vector<Candidate> elsewhere = Find("125 N Main St, Springfield, IL 62701");
    EXPECT_TRUE(elsewhere.empty() || !elsewhere[0].sure);
}

TEST_F(AGeocoder, PlacesTheOtherSideOnlyWithAQuestion)
{
    const std::vector<Candidate> across = Find("50 Half St, Prattville, AL");
    ASSERT_EQ(across.size(), 1u);
    EXPECT_FALSE(across[0].sure);
    EXPECT_GT(across[0].place.longitude, At(0, 2000).longitude) << "the odd numbers stand left";
    EXPECT_TRUE(Find("51 Half St, Prattville, AL")[0].sure);
    EXPECT_GT(across[0].uncertaintyFeet, Find("51 Half St, Prattville, AL")[0].uncertaintyFeet);
}

TEST_F(AGeocoder, DoesNotBelieveMoreNumbersThanHousesCanStand)
{
    const Candidate crowded = Find("51 Crowded Way, Prattville, AL").at(0);
    const Candidate plain = Find("151 Whitetail Ct, Prattville, AL").at(0);
    EXPECT_LT(crowded.score, plain.score);
    EXPECT_FALSE(QualityOf({{{}, 101, {}}, {{}, 109, {}}, 0, 0}, 500).implausible);
    EXPECT_TRUE(QualityOf({{{}, 1, {}}, {{}, 99, {}}, 0, 0}, 400).implausible);
    EXPECT_GT(QualityOf({{{}, 1, {}}, {{}, 99, {}}, 0, 0}, 400).uncertaintyFeet,
              QualityOf({{{}, 1, {}}, {{}, 21, {}}, 0, 0}, 400).uncertaintyFeet);
}

TEST_F(AGeocoder, HasNoAnswerToANumberThatIsNotOnTheStreet)
{
    EXPECT_EQ(Best("999 N Main St, Prattville, AL 36067"), "");
    EXPECT_EQ(Best("5 Whitetail Ct, Prattville, AL 36067"), "");
    EXPECT_EQ(Best("99 Fuller Rd, Prattville, AL 36067"), "");
    EXPECT_EQ(Best("151 Nosuch Pkwy, Prattville, AL 36067"), "");
}

TEST_F(AGeocoder, AnswersWithTheStreetWhereNothingTellsItsNumbers)
{
    const std::vector<Candidate> found = Find("12 Nameless Rd, Prattville, AL");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].foundBy, FoundBy::Street);
    EXPECT_FALSE(found[0].sure);
    EXPECT_NEAR(found[0].place.latitude, At(1500, 0).latitude, 20);
    EXPECT_EQ(Find("Nameless Rd, Prattville, AL").at(0).foundBy, FoundBy::Street);
    EXPECT_EQ(Find("Whitetail Ct, Prattville, AL").at(0).address, u"WHITETAIL CT, PRATTVILLE, AL 36067"_s);
}

TEST_F(AGeocoder, FindsCrossings)
{
    for (const char* text : {"N Main St & E 3rd Ave, Prattville, AL", "E Third Ave and North Main, Prattville, AL",
                             "corner of 3rd Ave and N Main St, Prattville, AL"}) {
        const std::vector<Candidate> found = Find(text);
        ASSERT_EQ(found.size(), 1u) << text;
        EXPECT_EQ(found[0].foundBy, FoundBy::Intersection);
        EXPECT_EQ(found[0].place, kMiddle) << text;
        EXPECT_TRUE(found[0].sure) << text;
    }
    EXPECT_EQ(Find("Back St & 3rd Ave, Prattville, AL").at(0).place, At(0, 1000)) << "it ends on the avenue";
    EXPECT_TRUE(Find("N Main St & Whitetail Ct, Prattville, AL").empty()) << "they don't meet";
    EXPECT_TRUE(Find("N Main St & N Main St, Prattville, AL").empty());
}

TEST_F(AGeocoder, AnswersWithTheGroundOfAZipOrTown)
{
    EXPECT_EQ(Find("36067").at(0).foundBy, FoundBy::ZipArea);
    EXPECT_EQ(Find("Prattville, AL").at(0).foundBy, FoundBy::City);
    EXPECT_EQ(Find("Prattville, AL").at(0).place, kMiddle);
    EXPECT_FALSE(Find("Prattville, AL").at(0).sure);
    EXPECT_TRUE(Find("99999").empty());
}

TEST_F(AGeocoder, KnowsTheAddressOfAPlace)
{
    const MapGeocoder geocoder(*s_pack->maps);
    const std::vector<Candidate> house = geocoder.Near(At(1690, -290));
    ASSERT_EQ(house.size(), 3u);
    EXPECT_EQ(house[0].address, u"151 N MAIN ST, PRATTVILLE, AL 36067"_s);
    EXPECT_EQ(house[0].foundBy, FoundBy::Point);
    EXPECT_EQ(house[1].foundBy, FoundBy::Range);
    EXPECT_EQ(house[2].address, u"N MAIN ST, PRATTVILLE, AL 36067"_s);
    const std::vector<Candidate> right = geocoder.Near(At(1500, 60));
    ASSERT_FALSE(right.empty());
    EXPECT_EQ(right[0].address, u"150 N MAIN ST, PRATTVILLE, AL 36067"_s);
    EXPECT_EQ(geocoder.Near(At(600, 1940)).at(0).address, u"21 HALF ST, PRATTVILLE, AL 36067"_s);
    EXPECT_TRUE(geocoder.Near(At(200000, 200000)).empty());
    EXPECT_TRUE(geocoder.Near({0, 0}).empty());
    EXPECT_TRUE(geocoder.Near(At(1500, 60), 5).empty()) << "farther away than was asked for";
    EXPECT_EQ(geocoder.Near(At(1500, -3010)).at(0).foundBy, FoundBy::Street) << "it has no numbers";
}

TEST_F(AGeocoder, StandsAnyText)
{
    QStringList texts{QString(10000, u'A'), u"1 "_s.repeated(5000), u"12 Main St "_s.repeated(900), u"& "_s.repeated(5000)};
    texts += {QString::fromUtf8("\xf0\x9f\x8f\xa0 ").repeated(2500), u"'; DROP TABLE cells; --"_s, u"12 O'Main St\" OR 1=1"_s};
    texts += {u"125 N Main St, Prattville, AL "_s + QString(10000, u'6'), QString(1, QChar(0xdc00)), u""_s, u","_s};
    texts += {u"99999999999999999999 N Main St, Prattville, AL"_s, u"-1 N Main St, Prattville, AL"_s};
    const MapGeocoder geocoder(*s_pack->maps);
    QElapsedTimer clock;
    clock.start();
    for (const QString& text : std::as_const(texts)) {
        for (const Candidate& candidate : geocoder.Find(text))
            EXPECT_GT(candidate.score, 0);
    }
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(Best("125 N Main St, Prattville, AL 36067"), "125 N MAIN ST, PRATTVILLE, AL 36067") << "nothing was lost";
}

TEST(AGeocoderOfNoMaps, HasNoAnswer)
{
    const QTemporaryDir directory;
    const MapData none(directory.path());
    EXPECT_TRUE(MapGeocoder(none).Find(u"125 N Main St, Prattville, AL"_s).empty());
    EXPECT_TRUE(MapGeocoder(none).Near(kMiddle).empty());
}

TEST(AGeocoderOfALostMap, HasNoAnswer)
{
    const auto pack = test::MakePack(u"01001"_s, u"AL"_s, {Road("N Main St", At(0, 0), At(3000, 0), Range("101", "199"))}, {},
                                     Towns());
    ASSERT_TRUE(pack);
    ASSERT_TRUE(QFile::remove(pack->directory.filePath(u"01001-1.cel"_s)));
    const MapGeocoder geocoder(*pack->maps);
    EXPECT_TRUE(geocoder.Find(u"125 N Main St, Prattville, AL"_s).empty());
    EXPECT_TRUE(geocoder.Near(At(100, 0)).empty());
    EXPECT_FALSE(pack->maps->Problems().isEmpty());
}

TEST(AGeocoderOfTwoCounties, LooksAroundAPostTown)
{
    // The town lies in the first county, some of its post in the second; a far county has the same name once more.
    auto pack = test::MakePack(u"01001"_s, u"AL"_s, {Road("N Main St", At(0, 0), At(3000, 0), Range("101", "199"))}, {},
                               Towns());
    ASSERT_TRUE(pack);
    ASSERT_TRUE(pack->Put(u"01051"_s, u"AL"_s,
                          {Road("Beyond Ct", At(0, 90000), At(3000, 90000), Range("101", "199", "36022")),
                           Road("N Main St", At(0, 100000), At(3000, 100000), Range("101", "199", "36022"))},
                          {}, {}));
    ASSERT_TRUE(pack->Put(u"01101"_s, u"AL"_s,
                          {Road("Beyond Ct", At(0, 3000000), At(3000, 3000000), Range("101", "199", "36999")),
                           Road("Far Ct", At(0, 3100000), At(3000, 3100000), Range("101", "199", "36999"))},
                          {}, {}));
    ASSERT_TRUE(pack->Put(u"13001"_s, u"GA"_s, {Road("N Main St", At(0, 6000000), At(3000, 6000000), Range("101", "199", "30001"))},
                          {}, {{u"Prattville"_s, PlaceKind::Town, 10, At(0, 6000000), {}}}));
    const MapGeocoder geocoder(*pack->maps);
    const std::vector<Candidate> beyond = geocoder.Find(u"125 Beyond Ct, Prattville, AL"_s);
    ASSERT_EQ(beyond.size(), 1u);
    EXPECT_NEAR(beyond[0].place.longitude, At(0, 90000).longitude, 200);
    EXPECT_TRUE(beyond[0].sure);
    EXPECT_TRUE(geocoder.Find(u"125 Far Ct, Prattville, AL"_s).empty()) << "a hundred miles off";
    const std::vector<Candidate> home = geocoder.Find(u"125 N Main St, Prattville, AL"_s);
    ASSERT_FALSE(home.empty());
    EXPECT_NEAR(home[0].place.longitude, kMiddle.longitude, 200);
    EXPECT_TRUE(home[0].sure);
    const std::vector<Candidate> other = geocoder.Find(u"125 N Main St, Prattville, GA"_s);
    ASSERT_FALSE(other.empty());
    EXPECT_NEAR(other[0].place.longitude, At(0, 6000000).longitude, 200) << "the same town of another state";
    const std::vector<Candidate> open = geocoder.Find(u"125 N Main St"_s);
    EXPECT_EQ(open.size(), 3u) << "in every county that has it";
    EXPECT_FALSE(open.at(0).sure);
    EXPECT_FALSE(geocoder.Find(u"125 Nmain St, AL"_s).at(0).sure);
    EXPECT_EQ(geocoder.Near(At(1500, 100000)).at(0).address, u"151 N MAIN ST, AL 36022"_s) << "the neighbour has no town";
}

TEST(AShareOfALine, IsBesideItOnTheGround)
{
    const std::vector<Place> line{At(0, 0), At(0, 2000), At(2000, 2000)};
    for (const double share : {0.0, 0.25, 0.5, 0.8, 1.0}) {
        for (const Side side : {Side::Left, Side::Right}) {
            const Place place = PlaceBeside(line, share, side, 25);
            const Foot foot = FootOf(place, line);
            EXPECT_NEAR(foot.feet, 25, 0.6) << share;
            EXPECT_EQ(foot.side, side) << share;
            EXPECT_NEAR(foot.share, share, 0.03);
        }
    }
    EXPECT_NEAR(LengthFeet(line), DistanceFeet(line[0], line[1]) + DistanceFeet(line[1], line[2]), 3);
    EXPECT_EQ(PlaceBeside({kMiddle}, 0.5, Side::Left, 25), kMiddle);
    EXPECT_EQ(PlaceBeside({kMiddle, kMiddle}, 0.5, Side::Left, 25), kMiddle) << "a line of no length";
}

} // namespace

} // namespace vasclip::street
