#include "common/addresses.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

struct Row
{
    const char* name;
    QString text;
    CityStateZip parts;
};

class ParseCityStateZipTest : public testing::TestWithParam<Row>
{};

TEST_P(ParseCityStateZipTest, Parses)
{
    const CityStateZip parts = ParseCityStateZip(GetParam().text);
    EXPECT_EQ(parts.city.toStdString(), GetParam().parts.city.toStdString());
    EXPECT_EQ(parts.state.toStdString(), GetParam().parts.state.toStdString());
    EXPECT_EQ(parts.zip.toStdString(), GetParam().parts.zip.toStdString());
}

const Row kRows[] = {
    {"empty", u""_s, {}},
    {"no_comma", u"Alder WA 98223"_s, {}},
    {"usual_line", u"Alder, WA 98223"_s, {u"Alder"_s, u"WA"_s, u"98223"_s}},
    {"no_blank_behind_the_comma", u"Alder,WA 98223"_s, {u"Alder"_s, u"WA"_s, u"98223"_s}},
    {"two_commas", u"Alder,WA,98223"_s, {u"Alder"_s, u"WA"_s, u"98223"_s}},
    {"two_commas_with_blanks", u" Alder , WA , 98223 "_s, {u"Alder"_s, u"WA"_s, u"98223"_s}},
    {"dots_in_the_state", u"Alder, W.A. 98223"_s, {u"Alder"_s, u"WA"_s, u"98223"_s}},
    {"plus_four_is_cut", u"Alder, WA 98223-1234"_s, {u"Alder"_s, u"WA"_s, u"98223"_s}},
    {"leading_zero_zip", u"Salem, MA 01970"_s, {u"Salem"_s, u"MA"_s, u"01970"_s}},
    {"zip_of_zeros", u"Salem, MA 00000"_s, {u"Salem"_s, u"MA"_s, u""_s}},
    {"short_zip", u"Salem, MA 970"_s, {u"Salem"_s, u"MA"_s, u""_s}},
    {"state_only", u"Alder, WA"_s, {u"Alder"_s, u"WA"_s, u""_s}},
    {"state_only_with_dots", u"Alder, W.A."_s, {u"Alder"_s, u"WA"_s, u""_s}},
    {"zip_only", u"Alder, 98223"_s, {u"Alder"_s, u""_s, u"98223"_s}},
    {"long_zip_only", u"Alder, 98223-1234"_s, {u"Alder"_s, u""_s, u"98223-1234"_s}},
    {"neither_state_nor_zip", u"Alder, Wash"_s, {u"Alder"_s, u""_s, u""_s}},
    {"city_only", u"Alder,"_s, {u"Alder"_s, u""_s, u""_s}},
    {"unlisted_state", u"Reno, NV 89501"_s, {u"Reno"_s, u""_s, u"89501"_s}},
    {"small_letters_are_refused", u"Alder, wa 98223"_s, {u"Alder"_s, u""_s, u"98223"_s}},
    {"state_alone_refused", u"Alder, ZZ"_s, {u"Alder"_s, u""_s, u""_s}},
    {"city_of_two_words", u"Oak Creek, WI 53154"_s, {u"Oak Creek"_s, u"WI"_s, u"53154"_s}},
};

INSTANTIATE_TEST_SUITE_P(Rows, ParseCityStateZipTest, testing::ValuesIn(kRows),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(CityStateZipLine, LeavesNoCommaBehindAndReadsBack)
{
    EXPECT_EQ(CityStateZipLine({u"Alder"_s, u"WA"_s, u"98223"_s}), u"Alder, WA 98223"_s);
    EXPECT_EQ(CityStateZipLine({u" Alder "_s, u"WA"_s, u" "_s}), u"Alder, WA"_s);
    EXPECT_EQ(CityStateZipLine({u"Alder"_s, {}, u"98223"_s}), u"Alder, 98223"_s);
    EXPECT_EQ(CityStateZipLine({u"Alder"_s, {}, {}}), u"Alder"_s);
    EXPECT_EQ(CityStateZipLine({{}, u"WA"_s, u"98223"_s}), u"WA 98223"_s);
    EXPECT_EQ(CityStateZipLine({{}, {}, u"98223"_s}), u"98223"_s);
    EXPECT_EQ(CityStateZipLine({u" "_s, {}, {}}), QString());
    for (const CityStateZip& parts : {CityStateZip{u"Alder"_s, u"WA"_s, u"98223"_s}, {u"Alder"_s, u"WA"_s, {}},
                                      {u"Alder"_s, {}, u"98223"_s}})
        EXPECT_EQ(ParseCityStateZip(CityStateZipLine(parts)), parts);
}

TEST(IsValidStateCode, KnowsItsList)
{
    const QString states =
        u"AL,AK,AZ,AR,CA,CO,CT,DE,DC,FL,GA,HI,ID,IL,IN,IA,KS,KY,LA,MD,MA,MI,MN,MS,MO,MT,NC,NE,NH,"
        "NJ,NM,NY,NC,ND,OH,OK,OR,PA,RI,SC,SD,TN,TX,UT,VT,VA,WA,WV,WI,WY"_s;
    for (const QString& state : states.split(u','))
        EXPECT_TRUE(IsValidStateCode(state)) << state.toStdString();
    for (const QString& other :
         {u"NV"_s, u"ME"_s, u"PR"_s, u""_s, u"W"_s, u"WAS"_s, u"wa"_s, u",W"_s, u"A,"_s, u"L,"_s, u" WA"_s})
        EXPECT_FALSE(IsValidStateCode(other)) << other.toStdString();
}

TEST(NormalizeZip, GivesFiveDigitsOrNothing)
{
    EXPECT_EQ(NormalizeZip(u"98223"_s), u"98223"_s);
    EXPECT_EQ(NormalizeZip(u"98223-1234"_s), u"98223"_s);
    EXPECT_EQ(NormalizeZip(u"01970"_s), u"01970"_s);
    EXPECT_EQ(NormalizeZip(u"9822"_s), QString());
    EXPECT_EQ(NormalizeZip(QString()), QString());
    EXPECT_EQ(NormalizeZip(u"00000"_s), QString());
    EXPECT_EQ(NormalizeZip(u"ABCDE"_s), QString());
    EXPECT_EQ(NormalizeZip(u"98A23"_s), u"00098"_s);
    for (const QString& huge : {u"1E300"_s, u"1E+20"_s, u"9D99X"_s, u"-1E99"_s, u"1E5 x"_s})
        EXPECT_EQ(NormalizeZip(huge), QString()) << huge.toStdString();
}

} // namespace
} // namespace vasclip::common
