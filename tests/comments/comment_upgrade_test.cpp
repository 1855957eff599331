#include "comments/comment_upgrade.h"

#include "comment_home.h"
#include "faults/kills.h"
#include "store/convert.h"
#include "support/killed_work.h"
#include "support/refusing_back_end.h"
#include "support/standing_time.h"

namespace vasclip::comments {
namespace {

using namespace Qt::Literals::StringLiterals;
using tests::CommentHome;

const QStringList kAdded{u"FRONTPHOTO"_s, u"LONGITUDE"_s,  u"LATITUDE"_s,  u"ANCHORED"_s,
                         u"COMPID"_s,     u"SALEHIST4"_s,  u"SALEHIST5"_s, u"FINANCETYP"_s,
                         u"CONTRKDATE"_s, u"OTHERAREA1"_s, u"OTHERAREA2"_s};

class CommentUpgrade : public CommentHome
{
protected:
    /// A comment file as it was before `missing` came, with a phrase in it.
    void MakeOld(const QString& path, const QStringList& missing, const QStringList& more = {})
    {
        const auto database = engine.CreateDatabase(path);
        engine::TableDef table = store::CommentTables().first();
        table.fields.removeIf([&](const engine::Field& field) { return missing.contains(field.name); });
        for (const QString& name : more) {
            engine::Field field;
            field.name = name;
            field.size = 5;
            table.fields.append(field);
        }
        database->CreateTable(table);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(u"SITE"_s, u"Level"_s);
        rows->Update();
        rows->Close();
        database->Close();
    }
    engine::TableDef TableOf(const QString& path)
    {
        return engine.OpenDatabase(path, engine::OpenMode::ReadOnly)->Table(u"COMPS"_s);
    }
    qsizetype Count(const QString& path) { return TableOf(path).fields.size(); }
    const qsizetype whole = store::CompsTable().fields.size();
    const QString localQuestion =
        u"The local 'comments' database needs to be updated.  You should have a good backup of your data "
        "BEFORE using this option.  Are you ready at this time?"_s;
};

TEST_F(CommentUpgrade, AFileOfTodayAsksNothing)
{
    CreateCommentFile(engine, globals, local);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::NotNeeded);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CommentUpgrade, AnOldFileGetsItsFieldsAndKeepsItsPhrases)
{
    MakeOld(local, kAdded);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::Done);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{localQuestion, u"The modifications to the database(s) were successful and the "
                                          "data is ready for use."_s}));
    EXPECT_EQ(doubles.prompter.Boxes().front().icon, forms::Icon::Exclamation);
    EXPECT_EQ(Count(local), whole);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"Level"_s}));
    const auto& fields = TableOf(local).fields;
    QStringList tail;
    for (qsizetype i = whole - kAdded.size(); i < whole; ++i) {
        tail.append(fields.at(i).name);
        EXPECT_TRUE(fields.at(i).allowZeroLength && !fields.at(i).required);
    }
    EXPECT_EQ(tail, kAdded) << "in the order of appending";
    EXPECT_EQ(fields.at(whole - 11).type, engine::FieldType::LongBinary);
    EXPECT_EQ(fields.at(whole - 10).size, 11);
    EXPECT_EQ(fields.at(whole - 8).size, 1);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::NotNeeded) << "asks once";
}

TEST_F(CommentUpgrade, AFileWithSomeOfThemGetsTheRest)
{
    MakeOld(local, {u"COMPID"_s, u"OTHERAREA2"_s});
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::Done);
    EXPECT_EQ(Count(local), whole);
}

TEST_F(CommentUpgrade, TheSharedFileHasItsOwnQuestionAndNoLeavesIt)
{
    globals.share = 1;
    MakeOld(shared, kAdded);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, shared), Upgrade::Declined);
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"The shared 'comments' database needs to be updated.  Please have all users "
                           "(using this program) exit this application at this time.  You should have a "
                           "good backup of your data BEFORE using this option.  Are you ready at this "
                           "time?"_s}));
    EXPECT_EQ(Count(shared), whole - kAdded.size());
}

TEST_F(CommentUpgrade, OneFieldMoreAsksEachTime)
{
    MakeOld(local, {}, {u"EXTRA"_s});
    for (int opening = 0; opening < 2; ++opening) {
        doubles.prompter.Answer(forms::Answer::Yes);
        EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::Done);
        EXPECT_EQ(Count(local), whole + 1);
    }
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(CommentUpgrade, WaitsForTheOthersUntilTheUserGivesUp)
{
    MakeOld(local, kAdded);
    engine::Engine others(home.disk, tests::SomeTime());
    const auto open = others.OpenDatabase(local);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Retry);
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::Locked);
    const QString locked = u"The file appears to be locked.  Please inform all network users to exit this "
                           "application so an update can take place."_s;
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{localQuestion, locked, locked}));
    open->Close();
    EXPECT_EQ(Count(local), whole - kAdded.size());
}

TEST_F(CommentUpgrade, AReadOnlyFileIsNotAskedAbout)
{
    MakeOld(local, kAdded);
    home.disk.SetAttr(local, files::ReadOnly);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::NotNeeded);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CommentUpgrade, NorIsOneThatAccessMade)
{
    MakeOld(u"C:\\USER\\ours.mdb"_s, kAdded);
    ASSERT_TRUE(store::ConvertDatabase(
        engine, {.source = u"C:\\USER\\ours.mdb"_s, .target = local, .to = engine::DatabaseKind::Access}));
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::NotNeeded);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CommentUpgrade, ATableInUseIsTold)
{
    MakeOld(local, kAdded);
    engine.AddBackEnd(std::make_unique<tests::RefusingBackEnd>(home.disk, 3211));
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::Locked);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The database engine could not lock table 'COMPS' because it is already in use by another person or process. The update cannot continue."_s);
}

TEST_F(CommentUpgrade, AFailureIsToldAndTheOldTableGoesOn)
{
    MakeOld(local, kAdded);
    engine.AddBackEnd(std::make_unique<tests::RefusingBackEnd>(home.disk, 52));
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::Failed);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Refused."_s));
    EXPECT_EQ(Count(local), whole - kAdded.size());
}

TEST_F(CommentUpgrade, WithoutItsTemplateItSaysSoAndTheOldTableGoesOn)
{
    MakeOld(local, kAdded);
    home.Put(u"C:\\VAS2000\\NEWDATA.MDB"_s, "garbage");
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::NoTemplate);
    EXPECT_EQ(Count(local), whole - kAdded.size());
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Error processing databook field count"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Unable to detect field count in databook.mdb (reference *new* files are missing or corrupt). "
              "Reinstall the program and retry"_s);
}

TEST_F(CommentUpgrade, TheUsersOwnTemplateGoesFirst)
{
    MakeOld(local, {u"COMPID"_s});
    MakeOld(u"C:\\USER\\newdata.mdb"_s, {u"COMPID"_s});
    EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), Upgrade::NotNeeded);
}

TEST_F(CommentUpgrade, ADamagedCommentFileIsNamed)
{
    home.Put(local, "not a database at all");
    const auto thrown = tests::ThrownBy([&] { return CheckCommentsDBF(ports, engine, globals, local); });
    EXPECT_EQ(thrown.number, error::kUnrecognisedDatabase);
    EXPECT_TRUE(thrown.words.contains(u"comments.mdb"_s)) << thrown.words.toStdString();
}

TEST_F(CommentUpgrade, AKillLeavesTheFileAsBeforeOrAsAfterAndTheNextOpeningEndsIt)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    MakeOld(local, kAdded);
    const QByteArray old = home.disk.ReadWhole(local);
    tests::KilledWork killed;
    int before = 0;
    int after = 0;
    for (int run = 0; run < tests::Kills(30); ++run) {
        home.disk.WriteWhole(local, old);
        killed.Run([&] {
            engine::Engine own{home.disk, tests::SomeTime()};
            doubles.prompter.Answer(forms::Answer::Yes);
            (void)CheckCommentsDBF(ports, own, globals, local);
        });
        const qsizetype fields = Count(local);
        EXPECT_TRUE(fields == whole || fields == whole - kAdded.size()) << fields << " in run " << run;
        ++(fields == whole ? after : before);
        EXPECT_EQ(Column(local, u"SITE"_s), QStringList{u"Level"_s});
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Yes);
        EXPECT_EQ(CheckCommentsDBF(ports, engine, globals, local), fields == whole ? Upgrade::NotNeeded : Upgrade::Done);
        EXPECT_EQ(Count(local), whole);
    }
    EXPECT_GT(before, 0);
    EXPECT_GT(after, 0);
}

} // namespace
} // namespace vasclip::comments
