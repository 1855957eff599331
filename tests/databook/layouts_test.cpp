#include "databook/layouts.h"

#include "databook/grid.h"
#include "platform/text/runtime_error.h"
#include "support/own_drive.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class Layouts : public testing::Test
{
protected:
    QTemporaryDir dir;
    files::Disk disk{tests::WithOwnDrive(dir.path())};
    forms::ControlSet set;
    forms::Grid grid{set, u"grddatabook"_s};
    const QString file = u"C:\\VAS2000.grx"_s;

    void SetUp() override { databook::SetGridSettings(grid, u"DEFAULT"_s); }

    [[nodiscard]] int IndexOf(const QString& field) const
    {
        for (int i = 0; i < grid.Columns().size(); ++i)
            if (grid.Columns().at(i).field == field)
                return i;
        return -1;
    }
    [[nodiscard]] forms::GridColumn Column(const QString& field) const
    {
        return grid.Columns().at(IndexOf(field));
    }
    /// Price first and wide, the county hidden.
    void Rearrange()
    {
        QList<forms::GridColumn> columns = grid.Columns();
        columns[IndexOf(u"COUNTY"_s)].visible = false;
        columns[IndexOf(u"SELLINGPR"_s)].width = 222;
        columns.move(IndexOf(u"SELLINGPR"_s), 0);
        grid.SetColumns(columns);
    }
    void ExpectRefused(const QByteArray& content, const QString& why)
    {
        disk.WriteWhole(file, content);
        const QList<forms::GridColumn> before = grid.Columns();
        for (int attempt = 0; attempt < 2; ++attempt) {
            try {
                if (attempt == 0)
                    (void)databook::LoadGrid(disk, grid, file, u"Default"_s);
                else
                    databook::SaveGrid(disk, grid, file, u"Mine"_s);
                ADD_FAILURE() << "took " << content.toStdString();
            } catch (const RuntimeError& failure) {
                EXPECT_EQ(failure.Number(), 321);
                EXPECT_TRUE(failure.Description().contains(file)) << failure.Description().toStdString();
                EXPECT_TRUE(failure.Description().contains(why)) << failure.Description().toStdString();
            }
        }
        EXPECT_EQ(disk.ReadWhole(file), content) << "never overwritten";
        EXPECT_EQ(grid.Columns(), before);
    }
};

TEST_F(Layouts, OrderVisibilityAndWidthComeBack)
{
    Rearrange();
    const QList<forms::GridColumn> mine = grid.Columns();
    databook::SaveGrid(disk, grid, file, databook::kCurrentLayout);
    databook::SetGridSettings(grid, u"DEFAULT"_s);
    ASSERT_NE(grid.Columns(), mine);
    EXPECT_TRUE(databook::LoadGrid(disk, grid, file, u" current (USER) "_s));
    EXPECT_EQ(grid.Columns(), mine);
}

TEST_F(Layouts, NamesAreKeptInOrderAndReplacedWithoutRegardToCase)
{
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    databook::SaveGrid(disk, grid, file, u"Wide"_s);
    Rearrange();
    databook::SaveGrid(disk, grid, file, u"DEFAULT"_s);
    EXPECT_EQ(databook::LayoutNames(disk, file), (QStringList{u"DEFAULT"_s, u"Wide"_s}));
    EXPECT_TRUE(databook::LoadGrid(disk, grid, file, u"Wide"_s));
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns());
    EXPECT_TRUE(databook::LoadGrid(disk, grid, file, u"Default"_s));
    EXPECT_EQ(grid.Columns().first().field, u"SELLINGPR"_s);
}

TEST_F(Layouts, AMissingFileOrLayoutIsSilent)
{
    Rearrange();
    const QList<forms::GridColumn> before = grid.Columns();
    EXPECT_FALSE(databook::LoadGrid(disk, grid, file, u"Default"_s));
    databook::SaveGrid(disk, grid, file, u"Other"_s);
    EXPECT_FALSE(databook::LoadGrid(disk, grid, file, u"Default"_s));
    EXPECT_EQ(grid.Columns(), before);
    EXPECT_TRUE(databook::LayoutNames(disk, u"C:\\none.grx"_s).isEmpty());
}

TEST_F(Layouts, SavingAgainWritesTheSameFile)
{
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    const QByteArray first = disk.ReadWhole(file);
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    EXPECT_EQ(disk.ReadWhole(file), first);
    EXPECT_EQ(databook::LayoutFile::Parse(first, file).Text(), first);
}

TEST_F(Layouts, RemovingLeavesTheOthers)
{
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    databook::SaveGrid(disk, grid, file, u"Wide"_s);
    EXPECT_TRUE(databook::RemoveLayout(disk, file, u"wide"_s));
    EXPECT_FALSE(databook::RemoveLayout(disk, file, u"wide"_s));
    EXPECT_FALSE(databook::RemoveLayout(disk, u"C:\\none.grx"_s, u"wide"_s));
    EXPECT_EQ(databook::LayoutNames(disk, file), QStringList{u"Default"_s});
    EXPECT_FALSE(disk.FileExists(u"C:\\none.grx"_s));
}

TEST_F(Layouts, TheBackupStandsBesideTheFile)
{
    databook::RefreshLayoutFile(disk, file);
    EXPECT_FALSE(disk.FileExists(u"C:\\VAS2000.gbk"_s)) << "nothing to back up";
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    databook::RefreshLayoutFile(disk, file);
    EXPECT_EQ(disk.ReadWhole(u"C:\\VAS2000.gbk"_s), disk.ReadWhole(file));
    databook::SaveGrid(disk, grid, file, u"Wide"_s);
    databook::RefreshLayoutFile(disk, file);
    EXPECT_EQ(databook::LayoutNames(disk, u"C:\\VAS2000.gbk"_s), (QStringList{u"Default"_s, u"Wide"_s}));
}

TEST_F(Layouts, ADamagedFileDoesNotReplaceItsBackup)
{
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    databook::RefreshLayoutFile(disk, file);
    const QByteArray good = disk.ReadWhole(file);
    disk.WriteWhole(file, good.first(good.size() / 2));
    databook::RefreshLayoutFile(disk, file);
    EXPECT_EQ(disk.ReadWhole(u"C:\\VAS2000.gbk"_s), good);
}

TEST_F(Layouts, DamagedAndForeignFilesAreRefusedAndLeftAlone)
{
    databook::SaveGrid(disk, grid, file, u"Default"_s);
    const QByteArray good = disk.ReadWhole(file);
    ExpectRefused(good.first(good.size() / 2), u"it is damaged at byte"_s);
    ExpectRefused("", u"it is damaged at byte 0"_s);
    ExpectRefused(QByteArray("\0\1\2GRX", 6), u"it is damaged"_s);
    ExpectRefused("{}", u"it is no list of grid layouts"_s);
    ExpectRefused("[1, 2]", u"it is no list of grid layouts"_s);
    ExpectRefused(R"({"format":"vasclip grid layouts","version":2,"layouts":[]})", u"it has version 2"_s);
    ExpectRefused(R"({"format":"vasclip grid layouts","version":1})", u"it has no list of layouts"_s);
    ExpectRefused(R"({"format":"vasclip grid layouts","version":1,"layouts":[{"columns":[]}]})",
                  u"one of its layouts has no name"_s);
    ExpectRefused(
        R"({"format":"vasclip grid layouts","version":1,"layouts":[{"name":"A","columns":[{"field":"GLA"}]}]})",
        u"a column of the layout \"A\""_s);
}

TEST_F(Layouts, FieldsComeAndGoBetweenVersions)
{
    disk.WriteWhole(file, R"({"format":"vasclip grid layouts","version":1,"layouts":[{"name":"A","columns":[
        {"field":"GONEFIELD","visible":true,"width":50},
        {"field":"GLA","visible":false,"width":-5},
        {"field":"gla","visible":true,"width":70},
        {"field":"CENTRALKEY","visible":false,"width":1000000}]}]})");
    ASSERT_TRUE(databook::LoadGrid(disk, grid, file, u"A"_s));
    EXPECT_EQ(grid.Columns().size(), databook::DefaultColumns().size());
    EXPECT_EQ(IndexOf(u"GLA"_s), 0);
    EXPECT_FALSE(Column(u"GLA"_s).visible);
    EXPECT_EQ(Column(u"GLA"_s).width, 16) << "a width that can be grasped";
    EXPECT_EQ(IndexOf(u"CENTRALKEY"_s), 1);
    EXPECT_TRUE(Column(u"CENTRALKEY"_s).visible) << "rows are known by it";
    EXPECT_EQ(Column(u"CENTRALKEY"_s).width, 4000);
    EXPECT_EQ(IndexOf(u"FRONT"_s), 2) << "what the layout does not know stands behind";
    EXPECT_EQ(Column(u"SALEDATE"_s).numberFormat, u"Short Date"_s);
}

TEST_F(Layouts, NamesOfAllKinds)
{
    const QString name = u"Größe \"x\" \\ /"_s;
    databook::SaveGrid(disk, grid, file, name);
    EXPECT_EQ(databook::LayoutNames(disk, file), QStringList{name});
    EXPECT_TRUE(databook::LoadGrid(disk, grid, file, name));
}

} // namespace
