#include "common/paths.h"
#include "map/frm_map_data.h"
#include "platform/street/map_change.h"
#include "platform/street/map_data.h"
#include "report_windows.h"
#include "shell/map_parts.h"
#include "shell/menus.h"
#include "windows/map_view.h"

#include <QScrollBar>
#include <QTableView>
#include <QTabWidget>

namespace vasclip::windows {

namespace {

using namespace Qt::Literals::StringLiterals;

/// A street of two ends with houses 2 to 40 along it, at this latitude in thousandths of a degree over 32.
QByteArray Town(int north)
{
    QByteArray csv = "number,street,city,state,zip,lat,lon\n";
    for (int n = 2; n <= 40; n += 2)
        csv += QByteArray::number(n) + ",Oak St,Prattville,AL,36067,32." + QByteArray::number(north + 100).right(2) +
               QByteArray::number(n / 2 + 100).right(2) + ",-86.01\n";
    return csv + ",Oak St,Prattville,AL,36067,32.0,-86.01\n";
}

/// The main window with its map tab on show, and the screen of the maps over it.
class MapDataScreen : public PlayedScreen
{
protected:
    void SetUp() override
    {
        PlayedScreen::SetUp();
        if (!QFile::exists(street::MapImport::Program()))
            GTEST_SKIP() << "vasclip-mapdata is not built here";
        StartProgram();
        MakeMainWindow();
        mainWindow->ShowMap(main.map);
        mainWindow->show();
    }
    /// Chooses the menu entry and plays on its window.
    void Play(const std::function<void()>& script)
    {
        PlayOn(u"frm_MapData"_s, [&] { main.mnuMaintItem.Choose(u"mnuMaintItem"_s, 6); }, script);
    }
    QStringList Row(int row) const
    {
        const QAbstractItemModel* model = The<QAbstractItemView>(u"grdmaps"_s).model();
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells.append(model->index(row, column).data().toString());
        return cells;
    }
    int Rows() const { return The<QAbstractItemView>(u"grdmaps"_s).model()->rowCount(); }
    void Import(const QString& file, const QByteArray& content, const QString& county) const
    {
        const_cast<tests::TempHome&>(home).Put(file, content);
        const_cast<tests::TestPorts&>(doubles).prompter.AnswerDialog(file);
        Press(u"cmdFile"_s);
        The<QLineEdit>(u"txtcounty"_s).clear();
        QTest::keyClicks(&The<QLineEdit>(u"txtcounty"_s), county);
        Press(u"cmdImport"_s);
    }
    QString Directory() { return home.disk.ToNative(common::CkRSlash(main.globals.cellData)); }
    void OpenTab()
    {
        mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(1);
        QApplication::processEvents();
    }
};

TEST_F(MapDataScreen, BringsAMapThatTheOpenTabShowsAtOnce)
{
    OpenTab();
    EXPECT_TRUE(mainWindow->findChild<QWidget*>(u"atlasEmpty"_s)->isVisible());
    Play([&] {
        EXPECT_EQ(Says(u"lblTotal"_s), u"There are no maps yet"_s);
        EXPECT_FALSE(The<QPushButton>(u"cmdVerify"_s).isEnabled());
        EXPECT_FALSE(The<QPushButton>(u"cmdImport"_s).isEnabled()) << "of nothing";
        Import(u"C:\\SNAP\\town.csv"_s, Town(10), u"Elm"_s);
        EXPECT_EQ(Says(), u"In use now: 1 counties, 20 houses. Line by line in C:\\VAS2000\\MapImport.txt"_s);
        EXPECT_TRUE(Lines().contains(u"Left out: 1 it has no house number"_s)) << Lines().join(u'\n').toStdString();
        EXPECT_TRUE(Lines().contains(u"left out: town.csv: row 21: it has no house number"_s))
            << Lines().join(u'\n').toStdString();
        ASSERT_EQ(Rows(), 1);
        EXPECT_EQ(Row(0)[0], u"Elm"_s);
        EXPECT_EQ(Row(0)[2], u"town.csv"_s);
        EXPECT_EQ(Row(0)[5], u"20"_s);
        EXPECT_EQ(Row(0)[7], u"not yet"_s);
        EXPECT_EQ(Row(0)[8], u"32.10 to 32.10 N, 86.01 to 86.01 W"_s);
        const auto& maps = The<QTableView>(u"grdmaps"_s);
        EXPECT_FALSE(maps.horizontalScrollBar()->isVisible());
        constexpr int kMargins = 2 * 9;
        EXPECT_GE(maps.columnWidth(8),
                  maps.fontMetrics().horizontalAdvance(u"44.72 to 44.94 N, 121.12 to 121.44 W"_s) + kMargins);
        EXPECT_TRUE(Lines(u"lstsources"_s).isEmpty()) << "they are done";
        EXPECT_TRUE(mainWindow->findChild<MapView*>()->isVisible()) << "behind the screen";
        EXPECT_FALSE(mainWindow->findChild<QWidget*>(u"atlasEmpty"_s)->isVisible());
        Press(u"cmdVerify"_s);
        EXPECT_EQ(Says(), u"All maps are whole"_s);
        EXPECT_EQ(Row(0)[7], u"whole"_s);
    });
    EXPECT_TRUE(QFile::exists(home.disk.ToNative(u"C:\\VAS2000\\MapImport.txt"_s)));
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(MapDataScreen, ListsWhatNewMapsWouldMoveBeforeTheyAreUsed)
{
    Add(shell::kDatabook, u"COMPS"_s,
        {{u"CENTRALKEY"_s, u"20 OAK ST"_s.leftJustified(35)}, {u"ADDRESS"_s, u"20 Oak St"_s},
         {u"CITY"_s, u"Prattville"_s}, {u"ST"_s, u"AL"_s}, {u"ZIP"_s, u"36067"_s}});
    OpenTab();
    Play([&] {
        Import(u"C:\\SNAP\\town.csv"_s, Town(10), u"Elm"_s);
        EXPECT_FALSE(The<QPushButton>(u"cmdUse"_s).isEnabled());
        QTest::keyClick(&The<QCheckBox>(u"ckbBeside"_s), Qt::Key_Space);
        Import(u"C:\\SNAP\\new.csv"_s, Town(30), u"Elm"_s);
        EXPECT_TRUE(Says().startsWith(u"Ready beside the maps in use: "_s)) << Says().toStdString();
        EXPECT_EQ(Says(u"lblBeside"_s), u"New maps wait beside those in use: Elm"_s);
        EXPECT_EQ(Row(0)[2], u"town.csv"_s);
        Press(u"cmdDiff"_s);
        ASSERT_EQ(Lines().size(), 1) << Says().toStdString();
        EXPECT_EQ(Lines()[0], u"20 OAK ST: 72,763 feet, from 32.101 -86.01 to 32.301 -86.01"_s);
        Press(u"cmdUse"_s);
        EXPECT_EQ(Says(), u"The new maps are in use"_s);
        EXPECT_EQ(Row(0)[2], u"new.csv"_s);
        program.Map().Street().SetLocation(u"20 Oak St, Prattville, AL"_s);
        program.Map().Street().DoAction(street::action::kFind);
        EXPECT_EQ(program.Map().Street().Latitude(), 32'301'000) << "of the maps that the tab has";
        EXPECT_FALSE(The<QPushButton>(u"cmdDiscard"_s).isEnabled());
    });
}

TEST_F(MapDataScreen, AsksBeforeAMapIsRemovedAndTheTabLosesIt)
{
    OpenTab();
    Play([&] {
        Import(u"C:\\SNAP\\town.csv"_s, Town(10), u"Elm"_s);
        doubles.prompter.Answer(forms::Answer::No);
        Press(u"cmdRemove"_s);
        EXPECT_EQ(Rows(), 1);
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdRemove"_s);
        EXPECT_EQ(Rows(), 0);
        EXPECT_EQ(Says(), u"The map of Elm is removed"_s);
        EXPECT_FALSE(The<QPushButton>(u"cmdRemove"_s).isEnabled());
    });
    EXPECT_TRUE(street::MapData(Directory()).Counties().empty());
}

TEST_F(MapDataScreen, AStopLeavesTheMapsAsTheyWere)
{
    Play([&] {
        Import(u"C:\\SNAP\\town.csv"_s, Town(10), u"Elm"_s);
        QByteArray large = "number,street,city,state,zip,lat,lon\n";
        for (int n = 1; n < 400000; ++n)
            large += QByteArray::number(n) + ",Oak St,Prattville,AL,36067,32.01,-86.01\n";
        doubles.pump.onTurn = [&] {
            if (The<QPushButton>(u"cmdStop"_s).isVisible())
                Press(u"cmdStop"_s);
            EXPECT_FALSE(The<QPushButton>(u"cmdImport"_s).isEnabled()) << "one work at a time";
        };
        Import(u"C:\\SNAP\\large.csv"_s, large, u"Elm"_s);
        EXPECT_EQ(Says(), u"Stopped. The maps are as they were"_s);
        EXPECT_EQ(Row(0)[5], u"20"_s);
        EXPECT_EQ(Lines(u"lstsources"_s).size(), 1) << "it can be tried again";
        EXPECT_FALSE(The<QPushButton>(u"cmdStop"_s).isVisible());
        EXPECT_TRUE(The<QPushButton>(u"cmdImport"_s).isEnabled());
    });
}

TEST_F(MapDataScreen, DoesNotCloseInTheMiddleOfAnImportButStopsIt)
{
    Play([&] {
        QByteArray large = "number,street,city,state,zip,lat,lon\n";
        for (int n = 1; n < 400000; ++n)
            large += QByteArray::number(n) + ",Oak St,Prattville,AL,36067,32.01,-86.01\n";
        doubles.pump.onTurn = [&] {
            QTest::keyClick(window, Qt::Key_Escape);
            EXPECT_TRUE(window->isVisible());
        };
        Import(u"C:\\SNAP\\large.csv"_s, large, u"Elm"_s);
        doubles.pump.onTurn = {};
        EXPECT_EQ(Says(), u"Stopped. The maps are as they were"_s);
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_FALSE(street::MapData(Directory()).IsOpen());
}

TEST_F(MapDataScreen, SaysWhatIsWrongWithSourcesAndMaps)
{
    Play([&] {
        Import(u"C:\\SNAP\\town.csv"_s, Town(10), {});
        EXPECT_EQ(Says(), u"Nothing was changed: town.csv doesn't tell its county; give it a name in the field County"_s);
        EXPECT_EQ(Lines(u"lstsources"_s).size(), 1);
        QTest::keyClicks(&The<QLineEdit>(u"txtcounty"_s), u"Elm"_s);
        Press(u"cmdImport"_s);
        ASSERT_EQ(Rows(), 1) << Says().toStdString();
        const street::MapData maps(Directory());
        QFile file(Directory() + u'/' + maps.Counties()[0].file);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.resize(file.size() / 2);
        file.close();
        Press(u"cmdVerify"_s);
        EXPECT_EQ(Says(), u"Damaged or missing: 1. Import these counties again"_s);
        EXPECT_EQ(Row(0)[7], u"damaged"_s);
        EXPECT_TRUE(Lines()[0].startsWith(u"Elm: "_s));
    });
}

} // namespace

} // namespace vasclip::windows
