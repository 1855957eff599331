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

} // namespace

} // namespace vasclip::windows
