#include "link/link_state.h"

#include "desk_test.h"

namespace vasclip::link {
namespace {

using Sees = LinkWatch::Sees;

class State : public DeskTest
{
protected:
    void Mirror(const QString& name)
    {
        addr.txtKelReport.SetText(name);
        addr.txtKelFileNo.SetText(name.isEmpty() ? QString() : u" 24-118 "_s);
        addr.txtCompAddr(0).SetText(name.isEmpty() ? QString() : u"114 Oak St"_s);
    }
    LinkStanding Look(Sees sees, const QString& words = {})
    {
        const LinkStanding standing = StandingOf(desk, sees, words);
        ShowStanding(report, standing);
        EXPECT_EQ(report.cmdLink.Visible(), standing.help != LinkHelp::None);
        EXPECT_EQ(report.cmdLink.Visible(), !report.cmdLink.Caption().isEmpty()) << "a button says what it does";
        return standing;
    }
};

TEST_F(State, OfTheLinkedReportNamesItWithFileNumberAndSubject)
{
    Mirror(u"OAK.RPT"_s);
    EXPECT_EQ(Look(Sees::Reports, u"oak.rpt,FERRY.RPT,"_s).help, LinkHelp::None);
    EXPECT_EQ(report.lblReport.Caption(), u"OAK.RPT, file 24-118, 114 Oak St"_s);
    EXPECT_EQ(report.lblLink.Caption(), u"Linked to Korvat Forms"_s);
    EXPECT_EQ(report.lblLink.Fore(), forms::Colour::Green);
}

TEST_F(State, OfAnotherReportOffersToRefreshFromIt)
{
    Mirror(u"OAK.RPT"_s);
    EXPECT_EQ(Look(Sees::Reports, u"FERRY.RPT,OAK.RPT,"_s).help, LinkHelp::Refresh);
    EXPECT_EQ(report.lblReport.Caption(), u"OAK.RPT, file 24-118, 114 Oak St"_s);
    EXPECT_EQ(report.lblLink.Caption(), u"The forms program has FERRY.RPT active"_s);
    EXPECT_EQ(report.cmdLink.Caption(), u"Refresh from FERRY.RPT"_s);
}

TEST_F(State, BeforeTheFirstRefreshOffersIt)
{
    EXPECT_EQ(Look(Sees::Reports, u"FERRY.RPT,"_s).help, LinkHelp::Refresh);
    EXPECT_EQ(report.lblReport.Caption(), u"No report"_s);
    EXPECT_EQ(report.lblLink.Caption(), u"FERRY.RPT is open; the tabs have not been read from it"_s);
}

TEST_F(State, WithoutAReportOrAProgram)
{
    struct Row
    {
        Sees sees;
        QString words, mirrored, says;
        LinkHelp help;
    };
    for (const Row& row : {Row{Sees::Reports, u"none"_s, {}, u"No report is open in Korvat Forms"_s, LinkHelp::None},
                           Row{Sees::Reports, u"none"_s, u"OAK.RPT"_s, u"No report is open in Korvat Forms"_s,
                               LinkHelp::Refresh},
                           Row{Sees::Reports, u"OAK.RPT"_s, u"OAK.RPT"_s,
                               u"Korvat Forms does not tell which report is in front"_s, LinkHelp::TryAgain},
                           Row{Sees::NotRunning, {}, {}, u"Korvat Forms is not running"_s, LinkHelp::StartFormsProgram},
                           Row{Sees::NotRunning, {}, u"OAK.RPT"_s, u"Korvat Forms is not running"_s,
                               LinkHelp::StartFormsProgram},
                           Row{Sees::AnothersUser, u"The socket is bob's"_s, {}, u"The socket is bob's"_s,
                               LinkHelp::TryAgain},
                           Row{Sees::Silent, {}, {}, u"Korvat Forms does not answer"_s, LinkHelp::TryAgain},
                           Row{Sees::Nothing, {}, {}, u"Looking for Korvat Forms..."_s, LinkHelp::None}}) {
        Mirror(row.mirrored);
        EXPECT_EQ(Look(row.sees, row.words).help, row.help) << row.says.toStdString();
        EXPECT_EQ(report.lblLink.Caption(), row.says);
    }
}

} // namespace
} // namespace vasclip::link
