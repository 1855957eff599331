#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace vasclip::text {
namespace {

struct Row
{
    const char* name;
    double given;
    const char16_t* picture;
    const char16_t* wanted;
};

class NumberPicture : public testing::TestWithParam<Row>
{};

TEST_P(NumberPicture, Prints)
{
    const Row& row = GetParam();
    EXPECT_EQ(Format(row.given, QString::fromUtf16(row.picture)), QString::fromUtf16(row.wanted)) << row.name;
}

const Row kRows[] = {
    {"the point is always printed", 5, u"###.##", u"5."},
    {"nothing but the point", 0, u"###.##", u"."},
    {"miles", 1.2, u"####.#", u"1.2"},
    {"miles of half", 0.5, u"####.#", u".5"},
    {"miles below the picture", 0.04, u"####.#", u"."},
    {"a half goes away from zero", 0.05, u"####.#", u".1"},
    {"a half below zero too", -0.25, u"####.#", u"-.3"},
    {"more digits than places", 12345.67, u"##.#", u"12345.7"},
    {"a price", 1234567.5, u"$#,###,##0.00", u"$1,234,567.50"},
    {"a small price", 0, u"$#,###,##0.00", u"$0.00"},
    {"hundreds have no comma", 999, u"$#,###,##0.00", u"$999.00"},
    {"thousands have one", 1000, u"#,##0", u"1,000"},
    {"grouping beyond the picture", 1234567890, u"#,##0", u"1,234,567,890"},
    {"minus before the literal", -5, u"$0.00", u"-$5.00"},
    {"file size", 1536, u"##,###,###,###.##", u"1,536."},
    {"one zero", 7, u"0", u"7"},
    {"nothing is a zero", 0, u"0", u"0"},
    {"a hash shows no zero", 0, u"#", u""},
    {"two digits", 7, u"00", u"07"},
    {"two digits of three", 123, u"00", u"123"},
    {"forced behind a zero", 5, u"#0#", u"05"},
    {"zero carries to the left", 9.5, u"0", u"10"},
    {"carry makes a place", 99.95, u"##.#", u"100."},
    {"as it reads, not as it is stored", 2.675, u"0.00", u"2.68"},
    {"half of one", 0.5, u"0", u"1"},
    {"optional decimals", 1.5, u"0.0##", u"1.5"},
    {"forced later decimal forces the earlier", 1, u"0.#0", u"1.00"},
    {"percent", 0.256, u"0.00%", u"25.60%"},
    {"percent of one", 1, u"0%", u"100%"},
    {"two percents", 0.5, u"0%%", u"5000%%"},
    {"comma before the point divides", 1234567, u"0,.0", u"1234.6"},
    {"two commas divide twice", 1234567, u"0,,", u"1"},
    {"grouped and divided", 1234567890, u"#,##0,", u"1,234,568"},
    {"literals among digits", 5551234, u"###-####", u"555-1234"},
    {"quoted literal", 3, u"0\" of #\"", u"3 of #"},
    {"escaped literal", 3, u"\\#0", u"#3"},
    {"only a literal", 3, u"abc", u"abc"},
    {"negative section", -3, u"0;(0)", u"(3)"},
    {"positive of two sections", 3, u"0;(0)", u"3"},
    {"zero of two sections", 0, u"0;(0)", u"0"},
    {"zero section", 0, u"0;-0;\"none\"", u"none"},
    {"empty negative section takes the first", -3, u"0;;\"none\"", u"-3"},
    {"quoted semicolon divides nothing", 3, u"0\";\"", u"3;"},
    {"no minus before a rounded zero", -0.001, u"0.00", u"0.00"},
    {"large", 1e20, u"0", u"100000000000000000000"},
    {"small", 1e-20, u"0.0", u"0.0"},
    {"no picture", 12, u"", u"12"},
    {"no picture, negative", -0.5, u"", u"-.5"},
    {"no integer place", 3.25, u".00", u"3.25"},
};

INSTANTIATE_TEST_SUITE_P(Rows, NumberPicture, testing::ValuesIn(kRows),
                         [](const auto& row) { return "row_" + std::to_string(row.index); });

TEST(NumberPictures, InfinityIsNoCrash)
{
    EXPECT_FALSE(Format(std::numeric_limits<double>::infinity(), u"0"_s).isEmpty());
}

} // namespace
} // namespace vasclip::text
