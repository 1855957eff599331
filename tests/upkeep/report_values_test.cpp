#include "upkeep/report_values.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

const QDate kToday(2026, 3, 7);

store::Record RecordOf(const QList<std::pair<QString, QString>>& fields)
{
    auto names = std::make_shared<store::Record::Names>();
    QVariantList values;
    for (const auto& [name, value] : fields) {
        names->insert(name, static_cast<int>(values.size()));
        values.append(value);
    }
    return {names, values};
}

TEST(Printed, NumbersMoneyDatesAndTypes)
{
    const struct
    {
        QString value;
        Format format;
        QString printed;
    } rows[] = {
        {u"250000"_s, Format::Money, u"$250,000"_s},
        {u" $250,000 "_s, Format::Money, u"$250,000"_s},
        {u"178.5"_s, Format::Money, u"$178.50"_s},
        {u"-5"_s, Format::Money, u"-$5"_s},
        {u"0"_s, Format::Money, u""_s},
        {u"0"_s, Format::Number, u"0"_s},
        {u"1995"_s, Format::Number, u"1,995"_s},
        {u"about 5"_s, Format::Number, u"about 5"_s},
        {u"1e400"_s, Format::Number, u"1e400"_s},
        {u"nan"_s, Format::Money, u"nan"_s},
        {u"6/3/2025"_s, Format::Date, u"06/03/2025"_s},
        {u"1/1/1900"_s, Format::Date, u"Pending"_s},
        {u"soon"_s, Format::Date, u"soon"_s},
        {u"two\r\nlines"_s, Format::Text, u"two lines"_s},
        {u"c"_s, Format::Type, u"Condo"_s},
        {u"X"_s, Format::Type, u"X"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Printed(row.value, row.format, kToday).toStdString(), row.printed.toStdString())
            << row.value.toStdString();
}

TEST(Filled, LeavesOutWhatStandsBeforeABlankField)
{
    const Template place{{{{}, u"CITY"_s}, {u", "_s, u"ST"_s}, {u" "_s, u"ZIP"_s}}, {}};
    const auto fill = [&](const QString& city, const QString& state, const QString& zip) {
        const store::Record record = RecordOf({{u"CITY"_s, city}, {u"ST"_s, state}, {u"ZIP"_s, zip}});
        return Filled(place, &record, {}).toStdString();
    };
    EXPECT_EQ(fill(u"Marlow"_s, u"OR"_s, u"97991"_s), "Marlow, OR 97991");
    EXPECT_EQ(fill(u"Marlow"_s, {}, u"97991"_s), "Marlow 97991");
    EXPECT_EQ(fill({}, u"OR"_s, {}), "OR");
    EXPECT_EQ(fill({}, {}, {}), "");
}

TEST(Filled, KnowsTheReportsOwnWords)
{
    const ReportFacts facts{.now = QDateTime({2026, 3, 7}, {9, 0}),
                            .count = 1234,
                            .databook = u"A.MDB"_s,
                            .search = {},
                            .company = {}};
    const Template text{{{{}, u"COUNT"_s}, {u" records of "_s, u"DATABOOK"_s}, {u", "_s, u"DATE"_s}}, u"."_s};
    EXPECT_EQ(Filled(text, nullptr, facts).toStdString(), "1,234 records of A.MDB, March 7, 2026.");
}

TEST(Sums, PassOverWhatIsNoNumber)
{
    const QList<Total> wanted{{Total::Of::Count, {}, {}, Format::Number},
                              {Total::Of::Average, u"GLA"_s, {}, Format::Number},
                              {Total::Of::Sum, u"GLA"_s, {}, Format::Money},
                              {Total::Of::Lowest, u"GLA"_s, {}, Format::Number},
                              {Total::Of::Highest, u"GLA"_s, {}, Format::Number},
                              {Total::Of::Highest, u"AGE"_s, {}, Format::Number}};
    Sums sums;
    for (const QString& area : {u"1,000"_s, u""_s, u"N/A"_s, u"3000"_s})
        sums.Add(wanted, RecordOf({{u"GLA"_s, area}, {u"AGE"_s, u""_s}}));
    QStringList texts;
    for (qsizetype i = 0; i < wanted.size(); ++i)
        texts.append(sums.Text(wanted, i));
    EXPECT_EQ(texts.join(u'|').toStdString(), "4|2,000|$4,000|1,000|3,000|-");
}

} // namespace
} // namespace vasclip::upkeep
