#include "link/report_check.h"

#include "desk_test.h"
#include "link/drop_comp.h"
#include "link/frm_attach_city.h"
#include "link/general_text.h"
#include "link/refresh.h"
#include "link/slot_photos.h"
#include "link/transfer.h"
#include "platform/picture/picture.h"

// The tabs mirror SMITH; the user brings JONES to the front of the forms program.

namespace vasclip::link {
namespace {

class OtherReport : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"1850"_s}});
        for (const QString& group : {u"SALE"_s, u"ALT"_s, u"LIST"_s, u"RENT"_s})
            Map({u"UA5"_s, u"PAGE1"_s, u"GLA"_s, u"12"_s, u"3"_s, group, u"1"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE1"_s, u"ADDRESS"_s, u"11"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        ini = {{u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GENP"_s}, {u"3X5_PHOTO_PAGES/GENERAL_DATA_1"_s, u"3|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_ADDR_1"_s, u"4|1"_s}};
        for (const QString& name : {u"recalc.bas"_s, u"refresh.bas"_s, u"CITYPLUS.BAS"_s})
            Script(name);
        OpenReport(u"JONES"_s, u"UA5,SUBPHOTO,"_s);
        OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO,"_s);
        addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
        addr.txtFormType.SetText(u"UA5"_s);
        state.linkActive = true;
    }
    void BringJonesToTheFront()
    {
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
    }
    /// One road that would send or read for SMITH while JONES is active.
    void ExpectNothingSent(const std::function<void()>& road, const char* name)
    {
        BringJonesToTheFront();
        conduit.pokes.clear();
        conduit.commands.clear();
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Cancel);
        road();
        EXPECT_TRUE(conduit.pokes.isEmpty()) << name;
        EXPECT_TRUE(conduit.commands.isEmpty()) << name << ": " << conduit.commands.join(u' ').toStdString();
        ASSERT_EQ(doubles.prompter.Boxes().size(), 1U) << name;
        EXPECT_EQ(doubles.prompter.Last().title, u"Another report is active"_s) << name;
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"The forms program has JONES active now, but the tabs show SMITH. Nothing has been "
                  u"sent.\r\n\r\nRefresh the tabs from JONES?"_s)
            << name;
        EXPECT_EQ(addr.txtKelReport.Text(), u"SMITH"_s) << name;
    }
};

TEST_F(OtherReport, StopsEveryRoadBeforeAWordIsSent)
{
    report.txtComp(1).SetText(u"12 Oak St"_s);
    loader.ErrLoadThumb(slots.imaComp(1), u"C:\\JPG\\OAK.jpg"_s);
    ExpectNothingSent([&] { DropComp(desk, {Group::Sales, 1}, u"12 OAK ST"_s); }, "drop");
    ExpectNothingSent([&] { DropComp(desk, {Group::Sales, 1}, u"12 OAK ST"_s, 3); }, "swap");
    ExpectNothingSent([&] { KelSendSlotPhoto(desk, slots.imaComp(1), slots.imaComp(1), 1); }, "picture");
    ExpectNothingSent([&] { ClearSlotPhoto(desk, slots.imaComp(1), false); }, "clear");
    ExpectNothingSent([&] { cboGeneral_Click(desk, 1); }, "general text");
    ExpectNothingSent([&] { TransferComps(desk, true, 0, What::Data); }, "transfer");
    ExpectNothingSent(
        [&] {
            frm_AttachCity screen(desk, u"COMP"_s, u"12 OAK ST"_s);
            screen.Open();
            screen.End();
        },
        "city screen");
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(OtherReport, SoMayTheyGoOnWhereTheTabsShowTheActiveOne)
{
    EXPECT_EQ(DropComp(desk, {Group::Sales, 1}, u"12 OAK ST"_s).outcome, DropOutcome::Sent);
    EXPECT_NE(KelSendSlotPhoto(desk, slots.imaComp(1), slots.imaComp(1), 1), SlotSend::Failed);
    cboGeneral_Click(desk, 1);
    EXPECT_EQ(Poked().size(), 4) << Poked().join(u' ').toStdString();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(OtherReport, ThatComesToTheFrontWhileTheOverwriteIsAskedIsLeftAlone)
{
    report.txtComp(1).SetText(u"99 Other St"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Cancel);
    // The first word of the drop is the question's; by the time it is answered JONES is in front.
    conduit.before = [this](const QString& entry) {
        if (entry == u"text "_s)
            BringJonesToTheFront();
    };
    EXPECT_EQ(DropComp(desk, {Group::Sales, 1}, u"12 OAK ST"_s).outcome, DropOutcome::OtherReport);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_EQ(state.notSent, u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
}

TEST_F(OtherReport, ThatComesToTheFrontWhileTheClearingIsAskedLeavesTheSlotAsItIs)
{
    picture::SaveJpeg(home.disk, QImage(20, 30, QImage::Format_RGB32), u"C:\\JPG\\OAK.jpg"_s, 90);
    loader.ErrLoadThumb(slots.imaComp(1), u"C:\\JPG\\OAK.jpg"_s);
    int hidden = 0;
    QObject::connect(&slots.imaComp(1), &forms::Control::Changed, &slots.imaComp(1),
                     [&] { hidden += slots.imaComp(1).Picture().isNull() ? 1 : 0; });
    BringJonesToTheFront();
    doubles.prompter.Answer(forms::Answer::Yes); // clear it
    doubles.prompter.Answer(forms::Answer::Cancel); // no refresh
    EXPECT_FALSE(ClearSlotPhoto(desk, slots.imaComp(1), true));
    EXPECT_EQ(state.notSent, u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(hidden, 0) << "nor does it go for a moment";
    EXPECT_TRUE(conduit.commands.isEmpty());

    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_FALSE(ClearSlotPhoto(desk, slots.imaComp(1), true));
    EXPECT_EQ(state.notSent, u"No report is open in Korvat Forms, so nothing was sent."_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(OtherReport, IsReadWhenTheUserWantsIt)
{
    conduit.Answer(u"KEL|JONES"_s, u"PAGE1|11|3"_s, u"7 Elm St"_s);
    BringJonesToTheFront();
    doubles.prompter.Answer(forms::Answer::Ok);
    const ReportCheck check = CheckReport(desk);
    EXPECT_EQ(check.is, ReportIs::Another);
    EXPECT_EQ(check.words, u"The tabs show JONES now. Nothing was sent."_s);
    EXPECT_EQ(addr.txtKelReport.Text(), u"JONES"_s);
    EXPECT_EQ(report.txtComp(1).Text(), u"7 Elm St"_s);
    EXPECT_TRUE(CheckReport(desk).Stands());
}

TEST_F(OtherReport, ThatTheTabsWereNeverReadFromIsNotWrittenBlind)
{
    addr.txtKelReport.SetText({});
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_EQ(CheckReport(desk).words,
              u"Nothing was sent: the tabs have not been read from SMITH, which is active in the forms program."_s);
}

TEST_F(OtherReport, IsAskedAboutOnceWhileSomebodyTypes)
{
    BringJonesToTheFront();
    doubles.prompter.Answer(forms::Answer::Cancel);
    for (const QString& typed : {u"K"_s, u"Ki"_s, u"Kit"_s}) {
        report.cboGeneral(1).SetText(typed);
        cboGeneral_Change(desk, 1);
        EXPECT_EQ(status.lblmsg.Caption(),
                  u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    }
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,JONES,"_s);
    cboGeneral_Change(desk, 1);
    EXPECT_EQ(Poked(), QStringList{u"GENP|3|1=Kit"_s});
    BringJonesToTheFront();
    doubles.prompter.Answer(forms::Answer::Cancel);
    cboGeneral_Change(desk, 1);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << "a new change of the report is a new question";
}

TEST_F(OtherReport, NoneAtAllIsSaid)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    EXPECT_EQ(CheckReport(desk).words, u"No report is open in Korvat Forms, so nothing was sent."_s);
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH"_s);
    EXPECT_EQ(CheckReport(desk).words, u"The forms program lists its open reports as \"SMITH\", without a comma: which one "
                                       u"is in front is not known, so nothing was sent."_s);
    conduit.running = false;
    EXPECT_EQ(CheckReport(desk).words, u"Korvat Forms is not running, so nothing was sent."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

} // namespace
} // namespace vasclip::link
