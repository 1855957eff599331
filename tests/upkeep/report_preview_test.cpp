#include "upkeep/print_home.h"

#include "platform/text/runtime_error.h"
#include "support/file_limit.h"

#include <QFile>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

using Preview = PrintHome;

TEST_F(Preview, ThePreviewTurnsPagesAndCountsThem)
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
        EXPECT_EQ(preview.txtPage.Text(), u"3"_s) << "the page on show stays";
    });
}

TEST_F(Preview, FindGoesToThePageAndRoundAgain)
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

TEST_F(Preview, PaperChangesThePagesAndIsRemembered)
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

TEST_F(Preview, ThePdfHasThePagesOfThePreview)
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

TEST_F(Preview, AMissingPhotoIsToldAndStopsNothing)
{
    Comps(3);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    screen->optSelected(2).SetValue(true);
    Print(*screen, [&](frm_ReportPreview& preview) {
        preview.SavePdf(pdf);
        EXPECT_EQ(preview.lblmsg.Caption(),
                  u"The report is in %1. 1 photo was not found; its place says so."_s.arg(pdf));
        const QString csv = out.filePath(u"r.csv"_s);
        preview.SaveCsv(csv);
        EXPECT_EQ(preview.lblmsg.Caption(), u"The records are in %1."_s.arg(csv)) << "a text has no photos";
        preview.cboLayout.SetListIndex(0);
        preview.SavePdf(pdf);
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report is in %1."_s.arg(pdf)) << "nor has this layout";
    });
    EXPECT_EQ(Files(), (QStringList{u"r.csv"_s, u"r.pdf"_s}));
}

TEST_F(Preview, StopInTheMiddleLeavesNoHalfPdf)
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

TEST_F(Preview, OnAFullDiskAsksAndLeavesNothing)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    Comps(400);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        doubles.prompter.Answer(forms::Answer::Abort);
        {
            const tests::FileLimit full(8 * 1024);
            preview.SavePdf(pdf);
        }
        EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::AbortRetryIgnore);
        EXPECT_TRUE(preview.cmdPDF.Enabled());
        EXPECT_EQ(Files(), QStringList());
        preview.SavePdf(pdf);
        EXPECT_EQ(Files(), QStringList{u"r.pdf"_s}) << "with room it goes on";
    });
}

TEST_F(Preview, ClosingWhileAPdfIsMadeStopsItFirst)
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

TEST_F(Preview, PrintsTheWantedPagesToADevice)
{
    Comps(200);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        QFile file(pdf);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        {
            QPdfWriter printer(&file);
            printer.setResolution(300);
            preview.PrintTo(printer, 300, QPageRanges::fromString(u"2,4-5"_s));
        }
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report was sent to the printer."_s);
    });
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count("/Type /Page\n"), 3);
}

/// A printer that tells of each page.
class Heard : public QPdfWriter
{
public:
    Heard(const QString& file, std::function<void()> onPage)
        : QPdfWriter(file)
        , m_onPage(std::move(onPage))
    {}
    bool newPage() override
    {
        m_onPage();
        return QPdfWriter::newPage();
    }

private:
    std::function<void()> m_onPage;
};

TEST_F(Preview, AStopSaysHowManyPagesThePrinterHas)
{
    Comps(200);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        {
            Heard printer(pdf, [&] { Click(preview.cmdStop); });
            preview.PrintTo(printer, 300);
        }
        EXPECT_EQ(preview.lblmsg.Caption(), u"Stopped. The printer has 2 pages."_s);
        const QByteArray before = QFile::exists(pdf) ? QByteArray("there") : QByteArray();
        EXPECT_EQ(before, "there");
        QFile::remove(pdf);
        doubles.pump.onTurn = [&] { Click(preview.cmdStop); };
        {
            Heard printer(pdf, [] {});
            preview.PrintTo(printer, 300);
        }
        doubles.pump.onTurn = {};
        EXPECT_EQ(preview.lblmsg.Caption(), u"Stopped. Nothing was printed."_s) << "the pages were still counted";
        EXPECT_FALSE(QFile::exists(pdf) && QFile(pdf).size() > 0) << "no empty sheet comes out";
    });
}

TEST_F(Preview, PagesThatTheReportHasNotAreToldAndNothingIsPrinted)
{
    Comps(2);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        {
            Heard printer(pdf, [] {});
            preview.PrintTo(printer, 300, QPageRanges::fromString(u"40-50"_s));
        }
        EXPECT_EQ(preview.lblmsg.Caption(), u"The report has no page 40-50; its last one is 1. Nothing was printed."_s);
        EXPECT_FALSE(QFile::exists(pdf) && QFile(pdf).size() > 0) << "no empty sheet comes out";
    });
}

TEST_F(Preview, AReportThatCanNotBeReadAnyMoreIsNotSaidToLackWhatIsLookedFor)
{
    Comps(300);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        QFile report(disk.ToNative(u"C:\\USER\\Report_Brief.mdb"_s));
        ASSERT_TRUE(report.resize(8192)); // a disk that fails, or somebody who cleans up
        preview.txtFind.SetText(u"299 oak"_s);
        EXPECT_THROW(Click(preview.cmdFind), RuntimeError); // for the program's box
        EXPECT_FALSE(preview.lblmsg.Caption().contains(u"stands on no page"_s)) << preview.lblmsg.Caption().toStdString();
        EXPECT_TRUE(preview.cmdExit.Enabled());
    });
}

TEST_F(Preview, ASearchThatAFailureEndsIsNotSaidToHaveFoundNothing)
{
    Comps(300);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        doubles.pump.onTurn = [] { throw RuntimeError(error::kDeviceIo, u"The disk fails"_s); };
        doubles.prompter.Answer(forms::Answer::Abort);
        preview.txtFind.SetText(u"nowhere"_s);
        Click(preview.cmdFind);
        doubles.pump.onTurn = {};
        EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::AbortRetryIgnore);
        EXPECT_EQ(preview.lblmsg.Caption(), QString());
        Click(preview.cmdFind);
        EXPECT_EQ(preview.lblmsg.Caption(), u"nowhere stands on no page."_s);
    });
}

TEST_F(Preview, APrinterThatTakesNoFurtherPageIsTold)
{
    class Jammed : public QPdfWriter
    {
    public:
        using QPdfWriter::QPdfWriter;
        bool newPage() override { return false; }
    };
    Comps(200);
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        Jammed printer(pdf);
        doubles.prompter.Answer(forms::Answer::Abort);
        preview.PrintTo(printer, 300);
        EXPECT_TRUE(doubles.prompter.Last().text.contains(
            u"The printer took no further page. What it has is not the whole report"_s))
            << doubles.prompter.Last().text.toStdString();
        EXPECT_FALSE(preview.lblmsg.Caption().contains(u"was sent"_s));
        EXPECT_TRUE(preview.cmdPrint.Enabled());
    });
}

TEST_F(Preview, AnotherLayoutThatIsWrongLeavesTheOneOnShow)
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

TEST_F(Preview, ALayoutThatIsDeletedMeanwhileLeavesTheOneOnShow)
{
    Comps(2);
    disk.MkDir(u"C:\\USER\\REPORTS"_s);
    disk.WriteWhole(u"C:\\USER\\REPORTS\\short.layout"_s, "column CITY\n");
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        disk.Kill(u"C:\\USER\\REPORTS\\short.layout"_s);
        preview.cboLayout.SetListIndex(3);
        EXPECT_EQ(preview.cboLayout.ListIndex(), 0);
        EXPECT_TRUE(preview.lblmsg.Caption().contains(u"There is no report layout 'short'"_s))
            << preview.lblmsg.Caption().toStdString();
        EXPECT_FALSE(preview.Shown().texts.isEmpty());
        EXPECT_TRUE(preview.cmdPDF.Enabled());
    });
}

TEST_F(Preview, ACopyOfALayoutIsToldFromIt)
{
    Comps(1);
    static_cast<void>(CopyLayout(disk, globals, u"brief"_s, u"mine"_s));
    const auto screen = Make(u"SELECT * FROM COMPS"_s);
    Print(*screen, [&](frm_ReportPreview& preview) {
        EXPECT_EQ(preview.cboLayout.List(0), u"Brief"_s);
        EXPECT_EQ(preview.cboLayout.List(3), u"Brief (mine)"_s);
    });
}

} // namespace
} // namespace vasclip::upkeep
