#include "windows/record_grid.h"

#include "support/scripted_ports.h"
#include "windows/binder.h"
#include "windows/guard.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QHeaderView>
#include <QTest>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class Rows : public forms::GridSource
{
public:
    qint64 count = 1000;
    mutable qint64 asked = 0;
    qint64 badRow = -1;
    [[nodiscard]] qint64 RowCount() const override { return count; }
    [[nodiscard]] QStringList FieldNames() const override
    {
        return {u"CENTRALKEY"_s, u"SALEDATE"_s, u"SELLINGPR"_s};
    }
    [[nodiscard]] QStringList Row(qint64 row) const override
    {
        ++asked;
        if (row == badRow)
            throw RuntimeError(error::kCorruptDatabase, u"The page is damaged"_s);
        return {u"%1 OAK ST"_s.arg(row), u"3/7/2004"_s, QString::number(row * 1000)};
    }
};

class RecordGridTest : public testing::Test
{
protected:
    tests::ScriptedPrompter prompter;
    EventGuard guard{prompter, {}};
    forms::ControlSet controls;
    forms::Grid grid{controls, u"grddatabook"_s};
    Rows rows;
    QWidget root;
    Binder binder{controls, guard};
    RecordGrid* view = new RecordGrid(&root);

    void SetUp() override
    {
        view->setObjectName(u"grddatabook"_s);
        view->resize(600, 300);
        grid.SetColumns({{.field = u"SELLINGPR"_s, .caption = u"Price"_s, .width = 80, .rightAligned = true},
                         {.field = u"CENTRALKEY"_s, .caption = u"Key"_s, .width = 200},
                         {.field = u"SALEDATE"_s, .caption = u"Sold"_s, .numberFormat = u"Short Date"_s},
                         {.field = u"NOSUCH"_s, .caption = u"None"_s, .visible = false}});
        grid.Rebind(&rows);
        binder.Bind(root);
    }
    QString Cell(int row, int column) { return view->model()->index(row, column).data().toString(); }
};

TEST_F(RecordGridTest, ShowsColumnsInTheirOrderAndFormats)
{
    EXPECT_EQ(view->model()->headerData(0, Qt::Horizontal).toString(), u"Price"_s);
    EXPECT_EQ(view->columnWidth(1), 200);
    EXPECT_TRUE(view->isColumnHidden(3));
    EXPECT_EQ(Cell(4, 0), u"4000"_s);
    EXPECT_EQ(Cell(4, 1), u"4 OAK ST"_s);
    EXPECT_EQ(Cell(4, 2), u"3/7/2004"_s);
    EXPECT_EQ(Cell(4, 3), QString()) << "a column without its field is blank";
}

TEST_F(RecordGridTest, RowFollowsBothWays)
{
    EXPECT_EQ(view->currentIndex().row(), 0);
    grid.SetRow(12);
    EXPECT_EQ(view->currentIndex().row(), 12);
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 13);
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_EQ(grid.Row(), 999);
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_EQ(grid.Row(), 0);
    int opened = 0;
    QObject::connect(&grid, &forms::Control::DoubleClicked, &grid, [&] { ++opened; });
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(opened, 1);
}

TEST_F(RecordGridTest, AMovedColumnIsWrittenBack)
{
    view->horizontalHeader()->moveSection(1, 0);
    QTest::qWait(10);
    ASSERT_EQ(grid.Columns().size(), 4);
    EXPECT_EQ(grid.Columns().at(0).field, u"CENTRALKEY"_s);
    EXPECT_EQ(grid.Columns().at(0).width, 200);
    EXPECT_EQ(Cell(4, 0), u"4 OAK ST"_s);
    EXPECT_EQ(view->horizontalHeader()->visualIndex(0), 0);
    EXPECT_TRUE(view->isColumnHidden(3));
}

TEST_F(RecordGridTest, AResizedColumnIsWrittenBack)
{
    view->setColumnWidth(0, 123);
    EXPECT_EQ(grid.Columns().at(0).width, 123);
    EXPECT_EQ(grid.Columns().at(3).width, 90) << "a hidden column keeps its width";
}

TEST_F(RecordGridTest, AMillionRowsAskForOneScreen)
{
    rows.count = 1'000'000;
    root.resize(640, 320);
    root.show();
    rows.asked = 0;
    QElapsedTimer clock;
    clock.start();
    grid.Rebind(&rows);
    view->grab();
    RecordProperty("milliseconds", static_cast<int>(clock.elapsed()));
    EXPECT_LT(clock.elapsed(), 500);
    EXPECT_LT(rows.asked, 60);
    rows.asked = 0;
    grid.SetRow(765'432);
    view->grab();
    EXPECT_EQ(view->currentIndex().row(), 765'432);
    EXPECT_LT(rows.asked, 60);
}

TEST_F(RecordGridTest, ARowThatCannotBeReadIsReportedOnce)
{
    rows.badRow = 3;
    grid.Refresh();
    view->grab();
    grid.Refresh();
    QTest::qWait(10);
    ASSERT_FALSE(prompter.Boxes().empty());
    EXPECT_TRUE(prompter.Last().text.contains(u"The page is damaged"_s));
    EXPECT_EQ(Cell(4, 1), u"4 OAK ST"_s) << "the other rows stay readable";
}

TEST_F(RecordGridTest, NoSourceIsAnEmptyGrid)
{
    grid.Rebind(nullptr);
    EXPECT_EQ(view->model()->rowCount(), 0);
    EXPECT_FALSE(view->currentIndex().isValid());
    view->grab();
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(grid.Row(), -1);
}

} // namespace
} // namespace vasclip::windows
