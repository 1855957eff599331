// Pictures of any size go into a file and out of one in pieces: what is held of them does not follow their size.

#include "platform/engine/convert.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/jet_samples.h"
#include "platform/engine/made_long.h"

#include <QProcess>

#include <sqlite3.h>

namespace vasclip::engine {
namespace {

const QString kBook = u"C:\\BOOK.MDB"_s;
const QString kAccess = u"C:\\ACCESS.MDB"_s;
const QString kBack = u"C:\\BACK.MDB"_s;
constexpr qint64 kLarge = 24 << 20;

/// The most that SQLite holds at once while `work` runs, beyond what it held before.
template <class Work>
qint64 HeldBySqlite(Work&& work)
{
    sqlite3_int64 before = 0;
    sqlite3_int64 now = 0;
    sqlite3_int64 most = 0;
    sqlite3_status64(SQLITE_STATUS_MEMORY_USED, &before, &most, 1);
    work();
    sqlite3_status64(SQLITE_STATUS_MEMORY_USED, &now, &most, 0);
    return most - before;
}

struct LongSourceTest : testing::Test
{
    /// A table whose picture is not the last of its fields.
    static TableDef Comps()
    {
        TableDef table = SmallComps();
        table.fields.append(TextField(u"ANCHORED"_s, 10));
        return table;
    }
    void Put(Database& database, MadeLong& picture, const QString& key = u"1 OAK ST"_s)
    {
        const auto rows = database.OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(u"CENTRALKEY"_s, key);
        rows->SetValue(u"ANCHORED"_s, u"behind it"_s);
        rows->SetValue(u"FRONTPHOTO"_s, picture.Value());
        rows->Update();
    }
    void ExpectPicture(const QString& file, qint64 size)
    {
        const auto rows = home.engine.OpenDatabase(file)->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        EXPECT_EQ(rows->Value(u"ANCHORED"_s), u"behind it"_s);
        ASSERT_EQ(rows->FieldSize(u"FRONTPHOTO"_s), size);
        for (qint64 at = 0; at < size; at += 1 << 20)
            ASSERT_TRUE(rows->GetChunk(u"FRONTPHOTO"_s, at, 1 << 20) ==
                        MadeLong::Bytes(at, std::min<qint64>(1 << 20, size - at)))
                << at;
    }
    QStringList Files() const { return QDir(home.directory.path() + u"/drive_c"_s).entryList(QDir::Files); }

    Home home;
};

TEST_F(LongSourceTest, IsAskedInItsOrderAndInSmallPieces)
{
    const auto database = home.engine.CreateDatabase(kBook);
    database->CreateTable(Comps());
    MadeLong picture(kLarge);
    qint64 expected = 0;
    picture.asked = [&](qint64 offset) {
        EXPECT_EQ(offset, expected);
        expected += kLongPiece;
    };
    Put(*database, picture);
    EXPECT_EQ(picture.most, kLongPiece);
    EXPECT_EQ(picture.pieces, kLarge / kLongPiece);
    ExpectPicture(kBook, kLarge);
}

TEST_F(LongSourceTest, SqliteHoldsNoMoreOfALargeOneThanOfASmallOne)
{
    constexpr qint64 kMost = 4 << 20; // its cache of pages is 2 MB
    const auto database = home.engine.CreateDatabase(kBook);
    database->CreateTable(Comps());
    MadeLong picture(kLarge);
    EXPECT_LT(HeldBySqlite([&] { Put(*database, picture); }), kMost) << "a new record";
    const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_LT(HeldBySqlite([&] {
                  rows->Edit();
                  rows->SetValue(u"FRONTPHOTO"_s, picture.Value());
                  rows->SetValue(u"PHOTOS"_s, u"FRONT VIEW|1"_s);
                  rows->Update();
              }),
              kMost)
        << "in the place of another one";
    EXPECT_LT(HeldBySqlite([&] { ExpectPicture(kBook, kLarge); }), kMost) << "read";
    EXPECT_LT(HeldBySqlite([&] { rows->Delete(); }), kMost);
}

TEST_F(LongSourceTest, GoesFromKindToKindInPieces)
{
    {
        const auto database = home.engine.CreateDatabase(kBook);
        database->CreateTable(Comps());
        MadeLong picture(kLarge);
        Put(*database, picture);
    }
    constexpr qint64 kMost = 4 << 20;
    EXPECT_LT(HeldBySqlite([&] {
                  ASSERT_TRUE(ConvertDatabase(home.engine,
                                              {.source = kBook, .target = kAccess, .to = DatabaseKind::Access}));
                  ASSERT_TRUE(ConvertDatabase(home.engine, {.source = kAccess, .target = kBack}));
                  home.engine.OpenDatabase(kBack)->Execute(
                      u"SELECT * INTO COPY FROM [%1].COMPS"_s.arg(kAccess));
              }),
              kMost);
    ExpectPicture(kAccess, kLarge);
    ExpectPicture(kBack, kLarge);
    EXPECT_EQ(CheckDatabase(*home.engine.OpenDatabase(kAccess), CheckDepth::Whole), QStringList());
    const auto copied = home.engine.OpenDatabase(kBack)->OpenRecordset(u"COPY"_s, RecordsetType::Table);
    EXPECT_EQ(copied->FieldSize(u"FRONTPHOTO"_s), kLarge);
    EXPECT_TRUE(copied->GetChunk(u"FRONTPHOTO"_s, kLarge - 100, 200) == MadeLong::Bytes(kLarge - 100, 100));
}

TEST_F(LongSourceTest, AGenuineFileTakesNothingOfOneThatFails)
{
    {
        GenuineFile file(home.engine, kAccess);
        file.Content().CreateTable(Comps());
        MadeLong cut(kLarge);
        cut.endsAt = kLarge / 2;
        EXPECT_EQ(ErrorOf([&] { Put(file.Content(), cut, u"0 HALF"_s); }), error::kDeviceIo);
        MadeLong picture(5 << 20);
        Put(file.Content(), picture);
        EXPECT_LE(picture.most, kLongPiece);
        EXPECT_EQ(file.Finish(), QStringList());
    }
    const auto database = home.engine.OpenDatabase(kAccess);
    EXPECT_EQ(CheckDatabase(*database, CheckDepth::Whole), QStringList());
    EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 1);
    ExpectPicture(kAccess, 5 << 20);
}

TEST_F(LongSourceTest, OfWhichAGenuineFileLacksAPartIsNone)
{
    {
        GenuineFile file(home.engine, kAccess);
        file.Content().CreateTable(Comps());
        MadeLong picture(5 << 20);
        Put(file.Content(), picture);
        file.Finish();
    }
    QByteArray bytes = BytesOf(home.Native(u"ACCESS.MDB"_s));
    const qsizetype middle = bytes.indexOf(MadeLong::Bytes(3 << 20, 64));
    ASSERT_GT(middle, 0);
    bytes[middle / 4096 * 4096] = 7; // its page holds no rows any more
    QFile file(home.Native(u"ACCESS.MDB"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    {
        const auto rows = home.engine.OpenDatabase(kAccess)->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        EXPECT_EQ(rows->GetChunk(u"FRONTPHOTO"_s, 0, 3), QByteArray()) << "not a part of it either";
    }
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(ConvertDatabase(home.engine, {.source = kAccess, .target = kBack})); }),
              error::kCorruptDatabase);
    QStringList missing;
    Conversion all{.source = kAccess, .target = kBack};
    all.accept = [&](const QStringList& lines) {
        missing = lines;
        return true;
    };
    ASSERT_TRUE(ConvertDatabase(home.engine, all));
    EXPECT_TRUE(missing.join(u'\n').contains(u"FRONTPHOTO"_s)) << missing.join(u'\n').toStdString();
    const auto rows = home.engine.OpenDatabase(kBack)->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_FALSE(rows->Value(u"FRONTPHOTO"_s).isValid());
    EXPECT_EQ(rows->Value(u"ANCHORED"_s), u"behind it"_s);
}

TEST_F(LongSourceTest, ADiskThatFillsWhileItIsStoredChangesNothing)
{
    const QString mount = home.Native(u"SMALL"_s);
    QDir().mkpath(mount);
    if (QProcess::execute(u"mount"_s, {u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=12m"_s, u"tmpfs"_s, mount}) != 0)
        GTEST_SKIP() << "no right to mount a small file system";
    struct Unmount
    {
        ~Unmount() { QProcess::execute(u"umount"_s, {path}); }
        QString path;
    } const unmount{mount};
    const QString small = u"C:\\SMALL\\BOOK.MDB"_s;
    {
        const auto database = home.engine.CreateDatabase(small);
        database->CreateTable(Comps());
        MadeLong first(2 << 20);
        Put(*database, first);
        MadeLong large(kLarge);
        EXPECT_EQ(ErrorOf([&] { Put(*database, large, u"2 OAK ST"_s); }), error::kDiskFull);
        const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        EXPECT_EQ(rows->RecordCount(), 1);
        {
            Transaction together(*database);
            rows->Edit();
            rows->SetValue(u"CITY"_s, u"Bend"_s);
            rows->Update();
            rows->Edit();
            rows->SetValue(u"FRONTPHOTO"_s, large.Value());
            EXPECT_EQ(ErrorOf([&] { rows->Update(); }), error::kDiskFull);
            rows->CancelUpdate();
            const int end = ErrorOf([&] { together.Commit(); });
            EXPECT_TRUE(end == 0 || end == error::kDeviceIo) << "the whole of it is taken back, or all but the picture is stored";
        }
        rows->MoveFirst();
        EXPECT_EQ(rows->FieldSize(u"FRONTPHOTO"_s), 2 << 20);
        rows->Edit();
        rows->SetValue(u"CITY"_s, u"Salem"_s);
        rows->Update();
        MadeLong other((2 << 20) + 1);
        Put(*database, other, u"3 OAK ST"_s);
        EXPECT_EQ(rows->RecordCount(), 2) << "what fits is taken again";
    }
    ExpectPicture(small, 2 << 20);
}

} // namespace
} // namespace vasclip::engine
