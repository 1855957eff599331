#include "support/unix.h"
#include "upkeep/frm_archive_home.h"

#include "store/convert.h"
#include "store/record.h"
#include "support/exclusive_lock.h"

#include <QDir>

#include <optional>

namespace vasclip::upkeep {
namespace {

class ArchiveEdges : public FrmArchive
{
protected:
    void SetUp() override
    {
        FrmArchive::SetUp();
        InArchive(u"8 Y ST"_s, u"years old"_s);
        InArchive(u"9 Z ST"_s, u"years old"_s);
        OpenScreen(hooked);
        Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    }
    void Archive(std::initializer_list<forms::Answer> answers)
    {
        for (const forms::Answer answer : answers)
            asked.Answer(answer);
        Click(screen->cmdarchive);
    }
    void Create(const QString& typed, forms::Answer answer)
    {
        asked.AnswerDialog(typed);
        asked.Answer(answer);
        Click(screen->cmdcreate);
    }
};

TEST_F(ArchiveEdges, SaysWhatItDidAlsoWhereTheRecordsCanNotBeShownAgain)
{
    showFails = true;
    disk.Kill(u"C:\\JPG\\AR.jpg"_s);
    Archive({forms::Answer::Yes});
    EXPECT_TRUE(Says().startsWith(u"1 record was moved into C:\\ARCHIVE\\OLD.MDB"_s)) << Says().toStdString();
    EXPECT_TRUE(Says().contains(u" The records of the Databook could not be shown again: Could not read"_s));
    EXPECT_TRUE(screen->lstaccount.Visible());
    EXPECT_EQ(screen->lstaccount.ListCount(), 1);
    EXPECT_EQ(screen->lblCountMoved.Caption(), u"1"_s);
    EXPECT_TRUE(screen->cmdarchive.Enabled());
}

TEST_F(ArchiveEdges, AFailureBeforeItBeginsLeavesTheScreenAtRest)
{
    letGoFails = true;
    Archive({forms::Answer::Yes});
    EXPECT_TRUE(Says().contains(u"Nothing was moved."_s)) << Says().toStdString();
    EXPECT_TRUE(screen->cmdarchive.Enabled());
    EXPECT_FALSE(screen->cmdStop.Visible());
    screen->Unload();
    EXPECT_FALSE(screen->IsOpen()) << "it can be closed";
}

TEST_F(ArchiveEdges, ATemplateThatCanNotBeCopiedCostsNoArchiveThatIsBegunAnew)
{
    disk.WriteWhole(u"C:\\NEWDATA.MDB"_s, "this is no database");
    Archive({forms::Answer::No, forms::Answer::Yes});
    EXPECT_TRUE(Says().endsWith(u"Nothing was moved."_s)) << Says().toStdString();
    EXPECT_FALSE(Says().contains(u".new"_s)) << Says().toStdString();
    EXPECT_EQ(There(), (QStringList{u"8 Y ST"_s, u"9 Z ST"_s}));
    EXPECT_EQ(QDir(disk.ToNative(u"C:\\ARCHIVE"_s)).entryList(QDir::Files), QStringList{u"OLD.MDB"_s});
    EXPECT_EQ(Here().size(), 2);
}

TEST_F(ArchiveEdges, APhotoDirectoryThatGoesMeanwhileEndsItAndNoRecordGoesWithoutItsPictures)
{
    Comp(u"3 C ST"_s, u"05/05/1996"_s, u"C"_s);
    const QString photos = disk.ToNative(u"C:\\JPG"_s);
    int turns = 0;
    doubles.pump.onTurn = [&] {
        if (++turns == 2) {
            EXPECT_TRUE(QDir().rename(photos, photos + u"_GONE"_s));
        }
    };
    Archive({forms::Answer::Yes});
    doubles.pump.onTurn = {};
    EXPECT_TRUE(Says().startsWith(u"It ended at 3 C ST: The photo directory C:\\JPG\\ is not there"_s)) << Says().toStdString();
    EXPECT_TRUE(Says().contains(u"1 record was moved into C:\\ARCHIVE\\OLD.MDB"_s)) << Says().toStdString();
    EXPECT_TRUE(Here().contains(u"3 C ST"_s));
    EXPECT_FALSE(There().contains(u"3 C ST"_s));
}

TEST_F(ArchiveEdges, WhatWasMovedIsSaidAlsoWhereTheArchiveCanNotBeListedAfterwards)
{
    Comp(u"3 C ST"_s, u"05/05/1996"_s);
    engine.SetLockWait(50);
    std::optional<tests::ExclusiveLock> theirs;
    int turns = 0;
    doubles.pump.onTurn = [&] {
        if (++turns == 2)
            theirs.emplace(disk.ToNative(archive)); // whoever stores into it just then
    };
    Archive({forms::Answer::Yes});
    doubles.pump.onTurn = {};
    const QString said = Says();
    theirs.reset();
    EXPECT_TRUE(said.startsWith(u"It ended at 3 C ST: "_s)) << said.toStdString();
    EXPECT_TRUE(said.contains(u"1 record was moved into C:\\ARCHIVE\\OLD.MDB"_s)) << said.toStdString();
    EXPECT_TRUE(Here().contains(u"3 C ST"_s));
}

TEST_F(ArchiveEdges, NoTakesNothingAwayFromWhoHasBegunToArchiveMeanwhile)
{
    engine::Engine other{disk, tests::SomeTime()};
    std::shared_ptr<engine::Database> theirs;
    asked.onBox = [&](const QString& text) {
        if (text.startsWith(u"Delete "_s))
            theirs = other.OpenDatabase(archive);
    };
    Archive({forms::Answer::No, forms::Answer::Yes});
    EXPECT_EQ(asked.Last().title, u"User not allowed to archive database"_s);
    EXPECT_TRUE(asked.Last().text.startsWith(u"The selected database is LOCKED"_s));
    theirs->Close();
    EXPECT_EQ(There(), (QStringList{u"8 Y ST"_s, u"9 Z ST"_s}));
    EXPECT_EQ(letGo, 0);
}

TEST_F(ArchiveEdges, YesAddsNothingWhileAnotherOneHasItOpen)
{
    engine::Engine other{disk, tests::SomeTime()};
    std::shared_ptr<engine::Database> theirs;
    asked.onBox = [&](const QString& text) {
        if (text.startsWith(u"Do you wish to append"_s))
            theirs = other.OpenDatabase(archive);
    };
    Archive({forms::Answer::Yes});
    EXPECT_TRUE(asked.Last().text.startsWith(u"The selected database is LOCKED"_s));
    EXPECT_EQ(Here().size(), 2);
    theirs->Close();
}

TEST_F(ArchiveEdges, WhatCameIntoTheArchiveWhileItAskedIsAskedAboutAnew)
{
    bool added = false;
    asked.onBox = [&](const QString& text) {
        if (text.startsWith(u"Delete "_s) && !std::exchange(added, true))
            InArchive(u"7 X ST"_s, u"just now"_s);
    };
    Archive({forms::Answer::No, forms::Answer::Yes, forms::Answer::No});
    EXPECT_EQ(asked.Last().text,
              u"Somebody has changed C:\\ARCHIVE\\OLD.MDB meanwhile: it had the 2 records. Delete the 3 records of C:\\ARCHIVE\\OLD.MDB and begin it anew?"_s);
    EXPECT_EQ(There().size(), 3);
    EXPECT_TRUE(asked.AllAnswered());
}

TEST_F(ArchiveEdges, TheQuestionsSayWhatYesAndNoDoAndNameThePicturesThatStay)
{
    disk.MkDir(pictures.chopped(1));
    Archive({forms::Answer::No, forms::Answer::Yes});
    ASSERT_EQ(asked.Boxes().size(), 2U);
    EXPECT_EQ(asked.Boxes()[0].icon, forms::Icon::Exclamation) << "which stands on Cancel";
    EXPECT_EQ(asked.Boxes()[1].buttons, forms::Buttons::YesNo);
    EXPECT_EQ(asked.Last().text,
              u"Delete the 2 records of C:\\ARCHIVE\\OLD.MDB and begin it anew? Its pictures in C:\\ARCHIVE\\OLD_JPG\\ stay."_s);
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
    asked.Answer(forms::Answer::Yes);
    Click(screen->cmddelete);
    EXPECT_EQ(Says(), u"C:\\ARCHIVE\\OLD.MDB was deleted. Its pictures are still in C:\\ARCHIVE\\OLD_JPG\\."_s);
    EXPECT_TRUE(disk.FileExists(pictures + u"A.jpg"_s));
}

TEST_F(ArchiveEdges, ADatabookUnderAnotherNameIsRefusedWhateverIsAnswered)
{
    VASCLIP_NEEDS_UNIX("a link without rights");
    ASSERT_TRUE(QFile::link(disk.ToNative(path), disk.ToNative(u"C:\\ARCHIVE"_s) + u"/LINK.MDB"_s));
    screen->txtFileName.SetText(u"LINK.MDB"_s);
    for (const forms::Answer answer : {forms::Answer::Yes, forms::Answer::No}) {
        Archive({answer});
        EXPECT_EQ(asked.Last().title, u"Source and Target Files the Same"_s);
        EXPECT_EQ(asked.Last().text, u"You cannot archive records to itself.  Please select another database."_s);
        EXPECT_EQ(Here().size(), 2);
    }
}

TEST_F(ArchiveEdges, AnEmptyDatabookIsToldInABox)
{
    source.Database().Execute(u"DELETE FROM COMPS"_s);
    Archive({forms::Answer::Yes});
    EXPECT_EQ(asked.Last().text, u"The Source Database is empty."_s);
    EXPECT_EQ(Says(), u"The Source Database is empty."_s);
}

TEST_F(ArchiveEdges, TheCountsOfARunBeforeDoNotStandBesideAFailure)
{
    Archive({forms::Answer::Yes});
    ASSERT_EQ(screen->lblCountMoved.Caption(), u"1"_s);
    screen->txtTable.SetText(u"NOPE"_s);
    Archive({forms::Answer::Yes});
    EXPECT_TRUE(Says().endsWith(u" Nothing was moved."_s)) << Says().toStdString();
    EXPECT_EQ(screen->lblCountMoved.Caption(), u"0"_s);
    EXPECT_FALSE(screen->lstaccount.Visible());
}

TEST_F(ArchiveEdges, CreateMendsTheNameAndLeavesEverythingAtNo)
{
    Create(u"C:\\ARCHIVE\\SIXTIES."_s, forms::Answer::No);
    EXPECT_EQ(asked.Last().text, u"Create C:\\ARCHIVE\\SIXTIES.MDB?"_s);
    EXPECT_FALSE(disk.FileExists(u"C:\\ARCHIVE\\SIXTIES.MDB"_s));
    EXPECT_EQ(screen->txtFileName.Text(), u"OLD.MDB"_s);
    Create(u"C:\\ARCHIVE\\SIXTIES"_s, forms::Answer::Yes);
    EXPECT_EQ(asked.Last().text, u"Create C:\\ARCHIVE\\SIXTIES.MDB?"_s);
    EXPECT_TRUE(In(u"C:\\ARCHIVE\\SIXTIES.MDB"_s).isEmpty());
    EXPECT_EQ(screen->txtFileName.Text(), u"SIXTIES.MDB"_s);
}

TEST_F(ArchiveEdges, ANameOfAnotherKindBecomesOneThatTheListShows)
{
    screen->txtFileName.SetText(u"FOO.BAR"_s);
    Archive({});
    EXPECT_EQ(screen->txtFileName.Text(), u"FOO.MDB"_s);
    EXPECT_TRUE(screen->lstdatabases.Items().contains(u"FOO.MDB"_s));
    EXPECT_EQ(In(u"C:\\ARCHIVE\\FOO.MDB"_s).keys(), QStringList{u"1 A ST"_s});
}

TEST_F(ArchiveEdges, ATemplateOfAccessIsNoTemplate)
{
    ASSERT_TRUE(store::ConvertDatabase(
        engine, {.source = archive, .target = u"C:\\NEWDATA.MDB"_s, .to = engine::DatabaseKind::Access}));
    screen->txtFileName.SetText(u"FRESH.MDB"_s);
    Archive({});
    EXPECT_TRUE(asked.Boxes().empty()) << asked.Last().text.toStdString();
    EXPECT_EQ(In(u"C:\\ARCHIVE\\FRESH.MDB"_s).keys(), QStringList{u"1 A ST"_s});
}

TEST_F(ArchiveEdges, TheDatesSayWhetherPendingSalesGoToo)
{
    const auto range = [&](const QString& start, const QString& stop) {
        Dates(start, stop);
        return screen->lblRange.Caption();
    };
    EXPECT_FALSE(range(u"01/02/1900"_s, u"12/31/1999"_s).contains(u"pending"_s));
    EXPECT_TRUE(range(u" "_s, u"12/31/1999"_s).endsWith(u", and all pending sales (01/01/1900)."_s));
    EXPECT_TRUE(range(u"1/1/1900"_s, u"12/31/1999"_s).endsWith(u", and all pending sales (01/01/1900)."_s));
}

TEST_F(ArchiveEdges, TheLineOfTheDatesPromisesNothingThatTheyRefuse)
{
    for (const auto& [start, stop] : {std::pair{u"abc"_s, u""_s}, {u"1/1/2020"_s, u""_s}, {u"1/1/2020"_s, u"12/31/201"_s},
                                      {u"12/31/2020"_s, u"1/1/2020"_s}}) {
        Dates(start, stop);
        EXPECT_EQ(screen->lblRange.Caption(), u"From %1 to %2 is no range of dates: no record is archived."_s.arg(
                                                  start, stop.isEmpty() ? u"01/01/1900"_s : stop));
    }
    Dates(u"1/1/2020"_s, u"1/1/2020"_s);
    EXPECT_TRUE(screen->lblRange.Caption().startsWith(u"Records sold from 1/1/2020 to 1/1/2020 are archived"_s));
}

} // namespace
} // namespace vasclip::upkeep
