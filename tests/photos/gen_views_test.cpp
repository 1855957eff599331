#include "photos/gen_views.h"

#include "common/ini_list.h"
#include "photos/frm_gen_view.h"
#include "platform/files/profile.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class GenViews : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    common::Globals globals;
    SlotTable table;
    SlotLoader loader{home.disk, ports, table};
    const QString picture = u"C:\\VASSNAP\\A.JPG"_s;

    void SetUp() override
    {
        globals.applicationIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
        home.Put(globals.applicationIni, "[GENERAL VIEWS]\r\nGENERALVIEW1=KITCHEN\r\nGENERALVIEW2=GARAGE\r\n"
                                         "GENERALVIEW4=UNREACHED\r\n");
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        home.Put(picture);
        ASSERT_TRUE(image.save(home.disk.ToNative(picture), "JPG"));
    }
    [[nodiscard]] QStringList Stored() const
    {
        forms::ControlSet set;
        forms::ListBox list(set, u"lst"_s);
        common::LoadList(list, home.disk, common::GeneralViews(globals));
        return list.Items();
    }
    std::unique_ptr<frm_GenView> Opened(const QString& path, const QString& proposal = {})
    {
        auto screen = std::make_unique<frm_GenView>(ports, home.disk, globals, loader, path, proposal);
        screen->Open();
        return screen;
    }
};

TEST_F(GenViews, TheButtonsSayWhatTheyDo)
{
    const auto screen = Opened(picture);
    EXPECT_EQ(screen->Caption(), u"Select The View"_s);
    EXPECT_EQ(screen->cmdAddView.Caption(), u"Add View to List"_s);
    EXPECT_EQ(screen->cmdDelView.Caption(), u"Delete View From List"_s);
}

TEST_F(GenViews, FillTheBoxesOfTheGeneralPages)
{
    forms::ControlSet set;
    forms::ListBox views(set, u"lstGenViews"_s);
    const forms::ControlArray<forms::ComboBox> boxes(set, u"cboGeneral"_s, 1, 3);
    views.AddItem(u"OLD"_s);
    boxes(1).AddItem(u"OLD"_s);
    boxes(2).SetText(u"GARAGE"_s);
    boxes(3).SetText(u"attic, typed"_s);
    int events = 0;
    for (int i = 1; i <= 3; ++i) {
        QObject::connect(&boxes(i), &forms::ComboBox::TextChanged, [&] { ++events; });
        QObject::connect(&boxes(i), &forms::ListBox::ListIndexChanged, [&] { ++events; });
    }
    AddGenViews2CBO(views, boxes, home.disk, globals);
    const QStringList wanted{u"KITCHEN"_s, u"GARAGE"_s};
    EXPECT_EQ(views.Items(), wanted) << "the first missing key ends the list";
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(boxes(i).Items(), wanted) << i;
    EXPECT_EQ(boxes(2).Text(), u"GARAGE"_s);
    EXPECT_EQ(boxes(2).ListIndex(), 1);
    EXPECT_EQ(boxes(3).Text(), u"attic, typed"_s);
    EXPECT_EQ(boxes(3).ListIndex(), -1);
    EXPECT_EQ(events, 0) << "an event would send the text to the report";
}

TEST_F(GenViews, TheDialogProposesAndTakesAView)
{
    const auto screen = Opened(picture, u"Front view"_s);
    EXPECT_EQ(screen->Caption(), u"Select The View"_s);
    EXPECT_EQ(screen->lblViews.Caption(), u"Select the view for this photo or type one in and select 'OK'."_s);
    EXPECT_EQ(screen->txtView.Text(), u"Front view"_s) << "as it was given";
    EXPECT_EQ(screen->lstViews.Items(), (QStringList{u"KITCHEN"_s, u"GARAGE"_s}));
    EXPECT_TRUE(screen->geaPreview.Visible());
    EXPECT_EQ(screen->geaPreview.Picture().size(), QSize(40, 30));
    screen->txtView.SetText(u"back yard"_s);
    EXPECT_EQ(screen->txtView.Text(), u"BACK YARD"_s);
    screen->lstViews.SetListIndex(1);
    EXPECT_EQ(screen->txtView.Text(), u"GARAGE"_s);
    Q_EMIT screen->imaOK.Clicked();
    EXPECT_FALSE(screen->IsOpen());
    screen->End();
    EXPECT_EQ(screen->View(), u"GARAGE"_s);
    EXPECT_FALSE(screen->ListChanged());
}

TEST_F(GenViews, WhatNoRecordCanHoldIsCleanedAndToldAtOnce)
{
    home.Put(globals.applicationIni, "[GENERAL VIEWS]\r\nGENERALVIEW1=POOL|DECK\r\n");
    auto screen = Opened(picture, u"SHED|2"_s);
    EXPECT_EQ(screen->txtView.Text(), u"SHED 2"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"A view's name can't hold \"|\" or a line break; it is \"SHED 2\" now."_s);
    EXPECT_EQ(screen->lstViews.Items(), QStringList{u"POOL DECK"_s}) << "of a settings file from elsewhere";
    screen->txtView.SetText(u"BARN"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), QString());
    screen->txtView.SetText(u"barn|"_s);
    EXPECT_EQ(screen->txtView.Text(), u"BARN "_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"A view's name can't hold \"|\" or a line break; it is \"barn\" now."_s);
    screen->cmdAddView_Click();
    EXPECT_EQ(screen->lstViews.Items(), (QStringList{u"POOL DECK"_s, u"BARN"_s}));
    screen->cmdOK_Click();
    EXPECT_EQ(screen->View(), u"BARN "_s);
}

TEST_F(GenViews, TheDialogNamesWhatThePictureBelongsTo)
{
    photos::frm_GenView screen(doubles.Get(), home.disk, globals, loader, picture, u"FRONT VIEW"_s, u"12 OAK ST"_s);
    screen.Open();
    EXPECT_EQ(screen.lblWhose.Caption(), u"12 OAK ST"_s);
    EXPECT_TRUE(screen.lblWhose.Visible());
    EXPECT_FALSE(Opened({})->lblWhose.Visible());
}

TEST_F(GenViews, AnEmptyListStillOffersGeneralView)
{
    home.Put(globals.applicationIni, "");
    const auto screen = Opened(picture, u"  "_s);
    EXPECT_EQ(screen->lstViews.ListCount(), 0);
    EXPECT_EQ(screen->txtView.Text(), u"GENERAL VIEW"_s);
    screen->cmdOK_Click();
    EXPECT_EQ(screen->View(), u"GENERAL VIEW"_s);
}

TEST_F(GenViews, CancelAndABlankViewAnswerNothing)
{
    auto screen = Opened(picture, u"FRONT VIEW"_s);
    Q_EMIT screen->cmdCancel.Clicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(screen->View(), QString());
    screen = Opened(picture, u"FRONT VIEW"_s);
    Q_EMIT screen->imaCancel.Clicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(screen->View(), QString());
    screen = Opened(picture, u"FRONT VIEW"_s);
    screen->txtView.SetText(u"  "_s);
    screen->cmdOK_Click();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(screen->View(), QString());
}

TEST_F(GenViews, ADoubleClickOnARowTakesIt)
{
    const auto screen = Opened(picture);
    screen->lstViews.SetListIndex(0);
    Q_EMIT screen->lstViews.DoubleClicked();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(screen->View(), u"KITCHEN"_s);
}

TEST_F(GenViews, WithoutAPictureTheListIsKept)
{
    auto screen = Opened({});
    EXPECT_FALSE(screen->geaPreview.Visible());
    EXPECT_EQ(screen->lblViews.Caption(),
              u"Type a new view and select 'ADD'  - OR - Highlight view from list and select 'DELETE'."_s);
    EXPECT_EQ(screen->txtView.Text(), QString());
    screen->cmdAddView_Click();
    EXPECT_EQ(screen->lblmsg.Caption(), u"Type a view first."_s);
    screen->txtView.SetText(u" deck "_s);
    Q_EMIT screen->imaAdd.Clicked();
    EXPECT_EQ(screen->lstViews.Items(), (QStringList{u"KITCHEN"_s, u"GARAGE"_s, u"DECK"_s}));
    screen->txtView.SetText(u"Kitchen"_s);
    Q_EMIT screen->cmdAddView.Clicked();
    EXPECT_EQ(screen->lstViews.ListCount(), 3) << "views that differ in case are one";
    EXPECT_EQ(screen->lblmsg.Caption(), u"KITCHEN is in the list already."_s);
    EXPECT_EQ(Stored().size(), 2) << "it is written when the window goes";
    screen->Unload();
    screen->End();
    EXPECT_EQ(Stored(), (QStringList{u"KITCHEN"_s, u"GARAGE"_s, u"DECK"_s}));

    screen = Opened({});
    screen->lstViews.SetListIndex(0);
    Q_EMIT screen->imaDelView.Clicked();
    EXPECT_EQ(screen->lstViews.Items(), (QStringList{u"GARAGE"_s, u"DECK"_s}));
    screen->lstViews.SetListIndex(0);
    screen->txtView.SetText(u"DECK"_s);
    Q_EMIT screen->cmdDelView.Clicked();
    EXPECT_EQ(screen->lstViews.ListCount(), 0) << "the typed one and the highlighted one";
    screen->txtView.SetText({});
    screen->cmdDelView_Click();
    EXPECT_EQ(screen->lblmsg.Caption(), u"Highlight a view in the list first."_s);
    screen->Unload();
    screen->End();
    EXPECT_TRUE(Stored().isEmpty());
    EXPECT_EQ(files::ProfileKeys(home.disk, u"GENERAL VIEWS"_s, globals.applicationIni), QStringList());
}

TEST_F(GenViews, AListThatCannotBeWrittenIsTold)
{
    home.disk.SetAttr(globals.applicationIni, files::ReadOnly);
    const auto screen = Opened({});
    screen->txtView.SetText(u"DECK"_s);
    screen->cmdAddView_Click();
    screen->Unload();
    screen->End();
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The list of general views could not be written to C:\\APPRAISE\\VAS2000.INI, which still holds the "
              u"old one. Check that the file may be changed and that the disk has room."_s);
    EXPECT_EQ(Stored(), (QStringList{u"KITCHEN"_s, u"GARAGE"_s}));
}

} // namespace
} // namespace vasclip::photos
