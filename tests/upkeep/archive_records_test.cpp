#include "upkeep/archive_records.h"

#include "store/change.h"
#include "support/databook_home.h"

#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

class Archive : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    common::Globals globals;
    const QString archive = u"C:\\ARCHIVE\\OLD.MDB"_s;
    const QString pictures = u"C:\\ARCHIVE\\OLD_JPG\\"_s;
    SaleRange range{u"01/01/1990"_s, u"12/31/1999"_s};
    Duplicates duplicates = Duplicates::Overwrite;

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        disk.MkDir(u"C:\\JPG"_s);
        disk.MkDir(u"C:\\ARCHIVE"_s);
        store::MakeDatabase(engine, archive);
    }
    void Comp(const QString& name, const QString& sale, const QString& stem = {}, const QString& notes = {})
    {
        Values values{{key, name.leftJustified(35)}, {u"SALEDATE"_s, sale}, {u"NOTES"_s, notes}};
        if (!stem.isEmpty()) {
            values.append({u"PHOTOS"_s, u"FRONT VIEW|%1\r\nREAR VIEW|%1R\r\n"_s.arg(stem)});
            disk.WriteWhole(u"C:\\JPG\\%1.jpg"_s.arg(stem), QByteArray("front of ") + name.toLatin1());
            disk.WriteWhole(u"C:\\JPG\\%1R.jpg"_s.arg(stem), QByteArray("rear of ") + name.toLatin1());
        }
        AddRow(values);
    }
    void InArchive(const QString& name, const QString& notes)
    {
        const auto database = engine.OpenDatabase(archive);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(key, name.leftJustified(35));
        rows->SetValue(u"NOTES"_s, notes);
        rows->Update();
    }
    [[nodiscard]] ArchiveWork Work()
    {
        return {ports, source, globals, disk, archive, table, range, duplicates};
    }
    Archived Run(const ArchiveStep& step = [](qint64, qint64, const Archived&) { return true; })
    {
        Bind(source);
        return CopyArchiveData(Work(), step);
    }
    /// NOTES by key.
    [[nodiscard]] QMap<QString, QString> In(const QString& file)
    {
        QMap<QString, QString> notes;
        const auto rows = engine.OpenDatabase(file)->OpenRecordset(table, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            notes.insert(rows->Value(key).toString().trimmed(), rows->Value(u"NOTES"_s).toString().trimmed());
        return notes;
    }
    [[nodiscard]] QStringList Here() { return In(path).keys(); }
    [[nodiscard]] QStringList There() { return In(archive).keys(); }
};

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
    EXPECT_EQ(WordsOf(done, archive),
              u"2 records were moved into C:\\ARCHIVE\\OLD.MDB, 0 of them in the place of a record there."_s);
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
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"new"_s);
    EXPECT_TRUE(Here().isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
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

TEST_F(Archive, AnArchiveOfFewerFieldsTakesThoseItHas)
{
    disk.Kill(archive);
    {
        const auto database = engine.CreateDatabase(archive);
        engine::TableDef old = store::CompsTable();
        old.fields.removeIf([](const engine::Field& field) {
            return field.name == u"FRONTPHOTO"_s || field.name == u"OTHERAREA2"_s;
        });
        database->CreateTable(old);
        database->Close();
    }
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s, u"level"_s);
    EXPECT_EQ(Run().moved, 1);
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"level"_s);
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

TEST_F(Archive, AnErrorLeavesTheRecordAtWorkHereWithItsPictures)
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
    EXPECT_THROW((void)CopyArchiveData(Work(), hold), RuntimeError);
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

/// Kills a process that archives, at any moment.
TEST_F(Archive, AKillLeavesEachRecordInOneOfTheTwoFilesWithItsPictures)
{
    constexpr int kComps = 8;
    QStringList all;
    for (int i = 10; i < 10 + kComps; ++i) {
        all.append(u"%1 A ST"_s.arg(i));
        Comp(all.last(), u"05/05/1995"_s, u"P%1"_s.arg(i));
    }
    const QByteArray databook = disk.ReadWhole(path);
    const QByteArray empty = disk.ReadWhole(archive);
    std::mt19937 random{20040307};
    int half = 0;
    useconds_t usual = 60000;
    for (int run = 0; run < 12; ++run) {
        disk.WriteWhole(path, databook);
        disk.WriteWhole(archive, empty);
        for (const QString& name : all)
            for (const QString& end : {QString(), u"R"_s}) {
                const QString picture = u"P%1%2.jpg"_s.arg(name.left(2), end);
                disk.WriteWhole(u"C:\\JPG\\"_s + picture, end.isEmpty() ? "front" : "rear");
                if (disk.FileExists(pictures + picture))
                    disk.Kill(pictures + picture);
            }
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            try {
                engine::Engine own{disk, tests::SomeTime()};
                store::DataSource theirs{own, u"datDatabook"_s};
                theirs.Open(path, table, store::SourceKind::Table);
                (void)CopyArchiveData({ports, theirs, globals, disk, archive, table, range, duplicates},
                                      [](qint64, qint64, const Archived&) { return true; });
            } catch (...) {
                _exit(1);
            }
            _exit(0);
        }
        usleep(usual * static_cast<useconds_t>(10 + random() % 100) / 100);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        usual = WIFEXITED(status) ? usual * 3 / 4 + 1 : usual * 8 / 7 + 1;
        const QStringList here = Here();
        const QStringList there = There();
        half += !here.isEmpty() && !there.isEmpty();
        QStringList both = here + there;
        both.sort();
        EXPECT_EQ(both, all) << "each in one of them, in run " << run;
        for (const QString& name : all)
            for (const QString& end : {QString(), u"R"_s}) {
                const QString picture = u"P%1%2.jpg"_s.arg(name.left(2), end);
                EXPECT_TRUE(disk.FileExists((here.contains(name) ? u"C:\\JPG\\"_s : pictures) + picture))
                    << name.toStdString() << " without " << picture.toStdString() << " in run " << run;
            }
        // Whoever runs it again ends it, without a question.
        duplicates = Duplicates::Ask;
        (void)Run();
        source.Close();
        EXPECT_TRUE(Here().isEmpty());
        EXPECT_EQ(There(), all);
    }
    EXPECT_GT(half, 2) << "no kill came in the middle";
}

} // namespace
} // namespace vasclip::upkeep
