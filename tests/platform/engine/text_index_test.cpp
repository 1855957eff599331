#include "home.h"

#include "platform/engine/sqlite/functions.h"
#include "platform/text/runtime_error.h"
#include "support/standing_time.h"

#include <gtest/gtest.h>

#include <QFile>

#include <functional>
#include <sqlite3.h>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QStringList kFields{u"NAME"_s, u"NOTES"_s};

class TextIndexes : public testing::Test
{
protected:
    Home home;
    std::shared_ptr<Database> database;

    void SetUp() override
    {
        database = home.engine.CreateDatabase(u"C:\\TEXT.MDB"_s);
        MakeTable();
    }
    void MakeTable() const
    {
        TableDef table;
        table.name = u"COMPS"_s;
        table.fields = {TextField(u"NAME"_s, 35), TypedField(u"NOTES"_s, FieldType::Memo),
                        TextField(u"GLA"_s, 10)};
        table.indexes = {{u"Name"_s, {u"NAME"_s}, true, true}};
        database->CreateTable(table);
    }
    void Add(const QString& name, const QString& notes) const
    {
        QString quoted = notes;
        quoted.replace(u'\'', u"''"_s);
        database->Execute(u"INSERT INTO COMPS(NAME, NOTES) VALUES('%1', '%2')"_s.arg(name, quoted));
    }
    /// Until nothing is left to do.
    bool Keep(TextIndexTrouble trouble = TextIndexTrouble::Missing) const
    {
        for (int slice = 0; slice < 100; ++slice) {
            const TextIndexState state = database->KeepTextIndex(u"COMPS"_s, kFields, 1000);
            if (state.whole) {
                EXPECT_EQ(state.trouble, trouble);
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] QStringList Find(const QString& words, Database* in = nullptr) const
    {
        Database& open = in ? *in : *database;
        TextSearch search;
        search.table = u"COMPS"_s;
        search.fields = kFields;
        search.words = words.split(u' ', Qt::SkipEmptyParts);
        const auto rows = open.OpenRecordset(u"COMPS"_s, RecordsetType::Dynaset);
        QStringList names;
        for (;;) {
            const TextHits hits = open.FindText(search);
            for (const Bookmark id : hits.ids) {
                rows->SetBookmark(id);
                names.append(rows->Value(u"NAME"_s).toString());
            }
            if (hits.done)
                return names;
            EXPECT_GT(hits.lastId, search.afterId);
            search.afterId = hits.lastId;
        }
    }
    /// Statements that the engine would not run.
    void Raw(const QByteArray& sql) const
    {
        sqlite3* handle = nullptr;
        ASSERT_EQ(sqlite3_open(home.Native(u"TEXT.MDB"_s).toUtf8().constData(), &handle), SQLITE_OK);
        RegisterCollation(handle);
        char* message = nullptr;
        EXPECT_EQ(sqlite3_exec(handle, sql.constData(), nullptr, nullptr, &message), SQLITE_OK)
            << (message ? message : "");
        sqlite3_free(message);
        sqlite3_close(handle);
    }
};

TEST_F(TextIndexes, FindTheSameWithAndWithoutOne)
{
    Add(u"114 OAK ST"_s, u"Corner lot, new roof"_s);
    Add(u"22 FERRY RD"_s, u"Oaken floors by the river"_s);
    Add(u"9 ELM CT"_s, u"it's 100% \"done\" AND NOT* NEAR(x) Cañon"_s);
    Add(u"10 PIPE"_s, u"pi pipe tip"_s); // the groups of "pip", "ipe" without "pipeti"
    const QStringList searches{u"oak"_s,  u"OAK river"_s, u"ak"_s,   u"1"_s,     u"oak 1"_s,
                               u"it's"_s, u"\"done\""_s,  u"NOT*"_s, u"cañon"_s, u"NEAR(x)"_s,
                               u"AND"_s,  u"pipeti"_s,    u"%"_s,    u"*"_s,     u"zzz"_s,
                               u"zz"_s,   u"100%"_s};
    QList<QStringList> before;
    for (const QString& words : searches)
        before.append(Find(words));
    EXPECT_EQ(before[0], QStringList({u"114 OAK ST"_s, u"22 FERRY RD"_s}));
    EXPECT_EQ(before[1], QStringList(u"22 FERRY RD"_s));
    EXPECT_EQ(before[8], QStringList(u"9 ELM CT"_s));
    ASSERT_TRUE(Keep());
    for (qsizetype i = 0; i < searches.size(); ++i)
        EXPECT_EQ(Find(searches[i]), before[i]) << searches[i].toStdString();
}

TEST_F(TextIndexes, StayCurrentThroughEveryKindOfChange)
{
    ASSERT_TRUE(Keep());
    Add(u"114 OAK ST"_s, u"roof"_s);
    const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    rows->AddNew();
    rows->SetValue(u"NAME"_s, u"22 FERRY RD"_s);
    rows->SetValue(u"NOTES"_s, u"river"_s);
    rows->Update();
    EXPECT_EQ(Find(u"river"_s), QStringList(u"22 FERRY RD"_s));
    rows->SetIndex(u"Name"_s);
    rows->Seek(u"="_s, u"22 FERRY RD"_s);
    rows->Edit();
    rows->SetValue(u"NOTES"_s, u"brook"_s);
    rows->SetValue(u"GLA"_s, u"1"_s);
    rows->Update();
    EXPECT_EQ(Find(u"river"_s), QStringList());
    EXPECT_EQ(Find(u"brook"_s), QStringList(u"22 FERRY RD"_s));
    EXPECT_EQ(database->Execute(u"UPDATE COMPS SET NOTES = 'meadow'"_s), 2);
    EXPECT_EQ(Find(u"meadow"_s).size(), 2);
    EXPECT_EQ(Find(u"brook"_s), QStringList());
    rows->Seek(u"="_s, u"22 FERRY RD"_s);
    rows->Delete();
    EXPECT_EQ(Find(u"meadow"_s), QStringList(u"114 OAK ST"_s));
    {
        Transaction undone(*database);
        Add(u"5 LOST LN"_s, u"meadow"_s);
    }
    EXPECT_EQ(Find(u"meadow"_s), QStringList(u"114 OAK ST"_s));
    EXPECT_EQ(database->TableNames(), QStringList(u"COMPS"_s));
}

TEST_F(TextIndexes, AreMadeInPiecesWhileRowsChange)
{
    {
        Transaction all(*database);
        for (int i = 0; i < 9000; ++i)
            Add(u"%1 OAK ST"_s.arg(i), u"house number %1"_s.arg(i * 7));
        all.Commit();
    }
    EXPECT_FALSE(database->KeepTextIndex(u"COMPS"_s, kFields, 0).whole);
    Add(u"ADDED MEANWHILE"_s, u"late"_s);
    database->Execute(u"UPDATE COMPS SET NOTES = 'early' WHERE NAME = '3 OAK ST'"_s);     // known already
    database->Execute(u"UPDATE COMPS SET NOTES = 'latter' WHERE NAME = '8999 OAK ST'"_s); // not yet
    database->Execute(u"DELETE FROM COMPS WHERE NAME = '4 OAK ST' OR NAME = '8998 OAK ST'"_s);
    EXPECT_EQ(Find(u"early"_s), QStringList(u"3 OAK ST"_s)) << "while it is made, the rows answer";
    while (!database->KeepTextIndex(u"COMPS"_s, kFields, 0).whole) {
    }
    EXPECT_EQ(Find(u"early"_s), QStringList(u"3 OAK ST"_s));
    EXPECT_EQ(Find(u"latter"_s), QStringList(u"8999 OAK ST"_s));
    EXPECT_EQ(Find(u"late"_s), QStringList(u"ADDED MEANWHILE"_s));
    EXPECT_EQ(Find(u"OAK"_s).size(), 8998);
}

TEST_F(TextIndexes, OneOfOtherFieldsIsMadeAnew)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, {u"NAME"_s}, 1000).whole);
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s)) << "one of other fields is not asked";
    ASSERT_TRUE(Keep());
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
}

TEST_F(TextIndexes, DamageOfEveryKindIsNoticedAndNeverBelieved)
{
    using enum TextIndexTrouble;
    const struct
    {
        const char* what;
        QByteArray sql;
        TextIndexTrouble trouble;
        bool inUse = false; ///< it takes a search to notice it
    } damages[] = {
        {"nothing", "", None},
        {"a trigger is gone", "DROP TRIGGER vas_text_COMPS_changed", Damaged},
        {"a trigger does nothing",
         "DROP TRIGGER vas_text_COMPS_added;"
         "CREATE TRIGGER vas_text_COMPS_added AFTER INSERT ON COMPS BEGIN SELECT 1; END",
         Damaged},
        {"all its content is gone", "DELETE FROM vas_text_COMPS_data WHERE id > 1", Damaged},
        {"its segments are gone", "DELETE FROM vas_text_COMPS_data WHERE id > 10", Damaged, true},
        {"its own emptying", "INSERT INTO vas_text_COMPS(vas_text_COMPS) VALUES('delete-all')", Damaged},
        {"written to by others", "INSERT INTO vas_text_COMPS(rowid, NAME) VALUES(77, 'roof')", Damaged},
        {"its list of segments is nonsense", "UPDATE vas_text_COMPS_data SET block = x'FF' WHERE id = 10",
         Damaged},
        {"its content is nonsense", "UPDATE vas_text_COMPS_data SET block = x'FFFFFFFF' WHERE id > 10",
         Damaged, true},
        {"a table of its own is gone", "DROP TABLE vas_text_COMPS_data", Damaged},
        {"the others of its own are gone", "DROP TABLE vas_text_COMPS_config; DROP TABLE vas_text_COMPS_idx",
         Damaged},
        {"the table of noted rows is gone", "DROP TABLE vas_noted_COMPS", Damaged},
        {"the table of known rows is gone", "DROP TABLE vas_known_COMPS", Damaged},
        {"it is gone", "DROP TABLE vas_text_COMPS", Damaged},
        {"the list of what there is is gone", "DROP TABLE vas_texts", Missing},
        {"it never heard of known rows", "DELETE FROM vas_known_COMPS", OutOfStep},
    };
    Add(u"114 OAK ST"_s, u"roof"_s);
    Add(u"22 FERRY RD"_s, u"river"_s);
    ASSERT_TRUE(Keep());
    for (const auto& damage : damages) {
        SCOPED_TRACE(damage.what);
        database->Close();
        Raw(damage.sql);
        database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
        EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s)) << "before it was looked at";
        EXPECT_NO_THROW(Add(u"9 ELM CT"_s, u"brook"_s));
        if (damage.inUse) {
            EXPECT_TRUE(Keep(None));
            EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
        }
        EXPECT_TRUE(Keep(damage.trouble));
        EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
        EXPECT_EQ(Find(u"brook"_s), QStringList(u"9 ELM CT"_s));
        database->Execute(u"DELETE FROM COMPS WHERE NAME = '9 ELM CT'"_s);
        database->Close();
        database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
        EXPECT_TRUE(Keep(None)) << "it is right from now on";
        EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
    }
}

TEST_F(TextIndexes, DamageWhileItIsInUseGivesTheSameRows)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    ASSERT_TRUE(Keep());
    Raw("UPDATE vas_text_COMPS_data SET block = x'FFFFFFFF' WHERE id > 10");
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
    EXPECT_TRUE(Keep(TextIndexTrouble::Damaged));
    Raw("DELETE FROM vas_text_COMPS_data WHERE id > 1");
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
    EXPECT_TRUE(Keep(TextIndexTrouble::Damaged));
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));
}

TEST_F(TextIndexes, RowsChangedBehindItsBackAreLearned)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    Add(u"22 FERRY RD"_s, u"river"_s);
    Add(u"9 ELM CT"_s, u"brook"_s);
    ASSERT_TRUE(Keep());
    database->Close();
    // A program that writes the rows and not what hangs on them.
    Raw("CREATE TEMP TABLE kept AS SELECT sql FROM sqlite_master WHERE type = 'trigger';"
        "DROP TRIGGER vas_text_COMPS_changed; DROP TRIGGER vas_text_COMPS_added;"
        "UPDATE COMPS SET NOTES = 'cellar' WHERE vas_id = 1;"
        "INSERT INTO COMPS(NAME, NOTES) VALUES('5 LOST LN', 'attic');"
        "DELETE FROM COMPS WHERE vas_id = 3;"
        "PRAGMA writable_schema = ON;"
        "INSERT INTO sqlite_master SELECT 'trigger', 'vas_text_COMPS' || CASE WHEN sql LIKE '%AFTER INSERT%' "
        "THEN '_added' ELSE '_changed' END, 'COMPS', 0, sql FROM kept;"
        "PRAGMA writable_schema = OFF");
    database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    EXPECT_EQ(Find(u"cellar"_s), QStringList(u"114 OAK ST"_s));
    ASSERT_TRUE(Keep(TextIndexTrouble::OutOfStep));
    EXPECT_EQ(Find(u"cellar"_s), QStringList(u"114 OAK ST"_s));
    EXPECT_EQ(Find(u"roof"_s), QStringList());
    EXPECT_EQ(Find(u"attic"_s), QStringList(u"5 LOST LN"_s));
    EXPECT_EQ(Find(u"brook"_s), QStringList());
    EXPECT_EQ(Find(u"river"_s), QStringList(u"22 FERRY RD"_s));
    database->Close();
    database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    EXPECT_TRUE(Keep(TextIndexTrouble::None));
}

/// Which rows are compared when the file is opened: all, or none because nobody else has written to it.
class TextIndexStamps : public TextIndexes
{
protected:
    void SetUp() override
    {
        TextIndexes::SetUp();
        Add(u"114 OAK ST"_s, u"roof"_s);
        ASSERT_TRUE(Keep());
    }
    /// Four bytes of the file's header.
    [[nodiscard]] QByteArray Header(qint64 place) const
    {
        QFile file(home.Native(u"TEXT.MDB"_s));
        EXPECT_TRUE(file.open(QFile::ReadOnly) && file.seek(place));
        return file.read(4);
    }
    [[nodiscard]] QByteArray ChangeNumber() const { return Header(24); }
    [[nodiscard]] bool Stamped() const { return ChangeNumber() == Header(60); }
    void Reopen()
    {
        database->Close();
        database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    }
};

TEST_F(TextIndexStamps, OurChangesCarryItOn)
{
    EXPECT_TRUE(Stamped());
    const auto rows = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    Engine othersEngine(home.disk, tests::SomeTime());
    const auto other = othersEngine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"a row", [&] { Add(u"22 FERRY RD"_s, u"river"_s); }},
        {"a row of a record set",
         [&] {
             rows->AddNew();
             rows->SetValue(u"NAME"_s, u"9 ELM CT"_s);
             rows->Update();
         }},
        {"another user's", [&] { other->Execute(u"UPDATE COMPS SET NOTES = 'brook'"_s); }},
        {"a transaction",
         [&] {
             Transaction all(*database);
             Add(u"1 A ST"_s, u"x"_s);
             Add(u"2 A ST"_s, u"y"_s);
             all.Commit();
         }},
        {"a table",
         [&] {
             TableDef table;
             table.name = u"OTHER"_s;
             table.fields = {TextField(u"NAME"_s, 35)};
             database->CreateTable(table);
         }},
        {"the index itself", [&] { EXPECT_TRUE(Keep()); }},
    };
    for (const auto& [what, change] : changes) {
        const QByteArray before = ChangeNumber();
        change();
        EXPECT_NE(ChangeNumber(), before) << what;
        EXPECT_TRUE(Stamped()) << what;
    }
    for (const bool begun : {false, true}) {
        const QByteArray before = ChangeNumber();
        if (begun) {
            Transaction undone(*database);
            Add(u"3 A ST"_s, u"z"_s);
        } else {
            EXPECT_EQ(database->Execute(u"DELETE FROM COMPS WHERE NAME = 'NOBODY'"_s), 0);
        }
        EXPECT_EQ(ChangeNumber(), before) << "nothing was changed";
        EXPECT_TRUE(Stamped());
    }
    rows->Close();
    other->Close();
    Reopen();
    EXPECT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 0).whole) << "nothing to compare";
    EXPECT_EQ(Find(u"brook"_s), (QStringList{u"114 OAK ST"_s, u"22 FERRY RD"_s, u"9 ELM CT"_s}));
}

TEST_F(TextIndexStamps, WithOneNothingIsCompared)
{
    for (const OpenMode mode : {OpenMode::Shared, OpenMode::ReadOnly}) {
        database->Close();
        Raw("DELETE FROM vas_known_COMPS");
        ASSERT_FALSE(Stamped()) << "another program has written";
        // As if it had not.
        QFile file(home.Native(u"TEXT.MDB"_s));
        const QByteArray now = ChangeNumber();
        ASSERT_TRUE(file.open(QFile::ReadWrite) && file.seek(60) && file.write(now) == 4);
        file.close();
        database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s, mode);
        EXPECT_TRUE(Keep(TextIndexTrouble::None));
    }
}

TEST_F(TextIndexStamps, AnotherProgramsChangeIsComparedOnceAndThenStamped)
{
    const QByteArray changes[] = {
        "UPDATE COMPS SET NOTES = 'cellar'", // with our triggers
        "DROP TRIGGER vas_text_COMPS_changed; UPDATE COMPS SET NOTES = 'attic'",
        "PRAGMA user_version = 0",
    };
    for (const QByteArray& change : changes) {
        database->Close();
        Raw(change);
        EXPECT_FALSE(Stamped()) << change.toStdString();
        database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
        Add(u"%1 NEW RD"_s.arg(change.size()), u"roof"_s);
        EXPECT_FALSE(Stamped()) << "nobody has compared it yet";
        while (!database->KeepTextIndex(u"COMPS"_s, kFields, 1000).whole) {
        }
        EXPECT_TRUE(Stamped()) << change.toStdString();
        EXPECT_EQ(Find(u"cellar"_s).size(), change.contains("cellar") ? 1 : 0) << change.toStdString();
    }
}

TEST_F(TextIndexStamps, AnothersChangeWhileItIsComparedPutsItOff)
{
    {
        Transaction all(*database);
        for (int i = 0; i < 2000; ++i)
            Add(u"%1 OAK ST X"_s.arg(i), u"house"_s);
        all.Commit();
    }
    ASSERT_TRUE(Keep());
    database->Close();
    Raw("PRAGMA user_version = 0");
    database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    ASSERT_FALSE(database->KeepTextIndex(u"COMPS"_s, kFields, 0).whole);
    Add(u"OURS"_s, u"meanwhile"_s);
    Raw("UPDATE COMPS SET GLA = '1' WHERE vas_id = 1");
    EXPECT_TRUE(Keep(TextIndexTrouble::None));
    EXPECT_FALSE(Stamped()) << "what was compared before it may not be so any more";
    Reopen();
    ASSERT_FALSE(database->KeepTextIndex(u"COMPS"_s, kFields, 0).whole);
    Add(u"OURS TOO"_s, u"meanwhile"_s);
    EXPECT_TRUE(Keep(TextIndexTrouble::None));
    EXPECT_TRUE(Stamped()) << "our own is no harm";
    EXPECT_EQ(Find(u"meanwhile"_s).size(), 2);
}

TEST_F(TextIndexStamps, ACopyAndASecondTableAreCompared)
{
    home.engine.CopyDatabase(u"C:\\TEXT.MDB"_s, u"C:\\COPY.MDB"_s);
    TableDef table;
    table.name = u"SECOND"_s;
    table.fields = {TextField(u"NAME"_s, 35)};
    database->CreateTable(table);
    while (!database->KeepTextIndex(u"SECOND"_s, {u"NAME"_s}, 1000).whole) {
    }
    EXPECT_TRUE(Stamped()) << "both were made under one chain of changes";
    database->Close();
    Raw("PRAGMA user_version = 0");
    database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    EXPECT_TRUE(Keep(TextIndexTrouble::None));
    EXPECT_FALSE(Stamped()) << "one of two says nothing of the file";
    const auto copy = home.engine.OpenDatabase(u"C:\\COPY.MDB"_s);
    EXPECT_EQ(Find(u"roof"_s, copy.get()), QStringList(u"114 OAK ST"_s));
}

TEST_F(TextIndexes, ReadOnlyFilesAnswerFromTheirRows)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    const auto reader = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s, OpenMode::ReadOnly);
    EXPECT_TRUE(reader->KeepTextIndex(u"COMPS"_s, kFields, 1000).whole)
        << "there is nothing that it could do";
    EXPECT_EQ(Find(u"roof"_s, reader.get()), QStringList(u"114 OAK ST"_s));
    reader->Close();
    ASSERT_TRUE(Keep());
    database->Close();
    Raw("DELETE FROM vas_known_COMPS");
    const auto later = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s, OpenMode::ReadOnly);
    const TextIndexState state = later->KeepTextIndex(u"COMPS"_s, kFields, 1000);
    EXPECT_TRUE(state.whole) << "there is nothing that it could do";
    EXPECT_EQ(state.trouble, TextIndexTrouble::OutOfStep);
    EXPECT_EQ(Find(u"roof"_s, later.get()), QStringList(u"114 OAK ST"_s));
    EXPECT_THROW(static_cast<void>(later->KeepTextIndex(u"NONE"_s, kFields, 1)), RuntimeError);
    EXPECT_THROW(static_cast<void>(later->KeepTextIndex(u"COMPS"_s, {u"NONE"_s}, 1)), RuntimeError);
}

TEST_F(TextIndexes, GoWithTheirTableAndWithACopy)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    ASSERT_TRUE(Keep());
    home.engine.CopyDatabase(u"C:\\TEXT.MDB"_s, u"C:\\COPY.MDB"_s);
    const auto copy = home.engine.OpenDatabase(u"C:\\COPY.MDB"_s);
    EXPECT_EQ(Find(u"roof"_s, copy.get()), QStringList(u"114 OAK ST"_s));
    copy->Close();
    database->Execute(u"DROP TABLE COMPS"_s);
    EXPECT_TRUE(database->TableNames().isEmpty());
    MakeTable();
    Add(u"5 NEW LN"_s, u"roof"_s);
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"5 NEW LN"_s));
}

} // namespace
} // namespace vasclip::engine
