// Copying from a card with vasctl onto a disk that is full or takes nothing, and from a card that is pulled out.

#include "faults/fault_home.h"
#include "faults/small_disk.h"
#include "support/unix.h"

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class CardFaults : public FaultHome
{
protected:
    static constexpr int kPictures = 12;

    void SetUp() override
    {
        FaultHome::SetUp();
        ASSERT_TRUE(QDir().mkpath(Card()) && QDir().mkpath(Small()));
        for (int i = 0; i < kPictures; ++i)
            ASSERT_TRUE(Write(Card() + u'/' + Name(i), Content(i)));
        ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DIRECTORIES"_s, u"CAPTUREDIR"_s, u"C:\\SMALL\\"_s}).code, kDone);
    }
    [[nodiscard]] QString Card() const { return home.Native(u"CARD"_s); }
    [[nodiscard]] QString Small() const { return home.Native(u"SMALL"_s); }
    static QString Name(int i) { return u"DSC%1.JPG"_s.arg(i, 2, 10, QChar(u'0')); }
    [[nodiscard]] static QByteArray Content(int i, qsizetype length = 150'000)
    {
        return (QByteArray("picture ") + QByteArray::number(i) + '\n').repeated(length / 10).left(length);
    }
    /// As the system sees it, what nobody is shown included.
    [[nodiscard]] QStringList InSmall() const
    {
        return QDir(Small()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    void ExpectCardWhole(qsizetype length = 150'000) const
    {
        for (int i = 0; i < kPictures; ++i)
            EXPECT_TRUE(Bytes(Card() + u'/' + Name(i)) == Content(i, length)) << "the card changed";
    }
    [[nodiscard]] Timed Copy(const QStringList& options = {u"--yes"_s}) const
    {
        return Vasctl(options + QStringList{u"capture"_s, u"copy"_s, u"C:\\CARD"_s});
    }
};

TEST_F(CardFaults, ADiskWithTooLittleRoomTakesNothingAndTellsBefore)
{
    const SmallDisk disk(Small());
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    const Timed run = Copy();
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"Not Enough Room"_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"There is not enough room in C:\\SMALL\\: the photos need 2 MB, and "_s)) << run.Story();
    EXPECT_EQ(InSmall(), QStringList());
    ExpectCardWhole();
}

/// The room is there when it is looked for and gone when it is needed: a limit on the length of a file, which
/// answers as a full disk does.
TEST_F(CardFaults, ADiskThatFillsMeanwhileKeepsTheWholePicturesAndNoHalfOne)
{
    VASCLIP_NEEDS_UNIX("a limit on the length of a file");
    ASSERT_TRUE(Write(Card() + u'/' + Name(3), Content(3, 900'000)));
    QProcess process;
    process.setProcessEnvironment(home.environment);
    process.start(u"sh"_s,
                  {u"-c"_s, u"trap '' XFSZ; ulimit -f 1000; exec \"$@\""_s, u"sh"_s, ProgramHome::Program(u"vasctl"_s),
                   u"--home"_s, home.Path(), u"--no"_s, u"capture"_s, u"copy"_s, u"C:\\CARD"_s});
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished(kPatienceMs));
    const QByteArray said = process.readAllStandardError();
    EXPECT_EQ(process.exitCode(), kDeclined) << said.toStdString();
    EXPECT_TRUE(said.contains("The disk that holds C:\\SMALL\\DSC03.JPG is full") ||
                said.contains("Disk full: \"C:\\SMALL\\DSC03.JPG\""))
        << said.toStdString();
    EXPECT_TRUE(said.contains("Photos copied to C:\\SMALL\\: 3")) << said.toStdString();
    EXPECT_EQ(InSmall(), (QStringList{Name(0), Name(1), Name(2)})) << "nothing half written stays";
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(Bytes(Small() + u'/' + Name(i)) == Content(i));
    EXPECT_TRUE(Bytes(Card() + u'/' + Name(3)) == Content(3, 900'000));
    EXPECT_EQ(Copy().code, kDone) << "and with room it goes on";
    EXPECT_EQ(InSmall().size(), kPictures);
}

TEST_F(CardFaults, ACaptureDirectoryThatTakesNothingIsTold)
{
    const SmallDisk disk(Small());
    if (!disk.Mounted() || !disk.MakeReadOnly())
        GTEST_SKIP() << "a read-only disk can't be mounted here";
    for (int i = 4; i < kPictures; ++i)
        ASSERT_TRUE(QFile::remove(Card() + u'/' + Name(i))); // so that there is room
    const Timed run = Copy({u"--no"_s});
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"\"C:\\SMALL\\DSC00.JPG\" lies on a read-only disk"_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"Stopped. Photos copied to C:\\SMALL\\: 0, not copied: DSC00.JPG"_s)) << run.Story();
    EXPECT_EQ(InSmall(), QStringList());
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(Bytes(Card() + u'/' + Name(i)) == Content(i));
}

TEST_F(CardFaults, ACardThatIsPulledOutAsksAndLeavesWholePicturesAlone)
{
    constexpr qsizetype kLong = 6'000'000;
    for (int i = 0; i < kPictures; ++i)
        ASSERT_TRUE(Write(Card() + u'/' + Name(i), Content(i, kLong)));
    QProcess process;
    process.setProcessEnvironment(home.environment);
    process.start(ProgramHome::Program(u"vasctl"_s),
                  {u"--home"_s, home.Path(), u"capture"_s, u"copy"_s, u"C:\\CARD"_s});
    process.closeWriteChannel();
    ASSERT_TRUE(WaitFor([this, &process] {
        return QFile::exists(Small() + u'/' + Name(1)) || process.waitForFinished(0);
    }));
    const QString away = home.Path() + u"/pulled"_s;
    ASSERT_TRUE(QDir().rename(Card(), away));
    ASSERT_TRUE(process.waitForFinished(kPatienceMs));
    const QByteArray said = process.readAllStandardError();
    EXPECT_EQ(process.exitCode(), kDeclined) << said.toStdString();
    EXPECT_TRUE(said.contains("Media is not ready/readable. Try again?")) << said.toStdString();
    const QStringList copied = InSmall();
    EXPECT_TRUE(said.contains("Stopped. Photos copied to C:\\SMALL\\: " + QByteArray::number(copied.size())))
        << said.toStdString();
    EXPECT_GE(copied.size(), 2);
    EXPECT_LT(copied.size(), kPictures) << "the card went too late";
    for (int i = 0; i < kPictures; ++i) {
        EXPECT_TRUE(Bytes(away + u'/' + Name(i)) == Content(i, kLong)) << "the card changed";
        EXPECT_TRUE(!copied.contains(Name(i)) || Bytes(Small() + u'/' + Name(i)) == Content(i, kLong)) << i;
    }
    ASSERT_TRUE(QDir().rename(away, Card()));
    EXPECT_EQ(Copy().code, kDone) << "back in, the rest comes";
    EXPECT_EQ(InSmall().size(), kPictures);
    ExpectCardWhole(kLong);
}

} // namespace
} // namespace vasclip::tests
