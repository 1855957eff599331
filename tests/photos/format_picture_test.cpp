#include "photos/format_picture.h"

#include "photo_home.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using photos::FormatPictureNow;
using photos::Stem;

namespace {

class FormatPicture : public tests::PhotoHome
{
protected:
    QByteArray Content(const QString& file) const { return disk.ReadWhole(file); }
};

TEST_F(FormatPicture, FilesUnderARandomStemAndShowsTheStoredFile)
{
    const QString source = PutJpeg(u"DSC1.JPG"_s, 1200, 900);
    EXPECT_TRUE(FormatPictureNow(desk, source, imaComp));
    EXPECT_TRUE(desk.PictureSaved);
    EXPECT_EQ(Stored(), QStringList{u"07055475.JPG"_s});
    EXPECT_EQ(picture::PictureSize(disk, u"C:\\JPG\\07055475.JPG"_s), QSize(800, 600));
    EXPECT_EQ(table_.ErrGetPict(imaComp), u"C:\\JPG\\07055475.JPG"_s);
    EXPECT_FALSE(imaComp.Picture().isNull());
    EXPECT_TRUE(disk.FileExists(source)) << "the source is not touched";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

} // namespace
