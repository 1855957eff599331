#include "photos/photo_copies.h"
#include "photos/photo_messages.h"
#include "router_home.h"
#include "support/file_limit.h"
#include "support/unix.h"

// Pictures that go to the capture directory where something is in the way.

namespace vasclip::drops {
namespace {

class CopyBackTest : public RouterTest
{
protected:
    void SetUp() override
    {
        RouterTest::SetUp();
        Browse();
    }
    Outcome Back(const QString& path)
    {
        loader.ErrLoadThumb(slots.imaSubject(1), path);
        return router.DropUntold(router.Start(slots.imaSubject(1)), controls.fraPics);
    }
};

TEST_F(CopyBackTest, APictureThatLiesThereIsNotCopiedOverItself)
{
    const QByteArray before = home.disk.ReadWhole(kSnap + u"A.JPG"_s);
    EXPECT_FALSE(Back(kSnap + u"A.JPG"_s).done);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList{photos::kSamePaths});
    EXPECT_EQ(home.disk.ReadWhole(kSnap + u"A.JPG"_s), before);
}

TEST_F(CopyBackTest, ADirectoryThatIsGoneIsMadeAfterAQuestion)
{
    VASCLIP_NEEDS_UNIX("a directory that goes while it is watched");
    for (const QString& name : home.disk.Dir(kSnap + u"*.*"_s))
        home.disk.Kill(kSnap + name);
    home.disk.RmDir(u"C:\\SNAP"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(Back(u"C:\\JPG\\ELM.jpg"_s).message, u"1 picture is in C:\\SNAP\\ now."_s);
    EXPECT_EQ(doubles.prompter.Last().text, photos::kMakeDestination);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"ELM.jpg"_s));
}

TEST_F(CopyBackTest, ABracketIsSpokenOfWhicheverFileLostIt)
{
    home.MakeDirs(u"C:\\DESKTOP"_s);
    for (const QString& name : {u"P].JPG"_s, u"Q].png"_s, u"R.JPG"_s})
        Picture(u"C:\\DESKTOP\\"_s + name);
    const auto copyIn = [this](const QStringList& files) {
        return router.DropUntold(router.StartFiles(files), controls.fraPics).message;
    };
    const QString told = u" A \"]\" in a name has become a \")\": no report can name such a file."_s;
    EXPECT_EQ(copyIn({u"C:\\DESKTOP\\P].JPG"_s, u"C:\\DESKTOP\\R.JPG"_s}), u"2 pictures are in C:\\SNAP\\ now."_s + told);
    EXPECT_EQ(copyIn({u"C:\\DESKTOP\\Q].png"_s}), u"1 picture is in C:\\SNAP\\ now."_s + told);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"Q).jpg"_s));
    EXPECT_EQ(photos::NameForReport(u"A[1.JPG"_s), u"A[1.JPG"_s) << "which a report can name";
}

TEST_F(CopyBackTest, ATrashThatIsFullIsNotCalledSwitchedOff)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    globals.autoDelete = 1;
    filing.PictureSaved = true;
    doubles.prompter.Answer(forms::Answer::Yes);    // delete it
    doubles.prompter.Answer(forms::Answer::Ignore); // the error
    tests::FileLimit full(4);
    const Outcome outcome = DropThumb(0, controls.imaTrashcan);
    full.Lift();
    EXPECT_EQ(outcome.message, u"A.JPG stays where it is: it could not be copied to the trash."_s);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"A.JPG"_s));
}

} // namespace
} // namespace vasclip::drops
