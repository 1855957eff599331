// What time it is for a database is what the engine was handed, in every place that asks.

#include "platform/engine/home.h"
#include "platform/engine/memory_back_end.h"

namespace vasclip::engine {
namespace {

struct TimeTest : testing::TestWithParam<const char*>
{
    TimeTest()
    {
        home.time.now = QDateTime(QDate(1999, 12, 31), QTime(23, 59));
        home.engine.AddBackEnd(std::make_unique<MemoryBackEnd>(u".SRV"_s));
        database = MakeComps(home.engine, QString::fromLatin1(GetParam()), {{u"A1"_s, {}, {}, u"3/4"_s, {}}});
        TableDef dates;
        dates.name = u"DATES"_s;
        dates.fields = {TypedField(u"SOLD"_s, FieldType::Date)};
        database->CreateTable(dates);
    }

    QString Of(const QString& expression)
    {
        const auto rows = database->OpenRecordset(
            u"SELECT FORMAT("_s + expression + u", 'yyyy-mm-dd hh:nn') FROM COMPS"_s, RecordsetType::Dynaset);
        rows->MoveFirst();
        return rows->Value(0).toString();
    }

    Home home;
    std::shared_ptr<Database> database;
};

TEST_P(TimeTest, StatementsAndFieldsFollowTheClockThatTheEngineWasHanded)
{
    EXPECT_EQ(Of(u"NOW()"_s), u"1999-12-31 23:59"_s);
    EXPECT_EQ(Of(u"DATE()"_s), u"1999-12-31 00:00"_s);
    EXPECT_EQ(Of(u"#3/4#"_s), u"1999-03-04 00:00"_s);
    EXPECT_EQ(Of(u"CDATE(SALEDATE)"_s), u"1999-03-04 00:00"_s);

    home.time.now = home.time.now.addSecs(120);
    EXPECT_EQ(Of(u"NOW()"_s), u"2000-01-01 00:01"_s);
    EXPECT_EQ(Of(u"#3/4#"_s), u"2000-03-04 00:00"_s);
    EXPECT_EQ(Of(u"CDATE(SALEDATE)"_s), u"2000-03-04 00:00"_s);

    const auto dates = database->OpenRecordset(u"DATES"_s, RecordsetType::Table);
    dates->AddNew();
    dates->SetValue(u"SOLD"_s, u"3/4"_s);
    dates->Update();
    dates->MoveFirst();
    EXPECT_EQ(dates->Value(u"SOLD"_s).toDateTime().date(), QDate(2000, 3, 4));
}

INSTANTIATE_TEST_SUITE_P(Kinds, TimeTest, testing::Values("C:\\A.MDB", "C:\\A.SRV"),
                         [](const auto& kind) { return QString::fromLatin1(kind.param).right(3).toStdString(); });

TEST(TimeOfStatements, AnActionStatementWritesTheClocksDay)
{
    Home home;
    home.time.now = QDateTime(QDate(1999, 12, 31), QTime(23, 59));
    const auto database = MakeComps(home.engine, u"C:\\A.MDB"_s, {{u"A1"_s, {}, {}, {}, {}}});
    database->Execute(u"UPDATE COMPS SET SALEDATE = FORMAT(DATE(), 'mm/dd/yyyy')"_s);
    EXPECT_EQ(Column(*database->OpenRecordset(u"COMPS"_s, RecordsetType::Table), u"SALEDATE"_s),
              QStringList{u"12/31/1999"_s});
}

} // namespace
} // namespace vasclip::engine
