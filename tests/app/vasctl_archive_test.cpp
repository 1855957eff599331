// vasctl archive: where it goes, what it asks, and how it ends.

#include "support/processes.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2;

class VasctlArchive : public testing::Test
{
protected:
    ProgramHome home;

    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        Old(u"level"_s);
    }
    /// The one record of the range, as it is the first time or again.
    void Old(const QString& notes)
    {
        const Ended made = home.Vasctl({u"records"_s, u"add"_s, u"1 OLD ST"_s, u"--set"_s, u"SALEDATE=05/05/1985"_s,
                                        u"--set"_s, u"NOTES="_s + notes});
        ASSERT_EQ(made.code, kDone) << made.err.toStdString();
    }
    [[nodiscard]] Ended Archive(const QStringList& more = {}, const QStringList& before = {}) const
    {
        return home.Vasctl(before + QStringList{u"archive"_s, u"--from"_s, u"01/01/1980"_s, u"--to"_s, u"12/31/1989"_s} +
                           more);
    }
};

TEST_F(VasctlArchive, AsksAboutARecordThatIsThereAndNoLeavesBoth)
{
    Ended run = Archive();
    ASSERT_EQ(run.code, kDone) << run.err.toStdString();
    EXPECT_EQ(run.Object()[u"moved"_s].toInt(), 1);
    Old(u"again"_s);
    run = Archive({u"--ask"_s});
    EXPECT_EQ(run.code, kFailed) << "nobody said yes";
    EXPECT_TRUE(run.err.contains("Overwrite 1 OLD ST")) << run.err.toStdString();
    EXPECT_EQ(run.Object()[u"left"_s].toArray().size(), 1) << run.out.toStdString();
    run = Archive({u"--ask"_s}, {u"--yes"_s});
    EXPECT_EQ(run.code, kDone) << run.err.toStdString();
    EXPECT_EQ(run.Object()[u"overwritten"_s].toInt(), 1);
    Old(u"once more"_s);
    run = Archive();
    EXPECT_EQ(run.code, kDone) << "without --ask nothing is asked";
    EXPECT_FALSE(run.err.contains("Overwrite"));
    EXPECT_EQ(run.Object()[u"overwritten"_s].toInt(), 1);
    EXPECT_EQ(Archive().Object()[u"moved"_s].toInt(), 0);
}

TEST_F(VasctlArchive, ABareNameIsMeantBesideTheOtherArchives)
{
    const QString usual = Archive({}).Object()[u"file"_s].toString();
    const QString directory = usual.left(usual.lastIndexOf(u'\\') + 1);
    Old(u"again"_s);
    EXPECT_EQ(Archive({u"--file"_s, u"NOEXT"_s}).Object()[u"file"_s].toString(), directory + u"NOEXT.MDB"_s);
    Old(u"again"_s);
    EXPECT_EQ(Archive({u"--file"_s, u"foo.mdb"_s}).Object()[u"file"_s].toString(), directory + u"foo.mdb"_s);
    EXPECT_FALSE(QFile::exists(u"foo.mdb"_s));
    Old(u"again"_s);
    const Ended run = Archive({u"--file"_s, u"C:\\ELSEWHERE\\OLD.2019"_s});
    EXPECT_EQ(run.code, kDone) << run.err.toStdString();
    EXPECT_EQ(run.Object()[u"file"_s].toString(), u"C:\\ELSEWHERE\\OLD.MDB"_s);
}

TEST_F(VasctlArchive, EndsWithTheCodeOfWhatWasWrong)
{
    EXPECT_EQ(home.Vasctl({u"archive"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"archive"_s, u"--from"_s, u"soon"_s, u"--to"_s, u"12/31/1989"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"archive"_s, u"--from"_s, u"01/01/1990"_s, u"--to"_s, u"12/31/1989"_s}).code, kUsage);
    const Ended run = Archive({u"--file"_s, u"NEWDATA"_s});
    EXPECT_EQ(run.code, kFailed);
    EXPECT_TRUE(run.err.contains("You cannot archive to default (protected) installed database: NEWDATA "))
        << run.err.toStdString();
}

} // namespace
