#include "photos/frm_trash.h"

#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;
using forms::Answer;

class FrmTrash : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    common::Globals globals;
    SlotTable table;
    SlotLoader loader{home.disk, ports, table};
    TrashDesk desk{ports, home.disk, globals};
    QStringList calendars;
    const QString trash = u"C:\\VASSNAP\\TRASHCAN\\"_s;

    void SetUp() override
    {
        globals.G_CaptureDir = u"C:\\VASSNAP\\"_s;
        globals.captureDirBeforeTrash = u"C:\\CARD\\"_s;
    }
    void PutDated(const QString& name, const QDateTime& time)
    {
        home.Put(trash + name, "x");
        QFile file(home.disk.ToNative(trash + name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    std::unique_ptr<frm_Trash> Opened()
    {
        auto screen = std::make_unique<frm_Trash>(desk, loader, [this](forms::TextBox& box, const QString& title) {
            calendars.append(title);
            box.SetText(u"05/15/2024"_s);
        });
        screen->Open();
        return screen;
    }
};

TEST_F(FrmTrash, ShowsTheTrashOfTheCaptureDirectoryWithTimes)
{
    PutDated(u"b.jpg"_s, QDateTime(QDate(2024, 5, 16), QTime(16, 12, 9)));
    PutDated(u"A.TIF"_s, QDateTime(QDate(2004, 3, 7), QTime(9, 5, 0)));
    home.Put(trash + u"notes.txt"_s);
    const auto screen = Opened();
    EXPECT_EQ(screen->Caption(), u"Trashcan Maintenance"_s);
    EXPECT_EQ(screen->lstfiles.Items(), (QStringList{u"A.TIF|3/7/2004 9:05:00 AM"_s, u"b.jpg|5/16/2024 4:12:09 PM"_s}));
    EXPECT_EQ(screen->filFilename.Items(), (QStringList{u"A.TIF"_s, u"b.jpg"_s}));
    EXPECT_FALSE(screen->filFilename.Visible());
    EXPECT_EQ(screen->lblDeleteDate.Caption(), u"Select On or Before Date:"_s);
    EXPECT_EQ(screen->imaDeleteCal.ToolTipText(), u"Click to get a pop calendar"_s);
    EXPECT_EQ(screen->cmdClearAll.Caption(), u"&Clear All"_s);
    EXPECT_EQ(screen->cmdSelectDate.Caption(), u"Se&lect by Date"_s);
    EXPECT_EQ(screen->cmdSelectAll.Caption(), u"&Select All"_s);
    EXPECT_EQ(screen->cmdDelete.Caption(), u"&Delete Selected"_s);
    EXPECT_EQ(screen->cmdExit.Caption(), u"E&xit"_s);
    EXPECT_EQ(screen->folders.directories.List(screen->folders.directories.ListIndex()).trimmed(), u"TRASHCAN"_s);
    EXPECT_EQ(screen->folders.drives.Text(), u"C:"_s);
}

TEST_F(FrmTrash, WithoutATrashDirectoryTheNextBestIsShown)
{
    home.Put(u"C:\\CARD\\CARD.JPG"_s);
    EXPECT_EQ(Opened()->lstfiles.ListCount(), 1) << "the directory that was shown before";
    globals.captureDirBeforeTrash = u"C:\\NOWHERE\\"_s;
    home.Put(u"C:\\ROOT.JPG"_s);
    EXPECT_TRUE(Opened()->lstfiles.List(0).startsWith(u"ROOT.JPG|"_s)) << "the drive";
    home.Put(trash + u"T.JPG"_s);
    EXPECT_TRUE(Opened()->lstfiles.List(0).startsWith(u"T.JPG|"_s));
    globals.G_CaptureDir = trash;
    EXPECT_TRUE(Opened()->lstfiles.List(0).startsWith(u"T.JPG|"_s)) << "the trash is the capture directory";
}

TEST_F(FrmTrash, AClickOnARowShowsItsPicture)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    home.Put(trash + u"A.JPG"_s);
    ASSERT_TRUE(image.save(home.disk.ToNative(trash + u"A.JPG"_s), "JPG"));
    const auto screen = Opened();
    screen->lstfiles.SetListIndex(0);
    EXPECT_EQ(screen->geatrashcan.Picture().size(), QSize(40, 30));
    EXPECT_EQ(table.ErrGetPict(screen->geatrashcan), trash + u"A.JPG"_s);
    screen->ShowDirectory(u"C:\\"_s);
    EXPECT_TRUE(screen->geatrashcan.Picture().isNull()) << "another directory has other pictures";
}

TEST_F(FrmTrash, SelectsByDateAndClearsTheOthers)
{
    PutDated(u"A.JPG"_s, QDateTime(QDate(2024, 5, 14), QTime(23, 59)));
    PutDated(u"B.JPG"_s, QDateTime(QDate(2024, 5, 15), QTime(23, 59, 59))); // exactly on the date
    PutDated(u"C.JPG"_s, QDateTime(QDate(2024, 5, 16), QTime(0, 0)));
    const auto screen = Opened();
    for (const QString& text : {QString(), u"sometime"_s, u"13/45"_s}) {
        screen->txtDeleteDate.SetText(text);
        screen->cmdSelectDate_Click();
        EXPECT_EQ(doubles.prompter.Last().text, u"Please enter a date."_s) << text.toStdString();
    }
    screen->lstfiles.Select({2});
    screen->txtDeleteDate.SetText(u"5/15/2024"_s);
    screen->cmdSelectDate_Click();
    EXPECT_EQ(screen->lstfiles.SelectedLines(), (QList<int>{0, 1}));
    Q_EMIT screen->imaDeleteCal.Clicked();
    EXPECT_EQ(calendars, QStringList{u"Delete Date"_s});
    EXPECT_EQ(screen->txtDeleteDate.Text(), u"05/15/2024"_s);
}

TEST_F(FrmTrash, SelectsAllAndNone)
{
    home.Put(trash + u"A.JPG"_s);
    home.Put(trash + u"B.JPG"_s);
    const auto screen = Opened();
    EXPECT_FALSE(screen->cmdDelete.Enabled());
    Q_EMIT screen->cmdSelectAll.Clicked();
    EXPECT_EQ(screen->lstfiles.SelCount(), 2);
    EXPECT_TRUE(screen->cmdDelete.Enabled());
    EXPECT_EQ(screen->lblCount.Caption(), u"Photos here: 2, selected: 2"_s);
    Q_EMIT screen->cmdClearAll.Clicked();
    EXPECT_EQ(screen->lstfiles.SelCount(), 0);
}

TEST_F(FrmTrash, DeletesWhatIsSelectedAfterItsQuestion)
{
    for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s, u"C.JPG"_s})
        home.Put(trash + name);
    const auto screen = Opened();
    screen->cmdDelete_Click();
    EXPECT_EQ(screen->lblmsg.Caption(), u"Select one or more photos first."_s);
    screen->lstfiles.Select({0, 2});
    doubles.prompter.Answer(Answer::No);
    screen->cmdDelete_Click();
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Question, {},
                               u"This is a permanent unreverable procedure.  All selected photos will be erased.  "
                               u"Are you sure?"_s}));
    EXPECT_EQ(home.disk.Dir(trash + u'*').size(), 3);
    doubles.prompter.Answer(Answer::Yes);
    screen->cmdDelete_Click();
    EXPECT_EQ(home.disk.Dir(trash + u'*'), QStringList{u"B.JPG"_s});
    EXPECT_EQ(screen->lstfiles.ListCount(), 1) << "the list is rebuilt";
    EXPECT_EQ(screen->lblmsg.Caption(), u"Photos erased: 2"_s);
}

TEST_F(FrmTrash, AWishToCloseStopsTheDeletionAndKeepsTheRest)
{
    for (int i = 0; i < 10; ++i)
        home.Put(trash + u"P%1.JPG"_s.arg(i));
    const auto screen = Opened();
    screen->lstfiles.SelectAllLines();
    doubles.prompter.Answer(Answer::Yes);
    doubles.pump.onTurn = [&] {
        if (home.disk.Dir(trash + u'*').size() == 7)
            screen->Unload();
    };
    screen->cmdDelete_Click();
    doubles.pump.onTurn = {};
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(home.disk.Dir(trash + u'*').size(), 7);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Photos erased: 3"_s);
    screen->Unload();
    EXPECT_FALSE(screen->IsOpen());
}

TEST_F(FrmTrash, RestoresWhatIsSelected)
{
    home.Put(trash + u"A.JPG"_s, "a");
    home.Put(trash + u"B.JPG"_s, "b");
    const auto screen = Opened();
    screen->lstfiles.Select({1});
    EXPECT_TRUE(screen->cmdRestore.Enabled());
    screen->cmdRestore_Click();
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VASSNAP\\B.JPG"_s), "b");
    EXPECT_EQ(home.disk.Dir(trash + u'*'), QStringList{u"A.JPG"_s});
    EXPECT_EQ(screen->lblmsg.Caption(), u"Photos restored to C:\\VASSNAP\\: 1"_s);
    screen->ShowDirectory(u"C:\\VASSNAP"_s);
    screen->lstfiles.SelectAllLines();
    EXPECT_FALSE(screen->cmdRestore.Enabled()) << "no trash directory";
}

TEST_F(FrmTrash, TheListIsRebuiltForAnotherDirectoryOnly)
{
    home.Put(trash + u"A.JPG"_s);
    const auto screen = Opened();
    home.Put(trash + u"B.JPG"_s);
    screen->ShowDirectory(u"c:\\vassnap\\trashcan"_s);
    EXPECT_EQ(screen->lstfiles.ListCount(), 1) << "the same directory in another spelling";
    home.Put(u"C:\\OTHER\\O.JPG"_s);
    screen->ShowDirectory(u"C:\\OTHER"_s);
    EXPECT_EQ(screen->lstfiles.ListCount(), 1);
    screen->ShowDirectory(trash);
    EXPECT_EQ(screen->lstfiles.ListCount(), 2);
    EXPECT_FALSE(screen->ShowDirectory(u"C:\\NOWHERE"_s));
    EXPECT_EQ(screen->lstfiles.ListCount(), 2);
}

/// Something happens while the question stands.
class Asking : public tests::ScriptedPrompter
{
public:
    std::function<void()> meanwhile;
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title, const QString& text) override
    {
        if (const auto happen = std::exchange(meanwhile, {}))
            happen();
        return ScriptedPrompter::MsgBox(buttons, icon, title, text);
    }
};

class TrashMeanwhile : public FrmTrash
{
protected:
    Asking prompter;
    forms::Ports asking{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, doubles.screens};
    TrashDesk askingDesk{asking, home.disk, globals};
    frm_Trash screen{askingDesk, loader, {}};
    void SetUp() override
    {
        FrmTrash::SetUp();
        for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s})
            home.Put(trash + name, "old");
        screen.Open();
        screen.lstfiles.SelectAllLines();
    }
};

TEST_F(TrashMeanwhile, DeletingLeavesAPictureThatTookAnothersNameSinceItWasListed)
{
    home.Put(trash + u"A.JPG"_s, "filed since then");
    prompter.Answer(Answer::Yes);
    prompter.meanwhile = [this] { home.Put(trash + u"B.JPG"_s, "filed while it was asked"); };
    screen.cmdDelete_Click();
    EXPECT_EQ(home.disk.Dir(trash + u'*').size(), 2);
    EXPECT_EQ(screen.lblmsg.Caption(),
              u"Photos erased: 0. Left alone, since other pictures bear these names now: A.JPG, B.JPG"_s);
    EXPECT_EQ(screen.lblmsg.Fore(), forms::Colour::Red);
    screen.lstfiles.SelectAllLines();
    prompter.Answer(Answer::Yes);
    screen.cmdDelete_Click();
    EXPECT_EQ(screen.lblmsg.Caption(), u"Photos erased: 2"_s) << "the list has been read again";
}

TEST_F(TrashMeanwhile, RestoringLeavesThemToo)
{
    home.Put(trash + u"A.JPG"_s, "filed since then");
    home.Put(u"C:\\VASSNAP\\B.JPG"_s, "in its place");
    prompter.Answer(Answer::Yes);
    prompter.meanwhile = [this] { home.Put(trash + u"B.JPG"_s, "filed while it was asked"); };
    screen.cmdRestore_Click();
    EXPECT_EQ(screen.lblmsg.Caption(), u"Photos restored to C:\\VASSNAP\\: 0. Left alone, since other pictures bear "
                                       u"these names now: A.JPG, B.JPG"_s);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VASSNAP\\B.JPG"_s), "in its place");
    EXPECT_FALSE(home.disk.Found(u"C:\\VASSNAP\\A.JPG"_s));
}

} // namespace
} // namespace vasclip::photos
