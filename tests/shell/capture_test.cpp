#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "photos/frm_camera_dir.h"
#include "platform/engine/database.h"
#include "shell/main_home.h"
#include "shell/menus.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>

namespace vasclip::shell {
namespace {

using namespace Qt::Literals::StringLiterals;

QStringList Captions(const QList<forms::MenuEntry>& entries)
{
    QStringList captions;
    for (const forms::MenuEntry& entry : entries)
        captions << entry.caption;
    return captions;
}

TEST(SlotMenus, HaveTheirEntriesInOrder)
{
    forms::ControlSet controls;
    const Menus menus(controls);
    EXPECT_EQ(Captions(menus.popThumb_M.Entries()), (QStringList{u"Delete Image"_s, u"-"_s, u"View Image Name"_s,
                                                     u"Compress Image"_s, u"-"_s, u"View Image Listbox"_s}));
    EXPECT_EQ(Captions(menus.popPicture_M.Entries()),
              (QStringList{u"Obtain Selected Photo (from databook)"_s,
                           u"Obtain 3 Shown Front Views (from databook)"_s, u"-"_s,
                           u"Clear Selected Photo from Appraisal"_s}));
    EXPECT_EQ(Captions(menus.popGeneral_M.Entries()), (QStringList{u"Obtain Selected Photo (from databook)"_s, u"-"_s,
                                                       u"Clear Selected Photo from Appraisal"_s}));
    EXPECT_EQ(menus.popGeneral_M.Entries()[0].toolTip, u"General Photos Come from the shown above"_s);
    EXPECT_EQ(Captions(menus.popTextData_M.Entries()),
              (QStringList{u"Obtain Data (from databook)"_s, u"Obtain Data: ALL 3 shown (from databook)"_s,
                           u"-"_s, u"Save Selected Data to Database"_s, u"-"_s, u"Swap in the Appraisal with"_s}));
    EXPECT_EQ(Captions(menus.popPicAndData_M.Entries()),
              (QStringList{u"Obtain Both Photo and Data (from databook)"_s,
                           u"Obtain Both Photo and Data: ALL 3 shown (from databook)"_s}));
}

/// The main screen over a capture directory of three pictures, with nobody at the other end of the link.
class CaptureTest : public MainHome
{
protected:
    const QString kSnap = u"C:\\SNAP\\"_s;

    void SetUp() override
    {
        for (const QString& directory : {u"C:\\VAS2000"_s, u"C:\\SNAP"_s, u"C:\\DATA"_s, u"C:\\CARD"_s})
            home.MakeDirs(directory);
        store::MakeDatabase(engine, u"C:\\DATA\\DATABOOK.MDB"_s);
        auto& g = main.globals;
        g.G_CaptureDir = kSnap;
        g.G_ProgramDir = g.G_UserDir = u"C:\\VAS2000\\"_s;
        g.G_PhotoDir = u"C:\\JPG\\"_s;
        g.applicationIni = u"C:\\VAS2000.INI"_s;
        g.productName = u"Vasclip"_s;
        g.imageFileNames = u"ON"_s;
        g.imageListBox = u"OFF"_s;
        conduit.running = false;
        for (const QString& name : {u"A.JPG"_s, u"B.JPG"_s, u"C.JPG"_s})
            Picture(kSnap + name);
        main.ShowCapture();
    }
    template <class Condition>
    static bool Until(Condition&& condition)
    {
        const QDeadlineTimer limit(60'000);
        while (!condition() && !limit.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return condition();
    }
    [[nodiscard]] bool Ticked(const forms::Menu& menu, int index) const
    {
        return menu.Entry(menu.Name(), index)->checked;
    }
};

TEST_F(CaptureTest, RealPicturesArrive)
{
    EXPECT_TRUE(Until([this] { return !main.capture.geathumb(2).Picture().isNull(); }));
    EXPECT_EQ(main.capture.lbltag(2).Caption(), u"C.JPG"_s);
}

TEST_F(CaptureTest, TheMenusFlipBothViewsAndTheirTicks)
{
    EXPECT_TRUE(Ticked(main.mnuSetupItem, 5));
    EXPECT_FALSE(Ticked(main.mnuSetupItem, 6));
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 5);
    EXPECT_EQ(main.globals.imageFileNames, u"OFF"_s);
    EXPECT_FALSE(main.capture.lbltag(0).Visible());
    EXPECT_FALSE(Ticked(main.mnuSetupItem, 5));
    EXPECT_FALSE(Ticked(main.popThumb_M, 2));
    main.popThumb_M.Choose(u"popThumb_M"_s, 2);
    EXPECT_TRUE(main.capture.lbltag(0).Visible());
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 6);
    EXPECT_EQ(main.globals.imageListBox, u"ON"_s);
    EXPECT_TRUE(main.capture.filCapture.Visible());
    EXPECT_TRUE(Ticked(main.popThumb_M, 5));
    main.popThumb_M.Choose(u"popThumb_M"_s, 5);
    EXPECT_FALSE(main.capture.filCapture.Visible());
}

TEST_F(CaptureTest, DeleteImageAsksAndDeletesForGood)
{
    EXPECT_EQ(main.MenuOver(main.capture.geathumb(1)), &main.popThumb_M);
    doubles.prompter.Answer(forms::Answer::No);
    main.popThumb_M.Choose(u"popThumb_M"_s, 0);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Permanently delete this photo (this is NOT sent to the trashcan).  Are you sure?"_s);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"B.JPG"_s));
    doubles.prompter.Answer(forms::Answer::Yes);
    main.popThumb_M.Choose(u"popThumb_M"_s, 0);
    EXPECT_FALSE(home.disk.FileExists(kSnap + u"B.JPG"_s));
    EXPECT_FALSE(home.disk.DirExists(kSnap + u"TRASHCAN"_s));
    EXPECT_EQ(main.capture.filCapture.ListCount(), 2);
    EXPECT_EQ(main.capture.lbltag(1).Caption(), u"C.JPG"_s);
}

TEST_F(CaptureTest, APressSelectsAndAPointerTellsTheSize)
{
    ASSERT_TRUE(Until([this] { return !main.capture.geathumb(1).Picture().isNull(); }));
    Q_EMIT main.capture.geathumb(1).Pressed();
    EXPECT_EQ(main.capture.filCapture.ListIndex(), 1);
    Q_EMIT main.capture.geathumb(1).Hovered();
    EXPECT_EQ(main.status.lblmsg.Caption(), u"Resolution: 16 x 12"_s);
}

TEST_F(CaptureTest, TheDirectoryIsChosenFromItsLabelTheFolderAndTheMenu)
{
    const auto choose = [](forms::Screen& shown) {
        auto& screen = dynamic_cast<photos::frm_CameraDir&>(shown);
        screen.dirCapture.SetListIndex(0);
        Q_EMIT screen.dirCapture.DoubleClicked();
        screen.dirCapture.SetListIndex(screen.dirCapture.IndexOf(u"CARD"_s));
        Q_EMIT screen.dirCapture.DoubleClicked();
        screen.cmdOK_Click();
    };
    doubles.screens.Play(choose);
    Q_EMIT main.capture.lblTab.Clicked();
    EXPECT_EQ(main.capture.lblTab.Caption(), u"C:\\CARD"_s);
    EXPECT_EQ(main.capture.filCapture.ListCount(), 0);
    doubles.screens.Play([](forms::Screen&) {});
    Q_EMIT main.capture.imaFolder.Clicked();
    doubles.screens.Play([](forms::Screen&) {});
    main.mnuMaintItem.Choose(u"mnuMaintItem"_s, 2);
    EXPECT_EQ(doubles.screens.Shown(), QStringList(3, u"frm_CameraDir"_s));
}

TEST_F(CaptureTest, PopupsOverSlotsKnowWhereTheyOpened)
{
    EXPECT_EQ(main.MenuOver(main.slots.imaSubject(2)), &main.popPicture_M);
    EXPECT_EQ(main.popPicture_M.Entry(u"popPicture_M"_s, 1)->caption,
              u"Obtain ALL 3 Subject Views(from databook)"_s);
    EXPECT_EQ(main.MenuOver(main.slots.imaRental(2)), &main.popPicture_M);
    EXPECT_EQ(main.popPicture_M.Entry(u"popPicture_M"_s, 1)->caption,
              u"Obtain 3 Shown Front Views (from databook)"_s);
    EXPECT_EQ(main.MenuOver(main.slots.imaGeneral(2)), &main.popGeneral_M);
    EXPECT_EQ(main.MenuOver(main.report.txtComp(2)), &main.popTextData_M);
    EXPECT_TRUE(main.popTextData_M.Entry(u"popTextData_M"_s, 0)->enabled);
    EXPECT_EQ(main.MenuOver(main.report.txtSubject), &main.popTextData_M);
    EXPECT_FALSE(main.popTextData_M.Entry(u"popTextData_M"_s, 0)->enabled);
    EXPECT_EQ(main.MenuOver(main.slots.geaListing(2)), &main.popPicAndData_M);
    EXPECT_EQ(main.MenuOver(main.capture.filCapture), &main.popThumb_M);
    for (const forms::Control* other : {static_cast<const forms::Control*>(&main.status.lblmsg),
                                        static_cast<const forms::Control*>(&main.records.txtcentralkey),
                                        static_cast<const forms::Control*>(&main.slots.imaCompIcon(1)),
                                        static_cast<const forms::Control*>(&main.capture.imaTrashcan)})
        EXPECT_EQ(main.MenuOver(*other), nullptr) << other->Name().toStdString();
}

TEST_F(CaptureTest, AMenuOverASlotHoldsThePhotoThatItShowed)
{
    const QString other = u"The slot shows another photo now than when its menu opened. Nothing was done."_s;
    for (forms::PictureBox* slot : {&main.slots.imaComp(2), &main.slots.imaGeneral(2)}) {
        main.Link().loader.ErrLoadThumb(*slot, kSnap + u"A.JPG"_s);
        forms::Menu* menu = main.MenuOver(*slot);
        ASSERT_NE(menu, nullptr);
        main.Link().loader.ErrLoadThumb(*slot, kSnap + u"B.JPG"_s);
        for (const forms::MenuEntry& entry : menu->Entries()) {
            if (entry.caption == u"-"_s)
                continue;
            main.status.lblmsg.Show({}, forms::Colour::Normal);
            menu->Choose(menu->Name(), entry.index);
            EXPECT_EQ(main.status.lblmsg.Caption(), other) << entry.caption.toStdString();
        }
        EXPECT_EQ(main.Link().loader.Table().ErrGetPict(*slot), kSnap + u"B.JPG"_s);
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CaptureTest, ADoubleClickOnAnEmptyPhotoBoxSaysSo)
{
    Q_EMIT main.slots.imaListing(3).DoubleClicked();
    EXPECT_EQ(doubles.prompter.Last().text, u"The photo box is empty."_s);
}

TEST_F(CaptureTest, AFileCanBeGivenToOtherPrograms)
{
    EXPECT_EQ(main.drags.Router().FileOf(main.capture.geathumb(0)), home.disk.ToNative(kSnap + u"A.JPG"_s));
    EXPECT_EQ(main.drags.Router().FileOf(main.capture.geathumb(5)), QString());
    EXPECT_EQ(main.drags.Router().FileOf(main.slots.imaComp(1)), QString());
    EXPECT_EQ(main.drags.Router().ImageOf(main.capture.geathumb(0)).size(), QSize(16, 12));
    EXPECT_TRUE(main.drags.Router().ImageOf(main.slots.imaComp(1)).isNull());
    home.disk.FileCopy(kSnap + u"A.JPG"_s, u"C:\\VAS2000\\Addendum_Full.bmp"_s);
    main.report.txtComp(1).SetText(u"12 Oak St"_s);
    main.Link().loader.ErrLoadPict(main.slots.geaComp(1), u"C:\\VAS2000\\Addendum_Full.bmp"_s);
    ASSERT_TRUE(main.drags.Router().IsSource(main.slots.geaComp(1)));
    EXPECT_EQ(main.drags.Router().FileOf(main.slots.geaComp(1)), QString()) << "a lamp is no picture";
}

TEST_F(CaptureTest, ADragHasTheIconsOfTheProgramDirectory)
{
    EXPECT_TRUE(main.drags.Router().DragIcon().isNull()) << "without them the desktop's own";
    for (const auto& [name, colour] : {std::pair{u"HandPict.Ico"_s, Qt::red}, {u"DropPict.Ico"_s, Qt::blue}}) {
        QImage icon(16, 16, QImage::Format_ARGB32);
        icon.fill(colour);
        ASSERT_TRUE(icon.save(home.disk.ToNative(u"C:\\VAS2000\\"_s + name), "ico"));
    }
    (void)main.drags.Router().Start(main.capture.geathumb(0));
    EXPECT_EQ(main.drags.Router().DragIcon().pixelColor(8, 8), QColor(Qt::red));
    main.drags.Router().DragOver(u"geathumb"_s, u"imaComp"_s);
    EXPECT_EQ(main.drags.Router().DragIcon().pixelColor(8, 8), QColor(Qt::blue));
}

TEST_F(CaptureTest, AFolderThatIsDroppedIsRefusedInWords)
{
    main.drags.Router().DropFiles({home.disk.ToNative(kSnap)}, main.slots.imaComp(1));
    EXPECT_EQ(main.status.lblmsg.Caption(), u"Only picture files can be dropped here, no folders."_s);
    EXPECT_EQ(main.status.lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(CaptureTest, BothPhotoListsFollowEachOther)
{
    for (const QString& view : {u"FRONT VIEW"_s, u"REAR VIEW"_s}) {
        main.photoLists.lstViews.AddItem(view);
        main.photoLists.lstimages.AddItem(u"STEM"_s);
    }
    main.photoLists.lstimages.SetListIndex(1);
    EXPECT_EQ(main.photoLists.lstViews.ListIndex(), 1);
    EXPECT_EQ(main.photoLists.txtView.Text(), u"REAR VIEW"_s);
    main.photoLists.lstViews.SetListIndex(0);
    EXPECT_EQ(main.photoLists.lstimages.ListIndex(), 0);
}

} // namespace
} // namespace vasclip::shell
