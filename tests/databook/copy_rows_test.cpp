#include "databook/copy_rows.h"

#include "databook/grid.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class Rows : public forms::GridSource
{
public:
    qint64 count = 5;
    mutable qint64 asked = 0;
    [[nodiscard]] qint64 RowCount() const override { return count; }
    [[nodiscard]] QStringList FieldNames() const override
    {
        return {u"CENTRALKEY"_s, u"SELLINGPR"_s, u"NOTES"_s};
    }
    [[nodiscard]] QStringList Row(qint64 row) const override
    {
        ++asked;
        if (row == 3)
            return {}; // deleted by somebody else meanwhile
        return {u"%1 OAK <ST>"_s.arg(row), QString::number(row * 1000), u"a\tb\r\nc & d"_s};
    }
};

class CopyRows : public testing::Test
{
protected:
    forms::ControlSet set;
    forms::Grid grid{set, u"grddatabook"_s};
    Rows rows;

    void SetUp() override
    {
        grid.SetColumns({{.field = u"SELLINGPR"_s, .caption = u"Price"_s, .rightAligned = true},
                         {.field = u"CENTRALKEY"_s, .caption = u"Key"_s},
                         {.field = u"NOTES"_s, .caption = u"Notes"_s, .visible = false}});
        grid.Rebind(&rows);
    }
};

TEST_F(CopyRows, VisibleColumnsInTheirOrderWithTheirHeadings)
{
    const databook::CopiedRows copied = databook::CopyRows(grid, {{4, 4}, {0, 1}});
    EXPECT_EQ(copied.text, u"Price\tKey\r\n0\t0 OAK <ST>\r\n1000\t1 OAK <ST>\r\n4000\t4 OAK <ST>\r\n"_s);
    EXPECT_TRUE(copied.html.startsWith(u"<table>\n<tr><th align=\"right\">Price</th><th>Key</th></tr>\n"_s));
    EXPECT_TRUE(copied.html.contains(u"<td align=\"right\">4000</td><td>4 OAK &lt;ST&gt;</td>"_s));
    EXPECT_EQ(copied.html.count(u"<tr>"_s), 4);
}

TEST_F(CopyRows, TabsAndLineEndsStayWithinTheirCell)
{
    grid.ShowColumn(2, true);
    const databook::CopiedRows copied = databook::CopyRows(grid, {{0, 0}});
    EXPECT_EQ(copied.text, u"Price\tKey\tNotes\r\n0\t0 OAK <ST>\ta b c & d\r\n"_s);
    EXPECT_TRUE(copied.html.contains(u"c &amp; d"_s));
}

TEST_F(CopyRows, ARowThatIsGoneIsALineOfBlanks)
{
    EXPECT_EQ(databook::CopyRows(grid, {{3, 3}}).text, u"Price\tKey\r\n\t\r\n"_s);
}

TEST_F(CopyRows, NothingSelectedAndNoSourceGiveNothing)
{
    EXPECT_EQ(databook::CopyRows(grid, {}).text, QString());
    grid.Rebind(nullptr);
    EXPECT_EQ(databook::CopyRows(grid, {{0, 1}}).html, QString());
}

TEST_F(CopyRows, TooManyAreRefusedBeforeAnyIsRead)
{
    rows.count = 1'000'000;
    rows.asked = 0;
    try {
        (void)databook::CopyRows(grid, {{0, 999'999}});
        ADD_FAILURE() << "a million rows in the clipboard";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), 7);
        EXPECT_TRUE(failure.Description().contains(u"Nothing was copied"_s));
    }
    EXPECT_EQ(rows.asked, 0);
    EXPECT_EQ(databook::CopyRows(grid, {{0, databook::kMostRowsCopied - 1}}).text.count(u'\n'),
              databook::kMostRowsCopied + 1);
}

} // namespace
