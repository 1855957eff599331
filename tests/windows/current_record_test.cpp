#include "bare_windows.h"
#include "databook/frm_rename.h"
#include "databook/frm_search_sql.h"
#include "databook/messages.h"
#include "databook/records.h"
#include "keys.h"
#include "platform/engine/database.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "store/store.h"
#include "windows/chip_bar.h"
#include "windows/main_window.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QToolButton>

#include <stdexcept>

// Whatever happens to the records, the whole window speaks of the same one, or of none.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class CurrentRecord : public BareWindows
{
protected:
    store::DataSource source{engine, u"other"_s}; ///< another user's
    std::unique_ptr<shell::Program> program;
    std::unique_ptr<shell::frm_Main> main;
    std::unique_ptr<MainWindow> window;

    void SetUp() override
    {
        for (const QString& directory :
             {u"C:\\WINDOWS"_s, u"C:\\APPRAISE"_s, u"C:\\VAS2000"_s, u"C:\\JPG"_s, u"C:\\SNAP"_s})
            home.MakeDirs(directory);
        home.Put(u"C:\\APPRAISE\\VAS2000.INI"_s,
                 "[DIRECTORIES]\r\nAPPDIR=C:\\VAS2000\r\nUSERDIR=C:\\VAS2000\r\nPHOTODIR=C:\\JPG\r\n"
                 "DATADIR=C:\\\r\nCAPTUREDIR=C:\\SNAP\r\n[PREFERENCES]\r\nSORTGRID=1\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[VENDOR]\r\nApplicationName=Made Up Forms\r\n");
        store::MakeDatabase(engine, u"C:\\VAS2000\\Comp2Kel.mdb"_s);
        store::MakeDatabase(engine, u"C:\\DATABOOK.MDB"_s);
        store::Connect2mdb(ports.Get(), source, u"C:\\DATABOOK.MDB"_s, u"COMPS"_s,
                           store::SourceKind::Table);
        const std::pair<QString, QChar> comps[] = {
            {u"1 Ash Ct"_s, u'F'}, {u"2 Birch Rd"_s, u'C'}, {u"3 Cedar Ln"_s, u'L'}, {u"4 Oak Dr"_s, u'R'}};
        for (const auto& [address, type] : comps) {
            ASSERT_TRUE(databook::AddRecord(ports.Get(), source, address, type, 2));
            QImage image(10 + address.at(0).digitValue(), 8, QImage::Format_RGB32);
            image.fill(Qt::darkGreen);
            ASSERT_TRUE(image.save(home.disk.ToNative(u"C:\\JPG\\PIC%1.jpg"_s.arg(address.at(0)))));
            Change(address, u"PHOTOS"_s, u"FRONT VIEW|PIC%1\r\n"_s.arg(address.at(0)));
        }
        conduit.running = false;
        Open();
    }
    void Change(const QString& address, const QString& field, const QString& value)
    {
        ASSERT_TRUE(store::FindRecord(ports.Get(), source, address.toUpper(), u"CENTRALKEY"_s));
        source.Recordset().Edit();
        store::SetFieldData(source, value, field);
        source.Recordset().Update();
    }
    void Open()
    {
        shell::frm_Splash splash{ports.Get()};
        main.reset();
        program = std::make_unique<shell::Program>(home.disk.Home(), shell::Surroundings{conduit, ports.Get()});
        main = std::make_unique<shell::frm_Main>(*program);
        main->Form_load(
            {{}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s},
            splash);
        window = std::make_unique<MainWindow>(main->controls, port, port, guard, theme, settings);
        window->resize(1366, 768);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        main->ShowRecordPhoto();
        ports.prompter.Forget();
    }
    template <class Widget>
    [[nodiscard]] Widget& Find(const QString& name) const
    {
        auto* widget = window->findChild<Widget*>(name);
        if (widget == nullptr)
            throw std::out_of_range(name.toStdString());
        return *widget;
    }
    [[nodiscard]] RecordGrid& Grid() const { return window->Databook(); }
    [[nodiscard]] QString Said() const { return Find<QLabel>(u"lblmsg"_s).text(); }
    [[nodiscard]] QStringList Asked() const { return ports.prompter.Texts(); }
    [[nodiscard]] bool IsThere(const QString& key)
    {
        return store::FindRecord(ports.Get(), source, key, u"CENTRALKEY"_s);
    }
    /// With the mouse, on a row.
    void ClickRow(int row, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        const QModelIndex cell = Grid().model()->index(row, 1);
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, keys, Grid().visualRect(cell).center());
        QApplication::processEvents();
    }
    void Press(const QString& button)
    {
        QTest::mouseClick(&Find<QAbstractButton>(button), Qt::LeftButton);
        QApplication::processEvents();
    }
    void TypeIn(const QString& box, const QString& text)
    {
        Find<QLineEdit>(box).setFocus();
        for (const QChar letter : text) { // one letter after the other, and the queue between them
            QTest::keyClick(&Find<QLineEdit>(box), letter.toLatin1());
            QTest::qWait(5);
        }
    }
    void SpeaksOf(const QString& address, const QString& type, bool inGrid = true)
    {
        const QString key = address.toUpper();
        EXPECT_EQ(text::Trim(Grid().CurrentText(u"CENTRALKEY"_s)), inGrid ? key : QString());
        EXPECT_EQ(Grid().selectionModel()->selectedRows().size(), inGrid ? 1 : 0);
        EXPECT_EQ(Find<QLineEdit>(u"txtcentralkey"_s).text().toUpper(), key);
        EXPECT_EQ(Find<QLabel>(u"lblDatabookADDR"_s).text(), address);
        EXPECT_EQ(Find<QComboBox>(u"cboapprslType"_s).currentText(), type);
        EXPECT_EQ(Find<PictureView>(u"geamaintain"_s).Picture().width(), 10 + address.at(0).digitValue());
        EXPECT_EQ(Find<QListView>(u"lstViews"_s).model()->rowCount(), 1);
        for (const QString& button : {u"cmdEdit"_s, u"cmdDelete"_s, u"cmdCopy"_s, u"cmdRename"_s})
            EXPECT_TRUE(Find<QAbstractButton>(button).isEnabled()) << button.toStdString();
        EXPECT_EQ(Find<QToolButton>(u"sendButton"_s).isEnabled(), inGrid);
    }
    void SpeaksOfNone()
    {
        QTest::qWait(5);
        EXPECT_EQ(Grid().model()->rowCount(), 0);
        EXPECT_EQ(Find<QLineEdit>(u"txtcentralkey"_s).text(), QString());
        EXPECT_EQ(Find<QLabel>(u"lblDatabookADDR"_s).text(), QString());
        EXPECT_EQ(Find<QComboBox>(u"cboapprslType"_s).currentText(), QString());
        EXPECT_TRUE(Find<PictureView>(u"geamaintain"_s).Picture().isNull());
        EXPECT_EQ(Find<QListView>(u"lstViews"_s).model()->rowCount(), 0);
        EXPECT_EQ(Find<QLabel>(u"lblPhotomsg"_s).text(), QString());
        EXPECT_EQ(Find<QLabel>(u"recordCount"_s).text(), u"No records"_s);
        for (const QString& button : {u"cmdEdit"_s, u"cmdDelete"_s, u"cmdCopy"_s, u"cmdRename"_s,
                                      u"CmdDeletePhoto"_s, u"CmdRenamePhotoView"_s, u"sendButton"_s})
            EXPECT_FALSE(Find<QAbstractButton>(button).isEnabled()) << button.toStdString();
        for (const QAction* action : Grid().actions()) {
            const bool free = action->shortcut() == QKeySequence(Qt::Key_Insert) ||
                              action->shortcut() == QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F);
            EXPECT_EQ(action->isEnabled(), free) << action->text().toStdString();
        }
        EXPECT_FALSE(main->drags.Router().IsSource(main->records.grddatabook));
        EXPECT_FALSE(main->drags.Router().IsSource(main->slots.geamaintain));
        EXPECT_FALSE(main->drags.Router().Accepts(u"geathumb"_s, main->records.grddatabook));
        const auto before = ports.prompter.Boxes().size();
        Grid().setFocus();
        for (const auto& [key, keys] : {std::pair(Qt::Key_Delete, Qt::NoModifier), {Qt::Key_E, Qt::ControlModifier},
                                        {Qt::Key_R, Qt::ControlModifier}, {Qt::Key_Return, Qt::NoModifier}})
            QTest::keyClick(&Grid(), key, keys);
        QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, QPoint(40, 10));
        EXPECT_EQ(ports.prompter.Boxes().size(), before);
    }
    void Search(const QString& city)
    {
        ports.screens.Play([city](forms::Screen& screen) {
            auto& search = dynamic_cast<databook::frm_SearchSQL&>(screen);
            search.SetText(u"txtCity"_s, city);
            Q_EMIT search.cmdSearch.Clicked();
        });
        Press(u"cmdSearch"_s);
    }
    [[nodiscard]] QStringList Chips() const
    {
        QStringList words;
        for (const auto* chip : Find<ChipBar>(u"lstConditions"_s).findChildren<QAbstractButton*>())
            if (chip->objectName().startsWith(u"condition_"_s) && chip->isVisible())
                words.append(chip->text());
        return words;
    }
    void ClickCross(int chip)
    {
        auto& button = Find<QAbstractButton>(u"condition_%1"_s.arg(chip));
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(button.width() - 13, button.height() / 2));
        QApplication::processEvents();
    }
};

TEST_F(CurrentRecord, DeletingTheLastTheFirstAndTheOnlyRow)
{
    ports.prompter.AnswerAlways(forms::Answer::Yes);
    ClickRow(3);
    SpeaksOf(u"4 Oak Dr"_s, u"R=1-4 Unit Rental"_s);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Said(), u"4 OAK DR was deleted."_s);
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    ClickRow(0);
    Press(u"cmdDelete"_s);
    SpeaksOf(u"2 Birch Rd"_s, u"C=Condo"_s);
    Press(u"cmdDelete"_s);
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Said(), u"3 CEDAR LN was deleted."_s);
    SpeaksOfNone();
    EXPECT_EQ(Asked(), (QStringList{u"Delete '4 OAK DR'?"_s, u"Delete '1 ASH CT'?"_s, u"Delete '2 BIRCH RD'?"_s,
                                    u"Delete '3 CEDAR LN'?"_s}));
}

TEST_F(CurrentRecord, ASearchThatFindsNothing)
{
    ClickRow(1);
    Search(u"Nowhere"_s);
    EXPECT_EQ(Said(), u"No records to show"_s);
    SpeaksOfNone();
    EXPECT_EQ(Chips(), QStringList{u"City contains \"Nowhere\""_s});
    ClickCross(0);
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    EXPECT_TRUE(Chips().isEmpty());
    SpeaksOf(u"1 Ash Ct"_s, u"F=Single Family"_s);
}

TEST_F(CurrentRecord, AQuickFindTypedToNothingAndBack)
{
    ClickRow(2);
    TypeIn(u"txtQuickFind"_s, u"ce"_s);
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    TypeIn(u"txtQuickFind"_s, u"zz"_s);
    EXPECT_EQ(Chips(), QStringList{u"Quick find: cezz"_s});
    EXPECT_EQ(Said(), u"0 comps found."_s);
    SpeaksOfNone();
    auto& box = Find<QLineEdit>(u"txtQuickFind"_s);
    box.setFocus();
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(&box, Qt::Key_Backspace);
        QTest::qWait(5);
    }
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    ClickCross(0);
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    EXPECT_EQ(box.text(), QString());
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
}

TEST_F(CurrentRecord, DeletingWithinAQuickFind)
{
    ports.prompter.AnswerAlways(forms::Answer::Yes);
    TypeIn(u"txtQuickFind"_s, u"r"_s); // Birch Rd, Cedar, Oak Dr
    ASSERT_EQ(Grid().model()->rowCount(), 3);
    ClickRow(1);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    QTest::qWait(20);
    EXPECT_EQ(Said(), u"3 CEDAR LN was deleted."_s) << "and not the count of those that are left";
    EXPECT_EQ(Grid().model()->rowCount(), 2);
    SpeaksOf(u"4 Oak Dr"_s, u"R=1-4 Unit Rental"_s);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    QTest::qWait(20);
    SpeaksOf(u"2 Birch Rd"_s, u"C=Condo"_s);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    QTest::qWait(20);
    EXPECT_EQ(Said(), u"2 BIRCH RD was deleted."_s);
    SpeaksOfNone();
    EXPECT_TRUE(IsThere(u"1 ASH CT"_s));
}

TEST_F(CurrentRecord, ARecordThatSomebodyElseDeletes)
{
    ClickRow(1);
    ASSERT_TRUE(IsThere(u"2 BIRCH RD"_s));
    source.Recordset().Delete();
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Said(), u"The address 2 BIRCH RD is not in the Databook."_s);
    EXPECT_TRUE(Find<PictureView>(u"geamaintain"_s).Picture().isNull());
    EXPECT_FALSE(Find<QAbstractButton>(u"cmdDelete"_s).isEnabled());
    EXPECT_FALSE(Find<QAbstractButton>(u"CmdDeletePhoto"_s).isEnabled());
    ClickRow(2);
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
}

TEST_F(CurrentRecord, ARowWhoseRecordIsGoneWhenItIsReachedIsNoRecord)
{
    ClickRow(0);
    SpeaksOf(u"1 Ash Ct"_s, u"F=Single Family"_s);
    ASSERT_TRUE(IsThere(u"2 BIRCH RD"_s));
    source.Recordset().Delete();
    QTest::qWait(300); // what others change is seen within a quarter of a second
    main->records.grddatabook.Refresh(); // as a stored change of another record does
    ClickRow(1);
    EXPECT_EQ(Said(), databook::kGoneMeanwhile);
    EXPECT_EQ(Find<QLineEdit>(u"txtcentralkey"_s).text(), QString()) << "not the record before";
    EXPECT_EQ(Find<QLabel>(u"lblDatabookADDR"_s).text(), QString());
    EXPECT_TRUE(Find<PictureView>(u"geamaintain"_s).Picture().isNull());
    for (const QString& button : {u"cmdEdit"_s, u"cmdDelete"_s, u"cmdCopy"_s, u"cmdRename"_s})
        EXPECT_FALSE(Find<QAbstractButton>(button).isEnabled()) << button.toStdString();
}

TEST_F(CurrentRecord, AnAddressThatWasTypedIsDeletedAloneThoughSeveralRowsAreSelected)
{
    ports.prompter.AnswerAlways(forms::Answer::No);
    ClickRow(0);
    ClickRow(1, Qt::ControlModifier);
    Find<QLineEdit>(u"txtcentralkey"_s).selectAll();
    TypeIn(u"txtcentralkey"_s, u"4 Oak Dr"_s);
    Press(u"cmdDelete"_s);
    EXPECT_EQ(Asked(), QStringList{u"Delete '4 OAK DR'?"_s});
}

TEST_F(CurrentRecord, AKeyInTheGridMeansItsRowAndNotWhatWasTypedMeanwhile)
{
    ports.prompter.AnswerAlways(forms::Answer::No);
    ClickRow(2);
    auto& address = Find<QLineEdit>(u"txtcentralkey"_s);
    address.selectAll();
    TypeIn(u"txtcentralkey"_s, u"1 Ash Ct"_s);
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Asked(), QStringList{u"Delete '3 CEDAR LN'?"_s});
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    address.selectAll();
    TypeIn(u"txtcentralkey"_s, u"4 Oak Dr"_s);
    Press(u"cmdDelete"_s);
    EXPECT_EQ(Asked().last(), u"Delete '4 OAK DR'?"_s) << "the button means the address";
    ClickRow(2);
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
}

TEST_F(CurrentRecord, ARecordThatTheGridLeavesOutIsTheOneOfTheWindow)
{
    TypeIn(u"txtQuickFind"_s, u"cedar"_s);
    QTest::qWait(20);
    ports.screens.Play([](forms::Screen& screen) {
        auto& rename = dynamic_cast<databook::frm_Rename&>(screen);
        rename.cboNewName.SetText(u"3 Elder Ln"_s);
        Q_EMIT rename.cmdRename.Clicked();
    });
    Press(u"cmdRename"_s);
    QTest::qWait(20);
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    EXPECT_EQ(Said(), u"3 CEDAR LN is 3 ELDER LN now. It is not among the records shown; close the conditions above "
                      "the grid to see it."_s);
    SpeaksOf(u"3 Elder Ln"_s, u"L=Land"_s, false);
    ClickCross(0);
    SpeaksOf(u"3 Elder Ln"_s, u"L=Land"_s);
}

TEST_F(CurrentRecord, ARecordThatIsRenamedWithinAQuickFindStaysTheOneOfTheWindow)
{
    const auto rename = [this](const QString& name) {
        ports.screens.Play([name](forms::Screen& screen) {
            auto& shown = dynamic_cast<databook::frm_Rename&>(screen);
            shown.cboNewName.SetText(name);
            Q_EMIT shown.cmdRename.Clicked();
        });
        // Each look-up turns the queue, as the program's does.
        ports.pump.onTurn = [] { QApplication::processEvents(); };
        Press(u"cmdRename"_s);
        ports.pump.onTurn = {};
        QTest::qWait(50);
    };
    TypeIn(u"txtQuickFind"_s, u"r"_s); // Birch Rd, Cedar, Oak Dr
    QTest::qWait(20);
    ClickRow(1);
    rename(u"3 Cedar Row"_s);
    SpeaksOf(u"3 Cedar Row"_s, u"L=Land"_s);
    rename(u"3 Elm St"_s); // not among those that hold an r, while others are
    EXPECT_EQ(Grid().model()->rowCount(), 2);
    SpeaksOf(u"3 Elm St"_s, u"L=Land"_s, false);
}

TEST_F(CurrentRecord, SeveralSelectedRowsAreDeletedByOneQuestion)
{
    ClickRow(0);
    ClickRow(1, Qt::ControlModifier);
    ClickRow(3, Qt::ControlModifier);
    EXPECT_EQ(Find<QLabel>(u"recordCount"_s).text(), u"Record 4 of 4, 3 selected"_s);
    ports.prompter.Answer(forms::Answer::No);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    EXPECT_EQ(Asked(), QStringList{u"Delete these 3 records and their photos?\n\n1 ASH CT\n2 BIRCH RD\n4 OAK DR"
                                   "\n\nThis cannot be taken back."_s});
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    ports.prompter.Answer(forms::Answer::Yes);
    Press(u"cmdDelete"_s);
    EXPECT_EQ(Said(), u"3 records were deleted."_s);
    EXPECT_FALSE(IsThere(u"1 ASH CT"_s) || IsThere(u"2 BIRCH RD"_s) || IsThere(u"4 OAK DR"_s));
    EXPECT_FALSE(home.disk.FileExists(u"C:\\JPG\\PIC1.jpg"_s) || home.disk.FileExists(u"C:\\JPG\\PIC4.jpg"_s));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\JPG\\PIC3.jpg"_s));
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    EXPECT_TRUE(Grid().hasFocus() && Grid().isEnabled());
}

TEST_F(CurrentRecord, TheRowThatIsLeftSelectedIsTheCurrentOne)
{
    ClickRow(0);
    ClickRow(1, Qt::ControlModifier);
    ClickRow(1, Qt::ControlModifier); // takes it out again
    QTest::qWait(10);
    SpeaksOf(u"1 Ash Ct"_s, u"F=Single Family"_s);
    ClickRow(0, Qt::ControlModifier);
    QTest::qWait(10);
    SpeaksOf(u"1 Ash Ct"_s, u"F=Single Family"_s);
}

TEST_F(CurrentRecord, TheDeletionOfSeveralStopsWhenItIsTold)
{
    int turns = 0;
    ports.pump.onTurn = [&] {
        EXPECT_FALSE(Grid().isEnabled()) << "no second deletion in the middle of the first";
        if (++turns == 2)
            QTest::mouseClick(&Find<QPushButton>(u"cmdStop"_s), Qt::LeftButton);
    };
    ports.prompter.AnswerAlways(forms::Answer::Yes);
    ClickRow(0);
    Grid().setFocus();
    Grid().selectAll();
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    ports.pump.onTurn = nullptr;
    EXPECT_EQ(Said(), u"Canceled: 1 of 4 records were deleted, the others are as they were."_s);
    EXPECT_EQ(Grid().model()->rowCount(), 3);
    EXPECT_EQ(text::Trim(Grid().CurrentText(u"CENTRALKEY"_s)), u"2 BIRCH RD"_s);
}

TEST_F(CurrentRecord, EachChipOfASearchIsClosedByMouseOrKeys)
{
    Change(u"2 Birch Rd"_s, u"CITY"_s, u"Marlow"_s);
    Change(u"3 Cedar Ln"_s, u"CITY"_s, u"Marlow"_s);
    Change(u"3 Cedar Ln"_s, u"ST"_s, u"WA"_s);
    ports.screens.Play([](forms::Screen& screen) {
        auto& search = dynamic_cast<databook::frm_SearchSQL&>(screen);
        search.SetText(u"txtCity"_s, u"Marlow"_s);
        search.SetText(u"txtState"_s, u"WA"_s);
        Q_EMIT search.cmdSearch.Clicked();
    });
    Press(u"cmdSearch"_s);
    TypeIn(u"txtQuickFind"_s, u"cedar"_s);
    EXPECT_EQ(Chips(), (QStringList{u"City contains \"Marlow\""_s, u"State is \"WA\""_s,
                                    u"Quick find: cedar"_s}));
    EXPECT_EQ(Grid().model()->rowCount(), 1);
    auto& chip = Find<QAbstractButton>(u"condition_1"_s);
    QTest::mouseClick(&chip, Qt::LeftButton, {}, QPoint(20, chip.height() / 2));
    QApplication::processEvents();
    EXPECT_EQ(Chips().size(), 3) << "only the cross closes it";
    EXPECT_TRUE(chip.hasFocus());
    QTest::keyClick(&chip, Qt::Key_Delete);
    QApplication::processEvents();
    EXPECT_EQ(Chips(), (QStringList{u"City contains \"Marlow\""_s, u"Quick find: cedar"_s}));
    ClickCross(1);
    EXPECT_EQ(Chips(), QStringList{u"City contains \"Marlow\""_s});
    EXPECT_EQ(Grid().model()->rowCount(), 2);
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
    auto& last = Find<QAbstractButton>(u"condition_0"_s);
    QTest::mouseClick(&last, Qt::LeftButton, {}, QPoint(last.width() - 13, last.height() / 2));
    QApplication::processEvents();
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    EXPECT_TRUE(Find<QFrame>(u"conditionRow"_s).isVisible()) << "a second click hits no heading of the grid";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Find<QFrame>(u"conditionRow"_s).isVisible(); }));
    SpeaksOf(u"3 Cedar Ln"_s, u"L=Land"_s);
}

TEST_F(CurrentRecord, ADoubleClickOnACrossClosesOneChip)
{
    ports.screens.Play([](forms::Screen& screen) {
        auto& search = dynamic_cast<databook::frm_SearchSQL&>(screen);
        for (const QString& box : {u"txtCity"_s, u"txtZip"_s, u"txtCounty"_s})
            search.SetText(box, QString(60, u'9')); // chips of one width: the next cross comes to the same place
        Q_EMIT search.cmdSearch.Clicked();
    });
    Press(u"cmdSearch"_s);
    ASSERT_EQ(main->records.lstConditions.Chips().size(), 3);
    auto& chip = Find<QAbstractButton>(u"condition_0"_s);
    const QPoint cross = chip.mapTo(window.get(), QPoint(chip.width() - 13, chip.height() / 2));
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, cross);
    QApplication::processEvents();
    EXPECT_EQ(main->records.lstConditions.Chips().size(), 2);
}

TEST_F(CurrentRecord, AllRecordsShownShowsAll)
{
    Search(u"Nowhere"_s);
    TypeIn(u"txtQuickFind"_s, u"x"_s);
    main->mnuRefreshItem.Choose(u"mnuRefreshItem"_s, 2);
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    EXPECT_EQ(main->records.txtQuickFind.Text(), QString());
    EXPECT_TRUE(Chips().isEmpty());
    Search(u"Nowhere"_s);
    Press(u"cmdShowAll"_s);
    EXPECT_EQ(Grid().model()->rowCount(), 4);
    Search(u"Nowhere"_s);
    Press(u"cmdRefresh"_s);
    EXPECT_EQ(Grid().model()->rowCount(), 0) << "a plain refresh keeps the search";
    ports.screens.Play([](forms::Screen& screen) {
        Q_EMIT dynamic_cast<databook::frm_SearchSQL&>(screen).cmdClear.Clicked();
    });
    Press(u"cmdSearch"_s);
    EXPECT_EQ(Grid().model()->rowCount(), 4) << "a cleared search is none";
    EXPECT_TRUE(Chips().isEmpty());
}

TEST_F(CurrentRecord, ManyAndLongChipsKeepToOneLine)
{
    ports.screens.Play([](forms::Screen& screen) {
        auto& search = dynamic_cast<databook::frm_SearchSQL&>(screen);
        for (const databook::SearchBox& box : search.Boxes())
            search.SetText(QString(box.row.control), u"7"_s);
        search.SetText(u"txtSaleDate"_s, u"1/1/2020"_s);
        search.SetText(u"txtLoadDate"_s, u"1/1/2020"_s);
        search.SetText(u"cboSearchKey"_s, QString(u"long words "_s).repeated(12));
        Q_EMIT search.cmdSearch.Clicked();
    });
    Press(u"cmdSearch"_s);
    const auto& bar = Find<ChipBar>(u"lstConditions"_s);
    EXPECT_EQ(main->records.lstConditions.Chips().size(), 24);
    EXPECT_LT(bar.height(), 40);
    int right = 0;
    for (const auto* child : bar.findChildren<QAbstractButton*>())
        if (child->isVisible())
            right = std::max(right, child->geometry().right());
    EXPECT_LT(right, bar.width());
    EXPECT_GE(Chips().size(), 2);
    const QString out = qEnvironmentVariable("VASCLIP_SHOTS");
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        QTest::qWait(20);
        const QImage shot = window->grab().toImage();
        EXPECT_TRUE(out.isEmpty() || (QDir().mkpath(out) && shot.save(u"%1/chips-%2.png"_s.arg(out, name))));
    }
    theme.Choose(ThemeChoice::System);
    EXPECT_GT(Find<QAbstractButton>(u"condition_0"_s).toolTip().size(), 100) << "its words whole";
}

} // namespace
} // namespace vasclip::windows
