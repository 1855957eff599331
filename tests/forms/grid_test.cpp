#include "forms/grid.h"

#include <gtest/gtest.h>

namespace vasclip::forms {
namespace {

class Rows : public GridSource
{
public:
    explicit Rows(qint64 count)
        : m_count(count)
    {}
    qint64 RowCount() const override { return m_count; }
    QStringList FieldNames() const override { return {QStringLiteral("CENTRALKEY"), QStringLiteral("CITY")}; }
    QStringList Row(qint64 row) const override
    {
        if (row == gone)
            return {};
        return {QStringLiteral("%1 OAK ST").arg(row), QStringLiteral("Alder")};
    }
    qint64 gone = -1;

private:
    qint64 m_count;
};

struct GridTest : testing::Test
{
    ControlSet set;
    Grid grid{set, QStringLiteral("grddatabook")};
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
    EXPECT_EQ(grid.CurrentText(QStringLiteral("CITY")), QString());
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
    EXPECT_EQ(grid.CurrentText(QStringLiteral("centralkey")), QStringLiteral("1 OAK ST"));
    EXPECT_EQ(grid.CurrentText(QStringLiteral("CITY")), QStringLiteral("Alder"));
    EXPECT_EQ(grid.CurrentText(QStringLiteral("NOFIELD")), QString());
    rows.gone = 1;
    EXPECT_EQ(grid.CurrentText(QStringLiteral("CITY")), QString());
}

TEST_F(GridTest, TellsOfNewColumnsOnly)
{
    int changed = 0;
    QObject::connect(&grid, &Grid::ColumnsChanged, &grid, [&] { ++changed; });
    const QList<GridColumn> columns{{QStringLiteral("CITY"), QStringLiteral("City")}};
    grid.SetColumns(columns);
    grid.SetColumns(columns);
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(grid.Columns().size(), 1);
}

} // namespace
} // namespace vasclip::forms
