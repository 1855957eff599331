#include "windows/binder.h"

#include "support/scripted_ports.h"
#include "windows/guard.h"
#include "windows/picture_view.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A window with one widget, and what the guard saw.
struct Screen
{
    tests::ScriptedPrompter prompter;
    int ended = -1;
    EventGuard guard{prompter, [this](int code) { ended = code; }};
    forms::ControlSet controls;
    QWidget root;
    Binder binder{controls, guard};

    template <class Widget>
    Widget* Put(const QString& name)
    {
        auto* widget = new Widget(&root);
        widget->setObjectName(name);
        return widget;
    }
};

TEST(BinderText, ShowsTheControlAndTakesTyping)
{
    Screen s;
    forms::TextBox box(s.controls, u"txtComp"_s, 4);
    box.SetText(u"12 OAK ST"_s);
    auto* edit = s.Put<QLineEdit>(u"txtComp_4"_s);
    s.binder.Bind(s.root);
    EXPECT_EQ(edit->text(), u"12 OAK ST"_s);

    box.SetText(u"9 ELM ST"_s);
    EXPECT_EQ(edit->text(), u"9 ELM ST"_s);

    edit->clear();
    QTest::keyClicks(edit, u"7 Fir"_s);
    EXPECT_EQ(box.Text(), u"7 Fir"_s);
}

TEST(BinderText, ARuleMayAnswerTypingWithAnotherText)
{
    Screen s;
    forms::TextBox box(s.controls, u"txtcentralkey"_s);
    QObject::connect(&box, &forms::TextBox::TextChanged, &box, [&] { box.SetText(box.Text().toUpper()); });
    auto* edit = s.Put<QLineEdit>(u"txtcentralkey"_s);
    s.binder.Bind(s.root);
    QTest::keyClicks(edit, u"7 fir"_s);
    EXPECT_EQ(edit->text(), u"7 FIR"_s);
    EXPECT_EQ(edit->cursorPosition(), 5);
}

TEST(BinderText, AFocusThatComesWithTheEndOfTheWindowIsNotTold)
{
    tests::ScriptedPrompter prompter;
    EventGuard guard{prompter, {}};
    forms::ControlSet controls;
    forms::TextBox box(controls, u"txtLayout"_s);
    int told = 0;
    QObject::connect(&box, &forms::Control::GotFocus, &box, [&] { ++told; });
    QWidget root;
    auto* edit = new QLineEdit(&root);
    edit->setObjectName(u"txtLayout"_s);
    const auto focus = [edit] {
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QApplication::sendEvent(edit, &event);
    };
    {
        Binder binder{controls, guard};
        binder.Bind(root);
        focus();
        QCoreApplication::processEvents();
        EXPECT_EQ(told, 1);
        focus();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1);
}

TEST(BinderText, LengthAndLockReachTheWidget)
{
    Screen s;
    forms::TextBox box(s.controls, u"txtcentralkey"_s);
    box.SetMaxLength(3);
    auto* edit = s.Put<QLineEdit>(u"txtcentralkey"_s);
    s.binder.Bind(s.root);
    QTest::keyClicks(edit, u"abcdef"_s);
    EXPECT_EQ(box.Text(), u"abc"_s);
    box.SetLocked(true);
    EXPECT_TRUE(edit->isReadOnly());
}

TEST(BinderText, ALongTextHasAnEditOfSeveralLines)
{
    Screen s;
    forms::TextBox box(s.controls, u"txtNotes"_s);
    auto* edit = s.Put<QPlainTextEdit>(u"txtNotes"_s);
    s.binder.Bind(s.root);
    box.SetText(u"one\ntwo"_s);
    EXPECT_EQ(edit->toPlainText(), u"one\ntwo"_s);
    edit->setPlainText(u"three"_s);
    EXPECT_EQ(box.Text(), u"three"_s);
}

TEST(BinderCommon, VisibleEnabledTipAndClicks)
{
    Screen s;
    forms::Button button(s.controls, u"cmdAdd"_s);
    button.SetCaption(u"&Add"_s);
    int clicks = 0;
    QObject::connect(&button, &forms::Control::Clicked, &button, [&] { ++clicks; });
    auto* widget = s.Put<QPushButton>(u"cmdAdd"_s);
    s.binder.Bind(s.root);
    EXPECT_EQ(widget->text(), u"&Add"_s);
    EXPECT_EQ(widget->toolTip(), u"Add"_s);
    QTest::mouseClick(widget, Qt::LeftButton);
    QTest::keyClick(widget, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
    button.SetEnabled(false);
    EXPECT_FALSE(widget->isEnabled());
    button.SetVisible(false);
    EXPECT_TRUE(widget->isHidden());
    button.SetToolTipText(u"Adds a comp"_s);
    EXPECT_EQ(widget->toolTip(), u"Adds a comp"_s);
}

TEST(BinderLabel, TextAndMeaningOfTheColour)
{
    Screen s;
    forms::Label label(s.controls, u"lblmsg"_s);
    auto* widget = s.Put<QLabel>(u"lblmsg"_s);
    s.binder.Bind(s.root);
    label.Show(u"<b>not</b> found"_s, forms::Colour::Red);
    EXPECT_EQ(widget->text(), u"<b>not</b> found"_s);
    EXPECT_EQ(widget->textFormat(), Qt::PlainText);
    EXPECT_EQ(widget->property("tone").toString(), u"red"_s);
}

TEST(BinderCheck, BothWays)
{
    Screen s;
    forms::CheckBox box(s.controls, u"ckbRadius"_s);
    auto* widget = s.Put<QCheckBox>(u"ckbRadius"_s);
    s.binder.Bind(s.root);
    box.SetValue(true);
    EXPECT_TRUE(widget->isChecked());
    QTest::keyClick(widget, Qt::Key_Space);
    EXPECT_FALSE(box.Value());
}

template <class View>
class BinderList : public testing::Test
{};
using ListViews = testing::Types<QListView, QListWidget>;
TYPED_TEST_SUITE(BinderList, ListViews);

TYPED_TEST(BinderList, LinesAndSelectionBothWays)
{
    Screen s;
    forms::ListBox list(s.controls, u"lstViews"_s);
    int clicks = 0;
    QObject::connect(&list, &forms::Control::Clicked, &list, [&] { ++clicks; });
    auto* view = s.Put<TypeParam>(u"lstViews"_s);
    s.binder.Bind(s.root);
    list.AddItem(u"FRONT VIEW"_s);
    list.AddItem(u"REAR VIEW"_s);
    EXPECT_EQ(view->model()->rowCount(), 2);
    EXPECT_EQ(list.ListIndex(), -1) << "showing lines selects nothing";

    list.SetListIndex(1);
    EXPECT_EQ(view->currentIndex().row(), 1);
    QTest::keyClick(view, Qt::Key_Up);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(clicks, 1);

    list.RemoveItem(1);
    EXPECT_EQ(view->model()->rowCount(), 1);
    EXPECT_EQ(list.ListIndex(), 0);
    list.Clear();
    EXPECT_EQ(view->model()->rowCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(BinderCombo, TypingAndChoosing)
{
    Screen s;
    forms::ComboBox box(s.controls, u"cboGeneral"_s, 36);
    auto* combo = s.Put<QComboBox>(u"cboGeneral_36"_s);
    combo->setEditable(true);
    s.binder.Bind(s.root);
    box.AddItem(u"KITCHEN"_s);
    box.AddItem(u"GARAGE"_s);
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(box.Text(), QString()) << "filling a combo box chooses nothing";

    QTest::keyClicks(combo->lineEdit(), u"Attic"_s);
    EXPECT_EQ(box.Text(), u"Attic"_s);
    box.SetListIndex(1);
    EXPECT_EQ(combo->currentText(), u"GARAGE"_s);
    QTest::keyClick(combo, Qt::Key_Up);
    EXPECT_EQ(box.ListIndex(), 0);
    EXPECT_EQ(box.Text(), u"KITCHEN"_s);
    box.AddItem(u"POOL"_s);
    EXPECT_EQ(combo->currentText(), u"KITCHEN"_s);
}

TEST(BinderTabs, CaptionsPagesAndASnapBack)
{
    Screen s;
    forms::TabControl tabs(s.controls, u"TabComp"_s, {u"1 - 3"_s, u"4 - 6"_s});
    auto* book = s.Put<QTabWidget>(u"TabComp"_s);
    book->addTab(new QWidget, {});
    book->addTab(new QWidget, {});
    s.binder.Bind(s.root);
    EXPECT_EQ(book->tabText(1), u"4 - 6"_s);
    QTest::keyClick(book->tabBar(), Qt::Key_Right);
    EXPECT_EQ(tabs.Tab(), 1);

    tabs.SetTab(0);
    EXPECT_EQ(book->currentIndex(), 0);
    tabs.SetTabCaption(1, u"N/A"_s);
    QObject::connect(&tabs, &forms::TabControl::TabClicked, &tabs, [&](int previous) {
        if (tabs.TabCaption(tabs.Tab()) == u"N/A"_s)
            tabs.SetTab(previous);
    });
    book->tabBar()->setCurrentIndex(1);
    EXPECT_EQ(tabs.Tab(), 0);
    EXPECT_EQ(book->currentIndex(), 0);
    EXPECT_TRUE(book->isTabEnabled(1)) << "an N/A page can be clicked, so that the rules ask anew";
    tabs.SetTabEnabled(1, false);
    EXPECT_FALSE(book->isTabEnabled(1));
}

TEST(BinderTabs, APageTooFewIsAnError)
{
    Screen s;
    forms::TabControl tabs(s.controls, u"TabComp"_s, {u"1 - 3"_s, u"4 - 6"_s});
    s.Put<QTabWidget>(u"TabComp"_s)->addTab(new QWidget, {});
    EXPECT_THROW(s.binder.Bind(s.root), RuntimeError);
}

TEST(BinderGauge, RangeValueAndIdle)
{
    Screen s;
    forms::Gauge gauge(s.controls, u"gauStatus"_s);
    auto* bar = s.Put<QProgressBar>(u"gauStatus"_s);
    bar->setProperty("hideWhenIdle", true);
    s.binder.Bind(s.root);
    EXPECT_TRUE(bar->isHidden());
    gauge.SetCaption(u"Populating Tabs"_s);
    gauge.SetRange(40);
    gauge.SetValue(10);
    EXPECT_FALSE(bar->isHidden());
    EXPECT_EQ(bar->maximum(), 40);
    EXPECT_EQ(bar->value(), 10);
    EXPECT_EQ(bar->text(), u"Populating Tabs"_s);
}

TEST(BinderPicture, ViewAndButton)
{
    Screen s;
    forms::PictureBox slot(s.controls, u"imaComp"_s, 1), icon(s.controls, u"imaKel"_s);
    int clicks = 0;
    QObject::connect(&icon, &forms::Control::Clicked, &icon, [&] { ++clicks; });
    auto* view = s.Put<PictureView>(u"imaComp_1"_s);
    auto* button = s.Put<QToolButton>(u"imaKel"_s);
    s.binder.Bind(s.root);
    QImage red(4, 3, QImage::Format_RGB32);
    red.fill(Qt::red);
    slot.SetPicture(red);
    EXPECT_EQ(view->Picture(), red);
    slot.SetVisible(false);
    EXPECT_FALSE(view->IsShown());
    EXPECT_FALSE(view->isHidden()) << "an empty slot keeps its place and stays a target";
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST(BinderMenu, EntriesFromTheData)
{
    Screen s;
    forms::Menu menu(s.controls, u"mnuFileItem"_s, u"File"_s,
                     {{.index = 0, .caption = u"Launch"_s, .shortcut = u"Ctrl+L"_s},
                      {.index = 1, .caption = u"-"_s},
                      {.index = 8,
                       .caption = u"Export"_s,
                       .subEntries = {{.index = 0, .caption = u"To a file"_s}},
                       .subName = u"mnuFileItemSubExport"_s},
                      {.index = 11, .caption = u"Lock"_s, .enabled = false}});
    QStringList chosen;
    QObject::connect(&menu, &forms::Menu::Chosen, &menu,
                     [&](const QString& array, int index) { chosen += u"%1 %2"_s.arg(array).arg(index); });
    auto* widget = s.Put<QMenu>(u"mnuFileItem"_s);
    s.binder.Bind(s.root);
    ASSERT_EQ(widget->actions().size(), 4);
    EXPECT_EQ(widget->title(), u"&File"_s);
    EXPECT_EQ(widget->actions().at(0)->shortcut(), QKeySequence(u"Ctrl+L"_s));
    EXPECT_TRUE(widget->actions().at(1)->isSeparator());
    EXPECT_FALSE(widget->actions().at(3)->isEnabled());
    EXPECT_EQ(widget->actions().at(3)->text(), u"L&ock"_s) << "L is taken by Launch";
    widget->actions().at(0)->trigger();
    widget->actions().at(2)->menu()->actions().at(0)->trigger();
    EXPECT_EQ(chosen, (QStringList{u"mnuFileItem 0"_s, u"mnuFileItemSubExport 0"_s}));
    menu.SetEntryEnabled(11, true);
    menu.SetEntryChecked(11, true);
    EXPECT_TRUE(widget->actions().at(3)->isEnabled());
    EXPECT_TRUE(widget->actions().at(3)->isChecked());
    widget->actions().at(3)->trigger();
    EXPECT_TRUE(widget->actions().at(3)->isChecked()) << "the rules decide about a tick";
}

TEST(BinderLeftovers, EveryKindIsListed)
{
    Screen s;
    forms::TextBox lonely(s.controls, u"txtComp"_s, 2);
    forms::TextBox conduit(s.controls, u"txtDDE"_s);
    s.Put<QLabel>(u"lblNobody"_s);
    s.Put<QLabel>(u"pageHeading"_s);
    s.binder.DeclareUnseen({u"txtDDE"_s, u"txtGone"_s});
    s.binder.Bind(s.root);
    EXPECT_EQ(s.binder.Leftovers(s.root),
              (QStringList{u"control without a widget: txtComp_2"_s,
                           u"declared unseen, but there is no such control: txtGone"_s,
                           u"widget without a control: lblNobody"_s}));
    EXPECT_THROW(s.binder.Check(s.root), RuntimeError);
}

TEST(BinderLeftovers, AWidgetOfTheWrongKindIsAnError)
{
    Screen s;
    forms::TextBox box(s.controls, u"txtComp"_s, 2);
    s.Put<QLabel>(u"txtComp_2"_s);
    EXPECT_THROW(s.binder.Bind(s.root), RuntimeError);
}

TEST(BinderLeftovers, APageBuiltLaterIsBoundLater)
{
    Screen s;
    forms::TextBox first(s.controls, u"txtComp"_s, 1), second(s.controls, u"txtComp"_s, 2);
    s.Put<QLineEdit>(u"txtComp_1"_s);
    s.binder.Bind(s.root);
    auto* late = s.Put<QLineEdit>(u"txtComp_2"_s);
    second.SetText(u"late"_s);
    s.binder.Bind(*late);
    EXPECT_EQ(late->text(), u"late"_s);
    EXPECT_TRUE(s.binder.Leftovers(s.root).isEmpty());
}

struct Thrown
{
    const char* name;
    std::function<void()> handler;
    int ended;
    QString part; ///< of the box's text, "" for no box
};

class BinderGuard : public testing::TestWithParam<Thrown>
{};

TEST_P(BinderGuard, NothingEscapes)
{
    Screen s;
    forms::Button button(s.controls, u"cmdAdd"_s);
    QObject::connect(&button, &forms::Control::Clicked, &button, GetParam().handler);
    auto* widget = s.Put<QPushButton>(u"cmdAdd"_s);
    s.binder.Bind(s.root);
    EXPECT_NO_THROW(widget->click());
    EXPECT_EQ(s.ended, GetParam().ended);
    if (GetParam().part.isEmpty())
        EXPECT_TRUE(s.prompter.Boxes().empty());
    else
        EXPECT_TRUE(s.prompter.Last().text.contains(GetParam().part)) << s.prompter.Last().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BinderGuard,
    testing::Values(
        Thrown{"RuntimeError", [] { throw RuntimeError(3022, u"Duplicate key"_s); }, -1, u"3022"_s},
        Thrown{"EndOfProgram", [] { throw forms::EndOfProgram{7}; }, 7, QString()},
        Thrown{"StdException", [] { throw std::out_of_range("past the end"); }, -1, u"past the end"_s},
        Thrown{"Unknown", [] { throw 5; }, -1, u"unknown failure"_s}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace vasclip::windows
