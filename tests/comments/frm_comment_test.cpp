#include "comments/frm_comment.h"

#include "comment_home.h"

#include "platform/files/profile.h"

namespace vasclip::comments {
namespace {

using namespace Qt::Literals::StringLiterals;
using tests::CommentHome;

class FrmComment : public CommentHome
{
protected:
    std::unique_ptr<frm_Comment> dialog;

    void SetUp() override
    {
        CommentHome::SetUp();
        globals.applicationIni = u"C:\\VAS2000\\VAS2000.INI"_s;
        home.Put(globals.applicationIni, "[PREFERENCES]\r\nCAPS=1\r\n");
        Make({u"pear"_s, u"Apple"_s, u"fig"_s});
    }
    void Make(const QStringList& list, int capacity = 100)
    {
        dialog = std::make_unique<frm_Comment>(ports, globals, home.disk);
        dialog->SetLimits(30, capacity);
        dialog->InitializeFKeys({u"Level"_s, u""_s, u"Sloping"_s});
        dialog->LoadListArray(list);
        dialog->Open();
    }
    void Type(const QString& text) { dialog->txtAddComment.SetText(text); }
    static void Click(forms::Control& control) { Q_EMIT control.Clicked(); }
    /// As the user presses an option.
    static void Choose(forms::CheckBox& option)
    {
        option.SetValue(true);
        Q_EMIT option.Clicked();
    }
    QString Preference(const QString& key)
    {
        return files::GetPrivateProfileString(home.disk, u"PREFERENCES"_s, key, u"none"_s,
                                              globals.applicationIni);
    }
};

TEST_F(FrmComment, OpensOnTheFirstRow)
{
    EXPECT_EQ(dialog->Caption(), u"Comment Dialog"_s);
    EXPECT_EQ(dialog->ckbAlphabetic.Caption(), u"&Sort Comments"_s);
    EXPECT_EQ(dialog->cmdRead.Caption(), u"&Read <<"_s);
    EXPECT_EQ(dialog->CmdInsertRow.Caption(), u"&Add >>"_s);
    EXPECT_EQ(dialog->cmdDeleteRow.Caption(), u"&Delete"_s);
    EXPECT_EQ(dialog->lstComment.ListIndex(), 0);
    EXPECT_FALSE(dialog->lstSorted.Visible());
    EXPECT_EQ(dialog->txtFKey(0).ToolTipText(), u"Level"_s);
    EXPECT_FALSE(dialog->FKeyAnyOn());
}

TEST_F(FrmComment, AKeyIsReadByItsOptionAndByAClickIntoItsBox)
{
    Choose(dialog->optRead(0));
    EXPECT_EQ(dialog->txtAddComment.Text(), u"Level"_s);
    EXPECT_FALSE(dialog->optRead(0).Value()) << "it can be pressed again";
    Click(dialog->txtFKey(2));
    EXPECT_EQ(dialog->txtAddComment.Text(), u"Sloping"_s);
}

TEST_F(FrmComment, AKeyIsStoredAndAsksOverAPhrase)
{
    EXPECT_EQ(dialog->optGet(0).ToolTipText(), u"Put the phrase above on F3 (Ctrl+Shift+F3 or Ctrl+Alt+F3)"_s);
    Type(u"Rolling"_s);
    Choose(dialog->optGet(1));
    EXPECT_EQ(dialog->txtFKey(1).Text(), u"Rolling"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    doubles.prompter.Answer(forms::Answer::No);
    Choose(dialog->optGet(0));
    EXPECT_EQ(doubles.prompter.Last().text, u"Overwrite 'Level'. Are you sure?"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(dialog->txtFKey(0).Text(), u"Level"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Choose(dialog->optGet(0));
    EXPECT_EQ(dialog->txtFKey(0).Text(), u"Rolling"_s);
    EXPECT_FALSE(dialog->FKeyAnyOn());
}

TEST_F(FrmComment, TheOptionThatIsOnIsKnown)
{
    EXPECT_EQ(dialog->FKeyWhichIsOn(), -1);
    dialog->optGet(4).SetValue(true);
    EXPECT_TRUE(dialog->FKeyAnyOn());
    EXPECT_EQ(dialog->FKeyWhichIsOn(), 4);
    dialog->InitializeCkboxes();
    EXPECT_EQ(dialog->FKeyWhichIsOn(), -1);
}

TEST_F(FrmComment, ARowIsReadByAClickAndByTheButton)
{
    dialog->lstComment.SetListIndex(2);
    Click(dialog->lstComment);
    EXPECT_EQ(dialog->txtAddComment.Text(), u"fig"_s);
    dialog->lstComment.SetListIndex(1);
    Click(dialog->cmdRead);
    EXPECT_EQ(dialog->txtAddComment.Text(), u"Apple"_s);
    Make({u""_s});
    Type(u"stays"_s);
    Click(dialog->lstComment);
    EXPECT_EQ(dialog->txtAddComment.Text(), u"stays"_s) << "an empty row has no text to give";
}

struct AddRow
{
    const char* name;
    int selected;
    bool sorted;
    QString text;
    QStringList list;
    QString message;
    int selectedAfter;
};

TEST_F(FrmComment, AddsAtTheSelectedRow)
{
    const AddRow rows[] = {
        {"before the selected", 1, false, u"kiwi"_s, {u"pear"_s, u"kiwi"_s, u"Apple"_s, u"fig"_s}, {}, 1},
        {"without a selection at the end",
         -1,
         false,
         u"kiwi"_s,
         {u"pear"_s, u"Apple"_s, u"fig"_s, u"kiwi"_s},
         {},
         3},
        {"blanks go", 0, false, u"  kiwi "_s, {u"kiwi"_s, u"pear"_s, u"Apple"_s, u"fig"_s}, {}, 0},
        {"the selected text adds nothing",
         1,
         false,
         u"Apple"_s,
         {u"pear"_s, u"Apple"_s, u"fig"_s},
         u"old"_s,
         1},
        {"one that is there",
         1,
         false,
         u"fig"_s,
         {u"pear"_s, u"Apple"_s, u"fig"_s},
         u"fig already exists."_s,
         1},
        {"by case another", 1, false, u"FIG"_s, {u"pear"_s, u"FIG"_s, u"Apple"_s, u"fig"_s}, {}, 1},
        {"an empty one", 1, false, u"  "_s, {u"pear"_s, u""_s, u"Apple"_s, u"fig"_s}, {}, 1},
        {"sorted", 0, true, u"kiwi"_s, {u"Apple"_s, u"fig"_s, u"kiwi"_s, u"pear"_s}, {}, 2},
    };
    for (const AddRow& row : rows) {
        SCOPED_TRACE(row.name);
        Make({u"pear"_s, u"Apple"_s, u"fig"_s});
        dialog->lblmsg.SetCaption(u"old"_s);
        dialog->ckbAlphabetic.SetValue(row.sorted);
        dialog->lstComment.SetListIndex(row.selected);
        Type(row.text);
        Click(dialog->CmdInsertRow);
        EXPECT_EQ(dialog->lstComment.Items(), row.list);
        EXPECT_EQ(dialog->lblmsg.Caption(), row.message);
        EXPECT_EQ(dialog->lstComment.ListIndex(), row.selectedAfter);
    }
}

TEST_F(FrmComment, AFullListTakesNoMore)
{
    Make({u"a"_s, u"b"_s}, 2);
    Type(u"c"_s);
    Click(dialog->CmdInsertRow);
    EXPECT_EQ(dialog->lstComment.Items(), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(dialog->lblmsg.Caption(),
              u"There is no room for more than 2 phrases of a field.  Delete one first."_s);
}

TEST_F(FrmComment, DeletesAfterAskingAndMovesTheRestUp)
{
    dialog->lstComment.SetListIndex(1);
    doubles.prompter.Answer(forms::Answer::No);
    Click(dialog->cmdDeleteRow);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete 'Apple'.  Are you sure?'"_s);
    EXPECT_EQ(dialog->lstComment.ListCount(), 3);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(dialog->cmdDeleteRow);
    EXPECT_EQ(dialog->lstComment.Items(), (QStringList{u"pear"_s, u"fig"_s}));
    EXPECT_EQ(dialog->lstComment.ListIndex(), 1) << "the next one is selected";

    Make({u"a"_s, u""_s, u"b"_s});
    doubles.prompter.Forget();
    dialog->lstComment.SetListIndex(1);
    Click(dialog->cmdDeleteRow);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "an empty row goes without asking";
    EXPECT_EQ(dialog->lstComment.Items(), (QStringList{u"a"_s, u"b"_s}));

    Make({u"last"_s});
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(dialog->cmdDeleteRow);
    EXPECT_EQ(dialog->lstComment.ListCount(), 0);
    Click(dialog->cmdDeleteRow);
    EXPECT_TRUE(doubles.prompter.AllAnswered());
}

TEST_F(FrmComment, SortingIsRememberedAndComesBack)
{
    dialog->ckbAlphabetic.SetValue(true);
    Click(dialog->ckbAlphabetic);
    EXPECT_EQ(dialog->lstComment.Items(), (QStringList{u"Apple"_s, u"fig"_s, u"pear"_s}));
    EXPECT_EQ(dialog->lstSorted.Items(), dialog->lstComment.Items());
    EXPECT_EQ(dialog->lstComment.ListIndex(), 2) << "pear stays selected";
    EXPECT_EQ(Preference(u"SORTCOMMENTS"_s), u"1"_s);
    Make({u"z"_s, u"y"_s});
    EXPECT_TRUE(dialog->ckbAlphabetic.Value());
    EXPECT_EQ(dialog->lstComment.Items(), (QStringList{u"y"_s, u"z"_s}));
    dialog->ckbAlphabetic.SetValue(false);
    Click(dialog->ckbAlphabetic);
    EXPECT_EQ(Preference(u"SORTCOMMENTS"_s), u"0"_s);
    EXPECT_EQ(dialog->lstComment.Items(), (QStringList{u"y"_s, u"z"_s})) << "the order stays";
}

TEST_F(FrmComment, TheAdvanceIsAPreference)
{
    EXPECT_TRUE(dialog->ckbAdvance.Value());
    dialog->ckbAdvance.SetValue(false);
    Click(dialog->ckbAdvance);
    EXPECT_EQ(globals.autoAdvance, 0);
    EXPECT_EQ(Preference(u"AUTOADVANCE"_s), u"0"_s);
}

TEST_F(FrmComment, OkHandsOverKeysThenTheListWithoutItsBlankRows)
{
    Make({u"pear"_s, u""_s, u"fig"_s});
    Type(u" chosen "_s);
    Click(dialog->cmdOK);
    EXPECT_FALSE(dialog->IsOpen());
    ASSERT_TRUE(dialog->g_CommentResult);
    EXPECT_EQ(*dialog->g_CommentResult, u"CHOSEN"_s);
    EXPECT_EQ(dialog->g_CommentList, (QStringList{u"Level"_s, u""_s, u"Sloping"_s, u""_s, u""_s, u""_s,
                                                  u"pear"_s, u"fig"_s, u""_s}));
}

TEST_F(FrmComment, WithoutCapsTheCaseStays)
{
    globals.caps = u"0"_s;
    Type(u"Chosen"_s);
    Click(dialog->cmdOK);
    EXPECT_EQ(dialog->g_CommentResult, u"Chosen"_s);
}

TEST_F(FrmComment, CancelHandsNothingOver)
{
    Type(u"chosen"_s);
    Click(dialog->cmdCancel);
    EXPECT_FALSE(dialog->IsOpen());
    EXPECT_FALSE(dialog->g_CommentResult);
    EXPECT_TRUE(dialog->g_CommentList.isEmpty());
}

} // namespace
} // namespace vasclip::comments
