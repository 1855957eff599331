#include "support/exclusive_lock.h"
#include "upkeep/print_home.h"

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

using Crystal = PrintHome;

TEST_F(Crystal, OpensWithTheSearchsNumberAndBrief)
{
    Comps(3);
    const auto screen = Make(u"SELECT * FROM COMPS WHERE CITY = 'Marlow'"_s);
    EXPECT_EQ(screen->Caption(), u"Report Print Options"_s);
    EXPECT_EQ(screen->lblRecordCount.Caption(), u"2"_s);
    EXPECT_EQ(screen->cmdPrint.Caption(), u"&Print"_s);
    EXPECT_EQ(screen->cmdExit.Caption(), u"E&xit"_s);
    EXPECT_EQ(screen->optSelected(0).Caption(), u"Brief"_s);
    EXPECT_EQ(screen->optSelected(1).Caption(), u"Regular"_s);
    EXPECT_EQ(screen->optSelected(2).Caption(), u"Extended"_s);
    EXPECT_TRUE(screen->optSelected(0).Value());
    EXPECT_FALSE(screen->optSelected(1).Value());
    EXPECT_EQ(screen->lblmsg.Caption(), QString());
    EXPECT_NE(Make(u"SELECT * FROM COMPS"_s, true)->lblmsg.Caption(), QString()) << "quick find hides some";
}

TEST_F(Crystal, EachLengthFillsItsDatabaseAndLetsItGo)
{
    Comps(4);
    const auto screen = Make(u"SELECT * FROM COMPS WHERE CITY = 'Marlow' ORDER BY COMPS.ADDRESS"_s);
    const QStringList files{u"Report_Brief.mdb"_s, u"Report_Medium.mdb"_s, u"Report_Detail.mdb"_s};
    for (int i = 0; i < 3; ++i) {
        screen->optSelected(i).SetValue(true);
        EXPECT_FALSE(screen->optSelected((i + 1) % 3).Value());
        Print(*screen, [](frm_ReportPreview& preview) { EXPECT_EQ(preview.Pages(), 1); });
        EXPECT_EQ(Filled(files[i]), 2);
        EXPECT_FALSE(screen->datReport.Bound());
        EXPECT_EQ(screen->datReport.DatabaseName(), QString());
        EXPECT_EQ(screen->datReport.RecordSource(), QString());
        EXPECT_FALSE(disk.Found(u"C:\\USER\\"_s + files[i].chopped(4) + u".ldb"_s)) << "nobody has it open";
    }
}

TEST_F(Crystal, FiveHundredPrintWithoutAQuestion)
{
    Comps(500);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [](frm_ReportPreview& preview) { EXPECT_GT(preview.Pages(), 0); });
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Crystal, MoreAskAndOnlyYesPrints)
{
    Comps(501);
    const auto screen = Make(u"SELECT * FROM COMPS ORDER BY COMPS.ADDRESS"_s);
    for (const forms::Answer answer : {forms::Answer::No, forms::Answer::Cancel}) {
        doubles.prompter.Answer(answer);
        Click(screen->cmdPrint);
        EXPECT_EQ(Filled(u"Report_Brief.mdb"_s), 501) << "the table stays filled";
        EXPECT_TRUE(doubles.screens.Shown().isEmpty());
        EXPECT_FALSE(screen->datReport.Bound());
    }
    EXPECT_EQ(doubles.prompter.Last().title, u"Output Report Record Count"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"(Exact count = 501 )"_s));
    doubles.prompter.Answer(forms::Answer::Yes);
    Print(*screen, [](frm_ReportPreview&) {});
}

TEST_F(Crystal, ALayoutOfTheUsersOwnIsNoneOfTheLengths)
{
    Comps(2);
    disk.MkDir(u"C:\\USER\\REPORTS"_s);
    disk.WriteWhole(u"C:\\USER\\REPORTS\\mine.layout"_s, "layout \"Mine\"\ncolumn CITY\n");
    disk.WriteWhole(u"C:\\USER\\REPORTS\\bad.layout"_s, "column CITTY\n");
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    screen->cboLayout.SetListIndex(screen->cboLayout.IndexOf(u"Mine (mine)"_s));
    EXPECT_FALSE(screen->optSelected(0).Value());
    Print(*screen, [](frm_ReportPreview& preview) { EXPECT_EQ(preview.cboLayout.Text(), u"Mine (mine)"_s); });
    EXPECT_EQ(Filled(u"Report_NonDesc.mdb"_s), 2);
    screen->cboLayout.SetListIndex(screen->cboLayout.IndexOf(u"bad"_s));
    Click(screen->cmdPrint);
    EXPECT_TRUE(screen->lblmsg.Caption().contains(u"line 1, column 8"_s))
        << screen->lblmsg.Caption().toStdString();
    screen->cboLayout.SetListIndex(0);
    EXPECT_TRUE(screen->optSelected(0).Value());
}

TEST_F(Crystal, ADatabookThatIsLockedIsTriedAgainLater)
{
    Comps(2);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    engine.SetLockWait(20);
    {
        const tests::ExclusiveLock theirs(disk.ToNative(path));
        EXPECT_NO_THROW(Click(screen->cmdPrint)) << "the program goes on";
        ASSERT_FALSE(doubles.prompter.Boxes().empty());
        EXPECT_TRUE(doubles.prompter.Last().text.contains(u"currently locked by another user"_s))
            << doubles.prompter.Last().text.toStdString();
    }
    Print(*screen, [](frm_ReportPreview& preview) { EXPECT_EQ(preview.Pages(), 1); });
}

TEST_F(Crystal, ADatabookOfAnOlderLayoutPrintsWhatItHas)
{
    disk.Kill(path);
    {
        engine::TableDef older = store::CompsTable();
        older.fields.removeIf([](const engine::Field& field) {
            return QStringList{u"OTHERAREA1"_s, u"OTHERAREA2"_s, u"FRONTPHOTO"_s, u"LONGITUDE"_s, u"NEIGHBORHD"_s, u"NOTES"_s}
                .contains(field.name);
        });
        const auto database = engine.CreateDatabase(path);
        database->CreateTable(older);
        database->Close();
    }
    Comps(3);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    for (int i = 0; i < 3; ++i) {
        screen->optSelected(i).SetValue(true);
        Print(*screen, [&](frm_ReportPreview& preview) {
            EXPECT_FALSE(preview.Shown().texts.isEmpty());
            preview.SavePdf(pdf);
            EXPECT_TRUE(preview.lblmsg.Caption().startsWith(u"The report is in "_s)) << preview.lblmsg.Caption().toStdString();
            preview.SaveCsv(out.filePath(u"r.csv"_s));
            EXPECT_TRUE(preview.lblmsg.Caption().startsWith(u"The records are in "_s)) << preview.lblmsg.Caption().toStdString();
        });
    }
}

} // namespace
} // namespace vasclip::upkeep
