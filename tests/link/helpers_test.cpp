#include "link/kel_helpers.h"

#include <gtest/gtest.h>

#include <limits>

namespace vasclip::link {
namespace {

using namespace Qt::Literals::StringLiterals;

struct TextRow
{
    const char* name;
    QString input, answer;
};
std::string NameOf(const testing::TestParamInfo<TextRow>& row)
{
    return row.param.name;
}

class FirstToken : public testing::TestWithParam<TextRow>
{};
TEST_P(FirstToken, IsTheTextBeforeTheComma)
{
    EXPECT_EQ(KelFirstToken(GetParam().input), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(Rows, FirstToken,
                         testing::Values(TextRow{"NoCommaYieldsNoReport", u"UA5"_s, u""_s},
                                         TextRow{"TrailingComma", u"A.RPT,"_s, u"A.RPT"_s},
                                         TextRow{"Several", u"SMITH,JONES,"_s, u"SMITH"_s},
                                         TextRow{"BlanksStay", u" SMITH ,JONES"_s, u" SMITH "_s},
                                         TextRow{"LeadingComma", u",A"_s, u""_s},
                                         TextRow{"Empty", u""_s, u""_s}),
                         NameOf);

class CleanCaption : public testing::TestWithParam<TextRow>
{};
TEST_P(CleanCaption, IsFitToBeShown)
{
    EXPECT_EQ(KelCleanCaption(GetParam().input), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, CleanCaption,
    testing::Values(TextRow{"Plain", u"  12 Oak St "_s, u"12 Oak St"_s}, TextRow{"Tab", u"12\tOak"_s, u""_s},
                    TextRow{"EchoOfMacro", u"macro(Get SC_1)"_s, u""_s},
                    TextRow{"MacroAlone", u"MACRO(GE"_s, u"MACRO(GE"_s},
                    TextRow{"EchoEral", u"eral) x"_s, u""_s},
                    TextRow{"EralWithoutBracket", u"Eral x"_s, u"Eral x"_s},
                    TextRow{"Accent", u"12 Caf\u00e9 St"_s, u""_s}, TextRow{"Tilde", u"~"_s, u"~"_s},
                    TextRow{"Delete", u"\u007f"_s, u""_s}, TextRow{"LineEnd", u"12 Oak\r"_s, u""_s},
                    TextRow{"Empty", u""_s, u""_s}),
    NameOf);

struct IndexRow
{
    const char* name;
    QString input;
    qint16 answer;
};
class IndexValue : public testing::TestWithParam<IndexRow>
{};
TEST_P(IndexValue, StandsBetweenTheFirstTwoUnderscores)
{
    EXPECT_EQ(GetIndexValue(GetParam().input), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, IndexValue,
    testing::Values(IndexRow{"Comp", u"CMP_3_3X5"_s, 3}, IndexRow{"General36", u"GN_36_4X6"_s, 36},
                    IndexRow{"NoSize", u"CMP_3_"_s, 3}, IndexRow{"OneUnderscore", u"CMP_3"_s, -1},
                    IndexRow{"None", u"MAP"_s, -1}, IndexRow{"Words", u"MAP_GENERAL_1"_s, 0},
                    IndexRow{"TooLarge", u"CMP_99999_"_s, -1}),
    [](const auto& row) { return row.param.name; });

class Backslashes : public testing::TestWithParam<TextRow>
{};
TEST_P(Backslashes, AreDoubledByBothWays)
{
    EXPECT_EQ(KelDoubleBackslash(GetParam().input), GetParam().answer);
    EXPECT_EQ(DoubleSlash(GetParam().input), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(Rows, Backslashes,
                         testing::Values(TextRow{"Path", u"C:\\A\\b.jpg"_s, u"C:\\\\A\\\\b.jpg"_s},
                                         TextRow{"Share", u"\\\\host\\a"_s, u"\\\\\\\\host\\\\a"_s},
                                         TextRow{"None", u"a/b"_s, u"a/b"_s},
                                         TextRow{"Last", u"C:\\"_s, u"C:\\\\"_s},
                                         TextRow{"Empty", u""_s, u""_s}),
                         NameOf);

TEST(PageBase, OfEveryComp)
{
    const qint16 bases[] = {0, 1, 1, 1, 4, 4, 4, 7, 7, 7, 10, 0};
    for (qint16 comp = 0; comp <= 11; ++comp)
        EXPECT_EQ(KelPageBase(comp), bases[comp]) << comp;
    EXPECT_EQ(KelPageBase(-1), 0);
}

struct ShiftRow
{
    const char* name;
    QString rowCell, offset;
    qint16 comp;
    QString answer;
};
class ShiftCell : public testing::TestWithParam<ShiftRow>
{};
TEST_P(ShiftCell, StepsWithinThePage)
{
    const ShiftRow& row = GetParam();
    EXPECT_EQ(KelShiftCell(row.rowCell, row.offset, row.comp), row.answer);
}
INSTANTIATE_TEST_SUITE_P(Rows, ShiftCell,
                         testing::Values(ShiftRow{"First", u"12|3"_s, u"2"_s, 1, u"12|3"_s},
                                         ShiftRow{"FirstIsTrimmed", u" 12|3 "_s, u"2"_s, 4, u"12|3"_s},
                                         ShiftRow{"SeventhAsStored", u" 12|3 "_s, u"2"_s, 7, u" 12|3 "_s},
                                         ShiftRow{"SubjectAsStored", u"12|3 "_s, u"2"_s, 10, u"12|3 "_s},
                                         ShiftRow{"SubjectIsNotShifted", u"12|3"_s, u"2"_s, 10, u"12|3"_s},
                                         ShiftRow{"Second", u"12|3"_s, u"2"_s, 2, u"12|5"_s},
                                         ShiftRow{"FifthOnce", u"12|3"_s, u"2"_s, 5, u"12|5"_s},
                                         ShiftRow{"SixthTwice", u"12|3"_s, u"2"_s, 6, u"12|7"_s},
                                         ShiftRow{"NinthTwice", u"12|3"_s, u"2"_s, 9, u"12|7"_s},
                                         ShiftRow{"DecimalOffset", u"12|3"_s, u"1.5"_s, 2, u"12|4.5"_s},
                                         ShiftRow{"BlankOffset", u"12|3"_s, u""_s, 3, u"12|3"_s},
                                         ShiftRow{"NegativeOffset", u"12|3"_s, u"-2"_s, 3, u"12|-1"_s},
                                         ShiftRow{"RowAsStored", u" 12|3"_s, u"2"_s, 2, u" 12|5"_s},
                                         ShiftRow{"NoBar", u"12"_s, u"2"_s, 2, u"12|2"_s},
                                         ShiftRow{"Eleven", u"12|3"_s, u"2"_s, 11, u""_s},
                                         ShiftRow{"Zero", u"12|3"_s, u"2"_s, 0, u""_s},
                                         ShiftRow{"Minus", u"12|3"_s, u"2"_s, -1, u""_s}),
                         [](const auto& row) { return row.param.name; });

class PhotoSize : public testing::TestWithParam<TextRow>
{};
TEST_P(PhotoSize, OfAFormsList)
{
    EXPECT_EQ(KelPhotoSizeOfPage(GetParam().input), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, PhotoSize,
    testing::Values(TextRow{"Subphoto", u"UA5,SUBPHOTO"_s, u"3X5"_s},
                    TextRow{"Subphot2", u"UA5,SUBPHOT2"_s, u"4X6"_s},
                    TextRow{"Nlsubph", u"UA5,NLSUBPH"_s, u"3X5"_s},
                    TextRow{"Nlsubph2MatchesTheShorterFirst", u"UA5,NLSUBPH2"_s, u"3X5"_s},
                    TextRow{"FirstTestWins", u"SUBPHOT2,SUBPHOTO"_s, u"3X5"_s},
                    TextRow{"AnyCase", u"subphot2"_s, u"4X6"_s}, TextRow{"None", u"UA5,COMPPAGE"_s, u""_s}),
    NameOf);

class Version : public testing::TestWithParam<TextRow>
{};
TEST_P(Version, KeepsTwoParts)
{
    EXPECT_EQ(TwoPartVersion(GetParam().input), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(Rows, Version,
                         testing::Values(TextRow{"OneDigit", u"5.3.1.0"_s, u"5.03"_s},
                                         TextRow{"TwoDigits", u"12.14"_s, u"12.14"_s},
                                         TextRow{"CutToTwo", u"5.1234"_s, u"5.12"_s},
                                         TextRow{"NoSecondPart", u"7"_s, u"7.00"_s},
                                         TextRow{"NoVersion", u""_s, u"0.00"_s}),
                         NameOf);

} // namespace
} // namespace vasclip::link
