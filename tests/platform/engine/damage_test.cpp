#include "platform/engine/health.h"
#include "platform/engine/home.h"
#include "support/exclusive_lock.h"
#include "support/standing_time.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSysInfo>

#include <sqlite3.h>

// A file whose pages are not what they were: found, never written again, and copied as far as it can be read.

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kFile = u"C:\\DATABOOK.MDB"_s;
const QString kCopy = u"C:\\COPY.MDB"_s;
constexpr qint64 kPage = 4096;

struct DamageTest : testing::Test
{
    void Make(int records)
    {
        QList<Comp> comps;
        for (int i = 0; i < records; ++i)
            comps.append({u"%1 Oak St"_s.arg(i, 6, 10, QChar(u'0')), u"Salem"_s, u"250000"_s, u"01/02/2024"_s, u"1500"_s});
        MakeComps(home.engine, kFile, comps)->Close();
    }
    [[nodiscard]] QByteArray Bytes() const
    {
        QFile file(home.Native(u"DATABOOK.MDB"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void Put(qint64 at, const QByteArray& bytes) const
    {
        QFile file(home.Native(u"DATABOOK.MDB"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.seek(at));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    /// The page on which a text of the records (and not of an index) stands.
    [[nodiscard]] qint64 PageOf(const QByteArray& key) const
    {
        const QByteArray bytes = Bytes();
        const QByteArray row = key + "Salem"; // the city stands behind the key in a record alone
        const qsizetype at = bytes.indexOf(row);
        EXPECT_GT(at, 0);
        return at / kPage * kPage;
    }
    std::shared_ptr<Database> Open() { return home.engine.OpenDatabase(kFile); }

    Home home;
};

TEST_F(DamageTest, AWholeFileHasNone)
{
    for (const int records : {0, 3, 400, 9000}) {
        Make(records);
        const auto database = Open();
        for (const CheckDepth depth : {CheckDepth::Opening, CheckDepth::Quiet, CheckDepth::Whole})
            EXPECT_EQ(CheckDatabase(*database, depth), QStringList()) << records;
        EXPECT_TRUE(DamageOf(*database).isEmpty());
        EXPECT_TRUE(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->Updatable());
        database->Close();
        home.disk.Kill(kFile);
    }
}

TEST_F(DamageTest, ABrokenPageIsFoundAtTheOpeningAndTheFileIsWrittenNoMore)
{
    Make(400);
    Put(PageOf("000200 Oak St"), QByteArray(kPage, '\x5A'));
    const QByteArray before = Bytes();
    const auto database = Open();
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_TRUE(table->Updatable()) << "nobody has looked yet";
    EXPECT_FALSE(CheckDatabase(*database, CheckDepth::Opening).isEmpty());
    EXPECT_FALSE(DamageOf(*database).isEmpty());
    EXPECT_FALSE(table->Updatable());
    QString text;
    EXPECT_EQ(ErrorOf([&] { table->AddNew(); }, &text), error::kFileIsReadOnly);
    EXPECT_TRUE(text.contains(u"C:\\DATABOOK.MDB is damaged ("_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"Copy what can be read into a new one, or restore it from a backup"_s));
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"DELETE FROM COMPS"_s); }, &text), error::kFileIsReadOnly);
    table->MoveFirst();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s).toString(), u"000000 Oak St"_s) << "what is whole is read";
    table->Close();
    database->Close();
    EXPECT_TRUE(Bytes() == before);
}

TEST_F(DamageTest, WhatACheckFindsWithoutAReadErrorEndsAllWritingAndTheEditUnderWay)
{
    Make(40);
    const QByteArray whole = Bytes();
    const qsizetype row = whole.indexOf("000020 Oak StSalem");
    ASSERT_GT(row, 0);
    struct Row
    {
        const char* name;
        qint64 at;
        QByteArray bytes;
        CheckDepth depth;
    };
    const Row rows[] = {
        {"more unused pages than pages", 36, QByteArray("\x00\x10\x00\x00", 4), CheckDepth::Opening},
        {"a text that is none", row + 13, "\xFF\xFE", CheckDepth::Whole},
        {"a record that its index knows by another key", row, "000029 Oak StSalem", CheckDepth::Whole},
    };
    for (const Row& broken : rows) {
        Put(0, whole);
        Put(broken.at, broken.bytes);
        const QByteArray before = Bytes();
        const auto database = Open();
        const auto edited = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        edited->MoveFirst();
        edited->Edit();
        edited->SetValue(u"CITY"_s, u"ALDER"_s);
        EXPECT_TRUE(table->Updatable()) << broken.name << ": nothing is known yet";
        const QStringList found = CheckDatabase(*database, broken.depth);
        ASSERT_FALSE(found.isEmpty()) << broken.name;
        EXPECT_EQ(DamageOf(*database), found.first()) << broken.name;
        EXPECT_FALSE(table->Updatable()) << broken.name;
        QString text;
        EXPECT_EQ(ErrorOf([&] { table->AddNew(); }, &text), error::kFileIsReadOnly) << broken.name;
        EXPECT_TRUE(text.contains(found.first())) << text.toStdString();
        EXPECT_EQ(ErrorOf([&] { edited->Update(); }), error::kFileIsReadOnly) << broken.name;
        EXPECT_EQ(ErrorOf([&] { database->Execute(u"DELETE FROM COMPS"_s); }), error::kFileIsReadOnly) << broken.name;
        edited->CancelUpdate();
        edited->Close();
        table->Close();
        database->Close();
        EXPECT_TRUE(Bytes() == before) << broken.name;
    }
}

TEST_F(DamageTest, AReadThatMeetsABrokenPageEndsAllWriting)
{
    Make(400);
    Put(PageOf("000200 Oak St"), QByteArray(kPage, '\x5A'));
    const auto database = Open();
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    table->SetIndex(u"Centralkey"_s);
    table->Seek(u"="_s, u"000001 Oak St"_s);
    table->Edit();
    table->CancelUpdate();
    EXPECT_EQ(ErrorOf([&] {
                  for (table->MoveFirst(); !table->Eof(); table->MoveNext())
                      static_cast<void>(table->Value(u"CITY"_s));
              }),
              error::kCorruptDatabase);
    EXPECT_FALSE(DamageOf(*database).isEmpty());
    table->Seek(u"="_s, u"000001 Oak St"_s);
    EXPECT_EQ(ErrorOf([&] { table->Edit(); }), error::kFileIsReadOnly);
}

TEST_F(DamageTest, ALargeFileIsLookedAtInSamples)
{
    Make(9000);
    const QByteArray whole = Bytes();
    ASSERT_GT(whole.size(), 130 * kPage) << "too small to be sampled";
    struct Row
    {
        const char* name;
        qint64 at;
        QByteArray bytes;
    };
    const Row rows[] = {
        {"more unused pages than pages", 36, QByteArray("\x00\x10\x00\x00", 4)},
        {"the first record's page", PageOf("000000 Oak St"), QByteArray(kPage, '\0')},
        {"the last record's page", PageOf("008999 Oak St"), QByteArray(kPage, '\0')},
    };
    for (const Row& row : rows) {
        Put(0, whole);
        Put(row.at, row.bytes);
        const auto database = Open();
        EXPECT_FALSE(CheckDatabase(*database, CheckDepth::Opening).isEmpty()) << row.name;
        database->Close();
    }
    Put(0, whole);
    // One page of many may be missed at the opening, but not by the looks that follow.
    Put(PageOf("004300 Oak St"), QByteArray(kPage, '\0'));
    EXPECT_FALSE(CheckDatabase(*Open(), CheckDepth::Quiet).isEmpty());
    EXPECT_FALSE(CheckDatabase(*Open(), CheckDepth::Whole).isEmpty());
}

TEST_F(DamageTest, ValuesAndIndexesAreReadByTheWholeCheck)
{
    Make(40);
    const QByteArray whole = Bytes();
    const qsizetype row = whole.indexOf("000020 Oak StSalem");
    ASSERT_GT(row, 0);
    Put(row + 13, "\xFF\xFE"); // a text that is none
    const auto letters = Open();
    EXPECT_TRUE(CheckDatabase(*letters, CheckDepth::Opening).isEmpty()) << "its pages are all right";
    EXPECT_TRUE(CheckDatabase(*letters, CheckDepth::Whole).join(u' ').contains(u"CITY of record number 21"_s));
    letters->Close();
    Put(0, whole);
    Put(row, "000029 Oak StSalem"); // a record that its index knows by another key
    EXPECT_FALSE(CheckDatabase(*Open(), CheckDepth::Whole).isEmpty());
}

TEST_F(DamageTest, WhatCanBeReadIsCopiedAndTheLostAreNamed)
{
    Make(400);
    const qint64 page = PageOf("000200 Oak St");
    const int within = static_cast<int>(Bytes().mid(page, kPage).count("Oak StSalem"));
    ASSERT_GT(within, 5);
    Put(page, QByteArray(kPage, '\x5A'));
    const QByteArray before = Bytes();
    const auto rescued = CopyReadable(home.engine, kFile, kCopy);
    ASSERT_TRUE(rescued.has_value());
    EXPECT_EQ(rescued->records, 400 - within);
    EXPECT_EQ(rescued->lost, within);
    EXPECT_EQ(rescued->names.size(), within);
    EXPECT_TRUE(rescued->names.contains(u"000200 Oak St: lost"_s)) << rescued->names.join(u'\n').toStdString();
    EXPECT_TRUE(Bytes() == before);
    const auto copy = home.engine.OpenDatabase(kCopy);
    EXPECT_TRUE(CheckDatabase(*copy, CheckDepth::Whole).isEmpty());
    const auto rows = copy->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_EQ(rows->RecordCount(), 400 - within);
    rows->SetIndex(u"Centralkey"_s);
    rows->Seek(u"="_s, u"000399 OAK ST"_s);
    ASSERT_FALSE(rows->NoMatch());
    EXPECT_EQ(rows->Value(u"SELLINGPR"_s).toString(), u"250000"_s);
    rows->Edit(); // and goes on living
    rows->SetValue(u"CITY"_s, u"Bend"_s);
    rows->Update();
}

TEST_F(DamageTest, ALongValueThatIsBrokenCostsTheValueAlone)
{
    const auto database = MakeComps(home.engine, kFile, {{u"A1"_s, u"Salem"_s, {}, {}, {}}, {u"B2"_s, u"Bend"_s, {}, {}, {}}});
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    table->MoveFirst();
    table->Edit();
    table->SetValue(u"PHOTOS"_s, QString(20000, u'x'));
    table->Update();
    table->Close();
    database->Close();
    // The first page of the long text names the second; that leads nowhere now.
    const QByteArray bytes = Bytes();
    qint64 page = -1;
    for (qint64 at = kPage; at < bytes.size() && page < 0; at += kPage)
        if (bytes.mid(at + 4, 100) == QByteArray(100, 'x'))
            page = at;
    ASSERT_GT(page, 0);
    Put(page, QByteArray("\x00\x7F\x00\x00", 4));
    const auto rescued = CopyReadable(home.engine, kFile, kCopy);
    ASSERT_TRUE(rescued.has_value());
    EXPECT_EQ(rescued->records, 2);
    EXPECT_EQ(rescued->incomplete, 1);
    EXPECT_EQ(rescued->names, QStringList{u"A1: without PHOTOS"_s});
    const auto rows = home.engine.OpenDatabase(kCopy)->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_EQ(Column(*rows, u"CITY"_s), (QStringList{u"Salem"_s, u"Bend"_s}));
}

TEST_F(DamageTest, ACopyThatIsStoppedOrStandsInTheWayMakesNothing)
{
    Make(3000);
    EXPECT_FALSE(CopyReadable(home.engine, kFile, kCopy, [](qint64 records) { return records < 1000; }));
    EXPECT_FALSE(home.disk.Found(kCopy));
    EXPECT_EQ(home.disk.Dir(u"C:\\*.*"_s), QStringList{u"DATABOOK.MDB"_s});
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(CopyReadable(home.engine, kFile, kFile)); }), error::kDatabaseExists);
}

TEST_F(DamageTest, AReadThatIsKeptWaitingIsNoFailedUpdate)
{
    Make(3);
    home.engine.SetLockWait(50);
    const auto database = Open();
    const auto table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    table->SetIndex(u"Centralkey"_s);
    const auto edited = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    edited->MoveFirst();
    edited->Edit();
    edited->SetValue(u"CITY"_s, u"Bend"_s);
    {
        const tests::ExclusiveLock other(home.Native(u"DATABOOK.MDB"_s));
        QString text;
        EXPECT_EQ(ErrorOf([&] { table->Seek(u"="_s, u"000001 Oak St"_s); }, &text), error::kCouldNotReadLocked);
        EXPECT_TRUE(text.startsWith(u"Could not read; currently locked by another user"_s)) << text.toStdString();
        EXPECT_EQ(ErrorOf([&] { edited->Update(); }), error::kCouldNotUpdateLocked);
        EXPECT_EQ(ErrorOf([&] { CheckDatabase(*database, CheckDepth::Opening); }), error::kCouldNotReadLocked);
        Engine another(home.disk, tests::SomeTime());
        another.SetLockWait(50);
        EXPECT_EQ(ErrorOf([&] { static_cast<void>(another.OpenDatabase(kFile)); }), error::kCouldNotReadLocked);
    }
    EXPECT_TRUE(DamageOf(*database).isEmpty());
    table->Seek(u"="_s, u"000001 Oak St"_s);
    EXPECT_FALSE(table->NoMatch());
}

TEST_F(DamageTest, ALockFileThatWasLeftHoldsNobodyUp)
{
    Make(3);
    const QString left = home.Native(u"DATABOOK.LDB~"_s);
    const QByteArray own = QByteArray::number(QCoreApplication::applicationPid()) + '\n' +
                           QCoreApplication::applicationName().toUtf8() + '\n' +
                           QSysInfo::machineHostName().toUtf8() + '\n';
    for (const QByteArray& content : {QByteArray(), QByteArray("1\nvasclip\nsomewhere\n"), own}) {
        QFile file(left);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        QElapsedTimer timer;
        timer.start();
        const auto database = Open();
        EXPECT_EQ(home.engine.Users(kFile).size(), 1) << "the opening has its entry";
        database->Close();
        EXPECT_LT(timer.elapsed(), 1000) << content.toStdString();
        EXPECT_FALSE(QFile::exists(left));
        EXPECT_FALSE(QFile::exists(home.Native(u"DATABOOK.LDB"_s)));
    }
}

} // namespace
} // namespace vasclip::engine
