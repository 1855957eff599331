#include "sheet_home.h"

#include <QElapsedTimer>

namespace vasclip::sheet {
namespace {

class DamagedWorkbooks : public SheetHome
{
protected:
    /// A file with something of everything.
    static tests::XlsxFile Whole()
    {
        tests::XlsxFile made;
        made.texts = {"<t>Address</t>", "<t>1 Ash St</t>"};
        made.formats = {"14", "yyyy"};
        made.sheets = {{"One", "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" s=\"1\"><v>38053</v></c></row>"
                               "<row r=\"2\"><c r=\"A2\" t=\"s\"><v>1</v></c><c r=\"B2\" t=\"b\"><v>1</v></c></row>",
                        "<mergeCells><mergeCell ref=\"A1:A2\"/></mergeCells>"}};
        return made;
    }
    QString WhyNotRows(const QByteArray& rows, const QByteArray& behind = {}) const
    {
        tests::XlsxFile made = Whole();
        made.sheets = {{"One", rows, behind}};
        Write(made.Bytes());
        return WhyNot();
    }
    QString WhyNotPart(const QByteArray& part, const QByteArray& xml) const
    {
        auto parts = Whole().Parts();
        for (auto& [name, bytes] : parts)
            if (name == part)
                bytes = xml;
        Write(tests::Packed(parts));
        return WhyNot();
    }
};

TEST_F(DamagedWorkbooks, SayWhereTheyCanNotBeRead)
{
    EXPECT_EQ(WhyNotRows("<row r=\"5\"><c><v>1</v></c></row><row r=\"3\"><c><v>1</v></c></row>"),
              u"list.xlsx can't be read: xl/worksheets/sheet1.xml, line 2: row 3 stands behind row 5"_s);
    EXPECT_TRUE(WhyNotRows("<row r=\"1048577\"><c><v>1</v></c></row>").endsWith(u"row 1048577 stands behind row 0"_s));
    EXPECT_TRUE(WhyNotRows("<row r=\"1\"><c r=\"XFE1\"><v>1</v></c></row>").endsWith(u"\"XFE1\" is no place of a cell"_s));
    EXPECT_TRUE(WhyNotRows("<row r=\"1\"><c r=\"B1\"><v>1</v></c><c r=\"A1\"><v>1</v></c></row>").endsWith(u"is no place of a cell"_s));
    EXPECT_TRUE(WhyNotRows("<row r=\"1\"><c t=\"s\"><v>99</v></c></row>").contains(u"names a text that the file does not have"_s));
    EXPECT_TRUE(WhyNotRows("<row r=\"1\"><c><v>1</c></row>").contains(u"sheet1.xml, line 2: "_s));
    EXPECT_EQ(WhyNotRows("<row r=\"1\"><c r=\"XFD1\"><v>1</v></c></row><row r=\"1048576\"><c><v>1</v></c></row>",
                         "<mergeCells><mergeCell ref=\"A1:XFD1048576\"/><mergeCell ref=\"rubbish\"/></mergeCells>"),
              QString()) << "the largest that there is";
}

TEST_F(DamagedWorkbooks, HaveNoEntitiesOfTheirOwn)
{
    QByteArray laughs = "<?xml version=\"1.0\"?><!DOCTYPE sst [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 30; ++i)
        laughs += "<!ENTITY a" + QByteArray::number(i) + " \"&a" + QByteArray::number(i - 1) + ";&a" + QByteArray::number(i - 1) + ";\">";
    EXPECT_TRUE(WhyNotPart("xl/sharedStrings.xml", laughs + "]><sst><si><t>&a29;</t></si></sst>").contains(u"defines texts of its own"_s));
    EXPECT_TRUE(WhyNotPart("xl/workbook.xml", "<!DOCTYPE w SYSTEM \"file:///etc/passwd\"><workbook/>").contains(u"defines texts of its own"_s));
}

TEST_F(DamagedWorkbooks, TakeNoMoreThanTheirShare)
{
    EXPECT_TRUE(WhyNotPart("xl/sharedStrings.xml", "<sst>" + QByteArray("<a>").repeated(200'000)).contains(u"more than 64 deep"_s));
    EXPECT_TRUE(WhyNotPart("xl/sharedStrings.xml", "<sst><si><t>" + QByteArray(40 << 20, 'x') + "</t></si></sst>")
                    .contains(u"one piece of it has more than 16 MB"_s));
    EXPECT_TRUE(WhyNotPart("xl/workbook.xml", "<workbook a=\"" + QByteArray(40 << 20, 'x') + "\"/>")
                    .contains(u"one piece of it has more than 16 MB"_s));
    QByteArray forged = Whole().Bytes();
    const qsizetype name = forged.lastIndexOf("xl/workbook.xml", forged.lastIndexOf("xl/_rels"));
    forged.replace(name - 46 + 24, 4, QByteArray::fromHex("000000f0")); // the unpacked size in its directory
    Write(forged);
    EXPECT_EQ(WhyNot(), u"list.xlsx can't be read: xl/workbook.xml in it has more than 1024 MB when it is unpacked"_s);
}

/// Cut anywhere and changed anywhere, a file gives its rows or words; what is stored plainly is read more deeply.
TEST_F(DamagedWorkbooks, AreReadOrRefusedInWordsWhereverTheyAreHurt)
{
    quint32 random = 12345;
    const auto next = [&random](qsizetype below) {
        random = random * 1664525 + 1013904223;
        return static_cast<qsizetype>((random >> 8) % static_cast<quint32>(below));
    };
    int refused = 0;
    int read = 0;
    const auto count = [&](const QByteArray& bytes) {
        Write(bytes);
        const auto thrown = tests::ThrownBy([&] {
            const Workbook book(file);
            for (const QString& sheet : book.Sheets())
                (void)Rows(sheet);
            return 0;
        });
        EXPECT_TRUE(thrown.number == 0 || thrown.number == error::kUnrecognisedDatabase) << thrown.words.toStdString();
        EXPECT_TRUE(thrown.number == 0 || thrown.words.startsWith(u"list.xlsx can't be read: "_s)) << thrown.words.toStdString();
        ++(thrown.number == 0 ? read : refused);
    };
    QElapsedTimer time;
    time.start();
    for (const bool store : {false, true}) {
        const QByteArray whole = Whole().Bytes(store);
        for (qsizetype length = 0; length < whole.size(); length += 7)
            count(whole.left(length));
        for (int i = 0; i < 700; ++i) {
            QByteArray hurt = whole;
            for (qsizetype bytes = 1 + next(3); bytes > 0; --bytes)
                hurt[next(hurt.size())] = static_cast<char>(next(256));
            count(hurt);
        }
    }
    EXPECT_GT(refused, 300);
    EXPECT_GT(read, 20) << "some of it nobody reads";
    EXPECT_LT(time.elapsed(), 60'000);
}

} // namespace
} // namespace vasclip::sheet
