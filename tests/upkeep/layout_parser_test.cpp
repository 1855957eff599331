#include "upkeep/layout_parser.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

const QByteArray kGood = R"(# a comment
layout "Mine" # another
title "Sales of {DATE}"
paper A4 landscape
margin 12mm
text 9pt
sort CITY, SELLINGPR down
group CITY "{CITY}, {ST}" page
record keep
heading "{ADDRESS}" right "{SELLINGPR:money}"
section "Sale" columns 3 blanks
field SELLINGPR as money
field saledate "Sold" as date
notes NOTES "He said ""good"""
photos all across 2 high 2in captions
total average SELLINGPR "Average" as money
)";

TEST(ParseLayout, ReadsEveryLine)
{
    const ReportLayout layout = ParseLayout(kGood);
    EXPECT_EQ(layout.words, u"Mine"_s);
    EXPECT_EQ(layout.title.pieces.value(0).before, u"Sales of "_s);
    EXPECT_EQ(layout.sheet, (paper::Sheet{u"a4"_s, true, 680}));
    EXPECT_EQ(layout.text, 180);
    ASSERT_EQ(layout.sort.size(), 2);
    EXPECT_EQ(layout.sort[1].field, u"SELLINGPR"_s);
    EXPECT_TRUE(layout.sort[1].down);
    ASSERT_EQ(layout.groups.size(), 1);
    EXPECT_TRUE(layout.groups[0].newPage);
    EXPECT_EQ(layout.flow, Flow::Together);
    ASSERT_EQ(layout.parts.size(), 4);
    EXPECT_EQ(layout.parts[0].heading.right.pieces.value(0).format, Format::Money);
    EXPECT_EQ(layout.parts[1].section.columns, 3);
    EXPECT_TRUE(layout.parts[1].section.blanks);
    ASSERT_EQ(layout.parts[1].section.fields.size(), 2);
    EXPECT_EQ(layout.parts[1].section.fields[0].label, u"Price"_s) << "what people call the column";
    EXPECT_EQ(layout.parts[1].section.fields[1].field, u"SALEDATE"_s);
    EXPECT_EQ(layout.parts[2].notes.label, u"He said \"good\""_s);
    EXPECT_EQ(layout.parts[3].photos.across, 2);
    EXPECT_EQ(layout.parts[3].photos.high, 2880);
    EXPECT_TRUE(layout.parts[3].photos.captions);
    ASSERT_EQ(layout.totals.size(), 1);
    EXPECT_EQ(layout.totals[0].of, Total::Of::Average);
}

TEST(ParseLayout, AlignsNumbersOfATableAtTheRight)
{
    const ReportLayout layout =
        ParseLayout("column CITY\ncolumn SELLINGPR as money\ncolumn GLA as number left\n");
    ASSERT_EQ(layout.columns.size(), 3);
    EXPECT_EQ(layout.columns[0].side, Side::Left);
    EXPECT_EQ(layout.columns[1].side, Side::Right);
    EXPECT_EQ(layout.columns[2].side, Side::Left);
}

struct Wrong
{
    const char* name;
    QByteArray content;
    int line, column;
    QString words; ///< part of what is said
};

class WrongLayout : public testing::TestWithParam<Wrong>
{};

TEST_P(WrongLayout, SaysWhereAndWhatToDo)
{
    const Wrong& row = GetParam();
    try {
        static_cast<void>(ParseLayout(row.content));
        FAIL() << row.name << " was taken";
    } catch (const LayoutError& wrong) {
        EXPECT_EQ(wrong.Line(), row.line) << row.name;
        EXPECT_EQ(wrong.Column(), row.column) << row.name;
        EXPECT_TRUE(wrong.What().contains(row.words)) << row.name << ": " << wrong.What().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongLayout,
    testing::Values(
        Wrong{"an unknown field", "title \"x\"\ncolumn CITTY\n", 2, 8, u"Did you mean CITY?"_s},
        Wrong{"a field that is like none", "column XQZWVKJ\n", 1, 8, u"there is no field 'XQZWVKJ'"_s},
        Wrong{"an unknown field within a text", "heading \"At {ADRESS}\"\n", 1, 14,
              u"Did you mean ADDRESS?"_s},
        Wrong{"a record's field in the page's title", "title \"{CITY}\"\n", 1, 9, u"the page's"_s},
        Wrong{"an open brace", "heading \"{CITY\"\n", 1, 10, u"Write }"_s},
        Wrong{"an unknown paper", "paper quarto\n", 1, 7, u"letter, legal"_s},
        Wrong{"a length without a unit", "margin 12\n", 1, 8, u"12mm"_s},
        Wrong{"a margin that is too wide", "margin 9in\n", 1, 8, u"from 0.2 to 2"_s},
        Wrong{"a paper with no room", "paper a5\nmargin 2in\ncolumn CITY", 3, 1, u"less than 3 inches"_s},
        Wrong{"an unknown word", "columm CITY\n", 1, 1, u"begins no line"_s},
        Wrong{"words left over", "column CITY wide 10 high\n", 1, 21, u"'high'"_s},
        Wrong{"an open quote", "title \"x\n", 1, 7, u"closing quote"_s},
        Wrong{"no text", "title\n", 1, 6, u"double quotes"_s},
        Wrong{"a number that is none", "column CITY wide much\n", 1, 18, u"from 1 to 200"_s},
        Wrong{"an unknown format", "column CITY as gold\n", 1, 16, u"money"_s},
        Wrong{"an unknown format within a text", "heading \"{GLA:gold}\"\n", 1, 15, u"money"_s},
        Wrong{"a field without a section", "field CITY\n", 1, 1, u"'section' line"_s},
        Wrong{"a heading in a table", "column CITY\nheading \"x\"\n", 2, 1, u"is a table"_s},
        Wrong{"a column in a block", "heading \"x\"\ncolumn CITY\n", 2, 1, u"no columns"_s},
        Wrong{"the long binary within a text", "heading \"x {FRONTPHOTO}\"\n", 1, 13, u"'photos' line"_s},
        Wrong{"the long binary", "column FRONTPHOTO\n", 1, 8, u"'photos' line"_s},
        Wrong{"nothing of a record", "title \"x\"\n\n", 3, 1, u"prints nothing"_s},
        Wrong{"an empty file", "", 1, 1, u"prints nothing"_s},
        Wrong{"another kind of file", QByteArray("\x00\x01\x02", 3), 1, 1, u"UTF-8"_s},
        Wrong{"letters of another code", "title \"\xe4\"\n", 1, 1, u"UTF-8"_s},
        Wrong{"ten thousand lines", QByteArray("# line\n").repeated(10'000), 2001, 1,
              u"at most 2000 lines"_s},
        Wrong{"a file without end", QByteArray(300 * 1024, '#'), 1, 1, u"another kind of file"_s},
        Wrong{"a hundred columns", QByteArray("column CITY\n").repeated(100), 41, 1, u"at most 40 columns"_s},
        Wrong{"a thousand fields", "section\n" + QByteArray("field CITY\n").repeated(1000), 402, 1,
              u"at most 400"_s},
        Wrong{"four groups", QByteArray("group CITY \"x\"\n").repeated(4), 4, 1, u"at most three groups"_s}),
    [](const auto& info) {
        QString name = QString::fromLatin1(info.param.name);
        return name.replace(u' ', u'_').remove(u'\'').toStdString();
    });

} // namespace
} // namespace vasclip::upkeep
