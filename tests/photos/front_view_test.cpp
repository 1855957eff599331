#include "photos/front_view.h"

#include "platform/picture/picture.h"
#include "platform/text/text.h"
#include "store/store.h"
#include "support/databook_home.h"
#include "support/scripted_ports.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {
namespace {

struct FrontViewTest : tests::DatabookHome
{
    forms::ControlSet set;
    PhotoLists lists{set};
    forms::PictureBox geamaintain{set, u"geamaintain"_s};
    SlotTable slotPaths;
    SlotLoader loader{disk, ports, slotPaths};
    store::DataSource datDatabook{engine, u"datDatabook"_s};
    const QString photoDir = u"C:\\JPG\\"_s;
    const QString shownFirst = u"C:\\JPG\\AB12CD34.jpg"_s;

    void SetUp() override
    {
        DatabookHome::SetUp();
        disk.MkDir(u"C:\\JPG"_s);
        PutPhoto(u"AB12CD34"_s);
        loader.ErrLoadPict(geamaintain, shownFirst);
    }
    void PutPhoto(const QString& stem)
    {
        QImage image(60, 40, QImage::Format_RGB32);
        image.fill(Qt::red);
        picture::SaveJpeg(disk, image, photoDir + stem + u".jpg"_s, 90);
    }
    void Test(const QString& photos)
    {
        AddRow({{key, u"12 OAK ST"_s}, {u"PHOTOS"_s, photos}});
        Bind(datDatabook);
        TestFrontView(datDatabook, u"12 OAK ST"_s, lists, loader, geamaintain, disk, photoDir);
    }
};

TEST_F(FrontViewTest, IsShownAndSelected)
{
    PutPhoto(u"EF56GH78"_s);
    lists.lblPhotomsg.SetCaption(u"older"_s);
    Test(u"REAR VIEW|AB12CD34\r\nfront view|EF56GH78\r\n"_s);
    EXPECT_EQ(lists.lstViews.ListIndex(), 1);
    EXPECT_EQ(lists.lstimages.ListIndex(), 1);
    EXPECT_EQ(lists.txtimage.Text(), u"EF56GH78"_s);
    EXPECT_EQ(text::Folded(slotPaths.ErrGetPict(geamaintain)), u"C:\\JPG\\EF56GH78.JPG"_s);
    EXPECT_EQ(geamaintain.Picture().size(), QSize(60, 40));
    EXPECT_TRUE(geamaintain.Visible());
    EXPECT_EQ(lists.lblPhotomsg.Caption(), QString());
}

TEST_F(FrontViewTest, AMissingViewSaysSo)
{
    Test(u"REAR VIEW|AB12CD34\r\n"_s);
    EXPECT_EQ(lists.lblPhotomsg.Caption(), u"A 'FRONT VIEW' for '12 OAK ST' is not available."_s);
    EXPECT_TRUE(geamaintain.Picture().isNull());
    EXPECT_EQ(slotPaths.ErrGetPict(geamaintain), QString());
    EXPECT_EQ(lists.lstViews.ListIndex(), -1);
}

TEST_F(FrontViewTest, AMissingFileSaysSoAndStaysSelected)
{
    Test(u"REAR VIEW|AB12CD34\r\nFRONT VIEW|EF56GH78\r\n"_s);
    EXPECT_EQ(lists.lblPhotomsg.Caption(),
              u"The 'FRONT VIEW' was found but the photo called C:\\JPG\\EF56GH78.jpg does not exist."_s);
    EXPECT_TRUE(geamaintain.Picture().isNull());
    EXPECT_EQ(lists.lstViews.ListIndex(), 1);
    EXPECT_EQ(lists.lstimages.ListIndex(), 1);
    EXPECT_EQ(lists.txtimage.Text(), u"EF56GH78"_s);
}

TEST_F(FrontViewTest, ASelectedRowIsFollowedEverywhere)
{
    lists.lstViews.AddItem(u"REAR VIEW"_s);
    lists.lstViews.AddItem(u"FRONT VIEW"_s);
    lists.lstimages.AddItem(u"GONE0000"_s);
    lists.lstimages.AddItem(u"AB12CD34 "_s);
    geamaintain.SetVisible(false);
    lists.lstViews.SetListIndex(1);
    SelectPhoto(lists, loader, geamaintain, disk, photoDir);
    EXPECT_EQ(lists.lstimages.ListIndex(), 1);
    EXPECT_EQ(lists.txtView.Text(), u"FRONT VIEW"_s);
    EXPECT_EQ(lists.txtimage.Text(), u"AB12CD34"_s);
    EXPECT_EQ(lists.lblLabelTag.Caption(), u"C:\\JPG\\AB12CD34.JPG"_s);
    EXPECT_TRUE(geamaintain.Visible());
    lists.lstViews.SetListIndex(0);
    SelectPhoto(lists, loader, geamaintain, disk, photoDir);
    EXPECT_EQ(lists.lblLabelTag.Caption(), u"C:\\JPG\\GONE0000.JPG"_s);
    EXPECT_FALSE(geamaintain.Visible());
    lists.lstViews.SetListIndex(-1);
    SelectPhoto(lists, loader, geamaintain, disk, photoDir);
    EXPECT_EQ(lists.txtView.Text(), QString());
    EXPECT_EQ(lists.lstimages.ListIndex(), -1);
}

} // namespace
} // namespace vasclip::photos
