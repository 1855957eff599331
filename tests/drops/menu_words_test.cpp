#include "drops/slot_menus.h"
#include "link/general_text.h"
#include "router_home.h"

// What the menus over the slots say, and leave in the slots, when a send breaks off or another report comes meanwhile.

namespace vasclip::drops {
namespace {

class MenuWords : public RouterTest
{
protected:

    void SetUp() override
    {
        RouterTest::SetUp();
        ini = {{u"3X5_PHOTO_PAGES/SUBJECT_1"_s, u"SUBPHOTO"_s}, {u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GEN1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_DATA_2"_s, u"7|1"_s}, {u"3X5_PHOTO_PAGES/GENERAL_ADDR_2"_s, u"8|1"_s}};
        Map({u"UA5"_s, u"SUBJPAGE"_s, u"ADDRESS"_s, u"2"_s, u"3"_s, u"SALE"_s, u"10"_s, u"0"_s});
        Map({u"UA5"_s, u"SALEPAGE"_s, u"CITY"_s, u"16"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
        for (const QString& name : {u"SMITH"_s, u"JONES"_s})
            conduit.Answer(u"KEL|"_s + name, u"ListForms"_s, u"UA5,SUBPHOTO,GEN1,"_s);
        conduit.Answer(u"KEL|JONES"_s, u"SUBJPAGE|2|3"_s, u"5 Jones Rd"_s);
    }
    /// Something happens before a step of that kind, counted from 1.
    void At(const QString& step, int which, const std::function<void()>& happens)
    {
        conduit.before = [step, which, happens, seen = 0](const QString& entry) mutable {
            if (entry.startsWith(step) && ++seen == which)
                happens();
        };
    }
    void JonesComesAt(const QString& step, int which)
    {
        At(step, which, [this] { conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s); });
    }
    void RefuseItem(const QString& item) { conduit.FailOnce(u"item "_s + item, error::kLinkBusy, u"No such cell"_s); }
    Outcome General()
    {
        loader.geaClearImage(slots.imaGeneral(2));
        report.txtSubject.SetText(u"12 Oak St"_s);
        report.cboGeneral(2).SetText(u"REAR VIEW"_s);
        report.txtgeneraladdr(2).SetText(u"99 Other St"_s);
        return ObtainGeneral(drops, 2);
    }
};

TEST_F(MenuWords, OfAGeneralPhotoTellWhatTheReportRefused)
{
    RefuseItem(u"GEN1|8|1"_s);
    const Outcome address = General();
    EXPECT_EQ(address.message, u"The REAR VIEW of 12 OAK ST is in the report now; its address is not."_s);
    EXPECT_EQ(address.colour, forms::Colour::Red);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"99 Other St"_s) << "as in the report";
    RefuseItem(u"GEN1|7|1"_s);
    const Outcome view = General();
    EXPECT_EQ(view.message, u"The REAR VIEW of 12 OAK ST is in the report now; its description and address are not."_s);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"99 Other St"_s);
    EXPECT_EQ(General().message, u"The REAR VIEW of 12 OAK ST is in the report now."_s);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"12 Oak St"_s);
}

TEST_F(MenuWords, OfAGeneralPhotoThatIsNotSentLeaveItsAddress)
{
    home.disk.Kill(u"C:\\JPG\\OAKR.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No); // do not clear the slot
    EXPECT_EQ(General().message, u"The REAR VIEW of 12 OAK ST was not sent: C:\\JPG\\OAKR.jpg is missing."_s);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"99 Other St"_s);
}

TEST_F(MenuWords, OfAGeneralPhotoLeaveTheAddressOfAReportThatCameMeanwhile)
{
    doubles.prompter.Answer(forms::Answer::Ok); // refresh from JONES
    JonesComesAt(u"item ActiveReports"_s, 2);
    EXPECT_EQ(General().message, u"The tabs show JONES now. Nothing was sent."_s);
    EXPECT_EQ(report.txtgeneraladdr(2).Text(), u"5 Jones Rd"_s);
}

TEST_F(MenuWords, OfOneCompAreNotThoseOfTheNextThatIsNotSent)
{
    for (const int i : {1, 2, 3})
        report.txtComp(i).SetText(u"12 Oak St"_s);
    doubles.prompter.AnswerAlways(forms::Answer::Cancel); // keep the tabs
    JonesComesAt(u"poke"_s, 4); // the last field of the second
    EXPECT_EQ(ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::Yes).message,
              u"Filled from the Databook: 12 OAK ST. 12 Oak St is in the report now, its photo is not. Not filled: "
              u"12 OAK ST."_s);
}

TEST_F(MenuWords, HaveTheColourOfTheWorst)
{
    report.txtComp(1).SetText(u"14 Elm St"_s);
    report.txtComp(2).SetText(u"12 Oak St"_s);
    EXPECT_EQ(ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::Yes).colour, forms::Colour::Blue) << "no front view";
    report.txtComp(3).SetText(u"1 Nowhere"_s);
    EXPECT_EQ(ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::Yes).colour, forms::Colour::Red) << "no record";
}

TEST_F(MenuWords, FollowABoxThatToldWhy)
{
    report.txtComp(2).SetText(u"12 Oak St"_s);
    At(u"item ActiveReports"_s, 2, [] { throw RuntimeError(error::kLinkBusy, u"No"_s); });
    const Outcome data = ObtainData(drops, {Group::Sales, 2}, WithPhoto::No);
    EXPECT_EQ(data.message, u"12 OAK ST did not reach the report."_s);
    EXPECT_EQ(data.colour, forms::Colour::Red);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(MenuWords, OfADataBoxThatSentAPartLightNoLamp)
{
    report.txtComp(2).SetText(u"12 Oak St"_s);
    At(u"poke"_s, 2, [] { throw RuntimeError(error::kLinkBusy, u"No"_s); });
    const Outcome outcome = ClickDataBox(drops, {Group::Sales, 2});
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.message, u"Only a part of 12 OAK ST reached the report; the address there is still 12 Oak St. Send "
                               u"it again."_s);
    EXPECT_EQ(Shows(slots.geaComp(2)), QString());
}

TEST_F(MenuWords, OfDataWhosePhotoMetAnotherReportLightNoBoxThere)
{
    report.txtComp(2).SetText(u"12 Oak St"_s);
    doubles.prompter.Answer(forms::Answer::Ok); // refresh from JONES
    JonesComesAt(u"poke"_s, 2);
    EXPECT_EQ(ObtainData(drops, {Group::Sales, 2}, WithPhoto::Yes).message,
              u"12 Oak St is in the report now, its photo is not."_s);
    EXPECT_EQ(addr.txtKelReport.Text(), u"JONES"_s);
    EXPECT_NE(Shows(slots.geaComp(2)), u"C:\\VAS2000\\Addendum_Added.bmp"_s);
}

TEST_F(MenuWords, OfDataAreFollowedByThePhotoOfTheirRecordThoughAnotherComesOnShow)
{
    Script(u"recalc.bas"_s);
    const auto anotherComesOnShow = [this] {
        StandOn(u"16 ASH ST"_s);
        photos::ReadPhotoLists(sources.datDatabook, lists.lstViews, lists.lstimages);
    };
    AddComp(u"16 Ash St"_s, {{u"PHOTOS"_s, u"FRONT VIEW|ELM\r\n"_s}});
    report.txtComp(2).SetText(u"12 Oak St"_s);
    const std::pair<const char*, std::function<Outcome()>> roads[] = {
        {"menu", [this] { return ObtainData(drops, {Group::Sales, 2}, WithPhoto::Yes); }},
        {"drop", [this] { return DropOn(report.txtComp(2)); }}};
    for (const auto& [name, road] : roads) {
        conduit.commands.clear();
        At(u"execute [RunMacro(recalc.bas)]"_s, 1, anotherComesOnShow);
        EXPECT_EQ(road().message, u"12 Oak St is in the report now."_s) << name;
        EXPECT_EQ(conduit.commands.value(1), SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s)) << name;
    }
}

TEST_F(MenuWords, OfAClearingThatMetAnotherReportSaySo)
{
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Cancel); // keep the tabs
    JonesComesAt(u"item ActiveReports"_s, 2);
    EXPECT_EQ(ClearPhoto(drops, {Group::Sales, 2}).message,
              u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    EXPECT_EQ(Shows(slots.imaComp(2)), u"C:\\JPG\\OAK.jpg"_s);
}

TEST_F(MenuWords, OfAClearingLeaveTheSlotOfAReportThatCameMeanwhile)
{
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Ok); // refresh from JONES
    JonesComesAt(u"item ActiveReports"_s, 3);   // behind the question's own look
    EXPECT_EQ(ClearPhoto(drops, {Group::Sales, 2}).message, u"The tabs show JONES now. Nothing was sent."_s);
    EXPECT_EQ(Shows(slots.imaComp(2)), QString()) << "JONES has no picture there";
}

TEST_F(MenuWords, OfACaptionGoOutWithItsPictureAndNotWhenItIsTakenBack)
{
    state.linkActive = true;
    report.cboGeneral(2).SetText(u"GARAGE"_s);
    QObject::connect(&report.cboGeneral(2), &forms::ComboBox::TextChanged, &report.cboGeneral(2),
                     [this] { link::cboGeneral_Change(desk, 2); }); // as the program has it
    questions.view = u"REAR VIEW"_s;
    EXPECT_TRUE(DropOn(slots.imaGeneral(2)).done);
    EXPECT_EQ(Poked(), (QStringList{u"GEN1|7|1=REAR VIEW"_s, u"GEN1|8|1=12 Oak St"_s}));
    conduit.pokes.clear();
    questions.view = u"FRONT VIEW"_s;
    doubles.prompter.Answer(forms::Answer::Yes); // overwrite
    At(u"execute"_s, 1, [] { throw RuntimeError(error::kLinkBusy, u"No such object"_s); });
    EXPECT_FALSE(DropOn(slots.imaGeneral(2)).done);
    EXPECT_EQ(report.cboGeneral(2).Text(), u"REAR VIEW"_s);
    EXPECT_EQ(Poked(), QStringList());
}

} // namespace
} // namespace vasclip::drops
