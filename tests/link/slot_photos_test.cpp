#include "link/slot_photos.h"

#include "desk_test.h"
#include "link/general_text.h"

namespace vasclip::link {
namespace {

struct ObjectRow
{
    const char* name;
    QString control;
    int index;
    QString answer;
};
class ObjectName : public testing::TestWithParam<ObjectRow>
{};
TEST_P(ObjectName, OfASlot)
{
    EXPECT_EQ(ImageObjectName(GetParam().control, GetParam().index), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(Rows, ObjectName,
                         testing::Values(ObjectRow{"SubjectZero", u"imaSubject"_s, 0, u"SUB_0_"_s},
                                         ObjectRow{"Comp", u"imaComp"_s, 3, u"CMP_3_"_s},
                                         ObjectRow{"TextComp", u"txtComp"_s, 9, u"CMP_9_"_s},
                                         ObjectRow{"Alternate", u"imaAltComp"_s, 2, u"ALT_2_"_s},
                                         ObjectRow{"Listing", u"imaListing"_s, 6, u"LCMP_6_"_s},
                                         ObjectRow{"Rental", u"imaRental"_s, 7, u"RCMP_7_"_s},
                                         ObjectRow{"General", u"imaGeneral"_s, 36, u"GN_36_"_s},
                                         ObjectRow{"Other", u"mapPic"_s, 1, u""_s},
                                         ObjectRow{"Map", u"mapPic"_s, -1, u"MAP_LOCATION"_s},
                                         ObjectRow{"GeneralMap", u"mapPic"_s, -2, u"MAP_GENERAL_1"_s},
                                         ObjectRow{"Fax", u"x"_s, -3, u"FAX_SCAN_A"_s},
                                         ObjectRow{"Empty", u"imaComp"_s, -4, u""_s}),
                         [](const auto& row) { return row.param.name; });

TEST(ParseImages, FindsAnEntryInAnyCase)
{
    const QString images = u"SUB_1_3X5|C:\\a.jpg;cmp_1_3x5|C:\\b.jpg;CMP_10_3X5|;"_s;
    EXPECT_EQ(KelParseImages(images, u"SUB_1_"_s), u"SUB_1_3X5|C:\\a.jpg"_s);
    EXPECT_EQ(KelParseImages(images, u"CMP_1_"_s), u"cmp_1_3x5|C:\\b.jpg"_s);
    EXPECT_EQ(KelParseImages(images, u"CMP_10_"_s), u"CMP_10_3X5|"_s);
    EXPECT_EQ(KelParseImages(images, u"ALT_1_"_s), u""_s);
    EXPECT_EQ(KelParseImages(u""_s, u"ALT_1_"_s), u""_s);
}

TEST(ParseImages, ALastEntryWithoutItsSemicolonFails)
{
    EXPECT_THROW((void)KelParseImages(u"SUB_1_3X5|C:\\a.jpg"_s, u"SUB_1_"_s), RuntimeError);
}

class SlotPhotos : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO"_s);
        Picture(u"C:\\JPG\\A1.jpg"_s);
        Picture(u"C:\\JPG\\B2.jpg"_s);
    }
    static QString SetImage(const QString& object, const QString& path)
    {
        return u"[RunMacro( SetImage \""_s + object + u"\", \""_s + path + u"\" ) ]\r"_s;
    }
};

TEST_F(SlotPhotos, SendIsTheWholeConversation)
{
    Script(u"refresh.bas"_s);
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(KelSendSlotPhoto(desk, slots.imaComp(2), slots.imaComp(2), 2), SlotSend::Sent);
    EXPECT_EQ(conduit.log, (QStringList{u"mode 0"_s,
                                        u"topic KEL|Query"_s,
                                        u"mode 2"_s,
                                        u"item ActiveReports"_s,
                                        u"request"_s,
                                        u"mode 0"_s,
                                        u"mode 0"_s,
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
                                        u"mode 2"_s,
                                        u"execute "_s + SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\A1.jpg"_s),
                                        u"mode 0"_s,
                                        u"mode 0"_s,
                                        u"topic KEL|System"_s,
                                        u"mode 2"_s,
                                        u"execute [RunMacro(refresh.bas)]\r"_s,
                                        u"mode 0"_s}));
}

TEST_F(SlotPhotos, AFixedObjectHasNoSize)
{
    KelSendSlotPhoto(desk, slots.imaComp(2), slots.imaComp(2), -1);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"MAP_LOCATION"_s, {})}));
}

TEST_F(SlotPhotos, SubjectZeroTakesTheSize)
{
    KelSendSlotPhoto(desk, slots.imaSubject(1), slots.imaSubject(1), 0);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"SUB_0_3X5"_s, {})}));
}

TEST_F(SlotPhotos, AMissingFileClearsTheObjectSilently)
{
    table.ErrSetPict(slots.imaComp(2), u"C:\\JPG\\GONE.jpg"_s);
    EXPECT_EQ(KelSendSlotPhoto(desk, slots.imaComp(2), slots.imaComp(2), 2), SlotSend::Cleared);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"CMP_2_3X5"_s, {})}));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(SlotPhotos, ANameWithNothingBeforeItsExtensionClearsTheObject)
{
    Picture(u"C:\\JPG\\.jpg"_s);
    table.ErrSetPict(slots.imaComp(2), u"C:\\JPG\\.jpg"_s);
    KelSendSlotPhoto(desk, slots.imaComp(2), slots.imaComp(2), 2);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"CMP_2_3X5"_s, {})}));
}

TEST_F(SlotPhotos, AStoredViewIsLoadedAndSentAndTheScriptRunsTwice)
{
    Script(u"refresh.bas"_s);
    const photos::PhotoList list({{u"REAR VIEW"_s, u"B2"_s}, {u"front view"_s, u" A1 "_s}});
    EXPECT_EQ(SendKelTheView(desk, slots.imaComp(2), slots.imaComp(2), 2, list, u"FRONT VIEW"_s), SlotSend::Sent);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(conduit.commands,
              (QStringList{SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\A1.jpg"_s), u"[RunMacro(refresh.bas)]\r"_s,
                           u"[RunMacro(refresh.bas)]\r"_s}));
    EXPECT_EQ(doubles.window.activations, 2);
}

TEST_F(SlotPhotos, AStoredViewWhoseFileIsGoneClearsTheObjectAndSaysSo)
{
    const photos::PhotoList list({{u"FRONT VIEW"_s, u"GONE"_s}});
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(SendKelTheView(desk, slots.imaComp(2), slots.imaComp(2), 2, list, u"FRONT VIEW"_s), SlotSend::Cleared);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"CMP_2_3X5"_s, {})}));
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), QString());
}

TEST_F(SlotPhotos, ARecordWithoutTheViewEmptiesTheSlotOnly)
{
    Script(u"refresh.bas"_s);
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(SendKelTheView(desk, slots.imaComp(2), slots.imaComp(2), 2, {}, u"FRONT VIEW"_s), SlotSend::Cleared);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u""_s);
    EXPECT_EQ(conduit.commands, (QStringList{u"[RunMacro(refresh.bas)]\r"_s}));
}

TEST_F(SlotPhotos, AFailedSendIsReportedOnce)
{
    Script(u"refresh.bas"_s);
    const photos::PhotoList list({{u"FRONT VIEW"_s, u"A1"_s}});
    conduit.FailOnce(u"item ListForms"_s, error::kLinkTimeOut, u"No answer in time"_s);
    EXPECT_EQ(SendKelTheView(desk, slots.imaComp(2), slots.imaComp(2), 2, list, u"FRONT VIEW"_s), SlotSend::Failed);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"No answer in time.\r\nError # 286 in module KelListForms."_s}));
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(doubles.window.activations, 2);
}

TEST_F(SlotPhotos, ClearingAsksWhenTold)
{
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\A1.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(ClearSlotPhoto(desk, slots.imaComp(2), true));
    EXPECT_EQ(doubles.prompter.Last().text, u"Clear the photo.  Are you sure?"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u"C:\\JPG\\A1.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(ClearSlotPhoto(desk, slots.imaComp(2), true));
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u""_s);
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"CMP_2_3X5"_s, {})}));
}

TEST_F(SlotPhotos, TheImagesListFillsAGroup)
{
    addr.txtKelimages.SetText(u"CMP_1_3X5|C:\\JPG\\A1.jpg;CMP_2_3X5|;ALT_3_3X5|C:\\JPG\\B2.jpg;"_s);
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\B2.jpg"_s);
    SetPhotos(desk, u"CMP"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u"C:\\JPG\\A1.jpg"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), u""_s); // a blank path empties the slot
    EXPECT_EQ(table.ErrGetPict(slots.imaAltComp(3)), u""_s);
    SetPhotos(desk, u"ALT"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaAltComp(3)), u"C:\\JPG\\B2.jpg"_s);
}

TEST_F(SlotPhotos, ASecondFillWithoutEmptyingEmptiesTheSlot)
{
    addr.txtKelimages.SetText(u"CMP_1_3X5|C:\\JPG\\A1.jpg;"_s);
    SetPhotos(desk, u"CMP"_s);
    addr.txtKelimages.SetText(u"CMP_1_3X5|c:\\jpg\\a1.jpg;"_s);
    SetPhotos(desk, u"CMP"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u""_s);
}

TEST_F(SlotPhotos, ADamagedPictureOfTheReportDoesNotHideTheOthers)
{
    home.Put(u"C:\\JPG\\BAD.jpg"_s, QByteArrayLiteral("\xFF\xD8\xFFno picture"));
    addr.txtKelimages.SetText(
        u"CMP_1_3X5|C:\\JPG\\A1.jpg;CMP_2_3X5|C:\\JPG\\BAD.jpg;CMP_3_3X5|C:\\JPG\\B2.jpg;"_s);
    SetPhotos(desk, u"CMP"_s);
    EXPECT_FALSE(slots.imaComp(1).Picture().isNull());
    EXPECT_TRUE(slots.imaComp(2).Picture().isNull());
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(3)), u"C:\\JPG\\B2.jpg"_s);
    EXPECT_FALSE(slots.imaComp(3).Picture().isNull());
}

TEST_F(SlotPhotos, AListThatBreaksOffIsReported)
{
    addr.txtKelimages.SetText(u"CMP_1_3X5|C:\\JPG\\A1.jpg;CMP_2_3X5|C:\\JP"_s);
    SetPhotos(desk, u"CMP"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u"C:\\JPG\\A1.jpg"_s);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"CMP_2_3X5|C:\\JP"_s));
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"in module SetPhotos."_s));
}

TEST_F(SlotPhotos, ObjectsOfEveryGroupFindTheirSlot)
{
    const QString path = u"C:\\JPG\\A1.jpg"_s;
    for (const QString& name :
         {u"SUB_1_3X5"_s, u"CMP_9_3X5"_s, u"ALT_6_"_s, u"gn_36_4X6"_s, u"RCMP_9_"_s, u"LCMP_6_"_s})
        LocateAndDisplay(desk, name, path);
    EXPECT_EQ(table.ErrGetPict(slots.imaSubject(1)), path);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(9)), path);
    EXPECT_EQ(table.ErrGetPict(slots.imaAltComp(6)), path);
    EXPECT_EQ(table.ErrGetPict(slots.imaGeneral(36)), path);
    EXPECT_EQ(table.ErrGetPict(slots.imaRental(9)), path);
    EXPECT_EQ(table.ErrGetPict(slots.imaListing(6)), path);
}

TEST_F(SlotPhotos, OtherObjectsAndMissingFilesDoNothing)
{
    for (const QString& name :
         {u""_s, u"MAP_LOCATION"_s, u"Sub_Title"_s, u"SKETCH_SUBJECT"_s, u"CMP"_s, u"XYZ_1_"_s})
        EXPECT_NO_THROW(LocateAndDisplay(desk, name, u"C:\\JPG\\A1.jpg"_s)) << name.toStdString();
    LocateAndDisplay(desk, u"CMP_1_"_s, u"C:\\JPG\\GONE.jpg"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u""_s);
}

class GeneralText : public SlotPhotos
{
protected:
    void SetUp() override
    {
        SlotPhotos::SetUp();
        ini = {{u"3X5_PHOTO_PAGES/SUBJECT_1"_s, u"SUBPHOTO"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GENP1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_2"_s, u"GENP2"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_7"_s, u"GENP7"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_DATA_1"_s, u"10|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_DATA_2"_s, u"20|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_DATA_3"_s, u"30|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_ADDR_1"_s, u"11|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_ADDR_2"_s, u"21|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_ADDR_3"_s, u"31|1"_s},
               {u"4X6_PHOTO_PAGES/GENERAL_DATA_1"_s, u"77|1"_s}};
        addr.txtKelReport.SetText(u" SMITH "_s);
        addr.txtKelListForms.SetText(u"UA5,SubPhoto,GENP1,GENP2"_s);
        state.linkActive = true;
    }
};

TEST_F(GeneralText, PokesKeepTheMixedCasePrefix)
{
    EXPECT_EQ(KelPokeGeneralData(desk, 5, u" KITCHEN "_s), GeneralPoke::Sent);
    EXPECT_EQ(conduit.log, (QStringList{u"mode 0"_s, u"topic KEL|Query"_s, u"mode 2"_s, u"item ActiveReports"_s,
                                        u"request"_s, u"mode 0"_s, u"mode 0"_s, u"topic Kel|SMITH"_s, u"mode 2"_s,
                                        u"item GENP2|20|1"_s, u"text KITCHEN"_s, u"poke"_s}));
}

TEST_F(GeneralText, CellsFollowTheSlotsPlaceOnItsPage)
{
    for (int index : {1, 2, 3, 4, 20})
        KelPokeGeneralData(desk, index, u"x"_s);
    EXPECT_EQ(Poked(), (QStringList{u"GENP1|10|1=x"_s, u"GENP1|20|1=x"_s, u"GENP1|30|1=x"_s,
                                    u"GENP2|10|1=x"_s, u"GENP7|20|1=x"_s}));
}

TEST_F(GeneralText, AddressesAboveEighteenHaveNoCell)
{
    KelPokeGeneralAddr(desk, 18, u"1 Main St"_s);
    EXPECT_EQ(KelPokeGeneralAddr(desk, 20, u"1 Main St"_s), GeneralPoke::NoPlace) << "a page without that line";
    EXPECT_EQ(Poked(), (QStringList{u"|31|1=1 Main St"_s, u"GENP7|=1 Main St"_s}));
}

TEST_F(GeneralText, OnlyTwoSizesCountForTheSection)
{
    addr.txtKelListForms.SetText(u"UA5,SUBPHOT2"_s);
    EXPECT_EQ(KelPokeGeneralData(desk, 1, u"x"_s), GeneralPoke::NoPlace) << "a line without a page";
    addr.txtKelListForms.SetText(u"UA5,NLSUBPH"_s);
    KelPokeGeneralData(desk, 1, u"x"_s);
    EXPECT_EQ(Poked(), (QStringList{u"|77|1=x"_s, u"|=x"_s}));
}

TEST_F(GeneralText, AReportWithoutALineForItIsToldOnceInTheStatusLineAndInNoBox)
{
    addr.txtKelListForms.SetText(u"UA5,NLSUBPH,"_s);
    conduit.before = [](const QString& entry) {
        if (entry == "poke"_L1)
            throw RuntimeError(error::kLinkBusy, u"\"|\" is no item"_s);
    };
    for (const QString& typed : {u"K"_s, u"KI"_s, u"KIT"_s}) {
        report.cboGeneral(1).SetText(typed);
        cboGeneral_Change(desk, 1);
    }
    cboGeneral_Click(desk, 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(status.lblmsg.Caption(),
              u"The pages of this report have no line for the description of a general photo."_s);
    EXPECT_EQ(KelPokeGeneralAddr(desk, 20, u"1 Main St"_s), GeneralPoke::NoPlace);
    conduit.before = [](const QString& entry) {
        if (entry == "poke"_L1)
            throw RuntimeError(error::kLinkTimeOut, u"No answer"_s);
    };
    EXPECT_EQ(KelPokeGeneralData(desk, 1, u"x"_s), GeneralPoke::Failed);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << "a link that is gone is another matter";
}

TEST_F(GeneralText, ARefusalOfALineThatTheReportHasIsReported)
{
    conduit.FailOnce(u"poke"_s, error::kLinkBusy, u"No such cell"_s);
    EXPECT_EQ(KelPokeGeneralData(desk, 1, u"x"_s), GeneralPoke::Failed);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(GeneralText, IsReadForSlotsWithAPictureOnly)
{
    loader.ErrLoadThumb(slots.imaGeneral(2), u"C:\\JPG\\A1.jpg"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"GENP1|21|1"_s, u"1 Main St"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"GENP1|20|1"_s, u"KITCHEN"_s);
    report.cboGeneral(7).SetText(u"old"_s);
    TabPopulateGeneralText(desk);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"1 Main St"_s);
    EXPECT_EQ(report.cboGeneral(2).Text(), u"KITCHEN"_s);
    EXPECT_EQ(report.cboGeneral(7).Text(), u""_s);
    EXPECT_EQ(conduit.log.filter(u"item"_s), (QStringList{u"item GENP1|21|1"_s, u"item GENP1|20|1"_s}));
}

TEST_F(GeneralText, IsNotPokedBackWhileItIsRead)
{
    for (int i = 1; i <= 36; ++i)
        QObject::connect(&report.cboGeneral(i), &forms::ComboBox::TextChanged, &report.cboGeneral(i),
                         [this, i] { cboGeneral_Change(desk, i); });
    report.cboGeneral(2).SetText(u"KITCHEN"_s);
    EXPECT_EQ(conduit.pokes.size(), 1);
    TabPopulateGeneralText(desk);
    EXPECT_EQ(conduit.pokes.size(), 1);
    EXPECT_FALSE(state.generalReentry);
}

TEST_F(GeneralText, AClickSendsDescriptionAndAddress)
{
    report.cboGeneral(1).SetText(u"KITCHEN"_s);
    report.txtgeneraladdr(1).SetText(u"1 Main St"_s);
    state.generalReentry = true; // a click does not look at the flag
    cboGeneral_Click(desk, 1);
    EXPECT_EQ(Poked(), (QStringList{u"GENP1|10|1=KITCHEN"_s, u"GENP1|11|1=1 Main St"_s}));
}

TEST_F(GeneralText, WithNoReportOpenStaysOnTheWindow)
{
    state.linkActive = false;
    report.cboGeneral(1).SetText(u"KITCHEN"_s);
    cboGeneral_Change(desk, 1);
    cboGeneral_Click(desk, 1);
    EXPECT_TRUE(conduit.log.isEmpty());
}

} // namespace
} // namespace vasclip::link
