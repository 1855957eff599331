#include "upkeep/archive_home.h"

#include "support/file_limit.h"
#include "support/hooked_prompter.h"
#include "upkeep/archive_pictures.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

class ArchiveRecords : public ArchiveHome
{
protected:
    tests::HookedPrompter asked;

    /// As ArchiveHome::Run, with somebody at work while a question stands.
    Archived RunWith(const std::function<void()>& theirs)
    {
        Bind(source);
        ArchiveWork work{{asked, ports.pump, ports.clock, ports.random, ports.window, ports.screens},
                         source, globals, disk, archive, table, range, Duplicates::Ask};
        asked.onBox = [&, done = false](const QString&) mutable {
            if (!std::exchange(done, true))
                theirs();
        };
        return CopyArchiveData(work, [](qint64, qint64, const Archived&) { return true; });
    }
    void Elsewhere(const QString& statement)
    {
        engine::Engine other{disk, tests::SomeTime()};
        other.OpenDatabase(path)->Execute(statement);
    }
    void ArchivePicture(const QString& stem, const QByteArray& content)
    {
        if (!disk.DirExists(pictures))
            disk.MkDir(pictures.chopped(1));
        disk.WriteWhole(pictures + stem + u".jpg"_s, content);
    }
    void InArchiveWithPhotos(const QString& name, const QString& photos)
    {
        const auto database = engine.OpenDatabase(archive);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(key, name.leftJustified(35));
        rows->SetValue(u"PHOTOS"_s, photos);
        rows->Update();
    }
};

TEST_F(ArchiveRecords, OverwritingKeepsWhatTheArchiveAloneHasFieldsFor)
{
    {
        const auto alone = engine.OpenDatabase(archive, engine::OpenMode::Exclusive);
        alone->AppendField(table, {.name = u"SHELF"_s, .size = 30});
        alone->AppendField(table, {.name = u"BOX"_s, .type = engine::FieldType::Long});
        alone->AppendField(table, {.name = u"NEVER"_s, .size = 30});
        alone->Close();
    }
    InArchive(u"1 A ST"_s, u"old"_s);
    engine.OpenDatabase(archive)->Execute(u"UPDATE COMPS SET SHELF = 'Bob''s ]', BOX = 12"_s);
    Comp(u"1 A ST"_s, u"05/05/1995"_s, {}, u"new"_s);
    EXPECT_EQ(Run().overwritten, 1);
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"new"_s);
    const auto rows = engine.OpenDatabase(archive)->OpenRecordset(table, engine::RecordsetType::Table);
    EXPECT_EQ(rows->Value(u"SHELF"_s).toString().trimmed(), u"Bob's ]"_s);
    EXPECT_EQ(rows->Value(u"BOX"_s).toInt(), 12);
    EXPECT_FALSE(rows->Value(u"NEVER"_s).isValid());
}

TEST_F(ArchiveRecords, ARecordThatGotAnotherDateWhileItWasAskedAboutStays)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s, u"new"_s);
    InArchive(u"1 A ST"_s, u"old"_s);
    asked.Answer(forms::Answer::Yes);
    const Archived done = RunWith([&] { Elsewhere(u"UPDATE COMPS SET SALEDATE = '05/05/2005'"_s); });
    EXPECT_EQ(done.moved + done.overwritten, 0);
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"old"_s);
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
}

TEST_F(ArchiveRecords, ARecordThatGotAnotherPictureWhileItWasAskedAboutGoesWithThatOne)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s, u"new"_s);
    InArchive(u"1 A ST"_s, u"old"_s);
    disk.WriteWhole(u"C:\\JPG\\NEW.jpg"_s, "the new front");
    asked.AnswerAlways(forms::Answer::Yes);
    const Archived done =
        RunWith([&] { Elsewhere(u"UPDATE COMPS SET PHOTOS = 'FRONT VIEW|NEW\r\n', NOTES = 'newest'"_s); });
    EXPECT_EQ(done.overwritten, 1);
    EXPECT_EQ(In(archive).value(u"1 A ST"_s), u"newest"_s);
    EXPECT_EQ(disk.ReadWhole(pictures + u"NEW.jpg"_s), "the new front");
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\NEW.jpg"_s));
    const auto rows = engine.OpenDatabase(archive)->OpenRecordset(table, engine::RecordsetType::Table);
    EXPECT_EQ(rows->Value(u"FRONTPHOTO"_s).toByteArray(), "the new front");
}

TEST_F(ArchiveRecords, ARecordThatItsKeyDoesNotFindIsListed)
{
    AddRow({{key, u"  1 A ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}});
    const Archived done = Run();
    EXPECT_EQ(done.moved, 0);
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_TRUE(done.left[0].startsWith(u"1 A ST: nothing finds its key, which begins with a blank; the record stays"_s))
        << done.left[0].toStdString();
    EXPECT_EQ(Here().size(), 1);
}

TEST_F(ArchiveRecords, AChangedPictureOfItsOwnGoesWithTheRecordThatReplacesIt)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    InArchiveWithPhotos(u"1 A ST"_s, u"FRONT VIEW|a\r\n"_s);
    ArchivePicture(u"A"_s, "as it was");
    EXPECT_EQ(Run().overwritten, 1);
    EXPECT_EQ(disk.ReadWhole(pictures + u"A.jpg"_s), "front of 1 A ST");
}

TEST_F(ArchiveRecords, APictureThatAnotherOneOfTheArchiveShowsStays)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    InArchiveWithPhotos(u"1 A ST"_s, u"FRONT VIEW|A\r\n"_s);
    InArchiveWithPhotos(u"2 B ST"_s, u"STREET SCENE|A\r\n"_s);
    ArchivePicture(u"A"_s, "as it was");
    EXPECT_EQ(Run().left.size(), 1);
    EXPECT_EQ(disk.ReadWhole(pictures + u"A.jpg"_s), "as it was");
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
}

TEST_F(ArchiveRecords, APictureThatWentIntoTheArchiveBeforeIsNotMissing)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    disk.Kill(u"C:\\JPG\\AR.jpg"_s);
    ArchivePicture(u"AR"_s, "rear of 1 A ST");
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_TRUE(done.missing.isEmpty()) << done.missing.join(u'\n').toStdString();
}

TEST_F(ArchiveRecords, AFullDiskEndsItAndWhatWasDoneIsTold)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    disk.Kill(u"C:\\JPG\\AR.jpg"_s);
    Comp(u"2 B ST"_s, u"05/05/1995"_s, u"B"_s);
    ArchivePicture(u"B"_s, "of another record");
    Comp(u"3 C ST"_s, u"05/05/1995"_s, u"C"_s);
    Comp(u"4 D ST"_s, u"05/05/1995"_s);
    constexpr qint64 kRoom = 8 << 20;
    disk.WriteWhole(u"C:\\JPG\\C.jpg"_s, QByteArray(kRoom + 1000, 'c'));
    Bind(source);
    tests::FileLimit full(kRoom);
    const Archived done = CopyArchiveData(Work(), [](qint64, qint64, const Archived&) { return true; });
    full.Lift();
    ASSERT_TRUE(done.failure);
    EXPECT_EQ(done.failedAt, u"3 C ST"_s);
    EXPECT_EQ(done.moved, 1);
    EXPECT_EQ(done.left.size(), 1);
    EXPECT_EQ(done.missing.size(), 1);
    const QString words = WordsOf(done, archive);
    EXPECT_TRUE(words.contains(u"1 record was moved into "_s)) << words.toStdString();
    EXPECT_TRUE(words.contains(u" 1 record of these dates stays in the Databook."_s)) << words.toStdString();
    EXPECT_EQ(Here(), (QStringList{u"2 B ST"_s, u"3 C ST"_s, u"4 D ST"_s}));
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\C.jpg"_s));
    EXPECT_FALSE(disk.FileExists(pictures + u"C.jpg"_s));
}

} // namespace
} // namespace vasclip::upkeep
