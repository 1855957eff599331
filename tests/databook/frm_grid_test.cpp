#include "databook/frm_grid.h"

#include "databook/grid.h"
#include "platform/text/runtime_error.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"
#include "support/unix.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using forms::Answer;
using tests::ShownBox;

namespace {

class OneRow : public forms::GridSource
{
public:
    [[nodiscard]] qint64 RowCount() const override { return 1; }
    [[nodiscard]] QStringList FieldNames() const override { return {u"CENTRALKEY"_s}; }
    [[nodiscard]] QStringList Row(qint64) const override { return {u"12 OAK ST"_s}; }
};

/// A home as a start leaves it: the default in both files, the user's own beside it.
class FrmGrid : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::ControlSet set;
    forms::Grid grid{set, u"grddatabook"_s};
    OneRow rows;
    const QString user = u"C:\\VAS\\VAS2000.grx"_s;
    const QString program = u"C:\\VAS\\default.grx"_s;
    std::unique_ptr<databook::frm_Grid> screen;

    void SetUp() override
    {
        home.MakeDirs(u"C:\\VAS"_s);
        grid.Rebind(&rows);
        databook::SetGridSettings(grid, u"DEFAULT"_s);
        Save(program, u"Default"_s);
        Save(user, u"Default"_s);
        Rearrange(u"SELLINGPR"_s);
        Save(user, u"Current (User)"_s);
        Rearrange(u"GLA"_s);
        Save(user, u"Wide"_s);
        screen = std::make_unique<databook::frm_Grid>(home.disk, doubles.Get(), grid, u"C:\\VAS\\"_s);
        screen->Open();
    }
    void TearDown() override { EXPECT_TRUE(doubles.prompter.AllAnswered()) << "a question was not asked"; }

    void Save(const QString& file, const QString& name) { databook::SaveGrid(home.disk, grid, file, name); }
    /// This field in front of all others.
    void Rearrange(const QString& field)
    {
        QList<forms::GridColumn> columns = databook::DefaultColumns();
        for (int i = 0; i < columns.size(); ++i)
            if (columns.at(i).field == field)
                columns.move(i, 0);
        grid.SetColumns(columns);
    }
    [[nodiscard]] static QString First(const forms::Grid& shown) { return shown.Columns().first().field; }
    /// The first field of a saved layout, "" if it is not there.
    [[nodiscard]] QString Saved(const QString& file, const QString& name) const
    {
        const auto layouts = databook::LayoutFile::ReadOrNew(home.disk, file);
        const databook::Layout* layout = layouts.Find(name);
        return layout ? layout->columns.first().field : QString();
    }
    [[nodiscard]] QStringList Names() const { return databook::LayoutNames(home.disk, user); }
    void Type(const QString& name) { screen->txtLayout.SetText(name); }
    void ExpectBox(const QString& title, const QString& text)
    {
        EXPECT_EQ(doubles.prompter.Last().title, title);
        EXPECT_EQ(doubles.prompter.Last().text, text);
    }
    void ExpectYesNo(const QString& title, const QString& text)
    {
        EXPECT_EQ(doubles.prompter.Last(),
                  (ShownBox{forms::Buttons::YesNo, forms::Icon::Question, title, text}));
    }
    void ExpectText(const QString& text)
    {
        EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
        EXPECT_EQ(doubles.prompter.Last().text, text);
    }
    template <class Handler>
    int NumberOf(Handler handler)
    {
        try {
            handler();
        } catch (const RuntimeError& failure) {
            message = failure.Description();
            return failure.Number();
        }
        return 0;
    }
    QString message;
};

TEST_F(FrmGrid, CaptionsAreTheScreensOwn)
{
    const std::pair<const forms::Button*, QString> captions[] = {
        {&screen->cmdUseSelected, u"Use Selected"_s}, {&screen->cmdRefresh, u"Refresh List"_s},
        {&screen->cmdRemoveAll, u"Remove All"_s},     {&screen->cmdSave, u"&Save Grid"_s},
        {&screen->cmdDelete, u"&Delete Selected"_s},  {&screen->cmdOK, u"&Ok"_s},
        {&screen->cmddefault, u"Use De&fault"_s}};
    for (const auto& [button, caption] : captions)
        EXPECT_EQ(button->Caption(), caption);
}

TEST_F(FrmGrid, OpensWithTheSavedNamesAndDefaultInTheBox)
{
    EXPECT_EQ(screen->lstLayout.Items(), (QStringList{u"Default"_s, u"Current (User)"_s, u"Wide"_s}));
    EXPECT_EQ(screen->txtLayout.Text(), u"Default"_s);
    EXPECT_EQ(screen->lstLayout.ListIndex(), -1);
    EXPECT_EQ(screen->grdLayout.Columns(), grid.Columns());
    EXPECT_EQ(screen->grdLayout.CurrentText(u"CENTRALKEY"_s), u"12 OAK ST"_s);
    screen->Unload();
    screen->End();
    EXPECT_EQ(screen->grdLayout.Source(), nullptr);
}

TEST_F(FrmGrid, ClickingANameShowsItInTheBoxAndItsGridInThePreview)
{
    screen->lstLayout.SetListIndex(1);
    EXPECT_EQ(screen->txtLayout.Text(), u"Current (User)"_s);
    EXPECT_EQ(First(screen->grdLayout), u"SELLINGPR"_s);
    EXPECT_EQ(First(grid), u"GLA"_s) << "the grid itself stays";
    screen->lstLayout.SetListIndex(0);
    EXPECT_EQ(screen->grdLayout.Columns(), databook::DefaultColumns());
}

TEST_F(FrmGrid, ANameThatAnotherCopyDeletedIsTold)
{
    ASSERT_TRUE(databook::RemoveLayout(home.disk, user, u"Wide"_s));
    screen->lstLayout.SetListIndex(2);
    EXPECT_TRUE(screen->lblmsg.Caption().contains(u"Wide is no longer in C:\\VAS\\VAS2000.grx"_s));
    EXPECT_FALSE(screen->cmdUseSelected_Click());
    EXPECT_TRUE(screen->lblmsg.Caption().contains(u"the grid stays as it is"_s));
    EXPECT_EQ(screen->lstLayout.ListCount(), 2) << "the list was read again";
}

TEST_F(FrmGrid, SavingRefusesThreeNames)
{
    const QByteArray before = home.disk.ReadWhole(user);
    struct Row
    {
        QString typed, text;
    };
    for (const Row& row :
         {Row{u"default"_s, u"You cannot save over the 'default'"_s},
          Row{u" DeFault "_s, u"You cannot save over the 'default'"_s},
          Row{u"current (user)"_s, u"Choose a unique grid layout name - cannot save as 'Current (User)'"_s},
          Row{QString(), u"You cannot use a blank name'"_s},
          Row{u"   "_s, u"You cannot use a blank name'"_s}}) {
        Type(row.typed);
        EXPECT_FALSE(screen->cmdSave_Click());
        EXPECT_EQ(doubles.prompter.Last(),
                  (ShownBox{forms::Buttons::Ok, forms::Icon::None, u"Cannot Save"_s, row.text}));
    }
    EXPECT_EQ(home.disk.ReadWhole(user), before);
}

TEST_F(FrmGrid, ANewNameIsSavedWithoutAQuestionAndListed)
{
    Type(u" Prices first "_s);
    Q_EMIT screen->cmdSave.Clicked();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Saved(user, u"Prices first"_s), u"GLA"_s);
    EXPECT_EQ(screen->lstLayout.Items().last(), u"Prices first"_s);
    EXPECT_EQ(Saved(program, u"Prices first"_s), QString()) << "the program's file holds its own only";
}

TEST_F(FrmGrid, AnExistingNameAsksBeforeItIsReplaced)
{
    Rearrange(u"CITY"_s);
    Type(u"WIDE"_s);
    doubles.prompter.Answer(Answer::No);
    EXPECT_FALSE(screen->cmdSave_Click());
    ExpectText(u"Replace WIDE?"_s);
    EXPECT_EQ(Saved(user, u"Wide"_s), u"GLA"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(screen->cmdSave_Click());
    EXPECT_EQ(Saved(user, u"Wide"_s), u"CITY"_s);
    EXPECT_EQ(Names().size(), 3);
}

TEST_F(FrmGrid, DeletingAsksAndLeavesTheOthers)
{
    screen->lstLayout.SetListIndex(2);
    doubles.prompter.Answer(Answer::No);
    EXPECT_FALSE(screen->cmdDelete_Click());
    ExpectText(u"Delete Wide?"_s);
    EXPECT_EQ(Names().size(), 3);
    doubles.prompter.Answer(Answer::Yes);
    Q_EMIT screen->cmdDelete.Clicked();
    EXPECT_EQ(Names(), (QStringList{u"Default"_s, u"Current (User)"_s}));
    EXPECT_EQ(screen->lstLayout.Items(), Names());
    Type(u"Nobody's"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_FALSE(screen->cmdDelete_Click());
    EXPECT_EQ(doubles.prompter.Last().text, u"There is no grid layout Nobody's in C:\\VAS\\VAS2000.grx."_s);
}

TEST_F(FrmGrid, TheDefaultAndABlankAreNotDeleted)
{
    for (const QString& name : {u"Default"_s, u"DEFAULT "_s}) {
        Type(name);
        EXPECT_FALSE(screen->cmdDelete_Click());
        EXPECT_EQ(doubles.prompter.Last().text, u"You cannot delete the 'default'"_s);
    }
    Type({});
    EXPECT_FALSE(screen->cmdDelete_Click());
    EXPECT_EQ(doubles.prompter.Last().text, u"You cannot use a blank name'"_s);
    EXPECT_EQ(Names().size(), 3);
}

TEST_F(FrmGrid, DeletingCurrentRevertsItToTheDefault)
{
    Type(u"CURRENT (USER)"_s);
    doubles.prompter.Answer(Answer::No);
    EXPECT_FALSE(screen->cmdDelete_Click());
    ExpectText(u"Current (user) layout will revert back to default: Proceed ?"_s);
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"SELLINGPR"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(screen->cmdDelete_Click());
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"FRONT"_s);
    EXPECT_EQ(Names(), (QStringList{u"Default"_s, u"Current (User)"_s, u"Wide"_s}));
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns()) << "or the exit would save the old one again";
}

TEST_F(FrmGrid, CurrentCannotRevertToADefaultThatIsNotThere)
{
    ASSERT_TRUE(databook::RemoveLayout(home.disk, user, u"Default"_s));
    Type(u"Current (User)"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_FALSE(screen->cmdDelete_Click());
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"SELLINGPR"_s);
    EXPECT_EQ(First(grid), u"GLA"_s);
}

TEST_F(FrmGrid, UsingALayoutLoadsItAndKeepsItAsCurrent)
{
    Rearrange(u"CITY"_s);
    screen->lstLayout.SetListIndex(2);
    Q_EMIT screen->cmdUseSelected.Clicked();
    EXPECT_EQ(First(grid), u"GLA"_s);
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"GLA"_s);
    EXPECT_EQ(Saved(user, u"Wide"_s), u"GLA"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    Type(u"default"_s);
    EXPECT_TRUE(screen->cmdUseSelected_Click());
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns());
}

TEST_F(FrmGrid, ANameOutsideTheListMayBeSavedFirst)
{
    Rearrange(u"CITY"_s);
    Type(u"Towns"_s);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(screen->cmdUseSelected_Click());
    ExpectYesNo(u"Grid Entry Not Found"_s,
                u"The entry types appears to be new (not from list of choices). \r\n"
                u"Would you like to SAVE it first, then USE?"_s);
    EXPECT_EQ(Saved(user, u"Towns"_s), u"CITY"_s);
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"CITY"_s);
}

TEST_F(FrmGrid, WithoutSavingItTheCurrentLayoutIsUsed)
{
    Type(u"Towns"_s);
    doubles.prompter.Answer(Answer::No);
    EXPECT_TRUE(screen->cmdUseSelected_Click());
    EXPECT_EQ(doubles.prompter.Last(), (ShownBox{forms::Buttons::Ok, forms::Icon::None, u"Save Aborted"_s,
                                                 u"Reverting to 'Current (User)'"_s}));
    EXPECT_EQ(First(grid), u"SELLINGPR"_s);
    EXPECT_FALSE(Names().contains(u"Towns"_s));
}

TEST_F(FrmGrid, ABlankNameIsNotSavedFirstEither)
{
    Type({});
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_FALSE(screen->cmdUseSelected_Click());
    EXPECT_EQ(doubles.prompter.Last().text, u"You cannot use a blank name'"_s);
    EXPECT_EQ(First(grid), u"GLA"_s);
}

TEST_F(FrmGrid, UseDefaultTakesTheProgramsLayout)
{
    databook::RemoveLayout(home.disk, user, u"Default"_s);
    Q_EMIT screen->cmddefault.Clicked();
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns());
    EXPECT_EQ(screen->grdLayout.Columns(), databook::DefaultColumns());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(FrmGrid, AMissingDefaultIsRebuiltAfterAQuestion)
{
    home.disk.Kill(program);
    const QString question =
        u"The default could not be found: Remove ALL other grids and Rebuild NEW default?"_s;
    doubles.prompter.Answer(Answer::No);
    EXPECT_FALSE(screen->cmddefault_Click());
    ExpectYesNo(u"Unable to load default grid"_s, question);
    EXPECT_FALSE(home.disk.FileExists(program));
    EXPECT_EQ(Names().size(), 3);
    EXPECT_EQ(First(grid), u"GLA"_s);
    const QByteArray before = home.disk.ReadWhole(user);

    doubles.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(screen->cmddefault_Click());
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns());
    EXPECT_EQ(databook::LayoutNames(home.disk, program), QStringList{u"Default"_s});
    EXPECT_EQ(Names(), QStringList{u"Default"_s});
    EXPECT_EQ(screen->lstLayout.Items(), Names());
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS\\VAS2000.gbk"_s), before) << "nothing is lost for good";
}

TEST_F(FrmGrid, ADamagedDefaultIsToldAndCountsAsMissing)
{
    home.disk.WriteWhole(program, "MZ\x90 another program's");
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(screen->cmddefault_Click());
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2u);
    EXPECT_TRUE(doubles.prompter.Boxes()[0].text.contains(program));
    EXPECT_EQ(Saved(program, u"Default"_s), u"FRONT"_s);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS\\default.bad"_s), "MZ\x90 another program's");
}

TEST_F(FrmGrid, RemoveAllRestoresTheProgramsGridAfterAQuestion)
{
    const QByteArray before = home.disk.ReadWhole(user);
    doubles.prompter.Answer(Answer::No);
    EXPECT_FALSE(screen->cmdRemoveAll_Click());
    ExpectYesNo(u"Restore Grid Utility"_s,
                u"This utility restores the grid to program defaults (and erases all previous layouts).\r\n"
                u"The 'Current (User)' grid will revert to program default.\r\nProceed ?"_s);
    EXPECT_EQ(home.disk.ReadWhole(user), before);

    doubles.prompter.Answer(Answer::Yes);
    Q_EMIT screen->cmdRemoveAll.Clicked();
    EXPECT_EQ(Names(), (QStringList{u"Default"_s, u"Current (User)"_s}));
    EXPECT_EQ(Saved(user, u"Current (User)"_s), u"FRONT"_s);
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns());
    EXPECT_EQ(screen->lstLayout.Items(), Names());
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS\\VAS2000.gbk"_s), before);
}

TEST_F(FrmGrid, RemoveAllThatFailsAtItsLastStepListsWhatIsLeft)
{
    const auto locks = QObject::connect(&grid, &forms::Grid::ColumnsChanged, // once the layouts are gone
                                        [this] { home.disk.SetAttr(user, files::ReadOnly); });
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_NE(NumberOf([&] { screen->cmdRemoveAll_Click(); }), 0);
    QObject::disconnect(locks);
    EXPECT_EQ(Names(), QStringList{u"Default"_s});
    EXPECT_EQ(screen->lstLayout.Items(), Names());
    home.disk.SetAttr(user, files::Normal);
}

TEST_F(FrmGrid, RemoveAllWithoutADefaultAsksForANewOneBeforeItDeletes)
{
    home.disk.Kill(program);
    const QByteArray before = home.disk.ReadWhole(user);
    doubles.prompter.Answer(Answer::Yes);
    doubles.prompter.Answer(Answer::No);
    EXPECT_FALSE(screen->cmdRemoveAll_Click());
    EXPECT_EQ(home.disk.ReadWhole(user), before);
    doubles.prompter.Answer(Answer::Yes);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(screen->cmdRemoveAll_Click());
    EXPECT_EQ(Names(), (QStringList{u"Default"_s, u"Current (User)"_s}));
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS\\VAS2000.gbk"_s), before);
}

TEST_F(FrmGrid, ADamagedFileIsToldLeftAloneAndHealedByRemoveAll)
{
    const QByteArray good = home.disk.ReadWhole(user);
    for (const QByteArray& bad : {good.first(good.size() / 3), QByteArray(), QByteArray("PK\x03\x04 zip")}) {
        home.disk.WriteWhole(user, bad);
        databook::frm_Grid opened(home.disk, doubles.Get(), grid, u"C:\\VAS\\"_s);
        doubles.prompter.Forget();
        opened.Open();
        EXPECT_TRUE(doubles.prompter.Last().text.contains(user)) << "told, and the screen opens";
        EXPECT_TRUE(opened.lstLayout.Items().isEmpty());
        opened.txtLayout.SetText(u"Mine"_s);
        EXPECT_EQ(NumberOf([&] { opened.cmdSave_Click(); }), 321);
        EXPECT_TRUE(message.contains(user)) << message.toStdString();
        doubles.prompter.Answer(Answer::Yes);
        EXPECT_EQ(NumberOf([&] { opened.cmdDelete_Click(); }), 321);
        EXPECT_EQ(NumberOf([&] { Q_EMIT opened.cmdRefresh.Clicked(); }), 321);
        EXPECT_EQ(home.disk.ReadWhole(user), bad);
        doubles.prompter.Answer(Answer::Yes);
        EXPECT_TRUE(opened.cmdRemoveAll_Click());
        EXPECT_EQ(Names(), (QStringList{u"Default"_s, u"Current (User)"_s}));
        EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS\\VAS2000.bad"_s), bad);
    }
}

TEST_F(FrmGrid, WhatCannotBeWrittenIsToldAndKept)
{
    VASCLIP_NEEDS_UNIX("a directory that takes no files");
    if (geteuid() == 0)
        GTEST_SKIP() << "root writes everywhere";
    const QByteArray before = home.disk.ReadWhole(user);
    const QString directory = home.Native(u"drive_c/VAS"_s);
    ASSERT_TRUE(QFile::setPermissions(directory, QFile::ReadOwner | QFile::ExeOwner));
    Type(u"Mine"_s);
    EXPECT_NE(NumberOf([&] { screen->cmdSave_Click(); }), 0);
    EXPECT_TRUE(message.contains(u"VAS2000.grx"_s)) << message.toStdString();
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_NE(NumberOf([&] { screen->cmdRemoveAll_Click(); }), 0);
    Type(u"Wide"_s);
    EXPECT_NE(NumberOf([&] { Rearrange(u"CITY"_s), screen->cmdUseSelected_Click(); }), 0);
    EXPECT_EQ(First(grid), u"GLA"_s) << "used all the same";
    QFile::setPermissions(directory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(home.disk.ReadWhole(user), before);
}

TEST_F(FrmGrid, AFileMarkedReadOnlyIsNeitherReplacedNorDeleted)
{
    home.disk.SetAttr(user, files::ReadOnly);
    const QByteArray before = home.disk.ReadWhole(user);
    Type(u"Mine"_s);
    EXPECT_NE(NumberOf([&] { screen->cmdSave_Click(); }), 0);
    doubles.prompter.Answer(Answer::Yes);
    EXPECT_NE(NumberOf([&] { screen->cmdRemoveAll_Click(); }), 0);
    EXPECT_EQ(home.disk.ReadWhole(user), before);
    EXPECT_EQ(First(grid), u"GLA"_s);
    home.disk.SetAttr(user, files::Normal);
}

TEST_F(FrmGrid, RefreshListShowsWhatAnotherCopySaved)
{
    Save(user, u"From next door"_s);
    Q_EMIT screen->cmdRefresh.Clicked();
    EXPECT_EQ(screen->lstLayout.Items().last(), u"From next door"_s);
    home.disk.Kill(user);
    Q_EMIT screen->cmdRefresh.Clicked();
    EXPECT_EQ(screen->lstLayout.ListCount(), 0) << "a missing file is silent";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(FrmGrid, OkClosesAndTheTextIsSelectedToTypeOver)
{
    int selected = 0;
    QObject::connect(&screen->txtLayout, &forms::TextBox::SelectAllWanted, &screen->txtLayout,
                     [&] { ++selected; });
    screen->SelectTheText();
    EXPECT_EQ(selected, 1);
    Q_EMIT screen->cmdOK.Clicked();
    EXPECT_FALSE(screen->IsOpen());
}

} // namespace
