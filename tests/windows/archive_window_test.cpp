#include "keys.h"
#include "report_windows.h"
#include "support/exclusive_lock.h"
#include "upkeep/frm_archive.h"

#include <QRadioButton>

namespace vasclip::windows {

namespace {

using namespace Qt::Literals::StringLiterals;

const QString kArchive = u"C:\\DATABOOK\\ARCHIVE\\ARCHIVE.MDB"_s;

/// The main window, and the screen of the archive over it.
class ArchiveWindow : public PlayedScreen
{
protected:
    forms::Screen* played = nullptr;

    void SetUp() override
    {
        PlayedScreen::SetUp();
        for (int i = 1; i <= 5; ++i)
            Add(shell::kDatabook, u"COMPS"_s,
                {{u"CENTRALKEY"_s, u"%1 OLD ST"_s.arg(i).leftJustified(35)}, {u"SALEDATE"_s, u"03/07/1999"_s}});
        StartProgram();
        MakeMainWindow();
        mainWindow->show();
    }
    void Play(const std::function<void()>& script)
    {
        PlayOn(u"frm_Archive"_s, [&] { main.mnuDBItem.Choose(u"mnuDBItem"_s, 2); }, [&](forms::Screen& screen) {
            played = &screen;
            script();
        });
    }
    /// A click as the window system tells it, which moves the focus before it reaches the list.
    void PointAt(const QString& list, int row) const
    {
        auto& view = The<QListView>(list);
        const QPoint line = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, view.viewport()->mapTo(window, line));
    }
    [[nodiscard]] qint64 Archived() { return store::CountRows(*engine.OpenDatabase(kArchive), u"COMPS"_s); }
};

TEST_F(ArchiveWindow, MovesRecordsAndShowsTheGridAnew)
{
    const QString before = main.shown.Key();
    Play([&] {
        Type(u"txtstartdate"_s, u"1/1/1990"_s);
        Type(u"txtenddate"_s, u"12/31/1999"_s);
        EXPECT_EQ(Says(u"lblRange"_s), u"Records sold from 1/1/1990 to 12/31/1999 are archived, both days included."_s);
        bool letGo = false;
        doubles.pump.onTurn = [&] {
            letGo = letGo || program.records.grddatabook.Source() == nullptr;
            EXPECT_TRUE(The<QPushButton>(u"cmdStop"_s).isVisible() != The<QPushButton>(u"cmdarchive"_s).isEnabled());
        };
        Press(u"cmdarchive"_s);
        doubles.pump.onTurn = {};
        EXPECT_TRUE(letGo);
        EXPECT_EQ(Says(u"lblCountMoved"_s), u"5"_s);
        EXPECT_EQ(Says(u"lblCountOverwritten"_s), u"0"_s);
        EXPECT_TRUE(Says().startsWith(u"5 records were moved into "_s + kArchive)) << Says().toStdString();
    });
    EXPECT_EQ(Archived(), 5);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
    EXPECT_EQ(main.shown.Key(), u"12 OAK ST"_s);
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(ArchiveWindow, EscapeInTheMiddleKeepsWhatWasMovedAndTheRest)
{
    Play([&] {
        Type(u"txtstartdate"_s, u"1/1/1990"_s);
        Type(u"txtenddate"_s, u"12/31/1999"_s);
        int turns = 0;
        doubles.pump.onTurn = [&] {
            if (!The<QPushButton>(u"cmdStop"_s).isVisible() || ++turns != 3)
                return;
            QTest::keyClick(window, Qt::Key_Escape);
            EXPECT_TRUE(window->isVisible());
        };
        Press(u"cmdarchive"_s);
        doubles.pump.onTurn = {};
        EXPECT_TRUE(Says().startsWith(u"Stopped. "_s)) << Says().toStdString();
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_GT(Archived(), 0);
    EXPECT_EQ(Archived() + program.records.grddatabook.RowCount(), 6);
}

TEST_F(ArchiveWindow, WhoeverHoldsTheDatabookBehindItsWorkTakesNoneOfItsWords)
{
    engine.SetLockWait(50);
    std::unique_ptr<tests::ExclusiveLock> theirs;
    Play([&] {
        Type(u"txtstartdate"_s, u"1/1/1990"_s);
        Type(u"txtenddate"_s, u"12/31/1999"_s);
        bool worked = false;
        doubles.pump.onTurn = [&] { worked = worked || The<QPushButton>(u"cmdStop"_s).isVisible(); };
        auto& screen = dynamic_cast<upkeep::frm_Archive&>(*played);
        QObject::connect(&screen.cmdStop, &forms::Control::Changed, window, [&] {
            if (worked && !screen.cmdStop.Visible() && !theirs)
                theirs = std::make_unique<tests::ExclusiveLock>(home.disk.ToNative(shell::kDatabook));
        });
        doubles.prompter.AnswerAlways(forms::Answer::Cancel); // at "Could not read"
        Press(u"cmdarchive"_s);
        doubles.pump.onTurn = {};
        EXPECT_NE(theirs, nullptr);
        EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Could not read"_s)) << doubles.prompter.Last().text.toStdString();
        EXPECT_TRUE(Says().startsWith(u"5 records were moved into "_s + kArchive)) << Says().toStdString();
        EXPECT_TRUE(Says().contains(u" The records of the Databook could not be shown again: "_s));
        EXPECT_EQ(Says(u"lblCountMoved"_s), u"5"_s);
        EXPECT_TRUE(The<QPushButton>(u"cmdarchive"_s).isEnabled());
        theirs.reset();
    });
    EXPECT_EQ(Archived(), 5);
}

TEST_F(ArchiveWindow, PromptForOverwriteAsksForEach)
{
    const auto dates = [&] {
        Type(u"txtstartdate"_s, u"1/1/1990"_s);
        Type(u"txtenddate"_s, u"12/31/1999"_s);
    };
    Play([&] {
        dates();
        Press(u"cmdarchive"_s);
    });
    for (int i = 1; i <= 2; ++i)
        Add(shell::kDatabook, u"COMPS"_s,
            {{u"CENTRALKEY"_s, u"%1 OLD ST"_s.arg(i).leftJustified(35)}, {u"SALEDATE"_s, u"03/07/1999"_s},
             {u"NOTES"_s, u"again"_s}});
    Play([&] {
        dates();
        QTest::keyClick(&The<QRadioButton>(u"optduplicates_1"_s), Qt::Key_Space);
        doubles.prompter.Answer(forms::Answer::Yes); // to append
        doubles.prompter.Answer(forms::Answer::No);
        doubles.prompter.Answer(forms::Answer::Yes);
        Press(u"cmdarchive"_s);
        EXPECT_EQ(doubles.prompter.Texts().mid(doubles.prompter.Texts().size() - 2),
                  (QStringList{u"Overwrite 1 OLD ST"_s, u"Overwrite 2 OLD ST"_s}));
        EXPECT_EQ(Says(u"lblCountMoved"_s), u"0"_s);
        EXPECT_EQ(Says(u"lblCountOverwritten"_s), u"1"_s);
    });
    EXPECT_EQ(Archived(), 5);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 2);
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(ArchiveWindow, ItsTwoChoicesExcludeEachOther)
{
    Play([&] {
        auto& quiet = The<QRadioButton>(u"optduplicates_0"_s);
        auto& asks = The<QRadioButton>(u"optduplicates_1"_s);
        EXPECT_TRUE(quiet.isChecked());
        QTest::keyClick(&asks, Qt::Key_Space);
        EXPECT_TRUE(asks.isChecked());
        EXPECT_FALSE(quiet.isChecked());
        QTest::keyClick(&quiet, Qt::Key_Space);
        EXPECT_TRUE(quiet.isChecked());
        EXPECT_FALSE(asks.isChecked());
        EXPECT_LE(window->minimumSizeHint().height(), 700);
        const QString shots = qEnvironmentVariable("VASCLIP_SHOTS");
        EXPECT_TRUE(shots.isEmpty() || window->grab().save(shots + u"/archive.png"_s));
    });
}

TEST_F(ArchiveWindow, AClickTakesTheLineThatIsHighlightedAlready)
{
    home.MakeDirs(u"C:\\DATABOOK\\ARCHIVE"_s);
    store::MakeDatabase(engine, kArchive);
    {
        engine::TableDef older = store::CompsTable();
        older.name = u"OLDER"_s;
        const auto database = engine.CreateDatabase(u"C:\\DATABOOK\\ARCHIVE\\SIXTIES.MDB"_s);
        database->CreateTable(older);
        database->Close();
    }
    Play([&] {
        EXPECT_EQ(Lines(u"lstdatabases"_s), (QStringList{u"ARCHIVE.MDB"_s, u"SIXTIES.MDB"_s}));
        ClickLine(u"lstdatabases"_s, 1);
        EXPECT_EQ(Text(u"txtFileName"_s), u"SIXTIES.MDB"_s);
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"OLDER"_s});
        ClickLine(u"lstTables"_s, 0);
        EXPECT_EQ(Text(u"txtTable"_s), u"OLDER"_s) << "it is the only one, and highlighted";
        Type(u"txtFileName"_s, u"SEVENTIES"_s);
        ClickLine(u"lstdatabases"_s, 1);
        EXPECT_EQ(Text(u"txtFileName"_s), u"SIXTIES.MDB"_s) << "what is highlighted is what is meant";
        EXPECT_EQ(Lines(u"lstTables"_s), QStringList{u"OLDER"_s});
    });
}

TEST_F(ArchiveWindow, AListThatIsFilledAnewByThePressTakesNoOtherFileThanWasSeen)
{
    for (const QString& file : {u"C:\\DATABOOK\\ARCHIVE\\ARCHIVE.MDB"_s, u"C:\\ELSEWHERE\\LETTERS.MDB"_s}) {
        home.MakeDirs(file.left(file.lastIndexOf(u'\\')));
        store::MakeDatabase(engine, file);
    }
    Play([&] {
        ASSERT_TRUE(Activate(*window));
        Type(u"txtPath"_s, u"C:\\ELSEWHERE\\"_s);
        EXPECT_EQ(Lines(u"lstdatabases"_s), QStringList{u"ARCHIVE.MDB"_s}) << "of the directory before";
        PointAt(u"lstdatabases"_s, 0); // which leaves the box of the path
        EXPECT_EQ(Lines(u"lstdatabases"_s), QStringList{u"LETTERS.MDB"_s});
        EXPECT_EQ(Text(u"txtFileName"_s), u"ARCHIVE.MDB"_s) << "nobody has seen the other one when the button went down";
        PointAt(u"lstdatabases"_s, 0);
        EXPECT_EQ(Text(u"txtFileName"_s), u"LETTERS.MDB"_s);
    });
}

TEST_F(ArchiveWindow, ItsPartsBearTheirNames)
{
    Play([&] {
        QStringList words;
        for (const QLabel* label : window->findChildren<QLabel*>())
            words.append(QString(label->text()).remove(u'&'));
        for (const QString& title : {u"Archive Options"_s, u"IF Duplictes are Found"_s, u"Archive Date Range"_s, u"Start Date"_s,
                                     u"Stop Date"_s, u"Total Archived"_s, u"Moved"_s, u"Overwritten"_s})
            EXPECT_TRUE(words.contains(title)) << title.toStdString();
        EXPECT_EQ(window->windowTitle(), main.globals.productName + u" - Database Archive Utility"_s);
    });
}

TEST_F(ArchiveWindow, WorkMovesTheFocusToCancelAndToExitAndNowhereBetween)
{
    Play([&] {
        ASSERT_TRUE(Activate(*window));
        Type(u"txtstartdate"_s, u"1/1/1990"_s);
        Type(u"txtenddate"_s, u"12/31/1999"_s);
        The<QPushButton>(u"cmdarchive"_s).setFocus();
        QStringList went; // each would be scrolled into view on a small screen
        const auto heard = QObject::connect(qApp, &QApplication::focusChanged, qApp, [&](QWidget*, QWidget* now) {
            went.append(now == nullptr ? u"-"_s : now->objectName());
        });
        Press(u"cmdarchive"_s);
        QObject::disconnect(heard);
        EXPECT_EQ(went, (QStringList{u"cmdStop"_s, u"cmdExit"_s})) << went.join(u' ').toStdString();
    });
}

} // namespace

} // namespace vasclip::windows
