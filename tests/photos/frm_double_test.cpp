#include "photos/frm_double.h"

#include "platform/picture/facts.h"
#include "platform/picture/picture.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QPainter>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class FrmDouble : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    common::Globals globals;
    SlotTable table;
    SlotLoader loader{home.disk, ports, table};
    const QString jpg = u"C:\\VASSNAP\\HOUSE.JPG"_s;
    const QString bmp = u"C:\\VASSNAP\\SCAN.BMP"_s;
    QByteArray original;

    void SetUp() override
    {
        globals.G_UserDir = u"C:\\VAS2000\\"_s;
        globals.quality = 90;
        globals.brightness = 0;
        globals.resolX = 800;
        globals.resolY = 600;
        home.MakeDirs(u"C:\\VAS2000"_s);
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::white); // the lines leave pixels out
        QPainter painter(&image);
        for (int i = 0; i < 300; ++i) {
            painter.setPen(QColor::fromHsv(i * 7 % 360, 120, 60 + i / 3));
            painter.drawLine(0, i, 399, 299 - i);
        }
        painter.end();
        home.Put(jpg);
        home.Put(bmp);
        ASSERT_TRUE(image.save(home.disk.ToNative(jpg), "JPG", 95));
        ASSERT_TRUE(image.save(home.disk.ToNative(bmp), "BMP"));
        original = home.disk.ReadWhole(jpg);
    }
    std::unique_ptr<frm_Double> Opened(const QString& path)
    {
        auto screen = std::make_unique<frm_Double>(AdjustDesk{ports, home.disk, globals, loader}, path);
        screen->Open();
        return screen;
    }
    [[nodiscard]] int Lightness(const QString& path) const
    {
        return picture::Load(home.disk, path).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .pixelColor(0, 0)
            .lightness();
    }
};

TEST_F(FrmDouble, OpensWithTheFileOnTheLeftAndClearsItsWorkingFiles)
{
    for (const QString& name : {u"tempOrig.jpg"_s, u"tempOrig.bmp"_s, u"temptemp.jpg"_s})
        home.Put(u"C:\\VAS2000\\"_s + name);
    const auto screen = Opened(jpg);
    EXPECT_TRUE(home.disk.Dir(u"C:\\VAS2000\\temp*"_s).isEmpty());
    EXPECT_EQ(screen->bmpDouble.Picture().size(), QSize(400, 300));
    EXPECT_EQ(table.ErrGetPict(screen->bmpDouble), jpg);
    EXPECT_TRUE(screen->bmpDouble2.Picture().isNull());
    EXPECT_EQ(screen->hsbquality.Value(), 90);
    EXPECT_EQ(screen->lblQuality.Caption(), u"90"_s);
    EXPECT_EQ(screen->lblBrightness.Caption(), u"0"_s);
    EXPECT_EQ(screen->lblFilename(0).Caption(), u"HOUSE.JPG"_s);
    EXPECT_EQ(screen->lblResolution(0).Caption(), u"400 x 300"_s);
    EXPECT_EQ(screen->lblBitDepth(0).Caption(), u"24 bit(s) per pixel"_s);
    EXPECT_EQ(screen->lblFormat(0).Caption(), u"JPEG"_s);
    const QString png = u"C:\\VAS2000\\GREY.PNG"_s;
    ASSERT_TRUE(QImage(8, 8, QImage::Format_Grayscale8).save(home.disk.ToNative(png)));
    const auto grey = Opened(png);
    EXPECT_EQ(grey->lblBitDepth(0).Caption(), u"8 bit(s) per pixel"_s);
    EXPECT_EQ(grey->lblCompression(0).Caption(), u"Deflate"_s);
    EXPECT_EQ(screen->lblSize(0).Caption(), FileSizeText(home.disk, jpg));
    EXPECT_EQ(screen->cmdCompress.Caption(), u"&Compress Picture"_s);
    EXPECT_EQ(screen->cmdCancel.Caption(), u"Cancel Changes"_s);
    EXPECT_EQ(screen->cmdReset.Caption(), u"Reset Values"_s);
    EXPECT_EQ(screen->cmdExit.Caption(), u"E&xit"_s);
    EXPECT_EQ(screen->cmdCancel.ToolTipText(),
              u"Reverts picture back to original size and file type (compression will be lost)"_s);
    EXPECT_EQ(screen->cmdReset.ToolTipText(),
              u"Resets Quality and Brightness values to saved settings (from Configuration screen)"_s);
    EXPECT_EQ(screen->lblQualityCaption.ToolTipText(),
              u"Click on this prompt to set the quality back to its default (70)"_s);
    EXPECT_EQ(screen->cmdExit.ToolTipText(), u"Exits this screen (pending compression changes will be implemented)"_s);
}

TEST_F(FrmDouble, MovingABarShowsAPreviewAndChangesNoFile)
{
    const auto screen = Opened(jpg);
    EXPECT_FALSE(screen->ImageAttributesChanged());
    screen->hsbcapturebrightness.SetValue(60);
    EXPECT_TRUE(screen->ImageAttributesChanged());
    EXPECT_EQ(screen->lblBrightness.Caption(), u"60"_s);
    const QImage bright = screen->bmpDouble2.Picture();
    ASSERT_FALSE(bright.isNull());
    screen->hsbcapturebrightness.SetValue(0);
    EXPECT_FALSE(screen->ImageAttributesChanged());
    screen->hsbquality.SetValue(5);
    EXPECT_TRUE(screen->ImageAttributesChanged());
    EXPECT_EQ(screen->lblQuality.Caption(), u"5"_s);
    EXPECT_NE(screen->bmpDouble2.Picture(), bright);
    EXPECT_EQ(home.disk.ReadWhole(jpg), original);
    EXPECT_TRUE(home.disk.Dir(u"C:\\VAS2000\\temp*"_s).isEmpty());
    Q_EMIT screen->lblQualityCaption.Clicked();
    EXPECT_EQ(screen->hsbquality.Value(), 70) << "and not the 90 of the settings";
    screen->hsbcapturebrightness.SetValue(-30);
    Q_EMIT screen->cmdReset.Clicked();
    EXPECT_EQ(screen->hsbquality.Value(), 90);
    EXPECT_EQ(screen->hsbcapturebrightness.Value(), 0);
    const QImage left = screen->bmpDouble.Picture();
    screen->hsbcapturebrightness.SetValue(50);
    EXPECT_EQ(screen->bmpDouble.Picture(), left);
    Q_EMIT screen->imacapturebrightness.Clicked();
    EXPECT_NE(screen->bmpDouble.Picture(), left) << "the sun shows it on the left too";
}

TEST_F(FrmDouble, CompressingWritesAndMarksAndCancellingBringsTheOriginalBack)
{
    const auto screen = Opened(jpg);
    screen->hsbquality.SetValue(10);
    screen->cmdCompress_Click();
    EXPECT_LT(home.disk.FileLen(jpg), original.size());
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\tempOrig.JPG"_s), original);
    EXPECT_EQ(table.ErrGetPict(screen->bmpDouble2), u"C:\\VASSNAP\\HOUSE.jpg"_s);
    EXPECT_EQ(screen->lblSize(1).Caption(), FileSizeText(home.disk, jpg));
    EXPECT_EQ(screen->lblPending.Caption(), u"Pending Changes*"_s);
    EXPECT_FALSE(screen->RefreshThumbs()) << "the same files are there";
    const qint64 once = home.disk.FileLen(jpg);
    screen->hsbcapturebrightness.SetValue(20);
    screen->cmdCompress_Click();
    EXPECT_NE(home.disk.FileLen(jpg), once);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\tempOrig.JPG"_s), original) << "the first original is kept";
    EXPECT_EQ(screen->lblPending.Caption(), u"Pending Changes*"_s);
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_EQ(home.disk.ReadWhole(jpg), original);
    EXPECT_EQ(screen->lblPending.Caption(), u"Pending Changes"_s);
    EXPECT_TRUE(screen->bmpDouble2.Picture().isNull());
    EXPECT_TRUE(screen->IsOpen());
    screen->hsbquality.SetValue(95);
    screen->cmdCompress_Click();
    EXPECT_GT(home.disk.FileLen(jpg), 2 * once) << "each at the quality that is set";
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_EQ(home.disk.ReadWhole(jpg), original);
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_FALSE(screen->IsOpen()) << "with nothing to cancel it closes";
}

TEST_F(FrmDouble, RepeatedBrightnessAddsUp)
{
    const auto screen = Opened(jpg);
    const int before = Lightness(jpg);
    screen->hsbcapturebrightness.SetValue(15);
    screen->cmdCompress_Click();
    const int once = Lightness(jpg);
    screen->cmdCompress_Click();
    EXPECT_GT(once, before);
    EXPECT_GT(Lightness(jpg), once);
}

TEST_F(FrmDouble, ABmpBecomesAJpgAndComesBackOnCancel)
{
    const QByteArray scan = home.disk.ReadWhole(bmp);
    auto screen = Opened(bmp);
    screen->cmdCompress_Click();
    EXPECT_FALSE(home.disk.Found(bmp));
    EXPECT_EQ(picture::Describe(home.disk, u"C:\\VASSNAP\\SCAN.jpg"_s).format, u"JPEG"_s);
    EXPECT_TRUE(screen->RefreshThumbs());
    EXPECT_EQ(screen->Result(), u"C:\\VASSNAP\\SCAN.jpg"_s);
    screen->cmdCompress_Click();
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VASSNAP\\SCAN.jpg"_s)) << "a second press works on the result";
    screen->cmdCancel_Click();
    EXPECT_EQ(home.disk.ReadWhole(bmp), scan);
    EXPECT_FALSE(home.disk.Found(u"C:\\VASSNAP\\SCAN.jpg"_s));
    EXPECT_EQ(screen->Result(), bmp);
    screen->cmdCompress_Click();
    screen->Unload();
    screen->End();
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VASSNAP\\SCAN.jpg"_s)) << "Exit keeps the result";
    EXPECT_FALSE(home.disk.Found(bmp));
    EXPECT_TRUE(home.disk.Dir(u"C:\\VAS2000\\temp*"_s).isEmpty());
}

TEST_F(FrmDouble, AnotherPictureOfTheNewNameIsNotLost)
{
    home.Put(u"C:\\VASSNAP\\SCAN.JPG"_s, original);
    const auto screen = Opened(bmp);
    screen->cmdCompress_Click();
    EXPECT_NE(home.disk.ReadWhole(u"C:\\VASSNAP\\SCAN.JPG"_s), original);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VASSNAP\\TRASHCAN\\SCAN.JPG"_s), original);
    screen->cmdCancel_Click();
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VASSNAP\\SCAN.JPG"_s), original) << "Cancel brings it back as well";
    EXPECT_TRUE(home.disk.FileExists(bmp));
}

TEST_F(FrmDouble, ADotInADirectoryIsNoExtension)
{
    home.MakeDirs(u"C:\\DCIM\\100.CAM"_s);
    const QString path = u"C:\\DCIM\\100.CAM\\PORCH.1.JPG"_s;
    home.disk.FileCopy(jpg, path);
    const auto screen = Opened(path);
    screen->hsbquality.SetValue(10);
    screen->cmdCompress_Click();
    EXPECT_FALSE(screen->RefreshThumbs());
    EXPECT_EQ(home.disk.Dir(u"C:\\DCIM\\100.CAM\\*"_s), QStringList{u"PORCH.1.JPG"_s});
    EXPECT_EQ(home.disk.Dir(u"C:\\DCIM\\*"_s), QStringList());
    EXPECT_LT(home.disk.FileLen(path), original.size());
    screen->cmdCancel_Click();
    EXPECT_EQ(home.disk.ReadWhole(path), original);
}

TEST_F(FrmDouble, APictureThatTakesTheFilesPlaceMeanwhileIsNotTouched)
{
    const auto screen = Opened(jpg);
    home.Put(jpg, "another picture");
    screen->cmdCompress_Click();
    EXPECT_EQ(home.disk.ReadWhole(jpg), "another picture");
    EXPECT_EQ(screen->lblmsg.Caption(), u"HOUSE.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_EQ(screen->lblmsg.Fore(), forms::Colour::Red);

    home.disk.WriteWhole(jpg, original);
    const auto again = Opened(jpg);
    again->hsbquality.SetValue(10);
    again->cmdCompress_Click();
    home.Put(jpg, "another picture");
    again->cmdCancel_Click();
    EXPECT_EQ(home.disk.ReadWhole(jpg), original) << "the user's own comes back";
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VASSNAP\\TRASHCAN\\HOUSE.JPG"_s), "another picture") << "and neither is lost";
}

TEST_F(FrmDouble, AMissingOriginalIsTold)
{
    const auto screen = Opened(jpg);
    screen->cmdCompress_Click();
    home.disk.Kill(u"C:\\VAS2000\\tempOrig.JPG"_s);
    screen->cmdCancel_Click();
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to Retrieve Original"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Unable to undo changes: original file is missing"_s);
    EXPECT_EQ(screen->lblPending.Caption(), u"Pending Changes*"_s);
}

TEST_F(FrmDouble, ReductionKeepsToTheLimits)
{
    globals.resolX = 200;
    globals.resolY = 600;
    auto screen = Opened(jpg);
    screen->cmdCompress_Click();
    EXPECT_EQ(screen->lblResolution(1).Caption(), u"200 x 300"_s) << "each side for itself";
    screen->cmdCancel_Click();
    globals.redux = false;
    screen = Opened(jpg);
    screen->cmdCompress_Click();
    EXPECT_EQ(screen->lblResolution(1).Caption(), u"400 x 300"_s);
}

TEST_F(FrmDouble, AWriteProtectedPictureCanBeCompressed)
{
    home.disk.SetAttr(jpg, files::ReadOnly);
    const auto screen = Opened(jpg);
    screen->hsbquality.SetValue(5);
    screen->cmdCompress_Click();
    EXPECT_LT(home.disk.FileLen(jpg), original.size());
    screen->cmdCancel_Click();
    EXPECT_EQ(home.disk.ReadWhole(jpg), original);
}

TEST_F(FrmDouble, ADamagedOrMissingPictureCompressesNothing)
{
    home.Put(u"C:\\VASSNAP\\BAD.JPG"_s, "no picture");
    auto screen = Opened(u"C:\\VASSNAP\\BAD.JPG"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"The File 'C:\\VASSNAP\\BAD.JPG' appears to be a corrupt file."_s);
    EXPECT_FALSE(screen->cmdCompress.Enabled());
    screen->cmdCompress_Click();
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VASSNAP\\BAD.JPG"_s), "no picture");
    screen = Opened(u"C:\\VASSNAP\\NONE.JPG"_s);
    EXPECT_EQ(screen->lblSize(0).Caption(), u"N/A"_s);
    EXPECT_EQ(screen->lblDate(0).Caption(), u"N/A"_s);
    screen->cmdCompress_Click();
    EXPECT_FALSE(home.disk.Found(u"C:\\VASSNAP\\NONE.JPG"_s));
}

TEST_F(FrmDouble, SizesAreShownInKilobytesAndFromOneMegabyteInBoth)
{
    struct Row
    {
        qint64 bytes;
        QString text;
    };
    for (const Row& row : {Row{89530, u"87.43 KB"_s}, Row{1024, u"1. KB"_s},
                           Row{1572864, u"1,536. KB   ( 1.5 MB )"_s}, Row{1048575, u"1,024. KB   ( 1. MB )"_s}}) {
        home.Put(u"C:\\SIZE.JPG"_s, QByteArray(row.bytes, 'x'));
        EXPECT_EQ(FileSizeText(home.disk, u"C:\\SIZE.JPG"_s), row.text) << row.bytes;
    }
    EXPECT_EQ(FileSizeText(home.disk, u"C:\\NONE.JPG"_s), u"N/A"_s);
}

} // namespace
} // namespace vasclip::photos
