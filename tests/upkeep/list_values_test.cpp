#include "list_home.h"

#include "upkeep/list_values.h"

namespace vasclip::upkeep {
namespace {

TEST(ListValues, DatesAreReadInTheirOrderAndNoOther)
{
    struct Row
    {
        QString written;
        DateOrder order;
        QString read; ///< "" for one that can't be
    };
    const auto month = DateOrder::MonthFirst;
    const auto day = DateOrder::DayFirst;
    const auto year = DateOrder::YearFirst;
    const Row rows[] = {
        {u"3/7/2004"_s, month, u"3/7/2004"_s},    {u"3/7/2004"_s, day, u"7/3/2004"_s},      {u"07.03.04"_s, day, u"3/7/04"_s},
        {u"13/7/2004"_s, month, {}},              {u"7/13/2004"_s, day, {}},                {u"31.12.1999"_s, day, u"12/31/1999"_s},
        {u"2004-03-07"_s, day, u"3/7/2004"_s},    {u"2004-03-07"_s, month, u"3/7/2004"_s},  {u"04/03/07"_s, year, u"3/7/04"_s},
        {u"3/7/2004"_s, year, {}},                {u"29/2/03"_s, day, {}},                  {u"2/29/04"_s, month, u"2/29/04"_s},
        {u"3/7/2004 13:45"_s, month, u"3/7/2004"_s}, {u"2004-03-07T13:45:00"_s, day, u"3/7/2004"_s}, {u"0/0/0000"_s, month, {}},
    };
    for (const Row& row : rows) {
        const DateReading read = ReadDate(row.written, row.order);
        EXPECT_EQ(read.text, row.read) << row.written.toStdString();
        EXPECT_EQ(read.kind == DateReading::Kind::Impossible, row.read.isEmpty()) << row.written.toStdString();
    }
    for (const QString& other : {u"March 7, 2004"_s, u"3/7"_s, u"3/7-2004"_s, u"pending"_s, u""_s})
        EXPECT_EQ(ReadDate(other, day).kind, DateReading::Kind::Other) << other.toStdString();
}

TEST(ListValues, NumbersAreReadByTheirSign)
{
    const QList<std::pair<QString, QString>> rows{
        {u"250.000,50"_s, u"250000.50"_s}, {u"250000"_s, u"250000"_s},        {u"1.250.000"_s, u"1250000"_s},
        {u"$ 250.000"_s, u"250000"_s},     {u"250 000,00 $"_s, u"250000.00 "_s}, {u"-123,25"_s, u"-123.25"_s},
        {u"1.600 sf"_s, u"1600 sf"_s},     {u",5"_s, u".5"_s},                {u"250,000.00"_s, {}},
        {u"1.25"_s, {}},                   {u"25.00.000"_s, {}},              {u"abc"_s, u"abc"_s}};
    for (const auto& [written, read] : rows)
        EXPECT_EQ(WithPoint(written, u','), read) << written.toStdString();
    EXPECT_EQ(WithPoint(u"1,250.5"_s, u'.'), u"1,250.5"_s);
}

class ListMaker : public ListHome
{
protected:
    QString Fault(const QByteArray& headings, const QByteArray& line, const ListChoice& choice)
    {
        disk.WriteWhole(csv, headings + "\n" + line + "\n");
        const ListFile file(disk, csv);
        const ListLook look = LookAtList(Desk(), file, choice).look;
        const auto reader = file.Open(look);
        (void)reader->Next();
        const ReadLine made = LineMaker(look, true, Desk().ports.clock.Today()).Make(*reader->Next());
        return made.fault;
    }
};

TEST_F(ListMaker, TellsTheColumnAndTheReason)
{
    EXPECT_EQ(Fault("Address,Sold Date", "1 Ash St,13/7/2004", {.dates = DateOrder::MonthFirst}),
              u"Sold Date: \"13/7/2004\" is no date with the month first"_s);
    EXPECT_EQ(Fault("Address,Price", "1 Ash St,\"250,000.00\"", {.decimal = u','}),
              u"Price: \"250,000.00\" is no price. Type digits, such as 250000 or 250,000.50."_s);
    EXPECT_EQ(Fault("Address,Lat", "1 Ash St,north", {}), u"Lat: \"north\" is no latitude or longitude"_s);
    EXPECT_EQ(Fault("Address,City", "1 Ash St, Apt 2,Cedar", {}),
              u"it has 3 values where the headings are 2: a value that holds the delimiter lacks its quotes"_s);
    EXPECT_EQ(Fault("Address,City", "1 Ash St,Cedar,,", {}), QString()) << "nothing is lost";
}

} // namespace
} // namespace vasclip::upkeep
