#include "mapdata/program.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <gdal_utils.h>
#include <ogrsf_frmts.h>

namespace vasclip::mapdata {
namespace {

using namespace Qt::StringLiterals;

/// A street of a GeoJSON file, all in one cell. @param line  "[x,y],[x,y]"
QByteArray Edge(int tlid, const char* name, const char* numbers, const char* zip, const char* line)
{
    const QList<QByteArray> range = QByteArray(numbers).split(' ');
    return QByteArrayLiteral(R"({"type":"Feature","properties":{"TLID":)") + QByteArray::number(tlid) +
           R"(,"FULLNAME":")" + name + R"(","LFROMHN":")" + range.value(0) + R"(","LTOHN":")" + range.value(1) +
           R"(","RFROMHN":")" + range.value(2) + R"(","RTOHN":")" + range.value(3) + R"(","ZIPL":")" + zip +
           R"(","ZIPR":"","MTFCC":"S1400"},"geometry":{"type":"LineString","coordinates":[)" + line + "]}}";
}

QByteArray Collection(const QByteArrayList& features)
{
    return R"({"type":"FeatureCollection","features":[)" + features.join(',') + "]}";
}

constexpr char kLine[] = "[-86.45,32.45],[-86.451,32.451]";
constexpr char kBeside[] = "[-86.45,32.45],[-86.449,32.451]";

class Imports : public tests::ImportHome
{
protected:
    /// The same layer as a shapefile with all its files.
    QString Shapefile(const QString& name, const QByteArray& geoJson) const
    {
        GDALAllRegister();
        const QString from = Put(u"from.geojson"_s, geoJson);
        const QString to = Below(name);
        const GDALDatasetUniquePtr source(
            GDALDataset::Open(from.toUtf8().constData(), GDAL_OF_VECTOR, nullptr, nullptr));
        char* words[] = {const_cast<char*>("-f"), const_cast<char*>("ESRI Shapefile"), nullptr};
        GDALVectorTranslateOptions* options = GDALVectorTranslateOptionsNew(words, nullptr);
        GDALDatasetH sources[] = {GDALDataset::ToHandle(source.get())};
        int wrong = 0;
        GDALClose(GDALVectorTranslate(to.toUtf8().constData(), nullptr, 1, sources, options, &wrong));
        GDALVectorTranslateOptionsFree(options);
        QFile::remove(from);
        return to;
    }

    bool TwoStreets(const QString& county) const
    {
        return Import({Put(u"tl_2021_%1_addrfeat.geojson"_s.arg(county),
                           Collection({Edge(1, "Main St", "100 198 101 199", "36067", kLine),
                                       Edge(2, "Oak St", "2 98 1 99", "36067", kBeside)}))})
                   .code == 0;
    }
};

TEST_F(Imports, TakeTheCountyFromTheNameOfAFile)
{
    const tests::Ended ended = Import({Put(u"tl_2021_30059_addrfeat.geojson"_s,
                                           Collection({Edge(1, "Main St", "100 198 101 199", "59645", kLine)}))});
    EXPECT_EQ(ended.code, 0) << ended.err.toStdString();
    EXPECT_TRUE(ended.out.contains("\ntaken 1 streets\n")) << ended.out.toStdString();
    const street::MapData maps(Maps());
    ASSERT_EQ(maps.Counties().size(), 1U);
    const street::CountyInfo& info = maps.Counties()[0].info;
    EXPECT_EQ(info.county, u"30059"_s);
    EXPECT_EQ(info.state, u"MT"_s);
    EXPECT_EQ(info.source, u"TIGER/Line 2021"_s);
    EXPECT_EQ(info.date, u"2021"_s);
    EXPECT_EQ(Read().streets, QStringList{u"Main St 100-198 101-199"_s});
}

TEST_F(Imports, NeedANameForOtherSources)
{
    const QString file = Put(u"streets.geojson"_s, Collection({Edge(1, "Main St", "1 9 2 8", "36067", kLine)}));
    tests::Ended ended = Import({file});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.err.contains("streets.geojson doesn't tell its county; give it a name by --county"));
    EXPECT_FALSE(QFile::exists(Maps()));
    ended = Import({file}, {u"--county"_s, u"../elsewhere"_s});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.err.contains("letters, digits"));
    ended = Import({file}, {u"--county"_s, u"Elm County"_s, u"--state"_s, u"al"_s, u"--source"_s, u"the town"_s,
                            u"--date"_s, u"2020-05"_s});
    EXPECT_EQ(ended.code, 0) << ended.err.toStdString();
    const street::MapData maps(Maps());
    ASSERT_EQ(maps.Counties().size(), 1U);
    EXPECT_EQ(maps.Counties()[0].info.county, u"Elm County"_s);
    EXPECT_EQ(maps.Counties()[0].info.state, u"AL"_s);
    EXPECT_EQ(maps.Counties()[0].info.source, u"the town"_s);
    EXPECT_EQ(maps.Counties()[0].info.date, u"2020-05"_s);
}

TEST_F(Imports, TellEachOddRecordOnALineOfItsOwn)
{
    const tests::Ended ended = Import(
        {Put(u"tl_2021_01001_addrfeat.geojson"_s,
             Collection({Edge(11, "Good St", "100 198 101 199", "36067", kLine),
                         Edge(12, "No Zip St", "100 198 101 199", "99999", kLine),
                         Edge(13, "Letter St", "12A 20A 1 9", "36067", kLine),
                         Edge(14, "Back St", "198 100 199 101", "36067", kLine),
                         Edge(15, "Both Ways St", "198 100 101 199", "36067", kLine),
                         Edge(16, "Nowhere St", "1 9 2 8", "36067", "[0,0],[0.001,0.001]"),
                         Edge(17, "Date St", "1 9 2 8", "36067", "[179.9999,52],[-179.9999,52]"),
                         Edge(18, "Dot St", "1 9 2 8", "36067", "[-86.45,32.45],[-86.45,32.45]"),
                         Edge(19, "Far St", "1 9 2 8", "36067", "[-86.45,32.45],[-80.45,32.45]"),
                         Edge(20, "Off St", "1 9 2 8", "36067", "[-86.45,32.45],[-86.45,95]")}))});
    EXPECT_EQ(ended.code, 0);
    const QByteArray account = Account();
    const char* const lines[] = {
        "remark: tl_2021_01001_addrfeat.geojson: TLID 12: ZIP 99999 is none and was left out\n",
        "remark: tl_2021_01001_addrfeat.geojson: TLID 13 (12A to 20A): its house numbers have letters\n",
        "remark: tl_2021_01001_addrfeat.geojson: TLID 15: its house numbers grow on one side and shrink on the other\n",
        "remark: tl_2021_01001_addrfeat.geojson: 1 records: the house numbers run against the direction of the line\n",
        "left out: tl_2021_01001_addrfeat.geojson: TLID 16: it lies at 0, 0\n",
        "left out: tl_2021_01001_addrfeat.geojson: TLID 17: it crosses the date line\n",
        "left out: tl_2021_01001_addrfeat.geojson: TLID 18: its line has fewer than 2 places\n",
        "left out: tl_2021_01001_addrfeat.geojson: TLID 19: its line jumps by more than 50 km\n",
        "left out: tl_2021_01001_addrfeat.geojson: TLID 20: its coordinates are no place on earth\n",
        "\ntaken 5: streets\n"};
    for (const char* line : lines)
        EXPECT_TRUE(account.contains(line)) << line << account.toStdString();
    EXPECT_TRUE(ended.out.contains("left 1 it lies at 0, 0\n")) << ended.out.toStdString();
    EXPECT_EQ(Read().streets,
              (QStringList{u"Back St 198-100 199-101"_s, u"Both Ways St 198-100 101-199"_s,
                           u"Good St 100-198 101-199"_s, u"Letter St 12A-20A 1-9"_s, u"No Zip St 100-198 101-199"_s}));
}

TEST_F(Imports, BringTheRowsOfOneEdgeTogether)
{
    Import({Put(u"tl_2021_01001_addrfeat.geojson"_s,
                Collection({Edge(1, "State Hwy 14", "100 198 101 199", "36067", kLine),
                            Edge(1, "Main St", "100 198 101 199", "36067", kLine),
                            Edge(1, "State Hwy 14", "200 298 201 299", "36067", kLine)}))});
    // One line that is drawn, and one for its other numbers alone.
    EXPECT_EQ(Read().streets,
              (QStringList{u"State Hwy 14 100-198 101-199"_s, u"State Hwy 14 200-298 201-299 (hidden)"_s}));
}

TEST_F(Imports, OpenAShapefileWithoutItsOtherFiles)
{
    const QByteArray layer = Collection({Edge(1, "Main St", "100 198 101 199", "36067", kLine)});
    const QString shape = Shapefile(u"whole.shp"_s, layer);
    EXPECT_EQ(Import({shape}, {u"--county"_s, u"whole"_s}).code, 0);
    EXPECT_EQ(Read().streets, QStringList{u"Main St 100-198 101-199"_s});
    QFile::remove(Below(u"whole.prj"_s));
    tests::Ended ended = Import({shape}, {u"--county"_s, u"whole"_s});
    EXPECT_EQ(ended.code, 0);
    EXPECT_TRUE(ended.out.contains(
        "note whole.shp: its .prj is missing; its coordinates are taken as degrees (WGS84)\n"));
    QFile::remove(Below(u"whole.dbf"_s));
    ended = Import({shape}, {u"--county"_s, u"whole"_s});
    EXPECT_EQ(ended.code, 0);
    EXPECT_TRUE(ended.out.contains("note whole.shp: its .dbf is missing or has no names, so its streets are drawn "
                                   "without names and nothing is found on them\n"))
        << ended.out.toStdString();
    EXPECT_EQ(Read().streets, QStringList{QString()});
    QFile::remove(Below(u"whole.shx"_s));
    ended = Import({shape}, {u"--county"_s, u"whole"_s});
    EXPECT_EQ(ended.code, 0) << ended.err.toStdString();
    EXPECT_EQ(Read().streets, QStringList{QString()});
    // Nothing is written beside a source.
    EXPECT_FALSE(QFile::exists(Below(u"whole.shx"_s)));
}

TEST_F(Imports, RefuseCoordinatesThatNobodyExplains)
{
    QByteArray feet = Collection({Edge(1, "Main St", "1 9 2 8", "36067", "[500000,700000],[500100,700100]")});
    const QString shape = Shapefile(u"feet.shp"_s, feet);
    QFile::remove(Below(u"feet.prj"_s));
    const tests::Ended ended = Import({shape}, {u"--county"_s, u"feet"_s});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.out.contains("note feet.shp: its coordinates are no degrees, and no .prj says what they are\n"))
        << ended.out.toStdString();
}

TEST_F(Imports, GiveAStatesPlacesToItsCounties)
{
    const QString streets = Put(u"tl_2021_01001_addrfeat.geojson"_s,
                                Collection({Edge(1, "Main St", "100 198 101 199", "36067", kLine)}));
    const auto place = [](const char* name, const char* code, const char* box) {
        return QByteArray(R"({"type":"Feature","properties":{"STATEFP":"01","PLACEFP":")") + code +
               R"(","NAME":")" + name +
               R"(","LSAD":"25"},"geometry":{"type":"Polygon","coordinates":[[)" + box + "]]}}";
    };
    const QString places = Put(
        u"tl_2021_01_place.geojson"_s,
        Collection({place("Elmsford", "1", "[-86.5,32.4],[-86.4,32.4],[-86.4,32.5],[-86.5,32.5],[-86.5,32.4]"),
                    place("Elsewhere", "2", "[-85.5,31.4],[-85.4,31.4],[-85.4,31.5],[-85.5,31.5],[-85.5,31.4]")}));
    const tests::Ended ended = Import({streets, places});
    EXPECT_EQ(ended.code, 0) << ended.err.toStdString();
    EXPECT_TRUE(ended.out.contains("taken 1 places\n")) << ended.out.toStdString();
}

TEST_F(Imports, KnowManyNamesOfTheSameColumns)
{
    const QString csv = Put(u"points.csv"_s, "LON,LAT,NUMBER,STREET,UNIT,CITY,POSTCODE\n"
                                             "-86.45,32.45,110,N MAIN ST,,ELMSFORD,36067\n"
                                             ",,112,N MAIN ST,,,\n"
                                             "0,0,114,N MAIN ST,,,\n"
                                             "-86.45,32.45,,N MAIN ST,,,\n"
                                             "-86.45,32.45,116,,,,\n");
    tests::Ended ended = Import({csv}, {u"--county"_s, u"a"_s});
    EXPECT_EQ(ended.code, 0);
    EXPECT_EQ(Read().houses, QStringList{u"110"_s});
    const QByteArray account = Account();
    for (const char* line : {"row 2: it has no place\n", "row 3: it lies at 0, 0\n",
                             "row 4: it has no house number\n", "row 5: it has no street\n"})
        EXPECT_TRUE(account.contains(line)) << line << account.toStdString();

    const QString parts =
        Put(u"parts.geojson"_s,
            Collection({R"({"type":"Feature","properties":{"Add_Number":12,"AddNum_Suf":"1/2","St_PreDir":"N",)"
                        R"("St_Name":"Oak","St_PosTyp":"St","Post_City":"X","Post_Code":"36067"},)"
                        R"("geometry":{"type":"Point","coordinates":[-86.45,32.45]}})"}));
    EXPECT_EQ(Import({parts}, {u"--county"_s, u"a"_s}).code, 0);
    EXPECT_EQ(Read().houses, QStringList{u"12 1/2"_s});

    const QString one = Put(u"one.csv"_s, "x,y,FULLADDR\n-86.45,32.45,\"220 W Elm St, Unit 4\"\n");
    EXPECT_EQ(Import({one}, {u"--county"_s, u"a"_s}).code, 0);
    EXPECT_EQ(Read().houses, QStringList{u"220"_s});

    const QString nothing = Put(u"nothing.csv"_s, "a,b\n1,2\n");
    ended = Import({nothing}, {u"--county"_s, u"a"_s});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.out.contains(
        "note nothing.csv: it has no columns of streets, house numbers, places or water that are known\n"));
    EXPECT_EQ(Read().houses, QStringList{u"220"_s});
}

QByteArray Osm()
{
    return R"(<?xml version="1.0"?><osm version="0.6">
<node id="1" lat="32.450" lon="-86.450"/><node id="2" lat="32.451" lon="-86.450"/>
<node id="3" lat="32.452" lon="-86.450"/><node id="4" lat="32.451" lon="-86.449"/>
<node id="5" lat="32.453" lon="-86.449"><tag k="addr:housenumber" v="12;14"/><tag k="addr:street" v="Oak Street"/></node>
<node id="6" lat="32.4521" lon="-86.4491"><tag k="place" v="town"/><tag k="name" v="Elmsford"/></node>
<node id="11" lat="32.44" lon="-86.46"/><node id="12" lat="32.44" lon="-86.44"/>
<node id="13" lat="32.46" lon="-86.44"/><node id="14" lat="32.46" lon="-86.46"/>
<node id="21" lat="32.4501" lon="-86.4501"/><node id="22" lat="32.4501" lon="-86.4502"/>
<node id="23" lat="32.4502" lon="-86.4502"/>
<way id="1"><nd ref="1"/><nd ref="2"/><nd ref="3"/><tag k="highway" v="primary"/><tag k="name" v="Main Street"/>
<tag k="ref" v="US 31"/></way>
<way id="2"><nd ref="2"/><nd ref="4"/><tag k="highway" v="residential"/><tag k="name" v="Oak Street"/></way>
<way id="3"><nd ref="1"/><nd ref="4"/><tag k="highway" v="proposed"/><tag k="name" v="Dream Road"/></way>
<way id="4"><nd ref="1"/><nd ref="4"/><tag k="waterway" v="stream"/><tag k="name" v="Mill Brook"/></way>
<way id="5"><nd ref="21"/><nd ref="22"/><nd ref="23"/><nd ref="21"/><tag k="building" v="yes"/>
<tag k="addr:housenumber" v="20"/><tag k="addr:street" v="Main Street"/></way>
<way id="6"><nd ref="21"/><nd ref="22"/><nd ref="23"/><nd ref="21"/><tag k="leisure" v="park"/>
<tag k="name" v="Green"/></way>
<way id="7"><nd ref="11"/><nd ref="12"/><nd ref="13"/><nd ref="14"/><nd ref="11"/></way>
<relation id="1"><member type="way" ref="7" role="outer"/><tag k="type" v="boundary"/>
<tag k="boundary" v="postal_code"/><tag k="postal_code" v="36067"/></relation>
<relation id="2"><member type="way" ref="7" role="outer"/><tag k="type" v="boundary"/>
<tag k="boundary" v="administrative"/><tag k="admin_level" v="8"/><tag k="name" v="Elmsford"/></relation>
</osm>)";
}

TEST_F(Imports, ReadOpenStreetMap)
{
    const tests::Ended ended = Import({Put(u"town.osm"_s, Osm())}, {u"--county"_s, u"Elm"_s, u"--state"_s, u"AL"_s});
    EXPECT_EQ(ended.code, 0) << ended.err.toStdString();
    const Content content = Read();
    // The street is cut where the other meets it; what is not built is no street.
    EXPECT_EQ(content.streets, (QStringList{u"Main Street"_s, u"Main Street"_s, u"Oak Street"_s}));
    EXPECT_EQ(content.houses, (QStringList{u"12"_s, u"14"_s, u"20"_s}));
    EXPECT_EQ(content.areas, QStringList{u"Green"_s});
    EXPECT_EQ(content.brooks, QStringList{u"Mill Brook"_s});
    // Its point and its outline are one town.
    EXPECT_EQ(content.places, QStringList{u"Elmsford"_s});
    for (const char* line : {"taken 1 ZIP areas\n", "taken 1 places\n", "taken 1 areas\n", "taken 3 houses\n"})
        EXPECT_TRUE(ended.out.contains(line)) << ended.out.toStdString();
}

TEST_F(Imports, NameOpenStreetMapWhateverTheUserCallsHisSources)
{
    const QString town = Put(u"town.osm"_s, Osm());
    const auto source = [&](const QStringList& options) {
        EXPECT_EQ(Import({town}, QStringList{u"--county"_s, u"Elm"_s} + options).code, 0);
        return street::MapData(Maps()).Counties().at(0).info.source;
    };
    EXPECT_EQ(source({}), u"OpenStreetMap"_s);
    EXPECT_EQ(source({u"--source"_s, u"our cut of May"_s}), u"our cut of May, OpenStreetMap"_s);
    EXPECT_EQ(source({u"--source"_s, u"OpenStreetMap of May"_s}), u"OpenStreetMap of May"_s);
}

TEST_F(Imports, SayThatAnOpenStreetMapFileIsNotSorted)
{
    QByteArray osm = Osm();
    const qsizetype node = osm.indexOf("<node id=\"13\"");
    const qsizetype end = osm.indexOf("<node id=\"14\"");
    const QByteArray late = osm.sliced(node, end - node);
    osm.remove(node, late.size());
    osm.insert(osm.indexOf("<relation"), late);
    const tests::Ended ended = Import({Put(u"town.osm"_s, osm)}, {u"--county"_s, u"Elm"_s});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.out.contains("note town.osm: it is not sorted (nodes, then ways, then relations)"))
        << ended.out.toStdString();
    EXPECT_FALSE(QFile::exists(Maps() + u"/F1"_s));
}

TEST_F(Imports, HideTheLinesThatABetterSourceDraws)
{
    const QString ranges =
        Put(u"tl_2021_01001_addrfeat.geojson"_s,
            Collection({Edge(1, "Main St", "100 198 101 199", "36067", "[-86.4501,32.45],[-86.4501,32.452]"),
                        Edge(2, "Far St", "100 198 101 199", "36067", "[-86.46,32.45],[-86.46,32.452]")}));
    EXPECT_EQ(Import({ranges, Put(u"town.osm"_s, Osm())}).code, 0);
    EXPECT_EQ(Read().streets,
              (QStringList{u"Far St 100-198 101-199"_s, u"Main St 100-198 101-199 (hidden)"_s, u"Main Street"_s,
                           u"Main Street"_s, u"Oak Street"_s}));
    EXPECT_EQ(street::MapData(Maps()).Counties()[0].info.source, u"TIGER/Line 2021, OpenStreetMap"_s);
}

TEST_F(Imports, LeaveTheMapsAsTheyWereWhenTheDiskIsFull)
{
    ASSERT_TRUE(TwoStreets(u"01001"_s));
    QByteArrayList many;
    for (int at = 0; at < 3000; ++at)
        many.append(Edge(at + 1, QByteArray("Street " + QByteArray::number(at)).constData(), "100 198 101 199",
                         "36067", kLine));
    const QString big = Put(u"tl_2021_01001_addrfeat.geojson"_s, Collection(many));
    QProcess limited;
    limited.start(u"/bin/bash"_s,
                  {u"-c"_s, u"ulimit -f 24; trap '' XFSZ; exec \"$0\" import \"$1\" --to \"$2\""_s,
                   tests::ProgramHome::Program(u"vasclip-mapdata"_s), big, Maps()});
    ASSERT_TRUE(limited.waitForFinished(tests::kPatienceMs));
    EXPECT_EQ(limited.exitCode(), 1);
    const QByteArray words = limited.readAllStandardError();
    EXPECT_TRUE(words.contains("the map of 01001 can't be written: the disk is full")) << words.toStdString();
    EXPECT_EQ(Read().streets.size(), 2);
    EXPECT_TRUE(street::VerifyMaps(Maps()).isEmpty());
    // With room again it succeeds, and nothing is left of the failure.
    EXPECT_EQ(Import({big}).code, 0);
    EXPECT_EQ(Read().streets.size(), 3000);
    EXPECT_EQ(QDir(Maps()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

TEST_F(Imports, StopWhenTheirInputEnds)
{
    ASSERT_TRUE(TwoStreets(u"01001"_s));
    QByteArrayList many;
    for (int at = 0; at < 20000; ++at)
        many.append(Edge(at + 1, "Main St", "100 198 101 199", "36067", kLine));
    const QString big = Put(u"tl_2021_01001_addrfeat.geojson"_s, Collection(many));
    for (const bool byInput : {true, false}) {
        QProcess program;
        program.start(tests::ProgramHome::Program(u"vasclip-mapdata"_s),
                      {u"import"_s, big, u"--to"_s, Maps(), u"--stop-with-input"_s});
        ASSERT_TRUE(program.waitForReadyRead(tests::kPatienceMs));
        EXPECT_TRUE(program.readAllStandardOutput().startsWith("progress 0 1000 reading tl_2021_01001_addrfeat.geojson"));
        if (byInput)
            program.closeWriteChannel();
        else
            program.terminate();
        ASSERT_TRUE(program.waitForFinished(tests::kPatienceMs));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 4);
        EXPECT_TRUE(program.readAllStandardError().contains("it was stopped; the maps are as they were"));
        EXPECT_EQ(Read().streets.size(), 2);
    }
    // Without the option an input that is at its end from the start stops nothing.
    EXPECT_EQ(Import({big}).code, 0);
    EXPECT_EQ(Read().streets.size(), 20000);
}

TEST_F(Imports, SayWhenAnotherProgramIsAtIt)
{
    ASSERT_TRUE(TwoStreets(u"01001"_s));
    street::MapChange other(Maps());
    QString problem;
    ASSERT_TRUE(other.Begin(problem));
    const tests::Ended ended = Run({u"remove"_s, Maps(), u"01001"_s});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.err.contains("another program is changing the maps of this directory"));
}

TEST_F(Imports, ListVerifyAndRemove)
{
    EXPECT_EQ(Run({u"list"_s, Maps()}).code, 3);
    ASSERT_TRUE(TwoStreets(u"01003"_s));
    ASSERT_TRUE(TwoStreets(u"01001"_s));
    tests::Ended ended = Run({u"list"_s, Maps()});
    EXPECT_EQ(ended.code, 0);
    EXPECT_TRUE(ended.out.startsWith("01001\tAL\t2\t0\tTIGER/Line 2021\t2021\t")) << ended.out.toStdString();
    EXPECT_EQ(ended.out.count('\n'), 2);
    ended = Run({u"list"_s, Maps(), u"--json"_s});
    ASSERT_EQ(ended.Array().size(), 2);
    EXPECT_EQ(ended.Array()[1].toObject()[u"county"_s].toString(), u"01003"_s);
    EXPECT_EQ(ended.Array()[1].toObject()[u"south"_s].toDouble(), 32.45);
    EXPECT_EQ(Run({u"verify"_s, Maps()}).code, 0);
    EXPECT_EQ(Run({u"remove"_s, Maps(), u"01009"_s}).code, 3);
    EXPECT_EQ(Run({u"remove"_s, Maps(), u"01003"_s}).code, 0);
    EXPECT_EQ(Run({u"list"_s, Maps()}).out.count('\n'), 1);
    QFile::remove(Maps() + u'/' + street::MapData(Maps()).Counties()[0].file);
    ended = Run({u"verify"_s, Maps()});
    EXPECT_EQ(ended.code, 1);
    EXPECT_TRUE(ended.err.contains("01001: the file is missing"));
}

TEST_F(Imports, TellAWrongCall)
{
    for (const QStringList& words : {QStringList{}, {u"import"_s}, {u"import"_s, u"x.shp"_s}, {u"list"_s},
                                     {u"remove"_s, Maps()}, {u"conquer"_s}, {u"list"_s, Maps(), u"--fast"_s}}) {
        const tests::Ended ended = Run(words);
        EXPECT_EQ(ended.code, 2) << words.join(u' ').toStdString();
        EXPECT_TRUE(ended.err.contains("vasclip-mapdata verify DIR"));
    }
    EXPECT_EQ(Run({u"--help"_s}).code, 0);
    EXPECT_TRUE(Import({Below(u"none.shp"_s)}).err.contains("none.shp: there is no such file"));
    EXPECT_TRUE(Import({Put(u"text.txt"_s, "x")}).err.contains("its ending is none of a map source"));
    EXPECT_TRUE(Import({Put(u"bad.zip"_s, "x")}).err.contains("it is no zip file that can be read"));
    EXPECT_EQ(Import({Put(u"tl_2021_01001_edges.shp"_s, "no shapefile")}).code, 1);
    EXPECT_FALSE(QFile::exists(Maps() + u"/F1"_s));
}

} // namespace
} // namespace vasclip::mapdata
