#include "drops/slot_menus.h"

#include "link/talk.h"
#include "router_home.h"

namespace vasclip::drops {
namespace {

class SlotMenusTest : public RouterTest
{
protected:
    void SetUp() override
    {
        RouterTest::SetUp();
        for (const QString& name : {u"compfull.jpg"_s, u"LISTfull.jpg"_s, u"RENTfull.jpg"_s})
            Picture(u"C:\\VAS2000\\"_s + name);
    }
};

TEST_F(SlotMenusTest, ASlotObtainsItsPhotoFromItsRecord)
{
    report.txtComp(5).SetText(u"12 Oak St"_s);
    EXPECT_TRUE(ObtainPhoto(drops, {Group::Sales, 5}).done);
    EXPECT_EQ(Shows(slots.imaComp(5)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(conduit.commands, QStringList{SetImage(u"CMP_5_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s)});
    EXPECT_TRUE(slots.imaCompIcon(5).Visible());
    report.txtComp(6).SetText(u"1 Nowhere"_s);
    EXPECT_EQ(ObtainPhoto(drops, {Group::Sales, 6}).message, u"1 NOWHERE is not in the Databook."_s);
    EXPECT_EQ(ObtainPhoto(drops, {Group::Sales, 4}).message, u"The slot names no record."_s);
}

TEST_F(SlotMenusTest, ASlotWhosePhotoIsGoneFromTheDiskAsksAndSaysWhatItDid)
{
    home.disk.Kill(u"C:\\JPG\\OAK.jpg"_s);
    report.txtComp(2).SetText(u"12 Oak St"_s);
    report.txtSubject.SetText(u"12 Oak St"_s);
    report.cboGeneral(1).SetText(u"FRONT|VIEW"_s); // the caption of somebody's report
    const QString cleared = u"The slot's picture was cleared, because the FRONT VIEW of %1 is missing: C:\\JPG\\OAK.jpg."_s;
    const std::pair<std::function<Outcome()>, QString> roads[] = {
        {[this] { return ObtainPhoto(drops, {Group::Sales, 2}); }, {}},
        {[this] { return ObtainShownPhotos(drops, {Group::Sales, 2}); }, {}},
        {[this] { return ObtainGeneral(drops, 1); }, {}},
        {[this] { return ObtainData(drops, {Group::Sales, 2}, WithPhoto::Yes); }, u"12 Oak St is in the report now. "_s},
        {[this] { return ObtainShownData(drops, {Group::Sales, 2}, WithPhoto::Yes); },
         u"12 Oak St is in the report now. "_s}};
    for (const auto& [road, first] : roads) {
        const QString name = first.isEmpty() ? u"12 OAK ST"_s : u"12 Oak St"_s; // as the slot shows it by then
        conduit.commands.clear();
        doubles.prompter.Answer(forms::Answer::No);
        EXPECT_EQ(road().message,
                  first + u"The FRONT VIEW of %1 was not sent: C:\\JPG\\OAK.jpg is missing."_s.arg(name));
        EXPECT_TRUE(conduit.commands.isEmpty());
        doubles.prompter.Answer(forms::Answer::Yes);
        const Outcome outcome = road();
        EXPECT_EQ(outcome.message, first + cleared.arg(name));
        EXPECT_EQ(outcome.colour, forms::Colour::Red);
        EXPECT_EQ(conduit.commands.size(), 1);
        EXPECT_TRUE(doubles.prompter.AllAnswered());
    }
}

TEST_F(SlotMenusTest, TheSubjectObtainsTheViewOfTheIndexOrAllThree)
{
    report.txtSubject.SetText(u"12 Oak St"_s);
    EXPECT_TRUE(ObtainPhoto(drops, {Group::Subject, 2}).done);
    EXPECT_EQ(Shows(slots.imaSubject(2)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(Shows(slots.imaSubject(1)), QString());
    const Outcome all = ObtainShownPhotos(drops, {Group::Subject, 2});
    EXPECT_TRUE(all.done);
    EXPECT_EQ(Shows(slots.imaSubject(1)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(all.message, u"Filled from the Databook: FRONT VIEW; REAR VIEW. 12 OAK ST has no STREET SCENE."_s);
}

TEST_F(SlotMenusTest, TheThreeSlotsOnViewAreFilledAndNoOthers)
{
    for (const int i : {3, 4, 6, 7})
        report.txtRental(i).SetText(u"12 Oak St"_s);
    EXPECT_EQ(ObtainShownPhotos(drops, {Group::Rentals, 5}).message,
              u"2 of the slots on view are filled from the Databook."_s);
    EXPECT_EQ(Shows(slots.imaRental(4)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(Shows(slots.imaRental(6)), u"C:\\JPG\\OAK.jpg"_s);
    EXPECT_EQ(Shows(slots.imaRental(3)), QString());
    EXPECT_EQ(Shows(slots.imaRental(7)), QString());
    EXPECT_EQ(ObtainShownPhotos(drops, {Group::Listings, 1}).message, u"The slots on view name no records."_s);
}

TEST_F(SlotMenusTest, APhotoIsClearedAfterAQuestion)
{
    loader.ErrLoadThumb(slots.imaListing(2), u"C:\\JPG\\OAK.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(ClearPhoto(drops, {Group::Listings, 2}).done);
    EXPECT_EQ(doubles.prompter.Last().text, u"Clear the photo.  Are you sure?"_s);
    EXPECT_NE(Shows(slots.imaListing(2)), QString());
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(ClearPhoto(drops, {Group::Listings, 2}).done);
    EXPECT_EQ(Shows(slots.imaListing(2)), QString());
    EXPECT_EQ(conduit.commands, QStringList{SetImage(u"LCMP_2_3X5"_s, {})});
}

TEST_F(SlotMenusTest, AGeneralSlotObtainsTheViewThatIsTypedBesideIt)
{
    report.txtSubject.SetText(u"12 Oak St"_s);
    report.cboGeneral(3).SetText(u"kitchen"_s);
    EXPECT_FALSE(ObtainGeneral(drops, 3).done);
    EXPECT_EQ(doubles.prompter.Last().title, u"Photo not present"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"General Photo is not present in database"_s);
    report.cboGeneral(3).SetText(u"rear view"_s);
    loader.ErrLoadThumb(slots.imaGeneral(3), u"C:\\JPG\\ELM.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(ObtainGeneral(drops, 3).done);
    EXPECT_EQ(doubles.prompter.Last().text, u"Overwrite C:\\JPG\\ELM.jpg?  Are you sure?"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(ObtainGeneral(drops, 3).done);
    EXPECT_EQ(Shows(slots.imaGeneral(3)), u"C:\\JPG\\OAKR.jpg"_s);
    EXPECT_EQ(report.txtgeneraladdr(3).Text(), u"12 Oak St"_s);
    loader.geaClearImage(slots.imaGeneral(3));
    report.cboGeneral(3).SetText(u"rear|view"_s); // the report keeps it so, the record does not
    EXPECT_EQ(ObtainGeneral(drops, 3).message, u"The REAR VIEW of 12 OAK ST is in the report now. A view's name can't hold "
                                               u"\"|\" or a line break; it is \"REAR VIEW\" now."_s);
}

TEST_F(SlotMenusTest, DataAreObtainedWithThePhotoOrWithout)
{
    report.txtAltComp(2).SetText(u"12 oak st"_s);
    EXPECT_TRUE(ObtainData(drops, {Group::Alternates, 2}, WithPhoto::No).done);
    EXPECT_EQ(Poked(), QStringList{u"ALTPAGE|12|5=1850"_s});
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(report.txtAltComp(2).Text(), u"12 Oak St"_s);
    EXPECT_EQ(Shows(slots.geaAltComp(2)), u"C:\\VAS2000\\Addendum_Added.bmp"_s);
    EXPECT_TRUE(ObtainData(drops, {Group::Alternates, 2}, WithPhoto::Yes).done);
    EXPECT_EQ(conduit.commands, QStringList{SetImage(u"ALT_2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s)});
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "the slot's own record asks no question";
    report.txtAltComp(3).SetText(u"14 Elm St"_s);
    conduit.pokes.clear();
    EXPECT_TRUE(ObtainShownData(drops, {Group::Alternates, 1}, WithPhoto::No).done);
    EXPECT_EQ(Poked(), (QStringList{u"ALTPAGE|12|5=1850"_s, u"ALTPAGE|12|7=990"_s}));
}

TEST_F(SlotMenusTest, DataSayWhatTheRecordLacksAndWhatIsLeftOfTheCompBefore)
{
    Map({u"UA5"_s, u"SALEPAGE"_s, u"PROXIMITY"_s, u"30"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    conduit.Answer(u"KEL|SMITH"_s, u"SALEPAGE|30|5"_s, u"0.4 Mi. E"_s);
    report.txtComp(2).SetText(u"14 Elm St"_s);
    report.txtComp(3).SetText(u"12 Oak St"_s);
    const Outcome one = ObtainData(drops, {Group::Sales, 2}, WithPhoto::Yes);
    EXPECT_EQ(one.message, u"14 Elm St is in the report now. It has no front view."_s);
    EXPECT_EQ(one.colour, forms::Colour::Blue);
    EXPECT_EQ(ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::Yes).message,
              u"Filled from the Databook: 12 OAK ST. 14 Elm St is in the report now. It has no front view."_s);
}

/// Cancel is pressed at a step of the second of three slots.
class CancelledSlots : public SlotMenusTest
{
protected:
    link::Talk talk;
    void SetUp() override
    {
        SlotMenusTest::SetUp();
        Map({u"UA5"_s, u"SALEPAGE"_s, u"ADDRESS"_s, u"11"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        talk.Attach(status, desk.ports);
        desk.talk = &talk;
        report.txtComp(1).SetText(u"12 Oak St"_s);
        report.txtComp(2).SetText(u"14 Elm St"_s);
        report.txtComp(3).SetText(u"12 Oak St"_s);
    }
    void TearDown() override { desk.talk = nullptr; }
    /// The line of the test has no patience of its own: the wish is heard before each exchange.
    QString CancelAt(int which, const QString& step, const std::function<Outcome()>& road)
    {
        int seen = 0;
        conduit.before = [&](const QString& entry) {
            if (entry.startsWith(step) && ++seen == which)
                talk.Cancel();
            if (entry == "request"_L1 || entry == "poke"_L1 || entry.startsWith("execute"_L1))
                talk.BeforeExchange();
        };
        const link::Talking talking(desk, u"Sending"_s);
        const QString told = road().message;
        conduit.before = {};
        return told;
    }
};

TEST_F(CancelledSlots, AreAllNamedByWhatBecameOfThem)
{
    const auto data = [this] { return ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::No); };
    EXPECT_EQ(CancelAt(4, u"poke"_s, data), u"Filled from the Databook: 12 OAK ST. Cancelled: fields of 14 ELM ST sent so "
                                            u"far: 1 of 2. They stay in the report. Send it again to send them all. "
                                            u"Cancelled. Not filled: 12 OAK ST."_s);
    EXPECT_EQ(CancelAt(3, u"poke"_s, data), u"Filled from the Databook: 12 OAK ST. Cancelled: nothing of 14 ELM ST was sent. "
                                            u"Cancelled. Not filled: 12 OAK ST."_s);
    EXPECT_EQ(CancelAt(1, u"poke"_s, data), u"Cancelled: nothing of 12 OAK ST was sent. Cancelled. Not filled: 14 ELM ST; 12 OAK ST."_s);
    // Between two slots: before the second is begun.
    QString first;
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,SUBPHOTO,"_s);
    EXPECT_EQ(CancelAt(1, u"item ActiveReports"_s, data), u"Cancelled. Not filled: 12 OAK ST; 14 ELM ST; 12 OAK ST."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CancelledSlots, AReportThatComesToTheFrontAfterOneEndsTheFilling)
{
    doubles.prompter.AnswerAlways(forms::Answer::Cancel); // keep the tabs
    int pokes = 0;
    conduit.before = [&](const QString& entry) {
        if (entry.startsWith("poke"_L1) && ++pokes == 2) // the last field of the first
            conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
    };
    const Outcome told = ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::No);
    conduit.before = {};
    EXPECT_TRUE(told.message.startsWith(u"Filled from the Databook: 12 OAK ST. Then: Nothing was sent: JONES is active"_s))
        << told.message.toStdString();
    EXPECT_TRUE(told.message.endsWith(u"Not filled: 14 ELM ST; 12 OAK ST."_s)) << told.message.toStdString();
    EXPECT_EQ(told.colour, forms::Colour::Red);
}

TEST_F(CancelledSlots, SoAreTheirPhotos)
{
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\ELM.jpg"_s); // which has no front view: the slot is cleared
    EXPECT_EQ(CancelAt(2, u"execute [RunMacro( SetImage"_s,
                       [this] { return ObtainShownPhotos(drops, {Group::Sales, 1}); }),
              u"Filled from the Databook: 12 OAK ST. The photo of 14 ELM ST did not reach the report. Cancelled. Not "
              u"filled: 12 OAK ST."_s);
    EXPECT_EQ(Shows(slots.imaComp(2)), u"C:\\JPG\\ELM.jpg"_s);
}

TEST_F(SlotMenusTest, WithNoReportOpenNothingIsObtained)
{
    report.txtComp(1).SetText(u"12 Oak St"_s);
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    const QString none = u"No report is open in Korvat Forms, so nothing was sent."_s;
    EXPECT_EQ(ObtainPhoto(drops, {Group::Sales, 1}).message, none);
    EXPECT_EQ(ObtainData(drops, {Group::Sales, 1}, WithPhoto::Yes).message, none);
    EXPECT_EQ(ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::Yes).message, none);
    EXPECT_EQ(ClearPhoto(drops, {Group::Sales, 1}).message, none);
    EXPECT_FALSE(ObtainGeneral(drops, 1).done);
    EXPECT_FALSE(ClickDataBox(drops, {Group::Sales, 1}).done);
    EXPECT_TRUE(conduit.pokes.isEmpty());
}

TEST_F(SlotMenusTest, WithAnotherReportActiveEachEntryAsksOnceAndSendsNothing)
{
    for (const int i : {1, 2, 3})
        report.txtComp(i).SetText(u"12 Oak St"_s);
    report.txtSubject.SetText(u"12 Oak St"_s);
    report.cboGeneral(1).SetText(u"REAR VIEW"_s);
    loader.ErrLoadThumb(slots.imaComp(1), u"C:\\JPG\\OAK.jpg"_s);
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
    const std::pair<const char*, std::function<Outcome()>> entries[] = {
        {"photo", [&] { return ObtainPhoto(drops, {Group::Sales, 1}); }},
        {"photos", [&] { return ObtainShownPhotos(drops, {Group::Sales, 1}); }},
        {"clear", [&] { return ClearPhoto(drops, {Group::Sales, 1}); }},
        {"general", [&] { return ObtainGeneral(drops, 1); }},
        {"data", [&] { return ObtainData(drops, {Group::Sales, 1}, WithPhoto::Yes); }},
        {"all data", [&] { return ObtainShownData(drops, {Group::Sales, 1}, WithPhoto::Yes); }},
        {"data box", [&] { return ClickDataBox(drops, {Group::Sales, 1}); }}};
    for (const auto& [name, entry] : entries) {
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Cancel);
        const Outcome outcome = entry();
        EXPECT_FALSE(outcome.done) << name;
        EXPECT_EQ(outcome.message,
                  u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s)
            << name;
        EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << name;
    }
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(Shows(slots.imaComp(1)), u"C:\\JPG\\OAK.jpg"_s) << "the tabs go on showing their own report";
}

TEST_F(SlotMenusTest, AClickOnADataBoxSendsItsRecordAndLightsItsLamp)
{
    const std::tuple<Group, forms::TextBox*, forms::PictureBox*, QString> rows[] = {
        {Group::Sales, &report.txtComp(2), &slots.geaComp(2), u"compfull.jpg"_s},
        {Group::Alternates, &report.txtAltComp(2), &slots.geaAltComp(2), u"compfull.jpg"_s},
        {Group::Listings, &report.txtListing(2), &slots.geaListing(2), u"LISTfull.jpg"_s},
        {Group::Rentals, &report.txtRental(2), &slots.geaRental(2), u"RENTfull.jpg"_s}};
    for (const auto& [group, text, box, file] : rows) {
        EXPECT_FALSE(ClickDataBox(drops, {group, 2}).done);
        text->SetText(u"12 oak st"_s);
        conduit.pokes.clear();
        EXPECT_TRUE(ClickDataBox(drops, {group, 2}).done);
        EXPECT_EQ(Poked(), QStringList{QString(link::RowOf(group).mapping) + u"PAGE|12|5=1850"_s});
        EXPECT_EQ(Shows(*box), u"C:\\VAS2000\\"_s + file);
        EXPECT_EQ(text->Text(), u"12 Oak St"_s);
    }
}

TEST_F(SlotMenusTest, AnIconSavesThePhotoOfItsSlot)
{
    report.txtSubject.SetText(u"1 Main St"_s);
    report.txtRental(4).SetText(u"4 Rent Rd"_s);
    loader.ErrLoadThumb(slots.imaSubject(3), u"C:\\JPG\\OAK.jpg"_s);
    loader.ErrLoadThumb(slots.imaRental(4), u"C:\\JPG\\ELM.jpg"_s);
    EXPECT_EQ(SavePhotoOfSlot(drops, {Group::Subject, 3}).record, u"1 MAIN ST"_s);
    EXPECT_EQ(SavePhotoOfSlot(drops, {Group::Rentals, 4}).record, u"4 RENT RD"_s);
    EXPECT_TRUE(PhotosOf(u"1 MAIN ST"_s).startsWith(u"STREET SCENE|"_s));
    EXPECT_TRUE(PhotosOf(u"4 RENT RD"_s).startsWith(u"FRONT VIEW|"_s));
    changes.clear();
    const Outcome blank = SavePhotoOfSlot(drops, {Group::General, 1});
    EXPECT_EQ(blank.message, u"Blank address"_s);
    EXPECT_EQ(blank.colour, forms::Colour::Blue);
    report.txtgeneraladdr(1).SetText(u"12 Oak St"_s);
    EXPECT_FALSE(SavePhotoOfSlot(drops, {Group::General, 1}).done);
    Picture(u"C:\\JPG\\EmptySlot.jpg"_s);
    loader.ErrLoadThumb(slots.imaGeneral(1), u"C:\\JPG\\EmptySlot.jpg"_s);
    EXPECT_FALSE(SavePhotoOfSlot(drops, {Group::General, 1}).done);
    EXPECT_TRUE(changes.isEmpty());
    loader.ErrLoadThumb(slots.imaGeneral(1), u"C:\\JPG\\OAK.jpg"_s);
    report.txtSubject.SetText(u"12 Oak St"_s);
    report.cboGeneral(1).SetText(u"KITCHEN"_s);
    EXPECT_TRUE(SavePhotoOfSlot(drops, {Group::General, 1}).done);
    EXPECT_EQ(PhotosOf(u"12 OAK ST"_s).count(u'|'), 3) << "under the name that stands beside it";
}

} // namespace
} // namespace vasclip::drops
