// Pictures being filed, replaced and given back while the program is killed, the disk is full or read-only.

#include "faults/fault_home.h"
#include "faults/small_disk.h"

#include "platform/picture/picture.h"

#include <random>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A picture with much detail, so that decoding and writing it take their time.
QByteArray NoisyJpeg(int width, int height, quint32 seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    std::mt19937 random(seed);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] = qRgb(x % 256, y % 256, static_cast<int>(random() % 64));
    }
    return picture::ToJpeg(image, 92);
}

class PhotoFaults : public FaultHome
{
protected:
    static constexpr int kSources = 3;
    const QString key = u"1 KILL RD"_s;
    QList<QByteArray> sources;

    void SetUp() override
    {
        FaultHome::SetUp();
        for (int i = 0; i < kSources; ++i) {
            sources.append(NoisyJpeg(1200 + 300 * i, 900 + 200 * i, static_cast<quint32>(i)));
            ASSERT_TRUE(Write(SourceFile(i), sources[i]));
        }
    }
    [[nodiscard]] QString SourceFile(int i) const { return home.Native(u"VASSNAP/KILL%1.JPG"_s.arg(i)); }
    static QString Source(int i) { return u"C:\\VASSNAP\\KILL%1.JPG"_s.arg(i); }
    [[nodiscard]] QString Store() const { return home.Native(u"VASCLIPS/JPG"_s); }
    [[nodiscard]] Timed FileIt(int source, const QString& view) const
    {
        return Vasctl({u"--yes"_s, u"photos"_s, u"file"_s, key, view, Source(source)});
    }
    /// Stems of the record by view.
    [[nodiscard]] QMap<QString, QString> Photos() const
    {
        QMap<QString, QString> photos;
        for (const QJsonValue& value : home.Vasctl({u"photos"_s, u"list"_s, key}).Array())
            photos.insert(value.toObject()[u"VIEW"_s].toString(), value.toObject()[u"STEM"_s].toString());
        return photos;
    }
    static bool IsWhole(const QString& native)
    {
        try {
            return !picture::FromNativeFile(native, native, 64).isNull();
        } catch (const std::exception&) {
            return false;
        }
    }
    [[nodiscard]] QStringList StoredNames() const
    {
        return QDir(Store()).entryList(QDir::Files | QDir::Hidden);
    }
    void ExpectSourcesWhole() const
    {
        for (int i = 0; i < kSources; ++i)
            EXPECT_TRUE(Bytes(SourceFile(i)) == sources[i]) << "source " << i << " has changed";
    }
    /// No stored name holds half a picture.
    void ExpectNoHalfFiles() const
    {
        for (const QString& name : QDir(Store()).entryList({u"*.jpg"_s}, QDir::Files))
            EXPECT_TRUE(IsWhole(Store() + u'/' + name)) << name.toStdString() << " is half written";
    }
};

class PhotoKills : public PhotoFaults
{
protected:
    /// @return true if the program said before its end that it was done
    bool RunAndKill(const QStringList& command)
    {
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(ProgramHome::Program(u"vasctl"_s), QStringList{u"--home"_s, home.Path()} + command);
        const bool finished =
            process.waitForFinished(std::max(1, m_usualMs * static_cast<int>(10 + m_random() % 110) / 100));
        process.kill();
        process.waitForFinished();
        m_usualMs = std::clamp(finished ? m_usualMs * 9 / 10 : m_usualMs * 11 / 10 + 1, 20, 5000);
        const QByteArray said = process.readAllStandardOutput();
        const bool done = said.contains(" now, stored as ") || said.contains("was deleted;");
        ++(done ? m_done : m_killed);
        return done;
    }
    /// Shall it go on? Until a kill has come on each side.
    [[nodiscard]] bool More(int run, int usually) const { return MoreKills(run, usually, {m_done, m_killed}); }
    void ExpectBothSides() const
    {
        EXPECT_GT(m_done, 0) << "no run was let through";
        EXPECT_GT(m_killed, 0) << "no run was killed in time";
    }
    std::mt19937 m_random{20240517};
    int m_usualMs = 200;

private:
    int m_done = 0;
    int m_killed = 0;
};

TEST_F(PhotoKills, FilingAndReplacingLoseNothing)
{
    const Timed usual = FileIt(0, u"FRONT VIEW"_s);
    ASSERT_EQ(usual.code, kDone) << usual.Story();
    m_usualMs = static_cast<int>(usual.seconds * 1000) + 1;
    const QStringList views{u"FRONT VIEW"_s, u"REAR VIEW"_s, u"STREET SCENE"_s, u"POOL"_s};
    QMap<QString, QString> before = Photos();
    for (int run = 0; More(run, 24); ++run) {
        const QString view = views[run % views.size()];
        const bool done = RunAndKill({u"--yes"_s, u"photos"_s, u"file"_s, key, view, Source(run % kSources)});
        const QMap<QString, QString> after = Photos();
        for (auto photo = after.cbegin(); photo != after.cend(); ++photo)
            EXPECT_TRUE(IsWhole(Store() + u'/' + photo.value() + u".JPG"_s))
                << photo.key().toStdString() << " names a file that is not whole, run " << run;
        for (const QString& other : before.keys()) {
            if (other != view) {
                EXPECT_EQ(after.value(other), before.value(other)) << "run " << run;
            }
        }
        if (done) {
            EXPECT_NE(after.value(view), before.value(view)) << "was reported done in run " << run;
        }
        if (before.contains(view)) {
            EXPECT_TRUE(QFile::exists(Store() + u'/' + before.value(view) + u".JPG"_s))
                << "the earlier file stays, run " << run;
        }
        ExpectSourcesWhole();
        before = after;
        if (HasFailure())
            break;
    }
    ExpectNoHalfFiles();
    ExpectBothSides();
    EXPECT_EQ(FileIt(1, u"FRONT VIEW"_s).code, kDone) << "and the next one is taken";
    EXPECT_EQ(Vasctl({u"photos"_s, u"verify"_s}).code, kDone);
    EXPECT_EQ(Vasctl({u"doctor"_s}).code, kDone);
    for (const QString& name : StoredNames())
        EXPECT_TRUE(name.endsWith(u".jpg"_s, Qt::CaseInsensitive) || name.startsWith(u".vasclip-"_s))
            << name.toStdString() << " was left behind under a name that people see";
}

TEST_F(PhotoKills, APhotoThatIsDeletedIsStoredOrWaitsToBeFiledAgain)
{
    const int kills = std::max(6, Kills(24) / 4);
    for (int run = 0; run < kills; ++run) {
        const Timed filed = FileIt(0, u"FRONT VIEW"_s);
        ASSERT_EQ(filed.code, kDone) << filed.Story();
        const QString stem = Photos().value(u"FRONT VIEW"_s);
        const QByteArray picture = Bytes(Store() + u'/' + stem + u".JPG"_s);
        if (run == 0)
            m_usualMs = static_cast<int>(filed.seconds * 1000) + 1;
        const bool done = RunAndKill({u"--yes"_s, u"photos"_s, u"delete"_s, key, u"FRONT VIEW"_s});
        const bool named = Photos().contains(u"FRONT VIEW"_s);
        EXPECT_TRUE(!done || !named) << "was reported done in run " << run;
        const bool stored = Bytes(Store() + u'/' + stem + u".JPG"_s) == picture;
        const bool waits = Bytes(home.Native(u"VASSNAP/"_s + stem + u".JPG"_s)) == picture;
        EXPECT_TRUE(stored || waits) << "the picture is lost in run " << run;
        EXPECT_TRUE(stored || !named) << "the record names a picture that is not there, run " << run;
        if (!named) {
            EXPECT_TRUE(waits) << "in run " << run;
        }
        if (HasFailure())
            break;
    }
    ExpectNoHalfFiles();
    ExpectSourcesWhole();
}

TEST_F(PhotoFaults, AFullDiskUnderThePhotosChangesNothing)
{
    const QString small = home.Native(u"SMALL"_s);
    ASSERT_TRUE(QDir().mkpath(small));
    ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DIRECTORIES"_s, u"PHOTODIR"_s, u"C:\\SMALL\\"_s}).code, kDone);
    const SmallDisk disk(small);
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    ASSERT_EQ(FileIt(0, u"FRONT VIEW"_s).code, kDone);
    const QMap<QString, QString> before = Photos();
    disk.Fill();
    const QStringList names = QDir(small).entryList(QDir::Files | QDir::Hidden);
    for (const QString& view : {u"FRONT VIEW"_s, u"REAR VIEW"_s}) {
        const Timed run = FileIt(1, view);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(u"Disk full: \"C:\\SMALL\\"_s)) << run.Story();
        EXPECT_TRUE(run.Says(u"could not be written; nothing was changed"_s)) << run.Story();
        EXPECT_EQ(Photos(), before);
        EXPECT_EQ(QDir(small).entryList(QDir::Files | QDir::Hidden), names) << "nothing half written stays";
    }
    ExpectSourcesWhole();
    disk.MakeRoom();
    EXPECT_EQ(FileIt(1, u"REAR VIEW"_s).code, kDone);
}

TEST_F(PhotoFaults, AFullDiskUnderTheWorkingFileChangesNothing)
{
    const QString small = home.Native(u"SMALL"_s);
    ASSERT_TRUE(QDir().mkpath(small));
    ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DIRECTORIES"_s, u"USERDIR"_s, u"C:\\SMALL\\"_s}).code, kDone);
    const SmallDisk disk(small);
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    disk.Fill();
    const QStringList names = StoredNames();
    const Timed run = FileIt(0, u"FRONT VIEW"_s);
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"Disk full: \"C:\\SMALL\\respic.jpg\""_s)) << run.Story();
    EXPECT_EQ(StoredNames(), names);
    EXPECT_TRUE(Photos().isEmpty());
    ExpectSourcesWhole();
}

TEST_F(PhotoFaults, AReadOnlyDiskUnderThePhotosAsksAndKeepsTheSource)
{
    const QString small = home.Native(u"SMALL"_s);
    ASSERT_TRUE(QDir().mkpath(small));
    ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DIRECTORIES"_s, u"PHOTODIR"_s, u"C:\\SMALL\\"_s}).code, kDone);
    const SmallDisk disk(small);
    if (!disk.Mounted() || !disk.MakeReadOnly())
        GTEST_SKIP() << "a read-only disk can't be mounted here";
    const Timed run = Vasctl({u"--no"_s, u"photos"_s, u"file"_s, key, u"FRONT VIEW"_s, Source(0)});
    EXPECT_EQ(run.code, kDeclined) << run.Story();
    EXPECT_TRUE(run.Says(u"Picture Compression Incomplete"_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"Picture Compression Error: Retry? "_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"WITH COMPRESSION, Q=90, geaRes.LoadImage = C:\\VASSNAP\\KILL0.JPG, geaRes.SaveImage = "
                         "C:\\VAS2000\\respic.jpg, FileCopy C:\\VAS2000\\respic.jpg,C:\\SMALL\\"_s))
        << run.Story();
    EXPECT_TRUE(Photos().isEmpty());
    ExpectSourcesWhole();
}

TEST_F(PhotoFaults, AClosedPhotoDirectoryIsTold)
{
    if (!QFile::exists(u"/sys/kernel"_s))
        GTEST_SKIP() << "there is no directory here that takes no file from anybody";
    ASSERT_TRUE(Write(home.Path() + u"/drives.ini"_s, "[DRIVES]\r\nS=/sys/kernel\r\n"));
    ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DIRECTORIES"_s, u"PHOTODIR"_s, u"S:\\"_s}).code, kDone);
    const Timed run = FileIt(0, u"FRONT VIEW"_s);
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"Unable to Copy Photo"_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"Unable to Copy to the Photo DB Directory: "_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"Please check folder permissions and try again"_s)) << run.Story();
    EXPECT_TRUE(Photos().isEmpty());
    ExpectSourcesWhole();
}

TEST_F(PhotoFaults, AFullDiskUnderTheDatabookLeavesPicturesAndRecordsAsTheyWere)
{
    ASSERT_EQ(FileIt(0, u"FRONT VIEW"_s).code, kDone);
    const QMap<QString, QString> photos = Photos();
    const QString file = Store() + u'/' + photos.value(u"FRONT VIEW"_s) + u".JPG"_s;
    const QByteArray picture = Bytes(file);
    const QStringList stored = StoredNames();
    const QStringList waiting = QDir(home.Native(u"VASSNAP"_s)).entryList(QDir::Files);
    const SmallDisk disk(home.Native(u"DATABOOK"_s), 8192);
    if (!disk.Mounted())
        GTEST_SKIP() << "a small disk can't be mounted here";
    disk.Fill();
    for (const QStringList& command :
         {QStringList{u"delete"_s, key, u"FRONT VIEW"_s}, QStringList{u"file"_s, key, u"POOL"_s, Source(1)},
          QStringList{u"file"_s, key, u"FRONT VIEW"_s, Source(1)},
          QStringList{u"file"_s, u"2 NEW RD"_s, u"POOL"_s, Source(1)}}) {
        const Timed run = Vasctl(QStringList{u"--yes"_s, u"photos"_s} + command);
        EXPECT_NE(run.code, kDone) << run.Story();
        EXPECT_TRUE(run.Says(u"is full"_s)) << run.Story();
        EXPECT_EQ(Photos(), photos) << run.Story();
        EXPECT_TRUE(Bytes(file) == picture) << "under its record still\n" << run.Story();
        EXPECT_EQ(StoredNames(), stored) << run.Story();
        EXPECT_EQ(QDir(home.Native(u"VASSNAP"_s)).entryList(QDir::Files), waiting) << run.Story();
    }
    EXPECT_EQ(Vasctl({u"records"_s, u"show"_s, u"2 NEW RD"_s}).code, kNotFound);
    disk.MakeRoom();
    EXPECT_EQ(Vasctl({u"--yes"_s, u"photos"_s, u"delete"_s, key, u"FRONT VIEW"_s}).code, kDone);
    ExpectSourcesWhole();
}

TEST_F(PhotoFaults, TwoUsersFileToOneRecordAndBothPhotosStay)
{
    ASSERT_EQ(FileIt(2, u"FRONT VIEW"_s).code, kDone);
    constexpr int kRounds = 6;
    for (int round = 0; round < kRounds; ++round) {
        QProcess users[2];
        for (int user = 0; user < 2; ++user) {
            users[user].setProcessEnvironment(home.environment);
            users[user].start(ProgramHome::Program(u"vasctl"_s),
                              {u"--home"_s, home.Path(), u"--yes"_s, u"photos"_s, u"file"_s, key,
                               u"VIEW %1 %2"_s.arg(round).arg(user), Source(user)});
        }
        for (QProcess& user : users) {
            ASSERT_TRUE(user.waitForFinished(kPatienceMs));
            EXPECT_EQ(user.exitCode(), kDone) << user.readAllStandardError().toStdString();
        }
    }
    const QMap<QString, QString> photos = Photos();
    EXPECT_EQ(photos.size(), 1 + 2 * kRounds);
    // Both worked through the same working file, yet each view has its own picture.
    for (int round = 0; round < kRounds; ++round) {
        for (int user = 0; user < 2; ++user) {
            const QString stem = photos.value(u"VIEW %1 %2"_s.arg(round).arg(user));
            const QImage stored = picture::FromNativeFile(Store() + u'/' + stem + u".JPG"_s, stem);
            const QImage wanted = picture::WithinFromBytes(sources[user], u"source"_s, {800, 600});
            ASSERT_EQ(stored.size(), wanted.size());
            for (const QPoint at : {QPoint(100, 100), QPoint(700, 100), QPoint(400, 500)})
                EXPECT_NEAR(stored.pixelColor(at).green(), wanted.pixelColor(at).green(), 24)
                    << "round " << round << " user " << user;
        }
    }
}

} // namespace
} // namespace vasclip::tests
