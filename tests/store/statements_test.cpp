// Every statement that the program builds, run against the tables that the program makes.

#include "support/databook_home.h"
#include "support/error_number.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

/// The column list of the grid and, with its own tail, of a search. PHOTOS is in it twice.
const QString kShared =
    u"COMPS.FRONT,COMPS.CENTRALKEY,COMPS.ADDRESS, COMPS.PHOTOS, COMPS.CITY, COMPS.ST, COMPS.ZIP, "
    u"COMPS.COUNTY, "
    u"COMPS.NEIGHBORHD, COMPS.CENSUSTRCT, COMPS.TAXMAPNUM, COMPS.GLA, COMPS.SELLINGPR, COMPS.PRICEGLA, "
    u"COMPS.BEDROOM, COMPS.BATH, COMPS.AGE, COMPS.APPRSLTYPE, COMPS.STRCODE, COMPS.CTSCODE, COMPS.LOADDATE, "
    u"COMPS.SALEDATE, COMPS.PORCHPATI2, COMPS.BASEMENT, "_s;
const QString kGrid =
    u"SELECT "_s + kShared +
    u"COMPS.LONGITUDE, COMPS.LATITUDE, COMPS.ANCHORED, COMPS.DESIGNAPPL, COMPS.NOTES FROM COMPS"_s;
const QString kSearch = u"SELECT "_s + kShared +
                        u"COMPS.PHOTOS, COMPS.LONGITUDE, COMPS.LATITUDE, COMPS.ANCHORED, Comps.DESIGNAPPL, "
                        u"COMPS.LANDSIZE, COMPS.NOTES FROM COMPS"_s;

/// Six comps: by the first letter of the key, what each holds is told beside it.
class Statements : public tests::DatabookHome
{
protected:
    void SetUp() override
    {
        DatabookHome::SetUp();
        const auto comp = [this](const QString& name, Values values) {
            values.append({{key, name.leftJustified(35)}, {u"ADDRESS"_s, name}});
            return values;
        };
        AddRows({
            comp(u"A ST"_s, {{u"CITY"_s, u"Salem"_s},
                             {u"ST"_s, u"OH"_s},
                             {u"GLA"_s, u"1000"_s},
                             {u"SELLINGPR"_s, u"85000"_s},
                             {u"AGE"_s, u"10"_s},
                             {u"PRICEGLA"_s, u"85"_s},
                             {u"SALEDATE"_s, u"3/7/2004"_s},
                             {u"LOADDATE"_s, u"3/8/2004"_s},
                             {u"APPRSLTYPE"_s, u"F"_s},
                             {u"BEDROOM"_s, u"3"_s},
                             {u"NOTES"_s, u"near the mill"_s}}),
            comp(u"B ST"_s, {{u"CITY"_s, u"West Salem"_s},
                             {u"ST"_s, u"Oh"_s},
                             {u"GLA"_s, u"900"_s},
                             {u"SELLINGPR"_s, u"115000"_s},
                             {u"AGE"_s, u"9"_s},
                             {u"PRICEGLA"_s, u"127"_s},
                             {u"SALEDATE"_s, u"12/31/1999"_s},
                             {u"LOADDATE"_s, u"1/2/2000"_s},
                             {u"APPRSLTYPE"_s, u"F"_s},
                             {u"BEDROOM"_s, u"3"_s}}),
            comp(u"C ST"_s, {{u"CITY"_s, u"Dover"_s},
                             {u"ST"_s, u"DE"_s},
                             {u"GLA"_s, u"2200"_s},
                             {u"SELLINGPR"_s, u"1250000"_s},
                             {u"AGE"_s, u"100"_s},
                             {u"PRICEGLA"_s, u"568"_s},
                             {u"SALEDATE"_s, u"01/01/1900"_s},
                             {u"LOADDATE"_s, u"6/1/2005"_s},
                             {u"APPRSLTYPE"_s, u"C"_s}}),
            comp(u"D ST"_s, {{u"CITY"_s, u"Dover"_s},
                             {u"LANDSIZE"_s, u"12"_s},
                             {u"GLA"_s, u"12"_s},
                             {u"SALEDATE"_s, u"1/1/2003"_s},
                             {u"APPRSLTYPE"_s, u"L"_s}}),
            comp(u"E ST"_s, {{u"CITY"_s, u"Bend"_s},
                             {u"LANDSIZE"_s, u"3.5"_s},
                             {u"SALEDATE"_s, u"n/a"_s},
                             {u"APPRSLTYPE"_s, u"L"_s}}),
            comp(u"F ST"_s, {}), // nothing but its address: no city at all
        });
    }

    /// The first letters of the keys that a statement selects, in its order.
    QString Keys(const QString& sql)
    {
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(sql, engine::RecordsetType::Dynaset);
        QString letters;
        for (; !rows->Eof(); rows->MoveNext())
            letters += rows->Value(key).toString().left(1);
        return letters;
    }
    qint64 CountIn(const QString& file)
    {
        return engine.OpenDatabase(file)->OpenRecordset(table, engine::RecordsetType::Table)->RecordCount();
    }
};

TEST_F(Statements, TheGridSearchesAndListsSelect)
{
    struct Row
    {
        const char* name;
        QString sql;
        QString letters;
    };
    const Row rows[] = {
        {"grid, unsorted", kGrid, u"ABCDEF"_s},
        {"grid by address", kGrid + u" ORDER BY COMPS.ADDRESS"_s, u"ABCDEF"_s},
        {"grid by price", kGrid + u" ORDER BY COMPS.SELLINGPR DESC"_s, u"CBADEF"_s},
        {"grid by area", kGrid + u" ORDER BY COMPS.GLA DESC"_s, u"CABDEF"_s},
        {"grid by price a foot", kGrid + u" ORDER BY COMPS.PRICEGLA DESC"_s, u"CBADEF"_s},
        {"grid by sale date", kGrid + u" ORDER BY COMPS.SALEDATE DESC"_s, u"ADBCEF"_s},
        {"grid by load date", kGrid + u" ORDER BY COMPS.LOADDATE DESC"_s, u"CABDEF"_s},
        {"search for nothing", kSearch, u"ABCDEF"_s},
        {"like with the wildcard", kSearch + u" WHERE UCASE(CITY) LIKE '*SALEM*'"_s, u"AB"_s},
        {"like without it", kSearch + u" WHERE UCASE(CITY) LIKE 'SALEM'"_s, u"A"_s},
        {"like, then equal", kSearch + u" WHERE UCASE(CITY) LIKE '*SALEM*' AND UCASE(ST) = 'OH'"_s, u"AB"_s},
        {"equal, then like", kSearch + u" WHERE UCASE(BEDROOM) = '3' AND UCASE(NOTES) LIKE '*MILL*'"_s,
         u"A"_s},
        {"numbers by value", kSearch + u" WHERE SELLINGPR BETWEEN 85000 AND 115000"_s, u"AB"_s},
        {"a whole search",
         kSearch +
             u" WHERE UCASE(CITY) LIKE '*SALEM*' AND UCASE(APPRSLTYPE) LIKE '*F*' AND GLA BETWEEN 850 AND "
             u"1150 AND SELLINGPR BETWEEN 85000 AND 115000 AND AGE BETWEEN 8.5 AND 11.5 AND PRICEGLA BETWEEN "
             u"-10 AND 100"_s,
         u"A"_s},
        {"land size", kSearch + u" WHERE LANDSIZE BETWEEN VAL('3') AND VAL('4.5')"_s, u"E"_s},
        {"on or prior", kSearch + u" WHERE COMPS.SALEDATE<=#12/31/1999#"_s, u"BC"_s},
        {"equal to", kSearch + u" WHERE COMPS.SALEDATE=#3/7/2004#"_s, u"A"_s},
        {"on or after, twice",
         kSearch + u" WHERE COMPS.SALEDATE>=#1/1/2000# AND COMPS.LOADDATE>=#1/1/2000#"_s, u"A"_s},
        {"by sale date", kSearch + u" WHERE ISDATE(COMPS.SALEDATE) ORDER BY COMPS.SALEDATE DESC"_s,
         u"ADBC"_s},
        {"by load date with a filter",
         kSearch +
             u" WHERE UCASE(CITY) LIKE '*SALEM*' AND ISDATE(COMPS.LOADDATE) ORDER BY COMPS.LOADDATE DESC"_s,
         u"AB"_s},
        {"without pending sales", kSearch + u" WHERE COMPS.SALEDATE <> #01/01/1900#"_s, u"ABD"_s},
        {"by sale date without pending sales",
         kSearch +
             u" WHERE ISDATE(COMPS.SALEDATE) AND COMPS.SALEDATE <> #01/01/1900# ORDER BY COMPS.SALEDATE DESC"_s,
         u"ADB"_s},
        {"neighbourhoods of blank cities",
         u"SELECT CENTRALKEY, CITY, NEIGHBORHD FROM COMPS WHERE isnull(trim(CITY))<>False"_s, u"F"_s},
        {"neighbourhoods of all", u"SELECT CENTRALKEY, CITY, NEIGHBORHD FROM COMPS"_s, u"ABCDEF"_s},
        {"land comps", u"SELECT * from Comps WHERE COMPS.APPRSLTYPE LIKE 'L*'"_s, u"DE"_s},
    };
    for (const Row& row : rows) {
        QString letters;
        EXPECT_NO_THROW(letters = Keys(row.sql)) << row.name;
        EXPECT_EQ(letters.toStdString(), row.letters.toStdString()) << row.name;
    }
}

TEST_F(Statements, TheMappingIsFilteredForEverySendAndRead)
{
    const QString mapping = u"C:\\Comp2Kel.mdb"_s;
    store::MakeDatabase(engine, mapping);
    const auto database = engine.OpenDatabase(mapping);
    {
        const auto rows = database->OpenRecordset(u"Comp2Kel"_s, engine::RecordsetType::Table);
        const struct
        {
            QString form, page, field, comp, group;
        } added[] = {{u"UA5"_s, u"PAGE2"_s, u"PROXIMITY"_s, u"1"_s, u"SALE"_s},
                     {u"UA5"_s, u"PAGE2"_s, u"GLA"_s, u"1"_s, u"SALE"_s},
                     {u"UA5"_s, u"PAGE3"_s, u"CITY"_s, u"4"_s, u"SALE"_s},
                     {u"UA5"_s, u"PAGE1"_s, u"ADDRESS"_s, u"10"_s, u"SALE"_s},
                     {u"CN2"_s, u"PAGE2"_s, u"CITY"_s, u"1"_s, u"SALE"_s}};
        for (const auto& row : added) {
            rows->AddNew();
            rows->SetValue(u"FORMTYPE"_s, row.form);
            rows->SetValue(u"FORMNAME"_s, row.page);
            rows->SetValue(u"FIELDNAME"_s, row.field);
            rows->SetValue(u"COMP"_s, row.comp);
            rows->SetValue(u"COMPTYPE"_s, row.group);
            rows->Update();
        }
    }
    const QString columns =
        u"Select Comp2Kel.FORMTYPE, Comp2Kel.FORMNAME, Comp2Kel.FIELDNAME, Comp2Kel.ROW, "
        u"Comp2Kel.CELL, Comp2Kel.COMPTYPE, Comp2Kel.COMP, Comp2Kel.OFFSET, Comp2Kel.PREEVAL, "
        u"Comp2Kel.TRUEFALSE from Comp2Kel WHERE Comp2Kel.FORMTYPE = 'UA5' AND "_s;
    struct Row
    {
        const char* name;
        QString sql;
        QStringList fields;
    };
    for (const Row& row :
         {Row{"send",
              columns + u"Comp2Kel.COMP='1' AND Comp2Kel.COMPTYPE='SALE';"_s,
              {u"PROXIMITY"_s, u"GLA"_s}},
          Row{"send to one page",
              columns + u"Comp2Kel.COMP='4' AND Comp2Kel.FORMNAME='PAGE3';"_s,
              {u"CITY"_s}},
          Row{"proximity",
              columns +
                  u"Comp2Kel.COMP='1' AND Comp2Kel.COMPTYPE='SALE' AND Comp2Kel.FIELDNAME='PROXIMITY' AND "
                  u"Comp2Kel.COMP='1';"_s,
              {u"PROXIMITY"_s}},
          Row{"read of the addresses",
              u"Select * from Comp2Kel WHERE Comp2Kel.FORMTYPE = 'UA5' AND (Comp2Kel.FIELDNAME = 'ADDRESS' "
              u"OR "
              u"Comp2Kel.FIELDNAME = 'NEIGHBORHD' OR Comp2Kel.FIELDNAME = 'APPRSRFILE' OR Comp2Kel.FIELDNAME "
              u"= "
              u"'COUNTY' OR Comp2Kel.FIELDNAME = 'CITY' OR Comp2Kel.FIELDNAME = 'ST' OR Comp2Kel.FIELDNAME = "
              u"'ZIP') "
              u"ORDER BY Comp2Kel.COMP, COMPTYPE, FIELDNAME"_s,
              {u"ADDRESS"_s, u"CITY"_s}}}) { // text: 10 stands before 4
        const auto rows = database->OpenRecordset(row.sql, engine::RecordsetType::Dynaset);
        QStringList fields;
        for (; !rows->Eof(); rows->MoveNext())
            fields.append(rows->Value(u"FIELDNAME"_s).toString());
        EXPECT_EQ(fields, row.fields) << row.name;
    }
}

TEST_F(Statements, ExportsAndPrintsMakeTheTableOfTheirRows)
{
    const QString target = u"C:\\EXPORT\\EXPORT.MDB"_s;
    disk.MkDir(u"C:\\EXPORT"_s);
    store::MakeDatabase(engine, target);
    struct Row
    {
        const char* name;
        QString tail;
        qint64 rows;
    };
    for (const Row& row :
         {Row{"without a search", u" "_s, 6}, Row{"with a search", u" WHERE UCASE(CITY) LIKE '*SALEM*'"_s, 2},
          Row{"with a search and its sort",
              u" WHERE UCASE(CITY) LIKE '*SALEM*' AND COMPS.SALEDATE <> #01/01/1900# ORDER BY "
              u"COMPS.SELLINGPR DESC"_s,
              2},
          Row{"with a date search", u" WHERE ISDATE(COMPS.SALEDATE) AND COMPS.SALEDATE>=#1/1/2000#"_s, 2}}) {
        store::DropTheTable(engine, target, table);
        const auto databook = engine.OpenDatabase(path);
        EXPECT_EQ(
            databook->Execute(u"SELECT * INTO [C:\\EXPORT\\EXPORT.MDB].[COMPS] FROM [COMPS]"_s + row.tail),
            row.rows)
            << row.name;
        EXPECT_EQ(CountIn(target), row.rows) << row.name;
        EXPECT_EQ(engine.OpenDatabase(target)->Table(table).fields.size(),
                  databook->Table(table).fields.size())
            << row.name;
    }
    // The button of the export screen names the table bare.
    engine.OpenDatabase(target)->Execute(u"DROP TABLE COMPS"_s);
    EXPECT_TRUE(engine.OpenDatabase(target)->TableNames().isEmpty());
}

TEST_F(Statements, ImportsAppendWhatIsNotThereYet)
{
    disk.MkDir(u"C:\\DATABOOK"_s);
    disk.MkDir(u"C:\\DATABOOK\\EXPORT"_s);
    const QString databook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
    store::MakeDatabase(engine, databook);
    engine.CopyDatabase(path, u"C:\\DATABOOK\\EXPORT.MDB"_s);
    struct Row
    {
        const char* name;
        QString sql;
        qint64 added;
    };
    for (
        const Row& row :
        {Row{"the fixed path",
             u" INSERT INTO C:\\DATABOOK\\DATABOOK.[COMPS] SELECT * FROM C:\\DATABOOK\\EXPORT.[COMPS];"_s, 6},
         Row{"again",
             u" INSERT INTO C:\\DATABOOK\\DATABOOK.[COMPS] SELECT * FROM C:\\DATABOOK\\EXPORT.[COMPS];"_s, 0},
         Row{"with extensions",
             u" INSERT INTO C:\\DATABOOK\\DATABOOK.MDB.[COMPS] SELECT * FROM C:\\DATABOOK\\EXPORT.MDB.[COMPS];"_s,
             0}}) {
        EXPECT_EQ(engine.OpenDatabase(databook)->Execute(row.sql), row.added) << row.name;
        EXPECT_EQ(CountIn(databook), 6) << row.name;
    }
}

/// What a read-only opening must refuse, whatever rights the file has.
TEST_F(Statements, AReadOnlyOpeningRefusesEveryChange)
{
    store::MakeDatabase(engine, u"C:\\OTHER.MDB"_s);
    const QByteArray before = disk.ReadWhole(path);
    const QByteArray other = disk.ReadWhole(u"C:\\OTHER.MDB"_s);
    const auto database = engine.OpenDatabase(path, engine::OpenMode::ReadOnly);
    for (const QString& sql :
         {u"DELETE FROM COMPS"_s, u"UPDATE COMPS SET CITY = 'x'"_s,
          u"INSERT INTO COMPS (CENTRALKEY) VALUES ('x')"_s, u"SELECT * INTO [MORE] FROM COMPS"_s,
          u"SELECT * INTO [C:\\OTHER.MDB].[MORE] FROM COMPS"_s,
          u"INSERT INTO C:\\OTHER.[COMPS] SELECT * FROM COMPS"_s, u"DROP TABLE COMPS"_s,
          u"DELETE FROM C:\\OTHER.[COMPS]"_s}) {
        EXPECT_EQ(tests::NumberOf([&] { database->Execute(sql); }), error::kFileIsReadOnly)
            << sql.toStdString();
        EXPECT_NE(tests::NumberOf([&] {
                      static_cast<void>(database->OpenRecordset(sql, engine::RecordsetType::Dynaset));
                  }),
                  0)
            << sql.toStdString();
    }
    for (const auto type : {engine::RecordsetType::Table, engine::RecordsetType::Dynaset}) {
        const auto rows = database->OpenRecordset(table, type);
        EXPECT_FALSE(rows->Updatable());
        EXPECT_EQ(tests::NumberOf([&] { rows->Edit(); }), error::kFileIsReadOnly);
        EXPECT_EQ(tests::NumberOf([&] { rows->AddNew(); }), error::kFileIsReadOnly);
        EXPECT_EQ(tests::NumberOf([&] { rows->Delete(); }), error::kFileIsReadOnly);
        EXPECT_EQ(rows->RecordCount(), 6);
    }
    const engine::Field field{.name = u"NEWFIELD"_s, .size = 5};
    EXPECT_EQ(tests::NumberOf([&] { database->AppendField(table, field); }), error::kFileIsReadOnly);
    EXPECT_EQ(tests::NumberOf([&] { database->AppendIndex(table, {.name = u"X"_s, .fields = {u"CITY"_s}}); }),
              error::kFileIsReadOnly);
    EXPECT_EQ(disk.ReadWhole(path), before);
    EXPECT_EQ(disk.ReadWhole(u"C:\\OTHER.MDB"_s), other);
}

} // namespace
