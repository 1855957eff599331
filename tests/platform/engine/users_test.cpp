#include "platform/engine/home.h"
#include "platform/engine/waits.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QThread>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kFile = u"C:\\DATABOOK.MDB"_s;
constexpr int kPatience = 60'000;

struct UsersTest : testing::Test
{
    UsersTest()
        : database(MakeComps(home.engine, kFile,
                             {{u"A1"_s, u"Salem"_s, {}, {}, u"0"_s}, {u"B2"_s, u"Dover"_s, {}, {}, u"0"_s}}))
        , table(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table))
    {
        table->SetIndex(u"Centralkey"_s);
    }

    std::unique_ptr<QProcess> Start(const QStringList& words) const
    {
        auto process = std::make_unique<QProcess>();
        process->start(u"" VASCLIP_ENGINE_USER ""_s, QStringList{home.directory.path(), kFile} + words);
        return process;
    }

    /// Starts a user that holds the file open until its input closes.
    std::unique_ptr<QProcess> Hold(const QString& mode) const
    {
        auto process = Start({u"hold"_s, mode});
        EXPECT_TRUE(process->waitForReadyRead(kPatience));
        EXPECT_EQ(process->readLine().trimmed(), "ready");
        return process;
    }

    static void Finish(QProcess& process)
    {
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(kPatience));
        EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    }

    void Run(const QStringList& words) const
    {
        const auto process = Start(words);
        Finish(*process);
    }

    void Edit(const QString& key, const QString& city) const
    {
        table->Seek(u"="_s, key);
        table->Edit();
        table->SetValue(u"CITY"_s, city);
    }

    [[nodiscard]] QString City(const QString& key) const
    {
        table->Seek(u"="_s, key);
        return table->Value(u"CITY"_s).toString();
    }

    Home home;
    std::shared_ptr<Database> database;
    std::unique_ptr<Recordset> table;
};

TEST_F(UsersTest, WritersOnDifferentRecordsLoseNothing)
{
    std::vector<std::unique_ptr<QProcess>> users;
    for (int user = 0; user < 3; ++user)
        users.push_back(Start({u"add"_s, QString::number(user * 100), u"30"_s}));
    for (const auto& user : users)
        Finish(*user);
    EXPECT_EQ(table->RecordCount(), 2 + 3 * 30);
}

TEST_F(UsersTest, WritersOnOneRecordLoseNothingWhenTheyTryAgain)
{
    const auto one = Start({u"count"_s, u"A1"_s, u"25"_s});
    const auto other = Start({u"count"_s, u"A1"_s, u"25"_s});
    Finish(*one);
    Finish(*other);
    table->Seek(u"="_s, u"A1"_s);
    EXPECT_EQ(table->Value(u"GLA"_s), u"50"_s);
}

TEST_F(UsersTest, AConflictingEditIsError3197AndASecondUpdateOverwrites)
{
    Edit(u"A1"_s, u"Mine"_s);
    Run({u"set"_s, u"A1"_s, u"Theirs"_s});
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDataChanged);
    EXPECT_EQ(table->CurrentEditMode(), EditMode::InProgress);
    EXPECT_EQ(table->Value(u"CITY"_s), u"Mine"_s);
    const auto fresh = database->OpenRecordset(u"COMPS"_s, RecordsetType::Dynaset);
    EXPECT_EQ(fresh->Value(u"CITY"_s), u"Theirs"_s);
    table->Update();
    EXPECT_EQ(City(u"A1"_s), u"Mine"_s);
}

TEST_F(UsersTest, ARecordStoodOnAgainIsAsOthersLeftIt)
{
    EXPECT_EQ(City(u"A1"_s), u"Salem"_s);
    Run({u"set"_s, u"A1"_s, u"Bend"_s});
    EXPECT_EQ(table->Value(u"CITY"_s), u"Salem"_s) << "still standing on it";
    EXPECT_EQ(City(u"A1"_s), u"Bend"_s);
    Run({u"set"_s, u"A1"_s, u"Troy"_s});
    table->Edit();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Troy"_s);
    table->CancelUpdate();
    Run({u"drop"_s, u"A1"_s});
    EXPECT_EQ(ErrorOf([&] { table->Edit(); }), error::kRecordDeleted);
}

TEST_F(UsersTest, AChangeTakenBackIsNotTakenForAnothersOfTheSameVersion)
{
    database->BeginTrans();
    Edit(u"A1"_s, u"Bend"_s);
    table->Update();
    EXPECT_EQ(City(u"A1"_s), u"Bend"_s);
    database->Rollback();
    Run({u"set"_s, u"A1"_s, u"Troy"_s});
    EXPECT_EQ(City(u"A1"_s), u"Troy"_s);
}

TEST_F(UsersTest, AnEditOfADeletedRecordIsError3167)
{
    const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Dynaset);
    Edit(u"A1"_s, u"Mine"_s);
    Run({u"drop"_s, u"A1"_s});
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kRecordDeleted);
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows->Value(0)); }), error::kRecordDeleted);
    EXPECT_TRUE(rows->Peek(0, {0}).isEmpty());
    EXPECT_EQ(rows->Peek(1, {0}), QVariantList{u"B2"_s});
    rows->Requery();
    EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_F(UsersTest, AddedRecordsAppearInTheTableAtOnceAndInAQueryAfterRequery)
{
    const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Dynaset);
    Run({u"add"_s, u"7"_s, u"1"_s});
    table->Seek(u"="_s, u"key 7"_s);
    EXPECT_FALSE(table->NoMatch());
    EXPECT_EQ(rows->RecordCount(), 2);
    rows->Requery();
    EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_F(UsersTest, ALockThatLastsIsError3218)
{
    home.engine.SetLockWait(100);
    const auto other = Hold(u"locked"_s);
    Edit(u"B2"_s, u"Bend"_s);
    QString text;
    EXPECT_EQ(ErrorOf([&] { table->Update(); }, &text), error::kCouldNotUpdateLocked);
    EXPECT_TRUE(text.startsWith(u"Could not update; currently locked by another user"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QString::number(other->processId()))) << text.toStdString();
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"DELETE FROM COMPS"_s); }), error::kCouldNotUpdateLocked);
    const auto reader = database->OpenRecordset(u"COMPS"_s, RecordsetType::Dynaset);
    EXPECT_EQ(reader->RecordCount(), 2);
    Finish(*other);
    table->Update();
    EXPECT_EQ(City(u"B2"_s), u"Bend"_s);
    EXPECT_EQ(City(u"A1"_s), u"Salem"_s) << "the other user's transaction was never committed";
}

TEST_F(UsersTest, AWaitForALockCanBeGivenUp)
{
    const auto other = Hold(u"locked"_s);
    Edit(u"B2"_s, u"Bend"_s);
    int looks = 0, within = 0;
    QElapsedTimer time;
    time.start();
    {
        const WaitScope scope(home.engine, {std::chrono::seconds(60), [&](std::chrono::milliseconds) {
                                                within = ErrorOf([&] { static_cast<void>(database->TableNames()); });
                                                return ++looks < 4;
                                            }});
        QString text;
        EXPECT_EQ(ErrorOf([&] { table->Update(); }, &text), error::kWaitGivenUp);
        EXPECT_TRUE(text.contains(QString::number(other->processId()))) << text.toStdString();
    }
    EXPECT_EQ(looks, 4);
    EXPECT_EQ(within, error::kInternalEngine) << "no call between the halves of another";
    EXPECT_LT(time.elapsed(), 30000);
    home.engine.SetLockWait(50);
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kCouldNotUpdateLocked) << "a wait that ran out is none given up";
    Finish(*other);
    table->Update();
    EXPECT_EQ(City(u"B2"_s), u"Bend"_s);
}

TEST_F(UsersTest, TheCompanionNamesItsUsersAndGoesWithTheLast)
{
    const QString companion = home.Native(u"DATABOOK.LDB"_s);
    EXPECT_EQ(home.engine.Users(kFile).size(), 1);
    const auto other = Hold(u"shared"_s);
    QList<User> users = home.engine.Users(kFile);
    ASSERT_EQ(users.size(), 2);
    EXPECT_EQ(users[0].process, QCoreApplication::applicationPid());
    EXPECT_EQ(users[1].process, other->processId());
    EXPECT_TRUE(users[1].alive);
    EXPECT_FALSE(users[1].host.isEmpty());
    Finish(*other);
    EXPECT_EQ(home.engine.Users(kFile).size(), 1);
    EXPECT_TRUE(QFile::exists(companion));
    database->Close();
    EXPECT_FALSE(QFile::exists(companion));
}

TEST_F(UsersTest, ManyComeAndGoAtOnce)
{
    database->Close();
    std::vector<std::unique_ptr<QProcess>> users;
    for (int user = 0; user < 8; ++user)
        users.push_back(Start({u"add"_s, QString::number(user * 10), u"2"_s}));
    for (const auto& user : users)
        Finish(*user);
    EXPECT_TRUE(home.engine.Users(kFile).isEmpty());
    EXPECT_FALSE(QFile::exists(home.Native(u"DATABOOK.LDB"_s)));
    EXPECT_EQ(home.engine.OpenDatabase(kFile)->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(),
              18);
}

TEST_F(UsersTest, AKilledUserIsSeenAsDeadAndSwept)
{
    const auto other = Hold(u"shared"_s);
    other->kill();
    ASSERT_TRUE(other->waitForFinished(kPatience));
    const QList<User> users = home.engine.Users(kFile);
    ASSERT_EQ(users.size(), 2);
    EXPECT_TRUE(users[0].alive);
    EXPECT_FALSE(users[1].alive);
    database->Close();
    const auto alone = home.engine.OpenDatabase(kFile, OpenMode::Exclusive);
    EXPECT_EQ(home.engine.Users(kFile).size(), 1);
}

TEST_F(UsersTest, HalfAListThatAKilledUserLeftGoesWithTheNext)
{
    const QString draft = home.Native(u"DATABOOK.LDB~new"_s);
    QFile half(draft);
    ASSERT_TRUE(half.open(QIODevice::WriteOnly) && half.write("{\"host\":") > 0);
    half.close();
    const auto again = home.engine.OpenDatabase(kFile);
    EXPECT_FALSE(QFile::exists(draft));
    EXPECT_EQ(home.engine.Users(kFile).size(), 2);
    again->Close();
    ASSERT_TRUE(half.open(QIODevice::WriteOnly)); // the last one makes no list of its own
    half.close();
    database->Close();
    EXPECT_FALSE(QFile::exists(draft));
    EXPECT_FALSE(QFile::exists(home.Native(u"DATABOOK.LDB"_s)));
}

TEST_F(UsersTest, ExclusiveAndSharedKeepEachOtherOut)
{
    QString text;
    auto other = Hold(u"shared"_s);
    database->Close();
    EXPECT_EQ(
        ErrorOf([&] { static_cast<void>(home.engine.OpenDatabase(kFile, OpenMode::Exclusive)); }, &text),
        error::kInUseByOthers);
    EXPECT_TRUE(text.contains(QString::number(other->processId()))) << text.toStdString();
    Finish(*other);
    other = Hold(u"exclusive"_s);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(home.engine.OpenDatabase(kFile)); }, &text),
              error::kExclusivelyLocked);
    EXPECT_TRUE(text.contains(kFile)) << text.toStdString();
    other->kill();
    ASSERT_TRUE(other->waitForFinished(kPatience));
    EXPECT_NE(home.engine.OpenDatabase(kFile), nullptr);
}

TEST_F(UsersTest, FieldsAreAppendedOnlyWhenNobodyElseIsThere)
{
    const Field field = TextField(u"COMPID"_s, 7);
    EXPECT_EQ(ErrorOf([&] { database->AppendField(u"COMPS"_s, field); }), error::kTableLocked);
    table.reset();
    {
        const auto other = Hold(u"shared"_s);
        EXPECT_EQ(ErrorOf([&] { database->AppendField(u"COMPS"_s, field); }), error::kTableLocked);
        Finish(*other);
    }
    database->AppendField(u"comps"_s, field);
    EXPECT_EQ(ErrorOf([&] { database->AppendField(u"COMPS"_s, TextField(u"compid"_s, 9)); }),
              error::kFieldDefinedTwice);
    EXPECT_EQ(database->Table(u"COMPS"_s).fields.back().size, 7);
    table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    EXPECT_EQ(table->FieldIndex(u"COMPID"_s), 7);
    EXPECT_FALSE(table->Value(7).isValid());
}

TEST_F(UsersTest, AKillInTheMiddleOfAnUpdateLeavesTheOldOrTheNewRecord)
{
    constexpr int kKills = 12;
    const QStringList words{u"halves"_s};
    for (int kill = 0; kill < kKills; ++kill) {
        const auto other = Start(words);
        ASSERT_TRUE(other->waitForReadyRead(kPatience));
        QThread::msleep(static_cast<unsigned long>(5 + kill * 7));
        other->kill();
        ASSERT_TRUE(other->waitForFinished(kPatience));
        const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Dynaset);
        const QString text = rows->Value(u"PHOTOS"_s).toString();
        const QByteArray bytes = rows->Value(u"FRONTPHOTO"_s).toByteArray();
        if (text.isEmpty()) {
            EXPECT_TRUE(bytes.isEmpty());
            continue;
        }
        EXPECT_EQ(text, QString(60'000, text.front()));
        EXPECT_EQ(bytes, QByteArray(200'000, text.front().toLatin1()));
    }
    EXPECT_EQ(table->RecordCount(), 2);
}

TEST_F(UsersTest, TransactionsNestAndOnlyTheOutermostCommits)
{
    {
        Transaction outer(*database);
        Edit(u"A1"_s, u"Outer"_s);
        table->Update();
        {
            Transaction inner(*database);
            Edit(u"B2"_s, u"Inner"_s);
            table->Update();
        }
        EXPECT_EQ(City(u"B2"_s), u"Dover"_s);
        Transaction second(*database);
        Edit(u"B2"_s, u"Kept"_s);
        table->Update();
        second.Commit();
        outer.Commit();
    }
    EXPECT_EQ(City(u"A1"_s), u"Outer"_s);
    EXPECT_EQ(City(u"B2"_s), u"Kept"_s);
    {
        Transaction outer(*database);
        Edit(u"A1"_s, u"Gone"_s);
        table->Update();
        Transaction inner(*database);
        inner.Commit();
    }
    EXPECT_EQ(City(u"A1"_s), u"Outer"_s);
    EXPECT_EQ(ErrorOf([&] { database->CommitTrans(); }), error::kNoTransaction);
    EXPECT_EQ(ErrorOf([&] { database->Rollback(); }), error::kNoTransaction);
}

TEST_F(UsersTest, TwoDatabasesOfOneEngineSeeEachOther)
{
    const auto second = home.engine.OpenDatabase(kFile);
    const auto rows = second->OpenRecordset(u"SELECT * FROM COMPS"_s, RecordsetType::Dynaset);
    const Transaction transaction(*database);
    Edit(u"A1"_s, u"Bend"_s);
    table->Update();
    EXPECT_EQ(rows->Value(u"CITY"_s), u"Bend"_s);
    rows->Edit();
    rows->SetValue(u"GLA"_s, u"5"_s);
    rows->Update();
    EXPECT_EQ(table->Value(u"GLA"_s), u"5"_s);
}

TEST_F(UsersTest, ARollbackShowsTheOldValuesAgain)
{
    const auto rows = database->OpenRecordset(u"SELECT * FROM COMPS"_s, RecordsetType::Dynaset);
    database->BeginTrans();
    Edit(u"A1"_s, u"Bend"_s);
    table->Update();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Bend"_s);
    EXPECT_EQ(rows->Peek(0, {1}), QVariantList{u"Bend"_s});
    database->Rollback();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Salem"_s);
    EXPECT_EQ(rows->Peek(0, {1}), QVariantList{u"Salem"_s});
}

TEST_F(UsersTest, RecordSetsKeepTheFileOpen)
{
    database.reset();
    EXPECT_EQ(City(u"A1"_s), u"Salem"_s);
    EXPECT_EQ(home.engine.Users(kFile).size(), 1);
    table.reset();
    EXPECT_TRUE(home.engine.Users(kFile).isEmpty());
}

} // namespace
} // namespace vasclip::engine
