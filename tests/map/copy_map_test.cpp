#include "link/kel_channel.h"
#include "map/copy_map.h"
#include "map/frm_map_preview.h"
#include "map/map_test.h"

namespace vasclip::map {

namespace {

class CopyMap : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        control.onDraw = [this](const QString& file) { Picture(file, Qt::darkGreen); };
        addr.txtKelReport.SetText(u"SMITH"_s);
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
        conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"URAR,SUBPHOTO,"_s);
    }
    void Picture(const QString& drivePath, Qt::GlobalColor colour)
    {
        QImage image(15, 10, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(home.disk.ToNative(drivePath), "JPG"));
    }
    [[nodiscard]] QStringList Sent() const { return conduit.commands.filter(u"SetImage"_s); }
};

TEST_F(CopyMap, TheMapGoesIntoEachOfItsSlots)
{
    const QList<std::pair<QString, QString>> table = {{u"MAP_LOCATION"_s, u"VAS2000.JPG"_s},
                                                      {u"MAP_GENERAL_1"_s, u"GENERAL.JPG"_s},
                                                      {u"FAX_SCAN_A"_s, u"GENERAL.JPG"_s}};
    const QStringList titles = {u"location map"_s, u"general map"_s, u"fax page"_s};
    for (int i = 0; i < 3; ++i) {
        optMapAddendum_Click(desk, i);
        EXPECT_EQ(ChosenAddendum(desk), i);
        control.log.clear();
        conduit.commands.clear();
        cmdCopyMap_Click(desk);
        EXPECT_EQ(control.log, QStringList{u"DrawTo C:\\VAS2000\\%1 1500x1000, 100"_s.arg(table[i].second)});
        ASSERT_EQ(Sent().size(), 1) << i;
        EXPECT_TRUE(Sent()[0].contains(table[i].first)) << Sent()[0].toStdString();
        EXPECT_TRUE(Sent()[0].contains(table[i].second)) << Sent()[0].toStdString();
        EXPECT_EQ(status.lblmsg.Caption(), u"The map is in the report as its "_s + titles[i]);
    }
}

TEST_F(CopyMap, TheStockPictureComesFirst)
{
    Picture(u"C:\\VAS2000\\MapScan.jpg"_s, Qt::red);
    optMapAddendum_Click(desk, 2);
    control.onDraw = [this](const QString& file) {
        EXPECT_EQ(table.ErrGetPict(tab.geatemp), u"C:\\VAS2000\\MapScan.jpg"_s);
        Picture(file, Qt::darkGreen);
    };
    cmdCopyMap_Click(desk);
    EXPECT_EQ(table.ErrGetPict(tab.geatemp), u"C:\\VAS2000\\GENERAL.JPG"_s);
    EXPECT_FALSE(tab.geatemp.Visible());
}

TEST_F(CopyMap, TheQualityIsThatOfTheSettings)
{
    globals.mapQuality = 40;
    cmdCopyMap_Click(desk);
    EXPECT_EQ(control.log, QStringList{u"DrawTo C:\\VAS2000\\VAS2000.JPG 1500x1000, 40"_s});
}

TEST_F(CopyMap, ThePreviewIsWhatIsSent)
{
    optMapAddendum_Click(desk, 1);
    QString shown;
    doubles.screens.Play([&](forms::Screen& screen) {
        auto& preview = dynamic_cast<frm_MapPreview&>(screen);
        shown = preview.Caption();
        const QByteArray file = home.disk.ReadWhole(u"C:\\VAS2000\\GENERAL.JPG"_s);
        EXPECT_EQ(preview.mapPreview.Picture().convertToFormat(QImage::Format_RGB32),
                  QImage::fromData(file).convertToFormat(QImage::Format_RGB32));
        EXPECT_TRUE(Sent().isEmpty());
        Q_EMIT preview.cmdSend.Clicked();
        EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\GENERAL.JPG"_s), file);
    });
    cmdPreviewMap_Click(desk);
    EXPECT_EQ(shown, u"Map Preview - General Map"_s);
    EXPECT_EQ(control.log.filter(u"DrawTo"_s).size(), 1) << "what was seen is sent, not drawn anew";
    ASSERT_EQ(Sent().size(), 1);
    EXPECT_TRUE(Sent()[0].contains(u"MAP_GENERAL_1"_s));

    doubles.screens.Play([&](forms::Screen& screen) {
        Q_EMIT dynamic_cast<frm_MapPreview&>(screen).cmdCancel.Clicked();
    });
    cmdPreviewMap_Click(desk);
    EXPECT_EQ(Sent().size(), 1);
}

TEST_F(CopyMap, WhatCannotBeDrawnIsNotSent)
{
    control.canDraw = false;
    cmdCopyMap_Click(desk);
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(doubles.prompter.Last().text, u"The map could not be drawn into C:\\VAS2000\\VAS2000.JPG, so nothing was "
                                            "sent. Is there room on the disk, and may it be written?"_s);
    EXPECT_FALSE(desk.state.working);
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(CopyMap, WithoutAReportThePictureStaysOnDisk)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, QString());
    cmdCopyMap_Click(desk);
    EXPECT_TRUE(Sent().isEmpty());
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VAS2000\\VAS2000.JPG"_s));
    EXPECT_FALSE(doubles.prompter.Boxes().empty()); // which was told
}

} // namespace

} // namespace vasclip::map
