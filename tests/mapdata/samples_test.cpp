#include "mapdata/program.h"

namespace vasclip::mapdata {
namespace {

using namespace Qt::StringLiterals;

const QString kSamples = qEnvironmentVariable("VASCLIP_MAPDATA", QString::fromUtf8(VASCLIP_MAPDATA_DEFAULT));

struct Row
{
    const char* source; ///< below the samples
    std::vector<const char*> lines; ///< of what the program prints
    int edges; ///< of all counties
    int houses;
};

class Samples : public tests::ImportHome, public testing::WithParamInterface<Row>
{};

TEST_P(Samples, GiveWhatIsInThem)
{
    const Row& row = GetParam();
    const QString source = kSamples + u'/' + QString::fromLatin1(row.source);
    if (!QFile::exists(source))
        GTEST_SKIP() << "no street data at " << kSamples.toStdString();
    const tests::Ended ended = Import({source}, {u"--county"_s, u"sample"_s, u"--state"_s, u"AL"_s});
    ASSERT_EQ(ended.code, 0) << ended.err.toStdString();
    for (const char* line : row.lines)
        EXPECT_TRUE(ended.out.contains(line)) << line << '\n' << ended.out.toStdString();
    int edges = 0;
    int houses = 0;
    const street::MapData maps(Maps());
    for (const street::CountyRecord& record : maps.Counties()) {
        edges += static_cast<int>(record.info.edges);
        houses += static_cast<int>(record.info.houses);
        EXPECT_FALSE(maps.Cells(record.info.extent, street::Level::Streets).empty());
    }
    EXPECT_EQ(edges, row.edges);
    EXPECT_EQ(houses, row.houses);
    EXPECT_TRUE(street::VerifyMaps(Maps()).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Folders, Samples,
    testing::Values(
        Row{"meagher_mt_addrfeat",
            {"taken 3 counties\n", "remark 1 ZIP 99999 is none and was left out\n"}, 648, 0},
        Row{"alachua_fl_lines",
            {"note tl_rd22_12001_addrfeat.shp: its .dbf is missing", "note tl_rd22_12001_addrfeat.shp: its .prj"},
            23305, 0},
        Row{"baltimore_md_osm/baltimore.osm.pbf", {"left 8 it has no street\n"}, 6132, 1321},
        Row{"baltimore_md_osm/addresses.csv", {}, 0, 1321},
        Row{"middlebury_vt_points", {"left 11 it has no house number\n"}, 0, 3152},
        Row{"prattville_al/prattville_addrfeat.shp", {"remark 64 its house numbers grow on one side"}, 2699, 0},
        Row{"prattville_al", {"note tiger_ranges_prattville.csv: it has no columns"}, 9381, 0}));

} // namespace
} // namespace vasclip::mapdata
