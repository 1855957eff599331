#include "support/databook_home.h"
#include "support/error_number.h"
#include "support/file_limit.h"
#include "upkeep/frm_crystal.h"
#include "upkeep/frm_report_preview.h"

#include <QDir>
#include <QFile>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

class Crystal : public tests::DatabookHome
{
protected:
    common::Globals globals;
    store::DataSource datsql{engine, u"datsql"_s};
    QString statement;
    QTemporaryDir out;
    const QString pdf = out.filePath(u"r.pdf"_s);

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_DataDir = u"C:\\"_s;
        globals.G_DataFile = u"DATABOOK.MDB"_s;
        globals.G_Table = table;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        disk.MkDir(u"C:\\USER"_s);
        disk.MkDir(u"C:\\JPG"_s);
    }
    void Comps(int count)
    {
        QList<Values> rows;
        for (int i = 1; i <= count; ++i)
            rows.append({{key, u"%1 OAK ST"_s.arg(i)}, {u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"CITY"_s, i % 2 ? u"Marlow"_s : u"Tannery"_s},
                         {u"PHOTOS"_s, i == 1 ? u"FRONT VIEW|GONE0001\r\n"_s : u" "_s}});
        AddRows(rows);
    }
    [[nodiscard]] std::unique_ptr<frm_Crystal> Make(const QString& sql, bool narrowed = false)
    {
        statement = sql;
        datsql.Open(path, sql, store::SourceKind::Query);
        auto screen = std::make_unique<frm_Crystal>(Desk(), datsql, statement, narrowed);
        screen->Open();
        return screen;
    }
    [[nodiscard]] ReportDesk Desk() { return {ports, engine, disk, globals, path}; }
    [[nodiscard]] qint64 Filled(const QString& file)
    {
        const auto database = engine.OpenDatabase(u"C:\\USER\\"_s + file, engine::OpenMode::ReadOnly);
        return store::CountRows(*database, table);
    }
    void Click(forms::Button& button) { Q_EMIT button.Clicked(); }
    /// Prints, and does this on the preview.
    void Print(frm_Crystal& screen, const std::function<void(frm_ReportPreview&)>& visit)
    {
        bool came = false;
        doubles.screens.Play([&](forms::Screen& shown) {
            came = true;
            visit(dynamic_cast<frm_ReportPreview&>(shown));
            shown.Unload();
        });
        Click(screen.cmdPrint);
        EXPECT_TRUE(came) << "no preview came up";
    }
    [[nodiscard]] QStringList Files() const { return QDir(out.path()).entryList(QDir::Files); }
};

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
    Print(*screen, [](frm_ReportPreview& preview) { EXPECT_EQ(preview.cboLayout.Text(), u"Mine"_s); });
    EXPECT_EQ(Filled(u"Report_NonDesc.mdb"_s), 2);
    screen->cboLayout.SetListIndex(screen->cboLayout.IndexOf(u"bad"_s));
    Click(screen->cmdPrint);
    EXPECT_TRUE(screen->lblmsg.Caption().contains(u"line 1, column 8"_s)) << screen->lblmsg.Caption().toStdString();
    screen->cboLayout.SetListIndex(0);
    EXPECT_TRUE(screen->optSelected(0).Value());
}

TEST_F(Crystal, ThePreviewTurnsPagesAndCountsThem)
{
    Comps(300);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        EXPECT_FALSE(preview.cmdPrevious.Enabled());
        Click(preview.cmdLast);
        const int pages = preview.Pages();
        EXPECT_GT(pages, 5);
        EXPECT_EQ(preview.txtPage.Text(), QString::number(pages));
        EXPECT_EQ(preview.lblPages.Caption(), u"of %1"_s.arg(pages));
        EXPECT_FALSE(preview.cmdNext.Enabled());
        Click(preview.cmdPrevious);
        EXPECT_EQ(preview.txtPage.Text(), QString::number(pages - 1));
        preview.txtPage.SetText(u"3"_s);
        Q_EMIT preview.txtPage.LostFocus();
        EXPECT_EQ(preview.txtPage.Text(), u"3"_s);
        preview.txtPage.SetText(u"nonsense"_s);
        Q_EMIT preview.txtPage.LostFocus();
        EXPECT_EQ(preview.txtPage.Text(), u"1"_s);
    });
}

TEST_F(Crystal, FindGoesToThePageAndRoundAgain)
{
    Comps(200);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        preview.txtFind.SetText(u"187 oak"_s);
        Click(preview.cmdFind);
        const int page = preview.txtPage.Text().toInt();
        EXPECT_GT(page, 3);
        EXPECT_EQ(preview.Found().size(), 1);
        Click(preview.cmdFind);
        EXPECT_EQ(preview.txtPage.Text().toInt(), page) << "it stands on no other";
        preview.txtFind.SetText(u"187 elm"_s);
        Click(preview.cmdFind);
        EXPECT_EQ(preview.lblmsg.Caption(), u"187 elm stands on no page."_s);
    });
}

TEST_F(Crystal, PaperChangesThePagesAndIsRemembered)
{
    Comps(200);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    int first = 0;
    Print(*screen, [&](frm_ReportPreview& preview) {
        EXPECT_TRUE(preview.optOrientation(1).Value()) << "as the layout says";
        Click(preview.cmdLast);
        first = preview.Pages();
        preview.optOrientation(0).SetValue(true);
        EXPECT_FALSE(preview.optOrientation(1).Value());
        Click(preview.cmdLast);
        EXPECT_LT(preview.Pages(), first) << "upright paper has more lines";
    });
    Print(*screen, [&](frm_ReportPreview& preview) {
        EXPECT_TRUE(preview.optOrientation(0).Value());
        preview.cboLayout.SetListIndex(1);
        EXPECT_FALSE(preview.Sheet().landscape) << "the other's own";
        EXPECT_EQ(preview.lblmsg.Caption(), QString());
    });
}

TEST_F(Crystal, ThePdfHasThePagesOfThePreview)
{
    Comps(120);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        preview.SavePdf(pdf);
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report is in %1."_s.arg(pdf));
        QFile file(pdf);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray first = file.readAll();
        Click(preview.cmdLast);
        EXPECT_EQ(first.count("/Type /Page\n"), preview.Pages());
        EXPECT_FALSE(preview.gauWork.Visible());
        EXPECT_TRUE(preview.cmdPDF.Enabled());
    });
}

TEST_F(Crystal, AMissingPhotoIsToldAndStopsNothing)
{
    Comps(3);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    screen->optSelected(2).SetValue(true);
    Print(*screen, [&](frm_ReportPreview& preview) {
        preview.SavePdf(pdf);
        EXPECT_TRUE(preview.lblmsg.Caption().contains(u"1 photos were not found"_s)) << preview.lblmsg.Caption().toStdString();
    });
    EXPECT_EQ(Files(), QStringList{u"r.pdf"_s});
}

TEST_F(Crystal, StopInTheMiddleLeavesNoHalfPdf)
{
    Comps(400);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        int turns = 0;
        doubles.pump.onTurn = [&] {
            ++turns;
            EXPECT_TRUE(preview.cmdStop.Visible());
            EXPECT_FALSE(preview.cmdPDF.Enabled()) << "one work at a time";
            Click(preview.cmdStop);
        };
        preview.SavePdf(pdf);
        doubles.pump.onTurn = {};
        EXPECT_EQ(turns, 1);
        EXPECT_EQ(preview.lblmsg.Caption(), u"Stopped. Nothing was stored."_s);
        EXPECT_TRUE(preview.cmdPDF.Enabled());
    });
    EXPECT_EQ(Files(), QStringList());
}

TEST_F(Crystal, ClosingWhileAPdfIsMadeStopsItFirst)
{
    Comps(400);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        doubles.pump.onTurn = [&] {
            preview.Unload();
            EXPECT_TRUE(preview.IsOpen());
        };
        preview.SavePdf(pdf);
        doubles.pump.onTurn = {};
        EXPECT_EQ(preview.lblmsg.Caption(), u"Stopped. Nothing was stored."_s);
    });
}

TEST_F(Crystal, PrintsTheWantedPagesToADevice)
{
    Comps(200);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        QFile file(pdf);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        {
            QPdfWriter printer(&file);
            printer.setResolution(300);
            preview.PrintTo(printer, 300, 2, 4);
        }
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer."_s);
    });
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count("/Type /Page\n"), 3);
}

TEST_F(Crystal, AnotherLayoutThatIsWrongLeavesTheOneOnShow)
{
    Comps(2);
    disk.MkDir(u"C:\\USER\\REPORTS"_s);
    disk.WriteWhole(u"C:\\USER\\REPORTS\\bad.layout"_s, "column CITTY\n");
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        preview.cboLayout.SetListIndex(3);
        EXPECT_EQ(preview.cboLayout.ListIndex(), 0);
        EXPECT_TRUE(preview.lblmsg.Caption().contains(u"Did you mean CITY?"_s));
        EXPECT_FALSE(preview.Shown().texts.isEmpty());
    });
}

} // namespace
} // namespace vasclip::upkeep
