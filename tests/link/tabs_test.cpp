#include "link/tabs.h"

#include "desk_test.h"

namespace vasclip::link {
namespace {

using Tabs = DeskTest;

TEST(Captions, OfRangesAndPages)
{
    EXPECT_EQ(CaptionRange(0), u"1 - 3"_s);
    EXPECT_EQ(CaptionRange(2), u"7 - 9"_s);
    EXPECT_EQ(PageCaption(u"COMP"_s, 2), u"4 - 6"_s);
    EXPECT_EQ(PageCaption(u"ALTCOMP"_s, 2), u"A 4 - 6"_s);
    EXPECT_EQ(PageCaption(u"GENERAL"_s, 12), u"12P"_s);
    EXPECT_EQ(PageCaption(u"OTHER"_s, 1), u""_s);
}

TEST_F(Tabs, StartWithTheirNormalCaptions)
{
    EXPECT_EQ(Captions(report.TabData),
              (QStringList{u"Subject"_s, u"Comparables"_s, u"General"_s, u"Listings"_s, u"Rentals"_s}));
    EXPECT_EQ(Captions(report.TabComp),
              (QStringList{u"1 - 3"_s, u"4 - 6"_s, u"7 - 9"_s, u"A 1 - 3"_s, u"A 4 - 6"_s}));
    EXPECT_EQ(Captions(report.TabListing), (QStringList{u"1 - 3"_s, u"4 - 6"_s}));
    EXPECT_EQ(Captions(report.TabGeneral).last(), u"12P"_s);
    EXPECT_EQ(report.lblRental(2).Caption(), u"Rentals 7 - 9"_s);
    EXPECT_EQ(report.lblAltComp(1).Caption(), u"Alt Comparables 4 - 6"_s);
}

TEST_F(Tabs, ShowThePagesOfTheReportAndNaForTheOthers)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_1"_s, u"COMPPAGE"_s},
           {u"3X5_PHOTO_PAGES/RENTALS_1"_s, u"RENTPAGE"_s},
           {u"4X6_PHOTO_PAGES/RENTALS_1"_s, u"RENTPAGE"_s},
           {u"3X5_NLPHOTO_PAGES/RENTALS_1"_s, u"RENTPAGE"_s},
           {u"4X6_NLPHOTO_PAGES/RENTALS_1"_s, u"RENTPAGE"_s},
           {u"3X5_PHOTO_PAGES/GENERAL_2"_s, u"GEN2"_s}};
    TestOtherTabs(desk, u"UA5,SUBPHOTO,COMPPAGE,GEN2"_s, false);
    EXPECT_EQ(Captions(report.TabComp), (QStringList{u"1 - 3"_s, u"N/A"_s, u"N/A"_s, u"N/A"_s, u"N/A"_s}));
    EXPECT_EQ(Captions(report.TabRental), (QStringList{u"N/A"_s, u"N/A"_s, u"N/A"_s}));
    EXPECT_EQ(report.TabGeneral.TabCaption(0), u"N/A"_s);
    EXPECT_EQ(report.TabGeneral.TabCaption(1), u"2P"_s);
    EXPECT_TRUE(report.txtComp(3).Enabled());
    EXPECT_FALSE(report.txtComp(4).Enabled());
    EXPECT_FALSE(report.txtRental(1).Enabled());
    EXPECT_FALSE(report.cboGeneral(3).Enabled());
    EXPECT_TRUE(report.cboGeneral(4).Enabled());
    EXPECT_TRUE(report.cboGeneral(6).Enabled());
    EXPECT_FALSE(report.cboGeneral(7).Enabled());
    EXPECT_EQ(report.lblComp(1).Caption(), u"Comparables 4 - 6"_s); // also of a page that is not there
}

TEST_F(Tabs, ForceAllShowsEveryPage)
{
    TestOtherTabs(desk, u"704,"_s, false);
    ASSERT_EQ(report.TabListing.TabCaption(0), u"N/A"_s);
    TestOtherTabs(desk, u""_s, true);
    for (const forms::TabControl* tab :
         {&report.TabComp, &report.TabGeneral, &report.TabListing, &report.TabRental})
        EXPECT_FALSE(Captions(*tab).contains(u"N/A"_s)) << tab->Name().toStdString();
    EXPECT_TRUE(report.txtComp(9).Enabled());
    EXPECT_TRUE(report.txtAltComp(6).Enabled());
}

TEST_F(Tabs, Form704HasNoListingsEvenIfItListsThem)
{
    ini = {{u"3X5_PHOTO_PAGES/LISTINGS_1"_s, u"LIST1"_s}, {u"3X5_PHOTO_PAGES/LISTINGS_2"_s, u"LIST2"_s}};
    TestOtherTabs(desk, u" 704 ,LIST1,LIST2"_s, false);
    EXPECT_EQ(Captions(report.TabListing), (QStringList{u"N/A"_s, u"N/A"_s}));
    EXPECT_FALSE(report.txtListing(1).Enabled());
}

TEST_F(Tabs, FormErsHasListingsWithoutAnyPageEntry)
{
    TestOtherTabs(desk, u"ers,SUBPHOTO"_s, false);
    EXPECT_EQ(Captions(report.TabListing), (QStringList{u"1 - 3"_s, u"4 - 6"_s}));
    EXPECT_TRUE(report.txtListing(6).Enabled());
    EXPECT_EQ(KelReturnPage(desk.kelIni, u"LISTINGS_1"_s, u"ERS,SUBPHOTO"_s), u""_s);
}

TEST_F(Tabs, FormDt3HidesCompsFiveAndSix)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_2"_s, u"COMP2"_s}};
    TestOtherTabs(desk, u"DT3,COMP2"_s, false);
    EXPECT_TRUE(report.txtComp(4).Enabled());
    for (int comp : {5, 6}) {
        EXPECT_FALSE(report.txtComp(comp).Enabled());
        EXPECT_FALSE(slots.imaComp(comp).Visible());
        EXPECT_FALSE(slots.geaComp(comp).Visible());
    }
}

TEST_F(Tabs, TheFormAfterDt3HasCompsFiveAndSixAgain)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_2"_s, u"COMP2"_s}};
    TestOtherTabs(desk, u"DT3,COMP2"_s, false);
    TestOtherTabs(desk, u"UA5,COMP2"_s, false);
    for (int comp : {5, 6}) {
        EXPECT_TRUE(report.txtComp(comp).Enabled());
        EXPECT_TRUE(slots.imaComp(comp).Visible());
        EXPECT_TRUE(slots.geaComp(comp).Visible());
    }
}

TEST_F(Tabs, TheThirdAlternatesKeyClaimsOnlyAPageLeftUnused)
{
    ini = {{u"DESCRIPTIONS/ALTPH1"_s, u"One"_s}, {u"DESCRIPTIONS/ALTPH3"_s, u"Three"_s}};
    TestOtherTabs(desk, u"UA5,ALTPH1,ALTPH3"_s, false);
    EXPECT_EQ(report.TabComp.TabCaption(3), u"A 1 - 3"_s);
    TestOtherTabs(desk, u"UA5,ALTPH3"_s, false);
    EXPECT_EQ(report.TabComp.TabCaption(3), u"A 7 - 9"_s); // the label says otherwise
    EXPECT_EQ(report.lblAltComp(0).Caption(), u"Alt Comparables 1 - 3"_s);
    EXPECT_TRUE(report.txtAltComp(1).Enabled());
    EXPECT_EQ(report.TabComp.TabCaption(4), u"N/A"_s);
}

TEST_F(Tabs, TheFourthAlternatesKeyClaimsTheSecondPage)
{
    ini = {{u"DESCRIPTIONS/ALTPH2"_s, u"Two"_s}, {u"DESCRIPTIONS/ALTPH4"_s, u"Four"_s}};
    TestOtherTabs(desk, u"UA5,ALTPH4"_s, false);
    EXPECT_EQ(Captions(report.TabComp),
              (QStringList{u"N/A"_s, u"N/A"_s, u"N/A"_s, u"N/A"_s, u"A 10 - 12"_s}));
    EXPECT_EQ(report.lblAltComp(1).Caption(), u"Alt Comparables 4 - 6"_s);
    EXPECT_FALSE(report.txtAltComp(3).Enabled());
    EXPECT_TRUE(report.txtAltComp(4).Enabled());
    TestOtherTabs(desk, u"UA5,ALTPH2,ALTPH4"_s, false);
    EXPECT_EQ(report.TabComp.TabCaption(4), u"A 4 - 6"_s) << "the second key comes first";
}

TEST_F(Tabs, FormAuc3IsNoException)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_2"_s, u"COMP2"_s}, {u"3X5_PHOTO_PAGES/LISTINGS_1"_s, u"LIST1"_s}};
    TestOtherTabs(desk, u"AUC3,COMP2,LIST1"_s, false);
    EXPECT_EQ(report.TabListing.TabCaption(0), u"1 - 3"_s);
    EXPECT_TRUE(report.txtComp(5).Enabled());
    EXPECT_TRUE(slots.imaComp(5).Visible());
}

TEST_F(Tabs, AnAvailablePageEnablesItsTabControl)
{
    report.TabRental.SetEnabled(false);
    HandleTabCaption(report.TabRental, 1, u"4 - 6"_s, false);
    EXPECT_FALSE(report.TabRental.Enabled());
    EXPECT_EQ(report.TabRental.TabCaption(1), u"N/A"_s);
    HandleTabCaption(report.TabRental, 1, u"4 - 6"_s, true);
    EXPECT_TRUE(report.TabRental.Enabled());
    EXPECT_EQ(report.TabRental.TabCaption(1), u"4 - 6"_s);
}

TEST_F(Tabs, LabelsOfUnknownTabsAndPagesStay)
{
    HandleNALabel(report, report.TabSubject, 0, false);
    HandleNALabel(report, report.TabComp, 5, false);
    HandleNALabel(report, report.TabGeneral, 12, false);
    HandleNALabel(report, report.TabListing, -1, false);
    for (int i = 1; i <= 6; ++i) {
        EXPECT_TRUE(report.txtComp(i).Enabled());
        EXPECT_TRUE(report.txtAltComp(i).Enabled());
        EXPECT_TRUE(report.txtListing(i).Enabled());
    }
    EXPECT_TRUE(report.cboGeneral(36).Enabled());
}

TEST_F(Tabs, SubjectTabNeedsItsPage)
{
    report.TabSubject.SetEnabled(false);
    TabDisable(desk, u"UA5,"_s);
    EXPECT_FALSE(report.TabSubject.Enabled());
    ini = {{u"3X5_PHOTO_PAGES/SUBJECT_1"_s, u"SUBPHOTO"_s}};
    TabDisable(desk, u"UA5,SUBPHOTO"_s);
    EXPECT_TRUE(report.TabSubject.Enabled());
}

class TabClicks : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        QObject::connect(&report.TabComp, &forms::TabControl::TabClicked, &report.TabComp,
                         [this](int previous) { TabClicked(desk, report.TabComp, previous); });
    }
};

TEST_F(TabClicks, SnapBackFromAPageThatIsNotThere)
{
    state.linkActive = true;
    report.TabComp.SetTabCaption(1, u"N/A"_s);
    report.TabComp.SetTab(1);
    EXPECT_EQ(report.TabComp.Tab(), 0);
    EXPECT_EQ(conduit.log, QStringList{});
}

/// The pages of the comps and, behind them, of the alternates.
TEST_F(TabClicks, SnapBackFromEveryPageThatIsNotThere)
{
    state.linkActive = true;
    for (int page = 1; page < report.TabComp.Tabs(); ++page) {
        report.TabComp.SetTabCaption(page, u"N/A"_s);
        report.TabComp.SetTab(page);
        EXPECT_EQ(report.TabComp.Tab(), 0) << page;
        EXPECT_EQ(report.cmdSubjectAnd.Caption(), u"Subject/Comp"_s) << page;
    }
    report.TabComp.SetTabCaption(3, u"A 1 - 3"_s);
    report.TabComp.SetTab(3);
    ASSERT_EQ(report.TabComp.Tab(), 3);
    report.TabComp.SetTab(4);
    EXPECT_EQ(report.TabComp.Tab(), 3) << "back to the alternates, from the page behind them";
    EXPECT_EQ(report.cmdSubjectAnd.Caption(), u"Subj/AltComp"_s);
}

TEST_F(TabClicks, FindAReportThatHasAppeared)
{
    ini = {{u"3X5_PHOTO_PAGES/COMPARABLES_2"_s, u"COMP2"_s}};
    OpenReport(u"SMITH"_s, u"UA5,COMP2"_s);
    report.TabComp.SetTab(1);
    EXPECT_TRUE(state.linkActive);
    EXPECT_EQ(report.TabComp.TabCaption(0), u"N/A"_s);
    EXPECT_EQ(report.TabComp.TabCaption(1), u"4 - 6"_s);
    EXPECT_EQ(addr.txtKelListForms.Text(), u"UA5,COMP2"_s);
}

TEST_F(TabClicks, WithNoProgramThereSayNothing)
{
    conduit.running = false;
    report.TabComp.SetTabCaption(1, u"N/A"_s);
    report.TabComp.SetTab(1);
    EXPECT_EQ(report.TabComp.Tab(), 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(TabClicks, AwayFromAMissingPageDoNothing)
{
    report.TabComp.SetTabCaption(0, u"N/A"_s);
    report.TabComp.SetTab(3);
    EXPECT_EQ(conduit.log, QStringList{});
    EXPECT_EQ(report.cmdSubjectAnd.Caption(), u"Subject/Comp"_s);
}

TEST_F(TabClicks, CaptionTheSubjectAndButton)
{
    state.linkActive = true;
    report.TabComp.SetTab(3);
    EXPECT_EQ(report.cmdSubjectAnd.Caption(), u"Subj/AltComp"_s);
    report.TabComp.SetTab(1);
    EXPECT_EQ(report.cmdSubjectAnd.Caption(), u"Subject/Comp"_s);
}

TEST_F(Tabs, SlotPagesThatAreNotThere)
{
    report.TabComp.SetTabCaption(1, u"N/A"_s);
    report.TabComp.SetTabCaption(4, u"N/A"_s);
    report.TabGeneral.SetTabCaption(11, u"N/A"_s);
    EXPECT_TRUE(SlotPageNotAvailable(report, u"txtComp"_s, 4));
    EXPECT_FALSE(SlotPageNotAvailable(report, u"geaComp"_s, 3));
    EXPECT_TRUE(SlotPageNotAvailable(report, u"IMAALTCOMP"_s, 6));
    EXPECT_FALSE(SlotPageNotAvailable(report, u"txtAltComp"_s, 1));
    EXPECT_TRUE(SlotPageNotAvailable(report, u"imaGeneral"_s, 34));
    EXPECT_FALSE(SlotPageNotAvailable(report, u"imaSubject"_s, 1));
    EXPECT_FALSE(SlotPageNotAvailable(report, u"grddatabook"_s, -1));
}

} // namespace
} // namespace vasclip::link
