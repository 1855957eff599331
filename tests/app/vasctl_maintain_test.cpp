// vasctl maintain, and the account of a repair that can't be kept.

#include "support/processes.h"
#include "support/unix.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1;

class VasctlMaintain : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(home.Make()); }

    [[nodiscard]] int WithPhotos() const
    {
        return static_cast<int>(
            home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY FROM COMPS WHERE PHOTOS LIKE '*|*'"_s}).Array().size());
    }

    ProgramHome home;
};

TEST_F(VasctlMaintain, KeepsItsAccountInAFile)
{
    const Ended run = home.Vasctl({u"--yes"_s, u"maintain"_s, u"clear-photos"_s, u"--account"_s, u"C:\\SAID.TXT"_s});
    EXPECT_EQ(run.code, kDone) << run.err.toStdString();
    EXPECT_EQ(run.Object()[u"file"_s].toString(), u"C:\\SAID.TXT"_s);
    EXPECT_TRUE(QFile::exists(home.Native(u"SAID.TXT"_s)));
    EXPECT_EQ(WithPhotos(), 0);
}

TEST_F(VasctlMaintain, RepairsNothingWhereTheAccountCanNotBeWritten)
{
    const int before = WithPhotos();
    ASSERT_GT(before, 0);
    const Ended run =
        home.Vasctl({u"--yes"_s, u"maintain"_s, u"clear-photos"_s, u"--account"_s, u"C:\\NOWHERE\\SAID.TXT"_s});
    EXPECT_EQ(run.code, kFailed);
    EXPECT_TRUE(run.err.contains("nothing was changed")) << run.err.toStdString();
    EXPECT_EQ(WithPhotos(), before);
}

TEST_F(VasctlMaintain, PrintsTheAccountThatItsFileDoesNotTake)
{
    VASCLIP_NEEDS_UNIX("script, which gives a program a terminal");
    ASSERT_TRUE(QDir().mkdir(home.Native(u"SAID"_s)));
    // It waits for an answer at a terminal alone; script has one.
    QProcess run;
    run.setProcessEnvironment(home.environment);
    run.start(u"script"_s, {u"-qec"_s,
                            u"'%1' --home '%2' maintain clear-photos --account 'C:\\SAID\\SAID.TXT'"_s.arg(
                                ProgramHome::Program(u"vasctl"_s), home.Path()),
                            u"/dev/null"_s});
    QByteArray said;
    ASSERT_TRUE(WaitFor([&] {
        run.waitForReadyRead(20);
        said += run.readAllStandardOutput();
        return said.contains("[yes/no]");
    }, 20000)) << said.toStdString();
    ASSERT_TRUE(QDir(home.Native(u"SAID"_s)).removeRecursively());
    run.write("yes\n");
    ASSERT_TRUE(run.waitForFinished(20000));
    const QByteArray out = run.readAllStandardOutput();
    EXPECT_EQ(run.exitCode(), kFailed);
    EXPECT_TRUE(out.contains(": PHOTOS \"")) << out.toStdString();
    EXPECT_TRUE(out.contains("The photos of ")) << out.toStdString();
    EXPECT_TRUE(out.contains("The repair is done, and only its account could not be kept: ")) << out.toStdString();
    EXPECT_EQ(WithPhotos(), 0);
}

TEST_F(VasctlMaintain, TakesEachOfItsSteps)
{
    const Ended made = home.Vasctl({u"records"_s, u"add"_s, u"1 Old's St #4"_s, u"--set"_s, u"SALEDATE=05/05/1985"_s,
                                    u"--set"_s, u"LOADDATE=05/05/1985"_s, u"--set"_s, u"LATITUDE=45"_s});
    ASSERT_EQ(made.code, kDone) << made.err.toStdString();
    const std::pair<QString, QString> steps[] = {
        {u"recalc"_s, u"Rebuild Complete"_s},
        {u"clear-anchors"_s, u"Removal of anchors complete"_s},
        {u"land-size"_s, u"LandSize adjustment complete"_s},
        {u"clean-keys"_s, u" illegal characters were found... Removal of illegal characters is complete"_s},
        {u"clean-comments"_s, u"... "_s},
        {u"match-key"_s, u"Resetting process Complete"_s},
        {u"proper-case"_s, u"Resetting process Complete"_s},
        {u"upper-case"_s, u"Resetting process Complete"_s},
        {u"clear-photos"_s, u" records were cleared; the picture files are still there."_s},
    };
    for (const auto& [step, end] : steps) {
        EXPECT_EQ(home.Vasctl({u"maintain"_s, step}).code, 4) << "nobody said yes to " << step.toStdString();
        const Ended run = home.Vasctl({u"--yes"_s, u"maintain"_s, step});
        EXPECT_EQ(run.code, kDone) << step.toStdString() << run.err.toStdString();
        EXPECT_TRUE(run.Object()[u"message"_s].toString().contains(end)) << run.out.toStdString();
        EXPECT_GT(run.Object()[u"seen"_s].toInt(), 0) << step.toStdString();
    }
    for (const QString& step : {u"delete-by-load"_s, u"delete-by-sale"_s}) {
        EXPECT_EQ(home.Vasctl({u"--yes"_s, u"maintain"_s, step}).code, 2) << "without a date";
        EXPECT_EQ(home.Vasctl({u"--yes"_s, u"maintain"_s, step, u"--date"_s, u"soon"_s}).code, 2);
        const Ended run = home.Vasctl({u"--yes"_s, u"maintain"_s, step, u"--date"_s, u"12/31/1985"_s});
        EXPECT_EQ(run.code, kDone) << run.err.toStdString();
        EXPECT_EQ(run.Object()[u"deleted"_s].toInt(), step == u"delete-by-load"_s ? 1 : 0) << run.out.toStdString();
    }
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"maintain"_s, u"nonsense"_s}).code, 2);
}

} // namespace
