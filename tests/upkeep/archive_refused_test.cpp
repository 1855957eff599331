#include "support/unix.h"
#include "upkeep/archive_home.h"

#include <QDir>
#include <QFile>

namespace vasclip::upkeep {
namespace {

// Records that an archive refuses while it takes the others.

class ArchiveRefusal : public ArchiveHome
{};

TEST_F(ArchiveRefusal, ARecordWhosePictureCanNotBeReadStaysAndTheOthersGo)
{
    VASCLIP_NEEDS_UNIX("a file that its owner may not read");
    for (const QString& letter : {u"A"_s, u"B"_s, u"C"_s})
        Comp(u"1 %1 ST"_s.arg(letter), u"05/05/1995"_s, letter);
    const QString native = disk.ToNative(u"C:\\JPG\\B.jpg"_s);
    ASSERT_TRUE(QFile::remove(native) && QDir().mkdir(native));
    ASSERT_TRUE(QFile::setPermissions(disk.ToNative(u"C:\\JPG\\C.jpg"_s), {}));
    if (QFile(disk.ToNative(u"C:\\JPG\\C.jpg"_s)).open(QIODevice::ReadOnly))
        GTEST_SKIP() << "this user may read what nobody may";
    const Archived done = Run();
    EXPECT_FALSE(done.failure);
    EXPECT_EQ(There(), (QStringList{u"1 A ST"_s, u"1 B ST"_s})) << "a directory is no picture";
    EXPECT_EQ(done.missing.size(), 1);
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_TRUE(done.left[0].startsWith(u"1 C ST: "_s) && done.left[0].endsWith(u"; the record stays"_s))
        << done.left[0].toStdString();
}

/// As for a picture that can't be read, which a test of the system's own user meets nowhere.
TEST_F(ArchiveRefusal, ARecordWhosePictureTheArchiveCanNotTakeStaysAndTheOthersGo)
{
    for (const QString& letter : {u"A"_s, u"B"_s, u"C"_s})
        Comp(u"1 %1 ST"_s.arg(letter), u"05/05/1995"_s, letter);
    ASSERT_TRUE(QDir().mkpath(disk.ToNative(pictures + u"B.jpg"_s))); // a directory has its name
    const Archived done = Run();
    EXPECT_FALSE(done.failure);
    EXPECT_EQ(There(), (QStringList{u"1 A ST"_s, u"1 C ST"_s}));
    EXPECT_EQ(Here(), QStringList{u"1 B ST"_s});
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\B.jpg"_s), "front of 1 B ST");
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\BR.jpg"_s), "rear of 1 B ST");
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_TRUE(done.left[0].startsWith(u"1 B ST: "_s) && done.left[0].endsWith(u"; the record stays"_s))
        << done.left[0].toStdString();
}

TEST_F(ArchiveRefusal, ARecordThatTheArchiveHasNoRoomForStaysAndTheOthersGo)
{
    {
        const auto database = engine.OpenDatabase(archive);
        database->CreateTable({.name = u"SMALL"_s,
                               .fields = {{.name = key, .size = 35}, {.name = u"NOTES"_s, .size = 5}},
                               .indexes = {{key, {key}, true, true}}});
    }
    Comp(u"1 A ST"_s, u"05/05/1995"_s, {}, u"short"_s);
    Comp(u"2 B ST"_s, u"05/05/1995"_s, {}, u"too long for it"_s);
    Comp(u"3 C ST"_s, u"05/05/1995"_s);
    Bind(source);
    ArchiveWork work = Work();
    work.table = u"SMALL"_s;
    const Archived done = CopyArchiveData(work, [](qint64, qint64, const Archived&) { return true; });
    EXPECT_EQ(done.moved, 2);
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_TRUE(done.left[0].startsWith(u"2 B ST: A text is too long for the field 'NOTES'"_s)) << done.left[0].toStdString();
    EXPECT_EQ(Here(), QStringList{u"2 B ST"_s});
}

} // namespace
} // namespace vasclip::upkeep
