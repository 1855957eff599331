#include "upkeep/report_csv.h"

#include "platform/text/runtime_error.h"
#include "support/error_number.h"
#include "support/file_limit.h"
#include "upkeep/layout_parser.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

const QDate kToday(2026, 3, 7);

TEST(CsvField, IsQuotedWhereItMustBe)
{
    EXPECT_EQ(CsvField(u"plain"_s), u"plain"_s);
    EXPECT_EQ(CsvField(u"a,b"_s), u"\"a,b\""_s);
    EXPECT_EQ(CsvField(u"5\" pipe"_s), u"\"5\"\" pipe\""_s);
    EXPECT_EQ(CsvField(u"a\nb"_s), u"\"a\nb\""_s);
    EXPECT_EQ(CsvField(u" a"_s), u"\" a\""_s);
}

class Csv : public testing::Test
{
protected:
    QTemporaryDir dir;
    const QString file = dir.filePath(u"report.csv"_s);
    const ReportLayout layout = ParseLayout(
        "column CITY\ncolumn SELLINGPR \"Price, sold\" as money\ncolumn SALEDATE as date\ncolumn NOTES\n");
    RecordFeed feed{
        3, [](qint64 place) -> std::optional<store::Record> {
            if (place == 1)
                return std::nullopt;
            auto names = std::make_shared<store::Record::Names>();
            *names = {{u"CITY"_s, 0}, {u"SELLINGPR"_s, 1}, {u"SALEDATE"_s, 2}, {u"NOTES"_s, 3}};
            return store::Record(names, {u"Zürich"_s, u"$1,250"_s, u"6/3/2025"_s, u"a\r\nb, \"c\""_s});
        }};
    [[nodiscard]] QByteArray Content() const
    {
        QFile written(file);
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
    }
};

TEST_F(Csv, HasTheColumnsOfTheReport)
{
    EXPECT_EQ(WriteReportCsv(file, layout, feed, kToday, [] { return true; }), paper::Made::Whole);
    const QByteArray line = "Z\xc3\xbcrich,1250,06/03/2025,\"a\r\nb, \"\"c\"\"\"\r\n";
    EXPECT_EQ(Content(), "\xef\xbb\xbf"
                         "City,\"Price, sold\",Sale Date,Notes\r\n" +
                             line + line);
}

TEST_F(Csv, ThatIsStoppedOrMeetsAFullDiskLeavesNothing)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    EXPECT_EQ(WriteReportCsv(file, layout, feed, kToday, [] { return false; }), paper::Made::Stopped);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList());
    feed.count = 5000;
    const tests::FileLimit full(4096);
    EXPECT_EQ(tests::NumberOf([&] {
                  static_cast<void>(WriteReportCsv(file, layout, feed, kToday, [] { return true; }));
              }),
              error::kDiskFull);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList());
}

} // namespace
} // namespace vasclip::upkeep
