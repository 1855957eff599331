#include "platform/street/lookup_reader.h"
#include "platform/street/lookup_writer.h"
#include "platform/street/piece_index.h"
#include "platform/street/sql.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

RoadEdge Edge(const QString& name, NumberRange left, NumberRange right, Place from = {32000000, -86000000},
              Place to = {32001000, -86000000})
{
    RoadEdge edge;
    edge.name = name;
    edge.line = {from, to};
    edge.left = std::move(left);
    edge.right = std::move(right);
    return edge;
}

AddressPoint House(const QString& number, const QString& street, Place place = {32000500, -86000100})
{
    return {number, street, {}, u"Millbrook"_s, u"36054"_s, place};
}

/// A county's tables in memory.
class ALookup : public testing::Test
{
protected:
    ALookup()
    {
        QString problem;
        file = CreateSql(u":memory:"_s, FileKind::County, problem);
        writer = std::make_unique<LookupWriter>(file.get(), u"AL"_s);
    }

    const LookupReader& Reader()
    {
        QString problem;
        if (!reader) {
            EXPECT_TRUE(writer->Finish(problem)) << problem.toStdString();
            reader = std::make_unique<LookupReader>(file.get());
        }
        return *reader;
    }

    SqlFile file;
    std::unique_ptr<LookupWriter> writer;
    std::unique_ptr<LookupReader> reader;
};

TEST_F(ALookup, GivesBackWhatItWasTold)
{
    writer->Add(Edge(u"N Main St"_s, {u"101"_s, u"199"_s, u"36067"_s, {}}, {u"100"_s, u"198"_s, u"36066"_s, {}}), {7, 3});
    writer->Add(Edge(u"North Main Street"_s, {u"299"_s, u"201"_s, u"36067"_s, {}}, {{}, {}, {}, {}}), {9, 1});
    writer->Add(Edge(u"Main St"_s, {{}, {}, {}, {}}, {{}, {}, {}, {}}), {9, 2});
    writer->Add(Edge(u"Main Rd"_s, {u"12-01"_s, u"12-99"_s, {}, {}}, {u"N65W100"_s, u"N65W198A"_s, {}, {}}), {2, 0});
    writer->Add(House(u"105 1/2"_s, u"N Main St"_s));
    writer->Add(House(u"103"_s, u"N Main St"_s, {32000600, -86000200}));
    writer->Add(House(u"103"_s, u"N Main St"_s, {32000600, -86000200})); // another flat

    const std::vector<StoredStreet> streets = Reader().Streets(u"MAIN"_s);
    ASSERT_EQ(streets.size(), 3u);
    const StoredStreet& north = streets[0];
    EXPECT_EQ(north.name.Text(), u"N MAIN ST"_s);
    ASSERT_EQ(north.edges.size(), 2u);
    EXPECT_EQ(north.edges[0].position, (EdgePosition{7, 3}));
    EXPECT_EQ(north.edges[0].left.from.value, 101);
    EXPECT_EQ(north.edges[0].right.to.value, 198);
    EXPECT_EQ(Reader().Zip(north.edges[0].left.zip), u"36067"_s);
    EXPECT_EQ(Reader().Zip(north.edges[0].right.zip), u"36066"_s);
    EXPECT_EQ(north.edges[1].position, (EdgePosition{9, 1}));
    EXPECT_EQ(north.edges[1].left.from.value, 299);
    EXPECT_EQ(north.edges[1].left.to.value, 201);
    EXPECT_TRUE(north.edges[1].right.from.IsEmpty());
    ASSERT_EQ(north.houses.size(), 2u);
    EXPECT_EQ(north.houses[0].number.Text(), u"103"_s);
    EXPECT_EQ(north.houses[0].place, (Place{32000600, -86000200}));
    EXPECT_EQ(north.houses[1].number.Text(), u"105 1/2"_s);
    EXPECT_EQ(Reader().City(north.houses[1].city), u"MILLBROOK"_s);
    EXPECT_EQ(streets[1].name.Text(), u"MAIN ST"_s);
    EXPECT_EQ(streets[2].edges.at(0).left.to.Text(), u"12-99"_s);
    EXPECT_EQ(streets[2].edges.at(0).right.to.Text(), u"N65W198A"_s);
    EXPECT_TRUE(Reader().Streets(u"MAINE"_s).empty());
}

TEST_F(ALookup, FindsAStreetUnderEachOfItsNames)
{
    RoadEdge edge = Edge(u"Memorial Dr"_s, {u"1"_s, u"99"_s, {}, {}}, {});
    edge.otherNames = {u"US Hwy 31"_s, u"US-31"_s};
    writer->Add(edge, {1, 0});
    EXPECT_EQ(Reader().Streets(u"MEMORIAL"_s).size(), 1u);
    ASSERT_EQ(Reader().Streets(u"US HWY 31"_s).size(), 1u);
    EXPECT_EQ(Reader().Streets(u"US HWY 31"_s)[0].edges.size(), 1u) << "two spellings of one name are one";
}

TEST_F(ALookup, KeepsOddRanges)
{
    writer->Add(Edge(u"Oak St"_s, {u"101"_s, {}, {}, {}}, {{}, u"A"_s, {}, {}}), {1, 0});
    writer->Add(Edge(u"Elm St"_s, {u"1"_s, u"9"_s, u"99999"_s, {}}, {{}, {}, u"36067"_s, {}}), {1, 1});
    writer->Add(House({}, u"Oak St"_s));
    writer->Add(House(u"12"_s, {}));
    const StoredEdge oak = Reader().Streets(u"OAK"_s).at(0).edges.at(0);
    EXPECT_EQ(oak.left.to.value, 101) << "one end alone is a range of one number";
    EXPECT_TRUE(oak.right.from.IsEmpty()) << "letters alone are no number";
    const StoredEdge elm = Reader().Streets(u"ELM"_s).at(0).edges.at(0);
    EXPECT_EQ(elm.left.zip, 0u) << "99999 stands for none";
    EXPECT_EQ(Reader().Zip(elm.right.zip), u"36067"_s);
    EXPECT_EQ(writer->LeftOut(), 2);
}

TEST_F(ALookup, NamesTownsByOutlineAndByZip)
{
    PlaceName town{u"Pratt City"_s, PlaceKind::City, 5000, {32000500, -86000000}, {}};
    town.outline = {{{31990000, -86010000}, {31990000, -85990000}, {32010000, -85990000}, {32010000, -86010000}}};
    writer->Add(town);
    writer->Add(PlaceName{u"St. Elmo"_s, PlaceKind::Village, 0, {32500000, -86500000}, {}});
    writer->Add(Edge(u"Oak St"_s, {u"1"_s, u"9"_s, u"36067"_s, u"Autauga"_s}, {}), {1, 0});
    writer->Add(Edge(u"Far St"_s, {u"1"_s, u"9"_s, u"36001"_s, u"Autauga"_s}, {}, {32490000, -86500000}, {32495000, -86500000}),
                {1, 1});
    const LookupReader& all = Reader();
    EXPECT_EQ(all.City(all.Streets(u"OAK"_s).at(0).edges.at(0).left.city), u"PRATT CITY"_s);
    EXPECT_EQ(all.City(all.Streets(u"FAR"_s).at(0).edges.at(0).left.city), QString()) << "a county is no town";
    EXPECT_EQ(all.CityOfZip(u"36067"_s), u"PRATT CITY"_s);
    EXPECT_EQ(all.CityOfZip(u"36001"_s), u"SAINT ELMO"_s) << "none lies inside, so the nearest";
}

TEST_F(ALookup, KnowsNamesWithTypingErrors)
{
    const QStringList names{u"Whitetail"_s, u"Goose Pointe"_s, u"Oak"_s,  u"Elms"_s,     u"Chestnut"_s, u"Teri"_s,
                            u"3rd"_s,       u"4th"_s,          u"US 31"_s, u"US 82"_s,    u"Wetumpka"_s, u"McQueen Smith"_s};
    quint32 index = 0;
    for (const QString& name : names)
        writer->Add(Edge(name + u" St"_s, {}, {}), {1, index++});
    const auto nearest = [this](const QString& base) {
        const std::vector<SimilarName> similar = Reader().Similar(base);
        return similar.empty() ? std::string() : similar[0].name.toStdString() + std::to_string(similar[0].errors);
    };
    EXPECT_EQ(nearest(u"WHITEAIL"_s), "WHITETAIL1");
    EXPECT_EQ(nearest(u"WHTEAIL"_s), "WHITETAIL2");
    EXPECT_EQ(nearest(u"WXITETAXL"_s), "WHITETAIL2");
    EXPECT_EQ(nearest(u"GOOSE PONTE"_s), "GOOSE POINTE1");
    EXPECT_EQ(nearest(u"CHETSNUT"_s), "CHESTNUT1");
    EXPECT_EQ(nearest(u"HCESTNUT"_s), "CHESTNUT1");
    EXPECT_EQ(nearest(u"CHESTNTUS"_s), "CHESTNUT2");
    EXPECT_EQ(nearest(u"TERRI"_s), "TERI1");
    EXPECT_EQ(nearest(u"ETRI"_s), "TERI1");
    EXPECT_EQ(nearest(u"MCQUEENSMITH"_s), "MCQUEEN SMITH1");
    EXPECT_EQ(nearest(u"WETUMPKA"_s), "") << "no error, so not similar";
    EXPECT_EQ(nearest(u"OAT"_s), "") << "too short to be sure";
    EXPECT_EQ(nearest(u"US HWY 31"_s), "");
    EXPECT_EQ(nearest(u"US HWY 32"_s), "") << "another number is another road";
    EXPECT_EQ(nearest(u"5TH"_s), "");
    EXPECT_EQ(nearest(u"QQQQQQQQQ"_s), "");
}

TEST_F(ALookup, IsNothingWhereTheFileIsDamaged)
{
    writer->Add(Edge(u"Oak St"_s, {u"1"_s, u"9"_s, {}, {}}, {}), {1, 0});
    QString problem;
    ASSERT_TRUE(writer->Finish(problem));
    for (int size = 0; size < 24; ++size) {
        ASSERT_TRUE(RunSql(file.get(),
                           qPrintable(u"UPDATE lookup_streets SET bytes = substr(bytes, 1, %1) || zeroblob(%2)"_s.arg(size).arg(size % 3)),
                           problem));
        ASSERT_TRUE(RunSql(file.get(), "UPDATE lookup_facts SET bytes = x'ffffffffffff'", problem));
        const LookupReader damaged(file.get());
        for (const StoredStreet& street : damaged.Streets(u"OAK"_s))
            EXPECT_LE(street.edges.size(), 1u);
        EXPECT_EQ(damaged.Zip(1), QString());
    }
    ASSERT_TRUE(RunSql(file.get(), "DROP TABLE lookup_streets", problem));
    EXPECT_TRUE(LookupReader(file.get()).Streets(u"OAK"_s).empty());
    LookupSummary summary;
    ASSERT_TRUE(RunSql(file.get(), "DELETE FROM lookup_facts", problem));
    EXPECT_FALSE(ReadSummary(file.get(), summary, problem));
    EXPECT_EQ(problem, u"the file has no summary of its streets"_s);
}

TEST(Pieces, FindEveryNameWithUpToTwoErrors)
{
    // Every way to spoil a name once, and a sample of twice.
    const QStringList names{u"WHITETAIL"_s, u"GOOSE POINTE"_s, u"CHESTNUT"_s, u"ELMSW"_s, u"TERI"_s, u"MEADOW"_s};
    for (const QString& name : names) {
        pieces::Collector collector;
        collector.Add(name, 42);
        const auto rows = collector.Rows();
        const auto row = [&rows](quint32 bucket) {
            const auto found = rows.find(bucket);
            return found == rows.end() ? QByteArray() : found->second;
        };
        const auto spoilt = [](const QString& from) {
            QStringList all;
            for (qsizetype at = 0; at <= from.size(); ++at) {
                all.append(QString(from).insert(at, u'X'));
                if (at < from.size()) {
                    all.append(QString(from).remove(at, 1));
                    all.append(QString(from).replace(at, 1, u'X'));
                }
            }
            return all;
        };
        const int most = pieces::ErrorsFor(name.size());
        for (const QString& once : spoilt(name)) {
            if (pieces::ErrorsFor(once.size()) >= 1) {
                EXPECT_EQ(pieces::NumbersLike(once, row), std::vector<quint32>{42}) << once.toStdString();
            }
            EXPECT_LE(pieces::ErrorsBetween(name, once, 2), 1);
            for (const QString& twice : spoilt(once)) {
                if (most == 2 && pieces::ErrorsFor(twice.size()) == 2) {
                    EXPECT_EQ(pieces::NumbersLike(twice, row), std::vector<quint32>{42}) << twice.toStdString();
                }
            }
        }
    }
    EXPECT_EQ(pieces::ErrorsBetween(u"ABCD", u"ABDC", 2), 1);
    EXPECT_EQ(pieces::ErrorsBetween(u"ABCD", u"WXYZ", 2), 3);
    EXPECT_EQ(pieces::ErrorsBetween(u"", u"", 2), 0);
}

TEST(TheIndexOfNames, LeadsToTheFewCountiesThatCanHaveAnAddress)
{
    QString problem;
    const SqlFile file = CreateSql(u":memory:"_s, FileKind::Index, problem);
    NameIndexWriter writer(file.get());
    for (const quint32 county : {5u, 2u}) {
        const SqlFile own = CreateSql(u":memory:"_s, FileKind::County, problem);
        LookupWriter lookup(own.get(), county == 2 ? u"AL"_s : u"GA"_s);
        lookup.Add(Edge(county == 2 ? u"Oak St"_s : u"Elm St"_s, {u"1"_s, u"9"_s, u"36067"_s, {}}, {}), {1, 0});
        lookup.Add(Edge(u"Main St"_s, {}, {}), {1, 1});
        lookup.Add(PlaceName{u"Mt. Olive"_s, PlaceKind::Town, 10, {32000000, -86000000}, {}});
        ASSERT_TRUE(lookup.Finish(problem));
        LookupSummary summary;
        ASSERT_TRUE(ReadSummary(own.get(), summary, problem));
        EXPECT_EQ(summary.names, lookup.Summary().names);
        writer.Add(county, summary);
    }
    ASSERT_TRUE(writer.Finish(problem)) << problem.toStdString();
    const NameIndex index(file.get());
    EXPECT_EQ(index.CountiesOf(u"OAK"_s), std::vector<quint32>{2});
    EXPECT_EQ(index.CountiesOf(u"ELM"_s), std::vector<quint32>{5});
    EXPECT_EQ(index.CountiesOf(u"MAIN"_s), (std::vector<quint32>{2, 5}));
    EXPECT_TRUE(index.CountiesOf(u"ASH"_s).empty());
    ASSERT_TRUE(index.Zip(u"36067"_s));
    EXPECT_EQ(index.Zip(u"36067"_s)->counties.size(), 2u);
    EXPECT_FALSE(index.Zip(u"36068"_s));
    EXPECT_EQ(index.Places(u"MOUNT OLIVE"_s).size(), 2u);
    EXPECT_TRUE(index.Places(u"MOUNT OLIV"_s).empty());
    ASSERT_EQ(index.SimilarPlaces(u"MOUNT OLIV"_s).size(), 2u);
    EXPECT_EQ(index.SimilarPlaces(u"MOUNT OLIV"_s)[0].errors, 1);
    EXPECT_EQ(index.State(5), u"GA"_s);
    EXPECT_EQ(index.Counties(), (std::vector<quint32>{2, 5}));
}

} // namespace

} // namespace vasclip::street
