#include "photos/frm_camera_dir.h"

#include "platform/files/profile.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class CameraDirTest : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    common::Globals globals;
    std::unique_ptr<frm_CameraDir> screen;

    void SetUp() override
    {
        for (const QString& place : {u"C:\\SNAP\\JUNE"_s, u"C:\\SNAP\\MAY"_s, u"C:\\CARD"_s})
            home.MakeDirs(place);
        globals.G_CaptureDir = u"C:\\SNAP\\"_s;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        home.Put(globals.applicationIni,
                 "[DIRECTORIES]\r\nCAPTUREDIR=C:\\CARD\r\n[CAMERADIRECTORIES]\r\nCAMERADIRECTORY1=C:\\CARD\\\r\n"
                 "CAMERADIRECTORY2=C:\\SNAP\\\r\nCAMERADIRECTORY4=C:\\LOST\\\r\n");
    }
    void Open()
    {
        screen = std::make_unique<frm_CameraDir>(doubles.Get(), home.disk, globals, u"C:\\VAS2000\\"_s);
        screen->Open();
    }
    QString Ini(const QString& section, const QString& key)
    {
        return files::GetPrivateProfileString(home.disk, section, key, u"-"_s, globals.applicationIni);
    }
    void Enter(const QString& line)
    {
        const int row = screen->dirCapture.IndexOf(line);
        ASSERT_GE(row, 0) << line.toStdString();
        screen->dirCapture.SetListIndex(row);
        Q_EMIT screen->dirCapture.DoubleClicked();
    }
};

TEST_F(CameraDirTest, OpensOnTheCaptureDirectoryWithItsFavouriteSelected)
{
    Open();
    EXPECT_EQ(screen->Caption(), u"Current Camera Folder"_s);
    EXPECT_EQ(screen->DrvCapture.Text(), u"C:"_s);
    EXPECT_EQ(screen->dirCapture.Items(), (QStringList{u"C:\\"_s, u"  SNAP"_s, u"    JUNE"_s, u"    MAY"_s}));
    EXPECT_EQ(screen->dirCapture.ListIndex(), 1);
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\SNAP\\"_s);
    EXPECT_EQ(screen->lstFavorites.Items(), (QStringList{u"C:\\CARD\\"_s, u"C:\\SNAP\\"_s}))
        << "reading stops at the first missing key";
    EXPECT_EQ(screen->lstFavorites.ListIndex(), 1);
    EXPECT_EQ(screen->cmdSetDefault.Caption(), u"Set Default to Current Path"_s);
    EXPECT_EQ(screen->cmdRevDefault.Caption(), u"Revert to Previous Default"_s);
    EXPECT_EQ(screen->cmdFavorites.Caption(), u"&Add Current Path to Favorites"_s);
    EXPECT_EQ(screen->cmdDelFavorite.Caption(), u"&Delete Selected from Favorites"_s);
}

TEST_F(CameraDirTest, GoesDownAndUpByDoubleClick)
{
    Open();
    Enter(u"JUNE"_s);
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\SNAP\\JUNE\\"_s);
    screen->dirCapture.SetListIndex(0);
    Q_EMIT screen->dirCapture.DoubleClicked();
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\"_s);
    Enter(u"CARD"_s);
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\CARD\\"_s);
}

TEST_F(CameraDirTest, OkTakesThePathForThisRunAndSavesTheFavourites)
{
    Open();
    Enter(u"JUNE"_s);
    screen->cmdFavorites_Click();
    screen->cmdOK_Click();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_TRUE(screen->Changed());
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\SNAP\\JUNE\\"_s);
    EXPECT_EQ(Ini(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\CARD"_s) << "the default stays";
    EXPECT_EQ(Ini(u"CAMERADIRECTORIES"_s, u"CAMERADIRECTORY3"_s), u"C:\\SNAP\\JUNE\\"_s);
    EXPECT_EQ(Ini(u"CAMERADIRECTORIES"_s, u"CAMERADIRECTORY4"_s), u"-"_s);
}

TEST_F(CameraDirTest, CancelChangesNothing)
{
    const QByteArray before = home.disk.ReadWhole(globals.applicationIni);
    Open();
    Enter(u"JUNE"_s);
    screen->cmdFavorites_Click();
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_FALSE(screen->Changed());
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\SNAP\\"_s);
    EXPECT_EQ(home.disk.ReadWhole(globals.applicationIni), before);
}

TEST_F(CameraDirTest, AFavouriteOfAnotherCaseStaysSingle)
{
    Open();
    screen->cmdFavorites_Click();
    EXPECT_EQ(screen->lstFavorites.ListCount(), 2);
    Enter(u"MAY"_s);
    screen->cmdFavorites_Click();
    screen->cmdFavorites_Click();
    EXPECT_EQ(screen->lstFavorites.List(2), u"C:\\SNAP\\MAY\\"_s);
    EXPECT_EQ(screen->lstFavorites.ListCount(), 3);
    screen->lstFavorites.SetItem(2, u"c:\\snap\\may\\"_s);
    screen->cmdFavorites_Click();
    EXPECT_EQ(screen->lstFavorites.ListCount(), 3);
}

TEST_F(CameraDirTest, AFavouriteIsDeletedAfterAQuestion)
{
    Open();
    doubles.prompter.Answer(forms::Answer::No);
    screen->cmdDelFavorite_Click();
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete from Favorites.  Are you sure?"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(screen->lstFavorites.ListCount(), 2);
    doubles.prompter.Answer(forms::Answer::Yes);
    screen->cmdDelFavorite_Click();
    EXPECT_EQ(screen->lstFavorites.Items(), QStringList{u"C:\\CARD\\"_s});
    screen->lstFavorites.SetListIndex(-1);
    screen->cmdDelFavorite_Click();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << "without a selection nothing is asked";
}

TEST_F(CameraDirTest, TheDefaultIsSetAndRevertedTo)
{
    Open();
    screen->cmdRevDefault_Click();
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\CARD\\"_s);
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\SNAP\\"_s);
    Enter(u"C:\\"_s);
    Enter(u"SNAP"_s);
    Enter(u"MAY"_s);
    screen->cmdSetDefault_Click();
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\SNAP\\MAY\\"_s);
    EXPECT_EQ(Ini(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\SNAP\\MAY\\"_s);
    EXPECT_TRUE(screen->Changed());
}

TEST_F(CameraDirTest, WithoutADefaultTheProgramsDriveHasIt)
{
    home.Put(globals.applicationIni, "[DIRECTORIES]\r\n");
    home.MakeDirs(u"C:\\VASSNAP"_s);
    Open();
    screen->cmdRevDefault_Click();
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\VASSNAP\\"_s);
}

TEST_F(CameraDirTest, AClickOnAFavouriteGoesThereAndADoubleClickTakesIt)
{
    Open();
    screen->lstFavorites.SetListIndex(0);
    Q_EMIT screen->lstFavorites.Clicked();
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\CARD\\"_s);
    EXPECT_TRUE(screen->IsOpen());
    Q_EMIT screen->lstFavorites.DoubleClicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(globals.G_CaptureDir, u"C:\\CARD\\"_s);
}

TEST_F(CameraDirTest, AFavouriteThatIsGoneIsToldAndNotTaken)
{
    home.disk.RmDir(u"C:\\CARD"_s);
    Open();
    screen->lstFavorites.SetListIndex(0);
    Q_EMIT screen->lstFavorites.DoubleClicked();
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(doubles.prompter.Last().text, u"C:\\CARD\\ is not there or can't be read."_s);
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\SNAP\\"_s);
}

TEST_F(CameraDirTest, ADriveThatFailsLeavesThePreviousOne)
{
    home.disk.MkDir(u"C:\\GONE"_s);
    home.disk.WriteWhole(u"C:\\X"_s, "x");
    QFile drives(home.disk.Home() + u"/drives.ini"_s);
    ASSERT_TRUE(drives.open(QIODevice::WriteOnly));
    drives.write(QString(u"[DRIVES]\r\nE="_s + home.Native(u"drive_c/GONE"_s) + u"\r\n"_s).toUtf8());
    drives.close();
    const files::Disk disk(home.disk.Home());
    frm_CameraDir other(doubles.Get(), disk, globals, u"C:\\VAS2000\\"_s);
    other.Open();
    ASSERT_GE(other.DrvCapture.IndexOf(u"E:"_s), 0);
    home.disk.RmDir(u"C:\\GONE"_s);
    other.DrvCapture.SetListIndex(other.DrvCapture.IndexOf(u"E:"_s));
    EXPECT_EQ(other.DrvCapture.Text(), u"C:"_s);
    EXPECT_EQ(other.lbldirectory.Caption(), u"C:\\SNAP\\"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"E:\\ is not there or can't be read."_s);
}

TEST_F(CameraDirTest, ACardThatWasPulledOutShowsItsDriveOrTheFirst)
{
    globals.G_CaptureDir = u"Q:\\DCIM\\"_s;
    Open();
    EXPECT_EQ(screen->lbldirectory.Caption(), u"C:\\"_s);
    EXPECT_EQ(screen->lstFavorites.ListIndex(), -1);
}

} // namespace
} // namespace vasclip::photos
