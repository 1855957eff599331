#include "list_home.h"

namespace vasclip::upkeep {
namespace {

class ListGuess : public ListHome
{
protected:
    ListProposal Of(const QByteArray& text)
    {
        disk.WriteWhole(csv, text);
        return Look(csv);
    }
};

TEST_F(ListGuess, FindsTheOrderOfDates)
{
    const auto dates = [&](const QByteArray& values) { return Of("Address;Sale Date\n" + values).look.dates; };
    EXPECT_EQ(dates("1 Ash St;3/7/2004\n2 Ash St;3/31/2004\n"), DateOrder::MonthFirst);
    EXPECT_EQ(dates("1 Ash St;3/7/2004\n2 Ash St;31/3/2004\n"), DateOrder::DayFirst);
    EXPECT_EQ(dates("1 Ash St;99.03.31\n2 Ash St;04.03.07\n"), DateOrder::YearFirst);
    const ListProposal open = Of("Address;Sale Date\n1 Ash St;3/7/2004\n");
    EXPECT_EQ(open.look.dates, DateOrder::MonthFirst);
    EXPECT_TRUE(open.datesOpen);
    EXPECT_FALSE(Of("Address;Sale Date\n1 Ash St;31/3/2004\n").datesOpen);
}

TEST_F(ListGuess, FindsTheDecimalSign)
{
    const auto sign = [&](const QByteArray& values) { return Of("Address;Price;GLA\n" + values).look.decimal; };
    EXPECT_EQ(sign("1 Ash St;250.000,50;1600\n"), QChar(u','));
    EXPECT_EQ(sign("1 Ash St;250000,5;\n"), QChar(u','));
    EXPECT_EQ(sign("1 Ash St;1.250.000;\n"), QChar(u','));
    EXPECT_EQ(sign("1 Ash St;250,000.50;1600\n"), QChar(u'.'));
    EXPECT_EQ(sign("1 Ash St;250.000;1.600\n"), QChar(u'.')) << "which may be both";
}

TEST_F(ListGuess, FindsTheHeadingsBelowATitle)
{
    const ListProposal found = Of("Sales of March;;\n\nprinted today;;\nAddress;City;Sold Price\n1 Ash St;Cedar;250000\n");
    EXPECT_EQ(found.look.headingLine, 4);
    EXPECT_EQ(FieldsOf(found.look), (QStringList{u"ADDRESS"_s, u"CITY"_s, u"SELLINGPR"_s}));
    EXPECT_EQ(Of("one;two\n1 Ash St;Cedar\n").look.headingLine, 1);
}

TEST_F(ListGuess, TakesAListWithoutHeadings)
{
    disk.WriteWhole(csv, "1 Ash St,Cedar\n2 Ash St,Cedar,97001\n");
    ListLook look = Look(csv, {.headingLine = 0}).look;
    ASSERT_EQ(look.columns.size(), 3);
    EXPECT_EQ(look.columns[2].heading, u"(column 3)"_s);
    look.columns[0].field = u"ADDRESS"_s;
    EXPECT_EQ(ImportTable(Desk(), Order(csv, look), Step()).appended, 2);
}

TEST_F(ListGuess, PutsWhatTheValuesTellBeforeTheHabit)
{
    ListLook look = Of("Address;Sale Date;Price\n1 Ash St;31.3.2004;1,5\n").look;
    KeepColumns(Desk(), look);
    EXPECT_EQ(Of("Address;Sale Date;Price\n1 Ash St;3.4.2004;1.500\n").look.dates, DateOrder::DayFirst) << "the habit";
    EXPECT_EQ(Look(csv).look.decimal, QChar(u','));
    EXPECT_EQ(Of("Address;Sale Date;Price\n1 Ash St;3.31.2004;1.5\n").look.dates, DateOrder::MonthFirst) << "the values";
    EXPECT_EQ(Look(csv).look.decimal, QChar(u'.'));
}

TEST_F(ListGuess, KeepsPresetsUnderTheirNames)
{
    disk.WriteWhole(csv, "one|two;x\n1 Ash St|Cedar;y\n");
    ListLook look = Look(csv, {.delimiter = u'|'}).look;
    look.columns[0].field = u"ADDRESS"_s;
    look.dates = DateOrder::DayFirst;
    look.headingLine = 1;
    KeepPreset(Desk(), u"County"_s, look);
    KeepPreset(Desk(), u"Another"_s, look);
    EXPECT_EQ(PresetNames(Desk()), (QStringList{u"Another"_s, u"County"_s}));
    const ListLook again = Look(csv, {.preset = u"County"_s}).look;
    EXPECT_EQ(again.delimiter, QChar(u'|'));
    EXPECT_EQ(again.dates, DateOrder::DayFirst);
    EXPECT_EQ(FieldsOf(again), (QStringList{u"ADDRESS"_s, QString()}));
    ForgetPreset(Desk(), u"Another"_s);
    EXPECT_EQ(tests::ThrownBy([&] { return Look(csv, {.preset = u"Another"_s}).datesOpen; }).words,
              u"There is no preset Another; these are kept: County"_s);
    disk.WriteWhole(u"C:\\USER\\ListPresets.json"_s, "{ damaged");
    EXPECT_EQ(PresetNames(Desk()), QStringList()) << "habits that are lost refuse no import";
}

} // namespace
} // namespace vasclip::upkeep
