#include "databook/frm_grid.h"
#include "databook/frm_rename.h"
#include "databook/grid.h"
#include "databook/layouts.h"
#include "databook/records.h"
#include "keys.h"
#include "photos/frm_overwrite.h"
#include "platform/engine/database.h"
#include "store/schema.h"
#include "store/store.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "upkeep/report_question.h"
#include "windows/guard.h"
#include "windows/screens.h"
#include "windows/window_prompter.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

// What Enter does in a window that has just opened: no harm.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;
using forms::Answer;
using forms::Buttons;

class Questions : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts ports;
    EventGuard guard{ports.prompter, {}};
    QWidget owner;
    WindowScreens screens;
    void SetUp() override
    {
        screens.SetGuard(&guard);
        screens.SetOwner(&owner);
        owner.resize(300, 200);
        owner.show();
    }
    /// Opens a screen as the program does and presses a key where its focus stands.
    void KeyAtOnce(forms::Screen& screen, Qt::Key key)
    {
        OnScreen(
            owner, screen.Name(), [&] { screens.ShowModal(screen); }, [&](QWidget&) { Keys(key); });
    }
    Answer EnterInBox(const std::function<Answer(WindowPrompter&)>& ask)
    {
        WindowPrompter prompter(home.disk);
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                QTest::keyClick(box, Qt::Key_Return);
        });
        watch.start(20);
        return ask(prompter);
    }
};

TEST_F(Questions, TheOverwriteQuestionStandsOnNo)
{
    photos::SlotTable table;
    photos::SlotLoader loader{home.disk, ports.Get(), table};
    photos::frm_Overwrite screen(loader, u"C:\\JPG\\OLD.jpg"_s, u"C:\\JPG\\NEW.jpg"_s, u"1 ELM ST"_s);
    KeyAtOnce(screen, Qt::Key_Return);
    EXPECT_EQ(screen.Answer(), Answer::No);
    photos::frm_Overwrite other(loader, u"C:\\JPG\\OLD.jpg"_s, u"C:\\JPG\\NEW.jpg"_s, u"1 ELM ST"_s);
    KeyAtOnce(other, Qt::Key_Space);
    EXPECT_EQ(other.Answer(), Answer::No);
}

TEST_F(Questions, TheFocusThatALoadWantsIsThereInTheWindow)
{
    engine::Engine engine{home.disk, tests::SomeTime()};
    store::DataSource source{engine, u"datDatabook"_s};
    store::MakeDatabase(engine, u"C:\\DATABOOK.MDB"_s);
    store::Connect2mdb(ports.Get(), source, u"C:\\DATABOOK.MDB"_s, u"COMPS"_s, store::SourceKind::Table);
    ASSERT_TRUE(databook::AddRecord(ports.Get(), source, u"12 Main St"_s, u'F', 2));
    databook::frm_Rename screen(ports.Get(), source, databook::RenameMode::Copy, u"12 MAIN ST"_s, {});
    QString typed;
    OnScreen(
        owner, screen.Name(), [&] { screens.ShowModal(screen); },
        [&](QWidget&) {
            Type(u"9 Elm"_s);
            typed = screen.cboNewName.Text();
        });
    EXPECT_EQ(typed, u"9 Elm"_s) << "the old text is selected, the new one takes its place";
}

TEST_F(Questions, ABoxStandsOnTheAnswerThatLosesNothing)
{
    const auto box = [](WindowPrompter& prompter) {
        return prompter.MsgBox(Buttons::YesNo, forms::Icon::Question, {}, u"Delete '12 OAK ST'?"_s);
    };
    EXPECT_EQ(EnterInBox(box), Answer::No);
    for (const auto& [icon, wanted] : {std::pair(forms::Icon::Question, Answer::No),
                                       {forms::Icon::Exclamation, Answer::Cancel},
                                       {forms::Icon::Information, Answer::Yes}})
        EXPECT_EQ(EnterInBox([mark = icon](WindowPrompter& prompter) {
                      return prompter.MsgBox(Buttons::YesNoCancel, mark, {}, u"Save Changes?"_s);
                  }),
                  wanted);
    EXPECT_EQ(EnterInBox([](WindowPrompter& prompter) {
                  return prompter.MsgBox(Buttons::AbortRetryIgnore, forms::Icon::None, u"Error"_s, u"The disk is full"_s);
              }),
              Answer::Abort);
}

TEST_F(Questions, ALongReportIsNotPrintedByEnter)
{
    QStringList texts;
    EXPECT_EQ(EnterInBox([&](WindowPrompter& prompter) {
                  QTimer::singleShot(0, qApp, [&] {
                      if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                          texts = {box->windowTitle(), box->text()};
                  });
                  return upkeep::MayPrint(prompter, 501) ? Answer::Yes : Answer::No;
              }),
              Answer::No);
    EXPECT_EQ(texts, (QStringList{u"Output Report Record Count"_s,
                                  u"You have more than 500 records queued for printing (Exact count = 501 )\r\n"
                                  u"Do you with to Continue ?"_s}));
}

TEST_F(Questions, EnterInTheLayoutsKeepsTheUsersOwn)
{
    home.MakeDirs(u"C:\\VAS2000"_s);
    const QString file = u"C:\\VAS2000\\VAS2000.grx"_s;
    forms::ControlSet controls;
    forms::Grid grid(controls, u"grddatabook"_s);
    databook::SetGridSettings(grid, u"DEFAULT"_s);
    databook::SaveGrid(home.disk, grid, file, u"Default"_s);
    grid.ShowColumn(0, false);
    databook::SaveGrid(home.disk, grid, file, databook::kCurrentLayout);
    databook::frm_Grid screen(home.disk, ports.Get(), grid, u"C:\\VAS2000\\"_s);
    bool closed = false;
    OnScreen(
        owner, screen.Name(), [&] { screens.ShowModal(screen); },
        [&](QWidget&) {
            Keys(Qt::Key_Return);
            closed = !screen.IsOpen();
        });
    EXPECT_TRUE(closed);
    EXPECT_FALSE(grid.Columns().at(0).visible) << "nobody chose Default";

    databook::frm_Grid chosen(home.disk, ports.Get(), grid, u"C:\\VAS2000\\"_s);
    OnScreen(
        owner, chosen.Name(), [&] { screens.ShowModal(chosen); },
        [&](QWidget& shown) {
            auto* list = shown.findChild<QAbstractItemView*>(u"lstLayout"_s);
            int line = 0;
            while (line < list->model()->rowCount() && list->model()->index(line, 0).data().toString() != u"Default"_s)
                ++line;
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualRect(list->model()->index(line, 0)).center());
            shown.findChild<QLineEdit*>(u"txtLayout"_s)->setFocus();
            Keys(Qt::Key_Return);
        });
    EXPECT_TRUE(grid.Columns().at(0).visible) << "Return uses the one that was clicked";

    grid.ShowColumn(0, false);
    databook::frm_Grid typed(home.disk, ports.Get(), grid, u"C:\\VAS2000\\"_s);
    OnScreen(
        owner, typed.Name(), [&] { screens.ShowModal(typed); },
        [&](QWidget& shown) {
            auto* name = shown.findChild<QLineEdit*>(u"txtLayout"_s);
            name->setFocus();
            name->selectAll();
            Type(u"default"_s);
            Keys(Qt::Key_Return);
        });
    EXPECT_TRUE(grid.Columns().at(0).visible) << "or typed";
}

} // namespace
} // namespace vasclip::windows
