#include "store/store.h"

#include "common/error_block.h"
#include "platform/text/runtime_error.h"
#include "support/databook_home.h"
#include "support/standing_time.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

constexpr auto kTable = store::SourceKind::Table;
constexpr auto kQuery = store::SourceKind::Query;

class Store : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};

    /// A database with one table of the given text fields and no index.
    void MakePlain(const QString& file, const QStringList& fields, const QString& memo = {})
    {
        const auto database = engine.CreateDatabase(file);
        engine::TableDef plain;
        plain.name = table;
        for (const QString& field : fields)
            plain.fields.append({.name = field, .size = 20});
        if (!memo.isEmpty())
            plain.fields.append({.name = memo, .type = engine::FieldType::Memo});
        database->CreateTable(plain);
        database->Close();
    }
};

// --- binding
// ------------------------------------------------------------------------------------------------

TEST_F(Store, ConnectStandsOnTheFirstRecordAndPumpsAfterEachStep)
{
    AddComps({u"12 MAIN ST"_s});
    store::Connect2mdb(ports, source, path, table, kTable);
    EXPECT_TRUE(source.Bound());
    EXPECT_EQ(source.DatabaseName(), path);
    EXPECT_EQ(source.Kind(), kTable);
    EXPECT_EQ(store::GetFieldData(source, key), u"12 MAIN ST"_s);
    EXPECT_EQ(doubles.pump.turns, 3);
}

TEST_F(Store, ConnectToAMissingFileSaysSoAndEndsTheProgram)
{
    EXPECT_THROW(store::Connect2mdb(ports, source, u"C:\\GONE.MDB"_s, table, kTable), forms::EndOfProgram);
    EXPECT_EQ(
        doubles.prompter.Texts(),
        QStringList{u"The file C:\\GONE.MDB was not found.  This file must be present for this program to "
                    u"work properly.  Please correct and try again."_s});
    EXPECT_FALSE(source.Bound());
}

TEST_F(Store, ConnectTakesAStatementAsADynaset)
{
    AddComps({u"B"_s, u"A"_s});
    store::Connect2mdb(ports, source, path, u"SELECT COMPS.CENTRALKEY FROM COMPS ORDER BY COMPS.ADDRESS"_s,
                       kQuery);
    EXPECT_EQ(source.Recordset().RecordCount(), 2);
    EXPECT_EQ(store::GetFieldData(source, key), u"A"_s);
}

TEST_F(Store, AFailedConnectLeavesTheOldBinding)
{
    AddComps({u"12 MAIN ST"_s});
    Bind(source);
    EXPECT_THROW(store::Connect2mdb(ports, source, path, u"NOTABLE"_s, kTable), RuntimeError);
    EXPECT_EQ(source.RecordSource(), table);
    EXPECT_EQ(store::GetFieldData(source, key), u"12 MAIN ST"_s);
}

TEST_F(Store, AnUnboundSourceHasNoRecordset)
{
    try {
        (void)source.Recordset();
        FAIL() << "an unbound source gave a record set";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kNoObject);
        EXPECT_TRUE(failure.Description().contains(u"datDatabook"_s));
    }
    EXPECT_THROW((void)source.Database(), RuntimeError);
}

TEST_F(Store, RefreshTellsThatTheRecordSetIsAnotherOne)
{
    Bind(source);
    int refreshed = 0;
    QObject::connect(&source, &store::DataSource::Refreshed, [&] { ++refreshed; });
    source.Refresh();
    EXPECT_EQ(refreshed, 1);
    source.SetRecordSource(u"NOTABLE"_s);
    EXPECT_THROW(source.Refresh(), RuntimeError);
    EXPECT_EQ(refreshed, 1);
}

TEST_F(Store, CloseLetsTheFileGo)
{
    Bind(source);
    source.Close();
    EXPECT_FALSE(source.Bound());
    disk.Name(path, u"C:\\MOVED.MDB"_s);
    EXPECT_TRUE(disk.FileExists(u"C:\\MOVED.MDB"_s));
}

TEST_F(Store, TheDatabookIsBoundTwice)
{
    store::Sources sources(engine);
    AddComps({u"12 MAIN ST"_s});
    store::Connect2Databook(ports, sources, path, table);
    EXPECT_EQ(sources.datDatabook.Kind(), kTable);
    EXPECT_EQ(sources.datsql.Kind(), kQuery);
    EXPECT_EQ(store::GetFieldData(sources.datsql, key), u"12 MAIN ST"_s);
    EXPECT_EQ(sources.datComp2Kel_CURRENT.Name(), u"datComp2Kel_CURRENT"_s);
    EXPECT_FALSE(sources.datmap.Bound());
}

TEST_F(Store, AFieldIsReadFromANamedSource)
{
    store::Sources sources(engine);
    AddComps({u"12 MAIN ST"_s});
    store::Connect2Databook(ports, sources, path, table);
    EXPECT_EQ(store::GetData(sources, u"datDatabook"_s, key), u"12 MAIN ST"_s);
    EXPECT_EQ(store::GetData(sources, u"DATSQL"_s, u"PHOTOS"_s), QString()) << "Null";
    for (const QString& name : {u"datmap"_s, u"datNowhere"_s}) {
        try {
            (void)store::GetData(sources, name, key);
            ADD_FAILURE() << name.toStdString();
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.Number(), error::kNoObject);
            EXPECT_TRUE(failure.Description().contains(name)) << failure.Description().toStdString();
        }
    }
    for (const QString& name :
         u"datDatabook datsql datCentralKey datComps datcomments datnewcmts datnewcomps "
         "datmap datComp2Kel_CURRENT"_s.split(u' ')) {
        const store::DataSource* found = sources.Find(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        EXPECT_EQ(found->Name(), name);
    }
}

// --- which databases are offered
// ----------------------------------------------------------------------------

TEST_F(Store, IsmdbWantsKeyAreaAndPhotos)
{
    MakePlain(u"C:\\NOGLA.MDB"_s, {u"CENTRALKEY"_s}, u"PHOTOS"_s);
    MakePlain(u"C:\\NOKEY.MDB"_s, {u"GLA"_s}, u"PHOTOS"_s);
    MakePlain(u"C:\\TEXTPHOTOS.MDB"_s, {u"CENTRALKEY"_s, u"GLA"_s, u"PHOTOS"_s});
    MakePlain(u"C:\\GOOD.MDB"_s, {u"centralkey"_s, u"gla"_s}, u"photos"_s);
    disk.WriteWhole(u"C:\\TEXT.MDB"_s, "Dear diary");
    disk.WriteWhole(u"C:\\EMPTY.MDB"_s, "");
    struct Row
    {
        QString file;
        bool answer;
    };
    for (const Row& row :
         {Row{path, true}, Row{u"C:\\GOOD.MDB"_s, true}, Row{u"C:\\NOGLA.MDB"_s, false},
          Row{u"C:\\NOKEY.MDB"_s, false}, Row{u"C:\\TEXTPHOTOS.MDB"_s, false}, Row{u"C:\\TEXT.MDB"_s, false},
          Row{u"C:\\EMPTY.MDB"_s, false}, Row{u"C:\\MISSING.MDB"_s, false}, Row{u"Q:\\NODRIVE.MDB"_s, false},
          Row{QString(), false}})
        EXPECT_EQ(store::Ismdb(engine, row.file, table), row.answer) << row.file.toStdString();
    EXPECT_FALSE(store::Ismdb(engine, path, u"OTHER"_s)) << "another table";
    EXPECT_EQ(disk.ReadWhole(u"C:\\TEXT.MDB"_s), QByteArray("Dear diary")) << "looking changes nothing";
}

TEST_F(Store, OfferedAreDatabooksButTemplatesAndComments)
{
    for (const auto& name : {u"OTHER.mdb"_s, u"NewData.mdb"_s, u"DATA.MDB"_s, u"MYDATA.MDB"_s})
        store::MakeDatabase(engine, u"C:\\"_s + name);
    store::MakeDatabase(engine, u"C:\\comments.mdb"_s);
    store::MakeDatabase(engine, u"C:\\NEWCMTS.MDB"_s);
    store::MakeDatabase(engine, u"C:\\Comp2Kel.mdb"_s);
    MakePlain(u"C:\\NOGLA.MDB"_s, {u"CENTRALKEY"_s}, u"PHOTOS"_s);
    // "DATA.MDB*" stands in "...NEWDATA.MDB*...", so it is left out as well.
    EXPECT_EQ(store::OfferedDatabases(engine, u"C:\\"_s, table),
              (QStringList{u"DATABOOK.MDB"_s, u"MYDATA.MDB"_s, u"OTHER.mdb"_s}));
}

// --- look-ups
// -----------------------------------------------------------------------------------------------

class Lookup : public Store
{
protected:
    void SetUp() override
    {
        Store::SetUp();
        AddComps({u"12 MAIN ST"_s, u"7 OAK AVE"_s, u"O'BRIEN'S RD"_s, u"ÉCOLE WAY"_s});
        Bind(source);
        ASSERT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
    }
    [[nodiscard]] QString Here() const { return store::GetFieldData(source, key); }
};

TEST_F(Lookup, FindsByKey)
{
    struct Row
    {
        const char* name;
        QString wanted;
        bool found;
        QString here;
    };
    const QString padded = u"12 MAIN ST"_s.leftJustified(35);
    for (const Row& row : {
             Row{"as it is", u"12 MAIN ST"_s, true, u"12 MAIN ST"_s},
             Row{"blanks around", u"  12 MAIN ST   "_s, true, u"12 MAIN ST"_s},
             Row{"padded to the field", padded, true, u"12 MAIN ST"_s},
             Row{"without regard to case", u"12 main st"_s, true, u"12 MAIN ST"_s},
             Row{"apostrophes", u"O'BRIEN'S RD"_s, true, u"O'BRIEN'S RD"_s},
             Row{"accents", u"École Way"_s, true, u"ÉCOLE WAY"_s},
             Row{"absent", u"99 NOWHERE"_s, false, u"7 OAK AVE"_s},
             Row{"a beginning is no match", u"12 MAIN"_s, false, u"7 OAK AVE"_s},
             Row{"empty", QString(), false, u"7 OAK AVE"_s},
             Row{"blanks", u"   "_s, false, u"7 OAK AVE"_s},
             Row{"300 characters", QString(300, u'X'), false, u"7 OAK AVE"_s},
         }) {
        ASSERT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
        EXPECT_EQ(store::FindRecord(ports, source, row.wanted, key), row.found) << row.name;
        EXPECT_EQ(Here(), row.here) << row.name;
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Lookup, PumpsOnceAndForABlankKeyNotAtAll)
{
    doubles.pump.turns = 0;
    (void)store::FindRecord(ports, source, u"12 MAIN ST"_s, key);
    EXPECT_EQ(doubles.pump.turns, 1);
    (void)store::FindRecord(ports, source, u" "_s, key);
    EXPECT_EQ(doubles.pump.turns, 1);
}

TEST_F(Lookup, ATurnOfTheQueueThatSeeksDoesNotChangeTheAnswer)
{
    bool within = false;
    doubles.pump.onTurn = [&] {
        if (within)
            return;
        within = true;
        (void)store::FindRecord(ports, source, u"99 NOWHERE"_s, key);
    };
    EXPECT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    EXPECT_EQ(Here(), u"12 MAIN ST"_s);
}

TEST_F(Lookup, ABlankKeyNeedsNoOpenSource)
{
    store::DataSource unbound(engine, u"datCentralKey"_s);
    EXPECT_FALSE(store::FindRecord(ports, unbound, u"  "_s, key));
}

TEST_F(Lookup, FindsByFileNumberUpperCased)
{
    AddRow({{key, u"9 ELM"_s}, {u"APPRSRFILE"_s, u"AB-17"_s}});
    Bind(source);
    EXPECT_TRUE(store::FindRecord(ports, source, u"ab-17"_s, u"FILENUMBERUSER"_s));
    EXPECT_EQ(Here(), u"9 ELM"_s);
    EXPECT_FALSE(store::FindRecord(ports, source, u"ab-18"_s, u"FILENUMBERUSER"_s));
    // The index takes "ab" for "AB" by itself; only a letter that upper case spells otherwise tells them apart.
    AddRow({{key, u"11 ELM"_s}, {u"APPRSRFILE"_s, u"STRASSE-7"_s}});
    EXPECT_TRUE(store::FindRecord(ports, source, u"stra\u00dfe-7"_s, u"FILENUMBERUSER"_s));
    EXPECT_EQ(Here(), u"11 ELM"_s);
    EXPECT_TRUE(store::FindRecord(ports, source, u"ab-17"_s, u"FILENUMBERUSER"_s));
    EXPECT_EQ(Here(), u"9 ELM"_s);
    EXPECT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key)) << "back on the key";
}

TEST_F(Lookup, AnEmptyTableHasNothingToFind)
{
    const auto database = engine.OpenDatabase(path);
    database->Execute(u"DELETE FROM COMPS"_s);
    Bind(source);
    EXPECT_FALSE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Lookup, WithoutTheIndexTheDatabaseNeedsRepair)
{
    MakePlain(u"C:\\PLAIN.MDB"_s, {u"CENTRALKEY"_s, u"GLA"_s}, u"PHOTOS"_s);
    store::Connect2mdb(ports, source, u"C:\\PLAIN.MDB"_s, table, kTable);
    EXPECT_THROW((void)store::FindRecord(ports, source, u"12 MAIN ST"_s, key), forms::EndOfProgram);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{
                  forms::Buttons::Ok, forms::Icon::None, u"Database Repair Needed"_s,
                  u"Your database may contain acorrupt primary key. Please Contact your software vendor"_s}));
}

TEST_F(Lookup, WithoutARecordSetTheDatabaseNeedsCompression)
{
    source.Close();
    EXPECT_THROW((void)store::FindRecord(ports, source, u"12 MAIN ST"_s, key), forms::EndOfProgram);
    EXPECT_EQ(
        doubles.prompter.Last(),
        (tests::ShownBox{
            forms::Buttons::Ok, forms::Icon::None, u"Database Compression Needed"_s,
            u"Your database may contain corrupt entries. Please Compress database before continuing"_s}));
}

TEST_F(Lookup, ADynasetIsNotSoughtIn)
{
    store::Connect2mdb(ports, source, path, u"SELECT * FROM COMPS"_s, kQuery);
    try {
        (void)store::FindRecord(ports, source, u"12 MAIN ST"_s, key);
        FAIL() << "sought in a dynaset";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kInvalidOperation);
    }
}

// --- changing
// -----------------------------------------------------------------------------------------------

TEST_F(Lookup, UpdateandfindStoresAndStandsOnTheRecord)
{
    source.Recordset().AddNew();
    store::SetFieldData(source, u"1 NEW RD"_s, key);
    store::Updateandfind(ports, source, u"1 NEW RD"_s);
    EXPECT_EQ(source.Recordset().CurrentEditMode(), engine::EditMode::None);
    EXPECT_EQ(Here(), u"1 NEW RD"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Lookup, UpdateandfindWithoutAnEditOnlyFinds)
{
    store::Updateandfind(ports, source, u"12 MAIN ST"_s);
    EXPECT_EQ(Here(), u"12 MAIN ST"_s);
}

TEST_F(Lookup, UpdateandfindReportsARecordThatItCanNotFindAndGoesOn)
{
    source.Recordset().Edit();
    store::SetFieldData(source, u"Elsewhere"_s, u"CITY"_s);
    store::Updateandfind(ports, source, u"99 NOWHERE"_s);
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"New recorded added or updated was not found....check for errors "
                          u"in the database."_s});
    EXPECT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
    EXPECT_EQ(store::GetFieldData(source, u"CITY"_s), u"Elsewhere"_s) << "the change itself is stored";
}

TEST_F(Lookup, UpdateandfindOfADuplicateKeyReachesTheCaller)
{
    source.Recordset().AddNew();
    store::SetFieldData(source, u"12 MAIN ST"_s, key);
    try {
        store::Updateandfind(ports, source, u"12 MAIN ST"_s);
        FAIL() << "a second record of the same key";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kDuplicateKey);
    }
}

TEST_F(Lookup, DeleteRecordDeletesItAloneAndAMissNothing)
{
    store::DeleteRecord(ports, source, u"99 NOWHERE"_s);
    store::DeleteRecord(ports, source, QString());
    EXPECT_EQ(source.Recordset().RecordCount(), 4);
    store::DeleteRecord(ports, source, u"12 main st"_s);
    EXPECT_EQ(source.Recordset().RecordCount(), 3);
    EXPECT_FALSE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    EXPECT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
}

// --- fields
// -------------------------------------------------------------------------------------------------

TEST_F(Lookup, GetFieldDataTrimsBlanksAndTakesNullForNothing)
{
    source.Recordset().Edit();
    store::SetFieldData(source, u"  two  words \t"_s, u"CITY"_s);
    source.Recordset().Update();
    EXPECT_EQ(store::GetFieldData(source, u"CITY"_s), u"two  words \t"_s) << "blanks only";
    EXPECT_EQ(store::GetFieldData(source, u"city"_s), u"two  words \t"_s);
    EXPECT_EQ(store::GetFieldData(source, u"COUNTY"_s), QString()) << "Null";
    EXPECT_EQ(store::GetFieldData(source, u"PHOTOS"_s), QString()) << "a Null memo";
    try {
        (void)store::GetFieldData(source, u"NOFIELD"_s);
        FAIL() << "a field that is not there has a value";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kFieldUnknown);
    }
}

TEST_F(Lookup, Trim2SizeIsAlwaysAsLongAsTheField)
{
    struct Row
    {
        const char* name;
        QString value, field, result;
    };
    for (const Row& row : {
             Row{"shorter is padded", u"AB"_s, u"COMPID"_s, u"AB     "_s},
             Row{"longer is cut", u"ABCDEFGHIJ"_s, u"COMPID"_s, u"ABCDEFG"_s},
             Row{"trimmed first", u"   AB"_s, u"COMPID"_s, u"AB     "_s},
             Row{"exactly as long", u"ABCDEFG"_s, u"COMPID"_s, u"ABCDEFG"_s},
             Row{"empty", QString(), u"COMPID"_s, QString(7, u' ')},
             Row{"one character", u"YES"_s, u"ANCHORED"_s, u"Y"_s},
             Row{"a memo has no size", u"FRONT VIEW|"_s, u"PHOTOS"_s, QString()},
         })
        EXPECT_EQ(store::Trim2Size(source, row.value, row.field), row.result) << row.name;
    EXPECT_EQ(store::Trim2Size(source, u"x"_s, key).size(), 35);
    EXPECT_THROW((void)store::Trim2Size(source, u"x"_s, u"NOFIELD"_s), RuntimeError);
}

TEST_F(Lookup, TrimNum2SizeIsTheValueOfTheCutText)
{
    EXPECT_EQ(store::TrimNum2Size(source, u"12345"_s, u"AGE"_s), 1234);
    EXPECT_EQ(store::TrimNum2Size(source, u"  42 years"_s, u"AGE"_s), 42);
    EXPECT_EQ(store::TrimNum2Size(source, u"none"_s, u"AGE"_s), 0);
    EXPECT_EQ(store::TrimNum2Size(source, QString(), u"AGE"_s), 0);
}

// --- tables and files
// ---------------------------------------------------------------------------------------

TEST_F(Store, TablesAreListedDroppedAndIndexed)
{
    forms::ControlSet set;
    forms::ListBox list(set, u"lstTables"_s);
    list.AddItem(u"stale"_s);
    MakePlain(u"C:\\PLAIN.MDB"_s, {u"CENTRALKEY"_s});
    {
        const auto database = engine.OpenDatabase(u"C:\\PLAIN.MDB"_s);
        engine::TableDef odd;
        odd.name = u"my table"_s;
        odd.fields = {{.name = u"A"_s, .size = 5}};
        database->CreateTable(odd);
        odd.name = u"MSysObjects"_s;
        database->CreateTable(odd);
    }
    store::ListTables(engine, u"C:\\PLAIN.MDB"_s, list);
    EXPECT_EQ(list.Items(), (QStringList{u"COMPS"_s, u"my table"_s}));

    store::DropTheTable(engine, u"C:\\PLAIN.MDB"_s, u"my table"_s);
    store::ListTables(engine, u"C:\\PLAIN.MDB"_s, list);
    EXPECT_EQ(list.Items(), QStringList{u"COMPS"_s});
    EXPECT_THROW(store::DropTheTable(engine, u"C:\\PLAIN.MDB"_s, u"my table"_s), RuntimeError);

    store::CreateIndex(engine, u"C:\\PLAIN.MDB"_s, table);
    store::Connect2mdb(ports, source, u"C:\\PLAIN.MDB"_s, table, kTable);
    EXPECT_FALSE(store::FindRecord(ports, source, u"1 NEW RD"_s, key)) << "no record, but an index";
    const engine::IndexDef index = source.Database().Table(table).indexes.first();
    EXPECT_EQ(index.name, u"Centralkey"_s);
    EXPECT_TRUE(index.primary);
}

TEST_F(Store, AttributesAreSetAndAFailureIsToldAndPassedOver)
{
    disk.WriteWhole(u"C:\\a.jpg"_s, "x");
    store::DalmoSetReadWriteBit(ports, disk, u"C:\\a.jpg"_s, 1);
    EXPECT_EQ(disk.GetAttr(u"C:\\a.jpg"_s), files::ReadOnly);
    store::DalmoSetReadWriteBit(ports, disk, u"C:\\a.jpg"_s, 0);
    EXPECT_EQ(disk.GetAttr(u"C:\\a.jpg"_s), files::Normal);
    store::DalmoSetReadWriteBit(ports, disk, u"C:\\a.jpg"_s, 2);
    EXPECT_EQ(disk.GetAttr(u"C:\\a.jpg"_s), files::Hidden);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());

    store::DalmoSetReadWriteBit(ports, disk, u"C:\\gone.jpg"_s, 1);
    EXPECT_EQ(
        doubles.prompter.Texts(),
        QStringList{
            u"The read only flag for file C:\\gone.jpg was not set.  Contact Network Administrator.  This "
            u"is a temporary measure until the network problem can be addressed."_s});
}

// --- two users
// ----------------------------------------------------------------------------------------------

class TwoUsers : public Lookup
{
protected:
    engine::Engine othersEngine{disk, tests::SomeTime()};
    store::DataSource other{othersEngine, u"datDatabook"_s};
    void SetUp() override
    {
        Lookup::SetUp();
        store::Connect2mdb(ports, other, path, table, kTable);
    }
};

TEST_F(TwoUsers, EachSeesWhatTheOtherStored)
{
    source.Recordset().AddNew();
    store::SetFieldData(source, u"1 NEW RD"_s, key);
    store::Updateandfind(ports, source, u"1 NEW RD"_s);
    EXPECT_TRUE(store::FindRecord(ports, other, u"1 NEW RD"_s, key));

    store::DeleteRecord(ports, other, u"1 NEW RD"_s);
    EXPECT_FALSE(store::FindRecord(ports, source, u"1 NEW RD"_s, key));
}

TEST_F(TwoUsers, TheSecondWriterIsToldThatTheRecordChanged)
{
    ASSERT_TRUE(store::FindRecord(ports, other, u"7 OAK AVE"_s, key));
    other.Recordset().Edit();
    store::SetFieldData(other, u"Mine"_s, u"CITY"_s);
    source.Recordset().Edit();
    store::SetFieldData(source, u"First"_s, u"CITY"_s);
    source.Recordset().Update();
    try {
        store::Updateandfind(ports, other, u"7 OAK AVE"_s);
        FAIL() << "overwrote what somebody else stored meanwhile";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kDataChanged);
    }
    ASSERT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
    EXPECT_EQ(store::GetFieldData(source, u"CITY"_s), u"First"_s);
}

TEST_F(TwoUsers, TwoNewCompsOfOneAddressBecomeOne)
{
    for (store::DataSource* user : {&source, &other}) {
        user->Recordset().AddNew();
        store::SetFieldData(*user, u"1 NEW RD"_s, key);
    }
    store::Updateandfind(ports, source, u"1 NEW RD"_s);
    EXPECT_THROW(store::Updateandfind(ports, other, u"1 NEW RD"_s), RuntimeError);
    other.Recordset().CancelUpdate();
    EXPECT_TRUE(store::FindRecord(ports, other, u"1 NEW RD"_s, key));
    EXPECT_EQ(other.Recordset().RecordCount(), 5);
}

} // namespace
