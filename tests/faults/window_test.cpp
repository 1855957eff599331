// The desktop program itself: ended by the system, on a home that can't be written, before a Databook that is taken.

#include "faults/fault_home.h"
#include "faults/small_disk.h"
#include "support/unix.h"

#include <QRegularExpression>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class WindowFaults : public FaultHome
{
protected:
    void TearDown() override { ProgramHome::Stop(program); }
    /// @return false unless the main window stands
    bool Start(const QStringList& options = {})
    {
        const QString places = m_places.path() + u"/places"_s;
        QFile::remove(places);
        program.setProcessEnvironment(home.environment);
        program.start(ProgramHome::Program(u"vasclip"_s),
                      QStringList{u"--home"_s, home.Path(), u"--places"_s, places} + options);
        return program.waitForStarted() && WaitFor([&] { return QFileInfo::exists(places); }, 30000);
    }
    bool Ends()
    {
        return program.waitForFinished(20000) && program.exitStatus() == QProcess::NormalExit &&
               program.exitCode() == 0;
    }

    QProcess program;

private:
    QTemporaryDir m_places;
};

TEST_F(WindowFaults, TheSystemsWishToEndClosesInOrder)
{
    VASCLIP_NEEDS_UNIX("a signal that asks a program to end");
    for (const int wish : {SIGTERM, SIGINT, SIGHUP}) {
        ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"SORTGRID"_s, u"3"_s}).code, kDone);
        const QString layouts = home.Native(u"VAS2000/VAS2000.grx"_s);
        QFile::remove(layouts);
        ASSERT_TRUE(Write(home.Native(u"VAS2000/tempdat_1.mdb"_s), "x"));
        ASSERT_TRUE(Start()) << program.readAllStandardError().toStdString();
        ASSERT_EQ(kill(static_cast<pid_t>(program.processId()), wish), 0);
        EXPECT_TRUE(Ends()) << wish << program.readAllStandardError().toStdString();
        EXPECT_TRUE(Bytes(layouts).contains("Current (User)")) << wish;
        EXPECT_FALSE(QFile::exists(home.Native(u"VAS2000/tempdat_1.mdb"_s))) << wish;
        EXPECT_TRUE(Bytes(Settings()).contains("LASTCOPY=")) << wish;
        EXPECT_FALSE(QFile::exists(home.Native(u"DATABOOK/DATABOOK.LDB"_s))) << wish;
    }
}

TEST_F(WindowFaults, ALineOfTheLogHasOneTimeStamp)
{
    ASSERT_TRUE(Write(home.Native(u"VAS2000/VAS2000.grx"_s), "no layouts"));
    const QString log = home.Path() + u"/vasclip.log"_s;
    ASSERT_FALSE(QFileInfo::exists(log));
    program.setProcessEnvironment(home.environment);
    program.start(ProgramHome::Program(u"vasclip"_s), {u"--home"_s, home.Path()});
    ASSERT_TRUE(program.waitForStarted());
    ASSERT_TRUE(WaitFor([&] { return Bytes(log).contains('\n'); }, 30000));
    const QString line = QString::fromUtf8(Bytes(log)).section(u'\n', 0, 0);
    static const QRegularExpression stamp(u"\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d"_s);
    EXPECT_TRUE(stamp.match(line, 0, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption)
                    .hasMatch())
        << line.toStdString();
    EXPECT_EQ(line.count(stamp), 1) << line.toStdString();
    EXPECT_TRUE(line.contains(u"Error #"_s)) << line.toStdString();
}

/// A directory that nobody can write, not even the system's own user.
class ReadOnlyMount
{
public:
    explicit ReadOnlyMount(const QString& directory)
        : m_directory(directory)
    {
        m_mounted = RunTool(u"mount"_s, {u"--bind"_s, directory, directory}) &&
                    RunTool(u"mount"_s, {u"-o"_s, u"remount,ro,bind"_s, directory});
    }
    ~ReadOnlyMount() { RunTool(u"umount"_s, {m_directory}); }
    ReadOnlyMount(const ReadOnlyMount&) = delete;
    ReadOnlyMount& operator=(const ReadOnlyMount&) = delete;
    [[nodiscard]] bool Mounted() const { return m_mounted; }

private:
    QString m_directory;
    bool m_mounted = false;
};

TEST_F(WindowFaults, AHomeOnAReadOnlyMountIsOpenedForLooking)
{
    QFile::remove(home.Path() + u"/.vasclip.lock"_s);
    {
        const ReadOnlyMount mount(home.Path());
        if (!mount.Mounted())
            GTEST_SKIP() << "nothing can be mounted here";
        ASSERT_TRUE(Start()) << "another copy is none: " << program.readAllStandardError().toStdString();
        EXPECT_EQ(Vasctl({u"records"_s, u"list"_s}).code, kDone);
        ASSERT_EQ(kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
        EXPECT_TRUE(Ends()) << "no box at the end either";
    }
    ExpectWhole(u"a look at a read-only home"_s);
}

} // namespace
} // namespace vasclip::tests
