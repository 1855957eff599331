#include "report_windows.h"
#include "sample_screen.h"

#include "databook/entry_screen.h"
#include "databook/twin_watch.h"
#include "support/exclusive_lock.h"

#include <QToolButton>

// Another record at the address that is typed.

namespace vasclip::windows {
namespace {

const QString kWords = u"Your record 12 OAK ST stands at this address."_s;

class TwinWindow : public ReportWindows
{
protected:
    tests::SamplePort port;

    void SetUp() override
    {
        ReportHome::SetUp();
        Add(shell::kDatabook, u"COMPS"_s, {{u"CENTRALKEY"_s, u"9 ELM ST"_s.leftJustified(35)}, {u"ADDRESS"_s, u"9 Elm St"_s}});
        StartProgram();
    }
    static bool Comes(const QLabel& label)
    {
        return QTest::qWaitFor([&] { return label.text() == kWords && label.isVisible(); }, 10 * databook::TwinWatch::kPause);
    }
    static void Type(QLineEdit& box, const QString& text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }
};

TEST_F(TwinWindow, IsNamedWhileANewCompIsTypedAndGoneTo)
{
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.resize(1366, 768);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& box = *window.findChild<QLineEdit*>(u"txtcentralkey"_s);
    auto& words = *window.findChild<QLabel*>(u"lblTwin"_s);
    auto& look = *window.findChild<QPushButton*>(u"cmdTwin"_s);
    EXPECT_FALSE(words.isVisible());
    Type(box, u"12 Oak Street"_s);
    EXPECT_FALSE(words.isVisible()) << "who types is left in peace";
    ASSERT_TRUE(Comes(words)) << words.text().toStdString();
    EXPECT_EQ(box.text(), u"12 Oak Street"_s);
    if (qEnvironmentVariableIsSet("VASCLIP_SHOTS"))
        window.grab().save(qEnvironmentVariable("VASCLIP_SHOTS") + u"/twin-main.png"_s);
    QTest::keyClicks(&box, u"s"_s);
    EXPECT_FALSE(words.isVisible()) << "it was about another text";
    QTest::keyClick(&box, Qt::Key_Backspace);
    ASSERT_TRUE(Comes(words));
    QTest::mouseClick(&look, Qt::LeftButton);
    EXPECT_EQ(box.text().trimmed().toUpper(), u"12 OAK ST"_s);
    EXPECT_FALSE(words.isVisible()) << "a record that is on show is no twin";
    QTest::qWait(2 * databook::TwinWatch::kPause);
    EXPECT_FALSE(words.isVisible());
    EXPECT_FALSE(look.isVisible());
}

TEST_F(TwinWindow, IsNamedOnceAnotherUserIsDoneWithTheDatabook)
{
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.resize(1366, 768);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& box = *window.findChild<QLineEdit*>(u"txtcentralkey"_s);
    auto& words = *window.findChild<QLabel*>(u"lblTwin"_s);
    Type(box, u"12 Oak Street"_s);
    {
        const tests::ExclusiveLock theirs(home.disk.ToNative(shell::kDatabook)); // before the typing has paused
        QTest::qWait(3 * databook::TwinWatch::kPause);
        EXPECT_FALSE(words.isVisible());
    }
    EXPECT_TRUE(Comes(words)) << words.text().toStdString();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(TwinWindow, IsNamedWhileAnAddressIsChangedAndLookedAt)
{
    const databook::EntryDesk desk{ports, program.Engine(), shell::kDatabook, u"COMPS"_s};
    databook::EntryRecord record(desk, databook::EntryForms().front(), u"9 ELM ST"_s);
    databook::EntryScreen screen(desk, record.Form(), record);
    screen.Open();
    ScreenWindow window(screen, guard);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& box = *window.findChild<QLineEdit*>(u"txtAddress"_s);
    auto& words = *window.findChild<QLabel*>(u"lblAddressNote"_s);
    auto& look = *window.findChild<QToolButton*>(u"cmdAddressBack"_s);
    QTest::qWait(2 * databook::TwinWatch::kPause);
    EXPECT_FALSE(words.isVisible()) << "a record that was read says nothing";
    Type(box, u"9 Elm Street"_s);
    QTest::qWait(2 * databook::TwinWatch::kPause);
    EXPECT_FALSE(words.isVisible()) << "it is no twin of itself";
    Type(box, u"12 Oak Street"_s);
    ASSERT_TRUE(Comes(words)) << words.text().toStdString();
    EXPECT_EQ(look.text(), u"Look at it"_s);
    if (qEnvironmentVariableIsSet("VASCLIP_SHOTS"))
        window.grab().save(qEnvironmentVariable("VASCLIP_SHOTS") + u"/twin-entry.png"_s);
    QTest::mouseClick(&look, Qt::LeftButton);
    EXPECT_EQ(doubles.prompter.Last().text, u"12 OAK ST\nAddress: 12 Oak St"_s);
    doubles.prompter.Forget();
    QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(doubles.prompter.Last().title, u"12 OAK ST"_s);
    EXPECT_EQ(box.text(), u"12 Oak Street"_s) << "what was typed stays";
    QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(box.text(), u"12 Oak Street"_s) << "and is taken back as in any box";
    auto& city = *window.findChild<QLineEdit*>(u"txtCity"_s);
    const QString town = city.text();
    QTest::keyClicks(&city, u"X"_s);
    ASSERT_NE(city.text(), town);
    QTest::keyClick(&city, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(city.text(), town);
    window.hide();
}

} // namespace
} // namespace vasclip::windows
