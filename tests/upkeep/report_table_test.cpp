#include "store/convert.h"
#include "support/databook_home.h"
#include "upkeep/layout_parser.h"
#include "upkeep/report_question.h"
#include "upkeep/report_table.h"

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

TEST(SelectReportFiles, HasARowForEachChoice)
{
    const auto files = [](int chosen) {
        const ReportFiles found = SelectReportFiles(chosen);
        return (found.report + u' ' + found.database).toStdString();
    };
    EXPECT_EQ(files(0), "brief.rpt Report_Brief.mdb");
    EXPECT_EQ(files(1), "medium.rpt Report_Medium.mdb");
    EXPECT_EQ(files(2), "detail.rpt Report_Detail.mdb");
    EXPECT_EQ(files(3), "brief.rpt Report_NonDesc.mdb");
    EXPECT_EQ(files(-1), "brief.rpt Report_NonDesc.mdb");
}

TEST(Question, IsAskedFromTheFiveHundredAndFirstOn)
{
    tests::TestPorts doubles;
    const forms::Ports ports = doubles.Get();
    EXPECT_TRUE(MayPrint(ports.prompter, 500));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    for (const auto& [answer, may] :
         {std::pair{forms::Answer::Yes, true}, {forms::Answer::No, false}, {forms::Answer::Cancel, false}}) {
        doubles.prompter.Answer(answer);
        EXPECT_EQ(MayPrint(ports.prompter, 501), may);
        EXPECT_EQ(doubles.prompter.Last(),
                  (tests::ShownBox{
                      forms::Buttons::YesNoCancel, forms::Icon::Question, u"Output Report Record Count"_s,
                      u"You have more than 500 records queued for printing (Exact count = 501 )\r\n"
                      "Do you with to Continue ?"_s}));
    }
}

class FilledReport : public tests::DatabookHome
{
protected:
    const QString file = u"C:\\Report_Brief.mdb"_s;

    void SetUp() override
    {
        DatabookHome::SetUp();
        AddRows({{{key, u"1 A ST"_s}, {u"CITY"_s, u"Marlow"_s}, {u"SELLINGPR"_s, u"90000"_s}},
                 {{key, u"2 B ST"_s}, {u"CITY"_s, u"Tannery"_s}, {u"SELLINGPR"_s, u"200000"_s}},
                 {{key, u"3 C ST"_s}, {u"CITY"_s, u"Marlow"_s}, {u"SELLINGPR"_s, u"150000"_s}}});
    }
    qint64 Fill(const QString& search) { return FillReport(engine, file, path, table, search); }
    QStringList Keys(const QByteArray& layoutText)
    {
        const ReportLayout layout = ParseLayout(layoutText);
        const ReportTable report(engine, file, layout);
        const RecordFeed feed = report.Feed();
        QStringList keys;
        for (qint64 i = 0; i < feed.count; ++i)
            keys.append(feed.at(i)->Text(key));
        return keys;
    }
};

TEST_F(FilledReport, IsMadeWhereItIsNotThere)
{
    EXPECT_FALSE(disk.Found(file));
    EXPECT_EQ(Fill({}), 3);
    EXPECT_EQ(Keys("column CITY\n"), (QStringList{u"1 A ST"_s, u"2 B ST"_s, u"3 C ST"_s}));
}

TEST_F(FilledReport, HoldsTheSearchAloneAndInItsOrder)
{
    EXPECT_EQ(Fill({}), 3);
    EXPECT_EQ(Fill(u"CITY = 'Marlow' ORDER BY COMPS.SELLINGPR DESC"_s), 2);
    EXPECT_EQ(Keys("column CITY\n"), (QStringList{u"3 C ST"_s, u"1 A ST"_s}));
}

TEST_F(FilledReport, OfASearchThatOnlySortsIsTheWholeDatabook)
{
    EXPECT_EQ(Fill(u"ORDER BY COMPS.SELLINGPR DESC"_s), 3);
    EXPECT_EQ(Fill(u"order by COMPS.SELLINGPR DESC"_s), 3);
    EXPECT_EQ(Fill(u"  ORDER BY COMPS.SELLINGPR DESC"_s), 3);
}

TEST_F(FilledReport, GoesByTheLayoutsOrderAndByValue)
{
    Fill({});
    EXPECT_EQ(Keys("sort SELLINGPR down\ncolumn CITY\n"),
              (QStringList{u"2 B ST"_s, u"3 C ST"_s, u"1 A ST"_s}));
    EXPECT_EQ(Keys("group CITY \"{CITY}\"\nsort SELLINGPR down\ncolumn CITY\n"),
              (QStringList{u"3 C ST"_s, u"1 A ST"_s, u"2 B ST"_s}));
}

TEST_F(FilledReport, AGroupGoesDownWhereASortOfItsFieldSaysSo)
{
    Fill({});
    EXPECT_EQ(Keys("sort SELLINGPR, CITY down\ngroup CITY \"{CITY}\"\ncolumn CITY\n"),
              (QStringList{u"2 B ST"_s, u"1 A ST"_s, u"3 C ST"_s}));
    EXPECT_EQ(Keys("sort SELLINGPR down, SELLINGPR\ncolumn CITY\n"),
              (QStringList{u"2 B ST"_s, u"3 C ST"_s, u"1 A ST"_s}))
        << "a field that is named twice goes by the first";
}

TEST_F(FilledReport, OfNothingIsEmpty)
{
    EXPECT_EQ(Fill(u"CITY = 'Nowhere'"_s), 0);
    EXPECT_EQ(Keys("column CITY\n"), QStringList());
}

TEST_F(FilledReport, IsMadeAnewAfterASearchThatWasWrong)
{
    Fill({});
    EXPECT_ANY_THROW(Fill(u"CITY = 'Mar"_s));
    EXPECT_EQ(Fill(u"CITY = 'Tannery'"_s), 1) << "the next print makes its table anew";
}

TEST_F(FilledReport, WaitsForNobodyWhoStoresIntoTheDatabook)
{
    engine::Engine theirs(disk, tests::SomeTime());
    const auto open = theirs.OpenDatabase(path);
    const engine::Transaction storing(*open);
    engine.SetLockWait(20);
    EXPECT_EQ(Fill({}), 3);
}

TEST_F(FilledReport, ComesFromADatabookThatCanNotBeWritten)
{
    disk.SetAttr(path, files::ReadOnly);
    EXPECT_EQ(Fill(u"CITY = 'Marlow'"_s), 2);
    disk.SetAttr(path, files::Normal);
    const QString access = u"C:\\OLD.MDB"_s;
    ASSERT_TRUE(store::ConvertDatabase(engine, {.source = path, .target = access, .to = engine::DatabaseKind::Access}));
    EXPECT_EQ(FillReport(engine, file, access, table, u"CITY = 'Marlow'"_s), 2);
    EXPECT_EQ(Keys("column CITY\n"), (QStringList{u"1 A ST"_s, u"3 C ST"_s}));
}

TEST_F(FilledReport, IsMadeAnewWhereItCanNotBeWritten)
{
    disk.WriteWhole(file, "no database");
    EXPECT_EQ(Fill({}), 3);
    disk.SetAttr(file, files::ReadOnly);
    EXPECT_EQ(Fill(u"CITY = 'Marlow'"_s), 2);
    disk.Kill(file);
    ASSERT_TRUE(store::ConvertDatabase(engine, {.source = path, .target = file, .to = engine::DatabaseKind::Access}));
    EXPECT_EQ(Fill(u"CITY = 'Tannery'"_s), 1);
    EXPECT_EQ(Keys("column CITY\n"), QStringList{u"2 B ST"_s});
}

TEST_F(FilledReport, IsNotTakenFromSomebodyWhoPrintsFromIt)
{
    EXPECT_EQ(Fill({}), 3);
    const auto open = engine.OpenDatabase(file);
    const auto rows = open->OpenRecordset(table, engine::RecordsetType::Table);
    const QByteArray theirs = disk.ReadWhole(file);
    EXPECT_ANY_THROW(Fill({}));
    ASSERT_TRUE(disk.FileExists(file)) << "it was taken from under them";
    EXPECT_EQ(disk.ReadWhole(file), theirs);
    EXPECT_EQ(rows->RecordCount(), 3);
}

} // namespace
} // namespace vasclip::upkeep
