#include "sheet_home.h"

namespace vasclip::sheet {
namespace {

class Workbooks : public SheetHome
{};

TEST_F(Workbooks, ReadEveryKindOfCell)
{
    tests::XlsxFile like;
    like.texts = {"<t>shared</t>", "<r><t>two </t></r><r><rPr><b/></rPr><t>runs</t></r><rPh><t>spoken</t></rPh>",
                  "<t xml:space=\"preserve\"> a &amp; b\n</t>"};
    like.formats = {"14", "yyyy\\-mm\\-dd", "00000", "18"};
    EXPECT_EQ(RowOf("<c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" t=\"s\"><v>2</v></c>"
                    "<c r=\"D1\" t=\"inlineStr\"><is><t>inside</t></is></c><c r=\"E1\"><v>1500.5</v></c>"
                    "<c r=\"F1\" s=\"1\"><v>38053</v></c><c r=\"G1\" s=\"2\"><v>38053.25</v></c><c r=\"H1\" s=\"3\"><v>1234</v></c>"
                    "<c r=\"I1\" s=\"4\"><v>0.25</v></c><c r=\"J1\" t=\"b\"><v>1</v></c><c r=\"K1\" t=\"b\"><v>0</v></c>"
                    "<c r=\"L1\" t=\"e\"><v>#N/A</v></c><c r=\"M1\" t=\"d\"><v>2004-03-07T00:00:00</v></c>",
                    like),
              (QStringList{u"shared"_s, u"two runs"_s, u" a & b\n"_s, u"inside"_s, u"1500.5"_s, u"2004-03-07"_s,
                           u"2004-03-07 06:00"_s, u"01234"_s, u"06:00"_s, u"TRUE"_s, u"FALSE"_s, u"!#N/A"_s, u"2004-03-07"_s}));
}

TEST_F(Workbooks, TakeWhatAFormulaCameTo)
{
    EXPECT_EQ(RowOf("<c r=\"A1\"><f>1+1</f><v>2</v></c><c r=\"B1\" t=\"str\"><f>A1&amp;\"x\"</f><v>2x</v></c>"
                    "<c r=\"C1\"><f>NOW()</f></c><c r=\"D1\" t=\"str\"><f>\"\"</f><v></v></c><c r=\"E1\"><v>5</v></c>"),
              (QStringList{u"2"_s, u"2x"_s,
                           u"!a formula whose result the file does not have; open it in a spreadsheet program and save it"_s,
                           QString(), u"5"_s}));
}

TEST_F(Workbooks, KeepCellsInTheirColumnsAndLeaveEmptyRowsOut)
{
    tests::XlsxFile made;
    made.sheets = {{"One", "<row r=\"2\"><c r=\"C2\"><v>3</v></c></row><row r=\"3\"><c r=\"A3\" s=\"0\"/></row><row r=\"4\"/>"
                           "<row><c><v>1</v></c><c><v>2</v></c></row><row r=\"9\"><c r=\"AB9\"><v>28</v></c></row>"}};
    Write(made.Bytes());
    const auto rows = Rows(u"One"_s);
    EXPECT_EQ(rows.keys(), (QList<qint64>{2, 5, 9}));
    EXPECT_EQ(rows[2], (QStringList{QString(), QString(), u"3"_s}));
    EXPECT_EQ(rows[5], (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(rows[9].size(), 28);
}

TEST_F(Workbooks, NameTheirSheetsAndReadTheOneThatIsWanted)
{
    tests::XlsxFile made;
    made.sheets = {{"Notes", tests::XlsxFile::Row(1, {"n"})}, {"Sales &amp; more", tests::XlsxFile::Row(1, {"s"})}};
    Write(made.Bytes());
    EXPECT_EQ(Workbook(file).Sheets(), (QStringList{u"Notes"_s, u"Sales & more"_s}));
    EXPECT_EQ(Rows(u"sales & MORE"_s).value(1), QStringList{u"s"_s});
    EXPECT_EQ(tests::ThrownBy([&] { return Rows(u"None"_s).size(); }).words,
              u"list.xlsx can't be read: it has no sheet None; its sheets are Notes, Sales & more"_s);
}

TEST_F(Workbooks, CountDaysAsTheFileSays)
{
    tests::XlsxFile like;
    like.formats = {"14"};
    like.from1904 = true;
    EXPECT_EQ(RowOf("<c s=\"1\"><v>36591</v></c>", like), QStringList{u"2004-03-07"_s});
}

TEST_F(Workbooks, SpreadAMergedValueDownItsRows)
{
    tests::XlsxFile made;
    made.sheets = {{"One", tests::XlsxFile::Row(1, {"A title"}) + tests::XlsxFile::Row(2, {"Cedar", "1 Ash"}) +
                               tests::XlsxFile::Row(3, {"", "2 Ash"}) + tests::XlsxFile::Row(4, {"", "3 Ash"}) +
                               tests::XlsxFile::Row(5, {"", "4 Ash"}) + "<row r=\"6\"/>",
                    "<mergeCells><mergeCell ref=\"A1:C1\"/><mergeCell ref=\"A2:A4\"/><mergeCell ref=\"B5:B6\"/></mergeCells>"}};
    Write(made.Bytes());
    const auto rows = Rows(u"One"_s);
    EXPECT_EQ(rows[1], QStringList{u"A title"_s});
    EXPECT_EQ(rows[3], (QStringList{u"Cedar"_s, u"2 Ash"_s}));
    EXPECT_EQ(rows[4], (QStringList{u"Cedar"_s, u"3 Ash"_s}));
    EXPECT_EQ(rows[5], (QStringList{QString(), u"4 Ash"_s}));
    EXPECT_FALSE(rows.contains(6));
}

TEST_F(Workbooks, OfOtherKindsAreRefusedByTheirName)
{
    const auto why = [&](const QByteArray& bytes) {
        Write(bytes);
        return WhyNot();
    };
    const QByteArray old = QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(600, '\0');
    EXPECT_EQ(why(old + QByteArray("W\0o\0r\0k\0b\0o\0o\0k\0", 16)),
              u"list.xlsx can't be read: it is a spreadsheet of the old kind .xls; save it as .xlsx or .csv"_s);
    EXPECT_EQ(why(old + QByteArray("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32)),
              u"list.xlsx can't be read: it is protected by a password; save it without one"_s);
    EXPECT_EQ(why("Address,City\r\n"), u"list.xlsx can't be read: it is no spreadsheet file of the kind .xlsx"_s);
    EXPECT_EQ(why({}), u"list.xlsx can't be read: it is no spreadsheet file of the kind .xlsx"_s);
    EXPECT_EQ(why(tests::Packed({{"mimetype", "application/x"}, {"content.xml", "<a/>"}})),
              u"list.xlsx can't be read: it is a spreadsheet of another kind (.ods); save it as .xlsx or .csv"_s);
    EXPECT_EQ(why(tests::Packed({{"word/document.xml", "<a/>"}})), u"list.xlsx can't be read: it holds no workbook"_s);
    EXPECT_EQ(tests::NumberOf([&] { const Workbook gone(home.filePath(u"gone.xlsx"_s)); }), error::kFileNotFound);
}

} // namespace
} // namespace vasclip::sheet
