// Text and spreadsheet files through vasctl: the options that say how a list is read.

#include "support/processes.h"
#include "support/xlsx_file.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2;
const QString kCsv = u"C:\\VAS2000\\LIST.CSV"_s;
const QString kBook = u"C:\\VAS2000\\LIST.XLSX"_s;

class VasctlLists : public testing::Test
{
protected:
    ProgramHome home;
    void SetUp() override { ASSERT_TRUE(home.Make()); }

    void Put(const QString& path, const QByteArray& bytes) const
    {
        QFile file(home.Native(path.mid(3).replace(u'\\', u'/')));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    Ended Import(const QString& file, const QStringList& more = {}) const
    {
        return home.Vasctl(QStringList{u"--plain"_s, u"import"_s, file} + more);
    }
    QString Stored(const QString& key, const QString& field) const
    {
        return home.Vasctl({u"sql"_s, u"SELECT %1 FROM COMPS WHERE CENTRALKEY = '%2'"_s.arg(field, key)})
            .Array()
            .at(0)
            .toObject()[field]
            .toVariant()
            .toString();
    }
    qint64 Records() const { return home.Vasctl({u"records"_s, u"list"_s}).Array().size(); }
    /// A wrong option is told with these words, and nothing comes in.
    void ExpectRefused(const QString& file, const QStringList& more, int code, const QByteArray& words) const
    {
        const Ended ended = Import(file, more);
        EXPECT_EQ(ended.code, code) << more.join(u' ').toStdString() << ended.err.toStdString();
        EXPECT_TRUE(ended.err.contains(words)) << more.join(u' ').toStdString() << ": " << ended.err.toStdString();
    }
};

TEST_F(VasctlLists, DatesAndTheDecimalSignAreReadAsTheOptionsSay)
{
    Put(kCsv, "Address;Price;Sale Date\n9876 Test Ln;250.000;03/07/2004\n");
    const QStringList dayFirst{u"--dates"_s, u"dmy"_s, u"--decimal"_s, u"comma"_s};
    const Ended ended = Import(kCsv, dayFirst);
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    EXPECT_TRUE(ended.out.contains("dates day first, decimal comma")) << ended.out.toStdString();
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"SELLINGPR"_s), u"250000"_s);
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"SALEDATE"_s), u"2004-07-03"_s);
    Put(kCsv, "Address;Price;Sale Date\n9877 Test Ln;250.00;03/07/2004\n");
    const Ended other = Import(kCsv, {u"--dates"_s, u"mdy"_s, u"--decimal"_s, u"point"_s});
    ASSERT_EQ(other.code, kDone) << other.err.toStdString();
    EXPECT_TRUE(other.out.contains("dates month first, decimal point")) << other.out.toStdString();
    EXPECT_EQ(Stored(u"9877 TEST LN"_s, u"SALEDATE"_s), u"2004-03-07"_s);
    EXPECT_EQ(Stored(u"9877 TEST LN"_s, u"SELLINGPR"_s).toDouble(), 250);
    Put(kCsv, "Address;Sale Date\n9878 Test Ln;04/07/03\n");
    ASSERT_EQ(Import(kCsv, {u"--dates"_s, u"ymd"_s}).code, kDone);
    EXPECT_EQ(Stored(u"9878 TEST LN"_s, u"SALEDATE"_s), u"2004-07-03"_s);
}

TEST_F(VasctlLists, HeadingsStandInTheLineThatIsNamedOrInNone)
{
    Put(kCsv, "Address,City\nAddress,Notes\n9876 Test Ln,corner\n");
    ASSERT_EQ(Import(kCsv, {u"--headings"_s, u"2"_s}).code, kDone);
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"NOTES"_s), u"corner"_s);
    Put(kCsv, "9877 Test Ln,corner\n9878 Test Ln,inside\n");
    const Ended bare = Import(kCsv, {u"--headings"_s, u"0"_s, u"--map"_s, u"(column 1)=ADDRESS"_s, u"--map"_s,
                                     u"(column 2)=NOTES"_s});
    ASSERT_EQ(bare.code, kDone) << bare.err.toStdString();
    EXPECT_EQ(Stored(u"9877 TEST LN"_s, u"NOTES"_s), u"corner"_s) << "the first line is a record";
    EXPECT_EQ(Stored(u"9878 TEST LN"_s, u"NOTES"_s), u"inside"_s);
}

TEST_F(VasctlLists, ASheetIsTakenByItsName)
{
    XlsxFile made;
    made.sheets = {{"Rentals", XlsxFile::Row(1, {"Address", "Notes"}) + XlsxFile::Row(2, {"9876 Test Ln", "rented"})},
                   {"Sales", XlsxFile::Row(1, {"Address", "Notes"}) + XlsxFile::Row(2, {"9877 Test Ln", "sold"})}};
    Put(kBook, made.Bytes());
    const Ended ended = Import(kBook, {u"--sheet"_s, u"sales"_s});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    EXPECT_EQ(Stored(u"9877 TEST LN"_s, u"NOTES"_s), u"sold"_s);
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"NOTES"_s), QString()) << "the other sheet stays out";
    ASSERT_EQ(Import(kBook).code, kDone);
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"NOTES"_s), u"rented"_s) << "without a name it is the first one";
    const qint64 records = Records();
    ExpectRefused(kBook, {u"--sheet"_s, u"May"_s}, kFailed, "May");
    ExpectRefused(kBook, {u"--sheet"_s, u""_s}, kUsage, "--sheet wants a name.");
    ExpectRefused(kBook, {u"--delimiter"_s, u";"_s}, kUsage, "--delimiter and --code-page belong to a CSV file.");
    EXPECT_EQ(Records(), records);
}

TEST_F(VasctlLists, APresetIsTakenByItsName)
{
    Put(u"C:\\VAS2000\\ListPresets.json"_s,
        R"({"County": {"fields": {"WHERE": "ADDRESS", "WHAT": "NOTES", "WHEN": "SALEDATE"}, "dates": 1, "decimal": ",",)"
        R"( "delimiter": ";", "codePage": "Windows-1252", "headingLine": 2}})");
    const QString user = home.Vasctl({u"settings"_s, u"get"_s, u"USERDIR"_s}).Object()[u"value"_s].toString();
    Put(kCsv, "Roll of the county\nWhere;What;When\n9876 Test Ln;caf\xE9;03/07/2004\n");
    const Ended ended = Import(kCsv, {u"--preset"_s, u"County"_s});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString() << user.toStdString();
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"NOTES"_s), u"caf\u00E9"_s);
    EXPECT_EQ(Stored(u"9876 TEST LN"_s, u"SALEDATE"_s), u"2004-07-03"_s);
    Put(kCsv, "Roll of the county\nWhere;What;When\n9877 Test Ln;x;03/07/2004\n");
    ASSERT_EQ(Import(kCsv, {u"--preset"_s, u"County"_s, u"--dates"_s, u"mdy"_s}).code, kDone);
    EXPECT_EQ(Stored(u"9877 TEST LN"_s, u"SALEDATE"_s), u"2004-03-07"_s) << "what is said goes before what was kept";
    ExpectRefused(kCsv, {u"--preset"_s, u"Town"_s}, kFailed, "There is no preset Town; these are kept: County");
    ExpectRefused(kCsv, {u"--preset"_s, u""_s}, kUsage, "--preset wants a name.");
}

TEST_F(VasctlLists, AValueThatIsNoneIsToldAndNothingComesIn)
{
    Put(kCsv, "Address,Price\n9876 Test Ln,250000\n");
    const qint64 records = Records();
    struct Row
    {
        QStringList options;
        int code;
        QByteArray words;
    };
    const Row rows[] = {
        {{u"--dates"_s, u"german"_s}, kUsage, "--dates takes mdy, dmy or ymd; not 'german'."},
        {{u"--dates"_s, u""_s}, kUsage, "--dates takes mdy, dmy or ymd; not ''."},
        {{u"--decimal"_s, u","_s}, kUsage, "--decimal takes point or comma; not ','."},
        {{u"--headings"_s, u"first"_s}, kUsage, "--headings takes the number of a line, 0 for a list without headings; not 'first'."},
        {{u"--headings"_s, u"-1"_s}, kUsage, "--headings takes the number of a line"},
        {{u"--headings"_s, u"40"_s}, kFailed, "LIST.CSV has no line of headings"},
        {{u"--delimiter"_s, u"ab"_s}, kUsage, "--delimiter takes one letter, or 'tab'; not 'ab'."},
        {{u"--delimiter"_s, u""_s}, kUsage, "--delimiter takes one letter, or 'tab'; not ''."},
        {{u"--code-page"_s, u"EBCDIC"_s}, kUsage, "'EBCDIC' is no code page that can be read; these can: "},
        {{u"--sheet"_s, u"Sales"_s}, kUsage, "--sheet belongs to a spreadsheet file."},
        {{u"--map"_s, u"Price=NOSUCH"_s}, kUsage, "The Databook has no field 'NOSUCH'."},
        {{u"--map"_s, u"Price=FrontPhoto"_s}, kUsage, "A list holds no pictures: no column goes into FRONTPHOTO."},
        {{u"--map"_s, u"Colour=NOTES"_s}, kUsage, "The file has no column 'Colour'."},
    };
    for (const Row& row : rows)
        ExpectRefused(kCsv, row.options, row.code, row.words);
    EXPECT_EQ(Records(), records);
    ASSERT_EQ(home.Vasctl({u"export"_s, u"--file"_s, u"C:\\VAS2000\\OUT.MDB"_s}).code, kDone);
    for (const QString& option : {u"preset"_s, u"sheet"_s, u"headings"_s, u"dates"_s, u"decimal"_s, u"delimiter"_s, u"code-page"_s,
                                  u"map"_s})
        ExpectRefused(u"C:\\VAS2000\\OUT.MDB"_s, {u"--"_s + option, u"1"_s}, kUsage,
                      "--" + option.toUtf8() + " belongs to a CSV or spreadsheet file.");
    EXPECT_EQ(home.Vasctl({u"export"_s, u"--file"_s, u"C:\\X.CSV"_s, u"--to"_s, u"csv"_s, u"--delimiter"_s, u"::"_s}).code, kUsage);
    EXPECT_FALSE(QFile::exists(home.Native(u"X.CSV"_s)));
}

TEST_F(VasctlLists, HelpAndGuideTellTheOptions)
{
    const QByteArray help = home.Vasctl({u"--plain"_s, u"--help"_s}).out;
    QFile page(u"" VASCLIP_GUIDE_DIR "/vasctl.md"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray guide = page.readAll();
    for (const QByteArray option : {"--map", "--preset", "--delimiter", "--code-page", "--sheet", "--headings", "--dates", "--decimal"}) {
        EXPECT_GE(help.count(option), 2) << option.toStdString() << " in its command and among the options";
        EXPECT_TRUE(guide.contains(option)) << option.toStdString();
    }
}

} // namespace
