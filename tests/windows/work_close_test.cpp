#include "import_home.h"
#include "upkeep/frm_archive.h"
#include "upkeep/frm_report_preview.h"

#include <QTemporaryDir>

// The window manager's cross on a window that is at work: the work is stopped and the window stands until it has ended.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class WorkClose : public ImportWindow
{
protected:
    QTemporaryDir out;

    void SetUp() override
    {
        ImportWindow::SetUp();
        const auto database = engine.OpenDatabase(shell::kDatabook);
        engine::Transaction all(*database);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (int i = 100; i < 500; ++i) {
            rows->AddNew();
            rows->SetValue(u"CENTRALKEY"_s, u"%1 MANY ST"_s.arg(i).leftJustified(35));
            rows->SetValue(u"SALEDATE"_s, u"05/05/1995"_s);
            rows->SetValue(u"LATITUDE"_s, u"45"_s);
            rows->Update();
        }
        rows->Close();
        all.Commit();
        MakeMainWindow();
        mainWindow->show();
    }
    /// The cross comes at the turn of the queue by its number, again and again.
    /// @return how often it came
    int Cross(int from, const std::function<void()>& work)
    {
        int turns = 0, crosses = 0;
        doubles.pump.onTurn = [&] {
            if (++turns < from || !The<QPushButton>(u"cmdStop"_s).isVisible())
                return;
            ++crosses;
            EXPECT_FALSE(window->close());
            EXPECT_TRUE(window->isVisible());
        };
        work();
        doubles.pump.onTurn = {};
        EXPECT_TRUE(window->isVisible());
        return crosses;
    }
    void ExpectItCloses()
    {
        EXPECT_TRUE(window->close());
        EXPECT_FALSE(window->isVisible());
    }
    [[nodiscard]] qint64 Count(const QString& file, const QString& condition)
    {
        const auto database = engine.OpenDatabase(file);
        return store::Rows(*database, u"SELECT CENTRALKEY FROM COMPS WHERE "_s + condition).Count();
    }
};

TEST_F(WorkClose, ARepairIsTakenBack)
{
    PlayOn(u"frm_Maintenance"_s, [&] { main.mnuMaintItem.Choose(u"mnuMaintItem"_s, 0); }, [&] {
        doubles.prompter.Answer(forms::Answer::Yes);
        EXPECT_GT(Cross(3, [&] { Press(u"cmdclearAnchors"_s); }), 0);
        EXPECT_EQ(Says(), u"Stopped. Every record is as it was."_s);
        ExpectItCloses();
    });
    EXPECT_EQ(Count(shell::kDatabook, u"LATITUDE = '45'"_s), 400);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 401) << "the records are on show again";
}

TEST_F(WorkClose, AnArchiveEndsBehindItsRecord)
{
    PlayOn(u"frm_Archive"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 2); }, [&] {
        Type(u"txtstartdate"_s, u"1/1/1990"_s);
        Type(u"txtenddate"_s, u"12/31/1999"_s);
        EXPECT_EQ(Cross(5, [&] { Press(u"cmdarchive"_s); }), 1);
        EXPECT_TRUE(Says().startsWith(u"Stopped. "_s)) << Says().toStdString();
        ExpectItCloses();
    });
    const qint64 gone = Count(u"C:\\DATABOOK\\ARCHIVE\\ARCHIVE.MDB"_s, u"LATITUDE = '45'"_s);
    EXPECT_GT(gone, 0);
    EXPECT_EQ(gone + Count(shell::kDatabook, u"LATITUDE = '45'"_s), 400);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 401 - gone);
}

TEST_F(WorkClose, AnExportLeavesNoFile)
{
    PlayOn(u"frm_Export"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 1); }, [&] {
        Tick(u"ckbCopy"_s);
        EXPECT_GT(Cross(1, [&] { Press(u"cmdExport"_s); }), 0) << "which the export of pictures hears";
        EXPECT_TRUE(Lines(u"filexport"_s).isEmpty()) << Says().toStdString();
        ExpectItCloses();
    });
    EXPECT_FALSE(home.disk.FileExists(u"C:\\DATABOOK\\EXPORT\\EXPORT.MDB"_s));
}

TEST_F(WorkClose, AnImportIsTakenBack)
{
    Play([&] {
        ClickLine(u"filexport"_s, 0);
        Tick(u"ckbCopy"_s);
        EXPECT_GT(Cross(1, [&] { Press(u"cmdImport"_s); }), 0) << Says().toStdString();
        ExpectItCloses();
    });
    EXPECT_EQ(Count(shell::kDatabook, u"CENTRALKEY LIKE '*ASH ST*'"_s), 0);
    EXPECT_FALSE(home.disk.FileExists(u"C:\\JPG\\00000001.jpg"_s));
}

TEST_F(WorkClose, AReportThatIsSavedLeavesNoHalfFile)
{
    const QString file = out.filePath(u"r.pdf"_s);
    PlayOn(u"frm_Crystal"_s, [&] { main.mnuFileItem.Choose(u"mnuFileItem"_s, 9); }, [&] {
        PlayOn(u"frm_ReportPreview"_s, [&] { Press(u"cmdPrint"_s); }, [&](forms::Screen& shown) {
            auto& preview = dynamic_cast<upkeep::frm_ReportPreview&>(shown);
            EXPECT_EQ(Cross(1, [&] { preview.SavePdf(file); }), 1);
            EXPECT_EQ(Says(), u"Stopped. Nothing was stored."_s);
            ExpectItCloses();
        });
    });
    EXPECT_TRUE(QDir(out.path()).isEmpty());
}

} // namespace
} // namespace vasclip::windows
