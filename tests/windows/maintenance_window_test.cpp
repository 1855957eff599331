#include "keys.h"
#include "report_windows.h"
#include "shell/menus.h"
#include "upkeep/frm_del_date.h"
#include "upkeep/frm_maintenance.h"

#include <QGroupBox>
#include <QLayout>
#include <QProgressBar>

namespace vasclip::windows {

namespace {

using namespace Qt::Literals::StringLiterals;

/// The main window, and the screen of the repairs over it.
class MaintenanceWindow : public PlayedScreen
{
protected:
    void SetUp() override
    {
        PlayedScreen::SetUp();
        {
            const auto database = engine.OpenDatabase(shell::kDatabook);
            engine::Transaction all(*database);
            const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
            for (int i = 100; i < 450; ++i) {
                rows->AddNew();
                rows->SetValue(u"CENTRALKEY"_s, u"%1 MANY ST"_s.arg(i).leftJustified(35));
                rows->SetValue(u"ADDRESS"_s, u"%1 Many St"_s.arg(i));
                rows->SetValue(u"CITY"_s, u"Alder"_s);
                rows->Update();
            }
            rows->Close();
            all.Commit();
        }
        StartProgram();
        MakeMainWindow();
        mainWindow->show();
    }
    void Play(const std::function<void()>& script)
    {
        PlayOn(u"frm_Maintenance"_s, [&] { main.mnuMaintItem.Choose(u"mnuMaintItem"_s, 0); }, script);
    }
    [[nodiscard]] QString Address(const QString& key)
    {
        const auto record = store::ReadRecord(program.sources.datDatabook, key);
        return record ? record->Text(u"ADDRESS"_s) : QString();
    }
    [[nodiscard]] QString InGrid(const QString& field) const
    {
        return program.records.grddatabook.CurrentText(field).trimmed();
    }
};

TEST_F(MaintenanceWindow, ShowsWhatItChangedAndTheGridAnew)
{
    const auto& grid = program.records.grddatabook;
    const QString before = main.shown.Key();
    ASSERT_FALSE(before.isEmpty());
    EXPECT_EQ(grid.RowCount(), 351);
    Play([&] {
        bool letGo = false;
        doubles.pump.onTurn = [&] {
            if (The<QPushButton>(u"cmdStop"_s).isVisible()) {
                letGo = letGo || grid.Source() == nullptr;
                EXPECT_FALSE(The<QPushButton>(u"cmdRecalc"_s).isEnabled()) << "one work at a time";
                EXPECT_TRUE(program.sources.datsql.Bound() == false || grid.Source() != nullptr);
            }
        };
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdCorrectAddress_2"_s);
        doubles.pump.onTurn = {};
        EXPECT_TRUE(letGo);
        EXPECT_EQ(Says(), u"Resetting process Complete"_s);
        EXPECT_EQ(Lines().size(), 701);
        EXPECT_EQ(The<QListView>(u"lstaccount"_s).model()->index(0, 0).data().toString(),
                  u"12 OAK ST: ADDRESS \"12 Oak St\" → \"12 OAK ST\""_s);
        EXPECT_FALSE(The<QPushButton>(u"cmdStop"_s).isVisible());
    });
    EXPECT_EQ(grid.RowCount(), 351);
    EXPECT_EQ(main.shown.Key(), before) << "the record on show stays";
    EXPECT_EQ(InGrid(u"ADDRESS"_s), Address(before)) << "and is shown as it is now";
    EXPECT_EQ(program.records.lblDatabookADDR.Caption(), Address(before));
    EXPECT_EQ(Address(u"100 MANY ST"_s), u"100 MANY ST"_s);
}

TEST_F(MaintenanceWindow, NoLeavesEverythingAndACancelTakesItBack)
{
    Play([&] {
        doubles.prompter.Answer(forms::Answer::No);
        Press(u"cmdCorrectAddress_2"_s);
        EXPECT_EQ(Says(), QString());
        EXPECT_EQ(Address(u"449 MANY ST"_s), u"449 Many St"_s);
        int turns = 0;
        doubles.pump.onTurn = [&] {
            if (The<QPushButton>(u"cmdStop"_s).isVisible() && ++turns == 3)
                Press(u"cmdStop"_s);
        };
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdCorrectAddress_2"_s);
        doubles.pump.onTurn = {};
        EXPECT_EQ(turns, 3);
        EXPECT_EQ(Says(), u"Stopped. Every record is as it was."_s);
        EXPECT_EQ(Lines().size(), 0);
    });
    EXPECT_EQ(Address(u"12 OAK ST"_s), u"12 Oak St"_s);
    EXPECT_EQ(Address(u"449 MANY ST"_s), u"449 Many St"_s);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 351);
}

TEST_F(MaintenanceWindow, EscapeInTheMiddleStopsAndTheWindowStaysUntilThen)
{
    Play([&] {
        doubles.pump.onTurn = [&] {
            if (!The<QPushButton>(u"cmdStop"_s).isVisible())
                return;
            QTest::keyClick(window, Qt::Key_Escape);
            EXPECT_TRUE(window->isVisible());
        };
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdCorrectAddress_2"_s);
        doubles.pump.onTurn = {};
        EXPECT_EQ(Says(), u"Stopped. Every record is as it was."_s);
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_EQ(Address(u"12 OAK ST"_s), u"12 Oak St"_s);
}

TEST_F(MaintenanceWindow, AnotherUsersChangeBetweenTwoRepairsStands)
{
    Play([&] {
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdCorrectAddress_1"_s);
        {
            engine::Engine other{home.disk, tests::SomeTime()};
            const auto database = other.OpenDatabase(shell::kDatabook);
            database->Execute(u"UPDATE COMPS SET ADDRESS = '12 Oak Street North' WHERE CENTRALKEY = '12 OAK ST'"_s);
        }
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdCorrectAddress_2"_s);
        EXPECT_EQ(Says(), u"Resetting process Complete"_s);
    });
    EXPECT_EQ(Address(u"12 OAK ST"_s), u"12 OAK STREET NORTH"_s);
}

TEST_F(MaintenanceWindow, TheRecordOnShowThatIsDeletedGivesWayToTheNext)
{
    Add(shell::kDatabook, u"COMPS"_s,
        {{u"CENTRALKEY"_s, u"1 OLD ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"03/07/1999"_s}});
    guard.Run([&] { main.shown.ShowRecord(u"1 OLD ST"_s); });
    ASSERT_EQ(main.shown.Key(), u"1 OLD ST"_s);
    Play([&] {
        doubles.screens.Play([&](forms::Screen& asks) {
            ScreenWindow dialog(asks, guard);
            EXPECT_TRUE(dialog.Leftovers().isEmpty()) << dialog.Leftovers().join(u'\n').toStdString();
            dialog.show();
            QTest::keyClicks(dialog.findChild<QLineEdit*>(u"txtDate"_s), u"3/7/1999"_s);
            QTest::mouseClick(dialog.findChild<QPushButton*>(u"cmdOK"_s), Qt::LeftButton);
            EXPECT_FALSE(dialog.isVisible());
        });
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdDeleteByDate"_s);
        EXPECT_EQ(Says(), u"Process Complete.  Delete by Sale Date of 3/7/1999."_s);
    });
    EXPECT_EQ(program.records.grddatabook.RowCount(), 351);
    EXPECT_NE(main.shown.Key(), u"1 OLD ST"_s);
    EXPECT_FALSE(main.shown.Key().isEmpty());
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(MaintenanceWindow, TheGaugeHasRoomForItsLongestText)
{
    Play([&] {
        int seen = 0;
        doubles.pump.onTurn = [&] {
            auto& gauge = The<QProgressBar>(u"gauWork"_s);
            if (!gauge.isVisible())
                return;
            QApplication::sendPostedEvents();
            window->layout()->activate();
            ++seen;
            EXPECT_TRUE(gauge.text().startsWith(u"Recalculating the 'price per square foot'"_s));
            EXPECT_LE(window->minimumSizeHint().height(), 700);
            EXPECT_GE(gauge.contentsRect().width(), gauge.fontMetrics().horizontalAdvance(gauge.text()));
            const QString shots = qEnvironmentVariable("VASCLIP_SHOTS");
            EXPECT_TRUE(shots.isEmpty() || window->grab().save(shots + u"/maintenance-at-work.png"_s));
        };
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdRecalc"_s);
        doubles.pump.onTurn = {};
        EXPECT_GT(seen, 0);
        EXPECT_LE(window->minimumSizeHint().width(), 1366);
    });
}

TEST_F(MaintenanceWindow, FitsASmallScreenInBothThemes)
{
    const QString shots = qEnvironmentVariable("VASCLIP_SHOTS");
    Play([&] {
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdRecalc"_s);
        EXPECT_LE(window->sizeHint().width(), 1366);
        EXPECT_LE(window->minimumSizeHint().height(), 700) << "with its frame and a task bar";
        for (const ThemeChoice choice : {ThemeChoice::Light, ThemeChoice::Dark}) {
            theme.Choose(choice);
            QApplication::processEvents();
            const QString name = u"%1/maintenance-%2.png"_s.arg(shots).arg(static_cast<int>(choice));
            EXPECT_TRUE(shots.isEmpty() || window->grab().save(name));
        }
    });
}

TEST_F(MaintenanceWindow, ItsFramesBearTheirNames)
{
    Play([&] {
        QStringList titles;
        for (const QGroupBox* frame : window->findChildren<QGroupBox*>()) {
            titles.append(frame->title());
            EXPECT_GE(frame->width(), frame->fontMetrics().horizontalAdvance(frame->title()) + 20) << "it is whole";
        }
        titles.sort();
        EXPECT_EQ(titles, (QStringList{u"Databook - Address / Central Key"_s, u"Databook - Computation / Date Fields"_s,
                                       u"Databook - Mapping Fields"_s, u"User Comments Database"_s}));
    });
}

TEST_F(MaintenanceWindow, WorkMovesTheFocusToCancelAndToExitAndNowhereBetween)
{
    Play([&] {
        ASSERT_TRUE(Activate(*window));
        The<QPushButton>(u"cmdclearAnchors"_s).setFocus();
        QStringList went; // each would be scrolled into view on a small screen
        const auto heard = QObject::connect(qApp, &QApplication::focusChanged, qApp, [&](QWidget*, QWidget* now) {
            went.append(now == nullptr ? u"-"_s : now->objectName());
        });
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdclearAnchors"_s);
        QObject::disconnect(heard);
        EXPECT_EQ(went, (QStringList{u"cmdStop"_s, u"cmdExit"_s})) << went.join(u' ').toStdString();
    });
}

} // namespace

} // namespace vasclip::windows
