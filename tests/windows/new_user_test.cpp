#include "keys.h"
#include "sample_screen.h"

#include "databook/layouts.h"
#include "platform/engine/database.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "windows/guard.h"
#include "windows/main_window.h"
#include "windows/record_grid.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QToolButton>

// Somebody sits before an empty Databook for the first time and has read nothing but the screen.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class NewUser : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    WindowScreens screens;
    forms::Ports ports{doubles.prompter, doubles.pump,   doubles.clock,
                       doubles.random,   doubles.window, screens};
    engine::Engine engine{home.disk, tests::SomeTime()};
    test::RecordingConduit conduit;
    EventGuard guard{doubles.prompter, {}};
    QSettings settings{home.Native(u"window.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    tests::SamplePort port;
    shell::frm_Splash splash{ports};
    shell::Program program{home.disk.Home(), {conduit, ports}};
    shell::frm_Main main{program};
    std::unique_ptr<MainWindow> window;

    void SetUp() override
    {
        for (const QString& directory :
             {u"C:\\WINDOWS"_s, u"C:\\APPRAISE"_s, u"C:\\DATABOOK"_s, u"C:\\VAS2000"_s, u"C:\\USER"_s,
              u"C:\\JPG"_s, u"C:\\KEL"_s, u"C:\\SNAP"_s, u"C:\\DATABOOK\\ARCHIVE"_s,
              u"C:\\DATABOOK\\EXPORT"_s, u"C:\\DATABOOK\\IMPORT"_s, u"C:\\VAM"_s})
            home.MakeDirs(directory);
        home.Put(u"C:\\APPRAISE\\VAS2000.INI"_s,
                 "[DIRECTORIES]\r\nPHOTODIR=C:\\JPG\r\nCAPTUREDIR=C:\\SNAP\r\nUSERDIR=C:\\USER\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n");
        for (const QString& made : {u"C:\\USER\\Comp2Kel.mdb"_s, u"C:\\VAS2000\\NEWCMTS.MDB"_s,
                                    u"C:\\VAS2000\\NEWDATA.MDB"_s, u"C:\\DATABOOK\\DATABOOK.MDB"_s})
            store::MakeDatabase(engine, made);
        conduit.running = false;
        shell::StartUpOptions options{
            {}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s};
        ASSERT_TRUE(guard.Run([&] { main.Form_load(options, splash); }))
            << doubles.prompter.Last().text.toStdString();
        screens.SetGuard(&guard);
        window = std::make_unique<MainWindow>(main.controls, port, port, guard, theme, settings);
        screens.SetOwner(&*window);
        window->resize(1366, 768);
        window->show();
        ASSERT_TRUE(Activate(*window));
    }

    void On(const QString& screen, const std::function<void()>& open,
            const std::function<void(QWidget& shown)>& work)
    {
        OnScreen(*window, screen, open, work);
    }
    [[nodiscard]] qint64 Rows() const { return main.records.grddatabook.Source()->RowCount(); }
    [[nodiscard]] QString Status() const { return window->findChild<QLabel*>(u"lblmsg"_s)->text(); }
    template <class T>
    [[nodiscard]] T& Widget(const QString& name) const
    {
        return *window->findChild<T*>(name);
    }
    /// The first entry screen tells that the file of phrases was made; nothing else comes up.
    void ExpectNoQuestions() const
    {
        ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
        EXPECT_EQ(doubles.prompter.Last().text, u"An empty comment was created."_s);
    }
    /// Adds a comp by keys alone and leaves its screen.
    void Add(const QString& address)
    {
        Keys(Qt::Key_K, Qt::ControlModifier);
        Type(address);
        Widget<QComboBox>(u"cboapprslType"_s).setFocus();
        Type(u"F"_s);
        On(
            u"frm_CompMnt1"_s, [] { Keys(Qt::Key_Return); },
            [](QWidget& screen) { screen.findChild<QPushButton*>(u"cmdExit"_s)->click(); });
    }
};

TEST_F(NewUser, TheScreenSaysWhatCanBeDone)
{
    EXPECT_EQ(Widget<QLineEdit>(u"txtcentralkey"_s).placeholderText(), u"Address of a comp"_s);
    EXPECT_EQ(Widget<QLineEdit>(u"txtQuickFind"_s).placeholderText(), u"Quick find"_s);
    EXPECT_EQ(Widget<QLabel>(u"lblAddingaComp"_s).text(), u"Add a Comp"_s);
    for (const QString& name : {u"cmdAdd"_s, u"cmdEdit"_s, u"cmdCopy"_s, u"cmdRename"_s, u"cmdDelete"_s,
                                u"cmdSearch"_s, u"cmdRefresh"_s, u"imaKel"_s, u"sendButton"_s,
                                u"helpButton"_s, u"themeButton"_s, u"txtQuickFind"_s, u"txtcentralkey"_s})
        EXPECT_FALSE(Widget<QWidget>(name).toolTip().isEmpty()) << name.toStdString() << " has no tip";
}

TEST_F(NewUser, AddsTheFirstCompByTheKeyboard)
{
    Keys(Qt::Key_K, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), &Widget<QLineEdit>(u"txtcentralkey"_s));
    Keys(Qt::Key_Return);
    EXPECT_EQ(Status(), u"Please Enter An Address"_s);
    Type(u"12 Oak St"_s);
    Keys(Qt::Key_Return);
    EXPECT_EQ(Status(), u"Please Select The Appraisal Type"_s);
    EXPECT_EQ(QApplication::focusWidget(), &Widget<QComboBox>(u"cboapprslType"_s)) << "and goes where";
    Type(u"F"_s);
    EXPECT_EQ(Widget<QComboBox>(u"cboapprslType"_s).currentText(), u"F=Single Family"_s);
    On(
        u"frm_CompMnt1"_s, [] { Keys(Qt::Key_Return); },
        [](QWidget& screen) {
            EXPECT_EQ(screen.focusWidget()->objectName(), u"txtAddress"_s);
            Keys(Qt::Key_Return);
            EXPECT_EQ(screen.focusWidget()->objectName(), u"txtCity"_s) << "Enter goes on";
            Type(u"Ferndale"_s);
            auto* leave = screen.findChild<QPushButton*>(u"cmdExit"_s);
            EXPECT_TRUE(leave->isDefault());
            QTest::mouseClick(leave, Qt::LeftButton);
        });
    ASSERT_EQ(Rows(), 1);
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"CENTRALKEY"_s).trimmed(), u"12 OAK ST"_s);
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"CITY"_s).trimmed(), u"Ferndale"_s);
    ExpectNoQuestions();
}

TEST_F(NewUser, FindsItAndSeesAllAgain)
{
    for (const QString& address : {u"12 Oak St"_s, u"14 Elm St"_s, u"9 Oak Ct"_s})
        Add(address);
    ASSERT_EQ(Rows(), 3);
    Keys(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), &Widget<QLineEdit>(u"txtQuickFind"_s));
    Type(u"oak"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Rows() == 2; }));
    EXPECT_EQ(Status(), u"2 comps found."_s);
    Keys(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Rows() == 3; }));
    EXPECT_EQ(QApplication::focusWidget(), &window->Databook());
}

TEST_F(NewUser, ArrangesTheGridAndKeepsItUnderAName)
{
    Add(u"12 Oak St"_s);
    window->Databook().setFocus();
    QHeaderView& header = *window->Databook().horizontalHeader();
    const int city = 4;
    const auto heading = [&](int place) {
        return header.model()->headerData(header.logicalIndex(place), Qt::Horizontal).toString();
    };
    ASSERT_EQ(heading(city), u"City"_s);
    window->Databook().setCurrentIndex(window->Databook().model()->index(0, city));
    Keys(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(heading(city - 1), u"City"_s);

    QAction* entry = nullptr;
    for (QAction* menu : window->menuBar()->actions())
        for (QAction* action : menu->menu()->actions())
            if (QString(action->text()).remove(u'&') == u"Grid Layout"_s)
                entry = action;
    ASSERT_NE(entry, nullptr);
    On(
        u"frm_Grid"_s, [entry] { entry->trigger(); },
        [](QWidget& screen) {
            EXPECT_TRUE(
                screen.findChild<QPushButton*>(u"cmdSave"_s)->toolTip().contains(u"under the name"_s));
            auto* name = screen.findChild<QLineEdit*>(u"txtLayout"_s);
            name->setFocus();
            name->selectAll();
            Type(u"Sales"_s);
            screen.findChild<QPushButton*>(u"cmdSave"_s)->click();
            screen.findChild<QPushButton*>(u"cmdOK"_s)->click();
        });
    ExpectNoQuestions();
    const QStringList kept = databook::LayoutNames(home.disk, u"C:\\VAS2000\\"_s + databook::kUserLayouts);
    EXPECT_TRUE(kept.contains(u"Sales"_s)) << kept.join(u", "_s).toStdString();
}

TEST_F(NewUser, SetsF3OfAFieldAndUsesIt)
{
    Add(u"12 Oak St"_s);
    window->Databook().setFocus();
    On(
        u"frm_CompMnt1"_s, [] { Keys(Qt::Key_E, Qt::ControlModifier); },
        [](QWidget& screen) {
            auto* hint = screen.findChild<QLabel*>(u"fkeyHint"_s);
            ASSERT_NE(hint, nullptr);
            EXPECT_TRUE(hint->isVisible());
            EXPECT_TRUE(hint->text().contains(u"Ctrl+Shift+F3"_s)) << "the screen says how";
            auto* field = screen.findChild<QLineEdit*>(u"txtLocation"_s);
            auto* third = screen.findChild<QPushButton*>(u"cmdComment_0"_s);
            auto* fourth = screen.findChild<QPushButton*>(u"cmdComment_1"_s);
            field->setFocus();
            Type(u"Cul-de-sac"_s);
            Keys(Qt::Key_F3, Qt::ControlModifier | Qt::ShiftModifier);
            EXPECT_EQ(third->text(), u"Cul-de-sac"_s) << "the button shows it";
            EXPECT_EQ(QApplication::focusWidget(), field);
            // The same with the mouse, from the button's own menu.
            ASSERT_EQ(fourth->actions().size(), 1);
            EXPECT_EQ(QString(fourth->actions().first()->text()).remove(u'&'),
                      u"Keep the field's text on F4"_s);
            fourth->actions().first()->trigger();
            EXPECT_EQ(fourth->text(), u"Cul-de-sac"_s);

            field->selectAll();
            Keys(Qt::Key_Delete);
            EXPECT_TRUE(field->text().isEmpty());
            Keys(Qt::Key_F3);
            EXPECT_EQ(field->text().toUpper(), u"CUL-DE-SAC"_s);
            screen.findChild<QPushButton*>(u"cmdExit"_s)->click();
        });
    ExpectNoQuestions();
}

} // namespace
} // namespace vasclip::windows
