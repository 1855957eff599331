#include "store/record.h"

#include "platform/engine/errors.h"
#include "support/databook_home.h"
#include "support/error_number.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

const QString kByKey = u"SELECT * FROM COMPS ORDER BY CENTRALKEY"_s;

/// Three comps, added in another order than that of their keys.
class RowsTest : public tests::DatabookHome
{
protected:
    store::DataSource book{engine, u"datDatabook"_s}, query{engine, u"datsql"_s};

    void SetUp() override
    {
        DatabookHome::SetUp();
        AddComps({u"2 B ST"_s, u"3 C ST"_s, u"1 A ST"_s});
        Bind(book);
        query.ShareDatabase(book);
        query.SetDatabaseName(path);
        query.Select(kByKey);
    }
    /// Another user, whose changes nobody here hears of.
    void DeleteElsewhere(const QString& address)
    {
        engine::Engine other(disk, tests::SomeTime());
        const auto database = other.OpenDatabase(path);
        database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '%1'"_s.arg(address));
        database->Close();
    }
    [[nodiscard]] QString KeyAt(const store::Rows& rows, qint64 place) const
    {
        const auto record = rows.At(place);
        return record ? record->Text(key) : u"gone"_s;
    }
};

TEST_F(RowsTest, ComeInTheirOrderAndLeaveEveryCursorAlone)
{
    ASSERT_TRUE(store::FindRecord(ports, book, u"3 C ST"_s, key));
    query.MoveLast();
    store::Rows rows = store::ReadRows(book, kByKey);
    EXPECT_EQ(rows.Count(), 3);
    QStringList keys;
    while (const auto record = rows.Next())
        keys.append(record->Text(key));
    EXPECT_EQ(keys, (QStringList{u"1 A ST"_s, u"2 B ST"_s, u"3 C ST"_s}));
    EXPECT_FALSE(rows.Next());
    EXPECT_EQ(KeyAt(rows, 1), u"2 B ST"_s);
    EXPECT_EQ(store::GetFieldData(book, key), u"3 C ST"_s);
    EXPECT_EQ(store::GetFieldData(query, key), u"3 C ST"_s);
}

TEST_F(RowsTest, OneThatIsGoneIsToldByItsPlaceAndEndsTheWalk)
{
    store::Rows rows = store::ReadRows(book, kByKey);
    DeleteElsewhere(u"2 B ST"_s);
    EXPECT_EQ(KeyAt(rows, 0), u"1 A ST"_s);
    EXPECT_EQ(KeyAt(rows, 1), u"gone"_s);
    EXPECT_EQ(KeyAt(rows, 2), u"3 C ST"_s);
    EXPECT_TRUE(rows.Next());
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(rows.Next()); }), error::kRecordDeleted);
}

TEST_F(RowsTest, ALongBinaryValueIsReadWhenItIsAskedFor)
{
    {
        const auto database = engine.OpenDatabase(path);
        const auto records = database->OpenRecordset(table, engine::RecordsetType::Table);
        records->SetIndex(u"Centralkey"_s);
        records->Seek(u"="_s, u"2 B ST"_s);
        records->Edit();
        records->AppendChunk(u"FRONTPHOTO"_s, QByteArray("jpeg"));
        records->Update();
    }
    const store::Rows rows = store::ReadRows(book, u"SELECT FRONTPHOTO, CENTRALKEY FROM COMPS ORDER BY CENTRALKEY"_s);
    ASSERT_EQ(rows.Fields().size(), 2);
    const auto record = rows.At(1);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->Text(key), u"2 B ST"_s);
    EXPECT_FALSE(record->Values()[0].isValid());
    EXPECT_EQ(record->Values()[1].toString().trimmed(), u"2 B ST"_s);
    EXPECT_EQ(rows.LongAt(1, 0).toByteArray(), QByteArray("jpeg"));
    EXPECT_FALSE(rows.LongAt(0, 0).isValid());
    const store::Rows longs = store::ReadRows(book, u"SELECT FRONTPHOTO FROM COMPS ORDER BY CENTRALKEY"_s);
    ASSERT_TRUE(longs.At(1)) << "nothing but long values";
    EXPECT_EQ(longs.LongAt(1, 0).toByteArray(), QByteArray("jpeg"));
}

TEST_F(RowsTest, WhatIsWrongHasTheEnginesNumber)
{
    const auto number = [&](const QString& sql) {
        return tests::NumberOf([&] { static_cast<void>(store::ReadRows(book, sql)); });
    };
    EXPECT_EQ(number(u"SELECT FROM"_s), error::kSyntax);
    EXPECT_EQ(number(u"SELECT NOFIELD FROM COMPS"_s), error::kParameterUnknown);
    EXPECT_EQ(number(u"SELECT * FROM NOTABLE"_s), error::kTableUnknown);
    const store::DataSource unbound(engine, u"datmap"_s);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(store::ReadRows(unbound, kByKey)); }), error::kNoObject);
    const store::Rows rows = store::ReadRows(book, kByKey);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(rows.At(3)); }), error::kNoCurrentRecord);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(rows.At(0)->Value(u"NOFIELD"_s)); }), error::kFieldUnknown);
}

TEST_F(RowsTest, ATableIsCounted)
{
    EXPECT_EQ(store::CountRows(book.Database(), table), 3);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(store::CountRows(book.Database(), u"NOTABLE"_s)); }),
              error::kTableUnknown);
}

// --- what is asked of a source ---------------------------------------------------------------------------------

TEST_F(RowsTest, ASourceTellsWhatIsBound)
{
    EXPECT_TRUE(book.Updatable());
    EXPECT_EQ(book.Count(), 3);
    EXPECT_EQ(book.Fields().at(book.FieldIndex(u"CentralKey"_s)).name, key);
    EXPECT_EQ(book.FieldIndex(u"NOFIELD"_s), -1);
    EXPECT_EQ(query.Kind(), store::SourceKind::Query);
    const store::DataSource unbound(engine, u"datmap"_s);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(unbound.Count()); }), error::kNoObject);
}

TEST_F(RowsTest, AMoveGoesFromTheFirstRecordBehindTheLast)
{
    QStringList keys;
    for (query.MoveFirst(); !query.AtEnd(); query.MoveNext())
        keys.append(query.Value(key).toString().trimmed());
    EXPECT_EQ(keys, (QStringList{u"1 A ST"_s, u"2 B ST"_s, u"3 C ST"_s}));
    EXPECT_EQ(tests::NumberOf([&] { query.MoveNext(); }), error::kNoCurrentRecord);
    query.MoveLast();
    EXPECT_EQ(store::GetFieldData(query, key), u"3 C ST"_s);
}

TEST_F(RowsTest, AQueryKnowsItsRecordsByTheirPlaces)
{
    const QList<int> fields{query.FieldIndex(key)};
    EXPECT_EQ(query.ValuesAt(2, fields).value(0).toString().trimmed(), u"3 C ST"_s);
    EXPECT_EQ(store::GetFieldData(query, key), u"1 A ST"_s) << "where it stands stays";
    ASSERT_TRUE(store::FindRecord(ports, book, u"2 B ST"_s, key));
    EXPECT_EQ(query.PlaceOf(book), 1);
    store::DataSource few(engine, u"few"_s);
    few.ShareDatabase(book);
    few.SetDatabaseName(path);
    few.Select(u"SELECT * FROM COMPS WHERE CENTRALKEY > '2 C'"_s);
    EXPECT_EQ(few.PlaceOf(book), -1);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(book.ValuesAt(0, fields)); }), error::kInvalidOperation);
}

TEST_F(RowsTest, WhatCanNotBeOpenedLeavesTheNamesOfWhatIs)
{
    EXPECT_EQ(tests::NumberOf([&] { query.Select(u"SELECT * FROM NOTABLE"_s); }), error::kTableUnknown);
    EXPECT_EQ(query.RecordSource(), kByKey);
    EXPECT_EQ(tests::NumberOf([&] { query.Open(u"C:\\GONE.MDB"_s, table, store::SourceKind::Table); }), 3024);
    EXPECT_EQ(query.DatabaseName(), path);
    EXPECT_EQ(query.Kind(), store::SourceKind::Query);
    query.Refresh();
    EXPECT_EQ(query.Count(), 3);
}

} // namespace
