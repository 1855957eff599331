#include "forms/grid.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::forms {
namespace {

class Rows : public GridSource
{
public:
    explicit Rows(qint64 count)
        : m_count(count)
    {}
    qint64 RowCount() const override { return m_count; }
    QStringList FieldNames() const override { return {u"CENTRALKEY"_s, u"CITY"_s}; }
    QStringList Row(qint64 row) const override
    {
        if (row == gone)
            return {};
        return {u"%1 OAK ST"_s.arg(row), u"Alder"_s};
    }
    qint64 gone = -1;

private:
    qint64 m_count;
};

struct GridTest : testing::Test
{
    ControlSet set;
    Grid grid{set, u"grddatabook"_s};
};

TEST_F(GridTest, StandsOnTheFirstRowAfterRebind)
{
    Rows rows(3);
    int rebound = 0;
    int moved = 0;
    QObject::connect(&grid, &Grid::Rebound, &grid, [&] { ++rebound; });
    QObject::connect(&grid, &Grid::RowColChange, &grid, [&] { ++moved; });
    EXPECT_EQ(grid.Row(), -1);
    grid.Rebind(&rows);
    EXPECT_EQ(grid.Row(), 0);
    grid.SetRow(2);
    grid.Rebind(&rows);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(rebound, 2);
    EXPECT_EQ(moved, 3);
    grid.Rebind(nullptr);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.Source(), nullptr);
}

TEST_F(GridTest, EmptySourceHasNoRow)
{
    Rows none(0);
    grid.Rebind(&none);
    EXPECT_EQ(grid.Row(), -1);
    grid.SetRow(0);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_EQ(grid.CurrentText(u"CITY"_s), QString());
}

TEST_F(GridTest, KeepsTheRowWithinTheRows)
{
    Rows rows(3);
    grid.Rebind(&rows);
    int moved = 0;
    QObject::connect(&grid, &Grid::RowColChange, &grid, [&] { ++moved; });
    grid.SetRow(99);
    EXPECT_EQ(grid.Row(), 2);
    grid.SetRow(2);
    EXPECT_EQ(moved, 1);
    grid.SetRow(-5);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, ReadsTheCurrentRowByFieldName)
{
    Rows rows(3);
    grid.Rebind(&rows);
    grid.SetRow(1);
    EXPECT_EQ(grid.CurrentText(u"centralkey"_s), u"1 OAK ST"_s);
    EXPECT_EQ(grid.CurrentText(u"CITY"_s), u"Alder"_s);
    EXPECT_EQ(grid.CurrentText(u"NOFIELD"_s), QString());
    rows.gone = 1;
    EXPECT_EQ(grid.CurrentText(u"CITY"_s), QString());
}

TEST_F(GridTest, TellsOfNewColumnsOnly)
{
    int changed = 0;
    QObject::connect(&grid, &Grid::ColumnsChanged, &grid, [&] { ++changed; });
    const QList<GridColumn> columns{{u"CITY"_s, u"City"_s}};
    grid.SetColumns(columns);
    grid.SetColumns(columns);
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(grid.Columns().size(), 1);
}

struct ColumnsTest : GridTest
{
    void SetUp() override
    {
        QList<GridColumn> columns;
        for (const char* field : {"A", "B", "C", "D"})
            columns.append({.field = QString::fromLatin1(field), .caption = {}});
        columns[0].fixed = true;
        columns[1].visible = false;
        columns[2].sortable = true;
        grid.SetColumns(columns);
    }
    QString Order() const
    {
        QString order;
        for (const GridColumn& column : grid.Columns())
            order += column.field;
        return order;
    }
};

TEST_F(ColumnsTest, MovePastHiddenOnesAndStopAtTheEnds)
{
    EXPECT_EQ(grid.MoveColumn(2, -1), 0);
    EXPECT_EQ(Order(), u"CABD"_s);
    EXPECT_EQ(grid.MoveColumn(0, -1), 0);
    EXPECT_EQ(Order(), u"CABD"_s);
    EXPECT_EQ(grid.MoveColumn(0, 9), 3);
    EXPECT_EQ(Order(), u"ABDC"_s);
    EXPECT_EQ(grid.MoveColumn(7, 1), 7) << "no such column";
    EXPECT_EQ(grid.ColumnOf(u"c"_s), 3);
    EXPECT_EQ(grid.ColumnOf(u"X"_s), -1);
}

TEST_F(ColumnsTest, FixedAndLastOnesStayOnShow)
{
    EXPECT_FALSE(grid.ShowColumn(0, false));
    EXPECT_TRUE(grid.ShowColumn(1, true));
    EXPECT_TRUE(grid.ShowColumn(1, false));
    QList<GridColumn> columns = grid.Columns();
    columns[0].fixed = false;
    grid.SetColumns(columns);
    EXPECT_TRUE(grid.ShowColumn(0, false));
    EXPECT_TRUE(grid.ShowColumn(2, false));
    EXPECT_FALSE(grid.ShowColumn(3, false)) << "an empty grid cannot be repaired with the mouse";
    EXPECT_FALSE(grid.ShowColumn(9, true));
}

TEST_F(ColumnsTest, WidthsAreKeptWithinReach)
{
    grid.ResizeColumn(0, -4);
    EXPECT_EQ(grid.Columns().at(0).width, Grid::kNarrowest);
    grid.ResizeColumn(0, 1 << 30);
    EXPECT_EQ(grid.Columns().at(0).width, Grid::kWidest);
    grid.ResizeColumn(-1, 50);
    EXPECT_EQ(grid.Columns().size(), 4);
}

TEST_F(ColumnsTest, OnlyASortableHeadingAnswers)
{
    QStringList clicked;
    QObject::connect(&grid, &Grid::HeadClick, &grid, [&](const QString& field) { clicked.append(field); });
    for (int column = -1; column < 5; ++column)
        grid.ClickHead(column);
    EXPECT_EQ(clicked, QStringList{u"C"_s});
}

} // namespace
} // namespace vasclip::forms
