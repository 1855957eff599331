#include "link/slot_icons.h"

#include "desk_test.h"
#include "link/caption_requests.h"
#include "link/coordinate_miles.h"

namespace vasclip::link {
namespace {

class SlotIcons : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        AddComp(u"1 Bare St"_s);
        AddComp(u"2 Front St"_s, {{u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s},
                                  {u"LONGITUDE"_s, u"-92.1"_s},
                                  {u"LATITUDE"_s, u"46.8"_s}});
        AddComp(u"3 Rear St"_s, {{u"PHOTOS"_s, u"REAR VIEW|B1\r\n"_s}, {u"LONGITUDE"_s, u"-92.1"_s}});
        for (std::size_t i = 0; i < 4; ++i)
            desk.icons.imaTypeIcon[i] = Square(10 + static_cast<int>(i));
        desk.icons.imaSubjectAnchor = Square(20);
    }
    static QImage Square(int side)
    {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }
    /// Which of the four pictures an icon shows, -1 hidden.
    static int Shown(const forms::PictureBox& icon)
    {
        return icon.Visible() ? icon.Picture().width() - 10 : -1;
    }
};

TEST_F(SlotIcons, TellWhatTheDatabookHas)
{
    report.txtComp(1).SetText(u"9 Unknown St"_s);
    report.txtComp(2).SetText(u"1 bare st "_s);
    report.txtComp(3).SetText(u"3 Rear St"_s);
    report.txtComp(4).SetText(u"2 Front St"_s);
    RefreshCompIcons(desk);
    QList<int> shown;
    for (int i = 1; i <= 5; ++i)
        shown << Shown(slots.imaCompIcon(i));
    EXPECT_EQ(shown, (QList<int>{0, 1, 1, 3, -1}));
    EXPECT_TRUE(slots.imaCompAnchor(4).Visible());
    EXPECT_EQ(slots.imaCompAnchor(4).Picture().width(), 20);
    EXPECT_FALSE(slots.imaCompAnchor(3).Visible()); // a longitude alone is no place
    EXPECT_FALSE(slots.imaCompAnchor(5).Visible());
}

TEST(CoordinateMiles, AreThePlainMeasure)
{
    EXPECT_EQ(DoCalcProximity(QString(), u"1|2"_s), 0);
    EXPECT_EQ(DoCalcProximity(u"1|2"_s, QString()), 0);
    EXPECT_FLOAT_EQ(DoCalcProximity(u"-86.0|32.0145"_s, u"-86.0|32.0"_s), 1);
    EXPECT_FLOAT_EQ(DoCalcProximity(u"-86.017213|32"_s, u"-86|32"_s), 1);
    EXPECT_FLOAT_EQ(DoCalcProximity(u"-86.051639|32.058"_s, u"-86|32"_s), 5);
}

TEST_F(SlotIcons, TheAnchorTellsHowFarACompIs)
{
    AddComp(u"4 Main St"_s, {{u"LONGITUDE"_s, u"-92.1"_s}, {u"LATITUDE"_s, u"46.829"_s}});
    for (auto* texts : {&report.txtComp, &report.txtAltComp, &report.txtListing, &report.txtRental}) {
        (*texts)(1).SetText(u"2 Front St"_s);
        (*texts)(2).SetText(u"1 Bare St"_s);
    }
    RefreshAllSlotIcons(desk);
    EXPECT_EQ(slots.imaCompAnchor(1).ToolTipText(), u"Its record has a place on the map"_s) << "without a subject there is nothing to measure from";
    report.txtSubject.SetText(u"4 Main St"_s);
    RefreshSubjectIcons(desk, 0);
    const QString told = u"About 2.0 miles from the subject, by the places that the Databook has"_s;
    for (auto* anchors : {&slots.imaCompAnchor, &slots.imaAltCompAnchor, &slots.imaListingAnchor, &slots.imaRentalAnchor}) {
        EXPECT_EQ((*anchors)(1).ToolTipText(), told);
        EXPECT_EQ((*anchors)(2).ToolTipText(), QString());
    }
    EXPECT_EQ(slots.imaSubjectAnchor(1).ToolTipText(), QString());
    report.txtComp(1).SetText(u"1 Bare St"_s);
    RefreshCompIcons(desk);
    EXPECT_EQ(slots.imaCompAnchor(1).ToolTipText(), QString()) << "not that of the comp before";
    report.txtComp(2).SetText(u"2 Front St"_s);
    RefreshSlotIcon(desk, {Group::Sales, 2});
    EXPECT_EQ(slots.imaCompAnchor(2).ToolTipText(), told);
    report.txtComp(2).SetText(QString());
    RefreshCompIcons(desk);
    EXPECT_EQ(slots.imaCompAnchor(2).ToolTipText(), QString());
}

TEST_F(SlotIcons, SubjectViewsAreLookedAtOneByOne)
{
    report.txtSubject.SetText(u"3 Rear St"_s);
    RefreshSubjectIcons(desk, 2);
    EXPECT_EQ(Shown(slots.imaSubjectIcon(2)), 2);
    EXPECT_NE(Shown(slots.imaSubjectIcon(1)), 1); // not asked for
    RefreshSubjectIcons(desk, 0);
    EXPECT_EQ(Shown(slots.imaSubjectIcon(1)), 1);
    EXPECT_EQ(Shown(slots.imaSubjectIcon(3)), 1);
    EXPECT_EQ(SubjectView(3), u"STREET SCENE"_s);
    EXPECT_EQ(SubjectView(4), u""_s);
}

TEST_F(SlotIcons, OfAllGroups)
{
    report.txtAltComp(6).SetText(u"2 Front St"_s);
    report.txtListing(6).SetText(u"2 Front St"_s);
    report.txtRental(9).SetText(u"2 Front St"_s);
    report.txtgeneraladdr(36).SetText(u"2 Front St"_s);
    RefreshAllSlotIcons(desk);
    EXPECT_EQ(Shown(slots.imaAltCompIcon(6)), 3);
    EXPECT_EQ(Shown(slots.imaListingIcon(6)), 3);
    EXPECT_EQ(Shown(slots.imaRentalIcon(9)), 3);
    EXPECT_EQ(Shown(slots.imaGeneralIcon(36)), 3);
    EXPECT_EQ(Shown(slots.imaRentalIcon(1)), -1);
}

TEST_F(SlotIcons, AddendumMarksFollowTheTexts)
{
    Picture(u"C:\\VAS2000\\Addendum_Full.bmp"_s);
    Picture(u"C:\\VAS2000\\Addendum_Empty.bmp"_s);
    report.txtComp(2).SetText(u"2 Front St"_s);
    report.txtRental(9).SetText(u"  "_s);
    RefreshAddendumIcons(desk);
    EXPECT_EQ(table.ErrGetPict(slots.geaComp(2)), u"C:\\VAS2000\\Addendum_Full.bmp"_s);
    EXPECT_EQ(table.ErrGetPict(slots.geaComp(1)), u"C:\\VAS2000\\Addendum_Empty.bmp"_s);
    EXPECT_EQ(table.ErrGetPict(slots.geaRental(9)), u"C:\\VAS2000\\Addendum_Empty.bmp"_s);
    EXPECT_TRUE(slots.geaListing(6).Visible());
}

TEST_F(SlotIcons, AddendumMarksOfSlotsTheFormLacksStayHidden)
{
    Picture(u"C:\\VAS2000\\Addendum_Empty.bmp"_s);
    report.txtComp(5).SetEnabled(false);
    slots.geaComp(5).SetVisible(false);
    RefreshAddendumIcons(desk);
    EXPECT_FALSE(slots.geaComp(5).Visible());
    EXPECT_TRUE(slots.geaComp(4).Visible());
}

using CaptionRequests = DeskTest;

TEST_F(CaptionRequests, AreCleanedIntoTheAddressFields)
{
    conduit.Answer(u"KEL|System"_s, u"SC_1"_s, u" 12 Oak St "_s);
    conduit.Answer(u"KEL|System"_s, u"SC_2"_s, u"MACRO(GETSC_2)"_s);
    conduit.Answer(u"KEL|System"_s, u"SC_3"_s, u"NULL"_s);
    addr.txtCompAddr(3).SetText(u"old"_s);
    KelRequestSalesCaptions13(desk);
    EXPECT_EQ(addr.txtCompAddr(1).Text(), u"12 Oak St"_s);
    EXPECT_EQ(addr.txtCompAddr(2).Text(), u""_s);
    EXPECT_EQ(addr.txtCompAddr(3).Text(), u""_s);
    EXPECT_EQ(conduit.log.mid(0, 7), (QStringList{u"text NULL"_s, u"mode 0"_s, u"topic KEL|System"_s,
                                                  u"mode 2"_s, u"item SC_1"_s, u"request"_s, u"mode 0"_s}));
}

TEST_F(CaptionRequests, OfRentalsNeedTheirForms)
{
    KelRequestRentalCaptions(desk);
    EXPECT_EQ(conduit.log.filter(u"item "_s), (QStringList{u"item RC_1"_s, u"item RC_2"_s, u"item RC_3"_s}));
    conduit.log.clear();
    addr.txtKelListForms.SetText(u"MUL,rent2,MULRNT79"_s);
    KelRequestRentalCaptions46(desk);
    KelRequestRentalCaptions79(desk);
    EXPECT_EQ(conduit.log.filter(u"item "_s), (QStringList{u"item RC_4"_s, u"item RC_5"_s, u"item RC_6"_s,
                                                           u"item RC_7"_s, u"item RC_8"_s, u"item RC_9"_s}));
}

TEST_F(CaptionRequests, OfTheOtherGroups)
{
    conduit.Answer(u"KEL|System"_s, u"SC_6"_s, u"six"_s);
    conduit.Answer(u"KEL|System"_s, u"SC_9"_s, u"nine"_s);
    conduit.Answer(u"KEL|System"_s, u"SC_2"_s, u"two"_s);
    conduit.Answer(u"KEL|System"_s, u"LC_6"_s, u"list"_s);
    KelRequestSalesCaptions46(desk);
    KelRequestSalesCaptions79(desk);
    KelRequestAltSalesCaptions13(desk);
    KelRequestAltSalesCaptions46(desk);
    KelRequestListingCaptions(desk);
    EXPECT_EQ(addr.txtCompAddr(6).Text(), u"six"_s);
    EXPECT_EQ(addr.txtCompAddr(9).Text(), u"nine"_s);
    EXPECT_EQ(addr.txtAltCompAddr(2).Text(), u"two"_s);
    EXPECT_EQ(addr.txtAltCompAddr(6).Text(), u"six"_s);
    EXPECT_EQ(addr.txtListingAddr(6).Text(), u"list"_s);
}

using DeskHelpers = DeskTest;

TEST_F(DeskHelpers, KelLabel)
{
    EXPECT_TRUE(TestKelLabel(addr));
    addr.lblFileNo.SetCaption(u" Kel not Active "_s);
    EXPECT_FALSE(TestKelLabel(addr));
}

TEST_F(DeskHelpers, EnsureRunningTriesTwice)
{
    OpenReport(u"SMITH"_s, u"UA5,"_s);
    conduit.AnswerOnce(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    EXPECT_TRUE(KelEnsureRunning(desk));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DeskHelpers, ASilentFormsProgramIsReportedInPlaceOfTheMessage)
{
    conduit.FailOnce(u"request"_s, error::kLinkTimeOut, u"No answer in time"_s);
    EXPECT_FALSE(KelEnsureRunning(desk));
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"No answer in time.\r\nError # 286 in module KelQueryActiveReport."_s}));
}

TEST_F(DeskHelpers, LaunchRemindsOfTheRefresh)
{
    QString opened;
    EXPECT_TRUE(LaunchFormsProgram(desk, [&](const QString& path) {
        opened = path;
        return true;
    }));
    EXPECT_EQ(opened, u"C:\\KEL\\Kel.exe"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"After launching the appraisal program\r\nTo LINK the active report to "
              "Vasclip\r\nREMEMBER: Click 'Refresh' (from Menu or 'HOUSE' icon)"_s);
    EXPECT_FALSE(LaunchFormsProgram(desk, [](const QString&) { return false; }));
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to Open Program"_s);
    EXPECT_TRUE(conduit.log.isEmpty());
}

TEST_F(DeskHelpers, KelIniReaderIsBlankForBlankNames)
{
    home.Put(u"C:\\KEL\\KEL.INI"_s, QByteArrayLiteral("[3X5_PHOTO_PAGES]\r\nSUBJECT_1=SUBPHOTO\r\n"));
    const IniReader reader = ReadsKelIni(home.disk, u"C:\\KEL\\KEL.INI"_s);
    EXPECT_EQ(reader(u"3x5_Photo_Pages"_s, u"subject_1"_s), u"SUBPHOTO"_s);
    EXPECT_EQ(reader(u""_s, u"SUBJECT_1"_s), u""_s);
    EXPECT_EQ(reader(u"3X5_PHOTO_PAGES"_s, u""_s), u""_s);
    EXPECT_EQ(ReadsKelIni(home.disk, {})(u"3X5_PHOTO_PAGES"_s, u"SUBJECT_1"_s), u""_s);
}

} // namespace
} // namespace vasclip::link
