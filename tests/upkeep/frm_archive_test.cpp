#include "upkeep/frm_archive_home.h"

#include "store/convert.h"
#include "store/record.h"

namespace vasclip::upkeep {
namespace {

TEST_F(FrmArchive, OpensOnTheSettingsWithItsWords)
{
    EXPECT_EQ(screen->Caption(), u"Vasclip - Database Archive Utility"_s);
    EXPECT_EQ(screen->txtPath.Text(), u"C:\\ARCHIVE\\"_s);
    EXPECT_EQ(screen->txtFileName.Text(), u"OLD.MDB"_s);
    EXPECT_EQ(screen->txtTable.Text(), table);
    EXPECT_EQ(screen->lstdatabases.Items(), QStringList{u"OLD.MDB"_s});
    EXPECT_EQ(screen->fildatabases.Items(), screen->lstdatabases.Items());
    EXPECT_EQ(screen->lstTables.Items(), QStringList{table});
    EXPECT_EQ(screen->ckbDateStamp.Caption(), u"Use Date Stamp"_s);
    EXPECT_EQ(screen->optduplicates(0).Caption(), u"Don't Prompt"_s);
    EXPECT_EQ(screen->optduplicates(1).Caption(), u"Prompt For Overwrite"_s);
    EXPECT_TRUE(screen->optduplicates(0).Value());
    EXPECT_EQ(screen->txtstartdate.ToolTipText(), u"Based on Sale Date"_s);
    EXPECT_EQ(screen->txtenddate.ToolTipText(), u"Based On Sale Date"_s);
    EXPECT_EQ(screen->imastart.ToolTipText(), u"Click to get a pop calendar"_s);
    EXPECT_EQ(screen->cmdarchive.Caption(), u"Create &Archive"_s);
    EXPECT_EQ(screen->cmdcreate.Caption(), u"&Create"_s);
    EXPECT_EQ(screen->cmddelete.Caption(), u"&Delete Database"_s);
    EXPECT_EQ(screen->lblRange.Caption(), u"Without dates only pending sales (01/01/1900) are archived."_s);
    screen->txtenddate.SetText(u"12/31/1999"_s);
    EXPECT_EQ(screen->lblRange.Caption(), u"Records sold from 01/01/1900 to 12/31/1999 are archived, both days included, and all pending sales (01/01/1900)."_s);
    screen->ckbDateStamp.SetValue(true);
    EXPECT_EQ(screen->txtFileName.Text(), u"OLD_05-17-24_103000.MDB"_s);
    screen->ckbDateStamp.SetValue(false);
    EXPECT_EQ(screen->txtFileName.Text(), u"OLD.MDB"_s);
    screen->optduplicates(1).SetValue(true);
    EXPECT_FALSE(screen->optduplicates(0).Value());
}

TEST_F(FrmArchive, AppendsIntoAFileThatIsThere)
{
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdarchive);
    EXPECT_EQ(doubles.prompter.Last().title, u"Archive File Already Exists"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"Do you wish to append into existing file C:\\ARCHIVE\\OLD.MDB ) ?"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNoCancel);
    EXPECT_EQ(screen->lblCountMoved.Caption(), u"1"_s);
    EXPECT_EQ(screen->lblCountOverwritten.Caption(), u"0"_s);
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(Here(), QStringList{u"2 B ST"_s});
    EXPECT_EQ(letGo, 1);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(Says().startsWith(u"1 record was moved into C:\\ARCHIVE\\OLD.MDB"_s));
}

TEST_F(FrmArchive, LeavesAnArchiveOfAccessAlone)
{
    const QString made = u"C:\\MADE.MDB"_s;
    ASSERT_TRUE(store::ConvertDatabase(engine,
                                       {.source = archive, .target = made, .to = engine::DatabaseKind::Access}));
    disk.Kill(archive);
    disk.FileCopy(made, archive);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdarchive);
    EXPECT_EQ(doubles.prompter.Last().title, u"Archive Is an Access Database"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(
        u"C:\\ARCHIVE\\OLD.MDB is an Access database, which is read here and never written. Convert it first"_s));
    EXPECT_EQ(disk.ReadWhole(archive), disk.ReadWhole(made));
    EXPECT_FALSE(disk.DirExists(pictures));
    EXPECT_EQ(Here(), (QStringList{u"1 A ST"_s, u"2 B ST"_s}));
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
}

TEST_F(FrmArchive, CancelStopsAndNoAsksOnceMoreBeforeItBeginsAnew)
{
    InArchive(u"9 Z ST"_s, u"years old"_s);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    Click(screen->cmdarchive);
    EXPECT_EQ(There(), QStringList{u"9 Z ST"_s});
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdarchive);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Delete the one record of C:\\ARCHIVE\\OLD.MDB and begin it anew?"_s);
    EXPECT_EQ(There(), QStringList{u"9 Z ST"_s});
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdarchive);
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
}

TEST_F(FrmArchive, MakesDirectoryAndFileThatAreMissing)
{
    screen->txtPath.SetText(u"C:\\OLD\\YEARS"_s);
    screen->txtFileName.SetText(u"NINETIES"_s);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    Click(screen->cmdarchive);
    EXPECT_EQ(In(u"C:\\OLD\\YEARS\\NINETIES.MDB"_s).keys(), QStringList{u"1 A ST"_s});
    EXPECT_TRUE(disk.FileExists(u"C:\\OLD\\YEARS\\NINETIES_JPG\\A.jpg"_s));
}

TEST_F(FrmArchive, RefusesTargetsThatAreProtectedOpenOrLocked)
{
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    screen->txtFileName.SetText(u"NEWDATA.MDB"_s);
    Click(screen->cmdarchive);
    EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to archive"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"You cannot archive to default (protected) installed database: NEWDATA "_s);

    engine::Engine other{disk, tests::SomeTime()};
    const auto theirs = other.OpenDatabase(archive);
    screen->txtFileName.SetText(u"OLD.MDB"_s);
    Click(screen->cmdarchive);
    EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to archive database"_s);
    EXPECT_EQ(
        doubles.prompter.Last().text,
        u"The selected database is LOCKED (by you or another user). Make sure all users are not currenlty connected to C:\\ARCHIVE\\OLD.MDB before attempting to archive to this database file!"_s);
    theirs->Close();
    EXPECT_EQ(Here().size(), 2);
    EXPECT_EQ(letGo, 0);
}

TEST_F(FrmArchive, RefusesTheDatabookItselfUnderEveryName)
{
    disk.FileCopy(path, u"C:\\MINE.MDB"_s);
    source.Open(u"C:\\MINE.MDB"_s, table, store::SourceKind::Table);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    screen->txtPath.SetText(u"C:\\"_s);
    screen->txtFileName.SetText(u"mine.mdb"_s);
    Click(screen->cmdarchive);
    EXPECT_EQ(doubles.prompter.Last().text, u"You cannot archive to currently open database (C:\\MINE.MDB)!"_s);
    EXPECT_EQ(store::CountRows(source.Database(), table), 2);
}

TEST_F(FrmArchive, RefusesDatesThatAreNoneAndARangeThatIsEmpty)
{
    Dates(u"soon"_s, {});
    Click(screen->cmdarchive);
    EXPECT_TRUE(Says().startsWith(u"'soon' is no date."_s));
    Dates(u"1/1/2000"_s, u"1/1/1999"_s);
    Click(screen->cmdarchive);
    EXPECT_EQ(Says(), u"The stop date lies before the start date: no record is in that range."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(FrmArchive, AWishToCloseStopsBehindTheRecordAtWork)
{
    Comp(u"3 C ST"_s, u"05/05/1996"_s);
    Comp(u"4 D ST"_s, u"05/05/1997"_s);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    int turns = 0;
    doubles.pump.onTurn = [&] {
        if (!screen->cmdStop.Visible() || ++turns != 3)
            return;
        screen->Unload();
        EXPECT_TRUE(screen->IsOpen());
        EXPECT_FALSE(screen->cmdarchive.Enabled());
    };
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdarchive);
    doubles.pump.onTurn = {};
    EXPECT_TRUE(Says().startsWith(u"Stopped. "_s)) << Says().toStdString();
    EXPECT_FALSE(Here().isEmpty());
    EXPECT_EQ(Here().size() + There().size(), 4);
    screen->Unload();
    EXPECT_FALSE(screen->IsOpen());
}

TEST_F(FrmArchive, TellsWhatWasMovedBeforeAnError)
{
    Comp(u"3 C ST"_s, u"05/05/1996"_s);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    engine.SetLockWait(50);
    engine::Engine other{disk, tests::SomeTime()};
    std::shared_ptr<engine::Database> theirs;
    doubles.pump.onTurn = [&] {
        if (theirs || screen->lblCountMoved.Caption() != u"1"_s)
            return;
        theirs = other.OpenDatabase(archive);
        theirs->BeginTrans();
        theirs->Execute(u"UPDATE COMPS SET NOTES = 'theirs'"_s);
    };
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Yes); // the error's box
    Click(screen->cmdarchive);
    doubles.pump.onTurn = {};
    theirs->Rollback();
    theirs->Close();
    EXPECT_TRUE(Says().startsWith(u"It ended at 3 C ST: "_s)) << Says().toStdString();
    EXPECT_TRUE(Says().contains(u"1 record was moved"_s)) << Says().toStdString();
    EXPECT_EQ(screen->lblCountMoved.Caption(), u"1"_s);
    EXPECT_EQ(There(), QStringList{u"1 A ST"_s});
}

TEST_F(FrmArchive, CreatesAndDeletesArchives)
{
    doubles.prompter.AnswerDialog(u"C:\\ARCHIVE\\SIXTIES.txt"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdcreate);
    EXPECT_EQ(doubles.prompter.Last().text, u"Create C:\\ARCHIVE\\SIXTIES.MDB?"_s);
    EXPECT_EQ(screen->txtFileName.Text(), u"SIXTIES.MDB"_s);
    EXPECT_EQ(screen->lstTables.Items(), QStringList{table});
    doubles.prompter.AnswerDialog(u"C:\\ARCHIVE\\SIXTIES"_s);
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdcreate);
    EXPECT_EQ(doubles.prompter.Last().text, u"Open C:\\ARCHIVE\\SIXTIES.MDB?"_s) << "it is there";
    doubles.prompter.AnswerDialog(u"C:\\ARCHIVE\\OLD.MDB"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdcreate);
    EXPECT_EQ(doubles.prompter.Last().text, u"Open C:\\ARCHIVE\\OLD.MDB?"_s);
    EXPECT_EQ(screen->txtFileName.Text(), u"OLD.MDB"_s);
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmddelete);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete C:\\ARCHIVE\\OLD.MDB.  Are you sure?"_s);
    EXPECT_TRUE(disk.FileExists(archive));
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmddelete);
    EXPECT_FALSE(disk.FileExists(archive));
    EXPECT_EQ(screen->lstdatabases.Items(), QStringList{u"SIXTIES.MDB"_s});
    screen->txtFileName.SetText(u"DATABOOK.MDB"_s);
    Click(screen->cmddelete);
    EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to delete database"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"You cannot delete default (protected) installed database: DATABOOK "_s);
}

} // namespace
} // namespace vasclip::upkeep
