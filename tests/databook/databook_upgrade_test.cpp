#include "databook/databook_upgrade.h"
#include "faults/kills.h"

#include "store/upgrade.h"
#include "support/databook_home.h"
#include "support/error_number.h"
#include "support/killed_work.h"
#include "support/refusing_back_end.h"

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

const QStringList kAdded{u"FRONTPHOTO"_s, u"LONGITUDE"_s, u"LATITUDE"_s,   u"ANCHORED"_s,
                         u"COMPID"_s,     u"SALEHIST4"_s, u"SALEHIST5"_s,  u"FINANCETYP"_s,
                         u"CONTRKDATE"_s, u"OTHERAREA1"_s, u"OTHERAREA2"_s};
const QString kQuestion =
    u"The 'databook' database needs to be updated.  Please have all users (using this program) exit this application at this time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s;
const QString kDone =
    u"The modifications to the database(s) were successful and the data is ready for use."_s;

class DatabookUpgrade : public tests::DatabookHome
{
protected:
    common::Globals globals;
    store::DataSource source{engine, u"datDatabook"_s};
    const qsizetype whole = store::CompsTable().fields.size();

    void SetUp() override
    {
        globals.G_ProgramDir = u"C:\\VAS2000\\"_s;
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_DataDir = u"C:\\"_s;
        globals.productName = u"Vasclip"_s;
        disk.MkDir(u"C:\\VAS2000"_s);
        disk.MkDir(u"C:\\USER"_s);
    }
    /// A Databook of an older layout, with a comp in it.
    void MakeOld(const QStringList& missing, const QStringList& more = {})
    {
        if (disk.FileExists(path))
            disk.Kill(path);
        const auto database = engine.CreateDatabase(path);
        engine::TableDef old = store::CompsTable();
        old.fields.removeIf([&](const engine::Field& field) { return missing.contains(field.name); });
        for (const QString& name : more) {
            engine::Field field;
            field.name = name;
            field.size = 5;
            old.fields.append(field);
        }
        database->CreateTable(old);
        database->Close();
        AddRow({{key, u"12 OAK ST"_s.leftJustified(35)}, {u"CITY"_s, u"Alder"_s}});
    }
    void Check() { CheckCompDBF2(ports, engine, globals, source, path, table); }
    [[nodiscard]] engine::FieldList Fields()
    {
        return engine.OpenDatabase(path, engine::OpenMode::ReadOnly)->Table(table).fields;
    }
    [[nodiscard]] QString City()
    {
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->MoveFirst();
        return rows->Value(u"CITY"_s).toString();
    }
};

TEST_F(DatabookUpgrade, ADatabookOfTodayAsksNothingWithAndWithoutTheTemplate)
{
    store::MakeDatabase(engine, path);
    Check();
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWDATA.MDB"_s);
    Check();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(HasAllFields(ports, engine, globals, path, table));
}

TEST_F(DatabookUpgrade, AnOldOneGetsItsFieldsInTheirOrderAndKeepsItsRecords)
{
    MakeOld(kAdded);
    EXPECT_FALSE(HasAllFields(ports, engine, globals, path, table));
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{kQuestion, kDone}));
    EXPECT_EQ(doubles.prompter.Boxes().front().icon, forms::Icon::Exclamation);
    const engine::FieldList fields = Fields();
    ASSERT_EQ(fields.size(), whole);
    constexpr int kSizes[] = {0, 11, 11, 1, 7, 20, 20, 20, 20, 20, 20};
    for (int i = 0; i < kAdded.size(); ++i) {
        const engine::Field& field = fields.at(whole - kAdded.size() + i);
        EXPECT_EQ(field.name, kAdded.at(i));
        EXPECT_EQ(field.type, i == 0 ? engine::FieldType::LongBinary : engine::FieldType::Text);
        EXPECT_EQ(field.size, kSizes[i]);
        EXPECT_TRUE(field.allowZeroLength);
        EXPECT_FALSE(field.required);
    }
    EXPECT_EQ(City(), u"Alder"_s);
    Check();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << "asks once";
}

TEST_F(DatabookUpgrade, OneThatHasSomeOfThemGetsTheRest)
{
    MakeOld({u"ANCHORED"_s, u"OTHERAREA2"_s});
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    EXPECT_EQ(Fields().size(), whole);
    EXPECT_EQ(doubles.prompter.Last().text, kDone);
}

TEST_F(DatabookUpgrade, NoLeavesItAndEachStartAsksAgain)
{
    MakeOld(kAdded);
    for (int start = 0; start < 2; ++start) {
        doubles.prompter.Answer(forms::Answer::No);
        Check();
        EXPECT_EQ(doubles.prompter.Last().text, kQuestion);
    }
    EXPECT_EQ(Fields().size(), whole - kAdded.size());
}

TEST_F(DatabookUpgrade, OneFieldMoreAsksAtEachStartToo)
{
    MakeOld({}, {u"OURS"_s});
    for (int start = 0; start < 2; ++start) {
        doubles.prompter.Answer(forms::Answer::Yes);
        Check();
        EXPECT_EQ(doubles.prompter.Texts().mid(2 * start), (QStringList{kQuestion, kDone}));
    }
    EXPECT_EQ(Fields().size(), whole + 1);
}

TEST_F(DatabookUpgrade, AFileThatOthersHaveOpenIsAskedAboutUntilTheyLeave)
{
    MakeOld(kAdded);
    engine::Engine other{disk, tests::SomeTime()};
    auto theirs = other.OpenDatabase(path);
    const QString locked =
        u"The file appears to be locked.  Please inform all network users to exit this application so an update can take place."_s;
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Retry);
    doubles.prompter.Answer(forms::Answer::Cancel);
    Check();
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{kQuestion, locked, locked}));
    EXPECT_EQ(Fields().size(), whole - kAdded.size());
    theirs->Close();
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    EXPECT_EQ(Fields().size(), whole);
}

TEST_F(DatabookUpgrade, ItsOwnSourceLetsGoOfTheFile)
{
    MakeOld(kAdded);
    Bind(source);
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    EXPECT_EQ(doubles.prompter.Last().text, kDone);
    EXPECT_FALSE(source.Bound());
}

TEST_F(DatabookUpgrade, ATemplateThatCanNotBeReadEndsTheProgramAndTouchesNothing)
{
    MakeOld(kAdded);
    disk.WriteWhole(u"C:\\VAS2000\\newdata.mdb"_s, "this is no database");
    EXPECT_THROW(Check(), forms::EndOfProgram);
    EXPECT_EQ(doubles.prompter.Last().title, u"Error processing databook field count"_s);
    EXPECT_EQ(
        doubles.prompter.Last().text,
        u"Unable to detect field count in databook.mdb (reference *new* files are missing or corrupt). Reinstall the program and retry"_s);
    EXPECT_EQ(Fields().size(), whole - kAdded.size());
}

TEST_F(DatabookUpgrade, ADatabookThatCanNotBeReadIsLeftToWhoeverOpensIt)
{
    Check();
    disk.WriteWhole(path, "this is no database");
    Check();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DatabookUpgrade, CopiesTheReferenceFilesIntoTheScratchOnes)
{
    CopyFromNewFiles(disk, globals);
    EXPECT_FALSE(disk.FileExists(u"C:\\USER\\tempdat.mdb"_s)) << "of nothing";
    disk.WriteWhole(u"C:\\VAS2000\\newdata.mdb"_s, "data");
    CopyFromNewFiles(disk, globals);
    EXPECT_EQ(disk.ReadWhole(u"C:\\USER\\tempdat.mdb"_s), "data");
    disk.WriteWhole(u"C:\\VAS2000\\newdata.mdb"_s, "DATA");
    QFile newer(disk.ToNative(u"C:\\VAS2000\\newdata.mdb"_s));
    ASSERT_TRUE(newer.open(QIODevice::ReadWrite));
    ASSERT_TRUE(newer.setFileTime(QDateTime::currentDateTimeUtc().addSecs(60), QFileDevice::FileModificationTime));
    newer.close();
    CopyFromNewFiles(disk, globals);
    EXPECT_EQ(disk.ReadWhole(u"C:\\USER\\tempdat.mdb"_s), "DATA") << "of the same size, and newer";
    disk.WriteWhole(u"C:\\VAS2000\\appraisal.mbk"_s, "map");
    disk.WriteWhole(u"C:\\VAS2000\\newcmts.mdb"_s, "comments");
    CopyFromNewFiles(disk, globals);
    EXPECT_EQ(disk.ReadWhole(u"C:\\USER\\tempdat.mdb"_s), "map") << "the last one stands";

    EXPECT_NE(tests::NumberOf([&] { Copy2Temp(engine, globals); }), 0) << "these are no databases";
    disk.Kill(u"C:\\VAS2000\\new*.mdb"_s);
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWDATA.MDB"_s);
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWCMTS.MDB"_s);
    Copy2Temp(engine, globals);
    EXPECT_EQ(store::FieldCount(engine, u"C:\\TEMPCOMP.MDB"_s), whole);
    EXPECT_TRUE(engine.OpenDatabase(u"C:\\USER\\TEMPCMTS.MDB"_s)->TableNames().contains(u"CITIES"_s));
}

TEST_F(DatabookUpgrade, AScratchFileThatCanNotBeMadeIsMissedByNobody)
{
    MakeOld(kAdded);
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWDATA.MDB"_s);
    disk.MkDir(u"C:\\USER\\tempdat.mdb"_s);
    EXPECT_NE(tests::NumberOf([&] { CopyFromNewFiles(disk, globals); }), 0);
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    EXPECT_EQ(doubles.prompter.Last().text, kDone);
    EXPECT_EQ(Fields().size(), whole);
}

TEST_F(DatabookUpgrade, ATableInUseIsToldAndTheSourceStaysClosed)
{
    MakeOld(kAdded);
    Bind(source);
    for (const int locked : {3211, 3218}) { // the second means damage elsewhere, and ends the program there
        engine.AddBackEnd(std::make_unique<tests::RefusingBackEnd>(disk, locked));
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Yes);
        Check();
        EXPECT_EQ(doubles.prompter.Texts(),
                  (QStringList{kQuestion, u"The database engine could not lock table 'COMPS' because it is already in use by another person or process. The update cannot continue."_s}))
            << locked;
        EXPECT_FALSE(source.Bound());
        EXPECT_EQ(Fields().size(), whole - kAdded.size());
    }
}

TEST_F(DatabookUpgrade, APathThatIsNoneIsToldWithIt)
{
    MakeOld(kAdded);
    engine.AddBackEnd(std::make_unique<tests::RefusingBackEnd>(disk, 52));
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::Ok, forms::Icon::Critical, u"Unable to Connect to Database"_s,
                               u"Unable to Connect to C:\\DATABOOK.MDB.  Please very connectivity to the correct database location before opening Vasclip."_s}));
}

TEST_F(DatabookUpgrade, AnUpgradeThatFailsIsToldAndTheStartGoesOn)
{
    MakeOld(kAdded);
    engine.AddBackEnd(std::make_unique<tests::RefusingBackEnd>(disk, 3027));
    doubles.prompter.Answer(forms::Answer::Yes);
    Check();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Refused."_s));
    EXPECT_EQ(Fields().size(), whole - kAdded.size());
}

TEST_F(DatabookUpgrade, OneThatCanNotBeWrittenIsNotAskedAbout)
{
    MakeOld(kAdded);
    disk.SetAttr(path, files::ReadOnly);
    Check();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    disk.SetAttr(path, 0);
    doubles.prompter.Answer(forms::Answer::No);
    Check();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(DatabookUpgrade, TheUsersOwnTemplateGoesFirst)
{
    MakeOld({u"OTHERAREA2"_s});
    disk.FileCopy(path, u"C:\\USER\\newdata.mdb"_s);
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWDATA.MDB"_s);
    Check();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    disk.Kill(u"C:\\USER\\newdata.mdb"_s);
    doubles.prompter.Answer(forms::Answer::No);
    Check();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

/// An upgrade in processes of its own that are killed, from a Databook of an older layout each time.
class KilledUpgrade : public DatabookUpgrade
{
protected:
    void SetUp() override
    {
        DatabookUpgrade::SetUp();
        MakeOld(kAdded);
        m_old = disk.ReadWhole(path);
    }
    /// @param step  takes an engine of its own
    /// @param look  at what a kill left
    void Kill(const std::function<void(engine::Engine& own)>& step, const std::function<void(int run)>& look)
    {
        tests::KilledWork killed;
        const auto goesOn = [this](int run) {
            return m_before + m_after == 0 ? run < tests::Kills(40) : tests::MoreKills(run, 40, {m_before, m_after});
        };
        for (int run = 0; goesOn(run); ++run) {
            disk.WriteWhole(path, m_old);
            killed.Run([&] {
                engine::Engine own{disk, tests::SomeTime()};
                step(own);
            });
            look(run);
        }
        EXPECT_GT(killed.Killed(), 0);
    }
    /// The Databook is as before or as after, nobody is in it any more, and the next start brings it to its end.
    void Look(int run)
    {
        const qsizetype fields = Fields().size();
        EXPECT_TRUE(fields == whole || fields == whole - kAdded.size()) << fields << " in run " << run;
        EXPECT_EQ(City(), u"Alder"_s);
        ++(fields == whole ? m_after : m_before);
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Yes);
        Check();
        EXPECT_EQ(Fields().size(), whole) << "in run " << run;
        EXPECT_EQ(City(), u"Alder"_s);
    }
    void BothSides() const
    {
        EXPECT_GT(m_before, 0);
        EXPECT_GT(m_after, 0);
    }

private:
    QByteArray m_old;
    int m_before = 0, m_after = 0;
};

TEST_F(KilledUpgrade, LeavesTheFileAsBeforeOrAsAfter)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    Kill([this](engine::Engine& own) {
        const auto database = own.OpenDatabase(path, engine::OpenMode::Exclusive);
        store::AppendMissing(*database);
        database->Close();
    }, [this](int run) { Look(run); });
    BothSides();
}

TEST_F(KilledUpgrade, InAnyStepOfTheStartLeavesTheDatabookAndItsTemplatesWhole)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    const QString reference = u"C:\\VAS2000\\NEWDATA.MDB"_s;
    const QString scratch = u"C:\\USER\\tempdat.mdb"_s;
    store::MakeDatabase(engine, reference);
    const QByteArray wanted = disk.ReadWhole(reference);
    Kill([this](engine::Engine& own) {
        doubles.prompter.Answer(forms::Answer::Yes);
        CheckCompDBF2(ports, own, globals, source, path, table);
    }, [&](int run) {
        Look(run); // which renews the scratch file
        EXPECT_EQ(disk.ReadWhole(scratch), wanted) << "in run " << run;
        EXPECT_EQ(disk.ReadWhole(reference), wanted) << "in run " << run;
        disk.Kill(scratch);
    });
    BothSides();
}

TEST_F(KilledUpgrade, WhileTheTemplatesAreCopiedLeavesTheCopiesWholeOrAsTheyWere)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    const QStringList made{u"C:\\TEMPCOMP.MDB"_s, u"C:\\USER\\TEMPCMTS.MDB"_s};
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWDATA.MDB"_s);
    disk.FileCopy(u"C:\\VAS2000\\NEWDATA.MDB"_s, u"C:\\VAS2000\\NEWCMTS.MDB"_s);
    const qsizetype comps = store::FieldCount(engine, u"C:\\VAS2000\\NEWDATA.MDB"_s);
    for (const QString& copy : made)
        store::MakeDatabase(engine, copy);
    Kill([this](engine::Engine& own) { Copy2Temp(own, globals); }, [&](int run) {
        for (const QString& copy : made)
            EXPECT_EQ(store::FieldCount(engine, copy), comps) << "in run " << run;
    });
    Copy2Temp(engine, globals);
    EXPECT_EQ(disk.Dir(u"C:\\*.new*"_s) + disk.Dir(u"C:\\USER\\*.new*"_s), QStringList()) << "drafts go with the next";
}

TEST_F(KilledUpgrade, OfAnArchiveGivesItAllFieldsOfTheDatabookOrNone)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    engine::FieldList lacking = store::CompsTable().fields;
    lacking.removeIf([](const engine::Field& field) { return !kAdded.contains(field.name); });
    Kill([&](engine::Engine& own) {
        const auto database = own.OpenDatabase(path, engine::OpenMode::Exclusive);
        store::AppendFields(*database, table, lacking);
        database->Close();
    }, [this](int run) { Look(run); });
    BothSides();
}

} // namespace
} // namespace vasclip::databook
