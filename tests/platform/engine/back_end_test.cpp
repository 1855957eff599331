// What the engine asks of a kind of database that is not the native one: a server that is slow, gets lost, loses
// the answer to a commit, and refuses statements after an error.

#include "platform/engine/home.h"
#include "platform/engine/waits.h"
#include "platform/engine/memory_back_end.h"
#include "platform/engine/row_store.h"
#include "platform/engine/sql_typer.h"

#include <gtest/gtest.h>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kServer = u"C:\\OFFICE.SRV"_s;
const QString kFile = u"C:\\DATABOOK.MDB"_s;

struct BackEndTest : testing::Test
{
    BackEndTest()
    {
        auto made = std::make_unique<MemoryBackEnd>(u".SRV"_s, 64);
        backEnd = made.get();
        home.engine.AddBackEnd(std::move(made));
        QList<Comp> comps;
        for (int i = 0; i < 100; ++i)
            comps.append({u"%1 OAK ST"_s.arg(i, 3, 10, QChar(u'0')), u"Salem"_s, QString::number(1000 * i), {}, {}});
        database = MakeComps(home.engine, kServer, comps);
        server = backEnd->ServerOf(kServer);
        table = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        table->SetIndex(u"Centralkey"_s);
    }

    void Add(const QString& key)
    {
        table->AddNew();
        table->SetValue(u"CENTRALKEY"_s, key);
        table->Update();
    }

    int Calls(const std::function<void()>& step)
    {
        const int before = server->calls;
        step();
        return server->calls - before;
    }

    Home home;
    MemoryBackEnd* backEnd = nullptr;
    std::shared_ptr<Database> database;
    std::shared_ptr<MemoryServer> server;
    std::unique_ptr<Recordset> table;
};

TEST_F(BackEndTest, ALostConnectionHasItsOwnErrorAndAnOpenEditSurvivesIt)
{
    table->Seek(u"="_s, u"003 OAK ST"_s);
    table->Edit();
    table->SetValue(u"CITY"_s, u"Dover"_s);
    server->faults.failAfter = 0;
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kConnectionLost);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(home.engine.OpenDatabase(kServer)->TableNames()); }),
              error::kConnectionLost);
    EXPECT_EQ(table->CurrentEditMode(), EditMode::InProgress);
    EXPECT_EQ(table->Value(u"CITY"_s), u"Dover"_s);
    server->faults.failAfter = -1;
    table->Update();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Dover"_s);
}

TEST_F(BackEndTest, ASlowCallEndsAtItsDeadlineWithoutAChange)
{
    server->faults.answersAfter = std::chrono::seconds(3);
    {
        const WaitScope brief(home.engine, {std::chrono::seconds(1), {}});
        QString text;
        EXPECT_EQ(ErrorOf([&] { Add(u"1 LATE ST"_s); }, &text), error::kConnectionLost);
        EXPECT_TRUE(text.contains(u"did not answer"_s)) << text.toStdString();
    }
    server->faults.answersAfter = {};
    EXPECT_EQ(table->RecordCount(), 100);
    server->faults.answersAfter = std::chrono::seconds(3);
    table->CancelUpdate();
    Add(u"1 LATE ST"_s); // the scope's deadline went with it
    EXPECT_EQ(table->RecordCount(), 101);
}

TEST_F(BackEndTest, AWaitIsGivenUpByTheHookAndNothingComesBetween)
{
    server->faults.answersAfter = std::chrono::seconds(3);
    int looks = 0, within = 0;
    const int before = server->calls;
    const WaitScope scope(home.engine, {std::chrono::seconds(60), [&](std::chrono::milliseconds waited) {
                                            ++looks;
                                            within = ErrorOf([&] { table->MoveLast(); });
                                            return waited < std::chrono::milliseconds(200);
                                        }});
    EXPECT_EQ(ErrorOf([&] { table->Seek(u"="_s, u"003 OAK ST"_s); }), error::kWaitGivenUp);
    EXPECT_EQ(looks, 20);
    EXPECT_EQ(within, error::kInternalEngine);
    EXPECT_EQ(server->calls, before + 1) << "what the hook tried never reached the server";
    server->faults.answersAfter = {};
    table->Seek(u"="_s, u"003 OAK ST"_s);
    EXPECT_FALSE(table->NoMatch());
}

TEST_F(BackEndTest, AStreamOfKeysEndsWhenNobodyWantsMore)
{
    const auto rows = database->OpenRows(sql::WholeTable(database->Table(u"COMPS"_s)));
    std::size_t got = 0;
    rows->ReadKeys([&](std::span<const Bookmark> keys) {
        got += keys.size();
        return false;
    });
    EXPECT_GT(got, 0U);
    EXPECT_LT(got, 100U);
}

TEST_F(BackEndTest, AChangeWhoseAnswerWasLostIsNotMadeTwice)
{
    table->Seek(u"="_s, u"003 OAK ST"_s);
    table->Edit();
    table->SetValue(u"CITY"_s, u"Dover"_s);
    server->faults.loseCommitAnswer = true;
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kConnectionLost);
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDataChanged) << "it happened, and is there to be seen";
    table->CancelUpdate();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Dover"_s);

    server->faults.loseCommitAnswer = true;
    EXPECT_EQ(ErrorOf([&] { Add(u"NEW"_s); }), error::kConnectionLost);
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDuplicateKey);
    EXPECT_EQ(table->RecordCount(), 101);
}

TEST_F(BackEndTest, AChangeOfAnotherUserWhoHoldsTheRecordStillIsToldAsOne)
{
    table->Seek(u"="_s, u"003 OAK ST"_s);
    table->Edit();
    table->SetValue(u"CITY"_s, u"Dover"_s);
    const auto other = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    other->SetIndex(u"Centralkey"_s);
    other->Seek(u"="_s, u"003 OAK ST"_s);
    other->Edit();
    other->SetValue(u"CITY"_s, u"Bend"_s);
    other->Update();
    for (int time = 1; time <= 2; ++time) {
        const int refused = server->calls + 1; // the call that finds it changed; what is read behind it waits in vain
        server->faults.delay = [this, refused] {
            if (server->calls > refused)
                throw RuntimeError(error::kCouldNotReadLocked, u"held"_s);
        };
        EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDataChanged) << time;
        EXPECT_EQ(table->Value(u"CITY"_s), u"Dover"_s) << "what was typed is kept";
    }
    table->CancelUpdate();
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table->Value(u"CITY"_s)); }), error::kCouldNotReadLocked)
        << "nothing stale is taken for the record";
    server->faults.delay = {};
    EXPECT_EQ(table->Value(u"CITY"_s), u"Bend"_s);
}

TEST_F(BackEndTest, AnErrorInATransactionDoesNotEndIt)
{
    Transaction together(*database);
    Add(u"A"_s);
    EXPECT_EQ(ErrorOf([&] { Add(u"003 OAK ST"_s); }), error::kDuplicateKey);
    table->CancelUpdate();
    EXPECT_EQ(ErrorOf([&] { Add(u"A"_s); }), error::kDuplicateKey);
    table->CancelUpdate();
    Add(u"B"_s);
    together.Commit();
    EXPECT_EQ(table->RecordCount(), 102);
}

TEST_F(BackEndTest, APageOfAGridIsOneCallAndAWalkReadsAhead)
{
    const auto rows = database->OpenRecordset(u"SELECT * FROM COMPS ORDER BY SELLINGPR"_s, RecordsetType::Dynaset);
    EXPECT_EQ(Calls([&] {
                  for (qint64 row = 32; row < 64; ++row)
                      EXPECT_FALSE(rows->Peek(row, {0, 2}).isEmpty());
              }),
              1);
    QStringList keys;
    EXPECT_LE(Calls([&] {
                  for (table->MoveFirst(); !table->Eof(); table->MoveNext())
                      keys.append(QString());
              }),
              4)
        << "the edge, and a window for each 64 rows";
    EXPECT_EQ(keys.size(), 100);
}

TEST_F(BackEndTest, LongBinaryValuesOfAPageComeWithTheirRows)
{
    table->Seek(u"="_s, u"040 OAK ST"_s);
    table->Edit();
    table->SetValue(u"FRONTPHOTO"_s, QByteArray("picture"));
    table->Update();
    const auto rows = database->OpenRecordset(u"SELECT CENTRALKEY, FRONTPHOTO FROM COMPS ORDER BY CENTRALKEY"_s,
                                              RecordsetType::Dynaset);
    EXPECT_EQ(Calls([&] { EXPECT_EQ(rows->Peek(40, {1}), QVariantList{QByteArray("picture")}); }), 1);
    EXPECT_FALSE(rows->Peek(41, {1}).front().isValid());
}

TEST_F(BackEndTest, AWindowReadAheadGoesWithAChange)
{
    table->MoveFirst();
    table->MoveNext();
    const auto other = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    other->SetIndex(u"Centralkey"_s);
    other->Seek(u"="_s, u"002 OAK ST"_s);
    other->Delete();
    table->MoveNext();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"003 OAK ST"_s);
    table->MovePrevious();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"001 OAK ST"_s);
}

TEST_F(BackEndTest, WhatAnotherUserDeletesAheadIsToldWhenItIsReached)
{
    table->MoveFirst();
    table->MoveNext();
    const auto other = home.engine.OpenDatabase(kServer);
    const auto theirs = other->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    theirs->SetIndex(u"Centralkey"_s);
    theirs->Seek(u"="_s, u"002 OAK ST"_s);
    theirs->Delete();
    table->MoveNext();
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table->Value(u"CENTRALKEY"_s)); }), error::kRecordDeleted);
    table->MoveNext();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"003 OAK ST"_s);
}

TEST_F(BackEndTest, AChangeThatOvertakesASlowOneIsNotOverwritten)
{
    table->Seek(u"="_s, u"003 OAK ST"_s);
    table->Edit();
    table->SetValue(u"CITY"_s, u"Dover"_s);
    server->faults.delay = [this] {
        server->faults.delay = {}; // on its way to the server, another one arrives
        const auto other = home.engine.OpenDatabase(kServer);
        const auto theirs = other->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        theirs->SetIndex(u"Centralkey"_s);
        theirs->Seek(u"="_s, u"003 OAK ST"_s);
        theirs->Edit();
        theirs->SetValue(u"CITY"_s, u"Bend"_s);
        theirs->Update();
    };
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDataChanged);
    table->CancelUpdate();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Bend"_s);
}

TEST_F(BackEndTest, RightsAreOfATable)
{
    EXPECT_TRUE(table->Updatable());
    server->Table(u"COMPS"_s).mayChange = false;
    EXPECT_FALSE(table->Updatable());
    EXPECT_EQ(ErrorOf([&] { table->Edit(); }), error::kFileIsReadOnly);
    EXPECT_EQ(ErrorOf([&] { table->Delete(); }), error::kFileIsReadOnly);
}

TEST_F(BackEndTest, WordsAreFoundWithoutAnIndex)
{
    EXPECT_TRUE(database->KeepTextIndex(u"COMPS"_s, {u"CENTRALKEY"_s, u"CITY"_s}, 0).whole);
    TextSearch search;
    search.table = u"COMPS"_s;
    search.fields = QStringList{u"CENTRALKEY"_s, u"CITY"_s};
    search.words = QStringList{u"salem"_s, u"07"_s};
    search.milliseconds = 1000;
    const TextHits hits = database->FindText(search);
    EXPECT_TRUE(hits.done);
    EXPECT_EQ(hits.ids.size(), 11U) << "007, 070 to 079";
    search.afterId = hits.ids.front();
    EXPECT_EQ(database->FindText(search).ids.size(), 10U);
}

TEST_F(BackEndTest, WhoHasItOpenIsAskedOfTheEngine)
{
    EXPECT_EQ(home.engine.Users(kServer).size(), 1);
    const auto other = home.engine.OpenDatabase(kServer);
    EXPECT_EQ(home.engine.Users(kServer).size(), 2);
    other->Close();
    EXPECT_EQ(home.engine.Users(kServer).size(), 1);
}

TEST_F(BackEndTest, RecordsTravelBetweenKinds)
{
    const auto file = MakeComps(home.engine, kFile,
                                {{u"003 oak st"_s, u"Bend"_s, {}, {}, {}}, {u"9 PINE"_s, u"Bend"_s, u"5"_s, {}, {}}});
    const auto values = [](Database& from, const QString& key) {
        const auto rows = from.OpenRecordset(u"SELECT CENTRALKEY, CITY, SELLINGPR FROM COMPS WHERE CENTRALKEY = '%1'"_s
                                                 .arg(key),
                                             RecordsetType::Dynaset);
        return rows->Eof() ? QString() : rows->Value(1).toString() + u'|' + rows->Value(2).toString();
    };
    EXPECT_EQ(file->Execute(u"INSERT INTO COMPS SELECT * FROM [C:\\OFFICE.SRV].[COMPS] WHERE CENTRALKEY < '010'"_s), 9)
        << "one of the ten keys is there already";
    EXPECT_EQ(values(*file, u"003 OAK ST"_s), u"Bend|"_s) << "what was there stays";
    EXPECT_EQ(values(*file, u"004 OAK ST"_s), u"Salem|4000"_s);

    EXPECT_EQ(file->Execute(u"INSERT INTO [C:\\OFFICE.SRV].[COMPS] SELECT * FROM COMPS"_s), 1);
    EXPECT_EQ(values(*database, u"9 PINE"_s), u"Bend|5"_s);

    EXPECT_EQ(file->Execute(u"SELECT CENTRALKEY, UCASE(CITY) AS PLACE INTO [C:\\OFFICE.SRV].[FEW] FROM COMPS "
                            "WHERE CITY = 'bend'"_s),
              2);
    const auto few = database->OpenRecordset(u"SELECT * FROM FEW ORDER BY CENTRALKEY"_s, RecordsetType::Dynaset);
    EXPECT_EQ(Column(*few, u"PLACE"_s), (QStringList{u"BEND"_s, u"BEND"_s}));
    EXPECT_EQ(ErrorOf([&] { file->Execute(u"SELECT * INTO [C:\\OFFICE.SRV].[FEW] FROM COMPS"_s); }),
              error::kTableExists);
}

TEST_F(BackEndTest, ATransactionReachesOneKindOnly)
{
    const auto file = MakeComps(home.engine, kFile, {{u"9 PINE"_s, u"Bend"_s, {}, {}, {}}});
    {
        Transaction together(*file);
        EXPECT_EQ(ErrorOf([&] { file->Execute(u"INSERT INTO [C:\\OFFICE.SRV].[COMPS] SELECT * FROM COMPS"_s); }),
                  error::kTooManyDatabases);
    }
    EXPECT_EQ(table->RecordCount(), 100);
    EXPECT_EQ(ErrorOf([&] { file->Execute(u"DELETE FROM [C:\\OFFICE.SRV].[COMPS]"_s); }), error::kInvalidOperation);
    EXPECT_EQ(table->RecordCount(), 100);
}

TEST_F(BackEndTest, ACopyThatBreaksOffLeavesTheTargetAsItWas)
{
    const auto file = MakeComps(home.engine, kFile,
                                {{u"7 PINE"_s, u"Bend"_s, {}, {}, {}},
                                 {u"8 PINE"_s, u"Bend"_s, {}, {}, {}},
                                 {u"9 PINE"_s, u"Bend"_s, {}, {}, {}}});
    // Looking at the tables, beginning, and storing the first row succeed.
    server->faults.failAfter = 7;
    EXPECT_EQ(ErrorOf([&] { file->Execute(u"INSERT INTO [C:\\OFFICE.SRV].[COMPS] SELECT * FROM COMPS"_s); }),
              error::kConnectionLost);
    server->faults.failAfter = -1;
    EXPECT_EQ(table->RecordCount(), 100);
    EXPECT_FALSE(server->InTransaction());
}

} // namespace
} // namespace vasclip::engine
