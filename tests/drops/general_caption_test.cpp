#include "router_home.h"

// What stands beside a general slot is what the report has there, whatever a drop was to make of it.

namespace vasclip::drops {
namespace {

class GeneralCaptionTest : public RouterTest
{
protected:
    void SetUp() override
    {
        RouterTest::SetUp();
        ini = {{u"3X5_PHOTO_PAGES/GENERAL_1"_s, u"GEN1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_DATA_2"_s, u"7|1"_s},
               {u"3X5_PHOTO_PAGES/GENERAL_ADDR_2"_s, u"8|1"_s}};
        addr.txtKelListForms.SetText(u"UA5,SUBPHOTO,"_s);
        report.cboGeneral(2).SetText(u"GARAGE"_s);
        questions.view = u"REAR VIEW"_s;
        txtcentralkey.SetText(u"12 OAK ST"_s);
        lists.txtView.SetText(u"REAR VIEW"_s);
        loader.ErrLoadThumb(slots.geamaintain, u"C:\\JPG\\OAKR.JPG"_s);
        Browse();
    }
    /// The three drags that ask for a view.
    [[nodiscard]] std::array<std::pair<const char*, std::function<Outcome()>>, 3> Roads()
    {
        return {{{"record", [this] { return DropOn(slots.imaGeneral(2)); }},
                 {"photo on show", [this] { return router.DropUntold(router.Start(slots.geamaintain), slots.imaGeneral(2)); }},
                 {"thumbnail", [this] { return DropThumb(1, slots.imaGeneral(2)); }}}};
    }
    /// @param stored  where the picture is a new one, which stays in the slot; as the others if empty
    void EachRoadLeaves(const QString& caption, const std::function<void()>& before, const QString& stored = {})
    {
        for (const auto& [name, road] : Roads()) {
            loader.geaClearImage(slots.imaGeneral(2));
            report.cboGeneral(2).SetText(u"GARAGE"_s);
            before();
            road();
            conduit.before = {};
            const bool filed = !stored.isEmpty() && QLatin1StringView(name) == "thumbnail"_L1;
            EXPECT_EQ(report.cboGeneral(2).Text(), filed ? stored : caption) << name;
        }
    }
};

TEST_F(GeneralCaptionTest, TakesTheViewThatTheReportHasTaken)
{
    EachRoadLeaves(u"REAR VIEW"_s, [] {});
    EXPECT_EQ(Poked().count(u"GEN1|7|1=REAR VIEW"_s), 3);
}

TEST_F(GeneralCaptionTest, StaysWhereTheReportRefusesThePicture)
{
    const auto refuse = [this] {
        conduit.before = [](const QString& entry) {
            if (entry.startsWith("execute"_L1))
                throw RuntimeError(error::kLinkBusy, u"No such object"_s);
        };
    };
    // A picture that was stored stays in the slot, where a save files it under the view beside it.
    EachRoadLeaves(u"GARAGE"_s, refuse, u"REAR VIEW"_s);
    EXPECT_TRUE(Poked().isEmpty());
}

TEST_F(GeneralCaptionTest, StaysWhereTheReportRefusesTheDescription)
{
    EachRoadLeaves(u"GARAGE"_s,
                   [this] { conduit.FailOnce(u"item GEN1|7|1"_s, error::kLinkBusy, u"No such cell"_s); });
}

TEST_F(GeneralCaptionTest, GoesWithTheDescriptionWhereTheAddressAloneIsRefused)
{
    EachRoadLeaves(u"REAR VIEW"_s,
                   [this] { conduit.FailOnce(u"item GEN1|8|1"_s, error::kLinkBusy, u"No such cell"_s); });
}

TEST_F(GeneralCaptionTest, StaysWhereThePictureIsGoneOrNoLongerTheOne)
{
    home.disk.Kill(u"C:\\JPG\\OAKR.jpg"_s);
    doubles.prompter.AnswerAlways(forms::Answer::No); // shall the slot be cleared?
    EXPECT_FALSE(DropOn(slots.imaGeneral(2)).done);
    EXPECT_EQ(report.cboGeneral(2).Text(), u"GARAGE"_s);
    home.Put(kSnap + u"B.JPG"_s, "no picture");
    EXPECT_FALSE(DropThumb(1, slots.imaGeneral(2)).done);
    EXPECT_EQ(report.cboGeneral(2).Text(), u"GARAGE"_s);
}

/// JONES comes to the front while the view is asked; the user has the tabs read from it.
TEST_F(GeneralCaptionTest, OfAnotherReportIsThatReports)
{
    ini[u"3X5_PHOTO_PAGES/SUBJECT_1"_s] = u"SUBPHOTO"_s;
    Map({u"UA5"_s, u"SUBJPAGE"_s, u"ADDRESS"_s, u"2"_s, u"3"_s, u"SALE"_s, u"10"_s, u"0"_s});
    for (const QString& report : {u"SMITH"_s, u"JONES"_s})
        conduit.Answer(u"KEL|"_s + report, u"ListForms"_s, u"UA5,SUBPHOTO,GEN1,"_s);
    conduit.Answer(u"KEL|JONES"_s, u"GEN1|7|1"_s, u"JONES HAS THIS"_s);
    for (const auto& [name, road] : Roads()) {
        doubles.prompter.AnswerAlways(forms::Answer::Ok);
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,JONES,"_s);
        addr.txtKelReport.SetText(u"SMITH"_s);
        loader.geaClearImage(slots.imaGeneral(2));
        report.cboGeneral(2).SetText(u"GARAGE"_s);
        questions.asked.clear();
        conduit.before = [this](const QString&) {
            if (!questions.asked.isEmpty())
                conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
        };
        road();
        conduit.before = {};
        EXPECT_EQ(addr.txtKelReport.Text(), u"JONES"_s) << name;
        EXPECT_EQ(report.cboGeneral(2).Text(), QString()) << name << ": a slot without a picture has none";
    }
}

// A capture picture that has been stored is gone from its page, whatever the report says to it.
TEST_F(GeneralCaptionTest, AThumbnailThatIsStoredLeavesItsPageThoughAnotherReportComesToTheFront)
{
    globals.autoDelete = 1;
    doubles.prompter.AnswerAlways(forms::Answer::Cancel); // keep the tabs
    bool stored = false;
    conduit.before = [&](const QString&) {
        if (!stored && filing.PictureSaved) {
            stored = true;
            conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"JONES,SMITH,"_s);
        }
    };
    filing.PictureSaved = false;
    const Outcome outcome = DropThumb(1, slots.imaComp(2));
    ASSERT_TRUE(stored);
    EXPECT_TRUE(outcome.message.startsWith(u"B.JPG is stored. Nothing was sent: JONES is active"_s))
        << outcome.message.toStdString();
    EXPECT_FALSE(home.disk.FileExists(kSnap + u"B.JPG"_s));
    EXPECT_FALSE(controls.geathumb(1).Visible()) << "its file is in the trash";
}

} // namespace
} // namespace vasclip::drops
