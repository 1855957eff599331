#include "comments/comment_store.h"

#include "comment_home.h"

namespace vasclip::comments {
namespace {

using namespace Qt::Literals::StringLiterals;
using tests::CommentHome;

class CommentStore : public CommentHome
{
protected:
    store::DataSource data{engine, u"datComment"_s};
    const QString site = u"SITE"_s;

    void SetUp() override
    {
        CommentHome::SetUp();
        CreateCommentFile(engine, globals, local);
        Bind();
    }
    void Bind()
    {
        data.SetDatabaseName(local);
        data.SetRecordSource(u"COMPS"_s);
        data.Refresh();
    }
    /// Leaves `rows` rows in the table.
    void Shorten(int rows)
    {
        auto& set = data.Recordset();
        for (set.MoveFirst(); !set.Eof() && set.RecordCount() > rows; set.MoveFirst())
            set.Delete();
    }
};

TEST_F(CommentStore, SixRowsGetTheirKeys)
{
    Shorten(0);
    Add6Records(data);
    EXPECT_EQ(Column(local, u"CENTRALKEY"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
}

TEST_F(CommentStore, LaterRowsLoseTheirKeys)
{
    Shorten(0);
    Add6Records(data);
    Add6Records(data);
    Fill(local, site, {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s, u"g"_s});
    EnsureAtLeast6Records(data);
    QStringList keys{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s};
    for (int i = 0; i < 6; ++i)
        keys.append(QString(20, u' '));
    EXPECT_EQ(Column(local, u"CENTRALKEY"_s), keys);
    EXPECT_EQ(Column(local, site).size(), 7) << "the phrases stay";
}

TEST_F(CommentStore, RecallTrimsAndMindsTheCase)
{
    Fill(local, site, {u"  Level lot "_s, u""_s});
    EXPECT_EQ(ReturnComment(data, 0, site, Capitals::Upper), u"LEVEL LOT"_s);
    EXPECT_EQ(ReturnComment(data, 0, site, Capitals::Keep), u"Level lot"_s);
    EXPECT_EQ(ReturnComment(data, 1, site, Capitals::Keep), QString());
    EXPECT_EQ(ReturnComment(data, 2, site, Capitals::Keep), QString()) << "Null";
    Shorten(3);
    EXPECT_EQ(ReturnComment(data, 5, site, Capitals::Keep), QString()) << "no such row";
}

TEST_F(CommentStore, AColumnThatIsNotThereIsNamed)
{
    const auto thrown = tests::ThrownBy([&] { return ReturnComment(data, 0, u"NOTHING"_s, Capitals::Keep); });
    EXPECT_EQ(thrown.number, error::kFieldUnknown);
    EXPECT_TRUE(thrown.words.contains(u"NOTHING"_s) && thrown.words.contains(local));
}

struct StoreRow
{
    const char* name;
    QString old, text, question; ///< "" asks nothing
    forms::Answer answer;
    QString stored;
};

TEST_F(CommentStore, StoresAndAsksBeforeItOverwrites)
{
    const StoreRow rows[] = {
        {"into an empty key", u""_s, u"Level"_s, {}, forms::Answer::No, u"Level"_s},
        {"the same text", u"Level"_s, u" Level "_s, {}, forms::Answer::No, u"Level"_s},
        {"another text", u"Level"_s, u"Sloping"_s, u"Overwrite 'Level' with 'Sloping' ... Are you sure?"_s,
         forms::Answer::Yes, u"Sloping"_s},
        {"another text, declined", u"Level"_s, u"Sloping"_s,
         u"Overwrite 'Level' with 'Sloping' ... Are you sure?"_s, forms::Answer::No, u"Level"_s},
        {"the question shows it cleaned", u"Level"_s, u"1/2 acre; sloping"_s,
         u"Overwrite 'Level' with '12 acre sloping' ... Are you sure?"_s, forms::Answer::Yes,
         u"1/2 acre; sloping"_s},
        {"the same with illegal characters",
         u"1/2 acre"_s,
         u"1/2 acre"_s,
         {},
         forms::Answer::No,
         u"1/2 acre"_s},
        {"by case only", u"Level"_s, u"LEVEL"_s, u"Overwrite 'Level' with 'LEVEL' ... Are you sure?"_s,
         forms::Answer::Yes, u"LEVEL"_s},
        {"nothing over something", u"Level"_s, u""_s, u"Overwrite 'Level' with '' ... Are you sure?"_s,
         forms::Answer::Yes, u""_s},
    };
    for (const StoreRow& row : rows) {
        SCOPED_TRACE(row.name);
        Fill(local, site, {u"other key"_s, row.old});
        doubles.prompter.Forget();
        if (!row.question.isEmpty())
            doubles.prompter.Answer(row.answer);
        const Stored stored = SaveTheComment(ports, data, 1, site, row.text);
        EXPECT_EQ(stored == Stored::Declined, !row.question.isEmpty() && row.answer == forms::Answer::No);
        EXPECT_EQ(doubles.prompter.Texts(),
                  row.question.isEmpty() ? QStringList() : QStringList{row.question});
        EXPECT_EQ(ReturnComment(data, 1, site, Capitals::Keep), row.stored);
        EXPECT_EQ(ReturnComment(data, 0, site, Capitals::Keep), u"other key"_s);
        EXPECT_TRUE(doubles.prompter.AllAnswered());
    }
}

TEST_F(CommentStore, KeepsAnyTextThatFits)
{
    for (const QString& text :
         {u"Ünïcødé été"_s, u"שלום"_s, u"O'Brien \"Ct\""_s, u"A & B % _ * ?"_s, QString(30, u'x')}) {
        EXPECT_EQ(SaveTheComment(ports, data, 3, site, text), Stored::Yes);
        EXPECT_EQ(ReturnComment(data, 3, site, Capitals::Keep), text);
        Fill(local, site, {u""_s, u""_s, u""_s, u""_s});
    }
}

TEST_F(CommentStore, TooLongLeavesTheKeyAsItWas)
{
    Fill(local, site, {u"Level"_s});
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(tests::NumberOf([&] { SaveTheComment(ports, data, 0, site, QString(31, u'x')); }),
              error::kFieldTooLong);
    EXPECT_EQ(Column(local, site), (QStringList{u"Level"_s}));
}

TEST_F(CommentStore, AReadOnlyFileRefusesAndStays)
{
    Fill(local, site, {u"Level"_s});
    data.Close();
    home.disk.SetAttr(local, files::ReadOnly);
    Bind();
    EXPECT_EQ(ReturnComment(data, 0, site, Capitals::Keep), u"Level"_s);
    const auto thrown = tests::ThrownBy([&] { return SaveTheComment(ports, data, 1, site, u"new"_s); });
    EXPECT_EQ(thrown.number, error::kFileIsReadOnly);
    EXPECT_TRUE(thrown.words.contains(local)) << thrown.words.toStdString();
    EXPECT_EQ(Column(local, site), (QStringList{u"Level"_s}));
}

TEST_F(CommentStore, WhatAnotherUserPutOnTheKeyMeanwhileIsAskedFor)
{
    class Meddler : public forms::Prompter
    {
    public:
        forms::Answer MsgBox(forms::Buttons, forms::Icon, const QString&, const QString& text) override
        {
            texts.append(text);
            meddle(static_cast<int>(texts.size()));
            return forms::Answer::Yes;
        }
        QString OpenDialog(const QString&, const QString&, const QString&) override { return {}; }
        QString ChooseDirectory(const QString&, const QString&) override { return {}; }
        QStringList texts;
        std::function<void(int)> meddle;
    } meddler;
    Fill(local, site, {u"first"_s});
    meddler.meddle = [&](int box) {
        if (box == 1) {
            Fill(local, site, {u"second"_s});
            Fill(local, u"AC"_s, {u"of the others"_s});
        }
    };
    const forms::Ports asked{meddler,        doubles.pump,   doubles.clock,
                             doubles.random, doubles.window, doubles.screens};
    EXPECT_EQ(SaveTheComment(asked, data, 0, site, u"mine"_s), Stored::Yes);
    EXPECT_EQ(meddler.texts, (QStringList{u"Overwrite 'first' with 'mine' ... Are you sure?"_s,
                                          u"Overwrite 'second' with 'mine' ... Are you sure?"_s}));
    EXPECT_EQ(Column(local, site), (QStringList{u"mine"_s}));
    EXPECT_EQ(Column(local, u"AC"_s), (QStringList{u"of the others"_s}));
}

TEST_F(CommentStore, TheFirstEmptyValueEndsTheList)
{
    Fill(local, site, {u""_s, u""_s, u""_s, u""_s, u""_s, u""_s, u"a"_s, u"b"_s, u""_s, u"behind"_s});
    EXPECT_EQ(ListPhrases(data, site), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(ListPhrases(data, u"AC"_s), QStringList());
}

TEST_F(CommentStore, WritingBackDropsWhatStoodBehindAGap)
{
    Fill(local, site, {u"k3"_s, u"k4"_s, u""_s, u""_s, u""_s, u""_s, u"a"_s, u"b"_s, u""_s, u"behind"_s});
    Fill(local, u"AC"_s, {u"ac"_s, u""_s, u""_s, u""_s, u""_s, u""_s, u"of AC"_s});
    const QStringList left =
        SaveListControl(data, site, {u"K3"_s, u""_s, u"K5"_s, u""_s, u""_s, u""_s, u"b"_s});
    EXPECT_TRUE(left.isEmpty());
    EXPECT_EQ(Column(local, site), (QStringList{u"K3"_s, u"k4"_s, u"K5"_s, u""_s, u""_s, u""_s, u"b"_s}))
        << "an empty entry leaves its row";
    EXPECT_EQ(Column(local, u"AC"_s).last(), u"of AC"_s) << "other fields stay";
}

TEST_F(CommentStore, TheEndOfTheTableEndsTheWriting)
{
    Shorten(8);
    EXPECT_EQ(ListCapacity(data), 2);
    const QStringList left = SaveListControl(
        data, site, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"a"_s, u"b"_s, u"c"_s, u""_s, u"d"_s});
    EXPECT_EQ(left, (QStringList{u"c"_s, u"d"_s}));
    EXPECT_EQ(Column(local, site),
              (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"a"_s, u"b"_s}));
}

TEST_F(CommentStore, AListThatFailsInTheMiddleLeavesTheOldOne)
{
    const QStringList old{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"a"_s};
    Fill(local, site, old);
    EXPECT_EQ(tests::NumberOf([&] {
                  static_cast<void>(SaveListControl(data, site, {u"new"_s, QString(31, u'x')}));
              }),
              error::kFieldTooLong);
    EXPECT_EQ(Column(local, site), old);
}

TEST_F(CommentStore, ClearingLeavesTheKeys)
{
    Fill(local, site, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"a"_s, u""_s, u"b"_s});
    EXPECT_EQ(ClearAllFieldsBelow6(data, site), 2);
    EXPECT_EQ(Column(local, site), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
}

TEST_F(CommentStore, PhrasesAreAddedAndTakenOut)
{
    EXPECT_TRUE(AddPhrase(data, site, u" a "_s));
    EXPECT_TRUE(AddPhrase(data, site, u"b"_s));
    EXPECT_FALSE(AddPhrase(data, site, u"a"_s));
    EXPECT_EQ(ListPhrases(data, site), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_TRUE(DatDeleteRecord(data, site, u"a"_s));
    EXPECT_FALSE(DatDeleteRecord(data, site, u"a"_s));
    EXPECT_EQ(ListPhrases(data, site), (QStringList{u"b"_s}));
    EXPECT_EQ(tests::NumberOf([&] { AddPhrase(data, site, u"  "_s); }), 5);
    Shorten(7);
    ASSERT_EQ(ListCapacity(data), 1);
    while (!ListPhrases(data, site).isEmpty())
        DatDeleteRecord(data, site, ListPhrases(data, site).first());
    EXPECT_TRUE(AddPhrase(data, site, u"one"_s));
    EXPECT_EQ(tests::NumberOf([&] { AddPhrase(data, site, u"two"_s); }), 5) << "the list is full";
}

TEST(Merged, KeepsTheChangesOfBothSides)
{
    const Library opened{{u"1"_s, u"2"_s, u""_s}, {u"a"_s, u"b"_s}};
    const Library mine{{u"1"_s, u"two"_s, u""_s}, {u"b"_s, u"c"_s}};
    const Library now{{u"one"_s, u"zwei"_s, u"3"_s}, {u"a"_s, u"b"_s, u"d"_s}};
    const Library wanted{{u"one"_s, u"two"_s, u"3"_s}, {u"b"_s, u"c"_s, u"d"_s}};
    EXPECT_EQ(Merged(opened, mine, now), wanted);
    EXPECT_EQ(Merged(opened, mine, opened), mine) << "alone";
}

} // namespace
} // namespace vasclip::comments
