#include "platform/street/cell_codec.h"

#include "platform/street/bytes.h"
#include "platform/street/cell_grid.h"

#include <gtest/gtest.h>

#include <random>

namespace vasclip::street {
namespace {

using namespace Qt::StringLiterals;

const quint32 kId = grid::IdAt(Level::Streets, {32'455'000, -86'470'000});

NumberRange Range(const QString& from, const QString& to)
{
    return {from, to, {}, {}};
}

Cell Filled()
{
    Cell cell;
    cell.id = kId;
    cell.extent = grid::ExtentOf(kId);
    cell.streets = {{u"N Chestnut St"_s, {}}, {u"US Hwy 31"_s, u"US 31"_s}, {u"Café Ln"_s, {}}};
    cell.edges.push_back({1, RoadClass::Local, false, {{32'455'000, -86'470'000}, {32'456'000, -86'470'500}},
                          Range(u"100"_s, u"198"_s), Range(u"199"_s, u"101"_s)});
    cell.edges.push_back({2, RoadClass::Highway, true,
                          {{32'455'000, -86'470'000}, {32'400'000, -86'000'000}, {32'455'000, -86'470'000}},
                          Range(u"12-34"_s, u"N65W1234"_s), {}});
    cell.edges.push_back({0, RoadClass::Rail, false, {{-89'000'000, 179'000'000}, {90'000'000, -180'000'000}}, {}, {}});
    // Numbers that are not spelt as their value, one alone, and one that is too long for a number.
    cell.edges.push_back({3, RoadClass::Path, false, {{32'455'000, -86'470'000}, {32'455'000, -86'470'000}},
                          Range(u"007"_s, {}), Range(u"12345678901234567890"_s, u"0"_s)});
    cell.houses = {{u"12 1/2"_s, {32'455'100, -86'470'100}}, {u"14"_s, {32'455'200, -86'470'200}}};
    cell.areas.push_back({AreaKind::Park, u"Green"_s,
                          {{{32'455'000, -86'470'000}, {32'456'000, -86'470'000}, {32'456'000, -86'471'000}}, {}}});
    cell.waterLines.push_back({u"Mill Brook"_s, {{32'455'000, -86'470'000}, {32'456'000, -86'471'000}}});
    cell.places.push_back({u"Prattville"_s, PlaceKind::Suburb, 35'960, {32'455'000, -86'470'000}, {}});
    return cell;
}

/// Too little to be packed.
Cell Short()
{
    Cell cell = Filled();
    cell.streets.resize(2);
    cell.edges.resize(2);
    cell.houses.resize(1);
    cell.waterLines.clear();
    return cell;
}

/// So that it is packed.
Cell Repeated()
{
    Cell cell = Filled();
    for (int at = 0; at < 500; ++at)
        cell.edges.push_back(cell.edges[1]);
    return cell;
}

bool Same(const NumberRange& one, const NumberRange& other)
{
    return one.from == other.from && one.to == other.to;
}

void ExpectSame(const Cell& one, const Cell& other)
{
    EXPECT_EQ(one.level, other.level);
    EXPECT_EQ(one.id, other.id);
    EXPECT_EQ(one.extent, other.extent);
    ASSERT_EQ(one.streets.size(), other.streets.size());
    for (std::size_t at = 0; at < one.streets.size(); ++at) {
        EXPECT_EQ(one.streets[at].name, other.streets[at].name);
        EXPECT_EQ(one.streets[at].shield, other.streets[at].shield);
    }
    ASSERT_EQ(one.edges.size(), other.edges.size());
    for (std::size_t at = 0; at < one.edges.size(); ++at) {
        EXPECT_EQ(one.edges[at].street, other.edges[at].street);
        EXPECT_EQ(one.edges[at].roadClass, other.edges[at].roadClass);
        EXPECT_EQ(one.edges[at].hidden, other.edges[at].hidden);
        EXPECT_EQ(one.edges[at].line, other.edges[at].line);
        EXPECT_TRUE(Same(one.edges[at].left, other.edges[at].left)) << at;
        EXPECT_TRUE(Same(one.edges[at].right, other.edges[at].right)) << at;
    }
    ASSERT_EQ(one.houses.size(), other.houses.size());
    for (std::size_t at = 0; at < one.houses.size(); ++at) {
        EXPECT_EQ(one.houses[at].number, other.houses[at].number);
        EXPECT_EQ(one.houses[at].place, other.houses[at].place);
    }
    ASSERT_EQ(one.areas.size(), other.areas.size());
    EXPECT_EQ(one.areas[0].kind, other.areas[0].kind);
    EXPECT_EQ(one.areas[0].name, other.areas[0].name);
    EXPECT_EQ(one.areas[0].rings, other.areas[0].rings);
    ASSERT_EQ(one.waterLines.size(), other.waterLines.size());
    EXPECT_EQ(one.waterLines[0].name, other.waterLines[0].name);
    EXPECT_EQ(one.waterLines[0].line, other.waterLines[0].line);
    ASSERT_EQ(one.places.size(), other.places.size());
    EXPECT_EQ(one.places[0].name, other.places[0].name);
    EXPECT_EQ(one.places[0].kind, other.places[0].kind);
    EXPECT_EQ(one.places[0].population, other.places[0].population);
    EXPECT_EQ(one.places[0].place, other.places[0].place);
}

TEST(CellCodec, ACellComesBackAsItWas)
{
    const Cell cell = Filled();
    const std::shared_ptr<const Cell> back = DecodeCell(EncodeCell(cell), kId);
    ASSERT_TRUE(back);
    ExpectSame(cell, *back);
}

TEST(CellCodec, AnEmptyCellComesBack)
{
    Cell cell;
    cell.id = kId;
    const std::shared_ptr<const Cell> back = DecodeCell(EncodeCell(cell), kId);
    ASSERT_TRUE(back);
    EXPECT_TRUE(back->edges.empty());
}

TEST(CellCodec, RepetitionIsPackedAndOneThingIsNot)
{
    const qsizetype one = EncodeCell(Filled()).size();
    const Cell cell = Repeated();
    const QByteArray bytes = EncodeCell(cell);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_LT(bytes.size(), one + 500 * 5);
    const std::shared_ptr<const Cell> back = DecodeCell(bytes, kId);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->edges.size(), cell.edges.size());

    Cell small;
    small.id = kId;
    small.houses = {{u"1"_s, {32'455'100, -86'470'100}}};
    EXPECT_EQ(EncodeCell(small)[0], 0);
}

TEST(CellCodec, BytesCutShortAreNoCell)
{
    const QByteArray packed = EncodeCell(Repeated());
    const QByteArray plain = EncodeCell(Short());
    ASSERT_EQ(packed[0], 1);
    ASSERT_EQ(plain[0], 0);
    for (qsizetype size = 0; size < plain.size(); ++size)
        EXPECT_FALSE(DecodeCell(plain.first(size), kId)) << size;
    for (qsizetype size = 0; size < packed.size(); ++size)
        EXPECT_FALSE(DecodeCell(packed.first(size), kId)) << size;
    EXPECT_FALSE(DecodeCell(plain + 'x', kId));
    EXPECT_FALSE(DecodeCell(plain, 0xffffffff));
}

TEST(CellCodec, NoBytesDoHarm)
{
    const QByteArray packed = EncodeCell(Repeated());
    const QByteArray plain = EncodeCell(Short());
    ASSERT_EQ(plain[0], 0);
    std::mt19937 chance(7);
    for (int round = 0; round < 20'000; ++round) {
        QByteArray bytes = round % 2 == 0 ? plain : packed;
        for (unsigned changes = 1 + chance() % 4; changes > 0; --changes)
            bytes[static_cast<qsizetype>(chance() % unsigned(bytes.size()))] = static_cast<char>(chance());
        const std::shared_ptr<const Cell> cell = DecodeCell(bytes, kId);
        if (!cell)
            continue;
        for (const CellEdge& edge : cell->edges) {
            EXPECT_GE(edge.line.size(), 2U);
            EXPECT_LE(edge.street, cell->streets.size());
            for (const Place place : edge.line)
                EXPECT_TRUE(grid::IsOnEarth(place));
        }
    }
}

TEST(CellCodec, AClaimOfMuchTakesNothing)
{
    ByteWriter claim;
    claim.Number(0);
    claim.Number(std::numeric_limits<quint64>::max());
    EXPECT_FALSE(DecodeCell(QByteArray(1, '\0') + claim.Bytes(), kId));

    ByteWriter text;
    text.Number(1);
    text.Number(std::numeric_limits<quint64>::max());
    EXPECT_FALSE(DecodeCell(QByteArray(1, '\0') + text.Bytes() + "abc", kId));

    // A packed cell that says it is 4 GB long.
    ByteWriter packed;
    packed.Number(quint64(4) << 30);
    EXPECT_FALSE(DecodeCell('\x01' + packed.Bytes() + QByteArray(100, 'a'), kId));
}

TEST(CellCodec, ItsSizeGrowsWithWhatItHolds)
{
    Cell cell = Filled();
    const qsizetype before = BytesOf(cell);
    cell.edges.front().line.resize(1000);
    EXPECT_GE(BytesOf(cell), before + 7 * 1000);
    EXPECT_GT(before, static_cast<qsizetype>(4 * sizeof(CellEdge)));
}

} // namespace
} // namespace vasclip::street
