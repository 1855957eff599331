#include "capture_home.h"

#include "support/wine.h"

#include <filesystem>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class CaptureDeskTest : public tests::CaptureHome
{
protected:
    [[nodiscard]] int Position() const { return controls.filCapture.ListIndex(); }
};

TEST_F(CaptureDeskTest, TheBrowsersTextsStandAsTheyAre)
{
    EXPECT_EQ(controls.lblTab.ToolTipText(),
              u"Current Capture Directory - Click here to change to user specific folder"_s);
    EXPECT_EQ(controls.lblRefreshing.Caption(), u"Refreshing Picture Thumbnails"_s);
    EXPECT_EQ(controls.lblListBox.Caption(), u"Selected Picture"_s);
}

TEST_F(CaptureDeskTest, NothingIsListedBeforeTheBrowserStarts)
{
    PutMany(3);
    desk->check4CaptureDir();
    desk->DisplayCamera();
    desk->ViewFilCapture();
    EXPECT_EQ(controls.lblTab.Caption(), u"C:\\SNAP"_s);
    EXPECT_EQ(controls.filCapture.ListCount(), 0);
    EXPECT_TRUE(thumbs->Asked().isEmpty());
    desk->StartBrowsing();
    EXPECT_EQ(controls.filCapture.ListCount(), 3);
}

TEST_F(CaptureDeskTest, APageShowsTwelveNamedFilesAndTheirPictures)
{
    PutMany(13);
    Start();
    EXPECT_EQ(Shown(), Names(0, 11));
    EXPECT_EQ(controls.geathumb(0).WithoutPicture(), forms::NoPicture::Waiting);
    EXPECT_TRUE(controls.lblRefreshing.Visible());
    ASSERT_TRUE(Settle());
    for (int i = 0; i < 12; ++i) {
        EXPECT_FALSE(controls.geathumb(i).Picture().isNull());
        EXPECT_TRUE(controls.lbltag(i).Visible());
        EXPECT_EQ(desk->FileOfThumb(i), kDir + Name(i));
    }
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(controls.lblDirectory.Caption(), u"1 to 12 of 13"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(CaptureDeskTest, AnEmptyDirectoryClearsAllTwelveThumbnailsAndLabels)
{
    PutMany(12);
    Start();
    ASSERT_TRUE(Settle());
    home.MakeDirs(u"C:\\EMPTY"_s);
    desk->ShowDirectory(u"C:\\EMPTY"_s);
    for (int i = 0; i < 12; ++i) {
        EXPECT_FALSE(controls.geathumb(i).Visible());
        EXPECT_TRUE(controls.geathumb(i).Picture().isNull());
        EXPECT_EQ(controls.lbltag(i).Caption(), QString());
        EXPECT_FALSE(controls.lbltag(i).Visible());
        EXPECT_EQ(desk->FileOfThumb(i), QString());
    }
    EXPECT_EQ(controls.lblDirectory.Caption(), u"No pictures"_s);
    EXPECT_EQ(controls.lblTab.Caption(), u"C:\\EMPTY"_s);
}

TEST_F(CaptureDeskTest, ThePageDownOfThirteenFilesBeginsAtTheSecond)
{
    PutMany(13);
    Start();
    desk->imaScroll_Click(2);
    EXPECT_EQ(Position(), 1);
    EXPECT_EQ(Shown(), Names(1, 12));
    desk->imaScroll_Click(1);
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Shown(), Names(0, 11));
}

TEST_F(CaptureDeskTest, ThePageButtonsGoToBothEnds)
{
    PutMany(40);
    Start();
    EXPECT_FALSE(controls.imaScroll(0).Enabled());
    EXPECT_TRUE(controls.imaScroll(3).Enabled());
    desk->imaScroll_Click(3);
    EXPECT_EQ(Shown(), Names(28, 39));
    EXPECT_TRUE(controls.imaScroll(1).Enabled());
    EXPECT_FALSE(controls.imaScroll(2).Enabled());
    desk->imaScroll_Click(0);
    EXPECT_EQ(Shown(), Names(0, 11));
    desk->imaScroll_Click(2);
    EXPECT_EQ(Shown(), Names(12, 23));
    desk->imaScroll_Click(7);
    EXPECT_EQ(Shown(), Names(12, 23));
}

TEST_F(CaptureDeskTest, OutsideAPageTurnThePageBeginsAtTheFirstFileOrAtTheSelectedOne)
{
    PutMany(40);
    Start();
    controls.filCapture.SetListIndex(9);
    desk->errdisplayThumbs();
    EXPECT_EQ(Shown(), Names(0, 11));
    controls.filCapture.SetListIndex(10);
    desk->errdisplayThumbs();
    EXPECT_EQ(Shown(), Names(10, 21));
    EXPECT_EQ(controls.filCapture.TopIndex(), 10);
    controls.filCapture.SetListIndex(35);
    desk->errdisplayThumbs();
    EXPECT_EQ(Shown(), Names(35, 39));
    EXPECT_FALSE(controls.geathumb(5).Visible());
}

TEST_F(CaptureDeskTest, PagesOfAnEmptyListDoNothing)
{
    Start();
    for (int button = 0; button < 4; ++button)
        desk->imaScroll_Click(button);
    EXPECT_EQ(Position(), -1);
    EXPECT_TRUE(Shown().isEmpty());
}

TEST_F(CaptureDeskTest, InTheListTheButtonsMoveItsFirstRowAndThePreview)
{
    PutMany(40);
    globals.imageListBox = u"ON"_s;
    Start();
    ASSERT_TRUE(tests::Until([this] { return !controls.geaListBox.Picture().isNull(); }));
    EXPECT_TRUE(controls.filCapture.Visible());
    EXPECT_TRUE(controls.fraCapture.Visible());
    EXPECT_FALSE(controls.fraPics.Visible());
    EXPECT_EQ(controls.lblListBox.Caption(), u"Selected Picture"_s);
    const auto turned = [this](int button) {
        desk->imaScroll_Click(button);
        return QPair(Position(), controls.filCapture.TopIndex());
    };
    EXPECT_EQ(turned(2), QPair(12, 12));
    EXPECT_EQ(table.ErrGetPict(controls.geaListBox), kDir + Name(12));
    EXPECT_EQ(turned(3), QPair(39, 39));
    EXPECT_EQ(turned(2), QPair(39, 39));
    EXPECT_EQ(turned(1), QPair(27, 27));
    EXPECT_EQ(turned(0), QPair(0, 0));
    ASSERT_TRUE(tests::Until(
        [this] { return controls.geaListBox.Picture().width() == CaptureDesk::kPreviewPixels; }));
    EXPECT_TRUE(Shown().isEmpty()) << "the thumbnails stay as they are";
}

TEST_F(CaptureDeskTest, AClickInTheListStoresTheFileForListAndPreview)
{
    PutMany(3);
    globals.imageListBox = u"ON"_s;
    Start();
    controls.filCapture.SetListIndex(2);
    desk->filCapture_Click();
    EXPECT_EQ(table.ErrGetPict(controls.filCapture), kDir + Name(2));
    EXPECT_EQ(table.ErrGetPict(controls.geaListBox), kDir + Name(2));
    ASSERT_TRUE(tests::Until([this] { return !controls.geaListBox.Picture().isNull(); }));
    controls.geaListBox.SetVisible(false);
    desk->filCapture_Click();
    EXPECT_TRUE(controls.geaListBox.Picture().isNull());
    EXPECT_EQ(table.ErrGetPict(controls.filCapture), kDir + Name(2));
}

TEST_F(CaptureDeskTest, TheTwoViewsSwapAndTheirMenusFollow)
{
    PutMany(2);
    Start();
    int changed = 0;
    QObject::connect(desk.get(), &CaptureDesk::ViewChanged, desk.get(), [&] { ++changed; });
    desk->ToggleListBox();
    EXPECT_EQ(globals.imageListBox, u"ON"_s);
    EXPECT_TRUE(controls.fraCapture.Visible());
    EXPECT_FALSE(controls.fraPics.Visible());
    EXPECT_GE(changed, 1);
    desk->ToggleListBox();
    EXPECT_EQ(globals.imageListBox, u"OFF"_s);
    EXPECT_TRUE(controls.fraPics.Visible());
    EXPECT_FALSE(controls.filCapture.Visible());
    EXPECT_FALSE(controls.geaListBox.Visible());
    EXPECT_EQ(Shown(), Names(0, 1));
}

TEST_F(CaptureDeskTest, NamesAreShownOrNotAndComeWithTheirThumbnailsOnly)
{
    PutMany(2);
    globals.imageFileNames = u"OFF"_s;
    Start();
    EXPECT_FALSE(controls.lbltag(0).Visible());
    EXPECT_TRUE(controls.geathumb(0).Visible());
    desk->ToggleFileNames();
    EXPECT_EQ(globals.imageFileNames, u"ON"_s);
    EXPECT_TRUE(controls.lbltag(1).Visible());
    EXPECT_FALSE(controls.lbltag(2).Visible());
    desk->ToggleFileNames();
    EXPECT_EQ(globals.imageFileNames, u"OFF"_s);
    EXPECT_FALSE(controls.lbltag(0).Visible());
}

TEST_F(CaptureDeskTest, APictureBeyondTheLimitsHasAYellowLabel)
{
    for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s, u"C.JPG"_s, u"D.JPG"_s})
        Put(name);
    thumbs->sizes = {{u"A.JPG"_s, {801, 600}}, {u"B.JPG"_s, {800, 600}}, {u"C.JPG"_s, {800, 601}},
                     {u"D.JPG"_s, {10, 10}}};
    Start();
    ASSERT_TRUE(Settle());
    const forms::Ground wanted[] = {forms::Ground::Yellow, forms::Ground::Window, forms::Ground::Yellow,
                                    forms::Ground::Window};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(controls.lbltag(i).Back(), wanted[i]) << i;
}

TEST_F(CaptureDeskTest, ABrokenFileShowsItsMarkAndTheRestGoesOn)
{
    Put(u"A.JPG"_s);
    Put(u"BAD.JPG"_s);
    Put(u"C.JPG"_s);
    Start();
    ASSERT_TRUE(Settle());
    EXPECT_EQ(controls.geathumb(1).WithoutPicture(), forms::NoPicture::Broken);
    EXPECT_EQ(controls.geathumb(1).ToolTipText(), u"cut short"_s);
    EXPECT_EQ(controls.lbltag(1).Caption(), u"BAD.JPG"_s);
    EXPECT_FALSE(controls.geathumb(0).Picture().isNull());
    EXPECT_FALSE(controls.geathumb(2).Picture().isNull());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CaptureDeskTest, AFileThatWasStillBeingWrittenIsReadAgain)
{
    Put(u"BAD.JPG"_s);
    Start();
    ASSERT_TRUE(Settle());
    ASSERT_EQ(thumbs->Asked().count(u"decode C:\\SNAP\\BAD.JPG"_s), 1);
    home.Put(kDir + u"BAD.JPG"_s, "longer");
    ASSERT_TRUE(tests::Until([this] { return thumbs->Asked().count(u"decode C:\\SNAP\\BAD.JPG"_s) == 2; }));
}

TEST_F(CaptureDeskTest, PressingAThumbnailSelectsItsFile)
{
    PutMany(40);
    Start();
    desk->imaScroll_Click(2);
    desk->geathumb_MouseDown(4);
    EXPECT_EQ(Position(), 16);
    EXPECT_EQ(desk->SelectedFile(), kDir + Name(16));
    desk->imaScroll_Click(3);
    desk->geathumb_MouseDown(11);
    EXPECT_EQ(Position(), 39);
}

TEST_F(CaptureDeskTest, MovingOverAThumbnailTellsItsResolution)
{
    Put(u"A.JPG"_s);
    thumbs->sizes = {{u"A.JPG"_s, {4000, 3000}}};
    Start();
    ASSERT_TRUE(Settle());
    desk->geathumb_MouseMove(0);
    EXPECT_EQ(status.lblmsg.Caption(), u"Resolution: 4000 x 3000"_s);
    status.lblmsg.Show(u"other"_s, forms::Colour::Red);
    desk->geathumb_MouseMove(1);
    EXPECT_EQ(status.lblmsg.Caption(), u"other"_s);
}

TEST_F(CaptureDeskTest, NewFilesAppearAndThePageStaysWhereItIs)
{
    PutMany(40);
    Start();
    desk->imaScroll_Click(2);
    ASSERT_TRUE(Settle());
    const qint64 kept = controls.geathumb(3).Picture().cacheKey();
    Put(u"A-NEW.JPG"_s);
    ASSERT_TRUE(tests::Until([this] { return controls.filCapture.ListCount() == 41; }));
    EXPECT_EQ(Shown(), Names(12, 23));
    EXPECT_EQ(desk->SelectedFile(), kDir + Name(12));
    EXPECT_EQ(controls.geathumb(3).Picture().cacheKey(), kept) << "what is on show keeps its picture";
    home.disk.Kill(kDir + Name(12));
    ASSERT_TRUE(tests::Until([this] { return controls.filCapture.ListCount() == 40; }));
    EXPECT_EQ(Shown(), Names(13, 24));
    EXPECT_EQ(controls.geathumb(2).Picture().cacheKey(), kept) << "and takes it along";
    desk->imaScroll_Click(0);
    Put(u"A-NEWER.JPG"_s);
    ASSERT_TRUE(tests::Until([this] { return controls.filCapture.ListCount() == 41; }));
    EXPECT_EQ(Shown().first(), u"A-NEW.JPG"_s) << "the first page shows what comes first";
}

TEST_F(CaptureDeskTest, AThumbnailWhoseFileIsConsumedGoesWithItsLabel)
{
    PutMany(3);
    Start();
    ASSERT_TRUE(Settle());
    desk->HideThumbOf(u"c:\\snap\\p01.jpg"_s);
    EXPECT_FALSE(controls.geathumb(1).Visible());
    EXPECT_FALSE(controls.lbltag(1).Visible());
    home.disk.Kill(kDir + Name(1));
    desk->RefreshCapture();
    EXPECT_EQ(Shown(), (QStringList{Name(0), Name(2)}));
}

TEST_F(CaptureDeskTest, AThumbnailIsLoadedAnewOrShowsAnotherFile)
{
    PutMany(3);
    Put(u"Q.JPG"_s);
    Start();
    ASSERT_TRUE(Settle());
    thumbs->sizes = {{Name(1), {1, 1}}};
    desk->ReloadThumb(kDir + Name(1), kDir + Name(1));
    ASSERT_TRUE(Settle());
    EXPECT_EQ(desk->PixelsOfThumb(1), QSize(1, 1));
    desk->ReloadThumb(kDir + Name(1), kDir + u"Q.JPG"_s);
    EXPECT_EQ(controls.lbltag(1).Caption(), u"Q.JPG"_s);
    desk->ReloadThumb(kDir + u"Q.JPG"_s, kDir + u"GONE.JPG"_s);
    EXPECT_FALSE(controls.geathumb(1).Visible());
}

TEST_F(CaptureDeskTest, ThePendingRefreshIsClearedUnderTheHourglass)
{
    desk->AskForRefresh();
    EXPECT_TRUE(desk->RefreshPending());
    desk->Test2PopulateThumbs();
    EXPECT_FALSE(desk->RefreshPending());
    EXPECT_EQ(doubles.window.hourglassLog, (std::vector<bool>{true, false}));
}

TEST_F(CaptureDeskTest, FiftyThousandPicturesDecodeLikeFifty)
{
    const int kMany = tests::UnderWine() ? 5'000 : 50'000; // it looks through all names for each new one
    Put(u"00000.JPG"_s);
    const std::filesystem::path first = home.disk.ToNative(kDir + u"00000.JPG"_s).toStdString();
    for (int i = 1; i < kMany; ++i)
        std::filesystem::create_hard_link(
            first, first.parent_path() / u"%1.JPG"_s.arg(i, 5, 10, QChar(u'0')).toStdString());
    Start();
    ASSERT_TRUE(Settle());
    EXPECT_EQ(controls.filCapture.ListCount(), kMany);
    EXPECT_EQ(thumbs->Asked().filter(u"decode"_s).size(), 24) << "a page and the one behind it";
    desk->imaScroll_Click(3);
    ASSERT_TRUE(Settle());
    EXPECT_EQ(Shown().last(), u"%1.JPG"_s.arg(kMany - 1, 5, 10, QChar(u'0')));
    EXPECT_LE(thumbs->Asked().filter(u"decode"_s).size(), 24 + 2 * 24);
}

TEST_F(CaptureDeskTest, ADirectoryThatTakesLongDoesNotHoldUpTheWindow)
{
    PutMany(14);
    desk->Folder().SetPatience(0);
    Start();
    if (!desk->Folder().Reading())
        GTEST_SKIP() << "the names were there at once";
    EXPECT_EQ(controls.lblDirectory.Caption(), u"Looking for pictures..."_s);
    EXPECT_TRUE(controls.lblRefreshing.Visible());
    EXPECT_EQ(Shown(), QStringList());
    desk->imaScroll_Click(2); // nothing is there to turn yet
    ASSERT_TRUE(tests::Until([this] { return !desk->Folder().Reading(); }));
    ASSERT_TRUE(Settle());
    EXPECT_EQ(Shown(), Names(0, 11));
    EXPECT_EQ(controls.filCapture.ListIndex(), 0);
    EXPECT_EQ(controls.lblDirectory.Caption(), u"1 to 12 of 14"_s);
}

TEST_F(CaptureDeskTest, OffTheScreenAHundredPicturesTakeAMegabyteAtMost)
{
    PutMany(100);
    Start();
    for (int page = 0; page < 9; ++page) {
        ASSERT_TRUE(Settle());
        desk->imaScroll_Click(2);
    }
    ASSERT_TRUE(Settle());
    EXPECT_GT(desk->Loader().Cache().Count(), 24);
    EXPECT_LE(desk->Loader().Cache().Bytes(), 100 * 10 * 1024);
}

// ---- the directory -------------------------------------------------------------------------------------

TEST_F(CaptureDeskTest, AStartInATrashDirectoryGoesToTheOneAboveIt)
{
    home.MakeDirs(u"C:\\SNAP\\TRASHCAN"_s);
    globals.G_CaptureDir = u"c:\\snap\\TrashCan\\"_s;
    desk->check4CaptureDir();
    EXPECT_EQ(globals.G_CaptureDir, u"c:\\snap\\"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CaptureDeskTest, ABlankDirectoryBecomesTheDefaultWithoutAQuestion)
{
    globals.G_CaptureDir = u"  "_s;
    desk->check4CaptureDir();
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\VASSNAP\\"_s);
    EXPECT_TRUE(home.disk.DirExists(u"C:\\VASSNAP"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CaptureDeskTest, AMissingDirectoryIsAskedForAndYesMakesTheDefault)
{
    globals.G_CaptureDir = u"E:\\DCIM\\"_s;
    doubles.prompter.Answer(forms::Answer::Yes);
    desk->check4CaptureDir();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNoCancel, forms::Icon::Question,
                               u"Unable to connect to Directory"_s,
                               u"Drive: E: is empty or unreadable.\r\nWould you like to create a default "
                               u"capture directory?\r\n(On the default computer drive)"_s}));
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\VASSNAP\\"_s);
    EXPECT_TRUE(home.disk.DirExists(u"C:\\VASSNAP"_s));
}

TEST_F(CaptureDeskTest, AnyOtherAnswerChangesToTheLocalDrive)
{
    for (const forms::Answer answer : {forms::Answer::No, forms::Answer::Cancel}) {
        globals.G_CaptureDir = u"E:\\DCIM\\"_s;
        doubles.prompter.Forget();
        doubles.prompter.Answer(answer);
        desk->check4CaptureDir();
        ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
        EXPECT_EQ(doubles.prompter.Last().title, u"Capture Directory"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"Changing to the local drive."_s);
        EXPECT_EQ(globals.G_CaptureDir, u"C:\\"_s);
    }
}

TEST_F(CaptureDeskTest, ADefaultThatCannotBeMadeRevertsToTheLocalDrive)
{
    home.Put(u"C:\\VASSNAP"_s);
    globals.G_CaptureDir.clear();
    desk->check4CaptureDir();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Directory Error"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Error creating directory. Reverting to local drive"_s);
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\"_s);
}

struct PeriodRow
{
    const char* name;
    QString previous, lastCopy, chosen;
};
class PeriodTest : public tests::CaptureHome, public testing::WithParamInterface<PeriodRow>
{};
TEST_P(PeriodTest, ADirectoryWithADotIsRefusedAndTheProgramMovesElsewhere)
{
    for (const QString& place : {u"C:\\OLD"_s, u"C:\\CARD"_s, u"C:\\MY.PICS"_s})
        home.MakeDirs(place);
    globals.captureDirBeforeTrash = GetParam().previous;
    globals.lastCopy = GetParam().lastCopy;
    desk->ShowDirectory(u"C:\\MY.PICS"_s);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to Open Capture Directory"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Unable to open capture directory. The folder path has a period '.' character. Please Rename "
              u"the Folder (excluding the period) OR choose a different capture directory. Chosen Directory "
              u"= C:\\MY.PICS\\"_s);
    EXPECT_EQ(globals.G_CaptureDir, GetParam().chosen);
    EXPECT_EQ(controls.lblTab.Caption(), GetParam().chosen.size() > 3 ? GetParam().chosen.chopped(1) : u"C:"_s);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, PeriodTest,
    testing::Values(PeriodRow{"ThePrevious", u"C:\\OLD"_s, u"C:\\CARD\\"_s, u"C:\\OLD\\"_s},
                    PeriodRow{"TheLastCopy", u" c:\\my.pics "_s, u"C:\\CARD\\"_s, u"C:\\CARD\\"_s},
                    PeriodRow{"LastCopyForAnEmptyPrevious", QString(), u"C:\\CARD"_s, u"C:\\CARD\\"_s},
                    PeriodRow{"TheDrive", u"C:\\MY.PICS"_s, u"C:\\my.pics\\"_s, u"C:\\"_s},
                    PeriodRow{"TheDriveWhenNothingIsKnown", QString(), QString(), u"C:\\"_s}),
    [](const auto& row) { return row.param.name; });

TEST_F(CaptureDeskTest, TheTrashDirectoryIsNotRemembered)
{
    home.MakeDirs(u"C:\\SNAP\\TRASHCAN"_s);
    Start();
    desk->ShowDirectory(u"C:\\SNAP\\TRASHCAN"_s);
    EXPECT_EQ(globals.captureDirBeforeTrash, kDir);
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\SNAP\\TRASHCAN\\"_s);
    EXPECT_EQ(controls.lblTab.Caption(), u"C:\\SNAP\\TRASHCAN"_s);
}

} // namespace
} // namespace vasclip::photos
