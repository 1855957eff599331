#include "link/refresh.h"

#include "desk_test.h"
#include "link/addresses.h"
#include "link/read_entries.h"

namespace vasclip::link {
namespace {

class Refresh : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        ini = {{u"3X5_PHOTO_PAGES/SUBJECT_1"_s, u"SUBPHOTO"_s},
               {u"3X5_PHOTO_PAGES/COMPARABLES_1"_s, u"COMPPAGE"_s},
               {u"3X5_PHOTO_PAGES/COMPARABLES_2"_s, u"COMPPAG2"_s}};
        Map({u"UA5"_s, u"PAGE1"_s, u"ADDRESS"_s, u"2"_s, u"1"_s, u"SALE"_s, u"10"_s, u"0"_s});
        Map({u"UA5"_s, u"PAGE1"_s, u"CITY"_s, u"2"_s, u"2"_s, u"SALE"_s, u"10"_s, u"0"_s});
        Map({u"UA5"_s, u"PAGE1"_s, u"APPRSRFILE"_s, u"1"_s, u"1"_s, u"SALE"_s, u"10"_s, u"0"_s});
        Map({u"UA5"_s, u"page2"_s, u"address"_s, u"5"_s, u"3"_s, u"sale"_s, u"1"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE2"_s, u"NEIGHBORHD"_s, u"6"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE2"_s, u"GLA"_s, u"7"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO,COMPPAGE"_s);
        Cell(u"PAGE1|2|1"_s, u"1 Main St"_s);
        Cell(u"PAGE1|2|2"_s, u"Duluth"_s);
        Cell(u"PAGE1|1|1"_s, u"F-77"_s);
        Cell(u"PAGE2|5|3"_s, u"12 Oak St"_s);
        Cell(u"PAGE2|5|5"_s, u"14 Elm St"_s);
        Cell(u"PAGE2|6|3"_s, u"Duluth, MN 55802"_s);
    }
    void Cell(const QString& item, const QString& text) { conduit.Answer(u"KEL|SMITH"_s, item, text); }
    /// Gauge texts in order, without repeats.
    QStringList GaugeTexts(const std::function<void()>& work)
    {
        QStringList texts;
        const auto connection =
            QObject::connect(&status.gauProgress, &forms::Control::Changed, &status.gauProgress, [&] {
                const QString caption = status.gauProgress.Caption();
                if (!caption.isEmpty() && (texts.isEmpty() || texts.last() != caption))
                    texts << caption;
            });
        work();
        QObject::disconnect(connection);
        return texts;
    }
};

TEST_F(Refresh, MirrorsTheOpenReport)
{
    RefreshAppraisal(desk);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(state.linkActive);
    EXPECT_EQ(addr.txtKelReport.Text(), u"SMITH"_s);
    EXPECT_EQ(addr.txtFormType.Text(), u"UA5"_s);
    EXPECT_EQ(addr.txtKelFileNo.Text(), u"F-77"_s);
    EXPECT_EQ(addr.txtKelCity.Text(), u"Duluth"_s);
    EXPECT_EQ(globals.formsProgramVersion, u"5.03"_s);
    EXPECT_EQ(report.txtSubject.Text(), u"1 Main St"_s);
    EXPECT_EQ(report.txtComp(1).Text(), u"12 Oak St"_s);
    EXPECT_EQ(report.txtComp(2).Text(), u"14 Elm St"_s);
    EXPECT_EQ(report.txtComp(3).Text(), u""_s);
    EXPECT_EQ(addr.txtCompCity(1).Text(), u"Duluth"_s);
    EXPECT_EQ(addr.txtCompState(1).Text(), u"MN"_s);
    EXPECT_EQ(addr.txtCompZip(1).Text(), u"55802"_s);
    EXPECT_EQ(report.txtgeneraladdr(36).Text(), u"1 Main St"_s);
    EXPECT_EQ(Captions(report.TabComp), (QStringList{u"1 - 3"_s, u"N/A"_s, u"N/A"_s, u"N/A"_s, u"N/A"_s}));
    EXPECT_EQ(addr.lstAddr.Items(), (QStringList{u"1 Main St, Duluth, ,"_s, u"12 Oak St, Duluth, MN, 55802"_s,
                                                 u"14 Elm St, , ,"_s}));
    EXPECT_FALSE(doubles.window.hourglass);
    EXPECT_FALSE(state.refreshing);
}

TEST_F(Refresh, EveryFieldOfTheSubjectGoesToItsOwnPlace)
{
    const std::pair<QString, forms::TextBox*> rows[] = {{u"ADDRESS"_s, &addr.txtCompAddr(0)},
                                                        {u"CITY"_s, &addr.txtKelCity},
                                                        {u"ST"_s, &addr.txtKelState},
                                                        {u"ZIP"_s, &addr.txtKelZip},
                                                        {u"COUNTY"_s, &addr.txtKelCounty},
                                                        {u"NEIGHBORHD"_s, &addr.txtKelNeighBorHd},
                                                        {u"APPRSRFILE"_s, &addr.txtKelFileNo}};
    engine.OpenDatabase(kMapping)->Execute(u"DELETE FROM Comp2Kel"_s);
    int row = 20;
    for (const auto& [field, box] : rows) {
        Map({u"UA5"_s, u"PAGE1"_s, field, QString::number(row), u"1"_s, u"SALE"_s, u"10"_s, u"0"_s});
        Cell(u"PAGE1|%1|1"_s.arg(row++), u"the "_s + field);
    }
    RefreshAppraisal(desk);
    for (const auto& [field, box] : rows)
        EXPECT_EQ(box->Text(), u"the "_s + field) << field.toStdString();
}

TEST_F(Refresh, AListOfReportsWithoutACommaNamesNoReportAndIsToldWithoutABox)
{
    RefreshAppraisal(desk);
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH"_s);
    EXPECT_EQ(RefreshAppraisal(desk), u"The forms program lists its open reports as \"SMITH\", without a comma: which one "
                                      u"is in front is not known, so the tabs show none."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Last().text.toStdString();
    EXPECT_FALSE(state.linkActive);
    EXPECT_EQ(status.lblmsg.Caption(), u"The forms program lists its open reports as \"SMITH\", without a comma: "
                                       u"which one is in front is not known"_s);
    EXPECT_EQ(report.txtComp(1).Text(), QString()) << "nothing of the report before stays";
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,JONES"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,SUBPHOTO,COMPPAGE"_s);
    RefreshAppraisal(desk);
    EXPECT_EQ(report.txtComp(1).Text(), u"12 Oak St"_s) << "the last comma alone is not missed";
}

TEST_F(Refresh, BlankAnswersMeanThatNoReportIsOpen)
{
    for (const QString& answer : {QString(), u"  "_s, u"None"_s}) {
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, answer);
        RefreshAppraisal(desk);
        EXPECT_FALSE(state.linkActive);
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(status.lblmsg.Caption(), QString());
}

TEST_F(Refresh, AFormsListWithoutACommaIsToldBesideTheMissingMapping)
{
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5"_s);
    RefreshAppraisal(desk);
    EXPECT_EQ(doubles.prompter.Last().text, u"Reference Entries Not Found (Comp2Kel file incomplete)."_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"The forms program lists the forms of SMITH as \"UA5\", without a comma: its "
                                       u"main form is not known"_s);
}

TEST_F(Refresh, GaugeTellsItsSteps)
{
    EXPECT_EQ(
        GaugeTexts([this] { RefreshAppraisal(desk); }),
        (QStringList{u"Populating Tabs"_s, u"Setting Appraisal Addresses"_s,
                     u"Importing Appraisal Information"_s, u"Reading Subject photos"_s,
                     u"Setting Subject Label"_s, u"Reading Comp photos"_s, u"Setting Comp Labels"_s,
                     u"Reading Alt. Comp photos"_s, u"Setting Alt. Comp Labels"_s,
                     u"Reading General photos"_s, u"Populating General Labels"_s,
                     u"Reading Listings photos"_s, u"Setting Listings Labels"_s, u"Reading Rental photos"_s,
                     u"Setting Rental Labels"_s, u"Verifying Addresses (City, ST, ZIP)"_s}));
    EXPECT_EQ(status.gauProgress.Caption(), u""_s);
    EXPECT_EQ(logged, (QStringList{u"SetPhotos('SUB')"_s, u"setSubjectLabels"_s, u"SetPhotos('CMP')"_s,
                                   u"SetSalesLabels"_s, u"SetPhotos('ALT')"_s, u"SetAltSalesLabels"_s,
                                   u"SetPhotos('GN')"_s, u"TabPopulateGeneralText"_s, u"SetPhotos('LCMP')"_s,
                                   u"SetListingLabels"_s, u"SetPhotos('RCMP')"_s, u"SetRentalLabels"_s}));
}

TEST_F(Refresh, AsksForTheReportThenItsFormsAndImages)
{
    Script(u"ADDPLUS.BAS"_s);
    RefreshAppraisal(desk);
    const QStringList query = {u"mode 0"_s,  u"topic KEL|Query"_s, u"mode 2"_s, u"item ActiveReports"_s,
                               u"request"_s, u"mode 0"_s};
    const QStringList start = QStringList{u"text "_s} + query + query +
                              QStringList{u"mode 0"_s,
                                          u"topic Kel|SMITH"_s,
                                          u"item UserID"_s,
                                          u"mode 2"_s,
                                          u"request"_s,
                                          u"mode 0"_s,
                                          u"mode 0"_s,
                                          u"topic KEL|SMITH"_s,
                                          u"item ListForms"_s,
                                          u"mode 2"_s,
                                          u"request"_s,
                                          u"mode 0"_s,
                                          u"mode 0"_s,
                                          u"topic KEL|System"_s,
                                          u"mode 2"_s,
                                          u"execute [RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s,
                                          u"item IMAGES"_s,
                                          u"request"_s,
                                          u"mode 0"_s,
                                          u"mode 0"_s,
                                          u"topic KEL|System"_s,
                                          u"mode 2"_s,
                                          u"execute [RunMacro(ADDPLUS.BAS)]\r"_s,
                                          u"mode 0"_s};
    EXPECT_EQ(conduit.log.mid(0, start.size()), start);
}

TEST_F(Refresh, WithTheFormsProgramClosedSaysNothingAndShowsEveryTab)
{
    RefreshAppraisal(desk);
    conduit.running = false;
    report.TabData.SetTab(3);
    RefreshAppraisal(desk);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_FALSE(state.linkActive);
    for (const forms::TabControl* tab :
         {&report.TabComp, &report.TabGeneral, &report.TabListing, &report.TabRental}) {
        EXPECT_TRUE(tab->Enabled());
        EXPECT_FALSE(Captions(*tab).contains(u"N/A"_s));
    }
    EXPECT_EQ(report.txtComp(1).Text(), u""_s);
    EXPECT_EQ(addr.txtKelReport.Text(), u""_s);
    EXPECT_EQ(addr.lstAddr.ListCount(), 0);
    EXPECT_EQ(report.TabData.Tab(), 0);
}

TEST_F(Refresh, ShowsTheReportsPictures)
{
    Picture(u"C:\\JPG\\A1.jpg"_s);
    conduit.Answer(u"KEL|System"_s, u"IMAGES"_s, u"SUB_1_3X5|;cmp_2_3x5|C:\\JPG\\A1.jpg;"_s);
    loader.ErrLoadThumb(slots.imaComp(1), u"C:\\JPG\\A1.jpg"_s);
    RefreshAppraisal(desk);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u""_s);
    RefreshAppraisal(desk); // all slots are emptied first, so it stays on show
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u"C:\\JPG\\A1.jpg"_s);
}

TEST_F(Refresh, NothingOfAnotherReportSurvives)
{
    addr.txtRentalAddr(2).SetText(u"9 Old St"_s);
    addr.txtKelOwner.SetText(u"Old owner"_s);
    addr.lstAddr.AddItem(u"9 Old St, , ,"_s);
    RefreshAppraisal(desk);
    EXPECT_EQ(report.txtRental(2).Text(), u""_s);
    EXPECT_EQ(addr.txtKelOwner.Text(), u""_s);
    EXPECT_FALSE(addr.lstAddr.Items().contains(u"9 Old St, , ,"_s));
}

TEST_F(Refresh, OfAnUnknownFormEndsTheProgram)
{
    OpenReport(u"SMITH"_s, u"XYZ,SUBPHOTO"_s);
    EXPECT_THROW(RefreshAppraisal(desk), forms::EndOfProgram);
    EXPECT_EQ(
        doubles.prompter.Last(),
        (tests::ShownBox{forms::Buttons::Ok, forms::Icon::Information,
                         u"Software Does Not Match Appraisal Form Type"_s,
                         u"This software is out of date for this form.  Please contact your software vendor "
                         "for an update."_s}));
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(Refresh, OfARefusedVersionEndsTheProgram)
{
    desk.productVersion = u"1.0"_s;
    desk.versionServes = [](const QString& version) { return version != "5.03"_L1; };
    EXPECT_THROW(RefreshAppraisal(desk), forms::EndOfProgram);
    EXPECT_EQ(doubles.prompter.Last().title, u"Vasclip Software Mismatch"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The current Vasclip software ( version 1.0 ) is out of date for use with Korvat Forms ( "
              u"version 5.03 "
              ").  Please contact your software vendor for updating Vasclip."_s);
}

TEST_F(Refresh, WithoutMappingRowsSaysSoAndReadsNothing)
{
    OpenReport(u"SMITH"_s, u"FA4,"_s);
    RefreshAppraisal(desk);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"No Matches to Form Type Found"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Reference Entries Not Found (Comp2Kel file incomplete)."_s);
    EXPECT_TRUE(logged.isEmpty());
}

TEST_F(Refresh, AFormCodeOfAnotherCaseIsTheSameForm)
{
    Map({u"UA5 X"_s, u"PAGE1"_s, u"ZIP"_s, u"2"_s, u"5"_s, u"SALE"_s, u"10"_s, u"0"_s});
    OpenReport(u"SMITH"_s, u"ua5,SUBPHOTO,COMPPAGE"_s);
    RefreshAppraisal(desk);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(report.txtSubject.Text(), u"1 Main St"_s);
    EXPECT_EQ(addr.txtKelZip.Text(), u""_s);
}

TEST_F(Refresh, GoesOnWithTheNextStepAfterAFailure)
{
    conduit.FailOnce(u"item PAGE1|2|2"_s, error::kLinkTimeOut, u"No answer in time"_s);
    RefreshAppraisal(desk);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"No answer in time.\r\nError # 286 in module KelGetFieldInfo."_s);
    EXPECT_EQ(report.txtComp(1).Text(), u"12 Oak St"_s); // read before it
    EXPECT_EQ(logged.size(), 12);
}

TEST_F(Refresh, ReadsPastRefusedFieldsAndTellsOnce)
{
    conduit.FailOnce(u"item PAGE2|5|3"_s, error::kLinkBusy, u"PAGE2 has no cell 5|3"_s);
    conduit.FailOnce(u"item PAGE1|1|1"_s, error::kLinkBusy, u"PAGE1 has no cell 1|1"_s);
    RefreshAppraisal(desk);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"PAGE2 has no cell 5|3 (and 1 more fields of the report were refused).\r\n"
                           "Error # 285 in module AddKelEntries2VASP."_s}));
    EXPECT_EQ(report.txtSubject.Text(), u"1 Main St"_s);
}

TEST_F(Refresh, ThatCannotOpenTheReportShowsEveryTab)
{
    conduit.FailOnce(u"item ListForms"_s, error::kLinkPeerGone, u"The answer is garbage"_s);
    RefreshAppraisal(desk);
    ASSERT_GE(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Boxes()[0].text,
              u"The answer is garbage.\r\nError # 289 in module KelListForms."_s);
    EXPECT_EQ(Captions(report.TabListing), (QStringList{u"1 - 3"_s, u"4 - 6"_s}));
}

TEST_F(Refresh, WithinARefreshDoesNothing)
{
    int nested = 0;
    doubles.pump.onTurn = [&] {
        ++nested;
        const qsizetype before = conduit.log.size();
        RefreshAppraisal(desk);
        EXPECT_EQ(conduit.log.size(), before);
    };
    RefreshAppraisal(desk);
    EXPECT_GT(nested, 0);
}

TEST_F(Refresh, SurvivesAnotherUseOfTheMappingWhileTheQueueTurns)
{
    doubles.pump.onTurn = [this] {
        sources.datComp2Kel_CURRENT.SetRecordSource(u"Comp2Kel"_s);
        sources.datComp2Kel_CURRENT.Refresh();
    };
    RefreshAppraisal(desk);
    EXPECT_EQ(report.txtComp(2).Text(), u"14 Elm St"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Refresh, IgnoresPageBasesAndGroupsItDoesNotServe)
{
    Map({u"UA5"_s, u"PAGE9"_s, u"ADDRESS"_s, u"1"_s, u"1"_s, u"SALE"_s, u"2"_s, u"1"_s});
    Map({u"UA5"_s, u"PAGE9"_s, u"ADDRESS"_s, u"1"_s, u"1"_s, u"OTHER"_s, u"1"_s, u"1"_s});
    Map({u"UA5"_s, u"PAGE9"_s, u"ADDRESS"_s, u"1"_s, u"1"_s, u"ALT"_s, u"7"_s, u"1"_s});
    RefreshAppraisal(desk);
    EXPECT_FALSE(conduit.log.join(u'\n').contains(u"PAGE9"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Refresh, ReadsTheOtherGroupsToTheirFields)
{
    Map({u"UA5"_s, u"ALTP"_s, u"ADDRESS"_s, u"1"_s, u"1"_s, u"ALT"_s, u"4"_s, u"1"_s});
    Map({u"UA5"_s, u"RENTP"_s, u"ADDRESS"_s, u"1"_s, u"1"_s, u"RENT"_s, u"7"_s, u"1"_s});
    Map({u"UA5"_s, u"LISTP"_s, u"NEIGHBORHD"_s, u"1"_s, u"1"_s, u"LIST"_s, u"1"_s, u"1"_s});
    Cell(u"ALTP|1|3"_s, u"6 Alt St"_s);
    Cell(u"RENTP|1|1"_s, u"7 Rent St"_s);
    Cell(u"LISTP|1|2"_s, u"Ely, MN 55731"_s);
    RefreshAppraisal(desk);
    EXPECT_EQ(report.txtAltComp(6).Text(), u"6 Alt St"_s);
    EXPECT_EQ(report.txtRental(7).Text(), u"7 Rent St"_s);
    EXPECT_EQ(addr.txtListCity(2).Text(), u"Ely"_s);
    EXPECT_EQ(addr.txtListZip(2).Text(), u"55731"_s);
}

TEST_F(Refresh, AddressListHoldsEachAddressOnceAndNoEmptyOne)
{
    addr.txtCompAddr(0).SetText(u"1 Main St"_s);
    addr.txtCompAddr(2).SetText(u"1 MAIN ST"_s);
    FillAddressList(desk);
    EXPECT_EQ(addr.lstAddr.Items(), (QStringList{u"1 Main St, , ,"_s}));
}

TEST_F(Refresh, GeneralSlotsTakeTheWindowsSubjectWhereItDiffers)
{
    addr.txtCompAddr(0).SetText(u"1 Main St"_s);
    report.txtSubject.SetText(u" 1 MAIN ST"_s);
    SetGeneralAddresses(desk);
    EXPECT_EQ(report.txtgeneraladdr(1).Text(), u"1 Main St"_s);
    report.txtSubject.SetText(u"2 Side St"_s);
    SetGeneralAddresses(desk);
    EXPECT_EQ(report.txtgeneraladdr(36).Text(), u"2 Side St"_s);
}

TEST_F(Refresh, ClearKelAddressesLeavesNothing)
{
    addr.txtKelReport.SetText(u"SMITH"_s);
    addr.txtRentProximity(9).SetText(u"1.2 Mi. NW"_s);
    addr.lstAddr.AddItem(u"x"_s);
    ClearKelAddresses(addr);
    EXPECT_EQ(addr.txtKelReport.Text(), u""_s);
    EXPECT_EQ(addr.txtRentProximity(9).Text(), u""_s);
    EXPECT_EQ(addr.lstAddr.ListCount(), 0);
}

} // namespace
} // namespace vasclip::link
