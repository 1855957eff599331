#include "platform/text/runtime_error.h"
#include "support/databook_home.h"
#include "support/standing_time.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

constexpr auto kTable = store::SourceKind::Table;

class BadDatabook : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};

    /// The failure of an attempt to bind a file; number 0 if it succeeds.
    RuntimeError Connect(const QString& file)
    {
        try {
            store::Connect2mdb(ports, source, file, table, kTable);
        } catch (const RuntimeError& failure) {
            return failure;
        }
        return {0, QString()};
    }
};

TEST_F(BadDatabook, WhatIsNoDatabaseIsNamedAndLeftAlone)
{
    struct Row
    {
        const char* name;
        QByteArray content;
    };
    for (const Row& row : {Row{"text", "Dear diary, this is no database."}, Row{"empty", ""},
                           Row{"binary", QByteArray(5000, '\x7F')}}) {
        const QString file = u"C:\\BAD.MDB"_s;
        disk.WriteWhole(file, row.content);
        const RuntimeError failure = Connect(file);
        EXPECT_EQ(failure.Number(), error::kUnrecognisedDatabase) << row.name;
        EXPECT_TRUE(failure.Description().contains(u"BAD.MDB"_s))
            << row.name << ": " << failure.Description().toStdString();
        EXPECT_FALSE(source.Bound()) << row.name;
        EXPECT_EQ(disk.ReadWhole(file), row.content) << row.name;
        EXPECT_FALSE(store::Ismdb(engine, file, table)) << row.name;
    }
}

TEST_F(BadDatabook, ATruncatedOneFailsWithoutAChange)
{
    QStringList keys;
    for (int i = 0; i < 200; ++i)
        keys.append(u"%1 LONG STREET"_s.arg(i));
    AddComps(keys);
    const QByteArray whole = disk.ReadWhole(path);
    for (const qsizetype size : {whole.size() / 2, qsizetype{4096}, qsizetype{100}}) {
        const QString file = u"C:\\CUT%1.MDB"_s.arg(size);
        const QByteArray cut = whole.first(size);
        disk.WriteWhole(file, cut);
        bool failed = Connect(file).Number() != 0;
        if (!failed) {
            try {
                for (const QString& wanted : keys)
                    failed |= !store::FindRecord(ports, source, wanted, key);
            } catch (const RuntimeError& failure) {
                failed = true;
                EXPECT_FALSE(failure.Description().isEmpty());
            }
        }
        EXPECT_TRUE(failed) << "half a Databook passed for a whole one, cut to " << size;
        source.Close();
        EXPECT_EQ(disk.ReadWhole(file), cut) << size;
    }
}

TEST_F(BadDatabook, AReadOnlyOneIsReadAndNotWritten)
{
    AddComps({u"12 MAIN ST"_s});
    disk.SetAttr(path, files::ReadOnly);
    const RuntimeError failure = Connect(path);
    ASSERT_EQ(failure.Number(), 0) << failure.Description().toStdString();
    EXPECT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    EXPECT_EQ(store::GetFieldData(source, u"ADDRESS"_s), u"12 MAIN ST"_s);
    try {
        source.Recordset().Edit();
        store::SetFieldData(source, u"Elsewhere"_s, u"CITY"_s);
        source.Recordset().Update();
        FAIL() << "wrote to a read-only Databook";
    } catch (const RuntimeError& refusal) {
        EXPECT_EQ(refusal.Number(), error::kFileIsReadOnly) << refusal.Description().toStdString();
    }
    EXPECT_TRUE(store::Ismdb(engine, path, table));
    source.Close();
    disk.SetAttr(path, files::Normal);
}

TEST_F(BadDatabook, OneOpenedExclusivelyBySomebodyIsLocked)
{
    engine::Engine othersEngine(disk, tests::SomeTime());
    const auto other = othersEngine.OpenDatabase(path, engine::OpenMode::Exclusive);
    engine.SetLockWait(50);
    const int number = Connect(path).Number();
    EXPECT_TRUE(number == error::kExclusivelyLocked || number == 3356) << number;
    EXPECT_FALSE(source.Bound());
    other->Close();
    EXPECT_EQ(Connect(path).Number(), 0);
}

TEST_F(BadDatabook, AnUpdateThatStaysLockedEndsTheProgramWithItsMessage)
{
    AddComps({u"12 MAIN ST"_s, u"7 OAK AVE"_s});
    Bind(source);
    ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    engine.SetLockWait(50);
    engine::Engine othersEngine(disk, tests::SomeTime());
    const auto other = othersEngine.OpenDatabase(path);
    other->BeginTrans();
    other->Execute(u"UPDATE COMPS SET CITY = 'Elm Grove'"_s);

    source.Recordset().Edit();
    store::SetFieldData(source, u"Elsewhere"_s, u"CITY"_s);
    EXPECT_THROW(store::Updateandfind(ports, source, u"12 MAIN ST"_s), forms::EndOfProgram);
    EXPECT_EQ(
        doubles.prompter.Texts(),
        QStringList{
            u"The databases may be corrupt.  Please run the rebuild programs. (Double Click on the icons) "
            u"and restart Vasclip Manager."_s});
    other->CommitTrans();
    source.Recordset().CancelUpdate();
    ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    EXPECT_EQ(store::GetFieldData(source, u"CITY"_s), u"Elm Grove"_s) << "what the other user stored";
}

TEST_F(BadDatabook, ATableThatIsNotThereIsNamed)
{
    try {
        store::Connect2mdb(ports, source, path, u"NOTABLE"_s, kTable);
        FAIL() << "bound a table that is not there";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kTableUnknown);
        EXPECT_TRUE(failure.Description().contains(u"NOTABLE"_s)) << failure.Description().toStdString();
    }
}

TEST_F(BadDatabook, ADriveThatIsNotThereMayBeRetriedOrLeft)
{
    doubles.prompter.Answer(forms::Answer::Retry);
    doubles.prompter.Answer(forms::Answer::Abort);
    EXPECT_EQ(Connect(u"Q:\\DATABOOK.MDB"_s).Number(), 0);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Error"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::AbortRetryIgnore);
    EXPECT_TRUE(doubles.prompter.Last().text.endsWith(u"Error # 68 in module Connect2mdb."_s));
    EXPECT_FALSE(source.Bound());
}

} // namespace
