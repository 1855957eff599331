// The town's street map: made by the importer, asked as the program asks it.

#include "demo/home.h"
#include "demo/map_files.h"
#include "demo/map/ground.h"
#include "demo/map/roads.h"
#include "demo/market.h"
#include "platform/street/geocode.h"
#include "platform/street/geodesy.h"
#include "platform/street/map_data.h"
#include "platform/text/runtime_error.h"
#include "support/own_drive.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

const QString kMaps = u"C:\\MAPS\\"_s;

/// The map of the town, made once.
class Map
{
public:
    Map()
        : m_disk(m_home.path())
    {
        m_disk.MkDir(kMaps);
        MakeMap(m_disk, kMaps);
        m_data = std::make_unique<street::MapData>(m_disk.ToNative(kMaps));
        m_geocoder = std::make_unique<street::MapGeocoder>(*m_data);
    }
    [[nodiscard]] const street::MapData& Data() const { return *m_data; }
    [[nodiscard]] const street::MapGeocoder& Geocoder() const { return *m_geocoder; }

private:
    QTemporaryDir m_home;
    files::Disk m_disk;
    std::unique_ptr<street::MapData> m_data;
    std::unique_ptr<street::MapGeocoder> m_geocoder;
};

class TownMap : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!HasMapImporter())
            GTEST_SKIP() << "vasclip-mapdata is not built here";
    }
};

const Map& TheMap()
{
    static const Map map;
    return map;
}

street::Place OnMap(const Place& place)
{
    return {static_cast<qint32>(std::lround(place.latitude * 1e6)),
            static_cast<qint32>(std::lround(place.longitude * 1e6))};
}

struct Told
{
    QString address; ///< as the Databook has it
    QString city, zip;
    Place place;
};

/// Every comp and every subject, and where it stands.
std::vector<Told> Everybody()
{
    QList<Comp> comps = MakeMarket(kUsualComps);
    for (const Subject subject : kSubjects)
        comps.append(MakeSubject(subject));
    std::vector<Told> all;
    for (const Comp& comp : comps) {
        const QString address = comp.fields.value(u"ADDRESS"_s);
        for (const Neighbourhood& place : Town()) {
            if (place.name != comp.fields.value(u"NEIGHBORHD"_s))
                continue;
            for (const Street& street : place.streets) {
                if (address.section(u' ', 1) == street.name)
                    all.push_back({address, place.city, place.zip,
                                   PlaceOf(street, address.section(u' ', 0, 0).toInt())});
            }
        }
    }
    return all;
}

void ExpectFound(const Told& told, const QString& asked)
{
    const std::vector<street::Candidate> found = TheMap().Geocoder().Find(asked);
    ASSERT_FALSE(found.empty()) << asked.toStdString();
    EXPECT_TRUE(found.front().sure) << asked.toStdString();
    EXPECT_EQ(found.front().foundBy, street::FoundBy::Range) << asked.toStdString();
    const double feet = street::DistanceFeet(found.front().place, OnMap(told.place));
    EXPECT_LE(feet, found.front().uncertaintyFeet) << asked.toStdString();
    EXPECT_LE(feet, 60) << asked.toStdString() << ": a house beside its own";
}

TEST_F(TownMap, FindsEveryCompWhereItsCoordinatesSay)
{
    const std::vector<Told> all = Everybody();
    ASSERT_EQ(all.size(), kUsualComps + std::size(kSubjects));
    for (const Told& told : all)
        ExpectFound(told, u"%1, %2, OR %3"_s.arg(told.address.toUpper(), told.city, told.zip));
}

TEST_F(TownMap, FindsEveryCompWithoutItsZip)
{
    for (const Told& told : Everybody())
        ExpectFound(told, u"%1, %2, OR"_s.arg(told.address, told.city));
}

TEST_F(TownMap, HasAnAddressAtEveryCompsPlace)
{
    for (const Told& told : Everybody()) {
        const auto near = TheMap().Geocoder().Near(OnMap(told.place), 200);
        ASSERT_FALSE(near.empty()) << told.address.toStdString();
        EXPECT_LE(street::DistanceFeet(near.front().place, OnMap(told.place)), 60) << told.address.toStdString();
    }
}

TEST_F(TownMap, HasWaterParksRailwayTownsAndZips)
{
    const street::MapData& data = TheMap().Data();
    ASSERT_EQ(data.Counties().size(), 1U);
    const street::CountyInfo& info = data.Counties().front().info;
    EXPECT_EQ(info.county, u"Calder"_s);
    EXPECT_EQ(info.state, u"OR"_s);
    EXPECT_EQ(info.date, DemoToday().toString(Qt::ISODate));
    EXPECT_TRUE(data.Problems().isEmpty());
    std::set<street::AreaKind> areas;
    std::set<street::RoadClass> roads;
    for (const auto& cell : data.Cells(data.Covered(), street::Level::Streets)) {
        for (const auto& area : cell->areas)
            areas.insert(area.kind);
        for (const auto& edge : cell->edges)
            roads.insert(edge.roadClass);
    }
    for (const street::AreaKind kind : {street::AreaKind::Water, street::AreaKind::Park, street::AreaKind::Forest,
                                        street::AreaKind::School, street::AreaKind::Cemetery})
        EXPECT_TRUE(areas.contains(kind)) << int(kind);
    for (const street::RoadClass road : {street::RoadClass::Rail, street::RoadClass::Highway,
                                         street::RoadClass::Arterial, street::RoadClass::Local})
        EXPECT_TRUE(roads.contains(road)) << int(road);
    for (const Neighbourhood& place : Town()) {
        EXPECT_FALSE(TheMap().Geocoder().Find(place.zip).empty()) << place.zip.toStdString();
        const auto city = TheMap().Geocoder().Find(place.city + u", OR"_s);
        ASSERT_FALSE(city.empty()) << place.city.toStdString();
        EXPECT_EQ(city.front().foundBy, street::FoundBy::City) << place.city.toStdString();
    }
}

TEST_F(TownMap, LeadsFromEveryStreetToEveryOther)
{
    using Corner = std::pair<int, int>;
    const auto corner = [](Point point) {
        return Corner(int(std::lround(point.east)), int(std::lround(point.north)));
    };
    std::map<Corner, std::vector<Corner>> ways;
    std::map<Corner, QString> names;
    for (const RoadPiece& piece : Roads()) {
        if (piece.kind.startsWith(u'R'))
            continue;
        const Corner from = corner(piece.line.front());
        const Corner to = corner(piece.line.back());
        ways[from].push_back(to);
        ways[to].push_back(from);
        names[from] = names[to] = piece.name;
    }
    std::vector<Corner> waiting{ways.begin()->first};
    std::set<Corner> reached(waiting.begin(), waiting.end());
    while (!waiting.empty()) {
        const Corner at = waiting.back();
        waiting.pop_back();
        for (const Corner& next : ways[at]) {
            if (reached.insert(next).second)
                waiting.push_back(next);
        }
    }
    for (const auto& [at, name] : names)
        EXPECT_TRUE(reached.contains(at)) << name.toStdString() << " at " << at.first << ", " << at.second;
}

TEST_F(TownMap, IsCopiedWhereItWasMadeBeforehand)
{
    const QTemporaryDir home, ready;
    const files::Disk disk(tests::WithOwnDrive(home.path()));
    disk.MkDir(u"C:\\MAPS"_s);
    EXPECT_FALSE(CopyMap(disk, ready.path(), u"C:\\MAPS\\"_s)) << "an empty directory is none";
    EXPECT_FALSE(CopyMap(disk, ready.filePath(u"none"_s), u"C:\\MAPS\\"_s));
    for (const QString& name : {u"town.map"_s, u"index.map"_s}) {
        QFile file(ready.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(name.toUtf8()) > 0);
    }
    EXPECT_TRUE(CopyMap(disk, ready.path(), u"C:\\MAPS\\"_s));
    EXPECT_EQ(disk.ReadWhole(u"C:\\MAPS\\town.map"_s), "town.map");
    EXPECT_EQ(disk.ReadWhole(u"C:\\MAPS\\index.map"_s), "index.map");
    EXPECT_THROW(CopyMap(disk, ready.path(), u"C:\\MAPS\\"_s), RuntimeError) << "what is there is not overwritten";
}

TEST_F(TownMap, SaysWhatTheImporterLacks)
{
    const QTemporaryDir home;
    const files::Disk disk(tests::WithOwnDrive(home.path()));
    try {
        MakeMap(disk, u"C:\\NONE\\"_s); // no such directory
        FAIL() << "a map cannot be put where there is nothing";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.Description().startsWith(u"The street map cannot be made: "_s))
            << error.Description().toStdString();
    }
}

} // namespace
} // namespace vasclip::demo
