#include "databook/grid.h"
#include "databook/search_sql.h"
#include "platform/engine/genuine_file.h"
#include "shell/report_home.h"
#include "store/convert.h"
#include "store/upgrade.h"
#include "support/refusing_back_end.h"

namespace vasclip::shell {

namespace {

/// A start on a Databook that lacks the last fields.
class UpgradeAtStart : public ReportHome
{
protected:
    const qsizetype whole = store::CompsTable().fields.size();

    void SetUp() override
    {
        ReportHome::SetUp();
        home.disk.Kill(kDatabook);
        const auto database = engine.CreateDatabase(kDatabook);
        engine::TableDef old = store::CompsTable();
        old.fields.removeIf([](const engine::Field& field) { return field.name.startsWith(u"OTHERAREA"_s); });
        database->CreateTable(old);
        database->Close();
        Add(kDatabook, u"COMPS"_s, {{u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35)}});
    }
    [[nodiscard]] qsizetype Count() { return store::FieldCount(engine, kDatabook); }
};

TEST_F(UpgradeAtStart, YesUpgradesAndTheStartGoesOn)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    EXPECT_TRUE(doubles.prompter.Texts().value(0).startsWith(u"The 'databook' database needs to be updated.  "_s));
    EXPECT_EQ(doubles.prompter.Texts().value(1), store::kUpdated);
    EXPECT_EQ(Count(), whole);
    EXPECT_TRUE(program.sources.datDatabook.Bound());
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
    const auto record = store::ReadRecord(program.sources.datDatabook, u"12 OAK ST"_s);
    EXPECT_TRUE(record->Has(u"OTHERAREA2"_s));
}

TEST_F(UpgradeAtStart, NoStartsOnTheOldTable)
{
    doubles.prompter.Answer(forms::Answer::No);
    Load();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(Count(), whole - 2);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
}

TEST_F(UpgradeAtStart, NoStartsOnATableThatLacksColumnsOfTheGrid)
{
    home.disk.Kill(kDatabook);
    const auto database = engine.CreateDatabase(kDatabook);
    engine::TableDef old = store::CompsTable();
    old.fields.removeIf([](const engine::Field& field) { return field.name == u"LATITUDE"_s || field.name == u"ANCHORED"_s; });
    database->CreateTable(old);
    database->Close();
    Add(kDatabook, u"COMPS"_s, {{u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35)}, {u"CITY"_s, u"ALDER"_s}});
    doubles.prompter.Answer(forms::Answer::No);
    Load();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << "the question alone";
    EXPECT_EQ(Count(), whole - 2);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
    EXPECT_EQ(program.records.grddatabook.CurrentText(u"CITY"_s), u"ALDER"_s);
    databook::SearchForm form;
    form.texts.insert("txtCity"_L1, u"ALDER"_s);
    const databook::SearchStatement statement = databook::BuildSearch(form);
    EXPECT_TRUE(databook::ShowSearch(program.Ports(), program.records, program.sources.datsql, main.shown.Rows(), statement));
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
    EXPECT_TRUE(program.records.state.searchOnDisplay);
}

TEST_F(UpgradeAtStart, AnotherDatabookOfAnOlderLayoutIsAskedAboutToo)
{
    const QString other = u"C:\\DATABOOK\\OLDER.MDB"_s;
    engine.CopyDatabase(kDatabook, other);
    doubles.prompter.Answer(forms::Answer::No); // for the one of the start
    Load();
    doubles.prompter.Forget();
    doubles.prompter.Answer(forms::Answer::Yes);
    ASSERT_TRUE(main.databookInUse.SwitchDatabook(u"C:\\DATABOOK\\"_s, u"OLDER.MDB"_s));
    EXPECT_TRUE(doubles.prompter.Texts().value(0).startsWith(u"The 'databook' database needs to be updated.  "_s));
    EXPECT_EQ(doubles.prompter.Texts().value(1), store::kUpdated);
    EXPECT_EQ(store::FieldCount(engine, other), whole);
    EXPECT_EQ(Count(), whole - 2) << "the one before is another file";
    EXPECT_EQ(program.DatabookPath(), other);
    EXPECT_TRUE(store::ReadRecord(program.sources.datDatabook, u"12 OAK ST"_s)->Has(u"OTHERAREA2"_s));
}

TEST_F(UpgradeAtStart, AnotherDatabookIsOpenedWithoutAReferenceOrInAHomeForLooking)
{
    engine.CopyDatabase(kDatabook, u"C:\\DATABOOK\\OLDER.MDB"_s);
    engine.CopyDatabase(kDatabook, u"C:\\DATABOOK\\OLDEST.MDB"_s);
    doubles.prompter.Answer(forms::Answer::No); // for the one of the start
    Load();
    doubles.prompter.Forget();
    home.Put(u"C:\\VAS2000\\newdata.mdb"_s, "this is no database");
    ASSERT_TRUE(main.databookInUse.SwitchDatabook(u"C:\\DATABOOK\\"_s, u"OLDER.MDB"_s)) << "a start would end";
    EXPECT_EQ(doubles.prompter.Last().title, u"Error processing databook field count"_s);
    EXPECT_EQ(program.DatabookPath(), u"C:\\DATABOOK\\OLDER.MDB"_s);
    doubles.prompter.Forget();
    home.disk.Kill(u"C:\\VAS2000\\newdata.mdb"_s);
    program.life.readOnlyHome = true;
    ASSERT_TRUE(main.databookInUse.SwitchDatabook(u"C:\\DATABOOK\\"_s, u"OLDEST.MDB"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Texts().join(u'\n').toStdString();
    program.life.readOnlyHome = false;
}

TEST_F(UpgradeAtStart, AHomeForLookingAloneIsNotAsked)
{
    options.homeIsReadOnly = true;
    Load();
    EXPECT_EQ(Count(), whole - 2);
    EXPECT_TRUE(doubles.prompter.Texts().filter(u"needs to be updated"_s).isEmpty());
}

TEST_F(UpgradeAtStart, AFileThatCanNotBeWrittenIsNotAskedAboutAndTheStartGoesOn)
{
    home.disk.SetAttr(kDatabook, files::ReadOnly);
    Load();
    EXPECT_TRUE(doubles.prompter.Texts().filter(u"needs to be updated"_s).isEmpty());
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
}

TEST_F(UpgradeAtStart, AnUpgradeThatFailsIsToldAndTheStartGoesOn)
{
    program.Engine().AddBackEnd(std::make_unique<tests::RefusingBackEnd>(home.disk, 3027));
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    EXPECT_TRUE(doubles.prompter.Texts().value(1).startsWith(u"Refused."_s));
    EXPECT_EQ(Count(), whole - 2);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
}

/// The same of a file that Access made.
class AccessAtStart : public UpgradeAtStart
{
protected:
    void SetUp() override
    {
        UpgradeAtStart::SetUp();
        const QString made = u"C:\\DATABOOK\\MADE.MDB"_s;
        ASSERT_TRUE(store::ConvertDatabase(
            engine, {.source = kDatabook, .target = made, .to = engine::DatabaseKind::Access}));
        home.disk.Kill(kDatabook);
        home.disk.FileCopy(made, kDatabook);
    }
};

TEST_F(AccessAtStart, IsConvertedBeforeItsFieldsAreCounted)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    const QStringList said = doubles.prompter.Texts();
    EXPECT_TRUE(said.value(0).contains(u"is an Access database."_s)) << said.join(u'\n').toStdString();
    EXPECT_TRUE(said.value(2).startsWith(u"The 'databook' database needs to be updated.  "_s));
    EXPECT_EQ(Count(), whole);
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
}

TEST_F(AccessAtStart, IsReadAsItIsAfterOneNo)
{
    doubles.prompter.Answer(forms::Answer::No);
    Load();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << doubles.prompter.Texts().join(u'\n').toStdString();
    EXPECT_EQ(program.records.grddatabook.RowCount(), 1);
    EXPECT_TRUE(engine::IsGenuineFile(home.disk, kDatabook));
}

TEST_F(UpgradeAtStart, AReferenceThatCanNotBeReadEndsTheProgram)
{
    home.Put(u"C:\\VAS2000\\newdata.mdb"_s, "this is no database");
    EXPECT_THROW(main.Form_load(options, splash), forms::EndOfProgram);
    EXPECT_EQ(doubles.prompter.Last().title, u"Error processing databook field count"_s);
    EXPECT_EQ(Count(), whole - 2);
}

} // namespace

} // namespace vasclip::shell
