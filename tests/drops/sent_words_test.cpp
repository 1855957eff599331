#include "link/slot_icons.h"
#include "link/talk.h"
#include "router_home.h"

#include <QThread>

// What is said of a send, and what its slot is called afterwards, when something goes wrong or changes on the way.

namespace vasclip::drops {
namespace {

class SentWords : public RouterTest
{
protected:
    void SetUp() override
    {
        RouterTest::SetUp();
        int row = 20;
        for (const QString& field : {u"CITY"_s, u"ADDRESS"_s})
            Map({u"UA5"_s, u"SALEPAGE"_s, field, QString::number(row++), u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
        ini = {{u"3X5_PHOTO_PAGES/SUBJECT_1"_s, u"SUBPHOTO"_s}, {u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GEN1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_DATA_2"_s, u"7|1"_s}, {u"3X5_PHOTO_PAGES/GENERAL_ADDR_2"_s, u"8|1"_s}};
        Map({u"UA5"_s, u"SUBJPAGE"_s, u"ADDRESS"_s, u"2"_s, u"3"_s, u"SALE"_s, u"10"_s, u"0"_s});
        addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
        for (const QString& name : {u"SMITH"_s, u"JONES"_s})
            conduit.Answer(u"KEL|"_s + name, u"ListForms"_s, u"UA5,SUBPHOTO,GEN1,"_s);
    }
    void TearDown() override { desk.talk = nullptr; }
    /// Fails the poke of that number, from 1.
    void FailPoke(int which, int number)
    {
        conduit.before = [this, which, number](const QString& entry) {
            if (entry == "poke"_L1 && ++m_seen == which)
                throw RuntimeError(number, u"No"_s);
        };
    }
    /// Something happens before a step of that kind, counted from 1.
    void At(const QString& step, int which, const std::function<void()>& happens)
    {
        m_seen = 0;
        conduit.before = [this, step, which, happens](const QString& entry) {
            if (entry.startsWith(step) && ++m_seen == which)
                happens();
            // The recording conduit knows no patience; the wish is heard before each exchange as on the real line.
            if (desk.talk && (entry == "request"_L1 || entry == "poke"_L1 || entry.startsWith("execute"_L1)))
                talk.BeforeExchange();
        };
    }
    void BringJonesToTheFront() { conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s); }
    void ListPhotosOf(const QString& key)
    {
        StandOn(key);
        photos::ReadPhotoLists(sources.datDatabook, lists.lstViews, lists.lstimages);
    }
    link::Talk talk;

private:
    int m_seen = 0;
};

TEST_F(SentWords, OfABrokenOffCompGoWithItsIcon)
{
    link::RefreshCompIcons(desk);
    ASSERT_FALSE(slots.imaCompIcon(2).Visible());
    Map({u"UA5"_s, u"SALEPAGE"_s, u"ST"_s, u"30"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    FailPoke(4, error::kLinkBusy);
    EXPECT_EQ(DropOn(report.txtComp(2)).message, u"Only a part of 12 OAK ST reached the report. Send it again."_s);
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
}

TEST_F(SentWords, OfAnEmptySlotNameNoOldComp)
{
    FailPoke(2, error::kLinkBusy);
    EXPECT_EQ(DropOn(report.txtComp(2)).message,
              u"Only a part of 12 OAK ST reached the report, not its address. Send it again."_s);
    EXPECT_EQ(report.txtComp(2).Text(), QString());
}

TEST_F(SentWords, OfOneSendAreNotThoseOfTheNext)
{
    Map({u"UA5"_s, u"SALEPAGE"_s, u"ST"_s, u"30"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    FailPoke(4, error::kLinkBusy);
    DropOn(report.txtComp(2));
    ASSERT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
    report.txtComp(3).SetText(u"99 Other St"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(DropOn(report.txtComp(3), u"14 ELM ST"_s).done);
    EXPECT_EQ(report.txtComp(3).Text(), u"99 Other St"_s) << "nothing was sent there";
}

TEST_F(SentWords, OfACancelledLookSayThatNothingWasSent)
{
    talk.Attach(status, desk.ports);
    desk.talk = &talk;
    // The first look for the report is the router's.
    for (const int look : {2, 3, 4}) {
        At(u"item ActiveReports"_s, look, [this] { talk.Cancel(); });
        EXPECT_EQ(DropOn(report.txtComp(2)).message, u"Cancelled: nothing of 12 OAK ST was sent."_s) << look;
    }
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(SentWords, OfACancelBehindTheLastFieldAreThoseOfAWholeComp)
{
    talk.Attach(status, desk.ports);
    desk.talk = &talk;
    Script(u"recalc.bas"_s);
    At(u"execute [RunMacro(recalc.bas)]"_s, 1, [this] { talk.Cancel(); });
    const Outcome outcome = DropOn(slots.geaComp(2));
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"12 Oak St is in the report now."_s);
}

TEST_F(SentWords, OfARefreshThatIsCancelledStand)
{
    talk.Attach(status, desk.ports);
    desk.talk = &talk;
    doubles.prompter.AnswerAlways(forms::Answer::Ok); // refresh from JONES
    conduit.before = [this, looks = 0](const QString& entry) mutable {
        if (entry == "item ActiveReports"_L1 && ++looks == 4) // before the fields go out
            BringJonesToTheFront();
        if (entry == "topic Kel|JONES"_L1)
            talk.Cancel();
        if (entry == "request"_L1 || entry == "poke"_L1 || entry.startsWith("execute"_L1))
            talk.BeforeExchange();
    };
    EXPECT_EQ(DropOn(report.txtComp(2)).message,
              u"The refresh was cancelled. The tabs show no report until it is read again. Nothing was sent."_s);
}

TEST_F(SentWords, OfARecordThatGoesOnTheWayNameIt)
{
    At(u"item ActiveReports"_s, 3, [this] {
        const auto other = engine.OpenDatabase(kDatabook);
        const auto rows = other->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, u"12 OAK ST"_s);
        ASSERT_FALSE(rows->NoMatch());
        rows->Delete();
    });
    EXPECT_EQ(DropOn(report.txtComp(2)).message, u"12 OAK ST is no longer in the Databook."_s);
    EXPECT_TRUE(conduit.pokes.isEmpty());
}

/// The comp before left its distance in the cell, of which the new one knows none.
class OldComp : public SentWords
{
protected:
    void SetUp() override
    {
        SentWords::SetUp();
        Map({u"UA5"_s, u"PAGE2"_s, u"PROXIMITY"_s, u"14"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE2"_s, u"GLA"_s, u"15"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        Map({u"UA5"_s, u"PAGE2"_s, u"CITY"_s, u"16"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        conduit.Answer(u"KEL|SMITH"_s, u"PAGE2|14|5"_s, u"0.1 Mi. E"_s);
        report.txtComp(5).SetText(u"671 Scholars Ln"_s);
        doubles.prompter.AnswerAlways(forms::Answer::Yes);
    }
};

TEST_F(OldComp, IsNamedWithAPhotoThatDidNotFollow)
{
    conduit.FailOnce(u"execute "_s + SetImage(u"CMP_5_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s), error::kLinkBusy, u"No"_s);
    const Outcome outcome = DropOn(report.txtComp(5));
    EXPECT_EQ(outcome.message, u"12 Oak St is in the report now; proximity is still 0.1 Mi. E of 671 Scholars Ln. Its "
                               u"photo is not there."_s);
    EXPECT_EQ(outcome.colour, forms::Colour::Red);
}

TEST_F(OldComp, IsNotLookedForWhereNothingWasSentOrNobodyAnswers)
{
    const std::pair<int, int> breaks[] = {{1, error::kLinkBusy}, {2, error::kLinkTimeOut}};
    for (const auto& [which, number] : breaks) {
        conduit.log.clear();
        int pokes = 0;
        conduit.before = [&pokes, which, number](const QString& entry) {
            if (entry == "poke"_L1 && ++pokes == which)
                throw RuntimeError(number, u"No"_s);
        };
        EXPECT_FALSE(DropOn(report.txtComp(5)).done);
        EXPECT_EQ(conduit.log.count(u"item PAGE2|14|5"_s), 0) << which;
        EXPECT_EQ(report.txtComp(5).Text(), u"671 Scholars Ln"_s);
    }
}

TEST_F(OldComp, OfAnEmptySlotIsNobodys)
{
    report.txtComp(5).SetText(QString());
    EXPECT_EQ(DropOn(report.txtComp(5)).message, u"12 Oak St is in the report now."_s);
}

/// What the gauge says of a drop that takes long.
TEST_F(SentWords, OfTheGaugeTellASaveFromASend)
{
    talk.Attach(status, desk.ports);
    desk.talk = &talk;
    QString told;
    const auto slowly = [&] {
        talk.BeforeExchange();
        QThread::msleep(link::Talk::kSlowMs + 10);
        talk.Waiting();
        talk.AfterExchange();
        told = status.gauProgress.Caption();
    };
    bool done = false;
    conduit.before = [&](const QString& entry) {
        if (!std::exchange(done, done || entry == "item ActiveReports"_L1) && done)
            slowly();
    };
    report.txtComp(2).SetText(u"12 Oak St"_s);
    doubles.prompter.Answer(forms::Answer::No); // its data are not replaced
    router.DropUntold(router.Start(report.txtComp(2)), grddatabook);
    EXPECT_EQ(told, u"Saving to the Databook"_s);
    status.gauProgress.SetCaption({});
    done = false;
    DropOn(report.txtComp(2));
    EXPECT_EQ(told, u"Sending 12 OAK ST"_s);
}

/// A photo goes to a slot that names another record.
class PhotoWords : public SentWords
{
protected:
    Outcome DropPhoto(const QString& key, const QString& beside)
    {
        report.txtComp(2).SetText(beside);
        loader.geaClearImage(slots.imaComp(2));
        return DropOn(slots.imaComp(2), key);
    }
};

TEST_F(PhotoWords, SayWhoseDataStandBesideItOnlyWhereTheyAreAnothers)
{
    AddComp(u"Lot 7"_s, {{u"ADDRESS"_s, u"7 Lake Rd"_s}, {u"PHOTOS"_s, u"FRONT VIEW|OAK\r\n"_s}});
    EXPECT_EQ(DropPhoto(u"12 OAK ST"_s, u"12 oak st"_s).message, u"The FRONT VIEW of 12 OAK ST is in the report now."_s);
    EXPECT_EQ(DropPhoto(u"LOT 7"_s, u"7 Lake Rd"_s).message, u"The FRONT VIEW of LOT 7 is in the report now."_s)
        << "the report has its address";
    EXPECT_EQ(DropPhoto(u"14 ELM ST"_s, u"99 Other St"_s).message,
              u"14 ELM ST has no FRONT VIEW. The slot is empty now. The data beside it are still those of 99 Other St."_s);
    report.txtgeneraladdr(2).SetText(u"99 Other St"_s);
    questions.view = u"FRONT VIEW"_s;
    EXPECT_EQ(DropOn(slots.imaGeneral(2)).message, u"The FRONT VIEW of 12 OAK ST is in the report now."_s)
        << "a general photo has no data beside it";
}

TEST_F(PhotoWords, LeaveTheSlotOfAReportThatCameMeanwhile)
{
    report.txtComp(2).SetText(u"99 Other St"_s);
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\ELM.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Yes); // overwrite the picture
    doubles.prompter.Answer(forms::Answer::Ok);  // refresh from JONES
    At(u"item ActiveReports"_s, 2, [this] { BringJonesToTheFront(); });
    EXPECT_EQ(DropOn(slots.imaComp(2)).message, u"The tabs show JONES now. Nothing was sent."_s);
    EXPECT_EQ(addr.txtKelReport.Text(), u"JONES"_s);
    EXPECT_EQ(report.txtComp(2).Text(), QString()) << "JONES has no second comp";
    EXPECT_EQ(Shows(slots.imaComp(2)), QString());
}

TEST_F(PhotoWords, OfACompWhosePhotoMetAnotherReportLightNoBoxThere)
{
    doubles.prompter.Answer(forms::Answer::Ok);
    At(u"poke"_s, 3, [this] { BringJonesToTheFront(); }); // the last field
    const Outcome outcome = DropOn(report.txtComp(2));
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.message, u"12 Oak St is in the report now, its photo is not."_s);
    EXPECT_EQ(addr.txtKelReport.Text(), u"JONES"_s);
    EXPECT_EQ(report.txtComp(2).Text(), QString());
    EXPECT_NE(Shows(slots.geaComp(2)), u"C:\\VAS2000\\Addendum_Added.bmp"_s);
}

TEST_F(PhotoWords, OfACaptionOfAnotherReportLeaveItThoughItIsTheOneThatWasAsked)
{
    Picture(u"C:\\JPG\\JONES.jpg"_s);
    conduit.Answer(u"KEL|System"_s, u"IMAGES"_s, u"GN_2_3X5|C:\\JPG\\JONES.jpg;"_s);
    conduit.Answer(u"KEL|JONES"_s, u"GEN1|7|1"_s, u"REAR VIEW"_s);
    report.cboGeneral(2).SetText(u"GARAGE"_s);
    questions.view = u"REAR VIEW"_s;
    doubles.prompter.Answer(forms::Answer::Ok);
    At(u"item ActiveReports"_s, 2, [this] { BringJonesToTheFront(); });
    DropOn(slots.imaGeneral(2));
    ASSERT_EQ(Shows(slots.imaGeneral(2)), u"C:\\JPG\\JONES.jpg"_s);
    EXPECT_EQ(report.cboGeneral(2).Text(), u"REAR VIEW"_s) << "that is what JONES has there";
}

TEST_F(PhotoWords, OfARefusalAreNotThoseOfTheDropBefore)
{
    At(u"item ActiveReports"_s, 2, [this] { BringJonesToTheFront(); }); // behind the drop's own look
    doubles.prompter.Answer(forms::Answer::Cancel);                     // keep the tabs
    EXPECT_EQ(DropPhoto(u"12 OAK ST"_s, QString()).message,
              u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    conduit.before = {};
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,JONES,"_s);
    conduit.FailOnce(u"execute "_s + SetImage(u"CMP_2_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s), error::kLinkBusy, u"No"_s);
    EXPECT_EQ(DropPhoto(u"12 OAK ST"_s, QString()).message, u"The photo of 12 OAK ST did not reach the report."_s);
}

/// The three photos of a record on the subject.
class SubjectPhotos : public SentWords
{
protected:
    void SetUp() override
    {
        SentWords::SetUp();
        doubles.prompter.Answer(forms::Answer::Yes);
    }
    Outcome Replace() { return DropOn(report.txtSubject); }
};

TEST_F(SubjectPhotos, ThatAreNotAllThereAreSaidToBe)
{
    EXPECT_EQ(Replace().message, u"The photos of 12 OAK ST are in the report now; it doesn't have all three."_s);
    AddComp(u"16 Ash St"_s, {{u"PHOTOS"_s, u"FRONT VIEW|OAK\r\nREAR VIEW|OAKR\r\nSTREET SCENE|ELM\r\n"_s}});
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(DropOn(report.txtSubject, u"16 ASH ST"_s).message, u"The 3 photos of 16 ASH ST are in the report now."_s);
}

TEST_F(SubjectPhotos, EndWithTheFirstThatTheReportRefuses)
{
    conduit.FailOnce(u"execute "_s + SetImage(u"SUB_1_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s), error::kLinkBusy, u"No"_s);
    EXPECT_EQ(Replace().message, u"Not all photos of 12 OAK ST reached the report."_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << "the question and one refusal";
}

TEST_F(SubjectPhotos, OfAReportThatGoesBehindAnotherAreNotSent)
{
    doubles.prompter.Answer(forms::Answer::Cancel); // keep the tabs
    At(u"item ActiveReports"_s, 2, [this] { BringJonesToTheFront(); });
    EXPECT_EQ(Replace().message, u"Nothing was sent: JONES is active in the forms program, and the tabs show SMITH."_s);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(SubjectPhotos, AreThoseOfTheRecordThoughAnotherComesOnShow)
{
    At(u"execute"_s, 1, [this] { ListPhotosOf(u"14 ELM ST"_s); });
    Replace();
    EXPECT_EQ(conduit.commands, (QStringList{SetImage(u"SUB_1_3X5"_s, u"C:\\\\JPG\\\\OAK.jpg"_s),
                                             SetImage(u"SUB_2_3X5"_s, u"C:\\\\JPG\\\\OAKR.jpg"_s)}));
}

TEST_F(PhotoWords, OfARecordWithoutTheViewTakeNoOthers)
{
    loader.ErrLoadThumb(slots.imaComp(2), u"C:\\JPG\\ELM.jpg"_s);
    report.txtComp(2).SetText(u"14 Elm St"_s);
    doubles.prompter.Answer(forms::Answer::Yes); // overwrite the picture
    At(u"execute"_s, 1, [this] { ListPhotosOf(u"12 OAK ST"_s); });
    DropOn(slots.imaComp(2), u"14 ELM ST"_s);
    EXPECT_EQ(conduit.commands, QStringList{SetImage(u"CMP_2_3X5"_s, {})}) << "the slot is cleared and stays so";
}

} // namespace
} // namespace vasclip::drops
