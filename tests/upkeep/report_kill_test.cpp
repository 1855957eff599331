// A report that is killed while it is written leaves the older file or the whole new one, and what is beside it goes when
// the next one of its name is written. VASCLIP_KILLS sets how often.

#include "upkeep/pager_home.h"

#include "faults/kills.h"
#include "platform/engine/process.h"
#include "support/error_number.h"
#include "support/file_limit.h"
#include "support/killed_here.h"
#include "support/killed_work.h"
#include "upkeep/account.h"
#include "upkeep/draft_file.h"
#include "upkeep/report_csv.h"
#include "upkeep/report_print.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace vasclip::upkeep {
namespace {

class NoPictures : public paper::PictureSource
{
public:
    QImage Picture(const QString&, QSize) override { return {}; }
};

/// @param true: PDF, false: CSV
class ReportKill : public Pager, public testing::WithParamInterface<bool>
{
protected:
    QTemporaryDir dir;
    const QString name = GetParam() ? u"r.pdf"_s : u"r.csv"_s;
    const QString file = dir.filePath(name);

    void SetUp() override
    {
        Lay("column CITY\ncolumn NOTES\n");
        for (int i = 0; i < 900; ++i)
            records.append({{u"CITY"_s, u"Alder %1"_s.arg(i)}, {u"NOTES"_s, u"Quiet street"_s}});
        facts.count = records.size();
    }
    /// @param turn  called while it is written, when something of it is on the disk
    void Write(const std::function<bool()>& turn)
    {
        if (!GetParam()) {
            int asked = 0;
            static_cast<void>(WriteReportCsv(file, layout, Feed(), facts.now.date(), [&] { return ++asked < 4 || turn(); }));
            return;
        }
        NoPictures pictures;
        const ReportBook book{.layout = layout, .sheet = layout.sheet, .facts = facts, .feed = Feed(), .pictures = pictures};
        static_cast<void>(PrintToPdf(book, file, [&](const QString& doing, qint64 done, qint64) {
            return doing != u"Printing"_s || done < 4 || turn();
        }));
    }
    void WriteAll()
    {
        Write([] { return true; });
    }
    void Put(const QString& other, const QByteArray& bytes) const
    {
        QFile put(dir.filePath(other));
        ASSERT_TRUE(put.open(QIODevice::WriteOnly));
        put.write(bytes);
    }
    [[nodiscard]] QByteArray Content(const QString& of) const
    {
        QFile written(dir.filePath(of));
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
    }
    [[nodiscard]] QStringList Files() const { return QDir(dir.path()).entryList(QDir::Files); }
    /// In the middle.
    void Kill()
    {
        const pid_t child = fork();
        if (child == 0) {
            Write([] { return raise(SIGKILL) == 0; });
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it came to its end";
    }
};

TEST_P(ReportKill, LeavesTheOlderFileAndWhatIsBesideItGoesWithTheNext)
{
    Put(name, "older");
    Kill();
    Kill();
    EXPECT_EQ(Content(name), "older");
    EXPECT_EQ(Files().size(), 2) << "the second took away what the first had left";
    WriteAll();
    EXPECT_EQ(Files(), QStringList{name});
    EXPECT_GT(Content(name).size(), 10000);
}

TEST_P(ReportKill, TakesNothingOfTheUsersAway)
{
    const QString left = tests::kKilledHere.Mark();
    const QStringList mine{name + u".new"_s, name + u".newest"_s, name + u".new"_s + left + u".bak"_s, name + u"-journal"_s,
                           u"x"_s + name + u".new"_s + left,
                           name + u".new%1"_s.arg(getppid()), // somebody is writing that one
                           name + u".new"_s + engine::FileOwner{getppid(), tests::kKilledHere.machine}.Mark(),
                           name + u".new999999999"_s, // an older version, perhaps of another machine
                           name + u".new"_s + engine::FileOwner{tests::kKilledHere.process, u"0123abcd"_s}.Mark()};
    for (const QString& one : mine)
        Put(one, "mine");
    Put(name + u".new"_s + left, "half");
    Kill();
    WriteAll();
    QStringList wanted = mine + QStringList{name};
    wanted.sort();
    QStringList found = Files();
    found.sort();
    EXPECT_EQ(found, wanted);
}

TEST_P(ReportKill, AtAnyMomentLeavesTheOlderFileOrTheWholeNewOne)
{
    WriteAll();
    const QByteArray whole = Content(name);
    tests::KilledWork killed;
    int before = 0;
    int after = 0;
    for (int run = 0; tests::MoreKills(run, 14, {before, after}); ++run) {
        Put(name, "older");
        killed.Run([this] { WriteAll(); });
        EXPECT_TRUE(Content(name) == "older" || Content(name) == whole) << "run " << run;
        ++(Content(name) == "older" ? before : after);
    }
    EXPECT_GT(before, 0);
    EXPECT_GT(after, 0);
    WriteAll();
    EXPECT_EQ(Files(), QStringList{name});
}

TEST_P(ReportKill, NoHalfOfOneTakesThePlaceOfTheOlderFile)
{
    Put(name, "older");
    Write([] { return false; });
    EXPECT_EQ(Content(name), "older") << "stopped";
    {
        const tests::FileLimit full(4096);
        EXPECT_EQ(tests::NumberOf([this] { WriteAll(); }), error::kDiskFull);
    }
    EXPECT_EQ(Content(name), "older") << "on a full disk";
    EXPECT_EQ(Files(), QStringList{name});
}

TEST_P(ReportKill, WhereNoFileCanStandNothingIsLeft)
{
    const auto refused = [this] {
        return tests::NumberOf([this] { Write([] { ADD_FAILURE() << "it began"; return true; }); });
    };
    QDir(dir.path()).mkdir(name);
    EXPECT_EQ(refused(), error::kPathFileAccess);
    EXPECT_EQ(Files(), QStringList());
    QDir(dir.path()).rmdir(name);
    Put(name, "older");
    QFile::setPermissions(file, QFile::ReadOwner);
    EXPECT_EQ(refused(), error::kPathFileAccess);
    EXPECT_EQ(Content(name), "older");
    EXPECT_EQ(Files(), QStringList{name});
    dir.remove();
    EXPECT_EQ(tests::NumberOf([this] { WriteAll(); }), error::kPathNotFound);
}

TEST_P(ReportKill, ALinkStaysOneAndItsFileKeepsItsRights)
{
    const auto rights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    Put(u"real"_s, "older");
    ASSERT_TRUE(QFile::setPermissions(dir.filePath(u"real"_s), rights));
    ASSERT_TRUE(QFile::link(dir.filePath(u"real"_s), file));
    WriteAll();
    EXPECT_TRUE(QFileInfo(file).isSymLink());
    EXPECT_GT(Content(u"real"_s).size(), 10000);
    EXPECT_EQ(QFile::permissions(dir.filePath(u"real"_s)), rights);
    EXPECT_EQ(Files(), (QStringList{name, u"real"_s}));
}

INSTANTIATE_TEST_SUITE_P(Kinds, ReportKill, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& info) { return info.param ? "Pdf" : "Csv"; });

} // namespace
} // namespace vasclip::upkeep
