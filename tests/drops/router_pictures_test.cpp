#include "router_home.h"

#include "drops/view_rule.h"
#include "link/slot_icons.h"
#include "link/transfer.h"

namespace vasclip::drops {
namespace {

class PicturesTest : public RouterTest
{};

// ---- starting a drag -----------------------------------------------------------------------------------

TEST_F(PicturesTest, AThumbnailIsSelectedAndItsFileDragged)
{
    Browse();
    const Drag drag = router.Start(controls.geathumb(2));
    EXPECT_EQ(controls.filCapture.ListIndex(), 2);
    EXPECT_EQ(drag.picture.path, kSnap + u"C.JPG"_s);
    EXPECT_EQ(router.State().DragSource, u"THUMB"_s);
    EXPECT_EQ(router.State().DraggedPicture, kSnap + u"C.JPG"_s);
    EXPECT_TRUE(router.IsSource(controls.geathumb(2)));
    EXPECT_FALSE(router.IsSource(controls.geathumb(3)));
}

TEST_F(PicturesTest, TheListDragsItsSelectedFile)
{
    globals.imageListBox = u"ON"_s;
    Browse();
    // A press highlights a row; where it becomes a drag, no click comes.
    controls.filCapture.SetListIndex(1);
    for (const forms::Control* source : {static_cast<const forms::Control*>(&controls.filCapture),
                                         static_cast<const forms::Control*>(&controls.geaListBox)}) {
        EXPECT_TRUE(router.IsSource(*source));
        EXPECT_EQ(router.Start(*source).picture.path, kSnap + u"B.JPG"_s);
        EXPECT_EQ(router.State().DragSource, u"FILCAPTURE"_s);
    }
}

TEST_F(PicturesTest, ReportSlotsStartWithAFileOrATextAlone)
{
    EXPECT_FALSE(router.IsSource(slots.imaComp(2)));
    EXPECT_FALSE(router.IsSource(report.txtComp(2)));
    EXPECT_FALSE(router.IsSource(slots.geaComp(2)));
    EXPECT_FALSE(router.IsSource(slots.imaCompIcon(2)));
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\OAK.jpg"_s);
    report.txtComp(2).SetText(u"12 Oak St"_s);
    EXPECT_TRUE(router.IsSource(slots.imaComp(2)));
    EXPECT_TRUE(router.IsSource(report.txtComp(2)));
    EXPECT_TRUE(router.IsSource(slots.geaComp(2)));
    EXPECT_FALSE(router.IsSource(status.lblmsg));
    const Drag drag = router.Start(slots.imaComp(2), forms::kShiftMask);
    EXPECT_EQ(drag.picture.path, u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(router.State().DragSource, u"KEL"_s);
    EXPECT_EQ(router.State().DragIndex, 2);
    EXPECT_EQ(router.State().DragShift, forms::kShiftMask);
    (void)router.Start(report.txtComp(2));
    EXPECT_EQ(router.State().DraggedPicture, QString());
    txtMapAddress.SetText(u" 12 oak st "_s);
    EXPECT_EQ(router.Start(txtMapAddress).key, u"12 OAK ST"_s);
    EXPECT_EQ(router.State().DragSource, u"THUMB"_s);
}

TEST_F(PicturesTest, ADragBeginsWithTheHandAndItsIconFollowsWhatItHoversOver)
{
    Browse();
    const auto icon = [this] { return router.State().DragIcon; };
    (void)router.Start(controls.geathumb(0));
    EXPECT_EQ(icon(), DragIcon::Hand);
    router.TargetDragOverKel(u"geathumb"_s, u"imaComp"_s);
    EXPECT_EQ(icon(), DragIcon::Drop);
    router.TargetDragOverKel({}, {});
    EXPECT_EQ(icon(), DragIcon::Drop) << "the hand does not come back by leaving a slot";
    router.TargetDragOverKel(u"geathumb"_s, u"grddatabook"_s);
    router.TargetDragOverKel({}, {});
    EXPECT_EQ(icon(), DragIcon::Hand) << "but by leaving the grid";
    router.TargetDragOverKel(u"geathumb"_s, u"grddatabook"_s);
    router.TargetDragOverKel(u"geathumb"_s, u"lblTab"_s);
    EXPECT_EQ(icon(), DragIcon::Hand) << "also when the next control is a neighbour";
    router.TargetDragOverKel(u"geathumb"_s, u"imaSubject"_s);
    (void)router.Start(controls.geathumb(1));
    EXPECT_EQ(icon(), DragIcon::Hand) << "of the next drag";
}

// ---- guards --------------------------------------------------------------------------------------------

TEST_F(PicturesTest, WithNoReportOpenAPhotoSlotTakesNothing)
{
    Browse();
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    EXPECT_FALSE(DropThumb(0, slots.imaComp(1)).done);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(Trash().isEmpty());
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"A.JPG"_s));
}

TEST_F(PicturesTest, ASlotOfAPageThatIsNotThereTakesNothingSilently)
{
    Browse();
    report.TabComp.SetTabCaption(0, u"N/A"_s);
    report.TabGeneral.SetTabCaption(1, u"N/A"_s);
    EXPECT_FALSE(DropThumb(0, slots.imaComp(1)).done);
    EXPECT_FALSE(DropThumb(0, slots.imaGeneral(4)).done);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(PicturesTest, ADeadLinkIsToldForPhotosAndForThePicturesOnTheSubject)
{
    Browse();
    addr.lblFileNo.SetCaption(u"KEL NOT ACTIVE"_s);
    EXPECT_FALSE(DropThumb(0, slots.imaComp(1)).done);
    EXPECT_FALSE(DropThumb(0, report.txtSubject).done);
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{u"KEL is not active"_s, u"KEL is not active"_s}));
    doubles.prompter.AnswerAlways(forms::Answer::Cancel);
    DropOn(report.txtSubject);
    EXPECT_EQ(doubles.prompter.Last().title, u"Overwrite Subject Photos"_s) << "a record is not asked for it";
}

TEST_F(PicturesTest, AnOccupiedPhotoSlotAsksOnceAndNoEndsTheDrop)
{
    Browse();
    loader.ErrLoadThumb(slots.imaComp(1), u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(DropThumb(0, slots.imaComp(1)).done);
    EXPECT_EQ(doubles.prompter.Last().text, u"Overwrite C:\\JPG\\OAK.jpg?  Are you sure?"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(Shows(slots.imaComp(1)), u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(DropThumb(0, slots.imaComp(1)).done);
    EXPECT_FALSE(doubles.window.hourglass);
}

// ---- A, B, C: a record's view --------------------------------------------------------------------------

TEST_F(PicturesTest, ARecordsViewOfTheIndexGoesToTheSubject)
{
    EXPECT_EQ(DropOn(slots.imaSubject(2)).message, u"The REAR VIEW of 12 OAK ST is in the report now."_s);
    EXPECT_EQ(Shows(slots.imaSubject(2)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(report.txtSubject.Text(), u"12 Oak St"_s);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"SUB_2_3X5"_s, u"C:\\\\JPG\\\\OAKR.jpg"_s)}));
    EXPECT_TRUE(slots.imaSubjectIcon(2).Visible());
}

TEST_F(PicturesTest, APhotoThatIsGoneFromTheDiskIsAskedAboutAndNoSendsNothing)
{
    ASSERT_TRUE(DropOn(slots.imaComp(4)).done);
    report.txtComp(4).SetText(u"14 Elm St"_s);
    conduit.commands.clear();
    home.disk.Kill(u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Forget();
    doubles.prompter.Answer(forms::Answer::Yes); // overwrite
    doubles.prompter.Answer(forms::Answer::No);
    const Outcome kept = DropOn(slots.imaComp(4));
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The picture of the FRONT VIEW of 12 OAK ST is missing: C:\\JPG\\OAK.jpg is not there. Sending it "
              u"clears the picture of the slot in the report. Clear it?"_s);
    EXPECT_FALSE(kept.done);
    EXPECT_EQ(kept.message, u"The FRONT VIEW of 12 OAK ST was not sent: C:\\JPG\\OAK.jpg is missing."_s);
    EXPECT_EQ(kept.colour, forms::Colour::Red);
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(report.txtComp(4).Text(), u"14 Elm St"_s);

    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    const Outcome cleared = DropOn(slots.imaComp(4));
    EXPECT_EQ(cleared.message,
              u"The slot's picture was cleared, because the FRONT VIEW of 12 OAK ST is missing: C:\\JPG\\OAK.jpg."_s);
    EXPECT_EQ(cleared.colour, forms::Colour::Red);
    EXPECT_EQ(conduit.commands, QStringList{SetImage(u"CMP_4_3X5"_s, {})}) << "the wire stays as it is";
    EXPECT_EQ(Shows(slots.imaComp(4)), QString());
}

TEST_F(PicturesTest, ACompWhoseFrontViewIsGoneSaysSoBesideItsData)
{
    home.disk.Kill(u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No);
    const Outcome kept = DropOn(report.txtComp(3));
    EXPECT_EQ(kept.message, u"12 Oak St is in the report now. The FRONT VIEW of 12 Oak St was not sent: "
                            u"C:\\JPG\\OAK.jpg is missing."_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
    doubles.prompter.Answer(forms::Answer::Yes);
    const Outcome cleared = DropOn(report.txtComp(3));
    EXPECT_EQ(cleared.message, u"12 Oak St is in the report now. The slot's picture was cleared, because the FRONT "
                               u"VIEW of 12 Oak St is missing: C:\\JPG\\OAK.jpg."_s);
    EXPECT_EQ(cleared.colour, forms::Colour::Red);
}

TEST_F(PicturesTest, OfTheSubjectsThreePhotosTheMissingOnesAreNamed)
{
    home.disk.Kill(u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes); // overwrites the three
    doubles.prompter.Answer(forms::Answer::Yes); // clears the first
    const Outcome outcome = DropOn(report.txtSubject);
    EXPECT_EQ(outcome.message,
              u"The slot's picture was cleared, because the FRONT VIEW of 12 OAK ST is missing: C:\\JPG\\OAK.jpg."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
    EXPECT_EQ(Shows(slots.imaSubject(2)), u"C:\\JPG\\OAKR.jpg"_s);
}

TEST_F(PicturesTest, ARecordWithoutTheViewEmptiesTheSlot)
{
    const Outcome outcome = DropOn(slots.imaSubject(3));
    EXPECT_EQ(outcome.message, u"12 OAK ST has no STREET SCENE. The slot is empty now."_s);
    EXPECT_EQ(Shows(slots.imaSubject(3)), QString());
}

TEST_F(PicturesTest, ARecordsFrontViewGoesToEveryOtherPhotoSlot)
{
    const std::pair<forms::PictureBox*, forms::TextBox*> targets[] = {
        {&slots.imaComp(4), &report.txtComp(4)},
        {&slots.imaAltComp(2), &report.txtAltComp(2)},
        {&slots.imaListing(1), &report.txtListing(1)},
        {&slots.imaRental(9), &report.txtRental(9)}};
    const QStringList objects{u"CMP_4_3X5"_s, u"ALT_2_3X5"_s, u"LCMP_1_3X5"_s, u"RCMP_9_3X5"_s};
    qsizetype at = 0;
    for (const auto& [photo, text] : targets) {
        EXPECT_TRUE(DropOn(*photo).done);
        EXPECT_EQ(Shows(*photo), u"C:\\JPG\\OAK.jpg"_s);
        EXPECT_EQ(text->Text(), u"12 Oak St"_s);
        EXPECT_EQ(conduit.commands.value(at), SetImage(objects.at(at), u"C:\\\\JPG\\\\OAK.jpg"_s));
        ++at;
    }
    EXPECT_TRUE(conduit.pokes.isEmpty()) << "only the photo";
}

TEST_F(PicturesTest, AMapAddressSendsTheSameByItsKey)
{
    txtMapAddress.SetText(u"12 Oak St"_s);
    EXPECT_TRUE(router.DropUntold(router.Start(txtMapAddress), slots.imaComp(2)).done);
    EXPECT_EQ(Shows(slots.imaComp(2)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_TRUE(router.DropUntold(router.Start(txtMapAddress), slots.geaComp(3)).done);
    EXPECT_EQ(Poked(), (QStringList{u"SALEPAGE|12|7=1850"_s}));
}

TEST_F(PicturesTest, AGeneralSlotAsksTheViewAndTellsTheReport)
{
    ini = {{u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GEN1"_s},
           {u"3X5_PHOTO_PAGES/GENERAL_DATA_2"_s, u"7|1"_s},
           {u"3X5_PHOTO_PAGES/GENERAL_ADDR_2"_s, u"8|1"_s}};
    addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
    addr.txtKelReport.SetText(u"SMITH"_s);
    questions.view = u"REAR VIEW"_s;
    EXPECT_TRUE(DropOn(slots.imaGeneral(2)).done);
    EXPECT_EQ(questions.asked, QStringList{u"C:\\JPG\\OAK.jpg ? GENERAL VIEW  2"_s});
    EXPECT_EQ(report.cboGeneral(2).Text(), u"REAR VIEW"_s);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"12 Oak St"_s);
    EXPECT_EQ(Shows(slots.imaGeneral(2)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(Poked(), (QStringList{u"GEN1|7|1=REAR VIEW"_s, u"GEN1|8|1=12 Oak St"_s}));
    for (const QString& answer : {QString(), u"cancel"_s}) {
        doubles.prompter.Answer(forms::Answer::Yes);
        questions.view = answer;
        conduit.pokes.clear();
        EXPECT_FALSE(DropOn(slots.imaGeneral(2)).done);
        EXPECT_EQ(filing.CurrentView, QString());
        EXPECT_EQ(report.cboGeneral(2).Text(), u"REAR VIEW"_s);
        EXPECT_TRUE(conduit.pokes.isEmpty());
    }
}

TEST_F(PicturesTest, TextsThatTheReportRefusesAreNoSuccess)
{
    ini = {{u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GEN1"_s},
           {u"3X5_PHOTO_PAGES/GENERAL_DATA_2"_s, u"7|1"_s},
           {u"3X5_PHOTO_PAGES/GENERAL_ADDR_2"_s, u"8|1"_s}};
    addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
    addr.txtKelReport.SetText(u"SMITH"_s);
    questions.view = u"REAR VIEW"_s;
    report.txtgeneraladdr(2).SetText(u"1 Subject Way"_s);
    for (const auto& [item, words] :
         {std::pair{u"item GEN1|7|1"_s, u"The REAR VIEW of 12 OAK ST is in the report now; its description and "
                                        u"address are not."_s},
          {u"item GEN1|8|1"_s, u"The REAR VIEW of 12 OAK ST is in the report now; its address is not."_s}}) {
        conduit.FailOnce(item, error::kLinkBusy, u"No such cell"_s);
        loader.geaClearImage(slots.imaGeneral(2));
        const Outcome outcome = DropOn(slots.imaGeneral(2));
        EXPECT_EQ(outcome.message, words);
        EXPECT_EQ(outcome.colour, forms::Colour::Red);
        EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"1 Subject Way"_s) << "the report has not taken another";
    }
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U);
    Browse();
    conduit.FailOnce(u"item GEN1|8|1"_s, error::kLinkBusy, u"No such cell"_s);
    loader.geaClearImage(slots.imaGeneral(2));
    const Outcome filed = DropThumb(0, slots.imaGeneral(2));
    EXPECT_TRUE(filed.message.endsWith(u" is in the report now; its address is not."_s)) << filed.message.toStdString();
    EXPECT_EQ(filed.colour, forms::Colour::Red);
}

TEST(ViewRule, ProposesByTheSource)
{
    EXPECT_EQ(ProposedView(u"cboGeneral"_s, 1, u" "_s), u"GENERAL VIEW  1"_s);
    EXPECT_EQ(ProposedView(u"cboGeneral"_s, 12, u"Kitchen"_s), u"Kitchen"_s);
    for (const QString& name : {u"geathumb"_s, u"geamaintain"_s, u"filCapture"_s, u"TXTVIEW"_s})
        EXPECT_EQ(ProposedView(name, -1, {}), u"FRONT VIEW"_s);
    EXPECT_EQ(ProposedView(u"geaMapPhoto"_s, -1, {}), u"GENERAL VIEW"_s);
}

// ---- D, E: a capture picture into a slot ---------------------------------------------------------------

TEST_F(PicturesTest, AThumbnailIsStoredShownSentTrashedAndSaved)
{
    Browse();
    globals.autoDelete = 1;
    globals.autoSave = 1;
    addr.txtFormType.SetText(u"UA5"_s);
    report.txtComp(2).SetText(u"2 New Rd"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|12|5"_s, u"1850"_s);
    const Outcome outcome = DropThumb(1, slots.imaComp(2));
    EXPECT_EQ(outcome.message, u"B.JPG is in the report now."_s);
    const QString stored = Shows(slots.imaComp(2));
    EXPECT_TRUE(stored.startsWith(u"C:\\JPG\\"_s));
    EXPECT_TRUE(home.disk.FileExists(stored));
    EXPECT_NE(home.disk.GetAttr(stored) & files::ReadOnly, 0U) << "shown in a report slot";
    EXPECT_EQ(conduit.commands, QStringList{SetImage(u"CMP_2_3X5"_s, Doubled(stored))});
    EXPECT_EQ(changes.value(0), u"Add 2 NEW RD from the report"_s);
    EXPECT_TRUE(PhotosOf(u"2 NEW RD"_s).startsWith(u"FRONT VIEW|"_s));
    EXPECT_EQ(Trash(), QStringList{u"B.JPG"_s});
    EXPECT_FALSE(home.disk.FileExists(kSnap + u"B.JPG"_s));
    EXPECT_FALSE(controls.geathumb(1).Visible());
    EXPECT_FALSE(controls.lbltag(1).Visible());
    EXPECT_TRUE(controls.geathumb(0).Visible());
}

TEST_F(PicturesTest, WithAutoDeleteOffTheThumbnailStaysInPlace)
{
    Browse();
    globals.autoDelete = 0;
    EXPECT_TRUE(DropThumb(1, slots.imaListing(2)).done);
    EXPECT_TRUE(controls.geathumb(1).Visible());
    EXPECT_TRUE(controls.lbltag(1).Visible());
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"B.JPG"_s));
}

TEST_F(PicturesTest, WithTheTrashcanOffTheThumbnailStaysToo)
{
    Browse();
    globals.autoDelete = 1;
    globals.trashcan = 0;
    EXPECT_TRUE(DropThumb(1, slots.imaRental(2)).done);
    EXPECT_TRUE(controls.geathumb(1).Visible());
}

TEST_F(PicturesTest, OfTheSubjectOnlyTheFirstViewIsSaved)
{
    Browse();
    globals.autoDelete = 0;
    globals.autoSave = 1;
    addr.txtFormType.SetText(u"UA5"_s);
    Map({u"UA5"_s, u"SUBPAGE"_s, u"GLA"_s, u"12"_s, u"3"_s, u"SALE"_s, u"10"_s, u"0"_s});
    conduit.Answer(u"KEL|SMITH"_s, u"SUBPAGE|12|3"_s, u"1850"_s);
    report.txtSubject.SetText(u"1 Main St"_s);
    for (int i = 3; i >= 1; --i) {
        EXPECT_TRUE(changes.isEmpty());
        EXPECT_TRUE(DropThumb(0, slots.imaSubject(i)).done);
    }
    EXPECT_EQ(changes.value(0), u"Add 1 MAIN ST from the report"_s);
}

TEST_F(PicturesTest, APictureThatCannotBeStoredStaysAndNothingIsSent)
{
    Browse();
    home.Put(kSnap + u"B.JPG"_s, "no picture");
    const Outcome outcome = DropThumb(1, slots.imaComp(2));
    EXPECT_FALSE(outcome.done);
    EXPECT_TRUE(outcome.message.startsWith(u"B.JPG was not filed"_s)) << outcome.message.toStdString();
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"B.JPG"_s));
    EXPECT_TRUE(controls.geathumb(1).Visible());
}

TEST_F(PicturesTest, ASendThatFailsIsToldAndThePictureIsKept)
{
    Browse();
    conduit.before = [](const QString& entry) {
        if (entry.startsWith("execute"_L1))
            throw RuntimeError(error::kLinkBusy, u"No such object"_s);
    };
    const Outcome outcome = DropThumb(1, slots.imaComp(2));
    EXPECT_EQ(outcome.message, u"B.JPG is stored and in the slot; the report did not take it."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
    EXPECT_TRUE(home.disk.FileExists(Shows(slots.imaComp(2))));
}

TEST_F(PicturesTest, APictureOfTheListRefreshesTheList)
{
    globals.imageListBox = u"ON"_s;
    globals.autoDelete = 1;
    Browse();
    controls.filCapture.SetListIndex(1);
    EXPECT_TRUE(router.DropUntold(router.Start(controls.filCapture), slots.imaComp(2)).done);
    EXPECT_EQ(controls.filCapture.ListCount(), 2);
    EXPECT_EQ(capture.SelectedFile(), kSnap + u"C.JPG"_s) << "the list keeps its place";
    EXPECT_EQ(Shows(controls.geaListBox), kSnap + u"C.JPG"_s);
}

TEST_F(PicturesTest, AGeneralSlotAsksTheViewOfACapturePictureFirst)
{
    Browse();
    questions.view = u"KITCHEN"_s;
    report.txtgeneraladdr(5).SetText(u"12 Oak St"_s);
    EXPECT_TRUE(DropThumb(0, slots.imaGeneral(5)).done);
    EXPECT_EQ(report.cboGeneral(5).Text(), u"KITCHEN"_s);
    EXPECT_EQ(questions.asked, QStringList{kSnap + u"A.JPG ? GENERAL VIEW  5"_s});
    questions.view.clear();
    EXPECT_FALSE(DropThumb(1, slots.imaGeneral(6)).done);
    EXPECT_EQ(Shows(slots.imaGeneral(6)), QString());
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"B.JPG"_s));
}

// ---- F, G, I -------------------------------------------------------------------------------------------

TEST_F(PicturesTest, AReportThatComesToTheFrontWhileTheViewIsAskedGetsNothingAndThePictureStays)
{
    Browse();
    questions.view = u"KITCHEN"_s;
    int looks = 0; // the second one is behind the question
    conduit.before = [&](const QString& entry) {
        if (entry == u"item ActiveReports"_s && ++looks == 2)
            conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
    };
    doubles.prompter.Answer(forms::Answer::Cancel);
    const Outcome outcome = DropThumb(0, slots.imaGeneral(5));
    conduit.before = {};
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    EXPECT_EQ(Shows(slots.imaGeneral(5)), QString());
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"A.JPG"_s));
    EXPECT_EQ(Trash(), QStringList());
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\0*.jpg"_s), QStringList()) << "nothing was stored";
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(PicturesTest, APictureThatIsReplacedDuringItsDragIsNeitherAskedAboutNorShown)
{
    Browse();
    conduit.log.clear();
    int edge = 40; // of another length each time: a fast machine gives several files the same time
    for (forms::Control* target : {static_cast<forms::Control*>(&grddatabook),
                                   static_cast<forms::Control*>(&report.txtSubject),
                                   static_cast<forms::Control*>(&slots.imaComp(1))}) {
        const Drag drag = router.Start(controls.geathumb(0));
        edge *= 2;
        QImage another(edge, edge, QImage::Format_RGB32);
        another.fill(Qt::white);
        picture::SaveJpeg(home.disk, another, kSnap + u"A.JPG"_s, 90);
        const Outcome outcome = router.DropUntold(drag, *target);
        EXPECT_EQ(outcome.message, u"A.JPG is another picture now than the one you chose. Nothing was done."_s)
            << target->Name().toStdString();
    }
    EXPECT_TRUE(questions.asked.isEmpty());
    EXPECT_TRUE(conduit.log.isEmpty()) << "the report is not even looked for";
    EXPECT_EQ(Shows(slots.imaSubject(1)), QString());
    EXPECT_EQ(Trash(), QStringList());
}

TEST_F(PicturesTest, AStoredPictureThatIsGoneBeforeItIsSentIsNoSuccess)
{
    Browse();
    conduit.before = [this](const QString& entry) {
        if (entry == u"item ListForms"_s)
            for (const QString& stored : home.disk.Dir(u"C:\\JPG\\0*.jpg"_s))
                home.disk.Kill(u"C:\\JPG\\"_s + stored);
    };
    const Outcome outcome = DropThumb(0, slots.imaComp(1));
    conduit.before = {};
    EXPECT_EQ(outcome.message, u"A.JPG was stored, but its file is missing now: the report's picture was cleared."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
}

TEST_F(PicturesTest, AViewWithABarIsCleanedOnItsWayToTheReport)
{
    Browse();
    questions.view = u"BACK|YARD"_s;
    EXPECT_TRUE(DropThumb(0, slots.imaGeneral(5)).done);
    EXPECT_EQ(report.cboGeneral(5).Text(), u"BACK YARD"_s);
}

TEST_F(PicturesTest, ThePhotoOnShowGoesOutUnderItsView)
{
    txtcentralkey.SetText(u"12 OAK ST"_s);
    lists.txtView.SetText(u"REAR VIEW"_s);
    loader.ErrLoadThumb(slots.geamaintain, u"C:\\JPG\\OAKR.JPG"_s);
    EXPECT_TRUE(router.DropUntold(router.Start(slots.geamaintain), slots.imaComp(3)).done);
    EXPECT_EQ(Shows(slots.imaComp(3)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(report.txtComp(3).Text(), u"12 Oak St"_s);
    // A general slot takes the picture that was dragged, whatever view it is called there.
    questions.view = u"KITCHEN"_s;
    EXPECT_TRUE(router.DropUntold(router.Start(slots.geamaintain), slots.imaGeneral(1)).done);
    EXPECT_EQ(Shows(slots.imaGeneral(1)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(report.cboGeneral(1).Text(), u"KITCHEN"_s);
    questions.view = u"FRONT VIEW"_s;
    EXPECT_TRUE(router.DropUntold(router.Start(slots.geamaintain), slots.imaGeneral(2)).done);
    EXPECT_EQ(Shows(slots.imaGeneral(2)), u"C:\\JPG\\OAKR.jpg"_s);
}

TEST_F(PicturesTest, ThePhotoOnShowIsTheOneThatWasDraggedOrNone)
{
    txtcentralkey.SetText(u"12 OAK ST"_s);
    lists.txtView.SetText(u"REAR VIEW"_s);
    loader.ErrLoadThumb(slots.geamaintain, u"C:\\JPG\\OAKR.JPG"_s);
    const Drag drag = router.Start(slots.geamaintain);
    txtcentralkey.SetText(u"14 ELM ST"_s); // a quick find came to its end meanwhile
    lists.txtView.SetText(u"FRONT VIEW"_s);
    EXPECT_TRUE(router.DropUntold(drag, slots.imaComp(3)).done);
    EXPECT_EQ(Shows(slots.imaComp(3)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(report.txtComp(3).Text(), u"12 Oak St"_s);

    StandOn(u"12 OAK ST"_s); // another user files another picture under the view
    store::DataSource& book = sources.datDatabook;
    book.Recordset().Edit();
    store::SetFieldData(book, u"FRONT VIEW|OAK\r\nREAR VIEW|ELM\r\n"_s, u"PHOTOS"_s);
    book.Recordset().Update();
    conduit.commands.clear();
    const Outcome outcome = router.DropUntold(drag, slots.imaComp(2));
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"The REAR VIEW of 12 OAK ST is no longer the picture that you dragged. Nothing was sent."_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(PicturesTest, ASlotThatShowsAnotherPhotoByTheEndOfItsDragIsLeftAlone)
{
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\OAK.jpg"_s);
    report.txtComp(2).SetText(u"12 Oak St"_s);
    const Drag drag = router.Start(slots.imaComp(2));
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\ELM.jpg"_s);
    const Outcome outcome = router.DropUntold(drag, grddatabook);
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"The slot shows another photo now than the one you dragged. Nothing was done."_s);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(PicturesTest, TheListsFileIsTheOneThatIsDraggedFromIt)
{
    Browse(); // thumbnails are on show, so that nothing but the drag has written it
    controls.filCapture.SetListIndex(1);
    ASSERT_EQ(Shows(controls.geaListBox), QString());
    (void)router.Start(controls.filCapture);
    EXPECT_EQ(Shows(controls.geaListBox), kSnap + u"B.JPG"_s);
}

TEST_F(PicturesTest, ARecordOnTheSubjectReplacesItsThreePhotosAfterAQuestion)
{
    report.txtSubject.SetText(u"1 Main St"_s);
    for (const forms::Answer answer : {forms::Answer::No, forms::Answer::Cancel}) {
        doubles.prompter.Answer(answer);
        EXPECT_FALSE(DropOn(report.txtSubject).done);
        EXPECT_TRUE(conduit.commands.isEmpty());
    }
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(DropOn(report.txtSubject).done);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNoCancel, forms::Icon::Question,
                               u"Overwrite Subject Photos"_s,
                               u"This action overwrites the 3 main subject photos (if present) of 1 Main St "
                               u"with the 3 main subject photos of 12 OAK ST. Continue?"_s}));
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"SUB_1_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s),
                                             SetImage(u"SUB_2_3X5"_s, u"C:\\\\JPG\\\\OAKR.jpg"_s)}));
    EXPECT_EQ(report.txtSubject.Text(), u"1 Main St"_s);
}

TEST_F(PicturesTest, ACapturePictureOnTheSubjectIsShownThreeTimesAndNotSent)
{
    Browse();
    EXPECT_TRUE(DropThumb(0, report.txtSubject).done);
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(Shows(slots.imaSubject(i)), kSnap + u"A.JPG"_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(PicturesTest, AFileThatIsNoPictureIsToldOnceAndNotShownOnTheSubject)
{
    home.Put(kSnap + u"LETTER.TXT"_s, "no picture");
    EXPECT_FALSE(router.DropUntold(router.StartFiles({kSnap + u"LETTER.TXT"_s}), report.txtSubject).done);
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"The File 'C:\\SNAP\\LETTER.TXT' appears to be a corrupt file."_s});
    EXPECT_EQ(Shows(slots.imaSubject(1)), QString());
}

// ---- K, N: with a record -------------------------------------------------------------------------------

class GridRow : public forms::GridSource
{
public:
    [[nodiscard]] qint64 RowCount() const override { return 1; }
    [[nodiscard]] QStringList FieldNames() const override { return {u"CENTRALKEY"_s}; }
    [[nodiscard]] QStringList Row(qint64) const override { return {u"14 ELM ST          "_s}; }
};

class RecordTest : public PicturesTest
{
protected:
    GridRow row;
    void SetUp() override
    {
        PicturesTest::SetUp();
        grddatabook.Rebind(&row);
        grddatabook.SetRow(0);
        Browse();
        questions.view = u"FRONT VIEW"_s;
        globals.autoDelete = 1;
    }
};

TEST_F(RecordTest, AThumbnailOnTheGridIsFiledWithTheHighlightedRecord)
{
    const Outcome outcome = DropThumb(0, grddatabook);
    EXPECT_EQ(outcome.message, u"FRONT VIEW is filed with 14 ELM ST now."_s);
    EXPECT_EQ(outcome.record, u"14 ELM ST"_s);
    EXPECT_TRUE(PhotosOf(u"14 ELM ST"_s).contains(u"\r\nFRONT VIEW|"_s));
    EXPECT_EQ(questions.asked, QStringList{kSnap + u"A.JPG ? FRONT VIEW"_s});
    EXPECT_EQ(Trash(), QStringList{u"A.JPG"_s});
    EXPECT_FALSE(controls.geathumb(0).Visible());
    EXPECT_TRUE(conduit.commands.isEmpty()) << "no report is needed";
}

TEST_F(RecordTest, WithoutAViewTheDropEnds)
{
    questions.view.clear();
    EXPECT_FALSE(DropThumb(0, grddatabook).done);
    EXPECT_EQ(PhotosOf(u"14 ELM ST"_s), u"REAR VIEW|ELM\r\n"_s);
    EXPECT_TRUE(Trash().isEmpty());
}

TEST_F(RecordTest, AnOverwriteThatIsCancelledLeavesPictureAndRecordAlone)
{
    questions.view = u"rear view"_s;
    for (const forms::Answer answer : {forms::Answer::Cancel, forms::Answer::No}) {
        questions.overwrite = answer;
        EXPECT_FALSE(DropThumb(0, grddatabook).done);
        EXPECT_EQ(PhotosOf(u"14 ELM ST"_s), u"REAR VIEW|ELM\r\n"_s);
        EXPECT_TRUE(home.disk.FileExists(kSnap + u"A.JPG"_s));
        EXPECT_TRUE(controls.geathumb(0).Visible());
        EXPECT_TRUE(Trash().isEmpty());
    }
}

TEST_F(RecordTest, TheListOnTheGridIsRefreshed)
{
    globals.imageListBox = u"ON"_s;
    capture.ViewFilCapture();
    controls.filCapture.SetListIndex(0);
    EXPECT_TRUE(router.DropUntold(router.Start(controls.filCapture), grddatabook).done);
    EXPECT_EQ(controls.filCapture.ListCount(), 2);
}

TEST_F(RecordTest, TheAddressBoxNamesTheRecordAndABlankOneStopsEverything)
{
    txtcentralkey.SetText(u"  "_s);
    EXPECT_FALSE(DropThumb(0, txtcentralkey).done);
    EXPECT_TRUE(questions.asked.isEmpty());
    EXPECT_TRUE(changes.isEmpty());
    txtcentralkey.SetText(u" 77 new rd "_s);
    const Outcome outcome = DropThumb(0, txtcentralkey);
    EXPECT_EQ(outcome.record, u"77 NEW RD"_s);
    EXPECT_TRUE(PhotosOf(u"77 NEW RD"_s).startsWith(u"FRONT VIEW|"_s));
    EXPECT_EQ(lists.txtView.Text(), u"FRONT VIEW"_s);
    EXPECT_EQ(Trash(), QStringList{u"A.JPG"_s});
}

// ---- L, M, O, the trash --------------------------------------------------------------------------------

TEST_F(PicturesTest, ReportSlotsOnTheGridAreSavedByTheirKind)
{
    addr.txtFormType.SetText(u"UA5"_s);
    Map({u"UA5"_s, u"SUBPAGE"_s, u"GLA"_s, u"12"_s, u"3"_s, u"SALE"_s, u"10"_s, u"0"_s});
    conduit.unscripted = u"1850"_s;
    using link::What;
    const std::tuple<forms::Control*, link::SlotRef, What> rows[] = {
        {&slots.geaComp(1), {Group::Sales, 1}, What::Data},      {&slots.geaAltComp(2), {Group::Alternates, 2}, What::Data},
        {&slots.geaListing(3), {Group::Listings, 3}, What::Data}, {&slots.geaRental(2), {Group::Rentals, 2}, What::Data},
        {&slots.imaComp(5), {Group::Sales, 5}, What::Pic},       {&slots.imaAltComp(6), {Group::Alternates, 6}, What::Pic},
        {&slots.imaListing(1), {Group::Listings, 1}, What::Pic}, {&slots.imaRental(3), {Group::Rentals, 3}, What::Pic},
        {&slots.imaSubject(3), {Group::Subject, 3}, What::Pic},  {&report.txtComp(3), {Group::Sales, 3}, What::Both},
        {&report.txtAltComp(1), {Group::Alternates, 1}, What::Both}, {&report.txtListing(2), {Group::Listings, 2}, What::Both},
        {&report.txtRental(1), {Group::Rentals, 1}, What::Both}, {&report.txtSubject, {Group::Subject, 1}, What::Both}};
    int number = 100;
    for (const auto& [source, slot, what] : rows) {
        const QString key = u"%1 SAVED RD"_s.arg(++number);
        link::TextOf(report, slot).SetText(key.toLower());
        loader.ErrLoadThumb(link::PhotoOf(slots, slot), u"C:\\JPG\\OAK.jpg"_s);
        EXPECT_EQ(router.DropUntold(router.Start(*source), grddatabook).record, key);
        StandOn(key);
        EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"GLA"_s), what == What::Pic ? u""_s : u"1850"_s)
            << key.toStdString();
        EXPECT_EQ(PhotosOf(key).contains(u'|'), what != What::Data) << key.toStdString();
        EXPECT_EQ(PhotosOf(key).startsWith(link::SubjectView(slot.group == Group::Subject ? slot.index : 1)),
                  what != What::Data);
    }
}

TEST_F(PicturesTest, GeneralSlotsOnTheGridShowAdviceAlone)
{
    EXPECT_TRUE(router.DropUntold(router.Start(slots.imaGeneral(1)), grddatabook).done);
    EXPECT_EQ(doubles.prompter.Last().title, u"How To: Saving General Views"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"To save (or resave) a General Photo to Subject Address,\r\ndouble click on the icon to the "
              u"right of the picture.\r\n\r\nNote: Make sure you type or pick (from drop down menu)\r\nthe "
              u"exact name of the General View"_s);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(PicturesTest, WhatTheGridIgnores)
{
    for (const QString& source : {u"grddatabook"_s, u"geamaintain"_s, u"txtMapAddress"_s})
        EXPECT_FALSE(router.Accepts(source, grddatabook)) << source.toStdString();
}

TEST_F(PicturesTest, AReportPhotoGoesBackToTheCaptureDirectory)
{
    Browse();
    loader.ErrLoadThumb(slots.imaRental(2), u"C:\\JPG\\ELM.jpg"_s);
    for (forms::Control* target : {static_cast<forms::Control*>(&controls.fraPics),
                                   static_cast<forms::Control*>(&controls.lblTab),
                                   static_cast<forms::Control*>(&controls.geathumb(0))}) {
        EXPECT_TRUE(router.DropUntold(router.Start(slots.imaRental(2)), *target).done);
        EXPECT_TRUE(home.disk.FileExists(kSnap + u"ELM.jpg"_s));
    }
    EXPECT_EQ(controls.filCapture.ListCount(), 4);
    EXPECT_FALSE(DropThumb(0, controls.geathumb(2)).done);
}

TEST_F(PicturesTest, WhatGoesBackTakesThePlaceOfAWriteProtectedCopyAndKeepsAnotherPicture)
{
    Browse();
    globals.writeProtectPhotos = true;
    loader.ErrLoadThumb(slots.imaRental(2), u"C:\\JPG\\ELM.jpg"_s);
    home.disk.SetAttr(u"C:\\JPG\\ELM.jpg"_s, files::ReadOnly); // as a photo in a report is
    home.disk.SetAttr(u"C:\\JPG\\OAK.jpg"_s, files::ReadOnly);
    for (int time = 1; time <= 2; ++time) {
        EXPECT_TRUE(router.DropUntold(router.Start(slots.imaRental(2)), controls.fraPics).done) << time;
        EXPECT_TRUE(DropOn(controls.fraPics).done) << time;
    }
    for (const QString& name : {u"ELM.jpg"_s, u"OAK.jpg"_s, u"OAKR.jpg"_s})
        EXPECT_EQ(home.disk.GetAttr(kSnap + name), files::Normal) << name.toStdString();
    EXPECT_TRUE(Trash().isEmpty()) << "the same picture is no loss";
    home.Put(kSnap + u"OAK.jpg"_s, "the camera's own");
    home.disk.SetAttr(kSnap + u"OAK.jpg"_s, files::ReadOnly);
    EXPECT_TRUE(DropOn(controls.fraPics).done);
    EXPECT_EQ(home.disk.ReadWhole(kSnap + u"OAK.jpg"_s), home.disk.ReadWhole(u"C:\\JPG\\OAK.jpg"_s));
    EXPECT_EQ(home.disk.ReadWhole(kSnap + u"TRASHCAN\\OAK.jpg"_s), "the camera's own");
}

TEST_F(PicturesTest, AFileThatNoReportCanNameGetsAnotherNameWhenItIsCopiedIn)
{
    Browse();
    home.MakeDirs(u"C:\\DESKTOP"_s);
    Picture(u"C:\\DESKTOP\\P[1].JPG"_s);
    EXPECT_EQ(router.DropUntold(router.StartFiles({u"C:\\DESKTOP\\P[1].JPG"_s}), controls.fraPics).message,
              u"1 picture is in C:\\SNAP\\ now. A \"]\" in a name has become a \")\": no report can name such a file."_s);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"P(1).jpg"_s));
}

TEST_F(PicturesTest, ABracketIsSpokenOfOnlyWhereTheCopyLostIt)
{
    Browse();
    home.MakeDirs(u"C:\\DESKTOP"_s);
    Picture(u"C:\\DESKTOP\\OK.JPG"_s);
    home.Put(u"C:\\DESKTOP\\P[1].TIF"_s, "no picture");
    const Outcome outcome =
        router.DropUntold(router.StartFiles({u"C:\\DESKTOP\\OK.JPG"_s, u"C:\\DESKTOP\\P[1].TIF"_s}), controls.fraPics);
    EXPECT_TRUE(outcome.message.startsWith(u"1 picture is in C:\\SNAP\\ now. "_s)) << outcome.message.toStdString();
    EXPECT_FALSE(outcome.message.contains(u"has become"_s)) << outcome.message.toStdString();
    Picture(kSnap + u"Q[1].JPG"_s);
    EXPECT_EQ(router.DropUntold(router.StartFiles({kSnap + u"Q[1].JPG"_s}), controls.fraPics).message,
              u"1 picture is in C:\\SNAP\\ now."_s)
        << "it lies there already, under its own name";
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"Q[1].JPG"_s));
}

TEST_F(PicturesTest, AThumbnailWithABracketInItsNameGoesToTheTrashUnderThatName)
{
    Picture(kSnap + u"A[1].JPG"_s);
    Picture(kSnap + u"A].JPG"_s);
    Browse();
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    filing.PictureSaved = true;
    globals.autoDelete = 1;
    for (int i = 0; i < controls.filCapture.ListCount(); ++i) {
        const QString name = controls.filCapture.List(i);
        if (!name.contains(u']'))
            continue;
        EXPECT_EQ(DropThumb(i, controls.imaTrashcan).message, name + u" is in the trash now."_s);
        EXPECT_FALSE(controls.geathumb(i).Visible());
        EXPECT_FALSE(home.disk.Found(kSnap + name));
    }
    QStringList trashed = Trash();
    trashed.sort();
    EXPECT_EQ(trashed, (QStringList{u"A[1].JPG"_s, u"A].JPG"_s}));
    EXPECT_FALSE(home.disk.DirExists(u"C:\\TRASHCAN"_s));
}

TEST_F(PicturesTest, AFiledPictureWithABracketInItsNameGoesToTheTrashUnderThatName)
{
    Picture(kSnap + u"A]B.JPG"_s);
    home.Put(kSnap + u"TRASHCAN\\B.JPG"_s, "another picture");
    globals.autoDelete = 1;
    Browse();
    int thumb = 0;
    while (controls.filCapture.List(thumb) != u"A]B.JPG"_s)
        ASSERT_LT(++thumb, controls.filCapture.ListCount());
    EXPECT_TRUE(DropThumb(thumb, slots.imaComp(1)).done);
    EXPECT_FALSE(home.disk.Found(kSnap + u"A]B.JPG"_s));
    EXPECT_TRUE(home.disk.Found(kSnap + u"TRASHCAN\\A]B.JPG"_s));
    EXPECT_EQ(home.disk.ReadWhole(kSnap + u"TRASHCAN\\B.JPG"_s), "another picture");
}

TEST_F(PicturesTest, ARecordsPicturesGoBackAndAMissingOneIsNamed)
{
    Browse();
    home.disk.Kill(u"C:\\JPG\\OAK.jpg"_s);
    const Outcome outcome = DropOn(controls.fraPics);
    EXPECT_EQ(outcome.message, u"1 picture is in C:\\SNAP\\ now."_s);
    EXPECT_EQ(doubles.prompter.Last().title, u"Picture not found in database"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The source picture ( OAK.jpg ) is not currently found \r\nin C:\\JPG\\"_s);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"OAKR.jpg"_s));
    EXPECT_EQ(controls.filCapture.ListCount(), 4);
}

TEST_F(PicturesTest, TheTrashTakesAThumbnailAlone)
{
    Browse();
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(DropThumb(0, controls.imaTrashcan).done);
    EXPECT_TRUE(controls.geathumb(0).Visible());
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(DropThumb(0, controls.imaTrashcan).done);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete C:\\SNAP\\A.JPG?"_s);
    EXPECT_EQ(Trash(), QStringList{u"A.JPG"_s});
    EXPECT_FALSE(controls.geathumb(0).Visible());
    EXPECT_FALSE(router.Accepts(u"filCapture"_s, controls.imaTrashcan));
    EXPECT_FALSE(router.Accepts(u"imaComp"_s, controls.imaTrashcan));
}

TEST_F(PicturesTest, TheTrashSaysWhatBecameOfThePicture)
{
    Browse();
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    struct Row
    {
        int trashcan, autoDelete;
        bool saved;
        QString said;
        bool stays;
    };
    for (const Row& row :
         {Row{0, 1, true, u"A.JPG stays where it is: the settings turn the trashcan off."_s, true},
          Row{1, 0, true, u"A copy of A.JPG is in the trash now. A.JPG itself stays: the settings keep it."_s, true},
          Row{1, 1, false,
              u"A copy of A.JPG is in the trash now. A.JPG itself stays: no picture was stored just before."_s, true},
          Row{1, 1, true, u"A.JPG is in the trash now."_s, false}}) {
        globals.trashcan = row.trashcan;
        globals.autoDelete = row.autoDelete;
        filing.PictureSaved = row.saved;
        capture.errdisplayThumbs();
        EXPECT_EQ(DropThumb(0, controls.imaTrashcan).message, row.said);
        EXPECT_EQ(home.disk.FileExists(kSnap + u"A.JPG"_s), row.stays);
    }
    capture.ShowDirectory(kSnap + u"TRASHCAN\\"_s);
    EXPECT_EQ(DropThumb(0, controls.imaTrashcan).message, u"A.JPG is deleted for good."_s);
    EXPECT_TRUE(Trash().isEmpty());
}

// ---- files of another program --------------------------------------------------------------------------

TEST_F(RecordTest, FilesOfAnotherProgramAreFiledAndStayWhereTheyAre)
{
    home.MakeDirs(u"C:\\DESKTOP"_s);
    Picture(u"C:\\DESKTOP\\X.JPG"_s);
    Picture(u"C:\\DESKTOP\\Y.PNG"_s);
    const Drag drag = router.StartFiles({u"C:\\DESKTOP\\X.JPG"_s, u"C:\\DESKTOP\\Y.PNG"_s});
    EXPECT_EQ(router.State().DragSource, u"FILCAPTURE"_s);
    EXPECT_EQ(router.DropUntold(drag, slots.imaComp(1)).message,
              u"X.JPG is in the report now. A slot takes one picture; the others were left."_s);
    EXPECT_TRUE(Trash().isEmpty());
    EXPECT_TRUE(home.disk.FileExists(u"C:\\DESKTOP\\X.JPG"_s));
    questions.view = u"STREET SCENE"_s;
    const Outcome filed = router.DropUntold(router.StartFiles({u"C:\\DESKTOP\\Y.PNG"_s}), grddatabook);
    EXPECT_TRUE(filed.done);
    EXPECT_TRUE(PhotosOf(u"14 ELM ST"_s).contains(u"STREET SCENE|"_s));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\DESKTOP\\Y.PNG"_s));
}

TEST_F(PicturesTest, FilesOfAnotherProgramAreCopiedIntoTheCaptureDirectory)
{
    Browse();
    home.MakeDirs(u"C:\\DESKTOP"_s);
    for (const QString& name : {u"A.JPG"_s, u"Y.png"_s, u"Z.1.jpeg"_s})
        Picture(u"C:\\DESKTOP\\"_s + name);
    home.Put(u"C:\\DESKTOP\\BAD.png"_s, "no picture");
    QStringList files;
    for (const QString& name : {u"A.JPG"_s, u"Y.png"_s, u"Z.1.jpeg"_s, u"BAD.png"_s})
        files << u"C:\\DESKTOP\\"_s + name;
    const Outcome outcome = router.DropUntold(router.StartFiles(files), controls.fraPics);
    EXPECT_TRUE(outcome.message.startsWith(u"3 pictures are in C:\\SNAP\\ now. "_s)) << outcome.message.toStdString();
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
    EXPECT_EQ(capture.Folder().Names(), (QStringList{u"A (2).jpg"_s, u"A.JPG"_s, u"B.JPG"_s, u"C.JPG"_s,
                                                     u"Y.jpg"_s, u"Z_1.jpg"_s}));
    EXPECT_EQ(picture::PictureSize(home.disk, kSnap + u"Y.jpg"_s), QSize(16, 12));
    EXPECT_TRUE(router.DropUntold(router.StartFiles({kSnap + u"A.JPG"_s}), controls.lblTab).done);
    EXPECT_EQ(controls.filCapture.ListCount(), 6) << "a picture dropped where it lies";
}

} // namespace
} // namespace vasclip::drops
