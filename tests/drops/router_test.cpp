#include "router_home.h"

#include "link/fake_proximity.h"
#include "link/refresh.h"
#include "link/slot_icons.h"
#include "link/tabs.h"

namespace vasclip::drops {
namespace {

struct TargetRow
{
    const char* name;
    QString group, prefix;
    forms::ControlArray<forms::TextBox> link::ReportControls::*text;
    forms::ControlArray<forms::PictureBox> photos::SlotControls::*photo;
    forms::ControlArray<forms::PictureBox> photos::SlotControls::*data;
    forms::ControlArray<forms::PictureBox> photos::SlotControls::*icon;
};

class RouterRows : public RouterTest, public testing::WithParamInterface<TargetRow>
{
protected:
    forms::TextBox& Text() { return (report.*GetParam().text)(2); }
    forms::PictureBox& Photo() { return (slots.*GetParam().photo)(2); }
    forms::PictureBox& Data() { return (slots.*GetParam().data)(2); }
    forms::PictureBox& Icon() { return (slots.*GetParam().icon)(2); }
};

TEST_P(RouterRows, ATextSlotTakesDataPhotoAddendumAndIcon)
{
    Icon().SetVisible(false);
    const Outcome outcome = DropOn(Text());
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"12 Oak St is in the report now."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Green);
    EXPECT_EQ(Poked(), (QStringList{GetParam().group + u"PAGE|12|5=1850"_s}));
    EXPECT_EQ(conduit.commands,
              (QStringList{SetImage(GetParam().prefix + u"2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s)}));
    EXPECT_EQ(Text().Text(), u"12 Oak St"_s);
    EXPECT_EQ(Shows(Photo()), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_FALSE(Photo().Picture().isNull());
    EXPECT_EQ(Shows(Data()), u"C:\\VAS2000\\Addendum_Added.bmp"_s);
    EXPECT_TRUE(Icon().Visible());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_P(RouterRows, ADataBoxTakesTheDataWithoutThePhoto)
{
    Icon().SetVisible(false);
    const Outcome outcome = DropOn(Data());
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(Poked(), (QStringList{GetParam().group + u"PAGE|12|5=1850"_s}));
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(Text().Text(), u"12 Oak St"_s);
    EXPECT_EQ(Shows(Photo()), QString());
    EXPECT_EQ(Shows(Data()), u"C:\\VAS2000\\Addendum_Added.bmp"_s);
    EXPECT_TRUE(Icon().Visible());
}

TEST_P(RouterRows, ARecordWithoutAFrontViewEmptiesTheSlotHereAndInTheReport)
{
    loader.ErrLoadThumb(Photo(), u"C:\\JPG\\OAK.jpg"_s);
    const Outcome outcome = DropOn(Text(), u"14 ELM ST"_s);
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"14 Elm St is in the report now. It has no front view."_s);
    EXPECT_EQ(Shows(Photo()), QString());
    EXPECT_TRUE(Photo().Picture().isNull());
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(GetParam().prefix + u"2_3X5"_s, {})}));
}

TEST_P(RouterRows, NothingHappensOnAPageThatTheReportDoesNotHave)
{
    for (forms::TabControl* tab : {&report.TabComp, &report.TabListing, &report.TabRental})
        for (int page = 0; page < tab->Tabs(); ++page)
            tab->SetTabCaption(page, u"N/A"_s);
    for (forms::Control* target :
         {static_cast<forms::Control*>(&Text()), static_cast<forms::Control*>(&Data())}) {
        const Outcome outcome = DropOn(*target);
        EXPECT_FALSE(outcome.done);
        EXPECT_EQ(outcome.message, QString());
    }
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(Text().Text(), QString());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RouterRows,
    testing::Values(TargetRow{"Comp", u"SALE"_s, u"CMP_"_s, &link::ReportControls::txtComp,
                              &photos::SlotControls::imaComp, &photos::SlotControls::geaComp,
                              &photos::SlotControls::imaCompIcon},
                    TargetRow{"AltComp", u"ALT"_s, u"ALT_"_s, &link::ReportControls::txtAltComp,
                              &photos::SlotControls::imaAltComp, &photos::SlotControls::geaAltComp,
                              &photos::SlotControls::imaAltCompIcon},
                    TargetRow{"Listing", u"LIST"_s, u"LCMP_"_s, &link::ReportControls::txtListing,
                              &photos::SlotControls::imaListing, &photos::SlotControls::geaListing,
                              &photos::SlotControls::imaListingIcon},
                    TargetRow{"Rental", u"RENT"_s, u"RCMP_"_s, &link::ReportControls::txtRental,
                              &photos::SlotControls::imaRental, &photos::SlotControls::geaRental,
                              &photos::SlotControls::imaRentalIcon}),
    [](const auto& row) { return row.param.name; });

TEST_F(RouterTest, APictureThatOnlyTheReportKnowsOfIsClearedToo)
{
    // The report names a file that is not on this machine, so the slot shows nothing.
    addr.txtKelimages.SetText(u"CMP_1_3X5|;CMP_2_3X5|D:\\GONE.JPG;"_s);
    DropOn(report.txtComp(2), u"14 ELM ST"_s);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"CMP_2_3X5"_s, {})}));
}

TEST_F(RouterTest, ASlotThatHasNoPictureObjectIsNotCleared)
{
    addr.txtKelimages.SetText(u"LCMP_2_3X5|C:\\JPG\\ELM.jpg;"_s);
    DropOn(report.txtComp(2), u"14 ELM ST"_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(RouterTest, ARecordWhosePhotoFileIsMissingClearsTheObject)
{
    AddComp(u"16 Ash St"_s, {{u"PHOTOS"_s, u"FRONT VIEW|NOFILE\r\n"_s}});
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(DropOn(report.txtComp(2), u"16 ASH ST"_s).done);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"CMP_2_3X5"_s, {})}));
}

TEST_F(RouterTest, RefreshRunsTwiceBehindThePhotoAndOnceBehindItsRecalculation)
{
    Script(u"refresh.bas"_s);
    Script(u"recalc.bas"_s);
    DropOn(report.txtComp(2));
    EXPECT_EQ(conduit.commands,
              (QStringList{u"[RunMacro(recalc.bas)]\r"_s, SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s),
                           u"[RunMacro(refresh.bas)]\r"_s, u"[RunMacro(refresh.bas)]\r"_s}));
}

TEST_F(RouterTest, ThisProgramComesBackToTheFrontWhenTheDropIsOver)
{
    QStringList order;
    conduit.before = [&](const QString& entry) {
        if (entry.startsWith("execute"_L1))
            order << u"macro after "_s + QString::number(doubles.window.activations);
    };
    DropOn(report.txtComp(2));
    // Before the drop, three of the send, behind it, before the picture; then behind it and at the end.
    EXPECT_EQ(order, (QStringList{u"macro after 6"_s}));
    EXPECT_EQ(doubles.window.activations, 8);
}

TEST_F(RouterTest, APhotoThatCannotBeSentIsToldAndTheDataStay)
{
    conduit.FailOnce(u"execute "_s + SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s), error::kLinkBusy,
                     u"No such object"_s);
    const Outcome outcome = DropOn(report.txtComp(2));
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"12 Oak St is in the report now, its photo is not."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
}

TEST_F(RouterTest, ARecordThatGoesOutMovesNoOtherAndTurnsNoQueue)
{
    for (int i = 1; i <= 9; ++i)
        report.txtComp(i).SetText(i == 2 ? QString() : u"14 Elm St"_s);
    StandOn(u"14 ELM ST"_s);
    photos::ReadPhotoLists(sources.datDatabook, lists.lstViews, lists.lstimages);
    lists.lstViews.SetListIndex(0);
    slots.imaCompIcon(5).SetVisible(false);
    const int turns = doubles.pump.turns;
    for (forms::Control* target : {static_cast<forms::Control*>(&report.txtComp(2)),
                                   static_cast<forms::Control*>(&slots.imaListing(2))}) {
        const Outcome outcome = DropOn(*target);
        EXPECT_TRUE(outcome.done);
        EXPECT_TRUE(outcome.stayed) << "nothing has to be brought back";
    }
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"CENTRALKEY"_s), u"14 ELM ST"_s);
    EXPECT_EQ(lists.lstViews.List(0), u"REAR VIEW"_s);
    EXPECT_EQ(lists.lstViews.ListIndex(), 0);
    EXPECT_EQ(doubles.pump.turns, turns);
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
    EXPECT_FALSE(slots.imaCompIcon(5).Visible()) << "the next refresh looks at the slots beside it";
}

TEST_F(RouterTest, ARefusedOverwriteChangesNothing)
{
    report.txtComp(2).SetText(u"99 Other St"_s);
    doubles.prompter.Answer(forms::Answer::No);
    const Outcome outcome = DropOn(report.txtComp(2));
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, QString());
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(report.txtComp(2).Text(), u"99 Other St"_s);
    EXPECT_EQ(Shows(slots.geaComp(2)), QString());
}

/// The sends of a comp whose page has these fields, in their order.
class BrokenSend : public RouterTest
{
protected:
    void Fields(const QStringList& fields)
    {
        int row = 20;
        for (const QString& field : fields)
            Map({u"UA5"_s, u"SALEPAGE"_s, field, QString::number(row++), u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    }
    /// The poke of that number, from 1, fails.
    void FailPoke(int which, int number)
    {
        conduit.before = [this, which, number](const QString& entry) {
            if (entry == "poke"_L1 && ++m_poke == which)
                throw RuntimeError(number, u"No"_s);
        };
    }
    int m_poke = 0;
};

TEST_F(BrokenSend, BeforeTheFirstFieldSaysThatNothingWasSent)
{
    report.txtComp(2).SetText(u"99 Other St"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    FailPoke(1, error::kLinkBusy);
    const Outcome outcome = DropOn(report.txtComp(2));
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"Nothing of 12 OAK ST reached the report."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
    EXPECT_EQ(report.txtComp(2).Text(), u"99 Other St"_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(BrokenSend, WithoutAnAnswerToTheFirstFieldDoesNotKnow)
{
    FailPoke(1, error::kLinkTimeOut);
    EXPECT_EQ(DropOn(report.txtComp(2)).message,
              u"Whether 12 OAK ST reached the report is not known: the forms program did not answer. "
              u"Refresh shows what is there."_s);
    EXPECT_EQ(report.txtComp(2).Text(), QString());
}

TEST_F(BrokenSend, BehindTheAddressNamesTheNewComp)
{
    Fields({u"ADDRESS"_s, u"CITY"_s});
    report.txtComp(2).SetText(u"99 Other St"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    FailPoke(3, error::kLinkBusy);
    const Outcome outcome = DropOn(report.txtComp(2));
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"Only a part of 12 OAK ST reached the report. Send it again."_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U);
    conduit.before = {};
    EXPECT_TRUE(DropOn(report.txtComp(2)).done) << "and asks nothing when it is dropped again";
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U);
}

TEST_F(BrokenSend, BeforeTheAddressKeepsTheOldCompsName)
{
    Fields({u"CITY"_s, u"ADDRESS"_s});
    report.txtComp(2).SetText(u"99 Other St"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    FailPoke(3, error::kLinkBusy);
    EXPECT_EQ(DropOn(report.txtComp(2)).message,
              u"Only a part of 12 OAK ST reached the report; the address there is still 99 Other St. Send it again."_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"99 Other St"_s);
}

TEST_F(BrokenSend, OfAPhotoLeavesTheSlotAsItWas)
{
    report.txtComp(2).SetText(u"99 Other St"_s);
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\ELM.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    conduit.FailOnce(u"execute "_s + SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s), error::kLinkBusy,
                     u"No such object"_s);
    const Outcome outcome = DropOn(slots.imaComp(2));
    EXPECT_EQ(outcome.message, u"The photo of 12 OAK ST did not reach the report."_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"99 Other St"_s);
    EXPECT_EQ(Shows(slots.imaComp(2)), u"C:\\JPG\\ELM.jpg"_s);
}

TEST_F(BrokenSend, ByTheScriptBehindThePhotoHasTakenThePhoto)
{
    Script(u"refresh.bas"_s);
    conduit.FailOnce(u"execute [RunMacro(refresh.bas)]\r"_s, error::kLinkBusy, u"No script"_s);
    const Outcome outcome = DropOn(slots.imaComp(2));
    EXPECT_EQ(outcome.message, u"The FRONT VIEW of 12 OAK ST is in the report now."_s);
    EXPECT_EQ(Shows(slots.imaComp(2)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(RouterTest, APhotoAloneSaysWhoseDataStandBesideIt)
{
    report.txtComp(2).SetText(u"99 Other St"_s);
    const Outcome outcome = DropOn(slots.imaComp(2));
    EXPECT_EQ(outcome.message, u"The FRONT VIEW of 12 OAK ST is in the report now. The data beside it are still "
                               u"those of 99 Other St."_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
}

TEST_F(RouterTest, WhatACompLeavesBehindIsNamedAsTheOldOnes)
{
    Map({u"UA5"_s, u"SALEPAGE"_s, u"PROXIMITY"_s, u"14"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    Map({u"UA5"_s, u"SALEPAGE"_s, u"CITYSTZIP"_s, u"15"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|14|5"_s, u" 0.1 Mi. E"_s);
    report.txtComp(2).SetText(u"671 Scholars Ln"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    const Outcome outcome = DropOn(report.txtComp(2));
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"12 Oak St is in the report now; proximity is still 0.1 Mi. E of 671 Scholars Ln."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Blue);

    EXPECT_EQ(DropOn(report.txtComp(2)).message, u"12 Oak St is in the report now."_s) << "its own comp";
    conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|15|3"_s, u"Duluth, MN 55803"_s);
    report.txtComp(1).SetText(u"671 Scholars Ln"_s);
    conduit.FailOnce(u"item SALEPAGE|14|3"_s, error::kLinkBusy, u"No"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(DropOn(report.txtComp(1), u"14 ELM ST"_s).message,
              u"14 Elm St is in the report now; proximity may still be that of 671 Scholars Ln; city line is still "
              u"Duluth, MN 55803 of 671 Scholars Ln. It has no front view."_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << "no box for the look at a cell";
    state.proximityOnDrop = true;
    link::FakeProximity map;
    map.shownAddress = u"12 OAK ST"_s;
    map.shownProximity = u"1.2 Mi. NW"_s;
    desk.proximity = &map;
    report.txtComp(3).SetText(u"671 Scholars Ln"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(DropOn(report.txtComp(3)).message, u"12 Oak St is in the report now."_s) << "a known distance is sent";
}

TEST_F(RouterTest, ARecordThatIsGoneIsNamed)
{
    const Outcome outcome = DropOn(report.txtComp(2), u"1 NOWHERE"_s);
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"1 NOWHERE is no longer in the Databook."_s);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(RouterTest, WithNoReportOpenNothingHappens)
{
    for (const QString& reports : {QString(), u"none"_s}) {
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, reports);
        const Outcome outcome = DropOn(report.txtComp(2));
        EXPECT_FALSE(outcome.done);
        EXPECT_EQ(outcome.message, reports.isEmpty()
                                       ? u"Korvat Forms is not running, so nothing was sent."_s
                                       : u"No report is open in Korvat Forms, so nothing was sent."_s);
    }
    conduit.running = false;
    EXPECT_EQ(DropOn(report.txtComp(2)).message, u"Korvat Forms is not running, so nothing was sent."_s);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

/// Every drop that ends on the report, whatever it comes from.
TEST_F(RouterTest, WithAnotherReportActiveNoDropSendsAnything)
{
    Browse();
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\OAK.jpg"_s);
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
    int tried = 0;
    for (const DropRule& rule : Matrix()) {
        forms::Control* target = set.Find(rule.target, 2);
        if (target == nullptr)
            target = set.Find(rule.target);
        const bool sends = rule.action <= DropAction::PasteComp;
        if (!sends || target == nullptr)
            continue;
        ++tried;
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Cancel);
        const Outcome outcome = router.DropUntold({rule.source, -1, u"12 OAK ST"_s, kSnap + u"A.JPG"_s, {}}, *target);
        EXPECT_FALSE(outcome.done) << rule.source.data() << " on " << rule.target.data();
        EXPECT_EQ(outcome.message,
                  u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s)
            << rule.source.data() << " on " << rule.target.data();
        ASSERT_EQ(doubles.prompter.Boxes().size(), 1U) << rule.source.data() << " on " << rule.target.data();
        EXPECT_EQ(doubles.prompter.Last().title, u"Another report is active"_s);
    }
    EXPECT_GE(tried, 30);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"A.JPG"_s)) << "no picture was filed";
}

TEST_F(RouterTest, TheReportIsAskedForBeforeThePage)
{
    report.TabComp.SetTabCaption(0, u"N/A"_s);
    state.linkActive = false;
    DropOn(report.txtComp(2));
    EXPECT_TRUE(state.linkActive);
    EXPECT_EQ(conduit.log.count(u"request"_s), 1);
}

TEST_F(RouterTest, TheMapsProximityGoesIntoTheCellOfAnAlternate)
{
    forms::TextBox txtMapProximity{set, u"txtMapProximity"_s};
    Map({u"UA5"_s, u"ALTPAGE"_s, u"PROXIMITY"_s, u"14"_s, u"3"_s, u"ALT"_s, u"1"_s, u"2"_s});
    EXPECT_FALSE(router.IsSource(txtMapProximity)) << "empty";
    txtMapProximity.SetText(u" 1.2 Mi. NW "_s);
    txtMapAddress.SetText(u"12 Oak St"_s);
    report.txtAltComp(2).SetText(u"12 OAK ST"_s);
    ASSERT_TRUE(router.IsSource(txtMapProximity));
    EXPECT_FALSE(router.Accepts(u"txtMapProximity"_s, report.txtComp(2)));
    ASSERT_TRUE(router.Accepts(u"txtMapProximity"_s, report.txtAltComp(2)));
    const Drag drag = router.Start(txtMapProximity);
    txtMapProximity.SetText(u"9. Mi. East"_s); // another point is chosen meanwhile
    const Outcome outcome = router.DropUntold(drag, report.txtAltComp(2));
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"Alt comp 2: 1.2 Mi. NW is in the report now."_s);
    EXPECT_EQ(Poked(), QStringList{u"ALTPAGE|14|5=1.2 Mi. NW"_s});
    EXPECT_EQ(addr.txtAltProximity(2).Text(), u"1.2 Mi. NW"_s);
    EXPECT_EQ(report.txtAltComp(2).Text(), u"12 OAK ST"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(RouterTest, TheProximityOfAnotherAddressAsksFirst)
{
    forms::TextBox txtMapProximity{set, u"txtMapProximity"_s};
    Map({u"UA5"_s, u"ALTPAGE"_s, u"PROXIMITY"_s, u"14"_s, u"3"_s, u"ALT"_s, u"1"_s, u"2"_s});
    txtMapProximity.SetText(u"1.2 Mi. NW"_s);
    txtMapAddress.SetText(u"12 Oak St"_s);
    report.txtAltComp(1).SetText(u"14 Elm St"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(router.DropUntold(router.Start(txtMapProximity), report.txtAltComp(1)).done);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_EQ(doubles.prompter.Last().text, u"The proximity 1.2 Mi. NW was measured for 12 OAK ST, and Alt comp 1 is "
                                            "14 Elm St. Send it into that comp's cell all the same?"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(router.DropUntold(router.Start(txtMapProximity), report.txtAltComp(1)).done);
    EXPECT_EQ(Poked(), QStringList{u"ALTPAGE|14|3=1.2 Mi. NW"_s});
}

TEST_F(RouterTest, AFormWithoutACellForTheProximityIsTold)
{
    forms::TextBox txtMapProximity{set, u"txtMapProximity"_s};
    txtMapProximity.SetText(u"1.2 Mi. NW"_s);
    txtMapAddress.SetText(u"12 Oak St"_s);
    report.txtAltComp(1).SetText(u"12 Oak St"_s);
    const Outcome outcome = router.DropUntold(router.Start(txtMapProximity), report.txtAltComp(1));
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"The form has no cell for the proximity of Alt comp 1."_s);
    EXPECT_EQ(addr.txtAltProximity(1).Text(), QString());
}

TEST_F(RouterTest, APairWithoutARuleAsksNobody)
{
    forms::TextBox txtMapProximity{set, u"txtMapProximity"_s};
    EXPECT_FALSE(DropOn(txtMapProximity).done);
    EXPECT_FALSE(router.DropUntold({u"txtComp"_s, 1, {}, {}, {}}, report.txtComp(2)).done);
    EXPECT_FALSE(router.DropUntold({u"imaComp"_s, 1, {}, photos::PointAt(home.disk, u"C:\\JPG\\OAK.jpg"_s), {}}, slots.imaAltComp(2)).done);
    EXPECT_TRUE(conduit.log.isEmpty());
}

TEST_F(RouterTest, CompsThatTheFormDoesNotHaveTakeNothing)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_2"_s, u"COMP2"_s}};
    OpenReport(u"SMITH"_s, u"DT3,SUBPHOTO,COMP2,"_s);
    link::TestOtherTabs(desk, u"DT3,SUBPHOTO,COMP2,"_s, false);
    for (forms::Control* target : {static_cast<forms::Control*>(&report.txtComp(5)),
                                   static_cast<forms::Control*>(&slots.geaComp(6))}) {
        EXPECT_FALSE(router.Accepts(u"grddatabook"_s, *target));
        EXPECT_FALSE(DropOn(*target).done);
    }
    EXPECT_TRUE(router.Accepts(u"grddatabook"_s, slots.geaComp(4)));
    EXPECT_TRUE(conduit.pokes.isEmpty());
}

TEST_F(RouterTest, ADropInTheMiddleOfARefreshIsPutOff)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_1"_s, u"COMP1"_s}};
    OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO,COMP1,"_s);
    QList<Outcome> within;
    doubles.pump.onTurn = [&] { within << DropOn(report.txtComp(2)); };
    link::RefreshAppraisal(desk);
    ASSERT_FALSE(within.isEmpty());
    for (const Outcome& outcome : within) {
        EXPECT_FALSE(outcome.done);
        EXPECT_EQ(outcome.message, u"The report is being read. Try again in a moment."_s);
    }
    EXPECT_TRUE(conduit.pokes.isEmpty());
    doubles.pump.onTurn = nullptr;
    EXPECT_TRUE(DropOn(report.txtComp(2)).done);
}

TEST_F(RouterTest, ADropInTheMiddleOfADropIsPutOff)
{
    Outcome inner;
    bool within = false;
    conduit.before = [&](const QString& entry) {
        if (entry != "poke"_L1 || within)
            return;
        within = true;
        inner = DropOn(report.txtComp(3), u"14 ELM ST"_s);
    };
    const Outcome outer = DropOn(report.txtComp(2));
    EXPECT_FALSE(inner.done);
    EXPECT_EQ(inner.message, u"What was sent or dropped before is still on its way. Try again in a moment."_s);
    EXPECT_TRUE(outer.done);
    EXPECT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
    EXPECT_EQ(report.txtComp(3).Text(), QString());
    EXPECT_EQ(Poked(), (QStringList{u"SALEPAGE|12|5=1850"_s}));
}

struct TextRow
{
    const char* name;
    QString address;
    qint16 addressCase;
    QString shown;
};
class RouterSlotText : public RouterTest, public testing::WithParamInterface<TextRow>
{};
TEST_P(RouterSlotText, IsTheAddressInItsCaseOrTheKey)
{
    globals.addressCase = GetParam().addressCase;
    Add(engine, kDatabook, u"COMPS"_s,
        {{u"CENTRALKEY"_s, u"7 ELK RUN"_s.leftJustified(35)}, {u"ADDRESS"_s, GetParam().address}});
    EXPECT_TRUE(DropOn(report.txtComp(1), u" 7 elk run "_s).done);
    EXPECT_EQ(report.txtComp(1).Text(), GetParam().shown);
    // The slot finds its record again: no question.
    EXPECT_TRUE(DropOn(report.txtComp(1), u"7 ELK RUN"_s).done);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}
INSTANTIATE_TEST_SUITE_P(Rows, RouterSlotText,
                         testing::Values(TextRow{"Upper", u"7 Elk Run"_s, 0, u"7 ELK RUN"_s},
                                         TextRow{"Proper", u"7 ELK RUN"_s, 1, u"7 Elk Run"_s},
                                         TextRow{"AsStored", u"7 eLk Run"_s, 2, u"7 eLk Run"_s},
                                         TextRow{"EditedAway", u"7B Elk Run"_s, 2, u"7 ELK RUN"_s}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace vasclip::drops
