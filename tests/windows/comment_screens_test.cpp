#include "comments/frm_comment.h"
#include "comments/frm_fkey.h"
#include "platform/engine/database.h"
#include "store/schema.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "windows/fkey_bar.h"
#include "windows/guard.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QVBoxLayout>

// The library dialogue and the buttons of the function keys as windows. VASCLIP_SHOTS=1 writes pictures.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class CommentScreens : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts ports;
    engine::Engine engine{home.disk, tests::SomeTime()};
    common::Globals globals;
    EventGuard guard{ports.prompter, {}};
    QSettings settings{home.Native(u"window.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};

    void SetUp() override
    {
        globals.G_ProgramDir = globals.G_UserDir = globals.G_DataDir = u"C:\\VAS\\"_s;
        globals.G_DataFile = u"DATABOOK.MDB"_s;
        globals.G_Table = u"COMPS"_s;
        globals.caps = u"1"_s;
        globals.applicationIni = u"C:\\VAS\\VAS2000.INI"_s;
        home.MakeDirs(u"C:\\VAS"_s);
    }
    void Fill(comments::frm_Comment& dialog)
    {
        dialog.SetLimits(30, 100);
        dialog.InitializeFKeys({u"Level"_s, u"Corner lot"_s, u"Gently sloping"_s, {}, u"Cul-de-sac"_s, {}});
        dialog.LoadListArray(
            {u"Backs to a greenbelt"_s, u"Busy street"_s, u"Flag lot"_s, u"Territorial view"_s});
        dialog.txtAddComment.SetText(u"Level, with a view"_s);
    }
    void Save(QWidget& widget, const QString& name)
    {
        const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
        if (wish.isEmpty())
            return;
        const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
        QDir().mkpath(out);
        QTest::qWait(30);
        const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR").isEmpty() ? QString() : u"-scaled"_s;
        EXPECT_TRUE(widget.grab().save(u"%1/%2%3.png"_s.arg(out, name, scale)));
    }
};

TEST_F(CommentScreens, TheDialogShowsEveryControl)
{
    comments::frm_Comment dialog(ports.Get(), globals, home.disk);
    Fill(dialog);
    dialog.Open();
    ScreenWindow window(dialog, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    EXPECT_EQ(window.windowTitle(), u"Comment Dialog"_s);
    EXPECT_EQ(window.findChild<QListWidget*>(u"lstComment"_s)->currentRow(), 0);
    EXPECT_TRUE(window.findChild<QPlainTextEdit*>(u"txtFKey_0"_s)->isReadOnly());
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        window.show();
        dialog.lblmsg.Show(u"Flag lot already exists."_s, forms::Colour::Red);
        Save(window, u"comment-"_s + name);
    }
    theme.Choose(ThemeChoice::System);
}

TEST_F(CommentScreens, KeysAndButtonsOfTheDialogWork)
{
    comments::frm_Comment dialog(ports.Get(), globals, home.disk);
    Fill(dialog);
    dialog.Open();
    ScreenWindow window(dialog, guard);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* phrase = window.findChild<QLineEdit*>(u"txtAddComment"_s);
    QTest::keyClick(phrase, Qt::Key_F4);
    EXPECT_EQ(phrase->text(), u"Corner lot"_s);
    QTest::keyClick(phrase, Qt::Key_F6, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(window.findChild<QPlainTextEdit*>(u"txtFKey_3"_s)->toPlainText(), u"Corner lot"_s);
    QTest::keyClick(phrase, Qt::Key_F8, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window.findChild<QPlainTextEdit*>(u"txtFKey_5"_s)->toPlainText(), u"Corner lot"_s);
    QTest::mouseClick(window.findChild<QPlainTextEdit*>(u"txtFKey_0"_s)->viewport(), Qt::LeftButton);
    EXPECT_EQ(phrase->text(), u"Level"_s);
    QTest::mouseClick(window.findChild<QPushButton*>(u"CmdInsertRow"_s), Qt::LeftButton);
    EXPECT_EQ(window.findChild<QListWidget*>(u"lstComment"_s)->item(0)->text(), u"Level"_s);
    QTest::keyClick(phrase, Qt::Key_Return);
    EXPECT_FALSE(dialog.IsOpen()) << "Enter is OK";
    EXPECT_EQ(dialog.g_CommentResult, u"LEVEL"_s);
}

TEST_F(CommentScreens, ThePhraseOfAKeyStandsInABoxOfItsHeight)
{
    comments::frm_Comment dialog(ports.Get(), globals, home.disk);
    Fill(dialog);
    dialog.SetLimits(255, 100);
    dialog.txtFKey(1).SetText(u"Comparable backs to a greenbelt with a seasonal creek; the view is territorial."_s);
    dialog.txtFKey(2).SetText(u"word "_s.repeated(51).trimmed());
    dialog.Open();
    ScreenWindow window(dialog, guard);
    window.show();
    QApplication::processEvents();
    const auto box = [&](int key) {
        return window.findChild<QPlainTextEdit*>(u"txtFKey_%1"_s.arg(key));
    };
    const auto lines = [&](int key) { return qRound(box(key)->document()->size().height()); };
    const auto holds = [&](int key) { return box(key)->viewport()->height() / box(key)->fontMetrics().lineSpacing(); };
    const int one = box(0)->height();
    EXPECT_EQ(lines(0), 1);
    EXPECT_EQ(box(3)->height(), one) << "an empty one";
    EXPECT_GT(lines(1), 1);
    EXPECT_GE(holds(1), lines(1));
    EXPECT_LT(box(1)->height(), one * lines(1)) << "no higher than it needs";
    EXPECT_EQ(holds(2), 5) << "more than five lines are scrolled to";
    dialog.txtFKey(1).SetText(u"Level"_s);
    QApplication::processEvents();
    EXPECT_EQ(box(1)->height(), one);
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        Save(window, u"comment-long-"_s + name);
    }
    theme.Choose(ThemeChoice::System);
}

/// A window with one field and the buttons of the keys.
class FieldScreen : public forms::Screen, public comments::EntryKeys
{
public:
    explicit FieldScreen(comments::CommentPort& keys)
        : Screen(u"frm_FKey"_s) // any screen with a layout will do
        , m_keys(keys)
    {}
    forms::TextBox field{controls, u"txtSite"_s};
    void SendKey(forms::TextBox& box, int keyCode, int shift) override
    {
        answer = m_keys.KeyDown(keyCode, shift, box, u"SITE"_s);
    }
    forms::Screen* Companion() override { return &m_keys.Frame(); }
    comments::KeyAnswer answer;

protected:
    void Form_Load() override { m_keys.EntryOpened(*this, *this); }

private:
    comments::CommentPort& m_keys;
};

TEST_F(CommentScreens, TheButtonsStandInTheWindowOfTheFieldAndTakeThePathOfTheKey)
{
    for (const QString& file : {u"NEWDATA.MDB"_s, u"DATABOOK.MDB"_s, u"COMMENTS.MDB"_s})
        store::MakeDatabase(engine, u"C:\\VAS\\"_s + file);
    {
        const auto database = engine.OpenDatabase(u"C:\\VAS\\COMMENTS.MDB"_s);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (const QString& phrase : {u"Level"_s, u"Corner & flag"_s, u"Backs to a greenbelt, view"_s}) {
            rows->Edit();
            rows->SetValue(u"SITE"_s, phrase);
            rows->Update();
            rows->MoveNext();
        }
    }
    comments::frm_FKey frame({ports.Get(), engine, globals, {}});
    FieldScreen screen(frame);
    screen.Open();
    frame.FieldEntered(screen, screen.field, u"SITE"_s);
    ScreenWindow window(screen, guard);
    // The layout at hand has the bar alone: its widgets belong to the companion, the field has none here.
    EXPECT_EQ(window.Leftovers(), (QStringList{u"control without a widget: txtSite"_s}));
    auto* second = window.findChild<QPushButton*>(u"cmdComment_1"_s);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->text(), u"Corner && flag"_s);
    EXPECT_EQ(second->focusPolicy(), Qt::NoFocus);
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        window.show();
        window.resize(760, 90);
        Save(window, u"fkey-"_s + name);
    }
    theme.Choose(ThemeChoice::System);
    QTest::mouseClick(second, Qt::LeftButton);
    EXPECT_EQ(screen.field.Text(), u"CORNER & FLAG"_s);
    EXPECT_EQ(screen.answer, (comments::KeyAnswer{true, comments::Advance::Next}));
    screen.Unload();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !frame.IsOpen(); }, 5000)) << "its timer closes it";
    EXPECT_FALSE(second->isEnabled());
}

} // namespace
} // namespace vasclip::windows
