#include "photos/trash.h"

#include "photos/content.h"
#include "photos/photo_files.h"
#include "photos/trash_icon.h"
#include "support/error_number.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;
using forms::Answer;

class Trash : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    common::Globals globals;
    TrashDesk desk{ports, home.disk, globals};
    const QString capture = u"C:\\VASSNAP\\"_s;
    const QString picture = u"C:\\VASSNAP\\DSC 01.JPG"_s;
    const QString trashed = u"C:\\VASSNAP\\TRASHCAN\\DSC 01.JPG"_s;
    void SetUp() override { home.Put(picture, "new picture"); }
    Trashed Send(PictureIs saved = PictureIs::Saved)
    {
        return SendToTrashCan(desk, saved, u"C:\\VASSNAP"_s, picture, u"DSC 01"_s, u"JPG"_s);
    }
    [[nodiscard]] QByteArray Read(const QString& path) const { return home.disk.ReadWhole(path); }
};

TEST_F(Trash, AFiledPictureIsMovedToATrashDirectoryMadeForIt)
{
    EXPECT_FALSE(home.disk.DirExists(u"C:\\VASSNAP\\TRASHCAN"_s));
    EXPECT_EQ(Send(), Trashed::Moved);
    EXPECT_EQ(Read(trashed), "new picture");
    EXPECT_FALSE(home.disk.Found(picture));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Trash, WhetherTheSourceGoesIsForTheSettingsAndTheLastSave)
{
    struct Row
    {
        int trashcan, autoDelete;
        PictureIs saved;
        Trashed outcome;
        bool copied, sourceStays;
    };
    const Row rows[] = {
        {0, 1, PictureIs::Saved, Trashed::No, false, true},
        {1, 1, PictureIs::Saved, Trashed::Moved, true, false},
        {1, 0, PictureIs::Saved, Trashed::Copied, true, true},
        {1, 2, PictureIs::Saved, Trashed::Copied, true, true}, // the value 1 and no other
        {1, 1, PictureIs::Unsaved, Trashed::Copied, true, true},
        {2, 1, PictureIs::Saved, Trashed::Moved, true, false}, // on is any value but 0
    };
    for (const Row& row : rows) {
        home.Put(picture, "new picture");
        if (home.disk.Found(trashed))
            home.disk.Kill(trashed);
        globals.trashcan = row.trashcan;
        globals.autoDelete = row.autoDelete;
        const std::string what = std::to_string(row.trashcan) + " " + std::to_string(row.autoDelete);
        EXPECT_EQ(Send(row.saved), row.outcome) << what;
        EXPECT_EQ(home.disk.Found(trashed), row.copied) << what;
        EXPECT_EQ(home.disk.Found(picture), row.sourceStays) << what;
    }
}

TEST_F(Trash, ANameThatIsInTheTrashIsOverwrittenByTheNewerPicture)
{
    home.Put(trashed, "older");
    home.disk.SetAttr(trashed, files::ReadOnly);
    EXPECT_EQ(Send(), Trashed::Moved);
    EXPECT_EQ(Read(trashed), "new picture");
}

TEST_F(Trash, APictureInATrashDirectoryIsNotCopiedOntoItself)
{
    home.Put(trashed, "older");
    EXPECT_EQ(SendToTrashCan(desk, PictureIs::Saved, u"C:\\VASSNAP\\TRASHCAN"_s, trashed, u"DSC 01"_s, u"JPG"_s),
              Trashed::No);
    EXPECT_EQ(Read(trashed), "older");
    EXPECT_FALSE(home.disk.DirExists(u"C:\\VASSNAP\\TRASHCAN\\TRASHCAN"_s));
}

TEST_F(Trash, TheNameKeepsItsSpelling)
{
    home.Put(u"C:\\VASSNAP\\Front View.jpg"_s, "x");
    EXPECT_EQ(SendToTrashCan(desk, PictureIs::Saved, capture, u"C:\\VASSNAP\\FRONT VIEW.JPG"_s, u"FRONT VIEW"_s,
                             u"JPG"_s),
              Trashed::Moved);
    EXPECT_EQ(home.disk.Dir(u"C:\\VASSNAP\\TRASHCAN\\*"_s), QStringList{u"Front View.jpg"_s});
}

TEST_F(Trash, ACopyThatFailsLeavesTheSource)
{
    home.Put(u"C:\\VASSNAP\\TRASHCAN"_s, "a file where the directory should be");
    EXPECT_EQ(tests::NumberOf([&] { Send(); }), error::kPathFileAccess);
    EXPECT_EQ(Read(picture), "new picture");
    EXPECT_EQ(tests::NumberOf([&] {
                  SendToTrashCan(desk, PictureIs::Saved, capture, u"C:\\VASSNAP\\GONE.JPG"_s, u"GONE"_s, u"JPG"_s);
              }),
              error::kPathFileAccess);
    home.disk.Kill(u"C:\\VASSNAP\\TRASHCAN"_s);
    EXPECT_EQ(tests::NumberOf([&] {
                  SendToTrashCan(desk, PictureIs::Saved, capture, u"C:\\VASSNAP\\GONE.JPG"_s, u"GONE"_s, u"JPG"_s);
              }),
              error::kFileNotFound);
    EXPECT_TRUE(home.disk.Dir(u"C:\\VASSNAP\\TRASHCAN\\*"_s).isEmpty());
}

TEST_F(Trash, AWriteProtectedSourceGoesToo)
{
    home.disk.SetAttr(picture, files::ReadOnly);
    EXPECT_EQ(Send(), Trashed::Moved);
    EXPECT_FALSE(home.disk.Found(picture));
}

TEST_F(Trash, ThePictureOfAControlIsTakenByItsPath)
{
    forms::ControlSet set;
    SlotTable table;
    const forms::ControlArray<forms::PictureBox> thumbs(set, u"geathumb"_s, 0, 11);
    EXPECT_EQ(TrashPicture(desk, PictureIs::Saved, table, thumbs(3)), Trashed::No) << "an empty control";
    table.ErrSetPict(thumbs(3), picture);
    EXPECT_EQ(TrashPicture(desk, PictureIs::Saved, table, thumbs(3)), Trashed::Moved);
    EXPECT_EQ(Read(trashed), "new picture");
    home.Put(u"C:\\VASSNAP\\A[1].JPG"_s, "in brackets");
    table.ErrSetPict(thumbs(3), u"C:\\VASSNAP\\A[1].JPG"_s);
    EXPECT_EQ(TrashPicture(desk, PictureIs::Saved, table, thumbs(3)), Trashed::Moved);
    EXPECT_EQ(Read(u"C:\\VASSNAP\\TRASHCAN\\A[1].JPG"_s), "in brackets");
}

TEST(TrashNames, TellATrashDirectoryByItsLastNineCharacters)
{
    struct Row
    {
        QString path;
        bool isTrash;
    };
    for (const Row& row : {Row{u"C:\\VASSNAP\\TRASHCAN\\A.JPG"_s, true}, Row{u"c:\\vassnap\\trashcan\\a.jpg"_s, true},
                           Row{u"C:\\TRASHCAN\\A.JPG"_s, true}, Row{u"TRASHCAN\\A.JPG"_s, true},
                           Row{u"C:\\VASSNAP\\OLDTRASHCAN\\A.JPG"_s, true}, // the nine characters alone count
                           Row{u"C:\\VASSNAP\\TRASHCAN"_s, false}, Row{u"C:\\VASSNAP\\A.JPG"_s, false},
                           Row{u"C:\\TRASHCAN\\MORE\\A.JPG"_s, false}, Row{QString(), false}})
        EXPECT_EQ(IsInTrashCan(row.path), row.isTrash) << row.path.toStdString();
}

TEST(TrashNames, KnowTheDirectoryAbove)
{
    struct Row
    {
        QString path, parent;
    };
    for (const Row& row :
         {Row{u"C:\\VASSNAP\\TRASHCAN\\"_s, u"C:\\VASSNAP\\"_s}, Row{u" c:\\vassnap\\trashcan "_s, u"C:\\VASSNAP\\"_s},
          Row{u"C:\\VASSNAP"_s, u"C:\\VASSNAP\\"_s}, Row{u"C:\\TRASHCAN"_s, u"C:\\"_s}, Row{QString(), QString()}})
        EXPECT_EQ(TrashParentDir(row.path), row.parent) << row.path.toStdString();
    EXPECT_EQ(TrashDirectory(u"C:\\VASSNAP"_s), u"C:\\VASSNAP\\TRASHCAN\\"_s);
}

TEST_F(Trash, WhatIsReplacedIsKeptUnderANameOfItsOwn)
{
    EXPECT_EQ(KeepInTrash(home.disk, picture), trashed);
    EXPECT_EQ(Read(trashed), "new picture");
    EXPECT_EQ(Read(picture), "new picture");
    EXPECT_EQ(KeepInTrash(home.disk, picture), trashed) << "the same picture is kept once";
    home.Put(picture, "another");
    EXPECT_EQ(KeepInTrash(home.disk, picture), u"C:\\VASSNAP\\TRASHCAN\\DSC 01 (2).JPG"_s);
    home.Put(picture, "a third");
    EXPECT_EQ(KeepInTrash(home.disk, picture), u"C:\\VASSNAP\\TRASHCAN\\DSC 01 (3).JPG"_s);
    EXPECT_EQ(Read(trashed), "new picture");
    EXPECT_EQ(Read(u"C:\\VASSNAP\\TRASHCAN\\DSC 01 (2).JPG"_s), "another");
    EXPECT_EQ(Read(u"C:\\VASSNAP\\TRASHCAN\\DSC 01 (3).JPG"_s), "a third");
}

TEST_F(Trash, RestoringBringsAPictureBack)
{
    Send();
    EXPECT_EQ(RestoreFromTrash(desk, u"C:\\VASSNAP\\TRASHCAN"_s, u"dsc 01.jpg"_s), Restored::Yes);
    EXPECT_EQ(Read(picture), "new picture");
    EXPECT_FALSE(home.disk.Found(trashed));
    EXPECT_EQ(home.disk.Dir(u"C:\\VASSNAP\\*"_s), QStringList{u"DSC 01.JPG"_s}) << "in its own spelling";
    EXPECT_EQ(RestoreFromTrash(desk, u"C:\\VASSNAP\\TRASHCAN"_s, u"DSC 01.JPG"_s), Restored::Missing);
    EXPECT_EQ(RestoreFromTrash(desk, u"C:\\VASSNAP"_s, u"DSC 01.JPG"_s), Restored::Missing)
        << "only from a trash directory";
}

TEST_F(Trash, RestoringOntoAnotherPictureAsksAndLosesNeither)
{
    home.Put(trashed, "older");
    doubles.prompter.Answer(Answer::No);
    EXPECT_EQ(RestoreFromTrash(desk, u"C:\\VASSNAP\\TRASHCAN\\"_s, u"DSC 01.JPG"_s), Restored::Declined);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Another picture named DSC 01.JPG is in C:\\VASSNAP\\. Restore this one? The other one goes to "
              u"the trash."_s);
    EXPECT_EQ(Read(picture), "new picture");
    EXPECT_EQ(Read(trashed), "older");
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(RestoreFromTrash(desk, u"C:\\VASSNAP\\TRASHCAN\\"_s, u"DSC 01.JPG"_s), Restored::Yes);
    EXPECT_EQ(Read(picture), "older");
    EXPECT_EQ(Read(u"C:\\VASSNAP\\TRASHCAN\\DSC 01 (2).JPG"_s), "new picture");
    EXPECT_FALSE(home.disk.Found(trashed));
}

TEST_F(Trash, RestoringWhatIsThereAlreadyTakesItOutOfTheTrash)
{
    home.Put(trashed, "new picture");
    EXPECT_EQ(RestoreFromTrash(desk, u"C:\\VASSNAP\\TRASHCAN\\"_s, u"DSC 01.JPG"_s), Restored::Yes);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Read(picture), "new picture");
    EXPECT_FALSE(home.disk.Found(trashed));
}

TEST_F(Trash, EmptyingTellsWhatWentAndStopsWhenAskedTo)
{
    const QString trash = u"C:\\VASSNAP\\TRASHCAN\\"_s;
    for (const QString& name : {u"A.JPG"_s, u"B.BMP"_s, u"C.TIF"_s, u"D.TXT"_s})
        home.Put(trash + name, "x");
    home.disk.SetAttr(trash + u"B.BMP"_s, files::ReadOnly);
    QStringList names;
    const QList<TrashedFile> pictures = TrashedFiles(home.disk, trash);
    for (const TrashedFile& file : pictures)
        names.append(file.name);
    EXPECT_EQ(names, (QStringList{u"A.JPG"_s, u"B.BMP"_s, u"C.TIF"_s})) << "pictures only";
    const Emptied first = EmptyTrash(desk, trash, pictures, [](int done) { return done < 2; });
    EXPECT_EQ(first.deleted, (QStringList{u"A.JPG"_s, u"B.BMP"_s}));
    EXPECT_TRUE(first.left.isEmpty());
    EXPECT_EQ(home.disk.Dir(trash + u'*'), (QStringList{u"C.TIF"_s, u"D.TXT"_s}));
    EXPECT_TRUE(TrashedFiles(home.disk, u"C:\\NOWHERE\\TRASHCAN"_s).isEmpty());
}

TEST_F(Trash, ADropOnTheIconTakesThumbnailsOnly)
{
    for (const QString& source : {u"FILCAPTURE"_s, u"GEALISTBOX"_s, u"IMACOMP"_s, u"GEAMAINTAIN"_s, QString()})
        EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Saved, source, PointAt(home.disk, picture)), TrashDrop::Nothing)
            << source.toStdString();
    EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Saved, u"geathumb"_s, PointAt(home.disk, u"C:\\VASSNAP\\GONE.JPG"_s)),
              TrashDrop::Nothing)
        << "a file that is not there";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Trash, ADropOnTheIconAsksAndSends)
{
    doubles.prompter.Answer(Answer::No);
    EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Saved, u"GEATHUMB"_s, PointAt(home.disk, picture)), TrashDrop::Nothing);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Question, {}, u"Delete C:\\VASSNAP\\DSC 01.JPG?"_s}));
    EXPECT_TRUE(home.disk.Found(picture));
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Saved, u"GEATHUMB"_s, PointAt(home.disk, picture)),
              TrashDrop::Moved);
    EXPECT_FALSE(home.disk.Found(picture));
    EXPECT_EQ(Read(trashed), "new picture");
}

TEST_F(Trash, ADropAfterAFailedSaveLeavesTheSourceAndTakesTheThumbnail)
{
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Unsaved, u"GEATHUMB"_s, PointAt(home.disk, picture)),
              TrashDrop::Copied);
    EXPECT_TRUE(home.disk.Found(picture));
    EXPECT_TRUE(home.disk.Found(trashed));
}

TEST_F(Trash, ADropFromATrashDirectoryDeletesForGood)
{
    home.Put(trashed, "older");
    doubles.prompter.Answer(Answer::No);
    EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Unsaved, u"GEATHUMB"_s, PointAt(home.disk, trashed)), TrashDrop::Nothing);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Delete the image named C:\\VASSNAP\\TRASHCAN\\DSC 01.JPG from a TrashCan Directory is a permanant "
              u"delete.  Are you sure?"_s);
    EXPECT_TRUE(home.disk.Found(trashed));
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(geatrashcan_DragDrop(desk, PictureIs::Unsaved, u"GEATHUMB"_s, PointAt(home.disk, trashed)),
              TrashDrop::Deleted);
    EXPECT_FALSE(home.disk.Found(trashed));
}

TEST_F(Trash, AClickOnTheIconSwitchesThereAndBack)
{
    home.MakeDirs(u"C:\\VASSNAP\\TRASHCAN"_s);
    const auto click = [&](const QString& from) { return imaTrashcan_Click(doubles.prompter, home.disk, from); };
    doubles.prompter.Answer(Answer::No);
    EXPECT_EQ(click(capture), QString());
    EXPECT_EQ(doubles.prompter.Last().text, u"Change the camera directory to the trashcan directory?"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(click(capture), u"C:\\VASSNAP\\trashcan\\"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(click(u"C:\\VASSNAP"_s), QString()) << "without its backslash the text names another directory";
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(click(u"C:\\"_s), QString()) << "there is no trash directory";
    doubles.prompter.Answer(Answer::No);
    EXPECT_EQ(click(u"C:\\VASSNAP\\trashcan\\"_s), QString());
    EXPECT_EQ(doubles.prompter.Last().text, u"Change back to the capture directory?"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_EQ(click(u"C:\\VASSNAP\\trashcan"_s), u"C:\\VASSNAP\\"_s);
}

TEST_F(Trash, ContentIsComparedAndNotNames)
{
    home.Put(u"C:\\A.JPG"_s, "12345");
    home.Put(u"C:\\B.JPG"_s, "12345");
    home.Put(u"C:\\C.JPG"_s, "12346");
    home.Put(u"C:\\D.JPG"_s, "1234");
    EXPECT_TRUE(SameContent(home.disk, u"C:\\A.JPG"_s, u"C:\\B.JPG"_s));
    EXPECT_FALSE(SameContent(home.disk, u"C:\\A.JPG"_s, u"C:\\C.JPG"_s));
    EXPECT_FALSE(SameContent(home.disk, u"C:\\A.JPG"_s, u"C:\\D.JPG"_s));
    EXPECT_EQ(ContentSum(home.disk, u"C:\\A.JPG"_s).size(), 32);
    EXPECT_TRUE(ContentSum(home.disk, u"C:\\A.JPG"_s, [] { return false; }).isEmpty());
}

TEST_F(Trash, PicturesAreFoundByPatternInAnyCase)
{
    for (const QString& name : {u"b.JPG"_s, u"A.bmp"_s, u"c.jpeg"_s, u"d.txt"_s, u"E.Jpg"_s})
        home.Put(u"C:\\P\\"_s + name);
    home.MakeDirs(u"C:\\P\\F.JPG"_s);
    EXPECT_EQ(PictureNames(home.disk, u"C:\\P"_s, kCapturePatterns), (QStringList{u"A.bmp"_s, u"b.JPG"_s, u"E.Jpg"_s}));
    EXPECT_TRUE(PictureNames(home.disk, u"C:\\NOWHERE"_s, kCapturePatterns).isEmpty());
}

} // namespace
} // namespace vasclip::photos
