#include "comments/frm_fkey.h"

#include "comments/frm_comment.h"

#include "comment_home.h"
#include "store/convert.h"
#include "support/refusing_back_end.h"
#include "support/standing_time.h"

namespace vasclip::comments {
namespace {

using namespace Qt::Literals::StringLiterals;
using tests::CommentHome;

/// An entry screen with one box, which does with the keys what the answer says.
class Entry : public forms::Screen, public EntryKeys
{
public:
    explicit Entry(CommentPort& keys)
        : Screen(u"frm_CompMnt1"_s)
        , txtSite(controls, u"txtSite"_s)
        , m_port(keys)
    {}
    forms::TextBox txtSite;
    QString column = u"SITE"_s;
    QList<int> sent;
    KeyAnswer last;

    KeyAnswer Press(int keyCode, int shift = kNoShift)
    {
        return last = m_port.KeyDown(keyCode, shift, txtSite, column);
    }
    void Enter() { m_port.FieldEntered(*this, txtSite, column); }
    void SendKey(forms::TextBox& field, int keyCode, int shift) override
    {
        sent.append(keyCode);
        last = m_port.KeyDown(keyCode, shift, field, column);
    }

protected:
    void Form_Load() override { m_port.EntryOpened(*this, *this); }

private:
    CommentPort& m_port;
};

class FrmFKey : public CommentHome
{
protected:
    const QString databook = u"C:\\DATA\\DATABOOK.MDB"_s;
    QString key = u"1 MAIN ST"_s;
    frm_FKey frame{{ports, engine, globals, [this] { return key; }}};
    Entry entry{frame};
    const KeyAnswer stay{true, Advance::Stay}, next{true, Advance::Next}, notOurs{};
    int focused = 0;

    void SetUp() override
    {
        CommentHome::SetUp();
        store::MakeDatabase(engine, databook);
        const auto database = engine.OpenDatabase(databook);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (const QString& address : {u"9 OAK AVE"_s, u"1 MAIN ST"_s}) {
            rows->AddNew();
            rows->SetValue(u"CENTRALKEY"_s, address.leftJustified(35));
            rows->Update();
        }
        QObject::connect(&entry.txtSite, &forms::Control::FocusWanted, &entry, [this] { ++focused; });
    }
    void Prepare(const QStringList& phrases = {})
    {
        CreateCommentFile(engine, globals, local);
        Fill(local, u"SITE"_s, phrases);
        entry.Open();
        entry.Enter();
    }
    QStringList Captions()
    {
        QStringList captions;
        for (int i = 0; i < 6; ++i)
            captions.append(frame.cmdComment(i).Caption());
        return captions;
    }
    bool ButtonsRest()
    {
        bool rest = true;
        for (int i = 0; i < 6; ++i)
            rest = rest && !frame.cmdComment(i).Enabled() && frame.cmdComment(i).Caption().isEmpty();
        return rest;
    }
};

struct SlotRow
{
    const char* name;
    int keyCode, shift, slot;
};

TEST(Slots, OfTheKeys)
{
    const SlotRow rows[] = {
        {"F3", 114, 0, 0},
        {"F8", 119, 0, 5},
        {"F3 stored", 114, 6, 6},
        {"F8 stored", 119, 7, 11},
        {"with Ctrl alone", 116, 2, 2},
        {"with Shift", 116, 1, 2},
        {"F2", 113, 0, -1},
        {"F9", 120, 0, -1},
        {"Alt+F4 closes windows", 115, 4, -1},
        {"a letter", 65, 6, -1},
    };
    for (const SlotRow& row : rows)
        EXPECT_EQ(SlotOfKey(row.keyCode, row.shift), row.slot) << row.name;
}

TEST(Captions, AreFitted)
{
    EXPECT_EQ(FitCaption(u"Level"_s, 8), u"Level"_s);
    EXPECT_EQ(FitCaption(u"Twelve chars"_s, 12), u"Twelve chars"_s);
    EXPECT_EQ(FitCaption(u"Level lot with a view"_s, 10), u"Level lot\u2026"_s);
    EXPECT_EQ(FitCaption(u"A & B"_s, 8), u"A && B"_s);
    EXPECT_EQ(FitCaption(u"two\r\nlines"_s, 20), u"two lines"_s);
}

TEST_F(FrmFKey, AFileThatCanNotBeUpgradedStillHasItsPhrases)
{
    CreateCommentFile(engine, globals, local);
    Fill(local, u"SITE"_s, {u"Level"_s});
    engine.OpenDatabase(local, engine::OpenMode::Exclusive)->AppendField(u"COMPS"_s, {.name = u"MORE"_s, .size = 5});
    engine.AddBackEnd(std::make_unique<tests::RefusingBackEnd>(home.disk, 3027));
    doubles.prompter.Answer(forms::Answer::Yes);
    entry.Open();
    entry.Enter();
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Refused."_s));
    EXPECT_EQ(Captions().first(), u"Level"_s);
}

TEST_F(FrmFKey, AnAccessFileOfAnOlderLayoutHasItsPhrasesUnasked)
{
    const QString ours = u"C:\\USER\\ours.mdb"_s;
    CreateCommentFile(engine, globals, ours);
    Fill(ours, u"SITE"_s, {u"Level"_s});
    engine.OpenDatabase(ours, engine::OpenMode::Exclusive)->AppendField(u"COMPS"_s, {.name = u"MORE"_s, .size = 5});
    ASSERT_TRUE(store::ConvertDatabase(engine,
                                       {.source = ours, .target = local, .to = engine::DatabaseKind::Access}));
    entry.Open();
    entry.Enter();
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(Captions().first(), u"Level"_s);
}

TEST_F(FrmFKey, TheButtonsShowWhatTheKeysHold)
{
    Prepare({u"Level"_s, u""_s, u"A phrase longer than a button"_s});
    EXPECT_EQ(Captions(),
              (QStringList{u"Level"_s, u""_s, u"A phrase longer than\u2026"_s, u""_s, u""_s, u""_s}));
    EXPECT_EQ(frame.cmdComment(2).ToolTipText(), u"A phrase longer than a button"_s);
    EXPECT_TRUE(frame.cmdComment(1).Enabled());
    frame.FieldLeft();
    EXPECT_TRUE(ButtonsRest());
    entry.Enter();
    entry.column.clear();
    entry.Enter();
    EXPECT_TRUE(ButtonsRest()) << "a box of no field has no library";
}

TEST_F(FrmFKey, AKeyPutsItsPhraseInTheFieldAndGoesOn)
{
    Prepare({u"Level lot"_s});
    entry.txtSite.SetText(u"old"_s);
    EXPECT_EQ(entry.Press(kF3), next);
    EXPECT_EQ(entry.txtSite.Text(), u"LEVEL LOT"_s);
    globals.caps = u"0"_s;
    globals.autoAdvance = 0;
    EXPECT_EQ(entry.Press(kF3), stay);
    EXPECT_EQ(entry.txtSite.Text(), u"Level lot"_s);
}

TEST_F(FrmFKey, AnEmptyKeyLeavesTheFieldAndStays)
{
    Prepare();
    entry.txtSite.SetText(u"old"_s);
    EXPECT_EQ(entry.Press(kF8), stay);
    EXPECT_EQ(entry.txtSite.Text(), u"old"_s);
}

TEST_F(FrmFKey, CtrlAltStoresAndShowsIt)
{
    Prepare({u"Level"_s});
    entry.txtSite.SetText(u"Sloping"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(entry.Press(kF3, kCtrl | kAlt), stay);
    EXPECT_EQ(doubles.prompter.Last().text, u"Overwrite 'Level' with 'Sloping' ... Are you sure?"_s);
    EXPECT_EQ(frame.cmdComment(0).Caption(), u"Sloping"_s);
    doubles.prompter.Forget();
    EXPECT_EQ(entry.Press(kF3, kCtrl | kAlt), stay);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "the same text is written without a question";
    EXPECT_EQ(entry.Press(kF5, kCtrl | kAlt), stay);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"Sloping"_s, u"-"_s, u"Sloping"_s}));
}

TEST_F(FrmFKey, CtrlShiftStoresToo)
{
    Prepare({u"Level"_s});
    entry.txtSite.SetText(u"Sloping"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(entry.Press(kF3, kCtrl | kShift), stay);
    EXPECT_EQ(doubles.prompter.Last().text, u"Overwrite 'Level' with 'Sloping' ... Are you sure?"_s);
    EXPECT_EQ(Column(local, u"SITE"_s).first(), u"Sloping"_s);
    EXPECT_EQ(entry.Press(kF3, kShift), next) << "Shift alone recalls as ever";
    EXPECT_EQ(entry.Press(kF3, kCtrl), next);
}

TEST_F(FrmFKey, EnterAdvancesAndOtherKeysAreTheFields)
{
    Prepare({u"Level"_s});
    EXPECT_EQ(entry.Press(kEnter), next);
    EXPECT_EQ(entry.Press(kEnter, kShift), (KeyAnswer{true, Advance::Previous}));
    EXPECT_EQ(entry.Press(kEnter, kCtrl), notOurs);
    EXPECT_EQ(entry.Press(65), notOurs);
    EXPECT_EQ(entry.Press(115, kAlt), notOurs);
    entry.column.clear();
    EXPECT_EQ(entry.Press(kF3), notOurs);
    EXPECT_EQ(entry.Press(kF2), notOurs);
    EXPECT_EQ(entry.Press(kEnter), next);
}

TEST_F(FrmFKey, AClickTakesThePathOfTheKey)
{
    Prepare({u""_s, u"Level"_s});
    const int turns = doubles.pump.turns;
    Q_EMIT frame.cmdComment(1).Clicked();
    EXPECT_EQ(entry.sent, (QList<int>{kF4}));
    EXPECT_EQ(focused, 1);
    EXPECT_GT(doubles.pump.turns, turns) << "events run behind the key";
    EXPECT_EQ(entry.txtSite.Text(), u"LEVEL"_s);
    EXPECT_EQ(entry.last, next);
    for (int i = 0; i < 6; ++i)
        frame.cmdComment_Click(i);
    EXPECT_EQ(entry.sent.mid(1), (QList<int>{114, 115, 116, 117, 118, 119}));
    frame.FieldLeft();
    frame.cmdComment_Click(0);
    EXPECT_EQ(entry.sent.size(), 7) << "no field, no key";
}

TEST_F(FrmFKey, TheLibraryGivesAPhraseAndIsWrittenBack)
{
    Prepare({u"k3"_s, u""_s, u""_s, u""_s, u""_s, u""_s, u"Corner"_s, u"Flag"_s, u""_s, u"behind"_s});
    entry.txtSite.SetText(u"typed"_s);
    doubles.screens.Play([&](forms::Screen& shown) {
        auto& dialog = dynamic_cast<frm_Comment&>(shown);
        EXPECT_EQ(dialog.txtAddComment.Text(), u"typed"_s);
        EXPECT_EQ(dialog.txtFKey(0).Text(), u"k3"_s);
        EXPECT_EQ(dialog.lstComment.Items(), (QStringList{u"Corner"_s, u"Flag"_s}));
        EXPECT_EQ(dialog.txtAddComment.MaxLength(), 30) << "the size of SITE";
        Q_EMIT dialog.CmdInsertRow.Clicked();
        dialog.optGet(1).SetValue(true);
        Q_EMIT dialog.optGet(1).Clicked();
        dialog.txtAddComment.SetText(u"Flag"_s);
        Q_EMIT dialog.cmdOK.Clicked();
    });
    EXPECT_EQ(entry.Press(kF2), stay);
    EXPECT_EQ(entry.txtSite.Text(), u"FLAG"_s);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"k3"_s, u"typed"_s, u""_s, u""_s, u""_s, u""_s,
                                                     u"typed"_s, u"Corner"_s, u"Flag"_s}));
    EXPECT_EQ(frame.cmdComment(1).Caption(), u"typed"_s);
}

TEST_F(FrmFKey, CancelLeavesFieldAndFile)
{
    const QStringList phrases{u"k3"_s, u""_s, u""_s, u""_s, u""_s, u""_s, u"Corner"_s, u""_s, u"behind"_s};
    Prepare(phrases);
    entry.txtSite.SetText(u"typed"_s);
    doubles.screens.Play([](forms::Screen& shown) {
        auto& dialog = dynamic_cast<frm_Comment&>(shown);
        Q_EMIT dialog.CmdInsertRow.Clicked();
        Q_EMIT dialog.cmdCancel.Clicked();
    });
    EXPECT_EQ(entry.Press(kF2), stay);
    EXPECT_EQ(entry.txtSite.Text(), u"typed"_s);
    EXPECT_EQ(Column(local, u"SITE"_s), phrases);
}

TEST_F(FrmFKey, OkDropsWhatStoodBehindAGapEvenIfNothingElseChanged)
{
    const QStringList keys{u"k3"_s, u""_s, u""_s, u""_s, u""_s, u""_s};
    const auto ok = [](forms::Screen& shown) { Q_EMIT dynamic_cast<frm_Comment&>(shown).cmdOK.Clicked(); };
    Prepare(keys + QStringList{u"Corner"_s, u""_s, u"behind"_s});
    doubles.screens.Play(ok);
    EXPECT_EQ(entry.Press(kF2), stay);
    EXPECT_EQ(Column(local, u"SITE"_s), keys + QStringList{u"Corner"_s});
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(FrmFKey, OkOnAReadOnlyFileWithAGapGivesThePhraseAndStoresNothing)
{
    CreateCommentFile(engine, globals, local);
    const QStringList phrases{u"k3"_s, u""_s, u""_s, u""_s, u""_s, u""_s, u"Corner"_s, u""_s, u"behind"_s};
    Fill(local, u"SITE"_s, phrases);
    home.disk.SetAttr(local, files::ReadOnly);
    entry.Open();
    doubles.screens.Play([](forms::Screen& shown) {
        auto& dialog = dynamic_cast<frm_Comment&>(shown);
        dialog.txtAddComment.SetText(u"Corner"_s);
        Q_EMIT dialog.cmdOK.Clicked();
    });
    EXPECT_EQ(entry.Press(kF2), stay);
    EXPECT_EQ(entry.txtSite.Text(), u"CORNER"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Column(local, u"SITE"_s), phrases);
}

struct OpenRow
{
    const char* name;
    int share;
    QString path, other, question;
};

TEST_F(FrmFKey, OpeningUpdatesTheFileThatSharingPointsTo)
{
    const OpenRow rows[] = {
        {"local", 0, local, shared, u"The local 'comments' database needs to be updated."_s},
        {"shared", 1, shared, local, u"The shared 'comments' database needs to be updated."_s},
    };
    for (const OpenRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (const QString& path : {local, shared}) {
            if (HasCommentFile(home.disk, path))
                home.disk.Kill(path);
            engine::TableDef older = store::CommentTables().first();
            older.fields.removeIf([](const engine::Field& field) { return field.name == u"OTHERAREA2"_s; });
            engine.CreateDatabase(path)->CreateTable(older);
        }
        const auto fields = [this](const QString& path) {
            return engine.OpenDatabase(path, engine::OpenMode::ReadOnly)->Table(u"COMPS"_s).fields.size();
        };
        const qsizetype old = fields(row.path);
        globals.share = row.share;
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Yes);
        frm_FKey opened({ports, engine, globals, {}});
        Entry screen(opened);
        screen.Open();
        ASSERT_FALSE(doubles.prompter.Boxes().empty());
        EXPECT_TRUE(doubles.prompter.Texts().first().startsWith(row.question));
        EXPECT_EQ(opened.datComment.DatabaseName(), row.path);
        EXPECT_EQ(fields(row.path), old + 1);
        EXPECT_EQ(fields(row.other), old) << "the other file stays";
        screen.Unload();
        screen.End();
        opened.TimerFKEY_Timer();
    }
}

TEST_F(FrmFKey, WhatOthersAddedWhileTheLibraryWasOpenStays)
{
    Prepare({u"k3"_s, u"k4"_s, u""_s, u""_s, u""_s, u""_s, u"Corner"_s});
    doubles.screens.Play([&](forms::Screen& shown) {
        auto& dialog = dynamic_cast<frm_Comment&>(shown);
        Fill(local, u"SITE"_s,
             {u"theirs"_s, u"k4"_s, u""_s, u""_s, u""_s, u""_s, u"Corner"_s, u"added by them"_s});
        dialog.txtAddComment.SetText(u"mine"_s);
        Q_EMIT dialog.CmdInsertRow.Clicked();
        Q_EMIT dialog.cmdOK.Clicked();
    });
    static_cast<void>(entry.Press(kF2));
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"theirs"_s, u"k4"_s, u""_s, u""_s, u""_s, u""_s,
                                                     u"mine"_s, u"Corner"_s, u"added by them"_s}));
}

TEST_F(FrmFKey, AReadOnlyFileGivesPhrasesAndKeepsTheDialogWhenItCanNotStore)
{
    CreateCommentFile(engine, globals, local);
    Fill(local, u"SITE"_s, {u"Level"_s});
    home.disk.SetAttr(local, files::ReadOnly);
    entry.Open();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(entry.Press(kF3), next);
    doubles.screens.Play([](forms::Screen& shown) {
        auto& dialog = dynamic_cast<frm_Comment&>(shown);
        dialog.txtAddComment.SetText(u"mine"_s);
        Q_EMIT dialog.CmdInsertRow.Clicked();
        Q_EMIT dialog.cmdOK.Clicked();
    });
    doubles.screens.Play([](forms::Screen& shown) {
        auto& dialog = dynamic_cast<frm_Comment&>(shown);
        EXPECT_EQ(dialog.lstComment.Items(), (QStringList{u"mine"_s})) << "what was typed is there still";
        Q_EMIT dialog.cmdCancel.Clicked();
    });
    EXPECT_EQ(entry.Press(kF2), stay);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"read-only"_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"were not stored"_s));
    entry.txtSite.SetText(u"Sloping"_s);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(entry.Press(kF4, kCtrl | kAlt)); }),
              error::kFileIsReadOnly);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"Level"_s}));
}

TEST_F(FrmFKey, AMissingLocalFileIsMadeFromTheTemplate)
{
    entry.Open();
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{u"An empty comment was created."_s}));
    EXPECT_TRUE(frame.datComment.Bound());
    EXPECT_EQ(frame.datComment.DatabaseName(), local);
}

TEST_F(FrmFKey, AMissingSharedFileAsksToShare)
{
    globals.share = 1;
    doubles.prompter.Answer(forms::Answer::No);
    entry.Open();
    EXPECT_EQ(doubles.prompter.Texts().size(), 2);
    EXPECT_FALSE(frame.datComment.Bound());
    entry.Enter();
    EXPECT_TRUE(ButtonsRest());
    doubles.prompter.Answer(forms::Answer::Yes);
    entry.txtSite.SetText(u"Level"_s);
    EXPECT_EQ(entry.Press(kF3, kCtrl | kAlt), stay) << "the next key asks again";
    EXPECT_EQ(frame.datComment.DatabaseName(), shared);
    EXPECT_EQ(Column(shared, u"SITE"_s), (QStringList{u"Level"_s}));
}

TEST_F(FrmFKey, ADirectoryThatCanNotBeReachedIsToldAndNothingIsMade)
{
    globals.share = 1;
    home.MakeDirs(u"C:\\BOOK"_s);
    store::MakeDatabase(engine, u"C:\\BOOK\\DATABOOK.MDB"_s);
    globals.G_UserDir = u"Q:\\USER\\"_s;
    globals.share = 0;
    entry.Open();
    EXPECT_EQ(
        doubles.prompter.Texts(),
        (QStringList{u"The directory Q:\\USER\\ of the comment file can not be reached.  The function keys "
                     "have no phrases until this is corrected."_s}));
    EXPECT_EQ(entry.Press(kEnter), next) << "the screen works all the same";
}

TEST_F(FrmFKey, AFileLockedByAnotherIsToldAndTriedAgain)
{
    CreateCommentFile(engine, globals, local);
    Fill(local, u"SITE"_s, {u"Level"_s});
    engine::Engine others(home.disk, tests::SomeTime());
    auto alone = others.OpenDatabase(local, engine::OpenMode::Exclusive);
    engine.SetLockWait(50);
    entry.Open();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"comments.mdb"_s))
        << doubles.prompter.Last().text.toStdString();
    alone->Close();
    alone.reset();
    EXPECT_EQ(entry.Press(kF3), next);
    EXPECT_EQ(entry.txtSite.Text(), u"LEVEL"_s);
}

TEST_F(FrmFKey, ABusyFileIsWorthASecondTryAndEndsNoProgram)
{
    Prepare({u""_s});
    engine.SetLockWait(50);
    engine::Engine others(home.disk, tests::SomeTime());
    auto busy = others.OpenDatabase(local);
    busy->BeginTrans();
    entry.txtSite.SetText(u"Level"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_EQ(entry.Press(kF3, kCtrl | kAlt), stay);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The comment file C:\\USER\\comments.mdb is in use by another user at this moment."_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::RetryCancel);
    EXPECT_EQ(entry.txtSite.Text(), u"Level"_s);
    busy->Rollback();
    EXPECT_EQ(entry.Press(kF3, kCtrl | kAlt), stay);
    EXPECT_EQ(Column(local, u"SITE"_s), (QStringList{u"Level"_s}));
}

TEST_F(FrmFKey, AFileWithoutItsSixRowsGetsThem)
{
    CreateCommentFile(engine, globals, local);
    {
        const auto database = engine.OpenDatabase(local);
        database->Execute(u"DELETE FROM COMPS"_s);
    }
    entry.Open();
    EXPECT_EQ(Column(local, u"CENTRALKEY"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
}

TEST_F(FrmFKey, StandsOnTheCompAndSavesAPendingEditWhenItCloses)
{
    Prepare();
    EXPECT_EQ(frame.datDatabook.Recordset().Value(u"CENTRALKEY"_s).toString().trimmed(), u"1 MAIN ST"_s);
    frame.datDatabook.Recordset().Edit();
    frame.datDatabook.Recordset().SetValue(u"CITY"_s, u"Marlow"_s);
    frame.TimerFKEY_Timer();
    EXPECT_TRUE(frame.IsOpen()) << "an entry screen is open";
    entry.Unload();
    entry.End();
    frame.TimerFKEY_Timer();
    EXPECT_FALSE(frame.IsOpen());
    EXPECT_FALSE(frame.datComment.Bound());
    const auto database = engine.OpenDatabase(databook);
    const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    rows->SetIndex(u"CENTRALKEY"_s);
    rows->Seek(u"="_s, u"1 MAIN ST"_s);
    EXPECT_EQ(rows->Value(u"CITY"_s).toString(), u"Marlow"_s);
}

TEST_F(FrmFKey, ANewCompBeforeTheTimerOpensTheFrameAnew)
{
    Prepare();
    entry.Unload();
    entry.End();
    key = u"9 OAK AVE"_s;
    globals.share = 1;
    CreateCommentFile(engine, globals, shared);
    entry.Open();
    EXPECT_EQ(frame.datDatabook.Recordset().Value(u"CENTRALKEY"_s).toString().trimmed(), key);
    EXPECT_EQ(frame.datComment.DatabaseName(), shared) << "and with the settings of now";
}

TEST_F(FrmFKey, StaysWhileAnyEntryScreenIsOpenAndOpensAgain)
{
    Prepare();
    {
        Entry page2(frame);
        page2.Open();
        entry.Unload();
        frame.TimerFKEY_Timer();
        EXPECT_TRUE(frame.IsOpen());
    }
    frame.TimerFKEY_Timer();
    EXPECT_FALSE(frame.IsOpen()) << "a screen that is gone is not open";
    entry.Open();
    EXPECT_TRUE(frame.IsOpen());
    EXPECT_TRUE(frame.datComment.Bound());
}

} // namespace
} // namespace vasclip::comments
