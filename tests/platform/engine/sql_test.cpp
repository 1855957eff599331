#include "platform/engine/home.h"
#include "platform/engine/sql_name.h"
#include "platform/engine/sqlite/sql_printer.h"

#include <random>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kFile = u"C:\\DATABOOK.MDB"_s;

struct SqlTest : testing::Test
{
    SqlTest()
        : database(MakeComps(home.engine, kFile,
                             {{u"A1"_s, u"Salem"_s, u"100000"_s, u"01/02/2004"_s, u"900"_s},
                              {u"B2"_s, u"SALEM  "_s, u"95000"_s, u"12/31/1999"_s, u"1500"_s},
                              {u"C3"_s, u"Dover"_s, u"1250000"_s, u"01/01/1900"_s, u"2200"_s},
                              {u"D4"_s, QString(), u"250000"_s, u"n/a"_s, u""_s},
                              {u"E5"_s, u"O'Neil"_s, QString(), u"7-Mar-04"_s, u"1000 sf"_s},
                              {u"F6%"_s, u"  "_s, u"$5"_s, QString(), u"20000"_s}}))
    {}

    QString Keys(const QString& sql)
    {
        const auto set = database->OpenRecordset(sql, RecordsetType::Dynaset);
        QString keys;
        for (const QString& key : Column(*set, u"CENTRALKEY"_s))
            keys += key.left(1);
        return keys;
    }

    Home home;
    std::shared_ptr<Database> database;
};

TEST_F(SqlTest, ConditionsSelect)
{
    const struct
    {
        const char16_t* where;
        const char16_t* keys; ///< first letters, in order of insertion
    } rows[] = {
        {u"", u"ABCDEF"},
        {u" WHERE UCASE(CITY) = 'SALEM'", u"AB"},
        {u" WHERE city='salem'", u"AB"},
        {u" WHERE CITY = 'Salem    '", u"AB"},
        {u" WHERE UCASE(CITY) LIKE '*ALE*'", u"AB"},
        {u" WHERE UCASE(COMPS.CITY) LIKE 'SALEM'", u"AB"},
        {u" WHERE CITY LIKE 's?lem'", u"AB"},
        {u" WHERE CENTRALKEY LIKE '[a-c]#'", u"ABC"},
        {u" WHERE CENTRALKEY LIKE '[!a-c]#*'", u"DEF"},
        {u" WHERE CENTRALKEY LIKE '*%'", u"F"},
        {u" WHERE CENTRALKEY LIKE '__'", u""},
        {u" WHERE CENTRALKEY NOT LIKE '*[1-4]'", u"EF"},
        {u" WHERE CITY LIKE '[[]a'", u""},
        {u" WHERE CITY = 'O''Neil'", u"E"},
        {u" WHERE CITY = \"O'Neil\"", u"E"},
        {u" WHERE GLA BETWEEN 1000 AND 2000", u"BE"},
        {u" WHERE GLA BETWEEN 900 AND 1500", u"ABE"},
        {u" WHERE GLA NOT BETWEEN 900 AND 1500", u"CDF"},
        {u" WHERE GLA BETWEEN 2000 AND 1000", u"BE"},
        {u" WHERE GLA BETWEEN 1500 AND -900", u"ABDE"},
        {u" WHERE GLA NOT BETWEEN 1500 AND 900", u"CDF"},
        {u" WHERE GLA BETWEEN VAL('2000') AND 1000", u"BE"},
        {u" WHERE CENTRALKEY BETWEEN 'd' AND 'B'", u"BC"},
        {u" WHERE SALEDATE BETWEEN #1/2/2004# AND #1/1/2000#", u"A"},
        {u" WHERE SELLINGPR > 95000", u"ACD"},
        {u" WHERE SELLINGPR BETWEEN VAL('90000') AND VAL('250000')", u"ABD"},
        {u" WHERE VAL(GLA) = 0", u"D"},
        {u" WHERE COMPS.SALEDATE <= #1/1/2000#", u"BC"},
        {u" WHERE COMPS.SALEDATE >= #01/02/2004# ", u"AE"},
        {u" WHERE COMPS.SALEDATE = #3/7/2004#", u"E"},
        {u" WHERE COMPS.SALEDATE <> #01/01/1900#", u"ABE"},
        {u" WHERE ISDATE(COMPS.SALEDATE)", u"ABCE"},
        {u" WHERE NOT ISDATE(SALEDATE)", u"DF"},
        {u" WHERE ISDATE(SALEDATE) = TRUE", u"ABCE"},
        {u" WHERE ISDATE(SALEDATE) = -1", u"ABCE"},
        {u" WHERE isnull(trim(CITY))<>False", u"D"},
        {u" WHERE isnull(CITY)=true", u"D"},
        {u" WHERE CITY IS NULL", u"D"},
        {u" WHERE CITY Is Not Null", u"ABCEF"},
        {u" WHERE CITY = NULL", u""},
        {u" WHERE CITY <> 'Salem'", u"CEF"},
        {u" WHERE TRIM(CITY) = ''", u"F"},
        {u" WHERE CITY IN ('dover', \"SALEM\")", u"ABC"},
        {u" WHERE CITY NOT IN ('dover', 'salem')", u"EF"},
        {u" WHERE GLA IN (900, 2200)", u"AC"},
        {u" WHERE CITY='Salem' AND GLA > 1000 OR CENTRALKEY = 'D4'", u"BD"},
        {u" WHERE CITY='Salem' AND (GLA > 1000 OR CENTRALKEY = 'A1')", u"AB"},
        {u" WHERE NOT CITY = 'Salem' AND NOT CITY = 'Dover'", u"EF"},
        {u" WHERE [COMPS].[CITY] = 'Dover'", u"C"},
        {u" WHERE comps.[City] = 'Dover'", u"C"},
        {u" WHERE LEN(CITY) > 5", u"BE"},
        {u" WHERE LEFT(CITY, 1) = 's' AND RIGHT(CENTRALKEY, 1) = '1'", u"A"},
        {u" WHERE MID(CITY, 2, 3) = 'ove'", u"C"},
        {u" WHERE MID(CITY, 2) = 'over'", u"C"},
        {u" WHERE INSTR(CITY, 'EM') = 4", u"AB"},
        {u" WHERE CITY & '-' & CENTRALKEY = 'Dover-C3'", u"C"},
        {u" WHERE NZ(CITY) = '' AND CENTRALKEY <> 'F6%'", u"D"},
        {u" WHERE NZ(CITY, 'Bend') = 'bend'", u"D"},
        {u" WHERE IIF(ISNULL(CITY), 1, 2) = 1", u"D"},
        {u" WHERE ABS(-GLA) = 900", u"A"},
        {u" WHERE INT(GLA / 1000) = 1", u"BE"},
        {u" WHERE GLA * 2 + 100 - 50 = 1850", u"A"},
        {u" WHERE STR(GLA) = ' 900'", u"A"},
        {u" WHERE CDATE(SALEDATE) < CDATE('1/1/1950')", u"C"},
        {u" WHERE FORMAT(SALEDATE, 'yyyy') = '2004'", u"AE"},
        {u" WHERE FORMAT(GLA, '00000') = '00900'", u"A"},
        {u" WHERE SALEDATE < NOW() AND SALEDATE <> DATE()", u"ABCE"},
        {u" WHERE -(1) = TRUE AND CENTRALKEY='A1'", u"A"},
        {u" WHERE CITY > 'Dover' AND CITY < 'Salem'", u"E"},
        {u" WHERE CENTRALKEY = 'a1';", u"A"},
        {u" WHERE CENTRALKEY = 'a1' ; ", u"A"},
        {u" WHERE FRONTPHOTO IS NULL AND PHOTOS IS NULL AND CENTRALKEY='A1'", u"A"},
        {u" ORDER BY COMPS.SELLINGPR DESC", u"CDABFE"},
        {u" ORDER BY SELLINGPR", u"EFBADC"},
        {u" WHERE ISDATE(COMPS.SALEDATE) ORDER BY COMPS.SALEDATE DESC", u"EABC"},
        {u" WHERE CITY IS NOT NULL ORDER BY CITY DESC, GLA DESC", u"BAECF"},
        {u" ORDER BY CENTRALKEY DESC", u"FEDCBA"},
        {u" WHERE CITY = 'Salem' ORDER BY VAL(GLA) DESC", u"BA"},
    };
    for (const auto& row : rows) {
        const QString sql = u"SELECT * FROM COMPS"_s + QString::fromUtf16(row.where);
        SCOPED_TRACE(sql.toStdString());
        QString keys;
        EXPECT_NO_THROW(keys = Keys(sql));
        EXPECT_EQ(keys.toStdString(), QString::fromUtf16(row.keys).toStdString());
    }
}

TEST_F(SqlTest, RefusedStatementsSayWhere)
{
    const struct
    {
        const char16_t* sql;
        int number;
        const char16_t* says;
    } rows[] = {
        {u"SELECT * FROM COMPS WHERE UCASE(CITY) LIKE '*O'NEIL*'", 3075, u"position 48, near \"NEIL*'\""},
        {u"SELECT * FROM COMPS WHERE CITY = 'x'; DROP TABLE COMPS", 3075,
         u"position 39, near \"DROP TABLE COMPS\""},
        {u"SELECT * FROM COMPS WHERE CITY = 'x';;", 3075, u"position 38"},
        {u"SELECT * FROM COMPS WHERE CITY = 'x' -- more", 3061, u"'more'"},
        {u"SELECT * FROM COMPS WHERE CITY = 'open", 3075, u"position 34"},
        {u"SELECT * FROM COMPS WHERE", 3075, u"end of the statement"},
        {u"SELECT * FROM COMPS WHERE CITY =", 3075, u"end of the statement"},
        {u"SELECT * FROM", 3075, u"table"},
        {u"SELECT FROM COMPS", 3075, u"position 8"},
        {u"SELECT * FROM COMPS, CITIES", 3075, u"one table"},
        {u"SELECT * FROM COMPS INNER JOIN CITIES", 3075, u"position 21"},
        {u"SELECT CITY FROM COMPS GROUP BY CITY", 3075, u"position 24"},
        {u"SELECT * FROM COMPS WHERE CITY IN (SELECT CITY FROM COMPS)", 3075, u"position 36"},
        {u"SELECT * FROM COMPS WHERE SALEDATE = #what#", 3075, u"not a date"},
        {u"SELECT * FROM COMPS WHERE SALEDATE = #1/1/2000", 3075, u"position 38"},
        {u"SELECT * FROM COMPS WHERE [CITY = 'x'", 3075, u"position 27"},
        {u"SELECT * FROM COMPS WHERE GLA = 12abc", 3075, u"position 33"},
        {u"SELECT * FROM COMPS WHERE GLA ! 5", 3075, u"position 31"},
        {u"SELECT * FROM COMPS WHERE SHELL('x') = 1", 3075, u"no function SHELL"},
        {u"SELECT * FROM COMPS WHERE LEFT(CITY) = 'x'", 3075, u"LEFT takes 2 arguments"},
        {u"SELECT * FROM COMPS WHERE COUNT(*) > 1", 3075, u"condition"},
        {u"SELECT * FROM COMPS WHERE CITY LIKE '*[a*'", 3075,
         u"position 37, near \"'*[a*'\": a pattern of LIKE has a \"[\" that no \"]\" closes"},
        {u"SELECT * FROM COMPS WHERE CITY NOT LIKE 'a[]'", 3075, u"a \"[\" that no \"]\" closes"},
        {u"SELECT * FROM COMPS WHERE CITY LIKE TRIM(' [a')", 3075, u"a \"[\" that no \"]\" closes"},
        {u"PRAGMA writable_schema=1", 3078, u"no table"},
        {u"SELECT COUNT(*), CITY FROM COMPS", 3075, u"mixed"},
        {u"SELECT * FROM COMPS WHERE TOWN = 'x' AND ROAD = 'y'", 3061,
         u"'TOWN' (position 27), 'ROAD' (position 42)"},
        {u"SELECT TOWN FROM COMPS", 3061, u"'TOWN'"},
        {u"SELECT * FROM COMPS ORDER BY OTHER.CITY", 3061, u"'OTHER.CITY'"},
        {u"SELECT * FROM vas_tables", 3078, u"vas_tables"},
        {u"SELECT * FROM sqlite_master", 3078, u"sqlite_master"},
        {u"SELECT * FROM NOWHERE", 3078, u"NOWHERE"},
        {u"SELECT * INTO [C:\\NONE.MDB].[X] FROM COMPS", 3219, u""},
    };
    for (const auto& row : rows) {
        const QString sql = QString::fromUtf16(row.sql);
        SCOPED_TRACE(sql.toStdString());
        QString text;
        const int number =
            ErrorOf([&] { static_cast<void>(database->OpenRecordset(sql, RecordsetType::Dynaset)); }, &text);
        if (row.number == 3219) {
            EXPECT_NE(number, 0);
            continue;
        }
        EXPECT_EQ(number, row.number) << text.toStdString();
        EXPECT_TRUE(text.contains(QString::fromUtf16(row.says))) << text.toStdString();
        EXPECT_FALSE(text.endsWith(u'.'));
    }
    EXPECT_EQ(database->TableNames(), QStringList{u"COMPS"_s});
}

TEST_F(SqlTest, DeepTextsAreRefusedAndNotFatal)
{
    const QString deep = u"SELECT * FROM COMPS WHERE "_s + QString(100'000, u'(') + u"1"_s;
    EXPECT_EQ(ErrorOf([&] { Keys(deep); }), error::kSyntax);
    EXPECT_EQ(ErrorOf([&] { Keys(u"SELECT * FROM COMPS WHERE "_s + u"NOT "_s.repeated(50'000) + u"1"_s); }),
              error::kSyntax);
    EXPECT_EQ(ErrorOf([&] { Keys(u"SELECT * FROM COMPS WHERE "_s + QString(50'000, u'-') + u"1"_s); }),
              error::kSyntax);
    QString wide = u"SELECT * FROM COMPS WHERE GLA=0"_s;
    for (int i = 0; i < 300; ++i)
        wide += u" OR GLA=900"_s;
    EXPECT_EQ(Keys(wide), u"AD"_s);
    EXPECT_EQ(Keys(u"SELECT * FROM COMPS WHERE "_s + QString(20, u'(') + u"GLA=900"_s + QString(20, u')')),
              u"A"_s);
    EXPECT_EQ(ErrorOf([&] { Keys(u"SELECT * FROM COMPS WHERE GLA=1"_s + u"+1"_s.repeated(400)); }),
              error::kSyntax);
    EXPECT_EQ(ErrorOf([&] { Keys(u"SELECT * FROM COMPS WHERE GLA=1"_s + u" OR GLA=1"_s.repeated(100'000)); }),
              error::kSyntax);
}

TEST_F(SqlTest, ListsCountsAndDistinct)
{
    auto set = database->OpenRecordset(
        u"SELECT COUNT(*) AS N, MAX(VAL(GLA)) FROM COMPS WHERE CITY LIKE '*'"_s, RecordsetType::Dynaset);
    EXPECT_EQ(set->RecordCount(), 1);
    EXPECT_EQ(set->Value(u"N"_s).toInt(), 5);
    EXPECT_EQ(set->Value(1).toInt(), 20000);
    EXPECT_FALSE(set->Updatable());
    EXPECT_EQ(set->Peek(0, {0}).front().toInt(), 5);
    EXPECT_EQ(ErrorOf([&] { set->Edit(); }), error::kFileIsReadOnly);

    set = database->OpenRecordset(u"SELECT DISTINCT CITY FROM COMPS WHERE CITY IS NOT NULL ORDER BY CITY"_s,
                                  RecordsetType::Dynaset);
    EXPECT_EQ(Column(*set, u"CITY"_s), QStringList({u"  "_s, u"Dover"_s, u"O'Neil"_s, u"Salem"_s}));

    set = database->OpenRecordset(
        u"SELECT CENTRALKEY & '/' & CITY AS BOTH, GLA * 2 AS TWICE FROM COMPS WHERE CITY='dover'"_s,
        RecordsetType::Dynaset);
    EXPECT_EQ(set->Value(u"BOTH"_s), u"C3/Dover"_s);
    EXPECT_EQ(set->Value(u"twice"_s).toDouble(), 4400);
    set->Edit();
    EXPECT_EQ(ErrorOf([&] { set->SetValue(u"BOTH"_s, u"x"_s); }), error::kInvalidOperation);
}

TEST_F(SqlTest, ActionStatements)
{
    EXPECT_EQ(database->Execute(u"UPDATE COMPS SET CITY = 'Bend', GLA = GLA + 10 WHERE CITY = 'salem'"_s), 2);
    EXPECT_EQ(Keys(u"SELECT * FROM COMPS WHERE CITY='bend' AND GLA IN (910, 1510)"_s), u"AB"_s);
    EXPECT_EQ(database->Execute(u"INSERT INTO COMPS (CENTRALKEY, CITY) VALUES ('G7', UCASE('bend'))"_s), 1);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"INSERT INTO COMPS (CENTRALKEY) VALUES ('g7 ')"_s); }),
              error::kDuplicateKey);
    EXPECT_EQ(database->Execute(u"DELETE * FROM COMPS WHERE CITY='bend'"_s), 3);
    EXPECT_EQ(database->Execute(u"DELETE FROM COMPS"_s), 4);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * FROM COMPS"_s); }), error::kInvalidOperation);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"DROP TABLE NOWHERE"_s); }), error::kTableNotFound);
    EXPECT_EQ(database->Execute(u"DROP TABLE [COMPS]"_s), 0);
    EXPECT_TRUE(database->TableNames().isEmpty());
}

TEST_F(SqlTest, AFailingStatementChangesNothing)
{
    QString text;
    EXPECT_EQ(
        ErrorOf(
            [&] { database->Execute(u"UPDATE COMPS SET GLA = CENTRALKEY & '123456' WHERE GLA > 1000"_s); },
            &text),
        error::kFieldTooLong);
    EXPECT_TRUE(text.contains(u"'GLA'"_s) && text.contains(u"7"_s)) << text.toStdString();
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"UPDATE COMPS SET CENTRALKEY = 'same'"_s); }),
              error::kDuplicateKey);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"UPDATE COMPS SET CENTRALKEY = NULL"_s); }),
              error::kValueRequired);
    EXPECT_EQ(
        ErrorOf([&] { database->Execute(u"INSERT INTO COMPS (CENTRALKEY, TOWN) VALUES ('x', 'y')"_s); }),
        error::kUnknownInsertField);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"INSERT INTO COMPS (CENTRALKEY) VALUES ('x', 'y')"_s); }),
              error::kValueCount);
    EXPECT_EQ(Keys(u"SELECT * FROM COMPS"_s), u"ABCDEF"_s);
}

TEST_F(SqlTest, OtherFilesByTheirPath)
{
    const QString export_ = u"C:\\EXPORT.MDB"_s;
    auto other = home.engine.CreateDatabase(export_);
    EXPECT_EQ(database->Execute(
                  u"SELECT * INTO [C:\\EXPORT.MDB].[COMPS] FROM [COMPS] WHERE GLA > 900 ORDER BY GLA"_s),
              4);
    const TableDef copy = other->Table(u"comps"_s);
    EXPECT_EQ(copy.fields.size(), 7);
    EXPECT_EQ(copy.fields[0].size, 35);
    EXPECT_EQ(copy.fields[2].sortsAs, SortsAs::Number);
    EXPECT_EQ(copy.fields[5].type, FieldType::Memo);
    EXPECT_TRUE(copy.indexes.isEmpty());
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * INTO [C:\\EXPORT.MDB].[COMPS] FROM [COMPS] "_s); }),
              error::kTableExists);

    database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY <> 'B2'"_s);
    // A duplicate is left out silently, the rest goes in.
    EXPECT_EQ(database->Execute(u" INSERT INTO C:\\DATABOOK.[COMPS] SELECT * FROM C:\\EXPORT.[COMPS];"_s), 3);
    EXPECT_EQ(Keys(u"SELECT * FROM COMPS ORDER BY CENTRALKEY"_s), u"BCEF"_s);
    EXPECT_EQ(other->Execute(
                  u"INSERT INTO c:\\databook.mdb.COMPS (CENTRALKEY) SELECT CENTRALKEY & '!' FROM COMPS"_s),
              4);
    EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 8);

    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * INTO [C:\\NONE.MDB].[X] FROM COMPS"_s); }),
              error::kDatabaseNotFound);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * INTO [Q:\\NONE.MDB].[X] FROM COMPS"_s); }),
              error::kDeviceUnavailable);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * INTO [C:\\EXPORT.MDB].[vas_x] FROM COMPS"_s); }),
              error::kSyntax);
    EXPECT_EQ(other->TableNames(), QStringList{u"COMPS"_s});
}

TEST_F(SqlTest, PathsWithBlanksAndApostrophes)
{
    home.disk.MkDir(u"C:\\Bob's Data"_s);
    const auto other = home.engine.CreateDatabase(u"C:\\Bob's Data\\My Export.MDB"_s);
    EXPECT_EQ(database->Execute(u"SELECT CENTRALKEY INTO C:\\Bob's Data\\My Export.[Some Keys] FROM COMPS"_s),
              6);
    EXPECT_EQ(
        database->Execute(u"SELECT CENTRALKEY INTO [C:\\Bob's Data\\My Export.MDB].[More] FROM COMPS"_s), 6);
    EXPECT_EQ(other->TableNames(), QStringList({u"Some Keys"_s, u"More"_s}));
}

TEST_F(SqlTest, ABracketWithinANameIsDoubled)
{
    home.disk.MkDir(u"C:\\[Old] Books"_s);
    const QString path = u"C:\\[Old] Books\\My [1].MDB"_s;
    const auto other = home.engine.CreateDatabase(path);
    const QString file = Bracketed(path);
    EXPECT_EQ(file, u"[C:\\[Old]] Books\\My [1]].MDB]"_s);
    EXPECT_EQ(database->Execute(u"SELECT CENTRALKEY INTO "_s + file + u".[Keys] FROM COMPS"_s), 6);
    EXPECT_EQ(database->Execute(u"INSERT INTO "_s + file + u".[Keys] SELECT CENTRALKEY FROM COMPS"_s), 6);
    EXPECT_EQ(other->Execute(u"DELETE FROM [Keys]"_s), 12);
    QString text;
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * INTO "_s + file + u'.' + Bracketed(u"A]B"_s) + u" FROM COMPS"_s); },
                      &text),
              error::kSyntax);
    EXPECT_TRUE(text.contains(u"'A]B' can not be the name of a table"_s)) << text.toStdString();
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * FROM [COMPS]]"_s); }), error::kSyntax);
}

TEST_F(SqlTest, MoreFilesThanSqliteAttaches)
{
    Transaction transaction(*database);
    for (int i = 0; i < 14; ++i) {
        const QString path = u"C:\\E%1.MDB"_s.arg(i);
        static_cast<void>(home.engine.CreateDatabase(path));
        const int number =
            ErrorOf([&] { database->Execute(u"SELECT * INTO [%1].[COMPS] FROM COMPS"_s.arg(path)); });
        EXPECT_EQ(number, i < 10 ? 0 : error::kTooManyDatabases) << i;
    }
    transaction.Commit();
    for (int i = 0; i < 14; ++i)
        EXPECT_EQ(database->Execute(u"SELECT * INTO [C:\\E%1.MDB].[MORE] FROM COMPS"_s.arg(i)), 6);
}

TEST_F(SqlTest, AReadOnlyTargetIsRefusedAndASourceIsNot)
{
    MakeComps(home.engine, u"C:\\OLD.MDB"_s, {{u"Z9"_s, u"Bend"_s, {}, {}, {}}});
    home.disk.SetAttr(u"C:\\OLD.MDB"_s, files::ReadOnly);
    EXPECT_EQ(ErrorOf([&] { database->Execute(u"SELECT * INTO [C:\\OLD.MDB].[MORE] FROM COMPS"_s); }),
              error::kFileIsReadOnly);
    EXPECT_EQ(database->Execute(u"INSERT INTO COMPS SELECT * FROM C:\\OLD.[COMPS]"_s), 1);
    EXPECT_EQ(Keys(u"SELECT * FROM COMPS WHERE CITY='bend'"_s), u"Z"_s);
}

/// One table for the pure translation.
struct OneTable final : sql::Catalog
{
    TableDef table = SmallComps();
    const TableDef* Find(const QString&, const QString& name) override
    {
        return name.compare(table.name, Qt::CaseInsensitive) == 0 ? &table : nullptr;
    }
};

sql::Plan Translated(const QString& sql)
{
    OneTable tables;
    return sql::Print(sql::Type(sql, tables, tests::SomeTime()), [](const QString& database) {
        return database.isEmpty() ? u"main"_s : u"file1"_s;
    });
}

TEST(Translate, GivesSqliteTextAndBindings)
{
    const struct
    {
        const char16_t* sql;
        const char16_t* text;
        QVariantList bindings;
    } rows[] = {
        {u"SELECT CITY FROM COMPS", u"SELECT vas_id FROM \"main\".\"COMPS\"", {}},
        {u"SELECT * FROM comps WHERE UCASE(CITY) = 'A\"B'",
         u"SELECT vas_id FROM \"main\".\"COMPS\" WHERE (\"CITY\" COLLATE VAS = ?1 COLLATE VAS)",
         {u"A\"B"_s}},
        {u"SELECT * FROM COMPS WHERE GLA BETWEEN 1 AND 2.5",
         u"SELECT vas_id FROM \"main\".\"COMPS\" WHERE (vas_num(\"GLA\") BETWEEN ?1 AND ?2)",
         {1, 2.5}},
        {u"SELECT * FROM COMPS ORDER BY Comps.SELLINGPR DESC, CITY",
         u"SELECT vas_id FROM \"main\".\"COMPS\" ORDER BY vas_num(\"SELLINGPR\") DESC, \"CITY\" COLLATE VAS",
         {}},
        {u"SELECT * FROM COMPS WHERE CITY LIKE '*a*' AND CITY LIKE GLA",
         u"SELECT vas_id FROM \"main\".\"COMPS\" WHERE ((vas_like(\"CITY\", ?1)) AND (vas_like(\"CITY\", "
         u"vas_pattern(\"GLA\"))))",
         {u"*a*"_s}},
        {u"DELETE FROM COMPS WHERE SALEDATE <= #1/1/1900#",
         u"DELETE FROM \"main\".\"COMPS\" WHERE (vas_date(\"SALEDATE\") <= ?1)",
         {2.0}},
        {u"UPDATE COMPS SET CITY = 'x' WHERE CITY IS NULL",
         u"UPDATE \"main\".\"COMPS\" SET \"CITY\" = vas_fit(?1, 20, ?2), vas_version = vas_version + 1 WHERE "
         u"(\"CITY\" IS NULL)",
         {u"x"_s, u"CITY"_s}},
        {u"INSERT INTO C:\\A\\B.[COMPS] (CENTRALKEY) SELECT CENTRALKEY FROM COMPS",
         u"INSERT OR IGNORE INTO \"file1\".\"COMPS\"(\"CENTRALKEY\") SELECT \"CENTRALKEY\" FROM "
         u"\"main\".\"COMPS\" WHERE "
         "\"CENTRALKEY\" IS NOT NULL",
         {}},
    };
    for (const auto& row : rows) {
        const QString sql = QString::fromUtf16(row.sql);
        SCOPED_TRACE(sql.toStdString());
        const sql::Plan plan = Translated(sql);
        EXPECT_EQ(plan.sql.toStdString(), QString::fromUtf16(row.text).toStdString());
        EXPECT_EQ(plan.bindings, row.bindings);
    }
}

TEST(Translate, MangledStatementsAreTranslatedOrRefused)
{
    const QString seeds[] = {
        u"SELECT COMPS.CITY, COMPS.PHOTOS FROM COMPS WHERE UCASE(CITY) LIKE '*A*' AND GLA BETWEEN 1 AND 2 ORDER BY GLA DESC;"_s,
        u" INSERT INTO C:\\DATABOOK\\DATABOOK.[COMPS] SELECT * FROM C:\\DATABOOK\\EXPORT.[COMPS];"_s,
        u"SELECT * INTO [C:\\EXPORT.MDB].[NEW] FROM [COMPS] WHERE isnull(trim(CITY))<>False OR SALEDATE<=#1/2/2004#"_s,
        u"UPDATE COMPS SET CITY = IIF(GLA IN (1, 2), 'a', \"b\") WHERE NOT (GLA IS NULL) AND VAL(GLA)/2+1 > -1"_s,
        u"INSERT INTO COMPS (CENTRALKEY, CITY) VALUES ('O''Neil', FORMAT(NOW(), 'yyyy') & NZ(NULL))"_s,
    };
    const QString pieces = u"'\"#[]().,;*&<>=-+/\\ %:aZ09_\n"_s;
    std::mt19937 random(20040307);
    const auto below = [&](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<quint32>(limit));
    };
    int refused = 0;
    constexpr int kRounds = 20'000;
    for (int round = 0; round < kRounds; ++round) {
        QString sql = seeds[below(std::size(seeds))];
        for (qsizetype change = 1 + below(3); change > 0 && !sql.isEmpty(); --change) {
            const qsizetype at = below(sql.size());
            if (round % 3 == 0)
                sql.remove(at, 1 + below(6));
            else if (round % 3 == 1)
                sql.insert(at, pieces[below(pieces.size())]);
            else
                sql.truncate(at);
        }
        QString text;
        const int number =
            ErrorOf([&] { static_cast<void>(Translated(sql)); }, &text);
        refused += number != 0 ? 1 : 0;
        EXPECT_EQ(text.isEmpty(), number == 0) << sql.toStdString();
    }
    EXPECT_GT(refused, kRounds / 2);
}

} // namespace
} // namespace vasclip::engine
