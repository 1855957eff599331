// A disk that is full and a home that this user may not write or not even read.

#include "faults/fault_home.h"
#include "faults/small_disk.h"
#include "support/unix.h"

#include <QStorageInfo>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList Names(const QString& directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

using DiskFaults = FaultHome;

TEST_F(DiskFaults, AFullDiskUnderTheDatabookRefusesChangesAndKeepsAllRecords)
{
    const QString key = FirstKey();
    const QString city = CityOf(key);
    const SmallDisk disk(home.Native(u"DATABOOK"_s), 8192);
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    disk.Fill();
    const QStringList names = Names(home.Native(u"DATABOOK"_s));
    const QString words =
        u"The disk that holds C:\\DATABOOK\\DATABOOK.MDB is full. Nothing in that file was changed; make "
        u"room and try again"_s;
    struct Row
    {
        QStringList command;
        int code;
    };
    for (const Row& row : {Row{{u"add"_s, u"1 New Rd"_s, u"--set"_s, u"CITY=Elsewhere"_s},
                               kDeclined}, // its box is answered Abort
                           Row{{u"add"_s, u"1 New Rd"_s, u"--yes"_s}, kDeclined},
                           Row{{u"edit"_s, key, u"--set"_s, u"CITY=Elsewhere"_s}, kFailed}}) {
        const Timed run = Vasctl(QStringList{u"records"_s} + row.command);
        EXPECT_EQ(run.code, row.code) << run.Story();
        EXPECT_TRUE(run.Says(words)) << run.Story();
        ExpectWhole(row.command.join(u' '));
    }
    EXPECT_EQ(CityOf(key), city) << "a full disk is read all the same";
    EXPECT_EQ(Names(home.Native(u"DATABOOK"_s)), names) << "no working file stays";
    disk.MakeRoom();
    EXPECT_EQ(Vasctl({u"records"_s, u"edit"_s, key, u"--set"_s, u"CITY=Elsewhere"_s}).code, kDone);
    EXPECT_EQ(CityOf(key), u"Elsewhere"_s);
}

TEST_F(DiskFaults, AFullDiskUnderAConversionIsNamedByTheFileThatWasAskedFor)
{
    ASSERT_TRUE(QDir().mkpath(home.Native(u"SMALL"_s)));
    const SmallDisk disk(home.Native(u"SMALL"_s));
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    disk.Fill();
    const QStringList names = Names(home.Native(u"SMALL"_s));
    for (const QString& kind : {u"vasclip"_s, u"access"_s}) {
        const Timed run = Vasctl({u"convert"_s, u"C:\\DATABOOK\\DATABOOK.MDB"_s, u"C:\\SMALL\\MADE.MDB"_s, u"--to"_s, kind});
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(u"C:\\SMALL\\MADE.MDB "_s)) << run.Story();
        EXPECT_FALSE(run.Says(u".new"_s)) << run.Story();
        EXPECT_EQ(Names(home.Native(u"SMALL"_s)), names) << "no working file stays";
    }
}

TEST_F(DiskFaults, AFullDiskUnderAnArchiveIsNotSaidToHaveChangedNothing)
{
    QDir().mkpath(home.Native(u"SMALL"_s));
    const SmallDisk disk(home.Native(u"SMALL"_s));
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    const Timed cleared = Vasctl({u"maintain"_s, u"clear-photos"_s, u"--yes"_s}); // rows alone fill it
    ASSERT_EQ(cleared.code, kDone) << cleared.Story();
    const auto archive = [&](const QString& from, const QString& to) {
        return Vasctl({u"archive"_s, u"--from"_s, from, u"--to"_s, to, u"--file"_s, u"C:\\SMALL\\OLD.MDB"_s, u"--yes"_s});
    };
    ASSERT_EQ(archive(u"01/01/1901"_s, u"12/31/1901"_s).code, kDone) << "an empty one";
    constexpr qint64 kLeft = 48 * 1024; // for some records and what is at work beside them
    QFile large(home.Native(u"SMALL/large"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write(QByteArray(QStorageInfo(home.Native(u"SMALL"_s)).bytesAvailable() - kLeft, 'x'));
    large.close();
    const Timed archived = archive(u"01/01/1990"_s, u"12/31/2030"_s);
    EXPECT_EQ(archived.code, kFailed) << archived.Story();
    EXPECT_TRUE(archived.Says(u"is full. This step is stored in none of them; make room and try again"_s)) << archived.Story();
    EXPECT_TRUE(archived.out.contains("records were moved into C:\\SMALL\\OLD.MDB")) << archived.Story();
    EXPECT_FALSE(archived.Says(u"Nothing in that file was changed"_s)) << archived.Story();
}

TEST_F(DiskFaults, AFullDiskUnderTheSettingsKeepsTheOldOnes)
{
    const SmallDisk disk(home.Native(u"APPRAISE"_s));
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    disk.Fill();
    const Timed run = Vasctl({u"settings"_s, u"set"_s, u"SORTGRID"_s, u"4"_s});
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"SORTGRID could not be written to C:\\APPRAISE\\VAS2000.INI"_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"Make room"_s)) << run.Story();
    ExpectWhole(u"writing a setting on a full disk"_s);
    disk.MakeRoom();
    EXPECT_EQ(Vasctl({u"settings"_s, u"set"_s, u"SORTGRID"_s, u"4"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"settings"_s, u"get"_s, u"SORTGRID"_s}).Object()[u"value"_s].toString(), u"4"_s);
}

/// vasctl as a user who owns nothing here; as root through another user, who may not exist or not run it.
class NoRights : public FaultHome
{
protected:
    [[nodiscard]] Timed AsStranger(const QStringList& command) const
    {
        QStringList words{ProgramHome::Program(u"vasctl"_s), u"--home"_s, home.Path()};
        words += command;
        if (geteuid() == 0)
            words = QStringList{u"setpriv"_s, u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s} +
                    words;
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(words.takeFirst(), words);
        Timed run;
        if (process.waitForFinished(kPatienceMs))
            run.code = process.exitCode();
        run.out = process.readAllStandardOutput();
        run.err = process.readAllStandardError();
        return run;
    }
    bool Chmod(const QString& mode) { return RunTool(u"chmod"_s, {u"-R"_s, mode, home.Path()}); }
    void TearDown() override { Chmod(u"u+rwX"_s); }
};

TEST_F(NoRights, AHomeThatMayNotBeWrittenIsReadAndSaysWhatItRefuses)
{
    VASCLIP_NEEDS_UNIX("rights of files");
    if (AsStranger({u"--version"_s}).code != kDone)
        GTEST_SKIP() << "vasctl can't be run as another user here";
    ASSERT_TRUE(Chmod(u"a+rX,a-w"_s));
    const Timed listed = AsStranger({u"records"_s, u"list"_s});
    EXPECT_EQ(listed.code, kDone) << listed.Story();
    const Timed added = AsStranger({u"records"_s, u"add"_s, u"1 New Rd"_s});
    EXPECT_EQ(added.code, kFailed) << added.Story();
    EXPECT_TRUE(added.Says(u"C:\\DATABOOK\\DATABOOK.MDB is read-only"_s)) << added.Story();
    const Timed set = AsStranger({u"settings"_s, u"set"_s, u"SORTGRID"_s, u"4"_s});
    EXPECT_EQ(set.code, kFailed) << set.Story();
    EXPECT_TRUE(set.Says(u"SORTGRID could not be written to C:\\APPRAISE\\VAS2000.INI"_s)) << set.Story();
    const Timed doctor = AsStranger({u"doctor"_s});
    EXPECT_EQ(doctor.code, kFailed) << doctor.Story();
    EXPECT_TRUE(doctor.out.contains("can't be read and written by this user")) << doctor.Story();
    ExpectWhole(u"a stranger's visit"_s);
}

TEST_F(NoRights, AHomeThatMayNotBeReadIsNamed)
{
    VASCLIP_NEEDS_UNIX("rights of files");
    if (AsStranger({u"--version"_s}).code != kDone)
        GTEST_SKIP() << "vasctl can't be run as another user here";
    ASSERT_TRUE(RunTool(u"chmod"_s, {geteuid() == 0 ? u"700"_s : u"000"_s, home.Path()}));
    for (const QStringList& command : {QStringList{u"records"_s, u"list"_s}, QStringList{u"doctor"_s},
                                       QStringList{u"report"_s, u"status"_s}}) {
        const Timed run = AsStranger(command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(home.Path())) << run.Story();
        EXPECT_TRUE(run.Says(u"rights"_s)) << run.Story();
    }
    ASSERT_TRUE(RunTool(u"chmod"_s, {u"700"_s, home.Path()}));
    ExpectWhole(u"a stranger's knock"_s);
}

TEST_F(DiskFaults, AHomeThatIsNotThereIsNotMade)
{
    const QString nowhere = home.Path() + u"/no/such/home"_s;
    for (const QStringList& command : {QStringList{u"records"_s, u"list"_s}, QStringList{u"doctor"_s},
                                       QStringList{u"settings"_s, u"list"_s}}) {
        const Ended run = ProgramHome::RunProgram(u"vasctl"_s, QStringList{u"--home"_s, nowhere} + command,
                                                  home.environment);
        EXPECT_EQ(run.code, kFailed);
        EXPECT_TRUE(run.err.contains("There is no home " + nowhere.toUtf8())) << run.err.toStdString();
    }
    EXPECT_FALSE(QFileInfo::exists(home.Path() + u"/no"_s));
}

TEST_F(DiskFaults, WithoutItsSettingsFileADirectoryIsNoHome)
{
    ASSERT_TRUE(QFile::remove(Settings()));
    Remember();
    for (const QStringList& command : {QStringList{u"records"_s, u"list"_s},
                                       QStringList{u"settings"_s, u"set"_s, u"SORTGRID"_s, u"4"_s}}) {
        const Timed run = Vasctl(command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(u"C:\\APPRAISE\\VAS2000.INI is not there, so this is no home of the program"_s))
            << run.Story();
    }
    ExpectWhole(u"working without settings"_s);
}

} // namespace
} // namespace vasclip::tests
