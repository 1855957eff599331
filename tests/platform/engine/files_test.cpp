#include "platform/engine/home.h"
#include "platform/files/native.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kFile = u"C:\\DATABOOK.MDB"_s;

struct FilesTest : testing::Test
{
    void Write(const QString& name, const QByteArray& content) const
    {
        QFile file(home.Native(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    [[nodiscard]] QByteArray Read(const QString& name) const
    {
        QFile file(home.Native(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] static QByteArray Made()
    {
        static const QByteArray content = Make();
        return content;
    }
    [[nodiscard]] static QByteArray Make()
    {
        Home other;
        QList<Comp> comps;
        for (int i = 0; i < 200; ++i)
            comps.append(
                {u"KEY %1"_s.arg(i), u"Salem"_s, QString::number(i * 1000), u"1/1/2004"_s, u"900"_s});
        MakeComps(other.engine, kFile, comps);
        QFile file(other.Native(u"DATABOOK.MDB"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    int Open(const QString& path, QString* text = nullptr)
    {
        return ErrorOf([&] { static_cast<void>(home.engine.OpenDatabase(path)); }, text);
    }

    Home home;
};

QByteArray Foreign()
{
    QByteArray header("SQLite format 3\0", 16);
    header.resize(4096, '\0');
    header[16] = 16;
    return header;
}

TEST_F(FilesTest, WhatIsNoDatabaseIsNamed)
{
    QByteArray jet4(4096, '\0');
    jet4.replace(0, 4, QByteArray("\0\1\0\0", 4)).replace(4, 15, "Standard Jet DB").replace(20, 1, "\1");
    QByteArray jet3 = jet4;
    jet3[20] = 0;
    const struct
    {
        const char* what;
        QByteArray content;
        int number;
        QString says;
    } rows[] = {
        {"empty", "", error::kUnrecognisedDatabase, u"is empty"_s},
        {"text", "Dear Bob,\r\nhere are the comps.\r\n", error::kUnrecognisedDatabase, u"is a text file"_s},
        {"jet 4, no more than its first page", jet4, error::kCorruptDatabase, u"Access database"_s},
        {"jet 3, broken off in its first page", jet3.left(1000), error::kCorruptDatabase, u"breaks off"_s},
        {"picture", QByteArray("\xFF\xD8\xFF\xE0\0\x10JFIF", 10), error::kUnrecognisedDatabase,
         u"not a database"_s},
        {"other program's", Foreign(), error::kUnrecognisedDatabase, u"another program"_s},
        {"broken off header", QByteArray("SQLite format 3\0more", 20), error::kCorruptDatabase,
         u"breaks off"_s},
        {"half a file", Made().left(9000), error::kCorruptDatabase, u"damaged"_s},
        {"garbage behind the header", Made().left(100) + QByteArray(40000, '\x55'), error::kCorruptDatabase,
         u"damaged"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Write(u"X.MDB"_s, row.content);
        QString text;
        EXPECT_EQ(Open(u"C:\\X.MDB"_s, &text), row.number) << text.toStdString();
        EXPECT_TRUE(text.contains(row.says)) << text.toStdString();
        EXPECT_TRUE(text.contains(u"C:\\X.MDB"_s)) << text.toStdString();
        EXPECT_FALSE(text.endsWith(u'.'));
        EXPECT_EQ(Read(u"X.MDB"_s), row.content) << "the file must stay as it is";
        EXPECT_FALSE(QFile::exists(home.Native(u"X.LDB"_s)));
    }
}

TEST_F(FilesTest, MissingFilesAndDirectories)
{
    QString text;
    EXPECT_EQ(Open(u"C:\\NONE.MDB"_s, &text), error::kDatabaseNotFound);
    EXPECT_TRUE(text.contains(u"C:\\NONE.MDB"_s));
    EXPECT_EQ(Open(u"C:\\NODIR\\NONE.MDB"_s), error::kDatabaseNotFound);
    home.disk.MkDir(u"C:\\DIR.MDB"_s);
    EXPECT_EQ(Open(u"C:\\DIR.MDB"_s), error::kUnrecognisedDatabase);
    EXPECT_NE(Open(u"Q:\\X.MDB"_s), 0);
    EXPECT_NE(Open(u"C:\\..\\..\\X.MDB"_s), 0);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(home.engine.CreateDatabase(u"C:\\NODIR\\X.MDB"_s)); }),
              error::kPathNotFound);
}

TEST_F(FilesTest, CreateDoesNotReplace)
{
    MakeComps(home.engine, kFile, {{u"A1"_s, {}, {}, {}, {}}});
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(home.engine.CreateDatabase(u"c:\\databook.mdb"_s)); }),
              error::kDatabaseExists);
    EXPECT_EQ(home.disk.Dir(u"C:\\*.*"_s), QStringList{u"DATABOOK.MDB"_s});
}

TEST_F(FilesTest, AReadOnlyFileOpensForReading)
{
    MakeComps(home.engine, kFile, {{u"A1"_s, u"Salem"_s, {}, {}, {}}});
    home.disk.SetAttr(kFile, files::ReadOnly);
    const auto database = home.engine.OpenDatabase(kFile);
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_EQ(table->Value(u"CITY"_s), u"Salem"_s);
    EXPECT_FALSE(table->Updatable());
    EXPECT_EQ(ErrorOf([&] { table->Edit(); }), error::kFileIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { table->AddNew(); }), error::kFileIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { table->Delete(); }), error::kFileIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"DELETE FROM COMPS"_s); }), error::kFileIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { database->CreateTable(SmallComps()); }), error::kFileIsReadOnly);
}

TEST_F(FilesTest, OpenedForReadingOnly)
{
    MakeComps(home.engine, kFile, {{u"A1"_s, u"Salem"_s, {}, {}, {}}});
    const auto database = home.engine.OpenDatabase(kFile, OpenMode::ReadOnly);
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_FALSE(table->Updatable());
    EXPECT_EQ(ErrorOf([&] { table->Edit(); }), error::kFileIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"DELETE FROM COMPS"_s); }), error::kFileIsReadOnly);
    // Another user of the same engine may write.
    EXPECT_EQ(home.engine.OpenDatabase(kFile)->Execute(u"DELETE FROM COMPS"_s), 1);
}

TEST_F(FilesTest, CopiesAFileThatIsInUse)
{
    const auto database = MakeComps(home.engine, kFile, {{u"A1"_s, u"Salem"_s, {}, {}, {}}});
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    table->Edit();
    home.engine.CopyDatabase(kFile, u"C:\\COPY.MDB"_s);
    const auto copy = home.engine.OpenDatabase(u"C:\\COPY.MDB"_s);
    EXPECT_EQ(copy->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->Value(u"CITY"_s), u"Salem"_s);
    EXPECT_EQ(copy->Table(u"COMPS"_s).indexes.size(), 1);
    EXPECT_EQ(ErrorOf([&] { home.engine.CopyDatabase(kFile, u"C:\\copy.mdb"_s); }), error::kInUseByOthers);
    copy->Close();
    home.engine.CopyDatabase(kFile, u"C:\\copy.mdb"_s);
    EXPECT_EQ(ErrorOf([&] { home.engine.CopyDatabase(kFile, kFile); }), error::kFileAlreadyOpen);
    EXPECT_EQ(ErrorOf([&] { home.engine.CopyDatabase(u"C:\\NONE.MDB"_s, u"C:\\X.MDB"_s); }),
              error::kDatabaseNotFound);
    EXPECT_FALSE(home.disk.Found(u"C:\\X.MDB"_s));
}

TEST_F(FilesTest, TypesGoThereAndBack)
{
    const auto database = home.engine.CreateDatabase(kFile);
    TableDef def;
    def.name = u"TYPES"_s;
    Field required = TextField(u"NAME"_s, 5);
    required.required = true;
    required.allowZeroLength = false;
    def.fields = {required,
                  TypedField(u"YES"_s, FieldType::Boolean),
                  TypedField(u"TINY"_s, FieldType::Byte),
                  TypedField(u"SMALL"_s, FieldType::Integer),
                  TypedField(u"LARGE"_s, FieldType::Long),
                  TypedField(u"PRICE"_s, FieldType::Currency),
                  TypedField(u"DAY"_s, FieldType::Date)};
    database->CreateTable(def);
    const auto table = database->OpenRecordset(u"TYPES"_s, RecordsetType::Table);
    table->AddNew();
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kValueRequired);
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"NAME"_s, u""_s); }), error::kZeroLength);
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"LARGE"_s, u"many"_s); }), error::kConversion);
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"TINY"_s, 256); }), error::kOverflow);
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"DAY"_s, u"someday"_s); }), error::kConversion);
    const QDateTime noon(QDate(2004, 3, 7), QTime(12, 30, 15));
    table->SetValue(u"NAME"_s, 12.5);
    table->SetValue(u"YES"_s, true);
    table->SetValue(u"TINY"_s, u"255"_s);
    table->SetValue(u"SMALL"_s, 2.5);
    table->SetValue(u"LARGE"_s, -5);
    table->SetValue(u"PRICE"_s, 99.75);
    table->SetValue(u"DAY"_s, noon);
    table->Update();
    table->MoveFirst();
    EXPECT_EQ(table->Value(u"NAME"_s), u"12.5"_s);
    EXPECT_EQ(table->Value(u"YES"_s), true);
    EXPECT_EQ(table->Value(u"TINY"_s).toInt(), 255);
    EXPECT_EQ(table->Value(u"SMALL"_s).toInt(), 2);
    EXPECT_EQ(table->Value(u"LARGE"_s).toInt(), -5);
    EXPECT_EQ(table->Value(u"PRICE"_s).toDouble(), 99.75);
    EXPECT_EQ(table->Value(u"DAY"_s).toDateTime(), noon);
    const auto rows =
        database->OpenRecordset(u"SELECT * FROM TYPES WHERE DAY > #3/7/2004# AND YES = TRUE AND LARGE = -5"_s,
                                RecordsetType::Dynaset);
    EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_F(FilesTest, SchemaErrors)
{
    const auto database = home.engine.CreateDatabase(kFile);
    database->CreateTable(SmallComps());
    EXPECT_EQ(ErrorOf([&] { database->CreateTable(SmallComps()); }), error::kTableExists);
    TableDef twice = SmallComps();
    twice.name = u"OTHER"_s;
    twice.fields.append(TextField(u"city"_s, 5));
    EXPECT_EQ(ErrorOf([&] { database->CreateTable(twice); }), error::kFieldDefinedTwice);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(database->Table(u"NONE"_s)); }), error::kTableUnknown);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(database->OpenRecordset(u"NONE"_s, RecordsetType::Table)); }),
              error::kTableUnknown);
    EXPECT_EQ(ErrorOf([&] {
                  database->AppendIndex(u"COMPS"_s, {u"CENTRALKEY"_s, {u"CITY"_s}, false, false});
              }),
              error::kIndexExists);
    EXPECT_EQ(ErrorOf([&] {
                  database->AppendIndex(u"COMPS"_s, {u"New"_s, {u"NONE"_s}, false, false});
              }),
              error::kFieldUnknown);
    database->AppendIndex(u"COMPS"_s, {u"Places"_s, {u"city"_s, u"GLA"_s}, false, false});
    EXPECT_EQ(database->Table(u"COMPS"_s).indexes[1].fields, QStringList({u"CITY"_s, u"GLA"_s}));
}

TEST_F(FilesTest, AnIndexWithNullsAndEqualsIsWalkedBothWays)
{
    const auto database = MakeComps(home.engine, kFile,
                                    {{u"1"_s, u"b"_s, {}, {}, u"2"_s},
                                     {u"2"_s, {}, {}, {}, u"9"_s},
                                     {u"3"_s, u"B "_s, {}, {}, {}},
                                     {u"4"_s, u"a"_s, {}, {}, {}},
                                     {u"5"_s, {}, {}, {}, {}},
                                     {u"6"_s, u"c"_s, {}, {}, u"1"_s},
                                     {u"7"_s, u"B"_s, {}, {}, u"2"_s},
                                     {u"8"_s, u"b"_s, {}, {}, u"1"_s}});
    database->AppendIndex(u"COMPS"_s, {u"Places"_s, {u"CITY"_s, u"GLA"_s}, false, false});
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    table->SetIndex(u"places"_s);
    const QStringList order{u"5"_s, u"2"_s, u"4"_s, u"3"_s, u"8"_s, u"1"_s, u"7"_s, u"6"_s};
    EXPECT_EQ(Column(*table, u"CENTRALKEY"_s), order);
    QStringList back;
    for (table->MoveLast(); !table->Bof(); table->MovePrevious()) {
        back.prepend(table->Value(0).toString());
        EXPECT_EQ(table->AbsolutePosition(), order.size() - back.size());
    }
    EXPECT_EQ(back, order);
    table->Seek(u"="_s, u"B"_s);
    EXPECT_EQ(table->Value(0), u"3"_s);
}

TEST_F(FilesTest, DamageNeverCrashes)
{
    const QByteArray whole = Made();
    QRandomGenerator random(20040307);
    int refused = 0;
    for (int round = 0; round < 120; ++round) {
        QByteArray damaged = whole;
        if (round % 3 == 0)
            damaged.truncate(random.bounded(static_cast<int>(whole.size())));
        const int flips = random.bounded(1, 40);
        for (int i = 0; i < flips && !damaged.isEmpty(); ++i)
            damaged[random.bounded(static_cast<int>(damaged.size()))] =
                static_cast<char>(random.bounded(256));
        Write(u"X.MDB"_s, damaged);
        const int number = ErrorOf([&] {
            const auto database = home.engine.OpenDatabase(u"C:\\X.MDB"_s);
            const auto rows =
                database->OpenRecordset(u"SELECT * FROM COMPS ORDER BY SELLINGPR"_s, RecordsetType::Dynaset);
            for (; !rows->Eof(); rows->MoveNext()) {
                for (int field = 0; field < rows->Fields().size(); ++field)
                    static_cast<void>(rows->Value(field));
            }
            const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
            table->SetIndex(u"Centralkey"_s);
            table->Seek(u"="_s, u"KEY 77"_s);
            if (!table->NoMatch()) {
                table->Edit();
                table->SetValue(u"CITY"_s, u"Bend"_s);
                table->Update();
            }
        });
        refused += number != 0 ? 1 : 0;
        const QList<int> known{0,
                               error::kCorruptDatabase,
                               error::kUnrecognisedDatabase,
                               error::kTableUnknown,
                               error::kNoSuchIndex,
                               error::kRecordDeleted,
                               error::kInternalEngine,
                               error::kDuplicateKey,
                               error::kFieldUnknown,
                               error::kFileIsReadOnly,
                               error::kFieldTooLong,
                               error::kParameterUnknown};
        EXPECT_TRUE(known.contains(number)) << number;
    }
    EXPECT_GT(refused, 40);
}

TEST_F(FilesTest, LeftSuperJournalsAreSweptWhenNothingNeedsThem)
{
    MakeComps(home.engine, kFile, {});
    const QByteArray gone = home.Native(u"EXPORT.MDB-journal"_s).toUtf8() + '\0';
    const QByteArray there = home.Native(u"OTHER.MDB-journal"_s).toUtf8() + '\0';
    const QByteArray whole = files::native::SystemPath(home.Native(u"OTHER.MDB-journal"_s)).toUtf8() + '\0';
    Write(u"OTHER.MDB-journal"_s, "x");
    const struct
    {
        QString name;
        QByteArray content;
        bool old;
        bool stays;
    } rows[] = {{u"DATABOOK.MDB-mj111111901"_s, gone, true, false},
                {u"DATABOOK.MDB-mj222222902"_s, gone, false, true},
                {u"DATABOOK.MDB-mj333333903"_s, gone + there, true, true},
                {u"DATABOOK.MDB-mj555555905"_s, whole, true, true}, // as the engine is given its files
                {u"OTHER.MDB-mj444444904"_s, gone, true, true}};
    for (const auto& row : rows) {
        Write(row.name, row.content);
        QFile file(home.Native(row.name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QDateTime time = home.time.now.addDays(row.old ? -1 : 0);
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    static_cast<void>(home.engine.OpenDatabase(kFile));
    for (const auto& row : rows)
        EXPECT_EQ(QFile::exists(home.Native(row.name)), row.stays) << row.name.toStdString();
}

TEST_F(FilesTest, AFullDiskChangesNothing)
{
    // A file system of half a megabyte, where the system lets us make one.
    const QString mount = home.Native(u"SMALL"_s);
    QDir().mkpath(mount);
    if (QProcess::execute(u"mount"_s, {u"-t"_s, u"tmpfs"_s, u"-o"_s, u"size=512k"_s, u"tmpfs"_s, mount}) != 0)
        GTEST_SKIP() << "no right to mount a small file system";
    struct Unmount
    {
        ~Unmount() { QProcess::execute(u"umount"_s, {path}); }
        QString path;
    } const unmount{mount};
    const QString file = u"C:\\SMALL\\DATABOOK.MDB"_s;
    {
        const auto database = MakeComps(home.engine, file, {{u"A1"_s, u"Salem"_s, {}, {}, {}}});
        const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        table->Edit();
        table->SetValue(u"FRONTPHOTO"_s, QByteArray(700'000, 'x'));
        EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDiskFull);
        EXPECT_EQ(table->CurrentEditMode(), EditMode::InProgress);
        table->CancelUpdate();
        EXPECT_EQ(table->FieldSize(u"FRONTPHOTO"_s), 0);
        {
            // Of what belongs together, all or nothing: the disk is found full only when it is committed.
            Transaction transaction(*database);
            table->Edit();
            table->SetValue(u"CITY"_s, u"Bend"_s);
            table->Update();
            table->Edit();
            table->SetValue(u"FRONTPHOTO"_s, QByteArray(700'000, 'x'));
            table->Update();
            EXPECT_EQ(ErrorOf([&] { transaction.Commit(); }), error::kDiskFull);
        }
        table->MoveFirst();
        EXPECT_EQ(table->Value(u"CITY"_s), u"Salem"_s);
        MakeComps(home.engine, u"C:\\LARGE.MDB"_s, {{u"A1"_s, {}, {}, {}, {}}})
            ->Execute(u"UPDATE COMPS SET PHOTOS = '"_s + QString(600'000, u'x') + u"'"_s);
        EXPECT_EQ(ErrorOf([&] { home.engine.CopyDatabase(u"C:\\LARGE.MDB"_s, u"C:\\SMALL\\X.MDB"_s); }),
                  error::kDiskFull);
        EXPECT_EQ(home.disk.Dir(u"C:\\SMALL\\X*"_s), QStringList());
    }
    const auto again = home.engine.OpenDatabase(file);
    EXPECT_EQ(again->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->Value(u"CITY"_s), u"Salem"_s);
}

} // namespace
} // namespace vasclip::engine
