#include "store/schema.h"

#include "platform/text/runtime_error.h"
#include "support/databook_home.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

const engine::Field* FieldOf(const engine::TableDef& table, const QString& name)
{
    for (const engine::Field& field : table.fields)
        if (field.name == name)
            return &field;
    return nullptr;
}

TEST(Schema, StatedSizesAndTypes)
{
    struct Row
    {
        QString field;
        engine::FieldType type;
        int size;
    };
    using enum engine::FieldType;
    for (const Row& row : {
             Row{u"CENTRALKEY"_s, Text, 35},
             Row{u"ADDRESS"_s, Text, 35},
             Row{u"COMPID"_s, Text, 7},
             Row{u"LONGITUDE"_s, Text, 11},
             Row{u"LATITUDE"_s, Text, 11},
             Row{u"ANCHORED"_s, Text, 1},
             Row{u"CONTRKDATE"_s, Text, 20},
             Row{u"FINANCETYP"_s, Text, 20},
             Row{u"SALEHIST4"_s, Text, 20},
             Row{u"SALEHIST5"_s, Text, 20},
             Row{u"OTHERAREA1"_s, Text, 20},
             Row{u"OTHERAREA2"_s, Text, 20},
             Row{u"APPRSLTYPE"_s, Text, 1},
             Row{u"AGE"_s, Text, 4},
             Row{u"PHOTOS"_s, Memo, 0},
             Row{u"FRONTPHOTO"_s, LongBinary, 0},
         }) {
        const engine::Field* field = FieldOf(store::CompsTable(), row.field);
        ASSERT_NE(field, nullptr) << row.field.toStdString();
        EXPECT_EQ(field->type, row.type) << row.field.toStdString();
        EXPECT_EQ(field->size, row.size) << row.field.toStdString();
    }
}

TEST(Schema, EntryLimitsFit)
{
    struct Row
    {
        QString field;
        int limit;
    };
    for (const Row& row : {Row{u"SELLINGPR"_s, 7}, Row{u"GLA"_s, 5}, Row{u"AGE"_s, 4}})
        EXPECT_GE(FieldOf(store::CompsTable(), row.field)->size, row.limit) << row.field.toStdString();
}

TEST(Schema, EveryFieldIsThereOnce)
{
    QStringList wanted =
        u"CENTRALKEY COMPID APPRSLTYPE COMPCODE CTSCODE STRCODE ADDRESS ADDRESS2 CITY ST ZIP COUNTY "
        u"NEIGHBORHD CENSUSTRCT TAXMAPNUM FLOODMAP LONGITUDE LATITUDE ANCHORED LOADDATE LOADSERIAL "
        u"SALEDATE SALEFLD SALESERIAL MODIFIEDDATE CONTRKDATE PRICEGLA AGE LEASEDATE SELLINGPR PRICEFLD "
        u"RENTFLD DATASOURCE VERIFYSRCE SFCONCESS1 SFCONCESS2 FINANCETYP ERCFINAL MKTCHANGE DAYSONMKT "
        u"GLA ROOMCOUNT BEDROOM BATH YEARBUILT SITE LOCATION DESIGNAPPL CONSTRQUAL CONDITION FUNCTUTIL "
        u"BASEMENT FINISHED AC ENERGYEFF1 ENERGYEFF2 PARKING PORCHPATI1 PORCHPATI2 FIREPLACES STORAGE "
        u"COMMONELEM LEASEFEE INTDECOR OTHER1 OTHER2 OTHERAREA1 OTHERAREA2 PROJSIZE FLOORLOCAL "
        u"MONTHASSES NUMBUNITS NUMVACANT MONTHRENT MONTHRENT2 MONTHRENT3 MONTHRENT4 GRSMORENT RENTCONCES "
        u"RENTEXTRA FURNISHED LANDSIZE RUNFT NOTES MISCCOMM MISCCOMM2 MISCCOMM3 PICTFILENM APPRSRFILE "
        u"PHOTOS FRONT FRONTPHOTO"_s.split(u' ');
    const auto series = [&wanted](const QString& stem, int last) {
        for (int i = 1; i <= last; ++i)
            wanted.append(stem + QString::number(i));
    };
    series(u"SALEHIST"_s, 5);
    series(u"FUNCUTIL"_s, 6);
    series(u"UTILFURN"_s, 6);
    series(u"UNITS_"_s, 4);
    series(u"VACANT_"_s, 4);
    series(u"SQFT_"_s, 4);
    series(u"ROOMCOUNT"_s, 4);
    series(u"BEDROOMS"_s, 4);
    series(u"BATHS"_s, 4);
    series(u"DESCRIPT"_s, 5);
    QStringList fields;
    for (const engine::Field& field : store::CompsTable().fields) {
        fields.append(field.name);
        EXPECT_TRUE(field.allowZeroLength) << field.name.toStdString();
        EXPECT_FALSE(field.required) << field.name.toStdString();
    }
    fields.sort();
    wanted.sort();
    EXPECT_EQ(fields, wanted);
    EXPECT_EQ(QSet<QString>(fields.cbegin(), fields.cend()).size(), fields.size());
}

TEST(Schema, EveryColumnHasAHeadingForPeople)
{
    QSet<QString> headings;
    for (const store::CompsColumn& column : store::CompsColumns()) {
        EXPECT_FALSE(column.heading.isEmpty()) << column.name.data();
        headings.insert(QString(column.heading));
    }
    EXPECT_EQ(headings.size(), static_cast<qsizetype>(store::CompsColumns().size()));
    EXPECT_EQ(store::FindCompsColumn(u"SellingPr"_s)->sorts, engine::SortsAs::Number);
    EXPECT_EQ(store::FindCompsColumn(u"SALEDATE"_s)->sorts, engine::SortsAs::Date);
    EXPECT_EQ(store::FindCompsColumn(u"CITY"_s)->sorts, engine::SortsAs::Text);
    EXPECT_EQ(store::FindCompsColumn(u"NOFIELD"_s), nullptr);
}

TEST(Schema, MappingAndAppraisalTables)
{
    const auto names = [](const engine::TableDef& table) {
        QStringList fields;
        for (const engine::Field& field : table.fields) {
            EXPECT_EQ(field.type, engine::FieldType::Text);
            fields.append(field.name);
        }
        return fields.join(u' ');
    };
    EXPECT_EQ(store::MappingTable().name, u"Comp2Kel"_s);
    EXPECT_EQ(names(store::MappingTable()),
              u"FORMTYPE FORMNAME FIELDNAME ROW CELL COMPTYPE COMP OFFSET PREEVAL TRUEFALSE"_s);
    ASSERT_EQ(store::MappingTable().indexes.size(), 1)
        << "a page of a form is found without reading all forms";
    EXPECT_EQ(store::MappingTable().indexes[0].fields.join(u' '), u"FORMTYPE COMPTYPE COMP"_s);
    EXPECT_FALSE(store::MappingTable().indexes[0].unique) << "a page has many rows";
    EXPECT_EQ(store::AppraisalTable().name, u"appraisal"_s);
    EXPECT_EQ(names(store::AppraisalTable()),
              u"ID NAME ADDRESS ADDRESS2 CITY ST ZIP COUNTY HYPERLINK Information"_s);
}

class Making : public tests::DatabookHome
{
protected:
    [[nodiscard]] QStringList Tables(const QString& file) { return engine.OpenDatabase(file)->TableNames(); }
};

TEST_F(Making, EachFileGetsItsTables)
{
    struct Row
    {
        QString name;
        QStringList tables;
    };
    for (const Row& row : {
             Row{u"NEWDATA.MDB"_s, {u"COMPS"_s}},
             Row{u"newcmts.mdb"_s, {u"COMPS"_s, u"CITIES"_s}},
             Row{u"comments.mdb"_s, {u"COMPS"_s, u"CITIES"_s}},
             Row{u"appraisal.mbk"_s, {u"appraisal"_s}},
             Row{u"Comp2Kel.mdb"_s, {u"Comp2Kel"_s}},
             Row{u"Report_Brief.mdb"_s, {u"COMPS"_s}},
             Row{u"Report_Medium.mdb"_s, {u"COMPS"_s}},
             Row{u"Report_Detail.mdb"_s, {u"COMPS"_s}},
             Row{u"Report_NonDesc.mdb"_s, {u"COMPS"_s}},
             Row{u"Anything.mdb"_s, {u"COMPS"_s}},
         }) {
        const QString file = u"C:\\"_s + row.name;
        store::MakeDatabase(engine, file);
        EXPECT_EQ(Tables(file), row.tables) << row.name.toStdString();
    }
    EXPECT_TRUE(disk.Dir(u"C:\\*.new*"_s).isEmpty()) << "no working file stays";
}

TEST_F(Making, ADatabookKeepsItsSchemaOnDisk)
{
    const engine::TableDef made = engine.OpenDatabase(path)->Table(table);
    const engine::TableDef& wanted = store::CompsTable();
    ASSERT_EQ(made.fields.size(), wanted.fields.size());
    for (int i = 0; i < wanted.fields.size(); ++i) {
        EXPECT_EQ(made.fields.at(i).name, wanted.fields.at(i).name);
        EXPECT_EQ(made.fields.at(i).size, wanted.fields.at(i).size);
        EXPECT_EQ(made.fields.at(i).type, wanted.fields.at(i).type);
        EXPECT_EQ(made.fields.at(i).sortsAs, wanted.fields.at(i).sortsAs);
    }
    QStringList indexes;
    for (const engine::IndexDef& index : made.indexes)
        indexes.append(index.name + (index.primary ? u"!"_s : QString()));
    EXPECT_EQ(indexes, (QStringList{u"Centralkey!"_s, u"FILENUMBERUSER"_s}));
}

TEST_F(Making, AFileThatIsThereStaysAsItIs)
{
    AddComps({u"12 MAIN ST"_s});
    store::MakeDatabase(engine, path);
    EXPECT_EQ(engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table)->RecordCount(),
              1);
    disk.WriteWhole(u"C:\\TEXT.MDB"_s, "Dear diary");
    store::MakeDatabase(engine, u"C:\\TEXT.MDB"_s);
    EXPECT_EQ(disk.ReadWhole(u"C:\\TEXT.MDB"_s), QByteArray("Dear diary"));
}

TEST_F(Making, AWorkingFileLeftByAKilledRunIsNoObstacle)
{
    disk.WriteWhole(u"C:\\OTHER.MDB.new"_s, "half");
    store::MakeDatabase(engine, u"C:\\OTHER.MDB"_s);
    EXPECT_EQ(Tables(u"C:\\OTHER.MDB"_s), QStringList{table});
    EXPECT_TRUE(disk.Dir(u"C:\\*.new"_s).isEmpty());
}

TEST_F(Making, WhereNothingCanBeMadeNothingStays)
{
    EXPECT_THROW(store::MakeDatabase(engine, u"C:\\NODIR\\A.MDB"_s), RuntimeError);
    EXPECT_FALSE(disk.DirExists(u"C:\\NODIR\\"_s));
}

TEST_F(Making, TheCommentFileHasItsKeysAndRoomForTheFreeList)
{
    store::MakeDatabase(engine, u"C:\\NEWCMTS.MDB"_s);
    const auto database = engine.OpenDatabase(u"C:\\NEWCMTS.MDB"_s);
    EXPECT_EQ(database->Table(table).fields.size(), store::CompsTable().fields.size())
        << "the check at start counts";
    const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
    ASSERT_EQ(rows->RecordCount(), store::kCommentKeyRows + store::kCommentListRows);
    rows->MoveFirst();
    for (int row = 1; row <= store::kCommentKeyRows + store::kCommentListRows; ++row, rows->MoveNext())
        EXPECT_EQ(rows->Value(key).toString(), row <= 6 ? QString::number(row) : QString(20, u' ')) << row;
    EXPECT_TRUE(rows->Eof());
}

} // namespace
