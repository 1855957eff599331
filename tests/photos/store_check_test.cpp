#include "photos/store_check.h"

#include "photo_home.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class StoreCheckTest : public tests::PhotoHome
{
protected:
    void SetUp() override
    {
        PhotoHome::SetUp();
        AddRow({{key, u"1 A ST"_s}, {u"PHOTOS"_s, u"FRONT VIEW|11111111\r\nREAR VIEW|22222222\r\n"_s}});
        AddRow({{key, u"2 B ST"_s}, {u"PHOTOS"_s, u" "_s}});
        AddRow({{key, u"3 C ST"_s}, {u"PHOTOS"_s, u"FRONT VIEW|aaaaaaaa\r\nlost without its line end|33333333"_s}});
        picture::SaveJpeg(disk, Sample(60, 40), u"C:\\JPG\\11111111.jpg"_s, 90);
        picture::SaveJpeg(disk, Sample(60, 40), u"C:\\JPG\\AAAAAAAA.JPG"_s, 90);
        Bind(datDatabook);
    }
    static QStringList Lines(const photos::StoreCheck& check)
    {
        QStringList lines;
        for (const photos::LostPhoto& lost : check.lost)
            lines << lost.key + u'/' + lost.view + u'/' + lost.stem;
        return lines;
    }
};

TEST_F(StoreCheckTest, TellsWhatIsGoneAndWhatNobodyNames)
{
    disk.WriteWhole(u"C:\\JPG\\99999999.jpg"_s, "x");
    disk.WriteWhole(u"C:\\JPG\\notes.txt"_s, "x");
    const photos::StoreCheck check = photos::CheckStore(datDatabook, disk, u"C:\\JPG"_s);
    EXPECT_EQ(check.records, 2);
    EXPECT_EQ(check.photos, 3);
    EXPECT_EQ(Lines(check), QStringList{u"1 A ST/REAR VIEW/22222222"_s});
    EXPECT_EQ(check.lost[0].why, QString());
    EXPECT_EQ(check.unnamed, QStringList{u"99999999.jpg"_s}) << "stems are compared without regard to case";
}

TEST_F(StoreCheckTest, VerifyingDecodesEveryPhoto)
{
    const QByteArray whole = disk.ReadWhole(u"C:\\JPG\\11111111.jpg"_s);
    EXPECT_EQ(photos::VerifyStore(datDatabook, disk, u"C:\\JPG\\"_s).lost.size(), 1);
    disk.WriteWhole(u"C:\\JPG\\11111111.jpg"_s, whole.left(whole.size() / 2));
    EXPECT_EQ(photos::CheckStore(datDatabook, disk, u"C:\\JPG\\"_s).lost.size(), 1);
    const photos::StoreCheck check = photos::VerifyStore(datDatabook, disk, u"C:\\JPG\\"_s);
    EXPECT_EQ(Lines(check), (QStringList{u"1 A ST/FRONT VIEW/11111111"_s, u"1 A ST/REAR VIEW/22222222"_s}));
    EXPECT_TRUE(check.lost[0].why.contains(u"C:\\JPG\\11111111.jpg"_s)) << check.lost[0].why.toStdString();
}

TEST_F(StoreCheckTest, EndsWhenItIsTold)
{
    const photos::StoreCheck check =
        photos::CheckStore(datDatabook, disk, u"C:\\JPG\\"_s, [](int) { return false; });
    EXPECT_EQ(check.photos, 0);
    EXPECT_TRUE(check.unnamed.isEmpty()) << "what was not compared is not told";
}

} // namespace
