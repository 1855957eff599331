#include "windows/window_desktop.h"
#include "windows/window_prompter.h"

#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;
using forms::Answer;
using forms::Buttons;

struct BoxRow
{
    const char* name;
    Buttons buttons;
    Qt::Key key;
    Answer answer;
    int shown; ///< buttons on the box
};

class PrompterBox : public testing::TestWithParam<BoxRow>
{};

TEST_P(PrompterBox, KeysAnswer)
{
    const tests::TempHome home;
    WindowPrompter prompter(home.disk);
    int shown = -1;
    QString text, title;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr)
            return;
        shown = static_cast<int>(box->buttons().size());
        text = box->text();
        title = box->windowTitle();
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        QTest::keyClick(box, GetParam().key);
    });
    watch.start(20);
    EXPECT_EQ(prompter.MsgBox(GetParam().buttons, forms::Icon::Question, u"Overwrite"_s, u"<b>Sure</b>?"_s),
              GetParam().answer);
    EXPECT_EQ(shown, GetParam().shown);
    EXPECT_EQ(text, u"<b>Sure</b>?"_s);
    EXPECT_EQ(title, u"Overwrite"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, PrompterBox,
    testing::Values(BoxRow{"OkEnter", Buttons::Ok, Qt::Key_Return, Answer::Ok, 1},
                    BoxRow{"OkEscape", Buttons::Ok, Qt::Key_Escape, Answer::Ok, 1},
                    BoxRow{"OkCancelEnter", Buttons::OkCancel, Qt::Key_Return, Answer::Ok, 2},
                    BoxRow{"OkCancelEscape", Buttons::OkCancel, Qt::Key_Escape, Answer::Cancel, 2},
                    BoxRow{"YesNoEnter", Buttons::YesNo, Qt::Key_Return, Answer::No, 2},
                    BoxRow{"YesNoCancelEnter", Buttons::YesNoCancel, Qt::Key_Return, Answer::No, 3},
                    BoxRow{"YesNoEscape", Buttons::YesNo, Qt::Key_Escape, Answer::No, 2},
                    BoxRow{"YesNoCancelEscape", Buttons::YesNoCancel, Qt::Key_Escape, Answer::Cancel, 3},
                    BoxRow{"AbortRetryIgnoreEscape", Buttons::AbortRetryIgnore, Qt::Key_Escape, Answer::Abort,
                           3},
                    BoxRow{"RetryCancelEnter", Buttons::RetryCancel, Qt::Key_Return, Answer::Retry, 2}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PrompterDialog, FiltersFromPairs)
{
    EXPECT_EQ(DialogFilters(u"*.mdb|Access"_s), QStringList{u"Access (*.mdb)"_s});
    EXPECT_EQ(DialogFilters(u"*.jpg;*.bmp|Pictures|*.*|All"_s),
              (QStringList{u"Pictures (*.jpg *.bmp)"_s, u"All (*.*)"_s}));
    EXPECT_EQ(DialogFilters(u"*.txt"_s), QStringList{u"*.txt (*.txt)"_s});
    EXPECT_TRUE(DialogFilters(QString()).isEmpty());
}

/// Answers the file dialog with a path (none: Escape), and closes whatever else stands in the way.
class DialogHand : public QObject
{
public:
    explicit DialogHand(QString native)
        : m_native(std::move(native))
    {
        startTimer(50);
    }
    int boxes = 0;

protected:
    void timerEvent(QTimerEvent*) override
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            ++boxes;
            box->reject();
        } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
            auto* name = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
            if (m_native.isEmpty() || name == nullptr || ++m_tries > 3) {
                dialog->reject();
                return;
            }
            name->setText(m_native);
            QTest::keyClick(name, Qt::Key_Return);
        }
    }

private:
    QString m_native;
    int m_tries = 0;
};

TEST(PrompterDialog, AFileOnADriveComesBackAsItsDrivePath)
{
    const tests::TempHome home;
    home.Put(u"C:\\VASSNAP\\OTHER.MDB"_s);
    WindowPrompter prompter(home.disk);
    const DialogHand hand(home.Native(u"drive_c/VASSNAP/OTHER.MDB"_s));
    EXPECT_EQ(prompter.OpenDialog(u"*.mdb|Access"_s, u"Open"_s, u"C:\\VASSNAP\\"_s).toUpper(),
              u"C:\\VASSNAP\\OTHER.MDB"_s);
}

TEST(PrompterDialog, ANewFileNeedNotBeThereAndOneThatIsThereIsNotAskedAbout)
{
    const tests::TempHome home;
    home.Put(u"C:\\VASSNAP\\OTHER.MDB"_s);
    WindowPrompter prompter(home.disk);
    for (const QString& name : {u"FRESH"_s, u"FRESH."_s, u"FRESH.MDB"_s, u"OTHER.MDB"_s}) {
        DialogHand hand(home.Native(u"drive_c/VASSNAP/"_s + name));
        EXPECT_EQ(prompter.NewFileDialog(u"*.mdb|Access"_s, u"Create"_s, u"C:\\VASSNAP\\"_s).toUpper(),
                  u"C:\\VASSNAP\\"_s + (name.endsWith(u'.') ? name.chopped(1) : name));
        EXPECT_EQ(hand.boxes, 0) << name.toStdString();
    }
}

TEST(PrompterDialog, CancelIsEmptyAndABadDirectoryIsNoObstacle)
{
    const tests::TempHome home;
    WindowPrompter prompter(home.disk);
    const DialogHand hand{QString()};
    EXPECT_EQ(prompter.OpenDialog(u"*.mdb|Access"_s, u"Open"_s, u"Q:\\NOWHERE\\"_s), QString());
}

TEST(WindowDesktopTest, TheHourglassNests)
{
    WindowDesktop desktop;
    desktop.SetHourglass(true);
    desktop.SetHourglass(true);
    desktop.SetHourglass(false);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.SetHourglass(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    desktop.SetHourglass(false);
    desktop.SetHourglass(true);
    EXPECT_NE(QApplication::overrideCursor(), nullptr) << "one off too many does no harm";
    desktop.SetHourglass(false);
}

TEST(WindowDesktopTest, AppActivateBringsAMinimizedWindowBack)
{
    WindowDesktop desktop;
    desktop.AppActivate();
    QWidget window;
    desktop.SetMainWindow(&window);
    window.showMinimized();
    desktop.AppActivate();
    EXPECT_FALSE(window.isMinimized());
}

} // namespace
} // namespace vasclip::windows
