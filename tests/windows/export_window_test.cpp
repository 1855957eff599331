#include "keys.h"
#include "report_windows.h"
#include "support/exclusive_lock.h"
#include "support/genuine_files.h"
#include "support/unix.h"
#include "upkeep/frm_export.h"
#include "upkeep/tables.h"

#include <QDir>
#include <QProgressBar>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kOut = u"C:\\DATABOOK\\EXPORT\\EXPORT.MDB"_s;

/// The export's window, opened by its menu entry over the main screen.
class ExportWindow : public PlayedScreen
{
protected:
    void SetUp() override
    {
        PlayedScreen::SetUp();
        home.Put(u"C:\\JPG\\00000001.jpg"_s, "picture");
        Add(shell::kDatabook, u"COMPS"_s,
            {{u"CENTRALKEY"_s, u"9 ELM ST"_s.leftJustified(35)},
             {u"CITY"_s, u"Birch"_s},
             {u"PHOTOS"_s, u"FRONT VIEW|00000001\r\n"_s}});
        StartProgram();
    }
    void Play(const std::function<void()>& script)
    {
        PlayOn(u"frm_Export"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 1); }, script);
    }
    QStringList Keys(const QString& table)
    {
        const auto database = engine.OpenDatabase(kOut);
        store::Rows rows(*database, u"SELECT * FROM ["_s + table + u']');
        QStringList keys;
        while (const auto record = rows.Next())
            keys.append(record->Text(u"CENTRALKEY"_s));
        return keys;
    }
};

TEST_F(ExportWindow, CopiesAllRecordsAndSaysSo)
{
    Play([&] {
        EXPECT_EQ(window->windowTitle(), main.globals.productName + u" - Database Export Utility"_s);
        EXPECT_EQ(Text(u"txtPath"_s), u"C:\\DATABOOK\\EXPORT\\"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"EXPORT.MDB"_s);
        EXPECT_EQ(Text(u"txtTable"_s), u"COMPS"_s);
        EXPECT_EQ(The<QLabel>(u"lblSearch"_s).text(), u"All records are copied: no search is on display."_s);
        Tick(u"ckbCopy"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(Says(), u"2 records were exported to table COMPS of C:\\DATABOOK\\EXPORT\\EXPORT.MDB. 1 picture is "
                          u"inside. 1 record is without a front view."_s);
        EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"EXPORT.MDB"_s});
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), u"2 records"_s);
        EXPECT_FALSE(The<QProgressBar>(u"gauWork"_s).isVisible());
    });
    EXPECT_EQ(Keys(u"COMPS"_s).size(), 2);
}

TEST_F(ExportWindow, TakesTheSearchThatIsOnDisplayWhenTheButtonIsPressed)
{
    main.records.state.sqlText = u"SELECT COMPS.CITY FROM COMPS WHERE UCASE(CITY) LIKE '*BIRCH*'"_s;
    Play([&] {
        EXPECT_EQ(The<QLabel>(u"lblSearch"_s).text(), u"The records of the search on display are copied."_s);
        Type(u"txtTable"_s, u" may "_s);
        main.records.state.sqlText = u"SELECT COMPS.CITY FROM COMPS WHERE CITY IS NULL"_s;
        Press(u"cmdExport"_s);
        EXPECT_TRUE(Says().startsWith(u"1 record was exported to table MAY"_s)) << Says().toStdString();
    });
    EXPECT_EQ(Keys(u"MAY"_s), QStringList{u"12 OAK ST"_s});
}

TEST_F(ExportWindow, StampsTheNameWithEachClick)
{
    doubles.clock.now = QDateTime({2026, 3, 7}, {9, 5, 2});
    Play([&] {
        Tick(u"ckbDateStamp"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"EXPORT_03-07-26_090502.MDB"_s);
        Tick(u"ckbDateStamp"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"EXPORT.MDB"_s);
        Type(u"txtFileName"_s, u"mine.mdb"_s);
        Tick(u"ckbDateStamp"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"mine_03-07-26_090502.MDB"_s);
    });
}

TEST_F(ExportWindow, RefusesBeforeAnythingIsMade)
{
    Play([&] {
        Type(u"txtFileName"_s, u"newdata.mdb"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"You cannot export to default (protected) installed database: newdata "_s);
        Type(u"txtFileName"_s, u" "_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(Says(), u"Enter the name of the database file first."_s);
        Type(u"txtFileName"_s, u"X"_s);
        Type(u"txtTable"_s, u"a]"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(Says(), u"Enter the name of the table first; it may not hold [ or ]."_s);
        EXPECT_FALSE(home.disk.DirExists(u"C:\\DATABOOK\\EXPORT"_s));
    });
}

TEST_F(ExportWindow, IsCanceledInTheMiddleByAClickAndClosesOnlyThen)
{
    Play([&] {
        Press(u"cmdExport"_s);
        const QByteArray before = home.disk.ReadWhole(kOut);
        Tick(u"ckbCopy"_s);
        bool pressed = false;
        doubles.pump.onTurn = [&] {
            if (std::exchange(pressed, true))
                return;
            EXPECT_TRUE(The<QPushButton>(u"cmdStop"_s).isVisible());
            EXPECT_FALSE(The<QPushButton>(u"cmdExport"_s).isEnabled());
            window->close();
            EXPECT_TRUE(window->isVisible()) << "work under way keeps its window";
            Press(u"cmdStop"_s);
        };
        Press(u"cmdExport"_s);
        EXPECT_TRUE(pressed);
        EXPECT_EQ(Says(), u"Canceled: C:\\DATABOOK\\EXPORT\\EXPORT.MDB is as it was."_s);
        EXPECT_EQ(home.disk.ReadWhole(kOut), before);
        EXPECT_TRUE(The<QPushButton>(u"cmdExport"_s).isEnabled());
    });
}

TEST_F(ExportWindow, WorkTakesTheFocusToCancelAtOnce)
{
    home.MakeDirs(u"C:\\DATABOOK\\EXPORT"_s);
    Play([&] {
        ASSERT_TRUE(Activate(*window));
        Tick(u"ckbCopy"_s);
        The<QLineEdit>(u"txtFileName"_s).setFocus();
        QStringList went; // each would be scrolled into view on a small screen
        const auto heard = QObject::connect(qApp, &QApplication::focusChanged, qApp, [&](QWidget*, QWidget* now) {
            went.append(now == nullptr ? u"-"_s : now->objectName());
        });
        Press(u"cmdExport"_s);
        QObject::disconnect(heard);
        EXPECT_EQ(went.value(0), u"cmdStop"_s) << went.join(u' ').toStdString();
    });
}

TEST_F(ExportWindow, AsksBeforeAnAccessFileLosesItsSavedQueriesAndSaysWhatWentAfterAYes)
{
    if (tests::GenuineFiles().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    home.MakeDirs(u"C:\\DATABOOK\\EXPORT"_s);
    ASSERT_TRUE(tests::CopyGenuineFile(u"queryTestV1997.mdb"_s, home.disk.ToNative(kOut)));
    const QByteArray before = home.disk.ReadWhole(kOut);
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    Play([&] {
        Press(u"cmdExport"_s);
        ASSERT_EQ(doubles.prompter.Boxes().size(), 1U) << doubles.prompter.Texts().join(u'\n').toStdString();
        const QString asked = doubles.prompter.Last().text;
        EXPECT_TRUE(asked.startsWith(u"The export writes "_s + kOut + u" anew, and not all that is in it can be written again:\n\n"
                                     u"the format of Access 97 (that of Access 2000 takes its place)\nthe saved query "_s))
            << asked.toStdString();
        EXPECT_EQ(asked.count(u"the saved query "_s), 9);
        EXPECT_EQ(Says(), u"Nothing was exported: "_s + kOut + u" is as it was."_s);
        EXPECT_EQ(home.disk.ReadWhole(kOut), before);
        Press(u"cmdExport"_s);
        EXPECT_TRUE(Says().startsWith(u"2 records were exported to table COMPS of "_s + kOut +
                                      u". The file has no more: the format of Access 97 (that of Access 2000 takes its place), the saved query "_s))
            << Says().toStdString();
        EXPECT_EQ(Says().count(u"the saved query "_s), 9);
        EXPECT_FALSE(Says().contains(u"old file"_s));
        EXPECT_EQ(Lines(u"lstTables"_s), (QStringList{u"Table1"_s, u"Table2"_s, u"Table3"_s, u"COMPS"_s}));
    });
}

TEST_F(ExportWindow, AsksForADirectoryThatIsNotThereWhenItsBoxIsLeft)
{
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    Play([&] {
        window->activateWindow();
        QApplication::setActiveWindow(window);
        Type(u"txtPath"_s, u"C:\\NEW\\PLACE"_s);
        The<QLineEdit>(u"txtTable"_s).setFocus();
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"The directory C:\\NEW\\PLACE does not exist.  Do you wish to create it at this time?"_s);
        EXPECT_FALSE(home.disk.DirExists(u"C:\\NEW"_s));
        The<QLineEdit>(u"txtPath"_s).setFocus();
        The<QLineEdit>(u"txtTable"_s).setFocus();
        EXPECT_TRUE(home.disk.DirExists(u"C:\\NEW\\PLACE"_s));
    });
}

TEST_F(ExportWindow, DeletesTheTableThatWasClickedAlsoWhenTheListIsRefilledMeanwhile)
{
    Play([&] {
        Press(u"cmdExport"_s);
        Type(u"txtTable"_s, u"SECOND"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), (QStringList{u"COMPS"_s, u"SECOND"_s}));
        ClickLine(u"lstTables"_s, 0);
        EXPECT_EQ(Text(u"txtTable"_s), u"COMPS"_s);
        ClickLine(u"lstTables"_s, 1);
        EXPECT_EQ(Text(u"txtTable"_s), u"SECOND"_s);
        upkeep::DeleteTable(engine, kOut, u"COMPS"_s); // by somebody else: what is clicked next stands elsewhere
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"Delete the table SECOND?"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList());
    });
}

TEST_F(ExportWindow, DeletesNoTableOfADatabaseThatIsTheProgramsOrOpen)
{
    const QString mine = u"C:\\DATABOOK\\MINE.MDB"_s, other = u"C:\\DATABOOK\\OTHER.MDB"_s;
    engine.CopyDatabase(shell::kDatabook, mine);
    engine.CopyDatabase(shell::kDatabook, other);
    main.sources.datDatabook.Open(mine, u"COMPS"_s, store::SourceKind::Table);
    Play([&] {
        Type(u"txtPath"_s, u"c:\\databook\\"_s);
        Type(u"txtFileName"_s, u"mine.mdb"_s);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to delete database"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"You cannot delete currently open database (%1)!"_s.arg(mine));
        Type(u"txtFileName"_s, u"DATABOOK.MDB"_s);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"You cannot delete default (protected) installed database: DATABOOK "_s);
        home.Put(u"C:\\DATABOOK\\OTHER.LDB"_s, "somebody");
        Type(u"txtFileName"_s, u"OTHER.MDB"_s);
        Press(u"cmdDelete"_s);
        EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"The selected database is LOCKED"_s));
    });
    home.disk.Kill(u"C:\\DATABOOK\\OTHER.LDB"_s);
    for (const QString& file : {mine, other, shell::kDatabook})
        EXPECT_EQ(upkeep::CountOf(engine, file, u"COMPS"_s), 2) << file.toStdString();
}

TEST_F(ExportWindow, SaysWhatBecameOfItAlsoWhereTheFileCanNotBeListed)
{
    program.Engine().SetLockWait(50);
    doubles.prompter.AnswerAlways(forms::Answer::Ok); // the export itself is refused with a box
    Play([&] {
        Press(u"cmdExport"_s);
        const QByteArray before = home.disk.ReadWhole(kOut);
        const tests::ExclusiveLock theirs(home.disk.ToNative(kOut));
        Press(u"cmdExport"_s);
        EXPECT_TRUE(Says().startsWith(u"Nothing was exported: "_s + kOut + u" is as it was."_s)) << Says().toStdString();
        EXPECT_EQ(home.disk.ReadWhole(kOut), before);
        EXPECT_TRUE(window->isVisible());
    });
}

TEST_F(ExportWindow, AnExportDirectoryThatVanishesMeanwhileIsToldAndNothingElse)
{
    VASCLIP_NEEDS_UNIX("a directory that is removed while a file in it is open");
    Play([&] {
        Tick(u"ckbCopy"_s);
        const QString native = home.disk.ToNative(u"C:\\DATABOOK\\EXPORT"_s);
        bool gone = false;
        doubles.pump.onTurn = [&] { gone = gone || QDir(native).removeRecursively(); };
        doubles.prompter.AnswerAlways(forms::Answer::Abort);
        Press(u"cmdExport"_s);
        doubles.pump.onTurn = {};
        ASSERT_TRUE(gone);
        EXPECT_TRUE(Says().startsWith(u"Nothing was exported: "_s + kOut)) << Says().toStdString();
        for (const QString& text : doubles.prompter.Texts())
            EXPECT_FALSE(text.contains(u".new"_s)) << text.toStdString();
        EXPECT_FALSE(doubles.prompter.Boxes().empty());
        EXPECT_TRUE(The<QPushButton>(u"cmdExport"_s).isEnabled());
        Press(u"cmdExport"_s);
        EXPECT_TRUE(Says().startsWith(u"2 records were exported"_s)) << "it is made again: " << Says().toStdString();
    });
}

TEST_F(ExportWindow, ShowsWhatIsThereWhenItOpensAndWhatIsClicked)
{
    Play([&] {
        EXPECT_EQ(The<QLabel>(u"lblSourceDB"_s).text(), shell::kDatabook);
        Press(u"cmdExport"_s);
        main.records.state.sqlText = u"SELECT COMPS.CITY FROM COMPS WHERE UCASE(CITY) LIKE '*BIRCH*'"_s;
        Type(u"txtTable"_s, u"SECOND"_s);
        doubles.pump.onTurn = [&] { EXPECT_TRUE(doubles.window.hourglass); };
        Tick(u"ckbCopy"_s);
        Press(u"cmdExport"_s);
        doubles.pump.onTurn = {};
        EXPECT_FALSE(doubles.window.hourglass);
    });
    PlayOn(u"frm_Export"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 1); }, [&](forms::Screen& shown) {
        EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"EXPORT.MDB"_s});
        EXPECT_EQ(Lines(u"lstTables"_s), (QStringList{u"COMPS"_s, u"SECOND"_s}));
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), u"2 records"_s);
        ClickLine(u"lstTables"_s, 1);
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), u"1 record"_s);
        Tick(u"ckbDateStamp"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList()) << "there is no file of the stamped name";
        Tick(u"ckbDateStamp"_s);
        EXPECT_EQ(Lines(u"lstTables"_s).size(), 2);
        home.disk.Kill(u"C:\\JPG\\00000001.jpg"_s);
        Tick(u"ckbCopy"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(dynamic_cast<const upkeep::frm_Export&>(shown).lblmsg.Fore(), forms::Colour::Red) << "a picture is not inside";
        Tick(u"ckbCopy"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(dynamic_cast<const upkeep::frm_Export&>(shown).lblmsg.Fore(), forms::Colour::Blue);
    });
}

TEST_F(ExportWindow, DeletesWhatTheAnswerSaysAndTellsIt)
{
    Play([&] {
        Press(u"cmdExport"_s);
        Type(u"txtTable"_s, u"NOSUCH"_s);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(Says(), u"There is no table NOSUCH in "_s + kOut + u'.');
        ClickLine(u"lstTables"_s, 0);
        doubles.prompter.Answer(forms::Answer::No);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"COMPS"_s}) << "No keeps it";
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdDelete"_s);
        EXPECT_EQ(Says(), u"The table COMPS was deleted from "_s + kOut + u'.');
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdDeleteDatabase"_s);
        EXPECT_EQ(Says(), kOut + u" was deleted."_s);
    });
}

TEST_F(ExportWindow, KeepsATableThatWasTypedWhenTheListIsRefilled)
{
    Play([&] {
        Press(u"cmdExport"_s);
        Type(u"txtTable"_s, u"JULY"_s);
        Tick(u"ckbDateStamp"_s);
        Tick(u"ckbDateStamp"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"COMPS"_s});
        EXPECT_EQ(Text(u"txtTable"_s), u"JULY"_s);
    });
}

TEST_F(ExportWindow, DeletesADatabaseAfterAQuestion)
{
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.Answer(forms::Answer::Yes);
    Play([&] {
        Press(u"cmdExport"_s);
        Press(u"cmdDeleteDatabase"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"Delete "_s + kOut + u".  Are you sure?"_s);
        EXPECT_TRUE(home.disk.FileExists(kOut));
        Press(u"cmdDeleteDatabase"_s);
        EXPECT_FALSE(home.disk.FileExists(kOut));
        EXPECT_EQ(Lines(u"filexport"_s), QStringList());
        Press(u"cmdDeleteDatabase"_s);
        EXPECT_EQ(Says(), u"File "_s + kOut + u" does not exist."_s);
    });
}

TEST_F(ExportWindow, AFileThatSomebodyDeletedLeavesTheLists)
{
    Play([&] {
        for (const QString& button : {u"cmdDeleteDatabase"_s, u"cmdDelete"_s}) {
            Press(u"cmdExport"_s);
            EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"EXPORT.MDB"_s});
            home.disk.Kill(kOut);
            Press(button);
            EXPECT_EQ(Says(), u"File "_s + kOut + u" does not exist."_s);
            EXPECT_EQ(Lines(u"filexport"_s), QStringList());
            EXPECT_EQ(Lines(u"lstTables"_s), QStringList());
        }
        EXPECT_TRUE(doubles.prompter.Boxes().empty());
    });
}

TEST_F(ExportWindow, DeletesNoDirectoryAndNoPattern)
{
    Play([&] {
        Press(u"cmdExport"_s);
        for (const QString& name : {u""_s, u"*"_s, u"EX?ORT.MDB"_s, u"..\\EXPORT\\"_s})
            for (const QString& button : {u"cmdDeleteDatabase"_s, u"cmdDelete"_s}) {
                doubles.prompter.Forget();
                doubles.prompter.Answer(forms::Answer::Yes);
                Type(u"txtFileName"_s, name);
                if (name.isEmpty())
                    QTest::keyClick(&The<QLineEdit>(u"txtFileName"_s), Qt::Key_Delete);
                Press(button);
                ASSERT_EQ(doubles.prompter.Boxes().size(), 1) << name.toStdString();
                EXPECT_TRUE(doubles.prompter.Last().text.contains(u"is not the name of one file"_s))
                    << doubles.prompter.Last().text.toStdString();
                EXPECT_TRUE(home.disk.FileExists(kOut)) << name.toStdString();
            }
    });
}

TEST_F(ExportWindow, RefusesToDeleteADatabaseThatIsTheProgramsOrOpenOrLocked)
{
    const QString mine = u"C:\\DATABOOK\\MINE.MDB"_s, other = u"C:\\DATABOOK\\OTHER.MDB"_s;
    engine.CopyDatabase(shell::kDatabook, mine);
    engine.CopyDatabase(shell::kDatabook, other);
    main.sources.datDatabook.Open(mine, u"COMPS"_s, store::SourceKind::Table);
    Play([&] {
        Type(u"txtPath"_s, u"c:\\databook\\"_s);
        const auto refused = [&](const QString& name) {
            doubles.prompter.Forget();
            Type(u"txtFileName"_s, name);
            Press(u"cmdDeleteDatabase"_s);
            EXPECT_EQ(doubles.prompter.Boxes().size(), 1);
            EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to delete database"_s);
            return doubles.prompter.Last().text;
        };
        EXPECT_EQ(refused(u"DATABOOK.MDB"_s),
                  u"You cannot delete default (protected) installed database: DATABOOK "_s);
        EXPECT_EQ(refused(u"mine.mdb"_s), u"You cannot delete currently open database (%1)!"_s.arg(mine));
        home.Put(u"C:\\DATABOOK\\OTHER.LDB"_s, "somebody");
        EXPECT_EQ(refused(u"OTHER.MDB"_s),
                  u"The selected database is LOCKED (by you or another user). Make sure all users are not currenlty "
                  u"connected to c:\\databook\\OTHER.MDB before attempting to delete this database file!"_s);
    });
    for (const QString& file : {mine, other, shell::kDatabook})
        EXPECT_TRUE(home.disk.FileExists(file)) << file.toStdString();
}

TEST_F(ExportWindow, GoesOnWhenATableCannotBeDeletedAsSomebodyWrites)
{
    program.Engine().SetLockWait(50);
    Play([&] {
        Press(u"cmdExport"_s);
        sqlite3* theirs = nullptr;
        ASSERT_EQ(sqlite3_open(home.disk.ToNative(kOut).toUtf8().constData(), &theirs), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(theirs, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdDelete"_s);
        EXPECT_TRUE(window->isVisible());
        EXPECT_FALSE(doubles.prompter.Texts().join(u' ').contains(u"corrupt"_s))
            << doubles.prompter.Texts().join(u'\n').toStdString();
        EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Could not update; currently locked by another user"_s))
            << doubles.prompter.Last().text.toStdString();
        sqlite3_close(theirs);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"COMPS"_s});
    });
}

TEST_F(ExportWindow, OpensWhereItsDriveIsNotThereAndTellsOfATypedOneOnce)
{
    main.globals.G_ExportDir = u"E:\\EXPORT"_s;
    Play([&] {
        EXPECT_TRUE(doubles.prompter.Boxes().empty());
        EXPECT_FALSE(Says().isEmpty());
        EXPECT_TRUE(The<QLineEdit>(u"txtPath"_s).isEnabled());
        EXPECT_TRUE(The<QPushButton>(u"cmdBrowse"_s).isEnabled());
        window->activateWindow();
        QApplication::setActiveWindow(window);
        doubles.prompter.Answer(forms::Answer::Abort);
        Type(u"txtPath"_s, u"F:\\EXPORT"_s);
        The<QLineEdit>(u"txtTable"_s).setFocus();
        EXPECT_EQ(doubles.prompter.Boxes().size(), 1) << doubles.prompter.Texts().join(u'\n').toStdString();
        EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Device unavailable"_s)) << "no directory can be made there";
        Type(u"txtPath"_s, u"C:\\VAS2000"_s);
        The<QLineEdit>(u"txtTable"_s).setFocus();
        EXPECT_EQ(doubles.prompter.Boxes().size(), 1);
        EXPECT_EQ(Says(), QString()) << "what was said of another path";
    });
}

TEST_F(ExportWindow, TakesTheTableAndTheFileThatAreSelectedAlreadyWithAClick)
{
    Play([&] {
        Press(u"cmdExport"_s);
        ClickLine(u"filexport"_s, 0);
        Type(u"txtTable"_s, u"JULY"_s);
        ClickLine(u"lstTables"_s, 0);
        EXPECT_EQ(Text(u"txtTable"_s), u"COMPS"_s);
        Type(u"txtFileName"_s, u"OTHER.MDB"_s);
        ClickLine(u"filexport"_s, 0);
        EXPECT_EQ(Text(u"txtFileName"_s), u"EXPORT.MDB"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"COMPS"_s});
    });
}

TEST_F(ExportWindow, MakesTheDirectoryOfAPathThatIsLeftByTheClickOnTheButton)
{
    Play([&] {
        window->activateWindow();
        QApplication::setActiveWindow(window);
        Type(u"txtPath"_s, u"C:\\NEW\\PLACE"_s);
        Press(u"cmdExport"_s);
        EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "a question would have swallowed the click";
        EXPECT_TRUE(Says().startsWith(u"2 records were exported to table COMPS of C:\\NEW\\PLACE\\EXPORT.MDB"_s))
            << Says().toStdString();
        EXPECT_TRUE(home.disk.FileExists(u"C:\\NEW\\PLACE\\EXPORT.MDB"_s));
    });
}

TEST_F(ExportWindow, RefusesTheOpenDatabookALockedFileAndTheSystemsTables)
{
    const QString mine = u"C:\\DATABOOK\\MINE.MDB"_s;
    engine.CopyDatabase(shell::kDatabook, mine);
    main.sources.datDatabook.Open(mine, u"COMPS"_s, store::SourceKind::Table);
    Play([&] {
        Press(u"cmdExport"_s);
        const QByteArray before = home.disk.ReadWhole(kOut);
        Type(u"txtTable"_s, u"MSysObjects"_s);
        Press(u"cmdExport"_s);
        EXPECT_TRUE(Says().startsWith(u"Tables whose names begin with MSYS"_s)) << Says().toStdString();
        EXPECT_EQ(home.disk.ReadWhole(kOut), before);
        Type(u"txtTable"_s, u"COMPS"_s);
        Type(u"txtPath"_s, u"c:\\databook\\"_s);
        Type(u"txtFileName"_s, u"mine.mdb"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to export database"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"You cannot export to currently open database (%1)!"_s.arg(mine));
        Type(u"txtPath"_s, u"C:\\DATABOOK\\EXPORT"_s);
        Type(u"txtFileName"_s, u"EXPORT.MDB"_s);
        home.Put(u"C:\\DATABOOK\\EXPORT\\EXPORT.LDB"_s, "somebody");
        Press(u"cmdExport"_s);
        EXPECT_EQ(doubles.prompter.Last().title, u"User not allowed to export database"_s);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"The selected database is LOCKED (by you or another user). Make sure all users are not currenlty "
                  u"connected to %1 before attempting to export to this database file!"_s.arg(kOut));
        EXPECT_EQ(home.disk.ReadWhole(kOut), before);
    });
}

TEST_F(ExportWindow, ListsAFileWhoseNameHasADotAndReducesDoubledBackslashes)
{
    main.globals.G_ExportDir = u"C:\\\\DATABOOK\\\\EXPORT\\\\"_s;
    Play([&] {
        EXPECT_EQ(Text(u"txtPath"_s), u"C:\\DATABOOK\\EXPORT\\"_s);
        Type(u"txtFileName"_s, u"MAY.2026"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"MAY.2026.MDB"_s);
        EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"MAY.2026.MDB"_s});
    });
}

TEST_F(ExportWindow, TakesPathAndNameOfABrowsedFile)
{
    store::MakeDatabase(engine, u"C:\\VAS2000\\OLD.MDB"_s);
    doubles.prompter.AnswerDialog(u"C:\\VAS2000\\OLD"_s);
    doubles.prompter.AnswerDialog(u"C:\\VAS2000\\OLD.MDB"_s);
    doubles.prompter.AnswerDialog({});
    Play([&] {
        Press(u"cmdBrowse"_s);
        EXPECT_EQ(doubles.prompter.Dialogs().back().filter, u"*.mdb|Access"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"OLD.mdb"_s);
        Press(u"cmdBrowse"_s);
        EXPECT_EQ(Text(u"txtPath"_s), u"C:\\VAS2000\\"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"COMPS"_s});
        Press(u"cmdBrowse"_s);
        EXPECT_EQ(Text(u"txtFileName"_s), u"OLD.MDB"_s);
    });
}

TEST_F(ExportWindow, LooksAsItShould)
{
    Play([&] {
        home.disk.Kill(u"C:\\JPG\\00000001.jpg"_s);
        Tick(u"ckbCopy"_s);
        Press(u"cmdExport"_s);
        EXPECT_EQ(Lines(u"lstaccount"_s), QStringList{u"9 ELM ST: the file C:\\JPG\\00000001.jpg is not there"_s});
        EXPECT_TRUE(The<QListView>(u"lstaccount"_s).isVisible());
        if (qEnvironmentVariableIsSet("VASCLIP_SHOTS"))
            window->grab().save(qEnvironmentVariable("VASCLIP_SHOTS") + u"/export.png"_s);
    });
}

} // namespace
} // namespace vasclip::windows
