#include "drops/swap_slots.h"

#include "link/talk.h"
#include "router_home.h"

namespace vasclip::drops {
namespace {

/// Comps 2 and 3 of the report, and what it answers when they are read again.
class SwapTest : public RouterTest
{
protected:

    void SetUp() override
    {
        RouterTest::SetUp();
        Map({u"UA5"_s, u"SALEPAGE"_s, u"ADDRESS"_s, u"2"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        Map({u"UA5"_s, u"SALEPAGE"_s, u"NEIGHBORHD"_s, u"3"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s, {}, u"R"_s});
        addr.txtKelReport.SetText(u"SMITH"_s);
        addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
        report.txtComp(2).SetText(u"12 Oak St"_s);
        report.txtComp(3).SetText(u"14 Elm St"_s);
        loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\OAK.jpg"_s);
        loader.ErrLoadThumb(slots.imaComp(4), u"C:\\JPG\\OAKR.jpg"_s);
        conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|2|5"_s, u"14 Elm St"_s);
        conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|2|7"_s, u"12 Oak St"_s);
        conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|3|7"_s, u"Duluth, MN 55803"_s);
        conduit.Answer(u"KEL|System"_s, u"IMAGES"_s, u"CMP_2_3X5|;CMP_3_3X5|C:\\JPG\\OAK.jpg;"_s);
    }
    static QString Swap(const QString& numbers)
    {
        return u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\nSWAPCOMPS "_s + numbers +
               u"\r\n)]\r"_s;
    }
};

TEST_F(SwapTest, TheSlotsShowWhatTheReportThenHolds)
{
    const Outcome outcome = SwapSlots(drops, 2, 3, {u"12 Oak St"_s, u"14 ELM ST "_s});
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"Swapped: comp 2 is 14 Elm St now, comp 3 is 12 Oak St."_s);
    EXPECT_EQ(conduit.commands.value(0), Swap(u"4,3"_s));
    const qsizetype macro = conduit.log.indexOf(u"execute "_s + Swap(u"4,3"_s));
    EXPECT_EQ(conduit.log.first(macro).filter(u"topic"_s).last(), u"topic Kel|SMITH"_s) << "of this report";
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_EQ(report.txtComp(2).Text(), u"14 Elm St"_s);
    EXPECT_EQ(report.txtComp(3).Text(), u"12 Oak St"_s);
    EXPECT_EQ(addr.txtCompAddr(3).Text(), u"12 Oak St"_s);
    EXPECT_EQ(addr.txtCompCity(3).Text(), u"Duluth"_s);
    EXPECT_EQ(addr.txtCompState(3).Text(), u"MN"_s);
    EXPECT_EQ(addr.txtCompZip(3).Text(), u"55803"_s);
    EXPECT_EQ(Shows(slots.imaComp(2)), QString());
    EXPECT_EQ(Shows(slots.imaComp(3)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(Shows(slots.imaComp(4)), u"C:\\JPG\\OAKR.jpg"_s) << "the others stay";
    EXPECT_TRUE(slots.imaCompIcon(3).Visible());
    EXPECT_EQ(Shows(slots.geaComp(2)), u"C:\\VAS2000\\Addendum_Full.bmp"_s);
    EXPECT_EQ(Shows(slots.geaComp(4)), QString());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(SwapTest, ASlotThatBecomesEmptyHasAnEmptyDataBox)
{
    conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|2|5"_s, QString());
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"Swapped: comp 2 is empty now, comp 3 is 12 Oak St."_s);
    EXPECT_EQ(Shows(slots.geaComp(2)), u"C:\\VAS2000\\Addendum_Empty.bmp"_s);
    EXPECT_FALSE(slots.imaCompIcon(2).Visible());
}

TEST_F(SwapTest, CompsThatShareAPictureGoOnShowingIt)
{
    loader.ErrLoadThumb(slots.imaComp(3), u"C:\\JPG\\OAK.jpg"_s);
    conduit.Answer(u"KEL|System"_s, u"IMAGES"_s, u"CMP_2_3X5|C:\\JPG\\OAK.jpg;CMP_3_3X5|C:\\JPG\\OAK.jpg;"_s);
    EXPECT_TRUE(SwapSlots(drops, 2, 3).done);
    EXPECT_EQ(Shows(slots.imaComp(2)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(Shows(slots.imaComp(3)), u"C:\\JPG\\OAK.jpg"_s);
}

TEST_F(SwapTest, ASlotThatHasChangedSinceTheMenuOpenedIsLeftAlone)
{
    const Outcome outcome = SwapSlots(drops, 2, 3, {u"12 Oak St"_s, u"99 Other St"_s});
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"The slots show other comps than when the menu opened. Nothing was swapped."_s);
    EXPECT_EQ(SwapSlots(drops, 2, 3, {u"99 Other St"_s, u"14 Elm St"_s}).message, outcome.message);
    EXPECT_TRUE(conduit.log.isEmpty());
}

TEST_F(SwapTest, OnlyCompsThatTheReportHasAndNotOneWithItself)
{
    report.TabComp.SetTabCaption(1, u"N/A"_s);
    for (const auto& [a, b] : {std::pair{2, 2}, {2, 4}, {0, 2}, {2, 10}, {-1, 3}})
        EXPECT_FALSE(SwapSlots(drops, a, b).done) << a << ' ' << b;
    report.txtComp(3).SetEnabled(false); // the form has no such comp
    EXPECT_EQ(SwapSlots(drops, 2, 3).message,
              u"Comps 2 and 3 cannot be swapped: the report does not have both."_s);
    EXPECT_TRUE(conduit.log.isEmpty());
}

TEST_F(SwapTest, InAnotherReportNothingIsSwapped)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_EQ(SwapSlots(drops, 2, 3).message,
              u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    EXPECT_EQ(doubles.prompter.Last().title, u"Another report is active"_s);
    doubles.prompter.Answer(forms::Answer::Ok);
    conduit.Answer(u"KEL|JONES"_s, u"ListForms"_s, u"UA5,SUBPHOTO,"_s);
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"The tabs show JONES now. Nothing was sent."_s);
    EXPECT_EQ(addr.txtKelReport.Text(), u"JONES"_s);
    EXPECT_TRUE(conduit.commands.filter(u"SWAPCOMPS"_s).isEmpty());
}

TEST_F(SwapTest, WithNobodyThereSaysSo)
{
    conduit.running = false;
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"Korvat Forms is not running, so nothing was sent."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(SwapTest, ThatIsCancelledSaysHowFarItGot)
{
    link::Talk talk;
    talk.Attach(status, desk.ports);
    desk.talk = &talk;
    // The recording conduit knows no patience; the wish is heard before each request and macro as on the real line.
    const auto cancelAt = [&](const QString& step) {
        conduit.before = [&talk, step](const QString& entry) {
            if (entry.startsWith(step))
                talk.Cancel();
            if (entry == "request"_L1 || entry.startsWith("execute"_L1))
                talk.BeforeExchange();
        };
    };
    cancelAt(u"item ActiveReports"_s);
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"Cancelled: nothing was sent."_s);
    cancelAt(u"execute [RunMacro( SetRequest \"LASTCOMPTYPE\""_s);
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"Cancelled: nothing was sent."_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
    cancelAt(u"item IMAGES"_s); // the macro has gone out
    EXPECT_EQ(SwapSlots(drops, 2, 3).message,
              u"Comps 2 and 3 were swapped, but could not be read again. Refresh shows them."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    desk.talk = nullptr;
}

TEST_F(SwapTest, WithoutAnAnswerIsNotKnown)
{
    for (const int silence : {error::kLinkTimeOut, error::kLinkPeerGone}) {
        conduit.FailOnce(u"execute "_s + Swap(u"4,3"_s), silence, u"No answer"_s);
        EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"Whether comps 2 and 3 were swapped is not known: the forms program "
                                                  u"did not answer. Refresh shows what is there."_s);
    }
    conduit.FailOnce(u"item UserID"_s, error::kLinkTimeOut, u"No answer"_s); // before the macro goes out
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"The report did not swap comps 2 and 3. Refresh shows what it holds."_s);
}

TEST_F(SwapTest, WhatWentWrongIsToldAsItIs)
{
    conduit.FailOnce(u"execute "_s + Swap(u"4,3"_s), error::kLinkBusy, u"No page"_s);
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, u"The report did not swap comps 2 and 3. Refresh shows what it holds."_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
    conduit.FailOnce(u"item SALEPAGE|2|5"_s, error::kLinkBusy, u"No cell"_s);
    const Outcome unread = SwapSlots(drops, 2, 3);
    EXPECT_TRUE(unread.done);
    EXPECT_EQ(unread.colour, forms::Colour::Red);
    EXPECT_EQ(unread.message, u"Comps 2 and 3 were swapped, but could not be read again. Refresh shows them."_s);
    const QString busy = u"The report is being read. Try again in a moment."_s;
    state.transferring = true;
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, busy);
    state.transferring = false;
    state.refreshing = true;
    EXPECT_EQ(SwapSlots(drops, 2, 3).message, busy);
}

} // namespace
} // namespace vasclip::drops
