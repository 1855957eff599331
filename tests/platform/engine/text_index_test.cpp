#include "home.h"

#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

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
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 1000));
    for (qsizetype i = 0; i < searches.size(); ++i)
        EXPECT_EQ(Find(searches[i]), before[i]) << searches[i].toStdString();
}

TEST_F(TextIndexes, StayCurrentThroughEveryKindOfChange)
{
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 1000));
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
    EXPECT_FALSE(database->KeepTextIndex(u"COMPS"_s, kFields, 0));
    Add(u"ADDED MEANWHILE"_s, u"late"_s);
    database->Execute(u"UPDATE COMPS SET NOTES = 'early' WHERE NAME = '3 OAK ST'"_s);     // known already
    database->Execute(u"UPDATE COMPS SET NOTES = 'latter' WHERE NAME = '8999 OAK ST'"_s); // not yet
    database->Execute(u"DELETE FROM COMPS WHERE NAME = '4 OAK ST' OR NAME = '8998 OAK ST'"_s);
    EXPECT_EQ(Find(u"early"_s), QStringList(u"3 OAK ST"_s)) << "while it is made, the rows answer";
    while (!database->KeepTextIndex(u"COMPS"_s, kFields, 0)) {
    }
    EXPECT_EQ(Find(u"early"_s), QStringList(u"3 OAK ST"_s));
    EXPECT_EQ(Find(u"latter"_s), QStringList(u"8999 OAK ST"_s));
    EXPECT_EQ(Find(u"late"_s), QStringList(u"ADDED MEANWHILE"_s));
    EXPECT_EQ(Find(u"OAK"_s).size(), 8998);
}

TEST_F(TextIndexes, AreMadeAnewWhenTheyAreNotTheRightOnes)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, {u"NAME"_s}, 1000));
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s)) << "one of other fields is not asked";
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 1000));
    EXPECT_EQ(Find(u"roof"_s), QStringList(u"114 OAK ST"_s));

    database->Close();
    Raw("DROP TRIGGER vas_text_COMPS_changed;"
        "UPDATE COMPS SET NOTES = 'cellar'");
    database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    EXPECT_EQ(Find(u"cellar"_s), QStringList(u"114 OAK ST"_s)) << "one that went stale is not asked";
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 1000));
    EXPECT_EQ(Find(u"cellar"_s), QStringList(u"114 OAK ST"_s));

    database->Close();
    Raw("DELETE FROM vas_text_COMPS_data WHERE id > 1");
    database = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s);
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 1000));
    static_cast<void>(Find(u"cellar"_s)); // whatever a damaged one says, it does no harm
    EXPECT_NO_THROW(Add(u"22 FERRY RD"_s, u"river"_s));
}

TEST_F(TextIndexes, ReadOnlyFilesAnswerFromTheirRows)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    const auto reader = home.engine.OpenDatabase(u"C:\\TEXT.MDB"_s, OpenMode::ReadOnly);
    EXPECT_TRUE(reader->KeepTextIndex(u"COMPS"_s, kFields, 1000)) << "there is nothing that it could do";
    EXPECT_EQ(Find(u"roof"_s, reader.get()), QStringList(u"114 OAK ST"_s));
    EXPECT_THROW(static_cast<void>(reader->KeepTextIndex(u"NONE"_s, kFields, 1)), RuntimeError);
    EXPECT_THROW(static_cast<void>(reader->KeepTextIndex(u"COMPS"_s, {u"NONE"_s}, 1)), RuntimeError);
}

TEST_F(TextIndexes, GoWithTheirTableAndWithACopy)
{
    Add(u"114 OAK ST"_s, u"roof"_s);
    ASSERT_TRUE(database->KeepTextIndex(u"COMPS"_s, kFields, 1000));
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
