#include "transfer_home.h"

#include "platform/engine/genuine_file.h"
#include "support/error_number.h"
#include "support/killed_here.h"
#include "upkeep/export_statement.h"
#include "upkeep/export_table.h"
#include "upkeep/insert_images.h"
#include "upkeep/tables.h"

namespace vasclip::upkeep {
namespace {

class Export : public TransferHome
{
protected:
    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
    }
    ExportResult Run(const QString& search = {}, bool pictures = false, const QString& name = u"COMPS"_s)
    {
        return ExportTable(Desk(), {.target = target, .table = name, .search = search, .pictures = pictures}, Step());
    }
    QStringList Left() { return disk.Dir(u"C:\\EXPORT\\*"_s); }
};

TEST(ExportSearch, IsWhatStandsBehindTheColumns)
{
    EXPECT_EQ(SearchTextOf(u"SELECT COMPS.FRONT, COMPS.CITY FROM COMPS"_s), QString());
    EXPECT_EQ(SearchTextOf(u"SELECT A FROM COMPS WHERE UCASE(CITY) LIKE '*FROM WHERE*' ORDER BY CITY"_s),
              u"UCASE(CITY) LIKE '*FROM WHERE*' ORDER BY CITY"_s);
    EXPECT_EQ(SearchTextOf(u"SELECT A FROM [MY COMPS] ORDER BY CITY"_s), u"ORDER BY CITY"_s);
    EXPECT_EQ(SearchTextOf(QString()), QString());
}

TEST(ExportSearch, IsTheStatementsFilterUnlessItOnlySorts)
{
    const auto statement = [](const QString& search) {
        return ExportStatement(u"C:\\E\\X.MDB"_s, u"T"_s, u"C:\\D.MDB"_s, u"COMPS"_s, search);
    };
    const QString all = u"SELECT * INTO [C:\\E\\X.MDB].[T] FROM [C:\\D.MDB].[COMPS] "_s;
    EXPECT_EQ(statement({}), all);
    EXPECT_EQ(statement(u" order by COMPS.CITY"_s), all);
    EXPECT_EQ(statement(u"CITY = 'A' ORDER BY ZIP"_s), all + u"WHERE CITY = 'A' ORDER BY ZIP"_s);
}

TEST(ExportSearch, SortsByWhatStandsOutsideOfQuotes)
{
    EXPECT_EQ(SortOf(u"CITY = 'A' ORDER BY ZIP"_s), u" ORDER BY ZIP"_s);
    EXPECT_EQ(SortOf(u"CITY = 'A' order  by ZIP"_s), u" order  by ZIP"_s);
    EXPECT_EQ(SortOf(u"CITY = \"x ORDER BY y\""_s), QString());
    EXPECT_EQ(SortOf(u"CITY = 'x ORDER BY y' AND [ORDER BY] = 1"_s), QString());
    EXPECT_EQ(SortOf(u"CITY = 'O''ORDER BY' ORDER BY ZIP & 'x'"_s), u" ORDER BY ZIP & 'x'"_s);
    EXPECT_FALSE(Narrows(u" ORDER  BY ZIP"_s));
    EXPECT_TRUE(Narrows(u"ORDERBY = 1"_s));
}

TEST_F(Export, OfASearchTakesItsRowsAlone)
{
    const ExportResult result = Run(u"UCASE(COMPS.CITY) LIKE '*ALDER*' ORDER BY COMPS.ADDRESS DESC"_s);
    EXPECT_TRUE(result.written);
    EXPECT_EQ(result.records, 2);
    EXPECT_EQ(Keys(target, u"COMPS"_s), (QStringList{u"9 ELM ST"_s, u"12 OAK ST"_s}));
    EXPECT_EQ(Field(target, table, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
    EXPECT_EQ(Left(), QStringList{u"OUT.MDB"_s});
}

TEST_F(Export, OfASortOrOfNothingTakesAllRows)
{
    EXPECT_EQ(Run(u"ORDER BY COMPS.ADDRESS"_s).records, 3);
    EXPECT_EQ(Run().records, 3);
    EXPECT_EQ(Keys(target, u"COMPS"_s).size(), 3);
}

TEST_F(Export, AsAnAccessFileHoldsTheSameRecordsAndStaysOfItsKind)
{
    const ExportResult result =
        ExportTable(Desk(), {.target = target, .table = u"ONE"_s, .search = {}, .pictures = true, .access = true}, Step());
    ASSERT_TRUE(result.written);
    EXPECT_TRUE(engine::IsGenuineFile(disk, target));
    EXPECT_EQ(result.records, 3);
    EXPECT_EQ(Keys(target, u"ONE"_s).size(), 3);
    EXPECT_EQ(Field(target, u"ONE"_s, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
    ASSERT_TRUE(Run({}, false, u"TWO"_s).written);
    EXPECT_TRUE(engine::IsGenuineFile(disk, target));
    EXPECT_EQ(Keys(target, u"ONE"_s).size(), 3) << "the tables that were there stay";
    EXPECT_EQ(Keys(target, u"TWO"_s).size(), 3);
    EXPECT_EQ(Left(), QStringList{u"OUT.MDB"_s});
}

TEST_F(Export, AgainToTheSameTableReplacesItAndLeavesTheOthers)
{
    EXPECT_TRUE(Run({}, false, u"FIRST"_s).written);
    EXPECT_TRUE(Run({}, false, u"SECOND"_s).written);
    EXPECT_EQ(Run(u"CITY = 'BIRCH'"_s, false, u"FIRST"_s).records, 1);
    EXPECT_EQ(Keys(target, u"FIRST"_s), QStringList{u"14 OAK ST"_s});
    EXPECT_EQ(Keys(target, u"SECOND"_s).size(), 3);
}

TEST_F(Export, GivesItsTableTheKeyIndex)
{
    Run({}, false, u"T"_s);
    const engine::TableDef made = engine.OpenDatabase(target)->Table(u"T"_s);
    ASSERT_EQ(made.indexes.size(), 1);
    EXPECT_TRUE(made.indexes[0].primary);
    EXPECT_EQ(made.fields.size(), store::CompsTable().fields.size());
}

TEST_F(Export, PutsTheFrontPictureIntoItsRow)
{
    const ExportResult result = Run({}, true);
    EXPECT_EQ(result.pictures, 2);
    EXPECT_EQ(result.without, 1);
    EXPECT_EQ(result.notIn, QStringList());
    EXPECT_EQ(Field(target, table, u"12 OAK ST"_s, u"FRONTPHOTO"_s).toByteArray(), QByteArray(70000, 'a'));
    EXPECT_EQ(Field(target, table, u"12 OAK ST"_s, u"PHOTOS"_s).toString(), u"FRONT VIEW|00000001\r\n"_s);
    EXPECT_FALSE(Field(target, table, u"14 OAK ST"_s, u"FRONTPHOTO"_s).isValid());
    EXPECT_EQ(Field(target, table, u"14 OAK ST"_s, u"PHOTOS"_s).toString(), u" "_s);
    EXPECT_EQ(Field(target, table, u"9 ELM ST"_s, u"PHOTOS"_s).toString(), u"FRONT VIEW|00000003\r\n"_s);
    EXPECT_EQ(Field(path, table, u"12 OAK ST"_s, u"PHOTOS"_s).toString(),
              u"FRONT VIEW|00000001\r\nREAR VIEW|00000002\r\n"_s)
        << "the Databook's own row stays";
    EXPECT_EQ(WordsOf(result), u"3 records were exported to table COMPS of C:\\EXPORT\\OUT.MDB. 2 pictures are inside. "
                               u"1 record is without a front view."_s);
}

TEST_F(Export, CountsAndListsPicturesThatCouldNotBeRead)
{
    disk.Kill(u"C:\\JPG\\00000001.jpg"_s);
    AddRow(Comp(u"1 ASH ST"_s, {}, u"FRONT VIEW|..\\DATABOOK\r\n"_s));
    const ExportResult result = Run({}, true);
    EXPECT_TRUE(result.written);
    EXPECT_EQ(result.pictures, 1);
    EXPECT_EQ(result.notIn, (QStringList{u"12 OAK ST: the file C:\\JPG\\00000001.jpg is not there"_s,
                                         u"1 ASH ST: \"..\\DATABOOK\" is no name of a picture"_s}));
    EXPECT_EQ(Field(target, table, u"12 OAK ST"_s, u"PHOTOS"_s).toString(),
              u"FRONT VIEW|00000001\r\nREAR VIEW|00000002\r\n"_s);
    EXPECT_TRUE(WordsOf(result).endsWith(u" 2 pictures could not be read."_s));
}

TEST_F(Export, KeepsThePhotoTextInItsOlderForm)
{
    Run();
    const InsertedImages images = InsertImages2(Desk(), target, table, Step());
    EXPECT_EQ(images.in, 2);
    EXPECT_EQ(Field(target, table, u"12 OAK ST"_s, u"PHOTOS"_s).toString(),
              u"FRONT VIEW|00000001\r\nREAR VIEW|00000002\r\n"_s);
    EXPECT_EQ(Field(target, table, u"9 ELM ST"_s, u"FRONTPHOTO"_s).toByteArray(), QByteArray("elm"));
}

TEST_F(Export, ThatIsStoppedLeavesTheTargetAsItWas)
{
    Run(u"CITY = 'BIRCH'"_s);
    const QByteArray before = disk.ReadWhole(target);
    stopAt = 1;
    steps.clear();
    const ExportResult result = Run({}, true);
    EXPECT_TRUE(result.stopped);
    EXPECT_FALSE(result.written);
    EXPECT_EQ(steps, (QStringList{u"Picture of 12 OAK ST"_s, u"Picture of 14 OAK ST"_s}));
    EXPECT_EQ(disk.ReadWhole(target), before);
    EXPECT_EQ(Left(), QStringList{u"OUT.MDB"_s});
    EXPECT_EQ(WordsOf(result), u"Canceled: C:\\EXPORT\\OUT.MDB is as it was."_s);
}

TEST_F(Export, CanBeStoppedWithinALargePicture)
{
    disk.WriteWhole(u"C:\\JPG\\00000001.jpg"_s, QByteArray(5'000'000, 'a'));
    stopAt = 1;
    const ExportResult result = Run({}, true);
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(steps, (QStringList{u"Picture of 12 OAK ST"_s, u"Picture of 12 OAK ST"_s}));
    EXPECT_EQ(Left(), QStringList());
}

TEST_F(Export, ThatFailsLeavesTheTargetAsItWas)
{
    Run(u"CITY = 'BIRCH'"_s);
    const QByteArray before = disk.ReadWhole(target);
    EXPECT_ANY_THROW(Run(u"NOSUCHFIELD = 1"_s));
    EXPECT_EQ(disk.ReadWhole(target), before);
    EXPECT_EQ(Left(), QStringList{u"OUT.MDB"_s});
}

TEST_F(Export, DoesNotTakeThePlaceOfAFileThatSomebodyHasOpenedMeanwhile)
{
    Run(u"CITY = 'BIRCH'"_s);
    std::shared_ptr<engine::Database> theirs;
    const ExportResult result = ExportTable(
        Desk(), {.target = target, .table = table, .search = {}, .pictures = true},
        [&](qint64, qint64, const QString&) {
            if (!theirs)
                theirs = engine.OpenDatabase(target);
            return true;
        });
    EXPECT_FALSE(result.written);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"The selected database is LOCKED"_s));
    theirs->Close();
    EXPECT_EQ(Keys(target, table), QStringList{u"14 OAK ST"_s});
    EXPECT_EQ(Left(), QStringList{u"OUT.MDB"_s});
}

TEST_F(Export, DoesNotTakeThePlaceOfAFileThatSomebodyHasStoredIntoMeanwhile)
{
    ASSERT_TRUE(Run({}, false, u"ONE"_s).written);
    const WorkStep theirs = [&](qint64, qint64, const QString&) {
        const auto other = engine.OpenDatabase(target);
        other->Execute(u"DELETE FROM ONE WHERE CENTRALKEY LIKE '9*'"_s);
        other->Close();
        return true;
    };
    EXPECT_EQ(tests::NumberOf([&] {
                  (void)ExportTable(Desk(), {.target = target, .table = u"TWO"_s, .search = {}, .pictures = true}, theirs);
              }),
              75);
    EXPECT_EQ(Keys(target, u"ONE"_s).size(), 2) << "what they did stays";
    EXPECT_EQ(Left(), QStringList{u"OUT.MDB"_s});
}

TEST_F(Export, RefusesAFileThatIsWriteProtected)
{
    Run(u"CITY = 'BIRCH'"_s);
    disk.SetAttr(target, files::ReadOnly);
    EXPECT_EQ(tests::NumberOf([&] { (void)Run(); }), error::kPathFileAccess);
    disk.SetAttr(target, files::Normal);
    EXPECT_EQ(Keys(target, table).size(), 1);
}

TEST_F(Export, SweepsWhatAKilledOneLeft)
{
    disk.WriteWhole(u"C:\\EXPORT\\OUT.MDB.new"_s + tests::kKilledHere.Mark(), "half");
    disk.WriteWhole(u"C:\\EXPORT\\OUT.MDB.newer"_s, "not ours");
    Run();
    EXPECT_EQ(Left(), (QStringList{u"OUT.MDB"_s, u"OUT.MDB.newer"_s}));
}

TEST_F(Export, OfManyRecordsGoesInSlicesThatKeepTheirOrder)
{
    QList<Values> many;
    for (int i = 0; i < 9000; ++i)
        many.append(Comp(u"%1 O'MALLEY ST"_s.arg(i, 5, 10, QChar(u'0')), u"CITY"_s, u" "_s));
    AddRows(many);
    const ExportResult result = Run(u"COMPS.CITY = 'CITY' ORDER BY COMPS.ADDRESS DESC"_s);
    EXPECT_EQ(result.records, 9000);
    EXPECT_EQ(steps.size(), 3);
    EXPECT_EQ(steps.value(1), u"Copying record 4001 of 9000"_s);
    const QStringList keys = Keys(target, table);
    ASSERT_EQ(keys.size(), 9000);
    EXPECT_EQ(keys.first(), u"08999 O'MALLEY ST"_s);
    EXPECT_TRUE(std::is_sorted(keys.rbegin(), keys.rend()));
    steps.clear();
    EXPECT_EQ(Run(u"COMPS.CITY = 'CITY' OR COMPS.CITY = 'BIRCH'"_s, false, u"PART"_s).records, 9001);
    EXPECT_EQ(steps.size(), 3);
    EXPECT_EQ(Run({}, false, u"ALL"_s).records, 9003);
    const QStringList ordered = Keys(target, u"ALL"_s);
    EXPECT_EQ(ordered.size(), 9003);
    EXPECT_TRUE(std::is_sorted(ordered.begin(), ordered.end()));
    steps.clear();
    stopAt = 1;
    EXPECT_TRUE(Run().stopped);
    EXPECT_EQ(Keys(target, table).size(), 9000);
}

} // namespace
} // namespace vasclip::upkeep
