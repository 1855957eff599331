#include "photos/capture_desk.h"
#include "photos/frm_copy_pics.h"
#include "photos/frm_gen_view.h"
#include "photos/frm_search_pics.h"
#include "photos/frm_trash.h"
#include "platform/files/profile.h"
#include "shell/main_home.h"
#include "support/unix.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QImage>
#include <QThread>

// What is on the main screen by group, and what the entries around programs and pictures lead to.

namespace vasclip::shell {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kIni = u"C:\\VAS2000.INI"_s;
const QString kSnap = u"C:\\SNAP\\"_s;

class MenuDispatch : public MainHome
{
protected:
    void SetUp() override
    {
        for (const QString& directory : {u"C:\\VAS2000"_s, u"C:\\SNAP"_s, u"C:\\KEL"_s, u"C:\\FLOPPY"_s,
                                         u"C:\\READER"_s, u"C:\\DISC"_s, u"C:\\PICS"_s})
            home.MakeDirs(directory);
        auto& g = main.globals;
        g.G_CaptureDir = kSnap;
        g.G_ProgramDir = g.G_UserDir = u"C:\\VAS2000\\"_s;
        g.G_PhotoDir = u"C:\\JPG\\"_s;
        g.kelAppDir = u"C:\\KEL\\"_s;
        g.floppy = u"C:\\FLOPPY\\"_s;
        g.reader = u"C:\\READER\\"_s;
        g.rom = u"C:\\DISC\\"_s;
        g.applicationIni = kIni;
        g.productName = u"Vasclip"_s;
        home.Put(kIni, "[DIRECTORIES]\r\nCAPTUREDIR=C:\\SNAP\r\n[GENERAL VIEWS]\r\nGENERALVIEW1=KITCHEN\r\n");
        conduit.running = false;
        Picture(kSnap + u"A.JPG"_s);
        main.ShowCapture();
    }
    template <class Condition>
    static bool Until(Condition&& condition)
    {
        const QDeadlineTimer limit(20'000);
        while (!condition() && !limit.hasExpired())
            QThread::msleep(10);
        return condition();
    }
};

TEST_F(MenuDispatch, EveryGroupHasItsControls)
{
    struct Group
    {
        const char* name;
        QString controls; ///< separated by blanks; "name:first-last" is an array
    };
    const Group groups[] = {
        {"source tabs", u"tabSource"_s},
        {"report tabs",
         u"TabData TabSubject TabComp TabListing TabRental TabGeneral imaSubject:1-3 imaComp:1-9 "
         u"imaAltComp:1-6 imaListing:1-6 imaRental:1-9 imaGeneral:1-36 txtcomp:1-9 txtaltcomp:1-6 "
         u"txtListing:1-6 txtRental:1-9 txtGeneralAddr:1-36"_s},
        {"add a comp", u"fraAddaComp lblAddingaComp txtcentralkey cboapprslType cmdAdd cmdCopy cmdDelete "
                       u"cmdRename cmdEdit cmdSearch cmdAddManual"_s},
        {"grid", u"grddatabook cmdPrint cmdRefresh cmdDetails lblDatabookADDR"_s},
        {"capture", u"filCapture geathumb:0-11 geaListBox lstimages lblCapture lblDirectory imaFolder "
                    u"imaTrashcan imaGetPics imaScroll:0-3"_s},
        {"other", u"lblmsg lstGenViews lblChangingDB"_s},
        {"menus", u"mnuFileItem mnuSetupItem mnuMaintItem mnuTransferItem mnuRefreshItem mnuDBItem "
                  u"mnuHelpItem popThumb_M popGrid_M popPicture_M popGeneral_M popTextData_M "
                  u"popPicAndData_M"_s},
    };
    for (const Group& group : groups) {
        for (const QString& entry : group.controls.split(u' ')) {
            const QString name = entry.section(u':', 0, 0);
            const QString range = entry.section(u':', 1);
            if (range.isEmpty()) {
                EXPECT_NE(main.controls.Find(name), nullptr) << group.name << ": " << name.toStdString();
                continue;
            }
            const int last = range.section(u'-', 1).toInt();
            for (int i = range.section(u'-', 0, 0).toInt(); i <= last; ++i)
                EXPECT_NE(main.controls.Find(name, i), nullptr)
                    << group.name << ": " << name.toStdString() << ' ' << i;
            EXPECT_EQ(main.controls.Find(name, last + 1), nullptr) << name.toStdString();
        }
    }
}

TEST_F(MenuDispatch, LaunchStartsTheFormsProgramInItsDirectoryAndReminds)
{
    VASCLIP_NEEDS_UNIX("a script that is a program");
    const QString noted = home.Native(u"noted"_s);
    const QString program = u"C:\\KEL\\Kel.exe"_s;
    home.Put(program, "#!/bin/sh\npwd > " + noted.toUtf8() + ".part; mv " + noted.toUtf8() + ".part " +
                          noted.toUtf8() + "\n");
    ASSERT_TRUE(QFile::setPermissions(home.disk.ToNative(program),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    main.mnuFileItem.Choose(u"mnuFileItem"_s, 0);
    ASSERT_TRUE(Until([&] { return QFile::exists(noted); }));
    QFile file(noted);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()).trimmed(), home.disk.ToNative(u"C:\\KEL"_s));
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(
        u"To LINK the active report to Vasclip\r\nREMEMBER: Click 'Refresh'"_s))
        << doubles.prompter.Last().text.toStdString();
}

TEST_F(MenuDispatch, ALaunchThatFailsSaysSo)
{
    main.mnuFileItem.Choose(u"mnuFileItem"_s, 0);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to Open Program"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Unable to Launch the Appraisal Program. Check to verify the "
                                            u"program is installed and functioning properly"_s);
}

TEST_F(MenuDispatch, EachSourceOfCopiesHasItsCaptionAndItsDirectoryAndTheViewFollows)
{
    const std::tuple<int, QString, QString> entries[] = {
        {2, u"Copy from Floppy to C:\\SNAP\\"_s, u"C:\\FLOPPY"_s},
        {3, u"Copy from Removal Media to C:\\SNAP\\"_s, u"C:\\READER"_s},
        {4, u"Copy from ROM drive to C:\\SNAP\\"_s, u"C:\\DISC"_s},
    };
    int pictures = 1;
    for (const auto& [entry, caption, directory] : entries) {
        main.globals.lastCopy.clear();
        doubles.screens.Play([&, wanted = caption, from = directory](forms::Screen& shown) {
            auto& screen = dynamic_cast<photos::frm_CopyPics&>(shown);
            EXPECT_EQ(screen.Caption(), wanted);
            EXPECT_EQ(screen.folders.Path().toUpper().chopped(screen.folders.Path().endsWith(u'\\')), from);
            Picture(kSnap + u"NEW%1.JPG"_s.arg(entry));
        });
        main.mnuFileItem.Choose(u"mnuFileItem"_s, entry);
        EXPECT_EQ(main.capture.filCapture.ListCount(), ++pictures) << entry;
    }
    EXPECT_EQ(doubles.screens.Shown(), QStringList(3, u"frm_CopyPics"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(MenuDispatch, EachExportWritesItsFileAndTellsHowToImportIt)
{
    home.MakeDirs(u"C:\\VAM"_s);
    main.globals.mapExportDir = u"C:\\VAM\\"_s;
    main.globals.mapExportFile = u"APPRAISAL.MDB"_s;
    main.globals.mapCase = true;
    store::MakeDatabase(engine, u"C:\\DATABOOK.MDB"_s);
    store::Connect2Databook(doubles.Get(), main.sources, u"C:\\DATABOOK.MDB"_s, u"COMPS"_s);
    main.addr.txtCompAddr(0).SetText(u"1 Main St"_s);
    main.addr.txtKelCity.SetText(u"Prattville"_s);
    main.addr.txtKelState.SetText(u"AL"_s);
    const auto choose = [this](int entry) {
        main.mnuFileItem.Choose(u"mnuFileItemSubExport"_s, entry);
        return main.status.lblmsg.Caption();
    };
    const auto written = [this] { return home.disk.ReadWhole(u"C:\\VAM\\appraisal.txt"_s); };
    EXPECT_EQ(choose(0), u"In Street Atlas USA, select File, Import Address Book, C:\\VAM\\Appraisal.txt"_s);
    EXPECT_EQ(written(), QByteArray("SUBJECT,1 MAIN ST,PRATTVILLE,AL,,\r\n"));
    choose(1);
    EXPECT_EQ(written(), QByteArray("\"SUBJECT\",\"1 MAIN ST\",\"PRATTVILLE\",\"AL\",\"\",\r\n"));
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAM\\APPRAISAL.MDB"_s));
    EXPECT_EQ(choose(3),
              u"In MS Streets, select Data, Import Data Wizard, Access (*.mdb's) C:\\VAM\\APPRAISAL.MDB"_s);
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VAM\\APPRAISAL.MDB"_s));
    EXPECT_EQ(choose(4), u"In MS Streets, select File, Import Data, Access (*.mdb's) C:\\VAM\\APPRAISAL.MDB"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(MenuDispatch, TheDirectoryThatWasFoundIsTheCaptureDirectoryFromNowOn)
{
    Picture(u"C:\\PICS\\P.JPG"_s);
    const auto choose = [](forms::Screen& shown) {
        auto& screen = dynamic_cast<photos::frm_SearchPics&>(shown);
        for (int i = 0; i < 4; ++i)
            screen.optSearch(i).SetValue(i == 3); // the whole drive
        screen.cmdSearch_Click();
        for (int line = 0; line < screen.lstdirectory2.ListCount(); ++line)
            if (screen.lstdirectory2.List(line).startsWith(u"C:\\PICS"_s))
                screen.lstdirectory2.SetListIndex(line);
    };
    doubles.screens.Play([](forms::Screen&) {});
    main.mnuFileItem.Choose(u"mnuFileItem"_s, 6);
    EXPECT_EQ(main.globals.G_CaptureDir, kSnap) << "nothing was chosen";

    doubles.screens.Play([&](forms::Screen& shown) {
        choose(shown);
        home.disk.Kill(u"C:\\PICS\\P.JPG"_s);
        home.disk.RmDir(u"C:\\PICS"_s);
    });
    main.mnuFileItem.Choose(u"mnuFileItem"_s, 6);
    EXPECT_EQ(main.globals.G_CaptureDir, kSnap) << "gone again meanwhile";

    home.MakeDirs(u"C:\\PICS"_s);
    Picture(u"C:\\PICS\\P.JPG"_s);
    doubles.screens.Play(choose);
    main.mnuFileItem.Choose(u"mnuFileItem"_s, 6);
    EXPECT_EQ(main.globals.G_CaptureDir.toUpper(), u"C:\\PICS\\"_s);
    EXPECT_EQ(files::GetPrivateProfileString(home.disk, u"DIRECTORIES"_s, u"CAPTUREDIR"_s, {}, kIni).toUpper(),
              u"C:\\PICS\\"_s);
    EXPECT_EQ(main.capture.filCapture.ListCount(), 1);
    EXPECT_EQ(main.capture.filCapture.List(0), u"P.JPG"_s);
}

TEST_F(MenuDispatch, TheTrashcanIsKeptAndTheViewFollows)
{
    doubles.screens.Play([this](forms::Screen& shown) {
        EXPECT_EQ(shown.Name(), u"frm_Trash"_s);
        Picture(kSnap + u"BACK.JPG"_s); // as a restored one
    });
    main.mnuMaintItem.Choose(u"mnuMaintItem"_s, 4);
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_Trash"_s});
    EXPECT_EQ(main.capture.filCapture.ListCount(), 2);
}

TEST_F(MenuDispatch, AnotherGeneralViewIsOfferedAtOnce)
{
    doubles.screens.Play([](forms::Screen& shown) {
        auto& screen = dynamic_cast<photos::frm_GenView&>(shown);
        screen.txtView.SetText(u"GARAGE"_s);
        Q_EMIT screen.cmdAddView.Clicked();
        Q_EMIT screen.cmdOK.Clicked();
    });
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 10);
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_GenView"_s});
    EXPECT_EQ(main.report.cboGeneral(1).Items(), (QStringList{u"KITCHEN"_s, u"GARAGE"_s}));
}

} // namespace
} // namespace vasclip::shell
