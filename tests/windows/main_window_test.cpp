#include "windows/main_window.h"

#include "sample_screen.h"
#include "shell/frm_change_db.h"
#include "support/scripted_ports.h"
#include "windows/guard.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"
#include "windows/screens.h"
#include "windows/send_to_slot.h"
#include "windows/splash_window.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QSplitter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <algorithm>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class MainWindowTest : public testing::Test
{
protected:
    QTemporaryDir dir;
    QSettings settings{dir.filePath(u"view.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    tests::ScriptedPrompter prompter;
    int ended = -1;
    EventGuard guard{prompter, [this](int code) { ended = code; }};
    tests::SampleRows rows;
    tests::SampleScreen screen;
    tests::SamplePort port;
    std::unique_ptr<MainWindow> window;

    void SetUp() override { Open(); }
    void Open()
    {
        window = std::make_unique<MainWindow>(screen.controls, port, port, guard, theme, settings);
        screen.Fill(rows);
        window->resize(1366, 768);
        window->show();
        window->activateWindow();
        QApplication::processEvents();
    }
    template <class Widget>
    Widget* Find(const QString& name)
    {
        auto* widget = window->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    /// As the toolkit sends a drag to a widget. @return true if the widget would take it
    bool Enter(QWidget& target, const QMimeData& data)
    {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        return enter.isAccepted();
    }
    void DropOn(QWidget& target, const QMimeData& data)
    {
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &drop);
    }
    static bool IsControl(const QWidget& widget)
    {
        return Binder::IsControlName(widget.objectName()) && qobject_cast<const QMenu*>(&widget) == nullptr;
    }
    forms::Control& Source() { return screen.Get<forms::Grid>(u"grddatabook"_s); }
};

TEST_F(MainWindowTest, WindowAndScreenAgree)
{
    EXPECT_TRUE(window->Leftovers().isEmpty()) << window->Leftovers().join(u'\n').toStdString();
}

TEST_F(MainWindowTest, AControlTooManyIsFound)
{
    screen.Add<forms::Button>(u"cmdNobody"_s);
    EXPECT_EQ(window->Leftovers(), QStringList{u"control without a widget: cmdNobody"_s});
}

TEST_F(MainWindowTest, PagesAreBuiltWhenTheyAreShown)
{
    EXPECT_NE(window->findChild<QWidget*>(u"imaSubject_1"_s), nullptr);
    EXPECT_EQ(window->findChild<QWidget*>(u"imaGeneral_1"_s), nullptr);
    screen.Get<forms::TabControl>(u"TabData"_s).SetTab(2);
    QApplication::processEvents();
    EXPECT_TRUE(Find<PictureView>(u"imaGeneral_1"_s)->isVisible());
    EXPECT_EQ(window->findChild<QWidget*>(u"imaGeneral_34"_s), nullptr);
    screen.Get<forms::TabControl>(u"TabGeneral"_s).SetTab(11);
    QApplication::processEvents();
    EXPECT_TRUE(Find<PictureView>(u"imaGeneral_34"_s)->isVisible());
}

TEST_F(MainWindowTest, MenusShowTheirEntriesAndEveryOneHasAKey)
{
    for (const QString& name : {u"mnuFileItem"_s, u"mnuHelpItem"_s, u"viewMenu"_s}) {
        const auto* menu = Find<QMenu>(name);
        EXPECT_TRUE(menu->title().contains(u'&'));
        QSet<QChar> keys;
        for (const QAction* action : menu->actions()) {
            if (action->isSeparator())
                continue;
            const qsizetype mark = action->text().indexOf(u'&');
            ASSERT_GE(mark, 0) << action->text().toStdString();
            EXPECT_FALSE(keys.contains(action->text().at(mark + 1).toUpper()))
                << action->text().toStdString();
            keys.insert(action->text().at(mark + 1).toUpper());
        }
    }
}

TEST_F(MainWindowTest, ADropReachesThePortAfterTheEvent)
{
    window->BuildAllPages();
    const std::unique_ptr<QMimeData> data(DragDesk::Payload(Source()));
    auto* slot = Find<QLineEdit>(u"txtComp_4"_s);
    EXPECT_TRUE(Enter(*slot, *data));
    EXPECT_TRUE(slot->property("dropHover").toBool());
    DropOn(*slot, *data);
    EXPECT_FALSE(slot->property("dropHover").toBool());
    EXPECT_EQ(port.log, QStringList{u"over grddatabook txtComp"_s}) << "not within the toolkit's own event";
    QApplication::processEvents();
    EXPECT_EQ(port.log.last(), u"drop grddatabook txtComp_4"_s);
}

TEST_F(MainWindowTest, LeavingClearsTheHint)
{
    window->BuildAllPages();
    const std::unique_ptr<QMimeData> data(DragDesk::Payload(Source()));
    auto* slot = Find<PictureView>(u"geaComp_1"_s);
    EXPECT_TRUE(Enter(*slot, *data));
    QDragLeaveEvent leave;
    QApplication::sendEvent(slot, &leave);
    EXPECT_EQ(port.log, (QStringList{u"over grddatabook geaComp"_s, u"over  "_s}));
    EXPECT_FALSE(slot->property("dropHover").toBool());
}

TEST_F(MainWindowTest, WhatThePortRefusesIsNotTaken)
{
    window->BuildAllPages();
    const std::unique_ptr<QMimeData> data(DragDesk::Payload(Source()));
    EXPECT_FALSE(Enter(*Find<QLineEdit>(u"txtcentralkey"_s), *data));
    EXPECT_FALSE(Enter(*Find<RecordGrid>(u"grddatabook"_s)->viewport(), *data));
    screen.Get<forms::TextBox>(u"txtComp"_s, 4).SetEnabled(false);
    EXPECT_FALSE(Enter(*Find<QLineEdit>(u"txtComp_4"_s), *data));
    port.open = false;
    EXPECT_FALSE(Enter(*Find<QLineEdit>(u"txtComp_5"_s), *data));
}

TEST_F(MainWindowTest, ADragOfAnotherProgramIsNone)
{
    window->BuildAllPages();
    QMimeData foreign;
    foreign.setData(QLatin1StringView(DragDesk::kMimeType), "garbage");
    EXPECT_FALSE(Enter(*Find<QLineEdit>(u"txtComp_4"_s), foreign));
    DropOn(*Find<PictureView>(u"imaComp_4"_s), foreign);
    QApplication::processEvents();
    EXPECT_TRUE(port.log.isEmpty());
}

TEST_F(MainWindowTest, AFailureInADropIsReported)
{
    window->BuildAllPages();
    port.onDrop = [](forms::Control&, forms::Control&) { throw RuntimeError(282, u"No answer"_s); };
    const std::unique_ptr<QMimeData> data(DragDesk::Payload(Source()));
    EXPECT_TRUE(Enter(*Find<QLineEdit>(u"txtComp_4"_s), *data));
    DropOn(*Find<QLineEdit>(u"txtComp_4"_s), *data);
    QTest::qWait(20);
    EXPECT_EQ(port.log.value(1), u"drop grddatabook txtComp_4"_s);
    EXPECT_TRUE(prompter.Last().text.contains(u"282"_s));
}

TEST_F(MainWindowTest, SendToSlotListsTheAvailablePagesOnly)
{
    const QList<SlotChoice> choices = SlotChoices(screen.controls, port, u"grddatabook"_s);
    QStringList targets;
    for (const SlotChoice& choice : choices)
        targets += choice.target->ObjectName();
    EXPECT_TRUE(targets.contains(u"txtComp_9"_s));
    EXPECT_TRUE(targets.contains(u"txtAltComp_3"_s));
    EXPECT_FALSE(targets.contains(u"txtAltComp_4"_s)) << "that page is N/A";
    EXPECT_FALSE(targets.contains(u"txtRental_1"_s));
    EXPECT_TRUE(targets.contains(u"geaListing_1"_s));
    EXPECT_EQ(targets.first(), u"txtSubject"_s);
}

TEST_F(MainWindowTest, SendToSlotByKeys)
{
    window->Databook().setFocus();
    bool seen = false;
    QTimer::singleShot(50, window.get(), [&] {
        auto* dialog = qobject_cast<SendToSlotDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        seen = true;
        auto* filter = dialog->findChild<QLineEdit*>();
        QTest::keyClicks(filter, u"alt 2 data only"_s);
        QTest::keyClick(filter, Qt::Key_Return);
    });
    QTest::keyClick(&window->Databook(), Qt::Key_Return, Qt::ControlModifier);
    QTest::qWait(120);
    EXPECT_TRUE(seen);
    EXPECT_EQ(port.log, QStringList{u"drop grddatabook geaAltComp_2"_s});
}

TEST_F(MainWindowTest, EveryPaneIsReachedByF6)
{
    window->Databook().setFocus();
    QSet<QWidget*> reached;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(window->focusWidget(), Qt::Key_F6);
        reached.insert(window->focusWidget());
    }
    EXPECT_EQ(reached.size(), 5);
    EXPECT_EQ(window->focusWidget(), &window->Databook());
}

TEST_F(MainWindowTest, TheTabKeyReachesSlotsAndGrid)
{
    QSet<QString> reached;
    QWidget* first = Find<QTabWidget>(u"TabData"_s)->tabBar();
    first->setFocus();
    QStringList order;
    for (int i = 0; i < 60; ++i) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        reached.insert(window->focusWidget()->objectName());
        order += window->focusWidget()->objectName();
    }
    for (const QString& name :
         {u"txtSubject"_s, u"imaSubject_1"_s, u"imaSubjectIcon_3"_s, u"lstViews"_s, u"txtcentralkey"_s,
          u"cboapprslType"_s, u"cmdAdd"_s, u"cmdPrint"_s, u"grddatabook"_s, u"imaKel"_s})
        EXPECT_TRUE(reached.contains(name)) << name.toStdString() << " of " << order.join(u' ').toStdString();
    EXPECT_LT(order.indexOf(u"imaSubject_1"_s), order.indexOf(u"lstViews"_s));
    EXPECT_LT(order.indexOf(u"lstViews"_s), order.indexOf(u"txtcentralkey"_s));
    EXPECT_LT(order.indexOf(u"cmdPrint"_s), order.indexOf(u"grddatabook"_s));
}

TEST_F(MainWindowTest, KeysOfThePhotoPressItsButtonsUnlessTheyAreDisabled)
{
    QStringList pressed;
    for (const QString& name : {u"CmdDeletePhoto"_s, u"CmdRenamePhotoView"_s})
        QObject::connect(&screen.Get<forms::Button>(name), &forms::Control::Clicked, &screen.Get<forms::Button>(name),
                         [&pressed, name] { pressed += name; });
    for (QWidget* photo : {static_cast<QWidget*>(Find<QListView>(u"lstViews"_s)),
                           static_cast<QWidget*>(Find<windows::PictureView>(u"geamaintain"_s))}) {
        photo->setFocus();
        QTest::keyClick(photo, Qt::Key_F2);
        QTest::keyClick(photo, Qt::Key_Delete);
        EXPECT_EQ(pressed, (QStringList{u"CmdRenamePhotoView"_s, u"CmdDeletePhoto"_s})) << photo->objectName().toStdString();
        pressed.clear();
    }
    screen.Get<forms::Button>(u"CmdDeletePhoto"_s).SetEnabled(false);
    QTest::keyClick(Find<QListView>(u"lstViews"_s), Qt::Key_Delete);
    EXPECT_EQ(pressed, QStringList());
}

TEST_F(MainWindowTest, PlacesAreRemembered)
{
    auto* splitter = Find<QSplitter>(u"topSplitter"_s);
    splitter->setSizes({700, 640});
    QApplication::processEvents();
    const QList<int> sizes = splitter->sizes();
    int unloads = 0;
    QObject::connect(window.get(), &MainWindow::Unload, window.get(), [&] { ++unloads; });
    window->close();
    window->close();
    EXPECT_EQ(unloads, 1);
    Open();
    EXPECT_EQ(Find<QSplitter>(u"topSplitter"_s)->sizes(), sizes);
}

TEST_F(MainWindowTest, ResizingKeepsTheProportionsOfThePanes)
{
    const auto share = [this](const QString& name) {
        const QList<int> sizes = Find<QSplitter>(name)->sizes();
        return static_cast<double>(sizes.first()) / (sizes.first() + sizes.last());
    };
    window->resize(1700, 900);
    QApplication::processEvents();
    Find<QSplitter>(u"mainSplitter"_s)->setSizes({350, 450});
    Find<QSplitter>(u"topSplitter"_s)->setSizes({900, 760});
    Find<QSplitter>(u"bottomSplitter"_s)->setSizes({1000, 660});
    QApplication::processEvents();
    QMap<QString, double> before;
    for (const QString& name : {u"mainSplitter"_s, u"topSplitter"_s, u"bottomSplitter"_s})
        before[name] = share(name);
    for (const QSize& size : {QSize(2400, 1300), QSize(1600, 860), QSize(3000, 1600), QSize(1700, 900)}) {
        window->resize(size);
        QApplication::processEvents();
        for (const QString& name : before.keys())
            EXPECT_NEAR(share(name), before[name], 0.01) << name.toStdString() << " at " << size.width();
    }
}

TEST_F(MainWindowTest, TheThemeIsRemembered)
{
    Find<QToolButton>(u"themeButton"_s)->click();
    EXPECT_TRUE(theme.IsDark());
    Theme later(*qApp, &settings);
    EXPECT_TRUE(later.IsDark());
    EXPECT_EQ(later.Choice(), ThemeChoice::Dark);
}

TEST(ThemeOfTheSystem, IsAskedAfterAThemeThatWasDark)
{
    {
        Theme dark(*qApp);
        dark.Choose(ThemeChoice::Dark);
        ASSERT_TRUE(dark.IsDark());
    }
    EXPECT_FALSE(Theme(*qApp).IsDark());
}

TEST_F(MainWindowTest, RecordCountFollowsTheGrid)
{
    EXPECT_EQ(Find<QLabel>(u"recordCount"_s)->text(), u"Record 4 of 512"_s);
    screen.Get<forms::Grid>(u"grddatabook"_s).Rebind(nullptr);
    EXPECT_EQ(Find<QLabel>(u"recordCount"_s)->text(), u"No records"_s);
}

/// No text may be wider than the widget that shows it, at the smallest supported screen.
TEST_F(MainWindowTest, NothingIsClippedAt1366)
{
    window->resize(1366, 720);
    for (int page = 0; page < 5; ++page) {
        screen.Get<forms::TabControl>(u"TabData"_s).SetTab(page);
        QTest::qWait(5);
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            if (!widget->isVisible())
                continue;
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            if (button != nullptr) {
                EXPECT_GE(button->width(), button->minimumSizeHint().width())
                    << button->objectName().toStdString();
            }
            const QRect inWindow(widget->mapTo(window.get(), QPoint()), widget->size());
            if (IsControl(*widget)) {
                EXPECT_TRUE(window->rect().contains(inWindow)) << widget->objectName().toStdString();
            }
        }
    }
}

/// The row above the grid needs room: words go first, and the pane stops before boxes lie on each other.
TEST_F(MainWindowTest, TheRowAboveTheGridNeverOverlaps)
{
    auto* pane = Find<QWidget>(u"recordsPane"_s);
    auto* row = Find<QWidget>(u"fraAddaComp"_s);
    auto* splitter = Find<QSplitter>(u"bottomSplitter"_s);
    auto* edit = Find<QToolButton>(u"cmdEdit"_s);
    bool bare = false, worded = false;
    for (int width = 2000; width >= 400; width -= 20) {
        window->resize(2400, 900);
        splitter->setSizes({width, 2400 - width});
        QApplication::processEvents();
        QApplication::processEvents();
        (edit->toolButtonStyle() == Qt::ToolButtonIconOnly ? bare : worded) = true;
        QList<QWidget*> shown;
        for (QWidget* widget : row->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            if (widget->isVisible())
                shown.append(widget);
        std::sort(shown.begin(), shown.end(), [](const auto* a, const auto* b) { return a->x() < b->x(); });
        for (qsizetype i = 0; i + 1 < shown.size(); ++i)
            ASSERT_LT(shown.at(i)->geometry().right(), shown.at(i + 1)->geometry().left())
                << shown.at(i)->objectName().toStdString() << " at " << pane->width();
        ASSERT_LE(shown.last()->geometry().right(), row->width()) << pane->width();
    }
    EXPECT_TRUE(bare && worded);
}

TEST(SplashWindowTest, WindowAndScreenAgree)
{
    tests::ScriptedPrompter prompter;
    EventGuard guard(prompter, {});
    forms::ControlSet controls;
    forms::ListBox lines(controls, u"lstSplash"_s);
    forms::Gauge gauge(controls, u"gauProgress"_s);
    forms::Label company(controls, u"lblCompany"_s), version(controls, u"lblVersion"_s);
    forms::PictureBox logo(controls, u"imgLogo"_s);
    SplashWindow splash(controls, guard);
    EXPECT_TRUE(splash.Leftovers().isEmpty()) << splash.Leftovers().join(u'\n').toStdString();
    EXPECT_FALSE(logo.Picture().isNull()) << "without a picture of its own the program's sign stands there";
}

TEST_F(MainWindowTest, TheGroundBehindTheTabsIsTheThemesOwnOrPlain)
{
    auto* desk = window->findChild<QWidget*>(u"desk"_s);
    ASSERT_NE(desk, nullptr);
    const auto ground = [&] { return window->grab().toImage().pixelColor(3, window->height() / 2); };
    window->ShowTabColours(true);
    EXPECT_EQ(ground(), Theme::Colours().window);
    window->ShowTabColours(false);
    EXPECT_EQ(ground(), Theme::Colours().surface);
}

TEST(WindowScreensTest, TheStopClosesEveryOpenScreen)
{
    tests::ScriptedPrompter prompter;
    EventGuard guard(prompter, {});
    WindowScreens screens;
    screens.SetGuard(&guard);
    shell::frm_ChangeDB outer(u"C:\\A\\"_s, {u"A.MDB"_s}, u"A.MDB"_s);
    shell::frm_ChangeDB inner(u"C:\\B\\"_s, {u"B.MDB"_s}, u"B.MDB"_s);
    bool bothOpen = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            bothOpen = outer.IsOpen() && inner.IsOpen();
            screens.UnloadAllForms();
        });
        screens.ShowModal(inner);
    });
    screens.ShowModal(outer);
    EXPECT_TRUE(bothOpen);
    EXPECT_FALSE(outer.IsOpen());
    EXPECT_FALSE(inner.IsOpen());
}

TEST(ThemeTest, TheStyleSheetComesWithTheFirstWindow)
{
    qApp->setStyleSheet({});
    Theme theme(*qApp, nullptr);
    QWidget pane;
    pane.ensurePolished();
    EXPECT_TRUE(qApp->styleSheet().isEmpty()) << "a pane that is being built is matched against nothing";
    QDialog box;
    box.ensurePolished();
    EXPECT_TRUE(qApp->styleSheet().contains(u"QPushButton"));
    theme.Choose(ThemeChoice::Dark);
    EXPECT_TRUE(qApp->styleSheet().contains(Theme::ColoursOf(true).surface.name()));
}

TEST(ThemeTest, APlainWindowIsDressedWhenItIsShown)
{
    qApp->setStyleSheet({});
    Theme theme(*qApp, nullptr);
    QWidget window;
    window.show();
    EXPECT_FALSE(qApp->styleSheet().isEmpty());
}

} // namespace
} // namespace vasclip::windows
