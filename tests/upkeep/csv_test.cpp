#include "transfer_home.h"

#include "platform/engine/file_owner.h"
#include "support/error_number.h"
#include "upkeep/code_pages.h"
#include "upkeep/csv_text.h"
#include "upkeep/export_csv.h"
#include "upkeep/import_table.h"
#include "upkeep/list_presets.h"

namespace vasclip::upkeep {
namespace {

QList<QStringList> Read(const QString& text, QChar delimiter = u',', QString* fault = nullptr)
{
    CsvReader reader(text, delimiter);
    QList<QStringList> lines;
    while (const auto line = reader.Next())
        lines.append(*line);
    if (fault)
        *fault = reader.Fault();
    return lines;
}

TEST(CsvText, ReadsWhatItWrites)
{
    const QStringList odd{u"plain"_s, u"a,b"_s, u"say \"hi\""_s, u"two\r\nlines"_s, u""_s, u" blank "_s};
    EXPECT_EQ(CsvLine(odd, u','), u"plain,\"a,b\",\"say \"\"hi\"\"\",\"two\r\nlines\",, blank \r\n"_s);
    EXPECT_EQ(Read(CsvLine(odd, u',') + CsvLine(odd, u',')), (QList<QStringList>{odd, odd}));
    EXPECT_EQ(Read(CsvLine(odd, u';'), u';'), QList<QStringList>{odd});
}

TEST(CsvText, TakesEveryLineEndAndLastLinesWithoutOne)
{
    EXPECT_EQ(Read(u"a,b\nc,d\re,f\r\n\r\n\ng,h"_s),
              (QList<QStringList>{{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}, {u"e"_s, u"f"_s}, {u"g"_s, u"h"_s}}));
    EXPECT_EQ(Read(u"a,"_s), QList<QStringList>({{u"a"_s, u""_s}}));
    EXPECT_EQ(Read({}), QList<QStringList>());
}

TEST(CsvText, NamesTheLineOfAQuoteThatIsNeverClosed)
{
    QString fault;
    EXPECT_EQ(Read(u"a,b\n\"x\ny\",2\nc,\"d\ne\n"_s, u',', &fault).size(), 2);
    EXPECT_EQ(fault, u"Line 4: a quote is never closed"_s);
}

TEST(CsvText, FindsTheDelimiter)
{
    EXPECT_EQ(DelimiterOf(u"a;b;\"c,d,e,f\"\n1,2,3"_s), QChar(u';'));
    EXPECT_EQ(DelimiterOf(u"a\tb"_s), QChar(u'\t'));
    EXPECT_EQ(DelimiterOf(u"alone"_s), QChar(u','));
}

TEST(CodePages, AreToldApartAndWritten)
{
    QString found;
    EXPECT_EQ(Decoded("caf\xC3\xA9", {}, &found), u"caf\u00E9"_s);
    EXPECT_EQ(found, u"UTF-8"_s);
    EXPECT_EQ(Decoded("caf\xE9 \x80", {}, &found), u"caf\u00E9 \u20AC"_s);
    EXPECT_EQ(found, u"Windows-1252"_s);
    EXPECT_EQ(Decoded("\xEF\xBB\xBF" "a", {}, &found), u"a"_s);
    EXPECT_EQ(Decoded(QByteArray("\xFF\xFE" "a\0", 4), {}, &found), u"a"_s);
    EXPECT_EQ(found, u"UTF-16"_s);
    EXPECT_EQ(Decoded("caf\xE9", u"UTF-8"_s), std::nullopt);
    qint64 lost = 0;
    EXPECT_EQ(Encoded(u"\u20AC\u00E9\u0416"_s, u"Windows-1252"_s, lost), QByteArray("\x80\xE9?"));
    EXPECT_EQ(lost, 1);
    EXPECT_EQ(Encoded(u"\u20AC\u00E9"_s, u"ISO-8859-1"_s, lost), QByteArray("?\xE9"));
    EXPECT_EQ(lost, 2);
    EXPECT_EQ(CodePageOf(u"utf8"_s), u"UTF-8"_s);
    EXPECT_EQ(CodePageOf(u"cp-1252"_s), u"Windows-1252"_s);
    EXPECT_EQ(CodePageOf(u"EBCDIC"_s), QString());
}

class Csv : public TransferHome
{
protected:
    const QString file = u"C:\\EXPORT\\IN.CSV"_s;
    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
    }
    ListLook Look(const ListChoice& choice = {}) { return LookAtList(Desk(), ListFile(disk, file), choice).look; }
    ImportResult Import(const ListLook& look)
    {
        const auto list = std::make_shared<const ListFile>(disk, file);
        return ImportTable(Desk(), OrderOf(std::make_shared<const ListSource>(Desk(), list, look, Step())), Step());
    }
};

TEST_F(Csv, ProposesAFieldForEachHeading)
{
    disk.WriteWhole(file, "Address;Sq. Ft.;Sale Price;GLA;Colour;sale date\n");
    const ListLook look = Look();
    QStringList proposed;
    for (const ListColumn& column : look.columns)
        proposed.append(column.field);
    EXPECT_EQ(proposed, (QStringList{u"ADDRESS"_s, u"GLA"_s, u"SELLINGPR"_s, u""_s, u""_s, u"SALEDATE"_s}));
    EXPECT_EQ(look.delimiter, QChar(u';'));
}

TEST_F(Csv, RemembersTheColumnsThatWereChosen)
{
    disk.WriteWhole(file, "Address,Colour\n1 Ash St,red\n");
    ListLook look = Look();
    look.columns[1].field = u"NOTES"_s;
    KeepColumns(Desk(), look);
    EXPECT_EQ(Look().columns[1].field, u"NOTES"_s);
    disk.WriteWhole(file, "Address,Colour,ZIP\n1 Ash St,red,97001\n");
    EXPECT_EQ(Look().columns[1].field, QString()) << "other headings, another file";
}

TEST_F(Csv, BringsRowsInWithKeysDatesAndNumbersAsTheDatabookHasThem)
{
    disk.WriteWhole(file, "Address,City,Price,Sale Date,Notes\r\n"
                          "1 ash st,Cedar,\"$250,000\",3/7/04,\"two\nlines, \"\"quoted\"\"\"\r\n"
                          "12 Oak St,Cedar,1,,\r\n"
                          "2 Ash St,Cedar,250K,,\r\n"
                          "3 Ash St,Cedar,,tomorrow,\r\n"
                          ",Nowhere,,,\r\n");
    const ImportResult result = Import(Look());
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"SELLINGPR"_s).toString(), u"250000"_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"SALEDATE"_s).toString(), u"3/7/2004"_s);
    EXPECT_FALSE(Field(path, table, u"1 ASH ST"_s, u"SALESERIAL"_s).toString().isEmpty());
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"NOTES"_s).toString(), u"two\nlines, \"quoted\""_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, key).toString().size(), 35);
    EXPECT_EQ(AccountOf(result),
              (QStringList{u"Line 4, 12 OAK ST: the Databook has a record of this key"_s,
                           u"Line 5, 2 ASH ST: Price: \"250K\" is no price. Type digits, such as 250000 or 250,000.50."_s,
                           u"Line 6, 3 ASH ST: Sale Date: \"tomorrow\" is no date"_s,
                           u"Line 7: Address: it has no key"_s}));
    EXPECT_EQ(WordsOf(result), u"1 record of C:\\EXPORT\\IN.CSV was added to the Databook. 1 stayed out, as the Databook has "
                                "its key. 3 were refused."_s);
    EXPECT_EQ(disk.Dir(u"C:\\USER\\*"_s), QStringList()) << "what it was read into is gone";
}

TEST_F(Csv, IsReadAfreshWhereAKilledProcessOfTheSameNumberLeftItsFile)
{
    disk.WriteWhole(u"C:\\USER\\LIST.incoming"_s + engine::FileOwner::Own().Mark(), "half");
    disk.WriteWhole(file, "Address\n1 Ash St\n");
    EXPECT_EQ(Import(Look()).appended, 1);
}

TEST_F(Csv, RefusesWhatIsNoCsv)
{
    disk.WriteWhole(file, "\r\n\r\n");
    EXPECT_EQ(tests::NumberOf([&] { Look(); }), error::kUnrecognisedDatabase);
    disk.WriteWhole(file, "Address\n\"1 Ash St\n");
    EXPECT_EQ(tests::ThrownBy([&] { return Look().headingLine; }).words, u"Line 2: a quote is never closed"_s);
    disk.WriteWhole(file, "Address\n" + QByteArray("1 Ash St\n").repeated(2000) + "\"2 Ash St\n");
    const ListLook look = Look();
    EXPECT_EQ(tests::ThrownBy([&] { return Import(look).done; }).words, u"Line 2002: a quote is never closed"_s);
    EXPECT_EQ(disk.Dir(u"C:\\USER\\*"_s), QStringList());
}

TEST_F(Csv, TakesBackWhatWasExported)
{
    const CsvExport out = ExportCsv(Desk(), file, u"CITY = 'ALDER'"_s, {.delimiter = u';', .codePage = u"UTF-16"_s}, Step());
    EXPECT_TRUE(out.written);
    EXPECT_EQ(out.records, 2);
    databook.Close();
    disk.Kill(path);
    store::MakeDatabase(engine, path);
    Bind(databook);
    EXPECT_EQ(Import(Look()).appended, 2);
    EXPECT_EQ(Field(path, table, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
}

TEST_F(Csv, TakesThePlaceOfATextFileAlone)
{
    for (const QString& name : {u"C:\\EXPORT\\OLD.MDB"_s, u"C:\\JPG\\00000001.jpg"_s}) {
        disk.WriteWhole(name, "theirs");
        EXPECT_EQ(tests::NumberOf([&] { (void)ExportCsv(Desk(), name, {}, {}, Step()); }), error::kPathFileAccess);
        EXPECT_EQ(disk.ReadWhole(name), "theirs");
    }
}

TEST_F(Csv, ThatIsStoppedLeavesTheOldFile)
{
    disk.WriteWhole(file, "old");
    stopAt = 0;
    EXPECT_FALSE(ExportCsv(Desk(), file, {}, {}, Step()).written);
    EXPECT_EQ(disk.ReadWhole(file), "old");
}

} // namespace
} // namespace vasclip::upkeep
