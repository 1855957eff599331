#include "list_home.h"

#include "store/change.h"

namespace vasclip::upkeep {
namespace {

class ListImport : public ListHome
{};

TEST_F(ListImport, TakesDatesAndNumbersOfAnotherCountry)
{
    disk.WriteWhole(csv, "Address;Price;Sale Date;Lat;Sq Ft\r\n"
                         "1 Ash St;250.000,50;31.3.2004;44,0512346;1.600\r\n"
                         "2 Ash St;1.250,5;1.3.2004;-123,5;1.200 sf\r\n");
    EXPECT_EQ(Import(csv).appended, 2);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"SELLINGPR"_s), u"250000.50"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"SALEDATE"_s), u"3/31/2004"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"LATITUDE"_s), u"44.051235"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"GLA"_s), u"1600"_s);
    EXPECT_EQ(Stored(u"2 ASH ST"_s, u"SALEDATE"_s), u"3/1/2004"_s);
    EXPECT_EQ(Stored(u"2 ASH ST"_s, u"GLA"_s), u"1200"_s);
}

TEST_F(ListImport, TakesThreeHundredColumns)
{
    QByteArray headings = "Address";
    QByteArray line = "1 Ash St";
    for (int i = 1; i < 299; ++i) {
        headings += ",Column " + QByteArray::number(i);
        line += ",value " + QByteArray::number(i);
    }
    disk.WriteWhole(csv, headings + ",City\n" + line + ",\"Ce,\"\"dar\nCity\"\n");
    ListLook look = Look(csv).look;
    ASSERT_EQ(look.columns.size(), 300);
    look.columns[150].field = u"NOTES"_s;
    const ImportOrder order = Order(csv, look);
    const ImportResult result = ImportTable(Desk(), order, Step());
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(result.leftBehind.size(), 297);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"NOTES"_s), u"value 150"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"CITY"_s), u"Ce,\"dar\nCity"_s);
}

TEST_F(ListImport, TakesASheetWithItsTypedCells)
{
    tests::XlsxFile made;
    made.formats = {"14", "00000"};
    made.sheets = {{"Notes", tests::XlsxFile::Row(1, {"nothing here"})},
                   {"Sales", tests::XlsxFile::Row(1, {"Sales of March"}) +
                                 tests::XlsxFile::Row(3, {"Address", "City", "Zip", "Price", "Sale Date", "Lat", "Remarks"}) +
                                 "<row r=\"4\"><c t=\"inlineStr\"><is><t>1 Ash St</t></is></c><c t=\"inlineStr\"><is><t>Cedar</t></is></c>"
                                 "<c s=\"2\"><v>1234</v></c><c><v>250000.5</v></c><c s=\"1\"><v>38053</v></c><c><v>44.051234567</v></c></row>"
                                 "<row r=\"5\"><c t=\"inlineStr\"><is><t>2 Ash St</t></is></c><c/><c/><c t=\"e\"><v>#N/A</v></c></row>"
                                 "<row r=\"6\"><c t=\"inlineStr\"><is><t>3 Ash St</t></is></c><c/><c/><c/>"
                                 "<c t=\"inlineStr\"><is><t>31/3/2004</t></is></c></row>"}};
    disk.WriteWhole(book, made.Bytes());
    const ListLook look = Look(book, {.sheet = u"Sales"_s}).look;
    EXPECT_EQ(look.headingLine, 3);
    EXPECT_EQ(look.dates, DateOrder::DayFirst) << "of what is text; typed dates have none";
    const ImportResult result = ImportTable(Desk(), Order(book, look), Step());
    EXPECT_EQ(AccountOf(result), QStringList{u"Line 5, 2 ASH ST: Price: #N/A"_s});
    EXPECT_EQ(result.appended, 2);
    EXPECT_EQ(result.leftBehind, QStringList{u"Remarks"_s});
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"ZIP"_s), u"01234"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"SELLINGPR"_s), u"250000.5"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"SALEDATE"_s), u"3/7/2004"_s);
    EXPECT_EQ(Stored(u"1 ASH ST"_s, u"LATITUDE"_s), u"44.051235"_s);
    EXPECT_EQ(Stored(u"3 ASH ST"_s, u"SALEDATE"_s), u"3/31/2004"_s);
}

TEST_F(ListImport, RefusesASpreadsheetOfAnotherKind)
{
    disk.WriteWhole(u"C:\\EXPORT\\OLD.XLS"_s, QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray("B\0o\0o\0k\0", 8));
    EXPECT_EQ(tests::ThrownBy([&] { return Look(u"C:\\EXPORT\\OLD.XLS"_s).datesOpen; }).words,
              u"OLD.XLS can't be read: it is a spreadsheet of the old kind .xls; save it as .xlsx or .csv"_s);
    tests::XlsxFile made;
    made.sheets = {{"Empty", {}}};
    disk.WriteWhole(book, made.Bytes());
    EXPECT_EQ(tests::ThrownBy([&] { return Look(book).datesOpen; }).words, u"C:\\EXPORT\\IN.XLSX has no line of headings"_s);
}

TEST_F(ListImport, TellsTheHistoryTheNameOfTheList)
{
    disk.WriteWhole(csv, "Address\n1 Ash St\n");
    QStringList words;
    databook.Watch([&](const store::Step& step) { words.append(step.words); });
    Import(csv);
    EXPECT_EQ(words, QStringList{u"Import from C:\\EXPORT\\IN.CSV"_s});
}

class RefusedLines : public ListHome
{
protected:
    const QString mended = u"C:\\EXPORT\\MENDED.CSV"_s;
    QByteArray Refused(const QString& file, const ListChoice& choice = {})
    {
        const Rehearsal rehearsal(Desk(), Order(file, Look(file, choice).look));
        EXPECT_GT(rehearsal.WriteRefused(mended), 0);
        return disk.ReadWhole(mended);
    }
};

TEST_F(RefusedLines, StandAsTheyWereWithTheReasonBehindThem)
{
    disk.WriteWhole(csv, "Address;Sold Date;Price;Colour\r\n"
                         "1 Ash St;31.3.2004;250.000,50;red\r\n"
                         "2 Ash St;3.4.2004;a lot;\"blue; \"\"or\"\" so\"\r\n"
                         "1 ash st;;;\r\n"
                         ";;;nowhere\r\n");
    EXPECT_EQ(Refused(csv),
              "Address;Sold Date;Price;Colour;REASON\r\n"
              "2 Ash St;3.4.2004;a lot;\"blue; \"\"or\"\" so\";\"Price: \"\"a lot\"\" is no price. Type digits, such as 250000 or "
              "250,000.50.\"\r\n"
              "1 ash st;;;;an earlier row of the file has the same key\r\n"
              ";;;nowhere;Address: it has no key\r\n");
}

TEST_F(RefusedLines, AreNamedByLineAndColumnWhateverIsWrong)
{
    disk.WriteWhole(csv, "Our number,House,Town\r\n"
                         ",1 Ash St,Cedar\r\n"
                         ",,Cedar\r\n"
                         ",2 Ash St," + QByteArray(90, 'x') + "\r\n"
                         ",1 ash st,Cedar\r\n");
    ListLook look = Look(csv).look;
    look.columns[0].field = u"CENTRALKEY"_s;
    look.columns[1].field = u"ADDRESS"_s;
    look.columns[2].field = u"CITY"_s;
    const ImportOrder order = Order(csv, look);
    const Rehearsal rehearsal(Desk(), order);
    QStringList rows;
    for (const RehearsedRow& row : rehearsal.Rows())
        if (row.kind == RowKind::Refused)
            rows.append(row.key + u": "_s + row.why);
    const QString size = QString::number(store::FindCompsColumn(u"CITY"_s)->size);
    EXPECT_EQ(rows, (QStringList{u"Line 3: Our number, House: it has no key"_s,
                                 u"Line 4, 2 ASH ST: Town: CITY holds 90 characters, the Databook takes "_s + size,
                                 u"Line 5, 1 ASH ST: an earlier row of the file has the same key"_s}));
    EXPECT_EQ(AccountOf(ImportTable(Desk(), order, Step())), rows);
}

TEST_F(RefusedLines, AreMendedAndImportedWithTheColumnsThatWereChosen)
{
    disk.WriteWhole(csv, "House;Sold;Price\n1 Ash St;31.3.2004;1,5\n2 Ash St;3.4.2004;a lot\n");
    ListLook look = Look(csv).look;
    look.columns[0].field = u"ADDRESS"_s;
    look.columns[1].field = u"SALEDATE"_s;
    look.dates = DateOrder::DayFirst;
    KeepColumns(Desk(), look);
    const Rehearsal rehearsal(Desk(), Order(csv, look));
    EXPECT_EQ(rehearsal.Count(RowKind::Refused), 1);
    EXPECT_EQ(rehearsal.Rows().last().key, u"Line 3, 2 ASH ST"_s);
    EXPECT_TRUE(rehearsal.FieldsOf(rehearsal.Rows().last()).isEmpty());
    EXPECT_EQ(rehearsal.WriteRefused(mended), 1);
    disk.WriteWhole(mended, disk.ReadWhole(mended).replace("a lot", "2,5"));
    const ImportResult result = Import(mended);
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(result.leftBehind, QStringList()) << "the reason is no column of theirs";
    EXPECT_EQ(Stored(u"2 ASH ST"_s, u"SALEDATE"_s), u"4/3/2004"_s);
    EXPECT_EQ(Stored(u"2 ASH ST"_s, u"SELLINGPR"_s), u"2.5"_s);
}

TEST_F(RefusedLines, OfASecondTimeHaveOneReason)
{
    disk.WriteWhole(csv, "Address,Price,REASON\n2 Ash St,a lot,of an earlier time\n");
    EXPECT_EQ(Refused(csv).split('\n').first(), "Address,Price,REASON\r");
    EXPECT_FALSE(disk.ReadWhole(mended).contains("earlier time"));
}

TEST_F(RefusedLines, OfWhatIsNoTextAreNone)
{
    for (const QByteArray& bytes : {QByteArray("\x00\x01\x00\x00Standard Jet DB,\n1\n", 24), QByteArray("\xFF\xD8\xFF\xE0\x00\x10JFIF\n", 11)}) {
        disk.WriteWhole(csv, bytes);
        EXPECT_EQ(tests::ThrownBy([&] { return ListFile(disk, csv).IsWorkbook(); }).words,
                  u"C:\\EXPORT\\IN.CSV is no text file, as it holds bytes that no text has. Choose another file"_s);
    }
    disk.WriteWhole(csv, QByteArray("A\0d\0d\0r\0e\0s\0s\0\n\0" "1\0 \0A\0s\0h\0", 26));
    EXPECT_EQ(Look(csv).look.codePage, u"UTF-16"_s) << "which need not have its mark";
    EXPECT_EQ(Import(csv).appended, 1);
}

TEST_F(RefusedLines, OfASheetBecomeACsv)
{
    tests::XlsxFile made;
    made.formats = {"14"};
    made.sheets = {{"One", tests::XlsxFile::Row(1, {"Address", "Sale Date", "Price"}) +
                               "<row r=\"2\"><c t=\"inlineStr\"><is><t>1 Ash St</t></is></c><c s=\"1\"><v>38053</v></c><c t=\"e\"><v>#REF!</v></c></row>"}};
    disk.WriteWhole(book, made.Bytes());
    EXPECT_EQ(Refused(book), "Address,Sale Date,Price,REASON\r\n1 Ash St,2004-03-07,#REF!,Price: #REF!\r\n");
    EXPECT_EQ(Look(mended).look.dates, DateOrder::MonthFirst);
}

TEST_F(RefusedLines, KeepTheCodePage)
{
    disk.WriteWhole(csv, "Address,City,Price\n2 Ash St,Caf\xE9,a lot\n");
    EXPECT_TRUE(Refused(csv).contains("Caf\xE9"));
    disk.WriteWhole(csv, QByteArray("\xFF\xFE" "A\0d\0d\0r\0e\0s\0s\0,\0P\0r\0i\0c\0e\0\n\0" "1\0,\0x\0", 36));
    EXPECT_TRUE(Refused(csv).startsWith("\xFF\xFE" "A")) << "UTF-16 with its mark";
}

TEST_F(RefusedLines, AreNotWrittenOverTheListNorFromAnotherOne)
{
    disk.WriteWhole(csv, "Address,Price\n2 Ash St,a lot\n");
    const Rehearsal rehearsal(Desk(), Order(csv, Look(csv).look));
    EXPECT_EQ(tests::ThrownBy([&] { return rehearsal.WriteRefused(u"c:\\export\\in.csv"_s); }).words,
              u"c:\\export\\in.csv is the list that is imported. Choose another name for its refused rows"_s);
    disk.WriteWhole(csv, "Address,Price\n9 Elm St,other and longer\n");
    EXPECT_EQ(tests::ThrownBy([&] { return rehearsal.WriteRefused(mended); }).words,
              u"C:\\EXPORT\\IN.CSV was changed since it was read. Import it again to have its refused lines"_s);
    EXPECT_FALSE(disk.FileExists(mended));
}

} // namespace
} // namespace vasclip::upkeep
