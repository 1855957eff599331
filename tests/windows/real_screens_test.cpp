#include "bare_windows.h"
#include "databook/frm_calendar.h"
#include "databook/frm_grid.h"
#include "databook/frm_search_sql.h"
#include "databook/grid.h"
#include "map/frm_manual.h"
#include "map/frm_map_preview.h"
#include "map/frm_street_find.h"
#include "platform/engine/database.h"
#include "shell/frm_change_db.h"
#include "shell/frm_config.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/map_parts.h"
#include "windows/about_box.h"
#include "windows/main_window.h"
#include "windows/record_grid.h"
#include "windows/screens.h"
#include "windows/splash_window.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QCalendarWidget>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

// Every window against the screen that it belongs to.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class RealScreens : public BareWindows
{
protected:
};

TEST_F(RealScreens, TheMainWindowShowsEveryControlOfFrmMain)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
}

TEST_F(RealScreens, TheSplashShowsEveryControlOfFrmSplash)
{
    shell::frm_Splash splash(ports.Get());
    SplashWindow window(splash.controls, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    splash.ShowSplashStatus(u"Loading Configuration Settings"_s);
    EXPECT_EQ(window.findChild<QAbstractItemView*>()->currentIndex().row(), 0);
}

TEST_F(RealScreens, TheGridLayoutWindowShowsEveryControlOfFrmGrid)
{
    home.MakeDirs(u"C:\\VAS2000"_s);
    forms::ControlSet controls;
    forms::Grid grid(controls, u"grddatabook"_s);
    databook::SetGridSettings(grid, u"DEFAULT"_s);
    databook::SaveGrid(home.disk, grid, u"C:\\VAS2000\\VAS2000.grx"_s, u"Default"_s);
    grid.ShowColumn(0, false);
    databook::SaveGrid(home.disk, grid, u"C:\\VAS2000\\VAS2000.grx"_s, u"Mine"_s);
    databook::frm_Grid screen(home.disk, ports.Get(), grid, u"C:\\VAS2000\\"_s);
    screen.Open();
    ScreenWindow window(screen, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    auto* list = window.findChild<QListView*>(u"lstLayout"_s);
    auto* preview = window.findChild<RecordGrid*>();
    ASSERT_TRUE(list && preview);
    list->setCurrentIndex(list->model()->index(0, 0));
    EXPECT_FALSE(preview->isColumnHidden(0));
    list->setCurrentIndex(list->model()->index(1, 0));
    EXPECT_TRUE(preview->isColumnHidden(0));
    EXPECT_EQ(window.findChild<QLineEdit*>(u"txtLayout"_s)->text(), u"Mine"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"lblPreview"_s)->text(), u"Preview of Mine"_s);
    window.findChild<QPushButton*>(u"cmdOK"_s)->click();
    EXPECT_FALSE(screen.IsOpen());
    screen.End();
}

TEST_F(RealScreens, TheSettingsShowEveryControlOfFrmConfig)
{
    common::Globals globals;
    shell::frm_Config config(engine, ports.Get(), globals);
    config.Open();
    ScreenWindow window(config, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
}

TEST_F(RealScreens, TheMapsOwnWindowsShowEveryControl)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    map::frm_StreetFind find(program.Map().Desk());
    ScreenWindow findWindow(find, guard);
    EXPECT_TRUE(findWindow.Leftovers().isEmpty()) << findWindow.Leftovers().join(u'\n').toStdString();
    map::frm_Manual manual(program.Map().Desk());
    ScreenWindow manualWindow(manual, guard);
    EXPECT_TRUE(manualWindow.Leftovers().isEmpty()) << manualWindow.Leftovers().join(u'\n').toStdString();
    map::frm_MapPreview preview(program.Map().Desk(), 0, {});
    ScreenWindow previewWindow(preview, guard);
    EXPECT_TRUE(previewWindow.Leftovers().isEmpty()) << previewWindow.Leftovers().join(u'\n').toStdString();
}

TEST_F(RealScreens, AClickOnTheNameOfAFieldEmptiesIt)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    map::frm_StreetFind find(program.Map().Desk());
    find.Open();
    ScreenWindow window(find, guard);
    window.show();
    const std::pair<QString, QString> fields[] = {
        {u"lbladdress"_s, u"txtStreet"_s}, {u"lblCity"_s, u"txtCity"_s},     {u"lblstate"_s, u"txtState"_s},
        {u"lblzip"_s, u"txtZip"_s},        {u"lblcounty"_s, u"txtCounty"_s}, {u"lblMapLabel"_s, u"txtlabel"_s}};
    for (const auto& [name, box] : fields) {
        auto* edit = window.findChild<QLineEdit*>(box);
        auto* label = window.findChild<QLabel*>(name);
        ASSERT_TRUE(edit && label) << name.toStdString();
        QTest::keyClicks(edit, u"typed"_s);
        // To the window, as a pointer's events come: they find the label by themselves.
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, label->mapTo(&window, label->rect().center()));
        EXPECT_EQ(edit->text(), QString()) << name.toStdString();
    }
    auto* label = window.findChild<QLabel*>(u"lblMapLabel"_s);
    EXPECT_FALSE(label->font().bold());
    QTest::mouseClick(window.findChild<QRadioButton*>(u"optfind_1"_s), Qt::LeftButton);
    EXPECT_TRUE(label->font().bold()) << "what is looked for stands out";
    EXPECT_FALSE(window.findChild<QLineEdit*>(u"txtStreet"_s)->isVisible());
    QTest::mouseClick(window.findChild<QRadioButton*>(u"optfind_0"_s), Qt::LeftButton);
    EXPECT_FALSE(label->font().bold());
    find.Unload();
    find.End();
}

TEST_F(RealScreens, TheChoiceOfADatabaseShowsEveryControl)
{
    shell::frm_ChangeDB choice(u"C:\\DATABOOK\\"_s, {u"DATABOOK.MDB"_s, u"OLD.MDB"_s}, u"databook.mdb"_s);
    choice.Open();
    ScreenWindow window(choice, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    auto* list = window.findChild<QAbstractItemView*>(u"lstdatabases"_s);
    EXPECT_EQ(list->currentIndex().row(), 0);
    window.show();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(choice.IsOpen());
    EXPECT_EQ(choice.Chosen(), u"OLD.MDB"_s);
}

TEST_F(RealScreens, WhatIsNewStandsInTheAboutBox)
{
    AboutBox plain({u"Vasclip"_s, u"1.0.0"_s, {}, {}});
    EXPECT_EQ(plain.findChild<QPlainTextEdit*>(), nullptr);
    AboutBox changes({u"Vasclip"_s, u"1.0.0"_s, {}, {}, u"A line\n\n- a point that\n  goes on\nAnother"_s});
    ASSERT_NE(changes.findChild<QPlainTextEdit*>(), nullptr);
    EXPECT_EQ(changes.findChild<QPlainTextEdit*>()->toPlainText(),
              u"A line\n\n- a point that goes on\nAnother"_s);
    const auto weight = [&](int line) {
        const QTextBlock block = changes.findChild<QPlainTextEdit*>()->document()->findBlockByNumber(line);
        QTextCursor at(block);
        at.movePosition(QTextCursor::EndOfBlock);
        return at.charFormat().fontWeight();
    };
    EXPECT_EQ(weight(0), QFont::DemiBold);
    EXPECT_EQ(weight(2), QFont::Normal);
    EXPECT_EQ(weight(3), QFont::DemiBold);
    EXPECT_EQ(changes.windowTitle(), u"What's New?"_s);
}

TEST_F(RealScreens, TheAboutBoxShowsItsLinesWhole)
{
    const QString longPath = u"C:\\A DIRECTORY OF A LONG NAME\\ANOTHER ONE\\AND ONE MORE\\DATABOOK.MDB"_s;
    // A window takes two thirds of a screen by itself; on a small one that is less than these.
    const QList<std::pair<QString, QString>> facts(16, {u"Databook"_s, longPath});
    for (const QString& changes : {QString(), u"A line\n"_s.repeated(80)}) {
        AboutBox about({u"Vasclip"_s, u"1.0.0"_s, u"Ostrand Ltd."_s, facts, changes});
        about.show();
        QCoreApplication::processEvents();
        for (const auto* label : about.findChildren<QLabel*>()) {
            if (label->text().isEmpty())
                continue;
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
        }
        for (const auto* button : about.findChildren<QPushButton*>())
            EXPECT_TRUE(button->icon().isNull()) << "the desktop's sign on the program's colours";
    }
}

TEST_F(RealScreens, ResetSizePutsTheWindowBackToItsFirstSize)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    window.show();
    const QSize first = window.size();
    window.resize(1111, 777);
    window.ResetSize();
    EXPECT_EQ(window.size(), first);
}

TEST_F(RealScreens, NoTwoMenuEntriesShareAKey)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    QHash<QString, QString> taken;
    for (const QAction* action : window.findChildren<QAction*>()) {
        const QString keys = action->shortcut().toString(QKeySequence::PortableText);
        if (keys.isEmpty())
            continue;
        EXPECT_FALSE(taken.contains(keys)) << keys.toStdString() << ": " << action->text().toStdString()
                                           << " and " << taken.value(keys).toStdString();
        taken.insert(keys, action->text());
    }
    for (int key = Qt::Key_F3; key <= Qt::Key_F8; ++key)
        for (const Qt::KeyboardModifier second : {Qt::AltModifier, Qt::ShiftModifier}) {
            const QKeySequence stores(QKeyCombination(Qt::ControlModifier | second, Qt::Key(key)));
            EXPECT_FALSE(taken.contains(stores.toString(QKeySequence::PortableText)))
                << "it keeps a phrase on a key of an entry screen";
        }
    EXPECT_GE(taken.size(), 5);
}

TEST_F(RealScreens, TheSearchShowsEveryControlAndListsAMillionLinesAsItShowsThem)
{
    struct Lines : forms::ListSource
    {
        [[nodiscard]] int Count() const override { return 1000000; }
        [[nodiscard]] QString Line(int index) const override
        {
            ++asked;
            return u"%1 OAK ST"_s.arg(index);
        }
        mutable int asked = 0;
    } lines;
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    databook::GridRows rows(main.sources.datsql);
    const forms::Ports shown = ports.Get();
    databook::frm_SearchSQL search({shown, home.disk, main.globals, main.records, main.sources.datsql, rows});
    search.Open();
    ScreenWindow window(search, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();

    auto* keys = qobject_cast<forms::ComboBox*>(search.Box(u"cboSearchKey"_s));
    auto* combo = window.findChild<QComboBox*>(u"cboSearchKey"_s);
    search.SetText(u"cboSearchKey"_s, u"elm"_s);
    keys->SetSource(&lines);
    window.show();
    combo->showPopup();
    QApplication::processEvents();
    EXPECT_EQ(combo->currentText(), u"elm"_s) << "a list that is filled takes no text away";
    EXPECT_LE(combo->count(), 1000);
    EXPECT_LE(lines.asked, 2000);
    combo->view()->scrollToBottom();
    QApplication::processEvents();
    EXPECT_GT(combo->count(), 200) << "scrolling brings more";
    EXPECT_LE(combo->count(), 2000);
    combo->hidePopup();
    Q_EMIT combo->activated(7);
    EXPECT_EQ(search.TextOf(u"cboSearchKey"_s), u"7 OAK ST"_s);

    auto* range = window.findChild<QWidget*>(u"txtPriceRange"_s);
    EXPECT_FALSE(range->isVisible());
    search.SetText(u"txtPrice"_s, u"1"_s);
    EXPECT_TRUE(range->isVisible());
}

/// The press that leaves the date makes its words appear: what was pressed must not run away from the pointer.
TEST_F(RealScreens, ADateOfTheSearchSaysWhatItIsReadAsAndMovesNothing)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    databook::GridRows rows(main.sources.datsql);
    const forms::Ports shown = ports.Get();
    databook::frm_SearchSQL search({shown, home.disk, main.globals, main.records, main.sources.datsql, rows});
    search.Open();
    ScreenWindow window(search, guard);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    int order = 0;
    for (const QString& stem : {u"SaleDate"_s, u"LoadDate"_s}) {
        SCOPED_TRACE(stem.toStdString());
        auto* edit = window.findChild<QLineEdit*>(u"txt"_s + stem);
        auto* words = window.findChild<QLabel*>(u"lbl%1Note"_s.arg(stem));
        auto* back = window.findChild<QToolButton*>(u"cmd%1Back"_s.arg(stem));
        ASSERT_TRUE(edit && words && back);
        edit->setFocus();
        QApplication::processEvents();
        QTest::keyClicks(edit, u"13/45/2026"_s);
        auto* option = window.findChild<QRadioButton*>(u"optSort_%1"_s.arg(++order));
        const QPoint at = option->mapTo(&window, QPoint(12, option->height() / 2));
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, at);
        QTest::qWait(20);
        EXPECT_TRUE(words->isVisible());
        EXPECT_GE(words->height(), words->heightForWidth(words->width())) << "nothing is cut off";
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, at);
        EXPECT_TRUE(option->isChecked());
        EXPECT_EQ(edit->text(), u"01/01/1900"_s);
        EXPECT_TRUE(words->text().startsWith(u"\"13/45/2026\" is not understood as a date"_s));
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, back->mapTo(&window, back->rect().center()));
        QApplication::processEvents();
        EXPECT_EQ(edit->text(), u"13/45/2026"_s);
        EXPECT_TRUE(edit->hasFocus());
        QTest::keyClick(edit, Qt::Key_Tab);
        QApplication::processEvents();
        EXPECT_EQ(edit->text(), u"01/01/1900"_s);
        edit->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(edit->text(), u"13/45/2026"_s);
        EXPECT_FALSE(words->isVisible());
    }
}

TEST_F(RealScreens, EscEmptiesTheQuickFindBoxAndGoesToTheGrid)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* box = window.findChild<QLineEdit*>(u"txtQuickFind"_s);
    box->setFocus();
    QTest::keyClicks(box, u"oak"_s);
    EXPECT_EQ(main.records.txtQuickFind.Text(), u"oak"_s);
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(main.records.txtQuickFind.Text(), QString());
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(window.focusWidget(), &window.Databook());
}

TEST_F(RealScreens, TheCalendarShowsEveryControlOfFrmCalendar)
{
    databook::frm_Calendar calendar(ports.Get(), u"Sale Date"_s, QDate(2004, 3, 7));
    ScreenWindow window(calendar, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    auto* month = window.findChild<QCalendarWidget*>();
    EXPECT_EQ(month->selectedDate(), QDate(2004, 3, 7));
    month->setSelectedDate(QDate(2004, 4, 1));
    EXPECT_EQ(calendar.calCalendar.Value(), QDate(2004, 4, 1));
    calendar.cmdToday.Clicked();
    EXPECT_EQ(month->selectedDate(), ports.clock.Today());
    window.show();
    for (const QString& name : {u"qt_calendar_prevmonth"_s, u"qt_calendar_nextmonth"_s}) {
        const auto* arrow = month->findChild<QToolButton*>(name);
        const QImage shot = month->grab(QRect(arrow->mapTo(month, QPoint()), arrow->size())).toImage();
        int lit = 0;
        for (int y = 0; y < shot.height(); ++y)
            for (int x = 0; x < shot.width(); ++x)
                lit += shot.pixelColor(x, y).lightness() > 200 ? 1 : 0;
        EXPECT_GT(lit, 6) << name.toStdString() << " stands out on its bar";
    }
}

TEST_F(RealScreens, EveryHeadingOfTheGridFitsItsColumn)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    databook::SetGridSettings(main.records.grddatabook, u"DEFAULT"_s);
    const QHeaderView* header = window.Databook().horizontalHeader();
    ASSERT_EQ(header->count(), main.records.grddatabook.Columns().size());
    for (int column = 0; column < header->count(); ++column)
        EXPECT_LE(header->sectionSizeHint(column), header->sectionSize(column))
            << main.records.grddatabook.Columns()[column].caption.toStdString();
}

} // namespace
} // namespace vasclip::windows
