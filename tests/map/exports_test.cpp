#include "map/exports.h"
#include "map/map_test.h"

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
                               u"|COMP #9|90 OAK ST||PRATTVILLE|AL||AUTAUGA|File://C:\\JPG\\ABCD1234.jpg|"
                               "File://C:\\JPG\\ABCD1234.jpg"_s,
                               u"|ALT COMP #6|6 ELM ST||PRATTVILLE|AL||||"_s,
                               u"|RENTAL #9|9 PINE ST||PRATTVILLE|AL||||"_s,
                               u"|LISTING #6|6 ASH ST||PRATTVILLE|AL||||"_s}));
        EXPECT_EQ(status.lblmsg.Caption(),
                  wizard ? u"In MS Streets, select Data, Import Data Wizard, Access (*.mdb's) C:\\VAM\\APPRAISAL.MDB"_s
                         : u"In MS Streets, select File, Import Data, Access (*.mdb's) C:\\VAM\\APPRAISAL.MDB"_s);
    }
    EXPECT_TRUE(Records(u"C:\\VAS2000\\appraisal.mbk"_s).isEmpty()); // the template stays empty
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAM\\APPRAISAL.MDB.new"_s));
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
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAM\\APPRAISAL.MDB.new"_s));
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
