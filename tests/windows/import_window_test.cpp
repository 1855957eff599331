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
        EXPECT_EQ(Says(), u"2 records of C:\\DATABOOK\\IMPORT\\THEIRS.MDB were added to the Databook. 1 was refused. "
                          u"Pictures: 2 written."_s);
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
    });
    EXPECT_EQ(Records().size(), 1);
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*"_s), QStringList());
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

/// The rehearsal over the import's window.
class RehearseWindow : public ImportWindow
{
protected:
    void SetUp() override
    {
        ImportWindow::SetUp();
        const auto database = engine.OpenDatabase(kTheirs);
        database->Execute(u"UPDATE [COMPS] SET CITY = 'THEIRS', ZIP = '97001' WHERE CENTRALKEY = '12 OAK ST'"_s);
        database->Close();
    }
    void Rehearse(const std::function<void()>& script)
    {
        Play([&] {
            ClickLine(u"filexport"_s, 0);
            Tick(u"ckbCopy"_s);
            PlayOn(u"frm_Rehearse"_s, [&] { Press(u"cmdRehearse"_s); }, script);
        });
    }
    void ClickRow(int row) const
    {
        auto& view = The<QAbstractItemView>(u"grdrows"_s);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(view.model()->index(row, 0)).center());
    }
    void Option(int choice) const
    {
        auto& option = The<QRadioButton>(u"optChoice_%1"_s.arg(choice));
        QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    }
    QString City(const QString& key)
    {
        const auto database = engine.OpenDatabase(shell::kDatabook);
        const auto rows = database->OpenRecordset(u"SELECT CITY FROM COMPS WHERE CENTRALKEY = '%1'"_s.arg(key),
                                                  engine::RecordsetType::Dynaset);
        return rows->Eof() ? u"none"_s : rows->Value(u"CITY"_s).toString();
    }
};

TEST_F(RehearseWindow, ShowsEachRowAndItsFieldsAndImportsByTheChoice)
{
    Rehearse([&] {
        EXPECT_EQ(The<QLabel>(u"lblSummary"_s).text(), u"new: 2, changed: 1, same: 0, same address: 0, refused: 0"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 0).mid(0, 3), (QStringList{u"12 OAK ST"_s, u"changed"_s, u"keep mine"_s}));
        EXPECT_EQ(Cells(u"grdrows"_s, 1).mid(0, 4), (QStringList{u"1 ASH ST"_s, u"new"_s, u"add"_s, u"new"_s}));
        ClickRow(0);
        EXPECT_EQ(Cells(u"grdfields"_s, 0).at(2), QString());
        EXPECT_EQ(Cells(u"grdfields"_s, 1).mid(1), (QStringList{u""_s, u"THEIRS"_s}));
        EXPECT_FALSE(The<QRadioButton>(u"optChoice_0"_s).isEnabled()) << "its key is there";
        Option(2);
        EXPECT_EQ(Cells(u"grdrows"_s, 0).at(2), u"take theirs"_s);
        ClickRow(2);
        EXPECT_TRUE(The<QRadioButton>(u"optChoice_0"_s).isChecked());
        EXPECT_FALSE(The<QRadioButton>(u"optChoice_2"_s).isEnabled());
        Option(1);
        EXPECT_EQ(Cells(u"grdrows"_s, 2).at(2), u"keep mine"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 1).at(2), u"add"_s);
        ClickRow(0);
        EXPECT_TRUE(The<QRadioButton>(u"optChoice_2"_s).isChecked()) << "the row's own choice, seen again";
        ClickRow(2);
        EXPECT_TRUE(The<QRadioButton>(u"optChoice_1"_s).isChecked());
        if (qEnvironmentVariableIsSet("VASCLIP_SHOTS"))
            window->grab().save(qEnvironmentVariable("VASCLIP_SHOTS") + u"/rehearse.png"_s);
        EXPECT_EQ(Records().size(), 1) << "nothing is done before the button";
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), u"Records added: 1, changed: 1. Pictures: 1 written."_s);
        EXPECT_FALSE(The<QPushButton>(u"cmdImport"_s).isEnabled());
    });
    EXPECT_EQ(City(u"12 OAK ST"_s), u"THEIRS"_s);
    EXPECT_EQ(City(u"1 ASH ST"_s), QString());
    EXPECT_EQ(City(u"2 ASH ST"_s), u"none"_s);
    EXPECT_EQ(main.records.grddatabook.Source()->RowCount(), 2);
}

TEST_F(RehearseWindow, ChoosesForAWholeKindAndLeavesWithoutAWord)
{
    Rehearse([&] {
        QTest::mouseClick(&The<QCheckBox>(u"ckbKind"_s), Qt::LeftButton, {}, QPoint(8, 8));
        ClickRow(1);
        Option(1);
        EXPECT_EQ(Cells(u"grdrows"_s, 1).at(2), u"keep mine"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 2).at(2), u"keep mine"_s);
        Press(u"cmdExit"_s);
    });
    EXPECT_EQ(Records().size(), 1);
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*"_s), QStringList());
}

TEST_F(RehearseWindow, IsCanceledWhileTheFileIsRead)
{
    Play([&] {
        ClickLine(u"filexport"_s, 0);
        bool pressed = false;
        doubles.pump.onTurn = [&] {
            if (std::exchange(pressed, true))
                return;
            EXPECT_TRUE(The<QPushButton>(u"cmdStop"_s).isVisible());
            Press(u"cmdStop"_s);
        };
        Press(u"cmdRehearse"_s);
        doubles.pump.onTurn = {};
        EXPECT_TRUE(pressed);
        EXPECT_EQ(Says(), u"Canceled: nothing came in."_s);
        EXPECT_FALSE(doubles.screens.Shown().contains(u"frm_Rehearse"_s));
        EXPECT_TRUE(The<QPushButton>(u"cmdRehearse"_s).isEnabled());
    });
}

TEST_F(RehearseWindow, SaysWhatSomebodyAddedAndDeletedMeanwhile)
{
    Rehearse([&] {
        ClickRow(0);
        Option(2);
        const auto database = engine.OpenDatabase(shell::kDatabook);
        database->Execute(u"INSERT INTO COMPS (CENTRALKEY) VALUES ('1 ASH ST')"_s);
        database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '12 OAK ST'"_s);
        database->Close();
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Says().startsWith(u"Records added: 1, changed: 0. Pictures: 1 written. Not done: "_s)) << Says().toStdString();
        EXPECT_EQ(Cells(u"grdrows"_s, 0).at(4), u"your record is not there any more"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 1).at(4), u"a record of this key is in the Databook by now"_s);
    });
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*"_s), QStringList{u"00000002.jpg"_s});
}

TEST_F(RehearseWindow, StandsAlsoWhenSomebodyHoldsTheDatabookAlone)
{
    program.Engine().SetLockWait(50);
    doubles.prompter.AnswerAlways(forms::Answer::Cancel);
    Rehearse([&] {
        ClickRow(0); // whose fields are shown
        Option(2);
        {
            const tests::ExclusiveLock theirs(home.disk.ToNative(shell::kDatabook));
            Press(u"cmdImport"_s);
            EXPECT_FALSE(doubles.prompter.Boxes().empty());
            EXPECT_TRUE(Says().contains(u"the Databook is as it was."_s)) << Says().toStdString();
        }
        ASSERT_TRUE(The<QPushButton>(u"cmdImport"_s).isEnabled()) << "it may be tried again";
        Press(u"cmdImport"_s);
        EXPECT_TRUE(Says().startsWith(u"Records added: 2, changed: 1."_s)) << Says().toStdString();
    });
    EXPECT_EQ(City(u"12 OAK ST"_s), u"THEIRS"_s);
}

TEST_F(RehearseWindow, IsCanceledWhilePicturesAreTakenOut)
{
    Rehearse([&] {
        doubles.pump.onTurn = [&] {
            if (The<QPushButton>(u"cmdStop"_s).isVisible())
                Press(u"cmdStop"_s);
        };
        Press(u"cmdImport"_s);
        doubles.pump.onTurn = {};
        EXPECT_EQ(Says(), u"Canceled: the Databook is as it was."_s);
        EXPECT_TRUE(The<QPushButton>(u"cmdImport"_s).isEnabled()) << "it may be tried again";
    });
    EXPECT_EQ(Records().size(), 1);
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*"_s), QStringList());
}

} // namespace
} // namespace vasclip::windows
