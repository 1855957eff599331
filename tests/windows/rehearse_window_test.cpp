#include "import_home.h"
#include "keys.h"
#include "support/exclusive_lock.h"
#include "upkeep/frm_rehearse.h"

namespace vasclip::windows {
namespace {

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

TEST_F(RehearseWindow, SaysOfARowThatIsTheSameThatNothingDiffers)
{
    const auto database = engine.OpenDatabase(kTheirs);
    database->Execute(u"DELETE FROM [COMPS] WHERE CENTRALKEY <> '12 OAK ST'"_s);
    database->Close();
    Rehearse([&] {
        Option(2);
        Press(u"cmdImport"_s);
    });
    PlayOn(u"frm_Import"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 0); }, [&](forms::Screen&) {
        ClickLine(u"filexport"_s, 0);
        PlayOn(u"frm_Rehearse"_s, [&] { Press(u"cmdRehearse"_s); }, [&](forms::Screen& shown) {
            EXPECT_EQ(Cells(u"grdrows"_s, 0).at(1), u"same"_s);
            EXPECT_EQ(dynamic_cast<upkeep::frm_Rehearse&>(shown).grdfields.EmptyWords(), u"Both hold the same"_s);
            auto& fields = The<QAbstractItemView>(u"grdfields"_s);
            const QImage same = fields.grab().toImage();
            dynamic_cast<upkeep::frm_Rehearse&>(shown).grdfields.SetEmptyWords({});
            EXPECT_NE(fields.grab().toImage(), same) << "it is these words that are drawn";
        });
    });
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
            if (!The<QPushButton>(u"cmdStop"_s).isVisible())
                return;
            window->close();
            EXPECT_TRUE(window->isVisible()) << "work under way keeps its window";
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

TEST_F(RehearseWindow, TellsOfADamagedFileBeforeAndAfterAndListsWhatIsLost)
{
    const int all = MakeCutFile(engine, u"C:\\DATABOOK\\IMPORT\\CUT.MDB"_s);
    const QString words = u"The file is damaged, and not all of it could be read: "_s;
    PlayOn(u"frm_Import"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 0); }, [&](forms::Screen& shown) {
        const auto& below = dynamic_cast<const upkeep::frm_Import&>(shown);
        ClickLine(u"filexport"_s, static_cast<int>(Lines(u"filexport"_s).indexOf(u"CUT.MDB"_s)));
        EXPECT_TRUE(Says().startsWith(u"C:\\DATABOOK\\IMPORT\\CUT.MDB is damaged, and not all of it can be read: "_s)) << Says().toStdString();
        EXPECT_EQ(below.lblmsg.Fore(), forms::Colour::Red);
        PlayOn(u"frm_Rehearse"_s, [&] { Press(u"cmdRehearse"_s); }, [&] {
            EXPECT_TRUE(Says().startsWith(words)) << Says().toStdString();
            Press(u"cmdExit"_s);
        });
        EXPECT_TRUE(Says().startsWith(words)) << Says().toStdString();
        EXPECT_EQ(below.lblmsg.Fore(), forms::Colour::Red) << "it is nothing that went well";
        EXPECT_FALSE(Lines().isEmpty());
        PlayOn(u"frm_Rehearse"_s, [&] { Press(u"cmdRehearse"_s); }, [&](forms::Screen& over) {
            Press(u"cmdImport"_s);
            EXPECT_TRUE(Says().startsWith(u"Records added: "_s)) << Says().toStdString();
            EXPECT_TRUE(Says().contains(words)) << Says().toStdString();
            EXPECT_EQ(dynamic_cast<const upkeep::frm_Rehearse&>(over).lblmsg.Fore(), forms::Colour::Red);
        });
        EXPECT_EQ(below.lblmsg.Fore(), forms::Colour::Red);
        ASSERT_FALSE(Lines().isEmpty());
        EXPECT_TRUE(Says().contains(Lines().first())) << Lines().first().toStdString();
        ClickLine(u"filexport"_s, static_cast<int>(Lines(u"filexport"_s).indexOf(u"CUT.MDB"_s)));
    });
    EXPECT_GT(Records().size(), 1);
    EXPECT_LT(Records().size(), all);
}

TEST_F(RehearseWindow, ListsThePicturesThatDidNotComeIn)
{
    const auto database = engine.OpenDatabase(kTheirs);
    const auto rows = database->OpenRecordset(u"SELECT * FROM COMPS WHERE CENTRALKEY = '2 ASH ST'"_s, engine::RecordsetType::Dynaset);
    rows->Edit();
    rows->SetValue(u"FRONTPHOTO"_s, QByteArray("BM no jpeg"));
    rows->Update();
    rows->Close();
    database->Close();
    PlayOn(u"frm_Import"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 0); }, [&](forms::Screen& shown) {
        ClickLine(u"filexport"_s, 0);
        Tick(u"ckbCopy"_s);
        PlayOn(u"frm_Rehearse"_s, [&] { Press(u"cmdRehearse"_s); }, [&] {
            EXPECT_EQ(Cells(u"grdrows"_s, 2).mid(0, 4), (QStringList{u"2 ASH ST"_s, u"new"_s, u"add"_s, u"refused"_s}));
            Press(u"cmdImport"_s);
        });
        EXPECT_EQ(Says(), u"Records added: 2, changed: 0. Pictures: 1 written, 1 refused."_s);
        EXPECT_EQ(dynamic_cast<const upkeep::frm_Import&>(shown).lblmsg.Fore(), forms::Colour::Red);
        EXPECT_EQ(Lines(), QStringList{u"2 ASH ST: what stands inside is no JPEG picture"_s});
    });
}

TEST_F(RehearseWindow, SaysWhatLeftTheFileMeanwhile)
{
    Rehearse([&] {
        const auto database = engine.OpenDatabase(kTheirs);
        database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '1 ASH ST'"_s);
        database->Close();
        Press(u"cmdImport"_s);
        EXPECT_EQ(Says(), u"Records added: 1, changed: 0. Pictures: 1 written. Not done: 1 ASH ST: the row does not stand in the file any "
                          u"more as it was read."_s);
    });
    EXPECT_EQ(City(u"1 ASH ST"_s), u"none"_s);
    EXPECT_EQ(City(u"2 ASH ST"_s), QString());
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*"_s), QStringList{u"00000002.jpg"_s}) << "the picture of a row that did not come in";
}

TEST_F(RehearseWindow, IsWorkedThroughByKeysAlone)
{
    Rehearse([&] {
        ASSERT_TRUE(Activate(*window));
        The<QAbstractItemView>(u"grdrows"_s).setFocus();
        The<QRadioButton>(u"optChoice_1"_s).setFocus(); // it is on
        Keys(Qt::Key_Right);
        Keys(Qt::Key_Right);
        EXPECT_EQ(Cells(u"grdrows"_s, 0).at(2), u"fill blanks"_s) << "within the choices the arrows choose";
        Keys(Qt::Key_Left);
        EXPECT_EQ(Cells(u"grdrows"_s, 0).at(2), u"take theirs"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 1).at(2), u"add"_s);
        The<QAbstractItemView>(u"grdrows"_s).setFocus();
        Keys(Qt::Key_Down);
        EXPECT_TRUE(The<QRadioButton>(u"optChoice_0"_s).isChecked()) << "the next row's own";
        EXPECT_FALSE(The<QRadioButton>(u"optChoice_2"_s).isEnabled()) << "a new one can't be taken into any";
        The<QCheckBox>(u"ckbKind"_s).setFocus();
        Keys(Qt::Key_Space);
        The<QRadioButton>(u"optChoice_0"_s).setFocus();
        Keys(Qt::Key_Right);
        EXPECT_EQ(Cells(u"grdrows"_s, 1).at(2), u"keep mine"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 2).at(2), u"keep mine"_s);
        EXPECT_EQ(Cells(u"grdrows"_s, 0).at(2), u"take theirs"_s) << "another kind";
        EXPECT_FALSE(The<QPushButton>(u"cmdRefused"_s).isEnabled()) << "none was refused";
        The<QPushButton>(u"cmdImport"_s).setFocus();
        Keys(Qt::Key_Space);
        EXPECT_EQ(Says(), u"Records added: 0, changed: 1."_s);
        for (int choice = 0; choice < 4; ++choice)
            EXPECT_FALSE(The<QRadioButton>(u"optChoice_%1"_s.arg(choice)).isEnabled()) << "it is over";
        The<QPushButton>(u"cmdExit"_s).setFocus();
        Keys(Qt::Key_Escape);
    });
    EXPECT_EQ(City(u"12 OAK ST"_s), u"THEIRS"_s);
    EXPECT_EQ(Records().size(), 1);
}

} // namespace
} // namespace vasclip::windows
