#include "map/exports.h"
#include "map/map_test.h"
#include "platform/engine/genuine_file.h"

namespace vasclip::map {

namespace {

class Exports : public MapTest
{
protected:
    ExportDesk exports{.addr = addr,
                       .sources = sources,
                       .globals = globals,
                       .ports = doubles.Get(),
                       .status = status,
                       .disk = home.disk};
    void SetUp() override
    {
        MapTest::SetUp();
        globals.mapExportDir = u"C:\\VAM"_s;
        globals.mapExportFile = u"APPRAISAL.MDB"_s;
        globals.mapCase = true;
        home.MakeDirs(u"C:\\VAM"_s);
    }
    void Report()
    {
        Subject(u"1 Main St"_s);
        addr.txtKelCounty.SetText(u"Autauga"_s);
        Box(Group::Sales, 1, u"10 Oak/St \"A\""_s, u"Millbrook"_s, u"ga"_s, u"36054-1234"_s);
        Box(Group::Sales, 9, u"90 Oak St"_s, {}, u"NV"_s, u"123"_s);
        Box(Group::Alternates, 6, u"6 Elm St"_s);
        Box(Group::Rentals, 9, u"9 Pine St"_s);
        Box(Group::Listings, 6, u"6 Ash St"_s);
    }
    void Box(Group group, int n, const QString& address, const QString& city = {}, const QString& state = {},
             const QString& zip = {})
    {
        const link::GroupRow& row = link::RowOf(group);
        (addr.*row.addresses)(n).SetText(address);
        (addr.*row.cities)(n).SetText(city);
        (addr.*row.states)(n).SetText(state);
        (addr.*row.zips)(n).SetText(zip);
    }
    [[nodiscard]] QString Written() const
    {
        return QString::fromLatin1(home.disk.ReadWhole(u"C:\\VAM\\appraisal.txt"_s));
    }
    /// Every record of the database, its columns joined.
    [[nodiscard]] QStringList Records(const QString& file)
    {
        const auto database = engine.OpenDatabase(file);
        const auto rows = database->OpenRecordset(u"appraisal"_s, engine::RecordsetType::Table);
        QStringList records;
        for (; !rows->Eof(); rows->MoveNext()) {
            QStringList values;
            for (int i = 0; i < rows->Fields().size(); ++i)
                values << rows->Value(i).toString();
            records << values.join(u'|');
        }
        rows->Close();
        database->Close();
        return records;
    }
};

TEST_F(Exports, TheTextWithoutQuotes)
{
    Report();
    const ExportResult result = ExportDelorme2005(exports);
    EXPECT_TRUE(result.written);
    EXPECT_EQ(result.entries, 6);
    EXPECT_EQ(result.file, u"C:\\VAM\\appraisal.txt"_s);
    EXPECT_EQ(Written(), u"SUBJECT,1 MAIN ST,PRATTVILLE,AL,36067,\r\n"
                         "COMP #1,10 OAKST A,MILLBROOK,GA,36054,\r\n"
                         "COMP #9,90 OAK ST,PRATTVILLE,AL,,\r\n"
                         "ALT COMP #6,6 ELM ST,PRATTVILLE,AL,,\r\n"
                         "RENTAL #9,9 PINE ST,PRATTVILLE,AL,,\r\n"
                         "LISTING #6,6 ASH ST,PRATTVILLE,AL,,\r\n"_s);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"In Street Atlas USA, select File, Import Address Book, C:\\VAM\\Appraisal.txt"_s);
}

TEST_F(Exports, TheTextWithQuotes)
{
    Subject(u"1 Main St"_s);
    ExportDelorme(exports);
    EXPECT_EQ(Written(), u"\"SUBJECT\",\"1 MAIN ST\",\"PRATTVILLE\",\"AL\",\"36067\",\r\n"_s);
}

TEST_F(Exports, InProperCaseUnlessSetOtherwise)
{
    globals.mapCase = false;
    Subject(u"1 MAIN ST"_s);
    ExportDelorme2005(exports);
    EXPECT_EQ(Written(), u"SUBJECT,1 Main St,Prattville,Al,36067,\r\n"_s);
}

TEST_F(Exports, AnEmptyReportWritesAnEmptyFile)
{
    home.Put(u"C:\\VAM\\appraisal.txt"_s, "old");
    const ExportResult result = ExportDelorme(exports);
    EXPECT_TRUE(result.written);
    EXPECT_EQ(Written(), QString());
}

TEST_F(Exports, OneLineAndItsLabel)
{
    Subject(u"1 Main St"_s);
    EXPECT_EQ(ExportMapLabel(exports, addr.txtCompAddr(1), true, {}, {}, {}), QString());
    addr.txtCompAddr(1).SetText(u" 10 Oak St "_s);
    EXPECT_EQ(ExportMapLabel(exports, addr.txtCompAddr(1), false, u"Reno"_s, u"NV"_s, u"89501"_s),
              u"COMP #1,10 OAK ST,RENO,AL,89501,"_s);
    addr.txtKelState.SetText(u"NV"_s); // in no list, so there is none
    EXPECT_EQ(ExportMapLabel(exports, addr.txtCompAddr(1), false, u"Reno"_s, u"NV"_s, u"89501"_s),
              u"COMP #1,10 OAK ST,RENO,,89501,"_s);
    EXPECT_EQ(ExportLabel(addr.txtCompAddr(0)), u"SUBJECT"_s);
    EXPECT_EQ(ExportLabel(addr.txtAltCompAddr(2)), u"ALT COMP #2"_s);
    EXPECT_EQ(ExportLabel(addr.txtRentalAddr(3)), u"RENTAL #3"_s);
    EXPECT_EQ(ExportLabel(addr.txtListingAddr(4)), u"LISTING #4"_s);
    EXPECT_EQ(ExportLabel(report.txtSubject), u"USER COMP"_s);
}

TEST_F(Exports, ALongMessageIsShortened)
{
    globals.mapExportDir = u"C:\\EXPORTS FOR OUTSIDE MAPS\\OF THE SECOND OFFICE\\"_s;
    ExportDelorme2005(exports);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"Import Data From: C:\\EXPORTS FOR OUTSIDE MAPS\\OF THE SECOND OFFICE\\Appraisal.txt"_s);
    EXPECT_EQ(doubles.prompter.Last().title, u"Creating Directory"_s); // which was not there
    ExportMSStreets(exports, true);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"Import Data from: C:\\EXPORTS FOR OUTSIDE MAPS\\OF THE SECOND OFFICE\\APPRAISAL.MDB"_s);
}

TEST_F(Exports, AMessageOfNinetyLettersIsWhole)
{
    const QString led = u"In Street Atlas USA, select File, Import Address Book, "_s;
    const int room = 90 - static_cast<int>(led.size() + QString(u"C:\\\\Appraisal.txt"_s).size());
    for (const int more : {0, 1}) {
        globals.mapExportDir = u"C:\\"_s + QString(room + more, u'D');
        home.MakeDirs(globals.mapExportDir);
        ExportDelorme(exports);
        EXPECT_EQ(status.lblmsg.Caption().startsWith(led), more == 0) << status.lblmsg.Caption().toStdString();
        EXPECT_TRUE(more == 1 || status.lblmsg.Caption().size() == 90);
    }
}

TEST_F(Exports, WhatCannotBeWrittenIsTold)
{
    globals.mapExportDir = u"Q:\\VAM"_s;
    const ExportResult result = ExportDelorme(exports);
    EXPECT_FALSE(result.written);
    EXPECT_EQ(doubles.prompter.Last().title, u"Export Aborted"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"Q:\\VAM\\appraisal.txt"_s));
    EXPECT_EQ(status.lblmsg.Caption(), QString());
}

TEST_F(Exports, WithoutASettingTheUsersDirectory)
{
    globals.mapExportDir = u" "_s;
    EXPECT_EQ(FindExportDir(globals), u"C:\\VAS2000\\"_s);
    globals.mapExportDir = u"C:\\VAM"_s;
    EXPECT_EQ(FindExportDir(globals), u"C:\\VAM\\"_s);
}

TEST_F(Exports, TheDatabaseHasARecordAnAddress)
{
    store::MakeDatabase(engine, u"C:\\VAS2000\\appraisal.mbk"_s);
    Report();
    AddTown(u"90 Oak St"_s, {{u"PHOTOS"_s, u"REAR VIEW|R1\r\nFRONT VIEW|ABCD1234\r\n"_s}});
    AddTown(u"6 Elm St"_s);
    for (const bool wizard : {true, false}) {
        const ExportResult result = ExportMSStreets(exports, wizard); // the second takes the place of the first
        EXPECT_TRUE(result.written);
        EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s),
                  (QStringList{u"|SUBJECT|1 MAIN ST||PRATTVILLE|AL|36067|AUTAUGA||"_s,
                               u"|COMP #1|10 OAKST A||MILLBROOK|GA|36054|AUTAUGA||"_s,
                               u"|COMP #9|90 OAK ST||PRATTVILLE|AL|36067|AUTAUGA|File://C:\\JPG\\ABCD1234.jpg|"
                               "File://C:\\JPG\\ABCD1234.jpg"_s,
                               u"|ALT COMP #6|6 ELM ST||PRATTVILLE|AL|36067|||"_s,
                               u"|RENTAL #9|9 PINE ST||PRATTVILLE|AL|36067|||"_s,
                               u"|LISTING #6|6 ASH ST||PRATTVILLE|AL|36067|||"_s}));
        EXPECT_TRUE(engine::IsGenuineFile(home.disk, u"C:\\VAM\\APPRAISAL.MDB"_s));
        EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAM\\APPRAISAL.MDB"_s).mid(4, 15), QByteArray("Standard Jet DB"));
        EXPECT_EQ(status.lblmsg.Caption(),
                  wizard ? u"In MS Streets, select Data, Import Data Wizard, Access (*.mdb's) C:\\VAM\\APPRAISAL.MDB"_s
                         : u"In MS Streets, select File, Import Data, Access (*.mdb's) C:\\VAM\\APPRAISAL.MDB"_s);
    }
    EXPECT_TRUE(Records(u"C:\\VAS2000\\appraisal.mbk"_s).isEmpty()); // the template stays empty
    EXPECT_EQ(home.disk.Dir(u"C:\\VAM\\*.*"_s), QStringList{u"APPRAISAL.MDB"_s}); // nothing beside it
}

TEST_F(Exports, ADatabaseOfOurOwnKindWhereThatIsWanted)
{
    Subject(u"1 Main St"_s);
    ASSERT_TRUE(ExportMSStreets(exports, true, engine::DatabaseKind::Vasclip).written);
    EXPECT_FALSE(engine::IsGenuineFile(home.disk, u"C:\\VAM\\APPRAISAL.MDB"_s));
    EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s), QStringList{u"|SUBJECT|1 MAIN ST||PRATTVILLE|AL|36067|||"_s});
    EXPECT_EQ(status.lblmsg.Caption(), u"Import Data from: C:\\VAM\\APPRAISAL.MDB"_s); // no other program imports it
    EXPECT_EQ(home.disk.Dir(u"C:\\VAM\\*.*"_s), QStringList{u"APPRAISAL.MDB"_s});
}

TEST_F(Exports, ATemplateThatIsAnAccessFile)
{
    const QString given = u"C:\\VAS2000\\appraisal.mbk"_s;
    {
        engine::TableDef table = store::AppraisalTable();
        table.fields.removeLast();
        engine::GenuineFile file(engine, given);
        file.Content().CreateTable(table);
        file.Finish();
    }
    const QByteArray before = home.disk.ReadWhole(given);
    Subject(u"1 Main St"_s);
    for (const auto kind : {engine::DatabaseKind::Access, engine::DatabaseKind::Vasclip}) {
        EXPECT_TRUE(ExportToAppraisalmdb(exports, kind).written);
        EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s), QStringList{u"|SUBJECT|1 MAIN ST||PRATTVILLE|AL|36067|||"_s});
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(home.disk.ReadWhole(given), before);
}

TEST_F(Exports, NoDatabaseOfTheProgramIsReplaced)
{
    AddTown(u"90 Oak St"_s);
    Subject(u"1 Main St"_s);
    globals.mapExportDir = u"C:\\DATABOOK"_s;
    home.disk.FileCopy(kDatabook, u"C:\\DATABOOK\\OTHER.MDB"_s);
    for (const QString& name : {u"databook.mdb"_s, u"NEWDATA.MDB"_s}) {
        globals.mapExportFile = name;
        EXPECT_FALSE(ExportMSStreets(exports, true).written) << name.toStdString();
        EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to export"_s);
    }
    // One with a name of its own, while it is open.
    store::Connect2Databook(doubles.Get(), sources, u"C:\\DATABOOK\\OTHER.MDB"_s, u"COMPS"_s);
    globals.mapExportFile = u"Other.mdb"_s;
    EXPECT_FALSE(ExportMSStreets(exports, true).written);
    EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to export database"_s);
    EXPECT_EQ(Field(u"90 Oak St"_s, u"CITY"_s), u"PRATTVILLE"_s);
    EXPECT_EQ(status.lblmsg.Caption(), QString());
}

TEST_F(Exports, AnOldDatabaseThatSomebodyHasOpenStays)
{
    Subject(u"1 Main St"_s);
    ASSERT_TRUE(ExportMSStreets(exports, true, engine::DatabaseKind::Vasclip).written);
    const auto open = engine.OpenDatabase(u"C:\\VAM\\APPRAISAL.MDB"_s);
    status.lblmsg.Show(QString(), forms::Colour::Blue);
    addr.txtCompAddr(1).SetText(u"2 Main St"_s);
    EXPECT_FALSE(ExportMSStreets(exports, true).written);
    EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to export database"_s);
    EXPECT_EQ(status.lblmsg.Caption(), QString());
    open->Close();
    EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s).size(), 1);
    EXPECT_TRUE(ExportMSStreets(exports, true).written);
    EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s).size(), 2);
}

TEST_F(Exports, TheDatabaseWithoutItsTemplate)
{
    EXPECT_TRUE(ExportToAppraisalmdb(exports).written);
    EXPECT_TRUE(Records(u"C:\\VAM\\APPRAISAL.MDB"_s).isEmpty());
    const auto database = engine.OpenDatabase(u"C:\\VAM\\APPRAISAL.MDB"_s);
    QStringList columns;
    for (const engine::Field& field : database->Table(u"appraisal"_s).fields)
        columns << field.name;
    EXPECT_EQ(columns, (QStringList{u"ID"_s, u"NAME"_s, u"ADDRESS"_s, u"ADDRESS2"_s, u"CITY"_s, u"ST"_s, u"ZIP"_s,
                                    u"COUNTY"_s, u"HYPERLINK"_s, u"Information"_s}));
}

TEST_F(Exports, AFailureLeavesTheOldDatabase)
{
    Report();
    ASSERT_TRUE(ExportToAppraisalmdb(exports).written);
    home.Put(u"C:\\VAS2000\\appraisal.mbk"_s, "no database");
    const ExportResult result = ExportMSStreets(exports, true);
    EXPECT_FALSE(result.written);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s).size(), 6);
    EXPECT_EQ(status.lblmsg.Caption(), QString());
    EXPECT_TRUE(doubles.prompter.Last().text.endsWith(u"in module errcreatemdb."_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(home.disk.Dir(u"C:\\VAM\\*.*"_s), QStringList{u"APPRAISAL.MDB"_s});
}

TEST_F(Exports, AWriteProtectedDatabaseStaysAndIsTold)
{
    const QString file = u"C:\\VAM\\APPRAISAL.MDB"_s;
    home.Put(file, "old");
    home.disk.SetAttr(file, files::ReadOnly);
    EXPECT_FALSE(ExportMSStreets(exports, true).written);
    EXPECT_TRUE(doubles.prompter.Last().text.endsWith(u"in module ExportToAppraisalmdb."_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(home.disk.ReadWhole(file), QByteArray("old"));
    EXPECT_EQ(home.disk.Dir(u"C:\\VAM\\*.*"_s, files::ReadOnly), QStringList{u"APPRAISAL.MDB"_s});
    home.disk.SetAttr(file, files::Normal);
}

TEST_F(Exports, ATemplateWithRecordsAndAColumnTooFew)
{
    {
        const auto database = engine.CreateDatabase(u"C:\\VAS2000\\appraisal.mbk"_s);
        engine::TableDef table = store::AppraisalTable();
        table.fields.removeLast();
        database->CreateTable(table);
        database->Close();
    }
    Add(u"C:\\VAS2000\\appraisal.mbk"_s, u"appraisal"_s, {{u"NAME"_s, u"left over"_s}});
    Add(u"C:\\VAS2000\\appraisal.mbk"_s, u"appraisal"_s, {{u"NAME"_s, u"left over"_s}});
    Subject(u"1 Main St"_s);
    EXPECT_TRUE(ExportToAppraisalmdb(exports).written);
    EXPECT_EQ(Records(u"C:\\VAM\\APPRAISAL.MDB"_s),
              QStringList{u"|SUBJECT|1 MAIN ST||PRATTVILLE|AL|36067|||"_s});
}

} // namespace

} // namespace vasclip::map
