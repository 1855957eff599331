#include "import_home.h"
#include "support/exclusive_lock.h"

namespace vasclip::windows {
namespace {

TEST_F(ImportWindow, AddsRecordsAndTheGridShowsThem)
{
    ASSERT_EQ(main.records.grddatabook.Source()->RowCount(), 1);
    Play([&] {
        EXPECT_EQ(window->windowTitle(), main.globals.productName + u" - Database Export Utility"_s);
        EXPECT_EQ(The<QLabel>(u"lblTargetDB"_s).text(), shell::kDatabook);
        EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"THEIRS.MDB"_s});
        ClickLine(u"filexport"_s, 0);
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), u"3 records"_s);
        Tick(u"ckbCopy"_s);
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), u"2 records of C:\\DATABOOK\\IMPORT\\THEIRS.MDB were added to the Databook. 1 stayed out, as "
                          u"the Databook has its key. Pictures: 2 written."_s);
        EXPECT_EQ(Lines(u"lstaccount"_s), QStringList{u"COMPS row 1, 12 OAK ST: the Databook has a record of this key"_s});
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), u"3 records"_s);
        if (qEnvironmentVariableIsSet("VASCLIP_SHOTS"))
            window->grab().save(qEnvironmentVariable("VASCLIP_SHOTS") + u"/import.png"_s);
    });
    EXPECT_EQ(main.records.grddatabook.Source()->RowCount(), 3);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\JPG\\00000002.jpg"_s), kJpeg);
}

TEST_F(ImportWindow, RefusesDashesAFileThatIsGoneAndItself)
{
    Play([&] {
        Type(u"txtFileName"_s, u"EXPORT_03-07-26_090502.MDB"_s);
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), u"The file 'EXPORT_03-07-26_090502.MDB' contains dashes (-) and must be renamed before it can "
                          u"be imported."_s);
        EXPECT_TRUE(doubles.prompter.Boxes().empty());
        Type(u"txtFileName"_s, u"GONE.MDB"_s);
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), QString());
        EXPECT_EQ(doubles.prompter.Last().title, u"File Does Not Exist"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"File C:\\DATABOOK\\IMPORT\\GONE.MDB does not exist."_s);
        doubles.prompter.Forget();
        Press(u"cmdDelete"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"File C:\\DATABOOK\\IMPORT\\GONE.MDB does not exist."_s);
        Type(u"txtPath"_s, u"c:\\databook"_s);
        Type(u"txtFileName"_s, u"Databook.mdb"_s);
        Press(u"cmdImport"_s);
        EXPECT_EQ(doubles.prompter.Last().title, u"Cannot Import"_s);
        EXPECT_EQ(doubles.prompter.Last().text, u"Cannot Import Databook.mdb unto itself!"_s);
    });
    EXPECT_EQ(Records().size(), 1);
}

TEST_F(ImportWindow, WhatWasSaidOfAFileGoesWhenAnotherIsChosen)
{
    const QString cut = u"C:\\DATABOOK\\IMPORT\\CUT.MDB"_s;
    (void)MakeCutFile(engine, cut);
    Play([&] {
        const auto choose = [&](const QString& name) {
            ClickLine(u"filexport"_s, static_cast<int>(Lines(u"filexport"_s).indexOf(name)));
        };
        window->activateWindow();
        QApplication::setActiveWindow(window);
        const auto damaged = [&] { return Says().startsWith(cut + u" is damaged"_s); };
        choose(u"CUT.MDB"_s);
        EXPECT_TRUE(damaged());
        choose(u"THEIRS.MDB"_s);
        EXPECT_EQ(Says(), QString()) << "this one is whole";
        choose(u"CUT.MDB"_s);
        EXPECT_TRUE(damaged());
        Type(u"txtFileName"_s, u"THEIRS.MDB"_s);
        The<QLineEdit>(u"txtTable"_s).setFocus();
        EXPECT_EQ(Says(), QString());
        choose(u"CUT.MDB"_s);
        Tick(u"optLocation_1"_s);
        EXPECT_EQ(Says(), QString());
        Tick(u"optLocation_0"_s);
        choose(u"THEIRS.MDB"_s);
        Press(u"cmdImport"_s);
        const QString done = Says();
        EXPECT_TRUE(done.startsWith(u"2 records of"_s)) << done.toStdString();
        Tick(u"optLocation_1"_s);
        EXPECT_EQ(Says(), done) << "what was done stays";
    });
}

TEST_F(ImportWindow, TheSameNameInAnotherDirectoryIsNoImportUntoItself)
{
    const QString mine = u"C:\\DATABOOK\\IMPORT\\DATABOOK.MDB"_s;
    home.disk.FileCopy(kTheirs, mine);
    Play([&] {
        ClickLine(u"filexport"_s, static_cast<int>(Lines(u"filexport"_s).indexOf(u"DATABOOK.MDB"_s)));
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Says().startsWith(u"2 records of "_s + mine)) << Says().toStdString();
    });
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Records().size(), 3);
}

TEST_F(ImportWindow, NeedsATableAndListsThoseOfANameThatIsTyped)
{
    Play([&] {
        window->activateWindow();
        QApplication::setActiveWindow(window);
        EXPECT_TRUE(The<QRadioButton>(u"optLocation_0"_s).isChecked());
        EXPECT_FALSE(The<QRadioButton>(u"optLocation_2"_s).isChecked());
        Type(u"txtFileName"_s, u"theirs.mdb"_s);
        The<QLineEdit>(u"txtTable"_s).setFocus();
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"COMPS"_s});
        EXPECT_EQ(The<QLabel>(u"lblRecordCount"_s).text(), u"3 records"_s);
        Type(u"txtTable"_s, u" "_s);
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), u"Choose a table first."_s);
        doubles.prompter.AnswerDialog({});
        Press(u"cmdBrowse"_s);
        EXPECT_EQ(doubles.prompter.Dialogs().back().filter,
                  u"*.mdb|Access|*.csv;*.txt;*.tsv;*.xlsx;*.xlsm|Text and spreadsheet files"_s);
    });
    EXPECT_EQ(Records().size(), 1);
}

TEST_F(ImportWindow, WaitsUnderTheHourglassAndSaysInRedThatSomeStayedOut)
{
    PlayOn(u"frm_Import"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 0); }, [&](forms::Screen& shown) {
        window->activateWindow();
        QApplication::setActiveWindow(window);
        ClickLine(u"filexport"_s, 0);
        Tick(u"ckbCopy"_s);
        doubles.pump.onTurn = [&] {
            EXPECT_TRUE(doubles.window.hourglass);
            EXPECT_FALSE(The<QListView>(u"filexport"_s).isEnabled()) << "nothing is chosen meanwhile";
            EXPECT_EQ(QApplication::focusWidget(), &The<QPushButton>(u"cmdStop"_s)) << "Enter and Space cancel";
        };
        Press(u"cmdImport"_s);
        doubles.pump.onTurn = {};
        EXPECT_FALSE(doubles.window.hourglass);
        EXPECT_EQ(dynamic_cast<const upkeep::frm_Import&>(shown).lblmsg.Fore(), forms::Colour::Red) << "one stayed out";
        EXPECT_EQ(Lines().size(), 1);
        Press(u"cmdImport"_s);
        EXPECT_EQ(Lines().size(), 3);
        const auto database = engine.OpenDatabase(kTheirs);
        database->Execute(u"DELETE FROM COMPS"_s);
        database->Close();
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Lines().isEmpty()) << "that was of another import";
    });
}

TEST_F(ImportWindow, ListsNoMoreThanAnybodyReads)
{
    const auto database = engine.OpenDatabase(kTheirs);
    database->CreateTable({.name = u"ODD"_s, .fields = {{.name = u"CENTRALKEY"_s, .size = 35}}, .indexes = {}});
    engine::Transaction together(*database);
    const auto rows = database->OpenRecordset(u"ODD"_s, engine::RecordsetType::Table);
    for (int i = 0; i <= upkeep::frm_Import::kShownLines; ++i) {
        rows->AddNew();
        rows->Update();
    }
    together.Commit();
    rows->Close();
    database->Close();
    Play([&] {
        ClickLine(u"filexport"_s, 0);
        ClickLine(u"lstTables"_s, static_cast<int>(Lines(u"lstTables"_s).indexOf(u"ODD"_s)));
        Press(u"cmdImport"_s);
        ASSERT_EQ(Lines().size(), upkeep::frm_Import::kShownLines + 1) << Says().toStdString();
        EXPECT_EQ(Lines().first(), u"ODD row 1: it has no key"_s);
        EXPECT_EQ(Lines().last(), u"and 1 more"_s);
    });
}

TEST_F(ImportWindow, GoesToTheThreeDirectories)
{
    home.MakeDirs(u"C:\\DATABOOK\\ARCHIVE"_s);
    store::MakeDatabase(engine, u"C:\\DATABOOK\\ARCHIVE\\OLD.MDB"_s);
    Play([&] {
        const auto choose = [&](int which) {
            auto& option = The<QRadioButton>(u"optLocation_%1"_s.arg(which));
            QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
            return option.text();
        };
        EXPECT_EQ(choose(2), u"Archive Location"_s);
        EXPECT_EQ(Text(u"txtPath"_s), u"C:\\DATABOOK\\ARCHIVE\\"_s);
        EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"OLD.MDB"_s});
        EXPECT_EQ(choose(1), u"Export Location"_s);
        EXPECT_EQ(Lines(u"filexport"_s), QStringList());
        EXPECT_EQ(choose(0), u"Import Location"_s);
        EXPECT_EQ(Lines(u"filexport"_s), QStringList{u"THEIRS.MDB"_s});
    });
}

TEST_F(ImportWindow, IsCanceledInTheMiddle)
{
    Play([&] {
        ClickLine(u"filexport"_s, 0);
        Tick(u"ckbCopy"_s);
        int turns = 0;
        doubles.pump.onTurn = [&] {
            if (++turns == 2)
                Press(u"cmdStop"_s);
        };
        Press(u"cmdImport"_s);
        doubles.pump.onTurn = {};
        EXPECT_EQ(Says(), u"Canceled: nothing came in."_s);
        EXPECT_EQ(Records().size(), 1);
        EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*"_s), QStringList());
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Says().startsWith(u"2 records of"_s)) << "the stop counted once: " << Says().toStdString();
    });
}

TEST_F(ImportWindow, TakesATableOfAFileThatHasNoneOfTheUsualName)
{
    const auto database = engine.OpenDatabase(kTheirs);
    database->Execute(u"SELECT * INTO [JUNE] FROM [COMPS]"_s);
    database->Execute(u"DROP TABLE [COMPS]"_s);
    database->Close();
    Play([&] {
        EXPECT_EQ(Text(u"txtTable"_s), u"COMPS"_s);
        ClickLine(u"filexport"_s, 0);
        EXPECT_EQ(Text(u"txtTable"_s), u"JUNE"_s);
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Says().startsWith(u"2 records of"_s)) << Says().toStdString();
    });
}

TEST_F(ImportWindow, GoesOnWhenSomebodyKeepsTheDatabookLocked)
{
    program.Engine().SetLockWait(50);
    Play([&] {
        ClickLine(u"filexport"_s, 0);
        sqlite3* theirs = nullptr;
        ASSERT_EQ(sqlite3_open(home.disk.ToNative(shell::kDatabook).toUtf8().constData(), &theirs), SQLITE_OK);
        ASSERT_EQ(sqlite3_exec(theirs, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
        Press(u"cmdImport"_s);
        EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Could not update; currently locked by another user"_s))
            << doubles.prompter.Last().text.toStdString();
        EXPECT_EQ(Says(), u"Nothing came in: the Databook is as it was."_s);
        sqlite3_close(theirs);
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Says().startsWith(u"2 records of"_s)) << Says().toStdString();
    });
    EXPECT_EQ(Records().size(), 3);
}

} // namespace
} // namespace vasclip::windows
