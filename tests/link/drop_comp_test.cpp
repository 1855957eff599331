#include "link/drop_comp.h"

#include "desk_test.h"

namespace vasclip::link {
namespace {

class DropOnComp : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"1850"_s}});
        AddComp(u"14 Elm St"_s, {{u"GLA"_s, u"990"_s}});
        Map({u"UA5"_s, u"PAGE2"_s, u"GLA"_s, u"12"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        Map({u"UA5"_s, u"ALTP"_s, u"GLA"_s, u"12"_s, u"3"_s, u"ALT"_s, u"1"_s, u"2"_s});
        OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO"_s);
    }
    Dropped Drop(int index, int source = kFromDatabook, ClearPhoto clear = ClearPhoto::No)
    {
        return DropComp(desk, {Group::Sales, index}, u"12 OAK ST"_s, source, clear);
    }
    DropOutcome OnComp(int index, int source = kFromDatabook) { return Drop(index, source).outcome; }
    [[nodiscard]] static QStringList QueryReports()
    {
        return {u"mode 0"_s,  u"topic KEL|Query"_s, u"mode 2"_s, u"item ActiveReports"_s,
                u"request"_s, u"mode 0"_s};
    }
    [[nodiscard]] static QStringList OpenAndList()
    {
        return {u"mode 0"_s,         u"topic Kel|SMITH"_s, u"item UserID"_s, u"mode 2"_s,
                u"request"_s,        u"mode 0"_s,          u"mode 0"_s,      u"topic KEL|SMITH"_s,
                u"item ListForms"_s, u"mode 2"_s,          u"request"_s,     u"mode 0"_s};
    }
};

TEST_F(DropOnComp, OfARecordIsTheWholeConversation)
{
    Script(u"recalc.bas"_s);
    const Dropped dropped = Drop(5);
    EXPECT_EQ(dropped.outcome, DropOutcome::Sent);
    const QStringList steps = QStringList{u"text "_s}                    // the question is over
                              + QueryReports()                           // is anybody there
                              + QStringList{u"text "_s} + QueryReports() // is a report open
                              + QueryReports() + OpenAndList()           // which one, and its main form
                              + QStringList{u"mode 0"_s,          u"topic KEL|SMITH"_s, u"mode 2"_s,
                                            u"item PAGE2|12|5"_s, u"text 1850"_s,       u"poke"_s} +
                              QStringList{u"mode 0"_s, u"topic KEL|System"_s, u"mode 2"_s,
                                          u"execute [RunMacro(recalc.bas)]\r"_s, u"mode 0"_s};
    EXPECT_EQ(conduit.log, steps);
    EXPECT_EQ(dropped.address, u"12 Oak St"_s);
    EXPECT_EQ(dropped.sent, 1);
    EXPECT_FALSE(doubles.window.hourglass);
    EXPECT_EQ(doubles.window.hourglassLog, (std::vector<bool>{true, false}));
    EXPECT_EQ(doubles.window.activations, 3);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DropOnComp, WithoutTheScriptSendsNoRecalculation)
{
    OnComp(5);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(DropOnComp, OnItsOwnSlotSendsNothing)
{
    EXPECT_EQ(OnComp(3, 3), DropOutcome::OwnSlot);
    EXPECT_TRUE(conduit.log.isEmpty());
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(DropOnComp, OfCompThreeOnCompOneSwapsThem)
{
    report.txtComp(1).SetText(u"99 Other St"_s);
    EXPECT_EQ(OnComp(1, 3), DropOutcome::Swapped);
    ASSERT_EQ(conduit.commands.size(), 1);
    EXPECT_TRUE(conduit.commands[0].contains(u"SWAPCOMPS 4,2\r\n"_s));
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_EQ(conduit.log.filter(u"item"_s), (QStringList{u"item ActiveReports"_s, u"item UserID"_s}));
    EXPECT_EQ(conduit.log.filter(u"topic"_s).last(), u"topic Kel|SMITH"_s) << "the macro runs on the report";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DropOnComp, OnTheSameAddressAsksNothing)
{
    report.txtComp(5).SetText(u" 12 oak st"_s);
    EXPECT_EQ(OnComp(5), DropOutcome::Sent);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DropOnComp, OnAnotherCompAsksFirst)
{
    report.txtComp(5).SetText(u" 14 Elm St "_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(OnComp(5), DropOutcome::Sent);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Question,
                               u"Overwrite a comp within the appraisal ..."_s,
                               u"Replace 14 Elm St with 12 OAK ST!  Are you sure?"_s}));
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|5=1850"_s}));
}

TEST_F(DropOnComp, RefusedSendsNothing)
{
    report.txtComp(5).SetText(u"14 Elm St"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_EQ(OnComp(5), DropOutcome::Refused);
    EXPECT_EQ(conduit.log, (QStringList{u"text "_s}));
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(DropOnComp, OfAnUnknownKeyIsSilent)
{
    EXPECT_EQ(DropComp(desk, {Group::Sales, 5}, u"1 NOWHERE"_s).outcome, DropOutcome::NotFound);
    EXPECT_EQ(conduit.log, (QStringList{u"text "_s}));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DropOnComp, WithNobodyThereSaysSoOnce)
{
    conduit.running = false;
    EXPECT_EQ(OnComp(5), DropOutcome::NotRunning);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Appraisal Program Not Running"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"The Appraisal Program is not running at this time."_s);
    EXPECT_TRUE(conduit.pokes.isEmpty());
}

TEST_F(DropOnComp, WithNoReportOpenSaysSoToo)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    EXPECT_EQ(OnComp(5), DropOutcome::NotRunning);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"The Appraisal Program is not running at this time."_s}));
}

TEST_F(DropOnComp, ThatClearsThePhotoClearsItsObjectFirst)
{
    Picture(u"C:\\JPG\\A.jpg"_s);
    loader.ErrLoadThumb(slots.imaComp(5), u"C:\\JPG\\A.jpg"_s);
    EXPECT_EQ(Drop(5, kFromDatabook, ClearPhoto::Yes).outcome, DropOutcome::Sent);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(5)), u""_s);
    EXPECT_EQ(conduit.commands, (QStringList{u"[RunMacro( SetImage \"CMP_5_3X5\", \"\" ) ]\r"_s}));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_LT(conduit.log.indexOf(u"execute "_s + conduit.commands[0]), conduit.log.indexOf(u"poke"_s));
}

TEST_F(DropOnComp, OfAGroupWordReachesItsRows)
{
    EXPECT_EQ(DropComp(desk, {Group::Alternates, 2}, u"12 OAK ST"_s).outcome, DropOutcome::Sent);
    EXPECT_EQ(Poked(), (QStringList{u"ALTP|12|5=1850"_s}));
}

TEST_F(DropOnComp, ThatGetsNoAnswerToItsFirstFieldIsUnsureAndKeepsTheLinkQuiet)
{
    Script(u"recalc.bas"_s);
    conduit.FailOnce(u"poke"_s, error::kLinkPeerGone, u"The forms program has gone"_s);
    EXPECT_EQ(OnComp(5), DropOutcome::Unsure);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(DropOnComp, ThatIsRefusedInTheMiddleIsIncompleteAndStillRecalculates)
{
    Script(u"recalc.bas"_s);
    Map({u"UA5"_s, u"PAGE2"_s, u"CITY"_s, u"13"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
    conduit.FailOnce(u"item PAGE2|13|5"_s, error::kLinkBusy, u"No such cell"_s);
    EXPECT_EQ(OnComp(5), DropOutcome::Incomplete);
    EXPECT_EQ(conduit.commands, (QStringList{u"[RunMacro(recalc.bas)]\r"_s}));
}

TEST_F(DropOnComp, ThatIsRefusedAtItsFirstFieldHasSentNothing)
{
    conduit.FailOnce(u"poke"_s, error::kLinkBusy, u"No such cell"_s);
    const Dropped dropped = Drop(5);
    EXPECT_EQ(dropped.outcome, DropOutcome::NothingSent);
    EXPECT_FALSE(dropped.addressSent);
}

TEST_F(DropOnComp, SendsWhatTheRecordHoldsWhenTheFieldsGoOut)
{
    Map({u"UA5"_s, u"PAGE2"_s, u"ADDRESS"_s, u"2"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
    int looks = 0;
    conduit.before = [&](const QString& entry) {
        if (entry != "item ActiveReports"_L1 || ++looks != 2)
            return;
        const auto database = engine.OpenDatabase(kDatabook);
        database->Execute(u"UPDATE COMPS SET ADDRESS='12 Oak Lane' WHERE ADDRESS='12 Oak St'"_s);
    };
    const Dropped dropped = Drop(5);
    EXPECT_EQ(dropped.outcome, DropOutcome::Sent);
    EXPECT_EQ(dropped.address, u"12 Oak Lane"_s);
    EXPECT_TRUE(Poked().contains(u"PAGE2|2|5=12 Oak Lane"_s));
}

TEST_F(DropOnComp, SendsItsRecordEvenIfTheQueueMovesTheTable)
{
    doubles.pump.onTurn = [this] { sources.datDatabook.Recordset().MoveLast(); };
    OnComp(5);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|5=1850"_s}));
}

TEST_F(DropOnComp, UpdateStopsWithoutAReport)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u""_s);
    const SendResult result = KelUpdateKel(desk, Read(u"12 OAK ST"_s), 5, u"SALE"_s);
    EXPECT_FALSE(result.complete);
    EXPECT_EQ(conduit.log, QueryReports());
    EXPECT_EQ(doubles.window.activations, 0);
}

struct SlotRow
{
    const char* name;
    QString type;
    int index;
    QString answer;
};
class SlotText : public DeskTest, public testing::WithParamInterface<SlotRow>
{};
TEST_P(SlotText, ByTypeAndIndex)
{
    report.txtComp(2).SetText(u"comp"_s);
    report.txtAltComp(2).SetText(u"alt"_s);
    report.txtRental(2).SetText(u"rent"_s);
    report.txtListing(2).SetText(u"list"_s);
    EXPECT_EQ(ExistingSlotText(report, GetParam().type, GetParam().index), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, SlotText,
    testing::Values(SlotRow{"Sale", u"SALE"_s, 2, u"comp"_s}, SlotRow{"Comp", u"COMP"_s, 2, u"comp"_s},
                    SlotRow{"Comps", u"COMPS"_s, 2, u"comp"_s}, SlotRow{"AltComp", u"ALTCOMP"_s, 2, u"alt"_s},
                    SlotRow{"Alt", u"ALT"_s, 2, u"alt"_s}, SlotRow{"AltComps", u"ALTCOMPS"_s, 2, u"alt"_s},
                    SlotRow{"Rent", u"RENT"_s, 2, u"rent"_s}, SlotRow{"Rental", u"RENTAL"_s, 2, u"rent"_s},
                    SlotRow{"Rentals", u"RENTALS"_s, 2, u"rent"_s}, SlotRow{"List", u"LIST"_s, 2, u"list"_s},
                    SlotRow{"Listing", u"LISTING"_s, 2, u"list"_s},
                    SlotRow{"Listings", u"LISTINGS"_s, 2, u"list"_s},
                    SlotRow{"Other", u"GENERAL"_s, 2, u""_s}, SlotRow{"Zero", u"SALE"_s, 0, u""_s},
                    SlotRow{"Minus", u"SALE"_s, -1, u""_s}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace vasclip::link
