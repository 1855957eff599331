#include "comment_home.h"

#include "comments/messages.h"

namespace vasclip::comments {
namespace {

using namespace Qt::Literals::StringLiterals;
using tests::CommentHome;

class CommentFile : public CommentHome
{};

TEST_F(CommentFile, LiesWhereShareSays)
{
    EXPECT_EQ(CommentFilePath(globals), local);
    globals.share = 1;
    EXPECT_EQ(CommentFilePath(globals), shared);
}

TEST_F(CommentFile, IsCopiedFromTheTemplateWithoutItsWriteProtection)
{
    Fill(u"C:\\VAS2000\\NEWCMTS.MDB"_s, u"SITE"_s, {u"of the template"_s});
    home.disk.SetAttr(u"C:\\VAS2000\\NEWCMTS.MDB"_s, files::ReadOnly);
    CreateCommentFile(engine, globals, local);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"of the template"_s}));
    EXPECT_EQ(home.disk.GetAttr(local) & files::ReadOnly, 0u);
    EXPECT_EQ(tests::NumberOf([&] { CreateCommentFile(engine, globals, local); }), error::kFileExists)
        << "a file of phrases is never replaced";
}

TEST_F(CommentFile, IsMadeFromTheSchemaWithoutATemplate)
{
    home.disk.Kill(u"C:\\VAS2000\\NEWCMTS.MDB"_s);
    CreateCommentFile(engine, globals, local);
    EXPECT_EQ(Column(local, u"CENTRALKEY"_s).size(), store::kCommentKeyRows + store::kCommentListRows);
}

TEST_F(CommentFile, ADamagedTemplateLeavesNothingBehind)
{
    home.Put(u"C:\\VAS2000\\NEWCMTS.MDB"_s, "not a database");
    EXPECT_NE(tests::NumberOf([&] { CreateCommentFile(engine, globals, local); }), 0);
    EXPECT_FALSE(HasCommentFile(home.disk, local));
}

TEST_F(CommentFile, ADirectoryThatCanNotBeReachedHasNone)
{
    EXPECT_FALSE(HasCommentFile(home.disk, u"Q:\\DATA\\comments.mdb"_s));
}

TEST_F(CommentFile, SharingWithAFileThereAsksNothing)
{
    CreateCommentFile(engine, globals, shared);
    EXPECT_TRUE(TurnSharingOn(ports, engine, globals));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CommentFile, SharingCopiesTheLocalFileOnYes)
{
    CreateCommentFile(engine, globals, local);
    Fill(local, u"SITE"_s, {u"level"_s});
    home.disk.SetAttr(local, files::ReadOnly);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(TurnSharingOn(ports, engine, globals));
    EXPECT_EQ(doubles.prompter.Texts(),
              (QStringList{u"A comment file in which to share is not available.  Do you wish to share your "
                           "comment file at this time."_s}));
    EXPECT_EQ(Column(shared, u"SITE"_s), (QStringList{u"level"_s}));
    EXPECT_EQ(home.disk.GetAttr(shared) & files::ReadOnly, 0u);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"level"_s})) << "the user's own file stays";
}

TEST_F(CommentFile, SharingWithoutAnyFileMakesTheLocalOneFirst)
{
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(TurnSharingOn(ports, engine, globals));
    EXPECT_TRUE(HasCommentFile(home.disk, local));
    EXPECT_TRUE(HasCommentFile(home.disk, shared));
}

TEST_F(CommentFile, SharingDeclinedGoesBack)
{
    CreateCommentFile(engine, globals, local);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(TurnSharingOn(ports, engine, globals));
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Share the best comment file available among the other users and then try again."_s);
    EXPECT_FALSE(HasCommentFile(home.disk, shared));
}

TEST_F(CommentFile, NoMoreSharingKeepsALocalFileThatIsThere)
{
    CreateCommentFile(engine, globals, local);
    Fill(local, u"SITE"_s, {u"mine"_s});
    CreateCommentFile(engine, globals, shared);
    TurnSharingOff(ports, engine, globals);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"mine"_s}));
}

struct OffRow
{
    const char* name;
    bool sharedThere;
    forms::Answer answer; ///< not asked without a shared file
    QStringList texts;
    QStringList phrases;
};

TEST_F(CommentFile, NoMoreSharingCopiesTheSharedFileOrMakesAnEmptyOne)
{
    const QString question =
        u"Copy the shared comments at this time (otherwise an empty comment file will be created)?"_s;
    const OffRow rows[] = {
        {"copy", true, forms::Answer::Yes, {question, u"Copy successful"_s}, {u"ours"_s}},
        {"empty by wish", true, forms::Answer::No, {question, u"An empty comment was created."_s}, {}},
        {"nothing to copy", false, forms::Answer::Yes, {u"An empty comment was created."_s}, {}},
    };
    for (const OffRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (const QString& path : {local, shared})
            if (HasCommentFile(home.disk, path))
                home.disk.Kill(path);
        if (row.sharedThere) {
            CreateCommentFile(engine, globals, shared);
            Fill(shared, u"SITE"_s, {u"ours"_s});
            doubles.prompter.Answer(row.answer);
        }
        doubles.prompter.Forget();
        TurnSharingOff(ports, engine, globals);
        EXPECT_EQ(doubles.prompter.Texts(), row.texts);
        EXPECT_EQ(Column(local, u"SITE"_s), row.phrases);
        EXPECT_TRUE(doubles.prompter.AllAnswered());
    }
}

} // namespace
} // namespace vasclip::comments
