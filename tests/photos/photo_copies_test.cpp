#include "photos/photo_copies.h"

#include "photo_home.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class PhotoCopies : public tests::PhotoHome
{
protected:
    bool Copy(const QString& source, const QString& directory)
    {
        return photos::CopyFile(ports, disk, source, directory);
    }
    const QString picture = u"C:\\VASSNAP\\Dsc 1.Jpg"_s;
    void SetUp() override
    {
        PhotoHome::SetUp();
        disk.WriteWhole(picture, "picture");
    }
};

TEST_F(PhotoCopies, ACopyKeepsNameAndExtensionAndOverwrites)
{
    disk.WriteWhole(u"C:\\JPG\\DSC 1.JPG"_s, "older");
    EXPECT_TRUE(Copy(picture, u"C:\\JPG"_s));
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\dsc 1.jpg"_s), "picture");
    EXPECT_TRUE(disk.FileExists(picture));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(PhotoCopies, ACopyTakesThePlaceOfAWriteProtectedOne)
{
    disk.WriteWhole(u"C:\\JPG\\DSC 1.JPG"_s, "older");
    disk.SetAttr(u"C:\\JPG\\DSC 1.JPG"_s, files::ReadOnly);
    EXPECT_TRUE(Copy(picture, u"C:\\JPG"_s));
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\dsc 1.jpg"_s), "picture");
}

TEST_F(PhotoCopies, EqualDirectoriesAreRefused)
{
    for (const QString& same : {u"C:\\VASSNAP"_s, u"c:\\vassnap\\"_s, u" C:\\VASSNAP "_s}) {
        doubles.prompter.Forget();
        EXPECT_FALSE(Copy(picture, same));
        EXPECT_EQ(doubles.prompter.Texts(),
                  QStringList{u"Cannot copy.  Source and destination paths cannot be the same."_s});
    }
}

TEST_F(PhotoCopies, ADirectoryThatIsNotThereIsMadeAfterAsking)
{
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(Copy(picture, u"C:\\NEW\\DEEP"_s));
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"Destination directory does not exist.  Do you wish to create it?"_s,
                           u"Copy operation did not take place."_s}));
    EXPECT_FALSE(disk.DirExists(u"C:\\NEW"_s));
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(Copy(picture, u"C:\\NEW\\DEEP"_s));
    EXPECT_TRUE(disk.FileExists(u"C:\\NEW\\DEEP\\Dsc 1.Jpg"_s));
}

TEST_F(PhotoCopies, ASourceThatIsNotThereIsNotCopied)
{
    EXPECT_FALSE(Copy(u"C:\\VASSNAP\\NONE.JPG"_s, u"C:\\JPG"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Stored(), QStringList());
}

TEST_F(PhotoCopies, AStoredPhotoIsCopiedIntoTheCaptureDirectory)
{
    disk.WriteWhole(u"C:\\JPG\\12345678.jpg"_s, "stored");
    EXPECT_TRUE(photos::CopyThePhoto(desk, u"C:\\JPG\\12345678.jpg"_s));
    EXPECT_EQ(disk.ReadWhole(u"C:\\VASSNAP\\12345678.jpg"_s), "stored");
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\12345678.jpg"_s));
}

TEST_F(PhotoCopies, ACopyOfItsOwnTakesAFreshStemAndTheControlPointsAtIt)
{
    disk.WriteWhole(u"C:\\JPG\\12345678.jpg"_s, "stored");
    EXPECT_EQ(photos::CopyPhotoRename(desk, u"C:\\JPG\\12345678.jpg"_s, imaComp), u"C:\\JPG\\07055475.JPG"_s);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\07055475.JPG"_s), "stored");
    EXPECT_EQ(table_.ErrGetPict(imaComp), u"C:\\JPG\\07055475.JPG"_s);
    for (const QString& none : {QString(), u"C:\\JPG\\"_s, u"C:\\JPG\\NONE.JPG"_s}) {
        EXPECT_EQ(photos::CopyPhotoRename(desk, none, imaComp), QString());
        EXPECT_EQ(table_.ErrGetPict(imaComp), u"C:\\JPG\\07055475.JPG"_s);
    }
}

TEST_F(PhotoCopies, WriteProtectionGoesByTheSetting)
{
    globals.writeProtectPhotos = false;
    photos::ApplyWriteProtect(ports, disk, globals, picture);
    EXPECT_EQ(disk.GetAttr(picture), files::Normal);
    globals.writeProtectPhotos = true;
    photos::ApplyWriteProtect(ports, disk, globals, picture);
    EXPECT_EQ(disk.GetAttr(picture), files::ReadOnly);
    for (const QString& none : {QString(), u"  "_s, u"C:\\VASSNAP\\NONE.JPG"_s})
        photos::ApplyWriteProtect(ports, disk, globals, none);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

} // namespace
