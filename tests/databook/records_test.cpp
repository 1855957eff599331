#include "databook/records.h"

#include "databook/city_fields.h"
#include "databook/comp_types.h"
#include "databook/entry_record.h"
#include "platform/text/runtime_error.h"
#include "store/change.h"
#include "support/databook_home.h"

#include "support/file_limit.h"
#include "support/standing_time.h"
#include "support/unix.h"

#include <QFile>

#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using databook::RecordOutcome;

namespace {

class Records : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    const databook::PictureStore pictures{disk, u"C:\\JPG\\"_s};
    void SetUp() override
    {
        DatabookHome::SetUp();
        AddComps({u"12 MAIN ST"_s, u"7 OAK AVE"_s});
        Bind(source);
    }
    databook::RecordResult Add(const QString& address, QChar type = u'F', int addressCase = 2)
    {
        return databook::AddRecord(ports, source, address, type, addressCase);
    }
    [[nodiscard]] QString Raw(const QString& field) { return source.Recordset().Value(field).toString(); }
    /// The keys that a fresh look at the file finds.
    [[nodiscard]] QStringList Keys()
    {
        const auto rows =
            engine.OpenDatabase(path)->OpenRecordset(u"SELECT COMPS.CENTRALKEY FROM COMPS ORDER BY "
                                                     u"COMPS.CENTRALKEY"_s,
                                                     engine::RecordsetType::Dynaset);
        QStringList keys;
        for (; !rows->Eof(); rows->MoveNext())
            keys.append(rows->Value(0).toString().trimmed());
        return keys;
    }
    const QStringList unchanged{u"12 MAIN ST"_s, u"7 OAK AVE"_s};
};

TEST_F(Records, ANewCompIsAPendingSaleLoadedToday)
{
    const databook::RecordResult added = Add(u"  1 New rd "_s, u's');
    EXPECT_TRUE(added) << added.message.toStdString();
    EXPECT_EQ(Raw(key), u"1 NEW RD"_s.leftJustified(35));
    EXPECT_EQ(Raw(u"ADDRESS"_s), u"1 New rd"_s.leftJustified(35));
    EXPECT_EQ(Raw(u"APPRSLTYPE"_s), u"S"_s);
    EXPECT_EQ(Raw(u"LOADDATE"_s), u"5/17/2024"_s);
    EXPECT_EQ(Raw(u"LOADSERIAL"_s), u" 45429"_s);
    EXPECT_EQ(Raw(u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Raw(u"SALESERIAL"_s), u" 2"_s);
    EXPECT_EQ(source.Recordset().CurrentEditMode(), engine::EditMode::None);
    EXPECT_EQ(Keys(), (QStringList{u"1 NEW RD"_s, u"12 MAIN ST"_s, u"7 OAK AVE"_s}));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Records, TheAddressTakesTheCaseOfTheSetting)
{
    struct Row
    {
        int addressCase;
        QString typed, stored;
    };
    int number = 100;
    for (const Row& row : {Row{0, u" 12th mAin"_s, u" 12TH MAIN"_s}, Row{1, u" 12th mAin"_s, u" 12Th Main"_s},
                           Row{2, u" 12th mAin"_s, u" 12th mAin"_s}}) {
        const QString house = QString::number(++number);
        ASSERT_TRUE(Add(house + row.typed, u'F', row.addressCase));
        EXPECT_EQ(Raw(u"ADDRESS"_s), (house + row.stored).leftJustified(35));
        EXPECT_EQ(Raw(key), (house + u" 12TH MAIN"_s).leftJustified(35));
    }
}

TEST_F(Records, WhatIsRefusedChangesNothing)
{
    struct Row
    {
        const char* name;
        QString address;
        QChar type;
        RecordOutcome outcome;
        QString message;
    };
    const QString longAddress = QString(300, u'X');
    for (const Row& row : {
             Row{"blank", u"  "_s, u'F', RecordOutcome::Blank, u"Please Enter An Address"_s},
             Row{"nothing but signs", u"---"_s, u'F', RecordOutcome::Blank, u"Please Enter An Address"_s},
             Row{"a tab behind it, as a copy from a table has it", u"12 MAIN ST\t"_s, u'F',
                 RecordOutcome::Invalid, u"Please enter a valid address."_s},
             Row{"two lines", u"1 NEW RD\r\nELM GROVE"_s, u'F', RecordOutcome::Invalid,
                 u"Please enter a valid address."_s},
             Row{"an unseen end of line", u"1 NEW\u2028RD"_s, u'F', RecordOutcome::Invalid,
                 u"Please enter a valid address."_s},
             Row{"there already", u"12 main st"_s, u'F', RecordOutcome::Duplicate,
                 u"The address 12 main st already exists.  Try again."_s},
             Row{"unknown type", u"1 NEW RD"_s, u'Z', RecordOutcome::UnknownType,
                 u"\"Z\" is no comp type. The types are F, C, S, R, L and M."_s},
             Row{"no type", u"1 NEW RD"_s, QChar(), RecordOutcome::UnknownType, QString()},
             Row{"300 characters", longAddress, u'F', RecordOutcome::TooLong,
                 u"The address "_s + longAddress +
                     u" has 300 characters; the Databook holds at most 35. Shorten it and try again."_s},
         }) {
        const databook::RecordResult result = Add(row.address, row.type);
        EXPECT_EQ(result.outcome, row.outcome) << row.name;
        if (!row.message.isEmpty()) {
            EXPECT_EQ(result.message, row.message) << row.name;
        }
        EXPECT_EQ(Keys(), unchanged) << row.name;
    }
}

TEST_F(Records, AddressesOfAllKindsAreFoundAgain)
{
    for (const QString& address : {u"3 O'Brien's Rd"_s, u"4 École Wäy"_s, u"5 \"Quoted\" Ln; DROP TABLE"_s,
                                   u"\u05e8\u05d7\u05d5\u05d1 12"_s, QString(35, u'Y'), u"x"_s}) {
        const databook::RecordResult added = Add(address, u' ');
        EXPECT_TRUE(added) << added.message.toStdString();
        EXPECT_EQ(Raw(u"ADDRESS"_s), address.leftJustified(35));
        EXPECT_EQ(Raw(u"APPRSLTYPE"_s), u" "_s);
        EXPECT_TRUE(store::FindRecord(ports, source, databook::KeyOf(address), key));
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Records, ACompThatSomebodyElseAddsFirstIsReportedAsThere)
{
    engine::Engine othersEngine(disk, tests::SomeTime());
    store::DataSource other(othersEngine, u"datDatabook"_s);
    store::Connect2mdb(ports, other, path, table, store::SourceKind::Table);
    // The other user is quicker: between the look and the write.
    bool done = false;
    doubles.pump.onTurn = [&] {
        if (done)
            return;
        done = true;
        (void)databook::AddRecord(ports, other, u"1 NEW RD"_s, u'F', 2);
    };
    const databook::RecordResult result = Add(u"1 NEW RD"_s);
    EXPECT_EQ(result.outcome, RecordOutcome::Duplicate);
    EXPECT_EQ(source.Recordset().CurrentEditMode(), engine::EditMode::None);
    EXPECT_EQ(Keys(), (QStringList{u"1 NEW RD"_s, u"12 MAIN ST"_s, u"7 OAK AVE"_s}));
}

TEST_F(Records, WithoutRoomOnTheDiskTheUserIsAskedAndNothingIsLost)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    doubles.prompter.AnswerAlways(forms::Answer::Abort);
    const auto address = [](int i) { return u"%1 FULL DISK RD"_s.arg(i); };
    int added = 0;
    {
        const tests::FileLimit limit(disk.FileLen(path));
        databook::RecordResult result;
        while (added < 2000 && (result = Add(address(added))))
            ++added;
        EXPECT_EQ(result.outcome, RecordOutcome::Abandoned);
        EXPECT_EQ(result.message, u"Nothing was changed."_s);
    }
    ASSERT_FALSE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::AbortRetryIgnore);
    EXPECT_EQ(doubles.prompter.Last().title, u"Error"_s);
    EXPECT_EQ(source.Recordset().CurrentEditMode(), engine::EditMode::None);
    EXPECT_EQ(Keys().size(), unchanged.size() + added);
    EXPECT_FALSE(store::FindRecord(ports, source, address(added), key));

    const databook::RecordResult again = Add(address(added));
    EXPECT_TRUE(again) << "room again: " << again.message.toStdString();
    EXPECT_EQ(Keys().size(), unchanged.size() + added + 1);
}
/// Makes room when it is asked, and retries.
class Tidying : public tests::ScriptedPrompter
{
public:
    tests::FileLimit* limit = nullptr;
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title,
                         const QString& text) override
    {
        Answer(forms::Answer::Retry);
        limit->Lift();
        return ScriptedPrompter::MsgBox(buttons, icon, title, text);
    }
};

TEST_F(Records, ARetryWritesAllOfItAgain)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    Tidying prompter;
    tests::FileLimit limit(disk.FileLen(path));
    prompter.limit = &limit;
    const forms::Ports tidying{prompter, ports.pump, ports.clock, ports.random, ports.window, ports.screens};
    for (int i = 0; i < 2000 && prompter.Boxes().empty(); ++i) {
        const QString address = u"%1 FULL DISK RD"_s.arg(i);
        const databook::RecordResult result = databook::AddRecord(tidying, source, address, u'C', 2);
        ASSERT_TRUE(result) << result.message.toStdString();
        EXPECT_EQ(Raw(key).trimmed(), address);
        EXPECT_EQ(Raw(u"SALEDATE"_s), u"01/01/1900"_s);
        EXPECT_EQ(Raw(u"APPRSLTYPE"_s), u"C"_s);
    }
    EXPECT_EQ(prompter.Boxes().size(), 1U) << "asked once, then there was room";
}

TEST_F(Records, DeletesOneRecord)
{
    EXPECT_TRUE(databook::DeleteRecord(ports, source, u" 12 main st"_s, pictures));
    EXPECT_EQ(Keys(), QStringList{u"7 OAK AVE"_s});
    const databook::RecordResult again = databook::DeleteRecord(ports, source, u"12 main st"_s, pictures);
    EXPECT_EQ(again.outcome, RecordOutcome::NotFound);
    EXPECT_EQ(again.message, u"The address 12 main st is not in the Databook."_s);
    EXPECT_EQ(databook::DeleteRecord(ports, source, u" "_s, pictures).outcome, RecordOutcome::Blank);
    EXPECT_EQ(Keys(), QStringList{u"7 OAK AVE"_s});
}

class DeleteWithPictures : public Records
{
protected:
    const QStringList stems{u"11111111"_s, u"22222222"_s};
    void SetUp() override
    {
        Records::SetUp();
        disk.MkDir(u"C:\\JPG"_s);
        for (const QString& stem : {stems[0], stems[1], u"33333333"_s})
            disk.WriteWhole(Picture(stem), "jpeg");
        ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
        source.Recordset().Edit();
        store::SetFieldData(source, u"FRONT VIEW|11111111\r\nREAR VIEW|22222222\r\nLOST|33333333"_s,
                            u"PHOTOS"_s);
        source.Recordset().Update();
    }
    [[nodiscard]] static QString Picture(const QString& stem) { return u"C:\\JPG\\"_s + stem + u".jpg"_s; }
    [[nodiscard]] bool Stored(const QString& stem) const { return disk.FileExists(Picture(stem)); }
    databook::RecordResult Delete()
    {
        return databook::DeleteRecord(ports, source, u"12 main st"_s, pictures);
    }
};

TEST_F(DeleteWithPictures, ItsPicturesGoWithItAndNoOthers)
{
    disk.SetAttr(Picture(stems[1]), files::ReadOnly);
    const databook::RecordResult deleted = Delete();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(deleted.message, QString());
    EXPECT_EQ(Keys(), QStringList{u"7 OAK AVE"_s});
    EXPECT_FALSE(Stored(stems[0]));
    EXPECT_FALSE(Stored(stems[1])) << "write-protected in a report";
    EXPECT_TRUE(Stored(u"33333333"_s)) << "a line without its end names no picture";
    EXPECT_FALSE(disk.DirExists(u"C:\\JPG\\TRASHCAN"_s)) << "stored pictures leave no copy";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(DeleteWithPictures, APictureThatCannotGoIsNamed)
{
    ASSERT_TRUE(QFile::setPermissions(disk.ToNative(u"C:\\JPG"_s), QFile::ReadOwner | QFile::ExeOwner));
    const databook::RecordResult deleted = Delete();
    const bool root = !Stored(stems[0]); // rights do not bind the superuser
    QFile::setPermissions(disk.ToNative(u"C:\\JPG"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(deleted);
    EXPECT_EQ(Keys(), QStringList{u"7 OAK AVE"_s});
    if (root)
        GTEST_SKIP() << "run by somebody whom rights do not bind";
    EXPECT_EQ(deleted.message, u"12 MAIN ST was deleted, but these pictures of it could not be: "
                               u"C:\\JPG\\11111111.jpg, C:\\JPG\\22222222.jpg. Close what shows them and "
                               u"delete them by hand."_s);
}

TEST_F(DeleteWithPictures, NoPictureGoesWhileTheRecordIsLocked)
{
    engine::Engine othersEngine(disk, tests::SomeTime());
    const auto other = othersEngine.OpenDatabase(path);
    engine.SetLockWait(50);
    {
        engine::Transaction busy(*other);
        other->Execute(u"UPDATE COMPS SET CITY = 'Elm'"_s);
        EXPECT_THROW((void)Delete(), forms::EndOfProgram)
            << "a locked record ends the program with its message";
        ASSERT_FALSE(doubles.prompter.Boxes().empty());
    }
    EXPECT_TRUE(Stored(stems[0]));
    EXPECT_TRUE(Stored(stems[1]));
    EXPECT_EQ(Keys(), unchanged);
    EXPECT_TRUE(Delete()) << "the lock is gone";
    EXPECT_FALSE(Stored(stems[0]));
}

/// Another user at another desk.
class TwoUsers : public DeleteWithPictures
{
protected:
    engine::Engine othersEngine{disk, tests::SomeTime()};
    store::DataSource other{othersEngine, u"datDatabook"_s};
    /// The other user does something between this one's look and write.
    template <class Act>
    void Meanwhile(Act&& act)
    {
        store::Connect2mdb(ports, other, path, table, store::SourceKind::Table);
        doubles.pump.onTurn = [this, act, done = false]() mutable {
            if (!std::exchange(done, true))
                act();
        };
    }
    void DeletesIt()
    {
        EXPECT_TRUE(store::FindRecord(ports, other, u"12 MAIN ST"_s, key));
        other.Recordset().Delete();
    }
};

TEST_F(TwoUsers, ARecordThatIsDeletedMeanwhileIsToldAndItsPicturesAreLeft)
{
    Meanwhile([this] { DeletesIt(); });
    const databook::RecordResult deleted = Delete();
    EXPECT_EQ(deleted.outcome, RecordOutcome::NotFound);
    EXPECT_EQ(deleted.message, u"The address 12 main st is not in the Databook."_s);
    EXPECT_TRUE(Stored(stems[0])) << "they are the other user's business";
}

TEST_F(TwoUsers, ARecordThatIsDeletedMeanwhileIsNeitherCopiedNorRenamed)
{
    for (const bool copy : {true, false}) {
        if (!store::FindRecord(ports, source, u"12 MAIN ST"_s, key))
            AddComps({u"12 MAIN ST"_s});
        // The first turn is that of the look at the new address, the second that of the old one.
        int turns = 0;
        store::Connect2mdb(ports, other, path, table, store::SourceKind::Table);
        doubles.pump.onTurn = [&] {
            if (++turns == 2)
                DeletesIt();
        };
        const databook::RecordResult result =
            copy ? databook::CopyRecord(ports, source, u"12 MAIN ST"_s, u"14 MAIN ST"_s)
                 : databook::RenameRecord(ports, source, u"12 MAIN ST"_s, u"14 MAIN ST"_s);
        doubles.pump.onTurn = nullptr;
        EXPECT_EQ(result.outcome, RecordOutcome::NotFound) << copy;
        EXPECT_EQ(result.message, u"The address 12 MAIN ST is not in the Databook."_s) << copy;
        EXPECT_EQ(source.Recordset().CurrentEditMode(), engine::EditMode::None);
        EXPECT_EQ(Keys(), QStringList{u"7 OAK AVE"_s}) << copy;
    }
}

/// A second process that adds, copies, renames and deletes until it is killed.
[[noreturn]] void WorkUntilKilled(const QString& home, const QString& path, int round)
{
    files::Disk disk(home);
    engine::Engine engine(disk, tests::SomeTime());
    tests::TestPorts doubles;
    const forms::Ports ports = doubles.Get();
    store::DataSource source(engine, u"datDatabook"_s);
    store::Connect2mdb(ports, source, path, u"COMPS"_s, store::SourceKind::Table);
    for (int i = 0;; ++i) {
        const QString name = u"%1 KILL RD %2"_s.arg(i).arg(round);
        (void)databook::AddRecord(ports, source, name, u'C', 2);
        (void)databook::CopyRecord(ports, source, name, name + u" B"_s);
        (void)databook::RenameRecord(ports, source, name + u" B"_s, name + u" C"_s);
        if (i % 3 == 0)
            (void)databook::DeleteRecord(ports, source, name, {disk, u"C:\\JPG\\"_s});
    }
}

TEST_F(Records, AKillWhileSavingLeavesNoHalfRecord)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    constexpr int kRounds = 12;
    source.Close();
    for (int round = 0; round < kRounds; ++round) {
        const pid_t child = fork();
        if (child == 0)
            WorkUntilKilled(disk.Home(), path, round);
        ASSERT_GT(child, 0);
        usleep(static_cast<useconds_t>(60000 + round * 7001));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    Bind(source);
    engine::Recordset& rows = source.Recordset();
    int written = 0;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        const QString name = Raw(key).trimmed();
        if (!name.contains(u"KILL RD"_s))
            continue;
        ++written;
        EXPECT_EQ(Raw(u"ADDRESS"_s).trimmed(), name);
        EXPECT_EQ(Raw(u"APPRSLTYPE"_s), u"C"_s) << name.toStdString();
        EXPECT_EQ(Raw(u"SALEDATE"_s), u"01/01/1900"_s) << name.toStdString();
        EXPECT_EQ(Raw(u"SALESERIAL"_s), u" 2"_s) << name.toStdString();
        EXPECT_EQ(Raw(u"LOADDATE"_s), u"5/17/2024"_s) << name.toStdString();
    }
    EXPECT_GT(written, kRounds) << "the children were killed at work";
    EXPECT_TRUE(Add(u"1 AFTERWARDS RD"_s));
    for (const QString& present : unchanged)
        EXPECT_TRUE(Keys().contains(present));
}

class CopyAndRename : public Records
{
protected:
    void SetUp() override
    {
        Records::SetUp();
        ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
        source.Recordset().Edit();
        for (const auto& [field, value] : {std::pair{u"CITY"_s, u"Elm Grove"_s},
                                           {u"GLA"_s, u"1999"_s},
                                           {u"FRONT"_s, u"1"_s},
                                           {u"PHOTOS"_s, u"FRONT VIEW|ABCDEFGH\r\n"_s},
                                           {u"NOTES"_s, u"corner lot"_s}})
            store::SetFieldData(source, value, field);
        source.Recordset().AppendChunk(u"FRONTPHOTO"_s, QByteArray("jpeg bytes"));
        source.Recordset().Update();
    }
};

TEST_F(CopyAndRename, ACopyHasEverythingButKeyAddressAndPhotos)
{
    const databook::RecordResult copied =
        databook::CopyRecord(ports, source, u"12 main st"_s, u" 14 Main St "_s);
    EXPECT_TRUE(copied) << copied.message.toStdString();
    EXPECT_EQ(Raw(key), u"14 MAIN ST"_s.leftJustified(35));
    EXPECT_EQ(Raw(u"ADDRESS"_s), u"14 Main St"_s.leftJustified(35));
    EXPECT_EQ(Raw(u"CITY"_s), u"Elm Grove"_s);
    EXPECT_EQ(Raw(u"GLA"_s), u"1999"_s);
    EXPECT_EQ(Raw(u"NOTES"_s), u"corner lot"_s);
    EXPECT_EQ(Raw(u"FRONT"_s), u" "_s);
    EXPECT_EQ(Raw(u"PHOTOS"_s), u" "_s);
    EXPECT_FALSE(source.Recordset().Value(u"FRONTPHOTO"_s).isValid());
    EXPECT_FALSE(source.Recordset().Value(u"COUNTY"_s).isValid()) << "Null stays Null";
    ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    EXPECT_EQ(Raw(u"PHOTOS"_s), u"FRONT VIEW|ABCDEFGH\r\n"_s) << "the original keeps its photos";
}

TEST_F(CopyAndRename, ARenamedCompKeepsItsPhotos)
{
    const databook::RecordResult renamed =
        databook::RenameRecord(ports, source, u"12 main st"_s, u"14 Main St"_s);
    EXPECT_TRUE(renamed) << renamed.message.toStdString();
    EXPECT_EQ(Raw(key), u"14 MAIN ST"_s.leftJustified(35));
    EXPECT_EQ(Raw(u"ADDRESS"_s), u"14 Main St"_s.leftJustified(35));
    EXPECT_EQ(Raw(u"PHOTOS"_s), u"FRONT VIEW|ABCDEFGH\r\n"_s);
    EXPECT_EQ(Raw(u"FRONT"_s), u"1"_s);
    EXPECT_EQ(Keys(), (QStringList{u"14 MAIN ST"_s, u"7 OAK AVE"_s}));
}

TEST_F(CopyAndRename, BothRefuseTheSameThings)
{
    struct Row
    {
        const char* name;
        QString from, to;
        RecordOutcome outcome;
        QString message;
    };
    const QString longAddress = QString(36, u'X');
    for (const Row& row : {
             Row{"itself in another case", u"12 MAIN ST"_s, u" 12 Main St "_s, RecordOutcome::Itself,
                 u"Address cannot be renamed to itself."_s},
             Row{"blank", u"12 MAIN ST"_s, u"  "_s, RecordOutcome::Blank, u"Please enter a valid address."_s},
             Row{"nothing but signs", u"12 MAIN ST"_s, u"#"_s, RecordOutcome::Blank,
                 u"Please enter a valid address."_s},
             Row{"a control character", u"12 MAIN ST"_s, u"14 MAIN\x01ST"_s, RecordOutcome::Invalid,
                 u"Please enter a valid address."_s},
             Row{"its own with a tab", u"12 MAIN ST"_s, u"12 MAIN ST\t"_s, RecordOutcome::Invalid,
                 u"Please enter a valid address."_s},
             Row{"no address to begin with", u" "_s, u"14 MAIN ST"_s, RecordOutcome::Blank,
                 u"Please Enter An Address"_s},
             Row{"there already", u"12 MAIN ST"_s, u"7 Oak Ave"_s, RecordOutcome::Duplicate,
                 u"The address 7 Oak Ave already exists.  Try again."_s},
             Row{"not there", u"99 NOWHERE"_s, u"14 MAIN ST"_s, RecordOutcome::NotFound,
                 u"The address 99 NOWHERE is not in the Databook."_s},
             Row{"too long", u"12 MAIN ST"_s, longAddress, RecordOutcome::TooLong,
                 u"The address "_s + longAddress +
                     u" has 36 characters; the Databook holds at most 35. Shorten it and try again."_s},
         }) {
        const databook::RecordResult copied = databook::CopyRecord(ports, source, row.from, row.to);
        EXPECT_EQ(copied.outcome, row.outcome) << row.name;
        EXPECT_EQ(copied.message, row.message) << row.name;
        const databook::RecordResult renamed = databook::RenameRecord(ports, source, row.from, row.to);
        EXPECT_EQ(renamed.outcome, row.outcome) << row.name;
        EXPECT_EQ(renamed.message, row.message) << row.name;
        EXPECT_EQ(Keys(), unchanged) << row.name;
    }
}

TEST_F(Records, EveryStepIsToldInItsWordsWithWhatItChanged)
{
    QList<store::Step> steps;
    source.Watch([&](const store::Step& step) { steps.append(step); });
    const auto words = [&] {
        QStringList said;
        for (const store::Step& step : std::exchange(steps, {}))
            said.append(step.words);
        return said;
    };
    EXPECT_TRUE(Add(u"1 New Rd"_s));
    EXPECT_TRUE(databook::CopyRecord(ports, source, u"1 New Rd"_s, u"2 New Rd"_s));
    EXPECT_TRUE(databook::RenameRecord(ports, source, u"2 New Rd"_s, u"3 New Rd"_s));
    EXPECT_EQ(steps.last().before.value(key).toString().trimmed(), u"2 NEW RD"_s);
    EXPECT_EQ(steps.last().after.value(key).toString().trimmed(), u"3 NEW RD"_s);
    EXPECT_TRUE(databook::DeleteRecord(ports, source, u"3 New Rd"_s, pictures));
    EXPECT_EQ(steps.last().before.value(u"APPRSLTYPE"_s), u"F"_s);
    EXPECT_EQ(words(), (QStringList{u"Add 1 NEW RD"_s, u"Copy 1 NEW RD to 2 NEW RD"_s, u"Rename 2 NEW RD to 3 NEW RD"_s,
                                    u"Delete 3 NEW RD"_s}));

    const databook::EntryDesk desk{
        .ports = ports, .engine = engine, .databook = path, .table = table, .opened = &source};
    databook::EntryRecord record(desk, *databook::FindEntryForm(databook::EntryFormOf(u"F"_s)), u"12 Main St"_s);
    ASSERT_TRUE(record.Open());
    record.SetText(u"CITY"_s, u"Bend"_s);
    EXPECT_EQ(record.Save(), databook::Stored::Done);
    EXPECT_EQ(steps.last().after.value(u"CITY"_s), u"Bend"_s);
    record.Cancel();
    ASSERT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
    databook::SetCity(source, {u"Salem"_s, u"OR"_s, {}, {}});
    EXPECT_EQ(words(), (QStringList{u"Edit 12 MAIN ST"_s, u"Set the city of 7 OAK AVE"_s}));
}

} // namespace
