#include "photos/picture_search.h"

#include "photos/frm_search_pics.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QFile>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class PictureSearch : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    common::Globals globals;
    QStringList orphans{u"12 OAK ST: the photo FRONT VIEW (12345678.jpg) is gone"_s};

    void SetUp() override
    {
        globals.G_CaptureDir = u"C:\\PICS\\"_s;
        globals.G_PhotoDir = u"C:\\PICS\\JPG\\"_s;
    }
    void PutDated(const QString& path, const QDateTime& time)
    {
        home.Put(path);
        QFile file(home.disk.ToNative(path));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    /// Minutes before the clock's 10:30.
    [[nodiscard]] QDateTime Ago(int minutes) const { return doubles.clock.now.addSecs(-60 * minutes); }
    void PutTree()
    {
        PutDated(u"C:\\PICS\\A.JPG"_s, Ago(60));
        PutDated(u"C:\\PICS\\OLD\\B.JPG"_s, Ago(60 * 24 * 400));
        PutDated(u"C:\\PICS\\OLD\\C.BMP"_s, Ago(60 * 24 * 300));
        PutDated(u"C:\\PICS\\NEW (2024)\\D.JPG"_s, Ago(1));
        PutDated(u"C:\\PICS\\JPG\\E.JPG"_s, Ago(600));
        PutDated(u"C:\\PICS\\TEXT\\F.TXT"_s, Ago(1));
        PutDated(u"C:\\ELSEWHERE\\G.JPG"_s, Ago(2));
    }
    std::unique_ptr<frm_SearchPics> Opened()
    {
        auto screen = std::make_unique<frm_SearchPics>(
            ports, home.disk, globals, [this](const std::function<bool()>& goOn) {
                return goOn() ? orphans : QStringList();
            });
        screen->Open();
        return screen;
    }
    static void ChooseOption(frm_SearchPics& screen, int option)
    {
        Q_EMIT screen.optSearch(option).Clicked();
    }
};

TEST_F(PictureSearch, ARowSortsByAgeAndShowsDirectoryAndCount)
{
    const QDateTime now(QDate(2024, 5, 17), QTime(10, 30));
    EXPECT_EQ(FoundRow({u"C:\\PICS\\"_s, 12, now.addSecs(-42)}, now), u"C:\\PICS\\  (12 Images)|0000000042"_s);
    EXPECT_EQ(FoundRow({u"C:\\PICS\\"_s, 1, now.addSecs(90)}, now), u"C:\\PICS\\  (1 Images)|0000000000"_s)
        << "a clock that goes ahead";
    EXPECT_EQ(FoundText(u"C:\\PICS\\  (12 Images)|0000000042"_s), u"C:\\PICS\\  (12 Images)"_s);
    EXPECT_EQ(FoundPath(u"C:\\PICS\\  (12 Images)"_s), u"C:\\PICS\\"_s);
    EXPECT_EQ(FoundPath(u"C:\\NEW (2024)\\  (3 Images)"_s), u"C:\\NEW (2024)\\"_s);
}

TEST_F(PictureSearch, FindsEveryDirectoryWithPicturesAndTheNewestFirst)
{
    PutTree();
    const auto screen = Opened();
    screen->cmdSearch_Click();
    EXPECT_EQ(screen->lstdirectory2.Items(),
              (QStringList{u"C:\\PICS\\NEW (2024)\\  (1 Images)"_s, u"C:\\PICS\\  (1 Images)"_s,
                           u"C:\\PICS\\JPG\\  (1 Images)"_s, u"C:\\PICS\\OLD\\  (2 Images)"_s}))
        << "the photo store takes part too";
    EXPECT_EQ(screen->lstfoundfiles.List(0), u"C:\\PICS\\NEW (2024)\\  (1 Images)|0000000060"_s);
    EXPECT_FALSE(screen->lstfoundfiles.Visible());
    EXPECT_EQ(screen->lblmsg.Caption(), u"Directories found: 4"_s);
    EXPECT_EQ(doubles.pump.turns, 5) << "a turn of the queue at each directory";
}

TEST_F(PictureSearch, TheWordsOfTheWindow)
{
    const auto screen = Opened();
    EXPECT_EQ(screen->optSearch(0).Caption(), u"Orphan Search:  Searches For Records With Lost Photo References"_s);
    EXPECT_TRUE(screen->optSearch(1).Caption().startsWith(
        u"Time Search: Search For Images Saved To My Computer After The Specified Date And Time.  Slow But Probably "
        u"Accu"_s));
    EXPECT_EQ(screen->optSearch(2).Caption(), u"Search the Current Path Onward (Quicker)"_s);
    EXPECT_EQ(screen->optSearch(3).Caption(), u"Whole Search: Search From The Whole Drive (Thorough But Slow)"_s);
    EXPECT_EQ(screen->lblSelect.Caption(),
              u"Select the desired directory to display the images (in the main menu)."_s);
    EXPECT_EQ(screen->lblRecent.Caption(),
              u"The directories with the most recent image/photo files will list first"_s);
    EXPECT_EQ(screen->cmdSearch.Caption(), u"&Find"_s);
    EXPECT_EQ(screen->cmdCancel.Caption(), u"E&xit"_s);
    EXPECT_EQ(screen->txtPictureType.Text(), u"*.jpg;*.bmp"_s);
    EXPECT_TRUE(screen->optSearch(2).Value());
    ChooseOption(*screen, 1);
    EXPECT_TRUE(screen->optSearch(1).Value());
    EXPECT_FALSE(screen->optSearch(2).Value());
    EXPECT_TRUE(screen->txtAfter.Enabled());
}

TEST_F(PictureSearch, TheWholeSearchBeginsAtTheDrive)
{
    PutTree();
    const auto screen = Opened();
    ChooseOption(*screen, 3);
    screen->cmdSearch_Click();
    EXPECT_EQ(screen->lstdirectory2.ListCount(), 5);
    EXPECT_EQ(screen->lstdirectory2.List(1), u"C:\\ELSEWHERE\\  (1 Images)"_s);
}

TEST_F(PictureSearch, TheTimeSearchTakesPicturesSavedAfterADate)
{
    PutTree();
    const auto screen = Opened();
    ChooseOption(*screen, 1);
    screen->txtAfter.SetText(u"never"_s);
    screen->cmdSearch_Click();
    EXPECT_EQ(doubles.prompter.Last().text, u"Please enter a date."_s);
    screen->txtAfter.SetText(u"5/17/2024 9:45 AM"_s);
    screen->cmdSearch_Click();
    EXPECT_EQ(screen->lstdirectory2.Items(),
              (QStringList{u"C:\\PICS\\NEW (2024)\\  (1 Images)"_s, u"C:\\ELSEWHERE\\  (1 Images)"_s}));
}

TEST_F(PictureSearch, AClickChoosesADirectory)
{
    PutTree();
    auto screen = Opened();
    screen->cmdSearch_Click();
    EXPECT_EQ(screen->Chosen(), QString());
    screen->lstdirectory2.SetListIndex(3);
    EXPECT_EQ(screen->Chosen(), u"C:\\PICS\\OLD\\"_s);
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\PICS\\OLD\\"_s);
    EXPECT_TRUE(screen->IsOpen());
    screen->lstdirectory2.SetListIndex(0);
    Q_EMIT screen->lstdirectory2.DoubleClicked();
    EXPECT_EQ(screen->Chosen(), u"C:\\PICS\\NEW (2024)\\"_s);
    EXPECT_FALSE(screen->IsOpen());
}

TEST_F(PictureSearch, AWishToCloseStopsTheSearchAndKeepsWhatWasFound)
{
    PutTree();
    const auto screen = Opened();
    doubles.pump.onTurn = [&] {
        if (screen->lstdirectory2.ListCount() == 2)
            screen->Unload();
    };
    screen->cmdSearch_Click();
    doubles.pump.onTurn = {};
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(screen->lstdirectory2.ListCount(), 2);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Stopped. Directories found: 2"_s);
    EXPECT_TRUE(screen->cmdSearch.Enabled());
    screen->Unload();
    EXPECT_FALSE(screen->IsOpen());
}

TEST_F(PictureSearch, TheSelectedLineStaysSelectedWhileTheListGrows)
{
    PutTree();
    const auto screen = Opened();
    doubles.pump.onTurn = [&] {
        if (screen->lstdirectory2.ListCount() == 1 && screen->lstdirectory2.ListIndex() < 0)
            screen->lstdirectory2.SetListIndex(0);
    };
    screen->cmdSearch_Click();
    doubles.pump.onTurn = {};
    EXPECT_EQ(FoundPath(screen->lstdirectory2.List(screen->lstdirectory2.ListIndex())), screen->Chosen());
    EXPECT_EQ(screen->Chosen(), u"C:\\PICS\\"_s);
}

TEST_F(PictureSearch, AFullListAbandonsTheSearch)
{
    PutTree();
    const auto screen = Opened();
    screen->SetListLimit(2);
    screen->cmdSearch_Click();
    EXPECT_EQ(doubles.prompter.Last().text, u"You've filled the listbox. Search being abandoned..."_s);
    EXPECT_EQ(screen->lstdirectory2.ListCount(), 2);
}

TEST_F(PictureSearch, OrphansAreListedAndAreNoDirectories)
{
    const auto screen = [this] {
        home.MakeDirs(u"C:\\PICS"_s);
        return Opened();
    }();
    ChooseOption(*screen, 0);
    screen->cmdSearch_Click();
    EXPECT_EQ(screen->lstdirectory2.Items(), orphans);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Lost photos and photos without a record: 1"_s);
    screen->lstdirectory2.SetListIndex(0);
    Q_EMIT screen->lstdirectory2.DoubleClicked();
    EXPECT_EQ(screen->Chosen(), QString());
    EXPECT_TRUE(screen->IsOpen());
}

TEST_F(PictureSearch, ALinkThatLeadsBackUpIsNotFollowedForEver)
{
    PutTree();
    ASSERT_TRUE(QFile::link(home.disk.ToNative(u"C:\\PICS"_s), home.disk.ToNative(u"C:\\PICS\\OLD"_s) + u"/LOOP"_s));
    const auto screen = Opened();
    screen->cmdSearch_Click();
    EXPECT_EQ(screen->lstdirectory2.ListCount(), 4);
}

TEST_F(PictureSearch, TheFilesOfTheDirectoryFollowThePattern)
{
    PutTree();
    const auto screen = Opened();
    EXPECT_EQ(screen->files.Items(), QStringList{u"A.JPG"_s});
    ASSERT_TRUE(screen->folders.GoTo(u"C:\\PICS\\OLD"_s));
    EXPECT_EQ(screen->files.Items(), (QStringList{u"B.JPG"_s, u"C.BMP"_s}));
    screen->txtPictureType.SetText(u"*.bmp"_s);
    Q_EMIT screen->txtPictureType.LostFocus();
    EXPECT_EQ(screen->files.Items(), QStringList{u"C.BMP"_s});
}

} // namespace
} // namespace vasclip::photos
