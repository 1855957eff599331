#include "databook/same_house.h"
#include "support/databook_home.h"

#include <gtest/gtest.h>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(SameHouse, IsKnownInEverySpelling)
{
    EXPECT_EQ(HouseOf(u"123 N Oak St"_s), HouseOf(u"123 North Oak Street"_s));
    EXPECT_NE(HouseOf(u"123 N Oak St"_s), HouseOf(u"123 S Oak St"_s));
    EXPECT_NE(HouseOf(u"123 Oak St"_s), HouseOf(u"125 Oak St"_s));
    EXPECT_EQ(HouseOf(u"Oak Street"_s), QString());
    EXPECT_EQ(HouseOf(QString()), QString());
}

class Twins : public tests::DatabookHome
{
protected:
    store::DataSource databook{engine, u"datDatabook"_s};
    void SetUp() override
    {
        DatabookHome::SetUp();
        const auto comp = [&](const QString& name, const QString& address, const QString& city) {
            AddRow({{key, name.leftJustified(35)}, {u"ADDRESS"_s, address}, {u"CITY"_s, city}});
        };
        comp(u"123 N OAK ST"_s, u"123 N Oak St"_s, u"Alder"_s);
        comp(u"9 ELM ST"_s, {}, u"Alder"_s);
        comp(u"12 O'HARA LN"_s, u"12 O'Hara Ln"_s, {});
        comp(u"1 ASH ST"_s, u"1 Ash St"_s, {});
        Bind(databook);
    }
    void TearDown() override { databook.Close(); }
    QString Of(const QString& own, const QString& address, const QString& city = {})
    {
        return TwinOf(databook, table, own, address, city);
    }
};

TEST_F(Twins, AreNamedByTheirKey)
{
    EXPECT_EQ(Of({}, u"123 north oak street"_s), u"123 N OAK ST"_s);
    EXPECT_EQ(Of({}, u"123 North Oak Street"_s, u"alder"_s), u"123 N OAK ST"_s);
    EXPECT_EQ(Of({}, u"9 Elm Street"_s), u"9 ELM ST"_s) << "by the key, where there is no address";
    EXPECT_EQ(Of({}, u"12 O'Hara Lane"_s), u"12 O'HARA LN"_s);
}

TEST_F(Twins, AreNoneOfThemselvesNorInAnotherTownNorHalfTyped)
{
    EXPECT_EQ(Of(u"123 n oak st "_s, u"123 North Oak Street"_s), QString());
    EXPECT_EQ(Of({}, u"123 North Oak Street"_s, u"Birch"_s), QString());
    EXPECT_EQ(Of({}, u"123 N"_s), QString());
    EXPECT_EQ(Of({}, u"12 N Oak St"_s), QString());
    EXPECT_EQ(Of({}, u"123' OR 1=1"_s), QString());
}

TEST_F(Twins, AreShownInShort)
{
    EXPECT_EQ(InShort(databook, u"123 N OAK ST"_s), u"123 N OAK ST\nAddress: 123 N Oak St\nCity: Alder"_s);
    EXPECT_EQ(InShort(databook, u"GONE"_s), u"GONE"_s);
}

} // namespace
} // namespace vasclip::databook
