#include "upkeep/archive_home.h"

#include "store/change.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

class Archive : public ArchiveHome
{};

TEST_F(Archive, MovesTheRecordsOfTheDatesWithBothDaysIncluded)
{
    Comp(u"1 A ST"_s, u"12/31/1989"_s);
    Comp(u"2 B ST"_s, u"01/01/1990"_s, u"B"_s, u"level"_s);
    Comp(u"3 C ST"_s, u"12/31/1999"_s);
    Comp(u"4 D ST"_s, u"01/01/2000"_s);
    Comp(u"5 E ST"_s, {});
    Comp(u"6 F ST"_s, u"soon"_s);
    const Archived done = Run();
    EXPECT_EQ(done.moved, 2);
    EXPECT_EQ(done.overwritten, 0);
    EXPECT_EQ(Here(), (QStringList{u"1 A ST"_s, u"4 D ST"_s, u"5 E ST"_s, u"6 F ST"_s}));
    EXPECT_EQ(There(), (QStringList{u"2 B ST"_s, u"3 C ST"_s}));
    EXPECT_EQ(In(archive).value(u"2 B ST"_s), u"level"_s);
    EXPECT_EQ(WordsOf(done, archive), u"2 records were moved into C:\\ARCHIVE\\OLD.MDB."_s);
}

TEST_F(Archive, GoesIntoAFileWithBracketsInItsName)
{
    const QString odd = u"C:\\ARCHIVE\\[OLD].MDB"_s;
    store::MakeDatabase(engine, odd);
    Comp(u"1 OAK ST"_s, u"05/05/1995"_s);
    Bind(source);
    ArchiveWork work = Work();
    work.file = odd;
    EXPECT_EQ(CopyArchiveData(work, [](qint64, qint64, const Archived&) { return true; }).moved, 1);
    EXPECT_EQ(In(odd).keys(), QStringList{u"1 OAK ST"_s});
}

TEST_F(Archive, WithoutDatesOnlyPendingSalesAreMoved)
{
    range = {};
    Comp(u"1 A ST"_s, u"01/01/1900"_s);
    Comp(u"2 B ST"_s, u"01/02/1900"_s);
    Comp(u"3 C ST"_s, {});
    EXPECT_EQ(Run().moved, 1);
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
}

TEST_F(Archive, PicturesGoWithTheirRecordAndTheFrontIntoItsRow)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    Comp(u"2 B ST"_s, u"05/05/2005"_s, u"B"_s);
    EXPECT_EQ(Run().moved, 1);
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\AR.jpg"_s));
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\B.jpg"_s));
    EXPECT_EQ(disk.ReadWhole(pictures + u"A.jpg"_s), "front of 1 A ST");
    EXPECT_EQ(disk.ReadWhole(pictures + u"AR.jpg"_s), "rear of 1 A ST");
    const auto rows = engine.OpenDatabase(archive)->OpenRecordset(table, engine::RecordsetType::Table);
    EXPECT_EQ(rows->Value(u"FRONTPHOTO"_s).toByteArray(), "front of 1 A ST");
    EXPECT_EQ(rows->Value(u"PHOTOS"_s).toString(), u"FRONT VIEW|A\r\nREAR VIEW|AR\r\n"_s);
}

TEST_F(Archive, ADuplicateIsOverwrittenWithoutAQuestionWhereNoneIsWanted)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, {}, u"new"_s);
    Comp(u"2 B ST"_s, u"05/05/1995"_s, {}, u"new"_s);
    InArchive(u"1 a st"_s, u"old"_s);
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_EQ(done.overwritten, 1);
    EXPECT_EQ(WordsOf(done, archive),
              u"2 records were moved into C:\\ARCHIVE\\OLD.MDB, 1 of them in the place of a record there."_s);
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"new"_s);
    EXPECT_TRUE(Here().isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Archive, ARecordThatAnotherIndexKeepsOutIsNamedAndTheOthersGoOn)
{
    disk.Kill(archive);
    engine::TableDef strict = store::CompsTable();
    strict.indexes.append({.name = u"ONE"_s, .fields = {u"NOTES"_s}, .unique = true});
    engine.CreateDatabase(archive)->CreateTable(strict);
    InArchive(u"9 Z ST"_s, u"level"_s);
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s, u"level"_s);
    Comp(u"2 B ST"_s, u"05/05/1995"_s, {}, u"steep"_s);
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_EQ(done.left, QStringList{u"1 A ST: the archive's table keeps it out, by a field that must be filled or an index "
                                     u"besides the key; it stays"_s});
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
}

TEST_F(Archive, ADuplicateIsAskedAboutAndNoLeavesBoth)
{
    duplicates = Duplicates::Ask;
    Comp(u"1 A ST"_s, u"05/05/1995"_s, {}, u"new"_s);
    Comp(u"2 B ST"_s, u"05/05/1995"_s, {}, u"new"_s);
    InArchive(u"1 A ST"_s, u"old"_s);
    InArchive(u"2 B ST"_s, u"old"_s);
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    const Archived done = Run();
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{u"Overwrite 1 A ST"_s, u"Overwrite 2 B ST"_s}));
    EXPECT_EQ(done.overwritten, 1);
    EXPECT_EQ(done.moved, 0);
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"old"_s);
    EXPECT_EQ(In(archive).value(u"2 B ST"_s), u"new"_s);
    EXPECT_EQ(done.left, QStringList{u"1 A ST: the archive has a record of this address; both stay"_s});
}

TEST_F(Archive, ARecordThatTheArchiveHasWordForWordNeedsNoQuestion)
{
    duplicates = Duplicates::Ask;
    Comp(u"1 A ST"_s, u"05/05/1995"_s, {}, u"same"_s);
    disk.FileCopy(path, archive); // as a copy by hand leaves it
    EXPECT_EQ(Run().moved, 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(Here().isEmpty());
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
}

TEST_F(Archive, APictureThatAnotherRecordNamesGoesWithTheLastOfThem)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    AddRow({{key, u"2 B ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/2005"_s}, {u"PHOTOS"_s, u"REAR VIEW|a \r\n"_s}});
    EXPECT_EQ(Run().moved, 1);
    EXPECT_TRUE(disk.FileExists(pictures + u"A.jpg"_s));
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\AR.jpg"_s));
    range.stop = u"12/31/2009"_s;
    EXPECT_EQ(Run().moved, 1);
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
}

TEST_F(Archive, NamesAPictureThatIsNotThere)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    Comp(u"2 B ST"_s, u"05/05/2005"_s, u"B"_s);
    disk.Kill(u"C:\\JPG\\AR.jpg"_s);
    disk.Kill(u"C:\\JPG\\BR.jpg"_s);
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_EQ(done.missing,
              QStringList{u"1 A ST: its picture AR.jpg is not in C:\\JPG\\; the record went without it"_s});
    EXPECT_TRUE(WordsOf(done, archive).endsWith(u" Pictures of theirs that were not there: 1."_s));
}

TEST_F(Archive, GoesNowhereWithoutThePhotoDirectory)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    globals.G_PhotoDir = u"C:\\AWAY\\"_s;
    EXPECT_THROW((void)Run(), RuntimeError);
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_TRUE(There().isEmpty());
    globals.G_PhotoDir = u"C:\\JPG\\"_s;
    EXPECT_EQ(Run().moved, 1);
}

TEST_F(Archive, AnotherPictureOfTheNameKeepsTheRecordHere)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    disk.MkDir(pictures.chopped(1));
    disk.WriteWhole(pictures + u"A.jpg"_s, "of another record");
    const Archived done = Run();
    EXPECT_EQ(done.moved, 0);
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_TRUE(done.left[0].startsWith(u"1 A ST: the archive has another picture named A.jpg"_s));
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(disk.ReadWhole(pictures + u"A.jpg"_s), "of another record");
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
}

class OlderArchive : public Archive
{
protected:
    void SetUp() override
    {
        Archive::SetUp();
        disk.Kill(archive);
        const auto database = engine.CreateDatabase(archive);
        engine::TableDef old = store::CompsTable();
        old.fields.removeIf([](const engine::Field& field) {
            return field.name == u"FRONTPHOTO"_s || field.name == u"OTHERAREA2"_s;
        });
        database->CreateTable(old);
        database->Close();
        Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s, u"level"_s);
        AddRow({{key, u"2 B ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}, {u"OTHERAREA2"_s, u"attic"_s}});
    }
    [[nodiscard]] QString Held(const QString& comp, const QString& field)
    {
        const auto rows = engine.OpenDatabase(archive)->OpenRecordset(table, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            if (rows->Value(key).toString().trimmed() == comp)
                return QString::fromLatin1(rows->Value(field).toByteArray()).trimmed();
        return u"<no record>"_s;
    }
};

TEST_F(OlderArchive, GetsTheFieldsThatItLacks)
{
    EXPECT_EQ(Run().moved, 2);
    EXPECT_EQ(Held(u"2 B ST"_s, u"OTHERAREA2"_s), u"attic"_s);
    EXPECT_EQ(Held(u"1 A ST"_s, u"FRONTPHOTO"_s), u"front of 1 A ST"_s);
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"level"_s);
    EXPECT_EQ(disk.ReadWhole(pictures + u"A.jpg"_s), "front of 1 A ST");
}

TEST_F(OlderArchive, ThatSomebodyHasOpenKeepsOutWhatItHasNoFieldFor)
{
    engine::Engine other{disk, tests::SomeTime()};
    const auto theirs = other.OpenDatabase(archive);
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_EQ(Here(), QStringList{u"2 B ST"_s});
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_TRUE(done.left[0].startsWith(u"2 B ST: the archive has no field OTHERAREA2, which holds \"attic\""_s))
        << done.left[0].toStdString();
    EXPECT_EQ(disk.ReadWhole(pictures + u"A.jpg"_s), "front of 1 A ST");
}

TEST_F(Archive, AStopLeavesWhatWasMovedAndTheRestHere)
{
    for (int i = 1; i <= 5; ++i)
        Comp(u"%1 A ST"_s.arg(i), u"05/05/1995"_s);
    const Archived done = Run([](qint64 at, qint64 all, const Archived& soFar) {
        EXPECT_EQ(all, 5);
        EXPECT_EQ(soFar.moved, at);
        return at < 2;
    });
    EXPECT_TRUE(done.stopped);
    EXPECT_EQ(There(), (QStringList{u"1 A ST"_s, u"2 A ST"_s}));
    EXPECT_EQ(Here(), (QStringList{u"3 A ST"_s, u"4 A ST"_s, u"5 A ST"_s}));
    EXPECT_TRUE(WordsOf(done, archive).startsWith(u"Stopped. 2 records were moved into "_s));
}

TEST_F(Archive, AnEmptyDatabookSaysSo)
{
    EXPECT_EQ(WordsOf(Run(), archive), u"The Source Database is empty."_s);
}

TEST_F(Archive, AnErrorLeavesTheRecordAtWorkHereWithItsPicturesAndIsTold)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s);
    Comp(u"2 B ST"_s, u"05/05/1995"_s, u"B"_s);
    Bind(source);
    engine.SetLockWait(50);
    engine::Engine other{disk, tests::SomeTime()};
    std::shared_ptr<engine::Database> theirs;
    const auto hold = [&](qint64 at, qint64, const Archived&) {
        if (at == 1) {
            theirs = other.OpenDatabase(archive);
            theirs->BeginTrans();
            theirs->Execute(u"UPDATE COMPS SET NOTES = 'theirs'"_s);
        }
        return true;
    };
    const Archived done = CopyArchiveData(Work(), hold);
    EXPECT_EQ(done.moved, 1);
    ASSERT_TRUE(done.failure);
    EXPECT_EQ(done.failedAt, u"2 B ST"_s);
    EXPECT_TRUE(WordsOf(done, archive).startsWith(u"It ended at 2 B ST: "_s)) << WordsOf(done, archive).toStdString();
    EXPECT_TRUE(WordsOf(done, archive).contains(u"1 record was moved into "_s)) << WordsOf(done, archive).toStdString();
    theirs->Rollback();
    theirs->Close();
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(Here(), QStringList{u"2 B ST"_s});
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\B.jpg"_s));
    EXPECT_EQ(Run().moved, 1) << "and the next run goes on";
}

TEST_F(Archive, TheWatcherHearsOfEachRecordThatGoes)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s);
    Bind(source);
    QStringList heard;
    source.Watch([&](const store::Step& step) { heard.append(step.words); });
    (void)CopyArchiveData(Work(), [](qint64, qint64, const Archived&) { return true; });
    EXPECT_EQ(heard, QStringList{u"Archive 1 A ST"_s});
}

} // namespace
} // namespace vasclip::upkeep
