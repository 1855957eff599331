// What stands at the edges of export, import and rehearsal: rows that have almost nothing, files that are almost another.

#include "list_home.h"

#include "platform/engine/genuine_file.h"
#include "store/change.h"
#include "store/convert.h"
#include "support/killed_here.h"
#include "upkeep/export_csv.h"
#include "upkeep/export_table.h"
#include "upkeep/insert_images.h"
#include "upkeep/list_guess.h"
#include "upkeep/list_preview.h"
#include "upkeep/rehearsed_rows.h"

namespace vasclip::upkeep {
namespace {

const QByteArray kJpeg("\xFF\xD8\xFF the picture");

class TransferEdges : public ListHome
{
protected:
    const QString theirs = u"C:\\EXPORT\\THEIRS.MDB"_s;

    void SetUp() override
    {
        ListHome::SetUp();
        store::MakeDatabase(engine, theirs);
    }
    void Put(const QString& comp, const QList<std::pair<QString, QVariant>>& values = {})
    {
        const auto database = engine.OpenDatabase(theirs);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(key, comp.leftJustified(35));
        for (const auto& [field, value] : values)
            rows->SetValue(field, value);
        rows->Update();
        rows->Close();
        database->Close();
    }
    std::unique_ptr<Rehearsal> Look(bool pictures = true)
    {
        return std::make_unique<Rehearsal>(Desk(), ImportOrder{.source = theirs, .table = table, .pictures = pictures});
    }
    using ListHome::Look;
    static RehearsedRow RowOf(const Rehearsal& rehearsal, const QString& comp)
    {
        for (const RehearsedRow& row : rehearsal.Rows())
            if (row.key == comp)
                return row;
        ADD_FAILURE() << "no row " << comp.toStdString();
        return {};
    }
};

TEST_F(TransferEdges, ARowThatNamesAPictureAndHoldsNoneIsNoFault)
{
    Put(u"1 ASH ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|00000009\r\n"_s}});
    Put(u"2 ASH ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|00000008\r\n"_s}, {u"FRONTPHOTO"_s, QByteArray("")}});
    EXPECT_EQ(RowOf(*Look(), u"1 ASH ST"_s).picture, RowPicture::None);
    const ImportResult result = ImportTable(Desk(), {.source = theirs, .table = table, .pictures = true}, Step());
    EXPECT_EQ(result.appended, 2);
    EXPECT_EQ(AccountOf(result), QStringList());
}

TEST_F(TransferEdges, ARehearsalTellsWhichPicturesWouldBeWrittenOver)
{
    disk.WriteWhole(u"C:\\JPG\\00000003.jpg"_s, kJpeg);
    Put(u"1 ASH ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|00000001\r\n"_s}, {u"FRONTPHOTO"_s, kJpeg}});
    Put(u"2 ASH ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|00000003\r\n"_s}, {u"FRONTPHOTO"_s, kJpeg}});
    Put(u"3 ASH ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|CON\r\n"_s}, {u"FRONTPHOTO"_s, kJpeg}});
    const auto rehearsal = Look();
    EXPECT_EQ(RowOf(*rehearsal, u"1 ASH ST"_s).picture, RowPicture::Other);
    EXPECT_EQ(RowOf(*rehearsal, u"2 ASH ST"_s).picture, RowPicture::There);
    EXPECT_EQ(RowOf(*rehearsal, u"3 ASH ST"_s).picture, RowPicture::Refused);
    RehearsedRows shown(*rehearsal);
    EXPECT_EQ(shown.Row(0).at(3), u"another"_s);
    EXPECT_EQ(shown.Row(1).at(3), u"there"_s);
    EXPECT_EQ(shown.Row(2).at(3), u"refused"_s);
}

TEST_F(TransferEdges, TenPicturesThatGiveWayAreNamedAndTheOthersCounted)
{
    for (int i = 10; i < 22; ++i) {
        disk.WriteWhole(u"C:\\JPG\\000000%1.jpg"_s.arg(i), "mine");
        Put(u"%1 ASH ST"_s.arg(i), {{u"PHOTOS"_s, u"FRONT VIEW|000000%1\r\n"_s.arg(i)}, {u"FRONTPHOTO"_s, kJpeg}});
    }
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_FALSE(ImportTable(Desk(), {.source = theirs, .table = table, .pictures = true}, Step()).done);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"\n00000019.jpg\nand 2 more\n\n"_s)) << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000010.jpg"_s), "mine");
}

TEST_F(TransferEdges, AKeyOfBytesIsNone)
{
    const auto database = engine.OpenDatabase(theirs);
    database->CreateTable({.name = u"ODD"_s,
                           .fields = {{.name = key, .type = engine::FieldType::Binary, .size = 9}, {.name = u"CITY"_s, .size = 9}},
                           .indexes = {}});
    database->Close();
    EXPECT_EQ(tests::ThrownBy([&] { return ImportTable(Desk(), {.source = theirs, .table = u"ODD"_s}, Step()).rows; }).words,
              u"The field CENTRALKEY of the table ODD holds bytes, which are no keys of records. Choose a table of comps"_s);
}

TEST_F(TransferEdges, SameRowsAndRefusedOnesAreKeptOut)
{
    Put(u"14 OAK ST"_s, {{u"ADDRESS"_s, u"14 OAK ST"_s}, {u"CITY"_s, u"BIRCH"_s}, {u"PHOTOS"_s, u" "_s}});
    disk.WriteWhole(csv, "Address,Price\n2 Ash St,a lot\n");
    const auto rehearsal = Look();
    ASSERT_EQ(RowOf(*rehearsal, u"14 OAK ST"_s).kind, RowKind::Same);
    Rehearsal refused(Desk(), Order(csv, Look(csv).look));
    ASSERT_EQ(refused.Count(RowKind::Refused), 1);
    for (const RowChoice choice : {RowChoice::Add, RowChoice::TakeTheirs, RowChoice::FillBlanks}) {
        rehearsal->ChooseAll(RowKind::Same, choice);
        refused.ChooseAll(RowKind::Refused, choice);
        EXPECT_EQ(rehearsal->Rows().first().choice, RowChoice::KeepMine);
        EXPECT_EQ(refused.Rows().first().choice, RowChoice::KeepMine);
    }
}

TEST_F(TransferEdges, AnAccessDatabookTakesNoRehearsedImportEither)
{
    Put(u"1 ASH ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|00000009\r\n"_s}, {u"FRONTPHOTO"_s, kJpeg}});
    databook.Close();
    const QString old = u"C:\\OLD.MDB"_s;
    ASSERT_TRUE(store::ConvertDatabase(engine, {.source = path, .target = old, .to = engine::DatabaseKind::Access}));
    store::Connect2mdb(ports, databook, old, table, store::SourceKind::Table);
    const auto rehearsal = Look();
    const tests::Thrown thrown = tests::ThrownBy([&] { return rehearsal->Carry(Step()).done; });
    EXPECT_EQ(thrown.number, error::kFileIsReadOnly);
    EXPECT_TRUE(thrown.words.contains(u"is an Access database, which is only read. Convert it"_s)) << thrown.words.toStdString();
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\00000009.jpg"_s));
}

TEST_F(TransferEdges, TwinsAreFoundByWhateverIsWritten)
{
    const auto mine = [this](const QString& comp, const QString& address) {
        AddRow({{key, comp.leftJustified(35)}, {u"ADDRESS"_s, address}});
    };
    mine(u"70 FIR STREET"_s, u" "_s);                   // no address: its key tells
    mine(u"80 THIRD AVE"_s, u"80 Third Ave"_s);         // written out
    mine(u"N65W12345 LAKE DR"_s, u"N65W12345 Lake Dr"_s); // a number that is no digits
    Put(u"70 FIR ST"_s);
    Put(u"80 3RD AVENUE"_s, {{u"ADDRESS"_s, u"80 3rd Avenue"_s}});
    Put(u"N65W12345 LAKE DRIVE"_s, {{u"ADDRESS"_s, u"N65W12345 Lake Drive"_s}});
    const auto rehearsal = Look();
    for (const auto& [comp, met] : {std::pair{u"70 FIR ST"_s, u"70 FIR STREET"_s},
                                    {u"80 3RD AVENUE"_s, u"80 THIRD AVE"_s},
                                    {u"N65W12345 LAKE DRIVE"_s, u"N65W12345 LAKE DR"_s}}) {
        EXPECT_EQ(RowOf(*rehearsal, comp).kind, RowKind::Twin) << comp.toStdString();
        EXPECT_EQ(RowOf(*rehearsal, comp).mine, met);
    }
    RehearsedRows shown(*rehearsal);
    EXPECT_EQ(shown.Row(0), (QStringList{u"70 FIR ST"_s, u"same address"_s, u"keep mine"_s, {}, u"your record is 70 FIR STREET"_s}));
}

TEST_F(TransferEdges, ATwinWithinTheFileStandsBeforeWhatIsPlainlyNew)
{
    Put(u"1 ASH ST"_s, {{u"ADDRESS"_s, u"1 Ash St"_s}});
    Put(u"5 FIR ST"_s, {{u"ADDRESS"_s, u"5 Fir St"_s}});
    Put(u"5 FIR STREET"_s, {{u"ADDRESS"_s, u"5 Fir Street"_s}});
    const auto rehearsal = Look();
    RehearsedRows shown(*rehearsal);
    EXPECT_EQ(shown.Row(0).at(0), u"5 FIR STREET"_s) << "it is to be looked at";
}

TEST_F(TransferEdges, AnExportedTableWithoutPhotosAndAnEmptyPictureAreNoTrouble)
{
    const auto database = engine.OpenDatabase(theirs);
    database->CreateTable({.name = u"BARE"_s, .fields = {{.name = key, .size = 35}}, .indexes = {}});
    const auto rows = database->OpenRecordset(u"BARE"_s, engine::RecordsetType::Table);
    rows->AddNew();
    rows->SetValue(key, u"1 ASH ST"_s);
    rows->Update();
    rows->Close();
    database->Close();
    EXPECT_EQ(InsertImages(Desk(), theirs, u"BARE"_s, Step()).in, 0);
    disk.WriteWhole(u"C:\\JPG\\00000003.jpg"_s, "");
    const ExportResult result =
        ExportTable(Desk(), {.target = target, .table = table, .search = u"COMPS.ADDRESS = '9 ELM ST'"_s, .pictures = true}, Step());
    EXPECT_EQ(result.notIn, QStringList{u"9 ELM ST: the file C:\\JPG\\00000003.jpg is empty"_s});
}

TEST_F(TransferEdges, ACsvFileHasEachColumnButThePicture)
{
    ASSERT_TRUE(ExportCsv(Desk(), csv, {}, {}, Step()).written);
    const QByteArray head = disk.ReadWhole(csv).split('\r').first();
    EXPECT_FALSE(head.contains("FRONTPHOTO")) << head.toStdString();
    EXPECT_EQ(head.split(',').size(), store::CompsTable().fields.size() - 1);
}

TEST_F(TransferEdges, AListIsReadInTheCodePageThatItIsSaidToHave)
{
    disk.WriteWhole(csv, "\xEF\xBB\xBF" "Address,City\n1 Ash St,Caf\xC3\xA9\n");
    EXPECT_EQ(Look(csv).look.columns.first().field, u"ADDRESS"_s);
    EXPECT_EQ(Look(csv).look.columns.first().heading, u"Address"_s) << "the mark is no letter of it";
    EXPECT_EQ(Import(csv, {.codePage = u"ISO-8859-1"_s}).appended, 0) << "no heading is an address there";
    disk.WriteWhole(csv, "Address,City\n1 Ash St,Caf\xE9\n");
    EXPECT_EQ(tests::ThrownBy([&] { return Look(csv, {.codePage = u"UTF-8"_s}).datesOpen; }).words,
              u"C:\\EXPORT\\IN.CSV is no text in the code page UTF-8. Choose another one"_s);
    disk.WriteWhole(csv, QByteArray("A\0d\0d\0r\0e\0s\0s\0\n\0" "1\0 \0A\0s\0h\0", 26));
    EXPECT_EQ(tests::ThrownBy([&] { return Look(csv, {.codePage = u"Windows-1252"_s}).datesOpen; }).words,
              u"C:\\EXPORT\\IN.CSV is no text file, as it holds bytes that no text has. Choose another file"_s);
}

TEST_F(TransferEdges, DatesOfLoadingAndNumbersOfASheetAreStoredAsTheyAre)
{
    disk.WriteWhole(csv, "Address,LoadDate,FrontPhoto\n1 Ash St,3/7/2004,x\n");
    const ListLook look = Look(csv).look;
    EXPECT_EQ(look.columns.last().field, QString()) << "a list holds no pictures";
    EXPECT_EQ(Import(csv).appended, 1);
    EXPECT_FALSE(Stored(u"1 ASH ST"_s, u"LOADSERIAL"_s).isEmpty());
    tests::XlsxFile made;
    made.sheets = {{"One", tests::XlsxFile::Row(1, {"Address", "Price"}) +
                               "<row r=\"2\"><c t=\"inlineStr\"><is><t>2 Ash St</t></is></c><c><v>1250.5</v></c></row>"}};
    disk.WriteWhole(book, made.Bytes());
    EXPECT_EQ(Import(book, {.decimal = u','}).appended, 1);
    EXPECT_EQ(Stored(u"2 ASH ST"_s, u"SELLINGPR"_s), u"1250.5"_s) << "a number of a sheet has no decimal sign";
}

TEST_F(TransferEdges, APreviewShowsNoMoreThanAnybodyReads)
{
    QByteArray lines = "Address,Price\n";
    for (int i = 0; i < 300; ++i)
        lines += QByteArray::number(i) + " Ash St,a lot\n" + QByteArray::number(i) + " Elm St,7\n";
    disk.WriteWhole(csv, lines);
    const ListFile file(disk, csv);
    const ListLook look = LookAtList(Desk(), file, {}).look;
    const ListPreview preview = PreviewOf(SampleOf(file, look, kSampleLines), look, true, ports.clock.Today());
    EXPECT_EQ(preview.refused, 300);
    EXPECT_EQ(preview.faults.size(), kPreviewFaults);
    EXPECT_EQ(preview.lines.size(), kPreviewLines);
}

TEST_F(TransferEdges, WhatAKilledImportOfAListLeftGoesWithTheNext)
{
    disk.WriteWhole(u"C:\\USER\\LIST.incoming"_s + tests::kKilledHere.Mark(), "half");
    disk.WriteWhole(u"C:\\USER\\LIST.incoming.txt"_s, "somebody's");
    disk.WriteWhole(csv, "Address\n1 Ash St\n");
    EXPECT_EQ(Import(csv).appended, 1);
    EXPECT_EQ(disk.Dir(u"C:\\USER\\LIST*"_s), QStringList{u"LIST.incoming.txt"_s});
}

} // namespace
} // namespace vasclip::upkeep
