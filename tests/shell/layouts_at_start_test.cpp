// What becomes of the grid's layouts between the start of the program and its end.

#include "databook/grid.h"
#include "databook/layouts.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class LayoutsAtStart : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts ports;
    engine::Engine engine{home.disk, tests::SomeTime()};
    test::RecordingConduit conduit;
    const QString user = u"C:\\VAS2000\\VAS2000.grx"_s;
    const QString program = u"C:\\VAS2000\\default.grx"_s;
    QStringList statuses;

    void SetUp() override
    {
        for (const QString& directory :
             {u"C:\\APPRAISE"_s, u"C:\\VAS2000"_s, u"C:\\DATABOOK"_s, u"C:\\WINDOWS"_s, u"C:\\VASSNAP"_s})
            home.MakeDirs(directory);
        home.Put(
            u"C:\\APPRAISE\\VAS2000.INI"_s,
            "[DIRECTORIES]\r\nPROGRAMDIR=C:\\VAS2000\r\nUSERDIR=C:\\VAS2000\r\nDATADIR=C:\\DATABOOK\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[VENDOR]\r\n");
        store::MakeDatabase(engine, u"C:\\DATABOOK\\DATABOOK.MDB"_s);
        store::MakeDatabase(engine, u"C:\\VAS2000\\Comp2Kel.mdb"_s);
        conduit.running = false;
    }

    struct Run
    {
        Run(const QString& home, const shell::Surroundings& around)
            : program(home, around)
        {}
        shell::Program program;
        shell::frm_Main main{program};
    };
    std::unique_ptr<Run> Start(const QString& commandLine = {})
    {
        auto run = std::make_unique<Run>(home.disk.Home(), shell::Surroundings{conduit, ports.Get()});
        shell::frm_Splash splash(ports.Get());
        run->main.Form_load({.commandLine = commandLine,
                         .previousInstance = {},
                         .places = {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false},
                         .version = u"1.0.0"_s},
                        splash);
        statuses = splash.lstSplash.Items();
        return run;
    }
    static void PriceFirst(forms::Grid& grid) { grid.SetColumns(WithFirst(u"SELLINGPR"_s)); }
    static QList<forms::GridColumn> WithFirst(const QString& field)
    {
        QList<forms::GridColumn> columns = databook::DefaultColumns();
        for (int i = 0; i < columns.size(); ++i)
            if (columns.at(i).field == field)
                columns.move(i, 0);
        return columns;
    }
    void PutLayout(const QString& name, const QString& first)
    {
        forms::ControlSet set;
        forms::Grid grid(set, u"grddatabook"_s);
        grid.SetColumns(WithFirst(first));
        databook::SaveGrid(home.disk, grid, user, name);
    }
    [[nodiscard]] QString Saved(const QString& file, const QString& name) const
    {
        const auto layouts = databook::LayoutFile::ReadOrNew(home.disk, file);
        const databook::Layout* layout = layouts.Find(name);
        return layout ? layout->columns.first().field : QString();
    }
    [[nodiscard]] bool Stated(const QString& text) const
    {
        return std::any_of(statuses.begin(), statuses.end(),
                           [&](const QString& line) { return line.endsWith(u" - "_s + text); });
    }
    /// Boxes that speak of a layout file.
    [[nodiscard]] int Told() const
    {
        return static_cast<int>(
            std::count_if(ports.prompter.Boxes().begin(), ports.prompter.Boxes().end(),
                          [](const auto& box) { return box.text.contains(u".grx"_s, Qt::CaseInsensitive); }));
    }
};

TEST_F(LayoutsAtStart, TheFirstStartWritesTheDefaultIntoBothFiles)
{
    auto run = Start();
    EXPECT_EQ(run->main.records.grddatabook.Columns(), databook::DefaultColumns());
    EXPECT_EQ(databook::LayoutNames(home.disk, program), QStringList{u"Default"_s});
    EXPECT_EQ(databook::LayoutNames(home.disk, user), QStringList{u"Default"_s});
    EXPECT_EQ(Told(), 0);
    EXPECT_TRUE(Stated(u"Verifying Default Grid Settings"_s));
    EXPECT_TRUE(Stated(u"Loading Saved Grid Layout"_s));
    EXPECT_TRUE(Stated(u"Displaying Comp Records"_s));
}

TEST_F(LayoutsAtStart, TheUsersLayoutSurvivesAStartAndTheDefaultIsWrittenAnew)
{
    PutLayout(u"Current (User)"_s, u"SELLINGPR"_s);
    PutLayout(u"Default"_s, u"NOTES"_s); // of an earlier version of the program
    PutLayout(u"Mine"_s, u"GLA"_s);
    auto run = Start();
    EXPECT_EQ(run->main.records.grddatabook.Columns().first().field, u"SELLINGPR"_s);
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"SELLINGPR"_s);
    EXPECT_EQ(Saved(user, u"Default"_s), u"FRONT"_s);
    EXPECT_EQ(Saved(user, u"Mine"_s), u"GLA"_s);
    EXPECT_EQ(Saved(program, u"Default"_s), u"FRONT"_s);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\VAS2000.gbk"_s), home.disk.ReadWhole(user));
    for (const forms::GridColumn& column : run->main.records.grddatabook.Columns()) {
        if (column.field == u"SALEDATE"_s) {
            EXPECT_EQ(column.numberFormat, u"Short Date"_s);
        }
    }
}

TEST_F(LayoutsAtStart, NoLoadShowsTheDefaultAndLeavesTheUsersFileAlone)
{
    PutLayout(u"Current (User)"_s, u"SELLINGPR"_s);
    PutLayout(u"Default"_s, u"NOTES"_s);
    const QByteArray before = home.disk.ReadWhole(user);
    for (const QString& line : {u"/NOLOAD"_s, u"/no load"_s}) {
        auto run = Start(line);
        EXPECT_EQ(run->main.records.grddatabook.Columns(), databook::DefaultColumns());
        EXPECT_EQ(home.disk.ReadWhole(user), before);
        EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\VAS2000.gbk"_s));
        EXPECT_EQ(Saved(program, u"Default"_s), u"FRONT"_s);
        EXPECT_FALSE(Stated(u"Loading Saved Grid Layout"_s));
    }
}

TEST_F(LayoutsAtStart, NoLoadSavesTheLayoutAtExitAllTheSame)
{
    PutLayout(u"Current (User)"_s, u"SELLINGPR"_s);
    auto run = Start(u"/NOLOAD"_s);
    run->main.records.grddatabook.SetColumns(WithFirst(u"GLA"_s));
    run->main.Form_Unload();
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"GLA"_s);
}

TEST_F(LayoutsAtStart, TheLayoutIsSavedAtExitOnce)
{
    auto run = Start();
    PriceFirst(run->main.records.grddatabook);
    run->main.Form_Unload();
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"SELLINGPR"_s);
    EXPECT_EQ(Saved(user, u"Default"_s), u"FRONT"_s);
    EXPECT_EQ(run->main.records.grddatabook.Source(), nullptr);
    run->main.records.grddatabook.SetColumns(WithFirst(u"GLA"_s));
    run->main.Form_Unload();
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"SELLINGPR"_s);
    run.reset();
    EXPECT_EQ(Start()->main.records.grddatabook.Columns().first().field, u"SELLINGPR"_s);
}

TEST_F(LayoutsAtStart, ADamagedFileIsToldOnceAndNeverOverwritten)
{
    PutLayout(u"Current (User)"_s, u"SELLINGPR"_s);
    const QByteArray half = home.disk.ReadWhole(user).first(200);
    for (const QString& line : {QString(), u"/NOLOAD"_s}) {
        home.disk.WriteWhole(user, half);
        ports.prompter.Forget();
        auto run = Start(line);
        EXPECT_EQ(Told(), 1);
        EXPECT_EQ(run->main.records.grddatabook.Columns(), databook::DefaultColumns());
        run->main.Form_Unload();
        EXPECT_EQ(Told(), 1) << "once is enough";
        EXPECT_EQ(home.disk.ReadWhole(user), half);
    }
}

TEST_F(LayoutsAtStart, AReadOnlyFileStillGivesItsLayout)
{
    PutLayout(u"Default"_s, u"NOTES"_s);
    PutLayout(u"Current (User)"_s, u"SELLINGPR"_s);
    home.disk.SetAttr(user, files::ReadOnly);
    const QByteArray before = home.disk.ReadWhole(user);
    auto run = Start();
    EXPECT_EQ(run->main.records.grddatabook.Columns().first().field, u"SELLINGPR"_s);
    EXPECT_GE(Told(), 1);
    run->main.Form_Unload();
    EXPECT_EQ(home.disk.ReadWhole(user), before);
    home.disk.SetAttr(user, files::Normal);
}

TEST_F(LayoutsAtStart, GridLayoutIsOnTheSetupMenu)
{
    auto run = Start();
    PutLayout(u"Price"_s, u"SELLINGPR"_s);
    ports.screens.Play([](forms::Screen& screen) {
        auto* list = qobject_cast<forms::ListBox*>(screen.controls.Find(u"lstLayout"_s));
        ASSERT_NE(list, nullptr);
        list->SetListIndex(list->IndexOf(u"Price"_s));
        Q_EMIT screen.controls.Find(u"cmdUseSelected"_s)->Clicked();
        Q_EMIT screen.controls.Find(u"cmdOK"_s)->Clicked();
    });
    run->main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 2);
    EXPECT_EQ(ports.screens.Shown(), QStringList{u"frm_Grid"_s});
    EXPECT_EQ(run->main.records.grddatabook.Columns().first().field, u"SELLINGPR"_s);
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"SELLINGPR"_s);
}

TEST_F(LayoutsAtStart, AHeadingSortsByItsFieldAndIsRemembered)
{
    auto run = Start();
    auto& grid = run->main.records.grddatabook;
    grid.ClickHead(grid.ColumnOf(u"GLA"_s));
    EXPECT_EQ(run->main.globals.sortGrid, 4);
    EXPECT_TRUE(run->main.sources.datsql.RecordSource().endsWith(u" ORDER BY COMPS.GLA DESC"_s));
    const QString before = run->main.sources.datsql.RecordSource();
    grid.ClickHead(grid.ColumnOf(u"NOTES"_s));
    EXPECT_EQ(run->main.globals.sortGrid, 4) << "no order of the six";
    EXPECT_EQ(run->main.sources.datsql.RecordSource(), before);
    run->main.Form_Unload();
    run.reset();
    EXPECT_EQ(Start()->main.globals.sortGrid, 4);
}

TEST_F(LayoutsAtStart, ThePopUpOfTheGridDoesWhatItsEntriesSay)
{
    auto run = Start();
    auto& menu = run->main.popGrid_M;
    QStringList captions;
    for (const forms::MenuEntry& entry : menu.Entries())
        captions.append(entry.caption);
    EXPECT_EQ(captions, (QStringList{u"Refesh Grid"_s, u"-"_s, u"Search"_s, u"-"_s,
                                     u"Refresh from Appraisal"_s, u"Addresses in Memory"_s}));
    int rebound = 0;
    QObject::connect(&run->main.records.grddatabook, &forms::Grid::Rebound, &run->main, [&] { ++rebound; });
    menu.Choose(u"popGrid_M"_s, 0);
    EXPECT_EQ(rebound, 1);
    conduit.log.clear();
    menu.Choose(u"popGrid_M"_s, 4);
    EXPECT_FALSE(conduit.log.isEmpty()) << "the forms program was asked";
    run->main.records.cmdSearch.SetEnabled(false);
    EXPECT_FALSE(menu.Entry(u"popGrid_M"_s, 2)->enabled);
    run->main.records.cmdSearch.SetEnabled(true);
    EXPECT_TRUE(menu.Entry(u"popGrid_M"_s, 2)->enabled) << "as soon as its button can";
    EXPECT_FALSE(menu.Entry(u"popGrid_M"_s, 5)->enabled);
}

} // namespace
