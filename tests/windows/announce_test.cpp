#include "screen_reader.h"

#include "forms/controls.h"
#include "support/scripted_ports.h"
#include "windows/binder.h"
#include "windows/guard.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QDialog>
#include <QLabel>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The line of messages and another label, bound in a window.
class Announce : public testing::Test
{
protected:
    tests::ScriptedPrompter prompter;
    EventGuard guard{prompter, {}};
    forms::ControlSet controls;
    forms::Label message{controls, u"lblmsg"_s};
    forms::Label other{controls, u"lblCount"_s};
    QDialog window;
    QLabel* line = new QLabel(&window);
    QLabel* count = new QLabel(&window);
    Binder binder{controls, guard};

    void SetUp() override
    {
        line->setObjectName(message.Name());
        count->setObjectName(other.Name());
        binder.Bind(window);
        window.show();
        tests::Spoken().clear();
    }
};

TEST_F(Announce, EachMessageIsSpokenAndNothingElse)
{
    other.SetCaption(u"3 photos"_s);
    message.Show(u"2 comps were sent."_s, forms::Colour::Blue);
    message.Show(u"2 comps were sent."_s, forms::Colour::Normal); // in another colour only
    message.Show(u"Done."_s, forms::Colour::Red);
    message.Show({}, forms::Colour::Normal);
    EXPECT_EQ(tests::Spoken(), (QStringList{u"2 comps were sent."_s, u"Done."_s}));
}

TEST_F(Announce, TheLineOfMessagesIsOneThatAScreenReaderSpeaks)
{
    other.SetCaption(u"3 photos"_s);
    message.Show(u"2 comps were sent."_s, forms::Colour::Blue);
    const auto* heard = QAccessible::queryAccessibleInterface(line);
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(heard->role(), QAccessible::AlertMessage);
    EXPECT_EQ(heard->text(QAccessible::Name), u"2 comps were sent."_s);
    message.Show(u"Done."_s, forms::Colour::Blue);
    EXPECT_EQ(heard->text(QAccessible::Name), u"Done."_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(count)->role(), QAccessible::StaticText);
}

} // namespace
} // namespace vasclip::windows
